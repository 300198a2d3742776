#include "Apoyo.h"
#include "shell/Rutas.h"

// Files of the package are Windows-1252: every byte read comes back as it was, and any
// text can be written.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *datos, size_t largo) {
  const QByteArray bytes = Bytes(datos, largo);
  EXIGIR(CodificarWindows1252(DecodificarWindows1252(bytes)) == bytes);
  const QByteArray escrito = CodificarWindows1252(Texto(datos, largo));
  EXIGIR(escrito.size() <= Texto(datos, largo).size());
  return 0;
}
