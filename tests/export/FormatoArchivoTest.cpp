#include "ApoyoExportacion.h"
#include "shell/ErrorFatal.h"

#include <gtest/gtest.h>

using namespace exportacion;

namespace {

const QString kLecturaExportacion = QStringLiteral(
    "SELECT NO_REN,SEP_COM,SEP_DAT,DEB_HAB,CHAR_UNO,CHAR_DOS,REN_FOL,REN_FEC,REN_TIP,REN_CTA,"
    "REN_CON,REN_IMP,REN2_FOL,REN2_FEC,REN2_TIP,REN2_CTA,REN2_CON,REN2_IMP,F_FECHA,LON_FIJA,"
    "LON_FOL, LON_FEC, LON_TIP,LON_CTA,LON_CON,LON_DEB,LON_HAB,AL_FOL,AL_FEC, AL_TIP,AL_CTA,"
    "AL_CON,AL_DEB,AL_HAB,FORM_CTA,CHAR_SEP,CERO_IZQ FROM tblParametrosForm;");

const QString kLecturaPantalla = QStringLiteral(
    "SELECT NO_REN, SEP_COM, SEP_DAT, DEB_HAB, CHAR_UNO, CHAR_DOS, REN_FOL, REN_FEC, REN_TIP, "
    "REN_CTA, REN_CON, REN_IMP, REN2_FOL, REN2_FEC, REN2_TIP, REN2_CTA, REN2_CON, REN2_IMP, "
    "F_FECHA, LON_FIJA, LON_FOL, LON_FEC, LON_TIP, LON_CTA, LON_CON, LON_DEB, LON_HAB, AL_FOL, "
    "AL_FEC, AL_TIP, AL_CTA, AL_CON, AL_DEB, AL_HAB, FORM_CTA, CHAR_SEP, CERO_IZQ  FROM "
    "tblParametrosForm;");

QStringList Seis() {
  return {QStringLiteral("Folio"),          QStringLiteral("Fecha"),
          QStringLiteral("Tipo de póliza"), QStringLiteral("Cuenta"),
          QStringLiteral("Concepto"),       QStringLiteral("Importe Debe/Haber")};
}

class Formato : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
  }
  FormatoArchivo Cargar(const Columnas &c) {
    InsertarFormato(*con, c);
    FormatoArchivo f;
    EXPECT_TRUE(CargarFormato(*con, f));
    return f;
  }
  FormatoArchivo CargarCon(const char *columna, const char *valor) {
    Columnas c = FormatoUsuario();
    c[QLatin1String(columna)] = QLatin1String(valor);
    return Cargar(c);
  }
  ControlesFormato Leer() {
    ControlesFormato c;
    LeerFormato(*con, c);
    return c;
  }
  ControlesFormato LeerCon(const Columnas &columnas) {
    InsertarFormato(*con, columnas);
    return Leer();
  }
  // Saves the screen and gives the statements and the box shown.
  void Grabar(const ControlesFormato &c) {
    emp->grabadora.sentencias.clear();
    emp->mensajes.mostrados.clear();
    GrabarFormato(*con, c);
  }
  std::vector<int> Mensajes() const { return emp->mensajes.Ids(); }
  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

// A user format of one row as the screen holds it before saving.
ControlesFormato PantallaUnRenglon() {
  ControlesFormato c;
  c.lstDos[0] = {QStringLiteral("Folio"), QStringLiteral("Fecha"), QStringLiteral("Cuenta"),
                 QStringLiteral("Importe Debe/Haber")};
  c.lstUno[0] = {QStringLiteral("Tipo de póliza"), QStringLiteral("Concepto")};
  c.lstUno[1] = Seis();
  c.optIncluirCar = 1;
  c.optFormatoCuenta = 1;
  c.txtFormato = {QStringLiteral("4"), QStringLiteral("3"), QStringLiteral("3"),
                  QStringLiteral("0")};
  c.chkIncluirCeros = 1;
  c.optFormatoFecha = 2;
  c.optSepararDatos = 2;
  return c;
}

} // namespace

// ---------------------------------------------------------------- CargarFormato

TEST_P(Formato, WithoutARowMessage5522IsShownAndNothingIsRead) {
  FormatoArchivo f;
  EXPECT_FALSE(CargarFormato(*con, f));
  EXPECT_TRUE(f.FormatoLeido);
  EXPECT_EQ(emp->grabadora.sentencias, QStringList{kLecturaExportacion});
  ASSERT_EQ(Mensajes(), std::vector<int>{5522});
  const Mensaje &m = emp->mensajes.mostrados[0];
  EXPECT_EQ(m.titulo, CatalogoMensajes::Texto(100));
  EXPECT_EQ(m.texto, CatalogoMensajes::Texto(5522));
  EXPECT_EQ(m.icono, IconoMensaje::Advertencia);
}

TEST_P(Formato, APackageRowGivesThePresetWhateverTheOtherColumnsHoldNullsIncluded) {
  InsertarFormato(*con, {{QStringLiteral("NO_REN"), QStringLiteral("0")}});
  FormatoArchivo f;
  ASSERT_TRUE(CargarFormato(*con, f));
  EXPECT_TRUE(f.FormatoLeido);
  EXPECT_TRUE(f.EsPaquete);
  EXPECT_EQ(f.NumRenglones, 0);
  EXPECT_EQ(f.Separador, QStringLiteral(" "));
  EXPECT_EQ(f.Encierro, QString());
  EXPECT_FALSE(f.ColumnasSeparadas);
  EXPECT_EQ(f.MarcaDebe, QStringLiteral("1"));
  EXPECT_EQ(f.MarcaHaber, QStringLiteral("2"));
  EXPECT_EQ(f.Renglon1, (std::array<int, 6>{1, 1, 1, 2, 1, 2}));
  EXPECT_EQ(f.Renglon2, (std::array<int, 6>{}));
  EXPECT_EQ(f.MascaraFecha, QStringLiteral("YYYYMMDD"));
  EXPECT_TRUE(f.LongitudFija);
  EXPECT_EQ((std::array<int, 7>{f.LongFolio, f.LongFecha, f.LongTipo, f.LongCuenta, f.LongConcepto,
                                f.LongDebe, f.LongHaber}),
            (std::array<int, 7>{8, 8, 1, 20, 100, 16, 16}));
  EXPECT_EQ((std::array<int, 7>{f.AlFolio, f.AlFecha, f.AlTipo, f.AlCuenta, f.AlConcepto, f.AlDebe,
                                f.AlHaber}),
            (std::array<int, 7>{2, 2, 2, 2, 2, 1, 1}));
  EXPECT_EQ(f.Niveles, (std::array<int, 4>{7, 0, 0, 0}));
  EXPECT_EQ(f.SeparadorCuenta, QString()); // the dash of the user formats isn't applied
  EXPECT_TRUE(f.CerosIzquierda);
  EXPECT_TRUE(Mensajes().empty());
}

TEST_P(Formato, AUserRowIsReadColumnByColumn) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("NO_REN")] = QStringLiteral("2");
  c[QStringLiteral("SEP_COM")] = QStringLiteral("-1");
  c[QStringLiteral("SEP_DAT")] = QStringLiteral("';'");
  c[QStringLiteral("DEB_HAB")] = QStringLiteral("4");
  c[QStringLiteral("CHAR_UNO")] = QStringLiteral("'+'");
  c[QStringLiteral("CHAR_DOS")] = QStringLiteral("'-'");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN2_CTA")] = QStringLiteral("1");
  c[QStringLiteral("REN2_IMP")] = QStringLiteral("2");
  c[QStringLiteral("F_FECHA")] = QStringLiteral("'AAAAMMDD'");
  c[QStringLiteral("LON_FIJA")] = QStringLiteral("1");
  const char *anchos[] = {"LON_FOL", "LON_FEC", "LON_TIP", "LON_CTA",
                          "LON_CON", "LON_DEB", "LON_HAB"};
  for (int i = 0; i < 7; ++i)
    c[QLatin1String(anchos[i])] = QString::number(11 + i);
  const char *alineaciones[] = {"AL_FOL", "AL_FEC", "AL_TIP", "AL_CTA",
                                "AL_CON", "AL_DEB", "AL_HAB"};
  for (int i = 0; i < 7; ++i)
    c[QLatin1String(alineaciones[i])] = QString::number(1 + i % 2);
  c[QStringLiteral("FORM_CTA")] = QStringLiteral("'3-2-0-0'");
  c[QStringLiteral("CHAR_SEP")] = QStringLiteral("'.'");
  c[QStringLiteral("CERO_IZQ")] = QStringLiteral("0");
  const FormatoArchivo f = Cargar(c);
  EXPECT_FALSE(f.EsPaquete);
  EXPECT_EQ(f.NumRenglones, 2);
  EXPECT_EQ(f.Encierro, QStringLiteral("\""));
  EXPECT_EQ(f.Separador, QStringLiteral(";"));
  EXPECT_FALSE(f.ColumnasSeparadas);
  EXPECT_EQ(f.MarcaDebe, QStringLiteral("+"));
  EXPECT_EQ(f.MarcaHaber, QStringLiteral("-"));
  EXPECT_EQ(f.Renglon1, (std::array<int, 6>{1, 2, 3, 0, 5, 6}));
  EXPECT_EQ(f.Renglon2, (std::array<int, 6>{0, 0, 0, 1, 0, 2}));
  EXPECT_EQ(f.MascaraFecha, QStringLiteral("YYYYMMDD"));
  EXPECT_TRUE(f.LongitudFija);
  EXPECT_EQ((std::array<int, 7>{f.LongFolio, f.LongFecha, f.LongTipo, f.LongCuenta, f.LongConcepto,
                                f.LongDebe, f.LongHaber}),
            (std::array<int, 7>{11, 12, 13, 14, 15, 16, 17}));
  EXPECT_EQ((std::array<int, 7>{f.AlFolio, f.AlFecha, f.AlTipo, f.AlCuenta, f.AlConcepto, f.AlDebe,
                                f.AlHaber}),
            (std::array<int, 7>{1, 2, 1, 2, 1, 2, 1}));
  EXPECT_EQ(f.Niveles, (std::array<int, 4>{3, 2, 0, 0}));
  EXPECT_EQ(f.SeparadorCuenta, QStringLiteral("."));
  EXPECT_FALSE(f.CerosIzquierda);
  EXPECT_TRUE(f.FormatoLeido);
}

TEST_P(Formato, EachStyleGivesItsMarksAndOnlyStyleFourReadsTheCharacters) {
  struct Caso {
    const char *debHab, *debe, *haber;
    bool columnas;
  };
  const Caso casos[] = {{"0", "", "", true},    {"1", "D", "H", false}, {"2", "C", "A", false},
                        {"3", "1", "2", false}, {"4", "x", "y", false}, {"5", "", "", false},
                        {"NULL", "", "", false}};
  for (const Caso &caso : casos) {
    con->Ejecutar(QStringLiteral("DELETE FROM tblParametrosForm"));
    Columnas c = FormatoUsuario();
    c[QStringLiteral("DEB_HAB")] = QLatin1String(caso.debHab);
    c[QStringLiteral("CHAR_UNO")] = QStringLiteral("'x'");
    c[QStringLiteral("CHAR_DOS")] = QStringLiteral("'y'");
    const FormatoArchivo f = Cargar(c);
    EXPECT_EQ(f.MarcaDebe, QLatin1String(caso.debe)) << caso.debHab;
    EXPECT_EQ(f.MarcaHaber, QLatin1String(caso.haber)) << caso.debHab;
    EXPECT_EQ(f.ColumnasSeparadas, caso.columnas) << caso.debHab;
  }
}

TEST_P(Formato, TheFourDateCaptionsGiveTheirMasksAndAnyOtherNone) {
  const std::pair<const char *, const char *> casos[] = {
      {"'DD/MM/AAAA'", "DD/MM/YYYY"}, {"'AAAA/MM/DD'", "YYYY/MM/DD"}, {"'AAAAMMDD'", "YYYYMMDD"},
      {"'DDMMAAAA'", "DDMMYYYY"},     {"'DD-MM-AAAA'", ""},           {"NULL", ""}};
  for (const auto &[fFecha, mascara] : casos) {
    con->Ejecutar(QStringLiteral("DELETE FROM tblParametrosForm"));
    EXPECT_EQ(CargarCon("F_FECHA", fFecha).MascaraFecha, QLatin1String(mascara)) << fFecha;
  }
}

TEST_P(Formato, EqualFormatGivesLevelsFourThreeThreeZeroAndTheDash) {
  const FormatoArchivo f = CargarCon("FORM_CTA", "''");
  EXPECT_EQ(f.Niveles, (std::array<int, 4>{4, 3, 3, 0}));
  EXPECT_EQ(f.SeparadorCuenta, QStringLiteral("-"));
}

TEST_P(Formato, AMaskWithAZeroLevelInTheMiddleIsReadAsItStands) {
  EXPECT_EQ(CargarCon("FORM_CTA", "'5-0-3-0'").Niveles, (std::array<int, 4>{5, 0, 3, 0}));
}

// Found by fuzzing: a level of 88 million digits had every account padded out to it.
TEST_P(Formato, AMaskLevelWiderThanTwentyDigitsEndsWithAMessage) {
  EXPECT_EQ(CargarCon("FORM_CTA", "'20-1'").Niveles, (std::array<int, 4>{20, 1, 0, 0}));
  con->Ejecutar(QStringLiteral("DELETE FROM tblParametrosForm"));
  Columnas c = FormatoUsuario();
  c[QStringLiteral("FORM_CTA")] = QStringLiteral("'0088878785'");
  InsertarFormato(*con, c);
  FormatoArchivo f;
  try {
    CargarFormato(*con, f);
    FAIL() << "the mask was taken";
  } catch (const ErrorFatal &e) {
    EXPECT_EQ(e.Mensaje(), QStringLiteral("El formato de cuenta «0088878785» pide un nivel de "
                                          "88878785 dígitos; ninguno puede pasar de 20."));
  }
}

TEST_P(Formato, AMaskThatStartsWithADashGivesNoLevels) {
  EXPECT_EQ(CargarCon("FORM_CTA", "'-4-3'").Niveles, (std::array<int, 4>{0, 0, 0, 0}));
}

TEST_P(Formato, TheMaskIsReadUpToAnEmptyPieceAndFourLevelsAtMost) {
  EXPECT_EQ(CargarCon("FORM_CTA", "'4--3'").Niveles, (std::array<int, 4>{4, 0, 0, 0}));
  con->Ejecutar(QStringLiteral("DELETE FROM tblParametrosForm"));
  EXPECT_EQ(CargarCon("FORM_CTA", "'1-2-3-4-5'").Niveles, (std::array<int, 4>{1, 2, 3, 4}));
  con->Ejecutar(QStringLiteral("DELETE FROM tblParametrosForm"));
  EXPECT_EQ(CargarCon("FORM_CTA", "'12-10'").Niveles, (std::array<int, 4>{12, 10, 0, 0}));
}

TEST_P(Formato, ANullLevelSeparatorIsTheDash) {
  EXPECT_EQ(CargarCon("CHAR_SEP", "NULL").SeparadorCuenta, QStringLiteral("-"));
}

TEST_P(Formato, EmptySeparatorWithQuotesEnclosesWithoutSeparating) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("SEP_DAT")] = QStringLiteral("''");
  c[QStringLiteral("SEP_COM")] = QStringLiteral("-1");
  const FormatoArchivo f = Cargar(c);
  EXPECT_EQ(f.Separador, QString());
  EXPECT_EQ(f.Encierro, QStringLiteral("\""));
}

TEST_P(Formato, ANullSepComReadsAsNo) {
  EXPECT_EQ(CargarCon("SEP_COM", "NULL").Encierro, QString());
}

TEST_P(Formato, AMaskLevelThatIsNoNumberEndsTheProcess) {
  InsertarFormato(*con, [] {
    Columnas c = FormatoUsuario();
    c[QStringLiteral("FORM_CTA")] = QStringLiteral("'4-x-3'");
    return c;
  }());
  FormatoArchivo f;
  try {
    CargarFormato(*con, f);
    FAIL() << "no error";
  } catch (const ErrorFatal &e) {
    EXPECT_EQ(e.Mensaje(), QStringLiteral("No coinciden los tipos: el nivel «x» del formato de "
                                          "cuenta «4-x-3» no es un número."));
  }
}

TEST_P(Formato, ANullFixedWidthFlagOfAUserRowEndsTheProcess) {
  Columnas c = FormatoUsuario();
  c.erase(QStringLiteral("LON_FIJA"));
  InsertarFormato(*con, c);
  FormatoArchivo f;
  try {
    CargarFormato(*con, f);
    FAIL() << "no error";
  } catch (const ErrorFatal &e) {
    EXPECT_EQ(e.Mensaje(), QStringLiteral("Uso no válido de Null en el campo LON_FIJA."));
  }
}

TEST(ValoresPaquete, ThePresetOverwritesAUserFormat) {
  FormatoArchivo f;
  f.Encierro = QStringLiteral("\"");
  f.ColumnasSeparadas = true;
  f.SeparadorCuenta = QStringLiteral("-");
  ValoresPaquete(f);
  EXPECT_TRUE(f.EsPaquete);
  EXPECT_EQ(f.Encierro, QString());
  EXPECT_FALSE(f.ColumnasSeparadas);
  EXPECT_EQ(f.SeparadorCuenta, QString());
  EXPECT_EQ(f.LongConcepto, 100);
}

// ---------------------------------------------------------------- LeerFormato

TEST_P(Formato, WithoutARowTheScreenOffersTheSixFieldsInBothRows) {
  const ControlesFormato c = Leer();
  EXPECT_EQ(emp->grabadora.sentencias, QStringList{kLecturaPantalla});
  EXPECT_EQ(c.lstUno[0], Seis());
  EXPECT_EQ(c.lstUno[1], Seis());
  EXPECT_TRUE(c.lstDos[0].isEmpty());
  EXPECT_TRUE(c.lstDos[1].isEmpty());
  EXPECT_FALSE(c.optContpaq);
  EXPECT_EQ(c.optSepararDatos, -1);
  EXPECT_EQ(c.optFormatoFecha, -1);
  EXPECT_TRUE(Mensajes().empty());
}

TEST_P(Formato, TheBlankSeparatorIsSavedAsUnderscoreAndReadBackAsAnotherSeparator) {
  ControlesFormato c = PantallaUnRenglon();
  c.optSepararDatos = 0;
  Grabar(c);
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT SEP_DAT FROM tblParametrosForm")),
            QStringLiteral("_"));
  const ControlesFormato leido = Leer();
  EXPECT_EQ(leido.optSepararDatos, 4);
  EXPECT_EQ(leido.txtOtroSep, QStringLiteral("_"));
  // The file gets the underscore.
  FormatoArchivo f;
  ASSERT_TRUE(CargarFormato(*con, f));
  EXPECT_EQ(f.Separador, QStringLiteral("_"));
}

TEST_P(Formato, AOneRowFormatIsShownOnTheScreen) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("REN_FOL")] = QStringLiteral("2");
  c[QStringLiteral("REN_FEC")] = QStringLiteral("0");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("0");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("1");
  c[QStringLiteral("REN_CON")] = QStringLiteral("4");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("3");
  const ControlesFormato p = LeerCon(c);
  EXPECT_FALSE(p.optContpaq);
  EXPECT_EQ(p.chkDosRenglones, 0);
  EXPECT_EQ(p.lstDos[0],
            (QStringList{QStringLiteral("Cuenta"), QStringLiteral("Folio"),
                         QStringLiteral("Importe Debe/Haber"), QStringLiteral("Concepto")}));
  EXPECT_EQ(p.lstUno[0], (QStringList{QStringLiteral("Fecha"), QStringLiteral("Tipo de póliza")}));
  EXPECT_EQ(p.lstUno[1], Seis());
  EXPECT_TRUE(p.lstDos[1].isEmpty());
  EXPECT_EQ(p.optSepararDatos, 2);
  EXPECT_EQ(p.optIncluirCar, 0);
  EXPECT_EQ(p.chkImportesColSep, 0);
  EXPECT_EQ(p.optFormatoFecha, 0);
  EXPECT_EQ(p.chkLongFija, 0);
  EXPECT_EQ(p.txtLongitud[0], QString());
  EXPECT_EQ(p.optFormatoCuenta, 1);
  EXPECT_EQ(p.txtFormato, (std::array<QString, 4>{QStringLiteral("4"), QStringLiteral("3"),
                                                  QStringLiteral("3"), QStringLiteral("0")}));
  EXPECT_EQ(p.chkIncluirCeros, 1);
}

TEST_P(Formato, ATwoRowFormatNeverOffersTheAccountInRowOneAndShowsTheSum) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("NO_REN")] = QStringLiteral("2");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN_CON")] = QStringLiteral("0");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("4");
  c[QStringLiteral("REN2_CTA")] = QStringLiteral("1");
  c[QStringLiteral("REN2_IMP")] = QStringLiteral("2");
  const ControlesFormato p = LeerCon(c);
  EXPECT_EQ(p.chkDosRenglones, 1);
  EXPECT_EQ(p.lstDos[0],
            (QStringList{QStringLiteral("Folio"), QStringLiteral("Fecha"),
                         QStringLiteral("Tipo de póliza"), QStringLiteral("Suma Debe/Haber")}));
  EXPECT_EQ(p.lstUno[0], QStringList{QStringLiteral("Concepto")});
  EXPECT_EQ(p.lstDos[1],
            (QStringList{QStringLiteral("Cuenta"), QStringLiteral("Importe Debe/Haber")}));
  EXPECT_EQ(p.lstUno[1],
            (QStringList{QStringLiteral("Folio"), QStringLiteral("Fecha"),
                         QStringLiteral("Tipo de póliza"), QStringLiteral("Concepto")}));
}

TEST_P(Formato, TheChosenListStopsAtTheFirstEmptyPlace) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("REN_FEC")] = QStringLiteral("3");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("0");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN_CON")] = QStringLiteral("0");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("0");
  const ControlesFormato p = LeerCon(c);
  EXPECT_EQ(p.lstDos[0], QStringList{QStringLiteral("Folio")});
  // The date, at place 3 behind the gap, is in neither list.
  EXPECT_EQ(p.lstUno[0],
            (QStringList{QStringLiteral("Tipo de póliza"), QStringLiteral("Cuenta"),
                         QStringLiteral("Concepto"), QStringLiteral("Importe Debe/Haber")}));
}

TEST_P(Formato, APackageRowSelectsThePackageAndLeavesTheTwoRowBox) {
  InsertarFormato(*con, {{QStringLiteral("NO_REN"), QStringLiteral("0")}});
  const ControlesFormato p = Leer();
  EXPECT_TRUE(p.optContpaq);
  EXPECT_EQ(p.chkDosRenglones, 0);
  EXPECT_EQ(p.lstUno[0], Seis());
  EXPECT_EQ(p.optSepararDatos, 3);  // a Null separator reads as ""
  EXPECT_EQ(p.optFormatoCuenta, 0); // a Null mask reads as ""
  EXPECT_EQ(p.chkImportesColSep, 0);
  EXPECT_EQ(p.optIncluirCar, -1);
}

TEST_P(Formato, EachDataSeparatorSelectsItsOption) {
  const std::tuple<const char *, const char *, int, const char *> casos[] = {
      {"' '", "0", 0, ""}, {"','", "-1", 1, ""}, {"','", "0", 2, ""},
      {"''", "0", 3, ""},  {"';'", "0", 4, ";"}, {"'_'", "0", 4, "_"}};
  for (const auto &[sepDat, sepCom, opcion, otro] : casos) {
    con->Ejecutar(QStringLiteral("DELETE FROM tblParametrosForm"));
    Columnas c = FormatoUsuario();
    c[QStringLiteral("SEP_DAT")] = QLatin1String(sepDat);
    c[QStringLiteral("SEP_COM")] = QLatin1String(sepCom);
    const ControlesFormato p = LeerCon(c);
    EXPECT_EQ(p.optSepararDatos, opcion) << sepDat;
    EXPECT_EQ(p.txtOtroSep, QLatin1String(otro)) << sepDat;
  }
}

TEST_P(Formato, EachStyleSelectsItsControl) {
  const std::tuple<const char *, int, int, const char *> casos[] = {
      {"0", 1, -1, ""}, {"1", 0, 0, ""},  {"2", 0, 1, ""},
      {"3", 0, 2, ""},  {"4", 0, 3, "x"}, {"7", 0, -1, ""}};
  for (const auto &[debHab, columnas, opcion, caracter] : casos) {
    con->Ejecutar(QStringLiteral("DELETE FROM tblParametrosForm"));
    Columnas c = FormatoUsuario();
    c[QStringLiteral("DEB_HAB")] = QLatin1String(debHab);
    c[QStringLiteral("CHAR_UNO")] = QStringLiteral("'x'");
    c[QStringLiteral("CHAR_DOS")] = QStringLiteral("'y'");
    const ControlesFormato p = LeerCon(c);
    EXPECT_EQ(p.chkImportesColSep, columnas) << debHab;
    EXPECT_EQ(p.optIncluirCar, opcion) << debHab;
    EXPECT_EQ(p.txtOtroCar[0], QLatin1String(caracter)) << debHab;
    EXPECT_EQ(p.txtOtroCar[1], *caracter ? QStringLiteral("y") : QString()) << debHab;
  }
}

TEST_P(Formato, TheAccountMaskFillsTheBoxesOneCharacterALevel) {
  struct Caso {
    const char *formCta, *charSep;
    int opcion;
    const char *otro;
    std::array<const char *, 4> cajas;
  };
  const Caso casos[] = {{"''", "''", 0, "", {"0", "0", "0", "0"}},
                        {"'4-3-3-0'", "''", 1, "", {"4", "3", "3", "0"}},
                        {"'4-3-3-0'", "'.'", 2, ".", {"4", "3", "3", "0"}},
                        {"'4-3-3-0'", "NULL", -1, "", {"4", "3", "3", "0"}},
                        {"'12-3'", "''", 1, "", {"1", "3", "0", "0"}},
                        {"'5'", "''", 1, "", {"5", "0", "0", "0"}}};
  for (const Caso &caso : casos) {
    con->Ejecutar(QStringLiteral("DELETE FROM tblParametrosForm"));
    Columnas c = FormatoUsuario();
    c[QStringLiteral("FORM_CTA")] = QLatin1String(caso.formCta);
    c[QStringLiteral("CHAR_SEP")] = QLatin1String(caso.charSep);
    const ControlesFormato p = LeerCon(c);
    EXPECT_EQ(p.optFormatoCuenta, caso.opcion) << caso.formCta << caso.charSep;
    EXPECT_EQ(p.txtIncluirOtroSep, QLatin1String(caso.otro)) << caso.formCta;
    for (int i = 0; i < 4; ++i)
      EXPECT_EQ(p.txtFormato[i], QLatin1String(caso.cajas[i])) << caso.formCta << i;
  }
}

TEST_P(Formato, FixedWidthsFillTheBoxesInTheScreensOrder) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("LON_FIJA")] = QStringLiteral("1");
  const char *anchos[] = {"LON_FOL", "LON_FEC", "LON_TIP", "LON_CON",
                          "LON_CTA", "LON_DEB", "LON_HAB"};
  const char *alineaciones[] = {"AL_FOL", "AL_FEC", "AL_TIP", "AL_CON",
                                "AL_CTA", "AL_DEB", "AL_HAB"};
  for (int i = 0; i < 7; ++i) {
    c[QLatin1String(anchos[i])] = QString::number(10 * (i + 1));
    c[QLatin1String(alineaciones[i])] = QString::number(i == 4 ? 2 : 1);
  }
  const ControlesFormato p = LeerCon(c);
  EXPECT_EQ(p.chkLongFija, 1);
  EXPECT_EQ(p.txtLongitud, (std::array<QString, 7>{QStringLiteral("10"), QStringLiteral("20"),
                                                   QStringLiteral("30"), QStringLiteral("40"),
                                                   QStringLiteral("50"), QStringLiteral("60"),
                                                   QStringLiteral("70")}));
  EXPECT_EQ(p.cmbAlineacion, (std::array<int, 7>{0, 0, 0, 0, 1, 0, 0}));
}

TEST_P(Formato, APositionBeyondTheSixPlacesEndsTheProcess) {
  InsertarFormato(*con, [] {
    Columnas c = FormatoUsuario();
    c[QStringLiteral("REN_CON")] = QStringLiteral("7");
    return c;
  }());
  ControlesFormato p;
  try {
    LeerFormato(*con, p);
    FAIL() << "no error";
  } catch (const ErrorFatal &e) {
    EXPECT_EQ(e.Mensaje(), QStringLiteral("La posición 7 de REN_CON en tblParametrosForm está "
                                          "fuera del renglón, que tiene seis lugares."));
  }
}

// ---------------------------------------------------------------- GrabarFormato

TEST_P(Formato, TheFirstSaveOfThePackageInsertsOnlyTheKind) {
  ControlesFormato c = PantallaUnRenglon();
  c.optContpaq = true;
  Grabar(c);
  EXPECT_EQ(emp->grabadora.sentencias,
            (QStringList{QStringLiteral("SELECT NO_REN FROM tblParametrosForm;"),
                         QStringLiteral("INSERT INTO tblParametrosForm (NO_REN) VALUES (0);")}));
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].texto, QStringLiteral("Formato grabado con éxito"));
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, QStringLiteral("Información"));
  EXPECT_EQ(emp->mensajes.mostrados[0].icono, IconoMensaje::Informacion);
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT COUNT(*) FROM tblParametrosForm WHERE SEP_DAT IS "
                                      "NULL AND LON_FIJA IS NULL")),
            QStringLiteral("1"));
}

TEST_P(Formato, TheFirstSaveOfAUserFormatInsertsEveryColumn) {
  ControlesFormato c = PantallaUnRenglon();
  c.chkLongFija = 1;
  c.txtLongitud = {QStringLiteral("11"),
                   QStringLiteral("10"),
                   QStringLiteral("1"),
                   QStringLiteral("30"),
                   QStringLiteral("12"),
                   QStringLiteral("14"),
                   QString()};
  c.cmbAlineacion = {1, 1, 0, 1, 1, 0, -1};
  Grabar(c);
  EXPECT_EQ(
      emp->grabadora.sentencias,
      (QStringList{
          QStringLiteral("SELECT NO_REN FROM tblParametrosForm;"),
          QStringLiteral(
              "INSERT INTO tblParametrosForm (NO_REN,REN_FOL,REN_FEC,REN_TIP,REN_CTA,REN_CON,"
              "REN_IMP,REN2_FOL,REN2_FEC,REN2_TIP,REN2_CTA,REN2_CON,REN2_IMP,DEB_HAB,CHAR_UNO,"
              "CHAR_DOS,CERO_IZQ,FORM_CTA,CHAR_SEP,F_FECHA,LON_FIJA,SEP_DAT,SEP_COM,LON_FOL,"
              "AL_FOL,LON_FEC,AL_FEC,LON_TIP,AL_TIP,LON_CON,AL_CON,LON_CTA,AL_CTA,LON_DEB,"
              "AL_DEB,LON_HAB,AL_HAB) VALUES (1,1,2,0,3,0,4,0,0,0,0,0,0,2,'','',1,'4-3-3-0','',"
              "'AAAAMMDD',1,',',0,11,2,10,2,1,1,30,2,12,2,14,1,0,0);")}));
  EXPECT_EQ(emp->mensajes.mostrados.back().texto, QStringLiteral("Formato grabado con éxito"));
}

TEST_P(Formato, ALaterSaveOfAUserFormatUpdatesTheRowWithoutWhere) {
  InsertarFormato(*con, FormatoUsuario());
  ControlesFormato c;
  c.chkDosRenglones = 1;
  c.lstDos[0] = {QStringLiteral("Fecha"), QStringLiteral("Suma Debe/Haber")};
  c.lstDos[1] = {QStringLiteral("Cuenta"), QStringLiteral("Concepto"),
                 QStringLiteral("Importe Debe/Haber")};
  c.optIncluirCar = 3;
  c.txtOtroCar = {QStringLiteral("+"), QStringLiteral("-")};
  c.optFormatoCuenta = 2;
  c.txtIncluirOtroSep = QStringLiteral(".");
  c.txtFormato = {QStringLiteral("2"), QStringLiteral("2"), QStringLiteral("0"),
                  QStringLiteral("0")};
  c.optFormatoFecha = 3;
  c.optSepararDatos = 1;
  c.txtLongitud[0] = QStringLiteral("99"); // without fixed width the boxes count as 0
  c.cmbAlineacion[0] = 1;
  Grabar(c);
  EXPECT_EQ(
      emp->grabadora.sentencias,
      (QStringList{
          QStringLiteral("SELECT NO_REN FROM tblParametrosForm;"),
          QStringLiteral(
              "UPDATE tblParametrosForm SET NO_REN=2,REN_FOL=0,REN2_FOL=0,REN_FEC=1,REN2_FEC=0,"
              "REN_TIP=0,REN2_TIP=0,REN_CTA=0,REN2_CTA=1,REN_CON=0,REN2_CON=2,REN_IMP=2,"
              "REN2_IMP=3,DEB_HAB=4,CHAR_UNO='+',CHAR_DOS='-',CERO_IZQ=0,FORM_CTA='2-2-0-0',"
              "CHAR_SEP='.',F_FECHA='DDMMAAAA',LON_FIJA=0,SEP_DAT=',',SEP_COM=-1,LON_FOL=0,"
              "AL_FOL=0,LON_FEC=0,AL_FEC=0,LON_TIP=0,AL_TIP=0,LON_CON=0,AL_CON=0,LON_CTA=0,"
              "AL_CTA=0,LON_DEB=0,AL_DEB=0,LON_HAB=0,AL_HAB=0;")}));
  EXPECT_EQ(emp->Contar(QStringLiteral("tblParametrosForm")), 1);
  const ControlesFormato leido = Leer();
  EXPECT_EQ(leido.lstDos[0], c.lstDos[0]);
  EXPECT_EQ(leido.lstDos[1], c.lstDos[1]);
  EXPECT_EQ(leido.optIncluirCar, 3);
  EXPECT_EQ(leido.txtOtroCar, c.txtOtroCar);
  EXPECT_EQ(leido.optFormatoCuenta, 2);
  EXPECT_EQ(leido.txtIncluirOtroSep, QStringLiteral("."));
  EXPECT_EQ(leido.txtFormato, c.txtFormato);
  EXPECT_EQ(leido.optFormatoFecha, 3);
  EXPECT_EQ(leido.optSepararDatos, 1);
  EXPECT_EQ(leido.chkLongFija, 0);
}

TEST_P(Formato, ThePackageOverARowKeepsTheDebitAlignmentAndTheCreditWidthAndAlignment) {
  InsertarFormato(*con, FormatoUsuario());
  ControlesFormato c = PantallaUnRenglon();
  c.optContpaq = true;
  c.chkLongFija = 1;
  c.txtLongitud = {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"),
                   QStringLiteral("4"), QStringLiteral("5"), QStringLiteral("16"),
                   QStringLiteral("18")};
  c.cmbAlineacion = {0, 0, 0, 0, 0, 1, 0};
  Grabar(c);
  EXPECT_EQ(
      emp->grabadora.sentencias.value(1),
      QStringLiteral(
          "UPDATE tblParametrosForm SET NO_REN=0,REN_FOL=0,REN2_FOL=0,REN_FEC=0,REN2_FEC=0,"
          "REN_TIP=0,REN2_TIP=0,REN_CTA=0,REN2_CTA=0,REN_CON=0,REN2_CON=0,REN_IMP=0,REN2_IMP=0,"
          "DEB_HAB=0,CHAR_UNO='',CHAR_DOS='',CERO_IZQ=0,FORM_CTA='',CHAR_SEP='',F_FECHA='',"
          "LON_FIJA=0,SEP_DAT='',SEP_COM=0,LON_FOL=0,AL_FOL=0,LON_FEC=0,AL_FEC=0,LON_TIP=0,"
          "AL_TIP=0,LON_CON=0,AL_CON=0,LON_CTA=0,AL_CTA=0,LON_DEB=0,AL_DEB=2,LON_HAB=18,"
          "AL_HAB=1;"));
  c.chkLongFija = 0;
  Grabar(c);
  EXPECT_TRUE(emp->grabadora.sentencias.value(1).endsWith(
      QStringLiteral("LON_DEB=0,AL_DEB=0,LON_HAB=0,AL_HAB=0;")));
}

TEST_P(Formato, ATwoDigitWidthIsSavedAndRead) {
  ControlesFormato c = PantallaUnRenglon();
  c.chkLongFija = 1;
  c.txtLongitud = {QStringLiteral("11"), QStringLiteral("10"), QStringLiteral("1"),
                   QStringLiteral("99"), QStringLiteral("20"), QStringLiteral("16"),
                   QStringLiteral("16")};
  c.cmbAlineacion = {1, 1, 1, 1, 1, 0, 0};
  Grabar(c);
  FormatoArchivo f;
  ASSERT_TRUE(CargarFormato(*con, f));
  EXPECT_EQ(f.LongConcepto, 99);
  EXPECT_EQ(f.AlConcepto, 2);
  EXPECT_EQ(f.LongCuenta, 20);
}

TEST_P(Formato, SeparateColumnsWithOtherCharactersSavesStyleZeroAndKeepsTheCharacters) {
  ControlesFormato c = PantallaUnRenglon();
  c.chkImportesColSep = 1;
  c.optIncluirCar = 3;
  c.txtOtroCar = {QStringLiteral("a"), QStringLiteral("b")};
  Grabar(c);
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT DEB_HAB FROM tblParametrosForm")),
            QStringLiteral("0"));
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT CHAR_UNO FROM tblParametrosForm")),
            QStringLiteral("a"));
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT CHAR_DOS FROM tblParametrosForm")),
            QStringLiteral("b"));
}

TEST_P(Formato, AnApostropheAsSeparatorOrMarkIsSavedAndReadBackAsTyped) {
  ControlesFormato c = PantallaUnRenglon();
  c.optSepararDatos = 4;
  c.txtOtroSep = QStringLiteral("'");
  c.optIncluirCar = 3;
  c.txtOtroCar = {QStringLiteral("'"), QStringLiteral("x")};
  Grabar(c);
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].texto, QStringLiteral("Formato grabado con éxito"));
  ASSERT_EQ(emp->grabadora.sentencias.size(), 2);
  EXPECT_TRUE(emp->grabadora.sentencias[1].contains(QStringLiteral(",4,'''','x',1,")))
      << emp->grabadora.sentencias[1].toStdString();
  EXPECT_TRUE(emp->grabadora.sentencias[1].contains(QStringLiteral("'AAAAMMDD',0,'''',0,")))
      << emp->grabadora.sentencias[1].toStdString();
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT SEP_DAT FROM tblParametrosForm")),
            QStringLiteral("'"));
  ControlesFormato leidos;
  LeerFormato(*con, leidos);
  EXPECT_EQ(leidos.optSepararDatos, 4);
  EXPECT_EQ(leidos.txtOtroSep, QStringLiteral("'"));
  EXPECT_EQ(leidos.txtOtroCar[0], QStringLiteral("'"));
  FormatoArchivo f;
  ASSERT_TRUE(CargarFormato(*con, f));
  EXPECT_EQ(f.Separador, QStringLiteral("'"));
  EXPECT_EQ(f.MarcaDebe, QStringLiteral("'"));
}

TEST_P(Formato, AFailedSaveShowsTheErrorNumberAndTheDatabasesDescription) {
  con->Ejecutar(QStringLiteral("DROP TABLE tblParametrosForm"));
  Grabar(PantallaUnRenglon());
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  const Mensaje &m = emp->mensajes.mostrados[0];
  const QString prefijo = QStringLiteral("Ocurrió un error al grabar el formato: -2147217900 ");
  EXPECT_TRUE(m.texto.startsWith(prefijo)) << m.texto.toStdString();
  EXPECT_FALSE(m.texto.mid(prefijo.size()).trimmed().isEmpty()); // the database's description
  EXPECT_EQ(m.titulo, QStringLiteral("Información"));
}

TEST_P(Formato, TheAmountOfRowOneIsFoundUnderEitherLabel) {
  ControlesFormato c;
  c.lstDos[0] = {QStringLiteral("Folio"), QStringLiteral("Suma Debe/Haber")};
  c.lstDos[1] = {QStringLiteral("Suma Debe/Haber"), QStringLiteral("Cuenta")};
  EXPECT_EQ(PosicionCampo(c, 1, QStringLiteral("Importe Debe/Haber")), 2);
  EXPECT_EQ(PosicionCampo(c, 1, QStringLiteral("Folio")), 1);
  EXPECT_EQ(PosicionCampo(c, 1, QStringLiteral("Cuenta")), 0);
  EXPECT_EQ(PosicionCampo(c, 2, QStringLiteral("Importe Debe/Haber")), 0);
  EXPECT_EQ(PosicionCampo(c, 2, QStringLiteral("Cuenta")), 2);
}

INSTANTIATE_TEST_SUITE_P(Motores, Formato, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
