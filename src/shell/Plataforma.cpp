#include "shell/Plataforma.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <csignal>
#include <unistd.h>
#endif

#include <cstdlib>

bool ErrorEsTerminal() {
#ifdef Q_OS_WIN
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(STDERR_FILENO) != 0;
#endif
}

void MatarProceso() {
#ifdef Q_OS_WIN
  TerminateProcess(GetCurrentProcess(), 137);
#else
  kill(getpid(), SIGKILL);
#endif
  std::_Exit(137);
}
