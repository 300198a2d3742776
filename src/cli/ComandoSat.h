#pragma once

#include "cli/Opciones.h"

namespace cli {

constexpr int kSalidaSat = 8; // the SAT's file wasn't written: a datum of the company is wrong

// escribano-cli sat polizas: the month's entries as the SAT's "pólizas del periodo".
ComandoCli ComandoSatPolizas();
// escribano-cli sat catalogo: the chart of accounts with the SAT's grouping codes.
ComandoCli ComandoSatCatalogo();

} // namespace cli
