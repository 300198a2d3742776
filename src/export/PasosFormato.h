#pragma once

#include "export/FormatoArchivo.h"

#include <QString>
#include <array>

// The steps of the format screen without its widgets: what each step asks before the
// next, and the preview of the file with sample values. Everything works on the screen's
// controls as ControlesFormato holds them.

// The check of a step (1 to 6): true when the step may be left; otherwise mensaje gets
// what is missing, by the first check that fails. Step 6 is the last: it never passes,
// and says nothing.
bool ValidarPaso(const ControlesFormato &controles, int paso, QString &mensaje);

// True when an account level with digits follows a level of 0 digits: 4-3-3-0 passes,
// 4-0-3-0 doesn't.
bool NivelesIntermedios(const std::array<QString, 4> &txtFormato);

// A sample value fitted to the width and alignment of box indice (0 folio, 1 date, 2 type,
// 3 concept, 4 account, 5 debit, 6 credit). Unlike the file, the preview fills with "-",
// and amounts ("9.99") with "9" on the left.
QString CampoMuestra(const ControlesFormato &controles, const QString &valor, int indice);

// The sample account by the mask: "0000-000-000" for "Igual", else as many zeros as
// each level's digits, joined by the chosen separator.
QString CuentaMuestra(const ControlesFormato &controles);

// The twelve lines of the preview, joined by line ends, built as the writer builds a
// line: one row repeated, or head and detail rows in a fixed pattern.
QString ArmarVistaPrevia(const ControlesFormato &controles);

// What the preview shows before the first one is built.
QString VistaPreviaInicial();
