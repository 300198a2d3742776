#pragma once

#include "shell/CatalogoMensajes.h"

// Shows the messages of the catalogue in a message box over the active window, with
// the title, icon and buttons that each message asks for, and answers the button
// pressed. Closing the box answers as its last button (Cancelar or No), or Aceptar.
class PresentadorDialogo : public PresentadorMensajes {
public:
  RespuestaMensaje Presentar(const Mensaje &mensaje) override;
};
