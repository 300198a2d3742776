#pragma once

class Conexion;

// The routines of the session that need a connection: the company's data brought into
// the session at login, and the checks of the main window's load.

// Loads a company into the session.
void CargarEmpresa(Conexion &conexionGeneral, Conexion &conexionEmpresa, int numEmp);
// The forced change to the invoicing version 33.
bool CambiarVersionCFDI(Conexion &conexionEmpresa);
// At main window load: repairs the module's configuration file.
void VerificarConfiguracionCFDI(Conexion &conexionEmpresa, int modulo);
// Password check at main window load.
void VerificarClavesDuplicadas(Conexion &conexionEmpresa);
// Credentials of the electronic services of a register (0: this workstation's).
void CargarServicios(int caja);
