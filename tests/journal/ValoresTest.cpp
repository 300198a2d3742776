#include "journal/Valores.h"
#include "CorridaPrueba.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <gtest/gtest.h>

namespace {

const QString kDia = QStringLiteral("'2024-03-05'");

class Valores : public testing::TestWithParam<std::string> {
protected:
  Valores() : p(GetParam()) {}

  // Puts a rule in work with one row, reads its documents, and forgets the statements.
  int Caso(int oper, int dato, const QString &concepto = {}, int frec = 1, int modulo = 1,
           const QString &debe = QStringLiteral("1-01-01"), const QString &haber = {}) {
    p.Regla(oper, concepto, frec, modulo);
    const int i = p.Renglon(dato, debe, haber);
    LeerDocumentos(p.c);
    p.Olvidar();
    return i;
  }

  // ---- sales: V-1 and V-2 on March 5th, cash; V-9 on credit
  void Ventas() {
    Sql("INSERT INTO tblGralVentas (REF_DOC,FEC_DOC,CREDITO,STS_DOC,SUB_DOC,IMPTO_INT) VALUES "
        "('V-1','2024-03-05',0,1,100,16)");
    Sql("INSERT INTO tblGralVentas (REF_DOC,FEC_DOC,CREDITO,STS_DOC,SUB_DOC,IMPTO_INT) VALUES "
        "('V-2','2024-03-05',0,1,50,8)");
    Sql("INSERT INTO tblGralVentas (REF_DOC,FEC_DOC,CREDITO,STS_DOC,SUB_DOC,IMPTO_INT) VALUES "
        "('V-9','2024-03-05',1,1,1000,160)");
    // Article, quantity, price, sale cost, exchange rate, FIFO cost, two tax slots.
    Linea("V-1", "A", "2", "25", "10", "1", "9", 1, "8", 2, "4");
    Linea("V-1", "B", "1", "50", "20", "1", "18", 0, "0", 0, "0");
    Linea("V-1", "C", "1", "30", "12", "1", "11", 2, "2.4", 1, "0");
    Linea("V-2", "A", "1", "25", "10", "1", "9", 1, "4", 0, "0");
    Linea("V-9", "A", "10", "25", "10", "1", "90", 1, "40", 0, "0");
  }
  void Linea(const char *ref, const char *art, const char *can, const char *precio,
             const char *costo, const char *tc, const char *peps, int imp1, const char *reg1,
             int imp2, const char *reg2) {
    Sql(QStringLiteral("INSERT INTO tblRenVentas (REF_DOC,COD1_ART,CAN_ART,PCIO_VEN,COS_VEN,"
                       "TIP_CAM,COS_PEPS,COD1_IMP,IMP1_REG,COD2_IMP,IMP2_REG) VALUES ('%1','%2',"
                       "%3,%4,%5,%6,%7,%8,%9,%10,%11)")
            .arg(QLatin1String(ref), QLatin1String(art), QLatin1String(can), QLatin1String(precio),
                 QLatin1String(costo), QLatin1String(tc), QLatin1String(peps))
            .arg(imp1)
            .arg(QLatin1String(reg1))
            .arg(imp2)
            .arg(QLatin1String(reg2)));
  }
  void Impuestos() {
    for (int cod : {1, 2, 3})
      Sql(QStringLiteral("INSERT INTO tblImpuestos (COD_IMP,DES_IMP) VALUES (%1,'I')").arg(cod));
    CargarOperaciones(p.c);
  }

  // ---- treasury: I-1 and I-3 deposits on March 5th into two accounts, I-2 a cheque
  void Tesoreria() {
    Sql("INSERT INTO tblIngreEgre (FOL_MOV,FEC_MOV,CON_CEP,CON_GRL,COD_ESTATUS,TIPO_APN,NUM_CTA,"
        "IMP_MOV,TIP_CAM) VALUES ('I-1','2024-03-05','DEP','INGR',1,0,'0112233445',100,1.25)");
    Sql("INSERT INTO tblIngreEgre (FOL_MOV,FEC_MOV,CON_CEP,CON_GRL,COD_ESTATUS,TIPO_APN,NUM_CTA,"
        "IMP_MOV,TIP_CAM) VALUES ('I-3','2024-03-05','DEP','INGR',1,0,'0556677889',40,1)");
    Sql("INSERT INTO tblIngreEgre (FOL_MOV,FEC_MOV,CON_CEP,CON_GRL,COD_ESTATUS,TIPO_APN,NUM_CTA,"
        "IMP_MOV,TIP_CAM) VALUES ('I-2','2024-03-06','CHQE','EGRE',1,2,'0112233445',300,1)");
    Sql("INSERT INTO tblCatCtasBancos (COD_RUBRO,NUM_CUENTA) VALUES ('1-01-02-01','0112233445')");
    Sql("INSERT INTO tblCatCtasBancos (COD_RUBRO,NUM_CUENTA) VALUES ('1-01-02-02','0556677889')");
    Sql("INSERT INTO tblCatRubros (COD_RUBRO,DES_RUBRO,CUENTA_RUBRO,ULTIMO_RUBRO) VALUES "
        "('1-01-02-01','BBVA','1102-001','S')");
    Sql("INSERT INTO tblCatRubros (COD_RUBRO,DES_RUBRO,CUENTA_RUBRO,ULTIMO_RUBRO) VALUES "
        "('1-01-02-02','BANORTE','1102-002','S')");
  }

  void Sql(const char *sql) { p.Sql(QString::fromUtf8(sql)); }
  void Sql(const QString &sql) { p.Sql(sql); }

  const RenglonEnTrabajo &Ren(int n) { return p.c.Renglones.Filas().at(static_cast<size_t>(n)); }

  CorridaPrueba p;
};

// ------------------------------------------------------------------ sales: operations 1, 2

TEST_P(Valores, SaleTotalByDocument) {
  Ventas();
  const int i = Caso(1, 1);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-1")), D("116"));
  EXPECT_EQ(p.Sentencias(), QStringList(QStringLiteral(
                                "SELECT SUM(SUB_DOC+IMPTO_INT) AS TOTDAT FROM tblGralVentas WHERE "
                                "(CREDITO = 0 AND STS_DOC <> 4) AND tblGralVentas.REF_DOC='V-1'")));
}

TEST_P(Valores, SaleTotalByDayTakesEveryDocumentOfTheDay) {
  Ventas();
  const int i = Caso(2, 4, {}, 2);
  EXPECT_EQ(ResolverDato(p.c, i, kDia), D("1160"));
  const int j = Caso(1, 4, {}, 2);
  EXPECT_EQ(ResolverDato(p.c, j, kDia), D("174"));
  EXPECT_EQ(p.Sentencias(), QStringList(QStringLiteral(
                                "SELECT SUM(SUB_DOC+IMPTO_INT) AS TOTDAT FROM tblGralVentas WHERE "
                                "(CREDITO = 0 AND STS_DOC <> 4) AND "
                                "tblGralVentas.FEC_DOC='2024-03-05'")));
}

TEST_P(Valores, CashOfASaleReadsTheKeyWithoutItsTable) {
  Ventas();
  Sql("INSERT INTO tblAuxCaja (REF_DOC,FEC_DOC,CREDITO,STS_DOC,COD_FRP,IMP_MBA) VALUES "
      "('V-1','2024-03-05',0,1,1,100)");
  Sql("INSERT INTO tblAuxCaja (REF_DOC,FEC_DOC,CREDITO,STS_DOC,COD_FRP,IMP_MBA) VALUES "
      "('V-1','2024-03-05',0,1,5,16)");
  const int i = Caso(1, 97);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-1")), D("100"));
  EXPECT_EQ(p.Sentencias(), QStringList(QStringLiteral(
                                "SELECT SUM(IMP_MBA) AS TOTDAT FROM tblAuxCaja WHERE (COD_FRP<>5 "
                                "AND COD_FRP<>6) AND (CREDITO = 0 AND STS_DOC <> 4) AND "
                                "REF_DOC='V-1'")));
}

TEST_P(Valores, SaleCostJoinsTheLines) {
  Ventas();
  const int i = Caso(1, 109);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-1")), D("52"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(CAN_ART*COS_VEN*TIP_CAM) AS TOTDAT FROM tblRenVentas INNER JOIN "
                "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE (CREDITO = 0 "
                "AND STS_DOC <> 4) AND tblGralVentas.REF_DOC='V-1'")));
}

TEST_P(Valores, FifoCostHasNoFilterAndJoinsOnlyByDay) {
  Ventas();
  const int i = Caso(1, 129);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-1")), D("38"));
  EXPECT_EQ(p.Sentencias(), QStringList(QStringLiteral("SELECT SUM(COS_PEPS*TIP_CAM) AS TOTDAT "
                                                       "FROM tblRenVentas WHERE REF_DOC='V-1'")));
  const int j = Caso(1, 130, {}, 2);
  // No filter: the sale on credit of the same day counts too.
  EXPECT_EQ(ResolverDato(p.c, j, kDia), D("137"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(COS_PEPS*TIP_CAM) AS TOTDAT FROM tblRenVentas INNER JOIN "
                "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE "
                "tblGralVentas.FEC_DOC='2024-03-05'")));
}

TEST_P(Valores, TheUntaxedBaseLooksAtTheFirstSlotOnly) {
  Ventas();
  Impuestos();
  const int i = Caso(1, 80);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-1")), D("50"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas INNER JOIN "
                "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=0 "
                "AND (CREDITO = 0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='V-1'")));
}

TEST_P(Valores, ABaseOnTheSecondSlotCountsOnlyWhereThatSlotTaxedIt) {
  Ventas();
  Impuestos();
  // Article C carries tax 1 on its second slot without an amount: it isn't a base of it.
  const int i = Caso(1, 81);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-1")), D("50"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(
                {QStringLiteral("SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas INNER "
                                "JOIN tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC "
                                "WHERE COD1_IMP=1 AND (CREDITO = 0 AND STS_DOC <> 4) AND "
                                "tblRenVentas.REF_DOC='V-1'"),
                 QStringLiteral("SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas INNER "
                                "JOIN tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC "
                                "WHERE COD2_IMP=1 AND (CREDITO = 0 AND STS_DOC <> 4) AND "
                                "tblRenVentas.REF_DOC='V-1' AND IMP2_REG>0")}));
  // Tax 2: article C on the first slot, article A on the second.
  const int j = Caso(1, 92);
  EXPECT_EQ(ResolverDato(p.c, j, QStringLiteral("V-1")), D("80"));
}

TEST_P(Valores, TheTaxesOfASaleAddBothSlots) {
  Ventas();
  Impuestos();
  const int i = Caso(1, 84);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-1")), D("8"));
  EXPECT_EQ(
      p.Sentencias(),
      QStringList({QStringLiteral("SELECT SUM(IMP1_REG) AS SUMA FROM tblRenVentas INNER JOIN "
                                  "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC "
                                  "WHERE COD1_IMP=1 AND (CREDITO = 0 AND STS_DOC <> 4) AND "
                                  "tblRenVentas.REF_DOC='V-1'"),
                   QStringLiteral("SELECT SUM(IMP2_REG) AS SUMA FROM tblRenVentas INNER JOIN "
                                  "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC "
                                  "WHERE COD2_IMP=1 AND (CREDITO = 0 AND STS_DOC <> 4) AND "
                                  "tblRenVentas.REF_DOC='V-1'")}));
  const int j = Caso(1, 95);
  EXPECT_EQ(ResolverDato(p.c, j, QStringLiteral("V-1")), D("6.4"));
  const int k = Caso(1, 96);
  EXPECT_EQ(ResolverDato(p.c, k, QStringLiteral("V-1")), D("0"));
}

TEST_P(Valores, TheTaxesOfADayComeByItsDate) {
  Ventas();
  Impuestos();
  const int i = Caso(1, 94, {}, 2);
  EXPECT_EQ(ResolverDato(p.c, i, kDia), D("12"));
  EXPECT_EQ(p.Sentencias().first(),
            QStringLiteral("SELECT SUM(IMP1_REG) AS SUMA FROM tblRenVentas INNER JOIN "
                           "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE "
                           "COD1_IMP=1 AND (CREDITO = 0 AND STS_DOC <> 4) AND FEC_DOC = "
                           "'2024-03-05'"));
}

TEST_P(Valores, WithNoTaxRowsTheConditionsCompareWithZero) {
  Ventas();
  const int i = Caso(1, 83);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-1")), D("50"));
  EXPECT_TRUE(p.Sentencias().first().contains(QStringLiteral("WHERE COD1_IMP=0 AND")));
}

TEST_P(Valores, RoundingTiesGoEvenByRound2AndAwayByTheFormat) {
  Sql("INSERT INTO tblGralVentas (REF_DOC,FEC_DOC,CREDITO,STS_DOC,SUB_DOC,IMPTO_INT) VALUES "
      "('V-5','2024-03-05',0,1,0.125,0)");
  Linea("V-5", "A", "1", "0.125", "0", "1", "0", 1, "0.125", 0, "0");
  Impuestos();
  // The taxes go through the format "#,##0.00": 0.125 gives 0.13.
  const int i = Caso(1, 84);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-5")), D("0.13"));
  // Any other amount comes unrounded, and its line is rounded by Round2: 0.12.
  const int j = Caso(1, 1);
  const Dinero total = ResolverDato(p.c, j, QStringLiteral("V-5"));
  EXPECT_EQ(total, D("0.125"));
  AgregarRenglon(p.c, total, j, {total, Dinero()});
  EXPECT_EQ(Ren(0).IMP_DEBE, D("0.12"));
  EXPECT_EQ(Round2(D("0.125")), D("0.12"));
  EXPECT_EQ(D("0.125").Formato(u"#,##0.00"), QStringLiteral("0.13"));
}

TEST_P(Valores, ArticleSalesAddALineForEachArticle) {
  Ventas();
  const int i = Caso(1, 117);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-1")), D("130"));
  EXPECT_EQ(p.Sentencias(), QStringList(QStringLiteral(
                                "SELECT COD1_ART,SUM(CAN_ART * PCIO_VEN) AS SUMA FROM "
                                "tblRenVentas WHERE REF_DOC='V-1' GROUP BY COD1_ART ORDER BY "
                                "COD1_ART;")));
  ASSERT_EQ(p.c.Renglones.Cuenta(), 3);
  EXPECT_EQ(Ren(0).COD_DATO, 117);
  EXPECT_EQ(Ren(0).RUBRO_DEBE, QStringLiteral("1-01-01"));
  EXPECT_EQ(Ren(0).CUENTA_DEBE, QStringLiteral("C1-01-01"));
  EXPECT_EQ(Ren(0).IMP_DEBE, D("50"));
  EXPECT_EQ(Ren(1).IMP_DEBE, D("50"));
  EXPECT_EQ(Ren(2).IMP_DEBE, D("30"));
  EXPECT_EQ(Ren(2).IMP_HABER, D("0"));
  // The caller adds the line of the whole after the lines of the articles.
  AgregarRenglon(p.c, D("130"), i, {D("130"), Dinero()});
  EXPECT_EQ(p.c.Renglones.Cuenta(), 4);
  EXPECT_EQ(Ren(3).IMP_DEBE, D("130"));
}

TEST_P(Valores, ArticleCostsOfADayJoinTheHeader) {
  Ventas();
  const int i = Caso(1, 118, {}, 2, 1, {}, QStringLiteral("1-01-05"));
  // Every sale of the day, on credit too: the day isn't filtered here.
  EXPECT_EQ(ResolverDato(p.c, i, kDia), D("162"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT COD1_ART,SUM(CAN_ART * COS_VEN * TIP_CAM) AS SUMA FROM tblRenVentas "
                "INNER JOIN tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE "
                "FEC_DOC='2024-03-05' GROUP BY COD1_ART ORDER BY COD1_ART;")));
  ASSERT_EQ(p.c.Renglones.Cuenta(), 3);
  EXPECT_EQ(Ren(0).RUBRO_HABER, QStringLiteral("1-01-05"));
  EXPECT_EQ(Ren(0).IMP_HABER, D("130"));
  EXPECT_EQ(Ren(0).IMP_DEBE, D("0"));
}

TEST_P(Valores, FifoCostByArticleOfADayTakesTheFilter) {
  Ventas();
  const int i = Caso(1, 131, {}, 2, 1, QStringLiteral("5-01"), QStringLiteral("1-01-05"));
  EXPECT_EQ(ResolverDato(p.c, i, kDia), D("47"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT COD1_ART,SUM(COS_PEPS*TIP_CAM) AS SUMA FROM tblRenVentas INNER JOIN "
                "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE (CREDITO = 0 "
                "AND STS_DOC <> 4) AND FEC_DOC='2024-03-05' GROUP BY COD1_ART ORDER BY "
                "COD1_ART;")));
  // A row with both rubros gives one line with both sides.
  ASSERT_EQ(p.c.Renglones.Cuenta(), 3);
  EXPECT_EQ(Ren(0).IMP_DEBE, D("18"));
  EXPECT_EQ(Ren(0).IMP_HABER, D("18"));
  EXPECT_EQ(Ren(0).RUBRO_DEBE, QStringLiteral("5-01"));
  EXPECT_EQ(Ren(0).RUBRO_HABER, QStringLiteral("1-01-05"));
}

TEST_P(Valores, ANullSumStopsTheArticleReading) {
  Sql("INSERT INTO tblGralVentas (REF_DOC,FEC_DOC,CREDITO,STS_DOC,SUB_DOC,IMPTO_INT) VALUES "
      "('V-6','2024-03-05',0,1,0,0)");
  Sql("INSERT INTO tblRenVentas (REF_DOC,COD1_ART,COS_PEPS,TIP_CAM) VALUES ('V-6','A',5,1)");
  Sql("INSERT INTO tblRenVentas (REF_DOC,COD1_ART,COS_PEPS,TIP_CAM) VALUES ('V-6','N',NULL,1)");
  Sql("INSERT INTO tblRenVentas (REF_DOC,COD1_ART,COS_PEPS,TIP_CAM) VALUES ('V-6','Z',7,1)");
  const int i = Caso(1, 132);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-6")), D("5"));
  EXPECT_EQ(p.c.Renglones.Cuenta(), 1);
  EXPECT_EQ(p.Sentencias(), QStringList(QStringLiteral(
                                "SELECT COD1_ART,SUM(COS_PEPS*TIP_CAM) AS SUMA FROM tblRenVentas "
                                "WHERE REF_DOC='V-6' GROUP BY COD1_ART ORDER BY COD1_ART;")));
}

TEST_P(Valores, ANullTotalIsWorthZero) {
  const int i = Caso(1, 1);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-404")), D("0"));
  EXPECT_EQ(p.Sentencias().size(), 1);
}

TEST_P(Valores, ANegativeTotalEndsTheProcess) {
  Sql("INSERT INTO tblGralVentas (REF_DOC,FEC_DOC,CREDITO,STS_DOC,SUB_DOC,IMPTO_INT) VALUES "
      "('V-7','2024-03-05',0,1,-10.5,0)");
  const int i = Caso(1, 1);
  const ErrorFatal e = Fatal([&] { ResolverDato(p.c, i, QStringLiteral("V-7")); });
  // The engine's text of the total follows the "0": "0-10.5" or "0-10.5000".
  EXPECT_TRUE(e.Mensaje().startsWith(QStringLiteral("No coinciden los tipos: el total «0-10.5")));
  EXPECT_TRUE(e.Mensaje().endsWith(QStringLiteral("» no es una cantidad.")));
  EXPECT_EQ(e.Sentencia(), p.Sentencias().last());
}

// ------------------------------------------------------------------ operations 6 to 9

TEST_P(Valores, ACustomerChargeIsItsAmountLessTax) {
  Sql("INSERT INTO tblEncCargosAbonos (FOL_DOC,FEC_DOC,COD_CON,COD_STS,CON_GRL,CON_CEP,IMP_DOC,"
      "IVA_DOC) VALUES ('CA-1','2024-03-05','ANT',1,'ACLI','ANT',116,16)");
  const int i = Caso(6, 12, QStringLiteral("ANT"));
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("CA-1")), D("100"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(IMP_DOC - IVA_DOC) AS TOTDAT FROM tblEncCargosAbonos WHERE "
                "(tblEncCargosAbonos.COD_STS <> 2) AND (tblEncCargosAbonos.CON_GRL='ACLI') AND "
                "(tblEncCargosAbonos.CON_CEP NOT IN('NVEN','DCLI')) AND "
                "(tblEncCargosAbonos.COD_CON = 'ANT') AND tblEncCargosAbonos.FOL_DOC='CA-1'")));
}

TEST_P(Valores, ACustomerReturnIsItsQuantityTimesCost) {
  Sql("INSERT INTO tblEncDevolucion (FOL_DEV,FEC_DEV,COD_CON,TIP_DEV,COD_STS) VALUES "
      "('D-1','2024-03-05','DEV',0,1)");
  Sql("INSERT INTO tblRenDevolucion (FOL_DEV,CAN_DEV,COS_ART) VALUES ('D-1',2,15)");
  Sql("INSERT INTO tblRenDevolucion (FOL_DEV,CAN_DEV,COS_ART) VALUES ('D-1',1,10)");
  const int i = Caso(8, 127);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("D-1")), D("40"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(CAN_DEV * COS_ART) AS TOTDAT FROM tblRenDevolucion INNER JOIN "
                "tblEncDevolucion ON tblRenDevolucion.FOL_DEV=tblEncDevolucion.FOL_DEV WHERE "
                "(TIP_DEV = 0 AND COD_STS <> 4) AND tblEncDevolucion.FOL_DEV='D-1'")));
}

// ------------------------------------------------------------------ operations 10, 11

class ValoresAlmacen : public Valores {
protected:
  void Almacen() {
    Sql("INSERT INTO tblGralAlmacen (REF_MOV,FEC_MOV,CON_CEP,COD_STS,CON_GRL,COS_TOT,TIP_CAM) "
        "VALUES ('E-1','2024-03-05','CMP',1,'EALM',200,1.5)");
    Sql("INSERT INTO tblRenAlmacen (REF_MOV,COD1_ART,CAN_REN,COS_UNI,TIP_CAM) VALUES "
        "('E-1','A',2,50,1.5)");
    Sql("INSERT INTO tblRenAlmacen (REF_MOV,COD1_ART,CAN_REN,COS_UNI,TIP_CAM) VALUES "
        "('E-1','B',1,100,1.5)");
  }
};

TEST_P(ValoresAlmacen, AStoreEntryIsItsCostWithTheExchangeRate) {
  Almacen();
  const int i = Caso(10, 22, QStringLiteral("CMP"));
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("E-1")), D("300"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(COS_TOT * TIP_CAM) AS TOTDAT,SUM(COS_TOT) AS TOTDOS FROM "
                "tblGralAlmacen WHERE CON_CEP='CMP' AND (COD_STS = 1 AND "
                "tblGralAlmacen.CON_GRL='EALM') AND (tblGralAlmacen.CON_CEP = 'CMP') AND "
                "tblGralAlmacen.REF_MOV='E-1'")));
  const int j = Caso(10, 111, QStringLiteral("CMP"), 2);
  EXPECT_EQ(ResolverDato(p.c, j, kDia), D("100"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM((COS_TOT * TIP_CAM)-COS_TOT) AS TOTDAT FROM tblGralAlmacen WHERE "
                "CON_CEP='CMP' AND (COD_STS = 1 AND tblGralAlmacen.CON_GRL='EALM') AND "
                "(tblGralAlmacen.CON_CEP = 'CMP') AND tblGralAlmacen.FEC_MOV='2024-03-05'")));
}

TEST_P(ValoresAlmacen, StoreArticlesWithAndWithoutTheExchangeRate) {
  Almacen();
  const int i = Caso(10, 121, QStringLiteral("CMP"));
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("E-1")), D("300"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT COD1_ART,SUM(CAN_REN * COS_UNI * TIP_CAM) AS SUMA FROM tblRenAlmacen "
                "WHERE REF_MOV='E-1' GROUP BY COD1_ART ORDER BY COD1_ART;")));
  ASSERT_EQ(p.c.Renglones.Cuenta(), 2);
  EXPECT_EQ(Ren(0).IMP_DEBE, D("150"));
  EXPECT_EQ(Ren(1).IMP_DEBE, D("150"));

  const int j = Caso(10, 122, QStringLiteral("CMP"), 2);
  CrearRenglones(p.c);
  EXPECT_EQ(ResolverDato(p.c, j, kDia), D("200"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT COD1_ART,SUM(CAN_REN * COS_UNI) AS SUMA FROM tblRenAlmacen INNER JOIN "
                "tblGralAlmacen ON tblRenAlmacen.REF_MOV=tblGralAlmacen.REF_MOV WHERE "
                "FEC_MOV='2024-03-05' AND (COD_STS = 1 AND tblGralAlmacen.CON_GRL='EALM') AND "
                "CON_CEP='CMP' GROUP BY COD1_ART ORDER BY COD1_ART;")));
  EXPECT_EQ(p.c.Renglones.Cuenta(), 2);
}

// ------------------------------------------------------------------ operations 12 to 18

class ValoresCompras : public Valores {
protected:
  void Compras() {
    Sql("INSERT INTO tblComprasEnc (FOL_DOC,FEC_DOC,COD_TIP,COD_ESTATUS,TIP_CAM,IMP_DOC,DES_DOC,"
        "SUB_DOC,IVA_DOC,CARGO_TOTAL,CARGO_IMPTO,RETEN_TOT,TOT_DOC,TOT_PROV) VALUES ('C-1',"
        "'2024-03-05',1,1,2,100,10,90,14.4,5,0.8,1,109.2,108.2)");
    Sql("INSERT INTO tblComprasRen (FOL_DOC,COD1_ART,CAN_ART,COS_UNI,COS_COM,IMP_ARANCEL) VALUES "
        "('C-1','A',3,10,12,1)");
    Sql("INSERT INTO tblComprasRen (FOL_DOC,COD1_ART,CAN_ART,COS_UNI,COS_COM,IMP_ARANCEL) VALUES "
        "('C-1','B',2,5,6,0)");
    Sql("INSERT INTO tblDevolucionEnc (FOL_DEV,FEC_DEV,COD_TIP,COD_ESTATUS,TIP_CAM,SUB_DEV,"
        "IVA_DEV,TOT_DEV) VALUES ('R-1','2024-03-05',1,1,2,50,8,58)");
    Sql("INSERT INTO tblDevolucionRen (FOL_DEV,COD1_ART,CAN_ART,COS_UNI) VALUES ('R-1','A',5,10)");
  }
};

TEST_P(ValoresCompras, AReceiptTakesItsColumnsWithTheExchangeRate) {
  Compras();
  const int i = Caso(12, 134);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("C-1")), D("200"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(IMP_DOC * TIP_CAM)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 "
                "AND COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='C-1'")));
  const int j = Caso(12, 141);
  EXPECT_EQ(ResolverDato(p.c, j, QStringLiteral("C-1")), D("218.4"));
  const int k = Caso(12, 150, {}, 2);
  EXPECT_EQ(ResolverDato(p.c, k, kDia), D("14.4"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM((IVA_DOC * TIP_CAM) - IVA_DOC)AS TOTDAT FROM tblComprasEnc WHERE "
                "(COD_TIP = 1 AND COD_ESTATUS = 1) AND tblComprasEnc.FEC_DOC='2024-03-05'")));
  const int l = Caso(12, 155);
  EXPECT_EQ(ResolverDato(p.c, l, QStringLiteral("C-1")), D("108.2"));
}

TEST_P(ValoresCompras, AReturnToTheSupplierTakesItsOwnTable) {
  Compras();
  const int i = Caso(16, 163);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("R-1")), D("100"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(SUB_DEV * TIP_CAM)AS TOTDAT FROM tblDevolucionEnc WHERE (COD_TIP = 1 "
                "AND COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='R-1'")));
  const int j = Caso(16, 168);
  EXPECT_EQ(ResolverDato(p.c, j, QStringLiteral("R-1")), D("58"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM((TOT_DEV * TIP_CAM) - TOT_DEV)AS TOTDAT FROM tblDevolucionEnc WHERE "
                "(COD_TIP = 1 AND COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='R-1'")));
}

TEST_P(ValoresCompras, ReceiptLinesWithTheExchangeRateReadOneTotal) {
  Compras();
  const int i = Caso(12, 180);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("C-1")), D("80"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT COD1_ART,SUM(CAN_ART * COS_UNI * TIP_CAM) AS TOTDAT FROM tblComprasRen "
                "INNER JOIN tblComprasEnc ON tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC WHERE "
                "(COD_TIP = 1 AND COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='C-1'")));
  EXPECT_EQ(p.c.Renglones.Cuenta(), 0);
  const int j = Caso(12, 187);
  EXPECT_EQ(ResolverDato(p.c, j, QStringLiteral("C-1")), D("1"));
}

TEST_P(ValoresCompras, PurchaseArticlesJoinTheFilterWithoutABlankAndFail) {
  Compras();
  const int i = Caso(12, 177);
  const ErrorFatal e = Fatal([&] { ResolverDato(p.c, i, QStringLiteral("C-1")); });
  EXPECT_EQ(e.Sentencia(),
            QStringLiteral("SELECT COD1_ART,CAN_ART,COS_UNI,TIP_CAM,DESCUENTO1,DESCUENTO2,"
                           "DESCUENTO3,DESCUENTO4,DESCUENTO5,DESCUENTO6 FROM tblComprasRen INNER "
                           "JOIN tblComprasEnc ON tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC "
                           "WHERE (COD_TIP = 1 AND COD_ESTATUS = 1)FOL_DOC='C-1' ORDER BY "
                           "COD1_ART;"));
  const int j = Caso(13, 185, {}, 2);
  const ErrorFatal f = Fatal([&] { ResolverDato(p.c, j, kDia); });
  EXPECT_TRUE(f.Sentencia().endsWith(
      QStringLiteral("WHERE (COD_TIP = 2 AND COD_ESTATUS = 1)FEC_DOC='2024-03-05' ORDER BY "
                     "COD1_ART;")));
}

LineaCompra Compra(const char *art, const char *can, const char *tc) {
  LineaCompra l;
  l.COD1_ART = QLatin1String(art);
  l.CAN_ART = D(can);
  l.COS_UNI = D("10");
  l.TIP_CAM = D(tc);
  l.DESCUENTO = {D("0.1"), D("0.05"), D("0"), D("0"), D("0"), D("0")};
  return l;
}

TEST(CostoConDescuentos, APurchaseLineIsWorthItsQuantitySquared) {
  EXPECT_EQ(
      CostoConDescuentos(D("3"), D("10"), {D("0.1"), D("0.2"), D("0"), D("0"), D("0"), D("0.5")}),
      D("9"));
  EXPECT_EQ(CostoConDescuentos(D("1.5"), D("1000"), {}), D("2.25"));
}

TEST(AcumularCompras, TheRunningSubtotalIsAddedOnEveryRow) {
  CorridaPrueba p;
  p.Regla(12);
  const int i = p.Renglon(177, QStringLiteral("1-01-05"), {});
  const std::vector<LineaCompra> lineas = {Compra("A", "2", "2"), Compra("A", "3", "2"),
                                           Compra("B", "1.5", "2")};
  // Rows of 4, 9 and 2.25: the subtotals 4, 13 and 2.25 add up to 19.25.
  EXPECT_EQ(AcumularCompras(p.c, 177, i, lineas), D("19.25"));
  ASSERT_EQ(p.c.Renglones.Cuenta(), 2);
  EXPECT_EQ(p.c.Renglones.Filas()[0].IMP_DEBE, D("13"));
  EXPECT_EQ(p.c.Renglones.Filas()[1].IMP_DEBE, D("2.25"));
  EXPECT_TRUE(p.Sentencias().isEmpty());
}

TEST(AcumularCompras, TheExchangeRateAndItsDifferenceAreRoundedOnTheSubtotal) {
  CorridaPrueba p;
  p.Regla(12);
  const int i = p.Renglon(181, {}, QStringLiteral("2-01"));
  const std::vector<LineaCompra> lineas = {Compra("A", "2", "1.5"), Compra("A", "3", "1.5"),
                                           Compra("B", "1.5", "1.5")};
  EXPECT_EQ(AcumularCompras(p.c, 181, i, lineas), D("28.88"));
  EXPECT_EQ(p.c.Renglones.Filas()[0].IMP_HABER, D("19.5"));
  EXPECT_EQ(p.c.Renglones.Filas()[1].IMP_HABER, D("3.38"));

  CrearRenglones(p.c);
  const int j = p.Renglon(185, {}, QStringLiteral("2-01"));
  // 2, 4.5 and 1.125: subtotals 2, 6.5 and Round2(1.125) = 1.12.
  EXPECT_EQ(AcumularCompras(p.c, 185, j, lineas), D("9.62"));
  ASSERT_EQ(p.c.Renglones.Cuenta(), 2);
  EXPECT_EQ(p.c.Renglones.Filas()[0].IMP_HABER, D("6.5"));
  EXPECT_EQ(p.c.Renglones.Filas()[1].IMP_HABER, D("1.12"));
}

// ------------------------------------------------------------------ payables, expenses

TEST_P(Valores, PayablesGiveTheSameAmountForEveryDatum) {
  Sql("INSERT INTO tblCxPEnc (FOL_DOC,FEC_DOC,CON_CEP,CON_GRL,COD_STS,COD_CON,IMP_DOC,IVA_DOC) "
      "VALUES ('CP-1','2024-03-05','NOTA','ACXP',1,'NOTA',116,16)");
  p.Regla(20, QStringLiteral("NOTA"));
  const int a = p.Renglon(45, QStringLiteral("2-01"), {});
  const int b = p.Renglon(46, {}, QStringLiteral("1-01-01"));
  const int c = p.Renglon(999, QStringLiteral("6-01"), {});
  const int cuadre = p.Renglon(40, QStringLiteral("6-01"), {});
  LeerDocumentos(p.c);
  p.Olvidar();
  EXPECT_EQ(ResolverDato(p.c, a, QStringLiteral("CP-1")), D("100"));
  EXPECT_EQ(ResolverDato(p.c, b, QStringLiteral("CP-1")), D("100"));
  EXPECT_EQ(ResolverDato(p.c, c, QStringLiteral("CP-1")), D("100"));
  // Datum 40 squares the entry even here, where every datum has a value: no query.
  EXPECT_EQ(ResolverDato(p.c, cuadre, QStringLiteral("CP-1")), D("0"));
  ASSERT_EQ(p.Sentencias().size(), 3);
  EXPECT_EQ(p.Sentencias()[0],
            QStringLiteral("SELECT SUM(IMP_DOC - IVA_DOC) AS TOTDAT FROM tblCxPEnc WHERE "
                           "(tblCxPEnc.CON_CEP='NOTA') AND (tblCxPEnc.CON_GRL='ACXP' AND "
                           "tblCxPEnc.COD_STS <> 2 AND tblCxPEnc.CON_CEP NOT IN('DEVO','RECP')) "
                           "AND (tblCxPEnc.CON_CEP = 'NOTA') AND tblCxPEnc.FOL_DOC='CP-1'"));
  EXPECT_EQ(p.Sentencias()[1], p.Sentencias()[0]);
}

TEST_P(Valores, AnExpenseIsItsAmountLessTaxWithTheWithholdings) {
  Sql("INSERT INTO tblGastosEnc (FOL_MOV,FEC_MOV,CON_CEP,COD_CON,COD_ESTATUS,IMP_MOV,IVA_MOV,"
      "RET_TOT,RET_ISRTOT) VALUES ('G-1','2024-03-05','PAP','PAP',1,116,16,2,3)");
  Sql("INSERT INTO tblGastosRen (FOL_MOV) VALUES ('G-1')");
  const int i = Caso(22, 68, QStringLiteral("PAP"));
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("G-1")), D("105"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(IMP_MOV - IVA_MOV + RET_TOT + RET_ISRTOT) AS TOTDAT FROM tblGastosEnc "
                "WHERE tblGastosEnc.CON_CEP='PAP' AND (COD_ESTATUS <> 2) AND "
                "(tblGastosEnc.CON_CEP = 'PAP') AND tblGastosEnc.FOL_MOV='G-1'")));
  const int j = Caso(30, 198, QStringLiteral("PAP"), 2);
  EXPECT_EQ(ResolverDato(p.c, j, kDia), D("105"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(IMP_MOV - IVA_MOV + RET_TOT + RET_ISRTOT) AS TOTDAT FROM tblGastosEnc "
                "WHERE (COD_ESTATUS <> 2) AND (tblGastosEnc.COD_CON = 'PAP') AND "
                "tblGastosEnc.FEC_MOV='2024-03-05'")));
}

TEST_P(Valores, APettyCashRefundSumsTheMovementsOfTheConcept) {
  Sql("INSERT INTO tblReposicionCaja (FOL_CHEQUE,FEC_DOC,FOL_DOC,COD_STS) VALUES "
      "('CH-1','2024-03-05','RC-1',1)");
  Sql("INSERT INTO tblReposicionCajaMov (FOL_DOC,CON_MOV,IMP_MOV,IMPTO_MOV,POR_RETE,RET_ISR) "
      "VALUES ('RC-1','PAP',100,16,10,10)");
  Sql("INSERT INTO tblReposicionCajaMov (FOL_DOC,CON_MOV,IMP_MOV,IMPTO_MOV,POR_RETE,RET_ISR) "
      "VALUES ('RC-1','LUZ',50,16,0,0)");
  const std::pair<int, const char *> casos[] = {
      {72, "96"}, {73, "100"}, {74, "10"}, {75, "16"}, {206, "10"}};
  for (const auto &[dato, total] : casos) {
    SCOPED_TRACE(dato);
    const int i = Caso(23, dato, QStringLiteral("PAP"));
    EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("CH-1")), D(total));
  }
  const int i = Caso(23, 72, QStringLiteral("PAP"));
  ResolverDato(p.c, i, QStringLiteral("CH-1"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM((IMP_MOV)+(IMP_MOV*IMPTO_MOV/100)-(IMP_MOV*POR_RETE/100)-(IMP_MOV*"
                "RET_ISR/100)) AS TOTDAT FROM tblReposicionCajaMov INNER JOIN tblReposicionCaja "
                "ON tblReposicionCajaMov.FOL_DOC=tblReposicionCaja.FOL_DOC WHERE CON_MOV='PAP' "
                "AND (COD_STS <> 2) AND tblReposicionCaja.FOL_CHEQUE='CH-1'")));
  const int j = Caso(23, 74, QStringLiteral("PAP"), 2);
  ResolverDato(p.c, j, kDia);
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(IMP_MOV * POR_RETE / 100) AS TOTDAT  FROM tblReposicionCajaMov INNER "
                "JOIN tblReposicionCaja ON tblReposicionCajaMov.FOL_DOC=tblReposicionCaja.FOL_DOC "
                "WHERE tblReposicionCajaMov.CON_MOV='PAP' AND (COD_STS <> 2) AND "
                "tblReposicionCaja.FEC_DOC='2024-03-05'")));
}

// ------------------------------------------------------------------ treasury: 24 to 28

TEST_P(Valores, ADepositTakesItsConceptTwice) {
  Tesoreria();
  const int i = Caso(24, 202, QStringLiteral("DEP"));
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("I-1")), D("125"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(IMP_MOV * TIP_CAM) AS TOTDAT FROM tblIngreEgre WHERE CON_CEP='DEP' "
                "AND (COD_ESTATUS <> 2) AND (CON_GRL='INGR') AND (tblIngreEgre.CON_CEP = 'DEP') "
                "AND tblIngreEgre.FOL_MOV='I-1'")));
  const int j = Caso(24, 203, QStringLiteral("DEP"), 2);
  EXPECT_EQ(ResolverDato(p.c, j, kDia), D("25"));
}

TEST_P(Valores, ATreasuryRuleForAllConceptsAsksForTheEmptyConcept) {
  Tesoreria();
  const int i = Caso(24, 202);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("I-1")), D("0"));
  EXPECT_TRUE(p.Sentencias().first().contains(QStringLiteral("WHERE CON_CEP='' AND")));
}

TEST_P(Valores, ACheckTakesTheFilterOfItsOperation) {
  Tesoreria();
  const int i = Caso(26, 202);
  EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("I-2")), D("300"));
  EXPECT_EQ(p.Sentencias(),
            QStringList(QStringLiteral(
                "SELECT SUM(IMP_MOV * TIP_CAM) AS TOTDAT FROM tblIngreEgre WHERE (COD_ESTATUS <> "
                "2) AND (CON_CEP='CHQE') AND (TIPO_APN=2) AND tblIngreEgre.FOL_MOV='I-2'")));
}

TEST_P(Valores, TheExchangeDifferenceOfACheckLacksItsFromAndFails) {
  Tesoreria();
  const int i = Caso(27, 203);
  const ErrorFatal e = Fatal([&] { ResolverDato(p.c, i, QStringLiteral("I-2")); });
  EXPECT_EQ(e.Sentencia(),
            QStringLiteral("SELECT SUM((IMP_MOV * TIP_CAM) - IMP_MOV) AS TOTDAT tblIngreEgre WHERE "
                           "(COD_ESTATUS <> 2) AND (CON_CEP='CHQE') AND (TIPO_APN=1) AND "
                           "tblIngreEgre.FOL_MOV='I-2'"));
}

// ------------------------------------------------------------------ data without a case

TEST_P(Valores, ADatumWithoutACaseIsWorthZeroWithoutAQuery) {
  Ventas();
  const std::pair<int, int> sinCaso[] = {{1, 12},  {1, 999}, {3, 1},    {4, 202}, {5, 1},
                                         {29, 22}, {19, 1},  {22, 202}, {31, 1},  {12, 143}};
  for (const auto &[oper, dato] : sinCaso) {
    SCOPED_TRACE(testing::Message() << oper << "/" << dato);
    p.Regla(oper);
    const int i = p.Renglon(dato, QStringLiteral("1-01"), {});
    p.Olvidar();
    EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-1")), D("0"));
    EXPECT_TRUE(p.Sentencias().isEmpty());
  }
  EXPECT_TRUE(p.emp.mensajes.mostrados.empty());
}

TEST_P(Valores, EveryBalancingDatumIsWorthZeroInEveryOperation) {
  Ventas();
  for (int dato : {98, 103, 108, 133, 40, 71, 76, 204}) {
    for (int oper : {1, 20, 24}) {
      p.Regla(oper);
      const int i = p.Renglon(dato, QStringLiteral("1-01"), {});
      p.Olvidar();
      EXPECT_EQ(ResolverDato(p.c, i, QStringLiteral("V-1")), D("0"));
      EXPECT_TRUE(p.Sentencias().isEmpty());
    }
  }
  EXPECT_FALSE(EsDatoCuadre(97));
  EXPECT_FALSE(EsDatoCuadre(109));
}

// ------------------------------------------------------------------ the dictionary

class ValoresDiccionario : public Valores {
protected:
  void Diccionario() {
    ServicioConexion s;
    ConexionPtr ref = s.AbrirConexionRuta(gRutaApp);
    ref->Ejecutar(
        QStringLiteral("INSERT INTO tblTablas (Numero,Nombre) VALUES (10,'tblGastosEnc')"));
    ref->Ejecutar(
        QStringLiteral("INSERT INTO tblTablas (Numero,Nombre) VALUES (11,'tblComprasEnc')"));
    ref->Ejecutar(QStringLiteral(
        "INSERT INTO tblCamposTabla (Numero,Nombre,Tabla) VALUES (50,'IMP_MOV',10)"));
    ref->Ejecutar(QStringLiteral(
        "INSERT INTO tblCamposTabla (Numero,Nombre,Tabla) VALUES (51,'IMP_DOC',11)"));
    Sql("INSERT INTO tblGastosEnc (FOL_MOV,FEC_MOV,CON_CEP,COD_CON,COD_ESTATUS,IMP_MOV,IVA_MOV,"
        "RET_TOT,RET_ISRTOT) VALUES ('G-1','2024-03-05','PAP','PAP',1,116,16,0,0)");
    Sql("INSERT INTO tblGastosEnc (FOL_MOV,FEC_MOV,CON_CEP,COD_CON,COD_ESTATUS,IMP_MOV,IVA_MOV,"
        "RET_TOT,RET_ISRTOT) VALUES ('G-2','2024-03-05','PAP','PAP',1,10.5,0,0,0)");
    p.Olvidar();
  }
};

TEST_P(ValoresDiccionario, ADictionaryNumberNamesItsTableAndColumn) {
  Diccionario();
  const CampoTabla campo = CampoDeDato(p.c, 50);
  EXPECT_EQ(campo.Tabla, QStringLiteral("tblGastosEnc"));
  EXPECT_EQ(campo.Campo, QStringLiteral("IMP_MOV"));
  const CampoTabla nada = CampoDeDato(p.c, 99);
  EXPECT_TRUE(nada.Tabla.isEmpty() && nada.Campo.isEmpty());
  EXPECT_EQ(p.Sentencias(),
            QStringList({QStringLiteral("SELECT (tblCamposTabla.Nombre) AS NOM_CAMPO,"
                                        "(tblTablas.Nombre) AS NOM_TABLA FROM tblCamposTabla "
                                        "INNER JOIN tblTablas ON "
                                        "tblCamposTabla.Tabla=tblTablas.Numero WHERE "
                                        "tblCamposTabla.Numero=50;"),
                         QStringLiteral("SELECT (tblCamposTabla.Nombre) AS NOM_CAMPO,"
                                        "(tblTablas.Nombre) AS NOM_TABLA FROM tblCamposTabla "
                                        "INNER JOIN tblTablas ON "
                                        "tblCamposTabla.Tabla=tblTablas.Numero WHERE "
                                        "tblCamposTabla.Numero=99;")}));
}

TEST_P(ValoresDiccionario, OneConnectionToTheDictionaryServesTheWholeRun) {
  Diccionario();
  EXPECT_FALSE(p.c.Referencia);
  CampoDeDato(p.c, 50);
  const Conexion *primera = p.c.Referencia.get();
  ASSERT_NE(primera, nullptr);
  CampoDeDato(p.c, 51);
  EXPECT_EQ(p.c.Referencia.get(), primera);
}

TEST_P(ValoresDiccionario, AValueByDocumentReadsTheColumnUnderTheRulesFilter) {
  Diccionario();
  p.Regla(22, QStringLiteral("PAP"));
  const int i = p.Renglon(68, QStringLiteral("6-01"), {}, 50);
  LeerDocumentos(p.c);
  p.Olvidar();
  EXPECT_EQ(ValorDeCampo(p.c, i, QStringLiteral("G-1")), D("116"));
  EXPECT_EQ(p.Sentencias().last(),
            QStringLiteral("SELECT SUM(tblGastosEnc.IMP_MOV) AS TOTAL FROM tblGastosEnc WHERE "
                           "(COD_ESTATUS <> 2) AND (tblGastosEnc.CON_CEP = 'PAP') AND FOL_MOV "
                           "='G-1';"));
}

TEST_P(ValoresDiccionario, AValueByDayReadsTheColumnOfTheDay) {
  Diccionario();
  p.Regla(22, QStringLiteral("PAP"), 2);
  const int i = p.Renglon(68, QStringLiteral("6-01"), {}, 50);
  LeerDocumentos(p.c);
  p.Olvidar();
  EXPECT_EQ(ValorDeCampo(p.c, i, kDia), D("126.5"));
  EXPECT_EQ(p.Sentencias().last(),
            QStringLiteral("SELECT SUM(tblGastosEnc.IMP_MOV) AS TOTAL FROM tblGastosEnc WHERE "
                           "(COD_ESTATUS <> 2) AND (tblGastosEnc.CON_CEP = 'PAP') AND FEC_MOV = "
                           "'2024-03-05';"));
}

TEST_P(ValoresDiccionario, TheFilterOfTheOperationItselfGainsItsAnd) {
  Diccionario();
  Sql("INSERT INTO tblComprasEnc (FOL_DOC,FEC_DOC,COD_TIP,COD_ESTATUS,TIP_CAM,IMP_DOC) VALUES "
      "('C-1','2024-03-05',1,1,1,250)");
  p.Regla(12);
  const int i = p.Renglon(134, QStringLiteral("1-01-05"), {}, 51);
  const int j = p.Renglon(134, QStringLiteral("1-01-05"), {});
  LeerDocumentos(p.c);
  p.Olvidar();
  EXPECT_EQ(ValorDeCampo(p.c, i, QStringLiteral("C-1")), D("250"));
  EXPECT_EQ(p.Sentencias().last(),
            QStringLiteral("SELECT SUM(tblComprasEnc.IMP_DOC) AS TOTAL FROM tblComprasEnc WHERE "
                           "(COD_TIP = 1 AND COD_ESTATUS = 1) AND FOL_DOC ='C-1';"));
  EXPECT_EQ(p.c.Operacion(12).FiltroConcepto,
            QStringLiteral("(COD_TIP = 1 AND COD_ESTATUS = 1) AND"));
  // Once there, it isn't added again, here or by the table of cases.
  ValorDeCampo(p.c, i, QStringLiteral("C-1"));
  EXPECT_EQ(p.c.Operacion(12).FiltroConcepto,
            QStringLiteral("(COD_TIP = 1 AND COD_ESTATUS = 1) AND"));
  EXPECT_EQ(ResolverDato(p.c, j, QStringLiteral("C-1")), D("250"));
  EXPECT_EQ(p.Sentencias().last(),
            QStringLiteral("SELECT SUM(IMP_DOC * TIP_CAM)AS TOTDAT FROM tblComprasEnc WHERE "
                           "(COD_TIP = 1 AND COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='C-1'"));
}

TEST_P(ValoresDiccionario, ANullTotalEndsTheProcess) {
  Diccionario();
  p.Regla(22, QStringLiteral("PAP"));
  const int i = p.Renglon(68, QStringLiteral("6-01"), {}, 50);
  LeerDocumentos(p.c);
  const ErrorFatal e = Fatal([&] { ValorDeCampo(p.c, i, QStringLiteral("G-404")); });
  EXPECT_EQ(e.Mensaje(),
            QStringLiteral("Uso no válido de Null: el total de tblGastosEnc.IMP_MOV no tiene "
                           "valor."));
  EXPECT_EQ(e.Sentencia(), p.Sentencias().last());
}

TEST_P(ValoresDiccionario, ANumberMissingFromTheDictionaryBreaksTheStatement) {
  Diccionario();
  p.Regla(22, QStringLiteral("PAP"));
  const int i = p.Renglon(68, QStringLiteral("6-01"), {}, 99);
  LeerDocumentos(p.c);
  const ErrorFatal e = Fatal([&] { ValorDeCampo(p.c, i, QStringLiteral("G-1")); });
  EXPECT_EQ(e.Sentencia(),
            QStringLiteral("SELECT SUM(.) AS TOTAL FROM  WHERE (COD_ESTATUS <> 2) AND "
                           "(tblGastosEnc.CON_CEP = 'PAP') AND FOL_MOV ='G-1';"));
}

// ------------------------------------------------------------------ lines

TEST_P(Valores, AnAmountOfZeroAddsNoLine) {
  p.Regla(1);
  const int i = p.Renglon(1, QStringLiteral("1-01"), QStringLiteral("4-01"));
  AgregarRenglon(p.c, Dinero(), i, {D("5"), D("5")});
  EXPECT_TRUE(p.c.Renglones.Vacio());
  EXPECT_TRUE(p.Sentencias().isEmpty());
}

TEST_P(Valores, AnAmountBelowHalfACentAddsALineOfZero) {
  p.Regla(1);
  const int i = p.Renglon(1, QStringLiteral("1-01"), {});
  AgregarRenglon(p.c, D("0.0001"), i, {Round2(D("0.0001")), Dinero()});
  ASSERT_EQ(p.c.Renglones.Cuenta(), 1);
  EXPECT_EQ(Ren(0).IMP_DEBE, D("0"));
}

TEST_P(Valores, ALineTakesTheRulesRubrosAndAccountsTrimmed) {
  p.Regla(1);
  RenglonRegla r;
  r.CodDato = 4;
  r.RubroDebe = QStringLiteral(" 1-01-01 ");
  r.CuentaDebe = QStringLiteral(" 1101 ");
  r.RubroHaber = QStringLiteral("4-01");
  r.CuentaHaber = QStringLiteral("4101  ");
  r.TieneDebe = r.TieneHaber = true;
  p.c.AgregarRegla(r);
  AgregarRenglon(p.c, D("10.005"), 1, {D("10.005"), D("-3.335")});
  ASSERT_EQ(p.c.Renglones.Cuenta(), 1);
  EXPECT_EQ(Ren(0).COD_DATO, 4);
  EXPECT_EQ(Ren(0).RUBRO_DEBE, QStringLiteral("1-01-01"));
  EXPECT_EQ(Ren(0).CUENTA_DEBE, QStringLiteral("1101"));
  EXPECT_EQ(Ren(0).RUBRO_HABER, QStringLiteral("4-01"));
  EXPECT_EQ(Ren(0).CUENTA_HABER, QStringLiteral("4101"));
  EXPECT_EQ(Ren(0).IMP_DEBE, D("10"));
  EXPECT_EQ(Ren(0).IMP_HABER, D("-3.34"));
}

TEST_P(Valores, ARubroLongerThanItsFieldEndsTheProcess) {
  p.Regla(1);
  const int i = p.Renglon(1, QStringLiteral("1-01-01-01-01"), {});
  const ErrorFatal e = Fatal([&] { AgregarRenglon(p.c, D("1"), i, {D("1"), Dinero()}); });
  EXPECT_EQ(e.Mensaje(), QStringLiteral("El valor «1-01-01-01-01» no cabe en el campo "
                                        "RUBRO_DEBE, de 10 caracteres."));
}

TEST_P(Valores, ATreasuryBankRubroTakesTheRubroOfTheDocumentsAccount) {
  Tesoreria();
  p.Regla(24, QStringLiteral("DEP"), 1, 8);
  const int i = p.Renglon(202, QStringLiteral("1-01-02"), {});
  p.c.FolioDocumento = QStringLiteral("I-1");
  p.Olvidar();
  AgregarRenglon(p.c, D("125"), i, {D("125"), Dinero()});
  EXPECT_EQ(p.Sentencias(),
            QStringList({QStringLiteral("SELECT NUM_CTA FROM tblIngreEgre WHERE FOL_MOV='I-1';"),
                         QStringLiteral("SELECT COD_RUBRO FROM tblCatCtasBancos WHERE "
                                        "NUM_CUENTA='0112233445';"),
                         QStringLiteral("SELECT CUENTA_RUBRO FROM tblCatRubros WHERE "
                                        "COD_RUBRO='1-01-02-01';")}));
  EXPECT_EQ(Ren(0).RUBRO_DEBE, QStringLiteral("1-01-02-01"));
  EXPECT_EQ(Ren(0).CUENTA_DEBE, QStringLiteral("1102-001"));
}

TEST_P(Valores, ABankAccountNotFoundLeavesTheRubroUnset) {
  Tesoreria();
  Sql("UPDATE tblIngreEgre SET NUM_CTA='999' WHERE FOL_MOV='I-1'");
  p.Regla(24, QStringLiteral("DEP"), 1, 8);
  const int i = p.Renglon(202, {}, QStringLiteral("1-01-02-01"));
  p.c.FolioDocumento = QStringLiteral("I-1");
  AgregarRenglon(p.c, D("125"), i, {Dinero(), D("125")});
  EXPECT_EQ(p.Sentencias().last(),
            QStringLiteral("SELECT CUENTA_RUBRO FROM tblCatRubros WHERE COD_RUBRO='';"));
  ASSERT_EQ(p.c.Renglones.Cuenta(), 1);
  EXPECT_EQ(Ren(0).RUBRO_HABER, QString());
  EXPECT_EQ(Ren(0).CUENTA_HABER, QString());
  EXPECT_EQ(Ren(0).IMP_HABER, D("125"));
}

TEST_P(Valores, OutsideTheTreasuryABankRubroStandsAsTheRuleHasIt) {
  Tesoreria();
  p.Regla(24, QStringLiteral("DEP"), 1, 6);
  const int i = p.Renglon(202, QStringLiteral("1-01-02"), {});
  p.c.FolioDocumento = QStringLiteral("I-1");
  p.Olvidar();
  AgregarRenglon(p.c, D("125"), i, {D("125"), Dinero()});
  EXPECT_TRUE(p.Sentencias().isEmpty());
  EXPECT_EQ(Ren(0).RUBRO_DEBE, QStringLiteral("1-01-02"));
  EXPECT_EQ(Ren(0).CUENTA_DEBE, QStringLiteral("C1-01-02"));
}

TEST_P(Valores, ByDayTheBankRubroComesFromTheFirstDocumentOfTheDay) {
  Tesoreria();
  p.Regla(24, QStringLiteral("DEP"), 2, 8);
  const int i = p.Renglon(202, QStringLiteral("1-01-02"), {});
  LeerDocumentos(p.c);
  ASSERT_EQ(p.c.Documentos.Cuenta(), 2);
  // The day's first document is what posting by day leaves in FolioDocumento.
  p.c.Documentos.Primero();
  p.c.FolioDocumento = p.c.Documentos.Actual().FOLIO_DOC;
  const Dinero total = ResolverDato(p.c, i, kDia);
  EXPECT_EQ(total, D("165"));
  AgregarRenglon(p.c, total, i, {total, Dinero()});
  ASSERT_EQ(p.c.Renglones.Cuenta(), 1);
  EXPECT_EQ(Ren(0).RUBRO_DEBE, QStringLiteral("1-01-02-01"));
  EXPECT_EQ(Ren(0).IMP_DEBE, D("165"));
}

// ------------------------------------------------------------------ squaring

class Cuadre : public Valores {
protected:
  void Sumas(const char *debe, const char *haber) {
    p.c.SumaDebe = D(debe);
    p.c.SumaHaber = D(haber);
  }
};

TEST_P(Cuadre, TheBalancingLineTakesTheDifferenceAndBothSumsGrowByIt) {
  p.Regla(22, QStringLiteral("PAP"));
  p.Renglon(68, QStringLiteral("6-01"), {});
  p.Renglon(71, {}, QStringLiteral("1-01-01"));
  Sumas("100.25", "60");
  ParImportes par;
  CuadrarPoliza(p.c, 2, par);
  ASSERT_EQ(p.c.Renglones.Cuenta(), 1);
  EXPECT_EQ(Ren(0).COD_DATO, 71);
  EXPECT_EQ(Ren(0).RUBRO_HABER, QStringLiteral("1-01-01"));
  EXPECT_EQ(Ren(0).IMP_HABER, D("40.25"));
  EXPECT_EQ(Ren(0).RUBRO_DEBE, QString());
  EXPECT_EQ(p.c.SumaDebe, D("140.5"));
  EXPECT_EQ(p.c.SumaHaber, D("100.25"));
  EXPECT_EQ(par.Debe, D("40.25"));
  EXPECT_EQ(par.Haber, D("40.25"));
  EXPECT_TRUE(p.Sentencias().isEmpty());
}

TEST_P(Cuadre, ASecondBalancingRowMeetsTheSameDifference) {
  p.Regla(22, QStringLiteral("PAP"));
  p.Renglon(204, {}, QStringLiteral("1-01-01"));
  p.Renglon(76, QStringLiteral("6-01"), {});
  Sumas("10", "30");
  ParImportes par;
  CuadrarPoliza(p.c, 2, par);
  ASSERT_EQ(p.c.Renglones.Cuenta(), 2);
  // A negative difference gives lines with a negative amount.
  EXPECT_EQ(Ren(0).IMP_HABER, D("-20"));
  EXPECT_EQ(Ren(1).IMP_DEBE, D("-20"));
  EXPECT_EQ(p.c.SumaDebe, D("-30"));
  EXPECT_EQ(p.c.SumaHaber, D("-10"));
}

TEST_P(Cuadre, ABalancedEntryGetsNoBalancingLine) {
  p.Regla(22, QStringLiteral("PAP"));
  p.Renglon(71, {}, QStringLiteral("1-01-01"));
  Sumas("50", "50");
  ParImportes par;
  CuadrarPoliza(p.c, 1, par);
  EXPECT_TRUE(p.c.Renglones.Vacio());
  EXPECT_EQ(p.c.SumaDebe, D("50"));
}

TEST_P(Cuadre, OnlyTheGivenRowsAreLookedAt) {
  p.Regla(22, QStringLiteral("PAP"));
  p.Renglon(68, QStringLiteral("6-01"), {});
  p.Renglon(71, {}, QStringLiteral("1-01-01"));
  Sumas("50", "0");
  ParImportes par;
  CuadrarPoliza(p.c, 1, par);
  EXPECT_TRUE(p.c.Renglones.Vacio());
}

// ------------------------------------------------------------------ bank check

class Bancos : public Valores {
protected:
  // The period's accounts: BBVA, with the rubro given, and a second one, BBVA again
  // unless named.
  void Cuentas(const char *rubroBbva, const char *segunda = "0112233445") {
    Tesoreria();
    Sql(QStringLiteral("UPDATE tblCatCtasBancos SET COD_RUBRO='%1' WHERE NUM_CUENTA='0112233445'")
            .arg(QLatin1String(rubroBbva)));
    Sql(QStringLiteral("UPDATE tblIngreEgre SET NUM_CTA='%1' WHERE FOL_MOV='I-3'")
            .arg(QLatin1String(segunda)));
    p.Regla(24, QStringLiteral("DEP"), 1, 8);
    p.Olvidar();
  }
};

TEST_P(Bancos, ARuleWithoutBankRubrosIsNotChecked) {
  Cuentas("0");
  p.Renglon(202, QStringLiteral("1-01-03"), {});
  EXPECT_FALSE(VerificarBancos(p.c, 1));
  EXPECT_TRUE(p.Sentencias().isEmpty());
}

TEST_P(Bancos, AnAccountOfThePeriodWhoseRubroIsZeroSkipsTheRule) {
  Cuentas("0");
  p.Renglon(204, {}, QStringLiteral("1-01-01"));
  p.Renglon(202, QStringLiteral(" 1-01-02-02"), {});
  EXPECT_TRUE(VerificarBancos(p.c, 2));
  EXPECT_EQ(p.Sentencias(),
            QStringList({QStringLiteral("SELECT DISTINCT NUM_CTA FROM tblIngreEgre WHERE FEC_MOV "
                                        "BETWEEN '2024-03-01' AND '2024-03-31';"),
                         QStringLiteral("SELECT COD_RUBRO FROM tblCatCtasBancos WHERE "
                                        "NUM_CUENTA='0112233445';")}));
}

TEST_P(Bancos, AnAccountWhoseRubroIsEmptySkipsTheRule) {
  Cuentas("");
  p.Renglon(202, {}, QStringLiteral("1-01-02"));
  EXPECT_TRUE(VerificarBancos(p.c, 1));
}

TEST_P(Bancos, AccountsWithRubrosOrWithoutARowLetTheRuleRun) {
  Cuentas("1-01-02-01", "777");
  p.Renglon(202, QStringLiteral("1-01-02"), {});
  EXPECT_FALSE(VerificarBancos(p.c, 1));
  EXPECT_EQ(p.Sentencias().size(), 3);
}

TEST_P(Bancos, AccountsOutsideThePeriodAreNotLookedAt) {
  Cuentas("0");
  p.c.FechaInicial = QDate(2024, 4, 1);
  p.c.FechaFinal = QDate(2024, 4, 30);
  p.Renglon(202, QStringLiteral("1-01-02"), {});
  EXPECT_FALSE(VerificarBancos(p.c, 1));
}

// ------------------------------------------------------------------ every statement

struct CasoDeDato {
  int oper;
  int dato;
  bool porDia;
};

// The pairs whose statement the database refuses: data read outside their group,
// statements whose filter names columns their table lacks, the purchase articles'
// filter without a blank, the exchange rate named twice in a join, and the statement
// of datum 203 of cheques, which lacks its FROM.
bool Falla(const CasoDeDato &c) {
  const int o = c.oper;
  const int d = c.dato;
  const bool compras = o >= 12 && o <= 15;
  const bool devoluciones = o >= 16 && o <= 18;
  if ((o == 1 || o == 2) && d == 97)
    return c.porDia;
  if (o == 6 || o == 7)
    return d == 127 || d == 128;
  if (o == 8 || o == 9)
    return d == 12 || d == 15;
  if (o == 10 || o == 11)
    return c.porDia && (d == 121 || d == 123);
  if (compras || devoluciones) {
    const bool enc = (d >= 134 && d <= 142) || (d >= 147 && d <= 155);
    const bool encDev = d >= 163 && d <= 168;
    const bool renJunta = d == 180 || (d >= 182 && d <= 184) || d == 186 || d == 187;
    if (d >= 176 && d <= 196 && !renJunta)
      return true;
    if (compras)
      return encDev;
    return enc || renJunta;
  }
  if (o >= 26 && o <= 28)
    return d == 203;
  return false;
}

std::vector<CasoDeDato> TodosLosCasos() {
  std::vector<int> ventas = {1, 4, 97, 109, 110, 117, 118, 119, 120, 129, 130, 131, 132};
  for (int d = 80; d <= 86; ++d)
    ventas.push_back(d);
  for (int d = 90; d <= 96; ++d)
    ventas.push_back(d);
  std::vector<int> compras;
  for (int d = 134; d <= 142; ++d)
    compras.push_back(d);
  for (int d = 147; d <= 155; ++d)
    compras.push_back(d);
  for (int d = 163; d <= 168; ++d)
    compras.push_back(d);
  for (int d = 176; d <= 196; ++d)
    compras.push_back(d);
  const std::vector<std::pair<std::vector<int>, std::vector<int>>> grupos = {
      {{1, 2}, ventas},
      {{6, 7, 8, 9}, {12, 15, 127, 128}},
      {{10, 11}, {22, 23, 111, 113, 121, 122, 123, 124}},
      {{12, 13, 14, 15, 16, 17, 18}, compras},
      {{20, 21}, {45}},
      {{22, 30}, {68, 198}},
      {{23}, {72, 73, 74, 75, 206}},
      {{24, 25, 26, 27, 28}, {202, 203}}};
  std::vector<CasoDeDato> casos;
  for (const auto &[opers, datos] : grupos)
    for (int o : opers)
      for (int d : datos)
        for (bool porDia : {false, true})
          casos.push_back({o, d, porDia});
  return casos;
}

TEST_P(Valores, EveryStatementRunsOnTheSchemaOrFailsWhereItMust) {
  Impuestos();
  for (const CasoDeDato &caso : TodosLosCasos()) {
    SCOPED_TRACE(testing::Message()
                 << caso.oper << "/" << caso.dato << (caso.porDia ? " día" : ""));
    const int i = Caso(caso.oper, caso.dato, QStringLiteral("CPT"), caso.porDia ? 2 : 1, 1,
                       QStringLiteral("1-01"), {});
    const QString clave = caso.porDia ? kDia : QStringLiteral("X-1");
    if (Falla(caso)) {
      const ErrorFatal e = Fatal([&] { ResolverDato(p.c, i, clave); });
      EXPECT_EQ(e.Sentencia(), p.Sentencias().last());
    } else {
      EXPECT_NO_THROW(ResolverDato(p.c, i, clave));
      EXPECT_FALSE(p.Sentencias().isEmpty());
    }
  }
}

struct TextoDeCaso {
  int oper;
  int dato;
  const char *sentencias; // one a line
};

// The statements of every case by document, key X-1, concept CPT, taxes 1, 2 and 3.
const TextoDeCaso kTextos[] = {
    {1, 1,
     "SELECT SUM(SUB_DOC+IMPTO_INT) AS TOTDAT FROM tblGralVentas WHERE (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblGralVentas.REF_DOC='X-1'"},
    {1, 97,
     "SELECT SUM(IMP_MBA) AS TOTDAT FROM tblAuxCaja WHERE (COD_FRP<>5 AND COD_FRP<>6) AND (CREDITO "
     "= 0 AND STS_DOC <> 4) AND REF_DOC='X-1'"},
    {1, 109,
     "SELECT SUM(CAN_ART*COS_VEN*TIP_CAM) AS TOTDAT FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE (CREDITO = 0 AND STS_DOC <> 4) AND "
     "tblGralVentas.REF_DOC='X-1'"},
    {1, 129, "SELECT SUM(COS_PEPS*TIP_CAM) AS TOTDAT FROM tblRenVentas WHERE REF_DOC='X-1'"},
    {1, 117,
     "SELECT COD1_ART,SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas WHERE REF_DOC='X-1' GROUP "
     "BY COD1_ART ORDER BY COD1_ART;"},
    {1, 120,
     "SELECT COD1_ART,SUM(CAN_ART * COS_VEN * TIP_CAM) AS SUMA FROM tblRenVentas WHERE "
     "REF_DOC='X-1' GROUP BY COD1_ART ORDER BY COD1_ART;"},
    {1, 131,
     "SELECT COD1_ART,SUM(COS_PEPS*TIP_CAM) AS SUMA FROM tblRenVentas WHERE REF_DOC='X-1' GROUP BY "
     "COD1_ART ORDER BY COD1_ART;"},
    {1, 80,
     "SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=0 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'"},
    {1, 81,
     "SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=1 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'\nSELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas "
     "INNER JOIN tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD2_IMP=1 AND "
     "(CREDITO = 0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='X-1' AND IMP2_REG>0"},
    {1, 82,
     "SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=2 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'\nSELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas "
     "INNER JOIN tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD2_IMP=2 AND "
     "(CREDITO = 0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='X-1' AND IMP2_REG>0"},
    {1, 83,
     "SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=3 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'\nSELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas "
     "INNER JOIN tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD2_IMP=3 AND "
     "(CREDITO = 0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='X-1' AND IMP2_REG>0"},
    {1, 84,
     "SELECT SUM(IMP1_REG) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=1 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'\nSELECT SUM(IMP2_REG) AS SUMA FROM tblRenVentas INNER JOIN "
     "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD2_IMP=1 AND (CREDITO = "
     "0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='X-1'"},
    {1, 85,
     "SELECT SUM(IMP1_REG) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=2 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'\nSELECT SUM(IMP2_REG) AS SUMA FROM tblRenVentas INNER JOIN "
     "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD2_IMP=2 AND (CREDITO = "
     "0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='X-1'"},
    {1, 86,
     "SELECT SUM(IMP1_REG) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=3 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'\nSELECT SUM(IMP2_REG) AS SUMA FROM tblRenVentas INNER JOIN "
     "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD2_IMP=3 AND (CREDITO = "
     "0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='X-1'"},
    {1, 90,
     "SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=0 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'"},
    {1, 91,
     "SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=1 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'\nSELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas "
     "INNER JOIN tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD2_IMP=1 AND "
     "(CREDITO = 0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='X-1' AND IMP2_REG>0"},
    {1, 92,
     "SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=2 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'\nSELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas "
     "INNER JOIN tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD2_IMP=2 AND "
     "(CREDITO = 0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='X-1' AND IMP2_REG>0"},
    {1, 93,
     "SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=3 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'\nSELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas "
     "INNER JOIN tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD2_IMP=3 AND "
     "(CREDITO = 0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='X-1' AND IMP2_REG>0"},
    {1, 94,
     "SELECT SUM(IMP1_REG) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=1 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'\nSELECT SUM(IMP2_REG) AS SUMA FROM tblRenVentas INNER JOIN "
     "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD2_IMP=1 AND (CREDITO = "
     "0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='X-1'"},
    {1, 95,
     "SELECT SUM(IMP1_REG) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=2 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'\nSELECT SUM(IMP2_REG) AS SUMA FROM tblRenVentas INNER JOIN "
     "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD2_IMP=2 AND (CREDITO = "
     "0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='X-1'"},
    {1, 96,
     "SELECT SUM(IMP1_REG) AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
     "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD1_IMP=3 AND (CREDITO = 0 AND STS_DOC <> "
     "4) AND tblRenVentas.REF_DOC='X-1'\nSELECT SUM(IMP2_REG) AS SUMA FROM tblRenVentas INNER JOIN "
     "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE COD2_IMP=3 AND (CREDITO = "
     "0 AND STS_DOC <> 4) AND tblRenVentas.REF_DOC='X-1'"},
    {6, 12,
     "SELECT SUM(IMP_DOC - IVA_DOC) AS TOTDAT FROM tblEncCargosAbonos WHERE "
     "(tblEncCargosAbonos.COD_STS <> 2) AND (tblEncCargosAbonos.CON_GRL='ACLI') AND "
     "(tblEncCargosAbonos.CON_CEP NOT IN('NVEN','DCLI')) AND (tblEncCargosAbonos.COD_CON = 'CPT') "
     "AND tblEncCargosAbonos.FOL_DOC='X-1'"},
    {8, 128,
     "SELECT SUM(CAN_DEV * COS_ART) AS TOTDAT FROM tblRenDevolucion INNER JOIN tblEncDevolucion ON "
     "tblRenDevolucion.FOL_DEV=tblEncDevolucion.FOL_DEV WHERE (TIP_DEV = 0 AND COD_STS <> 4) AND "
     "(tblEncDevolucion.COD_CON = 'CPT') AND tblEncDevolucion.FOL_DEV='X-1'"},
    {10, 23,
     "SELECT SUM(COS_TOT * TIP_CAM) AS TOTDAT,SUM(COS_TOT) AS TOTDOS FROM tblGralAlmacen WHERE "
     "CON_CEP='CPT' AND (COD_STS = 1 AND tblGralAlmacen.CON_GRL='EALM') AND "
     "(tblGralAlmacen.CON_CEP = 'CPT') AND tblGralAlmacen.REF_MOV='X-1'"},
    {10, 113,
     "SELECT SUM((COS_TOT * TIP_CAM)-COS_TOT) AS TOTDAT FROM tblGralAlmacen WHERE CON_CEP='CPT' "
     "AND (COD_STS = 1 AND tblGralAlmacen.CON_GRL='EALM') AND (tblGralAlmacen.CON_CEP = 'CPT') AND "
     "tblGralAlmacen.REF_MOV='X-1'"},
    {10, 121,
     "SELECT COD1_ART,SUM(CAN_REN * COS_UNI * TIP_CAM) AS SUMA FROM tblRenAlmacen WHERE "
     "REF_MOV='X-1' GROUP BY COD1_ART ORDER BY COD1_ART;"},
    {10, 124,
     "SELECT COD1_ART,SUM(CAN_REN * COS_UNI) AS SUMA FROM tblRenAlmacen WHERE REF_MOV='X-1' GROUP "
     "BY COD1_ART ORDER BY COD1_ART;"},
    {12, 134,
     "SELECT SUM(IMP_DOC * TIP_CAM)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND COD_ESTATUS "
     "= 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 135,
     "SELECT SUM(DES_DOC * TIP_CAM)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND COD_ESTATUS "
     "= 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 136,
     "SELECT SUM(SUB_DOC * TIP_CAM)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND COD_ESTATUS "
     "= 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 137,
     "SELECT SUM(IVA_DOC * TIP_CAM)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND COD_ESTATUS "
     "= 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 138,
     "SELECT SUM(CARGO_TOTAL * TIP_CAM)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 139,
     "SELECT SUM(CARGO_IMPTO * TIP_CAM)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 140,
     "SELECT SUM(RETEN_TOT * TIP_CAM)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 141,
     "SELECT SUM(TOT_DOC * TIP_CAM)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND COD_ESTATUS "
     "= 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 142,
     "SELECT SUM(TOT_PROV * TIP_CAM)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 147,
     "SELECT SUM((IMP_DOC * TIP_CAM) - IMP_DOC)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 148,
     "SELECT SUM((DES_DOC * TIP_CAM) - DES_DOC)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 149,
     "SELECT SUM((SUB_DOC * TIP_CAM) - SUB_DOC)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 150,
     "SELECT SUM((IVA_DOC * TIP_CAM) - IVA_DOC)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 151,
     "SELECT SUM((CARGO_TOTAL * TIP_CAM) - CARGO_TOTAL)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP "
     "= 1 AND COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 152,
     "SELECT SUM((CARGO_IMPTO * TIP_CAM) - CARGO_IMPTO)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP "
     "= 1 AND COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 153,
     "SELECT SUM((RETEN_TOT * TIP_CAM) - RETEN_TOT)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 "
     "AND COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 154,
     "SELECT SUM((TOT_DOC * TIP_CAM) - TOT_DOC)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 155,
     "SELECT SUM((TOT_PROV * TIP_CAM) - TOT_PROV)AS TOTDAT FROM tblComprasEnc WHERE (COD_TIP = 1 "
     "AND COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {16, 163,
     "SELECT SUM(SUB_DEV * TIP_CAM)AS TOTDAT FROM tblDevolucionEnc WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 164,
     "SELECT SUM(IVA_DEV * TIP_CAM)AS TOTDAT FROM tblDevolucionEnc WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 165,
     "SELECT SUM(TOT_DEV * TIP_CAM)AS TOTDAT FROM tblDevolucionEnc WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 166,
     "SELECT SUM((SUB_DEV * TIP_CAM) - SUB_DEV)AS TOTDAT FROM tblDevolucionEnc WHERE (COD_TIP = 1 "
     "AND COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 167,
     "SELECT SUM((IVA_DEV * TIP_CAM) - IVA_DEV)AS TOTDAT FROM tblDevolucionEnc WHERE (COD_TIP = 1 "
     "AND COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 168,
     "SELECT SUM((TOT_DEV * TIP_CAM) - TOT_DEV)AS TOTDAT FROM tblDevolucionEnc WHERE (COD_TIP = 1 "
     "AND COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {12, 176,
     "SELECT COD1_ART,SUM(CAN_ART * COS_UNI) AS TOTDAT FROM tblComprasRen WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 178,
     "SELECT COD1_ART,SUM(CAN_ART * COS_COM) AS TOTDAT FROM tblComprasRen WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 179,
     "SELECT COD1_ART,SUM(IMP_ARANCEL) AS TOTDAT FROM tblComprasRen WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 180,
     "SELECT COD1_ART,SUM(CAN_ART * COS_UNI * TIP_CAM) AS TOTDAT FROM tblComprasRen INNER JOIN "
     "tblComprasEnc ON tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 182,
     "SELECT COD1_ART,SUM(CAN_ART * COS_COM * TIP_CAM) AS TOTDAT FROM tblComprasRen INNER JOIN "
     "tblComprasEnc ON tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 183,
     "SELECT COD1_ART,SUM(IMP_ARANCEL * TIP_CAM) AS TOTDAT FROM tblComprasRen INNER JOIN "
     "tblComprasEnc ON tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 184,
     "SELECT COD1_ART,SUM((CAN_ART * COS_UNI * TIP_CAM) - (CAN_ART * COS_UNI)) AS TOTDAT FROM "
     "tblComprasRen INNER JOIN tblComprasEnc ON tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC WHERE "
     "(COD_TIP = 1 AND COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 186,
     "SELECT COD1_ART,SUM((CAN_ART * COS_COM * TIP_CAM) - (CAN_ART * COS_COM)) AS TOTDAT FROM "
     "tblComprasRen INNER JOIN tblComprasEnc ON tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC WHERE "
     "(COD_TIP = 1 AND COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {12, 187,
     "SELECT COD1_ART,SUM((IMP_ARANCEL * TIP_CAM) - IMP_ARANCEL) AS TOTDAT FROM tblComprasRen "
     "INNER JOIN tblComprasEnc ON tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC WHERE (COD_TIP = 1 "
     "AND COD_ESTATUS = 1) AND tblComprasEnc.FOL_DOC='X-1'"},
    {16, 188,
     "SELECT COD1_ART,SUM(CAN_ART * COS_UNI) AS TOTDAT FROM tblDevolucionRen WHERE (COD_TIP = 1 "
     "AND COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 189,
     "SELECT COD1_ART,SUM(IMP1_IMP) AS TOTDAT FROM tblDevolucionRen WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 190,
     "SELECT COD1_ART,SUM(IMP2_IMP) AS TOTDAT FROM tblDevolucionRen WHERE (COD_TIP = 1 AND "
     "COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 191,
     "SELECT COD1_ART,SUM(CAN_ART * COS_UNI * TIP_CAM) AS TOTDAT FROM tblDevolucionRen WHERE "
     "(COD_TIP = 1 AND COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 192,
     "SELECT COD1_ART,SUM(IMP1_IMP * TIP_CAM) AS TOTDAT FROM tblDevolucionRen WHERE (COD_TIP = 1 "
     "AND COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 193,
     "SELECT COD1_ART,SUM(IMP2_IMP * TIP_CAM) AS TOTDAT FROM tblDevolucionRen WHERE (COD_TIP = 1 "
     "AND COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 194,
     "SELECT SUM((CAN_ART * COS_UNI * TIP_CAM) - (CAN_ART * COS_UNI)) AS TOTDAT FROM "
     "tblDevolucionRen WHERE (COD_TIP = 1 AND COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 195,
     "SELECT SUM((IMP1_IMP * TIP_CAM) - IMP1_IMP) AS TOTDAT FROM tblDevolucionRen WHERE (COD_TIP = "
     "1 AND COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {16, 196,
     "SELECT SUM((IMP2_IMP * TIP_CAM) - IMP2_IMP) AS TOTDAT FROM tblDevolucionRen WHERE (COD_TIP = "
     "1 AND COD_ESTATUS = 1) AND tblDevolucionEnc.FOL_DEV='X-1'"},
    {12, 177,
     "SELECT "
     "COD1_ART,CAN_ART,COS_UNI,TIP_CAM,DESCUENTO1,DESCUENTO2,DESCUENTO3,DESCUENTO4,DESCUENTO5,"
     "DESCUENTO6 FROM tblComprasRen INNER JOIN tblComprasEnc ON "
     "tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC WHERE (COD_TIP = 1 AND COD_ESTATUS = "
     "1)FOL_DOC='X-1' ORDER BY COD1_ART;"},
    {12, 181,
     "SELECT "
     "COD1_ART,CAN_ART,COS_UNI,TIP_CAM,DESCUENTO1,DESCUENTO2,DESCUENTO3,DESCUENTO4,DESCUENTO5,"
     "DESCUENTO6 FROM tblComprasRen INNER JOIN tblComprasEnc ON "
     "tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC WHERE (COD_TIP = 1 AND COD_ESTATUS = "
     "1)FOL_DOC='X-1' ORDER BY COD1_ART;"},
    {12, 185,
     "SELECT "
     "COD1_ART,CAN_ART,COS_UNI,TIP_CAM,DESCUENTO1,DESCUENTO2,DESCUENTO3,DESCUENTO4,DESCUENTO5,"
     "DESCUENTO6 FROM tblComprasRen INNER JOIN tblComprasEnc ON "
     "tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC WHERE (COD_TIP = 1 AND COD_ESTATUS = "
     "1)FOL_DOC='X-1' ORDER BY COD1_ART;"},
    {20, 45,
     "SELECT SUM(IMP_DOC - IVA_DOC) AS TOTDAT FROM tblCxPEnc WHERE (tblCxPEnc.CON_CEP='CPT') AND "
     "(tblCxPEnc.CON_GRL='ACXP' AND tblCxPEnc.COD_STS <> 2 AND tblCxPEnc.CON_CEP NOT "
     "IN('DEVO','RECP')) AND (tblCxPEnc.CON_CEP = 'CPT') AND tblCxPEnc.FOL_DOC='X-1'"},
    {22, 68,
     "SELECT SUM(IMP_MOV - IVA_MOV + RET_TOT + RET_ISRTOT) AS TOTDAT FROM tblGastosEnc WHERE "
     "tblGastosEnc.CON_CEP='CPT' AND (COD_ESTATUS <> 2) AND (tblGastosEnc.CON_CEP = 'CPT') AND "
     "tblGastosEnc.FOL_MOV='X-1'"},
    {22, 198,
     "SELECT SUM(IMP_MOV - IVA_MOV + RET_TOT + RET_ISRTOT) AS TOTDAT FROM tblGastosEnc WHERE "
     "(COD_ESTATUS <> 2) AND (tblGastosEnc.CON_CEP = 'CPT') AND tblGastosEnc.FOL_MOV='X-1'"},
    {23, 72,
     "SELECT SUM((IMP_MOV)+(IMP_MOV*IMPTO_MOV/100)-(IMP_MOV*POR_RETE/100)-(IMP_MOV*RET_ISR/100)) "
     "AS TOTDAT FROM tblReposicionCajaMov INNER JOIN tblReposicionCaja ON "
     "tblReposicionCajaMov.FOL_DOC=tblReposicionCaja.FOL_DOC WHERE CON_MOV='CPT' AND (COD_STS <> "
     "2) AND tblReposicionCaja.FOL_CHEQUE='X-1'"},
    {23, 73,
     "SELECT SUM(IMP_MOV) AS TOTDAT FROM tblReposicionCajaMov INNER JOIN tblReposicionCaja ON "
     "tblReposicionCajaMov.FOL_DOC=tblReposicionCaja.FOL_DOC WHERE "
     "tblReposicionCajaMov.CON_MOV='CPT' AND (COD_STS <> 2) AND "
     "tblReposicionCaja.FOL_CHEQUE='X-1'"},
    {23, 74,
     "SELECT SUM(IMP_MOV * POR_RETE / 100) AS TOTDAT  FROM tblReposicionCajaMov INNER JOIN "
     "tblReposicionCaja ON tblReposicionCajaMov.FOL_DOC=tblReposicionCaja.FOL_DOC WHERE "
     "tblReposicionCajaMov.CON_MOV='CPT' AND (COD_STS <> 2) AND "
     "tblReposicionCaja.FOL_CHEQUE='X-1'"},
    {23, 75,
     "SELECT SUM(IMP_MOV * IMPTO_MOV / 100) AS TOTDAT  FROM tblReposicionCajaMov INNER JOIN "
     "tblReposicionCaja ON tblReposicionCajaMov.FOL_DOC=tblReposicionCaja.FOL_DOC WHERE "
     "tblReposicionCajaMov.CON_MOV='CPT' AND (COD_STS <> 2) AND "
     "tblReposicionCaja.FOL_CHEQUE='X-1'"},
    {23, 206,
     "SELECT SUM(IMP_MOV * RET_ISR / 100) AS TOTDAT  FROM tblReposicionCajaMov INNER JOIN "
     "tblReposicionCaja ON tblReposicionCajaMov.FOL_DOC=tblReposicionCaja.FOL_DOC WHERE "
     "tblReposicionCajaMov.CON_MOV='CPT' AND (COD_STS <> 2) AND "
     "tblReposicionCaja.FOL_CHEQUE='X-1'"},
    {24, 202,
     "SELECT SUM(IMP_MOV * TIP_CAM) AS TOTDAT FROM tblIngreEgre WHERE CON_CEP='CPT' AND "
     "(COD_ESTATUS <> 2) AND (CON_GRL='INGR') AND (tblIngreEgre.CON_CEP = 'CPT') AND "
     "tblIngreEgre.FOL_MOV='X-1'"},
    {24, 203,
     "SELECT SUM((IMP_MOV * TIP_CAM) - IMP_MOV) AS TOTDAT FROM tblIngreEgre WHERE CON_CEP='CPT' "
     "AND (COD_ESTATUS <> 2) AND (CON_GRL='INGR') AND (tblIngreEgre.CON_CEP = 'CPT') AND "
     "tblIngreEgre.FOL_MOV='X-1'"},
    {26, 202,
     "SELECT SUM(IMP_MOV * TIP_CAM) AS TOTDAT FROM tblIngreEgre WHERE (COD_ESTATUS <> 2) AND "
     "(CON_CEP='CHQE') AND (TIPO_APN=2) AND tblIngreEgre.FOL_MOV='X-1'"},
    {26, 203,
     "SELECT SUM((IMP_MOV * TIP_CAM) - IMP_MOV) AS TOTDAT tblIngreEgre WHERE (COD_ESTATUS <> 2) "
     "AND (CON_CEP='CHQE') AND (TIPO_APN=2) AND tblIngreEgre.FOL_MOV='X-1'"},
};

TEST(TextosDeCasos, EveryCaseSendsItsStatementsByDocument) {
  CorridaPrueba p;
  for (int cod : {1, 2, 3})
    p.Sql(QStringLiteral("INSERT INTO tblImpuestos (COD_IMP,DES_IMP) VALUES (%1,'I')").arg(cod));
  CargarOperaciones(p.c);
  for (const TextoDeCaso &t : kTextos) {
    SCOPED_TRACE(testing::Message() << t.oper << "/" << t.dato);
    p.Regla(t.oper, QStringLiteral("CPT"));
    const int i = p.Renglon(t.dato, QStringLiteral("1-01"), {});
    LeerDocumentos(p.c);
    p.Olvidar();
    try {
      ResolverDato(p.c, i, QStringLiteral("X-1"));
    } catch (const ErrorFatal &) {
      // The statements that the schema refuses are compared all the same.
    }
    EXPECT_EQ(p.Sentencias().join(QLatin1Char('\n')), QString::fromUtf8(t.sentencias));
  }
}

INSTANTIATE_TEST_SUITE_P(Motores, Valores, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
INSTANTIATE_TEST_SUITE_P(Motores, ValoresAlmacen, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);
INSTANTIATE_TEST_SUITE_P(Motores, ValoresCompras, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);
INSTANTIATE_TEST_SUITE_P(Motores, ValoresDiccionario, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);
INSTANTIATE_TEST_SUITE_P(Motores, Cuadre, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
INSTANTIATE_TEST_SUITE_P(Motores, Bancos, testing::ValuesIn(MotoresDePrueba()), NombreMotor);

} // namespace
