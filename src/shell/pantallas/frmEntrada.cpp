#include "shell/pantallas/frmEntrada.h"

#include "pantallas/Pantallas.h"
#include "pantallas/frmTeclado.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Encriptacion.h"
#include "shell/Entrada.h"
#include "shell/ErrorFatal.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
#include <optional>

namespace {

const QString kListaEmpresas = SentenciaEmpresas(QStringLiteral("NUM_EMP,NOM_EMP"), QString());

// The characters that, typed on the company list, start the user code.
bool IniciaCodigo(int codigo) {
  return (codigo >= 33 && codigo <= 38) || (codigo >= 40 && codigo <= 57) ||
         (codigo >= 65 && codigo <= 122);
}

void EscribirReportIni(const char *clave, const QString &valor) {
  ServicioUtil::EscribirIni(QStringLiteral("Config"), QLatin1String(clave), valor, RutaReportIni());
}

QToolButton *BotonTeclado(QWidget *padre, const char *nombre) {
  auto *b = new QToolButton(padre);
  b->setObjectName(QLatin1String(nombre));
  b->setText(QStringLiteral("⌨"));
  b->setToolTip(QStringLiteral("Teclado en pantalla"));
  b->setFocusPolicy(Qt::NoFocus);
  return b;
}

} // namespace

frmEntrada::frmEntrada(QWidget *padre) : QDialog(padre), teclado(&frmTeclado::Pedir) {
  setObjectName(QStringLiteral("frmEntrada"));
  setWindowTitle(CatalogoMensajes::Texto(100));
  setModal(true);
  InstalarAyuda(this);
  setWindowFlag(Qt::WindowStaysOnTopHint);
  setStyleSheet(QStringLiteral("#cmdAce, #cmdCan, #cmbEmpresa, #txtCod, #txtPass "
                               "{ background-color: %1; }")
                    .arg(ColorFamilia()));

  auto *Image1 = new QLabel(this);
  Image1->setObjectName(QStringLiteral("Image1"));
  Image1->setPixmap(style()->standardIcon(QStyle::SP_ComputerIcon).pixmap(48, 48));
  Label1 = new QLabel(this);
  Label1->setObjectName(QStringLiteral("Label1"));
  QFont grande = Label1->font();
  grande.setPointSize(grande.pointSize() + 6);
  grande.setBold(true);
  Label1->setFont(grande);

  cmbEmpresa = new QComboBox(this);
  cmbEmpresa->setObjectName(QStringLiteral("cmbEmpresa"));
  // The list's chosen row in a dark highlight, readable over the pale blue (drawn by the
  // item views' delegate, which follows the style sheet; the combo's own draws a menu).
  cmbEmpresa->setItemDelegate(new QStyledItemDelegate(cmbEmpresa));
  cmbEmpresa->view()->setStyleSheet(
      QStringLiteral("selection-background-color: rgb(0, 90, 170); selection-color: white;"));
  txtCod = new QLineEdit(this);
  txtCod->setObjectName(QStringLiteral("txtCod"));
  txtPass = new QLineEdit(this);
  txtPass->setObjectName(QStringLiteral("txtPass"));
  txtPass->setEchoMode(QLineEdit::Password);
  cmdTecladoCod = BotonTeclado(this, "cmdTecladoCod");
  cmdTecladoPass = BotonTeclado(this, "cmdTecladoPass");
  cmdAce = new QPushButton(QStringLiteral("Aceptar"), this);
  cmdAce->setObjectName(QStringLiteral("cmdAce"));
  cmdCan = new QPushButton(QStringLiteral("Cancelar"), this);
  cmdCan->setObjectName(QStringLiteral("cmdCan"));
  lblLink = new QLabel(QStringLiteral("www.tolvane.com"), this);
  lblLink->setObjectName(QStringLiteral("lblLink"));
  lblLink->setCursor(Qt::PointingHandCursor);
  lblLink->setStyleSheet(QStringLiteral("color: rgb(0, 0, 192);"));
  lblLink->installEventFilter(this);

  auto *cabeza = new QHBoxLayout;
  cabeza->addWidget(Image1);
  cabeza->addWidget(Label1, 1);
  auto *campos = new QGridLayout;
  const auto etiqueta = [this](const char *texto) {
    auto *l = new QLabel(QString::fromUtf8(texto), this);
    l->setObjectName(QStringLiteral("Label2"));
    return l;
  };
  campos->addWidget(etiqueta("Empresa"), 0, 0);
  campos->addWidget(cmbEmpresa, 0, 1, 1, 2);
  campos->addWidget(etiqueta("Usuario"), 1, 0);
  campos->addWidget(txtCod, 1, 1);
  campos->addWidget(cmdTecladoCod, 1, 2);
  campos->addWidget(etiqueta("Contraseña"), 2, 0);
  campos->addWidget(txtPass, 2, 1);
  campos->addWidget(cmdTecladoPass, 2, 2);
  campos->setColumnStretch(1, 1);
  auto *botones = new QHBoxLayout;
  botones->addStretch(1);
  botones->addWidget(cmdAce);
  botones->addWidget(cmdCan);
  auto *raiz = new QVBoxLayout(this);
  raiz->addLayout(cabeza);
  raiz->addSpacing(8);
  raiz->addLayout(campos);
  raiz->addLayout(botones);
  raiz->addWidget(lblLink, 0, Qt::AlignRight);
  // As wide as the place it returns to after the on-screen keyboard assumes.
  setFixedWidth(Twips(this, 5744));
  setTabOrder(cmbEmpresa, txtCod);
  setTabOrder(txtCod, txtPass);
  setTabOrder(txtPass, cmdAce);
  setTabOrder(cmdAce, cmdCan);

  new RechazoApostrofe(this);
  new VistaPreviaTeclas(this, [this](QWidget *control, QKeyEvent *tecla) {
    return Form_KeyPress(control, tecla->text().isEmpty() ? 0 : tecla->text().at(0).unicode(),
                         tecla->key());
  });
  connect(cmbEmpresa, &QComboBox::activated, this, [this] { cmbEmpresa_Click(); });
  connect(cmdAce, &QPushButton::clicked, this, [this] { cmdAce_Click(); });
  connect(cmdCan, &QPushButton::clicked, this, [this] { cmdCan_Click(); });
  connect(cmdTecladoCod, &QToolButton::clicked, this, [this] { TecladoEnPantalla(txtCod); });
  connect(cmdTecladoPass, &QToolButton::clicked, this, [this] { TecladoEnPantalla(txtPass); });
  cmbEmpresa->setFocus();
}

frmEntrada::~frmEntrada() = default;

bool frmEntrada::Cargar() {
  Label1->setText(QStringLiteral("Escribano v.") + QLatin1String(kVersionPrograma));
  gModulo = 13;
  const QString general = UnirRuta(gRutaApp, QStringLiteral("nimbar.mdb"));
  if (!QFileInfo::exists(RutaNativa(general))) {
    CatalogoMensajes::Mostrar(300, general, IconoMensaje::Critico);
    return false;
  }
  std::optional<ErrorFatal> fallo;
  try {
    conexionGeneral_ = servicio_.AbrirConexionGeneral(gConexionGeneral);
    LlenarEmpresas(*conexionGeneral_);
  } catch (const ErrorFatal &e) {
    // A general database that doesn't open fails the reading of the list below.
    fallo = e;
  }
  if (!conexionGeneral_)
    throw *fallo;
  if (!LeerEmpresas())
    return false;
  SeleccionarEmpresa(static_cast<int>(Val(ServicioUtil::LeerIni(
      QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"), RutaNimbarIni()))));
  return true;
}

// The first company's connection goes to Report.ini. With no company at all the
// installation is new: the report folders are written, and without a company the
// program can't go on.
bool frmEntrada::LeerEmpresas() {
  {
    Registros r = conexionGeneral_->Abrir(SentenciaEmpresas(QStringLiteral("*")));
    if (!r.Vacio()) {
      // The filter leaves only rows with a connection: the first one gives it.
      conexionActual_ = r.Campo(QStringLiteral("CONEXION")).Texto();
      EscribirReportIni("MDBDir", conexionActual_);
      return true;
    }
  }
  conexionGeneral_.reset();
  conexionGeneral_ = servicio_.AbrirConexionGeneral(gConexionGeneral);
  gModoEmpresa = 99;
  EscribirReportIni("ReportDir", UnirRuta(gRutaApp, QStringLiteral("Reportes")));
  EscribirReportIni("ExportDir", UnirRuta(gRutaApp, QStringLiteral("Export")));
  EscribirReportIni("ConsultDir", UnirRuta(gRutaApp, QStringLiteral("Consultas")));
  EscribirReportIni("TemplateDir", UnirRuta(gRutaApp, QStringLiteral("Plantillas")));
  if (crearEmpresa)
    crearEmpresa(this);
  // The list is read again: a company may have been created meanwhile.
  LlenarEmpresas(*conexionGeneral_);
  Registros r = conexionGeneral_->Abrir(SentenciaEmpresas(QStringLiteral("NUM_EMP")));
  if (!r.Vacio())
    return true;
  CatalogoMensajes::Mostrar(302, {}, IconoMensaje::Critico);
  conexionGeneral_.reset();
  return false;
}

void frmEntrada::LlenarEmpresas(Conexion &conexionGeneral) {
  rstEmpresas_.clear();
  cmbEmpresa->clear();
  int orden = 0;
  for (Registros r = conexionGeneral.Abrir(kListaEmpresas); !r.Fin(); r.Siguiente()) {
    FilaEmpresa fila{orden++, static_cast<int>(r.Campo(QStringLiteral("NUM_EMP")).Entero()),
                     r.Campo(QStringLiteral("NOM_EMP")).Texto()};
    cmbEmpresa->addItem(fila.NOM_EMP);
    rstEmpresas_.push_back(std::move(fila));
  }
  cmbEmpresa->setCurrentIndex(cmbEmpresa->count() > 0 ? 0 : -1);
}

int frmEntrada::EmpresaSeleccionada() const {
  for (const FilaEmpresa &f : rstEmpresas_) {
    if (f.ORDEN_EMP == cmbEmpresa->currentIndex())
      return f.NUM_EMP;
  }
  return 0;
}

void frmEntrada::SeleccionarEmpresa(int numEmp) {
  int indice = 0;
  for (const FilaEmpresa &f : rstEmpresas_) {
    if (f.NUM_EMP == numEmp) {
      indice = f.ORDEN_EMP;
      break;
    }
  }
  cmbEmpresa->setCurrentIndex(indice);
  cmbEmpresa_Click();
}

void frmEntrada::cmbEmpresa_Click() {
  gNumEmp = EmpresaSeleccionada();
  {
    Registros r = conexionGeneral_->Abrir(
        QStringLiteral("SELECT MOTORDEDATOS,CONEXION FROM tblEmpresas WHERE NUM_EMP=%1;")
            .arg(gNumEmp));
    if (!r.Vacio()) {
      servicio_.Motor = static_cast<int>(r.Campo(QStringLiteral("MOTORDEDATOS")).Numero());
      gMotor = servicio_.Motor;
      conexionActual_ = r.Campo(QStringLiteral("CONEXION")).Texto();
      gConexion = conexionActual_;
    }
  }
  conexionEmpresa_.reset();
  if (gMotor == motor::kSqlServer)
    gConexion = DesencriptarConexion(conexionActual_);
  try {
    conexionEmpresa_ = servicio_.AbrirConexion(gConexion);
  } catch (const ErrorFatal &) {
    // A company that can't be reached stays closed; the acceptance then ends silently.
  }
  EscribirReportIni("MDBDir", conexionActual_);
}

void frmEntrada::cmdAce_Click() {
  txtCod->setText(txtCod->text().toUpper());
  if (txtPass->text().isEmpty()) {
    txtPass->setFocus();
    return;
  }
  if (!conexionEmpresa_) {
    cmbEmpresa_Click();
    if (!conexionEmpresa_)
      return;
  }
  switch (AceptarEntrada(*conexionGeneral_, *conexionEmpresa_, txtCod->text(), txtPass->text())) {
  case ResultadoEntrada::Aceptada:
    accept();
    return;
  case ResultadoEntrada::UsuarioDesconocido:
    txtCod->clear();
    txtCod->setFocus();
    return;
  case ResultadoEntrada::UsuarioBloqueado:
    txtCod->clear();
    txtPass->clear();
    txtCod->setFocus();
    return;
  case ResultadoEntrada::ClaveIncorrecta:
    txtPass->clear();
    txtPass->setFocus();
    return;
  }
}

void frmEntrada::cmdCan_Click() { reject(); }

void frmEntrada::done(int resultado) {
  gNumEmp = EmpresaSeleccionada();
  conexionEmpresa_.reset();
  conexionGeneral_.reset();
  rstEmpresas_.clear();
  QDialog::done(resultado);
}

// The form sees the keys first: Enter accepts, or on the company list opens the
// company and moves on; typing on the list starts the user code.
bool frmEntrada::Form_KeyPress(QWidget *control, int codigo, int tecla) {
  const bool enLista = control == cmbEmpresa || cmbEmpresa->isAncestorOf(control);
  if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
    if (!enLista) {
      cmdAce_Click();
      return true;
    }
    cmbEmpresa_Click();
    EnviarTab(cmbEmpresa);
    return true;
  }
  if (enLista && IniciaCodigo(codigo)) {
    txtCod->setText(txtCod->text() + QChar(codigo));
    EnviarTab(cmbEmpresa);
    txtCod->setCursorPosition(1);
    return true;
  }
  return false;
}

void frmEntrada::TecladoEnPantalla(QLineEdit *campo) {
  const int anchoPantalla = screen()->geometry().width();
  move(screen()->geometry().left(), y());
  const QString texto =
      teclado(this, anchoPantalla - Twips(this, 4365), campo->echoMode()).trimmed();
  if (!texto.isEmpty()) {
    campo->setText(texto);
    campo->setFocus();
    EnviarTab(campo);
  }
  move(anchoPantalla / 2 - Twips(this, 2872), y());
}

void frmEntrada::lblLink_Click() { AbrirDireccion(QUrl::fromUserInput(lblLink->text())); }

bool frmEntrada::eventFilter(QObject *objeto, QEvent *evento) {
  if (objeto == lblLink) {
    QFont letra = lblLink->font();
    switch (evento->type()) {
    case QEvent::Enter:
    case QEvent::Leave:
      letra.setUnderline(evento->type() == QEvent::Enter);
      lblLink->setFont(letra);
      break;
    case QEvent::MouseButtonRelease:
      lblLink_Click();
      return true;
    default:
      break;
    }
  }
  return QDialog::eventFilter(objeto, evento);
}
