// escribano-manual CHAPTERS PICTURES OUTPUT VERSION: builds the bookkeeper's manual.
#include "manual/Manual.h"

#include <QGuiApplication>
#include <QTextStream>

int main(int argc, char *argv[]) {
  // It draws pages, not windows: no display is needed.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  QTextStream err(stderr);
  const QStringList args = app.arguments();
  if (args.size() != 5) {
    err << "Uso: escribano-manual CAPITULOS CAPTURAS SALIDA.pdf VERSION\n";
    return 1;
  }
  const manual::ResultadoManual r = manual::EscribirManual({args[1], args[2], args[3], args[4]});
  if (!r.error.isEmpty()) {
    err << r.error << "\n";
    return 2;
  }
  QTextStream(stdout) << args[3] << ": " << r.paginas << " páginas, " << r.capitulos.size()
                      << " capítulos, " << r.figuras.size() << " figuras\n";
  return 0;
}
