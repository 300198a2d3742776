#pragma once

#include <QHash>
#include <QList>
#include <QPicture>
#include <QString>
#include <QStringList>
#include <memory>

class QPainter;

// The drawing state of a canvas, set before the text it affects.
struct EstadoDibujo {
  int tamano = 8; // points: 7, 8, 9 and 10 are used
  bool negrita = false;
  bool subrayado = false;
  bool azul = false;  // pure blue, or black
  int alineacion = 0; // 0: x is the left end of the text; 2: x is its right end
};

// The canvas of the reports: pages drawn by coordinates in twips, x from the left and y
// from the top. A report draws its pages one by one, keeps each as a file, and then
// loads them all again into one document to number them, once their count is known.
class Lienzo {
public:
  static constexpr int kAncho = 10500;     // the drawn width
  static constexpr int kFinPagina = 14000; // a page is full when y passes it
  static constexpr int kTwipsPorPulgada = 1440;

  virtual ~Lienzo() = default;

  virtual void IniciarPagina() = 0;
  virtual void TerminarPagina() = 0;
  // The page just ended, kept under the name given.
  virtual void GuardarPagina(const QString &archivo) = 0;
  // A kept page drawn on the page in work as it stands.
  virtual void CargarPagina(const QString &archivo) = 0;
  // Within one document: the page in work ends and the next begins.
  virtual void NuevaPagina() = 0;

  virtual void DibujarTexto(int x, int y, const QString &texto) = 0;
  virtual void Linea(int x1, int y1, int x2, int y2) = 0;
  virtual void Recuadro(int x, int y, int ancho, int alto) = 0;

  // Pages of the document drawn so far.
  virtual int TotalPaginas() const = 0;

  EstadoDibujo &Estado() { return estado_; }
  void GuardarEstado() { guardados_.append(estado_); }
  void RestaurarEstado() {
    if (!guardados_.isEmpty())
      estado_ = guardados_.takeLast();
  }

private:
  EstadoDibujo estado_;
  QList<EstadoDibujo> guardados_;
};

// One drawing call with its state.
struct Trazo {
  enum class Tipo { Texto, Linea, Recuadro };
  Tipo tipo = Tipo::Texto;
  int x = 0, y = 0, x2 = 0, y2 = 0; // a frame keeps its width and height in x2 and y2
  QString texto;
  EstadoDibujo estado;
};

// The canvas that records: each page a list of calls, kept pages in memory. Tests read
// it, and the command line writes it as a trace that accountants can compare.
class LienzoGrabador : public Lienzo {
public:
  void IniciarPagina() override;
  void TerminarPagina() override;
  void GuardarPagina(const QString &archivo) override;
  void CargarPagina(const QString &archivo) override;
  void NuevaPagina() override;
  void DibujarTexto(int x, int y, const QString &texto) override;
  void Linea(int x1, int y1, int x2, int y2) override;
  void Recuadro(int x, int y, int ancho, int alto) override;
  int TotalPaginas() const override { return static_cast<int>(paginas_.size()); }

  const QList<Trazo> &Pagina(int numero) const { return paginas_.at(numero - 1); }
  // One line per call in the order drawn, fields separated by a TAB: the page; "texto"
  // with x, y, size, bold (0/1), underline (0/1), colour (negro/azul), alignment (0/2)
  // and the text; "linea" with x1, y1, x2, y2; "recuadro" with x, y, width, height.
  QStringList Traza() const;

private:
  void Agregar(Trazo trazo);
  QList<QList<Trazo>> paginas_;
  QHash<QString, QList<Trazo>> guardadas_;
};

// The canvas that paints: each page a picture in twips, kept as a file where the report
// says (its Temp folder), shown, printed or saved as PDF once the document is done.
class LienzoPintor : public Lienzo {
public:
  LienzoPintor();
  ~LienzoPintor() override;

  void IniciarPagina() override;
  void TerminarPagina() override;
  void GuardarPagina(const QString &archivo) override;
  void CargarPagina(const QString &archivo) override;
  void NuevaPagina() override;
  void DibujarTexto(int x, int y, const QString &texto) override;
  void Linea(int x1, int y1, int x2, int y2) override;
  void Recuadro(int x, int y, int ancho, int alto) override;
  int TotalPaginas() const override { return static_cast<int>(paginas_.size()); }

  const QPicture &Pagina(int numero) const { return paginas_.at(numero - 1); }

private:
  QPainter &Pintor();
  QList<QPicture> paginas_;
  std::unique_ptr<QPainter> pintor_;
};

// Draws a page (twips) on a sheet of letter paper or its image: the drawn width centred
// across the sheet, the top margin half an inch.
void DibujarPagina(QPainter &pintor, const QPicture &pagina);
// Every page of a painted document (or only page `pagina`, from 1) as a letter-size PDF;
// an empty text when written, the reason otherwise.
QString GuardarPdf(const LienzoPintor &lienzo, const QString &archivo, int pagina = 0);
