#include "pantallas/frmBuscar.h"

#include "pantallas/Pantallas.h"
#include "shell/ServicioConexion.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

namespace {

struct Catalogo {
  const char *nombre;
  const char *sql;
  QStringList titulos;
};

const Catalogo *CatalogoDe(const QString &nombre) {
  static const Catalogo kCatalogos[] = {
      {"RUBROS",
       "SELECT COD_RUBRO, DES_RUBRO, CUENTA_RUBRO FROM tblCatRubros ORDER BY COD_RUBRO",
       {QStringLiteral("Rubro"), QStringLiteral("Descripción"), QStringLiteral("Cuenta")}},
  };
  for (const Catalogo &c : kCatalogos)
    if (nombre == QLatin1String(c.nombre))
      return &c;
  return nullptr;
}

} // namespace

frmBuscar::frmBuscar(Conexion &con, const QString &catalogo, QWidget *padre) : QDialog(padre) {
  PrepararVentana(this, QStringLiteral("frmBuscar"), QStringLiteral("BUSCAR"));
  txtFiltro = new QLineEdit(this);
  txtFiltro->setObjectName(QStringLiteral("txtFiltro"));
  txtFiltro->setPlaceholderText(QStringLiteral("Escriba para buscar"));
  modelo_ = new QStandardItemModel(this);
  filtro_ = new QSortFilterProxyModel(this);
  filtro_->setSourceModel(modelo_);
  filtro_->setFilterKeyColumn(-1);
  filtro_->setFilterCaseSensitivity(Qt::CaseInsensitive);
  grdResultados = new QTableView(this);
  grdResultados->setObjectName(QStringLiteral("grdResultados"));
  grdResultados->setModel(filtro_);
  grdResultados->setSelectionBehavior(QAbstractItemView::SelectRows);
  grdResultados->setSelectionMode(QAbstractItemView::SingleSelection);
  grdResultados->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grdResultados->verticalHeader()->hide();
  grdResultados->horizontalHeader()->setStretchLastSection(true);
  auto *raiz = new QVBoxLayout(this);
  raiz->addWidget(txtFiltro);
  raiz->addWidget(grdResultados, 1);
  resize(640, 420);
  new RechazoApostrofe(this);

  if (const Catalogo *c = CatalogoDe(catalogo)) {
    modelo_->setHorizontalHeaderLabels(c->titulos);
    for (Registros r = con.Abrir(QLatin1String(c->sql)); !r.Fin(); r.Siguiente()) {
      QList<QStandardItem *> fila;
      for (qsizetype i = 0; i < c->titulos.size(); ++i)
        fila << new QStandardItem(r.Campo(i).Texto());
      modelo_->appendRow(fila);
    }
  }
  connect(txtFiltro, &QLineEdit::textChanged, this, [this](const QString &texto) {
    filtro_->setFilterFixedString(texto);
    grdResultados->selectRow(0);
  });
  connect(grdResultados, &QTableView::doubleClicked, this, [this] { Elegir(); });
  txtFiltro->installEventFilter(this);
  grdResultados->installEventFilter(this);
  grdResultados->selectRow(0);
}

void frmBuscar::Elegir() {
  const QModelIndex actual = grdResultados->currentIndex();
  if (!actual.isValid())
    return;
  codigo_ = filtro_->index(actual.row(), 0).data().toString();
  accept();
}

bool frmBuscar::eventFilter(QObject *objeto, QEvent *evento) {
  if (evento->type() != QEvent::KeyPress)
    return QDialog::eventFilter(objeto, evento);
  const int tecla = static_cast<QKeyEvent *>(evento)->key();
  if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
    Elegir();
    return true;
  }
  // The arrows move through the list while the filter is typed.
  if (objeto == txtFiltro && (tecla == Qt::Key_Up || tecla == Qt::Key_Down)) {
    const int fila =
        std::clamp(grdResultados->currentIndex().row() + (tecla == Qt::Key_Up ? -1 : 1), 0,
                   std::max(0, filtro_->rowCount() - 1));
    grdResultados->selectRow(fila);
    return true;
  }
  return QDialog::eventFilter(objeto, evento);
}

QString frmBuscar::Buscar(QWidget *padre, Conexion &con, const QString &catalogo) {
  frmBuscar busqueda(con, catalogo, padre);
  busqueda.exec();
  return busqueda.Codigo();
}
