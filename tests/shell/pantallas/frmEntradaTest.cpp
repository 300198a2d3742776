#include "shell/pantallas/frmEntrada.h"
#include "Apoyo.h"
#include "Capturas.h"
#include "db/EmpresaDemo.h"
#include "pantallas/Apostrofos.h"
#include "pantallas/Pantallas.h"
#include "pantallas/frmTeclado.h"
#include "shell/Encriptacion.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QUrl>
#include <gtest/gtest.h>

namespace {

const QString kLista = QStringLiteral(
    "SELECT NUM_EMP,NOM_EMP FROM tblEmpresas WHERE CONEXION<>'' AND MOTORDEDATOS<>2 ORDER BY "
    "NUM_EMP");
const QString kPrimeraConexion = QStringLiteral(
    "SELECT * FROM tblEmpresas WHERE CONEXION<>'' AND MOTORDEDATOS<>2 ORDER BY NUM_EMP;");

QString Seleccion(int numEmp) {
  return QStringLiteral("SELECT MOTORDEDATOS,CONEXION FROM tblEmpresas WHERE NUM_EMP=%1;")
      .arg(numEmp);
}

// The login over a company with its identity and the user ADMIN, password "clave".
class Entrada : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    demo::LlenarIdentidad(*con, QStringLiteral("clave"));
    gModulo = 0;
  }
  void TearDown() override { InstalarAbridor({}); }

  // Another company of the list, with its own connection text and engine.
  void Empresa(int num, const QString &nombre, const QString &conexion, int motor) {
    ConexionPtr general = emp->AbrirGeneral();
    general->Ejecutar(QStringLiteral("INSERT INTO tblEmpresas (NUM_EMP,NOM_EMP,NOM_COM,CONEXION,"
                                     "MOTORDEDATOS,NOMBREBASEDATOS) VALUES (%1,'%2','%2','%3',%4,"
                                     "'Otra')")
                          .arg(num)
                          .arg(nombre, conexion)
                          .arg(motor));
  }
  void Usuario(const QString &cod, const QString &p1, const QString &p2, int estatus = 0) {
    con->Ejecutar(QStringLiteral("INSERT INTO tblUsuarios (COD_USU,PASS1_USU,PASS2_USU,ESTATUS) "
                                 "VALUES ('%1','%2','%3',%4)")
                      .arg(cod, p1, p2)
                      .arg(estatus));
  }
  void Ultima(const QString &empresa) {
    ServicioUtil::EscribirIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"), empresa,
                              RutaNimbarIni());
  }
  QString Ini(const char *seccion, const char *clave, const QString &archivo) {
    return ServicioUtil::LeerIni(QLatin1String(seccion), QLatin1String(clave), archivo);
  }
  QString Clave(const char *columna, const QString &cod) {
    return emp->Valor(QStringLiteral("SELECT %1 FROM tblUsuarios WHERE COD_USU='%2'")
                          .arg(QLatin1String(columna), cod));
  }

  // Loads the login and shows it as the active window; the statements start afresh.
  std::unique_ptr<frmEntrada> Abrir() {
    auto f = std::make_unique<frmEntrada>();
    EXPECT_TRUE(f->Cargar());
    f->show();
    QApplication::setActiveWindow(f.get());
    emp->grabadora.sentencias.clear();
    return f;
  }
  // Types the user code and the password as a user does and presses Enter.
  void Teclear(frmEntrada &f, const QString &cod, const QString &clave) {
    f.txtCod->setFocus();
    QTest::keyClicks(f.txtCod, cod);
    QTest::keyClick(f.txtCod, Qt::Key_Tab);
    QTest::keyClicks(f.txtPass, clave);
    QTest::keyClick(f.txtPass, Qt::Key_Return);
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

} // namespace

TEST_P(Entrada, TheLoadTitlesTheFormListsTheCompaniesAndOpensTheFirst) {
  Empresa(3, QStringLiteral("Tercera S.A."), emp->Conexion(), emp->Motor());
  Empresa(2, QStringLiteral("Segunda S.A."), emp->Conexion(), emp->Motor());
  emp->grabadora.sentencias.clear();
  frmEntrada f;
  ASSERT_TRUE(f.Cargar());
  EXPECT_EQ(f.Label1->text(), QStringLiteral("Escribano v.8.7"));
  EXPECT_EQ(gModulo, 13);
  ASSERT_EQ(f.cmbEmpresa->count(), 3);
  EXPECT_EQ(f.cmbEmpresa->itemText(0), QStringLiteral("Empresa de Prueba S.A."));
  EXPECT_EQ(f.cmbEmpresa->itemText(1), QStringLiteral("Segunda S.A."));
  EXPECT_EQ(f.cmbEmpresa->itemText(2), QStringLiteral("Tercera S.A."));
  EXPECT_EQ(emp->grabadora.sentencias, (QStringList{kLista, kPrimeraConexion, Seleccion(1)}));
  EXPECT_EQ(f.cmbEmpresa->currentIndex(), 0);
  EXPECT_EQ(gNumEmp, 1);
  EXPECT_EQ(gMotor, emp->Motor());
  EXPECT_EQ(gConexion, emp->Conexion());
  EXPECT_TRUE(f.EmpresaAbierta());
  EXPECT_EQ(Ini("Config", "MDBDir", RutaReportIni()), emp->Conexion());
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

TEST_P(Entrada, TheFormIsPaleBlueAndStaysInFront) {
  auto f = Abrir();
  EXPECT_TRUE(f->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(f->isModal());
  for (QWidget *w : {static_cast<QWidget *>(f->txtCod), static_cast<QWidget *>(f->txtPass),
                     static_cast<QWidget *>(f->cmdAce), static_cast<QWidget *>(f->cmdCan),
                     static_cast<QWidget *>(f->cmbEmpresa)}) {
    // The style sheet reaches the palette of each control when it is shown.
    EXPECT_EQ(w->palette().color(w->backgroundRole()), QColor(210, 230, 245))
        << w->objectName().toStdString();
  }
  EXPECT_NE(f->Label1->palette().color(f->Label1->backgroundRole()), QColor(210, 230, 245));
  GuardarCaptura(f.get(), QStringLiteral("frmEntrada"));
  // The list open: its chosen row in the platform's highlight.
  f->cmbEmpresa->showPopup();
  QAbstractItemView *lista = f->cmbEmpresa->view();
  const QRect elegida = lista->visualRect(lista->currentIndex());
  const QImage imagen = lista->viewport()->grab().toImage();
  EXPECT_LT(qGray(imagen.pixel(elegida.left() + 2, elegida.center().y())), 128)
      << "a dark highlight under white text";
  GuardarCaptura(f->cmbEmpresa->view()->window(), QStringLiteral("frmEntrada_lista"));
  f->cmbEmpresa->hidePopup();
}

TEST_P(Entrada, ACompanyOfEngineTwoIsNotListed) {
  Empresa(2, QStringLiteral("No servida"), emp->Conexion(), motor::kNoServido);
  Empresa(3, QStringLiteral("Tercera S.A."), emp->Conexion(), emp->Motor());
  auto f = Abrir();
  ASSERT_EQ(f->cmbEmpresa->count(), 2);
  EXPECT_EQ(f->cmbEmpresa->itemText(1), QStringLiteral("Tercera S.A."));
}

TEST_P(Entrada, TheLastCompanyUsedIsSelected) {
  Empresa(3, QStringLiteral("Tercera S.A."), emp->Conexion(), emp->Motor());
  Ultima(QStringLiteral("3"));
  auto f = Abrir();
  EXPECT_EQ(f->cmbEmpresa->currentIndex(), 1);
  EXPECT_EQ(f->EmpresaSeleccionada(), 3);
  EXPECT_EQ(gNumEmp, 3);
}

TEST_P(Entrada, WithoutALastCompanyTheFirstIsSelected) {
  Empresa(3, QStringLiteral("Tercera S.A."), emp->Conexion(), emp->Motor());
  auto f = Abrir();
  EXPECT_EQ(f->cmbEmpresa->currentIndex(), 0);
  EXPECT_EQ(gNumEmp, 1);
}

TEST_P(Entrada, ALastCompanyThatWasDeletedSelectsTheFirst) {
  Empresa(3, QStringLiteral("Tercera S.A."), emp->Conexion(), emp->Motor());
  Ultima(QStringLiteral("7"));
  emp->grabadora.sentencias.clear();
  frmEntrada f;
  ASSERT_TRUE(f.Cargar());
  EXPECT_EQ(f.cmbEmpresa->currentIndex(), 0);
  EXPECT_EQ(gNumEmp, 1);
  EXPECT_EQ(emp->grabadora.sentencias.last(), Seleccion(1));
}

TEST_P(Entrada, ALastCompanyThatIsNoNumberSelectsTheFirst) {
  Empresa(3, QStringLiteral("Tercera S.A."), emp->Conexion(), emp->Motor());
  Ultima(QStringLiteral("tres"));
  auto f = Abrir();
  EXPECT_EQ(gNumEmp, 1);
}

TEST_P(Entrada, ReportIniKeepsTheScrambledConnectionAndTheSessionThePlainOne) {
  const QString guardada = QStringLiteral("SQLite=NoExiste.db; Password=%1; User ID=sa")
                               .arg(Encriptar(QStringLiteral("secreto")));
  Empresa(3, QStringLiteral("En SQL Server"), guardada, motor::kSqlServer);
  Ultima(QStringLiteral("3"));
  auto f = Abrir();
  EXPECT_EQ(gMotor, motor::kSqlServer);
  EXPECT_EQ(gConexion, QStringLiteral("SQLite=NoExiste.db; Password=secreto; User ID=sa"));
  EXPECT_EQ(Ini("Config", "MDBDir", RutaReportIni()), guardada);
  EXPECT_FALSE(f->EmpresaAbierta());
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

TEST_P(Entrada, ChoosingAnotherCompanyOpensItAndWritesReportIni) {
  Empresa(3, QStringLiteral("Tercera S.A."), QStringLiteral("SQLite=NoExiste.db"), motor::kSqlite);
  auto f = Abrir();
  f->cmbEmpresa->setFocus();
  QTest::keyClick(f->cmbEmpresa, Qt::Key_Down);
  EXPECT_EQ(emp->grabadora.sentencias, QStringList{Seleccion(3)});
  EXPECT_EQ(gNumEmp, 3);
  EXPECT_FALSE(f->EmpresaAbierta());
  EXPECT_EQ(Ini("Config", "MDBDir", RutaReportIni()), QStringLiteral("SQLite=NoExiste.db"));
  QTest::keyClick(f->cmbEmpresa, Qt::Key_Up);
  EXPECT_EQ(gNumEmp, 1);
  EXPECT_TRUE(f->EmpresaAbierta());
  EXPECT_EQ(Ini("Config", "MDBDir", RutaReportIni()), emp->Conexion());
}

TEST_P(Entrada, WithoutTheGeneralDatabaseMessage300EndsTheProcess) {
  QFile::remove(RutaNativa(UnirRuta(emp->Ruta(), QStringLiteral("Nimbar.mdb"))));
  emp->grabadora.sentencias.clear();
  frmEntrada f;
  EXPECT_FALSE(f.Cargar());
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  const Mensaje &m = emp->mensajes.mostrados[0];
  EXPECT_EQ(m.id, 300);
  EXPECT_EQ(m.icono, IconoMensaje::Critico);
  EXPECT_EQ(m.titulo, CatalogoMensajes::Texto(100));
  EXPECT_EQ(m.texto, CatalogoMensajes::Texto(300) + QStringLiteral("\n") + emp->Ruta() +
                         QStringLiteral("\\nimbar.mdb"));
  EXPECT_TRUE(emp->grabadora.sentencias.isEmpty());
}

TEST_P(Entrada, WithoutCompaniesTheReportFoldersAreWrittenAndMessage302EndsTheProcess) {
  emp->AbrirGeneral()->Ejecutar(QStringLiteral("DELETE FROM tblEmpresas"));
  emp->grabadora.sentencias.clear();
  frmEntrada f;
  EXPECT_FALSE(f.Cargar());
  EXPECT_EQ(gModoEmpresa, 99);
  EXPECT_EQ(emp->grabadora.sentencias,
            (QStringList{kLista, kPrimeraConexion, kLista,
                         QStringLiteral("SELECT NUM_EMP FROM tblEmpresas WHERE CONEXION<>'' AND "
                                        "MOTORDEDATOS<>2 ORDER BY NUM_EMP;")}));
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].id, 302);
  EXPECT_EQ(emp->mensajes.mostrados[0].icono, IconoMensaje::Critico);
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, CatalogoMensajes::Texto(100));
  const QString report = RutaReportIni();
  EXPECT_EQ(Ini("Config", "ReportDir", report), emp->Ruta() + QStringLiteral("\\Reportes"));
  EXPECT_EQ(Ini("Config", "ExportDir", report), emp->Ruta() + QStringLiteral("\\Export"));
  EXPECT_EQ(Ini("Config", "ConsultDir", report), emp->Ruta() + QStringLiteral("\\Consultas"));
  EXPECT_EQ(Ini("Config", "TemplateDir", report), emp->Ruta() + QStringLiteral("\\Plantillas"));
  EXPECT_EQ(Ini("Config", "MDBDir", report), QString());
}

TEST_P(Entrada, WithoutCompaniesTheCompanyScreenIsShownAndTheCompanyItSavesIsListed) {
  ConexionPtr general = emp->AbrirGeneral();
  general->Ejecutar(QStringLiteral("UPDATE tblEmpresas SET NUM_EMP=9"));
  general->Ejecutar(QStringLiteral("UPDATE tblEmpresas SET CONEXION=''"));
  frmEntrada f;
  int mostrada = 0;
  f.crearEmpresa = [&](QWidget *padre) {
    ++mostrada;
    EXPECT_EQ(padre, &f);
    EXPECT_EQ(gModoEmpresa, 99);
    // What the screen saves: the company's row with its connection.
    general->Ejecutar(QStringLiteral("UPDATE tblEmpresas SET CONEXION='%1'").arg(emp->Conexion()));
  };
  EXPECT_TRUE(f.Cargar());
  EXPECT_EQ(mostrada, 1);
  EXPECT_EQ(f.cmbEmpresa->count(), 1);
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

TEST_P(Entrada, OnlyCompaniesOfEngineTwoCountAsNoCompany) {
  ConexionPtr general = emp->AbrirGeneral();
  general->Ejecutar(QStringLiteral("UPDATE tblEmpresas SET MOTORDEDATOS=2"));
  frmEntrada f;
  EXPECT_FALSE(f.Cargar());
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{302});
}

TEST_P(Entrada, TheRightUserAndPasswordLoadTheCompanyAndCloseTheLogin) {
  auto f = Abrir();
  Teclear(*f, QStringLiteral("admin"), QStringLiteral("clave"));
  EXPECT_EQ(f->result(), QDialog::Accepted);
  EXPECT_FALSE(f->isVisible());
  EXPECT_EQ(f->txtCod->text(), QStringLiteral("ADMIN"));
  EXPECT_EQ(gCodUsu, QStringLiteral("ADMIN"));
  EXPECT_EQ(gPassUsu, QStringLiteral("clave"));
  EXPECT_EQ(gNumEmp, 1);
  EXPECT_EQ(gNomCom, QStringLiteral("La Fonda de Doña Lupe"));
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
  EXPECT_EQ(emp->grabadora.sentencias.first(),
            QStringLiteral("SELECT COD_USU,ESTATUS,PASS1_USU,PASS2_USU FROM tblUsuarios WHERE "
                           "COD_USU='ADMIN';"));
}

TEST_P(Entrada, AcceptButtonAcceptsToo) {
  auto f = Abrir();
  f->txtCod->setText(QStringLiteral("admin"));
  f->txtPass->setText(QStringLiteral("clave"));
  QTest::mouseClick(f->cmdAce, Qt::LeftButton);
  EXPECT_EQ(f->result(), QDialog::Accepted);
}

TEST_P(Entrada, AnEmptyPasswordOnlyMovesTheFocusToIt) {
  auto f = Abrir();
  f->txtCod->setFocus();
  QTest::keyClicks(f->txtCod, QStringLiteral("admin"));
  QTest::keyClick(f->txtCod, Qt::Key_Return);
  EXPECT_TRUE(f->txtPass->hasFocus());
  EXPECT_EQ(f->txtCod->text(), QStringLiteral("ADMIN"));
  EXPECT_TRUE(emp->grabadora.sentencias.isEmpty());
  EXPECT_TRUE(f->isVisible());
}

TEST_P(Entrada, AnUnknownUserShows410AndClearsTheCode) {
  auto f = Abrir();
  Teclear(*f, QStringLiteral("nadie"), QStringLiteral("clave"));
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{410});
  EXPECT_EQ(emp->mensajes.mostrados[0].botones, BotonesMensaje::AceptarCancelar);
  EXPECT_EQ(f->txtCod->text(), QString());
  EXPECT_EQ(f->txtPass->text(), QStringLiteral("clave"));
  EXPECT_TRUE(f->txtCod->hasFocus());
  EXPECT_TRUE(f->isVisible());
  EXPECT_EQ(gCodUsu, QString());
}

TEST_P(Entrada, ABarredUserShows400AndClearsBothFields) {
  Usuario(QStringLiteral("BETO"), QStringLiteral("beto"), QString(), 9);
  auto f = Abrir();
  Teclear(*f, QStringLiteral("beto"), QStringLiteral("beto"));
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{400});
  EXPECT_EQ(f->txtCod->text(), QString());
  EXPECT_EQ(f->txtPass->text(), QString());
  EXPECT_TRUE(f->txtCod->hasFocus());
  EXPECT_TRUE(f->isVisible());
}

TEST_P(Entrada, AWrongPasswordShows409AndClearsThePassword) {
  auto f = Abrir();
  Teclear(*f, QStringLiteral("admin"), QStringLiteral("Clave"));
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{409});
  EXPECT_EQ(emp->mensajes.mostrados[0].botones, BotonesMensaje::AceptarCancelar);
  EXPECT_EQ(f->txtCod->text(), QStringLiteral("ADMIN"));
  EXPECT_EQ(f->txtPass->text(), QString());
  EXPECT_TRUE(f->txtPass->hasFocus());
  EXPECT_TRUE(f->isVisible());
}

TEST_P(Entrada, AUserInUseLogsInNormally) {
  con->Ejecutar(QStringLiteral("UPDATE tblUsuarios SET ESTATUS=2 WHERE COD_USU='ADMIN'"));
  auto f = Abrir();
  Teclear(*f, QStringLiteral("admin"), QStringLiteral("clave"));
  EXPECT_EQ(f->result(), QDialog::Accepted);
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

TEST_P(Entrada, AStoredPasswordOfTenIsPlainAndGetsScrambled) {
  Usuario(QStringLiteral("CAJA"), QStringLiteral("0123456789"), QStringLiteral("dos"));
  auto f = Abrir();
  Teclear(*f, QStringLiteral("caja"), QStringLiteral("0123456789"));
  EXPECT_EQ(f->result(), QDialog::Accepted);
  EXPECT_EQ(Desencriptar(Clave("PASS1_USU", QStringLiteral("CAJA"))), QStringLiteral("0123456789"));
  EXPECT_EQ(Desencriptar(Clave("PASS2_USU", QStringLiteral("CAJA"))), QStringLiteral("dos"));
}

TEST_P(Entrada, AStoredPlainPasswordOfElevenCanNeverBeMatched) {
  Usuario(QStringLiteral("LARGO"), QStringLiteral("01234567890"), QString());
  auto f = Abrir();
  Teclear(*f, QStringLiteral("largo"), QStringLiteral("01234567890"));
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{409});
  EXPECT_TRUE(f->isVisible());
  EXPECT_EQ(Clave("PASS1_USU", QStringLiteral("LARGO")), QStringLiteral("01234567890"));
}

TEST_P(Entrada, ACompanyVersionBelowSixtyLeavesEveryPasswordAsItIs) {
  con->Ejecutar(QStringLiteral("UPDATE tblVersion SET VER=590"));
  Usuario(QStringLiteral("CAJA"), QStringLiteral("plana"), QStringLiteral("otra"));
  Usuario(QStringLiteral("OTRO"), QStringLiteral("abc"), QString());
  auto f = Abrir();
  Teclear(*f, QStringLiteral("caja"), QStringLiteral("plana"));
  EXPECT_EQ(f->result(), QDialog::Accepted);
  EXPECT_EQ(Clave("PASS1_USU", QStringLiteral("CAJA")), QStringLiteral("plana"));
  EXPECT_EQ(Clave("PASS2_USU", QStringLiteral("CAJA")), QStringLiteral("otra"));
  EXPECT_EQ(Clave("PASS1_USU", QStringLiteral("OTRO")), QStringLiteral("abc"));
  EXPECT_FALSE(gVersionOk);
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, QStringLiteral("Sistema"));
  EXPECT_EQ(emp->mensajes.mostrados[0].icono, IconoMensaje::Advertencia);
}

TEST_P(Entrada, WithAScrambledFirstPasswordTheSecondIsLeftAlone) {
  Usuario(QStringLiteral("ANA"), Encriptar(QStringLiteral("uno")), QStringLiteral("dos"));
  auto f = Abrir();
  Teclear(*f, QStringLiteral("ana"), QStringLiteral("uno"));
  EXPECT_EQ(f->result(), QDialog::Accepted);
  EXPECT_EQ(Clave("PASS2_USU", QStringLiteral("ANA")), QStringLiteral("dos"));
}

TEST_P(Entrada, ACompanyThatDoesntOpenEndsTheAcceptanceSilently) {
  Empresa(3, QStringLiteral("Caida"), QStringLiteral("SQLite=NoExiste.db"), motor::kSqlite);
  Ultima(QStringLiteral("3"));
  auto f = Abrir();
  ASSERT_FALSE(f->EmpresaAbierta());
  Teclear(*f, QStringLiteral("admin"), QStringLiteral("clave"));
  // The company is tried once more, and then nothing is said.
  EXPECT_EQ(emp->grabadora.sentencias, QStringList{Seleccion(3)});
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
  EXPECT_TRUE(f->isVisible());
  EXPECT_EQ(f->txtCod->text(), QStringLiteral("ADMIN"));
  EXPECT_EQ(f->txtPass->text(), QStringLiteral("clave"));
}

TEST_P(Entrada, EnterOnTheCompanyListOpensTheCompanyAndMovesToTheUserCode) {
  auto f = Abrir();
  f->cmbEmpresa->setFocus();
  QTest::keyClick(f->cmbEmpresa, Qt::Key_Return);
  EXPECT_EQ(emp->grabadora.sentencias, QStringList{Seleccion(1)});
  EXPECT_TRUE(f->txtCod->hasFocus());
  EXPECT_TRUE(f->isVisible());
}

TEST_P(Entrada, EnterOnAnyOtherControlAccepts) {
  auto f = Abrir();
  f->txtCod->setText(QStringLiteral("admin"));
  f->txtPass->setText(QStringLiteral("clave"));
  f->cmdCan->setFocus();
  QTest::keyClick(f->cmdCan, Qt::Key_Return);
  EXPECT_EQ(f->result(), QDialog::Accepted);
}

TEST_P(Entrada, TypingOnTheCompanyListStartsTheUserCode) {
  auto f = Abrir();
  f->cmbEmpresa->setFocus();
  QTest::keyClick(f->cmbEmpresa, Qt::Key_A, Qt::NoModifier);
  EXPECT_EQ(f->txtCod->text(), QStringLiteral("a"));
  EXPECT_TRUE(f->txtCod->hasFocus());
  EXPECT_EQ(f->txtCod->cursorPosition(), 1);
  EXPECT_FALSE(f->txtCod->hasSelectedText());
  QTest::keyClicks(f->txtCod, QStringLiteral("dmin"));
  EXPECT_EQ(f->txtCod->text(), QStringLiteral("admin"));
  EXPECT_EQ(f->cmbEmpresa->currentIndex(), 0);
}

TEST_P(Entrada, TypingOnTheListPutsTheCaretAfterTheFirstCharacter) {
  auto f = Abrir();
  f->txtCod->setText(QStringLiteral("AD"));
  f->cmbEmpresa->setFocus();
  QTest::keyClicks(f->cmbEmpresa, QStringLiteral("7"));
  EXPECT_EQ(f->txtCod->text(), QStringLiteral("AD7"));
  EXPECT_EQ(f->txtCod->cursorPosition(), 1);
}

TEST_P(Entrada, CharactersOutsideTheCodeRangeStayOnTheList) {
  auto f = Abrir();
  f->cmbEmpresa->setFocus();
  for (const char *c : {":", ";", "<", "=", ">", "?", "@", "{", "~"})
    QTest::keyClicks(f->cmbEmpresa, QString::fromLatin1(c));
  EXPECT_EQ(f->txtCod->text(), QString());
  EXPECT_TRUE(f->cmbEmpresa->hasFocus());
}

TEST_P(Entrada, TheApostropheIsRefusedInEveryField) {
  auto f = Abrir();
  f->txtCod->setFocus();
  QTest::keyClicks(f->txtCod, QStringLiteral("o'neil"));
  f->txtPass->setFocus();
  QTest::keyClicks(f->txtPass, QStringLiteral("'x'"));
  f->cmbEmpresa->setFocus();
  QTest::keyClicks(f->cmbEmpresa, QStringLiteral("'"));
  EXPECT_EQ(f->txtCod->text(), QStringLiteral("oneil"));
  EXPECT_EQ(f->txtPass->text(), QStringLiteral("x"));
  EXPECT_TRUE(f->cmbEmpresa->hasFocus());
}

TEST_P(Entrada, CancelEndsTheProcess) {
  auto f = Abrir();
  QTest::mouseClick(f->cmdCan, Qt::LeftButton);
  EXPECT_EQ(f->result(), QDialog::Rejected);
  EXPECT_FALSE(f->isVisible());
  EXPECT_EQ(gCodUsu, QString());
}

TEST_P(Entrada, ClosingTheLoginKeepsTheSelectedCompany) {
  Empresa(3, QStringLiteral("Tercera S.A."), emp->Conexion(), emp->Motor());
  auto f = Abrir();
  f->cmbEmpresa->setCurrentIndex(1);
  gNumEmp = 0;
  f->reject();
  EXPECT_EQ(gNumEmp, 3);
}

TEST_P(Entrada, TheOnScreenKeyboardFillsTheFieldAndMovesOn) {
  auto f = Abrir();
  const int ancho = f->screen()->geometry().width();
  const int dpi = f->logicalDpiX();
  int xTeclado = -1, xFormulario = -1;
  std::vector<QLineEdit::EchoMode> ecos;
  f->teclado = [&](QWidget *padre, int x, QLineEdit::EchoMode eco) {
    EXPECT_EQ(padre, f.get());
    ecos.push_back(eco);
    xTeclado = x;
    xFormulario = f->x();
    return QStringLiteral("  admin ");
  };
  QTest::mouseClick(f->cmdTecladoCod, Qt::LeftButton);
  EXPECT_EQ(xFormulario, 0);
  EXPECT_EQ(xTeclado, ancho - 4365 * dpi / 1440);
  EXPECT_EQ(f->txtCod->text(), QStringLiteral("admin"));
  EXPECT_TRUE(f->txtPass->hasFocus());
  EXPECT_EQ(f->x(), ancho / 2 - 2872 * dpi / 1440);
  // The password's keyboard masks what it types, as its field does.
  QTest::mouseClick(f->cmdTecladoPass, Qt::LeftButton);
  EXPECT_EQ(ecos, (std::vector<QLineEdit::EchoMode>{QLineEdit::Normal, QLineEdit::Password}));
}

TEST_P(Entrada, AnEmptyTextFromTheKeyboardLeavesTheField) {
  auto f = Abrir();
  f->txtPass->setText(QStringLiteral("antes"));
  f->txtCod->setFocus();
  f->teclado = [](QWidget *, int, QLineEdit::EchoMode) { return QStringLiteral("   "); };
  QTest::mouseClick(f->cmdTecladoPass, Qt::LeftButton);
  EXPECT_EQ(f->txtPass->text(), QStringLiteral("antes"));
  EXPECT_TRUE(f->txtCod->hasFocus());
}

TEST_P(Entrada, TheLinkOpensTheMakersSiteAndUnderlinesUnderThePointer) {
  std::vector<QUrl> abiertas;
  InstalarAbridor([&](const QUrl &u) { abiertas.push_back(u); });
  auto f = Abrir();
  EXPECT_EQ(f->lblLink->text(), QStringLiteral("www.tolvane.com"));
  QEvent entra(QEvent::Enter);
  QApplication::sendEvent(f->lblLink, &entra);
  EXPECT_TRUE(f->lblLink->font().underline());
  QEvent sale(QEvent::Leave);
  QApplication::sendEvent(f->lblLink, &sale);
  EXPECT_FALSE(f->lblLink->font().underline());
  QTest::mouseClick(f->lblLink, Qt::LeftButton);
  ASSERT_EQ(abiertas.size(), 1u);
  EXPECT_EQ(abiertas[0], QUrl(QStringLiteral("http://www.tolvane.com")));
}

INSTANTIATE_TEST_SUITE_P(Motores, Entrada, testing::ValuesIn(MotoresDePrueba()), NombreMotor);

TEST(frmTeclado, TheKeysTypeLettersDigitsAndAccentsInBothCases) {
  frmTeclado t;
  t.show();
  for (const char *c : {"n", "1", "ñ", "á"})
    t.Tecla(QString::fromUtf8(c))->click();
  t.cmdMayusculas->click();
  for (const char *c : {"Ñ", "Ü", "É"})
    t.Tecla(QString::fromUtf8(c))->click();
  t.cmdEspacio->click();
  t.cmdMayusculas->click();
  t.Tecla(QStringLiteral("z"))->click();
  EXPECT_EQ(t.Texto(), QStringLiteral("n1ñáÑÜÉ z"));
  EXPECT_EQ(t.Tecla(QStringLiteral("Z")), nullptr);
  GuardarCaptura(&t, QStringLiteral("frmTeclado"));
}

TEST(frmTeclado, EveryAccentedLetterHasItsKey) {
  frmTeclado t;
  for (const QChar c : QString::fromUtf8("áéíóúüñ"))
    EXPECT_NE(t.Tecla(c), nullptr) << QString(c).toStdString();
  t.cmdMayusculas->click();
  for (const QChar c : QString::fromUtf8("ÁÉÍÓÚÜÑ"))
    EXPECT_NE(t.Tecla(c), nullptr) << QString(c).toStdString();
}

TEST(frmTeclado, BackspaceErasesTheLastCharacter) {
  frmTeclado t;
  t.Tecla(QStringLiteral("a"))->click();
  t.Tecla(QStringLiteral("b"))->click();
  t.cmdBorrar->click();
  EXPECT_EQ(t.Texto(), QStringLiteral("a"));
}

TEST(frmTeclado, AcceptingReturnsTheTextAndCancellingNothing) {
  frmTeclado t;
  t.Tecla(QStringLiteral("x"))->click();
  t.cmdAceptar->click();
  EXPECT_EQ(t.result(), QDialog::Accepted);
  frmTeclado otro;
  otro.Tecla(QStringLiteral("x"))->click();
  otro.cmdCancelar->click();
  EXPECT_EQ(otro.result(), QDialog::Rejected);
}

TEST(frmTeclado, ShownAtTheGivenPlaceItReturnsTheTextTyped) {
  QTimer::singleShot(0, [] {
    auto *t = dynamic_cast<frmTeclado *>(QApplication::activeModalWidget());
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(t->x(), 120);
    t->Tecla(QStringLiteral("o"))->click();
    t->Tecla(QStringLiteral("k"))->click();
    t->cmdAceptar->click();
  });
  EXPECT_EQ(frmTeclado::Pedir(nullptr, 120, QLineEdit::Normal), QStringLiteral("ok"));
  QTimer::singleShot(0, [] {
    auto *t = dynamic_cast<frmTeclado *>(QApplication::activeModalWidget());
    ASSERT_NE(t, nullptr);
    t->Tecla(QStringLiteral("o"))->click();
    t->cmdCancelar->click();
  });
  EXPECT_EQ(frmTeclado::Pedir(nullptr, 120, QLineEdit::Normal), QString());
}

TEST(frmTeclado, TheApostropheIsRefusedInItsField) {
  frmTeclado t;
  t.show();
  QApplication::setActiveWindow(&t);
  t.txtTexto->setFocus();
  QTest::keyClicks(t.txtTexto, QStringLiteral("d'a"));
  EXPECT_EQ(t.Texto(), QStringLiteral("da"));
}

TEST_P(Entrada, TheApostropheIsRefusedHoweverItComesAndReachesNoStatement) {
  auto f = Abrir();
  EXPECT_GE(IntentarApostrofos(f.get()), 2);
  // The login goes on with what the fields hold: nothing of the pasted name.
  f->txtCod->setFocus();
  QTest::keyClick(f->txtCod, Qt::Key_Return);
  QTest::keyClick(f->txtPass, Qt::Key_Return);
  for (const QString &s : emp->grabadora.sentencias)
    EXPECT_FALSE(s.contains(QStringLiteral("BRIEN"))) << s.toStdString();
}
