#include "Apoyo.h"

#include "db/ConstructorBD.h"
#include "db/EmpresaDemo.h"
#include "db/Esquema.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace {

QString DsnMariaDb() { return qEnvironmentVariable("ESCRIBANO_PRUEBA_DSN"); }

// The MariaDB test database gets its tables from the first fixture of a run (the test
// script starts a fresh server); later fixtures only empty them, and make again a table
// that a test dropped.
void PrepararMariaDb(Conexion &con) {
  const auto &tablas = esquema::TablasEmpresa();
  if (!con.IntentarAbrir(QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc"))) {
    constructor::CrearTablas(con, tablas);
    return;
  }
  for (const esquema::Tabla &t : tablas)
    if (!con.IntentarEjecutar(QStringLiteral("DELETE FROM %1").arg(QLatin1String(t.nombre))))
      constructor::CrearTablas(con, {t});
  con.IntentarEjecutar(QStringLiteral("ALTER TABLE tblRubrosxOperacion AUTO_INCREMENT = 1"));
}

} // namespace

std::vector<std::string> MotoresDePrueba() {
  std::vector<std::string> motores{"sqlite"};
  if (!DsnMariaDb().isEmpty())
    motores.push_back("mariadb");
  return motores;
}

std::string NombreMotor(const testing::TestParamInfo<std::string> &info) { return info.param; }

QStringList L(std::initializer_list<const char *> lineas) {
  QStringList l;
  for (const char *linea : lineas)
    l << QString::fromUtf8(linea);
  return l;
}

EmpresaPrueba::EmpresaPrueba(const std::string &motor) {
  if (!dir_.isValid())
    throw std::runtime_error("no temporary folder");
  ruta_ = dir_.path();
  LimpiarSesion();
  FijarReloj({});
  qunsetenv("ESCRIBANO_RUTA");
  IniciarRutas(ruta_);
  CatalogoMensajes::Instalar(&mensajes);

  demo::CrearBaseGeneral(UnirRuta(ruta_, QStringLiteral("Nimbar.mdb")));
  demo::CrearBaseReferencia(UnirRuta(ruta_, QStringLiteral("Referencia.mdb")));
  if (motor == "mariadb") {
    motorNum_ = motor::kMySql;
    conexion_ = QStringLiteral("DSN=") + DsnMariaDb();
    ServicioConexion s;
    ConexionPtr con = s.AbrirConexion(conexion_);
    PrepararMariaDb(*con);
  } else {
    motorNum_ = motor::kSqlite;
    conexion_ = QStringLiteral("SQLite=Empresa.db");
    demo::CrearBaseEmpresaSqlite(UnirRuta(ruta_, QStringLiteral("Empresa.db")));
  }
  ConexionPtr general = AbrirGeneral();
  general->Ejecutar(QStringLiteral("INSERT INTO tblEmpresas (NUM_EMP,NOM_EMP,NOM_COM,CONEXION,"
                                   "MOTORDEDATOS,NOMBREBASEDATOS) VALUES (1,'Empresa de Prueba "
                                   "S.A.','Prueba','%1',%2,'Prueba')")
                        .arg(conexion_)
                        .arg(motorNum_));
  gMotor = motorNum_;
  gConexion = conexion_;
  Conexion::InstalarGrabadora(&grabadora);
}

EmpresaPrueba::~EmpresaPrueba() {
  Conexion::InstalarGrabadora(nullptr);
  CatalogoMensajes::Instalar(nullptr);
  FijarReloj({});
}

ConexionPtr EmpresaPrueba::Abrir() const {
  ServicioConexion s;
  s.Motor = motorNum_;
  return s.AbrirConexion(conexion_);
}

ConexionPtr EmpresaPrueba::AbrirComoAdmin(const QString &claveAdmin) const {
  ConexionPtr con = Abrir();
  demo::LlenarIdentidad(*con, claveAdmin);
  gCodUsu = QStringLiteral("ADMIN");
  gNumEmp = 1;
  return con;
}

ConexionPtr EmpresaPrueba::AbrirGeneral() const {
  ServicioConexion s;
  return s.AbrirConexionGeneral(gConexionGeneral);
}

QString EmpresaPrueba::Valor(const QString &sql) const {
  ConexionPtr con = Abrir();
  Registros r = con->Abrir(sql);
  if (r.Vacio())
    return QStringLiteral("<sin filas>");
  return r.Campo(r.Campos().first()).Texto();
}

int EmpresaPrueba::Contar(const QString &tabla) const {
  return Valor(QStringLiteral("SELECT COUNT(*) AS N FROM %1").arg(tabla)).toInt();
}

void EscribirArchivo(const QString &ruta, const QByteArray &bytes) {
  QFile f(RutaNativa(ruta));
  if (!f.open(QIODevice::WriteOnly))
    throw std::runtime_error("cannot write test file");
  f.write(bytes);
}

QByteArray LeerArchivo(const QString &ruta) {
  QFile f(RutaNativa(ruta));
  if (!f.open(QIODevice::ReadOnly))
    return {};
  return f.readAll();
}
