#pragma once

#include <QList>
#include <QString>
#include <QUrl>

// The bookkeeper's manual: which chapter tells of each screen, the index of the pages on
// which the chapters of the built manual begin, and its copy into an installation.
namespace ayuda {

// A screen, by the name of its window, and the chapter (the manual's file without
// ".md") that tells of it.
struct PantallaCapitulo {
  const char *pantalla;
  const char *capitulo;
};
// Every screen of the program.
const QList<PantallaCapitulo> &Pantallas();
// The chapter of a screen; empty for one that isn't in the table.
QString CapituloDe(const QString &pantalla);

// A chapter of the built manual: its file, its title and the page on which it begins.
struct PaginaCapitulo {
  QString capitulo;
  QString titulo;
  int pagina = 0;
};
// The index written beside the manual: "TV_PVManual.pdf" has "TV_PVManual.paginas".
QString RutaIndice(const QString &manual);
bool EscribirIndice(const QString &manual, const QList<PaginaCapitulo> &capitulos);
QList<PaginaCapitulo> LeerIndice(const QString &manual);
// The manual's address for a screen: at the page of its chapter ("#page=N", which PDF
// viewers take) when the index knows it, at its beginning otherwise.
QUrl Direccion(const QString &manual, const QString &pantalla);

// The manual of an installation: Ayuda\TV_PVManual.pdf under its folder.
QString RutaManual(const QString &rutaApp);

// The manual built with the program lives in the Ayuda folder beside the executable;
// a fresh installation gets a copy, with its index. False when there is nothing to copy
// or the copy failed; an installation that has the manual keeps its own.
bool InstalarManual(const QString &carpetaPrograma, const QString &rutaApp);

} // namespace ayuda
