#include "Apoyo.h"
#include "cli/Comandos.h"
#include "cli/Opciones.h"
#include "db/ConstructorBD.h"
#include "db/Esquema.h"
#include "journal/DiarioPrueba.h"
#include "shell/Encriptacion.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using diario::Filas;

namespace {

// A fresh folder with nothing in it, where the command line creates a company: in a file
// of the embedded engine, or in the MariaDB server's test database, emptied of tables.
class EmpresaNueva : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    ASSERT_TRUE(dir.isValid());
    ruta = UnirRuta(dir.path(), QStringLiteral("instalacion"));
    LimpiarSesion();
    CatalogoMensajes::Instalar(&mensajes);
    if (GetParam() == "mariadb") {
      ServicioConexion s;
      s.Motor = motor::kMySql;
      ConexionPtr con =
          s.AbrirConexion(QStringLiteral("DSN=") + qEnvironmentVariable("ESCRIBANO_PRUEBA_DSN"));
      constructor::BorrarTablas(*con, esquema::TablasEmpresa());
    }
  }
  void TearDown() override { CatalogoMensajes::Instalar(nullptr); }

  int Correr(QStringList args) {
    salida.clear();
    errores.clear();
    QTextStream out(&salida), err(&errores);
    const int codigo = cli::Ejecutar(QStringList{QStringLiteral("--ruta"), ruta} + args,
                                     QStringLiteral("/nada"), out, err);
    out.flush();
    err.flush();
    return codigo;
  }
  QStringList Nueva() const {
    QStringList a = {QStringLiteral("empresa"),
                     QStringLiteral("nueva"),
                     QStringLiteral("--nombre"),
                     QStringLiteral("Abarrotes La Esperanza S.A. de C.V."),
                     QStringLiteral("--comercial"),
                     QStringLiteral("La Esperanza"),
                     QStringLiteral("--rfc"),
                     QStringLiteral("AES-010203-AB1"),
                     QStringLiteral("--sucursal"),
                     QStringLiteral("MATRIZ"),
                     QStringLiteral("--sucursal-nombre"),
                     QStringLiteral("PISO"),
                     QStringLiteral("--admin"),
                     QStringLiteral("ADMIN"),
                     QStringLiteral("--clave-admin"),
                     QStringLiteral("secreto")};
    if (GetParam() == "mariadb")
      a << QStringLiteral("--dsn") << qEnvironmentVariable("ESCRIBANO_PRUEBA_DSN")
        << QStringLiteral("--bd") << QStringLiteral("esperanza");
    else
      a << QStringLiteral("--sqlite") << QStringLiteral("Empresas\\Esperanza.db");
    return a;
  }
  ConexionPtr Empresa() const {
    ServicioConexion s;
    s.Motor = GetParam() == "mariadb" ? motor::kMySql : motor::kSqlite;
    const QString texto =
        GetParam() == "mariadb"
            ? QStringLiteral("DSN=") + qEnvironmentVariable("ESCRIBANO_PRUEBA_DSN")
            : QStringLiteral("SQLite=") + UnirRuta(ruta, QStringLiteral("Empresas/Esperanza.db"));
    return s.AbrirConexion(texto);
  }
  ConexionPtr General() const {
    ServicioConexion s;
    return s.AbrirConexionGeneral(ConexionGeneral(ruta));
  }

  QTemporaryDir dir;
  QString ruta;
  QString salida, errores;
  PresentadorGrabador mensajes;
};

} // namespace

TEST_P(EmpresaNueva, AnEmptyFolderGetsItsDatabasesAndACompanyThatPostsADocument) {
  ASSERT_FALSE(QFileInfo::exists(ruta));
  ASSERT_EQ(Correr(Nueva()), cli::kSalidaBien) << errores.toStdString();
  EXPECT_EQ(salida, QStringLiteral("1\n"));
  std::vector<QString> textos;
  for (const Mensaje &m : mensajes.mostrados)
    textos.push_back(m.texto);
  EXPECT_EQ(textos, (std::vector<QString>{
                        QStringLiteral("¿Todos los datos fiscales de la empresa son correctos?"),
                        QStringLiteral("Al crear por primera vez la empresa, queda registrada "
                                       "bajo el régimen fiscal por default.\nPara modificarlo o "
                                       "agregar nuevos, ingrese a Tablas - Regímenes Fiscales.")}));
  const bool servidor = GetParam() == "mariadb";
  EXPECT_EQ(
      Filas(*General(), QStringLiteral("SELECT NUM_EMP,NOM_EMP,NOM_COM,RFC1_EMP,RFC2_EMP,"
                                       "RFC3_EMP,CONEXION,MOTORDEDATOS,NOMBREBASEDATOS FROM "
                                       "tblEmpresas")),
      QStringList{
          QStringLiteral("1|Abarrotes La Esperanza S.A. de C.V.|La Esperanza|AES|"
                         "010203|AB1|%1|%2|%3")
              .arg(servidor ? QStringLiteral("DSN=") + qEnvironmentVariable("ESCRIBANO_PRUEBA_DSN")
                            : QStringLiteral("SQLite=Empresas\\Esperanza.db"))
              .arg(servidor ? 4 : 5)
              .arg(servidor ? QStringLiteral("esperanza") : QStringLiteral("Esperanza"))});
  ConexionPtr con = Empresa();
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_EMPRESA,NOM_EMP,COD_CD,COD_EDO,COD_PAIS,"
                                       "EXPEDICION FROM tblEmpresa ORDER BY COD_EMPRESA")),
            L({"0|Abarrotes La Esperanza S.A. de C.V.|HER|SON|MEX|1",
               "1|Abarrotes La Esperanza S.A. de C.V.|HER|SON|MEX|1"}));
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_SUCU,DES_SUCU,ES_PRINCIPAL FROM tblSucursales")),
            L({"MATRIZ|PISO|1"}));
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_ALM,DES_ALM,COD_TIP,COD_SUCU FROM "
                                       "tblCatAlmacenes ORDER BY COD_ALM")),
            L({"A001|ALMACEN GENERAL|1|MATRIZ", "M001|MATERIAS PRIMAS|2|MATRIZ"}));
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT VER,CXC_CENTRAL FROM tblVersion")), L({"870|0"}));
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_SUCU,FE_VERSION,FE_ACTUAL,FE_ACTIEPS FROM "
                                       "tblParametrosGenerales")),
            L({"MATRIZ|33|1|1"}));
  EXPECT_EQ(
      Filas(*con, QStringLiteral("SELECT COD_USU,NOM_USU,TIP_USU,PASS1_USU FROM tblUsuarios")),
      QStringList{QStringLiteral("ADMIN|ADMINISTRADOR|1|") + Encriptar(QStringLiteral("secreto"))});
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COUNT(*) FROM tblPlantillaMenus")), L({"418"}));
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COUNT(*) FROM tblFormasPago")), L({"6"}));
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COUNT(*) FROM tblRegimenEmpresa")), L({"2"}));
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_CID,DES_CID FROM tblCiudad")),
            L({"HER|HERMOSILLO"}));

  // The list names it.
  ASSERT_EQ(Correr({QStringLiteral("empresas")}), cli::kSalidaBien);
  EXPECT_TRUE(salida.startsWith(QStringLiteral("   1  Abarrotes La Esperanza S.A. de C.V.\n")))
      << salida.toStdString();

  // One rule of expenses and one expense, posted with the administrator's password.
  const char *sentencias[] = {
      "INSERT INTO tblModulos (COD_MODUL,DES_MODUL) VALUES (6,'GASTOS')",
      "INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,GENERA_CON) VALUES "
      "(22,'GASTOS',6,1)",
      "INSERT INTO tblConceptosGyT (COD_CON,DES_CON) VALUES ('LUZ','ENERGÍA ELÉCTRICA')",
      "INSERT INTO tblDatosxOperacion (COD_DATO,DES_DATO,COD_OPER,CAMPO_ESTBD) VALUES "
      "(68,'IMPORTE DEL GASTO',22,0),(71,'CUADRE',22,0)",
      "INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM) VALUES ('E','EGRESOS','0',2)",
      "INSERT INTO tblOperacionxConcep (COD_POL,COD_OPER,MODULO,CONCEPTO,TIP_POLIZA,STS_POLIZA,"
      "FREC,DIARIO) VALUES (1,22,6,'LUZ','E','D',1,1)",
      "INSERT INTO tblRubrosxOperacion (COD_POL,COD_DATO,RUBRO_DEBE,CUENTA_DEBE,RUBRO_HABER,"
      "CUENTA_HABER) VALUES (1,68,'6-01','6100-000','',''),(1,71,'','','2-01','2100-000')",
      "INSERT INTO tblGastosEnc (FOL_MOV,FEC_MOV,CON_CEP,COD_CON,COD_ESTATUS,IMP_MOV,IVA_MOV,"
      "RET_TOT,RET_ISRTOT,CONTAB) VALUES ('G1','2026-10-15','LUZ','LUZ',1,850,0,0,0,0)",
      "INSERT INTO tblGastosRen (FOL_MOV) VALUES ('G1')"};
  for (const char *s : sentencias)
    con->Ejecutar(QString::fromUtf8(s));
  ASSERT_EQ(Correr({QStringLiteral("generar"), QStringLiteral("--empresa"), QStringLiteral("1"),
                    QStringLiteral("--usuario"), QStringLiteral("ADMIN"), QStringLiteral("--clave"),
                    QStringLiteral("secreto"), QStringLiteral("--del"),
                    QStringLiteral("2026-10-01"), QStringLiteral("--al"),
                    QStringLiteral("2026-10-31"), QStringLiteral("--sin-progreso")}),
            cli::kSalidaBien)
      << errores.toStdString() << salida.toStdString();
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT TIP_POLIZA,CONCEP_POL FROM tblPolizasEnc")),
            L({"E|ENERGÍA ELÉCTRICA"}));
  QStringList lineas;
  for (Registros r = con->Abrir(QStringLiteral("SELECT CUENTA_DEBE,CUENTA_HABER,IMP_DEBE,IMP_HABER "
                                               "FROM tblPolizasRen ORDER BY COD_DATO"));
       !r.Fin(); r.Siguiente())
    lineas << r.Campo(QStringLiteral("CUENTA_DEBE")).Texto() + QLatin1Char('|') +
                  r.Campo(QStringLiteral("CUENTA_HABER")).Texto() + QLatin1Char('|') +
                  r.Campo(QStringLiteral("IMP_DEBE")).ComoDinero().Texto() + QLatin1Char('|') +
                  r.Campo(QStringLiteral("IMP_HABER")).ComoDinero().Texto();
  EXPECT_EQ(lineas, L({"6100-000||850|0", "|2100-000|0|850"}));
}

TEST_P(EmpresaNueva, ANewDatabaseWithoutItsAdministratorIsRefused) {
  QStringList a = Nueva();
  a.remove(a.indexOf(QStringLiteral("--admin")), 2);
  EXPECT_EQ(Correr(a), cli::kSalidaUso);
  ASSERT_FALSE(mensajes.mostrados.empty());
  EXPECT_EQ(mensajes.mostrados.back().texto,
            QStringLiteral("La base de datos es nueva: indique el usuario administrador y su "
                           "contraseña."));
  EXPECT_EQ(Filas(*General(), QStringLiteral("SELECT COUNT(*) FROM tblEmpresas")), L({"0"}));
}

TEST_P(EmpresaNueva, RefusedFieldsExitOneWithTheScreensMessages) {
  QStringList a = Nueva();
  a[a.indexOf(QStringLiteral("--nombre")) + 1] = QStringLiteral("Abarrotes <La Esperanza>");
  EXPECT_EQ(Correr(a), cli::kSalidaUso);
  EXPECT_EQ(mensajes.mostrados.back().texto,
            QStringLiteral("Hay caracteres inválidos en el nombre de la empresa "
                           "(\\,/,:,*,?,\",<,>,|)"));
  a = Nueva() << QStringLiteral("--servidor") << QStringLiteral("equipo");
  EXPECT_EQ(Correr(a), cli::kSalidaUso);
  EXPECT_TRUE(errores.contains(QStringLiteral("una sola de --sqlite, --dsn o --servidor")));
  a = Nueva();
  a[a.indexOf(QStringLiteral("--rfc")) + 1] = QStringLiteral("AES010203");
  EXPECT_EQ(Correr(a), cli::kSalidaUso);
  EXPECT_TRUE(errores.contains(QStringLiteral("no tiene la forma AAA-999999-XXX")));
}

INSTANTIATE_TEST_SUITE_P(Motores, EmpresaNueva, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
