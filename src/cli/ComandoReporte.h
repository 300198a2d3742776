#pragma once

#include "cli/Opciones.h"

namespace cli {

// escribano-cli reporte: the inquiry screen's reports of a period, as PDF or as the trace
// of their drawing.
ComandoCli ComandoReporte();

} // namespace cli
