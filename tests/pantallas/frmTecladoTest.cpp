#include "pantallas/frmTeclado.h"
#include "pantallas/Apostrofos.h"

#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

TEST(Teclado, TheKeysTypeAndTheShiftKeyTurnsTheLettersToUpperCase) {
  frmTeclado t;
  QTest::mouseClick(t.Tecla(QStringLiteral("a")), Qt::LeftButton);
  QTest::mouseClick(t.Tecla(QStringLiteral("ñ")), Qt::LeftButton);
  QTest::mouseClick(t.cmdMayusculas, Qt::LeftButton);
  QTest::mouseClick(t.Tecla(QStringLiteral("Á")), Qt::LeftButton);
  QTest::mouseClick(t.cmdEspacio, Qt::LeftButton);
  QTest::mouseClick(t.Tecla(QStringLiteral("7")), Qt::LeftButton);
  QTest::mouseClick(t.cmdBorrar, Qt::LeftButton);
  EXPECT_EQ(t.Texto(), QStringLiteral("añÁ "));
  EXPECT_EQ(t.txtTexto->echoMode(), QLineEdit::Normal);
}

TEST(Teclado, ForAPasswordWhatIsTypedStaysMasked) {
  frmTeclado t(nullptr, QLineEdit::Password);
  QTest::mouseClick(t.Tecla(QStringLiteral("x")), Qt::LeftButton);
  EXPECT_EQ(t.txtTexto->echoMode(), QLineEdit::Password);
  EXPECT_EQ(t.Texto(), QStringLiteral("x"));
  EXPECT_NE(t.txtTexto->displayText(), QStringLiteral("x"));
}

TEST(Teclado, TheApostropheIsRefusedHoweverItComes) {
  frmTeclado t;
  t.show();
  QApplication::setActiveWindow(&t);
  EXPECT_EQ(IntentarApostrofos(&t), 1);
}
