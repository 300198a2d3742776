#pragma once

#include <QAbstractSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <gtest/gtest.h>

// Tries an apostrophe in every text field of a screen, each way it can come: typed, pasted
// with Ctrl+V, Shift+Insert and the context menu's action, dropped, and composed by an
// input method. Every field keeps its text. Gives how many fields were tried.
inline int IntentarApostrofos(QWidget *pantalla) {
  int campos = 0;
  for (QLineEdit *campo : pantalla->findChildren<QLineEdit *>()) {
    if (!campo->isVisible() || !campo->isEnabled() || campo->isReadOnly() ||
        qobject_cast<QAbstractSpinBox *>(campo->parentWidget()))
      continue;
    ++campos;
    const QString nombre =
        campo->objectName().isEmpty() ? campo->parentWidget()->objectName() : campo->objectName();
    campo->setFocus();
    const QString antes = campo->text();
    QTest::keyClick(campo, Qt::Key_Apostrophe, Qt::NoModifier);
    EXPECT_EQ(campo->text(), antes) << "tecleado en " << nombre.toStdString();
    QApplication::clipboard()->setText(QStringLiteral("O'BRIEN"));
    QTest::keyClick(campo, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(campo->text(), antes) << "Ctrl+V en " << nombre.toStdString();
    QTest::keyClick(campo, Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(campo->text(), antes) << "Mayús+Insert en " << nombre.toStdString();
    campo->paste(); // the context menu's "Pegar"
    EXPECT_EQ(campo->text(), antes) << "Pegar en " << nombre.toStdString();
    QMimeData datos;
    datos.setText(QStringLiteral("O'BRIEN"));
    const QPoint punto = campo->rect().center();
    QDragEnterEvent entra(punto, Qt::CopyAction, &datos, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(campo, &entra);
    QDropEvent suelta(punto, Qt::CopyAction, &datos, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(campo, &suelta);
    EXPECT_EQ(campo->text(), antes) << "soltado en " << nombre.toStdString();
    QInputMethodEvent compuesto(QString(), {});
    compuesto.setCommitString(QStringLiteral("'"));
    QApplication::sendEvent(campo, &compuesto);
    EXPECT_EQ(campo->text(), antes) << "método de entrada en " << nombre.toStdString();
    campo->setText(antes);
  }
  return campos;
}
