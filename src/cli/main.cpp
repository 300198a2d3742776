#include "cli/Comandos.h"

#include <QGuiApplication>
#include <cstdio>

namespace {

// Qt's notes about the desktop session (no runtime folder on a server) are no business of
// a headless run; every other message goes to standard error as usual.
void Mensajes(QtMsgType tipo, const QMessageLogContext &contexto, const QString &texto) {
  if (texto.startsWith(QLatin1String("QStandardPaths:")))
    return;
  std::fputs(qPrintable(qFormatLogMessage(tipo, contexto, texto) + QLatin1Char('\n')), stderr);
}

} // namespace

int main(int argc, char **argv) {
  // Reports are drawn with fonts, never on a screen.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(Mensajes);
  QGuiApplication app(argc, argv);
  QTextStream out(stdout);
  QTextStream err(stderr);
  QStringList args = QCoreApplication::arguments();
  args.removeFirst();
  const int codigo = cli::Ejecutar(args, QCoreApplication::applicationDirPath(), out, err);
  out.flush();
  err.flush();
  return codigo;
}
