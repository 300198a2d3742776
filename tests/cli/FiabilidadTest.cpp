#include "Apoyo.h"
#include "db/DatosDemo.h"
#include "db/EmpresaDemo.h"
#include "journal/DiarioPrueba.h"
#include "journal/FixtureGeneracion.h"
#include "shell/Sesion.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <gtest/gtest.h>
#include <map>

namespace {

// The command line as a separate process, run on the demo's first days: killed in the
// middle of a generation, or run twice at once.
class Fiabilidad : public testing::TestWithParam<std::string> {
protected:
  static inline const QDate kDel{2026, 10, 1};
  static inline const QDate kAl{2026, 10, 6};

  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    demo::LlenarIdentidad(*con, QStringLiteral("x"));
    demo::LlenarCatalogos(*con);
    demo::LlenarDocumentos(*con, kDel);
  }

  struct Corrida_ {
    QProcess::ExitStatus estado = QProcess::NormalExit;
    int codigo = -1;
    QString err;
  };
  QProcess *Lanzar(const QProcessEnvironment &ambiente) {
    auto *p = new QProcess;
    p->setProcessEnvironment(ambiente);
    p->start(QStringLiteral(ESCRIBANO_CLI),
             {QStringLiteral("--ruta"), emp->Ruta(), QStringLiteral("generar"),
              QStringLiteral("--empresa"), QStringLiteral("1"), QStringLiteral("--usuario"),
              QStringLiteral("ADMIN"), QStringLiteral("--clave"), QStringLiteral("x"),
              QStringLiteral("--del"), kDel.toString(Qt::ISODate), QStringLiteral("--al"),
              kAl.toString(Qt::ISODate), QStringLiteral("--fecha"), kAl.toString(Qt::ISODate),
              QStringLiteral("--bitacora"), emp->Ruta() + QStringLiteral("/corrida.txt"),
              QStringLiteral("--agregar")});
    return p;
  }
  static Corrida_ Esperar(QProcess *p) {
    EXPECT_TRUE(p->waitForFinished(120000));
    Corrida_ c{p->exitStatus(), p->exitCode(), QString::fromUtf8(p->readAllStandardError())};
    delete p;
    return c;
  }
  Corrida_ Generar(const QProcessEnvironment &ambiente = QProcessEnvironment::systemEnvironment()) {
    return Esperar(Lanzar(ambiente));
  }
  static QProcessEnvironment Con(const char *variable, int valor) {
    QProcessEnvironment a = QProcessEnvironment::systemEnvironment();
    a.insert(QString::fromLatin1(variable), QString::number(valor));
    return a;
  }

  QStringList Diario() { return diario::SinFolios(*con); }
  void RevisarIntegridad() { diario::RevisarIntegridad(*con); }

  // The writes of the same run made here, counted by the recorder of statements.
  int ContarEscrituras() {
    emp->grabadora.sentencias.clear();
    OpcionesGeneracion op;
    op.Del = kDel;
    op.Al = kAl;
    op.DefinirFecha = true;
    op.FechaDefinida = kAl;
    op.Resumen = emp->Ruta() + QStringLiteral("/cuenta.txt");
    gCodUsu = QStringLiteral("ADMIN");
    gNumEmp = 1;
    CorrerGeneracion(*emp, op);
    int escrituras = 0;
    for (const QString &s : emp->grabadora.sentencias)
      escrituras += s.startsWith(QStringLiteral("SELECT")) ? 0 : 1;
    Vaciar();
    return escrituras;
  }

  void Vaciar() {
    for (const char *tabla :
         {"tblPolizasEnc", "tblPolizasRen", "tblMovimxPoliza", "tblBitacoraPolizas"})
      con->Ejecutar(QStringLiteral("DELETE FROM %1").arg(QLatin1String(tabla)));
    con->Ejecutar(QStringLiteral("UPDATE tblFolios SET FOL_FOLIOS='0'"));
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

} // namespace

TEST_P(Fiabilidad, ARunKilledAtTwentyPointsAndRunAgainLeavesTheJournalOfAnUninterruptedOne) {
  // The uninterrupted run, and how many writes it takes.
  emp->grabadora.sentencias.clear();
  const Corrida_ entera = Generar();
  ASSERT_EQ(entera.codigo, 0) << entera.err.toStdString();
  RevisarIntegridad();
  const QStringList referencia = Diario();
  ASSERT_GT(referencia.size(), 20);
  Vaciar();
  // Twenty points apart: on a server that takes an entry in one block, fewer writes.
  const int escrituras = ContarEscrituras();
  ASSERT_GT(escrituras, 40);
  for (int i = 0; i < 20; ++i) {
    Vaciar();
    const int punto = 1 + i * escrituras / 20;
    const Corrida_ cortada = Generar(Con("ESCRIBANO_PRUEBA_CORTE", punto));
    EXPECT_EQ(cortada.estado, QProcess::CrashExit) << "punto " << punto;
    RevisarIntegridad();
    const Corrida_ otra = Generar();
    ASSERT_EQ(otra.codigo, 0) << otra.err.toStdString();
    RevisarIntegridad();
    EXPECT_EQ(Diario(), referencia) << "punto " << punto;
  }
}

TEST_P(Fiabilidad, TwoRunsStartedTogetherPostOnceAndTheSecondIsRefusedWithExitSeven) {
  const Corrida_ sola = Generar();
  ASSERT_EQ(sola.codigo, 0) << sola.err.toStdString();
  const QStringList referencia = Diario();
  Vaciar();
  // The run that takes the lock holds it a while before writing anything, so that the
  // other reaches it meanwhile whatever the machine. (Were the holder writing all along,
  // the embedded engine would keep the other's log-in waiting for the journal's writes.)
  QProcess *a = Lanzar(Con("ESCRIBANO_PRUEBA_PAUSA_CANDADO", 3000));
  QProcess *b = Lanzar(Con("ESCRIBANO_PRUEBA_PAUSA_CANDADO", 3000));
  const Corrida_ ra = Esperar(a);
  const Corrida_ rb = Esperar(b);
  const Corrida_ &rechazada = ra.codigo == 7 ? ra : rb;
  EXPECT_EQ(std::min(ra.codigo, rb.codigo), 0) << ra.err.toStdString() << rb.err.toStdString();
  EXPECT_EQ(std::max(ra.codigo, rb.codigo), 7) << ra.err.toStdString() << rb.err.toStdString();
  EXPECT_TRUE(rechazada.err.contains(QStringLiteral("Otra generación de pólizas de esta empresa "
                                                    "está en curso (candado ")))
      << rechazada.err.toStdString();
  EXPECT_TRUE(rechazada.err.contains(QStringLiteral("generacion"))) << rechazada.err.toStdString();
  RevisarIntegridad();
  EXPECT_EQ(Diario(), referencia);
}

INSTANTIATE_TEST_SUITE_P(Motores, Fiabilidad, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
