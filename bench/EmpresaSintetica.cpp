#include "EmpresaSintetica.h"

#include "db/DatosDemo.h"
#include "db/EmpresaDemo.h"
#include "shell/Dinero.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

#include <QStringList>
#include <cstdint>

namespace banco {
namespace {

// What the document in place i of the period is, out of every twenty.
enum class Clase { Contado, Credito, Compra, Gasto, Deposito };

Clase ClaseDe(int i) {
  const int r = i % 20;
  if (r < 11)
    return Clase::Contado;
  if (r < 14)
    return Clase::Credito;
  if (r < 16)
    return Clase::Compra;
  if (r < 18)
    return Clase::Gasto;
  return Clase::Deposito;
}

constexpr Dinero Centavos(std::int64_t centavos) { return Dinero::DeDiezmilesimos(centavos * 100); }
constexpr Dinero Veces(Dinero d, std::int64_t n) {
  return Dinero::DeDiezmilesimos(d.Diezmilesimos() * n);
}
constexpr Dinero kTasaIva = Dinero::DeDiezmilesimos(1600);     // 16 %
constexpr Dinero kTasaIeps = Dinero::DeDiezmilesimos(800);     // 8 %
constexpr Dinero kTasaIsr = Dinero::DeDiezmilesimos(1000);     // 10 %, withheld on rent
constexpr Dinero kFactorCosto = Dinero::DeDiezmilesimos(4200); // cost is 42 % of the price
constexpr Dinero kFactorPeps = Dinero::DeDiezmilesimos(9800);  // oldest layers cost 2 % less
constexpr Dinero kDescuento = Dinero::DeDiezmilesimos(300);    // 3 % on some receipts
constexpr Dinero kPropina = Centavos(2000);                    // a tip on some cash tickets

// The demo's taxes (IVA 16 %, IEPS 8 %, IVA at 0 %), forms of payment and bank accounts.
constexpr int kIva = 1;
constexpr int kIeps = 2;
constexpr int kIvaCero = 3;
constexpr int kEfectivo = 1;
constexpr int kTarjeta = 4;
constexpr int kCredito = 5;
const char *const kCuentas[] = {"0112233445", "0556677889"};

QString Txt(const QString &texto) { return QLatin1Char('\'') + texto + QLatin1Char('\''); }
QString Txt(const char *texto) { return Txt(QLatin1String(texto)); }
QString Num(qint64 n) { return QString::number(n); }
QString Din(Dinero d) { return d.Texto(); }
QString Folio(const char *serie, int n) {
  return QLatin1String(serie) + QStringLiteral("%1").arg(n, 7, 10, QLatin1Char('0'));
}

// The rows of one table, sent as statements of many rows each: a company of tens of
// thousands of documents is built in seconds rather than minutes.
class Lote {
public:
  Lote(Conexion &con, const char *tabla, const char *columnas)
      : con_(con), inicio_(QStringLiteral("INSERT INTO %1 (%2) VALUES ")
                               .arg(QLatin1String(tabla), QLatin1String(columnas))) {}

  void Agregar(const QStringList &valores) {
    filas_ << QLatin1Char('(') + valores.join(QLatin1Char(',')) + QLatin1Char(')');
    if (filas_.size() == kFilasPorSentencia)
      Vaciar();
  }
  void Vaciar() {
    if (filas_.isEmpty())
      return;
    con_.Ejecutar(inicio_ + filas_.join(QLatin1Char(',')));
    filas_.clear();
  }

private:
  static constexpr int kFilasPorSentencia = 400;
  Conexion &con_;
  QString inicio_;
  QStringList filas_;
};

class Periodo {
public:
  Periodo(Conexion &con, const Tamano &t)
      : con_(con), t_(t), gralVentas_(con, "tblGralVentas",
                                      "REF_DOC,FEC_DOC,CREDITO,STS_DOC,SUB_DOC,IMPTO_INT,CONTAB"),
        renVentas_(con, "tblRenVentas",
                   "REF_DOC,COD1_ART,CAN_ART,PCIO_VEN,COS_VEN,TIP_CAM,COS_PEPS,COD1_IMP,IMP1_REG,"
                   "COD2_IMP,IMP2_REG"),
        auxCaja_(con, "tblAuxCaja",
                 "REF_DOC,FEC_DOC,CON_CEP,COD_CON,CREDITO,STS_DOC,COD_FRP,IMP_MBA,CONTAB"),
        comprasEnc_(con, "tblComprasEnc",
                    "FOL_DOC,FEC_DOC,COD_TIP,COD_ESTATUS,TIP_CAM,IMP_DOC,DES_DOC,SUB_DOC,IVA_DOC,"
                    "CARGO_TOTAL,CARGO_IMPTO,RETEN_TOT,TOT_DOC,TOT_PROV,CONTAB"),
        comprasRen_(con, "tblComprasRen",
                    "FOL_DOC,COD1_ART,CAN_ART,COS_UNI,COS_COM,IMP_ARANCEL,DESCUENTO1,DESCUENTO2,"
                    "DESCUENTO3,DESCUENTO4,DESCUENTO5,DESCUENTO6"),
        gastosEnc_(con, "tblGastosEnc",
                   "FOL_MOV,FEC_MOV,CON_CEP,COD_CON,COD_ESTATUS,IMP_MOV,IVA_MOV,RET_TOT,"
                   "RET_ISRTOT,CONTAB"),
        gastosRen_(con, "tblGastosRen", "FOL_MOV"),
        ingreEgre_(con, "tblIngreEgre",
                   "FOL_MOV,FEC_MOV,CON_CEP,CON_GRL,COD_ESTATUS,TIPO_APN,NUM_CTA,IMP_MOV,TIP_CAM,"
                   "CONTAB") {}

  void Llenar() {
    for (int i = 0; i < t_.documentos; ++i) {
      // Evenly over the days, in the order of their places.
      const QString fecha = ServicioUtil::FechaSQL(
          InicioPeriodo().addDays(static_cast<qint64>(i) * t_.dias / t_.documentos), con_.Motor());
      switch (ClaseDe(i)) {
      case Clase::Contado:
        Venta(fecha, false);
        break;
      case Clase::Credito:
        Venta(fecha, true);
        break;
      case Clase::Compra:
        Compra(fecha);
        break;
      case Clase::Gasto:
        Gasto(fecha);
        break;
      case Clase::Deposito:
        Deposito(fecha);
        break;
      }
    }
    for (Lote *lote : {&gralVentas_, &renVentas_, &auxCaja_, &comprasEnc_, &comprasRen_,
                       &gastosEnc_, &gastosRen_, &ingreEgre_})
      lote->Vaciar();
  }

private:
  // A ticket of `renglones` lines: IVA on three lines of four and IVA at 0 % on the
  // fourth, IEPS besides on every third line. A cash ticket is paid in cash or by card,
  // some with a tip above the ticket that the balancing datum gives to the waiters.
  void Venta(const QString &fecha, bool credito) {
    const int n = ++ventas_;
    const QString folio = Folio("NV", n);
    Dinero subtotal, impuestos;
    for (int k = 0; k < t_.renglones; ++k) {
      const Dinero precio = Centavos(1500 + (n * 37 + k * 53) % 9000);
      const int cantidad = 1 + (n + k) % 3;
      const Dinero base = Veces(precio, cantidad);
      const int imp1 = k % 4 == 3 ? kIvaCero : kIva;
      const Dinero reg1 = imp1 == kIva ? Round2(base * kTasaIva) : Dinero();
      const int imp2 = k % 3 == 0 ? kIeps : 0;
      const Dinero reg2 = imp2 == kIeps ? Round2(base * kTasaIeps) : Dinero();
      const Dinero costo = Round2(precio * kFactorCosto);
      subtotal += base;
      impuestos += reg1 + reg2;
      renVentas_.Agregar({Txt(folio), Txt(QStringLiteral("ART%1").arg((n * 7 + k * 11) % 500)),
                          Num(cantidad), Din(precio), Din(costo), Num(1),
                          Din(Veces(Round2(costo * kFactorPeps), cantidad)), Num(imp1), Din(reg1),
                          Num(imp2), Din(reg2)});
    }
    gralVentas_.Agregar(
        {Txt(folio), fecha, Num(credito ? 1 : 0), Num(1), Din(subtotal), Num(0), Num(0)});
    const Dinero total = subtotal + impuestos;
    const int forma = credito ? kCredito : (n % 3 == 1 ? kTarjeta : kEfectivo);
    const Dinero cobrado = !credito && n % 7 == 0 ? total + kPropina : total;
    auxCaja_.Agregar({Txt(folio), fecha, Txt("NVEN"), Txt("NVEN"), Num(credito ? 1 : 0), Num(1),
                      Num(forma), Din(cobrado), Num(0)});
  }

  // A receipt of merchandise of `renglones` lines, every third one with the supplier's
  // discount; IVA on three lines of four.
  void Compra(const QString &fecha) {
    const int n = ++compras_;
    const QString folio = Folio("RC", n);
    const Dinero descuento = n % 3 == 0 ? kDescuento : Dinero();
    Dinero importe, descuentos, iva;
    for (int k = 0; k < t_.renglones; ++k) {
      const Dinero costo = Centavos(800 + (n * 29 + k * 41) % 6000);
      const int cantidad = 2 + (n + 3 * k) % 10;
      const Dinero bruto = Veces(costo, cantidad);
      const Dinero menos = Round2(bruto * descuento);
      importe += bruto;
      descuentos += menos;
      if (k % 4 != 3)
        iva += Round2((bruto - menos) * kTasaIva);
      comprasRen_.Agregar({Txt(folio), Txt(QStringLiteral("ART%1").arg((n * 13 + k * 3) % 500)),
                           Num(cantidad), Din(costo), Din(costo - Round2(costo * descuento)),
                           Num(0), Din(descuento), Num(0), Num(0), Num(0), Num(0), Num(0)});
    }
    const Dinero subtotal = importe - descuentos;
    comprasEnc_.Agregar({Txt(folio), fecha, Num(1), Num(1), Num(1), Din(importe), Din(descuentos),
                         Din(subtotal), Din(iva), Num(0), Num(0), Num(0), Din(subtotal + iva),
                         Din(subtotal + iva), Num(0)});
  }

  // Rent, paid to a person and so with withholdings, and stationery, in turn.
  void Gasto(const QString &fecha) {
    const int n = ++gastos_;
    const QString folio = Folio("GT", n);
    const bool renta = n % 2 == 1;
    const Dinero subtotal = Centavos(20000 + (n * 131) % 90000);
    const Dinero iva = Round2(subtotal * kTasaIva);
    const Dinero retIva =
        renta ? Round2(Dinero::DeDiezmilesimos(iva.Diezmilesimos() * 2 / 3)) : Dinero();
    const Dinero retIsr = renta ? Round2(subtotal * kTasaIsr) : Dinero();
    gastosEnc_.Agregar({Txt(folio), fecha, Txt(renta ? "RENT" : "PAPE"), Txt("GTOS"), Num(1),
                        Din(subtotal + iva - retIva - retIsr), Din(iva), Din(retIva), Din(retIsr),
                        Num(0)});
    gastosRen_.Agregar({Txt(folio)});
  }

  // Deposits of the till's cash and of collections, in turn, into either account.
  void Deposito(const QString &fecha) {
    const int n = ++depositos_;
    ingreEgre_.Agregar({Txt(Folio("IN", n)), fecha, Txt(n % 2 == 1 ? "DEPV" : "COBR"), Txt("INGR"),
                        Num(1), Num(0), Txt(kCuentas[(n / 2) % 2]),
                        Din(Centavos(50000 + (n * 977) % 400000)), Num(1), Num(0)});
  }

  Conexion &con_;
  const Tamano t_;
  Lote gralVentas_, renVentas_, auxCaja_, comprasEnc_, comprasRen_, gastosEnc_, gastosRen_,
      ingreEgre_;
  int ventas_ = 0;
  int compras_ = 0;
  int gastos_ = 0;
  int depositos_ = 0;
};

} // namespace

QDate InicioPeriodo() { return QDate(2026, 3, 1); }

void LlenarEmpresa(Conexion &con, const Tamano &tamano) {
  // On the embedded engine every statement is a transaction of its own unless one is
  // open: the rows of the company go in one.
  const bool sqlite = con.Motor() == motor::kSqlite;
  if (sqlite)
    con.Ejecutar(QStringLiteral("BEGIN"));
  demo::LlenarIdentidad(con, QStringLiteral("banco"));
  demo::LlenarCatalogos(con);
  Periodo(con, tamano).Llenar();
  if (sqlite)
    con.Ejecutar(QStringLiteral("COMMIT"));
}

void FijarFormato(Conexion &con, Formato formato) {
  con.Ejecutar(QStringLiteral("DELETE FROM tblParametrosForm"));
  const QString columnas =
      QStringLiteral("NO_REN,REN_FOL,REN_FEC,REN_TIP,REN_CTA,REN_CON,REN_IMP,REN2_FOL,REN2_FEC,"
                     "REN2_TIP,REN2_CTA,REN2_CON,REN2_IMP,DEB_HAB,CHAR_UNO,CHAR_DOS,CERO_IZQ,"
                     "FORM_CTA,CHAR_SEP,F_FECHA,LON_FIJA,SEP_DAT,SEP_COM,LON_FOL,AL_FOL,LON_FEC,"
                     "AL_FEC,LON_TIP,AL_TIP,LON_CON,AL_CON,LON_CTA,AL_CTA,LON_DEB,AL_DEB,LON_HAB,"
                     "AL_HAB");
  // The package's layout is fixed: its row only says so. The user layout: head with
  // folio, date, type, concept and the sums; detail with account, concept and the amount
  // behind its mark; semicolons, dates DD/MM/AAAA, accounts 4-3-3 filled with zeros.
  const QString valores =
      formato == Formato::Contpaq
          ? QStringLiteral("0,0,0,0,0,0,0,0,0,0,0,0,0,0,'','',0,'','','',0,'',0,0,0,0,0,0,0,0,0,0,"
                           "0,0,0,0,0")
          : QStringLiteral("2,1,2,3,0,4,5,0,0,0,1,2,3,1,'','',1,'4-3-3-0','','DD/MM/AAAA',0,';',"
                           "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0");
  con.Ejecutar(
      QStringLiteral("INSERT INTO tblParametrosForm (%1) VALUES (%2)").arg(columnas, valores));
}

} // namespace banco
