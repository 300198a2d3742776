#pragma once

#include "shell/Dinero.h"

#include <QString>
#include <array>

class Conexion;

// The company's parameters that the family's point-of-sale modules read: the single row
// of tblParametrosGenerales and the tips of tblParamPropinas. This program keeps them on
// the family's behalf; it acts on none of them.
namespace parametros {

// The four tabs of "PARÁMETROS", as their controls hold them.
struct Parametros {
  // Sales.
  int limiteRenglones = 0; // LIM_RENVTA; 0 without limit
  int toleranciaPromo = 0; // PROM_TOLERA, minutes
  bool modificarFechaPedidos = false;
  int campanaRedondeo = 1; // CAMP_REDN: the key of the chosen campaign
  bool clienteEnVentas = false;
  bool imprimirRegimen = false;
  bool costoReposicion = false;
  int precioBase = 0;      // 0 before taxes, 1 with taxes
  int precioTruncar = 0;   // 0 rounds, 1 truncates
  int precioDecimales = 4; // 0 to 4
  bool meseroUnico = false, sinNumeroPersonas = false, comandasSinMesero = false;
  bool ordenTotal = false; // shown; always saved as 0
  bool incluirPropina = false;
  Dinero porcentajePropina, propinaDesde;
  // Invoicing.
  bool facturarMostrador = false, notaYFactura = false, folioPorEmpresa = false;
  bool descuentoCfdi = false, unidadCfdi = false, folioNumericoCfdi = false;
  bool activoIeps = false;
  bool cancelacionSat = false; // FE_CANCELASAT: no control, kept as read
  // Warehouse.
  bool alertaCaducidad = false;
  int diasCaducidad = 0, minutosCaducidad = 0;
  bool leerDocumentosAlmacen = false, loteEnVenta = false, inventarioSucursalPrincipal = false;
  // Purchasing.
  std::array<bool, 4> documentoCompras{}; // type of document, budget concept, currency, branch
  bool restringirPresupuesto = false;
  int previoCompra = 0; // CP_PREVIO: 0 "Remisión", 1 "Previo de Compra"
  bool recepcionSinPrevio = false;
  int diasBackorder = 0;     // CP_PLAZOBACK; 0 when not kept
  int actualizarPrecios = 0; // ACT_PRECOM: 0 no, 1 from the price, 2 from the cost
  int unidadPrecios = 1;     // UND_PRECOM: 1 the purchase unit, 2 all units
};

// Reads the row and the tips; a company without its row gives the defaults of the screen.
Parametros CargarParametros(Conexion &con);

// The company whose parameters are edited: its connection text and database name, as
// the general database holds them.
struct Empresa {
  QString conexion, baseDatos;
};

// The row of a company that has none, with its defaults: the user's branch, the
// company's connection for the receivables, invoicing of version 3.3 on. From 2018 the
// modules are then changed over to that version.
void AsegurarRenglon(Conexion &con, const Empresa &empresa);

// The statements of each tab, one each; the sales' run those of prices and restaurants.
void GrabarVentas(Conexion &con, const Parametros &p);
void GrabarPrecios(Conexion &con, const Parametros &p);
void GrabarRestaurante(Conexion &con, const Parametros &p);
void GrabarFacturacion(Conexion &con, const Parametros &p);
void GrabarAlmacen(Conexion &con, const Parametros &p);
void GrabarCompras(Conexion &con, const Parametros &p);

// Any of the four saving buttons: the row assured, the four tabs saved, and the box
// "Parámetros guardados".
void GrabarParametros(Conexion &con, const Empresa &empresa, const Parametros &p);

// "Previo de Compra" can't be the purchase document while any article has an expiry: the
// box says so, and the answer is false.
bool PrevioPermitido(Conexion &con);

} // namespace parametros
