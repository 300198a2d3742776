#include "CorridaPrueba.h"
#include "config/Reglas.h"

#include <gtest/gtest.h>

namespace {

RubroOperacion Fila(int codPol, int dato, const char *rubroDebe, const char *rubroHaber) {
  RubroOperacion f;
  f.COD_POL = codPol;
  f.COD_DATO = dato;
  f.RUBRO_DEBE = QLatin1String(rubroDebe);
  f.RUBRO_HABER = QLatin1String(rubroHaber);
  f.CUENTA_DEBE = f.RUBRO_DEBE.isEmpty() ? QString() : QStringLiteral("C") + f.RUBRO_DEBE;
  f.CUENTA_HABER = f.RUBRO_HABER.isEmpty() ? QString() : QStringLiteral("C") + f.RUBRO_HABER;
  f.COD_DIARIO = QStringLiteral("D");
  f.COD_OPER = 22;
  return f;
}

TEST(Corrida, AFixedFieldIsCutOrFilledWithBlanks) {
  EXPECT_EQ(TextoFijo(QStringLiteral("VENTA DE CONTADO"), 30),
            QStringLiteral("VENTA DE CONTADO              "));
  EXPECT_EQ(TextoFijo(QStringLiteral("DEVOLUCIÓN DE CLIENTE (GENERAR ANTICIPO)"), 30),
            QStringLiteral("DEVOLUCIÓN DE CLIENTE (GENERAR"));
  EXPECT_EQ(TextoFijo(QString(), 4), QStringLiteral("    "));
}

TEST(Corrida, ATextLongerThanItsFieldEndsTheProcess) {
  EXPECT_EQ(TextoDeCampo(QStringLiteral("12345678901234567"), 17, "FOLIO_DOC"),
            QStringLiteral("12345678901234567"));
  const ErrorFatal e =
      Fatal([] { TextoDeCampo(QStringLiteral("123456789012345678"), 17, "FOLIO_DOC"); });
  EXPECT_EQ(e.Mensaje(), QStringLiteral("El valor «123456789012345678» no cabe en el campo "
                                        "FOLIO_DOC, de 17 caracteres."));
}

TEST(Corrida, AnInMemorySetMovesByHand) {
  ConjuntoMemoria<Documento> docs;
  EXPECT_TRUE(docs.Vacio());
  EXPECT_TRUE(docs.Fin());
  EXPECT_FALSE(docs.HayActual());
  Documento a, b;
  a.FOLIO_DOC = QStringLiteral("A");
  b.FOLIO_DOC = QStringLiteral("B");
  docs.Agregar(a);
  docs.Agregar(b);
  // Adding stands on the new row.
  EXPECT_EQ(docs.Actual().FOLIO_DOC, QStringLiteral("B"));
  docs.Primero();
  EXPECT_EQ(docs.Actual().FOLIO_DOC, QStringLiteral("A"));
  docs.Actual().CONTABILIZADO = true;
  docs.Siguiente();
  docs.Siguiente();
  EXPECT_TRUE(docs.Fin());
  EXPECT_TRUE(docs.Filas()[0].CONTABILIZADO);
  EXPECT_EQ(docs.Cuenta(), 2);
  EXPECT_EQ(Fatal([&] { docs.Actual(); }).Mensaje(),
            QStringLiteral("No hay registro actual: el conjunto está en su fin."));
  Fatal([&] { docs.Siguiente(); });
  docs.Crear();
  EXPECT_TRUE(docs.Vacio());
}

TEST(Corrida, AnOperationOutsideTheTableEndsTheProcess) {
  Corrida c;
  EXPECT_EQ(&c.Operacion(200), &c.Operaciones[200]);
  EXPECT_EQ(Fatal([&] { c.Operacion(201); }).Mensaje(),
            QStringLiteral("Subíndice fuera del intervalo: la operación 201 no tiene lugar en la "
                           "tabla de fuentes (0 a 200)."));
  Fatal([&] { c.Operacion(-1); });
}

TEST(Corrida, TwoHundredRulesFitAndTheNextEndsTheProcess) {
  Corrida c;
  ConceptoRegla r;
  r.CodOper = 22;
  r.Concepto = QStringLiteral("PAP");
  for (int i = 1; i <= 200; ++i) {
    r.CodPol = i;
    c.AgregarConcepto(r);
  }
  EXPECT_EQ(c.NumConceptos, 200);
  EXPECT_EQ(c.Conceptos[200].CodPol, 200);
  const ErrorFatal e = Fatal([&] { c.AgregarConcepto(r); });
  EXPECT_EQ(e.Mensaje(), QStringLiteral("La corrida admite a lo más 200 reglas: la regla 201 "
                                        "(operación 22, concepto «PAP») no cabe."));
  EXPECT_EQ(c.NumConceptos, 200);
  c.LimpiarConceptos();
  EXPECT_EQ(c.NumConceptos, 0);
  EXPECT_EQ(c.Conceptos[200].CodPol, 0);
}

class ReglasDeCorrida : public testing::TestWithParam<std::string> {};

TEST_P(ReglasDeCorrida, TheRowsOfARuleLoadInOrderOfCreationWithTheirDatum) {
  CorridaPrueba p(GetParam());
  p.Sql(QStringLiteral("INSERT INTO tblDatosxOperacion (COD_DATO,DES_DATO,COD_OPER,CAMPO_ESTBD) "
                       "VALUES (68,'IMPORTE',22,3)"));
  p.Sql(QStringLiteral("INSERT INTO tblDatosxOperacion (COD_DATO,DES_DATO,COD_OPER,CAMPO_ESTBD) "
                       "VALUES (71,'CUADRE',22,0)"));
  InsertarRubroDeRegla(*p.c.Conexion, Fila(7, 71, "", "1-01-01"));
  InsertarRubroDeRegla(*p.c.Conexion, Fila(7, 68, "6-01-06", ""));
  InsertarRubroDeRegla(*p.c.Conexion, Fila(7, 500, "6-01-07", "2-01"));
  p.Regla(22, QStringLiteral("PAP"), 1, 6, QStringLiteral("D"), 7);
  p.Renglon(1, QStringLiteral("X"), QString()); // what a previous rule left
  p.Olvidar();

  CargarReglas(p.c);
  EXPECT_EQ(p.Sentencias(),
            QStringList({QStringLiteral("SELECT * FROM tblRubrosxOperacion WHERE COD_POL=7 ORDER "
                                        "BY ORDEN_CREA;"),
                         QStringLiteral("SELECT DES_DATO,CAMPO_ESTBD FROM tblDatosxOperacion "
                                        "WHERE COD_DATO=71;"),
                         QStringLiteral("SELECT DES_DATO,CAMPO_ESTBD FROM tblDatosxOperacion "
                                        "WHERE COD_DATO=68;"),
                         QStringLiteral("SELECT DES_DATO,CAMPO_ESTBD FROM tblDatosxOperacion "
                                        "WHERE COD_DATO=500;")}));
  ASSERT_EQ(p.c.NumReglas, 3);
  EXPECT_EQ(p.c.Reglas[1].CodDato, 71);
  EXPECT_FALSE(p.c.Reglas[1].TieneDebe);
  EXPECT_TRUE(p.c.Reglas[1].TieneHaber);
  EXPECT_EQ(p.c.Reglas[1].DesDato, QStringLiteral("CUADRE"));
  EXPECT_EQ(p.c.Reglas[2].CodDato, 68);
  EXPECT_TRUE(p.c.Reglas[2].TieneDebe);
  EXPECT_EQ(p.c.Reglas[2].CuentaDebe, QStringLiteral("C6-01-06"));
  EXPECT_EQ(p.c.Reglas[2].CampoEstBd, 3);
  // A datum without a row keeps CampoEstBd 0.
  EXPECT_EQ(p.c.Reglas[3].CodDato, 500);
  EXPECT_EQ(p.c.Reglas[3].CampoEstBd, 0);
  EXPECT_EQ(p.c.Reglas[3].DesDato, QString());
  EXPECT_TRUE(p.c.Reglas[3].TieneDebe && p.c.Reglas[3].TieneHaber);
  EXPECT_EQ(p.c.Reglas[4].CodDato, 0);
}

TEST_P(ReglasDeCorrida, ARuleWhoseRowsVanishedHasNoRows) {
  CorridaPrueba p(GetParam());
  p.Regla(22, QStringLiteral("PAP"), 1, 6, QStringLiteral("D"), 7);
  CargarReglas(p.c);
  EXPECT_EQ(p.c.NumReglas, 0);
}

TEST_P(ReglasDeCorrida, AHundredRowsFitAndTheNextEndsTheProcessBeforeItsDatumIsRead) {
  CorridaPrueba p(GetParam());
  for (int dato = 1; dato <= 101; ++dato)
    InsertarRubroDeRegla(*p.c.Conexion, Fila(9, dato, "6-01-06", ""));
  p.Regla(22, QStringLiteral("PAP"), 1, 6, QStringLiteral("D"), 9);
  p.Olvidar();
  const ErrorFatal e = Fatal([&] { CargarReglas(p.c); });
  EXPECT_EQ(e.Mensaje(), QStringLiteral("Una regla admite a lo más 100 renglones: el renglón 101 "
                                        "(dato 101) de la regla 9 no cabe."));
  EXPECT_EQ(p.c.NumReglas, 100);
  EXPECT_EQ(p.c.Reglas[100].CodDato, 100);
  EXPECT_EQ(p.Sentencias().size(), 101);
  EXPECT_EQ(p.Sentencias().last(), QStringLiteral("SELECT DES_DATO,CAMPO_ESTBD FROM "
                                                  "tblDatosxOperacion WHERE COD_DATO=100;"));
}

INSTANTIATE_TEST_SUITE_P(Motores, ReglasDeCorrida, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);

} // namespace
