#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTextStream>

namespace cli {

// One line of progress on standard error, with the time elapsed at its end: drawn at
// most ten times a second, and erased when the run ends. Inactive, it writes nothing.
class LineaAvance {
public:
  LineaAvance(QTextStream &err, bool activa);
  ~LineaAvance();
  LineaAvance(const LineaAvance &) = delete;
  LineaAvance &operator=(const LineaAvance &) = delete;

  void Mostrar(const QString &texto);
  void Borrar();

private:
  QTextStream &err_;
  bool activa_;
  bool dibujada_ = false;
  QElapsedTimer reloj_;
  qint64 ultima_ = -1000;
};

} // namespace cli
