#pragma once

#include "shell/ServicioConexion.h"

#include <QDialog>
#include <QLineEdit>
#include <QString>
#include <functional>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;
class QToolButton;

// The login: finds the general database, offers the companies, opens the chosen one,
// checks user and password, and loads the company into the session. It stays in
// front of every other window. Accepted means the session is loaded; any other way
// out ends the process, and so does a false answer of Cargar.
class frmEntrada : public QDialog {
public:
  explicit frmEntrada(QWidget *padre = nullptr);
  ~frmEntrada() override;

  // The form's load. False when the process is to end: the general database is
  // missing, or there is no company (the message has been shown).
  bool Cargar();

  // Fills cmbEmpresa and rstEmpresas from the general database; the first item ends
  // up selected, without the selection event.
  void LlenarEmpresas(Conexion &conexionGeneral);
  // NUM_EMP of the selected item, 0 when the list is empty.
  int EmpresaSeleccionada() const;
  // Selects the item of a company (an unknown number, the first item) and runs the
  // selection event.
  void SeleccionarEmpresa(int numEmp);

  // Whether the chosen company's connection is open.
  bool EmpresaAbierta() const { return conexionEmpresa_ != nullptr; }

  // The family's on-screen keyboard: shown at a horizontal position in pixels, it
  // returns the text typed. Touch stations get it from the small button of each field.
  std::function<QString(QWidget *padre, int x, QLineEdit::EchoMode eco)> teclado;
  // The company screen, shown modally when the installation has no company yet; the
  // windowed program gives it (none: the list stays empty and the login ends).
  std::function<void(QWidget *padre)> crearEmpresa;

  QLabel *Label1; // the program's title
  QComboBox *cmbEmpresa;
  QLineEdit *txtCod;
  QLineEdit *txtPass;
  QToolButton *cmdTecladoCod;
  QToolButton *cmdTecladoPass;
  QPushButton *cmdAce;
  QPushButton *cmdCan;
  QLabel *lblLink;

protected:
  void done(int resultado) override;
  bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
  // One row of rstEmpresas: the item of the list and its company.
  struct FilaEmpresa {
    int ORDEN_EMP;
    int NUM_EMP;
    QString NOM_EMP;
  };

  bool LeerEmpresas();
  void cmbEmpresa_Click();
  void cmdAce_Click();
  void cmdCan_Click();
  bool Form_KeyPress(QWidget *control, int codigo, int tecla);
  void TecladoEnPantalla(QLineEdit *campo);
  void lblLink_Click();

  ServicioConexion servicio_;
  ConexionPtr conexionGeneral_;
  ConexionPtr conexionEmpresa_;
  std::vector<FilaEmpresa> rstEmpresas_;
  QString conexionActual_;
};
