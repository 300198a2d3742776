#pragma once

#include <QObject>
#include <QString>

class QWidget;

// The common kit of the screens: what every form of the family does alike.

// The family's pale blue (red 210, green 230, blue 245), as a style sheet fragment.
QString ColorFamilia();

// Swallows the apostrophe with a beep in every text field of a window, present and
// future: statements are built as text and values between apostrophes aren't escaped.
class RechazoApostrofe : public QObject {
public:
  explicit RechazoApostrofe(QWidget *ventana);

protected:
  bool eventFilter(QObject *objeto, QEvent *evento) override;
};

// Hands a file to the desktop to open (the help manual, a log); a failure isn't reported.
void AbrirArchivo(QWidget *ventana, const QString &ruta);
