#include "cli/ComandoPoliza.h"

#include "journal/Polizas.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

namespace cli {
namespace {

// Amounts go into JSON as their exact decimal text, never as a binary fraction.
QJsonValue Importe(Dinero d) { return d.Texto(); }

// An entry with its lines and sums; fatal when it doesn't exist.
struct Leida {
  Poliza poliza;
  std::vector<RenglonPoliza> renglones;
  Dinero debe, haber;
};
Leida Leer(Conexion &con, const QString &tipo, const QString &folio) {
  const std::optional<Poliza> p = LeerPoliza(con, folio, tipo);
  if (!p)
    throw ErrorFatal(QStringLiteral("No existe la póliza %1%2.").arg(tipo, folio));
  Leida l{*p, LeerRenglones(con, p->FOL_POLIZA, p->TIP_POLIZA), {}, {}};
  for (const RenglonPoliza &r : l.renglones) {
    l.debe += r.IMP_DEBE;
    l.haber += r.IMP_HABER;
  }
  return l;
}

int MostrarPoliza(const Leidas &o, Contexto &ctx) {
  const QString dado = o.Texto(QStringLiteral("folio"));
  if (!dado.isEmpty() && !o.Hay(QStringLiteral("tipo"))) {
    ctx.err << "La opción --folio va con --tipo: un folio se repite en cada tipo de póliza.\n";
    return kSalidaUso;
  }
  static const QRegularExpression digitos(QStringLiteral("^[0-9]{1,11}$"));
  if (!dado.isEmpty() && !digitos.match(dado).hasMatch()) {
    ctx.err << "La opción --folio espera un número de hasta 11 cifras: «" << dado << "».\n";
    return kSalidaUso;
  }
  SesionCli sesion = AbrirEmpresa(o);
  Conexion &con = *sesion.empresa;
  QString tipo = o.Texto(QStringLiteral("tipo"));
  QString folio = o.Texto(QStringLiteral("folio"));
  if (folio.isEmpty()) {
    // The first of the company, or of the type given.
    Registros r = con.Abrir(
        QStringLiteral("SELECT FOL_POLIZA,TIP_POLIZA FROM tblPolizasEnc%1 ORDER BY "
                       "FEC_POLIZA,TIP_POLIZA,FOL_POLIZA;")
            .arg(tipo.isEmpty() ? QString()
                                : QStringLiteral(" WHERE TIP_POLIZA='%1'").arg(Escapar(tipo))));
    if (r.Vacio()) {
      if (ctx.json)
        ctx.objeto.insert(QStringLiteral("poliza"), QJsonValue());
      else
        ctx.out << "La empresa no tiene pólizas.\n";
      return kSalidaBien;
    }
    folio = r.Campo(QStringLiteral("FOL_POLIZA")).Texto();
    tipo = r.Campo(QStringLiteral("TIP_POLIZA")).Texto();
  } else {
    folio = FormatoFolio(folio.toLongLong());
  }
  if (!ctx.json) {
    EscribirPoliza(ctx.out, con, tipo, folio);
    return kSalidaBien;
  }
  const Leida l = Leer(con, tipo, folio);
  const Poliza *p = &l.poliza;
  const std::vector<RenglonPoliza> &renglones = l.renglones;
  const Dinero debe = l.debe, haber = l.haber;
  QJsonArray lineas;
  for (const RenglonPoliza &r : renglones) {
    const bool cargo = r.EsCargo();
    lineas.append(QJsonObject{{QStringLiteral("rubro"), cargo ? r.RUBRO_DEBE : r.RUBRO_HABER},
                              {QStringLiteral("cuenta"), cargo ? r.CUENTA_DEBE : r.CUENTA_HABER},
                              {QStringLiteral("cargo"), Importe(r.IMP_DEBE)},
                              {QStringLiteral("abono"), Importe(r.IMP_HABER)}});
  }
  ctx.objeto.insert(QStringLiteral("poliza"),
                    QJsonObject{{QStringLiteral("tipo"), p->TIP_POLIZA},
                                {QStringLiteral("folio"), p->FOL_POLIZA},
                                {QStringLiteral("diario"), NombreTipoPoliza(p->TIP_POLIZA)},
                                {QStringLiteral("fecha"), p->FEC_POLIZA.toString(Qt::ISODate)},
                                {QStringLiteral("operacion"), p->COD_OPER},
                                {QStringLiteral("concepto"), p->CONCEP_POL},
                                {QStringLiteral("renglones"), lineas},
                                {QStringLiteral("sumas"),
                                 QJsonObject{{QStringLiteral("cargo"), Importe(debe)},
                                             {QStringLiteral("abono"), Importe(haber)}}}});
  return kSalidaBien;
}

} // namespace

void EscribirPoliza(QTextStream &out, Conexion &con, const QString &tipo, const QString &folio) {
  const Leida l = Leer(con, tipo, folio);
  const Poliza *p = &l.poliza;
  const std::vector<RenglonPoliza> &renglones = l.renglones;
  const Dinero debe = l.debe, haber = l.haber;
  out << "Póliza " << p->TIP_POLIZA << p->FOL_POLIZA << " (" << NombreTipoPoliza(p->TIP_POLIZA)
      << ") del " << p->FEC_POLIZA.toString(QStringLiteral("dd/MM/yyyy")) << ", operación "
      << p->COD_OPER << ": " << p->CONCEP_POL << "\n";
  out << "  " << QStringLiteral("Rubro").leftJustified(12)
      << QStringLiteral("Cuenta").leftJustified(16) << QStringLiteral("Cargo").rightJustified(14)
      << QStringLiteral("Abono").rightJustified(14) << "\n";
  for (const RenglonPoliza &r : renglones) {
    const bool cargo = r.EsCargo();
    out << "  " << (cargo ? r.RUBRO_DEBE : r.RUBRO_HABER).leftJustified(12)
        << (cargo ? r.CUENTA_DEBE : r.CUENTA_HABER).leftJustified(16)
        << (cargo ? r.IMP_DEBE.Formato(u"#,##0.00") : QString()).rightJustified(14)
        << (cargo ? QString() : r.IMP_HABER.Formato(u"#,##0.00")).rightJustified(14) << "\n";
  }
  out << "  " << QStringLiteral("Sumas").leftJustified(28)
      << debe.Formato(u"#,##0.00").rightJustified(14)
      << haber.Formato(u"#,##0.00").rightJustified(14) << "\n";
}

ComandoCli ComandoPoliza() {
  ComandoCli c;
  c.nombre = QStringLiteral("poliza");
  c.resumen = QStringLiteral("Muestra una póliza con sus renglones.");
  c.descripcion =
      QStringLiteral("Muestra la póliza del tipo y folio dados con sus renglones y sus sumas; sin\n"
                     "folio, la primera de la empresa (o del tipo dado) por fecha.\n");
  c.opciones = {OpcionEmpresa(false),
                {QStringLiteral("tipo"), Valor::TipoPoliza, QStringLiteral("T"),
                 QStringLiteral("tipo de la póliza (I, E, D, O, S)"), false},
                {QStringLiteral("folio"), Valor::Texto, QStringLiteral("F"),
                 QStringLiteral("folio de la póliza (12 o 00000000012)"), false},
                OpcionJson()};
  c.correr = MostrarPoliza;
  return c;
}

} // namespace cli
