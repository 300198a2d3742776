#include "shell/Encriptacion.h"
#include "shell/Sesion.h"

#include <gtest/gtest.h>

TEST(Encriptacion, IsReversibleAndAtLeastElevenCharactersWithoutApostrophe) {
  for (const QString &t :
       {QString(), QStringLiteral("a"), QStringLiteral("1234"), QStringLiteral("clave secreta"),
        QStringLiteral("Ñandú;=' x"), QString(300, QLatin1Char('z'))}) {
    const QString e = Encriptar(t);
    EXPECT_GE(e.size(), 11) << t.toStdString();
    EXPECT_FALSE(e.contains(QLatin1Char('\''))) << e.toStdString();
    EXPECT_FALSE(e.contains(QLatin1Char(';')));
    EXPECT_FALSE(e.contains(QLatin1Char('=')));
    EXPECT_FALSE(e.contains(QLatin1Char(' ')));
    EXPECT_EQ(Desencriptar(e), t);
  }
}

TEST(Encriptacion, APlainTextOfElevenCharactersComesOutGarbled) {
  const QString plana = QStringLiteral("abcdefghijk");
  EXPECT_NE(Desencriptar(plana), plana);
  EXPECT_NE(Desencriptar(QStringLiteral("N0000000000")), QStringLiteral("N0000000000"));
}

TEST(DesencriptarConexion, ATextWithoutPasswordIsReturnedUnchanged) {
  const QString t =
      QStringLiteral("Provider=SQLOLEDB.1; Integrated Security=SSPI; Persist Security "
                     "Info=False; Initial Catalog=Tienda; Data Source=SERVIDOR\\");
  EXPECT_EQ(DesencriptarConexion(t), t);
  EXPECT_EQ(DesencriptarConexion(QStringLiteral("DSN=Tienda")), QStringLiteral("DSN=Tienda"));
}

TEST(DesencriptarConexion, ThePasswordIsUnscrambledInPlace) {
  const QString t = QStringLiteral("Provider=SQLOLEDB.1; Password=%1; Persist Security Info=True; "
                                   "User ID=sa; Initial Catalog=Tienda; Data Source=SRV\\SQL")
                        .arg(Encriptar(QStringLiteral("s3creta")));
  EXPECT_EQ(DesencriptarConexion(t),
            QStringLiteral("Provider=SQLOLEDB.1; Password=s3creta; Persist Security Info=True; "
                           "User ID=sa; Initial Catalog=Tienda; Data Source=SRV\\SQL"));
}

TEST(DesencriptarConexion, PwdIsLookedForWhenPasswordIsAbsentAndTheSearchIsCaseSensitive) {
  const QString e = Encriptar(QStringLiteral("x1"));
  EXPECT_EQ(DesencriptarConexion(QStringLiteral("Driver=X;Pwd=%1;UID=a").arg(e)),
            QStringLiteral("Driver=X;Pwd=x1;UID=a"));
  const QString minusculas = QStringLiteral("password=%1;").arg(e);
  EXPECT_EQ(DesencriptarConexion(minusculas), minusculas);
}

TEST(DesencriptarConexion, AnEmptyPasswordStaysEmpty) {
  EXPECT_EQ(DesencriptarConexion(QStringLiteral("A=1; Password=; B=2")),
            QStringLiteral("A=1; Password=; B=2"));
}

TEST(DesencriptarConexion, APasswordAtTheEndRepeatsTheScrambledValueAfterAnEqualsSign) {
  const QString e = Encriptar(QStringLiteral("clave"));
  EXPECT_EQ(DesencriptarConexion(QStringLiteral("User ID=sa; Password=") + e),
            QStringLiteral("User ID=sa; Password=clave=") + e);
}

TEST(CadenaConexionUsuario, StarOrEmptyStandForTheCompanysOwnDatabase) {
  gConexion = QStringLiteral("DSN=Propia");
  EXPECT_EQ(CadenaConexionUsuario(QStringLiteral("*")), QStringLiteral("DSN=Propia"));
  EXPECT_EQ(CadenaConexionUsuario(QStringLiteral("*otra")), QStringLiteral("DSN=Propia"));
  EXPECT_EQ(CadenaConexionUsuario(QString()), QStringLiteral("DSN=Propia"));
  EXPECT_EQ(CadenaConexionUsuario(QStringLiteral("DSN=Cxc")), QStringLiteral("DSN=Cxc"));
  gConexion.clear();
}
