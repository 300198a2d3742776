#pragma once

#include <QString>

class Conexion;

// The rows every company must have, inserted where they are missing and old values
// repaired: the way this program upgrades a company's data. Each step asks first, so a
// second run changes nothing.
namespace semillas {

// The region of the company as its screen saved it: codes and their texts.
struct Region {
  QString ciudad, textoCiudad;
  QString estado, textoEstado;
  QString pais, textoPais;
};

// Ways of payment, tax types and the exempt tax, the HOST profile with no permissions,
// the global item of electronic invoicing with its groups and unit, and the payment and
// service providers. motor is the company's engine.
void SembrarCatalogos(Conexion &con, int motor);

// The tail of saving a company: image paths moved under the program's Imagenes folder,
// the public customer placed in the company's region, the region's city, state and
// country created when missing, and an old column of the print settings renamed.
void SembrarRegion(Conexion &con, const Region &region);

// The two fiscal regimes a new company starts with, when it has none.
void SembrarRegimen(Conexion &con);

} // namespace semillas
