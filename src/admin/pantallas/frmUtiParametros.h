#pragma once

#include "admin/Cfdi.h"
#include "admin/Parametros.h"
#include "shell/ServicioConexion.h"

#include <QDialog>
#include <array>
#include <functional>

class ComboLista;
class EditorFlotante;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTabWidget;
class QTableWidget;
class QTreeWidget;

// "PARÁMETROS DE LA EMPRESA": the settings that the family's point-of-sale modules read,
// for the company gEmpresaParametros. Three tabs: the parameters of sales, invoicing,
// warehouse and purchasing, saved together; the electronic services behind their portal;
// and the electronic invoicing, its time zone and its tax data.
class frmUtiParametros : public QDialog {
public:
  explicit frmUtiParametros(QWidget *padre = nullptr);
  ~frmUtiParametros() override;

  // The file dialog of the certificate and the key: title and filter, the file or "".
  std::function<QString(QWidget *padre, const QString &titulo, const QString &filtro)> cdgArchivo;
  // The folder dialog of the XML files: the folder or "".
  std::function<QString(QWidget *padre)> cdgCarpeta;

  void GrabarParametros();
  void ValidarInfoSat();
  void GrabarConfiguracionCfdi();
  void GrabarZona();
  void GrabarCuentaFE();

  QLabel *lblEmpresa;
  QTabWidget *fmeDatos;      // PARÁMETROS, SERVICIOS ELECTRÓNICOS, CFDIs
  QTabWidget *fmeParametros; // Ventas, Facturación, Almacén, Compras
  QTabWidget *fmeCfdis;      // Zona Horaria, Configuración
  std::array<QPushButton *, 4> cmdParametros;
  // Sales.
  QCheckBox *chkLim, *chkTolera, *chkFecPed, *chkLeerDocCliente, *chkImpRegimen, *chkCostoRepo;
  QLineEdit *txtLimite, *txtToleraPromo;
  ComboLista *cmbCampRedondeo;
  QComboBox *cmbPrecioBase, *cmbPrecioTrunca, *cmbPrecioDecimal;
  QCheckBox *chkMeseroUnico, *chkPersonas, *chkSinMesero, *chkOrdenTotal, *chkPropinas,
      *chkAvisoVen;
  QLineEdit *txtPorcPropina, *txtDesde;
  // Invoicing.
  QCheckBox *chkFacMos, *chkNotaFactura, *chkFacPorEmp, *chkDescuentoFE, *chkUnidadFE,
      *chkFolioNumFE, *chkActivoIEPS, *chkConfiguraFE;
  QLabel *lblNotaFacMos;
  // Warehouse.
  QCheckBox *chkCaducidad, *chkLeerDocAlm, *chkLoteEnPV, *chkInvSucur;
  QLineEdit *txtDiasCad, *txtHorasCad;
  // Purchasing.
  std::array<QCheckBox *, 4> chkDocCP;
  QCheckBox *chkResPres, *chkSinPrevio, *chkBckOrder, *chkActPreciosRecp;
  std::array<QRadioButton *, 2> optRemPrev, optBase, optUnidadBase;
  QLineEdit *txtDiasBO;
  // Electronic services.
  QStackedWidget *fmeServicios; // the portal, then the services
  QGroupBox *fmeTVE;
  QLineEdit *txtUsuarioTVE, *txtPaswTVE;
  QCheckBox *chkVerPwd;
  std::array<QPushButton *, 2> cmdTVE; // "Grabar", "Continuar"
  std::array<QPushButton *, 5> cmdElectronicos;
  QCheckBox *chkTC;
  ComboLista *cmbProveedorTC;
  QPushButton *cmdActivarPromo, *cmdAgregarTerminal;
  QGroupBox *fmePromociones;
  QTableWidget *flxPromos;
  QComboBox *cmbEstatus;
  EditorFlotante *editorPromos;
  std::array<QPushButton *, 2> cmdPromo; // "Grabar promociones", "Salir"
  QGroupBox *fmeTerminales;
  QLineEdit *txtNumTerminal, *txtIdClienteTC;
  QTreeWidget *tvwPromociones;
  std::array<QPushButton *, 3> cmdTerminal; // "Agregar Terminal", "Eliminar Terminal", "Salir"
  QCheckBox *chkTA;
  std::array<QRadioButton *, 2> optTAE;
  ComboLista *cmbAgrupaTA, *cmbImpuestoTA;
  QCheckBox *chkPagoServ;
  ComboLista *cmbProvTVE, *cmbImpuestoSE;
  QCheckBox *chkRemesas, *chkFideliza;
  QLineEdit *txtToken;
  // Electronic invoicing.
  QComboBox *cmbZonaHoraria;
  QCheckBox *chkZonaHoraria;
  QLabel *picZonaHoraria;
  QPushButton *cmdSortTempNeg, *cmdSortTempPos;
  std::array<QPushButton *, 2> cmdParamFE;       // configuration, zone
  std::array<QLineEdit *, 5> txtFactElectronica; // 3 user, 4 password of the account
  QLineEdit *txtSerieFE;
  QPushButton *cmdTest;
  QLineEdit *txtRutaXML;
  QPushButton *cmdRutaXML;
  QDateEdit *dtpFEVenc;
  QLabel *lblKey, *lblCer, *lblDatosCertificado;
  QPushButton *cmdKey, *cmdCer, *cmdValidarInfoSAT;
  QLineEdit *txtKeyPwd;
  QCheckBox *chkKeyPwd, *chkFEVer;
  QGroupBox *fmeCfdiConfi;

  // The hours of offset the map shows now.
  int HorasDelMapa() const { return horasMapa_; }

private:
  void CargarParametros();
  parametros::Parametros Parametros() const;
  cfdi::DatosSat DatosSat() const;
  void MarcarCambio();
  void MoverMapa(int horas);
  void DibujarMapa();
  void CargarPromociones();
  void GrabarPromociones();
  void LeerTerminal();
  void AgregarTerminal();
  void EliminarTerminal();
  void GrabarTarjeta();
  void GrabarTiempoAire();
  void ElegirPrevio(int opcion);

  ConexionPtr conexion_;
  parametros::Empresa empresa_;
  bool cambioSinValidar_ = false;
  bool cancelacionSat_ = false; // FE_CANCELASAT has no box: it is saved as it was read
  int horasMapa_ = -6;
};
