#include "shell/Utilerias.h"
#include "shell/Sesion.h"

#include <gtest/gtest.h>

TEST(FolioHora, HourMinuteSecondThenTheCompany) {
  FijarReloj(QDateTime(QDate(2024, 3, 5), QTime(9, 5, 7)));
  gNumEmp = 12;
  EXPECT_EQ(FolioHora(), QStringLiteral("09050712"));
  gNumEmp = 0;
  FijarReloj({});
}

TEST(CaracterValido, OnlyTheNineCodesOfTheTableAreRefused) {
  for (int c : {34, 42, 47, 58, 60, 62, 63, 92, 124})
    EXPECT_EQ(CaracterValido(c), 0) << c;
  EXPECT_EQ(CaracterValido(32), -1); // a blank lies below the range
  EXPECT_EQ(CaracterValido(33), -1);
  EXPECT_EQ(CaracterValido(35), -1); // the hash sign is fine
  EXPECT_EQ(CaracterValido(QChar(u'é').unicode()), -1);
  EXPECT_EQ(CaracterValido(125), -1);
}

TEST(NombreValido, StopsAtTheFirstBadCharacter) {
  EXPECT_EQ(NombreValido(QStringLiteral("Panadería #1 ¡Sí!")), -1);
  EXPECT_EQ(NombreValido(QStringLiteral("Tienda: Centro")), 0);
  EXPECT_EQ(NombreValido(QStringLiteral("a?b")), 0);
  EXPECT_EQ(NombreValido(QString()), 0);
}
