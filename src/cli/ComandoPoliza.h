#pragma once

#include "cli/Opciones.h"

namespace cli {

// escribano-cli poliza: shows a journal entry with its lines (the first one of the
// company when no folio is given).
ComandoCli ComandoPoliza();

} // namespace cli
