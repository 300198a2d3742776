#pragma once

#include <QString>
#include <QStringList>
#include <vector>

// The family's numbered messages and the way they reach the user. The windowed
// program installs a presenter that shows dialogs; the CLI one prints; tests
// record what was shown and answer with scripted buttons.

enum class IconoMensaje { Ninguno, Informacion, Advertencia, Critico, Pregunta };
enum class BotonesMensaje { Aceptar, SiNo, SiNoCancelar, AceptarCancelar };
enum class RespuestaMensaje { Aceptar, Cancelar, Si, No };

struct Mensaje {
  int id = 0; // 0 for a free text
  QString titulo;
  QString texto;
  IconoMensaje icono = IconoMensaje::Informacion;
  BotonesMensaje botones = BotonesMensaje::Aceptar;
  bool noPorOmision = false; // a question whose safe answer is No: Enter answers it
};

class PresentadorMensajes {
public:
  virtual ~PresentadorMensajes() = default;
  virtual RespuestaMensaje Presentar(const Mensaje &mensaje) = 0;
};

class CatalogoMensajes {
public:
  // Text of a numbered message; an unknown id gives "Mensaje <id>".
  static QString Texto(int id);
  // True when the catalogue holds the id.
  static bool Existe(int id);
  // Every id the catalogue holds, in ascending order.
  static std::vector<int> Ids();

  // Shows a numbered message, with an optional detail on a line of its own.
  static RespuestaMensaje Mostrar(int id, const QString &detalle = {},
                                  IconoMensaje icono = IconoMensaje::Informacion,
                                  BotonesMensaje botones = BotonesMensaje::Aceptar);
  // Shows a free text in the same dialog, titled by message 100.
  static RespuestaMensaje MostrarTexto(const QString &texto,
                                       IconoMensaje icono = IconoMensaje::Informacion,
                                       BotonesMensaje botones = BotonesMensaje::Aceptar);
  // Shows a message with a given title (the boxes that the screens build themselves).
  static RespuestaMensaje Caja(const QString &texto, const QString &titulo, IconoMensaje icono,
                               BotonesMensaje botones = BotonesMensaje::Aceptar, int id = 0,
                               bool noPorOmision = false);

  // The presenter in use; the CLI's (standard error) until another is installed.
  static void Instalar(PresentadorMensajes *presentador);
  static PresentadorMensajes *Presentador();
  // Whether a presenter other than the console's default is installed.
  static bool HayPresentadorInstalado();
};

// Prints messages to standard error and answers every question with its default
// (Aceptar, or Si where the buttons are Si/No).
class PresentadorConsola : public PresentadorMensajes {
public:
  RespuestaMensaje Presentar(const Mensaje &mensaje) override;
};

// Keeps every message shown and answers from a queue (Aceptar/Si when empty).
class PresentadorGrabador : public PresentadorMensajes {
public:
  std::vector<Mensaje> mostrados;
  std::vector<RespuestaMensaje> respuestas;
  RespuestaMensaje Presentar(const Mensaje &mensaje) override;
  std::vector<int> Ids() const;
  // The texts of the messages shown, in order.
  QStringList Textos() const;
};
