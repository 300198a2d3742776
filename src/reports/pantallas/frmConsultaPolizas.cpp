#include "reports/pantallas/frmConsultaPolizas.h"

#include "pantallas/PantallaBarra.h"
#include "pantallas/PantallaCombos.h"
#include "pantallas/Pantallas.h"
#include "reports/Lienzo.h"
#include "reports/pantallas/frmPreview.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QDateEdit>
#include <QDir>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

void MostrarEnPreview(QWidget *padre, const LienzoPintor &documento) {
  frmPreview preview(documento, padre);
  preview.exec();
}

} // namespace

frmConsultaPolizas::frmConsultaPolizas(QWidget *padre)
    : QDialog(padre), mostrar(&MostrarEnPreview) {
  PrepararVentana(this, QStringLiteral("frmConsultaPolizas"),
                  QStringLiteral("CONSULTA DE PÓLIZAS"));
  tlbCatalogo = new BarraPantalla(
      this, {{QStringLiteral("GRB"), QStringLiteral("F10"), QStringLiteral("Generar Reporte"),
              [this] { ArmarFiltros(); }},
             {QStringLiteral("AYU"), QStringLiteral("F1"), QStringLiteral("Ayuda")},
             {QStringLiteral("SAL"), QStringLiteral("Esc"), QStringLiteral("Salir")}});

  const auto opcion = [this](const char *nombre, const char *leyenda, QWidget *padreOpcion) {
    auto *o = new QRadioButton(QString::fromUtf8(leyenda), padreOpcion);
    o->setObjectName(QLatin1String(nombre));
    return o;
  };
  auto *grpReporte = new QGroupBox(QStringLiteral("Reporte"), this);
  OptRelacionPolizas = opcion("OptRelacionPolizas", "Relación de pólizas", grpReporte);
  OptMovimientosContabilizados =
      opcion("OptMovimientosContabilizados", "Movimientos contabilizados", grpReporte);
  auto *capaReporte = new QVBoxLayout(grpReporte);
  capaReporte->addWidget(OptRelacionPolizas);
  capaReporte->addWidget(OptMovimientosContabilizados);

  FmeTipo = new QGroupBox(QStringLiteral("Tipo"), this);
  FmeTipo->setObjectName(QStringLiteral("FmeTipo"));
  optResumido = opcion("optResumido", "Resumido", FmeTipo);
  optDetallado = opcion("optDetallado", "Detallado", FmeTipo);
  auto *capaTipo = new QVBoxLayout(FmeTipo);
  capaTipo->addWidget(optResumido);
  capaTipo->addWidget(optDetallado);

  FmeEstatus = new QGroupBox(QStringLiteral("Estado"), this);
  FmeEstatus->setObjectName(QStringLiteral("FmeEstatus"));
  optContabilizados = opcion("optContabilizados", "Contabilizados", FmeEstatus);
  optNoContabilizados = opcion("optNoContabilizados", "No contabilizados", FmeEstatus);
  auto *capaEstatus = new QVBoxLayout(FmeEstatus);
  capaEstatus->addWidget(optContabilizados);
  capaEstatus->addWidget(optNoContabilizados);

  auto *grpOrden = new QGroupBox(QStringLiteral("Ordenar por"), this);
  auto *capaOrden = new QVBoxLayout(grpOrden);
  const char *const ordenes[] = {"Tipo", "Fecha", "Concepto"};
  for (int i = 0; i < 3; ++i) {
    optOrden[i] = new QRadioButton(QLatin1String(ordenes[i]), grpOrden);
    optOrden[i]->setObjectName(QStringLiteral("optOrden%1").arg(i));
    capaOrden->addWidget(optOrden[i]);
  }

  dtpFechaIni = CampoFecha(this, QStringLiteral("dtpFechaIni"));
  dtpFechaFin = CampoFecha(this, QStringLiteral("dtpFechaFin"));
  const auto lista = [this](const char *nombre) {
    auto *c = new ComboDatos(this);
    c->setObjectName(QLatin1String(nombre));
    c->setMinimumWidth(260);
    return c;
  };
  cmbModulos = lista("cmbModulos");
  cmbOperaciones = lista("cmbOperaciones");
  cmbTipos = lista("cmbTipos");
  cmbFolios = lista("cmbFolios");
  cmbFolios->setMinimumWidth(140);
  txtFolios = new QLineEdit(this);
  txtFolios->setObjectName(QStringLiteral("txtFolios"));

  auto *grpFiltros = new QGroupBox(QStringLiteral("Filtros"), this);
  auto *capaFiltros = new QGridLayout(grpFiltros);
  capaFiltros->addWidget(new QLabel(QStringLiteral("De la Fecha"), grpFiltros), 0, 0);
  capaFiltros->addWidget(dtpFechaIni, 0, 1);
  capaFiltros->addWidget(new QLabel(QStringLiteral("A la fecha"), grpFiltros), 1, 0);
  capaFiltros->addWidget(dtpFechaFin, 1, 1);
  capaFiltros->addWidget(new QLabel(QStringLiteral("Módulo"), grpFiltros), 2, 0);
  capaFiltros->addWidget(cmbModulos, 2, 1);
  capaFiltros->addWidget(new QLabel(QStringLiteral("Operación"), grpFiltros), 3, 0);
  capaFiltros->addWidget(cmbOperaciones, 3, 1);
  capaFiltros->addWidget(new QLabel(QStringLiteral("Tipo"), grpFiltros), 4, 0);
  capaFiltros->addWidget(cmbTipos, 4, 1);
  auto *folio = new QHBoxLayout;
  folio->addWidget(txtFolios);
  folio->addWidget(cmbFolios);
  capaFiltros->addWidget(new QLabel(QStringLiteral("Folio"), grpFiltros), 5, 0);
  capaFiltros->addLayout(folio, 5, 1);
  capaFiltros->setColumnStretch(1, 1);

  auto *izquierda = new QVBoxLayout;
  izquierda->addWidget(grpReporte);
  izquierda->addWidget(FmeTipo);
  izquierda->addWidget(FmeEstatus);
  izquierda->addWidget(grpOrden);
  izquierda->addStretch(1);
  auto *centro = new QHBoxLayout;
  centro->addLayout(izquierda);
  centro->addWidget(grpFiltros, 1);
  auto *raiz = new QVBoxLayout(this);
  raiz->setMenuBar(tlbCatalogo);
  raiz->addLayout(centro, 1);

  new RechazoApostrofe(this);
  new EnterSiguiente(this);

  conexion_ = ServicioConexion::AbrirConexionSesion();
  empresa_ = LeerEncabezadoEmpresa(*conexion_);
  conceptos_ = CargarConceptos(*conexion_);

  OptRelacionPolizas->setChecked(true);
  optResumido->setChecked(true);
  optContabilizados->setChecked(true);
  optOrden[0]->setChecked(true);
  CambiarReporte();
  connect(OptRelacionPolizas, &QRadioButton::toggled, this, [this] { CambiarReporte(); });
  cmbModulos->AlCambiar([this] { CargarOperaciones(); });
  cmbTipos->AlCambiar([this] { txtFolios->clear(); });
  for (QDateEdit *fecha : {dtpFechaIni, dtpFechaFin})
    connect(fecha, &QDateEdit::dateChanged, this, [this] { txtFolios->clear(); });
  cmbFolios->AlCambiar([this] { txtFolios->setText(cmbFolios->Codigo()); });
  cmbFolios->installEventFilter(this);

  cmbModulos->Cargar(*conexion_,
                     QStringLiteral("SELECT COD_MODUL,DES_MODUL FROM tblModulos WHERE "
                                    "COD_MODUL<10 ORDER BY COD_MODUL"),
                     QStringLiteral("COD_MODUL"), QStringLiteral("DES_MODUL"));
  cmbTipos->Cargar(*conexion_,
                   QStringLiteral("SELECT COD_FOLIO, DES_FOLIO FROM tblFolios ORDER BY COD_FOLIO"),
                   QStringLiteral("COD_FOLIO"), QStringLiteral("DES_FOLIO"));
  txtFolios->clear();
}

frmConsultaPolizas::~frmConsultaPolizas() = default;

void frmConsultaPolizas::CambiarReporte() {
  const bool relacion = OptRelacionPolizas->isChecked();
  OptMovimientosContabilizados->setChecked(!relacion);
  FmeTipo->setEnabled(relacion);
  optOrden[0]->setEnabled(relacion);
  FmeEstatus->setEnabled(!relacion);
  if (!relacion)
    optOrden[1]->setChecked(true);
}

void frmConsultaPolizas::CargarOperaciones() {
  cmbOperaciones->Limpiar();
  const QString modulo = cmbModulos->Codigo();
  if (!modulo.isEmpty())
    cmbOperaciones->Cargar(*conexion_,
                           QStringLiteral("SELECT COD_OPER, DES_OPER FROM tblCatOperaciones WHERE "
                                          "MODULO=%1 ORDER BY COD_OPER")
                               .arg(modulo),
                           QStringLiteral("COD_OPER"), QStringLiteral("DES_OPER"));
}

void frmConsultaPolizas::CargarFolios() {
  const Dialecto &d = conexion_->Dialecto();
  const QString tipo = cmbTipos->Codigo();
  cmbFolios->Cargar(
      *conexion_,
      QStringLiteral("SELECT FOL_POLIZA FROM tblPolizasEnc WHERE FEC_POLIZA BETWEEN %1 AND %2%3 "
                     "ORDER BY FOL_POLIZA")
          .arg(d.FechaSQL(dtpFechaIni->date()), d.FechaSQL(dtpFechaFin->date()),
               tipo.isEmpty() ? QString()
                              : QStringLiteral(" AND TIP_POLIZA='%1'").arg(Escapar(tipo))),
      QStringLiteral("FOL_POLIZA"), QStringLiteral("FOL_POLIZA"));
  // Loading chose the empty row: the folio typed stays.
}

bool frmConsultaPolizas::eventFilter(QObject *objeto, QEvent *evento) {
  // The list of folios is read when the user goes to it, for the period shown then.
  if (objeto == cmbFolios && evento->type() == QEvent::FocusIn) {
    const QString tecleado = txtFolios->text();
    CargarFolios();
    txtFolios->setText(tecleado);
  }
  return QDialog::eventFilter(objeto, evento);
}

OpcionesConsulta frmConsultaPolizas::Opciones() const {
  OpcionesConsulta op;
  op.relacion = OptRelacionPolizas->isChecked();
  op.detallado = optDetallado->isChecked();
  op.contabilizados = optContabilizados->isChecked();
  op.del = dtpFechaIni->date();
  op.al = dtpFechaFin->date();
  op.modulo = cmbModulos->Codigo();
  op.operacion = cmbOperaciones->Codigo();
  op.tipo = cmbTipos->Codigo();
  op.textoTipo = cmbTipos->Texto();
  op.folio = txtFolios->text();
  for (int i = 0; i < 3; ++i)
    if (optOrden[i]->isChecked())
      op.orden = i;
  return op;
}

void frmConsultaPolizas::ArmarFiltros() {
  LienzoPintor documento;
  {
    RelojArena reloj;
    const QString temporal = RutaNativa(UnirRuta(gRutaApp, QStringLiteral("TEMP")));
    QDir().mkpath(temporal);
    ReporteConsulta reporte(*conexion_, documento, empresa_, conceptos_, temporal, Hoy());
    reporte.ArmarFiltros(Opciones());
    reporte.GenerarReporte();
  }
  mostrar(this, documento);
}
