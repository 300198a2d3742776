#pragma once

#include <QDialog>
#include <array>
#include <functional>

class QPushButton;
class QTableWidget;

// "VER EMPRESAS": the companies of the installation. The user opens another company
// without leaving (Enter or a double click), changes a company's data, or deletes one.
class frmUtiEmpresas : public QDialog {
public:
  explicit frmUtiEmpresas(QWidget *padre = nullptr);
  ~frmUtiEmpresas() override;

  void LlenarEmpresas();
  // The switch to the chosen company; the screen closes when it is done.
  void AbrirEmpresa();
  void ModificarEmpresa();
  void ModificarParametros();
  void EliminarEmpresa();

  // What the main window does after a switch: show the new company and user.
  std::function<void()> alCambiarEmpresa;

  QTableWidget *flxEmpresas;
  // 0 data, 1 parameters, 2 delete, 3 leave, 4 help.
  std::array<QPushButton *, 5> cmdFunciones;

private:
  int Elegida() const;
  bool HayEmpresas() const;
  // After a change: the open company into the session again, and the list.
  void RecargarEmpresa();
};
