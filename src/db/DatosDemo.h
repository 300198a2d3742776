#pragma once

#include <QDate>

class Conexion;

// Rows of the demo company: catalogues of the family (modules, operations and their
// data, chart of rubros, journal types, taxes, bank accounts), posting rules, and one
// month of documents of a small restaurant and shop. Works on any engine; every
// statement goes through the connection as text, dates through FechaSQL.
namespace demo {

// With marks on, every text value of the catalogues, rules and documents that has a
// letter and more than four characters has its second character made an apostrophe, so
// that it still fits its column ("RENTA DEL LOCAL" is "R'NTA DEL LOCAL", a folio
// "V-2610-0001" is "V'2610-0001"):
// a company on which to try that no value breaks a statement. Codes of four characters
// stay as they are, since the fixed statements of the operations name some of them
// ('ACLI', 'CHQE'). Off by default.
void MarcarTextos(bool marcar);

// Catalogues and rules. Needs the company's tables, empty.
void LlenarCatalogos(Conexion &con);
// Documents of the month that starts at `mes` (the first day of a month).
void LlenarDocumentos(Conexion &con, const QDate &mes);

// The export format of the company (the single row of tblParametrosForm).
enum class FormatoDemo {
  Contpaq,     // the accounting package's fixed layout
  DosRenglones // a user layout: a head row with the entry's sums, a row for each line
};
void LlenarFormato(Conexion &con, FormatoDemo formato);

} // namespace demo
