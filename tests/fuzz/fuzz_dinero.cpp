#include "Apoyo.h"
#include "shell/Dinero.h"

// Any text as an amount: what is read is written back to the same amount, rounding to
// cents is idempotent, and the bookkeeper's format never fails.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *datos, size_t largo) {
  const QString texto = Texto(datos, largo);
  bool ok = false;
  const Dinero d = Dinero::DeTexto(texto, &ok);
  if (!ok)
    return 0;
  bool otra = false;
  EXIGIR(Dinero::DeTexto(d.Texto(), &otra) == d);
  EXIGIR(otra);
  const Dinero r = Round2(d);
  EXIGIR(Round2(r) == r);
  d.Formato(u"#,##0.00");
  r.Formato(u"#,##0.00");
  return 0;
}
