#pragma once

#include "shell/ServicioConexion.h"

#include <QDialog>

class BarraPantalla;
class ComboDatos;
class QDateEdit;

// The screen that deletes the journal entries of a period, narrowed by journal type,
// operation and concept. Its own company connection lives as long as it does.
class frmEliminarPolizas : public QDialog {
public:
  // The load: the connection, both dates to today, the journal types and the operations;
  // the concepts wait for an operation.
  explicit frmEliminarPolizas(QWidget *padre = nullptr);
  ~frmEliminarPolizas() override;

  // The concepts of the chosen operation; for an operation without a catalogue the list
  // is emptied, and so are its code and text.
  void CargarConceptos();
  // "BOR": the question, the deletion by folio, the closing message.
  void EliminarPolizas();

  QDateEdit *dtpFechaIni;
  QDateEdit *dtpFechaFin;
  ComboDatos *cmbFolios;
  ComboDatos *cmbOperaciones;
  ComboDatos *cmbConceptos;
  BarraPantalla *tlbCatalogo;

private:
  ConexionPtr conexion_;
};
