#include "config/Reglas.h"
#include "Apoyo.h"
#include "shell/ErrorFatal.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>

namespace {

class TablasDeReglas : public testing::TestWithParam<std::string> {
protected:
  TablasDeReglas() : emp(GetParam()), con(emp.Abrir()) {}

  void Sql(const QString &sql) { con->Ejecutar(sql); }
  void Olvidar() { emp.grabadora.sentencias.clear(); }
  const QStringList &Sentencias() const { return emp.grabadora.sentencias; }

  static ReglaPosteo Regla(int modulo, int oper, const char *concepto, const char *tipo = "D",
                           int frec = 1, int diario = 0) {
    ReglaPosteo r;
    r.MODULO = modulo;
    r.COD_OPER = oper;
    r.CONCEPTO = QLatin1String(concepto);
    r.TIP_POLIZA = QLatin1String(tipo);
    r.FREC = frec;
    r.DIARIO = diario;
    return r;
  }

  static RubroOperacion Fila(int codPol, int dato, const char *rubroDebe, const char *rubroHaber) {
    RubroOperacion f;
    f.COD_POL = codPol;
    f.COD_DATO = dato;
    f.RUBRO_DEBE = QLatin1String(rubroDebe);
    f.RUBRO_HABER = QLatin1String(rubroHaber);
    f.CUENTA_DEBE = f.RUBRO_DEBE.isEmpty() ? QString() : QStringLiteral("C") + f.RUBRO_DEBE;
    f.CUENTA_HABER = f.RUBRO_HABER.isEmpty() ? QString() : QStringLiteral("C") + f.RUBRO_HABER;
    f.COD_DIARIO = QStringLiteral("D");
    f.TXT_CONC = QStringLiteral("PAPELERIA");
    f.COD_OPER = 22;
    return f;
  }

  void Rubro(const char *cod, const char *des, const char *cuenta, const char *ultimo = "S") {
    Sql(QStringLiteral("INSERT INTO tblCatRubros (COD_RUBRO,DES_RUBRO,CUENTA_RUBRO,ULTIMO_RUBRO,"
                       "CLASIF_RUBRO,SUB_RUBRO) VALUES ('%1','%2','%3','%4','S',0)")
            .arg(QLatin1String(cod), QString::fromUtf8(des), QLatin1String(cuenta),
                 QLatin1String(ultimo)));
  }

  EmpresaPrueba emp;
  ConexionPtr con;
};

// ------------------------------------------------------------------ numbers of rules

TEST_P(TablasDeReglas, TheFirstRuleOfAnEmptyTableGetsNumberOne) {
  Olvidar();
  EXPECT_EQ(CrearRegla(*con, Regla(6, 22, "PAP", "E", 1, 3)), 1);
  EXPECT_EQ(Sentencias(),
            QStringList({QStringLiteral("SELECT MAX(COD_POL) AS CODMAX FROM tblOperacionxConcep "),
                         QStringLiteral("INSERT INTO tblOperacionxConcep (COD_POL, COD_OPER, "
                                        "MODULO, CONCEPTO, TIP_POLIZA, STS_POLIZA, FREC, DIARIO) "
                                        "VALUES (1,22,6,'PAP','E','D',1, 3);")}));
  EXPECT_EQ(emp.Valor(QStringLiteral("SELECT COUNT(*) FROM tblOperacionxConcep WHERE COD_POL=1 "
                                     "AND COD_OPER=22 AND MODULO=6 AND CONCEPTO='PAP' AND "
                                     "TIP_POLIZA='E' AND STS_POLIZA='D' AND FREC=1 AND DIARIO=3")),
            QStringLiteral("1"));
}

TEST_P(TablasDeReglas, TheNextNumberIsTheGreatestPlusOne) {
  EXPECT_EQ(CrearRegla(*con, Regla(6, 22, "PAP")), 1);
  EXPECT_EQ(CrearRegla(*con, Regla(6, 22, "LUZ")), 2);
  EXPECT_EQ(CrearRegla(*con, Regla(1, 1, "")), 3);
  EXPECT_EQ(SiguienteCodPol(*con), 4);
}

TEST_P(TablasDeReglas, TheNumberOfADeletedGreatestRuleIsTakenAgain) {
  CrearRegla(*con, Regla(6, 22, "PAP"));
  CrearRegla(*con, Regla(6, 22, "LUZ"));
  CrearRegla(*con, Regla(1, 1, ""));
  BorrarRegla(*con, 3);
  EXPECT_EQ(CrearRegla(*con, Regla(1, 2, "")), 3);
}

TEST_P(TablasDeReglas, ANumberDeletedBelowTheGreatestIsNotTakenAgain) {
  CrearRegla(*con, Regla(6, 22, "PAP"));
  CrearRegla(*con, Regla(6, 22, "LUZ"));
  BorrarRegla(*con, 1);
  EXPECT_EQ(CrearRegla(*con, Regla(1, 1, "")), 3);
}

TEST_P(TablasDeReglas, ANullGreatestGivesNumberOne) {
  Sql(QStringLiteral("INSERT INTO tblOperacionxConcep (COD_OPER,MODULO,CONCEPTO) VALUES "
                     "(22,6,'X')"));
  EXPECT_EQ(SiguienteCodPol(*con), 1);
}

// ------------------------------------------------------------------ rules

TEST_P(TablasDeReglas, ARuleWithoutCatalogueHasTheEmptyConceptAndIsFoundByIt) {
  EXPECT_EQ(CrearRegla(*con, Regla(1, 1, "")), 1);
  Olvidar();
  EXPECT_EQ(BuscarRegla(*con, 1, 1, QString()), std::optional<int>(1));
  EXPECT_EQ(Sentencias(),
            QStringList(QStringLiteral("SELECT COD_POL FROM tblOperacionxConcep WHERE MODULO=1 AND "
                                       "COD_OPER=1 AND CONCEPTO=''")));
  EXPECT_EQ(emp.Valor(QStringLiteral("SELECT COUNT(*) FROM tblOperacionxConcep WHERE "
                                     "CONCEPTO=''")),
            QStringLiteral("1"));
  EXPECT_FALSE(BuscarRegla(*con, 1, 2, QString()).has_value());
  EXPECT_FALSE(BuscarRegla(*con, 2, 1, QString()).has_value());
}

TEST_P(TablasDeReglas, TheDefinitionScreenReadsNumberTypeAndFrequency) {
  CrearRegla(*con, Regla(6, 22, "PAP", "E", 2, 3));
  Olvidar();
  const std::optional<ReglaPosteo> r = LeerRegla(*con, 6, 22, QStringLiteral("PAP"));
  ASSERT_TRUE(r.has_value());
  EXPECT_EQ(r->COD_POL, 1);
  EXPECT_EQ(r->TIP_POLIZA, QStringLiteral("E"));
  EXPECT_EQ(r->FREC, 2);
  EXPECT_EQ(Sentencias(), QStringList(QStringLiteral(
                              "SELECT COD_POL, TIP_POLIZA, FREC FROM tblOperacionxConcep WHERE "
                              "MODULO=6 AND COD_OPER=22 AND CONCEPTO='PAP'")));
  EXPECT_FALSE(LeerRegla(*con, 6, 22, QStringLiteral("LUZ")).has_value());
}

TEST_P(TablasDeReglas, AJournalTypeThatVanishedGivesDiarioZero) {
  Sql(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM) VALUES "
                     "('E','EGRESOS','7',2)"));
  Olvidar();
  EXPECT_EQ(DiarioDeFolio(*con, QStringLiteral("E")), 2);
  EXPECT_EQ(DiarioDeFolio(*con, QStringLiteral("X")), 0);
  EXPECT_EQ(Sentencias(),
            QStringList({QStringLiteral("SELECT COD_NUM FROM tblFolios WHERE COD_FOLIO='E'"),
                         QStringLiteral("SELECT COD_NUM FROM tblFolios WHERE COD_FOLIO='X'")}));
  ReglaPosteo r = Regla(6, 22, "PAP", "X", 1, DiarioDeFolio(*con, QStringLiteral("X")));
  CrearRegla(*con, r);
  EXPECT_EQ(emp.Valor(QStringLiteral("SELECT DIARIO FROM tblOperacionxConcep WHERE COD_POL=1")),
            QStringLiteral("0"));
}

TEST_P(TablasDeReglas, SavingARuleAgainKeepsItsNumberAndReplacesItsRows) {
  CrearRegla(*con, Regla(6, 22, "PAP", "D", 1, 3));
  InsertarRubroDeRegla(*con, Fila(1, 68, "6-01-06", ""));
  InsertarRubroDeRegla(*con, Fila(1, 71, "", "1-01-01"));
  Olvidar();

  ReglaPosteo cambiada = Regla(6, 22, "PAP", "E", 2, 2);
  cambiada.COD_POL = 1;
  BorrarRubrosDeRegla(*con, 1);
  ActualizarRegla(*con, cambiada);
  InsertarRubroDeRegla(*con, Fila(1, 68, "6-01-07", ""));
  EXPECT_EQ(
      Sentencias(),
      QStringList({QStringLiteral("DELETE FROM tblRubrosxOperacion WHERE COD_POL=1;"),
                   QStringLiteral("UPDATE tblOperacionxConcep SET TIP_POLIZA='E', STS_POLIZA='D', "
                                  "FREC=2, DIARIO=2 WHERE COD_POL=1;"),
                   QStringLiteral("INSERT INTO tblRubrosxOperacion (COD_DATO, CUENTA_DEBE, "
                                  "CUENTA_HABER, COD_POL, PORCENTAJE, TIPO_MOV, CONC_MOV, "
                                  "SUPR_CERO, COD_REF, TXT_REF, COD_DIARIO, TXT_DIARIO, COD_CONC, "
                                  "TXT_CONC, SEG_NEG, NUM_SEG, RUBRO_DEBE, RUBRO_HABER, COD_OPER) "
                                  "VALUES (68,'C6-01-07','',1,0,0,0,0,0,'','D','',0,'PAPELERIA',0,"
                                  "0,'6-01-07','',22 );")}));
  EXPECT_EQ(emp.Valor(QStringLiteral("SELECT COUNT(*) FROM tblOperacionxConcep WHERE COD_POL=1 "
                                     "AND MODULO=6 AND COD_OPER=22 AND CONCEPTO='PAP' AND "
                                     "TIP_POLIZA='E' AND FREC=2 AND DIARIO=2")),
            QStringLiteral("1"));
  const std::vector<RubroOperacion> filas = RubrosDeRegla(*con, 1);
  ASSERT_EQ(filas.size(), 1u);
  EXPECT_EQ(filas[0].RUBRO_DEBE, QStringLiteral("6-01-07"));
}

TEST_P(TablasDeReglas, TheTextOfARowIsCutAtThirtyCharacters) {
  RubroOperacion f = Fila(4, 202, "1-01-02-01", "");
  f.TXT_CONC = QStringLiteral("DEPÓSITOS DE LA COBRANZA DEL DÍA EN BANCO");
  Olvidar();
  InsertarRubroDeRegla(*con, f);
  EXPECT_EQ(Sentencias().first(),
            QStringLiteral("INSERT INTO tblRubrosxOperacion (COD_DATO, CUENTA_DEBE, "
                           "CUENTA_HABER, COD_POL, PORCENTAJE, TIPO_MOV, CONC_MOV, "
                           "SUPR_CERO, COD_REF, TXT_REF, COD_DIARIO, TXT_DIARIO, COD_CONC, "
                           "TXT_CONC, SEG_NEG, NUM_SEG, RUBRO_DEBE, RUBRO_HABER, COD_OPER) "
                           "VALUES (202,'C1-01-02-01','',4,0,0,0,0,0,'','D','',0,'DEPÓSITOS DE "
                           "LA COBRANZA DEL D',0,0,'1-01-02-01','',22 );"));
  EXPECT_EQ(RubrosDeDefinicion(*con, 4).at(0).TXT_CONC,
            QStringLiteral("DEPÓSITOS DE LA COBRANZA DEL D"));
}

TEST_P(TablasDeReglas, DeletingARuleDeletesTheRuleFirstAndItsRowsSecond) {
  CrearRegla(*con, Regla(6, 22, "PAP"));
  InsertarRubroDeRegla(*con, Fila(1, 68, "6-01-06", ""));
  Olvidar();
  BorrarRegla(*con, 1);
  EXPECT_EQ(Sentencias(),
            QStringList({QStringLiteral("DELETE FROM tblOperacionxConcep WHERE COD_POL=1;"),
                         QStringLiteral("DELETE FROM tblRubrosxOperacion WHERE COD_POL=1;")}));
  EXPECT_EQ(emp.Contar(QStringLiteral("tblOperacionxConcep")), 0);
  EXPECT_EQ(emp.Contar(QStringLiteral("tblRubrosxOperacion")), 0);
}

TEST_P(TablasDeReglas, TheDefinitionScreenReadsTheRowsWithTheirText) {
  InsertarRubroDeRegla(*con, Fila(1, 68, "6-01-06", ""));
  InsertarRubroDeRegla(*con, Fila(1, 71, "", "1-01-01"));
  InsertarRubroDeRegla(*con, Fila(2, 12, "1-01-03", ""));
  Olvidar();
  const std::vector<RubroOperacion> filas = RubrosDeDefinicion(*con, 1);
  EXPECT_EQ(Sentencias(), QStringList(QStringLiteral(
                              "SELECT COD_DATO, TXT_CONC, RUBRO_DEBE, RUBRO_HABER, CUENTA_DEBE, "
                              "CUENTA_HABER FROM tblRubrosxOperacion WHERE COD_POL=1")));
  ASSERT_EQ(filas.size(), 2u);
  int conHaber = filas[0].COD_DATO == 71 ? 0 : 1;
  EXPECT_EQ(filas[static_cast<std::size_t>(conHaber)].RUBRO_HABER, QStringLiteral("1-01-01"));
  EXPECT_EQ(filas[static_cast<std::size_t>(conHaber)].CUENTA_HABER, QStringLiteral("C1-01-01"));
  EXPECT_EQ(filas[static_cast<std::size_t>(conHaber)].TXT_CONC, QStringLiteral("PAPELERIA"));
}

// ------------------------------------------------------------------ what the run reads

TEST_P(TablasDeReglas, TheRowsOfARuleComeInTheOrderOfTheirCreation) {
  InsertarRubroDeRegla(*con, Fila(1, 204, "", "1-01-01"));
  InsertarRubroDeRegla(*con, Fila(1, 68, "6-01-06", ""));
  InsertarRubroDeRegla(*con, Fila(2, 1, "1-01-01", ""));
  InsertarRubroDeRegla(*con, Fila(1, 120, "5-01", "1-01-05"));
  Olvidar();
  const std::vector<RubroOperacion> filas = RubrosDeRegla(*con, 1);
  EXPECT_EQ(Sentencias(),
            QStringList(QStringLiteral("SELECT * FROM tblRubrosxOperacion WHERE COD_POL=1 ORDER BY "
                                       "ORDEN_CREA;")));
  ASSERT_EQ(filas.size(), 3u);
  EXPECT_EQ(filas[0].COD_DATO, 204);
  EXPECT_EQ(filas[0].RUBRO_DEBE, QString());
  EXPECT_EQ(filas[0].RUBRO_HABER, QStringLiteral("1-01-01"));
  EXPECT_EQ(filas[1].COD_DATO, 68);
  EXPECT_EQ(filas[1].CUENTA_DEBE, QStringLiteral("C6-01-06"));
  EXPECT_EQ(filas[2].COD_DATO, 120);
  EXPECT_EQ(filas[2].RUBRO_DEBE, QStringLiteral("5-01"));
  EXPECT_EQ(filas[2].CUENTA_HABER, QStringLiteral("C1-01-05"));
}

TEST_P(TablasDeReglas, ARubroThatIsNoLongerLastKeepsWorkingWithItsStoredAccount) {
  Rubro("6-01-06", "PAPELERÍA", "6106-NUEVA", "N");
  InsertarRubroDeRegla(*con, Fila(1, 68, "6-01-06", ""));
  // Generation posts the account stored in the rule and doesn't look at the flag.
  EXPECT_EQ(RubrosDeRegla(*con, 1).at(0).CUENTA_DEBE, QStringLiteral("C6-01-06"));
  // The definition screen still shows it; only the lists of selectable rubros drop it.
  EXPECT_EQ(DescripcionDeRubro(*con, QStringLiteral("6-01-06")),
            std::optional<QString>(QStringLiteral("PAPELERÍA")));
  EXPECT_FALSE(RubroSeleccionable(*con, QStringLiteral("6-01-06")).has_value());
  // A rubro that has vanished shows as an empty cell.
  EXPECT_FALSE(DescripcionDeRubro(*con, QStringLiteral("6-01-99")).has_value());
}

TEST_P(TablasDeReglas, TheRulesOfAnOperationComeByConceptWithoutTheirModule) {
  CrearRegla(*con, Regla(6, 22, "RENT", "E", 1));
  CrearRegla(*con, Regla(7, 22, "LUZ", "D", 2));
  CrearRegla(*con, Regla(6, 30, "AGUA", "D", 1));
  Olvidar();
  const std::vector<ReglaPosteo> reglas = ReglasDeOperacion(*con, 22);
  EXPECT_EQ(Sentencias(), QStringList(QStringLiteral(
                              "SELECT * FROM tblOperacionxConcep WHERE COD_OPER=22 ORDER BY "
                              "COD_OPER,CONCEPTO;")));
  ASSERT_EQ(reglas.size(), 2u);
  EXPECT_EQ(reglas[0].CONCEPTO, QStringLiteral("LUZ"));
  EXPECT_EQ(reglas[0].COD_POL, 2);
  EXPECT_EQ(reglas[0].TIP_POLIZA, QStringLiteral("D"));
  EXPECT_EQ(reglas[0].FREC, 2);
  EXPECT_EQ(reglas[0].MODULO, 0);
  EXPECT_EQ(reglas[1].CONCEPTO, QStringLiteral("RENT"));
  EXPECT_EQ(reglas[1].COD_POL, 1);
}

TEST_P(TablasDeReglas, GeneraConReadsAnyNonZeroAsTrue) {
  Sql(QStringLiteral("INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,GENERA_CON) VALUES "
                     "(22,'GASTOS',6,-1)"));
  Sql(QStringLiteral("INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,GENERA_CON) VALUES "
                     "(24,'INGRESOS',8,1)"));
  Sql(QStringLiteral("INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,GENERA_CON) VALUES "
                     "(1,'VENTAS',1,0)"));
  Olvidar();
  EXPECT_TRUE(GeneraConcepto(*con, 22));
  EXPECT_TRUE(GeneraConcepto(*con, 24));
  EXPECT_FALSE(GeneraConcepto(*con, 1));
  EXPECT_EQ(Sentencias().first(),
            QStringLiteral("SELECT GENERA_CON FROM tblCatOperaciones WHERE COD_OPER=22;"));
}

TEST_P(TablasDeReglas, AnOperationMissingFromTheCatalogueEndsTheProcess) {
  try {
    GeneraConcepto(*con, 31);
    FAIL() << "expected a fatal error";
  } catch (const ErrorFatal &e) {
    EXPECT_EQ(e.Sentencia(),
              QStringLiteral("SELECT GENERA_CON FROM tblCatOperaciones WHERE COD_OPER=31;"));
  }
}

TEST_P(TablasDeReglas, ADatumGivesItsDescriptionAndDictionaryField) {
  Sql(QStringLiteral("INSERT INTO tblDatosxOperacion (COD_DATO,DES_DATO,COD_OPER,CAMPO_ESTBD) "
                     "VALUES (68,'IMPORTE DEL GASTO',22,3)"));
  Olvidar();
  const std::optional<DatoOperacion> d = LeerDato(*con, 68);
  ASSERT_TRUE(d.has_value());
  EXPECT_EQ(d->DES_DATO, QStringLiteral("IMPORTE DEL GASTO"));
  EXPECT_EQ(d->CAMPO_ESTBD, 3);
  EXPECT_FALSE(LeerDato(*con, 69).has_value());
  EXPECT_EQ(Sentencias(),
            QStringList({QStringLiteral("SELECT DES_DATO,CAMPO_ESTBD FROM tblDatosxOperacion "
                                        "WHERE COD_DATO=68;"),
                         QStringLiteral("SELECT DES_DATO,CAMPO_ESTBD FROM tblDatosxOperacion "
                                        "WHERE COD_DATO=69;")}));
}

// ------------------------------------------------------------------ rubros

TEST_P(TablasDeReglas, TheAccountOfARubroIsReadWhateverItsLevel) {
  Rubro("1-01-02", "BANCOS", "1102-000", "N");
  Olvidar();
  EXPECT_EQ(CuentaDeRubro(*con, QStringLiteral("1-01-02")),
            std::optional<QString>(QStringLiteral("1102-000")));
  EXPECT_FALSE(CuentaDeRubro(*con, QStringLiteral("1-01-09")).has_value());
  EXPECT_EQ(Sentencias().first(),
            QStringLiteral("SELECT CUENTA_RUBRO FROM tblCatRubros WHERE COD_RUBRO='1-01-02';"));
}

TEST_P(TablasDeReglas, SelectableRubrosAreTheLastOnesByDescription) {
  Rubro("6-01", "GASTOS", "6100", "N");
  Rubro("6-01-07", "TELÉFONO", "6107");
  Rubro("6-01-06", "PAPELERÍA", "6106");
  Rubro("1-01-01", "CAJA", "1101");
  Olvidar();
  const std::vector<RubroCatalogo> rubros = RubrosSeleccionables(*con);
  EXPECT_EQ(Sentencias(), QStringList(QStringLiteral(
                              "SELECT COD_RUBRO,DES_RUBRO, CUENTA_RUBRO FROM tblCatRubros WHERE "
                              "ULTIMO_RUBRO='S' ORDER BY DES_RUBRO")));
  ASSERT_EQ(rubros.size(), 3u);
  EXPECT_EQ(rubros[0].COD_RUBRO, QStringLiteral("1-01-01"));
  EXPECT_EQ(rubros[1].DES_RUBRO, QStringLiteral("PAPELERÍA"));
  EXPECT_EQ(rubros[2].CUENTA_RUBRO, QStringLiteral("6107"));
}

TEST_P(TablasDeReglas, ATypedRubroIsSoughtByCodeThenAccountThenDescription) {
  Rubro("6-01-06", "PAPELERÍA", "6106");
  Rubro("6-01-07", "TELÉFONO", "6107");
  Olvidar();
  EXPECT_EQ(BuscarRubroSeleccionable(*con, QStringLiteral("6-01-07"))->DES_RUBRO,
            QStringLiteral("TELÉFONO"));
  EXPECT_EQ(Sentencias().size(), 1);
  Olvidar();
  EXPECT_EQ(BuscarRubroSeleccionable(*con, QStringLiteral("6106"))->COD_RUBRO,
            QStringLiteral("6-01-06"));
  EXPECT_EQ(Sentencias().size(), 2);
  Olvidar();
  EXPECT_EQ(BuscarRubroSeleccionable(*con, QStringLiteral("TEL"))->CUENTA_RUBRO,
            QStringLiteral("6107"));
  EXPECT_EQ(Sentencias(),
            QStringList({QStringLiteral("SELECT COD_RUBRO, DES_RUBRO,CUENTA_RUBRO FROM "
                                        "tblCatRubros WHERE COD_RUBRO='TEL'  AND ULTIMO_RUBRO='S'"),
                         QStringLiteral("SELECT COD_RUBRO, DES_RUBRO, CUENTA_RUBRO FROM "
                                        "tblCatRubros WHERE CUENTA_RUBRO='TEL'  AND "
                                        "ULTIMO_RUBRO='S'"),
                         QStringLiteral("SELECT COD_RUBRO, DES_RUBRO, CUENTA_RUBRO FROM "
                                        "tblCatRubros WHERE DES_RUBRO LIKE 'TEL%'  AND "
                                        "ULTIMO_RUBRO='S'")}));
  EXPECT_FALSE(BuscarRubroSeleccionable(*con, QStringLiteral("ZZ")).has_value());
}

// ------------------------------------------------------------------ journal types

TEST_P(TablasDeReglas, JournalTypesAreReadAndWrittenAsTyped) {
  Sql(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM) VALUES "
                     "('D','DIARIO','00000000012',3)"));
  Olvidar();
  const std::vector<TipoPoliza> tipos = LeerTiposPoliza(*con);
  ASSERT_EQ(tipos.size(), 1u);
  EXPECT_EQ(tipos[0].COD_FOLIO, QStringLiteral("D"));
  EXPECT_EQ(tipos[0].DES_FOLIO, QStringLiteral("DIARIO"));
  EXPECT_EQ(tipos[0].FOL_FOLIOS, QStringLiteral("00000000012"));
  EXPECT_EQ(tipos[0].COD_NUM, QStringLiteral("3"));
  // A number typed isn't padded.
  EXPECT_TRUE(
      GrabarTipoPoliza(*con, QStringLiteral("D"), QStringLiteral("5"), QStringLiteral("7")));
  EXPECT_EQ(
      Sentencias(),
      QStringList({QStringLiteral("SELECT COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM FROM tblFolios;"),
                   QStringLiteral("SELECT COD_FOLIO FROM tblFolios WHERE COD_FOLIO='D';"),
                   QStringLiteral("UPDATE tblFolios SET FOL_FOLIOS='5',COD_NUM=7 WHERE "
                                  "(COD_FOLIO='D');")}));
  EXPECT_EQ(emp.Valor(QStringLiteral("SELECT FOL_FOLIOS FROM tblFolios")), QStringLiteral("5"));
}

TEST_P(TablasDeReglas, AJournalTypeThatVanishedIsPassedOverWithoutAWord) {
  Olvidar();
  EXPECT_FALSE(
      GrabarTipoPoliza(*con, QStringLiteral("Z"), QStringLiteral("5"), QStringLiteral("7")));
  EXPECT_EQ(Sentencias(),
            QStringList(QStringLiteral("SELECT COD_FOLIO FROM tblFolios WHERE COD_FOLIO='Z';")));
  EXPECT_TRUE(emp.mensajes.mostrados.empty());
}

TEST_P(TablasDeReglas, AnEmptyNumericCodeBreaksTheStatement) {
  Sql(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM) VALUES "
                     "('D','DIARIO','1',3)"));
  try {
    GrabarTipoPoliza(*con, QStringLiteral("D"), QStringLiteral("5"), QString());
    FAIL() << "expected a fatal error";
  } catch (const ErrorFatal &e) {
    EXPECT_EQ(
        e.Sentencia(),
        QStringLiteral("UPDATE tblFolios SET FOL_FOLIOS='5',COD_NUM= WHERE (COD_FOLIO='D');"));
  }
}

// ------------------------------------------------------------------ bank accounts

TEST_P(TablasDeReglas, ABankAccountNamesItsRubro) {
  Sql(QStringLiteral("INSERT INTO tblCatCtasBancos (COD_RUBRO,NUM_CUENTA) VALUES "
                     "('1-01-02-01','0112233445')"));
  Olvidar();
  EXPECT_EQ(RubroDeCuentaBancaria(*con, QStringLiteral("0112233445")),
            std::optional<QString>(QStringLiteral("1-01-02-01")));
  EXPECT_FALSE(RubroDeCuentaBancaria(*con, QStringLiteral("999")).has_value());
  EXPECT_TRUE(RubroTieneCuentaBancaria(*con, QStringLiteral("1-01-02-01")));
  EXPECT_FALSE(RubroTieneCuentaBancaria(*con, QStringLiteral("1-01-02-02")));
  EXPECT_EQ(Sentencias(),
            QStringList({QStringLiteral("SELECT COD_RUBRO FROM tblCatCtasBancos WHERE "
                                        "NUM_CUENTA='0112233445';"),
                         QStringLiteral("SELECT COD_RUBRO FROM tblCatCtasBancos WHERE "
                                        "NUM_CUENTA='999';"),
                         QStringLiteral("SELECT COD_RUBRO FROM tblCatCtasBancos WHERE "
                                        "COD_RUBRO='1-01-02-01'"),
                         QStringLiteral("SELECT COD_RUBRO FROM tblCatCtasBancos WHERE "
                                        "COD_RUBRO='1-01-02-02'")}));
}

INSTANTIATE_TEST_SUITE_P(Motores, TablasDeReglas, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);

} // namespace

// ------------------------------------------------------------ concept catalogues

TEST(CatalogoDeConceptos, EachOperationListsItsConceptsToTheLetter) {
  const std::pair<int, const char *> listas[] = {
      {3, "SELECT COD_CIE, DES_CIE FROM tblConceptoIE WHERE COD_CON = 'IEFE' ORDER BY COD_CIE"},
      {4, "SELECT COD_CIE, DES_CIE FROM tblConceptoIE WHERE COD_CON = 'RCAJ' ORDER BY COD_CIE"},
      {5, "SELECT COD_SER, DES_SER FROM tblServicios ORDER BY COD_SER"},
      {6, "SELECT COD_CON, DES_CON FROM tblConceptos WHERE TIP_MOV = 'ACLI' ORDER BY COD_CON"},
      {7, "SELECT COD_CON, DES_CON FROM tblConceptos WHERE TIP_MOV = 'CCLI' ORDER BY COD_CON"},
      {10, "SELECT COD_CON, DES_CON FROM tblConceptos WHERE TIP_MOV = 'EALM' ORDER BY COD_CON"},
      {11, "SELECT COD_CON, DES_CON FROM tblConceptos WHERE TIP_MOV = 'SALM' ORDER BY COD_CON"},
      {19, "SELECT COD_CAR, DES_CAR FROM tblCargosEnCompras ORDER BY COD_CAR"},
      {20, "SELECT COD_CON, DES_CON FROM tblConceptosCom WHERE COD_FOL = 'ACXP' ORDER BY COD_CON"},
      {21, "SELECT COD_CON, DES_CON FROM tblConceptosCom WHERE COD_FOL = 'CCXP' ORDER BY COD_CON"},
      {22, "SELECT COD_CON, DES_CON FROM tblConceptosGyT WHERE COD_FOL = 'GTOS' ORDER BY COD_CON"},
      {23, "SELECT COD_CON, DES_CON FROM tblConceptosGyT WHERE COD_FOL = 'GTOS' ORDER BY COD_CON"},
      {24, "SELECT COD_CON, DES_CON FROM tblConceptosGyT WHERE COD_FOL = 'INGR' ORDER BY COD_CON"},
      {25, "SELECT COD_CON, DES_CON FROM tblConceptosGyT WHERE COD_FOL = 'EGRE' AND  COD_CON <> "
           "'CHQE' ORDER BY COD_CON"},
      {30, "SELECT COD_CON, DES_CON FROM tblConceptosGyT WHERE COD_FOL = 'AACR' ORDER BY COD_CON"},
  };
  for (int oper = 0; oper <= 31; ++oper) {
    const CatalogoConceptos *c = CatalogoDeConceptos(oper);
    const auto lista = std::find_if(std::begin(listas), std::end(listas),
                                    [&](const auto &l) { return l.first == oper; });
    if (lista == std::end(listas)) {
      EXPECT_EQ(c, nullptr) << oper;
      continue;
    }
    ASSERT_NE(c, nullptr) << oper;
    EXPECT_EQ(ListaDeConceptos(*c), QLatin1String(lista->second)) << oper;
  }
  EXPECT_EQ(ListaDeConceptos(*CatalogoDeConceptos(5), "1=1"),
            QStringLiteral("SELECT COD_SER, DES_SER FROM tblServicios WHERE 1=1 ORDER BY COD_SER"));
  EXPECT_EQ(ListaDeConceptos(*CatalogoDeConceptos(6), "1=1"),
            QStringLiteral("SELECT COD_CON, DES_CON FROM tblConceptos WHERE TIP_MOV = 'ACLI' "
                           "ORDER BY COD_CON"));
}
