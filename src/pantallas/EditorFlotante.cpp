#include "pantallas/EditorFlotante.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableWidget>

bool EsNumerico(const QString &texto) {
  bool ok = false;
  texto.trimmed().toDouble(&ok);
  return ok;
}

EditorFlotante::EditorFlotante(QTableWidget *grilla, Columna columna)
    : QObject(grilla), grilla_(grilla), columna_(std::move(columna)) {
  for (int i = 0; i < 2; ++i) {
    auto *campo = new QLineEdit(grilla->viewport());
    campo->setObjectName(QStringLiteral("txtCampo%1").arg(i));
    campo->hide();
    campo->installEventFilter(this);
    campos_[static_cast<std::size_t>(i)] = campo;
  }
  grilla->installEventFilter(this);
  grilla->viewport()->installEventFilter(this);
  // A box that doesn't follow the cells it stood over hides when they move.
  for (QScrollBar *barra : {grilla->verticalScrollBar(), grilla->horizontalScrollBar()})
    connect(barra, &QScrollBar::valueChanged, this, [this] { Ocultar(); });
}

QLineEdit *EditorFlotante::Abierto() const {
  for (QLineEdit *c : campos_)
    if (c->isVisible())
      return c;
  return nullptr;
}

int EditorFlotante::Indice(const QLineEdit *editor) const { return editor == campos_[1] ? 1 : 0; }

void EditorFlotante::Ocultar() {
  for (QLineEdit *c : campos_)
    c->hide();
}

void EditorFlotante::EditarCelda(QLineEdit *editor, int tecla) {
  const int fila = grilla_->currentRow();
  const int columna = grilla_->currentColumn();
  if (fila < 0 || columna < 0)
    return;
  editor->setGeometry(grilla_->visualRect(grilla_->model()->index(fila, columna)));
  editor->show();
  const QTableWidgetItem *celda = grilla_->item(fila, columna);
  const QString texto = celda ? celda->text() : QString();
  if (tecla > 32 || tecla < 0) {
    editor->setText(QString(QChar(tecla)));
  } else if (columna == 1) {
    editor->setText(texto);
  } else if (!EsNumerico(texto) && Indice(editor) == 1) {
    editor->setText(QStringLiteral("0"));
  } else {
    editor->setText(texto);
  }
  editor->end(false);
  editor->setFocus();
}

void EditorFlotante::TeclaCampo(QLineEdit *editor, int tecla) {
  switch (tecla) {
  case Qt::Key_Space:
    if (editor->text().trimmed().toDouble() != 0) {
      editor->hide();
      grilla_->setFocus();
    }
    break;
  case Qt::Key_Return:
  case Qt::Key_Enter: {
    const QString texto = editor->text();
    // The text box refuses the empty text and one, two or three blanks.
    const bool rechazado = Indice(editor) == 1
                               ? !EsNumerico(texto)
                               : texto.size() <= 3 && texto.count(QLatin1Char(' ')) == texto.size();
    if (!rechazado) {
      QTableWidgetItem *celda = grilla_->item(grilla_->currentRow(), grilla_->currentColumn());
      if (celda)
        celda->setText(texto);
      grilla_->setFocus();
    }
    break;
  }
  case Qt::Key_Up:
  case Qt::Key_Down: {
    grilla_->setFocus();
    QApplication::processEvents();
    const int fila = grilla_->currentRow();
    if (tecla == Qt::Key_Up && fila > 0)
      grilla_->setCurrentCell(fila - 1, grilla_->currentColumn());
    if (tecla == Qt::Key_Down && fila < grilla_->rowCount() - 1)
      grilla_->setCurrentCell(fila + 1, grilla_->currentColumn());
    break;
  }
  default:
    break;
  }
}

bool EditorFlotante::Filtrar(QLineEdit *editor, int tecla, const QString &texto) {
  if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
    if (alConfirmar)
      alConfirmar();
    if (Indice(editor) == 1 && !EsNumerico(editor->text()))
      editor->setText(QStringLiteral("0"));
    editor->hide();
    return false;
  }
  if (tecla == Qt::Key_Backspace)
    return true;
  if (Indice(editor) == 1 && !(texto.size() == 1 && texto[0].isDigit())) {
    if (!texto.isEmpty())
      QApplication::beep();
    return texto.isEmpty(); // keys that type nothing (arrows, Home) pass
  }
  return true;
}

bool EditorFlotante::eventFilter(QObject *objeto, QEvent *evento) {
  auto *editor = qobject_cast<QLineEdit *>(objeto);
  const bool esCampo = editor && (editor == campos_[0] || editor == campos_[1]);
  switch (evento->type()) {
  case QEvent::KeyPress: {
    auto *tecla = static_cast<QKeyEvent *>(evento);
    if (esCampo) {
      TeclaCampo(editor, tecla->key());
      // Up and Down leave the box for the grid: the key is done.
      if (tecla->key() == Qt::Key_Up || tecla->key() == Qt::Key_Down)
        return true;
      return !Filtrar(editor, tecla->key(), tecla->text());
    }
    if (objeto == grilla_ && !tecla->text().isEmpty() && tecla->text()[0].isPrint() &&
        !(tecla->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
      int longitud = 0;
      const int indice = columna_(grilla_->currentColumn(), &longitud);
      if (indice < 0)
        return false;
      txtCampo(indice)->setMaxLength(longitud);
      EditarCelda(txtCampo(indice), tecla->text()[0].unicode());
      return true;
    }
    return false;
  }
  case QEvent::MouseButtonDblClick:
    if (objeto == grilla_->viewport()) {
      const QPoint punto = static_cast<QMouseEvent *>(evento)->position().toPoint();
      const QModelIndex celda = grilla_->indexAt(punto);
      int longitud = 0;
      const int indice = celda.isValid() ? columna_(celda.column(), &longitud) : -1;
      if (indice < 0)
        return true; // a title or a column that can't be edited opens nothing
      grilla_->setCurrentCell(celda.row(), celda.column());
      txtCampo(indice)->setMaxLength(longitud);
      EditarCelda(txtCampo(indice), 32);
      for (QLineEdit *c : campos_)
        c->selectAll();
      return true;
    }
    return false;
  case QEvent::FocusIn:
    if (objeto == grilla_)
      Ocultar();
    else if (esCampo && !editor->isVisible())
      grilla_->setFocus(); // a hidden box hands the focus on
    return false;
  case QEvent::FocusOut:
    if (esCampo)
      editor->hide();
    return false;
  default:
    return false;
  }
}
