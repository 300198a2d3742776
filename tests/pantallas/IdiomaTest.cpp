#include "pantallas/Pantallas.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

// The screens' tests run under the C locale (see their main): what shows here in Spanish
// does so whatever the machine's language.

TEST(Idioma, TheCalendarNamesTheMonthsInSpanish) {
  EXPECT_EQ(QLocale().monthName(1), QStringLiteral("enero"));
  EXPECT_EQ(QLocale().dayName(1), QStringLiteral("lunes"));
  QCalendarWidget calendario;
  EXPECT_EQ(calendario.locale().language(), QLocale::Spanish);
  EXPECT_EQ(calendario.locale().territory(), QLocale::Mexico);
}

TEST(Idioma, TheFileDialogSpeaksSpanishOpensInItsFolderAndAddsTxt) {
  QTemporaryDir dir;
  QStringList botones;
  QString carpeta;
  QTimer::singleShot(0, [&] {
    auto *dialogo = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
    ASSERT_NE(dialogo, nullptr);
    carpeta = dialogo->directory().absolutePath();
    for (QPushButton *b : dialogo->findChild<QDialogButtonBox *>()->findChildren<QPushButton *>())
      botones << b->text().remove(QLatin1Char('&'));
    auto *nombre = dialogo->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    ASSERT_NE(nombre, nullptr);
    nombre->setText(QStringLiteral("polizas"));
    QTest::keyClick(nombre, Qt::Key_Return);
  });
  const QString elegido =
      PedirArchivo(nullptr, QStringLiteral("Escriba el nombre del archivo"),
                   QStringLiteral("Archivos de Texto (*.txt)"), dir.path(), true);
  EXPECT_EQ(carpeta, QDir(dir.path()).absolutePath());
  EXPECT_TRUE(botones.contains(QStringLiteral("Guardar"))) << botones.join(u',').toStdString();
  EXPECT_TRUE(botones.contains(QStringLiteral("Cancelar"))) << botones.join(u',').toStdString();
  EXPECT_EQ(elegido, QDir::toNativeSeparators(dir.filePath(QStringLiteral("polizas.txt"))));
}
