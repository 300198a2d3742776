#include "pantallas/frmDirectorios.h"
#include "Capturas.h"
#include "pantallas/Apostrofos.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

TEST(frmDirectorios, AcceptingReturnsTheCurrentFolder) {
  QTemporaryDir dir;
  gRutaDirectorio = dir.path();
  frmDirectorios f;
  f.show();
  EXPECT_EQ(f.CarpetaActual(), QDir::toNativeSeparators(dir.path()));
  GuardarCaptura(&f, QStringLiteral("frmDirectorios"));
  f.cmdAcepta->click();
  EXPECT_EQ(gRutaDirectorio, QDir::toNativeSeparators(dir.path()));
  EXPECT_EQ(f.result(), QDialog::Accepted);
}

TEST(frmDirectorios, CancellingReturnsTheEmptyText) {
  QTemporaryDir dir;
  gRutaDirectorio = dir.path();
  frmDirectorios f;
  f.cmdCancel->click();
  EXPECT_EQ(gRutaDirectorio, QString());
  EXPECT_EQ(f.result(), QDialog::Rejected);
}

TEST(frmDirectorios, ANewFolderIsCreatedBelowTheCurrentOneAndTheNameCleared) {
  QTemporaryDir dir;
  gRutaDirectorio = dir.path();
  frmDirectorios f;
  f.show();
  f.cmdNuevo->click(); // no name: only the focus moves
  EXPECT_EQ(QDir(dir.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 0);
  f.txtDir->setFocus();
  QTest::keyClicks(f.txtDir, QStringLiteral("Polizas 2024"));
  f.cmdNuevo->click();
  EXPECT_TRUE(QFileInfo(dir.filePath(QStringLiteral("Polizas 2024"))).isDir());
  EXPECT_EQ(f.txtDir->text(), QString());
}

TEST(frmDirectorios, TheApostropheIsRefused) {
  gRutaDirectorio.clear();
  frmDirectorios f;
  f.show();
  QApplication::setActiveWindow(&f);
  f.txtDir->setFocus();
  QTest::keyClicks(f.txtDir, QStringLiteral("D'Angelo"));
  EXPECT_EQ(f.txtDir->text(), QStringLiteral("DAngelo"));
}

TEST(frmDirectorios, AStartingFolderThatDoesntExistIsIgnored) {
  gRutaDirectorio = QStringLiteral("/no/existe/jamas");
  frmDirectorios f;
  EXPECT_EQ(f.CarpetaActual(), QString());
}

TEST(frmDirectorios, TheApostropheIsRefusedHoweverItComes) {
  QTemporaryDir dir;
  gRutaDirectorio = dir.path();
  frmDirectorios f;
  f.show();
  QApplication::setActiveWindow(&f);
  EXPECT_GE(IntentarApostrofos(&f), 1);
}
