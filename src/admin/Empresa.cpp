#include "admin/Empresa.h"

#include "admin/Menus.h"
#include "admin/Semillas.h"
#include "db/ConstructorBD.h"
#include "db/Esquema.h"
#include "shell/CargaEmpresa.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Encriptacion.h"
#include "shell/ErrorFatal.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/Sesion.h"

#include <QDir>
#include <QFileInfo>
#include <sql.h>
#include <sqlext.h>

namespace empresa {

namespace {

// The piece of a connection text behind a key, up to the next ";".
QString Pieza(const QString &texto, const QString &clave) {
  const qsizetype inicio = texto.indexOf(clave);
  if (inicio < 0)
    return {};
  const qsizetype desde = inicio + clave.size();
  const qsizetype fin = texto.indexOf(QLatin1Char(';'), desde);
  return texto.mid(desde, fin < 0 ? -1 : fin - desde);
}

QString Texto(const Registros &rs, const char *campo) {
  return rs.Campo(QLatin1String(campo)).Texto();
}

// The file of the embedded engine, as the program opens it.
QString RutaArchivo(const QString &archivo) {
  return ServicioConexion::Traducir(QStringLiteral("SQLite=") + archivo, gRutaApp, {}).baseDeDatos;
}

// The version stored in a new company: the reference database's, or the program's.
int VersionAGuardar() {
  ServicioConexion servicio;
  try {
    ConexionPtr ref = servicio.AbrirConexionRuta(gRutaApp);
    if (std::unique_ptr<Registros> rs =
            ref->IntentarAbrir(QStringLiteral("SELECT VER FROM tblVersion;"));
        rs && !rs->Vacio())
      return static_cast<int>(rs->Campo(QStringLiteral("VER")).Numero());
  } catch (const ErrorFatal &) {
    // Without the reference database the program's own version goes.
  }
  return kVersionNumero;
}

QString Q(const QString &valor) { return QLatin1Char('\'') + Escapar(valor) + QLatin1Char('\''); }

// Rows 0 and 1 of the company, with the same data.
void GuardarDatosEmpresa(Conexion &con, const DatosEmpresa &d, const QString &folioNv,
                         const QString &folioFact) {
  const std::vector<std::pair<const char *, QString>> valores = {
      {"NOM_EMP", Q(d.nombre)},        {"NOM_COM", Q(d.comercial)},
      {"DIR1_EMP", Q(d.direccion)},    {"EXT_EMP", Q(d.numExt)},
      {"INT_EMP", Q(d.numInt)},        {"CP_EMP", Q(d.codigoPostal)},
      {"COL_EMP", Q(d.colonia)},       {"RFC1_EMP", Q(d.rfc[0])},
      {"RFC2_EMP", Q(d.rfc[1])},       {"RFC3_EMP", Q(d.rfc[2])},
      {"DESCRIP1", Q(d.rfc[3])},       {"DESCRIP2", Q(d.rfc[4])},
      {"DESCRIP3", Q(d.rfc[5])},       {"TEL1_EMP", Q(d.telefonos[0])},
      {"TEL2_EMP", Q(d.telefonos[1])}, {"TEL3_EMP", Q(d.telefonos[2])},
      {"TEL4_EMP", Q(d.telefonos[3])}, {"IMAGEN_EMP", Q(d.imagen)},
      {"COD_CD", Q(d.ciudad.codigo)},  {"COD_EDO", Q(d.estado.codigo)},
      {"COD_PAIS", Q(d.pais.codigo)},  {"FOLIO_NV", Q(folioNv)},
      {"FOLIO_FACT", Q(folioFact)},    {"EXPEDICION", QString::number(d.expedicion.codigo.toInt())},
      {"WEBPAGE", Q(d.paginaWeb)},
  };
  if (con.Abrir(QStringLiteral("SELECT * FROM tblEmpresa WHERE COD_EMPRESA=1;")).Vacio()) {
    QStringList columnas, datos;
    for (const auto &[columna, valor] : valores) {
      columnas << QLatin1String(columna);
      datos << valor;
    }
    for (const int codigo : {0, 1})
      con.Ejecutar(QStringLiteral("INSERT INTO tblEmpresa (COD_EMPRESA,%1) VALUES (%2,%3);")
                       .arg(columnas.join(QLatin1Char(',')), QString::number(codigo),
                            datos.join(QLatin1Char(','))));
    return;
  }
  QStringList asignaciones;
  for (const auto &[columna, valor] : valores)
    asignaciones << QLatin1String(columna) + QLatin1Char('=') + valor;
  con.Ejecutar(QStringLiteral("UPDATE tblEmpresa SET %1 WHERE COD_EMPRESA<=1;")
                   .arg(asignaciones.join(QLatin1Char(','))));
}

// Rows 0 and 1 of the place of issue; none when the place is the company's address.
void GuardarExpedicion(Conexion &con, const DatosEmpresa &d) {
  con.Ejecutar(QStringLiteral("DELETE FROM tblLugarExpedicion WHERE COD_EMPRESA IN(0,1);"));
  if (d.calleExp.isEmpty() && d.cpExp.isEmpty() && d.coloniaExp.isEmpty())
    return;
  for (const int codigo : {0, 1})
    con.Ejecutar(QStringLiteral("INSERT INTO tblLugarExpedicion (COD_EMPRESA,CALLE_EXP,EXT_EXP,"
                                "INT_EXP,CP_EXP,COL_EXP,CD_EXP,EDO_EXP,PAIS_EXP) VALUES "
                                "(%1,%2,%3,%4,%5,%6,%7,%8,%9);")
                     .arg(codigo)
                     .arg(Q(d.calleExp), Q(d.extExp), Q(d.intExp), Q(d.cpExp), Q(d.coloniaExp),
                          Q(d.ciudadExp), Q(d.estadoExp), Q(d.paisExp)));
}

// The general parameters of a company that has none: the branch, electronic invoicing
// of version 3.3 on, and nothing else.
void GuardarParametrosIniciales(Conexion &con, const DatosEmpresa &d) {
  if (!con.Abrir(QStringLiteral("SELECT COD_SUCU FROM tblParametrosGenerales;")).Vacio())
    return;
  const QString servicio = ServicioUtil::LeerIni(QStringLiteral("TVWSMULTI"),
                                                 QStringLiteral("DIRECCION"), RutaNimbarIni());
  con.Ejecutar(QStringLiteral("INSERT INTO tblParametrosGenerales (COD_SUCU,FE_VERSION,FE_ACTUAL,"
                              "FE_ACTIEPS,CONX_CXC,BD_CXC,CAD_ACT,DIAS_CAD,HORAS_CAD,TC_Servicio,"
                              "TC_EMPRESA,TC_IDSITIO,TC_key,CNX_TVE,TVE_CODPROV,REP_NOMEMP,"
                              "REP_NOMCOM) VALUES (%1,33,1,1,'','',0,0,0,0,'','','',%2,0,0,0);")
                   .arg(Q(d.sucursal), Q(servicio)));
}

// The place of issue of the company's invoices, and its first fiscal regimes.
void GuardarRegimen(Conexion &con, const DatosEmpresa &d) {
  const int expedicion = d.expedicion.codigo.toInt();
  if (expedicion > 0)
    con.Ejecutar(QStringLiteral("UPDATE tblEmpresa SET EXPEDICION = %1;").arg(expedicion));
  else
    con.Ejecutar(QStringLiteral("UPDATE tblEmpresa SET EXPEDICION=1;"));
  semillas::SembrarRegimen(con);
}

void GuardarSucursal(Conexion &con, const DatosEmpresa &d) {
  QString sucursal;
  {
    Registros rs = con.Abrir(
        QStringLiteral("SELECT COD_SUCU FROM tblSucursales WHERE ES_PRINCIPAL IN(1,-1);"));
    if (!rs.Vacio())
      sucursal = Texto(rs, "COD_SUCU");
  }
  if (sucursal.isEmpty()) {
    sucursal = d.sucursal;
    con.Ejecutar(QStringLiteral("INSERT INTO tblSucursales (COD_SUCU,DES_SUCU,ES_PRINCIPAL) VALUES "
                                "(%1,%2,1);")
                     .arg(Q(d.sucursal), Q(d.nombreSucursal)));
    const QString antiguo = ServicioUtil::FechaSQL(QDate(1800, 1, 1), con.Motor());
    const std::pair<const char *, const char *> almacenes[] = {{"A001", "ALMACEN GENERAL"},
                                                               {"M001", "MATERIAS PRIMAS"}};
    int tipo = 1;
    for (const auto &[codigo, nombre] : almacenes)
      con.Ejecutar(QStringLiteral("INSERT INTO tblCatAlmacenes (COD_ALM,DES_ALM,COD_TIP,COD_SUCU,"
                                  "SIN_EXIST,PROT_MAX,AP_ALM,INV_CICLICO,DIA_CICLICO,CANT_CICLICO,"
                                  "PORC_SINMOV,ULTIMO_CICLICO) VALUES (%1,%2,%3,%4,0,0,0,0,0,0,0,"
                                  "%5);")
                       .arg(Q(QLatin1String(codigo)), Q(QLatin1String(nombre)))
                       .arg(tipo++)
                       .arg(Q(d.sucursal), antiguo));
  }
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET COD_SUCU=%1;").arg(Q(sucursal)));
  con.Ejecutar(QStringLiteral("UPDATE tblSucursales SET ES_PRINCIPAL=1 WHERE COD_SUCU=%1;")
                   .arg(Q(sucursal)));
}

// The database of the company, opened; created when it is a file that doesn't exist yet.
// Null, with the failure told, when it can't be reached.
ConexionPtr AbrirDestino(const DatosEmpresa &d, const QString &texto, bool *archivoNuevo) {
  *archivoNuevo = false;
  try {
    if (d.conexion.motor == motor::kSqlite) {
      const QString ruta = RutaArchivo(d.conexion.archivo);
      if (!QFileInfo::exists(ruta)) {
        if (!QDir().mkpath(QFileInfo(ruta).absolutePath()))
          throw ErrorFatal(QStringLiteral("No fue posible crear la carpeta de %1.").arg(ruta));
        *archivoNuevo = true;
      }
      return ServicioConexion::AbrirSqlite(ruta, *archivoNuevo, motor::kSqlite);
    }
    ServicioConexion servicio;
    servicio.Motor = d.conexion.motor;
    return servicio.AbrirConexion(texto);
  } catch (const ErrorFatal &e) {
    CatalogoMensajes::Mostrar(369, OcultarClaves(e.TextoCompleto()), IconoMensaje::Critico);
    return nullptr;
  }
}

} // namespace

DatosConexion DescomponerConexion(const QString &conexion) {
  DatosConexion d;
  d.motor = motor::kSqlServer;
  const QString origen = Pieza(conexion, QStringLiteral("Data Source="));
  const qsizetype barra = origen.indexOf(QLatin1Char('\\'));
  if (barra >= 0) {
    d.servidor = origen.left(barra);
    d.instancia = origen.mid(barra + 1);
  }
  d.baseDatos = Pieza(conexion, QStringLiteral("Initial Catalog="));
  if (conexion.contains(QStringLiteral("Integrated Security="))) {
    d.autenticacion = 0;
    return d;
  }
  d.autenticacion = 1;
  d.usuario = Pieza(conexion, QStringLiteral("User ID="));
  d.clave = Pieza(conexion, QStringLiteral("Password="));
  if (!d.clave.isEmpty())
    d.clave = Desencriptar(d.clave);
  return d;
}

QString ArmarConexion(const DatosConexion &d, bool paraGuardar) {
  switch (d.motor) {
  case motor::kMySql:
    return QStringLiteral("DSN=") + d.dsn;
  case motor::kSqlite:
    return QStringLiteral("SQLite=") + d.archivo;
  default:
    break;
  }
  const QString origen = d.servidor + QLatin1Char('\\') + d.instancia;
  if (d.autenticacion == 0)
    return QStringLiteral("Provider=SQLOLEDB.1; Integrated Security=SSPI; Persist Security "
                          "Info=False; Initial Catalog=%1; Data Source=%2")
        .arg(d.baseDatos, origen);
  const QString clave = paraGuardar && !d.clave.isEmpty() ? Encriptar(d.clave) : d.clave;
  return QStringLiteral("Provider=SQLOLEDB.1; Password=%1; Persist Security Info=True; User "
                        "ID=%2; Initial Catalog=%3; Data Source=%4")
      .arg(clave, d.usuario, d.baseDatos, origen);
}

QStringList FuentesOdbc() {
  QStringList fuentes;
  SQLHENV entorno = SQL_NULL_HENV;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &entorno)))
    return fuentes;
  SQLSetEnvAttr(entorno, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  SQLCHAR nombre[SQL_MAX_DSN_LENGTH + 1];
  SQLCHAR descripcion[256];
  SQLSMALLINT largoNombre = 0, largoDescripcion = 0;
  SQLUSMALLINT direccion = SQL_FETCH_FIRST;
  while (SQL_SUCCEEDED(SQLDataSources(entorno, direccion, nombre, sizeof nombre, &largoNombre,
                                      descripcion, sizeof descripcion, &largoDescripcion))) {
    fuentes << QString::fromLocal8Bit(reinterpret_cast<const char *>(nombre));
    direccion = SQL_FETCH_NEXT;
  }
  SQLFreeHandle(SQL_HANDLE_ENV, entorno);
  fuentes.sort(Qt::CaseInsensitive);
  return fuentes;
}

bool ProbarConexion(const DatosConexion &datos) {
  ServicioConexion servicio;
  servicio.Motor = motor::kSqlServer;
  try {
    servicio.AbrirConexion(ArmarConexion(datos, false));
    return true;
  } catch (const ErrorFatal &) {
    return false;
  }
}

bool NombreValido(const QString &nombre) {
  for (const QChar c : QStringLiteral("\\/:*?\"<>|"))
    if (nombre.contains(c))
      return false;
  return true;
}

DatosEmpresa CargarDatosEmpresa(int numEmp) {
  DatosEmpresa d;
  ServicioConexion servicio;
  QString conexion;
  {
    ConexionPtr general = servicio.AbrirConexionGeneral(gConexionGeneral);
    Registros rs =
        general->Abrir(QStringLiteral("SELECT * FROM tblEmpresas WHERE NUM_EMP=%1;").arg(numEmp));
    if (rs.Vacio())
      return d;
    conexion = Texto(rs, "CONEXION");
    d.nombre = Texto(rs, "NOM_EMP");
    d.comercial = Texto(rs, "NOM_COM");
    d.direccion = Texto(rs, "DIR1_EMP");
    const char *rfc[] = {"RFC1_EMP", "RFC2_EMP", "RFC3_EMP", "DESCRIP1", "DESCRIP2", "DESCRIP3"};
    for (int i = 0; i < 6; ++i)
      d.rfc[i] = Texto(rs, rfc[i]);
    for (int i = 0; i < 4; ++i)
      d.telefonos[i] = rs.Campo(QStringLiteral("TEL%1_EMP").arg(i + 1)).Texto();
    d.imagen = Texto(rs, "IMAGEN_EMP");
    d.conexion.motor = static_cast<int>(rs.Campo(QStringLiteral("MOTORDEDATOS")).Numero());
    d.conexion.baseDatos = Texto(rs, "NOMBREBASEDATOS");
  }
  if (d.conexion.motor == motor::kSqlServer) {
    const QString base = d.conexion.baseDatos;
    d.conexion = DescomponerConexion(conexion);
    if (d.conexion.baseDatos.isEmpty())
      d.conexion.baseDatos = base;
  } else if (d.conexion.motor == motor::kMySql) {
    d.conexion.dsn = conexion.mid(4);
  } else {
    d.conexion.archivo = conexion.mid(7);
  }
  // The stored text of SQL Server holds the password scrambled. A database that doesn't
  // answer leaves the screen with what the general database knows.
  servicio.Motor = d.conexion.motor;
  ConexionPtr con;
  try {
    con = servicio.AbrirConexion(
        d.conexion.motor == motor::kSqlServer ? DesencriptarConexion(conexion) : conexion);
  } catch (const ErrorFatal &e) {
    CatalogoMensajes::Mostrar(369, OcultarClaves(e.Mensaje()), IconoMensaje::Advertencia);
    return d;
  }
  {
    Registros rs = con->Abrir(QStringLiteral("SELECT * FROM tblEmpresa WHERE COD_EMPRESA=1;"));
    if (!rs.Vacio()) {
      d.numExt = Texto(rs, "EXT_EMP");
      d.numInt = Texto(rs, "INT_EMP");
      d.codigoPostal = Texto(rs, "CP_EMP");
      d.colonia = Texto(rs, "COL_EMP");
      d.paginaWeb = Texto(rs, "WEBPAGE");
      d.ciudad.codigo = Texto(rs, "COD_CD");
      d.estado.codigo = Texto(rs, "COD_EDO");
      d.pais.codigo = Texto(rs, "COD_PAIS");
    }
  }
  {
    Registros rs =
        con->Abrir(QStringLiteral("SELECT * FROM tblLugarExpedicion WHERE COD_EMPRESA=1;"));
    if (!rs.Vacio()) {
      d.calleExp = Texto(rs, "CALLE_EXP");
      d.extExp = Texto(rs, "EXT_EXP");
      d.intExp = Texto(rs, "INT_EXP");
      d.cpExp = Texto(rs, "CP_EXP");
      d.coloniaExp = Texto(rs, "COL_EXP");
      d.ciudadExp = Texto(rs, "CD_EXP");
      d.estadoExp = Texto(rs, "EDO_EXP");
      d.paisExp = Texto(rs, "PAIS_EXP");
    }
  }
  {
    Registros rs = con->Abrir(
        QStringLiteral("SELECT COD_SUCU,DES_SUCU FROM tblSucursales WHERE ES_PRINCIPAL IN(1,-1)"));
    if (!rs.Vacio()) {
      d.sucursal = Texto(rs, "COD_SUCU");
      d.nombreSucursal = Texto(rs, "DES_SUCU");
    }
  }
  {
    Registros rs = con->Abrir(
        QStringLiteral("SELECT COD_EXPED FROM tblEmpresa INNER JOIN tblExpedicion ON "
                       "tblEmpresa.EXPEDICION=tblExpedicion.COD_EXPED WHERE COD_EMPRESA = 1;"));
    if (!rs.Vacio())
      d.expedicion.codigo = Texto(rs, "COD_EXPED");
  }
  {
    Registros rs = con->Abrir(
        QStringLiteral("SELECT REP_NOMEMP,REP_NOMCOM,CFD_FACT FROM tblParametrosGenerales;"));
    if (!rs.Vacio())
      d.imprimirNombre = {rs.Campo(QStringLiteral("REP_NOMEMP")).Logico(),
                          rs.Campo(QStringLiteral("REP_NOMCOM")).Logico()};
  }
  return d;
}

bool ValidarEmpresa(const DatosEmpresa &d) {
  if (!NombreValido(d.nombre)) {
    CatalogoMensajes::MostrarTexto(
        QStringLiteral("Hay caracteres inválidos en el nombre de la empresa (\\,/,:,*,?,\",<,>,|)"),
        IconoMensaje::Advertencia);
    return false;
  }
  if (!d.expedicion.texto.isEmpty() &&
      CatalogoMensajes::MostrarTexto(
          QStringLiteral("¿La expedición es en : %1?").arg(d.expedicion.texto),
          IconoMensaje::Pregunta, BotonesMensaje::SiNo) != RespuestaMensaje::Si)
    return false;
  if (CatalogoMensajes::MostrarTexto(
          QStringLiteral("¿Todos los datos fiscales de la empresa son correctos?"),
          IconoMensaje::Pregunta, BotonesMensaje::SiNo) != RespuestaMensaje::Si)
    return false;
  if (d.nombre.isEmpty()) {
    CatalogoMensajes::Mostrar(362, {}, IconoMensaje::Advertencia);
    return false;
  }
  if (d.sucursal.isEmpty() || d.nombreSucursal.isEmpty()) {
    CatalogoMensajes::Mostrar(361, {}, IconoMensaje::Advertencia);
    return false;
  }
  return true;
}

int GuardarEmpresa(const DatosEmpresa &entrada, int numEmp, const Avance &avance, bool *nueva,
                   const PedirAdministrador &pedir) {
  const auto decir = [&](const QString &estatus, const QString &opcional = {}) {
    if (avance)
      avance(estatus, opcional);
  };
  DatosEmpresa d = entrada;
  // The region: the codes chosen become the defaults of the next company; a missing one
  // is Hermosillo, Sonora, Mexico.
  const std::array<std::tuple<CodigoTexto *, const char *, const char *, const char *>, 3> region =
      {{{&d.ciudad, "CIUDAD", "HER", "HERMOSILLO"},
        {&d.estado, "ESTADO", "SON", "SONORA"},
        {&d.pais, "PAIS", "MEX", "MEXICO"}}};
  for (const auto &[valor, clave, codigo, texto] : region) {
    if (!valor->codigo.isEmpty())
      ServicioUtil::EscribirIni(QStringLiteral("CFGREGIONAL"), QLatin1String(clave), valor->codigo,
                                RutaNimbarIni());
    if (valor->codigo.isEmpty())
      valor->codigo = QLatin1String(codigo);
    if (valor->texto.isEmpty())
      valor->texto = QLatin1String(texto);
  }
  const int version = VersionAGuardar();

  DatosConexion &c = d.conexion;
  switch (c.motor) {
  case motor::kSqlServer:
    if (!c.probada) {
      CatalogoMensajes::Mostrar(369, {}, IconoMensaje::Advertencia);
      return 0;
    }
    break;
  case motor::kMySql:
    if (c.baseDatos.isEmpty()) {
      CatalogoMensajes::Mostrar(358, {}, IconoMensaje::Advertencia);
      return 0;
    }
    if (c.dsn.isEmpty()) {
      CatalogoMensajes::Mostrar(359, {}, IconoMensaje::Advertencia);
      return 0;
    }
    break;
  default:
    if (c.archivo.isEmpty()) {
      CatalogoMensajes::Mostrar(358, {}, IconoMensaje::Advertencia);
      return 0;
    }
    if (c.baseDatos.isEmpty())
      c.baseDatos = QFileInfo(QString(c.archivo).replace(QLatin1Char('\\'), QLatin1Char('/')))
                        .completeBaseName();
    break;
  }
  const QString texto = ArmarConexion(c, false);
  const QString guardado = ArmarConexion(c, true);

  decir(QStringLiteral("Conectando con la base de datos..."));
  bool archivoNuevo = false;
  ConexionPtr con = AbrirDestino(d, texto, &archivoNuevo);
  if (!con)
    return 0;
  ServicioConexion servicio;
  ConexionPtr general = servicio.AbrirConexionGeneral(gConexionGeneral);
  const bool existe =
      numEmp > 0 &&
      !general
           ->Abrir(QStringLiteral("SELECT NUM_EMP,CONX_CONSULTORIO,BD_CONSULTORIO FROM "
                                  "tblEmpresas WHERE NUM_EMP=%1;")
                       .arg(numEmp))
           .Vacio();
  const bool estructuraNueva =
      archivoNuevo || !con->IntentarAbrir(QStringLiteral("SELECT * FROM tblVersion;"));
  if (existe && d.revisarEstructura && !estructuraNueva) {
    decir(QStringLiteral("Revisando la estructura de la base de datos..."));
    QString error;
    if (!constructor::RevisarEstructura(*con, esquema::TablasEmpresa(), &error)) {
      CatalogoMensajes::Mostrar(360, error, IconoMensaje::Critico);
      return 0;
    }
  }
  // A new database has nobody who could log in: it needs its first administrator.
  if (estructuraNueva && (d.admin.isEmpty() || d.claveAdmin.isEmpty()) && pedir && !pedir(d))
    return 0;
  if (estructuraNueva && (d.admin.isEmpty() || d.claveAdmin.isEmpty())) {
    CatalogoMensajes::MostrarTexto(
        QStringLiteral("La base de datos es nueva: indique el usuario administrador y su "
                       "contraseña."),
        IconoMensaje::Advertencia);
    return 0;
  }
  if (estructuraNueva) {
    decir(QStringLiteral("Creando la base de datos..."));
    const char *tipo = c.motor == motor::kSqlServer ? "SQLServer"
                       : c.motor == motor::kMySql   ? "MySQL"
                                                    : "SQLite";
    ServicioUtil::EscribirIni(QStringLiteral("VARIOS"), QStringLiteral("BASEDEDATOS"),
                              QLatin1String(tipo), RutaNimbarIni());
    constructor::CrearTablas(*con, esquema::TablasEmpresa());
    // Users are kept by the family's other modules: the first one comes from here.
    con->Ejecutar(QStringLiteral("INSERT INTO tblUsuarios (COD_USU,NOM_USU,TIP_USU,PASS1_USU,"
                                 "PASS2_USU,ESTATUS) VALUES (%1,%2,1,%3,'',0);")
                      .arg(Q(d.admin), Q(d.nombreAdmin), Q(Encriptar(d.claveAdmin))));
  }

  decir(QStringLiteral("Guardando la empresa..."));
  const QString motorTexto = QString::number(c.motor);
  if (existe) {
    general->Ejecutar(
        QStringLiteral("UPDATE tblEmpresas SET NOM_EMP=%1,NOM_COM=%2,DIR1_EMP=%3,RFC1_EMP=%4,"
                       "RFC2_EMP=%5,RFC3_EMP=%6,DESCRIP1=%7,DESCRIP2=%8,DESCRIP3=%9,")
            .arg(Q(d.nombre), Q(d.comercial), Q(d.direccion.left(60)), Q(d.rfc[0]), Q(d.rfc[1]),
                 Q(d.rfc[2]), Q(d.rfc[3]), Q(d.rfc[4]), Q(d.rfc[5])) +
        QStringLiteral(
            "TEL1_EMP=%1,TEL2_EMP=%2,TEL3_EMP=%3,TEL4_EMP=%4,CONEXION=%5,"
            "MOTORDEDATOS=%6,NOMBREBASEDATOS=%7,IMAGEN_EMP=%8,IVA_GLOBAL=0,PORC_GLOBAL=0 "
            "WHERE NUM_EMP=%9;")
            .arg(Q(d.telefonos[0]), Q(d.telefonos[1]), Q(d.telefonos[2]), Q(d.telefonos[3]),
                 Q(guardado), motorTexto, Q(c.baseDatos), Q(d.imagen), QString::number(numEmp)));
  } else {
    general->Ejecutar(
        QStringLiteral("INSERT INTO tblEmpresas (NOM_EMP,NOM_COM,DIR1_EMP,RFC1_EMP,RFC2_EMP,"
                       "RFC3_EMP,DESCRIP1,DESCRIP2,DESCRIP3,TEL1_EMP,TEL2_EMP,TEL3_EMP,TEL4_EMP,"
                       "CONEXION,MOTORDEDATOS,NOMBREBASEDATOS,IMAGEN_EMP,IVA_GLOBAL,PORC_GLOBAL,"
                       "CONX_CONSULTORIO,BD_CONSULTORIO,CONX_AC,BD_AC,CONX_DP,BD_DP) VALUES "
                       "(%1,%2,%3,%4,%5,%6,%7,%8,%9,")
            .arg(Q(d.nombre), Q(d.comercial), Q(d.direccion.left(60)), Q(d.rfc[0]), Q(d.rfc[1]),
                 Q(d.rfc[2]), Q(d.rfc[3]), Q(d.rfc[4]), Q(d.rfc[5])) +
        QStringLiteral("%1,%2,%3,%4,%5,%6,%7,%8,0,0,'','','','','','');")
            .arg(Q(d.telefonos[0]), Q(d.telefonos[1]), Q(d.telefonos[2]), Q(d.telefonos[3]),
                 Q(guardado), motorTexto, Q(c.baseDatos), Q(d.imagen)));
    Registros rs = general->Abrir(QStringLiteral("SELECT MAX(NUM_EMP)AS NUMEMP FROM tblEmpresas;"));
    numEmp = static_cast<int>(rs.Campo(QStringLiteral("NUMEMP")).Entero());
  }
  general.reset();

  decir(QStringLiteral("Guardando los datos de la empresa..."));
  menus::EncriptarClaves(*con);
  QString folioNv, folioFact;
  for (Registros rs = con->Abrir(
           QStringLiteral("SELECT * FROM tblConceptos WHERE COD_CON='FACT' OR COD_CON='NVEN';"));
       !rs.Fin(); rs.Siguiente())
    (Texto(rs, "COD_CON") == QLatin1String("NVEN") ? folioNv : folioFact) = Texto(rs, "FOL_CON");
  GuardarDatosEmpresa(*con, d, folioNv, folioFact);
  GuardarExpedicion(*con, d);
  GuardarParametrosIniciales(*con, d);
  con->Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET REP_NOMEMP=%1,REP_NOMCOM=%2;")
                    .arg(d.imprimirNombre[0] ? 1 : 0)
                    .arg(d.imprimirNombre[1] ? 1 : 0));
  if (estructuraNueva) {
    con->Ejecutar(QStringLiteral("DELETE FROM tblVersion;"));
    con->Ejecutar(
        QStringLiteral("INSERT INTO tblVersion (VER,CXC_CENTRAL) VALUES (%1,0);").arg(version));
  }
  GuardarRegimen(*con, d);
  decir(QStringLiteral("Revisando los catálogos..."));
  semillas::SembrarCatalogos(*con, c.motor);
  if (estructuraNueva || d.revisarEstructura) {
    decir(QStringLiteral("Generando menú..."));
    menus::SembrarPlantillas(*con, nullptr);
    menus::GenerarMenus(*con, avance, nullptr);
  }
  GuardarSucursal(*con, d);
  semillas::SembrarRegion(*con, {d.ciudad.codigo, d.ciudad.texto, d.estado.codigo, d.estado.texto,
                                 d.pais.codigo, d.pais.texto});
  if (nueva)
    *nueva = estructuraNueva;
  if (!existe)
    CatalogoMensajes::MostrarTexto(
        QStringLiteral("Al crear por primera vez la empresa, queda registrada bajo el régimen "
                       "fiscal por default.\nPara modificarlo o agregar nuevos, ingrese a Tablas - "
                       "Regímenes Fiscales."));
  decir({});
  return numEmp;
}

std::vector<FilaEmpresa> ListaEmpresas() {
  ServicioConexion servicio;
  ConexionPtr general = servicio.AbrirConexionGeneral(gConexionGeneral);
  std::vector<FilaEmpresa> filas;
  for (Registros rs = general->Abrir(
           QStringLiteral("SELECT NUM_EMP,NOM_EMP,NOM_COM FROM tblEmpresas WHERE CONEXION<>'' AND "
                          "MOTORDEDATOS<>2 ORDER BY NUM_EMP;"));
       !rs.Fin(); rs.Siguiente())
    filas.push_back({static_cast<int>(rs.Campo(QStringLiteral("NUM_EMP")).Entero()),
                     Texto(rs, "NOM_EMP"), Texto(rs, "NOM_COM")});
  return filas;
}

bool CambiarEmpresa(int numEmp) {
  const QString usuario = QStringLiteral("UPDATE tblUsuarios SET ESTATUS=%2 WHERE COD_USU=%1;");
  ServicioConexion servicio;
  // The user leaves the company he is in, whatever comes next.
  if (!gConexion.isEmpty()) {
    ConexionPtr actual = ServicioConexion::AbrirConexionSesion();
    actual->Ejecutar(usuario.arg(Q(gCodUsu), QStringLiteral("0")));
  }
  QString conexion;
  int motorDatos = 0;
  {
    ConexionPtr general = servicio.AbrirConexionGeneral(gConexionGeneral);
    Registros rs = general->Abrir(
        QStringLiteral("SELECT CONEXION,MOTORDEDATOS,CONX_DP FROM tblEmpresas WHERE NUM_EMP=%1;")
            .arg(numEmp));
    if (rs.Vacio())
      return false;
    conexion = Texto(rs, "CONEXION");
    motorDatos = static_cast<int>(rs.Campo(QStringLiteral("MOTORDEDATOS")).Numero());
  }
  if (!conexion.isEmpty() && motorDatos == motor::kSqlServer)
    conexion = DesencriptarConexion(conexion);
  ConexionPtr con;
  try {
    servicio.Motor = motorDatos;
    con = servicio.AbrirConexion(conexion);
  } catch (const ErrorFatal &e) {
    CatalogoMensajes::Mostrar(369, OcultarClaves(e.Mensaje()), IconoMensaje::Critico);
    return false;
  }
  if (con->Abrir(
             QStringLiteral("SELECT COD_USU FROM tblUsuarios WHERE COD_USU=%1;").arg(Q(gCodUsu)))
          .Vacio()) {
    CatalogoMensajes::Mostrar(403, {}, IconoMensaje::Advertencia);
    return false;
  }
  con->Ejecutar(usuario.arg(Q(gCodUsu), QStringLiteral("0")));
  // The family's menus of the business type say who may open companies.
  const int modulo = gModulo == 12 || gModulo == 13 ? (gEdicion == 1 ? 10 : 11) : gModulo;
  const menus::Acceso acceso =
      menus::RevisarDerechos(*con, modulo, gCodUsu, QStringLiteral("mnuFileOpe"));
  if (!acceso.concedido) {
    CatalogoMensajes::MostrarTexto(
        QStringLiteral("El usuario %1 no tiene permiso para abrir empresas en la empresa elegida.")
            .arg(gCodUsu),
        IconoMensaje::Advertencia);
    return false;
  }
  gCodUsu = acceso.usuario;
  {
    ConexionPtr general = servicio.AbrirConexionGeneral(gConexionGeneral);
    CargarEmpresa(*general, *con, numEmp);
  }
  gNumEmp = numEmp;
  ServicioUtil::EscribirIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"),
                            QString::number(gNumEmp), RutaNimbarIni());
  con->Ejecutar(usuario.arg(Q(gCodUsu), QStringLiteral("2")));
  return true;
}

bool EliminarEmpresa(int numEmp) {
  if (numEmp == gNumEmp) {
    CatalogoMensajes::Mostrar(365, {}, IconoMensaje::Advertencia);
    return false;
  }
  if (CatalogoMensajes::Mostrar(357, {}, IconoMensaje::Pregunta, BotonesMensaje::SiNo) !=
      RespuestaMensaje::Si)
    return false;
  ServicioConexion servicio;
  ConexionPtr general = servicio.AbrirConexionGeneral(gConexionGeneral);
  general->Ejecutar(QStringLiteral("DELETE FROM tblEmpresas WHERE NUM_EMP=%1;").arg(numEmp));
  return true;
}

} // namespace empresa
