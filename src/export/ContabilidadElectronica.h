#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

class Conexion;

// The SAT's electronic accounting (version 1.3): the journal entries of a month as
// "pólizas del periodo", and the chart of accounts with the grouping code of each one.
// Both files are UTF-8 XML, named as the SAT names them and written whole or not at all.
namespace sat {

// What an entries file is asked for.
struct PeticionPolizas {
  QDate mes;             // any day of the month
  QString tipoSolicitud; // AF, FC (audit; with numOrden), DE, CO (refund, compensation;
                         // with numTramite)
  QString numOrden;      // "ABC1234567/12"
  QString numTramite;    // "AB123456789012"
  QString archivo;       // empty: the SAT's name in the program's Export folder
};

// How a file came out: written, or refused with the reasons, each naming its field.
struct ResultadoSat {
  QString archivo;    // the file written; empty when refused
  QStringList faltas; // why nothing was written
  int elementos = 0;  // entries or accounts in the file
  int transacciones = 0;
  int sinMovimiento = 0; // entries of the month without lines, left out of the file
  bool Escrito() const { return faltas.isEmpty(); }
};

// The company's RFC from the three parts of its identity, without blanks or dashes, in
// capitals.
QString RfcEmpresa(Conexion &con);
// The SAT's name of a file: RFC, year, month and the kind ("PL" entries, "CT" chart).
QString NombreArchivo(const QString &rfc, const QDate &mes, const QString &tipo);
// The faults of a request by itself, before anything is read.
QStringList FaltasPeticion(const PeticionPolizas &p);
// The faults of the month of a file by itself (the SAT takes the years 2015 to 2099).
QStringList FaltasMes(const QDate &mes);
// The fault of the company's RFC; empty when it fits the SAT's pattern.
QString FaltaRfc(const QString &rfc);
// An audit (AF, FC) carries an order number; a refund or compensation (DE, CO) a
// procedure number.
bool LlevaOrden(const QString &tipoSolicitud);
// "D" or "A" from a nature as the chart writes it ("DEUDORA", "A"…); empty for another.
QString LetraNaturaleza(const QString &naturaleza);
// The heading of a refusal, before its faults.
QString EncabezadoFaltas();

// The entries of the month, each with its lines, from the journal tables.
ResultadoSat EscribirPolizas(Conexion &con, const PeticionPolizas &p);
// The chart of rubros with the codes of tblRubrosSAT. Accounts without a code are named
// and no file is written.
ResultadoSat EscribirCatalogo(Conexion &con, const QDate &mes, const QString &archivo = {});

// The grouping code's form: three digits, and for a subaccount a point and two more.
bool CodigoAgrupadorValido(const QString &codigo);

} // namespace sat
