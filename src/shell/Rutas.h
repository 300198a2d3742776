#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Paths are kept in the family's form, "C:\Programa\Temp\Archivo.txt", and turned
// into the platform's form only when a file is touched.

// Joins a folder and a name with a backslash, as the stored texts do.
QString UnirRuta(const QString &carpeta, const QString &nombre);

// The platform path of a stored one: backslashes become the platform separator and
// each existing component is matched without regard to case ("nimbar.mdb" finds
// "Nimbar.mdb", "TEMP" finds "Temp"). Components that don't exist stay as written.
QString RutaNativa(const QString &ruta);

// Windows-1252 text, as the accounting package and the family's ini files expect.
QByteArray CodificarWindows1252(const QString &texto);
// The same, written behind what the bytes already hold.
void AnexarWindows1252(QByteArray &bytes, QStringView texto);
// The same, one byte a character, at a place with room for them; gives the place after.
char *EscribirWindows1252(char *destino, QStringView texto);
QString DecodificarWindows1252(const QByteArray &bytes);

// Lines joined with CR LF, each one ended, in Windows-1252.
QByteArray LineasWindows(const QStringList &lineas);
