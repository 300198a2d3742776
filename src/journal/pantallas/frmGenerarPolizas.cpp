#include "journal/pantallas/frmGenerarPolizas.h"

#include "journal/pantallas/frmVistaPrevia.h"

#include "journal/Bitacora.h"
#include "journal/Documentos.h"
#include "journal/Generacion.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/Pantallas.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/Sesion.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDateEdit>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <optional>

namespace {

constexpr int kPasosPorRegla = 100;

QString BuscarEnDisco(QWidget *padre, const QString &titulo, const QString &filtro) {
  return PedirArchivo(padre, titulo, filtro, UnirRuta(gRutaApp, QStringLiteral("TEMP")), false);
}

} // namespace

frmGenerarPolizas::frmGenerarPolizas(QWidget *padre) : QDialog(padre), cdgBuscar(&BuscarEnDisco) {
  PrepararVentana(this, QStringLiteral("frmGenerarPolizas"), QStringLiteral("GENERAR PÓLIZAS"));

  tlbCatalogo = new BarraPantalla(
      this, {{QStringLiteral("GRB"), QStringLiteral("F10"), QStringLiteral("Generar Pólizas"),
              [this] { GenerarPolizas(); }},
             {QStringLiteral("VPR"), QStringLiteral("F5"), QStringLiteral("Vista previa"),
              [this] { VistaPrevia(); }},
             {QStringLiteral("AYU"), QStringLiteral("F1"), QStringLiteral("Ayuda")},
             {QStringLiteral("SAL"), QStringLiteral("Esc"), QStringLiteral("Salir")}});

  tvwOperaciones = new QTreeWidget(this);
  tvwOperaciones->setObjectName(QStringLiteral("tvwOperaciones"));
  tvwOperaciones->setHeaderHidden(true);
  tvwOperaciones->setColumnCount(1);
  tvwOperaciones->setMinimumSize(300, 260);
  auto *grpOperaciones = new QGroupBox(QStringLiteral("Operaciones"), this);
  auto *capaOperaciones = new QVBoxLayout(grpOperaciones);
  capaOperaciones->addWidget(tvwOperaciones);

  for (int i = 0; i < 3; ++i)
    dtpFecha[i] = CampoFecha(this, QStringLiteral("dtpFecha"));
  auto *grpPeriodo = new QGroupBox(QStringLiteral("Período"), this);
  auto *capaPeriodo = new QGridLayout(grpPeriodo);
  capaPeriodo->addWidget(new QLabel(QStringLiteral("Del"), grpPeriodo), 0, 0);
  capaPeriodo->addWidget(dtpFecha[0], 0, 1);
  capaPeriodo->addWidget(new QLabel(QStringLiteral("Al"), grpPeriodo), 1, 0);
  capaPeriodo->addWidget(dtpFecha[1], 1, 1);
  capaPeriodo->setColumnStretch(1, 1);

  chkActualizar = new QCheckBox(QStringLiteral("Actualizar Pólizas"), this);
  chkActualizar->setObjectName(QStringLiteral("chkActualizar"));

  optFechaPol[0] = new QRadioButton(QStringLiteral("Fecha del Movimiento"), this);
  optFechaPol[1] = new QRadioButton(QStringLiteral("Definir Fecha "), this);
  auto *grpFechaPol = new QGroupBox(QStringLiteral("Fecha de Contabilización"), this);
  auto *capaFechaPol = new QGridLayout(grpFechaPol);
  for (int i = 0; i < 2; ++i) {
    optFechaPol[i]->setObjectName(QStringLiteral("optFechaPol"));
    capaFechaPol->addWidget(optFechaPol[i], i, 0);
    connect(optFechaPol[i], &QRadioButton::clicked, this, [this] { optFechaPol_Click(); });
  }
  capaFechaPol->addWidget(dtpFecha[2], 1, 1);
  optFechaPol[0]->setChecked(true);
  dtpFecha[2]->setEnabled(false);

  txtResumen = new QLineEdit(this);
  txtResumen->setObjectName(QStringLiteral("txtResumen"));
  txtResumen->setMinimumWidth(420);
  cmdBusca = new QPushButton(QStringLiteral("Buscar Bitácora"), this);
  cmdBusca->setObjectName(QStringLiteral("cmdBusca"));
  auto *grpResumen = new QGroupBox(QStringLiteral("Resumen del Proceso"), this);
  auto *capaResumen = new QHBoxLayout(grpResumen);
  capaResumen->addWidget(new QLabel(QStringLiteral("Archivo"), grpResumen));
  capaResumen->addWidget(txtResumen, 1);
  capaResumen->addWidget(cmdBusca);

  avance_ = CrearAvance(this);
  prgAvance = avance_.barra;
  lblAvance = avance_.etiqueta;
  cmdDetener = avance_.detener;

  auto *opciones = new QVBoxLayout;
  opciones->addWidget(grpPeriodo);
  opciones->addWidget(chkActualizar);
  opciones->addWidget(grpFechaPol);
  opciones->addStretch(1);
  auto *centro = new QHBoxLayout;
  centro->addWidget(grpOperaciones, 1);
  centro->addLayout(opciones);
  auto *raiz = new QVBoxLayout(this);
  raiz->setMenuBar(tlbCatalogo);
  raiz->addLayout(centro, 1);
  raiz->addWidget(grpResumen);
  raiz->addWidget(avance_.panel);

  setTabOrder(tvwOperaciones, dtpFecha[0]);
  setTabOrder(dtpFecha[0], dtpFecha[1]);
  setTabOrder(dtpFecha[1], chkActualizar);
  setTabOrder(chkActualizar, optFechaPol[0]);
  setTabOrder(optFechaPol[0], optFechaPol[1]);
  setTabOrder(optFechaPol[1], dtpFecha[2]);
  setTabOrder(dtpFecha[2], txtResumen);
  setTabOrder(txtResumen, cmdBusca);

  new RechazoApostrofe(this);
  // Enter moves on everywhere, dates included, but in these, which keep the key.
  new EnterSiguiente(this, {QStringLiteral("txtFolPol"), QStringLiteral("cmdBusca")});
  for (int i = 0; i < 3; ++i)
    connect(dtpFecha[i], &QDateEdit::dateChanged, this, [this, i] { dtpFecha_Change(i); });
  connect(tvwOperaciones, &QTreeWidget::itemChanged, this,
          [this](QTreeWidgetItem *item) { tvwOperaciones_ItemCheck(item); });
  connect(cmdBusca, &QPushButton::clicked, this, [this] { cmdBusca_Click(); });

  corrida_.Conexion = ServicioConexion::AbrirConexionSesion();
  CargarOperaciones();
  CargarArbol();
}

frmGenerarPolizas::~frmGenerarPolizas() = default;

OpcionesGeneracion frmGenerarPolizas::Opciones() const {
  OpcionesGeneracion op;
  op.Del = dtpFecha[0]->date();
  op.Al = dtpFecha[1]->date();
  op.FechaDefinida = dtpFecha[2]->date();
  op.DefinirFecha = optFechaPol[1]->isChecked();
  op.Actualizar = chkActualizar->isChecked();
  op.Resumen = txtResumen->text();
  return op;
}

void frmGenerarPolizas::CargarOperaciones() {
  ::CargarOperaciones(corrida_);
  txtResumen->setText(RutaNativa(Bitacora::NombreBitacora(gNumEmp, dtpFecha[2]->date())));
}

void frmGenerarPolizas::CargarArbol() {
  arbol_.CargarArbol(*corrida_.Conexion);
  const QSignalBlocker silencio(tvwOperaciones);
  tvwOperaciones->setUpdatesEnabled(false);
  tvwOperaciones->clear();
  nodos_.clear();
  for (const NodoArbol &nodo : arbol_.Nodos()) {
    QTreeWidgetItem *item = nodo.EsModulo() ? new QTreeWidgetItem(tvwOperaciones)
                                            : new QTreeWidgetItem(nodos_[nodo.padre]);
    item->setText(0, nodo.texto);
    item->setData(0, Qt::UserRole, static_cast<int>(nodos_.size()));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(0, Qt::Unchecked);
    nodos_.push_back(item);
  }
  tvwOperaciones->setUpdatesEnabled(true);
}

// The tree's rules decide the checks of the module and its operations; the items only
// show them.
void frmGenerarPolizas::tvwOperaciones_ItemCheck(QTreeWidgetItem *item) {
  const int indice = item->data(0, Qt::UserRole).toInt();
  arbol_.Marcar(indice, item->checkState(0) == Qt::Checked);
  const QSignalBlocker silencio(tvwOperaciones);
  const std::vector<NodoArbol> &nodos = arbol_.Nodos();
  for (std::size_t i = 0; i < nodos.size(); ++i)
    nodos_[i]->setCheckState(0, nodos[i].marcado ? Qt::Checked : Qt::Unchecked);
  if (nodos[indice].expandido)
    item->setExpanded(true);
}

void frmGenerarPolizas::dtpFecha_Change(int indice) {
  if (dtpFecha[1]->date() < dtpFecha[0]->date())
    dtpFecha[1]->setDate(dtpFecha[0]->date());
  if (indice == 2)
    txtResumen->setText(RutaNativa(Bitacora::NombreBitacora(gNumEmp, dtpFecha[2]->date())));
}

void frmGenerarPolizas::optFechaPol_Click() {
  dtpFecha[2]->setEnabled(optFechaPol[1]->isChecked());
}

void frmGenerarPolizas::cmdBusca_Click() {
  const QString nombre = cdgBuscar(this, QStringLiteral("Buscar Bitácora"),
                                   QStringLiteral("Todos los archivos de bitácora (*.bit)"));
  if (!nombre.isEmpty())
    txtResumen->setText(nombre);
}

void frmGenerarPolizas::GenerarPolizas() {
  tlbCatalogo->setEnabled(false);
  ResultadoGeneracion resultado;
  {
    // The hourglass comes with the first rule, once the log has been accepted.
    std::optional<RelojArena> reloj;
    TareaEnCurso tarea(avance_);
    Generador generador(corrida_, Opciones());
    generador.avance = [&tarea, &reloj](const AvanceGeneracion &avance) {
      if (!reloj)
        reloj.emplace();
      MostrarAvance(tarea, avance);
    };
    generador.detener = [&tarea] { return tarea.Detenida(); };
    resultado = generador.GenerarPolizas(arbol_);
  }
  tlbCatalogo->setEnabled(true);
  if (!resultado.corrio) {
    // Rules were gathered, so the log was refused: its name is to be looked at.
    if (corrida_.NumConceptos > 0)
      txtResumen->setFocus();
    return;
  }
  // The question goes under the system's title: the old one spoke of deleting a rule.
  if (CatalogoMensajes::Caja(CatalogoMensajes::Texto(5509), CatalogoMensajes::Texto(100),
                             IconoMensaje::Pregunta, BotonesMensaje::SiNo,
                             5509) == RespuestaMensaje::Si)
    AbrirArchivo(this, resultado.bitacora);
  CargarOperaciones();
}

namespace {

// The rehearsal's messages but its "posted" one: the preview tells what the run would
// post, and nothing was. Warnings still come (no documents, another run going on).
class SinCierreDeCorrida : public PresentadorMensajes {
public:
  SinCierreDeCorrida()
      : anterior_(CatalogoMensajes::HayPresentadorInstalado() ? CatalogoMensajes::Presentador()
                                                              : nullptr) {
    CatalogoMensajes::Instalar(this);
  }
  ~SinCierreDeCorrida() override { CatalogoMensajes::Instalar(anterior_); }
  SinCierreDeCorrida(const SinCierreDeCorrida &) = delete;
  SinCierreDeCorrida &operator=(const SinCierreDeCorrida &) = delete;
  RespuestaMensaje Presentar(const Mensaje &mensaje) override {
    if (mensaje.id == 108)
      return RespuestaMensaje::Aceptar;
    CatalogoMensajes::Instalar(anterior_);
    const RespuestaMensaje respuesta = CatalogoMensajes::Presentador()->Presentar(mensaje);
    CatalogoMensajes::Instalar(this);
    return respuesta;
  }

private:
  PresentadorMensajes *anterior_;
};

} // namespace

void frmGenerarPolizas::VistaPrevia() {
  // The log of a rehearsal is its own, and goes with it.
  QTemporaryDir temporal;
  OpcionesGeneracion opciones = Opciones();
  opciones.Resumen = QDir(temporal.path()).filePath(QStringLiteral("vista_previa.txt"));
  std::vector<PolizaPrevista> polizas;
  tlbCatalogo->setEnabled(false);
  {
    std::optional<RelojArena> reloj;
    TareaEnCurso tarea(avance_);
    Generador generador(corrida_, opciones);
    generador.avance = [&tarea, &reloj](const AvanceGeneracion &avance) {
      if (!reloj)
        reloj.emplace();
      MostrarAvance(tarea, avance);
    };
    generador.detener = [&tarea] { return tarea.Detenida(); };
    Conexion &con = *corrida_.Conexion;
    const SinCierreDeCorrida sinCierre;
    con.IniciarEnsayo();
    const ResultadoGeneracion resultado = generador.GenerarPolizas(arbol_);
    // The entries as the run wrote them, read before all of it is undone.
    if (resultado.corrio)
      for (const auto &[tipo, folio] : generador.Escritas())
        if (const std::optional<Poliza> p = LeerPoliza(con, folio, tipo))
          polizas.push_back({*p, LeerRenglones(con, folio, tipo)});
    con.TerminarEnsayo();
  }
  tlbCatalogo->setEnabled(true);
  CargarOperaciones();
  frmVistaPrevia vista(polizas, this);
  if (vista.exec() == QDialog::Accepted)
    GenerarPolizas();
}

void frmGenerarPolizas::MostrarAvance(TareaEnCurso &tarea, const AvanceGeneracion &avance) {
  // A rule without documents is done as soon as it is read: the bar reaches its end.
  const int hechos = avance.documentos > 0 ? avance.documento * kPasosPorRegla / avance.documentos
                                           : kPasosPorRegla;
  const QString documentos = avance.documentos > 0 ? QStringLiteral("Documento %1 de %2")
                                                         .arg(QString::number(avance.documento),
                                                              QString::number(avance.documentos))
                                                   : QStringLiteral("sin documentos");
  tarea.Mostrar((avance.regla - 1) * kPasosPorRegla + hechos, avance.reglas * kPasosPorRegla,
                QStringLiteral("Regla %1 de %2: %3   %4")
                    .arg(QString::number(avance.regla), QString::number(avance.reglas),
                         avance.descripcion, documentos));
}
