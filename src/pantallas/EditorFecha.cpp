#include "pantallas/EditorFecha.h"

#include "shell/Sesion.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QTimer>

namespace {

// The field being typed in: one at a time, as the focus is.
QPointer<EditorFecha> gEnCurso;

bool EsDeFecha(const QString &texto) {
  return texto.size() == 1 && (texto[0].isDigit() || QStringLiteral("/-.").contains(texto[0]));
}

} // namespace

EditorFecha::EditorFecha(QWidget *padre) : QDateEdit(Hoy(), padre), vista_(new QLineEdit(this)) {
  setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
  setCalendarPopup(true);
  // What is being typed is shown over the field's own text, which keeps the date.
  vista_->setObjectName(QStringLiteral("txtTecleo"));
  vista_->setFocusPolicy(Qt::NoFocus);
  vista_->setFrame(false);
  vista_->setReadOnly(true);
  vista_->setAttribute(Qt::WA_TransparentForMouseEvents);
  vista_->hide();
}

std::optional<QDate> EditorFecha::FechaDeTexto(const QString &texto) {
  static const QRegularExpression digitos(QStringLiteral("^(\\d{2})(\\d{2})(\\d{4}|\\d{2})$"));
  static const QRegularExpression separada(
      QStringLiteral("^(\\d{1,2})([/.-])(\\d{1,2})\\2(\\d{4}|\\d{2})$"));
  QRegularExpressionMatch m = digitos.match(texto);
  int mes = 2;
  int anio = 3;
  if (!m.hasMatch()) {
    m = separada.match(texto);
    mes = 3;
    anio = 4;
  }
  if (!m.hasMatch())
    return std::nullopt;
  int a = m.captured(anio).toInt();
  if (m.captured(anio).size() == 2)
    a += 2000;
  const QDate fecha(a, m.captured(mes).toInt(), m.captured(1).toInt());
  if (!fecha.isValid())
    return std::nullopt;
  return fecha;
}

bool EditorFecha::ConfirmarEnCurso(bool cancelar) {
  if (!gEnCurso || !gEnCurso->tecleando_)
    return true;
  if (cancelar) {
    gEnCurso->Cancelar();
    return false;
  }
  return gEnCurso->Terminar();
}

void EditorFecha::stepBy(int pasos) {
  if (tecleando_ && !Terminar())
    return;
  setDate(date().addDays(pasos));
}

QAbstractSpinBox::StepEnabled EditorFecha::stepEnabled() const {
  StepEnabled s = StepNone;
  if (date() < maximumDate())
    s |= StepUpEnabled;
  if (date() > minimumDate())
    s |= StepDownEnabled;
  return s;
}

void EditorFecha::keyPressEvent(QKeyEvent *evento) {
  const bool simple = !(evento->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  if (simple && EsDeFecha(evento->text())) {
    if (!tecleando_)
      Empezar();
    if (tecleo_.size() < 10)
      tecleo_ += evento->text();
    rechazado_ = false;
    Mostrar();
    return;
  }
  if (!tecleando_) {
    QDateEdit::keyPressEvent(evento);
    return;
  }
  switch (evento->key()) {
  case Qt::Key_Backspace:
    tecleo_.chop(1);
    rechazado_ = false;
    if (tecleo_.isEmpty())
      Cancelar();
    else
      Mostrar();
    return;
  case Qt::Key_Escape:
    Cancelar();
    return;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (Terminar())
      QDateEdit::keyPressEvent(evento);
    return;
  case Qt::Key_Up:
  case Qt::Key_Down:
  case Qt::Key_PageUp:
  case Qt::Key_PageDown:
    if (Terminar())
      QDateEdit::keyPressEvent(evento);
    return;
  default:
    // Letters and the rest have no place in a date being typed.
    if (!evento->text().isEmpty())
      QApplication::beep();
    return;
  }
}

void EditorFecha::focusOutEvent(QFocusEvent *evento) {
  if (tecleando_ && !Terminar()) {
    // Refused: the focus comes back once the move that took it is over.
    QTimer::singleShot(0, this, [this] { setFocus(); });
  }
  QDateEdit::focusOutEvent(evento);
}

bool EditorFecha::focusNextPrevChild(bool siguiente) {
  if (!tecleando_)
    return QDateEdit::focusNextPrevChild(siguiente); // day, month and year in turn
  // A Tab after typing takes the date and leaves the field.
  if (!Terminar())
    return true;
  return QWidget::focusNextPrevChild(siguiente);
}

void EditorFecha::mousePressEvent(QMouseEvent *evento) {
  // A click (on the arrows, on the calendar's button) begins from the date as it stands.
  if (tecleando_ && !Terminar())
    Cancelar();
  QDateEdit::mousePressEvent(evento);
}

void EditorFecha::resizeEvent(QResizeEvent *evento) {
  QDateEdit::resizeEvent(evento);
  vista_->setGeometry(lineEdit()->geometry());
}

void EditorFecha::Empezar() {
  tecleando_ = true;
  tecleo_.clear();
  gEnCurso = this;
  vista_->setGeometry(lineEdit()->geometry());
  vista_->setFont(lineEdit()->font());
  vista_->show();
}

bool EditorFecha::Terminar() {
  if (!tecleando_)
    return true;
  const std::optional<QDate> fecha = FechaDeTexto(tecleo_);
  if (!fecha || *fecha < minimumDate() || *fecha > maximumDate()) {
    Rechazar();
    return false;
  }
  Cancelar();
  setDate(*fecha);
  return true;
}

void EditorFecha::Cancelar() {
  tecleando_ = false;
  rechazado_ = false;
  tecleo_.clear();
  vista_->hide();
  if (gEnCurso == this)
    gEnCurso = nullptr;
}

void EditorFecha::Mostrar() {
  vista_->setText(tecleo_);
  vista_->setStyleSheet(rechazado_ ? QStringLiteral("background-color: rgb(255, 205, 205);")
                                   : QString());
}

void EditorFecha::Rechazar() {
  rechazado_ = true;
  Mostrar();
  QApplication::beep();
}
