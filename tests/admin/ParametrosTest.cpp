#include "admin/Parametros.h"
#include "Apoyo.h"
#include "admin/ApoyoParametros.h"
#include "journal/DiarioPrueba.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <gtest/gtest.h>

using diario::Filas;

namespace {

class Parametros : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    gCodSucu = QStringLiteral("MATRIZ");
    FijarReloj(QDateTime(QDate(2026, 11, 20), QTime(10, 0)));
  }
  void TearDown() override { FijarReloj({}); }
  parametros::Empresa Empresa() const { return {emp->Conexion(), QStringLiteral("Prueba")}; }
  // A value of the row, as text.
  QString Valor(const char *columna) const { return ValorParametro(*emp, columna); }
  // Every tab with something set.
  static parametros::Parametros Muestra() {
    parametros::Parametros p;
    p.limiteRenglones = 40;
    p.toleranciaPromo = 5;
    p.modificarFechaPedidos = true;
    p.campanaRedondeo = 2;
    p.imprimirRegimen = true;
    p.precioBase = 1;
    p.precioTruncar = 1;
    p.precioDecimales = 2;
    p.meseroUnico = true;
    p.ordenTotal = true;
    p.incluirPropina = true;
    p.porcentajePropina = Dinero::DeTexto(QStringLiteral("10.5"));
    p.propinaDesde = Dinero::DeEntero(200);
    p.facturarMostrador = true;
    p.descuentoCfdi = true;
    p.activoIeps = true;
    p.alertaCaducidad = true;
    p.diasCaducidad = 7;
    p.minutosCaducidad = 30;
    p.loteEnVenta = true;
    p.documentoCompras = {true, false, true, false};
    p.previoCompra = 1;
    p.recepcionSinPrevio = true;
    p.diasBackorder = 15;
    p.actualizarPrecios = 2;
    p.unidadPrecios = 2;
    return p;
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

} // namespace

TEST_P(Parametros, WithoutARowTheScreenShowsItsDefaults) {
  const parametros::Parametros p = parametros::CargarParametros(*con);
  EXPECT_EQ(p.precioBase, 0);
  EXPECT_EQ(p.precioTruncar, 0);
  EXPECT_EQ(p.precioDecimales, 4);
  EXPECT_EQ(p.campanaRedondeo, 1);
  EXPECT_EQ(p.unidadPrecios, 1);
}

TEST_P(Parametros, TheFirstSaveCreatesTheRowWithPriceDecimalsFourAndVersionThirtyThree) {
  parametros::AsegurarRenglon(*con, Empresa());
  EXPECT_EQ(emp->Contar(QStringLiteral("tblParametrosGenerales")), 1);
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_SUCU,CONX_CXC,BD_CXC,FE_DESCTO,PRECIO_DECIMAL,"
                                       "PV_PRINTREG,FE_VERSION,FE_ACTUAL,FE_ACTIEPS,CFD_FACT,"
                                       "TC_KEY FROM tblParametrosGenerales")),
            QStringList{QStringLiteral("MATRIZ|%1|Prueba|1|4|1|33|1|1|0|").arg(emp->Conexion())});
  EXPECT_EQ(Valor("FE_VENCERT").left(10), QStringLiteral("2026-11-20"));
  // The insert names every column of the family's template; the version is changed over.
  const QStringList &s = emp->grabadora.sentencias;
  const auto insercion = std::find_if(s.begin(), s.end(), [](const QString &t) {
    return t.startsWith(
        QStringLiteral("INSERT INTO tblParametrosGenerales (COD_SUCU,FACT_MOSTRA,"));
  });
  ASSERT_NE(insercion, s.end());
  EXPECT_TRUE(insercion->contains(QStringLiteral(",FE_VERSION,FE_ACTUAL,FE_ACTIEPS) VALUES "
                                                 "('MATRIZ',0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,'',"
                                                 "'','',0,0,0,0,0,0,'','',0,'")))
      << insercion->toStdString();
  EXPECT_TRUE(
      s.contains(QStringLiteral("UPDATE tblParametrosGenerales SET FE_VERSION=33,FE_ACTUAL=1;")));
  // Saving finds the row, and says so.
  emp->grabadora.sentencias.clear();
  parametros::GrabarParametros(*con, Empresa(), parametros::Parametros{});
  EXPECT_EQ(emp->grabadora.sentencias.filter(QStringLiteral("INSERT INTO tblParametrosGenerales")),
            QStringList());
  EXPECT_EQ(emp->Contar(QStringLiteral("tblParametrosGenerales")), 1);
  EXPECT_EQ(emp->mensajes.mostrados.back().texto, QStringLiteral("Parámetros guardados"));
}

TEST_P(Parametros, OneSaveWritesTheFourTabsStatementByStatement) {
  parametros::AsegurarRenglon(*con, Empresa());
  emp->grabadora.sentencias.clear();
  emp->mensajes.mostrados.clear();
  parametros::GrabarParametros(*con, Empresa(), Muestra());
  EXPECT_EQ(
      emp->grabadora.sentencias,
      L({"SELECT * FROM tblParametrosGenerales;",
         "UPDATE tblParametrosGenerales SET LIM_RENVTA=40,PROM_TOLERA=5,MOD_FECPED=1,CAMP_REDN=2,"
         "LDV_CLIENTE=0,PV_PRINTREG=1,PV_COSTOREP=0;",
         "UPDATE tblParametrosGenerales SET PRECIO_BASE=1,PRECIO_DECIMAL=2,PRECIO_TRUNCAR=1;",
         "UPDATE tblParametrosGenerales SET FF_MESERO=1,FF_NUMPERS=0,FF_SINMESERO=0,FF_ORDENTOT=0;",
         "SELECT * FROM tblParamPropinas;",
         "INSERT INTO tblParamPropinas (INCLUIR_TIPS,PORCENT_TIPS,LIMINF_TIPS) VALUES "
         "(1,10.5,200);",
         "UPDATE tblParametrosGenerales SET FACT_MOSTRA=1,NOTA_FACTURA=0,FACT_POREMP=0,FE_DESCTO=1,"
         "FE_DESCUND=0,FE_FOLIONUM=0,FE_CANCELASAT=0,FE_ACTIEPS=1;",
         "UPDATE tblParametrosGenerales SET CAD_ACT=1,DIAS_CAD=7,HORAS_CAD=30,LDA=0,PV_LOTCAD=1,"
         "INV_SUCPPAL=0;",
         "UPDATE tblParametrosGenerales SET CP_RESTPRES=0,LDC_TIPODOC=1,LDC_MONEDA=1,"
         "LDC_SUCURSAL=0,LDC_PRESUP=0,ACT_PRECOM=2,UND_PRECOM=2,CP_PREVIO=1,CP_RECPREV=1,"
         "CP_PLAZOBACK=15;",
         "UPDATE tblPlantillaMenus SET TITULO_OPCION='Previo de Compra' WHERE (ORDEN_MENU=34) AND "
         "(NOMBRE_OPCION='mnuComRem') AND (MODULO_EDICION=20);",
         "UPDATE tblComEstatus SET DES_ESTATUS='PREVIO DE COMPRA' WHERE (COD_ESTATUS=7);"}));
  EXPECT_EQ(emp->mensajes.mostrados.size(), 1u);
  // Read back, every tab as saved; the complete order as stored, off.
  const parametros::Parametros p = parametros::CargarParametros(*con);
  EXPECT_EQ(p.limiteRenglones, 40);
  EXPECT_EQ(p.precioDecimales, 2);
  EXPECT_FALSE(p.ordenTotal);
  EXPECT_TRUE(p.incluirPropina);
  EXPECT_EQ(p.porcentajePropina, Dinero::DeTexto(QStringLiteral("10.5")));
  EXPECT_EQ(p.propinaDesde, Dinero::DeEntero(200));
  EXPECT_EQ(p.diasCaducidad, 7);
  EXPECT_EQ(p.documentoCompras, (std::array<bool, 4>{true, false, true, false}));
  EXPECT_EQ(p.previoCompra, 1);
  EXPECT_EQ(p.diasBackorder, 15);
  EXPECT_EQ(p.actualizarPrecios, 2);
  // The tips are updated the second time; "Remisión" names the document back.
  parametros::Parametros otra = Muestra();
  otra.previoCompra = 0;
  otra.incluirPropina = false;
  emp->grabadora.sentencias.clear();
  parametros::GrabarParametros(*con, Empresa(), otra);
  EXPECT_TRUE(emp->grabadora.sentencias.contains(QStringLiteral(
      "UPDATE tblParamPropinas SET INCLUIR_TIPS=0,PORCENT_TIPS=10.5,LIMINF_TIPS=200;")));
  EXPECT_TRUE(emp->grabadora.sentencias.contains(
      QStringLiteral("UPDATE tblPlantillaMenus SET TITULO_OPCION='Remisión' WHERE (ORDEN_MENU=34) "
                     "AND (NOMBRE_OPCION='mnuComRem') AND (MODULO_EDICION=20);")));
  EXPECT_TRUE(emp->grabadora.sentencias.contains(
      QStringLiteral("UPDATE tblComEstatus SET DES_ESTATUS='REMISION' WHERE (COD_ESTATUS=7);")));
  EXPECT_EQ(emp->Contar(QStringLiteral("tblParamPropinas")), 1);
}

TEST_P(Parametros, ThePurchasePreviewIsRefusedWhileAnArticleHasAnExpiry) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblCatArticulos (COD1_ART,ART_CAD) VALUES ('A',0)"));
  EXPECT_TRUE(parametros::PrevioPermitido(*con));
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
  con->Ejecutar(QStringLiteral("INSERT INTO tblCatArticulos (COD1_ART,ART_CAD) VALUES ('B',1)"));
  EXPECT_FALSE(parametros::PrevioPermitido(*con));
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].texto,
            QStringLiteral("No es posible manejar previos de compras si hay artículos con "
                           "caducidad.\n\nRevisa la configuración de compras o desactiva la "
                           "caducidad a los artículos."));
}

INSTANTIATE_TEST_SUITE_P(Motores, Parametros, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
