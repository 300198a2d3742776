#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QString>
#include <vector>

class QPushButton;

// The on-screen keyboard of touch stations: letters, digits, the accented letters of
// Spanish in both cases, space and backspace. It returns the text typed, shown as the field
// it types into shows it: a password stays masked.
class frmTeclado : public QDialog {
public:
  explicit frmTeclado(QWidget *padre = nullptr, QLineEdit::EchoMode eco = QLineEdit::Normal);

  // Shows the keyboard modally at the horizontal position x (pixels) and returns the
  // text typed, or the empty text when it was cancelled.
  static QString Pedir(QWidget *padre, int x, QLineEdit::EchoMode eco);

  QString Texto() const;

  QLineEdit *txtTexto;
  QPushButton *cmdMayusculas;
  QPushButton *cmdEspacio;
  QPushButton *cmdBorrar;
  QPushButton *cmdAceptar;
  QPushButton *cmdCancelar;

  // The button that types a character, as it reads now ("a" or "A"); nullptr if none.
  QPushButton *Tecla(const QString &caracter) const;

private:
  void Escribir(const QString &texto);
  void CambiarMayusculas();
  std::vector<QPushButton *> letras_;
};
