#pragma once

#include "shell/CatalogoMensajes.h"
#include "shell/ServicioConexion.h"

#include <QDate>
#include <QStringList>
#include <QTextStream>

// What every command of the command line shares: exit codes, its options, the terminal's
// messages, and the session it opens.
namespace cli {

constexpr int kSalidaBien = 0;
constexpr int kSalidaUso = 1;
constexpr int kSalidaFatal = 2;
constexpr int kSalidaEntrada = 3; // user unknown, barred or wrong password

struct Argumentos {
  QString comando;
  QStringList opciones; // what follows the command
  QString ruta;         // --ruta, the program's folder
};

// Splits "--ruta DIR comando ..."; false with a message for a command line of no known form.
bool Analizar(const QStringList &args, Argumentos &salida, QString &error);

// The value of "--nombre valor" among the options; empty when absent.
QString Opcion(const QStringList &opciones, const QString &nombre);
bool Bandera(const QStringList &opciones, const QString &nombre);
// A date option in the form AAAA-MM-DD; false with a message when it is malformed, or
// absent and required.
bool FechaOpcion(const QStringList &opciones, const QString &nombre, bool requerida, QDate &fecha,
                 QString &error);

// Shows the catalogue's messages on the terminal: information on standard output,
// warnings and errors on standard error; questions take the given answer.
class PresentadorCli : public PresentadorMensajes {
public:
  PresentadorCli(QTextStream &out, QTextStream &err) : out_(out), err_(err) {}
  RespuestaMensaje Presentar(const Mensaje &mensaje) override;

private:
  QTextStream &out_;
  QTextStream &err_;
};

// The two connections of a session opened from the command line.
struct SesionCli {
  ConexionPtr general;
  ConexionPtr empresa;
};

// Opens the general database and the company of --empresa (the last one used, or the
// first of the list), as the login's company selection does.
SesionCli AbrirEmpresa(const QStringList &opciones);
// AbrirEmpresa, then the login's acceptance with --usuario and --clave. Returns
// kSalidaBien, or kSalidaEntrada when the user is refused (the message is shown).
int IniciarSesion(const QStringList &opciones, SesionCli &sesion);

} // namespace cli
