#pragma once

#include "shell/Dialecto.h"

#include <vector>

// The tables that the family's databases carry, as far as this program and the
// statements it sends name them. The builder turns them into DDL per engine.
namespace esquema {

using Tipo = TipoDato;

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
// The characters a text column of a company table holds; 0 for any other column.
int Largo(const char *tabla, const char *columna);
// Tables of the general database (Nimbar.mdb).
const std::vector<Tabla> &TablasGeneral();
// Tables of the reference database (Referencia.mdb).
const std::vector<Tabla> &TablasReferencia();

} // namespace esquema
