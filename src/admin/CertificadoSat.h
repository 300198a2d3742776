#pragma once

#include <QDate>
#include <QString>

// The validator of the tax data of electronic invoicing: the SAT's certificate (.cer) and
// private key (.key) of the company, and the key's password.
namespace sat {

// What the certificate says of itself.
struct DatosCertificado {
  QString titular; // the holder's name
  QString rfc;     // the holder's RFC
  QString serie;   // the certificate's number, as the SAT gives it
  QDate desde, vence;
};

struct Validacion {
  // True only when the key is a DER PKCS#8 encrypted private key that opens with the
  // password, the certificate is a DER X.509 certificate, and the key is the certificate's.
  bool valida = false;
  QString motivo;               // why not, in plain Spanish; empty when valid
  DatosCertificado certificado; // filled whenever the certificate could be read
  QString aviso;                // an expired certificate, or one that expires within 30 days
};

// Checks the pair and the password as of the day given.
Validacion ValidarDatosSat(const QString &clave, const QString &rutaCertificado,
                           const QString &rutaLlave, const QDate &hoy);

} // namespace sat
