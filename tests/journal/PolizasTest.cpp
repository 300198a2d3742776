#include "journal/Polizas.h"
#include "Apoyo.h"

#include <gtest/gtest.h>

namespace {

Dinero D(const char *t) { return Dinero::DeTexto(QString::fromLatin1(t)); }

Poliza Ejemplo(const QString &folio, const QString &tipo) {
  Poliza p;
  p.FOL_POLIZA = folio;
  p.FEC_POLIZA = QDate(2024, 3, 15);
  p.TIP_POLIZA = tipo;
  p.COD_OPER = 1;
  p.CONCEP_POL = QStringLiteral("VENTA DE CONTADO");
  p.FEC_ANTERIOR = QDate(2024, 3, 15);
  p.SUM_DEBE = D("1160.5");
  p.SUM_HABER = D("1160.5");
  return p;
}

RenglonPoliza Cargo(int dato, const char *rubro, const char *cuenta, const char *imp) {
  RenglonPoliza r;
  r.COD_DATO = dato;
  r.RUBRO_DEBE = QLatin1String(rubro);
  r.CUENTA_DEBE = QLatin1String(cuenta);
  r.IMP_DEBE = D(imp);
  return r;
}

RenglonPoliza Abono(int dato, const char *rubro, const char *cuenta, const char *imp) {
  RenglonPoliza r;
  r.COD_DATO = dato;
  r.RUBRO_HABER = QLatin1String(rubro);
  r.CUENTA_HABER = QLatin1String(cuenta);
  r.IMP_HABER = D(imp);
  return r;
}

} // namespace

TEST(Polizas, TypeWordsAndFrequencies) {
  EXPECT_EQ(NombreTipoPoliza(QStringLiteral("I")), QStringLiteral("INGRESOS"));
  EXPECT_EQ(NombreTipoPoliza(QStringLiteral("E")), QStringLiteral("EGRESOS"));
  EXPECT_EQ(NombreTipoPoliza(QStringLiteral("D")), QStringLiteral("DIARIO"));
  EXPECT_EQ(NombreTipoPoliza(QStringLiteral("O")), QStringLiteral("ORDEN"));
  EXPECT_EQ(NombreTipoPoliza(QStringLiteral("S")), QStringLiteral("ESTADÍSTICA"));
  EXPECT_EQ(NombreTipoPoliza(QStringLiteral("X")), QString());
  EXPECT_EQ(NombreTipoPoliza(QStringLiteral("i")), QString());
  EXPECT_EQ(NombreFrecuencia(1), QStringLiteral("Póliza por Documento"));
  EXPECT_EQ(NombreFrecuencia(2), QStringLiteral("Póliza por Día"));
}

TEST(Polizas, FoliosHaveElevenDigitsOrAsManyAsTheyNeed) {
  EXPECT_EQ(FormatoFolio(100), QStringLiteral("00000000100"));
  EXPECT_EQ(FormatoFolio(1), QStringLiteral("00000000001"));
  EXPECT_EQ(FormatoFolio(123456789012LL), QStringLiteral("123456789012"));
}

TEST(Polizas, StatementsAreTheFamilysText) {
  Poliza p = Ejemplo(QStringLiteral("00000000007"), QStringLiteral("I"));
  p.IMPANT_DEBE = D("10.25");
  EXPECT_EQ(SentenciaInsertarPoliza(p, 5),
            QStringLiteral("INSERT INTO tblPolizasEnc (FOL_POLIZA,FEC_POLIZA,TIP_POLIZA,COD_OPER,"
                           "CONCEP_POL,FEC_ANTERIOR,IMPANT_DEBE,IMPANT_HABER,SUM_DEBE,SUM_HABER,"
                           "ESTATUS) VALUES ('00000000007','2024-03-15','I',1,'VENTA DE CONTADO',"
                           "'2024-03-15',10.25,0,1160.5,1160.5,1)"));
  EXPECT_EQ(SentenciaRenglonDebe(QStringLiteral("00000000007"), QStringLiteral("I"), 3,
                                 QStringLiteral("1-01-01"), QStringLiteral("1101"), D("1160.5")),
            QStringLiteral("INSERT INTO tblPolizasRen (FOL_POLIZA,TIP_POLIZA,COD_DATO,RUBRO_DEBE,"
                           "RUBRO_HABER,CUENTA_DEBE,CUENTA_HABER,IMP_DEBE,IMP_HABER) VALUES "
                           "('00000000007','I',3,'1-01-01','','1101','',1160.5,0)"));
  EXPECT_EQ(SentenciaRenglonHaber(QStringLiteral("00000000007"), QStringLiteral("I"), 4,
                                  QStringLiteral("4-01"), QStringLiteral("4101"), D("1000.43")),
            QStringLiteral("INSERT INTO tblPolizasRen (FOL_POLIZA,TIP_POLIZA,COD_DATO,RUBRO_DEBE,"
                           "RUBRO_HABER,CUENTA_DEBE,CUENTA_HABER,IMP_DEBE,IMP_HABER) VALUES "
                           "('00000000007','I',4,'','4-01','','4101',0,1000.43)"));
}

class AlmacenPolizas : public testing::TestWithParam<std::string> {};

TEST_P(AlmacenPolizas, AnEntryIsWrittenAndReadBackWithItsLines) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  Poliza p = Ejemplo(QStringLiteral("00000000001"), QStringLiteral("I"));
  p.ESTATUS = -1;
  p.FEC_ANTERIOR = QDate(2024, 3, 1);
  p.IMPANT_DEBE = D("999.99");
  const std::vector<RenglonPoliza> lineas = {Cargo(3, "1-01-01", "1101-000", "1160.5"),
                                             Abono(4, "4-01", "4101-000", "1000.43"),
                                             Abono(5, "2-01-03", "2103-000", "160.07")};
  InsertarPoliza(*con, p, lineas);

  const std::optional<Poliza> leida = LeerPoliza(*con, p.FOL_POLIZA, p.TIP_POLIZA);
  ASSERT_TRUE(leida.has_value());
  EXPECT_EQ(leida->FEC_POLIZA, QDate(2024, 3, 15));
  EXPECT_EQ(leida->FEC_ANTERIOR, QDate(2024, 3, 1));
  EXPECT_EQ(leida->COD_OPER, 1);
  EXPECT_EQ(leida->CONCEP_POL, QStringLiteral("VENTA DE CONTADO"));
  EXPECT_EQ(leida->IMPANT_DEBE, D("999.99"));
  EXPECT_EQ(leida->IMPANT_HABER, D("0"));
  EXPECT_EQ(leida->SUM_DEBE, D("1160.5"));
  EXPECT_EQ(leida->ESTATUS, -1);

  const std::vector<RenglonPoliza> r = LeerRenglones(*con, p.FOL_POLIZA, p.TIP_POLIZA);
  ASSERT_EQ(r.size(), 3u);
  EXPECT_TRUE(r[0].EsCargo());
  EXPECT_EQ(r[0].CUENTA_DEBE, QStringLiteral("1101-000"));
  EXPECT_EQ(r[0].RUBRO_HABER, QString());
  EXPECT_EQ(r[0].IMP_DEBE, D("1160.5"));
  EXPECT_EQ(r[0].IMP_HABER, D("0"));
  EXPECT_FALSE(r[1].EsCargo());
  EXPECT_EQ(r[1].COD_DATO, 4);
  EXPECT_EQ(r[1].RUBRO_HABER, QStringLiteral("4-01"));
  EXPECT_EQ(r[1].IMP_HABER, D("1000.43"));
  EXPECT_EQ(r[2].IMP_HABER, D("160.07"));
}

TEST_P(AlmacenPolizas, TwoJournalTypesMayHoldTheSameFolio) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  Poliza ingreso = Ejemplo(QStringLiteral("00000000001"), QStringLiteral("I"));
  Poliza diario = Ejemplo(QStringLiteral("00000000001"), QStringLiteral("D"));
  diario.COD_OPER = 12;
  InsertarPoliza(*con, ingreso, {Cargo(1, "1-01", "1", "5")});
  InsertarPoliza(*con, diario, {Abono(2, "2-01", "2", "7"), Abono(2, "2-01", "2", "8")});
  EXPECT_EQ(LeerPoliza(*con, QStringLiteral("00000000001"), QStringLiteral("I"))->COD_OPER, 1);
  EXPECT_EQ(LeerPoliza(*con, QStringLiteral("00000000001"), QStringLiteral("D"))->COD_OPER, 12);
  EXPECT_EQ(LeerRenglones(*con, QStringLiteral("00000000001"), QStringLiteral("I")).size(), 1u);
  EXPECT_EQ(LeerRenglones(*con, QStringLiteral("00000000001"), QStringLiteral("D")).size(), 2u);
  EXPECT_FALSE(LeerPoliza(*con, QStringLiteral("00000000001"), QStringLiteral("E")).has_value());
}

TEST_P(AlmacenPolizas, AnEntryMayHaveNoLines) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  InsertarPoliza(*con, Ejemplo(QStringLiteral("00000000009"), QStringLiteral("E")), {});
  EXPECT_TRUE(LeerPoliza(*con, QStringLiteral("00000000009"), QStringLiteral("E")).has_value());
  EXPECT_TRUE(LeerRenglones(*con, QStringLiteral("00000000009"), QStringLiteral("E")).empty());
}

TEST_P(AlmacenPolizas, ADocumentUnderTwoConceptsHasTwoMovementRows) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  for (const char *concepto : {"RENT", "LUZ"})
    con->Ejecutar(
        QStringLiteral("INSERT INTO tblMovimxPoliza (FOLIO_MOV,CONCEPTO,MODULO,FOLIO_POL,"
                       "FOLIO_POLIZA,FREC,FECHA_CON,FECHA_MOV,COD_OPER) VALUES ('G-1','%1',"
                       "6,1,'00000000001',1,'2024-03-15','2024-03-15',22)")
            .arg(QLatin1String(concepto)));
  EXPECT_EQ(emp.Valor(QStringLiteral("SELECT COUNT(*) FROM tblMovimxPoliza WHERE FOLIO_MOV='G-1' "
                                     "AND CONCEPTO='LUZ'")),
            QStringLiteral("1"));
  EXPECT_EQ(emp.Contar(QStringLiteral("tblMovimxPoliza")), 2);
}

INSTANTIATE_TEST_SUITE_P(Motores, AlmacenPolizas, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);
