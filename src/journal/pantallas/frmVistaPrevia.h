#pragma once

#include "journal/Polizas.h"

#include <QDialog>
#include <vector>

class QLabel;
class QPushButton;
class QTreeWidget;

// An entry as a rehearsal of the run would write it, with its lines.
struct PolizaPrevista {
  Poliza poliza;
  std::vector<RenglonPoliza> renglones;
};

// "VISTA PREVIA DE PÓLIZAS": what a run would post, written nowhere. A tree of the entries
// with their lines and sums, an unbalanced one in red with its difference, the run's
// totals, and the choice to post it ("Contabilizar", which accepts the window) or not.
class frmVistaPrevia : public QDialog {
public:
  frmVistaPrevia(const std::vector<PolizaPrevista> &polizas, QWidget *padre = nullptr);

  QTreeWidget *tvwPolizas;
  QLabel *lblTotales;
  QPushButton *cmdContabilizar;
  QPushButton *cmdCerrar;
};
