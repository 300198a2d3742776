#include "cli/Comandos.h"

#include "cli/ComandoEliminar.h"
#include "cli/ComandoEmpresa.h"
#include "cli/ComandoExportar.h"
#include "cli/ComandoGenerar.h"
#include "cli/ComandoPoliza.h"
#include "cli/ComandoReporte.h"
#include "cli/ComandoSat.h"
#include "db/EmpresaDemo.h"
#include "shell/CargaEmpresa.h"
#include "shell/CatalogoMensajes.h"
#include "shell/ErrorFatal.h"
#include "shell/Plataforma.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/Sesion.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace cli {
namespace {

// The tables that generation leaves behind, in the order a bookkeeper reads them.
const char *const kTablasPolizas[] = {"tblPolizasEnc", "tblPolizasRen", "tblMovimxPoliza",
                                      "tblBitacoraPolizas"};

int Demo(const Leidas &o, Contexto &ctx) {
  demo::OpcionesDemo op;
  op.ruta = gRutaApp;
  op.clave = o.Texto(QStringLiteral("clave"));
  op.reconstruir = o.Hay(QStringLiteral("reconstruir"));
  const demo::ResultadoDemo r = demo::CrearDemo(op);
  const QDate mes = demo::MesDemo();
  ctx.out << "Instalación de demostración creada en " << QFileInfo(gRutaApp).absoluteFilePath()
          << "\n";
  ctx.out << "  Empresa 1, conexión " << r.conexion << "\n";
  ctx.out << "  Documentos de " << mes.toString(QStringLiteral("MM/yyyy")) << "\n";
  // A password given is never repeated; one made up here is the only way to learn it.
  if (op.clave.isEmpty())
    ctx.out << "  Usuario ADMIN, clave generada " << r.clave << "\n";
  else
    ctx.out << "  Usuario ADMIN, con la clave dada\n";
  return kSalidaBien;
}

int Resumen(const Leidas &o, Contexto &ctx) {
  SesionCli sesion = AbrirEmpresa(o);
  CargarEmpresa(*sesion.general, *sesion.empresa, gNumEmp);
  Conexion *con = sesion.empresa.get();
  const std::pair<const char *, QString> datos[] = {{"conexion", OcultarClaves(gConexion)},
                                                    {"motor", QString::number(gMotor)},
                                                    {"baseDeDatos", gNombreBD},
                                                    {"sucursal", gCodSucu},
                                                    {"telefono", gEmpresa.Telefono},
                                                    {"domicilio", gEmpresa.Direccion},
                                                    {"ciudad", gEmpresa.CiudadEstado},
                                                    {"expedicion", gEmpresa.DireccionExpedicion},
                                                    {"cuentasPorCobrar", gConxCxC},
                                                    {"edicion", QString::number(gEdicion)}};
  QJsonObject tablas;
  for (const char *tabla : kTablasPolizas) {
    Registros c =
        con->Abrir(QStringLiteral("SELECT COUNT(*) AS N FROM %1;").arg(QLatin1String(tabla)));
    tablas.insert(QLatin1String(tabla), c.Campo(QStringLiteral("N")).Entero());
  }
  if (ctx.json) {
    ctx.objeto.insert(QStringLiteral("empresa"), gNumEmp);
    ctx.objeto.insert(QStringLiteral("nombreComercial"), gNomCom);
    ctx.objeto.insert(QStringLiteral("razonSocial"), gNomEmp);
    for (const auto &[clave, valor] : datos)
      ctx.objeto.insert(QLatin1String(clave), valor);
    ctx.objeto.insert(QStringLiteral("motorCuentasPorCobrar"), gMotorCxC);
    ctx.objeto.insert(QStringLiteral("tablas"), tablas);
    return kSalidaBien;
  }
  QTextStream &out = ctx.out;
  out << "Empresa " << gNumEmp << ": " << gNomCom << " (" << gNomEmp << ")\n";
  out << "  Conexión:        " << datos[0].second << "\n";
  out << "  Motor:           " << gMotor << "\n";
  out << "  Base de datos:   " << gNombreBD << "\n";
  out << "  Sucursal:        " << gCodSucu << "\n";
  out << "  Teléfono:        " << gEmpresa.Telefono << "\n";
  out << "  Domicilio:       " << gEmpresa.Direccion << "\n";
  out << "  Ciudad:          " << gEmpresa.CiudadEstado << "\n";
  out << "  Expedición:      " << gEmpresa.DireccionExpedicion << "\n";
  out << "  Cuentas x cobrar: " << gConxCxC << " (motor " << gMotorCxC << ")\n";
  out << "  Edición:         " << gEdicion << "\n";
  out << "Tablas de pólizas:\n";
  for (const char *tabla : kTablasPolizas)
    out << "  " << QString::fromLatin1(tabla).leftJustified(20) << " "
        << tablas.value(QLatin1String(tabla)).toInteger() << "\n";
  return kSalidaBien;
}

ComandoCli ComandoDemo() {
  ComandoCli c;
  c.nombre = QStringLiteral("demo");
  c.resumen = QStringLiteral("Crea una instalación de demostración con una empresa.");
  c.descripcion = QStringLiteral(
      "Crea en CARPETA una instalación de demostración: Nimbar.mdb con una empresa,\n"
      "Referencia.mdb, Nimbar.ini, las carpetas del programa y la base de la empresa\n"
      "con catálogos, reglas de pólizas y un mes de documentos. Sin contraseña para\n"
      "ADMIN se genera una y se muestra.\n");
  c.opciones = {{QStringLiteral("clave"), Valor::Clave, QStringLiteral("P"),
                 QStringLiteral("contraseña de ADMIN («-»: la lee de la entrada)"), false},
                {QStringLiteral("reconstruir"),
                 Valor::Ninguno,
                 {},
                 QStringLiteral("borra y vuelve a crear la base de la empresa"),
                 false}};
  c.correr = Demo;
  return c;
}

ComandoCli ComandoResumen() {
  ComandoCli c;
  c.nombre = QStringLiteral("resumen");
  c.resumen = QStringLiteral("Muestra los datos de sesión de una empresa y sus tablas de pólizas.");
  c.descripcion = QStringLiteral(
      "Carga la empresa como al entrar al programa y muestra sus datos de sesión (la\n"
      "conexión con la contraseña tapada) y cuántas filas tienen las tablas de pólizas.\n");
  c.opciones = {OpcionEmpresa(false), OpcionJson()};
  c.correr = Resumen;
  return c;
}

// The options that come before the command.
ComandoCli OpcionesGenerales() {
  ComandoCli c;
  c.opciones = {{QStringLiteral("ruta"), Valor::Texto, QStringLiteral("CARPETA"),
                 QStringLiteral("carpeta del programa"), false},
                {QStringLiteral("ayuda"), Valor::Ninguno, {}, QStringLiteral("esta ayuda"), false},
                {QStringLiteral("help"), Valor::Ninguno, {}, QStringLiteral("esta ayuda"), false},
                {QStringLiteral("version"),
                 Valor::Ninguno,
                 {},
                 QStringLiteral("la versión del programa"),
                 false}};
  return c;
}

const char *const kSalidas =
    "Salida:\n"
    "  0  bien\n"
    "  1  uso: un comando o una opción que no existen, una opción repetida o sin su\n"
    "     valor, un valor de otra clase, o un argumento de más\n"
    "  2  error fatal: el mensaje y la sentencia van a la salida de errores\n"
    "  3  usuario desconocido o bloqueado, o contraseña incorrecta\n"
    "  4  la empresa no tiene formato de archivo\n"
    "  5  el archivo no se pudo escribir completo\n"
    "  6  la bitácora ya existe y no se dio --agregar\n"
    "  7  otra generación de la empresa está en curso\n"
    "  8  el archivo del SAT no se escribió: un dato de la empresa falta o no sirve\n";

} // namespace

const QList<ComandoCli> &TodosLosComandos() {
  static const QList<ComandoCli> comandos = {
      ComandoDemo(),    ComandoEmpresas(),   ComandoEmpresaNueva(), ComandoResumen(),
      ComandoGenerar(), ComandoPoliza(),     ComandoExportar(),     ComandoEliminar(),
      ComandoReporte(), ComandoSatPolizas(), ComandoSatCatalogo()};
  return comandos;
}

QString AyudaGeneral() {
  QString texto = QStringLiteral("Uso: escribano-cli [--ruta CARPETA] COMANDO [opciones]\n"
                                 "     escribano-cli COMANDO --ayuda\n"
                                 "     escribano-cli --version\n"
                                 "\n"
                                 "Comandos:\n");
  for (const ComandoCli &c : TodosLosComandos())
    // A name of two words takes more than its column; two blanks always part it from
    // what it does.
    texto += QStringLiteral("  ") +
             (c.nombre.size() < 10 ? c.nombre.leftJustified(10) : c.nombre + QStringLiteral("  ")) +
             c.resumen + QLatin1Char('\n');
  texto += QStringLiteral(
      "\n"
      "CARPETA es la carpeta del programa (Nimbar.mdb, Nimbar.ini); si no se da, la de\n"
      "la variable ESCRIBANO_RUTA o la del ejecutable.\n"
      "Una contraseña se da con --clave P, con --clave - (una línea de la entrada\n"
      "estándar, sin eco en una terminal) o en la variable ESCRIBANO_CLAVE; la que se\n"
      "da nunca se muestra ni se escribe en la bitácora.\n"
      "\n");
  return texto + QString::fromUtf8(kSalidas);
}

int Ejecutar(const QStringList &args, const QString &rutaEjecutable, QTextStream &out,
             QTextStream &err) {
  // What comes before the command: --ruta and its value, --ayuda, --version.
  qsizetype inicio = 0;
  while (inicio < args.size() && args[inicio].startsWith(QLatin1Char('-')))
    inicio += args[inicio] == QStringLiteral("--ruta") ? 2 : 1;
  inicio = std::min(inicio, args.size());
  const ComandoCli generales = OpcionesGenerales();
  Leidas global;
  QString error;
  if (!global.Leer(generales, args.mid(0, inicio), error)) {
    err << error << "\n\n" << AyudaGeneral();
    return kSalidaUso;
  }
  const bool ayuda = global.Hay(QStringLiteral("ayuda")) || global.Hay(QStringLiteral("help"));
  if (global.Hay(QStringLiteral("version"))) {
    if (inicio < args.size()) {
      err << "Sobra el argumento «" << args[inicio] << "»: --version va sola.\n";
      return kSalidaUso;
    }
    out << "escribano-cli " << ESCRIBANO_VERSION << "\n";
    return kSalidaBien;
  }
  if (ayuda && inicio >= args.size()) {
    out << AyudaGeneral();
    return kSalidaBien;
  }
  if (inicio >= args.size()) {
    err << "Falta el comando.\n\n" << AyudaGeneral();
    return kSalidaUso;
  }
  QString nombre = args[inicio];
  QStringList resto = args.mid(inicio + 1);
  const auto &comandos = TodosLosComandos();
  // A command of two words ("empresa nueva") takes the next argument as its second.
  const QString dos = resto.isEmpty() ? QString() : nombre + QLatin1Char(' ') + resto.first();
  const auto comando = std::find_if(comandos.begin(), comandos.end(), [&](const ComandoCli &c) {
    return c.nombre == nombre || (!dos.isEmpty() && c.nombre == dos);
  });
  if (comando != comandos.end() && comando->nombre == dos) {
    nombre = dos;
    resto.removeFirst();
  }
  if (comando == comandos.end()) {
    err << "El comando «" << nombre << "» no existe.\n\n" << AyudaGeneral();
    return kSalidaUso;
  }
  // "escribano-cli --ayuda generar" and "escribano-cli generar --ayuda" alike.
  if (ayuda || resto.contains(QStringLiteral("--ayuda")) ||
      resto.contains(QStringLiteral("--help"))) {
    out << comando->Ayuda();
    return kSalidaBien;
  }
  const auto uso = [&](const QString &motivo) {
    err << motivo << "\n\n"
        << comando->Sinopsis() << "Más detalle: escribano-cli " << nombre << " --ayuda\n";
    return kSalidaUso;
  };
  for (const QString &arg : resto)
    if (arg == QStringLiteral("--ruta") || arg.startsWith(QStringLiteral("--ruta=")))
      return uso(QStringLiteral("La opción --ruta va antes del comando: escribano-cli --ruta "
                                "CARPETA %1 …")
                     .arg(nombre));
  Leidas opciones;
  if (!opciones.Leer(*comando, resto, error))
    return uso(error);
  if (opciones.Hay(QStringLiteral("progreso")) && opciones.Hay(QStringLiteral("sin-progreso")))
    return uso(QStringLiteral("Las opciones --progreso y --sin-progreso se excluyen."));
  if (!opciones.LeerClaves(*comando, error))
    return uso(error);

  Contexto ctx{out, err, false, false, {}};
  ctx.json = opciones.Hay(QStringLiteral("json"));
  ctx.progreso = opciones.Hay(QStringLiteral("progreso")) ||
                 (!opciones.Hay(QStringLiteral("sin-progreso")) && ErrorEsTerminal());
  if (global.Hay(QStringLiteral("ruta")))
    qputenv("ESCRIBANO_RUTA", global.Texto(QStringLiteral("ruta")).toLocal8Bit());
  // Messages go to the terminal unless a caller (a test) installed its own presenter.
  PresentadorCli presentador(ctx);
  const bool propio = !CatalogoMensajes::HayPresentadorInstalado();
  if (propio)
    CatalogoMensajes::Instalar(&presentador);
  struct Restaurar {
    bool activo;
    ~Restaurar() {
      if (activo)
        CatalogoMensajes::Instalar(nullptr);
    }
  } restaurar{propio};
  // Under --json one object comes out whatever the end: its exit code, its messages and,
  // after a fatal error, the error and its statement.
  const auto terminar = [&](int codigo) {
    if (ctx.json) {
      ctx.objeto.insert(QStringLiteral("comando"), nombre);
      ctx.objeto.insert(QStringLiteral("salida"), codigo);
      out << QString::fromUtf8(QJsonDocument(ctx.objeto).toJson(QJsonDocument::Indented));
    }
    return codigo;
  };
  try {
    IniciarRutas(rutaEjecutable);
    return terminar(comando->correr(opciones, ctx));
  } catch (const ErrorFatal &e) {
    out.flush();
    err << CatalogoMensajes::Texto(100) << ": " << e.Mensaje() << "\n";
    if (!e.Sentencia().isEmpty())
      err << "Sentencia: " << e.Sentencia() << "\n";
    ctx.objeto.insert(QStringLiteral("error"), e.Mensaje());
    if (!e.Sentencia().isEmpty())
      ctx.objeto.insert(QStringLiteral("sentencia"), e.Sentencia());
    return terminar(kSalidaFatal);
  }
}

} // namespace cli
