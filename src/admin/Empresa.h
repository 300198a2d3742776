#pragma once

#include "shell/ServicioUtil.h"

#include <QString>
#include <QStringList>
#include <array>
#include <functional>
#include <vector>

class Conexion;

// A company's data and its database, as the company screen and the command line take
// them, and their saving: the row of the general database, the company's own rows, the
// seeds and the users' menus. New databases get their schema and a first administrator.
namespace empresa {

// Where the company's database lives.
struct DatosConexion {
  int motor = motor::kSqlite;
  QString baseDatos; // NOMBREBASEDATOS: the database's name (MySQL, SQL Server)
  // MySQL and MariaDB: the ODBC data source.
  QString dsn;
  // SQL Server: "<servidor>\<instancia>", and Windows (0) or SQL Server (1) authentication.
  QString servidor, instancia;
  int autenticacion = 0;
  QString usuario, clave; // the password in plain
  bool probada = false;   // "Probar conexión" succeeded with these values
  // The embedded engine: the file, relative to the program's folder or absolute.
  QString archivo;
};

// The parts of a stored SQL Server text. Without a backslash in the data source, server
// and instance stay empty; a password is unscrambled.
DatosConexion DescomponerConexion(const QString &conexion);
// The connection text of the parts: for use (password in plain) or to be stored
// (password scrambled). SQL Server in the forms of the provider; MySQL "DSN=<name>";
// the embedded engine "SQLite=<file>".
QString ArmarConexion(const DatosConexion &datos, bool paraGuardar);

// The data sources of the machine's ODBC manager, by name.
QStringList FuentesOdbc();
// Tries the SQL Server connection of the parts; true when it opens.
bool ProbarConexion(const DatosConexion &datos);

struct CodigoTexto {
  QString codigo, texto;
};

// The company as its screen holds it.
struct DatosEmpresa {
  QString nombre, comercial, direccion, numExt, numInt, colonia, codigoPostal;
  CodigoTexto ciudad, estado, pais;
  std::array<QString, 6> rfc; // RFC1_EMP to RFC3_EMP, then DESCRIP1 to DESCRIP3
  std::array<QString, 4> telefonos;
  QString paginaWeb;
  CodigoTexto expedicion; // COD_EXPED and its text; empty code for none
  QString sucursal, nombreSucursal;
  // The place of issue, when it differs from the company's address.
  QString calleExp, extExp, intExp, coloniaExp, cpExp;
  QString ciudadExp, estadoExp, paisExp;
  QString imagen;
  bool revisarEstructura = false;
  std::array<bool, 2> imprimirNombre{true, false}; // REP_NOMEMP, REP_NOMCOM
  DatosConexion conexion;
  // The first administrator of a new database, who is the only one able to log in.
  QString admin, claveAdmin, nombreAdmin = QStringLiteral("ADMINISTRADOR");
};

// Reads a company (NUM_EMP numEmp) from the general database and its own.
DatosEmpresa CargarDatosEmpresa(int numEmp);

// The company name holds none of \ / : * ? " < > |.
bool NombreValido(const QString &nombre);

// The checks before saving, with their messages and questions in order; false when one
// refuses or the answer is No.
bool ValidarEmpresa(const DatosEmpresa &datos);

// The steps of saving, told as they go (first and second progress lines).
using Avance = std::function<void(const QString &estatus, const QString &opcional)>;

// Asked when the database turns out to be new and no administrator was given: fills
// admin, claveAdmin and nombreAdmin, or answers false to give the save up.
using PedirAdministrador = std::function<bool(DatosEmpresa &datos)>;

// Saves the company (numEmp 0 for a new one) and answers its NUM_EMP, or 0 when a step
// refused with its message. nueva tells whether the database was created now.
int GuardarEmpresa(const DatosEmpresa &datos, int numEmp, const Avance &avance,
                   bool *nueva = nullptr, const PedirAdministrador &pedir = {});

// ---------------------------------------------------------------- the list of companies

// One company of the list: every row with a connection, served here.
struct FilaEmpresa {
  int numero = 0;
  QString nombre, comercial;
};
std::vector<FilaEmpresa> ListaEmpresas();

// The switch to another company: the user marked out of the current one, the other's
// database opened, the user and the user's right to open companies checked there, the
// company loaded into the session, remembered in Nimbar.ini, and the user marked in.
// False, with its message, when the user stays where he was.
bool CambiarEmpresa(int numEmp);

// Deletes a company's row from the general database after the question; the open company
// can't be deleted. Its database stays as it is. True when the row went.
bool EliminarEmpresa(int numEmp);

} // namespace empresa
