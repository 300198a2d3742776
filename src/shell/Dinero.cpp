#include "shell/Dinero.h"

#include "shell/ErrorFatal.h"

#include <QLocale>
#include <cstdlib>

#include <limits>

namespace {

// Divides by a power of ten, rounding half to even.
std::int64_t DividirParEven(std::int64_t v, std::int64_t divisor) {
  std::int64_t q = v / divisor;
  std::int64_t r = v % divisor;
  std::int64_t doble = 2 * std::llabs(r);
  if (doble > divisor || (doble == divisor && (q % 2 != 0)))
    q += (v < 0) ? -1 : 1;
  return q;
}

// Divides by a power of ten, rounding half away from zero.
std::int64_t DividirLejosDeCero(std::int64_t v, std::int64_t divisor) {
  std::int64_t q = v / divisor;
  std::int64_t r = v % divisor;
  if (2 * std::llabs(r) >= divisor)
    q += (v < 0) ? -1 : 1;
  return q;
}

} // namespace

namespace {
// The most whole pesos that ten-thousandths in 64 bits can hold.
constexpr std::int64_t kMaxPesos = std::numeric_limits<std::int64_t>::max() / 10000;
} // namespace

Dinero Dinero::DeTexto(QStringView texto, bool *ok) {
  QStringView t = texto.trimmed();
  bool negativo = false;
  if (!t.isEmpty() && (t.front() == u'-' || t.front() == u'+')) {
    negativo = t.front() == u'-';
    t = t.mid(1);
  }
  std::int64_t enteros = 0;
  std::int64_t fraccion = 0; // in units of 10^-4
  int decimales = 0;
  bool digitos = false;
  bool punto = false;
  int masAlla = -1;         // first digit beyond the fourth decimal
  bool restoNoCero = false; // any non-zero digit after that one
  for (QChar c : t) {
    if (c == u'.') {
      if (punto) {
        if (ok)
          *ok = false;
        return {};
      }
      punto = true;
      continue;
    }
    if (!c.isDigit()) {
      if (ok)
        *ok = false;
      return {};
    }
    digitos = true;
    int d = c.digitValue();
    if (!punto) {
      enteros = enteros * 10 + d;
      if (enteros > kMaxPesos) { // beyond what ten-thousandths in 64 bits can hold
        if (ok)
          *ok = false;
        return {};
      }
    } else if (decimales < 4) {
      fraccion = fraccion * 10 + d;
      ++decimales;
    } else if (masAlla < 0) {
      masAlla = d;
    } else if (d != 0) {
      restoNoCero = true;
    }
  }
  if (!digitos) {
    if (ok)
      *ok = false;
    return {};
  }
  for (int i = decimales; i < 4; ++i)
    fraccion *= 10;
  std::int64_t v = enteros * 10000;
  const bool sube = masAlla > 5 || (masAlla == 5 && (restoNoCero || (fraccion % 2 != 0)));
  if (v > std::numeric_limits<std::int64_t>::max() - fraccion - (sube ? 1 : 0)) {
    if (ok)
      *ok = false;
    return {};
  }
  v += fraccion + (sube ? 1 : 0);
  if (ok)
    *ok = true;
  return DeDiezmilesimos(negativo ? -v : v);
}

Dinero Dinero::DeDouble(double valor) {
  bool ok = false;
  Dinero d = DeTexto(QString::number(valor, 'f', QLocale::FloatingPointShortest), &ok);
  if (!ok)
    throw ErrorFatal(QStringLiteral("El valor %1 no es una cantidad válida.").arg(valor));
  return d;
}

QString Dinero::Texto() const {
  std::int64_t a = std::llabs(v_);
  QString s = QString::number(a / 10000);
  std::int64_t f = a % 10000;
  if (f != 0) {
    QString dec = QStringLiteral("%1").arg(f, 4, 10, QLatin1Char('0'));
    while (dec.endsWith(QLatin1Char('0')))
      dec.chop(1);
    s += QLatin1Char('.') + dec;
  }
  return v_ < 0 ? QLatin1Char('-') + s : s;
}

QString Dinero::Formato(QStringView mascara) const {
  Cifras buffer;
  return Formato(mascara, buffer).toString();
}

QStringView Dinero::Formato(QStringView mascara, Cifras &buffer) const {
  const std::int64_t centavos = DividirLejosDeCero(v_, 100);
  std::uint64_t a = static_cast<std::uint64_t>(centavos < 0 ? -centavos : centavos);
  const bool miles = mascara.contains(u',');
  // Digits from the right: two decimals, the point, then the whole part in groups.
  char16_t *const fin = buffer.data() + buffer.size();
  char16_t *p = fin;
  *--p = static_cast<char16_t>(u'0' + a % 10);
  a /= 10;
  *--p = static_cast<char16_t>(u'0' + a % 10);
  a /= 10;
  *--p = u'.';
  int digitos = 0;
  do {
    if (miles && digitos > 0 && digitos % 3 == 0)
      *--p = u',';
    *--p = static_cast<char16_t>(u'0' + a % 10);
    a /= 10;
    ++digitos;
  } while (a != 0);
  if (centavos < 0)
    *--p = u'-';
  return QStringView(p, fin - p);
}

Dinero Dinero::operator*(Dinero o) const {
  // The product of two amounts needs 128 bits before it is brought back to four decimals:
  // it is taken in four 32-bit pieces and divided by 10000 piece by piece, with plain
  // 64-bit arithmetic that every compiler has.
  const bool negativo = (v_ < 0) != (o.v_ < 0);
  const std::uint64_t a =
      v_ < 0 ? 0 - static_cast<std::uint64_t>(v_) : static_cast<std::uint64_t>(v_);
  const std::uint64_t b =
      o.v_ < 0 ? 0 - static_cast<std::uint64_t>(o.v_) : static_cast<std::uint64_t>(o.v_);
  const std::uint64_t a0 = a & 0xFFFFFFFFu, a1 = a >> 32, b0 = b & 0xFFFFFFFFu, b1 = b >> 32;
  const std::uint64_t p00 = a0 * b0, p01 = a0 * b1, p10 = a1 * b0, p11 = a1 * b1;
  const std::uint64_t medio = (p00 >> 32) + (p01 & 0xFFFFFFFFu) + (p10 & 0xFFFFFFFFu);
  const std::uint64_t bajo = (medio << 32) | (p00 & 0xFFFFFFFFu);
  const std::uint64_t alto = p11 + (p01 >> 32) + (p10 >> 32) + (medio >> 32);
  const std::uint32_t piezas[4] = {
      static_cast<std::uint32_t>(alto >> 32), static_cast<std::uint32_t>(alto),
      static_cast<std::uint32_t>(bajo >> 32), static_cast<std::uint32_t>(bajo)};
  std::uint64_t resto = 0;
  std::uint64_t cociente = 0; // the low 64 bits of the quotient: all that an amount holds
  for (std::uint32_t pieza : piezas) {
    const std::uint64_t actual = (resto << 32) | pieza;
    cociente = (cociente << 32) | (actual / 10000);
    resto = actual % 10000;
  }
  if (2 * resto > 10000 || (2 * resto == 10000 && (cociente % 2 != 0)))
    ++cociente;
  return DeDiezmilesimos(static_cast<std::int64_t>(negativo ? 0 - cociente : cociente));
}

Dinero Round2(Dinero d) {
  return Dinero::DeDiezmilesimos(DividirParEven(d.Diezmilesimos(), 100) * 100);
}
