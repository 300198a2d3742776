#include "shell/Odbc.h"

#include "shell/ErrorFatal.h"

#include <QDate>
#include <QDateTime>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QTime>
#include <QtGlobal>

#include <algorithm>

#ifdef Q_OS_WIN
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

namespace odbc {
namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "ODBC wide text is UTF-16 here");

// Every diagnostic record of a handle, as the driver wrote them.
QString Diagnostico(SQLSMALLINT tipo, SQLHANDLE h) {
  QStringList partes;
  for (SQLSMALLINT i = 1;; ++i) {
    SQLWCHAR estado[6] = {};
    SQLINTEGER nativo = 0;
    SQLWCHAR texto[1024] = {};
    SQLSMALLINT largo = 0;
    const SQLRETURN r = SQLGetDiagRecW(tipo, h, i, estado, &nativo, texto, 1024, &largo);
    if (!SQL_SUCCEEDED(r))
      break;
    partes << QString::fromUtf16(reinterpret_cast<const char16_t *>(texto),
                                 qMin<qsizetype>(largo, 1023));
  }
  return partes.isEmpty() ? QStringLiteral("error desconocido del controlador ODBC")
                          : partes.join(QLatin1Char(' '));
}

SQLHDBC Manejador(const QSqlDatabase &base) {
  const QVariant v = base.driver()->handle();
  return v.isValid() ? *static_cast<const SQLHDBC *>(v.constData()) : nullptr;
}

} // namespace

bool EsOdbc(const QSqlDatabase &base) { return base.driverName() == QStringLiteral("QODBC"); }

Cursor::~Cursor() {
  SQLFreeStmt(h_, SQL_CLOSE);
  SQLFreeHandle(SQL_HANDLE_STMT, h_);
}

std::unique_ptr<Cursor> Cursor::Ejecutar(const QSqlDatabase &base, const QString &sql,
                                         QString *error, int *afectados) {
  if (afectados)
    *afectados = 0;
  SQLHSTMT h = nullptr;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, Manejador(base), &h))) {
    if (error)
      *error = QStringLiteral("No fue posible preparar la sentencia en la conexión ODBC.");
    return nullptr;
  }
  std::unique_ptr<Cursor> c(new Cursor(h));
  c->sql_ = sql;
  // The text goes as a terminated string (SQL_NTS): that is the one form the MariaDB
  // driver 3.1 measures right; given a length, it reads past the end of the text.
  const SQLRETURN r = SQLExecDirectW(
      h, const_cast<SQLWCHAR *>(reinterpret_cast<const SQLWCHAR *>(sql.utf16())), SQL_NTS);
  if (!SQL_SUCCEEDED(r) && r != SQL_NO_DATA) {
    if (error)
      *error = Diagnostico(SQL_HANDLE_STMT, h);
    return nullptr;
  }
  const SQLSMALLINT columnas = c->Describir();
  if (afectados) {
    SQLLEN filas = 0;
    *afectados =
        (columnas == 0 && SQL_SUCCEEDED(SQLRowCount(h, &filas))) ? static_cast<int>(filas) : 0;
  }
  return c;
}

SQLSMALLINT Cursor::Describir() {
  SQLSMALLINT columnas = 0;
  SQLNumResultCols(h_, &columnas);
  std::vector<unsigned long long> tamanos;
  for (SQLUSMALLINT i = 1; i <= columnas; ++i) {
    SQLWCHAR nombre[256] = {};
    SQLSMALLINT largo = 0, tipo = 0, decimales = 0, nulo = 0;
    SQLULEN tamano = 0;
    SQLDescribeColW(h_, i, nombre, 256, &largo, &tipo, &tamano, &decimales, &nulo);
    nombres_ << QString::fromUtf16(reinterpret_cast<const char16_t *>(nombre),
                                   qMin<qsizetype>(largo, 255));
    tipos_.push_back(tipo);
    tamanos.push_back(tamano);
  }
  if (columnas > 0)
    enBloque_ = Enlazar(tamanos);
  return columnas;
}

bool Cursor::SiguienteResultado(QString *error) {
  // The buffers of the result before go with it.
  SQLFreeStmt(h_, SQL_UNBIND);
  SQLSetStmtAttr(h_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(1), 0);
  nombres_.clear();
  tipos_.clear();
  textos_.clear();
  largos_.clear();
  anchos_.clear();
  enAscii_.clear();
  obtenidas_ = 0;
  fila_ = 0;
  enBloque_ = false;
  const SQLRETURN r = SQLMoreResults(h_);
  if (r == SQL_NO_DATA)
    return false;
  if (!SQL_SUCCEEDED(r)) {
    if (error)
      *error = Diagnostico(SQL_HANDLE_STMT, h_);
    return false;
  }
  Describir();
  return true;
}

namespace {

// Columns whose text is digits, signs, points and separators only: they come as bytes,
// which the driver copies as they are, where a text comes in UTF-16, which it converts.
bool EnAscii(SQLSMALLINT tipo) {
  switch (tipo) {
  case SQL_TINYINT:
  case SQL_SMALLINT:
  case SQL_INTEGER:
  case SQL_BIGINT:
  case SQL_BIT:
  case SQL_REAL:
  case SQL_FLOAT:
  case SQL_DOUBLE:
  case SQL_DECIMAL:
  case SQL_NUMERIC:
  case SQL_TYPE_DATE:
  case SQL_TYPE_TIME:
  case SQL_TYPE_TIMESTAMP:
    return true;
  default:
    return false;
  }
}

} // namespace

bool Cursor::Enlazar(const std::vector<unsigned long long> &tamanos) {
  // A column's text takes at most twice its size in characters (UTF-16 units, or bytes for
  // a number or a date), with room for a sign, a point and an exponent that a size in
  // digits leaves out, and its end.
  constexpr unsigned long long kTamanoMaximo = 2000;
  constexpr std::size_t kBytesBloque = 256 * 1024;
  std::size_t bytesFila = 0;
  for (std::size_t i = 0; i < tamanos.size(); ++i) {
    const unsigned long long tamano = tamanos[i];
    if (tamano == 0 || tamano > kTamanoMaximo)
      return false;
    const std::size_t unidades =
        std::max<std::size_t>(static_cast<std::size_t>(tamano) * 2 + 8, 40);
    enAscii_.push_back(EnAscii(tipos_[i]));
    anchos_.push_back(enAscii_.back() ? unidades : unidades * sizeof(char16_t));
    bytesFila += anchos_.back() + sizeof(SQLLEN);
  }
  const std::size_t filas = std::clamp<std::size_t>(kBytesBloque / bytesFila, 1, 256);
  if (!SQL_SUCCEEDED(
          SQLSetStmtAttr(h_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(filas), 0)) ||
      !SQL_SUCCEEDED(SQLSetStmtAttr(h_, SQL_ATTR_ROWS_FETCHED_PTR, &obtenidas_, 0))) {
    SQLSetStmtAttr(h_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(1), 0);
    return false;
  }
  static_assert(sizeof(SQLLEN) == sizeof(long long) && sizeof(SQLULEN) == sizeof(obtenidas_));
  textos_.resize(tamanos.size());
  largos_.resize(tamanos.size());
  for (std::size_t i = 0; i < tamanos.size(); ++i) {
    textos_[i].resize(anchos_[i] * filas);
    largos_[i].resize(filas);
    if (!SQL_SUCCEEDED(SQLBindCol(h_, static_cast<SQLUSMALLINT>(i + 1),
                                  enAscii_[i] ? SQL_C_CHAR : SQL_C_WCHAR, textos_[i].data(),
                                  static_cast<SQLLEN>(anchos_[i]),
                                  reinterpret_cast<SQLLEN *>(largos_[i].data()))))
      throw ErrorFatal(
          QStringLiteral("Error al preparar la lectura del campo %1: %2")
              .arg(nombres_.value(static_cast<qsizetype>(i)), Diagnostico(SQL_HANDLE_STMT, h_)),
          sql_);
  }
  fila_ = 0;
  obtenidas_ = 0;
  return true;
}

bool Cursor::Siguiente() {
  if (enBloque_ && fila_ + 1 < obtenidas_) {
    ++fila_;
    return true;
  }
  const SQLRETURN r = SQLFetch(h_);
  if (r == SQL_NO_DATA)
    return false;
  if (!SQL_SUCCEEDED(r))
    throw ErrorFatal(
        QStringLiteral("Error al leer la consulta: %1").arg(Diagnostico(SQL_HANDLE_STMT, h_)),
        sql_);
  if (!enBloque_)
    return true;
  fila_ = 0;
  return obtenidas_ > 0;
}

QVariant Cursor::Valor(int columna) {
  if (enBloque_) {
    const std::size_t c = static_cast<std::size_t>(columna);
    const SQLLEN largo = largos_[c][fila_];
    if (largo == SQL_NULL_DATA)
      return QVariant();
    // A text that didn't fit its buffer would come cut: that is no value to go on with.
    if (largo == SQL_NO_TOTAL || static_cast<std::size_t>(largo) >= anchos_[c])
      throw ErrorFatal(
          QStringLiteral("El valor del campo %1 no cupo al leerlo.").arg(nombres_.value(columna)),
          sql_);
    const char *datos = textos_[c].data() + fila_ * anchos_[c];
    if (enAscii_[c])
      return ConTipo(columna, QString::fromLatin1(datos, static_cast<qsizetype>(largo)));
    return ConTipo(columna, QString::fromUtf16(reinterpret_cast<const char16_t *>(datos),
                                               static_cast<qsizetype>(largo / sizeof(char16_t))));
  }
  // Read as text in pieces of any length, then given the type of the column.
  QString texto;
  SQLWCHAR trozo[512];
  for (;;) {
    SQLLEN indicador = 0;
    const SQLRETURN r = SQLGetData(h_, static_cast<SQLUSMALLINT>(columna + 1), SQL_C_WCHAR, trozo,
                                   sizeof trozo, &indicador);
    if (r == SQL_NO_DATA)
      break;
    if (!SQL_SUCCEEDED(r))
      throw ErrorFatal(QStringLiteral("Error al leer el campo %1: %2")
                           .arg(nombres_.value(columna), Diagnostico(SQL_HANDLE_STMT, h_)),
                       sql_);
    if (indicador == SQL_NULL_DATA)
      return QVariant();
    const qsizetype cabe = static_cast<qsizetype>(sizeof trozo / sizeof(SQLWCHAR)) - 1;
    qsizetype llegaron = 0;
    if (indicador == SQL_NO_TOTAL) {
      // A driver that can't tell the length leaves the piece terminated.
      while (llegaron < cabe && trozo[llegaron] != 0)
        ++llegaron;
    } else {
      llegaron = qMin<qsizetype>(cabe, indicador / static_cast<SQLLEN>(sizeof(SQLWCHAR)));
    }
    texto += QString::fromUtf16(reinterpret_cast<const char16_t *>(trozo), llegaron);
    if (r == SQL_SUCCESS)
      break;
  }
  return ConTipo(columna, texto);
}

QVariant Cursor::ConTipo(int columna, const QString &texto) const {
  switch (tipos_[static_cast<std::size_t>(columna)]) {
  case SQL_TINYINT:
  case SQL_SMALLINT:
  case SQL_INTEGER:
  case SQL_BIGINT:
  case SQL_BIT:
    return texto.toLongLong();
  case SQL_REAL:
  case SQL_FLOAT:
  case SQL_DOUBLE:
    return texto.toDouble();
  case SQL_TYPE_DATE:
    return QDate::fromString(texto.left(10), QStringLiteral("yyyy-MM-dd"));
  case SQL_TYPE_TIME:
    return QTime::fromString(texto.left(8), QStringLiteral("HH:mm:ss"));
  case SQL_TYPE_TIMESTAMP:
    return QDateTime::fromString(texto.left(19), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
  default:
    return texto;
  }
}

} // namespace odbc
