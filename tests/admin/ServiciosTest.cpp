#include "admin/Servicios.h"
#include "Apoyo.h"
#include "admin/Parametros.h"
#include "journal/DiarioPrueba.h"
#include "shell/Encriptacion.h"
#include "shell/Sesion.h"

#include <gtest/gtest.h>

using diario::Filas;

namespace {

class Servicios : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    gCodSucu = QStringLiteral("MATRIZ");
    parametros::AsegurarRenglon(*con, {emp->Conexion(), QStringLiteral("Prueba")});
    emp->mensajes.mostrados.clear();
    emp->grabadora.sentencias.clear();
  }
  QStringList Tabla(const char *sql) { return Filas(*con, QString::fromUtf8(sql)); }
  QString Valor(const char *sql) { return emp->Valor(QString::fromUtf8(sql)); }
  QStringList Avisos() const { return emp->mensajes.Textos(); }
  void Promociones() {
    con->Ejecutar(
        QStringLiteral("INSERT INTO tblTcPromociones (COD_TCPROMO,DES_TCPROMO,ACTIVA_PROMO,"
                       "MIN_TCPROMO,NUM_PARCIAL) VALUES (1,'3 MESES',1,500,3),"
                       "(2,'6 MESES',1,1000,6),(3,'12 MESES',0,0,12)"));
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

} // namespace

// ------------------------------------------------------------------ the portal

TEST_P(Servicios, ThePortalsUserIsWrittenUpdatedAndDeleted) {
  servicios::GrabarPortal(*con, {QStringLiteral("tienda"), QStringLiteral("uno")});
  servicios::GrabarPortal(*con, {QStringLiteral("tienda2"), QStringLiteral("dos")});
  EXPECT_EQ(Tabla("SELECT TVE_USUARIO,TVE_PASSWORD FROM tblServiciosElec"),
            QStringList{QStringLiteral("tienda2|") + Encriptar(QStringLiteral("dos"))});
  const servicios::Portal p = servicios::CargarPortal(*con);
  EXPECT_EQ(p.contrasena, QStringLiteral("dos"));
  servicios::GrabarPortal(*con, {});
  EXPECT_EQ(emp->Contar(QStringLiteral("tblServiciosElec")), 0);
}

// ------------------------------------------------------------------ the bank card

TEST_P(Servicios, EachProviderHasItsStatement) {
  servicios::GrabarTarjeta(
      *con, {true, 1, QStringLiteral("S1"), QStringLiteral("K1"), QStringLiteral("E1")});
  servicios::GrabarTarjeta(
      *con, {true, 3, QStringLiteral("S3"), QStringLiteral("K3"), QStringLiteral("E3")});
  servicios::GrabarTarjeta(
      *con, {true, 4, QStringLiteral("S4"), QStringLiteral("K4"), QStringLiteral("E4")});
  const QStringList s =
      emp->grabadora.sentencias.filter(QStringLiteral("UPDATE tblParametrosGenerales"));
  EXPECT_EQ(s, L({"UPDATE tblParametrosGenerales SET TC_SERVICIO=1,TC_IDSITIO='S1',TC_KEY='K1',"
                  "TC_EMPRESA='E1',TC_URL='';",
                  "UPDATE tblParametrosGenerales SET TC_SERVICIO=3,TC_IDSITIO='S3',TC_KEY='',"
                  "TC_EMPRESA='',TC_URL='';",
                  "UPDATE tblParametrosGenerales SET TC_SERVICIO=4,TC_IDSITIO='esqa.moneris.com',"
                  "TC_EMPRESA='E4', TC_KEY='K4',TC_URL='';"}));
  EXPECT_EQ(Avisos(),
            QStringList(3, QStringLiteral("Parámetros de tarjeta de crédito actualizados")));
}

TEST_P(Servicios, ANewTerminalInAnEmptyTableGetsCodeOneAndItsPromotions) {
  Promociones();
  EXPECT_TRUE(servicios::AgregarTerminal(*con, QStringLiteral("T-100"), 2, true,
                                         QStringLiteral("CLI7"), {1, 2}));
  EXPECT_EQ(Tabla("SELECT COD_TERMINAL,NUM_TERMINAL,COD_PROVTC,FOLIO_TERMINAL,ID_CLIENTE FROM "
                  "tblTcTerminales"),
            L({"1|T-100|2|00000000000000000000|CLI7"}));
  EXPECT_EQ(Tabla("SELECT COD_TERMINAL,COD_TCPROMO FROM tblTcTerminalPromo ORDER BY COD_TCPROMO"),
            L({"1|1", "1|2"}));
  EXPECT_TRUE(servicios::AgregarTerminal(*con, QStringLiteral("T-200"), 2, false, QString(), {}));
  EXPECT_EQ(Valor("SELECT COD_TERMINAL FROM tblTcTerminales WHERE NUM_TERMINAL='T-200'"),
            QStringLiteral("2"));
  EXPECT_TRUE(Avisos().isEmpty());
}

TEST_P(Servicios, AnExistingTerminalsPromotionsAreReplacedOnlyAfterTheQuestion) {
  Promociones();
  servicios::AgregarTerminal(*con, QStringLiteral("T-100"), 2, true, QStringLiteral("CLI7"), {1});
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  EXPECT_FALSE(servicios::AgregarTerminal(*con, QStringLiteral("T-100"), 2, true,
                                          QStringLiteral("CLI8"), {2}));
  EXPECT_EQ(Avisos(), L({"La terminal ya existe. ¿Deseas actualizar sus promociones vigentes?"}));
  EXPECT_EQ(Tabla("SELECT COD_TCPROMO FROM tblTcTerminalPromo"), L({"1"}));
  EXPECT_TRUE(servicios::AgregarTerminal(*con, QStringLiteral("T-100"), 2, false,
                                         QStringLiteral("CLI8"), {2}));
  EXPECT_EQ(Tabla("SELECT COD_TERMINAL,ID_CLIENTE FROM tblTcTerminales"), L({"1|"}));
  EXPECT_EQ(Tabla("SELECT COD_TCPROMO FROM tblTcTerminalPromo"), L({"2"}));
  const servicios::Terminal t =
      servicios::LeerTerminal(*con, QStringLiteral("T-100"), servicios::PromocionesActivas(*con));
  EXPECT_TRUE(t.existe);
  EXPECT_EQ(t.promociones, std::vector<int>{2});
}

TEST_P(Servicios, SwitchingTheCardOffDeletesTheTerminalsWithoutAQuestion) {
  Promociones();
  servicios::AgregarTerminal(*con, QStringLiteral("T-100"), 2, false, QString(), {1});
  con->Ejecutar(QStringLiteral("INSERT INTO tblTcTerminalCaja (COD_TERMINAL) VALUES (1)"));
  servicios::GrabarTarjeta(*con, {});
  for (const char *tabla : {"tblTcTerminales", "tblTcTerminalCaja", "tblTcTerminalPromo"})
    EXPECT_EQ(emp->Contar(QLatin1String(tabla)), 0) << tabla;
  EXPECT_EQ(Avisos(), L({"Parámetros de tarjeta de crédito actualizados"}));
  EXPECT_EQ(Valor("SELECT TC_SERVICIO FROM tblParametrosGenerales"), QStringLiteral("0"));
}

TEST_P(Servicios, ADeactivatedPromotionLeavesTheTreeButItsTerminalRowsStay) {
  Promociones();
  servicios::AgregarTerminal(*con, QStringLiteral("T-100"), 2, false, QString(), {1, 2});
  std::vector<servicios::Promocion> promociones = servicios::CargarPromociones(*con);
  ASSERT_EQ(promociones.size(), 3u);
  EXPECT_EQ(promociones[0].minimo, Dinero::DeEntero(500));
  promociones[1].activa = false;
  emp->grabadora.sentencias.clear();
  servicios::GrabarPromociones(*con, promociones);
  EXPECT_EQ(emp->grabadora.sentencias,
            L({"UPDATE tblTcPromociones SET ACTIVA_PROMO=1, MIN_TCPROMO=500 WHERE COD_TCPROMO =1",
               "UPDATE tblTcPromociones SET ACTIVA_PROMO=0, MIN_TCPROMO=0 WHERE COD_TCPROMO =2",
               "UPDATE tblTcPromociones SET ACTIVA_PROMO=0, MIN_TCPROMO=0 WHERE COD_TCPROMO =3"}));
  std::vector<int> arbol;
  for (const servicios::Promocion &p : servicios::PromocionesActivas(*con))
    arbol.push_back(p.codigo);
  EXPECT_EQ(arbol, std::vector<int>{1});
  EXPECT_EQ(emp->Contar(QStringLiteral("tblTcTerminalPromo")), 2);
}

TEST_P(Servicios, ATerminalIsDeletedAfterItsQuestion) {
  servicios::AgregarTerminal(*con, QStringLiteral("T-100"), 2, false, QString(), {});
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  EXPECT_FALSE(servicios::EliminarTerminal(*con, QStringLiteral("T-100")));
  EXPECT_EQ(emp->Contar(QStringLiteral("tblTcTerminales")), 1);
  EXPECT_TRUE(servicios::EliminarTerminal(*con, QStringLiteral("T-100")));
  EXPECT_EQ(emp->Contar(QStringLiteral("tblTcTerminales")), 0);
  EXPECT_EQ(Avisos(), QStringList(2, QStringLiteral("¿Deseas eliminar la terminal seleccionada?")));
}

// ------------------------------------------------------------------ airtime

TEST(MontosTiempoAire, FortyAmountsKeyedByTheOperatorsLetterAndThreeDigits) {
  const std::vector<servicios::MontoTA> montos = servicios::MontosTiempoAire();
  ASSERT_EQ(montos.size(), 40u);
  EXPECT_EQ(montos.front().clave, QStringLiteral("M010"));
  EXPECT_EQ(montos[10].clave, QStringLiteral("M500"));
  EXPECT_EQ(montos[18].clave, QStringLiteral("I1000"));
  EXPECT_EQ(montos.back().clave, QStringLiteral("N500"));
  EXPECT_EQ(montos.back().empresa, 5);
}

TEST_P(Servicios, AirtimeSavedTwiceWritesTheSameAmountsAndArticles) {
  con->Ejecutar(
      QStringLiteral("INSERT INTO tblAgrupacionArt (COD_GPO,DES_GPO) VALUES (4,'SERVICIOS')"));
  con->Ejecutar(
      QStringLiteral("INSERT INTO tblCatAgrupacionArt (COD_AGR,COD_GPO,DES_AGR,BLOQ_CAMBIO) "
                     "VALUES (9,4,'TIEMPO AIRE',0),(8,4,'BLOQUEADA',1)"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblImpuestos (COD_IMP,DES_IMP,POR_IMP) VALUES "
                               "(1,'IVA 16',16)"));
  std::vector<std::pair<int, QString>> libres = servicios::AgrupacionesDisponibles(*con, 0);
  ASSERT_EQ(libres.size(), 1u);
  EXPECT_EQ(libres[0].first, 9);
  const servicios::TiempoAire ta{true, 9, 1, false};
  servicios::GrabarTiempoAire(*con, ta);
  const QStringList articulos = Tabla("SELECT COD1_ART FROM tblCatArticulos ORDER BY COD1_ART");
  servicios::GrabarTiempoAire(*con, ta);
  EXPECT_EQ(Tabla("SELECT COD1_ART FROM tblCatArticulos ORDER BY COD1_ART"), articulos);
  EXPECT_EQ(articulos.size(), 40);
  EXPECT_EQ(emp->Contar(QStringLiteral("tblMontosTA")), 40);
  EXPECT_EQ(emp->Contar(QStringLiteral("tblEmpresasTA")), 6);
  EXPECT_EQ(emp->Contar(QStringLiteral("tblGpoArticulos")), 40);
  EXPECT_EQ(emp->Contar(QStringLiteral("tblPrecios")), 40);
  EXPECT_EQ(Tabla("SELECT DES1_ART,COD_IMP,ES_SERVICIO,CVE_CFDI FROM tblCatArticulos WHERE "
                  "COD1_ART='A100'"),
            L({"RECARGA TELCEL 100|1|1|83111603"}));
  EXPECT_EQ(Tabla("SELECT COD_GPO,COD_AGR FROM tblGpoArticulos WHERE COD1_ART='A100'"), L({"4|9"}));
  Registros precio =
      con->Abrir(QStringLiteral("SELECT PRE_LISTA,PRE_IVA FROM tblPrecios WHERE COD1_ART='M010'"));
  EXPECT_EQ(precio.Campo(QStringLiteral("PRE_LISTA")).ComoDinero(), Dinero::DeEntero(10));
  EXPECT_EQ(precio.Campo(QStringLiteral("PRE_IVA")).ComoDinero(),
            Dinero::DeTexto(QStringLiteral("11.6")));
  EXPECT_EQ(Tabla("SELECT TA_ACT,TA_AGR,TA_IMPTO,TA_GRUPO,TA_CADENA,TA_TIENDA,TA_FTP FROM "
                  "tblParametrosGenerales"),
            L({"1|9|1|4|0|0|TAE"}));
  EXPECT_EQ(Avisos(), QStringList(2, QStringLiteral("Parámetros de tiempo aire actualizados")));
  // The grouping stored is offered though it has articles now.
  libres = servicios::AgrupacionesDisponibles(*con, 9);
  ASSERT_EQ(libres.size(), 1u);
  EXPECT_EQ(libres[0].second, QStringLiteral("TIEMPO AIRE"));
  // Off, the articles stay.
  servicios::GrabarTiempoAire(*con, {});
  EXPECT_EQ(Valor("SELECT TA_ACT FROM tblParametrosGenerales"), QStringLiteral("0"));
  EXPECT_EQ(emp->Contar(QStringLiteral("tblCatArticulos")), 40);
  EXPECT_EQ(Avisos().last(), QStringLiteral("Tiempo Aire desactivado"));
}

// ------------------------------------------------------------------ the rest

TEST_P(Servicios, PaymentOfServicesNeedsAProviderAndMakesItsCommission) {
  servicios::GrabarPagoServicios(*con, true, 0, 1);
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].texto,
            QStringLiteral("Es necesario elegir proveedor del servicio"));
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, QStringLiteral("Parámetros"));
  servicios::GrabarPagoServicios(*con, true, 1, 0);
  servicios::GrabarPagoServicios(*con, true, 1, 0);
  EXPECT_EQ(Tabla("SELECT CNX_TVE,IMPTO_SER,TVE_CODPROV FROM tblParametrosGenerales"),
            L({"TVE_DEFINIDO|0|1"}));
  EXPECT_EQ(Tabla("SELECT COD_GPO,DES_GPO FROM tblAgrupacionArt"), L({"1|GRUPO COMISIONES"}));
  EXPECT_EQ(Tabla("SELECT COD_AGR,COD_GPO,DES_AGR FROM tblCatAgrupacionArt"),
            L({"1|1|AGRUPACIÓN COMISIONES"}));
  EXPECT_EQ(Tabla("SELECT COD1_ART,DES1_ART,CVE_CFDI FROM tblCatArticulos"),
            L({"TVECOMISION|COMISIÓN POR PAGO DE SERVICIOS|01010101"}));
  EXPECT_EQ(Tabla("SELECT COD_UND FROM tblUndCosPreArt"), L({"ACT"}));
  servicios::GrabarPagoServicios(*con, false, 1, 0);
  EXPECT_EQ(Tabla("SELECT CNX_TVE,IMPTO_SER,TVE_CODPROV FROM tblParametrosGenerales"), L({"|0|0"}));
  EXPECT_EQ(Avisos().last(),
            QStringLiteral("Ha sido desactivado el pago de servicios electrónicos"));
}

TEST_P(Servicios, RemittancesAndLoyaltyAreSwitchedWithTheirBoxes) {
  servicios::GrabarRemesas(*con, true);
  EXPECT_EQ(Valor("SELECT REM_CODPROV FROM tblParametrosGenerales"), QStringLiteral("1"));
  servicios::GrabarRemesas(*con, false);
  EXPECT_EQ(Valor("SELECT REM_CODPROV FROM tblParametrosGenerales"), QStringLiteral("0"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblPuntos (ACTIVO,TOKEN_LOMARTA,PROMO_LOMARTA) VALUES "
                               "(1,'abc',3)"));
  servicios::PrepararFidelizacion(*con);
  EXPECT_EQ(Tabla("SELECT PTO_ACTIVO,EN_LINEA,URL_PUNTOS FROM tblParamPuntos"),
            L({"1|0|https://puntos.lomarta.mx/servicio"}));
  EXPECT_FALSE(servicios::CargarFidelizacion(*con));
  EXPECT_EQ(Tabla("SELECT TOKEN_LOMARTA,PROMO_LOMARTA FROM tblPuntos"), L({"|0"}));
  servicios::GrabarFidelizacion(*con, true);
  EXPECT_TRUE(servicios::CargarFidelizacion(*con));
  servicios::GrabarFidelizacion(*con, false);
  EXPECT_EQ(Tabla("SELECT EN_LINEA,URL_PUNTOS FROM tblParamPuntos"),
            L({"0|https://puntos.lomarta.mx/servicio"}));
  EXPECT_EQ(Avisos(), L({"Cobro de remesas activado", "Cobro de remesas desactivado",
                         "Activada Fidelización en línea", "Desactivada Fidelización en línea"}));
}

INSTANTIATE_TEST_SUITE_P(Motores, Servicios, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
