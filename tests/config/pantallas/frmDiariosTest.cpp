#include "config/pantallas/frmDiarios.h"
#include "Apoyo.h"
#include "Capturas.h"
#include "pantallas/EditorFlotante.h"
#include "pantallas/PantallaBarra.h"
#include "shell/Sesion.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class Diarios : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM) "
                                 "VALUES ('D','DIARIO','00000000012',1),('E','EGRESOS','7',2),"
                                 "('I','INGRESOS','0',3)"));
    f = std::make_unique<frmDiarios>();
    f->show();
    QApplication::setActiveWindow(f.get());
    f->flxFolios->setFocus();
    emp->grabadora.sentencias.clear();
  }
  QLineEdit *Numero() const { return f->editor->txtCampo(1); }
  void Celda(int fila, int columna) { f->flxFolios->setCurrentCell(fila, columna); }
  QString Texto(int fila, int columna) const { return f->flxFolios->item(fila, columna)->text(); }
  QStringList Folios() {
    QStringList filas;
    for (Registros r = con->Abrir(QStringLiteral(
             "SELECT COD_FOLIO,FOL_FOLIOS,COD_NUM FROM tblFolios ORDER BY COD_FOLIO"));
         !r.Fin(); r.Siguiente())
      filas << r.Campo(QStringLiteral("COD_FOLIO")).Texto() + QLatin1Char('|') +
                   r.Campo(QStringLiteral("FOL_FOLIOS")).Texto() + QLatin1Char('|') +
                   r.Campo(QStringLiteral("COD_NUM")).Texto();
    return filas;
  }
  QAction *Grabar() const { return f->tlbCatalogo->Accion(QStringLiteral("GRB")); }
  void DobleClic(int fila, int columna) {
    const QRect r = f->flxFolios->visualRect(f->flxFolios->model()->index(fila, columna));
    QTest::mouseDClick(f->flxFolios->viewport(), Qt::LeftButton, {}, r.center());
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  std::unique_ptr<frmDiarios> f;
};

} // namespace

TEST_P(Diarios, TheGridShowsEveryTypeAndSavingWaitsForAnEnter) {
  ASSERT_EQ(f->flxFolios->rowCount(), 3);
  EXPECT_EQ(f->windowTitle(), QStringLiteral("DIARIOS"));
  EXPECT_EQ(f->flxFolios->horizontalHeaderItem(3)->text(), QStringLiteral("Código numérico"));
  EXPECT_EQ(Texto(1, 2), QStringLiteral("7"));
  EXPECT_FALSE(Grabar()->isEnabled());
  QTest::keyClick(f->flxFolios, Qt::Key_F10);
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
  // The crossed tips stand.
  EXPECT_EQ(f->tlbCatalogo->Accion(QStringLiteral("SAL"))->toolTip(), QStringLiteral("Ayuda"));
  EXPECT_EQ(f->tlbCatalogo->Accion(QStringLiteral("AYU"))->toolTip(), QStringLiteral("Salir"));
}

TEST_P(Diarios, ANumberTypedIsSavedAsTypedNotPadded) {
  Celda(1, 2);
  QTest::keyClicks(f->flxFolios, QStringLiteral("3"));
  ASSERT_TRUE(Numero()->isVisible());
  EXPECT_EQ(Numero()->text(), QStringLiteral("3"));
  QTest::keyClick(Numero(), Qt::Key_5);
  GuardarCaptura(f.get(), QStringLiteral("frmDiarios_editor"));
  QTest::keyClick(Numero(), Qt::Key_Return);
  EXPECT_FALSE(Numero()->isVisible());
  EXPECT_EQ(Texto(1, 2), QStringLiteral("35"));
  EXPECT_TRUE(Grabar()->isEnabled());
  GuardarCaptura(f.get(), QStringLiteral("frmDiarios"));
  QTest::keyClick(f->flxFolios, Qt::Key_F10);
  // Every row written, changed or not; a folio below those used is accepted.
  EXPECT_EQ(Folios(), (QStringList{QStringLiteral("D|00000000012|1"), QStringLiteral("E|35|2"),
                                   QStringLiteral("I|0|3")}));
  EXPECT_EQ(emp->grabadora.sentencias.filter(QStringLiteral("UPDATE tblFolios")).size(), 3);
  EXPECT_EQ(
      emp->grabadora.sentencias.filter(QStringLiteral("UPDATE tblFolios")).at(1),
      QStringLiteral("UPDATE tblFolios SET FOL_FOLIOS='35',COD_NUM=2 WHERE (COD_FOLIO='E');"));
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].texto, QStringLiteral("Folios grabados con éxito"));
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, QStringLiteral("Información"));
  EXPECT_FALSE(Grabar()->isEnabled());
}

TEST_P(Diarios, LettersThenEnterKeepTheOldValueAndStillEnableSaving) {
  Celda(0, 3);
  QTest::keyClicks(f->flxFolios, QStringLiteral("x"));
  ASSERT_TRUE(Numero()->isVisible());
  EXPECT_EQ(Numero()->text(), QStringLiteral("x"));
  QTest::keyClicks(Numero(), QStringLiteral("yz"));
  EXPECT_EQ(Numero()->text(), QStringLiteral("x")); // letters are dropped with a beep
  QTest::keyClick(Numero(), Qt::Key_Return);
  EXPECT_EQ(Texto(0, 3), QStringLiteral("1"));
  EXPECT_TRUE(Grabar()->isEnabled());
}

TEST_P(Diarios, ADoubleClickOpensTheCellsValueAndNothingOnOtherColumns) {
  DobleClic(0, 1);
  EXPECT_EQ(f->editor->Abierto(), nullptr);
  DobleClic(0, 0);
  EXPECT_EQ(f->editor->Abierto(), nullptr);
  DobleClic(2, 3);
  ASSERT_EQ(f->editor->Abierto(), Numero());
  EXPECT_EQ(Numero()->text(), QStringLiteral("3"));
  EXPECT_EQ(Numero()->selectedText(), QStringLiteral("3"));
  EXPECT_EQ(Numero()->maxLength(), 4);
  EXPECT_EQ(Numero()->geometry(), f->flxFolios->visualRect(f->flxFolios->model()->index(2, 3)));
  // Up takes the grid one row up; the box hides.
  QTest::keyClick(Numero(), Qt::Key_Up);
  EXPECT_EQ(f->flxFolios->currentRow(), 1);
  EXPECT_EQ(f->editor->Abierto(), nullptr);
}

TEST_P(Diarios, TheBoxHidesWhenTheGridScrolls) {
  for (int i = 0; i < 40; ++i) {
    const int fila = f->flxFolios->rowCount();
    f->flxFolios->insertRow(fila);
    for (int c = 0; c < 4; ++c)
      f->flxFolios->setItem(fila, c, new QTableWidgetItem(QStringLiteral("1")));
  }
  Celda(0, 2);
  QTest::keyClicks(f->flxFolios, QStringLiteral("9"));
  ASSERT_TRUE(Numero()->isVisible());
  f->flxFolios->verticalScrollBar()->setValue(5);
  EXPECT_FALSE(Numero()->isVisible());
}

INSTANTIATE_TEST_SUITE_P(Motores, Diarios, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
