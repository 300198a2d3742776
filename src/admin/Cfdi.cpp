#include "admin/Cfdi.h"

#include "shell/CargaEmpresa.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Encriptacion.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

namespace cfdi {

namespace {

// From this day on the family invoices in version 3.3 only.
const QDate kVersion33(2018, 1, 1);

QString Q(const QString &valor) { return QLatin1Char('\'') + Escapar(valor) + QLatin1Char('\''); }

// The modules are changed over to version 33 once: when it is wanted, stored, and not
// done yet.
void CambiarSiToca(Conexion &con, bool version33, const QDate &hoy) {
  Registros rs =
      con.Abrir(QStringLiteral("SELECT FE_VERSION, FE_ACTUAL FROM tblParametrosGenerales;"));
  if (rs.Vacio())
    return;
  const bool quiere = hoy >= kVersion33 || version33;
  if (quiere && rs.Campo(QStringLiteral("FE_VERSION")).Numero() == 33 &&
      rs.Campo(QStringLiteral("FE_ACTUAL")).Numero() == 0)
    CambiarVersionCFDI(con);
}

} // namespace

const QStringList &ZonasHorarias() {
  static const QStringList zonas = {
      QStringLiteral("UTC(-08:00) - Baja California"),
      QStringLiteral("UTC(-08:00) - Hora del Pacífico (EE.UU. y Canadá)"),
      QStringLiteral("UTC(-07:00) - Arizona"),
      QStringLiteral("UTC(-07:00) - Chihuahua, La Paz, Mazatlán"),
      QStringLiteral("UTC(-07:00) - Hora de las Montañas Rocosas (EE.UU. y Canadá)"),
      QStringLiteral("UTC(-06:00) - América Central"),
      QStringLiteral("UTC(-06:00) - Guadalajara, Ciudad de México, Monterrey"),
      QStringLiteral("UTC(-06:00) - Hora central (EE.UU. y Canadá)")};
  return zonas;
}

int HorasDeZona(const QString &zona) { return zona.mid(4, 3).toInt(); }

DatosSat CargarCertificados(Conexion &con) {
  DatosSat d;
  Registros rs = con.Abrir(
      QStringLiteral("SELECT FE_LLAVE,FE_LLAVEPWD,FE_CERTIFICADO FROM tblParametrosGenerales;"));
  if (!rs.Vacio()) {
    d.llave = rs.Campo(QStringLiteral("FE_LLAVE")).Texto();
    const QString clave = rs.Campo(QStringLiteral("FE_LLAVEPWD")).Texto();
    d.clave = clave.isEmpty() ? QString() : Desencriptar(clave);
    d.certificado = rs.Campo(QStringLiteral("FE_CERTIFICADO")).Texto();
  }
  Registros zona = con.Abrir(QStringLiteral("SELECT FE_ZONAHORA FROM tblParametrosGenerales;"));
  if (!zona.Vacio())
    d.zona = zona.Campo(QStringLiteral("FE_ZONAHORA")).Texto();
  return d;
}

QString ValidarCamposSat(const DatosSat &d, bool exigir, bool cambioSinValidar) {
  if (d.zona.isEmpty())
    return QStringLiteral("Debe especificar la Zona Horaria para poder guardar la información.");
  if (d.clave.isEmpty())
    return QStringLiteral("Debe especificar la Clave del SAT para poder guardar la información.");
  if (d.llave.isEmpty())
    return QStringLiteral("Debe especificar la Llave del SAT para poder guardar la información.");
  if (d.certificado.isEmpty())
    return QStringLiteral(
        "Debe especificar el Certificado del SAT para poder guardar la información.");
  if (exigir && cambioSinValidar)
    return QStringLiteral(
        "Debe validar la información modificada del SAT para poder guardar la información.");
  return {};
}

bool ValidarInfoSat(Conexion &con, const DatosSat &d, const QDate &hoy, sat::Validacion *salida) {
  const QString falta = ValidarCamposSat(d, false, false);
  if (!falta.isEmpty()) {
    CatalogoMensajes::MostrarTexto(falta, IconoMensaje::Advertencia);
    return false;
  }
  const sat::Validacion v = sat::ValidarDatosSat(d.clave, d.certificado, d.llave, hoy);
  if (salida)
    *salida = v;
  if (!v.valida) {
    CatalogoMensajes::MostrarTexto(QStringLiteral("La información no fue validada correctamente\n"
                                                  "No podrán guardarse los cambios.\n\n") +
                                       v.motivo,
                                   IconoMensaje::Advertencia);
    return false;
  }
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FE_LLAVEPWD = %1;")
                   .arg(Q(Encriptar(d.clave))));
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FE_LLAVE = %1;").arg(Q(d.llave)));
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FE_CERTIFICADO = %1;")
                   .arg(Q(d.certificado)));
  con.Ejecutar(
      QStringLiteral("UPDATE tblParametrosGenerales SET FE_ZONAHORA = %1;").arg(Q(d.zona)));
  QString texto = QStringLiteral("La información fue validada y guardada correctamente");
  if (!v.aviso.isEmpty())
    texto += QStringLiteral("\n\n") + v.aviso;
  CatalogoMensajes::MostrarTexto(texto);
  return true;
}

void GrabarZona(Conexion &con, const parametros::Empresa &empresa, const QString &zona) {
  parametros::AsegurarRenglon(con, empresa);
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FE_ZONAHORA = %1;").arg(Q(zona)));
  CatalogoMensajes::MostrarTexto(QStringLiteral("Parámetros guardados"));
}

bool GrabarConfiguracionCfdi(Conexion &con, const parametros::Empresa &empresa,
                             const DatosSat &datos, bool cambioSinValidar, const QString &rutaXml,
                             const QDate &vence, bool version33, const QDate &hoy) {
  const QString falta = ValidarCamposSat(datos, true, cambioSinValidar);
  if (!falta.isEmpty()) {
    CatalogoMensajes::MostrarTexto(falta, IconoMensaje::Advertencia);
    return false;
  }
  parametros::AsegurarRenglon(con, empresa);
  const int version = version33 || hoy >= kVersion33 ? 33 : 32;
  int guardada = 0;
  {
    Registros rs = con.Abrir(QStringLiteral("SELECT * FROM tblParametrosGenerales;"));
    if (!rs.Vacio()) {
      guardada = static_cast<int>(rs.Campo(QStringLiteral("FE_VERSION")).Numero());
      con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FE_PAC=0,FE_ORIGEN=0,"
                                  "FE_RUTAXML=%1,FE_VENCERT=%2;")
                       .arg(Q(rutaXml), ServicioUtil::FechaSQL(vence, con.Motor())));
    }
  }
  // The version only goes up.
  if (guardada != 33)
    con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FE_VERSION=%1;").arg(version));
  CambiarSiToca(con, version33, hoy);
  CatalogoMensajes::MostrarTexto(QStringLiteral("Parámetros guardados"));
  return true;
}

bool GrabarCuentaFE(Conexion &con, const QString &serie, const QString &usuario,
                    const QString &contrasena, bool version33, const QDate &hoy) {
  if (CatalogoMensajes::MostrarTexto(
          QStringLiteral("¿Todos los datos fiscales de la empresa son correctos?"),
          IconoMensaje::Pregunta, BotonesMensaje::SiNo) != RespuestaMensaje::Si)
    return false;
  if (serie.isEmpty() || usuario.isEmpty() || contrasena.isEmpty())
    return false;
  con.Ejecutar(
      QStringLiteral("UPDATE tblParametrosGenerales SET FE_USUARIO = %1;").arg(Q(usuario)));
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FE_CONTRASENA = %1;")
                   .arg(Q(Encriptar(contrasena))));
  con.Ejecutar(
      QStringLiteral("UPDATE tblParametrosGenerales SET FE_WEBSERVURL = %1;").arg(Q(serie)));
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET CFD_FACT = 1;"));
  if (version33)
    con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FE_VERSION = 33;"));
  else if (hoy < kVersion33)
    con.Ejecutar(
        QStringLiteral("UPDATE tblParametrosGenerales SET FE_VERSION=32 WHERE FE_VERSION<>33;"));
  CambiarSiToca(con, version33, hoy);
  return true;
}

} // namespace cfdi
