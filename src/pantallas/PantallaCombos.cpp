#include "pantallas/PantallaCombos.h"

#include "shell/ServicioConexion.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QTreeView>

ComboLista::ComboLista(QWidget *padre) : QComboBox(padre) {
  connect(this, &QComboBox::activated, this, [this] { Cambio(); });
}

void ComboLista::Cargar(Conexion &con, const QString &sql, const QString &campoClave,
                        const QString &campoTexto) {
  {
    const QSignalBlocker silencio(this);
    clear();
    for (Registros r = con.Abrir(sql); !r.Fin(); r.Siguiente())
      addItem(r.Campo(campoTexto).Texto(), r.Campo(campoClave).Texto());
    setCurrentIndex(count() > 0 ? 0 : -1);
  }
  if (count() > 0)
    Cambio();
}

void ComboLista::Limpiar() {
  const QSignalBlocker silencio(this);
  clear();
}

QString ComboLista::Clave() const {
  return currentIndex() < 0 ? QString() : currentData().toString();
}

QString ComboLista::Texto() const { return currentIndex() < 0 ? QString() : currentText(); }

void ComboLista::Cambio() {
  if (alCambiar_)
    alCambiar_();
}

namespace {

constexpr int kColumnaCodigo = 0;
constexpr int kColumnaDescripcion = 1;

} // namespace

ComboDatos::ComboDatos(QWidget *padre) : QComboBox(padre) {
  auto *lista = new QTreeView(this);
  lista->setRootIsDecorated(false);
  lista->setHeaderHidden(true);
  lista->setAllColumnsShowFocus(true);
  lista->setSelectionBehavior(QAbstractItemView::SelectRows);
  setModel(new QStandardItemModel(0, 2, this));
  setView(lista);
  setModelColumn(kColumnaDescripcion);
  Limpiar();
  connect(this, &QComboBox::activated, this, [this] { Cambio(); });
}

void ComboDatos::Cargar(Conexion &con, const QString &sql, const QString &campoCodigo,
                        const QString &campoDescripcion) {
  {
    const QSignalBlocker silencio(this);
    Limpiar();
    auto *modelo = static_cast<QStandardItemModel *>(model());
    for (Registros r = con.Abrir(sql); !r.Fin(); r.Siguiente()) {
      modelo->appendRow({new QStandardItem(r.Campo(campoCodigo).Texto()),
                         new QStandardItem(r.Campo(campoDescripcion).Texto())});
    }
    auto *lista = static_cast<QTreeView *>(view());
    // A list of one column (the folios) shows it once.
    lista->setColumnHidden(kColumnaCodigo,
                           campoCodigo.compare(campoDescripcion, Qt::CaseInsensitive) == 0);
    lista->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  }
  Cambio();
}

void ComboDatos::Limpiar() {
  const QSignalBlocker silencio(this);
  auto *modelo = static_cast<QStandardItemModel *>(model());
  modelo->removeRows(0, modelo->rowCount());
  modelo->appendRow({new QStandardItem(), new QStandardItem()});
  setCurrentIndex(0);
}

QString ComboDatos::Codigo() const {
  const int fila = currentIndex();
  return fila < 0 ? QString() : model()->index(fila, kColumnaCodigo).data().toString();
}

QString ComboDatos::Texto() const {
  const int fila = currentIndex();
  return fila < 0 ? QString() : model()->index(fila, kColumnaDescripcion).data().toString();
}

void ComboDatos::Cambio() {
  if (alCambiar_)
    alCambiar_();
}

void CargarTiposYOperaciones(Conexion &con, ComboDatos *tipos, ComboDatos *operaciones) {
  tipos->Cargar(con,
                QStringLiteral("SELECT COD_FOLIO, DES_FOLIO FROM tblFolios ORDER BY COD_FOLIO"),
                QStringLiteral("COD_FOLIO"), QStringLiteral("DES_FOLIO"));
  // Two blanks before ORDER, as the family's other screens send it.
  operaciones->Cargar(
      con, QStringLiteral("SELECT COD_OPER, DES_OPER FROM tblCatOperaciones  ORDER BY COD_OPER"),
      QStringLiteral("COD_OPER"), QStringLiteral("DES_OPER"));
}
