#include "db/DatosDemo.h"

#include "shell/Dinero.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace demo {
namespace {

// ---------------------------------------------------------------------------
// Statements
// ---------------------------------------------------------------------------

bool gMarcar = false;

// The apostrophe goes into the demo's text itself; it stands around no value of a statement.
QString Marcado(const QString &texto) {
  if (!gMarcar || texto.size() <= 4 ||
      std::none_of(texto.begin(), texto.end(), [](QChar c) { return c.isLetter(); }))
    return texto;
  return texto.left(1) + QStringLiteral("'") + texto.mid(2);
}

QString Txt(const QString &texto) {
  return QLatin1Char('\'') + Escapar(Marcado(texto)) + QLatin1Char('\'');
}
QString Txt(const char *texto) { return Txt(QString::fromUtf8(texto)); }
QString Num(qint64 n) { return QString::number(n); }
QString Din(Dinero d) { return d.Texto(); }

// One row: the table, its column list as the statement names it, and the values
// already written as literals.
void Insertar(Conexion &con, const char *tabla, const char *columnas, const QStringList &valores) {
  con.Ejecutar(
      QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
          .arg(QLatin1String(tabla), QLatin1String(columnas), valores.join(QLatin1Char(','))));
}

// ---------------------------------------------------------------------------
// Money
// ---------------------------------------------------------------------------

constexpr Dinero Centavos(std::int64_t centavos) { return Dinero::DeDiezmilesimos(centavos * 100); }
constexpr Dinero Veces(Dinero d, std::int64_t n) {
  return Dinero::DeDiezmilesimos(d.Diezmilesimos() * n);
}
constexpr Dinero kTasaIva = Dinero::DeDiezmilesimos(1600);           // 16 %
constexpr Dinero kTasaIeps = Dinero::DeDiezmilesimos(800);           // 8 %
constexpr Dinero kTasaIsr = Dinero::DeDiezmilesimos(1000);           // 10 %, withheld on rent
constexpr Dinero kFactorPeps = Dinero::DeDiezmilesimos(9800);        // oldest layers cost 2 % less
constexpr Dinero kDescuentoProveedor = Dinero::DeDiezmilesimos(300); // 3 %

// IVA withheld by a company that rents from a person: two thirds of the tax.
Dinero DosTercios(Dinero d) { return Round2(Dinero::DeDiezmilesimos(d.Diezmilesimos() * 2 / 3)); }

// ---------------------------------------------------------------------------
// Modules, operations and their data
// ---------------------------------------------------------------------------

struct Modulo {
  int cod;
  const char *des;
};

// Treasury is module 8: generation resolves a bank rubro under "1-01-02" to the
// account of the document only for rules of that module.
constexpr Modulo kModulos[] = {
    {1, "VENTAS"},
    {2, "CUENTAS POR COBRAR"},
    {3, "INVENTARIOS"},
    {4, "COMPRAS"},
    {5, "CUENTAS POR PAGAR"},
    {6, "GASTOS"},
    {7, "CAJA"},
    {8, "TESORERÍA"},
    // The accounting module itself keeps no documents; codes of 10 and up are never offered.
    {13, "INTERFAZ CONTABLE"},
};

struct Operacion {
  int cod;
  int modulo;
  bool generaCon; // the entry's text comes from the operation's catalogue of concepts
  const char *des;
};

constexpr Operacion kOperaciones[] = {
    {1, 1, false, "VENTAS DE CONTADO"},
    {2, 1, false, "VENTAS A CRÉDITO"},
    {3, 7, true, "INGRESOS DE EFECTIVO A CAJA"},
    {4, 7, true, "RETIROS DE CAJA"},
    {5, 7, true, "PAGO DE SERVICIOS EN CAJA"},
    {6, 2, true, "ABONOS DE CLIENTES"},
    {7, 2, true, "CARGOS A CLIENTES"},
    {8, 1, false, "DEVOLUCIÓN DE CLIENTE (GENERAR ANTICIPO)"},
    {9, 1, false, "DEVOLUCIÓN DE CLIENTE (REGRESO EFECTIVO)"},
    {10, 3, true, "ENTRADAS AL ALMACÉN"},
    {11, 3, true, "SALIDAS DEL ALMACÉN"},
    {12, 4, false, "RECEPCIÓN DE MERCANCÍA"},
    {13, 4, false, "RECEPCIÓN DE MATERIALES"},
    {14, 4, false, "RECEPCIÓN DE CONSUMIBLES"},
    {15, 4, false, "RECEPCIÓN DE SERVICIOS"},
    {16, 4, false, "DEVOLUCIÓN DE MERCANCÍA"},
    {17, 4, false, "DEVOLUCIÓN DE MATERIALES"},
    {18, 4, false, "DEVOLUCIÓN DE CONSUMIBLES"},
    {19, 4, false, "CARGOS EN COMPRAS"},
    {20, 5, true, "ABONOS A PROVEEDORES"},
    {21, 5, true, "CARGOS A PROVEEDORES"},
    {22, 6, true, "GASTOS"},
    {23, 6, true, "REPOSICIÓN DE CAJA CHICA"},
    {24, 8, true, "INGRESOS A BANCOS"},
    {25, 8, true, "EGRESOS DE BANCOS"},
    {26, 8, false, "CHEQUES A PROVEEDORES"},
    {27, 8, false, "CHEQUES A ACREEDORES"},
    {28, 8, false, "OTROS CHEQUES"},
    {29, 3, false, "INVENTARIO FÍSICO"},
    {30, 6, true, "ABONOS A ACREEDORES"},
};

struct Dato {
  int cod;
  int oper; // 12 stands for 12 to 15, 16 for 16 to 18, 24 for 24 to 28
  const char *des;
};

// Every datum that generation knows how to compute, and the balancing data (98 to 108,
// 133, 40, 71, 76, 204), one for each operation that can close an entry. Codes 117 to
// 126, 131, 132 and 176 to 197 are kept out of the rule screen. Operations 3, 4 and 5
// have no amount of their own: only the balancing datum.
constexpr Dato kDatos[] = {
    {1, 1, "Importe de la venta (subtotal e impuesto interno)"},
    {80, 1, "Venta exenta"},
    {81, 1, "Base gravada con IVA 16%"},
    {82, 1, "Base gravada con IEPS 8%"},
    {83, 1, "Base gravada con IVA tasa 0%"},
    {84, 1, "IVA 16% de la venta"},
    {85, 1, "IEPS 8% de la venta"},
    {86, 1, "IVA tasa 0% de la venta"},
    {97, 1, "Cobrado en caja (sin crédito ni tarjeta de la tienda)"},
    {98, 1, "Cuadre de la póliza"},
    {109, 1, "Costo de lo vendido"},
    {117, 1, "Venta por artículo"},
    {118, 1, "Costo de lo vendido por artículo"},
    {129, 1, "Costo PEPS de lo vendido"},
    {131, 1, "Costo PEPS por artículo"},

    {4, 2, "Importe de la venta a crédito (subtotal e impuesto interno)"},
    {90, 2, "Venta a crédito exenta"},
    {91, 2, "Base a crédito gravada con IVA 16%"},
    {92, 2, "Base a crédito gravada con IEPS 8%"},
    {93, 2, "Base a crédito gravada con IVA tasa 0%"},
    {94, 2, "IVA 16% de la venta a crédito"},
    {95, 2, "IEPS 8% de la venta a crédito"},
    {96, 2, "IVA tasa 0% de la venta a crédito"},
    {99, 2, "Cuadre de la póliza"},
    {110, 2, "Costo de lo vendido a crédito"},
    {119, 2, "Venta a crédito por artículo"},
    {120, 2, "Costo de lo vendido a crédito por artículo"},
    {130, 2, "Costo PEPS de lo vendido a crédito"},
    {132, 2, "Costo PEPS a crédito por artículo"},

    {100, 3, "Cuadre de la póliza"},
    {101, 4, "Cuadre de la póliza"},
    {102, 5, "Cuadre de la póliza"},

    {12, 6, "Importe del abono sin IVA"},
    {103, 6, "Cuadre de la póliza"},
    {15, 7, "Importe del cargo sin IVA"},
    {104, 7, "Cuadre de la póliza"},

    {127, 8, "Costo de la mercancía devuelta"},
    {105, 8, "Cuadre de la póliza"},
    {128, 9, "Costo de la mercancía devuelta"},
    {106, 9, "Cuadre de la póliza"},

    {22, 10, "Costo total de la entrada"},
    {107, 10, "Cuadre de la póliza"},
    {111, 10, "Diferencia cambiaria de la entrada"},
    {121, 10, "Costo por artículo con tipo de cambio"},
    {122, 10, "Costo por artículo"},
    {23, 11, "Costo total de la salida"},
    {108, 11, "Cuadre de la póliza"},
    {113, 11, "Diferencia cambiaria de la salida"},
    {123, 11, "Costo por artículo con tipo de cambio"},
    {124, 11, "Costo por artículo"},

    {133, 12, "Cuadre de la póliza"},
    {134, 12, "Importe de la recepción"},
    {135, 12, "Descuento"},
    {136, 12, "Subtotal"},
    {137, 12, "IVA"},
    {138, 12, "Cargos de la recepción"},
    {139, 12, "Impuesto de los cargos"},
    {140, 12, "Retenciones"},
    {141, 12, "Total del documento"},
    {142, 12, "Total a pagar al proveedor"},
    {147, 12, "Diferencia cambiaria del importe"},
    {148, 12, "Diferencia cambiaria del descuento"},
    {149, 12, "Diferencia cambiaria del subtotal"},
    {150, 12, "Diferencia cambiaria del IVA"},
    {151, 12, "Diferencia cambiaria de los cargos"},
    {152, 12, "Diferencia cambiaria del impuesto de los cargos"},
    {153, 12, "Diferencia cambiaria de las retenciones"},
    {154, 12, "Diferencia cambiaria del total"},
    {155, 12, "Diferencia cambiaria del total al proveedor"},
    {176, 12, "Importe por artículo"},
    {177, 12, "Costo con descuentos por artículo"},
    {178, 12, "Costo de compra por artículo"},
    {179, 12, "Arancel por artículo"},
    {180, 12, "Importe por artículo con tipo de cambio"},
    {181, 12, "Costo con descuentos por artículo con tipo de cambio"},
    {182, 12, "Costo de compra por artículo con tipo de cambio"},
    {183, 12, "Arancel por artículo con tipo de cambio"},
    {184, 12, "Diferencia cambiaria del importe por artículo"},
    {185, 12, "Diferencia cambiaria del costo con descuentos"},
    {186, 12, "Diferencia cambiaria del costo de compra"},
    {187, 12, "Diferencia cambiaria del arancel"},

    {163, 16, "Subtotal de la devolución"},
    {164, 16, "IVA de la devolución"},
    {165, 16, "Total de la devolución"},
    {166, 16, "Diferencia cambiaria del subtotal"},
    {167, 16, "Diferencia cambiaria del IVA"},
    {168, 16, "Diferencia cambiaria del total"},
    {188, 16, "Importe devuelto por artículo"},
    {189, 16, "Impuesto 1 devuelto por artículo"},
    {190, 16, "Impuesto 2 devuelto por artículo"},
    {191, 16, "Importe devuelto por artículo con tipo de cambio"},
    {192, 16, "Impuesto 1 por artículo con tipo de cambio"},
    {193, 16, "Impuesto 2 por artículo con tipo de cambio"},
    {194, 16, "Diferencia cambiaria del importe por artículo"},
    {195, 16, "Diferencia cambiaria del impuesto 1 por artículo"},
    {196, 16, "Diferencia cambiaria del impuesto 2 por artículo"},
    {197, 16, "Total devuelto por artículo"},

    {36, 20, "Importe del abono sin IVA"},
    {40, 20, "Cuadre de la póliza"},
    {41, 21, "Importe del cargo sin IVA"},

    {68, 22, "Importe del gasto (antes de IVA y retenciones)"},
    {71, 22, "Cuadre de la póliza"},

    {72, 23, "Total de la reposición"},
    {73, 23, "Importe de los comprobantes"},
    {74, 23, "Retención de IVA"},
    {75, 23, "IVA de los comprobantes"},
    {76, 23, "Cuadre de la póliza"},
    {206, 23, "Retención de ISR"},

    {202, 24, "Importe del movimiento"},
    {203, 24, "Diferencia cambiaria del movimiento"},
    {204, 24, "Cuadre de la póliza"},

    {125, 29, "Sobrante por artículo"},
    {126, 29, "Faltante por artículo"},

    {198, 30, "Importe del abono (antes de IVA y retenciones)"},
};

// ---------------------------------------------------------------------------
// Journal types, chart of rubros, bank accounts
// ---------------------------------------------------------------------------

struct TipoPoliza {
  const char *cod;
  const char *des;
  int num; // COD_NUM: the journal's number in the accounting package
};

constexpr TipoPoliza kTiposPoliza[] = {
    {"I", "INGRESOS", 1}, {"E", "EGRESOS", 2},     {"D", "DIARIO", 3},
    {"O", "ORDEN", 4},    {"S", "ESTADÍSTICA", 5},
};

struct Rubro {
  const char *cod;
  const char *des;
  const char *cuenta; // account of the package, mask 4-3-3
  int sub = 0;        // not 0: the company may open rubros of its own under it
};

// Parent and last level follow from the codes; type, statement and nature from the
// first section.
constexpr Rubro kRubros[] = {
    {"1", "ACTIVO", "1000-000-000"},
    {"1-01", "ACTIVO CIRCULANTE", "1100-000-000"},
    {"1-01-01", "CAJA", "1101-000-000"},
    {"1-01-01-01", "CAJA GENERAL", "1101-001-000"},
    {"1-01-01-02", "FONDO FIJO DE CAJA CHICA", "1101-002-000"},
    {"1-01-02", "BANCOS", "1102-000-000", 1},
    {"1-01-02-01", "BBVA MÉXICO CTA. 0112233445", "1102-001-000"},
    {"1-01-02-02", "BANORTE CTA. 0556677889", "1102-002-000"},
    {"1-01-03", "CLIENTES", "1103-000-000", 1},
    {"1-01-04", "DEUDORES DIVERSOS", "1104-000-000", 1},
    {"1-01-05", "TARJETAS DE CRÉDITO POR COBRAR", "1105-000-000"},
    {"1-01-06", "INVENTARIOS", "1106-000-000"},
    {"1-01-06-01", "INVENTARIO DE MERCANCÍAS", "1106-001-000"},
    {"1-01-06-02", "INVENTARIO DE ALIMENTOS Y BEBIDAS", "1106-002-000"},
    {"1-01-07", "IVA ACREDITABLE", "1107-000-000"},
    {"1-01-07-01", "IVA ACREDITABLE PAGADO", "1107-001-000"},
    {"1-01-07-02", "IVA PENDIENTE DE ACREDITAR", "1107-002-000"},
    {"1-02", "ACTIVO FIJO", "1200-000-000"},
    {"1-02-01", "MOBILIARIO Y EQUIPO", "1201-000-000"},
    {"1-02-02", "EQUIPO DE COCINA", "1202-000-000"},
    {"1-02-03", "EQUIPO DE CÓMPUTO", "1203-000-000"},
    {"2", "PASIVO", "2000-000-000"},
    {"2-01", "PASIVO A CORTO PLAZO", "2100-000-000"},
    {"2-01-01", "PROVEEDORES", "2101-000-000", 1},
    {"2-01-01-01", "PROVEEDORES NACIONALES", "2101-001-000"},
    {"2-01-02", "ACREEDORES DIVERSOS", "2102-000-000", 1},
    {"2-01-03", "IMPUESTOS POR PAGAR", "2103-000-000"},
    {"2-01-03-01", "IVA TRASLADADO", "2103-001-000"},
    {"2-01-03-02", "IVA POR TRASLADAR", "2103-002-000"},
    {"2-01-03-03", "IEPS TRASLADADO", "2103-003-000"},
    {"2-01-03-04", "IEPS POR TRASLADAR", "2103-004-000"},
    {"2-01-03-05", "IVA RETENIDO", "2103-005-000"},
    {"2-01-03-06", "ISR RETENIDO", "2103-006-000"},
    {"2-01-04", "PROPINAS POR PAGAR", "2104-000-000"},
    {"2-01-05", "ANTICIPOS DE CLIENTES", "2105-000-000"},
    {"3", "CAPITAL CONTABLE", "3000-000-000"},
    {"3-01", "CAPITAL SOCIAL", "3100-000-000"},
    {"3-02", "RESULTADO DE EJERCICIOS ANTERIORES", "3200-000-000"},
    {"4", "INGRESOS", "4000-000-000"},
    {"4-01", "VENTAS", "4100-000-000", 1},
    {"4-01-01", "VENTAS DE CONTADO", "4101-000-000"},
    {"4-01-02", "VENTAS A CRÉDITO", "4102-000-000"},
    {"4-02", "DEVOLUCIONES Y DESCUENTOS SOBRE VENTAS", "4200-000-000"},
    {"4-02-01", "DEVOLUCIONES SOBRE VENTAS", "4201-000-000"},
    {"4-02-02", "DESCUENTOS SOBRE VENTAS", "4202-000-000"},
    {"4-03", "OTROS INGRESOS", "4300-000-000"},
    {"5", "COSTOS", "5000-000-000"},
    {"5-01", "COSTO DE VENTAS", "5100-000-000"},
    {"5-02", "DEVOLUCIONES Y DESCUENTOS SOBRE COMPRAS", "5200-000-000"},
    {"5-02-01", "DEVOLUCIONES SOBRE COMPRAS", "5201-000-000"},
    {"5-02-02", "DESCUENTOS SOBRE COMPRAS", "5202-000-000"},
    {"6", "GASTOS", "6000-000-000"},
    {"6-01", "GASTOS DE OPERACIÓN", "6100-000-000", 1},
    {"6-01-01", "RENTA DEL LOCAL", "6101-000-000"},
    {"6-01-02", "ENERGÍA ELÉCTRICA", "6102-000-000"},
    {"6-01-03", "GAS", "6103-000-000"},
    {"6-01-04", "AGUA POTABLE", "6104-000-000"},
    {"6-01-05", "TELÉFONO E INTERNET", "6105-000-000"},
    {"6-01-06", "PAPELERÍA Y ARTÍCULOS DE OFICINA", "6106-000-000"},
    {"6-01-07", "MANTENIMIENTO DEL LOCAL", "6107-000-000"},
    {"6-01-08", "ARTÍCULOS DE LIMPIEZA", "6108-000-000"},
    {"6-02", "GASTOS FINANCIEROS", "6200-000-000"},
    {"6-03", "OTROS GASTOS", "6300-000-000"},
};

// The SAT's grouping code of each rubro of the demo, for its electronic accounting.
struct CodigoSat {
  const char *rubro;
  const char *agrupador;
};
constexpr CodigoSat kCodigosSat[] = {
    {"1", "100"},
    {"1-01", "100.01"},
    {"1-01-01", "101"},
    {"1-01-01-01", "101.01"},
    {"1-01-01-02", "101.01"},
    {"1-01-02", "102"},
    {"1-01-02-01", "102.01"},
    {"1-01-02-02", "102.01"},
    {"1-01-03", "105.01"},
    {"1-01-04", "107.05"},
    {"1-01-05", "107.05"},
    {"1-01-06", "115"},
    {"1-01-06-01", "115.01"},
    {"1-01-06-02", "115.01"},
    {"1-01-07", "118"},
    {"1-01-07-01", "118.01"},
    {"1-01-07-02", "119.01"},
    {"1-02", "100.02"},
    {"1-02-01", "155.01"},
    {"1-02-02", "153.01"},
    {"1-02-03", "156.01"},
    {"2", "200"},
    {"2-01", "200.01"},
    {"2-01-01", "201"},
    {"2-01-01-01", "201.01"},
    {"2-01-02", "205.06"},
    {"2-01-03", "208"},
    {"2-01-03-01", "208.01"},
    {"2-01-03-02", "209.01"},
    {"2-01-03-03", "208.04"},
    {"2-01-03-04", "209.04"},
    {"2-01-03-05", "216.10"},
    {"2-01-03-06", "216.04"},
    {"2-01-04", "205.06"},
    {"2-01-05", "206.01"},
    {"3", "300"},
    {"3-01", "301.01"},
    {"3-02", "304.01"},
    {"4", "400"},
    {"4-01", "401"},
    {"4-01-01", "401.01"},
    {"4-01-02", "401.01"},
    {"4-02", "402"},
    {"4-02-01", "402.01"},
    {"4-02-02", "402.01"},
    {"4-03", "403.04"},
    {"5", "500"},
    {"5-01", "501.01"},
    {"5-02", "503"},
    {"5-02-01", "503.01"},
    {"5-02-02", "503.01"},
    {"6", "600"},
    {"6-01", "601"},
    {"6-01-01", "601.45"},
    {"6-01-02", "601.48"},
    {"6-01-03", "601.84"},
    {"6-01-04", "601.49"},
    {"6-01-05", "601.50"},
    {"6-01-06", "601.56"},
    {"6-01-07", "601.84"},
    {"6-01-08", "601.84"},
    {"6-02", "701.10"},
    {"6-03", "703.21"},
};

std::string_view PadreDe(std::string_view cod) {
  const auto guion = cod.rfind('-');
  return guion == std::string_view::npos ? std::string_view() : cod.substr(0, guion);
}

bool TieneHijos(std::string_view cod) {
  for (const Rubro &r : kRubros)
    if (PadreDe(r.cod) == cod)
      return true;
  return false;
}

const char *TipoCuenta(std::string_view cod) {
  switch (cod.front()) {
  case '1':
    return "ACTIVO";
  case '2':
    return "PASIVO";
  case '3':
    return "CAPITAL";
  case '4':
    return "INGRESOS";
  case '5':
    return "COSTOS";
  default:
    return "GASTOS";
  }
}

const char *EstadoFinanciero(std::string_view cod) {
  return cod.front() <= '3' ? "BALANCE GENERAL" : "ESTADO DE RESULTADOS";
}

// Returns on sales and discounts on purchases run against the nature of their section.
const char *Naturaleza(std::string_view cod) {
  if (cod.starts_with("4-02"))
    return "DEUDORA";
  if (cod.starts_with("5-02"))
    return "ACREEDORA";
  const char s = cod.front();
  return (s == '1' || s == '5' || s == '6') ? "DEUDORA" : "ACREEDORA";
}

const Rubro &RubroDe(const char *cod) {
  for (const Rubro &r : kRubros)
    if (std::strcmp(r.cod, cod) == 0)
      return r;
  throw ErrorFatal(QStringLiteral("El rubro %1 no está en el catálogo de la demostración.")
                       .arg(QLatin1String(cod)));
}

struct CuentaBanco {
  const char *rubro;
  const char *numero; // NUM_CUENTA, as the treasury's movements carry it
};

constexpr CuentaBanco kBbva = {"1-01-02-01", "0112233445"};
constexpr CuentaBanco kBanorte = {"1-01-02-02", "0556677889"};
constexpr CuentaBanco kCuentas[] = {kBbva, kBanorte};

// ---------------------------------------------------------------------------
// Taxes and forms of payment
// ---------------------------------------------------------------------------

constexpr int kExento = 0;
constexpr int kIva = 1;
constexpr int kIeps = 2;
constexpr int kIvaCero = 3;

struct Impuesto {
  int cod;
  const char *des;
  int por;
  int grava;
  int tipo; // tblTipoImpuesto
  const char *cfdi;
};

// The three taxes that generation takes are the first three codes other than 0.
constexpr Impuesto kImpuestos[] = {
    {kExento, "EXENTO", 0, 0, 0, ""},
    {kIva, "IVA 16%", 16, 1, 1, "002"},
    {kIeps, "IEPS 8%", 8, 1, 2, "003"},
    {kIvaCero, "IVA TASA 0%", 0, 1, 1, "002"},
};

struct TipoImpuesto {
  int cod;
  const char *des;
  const char *cfdi;
};

constexpr TipoImpuesto kTiposImpuesto[] = {
    {0, "EXENTO", ""},         {1, "IVA", "002"}, {2, "IEPS", "003"},
    {3, "IMPUESTO LOCAL", ""}, {4, "ISR", "001"},
};

constexpr int kEfectivo = 1;
constexpr int kTarjetaCredito = 4;
constexpr int kCredito = 5;

// The family's forms of payment, as every company receives them.
constexpr const char *kFormasPago[] = {
    "1,'EFECTIVO',1,0,0,1,0,0,1,1,'',0,0,0,'Efectivo','01'",
    "2,'CHEQUE BANCARIO',4,1,1,0,0,0,0,0,'',0,0,0,'Cheque nominativo','02'",
    "3,'CHEQUE GOBIERNO',4,0,1,1,0,0,0,0,'',0,0,0,'Cheque nominativo','02'",
    "4,'TARJETA DE CREDITO',2,1,1,0,0,0,0,0,'',0,0,0,'Tarjeta de crédito','04'",
    "5,'CREDITO',0,1,0,0,0,0,0,0,'',0,0,0,'Por definir','99'",
    "6,'TARJETA DE LA TIENDA',3,0,1,0,0,0,0,0,'',0,0,0,'Por definir','99'",
};

// ---------------------------------------------------------------------------
// Catalogues of concepts
// ---------------------------------------------------------------------------

struct Concepto {
  const char *cod;
  const char *des;
  const char *grupo; // COD_CON, TIP_MOV or COD_FOL by catalogue; unused for services
};

constexpr Concepto kConceptosIE[] = {
    {"FOND", "FONDO INICIAL DE CAJA", "IEFE"},
    {"CAMB", "CAMBIO PARA CAJA", "IEFE"},
    {"RETG", "RETIRO PARA GASTOS MENORES", "RCAJ"},
    {"RETP", "RETIRO PARA PAGO A PROVEEDOR", "RCAJ"},
};

constexpr Concepto kServicios[] = {
    {"TELC", "RECARGAS TELCEL", ""},
    {"CFE", "PAGO DE LUZ CFE", ""},
    {"AGUA", "PAGO DE AGUA SIAPA", ""},
};

constexpr Concepto kConceptos[] = {
    {"PAGO", "PAGO DE CLIENTE", "ACLI"},
    {"NCRE", "NOTA DE CRÉDITO A CLIENTE", "ACLI"},
    {"INTM", "INTERESES MORATORIOS", "CCLI"},
    {"CHDE", "CHEQUE DEVUELTO", "CCLI"},
    {"EAJU", "ENTRADA POR AJUSTE", "EALM"},
    {"ETRA", "ENTRADA POR TRASPASO", "EALM"},
    {"SCON", "SALIDA A CONSUMO DE COCINA", "SALM"},
    {"SMER", "SALIDA POR MERMA", "SALM"},
};

constexpr Concepto kConceptosCom[] = {
    {"PAGO", "PAGO A PROVEEDOR", "ACXP"},
    {"NCPR", "NOTA DE CRÉDITO DE PROVEEDOR", "ACXP"},
    {"FLET", "FLETES DEL PROVEEDOR", "CCXP"},
    {"INTP", "INTERESES DEL PROVEEDOR", "CCXP"},
};

constexpr Concepto kConceptosGyT[] = {
    {"RENT", "RENTA DEL LOCAL D'ANGELO", "GTOS"},
    {"LUZ", "ENERGÍA ELÉCTRICA", "GTOS"},
    {"GAS", "GAS LP", "GTOS"},
    {"AGUA", "AGUA POTABLE", "GTOS"},
    {"TELE", "TELÉFONO E INTERNET", "GTOS"},
    {"PAPE", "PAPELERÍA Y ARTÍCULOS DE OFICINA", "GTOS"},
    {"MANT", "MANTENIMIENTO DEL LOCAL", "GTOS"},
    {"LIMP", "ARTÍCULOS DE LIMPIEZA", "GTOS"},
    {"DEPV", "DEPÓSITO DE VENTAS EN EFECTIVO", "INGR"},
    {"DTAR", "ABONO DE VENTAS CON TARJETA", "INGR"},
    {"COBR", "COBRANZA DE CLIENTES", "INGR"},
    {"INTB", "INTERESES BANCARIOS", "INGR"},
    {"COMB", "COMISIONES BANCARIAS", "EGRE"},
    {"CHQE", "CHEQUES", "EGRE"},
    {"ABAC", "ABONO A ACREEDOR", "AACR"},
};

constexpr Concepto kCargosEnCompras[] = {
    {"FLE", "FLETES", ""},
    {"SEG", "SEGUROS", ""},
    {"MAN", "MANIOBRAS", ""},
};

// ---------------------------------------------------------------------------
// Articles, stores, customers
// ---------------------------------------------------------------------------

struct Articulo {
  const char *cod;
  const char *des;
  const char *unidad;
  Dinero precio; // before taxes
  Dinero costo;
  int imp1; // tax of the first slot: IVA or IVA at 0 %
  int imp2; // tax of the second slot: IEPS or none
  const char *cfdi;
};

// What the restaurant serves and the shop sells.
constexpr Articulo kVenta[] = {
    {"COM001", "COMIDA CORRIDA DEL DÍA", "ORD", Centavos(8190), Centavos(3420), kIva, 0,
     "90101501"},
    {"COM002", "ENCHILADAS SUIZAS", "ORD", Centavos(7672), Centavos(2865), kIva, 0, "90101501"},
    {"COM003", "CHILAQUILES CON POLLO", "ORD", Centavos(6810), Centavos(2480), kIva, 0, "90101501"},
    {"COM004", "TACOS DE BISTEC (3 PIEZAS)", "ORD", Centavos(7328), Centavos(3015), kIva, 0,
     "90101501"},
    {"COM005", "POZOLE ROJO", "ORD", Centavos(7931), Centavos(2990), kIva, 0, "90101501"},
    {"BEB001", "AGUA FRESCA 1 L", "PZA", Centavos(3017), Centavos(740), kIva, 0, "50202300"},
    {"BEB002", "CAFÉ DE OLLA", "PZA", Centavos(2414), Centavos(535), kIva, 0, "90101501"},
    {"BEB003", "REFRESCO 600 ML", "PZA", Centavos(1897), Centavos(1160), kIva, 0, "50202306"},
    {"ABA001", "TORTILLA DE MAÍZ", "KG", Centavos(2400), Centavos(1750), kIvaCero, 0, "50221300"},
    {"ABA002", "FRIJOL NEGRO 1 KG", "PZA", Centavos(4250), Centavos(3120), kIvaCero, 0, "50221101"},
    {"ABA003", "ARROZ SÚPER EXTRA 1 KG", "PZA", Centavos(3200), Centavos(2370), kIvaCero, 0,
     "50221102"},
    {"ABA004", "HUEVO BLANCO 18 PIEZAS", "PZA", Centavos(6150), Centavos(4890), kIvaCero, 0,
     "50131600"},
    {"ABA005", "PAPAS FRITAS 45 G", "PZA", Centavos(1529), Centavos(985), kIva, kIeps, "50192100"},
    {"ABA006", "CHOCOLATE DE MESA 90 G", "PZA", Centavos(1833), Centavos(1140), kIva, kIeps,
     "50161813"},
    {"ABA007", "GALLETAS DE MANTEQUILLA 170 G", "PZA", Centavos(2145), Centavos(1370), kIva, kIeps,
     "50181900"},
    {"ABA008", "JABÓN DE TOCADOR 150 G", "PZA", Centavos(1724), Centavos(1095), kIva, 0,
     "53131608"},
    {"ABA009", "SAL DE MESA 1 KG", "PZA", Centavos(1350), Centavos(890), kIvaCero, 0, "50171550"},
};

// Raw materials of the kitchen: bought and issued by the store, never sold.
constexpr Articulo kMateriaPrima[] = {
    {"MPR001", "PECHUGA DE POLLO", "KG", {}, Centavos(11200), kIvaCero, 0, "50112004"},
    {"MPR002", "BISTEC DE RES", "KG", {}, Centavos(18950), kIvaCero, 0, "50112001"},
    {"MPR003", "QUESO FRESCO", "KG", {}, Centavos(12400), kIvaCero, 0, "50131800"},
    {"MPR004", "CHILE GUAJILLO", "KG", {}, Centavos(9600), kIvaCero, 0, "50403800"},
    {"MPR005", "ACEITE VEGETAL 1 L", "PZA", {}, Centavos(4180), kIvaCero, 0, "50151513"},
};

// Materials, consumables and services: receipts of types 2, 3 and 4.
constexpr Articulo kInsumos[] = {
    {"INS001",
     "BOLSA DE PLÁSTICO CHICA (100 PIEZAS)",
     "PAQ",
     {},
     Centavos(3850),
     kIva,
     0,
     "24111503"},
    {"INS002", "CHAROLA DESECHABLE (50 PIEZAS)", "PAQ", {}, Centavos(6400), kIva, 0, "52151500"},
    {"SRV001", "SERVICIO DE FUMIGACIÓN", "SER", {}, Centavos(85000), kIva, 0, "70141605"},
};

constexpr std::span<const Articulo> kCatalogosArticulos[] = {kVenta, kMateriaPrima, kInsumos};

const Articulo &ArticuloDe(const char *cod) {
  for (std::span<const Articulo> catalogo : kCatalogosArticulos)
    for (const Articulo &a : catalogo)
      if (std::strcmp(a.cod, cod) == 0)
        return a;
  throw ErrorFatal(QStringLiteral("El artículo %1 no está en el catálogo de la demostración.")
                       .arg(QLatin1String(cod)));
}

constexpr const char *kClientes[] = {"PUBLIC", "C0001", "C0002", "C0003", "C0004", "C0005"};

// ---------------------------------------------------------------------------
// Posting rules
// ---------------------------------------------------------------------------

struct RenglonRegla {
  int dato;
  const char *debe;  // COD_RUBRO, or empty
  const char *haber; // COD_RUBRO, or empty
};

struct Regla {
  int modulo;
  int oper;
  const char *concepto;
  const char *tipo; // COD_FOLIO
  int frec;         // 1 by document, 2 by day
  std::span<const RenglonRegla> renglones;
};

// Rows go in order of COD_DATO, as the rule screen saves them.

// A cash sale: what came into the till, against sales and taxes; what was paid above the
// ticket is the tip, which the balancing datum credits to the waiters.
constexpr RenglonRegla kVentaContado[] = {
    {1, "", "4-01-01"},     {84, "", "2-01-03-01"}, {85, "", "2-01-03-03"},
    {97, "1-01-01-01", ""}, {98, "", "2-01-04"},    {109, "5-01", "1-01-06-01"},
};
// The day's credit sales: each amount charged to customers as it is credited.
constexpr RenglonRegla kVentaCredito[] = {
    {4, "1-01-03", "4-01-02"},
    {94, "1-01-03", "2-01-03-02"},
    {95, "1-01-03", "2-01-03-04"},
    {110, "5-01", "1-01-06-01"},
};
// A receipt of merchandise; the supplier takes the balance.
constexpr RenglonRegla kRecepcion[] = {
    {133, "", "2-01-01-01"},
    {134, "1-01-06-01", ""},
    {135, "", "5-02-02"},
    {137, "1-01-07-02", ""},
};
// Expenses carry one amount, before IVA and withholdings.
constexpr RenglonRegla kRenta[] = {{68, "6-01-01", ""}, {71, "", "2-01-02"}};
constexpr RenglonRegla kPapeleria[] = {{68, "6-01-06", ""}, {71, "", "1-01-01-02"}};
// The bank side names the rubro of one account; generation puts the account of the
// movement in its place.
constexpr RenglonRegla kDeposito[] = {{202, "1-01-02-01", ""}, {204, "", "1-01-01-01"}};
constexpr RenglonRegla kCobranza[] = {{202, "1-01-02-02", ""}, {204, "", "1-01-03"}};
// Operations 26 to 28 have a single datum.
constexpr RenglonRegla kChequeProveedor[] = {{202, "2-01-01-01", "1-01-02-01"}};

// Operations without a catalogue of concepts have one rule each: cash sales, purchases
// and cheques to suppliers go by document, credit sales by day. Expenses and bank income
// have one concept of each frequency. Module 8 rules are offered only by document on the
// rule screen; the by-day rule of collections is written here so that generation meets
// a bank rule posted by day.
constexpr Regla kReglas[] = {
    {1, 1, "", "I", 1, kVentaContado},   {1, 2, "", "D", 2, kVentaCredito},
    {4, 12, "", "D", 1, kRecepcion},     {6, 22, "RENT", "E", 1, kRenta},
    {6, 22, "PAPE", "E", 2, kPapeleria}, {8, 24, "DEPV", "I", 1, kDeposito},
    {8, 24, "COBR", "I", 2, kCobranza},  {8, 26, "", "E", 1, kChequeProveedor},
};

const char *DescripcionDeConcepto(int oper, const char *concepto) {
  auto buscar = [concepto](const auto &catalogo) -> const char * {
    for (const Concepto &c : catalogo)
      if (std::strcmp(c.cod, concepto) == 0)
        return c.des;
    return nullptr;
  };
  switch (oper) {
  case 3:
  case 4:
    return buscar(kConceptosIE);
  case 5:
    return buscar(kServicios);
  case 6:
  case 7:
  case 10:
  case 11:
    return buscar(kConceptos);
  case 19:
    return buscar(kCargosEnCompras);
  case 20:
  case 21:
    return buscar(kConceptosCom);
  case 22:
  case 23:
  case 24:
  case 25:
  case 30:
    return buscar(kConceptosGyT);
  default:
    return nullptr;
  }
}

// The text the rule screen keeps beside each row: the concept, or the operation when
// it has no catalogue, in 30 characters.
QString TextoDeRegla(const Regla &r) {
  const char *texto = *r.concepto ? DescripcionDeConcepto(r.oper, r.concepto) : nullptr;
  if (!texto)
    for (const Operacion &o : kOperaciones)
      if (o.cod == r.oper)
        texto = o.des;
  return QString::fromUtf8(texto ? texto : "").left(30);
}

int NumeroDeDiario(const char *tipo) {
  for (const TipoPoliza &t : kTiposPoliza)
    if (std::strcmp(t.cod, tipo) == 0)
      return t.num;
  return 0;
}

QString CuentaDe(const char *rubro) {
  return *rubro ? QString::fromUtf8(RubroDe(rubro).cuenta) : QString();
}

// ---------------------------------------------------------------------------
// Catalogues
// ---------------------------------------------------------------------------

void LlenarOperaciones(Conexion &con) {
  for (const Modulo &m : kModulos)
    Insertar(con, "tblModulos", "COD_MODUL,DES_MODUL", {Num(m.cod), Txt(m.des)});
  // The family's modules write a true flag as -1.
  for (const Operacion &o : kOperaciones)
    Insertar(con, "tblCatOperaciones", "COD_OPER,DES_OPER,MODULO,GENERA_CON",
             {Num(o.cod), Txt(o.des), Num(o.modulo), Num(o.generaCon ? -1 : 0)});
  // No datum of the demo reads a column of the dictionary: all go by their code.
  for (const Dato &d : kDatos)
    Insertar(con, "tblDatosxOperacion", "COD_DATO,DES_DATO,COD_OPER,CAMPO_ESTBD",
             {Num(d.cod), Txt(d.des), Num(d.oper), Num(0)});
}

void LlenarContabilidad(Conexion &con) {
  for (const TipoPoliza &t : kTiposPoliza)
    Insertar(con, "tblFolios", "COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM",
             {Txt(t.cod), Txt(t.des), Txt("0"), Num(t.num)});
  for (const Rubro &r : kRubros) {
    const std::string_view cod = r.cod;
    Insertar(con, "tblCatRubros",
             "COD_RUBRO,DES_RUBRO,ACUM_RUBRO,TIPOCTA_RUBRO,EDOFIN_RUBRO,NATURAL_RUBRO,"
             "CLASIF_RUBRO,ULTIMO_RUBRO,CUENTA_RUBRO,SUB_RUBRO",
             {Txt(r.cod), Txt(r.des), Txt(QString::fromUtf8(PadreDe(cod))), Txt(TipoCuenta(cod)),
              Txt(EstadoFinanciero(cod)), Txt(Naturaleza(cod)), Txt("S"),
              Txt(TieneHijos(cod) ? "N" : "S"), Txt(r.cuenta), Num(r.sub)});
  }
  for (const CuentaBanco &c : kCuentas)
    Insertar(con, "tblCatCtasBancos", "COD_RUBRO,NUM_CUENTA", {Txt(c.rubro), Txt(c.numero)});
  // The nature for the SAT is the first letter of the rubro's: D(eudora) or A(creedora).
  for (const CodigoSat &c : kCodigosSat)
    Insertar(con, "tblRubrosSAT", "COD_RUBRO,COD_AGRUP,NATURALEZA",
             {Txt(c.rubro), Txt(c.agrupador), Txt(QString::fromLatin1(Naturaleza(c.rubro), 1))});
}

void LlenarImpuestos(Conexion &con) {
  for (const TipoImpuesto &t : kTiposImpuesto)
    Insertar(con, "tblTipoImpuesto", "COD_TIPO,DES_TIPO,CLAVE_CFDI",
             {Num(t.cod), Txt(t.des), Txt(t.cfdi)});
  for (const Impuesto &i : kImpuestos)
    Insertar(con, "tblImpuestos",
             "COD_IMP,DES_IMP,POR_IMP,GRAVA_IMP,INTEGRA_IMP,TIPO_IMP,IMPTE_IMP,EN_IMPORTE,"
             "CLAVE_CFDI",
             {Num(i.cod), Txt(i.des), Num(i.por), Num(i.grava), Num(0), Num(i.tipo), Num(0), Num(0),
              Txt(i.cfdi)});
  for (const char *forma : kFormasPago)
    con.Ejecutar(QStringLiteral("INSERT INTO tblFormasPago (COD_FRP,DES_FRP,COD_PAG,AUT_FRP,"
                                "REF_FRP,ACP_CAM,MAX_CAN,CAR_FRP,DENOM,FRP_APAR,RUTA,CAR_MAX,"
                                "APLICA_PROMO,SERV_ME,SAT_MPAGO,CLAVE_SAT) VALUES (%1)")
                     .arg(QString::fromUtf8(forma)));
}

void LlenarConceptos(Conexion &con) {
  for (const Concepto &c : kConceptosIE)
    Insertar(con, "tblConceptoIE", "COD_CIE,DES_CIE,COD_CON",
             {Txt(c.cod), Txt(c.des), Txt(c.grupo)});
  for (const Concepto &c : kServicios)
    Insertar(con, "tblServicios", "COD_SER,DES_SER", {Txt(c.cod), Txt(c.des)});
  for (const Concepto &c : kConceptos)
    Insertar(con, "tblConceptos", "COD_CON,DES_CON,TIP_MOV,FOL_CON",
             {Txt(c.cod), Txt(c.des), Txt(c.grupo), Txt("0")});
  for (const Concepto &c : kCargosEnCompras)
    Insertar(con, "tblCargosEnCompras", "COD_CAR,DES_CAR", {Txt(c.cod), Txt(c.des)});
  for (const Concepto &c : kConceptosCom)
    Insertar(con, "tblConceptosCom", "COD_CON,DES_CON,COD_FOL",
             {Txt(c.cod), Txt(c.des), Txt(c.grupo)});
  for (const Concepto &c : kConceptosGyT)
    Insertar(con, "tblConceptosGyT", "COD_CON,DES_CON,COD_FOL",
             {Txt(c.cod), Txt(c.des), Txt(c.grupo)});
}

void InsertarArticulo(Conexion &con, const Articulo &a) {
  const QString alta = con.Dialecto().FechaSQL(QDate(2025, 1, 6));
  Dinero impuesto;
  if (a.imp1 == kIva)
    impuesto += Round2(a.precio * kTasaIva);
  if (a.imp2 == kIeps)
    impuesto += Round2(a.precio * kTasaIeps);
  const bool venta = !a.precio.EsCero();
  const bool servicio = std::strcmp(a.unidad, "SER") == 0;
  // Dates of last purchase, expiry, entry and last cost, then type, service, the
  // points and company flags, base-only sale, expiry, unit and tax equivalences.
  QStringList valores = {Txt(a.cod),
                         Txt(a.des),
                         Txt(a.des),
                         Num(1),
                         Num(venta ? 35 : 0),
                         Num(a.imp1),
                         Num(a.imp2),
                         Num(servicio ? 0 : 40),
                         Txt(""),
                         Num(0)};
  valores << alta << alta << alta << alta;
  valores << Num(0) << Num(servicio ? 1 : 0) << Num(0) << Num(0) << Num(1) << Num(0) << Num(0)
          << Num(1) << Num(0) << Num(0) << Txt(a.cfdi);
  Insertar(con, "tblCatArticulos",
           "COD1_ART,DES1_ART,DES2_ART,COD_MON,PTO_MAR,COD_IMP,IMP2_ART,EXI_ACT,ARCHIVO,ART_PAQ,"
           "FEC_UCO,FEC_VEN,FEC_ING,FEC_UCP,COD_TIPO,ES_SERVICIO,COD_AIM,REST_PTOS,COD_EMPRESA,"
           "VTA_SOLOBASE,ART_CAD,UND_CFDI,EQV_IMP1,EQV_IMP2,CVE_CFDI",
           valores);
  Insertar(con, "tblUndCosPreArt",
           "COD_UND,COD1_ART,EQV_UND,PRE_UND,PRE_IVA,CVE_OFR,COS_PRO,COS_REP,COS_UCO,IMPTO_IMP,"
           "COD_BARRAS,PCIO_PUNTOS",
           {Txt(a.unidad), Txt(a.cod), Num(1), Din(a.precio), Din(a.precio + impuesto), Txt(""),
            Din(a.costo), Din(a.costo), Din(a.costo), Din(impuesto),
            Txt(QStringLiteral("750100") + QString::fromLatin1(a.cod)), Num(0)});
}

void LlenarArticulos(Conexion &con) {
  for (std::span<const Articulo> catalogo : kCatalogosArticulos)
    for (const Articulo &a : catalogo)
      InsertarArticulo(con, a);

  const QString nunca = con.Dialecto().FechaSQL(QDate(1800, 1, 1));
  const char *columnas = "COD_ALM,DES_ALM,COD_TIP,COD_SUCU,SIN_EXIST,PROT_MAX,AP_ALM,"
                         "INV_CICLICO,DIA_CICLICO,CANT_CICLICO,PORC_SINMOV,ULTIMO_CICLICO";
  Insertar(con, "tblCatAlmacenes", columnas,
           {Txt("A001"), Txt("ALMACEN GENERAL"), Num(1), Txt("MATRIZ"), Num(0), Num(0), Num(0),
            Num(0), Num(0), Num(0), Num(0), nunca});
  Insertar(con, "tblCatAlmacenes", columnas,
           {Txt("M001"), Txt("MATERIAS PRIMAS"), Num(2), Txt("MATRIZ"), Num(0), Num(0), Num(0),
            Num(0), Num(0), Num(0), Num(0), nunca});

  for (const char *cliente : kClientes)
    Insertar(con, "tblCatClientes", "COD_CLI,COD_CID,COD_EST",
             {Txt(cliente), Txt("GDL"), Txt("JAL")});
}

void LlenarReglas(Conexion &con) {
  int codPol = 0;
  for (const Regla &r : kReglas) {
    ++codPol;
    const int diario = NumeroDeDiario(r.tipo);
    con.Ejecutar(QStringLiteral("INSERT INTO tblOperacionxConcep (COD_POL, COD_OPER, MODULO, "
                                "CONCEPTO, TIP_POLIZA, STS_POLIZA, FREC, DIARIO) VALUES "
                                "(%1,%2,%3,'%4','%5','D',%6, %7);")
                     .arg(codPol)
                     .arg(r.oper)
                     .arg(r.modulo)
                     .arg(Escapar(Marcado(QString::fromUtf8(r.concepto))),
                          Escapar(QString::fromUtf8(r.tipo)))
                     .arg(r.frec)
                     .arg(diario));
    const QString texto = TextoDeRegla(r);
    for (const RenglonRegla &g : r.renglones) {
      con.Ejecutar(QStringLiteral("INSERT INTO tblRubrosxOperacion (COD_DATO, CUENTA_DEBE, "
                                  "CUENTA_HABER, COD_POL, PORCENTAJE, TIPO_MOV, CONC_MOV, "
                                  "SUPR_CERO, COD_REF, TXT_REF, COD_DIARIO, TXT_DIARIO, COD_CONC, "
                                  "TXT_CONC, SEG_NEG, NUM_SEG, RUBRO_DEBE, RUBRO_HABER, COD_OPER) "
                                  "VALUES (%1,'%2','%3',%4,0,0,0,0,0,'','%5','',0,'%6',0,0,'%7',"
                                  "'%8',%9 );")
                       .arg(QString::number(g.dato), Escapar(CuentaDe(g.debe)),
                            Escapar(CuentaDe(g.haber)), QString::number(codPol),
                            Escapar(QString::fromUtf8(r.tipo)), Escapar(Marcado(texto)),
                            Escapar(Marcado(QString::fromUtf8(g.debe))),
                            Escapar(Marcado(QString::fromUtf8(g.haber))), QString::number(r.oper)));
    }
  }
}

// ---------------------------------------------------------------------------
// Documents of a month
// ---------------------------------------------------------------------------

struct Cuenta {
  QString folio;
  int dia = 0;
  Dinero total;
  Dinero iva;
};

// One month of the business, day by day. Quantities and choices come from arithmetic
// on the day and the document's place in it, so the same month always gives the same rows.
class MesDeDocumentos {
public:
  MesDeDocumentos(Conexion &con, const QDate &mes)
      : con_(con), primero_(mes.year(), mes.month(), 1), dias_(primero_.daysInMonth()),
        serie_(QStringLiteral("%1%2-")
                   .arg(primero_.year() % 100, 2, 10, QLatin1Char('0'))
                   .arg(primero_.month(), 2, 10, QLatin1Char('0'))) {}

  void Llenar() {
    Ventas();
    Cobranza();
    DevolucionesDeClientes();
    MovimientosDeCaja();
    Gastos();
    Compras();
    PagosAProveedores();
    MovimientosDeProveedores();
    ReposicionesDeCaja();
    Depositos();
    Almacen();
  }

private:
  QString Fecha(int dia) const { return con_.Dialecto().FechaSQL(primero_.addDays(dia - 1)); }
  // "NV2610-0001": series, year and month, number.
  QString Folio(const char *serie, int n) const {
    return QLatin1String(serie) + serie_ + QStringLiteral("%1").arg(n, 4, 10, QLatin1Char('0'));
  }

  void Ventas();
  void Cobranza();
  void DevolucionesDeClientes();
  void MovimientosDeCaja();
  void Compras();
  Cuenta Compra(int dia, int tipo, bool cancelada, Dinero descuento,
                const std::vector<std::pair<const Articulo *, int>> &renglones);
  void PagosAProveedores();
  void MovimientosDeProveedores();
  void Gastos();
  Dinero Gasto(int dia, const char *grupo, const char *concepto, Dinero subtotal,
               bool retenciones = false, bool cancelado = false);
  void ReposicionesDeCaja();
  void Depositos();
  void Almacen();
  void MovimientoAlmacen(int dia, const char *grupo, const char *concepto, bool cancelado,
                         const std::vector<std::pair<const Articulo *, int>> &renglones);

  void CargoAbonoCliente(const QString &folio, int dia, const char *grupo, const char *concepto,
                         Dinero importe, Dinero iva, bool cancelado);
  void CargoAbonoProveedor(int dia, const char *grupo, const char *concepto, Dinero importe,
                           Dinero iva, bool cancelado = false);
  void Caja(int dia, const char *grupo, const char *concepto, Dinero importe);
  QString Banco(const char *serie, int &numero, int dia, const char *grupo, const char *concepto,
                int tipoApn, const CuentaBanco &cuenta, Dinero importe, bool cancelado);
  QString Ingreso(int dia, const char *concepto, const CuentaBanco &cuenta, Dinero importe,
                  bool cancelado = false) {
    return Banco("IN", ingresos_, dia, "INGR", concepto, 0, cuenta, importe, cancelado);
  }
  QString Egreso(int dia, const char *concepto, const CuentaBanco &cuenta, Dinero importe) {
    return Banco("EG", egresos_, dia, "EGRE", concepto, 0, cuenta, importe, false);
  }
  // TIPO_APN: 2 to a supplier, 1 to a creditor, 0 any other.
  QString Cheque(int dia, int tipoApn, const CuentaBanco &cuenta, Dinero importe,
                 bool cancelado = false) {
    return Banco("CH", cheques_, dia, "EGRE", "CHQE", tipoApn, cuenta, importe, cancelado);
  }

  Conexion &con_;
  const QDate primero_;
  const int dias_;
  const QString serie_;

  std::array<Dinero, 32> efectivo_{}; // cash of each day's sales, tips apart
  std::array<Dinero, 32> tarjeta_{};  // card payments of each day, tips included
  std::vector<Cuenta> creditos_;      // credit sales standing
  std::vector<Cuenta> compras_;       // receipts standing

  int abonosClientes_ = 0;
  int recepciones_ = 0;
  int gastos_ = 0;
  int cargosProveedores_ = 0;
  int caja_ = 0;
  int almacen_ = 0;
  int ingresos_ = 0;
  int egresos_ = 0;
  int cheques_ = 0;
};

// 5 to 15 tickets a day; about one in five on credit; a few cancelled (STS_DOC 4, which
// both sale operations leave out). Every ticket has lines, with the taxes of each line in
// its two slots: IVA 16 % or 0 % in the first, IEPS 8 % in the second.
void MesDeDocumentos::Ventas() {
  struct Renglon {
    const Articulo *art;
    int cant;
    Dinero base, imp1, imp2;
  };
  constexpr int kArticulos = static_cast<int>(std::size(kVenta));
  int n = 0;
  for (int d = 1; d <= dias_; ++d) {
    const int tickets = 5 + (d * 7) % 11;
    for (int i = 0; i < tickets; ++i) {
      const QString folio = Folio("NV", ++n);
      const bool credito = (d * 3 + i) % 5 == 2;
      const bool cancelada = (d * 5 + i * 3) % 41 == 7;

      std::vector<Renglon> renglones;
      Dinero subtotal, iva, ieps;
      bool cocina = false;
      for (int k = 0, lineas = 1 + (d + i * 3) % 4; k < lineas; ++k) {
        const Articulo &a = kVenta[(d * 5 + i * 7 + k * 3) % kArticulos];
        Renglon r{&a, 1 + (d + i + 2 * k) % 3, {}, {}, {}};
        r.base = Veces(a.precio, r.cant);
        if (a.imp1 == kIva)
          r.imp1 = Round2(r.base * kTasaIva);
        if (a.imp2 == kIeps)
          r.imp2 = Round2(r.base * kTasaIeps);
        subtotal += r.base;
        iva += r.imp1;
        ieps += r.imp2;
        cocina = cocina || a.cod[0] != 'A';
        renglones.push_back(r);
      }
      const Dinero total = subtotal + iva + ieps;

      Insertar(con_, "tblGralVentas", "REF_DOC,FEC_DOC,CREDITO,STS_DOC,SUB_DOC,IMPTO_INT,CONTAB",
               {Txt(folio), Fecha(d), Num(credito ? 1 : 0), Num(cancelada ? 4 : 1), Din(subtotal),
                Num(0), Num(0)});
      for (const Renglon &r : renglones)
        Insertar(con_, "tblRenVentas",
                 "REF_DOC,COD1_ART,CAN_ART,PCIO_VEN,COS_VEN,TIP_CAM,COS_PEPS,COD1_IMP,IMP1_REG,"
                 "COD2_IMP,IMP2_REG",
                 {Txt(folio), Txt(r.art->cod), Num(r.cant), Din(r.art->precio), Din(r.art->costo),
                  Num(1), Din(Veces(Round2(r.art->costo * kFactorPeps), r.cant)), Num(r.art->imp1),
                  Din(r.imp1), Num(r.art->imp2), Din(r.imp2)});

      // The payments of the ticket, as the till records them. A tip left on a restaurant
      // ticket is paid with it.
      const char *pagos = "REF_DOC,FEC_DOC,CON_CEP,COD_CON,CREDITO,STS_DOC,COD_FRP,IMP_MBA,CONTAB";
      if (credito) {
        Insertar(con_, "tblAuxCaja", pagos,
                 {Txt(folio), Fecha(d), Txt("NVEN"), Txt("NVEN"), Num(1), Num(cancelada ? 4 : 1),
                  Num(kCredito), Din(total), Num(0)});
        CargoAbonoCliente(folio, d, "CCLI", "NVEN", total, iva, cancelada);
        if (!cancelada)
          creditos_.push_back({folio, d, total, iva});
      } else {
        const Dinero propina =
            cocina && (d + i) % 3 == 0 ? Dinero::DeEntero(10 + 5 * ((d + i) % 5)) : Dinero();
        const int forma = i % 3 == 1 ? kTarjetaCredito : kEfectivo;
        Insertar(con_, "tblAuxCaja", pagos,
                 {Txt(folio), Fecha(d), Txt("NVEN"), Txt("NVEN"), Num(0), Num(cancelada ? 4 : 1),
                  Num(forma), Din(total + propina), Num(0)});
        if (!cancelada) {
          if (forma == kEfectivo)
            efectivo_[d] += total;
          else
            tarjeta_[d] += total + propina;
        }
      }
    }
  }
}

// Charges and credits of customers. The charge of a credit ticket (NVEN) and the credit
// of a return (DCLI) are written by the sales module and stay out of operations 6 and 7.
void MesDeDocumentos::CargoAbonoCliente(const QString &folio, int dia, const char *grupo,
                                        const char *concepto, Dinero importe, Dinero iva,
                                        bool cancelado) {
  Insertar(con_, "tblEncCargosAbonos",
           "FOL_DOC,FEC_DOC,COD_CON,COD_STS,CON_GRL,CON_CEP,IMP_DOC,IVA_DOC,CONTAB",
           {Txt(folio), Fecha(dia), Txt(concepto), Num(cancelado ? 2 : 1), Txt(grupo),
            Txt(concepto), Din(importe), Din(iva), Num(0)});
  Insertar(con_, "tblRenCargosAbonos", "FOL_DOC", {Txt(folio)});
}

// Every other credit ticket is paid by transfer some days later, into Banorte; one
// payment is cancelled with its deposit.
void MesDeDocumentos::Cobranza() {
  for (size_t j = 0; j < creditos_.size(); j += 2) {
    const Cuenta &c = creditos_[j];
    const int dia = c.dia + 3 + static_cast<int>(j % 4);
    if (dia > dias_)
      continue;
    const QString folio = Folio("AB", ++abonosClientes_);
    const bool cancelado = abonosClientes_ == 4;
    CargoAbonoCliente(folio, dia, "ACLI", "PAGO", c.total, c.iva, cancelado);
    Ingreso(dia, "COBR", kBanorte, c.total, cancelado);
  }
  const int dia = std::min(17, dias_);
  CargoAbonoCliente(Folio("AB", ++abonosClientes_), dia, "ACLI", "NCRE", Centavos(11600),
                    Centavos(1600), false);
  CargoAbonoCliente(Folio("CG", 1), std::min(25, dias_), "CCLI", "INTM", Centavos(5800),
                    Centavos(800), false);
}

// Returns of customers: an advance for a later purchase (TIP_DEV 0) or cash back
// (TIP_DEV 1); one is cancelled (COD_STS 4).
void MesDeDocumentos::DevolucionesDeClientes() {
  struct Devolucion {
    int dia;
    int tipo;
    bool cancelada;
    const char *art1;
    const char *art2;
  };
  constexpr Devolucion kDevoluciones[] = {
      {5, 0, false, "ABA005", "ABA007"}, {12, 1, false, "ABA004", nullptr},
      {16, 0, true, "ABA002", nullptr},  {19, 0, false, "BEB003", "ABA006"},
      {26, 1, false, "ABA008", nullptr},
  };
  int n = 0;
  for (const Devolucion &v : kDevoluciones) {
    const QString folio = Folio("DV", ++n);
    Insertar(
        con_, "tblEncDevolucion", "FOL_DEV,FEC_DEV,COD_CON,TIP_DEV,COD_STS,CONTAB",
        {Txt(folio), Fecha(v.dia), Txt("DCLI"), Num(v.tipo), Num(v.cancelada ? 4 : 1), Num(0)});
    Dinero importe, iva;
    for (const char *cod : {v.art1, v.art2}) {
      if (!cod)
        continue;
      const Articulo &a = ArticuloDe(cod);
      const int cant = 1 + n % 2;
      Insertar(con_, "tblRenDevolucion", "FOL_DEV,CAN_DEV,COS_ART",
               {Txt(folio), Num(cant), Din(a.costo)});
      const Dinero base = Veces(a.precio, cant);
      importe += base;
      if (a.imp1 == kIva)
        iva += Round2(base * kTasaIva);
      if (a.imp2 == kIeps)
        importe += Round2(base * kTasaIeps);
    }
    if (v.tipo == 0)
      CargoAbonoCliente(folio, v.dia, "ACLI", "DCLI", importe + iva, iva, v.cancelada);
  }
}

// Movements of the till other than tickets: cash put in, withdrawals, services paid.
void MesDeDocumentos::Caja(int dia, const char *grupo, const char *concepto, Dinero importe) {
  Insertar(con_, "tblAuxCaja",
           "REF_DOC,FEC_DOC,CON_CEP,COD_CON,CREDITO,STS_DOC,COD_FRP,IMP_MBA,CONTAB",
           {Txt(Folio("MC", ++caja_)), Fecha(dia), Txt(concepto), Txt(grupo), Num(0), Num(1),
            Num(kEfectivo), Din(importe), Num(0)});
}

void MesDeDocumentos::MovimientosDeCaja() {
  constexpr const char *kServiciosDelDia[] = {"TELC", "CFE", "AGUA"};
  constexpr Dinero kImporteServicio[] = {Centavos(10000), Centavos(61200), Centavos(38900)};
  for (int d = 1; d <= dias_; ++d) {
    if (d == 1)
      Caja(d, "IEFE", "FOND", Centavos(200000));
    if (d % 7 == 1)
      Caja(d, "IEFE", "CAMB", Centavos(50000));
    if (d % 6 == 4)
      Caja(d, "RCAJ", "RETG", Centavos(15000) + Veces(Centavos(750), d));
    if (d == 13)
      Caja(d, "RCAJ", "RETP", Centavos(85000));
    if (d % 5 == 3) {
      const int s = (d / 5) % 3;
      Caja(d, "PSER", kServiciosDelDia[s], kImporteServicio[s]);
    }
  }
}

// A receipt with its lines. Discounts are the supplier's first discount on every line;
// IVA is 16 % of what is taxed after the discount.
Cuenta MesDeDocumentos::Compra(int dia, int tipo, bool cancelada, Dinero descuento,
                               const std::vector<std::pair<const Articulo *, int>> &renglones) {
  Cuenta c{Folio("RC", ++recepciones_), dia, {}, {}};
  Dinero importe, descuentos;
  for (const auto &[a, cant] : renglones) {
    const Dinero bruto = Veces(a->costo, cant);
    const Dinero menos = Round2(bruto * descuento);
    importe += bruto;
    descuentos += menos;
    if (a->imp1 == kIva)
      c.iva += Round2((bruto - menos) * kTasaIva);
  }
  const Dinero subtotal = importe - descuentos;
  c.total = subtotal + c.iva;
  Insertar(con_, "tblComprasEnc",
           "FOL_DOC,FEC_DOC,COD_TIP,COD_ESTATUS,TIP_CAM,IMP_DOC,DES_DOC,SUB_DOC,IVA_DOC,"
           "CARGO_TOTAL,CARGO_IMPTO,RETEN_TOT,TOT_DOC,TOT_PROV,CONTAB",
           {Txt(c.folio), Fecha(dia), Num(tipo), Num(cancelada ? 2 : 1), Num(1), Din(importe),
            Din(descuentos), Din(subtotal), Din(c.iva), Num(0), Num(0), Num(0), Din(c.total),
            Din(c.total), Num(0)});
  for (const auto &[a, cant] : renglones)
    Insertar(con_, "tblComprasRen",
             "FOL_DOC,COD1_ART,CAN_ART,COS_UNI,COS_COM,IMP_ARANCEL,DESCUENTO1,DESCUENTO2,"
             "DESCUENTO3,DESCUENTO4,DESCUENTO5,DESCUENTO6",
             {Txt(c.folio), Txt(a->cod), Num(cant), Din(a->costo),
              Din(a->costo - a->costo * descuento), Num(0), Din(descuento), Num(0), Num(0), Num(0),
              Num(0), Num(0)});
  // The supplier's account is charged with the receipt.
  if (!cancelada)
    CargoAbonoProveedor(dia, "CCXP", "RECP", c.total, c.iva);
  return c;
}

// Merchandise every third day, some lines with a discount; one receipt cancelled
// (COD_ESTATUS 2). Materials, consumables and a service arrive once each.
void MesDeDocumentos::Compras() {
  std::vector<const Articulo *> surtido;
  for (const Articulo &a : kVenta)
    if (a.cod[0] == 'A' || std::strcmp(a.cod, "BEB003") == 0)
      surtido.push_back(&a);
  for (const Articulo &a : kMateriaPrima)
    surtido.push_back(&a);
  const int articulos = static_cast<int>(surtido.size());

  for (int d = 2, n = 0; d <= dias_; d += 3, ++n) {
    std::vector<std::pair<const Articulo *, int>> renglones;
    for (int k = 0, lineas = 3 + n % 3; k < lineas; ++k)
      renglones.emplace_back(surtido[(n * 4 + k * 2) % articulos], 6 + (n * 5 + k * 3) % 19);
    const bool cancelada = d == 14;
    const Cuenta c =
        Compra(d, 1, cancelada, n % 3 == 0 ? kDescuentoProveedor : Dinero(), renglones);
    if (!cancelada)
      compras_.push_back(c);
  }
  Compra(10, 2, false, {}, {{&ArticuloDe("INS001"), 10}});
  Compra(17, 3, false, {}, {{&ArticuloDe("INS002"), 8}});
  Compra(24, 4, false, {}, {{&ArticuloDe("SRV001"), 1}});
}

void MesDeDocumentos::CargoAbonoProveedor(int dia, const char *grupo, const char *concepto,
                                          Dinero importe, Dinero iva, bool cancelado) {
  const QString folio = Folio("CP", ++cargosProveedores_);
  Insertar(con_, "tblCxPEnc",
           "FOL_DOC,FEC_DOC,CON_CEP,CON_GRL,COD_STS,COD_CON,IMP_DOC,IVA_DOC,CONTAB",
           {Txt(folio), Fecha(dia), Txt(concepto), Txt(grupo), Num(cancelado ? 2 : 1),
            Txt(concepto), Din(importe), Din(iva), Num(0)});
  Insertar(con_, "tblCxPRen", "FOL_DOC", {Txt(folio)});
}

// Each receipt is paid a week later by cheque, from either bank.
void MesDeDocumentos::PagosAProveedores() {
  for (size_t j = 0; j < compras_.size(); ++j) {
    const Cuenta &c = compras_[j];
    if (c.dia + 7 > dias_)
      continue;
    Cheque(c.dia + 7, 2, kCuentas[j % 2], c.total);
    CargoAbonoProveedor(c.dia + 7, "ACXP", "PAGO", c.total, c.iva);
  }
}

// A return of merchandise to a supplier and one cancelled; a freight charge and a credit
// note of suppliers.
void MesDeDocumentos::MovimientosDeProveedores() {
  struct Devolucion {
    int dia;
    bool cancelada;
    std::pair<const char *, int> renglones[2];
  };
  constexpr Devolucion kDevoluciones[] = {
      {16, false, {{"ABA004", 2}, {"ABA005", 6}}},
      {23, true, {{"ABA007", 3}, {nullptr, 0}}},
  };
  int n = 0;
  for (const Devolucion &v : kDevoluciones) {
    const QString folio = Folio("DP", ++n);
    Dinero subtotal, iva;
    for (const auto &[cod, cant] : v.renglones) {
      if (!cod)
        continue;
      const Articulo &a = ArticuloDe(cod);
      const Dinero importe = Veces(a.costo, cant);
      subtotal += importe;
      if (a.imp1 == kIva)
        iva += Round2(importe * kTasaIva);
    }
    Insertar(con_, "tblDevolucionEnc",
             "FOL_DEV,FEC_DEV,COD_TIP,COD_ESTATUS,TIP_CAM,SUB_DEV,IVA_DEV,TOT_DEV,CONTAB",
             {Txt(folio), Fecha(v.dia), Num(1), Num(v.cancelada ? 2 : 1), Num(1), Din(subtotal),
              Din(iva), Din(subtotal + iva), Num(0)});
    for (const auto &[cod, cant] : v.renglones) {
      if (!cod)
        continue;
      const Articulo &a = ArticuloDe(cod);
      const Dinero importe = Veces(a.costo, cant);
      Insertar(con_, "tblDevolucionRen",
               "FOL_DEV,COD1_ART,CAN_ART,COS_UNI,TIP_CAM,IMP1_IMP,IMP2_IMP",
               {Txt(folio), Txt(a.cod), Num(cant), Din(a.costo), Num(1),
                Din(a.imp1 == kIva ? Round2(importe * kTasaIva) : Dinero()), Num(0)});
    }
    // The supplier's account is credited with the return.
    if (!v.cancelada)
      CargoAbonoProveedor(v.dia, "ACXP", "DEVO", subtotal + iva, iva);
  }
  CargoAbonoProveedor(11, "CCXP", "FLET", Centavos(34800), Centavos(4800));
  CargoAbonoProveedor(20, "ACXP", "NCPR", Centavos(23200), Centavos(3200));
}

// IMP_MOV is what is paid: subtotal and IVA less what is withheld.
Dinero MesDeDocumentos::Gasto(int dia, const char *grupo, const char *concepto, Dinero subtotal,
                              bool retenciones, bool cancelado) {
  const QString folio = Folio("GT", ++gastos_);
  const Dinero iva = Round2(subtotal * kTasaIva);
  const Dinero retIva = retenciones ? DosTercios(iva) : Dinero();
  const Dinero retIsr = retenciones ? Round2(subtotal * kTasaIsr) : Dinero();
  const Dinero neto = subtotal + iva - retIva - retIsr;
  Insertar(con_, "tblGastosEnc",
           "FOL_MOV,FEC_MOV,CON_CEP,COD_CON,COD_ESTATUS,IMP_MOV,IVA_MOV,RET_TOT,RET_ISRTOT,"
           "CONTAB",
           {Txt(folio), Fecha(dia), Txt(concepto), Txt(grupo), Num(cancelado ? 2 : 1), Din(neto),
            Din(iva), Din(retIva), Din(retIsr), Num(0)});
  Insertar(con_, "tblGastosRen", "FOL_MOV", {Txt(folio)});
  return neto;
}

// The rent, paid to a person, carries withholdings. Stationery is bought twice on some
// days, so that a day's entry gathers several documents; one stationery bill and one of
// cleaning supplies are cancelled (COD_ESTATUS 2).
void MesDeDocumentos::Gastos() {
  for (int d = 1; d <= dias_; ++d) {
    if (d == 1) {
      const Dinero renta = Gasto(d, "GTOS", "RENT", Centavos(1850000), true);
      Cheque(2, 1, kBbva, renta);
    }
    if (d % 7 == 3)
      Gasto(d, "GTOS", "GAS", Centavos(148000) + Veces(Centavos(1035), (d * 13) % 7));
    if (d == 8) {
      const Dinero luz = Gasto(d, "GTOS", "LUZ", Centavos(431207));
      Cheque(9, 1, kBanorte, luz);
    }
    if (d == 12)
      Gasto(d, "GTOS", "AGUA", Centavos(102586));
    if (d == 15)
      Gasto(d, "GTOS", "TELE", Centavos(120603));
    if (d % 4 == 2)
      Gasto(d, "GTOS", "PAPE", Centavos(18621) + Veces(Centavos(948), d));
    if (d % 8 == 6)
      Gasto(d, "GTOS", "PAPE", Centavos(9569) + Veces(Centavos(310), d), false, d == 14);
    if (d % 5 == 0)
      Gasto(d, "GTOS", "LIMP", Centavos(34224) + Veces(Centavos(517), d), false, d == 20);
    if (d == 18 || d == 27)
      Gasto(d, "GTOS", "MANT", d == 18 ? Centavos(185000) : Centavos(264000));
    if (d == 20)
      Gasto(d, "ABAC", "ABAC", Centavos(200000));
  }
}

// Petty cash is refunded twice a month by cheque, against the bills it paid.
void MesDeDocumentos::ReposicionesDeCaja() {
  for (int r = 0; r < 2; ++r) {
    const int dia = r == 0 ? 14 : 28;
    const std::pair<const char *, Dinero> movimientos[] = {
        {"PAPE", Centavos(12069 + r * 1000)},
        {"LIMP", Centavos(21552)},
        {"MANT", Centavos(30172 - r * 5000)},
    };
    Dinero total;
    for (const auto &[concepto, importe] : movimientos)
      total += importe + Round2(importe * kTasaIva);
    const QString folio = Folio("RP", r + 1);
    const QString cheque = Cheque(dia, 0, kBbva, total);
    Insertar(con_, "tblReposicionCaja", "FOL_CHEQUE,FEC_DOC,FOL_DOC,COD_STS,CONTAB",
             {Txt(cheque), Fecha(dia), Txt(folio), Num(1), Num(0)});
    for (const auto &[concepto, importe] : movimientos)
      Insertar(con_, "tblReposicionCajaMov", "FOL_DOC,CON_MOV,IMP_MOV,IMPTO_MOV,POR_RETE,RET_ISR",
               {Txt(folio), Txt(concepto), Din(importe), Num(16), Num(0), Num(0)});
  }
}

QString MesDeDocumentos::Banco(const char *serie, int &numero, int dia, const char *grupo,
                               const char *concepto, int tipoApn, const CuentaBanco &cuenta,
                               Dinero importe, bool cancelado) {
  const QString folio = Folio(serie, ++numero);
  Insertar(con_, "tblIngreEgre",
           "FOL_MOV,FEC_MOV,CON_CEP,CON_GRL,COD_ESTATUS,TIPO_APN,NUM_CTA,IMP_MOV,TIP_CAM,CONTAB",
           {Txt(folio), Fecha(dia), Txt(concepto), Txt(grupo), Num(cancelado ? 2 : 1), Num(tipoApn),
            Txt(cuenta.numero), Din(importe), Num(1), Num(0)});
  return folio;
}

// The cash of each day goes to BBVA the next morning, and the card terminal pays into
// Banorte. The deposit of the 9th is captured wrong, cancelled and captured again.
void MesDeDocumentos::Depositos() {
  for (int d = 2; d <= dias_; ++d) {
    if (!efectivo_[d - 1].EsCero()) {
      if (d == 9)
        Ingreso(d, "DEPV", kBbva, efectivo_[d - 1] - Centavos(10000), true);
      Ingreso(d, "DEPV", kBbva, efectivo_[d - 1]);
    }
    if (!tarjeta_[d - 1].EsCero())
      Ingreso(d, "DTAR", kBanorte, tarjeta_[d - 1]);
  }
  Cheque(21, 0, kBanorte, Centavos(100000), true);
  Ingreso(dias_, "INTB", kBbva, Centavos(3742));
  Egreso(dias_, "COMB", kBbva, Centavos(18560));
  Egreso(dias_, "COMB", kBanorte, Centavos(9280));
}

void MesDeDocumentos::MovimientoAlmacen(
    int dia, const char *grupo, const char *concepto, bool cancelado,
    const std::vector<std::pair<const Articulo *, int>> &renglones) {
  const QString folio = Folio("AL", ++almacen_);
  Dinero total;
  for (const auto &[a, cant] : renglones)
    total += Veces(a->costo, cant);
  Insertar(con_, "tblGralAlmacen", "REF_MOV,FEC_MOV,CON_CEP,COD_STS,CON_GRL,COS_TOT,TIP_CAM,CONTAB",
           {Txt(folio), Fecha(dia), Txt(concepto), Num(cancelado ? 2 : 1), Txt(grupo), Din(total),
            Num(1), Num(0)});
  for (const auto &[a, cant] : renglones)
    Insertar(con_, "tblRenAlmacen", "REF_MOV,COD1_ART,CAN_REN,COS_UNI,TIP_CAM",
             {Txt(folio), Txt(a->cod), Num(cant), Din(a->costo), Num(1)});
}

// The kitchen draws its raw materials every other day; the shop writes off what spoils
// each week; two adjustments come in; the month closes with a physical count.
void MesDeDocumentos::Almacen() {
  constexpr int kMaterias = static_cast<int>(std::size(kMateriaPrima));
  for (int d = 1; d <= dias_; ++d) {
    if (d % 2 == 1) {
      std::vector<std::pair<const Articulo *, int>> renglones;
      for (int k = 0; k < 3; ++k)
        renglones.emplace_back(&kMateriaPrima[(d + 2 * k) % kMaterias], 2 + (d + k) % 4);
      MovimientoAlmacen(d, "SALM", "SCON", d == 11, renglones);
    }
    if (d % 7 == 6)
      MovimientoAlmacen(d, "SALM", "SMER", false,
                        {{&ArticuloDe(d % 14 == 6 ? "ABA004" : "ABA001"), 1 + d % 2}});
    if (d == 15)
      MovimientoAlmacen(d, "EALM", "EAJU", false,
                        {{&ArticuloDe("MPR005"), 3}, {&ArticuloDe("ABA009"), 4}});
    if (d == 22)
      MovimientoAlmacen(d, "EALM", "ETRA", false,
                        {{&ArticuloDe("ABA002"), 6}, {&ArticuloDe("ABA003"), 6}});
  }
  MovimientoAlmacen(dias_, "IFIS", "IFIS", false,
                    {{&ArticuloDe("ABA001"), 1}, {&ArticuloDe("MPR004"), 1}});
}

} // namespace

void MarcarTextos(bool marcar) { gMarcar = marcar; }

void LlenarCatalogos(Conexion &con) {
  LlenarOperaciones(con);
  LlenarContabilidad(con);
  LlenarImpuestos(con);
  LlenarConceptos(con);
  LlenarArticulos(con);
  LlenarReglas(con);
}

void LlenarDocumentos(Conexion &con, const QDate &mes) { MesDeDocumentos(con, mes).Llenar(); }

void LlenarFormato(Conexion &con, FormatoDemo formato) {
  if (formato == FormatoDemo::Contpaq) {
    // The package's layout is fixed: the row only says so.
    con.Ejecutar(QStringLiteral(
        "INSERT INTO tblParametrosForm (NO_REN,REN_FOL,REN_FEC,REN_TIP,REN_CTA,REN_CON,REN_IMP,"
        "REN2_FOL,REN2_FEC,REN2_TIP,REN2_CTA,REN2_CON,REN2_IMP,DEB_HAB,CHAR_UNO,CHAR_DOS,CERO_IZQ,"
        "FORM_CTA,CHAR_SEP,F_FECHA,LON_FIJA,SEP_DAT,SEP_COM,LON_FOL,AL_FOL,LON_FEC,AL_FEC,LON_TIP,"
        "AL_TIP,LON_CON,AL_CON,LON_CTA,AL_CTA,LON_DEB,AL_DEB,LON_HAB,AL_HAB) VALUES (0,0,0,0,0,0,0,"
        "0,0,0,0,0,0,0,'','',0,'','','',0,'',0,0,0,0,0,0,0,0,0,0,0,0,0,0,0)"));
    return;
  }
  // Head: folio, date, type, concept and the sums; detail: account, concept and amount
  // with its mark, separated by semicolons, dates DD/MM/AAAA, accounts 4-3-3 with zeros.
  con.Ejecutar(QStringLiteral(
      "INSERT INTO tblParametrosForm (NO_REN,REN_FOL,REN_FEC,REN_TIP,REN_CTA,REN_CON,REN_IMP,"
      "REN2_FOL,REN2_FEC,REN2_TIP,REN2_CTA,REN2_CON,REN2_IMP,DEB_HAB,CHAR_UNO,CHAR_DOS,CERO_IZQ,"
      "FORM_CTA,CHAR_SEP,F_FECHA,LON_FIJA,SEP_DAT,SEP_COM,LON_FOL,AL_FOL,LON_FEC,AL_FEC,LON_TIP,"
      "AL_TIP,LON_CON,AL_CON,LON_CTA,AL_CTA,LON_DEB,AL_DEB,LON_HAB,AL_HAB) VALUES (2,1,2,3,0,4,5,0,"
      "0,0,1,2,3,1,'','',1,'4-3-3-0','','DD/MM/AAAA',0,';',0,0,0,0,0,0,0,0,0,0,0,0,0,0,0)"));
}

} // namespace demo
