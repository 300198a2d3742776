#include "Apoyo.h"
#include "ApoyoCli.h"
#include "db/EmpresaDemo.h"
#include "shell/Encriptacion.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using Salida = SalidaCli;

// A demo installation that each test breaks in one way; the command line must say what
// is wrong in Spanish, end with its exit status and leave what it found as it was.
class Fallas : public testing::Test {
protected:
  void SetUp() override {
    ASSERT_EQ(
        Correr({QStringLiteral("demo"), QStringLiteral("--clave"), QStringLiteral("x")}).codigo, 0);
  }
  void TearDown() override { qunsetenv("ESCRIBANO_RUTA"); }
  Salida Correr(QStringList args) {
    return CorrerCli(QStringList{QStringLiteral("--ruta"), dir.path()} + args);
  }
  Salida Generar(QStringList extra = {}) {
    return Correr(QStringList{QStringLiteral("generar"), QStringLiteral("--usuario"),
                              QStringLiteral("ADMIN"), QStringLiteral("--clave"),
                              QStringLiteral("x"), QStringLiteral("--del"),
                              demo::MesDemo().toString(Qt::ISODate), QStringLiteral("--al"),
                              demo::MesDemo().addDays(2).toString(Qt::ISODate)} +
                  extra);
  }
  QString General() const { return dir.filePath(QStringLiteral("Nimbar.mdb")); }
  void Conexion(const QString &texto, int motor) {
    ConexionPtr g = ServicioConexion::AbrirSqlite(General(), false, 0);
    g->Ejecutar(QStringLiteral("UPDATE tblEmpresas SET CONEXION='%1',MOTORDEDATOS=%2")
                    .arg(Escapar(texto))
                    .arg(motor));
  }
  int Polizas() {
    ConexionPtr c = ServicioConexion::AbrirSqlite(dir.filePath(QStringLiteral("Empresas/Demo.db")),
                                                  false, motor::kSqlite);
    Registros r = c->Abrir(QStringLiteral("SELECT COUNT(*) AS N FROM tblPolizasEnc"));
    return static_cast<int>(r.Campo(QStringLiteral("N")).Entero());
  }
  static QString Fatal(const QString &mensaje) {
    return QStringLiteral("Escribano: ") + mensaje + QLatin1Char('\n');
  }

  QTemporaryDir dir;
};

} // namespace

TEST_F(Fallas, AnEmptyGeneralDatabaseIsNamedAsNoDatabase) {
  EscribirArchivo(General(), QByteArray());
  const Salida s = Generar();
  EXPECT_EQ(s.codigo, 2);
  EXPECT_EQ(s.err, Fatal(QStringLiteral("El archivo %1 no es una base de datos: está vacío o "
                                        "dañado.")
                             .arg(General())));
  EXPECT_EQ(LeerArchivo(General()), QByteArray());
}

TEST_F(Fallas, AGeneralDatabaseOfTextIsNamedAsNoDatabase) {
  EscribirArchivo(General(), "esto no es una base de datos\r\n");
  const Salida s = Generar();
  EXPECT_EQ(s.codigo, 2);
  EXPECT_EQ(s.err, Fatal(QStringLiteral("El archivo %1 no es una base de datos: está vacío o "
                                        "dañado.")
                             .arg(General())));
  EXPECT_EQ(LeerArchivo(General()), QByteArray("esto no es una base de datos\r\n"));
}

TEST_F(Fallas, AMissingCompanyDatabaseIsNamed) {
  const QString base = dir.filePath(QStringLiteral("Empresas/Demo.db"));
  ASSERT_TRUE(QFile::rename(base, base + QStringLiteral(".aparte")));
  const Salida s = Generar();
  EXPECT_EQ(s.codigo, 2);
  EXPECT_EQ(s.err, Fatal(QStringLiteral("No existe la base de datos %1.").arg(base)));
  EXPECT_FALSE(QFile::exists(base)); // not created empty
}

TEST_F(Fallas, AConnectionTextOfNoKnownFormIsShownWithItsPasswordHidden) {
  Conexion(QStringLiteral("Servidor=x; Password=secreta; Base=y"), 4);
  const Salida s = Generar();
  EXPECT_EQ(s.codigo, 2);
  EXPECT_EQ(s.err, Fatal(QStringLiteral("El texto de conexión no tiene una forma conocida: "
                                        "«Servidor=x; Password=****; Base=y».")));
  EXPECT_FALSE(s.err.contains(QStringLiteral("secreta")));
}

TEST_F(Fallas, ADataSourceThatDoesNotExistIsReportedByTheDriverManager) {
  Conexion(QStringLiteral("DSN=no_existe_esta_fuente"), 4);
  const Salida s = Generar();
  EXPECT_EQ(s.codigo, 2);
  EXPECT_TRUE(s.err.startsWith(QStringLiteral("Escribano: No fue posible abrir la conexión: ")))
      << s.err.toStdString();
  EXPECT_TRUE(s.err.contains(QStringLiteral("Data source name not found"))) << s.err.toStdString();
}

TEST_F(Fallas, TheSummaryOfASqlServerCompanyHidesItsPassword) {
  Conexion(QStringLiteral("Provider=SQLOLEDB.1; Password=") + Encriptar(QStringLiteral("clave7")) +
               QStringLiteral("; Persist Security Info=True; User ID=sa; Initial Catalog=x; Data "
                              "Source=127.0.0.1\\"),
           3);
  const Salida s = Correr({QStringLiteral("resumen")});
  EXPECT_EQ(s.codigo, 2);
  EXPECT_FALSE((s.out + s.err).contains(QStringLiteral("clave7"))) << s.err.toStdString();
}

TEST_F(Fallas, ALogThatCantBeWrittenIsToldAndTheRunGoesOnWithoutIt) {
  // A file where the log's folder should be: no one, root included, can write beneath it.
  EscribirArchivo(dir.filePath(QStringLiteral("Temp2")), "x");
  const QString bitacora = dir.filePath(QStringLiteral("Temp2/resumen.txt"));
  const Salida s = Generar({QStringLiteral("--bitacora"), bitacora});
  EXPECT_EQ(s.codigo, 0);
  EXPECT_TRUE(s.err.startsWith(
      QStringLiteral("No fue posible escribir la bitácora %1 (").arg(RutaNativa(bitacora))))
      << s.err.toStdString();
  EXPECT_TRUE(s.err.contains(QStringLiteral("). Las pólizas se generan sin bitácora.\n")));
  EXPECT_GT(Polizas(), 0);
  EXPECT_FALSE(QFile::exists(bitacora));
}

TEST_F(Fallas, ADateBeyondWhatTheEngineHoldsIsNamed) {
  const Salida s =
      Correr({QStringLiteral("generar"), QStringLiteral("--usuario"), QStringLiteral("ADMIN"),
              QStringLiteral("--clave"), QStringLiteral("x"), QStringLiteral("--del"),
              QStringLiteral("0001-01-01"), QStringLiteral("--al"), QStringLiteral("0001-01-03")});
  // The embedded engine holds any date of four digits: the run goes through, empty.
  EXPECT_EQ(s.codigo, 0) << s.err.toStdString();
  EXPECT_EQ(Polizas(), 0);
}
