#include "admin/pantallas/frmUtiCrearEmpresa.h"

#include "pantallas/PantallaCombos.h"
#include "pantallas/Pantallas.h"
#include "shell/CargaEmpresa.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStackedWidget>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

QLineEdit *Campo(QWidget *padre, const QString &nombre, int largo) {
  auto *t = new QLineEdit(padre);
  t->setObjectName(nombre);
  t->setMaxLength(largo);
  return t;
}

ComboLista *Lista(QWidget *padre, const QString &nombre) {
  auto *c = new ComboLista(padre);
  c->setObjectName(nombre);
  c->setMinimumWidth(200);
  return c;
}

void Elegir(ComboLista *lista, const QString &clave) {
  const int fila = lista->findData(clave);
  if (fila >= 0)
    lista->FijarPosicion(fila);
}

// The first administrator of a new database: code, name and the password twice.
bool PedirEnDialogo(QWidget *padre, empresa::DatosEmpresa &datos) {
  QDialog dialogo(padre);
  PrepararVentana(&dialogo, QStringLiteral("frmAdministrador"),
                  QStringLiteral("ADMINISTRADOR DE LA EMPRESA"));
  auto *usuario = Campo(&dialogo, QStringLiteral("txtUsuario"), 10);
  usuario->setText(QStringLiteral("ADMIN"));
  auto *nombre = Campo(&dialogo, QStringLiteral("txtNombre"), 50);
  nombre->setText(datos.nombreAdmin);
  auto *clave = Campo(&dialogo, QStringLiteral("txtClave"), 20);
  auto *confirmar = Campo(&dialogo, QStringLiteral("txtConfirmar"), 20);
  clave->setEchoMode(QLineEdit::Password);
  confirmar->setEchoMode(QLineEdit::Password);
  auto *forma = new QFormLayout;
  forma->addRow(QStringLiteral("Usuario"), usuario);
  forma->addRow(QStringLiteral("Nombre"), nombre);
  forma->addRow(QStringLiteral("Contraseña"), clave);
  forma->addRow(QStringLiteral("Confirmar contraseña"), confirmar);
  auto *botones = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialogo);
  auto *capa = new QVBoxLayout(&dialogo);
  capa->addWidget(new QLabel(QStringLiteral("La base de datos es nueva. Indique el usuario que "
                                            "la administrará:"),
                             &dialogo));
  capa->addLayout(forma);
  capa->addWidget(botones);
  QObject::connect(botones, &QDialogButtonBox::rejected, &dialogo, &QDialog::reject);
  QObject::connect(botones, &QDialogButtonBox::accepted, &dialogo, [&] {
    if (usuario->text().trimmed().isEmpty() || clave->text().isEmpty())
      CatalogoMensajes::MostrarTexto(QStringLiteral("Escriba el usuario y su contraseña."),
                                     IconoMensaje::Advertencia);
    else if (clave->text() != confirmar->text())
      CatalogoMensajes::MostrarTexto(QStringLiteral("Las contraseñas no coinciden."),
                                     IconoMensaje::Advertencia);
    else
      dialogo.accept();
  });
  if (dialogo.exec() != QDialog::Accepted)
    return false;
  datos.admin = usuario->text().trimmed().toUpper();
  datos.nombreAdmin = nombre->text().trimmed();
  datos.claveAdmin = clave->text();
  return true;
}

// A file under Empresas\ named after the company that no other company has: a second
// "Tienda" gets Tienda2.db.
QString ArchivoNuevo(QString nombre) {
  nombre.remove(QRegularExpression(QStringLiteral("[^A-Za-z0-9ÁÉÍÓÚÑáéíóúñ]")));
  if (nombre.isEmpty())
    nombre = QStringLiteral("Empresa");
  for (int n = 1;; ++n) {
    const QString archivo =
        QStringLiteral("Empresas\\%1%2.db").arg(nombre, n == 1 ? QString() : QString::number(n));
    const QString ruta =
        UnirRuta(gRutaApp, QString(archivo).replace(QLatin1Char('\\'), QLatin1Char('/')));
    if (!QFileInfo::exists(RutaNativa(ruta)))
      return archivo;
  }
}

QString BuscarImagen(QWidget *padre) {
  return PedirArchivo(padre, QStringLiteral("Imagen de la empresa"),
                      QStringLiteral("Todos los archivos de imágenes (*.bmp *.gif *.jpg *.jpeg "
                                     "*.png *.wmf *.emf *.ico *.cur);;Mapa de bits (*.bmp);;"
                                     "Imágenes GIF (*.gif);;Imágenes JPEG (*.jpg);;Metarchivos "
                                     "(*.wmf *.emf);;Iconos (*.ico *.cur);;Todos los archivos (*)"),
                      UnirRuta(gRutaApp, QStringLiteral("Imagenes")), false);
}

} // namespace

frmUtiCrearEmpresa::frmUtiCrearEmpresa(QWidget *padre)
    : QDialog(padre),
      pedirAdministrador([this](empresa::DatosEmpresa &d) { return PedirEnDialogo(this, d); }),
      cdgImagen(&BuscarImagen) {
  PrepararVentana(this, QStringLiteral("frmUtiCrearEmpresa"),
                  QStringLiteral("DATOS DE LA EMPRESA"));
  fmeFondo = new QTabWidget(this);
  fmeFondo->setObjectName(QStringLiteral("fmeFondo"));

  // ------------------------------------------------------------ the company
  auto *datos = new QWidget(fmeFondo);
  datos->setObjectName(QStringLiteral("fmeDatos_0"));
  txtNom = Campo(datos, QStringLiteral("txtNom"), 70);
  txtCom = Campo(datos, QStringLiteral("txtCom"), 70);
  txtDir1 = Campo(datos, QStringLiteral("txtDir1"), 100);
  txtNumExt = Campo(datos, QStringLiteral("txtNumExt"), 10);
  txtNumInt = Campo(datos, QStringLiteral("txtNumInt"), 10);
  txtCol = Campo(datos, QStringLiteral("txtCol"), 50);
  txtCodPos = Campo(datos, QStringLiteral("txtCodPos"), 5);
  cmbCiudad = Lista(datos, QStringLiteral("cmbCiudad"));
  cmbEstado = Lista(datos, QStringLiteral("cmbEstado"));
  cmbPais = Lista(datos, QStringLiteral("cmbPais"));
  cmbExpedicion = Lista(datos, QStringLiteral("cmbExpedicion"));
  const int largosRfc[] = {4, 6, 3, 70, 70, 70};
  for (int i = 0; i < 6; ++i)
    txtRfc[i] = Campo(datos, QStringLiteral("txtRfc_%1").arg(i), largosRfc[i]);
  for (int i = 0; i < 4; ++i)
    txtTel[i] = Campo(datos, QStringLiteral("txtTel_%1").arg(i), 30);
  txtWebPage = Campo(datos, QStringLiteral("txtWebPage"), 100);
  auto *rfc = new QHBoxLayout;
  for (int i = 0; i < 3; ++i)
    rfc->addWidget(txtRfc[i]);
  auto *telefonos = new QHBoxLayout;
  for (QLineEdit *t : txtTel)
    telefonos->addWidget(t);
  auto *numeros = new QHBoxLayout;
  numeros->addWidget(txtNumExt);
  numeros->addWidget(new QLabel(QStringLiteral("Interior"), datos));
  numeros->addWidget(txtNumInt);
  numeros->addWidget(new QLabel(QStringLiteral("C.P."), datos));
  numeros->addWidget(txtCodPos);
  auto *forma = new QFormLayout;
  forma->addRow(QStringLiteral("Razón social"), txtNom);
  forma->addRow(QStringLiteral("Nombre comercial"), txtCom);
  forma->addRow(QStringLiteral("Calle"), txtDir1);
  forma->addRow(QStringLiteral("Número exterior"), numeros);
  forma->addRow(QStringLiteral("Colonia"), txtCol);
  forma->addRow(QStringLiteral("Ciudad"), cmbCiudad);
  forma->addRow(QStringLiteral("Estado"), cmbEstado);
  forma->addRow(QStringLiteral("País"), cmbPais);
  forma->addRow(QStringLiteral("R.F.C."), rfc);
  forma->addRow(QStringLiteral("Giro"), txtRfc[3]);
  forma->addRow(QString(), txtRfc[4]);
  forma->addRow(QString(), txtRfc[5]);
  forma->addRow(QStringLiteral("Teléfonos"), telefonos);
  forma->addRow(QStringLiteral("Página web"), txtWebPage);
  forma->addRow(QStringLiteral("Expedición"), cmbExpedicion);

  // The place of issue and the image, each behind its button.
  cmdExpedicion = new QPushButton(QStringLiteral("Lugar de expedición"), datos);
  cmdExpedicion->setObjectName(QStringLiteral("cmdExpedicion"));
  cmdExpedicion->setAutoDefault(false);
  fmeExpedicion = new QGroupBox(QStringLiteral("Lugar de expedición"), datos);
  fmeExpedicion->setObjectName(QStringLiteral("fmeExpedicion"));
  txtCalleExped = Campo(fmeExpedicion, QStringLiteral("txtCalleExped"), 100);
  txtExtExped = Campo(fmeExpedicion, QStringLiteral("txtExtExped"), 10);
  txtIntExped = Campo(fmeExpedicion, QStringLiteral("txtIntExped"), 10);
  txtColExped = Campo(fmeExpedicion, QStringLiteral("txtColExped"), 50);
  txtCPExped = Campo(fmeExpedicion, QStringLiteral("txtCPExped"), 5);
  cmbCdExped = Lista(fmeExpedicion, QStringLiteral("cmbCdExped"));
  cmbEdoExped = Lista(fmeExpedicion, QStringLiteral("cmbEdoExped"));
  cmbPaisExped = Lista(fmeExpedicion, QStringLiteral("cmbPaisExped"));
  auto *expedicion = new QFormLayout(fmeExpedicion);
  expedicion->addRow(QStringLiteral("Calle"), txtCalleExped);
  expedicion->addRow(QStringLiteral("Exterior"), txtExtExped);
  expedicion->addRow(QStringLiteral("Interior"), txtIntExped);
  expedicion->addRow(QStringLiteral("Colonia"), txtColExped);
  expedicion->addRow(QStringLiteral("C.P."), txtCPExped);
  expedicion->addRow(QStringLiteral("Ciudad"), cmbCdExped);
  expedicion->addRow(QStringLiteral("Estado"), cmbEdoExped);
  expedicion->addRow(QStringLiteral("País"), cmbPaisExped);
  fmeExpedicion->hide();
  cmdFoto = new QPushButton(QStringLiteral("Mostrar Imagen"), datos);
  cmdFoto->setObjectName(QStringLiteral("cmdFoto"));
  cmdFoto->setAutoDefault(false);
  fmeImagen = new QGroupBox(QStringLiteral("Imagen"), datos);
  fmeImagen->setObjectName(QStringLiteral("fmeImagen"));
  imgArt = new QLabel(fmeImagen);
  imgArt->setObjectName(QStringLiteral("imgArt"));
  imgArt->setFixedSize(160, 120);
  imgArt->setAlignment(Qt::AlignCenter);
  lblFoto = new QLabel(fmeImagen);
  lblFoto->setObjectName(QStringLiteral("lblFoto"));
  lblFoto->setWordWrap(true);
  cmdBusImg = new QPushButton(QStringLiteral("Buscar"), fmeImagen);
  cmdBusImg->setObjectName(QStringLiteral("cmdBusImg"));
  cmdBor = new QPushButton(QStringLiteral("Quitar"), fmeImagen);
  cmdBor->setObjectName(QStringLiteral("cmdBor"));
  for (QPushButton *b : {cmdBusImg, cmdBor})
    b->setAutoDefault(false);
  auto *imagen = new QGridLayout(fmeImagen);
  imagen->addWidget(imgArt, 0, 0, 3, 1);
  imagen->addWidget(lblFoto, 0, 1);
  imagen->addWidget(cmdBusImg, 1, 1);
  imagen->addWidget(cmdBor, 2, 1);
  fmeImagen->hide();
  auto *lado = new QVBoxLayout;
  lado->addWidget(cmdExpedicion);
  lado->addWidget(fmeExpedicion);
  lado->addWidget(cmdFoto);
  lado->addWidget(fmeImagen);
  lado->addStretch(1);
  auto *capaDatos = new QHBoxLayout(datos);
  capaDatos->addLayout(forma, 1);
  capaDatos->addLayout(lado);
  fmeFondo->addTab(datos, QStringLiteral("Empresa"));

  // ------------------------------------------------------------ branch and database
  auto *base = new QWidget(fmeFondo);
  base->setObjectName(QStringLiteral("fmeDatos_1"));
  txtCodSuc = Campo(base, QStringLiteral("txtCodSuc"), 6);
  txtDesSuc = Campo(base, QStringLiteral("txtDesSuc"), 50);
  auto *sucursal = new QGroupBox(QStringLiteral("Sucursal principal"), base);
  auto *formaSucursal = new QFormLayout(sucursal);
  formaSucursal->addRow(QStringLiteral("Código"), txtCodSuc);
  formaSucursal->addRow(QStringLiteral("Nombre"), txtDesSuc);

  cmbBD = new QComboBox(base);
  cmbBD->setObjectName(QStringLiteral("cmbBD"));
  cmbBD->addItems({QStringLiteral("MySQL"), QStringLiteral("SQL Server"),
                   QStringLiteral("Motor integrado (SQLite)")});
  fmeBaseDatos = new QStackedWidget(base);
  // MySQL or MariaDB, through a data source of the machine.
  auto *mysql = new QWidget(fmeBaseDatos);
  cmbDSNList = new QComboBox(mysql);
  cmbDSNList->setObjectName(QStringLiteral("cmbDSNList"));
  cmdBuscar = new QPushButton(QStringLiteral("Buscar DSN (Data Source Name)"), mysql);
  cmdBuscar->setObjectName(QStringLiteral("cmdBuscar"));
  cmdBuscar->setAutoDefault(false);
  txtRuta = Campo(mysql, QStringLiteral("txtRuta"), 100);
  txtBD = Campo(mysql, QStringLiteral("txtBD"), 50);
  lblConexion = new QLabel(mysql);
  lblConexion->setObjectName(QStringLiteral("lblConexion"));
  auto *formaMysql = new QFormLayout(mysql);
  auto *dsn = new QHBoxLayout;
  dsn->addWidget(cmbDSNList, 1);
  dsn->addWidget(cmdBuscar);
  formaMysql->addRow(QStringLiteral("Origen de datos"), dsn);
  formaMysql->addRow(QStringLiteral("DSN"), txtRuta);
  formaMysql->addRow(QStringLiteral("Base de datos"), txtBD);
  formaMysql->addRow(QStringLiteral("Conexión"), lblConexion);
  // SQL Server.
  fmeSql = new QGroupBox(fmeBaseDatos);
  fmeSql->setObjectName(QStringLiteral("fmeSql"));
  txtServerName = Campo(fmeSql, QStringLiteral("txtServerName"), 100);
  txtInstanceNameSql = Campo(fmeSql, QStringLiteral("txtInstanceNameSql"), 50);
  txtDBName = Campo(fmeSql, QStringLiteral("txtDBName"), 50);
  optAutentication[0] = new QRadioButton(QStringLiteral("Windows"), fmeSql);
  optAutentication[1] = new QRadioButton(QStringLiteral("SQL Server"), fmeSql);
  for (int i = 0; i < 2; ++i)
    optAutentication[i]->setObjectName(QStringLiteral("optAutentication_%1").arg(i));
  optAutentication[0]->setChecked(true);
  fmeAutenticaSQL = new QGroupBox(fmeSql);
  fmeAutenticaSQL->setObjectName(QStringLiteral("fmeAutenticaSQL"));
  txtUserNameSql = Campo(fmeAutenticaSQL, QStringLiteral("txtUserNameSql"), 50);
  txtUserPasswordSql = Campo(fmeAutenticaSQL, QStringLiteral("txtUserPasswordSql"), 50);
  txtUserPasswordSql->setEchoMode(QLineEdit::Password);
  auto *formaAut = new QFormLayout(fmeAutenticaSQL);
  formaAut->addRow(QStringLiteral("Usuario"), txtUserNameSql);
  formaAut->addRow(QStringLiteral("Contraseña"), txtUserPasswordSql);
  cmdTestConnection = new QPushButton(QStringLiteral("Probar conexión"), fmeSql);
  cmdTestConnection->setObjectName(QStringLiteral("cmdTestConnection"));
  cmdTestConnection->setAutoDefault(false);
  auto *formaSql = new QFormLayout(fmeSql);
  formaSql->addRow(QStringLiteral("Nombre de equipo o IP"), txtServerName);
  formaSql->addRow(QStringLiteral("Nombre de Instancia Sql"), txtInstanceNameSql);
  formaSql->addRow(QStringLiteral("Nombre de Base de Datos"), txtDBName);
  auto *autenticacion = new QHBoxLayout;
  autenticacion->addWidget(optAutentication[0]);
  autenticacion->addWidget(optAutentication[1]);
  formaSql->addRow(QStringLiteral("Autenticación"), autenticacion);
  formaSql->addRow(fmeAutenticaSQL);
  formaSql->addRow(cmdTestConnection);
  // The embedded engine: a file of the installation.
  auto *integrado = new QWidget(fmeBaseDatos);
  txtArchivo = Campo(integrado, QStringLiteral("txtArchivo"), 200);
  auto *formaIntegrado = new QFormLayout(integrado);
  formaIntegrado->addRow(QStringLiteral("Archivo"), txtArchivo);
  formaIntegrado->addRow(new QLabel(QStringLiteral("Relativo a la carpeta del programa, por "
                                                   "ejemplo Empresas\\Tienda.db."),
                                    integrado));
  fmeBaseDatos->addWidget(mysql);
  fmeBaseDatos->addWidget(fmeSql);
  fmeBaseDatos->addWidget(integrado);
  auto *grupoBase = new QGroupBox(QStringLiteral("Base de datos"), base);
  auto *capaBase = new QFormLayout(grupoBase);
  capaBase->addRow(QStringLiteral("Tipo de base de datos"), cmbBD);
  capaBase->addRow(fmeBaseDatos);

  chkEstructura = new QCheckBox(QStringLiteral("Revisar Estructura de Datos"), base);
  chkEstructura->setObjectName(QStringLiteral("chkEstructura"));
  chkImpReporte[0] =
      new QCheckBox(QStringLiteral("Imprimir la razón social en los reportes"), base);
  chkImpReporte[1] =
      new QCheckBox(QStringLiteral("Imprimir el nombre comercial en los reportes"), base);
  for (int i = 0; i < 2; ++i)
    chkImpReporte[i]->setObjectName(QStringLiteral("chkImpReporte_%1").arg(i));
  auto *capaSegunda = new QVBoxLayout(base);
  capaSegunda->addWidget(sucursal);
  capaSegunda->addWidget(grupoBase);
  capaSegunda->addWidget(chkEstructura);
  capaSegunda->addWidget(chkImpReporte[0]);
  capaSegunda->addWidget(chkImpReporte[1]);
  capaSegunda->addStretch(1);
  fmeFondo->addTab(base, QStringLiteral("Sucursal y base de datos"));

  lblEstatus = new QLabel(this);
  lblEstatus->setObjectName(QStringLiteral("lblEstatus"));
  lblOpcional = new QLabel(this);
  lblOpcional->setObjectName(QStringLiteral("lblOpcional"));
  cmdAceptar = new QPushButton(QStringLiteral("Aceptar"), this);
  cmdAceptar->setObjectName(QStringLiteral("cmdAceptar"));
  cmdCancelar = new QPushButton(QStringLiteral("Cancelar"), this);
  cmdCancelar->setObjectName(QStringLiteral("cmdCancelar"));
  cmdAceptar->setAutoDefault(false);
  cmdCancelar->setAutoDefault(false);
  auto *pie = new QHBoxLayout;
  auto *lineas = new QVBoxLayout;
  lineas->addWidget(lblEstatus);
  lineas->addWidget(lblOpcional);
  pie->addLayout(lineas, 1);
  pie->addWidget(cmdAceptar);
  pie->addWidget(cmdCancelar);
  auto *raiz = new QVBoxLayout(this);
  raiz->addWidget(fmeFondo);
  raiz->addLayout(pie);

  // ------------------------------------------------------------ the events
  connect(fmeFondo, &QTabWidget::currentChanged, this, [this](int tab) { MostrarTab(tab); });
  connect(cmdExpedicion, &QPushButton::clicked, this,
          [this] { fmeExpedicion->setVisible(!fmeExpedicion->isVisible()); });
  connect(cmdFoto, &QPushButton::clicked, this, [this] {
    fmeImagen->setVisible(!fmeImagen->isVisible());
    cmdFoto->setText(fmeImagen->isVisible() ? QStringLiteral("Ocultar Imagen")
                                            : QStringLiteral("Mostrar Imagen"));
  });
  connect(cmdBusImg, &QPushButton::clicked, this, [this] {
    const QString archivo = cdgImagen(this);
    if (archivo.isEmpty())
      return;
    lblFoto->setText(archivo);
    imgArt->setPixmap(QPixmap(archivo).scaled(imgArt->size(), Qt::KeepAspectRatio));
  });
  connect(cmdBor, &QPushButton::clicked, this, [this] {
    lblFoto->clear();
    imgArt->clear();
  });
  connect(cmbBD, &QComboBox::currentIndexChanged, this, [this](int item) { CambiarBD(item); });
  connect(cmdBuscar, &QPushButton::clicked, this, [this] { LlenarDsn(); });
  connect(cmbDSNList, &QComboBox::activated, this, [this](int fila) {
    txtRuta->setText(cmbDSNList->itemText(fila));
    if (txtBD->text().isEmpty())
      txtBD->setText(cmbDSNList->itemText(fila));
  });
  connect(txtRuta, &QLineEdit::textChanged, this, [this](const QString &t) {
    if (motor_ == motor::kMySql)
      lblConexion->setText(QStringLiteral("DSN=") + t);
  });
  connect(optAutentication[1], &QRadioButton::toggled, this, [this](bool sql) {
    txtUserNameSql->setEnabled(sql);
    txtUserPasswordSql->setEnabled(sql);
    probada_ = false;
  });
  // A connection proved is proved for the values it was proved with.
  for (QLineEdit *t :
       {txtServerName, txtInstanceNameSql, txtDBName, txtUserNameSql, txtUserPasswordSql})
    connect(t, &QLineEdit::textEdited, this, [this] { probada_ = false; });
  connect(cmdTestConnection, &QPushButton::clicked, this, [this] { ProbarConexion(); });
  connect(cmdAceptar, &QPushButton::clicked, this, [this] { Aceptar(); });
  connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
  // The name of a company is the name of its files: none of \ / : * ? " < > |.
  new VistaPreviaTeclas(this, [this](QWidget *control, QKeyEvent *tecla) {
    if (control != txtNom || tecla->text().isEmpty() || empresa::NombreValido(tecla->text()))
      return false;
    QApplication::beep();
    return true;
  });
  new EnterSiguiente(this);
  txtUserNameSql->setEnabled(false);
  txtUserPasswordSql->setEnabled(false);

  // ------------------------------------------------------------ the load
  RelojArena reloj;
  const int modo = gModoEmpresa;
  numEmp_ = modo == 10 ? gNumEmp : 0;
  // A company being changed shows its database; a new one is offered the embedded engine.
  int item = 2;
  if (numEmp_ > 0) {
    ServicioConexion servicio;
    ConexionPtr general = servicio.AbrirConexionGeneral(gConexionGeneral);
    Registros rs = general->Abrir(
        QStringLiteral("SELECT CONEXION,MOTORDEDATOS FROM tblEmpresas WHERE NUM_EMP=%1;")
            .arg(numEmp_));
    if (!rs.Vacio()) {
      const int motorDatos = static_cast<int>(rs.Campo(QStringLiteral("MOTORDEDATOS")).Numero());
      item = motorDatos == motor::kSqlServer ? 1 : motorDatos == motor::kMySql ? 0 : 2;
    }
  }
  CambiarBD(item);
  cmbBD->setCurrentIndex(item);
  if (modo != 99)
    CargarListas();
  if (modo == 99) {
    chkEstructura->setEnabled(false);
    chkImpReporte[0]->setChecked(true);
    chkImpReporte[1]->setChecked(false);
  } else if (modo == 10) {
    chkEstructura->setEnabled(true);
    CargarDatosEmpresa(numEmp_);
  } else {
    chkImpReporte[0]->setChecked(true);
    chkImpReporte[1]->setChecked(false);
  }
  gModoEmpresa = 0;
  if (numEmp_ == 0)
    txtDesSuc->setText(QStringLiteral("PISO"));
  fmeFondo->setCurrentIndex(0);
  MostrarTab(0);
}

frmUtiCrearEmpresa::~frmUtiCrearEmpresa() = default;

void frmUtiCrearEmpresa::CargarListas() {
  if (gConexion.isEmpty())
    return;
  ConexionPtr con = ServicioConexion::AbrirConexionSesion();
  const QString ciudades = QStringLiteral("SELECT COD_CID,DES_CID FROM tblCiudad ORDER BY COD_CID");
  const QString estados = QStringLiteral("SELECT COD_EST,DES_EST FROM tblEstado ORDER BY COD_EST");
  const QString paises = QStringLiteral("SELECT COD_PAIS,DES_PAIS FROM tblPais ORDER BY COD_PAIS;");
  for (ComboLista *c : {cmbCiudad, cmbCdExped})
    c->Cargar(*con, ciudades, QStringLiteral("COD_CID"), QStringLiteral("DES_CID"));
  for (ComboLista *c : {cmbEstado, cmbEdoExped})
    c->Cargar(*con, estados, QStringLiteral("COD_EST"), QStringLiteral("DES_EST"));
  for (ComboLista *c : {cmbPais, cmbPaisExped})
    c->Cargar(*con, paises, QStringLiteral("COD_PAIS"), QStringLiteral("DES_PAIS"));
  cmbExpedicion->Cargar(*con,
                        QStringLiteral("SELECT COD_EXPED,DES_EXPED FROM tblExpedicion ORDER BY "
                                       "COD_EXPED"),
                        QStringLiteral("COD_EXPED"), QStringLiteral("DES_EXPED"));
  if (gModoEmpresa == 10)
    return;
  const std::pair<ComboLista *, const char *> regionales[] = {
      {cmbCiudad, "CIUDAD"}, {cmbEstado, "ESTADO"}, {cmbPais, "PAIS"}};
  for (const auto &[lista, clave] : regionales)
    Elegir(lista, ServicioUtil::LeerIni(QStringLiteral("CFGREGIONAL"), QLatin1String(clave),
                                        RutaNimbarIni()));
}

void frmUtiCrearEmpresa::CargarDatosEmpresa(int numEmp) {
  const empresa::DatosEmpresa d = empresa::CargarDatosEmpresa(numEmp);
  txtNom->setText(d.nombre);
  txtCom->setText(d.comercial);
  txtDir1->setText(d.direccion);
  txtNumExt->setText(d.numExt);
  txtNumInt->setText(d.numInt);
  txtCol->setText(d.colonia);
  txtCodPos->setText(d.codigoPostal);
  for (int i = 0; i < 6; ++i)
    txtRfc[i]->setText(d.rfc[i]);
  for (int i = 0; i < 4; ++i)
    txtTel[i]->setText(d.telefonos[i]);
  txtWebPage->setText(d.paginaWeb);
  Elegir(cmbCiudad, d.ciudad.codigo);
  Elegir(cmbEstado, d.estado.codigo);
  Elegir(cmbPais, d.pais.codigo);
  Elegir(cmbExpedicion, d.expedicion.codigo);
  txtCalleExped->setText(d.calleExp);
  txtExtExped->setText(d.extExp);
  txtIntExped->setText(d.intExp);
  txtColExped->setText(d.coloniaExp);
  txtCPExped->setText(d.cpExp);
  Elegir(cmbCdExped, d.ciudadExp);
  Elegir(cmbEdoExped, d.estadoExp);
  Elegir(cmbPaisExped, d.paisExp);
  lblFoto->setText(d.imagen);
  if (!d.imagen.isEmpty())
    imgArt->setPixmap(QPixmap(d.imagen).scaled(imgArt->size(), Qt::KeepAspectRatio));
  txtCodSuc->setText(d.sucursal);
  txtDesSuc->setText(d.nombreSucursal);
  const empresa::DatosConexion &c = d.conexion;
  txtBD->setText(c.baseDatos);
  txtRuta->setText(c.dsn);
  txtServerName->setText(c.servidor);
  txtInstanceNameSql->setText(c.instancia);
  txtDBName->setText(c.baseDatos);
  optAutentication[c.autenticacion == 1 ? 1 : 0]->setChecked(true);
  txtUserNameSql->setText(c.usuario);
  txtUserPasswordSql->setText(c.clave);
  txtArchivo->setText(c.archivo);
  probada_ = c.probada;
  chkImpReporte[0]->setChecked(d.imprimirNombre[0]);
  chkImpReporte[1]->setChecked(d.imprimirNombre[1]);
}

void frmUtiCrearEmpresa::CambiarBD(int item) {
  motor_ = item == 0 ? motor::kMySql : item == 1 ? motor::kSqlServer : motor::kSqlite;
  fmeBaseDatos->setCurrentIndex(item);
  if (item == 0) {
    if (!txtBD->text().isEmpty() && txtRuta->text().isEmpty())
      txtRuta->setText(txtBD->text());
    lblConexion->setText(txtRuta->text().isEmpty() ? QString()
                                                   : QStringLiteral("DSN=") + txtRuta->text());
    if (cmbDSNList->count() == 0)
      LlenarDsn();
  }
}

void frmUtiCrearEmpresa::LlenarDsn() {
  cmbDSNList->clear();
  cmbDSNList->addItems(empresa::FuentesOdbc());
  cmbDSNList->setCurrentIndex(-1);
}

void frmUtiCrearEmpresa::ProbarConexion() {
  empresa::DatosConexion c = Datos().conexion;
  c.motor = motor::kSqlServer;
  RelojArena reloj;
  probada_ = empresa::ProbarConexion(c);
  CatalogoMensajes::Mostrar(probada_ ? 370 : 369, {},
                            probada_ ? IconoMensaje::Informacion : IconoMensaje::Advertencia);
}

void frmUtiCrearEmpresa::MostrarTab(int tab) {
  if (fmeFondo->currentIndex() != tab)
    fmeFondo->setCurrentIndex(tab);
  (tab == 0 ? txtNom : txtCodSuc)->setFocus();
}

empresa::DatosEmpresa frmUtiCrearEmpresa::Datos() const {
  empresa::DatosEmpresa d;
  d.nombre = txtNom->text().trimmed();
  d.comercial = txtCom->text().trimmed();
  d.direccion = txtDir1->text().trimmed();
  d.numExt = txtNumExt->text().trimmed();
  d.numInt = txtNumInt->text().trimmed();
  d.colonia = txtCol->text().trimmed();
  d.codigoPostal = txtCodPos->text().trimmed();
  d.ciudad = {cmbCiudad->Clave(), cmbCiudad->Texto()};
  d.estado = {cmbEstado->Clave(), cmbEstado->Texto()};
  d.pais = {cmbPais->Clave(), cmbPais->Texto()};
  for (int i = 0; i < 6; ++i)
    d.rfc[i] = txtRfc[i]->text().trimmed();
  for (int i = 0; i < 4; ++i)
    d.telefonos[i] = txtTel[i]->text().trimmed();
  d.paginaWeb = txtWebPage->text().trimmed();
  d.expedicion = {cmbExpedicion->Clave(), cmbExpedicion->Texto()};
  d.sucursal = txtCodSuc->text().trimmed();
  d.nombreSucursal = txtDesSuc->text().trimmed();
  d.calleExp = txtCalleExped->text().trimmed();
  d.extExp = txtExtExped->text().trimmed();
  d.intExp = txtIntExped->text().trimmed();
  d.coloniaExp = txtColExped->text().trimmed();
  d.cpExp = txtCPExped->text().trimmed();
  d.ciudadExp = cmbCdExped->Clave();
  d.estadoExp = cmbEdoExped->Clave();
  d.paisExp = cmbPaisExped->Clave();
  d.imagen = lblFoto->text();
  d.revisarEstructura = chkEstructura->isEnabled() && chkEstructura->isChecked();
  d.imprimirNombre = {chkImpReporte[0]->isChecked(), chkImpReporte[1]->isChecked()};
  empresa::DatosConexion &c = d.conexion;
  c.motor = motor_;
  switch (motor_) {
  case motor::kMySql:
    c.dsn = lblConexion->text().mid(4);
    c.baseDatos = txtBD->text().trimmed();
    break;
  case motor::kSqlServer:
    c.servidor = txtServerName->text().trimmed();
    c.instancia = txtInstanceNameSql->text().trimmed();
    c.baseDatos = txtDBName->text().trimmed();
    c.autenticacion = optAutentication[1]->isChecked() ? 1 : 0;
    c.usuario = txtUserNameSql->text().trimmed();
    c.clave = txtUserPasswordSql->text();
    c.probada = probada_;
    break;
  default:
    c.archivo = txtArchivo->text().trimmed();
    break;
  }
  return d;
}

void frmUtiCrearEmpresa::Avance(const QString &estatus, const QString &opcional) {
  lblEstatus->setText(estatus);
  lblOpcional->setText(opcional);
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmUtiCrearEmpresa::Aceptar() {
  empresa::DatosEmpresa d = Datos();
  // A new company in the embedded engine gets a file of its own, named after it.
  const bool nombrado = motor_ == motor::kSqlite && d.conexion.archivo.isEmpty();
  if (nombrado && !d.nombre.isEmpty())
    d.conexion.archivo = ArchivoNuevo(d.comercial.isEmpty() ? d.nombre : d.comercial);
  if (!empresa::ValidarEmpresa(d))
    return;
  int numero = 0;
  {
    RelojArena reloj;
    numero = empresa::GuardarEmpresa(
        d, numEmp_, [this](const QString &e, const QString &o) { Avance(e, o); }, nullptr,
        pedirAdministrador);
  }
  Avance({}, {});
  if (numero == 0)
    return;
  if (nombrado)
    txtArchivo->setText(d.conexion.archivo);
  accept();
}
