#include "cli/Progreso.h"

namespace cli {

namespace {
constexpr qint64 kIntervaloMs = 100;
constexpr int kAnchoLinea = 79;
const char *const kBorrarLinea = "\r\x1b[K";
} // namespace

LineaAvance::LineaAvance(QTextStream &err, bool activa) : err_(err), activa_(activa) {
  reloj_.start();
}

LineaAvance::~LineaAvance() { Borrar(); }

void LineaAvance::Mostrar(const QString &texto) {
  if (!activa_)
    return;
  const qint64 ahora = reloj_.elapsed();
  if (ahora - ultima_ < kIntervaloMs)
    return;
  ultima_ = ahora;
  const qint64 segundos = ahora / 1000;
  const QString tiempo =
      QStringLiteral(" · %1:%2").arg(segundos / 60).arg(segundos % 60, 2, 10, QLatin1Char('0'));
  err_ << kBorrarLinea << texto.left(kAnchoLinea - tiempo.size()) << tiempo;
  err_.flush();
  dibujada_ = true;
}

void LineaAvance::Borrar() {
  if (!dibujada_)
    return;
  err_ << kBorrarLinea;
  err_.flush();
  dibujada_ = false;
}

} // namespace cli
