#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

class Conexion;

// What the chart of rubros screen holds: one rubro at a time under its parent.
struct RubroEnPantalla {
  QString padre;           // cmbRubros: the parent, a rubro of the system
  QString desPadre;        // lblDesRubroSist
  QString rubroEmp;        // lblRubroEmp: the company rubro created or shown; empty for one
                           // of the system
  QString descripcion;     // txtDesRubro
  QString cuenta;          // txtNumCuenta
  QString edoFinanciero;   // lblEdoFinanciero
  QString naturaleza;      // lblNaturaleza
  QString tipoCuentaPadre; // TIPOCTA_RUBRO of the parent, for the insertion
};

// A rubro as the screen shows it when it is found.
struct RubroLeido {
  QString DES_RUBRO, EDOFIN_RUBRO, NATURAL_RUBRO, CUENTA_RUBRO, CLASIF_RUBRO;
};

// The parents that can be chosen, read once when the screen opens.
QStringList PadresDeRubros(Conexion &con);
// A new child of the parent chosen: the parent's data and the next child code, one above
// the greatest child (a gap isn't filled; grandchildren don't count). A parent that isn't
// one leaves the parent empty.
void PrepararRubroNuevo(Conexion &con, RubroEnPantalla &r);
std::optional<RubroLeido> LeerRubro(Conexion &con, const QString &codigo);
// "GRB": insertion of a new company rubro (question 5521) with its parent no longer the
// last level, or change of description and account of an existing one (question 154).
// Warning 5520 when something is missing. True when something was written (the screen
// is then prepared for the next child).
bool GrabarRubro(Conexion &con, RubroEnPantalla &r);
// "BOR": the guards in order (5515, 5528 under "1-01-02", 5516, 5517, 5518), question
// 5519, the deletion and, for a parent left without children, its flip back to the last
// level. `trasSi` is told once the question is answered Yes (the screen's hourglass). True
// when the rubro was deleted.
bool BorrarRubro(Conexion &con, RubroEnPantalla &r, const std::function<void()> &trasSi = {});

// The SAT's data of a rubro (tblRubrosSAT), edited beside it: the grouping code and the
// nature, "D" (deudora) or "A" (acreedora). Empty texts when the rubro has none.
struct DatosSat {
  QString codigo;
  QString naturaleza;
  bool operator==(const DatosSat &) const = default;
};

// Creates tblRubrosSAT in a company made before it existed; false, with the failure
// shown, when it can't.
bool AsegurarDatosSat(Conexion &con);
DatosSat LeerDatosSat(Conexion &con, const QString &rubro);
// What a new child starts with: its parent's code, and the nature of the parent's rubro.
DatosSat DatosSatNuevo(Conexion &con, const RubroEnPantalla &r);
// Warning 5529 when the code isn't of the SAT's form; an empty code passes.
bool ValidarDatosSat(const DatosSat &d);
// Replaces the rubro's row; no row when both texts are empty.
void GrabarDatosSat(Conexion &con, const QString &rubro, const DatosSat &d);
void BorrarDatosSat(Conexion &con, const QString &rubro);
