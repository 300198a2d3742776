#pragma once

#include <QString>

// Reversible scrambling of passwords. A scrambled value is always 11 characters or
// more and holds no apostrophe, semicolon, equals sign or blank, so it can stand
// between apostrophes in a statement and inside a connection text.
QString Encriptar(const QString &texto);
// Undoes Encriptar. A text that was never scrambled comes out garbled, never equal
// to itself: a plain password of 11 characters or more can't be matched.
QString Desencriptar(const QString &texto);

// A stored connection text with its password part ("Password=" or else "Pwd=")
// unscrambled.
QString DesencriptarConexion(const QString &conexion);

// The receivables connection: empty or starting with "*" stands for gConexion.
QString CadenaConexionUsuario(const QString &conexion);
