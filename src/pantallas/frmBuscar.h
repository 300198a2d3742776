#pragma once

#include <QDialog>
#include <QString>

class Conexion;
class QLineEdit;
class QSortFilterProxyModel;
class QStandardItemModel;
class QTableView;

// The family's search of a catalogue: its rows in a list, narrowed as one types (any
// column), and Enter (or a double click) returning the code of the row chosen.
class frmBuscar : public QDialog {
public:
  // The catalogue "RUBROS": code, description and account of every rubro.
  frmBuscar(Conexion &con, const QString &catalogo, QWidget *padre = nullptr);

  // The code chosen, or the empty text.
  QString Codigo() const { return codigo_; }
  // Shows the search modally and gives the code chosen.
  static QString Buscar(QWidget *padre, Conexion &con, const QString &catalogo);

  QLineEdit *txtFiltro;
  QTableView *grdResultados;

protected:
  bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
  void Elegir();

  QStandardItemModel *modelo_;
  QSortFilterProxyModel *filtro_;
  QString codigo_;
};
