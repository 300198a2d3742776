#include "FixtureGeneracion.h"

#include "shell/ErrorFatal.h"
#include "shell/Rutas.h"

#include <QRegularExpression>

namespace {

const char *kEnc = "SELECT FOL_POLIZA,FEC_POLIZA,TIP_POLIZA,COD_OPER,CONCEP_POL,FEC_ANTERIOR,"
                   "IMPANT_DEBE,IMPANT_HABER,SUM_DEBE,SUM_HABER,ESTATUS FROM tblPolizasEnc ORDER "
                   "BY FOL_POLIZA";
const char *kRen =
    "SELECT FOL_POLIZA,TIP_POLIZA,COD_DATO,RUBRO_DEBE,RUBRO_HABER,CUENTA_DEBE,"
    "CUENTA_HABER,IMP_DEBE,IMP_HABER FROM tblPolizasRen ORDER BY FOL_POLIZA,COD_DATO";
const char *kMov =
    "SELECT FOLIO_MOV,CONCEPTO,MODULO,FOLIO_POL,FOLIO_POLIZA,FREC,FECHA_CON,FECHA_MOV,"
    "COD_OPER FROM tblMovimxPoliza ORDER BY FOLIO_MOV,FOLIO_POLIZA";
const char *kBit = "SELECT MODULO,COD_OPER,COD_CONCEP,FEC_MOVIM,FOL_POLIZA,TIP_POLIZA,FEC_GENERA,"
                   "HR_GENERA,SUMA_DEBE,SUMA_HABER,USU_GENERA,USU_ACTUALIZO,IMPRESA,ESTATUS FROM "
                   "tblBitacoraPolizas ORDER BY FOL_POLIZA";
const char *kContab = "SELECT FOL_MOV,CONTAB FROM tblGastosEnc ORDER BY FOL_MOV";
const char *kFolioE = "SELECT FOL_FOLIOS FROM tblFolios WHERE COD_FOLIO='E'";

} // namespace

// ------------------------------------------------------------------ by document

TEST_P(Generacion, EachDocumentGetsItsEntryLinesRecordLogRowAndStamp) {
  Gasto("G-1", d3(), "1500.255");
  Gasto("G-2", d10(), "800");
  Gasto("G-3", d10(), "999", 2); // cancelled: the filter leaves it out
  const ResultadoGeneracion r = Correr();
  EXPECT_TRUE(r.hubo);
  EXPECT_EQ(r.polizas, 2);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{108});
  EXPECT_EQ(Filas(kEnc),
            L({"00000000001|2024-10-03|E|22|RENTA DEL LOCAL|2024-10-03|0|0|3000.52|1500.26|1",
               "00000000002|2024-10-10|E|22|RENTA DEL LOCAL|2024-10-10|0|0|1600|800|1"}));
  EXPECT_EQ(
      Filas(kRen),
      L({"00000000001|E|68|6-01||6100-000||1500.26|0", "00000000001|E|71||2-01||2100-000|0|1500.26",
         "00000000002|E|68|6-01||6100-000||800|0", "00000000002|E|71||2-01||2100-000|0|800"}));
  EXPECT_EQ(Filas(kMov), L({"G-1|RENT|6|1|00000000001|1|2024-10-03|2024-10-03|22",
                            "G-2|RENT|6|2|00000000002|1|2024-10-10|2024-10-10|22"}));
  EXPECT_EQ(Filas(kBit),
            L({"6|22|RENT|2024-10-03|00000000001|E|2024-11-05|14:05:09|3000.52|1500.26|ADMIN||0|0",
               "6|22|RENT|2024-10-10|00000000002|E|2024-11-05|14:05:09|1600|800|ADMIN||0|0"}));
  EXPECT_EQ(Filas(kContab), L({"G-1|1", "G-2|1", "G-3|0"}));
  EXPECT_EQ(Filas(kFolioE), L({"00000000002"}));
}

TEST_P(Generacion, TheStampUsesTheOperationsFilterAndKey) {
  const SentenciasUnaAUna unaAUna;
  Gasto("G-1", d3(), "10");
  Correr();
  const QStringList &s = emp->grabadora.sentencias;
  const auto sello = std::find_if(s.begin(), s.end(), [](const QString &t) {
    return t.startsWith(QStringLiteral("UPDATE tblGastosEnc SET CONTAB=1 WHERE "));
  });
  ASSERT_NE(sello, s.end());
  EXPECT_TRUE(sello->endsWith(QStringLiteral(" AND FOL_MOV='G-1'"))) << sello->toStdString();
  EXPECT_TRUE(sello->contains(QStringLiteral("(COD_ESTATUS <> 2) AND"))) << sello->toStdString();
}

TEST_P(Generacion, ASecondRunWithoutUpdatingPostsNothingAndSaysSo) {
  Gasto("G-1", d3(), "100");
  Correr();
  const QStringList antes = Filas(kEnc) + Filas(kRen) + Filas(kMov) + Filas(kBit);
  const ResultadoGeneracion r = Correr();
  EXPECT_FALSE(r.hubo);
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{5510, 5508}));
  EXPECT_EQ(Filas(kEnc) + Filas(kRen) + Filas(kMov) + Filas(kBit), antes);
  EXPECT_FALSE(Bitacora().contains(QStringLiteral("ya estaba contabilizada")));
}

TEST_P(Generacion, UpdatingRedoesTheEntryUnderItsFolioWithTheEarlierAmounts) {
  Gasto("G-1", d3(), "100");
  Correr();
  Ejecutar("UPDATE tblGastosEnc SET IMP_MOV=250 WHERE FOL_MOV='G-1'");
  gCodUsu = QStringLiteral("CONTA");
  opciones.Actualizar = true;
  const ResultadoGeneracion r = Correr();
  EXPECT_TRUE(r.hubo);
  EXPECT_EQ(Filas(kEnc),
            L({"00000000001|2024-10-03|E|22|RENTA DEL LOCAL|2024-10-03|200|100|500|250|1"}));
  EXPECT_EQ(Filas(kRen), L({"00000000001|E|68|6-01||6100-000||250|0",
                            "00000000001|E|71||2-01||2100-000|0|250"}));
  EXPECT_EQ(Filas(kFolioE), L({"00000000001"})); // a redo never consumes a folio
  EXPECT_EQ(Filas(kMov), L({"G-1|RENT|6|1|00000000001|1|2024-10-03|2024-10-03|22"}));
  EXPECT_EQ(Filas(kBit),
            L({"6|22|RENT|2024-10-03|00000000001|E|2024-11-05|14:05:09|500|250|ADMIN|CONTA|0|0"}));
  EXPECT_TRUE(Bitacora().contains(
      QStringLiteral("\r\nE00000000001 ya estaba contabilizada. Se actualizó\r\n")));
}

TEST_P(Generacion, ARedoWithAnotherDateMovesTheEntryAndKeepsTheEarlierDate) {
  Gasto("G-1", d3(), "100");
  Correr();
  opciones.Actualizar = true;
  opciones.DefinirFecha = true;
  Correr();
  EXPECT_EQ(Filas(kEnc),
            L({"00000000001|2024-11-05|E|22|RENTA DEL LOCAL|2024-10-03|200|100|200|100|1"}));
  EXPECT_EQ(Filas(kMov), L({"G-1|RENT|6|1|00000000001|1|2024-11-05|2024-10-03|22"}));
}

TEST_P(Generacion, ADeletedEntryIsMadeAgainWithStatusMinusOneOnlyWhenUpdating) {
  Gasto("G-1", d3(), "100");
  Correr();
  Ejecutar("DELETE FROM tblPolizasEnc");
  Ejecutar("DELETE FROM tblPolizasRen");
  Correr();
  EXPECT_TRUE(Filas(kEnc).isEmpty()); // skipped for good without "Actualizar Pólizas"
  opciones.Actualizar = true;
  Correr();
  EXPECT_EQ(Filas(kEnc),
            L({"00000000001|2024-10-03|E|22|RENTA DEL LOCAL|2024-10-03|0|0|200|100|-1"}));
  EXPECT_EQ(Filas(kRen).size(), 2);
  EXPECT_EQ(Filas(kFolioE), L({"00000000001"}));
}

TEST_P(Generacion, ADocumentPostedByDayIsRefusedByDocumentWithBothLines) {
  Gasto("G-1", d3(), "100");
  Regla(frec::kPorDia);
  Correr();
  Regla(frec::kPorDocumento);
  for (bool actualizar : {false, true}) {
    opciones.Actualizar = actualizar;
    QFile::remove(RutaNativa(opciones.Resumen));
    const ResultadoGeneracion r = Correr();
    EXPECT_FALSE(r.hubo);
    EXPECT_TRUE(Bitacora().contains(
        QStringLiteral("G-1 ya está contabilizado en la póliza E y la frecuencia\r\nno coincide. "
                       "Cancele o elimine la póliza anterior para poder procesar.\r\n")))
        << Bitacora().toStdString();
  }
  EXPECT_EQ(Filas(kEnc).size(), 1);
}

TEST_P(Generacion, ADocumentWithAllAmountsZeroStillGetsAHeaderAndARecord) {
  Gasto("G-1", d3(), "0");
  Correr();
  EXPECT_EQ(Filas(kEnc), L({"00000000001|2024-10-03|E|22|RENTA DEL LOCAL|2024-10-03|0|0|0|0|1"}));
  EXPECT_TRUE(Filas(kRen).isEmpty());
  EXPECT_EQ(Filas(kMov).size(), 1);
  EXPECT_EQ(Filas(kFolioE), L({"00000000001"})); // an entry without lines consumes its folio
  // The heading stands alone, followed by two empty lines.
  EXPECT_TRUE(Bitacora().endsWith(QStringLiteral("IMPORTE  TIPO\r\n\r\n\r\n")));
}

TEST_P(Generacion, AnAmountBelowHalfACentGivesALineOfZero) {
  Gasto("G-1", d3(), "0.004");
  Correr();
  EXPECT_EQ(Filas(kRen), L({"00000000001|E|68|6-01||6100-000||0|0"}));
}

// ------------------------------------------------------------------ folios

namespace {
void Ocupar(Conexion &con, int desde, int hasta) {
  for (int i = desde; i <= hasta; ++i)
    con.Ejecutar(
        QStringLiteral("INSERT INTO tblPolizasEnc (FOL_POLIZA,TIP_POLIZA,COD_OPER,ESTATUS) "
                       "VALUES ('%1','E',0,1)")
            .arg(FormatoFolio(i)));
}
// The blocks that begin a transaction, on a server that runs them.
int Iniciados(const QStringList &s) {
  return static_cast<int>(
      s.filter(QRegularExpression(QStringLiteral("^BEGIN NOT ATOMIC START TRANSACTION;"))).size());
}
int Intentos(const QStringList &s) {
  return static_cast<int>(std::count_if(s.begin(), s.end(), [](const QString &t) {
    return t.startsWith(QStringLiteral("SELECT FOL_POLIZA FROM tblPolizasEnc WHERE FOL_POLIZA="));
  }));
}
} // namespace

TEST_P(Generacion, AnEntryWhoseFolioTheRunForetellsGoesInOneExchangeWithTheReadsOfItsLog) {
  EXPECT_EQ(TresRentas(), L({"00000000001", "00000000002", "00000000003"}));
  const QStringList &s = emp->grabadora.sentencias;
  if (emp->Motor() != 4) {
    EXPECT_EQ(Iniciados(s), 0);
    return;
  }
  // The first entry reads the counter; the two after it are foretold.
  EXPECT_EQ(s.count(QStringLiteral("SELECT * FROM tblFolios WHERE COD_FOLIO='E';")), 1);
  const QStringList bloques =
      s.filter(QRegularExpression(QStringLiteral("^BEGIN NOT ATOMIC START TRANSACTION;")));
  ASSERT_EQ(bloques.size(), 2);
  EXPECT_TRUE(
      bloques[1].contains(QStringLiteral("NOT EXISTS (SELECT FOL_POLIZA FROM tblPolizasEnc WHERE "
                                         "FOL_POLIZA='00000000003' AND TIP_POLIZA='E')")));
  EXPECT_TRUE(bloques[1].contains(QStringLiteral(
      "COMMIT; SELECT 1 AS ESCRITURAS_HECHAS; SELECT * FROM tblPolizasEnc WHERE "
      "FOL_POLIZA='00000000003' AND TIP_POLIZA='E'; SELECT * FROM tblPolizasRen WHERE")));
  // The log's reads came with the block: none goes alone.
  EXPECT_EQ(s.filter(QStringLiteral("FOL_POLIZA='00000000003' AND TIP_POLIZA='E'")).size(), 1);
}

TEST_P(Generacion, ACounterKeptAsANumberIsForetoldToo) {
  if (emp->Motor() != 4)
    GTEST_SKIP() << "only MariaDB runs blocks of statements";
  Ejecutar("ALTER TABLE tblFolios MODIFY FOL_FOLIOS INT");
  // Dropped however the test ends: the next one builds it again.
  struct Tirar {
    Conexion &c;
    ~Tirar() { c.IntentarEjecutar(QStringLiteral("DROP TABLE tblFolios")); }
  } tirar{*con};
  EXPECT_EQ(TresRentas(), L({"00000000001", "00000000002", "00000000003"}));
  EXPECT_EQ(Filas(kFolioE), L({"3"}));
  EXPECT_EQ(Iniciados(emp->grabadora.sentencias), 2);
}

TEST_P(Generacion, ACounterMovedByAnotherWriterSendsTheEntryTheLongWay) {
  // Each document's record moves the counter ten folios on, as another writer would.
  if (emp->Motor() == 5)
    Ejecutar("CREATE TRIGGER trgContador AFTER INSERT ON tblMovimxPoliza BEGIN UPDATE tblFolios "
             "SET FOL_FOLIOS=substr('00000000000' || (CAST(FOL_FOLIOS AS INTEGER)+10), -11) "
             "WHERE COD_FOLIO='E'; END");
  else
    Ejecutar("CREATE TRIGGER trgContador AFTER INSERT ON tblMovimxPoliza FOR EACH ROW UPDATE "
             "tblFolios SET FOL_FOLIOS=LPAD(FOL_FOLIOS+10, 11, '0') WHERE COD_FOLIO='E'");
  EXPECT_EQ(TresRentas(), L({"00000000001", "00000000012", "00000000023"}));
  Ejecutar("DROP TRIGGER trgContador");
  EXPECT_EQ(Filas(kFolioE), L({"00000000033"}));
  const QStringList &s = emp->grabadora.sentencias;
  EXPECT_EQ(s.count(QStringLiteral("SELECT * FROM tblFolios WHERE COD_FOLIO='E';")), 3);
  // The foretold folios were refused and nothing of them stood.
  EXPECT_EQ(Iniciados(s), emp->Motor() == 4 ? 2 : 0);
}

TEST_P(Generacion, AFolioTakenAheadSendsTheEntryTheLongWay) {
  Ocupar(*con, 2, 2);
  // The second entry finds its folio taken: it waits for it, then moves the counter on.
  EXPECT_EQ(TresRentas(), L({"00000000001", "00000000003", "00000000004"}));
  EXPECT_EQ(Filas(kFolioE), L({"00000000004"}));
  // A check for the first entry, 42 for the second, and one for the third unless it is
  // asked inside its block.
  EXPECT_EQ(Intentos(emp->grabadora.sentencias), emp->Motor() == 4 ? 1 + 42 : 1 + 42 + 1);
  // Foretold: the second (refused) and the third.
  EXPECT_EQ(Iniciados(emp->grabadora.sentencias), emp->Motor() == 4 ? 2 : 0);
}

TEST_P(Generacion, ACounterLaggingByTwentyIsSetRightOnTheSixtyFirstTry) {
  Ocupar(*con, 1, 20);
  Gasto("G-1", d3(), "100");
  Correr();
  EXPECT_EQ(Intentos(emp->grabadora.sentencias), 61);
  EXPECT_EQ(Filas("SELECT FOL_POLIZA FROM tblPolizasEnc WHERE ESTATUS=1 AND COD_OPER=22"),
            L({"00000000021"}));
  EXPECT_EQ(Filas(kFolioE), L({"00000000021"}));
}

TEST_P(Generacion, ACounterLaggingByThirtySucceedsOnTrySeventyOne) {
  Ocupar(*con, 1, 30);
  Gasto("G-1", d3(), "100");
  Correr();
  EXPECT_EQ(Intentos(emp->grabadora.sentencias), 71);
  EXPECT_EQ(Filas(kFolioE), L({"00000000031"}));
}

TEST_P(Generacion, ACounterLaggingByThirtyOneLogsTheFailureAndAdvancesByThirtyOne) {
  Ocupar(*con, 1, 31);
  Gasto("G-1", d3(), "100");
  const ResultadoGeneracion r = Correr();
  EXPECT_TRUE(r.hubo); // the run carries on as if it had posted
  EXPECT_EQ(Filas(kFolioE), L({"00000000031"}));
  EXPECT_EQ(Filas("SELECT COUNT(*) FROM tblPolizasEnc WHERE COD_OPER=22"), L({"0"}));
  EXPECT_TRUE(Filas(kMov).isEmpty());
  EXPECT_TRUE(Filas(kBit).isEmpty());
  EXPECT_TRUE(
      Bitacora().contains(QStringLiteral("No fue posible agregar póliza de tipo EGRESOS "
                                         "debido a un problema en el consecutivo de folios")));
}

TEST_P(Generacion, FoliosHaveElevenDigitsOrMoreAndBeyondAWholeNumberTheRunEnds) {
  Ejecutar("UPDATE tblFolios SET FOL_FOLIOS='99' WHERE COD_FOLIO='E'");
  Gasto("G-1", d3(), "100");
  Correr();
  EXPECT_EQ(Filas(kFolioE), L({"00000000100"}));
  Ejecutar("UPDATE tblFolios SET FOL_FOLIOS='123456789012' WHERE COD_FOLIO='E'");
  Gasto("G-2", d10(), "100");
  EXPECT_THROW(Correr(), ErrorFatal);
  // The entry is written whole or not at all: its record failed, so its header, its
  // lines and the counter are as they were before it.
  EXPECT_TRUE(
      Filas("SELECT FOL_POLIZA FROM tblPolizasEnc WHERE FOL_POLIZA='123456789013'").isEmpty());
  EXPECT_TRUE(
      Filas("SELECT FOL_POLIZA FROM tblPolizasRen WHERE FOL_POLIZA='123456789013'").isEmpty());
  EXPECT_EQ(Filas(kFolioE), L({"123456789012"}));
}

TEST_P(Generacion, AJournalTypeMissingFromTheFoliosGivesAnEmptyFolio) {
  Regla(frec::kPorDocumento, QStringLiteral("X"));
  Gasto("G-1", d3(), "100");
  Correr();
  EXPECT_EQ(Filas("SELECT FOL_POLIZA,TIP_POLIZA FROM tblPolizasEnc"), L({"|X"}));
  EXPECT_EQ(Filas(kMov), L({"G-1|RENT|6|0||1|2024-10-03|2024-10-03|22"}));
}

// ------------------------------------------------------------------ by day

TEST_P(Generacion, FiveDocumentsOfADayGiveOneEntryAndFiveRecords) {
  Regla(frec::kPorDia);
  for (const char *f : {"G-1", "G-2", "G-3", "G-4", "G-5"})
    Gasto(f, d3(), "100.5");
  const ResultadoGeneracion r = Correr();
  EXPECT_TRUE(r.hubo);
  EXPECT_EQ(Filas(kEnc),
            L({"00000000001|2024-10-03|E|22|RENTA DEL LOCAL|2024-10-03|0|0|1005|502.5|1"}));
  EXPECT_EQ(Filas(kMov), L({"G-1|RENT|6|1|00000000001|2|2024-10-03|2024-10-03|22",
                            "G-2|RENT|6|1|00000000001|2|2024-10-03|2024-10-03|22",
                            "G-3|RENT|6|1|00000000001|2|2024-10-03|2024-10-03|22",
                            "G-4|RENT|6|1|00000000001|2|2024-10-03|2024-10-03|22",
                            "G-5|RENT|6|1|00000000001|2|2024-10-03|2024-10-03|22"}));
  EXPECT_EQ(Filas(kContab).filter(QStringLiteral("|1")).size(), 5);
}

TEST_P(Generacion, ADayWhoseFirstDocumentIsPostedIsSkippedWithItsNewDocuments) {
  Regla(frec::kPorDia);
  Gasto("G-1", d3(), "100");
  Correr();
  Gasto("G-2", d3(), "50");
  const ResultadoGeneracion r = Correr();
  EXPECT_FALSE(r.hubo); // a skip on the last day gives false
  EXPECT_EQ(emp->mensajes.Ids().back(), 5508);
  EXPECT_EQ(Filas(kMov).size(), 1);
  EXPECT_EQ(Filas(kContab), L({"G-1|1", "G-2|0"}));
}

TEST_P(Generacion, UpdatingADayTakesInItsNewDocumentsAndRedoesTheEntry) {
  Regla(frec::kPorDia);
  Gasto("G-1", d3(), "100");
  Correr();
  Gasto("G-2", d3(), "50");
  opciones.Actualizar = true;
  EXPECT_TRUE(Correr().hubo);
  EXPECT_EQ(Filas(kEnc),
            L({"00000000001|2024-10-03|E|22|RENTA DEL LOCAL|2024-10-03|200|100|300|150|1"}));
  EXPECT_EQ(Filas(kMov).size(), 2);
  EXPECT_TRUE(Bitacora().contains(
      QStringLiteral("\r\n00000000001 ya estaba contabilizada. Se actualizó\r\n")));
}

TEST_P(Generacion, AFirstDaySkippedThenASecondDayPostedGivesOneEntryAndTrue) {
  Regla(frec::kPorDia);
  Gasto("G-1", d3(), "100");
  Correr();
  Gasto("G-2", d10(), "40");
  EXPECT_TRUE(Correr().hubo);
  EXPECT_EQ(Filas("SELECT FOL_POLIZA,FEC_POLIZA,SUM_HABER FROM tblPolizasEnc ORDER BY FOL_POLIZA"),
            L({"00000000001|2024-10-03|100", "00000000002|2024-10-10|40"}));
}

TEST_P(Generacion, AFirstDocumentNewWithALaterOnePostedBeforeGivesASecondRecord) {
  Regla(frec::kPorDia);
  Gasto("G-2", d3(), "100");
  Correr();
  Gasto("G-1", d3(), "20"); // sorts first within the day
  EXPECT_TRUE(Correr().hubo);
  EXPECT_EQ(Filas(kMov), L({"G-1|RENT|6|2|00000000002|2|2024-10-03|2024-10-03|22",
                            "G-2|RENT|6|1|00000000001|2|2024-10-03|2024-10-03|22",
                            "G-2|RENT|6|2|00000000002|2|2024-10-03|2024-10-03|22"}));
}

TEST_P(Generacion, ARefusedDayIsLoggedAndItsOtherDocumentsOnlyMarked) {
  Gasto("G-1", d3(), "100");
  Correr(); // by document
  Regla(frec::kPorDia);
  Gasto("G-2", d3(), "30");
  QFile::remove(RutaNativa(opciones.Resumen));
  const ResultadoGeneracion r = Correr();
  EXPECT_FALSE(r.hubo);
  EXPECT_TRUE(Bitacora().contains(
      QStringLiteral("G-1 ya está contabilizado en la póliza 00000000001 y la frecuencia\r\nno "
                     "coincide. No se incluyó en la póliza diaria.\r\n")));
  EXPECT_EQ(Filas(kMov).size(), 1);
  EXPECT_EQ(Filas(kEnc).size(), 1);
}

TEST_P(Generacion, AfterARefusedFirstDocumentTheDaysOthersAreTiedToItsFolio) {
  Gasto("G-5", d10(), "70");
  Correr(); // by document: G-5 in entry 1
  Regla(frec::kPorDia);
  Gasto("G-1", d3(), "10");
  Gasto("G-6", d10(), "20");
  Correr();
  EXPECT_EQ(Filas(kMov), L({"G-1|RENT|6|2|00000000002|2|2024-10-03|2024-10-03|22",
                            "G-5|RENT|6|1|00000000001|1|2024-10-10|2024-10-10|22",
                            "G-6|RENT|6|1|00000000001|2|2024-10-10|2024-10-10|22"}));
}

TEST_P(Generacion, ADaySkippedInTheMiddleRepeatsTheLogOfTheEntryInHand) {
  Regla(frec::kPorDia);
  Gasto("G-2", d10(), "20");
  Correr();
  Gasto("G-1", d3(), "10");
  Gasto("G-3", QDate(2024, 10, 17), "30");
  QFile::remove(RutaNativa(opciones.Resumen));
  EXPECT_TRUE(Correr().hubo);
  // Entry 2 (the 3rd) is logged when the 10th begins and again when the 17th does.
  EXPECT_EQ(Bitacora().count(QStringLiteral("E00000000002  ")), 4);
  EXPECT_EQ(Bitacora().count(QStringLiteral("E00000000003  ")), 2);
}

TEST_P(Generacion, ADocumentDateWithATimeBeginsAnEntryOfItsOwn) {
  if (GetParam() != "sqlite")
    GTEST_SKIP() << "a DATE column of the server keeps no time of day";
  Regla(frec::kPorDia);
  Gasto("G-1", d3(), "10");
  Ejecutar(
      "INSERT INTO tblGastosEnc (FOL_MOV,FEC_MOV,CON_CEP,COD_CON,COD_ESTATUS,IMP_MOV,IVA_MOV,"
      "RET_TOT,RET_ISRTOT,CONTAB) VALUES ('G-2','2024-10-03 10:30:00','RENT','RENT',1,25,0,0,0,0)");
  Ejecutar("INSERT INTO tblGastosRen (FOL_MOV) VALUES ('G-2')");
  Correr();
  EXPECT_EQ(Filas("SELECT FOL_POLIZA,SUM_HABER FROM tblPolizasEnc ORDER BY FOL_POLIZA"),
            L({"00000000001|10", "00000000002|25"}));
}

TEST_P(Generacion, ARuleOfAnotherFrequencyLogsItsLineAndPostsNothing) {
  Regla(0);
  Gasto("G-1", d3(), "100");
  const ResultadoGeneracion r = Correr();
  EXPECT_TRUE(r.corrio);
  EXPECT_FALSE(r.hubo);
  EXPECT_TRUE(Filas(kEnc).isEmpty());
  EXPECT_TRUE(Bitacora().contains(QStringLiteral("GASTOS") + QString(34, QLatin1Char(' ')) +
                                  QStringLiteral(" RENTA DEL LOCAL")));
}

// ------------------------------------------------------------------ the run

TEST_P(Generacion, WithNothingCheckedTheRunDoesNothingAndShowsNothing) {
  Gasto("G-1", d3(), "100");
  Corrida corrida;
  corrida.Conexion = emp->Abrir();
  CargarOperaciones(corrida);
  ArbolOperaciones arbol;
  arbol.CargarArbol(*corrida.Conexion);
  Generador g(corrida, opciones);
  const ResultadoGeneracion r = g.GenerarPolizas(arbol);
  EXPECT_FALSE(r.corrio);
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
  EXPECT_FALSE(QFileInfo::exists(RutaNativa(opciones.Resumen)));
}

TEST_P(Generacion, AnEmptyLogNameStopsTheRunWithMessage5512) {
  Gasto("G-1", d3(), "100");
  opciones.Resumen.clear();
  EXPECT_FALSE(Correr().corrio);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5512});
  EXPECT_TRUE(Filas(kEnc).isEmpty());
}

TEST_P(Generacion, AnsweringNoToAnExistingLogStopsTheRun) {
  Gasto("G-1", d3(), "100");
  EscribirArchivo(opciones.Resumen, "ANTERIOR\r\n");
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  Corrida corrida;
  corrida.Conexion = emp->Abrir();
  CargarOperaciones(corrida);
  ArbolOperaciones arbol;
  arbol.CargarArbol(*corrida.Conexion);
  arbol.MarcarTodo();
  Generador g(corrida, opciones);
  EXPECT_FALSE(g.GenerarPolizas(arbol).corrio);
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, CatalogoMensajes::Texto(5500));
  EXPECT_EQ(emp->mensajes.mostrados[0].texto,
            CatalogoMensajes::Texto(5510) + QLatin1Char('\n') + CatalogoMensajes::Texto(5511));
  EXPECT_EQ(LeerArchivo(opciones.Resumen), QByteArray("ANTERIOR\r\n"));
}

TEST_P(Generacion, RowsThatVanishBeforeTheRunGiveEntriesWithoutLines) {
  Gasto("G-1", d3(), "100");
  Corrida corrida;
  ArbolOperaciones arbol;
  CargarCorrida(*emp, corrida, arbol);
  Ejecutar("DELETE FROM tblRubrosxOperacion");
  Generador g(corrida, opciones);
  EXPECT_TRUE(g.GenerarPolizas(arbol).hubo);
  EXPECT_EQ(Filas(kEnc), L({"00000000001|2024-10-03|E|22|RENTA DEL LOCAL|2024-10-03|0|0|0|0|1"}));
  EXPECT_TRUE(Filas(kRen).isEmpty());
}

TEST_P(Generacion, AHundredAndOneRowsInARuleEndTheRun) {
  for (int i = 0; i < 100; ++i)
    Ejecutar("INSERT INTO tblRubrosxOperacion (COD_POL,COD_DATO,RUBRO_DEBE,CUENTA_DEBE) VALUES "
             "(1,68,'6-01','6100-000')");
  Gasto("G-1", d3(), "1");
  EXPECT_THROW(Correr(), ErrorFatal);
}

TEST_P(Generacion, TwoHundredAndOneRulesEndTheRun) {
  for (int i = 2; i <= 201; ++i)
    Ejecutar(QStringLiteral("INSERT INTO tblOperacionxConcep (COD_POL,COD_OPER,MODULO,CONCEPTO,"
                            "TIP_POLIZA,STS_POLIZA,FREC,DIARIO) VALUES (%1,22,6,'C%1','E','D',1,1)")
                 .arg(i));
  try {
    Correr();
    FAIL();
  } catch (const ErrorFatal &e) {
    EXPECT_TRUE(e.Mensaje().contains(QStringLiteral("200"))) << e.Mensaje().toStdString();
  }
}

TEST_P(Generacion, OnMariaDbTheWritesOfEachEntryGoInOneBlock) {
  if (emp->Motor() != 4)
    GTEST_SKIP() << "only MariaDB runs blocks of statements";
  Gasto("G-1", d3(), "10");
  Gasto("G-2", d10(), "20");
  Correr();
  const QStringList bloques =
      emp->grabadora.sentencias.filter(QRegularExpression(QStringLiteral("^BEGIN NOT ATOMIC ")));
  ASSERT_EQ(bloques.size(), 2);
  for (const QString &b : bloques) {
    EXPECT_TRUE(b.contains(QStringLiteral("UPDATE tblFolios SET FOL_FOLIOS=")));
    EXPECT_TRUE(b.contains(QStringLiteral("INSERT INTO tblPolizasRen ")));
    EXPECT_TRUE(b.contains(QStringLiteral("IF EXISTS (SELECT COD_OPER FROM tblBitacoraPolizas ")));
    EXPECT_TRUE(b.contains(QStringLiteral("IF EXISTS (SELECT * FROM tblMovimxPoliza ")));
    EXPECT_TRUE(b.contains(QStringLiteral("UPDATE tblGastosEnc SET CONTAB=1 WHERE ")));
  }
  EXPECT_TRUE(
      emp->grabadora.sentencias.filter(QStringLiteral("INSERT INTO tblMovimxPoliza")).size() == 2);
  EXPECT_EQ(Filas(kContab), L({"G-1|1", "G-2|1"}));
}

TEST_P(Generacion, OnMariaDbTheRecordsOfADaysDocumentsGoInOneBlockADay) {
  if (emp->Motor() != 4)
    GTEST_SKIP() << "only MariaDB runs blocks of statements";
  // A hundred documents a block at most.
  Regla(frec::kPorDia);
  for (int i = 1; i <= 101; ++i)
    Gasto(QStringLiteral("G-%1").arg(i).toLatin1().constData(), d3(), "100");
  Gasto("G-200", d10(), "20");
  Correr();
  const QStringList bloques =
      emp->grabadora.sentencias.filter(QRegularExpression(QStringLiteral("^BEGIN NOT ATOMIC ")))
          .filter(QStringLiteral("INSERT INTO tblMovimxPoliza"));
  ASSERT_EQ(bloques.size(), 3);
  EXPECT_EQ(bloques[0].count(QStringLiteral("INSERT INTO tblMovimxPoliza")), 100);
  EXPECT_EQ(bloques[0].count(QStringLiteral("UPDATE tblGastosEnc SET CONTAB=1 WHERE ")), 100);
  EXPECT_EQ(bloques[1].count(QStringLiteral("INSERT INTO tblMovimxPoliza")), 1);
  EXPECT_EQ(bloques[2].count(QStringLiteral("INSERT INTO tblMovimxPoliza")), 1);
  EXPECT_EQ(Filas(kMov).size(), 102);
  EXPECT_EQ(Filas(kContab).filter(QStringLiteral("|1")).size(), 102);
}

TEST_P(Generacion, ALogRowRefusedByTheDatabaseIsDroppedEitherWay) {
  if (emp->Motor() == 5)
    Ejecutar("CREATE TRIGGER trgRechazo BEFORE INSERT ON tblBitacoraPolizas BEGIN SELECT "
             "RAISE(ABORT, 'bitacora rechazada'); END");
  else
    Ejecutar("CREATE TRIGGER trgRechazo BEFORE INSERT ON tblBitacoraPolizas FOR EACH ROW SIGNAL "
             "SQLSTATE '45000' SET MESSAGE_TEXT='bitacora rechazada'");
  Gasto("G-1", d3(), "100");
  Gasto("G-2", d10(), "1000");
  EXPECT_EQ(Correr().polizas, 2);
  Ejecutar("DROP TRIGGER trgRechazo");
  EXPECT_TRUE(Filas(kBit).isEmpty());
  EXPECT_EQ(Filas(kContab), L({"G-1|1", "G-2|1"}));
  EXPECT_EQ(Filas(kRen).size(), 4);
}

TEST_P(Generacion, ALineRefusedByTheDatabaseStopsTheRunAtThatLineEitherWay) {
  // The database refuses the credit line of a document: the lines go together in one
  // statement, and again one at a time so that the refused one is the one named.
  if (emp->Motor() == 5)
    Ejecutar("CREATE TRIGGER trgRechazo BEFORE INSERT ON tblPolizasRen WHEN NEW.COD_DATO=71 "
             "AND NEW.IMP_HABER>900 BEGIN SELECT RAISE(ABORT, 'renglon rechazado'); END");
  else
    Ejecutar("CREATE TRIGGER trgRechazo BEFORE INSERT ON tblPolizasRen FOR EACH ROW BEGIN IF "
             "NEW.COD_DATO=71 AND NEW.IMP_HABER>900 THEN SIGNAL SQLSTATE '45000' SET "
             "MESSAGE_TEXT='renglon rechazado'; END IF; END");
  Gasto("G-1", d3(), "100");
  Gasto("G-2", d10(), "1000");
  try {
    Correr();
    ADD_FAILURE() << "the run went on";
  } catch (const ErrorFatal &e) {
    EXPECT_TRUE(e.Mensaje().contains(QStringLiteral("renglon rechazado")))
        << e.Mensaje().toStdString();
    EXPECT_EQ(e.Sentencia(),
              SentenciaRenglonHaber(QStringLiteral("00000000002"), QStringLiteral("E"), 71,
                                    QStringLiteral("2-01"), QStringLiteral("2100-000"),
                                    Dinero::DeTexto(QStringLiteral("1000"))));
  }
  Ejecutar("DROP TRIGGER trgRechazo");
  // The first entry stands whole; nothing of the second.
  EXPECT_EQ(Filas(kRen), L({"00000000001|E|68|6-01||6100-000||100|0",
                            "00000000001|E|71||2-01||2100-000|0|100"}));
  EXPECT_EQ(Filas(kFolioE), L({"00000000001"}));
}

INSTANTIATE_TEST_SUITE_P(Motores, Generacion, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
