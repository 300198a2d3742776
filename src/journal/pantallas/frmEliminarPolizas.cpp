#include "journal/pantallas/frmEliminarPolizas.h"

#include "config/Reglas.h"
#include "journal/Eliminacion.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/PantallaCombos.h"
#include "pantallas/Pantallas.h"
#include "shell/Sesion.h"

#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

frmEliminarPolizas::frmEliminarPolizas(QWidget *padre) : QDialog(padre) {
  PrepararVentana(this, QStringLiteral("frmEliminarPolizas"), QStringLiteral("ELIMINAR PÓLIZAS"));
  tlbCatalogo = new BarraPantalla(
      this, {{QStringLiteral("BOR"), QStringLiteral("F3"), QStringLiteral("Eliminar Pólizas"),
              [this] { EliminarPolizas(); }},
             {QStringLiteral("AYU"), QStringLiteral("F1"), QStringLiteral("Ayuda")},
             {QStringLiteral("SAL"), QStringLiteral("Esc"), QStringLiteral("Salir")}});

  dtpFechaIni = CampoFecha(this, QStringLiteral("dtpFechaIni"));
  dtpFechaFin = CampoFecha(this, QStringLiteral("dtpFechaFin"));
  cmbFolios = new ComboDatos(this);
  cmbFolios->setObjectName(QStringLiteral("cmbFolios"));
  cmbOperaciones = new ComboDatos(this);
  cmbOperaciones->setObjectName(QStringLiteral("cmbOperaciones"));
  cmbConceptos = new ComboDatos(this);
  cmbConceptos->setObjectName(QStringLiteral("cmbConceptos"));

  auto *grpFiltros = new QGroupBox(QStringLiteral("Pólizas a eliminar"), this);
  auto *capa = new QGridLayout(grpFiltros);
  const std::pair<const char *, QWidget *> filas[] = {{"Tipo", cmbFolios},
                                                      {"Operación", cmbOperaciones},
                                                      {"Concepto", cmbConceptos},
                                                      {"De la Fecha", dtpFechaIni},
                                                      {"A la fecha", dtpFechaFin}};
  int fila = 0;
  for (const auto &[leyenda, control] : filas) {
    capa->addWidget(new QLabel(QString::fromUtf8(leyenda), grpFiltros), fila, 0);
    capa->addWidget(control, fila++, 1);
  }
  capa->setColumnStretch(1, 1);
  for (QWidget *c : {static_cast<QWidget *>(cmbFolios), static_cast<QWidget *>(cmbOperaciones),
                     static_cast<QWidget *>(cmbConceptos)})
    c->setMinimumWidth(300);

  auto *raiz = new QVBoxLayout(this);
  raiz->setMenuBar(tlbCatalogo);
  raiz->addWidget(grpFiltros);
  raiz->addStretch(1);
  setTabOrder(cmbFolios, cmbOperaciones);
  setTabOrder(cmbOperaciones, cmbConceptos);
  setTabOrder(cmbConceptos, dtpFechaIni);
  setTabOrder(dtpFechaIni, dtpFechaFin);

  new RechazoApostrofe(this);
  new EnterSiguiente(this);
  cmbOperaciones->AlCambiar([this] { CargarConceptos(); });

  conexion_ = ServicioConexion::AbrirConexionSesion();
  CargarTiposYOperaciones(*conexion_, cmbFolios, cmbOperaciones);
}

frmEliminarPolizas::~frmEliminarPolizas() = default;

void frmEliminarPolizas::CargarConceptos() {
  cmbConceptos->Limpiar();
  // Operation 30 has no list on this screen.
  const int operacion = cmbOperaciones->Codigo().toInt();
  const CatalogoConceptos *c = operacion == 30 ? nullptr : CatalogoDeConceptos(operacion);
  if (c)
    cmbConceptos->Cargar(*conexion_, ListaDeConceptos(*c), QLatin1String(c->codigo),
                         QLatin1String(c->descripcion));
}

void frmEliminarPolizas::EliminarPolizas() {
  FiltroEliminacion filtro;
  filtro.del = dtpFechaIni->date();
  filtro.al = dtpFechaFin->date();
  filtro.tipo = cmbFolios->Codigo();
  filtro.operacion = cmbOperaciones->Codigo();
  filtro.concepto = cmbConceptos->Codigo();
  RelojArena reloj;
  ::EliminarPolizas(*conexion_, filtro);
}
