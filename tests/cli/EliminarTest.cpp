#include "Apoyo.h"
#include "ApoyoCli.h"
#include "db/EmpresaDemo.h"
#include "journal/DiarioPrueba.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

// The demo installation with its month posted; "eliminar" run on it.
class CliEliminar : public testing::Test {
protected:
  void SetUp() override {
    CatalogoMensajes::Instalar(&mensajes);
    ASSERT_EQ(
        Correr({QStringLiteral("demo"), QStringLiteral("--clave"), QStringLiteral("abc")}).codigo,
        0);
    ASSERT_EQ(Correr(QStringList{QStringLiteral("generar")} + Entrada() + Periodo()).codigo, 0);
    mensajes.mostrados.clear();
    con = ServicioConexion().AbrirConexion(QStringLiteral("SQLite=") +
                                           dir.filePath(QStringLiteral("Empresas/Demo.db")));
  }
  void TearDown() override {
    con.reset();
    CatalogoMensajes::Instalar(nullptr);
    qunsetenv("ESCRIBANO_RUTA");
  }
  SalidaCli Correr(QStringList args) {
    return CorrerCli(QStringList{QStringLiteral("--ruta"), dir.path()} + args);
  }
  static QStringList Entrada() {
    return {QStringLiteral("--empresa"), QStringLiteral("1"),       QStringLiteral("--usuario"),
            QStringLiteral("ADMIN"),     QStringLiteral("--clave"), QStringLiteral("abc")};
  }
  static QStringList Periodo() {
    const QDate mes = demo::MesDemo();
    return {QStringLiteral("--del"), mes.toString(Qt::ISODate), QStringLiteral("--al"),
            mes.addDays(6).toString(Qt::ISODate)};
  }
  int Contar(const char *tabla) {
    return diario::Filas(*con, QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1String(tabla)))
        .first()
        .toInt();
  }

  QTemporaryDir dir;
  PresentadorGrabador mensajes;
  ConexionPtr con;
};

} // namespace

TEST_F(CliEliminar, WithoutSiItListsTheFoliosAndDeletesNothing) {
  const QByteArray antes = LeerArchivo(dir.filePath(QStringLiteral("Empresas/Demo.db")));
  const SalidaCli s = Correr(
      QStringList{QStringLiteral("eliminar"), QStringLiteral("--tipo"), QStringLiteral("d")} +
      Entrada() + Periodo());
  ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
  const QStringList lineas = s.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  ASSERT_GE(lineas.size(), 3);
  const int cuantos =
      lineas.first().section(QLatin1Char('('), 1).section(QLatin1Char(')'), 0, 0).toInt();
  EXPECT_GT(cuantos, 0);
  EXPECT_EQ(lineas.size(), cuantos + 2);
  EXPECT_EQ(lineas.last(), QStringLiteral("Nada se eliminó: agregue --si para eliminarlos."));
  EXPECT_TRUE(mensajes.mostrados.empty());
  con.reset();
  EXPECT_EQ(LeerArchivo(dir.filePath(QStringLiteral("Empresas/Demo.db"))), antes);
}

TEST_F(CliEliminar, WithSiItDeletesAsTheScreenDoesAndSaysHowMany) {
  const int antes = Contar("tblPolizasEnc");
  const int movimientos = Contar("tblMovimxPoliza");
  const SalidaCli lista = Correr(QStringList{QStringLiteral("eliminar")} + Entrada() + Periodo());
  const int cuantos =
      lista.out.section(QLatin1Char('('), 1).section(QLatin1Char(')'), 0, 0).toInt();
  const SalidaCli s = Correr(QStringList{QStringLiteral("eliminar"), QStringLiteral("--si")} +
                             Entrada() + Periodo());
  ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
  EXPECT_EQ(s.out, QStringLiteral("Pólizas eliminadas: %1\n").arg(cuantos));
  EXPECT_EQ(mensajes.Ids(), std::vector<int>{5514});
  EXPECT_EQ(Contar("tblPolizasEnc"), antes - cuantos);
  EXPECT_EQ(Contar("tblMovimxPoliza"), movimientos); // the documents stay posted
  diario::RevisarIntegridad(*con);
}

TEST_F(CliEliminar, KilledBetweenAnyTwoWritesItNeverLeavesLinesWithoutTheirHeader) {
  for (int corte = 1; corte <= 7; ++corte) {
    QProcess p;
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(QStringLiteral("ESCRIBANO_PRUEBA_CORTE"), QString::number(corte));
    p.setProcessEnvironment(ambiente);
    p.start(QStringLiteral(ESCRIBANO_CLI),
            QStringList{QStringLiteral("--ruta"), dir.path(), QStringLiteral("eliminar"),
                        QStringLiteral("--si")} +
                Entrada() + Periodo());
    ASSERT_TRUE(p.waitForFinished(60000));
    EXPECT_EQ(p.exitStatus(), QProcess::CrashExit) << corte;
    EXPECT_TRUE(diario::Filas(*con, QStringLiteral("SELECT DISTINCT r.FOL_POLIZA FROM "
                                                   "tblPolizasRen r WHERE NOT EXISTS (SELECT 1 "
                                                   "FROM tblPolizasEnc e WHERE "
                                                   "e.FOL_POLIZA=r.FOL_POLIZA)"))
                    .isEmpty())
        << corte;
    diario::RevisarIntegridad(*con);
  }
}
