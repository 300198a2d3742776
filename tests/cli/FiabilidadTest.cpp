#include "Apoyo.h"
#include "db/DatosDemo.h"
#include "db/EmpresaDemo.h"
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

  QStringList Filas(const QString &sql) {
    QStringList filas;
    Registros r = con->Abrir(sql);
    for (; !r.Fin(); r.Siguiente()) {
      QStringList c;
      for (qsizetype i = 0; i < r.Campos().size(); ++i) {
        const Valor v = r.Campo(i);
        c << (v.Variante().typeId() == QMetaType::Double ? v.ComoDinero().Texto() : v.Texto());
      }
      filas << c.join(QLatin1Char('|'));
    }
    return filas;
  }

  // The journal as a bookkeeper compares it, folio numbers aside: each entry with its
  // lines, and each posted document with the entry it went to.
  QStringList Diario() {
    std::map<QString, QString> entradas; // type and folio -> the entry without its folio
    for (const QString &e : Filas(QStringLiteral(
             "SELECT TIP_POLIZA,FOL_POLIZA,FEC_POLIZA,COD_OPER,CONCEP_POL,SUM_DEBE,SUM_HABER,"
             "ESTATUS FROM tblPolizasEnc"))) {
      const QStringList c = e.split(QLatin1Char('|'));
      QStringList lineas =
          Filas(QStringLiteral("SELECT COD_DATO,RUBRO_DEBE,RUBRO_HABER,CUENTA_DEBE,CUENTA_HABER,"
                               "IMP_DEBE,IMP_HABER FROM tblPolizasRen WHERE TIP_POLIZA='%1' AND "
                               "FOL_POLIZA='%2'")
                    .arg(c[0], c[1]));
      lineas.sort();
      entradas[c[0] + c[1]] = QStringList(c.mid(2)).join(QLatin1Char('|')) + QStringLiteral(" [") +
                              lineas.join(QStringLiteral("; ")) + QLatin1Char(']');
    }
    QStringList diario;
    for (const QString &m : Filas(QStringLiteral(
             "SELECT FOLIO_MOV,CONCEPTO,COD_OPER,FREC,FOLIO_POLIZA FROM tblMovimxPoliza"))) {
      const QStringList c = m.split(QLatin1Char('|'));
      // The record names the folio; the operation's rule names the type.
      QString entrada;
      for (const auto &[clave, texto] : entradas)
        if (clave.mid(1) == c[4] && texto.section(QLatin1Char('|'), 1, 1) == c[2])
          entrada = texto;
      diario << QStringList(c.mid(0, 4)).join(QLatin1Char('|')) + QStringLiteral(" -> ") + entrada;
    }
    for (const auto &[clave, texto] : entradas)
      diario << QStringLiteral("póliza ") + clave.left(1) + QLatin1Char(' ') + texto;
    diario.sort();
    return diario;
  }

  // What a run leaves must hold whatever stopped the one before it.
  void RevisarIntegridad() {
    EXPECT_TRUE(Filas(QStringLiteral("SELECT TIP_POLIZA,FOL_POLIZA FROM tblPolizasEnc e WHERE "
                                     "NOT EXISTS (SELECT 1 FROM tblPolizasRen r WHERE "
                                     "r.TIP_POLIZA=e.TIP_POLIZA AND r.FOL_POLIZA=e.FOL_POLIZA)"))
                    .isEmpty());
    EXPECT_TRUE(Filas(QStringLiteral(
                          "SELECT TIP_POLIZA,FOL_POLIZA FROM tblPolizasRen GROUP BY "
                          "TIP_POLIZA,FOL_POLIZA HAVING ABS(SUM(IMP_DEBE)-SUM(IMP_HABER))>0.005"))
                    .isEmpty());
    EXPECT_TRUE(Filas(QStringLiteral("SELECT FOLIO_MOV,CONCEPTO,COD_OPER FROM tblMovimxPoliza "
                                     "GROUP BY FOLIO_MOV,CONCEPTO,COD_OPER HAVING COUNT(*)>1"))
                    .isEmpty());
  }

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
  const int escrituras = ContarEscrituras();
  ASSERT_GT(escrituras, 100);
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
  // Each write waits a little, so that the two runs overlap whatever the machine.
  QProcess *a = Lanzar(Con("ESCRIBANO_PRUEBA_PAUSA", 5));
  QProcess *b = Lanzar(Con("ESCRIBANO_PRUEBA_PAUSA", 5));
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
