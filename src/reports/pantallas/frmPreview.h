#pragma once

#include <QDialog>
#include <QString>
#include <array>
#include <functional>

class LienzoPintor;
class QComboBox;
class QLabel;
class QPushButton;
class QScrollArea;
class QStatusBar;

// The preview of a report: its pages one at a time, at the zoom chosen, to go through,
// print or keep. The document is the report's painted pages; the window doesn't own it.
class frmPreview : public QDialog {
public:
  explicit frmPreview(const LienzoPintor &documento, QWidget *padre = nullptr);

  int PaginaActual() const { return pagina_; }
  int TotalPaginas() const;
  // Goes to a page and shows "n/total"; a page out of the document leaves it as it is.
  void IrA(int pagina);
  // The buttons' work, by their index: 0 print, 1 first, 2 previous, 3 next, 4 last,
  // 5 save the page shown, 6 close.
  void Funcion(int indice);

  // The catalogue's input box: the question, the name typed (empty when cancelled).
  std::function<QString(QWidget *padre, const QString &pregunta)> pedirTexto;
  // Printing: the print dialog, then the pages to the printer.
  std::function<void(QWidget *padre, const LienzoPintor &documento)> imprimir;

  QStatusBar *stsPreview;
  QComboBox *cmbZoom;
  QLabel *lblPagina;
  QWidget *Preview; // the page
  std::array<QPushButton *, 7> cmdFunciones;

  // Esc asks first (message 129).
  void reject() override;

protected:
  void keyPressEvent(QKeyEvent *evento) override;
  void resizeEvent(QResizeEvent *evento) override;

private:
  void GrabarPagina();
  void MostrarPagina();

  const LienzoPintor &documento_;
  QScrollArea *marco_;
  int pagina_ = 1;
  int zoom_ = 100;
};
