#include "ApoyoExportacion.h"

#include <gtest/gtest.h>

using namespace exportacion;

namespace {

QByteArray B(const QString &texto) { return texto.toLatin1(); }

// The P record of an entry, with its line end.
QString RegistroP(const char *fecha, const char *tipo, const char *folio, const QString &concepto) {
  return QStringLiteral("P %1 %2 %3 0 000 %4 0 0 \r\n")
      .arg(QLatin1String(fecha), QLatin1String(tipo), QLatin1String(folio),
           concepto.leftJustified(100, QLatin1Char(' '), true));
}

const QString kRegistroN = QStringLiteral("N   \r\n");

// The M record of a line, with its line end.
QString RegistroM(const char *cuenta, const char *referencia, const char *lado, const char *importe,
                  const QString &concepto) {
  return QStringLiteral("M %1 %2 %3 %4 000 0.00 %5\r\n")
      .arg(QString::fromLatin1(cuenta).leftJustified(20),
           QString::fromLatin1(referencia).rightJustified(10), QLatin1String(lado),
           QString::fromLatin1(importe).rightJustified(16),
           concepto.leftJustified(29, QLatin1Char(' '), true));
}

class Paquete : public Exportacion {
protected:
  void SetUp() override {
    Exportacion::SetUp();
    // The row as the first save of the package leaves it: every other column Null.
    InsertarFormato(*con, {{QStringLiteral("NO_REN"), QStringLiteral("0")}});
    Folio("D", 1);
  }
  void Folio(const char *tipo, int numero) {
    con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM) "
                                 "VALUES ('%1','%2','0',%3)")
                      .arg(QLatin1String(tipo), NombreTipoPoliza(QLatin1String(tipo)))
                      .arg(numero));
  }
  QByteArray EnLoteIgualAUnaAUna();
  void Documento(const char *folioMov, int folioPol) {
    con->Ejecutar(QStringLiteral("INSERT INTO tblMovimxPoliza (FOLIO_MOV,CONCEPTO,MODULO,"
                                 "FOLIO_POL,FOLIO_POLIZA,FREC,FECHA_CON,FECHA_MOV,COD_OPER) "
                                 "VALUES ('%1','LUZ',6,%2,'%3',1,%4,%4,22)")
                      .arg(QLatin1String(folioMov))
                      .arg(folioPol)
                      .arg(FormatoFolio(folioPol),
                           ServicioUtil::FechaSQL(QDate(2026, 11, 15), emp->Motor())));
  }
};

} // namespace

TEST_P(Paquete, TheSampleGroupByteForByte) {
  PolizaDeMuestra(*con);
  Documento("A-1", 12);
  const QByteArray bytes = RenglonesEnOrden(Escribir(), 2);
  EXPECT_EQ(bytes.left(28), QByteArray("P 20261115 1 00000000 0 000 "));
  EXPECT_EQ(bytes.mid(28, 11), QByteArray("Pago de luz"));
  EXPECT_EQ(bytes.mid(39, 89), QByteArray(89, ' '));
  EXPECT_EQ(bytes.mid(128, 7), QByteArray(" 0 0 \r\n"));
  EXPECT_EQ(bytes.mid(135),
            QByteArray("N   \r\n"
                       "M 000011                      A-1 1         1,250.00 000 0.00 Pago de luz "
                       "                 \r\n"
                       "M 000021                      A-1 2         1,250.00 000 0.00 Pago de luz "
                       "                 \r\n"));
  EXPECT_EQ(bytes.size(), 135 + 6 + 93 + 93);
  EXPECT_EQ(resultado.lineas, 4);
  EXPECT_EQ(Mensajes(), std::vector<int>{5526});
}

TEST_P(Paquete, EachLineAsksForTheTypeNumberAndTheReferenceOnceARunWithMemory) {
  PolizaDeMuestra(*con);
  Documento("A-1", 12);
  const QString tipo = QStringLiteral("SELECT COD_NUM FROM tblFolios WHERE COD_FOLIO = 'D'");
  const QString referencia =
      QStringLiteral("SELECT FOLIO_MOV FROM tblMovimxPoliza WHERE FOLIO_POL = 12");
  // Without the run's memory every line asks, as the statements were always sent.
  datos.memoria = false;
  const QByteArray sinMemoria = Escribir();
  ASSERT_EQ(emp->grabadora.sentencias.size(), 5);
  EXPECT_EQ(emp->grabadora.sentencias.mid(1), (QStringList{tipo, referencia, tipo, referencia}));
  // With it, each is asked once, in the same order; the file is the same.
  datos.memoria = true;
  {
    const SentenciasUnaAUna unaAUna;
    EXPECT_EQ(Escribir(), sinMemoria);
  }
  ASSERT_EQ(emp->grabadora.sentencias.size(), 3);
  EXPECT_EQ(emp->grabadora.sentencias.mid(1), (QStringList{tipo, referencia}));
  // In batches the references of the whole run are asked before the first line: the
  // folios of the period, then the documents of their numbers.
  EXPECT_EQ(Escribir(), sinMemoria);
  ASSERT_EQ(emp->grabadora.sentencias.size(), 4);
  EXPECT_EQ(emp->grabadora.sentencias.mid(1),
            (QStringList{QStringLiteral("SELECT DISTINCT FOL_POLIZA FROM tblPolizasEnc WHERE "
                                        "FEC_POLIZA BETWEEN %1 AND %2")
                             .arg(ServicioUtil::FechaSQL(datos.fechaIni, emp->Motor()),
                                  ServicioUtil::FechaSQL(datos.fechaFin, emp->Motor())),
                         QStringLiteral("SELECT FOLIO_POL, FOLIO_MOV FROM tblMovimxPoliza WHERE "
                                        "FOLIO_POL IN (12)"),
                         tipo}));
}

// The file of a run in batches against the file of the same run sent one by one; the
// statements of the batched run stay in emp->grabadora.
QByteArray Paquete::EnLoteIgualAUnaAUna() {
  QByteArray unaAUna;
  ResultadoArchivo resultadoUnaAUna;
  std::vector<int> mensajesUnaAUna;
  {
    const SentenciasUnaAUna guarda;
    unaAUna = Escribir();
    resultadoUnaAUna = resultado;
    mensajesUnaAUna = Mensajes();
  }
  emp->mensajes.mostrados.clear();
  const QByteArray enLote = Escribir();
  EXPECT_EQ(enLote, unaAUna);
  EXPECT_EQ(resultado.lineas, resultadoUnaAUna.lineas);
  EXPECT_EQ(resultado.completo, resultadoUnaAUna.completo);
  EXPECT_EQ(resultado.falla, resultadoUnaAUna.falla);
  EXPECT_EQ(Mensajes(), mensajesUnaAUna);
  return enLote;
}

TEST_P(Paquete, AThousandAndOneFolioNumbersAreAskedInTwoStatements) {
  // Folios of 1 to 1,001, each with its line; every third has two documents, of which the
  // first recorded answers, and the rest none.
  con->IniciarTransaccion();
  for (int folio = 1; folio <= 1001; ++folio) {
    InsertarPoliza(*con, Encabezado(FormatoFolio(folio).toLatin1().constData(), "D", "Luz", "5"),
                   {Cargo("110", "5")});
    if (folio % 3 == 0) {
      Documento(QStringLiteral("B-%1").arg(folio).toLatin1().constData(), folio);
      Documento(QStringLiteral("A-%1").arg(folio).toLatin1().constData(), folio);
    }
  }
  con->ConfirmarTransaccion();
  const QByteArray bytes = EnLoteIgualAUnaAUna();
  EXPECT_EQ(bytes.count("\r\nM "), 1001);
  EXPECT_TRUE(bytes.contains(" B-3 1 ")) << bytes.left(400).toStdString();
  EXPECT_FALSE(bytes.contains("A-3"));
  const QStringList lotes =
      emp->grabadora.sentencias.filter(QStringLiteral("FROM tblMovimxPoliza WHERE FOLIO_POL IN ("));
  ASSERT_EQ(lotes.size(), 2);
  EXPECT_TRUE(lotes[0].contains(QStringLiteral("IN (1,2,3,")));
  EXPECT_TRUE(lotes[0].endsWith(QStringLiteral(",999,1000)")));
  EXPECT_TRUE(lotes[1].endsWith(QStringLiteral("IN (1001)")));
  EXPECT_TRUE(emp->grabadora.sentencias.filter(QStringLiteral("WHERE FOLIO_POL = ")).isEmpty());
}

TEST_P(Paquete, AFolioThatIsNoPlainNumberIsAskedByItself) {
  // "12.5" is asked as the number 12.5, which no document carries; "0012" is 12.
  Documento("A-1", 12);
  InsertarPoliza(*con, Encabezado("12.5", "D", "Luz", "5"), {Cargo("110", "5")});
  InsertarPoliza(*con, Encabezado("0012", "D", "Gas", "5"), {Cargo("110", "5")});
  const QByteArray bytes = EnLoteIgualAUnaAUna();
  EXPECT_EQ(bytes.count(" A-1 1 "), 1);
  EXPECT_EQ(bytes.count(" ? 1 "), 1);
  EXPECT_EQ(
      emp->grabadora.sentencias.filter(QStringLiteral("WHERE FOLIO_POL = ")),
      QStringList{QStringLiteral("SELECT FOLIO_MOV FROM tblMovimxPoliza WHERE FOLIO_POL = 12.5")});
}

TEST_P(Paquete, WithoutTheTableOfDocumentsTheRunStopsAtItsFirstLineEitherWay) {
  PolizaDeMuestra(*con);
  con->Ejecutar(QStringLiteral("DROP TABLE tblMovimxPoliza"));
  EXPECT_EQ(EnLoteIgualAUnaAUna(), QByteArray());
  EXPECT_FALSE(resultado.completo);
  EXPECT_EQ(Mensajes(), std::vector<int>{5527});
}

TEST_P(Paquete, FoliosThatDifferOnlyInTheirLastThreeDigitsShowTheSameField) {
  InsertarPoliza(*con, Encabezado("00000001001", "D", "Uno", "5"), {Cargo("110", "5")});
  InsertarPoliza(*con, Encabezado("00000001002", "D", "Dos", "5"), {Cargo("110", "5")});
  EXPECT_EQ(Escribir(),
            B(RegistroP("20261115", "1", "00000001", QStringLiteral("Uno")) + kRegistroN +
              RegistroM("000011", "?", "1", "5.00", QStringLiteral("Uno")) +
              RegistroP("20261115", "1", "00000001", QStringLiteral("Dos")) + kRegistroN +
              RegistroM("000011", "?", "1", "5.00", QStringLiteral("Dos"))));
}

TEST_P(Paquete, AnUnknownTypeAndAFolioWithoutDocumentsWriteQuestionMarks) {
  InsertarPoliza(*con, Encabezado("00000000012", "X", "Luz", "5"), {Abono("210", "5")});
  const QByteArray bytes = Escribir();
  EXPECT_EQ(bytes, B(RegistroP("20261115", "?", "00000000", QStringLiteral("Luz")) + kRegistroN +
                     RegistroM("000021", "?", "2", "5.00", QStringLiteral("Luz"))));
  EXPECT_EQ(bytes.at(11), '?');
  const qsizetype m = bytes.indexOf("\r\nM ") + 2;
  EXPECT_EQ(bytes.at(m + 32), '?');
  EXPECT_EQ(bytes.mid(m + 23, 9), QByteArray(9, ' '));
}

TEST_P(Paquete, ATypeNumberOfTwoDigitsShowsItsFirst) {
  Folio("E", 12);
  InsertarPoliza(*con, Encabezado("00000000012", "E", "Luz", "5"), {Cargo("110", "5")});
  EXPECT_EQ(Escribir().at(11), '1');
  con->Ejecutar(QStringLiteral("UPDATE tblFolios SET COD_NUM=7 WHERE COD_FOLIO='E'"));
  EXPECT_EQ(Escribir().at(11), '7');
}

TEST_P(Paquete, TheReferenceIsTheFirstDocumentOfTheFolioNumberWhateverItsType) {
  // The income entry 12 has no documents; the document of the journal entry 12 answers.
  Folio("I", 2);
  Documento("T-77", 12);
  InsertarPoliza(*con, Encabezado("00000000012", "I", "Venta", "5"), {Cargo("110", "5")});
  EXPECT_EQ(Escribir(),
            B(RegistroP("20261115", "2", "00000000", QStringLiteral("Venta")) + kRegistroN +
              RegistroM("000011", "T-77", "1", "5.00", QStringLiteral("Venta"))));
}

TEST_P(Paquete, OfSeveralDocumentsOfTheFolioNumberTheFirstRecordedAnswers) {
  // The documents come back as they were recorded, not in the order of their texts.
  Documento("NV-2", 12);
  Documento("GT-1", 12);
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Venta", "5"), {Cargo("110", "5")});
  EXPECT_EQ(Escribir(),
            B(RegistroP("20261115", "1", "00000000", QStringLiteral("Venta")) + kRegistroN +
              RegistroM("000011", "NV-2", "1", "5.00", QStringLiteral("Venta"))));
}

TEST_P(Paquete, AConceptOfMoreThanTwentyNineCharactersIsCutInTheLineOnly) {
  const QString concepto = QStringLiteral("Pago de energía eléctrica nov.");
  ASSERT_EQ(concepto.size(), 30);
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Pago de energía eléctrica nov.", "5"),
                 {Cargo("110", "5")});
  const QByteArray bytes = Escribir();
  EXPECT_EQ(bytes,
            CodificarWindows1252(RegistroP("20261115", "1", "00000000", concepto) + kRegistroN +
                                 RegistroM("000011", "?", "1", "5.00", concepto)));
  EXPECT_TRUE(bytes.contains(CodificarWindows1252(concepto + QStringLiteral("    "))));
  EXPECT_TRUE(bytes.endsWith(CodificarWindows1252(QStringLiteral("eléctrica nov\r\n"))));
}

TEST_P(Paquete, AnAmountOfMoreThanSixteenCharactersIsCutOnTheRight) {
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Luz", "1234567890123.45"),
                 {Cargo("110", "1234567890123.45")});
  EXPECT_EQ(Escribir(),
            B(RegistroP("20261115", "1", "00000000", QStringLiteral("Luz")) + kRegistroN +
              RegistroM("000011", "?", "1", "1,234,567,890,12", QStringLiteral("Luz"))));
}

TEST_P(Paquete, TheAccountKeepsItsFirstLevelInSevenDigitsLessTheLast) {
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Luz", "5"),
                 {Cargo("1101001", "5"), Abono("1-2", "5")});
  EXPECT_EQ(RenglonesEnOrden(Escribir(), 2),
            B(RegistroP("20261115", "1", "00000000", QStringLiteral("Luz")) + kRegistroN +
              RegistroM("000000", "?", "2", "5.00", QStringLiteral("Luz")) +
              RegistroM("110100", "?", "1", "5.00", QStringLiteral("Luz"))));
}

TEST_P(Paquete, ALineWithDebitZeroAndNoCreditAccountStopsTheRun) {
  PolizaDeMuestra(*con);
  InsertarPoliza(*con, Encabezado("00000000013", "D", "Renta", "0"), {Cargo("120", "0")});
  const QByteArray bytes = Escribir();
  // The group of folio 12 stays; nothing of folio 13 is written.
  EXPECT_EQ(bytes.size(), 135 + 6 + 93 + 93);
  EXPECT_FALSE(resultado.completo);
  EXPECT_EQ(Mensajes(), std::vector<int>{5527});
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, QStringLiteral("Error 5"));
}

TEST_P(Paquete, AnEmptySelectionWritesAnEmptyFile) {
  EscribirArchivo(archivo, "P viejo\r\n");
  EXPECT_EQ(Escribir(), QByteArray());
  EXPECT_TRUE(resultado.completo);
  EXPECT_EQ(Mensajes(), std::vector<int>{5526});
}

TEST_P(Paquete, EachEntryOfTheSelectionOpensItsGroup) {
  Folio("I", 2);
  InsertarPoliza(*con, Encabezado("00000000005", "I", "Venta", "5", QDate(2026, 11, 3), 1),
                 {Cargo("110", "5"), Abono("410", "5")});
  InsertarPoliza(*con, Encabezado("00000000005", "D", "Luz", "5", QDate(2026, 11, 4), 22), {});
  // The journal entry 5 has no lines of its own, yet the join by folio lends it the
  // lines of the income entry 5: two groups of two lines.
  const QByteArray bytes = Escribir();
  EXPECT_EQ(bytes.count("P 2026"), 2);
  EXPECT_EQ(bytes.count("\r\nN   \r\n"), 2);
  EXPECT_EQ(bytes.count("\r\nM "), 4);
  EXPECT_TRUE(bytes.startsWith("P 20261104 1 00000000 0 000 Luz"));
  EXPECT_EQ(resultado.lineas, 8);
}

INSTANTIATE_TEST_SUITE_P(Motores, Paquete, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
