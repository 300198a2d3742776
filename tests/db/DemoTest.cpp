#include "Apoyo.h"
#include "db/EmpresaDemo.h"
#include "shell/Encriptacion.h"
#include "shell/ErrorFatal.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class Demo : public testing::Test {
protected:
  void SetUp() override {
    CatalogoMensajes::Instalar(&mensajes);
    LimpiarSesion();
    IniciarRutas(dir.path());
    FijarReloj(QDateTime(QDate(2026, 11, 22), QTime(9, 0)));
    op.ruta = dir.path();
    op.clave = QStringLiteral("demo123");
  }
  void TearDown() override {
    CatalogoMensajes::Instalar(nullptr);
    FijarReloj({});
  }
  QString Valor(const QString &sql) {
    ServicioConexion s;
    ConexionPtr con = s.AbrirConexion(QStringLiteral("SQLite=Empresas\\Demo.db"));
    Registros r = con->Abrir(sql);
    return r.Vacio() ? QString() : r.Campo(r.Campos().first()).Texto();
  }
  QTemporaryDir dir;
  PresentadorGrabador mensajes;
  demo::OpcionesDemo op;
};

} // namespace

TEST_F(Demo, BuildsTheInstallationWithOneCompanyOnTheEmbeddedEngine) {
  const demo::ResultadoDemo r = demo::CrearDemo(op);
  EXPECT_EQ(r.clave, QStringLiteral("demo123"));
  EXPECT_EQ(r.conexion, QStringLiteral("SQLite=Empresas\\Demo.db"));
  for (const char *archivo : {"Nimbar.mdb", "Referencia.mdb", "Nimbar.ini", "Empresas/Demo.db"})
    EXPECT_TRUE(QFileInfo::exists(dir.filePath(QLatin1String(archivo)))) << archivo;
  for (const char *carpeta :
       {"Reportes", "Export", "Consultas", "Plantillas", "Temp", "Ayuda", "Imagenes"})
    EXPECT_TRUE(QFileInfo(dir.filePath(QLatin1String(carpeta))).isDir()) << carpeta;
  EXPECT_EQ(
      ServicioUtil::LeerIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"), RutaNimbarIni()),
      QStringLiteral("1"));

  ServicioConexion s;
  ConexionPtr general = s.AbrirConexionGeneral(gConexionGeneral);
  Registros e = general->Abrir(QStringLiteral("SELECT * FROM tblEmpresas WHERE CONEXION<>'' AND "
                                              "MOTORDEDATOS<>2;"));
  ASSERT_FALSE(e.Vacio());
  EXPECT_EQ(e.Campo(QStringLiteral("MOTORDEDATOS")).Entero(), 5);

  EXPECT_EQ(Desencriptar(
                Valor(QStringLiteral("SELECT PASS1_USU FROM tblUsuarios WHERE COD_USU='ADMIN'"))),
            QStringLiteral("demo123"));
  EXPECT_EQ(Valor(QStringLiteral("SELECT COUNT(*) FROM tblFolios WHERE COD_FOLIO IN "
                                 "('I','E','D','O','S')")),
            QStringLiteral("5"));
  EXPECT_EQ(Valor(QStringLiteral("SELECT COUNT(*) FROM tblCatOperaciones WHERE COD_OPER BETWEEN 1 "
                                 "AND 30")),
            QStringLiteral("30"));
  EXPECT_EQ(Valor(QStringLiteral("SELECT MAX(VER) FROM tblVersion")), QStringLiteral("870"));
  EXPECT_EQ(Valor(QStringLiteral("SELECT NO_REN FROM tblParametrosForm")), QStringLiteral("0"));
}

TEST_F(Demo, ASecondCompanyExportsTheSameMonthInTwoRows) {
  demo::CrearDemo(op);
  ServicioConexion s;
  ConexionPtr general = s.AbrirConexionGeneral(gConexionGeneral);
  Registros e = general->Abrir(QStringLiteral("SELECT CONEXION FROM tblEmpresas WHERE NUM_EMP=2"));
  ASSERT_FALSE(e.Vacio());
  EXPECT_EQ(e.Campo(QStringLiteral("CONEXION")).Texto(),
            QStringLiteral("SQLite=Empresas\\DemoDosRenglones.db"));
  ConexionPtr segunda = s.AbrirConexion(e.Campo(QStringLiteral("CONEXION")).Texto());
  Registros f = segunda->Abrir(QStringLiteral("SELECT NO_REN FROM tblParametrosForm"));
  EXPECT_EQ(f.Campo(QStringLiteral("NO_REN")).Entero(), 2);
  EXPECT_EQ(Valor(QStringLiteral("SELECT COUNT(*) FROM tblGralVentas")), [&] {
    Registros v = segunda->Abrir(QStringLiteral("SELECT COUNT(*) AS N FROM tblGralVentas"));
    return v.Campo(QStringLiteral("N")).Texto();
  }());
}

TEST_F(Demo, RulesCoverTheMainOperationsByDocumentAndByDay) {
  demo::CrearDemo(op);
  for (int oper : {1, 2, 12, 22, 24, 26}) {
    EXPECT_NE(
        Valor(
            QStringLiteral("SELECT COUNT(*) FROM tblOperacionxConcep WHERE COD_OPER=%1").arg(oper)),
        QStringLiteral("0"))
        << oper;
  }
  for (int frec : {1, 2})
    EXPECT_NE(
        Valor(QStringLiteral("SELECT COUNT(*) FROM tblOperacionxConcep WHERE FREC=%1").arg(frec)),
        QStringLiteral("0"));
  EXPECT_EQ(
      Valor(QStringLiteral("SELECT COUNT(*) FROM tblOperacionxConcep o WHERE NOT EXISTS "
                           "(SELECT 1 FROM tblRubrosxOperacion r WHERE r.COD_POL=o.COD_POL)")),
      QStringLiteral("0"));
}

TEST_F(Demo, HoldsAMonthOfDocumentsWithinTheMonth) {
  demo::CrearDemo(op);
  const QDate mes = demo::MesDemo();
  EXPECT_EQ(mes, QDate(2026, 10, 1));
  const QString fuera =
      QStringLiteral(" WHERE FEC_DOC < '%1' OR FEC_DOC > '%2'")
          .arg(mes.toString(Qt::ISODate), mes.addMonths(1).addDays(-1).toString(Qt::ISODate));
  EXPECT_GT(Valor(QStringLiteral("SELECT COUNT(*) FROM tblGralVentas")).toInt(), 100);
  EXPECT_EQ(Valor(QStringLiteral("SELECT COUNT(*) FROM tblGralVentas") + fuera),
            QStringLiteral("0"));
  EXPECT_GT(Valor(QStringLiteral("SELECT COUNT(*) FROM tblComprasEnc")).toInt(), 0);
  EXPECT_GT(Valor(QStringLiteral("SELECT COUNT(*) FROM tblGastosEnc")).toInt(), 0);
  EXPECT_GT(Valor(QStringLiteral("SELECT COUNT(*) FROM tblIngreEgre")).toInt(), 0);
  EXPECT_EQ(Valor(QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc")), QStringLiteral("0"));
}

TEST_F(Demo, ASecondRunRefusesAndLeavesTheFirstStanding) {
  demo::CrearDemo(op);
  const QByteArray antes = LeerArchivo(dir.filePath(QStringLiteral("Nimbar.mdb")));
  op.clave = QStringLiteral("otra");
  try {
    demo::CrearDemo(op);
    FAIL();
  } catch (const ErrorFatal &e) {
    EXPECT_TRUE(e.Mensaje().contains(QStringLiteral("--reconstruir")));
  }
  EXPECT_EQ(LeerArchivo(dir.filePath(QStringLiteral("Nimbar.mdb"))), antes);
  EXPECT_EQ(Desencriptar(
                Valor(QStringLiteral("SELECT PASS1_USU FROM tblUsuarios WHERE COD_USU='ADMIN'"))),
            QStringLiteral("demo123"));
}

TEST_F(Demo, RebuildingReplacesTheWholeInstallation) {
  demo::CrearDemo(op);
  const QString ventas = Valor(QStringLiteral("SELECT COUNT(*) FROM tblGralVentas"));
  op.clave = QStringLiteral("nueva");
  op.reconstruir = true;
  demo::CrearDemo(op);
  EXPECT_EQ(Valor(QStringLiteral("SELECT COUNT(*) FROM tblGralVentas")), ventas);
  EXPECT_EQ(Valor(QStringLiteral("SELECT COUNT(*) FROM tblUsuarios")), QStringLiteral("1"));
  EXPECT_EQ(Desencriptar(
                Valor(QStringLiteral("SELECT PASS1_USU FROM tblUsuarios WHERE COD_USU='ADMIN'"))),
            QStringLiteral("nueva"));
}

TEST_F(Demo, WithoutAPasswordOneIsGenerated) {
  op.clave.clear();
  const demo::ResultadoDemo r = demo::CrearDemo(op);
  EXPECT_EQ(r.clave.size(), 8);
  EXPECT_EQ(Desencriptar(
                Valor(QStringLiteral("SELECT PASS1_USU FROM tblUsuarios WHERE COD_USU='ADMIN'"))),
            r.clave);
}
