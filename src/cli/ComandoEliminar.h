#pragma once

#include "cli/Opciones.h"

namespace cli {

// escribano-cli eliminar: the journal entries of a period, narrowed as on the deletion
// screen; listed, or deleted with --si.
ComandoCli ComandoEliminar();

} // namespace cli
