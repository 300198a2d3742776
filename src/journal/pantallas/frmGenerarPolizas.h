#pragma once

#include "journal/Arbol.h"
#include "journal/Corrida.h"
#include "journal/OpcionesGeneracion.h"
#include "pantallas/Pantallas.h"

#include <QDialog>
#include <QString>
#include <array>
#include <functional>
#include <vector>

class BarraPantalla;
class QCheckBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;
struct AvanceGeneracion;

// The screen of the generation run: the accountant checks the operations to post,
// picks the period and the options, names the log and presses "GRB". The screen holds
// the run's state for as long as it is loaded; the run itself is the engine's.
class frmGenerarPolizas : public QDialog {
public:
  // The load: the three dates to today, the company connection, the sources of the
  // documents with the default log name, and the tree.
  explicit frmGenerarPolizas(QWidget *padre = nullptr);
  ~frmGenerarPolizas() override;

  // The options of a run as the controls hold them.
  OpcionesGeneracion Opciones() const;

  // The file dialog of "Buscar Bitácora": given its title and filter, it answers the
  // name chosen, or the empty text on cancel. The desktop's dialog until a test puts
  // another.
  std::function<QString(QWidget *padre, const QString &titulo, const QString &filtro)> cdgBuscar;

  QTreeWidget *tvwOperaciones;
  std::array<QDateEdit *, 3> dtpFecha; // "Del", the last date, the defined date
  QCheckBox *chkActualizar;
  std::array<QRadioButton *, 2> optFechaPol;
  QLineEdit *txtResumen;
  QPushButton *cmdBusca;
  BarraPantalla *tlbCatalogo;
  QProgressBar *prgAvance; // how far the run has got, shown while it works
  QLabel *lblAvance;
  QPushButton *cmdDetener; // stops the run after the entry in work

private:
  Avance avance_;
  void CargarArbol();
  // The sources of the documents, read again, and the default log name in txtResumen.
  void CargarOperaciones();
  void tvwOperaciones_ItemCheck(QTreeWidgetItem *item);
  void dtpFecha_Change(int indice);
  void optFechaPol_Click();
  void cmdBusca_Click();
  void GenerarPolizas();
  // "Vista previa" (F5): the run rehearsed, its entries shown, nothing written; from the
  // preview the run may be posted for real.
  void VistaPrevia();
  static void MostrarAvance(TareaEnCurso &tarea, const AvanceGeneracion &avance);

  Corrida corrida_;
  ArbolOperaciones arbol_;
  std::vector<QTreeWidgetItem *> nodos_; // the tree's items, by the index of their node
};
