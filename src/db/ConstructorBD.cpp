#include "db/ConstructorBD.h"

#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

namespace constructor {
namespace {

QString Nombre(const char *nombre, int motor) {
  const QString n = QLatin1String(nombre);
  switch (motor) {
  case motor::kMySql:
    return QLatin1Char('`') + n + QLatin1Char('`');
  case motor::kSqlServer:
    return QLatin1Char('[') + n + QLatin1Char(']');
  default:
    return QLatin1Char('"') + n + QLatin1Char('"');
  }
}

QString TipoColumna(const esquema::Columna &c, int motor) {
  using esquema::Tipo;
  const bool mysql = motor == motor::kMySql;
  const bool sqlServer = motor == motor::kSqlServer;
  switch (c.tipo) {
  case Tipo::Texto:
    return QStringLiteral("VARCHAR(%1)").arg(c.largo > 0 ? c.largo : 50);
  case Tipo::Memo:
    return sqlServer ? QStringLiteral("VARCHAR(MAX)") : QStringLiteral("TEXT");
  case Tipo::Entero:
    return mysql || sqlServer ? QStringLiteral("INT") : QStringLiteral("INTEGER");
  case Tipo::Largo:
    return mysql || sqlServer ? QStringLiteral("BIGINT") : QStringLiteral("INTEGER");
  case Tipo::Logico:
    return QStringLiteral("SMALLINT");
  case Tipo::Dinero:
  case Tipo::Decimal:
    return QStringLiteral("DECIMAL(19,4)");
  case Tipo::Fecha:
    return QStringLiteral("DATE");
  case Tipo::FechaHora:
    return QStringLiteral("DATETIME");
  case Tipo::Hora:
    return QStringLiteral("TIME");
  case Tipo::Contador:
    if (mysql)
      return QStringLiteral("INT NOT NULL AUTO_INCREMENT PRIMARY KEY");
    if (sqlServer)
      return QStringLiteral("INT IDENTITY(1,1) NOT NULL PRIMARY KEY");
    return QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT");
  }
  return {};
}

} // namespace

QString CrearTabla(const esquema::Tabla &tabla, int motor) {
  QStringList columnas;
  for (const esquema::Columna &c : tabla.columnas)
    columnas << Nombre(c.nombre, motor) + QLatin1Char(' ') + TipoColumna(c, motor);
  QString sql = QStringLiteral("CREATE TABLE %1 (%2)")
                    .arg(Nombre(tabla.nombre, motor), columnas.join(QStringLiteral(", ")));
  if (motor == motor::kMySql)
    sql += QStringLiteral(" ENGINE=InnoDB DEFAULT CHARSET=utf8mb4");
  return sql;
}

QStringList SentenciasDDL(const std::vector<esquema::Tabla> &tablas, int motor) {
  QStringList sentencias;
  for (const esquema::Tabla &t : tablas) {
    sentencias << CrearTabla(t, motor);
    for (const esquema::Indice &i : t.indices) {
      QStringList cols;
      for (const char *c : i.columnas)
        cols << Nombre(c, motor);
      sentencias << QStringLiteral("CREATE INDEX %1 ON %2 (%3)")
                        .arg(Nombre(i.nombre, motor), Nombre(t.nombre, motor),
                             cols.join(QStringLiteral(", ")));
    }
  }
  return sentencias;
}

void CrearTablas(Conexion &con, const std::vector<esquema::Tabla> &tablas) {
  for (const QString &sql : SentenciasDDL(tablas, con.Motor()))
    con.Ejecutar(sql);
}

void BorrarTablas(Conexion &con, const std::vector<esquema::Tabla> &tablas) {
  for (const esquema::Tabla &t : tablas)
    con.IntentarEjecutar(
        QStringLiteral("DROP TABLE IF EXISTS %1").arg(Nombre(t.nombre, con.Motor())));
}

} // namespace constructor
