#pragma once

#include "cli/Opciones.h"

#include <QTextStream>

namespace cli {

// escribano-cli poliza: shows a journal entry with its lines (the first one of the
// company when no folio is given).
ComandoCli ComandoPoliza();

// An entry as the poliza command shows it: its head, its lines with rubro, account, debit
// and credit, and its sums. Fatal when it doesn't exist.
void EscribirPoliza(QTextStream &out, Conexion &con, const QString &tipo, const QString &folio);

} // namespace cli
