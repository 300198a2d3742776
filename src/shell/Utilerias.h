#pragma once

#include <QString>

// A work name unique enough for one user: hour, minute and second as two digits
// each, then gNumEmp ("09050712" at 09:05:07 in company 12).
QString FolioHora();

// Whether a character may stand in a company name, which becomes part of file
// names: -1 valid, 0 refused. Only " * / : < > ? \ | are refused.
int CaracterValido(int codigo);

// -1 when every character is valid; 0 at the first invalid one, and for an empty text.
int NombreValido(const QString &texto);
