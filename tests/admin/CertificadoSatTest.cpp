#include "admin/CertificadoSat.h"
#include "Apoyo.h"
#include "ParSat.h"

#include <gtest/gtest.h>

namespace {

// The validator over the pairs of the SAT's kind that ParesSat makes.
class CertificadoSat : public testing::Test {
protected:
  static QString Ruta(const char *archivo) { return ParesSat().filePath(QLatin1String(archivo)); }
  static sat::Validacion Validar(const char *clave, const char *cer, const char *key,
                                 QDate hoy = QDate::currentDate()) {
    return sat::ValidarDatosSat(QLatin1String(clave), Ruta(cer), Ruta(key), hoy);
  }
};

} // namespace

TEST_F(CertificadoSat, TheRightPairAndPasswordAreValidAndTheCertificateSpeaks) {
  const sat::Validacion v = Validar("clave123", "a.cer", "a.key");
  EXPECT_TRUE(v.valida) << v.motivo.toStdString();
  EXPECT_EQ(v.motivo, QString());
  EXPECT_EQ(v.aviso, QString());
  EXPECT_EQ(v.certificado.titular, QStringLiteral("LA FONDA DE DOÑA LUPE SA DE CV"));
  EXPECT_EQ(v.certificado.rfc, QStringLiteral("FDL180314AB1"));
  EXPECT_EQ(v.certificado.serie, QStringLiteral("30001000000300023708"));
  // The certificate's dates are UTC: a day either side of the local one.
  EXPECT_LE(std::abs(QDate::currentDate().addDays(365).daysTo(v.certificado.vence)), 1);
  EXPECT_LE(std::abs(QDate::currentDate().daysTo(v.certificado.desde)), 1);
}

TEST_F(CertificadoSat, AWrongPasswordDoesntOpenTheKey) {
  const sat::Validacion v = Validar("clave124", "a.cer", "a.key");
  EXPECT_FALSE(v.valida);
  EXPECT_EQ(v.motivo, QStringLiteral("La contraseña no abre la llave privada."));
}

TEST_F(CertificadoSat, AKeyOfAnotherPairIsRefused) {
  const sat::Validacion v = Validar("clave123", "a.cer", "b.key");
  EXPECT_FALSE(v.valida);
  EXPECT_EQ(v.motivo, QStringLiteral("La llave privada no corresponde al certificado."));
}

TEST_F(CertificadoSat, PemFilesAreNotTheSatsForm) {
  sat::Validacion v = Validar("clave123", "a_pem.cer", "a.key");
  EXPECT_FALSE(v.valida);
  EXPECT_EQ(v.motivo,
            QStringLiteral("El certificado está en formato PEM; el del SAT (.cer) está en DER."));
  v = Validar("clave123", "a.cer", "a.pem");
  EXPECT_FALSE(v.valida);
  EXPECT_EQ(v.motivo,
            QStringLiteral("La llave privada está en formato PEM; la del SAT (.key) está en DER."));
  // A certificate in place of the key.
  v = Validar("clave123", "a.cer", "a.cer");
  EXPECT_FALSE(v.valida);
  EXPECT_EQ(v.motivo,
            QStringLiteral("El archivo %1 no es una llave privada cifrada (PKCS#8 en DER).")
                .arg(Ruta("a.cer")));
}

TEST_F(CertificadoSat, EmptyMissingOrForeignFilesGiveTheirReason) {
  sat::Validacion v = Validar("clave123", "vacio.cer", "a.key");
  EXPECT_FALSE(v.valida);
  EXPECT_EQ(v.motivo, QStringLiteral("El certificado %1 está vacío.").arg(Ruta("vacio.cer")));
  v = Validar("clave123", "no_existe.cer", "a.key");
  EXPECT_EQ(v.motivo,
            QStringLiteral("No se pudo leer el certificado %1.").arg(Ruta("no_existe.cer")));
  v = Validar("clave123", "a.key", "a.key");
  EXPECT_EQ(v.motivo, QStringLiteral("El archivo %1 no es un certificado X.509 en formato DER.")
                          .arg(Ruta("a.key")));
  v = Validar("clave123", "a.cer", "vacio.cer");
  EXPECT_FALSE(v.valida);
  EXPECT_EQ(v.motivo, QStringLiteral("La llave privada %1 está vacía.").arg(Ruta("vacio.cer")));
}

TEST_F(CertificadoSat, AnExpiredOrExpiringCertificateIsSaidSo) {
  const QDate vence = Validar("clave123", "a.cer", "a.key").certificado.vence;
  const QString fecha = vence.toString(QStringLiteral("dd/MM/yyyy"));
  sat::Validacion v = Validar("clave123", "a.cer", "a.key", vence.addDays(1));
  EXPECT_TRUE(v.valida);
  EXPECT_EQ(v.aviso, QStringLiteral("El certificado venció el %1.").arg(fecha));
  v = Validar("clave123", "a.cer", "a.key", vence.addDays(-10));
  EXPECT_EQ(v.aviso, QStringLiteral("El certificado vence el %1, dentro de 10 días.").arg(fecha));
  v = Validar("clave123", "a.cer", "a.key", vence.addDays(-31));
  EXPECT_EQ(v.aviso, QString());
}
