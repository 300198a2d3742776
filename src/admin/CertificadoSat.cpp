#include "admin/CertificadoSat.h"

#include <QFile>
#include <algorithm>
#include <memory>
#include <openssl/asn1.h>
#include <openssl/bn.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/objects.h>
#include <openssl/pkcs12.h>
#include <openssl/x509.h>

namespace sat {

namespace {

template <typename T, void (*Liberar)(T *)> struct Libera {
  void operator()(T *p) const { Liberar(p); }
};
using X509Ptr = std::unique_ptr<X509, Libera<X509, X509_free>>;
using FirmaPtr = std::unique_ptr<X509_SIG, Libera<X509_SIG, X509_SIG_free>>;
using InfoPtr =
    std::unique_ptr<PKCS8_PRIV_KEY_INFO, Libera<PKCS8_PRIV_KEY_INFO, PKCS8_PRIV_KEY_INFO_free>>;
using LlavePtr = std::unique_ptr<EVP_PKEY, Libera<EVP_PKEY, EVP_PKEY_free>>;
using BignumPtr = std::unique_ptr<BIGNUM, Libera<BIGNUM, BN_free>>;

// The bytes of a file; empty, with the reason, when it can't be read or holds nothing.
// llave tells the key from the certificate in the reason.
QByteArray Leer(const QString &ruta, bool llave, QString &motivo) {
  QFile archivo(ruta);
  if (ruta.isEmpty() || !archivo.open(QIODevice::ReadOnly)) {
    motivo = (llave ? QStringLiteral("No se pudo leer la llave privada %1.")
                    : QStringLiteral("No se pudo leer el certificado %1."))
                 .arg(ruta);
    return {};
  }
  const QByteArray bytes = archivo.readAll();
  if (bytes.isEmpty())
    motivo = (llave ? QStringLiteral("La llave privada %1 está vacía.")
                    : QStringLiteral("El certificado %1 está vacío."))
                 .arg(ruta);
  return bytes;
}

bool EsPem(const QByteArray &bytes) { return bytes.trimmed().startsWith("-----BEGIN"); }

QString Entrada(X509_NAME *nombre, int nid) {
  const int i = X509_NAME_get_index_by_NID(nombre, nid, -1);
  if (i < 0)
    return {};
  unsigned char *utf8 = nullptr;
  const int largo =
      ASN1_STRING_to_UTF8(&utf8, X509_NAME_ENTRY_get_data(X509_NAME_get_entry(nombre, i)));
  if (largo < 0)
    return {};
  const QString texto = QString::fromUtf8(reinterpret_cast<const char *>(utf8), largo);
  OPENSSL_free(utf8);
  return texto.trimmed();
}

QDate Fecha(const ASN1_TIME *tiempo) {
  struct tm t {};
  if (!tiempo || ASN1_TIME_to_tm(tiempo, &t) != 1)
    return {};
  return QDate(t.tm_year + 1900, t.tm_mon + 1, t.tm_mday);
}

// The SAT numbers its certificates with twenty digits written as ASCII in the serial; any
// other serial is shown in hexadecimal.
QString Serie(const X509 *certificado) {
  BignumPtr numero(ASN1_INTEGER_to_BN(X509_get0_serialNumber(certificado), nullptr));
  if (!numero)
    return {};
  char *hex = BN_bn2hex(numero.get());
  const QByteArray texto(hex);
  OPENSSL_free(hex);
  const QByteArray ascii = QByteArray::fromHex(texto);
  const bool digitos = !ascii.isEmpty() && std::all_of(ascii.begin(), ascii.end(),
                                                       [](char c) { return c >= '0' && c <= '9'; });
  return digitos ? QString::fromLatin1(ascii) : QString::fromLatin1(texto);
}

DatosCertificado Datos(X509 *certificado) {
  DatosCertificado d;
  X509_NAME *sujeto = X509_get_subject_name(certificado);
  d.titular = Entrada(sujeto, NID_name);
  if (d.titular.isEmpty())
    d.titular = Entrada(sujeto, NID_commonName);
  // The SAT writes "RFC / CURP" in the unique identifier of the holder.
  d.rfc = Entrada(sujeto, NID_x500UniqueIdentifier).section(QLatin1Char('/'), 0, 0).trimmed();
  d.serie = Serie(certificado);
  d.desde = Fecha(X509_get0_notBefore(certificado));
  d.vence = Fecha(X509_get0_notAfter(certificado));
  return d;
}

} // namespace

Validacion ValidarDatosSat(const QString &clave, const QString &rutaCertificado,
                           const QString &rutaLlave, const QDate &hoy) {
  Validacion v;
  // Whatever OpenSSL noted of a failure is no one else's business.
  struct Limpia {
    ~Limpia() { ERR_clear_error(); }
  } limpia;
  const QByteArray cer = Leer(rutaCertificado, false, v.motivo);
  if (cer.isEmpty())
    return v;
  if (EsPem(cer)) {
    v.motivo = QStringLiteral("El certificado está en formato PEM; el del SAT (.cer) está en DER.");
    return v;
  }
  const auto *p = reinterpret_cast<const unsigned char *>(cer.constData());
  X509Ptr certificado(d2i_X509(nullptr, &p, cer.size()));
  if (!certificado) {
    v.motivo = QStringLiteral("El archivo %1 no es un certificado X.509 en formato DER.")
                   .arg(rutaCertificado);
    return v;
  }
  v.certificado = Datos(certificado.get());
  if (v.certificado.vence.isValid()) {
    const qint64 dias = hoy.daysTo(v.certificado.vence);
    const QString fecha = v.certificado.vence.toString(QStringLiteral("dd/MM/yyyy"));
    if (dias < 0)
      v.aviso = QStringLiteral("El certificado venció el %1.").arg(fecha);
    else if (dias <= 30)
      v.aviso =
          QStringLiteral("El certificado vence el %1, dentro de %2 días.").arg(fecha).arg(dias);
  }

  const QByteArray key = Leer(rutaLlave, true, v.motivo);
  if (key.isEmpty())
    return v;
  if (EsPem(key)) {
    v.motivo =
        QStringLiteral("La llave privada está en formato PEM; la del SAT (.key) está en DER.");
    return v;
  }
  p = reinterpret_cast<const unsigned char *>(key.constData());
  FirmaPtr cifrada(d2i_X509_SIG(nullptr, &p, key.size()));
  if (!cifrada) {
    v.motivo = QStringLiteral("El archivo %1 no es una llave privada cifrada (PKCS#8 en DER).")
                   .arg(rutaLlave);
    return v;
  }
  const QByteArray contrasena = clave.toUtf8();
  InfoPtr info(PKCS8_decrypt(cifrada.get(), contrasena.constData(), contrasena.size()));
  if (!info) {
    v.motivo = QStringLiteral("La contraseña no abre la llave privada.");
    return v;
  }
  LlavePtr llave(EVP_PKCS82PKEY(info.get()));
  if (!llave) {
    v.motivo = QStringLiteral("La llave privada está dañada.");
    return v;
  }
  if (X509_check_private_key(certificado.get(), llave.get()) != 1) {
    v.motivo = QStringLiteral("La llave privada no corresponde al certificado.");
    return v;
  }
  v.valida = true;
  return v;
}

} // namespace sat
