#pragma once

#include "shell/Dinero.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

class Conexion;
class Dialecto;

// Frequency of a rule and of a posted document.
namespace frec {
constexpr int kPorDocumento = 1;
constexpr int kPorDia = 2;
} // namespace frec

// "Póliza por Documento" or "Póliza por Día"; empty for any other value.
QString NombreFrecuencia(int frec);

// The word of a journal type letter: I INGRESOS, E EGRESOS, D DIARIO, O ORDEN,
// S ESTADÍSTICA; an unknown letter gives the empty text.
QString NombreTipoPoliza(const QString &tipo);

// A folio in eleven digits, zero-padded ("0000000000#"); more digits when it needs them.
QString FormatoFolio(qint64 numero);

// Header of a journal entry (tblPolizasEnc).
struct Poliza {
  QString FOL_POLIZA;
  QDate FEC_POLIZA;
  QString TIP_POLIZA;
  int COD_OPER = 0;
  QString CONCEP_POL;
  QDate FEC_ANTERIOR;
  Dinero IMPANT_DEBE, IMPANT_HABER;
  Dinero SUM_DEBE, SUM_HABER;
  int ESTATUS = 1;
};

// A line of a journal entry (tblPolizasRen): a debit when RUBRO_DEBE isn't empty.
struct RenglonPoliza {
  QString FOL_POLIZA;
  QString TIP_POLIZA;
  int COD_DATO = 0;
  QString RUBRO_DEBE, RUBRO_HABER;
  QString CUENTA_DEBE, CUENTA_HABER;
  Dinero IMP_DEBE, IMP_HABER;
  bool EsCargo() const { return !RUBRO_DEBE.isEmpty(); }
};

// The insertion of a header, with ESTATUS as given (1 new, -1 re-created).
QString SentenciaInsertarPoliza(const Poliza &p, const Dialecto &dialecto);
// The same for an engine by its number.
QString SentenciaInsertarPoliza(const Poliza &p, int motor);
// The insertion of a debit line and of a credit line.
QString SentenciaRenglonDebe(const QString &folio, const QString &tipo, int codDato,
                             const QString &rubro, const QString &cuenta, Dinero importe);
QString SentenciaRenglonHaber(const QString &folio, const QString &tipo, int codDato,
                              const QString &rubro, const QString &cuenta, Dinero importe);
// The values of a line as its insertion writes them, between parentheses; the insertion of
// lines given so, in their order, in one statement.
QString ValoresRenglonDebe(const QString &folio, const QString &tipo, int codDato,
                           const QString &rubro, const QString &cuenta, Dinero importe);
QString ValoresRenglonHaber(const QString &folio, const QString &tipo, int codDato,
                            const QString &rubro, const QString &cuenta, Dinero importe);
QString SentenciaRenglones(const QStringList &valores);

// Writes a header and its lines, one statement each, in order.
void InsertarPoliza(Conexion &con, const Poliza &p, const std::vector<RenglonPoliza> &renglones);
// Reads an entry by folio and journal type.
std::optional<Poliza> LeerPoliza(Conexion &con, const QString &folio, const QString &tipo);
std::vector<RenglonPoliza> LeerRenglones(Conexion &con, const QString &folio, const QString &tipo);
