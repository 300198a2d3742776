#include "pantallas/frmDirectorios.h"

#include "pantallas/Pantallas.h"
#include "shell/Rutas.h"
#include "shell/Sesion.h"

#include <QComboBox>
#include <QDir>
#include <QFileSystemModel>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

frmDirectorios::frmDirectorios(QWidget *parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmDirectorios"));
  setWindowTitle(QStringLiteral("Seleccionar carpeta"));
  setModal(true);
  InstalarAyuda(this);
  setStyleSheet(
      QStringLiteral("frmDirectorios, QPushButton { background-color: %1; }").arg(ColorFamilia()));

  drvLista = new QComboBox(this);
  drvLista->setObjectName(QStringLiteral("drvLista"));
  for (const QFileInfo &unidad : QDir::drives())
    drvLista->addItem(unidad.absoluteFilePath());

  modelo_ = new QFileSystemModel(this);
  modelo_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
  modelo_->setRootPath(QString());
  dirLista = new QTreeView(this);
  dirLista->setObjectName(QStringLiteral("dirLista"));
  dirLista->setModel(modelo_);
  for (int c = 1; c < modelo_->columnCount(); ++c)
    dirLista->hideColumn(c);
  dirLista->header()->hide();

  txtDir = new QLineEdit(this);
  txtDir->setObjectName(QStringLiteral("txtDir"));
  cmdNuevo = new QPushButton(QStringLiteral("Nueva Carpeta"), this);
  cmdAcepta = new QPushButton(QStringLiteral("Aceptar"), this);
  cmdCancel = new QPushButton(QStringLiteral("Cancelar"), this);
  cmdAcepta->setDefault(true);

  auto *nueva = new QHBoxLayout;
  nueva->addWidget(txtDir, 1);
  nueva->addWidget(cmdNuevo);
  auto *botones = new QHBoxLayout;
  botones->addStretch(1);
  botones->addWidget(cmdAcepta);
  botones->addWidget(cmdCancel);
  auto *raiz = new QVBoxLayout(this);
  raiz->addWidget(drvLista);
  raiz->addWidget(dirLista, 1);
  raiz->addWidget(new QLabel(QStringLiteral("Nombre de la nueva carpeta:"), this));
  raiz->addLayout(nueva);
  raiz->addLayout(botones);
  resize(420, 460);

  new RechazoApostrofe(this);
  connect(cmdNuevo, &QPushButton::clicked, this, &frmDirectorios::cmdNuevo_Click);
  connect(cmdAcepta, &QPushButton::clicked, this, &frmDirectorios::cmdAcepta_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmDirectorios::cmdCancel_Click);
  connect(drvLista, &QComboBox::activated, this, &frmDirectorios::drvLista_Change);

  // A starting folder that doesn't exist leaves the list where it is.
  IrA(gRutaDirectorio);
}

QString frmDirectorios::CarpetaActual() const {
  const QModelIndex i = dirLista->currentIndex();
  return i.isValid() ? QDir::toNativeSeparators(modelo_->filePath(i)) : QString();
}

void frmDirectorios::IrA(const QString &carpeta) {
  const QString ruta = RutaNativa(carpeta);
  if (ruta.isEmpty() || !QFileInfo(ruta).isDir())
    return;
  const QModelIndex i = modelo_->index(QDir(ruta).absolutePath());
  if (!i.isValid())
    return;
  dirLista->setCurrentIndex(i);
  dirLista->scrollTo(i);
  dirLista->expand(i);
}

void frmDirectorios::drvLista_Change(int indice) {
  const QString raiz = drvLista->itemText(indice);
  if (QFileInfo(raiz).isReadable()) {
    IrA(raiz);
    return;
  }
  // A drive that isn't ready: back to the folder's own drive.
  const QString actual = CarpetaActual();
  for (int i = 0; i < drvLista->count(); ++i) {
    if (actual.startsWith(drvLista->itemText(i)))
      drvLista->setCurrentIndex(i);
  }
}

void frmDirectorios::cmdNuevo_Click() {
  if (txtDir->text().isEmpty()) {
    txtDir->setFocus();
    return;
  }
  const QString base = CarpetaActual();
  if (base.isEmpty())
    return;
  QDir(base).mkdir(txtDir->text());
  txtDir->clear();
  IrA(base);
}

void frmDirectorios::cmdAcepta_Click() {
  gRutaDirectorio = CarpetaActual();
  accept();
}

void frmDirectorios::cmdCancel_Click() {
  gRutaDirectorio.clear();
  reject();
}
