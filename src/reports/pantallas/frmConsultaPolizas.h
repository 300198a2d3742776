#pragma once

#include "reports/ConsultaPolizas.h"
#include "shell/ServicioConexion.h"

#include <QDialog>
#include <array>
#include <functional>

class BarraPantalla;
class ComboDatos;
class LienzoPintor;
class QDateEdit;
class QGroupBox;
class QLineEdit;
class QRadioButton;

// "CONSULTA DE PÓLIZAS": the journal list (summary or detailed) and the movement report of
// a period, filtered by module, operation, journal type and folio, drawn and shown in the
// preview.
class frmConsultaPolizas : public QDialog {
public:
  // The load: the connection, today in both dates, the company's header data, the concept
  // table, the modules and the journal types.
  explicit frmConsultaPolizas(QWidget *padre = nullptr);
  ~frmConsultaPolizas() override;

  // "GRB": the filters from the controls, then the report, shown in the preview.
  void ArmarFiltros();
  // The options as the controls hold them.
  OpcionesConsulta Opciones() const;

  // Shows the finished document; the preview window modally until a test puts another.
  std::function<void(QWidget *padre, const LienzoPintor &documento)> mostrar;

  QRadioButton *OptRelacionPolizas;
  QRadioButton *OptMovimientosContabilizados;
  QGroupBox *FmeTipo;
  QRadioButton *optResumido;
  QRadioButton *optDetallado;
  QGroupBox *FmeEstatus;
  QRadioButton *optContabilizados;
  QRadioButton *optNoContabilizados;
  QDateEdit *dtpFechaIni;
  QDateEdit *dtpFechaFin;
  ComboDatos *cmbModulos;
  ComboDatos *cmbOperaciones;
  ComboDatos *cmbTipos;
  QLineEdit *txtFolios;
  ComboDatos *cmbFolios;
  std::array<QRadioButton *, 3> optOrden;
  BarraPantalla *tlbCatalogo;

protected:
  bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
  // The journal report or the movement report: what each one allows.
  void CambiarReporte();
  void CargarOperaciones();
  // The folios of the period (and type), when the list is opened.
  void CargarFolios();

  ConexionPtr conexion_;
  EncabezadoEmpresa empresa_;
  QList<ConceptoMovimiento> conceptos_;
};
