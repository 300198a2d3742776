#include "cli/ComandoPoliza.h"

#include "journal/Polizas.h"
#include "shell/ErrorFatal.h"
#include "shell/Sesion.h"

namespace cli {

int MostrarPoliza(const Argumentos &a, QTextStream &out) {
  SesionCli sesion = AbrirEmpresa(a.opciones);
  Conexion &con = *sesion.empresa;
  QString tipo = Opcion(a.opciones, QStringLiteral("--tipo"));
  QString folio = Opcion(a.opciones, QStringLiteral("--folio"));
  if (folio.isEmpty()) {
    Registros r = con.Abrir(QStringLiteral("SELECT FOL_POLIZA,TIP_POLIZA FROM tblPolizasEnc "
                                           "ORDER BY FEC_POLIZA,TIP_POLIZA,FOL_POLIZA;"));
    if (r.Vacio()) {
      out << "La empresa no tiene pólizas.\n";
      return kSalidaBien;
    }
    folio = r.Campo(QStringLiteral("FOL_POLIZA")).Texto();
    tipo = r.Campo(QStringLiteral("TIP_POLIZA")).Texto();
  } else {
    bool ok = false;
    const qint64 numero = folio.toLongLong(&ok);
    if (ok)
      folio = FormatoFolio(numero);
  }
  const std::optional<Poliza> p = LeerPoliza(con, folio, tipo);
  if (!p)
    throw ErrorFatal(QStringLiteral("No existe la póliza %1%2.").arg(tipo, folio));
  out << "Póliza " << p->TIP_POLIZA << p->FOL_POLIZA << " (" << NombreTipoPoliza(p->TIP_POLIZA)
      << ") del " << p->FEC_POLIZA.toString(QStringLiteral("dd/MM/yyyy")) << ", operación "
      << p->COD_OPER << ": " << p->CONCEP_POL << "\n";
  out << "  " << QStringLiteral("Rubro").leftJustified(12)
      << QStringLiteral("Cuenta").leftJustified(16) << QStringLiteral("Cargo").rightJustified(14)
      << QStringLiteral("Abono").rightJustified(14) << "\n";
  Dinero debe, haber;
  for (const RenglonPoliza &r : LeerRenglones(con, p->FOL_POLIZA, p->TIP_POLIZA)) {
    const bool cargo = r.EsCargo();
    out << "  " << (cargo ? r.RUBRO_DEBE : r.RUBRO_HABER).leftJustified(12)
        << (cargo ? r.CUENTA_DEBE : r.CUENTA_HABER).leftJustified(16)
        << (cargo ? r.IMP_DEBE.Formato(u"#,##0.00") : QString()).rightJustified(14)
        << (cargo ? QString() : r.IMP_HABER.Formato(u"#,##0.00")).rightJustified(14) << "\n";
    debe += r.IMP_DEBE;
    haber += r.IMP_HABER;
  }
  out << "  " << QStringLiteral("Sumas").leftJustified(28)
      << debe.Formato(u"#,##0.00").rightJustified(14)
      << haber.Formato(u"#,##0.00").rightJustified(14) << "\n";
  return kSalidaBien;
}

} // namespace cli
