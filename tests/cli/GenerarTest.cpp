#include "Apoyo.h"
#include "ApoyoCli.h"
#include "cli/ComandoGenerar.h"
#include "cli/Comandos.h"
#include "db/EmpresaDemo.h"
#include "shell/Sesion.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using Salida = SalidaCli;

// A demo installation in a temporary folder; messages go to the test's recorder.
class CliGenerar : public testing::Test {
protected:
  void SetUp() override {
    CatalogoMensajes::Instalar(&mensajes);
    ASSERT_EQ(
        Correr({QStringLiteral("demo"), QStringLiteral("--clave"), QStringLiteral("abc")}).codigo,
        0);
    mensajes.mostrados.clear();
  }
  void TearDown() override {
    CatalogoMensajes::Instalar(nullptr);
    qunsetenv("ESCRIBANO_RUTA");
  }
  Salida Correr(QStringList args) {
    return CorrerCli(QStringList{QStringLiteral("--ruta"), dir.path()} + args);
  }
  Salida Generar(const QString &usuario, const QString &clave, QStringList extra = {}) {
    QStringList a = {QStringLiteral("generar"),
                     QStringLiteral("--usuario"),
                     usuario,
                     QStringLiteral("--clave"),
                     clave,
                     QStringLiteral("--del"),
                     demo::MesDemo().toString(Qt::ISODate),
                     QStringLiteral("--al"),
                     demo::MesDemo().addMonths(1).addDays(-1).toString(Qt::ISODate),
                     QStringLiteral("--bitacora"),
                     dir.filePath(QStringLiteral("corrida.txt"))};
    return Correr(a + extra);
  }
  QTemporaryDir dir;
  PresentadorGrabador mensajes;
};

} // namespace

TEST_F(CliGenerar, ARunPrintsTheLogAndTheEntriesWritten) {
  const Salida s = Generar(QStringLiteral("admin"), QStringLiteral("abc"));
  ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
  EXPECT_TRUE(
      s.out.contains(QStringLiteral("Bitácora: ") + dir.filePath(QStringLiteral("corrida.txt"))));
  EXPECT_TRUE(s.out.contains(QStringLiteral("Pólizas grabadas: ")));
  EXPECT_EQ(mensajes.Ids(), std::vector<int>{108});
  EXPECT_TRUE(QFileInfo::exists(dir.filePath(QStringLiteral("corrida.txt"))));
}

TEST_F(CliGenerar, RefusedUsersExitThreeWithTheirMessages) {
  EXPECT_EQ(Generar(QStringLiteral("nadie"), QStringLiteral("abc")).codigo, 3);
  EXPECT_EQ(Generar(QStringLiteral("admin"), QStringLiteral("ABC")).codigo, 3);
  EXPECT_EQ(mensajes.Ids(), (std::vector<int>{410, 409}));
}

TEST_F(CliGenerar, ABarredUserExitsThree) {
  ServicioConexion s;
  ConexionPtr con = s.AbrirConexion(QStringLiteral("SQLite=Empresas\\Demo.db"));
  con->Ejecutar(QStringLiteral("UPDATE tblUsuarios SET ESTATUS=9"));
  EXPECT_EQ(Generar(QStringLiteral("admin"), QStringLiteral("abc")).codigo, 3);
  EXPECT_EQ(mensajes.Ids(), std::vector<int>{400});
}

TEST_F(CliGenerar, AnExistingLogNeedsAgregar) {
  ASSERT_EQ(Generar(QStringLiteral("admin"), QStringLiteral("abc")).codigo, 0);
  const QByteArray antes = LeerArchivo(dir.filePath(QStringLiteral("corrida.txt")));
  const Salida s = Generar(QStringLiteral("admin"), QStringLiteral("abc"));
  EXPECT_EQ(s.codigo, 6);
  EXPECT_TRUE(s.err.contains(CatalogoMensajes::Texto(5510)));
  EXPECT_EQ(LeerArchivo(dir.filePath(QStringLiteral("corrida.txt"))), antes);
  mensajes.mostrados.clear();
  const Salida otra =
      Generar(QStringLiteral("admin"), QStringLiteral("abc"), {QStringLiteral("--agregar")});
  EXPECT_EQ(otra.codigo, 0);
  EXPECT_EQ(mensajes.Ids(), (std::vector<int>{5510, 5508})); // nothing new without --actualizar
  EXPECT_TRUE(LeerArchivo(dir.filePath(QStringLiteral("corrida.txt"))).startsWith(antes));
}

TEST_F(CliGenerar, OperationsAndTheDefinedDateAreTaken) {
  const Salida s = Generar(QStringLiteral("admin"), QStringLiteral("abc"),
                           {QStringLiteral("--operaciones"), QStringLiteral("22"),
                            QStringLiteral("--fecha"), QStringLiteral("2026-10-31")});
  ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
  ServicioConexion sc;
  ConexionPtr con = sc.AbrirConexion(QStringLiteral("SQLite=Empresas\\Demo.db"));
  Registros r = con->Abrir(QStringLiteral(
      "SELECT COUNT(*) AS N, MIN(FEC_POLIZA) AS F, MAX(COD_OPER) AS O, MIN(COD_OPER) AS P FROM "
      "tblPolizasEnc"));
  EXPECT_GT(r.Campo(QStringLiteral("N")).Entero(), 0);
  EXPECT_EQ(r.Campo(QStringLiteral("F")).Fecha(), QDate(2026, 10, 31));
  EXPECT_EQ(r.Campo(QStringLiteral("O")).Entero(), 22);
  EXPECT_EQ(r.Campo(QStringLiteral("P")).Entero(), 22);
}

TEST_F(CliGenerar, PolizaShowsTheFirstEntryWithItsLinesAndSums) {
  EXPECT_TRUE(Correr({QStringLiteral("poliza")}).out.contains(QStringLiteral("no tiene pólizas")));
  ASSERT_EQ(Generar(QStringLiteral("admin"), QStringLiteral("abc")).codigo, 0);
  const Salida s =
      Correr({QStringLiteral("poliza"), QStringLiteral("--empresa"), QStringLiteral("1")});
  ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
  const QStringList lineas = s.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  EXPECT_TRUE(lineas[0].startsWith(QStringLiteral("Póliza D00000000001 (DIARIO) del 01/10/2026")))
      << s.out.toStdString();
  const QString sumas = lineas.last().simplified();
  ASSERT_TRUE(sumas.startsWith(QStringLiteral("Sumas "))) << s.out.toStdString();
  const QStringList partes = sumas.split(QLatin1Char(' '));
  EXPECT_EQ(partes[1], partes[2]); // the entry balances
  const Salida otra = Correr({QStringLiteral("poliza"), QStringLiteral("--tipo"),
                              QStringLiteral("I"), QStringLiteral("--folio"), QStringLiteral("1")});
  EXPECT_TRUE(otra.out.startsWith(QStringLiteral("Póliza I00000000001 (INGRESOS)")))
      << otra.out.toStdString();
  // A type of the company's list without that folio.
  EXPECT_EQ(Correr({QStringLiteral("poliza"), QStringLiteral("--tipo"), QStringLiteral("O"),
                    QStringLiteral("--folio"), QStringLiteral("99999")})
                .codigo,
            2);
}

TEST_F(CliGenerar, BadDatesAreAUsageError) {
  const Salida s =
      Correr({QStringLiteral("generar"), QStringLiteral("--del"), QStringLiteral("31/10/2026"),
              QStringLiteral("--al"), QStringLiteral("2026-10-31")});
  EXPECT_EQ(s.codigo, 1);
  EXPECT_TRUE(s.err.contains(QStringLiteral("AAAA-MM-DD")));
}

TEST_F(CliGenerar, AFailingStatementExitsTwoWithTheStatement) {
  ServicioConexion sc;
  ConexionPtr con = sc.AbrirConexion(QStringLiteral("SQLite=Empresas\\Demo.db"));
  con->Ejecutar(QStringLiteral("DROP TABLE tblMovimxPoliza"));
  const Salida s = Generar(QStringLiteral("admin"), QStringLiteral("abc"));
  EXPECT_EQ(s.codigo, 2);
  EXPECT_TRUE(s.err.contains(QStringLiteral("Sentencia: SELECT * FROM tblMovimxPoliza")))
      << s.err.toStdString();
}
