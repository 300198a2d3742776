#pragma once

#include "shell/Dinero.h"

#include <QString>
#include <utility>
#include <vector>

class Conexion;

// The electronic services that the point of sale offers, switched on and prepared here:
// the services portal, payment with a bank card on a terminal with its promotions, mobile
// airtime, payment of services, remittances and loyalty on line. Airtime and payment of
// services also make the articles with which they are sold.
namespace servicios {

// ---------------------------------------------------------------- the portal
struct Portal {
  QString usuario, contrasena; // the password in plain
};
Portal CargarPortal(Conexion &con);
// Both given: the row written (password enciphered); both empty: the row deleted.
void GrabarPortal(Conexion &con, const Portal &portal);

// ---------------------------------------------------------------- the bank card
// The values of the provider that the service uses.
struct Tarjeta {
  bool activo = false;
  int proveedor = 0; // COD_PROVTC
  QString sitio, llave, empresa;
};
// On: the provider's statement; off: the service cleared and every terminal deleted.
void GrabarTarjeta(Conexion &con, const Tarjeta &tarjeta);

struct Promocion {
  int codigo = 0;
  QString descripcion;
  bool activa = false;
  Dinero minimo;
  int parciales = 0;
};
std::vector<Promocion> CargarPromociones(Conexion &con);
// One update a promotion; a deactivated one keeps a minimum of 0.
void GrabarPromociones(Conexion &con, const std::vector<Promocion> &promociones);
// The active promotions, which a terminal may offer.
std::vector<Promocion> PromocionesActivas(Conexion &con);

struct Terminal {
  bool existe = false;
  QString idCliente;
  std::vector<int> promociones; // those of the list given that it offers
};
Terminal LeerTerminal(Conexion &con, const QString &numero, const std::vector<Promocion> &activas);
// Adds a terminal with its promotions, or after the question replaces the promotions of
// one that exists. conIdCliente: the provider needs the customer's identifier. True when
// written.
bool AgregarTerminal(Conexion &con, const QString &numero, int proveedor, bool conIdCliente,
                     const QString &idCliente, const std::vector<int> &promociones);
// After the question, the terminal goes with what the cash points and promotions gave it.
bool EliminarTerminal(Conexion &con, const QString &numero);

// ---------------------------------------------------------------- airtime
// The operators' amounts, as (operator, amount in pesos, key): forty of them.
struct MontoTA {
  int empresa;
  int monto;
  QString clave;
};
std::vector<MontoTA> MontosTiempoAire();

struct TiempoAire {
  bool activo = false;
  int agrupacion = 0; // COD_AGR of the airtime articles
  int impuesto = 0;   // COD_IMP of their tax
  bool usa = false;   // sold in the USA rather than in Mexico
};
// On: operators, amounts and articles made again, the parameters saved; off: cleared.
void GrabarTiempoAire(Conexion &con, const TiempoAire &tiempoAire);
// The groupings that have no articles and aren't locked, and the one stored.
std::vector<std::pair<int, QString>> AgrupacionesDisponibles(Conexion &con, int almacenada);

// ---------------------------------------------------------------- the rest
// On needs a provider; it makes the commission's group, grouping and article.
void GrabarPagoServicios(Conexion &con, bool activo, int proveedor, int impuesto);
void GrabarRemesas(Conexion &con, bool activo);
// At the screen's opening: the loyalty row made, its state and address set.
void PrepararFidelizacion(Conexion &con);
// Whether loyalty on line is on; off, the token is cleared.
bool CargarFidelizacion(Conexion &con);
void GrabarFidelizacion(Conexion &con, bool activo);

} // namespace servicios
