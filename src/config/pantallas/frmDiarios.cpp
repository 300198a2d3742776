#include "config/pantallas/frmDiarios.h"

#include "config/Reglas.h"
#include "pantallas/EditorFlotante.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/Pantallas.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Sesion.h"

#include <QAction>
#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

frmDiarios::frmDiarios(QWidget *padre) : QDialog(padre) {
  PrepararVentana(this, QStringLiteral("frmDiarios"), QStringLiteral("DIARIOS"));
  // The tips of "SAL" and "AYU" stand crossed over, as on the family's other catalogues.
  tlbCatalogo = new BarraPantalla(
      this, {{QStringLiteral("GRB"), QStringLiteral("F10"), QStringLiteral("Grabar"),
              [this] { GrabarFolios(); }},
             {QStringLiteral("SAL"), QStringLiteral("Esc"), QStringLiteral("Ayuda")},
             {QStringLiteral("AYU"), QStringLiteral("F1"), QStringLiteral("Salir")}});
  tlbCatalogo->Accion(QStringLiteral("GRB"))->setEnabled(false);

  flxFolios = new QTableWidget(this);
  flxFolios->setObjectName(QStringLiteral("flxFolios"));
  flxFolios->setColumnCount(4);
  flxFolios->setHorizontalHeaderLabels({QStringLiteral("ID"), QStringLiteral("Descripción"),
                                        QStringLiteral("Folio"),
                                        QStringLiteral("Código numérico")});
  flxFolios->setEditTriggers(QAbstractItemView::NoEditTriggers);
  flxFolios->setSelectionMode(QAbstractItemView::SingleSelection);
  flxFolios->verticalHeader()->hide();
  flxFolios->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  // Column 2 takes a folio of up to 11 digits, column 3 a code of up to 4; both numbers.
  editor = new EditorFlotante(flxFolios, [](int columna, int *longitud) {
    if (columna != 2 && columna != 3)
      return -1;
    *longitud = columna == 2 ? 11 : 4;
    return 1;
  });
  editor->alConfirmar = [this] { tlbCatalogo->Accion(QStringLiteral("GRB"))->setEnabled(true); };

  auto *raiz = new QVBoxLayout(this);
  raiz->setMenuBar(tlbCatalogo);
  raiz->addWidget(flxFolios);
  resize(620, 360);
  new RechazoApostrofe(this);

  conexion_ = ServicioConexion::AbrirConexionSesion();
  for (const TipoPoliza &t : LeerTiposPoliza(*conexion_)) {
    const int fila = flxFolios->rowCount();
    flxFolios->insertRow(fila);
    const QString valores[] = {t.COD_FOLIO, t.DES_FOLIO, t.FOL_FOLIOS, t.COD_NUM};
    for (int c = 0; c < 4; ++c)
      flxFolios->setItem(fila, c, new QTableWidgetItem(valores[c]));
  }
  if (flxFolios->rowCount() > 0)
    flxFolios->setCurrentCell(0, 2);
}

frmDiarios::~frmDiarios() = default;

void frmDiarios::GrabarFolios() {
  for (int fila = 0; fila < flxFolios->rowCount(); ++fila)
    GrabarTipoPoliza(*conexion_, flxFolios->item(fila, 0)->text(), flxFolios->item(fila, 2)->text(),
                     flxFolios->item(fila, 3)->text());
  tlbCatalogo->Accion(QStringLiteral("GRB"))->setEnabled(false);
  CatalogoMensajes::Caja(QStringLiteral("Folios grabados con éxito"), QStringLiteral("Información"),
                         IconoMensaje::Informacion);
}
