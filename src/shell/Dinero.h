#pragma once

#include <QString>
#include <QStringView>
#include <array>
#include <compare>
#include <cstdint>

// Money: a signed count of ten-thousandths, never a double.
class Dinero {
public:
  constexpr Dinero() = default;
  static constexpr Dinero DeDiezmilesimos(std::int64_t v) {
    Dinero d;
    d.v_ = v;
    return d;
  }
  static constexpr Dinero DeEntero(std::int64_t pesos) { return DeDiezmilesimos(pesos * 10000); }

  // Exact decimal text ("-1250.5", "0.125", "3e2" is refused); digits beyond the
  // fourth decimal round half to even. Returns false in *ok for a text that is no number.
  static Dinero DeTexto(QStringView texto, bool *ok = nullptr);
  // A double as the database hands it: through its shortest decimal text.
  static Dinero DeDouble(double valor);

  constexpr std::int64_t Diezmilesimos() const { return v_; }
  constexpr bool EsCero() const { return v_ == 0; }

  // The plain conversion to text: as many decimals as the value has, point as the
  // separator, no thousands mark ("1250.5", "-0.125", "0").
  QString Texto() const;
  // "#,##0.00" and "###0.00": two decimals, half away from zero.
  QString Formato(QStringView mascara) const;
  // The same text, written into the caller's buffer: a loop that formats an amount on
  // every line needn't allocate one.
  using Cifras = std::array<char16_t, 40>;
  QStringView Formato(QStringView mascara, Cifras &buffer) const;

  constexpr Dinero operator-() const { return DeDiezmilesimos(-v_); }
  constexpr Dinero operator+(Dinero o) const { return DeDiezmilesimos(v_ + o.v_); }
  constexpr Dinero operator-(Dinero o) const { return DeDiezmilesimos(v_ - o.v_); }
  constexpr Dinero &operator+=(Dinero o) {
    v_ += o.v_;
    return *this;
  }
  constexpr Dinero &operator-=(Dinero o) {
    v_ -= o.v_;
    return *this;
  }
  // Product of two amounts, back to four decimals half to even.
  Dinero operator*(Dinero o) const;
  constexpr auto operator<=>(const Dinero &) const = default;

private:
  std::int64_t v_ = 0;
};

// Rounds to two decimals, ties to the even digit: 0.125 gives 0.12, 0.135 gives 0.14.
Dinero Round2(Dinero d);
