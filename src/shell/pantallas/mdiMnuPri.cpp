#include "shell/pantallas/mdiMnuPri.h"

#include "pantallas/PantallaBarra.h"
#include "pantallas/Pantallas.h"
#include "shell/CargaEmpresa.h"
#include "shell/CatalogoMensajes.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>

namespace {

struct ItemMenu {
  const char *menu;    // object name of the menu
  const char *titulo;  // its caption
  const char *nombre;  // object name of the item
  const char *leyenda; // its caption
};

// The menus in their order. Each item shows its screen: frmUtiEmpresas, then
// frmGenerarPolizas, frmGenerarArchivo, frmConsultaPolizas, frmEliminarPolizas, then
// frmDefinirAsientos, frmFormato1, frmDiarios, frmCatalogo; "Salir" leaves.
constexpr ItemMenu kMenus[] = {
    {"mnuArchivo", "Archivo", "mnuAbrirEmpresa", "Abrir empresa"},
    {"mnuArchivo", "Archivo", "mnuSalir", "Salir"},
    {"mnuProcesos", "Procesos", "mnuGenPolizas", "Generar Pólizas"},
    {"mnuProcesos", "Procesos", "mnuGenArchPolizas", "Generar archivo de Pólizas"},
    {"mnuProcesos", "Procesos", "mnuConsPolizas", "Consultar Pólizas"},
    {"mnuProcesos", "Procesos", "mnuEliPolizas", "Eliminar Pólizas"},
    {"mnuDefinicion", "Definición", "mnuDefAsientos", "Definir Asientos"},
    {"mnuDefinicion", "Definición", "mnuDefFormato", "Definir Formato"},
    {"mnuDefinicion", "Definición", "mnuDiarios", "Diarios"},
    {"mnuDefinicion", "Definición", "mnuCatalogo", "Catálogo"},
};

} // namespace

mdiMnuPri::mdiMnuPri(QWidget *padre) : QMainWindow(padre) {
  setObjectName(QStringLiteral("mdiMnuPri"));
  QMenu *menu = nullptr;
  QStringList titulos;
  for (const ItemMenu &item : kMenus)
    if (!titulos.contains(QString::fromUtf8(item.titulo)))
      titulos << QString::fromUtf8(item.titulo);
  const QStringList titulosConTecla = ConTeclas(titulos);
  QStringList leyendas;
  for (const ItemMenu &item : kMenus) {
    if (!menu || menu->objectName() != QLatin1String(item.menu)) {
      const QString titulo = QString::fromUtf8(item.titulo);
      menu = menuBar()->addMenu(titulosConTecla.at(titulos.indexOf(titulo)));
      menu->setObjectName(QLatin1String(item.menu));
      leyendas.clear();
      for (const ItemMenu &otro : kMenus)
        if (QLatin1String(otro.menu) == QLatin1String(item.menu))
          leyendas << QString::fromUtf8(otro.leyenda);
      leyendas = ConTeclas(leyendas);
    }
    QAction *a = menu->addAction(leyendas.takeFirst());
    a->setObjectName(QLatin1String(item.nombre));
    a->setEnabled(false);
  }
  // F10 and Alt alone open the menu bar, as in every program of the desktop (a screen
  // over the frame keeps its own F10).
  qApp->installEventFilter(this);
  QAction *salir = Menu(QStringLiteral("mnuSalir"));
  salir->setEnabled(true);
  connect(salir, &QAction::triggered, this, &QWidget::close);

  tlbDatos = new BarraPantalla(this, {{QStringLiteral("AYU"), QString(), QStringLiteral("Ayuda")},
                                      {QStringLiteral("SAL"), QString(), QStringLiteral("Salir")}});
  tlbDatos->setObjectName(QStringLiteral("tlbDatos"));
  tlbDatos->setToolButtonStyle(Qt::ToolButtonIconOnly);
  addToolBar(tlbDatos);

  for (int i = 0; i < 6; ++i) {
    // A name longer than its panel ends in "…", whole in the tool tip.
    paneles_[i] = new EtiquetaRecortada(this);
    paneles_[i]->setObjectName(QStringLiteral("stsBar%1").arg(i + 1));
    paneles_[i]->setMargin(2);
    statusBar()->addWidget(paneles_[i], i == 0 ? 1 : 0);
  }
  Panel(2)->setText(Hoy().toString(QStringLiteral("dd/MM/yyyy")));

  auto *fondo = new QLabel(CatalogoMensajes::Texto(100), this);
  fondo->setAlignment(Qt::AlignCenter);
  fondo->setStyleSheet(
      QStringLiteral("background-color: %1; color: rgb(150, 170, 190); font-size: 40px; "
                     "font-weight: bold;")
          .arg(ColorFamilia()));
  setCentralWidget(fondo);
  resize(900, 600);
}

void mdiMnuPri::Cargar() {
  setWindowTitle(QStringLiteral("Escribano v.") + QLatin1String(kVersionPrograma));
  MostrarUsuario();
  ConexionPtr con = ServicioConexion::AbrirConexionSesion();
  MostrarNombreEmpresa(*con);
  VerificarClavesDuplicadas(*con);
  VerificarConfiguracionCFDI(*con, gModulo);
}

// Every item of this program is open to every user who logged in: no menu rights apply.
void mdiMnuPri::MostrarUsuario() {
  Panel(4)->setText(gCodUsu.trimmed());
  if (gConexion.isEmpty())
    return;
  ConexionPtr con = ServicioConexion::AbrirConexionSesion();
  con->Ejecutar(
      QStringLiteral("UPDATE tblUsuarios SET ESTATUS=2 WHERE COD_USU='%1';").arg(Escapar(gCodUsu)));
  Registros r =
      con->Abrir(QStringLiteral("SELECT NOM_USU,TIP_USU FROM tblUsuarios WHERE COD_USU='%1';")
                     .arg(Escapar(gCodUsu)));
  if (!r.Vacio())
    Panel(4)->setText(r.Campo(QStringLiteral("NOM_USU")).Texto().trimmed());
}

void mdiMnuPri::MostrarEmpresa(int caja) {
  ConexionPtr con = ServicioConexion::AbrirConexionSesion();
  MostrarNombreEmpresa(*con);
  if (caja > 0)
    Panel(6)->setText(QStringLiteral("CAJA: %1").arg(caja));
}

void mdiMnuPri::MostrarNombreEmpresa(Conexion &con) {
  Registros r = con.Abrir(QStringLiteral("SELECT NOM_EMP FROM tblEmpresa;"));
  if (r.Vacio()) {
    Panel(1)->clear();
    return;
  }
  paneles_[0]->setText(r.Campo(QStringLiteral("NOM_EMP")).Texto());
  paneles_[0]->Tip(QStringLiteral("Empresa Actual"));
}

bool mdiMnuPri::ConfirmarSalida() {
  // No is the default: Esc then Enter doesn't leave the system.
  if (CatalogoMensajes::Caja(CatalogoMensajes::Texto(303), QStringLiteral("Salir"),
                             IconoMensaje::Pregunta, BotonesMensaje::SiNo, 303,
                             true) != RespuestaMensaje::Si)
    return true;
  RelojArena reloj;
  ConexionPtr con = ServicioConexion::AbrirConexionSesion();
  con->Ejecutar(
      QStringLiteral("UPDATE tblUsuarios SET ESTATUS=0 WHERE COD_USU='%1';").arg(Escapar(gCodUsu)));
  return false;
}

void mdiMnuPri::AbrirBarraMenus() {
  const QList<QAction *> menus = menuBar()->actions();
  if (!menus.isEmpty())
    menuBar()->setActiveAction(menus.first());
}

bool mdiMnuPri::eventFilter(QObject *objeto, QEvent *evento) {
  // F10, or Alt pressed and let go alone, while the frame is the active window, opens the
  // menus.
  if (evento->type() == QEvent::KeyPress || evento->type() == QEvent::KeyRelease) {
    const auto *tecla = static_cast<QKeyEvent *>(evento);
    if (tecla->isAutoRepeat() || !objeto->isWidgetType())
      return false;
    const bool aqui = QApplication::activeWindow() == this && !QApplication::activePopupWidget() &&
                      (objeto == this || isAncestorOf(static_cast<QWidget *>(objeto)));
    if (evento->type() == QEvent::KeyPress && tecla->key() == Qt::Key_F10 &&
        tecla->modifiers() == Qt::NoModifier && aqui) {
      AbrirBarraMenus();
      return true;
    }
    if (evento->type() == QEvent::KeyPress) {
      altSolo_ = tecla->key() == Qt::Key_Alt;
    } else if (tecla->key() == Qt::Key_Alt && altSolo_) {
      altSolo_ = false;
      if (aqui)
        AbrirBarraMenus();
    }
  } else if (evento->type() == QEvent::MouseButtonPress) {
    altSolo_ = false;
  }
  return QMainWindow::eventFilter(objeto, evento);
}

void mdiMnuPri::closeEvent(QCloseEvent *evento) {
  if (HayOtrasVentanas()) {
    CatalogoMensajes::Mostrar(301, {}, IconoMensaje::Informacion);
    evento->ignore();
    return;
  }
  const bool cancelar = ConfirmarSalida();
  // The last company is remembered whatever the answer was.
  ServicioUtil::EscribirIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"),
                            QString::number(gNumEmp), RutaNimbarIni());
  if (cancelar)
    evento->ignore();
  else
    evento->accept();
}

bool mdiMnuPri::HayOtrasVentanas() const {
  for (QWidget *w : QApplication::topLevelWidgets()) {
    const Qt::WindowType tipo = w->windowType();
    if (w != this && w->isVisible() && (tipo == Qt::Window || tipo == Qt::Dialog))
      return true;
  }
  return false;
}

void mdiMnuPri::Registrar(const QString &menu, FabricaPantalla fabrica) {
  QAction *a = Menu(menu);
  if (!a || menu == QLatin1String("mnuSalir"))
    throw ErrorFatal(QStringLiteral("El menú %1 no existe.").arg(menu));
  disconnect(a, &QAction::triggered, this, nullptr);
  a->setEnabled(true);
  connect(a, &QAction::triggered, this, [this, fabrica] {
    std::unique_ptr<QDialog> pantalla = fabrica(this);
    pantalla->exec();
  });
}

QAction *mdiMnuPri::Menu(const QString &nombre) const { return findChild<QAction *>(nombre); }

QLabel *mdiMnuPri::Panel(int numero) const { return paneles_[numero - 1]; }
