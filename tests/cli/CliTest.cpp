#include "Apoyo.h"
#include "ApoyoCli.h"
#include "shell/Sesion.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using Salida = SalidaCli;

SalidaCli Correr(const QStringList &args) { return CorrerCli(args); }

class Cli : public testing::Test {
protected:
  void SetUp() override { CatalogoMensajes::Instalar(&mensajes); }
  void TearDown() override {
    CatalogoMensajes::Instalar(nullptr);
    qunsetenv("ESCRIBANO_RUTA");
  }
  QTemporaryDir dir;
  PresentadorGrabador mensajes;
};

} // namespace

TEST_F(Cli, DemoThenSummaryShowsTheCompanyAndEmptyJournal) {
  Salida d = Correr({QStringLiteral("--ruta"), dir.path(), QStringLiteral("demo"),
                     QStringLiteral("--clave"), QStringLiteral("abc")});
  ASSERT_EQ(d.codigo, 0) << d.err.toStdString();
  EXPECT_TRUE(d.out.contains(QStringLiteral("Usuario ADMIN, con la clave dada")));
  EXPECT_FALSE(d.out.contains(QStringLiteral("abc")));
  Salida r = Correr({QStringLiteral("--ruta"), dir.path(), QStringLiteral("resumen")});
  ASSERT_EQ(r.codigo, 0) << r.err.toStdString();
  EXPECT_TRUE(r.out.contains(QStringLiteral("Empresa 1: La Fonda de Doña Lupe")));
  EXPECT_TRUE(r.out.contains(QStringLiteral("Sucursal:        MATRIZ")));
  EXPECT_TRUE(r.out.contains(QStringLiteral("tblPolizasEnc        0")));
}

TEST_F(Cli, AFolderWithoutInstallationIsAFatalErrorWithExitTwo) {
  Salida r = Correr({QStringLiteral("--ruta"), dir.path(), QStringLiteral("resumen")});
  EXPECT_EQ(r.codigo, 2);
  // The path as the platform writes it: no backslash that reads as "\n" on Linux.
  EXPECT_TRUE(r.err.contains(CatalogoMensajes::Texto(300) + QStringLiteral("\n") +
                             QDir::toNativeSeparators(dir.path() + QStringLiteral("/nimbar.mdb"))))
      << r.err.toStdString();
}

TEST_F(Cli, AnUnknownCompanyIsReported) {
  ASSERT_EQ(Correr({QStringLiteral("--ruta"), dir.path(), QStringLiteral("demo")}).codigo, 0);
  Salida r = Correr({QStringLiteral("--ruta"), dir.path(), QStringLiteral("resumen"),
                     QStringLiteral("--empresa"), QStringLiteral("9")});
  EXPECT_EQ(r.codigo, 2);
  EXPECT_TRUE(r.err.contains(QStringLiteral("No existe la empresa 9")));
}

TEST_F(Cli, UsageErrorsExitOne) {
  EXPECT_EQ(Correr({}).codigo, 1);
  EXPECT_EQ(Correr({QStringLiteral("--ruta"), dir.path(), QStringLiteral("volar")}).codigo, 1);
  EXPECT_EQ(Correr({QStringLiteral("--nada")}).codigo, 1);
  EXPECT_EQ(Correr({QStringLiteral("--ayuda")}).codigo, 0);
}
