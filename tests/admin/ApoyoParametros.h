#pragma once

// Support of the tests of the company's parameters.

#include "Apoyo.h"

// A column of the company's row of parameters, as text.
inline QString ValorParametro(const EmpresaPrueba &emp, const char *columna) {
  return emp.Valor(
      QStringLiteral("SELECT %1 FROM tblParametrosGenerales").arg(QLatin1String(columna)));
}
