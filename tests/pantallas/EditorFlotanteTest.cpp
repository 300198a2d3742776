#include "pantallas/EditorFlotante.h"

#include <QApplication>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

// A grid whose column 1 opens the text box (index 0), which no screen opens yet: its rules
// are kept for the first grid that will.
TEST(EditorFlotante, TheTextBoxRefusesTheEmptyTextAndUpToThreeBlanks) {
  QTableWidget grilla(2, 2);
  grilla.setEditTriggers(QAbstractItemView::NoEditTriggers);
  for (int f = 0; f < 2; ++f)
    for (int c = 0; c < 2; ++c)
      grilla.setItem(f, c, new QTableWidgetItem(QStringLiteral("antes")));
  int confirmados = 0;
  EditorFlotante editor(&grilla, [](int columna, int *longitud) {
    *longitud = 20;
    return columna == 1 ? 0 : -1;
  });
  editor.alConfirmar = [&] { ++confirmados; };
  grilla.show();
  QApplication::setActiveWindow(&grilla);
  grilla.setFocus();
  const std::pair<const char *, const char *> casos[] = {
      {"   ", "antes"}, {" ", "antes"}, {"    ", "    "}, {"nuevo", "nuevo"}};
  for (const auto &[texto, queda] : casos) {
    grilla.setCurrentCell(0, 1);
    QTest::keyClick(&grilla, Qt::Key_X); // opens the box with the key typed
    QLineEdit *caja = editor.txtCampo(0);
    ASSERT_TRUE(caja->isVisible());
    EXPECT_EQ(caja->text(), QStringLiteral("x"));
    caja->setText(QLatin1String(texto));
    QTest::keyClick(caja, Qt::Key_Return);
    EXPECT_EQ(grilla.item(0, 1)->text(), QLatin1String(queda)) << '"' << texto << '"';
    EXPECT_FALSE(caja->isVisible());
  }
  EXPECT_EQ(confirmados, 4);
  // Column 0 opens nothing.
  grilla.setCurrentCell(0, 0);
  QTest::keyClick(&grilla, Qt::Key_X);
  EXPECT_EQ(editor.Abierto(), nullptr);
}
