#include "shell/Dinero.h"

#include <gtest/gtest.h>

namespace {
Dinero D(const char *texto) { return Dinero::DeTexto(QString::fromLatin1(texto)); }
} // namespace

TEST(Dinero, Round2TiesGoToTheEvenDigit) {
  EXPECT_EQ(Round2(D("0.125")), D("0.12"));
  EXPECT_EQ(Round2(D("0.135")), D("0.14"));
  EXPECT_EQ(Round2(D("-0.125")), D("-0.12"));
  EXPECT_EQ(Round2(D("-0.135")), D("-0.14"));
  EXPECT_EQ(Round2(D("2.5051")), D("2.51"));
  EXPECT_EQ(Round2(D("2.5049")), D("2.5"));
}

TEST(Dinero, FormatRoundsHalfAwayFromZero) {
  EXPECT_EQ(D("0.125").Formato(u"#,##0.00"), QStringLiteral("0.13"));
  EXPECT_EQ(D("-0.125").Formato(u"#,##0.00"), QStringLiteral("-0.13"));
  EXPECT_EQ(D("0.135").Formato(u"#,##0.00"), QStringLiteral("0.14"));
  EXPECT_EQ(D("1234567.891").Formato(u"#,##0.00"), QStringLiteral("1,234,567.89"));
  EXPECT_EQ(D("1250").Formato(u"#,##0.00"), QStringLiteral("1,250.00"));
  EXPECT_EQ(D("-1250.5").Formato(u"#,##0.00"), QStringLiteral("-1,250.50"));
  EXPECT_EQ(D("999.995").Formato(u"#,##0.00"), QStringLiteral("1,000.00"));
  EXPECT_EQ(D("0").Formato(u"#,##0.00"), QStringLiteral("0.00"));
}

TEST(Dinero, FormatWithoutThousands) {
  EXPECT_EQ(D("1234567.891").Formato(u"###0.00"), QStringLiteral("1234567.89"));
  EXPECT_EQ(D("0.125").Formato(u"###0.00"), QStringLiteral("0.13"));
  EXPECT_EQ(D("-7").Formato(u"###0.00"), QStringLiteral("-7.00"));
}

TEST(Dinero, PlainTextHasAsManyDecimalsAsTheValue) {
  EXPECT_EQ(D("1250.5").Texto(), QStringLiteral("1250.5"));
  EXPECT_EQ(D("1250.50").Texto(), QStringLiteral("1250.5"));
  EXPECT_EQ(D("0.125").Texto(), QStringLiteral("0.125"));
  EXPECT_EQ(D("-0.0001").Texto(), QStringLiteral("-0.0001"));
  EXPECT_EQ(D("100").Texto(), QStringLiteral("100"));
  EXPECT_EQ(Dinero().Texto(), QStringLiteral("0"));
}

TEST(Dinero, ExactDecimalTextRoundsBeyondTheFourthDecimalHalfToEven) {
  EXPECT_EQ(D("1.00005").Diezmilesimos(), 10000);
  EXPECT_EQ(D("1.00015").Diezmilesimos(), 10002);
  EXPECT_EQ(D("1.000051").Diezmilesimos(), 10001);
  EXPECT_EQ(D(" 42 ").Diezmilesimos(), 420000);
  EXPECT_EQ(D("-.5").Diezmilesimos(), -5000);
}

TEST(Dinero, TextThatIsNoNumberIsRefused) {
  bool ok = true;
  Dinero::DeTexto(u"12a", &ok);
  EXPECT_FALSE(ok);
  Dinero::DeTexto(u"", &ok);
  EXPECT_FALSE(ok);
  Dinero::DeTexto(u"1.2.3", &ok);
  EXPECT_FALSE(ok);
  Dinero::DeTexto(u"-12.75", &ok);
  EXPECT_TRUE(ok);
}

TEST(Dinero, DoublesComeThroughTheirShortestText) {
  EXPECT_EQ(Dinero::DeDouble(0.1 + 0.2).Diezmilesimos(), 3000);
  EXPECT_EQ(Dinero::DeDouble(1234.5678).Diezmilesimos(), 12345678);
  EXPECT_EQ(Dinero::DeDouble(-0.125).Diezmilesimos(), -1250);
}

TEST(Dinero, ProductKeepsFourDecimalsHalfToEven) {
  EXPECT_EQ(D("3") * D("1.5"), D("4.5"));
  EXPECT_EQ(D("0.0001") * D("0.5"), D("0"));      // 0.00005 ties to even 0
  EXPECT_EQ(D("0.0003") * D("0.5"), D("0.0002")); // 0.00015 ties to even 0.0002
  EXPECT_EQ(D("-2") * D("0.16"), D("-0.32"));
}
