#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>

// Kinds of column the family's tables use, as the builder asks for them.
enum class TipoDato {
  Texto,     // VARCHAR(largo)
  Memo,      // long text
  Entero,    // whole number (INT)
  Largo,     // 64-bit whole number
  Logico,    // flag stored as 1 / -1 / 0
  Dinero,    // money, four decimals
  Decimal,   // other amounts or rates, four decimals
  Fecha,     // date
  FechaHora, // date and time
  Hora,      // time of day
  Contador,  // grows with each insertion (identity / auto increment)
};

// Everything in which the engines of a company database differ, in one place: SQL Server
// (3), MySQL and MariaDB (4), the embedded SQLite (5), and the general database's Jet (0).
// A connection carries the one of its engine; all other SQL is the same text everywhere.
class Dialecto {
public:
  explicit Dialecto(int motor) : motor_(motor) {}
  int Motor() const { return motor_; }
  // MySQL or MariaDB, which a connection tells apart by asking the server.
  bool EsMySql() const { return motor_ == kMySql; }

  // The date as a complete literal, delimiters included; a date the engine can't hold
  // ends the run with a message that says so.
  QString FechaSQL(const QDate &fecha) const;
  // A moment: the date literal, with the time of day when it isn't midnight.
  QString FechaSQL(const QDateTime &momento) const;
  // The time of day as a complete literal.
  QString FechaHoraSQL(const QDateTime &momento) const;
  // The length function of text columns: LENGTH on MySQL and SQLite, LEN otherwise.
  QString FuncionLargo() const;

  // What a new session of the engine is told first; empty when nothing. On MySQL a
  // backslash becomes an ordinary character, as on the other engines, so that a value is
  // quoted only by doubling its apostrophes.
  QString AjusteSesion() const;
  // The statement that begins a transaction, or empty when the driver begins it. The
  // embedded engine takes its write lock at the start ("BEGIN IMMEDIATE"); MySQL and
  // MariaDB begin one in a single exchange, where the driver's way switches the
  // connection's autocommit off and on again around it, an exchange each.
  QString IniciarTransaccion() const;
  // The question of a server whether the connection's transaction still stands (one row,
  // one column, not 0 when it does), after a failed statement: a deadlock undoes the whole
  // transaction, not the statement alone. Empty for the embedded engine, which is asked
  // by beginning one.
  QString TransaccionEnCurso() const;
  // The truth that a value, as text, is byte for byte one of the literals (quoted texts),
  // with no padding, case or collation: on MySQL and MariaDB, the engines of the servers
  // that run a journal entry in one block (MariaDB's); empty on the others.
  QString TextoIdentico(const QString &expresion, const QStringList &literales) const;
  // The server's lock named after the company database for a kind of work: the statement
  // that asks for it (columns TOMADO, 1 when taken, and NOMBRE) and the one that gives it
  // back. Not for the embedded engine, whose lock is a file beside the database.
  QString TomarCandado(const QString &trabajo) const;
  QString SoltarCandado(const QString &trabajo) const;

  // DDL: a table or column name quoted, a column's type, and what ends a CREATE TABLE.
  QString Nombre(const char *nombre) const;
  QString TipoColumna(TipoDato tipo, int largo) const;
  QString FinCrearTabla() const;

private:
  static constexpr int kSqlServer = 3;
  static constexpr int kMySql = 4;
  static constexpr int kSqlite = 5;
  int motor_;
};
