#pragma once

// What differs between the operating systems the program runs on lives here, with every
// branch written; the rest of the code asks through these routines.

// True when the standard error goes to a terminal (progress is drawn there).
bool ErrorEsTerminal();

// Ends the process at once, as a power cut or the task manager would: no destructor
// runs, nothing is flushed, no transaction is confirmed or undone by the program.
[[noreturn]] void MatarProceso();
