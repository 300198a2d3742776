#pragma once

#include "config/Reglas.h"
#include "shell/ServicioConexion.h"

#include <QDialog>
#include <vector>

class BarraPantalla;
class ComboLista;
class QComboBox;
class QLabel;
class QTableWidget;

// "DEFINIR ASIENTOS": the posting rule of a module, operation and concept: its journal
// type, its frequency, and for each datum of the operation the rubro to debit and the
// rubro to credit, chosen in a list that floats over the grid's cell.
class frmDefinirAsientos : public QDialog {
public:
  explicit frmDefinirAsientos(QWidget *padre = nullptr);
  ~frmDefinirAsientos() override;

  void IniciarDefinicion();
  void CargarOperaciones();
  void CargarConceptos();
  void CargarFrecuencias();
  void CargarDatos();
  void CargarDefinicion();
  void MostrarEstado(bool visible);
  bool ValidarDefinicion();
  void GrabarDefinicion();
  void BorrarDefinicion();

  // A key typed in the grid (its code; 46 is Delete, 13 Enter).
  void TeclaGrilla(int tecla, const QString &texto);

  ComboLista *cmbModulos;
  ComboLista *cmbOperaciones;
  ComboLista *cmbConceptos;
  ComboLista *cmbFolios;
  QComboBox *cmbFrecuencia;
  QTableWidget *flxDisplay;
  QComboBox *cmbDebe;
  QComboBox *cmbHaber;
  QLabel *lblDesOperacion;
  QLabel *lblTipo;
  QLabel *lblFrecuencia;
  BarraPantalla *tlbCatalogo;

protected:
  bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
  void CargarRubros(QComboBox *combo);
  void ElegirRubro(int columna, QComboBox *combo);
  void BuscarRubro(int columna, QComboBox *combo);
  void DejarCombo(QComboBox *combo);
  void RefrescarRubro(int renglon, int columna);
  void Celda(int renglon, int columna, const QString &texto);
  QString Texto(int renglon, int columna) const;
  void OcultarCombos();
  int Modulo() const;
  int Operacion() const;

  ConexionPtr conexion_;
  int renglonDebe_ = -1, columnaDebe_ = -1, renglonHaber_ = -1, columnaHaber_ = -1;
  std::vector<RubroCatalogo> rubrosLista_;
};
