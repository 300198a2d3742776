#pragma once

#include <QDate>

class Conexion;

// A company of any size for the benchmark: the catalogues and posting rules of the demo
// company, and a period of documents spread evenly over its days; of every twenty, eleven
// cash sales, three credit sales, two receipts of merchandise, two expenses and two bank
// deposits. The same size always gives the same rows.
namespace banco {

struct Tamano {
  int documentos = 20000;
  int dias = 30;
  int renglones = 12; // lines of every sale and every receipt
};

// The first day of the period of every synthetic company.
QDate InicioPeriodo();

// Fills a company database whose tables exist and are empty: identity, the demo's
// catalogues and rules, and the documents of the size.
void LlenarEmpresa(Conexion &con, const Tamano &tamano);

// The single row of tblParametrosForm: the accounting package's fixed layout, or a user
// layout of two rows (a head row with the entry's sums, a detail row for each line).
enum class Formato { Contpaq, DosRenglones };
void FijarFormato(Conexion &con, Formato formato);

} // namespace banco
