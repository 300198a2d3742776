#pragma once

#include "shell/Ayuda.h"

#include <QList>
#include <QString>
#include <QStringList>

// The bookkeeper's manual as a PDF: the chapters (Markdown, one file a chapter, in the
// order of their names) with the pictures of the screens, a title page, a table of
// contents with the page of each chapter, and numbered pages. The index of the pages on
// which the chapters begin is written beside it, for F1.
namespace manual {

struct OpcionesManual {
  QString capitulos; // folder of the chapters, "*.md"
  QString capturas;  // folder of the screens' pictures
  QString salida;    // the PDF
  QString version;   // shown on the title page
};

struct ResultadoManual {
  QString error; // why nothing was written; empty when the manual was
  int paginas = 0;
  QList<ayuda::PaginaCapitulo> capitulos;
  QStringList figuras;  // "Figura N. caption" of each picture, in order
  QStringList imagenes; // the picture of each figure, by its file name
};

ResultadoManual EscribirManual(const OpcionesManual &opciones);

} // namespace manual
