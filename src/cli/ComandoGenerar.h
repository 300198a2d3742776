#pragma once

#include "cli/Opciones.h"

namespace cli {

constexpr int kSalidaBitacoraExiste = 6;    // the log exists and --agregar wasn't given
constexpr int kSalidaGeneracionEnCurso = 7; // another run holds the company's generation

// escribano-cli generar: the generation run over a period, as the generation screen
// runs it, with the options of the screen given on the command line.
ComandoCli ComandoGenerar();

} // namespace cli
