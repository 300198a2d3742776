#include "journal/Polizas.h"

#include "shell/Dialecto.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;

QString NombreFrecuencia(int f) {
  switch (f) {
  case frec::kPorDocumento:
    return QStringLiteral("Póliza por Documento");
  case frec::kPorDia:
    return QStringLiteral("Póliza por Día");
  default:
    return {};
  }
}

QString NombreTipoPoliza(const QString &tipo) {
  if (tipo == QLatin1String("I"))
    return QStringLiteral("INGRESOS");
  if (tipo == QLatin1String("E"))
    return QStringLiteral("EGRESOS");
  if (tipo == QLatin1String("D"))
    return QStringLiteral("DIARIO");
  if (tipo == QLatin1String("O"))
    return QStringLiteral("ORDEN");
  if (tipo == QLatin1String("S"))
    return QStringLiteral("ESTADÍSTICA");
  return {};
}

QString FormatoFolio(qint64 numero) {
  if (numero < 0)
    return QStringLiteral("%1").arg(numero, 11, 10, QLatin1Char('0'));
  QString texto = QString::number(numero);
  if (texto.size() < 11)
    texto.prepend(QString(11 - texto.size(), QLatin1Char('0')));
  return texto;
}

// The statements of a journal entry are joined piece by piece: every document writes
// several, and filling a pattern costs more than the statement takes to run.

QString SentenciaInsertarPoliza(const Poliza &p, const Dialecto &dialecto) {
  return u"INSERT INTO tblPolizasEnc (FOL_POLIZA,FEC_POLIZA,TIP_POLIZA,COD_OPER,CONCEP_POL,"
         "FEC_ANTERIOR,IMPANT_DEBE,IMPANT_HABER,SUM_DEBE,SUM_HABER,ESTATUS) VALUES ('"_s %
         Escapar(p.FOL_POLIZA) % u"',"_s % dialecto.FechaSQL(p.FEC_POLIZA) % u",'"_s %
         Escapar(p.TIP_POLIZA) % u"',"_s % QString::number(p.COD_OPER) % u",'"_s %
         Escapar(p.CONCEP_POL) % u"',"_s % dialecto.FechaSQL(p.FEC_ANTERIOR) % u","_s %
         p.IMPANT_DEBE.Texto() % u","_s % p.IMPANT_HABER.Texto() % u","_s % p.SUM_DEBE.Texto() %
         u","_s % p.SUM_HABER.Texto() % u","_s % QString::number(p.ESTATUS) % u")"_s;
}

QString ValoresRenglonDebe(const QString &folio, const QString &tipo, int codDato,
                           const QString &rubro, const QString &cuenta, Dinero importe) {
  return u"('"_s % Escapar(folio) % u"','"_s % Escapar(tipo) % u"',"_s % QString::number(codDato) %
         u",'"_s % Escapar(rubro) % u"','','"_s % Escapar(cuenta) % u"','',"_s % importe.Texto() %
         u",0)"_s;
}

QString ValoresRenglonHaber(const QString &folio, const QString &tipo, int codDato,
                            const QString &rubro, const QString &cuenta, Dinero importe) {
  return u"('"_s % Escapar(folio) % u"','"_s % Escapar(tipo) % u"',"_s % QString::number(codDato) %
         u",'','"_s % Escapar(rubro) % u"','','"_s % Escapar(cuenta) % u"',0,"_s % importe.Texto() %
         u")"_s;
}

QString SentenciaRenglones(const QStringList &valores) {
  return u"INSERT INTO tblPolizasRen (FOL_POLIZA,TIP_POLIZA,COD_DATO,RUBRO_DEBE,RUBRO_HABER,"
         "CUENTA_DEBE,CUENTA_HABER,IMP_DEBE,IMP_HABER) VALUES "_s %
         valores.join(QLatin1Char(','));
}

QString SentenciaRenglonDebe(const QString &folio, const QString &tipo, int codDato,
                             const QString &rubro, const QString &cuenta, Dinero importe) {
  return SentenciaRenglones({ValoresRenglonDebe(folio, tipo, codDato, rubro, cuenta, importe)});
}

QString SentenciaRenglonHaber(const QString &folio, const QString &tipo, int codDato,
                              const QString &rubro, const QString &cuenta, Dinero importe) {
  return SentenciaRenglones({ValoresRenglonHaber(folio, tipo, codDato, rubro, cuenta, importe)});
}

QString SentenciaInsertarPoliza(const Poliza &p, int motor) {
  return SentenciaInsertarPoliza(p, Dialecto(motor));
}

void InsertarPoliza(Conexion &con, const Poliza &p, const std::vector<RenglonPoliza> &renglones) {
  con.Ejecutar(SentenciaInsertarPoliza(p, con.Dialecto()));
  for (const RenglonPoliza &r : renglones) {
    if (r.EsCargo())
      con.Ejecutar(SentenciaRenglonDebe(p.FOL_POLIZA, p.TIP_POLIZA, r.COD_DATO, r.RUBRO_DEBE,
                                        r.CUENTA_DEBE, r.IMP_DEBE));
    else
      con.Ejecutar(SentenciaRenglonHaber(p.FOL_POLIZA, p.TIP_POLIZA, r.COD_DATO, r.RUBRO_HABER,
                                         r.CUENTA_HABER, r.IMP_HABER));
  }
}

std::optional<Poliza> LeerPoliza(Conexion &con, const QString &folio, const QString &tipo) {
  Registros r = con.Abrir(
      QStringLiteral("SELECT * FROM tblPolizasEnc WHERE FOL_POLIZA='%1' AND TIP_POLIZA='%2';")
          .arg(Escapar(folio), Escapar(tipo)));
  if (r.Vacio())
    return std::nullopt;
  Poliza p;
  p.FOL_POLIZA = r.Campo(QStringLiteral("FOL_POLIZA")).Texto();
  p.FEC_POLIZA = r.Campo(QStringLiteral("FEC_POLIZA")).Fecha();
  p.TIP_POLIZA = r.Campo(QStringLiteral("TIP_POLIZA")).Texto();
  p.COD_OPER = static_cast<int>(r.Campo(QStringLiteral("COD_OPER")).Entero());
  p.CONCEP_POL = r.Campo(QStringLiteral("CONCEP_POL")).Texto();
  p.FEC_ANTERIOR = r.Campo(QStringLiteral("FEC_ANTERIOR")).Fecha();
  p.IMPANT_DEBE = r.Campo(QStringLiteral("IMPANT_DEBE")).ComoDinero();
  p.IMPANT_HABER = r.Campo(QStringLiteral("IMPANT_HABER")).ComoDinero();
  p.SUM_DEBE = r.Campo(QStringLiteral("SUM_DEBE")).ComoDinero();
  p.SUM_HABER = r.Campo(QStringLiteral("SUM_HABER")).ComoDinero();
  p.ESTATUS = static_cast<int>(r.Campo(QStringLiteral("ESTATUS")).Entero());
  return p;
}

std::vector<RenglonPoliza> LeerRenglones(Conexion &con, const QString &folio, const QString &tipo) {
  std::vector<RenglonPoliza> renglones;
  Registros r = con.Abrir(
      QStringLiteral("SELECT * FROM tblPolizasRen WHERE FOL_POLIZA='%1' AND TIP_POLIZA='%2';")
          .arg(Escapar(folio), Escapar(tipo)));
  for (; !r.Fin(); r.Siguiente()) {
    RenglonPoliza l;
    l.FOL_POLIZA = r.Campo(QStringLiteral("FOL_POLIZA")).Texto();
    l.TIP_POLIZA = r.Campo(QStringLiteral("TIP_POLIZA")).Texto();
    l.COD_DATO = static_cast<int>(r.Campo(QStringLiteral("COD_DATO")).Entero());
    l.RUBRO_DEBE = r.Campo(QStringLiteral("RUBRO_DEBE")).Texto();
    l.RUBRO_HABER = r.Campo(QStringLiteral("RUBRO_HABER")).Texto();
    l.CUENTA_DEBE = r.Campo(QStringLiteral("CUENTA_DEBE")).Texto();
    l.CUENTA_HABER = r.Campo(QStringLiteral("CUENTA_HABER")).Texto();
    l.IMP_DEBE = r.Campo(QStringLiteral("IMP_DEBE")).ComoDinero();
    l.IMP_HABER = r.Campo(QStringLiteral("IMP_HABER")).ComoDinero();
    renglones.push_back(l);
  }
  return renglones;
}
