#pragma once

#include "cli/Opciones.h"

#include <QTextStream>

namespace cli {

constexpr int kSalidaSinFormato = 4; // the company has no export format (message 5522)
constexpr int kSalidaArchivo = 5;    // the file couldn't be written whole (message 5527)

// The command's lines of the usage text.
extern const char *const kUsoExportar;

// "exportar": the journal entries of a period into a text file by the company's export
// format, as the export screen writes them. The messages of the run go through the
// presenter in use; out gets the usage on bad options, and the file and its lines.
int Exportar(const Argumentos &a, QTextStream &out);

} // namespace cli
