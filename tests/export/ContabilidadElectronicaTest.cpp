#include "export/ContabilidadElectronica.h"
#include "Apoyo.h"
#include "export/ApoyoSat.h"
#include "journal/Polizas.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

Dinero D(const char *texto) { return Dinero::DeTexto(QString::fromLatin1(texto)); }

RenglonPoliza Cargo(const char *rubro, const char *cuenta, const char *importe) {
  RenglonPoliza r;
  r.RUBRO_DEBE = QString::fromUtf8(rubro);
  r.CUENTA_DEBE = QString::fromUtf8(cuenta);
  r.IMP_DEBE = D(importe);
  return r;
}

RenglonPoliza Abono(const char *rubro, const char *cuenta, const char *importe) {
  RenglonPoliza r;
  r.RUBRO_HABER = QString::fromUtf8(rubro);
  r.CUENTA_HABER = QString::fromUtf8(cuenta);
  r.IMP_HABER = D(importe);
  return r;
}

// A company with a small chart, its SAT codes, and entries of October 2026 and one of
// November.
class Sat : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->AbrirComoAdmin(QStringLiteral("clave"));
    Rubro("1", "ACTIVO", "", "DEUDORA", "1000");
    Rubro("1-01", "CAJA", "1", "DEUDORA", "1101");
    Rubro("4", "INGRESOS", "", "ACREEDORA", "4000");
    Rubro("4-01", "VENTAS & SERVICIOS", "4", "ACREEDORA", "");
    Codigo("1", "100", "D");
    Codigo("1-01", "101.01", "D");
    Codigo("4", "400", "A");
    Codigo("4-01", "401.01", "");

    Poliza(QStringLiteral("I"), QStringLiteral("00000000002"), QDate(2026, 10, 5),
           QStringLiteral("VENTA D'ANGELO <MOSTRADOR>"),
           {Cargo("1-01", "1101", "1160.005"), Abono("4-01", "", "1160.005")});
    Poliza(QStringLiteral("D"), QStringLiteral("00000000001"), QDate(2026, 10, 5), QString(),
           {Cargo("1-01", "1101", "10"), Abono("4-01", "4100", "10")});
    Poliza(QStringLiteral("E"), QStringLiteral("00000000003"), QDate(2026, 10, 9),
           QStringLiteral("SIN MOVIMIENTO"), {});
    Poliza(QStringLiteral("I"), QStringLiteral("00000000004"), QDate(2026, 11, 1),
           QStringLiteral("OTRO MES"), {Cargo("1-01", "1101", "1"), Abono("4-01", "", "1")});
  }
  void Rubro(const char *cod, const char *des, const char *padre, const char *nat,
             const char *cuenta) {
    con->Ejecutar(QStringLiteral("INSERT INTO tblCatRubros (COD_RUBRO,DES_RUBRO,ACUM_RUBRO,"
                                 "TIPOCTA_RUBRO,EDOFIN_RUBRO,NATURAL_RUBRO,CLASIF_RUBRO,"
                                 "ULTIMO_RUBRO,CUENTA_RUBRO,SUB_RUBRO) VALUES ('%1','%2','%3',"
                                 "'','','%4','S','S','%5',0)")
                      .arg(QString::fromUtf8(cod), QString::fromUtf8(des), QString::fromUtf8(padre),
                           QString::fromUtf8(nat), QString::fromUtf8(cuenta)));
  }
  void Codigo(const char *rubro, const char *codigo, const char *nat) {
    con->Ejecutar(
        QStringLiteral(
            "INSERT INTO tblRubrosSAT (COD_RUBRO,COD_AGRUP,NATURALEZA) VALUES ('%1','%2','%3')")
            .arg(QString::fromUtf8(rubro), QString::fromUtf8(codigo), QString::fromUtf8(nat)));
  }
  void Poliza(const QString &tipo, const QString &folio, const QDate &fecha,
              const QString &concepto, std::vector<RenglonPoliza> renglones) {
    ::Poliza p;
    p.TIP_POLIZA = tipo;
    p.FOL_POLIZA = folio;
    p.FEC_POLIZA = fecha;
    p.FEC_ANTERIOR = fecha;
    p.CONCEP_POL = concepto;
    for (RenglonPoliza &r : renglones) {
      r.TIP_POLIZA = tipo;
      r.FOL_POLIZA = folio;
      p.SUM_DEBE += r.IMP_DEBE;
      p.SUM_HABER += r.IMP_HABER;
    }
    InsertarPoliza(*con, p, renglones);
  }
  sat::PeticionPolizas Peticion() const {
    sat::PeticionPolizas p;
    p.mes = QDate(2026, 10, 1);
    p.tipoSolicitud = QStringLiteral("AF");
    p.numOrden = QStringLiteral("ABC1234567/26");
    return p;
  }
  QString Export() const { return UnirRuta(gRutaApp, QStringLiteral("Export")); }
  bool ExportVacio() const { return QDir(Export()).isEmpty(); }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

// A fault names its field between parentheses.
bool Nombra(const sat::ResultadoSat &r, const char *campo) {
  for (const QString &f : r.faltas)
    if (f.contains(QStringLiteral("(%1)").arg(QLatin1String(campo))))
      return true;
  return false;
}

} // namespace

// The lines carry the rubro's account in the chart, not the one the rule stored (4100),
// and cents as the journal rounds them, half to even.
TEST_P(Sat, TheMonthsEntriesWithLinesGoToTheFileUnderTheSatsName) {
  const sat::ResultadoSat r = sat::EscribirPolizas(*con, Peticion());
  ASSERT_TRUE(r.Escrito()) << r.faltas.join(QLatin1Char('\n')).toStdString();
  EXPECT_EQ(r.archivo, RutaNativa(UnirRuta(Export(), QStringLiteral("FDL180314AB1202610PL.xml"))));
  EXPECT_EQ(r.elementos, 2);
  EXPECT_EQ(r.transacciones, 4);
  EXPECT_EQ(r.sinMovimiento, 1);
  EXPECT_EQ(
      QString::fromUtf8(LeerArchivo(r.archivo)),
      QStringLiteral(
          "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
          "<PLZ:Polizas xmlns:PLZ=\"http://www.sat.gob.mx/esquemas/ContabilidadE/1_3/"
          "PolizasPeriodo\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
          "xsi:schemaLocation=\"http://www.sat.gob.mx/esquemas/ContabilidadE/1_3/PolizasPeriodo "
          "http://www.sat.gob.mx/esquemas/ContabilidadE/1_3/PolizasPeriodo/"
          "PolizasPeriodo_1_3.xsd\" Version=\"1.3\" RFC=\"FDL180314AB1\" Mes=\"10\" "
          "Anio=\"2026\" TipoSolicitud=\"AF\" NumOrden=\"ABC1234567/26\">\n"
          "    <PLZ:Poliza NumUnIdenPol=\"D-00000000001\" Fecha=\"2026-10-05\" "
          "Concepto=\"Póliza D-00000000001\">\n"
          "        <PLZ:Transaccion NumCta=\"1101\" DesCta=\"CAJA\" Concepto=\"Póliza "
          "D-00000000001\" Debe=\"10.00\" Haber=\"0.00\"/>\n"
          "        <PLZ:Transaccion NumCta=\"4-01\" DesCta=\"VENTAS &amp; SERVICIOS\" "
          "Concepto=\"Póliza D-00000000001\" Debe=\"0.00\" Haber=\"10.00\"/>\n"
          "    </PLZ:Poliza>\n"
          "    <PLZ:Poliza NumUnIdenPol=\"I-00000000002\" Fecha=\"2026-10-05\" "
          "Concepto=\"VENTA D'ANGELO &lt;MOSTRADOR&gt;\">\n"
          "        <PLZ:Transaccion NumCta=\"1101\" DesCta=\"CAJA\" Concepto=\"VENTA D'ANGELO "
          "&lt;MOSTRADOR&gt;\" Debe=\"1160.00\" Haber=\"0.00\"/>\n"
          "        <PLZ:Transaccion NumCta=\"4-01\" DesCta=\"VENTAS &amp; SERVICIOS\" "
          "Concepto=\"VENTA D'ANGELO &lt;MOSTRADOR&gt;\" Debe=\"0.00\" Haber=\"1160.00\"/>\n"
          "    </PLZ:Poliza>\n"
          "</PLZ:Polizas>\n"));
  EXPECT_EQ(satprueba::Validar(r.archivo, QStringLiteral("PolizasPeriodo_1_3.xsd")), QString());
}

TEST_P(Sat, ARefundRequestCarriesItsProcedureNumberAndAFileOfItsOwnName) {
  sat::PeticionPolizas p = Peticion();
  p.tipoSolicitud = QStringLiteral("DE");
  p.numOrden.clear();
  p.numTramite = QStringLiteral("DE123456789012");
  p.archivo = UnirRuta(emp->Ruta(), QStringLiteral("sat/octubre.xml"));
  const sat::ResultadoSat r = sat::EscribirPolizas(*con, p);
  ASSERT_TRUE(r.Escrito()) << r.faltas.join(QLatin1Char('\n')).toStdString();
  EXPECT_EQ(r.archivo, RutaNativa(p.archivo));
  const QString xml = QString::fromUtf8(LeerArchivo(r.archivo));
  EXPECT_TRUE(xml.contains(QStringLiteral("TipoSolicitud=\"DE\" NumTramite=\"DE123456789012\">")));
  EXPECT_FALSE(xml.contains(QStringLiteral("NumOrden")));
  EXPECT_EQ(satprueba::Validar(r.archivo, QStringLiteral("PolizasPeriodo_1_3.xsd")), QString());
  EXPECT_TRUE(ExportVacio());
}

TEST_P(Sat, ARequestThatIsNotTheSatsIsRefusedNamingItsField) {
  const auto falta = [&](auto cambio, const char *campo) {
    sat::PeticionPolizas p = Peticion();
    cambio(p);
    const sat::ResultadoSat r = sat::EscribirPolizas(*con, p);
    EXPECT_FALSE(r.Escrito()) << campo;
    EXPECT_TRUE(Nombra(r, campo)) << campo << ": " << r.faltas.join(QLatin1Char('|')).toStdString();
    EXPECT_TRUE(r.archivo.isEmpty());
  };
  falta([](sat::PeticionPolizas &p) { p.tipoSolicitud = QStringLiteral("XX"); }, "TipoSolicitud");
  falta([](sat::PeticionPolizas &p) { p.numOrden = QStringLiteral("ABC123456/26"); }, "NumOrden");
  falta([](sat::PeticionPolizas &p) { p.numOrden.clear(); }, "NumOrden");
  falta([](sat::PeticionPolizas &p) { p.numTramite = QStringLiteral("DE123456789012"); },
        "NumTramite");
  falta(
      [](sat::PeticionPolizas &p) {
        p.tipoSolicitud = QStringLiteral("CO");
        p.numOrden.clear();
        p.numTramite = QStringLiteral("CO12345678901");
      },
      "NumTramite");
  falta([](sat::PeticionPolizas &p) { p.tipoSolicitud = QStringLiteral("DE"); }, "NumOrden");
  falta([](sat::PeticionPolizas &p) { p.mes = QDate(2014, 12, 1); }, "Anio");
  EXPECT_TRUE(ExportVacio());
}

TEST_P(Sat, AnRfcOutOfTheSatsPatternIsRefused) {
  con->Ejecutar(QStringLiteral("UPDATE tblEmpresa SET RFC2_EMP='18031' WHERE COD_EMPRESA=1"));
  const sat::ResultadoSat r = sat::EscribirPolizas(*con, Peticion());
  ASSERT_EQ(r.faltas.size(), 1);
  EXPECT_TRUE(r.faltas[0].contains(QStringLiteral("«FDL18031AB1»")));
  EXPECT_TRUE(Nombra(r, "RFC"));
  EXPECT_TRUE(Nombra(sat::EscribirCatalogo(*con, QDate(2026, 10, 1)), "RFC"));
  EXPECT_TRUE(ExportVacio());
}

TEST_P(Sat, TheRfcIsReadWithoutDashesOrBlanksInCapitals) {
  con->Ejecutar(QStringLiteral(
      "UPDATE tblEmpresa SET RFC1_EMP='fdl-',RFC2_EMP=' 180314',RFC3_EMP='ab1 ' WHERE "
      "COD_EMPRESA=1"));
  EXPECT_EQ(sat::RfcEmpresa(*con), QStringLiteral("FDL180314AB1"));
}

TEST_P(Sat, AMonthWithoutEntriesWritesNothing) {
  sat::PeticionPolizas p = Peticion();
  p.mes = QDate(2026, 9, 30);
  const sat::ResultadoSat r = sat::EscribirPolizas(*con, p);
  ASSERT_EQ(r.faltas.size(), 1);
  EXPECT_EQ(r.faltas[0], QStringLiteral("El mes 09/2026 no tiene pólizas con movimientos (Mes)."));
  EXPECT_TRUE(ExportVacio());
}

TEST_P(Sat, ALineOfARubroThatLeftTheChartIsNamed) {
  Poliza(QStringLiteral("D"), QStringLiteral("00000000007"), QDate(2026, 10, 20),
         QStringLiteral("AJUSTE"), {Cargo("9-99", "9999", "5"), Abono("1-01", "1101", "5")});
  const sat::ResultadoSat r = sat::EscribirPolizas(*con, Peticion());
  ASSERT_EQ(r.faltas.size(), 1);
  EXPECT_EQ(r.faltas[0], QStringLiteral("La póliza D-00000000007 tiene un renglón del rubro "
                                        "«9-99», que no está en el catálogo o no tiene "
                                        "descripción (DesCta)."));
  EXPECT_TRUE(ExportVacio());
}

TEST_P(Sat, AFileThatCannotBeWrittenIsNamedAndNothingIsLeft) {
  sat::PeticionPolizas p = Peticion();
  EscribirArchivo(UnirRuta(emp->Ruta(), QStringLiteral("ocupado")), "un archivo");
  p.archivo = UnirRuta(emp->Ruta(), QStringLiteral("ocupado/octubre.xml"));
  const sat::ResultadoSat r = sat::EscribirPolizas(*con, p);
  ASSERT_EQ(r.faltas.size(), 1);
  EXPECT_TRUE(r.faltas[0].startsWith(QStringLiteral("No fue posible escribir el archivo ") +
                                     QDir::toNativeSeparators(RutaNativa(p.archivo))));
  EXPECT_TRUE(r.archivo.isEmpty());
}

TEST_P(Sat, TheChartGoesWithItsCodesLevelsParentsAndNatures) {
  const sat::ResultadoSat r = sat::EscribirCatalogo(*con, QDate(2026, 10, 1));
  ASSERT_TRUE(r.Escrito()) << r.faltas.join(QLatin1Char('\n')).toStdString();
  EXPECT_EQ(r.archivo, RutaNativa(UnirRuta(Export(), QStringLiteral("FDL180314AB1202610CT.xml"))));
  EXPECT_EQ(r.elementos, 4);
  // A rubro without its account is known by its code; a SAT row without a nature takes
  // the rubro's.
  EXPECT_EQ(QString::fromUtf8(LeerArchivo(r.archivo)),
            QStringLiteral(
                "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                "<catalogocuentas:Catalogo xmlns:catalogocuentas=\"http://www.sat.gob.mx/esquemas/"
                "ContabilidadE/1_3/CatalogoCuentas\" "
                "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                "xsi:schemaLocation=\"http://www.sat.gob.mx/esquemas/ContabilidadE/1_3/"
                "CatalogoCuentas http://www.sat.gob.mx/esquemas/ContabilidadE/1_3/CatalogoCuentas/"
                "CatalogoCuentas_1_3.xsd\" Version=\"1.3\" RFC=\"FDL180314AB1\" Mes=\"10\" "
                "Anio=\"2026\">\n"
                "    <catalogocuentas:Ctas CodAgrup=\"100\" NumCta=\"1000\" Desc=\"ACTIVO\" "
                "Nivel=\"1\" Natur=\"D\"/>\n"
                "    <catalogocuentas:Ctas CodAgrup=\"101.01\" NumCta=\"1101\" Desc=\"CAJA\" "
                "SubCtaDe=\"1000\" Nivel=\"2\" Natur=\"D\"/>\n"
                "    <catalogocuentas:Ctas CodAgrup=\"400\" NumCta=\"4000\" Desc=\"INGRESOS\" "
                "Nivel=\"1\" Natur=\"A\"/>\n"
                "    <catalogocuentas:Ctas CodAgrup=\"401.01\" NumCta=\"4-01\" Desc=\"VENTAS &amp; "
                "SERVICIOS\" SubCtaDe=\"4000\" Nivel=\"2\" Natur=\"A\"/>\n"
                "</catalogocuentas:Catalogo>\n"));
  EXPECT_EQ(satprueba::Validar(r.archivo, QStringLiteral("CatalogoCuentas_1_3.xsd")), QString());
}

TEST_P(Sat, AccountsWithoutACodeOrWithABadOneAreListedAndNoFileIsWritten) {
  con->Ejecutar(QStringLiteral("DELETE FROM tblRubrosSAT WHERE COD_RUBRO IN ('1','4')"));
  con->Ejecutar(QStringLiteral("UPDATE tblRubrosSAT SET COD_AGRUP='1010' WHERE COD_RUBRO='1-01'"));
  const sat::ResultadoSat r = sat::EscribirCatalogo(*con, QDate(2026, 10, 1));
  EXPECT_EQ(r.faltas,
            QStringList({QStringLiteral("La cuenta 1000 (1 ACTIVO) no tiene código agrupador del "
                                        "SAT (CodAgrup)."),
                         QStringLiteral("El código agrupador «1010» de la cuenta 1101 (1-01 CAJA) "
                                        "no tiene la forma del SAT: tres cifras, y para una "
                                        "subcuenta un punto y dos cifras más (CodAgrup)."),
                         QStringLiteral("La cuenta 4000 (4 INGRESOS) no tiene código agrupador "
                                        "del SAT (CodAgrup).")}));
  EXPECT_TRUE(r.archivo.isEmpty());
  EXPECT_TRUE(ExportVacio());
}

TEST_P(Sat, ACompanyMadeBeforeTheSatTableGetsItAndHearsWhatIsMissing) {
  con->Ejecutar(QStringLiteral("DROP TABLE tblRubrosSAT"));
  const sat::ResultadoSat r = sat::EscribirCatalogo(*con, QDate(2026, 10, 1));
  EXPECT_EQ(r.faltas.size(), 4);
  EXPECT_TRUE(Nombra(r, "CodAgrup"));
  EXPECT_EQ(emp->Contar(QStringLiteral("tblRubrosSAT")), 0);
}

TEST_P(Sat, AnEntryWhoseLinesDontBalanceIsNamed) {
  Poliza(
      QStringLiteral("D"), QStringLiteral("00000000008"), QDate(2026, 10, 21),
      QStringLiteral("AJUSTE"),
      {Cargo("1-01", "1101", "0.015"), Cargo("1-01", "1101", "0.015"), Abono("4-01", "", "0.03")});
  const sat::ResultadoSat r = sat::EscribirPolizas(*con, Peticion());
  // 0.015 and 0.015 are 0.02 and 0.02 in cents; 0.03 stays 0.03.
  EXPECT_EQ(r.faltas, QStringList{QStringLiteral("La póliza D-00000000008 no cuadra: sus cargos "
                                                 "suman 0.04 y sus abonos 0.03 (Debe, Haber).")});
  EXPECT_TRUE(ExportVacio());
}

TEST_P(Sat, AParentMissingOrAChainThatComesBackIsNamedInTheChart) {
  Rubro("7", "ORDEN", "9", "DEUDORA", "7000");
  Codigo("7", "800", "D");
  con->Ejecutar(QStringLiteral("UPDATE tblCatRubros SET ACUM_RUBRO='4-01' WHERE COD_RUBRO='4'"));
  const sat::ResultadoSat r = sat::EscribirCatalogo(*con, QDate(2026, 10, 1));
  EXPECT_EQ(r.faltas,
            QStringList({QStringLiteral("La cuenta 4000 (4 INGRESOS) acumula en una cadena de "
                                        "rubros que vuelve sobre sí misma: 4 → 4-01 → 4 "
                                        "(SubCtaDe)."),
                         QStringLiteral("La cuenta 4-01 (4-01 VENTAS & SERVICIOS) acumula en una "
                                        "cadena de rubros que vuelve sobre sí misma: 4-01 → 4 → "
                                        "4-01 (SubCtaDe)."),
                         QStringLiteral("La cuenta 7000 (7 ORDEN) acumula en el rubro «9», que no "
                                        "está en el catálogo (SubCtaDe).")}));
  EXPECT_TRUE(ExportVacio());
}

TEST_P(Sat, TwoRubrosWithOneAccountAreRefused) {
  con->Ejecutar(
      QStringLiteral("UPDATE tblCatRubros SET CUENTA_RUBRO='1101' WHERE COD_RUBRO='4-01'"));
  const sat::ResultadoSat r = sat::EscribirCatalogo(*con, QDate(2026, 10, 1));
  EXPECT_EQ(r.faltas, QStringList{QStringLiteral("Los rubros 1-01 y 4-01 tienen la misma cuenta "
                                                 "1101: el SAT pide un número de cuenta para "
                                                 "cada una (NumCta).")});
}

TEST_P(Sat, ACompanyOfThirteenCharactersAndItsSignsFitsTheSatsPattern) {
  con->Ejecutar(QStringLiteral("UPDATE tblEmpresa SET RFC1_EMP='ÑA&O',RFC2_EMP='800101',"
                               "RFC3_EMP='XY9' WHERE COD_EMPRESA=1"));
  const sat::ResultadoSat r = sat::EscribirPolizas(*con, Peticion());
  ASSERT_TRUE(r.Escrito()) << r.faltas.join(QLatin1Char('\n')).toStdString();
  EXPECT_TRUE(r.archivo.endsWith(QStringLiteral("ÑA&O800101XY9202610PL.xml")));
  EXPECT_EQ(satprueba::Validar(r.archivo, QStringLiteral("PolizasPeriodo_1_3.xsd")), QString());
  con->Ejecutar(QStringLiteral("UPDATE tblEmpresa SET RFC1_EMP='',RFC2_EMP='',RFC3_EMP='' WHERE "
                               "COD_EMPRESA=1"));
  EXPECT_EQ(sat::EscribirCatalogo(*con, QDate(2026, 10, 1)).faltas,
            QStringList{QStringLiteral("Falta el RFC de la empresa (RFC). Escríbalo en los datos "
                                       "de la empresa.")});
}

TEST(CodigoAgrupador, ThreeDigitsAndForASubaccountAPointAndTwoMore) {
  EXPECT_TRUE(sat::CodigoAgrupadorValido(QStringLiteral("101")));
  EXPECT_TRUE(sat::CodigoAgrupadorValido(QStringLiteral("101.01")));
  EXPECT_FALSE(sat::CodigoAgrupadorValido(QStringLiteral("10")));
  EXPECT_FALSE(sat::CodigoAgrupadorValido(QStringLiteral("101.1")));
  EXPECT_FALSE(sat::CodigoAgrupadorValido(QStringLiteral("101.01 ")));
  EXPECT_FALSE(sat::CodigoAgrupadorValido(QString()));
}

TEST(NombreArchivo, RfcYearMonthAndKind) {
  EXPECT_EQ(
      sat::NombreArchivo(QStringLiteral("FDL180314AB1"), QDate(2026, 3, 17), QStringLiteral("PL")),
      QStringLiteral("FDL180314AB1202603PL.xml"));
}

INSTANTIATE_TEST_SUITE_P(Motores, Sat, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
