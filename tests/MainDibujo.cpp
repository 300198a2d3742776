#include <QGuiApplication>
#include <gtest/gtest.h>

// The drawing tests paint pages: they need fonts, not windows.
int main(int argc, char **argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
