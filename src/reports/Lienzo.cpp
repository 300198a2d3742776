#include "reports/Lienzo.h"

#include <QFont>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

namespace {

// Letter paper: 8.5 by 11 inches.
constexpr int kAnchoHoja = 12240;
constexpr int kMargenIzquierdo = (kAnchoHoja - Lienzo::kAncho) / 2;
constexpr int kMargenSuperior = 720;
// Room for a text: the coordinate is its top and its left or right end.
constexpr int kHolgura = 20000;

QFont FuenteDe(const EstadoDibujo &estado) {
  QFont fuente(QStringLiteral("Arial"));
  fuente.setStyleHint(QFont::SansSerif);
  fuente.setPixelSize(estado.tamano * 20); // a point is twenty twips
  fuente.setBold(estado.negrita);
  fuente.setUnderline(estado.subrayado);
  return fuente;
}

QString Numero(bool valor) { return valor ? QStringLiteral("1") : QStringLiteral("0"); }

} // namespace

// ------------------------------------------------------------------ recording

void LienzoGrabador::IniciarPagina() { paginas_.append(QList<Trazo>()); }

void LienzoGrabador::TerminarPagina() {}

void LienzoGrabador::GuardarPagina(const QString &archivo) {
  guardadas_.insert(archivo, paginas_.takeLast());
}

void LienzoGrabador::CargarPagina(const QString &archivo) {
  if (paginas_.isEmpty())
    IniciarPagina();
  paginas_.last() += guardadas_.take(archivo);
}

void LienzoGrabador::NuevaPagina() { IniciarPagina(); }

void LienzoGrabador::Agregar(Trazo trazo) {
  if (paginas_.isEmpty())
    IniciarPagina();
  trazo.estado = Estado();
  paginas_.last().append(std::move(trazo));
}

void LienzoGrabador::DibujarTexto(int x, int y, const QString &texto) {
  Agregar({Trazo::Tipo::Texto, x, y, 0, 0, texto, {}});
}

void LienzoGrabador::Linea(int x1, int y1, int x2, int y2) {
  Agregar({Trazo::Tipo::Linea, x1, y1, x2, y2, {}, {}});
}

void LienzoGrabador::Recuadro(int x, int y, int ancho, int alto) {
  Agregar({Trazo::Tipo::Recuadro, x, y, ancho, alto, {}, {}});
}

QStringList LienzoGrabador::Traza() const {
  QStringList lineas;
  const QChar t(u'\t');
  for (int p = 1; p <= TotalPaginas(); ++p) {
    for (const Trazo &z : Pagina(p)) {
      QStringList campos{QString::number(p)};
      switch (z.tipo) {
      case Trazo::Tipo::Texto:
        campos << QStringLiteral("texto") << QString::number(z.x) << QString::number(z.y)
               << QString::number(z.estado.tamano) << Numero(z.estado.negrita)
               << Numero(z.estado.subrayado)
               << (z.estado.azul ? QStringLiteral("azul") : QStringLiteral("negro"))
               << QString::number(z.estado.alineacion) << z.texto;
        break;
      case Trazo::Tipo::Linea:
        campos << QStringLiteral("linea") << QString::number(z.x) << QString::number(z.y)
               << QString::number(z.x2) << QString::number(z.y2);
        break;
      case Trazo::Tipo::Recuadro:
        campos << QStringLiteral("recuadro") << QString::number(z.x) << QString::number(z.y)
               << QString::number(z.x2) << QString::number(z.y2);
        break;
      }
      lineas << campos.join(t);
    }
  }
  return lineas;
}

// ------------------------------------------------------------------ painting

LienzoPintor::LienzoPintor() = default;

LienzoPintor::~LienzoPintor() {
  if (pintor_)
    pintor_->end();
}

QPainter &LienzoPintor::Pintor() {
  if (!pintor_)
    IniciarPagina();
  return *pintor_;
}

void LienzoPintor::IniciarPagina() {
  TerminarPagina();
  paginas_.append(QPicture());
  pintor_ = std::make_unique<QPainter>(&paginas_.last());
}

void LienzoPintor::TerminarPagina() {
  if (!pintor_)
    return;
  pintor_->end();
  pintor_.reset();
}

void LienzoPintor::GuardarPagina(const QString &archivo) {
  TerminarPagina();
  // A page that can't be kept is lost from the document, not the run: the second pass
  // finds no file and leaves that page with its number only.
  paginas_.takeLast().save(archivo);
}

void LienzoPintor::CargarPagina(const QString &archivo) {
  QPicture guardada;
  if (guardada.load(archivo))
    Pintor().drawPicture(0, 0, guardada);
}

void LienzoPintor::NuevaPagina() { IniciarPagina(); }

void LienzoPintor::DibujarTexto(int x, int y, const QString &texto) {
  QPainter &p = Pintor();
  const EstadoDibujo &e = Estado();
  p.setPen(e.azul ? Qt::blue : Qt::black);
  p.setFont(FuenteDe(e));
  if (e.alineacion == 2)
    p.drawText(QRect(x - kHolgura, y, kHolgura, kHolgura),
               Qt::AlignRight | Qt::AlignTop | Qt::TextDontClip, texto);
  else
    p.drawText(QRect(x, y, kHolgura, kHolgura), Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip,
               texto);
}

void LienzoPintor::Linea(int x1, int y1, int x2, int y2) {
  QPainter &p = Pintor();
  p.setPen(Estado().azul ? Qt::blue : Qt::black);
  p.drawLine(x1, y1, x2, y2);
}

void LienzoPintor::Recuadro(int x, int y, int ancho, int alto) {
  QPainter &p = Pintor();
  p.setPen(Estado().azul ? Qt::blue : Qt::black);
  p.setBrush(Qt::NoBrush);
  p.drawRect(x, y, ancho, alto);
}

void DibujarPagina(QPainter &pintor, const QPicture &pagina) {
  pintor.save();
  const QPaintDevice *hoja = pintor.device();
  const qreal twipX = hoja->logicalDpiX() / qreal(Lienzo::kTwipsPorPulgada);
  const qreal twipY = hoja->logicalDpiY() / qreal(Lienzo::kTwipsPorPulgada);
  pintor.translate(kMargenIzquierdo * twipX, kMargenSuperior * twipY);
  // A picture played on a sheet is already scaled from its own resolution to the sheet's:
  // what is left is its resolution's share of a twip.
  pintor.scale(pagina.logicalDpiX() / qreal(Lienzo::kTwipsPorPulgada),
               pagina.logicalDpiY() / qreal(Lienzo::kTwipsPorPulgada));
  pintor.drawPicture(0, 0, pagina);
  pintor.restore();
}

QString GuardarPdf(const LienzoPintor &lienzo, const QString &archivo, int pagina) {
  QPdfWriter pdf(archivo);
  pdf.setCreator(QStringLiteral("Escribano"));
  pdf.setPageLayout(
      QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
  QPainter pintor;
  if (!pintor.begin(&pdf))
    return QStringLiteral("No se pudo escribir el archivo %1").arg(archivo);
  const int desde = pagina > 0 ? pagina : 1;
  const int hasta = pagina > 0 ? pagina : lienzo.TotalPaginas();
  for (int i = desde; i <= hasta; ++i) {
    if (i > desde)
      pdf.newPage();
    DibujarPagina(pintor, lienzo.Pagina(i));
  }
  pintor.end();
  return {};
}
