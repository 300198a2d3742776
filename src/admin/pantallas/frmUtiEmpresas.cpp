#include "admin/pantallas/frmUtiEmpresas.h"

#include "admin/Empresa.h"
#include "admin/pantallas/frmUtiCrearEmpresa.h"
#include "admin/pantallas/frmUtiParametros.h"
#include "pantallas/Pantallas.h"
#include "shell/CargaEmpresa.h"
#include "shell/CatalogoMensajes.h"
#include "shell/ServicioConexion.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

struct Funcion {
  const char *leyenda;
  Qt::Key tecla;
  QStyle::StandardPixmap imagen;
};
constexpr Funcion kFunciones[] = {
    {"MODIFICAR DATOS DE LA EMPRESA [F10]", Qt::Key_F10, QStyle::SP_FileDialogDetailedView},
    {"MODIFICAR PARÁMETROS [F4]", Qt::Key_F4, QStyle::SP_FileDialogInfoView},
    {"ELIMINAR EMPRESA [F3]", Qt::Key_F3, QStyle::SP_TrashIcon},
    {"SALIR [ESC]", Qt::Key_Escape, QStyle::SP_DialogCloseButton},
    {"AYUDA [F1]", Qt::Key_F1, QStyle::SP_DialogHelpButton},
};

} // namespace

frmUtiEmpresas::frmUtiEmpresas(QWidget *padre) : QDialog(padre) {
  RelojArena reloj;
  PrepararVentana(this, QStringLiteral("frmUtiEmpresas"), QStringLiteral("VER EMPRESAS"));
  flxEmpresas = new QTableWidget(this);
  flxEmpresas->setObjectName(QStringLiteral("flxEmpresas"));
  flxEmpresas->setColumnCount(3);
  flxEmpresas->setEditTriggers(QAbstractItemView::NoEditTriggers);
  flxEmpresas->setSelectionBehavior(QAbstractItemView::SelectRows);
  flxEmpresas->setSelectionMode(QAbstractItemView::SingleSelection);
  flxEmpresas->verticalHeader()->hide();
  flxEmpresas->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  flxEmpresas->setStyleSheet(QStringLiteral("QTableWidget { background-color: rgb(245, 249, 255); "
                                            "selection-background-color: rgb(192, 217, 255); "
                                            "selection-color: black; }"));
  auto *botones = new QVBoxLayout;
  for (int i = 0; i < 5; ++i) {
    cmdFunciones[i] = new QPushButton(style()->standardIcon(kFunciones[i].imagen),
                                      QString::fromUtf8(kFunciones[i].leyenda), this);
    cmdFunciones[i]->setObjectName(QStringLiteral("cmdFunciones_%1").arg(i));
    cmdFunciones[i]->setAutoDefault(false);
    botones->addWidget(cmdFunciones[i]);
  }
  botones->addStretch(1);
  auto *raiz = new QHBoxLayout(this);
  raiz->addWidget(flxEmpresas, 1);
  raiz->addLayout(botones);
  resize(760, 380);

  connect(cmdFunciones[0], &QPushButton::clicked, this, [this] { ModificarEmpresa(); });
  connect(cmdFunciones[2], &QPushButton::clicked, this, [this] { EliminarEmpresa(); });
  connect(cmdFunciones[3], &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdFunciones[4], &QPushButton::clicked, this, [this] { AbrirAyuda(this); });
  connect(flxEmpresas, &QTableWidget::cellDoubleClicked, this, [this] { AbrirEmpresa(); });
  connect(cmdFunciones[1], &QPushButton::clicked, this, [this] { ModificarParametros(); });
  // A function key presses its button while the button is enabled; Enter is the switch.
  new VistaPreviaTeclas(this, [this](QWidget *, QKeyEvent *tecla) {
    if (tecla->text() == QLatin1String("'")) {
      QApplication::beep();
      return true;
    }
    if (tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter) {
      AbrirEmpresa();
      return true;
    }
    for (int i = 0; i < 5; ++i) {
      if (tecla->key() != kFunciones[i].tecla || tecla->modifiers() != Qt::NoModifier)
        continue;
      if (cmdFunciones[i]->isEnabled())
        cmdFunciones[i]->click();
      return true;
    }
    return false;
  });
  LlenarEmpresas();
}

frmUtiEmpresas::~frmUtiEmpresas() = default;

bool frmUtiEmpresas::HayEmpresas() const { return flxEmpresas->rowCount() > 0; }

int frmUtiEmpresas::Elegida() const {
  const int fila = flxEmpresas->currentRow();
  return fila < 0 ? 0 : flxEmpresas->item(fila, 0)->text().toInt();
}

void frmUtiEmpresas::LlenarEmpresas() {
  flxEmpresas->clear();
  flxEmpresas->setRowCount(0);
  flxEmpresas->setHorizontalHeaderLabels(
      {QStringLiteral("#"), QStringLiteral("Nombre"), QStringLiteral("Nombre Comercial")});
  const std::vector<empresa::FilaEmpresa> filas = empresa::ListaEmpresas();
  for (int i = 0; i < 3; ++i)
    cmdFunciones[i]->setEnabled(!filas.empty());
  for (const empresa::FilaEmpresa &f : filas) {
    const int fila = flxEmpresas->rowCount();
    flxEmpresas->insertRow(fila);
    flxEmpresas->setItem(fila, 0, new QTableWidgetItem(QString::number(f.numero)));
    flxEmpresas->setItem(fila, 1, new QTableWidgetItem(f.nombre));
    flxEmpresas->setItem(fila, 2, new QTableWidgetItem(f.comercial));
    // The open company is the one chosen.
    if (f.numero == gNumEmp)
      flxEmpresas->selectRow(fila);
  }
  if (flxEmpresas->currentRow() < 0 && flxEmpresas->rowCount() > 0)
    flxEmpresas->selectRow(0);
  flxEmpresas->resizeColumnToContents(0);
  flxEmpresas->resizeColumnToContents(2);
}

void frmUtiEmpresas::AbrirEmpresa() {
  if (!HayEmpresas()) {
    CatalogoMensajes::Mostrar(364);
    frmUtiCrearEmpresa crear(this);
    crear.exec();
    LlenarEmpresas();
    return;
  }
  if (Elegida() == 0)
    return;
  bool cambiada = false;
  {
    RelojArena reloj;
    cambiada = empresa::CambiarEmpresa(Elegida());
  }
  if (!cambiada)
    return;
  if (alCambiarEmpresa)
    alCambiarEmpresa();
  accept();
}

void frmUtiEmpresas::ModificarEmpresa() {
  if (!gVersionOk || Elegida() == 0)
    return;
  const int abierta = gNumEmp;
  gNumEmp = Elegida();
  gModoEmpresa = 10;
  {
    frmUtiCrearEmpresa crear(this);
    crear.exec();
  }
  gNumEmp = abierta;
  RecargarEmpresa();
}

void frmUtiEmpresas::ModificarParametros() {
  if (Elegida() == 0)
    return;
  // The version doesn't matter here, and the company open stays the same.
  gEmpresaParametros = Elegida();
  {
    frmUtiParametros parametros(this);
    parametros.exec();
  }
  RecargarEmpresa();
}

void frmUtiEmpresas::RecargarEmpresa() {
  // The open company may have been the one changed: the session reads it again.
  if (!gConexion.isEmpty()) {
    ServicioConexion servicio;
    ConexionPtr general = servicio.AbrirConexionGeneral(gConexionGeneral);
    ConexionPtr con = ServicioConexion::AbrirConexionSesion();
    CargarEmpresa(*general, *con, gNumEmp);
  }
  LlenarEmpresas();
}

void frmUtiEmpresas::EliminarEmpresa() {
  if (Elegida() > 0 && empresa::EliminarEmpresa(Elegida()))
    LlenarEmpresas();
}
