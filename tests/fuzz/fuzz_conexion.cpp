#include "Apoyo.h"
#include "shell/Encriptacion.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioConexion.h"

// Any text as a stored connection text: translated for Qt, unscrambled as the login
// does, and shown as a message would show it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *datos, size_t largo) {
  const QString texto = Texto(datos, largo);
  try {
    ServicioConexion::Traducir(texto, QStringLiteral("/nada"), QStringLiteral("FreeTDS"));
  } catch (const ErrorFatal &e) {
    // A text of no known form is refused with a message: the password never shows.
    EXIGIR(!e.Mensaje().contains(QStringLiteral("Password=secreto")));
  }
  DesencriptarConexion(texto);
  const QString oculto = OcultarClaves(texto + QStringLiteral(";Password=secreto"));
  EXIGIR(!oculto.contains(QStringLiteral("secreto")));
  // Scrambling gives back what it was given, and is never short.
  QString clave = texto.left(64);
  if (!clave.isEmpty() && clave.back().isHighSurrogate())
    clave.chop(1); // a password is whole characters
  const QString mezcla = Encriptar(clave);
  EXIGIR(mezcla.size() >= 11);
  EXIGIR(Desencriptar(mezcla) == clave);
  return 0;
}
