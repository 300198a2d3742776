#pragma once

#include "export/FormatoArchivo.h"
#include "pantallas/Pantallas.h"
#include "shell/ServicioConexion.h"

#include <QDialog>
#include <QString>
#include <functional>

class BarraPantalla;
class ComboDatos;
class QDateEdit;
class QLabel;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;

// The screen that writes the journal entries of a period into a text file by the
// company's format, filtered by journal type, operation and concept.
class frmGenerarArchivo : public QDialog {
public:
  // The load: both dates to today, the company connection, the journal types and the
  // operations; the concepts wait for an operation.
  explicit frmGenerarArchivo(QWidget *padre = nullptr);
  ~frmGenerarArchivo() override;

  // The save dialog: given its title and filter, it answers the file name, or the empty
  // text on cancel. The desktop's dialog until a test puts another.
  std::function<QString(QWidget *padre, const QString &titulo, const QString &filtro)> cdgArchivo;

  QDateEdit *dtpFechaIni;
  QDateEdit *dtpFechaFin;
  ComboDatos *cmbFolios;
  ComboDatos *cmbOperaciones;
  ComboDatos *cmbConceptos;
  // What is written: the company's format, or the SAT's XML of the month's entries.
  QRadioButton *optFormato;
  QRadioButton *optSat;
  QGroupBox *grpFiltros;
  QGroupBox *grpSat;       // the SAT's request, enabled with optSat
  QComboBox *cmbSolicitud; // AF, FC, DE, CO
  QLabel *lblNumero;       // "Número de orden" (AF, FC) or "Número de trámite" (DE, CO)
  QLineEdit *txtNumero;
  BarraPantalla *tlbCatalogo;
  QProgressBar *prgAvance; // lines written, shown while the file is written
  QLabel *lblAvance;
  QPushButton *cmdDetener; // stops the export; no file is left

private:
  Avance avance_;
  // The concepts of the chosen operation; none for an operation without a catalogue.
  void LlenarConceptos();
  // "GRB": the format is read at the first press and kept while the screen is open.
  void Grabar();
  void GenerarArchivo();
  // The SAT's XML of the month of the period, under the SAT's name in the export folder.
  void GenerarSat();
  void ElegirSalida();
  static void MostrarAvance(TareaEnCurso &tarea, qint64 lineas, qint64 polizas);

  ConexionPtr conexion_;
  FormatoArchivo formato_;
};
