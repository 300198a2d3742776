#include "pantallas/EditorFecha.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/Pantallas.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

void PrintTo(const QDate &fecha, std::ostream *os) {
  *os << fecha.toString(Qt::ISODate).toStdString();
}

namespace {

// A screen of the kit with two date fields, Enter moving on, and a toolbar whose F10
// takes note of the first field's date.
class Fechas : public testing::Test {
protected:
  void SetUp() override {
    ventana = std::make_unique<QDialog>();
    auto *capa = new QVBoxLayout(ventana.get());
    barra = new BarraPantalla(ventana.get(),
                              {{QStringLiteral("GRB"), QStringLiteral("F10"), QString(),
                                [this] { corridas.push_back(del->date()); }},
                               {QStringLiteral("SAL"), QStringLiteral("Esc"), QString()}});
    del = CampoFecha(ventana.get(), QStringLiteral("dtpDel"));
    al = CampoFecha(ventana.get(), QStringLiteral("dtpAl"));
    capa->addWidget(barra);
    capa->addWidget(del);
    capa->addWidget(al);
    new EnterSiguiente(ventana.get());
    ventana->show();
    QApplication::setActiveWindow(ventana.get());
    del->setFocus();
  }
  EditorFecha &Del() { return *dynamic_cast<EditorFecha *>(del); }
  void Teclear(const char *texto) { QTest::keyClicks(del, QLatin1String(texto)); }

  std::unique_ptr<QDialog> ventana;
  BarraPantalla *barra = nullptr;
  QDateEdit *del = nullptr;
  QDateEdit *al = nullptr;
  std::vector<QDate> corridas;
};

} // namespace

TEST(FechaDeTexto, EachWayOfWritingADate) {
  const std::pair<const char *, QDate> buenas[] = {
      {"31102026", QDate(2026, 10, 31)},  {"31/10/2026", QDate(2026, 10, 31)},
      {"31-10-26", QDate(2026, 10, 31)},  {"1/2/2024", QDate(2024, 2, 1)},
      {"29022024", QDate(2024, 2, 29)},   {"311226", QDate(2026, 12, 31)},
      {"05.11.2026", QDate(2026, 11, 5)},
  };
  for (const auto &[texto, fecha] : buenas)
    EXPECT_EQ(EditorFecha::FechaDeTexto(QLatin1String(texto)), fecha) << texto;
  for (const char *mala : {"31022026", "29022023", "32102026", "31/13/2026", "3110202",
                           "31/10-2026", "", "31/10/", "1/2/203"})
    EXPECT_FALSE(EditorFecha::FechaDeTexto(QLatin1String(mala)).has_value()) << mala;
}

TEST_F(Fechas, WhatIsTypedIsWhatStaysWhateverTheDateShownBefore) {
  const std::pair<QDate, const char *> casos[] = {
      {QDate(2026, 11, 30), "31102026"},  {QDate(2026, 11, 30), "31/10/2026"},
      {QDate(2024, 2, 29), "31-10-26"},   {QDate(2026, 12, 31), "30112026"},
      {QDate(2024, 2, 29), "31/01/2025"}, {QDate(2026, 12, 31), "28/02/2026"},
  };
  for (const auto &[antes, texto] : casos) {
    del->setDate(antes);
    del->setFocus();
    Teclear(texto);
    EXPECT_EQ(del->date(), antes) << "nothing taken before the field is left: " << texto;
    EXPECT_EQ(Del().Tecleado(), QLatin1String(texto));
    QTest::keyClick(del, Qt::Key_Return);
    EXPECT_EQ(del->date(), EditorFecha::FechaDeTexto(QLatin1String(texto))) << texto;
    EXPECT_TRUE(al->hasFocus()) << "Enter moves on";
    EXPECT_FALSE(Del().EnTecleo());
  }
}

TEST_F(Fechas, TabTakesTheDateAndMovesOn) {
  del->setDate(QDate(2026, 11, 30));
  Teclear("15/10/2026");
  QTest::keyClick(del, Qt::Key_Tab);
  EXPECT_EQ(del->date(), QDate(2026, 10, 15));
  EXPECT_TRUE(al->hasFocus());
}

TEST_F(Fechas, ANoDateIsRefusedVisiblyAndTheOldValueKept) {
  del->setDate(QDate(2026, 11, 23));
  Teclear("31022026");
  QTest::keyClick(del, Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(del->date(), QDate(2026, 11, 23));
  EXPECT_TRUE(del->hasFocus());
  EXPECT_TRUE(Del().EnTecleo());
  auto *vista = del->findChild<QLineEdit *>(QStringLiteral("txtTecleo"));
  ASSERT_NE(vista, nullptr);
  EXPECT_TRUE(vista->isVisible());
  EXPECT_EQ(vista->text(), QStringLiteral("31022026"));
  EXPECT_TRUE(vista->styleSheet().contains(QStringLiteral("background-color")));
  // F10 doesn't run on the old date either.
  QTest::keyClick(del, Qt::Key_F10);
  EXPECT_TRUE(corridas.empty());
  // Corrected, it is taken.
  for (int i = 0; i < 6; ++i)
    QTest::keyClick(del, Qt::Key_Backspace);
  Teclear("282026");
  EXPECT_EQ(Del().Tecleado(), QStringLiteral("31282026"));
  QTest::keyClick(del, Qt::Key_Tab);
  EXPECT_TRUE(del->hasFocus());
  EXPECT_EQ(del->date(), QDate(2026, 11, 23));
  for (int i = 0; i < 8; ++i)
    QTest::keyClick(del, Qt::Key_Backspace);
  EXPECT_FALSE(Del().EnTecleo());
  Teclear("28022026");
  EXPECT_FALSE(vista->styleSheet().contains(QStringLiteral("background-color")));
  QTest::keyClick(del, Qt::Key_F10);
  EXPECT_EQ(corridas, std::vector<QDate>{QDate(2026, 2, 28)});
}

TEST_F(Fechas, TheToolbarTakesTheTypedDateBeforeItWorks) {
  del->setDate(QDate(2026, 11, 30));
  Teclear("31102026");
  QTest::keyClick(del, Qt::Key_F10);
  EXPECT_EQ(corridas, std::vector<QDate>{QDate(2026, 10, 31)});
  EXPECT_EQ(del->date(), QDate(2026, 10, 31));
}

TEST_F(Fechas, EscGivesTheTypingUpAndTheScreenStays) {
  del->setDate(QDate(2026, 11, 30));
  Teclear("0101");
  QTest::keyClick(del, Qt::Key_Escape);
  EXPECT_FALSE(Del().EnTecleo());
  EXPECT_EQ(del->date(), QDate(2026, 11, 30));
  EXPECT_TRUE(ventana->isVisible());
  QTest::keyClick(del, Qt::Key_Escape);
  EXPECT_FALSE(ventana->isVisible());
}

TEST_F(Fechas, TheArrowsMoveDayByDayAcrossMonthsAndYears) {
  del->setDate(QDate(2026, 12, 31));
  QTest::keyClick(del, Qt::Key_Up);
  EXPECT_EQ(del->date(), QDate(2027, 1, 1));
  QTest::keyClick(del, Qt::Key_Down);
  QTest::keyClick(del, Qt::Key_Down);
  EXPECT_EQ(del->date(), QDate(2026, 12, 30));
  del->setDate(QDate(2024, 3, 1));
  QTest::keyClick(del, Qt::Key_Down);
  EXPECT_EQ(del->date(), QDate(2024, 2, 29));
}

TEST_F(Fechas, LettersHaveNoPlaceInADate) {
  del->setDate(QDate(2026, 11, 30));
  Teclear("31a10b2026");
  EXPECT_EQ(Del().Tecleado(), QStringLiteral("31102026"));
  QTest::keyClick(del, Qt::Key_Return);
  EXPECT_EQ(del->date(), QDate(2026, 10, 31));
}
