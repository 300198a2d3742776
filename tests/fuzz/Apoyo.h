#pragma once

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// The fuzzers' shared pieces: the input as bytes and as text, and a check that stops the
// run with the input kept when a property that must hold does not.
inline QByteArray Bytes(const uint8_t *datos, size_t largo) {
  return QByteArray(reinterpret_cast<const char *>(datos), static_cast<qsizetype>(largo));
}
// The input read as UTF-8, as a pasted text or a file would arrive.
inline QString Texto(const uint8_t *datos, size_t largo) {
  return QString::fromUtf8(reinterpret_cast<const char *>(datos), static_cast<qsizetype>(largo));
}
#define EXIGIR(condicion)                                                                          \
  do {                                                                                             \
    if (!(condicion)) {                                                                            \
      std::fprintf(stderr, "No se cumple: %s (%s:%d)\n", #condicion, __FILE__, __LINE__);          \
      std::abort();                                                                                \
    }                                                                                              \
  } while (0)
