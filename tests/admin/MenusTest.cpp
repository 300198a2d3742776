#include "admin/Menus.h"
#include "Apoyo.h"
#include "journal/DiarioPrueba.h"
#include "shell/Encriptacion.h"
#include "shell/ServicioUtil.h"

#include <gtest/gtest.h>

using diario::Filas;

namespace {

class Menus : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
  }
  QStringList Tabla(const QString &sql) { return Filas(*con, sql); }
  void Usuario(const char *codigo, int perfil, const char *clave = "") {
    con->Ejecutar(QStringLiteral("INSERT INTO tblUsuarios (COD_USU,NOM_USU,TIP_USU,PASS1_USU,"
                                 "PASS2_USU) VALUES ('%1','Usuario %1',%2,'%3','')")
                      .arg(QLatin1String(codigo))
                      .arg(perfil)
                      .arg(QLatin1String(clave)));
  }
  // The rows of each menu table of a user, as "table:count".
  QStringList MenusDe(const char *usuario) {
    QStringList conteos;
    for (int edicion : menus::Ediciones()) {
      const QString tabla = menus::TablaMenus(edicion);
      conteos << tabla + QLatin1Char(':') +
                     Tabla(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE COD_USUARIO='%2'")
                               .arg(tabla, QLatin1String(usuario)))
                         .first();
    }
    return conteos;
  }
  bool Generar() {
    lineas.clear();
    QString error;
    const bool bien = menus::GenerarMenus(
        *con, [&](const QString &l, const QString &u) { lineas << l + QLatin1Char('|') + u; },
        &error);
    EXPECT_TRUE(bien) << error.toStdString();
    return bien;
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  QStringList lineas;
};

} // namespace

TEST(Plantillas, EachEditionHoldsItsCountOfItemsPerProfileWithParentsFirst) {
  std::map<std::pair<int, int>, int> conteo;
  for (const menus::ItemPlantilla &i : menus::Plantillas()) {
    for (const char *p = i.perfiles; *p; ++p)
      ++conteo[{*p - '0', i.edicion}];
    if (i.rama == 0)
      continue;
    // The parent is at the top, before the branch, in every profile of the branch.
    const auto padre = std::find_if(
        menus::Plantillas().begin(), menus::Plantillas().end(),
        [&](const menus::ItemPlantilla &o) { return o.edicion == i.edicion && o.orden == i.rama; });
    ASSERT_NE(padre, menus::Plantillas().end()) << i.nombre;
    EXPECT_EQ(padre->rama, 0) << i.nombre;
    EXPECT_LT(padre->orden, i.orden) << i.nombre;
    for (const char *p = i.perfiles; *p; ++p)
      EXPECT_TRUE(QByteArray(padre->perfiles).contains(*p)) << i.nombre << " " << *p;
  }
  const std::map<std::pair<int, int>, int> esperado = {
      {{2, 10}, 68}, {{3, 10}, 30}, {{4, 10}, 12}, {{5, 10}, 11}, {{2, 11}, 66}, {{3, 11}, 29},
      {{4, 11}, 13}, {{5, 11}, 12}, {{2, 20}, 14}, {{3, 20}, 40}, {{2, 30}, 33}, {{3, 30}, 14},
      {{2, 40}, 12}, {{3, 40}, 19}, {{4, 40}, 9},  {{2, 50}, 8},  {{3, 50}, 8},  {{4, 50}, 6},
      {{5, 50}, 4},  {{2, 60}, 5},  {{3, 60}, 5}};
  EXPECT_EQ(conteo, esperado);
}

TEST_P(Menus, TheTemplatesGoInProfileByProfileWithTheirTellingRows) {
  emp->grabadora.sentencias.clear();
  QString error;
  ASSERT_TRUE(menus::SembrarPlantillas(*con, &error)) << error.toStdString();
  ASSERT_GE(emp->grabadora.sentencias.size(), 2);
  EXPECT_EQ(emp->grabadora.sentencias[1],
            QStringLiteral("INSERT INTO tblPlantillaMenus (COD_PERFIL,ORDEN_MENU,NOMBRE_OPCION,"
                           "TITULO_OPCION,ES_RAMA_DE,MODULO_EDICION) VALUES "
                           "(2,1,'mnuFile','Archivo',0,10);"));
  EXPECT_EQ(Tabla(QStringLiteral("SELECT COD_PERFIL,COUNT(*) FROM tblPlantillaMenus GROUP BY "
                                 "COD_PERFIL ORDER BY COD_PERFIL")),
            L({"2|206", "3|145", "4|40", "5|27"}));
  const QString fila = QStringLiteral(
      "SELECT COD_PERFIL,ORDEN_MENU,NOMBRE_OPCION,TITULO_OPCION,ES_RAMA_DE FROM tblPlantillaMenus "
      "WHERE MODULO_EDICION=%1 AND COD_PERFIL=2 AND ORDEN_MENU IN (%2) ORDER BY ORDEN_MENU");
  EXPECT_EQ(Tabla(fila.arg(10).arg(QStringLiteral("1,4,20,21,40,41,90,91,92"))),
            L({"2|1|mnuFile|Archivo|0", "2|4|mnuFileExi|Salir|1", "2|20|mnuPV|Punto de Venta|0",
               "2|21|mnuPtoVen|Punto de Venta|20", "2|40|mnuCar|Cartera|0",
               "2|41|mnuCarPag|Recepción de Pagos|40", "2|90|mnuAyuda|?|0",
               "2|91|mnuAyudaManualDeUsuario|Manual de Usuario|90",
               "2|92|mnuAyudaCreditos|Créditos|90"}));
  EXPECT_EQ(Tabla(fila.arg(20).arg(QStringLiteral("20,21"))),
            L({"2|20|mnuPresupuestos|Presupuestos|0", "2|21|mnuPreRegistro|Registro|20"}));
  EXPECT_EQ(Tabla(fila.arg(30).arg(QStringLiteral("10,11"))),
            L({"2|10|mnuGas|Gastos|0", "2|11|mnuGasReg|Registro|10"}));
  EXPECT_EQ(Tabla(fila.arg(40).arg(QStringLiteral("3,10,11"))),
            L({"2|3|mnuFileExi|Salir|1", "2|10|mnuLiq|Liquidaciones|0",
               "2|11|mnuLiqSal|Registro de Carga|10"}));
  EXPECT_EQ(Tabla(fila.arg(50).arg(QStringLiteral("10,11"))),
            L({"2|10|mnuOperacion|Operación|0", "2|11|mnuOperacionPedidos|Pedidos|10"}));
  for (int perfil : {2, 3})
    EXPECT_EQ(Tabla(QStringLiteral("SELECT NOMBRE_OPCION FROM tblPlantillaMenus WHERE "
                                   "MODULO_EDICION=60 AND COD_PERFIL=%1 ORDER BY ORDEN_MENU")
                        .arg(perfil)),
              L({"mnuArchivo", "mnuArchivoSalir", "mnuAyuda", "mnuAyudaManualDeUsuario",
                 "mnuAyudaCreditos"}));
  // A second run adds nothing.
  ASSERT_TRUE(menus::SembrarPlantillas(*con, &error));
  EXPECT_EQ(emp->Contar(QStringLiteral("tblPlantillaMenus")), 418);
}

TEST_P(Menus, EachUserGetsTheEditionsOfItsProfile) {
  ASSERT_TRUE(menus::SembrarPlantillas(*con, nullptr));
  Usuario("CAJA", 4);
  Usuario("GERENTE", 2);
  Usuario("JEFE", 3);
  ASSERT_TRUE(Generar());
  EXPECT_EQ(lineas, L({"Generando menú...|Usuario CAJA", "Generando menú...|Usuario GERENTE",
                       "Generando menú...|Usuario JEFE"}));
  // Profile 4: no purchasing, no expenses, no edition 60.
  EXPECT_EQ(MenusDe("CAJA"), L({"tblMenusPV:12", "tblMenusFF:13", "tblMenusCP:0", "tblMenusGT:0",
                                "tblMenusVR:9", "tblMenusED:6", "tblMenusCA:0"}));
  // Profile 2 has templates of edition 60, but that edition is only for profile 1.
  EXPECT_EQ(MenusDe("GERENTE"),
            L({"tblMenusPV:68", "tblMenusFF:66", "tblMenusCP:14", "tblMenusGT:33", "tblMenusVR:12",
               "tblMenusED:8", "tblMenusCA:0"}));
  EXPECT_EQ(MenusDe("JEFE"), L({"tblMenusPV:30", "tblMenusFF:29", "tblMenusCP:40", "tblMenusGT:14",
                                "tblMenusVR:19", "tblMenusED:8", "tblMenusCA:0"}));
  EXPECT_EQ(Tabla(QStringLiteral("SELECT COD_USUARIO,ORDEN_MENU,NOMBRE_OPCION FROM tblMenusGT "
                                 "WHERE COD_USUARIO='JEFE' AND ORDEN_MENU<20 ORDER BY ORDEN_MENU")),
            L({"JEFE|1|mnuFile", "JEFE|4|mnuFileExi", "JEFE|10|mnuGas", "JEFE|11|mnuGasReg"}));
  // Two runs add nothing; a user who has rows in an edition is skipped there.
  const int antes = emp->Contar(QStringLiteral("tblMenusPV"));
  con->Ejecutar(QStringLiteral("DELETE FROM tblMenusFF WHERE COD_USUARIO='CAJA' AND ORDEN_MENU>1"));
  ASSERT_TRUE(Generar());
  EXPECT_EQ(emp->Contar(QStringLiteral("tblMenusPV")), antes);
  EXPECT_EQ(MenusDe("CAJA")[1], QStringLiteral("tblMenusFF:1"));
}

TEST_P(Menus, AnAdministratorWithoutATemplateGetsOneFromTheBaseOnce) {
  con->Ejecutar(QStringLiteral(
      "INSERT INTO tblPlantillaMenus (COD_PERFIL,ORDEN_MENU,NOMBRE_OPCION,TITULO_OPCION,"
      "ES_RAMA_DE,MODULO_EDICION) VALUES (0,1,'mnuFile','Archivo',0,10),(0,2,'mnuFileOpe',"
      "'Abrir empresa',1,10),(0,1,'mnuArchivo','Archivo',0,60)"));
  Usuario("ADMIN", 1);
  Usuario("ADMIN2", 1);
  ASSERT_TRUE(Generar());
  EXPECT_EQ(Tabla(QStringLiteral("SELECT COD_PERFIL,ORDEN_MENU,NOMBRE_OPCION,TITULO_OPCION,"
                                 "ES_RAMA_DE,MODULO_EDICION FROM tblPlantillaMenus WHERE "
                                 "COD_PERFIL=1 ORDER BY MODULO_EDICION,ORDEN_MENU")),
            L({"1|1|mnuFile|Archivo|0|10", "1|2|mnuFileOpe|Abrir empresa|1|10",
               "1|1|mnuArchivo|Archivo|0|60"}));
  for (const char *u : {"ADMIN", "ADMIN2"})
    EXPECT_EQ(MenusDe(u), L({"tblMenusPV:2", "tblMenusFF:0", "tblMenusCP:0", "tblMenusGT:0",
                             "tblMenusVR:0", "tblMenusED:0", "tblMenusCA:1"}))
        << u;
}

TEST_P(Menus, PlainPasswordsAreScrambledOnce) {
  const QString cifrada = Encriptar(QStringLiteral("secreto"));
  ASSERT_GE(cifrada.size(), 11);
  Usuario("A", 1, "secreto");
  con->Ejecutar(QStringLiteral("INSERT INTO tblUsuarios (COD_USU,TIP_USU,PASS1_USU,PASS2_USU) "
                               "VALUES ('B',2,'%1','x')")
                    .arg(Escapar(cifrada)));
  menus::EncriptarClaves(*con);
  menus::EncriptarClaves(*con);
  EXPECT_EQ(Tabla(QStringLiteral("SELECT COD_USU,PASS1_USU,PASS2_USU FROM tblUsuarios ORDER BY "
                                 "COD_USU")),
            QStringList({QStringLiteral("A|") + cifrada + QLatin1Char('|') + Encriptar(QString()),
                         QStringLiteral("B|") + cifrada + QLatin1Char('|') +
                             Encriptar(QStringLiteral("x"))}));
}

TEST_P(Menus, TheRuleShowsWhatTheUserHasAndTheRightsFollowIt) {
  ASSERT_TRUE(menus::SembrarPlantillas(*con, nullptr));
  Usuario("ADMIN", 1);
  Usuario("GERENTE", 2);
  Usuario("CAJA", 5);
  ASSERT_TRUE(Generar());
  const QString abrir = QStringLiteral("mnuFileOpe");
  EXPECT_EQ(menus::ReglaOpcion(*con, 10, QStringLiteral("GERENTE"), abrir), menus::Regla::Mostrar);
  EXPECT_EQ(menus::ReglaOpcion(*con, 10, QStringLiteral("CAJA"), abrir), menus::Regla::Ocultar);
  EXPECT_EQ(menus::ReglaOpcion(*con, 10, QStringLiteral("CAJA"), QStringLiteral("mnuPVPrecios")),
            menus::Regla::Dejar);
  EXPECT_EQ(menus::ReglaOpcion(*con, 30, QStringLiteral("CAJA"), QStringLiteral("mnuSisConfig")),
            menus::Regla::Dejar);
  EXPECT_EQ(menus::ReglaOpcion(*con, 11, QStringLiteral("CAJA"), QStringLiteral("mnuFFCom")),
            menus::Regla::Mostrar);
  // Modules other than the four points of sale, purchasing and expenses apply no rule.
  EXPECT_EQ(menus::ReglaOpcion(*con, 40, QStringLiteral("CAJA"), abrir), menus::Regla::Dejar);
  const auto acceso = [&](const char *u) {
    const menus::Acceso a = menus::RevisarDerechos(*con, 10, QLatin1String(u), abrir);
    return a.concedido ? a.usuario : QStringLiteral("-");
  };
  EXPECT_EQ(acceso("ADMIN"), QStringLiteral("ADMIN"));
  EXPECT_EQ(acceso("GERENTE"), QStringLiteral("GERENTE"));
  EXPECT_EQ(acceso("CAJA"), QStringLiteral("-"));
  EXPECT_EQ(acceso("NADIE"), QStringLiteral("-"));
}

INSTANTIATE_TEST_SUITE_P(Motores, Menus, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
