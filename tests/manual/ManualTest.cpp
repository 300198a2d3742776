#include "manual/Manual.h"
#include "Apoyo.h"
#include "shell/Ayuda.h"
#include "shell/CatalogoMensajes.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

const QString kCapitulos = QStringLiteral(ESCRIBANO_RAIZ "/docs/manual");
const QString kCapturas = QStringLiteral(ESCRIBANO_CAPTURAS_PRUEBAS);

// What a tool of poppler-utils writes on its standard output.
QString Poppler(const QString &programa, const QStringList &args) {
  QProcess p;
  p.start(programa, args);
  if (!p.waitForFinished(120000) || p.exitCode() != 0)
    return QStringLiteral("<%1 falló: %2>")
        .arg(programa, QString::fromUtf8(p.readAllStandardError()));
  // The font joins "fi" and "fl" into one glyph, which comes back as its ligature.
  return QString::fromUtf8(p.readAllStandardOutput()).normalized(QString::NormalizationForm_KC);
}

QString Pagina(const QString &pdf, int pagina) {
  const QString n = QString::number(pagina);
  return Poppler(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), QStringLiteral("-f"), n,
                                               QStringLiteral("-l"), n, pdf, QStringLiteral("-")});
}

QString Simple(const QString &texto) { return texto.simplified(); }

// The manual of the repository, built once for the tests that read it.
class Manual : public testing::Test {
protected:
  static void SetUpTestSuite() {
    dir = new QTemporaryDir;
    pdf = dir->filePath(QStringLiteral("Ayuda/TV_PVManual.pdf"));
    resultado = new manual::ResultadoManual(
        manual::EscribirManual({kCapitulos, kCapturas, pdf, QStringLiteral("8.7")}));
  }
  static void TearDownTestSuite() {
    delete resultado;
    delete dir;
  }
  static inline QTemporaryDir *dir = nullptr;
  static inline QString pdf;
  static inline manual::ResultadoManual *resultado = nullptr;
};

} // namespace

TEST_F(Manual, ItHasATitlePageContentsWithTheRealPagesAndNumberedPages) {
  ASSERT_EQ(resultado->error, QString());
  const QString info = Poppler(QStringLiteral("pdfinfo"), {pdf});
  EXPECT_TRUE(
      info.contains(QRegularExpression(QStringLiteral("Pages:\\s+%1\\n").arg(resultado->paginas))))
      << info.toStdString();
  EXPECT_GT(resultado->paginas, 30);
  const QString portada = Simple(Pagina(pdf, 1));
  EXPECT_TRUE(portada.contains(QStringLiteral("Manual del usuario")));
  EXPECT_TRUE(portada.contains(QStringLiteral("Versión 8.7")));

  const QStringList archivos =
      QDir(kCapitulos).entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
  ASSERT_EQ(resultado->capitulos.size(), archivos.size());
  ASSERT_GE(archivos.size(), 12);
  QString contenido;
  for (int p = 2; p < resultado->capitulos[0].pagina; ++p)
    contenido += Pagina(pdf, p);
  EXPECT_TRUE(contenido.contains(QStringLiteral("Contenido")));
  for (int i = 0; i < resultado->capitulos.size(); ++i) {
    const ayuda::PaginaCapitulo &c = resultado->capitulos[i];
    EXPECT_EQ(c.capitulo + QStringLiteral(".md"), archivos[i]);
    // "3. Generación de pólizas      27" in the contents…
    const QRegularExpression linea(QStringLiteral("^\\s*%1\\. %2\\s+%3\\s*$")
                                       .arg(i + 1)
                                       .arg(QRegularExpression::escape(c.titulo))
                                       .arg(c.pagina),
                                   QRegularExpression::MultilineOption);
    EXPECT_TRUE(contenido.contains(linea)) << c.titulo.toStdString();
    // …and the chapter's title heads that very page (on one line or two), which carries
    // its number below.
    const QString texto = Pagina(pdf, c.pagina);
    EXPECT_TRUE(Simple(texto.trimmed().section(QLatin1Char('\n'), 0, 1)).startsWith(c.titulo))
        << c.capitulo.toStdString() << ": " << texto.left(200).toStdString();
    EXPECT_TRUE(
        texto.contains(QRegularExpression(QStringLiteral("\\n\\s*%1\\s*\\n*\\f?$").arg(c.pagina))))
        << c.capitulo.toStdString();
  }
  // F1 reads the same pages beside the manual.
  const QList<ayuda::PaginaCapitulo> indice = ayuda::LeerIndice(pdf);
  ASSERT_EQ(indice.size(), resultado->capitulos.size());
  for (int i = 0; i < indice.size(); ++i)
    EXPECT_EQ(indice[i].pagina, resultado->capitulos[i].pagina);

  // The first pages as pictures, to be looked at.
  Poppler(QStringLiteral("pdftoppm"),
          {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("60"), QStringLiteral("-f"),
           QStringLiteral("1"), QStringLiteral("-l"), QString::number(indice[0].pagina + 1), pdf,
           QDir(kCapturas).filePath(QStringLiteral("manual"))});
}

TEST_F(Manual, EveryScreenIsPicturedWithItsCaption) {
  ASSERT_EQ(resultado->error, QString());
  const QString todo = Simple(Poppler(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")}));
  ASSERT_FALSE(resultado->figuras.isEmpty());
  for (const QString &figura : resultado->figuras)
    EXPECT_TRUE(todo.contains(Simple(figura))) << figura.toStdString();
  for (const ayuda::PantallaCapitulo &p : ayuda::Pantallas()) {
    const QString pantalla = QLatin1String(p.pantalla);
    const bool retratada =
        std::any_of(resultado->imagenes.begin(), resultado->imagenes.end(), [&](const QString &i) {
          return i == pantalla + QStringLiteral(".png") ||
                 i.startsWith(pantalla + QLatin1Char('_'));
        });
    EXPECT_TRUE(retratada) << p.pantalla;
  }
}

TEST(ManualCapitulos, EveryScreensChapterIsAChapterOfTheManual) {
  for (const ayuda::PantallaCapitulo &p : ayuda::Pantallas())
    EXPECT_TRUE(QFileInfo::exists(kCapitulos + QLatin1Char('/') + QLatin1String(p.capitulo) +
                                  QStringLiteral(".md")))
        << p.pantalla;
}

TEST(ManualCapitulos, EveryNumberedMessageIsExplainedWhenSomethingGoesWrong) {
  const QString texto =
      QString::fromUtf8(LeerArchivo(kCapitulos + QStringLiteral("/11-problemas.md")));
  // "| 5520 | the message's text | what it means and what to do |"
  std::set<int> explicados;
  for (auto m = QRegularExpression(QStringLiteral("^\\|\\s*(\\d+)\\s*\\|\\s*([^|]*[^|\\s])\\s*\\|"),
                                   QRegularExpression::MultilineOption)
                    .globalMatch(texto);
       m.hasNext();) {
    const QRegularExpressionMatch fila = m.next();
    const int id = fila.captured(1).toInt();
    explicados.insert(id);
    // The text as the message box shows it, a completion of its own aside ("…").
    EXPECT_TRUE(CatalogoMensajes::Texto(id).startsWith(
        fila.captured(2).remove(QStringLiteral(" …")).remove(QChar(u'…'))))
        << id << ": " << fila.captured(2).toStdString();
  }
  for (const int id : CatalogoMensajes::Ids()) {
    if (id == 100) // the title of the boxes, no message
      continue;
    EXPECT_TRUE(explicados.count(id)) << id << " " << CatalogoMensajes::Texto(id).toStdString();
  }
  for (const int id : explicados)
    EXPECT_TRUE(CatalogoMensajes::Existe(id)) << id;
}

TEST(ManualCapitulos, AMissingPictureOrTitleIsNamedAndNothingIsWritten) {
  QTemporaryDir dir;
  QDir(dir.path()).mkdir(QStringLiteral("c"));
  EscribirArchivo(dir.filePath(QStringLiteral("c/01-uno.md")),
                  "# Uno\n\n![Una pantalla que no existe](frmNoExiste.png)\n");
  const QString pdf = dir.filePath(QStringLiteral("m.pdf"));
  manual::ResultadoManual r =
      manual::EscribirManual({dir.filePath(QStringLiteral("c")), kCapturas, pdf, QString()});
  EXPECT_TRUE(r.error.startsWith(QStringLiteral("Falta la imagen frmNoExiste.png del capítulo "
                                                "01-uno")))
      << r.error.toStdString();
  EXPECT_FALSE(QFileInfo::exists(pdf));
  EscribirArchivo(dir.filePath(QStringLiteral("c/01-uno.md")), "Sin título\n");
  r = manual::EscribirManual({dir.filePath(QStringLiteral("c")), kCapturas, pdf, QString()});
  EXPECT_TRUE(r.error.endsWith(QStringLiteral("no empieza con su título («# …»).")))
      << r.error.toStdString();
  EXPECT_FALSE(QFileInfo::exists(pdf));
}
