#pragma once

#include <QString>
#include <QToolBar>
#include <functional>
#include <vector>

class QAction;
class QWidget;

// One button of a screen's toolbar.
struct BotonBarra {
  QString clave;   // "NVO", "BUS", "GRB", "BOR", "AYU", "SAL", "VPR", "FLI", "FLD", or another
  QString leyenda; // caption under the picture ("F10"); may be empty
  QString tip;     // tool tip
  // What pressing it does. "AYU" opens the manual and "SAL" closes the window when the
  // screen gives nothing else; every other button needs its action.
  std::function<void()> accion = {};
};

// The toolbar of a screen. The screen declares its buttons, and the function keys press
// them anywhere in the window: F2 "NVO", F6 "BUS", F10 "GRB", F3 "BOR", F1 "AYU", Esc
// "SAL" and F5 "VPR" (a preview); the steps of a wizard go back with Alt+Left "FLI" and on
// with Alt+Right "FLD". A key
// presses its button only while the button and the toolbar are enabled, and then the key goes no
// further; a key whose button the screen hasn't goes on as usual.
class BarraPantalla : public QToolBar {
public:
  BarraPantalla(QWidget *ventana, const std::vector<BotonBarra> &botones);

  // The button of a key, to enable or disable it; nullptr when the screen hasn't it.
  QAction *Accion(const QString &clave) const;
  // Presses a button as its function key does; false when it is absent or disabled.
  bool Pulsar(const QString &clave);

  // The key of a button key (a Qt::Key with its modifiers), 0 for a key that has none.
  static int TeclaDe(const QString &clave);
};
