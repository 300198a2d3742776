#pragma once

#include <QDialog>

class QComboBox;
class QFileSystemModel;
class QLineEdit;
class QPushButton;
class QTreeView;

// The folder picker. The caller sets gRutaDirectorio to the starting folder; the
// picker leaves the chosen folder there, or the empty text on cancel.
class frmDirectorios : public QDialog {
public:
  explicit frmDirectorios(QWidget *parent = nullptr);

  QComboBox *drvLista;
  QTreeView *dirLista;
  QLineEdit *txtDir;
  QPushButton *cmdNuevo;
  QPushButton *cmdAcepta;
  QPushButton *cmdCancel;

  // The folder selected in dirLista.
  QString CarpetaActual() const;
  void IrA(const QString &carpeta);

private:
  void cmdNuevo_Click();
  void cmdAcepta_Click();
  void cmdCancel_Click();
  void drvLista_Change(int indice);
  QFileSystemModel *modelo_;
};
