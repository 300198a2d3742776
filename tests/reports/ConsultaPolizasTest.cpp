#include "reports/ConsultaPolizas.h"
#include "Apoyo.h"
#include "journal/DiarioPrueba.h"
#include "journal/Polizas.h"
#include "reports/Lienzo.h"

#include <QDir>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

// A company with three entries of November 2026 (two types under folio 1), their rubros,
// and the documents posted into them; the reports drawn on the recording canvas.
class Consulta : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    Sql("INSERT INTO tblEmpresa (NOM_EMP,DIR1_EMP,RFC1_EMP,TEL1_EMP,TEL2_EMP) VALUES "
        "('La Fonda','Hidalgo 12','FON010101AAA','3361','3362')");
    Sql("INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,GENERA_CON) VALUES "
        "(1,'VENTAS DE CONTADO',1,0),(22,'GASTOS',6,1)");
    Sql("INSERT INTO tblConceptosGyT (COD_CON,DES_CON,COD_FOL) VALUES "
        "('RENT','RENTA DEL LOCAL','GTOS')");
    Sql("INSERT INTO tblCatRubros (COD_RUBRO,DES_RUBRO,CUENTA_RUBRO) VALUES "
        "('1-01','CAJA','1100'),('4-01','VENTAS','4100'),('6-01','RENTA','6100')");
    Poliza("00000000001", "D", QDate(2026, 11, 3), 1, "VENTA DE CONTADO", "1100", "4100", "150");
    Poliza("00000000001", "I", QDate(2026, 11, 4), 1, "VENTA DE CONTADO", "1100", "4100", "80");
    Poliza("00000000002", "E", QDate(2026, 11, 5), 22, "RENTA DEL LOCAL", "6100", "1100", "1250.5");
    Sql("INSERT INTO tblMovimxPoliza (FOLIO_MOV,CONCEPTO,MODULO,FOLIO_POLIZA,FREC,FECHA_CON,"
        "FECHA_MOV,COD_OPER) VALUES ('NV-1','NVEN',1,'00000000001',2,'2026-11-03',"
        "'2026-11-03',1),('G-1','RENT',6,'00000000002',1,'2026-11-05','2026-11-05',22),"
        "('G-2','OTRO',6,'00000000002',1,'2026-11-05','2026-11-05',22),"
        "('G-3','RENT',6,'00000000009',1,'2026-11-06','2026-11-06',22)");
    temporal = emp->Ruta() + QStringLiteral("/Temp");
    QDir().mkpath(temporal);
  }
  void Sql(const char *sql) { con->Ejecutar(QString::fromUtf8(sql)); }
  void Poliza(const char *folio, const char *tipo, const QDate &fecha, int oper,
              const char *concepto, const char *debe, const char *haber, const char *importe) {
    diario::InsertarAsiento(*con, {QLatin1String(folio), QLatin1String(tipo), fecha, oper,
                                   QLatin1String(concepto), QStringLiteral("x"),
                                   QLatin1String(debe), QStringLiteral("y"), QLatin1String(haber),
                                   Dinero::DeTexto(QString::fromLatin1(importe))});
  }
  OpcionesConsulta Noviembre() const {
    OpcionesConsulta op;
    op.del = QDate(2026, 11, 1);
    op.al = QDate(2026, 11, 30);
    return op;
  }
  // The report's trace, its header lines (the first nine) aside.
  QStringList Trazar(const OpcionesConsulta &op) {
    LienzoGrabador lienzo;
    ReporteConsulta reporte(*con, lienzo, LeerEncabezadoEmpresa(*con), CargarConceptos(*con),
                            temporal, QDate(2026, 11, 23));
    reporte.ArmarFiltros(op);
    reporte.GenerarReporte();
    paginas = reporte.Paginas();
    filtro = reporte.Filtro();
    EXPECT_TRUE(QDir(temporal).entryList(QDir::Files).isEmpty()) << "page files left behind";
    return lienzo.Traza();
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  QString temporal;
  int paginas = 0;
  QString filtro;
};

const QStringList kEncabezado = L({
    "1\ttexto\t0\t0\t8\t0\t0\tazul\t0\tEmpresa   :La Fonda",
    "1\ttexto\t0\t240\t8\t0\t0\tazul\t0\tDirección :Hidalgo 12",
    "1\ttexto\t0\t480\t8\t0\t0\tazul\t0\tR.F.C.    :FON010101AAA",
    "1\ttexto\t0\t720\t8\t0\t0\tazul\t0\tTeléfonos :3361 3362",
    "1\trecuadro\t6900\t240\t2500\t200",
    "1\ttexto\t7000\t0\t8\t0\t0\tazul\t0\tReporte :Relación de Pólizas",
    "1\ttexto\t7000\t480\t8\t0\t0\tazul\t0\tFecha   :23/nov/2026",
    "1\tlinea\t0\t960\t10500\t960",
    "1\tlinea\t0\t1000\t10500\t1000",
});

} // namespace

TEST_P(Consulta, TheSummaryByTypeDrawsItsHeaderColumnsGroupsAndTotals) {
  OpcionesConsulta op = Noviembre();
  op.tipo = QStringLiteral("D");
  op.textoTipo = QStringLiteral("DIARIO");
  EXPECT_EQ(Trazar(op),
            kEncabezado + L({
                              "1\ttexto\t0\t1100\t10\t1\t0\tazul\t0\tFecha",
                              "1\ttexto\t1600\t1100\t10\t1\t0\tazul\t0\tFolio",
                              "1\ttexto\t2600\t1100\t10\t1\t0\tazul\t0\tDiario",
                              "1\ttexto\t3900\t1100\t10\t1\t0\tazul\t0\tConcepto",
                              "1\ttexto\t6800\t1100\t10\t1\t0\tazul\t0\tTotal Debe",
                              "1\ttexto\t8600\t1100\t10\t1\t0\tazul\t0\tTotal Haber",
                              "1\tlinea\t0\t1350\t10500\t1350",
                              "1\ttexto\t0\t1650\t9\t1\t0\tazul\t0\tTipo: DIARIO",
                              "1\ttexto\t0\t1900\t7\t0\t0\tnegro\t0\t03/11/2026",
                              "1\ttexto\t2600\t1900\t7\t0\t0\tnegro\t0\tDIARIO",
                              "1\ttexto\t3900\t1900\t7\t0\t0\tnegro\t0\tVENTA DE CONTADO",
                              "1\ttexto\t2200\t1900\t7\t0\t0\tnegro\t2\tD00000000001",
                              "1\ttexto\t8000\t1900\t7\t0\t0\tnegro\t2\t150.00",
                              "1\ttexto\t9900\t1900\t7\t0\t0\tnegro\t2\t150.00",
                              "1\tlinea\t6500\t2350\t10500\t2350",
                              "1\ttexto\t8000\t2350\t7\t1\t0\tnegro\t2\tTOTAL 150.00",
                              "1\ttexto\t9900\t2350\t7\t1\t0\tnegro\t2\t150.00",
                              "1\ttexto\t8000\t2800\t9\t1\t0\tazul\t0\tTOTAL GLOBAL: 150.00",
                              "1\ttexto\t9900\t2800\t9\t1\t0\tazul\t0\t150.00",
                              "1\ttexto\t7000\t720\t8\t0\t0\tazul\t0\tPágina  : 1 / 1",
                          }));
  EXPECT_EQ(paginas, 1);
}

TEST_P(Consulta, OrderZeroWithoutATypePrintsTheBareLabelAndAnEmptyDiario) {
  const QStringList traza = Trazar(Noviembre());
  EXPECT_TRUE(traza.contains(QStringLiteral("1\ttexto\t0\t1650\t9\t1\t0\tazul\t0\tTipo: ")));
  for (const QString &linea : traza) {
    if (linea.contains(QStringLiteral("\t2600\t")) && linea.contains(QStringLiteral("negro"))) {
      EXPECT_TRUE(linea.endsWith(QStringLiteral("\t0\t"))) << linea.toStdString();
    }
  }
  // Three groups by type: D, E and I, each closed with its total.
  EXPECT_EQ(traza.filter(QStringLiteral("TOTAL ")).size(), 3 * 1 + 1);
  EXPECT_TRUE(traza.contains(
      QStringLiteral("1\ttexto\t8000\t4700\t9\t1\t0\tazul\t0\tTOTAL GLOBAL: 1,480.50")))
      << traza.join(u'\n').toStdString();
}

TEST_P(Consulta, TheDetailedListJoinsTheLinesOfBothTypesOfAFolio) {
  OpcionesConsulta op = Noviembre();
  op.detallado = true;
  op.orden = 1;
  const QStringList traza = Trazar(op);
  EXPECT_TRUE(traza.contains(QStringLiteral("1\ttexto\t3900\t1350\t10\t1\t0\tazul\t0\tCuenta")));
  // Folio 1 of type D carries the lines of folio 1 of type I too (four lines), and so does
  // folio 1 of type I, whose own row isn't drawn since the folio didn't change: its day's
  // total is 0.00. The rent's two lines make nine lines of the sales accounts' kind.
  const QStringList cuentas =
      traza.filter(QRegularExpression(QStringLiteral("\t3900\t[0-9]+\t7\t.*\t(1100|4100) ")));
  EXPECT_EQ(cuentas.size(), 9) << traza.join(u'\n').toStdString();
  EXPECT_TRUE(
      traza.contains(QStringLiteral("1\ttexto\t0\t1900\t9\t1\t0\tazul\t0\tFecha: 03/11/2026")))
      << traza.join(u'\n').toStdString();
}

TEST_P(Consulta, AFolioTurnsTheModuleFilterOff) {
  OpcionesConsulta op = Noviembre();
  op.modulo = QStringLiteral("6");
  Trazar(op);
  EXPECT_EQ(filtro, QStringLiteral(" AND tblCatOperaciones.MODULO=6 "));
  op.folio = QStringLiteral("00000000002");
  Trazar(op);
  EXPECT_EQ(filtro, QStringLiteral(" AND tblPolizasEnc.FOL_POLIZA='00000000002'"));
  op.operacion = QStringLiteral("22");
  Trazar(op);
  EXPECT_EQ(
      filtro,
      QStringLiteral(" AND tblPolizasEnc.COD_OPER=22 AND tblPolizasEnc.FOL_POLIZA='00000000002'"));
}

TEST_P(Consulta, AReportWithoutRowsHasOnePageWithItsHeaders) {
  OpcionesConsulta op = Noviembre();
  op.del = op.al = QDate(2025, 1, 1);
  const QStringList traza = Trazar(op);
  EXPECT_EQ(paginas, 1);
  EXPECT_EQ(traza.mid(0, 9), kEncabezado);
  EXPECT_EQ(traza.last(), QStringLiteral("1\ttexto\t7000\t720\t8\t0\t0\tazul\t0\tPágina  : 1 / 1"));
  EXPECT_EQ(traza.filter(QStringLiteral("TOTAL")).size(), 0);
}

TEST_P(Consulta, APagePastItsEndBreaksWithTheHeadersAgainAndEveryPageIsNumbered) {
  for (int i = 10; i < 70; ++i)
    Poliza(QByteArray::number(i).rightJustified(11, '0').constData(), "D", QDate(2026, 11, 6), 1,
           "VENTA DE CONTADO", "1100", "4100", "1");
  OpcionesConsulta op = Noviembre();
  op.orden = 1;
  const QStringList traza = Trazar(op);
  EXPECT_EQ(paginas, 2);
  EXPECT_TRUE(traza.contains(
      QStringLiteral("2\ttexto\t7000\t0\t8\t0\t0\tazul\t0\tReporte :Relación de Pólizas")));
  EXPECT_TRUE(traza.contains(QStringLiteral("2\ttexto\t1600\t1100\t10\t1\t0\tazul\t0\tFolio")));
  EXPECT_EQ(
      traza.filter(QStringLiteral("Página  :")),
      (QStringList{QStringLiteral("1\ttexto\t7000\t720\t8\t0\t0\tazul\t0\tPágina  : 1 / 2"),
                   QStringLiteral("2\ttexto\t7000\t720\t8\t0\t0\tazul\t0\tPágina  : 2 / 2")}));
  // Each page's number is its last call.
  EXPECT_TRUE(traza.last().endsWith(QStringLiteral("Página  : 2 / 2")));
  const qsizetype fin1 =
      traza.indexOf(QStringLiteral("1\ttexto\t7000\t720\t8\t0\t0\tazul\t0\tPágina  : 1 / 2"));
  EXPECT_TRUE(traza.at(fin1 + 1).startsWith(QStringLiteral("2\t")));
}

TEST_P(Consulta, TheMovementReportListsPostedDocumentsWithTheirEntries) {
  OpcionesConsulta op = Noviembre();
  op.relacion = false;
  op.orden = 2;
  const QStringList traza = Trazar(op);
  EXPECT_TRUE(traza.contains(
      QStringLiteral("1\ttexto\t7000\t0\t8\t0\t0\tazul\t0\tReporte :Movimientos Contabilizados")));
  EXPECT_TRUE(
      traza.contains(QStringLiteral("1\ttexto\t9200\t1100\t9\t1\t0\tazul\t0\tFecha Póliza")));
  // NV-1 under the sales operation's own text, twice: its folio is held by two journal
  // types and the join goes by the folio alone. G-1 with its concept; G-2's concept isn't in
  // the table and leaves its column empty; G-3's entry doesn't exist, so it is left out.
  // (The column title "Folio" is the fifth call at x 1200.)
  EXPECT_TRUE(traza.contains(
      QStringLiteral("1\ttexto\t4100\t1650\t9\t1\t0\tazul\t0\tConcepto: VENTAS DE CONTADO")))
      << traza.join(u'\n').toStdString();
  EXPECT_EQ(traza.filter(QStringLiteral("\t1200\t")).size(), 5) << traza.join(u'\n').toStdString();
  EXPECT_TRUE(traza.filter(QStringLiteral("G-3")).isEmpty());
  EXPECT_FALSE(traza.filter(QStringLiteral("\tPóliza por Día")).isEmpty());
  EXPECT_FALSE(traza.filter(QStringLiteral("\t2\tE00000000002")).isEmpty());
}

TEST_P(Consulta, TheUnpostedReportIsEmptyOnWhatThisSystemWrote) {
  OpcionesConsulta op = Noviembre();
  op.relacion = false;
  op.contabilizados = false;
  op.orden = 1;
  const QStringList traza = Trazar(op);
  EXPECT_TRUE(traza.contains(QStringLiteral(
      "1\ttexto\t7000\t0\t8\t0\t0\tazul\t0\tReporte :Movimientos no Contabilizados")));
  EXPECT_TRUE(traza.filter(QStringLiteral("negro")).isEmpty());
  EXPECT_EQ(filtro, QStringLiteral(" AND tblPolizasEnc.ESTATUS = 0"));
}

TEST(FechaEncabezado, TheMonthsSpanishAbbreviation) {
  EXPECT_EQ(FechaEncabezado(QDate(2026, 1, 5)), QStringLiteral("05/ene/2026"));
  EXPECT_EQ(FechaEncabezado(QDate(2026, 12, 31)), QStringLiteral("31/dic/2026"));
}

INSTANTIATE_TEST_SUITE_P(Motores, Consulta, testing::ValuesIn(MotoresDePrueba()), NombreMotor);

TEST_P(Consulta, ALineWhoseTwoAccountsBothMatchARubroComesTwice) {
  ::Poliza p;
  p.FOL_POLIZA = QStringLiteral("00000000007");
  p.TIP_POLIZA = QStringLiteral("O");
  p.FEC_POLIZA = p.FEC_ANTERIOR = QDate(2026, 11, 7);
  p.COD_OPER = 1;
  p.CONCEP_POL = QStringLiteral("AJUSTE");
  InsertarPoliza(*con, p, {});
  Sql("INSERT INTO tblPolizasRen (FOL_POLIZA,TIP_POLIZA,COD_DATO,RUBRO_DEBE,RUBRO_HABER,"
      "CUENTA_DEBE,CUENTA_HABER,IMP_DEBE,IMP_HABER) VALUES ('00000000007','O',1,'1-01','4-01',"
      "'1100','4100',5,0)");
  OpcionesConsulta op = Noviembre();
  op.detallado = true;
  op.folio = QStringLiteral("00000000007");
  const QStringList traza = Trazar(op);
  // Found once by its debit account (CAJA) and once by its credit account (VENTAS); the
  // debit column is drawn either way.
  EXPECT_EQ(traza.filter(QStringLiteral("\t3900\t")).filter(QStringLiteral("1100 ")).size(), 2)
      << traza.join(u'\n').toStdString();
  EXPECT_EQ(traza.filter(QStringLiteral("\t8000\t")).filter(QStringLiteral("\t5.00")).size(), 2);
}

TEST_P(Consulta, TheConceptTableReadAtLoadDoesntSeeLaterChanges) {
  const QList<ConceptoMovimiento> tabla = CargarConceptos(*con);
  EXPECT_EQ(DescripcionConcepto(tabla, 22, QStringLiteral("RENT")),
            QStringLiteral("RENTA DEL LOCAL"));
  EXPECT_EQ(DescripcionConcepto(tabla, 1, QStringLiteral("NVEN")),
            QStringLiteral("VENTAS DE CONTADO"));
  Sql("INSERT INTO tblConceptosGyT (COD_CON,DES_CON,COD_FOL) VALUES ('LUZ','LUZ','GTOS')");
  EXPECT_EQ(DescripcionConcepto(tabla, 22, QStringLiteral("LUZ")), QString());
  EXPECT_EQ(DescripcionConcepto(CargarConceptos(*con), 22, QStringLiteral("LUZ")),
            QStringLiteral("LUZ"));
}
