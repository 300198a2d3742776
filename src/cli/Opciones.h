#pragma once

#include "shell/CatalogoMensajes.h"
#include "shell/ServicioConexion.h"

#include <QDate>
#include <QHash>
#include <QJsonObject>
#include <QList>
#include <QStringList>
#include <QTextStream>
#include <functional>

// What every command of the command line shares: exit codes, the declaration of its
// options and what is read from them, the terminal's messages, and the session it opens.
namespace cli {

constexpr int kSalidaBien = 0;
constexpr int kSalidaUso = 1;
constexpr int kSalidaFatal = 2;
constexpr int kSalidaEntrada = 3; // user unknown, barred or wrong password

// The kind of value an option takes; the parser refuses a value of another kind.
enum class Valor {
  Ninguno,    // a switch
  Texto,      // any text
  Entero,     // a whole number
  Enteros,    // whole numbers separated by commas
  Fecha,      // a real date AAAA-MM-DD
  Mes,        // a month AAAA-MM
  TipoPoliza, // I, E, D, O or S
  Clave,      // a password: the value, "-" for a line of standard input, or the variable
              // ESCRIBANO_<NAME> when the option is absent
};

struct OpcionCli {
  QString nombre; // without the dashes
  Valor valor = Valor::Ninguno;
  QString muestra; // what stands for the value in the usage ("AAAA-MM-DD", "N")
  QString ayuda;   // one line
  bool requerida = false;
};

struct Contexto;
class Leidas;
class LineaAvance;

// A command: its name, what it does, its options; the usage, the checks and the help
// all come from here.
struct ComandoCli {
  QString nombre;
  QString resumen;     // one line, for the list of commands
  QString descripcion; // what --ayuda adds, lines of at most 80 characters
  QList<OpcionCli> opciones;
  std::function<int(const Leidas &, Contexto &)> correr;

  // "Uso: escribano-cli [--ruta CARPETA] nombre --a A [--b B]...", in lines of at most 80.
  QString Sinopsis() const;
  // The synopsis, the description and one line for each option.
  QString Ayuda() const;
};

// The options given to a command, already checked against its declaration.
class Leidas {
public:
  bool Hay(const QString &nombre) const { return valores_.contains(nombre); }
  QString Texto(const QString &nombre) const { return valores_.value(nombre); }
  int Entero(const QString &nombre) const { return valores_.value(nombre).toInt(); }
  QList<int> Enteros(const QString &nombre) const;
  QDate Fecha(const QString &nombre) const;
  QDate Mes(const QString &nombre) const; // the first day of the month

  // Checks args against the command's options; false with a line naming the option and
  // the value. Passwords are not read yet: nothing is opened before all is accepted.
  bool Leer(const ComandoCli &comando, const QStringList &args, QString &error);
  // Reads the passwords given as "-" from standard input (one line, without echo on a
  // terminal) and the absent ones from their variables; false with a line when a
  // required one is missing.
  bool LeerClaves(const ComandoCli &comando, QString &error);

private:
  QHash<QString, QString> valores_;
};

// The variable that gives a password option when it is absent: ESCRIBANO_CLAVE for
// --clave, ESCRIBANO_CLAVE_BD for --clave-bd.
QString VariableDeClave(const QString &opcion);

// Where a command writes: its text or its JSON object, the progress line, the messages.
struct Contexto {
  QTextStream &out;
  QTextStream &err;
  bool json = false;
  bool progreso = false;        // a progress line on standard error
  QJsonObject objeto;           // what --json prints at the end
  LineaAvance *linea = nullptr; // the progress line drawn now, erased before any message
};

// Shows the catalogue's messages on the terminal: information on standard output,
// warnings and errors on standard error, the progress line erased first; questions take
// the answer the command line gave (Sí), and say so. Under --json every message goes into
// the object's "mensajes" as well, and none to standard output.
class PresentadorCli : public PresentadorMensajes {
public:
  explicit PresentadorCli(Contexto &ctx) : ctx_(ctx) {}
  RespuestaMensaje Presentar(const Mensaje &mensaje) override;

private:
  Contexto &ctx_;
};

// The two connections of a session opened from the command line.
struct SesionCli {
  ConexionPtr general;
  ConexionPtr empresa;
};

// Opens the general database and the company of --empresa (the last one used, or the
// first of the list), as the login's company selection does.
SesionCli AbrirEmpresa(const Leidas &opciones);
// AbrirEmpresa, then the login's acceptance with --usuario and --clave. Returns
// kSalidaBien, or kSalidaEntrada when the user is refused (the message is shown). With
// ensayo the company's connection rehearses from before the login: nothing it writes
// stays.
int IniciarSesion(const Leidas &opciones, SesionCli &sesion, bool ensayo = false);

// The options of a session: --empresa N, and with the login --usuario U, --clave P.
OpcionCli OpcionEmpresa(bool requerida);
QList<OpcionCli> OpcionesEntrada();
// The period of a run: --del AAAA-MM-DD and --al AAAA-MM-DD, both required.
QList<OpcionCli> OpcionesPeriodo();
// --json, --progreso, --sin-progreso.
OpcionCli OpcionJson();
QList<OpcionCli> OpcionesProgreso();

} // namespace cli
