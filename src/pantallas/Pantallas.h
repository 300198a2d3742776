#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>

class QDateEdit;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QDialog;
class QKeyEvent;
class QUrl;
class QWidget;

// The common kit of the screens: what every form of the family does alike.

// The family's pale blue (red 210, green 230, blue 245), as a style sheet fragment.
QString ColorFamilia();

// A length the family's forms give in twips (1440 to the inch), in a widget's pixels.
int Twips(const QWidget *w, int twips);

// Mexican Spanish for every widget, and Qt's own texts (file dialogs, calendars, standard
// buttons, context menus) in Spanish whatever the machine's language. False when Qt's
// Spanish translation isn't installed (the texts of Qt stay in English).
bool PrepararIdioma();

// The file dialog of the screens, opened in carpeta: to name a file to write (guardar: a
// name without extension gets ".txt", and no question about writing over it) or to open
// one, which may not exist yet. The name chosen with the platform's separators, or the
// empty text.
QString PedirArchivo(QWidget *padre, const QString &titulo, const QString &filtro,
                     const QString &carpeta, bool guardar);

// A dialog of the family: its object name, caption, modality, and the family's colour
// behind it.
void PrepararVentana(QDialog *ventana, const QString &nombre, const QString &titulo);

// A date field of the family (EditorFecha): today's date, "dd/MM/yyyy", with its calendar,
// typed as it reads.
QDateEdit *CampoFecha(QWidget *padre, const QString &nombre);

// The progress of a long task: a label (lblAvance) over a bar (prgAvance) with the button
// "Detener" (cmdDetener) beside it, all in one panel, hidden until the task shows it, and
// keeping its room while hidden so the screen doesn't move.
struct Avance {
  QProgressBar *barra;
  QLabel *etiqueta;
  QPushButton *detener;
  QWidget *panel;
};
Avance CrearAvance(QWidget *padre);

// A long task run on the screen's thread, for as long as this lives. Only "Detener" (or
// Esc, which presses it) answers the user: other clicks and keys are dropped and no window
// closes. The progress is shown, and the screen repainted, at most twenty times a second;
// at the end the panel is hidden again.
class TareaEnCurso : public QObject {
public:
  explicit TareaEnCurso(const Avance &avance);
  ~TareaEnCurso() override;
  TareaEnCurso(const TareaEnCurso &) = delete;
  TareaEnCurso &operator=(const TareaEnCurso &) = delete;

  // The bar at valor of maximo (maximo 0: a bar that only says the task works) and the
  // label's text.
  void Mostrar(int valor, int maximo, const QString &texto);
  // True once "Detener" was pressed.
  bool Detenida() const { return detenida_; }

protected:
  bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
  void Detener();

  Avance avance_;
  bool detenida_ = false;
  qint64 ultimo_ = -1;
  QElapsedTimer reloj_;
};

// Lets a window see every key typed in any of its controls before the control does, as
// a form with its key preview on. The handler gets the control that the key was typed
// in and answers true to swallow the key. A key that a control leaves unhandled and
// that goes on to the control's parents is not seen a second time.
class VistaPreviaTeclas : public QObject {
public:
  using Manejador = std::function<bool(QWidget *control, QKeyEvent *tecla)>;
  VistaPreviaTeclas(QWidget *ventana, Manejador manejador);

protected:
  bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
  Manejador manejador_;
};

// Refuses the apostrophe with a beep in every text field and editable list of a window,
// present and future, however it comes: typed, pasted (keys or context menu), dropped or
// composed by an input method. A text that already holds one (read from the database) can
// still be edited; only a new apostrophe is refused.
class RechazoApostrofe : public VistaPreviaTeclas {
public:
  explicit RechazoApostrofe(QWidget *ventana);

protected:
  bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
  void Vigilar(QLineEdit *campo);
  QWidget *ventana_;
};

// Enter moves to the next control, as a Tab would, in every control of a window but
// those named in excepciones (by object name, the control's or one of its parents'),
// which keep the key.
class EnterSiguiente : public VistaPreviaTeclas {
public:
  explicit EnterSiguiente(QWidget *ventana, QStringList excepciones = {});
};

// The captions of one menu, or of a menu bar, each with an access key (a letter
// underlined, "&Archivo"): the first letter of each caption that no caption before it
// took. The texts themselves stay as they are.
QStringList ConTeclas(const QStringList &leyendas);

// A label whose text, when it doesn't fit, ends in "…" and shows whole in the tool tip
// (else the tool tip given by Tip). text() is always the whole text.
class EtiquetaRecortada : public QLabel {
public:
  explicit EtiquetaRecortada(QWidget *padre = nullptr);
  void Tip(const QString &tip);
  QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent *evento) override;

private:
  QString tip_;
};

// A Tab for a control: the focus goes on from it to the next control of its window.
void EnviarTab(QWidget *control);

// The hourglass pointer for as long as the guard lives.
class RelojArena {
public:
  RelojArena();
  ~RelojArena();
  RelojArena(const RelojArena &) = delete;
  RelojArena &operator=(const RelojArena &) = delete;
};

// Hands a file to the desktop to open (the help manual, a log); a failure isn't reported.
void AbrirArchivo(QWidget *ventana, const QString &ruta);
// F1 on any screen: the manual at the chapter of the window, or a message naming the
// path where it was looked for.
void AbrirAyuda(QWidget *ventana);
// F1 for a window whose toolbar has no help button (PrepararVentana installs it).
void InstalarAyuda(QWidget *ventana);
// Hands an address to the desktop (a file, the maker's site); a failure isn't reported.
void AbrirDireccion(const QUrl &direccion);
// What hands addresses on: the desktop until another is installed (tests keep them);
// an empty one returns to the desktop.
void InstalarAbridor(std::function<void(const QUrl &)> abridor);
