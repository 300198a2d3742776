// Known answers that can never change: scrambled passwords and connection texts are read
// by the family's other modules, files by the accounting package, amounts by people.
#include "shell/Dinero.h"
#include "shell/Encriptacion.h"
#include "shell/Rutas.h"

#include <gtest/gtest.h>
#include <limits>

using namespace Qt::Literals::StringLiterals;

TEST(ValoresFijos, TheScramblingOfAPasswordIsAlwaysTheSame) {
  const std::pair<QString, QString> casos[] = {
      {u""_s, u"NAAAALWhs3C"_s},
      {u"a"_s, u"NABhvqhs3CN"_s},
      {u"abc"_s, u"NADmmosyC6m"_s},
      {u"demo"_s, u"NAEllqr0w3G6"_s},
      {u"ADMIN"_s, u"NAFpszu1EvMMTT"_s},
      {u"Contraseña 1"_s, u"NANlnnruw6H1LCSIXNfYqYsawZ5hNl"_s},
      {u"ñÑ€"_s, u"NAHYYgkhomqtxzBsJv"_s},
      {u"x'y\"z;="_s, u"NAHss1C0LGLQXTXXnc"_s},
      {u"12345678901234567890123456789012345678901234567890"_s,
       u"NAyBFGKJRHXNbZbfffnbwkurQmUsbpgtl1lzpNxJ1TKZKbQfVYabghffjrrxvpP3Qsa5gMkSjHpTtb1Z5TJhOj"
       u"Sratcpdqitozv5DNTJ"_s},
  };
  for (const auto &[clave, mezcla] : casos) {
    EXPECT_EQ(Encriptar(clave), mezcla) << clave.toStdString();
    EXPECT_EQ(Desencriptar(mezcla), clave) << clave.toStdString();
  }
  EXPECT_EQ(DesencriptarConexion(u"Provider=SQLOLEDB.1; Password=NADmmosyC6m; User ID=sa"_s),
            u"Provider=SQLOLEDB.1; Password=abc; User ID=sa"_s);
}

TEST(ValoresFijos, EveryCharacterOfWindows1252HasItsByte) {
  // 0x80 to 0x9F: the code page's own characters, and the five it leaves undefined.
  const char16_t altos[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                              0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                              0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                              0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
  QByteArray todos;
  QString texto;
  for (int b = 0; b < 256; ++b) {
    todos += static_cast<char>(b);
    texto += (b >= 0x80 && b < 0xA0) ? QChar(altos[b - 0x80]) : QChar(static_cast<char16_t>(b));
  }
  EXPECT_EQ(DecodificarWindows1252(todos), texto);
  EXPECT_EQ(CodificarWindows1252(texto), todos);
  EXPECT_EQ(CodificarWindows1252(u"Ā中😀"_s), QByteArray("????")); // outside: one '?' a unit
}

TEST(ValoresFijos, TheBookkeepersFormatAndRound2AtTheEdges) {
  const std::int64_t maximo = std::numeric_limits<std::int64_t>::max();
  const Dinero mayor = Dinero::DeDiezmilesimos(maximo);
  const Dinero menor = Dinero::DeDiezmilesimos(-maximo);
  EXPECT_EQ(mayor.Formato(u"#,##0.00"), u"922,337,203,685,477.58"_s);
  EXPECT_EQ(menor.Formato(u"#,##0.00"), u"-922,337,203,685,477.58"_s);
  EXPECT_EQ(Round2(mayor).Texto(), u"922337203685477.58"_s);
  EXPECT_EQ(Round2(menor).Texto(), u"-922337203685477.58"_s);
  EXPECT_EQ(Dinero::DeDiezmilesimos(50).Formato(u"#,##0.00"), u"0.01"_s);   // 0.005 away
  EXPECT_EQ(Dinero::DeDiezmilesimos(-50).Formato(u"#,##0.00"), u"-0.01"_s); // from zero
  EXPECT_EQ(Dinero::DeDiezmilesimos(49).Formato(u"#,##0.00"), u"0.00"_s);
  EXPECT_EQ(Round2(Dinero::DeDiezmilesimos(50)).Diezmilesimos(), 0);      // 0.005 to even 0.00
  EXPECT_EQ(Round2(Dinero::DeDiezmilesimos(150)).Diezmilesimos(), 200);   // 0.015 to 0.02
  EXPECT_EQ(Round2(Dinero::DeDiezmilesimos(-250)).Diezmilesimos(), -200); // -0.025 to -0.02
  EXPECT_EQ(Round2(Dinero::DeDiezmilesimos(-251)).Diezmilesimos(), -300);
}

TEST(ValoresFijos, ProductsKeepFourDecimalsHalfToEvenAcrossTheWholeRange) {
  // Computed apart with exact integers: the product is taken in full before it is rounded.
  const std::int64_t casos[][3] = {
      {30000LL, 15000LL, 45000LL},
      {1LL, 5000LL, 0LL},
      {3LL, 5000LL, 2LL},
      {-20000LL, 1600LL, -3200LL},
      {9223372036854775807LL, 10000LL, 9223372036854775807LL},
      {-9223372036854775807LL, 10000LL, -9223372036854775807LL},
      {9223372036854775807LL, -10000LL, -9223372036854775807LL},
      {9223372036854775LL, 10000000LL, 9223372036854775000LL},
      {123456789012345678LL, 720000LL, 8888888808888888816LL},
      {-123456789012345678LL, 720001LL, -8888901154567790051LL},
      {5LL, 5000LL, 2LL},
      {15LL, 5000LL, 8LL},
      {25LL, 5000LL, 12LL},
      {-25LL, 5000LL, -12LL},
      {1000000000001LL, 1000003LL, 100000300000100LL},
      {30370004990LL, 30370004990LL, 92233720309262490LL},
  };
  for (const auto &c : casos)
    EXPECT_EQ((Dinero::DeDiezmilesimos(c[0]) * Dinero::DeDiezmilesimos(c[1])).Diezmilesimos(), c[2])
        << c[0] << " x " << c[1];
}
