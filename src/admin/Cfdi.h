#pragma once

#include "admin/CertificadoSat.h"
#include "admin/Parametros.h"

#include <QDate>
#include <QString>
#include <QStringList>

class Conexion;

// What the family's invoicing needs to stamp an electronic invoice: the branch's time
// zone, the SAT's certificate and key with the key's password, the folder of the XML
// files, the certificate's expiry, the CFDI's version and the stamping account. All of it
// lives in the row of tblParametrosGenerales; this program never stamps.
namespace cfdi {

// The eight time zones, in the order of the list; FE_ZONAHORA stores the text itself.
const QStringList &ZonasHorarias();
// The hours of offset of a zone's text (characters 5 to 7), as the map moves to them.
int HorasDeZona(const QString &zona);

// The tax data as the tab holds them.
struct DatosSat {
  QString zona;
  QString clave;       // the key's password, in plain
  QString llave;       // path of the .key
  QString certificado; // path of the .cer
};
// Reads key, password (unscrambled), certificate and zone.
DatosSat CargarCertificados(Conexion &con);

// The checks before validating (exigir false) and before saving (exigir true): zone,
// password, key, certificate, and with exigir a change not validated yet. The message of
// the first that fails, or the empty text.
QString ValidarCamposSat(const DatosSat &datos, bool exigir, bool cambioSinValidar);

// "Validar": the checks, then the validator. Valid data are saved at once, key data and
// zone, and the box says so; invalid ones are not, and the box tells why. True when saved.
bool ValidarInfoSat(Conexion &con, const DatosSat &datos, const QDate &hoy,
                    sat::Validacion *validacion = nullptr);

// "Grabar Zona horaria de CFDI": the row assured, the zone saved; no validation needed.
void GrabarZona(Conexion &con, const parametros::Empresa &empresa, const QString &zona);

// "Grabar configuración de CFDI": the tax data checked first (a change not validated
// stops it), then the folder, the expiry and the version. From 2018 the version is 33
// whatever the box says, and a stored 33 is never lowered. True when saved.
bool GrabarConfiguracionCfdi(Conexion &con, const parametros::Empresa &empresa,
                             const DatosSat &datos, bool cambioSinValidar, const QString &rutaXml,
                             const QDate &vence, bool version33, const QDate &hoy);

// "Activa Cuenta": after the question, the stamping account saved and invoicing switched
// on, when the series, user and password are all given. True when saved.
bool GrabarCuentaFE(Conexion &con, const QString &serie, const QString &usuario,
                    const QString &contrasena, bool version33, const QDate &hoy);

} // namespace cfdi
