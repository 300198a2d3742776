#include "shell/Rutas.h"

#include <QDir>
#include <QFileInfo>
#include <array>

QString UnirRuta(const QString &carpeta, const QString &nombre) {
  if (carpeta.isEmpty())
    return nombre;
  if (carpeta.endsWith(QLatin1Char('\\')) || carpeta.endsWith(QLatin1Char('/')))
    return carpeta + nombre;
  return carpeta + QLatin1Char('\\') + nombre;
}

QString RutaNativa(const QString &ruta) {
  QString r = ruta;
  r.replace(QLatin1Char('\\'), QLatin1Char('/'));
#ifdef Q_OS_WIN
  return QDir::toNativeSeparators(r);
#else
  if (QFileInfo::exists(r))
    return r;
  const bool absoluta = r.startsWith(QLatin1Char('/'));
  const QStringList partes = r.split(QLatin1Char('/'), Qt::SkipEmptyParts);
  QString actual = absoluta ? QStringLiteral("/") : QString();
  bool existe = true;
  for (const QString &parte : partes) {
    QString siguiente = actual.isEmpty() || actual.endsWith(QLatin1Char('/'))
                            ? actual + parte
                            : actual + QLatin1Char('/') + parte;
    if (existe && !QFileInfo::exists(siguiente)) {
      QDir dir(actual.isEmpty() ? QStringLiteral(".") : actual);
      const QStringList entradas = dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
      bool hallada = false;
      for (const QString &e : entradas) {
        if (e.compare(parte, Qt::CaseInsensitive) == 0) {
          siguiente = actual.isEmpty() || actual.endsWith(QLatin1Char('/'))
                          ? actual + e
                          : actual + QLatin1Char('/') + e;
          hallada = true;
          break;
        }
      }
      existe = hallada;
    }
    actual = siguiente;
  }
  return actual;
#endif
}

namespace {
// Code points of bytes 0x80 to 0x9F; zero where the code page leaves a byte undefined.
constexpr std::array<char16_t, 32> kAltos = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
} // namespace

void AnexarWindows1252(QByteArray &bytes, QStringView texto) {
  const qsizetype inicio = bytes.size();
  bytes.resize(inicio + texto.size());
  EscribirWindows1252(bytes.data() + inicio, texto);
}

char *EscribirWindows1252(char *destino, QStringView texto) {
  for (QChar c : texto) {
    const char16_t u = c.unicode();
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF)) {
      *destino++ = static_cast<char>(u);
      continue;
    }
    // The five bytes the code page leaves undefined come back as they were read.
    char byte = (u < 0xA0 && kAltos[u - 0x80] == 0) ? static_cast<char>(u) : '?';
    for (std::size_t i = 0; byte == '?' && i < kAltos.size(); ++i) {
      if (kAltos[i] != 0 && kAltos[i] == u) {
        byte = static_cast<char>(0x80 + i);
        break;
      }
    }
    *destino++ = byte;
  }
  return destino;
}

QByteArray CodificarWindows1252(const QString &texto) {
  QByteArray salida;
  AnexarWindows1252(salida, texto);
  return salida;
}

QString DecodificarWindows1252(const QByteArray &bytes) {
  QString salida;
  salida.reserve(bytes.size());
  for (char b : bytes) {
    const auto u = static_cast<unsigned char>(b);
    if (u >= 0x80 && u < 0xA0 && kAltos[u - 0x80] != 0)
      salida.append(QChar(kAltos[u - 0x80]));
    else
      salida.append(QChar(static_cast<char16_t>(u)));
  }
  return salida;
}

QByteArray LineasWindows(const QStringList &lineas) {
  QByteArray salida;
  for (const QString &l : lineas) {
    salida += CodificarWindows1252(l);
    salida += "\r\n";
  }
  return salida;
}
