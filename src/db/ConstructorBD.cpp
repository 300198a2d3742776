#include "db/ConstructorBD.h"

#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

#include <cstring>

namespace constructor {

QString CrearTabla(const esquema::Tabla &tabla, int motor) {
  const Dialecto d(motor);
  QStringList columnas;
  for (const esquema::Columna &c : tabla.columnas)
    columnas << d.Nombre(c.nombre) + QLatin1Char(' ') + d.TipoColumna(c.tipo, c.largo);
  return QStringLiteral("CREATE TABLE %1 (%2)")
             .arg(d.Nombre(tabla.nombre), columnas.join(QStringLiteral(", "))) +
         d.FinCrearTabla();
}

QStringList SentenciasDDL(const std::vector<esquema::Tabla> &tablas, int motor) {
  const Dialecto d(motor);
  QStringList sentencias;
  for (const esquema::Tabla &t : tablas) {
    sentencias << CrearTabla(t, motor);
    for (const esquema::Indice &i : t.indices) {
      QStringList cols;
      for (const char *c : i.columnas)
        cols << d.Nombre(c);
      sentencias << QStringLiteral("CREATE INDEX %1 ON %2 (%3)")
                        .arg(d.Nombre(i.nombre), d.Nombre(t.nombre),
                             cols.join(QStringLiteral(", ")));
    }
  }
  return sentencias;
}

void CrearTablas(Conexion &con, const std::vector<esquema::Tabla> &tablas) {
  for (const QString &sql : SentenciasDDL(tablas, con.Motor()))
    con.Ejecutar(sql);
}

bool RevisarEstructura(Conexion &con, const std::vector<esquema::Tabla> &tablas, QString *error) {
  const Dialecto &d = con.Dialecto();
  for (const esquema::Tabla &t : tablas) {
    const QString nombre = d.Nombre(t.nombre);
    std::unique_ptr<Registros> rs =
        con.IntentarAbrir(QStringLiteral("SELECT * FROM %1 WHERE 1=0").arg(nombre));
    if (!rs) {
      for (const QString &sql : SentenciasDDL({t}, con.Motor()))
        if (!con.IntentarEjecutar(sql, nullptr, error))
          return false;
      continue;
    }
    QStringList presentes;
    for (const QString &c : rs->Campos())
      presentes << c.toUpper();
    rs.reset();
    for (const esquema::Columna &c : t.columnas) {
      if (presentes.contains(QString::fromUtf8(c.nombre).toUpper()))
        continue;
      if (!con.IntentarEjecutar(
              QStringLiteral("ALTER TABLE %1 ADD %2 %3")
                  .arg(nombre, d.Nombre(c.nombre), d.TipoColumna(c.tipo, c.largo)),
              nullptr, error))
        return false;
    }
  }
  return true;
}

void BorrarTablas(Conexion &con, const std::vector<esquema::Tabla> &tablas) {
  for (const esquema::Tabla &t : tablas)
    con.IntentarEjecutar(
        QStringLiteral("DROP TABLE IF EXISTS %1").arg(con.Dialecto().Nombre(t.nombre)));
}

bool AsegurarTabla(Conexion &con, const char *nombre, QString *error) {
  for (const esquema::Tabla &t : esquema::TablasEmpresa())
    if (std::strcmp(t.nombre, nombre) == 0)
      return RevisarEstructura(con, {t}, error);
  if (error)
    *error =
        QStringLiteral("La tabla %1 no es del esquema de la empresa.").arg(QLatin1String(nombre));
  return false;
}

} // namespace constructor
