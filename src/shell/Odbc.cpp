#include "shell/Odbc.h"

#include "shell/ErrorFatal.h"

#include <QDate>
#include <QDateTime>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QTime>
#include <QtGlobal>

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
  SQLSMALLINT columnas = 0;
  SQLNumResultCols(h, &columnas);
  for (SQLUSMALLINT i = 1; i <= columnas; ++i) {
    SQLWCHAR nombre[256] = {};
    SQLSMALLINT largo = 0, tipo = 0, decimales = 0, nulo = 0;
    SQLULEN tamano = 0;
    SQLDescribeColW(h, i, nombre, 256, &largo, &tipo, &tamano, &decimales, &nulo);
    c->nombres_ << QString::fromUtf16(reinterpret_cast<const char16_t *>(nombre),
                                      qMin<qsizetype>(largo, 255));
    c->tipos_.push_back(tipo);
  }
  if (afectados) {
    SQLLEN filas = 0;
    *afectados =
        (columnas == 0 && SQL_SUCCEEDED(SQLRowCount(h, &filas))) ? static_cast<int>(filas) : 0;
  }
  return c;
}

bool Cursor::Siguiente() {
  const SQLRETURN r = SQLFetch(h_);
  if (r == SQL_NO_DATA)
    return false;
  if (!SQL_SUCCEEDED(r))
    throw ErrorFatal(
        QStringLiteral("Error al leer la consulta: %1").arg(Diagnostico(SQL_HANDLE_STMT, h_)),
        sql_);
  return true;
}

QVariant Cursor::Valor(int columna) {
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
