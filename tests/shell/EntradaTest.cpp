#include "shell/Entrada.h"
#include "Apoyo.h"
#include "db/EmpresaDemo.h"
#include "shell/Encriptacion.h"
#include "shell/Sesion.h"

#include <gtest/gtest.h>

namespace {

class Entrada : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    demo::LlenarIdentidad(*con, QStringLiteral("clave"));
    gNumEmp = 1;
  }
  void Usuario(const QString &cod, const QString &p1, const QString &p2, int estatus = 0) {
    con->Ejecutar(QStringLiteral("INSERT INTO tblUsuarios (COD_USU,PASS1_USU,PASS2_USU,ESTATUS) "
                                 "VALUES ('%1','%2','%3',%4)")
                      .arg(cod, p1, p2)
                      .arg(estatus));
  }
  ResultadoEntrada Entrar(const QString &cod, const QString &clave) {
    ConexionPtr general = emp->AbrirGeneral();
    return AceptarEntrada(*general, *con, cod, clave);
  }
  QString Clave(const char *columna, const QString &cod) {
    return emp->Valor(QStringLiteral("SELECT %1 FROM tblUsuarios WHERE COD_USU='%2'")
                          .arg(QLatin1String(columna), cod));
  }
  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

} // namespace

TEST_P(Entrada, TheCodeIsUpperCasedAndTheSessionLoaded) {
  EXPECT_EQ(Entrar(QStringLiteral("admin"), QStringLiteral("clave")), ResultadoEntrada::Aceptada);
  EXPECT_EQ(gCodUsu, QStringLiteral("ADMIN"));
  EXPECT_EQ(gPassUsu, QStringLiteral("clave"));
  EXPECT_EQ(gNomCom, QStringLiteral("La Fonda de Doña Lupe"));
  EXPECT_TRUE(gVersionOk);
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

TEST_P(Entrada, UnknownBarredAndWrongPasswordAreRefusedWithTheirMessages) {
  Usuario(QStringLiteral("BETO"), QStringLiteral("x"), QString(), 9);
  EXPECT_EQ(Entrar(QStringLiteral("NADIE"), QStringLiteral("x")),
            ResultadoEntrada::UsuarioDesconocido);
  EXPECT_EQ(Entrar(QStringLiteral("BETO"), QStringLiteral("x")),
            ResultadoEntrada::UsuarioBloqueado);
  EXPECT_EQ(Entrar(QStringLiteral("ADMIN"), QStringLiteral("Clave")),
            ResultadoEntrada::ClaveIncorrecta);
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{410, 400, 409}));
  EXPECT_EQ(emp->mensajes.mostrados[0].botones, BotonesMensaje::AceptarCancelar);
  EXPECT_EQ(gCodUsu, QString());
}

TEST_P(Entrada, AUserInUseLogsInNormally) {
  con->Ejecutar(QStringLiteral("UPDATE tblUsuarios SET ESTATUS=2 WHERE COD_USU='ADMIN'"));
  EXPECT_EQ(Entrar(QStringLiteral("ADMIN"), QStringLiteral("clave")), ResultadoEntrada::Aceptada);
}

TEST_P(Entrada, APlainPasswordOfTenIsPlainAndIsMigratedWithTheOthers) {
  Usuario(QStringLiteral("CAJA"), QStringLiteral("0123456789"), QStringLiteral("dos"));
  Usuario(QStringLiteral("OTRO"), QStringLiteral("abc"), QString());
  EXPECT_EQ(Entrar(QStringLiteral("CAJA"), QStringLiteral("0123456789")),
            ResultadoEntrada::Aceptada);
  EXPECT_EQ(Desencriptar(Clave("PASS1_USU", QStringLiteral("CAJA"))), QStringLiteral("0123456789"));
  EXPECT_EQ(Desencriptar(Clave("PASS2_USU", QStringLiteral("CAJA"))), QStringLiteral("dos"));
  EXPECT_EQ(Desencriptar(Clave("PASS1_USU", QStringLiteral("OTRO"))), QStringLiteral("abc"));
  // The test is on the length alone: an empty password is scrambled too.
  EXPECT_GE(Clave("PASS2_USU", QStringLiteral("OTRO")).size(), 11);
  EXPECT_EQ(Desencriptar(Clave("PASS2_USU", QStringLiteral("OTRO"))), QString());
}

TEST_P(Entrada, APlainPasswordOfElevenCanNeverBeMatched) {
  Usuario(QStringLiteral("LARGO"), QStringLiteral("01234567890"), QString());
  EXPECT_EQ(Entrar(QStringLiteral("LARGO"), QStringLiteral("01234567890")),
            ResultadoEntrada::ClaveIncorrecta);
}

TEST_P(Entrada, WithAScrambledFirstPasswordTheSecondIsLeftAlone) {
  Usuario(QStringLiteral("ANA"), Encriptar(QStringLiteral("uno")), QStringLiteral("dos"));
  EXPECT_EQ(Entrar(QStringLiteral("ANA"), QStringLiteral("uno")), ResultadoEntrada::Aceptada);
  EXPECT_EQ(Clave("PASS2_USU", QStringLiteral("ANA")), QStringLiteral("dos"));
}

TEST_P(Entrada, VersionBelowSixtyLeavesEveryPasswordAsItIs) {
  con->Ejecutar(QStringLiteral("UPDATE tblVersion SET VER=590"));
  Usuario(QStringLiteral("CAJA"), QStringLiteral("plana"), QStringLiteral("otra"));
  EXPECT_EQ(Entrar(QStringLiteral("CAJA"), QStringLiteral("plana")), ResultadoEntrada::Aceptada);
  EXPECT_EQ(Clave("PASS1_USU", QStringLiteral("CAJA")), QStringLiteral("plana"));
  EXPECT_EQ(Clave("PASS1_USU", QStringLiteral("ADMIN")).size(),
            Encriptar(QStringLiteral("clave")).size());
  EXPECT_FALSE(gVersionOk);
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, QStringLiteral("Sistema"));
  EXPECT_EQ(emp->mensajes.mostrados[0].texto,
            QStringLiteral("La versión de la empresa es distinta a la del sistema.\nRevisar "
                           "versiones actuales en Sistema - Información."));
}

TEST_P(Entrada, ANewerCompanyWarnsButKeepsTheVersionGood) {
  con->Ejecutar(QStringLiteral("UPDATE tblVersion SET VER=910"));
  EXPECT_EQ(Entrar(QStringLiteral("ADMIN"), QStringLiteral("clave")), ResultadoEntrada::Aceptada);
  EXPECT_TRUE(gVersionOk);
  EXPECT_EQ(emp->mensajes.mostrados.size(), 1u);
}

TEST_P(Entrada, AnUnknownVersionWarnsAndGoesOn) {
  con->Ejecutar(QStringLiteral("DELETE FROM tblVersion"));
  EXPECT_EQ(Entrar(QStringLiteral("ADMIN"), QStringLiteral("clave")), ResultadoEntrada::Aceptada);
  EXPECT_FALSE(gVersionOk);
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_TRUE(emp->mensajes.mostrados[0].texto.startsWith(
      QStringLiteral("La versión de la empresa es desconocida.\n")));
}

INSTANTIATE_TEST_SUITE_P(Motores, Entrada, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
