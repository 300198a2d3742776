#pragma once

#include "cli/Opciones.h"

namespace cli {

constexpr int kSalidaSinFormato = 4; // the company has no export format (message 5522)
constexpr int kSalidaArchivo = 5;    // the file couldn't be written whole (message 5527)

// escribano-cli exportar: the journal entries of a period into a text file by the
// company's export format, as the export screen writes them.
ComandoCli ComandoExportar();

} // namespace cli
