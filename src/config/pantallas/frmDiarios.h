#pragma once

#include "shell/ServicioConexion.h"

#include <QDialog>

class BarraPantalla;
class EditorFlotante;
class QTableWidget;

// "DIARIOS": every journal type in one grid, with its last folio and its numeric code for
// the accounting package to change. Types aren't added, deleted or renamed here.
class frmDiarios : public QDialog {
public:
  explicit frmDiarios(QWidget *padre = nullptr);
  ~frmDiarios() override;

  // Writes every row, changed or not; then "GRB" goes disabled and the box says so.
  void GrabarFolios();

  QTableWidget *flxFolios;
  EditorFlotante *editor;
  BarraPantalla *tlbCatalogo;

private:
  ConexionPtr conexion_;
};
