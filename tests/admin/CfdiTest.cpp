#include "admin/Cfdi.h"
#include "ParSat.h"
#include "admin/ApoyoParametros.h"
#include "journal/DiarioPrueba.h"
#include "shell/Encriptacion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <gtest/gtest.h>

using diario::Filas;

namespace {

// A company with its row of parameters, and the SAT's pair A in a folder of its own.
class Cfdi : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    gCodSucu = QStringLiteral("MATRIZ");
    parametros::AsegurarRenglon(*con, Empresa());
    emp->mensajes.mostrados.clear();
    emp->grabadora.sentencias.clear();
  }
  parametros::Empresa Empresa() const { return {emp->Conexion(), QStringLiteral("Prueba")}; }
  static cfdi::DatosSat Datos() {
    return {cfdi::ZonasHorarias()[6], QStringLiteral("clave123"),
            ParesSat().filePath(QStringLiteral("a.key")),
            ParesSat().filePath(QStringLiteral("a.cer"))};
  }
  QString Valor(const char *columna) const { return ValorParametro(*emp, columna); }
  QStringList Avisos() const { return emp->mensajes.Textos(); }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

const QDate kHoy(2026, 11, 20);

} // namespace

TEST(ZonasHorarias, EightZonesInTheirOrderAndTheHoursOfEach) {
  ASSERT_EQ(cfdi::ZonasHorarias().size(), 8);
  EXPECT_EQ(cfdi::ZonasHorarias().first(), QStringLiteral("UTC(-08:00) - Baja California"));
  EXPECT_EQ(cfdi::ZonasHorarias()[6],
            QStringLiteral("UTC(-06:00) - Guadalajara, Ciudad de México, Monterrey"));
  EXPECT_EQ(cfdi::HorasDeZona(cfdi::ZonasHorarias()[0]), -8);
  EXPECT_EQ(cfdi::HorasDeZona(cfdi::ZonasHorarias()[3]), -7);
  EXPECT_EQ(cfdi::HorasDeZona(cfdi::ZonasHorarias()[7]), -6);
}

TEST(ValidarCamposSat, EachMissingDatumInItsOrderThenAChangeNotValidated) {
  cfdi::DatosSat d;
  EXPECT_EQ(cfdi::ValidarCamposSat(d, true, true),
            QStringLiteral("Debe especificar la Zona Horaria para poder guardar la información."));
  d.zona = cfdi::ZonasHorarias()[0];
  EXPECT_EQ(cfdi::ValidarCamposSat(d, true, true),
            QStringLiteral("Debe especificar la Clave del SAT para poder guardar la información."));
  d.clave = QStringLiteral("x");
  EXPECT_EQ(cfdi::ValidarCamposSat(d, true, true),
            QStringLiteral("Debe especificar la Llave del SAT para poder guardar la información."));
  d.llave = QStringLiteral("a.key");
  EXPECT_EQ(cfdi::ValidarCamposSat(d, true, true),
            QStringLiteral("Debe especificar el Certificado del SAT para poder guardar la "
                           "información."));
  d.certificado = QStringLiteral("a.cer");
  EXPECT_EQ(cfdi::ValidarCamposSat(d, true, true),
            QStringLiteral("Debe validar la información modificada del SAT para poder guardar la "
                           "información."));
  EXPECT_EQ(cfdi::ValidarCamposSat(d, false, true), QString());
  EXPECT_EQ(cfdi::ValidarCamposSat(d, true, false), QString());
}

TEST_P(Cfdi, ValidDataAreSavedAtOnceWithThePasswordEnciphered) {
  sat::Validacion v;
  ASSERT_TRUE(cfdi::ValidarInfoSat(*con, Datos(), kHoy, &v));
  EXPECT_EQ(v.certificado.rfc, QStringLiteral("FDL180314AB1"));
  EXPECT_EQ(Avisos(), L({"La información fue validada y guardada correctamente"}));
  EXPECT_EQ(Valor("FE_LLAVEPWD"), Encriptar(QStringLiteral("clave123")));
  EXPECT_EQ(Valor("FE_LLAVE"), Datos().llave);
  EXPECT_EQ(Valor("FE_CERTIFICADO"), Datos().certificado);
  EXPECT_EQ(Valor("FE_ZONAHORA"), Datos().zona);
  const cfdi::DatosSat leidos = cfdi::CargarCertificados(*con);
  EXPECT_EQ(leidos.clave, QStringLiteral("clave123"));
  EXPECT_EQ(leidos.zona, Datos().zona);
}

TEST_P(Cfdi, InvalidDataAreNotSavedAndTheReasonIsTold) {
  cfdi::DatosSat d = Datos();
  d.clave = QStringLiteral("otra");
  EXPECT_FALSE(cfdi::ValidarInfoSat(*con, d, kHoy));
  EXPECT_EQ(Avisos(), L({"La información no fue validada correctamente\nNo podrán guardarse los "
                         "cambios.\n\nLa contraseña no abre la llave privada."}));
  EXPECT_EQ(Valor("FE_LLAVE"), QString());
  // A missing datum stops before the validator.
  emp->mensajes.mostrados.clear();
  d.zona.clear();
  EXPECT_FALSE(cfdi::ValidarInfoSat(*con, d, kHoy));
  EXPECT_EQ(Avisos(), L({"Debe especificar la Zona Horaria para poder guardar la información."}));
}

TEST_P(Cfdi, AChangedPasswordStopsTheConfigurationUntilValidated) {
  ASSERT_TRUE(cfdi::ValidarInfoSat(*con, Datos(), kHoy));
  emp->mensajes.mostrados.clear();
  cfdi::DatosSat d = Datos();
  d.clave = QStringLiteral("cambiada");
  EXPECT_FALSE(cfdi::GrabarConfiguracionCfdi(*con, Empresa(), d, true, QStringLiteral("C:\\XML"),
                                             QDate(2027, 5, 1), true, kHoy));
  EXPECT_EQ(Avisos(), L({"Debe validar la información modificada del SAT para poder guardar la "
                         "información."}));
  EXPECT_EQ(Valor("FE_RUTAXML"), QString());
  // The zone alone needs no validation.
  emp->mensajes.mostrados.clear();
  cfdi::GrabarZona(*con, Empresa(), cfdi::ZonasHorarias()[2]);
  EXPECT_EQ(Valor("FE_ZONAHORA"), cfdi::ZonasHorarias()[2]);
  EXPECT_EQ(Avisos(), L({"Parámetros guardados"}));
}

TEST_P(Cfdi, TheConfigurationSavesFolderExpiryAndAVersionThatOnlyGoesUp) {
  con->Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FE_VERSION=32,FE_ACTUAL=0"));
  emp->grabadora.sentencias.clear();
  // Before 2018 the box decides.
  ASSERT_TRUE(cfdi::GrabarConfiguracionCfdi(*con, Empresa(), Datos(), false,
                                            QStringLiteral("C:\\XML"), QDate(2017, 12, 1), false,
                                            QDate(2017, 6, 1)));
  EXPECT_TRUE(emp->grabadora.sentencias.contains(
      QStringLiteral("UPDATE tblParametrosGenerales SET FE_PAC=0,FE_ORIGEN=0,FE_RUTAXML='C:\\XML',"
                     "FE_VENCERT=%1;")
          .arg(ServicioUtil::FechaSQL(QDate(2017, 12, 1), emp->Motor()))));
  EXPECT_EQ(Valor("FE_VERSION"), QStringLiteral("32"));
  // From 2018 unticking the box changes nothing: 33 is stored, and the modules changed over.
  ASSERT_TRUE(cfdi::GrabarConfiguracionCfdi(
      *con, Empresa(), Datos(), false, QStringLiteral("C:\\XML"), QDate(2027, 5, 1), false, kHoy));
  EXPECT_EQ(Valor("FE_VERSION"), QStringLiteral("33"));
  EXPECT_EQ(Valor("FE_ACTUAL"), QStringLiteral("1"));
  EXPECT_EQ(Valor("FE_VENCERT").left(10), QStringLiteral("2027-05-01"));
  // A stored 33 isn't lowered, not even before 2018.
  emp->grabadora.sentencias.clear();
  ASSERT_TRUE(cfdi::GrabarConfiguracionCfdi(*con, Empresa(), Datos(), false,
                                            QStringLiteral("C:\\XML"), QDate(2017, 12, 1), false,
                                            QDate(2017, 6, 1)));
  EXPECT_EQ(Valor("FE_VERSION"), QStringLiteral("33"));
  EXPECT_TRUE(emp->grabadora.sentencias.filter(QStringLiteral("SET FE_VERSION=")).isEmpty());
}

TEST_P(Cfdi, TheAccountIsSavedAfterTheQuestionOnlyWithAllItsData) {
  EXPECT_FALSE(cfdi::GrabarCuentaFE(*con, QStringLiteral("A"), QStringLiteral("timbrado"),
                                    QString(), true, kHoy));
  EXPECT_EQ(Avisos(), L({"¿Todos los datos fiscales de la empresa son correctos?"}));
  EXPECT_EQ(Valor("CFD_FACT"), QStringLiteral("0"));
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  EXPECT_FALSE(cfdi::GrabarCuentaFE(*con, QStringLiteral("A"), QStringLiteral("timbrado"),
                                    QStringLiteral("s3cr3t"), true, kHoy));
  EXPECT_EQ(Valor("CFD_FACT"), QStringLiteral("0"));
  emp->grabadora.sentencias.clear();
  EXPECT_TRUE(cfdi::GrabarCuentaFE(*con, QStringLiteral("A"), QStringLiteral("timbrado"),
                                   QStringLiteral("s3cr3t"), true, kHoy));
  const QStringList s = emp->grabadora.sentencias;
  ASSERT_GE(s.size(), 5);
  EXPECT_EQ(
      s.mid(0, 5),
      QStringList({QStringLiteral("UPDATE tblParametrosGenerales SET FE_USUARIO = 'timbrado';"),
                   QStringLiteral("UPDATE tblParametrosGenerales SET FE_CONTRASENA = '%1';")
                       .arg(Encriptar(QStringLiteral("s3cr3t"))),
                   QStringLiteral("UPDATE tblParametrosGenerales SET FE_WEBSERVURL = 'A';"),
                   QStringLiteral("UPDATE tblParametrosGenerales SET CFD_FACT = 1;"),
                   QStringLiteral("UPDATE tblParametrosGenerales SET FE_VERSION = 33;")}));
  EXPECT_EQ(Valor("CFD_FACT"), QStringLiteral("1"));
}

INSTANTIATE_TEST_SUITE_P(Motores, Cfdi, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
