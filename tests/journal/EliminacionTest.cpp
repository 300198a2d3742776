#include "journal/Eliminacion.h"
#include "Apoyo.h"
#include "journal/DiarioPrueba.h"
#include "journal/Polizas.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

// A company with a few entries in November 2026, and the records the deletion must leave
// alone.
class Eliminacion : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    Poliza("00000000001", "D", QDate(2026, 11, 3), 22, "RENTA DEL LOCAL");
    Poliza("00000000002", "D", QDate(2026, 11, 10), 1, "VENTA DE CONTADO");
    Poliza("00000000003", "I", QDate(2026, 11, 12), 1, "VENTA DE CONTADO");
    Poliza("00000000004", "E", QDate(2026, 12, 1), 22, "RENTA DEL LOCAL");
    con->Ejecutar(QStringLiteral("INSERT INTO tblMovimxPoliza (FOLIO_MOV,CONCEPTO,COD_OPER,FREC,"
                                 "FOLIO_POLIZA) VALUES ('G-1','RENT',22,1,'00000000001')"));
    con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS) VALUES "
                                 "('D','DIARIO','00000000002')"));
    antesIntactas = Intactas();
    emp->grabadora.sentencias.clear();
  }

  void Poliza(const char *folio, const char *tipo, const QDate &fecha, int oper,
              const char *concepto) {
    diario::InsertarAsiento(*con, {QLatin1String(folio), QLatin1String(tipo), fecha, oper,
                                   QLatin1String(concepto), QStringLiteral("1-01"),
                                   QStringLiteral("1100-000"), QStringLiteral("2-01"),
                                   QStringLiteral("2100-000"), Dinero::DeEntero(100)});
  }
  QStringList Encabezados() {
    return diario::Filas(*con, QStringLiteral("SELECT TIP_POLIZA,FOL_POLIZA FROM tblPolizasEnc "
                                              "ORDER BY FOL_POLIZA,TIP_POLIZA"));
  }
  QStringList Renglones() {
    return diario::Filas(*con, QStringLiteral("SELECT DISTINCT TIP_POLIZA,FOL_POLIZA FROM "
                                              "tblPolizasRen ORDER BY FOL_POLIZA,TIP_POLIZA"));
  }
  // What the deletion never touches.
  QStringList Intactas() {
    return diario::Filas(*con,
                         QStringLiteral("SELECT FOLIO_MOV,FOLIO_POLIZA FROM tblMovimxPoliza")) +
           diario::Filas(*con, QStringLiteral("SELECT COD_FOLIO,FOL_FOLIOS FROM tblFolios"));
  }
  FiltroEliminacion Noviembre() const {
    FiltroEliminacion f;
    f.del = QDate(2026, 11, 1);
    f.al = QDate(2026, 11, 30);
    return f;
  }
  QString Fecha(const QDate &d) const { return con->Dialecto().FechaSQL(d); }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  QStringList antesIntactas;
};

} // namespace

TEST(TextoAcotado, EachNarrowingInItsOrderTheTypesWithoutALeadingBlank) {
  FiltroEliminacion f;
  EXPECT_EQ(TextoAcotado(f), QString());
  f.tipo = QStringLiteral("D");
  EXPECT_EQ(TextoAcotado(f), QStringLiteral("AND TIP_POLIZA='D'"));
  f.operacion = QStringLiteral("22");
  f.concepto = QStringLiteral("D'ANGELO");
  EXPECT_EQ(TextoAcotado(f),
            QStringLiteral("AND TIP_POLIZA='D' AND COD_OPER=22 AND CONCEP_POL='D''ANGELO'"));
  f.tipo.clear();
  EXPECT_EQ(TextoAcotado(f), QStringLiteral(" AND COD_OPER=22 AND CONCEP_POL='D''ANGELO'"));
}

TEST_P(Eliminacion, WithoutNarrowingEveryEntryOfThePeriodGoesByItsFolio) {
  const SentenciasUnaAUna unaAUna;
  emp->mensajes.respuestas = {RespuestaMensaje::Aceptar};
  EXPECT_EQ(EliminarPolizas(*con, Noviembre()), 3);
  EXPECT_EQ(Encabezados(), QStringList{QStringLiteral("E|00000000004")});
  EXPECT_EQ(Renglones(), QStringList{QStringLiteral("E|00000000004")});
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{5513, 5514}));
  const Mensaje &pregunta = emp->mensajes.mostrados[0];
  EXPECT_EQ(pregunta.titulo, CatalogoMensajes::Texto(100));
  EXPECT_EQ(pregunta.icono, IconoMensaje::Advertencia);
  EXPECT_EQ(pregunta.botones, BotonesMensaje::AceptarCancelar);
  EXPECT_EQ(emp->mensajes.mostrados[1].icono, IconoMensaje::Informacion);
  // The select, then for each folio its header and then its lines.
  QStringList esperadas{QStringLiteral("SELECT FOL_POLIZA FROM tblPolizasEnc WHERE FEC_POLIZA "
                                       "BETWEEN %1 AND %2 ")
                            .arg(Fecha(QDate(2026, 11, 1)), Fecha(QDate(2026, 11, 30)))};
  QStringList escrituras;
  for (const QString &s : emp->grabadora.sentencias)
    if (s.startsWith(QStringLiteral("DELETE")))
      escrituras << s;
  for (const char *folio : {"00000000001", "00000000002", "00000000003"})
    esperadas << QStringLiteral("DELETE FROM tblPolizasEnc WHERE FOL_POLIZA='%1';")
                     .arg(QLatin1String(folio))
              << QStringLiteral("DELETE FROM tblPolizasRen WHERE FOL_POLIZA='%1';")
                     .arg(QLatin1String(folio));
  EXPECT_EQ(QStringList{emp->grabadora.sentencias.first()} + escrituras, esperadas);
  // The records of the documents, the folio counters: as they were.
  EXPECT_EQ(Intactas(), antesIntactas);
}

TEST_P(Eliminacion, OnMariaDbEachEntryGoesInOneExchange) {
  emp->mensajes.respuestas = {RespuestaMensaje::Aceptar};
  EXPECT_EQ(EliminarPolizas(*con, Noviembre()), 3);
  const QStringList enviadas = emp->grabadora.sentencias;
  EXPECT_EQ(Encabezados(), QStringList{QStringLiteral("E|00000000004")});
  EXPECT_EQ(Renglones(), QStringList{QStringLiteral("E|00000000004")});
  EXPECT_EQ(Intactas(), antesIntactas);
  const QStringList bloques =
      enviadas.filter(QRegularExpression(QStringLiteral("^BEGIN NOT ATOMIC START TRANSACTION;")));
  if (emp->Motor() != 4) {
    EXPECT_TRUE(bloques.isEmpty());
    return;
  }
  ASSERT_EQ(bloques.size(), 3);
  EXPECT_EQ(enviadas.size(), 4); // the select and the three blocks
  for (const QString &b : bloques)
    EXPECT_TRUE(b.contains(QStringLiteral(" DELETE FROM tblPolizasEnc WHERE FOL_POLIZA='")) &&
                b.contains(QStringLiteral(" DELETE FROM tblPolizasRen WHERE FOL_POLIZA='")) &&
                b.contains(QStringLiteral(" COMMIT;")))
        << b.toStdString();
}

TEST_P(Eliminacion, AFolioUnderTwoTypesGoesFromBothEvenOutsideThePeriod) {
  Poliza("00000000004", "D", QDate(2026, 11, 20), 1, "VENTA DE CONTADO");
  emp->grabadora.sentencias.clear();
  FiltroEliminacion f = Noviembre();
  f.tipo = QStringLiteral("D");
  f.operacion = QStringLiteral("1");
  emp->mensajes.respuestas = {RespuestaMensaje::Aceptar};
  EXPECT_EQ(EliminarPolizas(*con, f), 2);
  // Folio 2 of type D and folio 4 of both D and E (dated in December) are gone.
  EXPECT_EQ(Encabezados(),
            (QStringList{QStringLiteral("D|00000000001"), QStringLiteral("I|00000000003")}));
  EXPECT_EQ(Renglones(), Encabezados());
  EXPECT_TRUE(emp->grabadora.sentencias.first().endsWith(
      QStringLiteral(" AND TIP_POLIZA='D' AND COD_OPER=1")));
}

TEST_P(Eliminacion, TheConceptIsComparedWithTheDescriptionAndSoFindsNothing) {
  FiltroEliminacion f = Noviembre();
  f.operacion = QStringLiteral("22");
  f.concepto = QStringLiteral("RENT");
  emp->mensajes.respuestas = {RespuestaMensaje::Aceptar};
  EXPECT_EQ(EliminarPolizas(*con, f), 0);
  EXPECT_EQ(Encabezados().size(), 4);
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{5513, 5514}));
  // Unless the two coincide.
  f.concepto = QStringLiteral("RENTA DEL LOCAL");
  emp->mensajes.respuestas = {RespuestaMensaje::Aceptar};
  EXPECT_EQ(EliminarPolizas(*con, f), 1);
}

TEST_P(Eliminacion, ReversedDatesFindNothingAndStillSayDone) {
  FiltroEliminacion f;
  f.del = QDate(2026, 11, 30);
  f.al = QDate(2026, 11, 1);
  emp->mensajes.respuestas = {RespuestaMensaje::Aceptar};
  EXPECT_EQ(EliminarPolizas(*con, f), 0);
  EXPECT_EQ(Encabezados().size(), 4);
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{5513, 5514}));
}

TEST_P(Eliminacion, CancellingTheQuestionDoesNothing) {
  emp->mensajes.respuestas = {RespuestaMensaje::Cancelar};
  EXPECT_EQ(EliminarPolizas(*con, Noviembre()), -1);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5513});
  EXPECT_TRUE(emp->grabadora.sentencias.isEmpty());
  EXPECT_EQ(Encabezados().size(), 4);
}

TEST_P(Eliminacion, AFolioWithAnApostropheIsDeletedWhole) {
  Poliza("D'1", "O", QDate(2026, 11, 5), 24, "OTRO");
  FiltroEliminacion f = Noviembre();
  f.tipo = QStringLiteral("O");
  EXPECT_EQ(FoliosAEliminar(*con, f), QStringList{QStringLiteral("D'1")});
  EXPECT_EQ(EliminarFolios(*con, FoliosAEliminar(*con, f)), 1);
  EXPECT_FALSE(Encabezados().contains(QStringLiteral("O|D'1")));
  EXPECT_FALSE(Renglones().contains(QStringLiteral("O|D'1")));
}

INSTANTIATE_TEST_SUITE_P(Motores, Eliminacion, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
