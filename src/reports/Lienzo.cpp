#include "reports/Lienzo.h"

#include <QFont>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>

namespace {

// Letter paper: 8.5 by 11 inches.
constexpr int kAnchoHoja = 12240;
constexpr int kMargenIzquierdo = (kAnchoHoja - Lienzo::kAncho) / 2;
constexpr int kMargenSuperior = 720;

QFont FuenteDe(const EstadoDibujo &estado) {
  QFont fuente(QStringLiteral("Arial"));
  fuente.setStyleHint(QFont::SansSerif);
  fuente.setPixelSize(estado.tamano * 20); // a point is twenty twips
  fuente.setBold(estado.negrita);
  fuente.setUnderline(estado.subrayado);
  return fuente;
}

// Paints the operations of a page in twips on a painter already set to twips.
void Pintar(QPainter &pintor, const PaginaLienzo &pagina) {
  for (const Trazo &t : pagina.trazos) {
    pintor.setPen(t.estado.azul ? Qt::blue : Qt::black);
    switch (t.tipo) {
    case Trazo::Tipo::Texto: {
      pintor.setFont(FuenteDe(t.estado));
      // The coordinate is the top of the text, its left end or its right end.
      constexpr int kHolgura = 20000;
      if (t.estado.alineacion == 2)
        pintor.drawText(QRect(t.x - kHolgura, t.y, kHolgura, kHolgura),
                        Qt::AlignRight | Qt::AlignTop | Qt::TextDontClip, t.texto);
      else
        pintor.drawText(QRect(t.x, t.y, kHolgura, kHolgura),
                        Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, t.texto);
      break;
    }
    case Trazo::Tipo::Linea:
      pintor.drawLine(t.x, t.y, t.x2, t.y2);
      break;
    case Trazo::Tipo::Recuadro:
      pintor.setBrush(Qt::NoBrush);
      pintor.drawRect(t.x, t.y, t.x2, t.y2);
      break;
    }
  }
}

} // namespace

void Lienzo::IniciarPagina() {
  paginas_.append(PaginaLienzo{});
  abierta_ = true;
}

void Lienzo::TerminarPagina() { abierta_ = false; }

void Lienzo::DibujarTexto(int x, int y, const QString &texto) {
  if (!abierta_)
    IniciarPagina();
  paginas_.last().trazos.append({Trazo::Tipo::Texto, x, y, 0, 0, texto, estado_});
}

void Lienzo::Linea(int x1, int y1, int x2, int y2) {
  if (!abierta_)
    IniciarPagina();
  paginas_.last().trazos.append({Trazo::Tipo::Linea, x1, y1, x2, y2, {}, estado_});
}

void Lienzo::Recuadro(int x, int y, int ancho, int alto) {
  if (!abierta_)
    IniciarPagina();
  paginas_.last().trazos.append({Trazo::Tipo::Recuadro, x, y, ancho, alto, {}, estado_});
}

void Lienzo::GuardarEstado() { guardados_.append(estado_); }

void Lienzo::RestaurarEstado() {
  if (!guardados_.isEmpty())
    estado_ = guardados_.takeLast();
}

void Lienzo::NumerarPaginas() {
  const EstadoDibujo numero{8, false, false, true, 0};
  const int total = TotalPaginas();
  for (int i = 0; i < total; ++i)
    paginas_[i].trazos.append({Trazo::Tipo::Texto, 7000, 720, 0, 0,
                               QStringLiteral("Página  : %1 / %2").arg(i + 1).arg(total), numero});
}

void Lienzo::DibujarPagina(QPainter &pintor, int numero) const {
  pintor.save();
  const QPaintDevice *hoja = pintor.device();
  const qreal escalaX = hoja->logicalDpiX() / qreal(kTwipsPorPulgada);
  const qreal escalaY = hoja->logicalDpiY() / qreal(kTwipsPorPulgada);
  pintor.scale(escalaX, escalaY);
  pintor.translate(kMargenIzquierdo, kMargenSuperior);
  Pintar(pintor, Pagina(numero));
  pintor.restore();
}

QString Lienzo::GuardarPdf(const QString &archivo) const {
  QPdfWriter pdf(archivo);
  pdf.setCreator(QStringLiteral("Escribano"));
  pdf.setPageLayout(
      QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
  QPainter pintor;
  if (!pintor.begin(&pdf))
    return QStringLiteral("No se pudo escribir el archivo %1").arg(archivo);
  for (int i = 1; i <= TotalPaginas(); ++i) {
    if (i > 1)
      pdf.newPage();
    DibujarPagina(pintor, i);
  }
  pintor.end();
  return {};
}

QString Lienzo::GuardarImagenPagina(int numero, const QString &archivo) const {
  QPicture imagen;
  QPainter pintor(&imagen);
  pintor.translate(kMargenIzquierdo, kMargenSuperior);
  Pintar(pintor, Pagina(numero));
  pintor.end();
  if (!imagen.save(archivo))
    return QStringLiteral("No se pudo escribir el archivo %1").arg(archivo);
  return {};
}

QStringList Lienzo::Textos() const {
  QStringList lineas;
  for (int i = 1; i <= TotalPaginas(); ++i) {
    lineas << QStringLiteral("-- página %1").arg(i);
    for (const Trazo &t : Pagina(i).trazos)
      if (t.tipo == Trazo::Tipo::Texto)
        lineas << QStringLiteral("%1 %2%3 %4")
                      .arg(t.y)
                      .arg(t.estado.alineacion == 2 ? QStringLiteral("<") : QString())
                      .arg(t.x)
                      .arg(t.texto);
  }
  return lineas;
}
