#pragma once

#include <QString>
#include <functional>
#include <vector>

class Conexion;

// The menus of the family's modules, by profile: templates per profile and module
// edition, a copy of them per user, and the rule that a module applies to its menu bar.
// This program doesn't read those rights for its own menus; it builds them as the owner
// of the company screen, and reads them when a user switches company.
namespace menus {

// One item of the templates: edition, order (its identity within the edition), name of
// the menu control, caption, order of its parent (0 at the top), and the profiles (2 to
// 5, as digits) whose template holds it.
struct ItemPlantilla {
  int edicion;
  int orden;
  const char *nombre;
  const char *titulo;
  int rama;
  const char *perfiles;
};
// Every item of every edition, the editions in order and each by its order.
const std::vector<ItemPlantilla> &Plantillas();

// The editions, in the order a user's menus are built: 10, 11, 20, 30, 40, 50, 60.
const std::vector<int> &Ediciones();
// The table of the users' menus of an edition (tblMenusPV for 10, ...); "" for none.
QString TablaMenus(int edicion);

// Inserts the template rows that the company lacks, profile by profile and edition by
// edition. A failure stops the run with what was done, and tells it in *error.
bool SembrarPlantillas(Conexion &con, QString *error);

// Copies the templates to each user for every edition the user has no menus of yet:
// purchasing and expenses only below profile 4, edition 60 only for profile 1. An
// administrator whose profile has no template of its own gets one made from profile 0.
// estado(linea1, linea2) tells the progress. A failure stops the run, as above.
using Estado = std::function<void(const QString &linea, const QString &usuario)>;
bool GenerarMenus(Conexion &con, const Estado &estado, QString *error);

// Scrambles the users' passwords that are not yet scrambled (shorter than 11 characters).
void EncriptarClaves(Conexion &con);

// What a module does with one item of its menu bar for a user: shown and enabled when the
// user's menus hold it, hidden and disabled when not; "mnuPVPrecios" and "mnuSisConfig"
// are always left as they are.
enum class Regla { Mostrar, Ocultar, Dejar };
Regla ReglaOpcion(Conexion &con, int modulo, const QString &usuario, const QString &opcion);

// The family's check of a user's right to a menu item of a module. An administrator
// (profile 1) has every right; any other user the items the rule shows. The user
// accepted is the one asked about.
struct Acceso {
  bool concedido = false;
  QString usuario;
};
Acceso RevisarDerechos(Conexion &con, int modulo, const QString &usuario, const QString &opcion);

} // namespace menus
