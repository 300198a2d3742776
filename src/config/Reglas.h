#pragma once

#include <QString>
#include <optional>
#include <vector>

class Conexion;

// The posting rule tables and the catalogues beside them: rules (tblOperacionxConcep),
// their rows (tblRubrosxOperacion), rubros, journal types and bank accounts. Every
// routine sends one statement of text, or the few that its task needs, as the screens
// and the run write them; failures end the process unless told otherwise.

// The catalogue that names the concepts of an operation: its table, the columns of code and
// description, and the rows of it that belong to the operation (empty: the whole table).
// The list is the program's own; no table holds it. Each screen and the run build their
// statements from it.
struct CatalogoConceptos {
  const char *tabla;
  const char *codigo;
  const char *descripcion;
  const char *filtro;
};
// For the operations 3 to 7, 10, 11, 19 to 25 and 30; none for the others.
const CatalogoConceptos *CatalogoDeConceptos(int codOper);
// "SELECT <code>, <description> FROM <table>[ WHERE <rows>] ORDER BY <code>": the
// concepts of the operation, for a list to choose from. A catalogue of the whole table
// gets `todas` as its rows when given (the export screen writes "1=1").
QString ListaDeConceptos(const CatalogoConceptos &catalogo, const char *todas = "");

// A rule: one row of tblOperacionxConcep.
struct ReglaPosteo {
  int COD_POL = 0;
  int COD_OPER = 0;
  int MODULO = 0;
  QString CONCEPTO; // empty for an operation without a catalogue of concepts
  QString TIP_POLIZA;
  QString STS_POLIZA; // always 'D' when written here
  int FREC = 0;       // 1 by document, 2 by day
  int DIARIO = 0;     // COD_NUM of the journal type, 0 when it wasn't found
};

// A row of a rule: one row of tblRubrosxOperacion. The columns that are constant in
// every row written here (PORCENTAJE, TIPO_MOV, ...) aren't kept.
struct RubroOperacion {
  int COD_DATO = 0;
  QString CUENTA_DEBE, CUENTA_HABER;
  int COD_POL = 0;
  QString COD_DIARIO;
  QString TXT_CONC; // at most 30 characters
  QString RUBRO_DEBE, RUBRO_HABER;
  int COD_OPER = 0; // the operation chosen on the screen, not the datum's owner
};

// What the run takes of a datum (tblDatosxOperacion).
struct DatoOperacion {
  QString DES_DATO;
  int CAMPO_ESTBD = 0;
};

// A rubro as the lists of a rule show it.
struct RubroCatalogo {
  QString COD_RUBRO, DES_RUBRO, CUENTA_RUBRO;
};

// A journal type (tblFolios).
struct TipoPoliza {
  QString COD_FOLIO, DES_FOLIO, FOL_FOLIOS;
  QString COD_NUM; // as the grid shows it
};

// ------------------------------------------------------------------ rules

// The number of a new rule: the greatest COD_POL plus 1, or 1 in an empty table or
// where the greatest is null.
int SiguienteCodPol(Conexion &con);
// COD_POL of the rule of a module, operation and concept.
std::optional<int> BuscarRegla(Conexion &con, int modulo, int codOper, const QString &concepto);
// The rule as the definition screen shows it: COD_POL, TIP_POLIZA and FREC.
std::optional<ReglaPosteo> LeerRegla(Conexion &con, int modulo, int codOper,
                                     const QString &concepto);
// Inserts a new rule under the next number (SiguienteCodPol) and gives that number.
// MODULO, COD_OPER, CONCEPTO, TIP_POLIZA, FREC and DIARIO come from the argument.
int CrearRegla(Conexion &con, const ReglaPosteo &regla);
// Saves a rule again: journal type, frequency and DIARIO; the key of meaning stays.
void ActualizarRegla(Conexion &con, const ReglaPosteo &regla);
// Deletes the rule and then its rows, two statements without a transaction.
void BorrarRegla(Conexion &con, int codPol);
// Deletes every row of a rule, before a saving writes them anew.
void BorrarRubrosDeRegla(Conexion &con, int codPol);
// Inserts one row of a rule, with the constant columns of the statement.
void InsertarRubroDeRegla(Conexion &con, const RubroOperacion &fila);
// The rows of a rule as the definition screen reads them, in the database's order.
std::vector<RubroOperacion> RubrosDeDefinicion(Conexion &con, int codPol);

// The rules of an operation, as the run gathers them, by concept.
std::vector<ReglaPosteo> ReglasDeOperacion(Conexion &con, int codOper);
// GENERA_CON of an operation; an operation missing from the catalogue ends the process.
bool GeneraConcepto(Conexion &con, int codOper);
// The rows of a rule in the order of their creation (ORDEN_CREA).
std::vector<RubroOperacion> RubrosDeRegla(Conexion &con, int codPol);
// DES_DATO and CAMPO_ESTBD of a datum; none for a datum without a row.
std::optional<DatoOperacion> LeerDato(Conexion &con, int codDato);

// ------------------------------------------------------------------ rubros

// CUENTA_RUBRO of a rubro, whatever its level.
std::optional<QString> CuentaDeRubro(Conexion &con, const QString &codRubro);
// DES_RUBRO of a rubro, whatever its level.
std::optional<QString> DescripcionDeRubro(Conexion &con, const QString &codRubro);
// The rubros that a rule may name (ULTIMO_RUBRO='S'), by description.
std::vector<RubroCatalogo> RubrosSeleccionables(Conexion &con);
// A rubro of the last level by its code.
std::optional<RubroCatalogo> RubroSeleccionable(Conexion &con, const QString &codRubro);
// A rubro of the last level by what was typed: its code, else its account, else the
// beginning of its description; the first row of the first query that has any.
std::optional<RubroCatalogo> BuscarRubroSeleccionable(Conexion &con, const QString &texto);

// ------------------------------------------------------------------ journal types

// Every journal type, in the order that the database gives.
std::vector<TipoPoliza> LeerTiposPoliza(Conexion &con);
// COD_NUM of a journal type, 0 when the type isn't in tblFolios.
int DiarioDeFolio(Conexion &con, const QString &codFolio);
// Writes the last folio and the numeric code of a type that still exists; false (and
// nothing written) for a type that has vanished.
bool GrabarTipoPoliza(Conexion &con, const QString &codFolio, const QString &folFolios,
                      const QString &codNum);

// ------------------------------------------------------------------ bank accounts

// COD_RUBRO of a bank account by its number; none when the account has no row.
std::optional<QString> RubroDeCuentaBancaria(Conexion &con, const QString &numCuenta);
// True when some bank account names the rubro.
bool RubroTieneCuentaBancaria(Conexion &con, const QString &codRubro);
