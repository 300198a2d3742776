#include "cli/ComandoEmpresa.h"

#include "admin/Empresa.h"
#include "db/EmpresaDemo.h"
#include "shell/Ayuda.h"
#include "shell/CatalogoMensajes.h"
#include "shell/ErrorFatal.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/Sesion.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace cli {
namespace {

int Empresas(const Leidas &, Contexto &ctx) {
  ServicioConexion servicio;
  ConexionPtr general = servicio.AbrirConexionGeneral(gConexionGeneral);
  QJsonArray lista;
  int filas = 0;
  for (Registros rs = general->Abrir(QStringLiteral(
           "SELECT NUM_EMP,NOM_EMP,MOTORDEDATOS,CONEXION FROM tblEmpresas ORDER BY NUM_EMP;"));
       !rs.Fin(); rs.Siguiente(), ++filas) {
    const qint64 numero = rs.Campo(QStringLiteral("NUM_EMP")).Entero();
    const QString nombre = rs.Campo(QStringLiteral("NOM_EMP")).Texto();
    const qint64 motor = static_cast<qint64>(rs.Campo(QStringLiteral("MOTORDEDATOS")).Numero());
    const QString conexion = OcultarClaves(rs.Campo(QStringLiteral("CONEXION")).Texto());
    if (ctx.json) {
      lista.append(QJsonObject{{QStringLiteral("empresa"), numero},
                               {QStringLiteral("nombre"), nombre},
                               {QStringLiteral("motor"), motor},
                               {QStringLiteral("conexion"), conexion}});
      continue;
    }
    ctx.out << QString::number(numero).rightJustified(4) << "  " << nombre << "\n"
            << "        motor " << motor << ", " << conexion << "\n";
  }
  if (ctx.json)
    ctx.objeto.insert(QStringLiteral("empresas"), lista);
  else if (filas == 0)
    ctx.out << "No hay empresas registradas.\n";
  return kSalidaBien;
}

int EmpresaNueva(const Leidas &o, Contexto &ctx) {
  const auto uso = [&](const QString &motivo) {
    ctx.err << motivo << "\n";
    return kSalidaUso;
  };
  const int destinos = (o.Hay(QStringLiteral("sqlite")) ? 1 : 0) +
                       (o.Hay(QStringLiteral("dsn")) ? 1 : 0) +
                       (o.Hay(QStringLiteral("servidor")) ? 1 : 0);
  if (destinos != 1)
    return uso(QStringLiteral("Indique la base de datos con una sola de --sqlite, --dsn o "
                              "--servidor."));
  empresa::DatosEmpresa d;
  d.nombre = o.Texto(QStringLiteral("nombre"));
  d.comercial = o.Texto(QStringLiteral("comercial"));
  if (o.Hay(QStringLiteral("rfc"))) {
    const QStringList partes = o.Texto(QStringLiteral("rfc")).split(QLatin1Char('-'));
    if (partes.size() != 3)
      return uso(QStringLiteral("El RFC «%1» no tiene la forma AAA-999999-XXX.")
                     .arg(o.Texto(QStringLiteral("rfc"))));
    for (int i = 0; i < 3; ++i)
      d.rfc[i] = partes[i].trimmed().toUpper();
  }
  d.sucursal = o.Texto(QStringLiteral("sucursal"));
  d.nombreSucursal = o.Texto(QStringLiteral("sucursal-nombre"));
  d.admin = o.Texto(QStringLiteral("admin"));
  d.claveAdmin = o.Texto(QStringLiteral("clave-admin"));
  empresa::DatosConexion &c = d.conexion;
  c.baseDatos = o.Texto(QStringLiteral("bd"));
  if (o.Hay(QStringLiteral("sqlite"))) {
    c.motor = motor::kSqlite;
    c.archivo = o.Texto(QStringLiteral("sqlite"));
  } else if (o.Hay(QStringLiteral("dsn"))) {
    c.motor = motor::kMySql;
    c.dsn = o.Texto(QStringLiteral("dsn"));
  } else {
    c.motor = motor::kSqlServer;
    c.servidor = o.Texto(QStringLiteral("servidor"));
    c.instancia = o.Texto(QStringLiteral("instancia"));
    c.usuario = o.Texto(QStringLiteral("usuario-bd"));
    c.clave = o.Texto(QStringLiteral("clave-bd"));
    c.autenticacion = c.usuario.isEmpty() ? 0 : 1;
    // The screen's "Probar conexión", done before saving.
    c.probada = empresa::ProbarConexion(c);
  }

  // A fresh folder gets the general and reference databases and the program's folders.
  const QString general = UnirRuta(gRutaApp, QStringLiteral("Nimbar.mdb"));
  if (!QFileInfo::exists(RutaNativa(general))) {
    if (!QDir().mkpath(RutaNativa(gRutaApp)))
      throw ErrorFatal(QStringLiteral("No fue posible crear la carpeta %1.").arg(gRutaApp));
    demo::CrearBaseGeneral(general);
    demo::CrearBaseReferencia(UnirRuta(gRutaApp, QStringLiteral("Referencia.mdb")));
    ayuda::InstalarManual(QCoreApplication::applicationDirPath(), gRutaApp);
  }
  // The command line answers the screen's questions with yes.
  if (!empresa::ValidarEmpresa(d))
    return kSalidaUso;
  bool nueva = false;
  const int numero = empresa::GuardarEmpresa(d, 0, {}, &nueva);
  if (numero == 0)
    return kSalidaUso;
  if (ctx.json) {
    ctx.objeto.insert(QStringLiteral("empresa"), numero);
    ctx.objeto.insert(QStringLiteral("baseNueva"), nueva);
    return kSalidaBien;
  }
  ctx.out << numero << "\n";
  return kSalidaBien;
}

} // namespace

ComandoCli ComandoEmpresas() {
  ComandoCli c;
  c.nombre = QStringLiteral("empresas");
  c.resumen = QStringLiteral("Lista las empresas de la instalación.");
  c.descripcion = QStringLiteral(
      "Muestra cada empresa de Nimbar.mdb: su número, su nombre, el motor de su base\n"
      "de datos y su texto de conexión, con la contraseña tapada.\n");
  c.opciones = {OpcionJson()};
  c.correr = Empresas;
  return c;
}

ComandoCli ComandoEmpresaNueva() {
  ComandoCli c;
  c.nombre = QStringLiteral("empresa nueva");
  c.resumen = QStringLiteral("Crea una empresa y, si su base es nueva, la construye.");
  c.descripcion = QStringLiteral(
      "Guarda una empresa como la pantalla de empresas: su fila en Nimbar.mdb, sus\n"
      "datos, catálogos, menús, sucursal principal y almacenes. La base de datos va en\n"
      "un archivo del motor integrado (--sqlite), en un servidor MySQL o MariaDB por su\n"
      "origen de datos ODBC (--dsn y --bd) o en SQL Server (--servidor y --bd; sin\n"
      "--usuario-bd, con la seguridad de Windows). Si la base es nueva se construye y\n"
      "su primer usuario es el administrador de --admin y --clave-admin. Una carpeta\n"
      "sin Nimbar.mdb lo recibe antes. Muestra el número de la empresa creada; un dato\n"
      "rechazado sale con 1 y el mensaje de la pantalla.\n");
  c.opciones = {{QStringLiteral("nombre"), Valor::Texto, QStringLiteral("TEXTO"),
                 QStringLiteral("razón social"), true},
                {QStringLiteral("comercial"), Valor::Texto, QStringLiteral("TEXTO"),
                 QStringLiteral("nombre comercial"), false},
                {QStringLiteral("rfc"), Valor::Texto, QStringLiteral("AAA-999999-XXX"),
                 QStringLiteral("RFC de la empresa"), false},
                {QStringLiteral("sucursal"), Valor::Texto, QStringLiteral("CODIGO"),
                 QStringLiteral("código de la sucursal principal"), true},
                {QStringLiteral("sucursal-nombre"), Valor::Texto, QStringLiteral("TEXTO"),
                 QStringLiteral("nombre de la sucursal principal"), true},
                {QStringLiteral("admin"), Valor::Texto, QStringLiteral("USUARIO"),
                 QStringLiteral("administrador de una base nueva"), false},
                {QStringLiteral("clave-admin"), Valor::Clave, QStringLiteral("CLAVE"),
                 QStringLiteral("su contraseña («-»: la lee de la entrada)"), false},
                {QStringLiteral("sqlite"), Valor::Texto, QStringLiteral("ARCHIVO"),
                 QStringLiteral("archivo del motor integrado (relativo a la carpeta)"), false},
                {QStringLiteral("dsn"), Valor::Texto, QStringLiteral("NOMBRE"),
                 QStringLiteral("origen de datos ODBC de MySQL o MariaDB"), false},
                {QStringLiteral("servidor"), Valor::Texto, QStringLiteral("EQUIPO"),
                 QStringLiteral("equipo de SQL Server"), false},
                {QStringLiteral("instancia"), Valor::Texto, QStringLiteral("I"),
                 QStringLiteral("instancia de SQL Server"), false},
                {QStringLiteral("bd"), Valor::Texto, QStringLiteral("NOMBRE"),
                 QStringLiteral("nombre de la base de datos"), false},
                {QStringLiteral("usuario-bd"), Valor::Texto, QStringLiteral("U"),
                 QStringLiteral("usuario de SQL Server"), false},
                {QStringLiteral("clave-bd"), Valor::Clave, QStringLiteral("P"),
                 QStringLiteral("su contraseña («-»: la lee de la entrada)"), false},
                OpcionJson()};
  c.correr = EmpresaNueva;
  return c;
}

} // namespace cli
