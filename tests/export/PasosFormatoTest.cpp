#include "export/PasosFormato.h"
#include "Apoyo.h"

#include <gtest/gtest.h>

namespace {

// A user format that passes every step: one row of folio, date, account and amount;
// marks D / H; mask 4-3-3-0; "AAAAMMDD"; comma without quotes; no fixed width.
ControlesFormato Completo() {
  ControlesFormato c;
  c.lstDos[0] = L({"Folio", "Fecha", "Cuenta", "Importe Debe/Haber"});
  c.lstUno[0] = L({"Tipo de póliza", "Concepto"});
  c.optIncluirCar = 0;
  c.optFormatoCuenta = 1;
  c.txtFormato = {QStringLiteral("4"), QStringLiteral("3"), QStringLiteral("3"),
                  QStringLiteral("0")};
  c.optFormatoFecha = 2;
  c.optSepararDatos = 2;
  return c;
}

// The message of a step, or "" when it passes.
QString Aviso(const ControlesFormato &c, int paso) {
  QString mensaje;
  const bool valido = ValidarPaso(c, paso, mensaje);
  EXPECT_EQ(valido, mensaje.isEmpty()) << paso;
  return mensaje;
}

std::array<QString, 4> Niveles(const char *a, const char *b, const char *c, const char *d) {
  return {QLatin1String(a), QLatin1String(b), QLatin1String(c), QLatin1String(d)};
}

// Fixed widths on, with each box's width and alignment (0 right, 1 left).
void Fija(ControlesFormato &c, std::array<const char *, 7> anchos, std::array<int, 7> al) {
  c.chkLongFija = 1;
  for (int i = 0; i < 7; ++i) {
    c.txtLongitud[i] = QLatin1String(anchos[i]);
    c.cmbAlineacion[i] = al[i];
  }
}

} // namespace

// ------------------------------------------------------------------ the checks of each step

TEST(ValidarPaso, AFullFormatPassesStepsOneToFiveAndStepSixNeverPassesSilently) {
  const ControlesFormato c = Completo();
  for (int paso = 1; paso <= 5; ++paso)
    EXPECT_EQ(Aviso(c, paso), QString()) << paso;
  QString mensaje;
  EXPECT_FALSE(ValidarPaso(c, 6, mensaje));
  EXPECT_EQ(mensaje, QString());
  EXPECT_TRUE(ValidarPaso(ControlesFormato{}, 1, mensaje));
}

TEST(ValidarPaso, StepTwoAsksForRowOneThenForRowTwoOfATwoRowFormat) {
  ControlesFormato c = Completo();
  c.chkDosRenglones = 1;
  c.lstDos[0].clear();
  EXPECT_EQ(Aviso(c, 2), QStringLiteral("Agregue datos en el renglón 1"));
  c.lstDos[0] = L({"Folio"});
  EXPECT_EQ(Aviso(c, 2), QStringLiteral("Agregue datos en el renglón 2"));
  c.lstDos[1] = L({"Cuenta"});
  EXPECT_EQ(Aviso(c, 2), QString());
  c.chkDosRenglones = 0;
  c.lstDos[1].clear();
  EXPECT_EQ(Aviso(c, 2), QString());
}

TEST(ValidarPaso, StepThreeAsksForAStyleAndForBothOtherCharacters) {
  ControlesFormato c = Completo();
  c.optIncluirCar = -1;
  EXPECT_EQ(Aviso(c, 3), QStringLiteral("Seleccione un formato Debe / Haber"));
  c.optIncluirCar = 3;
  c.txtOtroCar = {QStringLiteral("+"), QString()};
  EXPECT_EQ(Aviso(c, 3), QStringLiteral("Especifique un valor para otros caracteres"));
  c.txtOtroCar = {QString(), QStringLiteral("-")};
  EXPECT_EQ(Aviso(c, 3), QStringLiteral("Especifique un valor para otros caracteres"));
  c.txtOtroCar = {QStringLiteral("+"), QStringLiteral("-")};
  EXPECT_EQ(Aviso(c, 3), QString());
  // Separate columns need no mark, and leave the other characters unchecked.
  c.chkImportesColSep = 1;
  c.txtOtroCar = {QString(), QString()};
  EXPECT_EQ(Aviso(c, 3), QString());
  c.optIncluirCar = -1;
  EXPECT_EQ(Aviso(c, 3), QString());
}

TEST(ValidarPaso, StepFourChecksTheSeparatorTheDateThenTheMaskInThatOrder) {
  ControlesFormato c = Completo();
  c.optFormatoCuenta = 2;
  c.optFormatoFecha = -1;
  c.txtFormato = Niveles("4", "0", "3", "0");
  EXPECT_EQ(Aviso(c, 4), QStringLiteral("Especifique el separador de la cuenta"));
  c.txtIncluirOtroSep = QStringLiteral(".");
  EXPECT_EQ(Aviso(c, 4), QStringLiteral("Especifique un formato de fecha"));
  c.optFormatoFecha = 0;
  EXPECT_EQ(Aviso(c, 4), QStringLiteral("Formato incorrecto: no puede especificar 0 dígitos en "
                                        "niveles intermedios"));
  // "Igual" looks at no box.
  c.optFormatoCuenta = 0;
  EXPECT_EQ(Aviso(c, 4), QString());
}

TEST(ValidarPaso, TheMaskHasAtMostSeventeenDigitsAndAtLeastOne) {
  ControlesFormato c = Completo();
  c.txtFormato = Niveles("9", "9", "0", "0");
  EXPECT_EQ(Aviso(c, 4), QStringLiteral("El formato de cuenta no puede exceder los 20 caracteres "
                                        "(incluyendo separadores)"));
  c.txtFormato = Niveles("9", "8", "0", "0");
  EXPECT_EQ(Aviso(c, 4), QString());
  c.txtFormato = Niveles("5", "4", "4", "4");
  EXPECT_EQ(Aviso(c, 4), QString());
  c.txtFormato = Niveles("0", "0", "0", "0");
  EXPECT_EQ(Aviso(c, 4), QStringLiteral("El formato de cuenta no puede tener 0 dígitos"));
  // An intermediate zero is told before the sum.
  c.txtFormato = Niveles("9", "0", "9", "0");
  EXPECT_EQ(Aviso(c, 4), QStringLiteral("Formato incorrecto: no puede especificar 0 dígitos en "
                                        "niveles intermedios"));
}

TEST(ValidarPaso, StepFiveAsksForTheOtherSeparatorThenEachWidthInTheBoxesOrder) {
  ControlesFormato c = Completo();
  c.optSepararDatos = 4;
  Fija(c, {"8", "", "1", "30", "", "12", "12"}, {1, 0, 1, 1, 1, -1, 0});
  EXPECT_EQ(Aviso(c, 5), QStringLiteral("Especifique el separador del archivo"));
  c.txtOtroSep = QStringLiteral(";");
  const char *mensajes[] = {
      "Especifique la longitud y/o alineación de la Fecha",
      "Especifique la longitud y/o alineación de la Cuenta",
      "Especifique la longitud y/o alineación del Importe Debe",
  };
  EXPECT_EQ(Aviso(c, 5), QString::fromUtf8(mensajes[0]));
  c.txtLongitud[1] = QStringLiteral("0"); // a width of 0 passes
  EXPECT_EQ(Aviso(c, 5), QString::fromUtf8(mensajes[1]));
  c.txtLongitud[4] = QStringLiteral("20");
  EXPECT_EQ(Aviso(c, 5), QString::fromUtf8(mensajes[2]));
  c.cmbAlineacion[5] = 0;
  EXPECT_EQ(Aviso(c, 5), QString());
}

TEST(ValidarPaso, EachOfTheSevenWidthsHasItsMessage) {
  const char *mensajes[] = {"del Folio",        "de la Fecha",  "del Tipo de póliza",
                            "del Concepto",     "de la Cuenta", "del Importe Debe",
                            "del Importe Haber"};
  for (int i = 0; i < 7; ++i) {
    ControlesFormato c = Completo();
    Fija(c, {"1", "1", "1", "1", "1", "1", "1"}, {0, 0, 0, 0, 0, 0, 0});
    c.cmbAlineacion[i] = -1;
    EXPECT_EQ(Aviso(c, 5), QStringLiteral("Especifique la longitud y/o alineación ") +
                               QString::fromUtf8(mensajes[i]));
  }
}

TEST(ValidarPaso, AnEmptyWidthPassesWithoutFixedWidth) {
  ControlesFormato c = Completo();
  c.txtLongitud[0] = QString();
  EXPECT_EQ(Aviso(c, 5), QString());
}

TEST(NivelesIntermedios, AZeroMayEndTheMaskButNotStandBetweenLevels) {
  EXPECT_FALSE(NivelesIntermedios(Niveles("4", "3", "3", "0")));
  EXPECT_FALSE(NivelesIntermedios(Niveles("4", "0", "0", "0")));
  EXPECT_FALSE(NivelesIntermedios(Niveles("0", "0", "0", "0")));
  EXPECT_TRUE(NivelesIntermedios(Niveles("4", "0", "3", "0")));
  EXPECT_TRUE(NivelesIntermedios(Niveles("0", "4", "0", "0")));
  EXPECT_TRUE(NivelesIntermedios(Niveles("4", "3", "0", "1")));
}

// ------------------------------------------------------------------ the preview

TEST(CampoMuestra, WithoutFixedWidthTheValueLosesOnlyALeadingPlus) {
  const ControlesFormato c = Completo();
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("+9.99"), 5), QStringLiteral("9.99"));
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("FOLIO"), 0), QStringLiteral("FOLIO"));
}

TEST(CampoMuestra, TextIsFilledWithDashesOnTheSideOfItsAlignmentAndCutWhenLonger) {
  ControlesFormato c = Completo();
  Fija(c, {"8", "4", "0", "12", "", "", ""}, {0, 1, 0, 1, -1, -1, -1});
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("FOLIO"), 0), QStringLiteral("---FOLIO"));
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("DD/MM/AAAA"), 1), QStringLiteral("DD/M"));
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("T"), 2), QString());
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("CONCEPTO"), 3), QStringLiteral("CONCEPTO----"));
  // No alignment chosen fills behind; no width cuts to nothing.
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("0000"), 4), QString());
  c.txtLongitud[4] = QStringLiteral("6");
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("0000"), 4), QStringLiteral("0000--"));
  // A "+" before a text is kept with fixed widths.
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("+X"), 3), QStringLiteral("+X----------"));
}

TEST(CampoMuestra, AmountsStandRightFilledWithNinesAndTheirPlusTakesOneFromTheWidth) {
  ControlesFormato c = Completo();
  Fija(c, {"", "", "", "", "", "12", "6"}, {-1, -1, -1, -1, -1, 1, 1});
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("9.99"), 5), QStringLiteral("999999999.99"));
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("+9.99"), 5), QStringLiteral("99999999.99"));
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("+9.99"), 6), QStringLiteral("99.99"));
  c.txtLongitud[6] = QStringLiteral("3");
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("9.99"), 6), QStringLiteral("9.9"));
  c.txtLongitud[6] = QStringLiteral("0");
  EXPECT_EQ(CampoMuestra(c, QStringLiteral("+9.99"), 6), QString());
}

TEST(CuentaMuestra, IgualIsFourThreeThreeAndEachLevelGivesItsZeros) {
  ControlesFormato c = Completo();
  c.optFormatoCuenta = 0;
  c.txtFormato = Niveles("7", "7", "0", "0");
  EXPECT_EQ(CuentaMuestra(c), QStringLiteral("0000-000-000"));
  c.optFormatoCuenta = 1;
  EXPECT_EQ(CuentaMuestra(c), QStringLiteral("0000000-0000000"));
  c.txtFormato = Niveles("4", "3", "3", "0");
  EXPECT_EQ(CuentaMuestra(c), QStringLiteral("0000-000-000"));
  c.txtFormato = Niveles("2", "2", "2", "2");
  EXPECT_EQ(CuentaMuestra(c), QStringLiteral("00-00-00-00"));
  c.optFormatoCuenta = 2;
  c.txtIncluirOtroSep = QStringLiteral(".");
  c.txtFormato = Niveles("5", "0", "0", "0");
  EXPECT_EQ(CuentaMuestra(c), QStringLiteral("00000"));
  // No option chosen saves the levels with the dash.
  c.optFormatoCuenta = -1;
  c.txtFormato = Niveles("1", "2", "0", "0");
  EXPECT_EQ(CuentaMuestra(c), QStringLiteral("0-00"));
}

TEST(ArmarVistaPrevia, OneRowIsTheSameLineTwelveTimesWithTheDebitSample) {
  ControlesFormato c = Completo();
  c.optSepararDatos = 0; // a blank on the screen, "_" in the record
  const QString linea = QStringLiteral("FOLIO AAAAMMDD 0000-000-000 D 9.99");
  EXPECT_EQ(ArmarVistaPrevia(c), QStringList(12, linea).join(QLatin1Char('\n')));
}

TEST(ArmarVistaPrevia, TwoRowsPutTheHeadAmongDebitAndCreditLines) {
  ControlesFormato c = Completo();
  c.chkDosRenglones = 1;
  c.lstDos[0] = L({"Folio", "Suma Debe/Haber", "Fecha"});
  c.lstDos[1] = L({"Cuenta", "Importe Debe/Haber", "Concepto"});
  c.optIncluirCar = 3;
  c.txtOtroCar = {QStringLiteral("+"), QStringLiteral("-")};
  c.optSepararDatos = 4;
  c.txtOtroSep = QStringLiteral(";");
  const QString r = QStringLiteral("FOLIO;9.99;9.99;AAAAMMDD");
  const QString d = QStringLiteral("0000-000-000;+;9.99;CONCEPTO");
  const QString h = QStringLiteral("0000-000-000;-;9.99;CONCEPTO");
  EXPECT_EQ(ArmarVistaPrevia(c),
            QStringList({r, d, d, h, r, h, d, r, h, d, d, h}).join(QLatin1Char('\n')));
}

TEST(ArmarVistaPrevia, SeparateColumnsGiveTwoAmountsAndNoMark) {
  ControlesFormato c = Completo();
  c.chkImportesColSep = 1;
  c.optSepararDatos = 1;
  EXPECT_TRUE(ArmarVistaPrevia(c).startsWith(
      QStringLiteral("\"FOLIO\",\"AAAAMMDD\",\"0000-000-000\",\"9.99\",\"9.99\"\n")));
}

TEST(ArmarVistaPrevia, WithoutSeparatorAnEmptyFieldEndsTheRowAndTheLastCharacterGoes) {
  ControlesFormato c = Completo();
  c.optSepararDatos = 3;
  Fija(c, {"5", "0", "1", "1", "12", "4", "4"}, {0, 0, 0, 0, 0, 0, 0});
  // The date of width 0 is empty: the row stops before it and loses the folio's "O".
  EXPECT_EQ(ArmarVistaPrevia(c).section(QLatin1Char('\n'), 0, 0), QStringLiteral("FOLI"));
  // With no style chosen the amount is empty as well.
  c.txtLongitud[1] = QStringLiteral("8");
  c.optIncluirCar = -1;
  EXPECT_EQ(ArmarVistaPrevia(c).section(QLatin1Char('\n'), 0, 0),
            QStringLiteral("FOLIOAAAAMMDD0000-000-00"));
}

TEST(ArmarVistaPrevia, BeforeTheFirstPreviewTheDesignsTextIsShown) {
  EXPECT_EQ(VistaPreviaInicial(),
            QStringLiteral(
                "\"FOLIO----\",\"AAAMMMDD\",\"T\",\"CONCEPTO---------------------------------\"\n"
                "\"0000-000-00\",\"D\",\"999999999.99\"\n"
                "\"0000-000-00\",\"H\",\"999999999.99\""));
}
