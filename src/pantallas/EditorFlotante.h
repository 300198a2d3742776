#pragma once

#include <QObject>
#include <array>
#include <functional>

class QLineEdit;
class QTableWidget;

// The family's grids can't be edited: a text box floats over the current cell instead.
// Two boxes, hidden at rest: index 0 for free text, index 1 for numbers. The screen says
// which columns open which box and how long a value may be; the rest is the same on every
// grid: a printable key or a double click opens the box over the cell, Enter takes its
// text to the cell, Space, Up and Down leave it, and it hides when it loses the focus or
// the grid scrolls.
class EditorFlotante : public QObject {
public:
  // The box a column opens (0 or 1) and its longest value; -1 for a column that opens none.
  using Columna = std::function<int(int columna, int *longitud)>;

  EditorFlotante(QTableWidget *grilla, Columna columna);

  QLineEdit *txtCampo(int indice) const { return campos_[static_cast<std::size_t>(indice)]; }
  // The box open now, if any.
  QLineEdit *Abierto() const;

  // Opens the box over the current cell; `tecla` above 32 is the first character typed
  // (its code), 32 or below only opens it with the cell's text.
  void EditarCelda(QLineEdit *editor, int tecla);
  // The key handling of the box (key down): Space, Enter, Up and Down.
  void TeclaCampo(QLineEdit *editor, int tecla);

  // Told at each Enter in a box: the screen's saving becomes possible.
  std::function<void()> alConfirmar;

protected:
  bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
  int Indice(const QLineEdit *editor) const;
  // The typing filter (key press): false drops the key.
  bool Filtrar(QLineEdit *editor, int tecla, const QString &texto);
  void Ocultar();

  QTableWidget *grilla_;
  Columna columna_;
  std::array<QLineEdit *, 2> campos_;
};

// True when the text is a number, as the family's code tests it (blanks around allowed).
bool EsNumerico(const QString &texto);
