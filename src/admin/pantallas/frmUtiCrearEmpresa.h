#pragma once

#include "admin/Empresa.h"

#include <QDialog>
#include <array>
#include <functional>

class ComboLista;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTabWidget;

// "DATOS DE LA EMPRESA": a company's data and its database. Opened at login when there is
// no usable company (gModoEmpresa 99), from the company list to change one (gModoEmpresa
// 10, gNumEmp the company), or to create one. Saving writes the company everywhere; a new
// database is built and gets its first administrator.
class frmUtiCrearEmpresa : public QDialog {
public:
  explicit frmUtiCrearEmpresa(QWidget *padre = nullptr);
  ~frmUtiCrearEmpresa() override;

  // The company as the screen holds it.
  empresa::DatosEmpresa Datos() const;
  // "Aceptar": the checks, then the save; the screen closes when it is done.
  void Aceptar();
  // Shows a tab and puts the focus on its first field.
  void MostrarTab(int tab);

  // The first administrator of a new database: the small dialog, until a test puts another.
  empresa::PedirAdministrador pedirAdministrador;
  // The file dialog of the image: answers a file name or the empty text.
  std::function<QString(QWidget *padre)> cdgImagen;

  QTabWidget *fmeFondo;
  // Company data.
  QLineEdit *txtNom, *txtCom, *txtDir1, *txtNumExt, *txtNumInt, *txtCol, *txtCodPos;
  ComboLista *cmbCiudad, *cmbEstado, *cmbPais, *cmbExpedicion;
  std::array<QLineEdit *, 6> txtRfc;
  std::array<QLineEdit *, 4> txtTel;
  QLineEdit *txtWebPage;
  // The place of issue, shown by its button.
  QPushButton *cmdExpedicion;
  QGroupBox *fmeExpedicion;
  QLineEdit *txtCalleExped, *txtExtExped, *txtIntExped, *txtColExped, *txtCPExped;
  ComboLista *cmbCdExped, *cmbEdoExped, *cmbPaisExped;
  // The image, shown by its button.
  QPushButton *cmdFoto;
  QGroupBox *fmeImagen;
  QLabel *imgArt, *lblFoto;
  QPushButton *cmdBusImg, *cmdBor;
  // Branch and database.
  QLineEdit *txtCodSuc, *txtDesSuc;
  QComboBox *cmbBD; // 0 MySQL, 1 SQL Server, 2 the embedded engine
  QStackedWidget *fmeBaseDatos;
  QComboBox *cmbDSNList;
  QPushButton *cmdBuscar;
  QLineEdit *txtRuta, *txtBD;
  QLabel *lblConexion;
  QGroupBox *fmeSql;
  QLineEdit *txtServerName, *txtInstanceNameSql, *txtDBName;
  std::array<QRadioButton *, 2> optAutentication;
  QGroupBox *fmeAutenticaSQL;
  QLineEdit *txtUserNameSql, *txtUserPasswordSql;
  QPushButton *cmdTestConnection;
  QLineEdit *txtArchivo;
  QCheckBox *chkEstructura;
  std::array<QCheckBox *, 2> chkImpReporte;
  QLabel *lblEstatus, *lblOpcional;
  QPushButton *cmdAceptar, *cmdCancelar;

private:
  void CargarListas();
  void CargarDatosEmpresa(int numEmp);
  void CambiarBD(int item);
  void LlenarDsn();
  void ProbarConexion();
  void Avance(const QString &estatus, const QString &opcional);

  int numEmp_ = 0;
  int motor_ = 0;
  bool probada_ = false;
};
