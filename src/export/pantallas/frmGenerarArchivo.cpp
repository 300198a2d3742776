#include "export/pantallas/frmGenerarArchivo.h"

#include "export/GenerarArchivo.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/PantallaCombos.h"
#include "pantallas/Pantallas.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QCoreApplication>
#include <QDateEdit>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace {

// The file is named in the export folder of the family's reports (ExportDir of Report.ini),
// or the program's Export folder when the key is missing.
QString GuardarEnDisco(QWidget *padre, const QString &titulo, const QString &filtro) {
  QString carpeta =
      ServicioUtil::LeerIni(QStringLiteral("Config"), QStringLiteral("ExportDir"), RutaReportIni());
  if (carpeta.isEmpty())
    carpeta = UnirRuta(gRutaApp, QStringLiteral("Export"));
  return PedirArchivo(padre, titulo, filtro, carpeta, true);
}

ComboDatos *Filtro(QWidget *padre, const char *nombre) {
  auto *c = new ComboDatos(padre);
  c->setObjectName(QLatin1String(nombre));
  c->setMinimumWidth(300);
  return c;
}

} // namespace

frmGenerarArchivo::frmGenerarArchivo(QWidget *padre) : QDialog(padre), cdgArchivo(&GuardarEnDisco) {
  PrepararVentana(this, QStringLiteral("frmGenerarArchivo"),
                  QStringLiteral("GENERAR ARCHIVO DE PÓLIZAS"));

  tlbCatalogo = new BarraPantalla(
      this, {{QStringLiteral("GRB"), QStringLiteral("F10"), QStringLiteral("Generar Archivo"),
              [this] { Grabar(); }},
             {QStringLiteral("SAL"), QStringLiteral("Esc"), QStringLiteral("Salir")},
             {QStringLiteral("AYU"), QStringLiteral("F1"), QStringLiteral("Ayuda")}});

  dtpFechaIni = CampoFecha(this, QStringLiteral("dtpFechaIni"));
  dtpFechaFin = CampoFecha(this, QStringLiteral("dtpFechaFin"));
  auto *grpPeriodo = new QGroupBox(QStringLiteral("Período"), this);
  auto *capaPeriodo = new QGridLayout(grpPeriodo);
  capaPeriodo->addWidget(new QLabel(QStringLiteral("De la Fecha"), grpPeriodo), 0, 0);
  capaPeriodo->addWidget(dtpFechaIni, 0, 1);
  capaPeriodo->addWidget(new QLabel(QStringLiteral("A la fecha"), grpPeriodo), 0, 2);
  capaPeriodo->addWidget(dtpFechaFin, 0, 3);
  capaPeriodo->setColumnStretch(4, 1);

  cmbFolios = Filtro(this, "cmbFolios");
  cmbOperaciones = Filtro(this, "cmbOperaciones");
  cmbConceptos = Filtro(this, "cmbConceptos");
  auto *grpFiltros = new QGroupBox(QStringLiteral("Pólizas"), this);
  auto *capaFiltros = new QGridLayout(grpFiltros);
  capaFiltros->addWidget(new QLabel(QStringLiteral("Tipo"), grpFiltros), 0, 0);
  capaFiltros->addWidget(cmbFolios, 0, 1);
  capaFiltros->addWidget(new QLabel(QStringLiteral("Operación"), grpFiltros), 1, 0);
  capaFiltros->addWidget(cmbOperaciones, 1, 1);
  capaFiltros->addWidget(new QLabel(QStringLiteral("Concepto"), grpFiltros), 2, 0);
  capaFiltros->addWidget(cmbConceptos, 2, 1);
  capaFiltros->setColumnStretch(1, 1);

  avance_ = CrearAvance(this);
  prgAvance = avance_.barra;
  lblAvance = avance_.etiqueta;
  cmdDetener = avance_.detener;

  auto *raiz = new QVBoxLayout(this);
  raiz->setMenuBar(tlbCatalogo);
  raiz->addWidget(grpPeriodo);
  raiz->addWidget(grpFiltros);
  raiz->addStretch(1);
  raiz->addWidget(avance_.panel);

  setTabOrder(dtpFechaIni, dtpFechaFin);
  setTabOrder(dtpFechaFin, cmbFolios);
  setTabOrder(cmbFolios, cmbOperaciones);
  setTabOrder(cmbOperaciones, cmbConceptos);

  new RechazoApostrofe(this);
  new EnterSiguiente(this);
  cmbOperaciones->AlCambiar([this] { LlenarConceptos(); });

  conexion_ = ServicioConexion::AbrirConexionSesion();
  CargarTiposYOperaciones(*conexion_, cmbFolios, cmbOperaciones);
}

frmGenerarArchivo::~frmGenerarArchivo() = default;

void frmGenerarArchivo::LlenarConceptos() {
  cmbConceptos->Limpiar();
  if (const auto fuente = ConsultaConceptos(cmbOperaciones->Codigo()))
    cmbConceptos->Cargar(*conexion_, fuente->consulta, fuente->codigo, fuente->descripcion);
}

void frmGenerarArchivo::Grabar() {
  if (!formato_.FormatoLeido && !CargarFormato(*conexion_, formato_)) {
    close();
    return;
  }
  GenerarArchivo();
}

void frmGenerarArchivo::GenerarArchivo() {
  QString archivo;
  do {
    archivo = cdgArchivo(this, QStringLiteral("Escriba el nombre del archivo a ser generado:"),
                         QStringLiteral("Archivos de Texto (*.txt)"));
    if (archivo.isEmpty())
      return;
  } while (!ConfirmarArchivo(archivo));

  DatosGenerarArchivo datos;
  datos.fechaIni = dtpFechaIni->date();
  datos.fechaFin = dtpFechaFin->date();
  datos.tipo = cmbFolios->Codigo();
  datos.operacion = cmbOperaciones->Codigo();
  datos.concepto = cmbConceptos->Codigo();
  datos.archivo = archivo;
  tlbCatalogo->setEnabled(false);
  {
    TareaEnCurso tarea(avance_);
    MostrarAvance(tarea, 0, 0);
    ::GenerarArchivo(*conexion_, formato_, datos, [&tarea](qint64 lineas, qint64 polizas) {
      MostrarAvance(tarea, lineas, polizas);
      return !tarea.Detenida();
    });
  }
  tlbCatalogo->setEnabled(true);
}

void frmGenerarArchivo::MostrarAvance(TareaEnCurso &tarea, qint64 lineas, qint64 polizas) {
  // The number of lines is known only at the end: the bar says the file is being written.
  tarea.Mostrar(0, 0, QStringLiteral("Pólizas: %1   Líneas escritas: %2").arg(polizas).arg(lineas));
}
