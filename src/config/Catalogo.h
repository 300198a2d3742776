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
