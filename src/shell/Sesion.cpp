#include "shell/Sesion.h"

#include "shell/Ayuda.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <array>

QString gRutaApp;
QString gConexionGeneral;
int gEdicion = 1;
QString gRutaAyuda;
int gModulo = 13;
int gModoEmpresa = 0;
int gEmpresaParametros = 0;
int gNumEmp = 0;
QString gNomEmp, gNomCom;
QString gConexion;
int gMotor = 0;
QString gNombreBD;
QString gCodSucu;
QString gConxCxC, gBdCxC;
int gMotorCxC = 0;
QString gConxDP;
QString gCodUsu;
QString gPassUsu;
QString gMercancia;
QString gRutaDirectorio;
QString gRutaBusqueda;
QString gCodigoEncontrado;
bool gVersionOk = false;
DatosEmpresa gEmpresa;
ServiciosElectronicos gServicios;

namespace {

QDateTime gRelojFijo;

struct ModuloFamilia {
  int numero;
  const char *archivo;
};

// The six modules of the family that carry a configuration file of the invoicing
// services, this program's included.
constexpr std::array<ModuloFamilia, 6> kModulos = {{
    {1, "TVPuntoVenta.cfg"},
    {2, "TVCuentasxCobrar.cfg"},
    {3, "TVCompras.cfg"},
    {4, "TVInventarios.cfg"},
    {5, "TVGastos.cfg"},
    {13, "TVContabilidad.cfg"},
}};

} // namespace

bool CopiarConfiguraciones() {
  for (const ModuloFamilia &m : kModulos) {
    const QString origen =
        RutaNativa(UnirRuta(UnirRuta(gRutaApp, QStringLiteral("Temp")), QLatin1String(m.archivo)));
    const QString destino = RutaNativa(UnirRuta(gRutaApp, QLatin1String(m.archivo)));
    if (!QFileInfo::exists(origen))
      return false;
    if (QFileInfo::exists(destino) && !QFile::remove(destino))
      return false;
    if (!QFile::copy(origen, destino))
      return false;
  }
  return true;
}

namespace {} // namespace

QDate Hoy() { return Ahora().date(); }
QDateTime Ahora() { return gRelojFijo.isValid() ? gRelojFijo : QDateTime::currentDateTime(); }
void FijarReloj(const QDateTime &momento) { gRelojFijo = momento; }

QString RutaNimbarIni() { return UnirRuta(gRutaApp, QStringLiteral("Nimbar.ini")); }
QString RutaReportIni() { return UnirRuta(gRutaApp, QStringLiteral("Report.ini")); }

void LimpiarSesion() {
  gConexionGeneral.clear();
  gEdicion = 1;
  gRutaAyuda.clear();
  gModulo = 13;
  gModoEmpresa = 0;
  gEmpresaParametros = 0;
  gNumEmp = 0;
  gNomEmp.clear();
  gNomCom.clear();
  gConexion.clear();
  gMotor = 0;
  gNombreBD.clear();
  gCodSucu.clear();
  gConxCxC.clear();
  gBdCxC.clear();
  gMotorCxC = 0;
  gConxDP.clear();
  gCodUsu.clear();
  gPassUsu.clear();
  gMercancia.clear();
  gRutaDirectorio.clear();
  gVersionOk = false;
  gEmpresa = {};
  gServicios = {};
}

QString ConexionGeneral(const QString &rutaApp) {
  return QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") +
         UnirRuta(rutaApp, QStringLiteral("Nimbar.mdb")) +
         QStringLiteral(";Persist Security Info=False;Jet OLEDB:Database Password=");
}

void IniciarRutas(const QString &rutaEjecutable) {
  const QString entorno = qEnvironmentVariable("ESCRIBANO_RUTA");
  QString ruta = entorno.isEmpty() ? rutaEjecutable : entorno;
  while (ruta.size() > 1 && (ruta.endsWith(QLatin1Char('/')) || ruta.endsWith(QLatin1Char('\\'))))
    ruta.chop(1);
  gRutaApp = ruta;
  gConexionGeneral = ConexionGeneral(gRutaApp);
  // A byte: the numeric value taken modulo 256, 0 (or nothing) meaning merchandise.
  const int edicion = static_cast<int>(Val(ServicioUtil::LeerIni(
                          QStringLiteral("VARIOS"), QStringLiteral("EDICION"), RutaNimbarIni()))) &
                      0xFF;
  gEdicion = edicion == 0 ? 1 : edicion;
}

void IniciarAyuda() { gRutaAyuda = ayuda::RutaManual(gRutaApp); }

QString ArchivoConfiguracion(int modulo) {
  for (const ModuloFamilia &m : kModulos) {
    if (m.numero == modulo)
      return QLatin1String(m.archivo);
  }
  return {};
}

bool ConfiguracionAntigua(int modulo) {
  const QString nombre = ArchivoConfiguracion(modulo);
  if (nombre.isEmpty())
    return false;
  QFile f(RutaNativa(UnirRuta(gRutaApp, nombre)));
  if (!f.open(QIODevice::ReadOnly))
    return false;
  const QString texto = DecodificarWindows1252(f.readAll());
  bool antigua = texto.contains(QStringLiteral("/cfdi/ServiciosElectronicos"));
  if (texto.contains(QStringLiteral("/CFDi33/ServiciosElectronicos")))
    antigua = false;
  return antigua;
}

int CodigoDeCajaEnRegistro() { return 0; }
