#pragma once

#include "cli/Opciones.h"

namespace cli {

// escribano-cli empresas: the companies of the installation.
ComandoCli ComandoEmpresas();
// escribano-cli empresa nueva: a company created as the company screen creates it, its
// database built when it is new.
ComandoCli ComandoEmpresaNueva();

} // namespace cli
