#pragma once

#include <vector>

// The tables that the family's databases carry, as far as this program and the
// statements it sends name them. The builder turns them into DDL per engine.
namespace esquema {

enum class Tipo {
  Texto,     // VARCHAR(largo)
  Memo,      // long text
  Entero,    // whole number (INT)
  Largo,     // 64-bit whole number
  Logico,    // flag stored as 1 / -1 / 0
  Dinero,    // money, four decimals
  Decimal,   // other amounts or rates, four decimals
  Fecha,     // date
  FechaHora, // date and time
  Hora,      // time of day
  Contador,  // grows with each insertion (identity / auto increment)
};

struct Columna {
  const char *nombre;
  Tipo tipo;
  int largo = 0; // characters, for Texto
};

struct Indice {
  const char *nombre;
  std::vector<const char *> columnas;
};

struct Tabla {
  const char *nombre;
  std::vector<Columna> columnas;
  std::vector<Indice> indices = {};
};

// Tables of a company database.
const std::vector<Tabla> &TablasEmpresa();
// Tables of the general database (Nimbar.mdb).
const std::vector<Tabla> &TablasGeneral();
// Tables of the reference database (Referencia.mdb).
const std::vector<Tabla> &TablasReferencia();

} // namespace esquema
