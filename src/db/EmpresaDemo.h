#pragma once

#include <QDate>
#include <QString>

class Conexion;

// Builds a demo installation in a folder: the general database with one company on
// the embedded engine, the reference database, the folders beside the program,
// Nimbar.ini, and the company database with its catalogues, rules and a month of
// documents.
namespace demo {

struct OpcionesDemo {
  QString ruta;             // folder of the installation
  QString clave;            // password of ADMIN; generated when empty
  bool reconstruir = false; // replace an earlier demo instead of refusing
};

struct ResultadoDemo {
  QString clave;       // ADMIN's password, as typed at login
  QString conexion;    // CONEXION of the company
  QString rutaEmpresa; // file of the company database
};

// The month of documents of the demo: the month before the current one.
QDate MesDemo();

// Fatal with a clear message when the folder already holds a demo and reconstruir
// is false; what an interrupted build left is removed again.
ResultadoDemo CrearDemo(const OpcionesDemo &opciones);

// Creates a company database file with the whole schema and no rows.
void CrearBaseEmpresaSqlite(const QString &rutaArchivo);
// Creates the general database file (tblEmpresas) and the reference database.
void CrearBaseGeneral(const QString &rutaArchivo);
void CrearBaseReferencia(const QString &rutaArchivo);

// Rows that make a company database a company: its identity, general parameters,
// principal branch, the ADMIN user with a scrambled password, tblVersion.
void LlenarIdentidad(Conexion &con, const QString &claveAdmin);

} // namespace demo
