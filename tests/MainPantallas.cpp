#include "pantallas/Pantallas.h"

#include <QApplication>
#include <gtest/gtest.h>

// Screens are tested offscreen unless the environment asks for a real display, and under
// the C locale: they speak Spanish whatever the machine's language.
int main(int argc, char **argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("LC_ALL", "C");
  qputenv("LANG", "C");
  qputenv("LANGUAGE", "C");
  QApplication app(argc, argv);
  PrepararIdioma();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
