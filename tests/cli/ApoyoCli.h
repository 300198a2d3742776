#pragma once

#include "cli/Comandos.h"

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
