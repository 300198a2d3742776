#include "pantallas/frmTeclado.h"

#include "pantallas/Pantallas.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The rows of keys, in lower case; the shift key turns every letter to upper case.
constexpr const char *kFilas[] = {
    "1234567890", "qwertyuiop", "asdfghjklñ", "zxcvbnm", "áéíóúü",
};

} // namespace

frmTeclado::frmTeclado(QWidget *padre, QLineEdit::EchoMode eco) : QDialog(padre) {
  setObjectName(QStringLiteral("frmTeclado"));
  setWindowTitle(QStringLiteral("Teclado"));
  setModal(true);
  InstalarAyuda(this);
  setStyleSheet(QStringLiteral("QPushButton { background-color: %1; min-width: 34px; "
                               "min-height: 34px; font-size: 14px; }")
                    .arg(ColorFamilia()));

  txtTexto = new QLineEdit(this);
  txtTexto->setObjectName(QStringLiteral("txtTexto"));
  txtTexto->setEchoMode(eco);
  auto *raiz = new QVBoxLayout(this);
  raiz->addWidget(txtTexto);

  for (const char *fila : kFilas) {
    auto *renglon = new QHBoxLayout;
    renglon->addStretch(1);
    for (const QChar c : QString::fromUtf8(fila)) {
      auto *b = new QPushButton(QString(c), this);
      b->setFocusPolicy(Qt::NoFocus);
      connect(b, &QPushButton::clicked, this, [this, b] { Escribir(b->text()); });
      if (c.isLetter())
        letras_.push_back(b);
      renglon->addWidget(b);
    }
    renglon->addStretch(1);
    raiz->addLayout(renglon);
  }

  cmdMayusculas = new QPushButton(QStringLiteral("Mayús"), this);
  cmdMayusculas->setCheckable(true);
  cmdEspacio = new QPushButton(QStringLiteral("Espacio"), this);
  cmdBorrar = new QPushButton(QStringLiteral("Borrar"), this);
  cmdAceptar = new QPushButton(QStringLiteral("Aceptar"), this);
  cmdCancelar = new QPushButton(QStringLiteral("Cancelar"), this);
  for (QPushButton *b : {cmdMayusculas, cmdEspacio, cmdBorrar})
    b->setFocusPolicy(Qt::NoFocus);
  cmdEspacio->setMinimumWidth(180);
  auto *especiales = new QHBoxLayout;
  especiales->addWidget(cmdMayusculas);
  especiales->addWidget(cmdEspacio, 1);
  especiales->addWidget(cmdBorrar);
  raiz->addLayout(especiales);
  auto *botones = new QHBoxLayout;
  botones->addStretch(1);
  botones->addWidget(cmdAceptar);
  botones->addWidget(cmdCancelar);
  raiz->addLayout(botones);
  cmdAceptar->setDefault(true);

  new RechazoApostrofe(this);
  connect(cmdMayusculas, &QPushButton::toggled, this, [this] { CambiarMayusculas(); });
  connect(cmdEspacio, &QPushButton::clicked, this, [this] { Escribir(QStringLiteral(" ")); });
  connect(cmdBorrar, &QPushButton::clicked, this, [this] { txtTexto->backspace(); });
  connect(cmdAceptar, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
}

QString frmTeclado::Pedir(QWidget *padre, int x, QLineEdit::EchoMode eco) {
  frmTeclado teclado(padre, eco);
  teclado.adjustSize();
  teclado.move(x, teclado.y());
  return teclado.exec() == QDialog::Accepted ? teclado.Texto() : QString();
}

QString frmTeclado::Texto() const { return txtTexto->text(); }

QPushButton *frmTeclado::Tecla(const QString &caracter) const {
  for (QPushButton *b : findChildren<QPushButton *>()) {
    if (b->text() == caracter)
      return b;
  }
  return nullptr;
}

void frmTeclado::Escribir(const QString &texto) { txtTexto->insert(texto); }

void frmTeclado::CambiarMayusculas() {
  const bool mayusculas = cmdMayusculas->isChecked();
  for (QPushButton *b : letras_)
    b->setText(mayusculas ? b->text().toUpper() : b->text().toLower());
}
