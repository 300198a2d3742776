#include "FixtureGeneracion.h"
#include "db/DatosDemo.h"
#include "db/EmpresaDemo.h"
#include "export/FormatoArchivo.h"
#include "export/GenerarArchivo.h"
#include "journal/Arbol.h"
#include "journal/Corrida.h"
#include "journal/DiarioPrueba.h"
#include "journal/Generacion.h"
#include "shell/Rutas.h"
#include "shell/Sesion.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <optional>

namespace {

// The demo company's month, generated end to end: sales by document and by day,
// purchases, expenses and treasury.
class MesDemo : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->AbrirComoAdmin(QStringLiteral("x"));
    demo::LlenarCatalogos(*con);
    demo::LlenarDocumentos(*con, kMes);
    Conexion::InstalarGrabadora(nullptr); // thousands of statements: not worth keeping
    opciones.Del = kMes;
    opciones.Al = kMes.addMonths(1).addDays(-1);
    opciones.FechaDefinida = opciones.Al;
    opciones.Resumen = emp->Ruta() + QStringLiteral("/mes.txt");
  }
  ResultadoGeneracion Correr() { return CorrerGeneracion(*emp, opciones); }
  qint64 Numero(const QString &sql) {
    Registros r = con->Abrir(sql);
    return r.Campo(r.Campos().first()).Entero();
  }

  // What a run of the month left: its tables, the statements it sent and its log.
  struct Dejado {
    QStringList tablas, sentencias;
    QByteArray bitacora;
  };
  // A run of the month from the company as it stands: the first (vez 0) in a rehearsal
  // that leaves nothing, so that the second starts from the same company.
  Dejado Generar(int vez, bool memoria) {
    Corrida corrida;
    ArbolOperaciones arbol;
    CargarCorrida(*emp, corrida, arbol);
    Conexion &c = *corrida.Conexion;
    if (vez == 0)
      c.IniciarEnsayo();
    OpcionesGeneracion o = opciones;
    o.Memoria = memoria;
    o.Resumen = emp->Ruta() + QStringLiteral("/mes_%1.txt").arg(vez);
    emp->grabadora.sentencias.clear();
    Conexion::InstalarGrabadora(&emp->grabadora);
    EXPECT_TRUE(Generador(corrida, o).GenerarPolizas(arbol).hubo);
    Conexion::InstalarGrabadora(nullptr);
    Dejado d{diario::TodasLasTablas(c), emp->grabadora.sentencias, {}};
    if (vez == 0)
      c.TerminarEnsayo();
    d.bitacora = LeerArchivo(o.Resumen);
    return d;
  }

  static inline const QDate kMes{2026, 10, 1};
  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  OpcionesGeneracion opciones;
};

} // namespace

TEST_P(MesDemo, EveryEntryOfTheMonthHasBalancedLines) {
  const ResultadoGeneracion r = Correr();
  ASSERT_TRUE(r.hubo);
  const qint64 polizas = Numero(QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc"));
  EXPECT_EQ(polizas, r.polizas);
  EXPECT_GT(polizas, 100);
  EXPECT_GT(Numero(QStringLiteral("SELECT COUNT(*) FROM tblMovimxPoliza WHERE FREC=1")), 0);
  EXPECT_GT(Numero(QStringLiteral("SELECT COUNT(*) FROM tblMovimxPoliza WHERE FREC=2")), 0);
  // Every rule of the demo balances: by its balancing datum or by rows with both rubros.
  Registros d = con->Abrir(QStringLiteral(
      "SELECT FOL_POLIZA,TIP_POLIZA,SUM(IMP_DEBE) AS D,SUM(IMP_HABER) AS H FROM tblPolizasRen "
      "GROUP BY FOL_POLIZA,TIP_POLIZA"));
  int revisadas = 0;
  for (; !d.Fin(); d.Siguiente(), ++revisadas)
    EXPECT_EQ(d.Campo(QStringLiteral("D")).ComoDinero(), d.Campo(QStringLiteral("H")).ComoDinero())
        << d.Campo(QStringLiteral("TIP_POLIZA")).Texto().toStdString()
        << d.Campo(QStringLiteral("FOL_POLIZA")).Texto().toStdString();
  EXPECT_GT(revisadas, 100);
  // Every posted document is stamped for the sibling modules.
  EXPECT_EQ(Numero(QStringLiteral("SELECT COUNT(*) FROM tblGastosEnc WHERE CONTAB=1")),
            Numero(QStringLiteral("SELECT COUNT(DISTINCT FOLIO_MOV) FROM tblMovimxPoliza WHERE "
                                  "COD_OPER=22")));
}

TEST_P(MesDemo, ASecondRunPostsNothingAndAnUpdateRedoesEveryEntryInPlace) {
  Correr();
  const qint64 polizas = Numero(QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc"));
  const qint64 renglones = Numero(QStringLiteral("SELECT COUNT(*) FROM tblPolizasRen"));
  EXPECT_FALSE(Correr().hubo);
  EXPECT_EQ(emp->mensajes.Ids().back(), 5508);
  opciones.Actualizar = true;
  EXPECT_TRUE(Correr().hubo);
  EXPECT_EQ(Numero(QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc")), polizas);
  EXPECT_EQ(Numero(QStringLiteral("SELECT COUNT(*) FROM tblPolizasRen")), renglones);
  EXPECT_EQ(Numero(QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc WHERE IMPANT_DEBE=0 AND "
                                  "SUM_DEBE<>0")),
            0);
}

TEST_P(MesDemo, TheMonthExportedForThePackageHasRecordsOfTheirLengthsEndedByCrLf) {
  Correr();
  demo::LlenarFormato(*con, demo::FormatoDemo::Contpaq);
  FormatoArchivo formato;
  ASSERT_TRUE(CargarFormato(*con, formato));
  DatosGenerarArchivo datos;
  datos.fechaIni = opciones.Del;
  datos.fechaFin = opciones.Al;
  datos.archivo = emp->Ruta() + QStringLiteral("/contpaq.txt");
  const ResultadoArchivo r = GenerarArchivo(*con, formato, datos);
  ASSERT_TRUE(r.completo) << r.falla.toStdString();
  const QByteArray bytes = LeerArchivo(datos.archivo);
  ASSERT_TRUE(bytes.endsWith("\r\n"));
  const QList<QByteArray> lineas = bytes.left(bytes.size() - 1).split('\n');
  EXPECT_EQ(lineas.size(), r.lineas);
  std::map<char, int> largos{{'P', 135}, {'N', 6}, {'M', 93}};
  std::map<char, int> cuenta;
  for (const QByteArray &l : lineas) {
    const QByteArray linea = l + '\n';
    ASSERT_TRUE(linea.endsWith("\r\n"));
    ASSERT_TRUE(largos.count(linea[0])) << linea.toStdString();
    EXPECT_EQ(linea.size(), largos[linea[0]]) << linea.toStdString();
    ++cuenta[linea[0]];
  }
  EXPECT_EQ(cuenta['P'], Numero(QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc")));
  EXPECT_EQ(cuenta['N'], cuenta['P']);
  // The selection joins lines by folio alone: entries of two types that share a folio
  // each carry the lines of both.
  EXPECT_EQ(cuenta['M'],
            Numero(QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc INNER JOIN tblPolizasRen ON "
                                  "tblPolizasEnc.FOL_POLIZA = tblPolizasRen.FOL_POLIZA")));
  EXPECT_GT(cuenta['M'], Numero(QStringLiteral("SELECT COUNT(*) FROM tblPolizasRen")));
}

INSTANTIATE_TEST_SUITE_P(Motores, MesDemo, testing::ValuesIn(MotoresDePrueba()), NombreMotor);

TEST_P(MesDemo, TheExportsMemoryAndBatchesChangeNoByteAndSendEachLookupOnce) {
  Correr();
  for (const demo::FormatoDemo tipo :
       {demo::FormatoDemo::Contpaq, demo::FormatoDemo::DosRenglones}) {
    con->Ejecutar(QStringLiteral("DELETE FROM tblParametrosForm"));
    demo::LlenarFormato(*con, tipo);
    // Without the memory, with it one statement at a time, with it in batches.
    enum { kSinMemoria, kUnaAUna, kEnLote, kFormas };
    QByteArray archivos[kFormas];
    QStringList sentencias[kFormas];
    for (int forma = 0; forma < kFormas; ++forma) {
      std::optional<SentenciasUnaAUna> unaAUna;
      if (forma != kEnLote)
        unaAUna.emplace();
      FormatoArchivo formato;
      ASSERT_TRUE(CargarFormato(*con, formato));
      DatosGenerarArchivo datos;
      datos.fechaIni = opciones.Del;
      datos.fechaFin = opciones.Al;
      datos.memoria = forma != kSinMemoria;
      datos.archivo = emp->Ruta() + QStringLiteral("/export_%1.txt").arg(forma);
      emp->grabadora.sentencias.clear();
      Conexion::InstalarGrabadora(&emp->grabadora);
      ASSERT_TRUE(GenerarArchivo(*con, formato, datos).completo);
      Conexion::InstalarGrabadora(nullptr);
      archivos[forma] = LeerArchivo(datos.archivo);
      sentencias[forma] = emp->grabadora.sentencias;
    }
    // The selection orders by type, operation and folio; a server may hand the lines of
    // one folio in any order, run to run. The same lines must come every way, and where
    // the engine keeps the order (SQLite) the same bytes.
    for (int forma : {kUnaAUna, kEnLote}) {
      QList<QByteArray> lineas[2] = {archivos[kSinMemoria].split('\n'),
                                     archivos[forma].split('\n')};
      std::sort(lineas[0].begin(), lineas[0].end());
      std::sort(lineas[1].begin(), lineas[1].end());
      EXPECT_EQ(lineas[1], lineas[0]);
      if (GetParam() == "sqlite") {
        EXPECT_EQ(archivos[forma], archivos[kSinMemoria]);
      }
    }
    // With memory the database sees each statement once, in the order it first came.
    QStringList unicas = sentencias[kSinMemoria];
    unicas.removeDuplicates();
    EXPECT_EQ(sentencias[kUnaAUna], unicas);
    if (tipo == demo::FormatoDemo::Contpaq) {
      EXPECT_LT(sentencias[kUnaAUna].size() * 2, sentencias[kSinMemoria].size());
      // In batches no folio's reference is asked by itself.
      EXPECT_TRUE(sentencias[kEnLote].filter(QStringLiteral("WHERE FOLIO_POL = ")).isEmpty());
      EXPECT_LT(sentencias[kEnLote].size(), 10);
    } else {
      EXPECT_EQ(sentencias[kEnLote], sentencias[kUnaAUna]);
    }
  }
}

TEST_P(MesDemo, TheGenerationsMemoryChangesNoRowAndAsksEachReadOnlyLookupOnce) {
  FijarReloj(QDateTime(QDate(2026, 11, 2), QTime(9, 0)));
  // Statement by statement: the first run is a rehearsal, whose open transaction keeps an
  // entry from going in one block; the batches are compared on their own below.
  const SentenciasUnaAUna unaAUna;
  // Without the memory, then with it: the same company before each.
  const Dejado sin = Generar(0, false);
  const Dejado conMemoria = Generar(1, true);
  FijarReloj({});
  EXPECT_EQ(conMemoria.tablas, sin.tablas);
  EXPECT_EQ(conMemoria.bitacora, sin.bitacora);
  // The same statements, but for the repeats of the lookups of the tables the run only
  // reads, which the memory answers; tblFolios, written by the run, is asked every time.
  const QRegularExpression soloLectura(
      QStringLiteral("^SELECT .* FROM (%1)\\b[^,(]*$").arg(TablasDeLectura().join(u'|')));
  QStringList esperadas;
  QSet<QString> vistas;
  int ahorradas = 0;
  for (const QString &s : sin.sentencias) {
    if (soloLectura.match(s).hasMatch() && !s.contains(QStringLiteral(" JOIN ")) &&
        vistas.contains(s)) {
      ++ahorradas;
      continue;
    }
    vistas.insert(s);
    esperadas << s;
  }
  EXPECT_EQ(conMemoria.sentencias, esperadas);
  EXPECT_GT(ahorradas, 100);
  EXPECT_GT(
      conMemoria.sentencias.count(QStringLiteral("SELECT * FROM tblFolios WHERE COD_FOLIO='I';")),
      100);
}

TEST_P(MesDemo, TheMonthPostedInBatchesLeavesWhatItLeavesOneStatementAtATime) {
  FijarReloj(QDateTime(QDate(2026, 11, 2), QTime(9, 0)));
  // One statement at a time, then in batches: the same company before each.
  Dejado unaAUna;
  {
    const SentenciasUnaAUna guarda;
    unaAUna = Generar(0, true);
  }
  const Dejado enLote = Generar(1, true);
  FijarReloj({});
  EXPECT_EQ(enLote.tablas, unaAUna.tablas);
  EXPECT_EQ(enLote.bitacora, unaAUna.bitacora);
  EXPECT_GT(enLote.tablas.size(), 1000);
  EXPECT_LT(enLote.sentencias.size() * 3, unaAUna.sentencias.size() * 2)
      << enLote.sentencias.size() << " " << unaAUna.sentencias.size();
}
