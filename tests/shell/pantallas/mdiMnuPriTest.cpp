#include "shell/pantallas/mdiMnuPri.h"
#include "Apoyo.h"
#include "Capturas.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/Pantallas.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <gtest/gtest.h>

namespace {

const QString kEnUso = QStringLiteral("UPDATE tblUsuarios SET ESTATUS=2 WHERE COD_USU='ADMIN';");
const QString kLibre = QStringLiteral("UPDATE tblUsuarios SET ESTATUS=0 WHERE COD_USU='ADMIN';");

// The main window of ADMIN in a company with its identity, as the login leaves it.
class Principal : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->AbrirComoAdmin(QStringLiteral("clave"));
    IniciarAyuda();
    ServicioUtil::EscribirIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"),
                              QStringLiteral("7"), RutaNimbarIni());
    emp->grabadora.sentencias.clear();
  }
  void TearDown() override { InstalarAbridor({}); }

  std::unique_ptr<mdiMnuPri> Abrir() {
    auto m = std::make_unique<mdiMnuPri>();
    m->Cargar();
    m->show();
    QApplication::setActiveWindow(m.get());
    emp->grabadora.sentencias.clear();
    emp->mensajes.mostrados.clear();
    return m;
  }
  QString Estatus() {
    return emp->Valor(QStringLiteral("SELECT ESTATUS FROM tblUsuarios WHERE COD_USU='ADMIN'"));
  }
  QString Empresa() {
    return ServicioUtil::LeerIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"),
                                 RutaNimbarIni());
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

} // namespace

TEST_P(Principal, TheLoadMarksTheUserInUseAndRunsTheChecks) {
  mdiMnuPri m;
  m.Cargar();
  EXPECT_EQ(m.windowTitle(), QStringLiteral("Escribano v.8.7"));
  EXPECT_EQ(
      emp->grabadora.sentencias,
      (QStringList{kEnUso,
                   QStringLiteral("SELECT NOM_USU,TIP_USU FROM tblUsuarios WHERE "
                                  "COD_USU='ADMIN';"),
                   QStringLiteral("SELECT NOM_EMP FROM tblEmpresa;"),
                   QStringLiteral("SELECT * FROM tblUsuarios ORDER BY COD_USU;"),
                   QStringLiteral("SELECT * FROM tblUsuarios WHERE COD_USU<>'ADMIN' ORDER BY "
                                  "COD_USU;"),
                   QStringLiteral("DELETE FROM tblComEstatus WHERE COD_ESTATUS=0;"),
                   QStringLiteral("SELECT FE_VERSION,FE_ACTUAL FROM tblParametrosGenerales;")}));
  EXPECT_EQ(Estatus(), QStringLiteral("2"));
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

TEST_P(Principal, TheStatusBarShowsTheCompanyAndTheUser) {
  con->Ejecutar(QStringLiteral("UPDATE tblUsuarios SET NOM_USU='  Administrador  '"));
  auto m = Abrir();
  EXPECT_EQ(m->Panel(1)->text(), QStringLiteral("La Fonda de Doña Lupe S.A. de C.V."));
  EXPECT_EQ(m->Panel(1)->toolTip(), QStringLiteral("Empresa Actual"));
  EXPECT_EQ(m->Panel(4)->text(), QStringLiteral("Administrador"));
  EXPECT_EQ(m->Panel(6)->text(), QString());
  GuardarCaptura(m.get(), QStringLiteral("mdiMnuPri"));
}

TEST_P(Principal, TheMenusComeInTheirOrderWithOnlyTheExitOpen) {
  auto m = Abrir();
  QStringList vistos;
  for (QAction *titulo : m->menuBar()->actions()) {
    // The captions as they read: the access keys' marks aside.
    vistos << titulo->menu()->objectName() + QLatin1Char('=') +
                  QString(titulo->text()).remove(QLatin1Char('&'));
    for (QAction *a : titulo->menu()->actions())
      vistos << a->objectName() + QLatin1Char('=') + QString(a->text()).remove(QLatin1Char('&')) +
                    (a->isEnabled() ? QStringLiteral(" +") : QStringLiteral(" -"));
  }
  EXPECT_EQ(vistos, (QStringList{
                        QStringLiteral("mnuArchivo=Archivo"),
                        QStringLiteral("mnuAbrirEmpresa=Abrir empresa -"),
                        QStringLiteral("mnuSalir=Salir +"),
                        QStringLiteral("mnuProcesos=Procesos"),
                        QStringLiteral("mnuGenPolizas=Generar Pólizas -"),
                        QStringLiteral("mnuGenArchPolizas=Generar archivo de Pólizas -"),
                        QStringLiteral("mnuConsPolizas=Consultar Pólizas -"),
                        QStringLiteral("mnuEliPolizas=Eliminar Pólizas -"),
                        QStringLiteral("mnuDefinicion=Definición"),
                        QStringLiteral("mnuDefAsientos=Definir Asientos -"),
                        QStringLiteral("mnuDefFormato=Definir Formato -"),
                        QStringLiteral("mnuDiarios=Diarios -"),
                        QStringLiteral("mnuCatalogo=Catálogo -"),
                    }));
}

TEST_P(Principal, TheToolbarHasHelpAndExit) {
  auto m = Abrir();
  ASSERT_EQ(m->tlbDatos->actions().size(), 2);
  EXPECT_EQ(m->tlbDatos->actions()[0]->objectName(), QStringLiteral("AYU"));
  EXPECT_EQ(m->tlbDatos->actions()[0]->toolTip(), QStringLiteral("Ayuda"));
  EXPECT_EQ(m->tlbDatos->actions()[1]->objectName(), QStringLiteral("SAL"));
  EXPECT_EQ(m->tlbDatos->actions()[1]->toolTip(), QStringLiteral("Salir"));
}

TEST_P(Principal, AnEmptyCompanyRowLeavesPanelOneEmptyAndTheLoadGoesOn) {
  con->Ejecutar(QStringLiteral("DELETE FROM tblEmpresa"));
  mdiMnuPri m;
  m.Cargar();
  EXPECT_EQ(m.Panel(1)->text(), QString());
  EXPECT_EQ(m.Panel(1)->toolTip(), QString());
  EXPECT_EQ(emp->grabadora.sentencias.last(),
            QStringLiteral("SELECT FE_VERSION,FE_ACTUAL FROM tblParametrosGenerales;"));
  EXPECT_EQ(m.Panel(4)->text(), QStringLiteral("Administrador"));
}

TEST_P(Principal, AUserMissingFromTheCompanyKeepsTheCodeInPanelFour) {
  gCodUsu = QStringLiteral("NADIE");
  mdiMnuPri m;
  m.Cargar();
  EXPECT_EQ(m.Panel(4)->text(), QStringLiteral("NADIE"));
  EXPECT_EQ(emp->grabadora.sentencias.first(),
            QStringLiteral("UPDATE tblUsuarios SET ESTATUS=2 WHERE COD_USU='NADIE';"));
}

TEST_P(Principal, WithoutACompanyConnectionTheUserIsOnlyShown) {
  gCodUsu = QStringLiteral(" ADMIN ");
  gConexion.clear();
  mdiMnuPri m;
  m.MostrarUsuario();
  EXPECT_EQ(m.Panel(4)->text(), QStringLiteral("ADMIN"));
  EXPECT_TRUE(emp->grabadora.sentencias.isEmpty());
  EXPECT_EQ(Estatus(), QStringLiteral("0"));
}

TEST_P(Principal, SharedPasswordsAreReportedAtLoad) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblUsuarios (COD_USU,PASS1_USU,PASS2_USU,ESTATUS) "
                               "VALUES ('BETO','%1','',0)")
                    .arg(emp->Valor(QStringLiteral(
                        "SELECT PASS1_USU FROM tblUsuarios WHERE COD_USU='ADMIN'"))));
  mdiMnuPri m;
  m.Cargar();
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{422});
}

TEST_P(Principal, AnOldInvoicingConfigurationIsRepairedAtLoad) {
  EscribirArchivo(emp->Ruta() + QStringLiteral("/TVContabilidad.cfg"),
                  "x /cfdi/ServiciosElectronicos");
  mdiMnuPri m;
  m.Cargar();
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].texto,
            QStringLiteral("No se encontraron archivos de configuración en carpeta TEMP. "
                           "Contacta a tu distribuidor."));
}

TEST_P(Principal, AfterASwitchTheCompanyAndTheRegisterAreShown) {
  auto m = Abrir();
  con->Ejecutar(QStringLiteral("UPDATE tblEmpresa SET NOM_EMP='Otra S.A.'"));
  emp->grabadora.sentencias.clear();
  m->MostrarEmpresa(0);
  EXPECT_EQ(m->Panel(1)->text(), QStringLiteral("Otra S.A."));
  EXPECT_EQ(m->Panel(6)->text(), QString());
  m->MostrarEmpresa(4);
  EXPECT_EQ(m->Panel(6)->text(), QStringLiteral("CAJA: 4"));
  EXPECT_EQ(emp->grabadora.sentencias,
            (QStringList{QStringLiteral("SELECT NOM_EMP FROM tblEmpresa;"),
                         QStringLiteral("SELECT NOM_EMP FROM tblEmpresa;")}));
}

TEST_P(Principal, LeavingWithYesFreesTheUserWritesTheCompanyAndCloses) {
  auto m = Abrir();
  EXPECT_TRUE(m->close());
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  const Mensaje &pregunta = emp->mensajes.mostrados[0];
  EXPECT_EQ(pregunta.id, 303);
  EXPECT_TRUE(pregunta.noPorOmision); // Enter alone doesn't leave the system
  EXPECT_EQ(pregunta.titulo, QStringLiteral("Salir"));
  EXPECT_EQ(pregunta.texto, CatalogoMensajes::Texto(303));
  EXPECT_EQ(pregunta.icono, IconoMensaje::Pregunta);
  EXPECT_EQ(pregunta.botones, BotonesMensaje::SiNo);
  EXPECT_EQ(emp->grabadora.sentencias, QStringList{kLibre});
  EXPECT_EQ(Estatus(), QStringLiteral("0"));
  EXPECT_EQ(Empresa(), QStringLiteral("1"));
  EXPECT_FALSE(m->isVisible());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_P(Principal, AnsweringNoKeepsTheWindowAndStillWritesTheCompany) {
  auto m = Abrir();
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  EXPECT_FALSE(m->close());
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{303});
  EXPECT_TRUE(emp->grabadora.sentencias.isEmpty());
  EXPECT_EQ(Estatus(), QStringLiteral("2"));
  EXPECT_EQ(Empresa(), QStringLiteral("1"));
  EXPECT_TRUE(m->isVisible());
}

TEST_P(Principal, WithAnotherWindowOpenLeavingIsRefusedBeforeAnyQuestion) {
  auto m = Abrir();
  QWidget otra;
  otra.show();
  EXPECT_FALSE(m->close());
  ASSERT_EQ(emp->mensajes.Ids(), std::vector<int>{301});
  EXPECT_EQ(emp->mensajes.mostrados[0].icono, IconoMensaje::Informacion);
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, CatalogoMensajes::Texto(100));
  EXPECT_EQ(Empresa(), QStringLiteral("7"));
  EXPECT_EQ(Estatus(), QStringLiteral("2"));
  EXPECT_TRUE(m->isVisible());
}

TEST_P(Principal, EscapeAndTheExitItemAskToLeave) {
  auto m = Abrir();
  emp->mensajes.respuestas = {RespuestaMensaje::No, RespuestaMensaje::No, RespuestaMensaje::No};
  QTest::keyClick(m.get(), Qt::Key_Escape);
  m->Menu(QStringLiteral("mnuSalir"))->trigger();
  m->tlbDatos->Pulsar(QStringLiteral("SAL"));
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{303, 303, 303}));
  EXPECT_TRUE(m->isVisible());
}

TEST_P(Principal, ARegisteredScreenOpensModallyFromItsItem) {
  auto m = Abrir();
  QAction *item = m->Menu(QStringLiteral("mnuGenPolizas"));
  int creadas = 0;
  bool modal = false;
  QWidget *padre = nullptr;
  m->Registrar(QStringLiteral("mnuGenPolizas"), [&](QWidget *p) {
    ++creadas;
    padre = p;
    auto d = std::make_unique<QDialog>(p);
    QDialog *crudo = d.get();
    QTimer::singleShot(0, crudo, [&, crudo] {
      modal = QApplication::activeModalWidget() == crudo;
      crudo->accept();
    });
    return d;
  });
  EXPECT_TRUE(item->isEnabled());
  item->trigger();
  EXPECT_EQ(creadas, 1);
  EXPECT_TRUE(modal);
  EXPECT_EQ(padre, m.get());
  // Registering again replaces the screen; it isn't shown twice.
  m->Registrar(QStringLiteral("mnuGenPolizas"), [&](QWidget *p) {
    creadas += 10;
    auto d = std::make_unique<QDialog>(p);
    QTimer::singleShot(0, d.get(), &QDialog::accept);
    return d;
  });
  item->trigger();
  EXPECT_EQ(creadas, 11);
}

TEST_P(Principal, RegisteringAnUnknownItemIsFatal) {
  auto m = Abrir();
  const auto fabrica = [](QWidget *p) { return std::make_unique<QDialog>(p); };
  EXPECT_THROW(m->Registrar(QStringLiteral("mnuNoExiste"), fabrica), ErrorFatal);
  EXPECT_THROW(m->Registrar(QStringLiteral("mnuSalir"), fabrica), ErrorFatal);
}

INSTANTIATE_TEST_SUITE_P(Motores, Principal, testing::ValuesIn(MotoresDePrueba()), NombreMotor);

TEST_P(Principal, EachMenuAndItemHasItsOwnAccessKey) {
  auto m = Abrir();
  QStringList titulos;
  for (QAction *titulo : m->menuBar()->actions()) {
    titulos << titulo->text();
    QStringList letras;
    for (QAction *a : titulo->menu()->actions()) {
      const qsizetype i = a->text().indexOf(QLatin1Char('&'));
      ASSERT_GE(i, 0) << a->text().toStdString();
      letras << a->text().mid(i + 1, 1).toLower();
    }
    letras.removeDuplicates();
    EXPECT_EQ(letras.size(), titulo->menu()->actions().size()) << titulo->text().toStdString();
  }
  EXPECT_EQ(titulos, (QStringList{QStringLiteral("&Archivo"), QStringLiteral("&Procesos"),
                                  QStringLiteral("&Definición")}));
  GuardarCaptura(m.get(), QStringLiteral("mdiMnuPri_barra"));
  QTest::keyClick(m.get(), Qt::Key_F10);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  GuardarCaptura(QApplication::activePopupWidget(), QStringLiteral("mdiMnuPri_menu"));
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
}

TEST_P(Principal, EveryMenuItemIsReachedWithTheKeyboardAlone) {
  auto m = Abrir();
  // Every item with a screen that closes as soon as it shows.
  QStringList abiertas;
  for (QAction *titulo : m->menuBar()->actions())
    for (QAction *a : titulo->menu()->actions())
      if (a->objectName() != QStringLiteral("mnuSalir"))
        m->Registrar(a->objectName(), [&abiertas, nombre = a->objectName()](QWidget *padre) {
          abiertas << nombre;
          auto d = std::make_unique<QDialog>(padre);
          QTimer::singleShot(0, d.get(), &QDialog::reject);
          return d;
        });
  QStringList esperadas;
  const QList<QAction *> titulos = m->menuBar()->actions();
  for (qsizetype t = 0; t < titulos.size(); ++t) {
    const QList<QAction *> items = titulos[t]->menu()->actions();
    for (qsizetype k = 0; k < items.size(); ++k) {
      if (items[k]->objectName() == QStringLiteral("mnuSalir"))
        continue;
      esperadas << items[k]->objectName();
      // F10 opens the bar on its first menu; the arrows go to the item; Enter opens it.
      // (Offscreen, the frame isn't made active again when the screen closes.)
      QApplication::setActiveWindow(m.get());
      QTest::keyClick(m.get(), Qt::Key_F10);
      ASSERT_NE(QApplication::activePopupWidget(), nullptr);
      for (qsizetype i = 0; i < t; ++i)
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Right);
      QMenu *menu = titulos[t]->menu();
      ASSERT_TRUE(menu->isVisible()) << t;
      for (qsizetype i = 0; i <= k; ++i)
        QTest::keyClick(menu, Qt::Key_Down);
      if (menu->activeAction() != items[k]) // a menu opened by the keyboard may start on its first
        QTest::keyClick(menu, Qt::Key_Up);
      ASSERT_EQ(menu->activeAction(), items[k]) << items[k]->objectName().toStdString();
      QTest::keyClick(menu, Qt::Key_Return);
      QApplication::processEvents();
    }
  }
  EXPECT_EQ(abiertas, esperadas);
  // Alt alone opens the bar as well.
  QApplication::setActiveWindow(m.get());
  QTest::keyPress(m.get(), Qt::Key_Alt);
  QTest::keyRelease(m.get(), Qt::Key_Alt);
  EXPECT_EQ(m->menuBar()->activeAction(), titulos.first());
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
}

TEST_P(Principal, ACompanyNameTooLongForItsPanelEndsInDotsAndShowsWholeInTheTip) {
  const QString largo = QStringLiteral("Comercializadora de Alimentos y Bebidas del Bajío y "
                                       "Occidente de la República S.A. de C.V.");
  con->Ejecutar(QStringLiteral("UPDATE tblEmpresa SET NOM_EMP='%1'").arg(largo));
  auto m = Abrir();
  m->resize(300, 400);
  QApplication::processEvents();
  ASSERT_LT(m->Panel(1)->width(), m->Panel(1)->fontMetrics().horizontalAdvance(largo));
  m->Panel(1)->repaint();
  EXPECT_EQ(m->Panel(1)->text(), largo);
  EXPECT_EQ(m->Panel(1)->toolTip(), largo);
  m->resize(1600, 400);
  QApplication::processEvents();
  m->Panel(1)->repaint();
  EXPECT_EQ(m->Panel(1)->toolTip(), QStringLiteral("Empresa Actual"));
}
