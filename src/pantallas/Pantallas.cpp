#include "pantallas/Pantallas.h"

#include "pantallas/EditorFecha.h"

#include "shell/Ayuda.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Rutas.h"
#include "shell/Sesion.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QDateEdit>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QLocale>
#include <QPainter>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcutEvent>
#include <QTranslator>
#include <QUrl>
#include <QValidator>
#include <QWidget>

QString ColorFamilia() { return QStringLiteral("rgb(210, 230, 245)"); }

int Twips(const QWidget *w, int twips) { return twips * w->logicalDpiX() / 1440; }

bool PrepararIdioma() {
  QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Mexico));
  auto *traductor = new QTranslator(qApp);
  const QString carpeta = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (!traductor->load(QLocale(QLocale::Spanish), QStringLiteral("qtbase"), QStringLiteral("_"),
                       carpeta)) {
    delete traductor;
    return false;
  }
  QCoreApplication::installTranslator(traductor);
  return true;
}

QString PedirArchivo(QWidget *padre, const QString &titulo, const QString &filtro,
                     const QString &carpeta, bool guardar) {
  // Qt's own dialog, which speaks the program's language whatever the desktop's.
  QFileDialog dialogo(padre, titulo, RutaNativa(carpeta), filtro);
  dialogo.setOption(QFileDialog::DontUseNativeDialog);
  if (guardar) {
    // The screen asks its own question before writing over a file.
    dialogo.setAcceptMode(QFileDialog::AcceptSave);
    dialogo.setOption(QFileDialog::DontConfirmOverwrite);
    dialogo.setDefaultSuffix(QStringLiteral("txt"));
  } else {
    // A file that doesn't exist yet may be named as well (a log the run creates).
    dialogo.setFileMode(QFileDialog::AnyFile);
    dialogo.setAcceptMode(QFileDialog::AcceptOpen);
  }
  if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty())
    return {};
  return QDir::toNativeSeparators(dialogo.selectedFiles().constFirst());
}

void PrepararVentana(QDialog *ventana, const QString &nombre, const QString &titulo) {
  ventana->setObjectName(nombre);
  ventana->setWindowTitle(titulo);
  ventana->setModal(true);
  ventana->setStyleSheet(
      QStringLiteral("#%1 { background-color: %2; }").arg(nombre, ColorFamilia()));
  InstalarAyuda(ventana);
}

QDateEdit *CampoFecha(QWidget *padre, const QString &nombre) {
  auto *d = new EditorFecha(padre);
  d->setObjectName(nombre);
  return d;
}

VistaPreviaTeclas::VistaPreviaTeclas(QWidget *ventana, Manejador manejador)
    : QObject(ventana), manejador_(std::move(manejador)) {
  // The window sees the key events of all its children through the application.
  qApp->installEventFilter(this);
}

bool VistaPreviaTeclas::eventFilter(QObject *objeto, QEvent *evento) {
  if (evento->type() != QEvent::KeyPress)
    return false;
  auto *control = qobject_cast<QWidget *>(objeto);
  auto *ventana = qobject_cast<QWidget *>(parent());
  if (!control || !ventana || (control != ventana && !ventana->isAncestorOf(control)))
    return false;
  // A key that the focused control didn't take travels up to its parents: it was seen
  // already when it reached the control.
  QWidget *foco = QApplication::focusWidget();
  if (foco && control != foco && control->isAncestorOf(foco))
    return false;
  return manejador_(control, static_cast<QKeyEvent *>(evento));
}

namespace {

// The check of one text field: no more apostrophes than it held before the change (the
// text set by the program, read from the database, counts as held). Wraps the field's own
// validator: a digits-only field stays so.
class ValidadorSinApostrofe : public QValidator {
public:
  ValidadorSinApostrofe(QLineEdit *campo, const QValidator *propio)
      : QValidator(campo), campo_(campo), propio_(propio), anterior_(campo->text()) {
    connect(campo, &QLineEdit::textChanged, this, [this](const QString &t) { anterior_ = t; });
  }
  State validate(QString &texto, int &posicion) const override {
    // A text set by the program isn't the user's: it is taken as it comes.
    if (campo_->isModified() &&
        texto.count(QLatin1Char('\'')) > anterior_.count(QLatin1Char('\''))) {
      QApplication::beep();
      return Invalid;
    }
    return propio_ ? propio_->validate(texto, posicion) : Acceptable;
  }
  void fixup(QString &texto) const override {
    if (propio_)
      propio_->fixup(texto);
  }

private:
  QLineEdit *campo_;
  QPointer<const QValidator> propio_;
  QString anterior_;
};

} // namespace

RechazoApostrofe::RechazoApostrofe(QWidget *ventana)
    : VistaPreviaTeclas(ventana,
                        [](QWidget *, QKeyEvent *tecla) {
                          if (tecla->text() != QLatin1String("'"))
                            return false;
                          QApplication::beep();
                          return true;
                        }),
      ventana_(ventana) {
  for (QLineEdit *campo : ventana->findChildren<QLineEdit *>())
    Vigilar(campo);
}

bool RechazoApostrofe::eventFilter(QObject *objeto, QEvent *evento) {
  // Fields made after the window get their check before they are first shown.
  if (evento->type() == QEvent::Polish)
    if (auto *campo = qobject_cast<QLineEdit *>(objeto); campo && ventana_->isAncestorOf(campo))
      Vigilar(campo);
  return VistaPreviaTeclas::eventFilter(objeto, evento);
}

void RechazoApostrofe::Vigilar(QLineEdit *campo) {
  // A date's text is its own; the check is put on once.
  if (qobject_cast<QAbstractSpinBox *>(campo->parentWidget()) ||
      dynamic_cast<const ValidadorSinApostrofe *>(campo->validator()))
    return;
  campo->setValidator(new ValidadorSinApostrofe(campo, campo->validator()));
}

namespace {

std::function<void(const QUrl &)> gAbridor;

bool EsExcepcion(QWidget *control, QWidget *ventana, const QStringList &excepciones) {
  for (QWidget *w = control; w; w = w->parentWidget()) {
    if (excepciones.contains(w->objectName()))
      return true;
    if (w == ventana)
      break;
  }
  return false;
}

} // namespace

EnterSiguiente::EnterSiguiente(QWidget *ventana, QStringList excepciones)
    : VistaPreviaTeclas(ventana, [ventana, excepciones](QWidget *control, QKeyEvent *tecla) {
        if (tecla->key() != Qt::Key_Return && tecla->key() != Qt::Key_Enter)
          return false;
        if (EsExcepcion(control, ventana, excepciones))
          return false;
        EnviarTab(control);
        return true;
      }) {}

QStringList ConTeclas(const QStringList &leyendas) {
  QString tomadas;
  QStringList conTecla;
  for (const QString &leyenda : leyendas) {
    QString marcada = leyenda;
    for (qsizetype i = 0; i < leyenda.size(); ++i) {
      const QChar letra = leyenda[i].toLower();
      if (letra.isLetter() && letra.unicode() < 128 && !tomadas.contains(letra)) {
        tomadas += letra;
        marcada.insert(i, QLatin1Char('&'));
        break;
      }
    }
    conTecla << marcada;
  }
  return conTecla;
}

EtiquetaRecortada::EtiquetaRecortada(QWidget *padre) : QLabel(padre) {}

void EtiquetaRecortada::Tip(const QString &tip) {
  tip_ = tip;
  setToolTip(tip);
}

QSize EtiquetaRecortada::minimumSizeHint() const {
  return {fontMetrics().horizontalAdvance(QStringLiteral("…")) + 2 * margin(),
          QLabel::minimumSizeHint().height()};
}

void EtiquetaRecortada::paintEvent(QPaintEvent *) {
  const QRect zona = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
  const QString visible = fontMetrics().elidedText(text(), Qt::ElideRight, zona.width());
  setToolTip(visible == text() ? tip_ : text());
  QPainter pintor(this);
  pintor.setPen(palette().color(QPalette::WindowText));
  pintor.drawText(zona, static_cast<int>(alignment()), visible);
}

void EnviarTab(QWidget *control) {
  // To the window, not the control: a date keeps a Tab of its own to move between day,
  // month and year, while the window moves the focus on from whatever control has it.
  QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
  QCoreApplication::sendEvent(control->window(), &tab);
}

RelojArena::RelojArena() { QApplication::setOverrideCursor(Qt::WaitCursor); }

RelojArena::~RelojArena() { QApplication::restoreOverrideCursor(); }

void AbrirArchivo(QWidget *ventana, const QString &ruta) {
  Q_UNUSED(ventana);
  AbrirDireccion(QUrl::fromLocalFile(RutaNativa(ruta)));
}

void AbrirAyuda(QWidget *ventana) {
  const QString manual =
      RutaNativa(gRutaAyuda.isEmpty() ? ayuda::RutaManual(gRutaApp) : gRutaAyuda);
  if (!QFileInfo::exists(manual)) {
    CatalogoMensajes::MostrarTexto(QStringLiteral("No se encontró el manual del usuario en %1.")
                                       .arg(QDir::toNativeSeparators(manual)),
                                   IconoMensaje::Advertencia);
    return;
  }
  AbrirDireccion(ayuda::Direccion(manual, ventana->window()->objectName()));
}

void InstalarAyuda(QWidget *ventana) {
  // A toolbar's help button, made after the window, sees F1 first and takes it.
  new VistaPreviaTeclas(ventana, [ventana](QWidget *, QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_F1 || tecla->modifiers() != Qt::NoModifier)
      return false;
    AbrirAyuda(ventana);
    return true;
  });
}

void AbrirDireccion(const QUrl &direccion) {
  if (gAbridor)
    gAbridor(direccion);
  else
    QDesktopServices::openUrl(direccion);
}

void InstalarAbridor(std::function<void(const QUrl &)> abridor) { gAbridor = std::move(abridor); }

Avance CrearAvance(QWidget *padre) {
  auto *panel = new QWidget(padre);
  panel->setObjectName(QStringLiteral("fraAvance"));
  Avance a{new QProgressBar(panel), new QLabel(panel),
           new QPushButton(QStringLiteral("Detener"), panel), panel};
  a.barra->setObjectName(QStringLiteral("prgAvance"));
  a.etiqueta->setObjectName(QStringLiteral("lblAvance"));
  a.detener->setObjectName(QStringLiteral("cmdDetener"));
  a.detener->setToolTip(QStringLiteral("Detiene el proceso al terminar lo que está en curso"));
  a.detener->setAutoDefault(false);
  auto *capa = new QGridLayout(panel);
  capa->setContentsMargins(0, 0, 0, 0);
  capa->addWidget(a.etiqueta, 0, 0, 1, 2);
  capa->addWidget(a.barra, 1, 0);
  capa->addWidget(a.detener, 1, 1);
  capa->setColumnStretch(0, 1);
  QSizePolicy politica = panel->sizePolicy();
  politica.setRetainSizeWhenHidden(true);
  panel->setSizePolicy(politica);
  panel->hide();
  return a;
}

TareaEnCurso::TareaEnCurso(const Avance &avance) : avance_(avance) {
  avance_.detener->setEnabled(true);
  avance_.detener->setText(QStringLiteral("Detener"));
  QObject::connect(avance_.detener, &QPushButton::clicked, this, &TareaEnCurso::Detener);
  qApp->installEventFilter(this);
  reloj_.start();
}

TareaEnCurso::~TareaEnCurso() {
  qApp->removeEventFilter(this);
  avance_.panel->hide();
}

void TareaEnCurso::Detener() {
  detenida_ = true;
  avance_.detener->setEnabled(false);
  avance_.detener->setText(QStringLiteral("Deteniendo…"));
}

void TareaEnCurso::Mostrar(int valor, int maximo, const QString &texto) {
  avance_.barra->setRange(0, maximo);
  if (maximo > 0)
    avance_.barra->setValue(valor);
  avance_.etiqueta->setText(texto);
  const qint64 ahora = reloj_.elapsed();
  if (ultimo_ >= 0 && ahora - ultimo_ < 50)
    return;
  if (ultimo_ < 0) {
    avance_.panel->show();
    avance_.detener->setFocus();
  }
  ultimo_ = ahora;
  QCoreApplication::processEvents();
}

bool TareaEnCurso::eventFilter(QObject *objeto, QEvent *evento) {
  // Shortcuts (F10, Esc on the toolbar) reach their action, not a control.
  if (evento->type() == QEvent::Shortcut) {
    if (static_cast<QShortcutEvent *>(evento)->key() == QKeySequence(Qt::Key_Escape) && !detenida_)
      avance_.detener->click();
    return true;
  }
  // The window hands each event on to its control: the control's copy is the one judged.
  if (!objeto->isWidgetType())
    return false;
  switch (evento->type()) {
  case QEvent::KeyPress:
    if (static_cast<QKeyEvent *>(evento)->key() == Qt::Key_Escape) {
      if (!detenida_)
        avance_.detener->click();
      return true;
    }
    [[fallthrough]];
  case QEvent::KeyRelease:
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::Wheel:
    return objeto != avance_.detener;
  case QEvent::Close:
    evento->ignore();
    return true;
  default:
    return false;
  }
}
