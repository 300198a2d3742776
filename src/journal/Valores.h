#pragma once

#include "journal/Renglones.h"
#include "shell/Dinero.h"

#include <QString>
#include <array>
#include <vector>

struct Corrida;

// The data that only square the entry: whatever is missing to balance it.
bool EsDatoCuadre(int codDato);

// Declares Renglones anew, empty: before each document or day.
void CrearRenglones(Corrida &corrida);

// The column of the data dictionary that CampoEstBd names, from the reference database.
CampoTabla CampoDeDato(Corrida &corrida, int campoEstBd);
// The amount of a rule row through its dictionary column. The key is the document's
// folio by document and the day's date literal by day.
Dinero ValorDeCampo(Corrida &corrida, int renglon, const QString &clave);
// The amount of a rule row by the program's own table of cases.
Dinero ResolverDato(Corrida &corrida, int renglon, const QString &clave);

// Taxes and taxable bases of a sale (data 80 to 86 and 90 to 96).
Dinero ImpuestosVenta(Corrida &corrida, int dato, const QString &clave);
// Article amounts: each adds a line for every article and gives the sum of them.
Dinero VentaPorArticulo(Corrida &corrida, int renglon, const QString &clave,
                        const QString &expresion);
Dinero CostoPepsPorArticulo(Corrida &corrida, int renglon, const QString &clave);
Dinero AlmacenPorArticulo(Corrida &corrida, int renglon, bool conTipoCambio, const QString &clave);
Dinero CompraPorArticulo(Corrida &corrida, int dato, const QString &clave, int renglon);
// The loop of CompraPorArticulo over the lines it read, in article order.
Dinero AcumularCompras(Corrida &corrida, int dato, int renglon,
                       const std::vector<LineaCompra> &lineas);
// The cost of a purchase line: the quantity squared (the discounts never reach it).
Dinero CostoConDescuentos(Dinero cantidad, Dinero costo, const std::array<Dinero, 6> &descuentos);

// Adds a line to Renglones for a rule row, unless the amount is 0.
void AgregarRenglon(Corrida &corrida, Dinero importe, int renglon, const ParImportes &par);
// Adds the balancing lines of the entry in work, for the first n rule rows.
void CuadrarPoliza(Corrida &corrida, int n, ParImportes &par);
// True when a bank rule row meets an account of the period whose rubro is "0" or
// empty: the rule is then skipped.
bool VerificarBancos(Corrida &corrida, int n);
