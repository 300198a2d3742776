#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

// Engines of a company database (MOTORDEDATOS).
namespace motor {
constexpr int kNoServido = 2; // rows of this kind are left out of every company list
constexpr int kSqlServer = 3;
constexpr int kMySql = 4;
constexpr int kSqlite = 5;
} // namespace motor

class ServicioUtil {
public:
  // Value of a key of an ini file, as the Windows profile routines read it: sections
  // and keys without regard to case, blanks around the value trimmed, one pair of
  // enclosing quotes removed, the first occurrence wins. Absent gives "".
  static QString LeerIni(const QString &seccion, const QString &clave, const QString &archivo);
  // Writes a key in place, keeping every other line as it stood; creates the file
  // and the section when they are missing. Returns false when the file can't be written.
  static bool EscribirIni(const QString &seccion, const QString &clave, const QString &valor,
                          const QString &archivo);

  // The date as a complete SQL literal of the engine, delimiters included.
  static QString FechaSQL(const QDate &fecha, int motor);
  // A moment: the date literal, with the time of day when it isn't midnight.
  static QString FechaSQL(const QDateTime &momento, int motor);
  // The time of day as a complete SQL literal of the engine.
  static QString FechaHoraSQL(const QDateTime &fecha, int motor);
  // The length function of text columns: LENGTH on MySQL and SQLite, LEN otherwise.
  static QString FuncionLargo(int motor);
};

// A text value as it goes between the apostrophes of a statement: each apostrophe
// doubled, any NUL dropped, nothing else touched. Every value a statement quotes goes through here,
// so a concept named "D'ANGELO" is stored as it reads, and a value without an apostrophe leaves the
// statement as it always was.
QString Escapar(const QString &valor);

// The numeric value of a text as the family's code reads it: the longest leading
// number (blanks skipped, sign, digits, one point), 0 when there is none.
double Val(const QString &texto);
