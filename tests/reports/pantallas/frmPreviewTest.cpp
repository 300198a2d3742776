#include "reports/pantallas/frmPreview.h"
#include "Apoyo.h"
#include "Capturas.h"
#include "reports/Lienzo.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// A document of three painted pages, shown in the preview.
class Preview : public testing::Test {
protected:
  void SetUp() override {
    CatalogoMensajes::Instalar(&mensajes);
    for (int i = 1; i <= 3; ++i) {
      documento.IniciarPagina();
      documento.DibujarTexto(0, 1100, QStringLiteral("Página de prueba %1").arg(i));
      documento.TerminarPagina();
    }
    f = std::make_unique<frmPreview>(documento);
    f->show();
    QApplication::setActiveWindow(f.get());
  }
  void TearDown() override { CatalogoMensajes::Instalar(nullptr); }

  PresentadorGrabador mensajes;
  LienzoPintor documento;
  std::unique_ptr<frmPreview> f;
};

} // namespace

TEST_F(Preview, TheZoomListHasItsNineEntriesWithOneHundredChosen) {
  QStringList zooms;
  for (int i = 0; i < f->cmbZoom->count(); ++i)
    zooms << f->cmbZoom->itemText(i);
  EXPECT_EQ(zooms,
            (QStringList{QStringLiteral("30%"), QStringLiteral("50%"), QStringLiteral("70%"),
                         QStringLiteral("80%"), QStringLiteral("90%"), QStringLiteral("100%"),
                         QStringLiteral("130%"), QStringLiteral("150%"), QStringLiteral("200%")}));
  EXPECT_EQ(f->cmbZoom->currentIndex(), 5);
  EXPECT_EQ(f->lblPagina->text(), QStringLiteral("1/3"));
  const int ancho = f->Preview->width();
  f->cmbZoom->setCurrentIndex(8);
  EXPECT_EQ(f->Preview->width(), ancho * 2);
  f->cmbZoom->setCurrentIndex(5);
  GuardarCaptura(f.get(), QStringLiteral("frmPreview"));
}

TEST_F(Preview, TheKeysGoThroughThePagesAndStayAtTheEnds) {
  QTest::keyClick(f.get(), Qt::Key_PageUp);
  EXPECT_EQ(f->PaginaActual(), 1); // Previous on the first page leaves it
  QTest::keyClick(f.get(), Qt::Key_PageDown);
  EXPECT_EQ(f->lblPagina->text(), QStringLiteral("2/3"));
  QTest::keyClick(f.get(), Qt::Key_End);
  EXPECT_EQ(f->PaginaActual(), 3);
  QTest::mouseClick(f->cmdFunciones[3], Qt::LeftButton);
  EXPECT_EQ(f->PaginaActual(), 3); // Next on the last page leaves it
  EXPECT_EQ(f->lblPagina->text(), QStringLiteral("3/3"));
  QTest::keyClick(f.get(), Qt::Key_Home);
  EXPECT_EQ(f->lblPagina->text(), QStringLiteral("1/3"));
}

TEST_F(Preview, EscAsksBeforeClosing) {
  mensajes.respuestas = {RespuestaMensaje::No};
  QTest::keyClick(f.get(), Qt::Key_Escape);
  EXPECT_EQ(mensajes.Ids(), std::vector<int>{129});
  EXPECT_TRUE(f->isVisible());
  mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f.get(), Qt::Key_Escape);
  EXPECT_FALSE(f->isVisible());
}

TEST_F(Preview, ThePageShownIsSavedUnderTheInquiriesFolder) {
  EmpresaPrueba emp("sqlite");
  QTemporaryDir dir;
  const QString carpeta = dir.path() + QStringLiteral("/");
  ServicioUtil::EscribirIni(QStringLiteral("VARIOS"), QStringLiteral("DIRCONSULTAS"), carpeta,
                            RutaNimbarIni());
  CatalogoMensajes::Instalar(&mensajes);
  QString pregunta;
  f->pedirTexto = [&](QWidget *, const QString &texto) {
    pregunta = texto;
    return QString();
  };
  QTest::mouseClick(f->cmdFunciones[5], Qt::LeftButton);
  EXPECT_EQ(pregunta,
            QStringLiteral("Nombre de la Página:\n(se grabará en el directorio %1)").arg(carpeta));
  EXPECT_TRUE(mensajes.mostrados.empty()); // an empty name does nothing
  f->pedirTexto = [](QWidget *, const QString &) { return QStringLiteral("segunda"); };
  f->IrA(2);
  QTest::mouseClick(f->cmdFunciones[5], Qt::LeftButton);
  const QString archivo = carpeta + QStringLiteral("segunda.pdf");
  EXPECT_TRUE(QFile::exists(archivo));
  ASSERT_EQ(mensajes.Ids(), std::vector<int>{130});
  EXPECT_TRUE(mensajes.mostrados[0].texto.endsWith(QStringLiteral(" 2\n") + archivo))
      << mensajes.mostrados[0].texto.toStdString();
}

TEST_F(Preview, AltPPrintsTheDocument) {
  int impresos = 0;
  f->imprimir = [&](QWidget *, const LienzoPintor &d) { impresos += d.TotalPaginas(); };
  QTest::keyClick(f.get(), Qt::Key_P, Qt::AltModifier);
  EXPECT_EQ(impresos, 3);
}
