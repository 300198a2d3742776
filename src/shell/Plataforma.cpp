#include "shell/Plataforma.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <csignal>
#include <termios.h>
#include <unistd.h>
#endif

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <string>

bool ErrorEsTerminal() {
#ifdef Q_OS_WIN
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(STDERR_FILENO) != 0;
#endif
}

namespace {

#ifndef Q_OS_WIN
// What the terminal was before its echo went off: an interruption while a password is
// typed puts it back before the process ends, or the shell would be left blind.
termios gModoTerminal{};
volatile sig_atomic_t gEcoApagado = 0;

extern "C" void DevolverEcoYTerminar(int senal) {
  if (gEcoApagado)
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &gModoTerminal);
  [[maybe_unused]] const ssize_t escrito = write(STDERR_FILENO, "\n", 1);
  signal(senal, SIG_DFL);
  raise(senal);
}
#endif

// Turns the echo of the console's input off while it lives.
class SinEco {
public:
  SinEco() {
#ifdef Q_OS_WIN
    entrada_ = GetStdHandle(STD_INPUT_HANDLE);
    activo_ = GetConsoleMode(entrada_, &modo_) != 0 &&
              SetConsoleMode(entrada_, modo_ & ~static_cast<DWORD>(ENABLE_ECHO_INPUT)) != 0;
#else
    activo_ = tcgetattr(STDIN_FILENO, &modo_) == 0;
    if (activo_) {
      gModoTerminal = modo_;
      gEcoApagado = 1;
      struct sigaction accion {};
      accion.sa_handler = DevolverEcoYTerminar;
      sigemptyset(&accion.sa_mask);
      for (std::size_t i = 0; i < std::size(kSenales); ++i)
        sigaction(kSenales[i], &accion, &anteriores_[i]);
      termios sinEco = modo_;
      sinEco.c_lflag &= ~static_cast<tcflag_t>(ECHO);
      activo_ = tcsetattr(STDIN_FILENO, TCSAFLUSH, &sinEco) == 0;
    }
#endif
  }
  ~SinEco() {
    if (!activo_)
      return;
#ifdef Q_OS_WIN
    SetConsoleMode(entrada_, modo_);
#else
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &modo_);
    gEcoApagado = 0;
    for (std::size_t i = 0; i < std::size(kSenales); ++i)
      sigaction(kSenales[i], &anteriores_[i], nullptr);
#endif
  }
  SinEco(const SinEco &) = delete;
  SinEco &operator=(const SinEco &) = delete;

private:
  bool activo_ = false;
#ifdef Q_OS_WIN
  HANDLE entrada_ = nullptr;
  DWORD modo_ = 0;
#else
  static constexpr int kSenales[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
  termios modo_{};
  struct sigaction anteriores_[std::size(kSenales)]{};
#endif
};

bool EntradaEsTerminal() {
#ifdef Q_OS_WIN
  return _isatty(_fileno(stdin)) != 0;
#else
  return isatty(STDIN_FILENO) != 0;
#endif
}

} // namespace

QString LeerLineaSinEco(const QString &indicacion, bool *leida) {
  std::string linea;
  if (EntradaEsTerminal()) {
    std::fputs(indicacion.toLocal8Bit().constData(), stderr);
    std::fflush(stderr);
    SinEco sinEco;
    *leida = static_cast<bool>(std::getline(std::cin, linea));
    std::fputs("\n", stderr);
  } else {
    *leida = static_cast<bool>(std::getline(std::cin, linea));
  }
  if (!linea.empty() && linea.back() == '\r')
    linea.pop_back();
  return QString::fromLocal8Bit(linea.data(), static_cast<qsizetype>(linea.size()));
}

void MatarProceso() {
#ifdef Q_OS_WIN
  TerminateProcess(GetCurrentProcess(), 137);
#else
  kill(getpid(), SIGKILL);
#endif
  std::_Exit(137);
}
