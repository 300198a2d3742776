#pragma once

#include "cli/Opciones.h"

#include <QStringList>
#include <QTextStream>

// Headless runs of the program: each command reads its options, works on the
// installation under --ruta and answers with an exit code.
namespace cli {

int Demo(const Argumentos &a, QTextStream &out);
int Resumen(const Argumentos &a, QTextStream &out);

int Ejecutar(const QStringList &args, const QString &rutaEjecutable, QTextStream &out,
             QTextStream &err);

} // namespace cli
