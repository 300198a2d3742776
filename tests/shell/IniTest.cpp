#include "Apoyo.h"
#include "shell/ServicioUtil.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class Ini : public testing::Test {
protected:
  QTemporaryDir dir;
  QString Ruta(const char *nombre) const { return dir.filePath(QLatin1String(nombre)); }
  QString Leer(const char *s, const char *k, const QString &f) const {
    return ServicioUtil::LeerIni(QLatin1String(s), QLatin1String(k), f);
  }
};

} // namespace

TEST_F(Ini, AbsentFileSectionOrKeyGivesEmptyText) {
  const QString f = Ruta("Nimbar.ini");
  EXPECT_EQ(Leer("VARIOS", "EDICION", f), QString());
  EscribirArchivo(f, "[VARIOS]\r\nEMPRESA=3\r\n");
  EXPECT_EQ(Leer("VARIOS", "EDICION", f), QString());
  EXPECT_EQ(Leer("OTRA", "EMPRESA", f), QString());
}

TEST_F(Ini, SectionsAndKeysMatchWithoutRegardToCaseAndBlanksAreTrimmed) {
  const QString f = Ruta("a.ini");
  EscribirArchivo(f, "  [ Varios ]  \r\n  empresa  =   12   \r\nRUTA=\"C:\\Prog Files\"\r\n");
  EXPECT_EQ(Leer("VARIOS", "EMPRESA", f), QStringLiteral("12"));
  EXPECT_EQ(Leer("varios", "Ruta", f), QStringLiteral("C:\\Prog Files"));
}

TEST_F(Ini, FirstOccurrenceWinsAndOtherSectionsDontLeak) {
  const QString f = Ruta("a.ini");
  EscribirArchivo(f, "[A]\nK=1\nK=2\n[B]\nK=3\n[A]\nK=4\n");
  EXPECT_EQ(Leer("A", "K", f), QStringLiteral("1"));
  EXPECT_EQ(Leer("B", "K", f), QStringLiteral("3"));
}

TEST_F(Ini, OddContentIsReadWithoutHarm) {
  const QString f = Ruta("raro.ini");
  static const char kBasura[] = "\x00\x01\xff\xfe sin seccion\n=sin clave\nEDICION=9\n";
  QByteArray bytes(kBasura, sizeof(kBasura) - 1);
  bytes += QByteArray(10000, 'x');
  bytes += "\n[VARIOS]\nEDICION\n;EDICION=5\nEDICION=2\nCIUDAD=Le\xf3n\n[VACIA]";
  EscribirArchivo(f, bytes);
  EXPECT_EQ(Leer("VARIOS", "EDICION", f), QStringLiteral("2"));
  EXPECT_EQ(Leer("VARIOS", "CIUDAD", f), QStringLiteral("León"));
  EXPECT_EQ(Leer("VARIOS", ";EDICION", f), QStringLiteral("5"));
  EXPECT_EQ(Leer("VACIA", "EDICION", f), QString());
}

TEST_F(Ini, WritingCreatesTheFileAndTheSection) {
  const QString f = Ruta("nuevo.ini");
  ASSERT_TRUE(ServicioUtil::EscribirIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"),
                                        QStringLiteral("7"), f));
  EXPECT_EQ(LeerArchivo(f), QByteArray("[VARIOS]\r\nEMPRESA=7\r\n"));
  ASSERT_TRUE(ServicioUtil::EscribirIni(QStringLiteral("Config"), QStringLiteral("MDBDir"),
                                        QStringLiteral("DSN=Tienda"), f));
  EXPECT_EQ(LeerArchivo(f),
            QByteArray("[VARIOS]\r\nEMPRESA=7\r\n[Config]\r\nMDBDir=DSN=Tienda\r\n"));
}

TEST_F(Ini, WritingReplacesInPlaceAndKeepsEveryOtherLine) {
  const QString f = Ruta("a.ini");
  EscribirArchivo(f, "; comentario\r\n[VARIOS]\r\nEDICION=2\r\nempresa = 1\r\n\r\n[FAST FOOD]\r\n"
                     "MERCANCIA=S\r\n");
  ASSERT_TRUE(ServicioUtil::EscribirIni(QStringLiteral("varios"), QStringLiteral("EMPRESA"),
                                        QStringLiteral("4"), f));
  ASSERT_TRUE(ServicioUtil::EscribirIni(QStringLiteral("VARIOS"), QStringLiteral("DIRCONSULTAS"),
                                        QStringLiteral("C:\\Consultas"), f));
  EXPECT_EQ(LeerArchivo(f),
            QByteArray("; comentario\r\n[VARIOS]\r\nEDICION=2\r\nEMPRESA=4\r\n"
                       "DIRCONSULTAS=C:\\Consultas\r\n\r\n[FAST FOOD]\r\nMERCANCIA=S\r\n"));
}

TEST_F(Ini, AFileThatCantBeWrittenIsReportedAndLosesNothing) {
  const QString f = dir.filePath(QStringLiteral("no/existe/a.ini"));
  EXPECT_FALSE(
      ServicioUtil::EscribirIni(QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"), f));
}

TEST_F(Ini, NamesMatchFilesWithoutRegardToCase) {
  EscribirArchivo(Ruta("Nimbar.ini"), "[VARIOS]\r\nEDICION=2\r\n");
  EXPECT_EQ(Leer("VARIOS", "EDICION", dir.path() + QStringLiteral("\\NIMBAR.INI")),
            QStringLiteral("2"));
}

TEST(Val, ReadsTheLeadingNumber) {
  EXPECT_EQ(Val(QStringLiteral("2")), 2.0);
  EXPECT_EQ(Val(QStringLiteral(" 12abc")), 12.0);
  EXPECT_EQ(Val(QStringLiteral("abc")), 0.0);
  EXPECT_EQ(Val(QString()), 0.0);
  EXPECT_EQ(Val(QStringLiteral("-3.5x")), -3.5);
  EXPECT_EQ(Val(QStringLiteral("1 0")), 10.0);
}
