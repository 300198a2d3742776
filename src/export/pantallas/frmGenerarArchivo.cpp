#include "export/pantallas/frmGenerarArchivo.h"

#include "export/ContabilidadElectronica.h"
#include "export/GenerarArchivo.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/PantallaCombos.h"
#include "pantallas/Pantallas.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDateEdit>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

// The export folder of the family's reports (ExportDir of Report.ini), or the program's
// Export folder when the key is missing.
QString CarpetaExport() {
  const QString carpeta =
      ServicioUtil::LeerIni(QStringLiteral("Config"), QStringLiteral("ExportDir"), RutaReportIni());
  return carpeta.isEmpty() ? UnirRuta(gRutaApp, QStringLiteral("Export")) : carpeta;
}

QString GuardarEnDisco(QWidget *padre, const QString &titulo, const QString &filtro) {
  return PedirArchivo(padre, titulo, filtro, CarpetaExport(), true);
}

// A list of faults in a box of reasonable height.
QString Faltas(const QStringList &faltas) {
  constexpr int kMostradas = 12;
  QStringList lineas = faltas.mid(0, kMostradas);
  if (faltas.size() > kMostradas)
    lineas << QStringLiteral("… y %1 más.").arg(faltas.size() - kMostradas);
  return sat::EncabezadoFaltas() + QStringLiteral("\n\n") + lineas.join(QLatin1Char('\n'));
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
  grpFiltros = new QGroupBox(QStringLiteral("Pólizas"), this);
  auto *capaFiltros = new QGridLayout(grpFiltros);
  capaFiltros->addWidget(new QLabel(QStringLiteral("Tipo"), grpFiltros), 0, 0);
  capaFiltros->addWidget(cmbFolios, 0, 1);
  capaFiltros->addWidget(new QLabel(QStringLiteral("Operación"), grpFiltros), 1, 0);
  capaFiltros->addWidget(cmbOperaciones, 1, 1);
  capaFiltros->addWidget(new QLabel(QStringLiteral("Concepto"), grpFiltros), 2, 0);
  capaFiltros->addWidget(cmbConceptos, 2, 1);
  capaFiltros->setColumnStretch(1, 1);

  optFormato = new QRadioButton(QStringLiteral("Formato de la empresa"), this);
  optFormato->setObjectName(QStringLiteral("optFormato"));
  optSat = new QRadioButton(QStringLiteral("XML del SAT (pólizas del periodo)"), this);
  optSat->setObjectName(QStringLiteral("optSat"));
  optFormato->setChecked(true);
  auto *grpArchivo = new QGroupBox(QStringLiteral("Archivo"), this);
  auto *capaArchivo = new QVBoxLayout(grpArchivo);
  capaArchivo->addWidget(optFormato);
  capaArchivo->addWidget(optSat);

  cmbSolicitud = new QComboBox(this);
  cmbSolicitud->setObjectName(QStringLiteral("cmbSolicitud"));
  cmbSolicitud->addItem(QStringLiteral("AF - Acto de fiscalización"), QStringLiteral("AF"));
  cmbSolicitud->addItem(QStringLiteral("FC - Fiscalización compulsa"), QStringLiteral("FC"));
  cmbSolicitud->addItem(QStringLiteral("DE - Devolución"), QStringLiteral("DE"));
  cmbSolicitud->addItem(QStringLiteral("CO - Compensación"), QStringLiteral("CO"));
  lblNumero = new QLabel(this);
  // Room for the longer of its two captions.
  lblNumero->setMinimumWidth(
      lblNumero->fontMetrics().horizontalAdvance(QStringLiteral("Número de trámite  ")));
  txtNumero = new QLineEdit(this);
  txtNumero->setObjectName(QStringLiteral("txtNumero"));
  txtNumero->setMaxLength(14);
  grpSat = new QGroupBox(QStringLiteral("Solicitud del SAT"), this);
  auto *capaSat = new QGridLayout(grpSat);
  capaSat->addWidget(new QLabel(QStringLiteral("Tipo de solicitud"), grpSat), 0, 0);
  capaSat->addWidget(cmbSolicitud, 0, 1);
  capaSat->addWidget(lblNumero, 1, 0);
  capaSat->addWidget(txtNumero, 1, 1);
  capaSat->setColumnStretch(1, 1);
  const auto numero = [this] {
    const bool orden = sat::LlevaOrden(cmbSolicitud->currentData().toString());
    lblNumero->setText(orden ? QStringLiteral("Número de orden")
                             : QStringLiteral("Número de trámite"));
    txtNumero->setPlaceholderText(orden ? QStringLiteral("ABC1234567/26")
                                        : QStringLiteral("DE123456789012"));
  };
  numero();
  connect(cmbSolicitud, &QComboBox::currentIndexChanged, this, numero);
  connect(optSat, &QRadioButton::toggled, this, [this] { ElegirSalida(); });

  avance_ = CrearAvance(this);
  prgAvance = avance_.barra;
  lblAvance = avance_.etiqueta;
  cmdDetener = avance_.detener;

  auto *raiz = new QVBoxLayout(this);
  raiz->setMenuBar(tlbCatalogo);
  raiz->addWidget(grpPeriodo);
  raiz->addWidget(grpArchivo);
  raiz->addWidget(grpFiltros);
  raiz->addWidget(grpSat);
  raiz->addStretch(1);
  raiz->addWidget(avance_.panel);

  setTabOrder(dtpFechaIni, dtpFechaFin);
  setTabOrder(dtpFechaFin, cmbFolios);
  setTabOrder(cmbFolios, cmbOperaciones);
  setTabOrder(cmbOperaciones, cmbConceptos);
  setTabOrder(cmbConceptos, cmbSolicitud);
  setTabOrder(cmbSolicitud, txtNumero);
  ElegirSalida();

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

void frmGenerarArchivo::ElegirSalida() {
  const bool sat = optSat->isChecked();
  grpFiltros->setEnabled(!sat);
  grpSat->setEnabled(sat);
  // The SAT's file is of a whole month: the month of the first date.
  if (sat) {
    const QDate ini = dtpFechaIni->date();
    dtpFechaIni->setDate(QDate(ini.year(), ini.month(), 1));
    dtpFechaFin->setDate(QDate(ini.year(), ini.month(), 1).addMonths(1).addDays(-1));
  }
}

void frmGenerarArchivo::GenerarSat() {
  const QDate ini = dtpFechaIni->date();
  if (ini.day() != 1 || dtpFechaFin->date() != ini.addMonths(1).addDays(-1)) {
    CatalogoMensajes::MostrarTexto(
        QStringLiteral("El XML del SAT es de un mes completo: ponga del primer al último día "
                       "del mes."),
        IconoMensaje::Advertencia);
    dtpFechaIni->setFocus();
    return;
  }
  sat::PeticionPolizas p;
  p.mes = ini;
  p.tipoSolicitud = cmbSolicitud->currentData().toString();
  (sat::LlevaOrden(p.tipoSolicitud) ? p.numOrden : p.numTramite) =
      txtNumero->text().trimmed().toUpper();
  if (const QStringList faltas = sat::FaltasPeticion(p); !faltas.isEmpty()) {
    CatalogoMensajes::MostrarTexto(Faltas(faltas), IconoMensaje::Advertencia);
    txtNumero->setFocus();
    return;
  }
  // The RFC names the file: it is checked before the question about replacing one.
  const QString rfc = sat::RfcEmpresa(*conexion_);
  if (const QString falta = sat::FaltaRfc(rfc); !falta.isEmpty()) {
    CatalogoMensajes::MostrarTexto(Faltas({falta}), IconoMensaje::Advertencia);
    return;
  }
  p.archivo = UnirRuta(CarpetaExport(), sat::NombreArchivo(rfc, ini, QStringLiteral("PL")));
  if (QFileInfo::exists(RutaNativa(p.archivo)) &&
      CatalogoMensajes::MostrarTexto(QStringLiteral("El archivo %1 ya existe. ¿Desea reemplazarlo?")
                                         .arg(QDir::toNativeSeparators(RutaNativa(p.archivo))),
                                     IconoMensaje::Pregunta,
                                     BotonesMensaje::SiNo) != RespuestaMensaje::Si)
    return;
  const sat::ResultadoSat r = [&] {
    RelojArena reloj;
    return sat::EscribirPolizas(*conexion_, p);
  }();
  if (!r.Escrito()) {
    CatalogoMensajes::MostrarTexto(Faltas(r.faltas), IconoMensaje::Advertencia);
    return;
  }
  QString texto = QStringLiteral("Se escribió el archivo del SAT:\n%1\n\nPólizas: %2   "
                                 "Transacciones: %3")
                      .arg(QDir::toNativeSeparators(r.archivo))
                      .arg(r.elementos)
                      .arg(r.transacciones);
  if (r.sinMovimiento > 0)
    texto +=
        QStringLiteral("\nPólizas sin movimientos (no van en el archivo): %1").arg(r.sinMovimiento);
  CatalogoMensajes::MostrarTexto(texto);
}

void frmGenerarArchivo::Grabar() {
  if (optSat->isChecked()) {
    GenerarSat();
    return;
  }
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
