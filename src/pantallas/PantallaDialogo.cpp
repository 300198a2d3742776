#include "pantallas/PantallaDialogo.h"

#include <QApplication>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>
#include <vector>

namespace {

QMessageBox::Icon Icono(IconoMensaje icono) {
  switch (icono) {
  case IconoMensaje::Ninguno:
    return QMessageBox::NoIcon;
  case IconoMensaje::Informacion:
    return QMessageBox::Information;
  case IconoMensaje::Advertencia:
    return QMessageBox::Warning;
  case IconoMensaje::Critico:
    return QMessageBox::Critical;
  case IconoMensaje::Pregunta:
    return QMessageBox::Question;
  }
  return QMessageBox::NoIcon;
}

struct Boton {
  QMessageBox::StandardButton estandar;
  const char *texto;
  RespuestaMensaje respuesta;
};

constexpr Boton kAceptar{QMessageBox::Ok, "Aceptar", RespuestaMensaje::Aceptar};
constexpr Boton kCancelar{QMessageBox::Cancel, "Cancelar", RespuestaMensaje::Cancelar};
constexpr Boton kSi{QMessageBox::Yes, "Sí", RespuestaMensaje::Si};
constexpr Boton kNo{QMessageBox::No, "No", RespuestaMensaje::No};

std::vector<Boton> Botones(BotonesMensaje botones) {
  switch (botones) {
  case BotonesMensaje::Aceptar:
    return {kAceptar};
  case BotonesMensaje::AceptarCancelar:
    return {kAceptar, kCancelar};
  case BotonesMensaje::SiNo:
    return {kSi, kNo};
  case BotonesMensaje::SiNoCancelar:
    return {kSi, kNo, kCancelar};
  }
  return {kAceptar};
}

} // namespace

RespuestaMensaje PresentadorDialogo::Presentar(const Mensaje &mensaje) {
  QWidget *padre = QApplication::activeModalWidget();
  if (!padre)
    padre = QApplication::activeWindow();
  QMessageBox caja(Icono(mensaje.icono), mensaje.titulo, mensaje.texto, QMessageBox::NoButton,
                   padre);
  // A window kept in front of the others (the login) keeps its messages in front too.
  if (padre && padre->windowFlags().testFlag(Qt::WindowStaysOnTopHint))
    caja.setWindowFlag(Qt::WindowStaysOnTopHint);
  const std::vector<Boton> botones = Botones(mensaje.botones);
  for (const Boton &b : botones)
    caja.addButton(b.estandar)->setText(QString::fromUtf8(b.texto));
  caja.setDefaultButton(mensaje.noPorOmision ? QMessageBox::No : botones.front().estandar);
  caja.setEscapeButton(botones.back().estandar);
  // A message shown during a long run comes with the arrow, not the hourglass.
  QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
  const int pulsado = caja.exec();
  QGuiApplication::restoreOverrideCursor();
  for (const Boton &b : botones) {
    if (pulsado == b.estandar)
      return b.respuesta;
  }
  return botones.back().respuesta;
}
