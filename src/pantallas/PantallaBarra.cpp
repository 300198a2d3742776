#include "pantallas/PantallaBarra.h"

#include "pantallas/EditorFecha.h"
#include "pantallas/Pantallas.h"
#include "shell/Sesion.h"

#include <QAction>
#include <QKeyEvent>
#include <QStyle>
#include <array>

namespace {

struct TeclaBoton {
  const char *clave;
  QKeyCombination tecla;
  QStyle::StandardPixmap imagen;
};

constexpr std::array<TeclaBoton, 9> kTeclas = {{
    {"NVO", Qt::Key_F2, QStyle::SP_FileIcon},
    {"BUS", Qt::Key_F6, QStyle::SP_FileDialogContentsView},
    {"GRB", Qt::Key_F10, QStyle::SP_DialogSaveButton},
    {"BOR", Qt::Key_F3, QStyle::SP_TrashIcon},
    {"AYU", Qt::Key_F1, QStyle::SP_DialogHelpButton},
    {"SAL", Qt::Key_Escape, QStyle::SP_DialogCloseButton},
    {"VPR", Qt::Key_F5, QStyle::SP_FileDialogContentsView},
    // The steps of a wizard, back and on, as a browser goes through its pages.
    {"FLI", Qt::AltModifier | Qt::Key_Left, QStyle::SP_ArrowBack},
    {"FLD", Qt::AltModifier | Qt::Key_Right, QStyle::SP_ArrowForward},
}};

const TeclaBoton *Buscar(const QString &clave) {
  for (const TeclaBoton &t : kTeclas) {
    if (clave == QLatin1String(t.clave))
      return &t;
  }
  return nullptr;
}

} // namespace

BarraPantalla::BarraPantalla(QWidget *ventana, const std::vector<BotonBarra> &botones)
    : QToolBar(ventana) {
  setObjectName(QStringLiteral("tlbCatalogo"));
  setMovable(false);
  setFloatable(false);
  setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  for (const BotonBarra &b : botones) {
    QAction *a = addAction(b.leyenda);
    a->setObjectName(b.clave);
    a->setToolTip(b.tip);
    if (const TeclaBoton *t = Buscar(b.clave))
      a->setIcon(style()->standardIcon(t->imagen));
    std::function<void()> accion = b.accion;
    if (!accion && b.clave == QLatin1String("AYU"))
      accion = [ventana] { AbrirAyuda(ventana); };
    if (!accion && b.clave == QLatin1String("SAL"))
      accion = [ventana] { ventana->close(); };
    Q_ASSERT(accion);
    // A date being typed is settled first: no button works on the date shown before it.
    // Leaving gives the typing up instead, and the screen stays.
    const bool salir = b.clave == QLatin1String("SAL");
    connect(a, &QAction::triggered, this, [accion, salir] {
      if (EditorFecha::ConfirmarEnCurso(salir))
        accion();
    });
  }
  new VistaPreviaTeclas(ventana, [this](QWidget *, QKeyEvent *tecla) {
    // The arrows of the keypad are the same arrows.
    const int pulsada =
        QKeyCombination(tecla->modifiers() & ~Qt::KeypadModifier, Qt::Key(tecla->key()))
            .toCombined();
    for (QAction *a : actions()) {
      if (pulsada == TeclaDe(a->objectName()))
        return Pulsar(a->objectName());
    }
    return false;
  });
}

QAction *BarraPantalla::Accion(const QString &clave) const {
  for (QAction *a : actions()) {
    if (a->objectName() == clave)
      return a;
  }
  return nullptr;
}

bool BarraPantalla::Pulsar(const QString &clave) {
  QAction *a = Accion(clave);
  if (!a || !a->isEnabled() || !isEnabled())
    return false;
  a->trigger();
  return true;
}

int BarraPantalla::TeclaDe(const QString &clave) {
  const TeclaBoton *t = Buscar(clave);
  return t ? t->tecla.toCombined() : 0;
}
