#include "shell/Sesion.h"
#include "Apoyo.h"
#include "db/EmpresaDemo.h"
#include "shell/CargaEmpresa.h"
#include "shell/Encriptacion.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

// A company with its identity rows, loaded through CargarEmpresa.
class Sesion : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    demo::LlenarIdentidad(*con, QStringLiteral("clave"));
    FijarReloj(QDateTime(QDate(2026, 11, 22), QTime(10, 0)));
  }
  void Cargar() {
    ConexionPtr general = emp->AbrirGeneral();
    CargarEmpresa(*general, *con, 1);
  }
  bool Envio(const QString &sql) const { return emp->grabadora.sentencias.contains(sql); }
  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

const QString kVersion = QStringLiteral("SELECT FE_VERSION,FE_ACTUAL FROM tblParametrosGenerales;");

} // namespace

TEST_P(Sesion, LoadsNamesLinesBranchAndReceivablesOfTheCompany) {
  Cargar();
  EXPECT_EQ(gNumEmp, 1);
  EXPECT_EQ(gNomCom, QStringLiteral("La Fonda de Doña Lupe"));
  EXPECT_EQ(gNomEmp, QStringLiteral("La Fonda de Doña Lupe S.A. de C.V."));
  EXPECT_EQ(gConexion, emp->Conexion());
  EXPECT_EQ(gMotor, emp->Motor());
  EXPECT_EQ(gNombreBD, QStringLiteral("Prueba"));
  EXPECT_EQ(gEmpresa.Telefono, QStringLiteral("33 3615 2040, 33 3615 2041"));
  EXPECT_EQ(gEmpresa.Direccion, QStringLiteral("Av. Hidalgo 1450 - B Centro CP 44100"));
  EXPECT_EQ(gEmpresa.CiudadEstado, QStringLiteral("Guadalajara, Jalisco"));
  EXPECT_EQ(gCodSucu, QStringLiteral("MATRIZ"));
  EXPECT_EQ(gMotorCxC, gMotor);
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT CONX_CXC FROM tblParametrosGenerales")),
            emp->Conexion());
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT BD_CXC FROM tblParametrosGenerales")),
            QStringLiteral("Prueba"));
  EXPECT_TRUE(
      Envio(QStringLiteral("UPDATE tblParametrosGenerales SET CONX_CXC='%1',BD_CXC='Prueba';")
                .arg(emp->Conexion())));
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

TEST_P(Sesion, ACompanyWithoutItsRowKeepsTheNamesOfTheList) {
  con->Ejecutar(QStringLiteral("DELETE FROM tblEmpresa"));
  Cargar();
  EXPECT_EQ(gNomCom, QStringLiteral("Prueba"));
  EXPECT_EQ(gNomEmp, QStringLiteral("Empresa de Prueba S.A."));
}

TEST_P(Sesion, WithoutIssuingPlaceTheCompanyAddressIsUsed) {
  Cargar();
  EXPECT_EQ(gEmpresa.DireccionExpedicion, gEmpresa.Direccion);
  con->Ejecutar(QStringLiteral("INSERT INTO tblLugarExpedicion (COD_EMPRESA,CALLE_EXP,EXT_EXP,"
                               "INT_EXP,COL_EXP,CP_EXP,CD_EXP,EDO_EXP) VALUES (1,'Juárez','12','',"
                               "'Americana','44160','GDL','JAL')"));
  Cargar();
  EXPECT_EQ(gEmpresa.DireccionExpedicion, QStringLiteral("Juárez 12 Americana CP 44160"));
}

TEST_P(Sesion, WithoutPrincipalBranchTheBranchIsTV1) {
  con->Ejecutar(QStringLiteral("UPDATE tblSucursales SET ES_PRINCIPAL=0"));
  Cargar();
  EXPECT_EQ(gCodSucu, QStringLiteral("TV1"));
  con->Ejecutar(QStringLiteral("UPDATE tblSucursales SET ES_PRINCIPAL=-1"));
  Cargar();
  EXPECT_EQ(gCodSucu, QStringLiteral("MATRIZ"));
}

TEST_P(Sesion, AStarInReceivablesBecomesTheCompanyConnection) {
  con->Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET CONX_CXC='*'"));
  ConexionPtr general = emp->AbrirGeneral();
  // Step 3 rewrites CONX_CXC first; what is read afterwards is the company's own.
  CargarEmpresa(*general, *con, 1);
  EXPECT_EQ(gConxCxC, emp->Conexion());
  EXPECT_EQ(CadenaConexionUsuario(QStringLiteral("*")), gConexion);
}

TEST_P(Sesion, BeforeTwoThousandEighteenTheVersionIsNotChanged) {
  con->Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FE_VERSION=32,FE_ACTUAL=0"));
  FijarReloj(QDateTime(QDate(2017, 12, 31), QTime(23, 59)));
  Cargar();
  EXPECT_FALSE(Envio(kVersion));
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT FE_VERSION FROM tblParametrosGenerales")),
            QStringLiteral("32"));
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
  FijarReloj(QDateTime(QDate(2018, 1, 1), QTime(0, 0)));
  Cargar();
  EXPECT_TRUE(Envio(kVersion));
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT FE_VERSION FROM tblParametrosGenerales")),
            QStringLiteral("33"));
}

TEST_P(Sesion, VersionThirtyThreeNotCurrentIsForcedOnEveryLoadUntilCurrent) {
  const QString cambio =
      QStringLiteral("UPDATE tblParametrosGenerales SET FE_VERSION=33,FE_ACTUAL=1;");
  for (int vez = 0; vez < 2; ++vez) {
    con->Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FE_VERSION=33,FE_ACTUAL=0"));
    emp->grabadora.sentencias.clear();
    Cargar();
    EXPECT_TRUE(Envio(cambio)) << vez;
  }
  emp->grabadora.sentencias.clear();
  Cargar();
  EXPECT_TRUE(Envio(kVersion));
  EXPECT_FALSE(Envio(cambio));
}

TEST_P(Sesion, TheVersionChangeCopiesTheConfigurationFilesFromTemp) {
  QDir().mkpath(emp->Ruta() + QStringLiteral("/Temp"));
  for (int m : {1, 2, 3, 4, 5, 13})
    EscribirArchivo(emp->Ruta() + QStringLiteral("/Temp/") + ArchivoConfiguracion(m),
                    "/CFDi33/ServiciosElectronicos");
  EscribirArchivo(emp->Ruta() + QStringLiteral("/TVContabilidad.cfg"),
                  "/cfdi/ServiciosElectronicos");
  EXPECT_TRUE(ConfiguracionAntigua(13));
  EXPECT_TRUE(CambiarVersionCFDI(*con));
  EXPECT_FALSE(ConfiguracionAntigua(13));
  EXPECT_EQ(LeerArchivo(emp->Ruta() + QStringLiteral("/TVPuntoVenta.cfg")),
            QByteArray("/CFDi33/ServiciosElectronicos"));
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_TRUE(emp->mensajes.mostrados[0].texto.contains(QStringLiteral("reiniciar los módulos")));
}

TEST_P(Sesion, WithoutFilesInTempTheVersionChangeSaysSo) {
  EXPECT_TRUE(CambiarVersionCFDI(*con));
  ASSERT_EQ(emp->mensajes.mostrados.size(), 2u);
  EXPECT_TRUE(emp->mensajes.mostrados[1].texto.contains(QStringLiteral("carpeta TEMP")));
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT FE_ACTUAL FROM tblParametrosGenerales")),
            QStringLiteral("1"));
}

TEST_P(Sesion, PendingChangeRepairsAnOldConfigurationAtMainWindowLoad) {
  EscribirArchivo(emp->Ruta() + QStringLiteral("/TVContabilidad.cfg"),
                  "x /cfdi/ServiciosElectronicos");
  VerificarConfiguracionCFDI(*con, 13);
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(
      emp->mensajes.mostrados[0].texto,
      QStringLiteral("No se encontraron archivos de configuración en carpeta TEMP. Contacta a "
                     "tu distribuidor."));
}

TEST_P(Sesion, DuplicatedPasswordsShowMessage422AndSkipTheHousekeeping) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblUsuarios (COD_USU,PASS1_USU,PASS2_USU,ESTATUS) "
                               "VALUES ('ANA','uno','dos',0)"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblUsuarios (COD_USU,PASS1_USU,PASS2_USU,ESTATUS) "
                               "VALUES ('BETO','tres','uno',0)"));
  emp->grabadora.sentencias.clear();
  VerificarClavesDuplicadas(*con);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{422});
  EXPECT_FALSE(Envio(QStringLiteral("DELETE FROM tblComEstatus WHERE COD_ESTATUS=0;")));
  con->Ejecutar(QStringLiteral("UPDATE tblUsuarios SET PASS2_USU='cuatro' WHERE COD_USU='BETO'"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblComEstatus (COD_ESTATUS) VALUES (0)"));
  VerificarClavesDuplicadas(*con);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{422});
  EXPECT_EQ(emp->Contar(QStringLiteral("tblComEstatus")), 0);
}

TEST_P(Sesion, ServicesOfTheRegisterComeFromTheirTablesUnscrambled) {
  con->Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET CNX_TVE=1,TVE_CODPROV=2"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblCajasTVE (COD_CAJA,COMERCIO,SUCURSAL) VALUES "
                               "(0,'COM1','%1')")
                    .arg(Encriptar(QStringLiteral("suc"))));
  con->Ejecutar(QStringLiteral("INSERT INTO tblServiciosElec (TVE_USUARIO,TVE_PASSWORD) VALUES "
                               "('portal','%1')")
                    .arg(Encriptar(QStringLiteral("pw"))));
  Cargar();
  EXPECT_EQ(gServicios.Caja, 0);
  EXPECT_EQ(gServicios.USU_COM, QStringLiteral("COM1"));
  EXPECT_EQ(gServicios.PAS_SUC, QStringLiteral("suc"));
  EXPECT_EQ(gServicios.TVE_USUARIO, QStringLiteral("portal"));
  EXPECT_EQ(gServicios.TVE_PASSWORD, QStringLiteral("pw"));
}

INSTANTIATE_TEST_SUITE_P(Motores, Sesion, testing::ValuesIn(MotoresDePrueba()), NombreMotor);

class Rutas : public testing::Test {
protected:
  QTemporaryDir dir;
  void TearDown() override { qunsetenv("ESCRIBANO_RUTA"); }
};

TEST_F(Rutas, EdicionAbsentOrZeroIsMerchandise) {
  IniciarRutas(dir.path());
  EXPECT_EQ(gEdicion, 1);
  EscribirArchivo(dir.filePath(QStringLiteral("Nimbar.ini")), "[VARIOS]\r\nEDICION=0\r\n");
  IniciarRutas(dir.path());
  EXPECT_EQ(gEdicion, 1);
  EscribirArchivo(dir.filePath(QStringLiteral("Nimbar.ini")), "[VARIOS]\r\nEDICION=no\r\n");
  IniciarRutas(dir.path());
  EXPECT_EQ(gEdicion, 1);
}

TEST_F(Rutas, EdicionTwoIsFastFood) {
  EscribirArchivo(dir.filePath(QStringLiteral("nimbar.INI")), "[varios]\r\nedicion = 2\r\n");
  IniciarRutas(dir.path());
  EXPECT_EQ(gEdicion, 2);
}

TEST_F(Rutas, TheFolderComesFromTheEnvironmentWhenSet) {
  qputenv("ESCRIBANO_RUTA", (dir.path() + QStringLiteral("/")).toLocal8Bit());
  IniciarRutas(QStringLiteral("/otra/carpeta"));
  EXPECT_EQ(gRutaApp, dir.path());
  EXPECT_EQ(gConexionGeneral, ConexionGeneral(dir.path()));
  IniciarAyuda();
  EXPECT_EQ(gRutaAyuda, dir.path() + QStringLiteral("\\Ayuda\\TV_PVManual.pdf"));
}
