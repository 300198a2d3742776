#include "shell/Encriptacion.h"

#include "shell/Sesion.h"

#include <QByteArray>

namespace {

// 64 symbols, none of which can break a statement or a connection text.
constexpr char kAlfabeto[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
constexpr char kClave[] = "Escribano-Contabilidad";
constexpr int kLargoMinimo = 11;

int Indice(QChar c) {
  for (int i = 0; i < 64; ++i) {
    if (QLatin1Char(kAlfabeto[i]) == c)
      return i;
  }
  return -1;
}

QString Garabato(const QString &texto) {
  QString r(QChar(0x01));
  for (qsizetype i = texto.size() - 1; i >= 0; --i)
    r += texto[i];
  return r;
}

} // namespace

// Layout: "N", the byte count in two symbols, a salt symbol, two symbols per byte
// (each byte mixed with the key and the salt), then filler up to 11 characters.
QString Encriptar(const QString &texto) {
  const QByteArray bytes = texto.toUtf8();
  const int n = static_cast<int>(bytes.size());
  int salt = 0;
  for (char b : bytes)
    salt = (salt + static_cast<unsigned char>(b)) % 64;
  QString r = QStringLiteral("N");
  r += QLatin1Char(kAlfabeto[(n / 64) % 64]);
  r += QLatin1Char(kAlfabeto[n % 64]);
  r += QLatin1Char(kAlfabeto[salt]);
  for (int i = 0; i < n; ++i) {
    const int k = static_cast<unsigned char>(kClave[(i + salt) % (sizeof(kClave) - 1)]);
    const int m = (static_cast<unsigned char>(bytes[i]) ^ k ^ ((salt * 7 + i * 13) & 0xFF)) & 0xFF;
    r += QLatin1Char(kAlfabeto[(m >> 4) + ((i * 5 + salt) % 48)]);
    r += QLatin1Char(kAlfabeto[(m & 0x0F) + ((i * 3 + salt) % 48)]);
  }
  for (int i = 0; r.size() < kLargoMinimo; ++i)
    r += QLatin1Char(kAlfabeto[(salt + i * 11) % 64]);
  return r;
}

QString Desencriptar(const QString &texto) {
  if (texto.size() < kLargoMinimo || texto[0] != QLatin1Char('N'))
    return Garabato(texto);
  const int a = Indice(texto[1]), b = Indice(texto[2]), salt = Indice(texto[3]);
  if (a < 0 || b < 0 || salt < 0)
    return Garabato(texto);
  const int n = a * 64 + b;
  if (texto.size() < 4 + 2 * n)
    return Garabato(texto);
  QByteArray bytes;
  for (int i = 0; i < n; ++i) {
    const int hi = Indice(texto[4 + 2 * i]) - (i * 5 + salt) % 48;
    const int lo = Indice(texto[5 + 2 * i]) - (i * 3 + salt) % 48;
    if (hi < 0 || hi > 15 || lo < 0 || lo > 15)
      return Garabato(texto);
    const int k = static_cast<unsigned char>(kClave[(i + salt) % (sizeof(kClave) - 1)]);
    bytes += static_cast<char>(((hi << 4) | lo) ^ k ^ ((salt * 7 + i * 13) & 0xFF));
  }
  return QString::fromUtf8(bytes);
}

QString DesencriptarConexion(const QString &conexion) {
  QString marca = QStringLiteral("Password=");
  qsizetype pos = conexion.indexOf(marca, 0, Qt::CaseSensitive);
  if (pos < 0) {
    marca = QStringLiteral("Pwd=");
    pos = conexion.indexOf(marca, 0, Qt::CaseSensitive);
  }
  if (pos < 0)
    return conexion;
  const qsizetype inicio = pos + marca.size();
  const qsizetype fin = conexion.indexOf(QLatin1Char(';'), inicio);
  QString valor = fin < 0 ? conexion.mid(inicio) : conexion.mid(inicio, fin - inicio);
  if (!valor.isEmpty())
    valor = Desencriptar(valor);
  // Without a ";" behind the value the rest is taken from the equals sign on.
  const QString resto = fin < 0 ? conexion.mid(inicio - 1) : conexion.mid(fin);
  return conexion.left(inicio) + valor + resto;
}

QString CadenaConexionUsuario(const QString &conexion) {
  if (conexion.isEmpty() || conexion.startsWith(QLatin1Char('*')))
    return gConexion;
  return conexion;
}
