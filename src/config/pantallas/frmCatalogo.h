#pragma once

#include "config/Catalogo.h"
#include "shell/ServicioConexion.h"

#include <QDialog>
#include <functional>

class BarraPantalla;
class QComboBox;
class QLabel;
class QLineEdit;

// "CATÁLOGO": one rubro at a time under a parent of the system: a new company rubro with
// the next free code, or one found by the search, to save or delete.
class frmCatalogo : public QDialog {
public:
  explicit frmCatalogo(QWidget *padre = nullptr);
  ~frmCatalogo() override;

  void PrepararRubroNuevo();
  void MostrarRubro(const QString &codigo);
  void GrabarRubro();
  void BorrarRubro();
  // "BUS": the catalogue search, then the rubro found.
  void Buscar();

  // The family's catalogue search; the search dialog until a test puts another.
  std::function<QString(QWidget *padre, Conexion &con, const QString &catalogo)> busqueda;

  QComboBox *cmbRubros;
  QLabel *lblDesRubroSist;
  QLabel *lblRubroEmp;
  QLineEdit *txtDesRubro;
  QLineEdit *txtNumCuenta;
  QLabel *lblEdoFinanciero;
  QLabel *lblNaturaleza;
  // The SAT's grouping code and nature of the rubro, for the electronic accounting.
  QLineEdit *txtCodAgrup;
  QComboBox *cmbNaturSat; // "La del rubro", "D - Deudora", "A - Acreedora"
  BarraPantalla *tlbCatalogo;

protected:
  bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
  RubroEnPantalla Leer() const;
  // A new child on the screen, with the SAT data it starts with.
  void Mostrar(const RubroEnPantalla &r);
  DatosSat LeerSat() const;
  void MostrarSat(const DatosSat &d);
  // Makes each entry of the list the chosen one until its text is `codigo`.
  void Recorrer(const QString &codigo);

  ConexionPtr conexion_;
  QString tipoCuentaPadre_;
  bool hayDatosSat_ = false; // the company has tblRubrosSAT (made at the opening if missing)
};
