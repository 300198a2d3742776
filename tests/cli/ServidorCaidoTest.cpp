#include "Apoyo.h"
#include "db/DatosDemo.h"
#include "db/EmpresaDemo.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

namespace {

// A MariaDB server of the test's own, which it starts and kills (SIGKILL) while a
// generation runs on it, and before one.
class ServidorCaido : public testing::Test {
protected:
  void SetUp() override {
    puerto = qEnvironmentVariable("ESCRIBANO_PRUEBA_FALLAS_PUERTO");
    if (puerto.isEmpty() || qEnvironmentVariable("ESCRIBANO_PRUEBA_DSN").isEmpty())
      GTEST_SKIP() << "Sin servidor MariaDB de prueba.";
    ASSERT_TRUE(Servidor({QStringLiteral("iniciar"), datos.path(), puerto}));
    vivo = true;
    // The company lives on the throwaway server: its DSN stands in for the usual one.
    const QByteArray dsn = qgetenv("ESCRIBANO_PRUEBA_DSN");
    qputenv("ESCRIBANO_PRUEBA_DSN", "escribano_fallas");
    emp = std::make_unique<EmpresaPrueba>("mariadb");
    qputenv("ESCRIBANO_PRUEBA_DSN", dsn);
    ConexionPtr con = emp->Abrir();
    demo::LlenarIdentidad(*con, QStringLiteral("x"));
    demo::LlenarCatalogos(*con);
    demo::LlenarDocumentos(*con, QDate(2026, 10, 1));
  }
  void TearDown() override {
    if (vivo)
      Servidor({QStringLiteral("matar"), datos.path()});
  }
  static bool Servidor(const QStringList &args) {
    QProcess p;
    p.start(QStringLiteral("bash"),
            QStringList{QStringLiteral(ESCRIBANO_RAIZ "/scripts/mariadb_fallas.sh")} + args);
    return p.waitForFinished(120000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
  }
  QProcess *Lanzar(int pausa) {
    auto *p = new QProcess;
    QProcessEnvironment a = QProcessEnvironment::systemEnvironment();
    if (pausa > 0)
      a.insert(QStringLiteral("ESCRIBANO_PRUEBA_PAUSA"), QString::number(pausa));
    p->setProcessEnvironment(a);
    p->start(QStringLiteral(ESCRIBANO_CLI),
             {QStringLiteral("--ruta"), emp->Ruta(), QStringLiteral("generar"),
              QStringLiteral("--empresa"), QStringLiteral("1"), QStringLiteral("--usuario"),
              QStringLiteral("ADMIN"), QStringLiteral("--clave"), QStringLiteral("x"),
              QStringLiteral("--del"), QStringLiteral("2026-10-01"), QStringLiteral("--al"),
              QStringLiteral("2026-10-06"), QStringLiteral("--bitacora"),
              emp->Ruta() + QStringLiteral("/corrida.txt"), QStringLiteral("--agregar")});
    return p;
  }
  struct Fin {
    bool termino = false;
    int codigo = -1;
    QString out, err;
  };
  static Fin Esperar(QProcess *p) {
    Fin f;
    f.termino = p->waitForFinished(120000) && p->exitStatus() == QProcess::NormalExit;
    f.codigo = p->exitCode();
    f.out = QString::fromUtf8(p->readAllStandardOutput());
    f.err = QString::fromUtf8(p->readAllStandardError());
    delete p;
    return f;
  }
  qint64 Contar(Conexion &con, const QString &sql) {
    Registros r = con.Abrir(sql);
    return r.Campo(r.Campos().first()).Entero();
  }

  QTemporaryDir datos;
  QString puerto;
  bool vivo = false;
  std::unique_ptr<EmpresaPrueba> emp;
};

} // namespace

TEST_F(ServidorCaido, AServerKilledUnderARunEndsItWithAMessageAndLeavesOnlyWholeEntries) {
  QProcess *corrida = Lanzar(20);
  // Killed once the run has written some entries.
  {
    ConexionPtr con = emp->Abrir();
    for (int i = 0;
         i < 600 && Contar(*con, QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc")) < 3; ++i)
      QThread::msleep(50);
  }
  ASSERT_TRUE(Servidor({QStringLiteral("matar"), datos.path()}));
  vivo = false;
  const Fin muerta = Esperar(corrida);
  ASSERT_TRUE(muerta.termino) << "la corrida no terminó";
  EXPECT_EQ(muerta.codigo, 2) << muerta.err.toStdString();
  // Whatever statement met the dead server is named: a read, a write, or the beginning of
  // the next entry's transaction.
  EXPECT_TRUE(muerta.err.startsWith(QStringLiteral("Escribano: Error al ")) ||
              muerta.err.startsWith(QStringLiteral("Escribano: Error en la transacción: ")))
      << muerta.err.toStdString();
  EXPECT_TRUE(muerta.err.contains(QStringLiteral("\nSentencia: "))) << muerta.err.toStdString();

  // Back up: only whole entries stand, and a new run posts the rest, once.
  ASSERT_TRUE(Servidor({QStringLiteral("iniciar"), datos.path(), puerto}));
  vivo = true;
  ConexionPtr con = emp->Abrir();
  const qint64 antes = Contar(*con, QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc"));
  EXPECT_GT(antes, 0);
  EXPECT_EQ(Contar(*con, QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc e WHERE NOT EXISTS "
                                        "(SELECT 1 FROM tblPolizasRen r WHERE r.TIP_POLIZA="
                                        "e.TIP_POLIZA AND r.FOL_POLIZA=e.FOL_POLIZA)")),
            0);
  const Fin otra = Esperar(Lanzar(0));
  ASSERT_TRUE(otra.termino);
  EXPECT_EQ(otra.codigo, 0) << otra.err.toStdString();
  EXPECT_GT(Contar(*con, QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc")), antes);
  EXPECT_EQ(Contar(*con, QStringLiteral("SELECT COUNT(*) FROM (SELECT FOLIO_MOV FROM "
                                        "tblMovimxPoliza GROUP BY FOLIO_MOV,CONCEPTO,COD_OPER "
                                        "HAVING COUNT(*)>1) d")),
            0);
  const Fin tercera = Esperar(Lanzar(0));
  EXPECT_EQ(tercera.codigo, 0) << tercera.err.toStdString();
  EXPECT_TRUE(tercera.out.contains(QStringLiteral("Pólizas grabadas: 0\n")))
      << tercera.out.toStdString();
}

TEST_F(ServidorCaido, AServerStoppedBeforeARunIsReportedWithoutWaitingForEver) {
  ASSERT_TRUE(Servidor({QStringLiteral("matar"), datos.path()}));
  vivo = false;
  const Fin f = Esperar(Lanzar(0));
  ASSERT_TRUE(f.termino);
  EXPECT_EQ(f.codigo, 2);
  EXPECT_TRUE(f.err.startsWith(QStringLiteral("Escribano: No fue posible abrir la conexión: ")))
      << f.err.toStdString();
  EXPECT_TRUE(f.err.contains(QStringLiteral("Can't connect"))) << f.err.toStdString();
}
