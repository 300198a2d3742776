#include "admin/Empresa.h"
#include "Apoyo.h"
#include "db/EmpresaDemo.h"
#include "journal/DiarioPrueba.h"
#include "shell/Encriptacion.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QFileInfo>
#include <gtest/gtest.h>

using diario::Filas;

// ------------------------------------------------------------------ connection texts

TEST(DescomponerConexion, AnIntegratedTextSelectsWindowsAndItsParts) {
  const empresa::DatosConexion d = empresa::DescomponerConexion(
      QStringLiteral("Provider=SQLOLEDB.1; Integrated Security=SSPI; Persist Security Info=False; "
                     "Initial Catalog=Tienda; Data Source=CAJA01\\SQLEXPRESS"));
  EXPECT_EQ(d.motor, motor::kSqlServer);
  EXPECT_EQ(d.autenticacion, 0);
  EXPECT_EQ(d.servidor, QStringLiteral("CAJA01"));
  EXPECT_EQ(d.instancia, QStringLiteral("SQLEXPRESS"));
  EXPECT_EQ(d.baseDatos, QStringLiteral("Tienda"));
  EXPECT_EQ(d.usuario, QString());
}

TEST(DescomponerConexion, WithoutIntegratedSecurityTheUserAndUnscrambledPasswordAreRead) {
  const QString cifrada = Encriptar(QStringLiteral("s3cr3t"));
  const empresa::DatosConexion d = empresa::DescomponerConexion(
      QStringLiteral("Provider=SQLOLEDB.1; Password=%1; Persist Security Info=True; User ID=sa; "
                     "Initial Catalog=Tienda; Data Source=192.168.1.5\\")
          .arg(cifrada));
  EXPECT_EQ(d.autenticacion, 1);
  EXPECT_EQ(d.usuario, QStringLiteral("sa"));
  EXPECT_EQ(d.clave, QStringLiteral("s3cr3t"));
  EXPECT_EQ(d.servidor, QStringLiteral("192.168.1.5"));
  EXPECT_EQ(d.instancia, QString());
  // Stored again, the text is the same.
  EXPECT_EQ(empresa::ArmarConexion(d, true),
            QStringLiteral("Provider=SQLOLEDB.1; Password=%1; Persist Security Info=True; User "
                           "ID=sa; Initial Catalog=Tienda; Data Source=192.168.1.5\\")
                .arg(cifrada));
  EXPECT_EQ(empresa::ArmarConexion(d, false),
            QStringLiteral("Provider=SQLOLEDB.1; Password=s3cr3t; Persist Security Info=True; "
                           "User ID=sa; Initial Catalog=Tienda; Data Source=192.168.1.5\\"));
}

TEST(DescomponerConexion, ADataSourceWithoutBackslashLeavesServerAndInstanceEmpty) {
  const empresa::DatosConexion d = empresa::DescomponerConexion(
      QStringLiteral("Provider=SQLOLEDB.1; Integrated Security=SSPI; Persist Security Info=False; "
                     "Initial Catalog=Tienda; Data Source=CAJA01"));
  EXPECT_EQ(d.servidor, QString());
  EXPECT_EQ(d.instancia, QString());
  EXPECT_EQ(empresa::ArmarConexion(d, true),
            QStringLiteral("Provider=SQLOLEDB.1; Integrated Security=SSPI; Persist Security "
                           "Info=False; Initial Catalog=Tienda; Data Source=\\"));
}

TEST(ArmarConexion, MySqlIsItsDataSourceAndTheEmbeddedEngineItsFile) {
  empresa::DatosConexion d;
  d.motor = motor::kMySql;
  d.dsn = QStringLiteral("tienda");
  EXPECT_EQ(empresa::ArmarConexion(d, true), QStringLiteral("DSN=tienda"));
  d.motor = motor::kSqlite;
  d.archivo = QStringLiteral("Empresas\\Tienda.db");
  EXPECT_EQ(empresa::ArmarConexion(d, true), QStringLiteral("SQLite=Empresas\\Tienda.db"));
}

TEST(NombreValido, NoneOfTheFilesForbiddenCharacters) {
  EXPECT_TRUE(empresa::NombreValido(QStringLiteral("La Fonda de Doña Lupe, S.A. de C.V.")));
  for (const char *c : {"\\", "/", ":", "*", "?", "\"", "<", ">", "|"})
    EXPECT_FALSE(empresa::NombreValido(QStringLiteral("A") + QLatin1String(c))) << c;
}

// ------------------------------------------------------------------ the company's save

namespace {

// The test installation's company 1, with its identity, and a second company in a file of
// its own where ADMIN is a user as well.
class Empresas : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->AbrirComoAdmin(QStringLiteral("clave"));
  }
  // Company 2, "Otra", in Otra.db.
  ConexionPtr Otra(bool conAdmin = true) {
    demo::CrearBaseEmpresaSqlite(UnirRuta(emp->Ruta(), QStringLiteral("Otra.db")));
    emp->AbrirGeneral()->Ejecutar(
        QStringLiteral("INSERT INTO tblEmpresas (NUM_EMP,NOM_EMP,NOM_COM,CONEXION,MOTORDEDATOS,"
                       "NOMBREBASEDATOS) VALUES (2,'Otra S.A.','Otra','SQLite=Otra.db',5,'Otra')"));
    ServicioConexion s;
    s.Motor = motor::kSqlite;
    ConexionPtr otra = s.AbrirConexion(QStringLiteral("SQLite=Otra.db"));
    demo::LlenarIdentidad(*otra, QStringLiteral("otra"));
    if (!conAdmin)
      otra->Ejecutar(QStringLiteral("DELETE FROM tblUsuarios"));
    return otra;
  }
  empresa::DatosEmpresa Datos() {
    empresa::DatosEmpresa d;
    d.nombre = QStringLiteral("Empresa de Prueba S.A.");
    d.comercial = QStringLiteral("Prueba");
    d.sucursal = QStringLiteral("MATRIZ");
    d.nombreSucursal = QStringLiteral("PISO");
    return d;
  }
  int ContarEmpresas() {
    return Filas(*emp->AbrirGeneral(), QStringLiteral("SELECT COUNT(*) FROM tblEmpresas"))
        .first()
        .toInt();
  }
  QString Estatus(Conexion &c) {
    return Filas(c, QStringLiteral("SELECT ESTATUS FROM tblUsuarios WHERE COD_USU='ADMIN'"))
        .value(0);
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

} // namespace

TEST_P(Empresas, TheChecksComeInOrderAndAnyNoStops) {
  empresa::DatosEmpresa d = Datos();
  d.expedicion = {QStringLiteral("2"), QStringLiteral("SUCURSAL CENTRO")};
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  EXPECT_FALSE(empresa::ValidarEmpresa(d));
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].texto,
            QStringLiteral("¿La expedición es en : SUCURSAL CENTRO?"));
  emp->mensajes.mostrados.clear();
  emp->mensajes.respuestas = {RespuestaMensaje::Si, RespuestaMensaje::No};
  EXPECT_FALSE(empresa::ValidarEmpresa(d));
  EXPECT_EQ(emp->mensajes.mostrados.back().texto,
            QStringLiteral("¿Todos los datos fiscales de la empresa son correctos?"));
  d.expedicion = {};
  d.nombre.clear();
  emp->mensajes.mostrados.clear();
  EXPECT_FALSE(empresa::ValidarEmpresa(d));
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{0, 362}));
  d.nombre = QStringLiteral("Prueba");
  d.nombreSucursal.clear();
  emp->mensajes.mostrados.clear();
  EXPECT_FALSE(empresa::ValidarEmpresa(d));
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{0, 361}));
  d.nombreSucursal = QStringLiteral("PISO");
  EXPECT_TRUE(empresa::ValidarEmpresa(d));
}

TEST_P(Empresas, EditingACompanyKeepsItsNumberAndUpdatesBothRows) {
  const int antes = ContarEmpresas();
  empresa::DatosEmpresa d = empresa::CargarDatosEmpresa(1);
  EXPECT_EQ(d.nombre, QStringLiteral("Empresa de Prueba S.A."));
  EXPECT_EQ(d.conexion.motor, emp->Motor());
  d.comercial = QStringLiteral("Prueba Dos");
  d.direccion = QStringLiteral("Calle ").repeated(15); // 90 characters, 60 kept
  d.sucursal = QStringLiteral("MATRIZ");
  d.nombreSucursal = QStringLiteral("PISO");
  if (d.conexion.motor == motor::kMySql)
    d.conexion.baseDatos = QStringLiteral("prueba");
  bool nueva = true;
  EXPECT_EQ(empresa::GuardarEmpresa(d, 1, {}, &nueva), 1);
  EXPECT_FALSE(nueva);
  EXPECT_EQ(ContarEmpresas(), antes);
  EXPECT_EQ(Filas(*emp->AbrirGeneral(),
                  QStringLiteral("SELECT NUM_EMP,NOM_COM,DIR1_EMP FROM tblEmpresas")),
            QStringList{QStringLiteral("1|Prueba Dos|") + QStringLiteral("Calle ").repeated(10)});
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_EMPRESA,NOM_COM FROM tblEmpresa ORDER BY "
                                       "COD_EMPRESA")),
            L({"1|Prueba Dos"}));
  // No notice of a new company, and the existing principal branch stays.
  for (const Mensaje &m : emp->mensajes.mostrados)
    EXPECT_FALSE(m.texto.startsWith(QStringLiteral("Al crear"))) << m.texto.toStdString();
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_SUCU FROM tblSucursales")), L({"MATRIZ"}));
}

TEST_P(Empresas, EmptyRegionListsStoreAndCreateTheDefaults) {
  empresa::DatosEmpresa d = empresa::CargarDatosEmpresa(1);
  d.ciudad = {};
  d.estado = {};
  d.pais = {};
  d.sucursal = QStringLiteral("MATRIZ");
  d.nombreSucursal = QStringLiteral("PISO");
  if (d.conexion.motor == motor::kMySql)
    d.conexion.baseDatos = QStringLiteral("prueba");
  ASSERT_EQ(empresa::GuardarEmpresa(d, 1, {}), 1);
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_CD,COD_EDO,COD_PAIS FROM tblEmpresa WHERE "
                                       "COD_EMPRESA=1")),
            L({"HER|SON|MEX"}));
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_PAIS,DES_PAIS FROM tblPais")),
            L({"MEX|MEXICO"}));
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_CID FROM tblCiudad ORDER BY COD_CID")),
            L({"GDL", "HER"}));
}

TEST_P(Empresas, ASqlServerCompanyIsReadWithItsPasswordInPlainEvenWhenItsServerIsAway) {
  const QString texto =
      QStringLiteral("Provider=SQLOLEDB.1; Password=%1; Persist Security Info=True; User ID=caja; "
                     "Initial Catalog=Tienda; Data Source=127.0.0.1\\")
          .arg(Encriptar(QStringLiteral("s3cr3t")));
  emp->AbrirGeneral()->Ejecutar(
      QStringLiteral("INSERT INTO tblEmpresas (NUM_EMP,NOM_EMP,NOM_COM,CONEXION,MOTORDEDATOS,"
                     "NOMBREBASEDATOS) VALUES (4,'Remota S.A.','Remota','%1',3,'Tienda')")
          .arg(texto));
  const empresa::DatosEmpresa d = empresa::CargarDatosEmpresa(4);
  EXPECT_EQ(d.nombre, QStringLiteral("Remota S.A."));
  EXPECT_EQ(d.conexion.motor, motor::kSqlServer);
  EXPECT_EQ(d.conexion.autenticacion, 1);
  EXPECT_EQ(d.conexion.usuario, QStringLiteral("caja"));
  EXPECT_EQ(d.conexion.clave, QStringLiteral("s3cr3t"));
  EXPECT_EQ(d.conexion.servidor, QStringLiteral("127.0.0.1"));
  EXPECT_EQ(d.conexion.instancia, QString());
  EXPECT_FALSE(d.conexion.probada);
  // The server doesn't answer here: the screen says so and shows what it knows.
  ASSERT_EQ(emp->mensajes.Ids(), std::vector<int>{369});
  EXPECT_FALSE(emp->mensajes.mostrados[0].texto.contains(QStringLiteral("s3cr3t")));
}

// ------------------------------------------------------------------ the list and the switch

TEST_P(Empresas, TheListHoldsTheServedCompaniesWithAConnection) {
  Otra();
  emp->AbrirGeneral()->Ejecutar(
      QStringLiteral("INSERT INTO tblEmpresas (NUM_EMP,NOM_EMP,NOM_COM,CONEXION,MOTORDEDATOS) "
                     "VALUES (3,'Sin conexión','',' ',5),(4,'No servida','','DSN=x',2),"
                     "(5,'Vacía','','',5)"));
  QStringList filas;
  for (const empresa::FilaEmpresa &f : empresa::ListaEmpresas())
    filas << QString::number(f.numero) + QLatin1Char('|') + f.nombre + QLatin1Char('|') +
                 f.comercial;
  EXPECT_EQ(filas, L({"1|Empresa de Prueba S.A.|Prueba", "2|Otra S.A.|Otra", "3|Sin conexión|"}));
}

TEST_P(Empresas, ASwitchMovesTheUserAndTheSessionToTheOtherCompany) {
  ConexionPtr otra = Otra();
  con->Ejecutar(QStringLiteral("UPDATE tblUsuarios SET ESTATUS=2"));
  ASSERT_TRUE(empresa::CambiarEmpresa(2));
  EXPECT_EQ(gNumEmp, 2);
  EXPECT_EQ(gConexion, QStringLiteral("SQLite=Otra.db"));
  EXPECT_EQ(gCodUsu, QStringLiteral("ADMIN"));
  EXPECT_EQ(Estatus(*con), QStringLiteral("0"));
  EXPECT_EQ(Estatus(*otra), QStringLiteral("2"));
  EXPECT_EQ(
      ServicioUtil::LeerIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"), RutaNimbarIni()),
      QStringLiteral("2"));
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

TEST_P(Empresas, AUserAbsentThereStaysAndIsLeftUnmarkedHere) {
  Otra(false);
  con->Ejecutar(QStringLiteral("UPDATE tblUsuarios SET ESTATUS=2"));
  const QString conexion = gConexion;
  EXPECT_FALSE(empresa::CambiarEmpresa(2));
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{403});
  EXPECT_EQ(gNumEmp, 1);
  EXPECT_EQ(gConexion, conexion);
  EXPECT_EQ(Estatus(*con), QStringLiteral("0"));
}

TEST_P(Empresas, AnUnreachableDatabaseLeavesTheSessionWhereItWas) {
  emp->AbrirGeneral()->Ejecutar(
      QStringLiteral("INSERT INTO tblEmpresas (NUM_EMP,NOM_EMP,NOM_COM,CONEXION,MOTORDEDATOS) "
                     "VALUES (2,'Perdida','','SQLite=NoExiste.db',5),(3,'Sin DSN','',"
                     "'DSN=NoExisteEsteDsn',4)"));
  con->Ejecutar(QStringLiteral("UPDATE tblUsuarios SET ESTATUS=2"));
  for (int numero : {2, 3}) {
    emp->mensajes.mostrados.clear();
    EXPECT_FALSE(empresa::CambiarEmpresa(numero));
    EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{369}) << numero;
    EXPECT_EQ(gNumEmp, 1);
    // The user was marked out of the company he is still in.
    EXPECT_EQ(Estatus(*con), QStringLiteral("0"));
  }
}

TEST_P(Empresas, AUserWithoutTheRightToOpenCompaniesStays) {
  ConexionPtr otra = Otra();
  otra->Ejecutar(QStringLiteral("UPDATE tblUsuarios SET TIP_USU=5"));
  EXPECT_FALSE(empresa::CambiarEmpresa(2));
  EXPECT_EQ(gNumEmp, 1);
  // Given the item in the user's menus, the same user goes.
  otra->Ejecutar(QStringLiteral("INSERT INTO tblMenusPV (COD_USUARIO,ORDEN_MENU,NOMBRE_OPCION) "
                                "VALUES ('ADMIN',2,'mnuFileOpe')"));
  EXPECT_TRUE(empresa::CambiarEmpresa(2));
  EXPECT_EQ(gNumEmp, 2);
}

TEST_P(Empresas, TheOpenCompanyCantBeDeletedAndAnotherGoesAfterTheQuestion) {
  Otra();
  EXPECT_FALSE(empresa::EliminarEmpresa(1));
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{365});
  emp->mensajes.mostrados.clear();
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  EXPECT_FALSE(empresa::EliminarEmpresa(2));
  EXPECT_EQ(ContarEmpresas(), 2);
  EXPECT_TRUE(empresa::EliminarEmpresa(2));
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{357, 357}));
  EXPECT_EQ(Filas(*emp->AbrirGeneral(), QStringLiteral("SELECT NUM_EMP FROM tblEmpresas")),
            L({"1"}));
  // The company's database stays.
  EXPECT_TRUE(QFileInfo::exists(RutaNativa(UnirRuta(emp->Ruta(), QStringLiteral("Otra.db")))));
}

INSTANTIATE_TEST_SUITE_P(Motores, Empresas, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
