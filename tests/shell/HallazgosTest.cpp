// What the fuzzers found, each kept as the case it was.
#include "Apoyo.h"
#include "shell/Dinero.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"

#include <gtest/gtest.h>

TEST(Hallazgos, AnAmountBeyondSixtyFourBitsIsNotANumberRatherThanAWrongOne) {
  bool ok = true;
  Dinero::DeTexto(u"12535724126778678", &ok);
  EXPECT_FALSE(ok);
  Dinero::DeTexto(u"922337203685477.5808", &ok);
  EXPECT_FALSE(ok);
  Dinero::DeTexto(u"922337203685477.58075", &ok); // rounds up past the largest
  EXPECT_FALSE(ok);
  EXPECT_EQ(Dinero::DeTexto(u"922337203685477.5807", &ok),
            Dinero::DeDiezmilesimos(std::numeric_limits<std::int64_t>::max()));
  EXPECT_TRUE(ok);
  EXPECT_EQ(Dinero::DeTexto(u"-922337203685477.5807", &ok).Texto(),
            QStringLiteral("-922337203685477.5807"));
  EXPECT_TRUE(ok);
}

TEST(Hallazgos, TheFiveBytesWindows1252LeavesUndefinedComeBackAsTheyWereRead) {
  const QByteArray bytes("\x81\x8d\x8f\x90\x9d\x80\xff", 7);
  EXPECT_EQ(CodificarWindows1252(DecodificarWindows1252(bytes)), bytes);
  EXPECT_EQ(CodificarWindows1252(QStringLiteral("€ ✓")), QByteArray("\x80 ?"));
}

TEST(Hallazgos, ANulInATextValueIsDroppedRatherThanCuttingTheStatement) {
  EXPECT_EQ(Escapar(QString::fromUtf16(u"D'AN\u0000GELO", 9)), QStringLiteral("D''ANGELO"));
  EXPECT_EQ(Escapar(QString::fromUtf16(u"A\u0000B", 3)), QStringLiteral("AB"));
  EXPECT_EQ(Escapar(QStringLiteral("SIN NADA")), QStringLiteral("SIN NADA"));
}

class HallazgosMotor : public testing::TestWithParam<std::string> {};

TEST_P(HallazgosMotor, AValueWithANulIsStoredWithoutIt) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  con->Ejecutar(QStringLiteral("INSERT INTO tblCiudad (COD_CID,DES_CID) VALUES ('GDL','") +
                Escapar(QString::fromUtf16(u"GUADA\u0000LAJARA", 12)) + QStringLiteral("')"));
  EXPECT_EQ(emp.Valor(QStringLiteral("SELECT DES_CID FROM tblCiudad WHERE COD_CID='GDL'")),
            QStringLiteral("GUADALAJARA"));
}

TEST_P(HallazgosMotor, ABackslashBeforeAnApostropheIsStoredAsItReads) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  const QString ruta = QStringLiteral("C:\\Temp\\D'ANGELO\\");
  con->Ejecutar(QStringLiteral("INSERT INTO tblCiudad (COD_CID,DES_CID) VALUES ('X','") +
                Escapar(ruta) + QStringLiteral("')"));
  EXPECT_EQ(emp.Valor(QStringLiteral("SELECT DES_CID FROM tblCiudad WHERE COD_CID='X'")), ruta);
}

TEST_P(HallazgosMotor, ALongTextComesBackWholeInEveryPieceTheDriverHandsOver) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  QString largo;
  for (int i = 0; i < 3000; ++i)
    largo += QChar(u'A' + i % 26);
  largo += QStringLiteral("ñ€");
  con->Ejecutar(QStringLiteral("INSERT INTO tblFacturaElectronica (CADENA_ORIGINAL) VALUES ('") +
                Escapar(largo) + QStringLiteral("')"));
  Registros r = con->Abrir(QStringLiteral("SELECT CADENA_ORIGINAL FROM tblFacturaElectronica"));
  EXPECT_EQ(r.Campo(QStringLiteral("CADENA_ORIGINAL")).Texto(), largo);
}

INSTANTIATE_TEST_SUITE_P(Motores, HallazgosMotor, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);
