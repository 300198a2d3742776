#include "Repeticion.h"

#include "shell/ErrorFatal.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QElapsedTimer>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <cstring>
#include <memory>

#include <sqlite3.h>

namespace banco {

void Sentencias::Tomar(Grabadora &grabadora) {
  for (const QString &sql : grabadora.sentencias) {
    partes_.emplace_back(texto_.size(), sql.size());
    texto_ += sql;
  }
  grabadora.sentencias.clear();
}

QString Sentencias::Sentencia(qsizetype i) const {
  const auto [inicio, largo] = partes_[static_cast<std::size_t>(i)];
  return texto_.mid(inicio, largo);
}

RastreoFilas::RastreoFilas() {
  QSqlDatabase abierta;
  int abiertas = 0;
  for (const QString &nombre : QSqlDatabase::connectionNames()) {
    QSqlDatabase db = QSqlDatabase::database(nombre, false);
    if (db.isOpen()) {
      abierta = db;
      ++abiertas;
    }
  }
  if (abiertas != 1)
    throw ErrorFatal(
        QStringLiteral("El rastreo de filas espera una sola conexión abierta y hay %1.")
            .arg(abiertas));
  if (abierta.driverName() != QStringLiteral("QSQLITE"))
    return;
  const QVariant manejador = abierta.driver()->handle();
  base_ = *static_cast<sqlite3 *const *>(manejador.data());
  sqlite3_trace_v2(base_, SQLITE_TRACE_STMT | SQLITE_TRACE_ROW, &RastreoFilas::Anotar, this);
}

RastreoFilas::~RastreoFilas() {
  if (base_)
    sqlite3_trace_v2(base_, 0, nullptr, nullptr);
}

int RastreoFilas::Anotar(unsigned tipo, void *contexto, void *sentencia, void *) {
  auto *r = static_cast<RastreoFilas *>(contexto);
  if (tipo == SQLITE_TRACE_STMT) {
    // The run's transactions are opened and closed by the driver, not as statements of the
    // run: the recorder doesn't have them, and the replay doesn't send them.
    const char *sql = sqlite3_sql(static_cast<sqlite3_stmt *>(sentencia));
    for (const char *control : {"BEGIN", "COMMIT", "ROLLBACK", "END"})
      if (sql && std::strncmp(sql, control, std::strlen(control)) == 0)
        return 0;
    r->enCurso_[sentencia] = r->filas_.size();
    r->filas_.push_back(0);
  } else if (tipo == SQLITE_TRACE_ROW) {
    const auto lugar = r->enCurso_.find(sentencia);
    if (lugar != r->enCurso_.end())
      ++r->filas_[lugar->second];
  }
  return 0;
}

Repeticion Repetir(const Sentencias &sentencias) {
  const QString nombre = QStringLiteral("banco_repeticion");
  const DestinoConexion destino = ServicioConexion::Traducir(gConexion, gRutaApp, {});
  Repeticion r;
  {
    QSqlDatabase db = QSqlDatabase::addDatabase(destino.driver, nombre);
    db.setDatabaseName(destino.baseDeDatos);
    if (!db.open())
      throw ErrorFatal(QStringLiteral("La repetición no pudo abrir la base de datos: %1")
                           .arg(db.lastError().text()));
    if (destino.driver == QStringLiteral("QSQLITE"))
      ServicioConexion::AjustarSqlite(db);
    QElapsedTimer reloj;
    reloj.start();
    const bool odbc = odbc::EsOdbc(db);
    for (qsizetype i = 0; i < sentencias.Cuenta(); ++i) {
      const QString sql = sentencias.Sentencia(i);
      const qint64 filas = sentencias.HayFilas() ? sentencias.Filas(i) : -1;
      if (odbc) {
        // ODBC goes the way the program sends it: straight to the driver.
        std::unique_ptr<odbc::Cursor> c = odbc::Cursor::Ejecutar(db, sql, nullptr);
        if (!c) {
          ++r.rechazadas;
          continue;
        }
        const int columnas = static_cast<int>(c->Nombres().size());
        for (qint64 leidas = 0; leidas != filas && c->DaFilas() && c->Siguiente(); ++leidas)
          for (int col = 0; col < columnas; ++col)
            c->Valor(col);
        continue;
      }
      QSqlQuery q(db);
      q.setForwardOnly(true);
      q.setNumericalPrecisionPolicy(QSql::HighPrecision);
      if (!q.exec(sql)) {
        ++r.rechazadas;
        continue;
      }
      if (!q.isSelect())
        continue;
      const int columnas = q.record().count();
      for (qint64 leidas = 0; leidas != filas && q.next(); ++leidas)
        for (int c = 0; c < columnas; ++c)
          q.value(c);
    }
    r.segundos = static_cast<double>(reloj.nsecsElapsed()) / 1e9;
    db.close();
  }
  QSqlDatabase::removeDatabase(nombre);
  return r;
}

} // namespace banco
