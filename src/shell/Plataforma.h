#pragma once

// What differs between the operating systems the program runs on lives here, with every
// branch written; the rest of the code asks through these routines.

#include <QString>

// True when the standard error goes to a terminal (progress is drawn there).
bool ErrorEsTerminal();

// One line of the standard input. On a terminal the prompt goes to the standard error and
// what is typed is not shown (a password); from a pipe or a file the line is read as it
// comes. False in *leida when the input ended before any line.
QString LeerLineaSinEco(const QString &indicacion, bool *leida);

// Ends the process at once, as a power cut or the task manager would: no destructor
// runs, nothing is flushed, no transaction is confirmed or undone by the program.
[[noreturn]] void MatarProceso();
