#include "reports/pantallas/frmPreview.h"

#include "pantallas/Pantallas.h"
#include "reports/Lienzo.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

constexpr int kZooms[] = {30, 50, 70, 80, 90, 100, 130, 150, 200};

// The sheet shown: a letter page at the zoom, its page drawn on white.
class Hoja : public QWidget {
public:
  Hoja(const LienzoPintor &documento, QWidget *padre) : QWidget(padre), documento_(documento) {
    setObjectName(QStringLiteral("Preview"));
    setAutoFillBackground(true);
    QPalette blanco = palette();
    blanco.setColor(QPalette::Window, Qt::white);
    setPalette(blanco);
  }
  void Mostrar(int pagina, int zoom) {
    pagina_ = pagina;
    zoom_ = zoom;
    setFixedSize(logicalDpiX() * 85 / 10 * zoom / 100, logicalDpiY() * 11 * zoom / 100);
    update();
  }

protected:
  void paintEvent(QPaintEvent *) override {
    if (pagina_ < 1 || pagina_ > documento_.TotalPaginas())
      return;
    QPainter pintor(this);
    pintor.scale(zoom_ / 100.0, zoom_ / 100.0);
    DibujarPagina(pintor, documento_.Pagina(pagina_));
  }

private:
  const LienzoPintor &documento_;
  int pagina_ = 1;
  int zoom_ = 100;
};

QString PedirConCaja(QWidget *padre, const QString &pregunta) {
  return QInputDialog::getText(padre, CatalogoMensajes::Texto(100), pregunta);
}

void ImprimirConDialogo(QWidget *padre, const LienzoPintor &documento) {
  QPrinter impresora(QPrinter::HighResolution);
  impresora.setFromTo(1, documento.TotalPaginas());
  QPrintDialog dialogo(&impresora, padre);
  if (dialogo.exec() != QDialog::Accepted)
    return;
  QPainter pintor(&impresora);
  const int desde = impresora.fromPage() > 0 ? impresora.fromPage() : 1;
  const int hasta = impresora.toPage() > 0 ? impresora.toPage() : documento.TotalPaginas();
  for (int i = desde; i <= hasta; ++i) {
    if (i > desde)
      impresora.newPage();
    DibujarPagina(pintor, documento.Pagina(i));
  }
}

} // namespace

frmPreview::frmPreview(const LienzoPintor &documento, QWidget *padre)
    : QDialog(padre), pedirTexto(&PedirConCaja), imprimir(&ImprimirConDialogo),
      documento_(documento) {
  PrepararVentana(this, QStringLiteral("frmPreview"), QStringLiteral("VISTA PREVIA"));
  cmbZoom = new QComboBox(this);
  cmbZoom->setObjectName(QStringLiteral("cmbZoom"));
  for (int z : kZooms)
    cmbZoom->addItem(QStringLiteral("%1%").arg(z));
  lblPagina = new QLabel(this);
  lblPagina->setObjectName(QStringLiteral("lblPagina"));
  const std::pair<const char *, const char *> botones[] = {
      {"Imprimir", "Imprimir el documento (Alt+P)"},
      {"Primera", "Primera página (Inicio)"},
      {"Anterior", "Página anterior (RePág)"},
      {"Siguiente", "Página siguiente (AvPág)"},
      {"Última", "Última página (Fin)"},
      {"Grabar", "Grabar la página mostrada"},
      {"Cerrar", "Cerrar la vista previa"}};
  auto *barra = new QHBoxLayout;
  for (int i = 0; i < 7; ++i) {
    cmdFunciones[i] = new QPushButton(QString::fromUtf8(botones[i].first), this);
    cmdFunciones[i]->setObjectName(QStringLiteral("cmdFunciones%1").arg(i));
    cmdFunciones[i]->setToolTip(QString::fromUtf8(botones[i].second));
    cmdFunciones[i]->setAutoDefault(false);
    connect(cmdFunciones[i], &QPushButton::clicked, this, [this, i] { Funcion(i); });
    barra->addWidget(cmdFunciones[i]);
  }
  barra->addWidget(cmbZoom);
  barra->addWidget(lblPagina);
  barra->addStretch(1);

  Preview = new Hoja(documento_, this);
  marco_ = new QScrollArea(this);
  marco_->setWidget(Preview);
  marco_->setAlignment(Qt::AlignHCenter);
  stsPreview = new QStatusBar(this);
  stsPreview->setObjectName(QStringLiteral("stsPreview"));
  stsPreview->setSizeGripEnabled(false);

  // The page's frame is placed by the window's size (resizeEvent), not by the layout.
  auto *raiz = new QVBoxLayout(this);
  raiz->addLayout(barra);
  raiz->addStretch(1);
  raiz->addWidget(stsPreview);

  connect(cmbZoom, &QComboBox::currentIndexChanged, this, [this](int i) {
    if (i >= 0) {
      zoom_ = kZooms[i];
      MostrarPagina();
    }
  });
  cmbZoom->setCurrentIndex(5); // 100%
  resize(900, 700);
  IrA(1);
}

int frmPreview::TotalPaginas() const { return documento_.TotalPaginas(); }

void frmPreview::MostrarPagina() {
  static_cast<Hoja *>(Preview)->Mostrar(pagina_, zoom_);
  lblPagina->setText(QStringLiteral("%1/%2").arg(pagina_).arg(TotalPaginas()));
  stsPreview->showMessage(QStringLiteral("Página %1 de %2").arg(pagina_).arg(TotalPaginas()));
}

void frmPreview::IrA(int pagina) {
  if (pagina >= 1 && pagina <= TotalPaginas())
    pagina_ = pagina;
  MostrarPagina();
}

void frmPreview::Funcion(int indice) {
  switch (indice) {
  case 0:
    imprimir(this, documento_);
    break;
  case 1:
    IrA(1);
    break;
  case 2:
    if (pagina_ > 1)
      IrA(pagina_ - 1);
    break;
  case 3:
    if (pagina_ < TotalPaginas())
      IrA(pagina_ + 1);
    break;
  case 4:
    IrA(TotalPaginas());
    break;
  case 5:
    GrabarPagina();
    break;
  default:
    QDialog::reject();
    break;
  }
}

void frmPreview::GrabarPagina() {
  // The folder as the ini file has it, with no separator added.
  const QString carpeta = ServicioUtil::LeerIni(QStringLiteral("VARIOS"),
                                                QStringLiteral("DIRCONSULTAS"), RutaNimbarIni());
  const QString nombre = pedirTexto(
      this, QStringLiteral("Nombre de la Página:\n(se grabará en el directorio %1)").arg(carpeta));
  if (nombre.isEmpty())
    return;
  const QString archivo = carpeta + nombre + QStringLiteral(".pdf");
  QString falla;
  {
    RelojArena reloj;
    falla = GuardarPdf(documento_, RutaNativa(archivo), pagina_);
  }
  if (!falla.isEmpty()) {
    CatalogoMensajes::MostrarTexto(falla, IconoMensaje::Advertencia);
    return;
  }
  CatalogoMensajes::Mostrar(130, QStringLiteral(" %1\n%2").arg(pagina_).arg(archivo),
                            IconoMensaje::Informacion);
}

void frmPreview::reject() {
  if (CatalogoMensajes::Mostrar(129, {}, IconoMensaje::Pregunta, BotonesMensaje::SiNo) ==
      RespuestaMensaje::Si)
    QDialog::reject();
}

void frmPreview::keyPressEvent(QKeyEvent *evento) {
  if (evento->key() == Qt::Key_P && evento->modifiers() == Qt::AltModifier) {
    Funcion(0);
    return;
  }
  switch (evento->key()) {
  case Qt::Key_Home:
    Funcion(1);
    return;
  case Qt::Key_PageUp:
    Funcion(2);
    return;
  case Qt::Key_PageDown:
    Funcion(3);
    return;
  case Qt::Key_End:
    Funcion(4);
    return;
  default:
    QDialog::keyPressEvent(evento);
  }
}

void frmPreview::resizeEvent(QResizeEvent *evento) {
  QDialog::resizeEvent(evento);
  // The canvas takes the window's width less 100 twips and its height less 1100.
  marco_->setGeometry(Twips(this, 50), Twips(this, 600), std::max(0, width() - Twips(this, 100)),
                      std::max(0, height() - Twips(this, 1100)));
}
