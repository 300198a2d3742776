#pragma once

#include <QDate>
#include <QDateEdit>
#include <QString>
#include <optional>

class QLineEdit;

// The date field of every screen: "dd/MM/yyyy" with its calendar. A date is typed as a
// bookkeeper reads it ("31102026", "31/10/2026", "31-10-26"): what is typed is shown as it
// is typed, and is taken whole when the field is left (Enter, Tab, a click elsewhere, a
// button of the toolbar), never corrected one part against another; a text that is no
// real date is refused visibly: the field turns red, keeps the focus and its old date, and
// beeps. Esc gives up the typing. The arrows move the date day by day.
class EditorFecha : public QDateEdit {
public:
  explicit EditorFecha(QWidget *padre = nullptr);

  // The date a typed text stands for: eight digits (ddMMyyyy), six (ddMMyy), or day, month
  // and year separated by "/", "-" or "." with a year of two or four digits (two digits
  // are of this century). None for a text that is no real date.
  static std::optional<QDate> FechaDeTexto(const QString &texto);

  // The field being typed in, if any, settles its date: true when there was none or its
  // text was taken, false when it was refused (shown). With cancelar, the typing is given
  // up instead and false returned, so that Esc doesn't close the screen under it.
  static bool ConfirmarEnCurso(bool cancelar = false);

  bool EnTecleo() const { return tecleando_; }
  // What has been typed and not yet taken.
  QString Tecleado() const { return tecleo_; }

  void stepBy(int pasos) override;

protected:
  StepEnabled stepEnabled() const override;
  void keyPressEvent(QKeyEvent *evento) override;
  void focusOutEvent(QFocusEvent *evento) override;
  bool focusNextPrevChild(bool siguiente) override;
  void mousePressEvent(QMouseEvent *evento) override;
  void resizeEvent(QResizeEvent *evento) override;

private:
  void Empezar();
  bool Terminar();
  void Cancelar();
  void Mostrar();
  void Rechazar();

  QLineEdit *vista_;
  QString tecleo_;
  bool tecleando_ = false;
  bool rechazado_ = false;
};
