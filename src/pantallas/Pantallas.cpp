#include "pantallas/Pantallas.h"

#include "shell/Rutas.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QDateEdit>
#include <QDesktopServices>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QUrl>
#include <QWidget>

QString ColorFamilia() { return QStringLiteral("rgb(210, 230, 245)"); }

void PrepararVentana(QDialog *ventana, const QString &nombre, const QString &titulo) {
  ventana->setObjectName(nombre);
  ventana->setWindowTitle(titulo);
  ventana->setModal(true);
  ventana->setStyleSheet(
      QStringLiteral("#%1 { background-color: %2; }").arg(nombre, ColorFamilia()));
}

QDateEdit *CampoFecha(QWidget *padre, const QString &nombre) {
  auto *d = new QDateEdit(Hoy(), padre);
  d->setObjectName(nombre);
  d->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
  d->setCalendarPopup(true);
  return d;
}

VistaPreviaTeclas::VistaPreviaTeclas(QWidget *ventana, Manejador manejador)
    : QObject(ventana), manejador_(std::move(manejador)) {
  // The window sees the key events of all its children through the application.
  qApp->installEventFilter(this);
}

bool VistaPreviaTeclas::eventFilter(QObject *objeto, QEvent *evento) {
  if (evento->type() != QEvent::KeyPress)
    return false;
  auto *control = qobject_cast<QWidget *>(objeto);
  auto *ventana = qobject_cast<QWidget *>(parent());
  if (!control || !ventana || (control != ventana && !ventana->isAncestorOf(control)))
    return false;
  // A key that the focused control didn't take travels up to its parents: it was seen
  // already when it reached the control.
  QWidget *foco = QApplication::focusWidget();
  if (foco && control != foco && control->isAncestorOf(foco))
    return false;
  return manejador_(control, static_cast<QKeyEvent *>(evento));
}

RechazoApostrofe::RechazoApostrofe(QWidget *ventana)
    : VistaPreviaTeclas(ventana, [](QWidget *, QKeyEvent *tecla) {
        if (tecla->text() != QLatin1String("'"))
          return false;
        QApplication::beep();
        return true;
      }) {}

namespace {

std::function<void(const QUrl &)> gAbridor;

bool EsExcepcion(QWidget *control, QWidget *ventana, const QStringList &excepciones) {
  for (QWidget *w = control; w; w = w->parentWidget()) {
    if (excepciones.contains(w->objectName()))
      return true;
    if (w == ventana)
      break;
  }
  return false;
}

} // namespace

EnterSiguiente::EnterSiguiente(QWidget *ventana, QStringList excepciones)
    : VistaPreviaTeclas(ventana, [ventana, excepciones](QWidget *control, QKeyEvent *tecla) {
        if (tecla->key() != Qt::Key_Return && tecla->key() != Qt::Key_Enter)
          return false;
        if (EsExcepcion(control, ventana, excepciones))
          return false;
        EnviarTab(control);
        return true;
      }) {}

void EnviarTab(QWidget *control) {
  // To the window, not the control: a date keeps a Tab of its own to move between day,
  // month and year, while the window moves the focus on from whatever control has it.
  QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
  QCoreApplication::sendEvent(control->window(), &tab);
}

RelojArena::RelojArena() { QApplication::setOverrideCursor(Qt::WaitCursor); }

RelojArena::~RelojArena() { QApplication::restoreOverrideCursor(); }

void AbrirArchivo(QWidget *ventana, const QString &ruta) {
  Q_UNUSED(ventana);
  AbrirDireccion(QUrl::fromLocalFile(RutaNativa(ruta)));
}

void AbrirDireccion(const QUrl &direccion) {
  if (gAbridor)
    gAbridor(direccion);
  else
    QDesktopServices::openUrl(direccion);
}

void InstalarAbridor(std::function<void(const QUrl &)> abridor) { gAbridor = std::move(abridor); }

Avance CrearAvance(QWidget *padre) {
  Avance a{new QProgressBar(padre), new QLabel(padre)};
  a.barra->setObjectName(QStringLiteral("prgAvance"));
  a.etiqueta->setObjectName(QStringLiteral("lblAvance"));
  for (QWidget *w : {static_cast<QWidget *>(a.barra), static_cast<QWidget *>(a.etiqueta)}) {
    QSizePolicy politica = w->sizePolicy();
    politica.setRetainSizeWhenHidden(true);
    w->setSizePolicy(politica);
    w->hide();
  }
  return a;
}
