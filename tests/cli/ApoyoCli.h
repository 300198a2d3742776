#pragma once

#include "cli/Comandos.h"
#include "db/DatosDemo.h"
#include "db/EmpresaDemo.h"

#include <QStringList>
#include <QTextStream>

// What a command of escribano-cli gave, run in this process.
struct SalidaCli {
  int codigo = -1;
  QString out, err;
};

inline SalidaCli CorrerCli(const QStringList &args) {
  SalidaCli s;
  QTextStream out(&s.out), err(&s.err);
  s.codigo = cli::Ejecutar(args, QStringLiteral("/nada"), out, err);
  out.flush();
  err.flush();
  return s;
}

// The demo company's month in a test company (ADMIN's password "clave"), with the
// statement recorder put away: the month takes thousands of statements.
inline void LlenarMesDemo(Conexion &con, const QDate &mes) {
  demo::LlenarIdentidad(con, QStringLiteral("clave"));
  demo::LlenarCatalogos(con);
  demo::LlenarDocumentos(con, mes);
  Conexion::InstalarGrabadora(nullptr);
}
