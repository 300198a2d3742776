#include "cli/Comandos.h"

#include "cli/ComandoExportar.h"
#include "cli/ComandoGenerar.h"
#include "cli/ComandoPoliza.h"
#include "db/EmpresaDemo.h"
#include "shell/CargaEmpresa.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Encriptacion.h"
#include "shell/Entrada.h"
#include "shell/ErrorFatal.h"
#include "shell/Rutas.h"
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
    "  generar --usuario U --clave P --del AAAA-MM-DD --al AAAA-MM-DD [--empresa N]\n"
    "          [--operaciones 1,2,24] [--actualizar] [--fecha AAAA-MM-DD]\n"
    "          [--bitacora RUTA] [--agregar]\n"
    "      Genera las pólizas del período. Sin --operaciones toma todas las que tienen\n"
    "      reglas; --fecha pone esa fecha a todas las pólizas; --actualizar rehace las\n"
    "      ya contabilizadas; --agregar añade la corrida a una bitácora existente.\n"
    "  poliza [--empresa N] [--tipo T --folio F]\n"
    "      Muestra una póliza con sus renglones; sin folio, la primera de la empresa.\n";
const char *const kUsoFinal =
    "\n"
    "CARPETA es la carpeta del programa (Nimbar.mdb, Nimbar.ini); por omisión la variable\n"
    "ESCRIBANO_RUTA o la carpeta del ejecutable.\n"
    "Salida: 0 bien, 1 uso, 2 error fatal, 3 usuario rechazado, 4 sin formato de archivo,\n"
    "5 archivo no escrito, 6 bitácora existente sin --agregar, 7 otra generación en curso.\n";

// The tables that generation leaves behind, in the order a bookkeeper reads them.
const char *const kTablasPolizas[] = {"tblPolizasEnc", "tblPolizasRen", "tblMovimxPoliza",
                                      "tblBitacoraPolizas"};

} // namespace

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
  SesionCli sesion = AbrirEmpresa(a.opciones);
  CargarEmpresa(*sesion.general, *sesion.empresa, gNumEmp);
  Conexion *con = sesion.empresa.get();

  out << "Empresa " << gNumEmp << ": " << gNomCom << " (" << gNomEmp << ")\n";
  out << "  Conexión:        " << OcultarClaves(gConexion) << "\n";
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
    err << error << "\n\n" << kUso << kUsoExportar << kUsoFinal;
    return kSalidaUso;
  }
  if (a.comando == QStringLiteral("ayuda")) {
    out << kUso << kUsoExportar << kUsoFinal;
    return kSalidaBien;
  }
  if (!a.ruta.isEmpty())
    qputenv("ESCRIBANO_RUTA", a.ruta.toLocal8Bit());
  // Messages go to the terminal unless a caller (a test) installed its own presenter.
  PresentadorCli presentador(out, err);
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
  try {
    IniciarRutas(rutaEjecutable);
    if (a.comando == QStringLiteral("demo"))
      return Demo(a, out);
    if (a.comando == QStringLiteral("resumen"))
      return Resumen(a, out);
    if (a.comando == QStringLiteral("generar"))
      return Generar(a, out, err);
    if (a.comando == QStringLiteral("exportar"))
      return Exportar(a, out);
    if (a.comando == QStringLiteral("poliza"))
      return MostrarPoliza(a, out);
    err << "Comando desconocido: " << a.comando << "\n\n" << kUso << kUsoExportar << kUsoFinal;
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
