#include "shell/Dialecto.h"

#include "shell/ErrorFatal.h"

namespace {

// A date the engine can't hold ends the run with a message that says so, rather than
// with the engine's own words or a wrong row.
void RevisarRango(const QDate &fecha, int motor) {
  if (!fecha.isValid())
    return;
  QDate menor(1, 1, 1);
  if (motor == 3)
    menor = QDate(1753, 1, 1);
  else if (motor == 4)
    menor = QDate(1000, 1, 1);
  else if (motor == 0)
    menor = QDate(100, 1, 1);
  const QDate mayor(9999, 12, 31);
  if (fecha < menor || fecha > mayor)
    throw ErrorFatal(QStringLiteral("La fecha %1 está fuera del intervalo que admite la base de "
                                    "datos (%2 a %3).")
                         .arg(fecha.toString(QStringLiteral("dd/MM/yyyy")),
                              menor.toString(QStringLiteral("dd/MM/yyyy")),
                              mayor.toString(QStringLiteral("dd/MM/yyyy"))));
}

} // namespace

QString Dialecto::FechaSQL(const QDate &fecha) const {
  RevisarRango(fecha, motor_);
  switch (motor_) {
  case kSqlServer:
    return QLatin1Char('\'') + fecha.toString(QStringLiteral("yyyyMMdd")) + QLatin1Char('\'');
  case kMySql:
  case kSqlite:
    return QLatin1Char('\'') + fecha.toString(QStringLiteral("yyyy-MM-dd")) + QLatin1Char('\'');
  default:
    return QLatin1Char('#') + fecha.toString(QStringLiteral("MM/dd/yyyy")) + QLatin1Char('#');
  }
}

QString Dialecto::FechaSQL(const QDateTime &momento) const {
  if (momento.time() == QTime(0, 0))
    return FechaSQL(momento.date());
  RevisarRango(momento.date(), motor_);
  const QString hora = momento.time().toString(QStringLiteral("HH:mm:ss"));
  switch (motor_) {
  case kSqlServer:
    return QLatin1Char('\'') + momento.date().toString(QStringLiteral("yyyyMMdd")) +
           QLatin1Char(' ') + hora + QLatin1Char('\'');
  case kMySql:
  case kSqlite:
    return QLatin1Char('\'') + momento.date().toString(QStringLiteral("yyyy-MM-dd")) +
           QLatin1Char(' ') + hora + QLatin1Char('\'');
  default:
    return QLatin1Char('#') + momento.date().toString(QStringLiteral("MM/dd/yyyy")) +
           QLatin1Char(' ') + hora + QLatin1Char('#');
  }
}

QString Dialecto::FechaHoraSQL(const QDateTime &momento) const {
  const QString hora = momento.time().toString(QStringLiteral("HH:mm:ss"));
  switch (motor_) {
  case kSqlServer:
  case kMySql:
  case kSqlite:
    return QLatin1Char('\'') + hora + QLatin1Char('\'');
  default:
    return QLatin1Char('#') + hora + QLatin1Char('#');
  }
}

QString Dialecto::FuncionLargo() const {
  return (motor_ == kMySql || motor_ == kSqlite) ? QStringLiteral("LENGTH") : QStringLiteral("LEN");
}

QString Dialecto::AjusteSesion() const {
  if (motor_ != kMySql)
    return {};
  return QStringLiteral("SET SESSION sql_mode=CONCAT_WS(',',NULLIF(@@SESSION.sql_mode,''),"
                        "'NO_BACKSLASH_ESCAPES')");
}

QString Dialecto::TomarCandado(const QString &trabajo) const {
  if (motor_ == kSqlServer)
    return QStringLiteral(
               "SET NOCOUNT ON; DECLARE @n NVARCHAR(255) = N'escribano.%1.' + DB_NAME(); "
               "DECLARE @r INT; EXEC @r = sp_getapplock @Resource=@n, "
               "@LockMode='Exclusive', @LockOwner='Session', @LockTimeout=0; "
               "SELECT CASE WHEN @r>=0 THEN 1 ELSE 0 END AS TOMADO, @n AS NOMBRE;")
        .arg(trabajo);
  // Named after the database, so that every workstation of the company meets it.
  return QStringLiteral("SELECT GET_LOCK(CONCAT('escribano.%1.',DATABASE()),0) AS TOMADO,"
                        "CONCAT('escribano.%1.',DATABASE()) AS NOMBRE;")
      .arg(trabajo);
}

QString Dialecto::SoltarCandado(const QString &trabajo) const {
  if (motor_ == kSqlServer)
    return QStringLiteral("DECLARE @n NVARCHAR(255) = N'escribano.%1.' + DB_NAME(); "
                          "EXEC sp_releaseapplock @Resource=@n, @LockOwner='Session';")
        .arg(trabajo);
  return QStringLiteral("SELECT RELEASE_LOCK(CONCAT('escribano.%1.',DATABASE()));").arg(trabajo);
}

QString Dialecto::Nombre(const char *nombre) const {
  const QString n = QString::fromUtf8(nombre);
  switch (motor_) {
  case kMySql:
    return QLatin1Char('`') + n + QLatin1Char('`');
  case kSqlServer:
    return QLatin1Char('[') + n + QLatin1Char(']');
  default:
    return QLatin1Char('"') + n + QLatin1Char('"');
  }
}

QString Dialecto::TipoColumna(TipoDato tipo, int largo) const {
  const bool mysql = motor_ == kMySql;
  const bool sqlServer = motor_ == kSqlServer;
  switch (tipo) {
  case TipoDato::Texto:
    return QStringLiteral("VARCHAR(%1)").arg(largo > 0 ? largo : 50);
  case TipoDato::Memo:
    return sqlServer ? QStringLiteral("VARCHAR(MAX)") : QStringLiteral("TEXT");
  case TipoDato::Entero:
    return mysql || sqlServer ? QStringLiteral("INT") : QStringLiteral("INTEGER");
  case TipoDato::Largo:
    return mysql || sqlServer ? QStringLiteral("BIGINT") : QStringLiteral("INTEGER");
  case TipoDato::Logico:
    return QStringLiteral("SMALLINT");
  case TipoDato::Dinero:
  case TipoDato::Decimal:
    return QStringLiteral("DECIMAL(19,4)");
  case TipoDato::Fecha:
    return QStringLiteral("DATE");
  case TipoDato::FechaHora:
    return QStringLiteral("DATETIME");
  case TipoDato::Hora:
    return QStringLiteral("TIME");
  case TipoDato::Contador:
    if (mysql)
      return QStringLiteral("INT NOT NULL AUTO_INCREMENT PRIMARY KEY");
    if (sqlServer)
      return QStringLiteral("INT IDENTITY(1,1) NOT NULL PRIMARY KEY");
    return QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT");
  }
  return {};
}

QString Dialecto::FinCrearTabla() const {
  return motor_ == kMySql ? QStringLiteral(" ENGINE=InnoDB DEFAULT CHARSET=utf8mb4") : QString();
}

QString Dialecto::TransaccionEnCurso() const {
  switch (motor_) {
  case kSqlServer:
    return QStringLiteral("SELECT @@TRANCOUNT");
  case kMySql:
    return QStringLiteral("SELECT @@in_transaction");
  default:
    return {};
  }
}

QString Dialecto::TextoIdentico(const QString &expresion, const QStringList &literales) const {
  if (motor_ != kMySql)
    return {};
  return QStringLiteral("BINARY CAST(%1 AS CHAR) IN (%2)")
      .arg(expresion, literales.join(QLatin1Char(',')));
}

QString Dialecto::IniciarTransaccion() const {
  switch (motor_) {
  case kSqlite:
    return QStringLiteral("BEGIN IMMEDIATE");
  case kMySql:
    return QStringLiteral("START TRANSACTION");
  default:
    return {};
  }
}
