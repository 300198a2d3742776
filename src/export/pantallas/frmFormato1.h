#pragma once

#include "export/FormatoArchivo.h"
#include "shell/ServicioConexion.h"

#include <QDialog>
#include <array>

class BarraPantalla;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;

// "DEFINIR FORMATO": the layout of the export file in six steps (the kind of format, the
// fields of each row, debit and credit, account and date, widths and separators, and a
// preview), each checked before the next. The package's layout is saved from step 1;
// a user layout from the preview.
class frmFormato1 : public QDialog {
public:
  // Opens at step 1 with the company's format on every step.
  explicit frmFormato1(QWidget *padre = nullptr);
  ~frmFormato1() override;

  int Paso() const { return paso_; }
  // On to the next step when the current one passes its check; back without checks.
  void PasoSiguiente();
  void PasoAnterior();
  // Saves the screen into the format row; the step stays.
  void GrabarFormato();
  // The controls as the format's logic reads them.
  ControlesFormato Controles() const;

  BarraPantalla *tlbCatalogo;
  std::array<QGroupBox *, 6> frmFormato; // one frame a step
  // Step 1.
  QRadioButton *optFormatoUsuario;
  QRadioButton *optContpaq;
  // Step 2. Index 0 of the lists and fmeDatos(1) are row 1; index 1 and fmeDatos(0) row 2.
  QCheckBox *chkDosRenglones;
  std::array<QGroupBox *, 2> fmeDatos;
  std::array<QListWidget *, 2> lstUno;    // fields on offer
  std::array<QListWidget *, 2> lstDos;    // fields chosen, in their order in the row
  std::array<QPushButton *, 4> cmdOpcion; // ">" and "<" of row 1, then of row 2
  // Step 3.
  QCheckBox *chkImportesColSep;
  std::array<QRadioButton *, 4> optIncluirCar;
  std::array<QLineEdit *, 2> txtOtroCar;
  // Step 4.
  std::array<QRadioButton *, 3> optFormatoCuenta;
  QLineEdit *txtIncluirOtroSep;
  QLabel *Label11;
  std::array<QLineEdit *, 4> txtFormato;
  QCheckBox *chkIncluirCeros;
  QGroupBox *frmFormatoFecha;
  std::array<QRadioButton *, 4> optFormatoFecha;
  // Step 5. Boxes 0 folio, 1 date, 2 type, 3 concept, 4 account, 5 debit, 6 credit.
  QCheckBox *chkLongFija;
  QGroupBox *fmeLongitudFija;
  std::array<QLabel *, 9> lblLongFija;
  std::array<QLineEdit *, 7> txtLongitud;
  std::array<QComboBox *, 7> cmbAlineacion;
  std::array<QRadioButton *, 5> optSepararDatos;
  QLineEdit *txtOtroSep;
  // Step 6.
  QPlainTextEdit *txtVistaPrevia;

protected:
  bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
  void LeerFormato();
  bool ValidarPaso(int paso);
  void EstadoBotones();
  void MostrarPaso(int paso);
  // The field picker: ">" (even) moves the chosen field into the row, "<" (odd) back.
  void Opcion(int i);
  void ActivarRenglon2(bool dos);
  void LlenarDisponibles(int lista);
  // The enabling rules of the options, from their state.
  void ReglasImportes();
  void ReglasCuenta();
  void ReglasSeparador();
  void ReglasLongitud();

  QStackedWidget *pasos_;
  QButtonGroup *grpTipo_, *grpIncluirCar_, *grpFormatoCuenta_, *grpFormatoFecha_, *grpSepararDatos_;
  int paso_ = 1;
  ConexionPtr conexion_;
};
