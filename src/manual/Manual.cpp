#include "manual/Manual.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextImageFormat>
#include <QTextTable>
#include <cmath>

namespace manual {
namespace {

constexpr int kPuntosPorPulgada = 300;
// A screen's picture prints at 120 of its points an inch, somewhat smaller than on a
// screen, or narrower when the page is.
constexpr double kPantallaPorPulgada = 120.0;

QFont Letra(double puntos, bool negrita = false) {
  QFont f(QStringLiteral("DejaVu Sans"));
  f.setPointSizeF(puntos);
  f.setBold(negrita);
  return f;
}

struct Capitulo {
  QString archivo; // without ".md"
  QString titulo;
  QString texto;        // the Markdown, with its figures' captions
  int inicio = 0;       // position of its first block in the document
  int paginaCuerpo = 0; // page of the body on which it begins, from 0
};

// "![caption](picture.png)" alone in its paragraph: the picture, with "Figura N. caption"
// under it.
const QRegularExpression kFigura(QStringLiteral("^!\\[([^\\]]+)\\]\\(([^)\\s]+)\\)\\s*$"),
                                 QRegularExpression::MultilineOption);

QString LeerCapitulo(const QString &ruta, Capitulo &c, ResultadoManual &r,
                     QHash<QString, QImage> &imagenes, const QString &capturas) {
  QFile archivo(ruta);
  if (!archivo.open(QIODevice::ReadOnly))
    return QStringLiteral("No fue posible leer el capítulo %1.").arg(ruta);
  const QString texto = QString::fromUtf8(archivo.readAll());
  const QString primera = texto.section(QLatin1Char('\n'), 0, 0).trimmed();
  if (!primera.startsWith(QStringLiteral("# ")))
    return QStringLiteral("El capítulo %1 no empieza con su título («# …»).").arg(ruta);
  c.titulo = primera.mid(2).trimmed();
  QString salida;
  qsizetype desde = 0;
  for (auto m = kFigura.globalMatch(texto); m.hasNext();) {
    const QRegularExpressionMatch f = m.next();
    const QString nombre = f.captured(2);
    if (!imagenes.contains(nombre)) {
      const QImage imagen(QDir(capturas).filePath(nombre));
      if (imagen.isNull())
        return QStringLiteral("Falta la imagen %1 del capítulo %2 en %3.")
            .arg(nombre, c.archivo, QDir::toNativeSeparators(capturas));
      imagenes.insert(nombre, imagen);
    }
    const QString pie =
        QStringLiteral("Figura %1. %2").arg(r.figuras.size() + 1).arg(f.captured(1));
    r.figuras << pie;
    r.imagenes << nombre;
    salida += texto.mid(desde, f.capturedEnd() - desde) + QStringLiteral("\n\n*") + pie +
              QStringLiteral("*\n");
    desde = f.capturedEnd();
  }
  c.texto = salida + texto.mid(desde);
  return {};
}

// Pictures at their size, no wider than the text; centred with their caption. The layout
// measures a picture in points of a screen of 96 an inch, whatever the page's.
void AjustarImagenes(QTextDocument &doc, const QHash<QString, QImage> &imagenes, double ancho) {
  const double escala = 96.0 / kPantallaPorPulgada;
  ancho = ancho * 96.0 / kPuntosPorPulgada;
  bool pieSiguiente = false;
  for (QTextBlock b = doc.begin(); b.isValid(); b = b.next()) {
    bool conImagen = false;
    for (auto it = b.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragmento = it.fragment();
      if (!fragmento.charFormat().isImageFormat())
        continue;
      QTextImageFormat formato = fragmento.charFormat().toImageFormat();
      const QImage imagen = imagenes.value(formato.name());
      if (imagen.isNull())
        continue; // a picture within a line is no figure: it isn't drawn
      const double factor = std::min(escala, ancho / imagen.width());
      formato.setWidth(imagen.width() * factor);
      formato.setHeight(imagen.height() * factor);
      QTextCursor c(&doc);
      c.setPosition(fragmento.position());
      c.setPosition(fragmento.position() + fragmento.length(), QTextCursor::KeepAnchor);
      c.setCharFormat(formato);
      conImagen = true;
    }
    if (conImagen || pieSiguiente) {
      QTextCursor c(b);
      QTextBlockFormat formato = b.blockFormat();
      formato.setAlignment(Qt::AlignHCenter);
      if (pieSiguiente)
        formato.setBottomMargin(formato.bottomMargin() + 40);
      c.setBlockFormat(formato);
    }
    pieSiguiente = conImagen;
  }
}

// Tables as wide as the text, with single rules.
void AjustarTablas(QTextDocument &doc) {
  for (QTextBlock b = doc.begin(); b.isValid(); b = b.next()) {
    QTextCursor c(b);
    QTextTable *tabla = c.currentTable();
    if (!tabla || tabla->firstPosition() != b.position())
      continue;
    QTextTableFormat formato = tabla->format();
    formato.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    formato.setBorderCollapse(true);
    formato.setBorder(1);
    formato.setCellPadding(4);
    formato.setCellSpacing(0);
    formato.setBottomMargin(12);
    tabla->setFormat(formato);
  }
}

void Pie(QPainter &p, const QRectF &pagina, int numero) {
  p.setFont(Letra(9));
  p.setPen(Qt::black);
  p.drawText(QRectF(0, pagina.height() - 90, pagina.width(), 90),
             Qt::AlignHCenter | Qt::AlignBottom, QString::number(numero));
}

} // namespace

ResultadoManual EscribirManual(const OpcionesManual &o) {
  ResultadoManual r;
  QStringList archivos = QDir(o.capitulos).entryList({QStringLiteral("*.md")}, QDir::Files);
  archivos.sort();
  if (archivos.isEmpty()) {
    r.error = QStringLiteral("No hay capítulos en %1.").arg(QDir::toNativeSeparators(o.capitulos));
    return r;
  }
  QList<Capitulo> capitulos;
  QHash<QString, QImage> imagenes;
  for (const QString &archivo : archivos) {
    Capitulo c;
    c.archivo = QFileInfo(archivo).completeBaseName();
    r.error = LeerCapitulo(QDir(o.capitulos).filePath(archivo), c, r, imagenes, o.capturas);
    if (!r.error.isEmpty())
      return r;
    capitulos << c;
  }

  QDir().mkpath(QFileInfo(o.salida).absolutePath());
  const QString temporal = o.salida + QStringLiteral(".tmp");
  QPdfWriter pdf(temporal);
  pdf.setResolution(kPuntosPorPulgada);
  pdf.setPageSize(QPageSize(QPageSize::Letter));
  pdf.setPageMargins(QMarginsF(22, 20, 22, 16), QPageLayout::Millimeter);
  pdf.setTitle(QStringLiteral("Escribano: manual del usuario"));
  pdf.setCreator(QStringLiteral("Escribano %1").arg(o.version));
  const QRectF pagina(0, 0, pdf.width(), pdf.height());
  const double alturaCuerpo = pagina.height() - 120; // the page number below

  // The body: every chapter from a page of its own.
  QTextDocument doc;
  doc.documentLayout()->setPaintDevice(&pdf);
  doc.setDefaultFont(Letra(11));
  doc.setDocumentMargin(0);
  doc.setPageSize(QSizeF(pagina.width(), alturaCuerpo));
  for (const auto &[nombre, imagen] : imagenes.asKeyValueRange())
    doc.addResource(QTextDocument::ImageResource, QUrl(nombre), imagen);
  QTextCursor cursor(&doc);
  for (Capitulo &c : capitulos) {
    cursor.movePosition(QTextCursor::End);
    if (!doc.isEmpty())
      cursor.insertBlock();
    c.inicio = cursor.position();
    cursor.insertMarkdown(c.texto, QTextDocument::MarkdownDialectGitHub);
    if (c.inicio == 0)
      continue; // the first begins the body
    QTextCursor primero(doc.findBlock(c.inicio));
    QTextBlockFormat formato = primero.blockFormat();
    formato.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    primero.setBlockFormat(formato);
  }
  AjustarImagenes(doc, imagenes, pagina.width());
  AjustarTablas(doc);
  const int paginasCuerpo = std::max(
      1, static_cast<int>(std::ceil(doc.documentLayout()->documentSize().height() / alturaCuerpo)));
  for (Capitulo &c : capitulos) {
    const QRectF caja = doc.documentLayout()->blockBoundingRect(doc.findBlock(c.inicio));
    c.paginaCuerpo = static_cast<int>((caja.top() + 1) / alturaCuerpo);
  }

  // Pages: the title, the contents, then the body; a chapter's page is the page of the
  // PDF, as a viewer counts them.
  QPainter p(&pdf);
  const QFontMetricsF medidaIndice(Letra(11), &pdf);
  const double renglon = medidaIndice.height() * 1.6;
  const int porPagina = static_cast<int>((alturaCuerpo - 500) / renglon);
  const int paginasIndice =
      std::max(1, static_cast<int>((capitulos.size() + porPagina - 1) / porPagina));
  const int primeraCuerpo = 2 + paginasIndice;
  for (const Capitulo &c : capitulos)
    r.capitulos.append({c.archivo, c.titulo, primeraCuerpo + c.paginaCuerpo});

  p.setFont(Letra(30, true));
  p.drawText(QRectF(0, pagina.height() * 0.28, pagina.width(), 400), Qt::AlignHCenter,
             QStringLiteral("Escribano"));
  p.setFont(Letra(18));
  p.drawText(QRectF(0, pagina.height() * 0.28 + 420, pagina.width(), 300), Qt::AlignHCenter,
             QStringLiteral("Manual del usuario"));
  p.setFont(Letra(11));
  // The version alone: the same chapters and pictures give the same manual.
  p.drawText(QRectF(0, pagina.height() * 0.28 + 800, pagina.width(), 400), Qt::AlignHCenter,
             QStringLiteral("Versión %1").arg(o.version));

  int numero = 1;
  for (int i = 0; i < capitulos.size(); ++i) {
    if (i % porPagina == 0) {
      pdf.newPage();
      ++numero;
      p.setFont(Letra(18, true));
      p.drawText(QRectF(0, 0, pagina.width(), 300), Qt::AlignLeft | Qt::AlignTop,
                 QStringLiteral("Contenido"));
      Pie(p, pagina, numero);
    }
    const double y = 400 + (i % porPagina) * renglon;
    p.setFont(Letra(11));
    const QRectF linea(0, y, pagina.width(), renglon);
    p.drawText(linea, Qt::AlignLeft | Qt::AlignVCenter,
               QStringLiteral("%1. %2").arg(i + 1).arg(capitulos[i].titulo));
    p.drawText(linea, Qt::AlignRight | Qt::AlignVCenter, QString::number(r.capitulos[i].pagina));
  }

  for (int k = 0; k < paginasCuerpo; ++k) {
    pdf.newPage();
    ++numero;
    p.save();
    p.setClipRect(QRectF(0, 0, pagina.width(), alturaCuerpo));
    p.translate(0, -k * alturaCuerpo);
    QAbstractTextDocumentLayout::PaintContext contexto;
    // Only what lies on this page is drawn: a block that begins where the next page
    // does would leave its text, clipped but there, on this one.
    contexto.clip = QRectF(0, k * alturaCuerpo + 1, pagina.width(), alturaCuerpo - 2);
    doc.documentLayout()->draw(&p, contexto);
    p.restore();
    Pie(p, pagina, numero);
  }
  p.end();
  r.paginas = numero;

  // The manual and its index of pages take each other's place together: F1 never reads
  // the pages of another manual.
  const QString indiceTemporal = ayuda::RutaIndice(temporal);
  const QString indice = ayuda::RutaIndice(o.salida);
  if (!ayuda::EscribirIndice(temporal, r.capitulos)) {
    r.error = QStringLiteral("No fue posible escribir el índice %1.")
                  .arg(QDir::toNativeSeparators(indice));
    QFile::remove(temporal);
    return r;
  }
  QFile::remove(o.salida);
  QFile::remove(indice);
  if (!QFile::rename(temporal, o.salida) || !QFile::rename(indiceTemporal, indice)) {
    r.error = QStringLiteral("No fue posible escribir %1.").arg(QDir::toNativeSeparators(o.salida));
    QFile::remove(temporal);
    QFile::remove(indiceTemporal);
  }
  return r;
}

} // namespace manual
