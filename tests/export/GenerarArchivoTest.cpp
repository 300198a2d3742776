#include "ApoyoExportacion.h"
#include "shell/ServicioUtil.h"

#include <QFile>
#include <algorithm>
#include <gtest/gtest.h>

using namespace exportacion;

namespace {

QByteArray B(const char *texto) { return QByteArray(texto); }

// A user format in memory: one row with the fields in their natural order.
FormatoArchivo Usuario() {
  FormatoArchivo f;
  f.NumRenglones = 1;
  f.Separador = QStringLiteral(",");
  f.MarcaDebe = QStringLiteral("D");
  f.MarcaHaber = QStringLiteral("H");
  f.Renglon1 = {1, 2, 3, 4, 5, 6};
  f.MascaraFecha = QStringLiteral("DD/MM/YYYY");
  f.Niveles = {4, 3, 3, 0};
  f.SeparadorCuenta = QStringLiteral("-");
  f.CerosIzquierda = true;
  return f;
}

FormatoArchivo Fija() {
  FormatoArchivo f = Usuario();
  f.LongitudFija = true;
  return f;
}

// The stored user format with the concept alone on its row.
Columnas SoloConcepto() {
  Columnas c = FormatoUsuario();
  for (const char *campo : {"REN_FOL", "REN_FEC", "REN_TIP", "REN_CTA", "REN_IMP"})
    c[QString::fromLatin1(campo)] = QStringLiteral("0");
  c[QStringLiteral("REN_CON")] = QStringLiteral("1");
  return c;
}

// The failure a call throws, or none.
template <typename F> std::optional<FallaArchivo> Falla(F &&llamada) {
  try {
    llamada();
  } catch (const FallaArchivo &falla) {
    return falla;
  }
  return std::nullopt;
}

} // namespace

// ---------------------------------------------------------------- field preparation

TEST(AjustarCampo, WithoutFixedWidthTheValueStandsAsItIsLessALeadingPlus) {
  const FormatoArchivo f = Usuario();
  EXPECT_EQ(AjustarCampo(f, false, QStringLiteral("Pago de luz"), 3, 1),
            QStringLiteral("Pago de luz"));
  EXPECT_EQ(AjustarCampo(f, false, QStringLiteral("+Pago"), 10, 2), QStringLiteral("Pago"));
  EXPECT_EQ(AjustarCampo(f, true, QStringLiteral("+9.99"), 10, 2), QStringLiteral("9.99"));
}

TEST(AjustarCampo, AConceptThatBeginsWithPlusKeepsItWithFixedWidth) {
  EXPECT_EQ(AjustarCampo(Fija(), false, QStringLiteral("+Pago"), 7, 2), QStringLiteral("+Pago  "));
}

TEST(AjustarCampo, TextIsFilledWithBlanksByItsAlignment) {
  const FormatoArchivo f = Fija();
  EXPECT_EQ(AjustarCampo(f, false, QStringLiteral("ab"), 5, 1), QStringLiteral("   ab"));
  EXPECT_EQ(AjustarCampo(f, false, QStringLiteral("ab"), 5, 2), QStringLiteral("ab   "));
  EXPECT_EQ(AjustarCampo(f, false, QStringLiteral("ab"), 5, 0), QStringLiteral("ab   "));
}

TEST(AjustarCampo, AmountsAlwaysStandToTheRight) {
  EXPECT_EQ(AjustarCampo(Fija(), true, QStringLiteral("9.99"), 6, 2), QStringLiteral("  9.99"));
}

TEST(AjustarCampo, APlusBeforeAnAmountTakesOneFromTheWidth) {
  EXPECT_EQ(AjustarCampo(Fija(), true, QStringLiteral("+9.99"), 6, 2), QStringLiteral(" 9.99"));
}

TEST(AjustarCampo, AValueLongerThanItsWidthIsCutOnTheRightAmountsAsWell) {
  const FormatoArchivo f = Fija();
  EXPECT_EQ(AjustarCampo(f, true, QStringLiteral("1,250.00"), 6, 1), QStringLiteral("1,250."));
  EXPECT_EQ(AjustarCampo(f, false, QStringLiteral("00000000012"), 8, 1),
            QStringLiteral("00000000"));
}

TEST(AjustarCampo, WidthZeroLeavesAnEmptyFieldThatStillGetsItsEnclosureAndSeparator) {
  FormatoArchivo f = Fija();
  f.Encierro = QStringLiteral("\"");
  EXPECT_EQ(InsSeparador(f, AjustarCampo(f, false, QStringLiteral("D"), 0, 1)),
            QStringLiteral("\"\","));
}

TEST(InsSeparador, EnclosureValueEnclosureSeparator) {
  FormatoArchivo f = Usuario();
  f.Encierro = QStringLiteral("\"");
  f.Separador = QStringLiteral(";");
  EXPECT_EQ(InsSeparador(f, QStringLiteral("x")), QStringLiteral("\"x\";"));
}

TEST(FormatearCuenta, LevelsAreFilledWithZerosAndJoinedBySeparator) {
  FormatoArchivo f = Usuario();
  f.Niveles = {4, 3, 3, 0};
  EXPECT_EQ(FormatearCuenta(f, QStringLiteral("110-1-23")), QStringLiteral("0110-001-023"));
  f.CerosIzquierda = false;
  EXPECT_EQ(FormatearCuenta(f, QStringLiteral("110-1-23")), QStringLiteral("110-1-23"));
  f.SeparadorCuenta = QStringLiteral(".");
  EXPECT_EQ(FormatearCuenta(f, QStringLiteral("110-1-23")), QStringLiteral("110.1.23"));
}

TEST(FormatearCuenta, LongPartsAreCutAndPartsBeyondTheMaskDropped) {
  FormatoArchivo f = Usuario();
  f.Niveles = {2, 1, 0, 0};
  EXPECT_EQ(FormatearCuenta(f, QStringLiteral("1105-203-9-4")), QStringLiteral("11-2"));
}

TEST(FormatearCuenta, TheSplitStopsAtAnEmptyPiece) {
  EXPECT_EQ(FormatearCuenta(Usuario(), QStringLiteral("110--3")), QStringLiteral("0110"));
}

TEST(FormatearCuenta, AnAccountWithoutDashIsOnePart) {
  EXPECT_EQ(FormatearCuenta(Usuario(), QStringLiteral("11")), QStringLiteral("0011"));
}

TEST(FormatearCuenta, AZeroLevelInTheMiddleDropsThatPart) {
  FormatoArchivo f = Usuario();
  f.Niveles = {5, 0, 3, 0};
  EXPECT_EQ(FormatearCuenta(f, QStringLiteral("110-001-7")), QStringLiteral("00110-007"));
}

TEST(FormatearCuenta, WithoutSeparatorTheLastDigitGoes) {
  FormatoArchivo f;
  ValoresPaquete(f);
  EXPECT_EQ(FormatearCuenta(f, QStringLiteral("110-001-000")), QStringLiteral("000011"));
  EXPECT_EQ(FormatearCuenta(f, QStringLiteral("1101001")), QStringLiteral("110100"));
  EXPECT_EQ(FormatearCuenta(f, QStringLiteral("123456789")), QStringLiteral("123456"));
}

TEST(FormatearCuenta, NothingLeftIsAFailureOfTheTrap) {
  const FormatoArchivo f = Usuario();
  for (const QString &cuenta : {QString(), QStringLiteral("-110-001")}) {
    const std::optional<FallaArchivo> falla = Falla([&] { FormatearCuenta(f, cuenta); });
    ASSERT_TRUE(falla.has_value()) << cuenta.toStdString();
    EXPECT_EQ(falla->numero, 5);
    EXPECT_EQ(falla->descripcion, QStringLiteral("Llamada a procedimiento o argumento no válidos"));
  }
  FormatoArchivo sinNiveles = Usuario();
  sinNiveles.Niveles = {};
  EXPECT_TRUE(Falla([&] { FormatearCuenta(sinNiveles, QStringLiteral("110")); }).has_value());
}

TEST(FormatearCuenta, ZerosFillOnlyWhatALevelLacksAndOnlyWhenAsked) {
  FormatoArchivo f = Usuario();
  EXPECT_EQ(FormatearCuenta(f, QStringLiteral("1-1234-1-1")), QStringLiteral("0001-123-001"));
  f.CerosIzquierda = false;
  EXPECT_EQ(FormatearCuenta(f, QStringLiteral("1-1234-1-1")), QStringLiteral("1-123-1"));
}

TEST(FormatearFecha, EachMaskWithSlashesWhateverTheLocale) {
  FormatoArchivo f = Usuario();
  const QDate fecha(2026, 3, 5);
  const std::pair<const char *, const char *> casos[] = {{"DD/MM/YYYY", "05/03/2026"},
                                                         {"YYYY/MM/DD", "2026/03/05"},
                                                         {"YYYYMMDD", "20260305"},
                                                         {"DDMMYYYY", "05032026"},
                                                         {"", "05/03/2026"}};
  for (const auto &[mascara, texto] : casos) {
    f.MascaraFecha = QLatin1String(mascara);
    EXPECT_EQ(FormatearFecha(f, fecha), QLatin1String(texto)) << mascara;
  }
}

TEST(ConsultaConceptos, EachOperationWithACatalogueHasItsSource) {
  const std::optional<FuenteConceptos> caja = ConsultaConceptos(QStringLiteral("3"));
  ASSERT_TRUE(caja.has_value());
  EXPECT_EQ(caja->consulta, QStringLiteral("SELECT COD_CIE, DES_CIE FROM tblConceptoIE WHERE "
                                           "COD_CON = 'IEFE' ORDER BY COD_CIE"));
  EXPECT_EQ(caja->codigo, QStringLiteral("COD_CIE"));
  EXPECT_EQ(caja->descripcion, QStringLiteral("DES_CIE"));
  EXPECT_EQ(ConsultaConceptos(QStringLiteral("25"))->consulta,
            QStringLiteral("SELECT COD_CON, DES_CON FROM tblConceptosGyT WHERE COD_FOL = 'EGRE' "
                           "AND  COD_CON <> 'CHQE' ORDER BY COD_CON"));
  EXPECT_EQ(ConsultaConceptos(QStringLiteral("22"))->consulta,
            ConsultaConceptos(QStringLiteral("23"))->consulta);
  EXPECT_EQ(ConsultaConceptos(QStringLiteral("19"))->consulta,
            QStringLiteral("SELECT COD_CAR, DES_CAR FROM tblCargosEnCompras WHERE 1=1 ORDER BY "
                           "COD_CAR"));
  EXPECT_EQ(ConsultaConceptos(QStringLiteral("5"))->codigo, QStringLiteral("COD_SER"));
  EXPECT_EQ(ConsultaConceptos(QStringLiteral("11"))->consulta,
            QStringLiteral("SELECT COD_CON, DES_CON FROM tblConceptos WHERE TIP_MOV = 'SALM' "
                           "ORDER BY COD_CON"));
}

TEST(ConsultaConceptos, OtherOperationsHaveNoneAndNumbersAreComparedAsText) {
  for (const char *op : {"1", "2", "8", "12", "26", "30", "", "03", "x"})
    EXPECT_FALSE(ConsultaConceptos(QLatin1String(op)).has_value()) << op;
}

// ---------------------------------------------------------------- the question

class Pregunta : public testing::Test {
protected:
  EmpresaPrueba emp;
};

TEST_F(Pregunta, TheQuestionNamesTheFile) {
  const QString archivo = UnirRuta(emp.Ruta(), QStringLiteral("nuevo.txt"));
  EXPECT_TRUE(ConfirmarArchivo(archivo));
  ASSERT_EQ(emp.mensajes.Ids(), std::vector<int>{5524});
  const Mensaje &m = emp.mensajes.mostrados[0];
  EXPECT_EQ(m.texto, CatalogoMensajes::Texto(5524) + QStringLiteral(" ") + archivo +
                         QStringLiteral("\n\n") + CatalogoMensajes::Texto(5525) +
                         QStringLiteral("\n\n"));
  EXPECT_EQ(m.titulo, CatalogoMensajes::Texto(100));
  EXPECT_EQ(m.icono, IconoMensaje::Pregunta);
  EXPECT_EQ(m.botones, BotonesMensaje::SiNo);
}

TEST_F(Pregunta, AnsweringNoForAFileThatDoesntExistStillGoesOn) {
  emp.mensajes.respuestas = {RespuestaMensaje::No};
  EXPECT_TRUE(ConfirmarArchivo(UnirRuta(emp.Ruta(), QStringLiteral("nuevo.txt"))));
}

TEST_F(Pregunta, AnsweringNoForAnExistingFileAsksForAnotherName) {
  const QString archivo = UnirRuta(emp.Ruta(), QStringLiteral("viejo.txt"));
  EscribirArchivo(archivo, "x");
  emp.mensajes.respuestas = {RespuestaMensaje::No, RespuestaMensaje::Si};
  EXPECT_FALSE(ConfirmarArchivo(archivo));
  EXPECT_TRUE(ConfirmarArchivo(archivo));
}

// ---------------------------------------------------------------- runs on a database

class Generar : public Exportacion {};

TEST_P(Generar, TheFirstSampleOneRowWithMarksAndQuotes) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("SEP_COM")] = QStringLiteral("-1");
  InsertarFormato(*con, c);
  PolizaDeMuestra(*con);
  EXPECT_EQ(RenglonesEnOrden(Escribir()),
            B("\"00000000012\",\"15/11/2026\",\"D\",\"0110-001-000\",\"Pago de luz\",\"D\","
              "\"1,250.00\"\r\n"
              "\"00000000012\",\"15/11/2026\",\"D\",\"0210-001-000\",\"Pago de luz\",\"H\","
              "\"1,250.00\"\r\n"));
  EXPECT_EQ(resultado.lineas, 2);
  EXPECT_TRUE(resultado.completo);
  EXPECT_EQ(Mensajes(), std::vector<int>{5526});
  EXPECT_EQ(emp->mensajes.mostrados[0].icono, IconoMensaje::Informacion);
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, CatalogoMensajes::Texto(100));
}

TEST_P(Generar, TheSecondSampleAHeadRowWithTheSumsAndADetailRowPerLine) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("NO_REN")] = QStringLiteral("2");
  c[QStringLiteral("REN_FOL")] = QStringLiteral("1");
  c[QStringLiteral("REN_FEC")] = QStringLiteral("2");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("0");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN_CON")] = QStringLiteral("0");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("3");
  c[QStringLiteral("REN2_CTA")] = QStringLiteral("1");
  c[QStringLiteral("REN2_IMP")] = QStringLiteral("2");
  c[QStringLiteral("DEB_HAB")] = QStringLiteral("0");
  c[QStringLiteral("SEP_DAT")] = QStringLiteral("';'");
  InsertarFormato(*con, c);
  PolizaDeMuestra(*con);
  EXPECT_EQ(RenglonesEnOrden(Escribir(), 1), B("00000000012;15/11/2026;1,250.00;1,250.00\r\n"
                                               "0110-001-000;1,250.00;0.00\r\n"
                                               "0210-001-000;0.00;1,250.00\r\n"));
  EXPECT_EQ(resultado.lineas, 3);
}

TEST_P(Generar, TheSelectionJoinsOnTheFolioAloneWithTheFiltersInOrder) {
  InsertarFormato(*con, FormatoUsuario());
  datos.tipo = QStringLiteral("D");
  datos.operacion = QStringLiteral("22");
  datos.concepto = QStringLiteral("LUZ");
  Escribir();
  ASSERT_FALSE(emp->grabadora.sentencias.isEmpty());
  EXPECT_EQ(emp->grabadora.sentencias[0],
            QStringLiteral("SELECT tblPolizasRen.FOL_POLIZA, FEC_POLIZA, tblPolizasEnc.TIP_POLIZA, "
                           "CONCEP_POL, CUENTA_DEBE, CUENTA_HABER, IMP_DEBE, IMP_HABER, SUM_DEBE, "
                           "SUM_HABER, COD_OPER FROM tblPolizasEnc INNER JOIN tblPolizasRen ON "
                           "tblPolizasEnc.FOL_POLIZA = tblPolizasRen.FOL_POLIZA WHERE FEC_POLIZA "
                           "BETWEEN %1 AND %2 AND tblPolizasEnc.TIP_POLIZA='D' AND COD_OPER=22 "
                           "AND CONCEP_POL='LUZ' ORDER BY tblPolizasEnc.TIP_POLIZA, COD_OPER, "
                           "tblPolizasRen.FOL_POLIZA")
                .arg(ServicioUtil::FechaSQL(QDate(2026, 11, 1), emp->Motor()),
                     ServicioUtil::FechaSQL(QDate(2026, 11, 30), emp->Motor())));
  EXPECT_EQ(emp->grabadora.sentencias.size(), 1); // the user formats ask nothing per line
}

TEST_P(Generar, WithoutFiltersTheSelectionHasOnlyThePeriod) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  Escribir();
  ASSERT_EQ(emp->grabadora.sentencias.size(), 1);
  EXPECT_TRUE(emp->grabadora.sentencias[0].contains(
      QStringLiteral("BETWEEN %1 AND %2 ORDER BY")
          .arg(ServicioUtil::FechaSQL(QDate(2026, 11, 1), emp->Motor()),
               ServicioUtil::FechaSQL(QDate(2026, 11, 30), emp->Motor()))));
}

TEST_P(Generar, AnEmptySelectionEmptiesAnExistingFileAndReportsSuccess) {
  InsertarFormato(*con, FormatoUsuario());
  EscribirArchivo(archivo, "contenido anterior\r\n");
  EXPECT_EQ(Escribir(), QByteArray());
  EXPECT_TRUE(QFile::exists(RutaNativa(archivo)));
  EXPECT_EQ(resultado.lineas, 0);
  EXPECT_TRUE(resultado.completo);
  EXPECT_EQ(Mensajes(), std::vector<int>{5526});
}

TEST_P(Generar, AFirstDateLaterThanTheLastSelectsNothing) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  datos.fechaIni = QDate(2026, 11, 30);
  datos.fechaFin = QDate(2026, 11, 1);
  EXPECT_EQ(Escribir(), QByteArray());
  EXPECT_EQ(Mensajes(), std::vector<int>{5526});
}

TEST_P(Generar, ADebitLineOfZeroIsACreditAndStopsTheRunWhenItHasNoCreditAccount) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  Poliza p = Encabezado("00000000013", "D", "Renta", "0");
  InsertarPoliza(*con, p, {Cargo("120-001-000", "0")});
  const QByteArray bytes = Escribir();
  // The sample's entry is in the file; the line of folio 13 isn't.
  EXPECT_EQ(RenglonesEnOrden(bytes),
            B("00000000012,15/11/2026,D,0110-001-000,Pago de luz,D,1,250.00\r\n"
              "00000000012,15/11/2026,D,0210-001-000,Pago de luz,H,1,250.00\r\n"));
  EXPECT_FALSE(resultado.completo);
  EXPECT_EQ(resultado.lineas, 2);
  ASSERT_EQ(Mensajes(), std::vector<int>{5527});
  const Mensaje &m = emp->mensajes.mostrados[0];
  EXPECT_EQ(m.texto, CatalogoMensajes::Texto(5527) + QStringLiteral(" ") + archivo +
                         QStringLiteral("\nLlamada a procedimiento o argumento no válidos"));
  EXPECT_EQ(m.titulo, QStringLiteral("Error 5"));
  EXPECT_EQ(m.icono, IconoMensaje::Advertencia);
  EXPECT_EQ(resultado.falla, m.texto);
}

TEST_P(Generar, ADebitLineOfZeroTakesTheCreditAccountAndAmount) {
  InsertarFormato(*con, FormatoUsuario());
  con->Ejecutar(
      SentenciaInsertarPoliza(Encabezado("00000000013", "D", "Renta", "0"), emp->Motor()));
  con->Ejecutar(QStringLiteral("INSERT INTO tblPolizasRen (FOL_POLIZA,TIP_POLIZA,COD_DATO,"
                               "RUBRO_DEBE,RUBRO_HABER,CUENTA_DEBE,CUENTA_HABER,IMP_DEBE,"
                               "IMP_HABER) VALUES ('00000000013','D',1,'1-01','','120','210',0,"
                               "3.5)"));
  EXPECT_EQ(Escribir(), B("00000000013,15/11/2026,D,0210,Renta,H,3.50\r\n"));
}

TEST_P(Generar, SeparateColumnsShowZeroOnTheOtherSide) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("DEB_HAB")] = QStringLiteral("0");
  c[QStringLiteral("SEP_COM")] = QStringLiteral("-1");
  InsertarFormato(*con, c);
  PolizaDeMuestra(*con);
  EXPECT_EQ(RenglonesEnOrden(Escribir()),
            B("\"00000000012\",\"15/11/2026\",\"D\",\"0110-001-000\",\"Pago de luz\","
              "\"1,250.00\",\"0.00\"\r\n"
              "\"00000000012\",\"15/11/2026\",\"D\",\"0210-001-000\",\"Pago de luz\","
              "\"0.00\",\"1,250.00\"\r\n"));
}

TEST_P(Generar, FixedWidthFitsEveryFieldAndAWidthOfZeroLeavesTheQuotes) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("SEP_COM")] = QStringLiteral("-1");
  c[QStringLiteral("LON_FIJA")] = QStringLiteral("1");
  c[QStringLiteral("LON_FOL")] = QStringLiteral("12");
  c[QStringLiteral("AL_FOL")] = QStringLiteral("1");
  c[QStringLiteral("LON_FEC")] = QStringLiteral("10");
  c[QStringLiteral("LON_TIP")] = QStringLiteral("0");
  c[QStringLiteral("LON_CTA")] = QStringLiteral("14");
  c[QStringLiteral("AL_CTA")] = QStringLiteral("2");
  c[QStringLiteral("LON_CON")] = QStringLiteral("5");
  c[QStringLiteral("LON_DEB")] = QStringLiteral("6");
  c[QStringLiteral("AL_DEB")] = QStringLiteral("2");
  c[QStringLiteral("LON_HAB")] = QStringLiteral("10");
  InsertarFormato(*con, c);
  PolizaDeMuestra(*con);
  EXPECT_EQ(RenglonesEnOrden(Escribir()),
            B("\" 00000000012\",\"15/11/2026\",\"\",\"0110-001-000  \",\"Pago \",\"D\","
              "\"1,250.\"\r\n"
              "\" 00000000012\",\"15/11/2026\",\"\",\"0210-001-000  \",\"Pago \",\"H\","
              "\"  1,250.00\"\r\n"));
}

TEST_P(Generar, AConceptThatBeginsWithPlusKeepsItWithFixedWidthAndLosesItWithout) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("REN_FOL")] = QStringLiteral("2");
  c[QStringLiteral("REN_FEC")] = QStringLiteral("0");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("0");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN_CON")] = QStringLiteral("1");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("0");
  InsertarFormato(*con, c);
  InsertarPoliza(*con, Encabezado("00000000012", "D", "+Luz", "1"), {Cargo("110", "1")});
  EXPECT_EQ(Escribir(), B("Luz,00000000012\r\n"));
  con->Ejecutar(QStringLiteral("UPDATE tblParametrosForm SET LON_FIJA=1,LON_CON=5,AL_CON=2,"
                               "LON_FOL=11,AL_FOL=2"));
  EXPECT_EQ(Escribir(), B("+Luz ,00000000012\r\n"));
}

TEST_P(Generar, AnEmptyFieldWithoutSeparatorOrQuotesEndsTheRowThere) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("SEP_DAT")] = QStringLiteral("''");
  c[QStringLiteral("REN_FOL")] = QStringLiteral("1");
  c[QStringLiteral("REN_CON")] = QStringLiteral("2");
  c[QStringLiteral("REN_FEC")] = QStringLiteral("3");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("0");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("0");
  InsertarFormato(*con, c);
  InsertarPoliza(*con, Encabezado("00000000012", "D", "", "1"), {Cargo("110", "1")});
  InsertarPoliza(*con, Encabezado("00000000014", "D", "Luz", "1"), {Cargo("110", "1")});
  // With no separator each row loses the last character of its last field.
  EXPECT_EQ(Escribir(), B("0000000001\r\n"
                          "00000000014Luz15/11/202\r\n"));
}

TEST_P(Generar, QuotesWithoutSeparatorLoseTheLastClosingQuote) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("SEP_DAT")] = QStringLiteral("''");
  c[QStringLiteral("SEP_COM")] = QStringLiteral("-1");
  InsertarFormato(*con, c);
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Luz", "1"), {Cargo("110", "1")});
  EXPECT_EQ(Escribir(), B("\"00000000012\"\"15/11/2026\"\"D\"\"0110\"\"Luz\"\"D\"\"1.00\r\n"));
}

TEST_P(Generar, ALaterFieldOnTheSamePositionOverwritesAnEarlierOne) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("REN_FOL")] = QStringLiteral("1");
  c[QStringLiteral("REN_FEC")] = QStringLiteral("1");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("2");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN_CON")] = QStringLiteral("0");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("0");
  InsertarFormato(*con, c);
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Luz", "1"), {Cargo("110", "1")});
  EXPECT_EQ(Escribir(), B("15/11/2026,D\r\n"));
}

TEST_P(Generar, TwoEntriesWithTheSameFolioDateAndTypeShareOneHeadRow) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("NO_REN")] = QStringLiteral("2");
  c[QStringLiteral("REN_FOL")] = QStringLiteral("1");
  c[QStringLiteral("REN_FEC")] = QStringLiteral("0");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("2");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN_CON")] = QStringLiteral("3");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("0");
  c[QStringLiteral("REN2_IMP")] = QStringLiteral("1");
  InsertarFormato(*con, c);
  // Two stations took the same folio: two headers, each with one line.
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Luz", "5", QDate(2026, 11, 15), 22),
                 {Cargo("110", "5")});
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Agua", "7", QDate(2026, 11, 15), 23),
                 {Cargo("111", "7")});
  InsertarPoliza(*con, Encabezado("00000000013", "D", "Gas", "2", QDate(2026, 11, 15), 23),
                 {Cargo("112", "2")});
  const QByteArray bytes = Escribir();
  // The join gives each of the two headers both lines; one head row comes for folio 12.
  const QList<QByteArray> lineas = bytes.split('\n');
  ASSERT_EQ(lineas.size(), 8) << bytes.toStdString();
  EXPECT_EQ(lineas[0], B("00000000012,D,Luz\r"));
  EXPECT_EQ(lineas[5], B("00000000013,D,Gas\r"));
  EXPECT_EQ(lineas[6], B("D,2.00\r"));
  QList<QByteArray> detalle = lineas.mid(1, 4);
  std::sort(detalle.begin(), detalle.end());
  EXPECT_EQ(detalle,
            (QList<QByteArray>{B("D,5.00\r"), B("D,5.00\r"), B("D,7.00\r"), B("D,7.00\r")}));
  EXPECT_EQ(resultado.lineas, 7);
}

TEST_P(Generar, EntriesThatShareSomeValuesEachShowTheirOwnFields) {
  InsertarFormato(*con, FormatoUsuario());
  const QDate d15(2026, 11, 15), d16(2026, 11, 16);
  InsertarPoliza(*con, Encabezado("00000000001", "D", "Luz", "5", d15), {Cargo("110", "5")});
  InsertarPoliza(*con, Encabezado("00000000002", "D", "Luz", "5", d15), {Cargo("110", "5")});
  InsertarPoliza(*con, Encabezado("00000000003", "D", "Agua", "5", d16), {Cargo("111", "5")});
  InsertarPoliza(*con, Encabezado("00000000004", "D", "Luz", "7", d15), {Cargo("110", "7")});
  InsertarPoliza(*con, Encabezado("00000000005", "I", "Luz", "5", d15), {Abono("210", "5")});
  EXPECT_EQ(Escribir(), B("00000000001,15/11/2026,D,0110,Luz,D,5.00\r\n"
                          "00000000002,15/11/2026,D,0110,Luz,D,5.00\r\n"
                          "00000000003,16/11/2026,D,0111,Agua,D,5.00\r\n"
                          "00000000004,15/11/2026,D,0110,Luz,D,7.00\r\n"
                          "00000000005,15/11/2026,I,0210,Luz,H,5.00\r\n"));
  EXPECT_EQ(resultado.lineas, 5);
}

TEST_P(Generar, ALineEndInsideAConceptCountsAsALineOfTheFile) {
  InsertarFormato(*con, FormatoUsuario());
  InsertarPoliza(*con, Encabezado("00000000001", "D", "Luz\r\nAgua", "5"), {Cargo("110", "5")});
  EXPECT_EQ(Escribir(), B("00000000001,15/11/2026,D,0110,Luz\r\nAgua,D,5.00\r\n"));
  EXPECT_EQ(resultado.lineas, 2);
}

TEST_P(Generar, TwoTypesUnderOneFolioMeetInTheJoin) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("REN_FOL")] = QStringLiteral("1");
  c[QStringLiteral("REN_FEC")] = QStringLiteral("0");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("2");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("3");
  c[QStringLiteral("REN_CON")] = QStringLiteral("0");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("0");
  InsertarFormato(*con, c);
  InsertarPoliza(*con, Encabezado("00000000001", "I", "Venta", "5"), {Cargo("110", "5")});
  InsertarPoliza(*con, Encabezado("00000000001", "D", "Diario", "7"),
                 {Cargo("120", "7"), Abono("210", "7")});
  const QList<QByteArray> lineas = Escribir().split('\n');
  ASSERT_EQ(lineas.size(), 7);
  // Each header takes the lines of both entries: the D header first, by the order.
  QList<QByteArray> diario = lineas.mid(0, 3), ingreso = lineas.mid(3, 3);
  std::sort(diario.begin(), diario.end());
  std::sort(ingreso.begin(), ingreso.end());
  EXPECT_EQ(diario, (QList<QByteArray>{B("00000000001,D,0110\r"), B("00000000001,D,0120\r"),
                                       B("00000000001,D,0210\r")}));
  EXPECT_EQ(ingreso, (QList<QByteArray>{B("00000000001,I,0110\r"), B("00000000001,I,0120\r"),
                                        B("00000000001,I,0210\r")}));
}

TEST_P(Generar, TheConceptFilterFindsOnlyADescriptionEqualToTheCode) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("REN_FEC")] = QStringLiteral("0");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("0");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN_CON")] = QStringLiteral("2");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("0");
  InsertarFormato(*con, c);
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Pago de luz", "1"), {Cargo("110", "1")});
  InsertarPoliza(*con, Encabezado("00000000013", "D", "LUZ", "1"), {Cargo("110", "1")});
  datos.concepto = QStringLiteral("LUZ");
  EXPECT_EQ(Escribir(), B("00000000013,LUZ\r\n"));
}

TEST_P(Generar, TheTypeAndOperationFiltersNarrowTheSelection) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("REN_FEC")] = QStringLiteral("0");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("2");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN_CON")] = QStringLiteral("0");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("0");
  InsertarFormato(*con, c);
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Luz", "1", QDate(2026, 11, 15), 22),
                 {Cargo("110", "1")});
  InsertarPoliza(*con, Encabezado("00000000013", "D", "Luz", "1", QDate(2026, 11, 15), 1),
                 {Cargo("110", "1")});
  InsertarPoliza(*con, Encabezado("00000000014", "I", "Luz", "1", QDate(2026, 11, 15), 22),
                 {Cargo("110", "1")});
  datos.tipo = QStringLiteral("D");
  datos.operacion = QStringLiteral("22");
  EXPECT_EQ(Escribir(), B("00000000012,D\r\n"));
}

TEST_P(Generar, TheLinesAreInTheOrderOfTypeOperationAndFolio) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("REN_FEC")] = QStringLiteral("0");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("2");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN_CON")] = QStringLiteral("0");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("0");
  InsertarFormato(*con, c);
  InsertarPoliza(*con, Encabezado("00000000003", "I", "a", "1", QDate(2026, 11, 2), 1),
                 {Cargo("110", "1")});
  InsertarPoliza(*con, Encabezado("00000000002", "D", "a", "1", QDate(2026, 11, 3), 22),
                 {Cargo("110", "1")});
  InsertarPoliza(*con, Encabezado("00000000001", "D", "a", "1", QDate(2026, 11, 4), 22),
                 {Cargo("110", "1")});
  InsertarPoliza(*con, Encabezado("00000000004", "D", "a", "1", QDate(2026, 11, 5), 3),
                 {Cargo("110", "1")});
  EXPECT_EQ(Escribir(), B("00000000004,D\r\n00000000001,D\r\n00000000002,D\r\n"
                          "00000000003,I\r\n"));
}

TEST_P(Generar, ANullConceptStopsTheRunByTheTrap) {
  InsertarFormato(*con, FormatoUsuario());
  con->Ejecutar(QStringLiteral("INSERT INTO tblPolizasEnc (FOL_POLIZA,FEC_POLIZA,TIP_POLIZA,"
                               "COD_OPER,SUM_DEBE,SUM_HABER,ESTATUS) VALUES ('00000000012',%1,"
                               "'D',22,1,1,1)")
                    .arg(ServicioUtil::FechaSQL(QDate(2026, 11, 15), emp->Motor())));
  con->Ejecutar(SentenciaRenglonDebe(QStringLiteral("00000000012"), QStringLiteral("D"), 1,
                                     QStringLiteral("1-01"), QStringLiteral("110"), D("1")));
  EXPECT_EQ(Escribir(), QByteArray());
  ASSERT_EQ(Mensajes(), std::vector<int>{5527});
  EXPECT_EQ(emp->mensajes.mostrados[0].texto, CatalogoMensajes::Texto(5527) + QStringLiteral(" ") +
                                                  archivo +
                                                  QStringLiteral("\nUso no válido de Null"));
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, QStringLiteral("Error 94"));
}

TEST_P(Generar, APositionBeyondTheSixPlacesStopsTheRunByTheTrap) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("REN_IMP")] = QStringLiteral("7");
  InsertarFormato(*con, c);
  PolizaDeMuestra(*con);
  EXPECT_EQ(Escribir(), QByteArray());
  ASSERT_EQ(Mensajes(), std::vector<int>{5527});
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, QStringLiteral("Error 9"));
  EXPECT_TRUE(
      emp->mensajes.mostrados[0].texto.endsWith(QStringLiteral("\nSubíndice fuera del intervalo")));
}

TEST_P(Generar, AFileInAFolderThatDoesntExistGivesTheFailureMessageNamingIt) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  datos.archivo = UnirRuta(emp->Ruta(), QStringLiteral("no_existe\\polizas.txt"));
  Escribir();
  EXPECT_FALSE(resultado.completo);
  EXPECT_EQ(resultado.lineas, 0);
  ASSERT_EQ(Mensajes(), std::vector<int>{5527});
  const Mensaje &m = emp->mensajes.mostrados[0];
  EXPECT_EQ(m.texto, CatalogoMensajes::Texto(5527) + QStringLiteral(" ") + datos.archivo +
                         QStringLiteral("\nNo se encontró la ruta de acceso"));
  EXPECT_EQ(m.titulo, QStringLiteral("Error 76"));
  // The file isn't opened, so the selection isn't asked for.
  EXPECT_TRUE(emp->grabadora.sentencias.isEmpty());
}

TEST_P(Generar, AFolderInPlaceOfTheFileGivesTheAccessFailure) {
  InsertarFormato(*con, FormatoUsuario());
  QDir(emp->Ruta()).mkdir(QStringLiteral("carpeta"));
  datos.archivo = UnirRuta(emp->Ruta(), QStringLiteral("carpeta"));
  Escribir();
  ASSERT_EQ(Mensajes(), std::vector<int>{5527});
  EXPECT_EQ(emp->mensajes.mostrados[0].texto,
            CatalogoMensajes::Texto(5527) + QStringLiteral(" ") + datos.archivo +
                QStringLiteral("\nError de acceso a la ruta o al archivo"));
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, QStringLiteral("Error 75"));
}

TEST_P(Generar, AWriteThatFailsGivesTheFailureMessage) {
  if (!QFile::exists(QStringLiteral("/dev/full")))
    GTEST_SKIP() << "no device that refuses writes";
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  datos.archivo = QStringLiteral("/dev/full");
  Escribir();
  EXPECT_FALSE(resultado.completo);
  EXPECT_EQ(resultado.lineas, 0);
  ASSERT_EQ(Mensajes(), std::vector<int>{5527});
  EXPECT_EQ(emp->mensajes.mostrados[0].texto,
            CatalogoMensajes::Texto(5527) + QStringLiteral(" /dev/full\nError de E/S en el "
                                                           "dispositivo"));
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, QStringLiteral("Error 57"));
}

TEST_P(Generar, AFailureInTheDetailRowLeavesOutTheWholeLineHeadRowIncluded) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("NO_REN")] = QStringLiteral("2");
  c[QStringLiteral("REN2_IMP")] = QStringLiteral("7");
  InsertarFormato(*con, c);
  PolizaDeMuestra(*con);
  EXPECT_EQ(Escribir(), QByteArray());
  EXPECT_EQ(resultado.lineas, 0);
  ASSERT_EQ(Mensajes(), std::vector<int>{5527});
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, QStringLiteral("Error 9"));
}

TEST_P(Generar, ACharacterOutsideTheCodePageIsOneQuestionMarkEachAndTheRowEndLosesOne) {
  Columnas c = SoloConcepto();
  c[QStringLiteral("SEP_DAT")] = QStringLiteral("''");
  InsertarFormato(*con, c);
  // The snowman is one character of the text; the face is two, and keeps one of them.
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Luz \u2603", "1"), {Cargo("110", "1")});
  InsertarPoliza(*con, Encabezado("00000000013", "D", "Gas \U0001F600", "1"), {Cargo("110", "1")});
  EXPECT_EQ(Escribir(), B("Luz \r\n"
                          "Gas ?\r\n"));
  EXPECT_EQ(resultado.lineas, 2);
}

TEST_P(Generar, TheFileIsInWindows1252) {
  InsertarFormato(*con, SoloConcepto());
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Compañía €", "1"), {Cargo("110", "1")});
  EXPECT_EQ(Escribir(), B("Compa\xF1"
                          "\xED"
                          "a \x80\r\n"));
}

TEST_P(Generar, ProgressIsToldAfterEveryJournalLineWithTheLinesWritten) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("NO_REN")] = QStringLiteral("2");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN2_CTA")] = QStringLiteral("1");
  InsertarFormato(*con, c);
  PolizaDeMuestra(*con);
  FormatoArchivo formato;
  ASSERT_TRUE(CargarFormato(*con, formato));
  std::vector<std::pair<qint64, qint64>> avances;
  const ResultadoArchivo r =
      GenerarArchivo(*con, formato, datos, [&](qint64 lineas, qint64 polizas) {
        avances.emplace_back(lineas, polizas);
        return true;
      });
  EXPECT_EQ(avances, (std::vector<std::pair<qint64, qint64>>{{2, 1}, {3, 1}}));
  EXPECT_EQ(r.lineas, 3);
  EXPECT_EQ(LeerArchivo(archivo).count("\r\n"), 3);
}

TEST_P(Generar, AnExportStoppedLeavesNoFile) {
  InsertarFormato(*con, FormatoUsuario());
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Luz", "1"), {Cargo("110", "1")});
  InsertarPoliza(*con, Encabezado("00000000013", "D", "Agua", "1"), {Cargo("110", "2")});
  FormatoArchivo formato;
  ASSERT_TRUE(CargarFormato(*con, formato));
  std::vector<std::pair<qint64, qint64>> avances;
  const ResultadoArchivo r =
      GenerarArchivo(*con, formato, datos, [&](qint64 lineas, qint64 polizas) {
        avances.emplace_back(lineas, polizas);
        return false;
      });
  EXPECT_EQ(avances, (std::vector<std::pair<qint64, qint64>>{{1, 1}}));
  EXPECT_TRUE(r.detenida);
  EXPECT_FALSE(r.completo);
  EXPECT_EQ(r.lineas, 0);
  EXPECT_FALSE(QFileInfo::exists(RutaNativa(archivo)));
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].texto,
            QStringLiteral("Exportación detenida: no se escribió el archivo %1.").arg(archivo));
}

TEST_P(Generar, EachRunStartsWithoutAPreviousKey) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("NO_REN")] = QStringLiteral("2");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN2_CTA")] = QStringLiteral("1");
  c[QStringLiteral("REN2_IMP")] = QStringLiteral("0");
  c[QStringLiteral("REN_FEC")] = QStringLiteral("0");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("0");
  c[QStringLiteral("REN_CON")] = QStringLiteral("0");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("0");
  InsertarFormato(*con, c);
  InsertarPoliza(*con, Encabezado("00000000012", "D", "Luz", "1"), {Cargo("110", "1")});
  FormatoArchivo formato;
  ASSERT_TRUE(CargarFormato(*con, formato));
  GenerarArchivo(*con, formato, datos);
  EXPECT_EQ(formato.ClaveAnterior, QStringLiteral("000000000122026-11-15D"));
  GenerarArchivo(*con, formato, datos);
  EXPECT_EQ(LeerArchivo(archivo), B("00000000012\r\n0110\r\n"));
}

INSTANTIATE_TEST_SUITE_P(Motores, Generar, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
