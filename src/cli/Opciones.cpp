#include "cli/Opciones.h"

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

bool FechaOpcion(const QStringList &opciones, const QString &nombre, bool requerida, QDate &fecha,
                 QString &error) {
  const QString texto = Opcion(opciones, nombre);
  if (texto.isEmpty()) {
    if (requerida)
      error = QStringLiteral("Falta la fecha %1 (AAAA-MM-DD).").arg(nombre);
    return !requerida;
  }
  fecha = QDate::fromString(texto, QStringLiteral("yyyy-MM-dd"));
  if (!fecha.isValid())
    error =
        QStringLiteral("La fecha %1 «%2» no es válida; se espera AAAA-MM-DD.").arg(nombre, texto);
  return fecha.isValid();
}

RespuestaMensaje PresentadorCli::Presentar(const Mensaje &mensaje) {
  QTextStream &destino = (mensaje.icono == IconoMensaje::Informacion) ? out_ : err_;
  destino << mensaje.texto << "\n";
  destino.flush();
  switch (mensaje.botones) {
  case BotonesMensaje::SiNo:
  case BotonesMensaje::SiNoCancelar:
    return RespuestaMensaje::Si;
  default:
    return RespuestaMensaje::Aceptar;
  }
}

SesionCli AbrirEmpresa(const QStringList &opciones) {
  const QString general = UnirRuta(gRutaApp, QStringLiteral("nimbar.mdb"));
  if (!QFileInfo::exists(RutaNativa(general)))
    throw ErrorFatal(CatalogoMensajes::Texto(300) + QLatin1Char('\n') + general);
  ServicioConexion servicio;
  SesionCli sesion;
  sesion.general = servicio.AbrirConexionGeneral(gConexionGeneral);
  QString empresa = Opcion(opciones, QStringLiteral("--empresa"));
  if (empresa.isEmpty())
    empresa =
        ServicioUtil::LeerIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"), RutaNimbarIni());
  gNumEmp = static_cast<int>(Val(empresa));
  // Without a company named, or with one that is gone, the first of the list is taken.
  const QString lista = SentenciaEmpresas(QStringLiteral("NUM_EMP"));
  if (Opcion(opciones, QStringLiteral("--empresa")).isEmpty()) {
    Registros r = sesion.general->Abrir(lista);
    bool hallada = false;
    for (; !r.Fin() && !hallada; r.Siguiente())
      hallada = r.Campo(QStringLiteral("NUM_EMP")).Entero() == gNumEmp;
    if (!hallada) {
      Registros primera = sesion.general->Abrir(lista);
      if (primera.Vacio())
        throw ErrorFatal(CatalogoMensajes::Texto(302));
      gNumEmp = static_cast<int>(primera.Campo(QStringLiteral("NUM_EMP")).Entero());
    }
  }
  Registros r = sesion.general->Abrir(
      QStringLiteral("SELECT MOTORDEDATOS,CONEXION FROM tblEmpresas WHERE NUM_EMP=%1;")
          .arg(gNumEmp));
  if (r.Vacio())
    throw ErrorFatal(QStringLiteral("No existe la empresa %1 en Nimbar.mdb.").arg(gNumEmp));
  servicio.Motor = static_cast<int>(r.Campo(QStringLiteral("MOTORDEDATOS")).Numero());
  gMotor = servicio.Motor;
  gConexion = r.Campo(QStringLiteral("CONEXION")).Texto();
  if (gMotor == motor::kSqlServer)
    gConexion = DesencriptarConexion(gConexion);
  sesion.empresa = servicio.AbrirConexion(gConexion);
  return sesion;
}

int IniciarSesion(const QStringList &opciones, SesionCli &sesion) {
  sesion = AbrirEmpresa(opciones);
  const ResultadoEntrada r = AceptarEntrada(*sesion.general, *sesion.empresa,
                                            Opcion(opciones, QStringLiteral("--usuario")),
                                            Opcion(opciones, QStringLiteral("--clave")));
  return r == ResultadoEntrada::Aceptada ? kSalidaBien : kSalidaEntrada;
}

} // namespace cli
