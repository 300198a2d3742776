#pragma once

#include "cli/Opciones.h"

#include <QList>
#include <QStringList>
#include <QTextStream>

// Headless runs of the program: each command declares its options, reads them, works on
// the installation under --ruta and answers with an exit code.
namespace cli {

// Every command, in the order of the help.
const QList<ComandoCli> &TodosLosComandos();
// The program's help: how to call it, each command's synopsis and line, the exit codes.
QString AyudaGeneral();

int Ejecutar(const QStringList &args, const QString &rutaEjecutable, QTextStream &out,
             QTextStream &err);

} // namespace cli
