#include "reports/Lienzo.h"

#include <QFile>
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

// A sheet where a twip is a tenth of a pixel... 144 dots an inch.
QImage Hoja() {
  QImage hoja(1224, 1584, QImage::Format_RGB32);
  hoja.setDotsPerMeterX(qRound(144 / 0.0254));
  hoja.setDotsPerMeterY(qRound(144 / 0.0254));
  hoja.fill(Qt::white);
  return hoja;
}

} // namespace

TEST(LienzoTest, UnReporteSinRenglonesTieneUnaPaginaNumerada) {
  Lienzo lienzo;
  lienzo.IniciarPagina();
  lienzo.DibujarTexto(0, 1100, QStringLiteral("Fecha"));
  lienzo.TerminarPagina();
  lienzo.NumerarPaginas();
  ASSERT_EQ(lienzo.TotalPaginas(), 1);
  EXPECT_EQ(lienzo.Textos(),
            (QStringList{QStringLiteral("-- página 1"), QStringLiteral("1100 0 Fecha"),
                         QStringLiteral("720 7000 Página  : 1 / 1")}));
}

TEST(LienzoTest, ElNumeroSeDibujaEncimaConSuPropioEstado) {
  Lienzo lienzo;
  for (int i = 0; i < 3; ++i) {
    lienzo.IniciarPagina();
    lienzo.Estado() = EstadoDibujo{10, true, true, false, 2};
    lienzo.DibujarTexto(9900, 2000, QStringLiteral("1,250.50"));
    lienzo.TerminarPagina();
  }
  lienzo.NumerarPaginas();
  ASSERT_EQ(lienzo.TotalPaginas(), 3);
  for (int i = 1; i <= 3; ++i) {
    const Trazo &numero = lienzo.Pagina(i).trazos.last();
    EXPECT_EQ(numero.texto, QStringLiteral("Página  : %1 / 3").arg(i));
    EXPECT_EQ(numero.x, 7000);
    EXPECT_EQ(numero.y, 720);
    EXPECT_EQ(numero.estado.tamano, 8);
    EXPECT_TRUE(numero.estado.azul);
    EXPECT_FALSE(numero.estado.negrita);
    EXPECT_FALSE(numero.estado.subrayado);
    EXPECT_EQ(numero.estado.alineacion, 0);
  }
  EXPECT_EQ(lienzo.Textos().at(1), QStringLiteral("2000 <9900 1,250.50"));
}

TEST(LienzoTest, ElEstadoGuardadoVuelveTrasElEncabezado) {
  Lienzo lienzo;
  lienzo.IniciarPagina();
  lienzo.Estado().tamano = 7;
  lienzo.GuardarEstado();
  lienzo.Estado() = EstadoDibujo{8, true, false, true, 0};
  lienzo.DibujarTexto(0, 0, QStringLiteral("Empresa   :"));
  lienzo.RestaurarEstado();
  lienzo.DibujarTexto(0, 1100, QStringLiteral("renglón"));
  const Trazo &renglon = lienzo.Pagina(1).trazos.last();
  EXPECT_EQ(renglon.estado.tamano, 7);
  EXPECT_FALSE(renglon.estado.negrita);
  EXPECT_FALSE(renglon.estado.azul);
}

TEST(LienzoTest, LaAlineacionDerechaTerminaEnLaCoordenada) {
  // At 144 dots an inch a twip is a tenth of a dot; the drawn width starts 870 twips in.
  for (int alineacion : {0, 2}) {
    Lienzo lienzo;
    lienzo.IniciarPagina();
    lienzo.Estado().alineacion = alineacion;
    lienzo.Estado().tamano = 10;
    lienzo.DibujarTexto(5000, 2000, QStringLiteral("TOTAL 1,234,567.89"));
    QImage hoja = Hoja();
    QPainter pintor(&hoja);
    lienzo.DibujarPagina(pintor, 1);
    pintor.end();
    const auto [primera, ultima] = ColumnasConTinta(hoja);
    const int borde = (870 + 5000) / 10;
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

TEST(LienzoTest, ElPdfTieneCadaPaginaConSuTexto) {
  QTemporaryDir dir;
  Lienzo lienzo;
  for (int i = 1; i <= 3; ++i) {
    lienzo.IniciarPagina();
    lienzo.DibujarTexto(0, 1100, QStringLiteral("Renglón de la página %1").arg(i));
    lienzo.Linea(0, 1300, Lienzo::kAncho, 1300);
    lienzo.Recuadro(6900, 240, 2500, 200);
    lienzo.TerminarPagina();
  }
  lienzo.NumerarPaginas();
  const QString archivo = dir.filePath(QStringLiteral("reporte.pdf"));
  ASSERT_EQ(lienzo.GuardarPdf(archivo), QString());
  const QStringList paginas = PdfATexto(archivo).split(QChar(u'\f'), Qt::SkipEmptyParts);
  ASSERT_EQ(paginas.size(), 3);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_TRUE(paginas[i - 1].contains(QStringLiteral("Renglón de la página %1").arg(i)))
        << paginas[i - 1].toStdString();
    EXPECT_TRUE(paginas[i - 1].contains(QStringLiteral("Página : %1 / 3").arg(i)) ||
                paginas[i - 1].contains(QStringLiteral("Página  : %1 / 3").arg(i)))
        << paginas[i - 1].toStdString();
  }
}

TEST(LienzoTest, UnPdfQueNoSePuedeEscribirDaSuMotivo) {
  QTemporaryDir dir;
  Lienzo lienzo;
  lienzo.IniciarPagina();
  lienzo.TerminarPagina();
  const QString archivo = dir.filePath(QStringLiteral("no/existe/reporte.pdf"));
  EXPECT_EQ(lienzo.GuardarPdf(archivo),
            QStringLiteral("No se pudo escribir el archivo %1").arg(archivo));
  EXPECT_FALSE(QFile::exists(archivo));
}

TEST(LienzoTest, LaPaginaGuardadaSeAbreYSeDibujaComoEsta) {
  QTemporaryDir dir;
  Lienzo lienzo;
  lienzo.IniciarPagina();
  lienzo.Linea(0, 960, Lienzo::kAncho, 960);
  lienzo.DibujarTexto(0, 0, QStringLiteral("Empresa   : DEMO"));
  lienzo.TerminarPagina();
  const QString archivo = dir.filePath(QStringLiteral("pagina.emf"));
  ASSERT_EQ(lienzo.GuardarImagenPagina(1, archivo), QString());
  QPicture imagen;
  ASSERT_TRUE(imagen.load(archivo));
  // The line spans the drawn width from the left margin, in twips.
  EXPECT_EQ(imagen.boundingRect().left(), 870);
  EXPECT_GE(imagen.boundingRect().right(), 870 + Lienzo::kAncho - 1);
  EXPECT_NE(lienzo.GuardarImagenPagina(1, dir.filePath(QStringLiteral("no/existe.emf"))),
            QString());
}
