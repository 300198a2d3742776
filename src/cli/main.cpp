#include "cli/Comandos.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char **argv) {
  QCoreApplication app(argc, argv);
  QTextStream out(stdout);
  QTextStream err(stderr);
  QStringList args = QCoreApplication::arguments();
  args.removeFirst();
  const int codigo = cli::Ejecutar(args, QCoreApplication::applicationDirPath(), out, err);
  out.flush();
  err.flush();
  return codigo;
}
