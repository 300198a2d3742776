#include "cli/Comandos.h"

#include "db/EmpresaDemo.h"
#include "shell/CatalogoMensajes.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QFileInfo>

namespace cli {
namespace {

const char *const kUso =
    "Uso: escribano-cli [--ruta CARPETA] COMANDO [opciones]\n"
    "\n"
    "Comandos:\n"
    "  demo [--clave CLAVE] [--reconstruir]\n"
    "      Crea en CARPETA una instalación de demostración: Nimbar.mdb con una empresa,\n"
    "      Referencia.mdb, Nimbar.ini, las carpetas del programa y la base de la empresa\n"
    "      con catálogos, reglas de pólizas y un mes de documentos.\n"
    "  resumen [--empresa N]\n"
    "      Carga la empresa (la última usada si no se indica) y muestra sus datos de\n"
    "      sesión y cuántas filas tienen las tablas de pólizas.\n"
    "\n"
    "CARPETA es la carpeta del programa (Nimbar.mdb, Nimbar.ini); por omisión la variable\n"
    "ESCRIBANO_RUTA o la carpeta del ejecutable.\n";

// The tables that generation leaves behind, in the order a bookkeeper reads them.
const char *const kTablasPolizas[] = {"tblPolizasEnc", "tblPolizasRen", "tblMovimxPoliza",
                                      "tblBitacoraPolizas"};

} // namespace

bool Analizar(const QStringList &args, Argumentos &salida, QString &error) {
  QStringList resto = args;
  while (!resto.isEmpty() && resto.first().startsWith(QStringLiteral("--"))) {
    const QString opcion = resto.takeFirst();
    if (opcion == QStringLiteral("--ruta") && !resto.isEmpty()) {
      salida.ruta = resto.takeFirst();
    } else if (opcion == QStringLiteral("--ayuda") || opcion == QStringLiteral("--help")) {
      salida.comando = QStringLiteral("ayuda");
      return true;
    } else {
      error = QStringLiteral("Opción desconocida: %1").arg(opcion);
      return false;
    }
  }
  if (resto.isEmpty()) {
    error = QStringLiteral("Falta el comando.");
    return false;
  }
  salida.comando = resto.takeFirst();
  salida.opciones = resto;
  return true;
}

QString Opcion(const QStringList &opciones, const QString &nombre) {
  const qsizetype i = opciones.indexOf(nombre);
  return (i >= 0 && i + 1 < opciones.size()) ? opciones[i + 1] : QString();
}

bool Bandera(const QStringList &opciones, const QString &nombre) {
  return opciones.contains(nombre);
}

int Demo(const Argumentos &a, QTextStream &out) {
  demo::OpcionesDemo op;
  op.ruta = gRutaApp;
  op.clave = Opcion(a.opciones, QStringLiteral("--clave"));
  op.reconstruir = Bandera(a.opciones, QStringLiteral("--reconstruir"));
  const demo::ResultadoDemo r = demo::CrearDemo(op);
  const QDate mes = demo::MesDemo();
  out << "Instalación de demostración creada en " << QFileInfo(gRutaApp).absoluteFilePath() << "\n";
  out << "  Empresa 1, conexión " << r.conexion << "\n";
  out << "  Documentos de " << mes.toString(QStringLiteral("MM/yyyy")) << "\n";
  out << "  Usuario ADMIN, clave " << r.clave << "\n";
  return kSalidaBien;
}

int Resumen(const Argumentos &a, QTextStream &out) {
  ServicioConexion servicio;
  ConexionPtr general = servicio.AbrirConexionGeneral(gConexionGeneral);
  QString empresa = Opcion(a.opciones, QStringLiteral("--empresa"));
  if (empresa.isEmpty())
    empresa =
        ServicioUtil::LeerIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"), RutaNimbarIni());
  const int numEmp = static_cast<int>(Val(empresa));
  Registros r = general->Abrir(
      QStringLiteral("SELECT CONEXION,MOTORDEDATOS FROM tblEmpresas WHERE NUM_EMP=%1;")
          .arg(numEmp));
  if (r.Vacio())
    throw ErrorFatal(QStringLiteral("No existe la empresa %1 en Nimbar.mdb.").arg(numEmp));
  servicio.Motor = static_cast<int>(r.Campo(QStringLiteral("MOTORDEDATOS")).Numero());
  QString conexion = r.Campo(QStringLiteral("CONEXION")).Texto();
  ConexionPtr con = servicio.AbrirConexion(conexion);
  CargarEmpresa(*general, *con, numEmp);

  out << "Empresa " << gNumEmp << ": " << gNomCom << " (" << gNomEmp << ")\n";
  out << "  Conexión:        " << gConexion << "\n";
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
  for (const char *tabla : kTablasPolizas) {
    Registros c =
        con->Abrir(QStringLiteral("SELECT COUNT(*) AS N FROM %1;").arg(QLatin1String(tabla)));
    out << "  " << QString::fromLatin1(tabla).leftJustified(20) << " "
        << c.Campo(QStringLiteral("N")).Entero() << "\n";
  }
  return kSalidaBien;
}

int Ejecutar(const QStringList &args, const QString &rutaEjecutable, QTextStream &out,
             QTextStream &err) {
  Argumentos a;
  QString error;
  if (!Analizar(args, a, error)) {
    err << error << "\n\n" << kUso;
    return kSalidaUso;
  }
  if (a.comando == QStringLiteral("ayuda")) {
    out << kUso;
    return kSalidaBien;
  }
  if (!a.ruta.isEmpty())
    qputenv("ESCRIBANO_RUTA", a.ruta.toLocal8Bit());
  try {
    IniciarRutas(rutaEjecutable);
    if (a.comando == QStringLiteral("demo"))
      return Demo(a, out);
    if (a.comando == QStringLiteral("resumen"))
      return Resumen(a, out);
    err << "Comando desconocido: " << a.comando << "\n\n" << kUso;
    return kSalidaUso;
  } catch (const ErrorFatal &e) {
    out.flush();
    err << CatalogoMensajes::Texto(100) << ": " << e.Mensaje() << "\n";
    if (!e.Sentencia().isEmpty())
      err << "Sentencia: " << e.Sentencia() << "\n";
    return kSalidaFatal;
  }
}

} // namespace cli
