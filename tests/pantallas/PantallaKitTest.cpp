#include "Apoyo.h"
#include "Capturas.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/PantallaCombos.h"
#include "pantallas/PantallaDialogo.h"
#include "pantallas/Pantallas.h"
#include "shell/Sesion.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDateEdit>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>
#include <QUrl>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

// A company with three modules, for the lists.
class Combos : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    con->Ejecutar(QStringLiteral("INSERT INTO tblModulos (COD_MODUL,DES_MODUL) VALUES "
                                 "(1,'Punto de venta'),(3,'Compras'),(5,'Gastos')"));
    emp->grabadora.sentencias.clear();
  }
  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

const QString kModulos =
    QStringLiteral("SELECT COD_MODUL, DES_MODUL FROM tblModulos WHERE COD_MODUL < 10 ORDER BY "
                   "COD_MODUL");

} // namespace

TEST_P(Combos, LoadingTheListChoosesTheFirstRowAndRaisesTheChangeOnce) {
  ComboLista cmb;
  int cambios = 0;
  QString claveAlCambiar;
  cmb.AlCambiar([&] {
    ++cambios;
    claveAlCambiar = cmb.Clave();
  });
  cmb.Cargar(*con, kModulos, QStringLiteral("COD_MODUL"), QStringLiteral("DES_MODUL"));
  EXPECT_EQ(emp->grabadora.sentencias, QStringList{kModulos});
  EXPECT_EQ(cambios, 1);
  EXPECT_EQ(claveAlCambiar, QStringLiteral("1"));
  EXPECT_EQ(cmb.Conteo(), 3);
  EXPECT_EQ(cmb.Posicion(), 0);
  EXPECT_EQ(cmb.Clave(), QStringLiteral("1"));
  EXPECT_EQ(cmb.Texto(), QStringLiteral("Punto de venta"));
}

TEST_P(Combos, ReloadingTheListRaisesTheChangeAgain) {
  ComboLista cmb;
  int cambios = 0;
  cmb.AlCambiar([&] { ++cambios; });
  cmb.Cargar(*con, kModulos, QStringLiteral("COD_MODUL"), QStringLiteral("DES_MODUL"));
  cmb.FijarPosicion(2);
  cmb.Cargar(*con, kModulos, QStringLiteral("COD_MODUL"), QStringLiteral("DES_MODUL"));
  EXPECT_EQ(cambios, 2);
  EXPECT_EQ(cmb.Conteo(), 3);
  EXPECT_EQ(cmb.Clave(), QStringLiteral("1"));
}

TEST_P(Combos, TheUsersChoiceRaisesTheChangeAndAChoiceByPositionDoesnt) {
  ComboLista cmb;
  cmb.Cargar(*con, kModulos, QStringLiteral("COD_MODUL"), QStringLiteral("DES_MODUL"));
  int cambios = 0;
  cmb.AlCambiar([&] { ++cambios; });
  cmb.FijarPosicion(1);
  EXPECT_EQ(cambios, 0);
  EXPECT_EQ(cmb.Clave(), QStringLiteral("3"));
  EXPECT_EQ(cmb.Texto(), QStringLiteral("Compras"));
  cmb.show();
  cmb.setFocus();
  QTest::keyClick(&cmb, Qt::Key_Down);
  EXPECT_EQ(cambios, 1);
  EXPECT_EQ(cmb.Posicion(), 2);
  EXPECT_EQ(cmb.Clave(), QStringLiteral("5"));
  EXPECT_EQ(cmb.Texto(), QStringLiteral("Gastos"));
}

TEST_P(Combos, ClearingTheListIsSilentAndLeavesNoKey) {
  ComboLista cmb;
  cmb.Cargar(*con, kModulos, QStringLiteral("COD_MODUL"), QStringLiteral("DES_MODUL"));
  int cambios = 0;
  cmb.AlCambiar([&] { ++cambios; });
  cmb.Limpiar();
  EXPECT_EQ(cambios, 0);
  EXPECT_EQ(cmb.Conteo(), 0);
  EXPECT_EQ(cmb.Posicion(), -1);
  EXPECT_EQ(cmb.Clave(), QString());
  EXPECT_EQ(cmb.Texto(), QString());
}

TEST_P(Combos, ALoadWithoutRowsChoosesNothingAndRaisesNothing) {
  ComboLista cmb;
  int cambios = 0;
  cmb.AlCambiar([&] { ++cambios; });
  cmb.Cargar(*con,
             QStringLiteral("SELECT COD_MODUL, DES_MODUL FROM tblModulos WHERE COD_MODUL > 10"),
             QStringLiteral("COD_MODUL"), QStringLiteral("DES_MODUL"));
  EXPECT_EQ(cambios, 0);
  EXPECT_EQ(cmb.Conteo(), 0);
  EXPECT_EQ(cmb.Posicion(), -1);
  EXPECT_EQ(cmb.Clave(), QString());
}

TEST_P(Combos, TheListIsEnabledAndDisabledAsAnyControl) {
  ComboLista cmb;
  cmb.Cargar(*con, kModulos, QStringLiteral("COD_MODUL"), QStringLiteral("DES_MODUL"));
  cmb.setEnabled(false);
  EXPECT_FALSE(cmb.isEnabled());
  EXPECT_EQ(cmb.Clave(), QStringLiteral("1"));
}

TEST_P(Combos, AFilterListLoadsWithNoCodeChosenAndShowsCodeAndDescription) {
  ComboDatos cmb;
  int cambios = 0;
  cmb.AlCambiar([&] { ++cambios; });
  cmb.Cargar(*con, kModulos, QStringLiteral("COD_MODUL"), QStringLiteral("DES_MODUL"));
  EXPECT_EQ(cambios, 1);
  EXPECT_EQ(cmb.Codigo(), QString());
  EXPECT_EQ(cmb.Texto(), QString());
  ASSERT_EQ(cmb.count(), 4);
  EXPECT_EQ(cmb.model()->index(2, 0).data().toString(), QStringLiteral("3"));
  EXPECT_EQ(cmb.model()->index(2, 1).data().toString(), QStringLiteral("Compras"));
  EXPECT_FALSE(static_cast<QTreeView *>(cmb.view())->isColumnHidden(0));
  EXPECT_EQ(cmb.itemText(2), QStringLiteral("Compras"));
}

TEST_P(Combos, ChoosingAFilterGivesItsCodeAndTextAndRaisesTheChange) {
  ComboDatos cmb;
  cmb.Cargar(*con, kModulos, QStringLiteral("COD_MODUL"), QStringLiteral("DES_MODUL"));
  int cambios = 0;
  cmb.AlCambiar([&] { ++cambios; });
  cmb.show();
  cmb.setFocus();
  QTest::keyClick(&cmb, Qt::Key_Down);
  QTest::keyClick(&cmb, Qt::Key_Down);
  EXPECT_EQ(cambios, 2);
  EXPECT_EQ(cmb.Codigo(), QStringLiteral("3"));
  EXPECT_EQ(cmb.Texto(), QStringLiteral("Compras"));
  cmb.Limpiar();
  EXPECT_EQ(cambios, 2);
  EXPECT_EQ(cmb.count(), 1);
  EXPECT_EQ(cmb.Codigo(), QString());
  EXPECT_EQ(cmb.Texto(), QString());
}

TEST_P(Combos, AFilterListOfOneColumnShowsItOnce) {
  ComboDatos cmb;
  cmb.Cargar(*con, QStringLiteral("SELECT DES_MODUL FROM tblModulos ORDER BY DES_MODUL"),
             QStringLiteral("DES_MODUL"), QStringLiteral("DES_MODUL"));
  EXPECT_TRUE(static_cast<QTreeView *>(cmb.view())->isColumnHidden(0));
  cmb.setCurrentIndex(1);
  EXPECT_EQ(cmb.Codigo(), QStringLiteral("Compras"));
  EXPECT_EQ(cmb.Texto(), QStringLiteral("Compras"));
}

INSTANTIATE_TEST_SUITE_P(Motores, Combos, testing::ValuesIn(MotoresDePrueba()), NombreMotor);

namespace {

// A screen with a text field and the six buttons, each counting its presses.
struct PantallaConBarra {
  explicit PantallaConBarra(std::vector<QString> claves) {
    std::vector<BotonBarra> botones;
    for (const QString &c : claves) {
      const bool propia = c != QLatin1String("AYU") && c != QLatin1String("SAL");
      botones.push_back(
          {c, QStringLiteral("F?"), QStringLiteral("Tip ") + c,
           propia ? std::function<void()>([this, c] { pulsados << c; }) : std::function<void()>()});
    }
    barra = new BarraPantalla(&ventana, botones);
    txt = new QLineEdit(&ventana);
    auto *capa = new QVBoxLayout(&ventana);
    capa->addWidget(barra);
    capa->addWidget(txt);
    ventana.show();
    QApplication::setActiveWindow(&ventana);
    txt->setFocus();
  }
  QDialog ventana;
  BarraPantalla *barra;
  QLineEdit *txt;
  QStringList pulsados;
};

const std::vector<QString> kSeis = {QStringLiteral("NVO"), QStringLiteral("BUS"),
                                    QStringLiteral("GRB"), QStringLiteral("BOR"),
                                    QStringLiteral("AYU"), QStringLiteral("SAL")};

// Keeps the addresses handed to the desktop instead of opening them.
struct Abridor {
  Abridor() {
    InstalarAbridor([this](const QUrl &u) { abiertas.push_back(u); });
  }
  ~Abridor() { InstalarAbridor({}); }
  std::vector<QUrl> abiertas;
};

} // namespace

TEST(BarraPantalla, EachFunctionKeyPressesItsButtonFromAnyControl) {
  PantallaConBarra p(kSeis);
  QTest::keyClick(p.txt, Qt::Key_F2);
  QTest::keyClick(p.txt, Qt::Key_F6);
  QTest::keyClick(p.txt, Qt::Key_F10);
  QTest::keyClick(p.txt, Qt::Key_F3);
  EXPECT_EQ(p.pulsados, (QStringList{QStringLiteral("NVO"), QStringLiteral("BUS"),
                                     QStringLiteral("GRB"), QStringLiteral("BOR")}));
  EXPECT_EQ(p.txt->text(), QString());
  GuardarCaptura(&p.ventana, QStringLiteral("PantallaBarra"));
}

TEST(BarraPantalla, TheButtonsCarryTheirCaptionsTipsAndPictures) {
  PantallaConBarra p(kSeis);
  ASSERT_EQ(p.barra->actions().size(), 6);
  for (const QString &c : kSeis) {
    QAction *a = p.barra->Accion(c);
    ASSERT_NE(a, nullptr) << c.toStdString();
    EXPECT_EQ(a->text(), QStringLiteral("F?"));
    EXPECT_EQ(a->toolTip(), QStringLiteral("Tip ") + c);
    EXPECT_FALSE(a->icon().isNull());
  }
  EXPECT_EQ(p.barra->Accion(QStringLiteral("XYZ")), nullptr);
  EXPECT_EQ(BarraPantalla::TeclaDe(QStringLiteral("GRB")), Qt::Key_F10);
  EXPECT_EQ(BarraPantalla::TeclaDe(QStringLiteral("SAL")), Qt::Key_Escape);
  EXPECT_EQ(BarraPantalla::TeclaDe(QStringLiteral("FLI")),
            (Qt::AltModifier | Qt::Key_Left).toCombined());
  EXPECT_EQ(BarraPantalla::TeclaDe(QStringLiteral("FLD")),
            (Qt::AltModifier | Qt::Key_Right).toCombined());
  EXPECT_EQ(BarraPantalla::TeclaDe(QStringLiteral("VPR")), Qt::Key_F5);
  EXPECT_EQ(BarraPantalla::TeclaDe(QStringLiteral("XYZ")), 0);
}

TEST(BarraPantalla, FOneOpensTheManualWhenTheScreenGivesNoHelpOfItsOwn) {
  Abridor abridor;
  QTemporaryDir dir;
  gRutaApp = dir.path();
  QDir(dir.path()).mkdir(QStringLiteral("Ayuda"));
  EscribirArchivo(dir.filePath(QStringLiteral("Ayuda/TV_PVManual.pdf")), "%PDF");
  IniciarAyuda();
  PantallaConBarra p(kSeis);
  QTest::keyClick(p.txt, Qt::Key_F1);
  ASSERT_EQ(abridor.abiertas.size(), 1u);
  EXPECT_EQ(abridor.abiertas[0],
            QUrl::fromLocalFile(dir.filePath(QStringLiteral("Ayuda/TV_PVManual.pdf"))));
  EXPECT_TRUE(p.pulsados.isEmpty());
}

TEST(BarraPantalla, EscapeClosesTheWindowWhenTheScreenGivesNoActionOfItsOwn) {
  PantallaConBarra p(kSeis);
  QTest::keyClick(p.txt, Qt::Key_Escape);
  EXPECT_FALSE(p.ventana.isVisible());
  EXPECT_EQ(p.ventana.result(), QDialog::Rejected);
}

TEST(BarraPantalla, AScreensOwnExitActionIsWhatEscapeRuns) {
  QDialog ventana;
  int salidas = 0;
  auto *barra = new BarraPantalla(&ventana, {{QStringLiteral("SAL"), QStringLiteral("Esc"),
                                              QStringLiteral("Ayuda"), [&] { ++salidas; }}});
  Q_UNUSED(barra);
  ventana.show();
  QApplication::setActiveWindow(&ventana);
  QTest::keyClick(&ventana, Qt::Key_Escape);
  EXPECT_EQ(salidas, 1);
  EXPECT_TRUE(ventana.isVisible());
}

TEST(BarraPantalla, ADisabledButtonIsNotPressedByItsKeyOrByPulsar) {
  PantallaConBarra p(kSeis);
  p.barra->Accion(QStringLiteral("GRB"))->setEnabled(false);
  QTest::keyClick(p.txt, Qt::Key_F10);
  EXPECT_TRUE(p.pulsados.isEmpty());
  EXPECT_FALSE(p.barra->Pulsar(QStringLiteral("GRB")));
  p.barra->Accion(QStringLiteral("GRB"))->setEnabled(true);
  EXPECT_TRUE(p.barra->Pulsar(QStringLiteral("GRB")));
  EXPECT_EQ(p.pulsados, QStringList{QStringLiteral("GRB")});
  EXPECT_FALSE(p.barra->Pulsar(QStringLiteral("XYZ")));
}

TEST(BarraPantalla, TheKeyOfADisabledButtonGoesOnAsUsual) {
  QDialog ventana;
  int salidas = 0;
  auto *barra = new BarraPantalla(&ventana, {{QStringLiteral("SAL"), QStringLiteral("Esc"),
                                              QStringLiteral("Ayuda"), [&] { ++salidas; }}});
  ventana.show();
  QApplication::setActiveWindow(&ventana);
  barra->Accion(QStringLiteral("SAL"))->setEnabled(false);
  // Escape reaches the dialog, which closes by itself.
  QTest::keyClick(&ventana, Qt::Key_Escape);
  EXPECT_EQ(salidas, 0);
  EXPECT_FALSE(ventana.isVisible());
}

TEST(BarraPantalla, ADisabledToolbarPressesNothing) {
  PantallaConBarra p(kSeis);
  p.barra->setEnabled(false);
  QTest::keyClick(p.txt, Qt::Key_F2);
  QTest::keyClick(p.txt, Qt::Key_Escape);
  EXPECT_TRUE(p.pulsados.isEmpty());
}

TEST(BarraPantalla, AKeyWhoseButtonTheScreenHasntGoesOnAsUsual) {
  PantallaConBarra p({QStringLiteral("GRB")});
  QTest::keyClick(p.txt, Qt::Key_F2);
  EXPECT_TRUE(p.pulsados.isEmpty());
  // Without "SAL", Escape is the dialog's own: it closes.
  QTest::keyClick(p.txt, Qt::Key_Escape);
  EXPECT_FALSE(p.ventana.isVisible());
}

TEST(BarraPantalla, KeysOfAnotherWindowDontPressTheButtons) {
  PantallaConBarra p(kSeis);
  QDialog otra;
  auto *txt = new QLineEdit(&otra);
  otra.show();
  QTest::keyClick(txt, Qt::Key_F10);
  EXPECT_TRUE(p.pulsados.isEmpty());
}

TEST(BarraPantalla, ClickingAButtonPressesIt) {
  PantallaConBarra p(kSeis);
  auto *boton =
      qobject_cast<QToolButton *>(p.barra->widgetForAction(p.barra->Accion(QStringLiteral("BOR"))));
  ASSERT_NE(boton, nullptr);
  QTest::mouseClick(boton, Qt::LeftButton);
  EXPECT_EQ(p.pulsados, QStringList{QStringLiteral("BOR")});
}

namespace {

struct Formulario {
  Formulario() {
    txtUno = new QLineEdit(&ventana);
    txtUno->setObjectName(QStringLiteral("txtUno"));
    txtFolPol = new QLineEdit(&ventana);
    txtFolPol->setObjectName(QStringLiteral("txtFolPol"));
    dtpFecha = new QDateEdit(&ventana);
    dtpFecha->setObjectName(QStringLiteral("dtpFecha"));
    txtDos = new QLineEdit(&ventana);
    txtDos->setObjectName(QStringLiteral("txtDos"));
    auto *capa = new QVBoxLayout(&ventana);
    for (QWidget *w : {static_cast<QWidget *>(txtUno), static_cast<QWidget *>(txtFolPol),
                       static_cast<QWidget *>(dtpFecha), static_cast<QWidget *>(txtDos)})
      capa->addWidget(w);
    new RechazoApostrofe(&ventana);
    new EnterSiguiente(&ventana, {QStringLiteral("txtFolPol"), QStringLiteral("dtpFecha")});
    ventana.show();
    QApplication::setActiveWindow(&ventana);
  }
  QWidget ventana;
  QLineEdit *txtUno, *txtFolPol, *txtDos;
  QDateEdit *dtpFecha;
};

} // namespace

TEST(EnterSiguiente, EnterMovesToTheNextControl) {
  Formulario f;
  f.txtUno->setFocus();
  QTest::keyClick(f.txtUno, Qt::Key_Return);
  EXPECT_TRUE(f.txtFolPol->hasFocus());
}

TEST(EnterSiguiente, TheKeypadEnterMovesToo) {
  Formulario f;
  f.txtUno->setFocus();
  QTest::keyClick(f.txtUno, Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_TRUE(f.txtFolPol->hasFocus());
}

TEST(EnterSiguiente, AControlNamedAsAnExceptionKeepsTheKey) {
  Formulario f;
  int enter = 0;
  QObject::connect(f.txtFolPol, &QLineEdit::returnPressed, [&] { ++enter; });
  f.txtFolPol->setFocus();
  QTest::keyClick(f.txtFolPol, Qt::Key_Return);
  EXPECT_EQ(enter, 1);
  EXPECT_TRUE(f.txtFolPol->hasFocus());
}

TEST(EnterSiguiente, TheExceptionCoversThePartsOfAControl) {
  Formulario f;
  f.dtpFecha->setFocus();
  QWidget *parte = QApplication::focusWidget();
  ASSERT_NE(parte, nullptr);
  QTest::keyClick(parte, Qt::Key_Return);
  EXPECT_TRUE(f.dtpFecha->hasFocus());
}

TEST(RechazoApostrofe, TheApostropheIsRefusedInEveryTextField) {
  Formulario f;
  f.txtDos->setFocus();
  QTest::keyClicks(f.txtDos, QStringLiteral("O'Higgins"));
  EXPECT_EQ(f.txtDos->text(), QStringLiteral("OHiggins"));
}

TEST(RelojArena, TheHourglassLastsAsLongAsTheGuard) {
  ASSERT_EQ(QApplication::overrideCursor(), nullptr);
  {
    RelojArena reloj;
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  }
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

namespace {

struct CajaVista {
  QString titulo, texto;
  QMessageBox::Icon icono = QMessageBox::NoIcon;
  QStringList botones;
};

// Presents a message and, once the box is up, reads it and closes it with a key or a button.
RespuestaMensaje PresentarYResponder(const Mensaje &m, CajaVista &vista,
                                     std::function<void(QMessageBox *)> responder) {
  QTimer::singleShot(0, [&] {
    auto *caja = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    ASSERT_NE(caja, nullptr);
    vista.titulo = caja->windowTitle();
    vista.texto = caja->text();
    vista.icono = caja->icon();
    for (QAbstractButton *b : caja->buttons())
      vista.botones << b->text();
    vista.botones.sort();
    responder(caja);
  });
  PresentadorDialogo presentador;
  return presentador.Presentar(m);
}

} // namespace

TEST(PresentadorDialogo, AQuestionShowsYesAndNoAndAnswersTheButtonPressed) {
  Mensaje m{303, QStringLiteral("Salir"), QStringLiteral("¿Desea salir del sistema?"),
            IconoMensaje::Pregunta, BotonesMensaje::SiNo};
  CajaVista vista;
  const RespuestaMensaje r = PresentarYResponder(
      m, vista, [](QMessageBox *caja) { caja->button(QMessageBox::No)->click(); });
  EXPECT_EQ(r, RespuestaMensaje::No);
  EXPECT_EQ(vista.titulo, QStringLiteral("Salir"));
  EXPECT_EQ(vista.texto, QStringLiteral("¿Desea salir del sistema?"));
  EXPECT_EQ(vista.icono, QMessageBox::Question);
  EXPECT_EQ(vista.botones, (QStringList{QStringLiteral("No"), QStringLiteral("Sí")}));
}

TEST(PresentadorDialogo, EnterTakesTheFirstButton) {
  Mensaje m{0, QStringLiteral("Escribano"), QStringLiteral("¿Seguir?"), IconoMensaje::Pregunta,
            BotonesMensaje::SiNoCancelar};
  CajaVista vista;
  const RespuestaMensaje r = PresentarYResponder(
      m, vista, [](QMessageBox *caja) { QTest::keyClick(caja, Qt::Key_Return); });
  EXPECT_EQ(r, RespuestaMensaje::Si);
  EXPECT_EQ(vista.botones,
            (QStringList{QStringLiteral("Cancelar"), QStringLiteral("No"), QStringLiteral("Sí")}));
}

TEST(PresentadorDialogo, EscapeAnswersTheLastButton) {
  Mensaje m{410, QStringLiteral("Escribano"), QStringLiteral("El usuario no existe."),
            IconoMensaje::Informacion, BotonesMensaje::AceptarCancelar};
  CajaVista vista;
  const RespuestaMensaje r = PresentarYResponder(
      m, vista, [](QMessageBox *caja) { QTest::keyClick(caja, Qt::Key_Escape); });
  EXPECT_EQ(r, RespuestaMensaje::Cancelar);
  EXPECT_EQ(vista.icono, QMessageBox::Information);
  EXPECT_EQ(vista.botones, (QStringList{QStringLiteral("Aceptar"), QStringLiteral("Cancelar")}));
}

TEST(PresentadorDialogo, ACriticalMessageHasOneButton) {
  Mensaje m{300, QStringLiteral("Escribano"), QStringLiteral("No se encontró."),
            IconoMensaje::Critico, BotonesMensaje::Aceptar};
  CajaVista vista;
  const RespuestaMensaje r = PresentarYResponder(
      m, vista, [](QMessageBox *caja) { QTest::keyClick(caja, Qt::Key_Escape); });
  EXPECT_EQ(r, RespuestaMensaje::Aceptar);
  EXPECT_EQ(vista.icono, QMessageBox::Critical);
  EXPECT_EQ(vista.botones, QStringList{QStringLiteral("Aceptar")});
}

TEST(PresentadorDialogo, AWarningShowsItsIcon) {
  Mensaje m{0, QStringLiteral("Sistema"), QStringLiteral("La versión..."),
            IconoMensaje::Advertencia, BotonesMensaje::Aceptar};
  CajaVista vista;
  PresentarYResponder(m, vista, [](QMessageBox *caja) { caja->button(QMessageBox::Ok)->click(); });
  EXPECT_EQ(vista.icono, QMessageBox::Warning);
  EXPECT_EQ(vista.titulo, QStringLiteral("Sistema"));
}

TEST(RechazoApostrofe, ATextReadWithOneCanBeEditedButGetsNoOtherAndADigitsFieldStaysSo) {
  QWidget ventana;
  auto *capa = new QVBoxLayout(&ventana);
  auto *nombre = new QLineEdit(&ventana);
  auto *numero = new QLineEdit(&ventana);
  numero->setValidator(
      new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9-]*")), numero));
  capa->addWidget(nombre);
  capa->addWidget(numero);
  new RechazoApostrofe(&ventana);
  // A field made after the guard gets it as well.
  auto *tarde = new QLineEdit(&ventana);
  capa->addWidget(tarde);
  ventana.show();
  nombre->setText(QStringLiteral("D'ANGELO"));
  nombre->setFocus();
  nombre->end(false);
  QTest::keyClicks(nombre, QStringLiteral(" S.A."));
  EXPECT_EQ(nombre->text(), QStringLiteral("D'ANGELO S.A."));
  nombre->insert(QStringLiteral("'"));
  EXPECT_EQ(nombre->text(), QStringLiteral("D'ANGELO S.A."));
  numero->insert(QStringLiteral("12a"));
  EXPECT_EQ(numero->text(), QString());
  numero->insert(QStringLiteral("1-2"));
  EXPECT_EQ(numero->text(), QStringLiteral("1-2"));
  tarde->setFocus();
  QApplication::clipboard()->setText(QStringLiteral("O'BRIEN"));
  tarde->paste();
  EXPECT_EQ(tarde->text(), QString());
}
