#include "admin/pantallas/frmUtiEmpresas.h"
#include "Apoyo.h"
#include "Capturas.h"
#include "admin/pantallas/frmUtiCrearEmpresa.h"
#include "db/ConstructorBD.h"
#include "db/EmpresaDemo.h"
#include "db/Esquema.h"
#include "journal/DiarioPrueba.h"
#include "pantallas/PantallaCombos.h"
#include "pantallas/Pantallas.h"
#include "shell/Ayuda.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <gtest/gtest.h>

using diario::Filas;

namespace {

// Company 1 of the test installation with its identity, and company 2 in Otra.db.
class PantallasEmpresa : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->AbrirComoAdmin(QStringLiteral("clave"));
    gVersionOk = true;
    demo::CrearBaseEmpresaSqlite(UnirRuta(emp->Ruta(), QStringLiteral("Otra.db")));
    emp->AbrirGeneral()->Ejecutar(QStringLiteral(
        "INSERT INTO tblEmpresas (NUM_EMP,NOM_EMP,NOM_COM,CONEXION,MOTORDEDATOS,NOMBREBASEDATOS) "
        "VALUES (2,'Otra S.A.','Otra','SQLite=Otra.db',5,'Otra')"));
    ServicioConexion s;
    s.Motor = motor::kSqlite;
    otra = s.AbrirConexion(QStringLiteral("SQLite=Otra.db"));
    demo::LlenarIdentidad(*otra, QStringLiteral("otra"));
  }
  std::unique_ptr<frmUtiEmpresas> Lista() {
    auto f = std::make_unique<frmUtiEmpresas>();
    f->alCambiarEmpresa = [this] { ++cambios; };
    f->show();
    QApplication::setActiveWindow(f.get());
    f->flxEmpresas->setFocus();
    emp->mensajes.mostrados.clear();
    return f;
  }
  static void Tecla(Qt::Key tecla) { QTest::keyClick(QApplication::focusWidget(), tecla); }
  int Empresas() {
    return Filas(*emp->AbrirGeneral(), QStringLiteral("SELECT COUNT(*) FROM tblEmpresas"))
        .first()
        .toInt();
  }
  // Runs a step while a modal screen opens; gives that screen to the check first.
  static void ConPantalla(const std::function<void()> &paso,
                          const std::function<void(QWidget *)> &revisar) {
    bool visto = false;
    QTimer::singleShot(0, [&] {
      QWidget *modal = QApplication::activeModalWidget();
      visto = modal != nullptr;
      if (modal) {
        revisar(modal);
        modal->close();
      }
    });
    paso();
    EXPECT_TRUE(visto);
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con, otra;
  int cambios = 0;
};

} // namespace

// ------------------------------------------------------------------ the list

TEST_P(PantallasEmpresa, TheListShowsTheCompaniesWithTheOpenOneChosen) {
  gNumEmp = 2;
  auto f = Lista();
  EXPECT_EQ(f->windowTitle(), QStringLiteral("VER EMPRESAS"));
  ASSERT_EQ(f->flxEmpresas->rowCount(), 2);
  EXPECT_EQ(f->flxEmpresas->horizontalHeaderItem(2)->text(), QStringLiteral("Nombre Comercial"));
  EXPECT_EQ(f->flxEmpresas->item(1, 1)->text(), QStringLiteral("Otra S.A."));
  EXPECT_EQ(f->flxEmpresas->currentRow(), 1);
  EXPECT_TRUE(f->flxEmpresas->styleSheet().contains(QStringLiteral("rgb(245, 249, 255)")));
  EXPECT_TRUE(f->flxEmpresas->styleSheet().contains(QStringLiteral("rgb(192, 217, 255)")));
  QStringList leyendas;
  for (QPushButton *b : f->cmdFunciones)
    leyendas << b->text();
  EXPECT_EQ(leyendas, L({"MODIFICAR DATOS DE LA EMPRESA [F10]", "MODIFICAR PARÁMETROS [F4]",
                         "ELIMINAR EMPRESA [F3]", "SALIR [ESC]", "AYUDA [F1]"}));
  EXPECT_TRUE(f->cmdFunciones[0]->isEnabled());
  EXPECT_TRUE(f->cmdFunciones[1]->isEnabled());
  GuardarCaptura(f.get(), QStringLiteral("frmUtiEmpresas"));
  // A company that isn't listed leaves the first one chosen: every key acts on a row.
  gNumEmp = 7;
  f->LlenarEmpresas();
  EXPECT_EQ(f->flxEmpresas->currentRow(), 0);
}

TEST_P(PantallasEmpresa, EnterOpensTheChosenCompanyAndTheScreenCloses) {
  auto f = Lista();
  f->flxEmpresas->selectRow(1);
  Tecla(Qt::Key_Return);
  EXPECT_EQ(gNumEmp, 2);
  EXPECT_EQ(cambios, 1);
  EXPECT_FALSE(f->isVisible());
  EXPECT_EQ(f->result(), QDialog::Accepted);
}

TEST_P(PantallasEmpresa, ADoubleClickOpensAsWellAndAFailedSwitchKeepsTheScreen) {
  otra->Ejecutar(QStringLiteral("DELETE FROM tblUsuarios"));
  auto f = Lista();
  const QRect celda = f->flxEmpresas->visualItemRect(f->flxEmpresas->item(1, 1));
  QTest::mouseClick(f->flxEmpresas->viewport(), Qt::LeftButton, {}, celda.center());
  QTest::mouseDClick(f->flxEmpresas->viewport(), Qt::LeftButton, {}, celda.center());
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{403});
  EXPECT_EQ(gNumEmp, 1);
  EXPECT_EQ(cambios, 0);
  EXPECT_TRUE(f->isVisible());
}

TEST_P(PantallasEmpresa, FThreeDeletesAnotherCompanyAfterTheQuestionButNeverTheOpenOne) {
  auto f = Lista();
  Tecla(Qt::Key_F3);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{365});
  f->flxEmpresas->selectRow(1);
  Tecla(Qt::Key_F3);
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{365, 357}));
  EXPECT_EQ(Empresas(), 1);
  EXPECT_EQ(f->flxEmpresas->rowCount(), 1);
  // The apostrophe is dropped and Esc leaves.
  QTest::keyClick(f->flxEmpresas, Qt::Key_Apostrophe);
  Tecla(Qt::Key_Escape);
  EXPECT_FALSE(f->isVisible());
}

TEST_P(PantallasEmpresa, WithAnOldVersionFTenDoesNothingAndSaysNothing) {
  gVersionOk = false;
  auto f = Lista();
  Tecla(Qt::Key_F10);
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
  EXPECT_EQ(QApplication::activeModalWidget(), f.get());
  EXPECT_TRUE(f->isVisible());
}

TEST_P(PantallasEmpresa, FTenShowsTheChosenCompanysDataAndTheListAfter) {
  auto f = Lista();
  f->flxEmpresas->selectRow(1);
  ConPantalla([&] { Tecla(Qt::Key_F10); },
              [&](QWidget *w) {
                auto *c = dynamic_cast<frmUtiCrearEmpresa *>(w);
                ASSERT_NE(c, nullptr);
                EXPECT_EQ(c->txtNom->text(), QStringLiteral("Otra S.A."));
                EXPECT_EQ(c->cmbBD->currentIndex(), 2);
                EXPECT_EQ(c->txtArchivo->text(), QStringLiteral("Otra.db"));
                EXPECT_TRUE(c->chkEstructura->isEnabled());
                EXPECT_EQ(c->txtCodSuc->text(), QStringLiteral("MATRIZ"));
              });
  EXPECT_EQ(gNumEmp, 1);
  EXPECT_EQ(gModoEmpresa, 0);
  EXPECT_EQ(f->flxEmpresas->rowCount(), 2);
}

// ------------------------------------------------------------------ a company's data

TEST_P(PantallasEmpresa, ANewCompanyOnTheEmbeddedEngineIsCreatedFromTheScreen) {
  frmUtiCrearEmpresa f;
  f.show();
  QApplication::setActiveWindow(&f);
  EXPECT_EQ(f.windowTitle(), QStringLiteral("DATOS DE LA EMPRESA"));
  EXPECT_EQ(QApplication::focusWidget(), f.txtNom);
  EXPECT_EQ(f.cmbBD->currentIndex(), 2);
  EXPECT_EQ(f.txtDesSuc->text(), QStringLiteral("PISO"));
  EXPECT_TRUE(f.chkImpReporte[0]->isChecked());
  // A backslash can't be typed in the name.
  QTest::keyClicks(f.txtNom, QStringLiteral("Ferreteria\\ El Tornillo"));
  EXPECT_EQ(f.txtNom->text(), QStringLiteral("Ferreteria El Tornillo"));
  f.txtCom->setText(QStringLiteral("El Tornillo"));
  GuardarCaptura(&f, QStringLiteral("frmUtiCrearEmpresa_empresa"));
  f.MostrarTab(1);
  EXPECT_EQ(QApplication::focusWidget(), f.txtCodSuc);
  f.txtCodSuc->setText(QStringLiteral("CENTRO"));
  GuardarCaptura(&f, QStringLiteral("frmUtiCrearEmpresa_integrado"));
  // Another company's file has the name already: this one gets a file of its own.
  QDir().mkpath(RutaNativa(UnirRuta(emp->Ruta(), QStringLiteral("Empresas"))));
  EscribirArchivo(UnirRuta(emp->Ruta(), QStringLiteral("Empresas/ElTornillo.db")), "x");
  int pedidos = 0;
  f.pedirAdministrador = [&](empresa::DatosEmpresa &d) {
    ++pedidos;
    d.admin = QStringLiteral("JEFA");
    d.claveAdmin = QStringLiteral("tornillo");
    return true;
  };
  QTest::mouseClick(f.cmdAceptar, Qt::LeftButton);
  EXPECT_EQ(pedidos, 1);
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(f.txtArchivo->text(), QStringLiteral("Empresas\\ElTornillo2.db"));
  EXPECT_EQ(LeerArchivo(UnirRuta(emp->Ruta(), QStringLiteral("Empresas/ElTornillo.db"))), "x");
  EXPECT_EQ(Filas(*emp->AbrirGeneral(), QStringLiteral("SELECT NUM_EMP,NOM_EMP,CONEXION FROM "
                                                       "tblEmpresas WHERE NUM_EMP=3")),
            L({"3|Ferreteria El Tornillo|SQLite=Empresas\\ElTornillo2.db"}));
}

TEST_P(PantallasEmpresa, TheDatabaseFrameShowsEachKindWithItsRules) {
  frmUtiCrearEmpresa f;
  f.show();
  QApplication::setActiveWindow(&f);
  f.MostrarTab(1);
  f.cmbBD->setCurrentIndex(1);
  EXPECT_EQ(f.fmeBaseDatos->currentWidget(), f.fmeSql);
  EXPECT_FALSE(f.txtUserNameSql->isEnabled());
  f.optAutentication[1]->click();
  EXPECT_TRUE(f.txtUserNameSql->isEnabled());
  EXPECT_TRUE(f.txtUserPasswordSql->isEnabled());
  EXPECT_EQ(f.txtUserPasswordSql->echoMode(), QLineEdit::Password);
  GuardarCaptura(&f, QStringLiteral("frmUtiCrearEmpresa_sqlserver"));
  f.optAutentication[0]->click();
  EXPECT_FALSE(f.txtUserPasswordSql->isEnabled());
  // Saving a connection that wasn't proved is refused.
  f.txtNom->setText(QStringLiteral("Prueba"));
  f.txtCodSuc->setText(QStringLiteral("MATRIZ"));
  f.txtServerName->setText(QStringLiteral("equipo"));
  f.Aceptar();
  EXPECT_EQ(emp->mensajes.Ids().back(), 369);
  EXPECT_TRUE(f.isVisible());
  f.cmbBD->setCurrentIndex(0);
  EXPECT_NE(f.fmeBaseDatos->currentWidget(), f.fmeSql);
  GuardarCaptura(&f, QStringLiteral("frmUtiCrearEmpresa_mysql"));
  f.Aceptar();
  EXPECT_EQ(emp->mensajes.Ids().back(), 358);
  f.txtBD->setText(QStringLiteral("tienda"));
  f.Aceptar();
  EXPECT_EQ(emp->mensajes.Ids().back(), 359);
  f.txtRuta->setText(QStringLiteral("tienda"));
  EXPECT_EQ(f.lblConexion->text(), QStringLiteral("DSN=tienda"));
  EXPECT_EQ(Filas(*emp->AbrirGeneral(), QStringLiteral("SELECT COUNT(*) FROM tblEmpresas")),
            L({"2"}));
}

TEST_P(PantallasEmpresa, ANewCompanyOnTheServerThroughItsDataSource) {
  if (GetParam() != "mariadb")
    GTEST_SKIP() << "sólo con el servidor MariaDB de las pruebas";
  constructor::BorrarTablas(*con, esquema::TablasEmpresa());
  gModoEmpresa = 99;
  frmUtiCrearEmpresa f;
  f.show();
  QApplication::setActiveWindow(&f);
  EXPECT_FALSE(f.chkEstructura->isEnabled());
  f.txtNom->setText(QStringLiteral("Papelería La Pluma S.A."));
  f.txtCodSuc->setText(QStringLiteral("MATRIZ"));
  f.cmbBD->setCurrentIndex(0);
  const QString dsn = qEnvironmentVariable("ESCRIBANO_PRUEBA_DSN");
  const int fila = f.cmbDSNList->findText(dsn);
  ASSERT_GE(fila, 0) << "el origen de datos de las pruebas no está en la lista";
  f.cmbDSNList->setCurrentIndex(fila);
  Q_EMIT f.cmbDSNList->activated(fila);
  EXPECT_EQ(f.lblConexion->text(), QStringLiteral("DSN=") + dsn);
  EXPECT_EQ(f.txtBD->text(), dsn);
  f.pedirAdministrador = [](empresa::DatosEmpresa &d) {
    d.admin = QStringLiteral("ADMIN");
    d.claveAdmin = QStringLiteral("pluma");
    return true;
  };
  f.Aceptar();
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT NOM_EMP FROM tblEmpresa WHERE COD_EMPRESA=1")),
            L({"Papelería La Pluma S.A."}));
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COUNT(*) FROM tblPlantillaMenus")), L({"418"}));
}

TEST_P(PantallasEmpresa, ANewDatabasesAdministratorIsAskedWithThePasswordTwice) {
  frmUtiCrearEmpresa f;
  empresa::DatosEmpresa d;
  d.nombreAdmin = QStringLiteral("Administrador");
  bool pedido = false;
  QTimer::singleShot(0, [&] {
    QWidget *dialogo = QApplication::activeModalWidget();
    ASSERT_NE(dialogo, nullptr);
    EXPECT_EQ(dialogo->objectName(), QStringLiteral("frmAdministrador"));
    auto *clave = dialogo->findChild<QLineEdit *>(QStringLiteral("txtClave"));
    auto *confirmar = dialogo->findChild<QLineEdit *>(QStringLiteral("txtConfirmar"));
    clave->setText(QStringLiteral("secreta"));
    confirmar->setText(QStringLiteral("secret"));
    GuardarCaptura(dialogo, QStringLiteral("frmAdministrador"));
    // F1 opens the manual at the chapter of the first company.
    std::vector<QUrl> abiertas;
    InstalarAbridor([&](const QUrl &u) { abiertas.push_back(u); });
    IniciarAyuda();
    QDir().mkpath(QFileInfo(RutaNativa(gRutaAyuda)).path());
    EscribirArchivo(RutaNativa(gRutaAyuda), "%PDF");
    ayuda::EscribirIndice(RutaNativa(gRutaAyuda),
                          {{QStringLiteral("01-instalacion"), QStringLiteral("Instalación"), 3}});
    QTest::keyClick(clave, Qt::Key_F1);
    InstalarAbridor({});
    ASSERT_EQ(abiertas.size(), 1u);
    EXPECT_EQ(abiertas[0].fragment(), QStringLiteral("page=3"));
    // Two passwords that differ are refused, and the dialog stays.
    QTest::keyClick(confirmar, Qt::Key_Return);
    EXPECT_EQ(emp->mensajes.Textos(), QStringList{QStringLiteral("Las contraseñas no coinciden.")});
    EXPECT_TRUE(dialogo->isVisible());
    confirmar->setText(QStringLiteral("secreta"));
    QTest::keyClick(confirmar, Qt::Key_Return);
    pedido = true;
  });
  ASSERT_TRUE(f.pedirAdministrador(d));
  EXPECT_TRUE(pedido);
  EXPECT_EQ(d.admin, QStringLiteral("ADMIN"));
  EXPECT_EQ(d.nombreAdmin, QStringLiteral("Administrador"));
  EXPECT_EQ(d.claveAdmin, QStringLiteral("secreta"));
}

INSTANTIATE_TEST_SUITE_P(Motores, PantallasEmpresa, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);
