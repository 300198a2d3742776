#pragma once

#include <QString>

class Conexion;

// The acceptance of the login, apart from its window: the user is checked against
// the company's tblUsuarios, the company's version compared with the program's,
// plain passwords migrated, and the company loaded into the session.
enum class ResultadoEntrada {
  Aceptada,
  UsuarioDesconocido, // message 410
  UsuarioBloqueado,   // message 400 (ESTATUS 9)
  ClaveIncorrecta,    // message 409
};

// Steps of the acceptance from the user query on: messages are shown through the
// catalogue as the login shows them. On acceptance gCodUsu, gPassUsu and gMercancia
// are set and CargarEmpresa has run for gNumEmp.
ResultadoEntrada AceptarEntrada(Conexion &conexionGeneral, Conexion &conexionEmpresa,
                                const QString &codigo, const QString &clave);

// Scrambles the plain passwords (10 characters or fewer) of every other user.
void MigrarClaves(Conexion &conexionEmpresa, const QString &codUsu);

// The companies this system serves, from the general database: every list of them keeps
// out the rows without a connection and those of engine 2, in the order of their number.
// `columnas` and the statement's end (";" or nothing) are each place's own.
QString SentenciaEmpresas(const QString &columnas, const QString &fin = QStringLiteral(";"));
