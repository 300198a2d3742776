#include "reports/Lienzo.h"

#include <QImage>
#include <QPainter>
#include <QPicture>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QString PdfATexto(const QString &archivo) {
  QProcess p;
  p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), archivo, QStringLiteral("-")});
  p.waitForFinished(60000);
  return QString::fromUtf8(p.readAllStandardOutput());
}

// The leftmost and rightmost columns with ink on an image.
std::pair<int, int> ColumnasConTinta(const QImage &imagen) {
  int primera = imagen.width(), ultima = -1;
  for (int y = 0; y < imagen.height(); ++y)
    for (int x = 0; x < imagen.width(); ++x)
      if (qGray(imagen.pixel(x, y)) < 128) {
        primera = std::min(primera, x);
        ultima = std::max(ultima, x);
      }
  return {primera, ultima};
}

// A letter sheet at 144 dots an inch: a twip is a tenth of a dot.
QImage Hoja() {
  QImage hoja(1224, 1584, QImage::Format_RGB32);
  hoja.setDotsPerMeterX(qRound(144 / 0.0254));
  hoja.setDotsPerMeterY(qRound(144 / 0.0254));
  hoja.fill(Qt::white);
  return hoja;
}

// The programme of a report on any canvas: two pages drawn and kept, then loaded into one
// document and numbered.
void DosPaginas(Lienzo &lienzo, const QString &carpeta) {
  for (int i = 1; i <= 2; ++i) {
    lienzo.IniciarPagina();
    lienzo.Estado() = EstadoDibujo{7, false, false, false, 0};
    lienzo.DibujarTexto(0, 1100, QStringLiteral("Renglón de la página %1").arg(i));
    lienzo.Estado().alineacion = 2;
    lienzo.DibujarTexto(9900, 1300, QStringLiteral("1,250.50"));
    lienzo.Linea(0, 1500, Lienzo::kAncho, 1500);
    lienzo.Recuadro(6900, 240, 2500, 200);
    lienzo.TerminarPagina();
    lienzo.GuardarPagina(carpeta + QStringLiteral("/p_%1.emf").arg(i));
  }
  lienzo.IniciarPagina();
  lienzo.Estado() = EstadoDibujo{8, false, false, true, 0};
  for (int i = 1; i <= 2; ++i) {
    lienzo.CargarPagina(carpeta + QStringLiteral("/p_%1.emf").arg(i));
    lienzo.DibujarTexto(7000, 720, QStringLiteral("Página  : %1 / 2").arg(i));
    if (i < 2)
      lienzo.NuevaPagina();
  }
  lienzo.TerminarPagina();
}

} // namespace

TEST(LienzoGrabador, EachCallWithItsStateInTheOrderDrawnThePagesNumberedLast) {
  QTemporaryDir dir;
  LienzoGrabador lienzo;
  DosPaginas(lienzo, dir.path());
  ASSERT_EQ(lienzo.TotalPaginas(), 2);
  const QStringList esperada{
      QStringLiteral("1\ttexto\t0\t1100\t7\t0\t0\tnegro\t0\tRenglón de la página 1"),
      QStringLiteral("1\ttexto\t9900\t1300\t7\t0\t0\tnegro\t2\t1,250.50"),
      QStringLiteral("1\tlinea\t0\t1500\t10500\t1500"),
      QStringLiteral("1\trecuadro\t6900\t240\t2500\t200"),
      QStringLiteral("1\ttexto\t7000\t720\t8\t0\t0\tazul\t0\tPágina  : 1 / 2"),
      QStringLiteral("2\ttexto\t0\t1100\t7\t0\t0\tnegro\t0\tRenglón de la página 2"),
      QStringLiteral("2\ttexto\t9900\t1300\t7\t0\t0\tnegro\t2\t1,250.50"),
      QStringLiteral("2\tlinea\t0\t1500\t10500\t1500"),
      QStringLiteral("2\trecuadro\t6900\t240\t2500\t200"),
      QStringLiteral("2\ttexto\t7000\t720\t8\t0\t0\tazul\t0\tPágina  : 2 / 2")};
  EXPECT_EQ(lienzo.Traza(), esperada);
}

TEST(LienzoGrabador, TheStateKeptIsPutBackAfterAHeader) {
  LienzoGrabador lienzo;
  lienzo.IniciarPagina();
  lienzo.Estado().tamano = 7;
  lienzo.GuardarEstado();
  lienzo.Estado() = EstadoDibujo{8, true, true, true, 0};
  lienzo.DibujarTexto(0, 0, QStringLiteral("Empresa   :"));
  lienzo.RestaurarEstado();
  lienzo.DibujarTexto(0, 1100, QStringLiteral("renglón"));
  EXPECT_EQ(lienzo.Traza(),
            (QStringList{QStringLiteral("1\ttexto\t0\t0\t8\t1\t1\tazul\t0\tEmpresa   :"),
                         QStringLiteral("1\ttexto\t0\t1100\t7\t0\t0\tnegro\t0\trenglón")}));
}

TEST(LienzoPintor, PagesAreKeptAsFilesLoadedAgainAndWrittenAsPdf) {
  QTemporaryDir dir;
  LienzoPintor lienzo;
  DosPaginas(lienzo, dir.path());
  ASSERT_EQ(lienzo.TotalPaginas(), 2);
  // The kept pages are picture files the program can open again.
  QPicture guardada;
  EXPECT_TRUE(guardada.load(dir.filePath(QStringLiteral("p_1.emf"))));
  const QString archivo = dir.filePath(QStringLiteral("reporte.pdf"));
  ASSERT_EQ(GuardarPdf(lienzo, archivo), QString());
  const QStringList paginas = PdfATexto(archivo).split(QChar(u'\f'), Qt::SkipEmptyParts);
  ASSERT_EQ(paginas.size(), 2);
  for (int i = 1; i <= 2; ++i) {
    EXPECT_TRUE(paginas[i - 1].contains(QStringLiteral("Renglón de la página %1").arg(i)))
        << paginas[i - 1].toStdString();
    EXPECT_TRUE(paginas[i - 1].contains(QStringLiteral("%1 / 2").arg(i)))
        << paginas[i - 1].toStdString();
  }
}

TEST(LienzoPintor, AnAlignmentOfTwoEndsTheTextAtItsCoordinate) {
  for (int alineacion : {0, 2}) {
    LienzoPintor lienzo;
    lienzo.IniciarPagina();
    lienzo.Estado().alineacion = alineacion;
    lienzo.Estado().tamano = 10;
    lienzo.DibujarTexto(5000, 2000, QStringLiteral("TOTAL 1,234,567.89"));
    lienzo.TerminarPagina();
    QImage hoja = Hoja();
    QPainter pintor(&hoja);
    DibujarPagina(pintor, lienzo.Pagina(1));
    pintor.end();
    const auto [primera, ultima] = ColumnasConTinta(hoja);
    const int borde = (870 + 5000) / 10; // the drawn width begins 870 twips in
    if (alineacion == 2) {
      EXPECT_LE(ultima, borde);
      EXPECT_GE(ultima, borde - 3);
      EXPECT_LT(primera, borde - 60);
    } else {
      EXPECT_GE(primera, borde);
      EXPECT_LE(primera, borde + 3);
      EXPECT_GT(ultima, borde + 60);
    }
  }
}

TEST(LienzoPintor, APdfThatCantBeWrittenGivesItsReason) {
  QTemporaryDir dir;
  LienzoPintor lienzo;
  lienzo.IniciarPagina();
  lienzo.TerminarPagina();
  const QString archivo = dir.filePath(QStringLiteral("no/existe/reporte.pdf"));
  EXPECT_EQ(GuardarPdf(lienzo, archivo),
            QStringLiteral("No se pudo escribir el archivo %1").arg(archivo));
}
