#pragma once

#include "db/Esquema.h"

#include <QStringList>

class Conexion;

// The database builder: DDL of the family's tables for each engine.
namespace constructor {

// CREATE TABLE and CREATE INDEX statements for the engine (3, 4 or 5; the general
// and reference databases, engine 0, are built as SQLite files).
QStringList SentenciasDDL(const std::vector<esquema::Tabla> &tablas, int motor);
// The same without the indexes, for one table.
QString CrearTabla(const esquema::Tabla &tabla, int motor);

// Creates the tables on an open connection, one statement at a time.
void CrearTablas(Conexion &con, const std::vector<esquema::Tabla> &tablas);
// The structure check: creates the tables that are missing, with their indexes, and adds
// the columns that an existing table lacks. Nothing is dropped or changed. False, with
// the failure in *error, when a statement fails; what was done stays.
bool RevisarEstructura(Conexion &con, const std::vector<esquema::Tabla> &tablas, QString *error);
// The structure check of one table of the company schema, by its name: a database made
// before the table existed gets it when it is first needed. False, with the failure in
// *error, when it can't.
bool AsegurarTabla(Conexion &con, const char *nombre, QString *error);
// Drops the tables that exist (used to rebuild a test database on a server).
void BorrarTablas(Conexion &con, const std::vector<esquema::Tabla> &tablas);

} // namespace constructor
