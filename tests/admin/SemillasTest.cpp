#include "admin/Semillas.h"
#include "Apoyo.h"
#include "journal/DiarioPrueba.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

using diario::Filas;

namespace {

// The tables the seeds write, each as its rows in order.
const char *const kTablas[][2] = {
    {"tblFormasPago",
     "SELECT COD_FRP,DES_FRP,COD_PAG,AUT_FRP,REF_FRP,ACP_CAM,MAX_CAN,CAR_FRP,DENOM,"
     "FRP_APAR,RUTA,CAR_MAX,APLICA_PROMO,SERV_ME,SAT_MPAGO,CLAVE_SAT FROM "
     "tblFormasPago ORDER BY COD_FRP"},
    {"tblTipoImpuesto",
     "SELECT COD_TIPO,DES_TIPO,CLAVE_CFDI FROM tblTipoImpuesto ORDER BY COD_TIPO"},
    {"tblImpuestos",
     "SELECT COD_IMP,DES_IMP,GRAVA_IMP,TIPO_IMP,CLAVE_CFDI FROM tblImpuestos ORDER BY COD_IMP"},
    {"tblPerfiles", "SELECT COD_PERFIL,DES_PERFIL FROM tblPerfiles ORDER BY COD_PERFIL"},
    {"tblPerfilPermisos", "SELECT * FROM tblPerfilPermisos ORDER BY COD_PERFIL"},
    {"tblCatArticulos", "SELECT COD1_ART,DES1_ART,DES2_ART,COD_MON,COD_IMP,ARCHIVO,COD_EMPRESA,"
                        "UND_CFDI,CVE_CFDI FROM tblCatArticulos ORDER BY COD1_ART"},
    {"tblGpoArticulos", "SELECT COD1_ART,COD_GPO,COD_AGR FROM tblGpoArticulos ORDER BY COD_GPO"},
    {"tblUndCosPreArt", "SELECT COD_UND,COD1_ART,CVE_OFR,COD_BARRAS FROM tblUndCosPreArt"},
    {"tblProveedoresSE", "SELECT COD_PROVSE,DES_PROVSE FROM tblProveedoresSE"},
    {"tblProveedoresTC", "SELECT COD_PROVTC,DES_PROVTC,SITIO_PROVTC,RESP_PROVTC FROM "
                         "tblProveedoresTC ORDER BY COD_PROVTC"},
    {"tblGruposPVEnc", "SELECT COD_GPO,DES_GPO,ORD_GPO,IMP_GPO,COD_CARTA FROM tblGruposPVEnc "
                       "ORDER BY COD_GPO"},
    {"tblParametrosGenerales", "SELECT CNX_TVE,TVE_CODPROV FROM tblParametrosGenerales"},
};

class Semillas : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
  }
  QStringList Tabla(const char *sql) { return Filas(*con, QString::fromUtf8(sql)); }
  // Every seeded table, as one list.
  QStringList Todo() {
    QStringList todo;
    for (const auto &t : kTablas)
      todo << QLatin1String(t[0]) << Tabla(t[1]);
    return todo;
  }
  void Sembrar() {
    emp->grabadora.sentencias.clear();
    semillas::SembrarCatalogos(*con, emp->Motor());
  }
  QStringList Insertos() const {
    return emp->grabadora.sentencias.filter(QRegularExpression(QStringLiteral("^INSERT")));
  }
  semillas::Region Region() const {
    return {QStringLiteral("HER"),    QStringLiteral("HERMOSILLO"), QStringLiteral("SON"),
            QStringLiteral("SONORA"), QStringLiteral("MEX"),        QStringLiteral("MEXICO")};
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

} // namespace

TEST_P(Semillas, AnEmptyCompanyGetsEveryCatalogueRow) {
  Sembrar();
  EXPECT_EQ(Tabla(kTablas[0][1]),
            L({"1|EFECTIVO|1|0|0|1|0|0|1|1||0|0|0|Efectivo|01",
               "2|CHEQUE BANCARIO|4|1|1|0|0|0|0|0||0|0|0|Cheque nominativo|02",
               "3|CHEQUE GOBIERNO|4|0|1|1|0|0|0|0||0|0|0|Cheque nominativo|02",
               "4|TARJETA DE CREDITO|2|1|1|0|0|0|0|0||0|0|0|Tarjeta de crédito|04",
               "5|CREDITO|0|1|0|0|0|0|0|0||0|0|0|Por definir|99",
               "6|TARJETA DE LA TIENDA|3|0|1|0|0|0|0|0||0|0|0|Por definir|99"}));
  EXPECT_EQ(Tabla(kTablas[1][1]),
            L({"0|EXENTO|", "1|IVA|002", "2|IEPS|003", "3|IMPUESTO LOCAL|", "4|ISR|001"}));
  EXPECT_EQ(Tabla(kTablas[2][1]), L({"0|EXENTO|0|0|"}));
  EXPECT_EQ(Tabla(kTablas[3][1]), L({"1|HOST"}));
  const QStringList permisos = Tabla(kTablas[4][1]);
  ASSERT_EQ(permisos.size(), 1);
  EXPECT_EQ(permisos[0], QStringLiteral("1") + QStringLiteral("|0").repeated(27));
  EXPECT_EQ(Tabla(kTablas[5][1]),
            L({"TV_CFDI33_GLOBAL_SAT|VENTA GLOBAL|VENTA GLOBAL|1|0||1|1|01010101"}));
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT FEC_ING FROM tblCatArticulos")).left(10),
            Hoy().toString(Qt::ISODate));
  EXPECT_EQ(Tabla(kTablas[6][1]), QStringList());
  EXPECT_EQ(Tabla(kTablas[7][1]), L({"ACT|TV_CFDI33_GLOBAL_SAT||"}));
  EXPECT_EQ(Tabla(kTablas[8][1]), L({"1|Multicom®"}));
  EXPECT_EQ(Tabla(kTablas[9][1]), L({"1|MerchantWARE®||", "2|ProsePago®||", "3|SmartPayment®||",
                                     "4|Moneris®|esqa.moneris.com|"}));
  EXPECT_EQ(Tabla(kTablas[10][1]), L({"1|GRUPO 1|1|0|1", "2|GRUPO 2|2|0|1"}));
  // The long original string of invoices, on MySQL only.
  EXPECT_EQ(emp->grabadora.sentencias.contains(QStringLiteral(
                "ALTER TABLE tblFacturaElectronica MODIFY CADENA_ORIGINAL MEDIUMTEXT;")),
            emp->Motor() == motor::kMySql);
}

TEST_P(Semillas, ASecondRunInsertsNothingAndItsUpdatesChangeNothing) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblParametrosGenerales (CNX_TVE) VALUES ('X')"));
  Sembrar();
  const QStringList antes = Todo();
  Sembrar();
  EXPECT_EQ(Insertos(), QStringList());
  EXPECT_EQ(Todo(), antes);
  // Each update of the second run meets no row it would change.
  for (const QString &s : emp->grabadora.sentencias) {
    if (!s.startsWith(QStringLiteral("UPDATE")))
      continue;
    int afectados = -1;
    ASSERT_TRUE(con->IntentarEjecutar(s, &afectados)) << s.toStdString();
    EXPECT_EQ(afectados, 0) << s.toStdString();
  }
}

TEST_P(Semillas, AOneDigitSatKeyTakesItsZeroAndOtherKeysStay) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblFormasPago (COD_FRP,DES_FRP,CLAVE_SAT) VALUES "
                               "(1,'EFECTIVO','1'),(7,'VALES','3'),(8,'TARJETA','4')"));
  Sembrar();
  EXPECT_EQ(Tabla("SELECT COD_FRP,CLAVE_SAT FROM tblFormasPago ORDER BY COD_FRP"),
            L({"1|01", "7|3", "8|04"}));
}

TEST_P(Semillas, PaymentWaysWithoutRowOneGetRowOneAlone) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblFormasPago (COD_FRP,DES_FRP,CLAVE_SAT) VALUES "
                               "(2,'CHEQUE','02')"));
  Sembrar();
  EXPECT_EQ(Tabla("SELECT COD_FRP,DES_FRP FROM tblFormasPago ORDER BY COD_FRP"),
            L({"1|EFECTIVO", "2|CHEQUE"}));
}

TEST_P(Semillas, MissingTaxTypesZeroAndThreeAreAddedAndOldKeysRepaired) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblTipoImpuesto (COD_TIPO,DES_TIPO,CLAVE_CFDI) VALUES "
                               "(1,'IVA',NULL),(2,'IEPS','3'),(4,'ISR','001')"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblImpuestos (COD_IMP,DES_IMP,TIPO_IMP,CLAVE_CFDI) "
                               "VALUES (5,'IVA 16',1,NULL),(6,'ISH',3,NULL)"));
  Sembrar();
  EXPECT_EQ(Tabla(kTablas[1][1]),
            L({"0|EXENTO|", "1|IVA|002", "2|IEPS|003", "3|IMPUESTO LOCAL|", "4|ISR|001"}));
  EXPECT_EQ(Tabla("SELECT COD_IMP,TIPO_IMP,CLAVE_CFDI FROM tblImpuestos ORDER BY COD_IMP"),
            L({"0|0|", "5|1|002", "6|3|"}));
}

TEST_P(Semillas, TheHostProfileTakesTheNextNumberOnce) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblPerfiles (COD_PERFIL,DES_PERFIL) VALUES "
                               "(1,'ADMINISTRADOR'),(5,'CAJERO')"));
  Sembrar();
  Sembrar();
  EXPECT_EQ(Tabla(kTablas[3][1]), L({"1|ADMINISTRADOR", "5|CAJERO", "6|HOST"}));
  EXPECT_EQ(Tabla("SELECT COD_PERFIL FROM tblPerfilPermisos"), L({"6"}));
}

TEST_P(Semillas, TheGlobalItemJoinsEachGroupingByItsFirstValue) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblAgrupacionArt (COD_GPO) VALUES (3),(1),(2)"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblCatAgrupacionArt (COD_GPO,COD_AGR) VALUES "
                               "(1,20),(1,10),(3,7)"));
  Sembrar();
  // A grouping with no values has nowhere to take it.
  EXPECT_EQ(Tabla(kTablas[6][1]), L({"TV_CFDI33_GLOBAL_SAT|1|10", "TV_CFDI33_GLOBAL_SAT|3|7"}));
}

TEST_P(Semillas, ADefinedAirtimeServiceGetsTheFirstProvider) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblParametrosGenerales (CNX_TVE,TVE_CODPROV) VALUES "
                               "('TVE_DEFINIDO',NULL)"));
  Sembrar();
  EXPECT_EQ(Tabla(kTablas[11][1]), L({"TVE_DEFINIDO|1"}));
  con->Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET TVE_CODPROV=3"));
  Sembrar();
  EXPECT_EQ(Tabla(kTablas[11][1]), L({"TVE_DEFINIDO|3"}));
}

TEST_P(Semillas, TheRegionIsCreatedOnceAndThePublicCustomerPlacedInIt) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblCatClientes (COD_CLI,COD_CID,COD_EST) VALUES "
                               "('PUBLIC','',''),('C001','GDL','JAL')"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblEstado (COD_EST,DES_EST) VALUES ('SON','Sonora')"));
  semillas::SembrarRegion(*con, Region());
  semillas::SembrarRegion(*con, Region());
  EXPECT_EQ(Tabla("SELECT COD_CLI,COD_CID,COD_EST FROM tblCatClientes ORDER BY COD_CLI"),
            L({"C001|GDL|JAL", "PUBLIC|HER|SON"}));
  EXPECT_EQ(Tabla("SELECT COD_CID,DES_CID,NOM_CID,COD_AREA,MUN_CID FROM tblCiudad"),
            L({"HER|HERMOSILLO|HERMOSILLO||"}));
  EXPECT_EQ(Tabla("SELECT COD_EST,DES_EST FROM tblEstado"), L({"SON|Sonora"}));
  EXPECT_EQ(Tabla("SELECT COD_PAIS,DES_PAIS,NOM_PAIS FROM tblPais"), L({"MEX|MEXICO|MEXICO"}));
}

TEST_P(Semillas, ImagesAreMovedUnderTheProgramsImagesFolderByTheirName) {
  gRutaApp = emp->Ruta();
  const QString imagenes = RutaNativa(UnirRuta(emp->Ruta(), QStringLiteral("Imagenes")));
  const QString yaAhi = RutaNativa(UnirRuta(imagenes, QStringLiteral("b.png")));
  con->Ejecutar(QStringLiteral("INSERT INTO tblCatArticulos (COD1_ART,ARCHIVO) VALUES "
                               "('A','C:\\Fotos\\Tienda\\a.jpg'),('B','%1'),('C','')")
                    .arg(Escapar(yaAhi)));
  con->Ejecutar(QStringLiteral("INSERT INTO tblBancos (COD_BANCO,IMAGEN_BANCO) VALUES "
                               "(1,'/home/caja/banco.bmp')"));
  semillas::SembrarRegion(*con, Region());
  EXPECT_EQ(
      Tabla("SELECT COD1_ART,ARCHIVO FROM tblCatArticulos ORDER BY COD1_ART"),
      QStringList({QStringLiteral("A|") + RutaNativa(UnirRuta(imagenes, QStringLiteral("a.jpg"))),
                   QStringLiteral("B|") + yaAhi, QStringLiteral("C|")}));
  EXPECT_EQ(Tabla("SELECT IMAGEN_BANCO FROM tblBancos"),
            QStringList{RutaNativa(UnirRuta(imagenes, QStringLiteral("banco.bmp")))});
}

TEST_P(Semillas, TheRegimesComeOnceAndOnlyIntoAnEmptyTable) {
  semillas::SembrarRegimen(*con);
  semillas::SembrarRegimen(*con);
  EXPECT_EQ(Tabla("SELECT COD_REGIMEN,DES_REGIMEN,ACTIVO,CFDI_REGIMEN FROM tblRegimenEmpresa "
                  "ORDER BY COD_REGIMEN"),
            L({"1|GENERAL DE LEY PERSONAS MORALES|1|601",
               "2|PERSONAS FÍSICAS CON ACTIVIDADES EMPRESARIALES Y PROFESIONALES|0|612"}));
  con->Ejecutar(QStringLiteral("DELETE FROM tblRegimenEmpresa WHERE COD_REGIMEN=1"));
  semillas::SembrarRegimen(*con);
  EXPECT_EQ(Tabla("SELECT COD_REGIMEN FROM tblRegimenEmpresa"), L({"2"}));
}

TEST_P(Semillas, OnMySqlTheOldPrintColumnIsRenamedOnceAndAfterwardsNothingFails) {
  if (emp->Motor() != motor::kMySql)
    GTEST_SKIP() << "el cambio de nombre es de MySQL";
  con->Ejecutar(QStringLiteral("DROP TABLE tblConfiguracionImpresion"));
  con->Ejecutar(QStringLiteral("CREATE TABLE tblConfiguracionImpresion (`Nombre_Compañia` "
                               "SMALLINT)"));
  semillas::SembrarRegion(*con, Region());
  semillas::SembrarRegion(*con, Region());
  Registros rs = con->Abrir(QStringLiteral("SELECT * FROM tblConfiguracionImpresion WHERE 1=0"));
  EXPECT_EQ(rs.Campos(), QStringList{QStringLiteral("Nombre_Empresa")});
}

INSTANTIATE_TEST_SUITE_P(Motores, Semillas, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
