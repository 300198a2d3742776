#include "shell/Pantallas.h"

#include "shell/Rutas.h"

#include <QApplication>
#include <QChildEvent>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QUrl>
#include <QWidget>

QString ColorFamilia() { return QStringLiteral("rgb(210, 230, 245)"); }

RechazoApostrofe::RechazoApostrofe(QWidget *ventana) : QObject(ventana) {
  // The window sees the key events of all its children through the application.
  qApp->installEventFilter(this);
}

bool RechazoApostrofe::eventFilter(QObject *objeto, QEvent *evento) {
  if (evento->type() != QEvent::KeyPress)
    return false;
  auto *w = qobject_cast<QWidget *>(objeto);
  auto *ventana = qobject_cast<QWidget *>(parent());
  if (!w || !ventana || (w != ventana && !ventana->isAncestorOf(w)))
    return false;
  auto *tecla = static_cast<QKeyEvent *>(evento);
  if (tecla->text() == QLatin1String("'")) {
    QApplication::beep();
    return true;
  }
  return false;
}

void AbrirArchivo(QWidget *ventana, const QString &ruta) {
  Q_UNUSED(ventana);
  QDesktopServices::openUrl(QUrl::fromLocalFile(RutaNativa(ruta)));
}
