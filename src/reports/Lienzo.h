#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QPainter;

// The drawing state of the canvas, set before the text it affects.
struct EstadoDibujo {
  int tamano = 8; // points: 7, 8, 9 and 10 are used
  bool negrita = false;
  bool subrayado = false;
  bool azul = false;  // pure blue, or black
  int alineacion = 0; // 0: x is the left end of the text; 2: x is its right end
};

// One operation drawn on a page. A frame keeps its width and height in x2 and y2.
struct Trazo {
  enum class Tipo { Texto, Linea, Recuadro };
  Tipo tipo = Tipo::Texto;
  int x = 0, y = 0, x2 = 0, y2 = 0;
  QString texto;
  EstadoDibujo estado;
};

struct PaginaLienzo {
  QList<Trazo> trazos;
};

// The canvas of the reports: pages drawn by coordinates in twips (x from the left, y from
// the top), kept as lists of operations, then shown, printed or saved as PDF. A report
// draws its pages first and numbers them once their count is known.
class Lienzo {
public:
  static constexpr int kAncho = 10500;     // the drawn width
  static constexpr int kFinPagina = 14000; // a page is full when y passes it
  static constexpr int kTwipsPorPulgada = 1440;

  void IniciarPagina();
  void TerminarPagina();

  void DibujarTexto(int x, int y, const QString &texto);
  void Linea(int x1, int y1, int x2, int y2);
  void Recuadro(int x, int y, int ancho, int alto);

  EstadoDibujo &Estado() { return estado_; }
  void GuardarEstado();
  void RestaurarEstado();

  // The second pass: "Página  : i / n" in blue, size 8, at x 7000, y 720, on top of
  // every page.
  void NumerarPaginas();

  int TotalPaginas() const { return static_cast<int>(paginas_.size()); }
  const PaginaLienzo &Pagina(int numero) const { return paginas_.at(numero - 1); }

  // Draws page `numero` (from 1) on a painter whose device is a sheet of paper or its
  // image: the drawn width centred across the sheet, the top margin half an inch.
  void DibujarPagina(QPainter &pintor, int numero) const;
  // Every page as a letter-size PDF; an empty text when written, the reason otherwise.
  QString GuardarPdf(const QString &archivo) const;
  // One page as a picture file, to be opened again and drawn as it stands.
  QString GuardarImagenPagina(int numero, const QString &archivo) const;

  // The texts of the pages, one per line in drawing order, each as "y x texto" with its
  // right end marked "y <x texto" when aligned right: what a report says, readable by a
  // test or a script.
  QStringList Textos() const;

private:
  QList<PaginaLienzo> paginas_;
  bool abierta_ = false;
  EstadoDibujo estado_;
  QList<EstadoDibujo> guardados_;
};
