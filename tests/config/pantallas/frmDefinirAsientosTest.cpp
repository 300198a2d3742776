#include "config/pantallas/frmDefinirAsientos.h"
#include "Apoyo.h"
#include "Capturas.h"
#include "journal/DiarioPrueba.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/PantallaCombos.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class Definir : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    Sql("INSERT INTO tblModulos (COD_MODUL,DES_MODUL) VALUES (1,'VENTAS'),(5,'BANCOS'),"
        "(6,'GASTOS')");
    Sql("INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,GENERA_CON) VALUES "
        "(1,'VENTAS DE CONTADO',1,0),(23,'REPOSICION DE CAJA',6,0),(26,'CHEQUE A PROVEEDOR',5,0)");
    Sql("INSERT INTO tblDatosxOperacion (COD_DATO,DES_DATO,COD_OPER,CAMPO_ESTBD) VALUES "
        "(1,'IMPORTE',1,0),(2,'IVA',1,0),(3,'DESCUENTO',1,0),(118,'EXCLUIDO',1,0),"
        "(60,'CHEQUE',24,0),(61,'BANCO',24,0),(70,'REPOSICION',23,0)");
    Sql("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM) VALUES "
        "('D','DIARIO','0',3),('I','INGRESOS','0',1)");
    Sql("INSERT INTO tblCatRubros (COD_RUBRO,DES_RUBRO,CUENTA_RUBRO,ULTIMO_RUBRO) VALUES "
        "('1-01','CAJA','1100','S'),('4-01','VENTAS','4100','S'),('2-01','IVA','2100','S'),"
        "('1','ACTIVO','1000','N')");
    f = std::make_unique<frmDefinirAsientos>();
    f->show();
    QApplication::setActiveWindow(f.get());
    emp->grabadora.sentencias.clear();
  }
  void Sql(const char *sql) { con->Ejecutar(QString::fromUtf8(sql)); }
  QString Celda(int r, int c) const {
    const QTableWidgetItem *i = f->flxDisplay->item(r, c);
    return i ? i->text() : QString();
  }
  // Types a rubro into a cell of the grid, as the user does, and presses Enter.
  void Rubro(int renglon, int columna, const QString &texto) {
    f->flxDisplay->setFocus();
    f->flxDisplay->setCurrentCell(renglon, columna);
    QTest::keyClicks(f->flxDisplay, texto.left(1));
    QComboBox *combo = columna == 3 ? f->cmbDebe : f->cmbHaber;
    ASSERT_TRUE(combo->isVisible());
    QTest::keyClicks(combo->lineEdit(), texto.mid(1));
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
  }
  static void Elegir(QComboBox *combo, int fila) {
    combo->setFocus();
    while (combo->currentIndex() < fila)
      QTest::keyClick(combo, Qt::Key_Down);
    while (combo->currentIndex() > fila)
      QTest::keyClick(combo, Qt::Key_Up);
  }
  QStringList Reglas() {
    return diario::Filas(*con, QStringLiteral("SELECT COD_POL,COD_OPER,MODULO,CONCEPTO,TIP_POLIZA,"
                                              "STS_POLIZA,FREC,DIARIO FROM tblOperacionxConcep"));
  }
  QStringList Renglones() {
    return diario::Filas(*con, QStringLiteral("SELECT COD_DATO,CUENTA_DEBE,CUENTA_HABER,COD_POL,"
                                              "TXT_CONC,RUBRO_DEBE,RUBRO_HABER,COD_OPER,"
                                              "COD_DIARIO FROM tblRubrosxOperacion ORDER BY "
                                              "COD_DATO"));
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  std::unique_ptr<frmDefinirAsientos> f;
};

} // namespace

TEST_P(Definir, TheChainLoadsTheFirstModuleAndOperationWithTheirData) {
  EXPECT_EQ(f->cmbModulos->Texto(), QStringLiteral("VENTAS"));
  EXPECT_EQ(f->cmbOperaciones->Texto(), QStringLiteral("VENTAS DE CONTADO"));
  ASSERT_EQ(f->flxDisplay->rowCount(), 3); // 118 is of an excluded range
  EXPECT_EQ(Celda(0, 1), QStringLiteral("IMPORTE"));
  EXPECT_EQ(Celda(2, 9), QStringLiteral("3"));
  EXPECT_EQ(f->cmbFrecuencia->count(), 2);
  EXPECT_FALSE(f->lblTipo->isVisible());
  EXPECT_FALSE(f->cmbConceptos->isEnabled());
  for (int c : {2, 5, 6, 7, 8, 9})
    EXPECT_TRUE(f->flxDisplay->isColumnHidden(c)) << c;
}

TEST_P(Definir, ARuleTypedOnTheGridIsSavedRowByRow) {
  Rubro(0, 3, QStringLiteral("1-01")); // by its code
  EXPECT_EQ(Celda(0, 3), QStringLiteral("CAJA"));
  EXPECT_EQ(Celda(0, 5), QStringLiteral("1100"));
  EXPECT_EQ(Celda(0, 7), QStringLiteral("1-01"));
  Rubro(0, 4, QStringLiteral("4100")); // by its account
  EXPECT_EQ(Celda(0, 4), QStringLiteral("VENTAS"));
  Rubro(1, 4, QStringLiteral("IV")); // by the beginning of its description
  EXPECT_EQ(Celda(1, 8), QStringLiteral("2-01"));
  GuardarCaptura(f.get(), QStringLiteral("frmDefinirAsientos"));
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f->flxDisplay, Qt::Key_F10);
  ASSERT_EQ(emp->mensajes.Ids(), std::vector<int>{5506});
  EXPECT_EQ(emp->mensajes.mostrados[0].titulo, QStringLiteral("Definir Asientos"));
  EXPECT_EQ(Reglas(), QStringList{QStringLiteral("1|1|1||D|D|1|3")});
  // The datum with neither side gets no row.
  EXPECT_EQ(Renglones(),
            (QStringList{QStringLiteral("1|1100|4100|1|VENTAS DE CONTADO|1-01|4-01|1|D"),
                         QStringLiteral("2||2100|1|VENTAS DE CONTADO||2-01|1|D")}));
  EXPECT_TRUE(f->lblTipo->isVisible());
  EXPECT_EQ(f->lblTipo->text(), QStringLiteral("Tipo: DIARIO"));

  // Opened again, the rule comes back into the grid.
  f = std::make_unique<frmDefinirAsientos>();
  f->show();
  EXPECT_EQ(Celda(0, 3), QStringLiteral("CAJA"));
  EXPECT_EQ(Celda(1, 4), QStringLiteral("IVA"));
  EXPECT_TRUE(f->lblDesOperacion->isVisible());

  // Delete on the "Dato" column empties the credit of that row; No to 5505 writes nothing.
  f->flxDisplay->setCurrentCell(1, 1);
  QTest::keyClick(f->flxDisplay, Qt::Key_Delete);
  EXPECT_EQ(Celda(1, 4), QString());
  EXPECT_EQ(Celda(1, 8), QString());
  emp->mensajes.mostrados.clear();
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  QTest::keyClick(f->flxDisplay, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5505});
  EXPECT_EQ(Renglones().size(), 2);

  // Yes to 5501 deletes the rule and its rows.
  emp->mensajes.mostrados.clear();
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f->flxDisplay, Qt::Key_F3);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5501});
  EXPECT_TRUE(Reglas().isEmpty());
  EXPECT_TRUE(Renglones().isEmpty());
  EXPECT_FALSE(f->lblTipo->isVisible());
}

TEST_P(Definir, SavingNeedsADebitAndACredit) {
  QTest::keyClick(f->flxDisplay, Qt::Key_F10);
  Rubro(0, 3, QStringLiteral("1-01"));
  QTest::keyClick(f->flxDisplay, Qt::Key_F10);
  f->flxDisplay->setCurrentCell(0, 3);
  QTest::keyClick(f->flxDisplay, Qt::Key_Delete);
  Rubro(2, 4, QStringLiteral("2-01"));
  QTest::keyClick(f->flxDisplay, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{5502, 5504, 5503}));
  EXPECT_TRUE(Reglas().isEmpty());
}

TEST_P(Definir, ARubroNotFoundIsToldAndTheListStaysOpen) {
  Rubro(0, 3, QStringLiteral("QQQ"));
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5507});
  EXPECT_TRUE(f->cmbDebe->isVisible());
  EXPECT_EQ(Celda(0, 7), QString());
}

TEST_P(Definir, OperationTwentyThreeHasOneFrequencyAndTwentySixOneDatum) {
  Elegir(f->cmbModulos, 2); // GASTOS
  EXPECT_EQ(f->cmbOperaciones->Texto(), QStringLiteral("REPOSICION DE CAJA"));
  EXPECT_EQ(f->cmbFrecuencia->count(), 1);
  Elegir(f->cmbModulos, 1); // BANCOS
  EXPECT_EQ(f->cmbOperaciones->Texto(), QStringLiteral("CHEQUE A PROVEEDOR"));
  ASSERT_EQ(f->flxDisplay->rowCount(), 1);
  EXPECT_EQ(Celda(0, 1), QStringLiteral("CHEQUE"));
}

INSTANTIATE_TEST_SUITE_P(Motores, Definir, testing::ValuesIn(MotoresDePrueba()), NombreMotor);

TEST_P(Definir, ASavedRowOfAnExcludedDatumIsntShownAndAVanishedRubroLeavesItsAccount) {
  Sql("INSERT INTO tblOperacionxConcep (COD_POL,COD_OPER,MODULO,CONCEPTO,TIP_POLIZA,STS_POLIZA,"
      "FREC,DIARIO) VALUES (7,1,1,'','D','D',1,3)");
  Sql("INSERT INTO tblRubrosxOperacion (COD_POL,COD_DATO,RUBRO_DEBE,RUBRO_HABER,CUENTA_DEBE,"
      "CUENTA_HABER,TXT_CONC) VALUES (7,1,'9-99','4-01','9999','4100','VENTAS'),"
      "(7,118,'1-01','','1100','','VENTAS')");
  f = std::make_unique<frmDefinirAsientos>();
  f->show();
  QApplication::setActiveWindow(f.get());
  ASSERT_EQ(f->flxDisplay->rowCount(), 3);
  // The debit rubro is gone from the chart: its cell is empty, its account stays hidden.
  EXPECT_EQ(Celda(0, 3), QString());
  EXPECT_EQ(Celda(0, 5), QStringLiteral("9999"));
  EXPECT_EQ(Celda(0, 4), QStringLiteral("VENTAS"));
  EXPECT_TRUE(f->lblTipo->isVisible());
  // Saved again, the row of datum 118 vanishes; the credit keeps datum 1's row alive with
  // the vanished debit's account.
  Rubro(1, 3, QStringLiteral("1-01"));
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f->flxDisplay, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5505});
  EXPECT_EQ(Renglones(), (QStringList{QStringLiteral("1|9999|4100|7|VENTAS DE CONTADO||4-01|1|D"),
                                      QStringLiteral("2|1100||7|VENTAS DE CONTADO|1-01||1|D")}));
  EXPECT_EQ(Reglas(), QStringList{QStringLiteral("7|1|1||D|D|1|3")});
}

TEST_P(Definir, AListPutAwayByAButtonIsLeftAsIfTheFocusWent) {
  Rubro(0, 3, QStringLiteral("1-01"));
  Rubro(0, 4, QStringLiteral("4-01"));
  // The debit reopened and its text cleared, then F10 at once.
  f->flxDisplay->setFocus();
  f->flxDisplay->setCurrentCell(0, 3);
  QTest::keyClick(f->flxDisplay, Qt::Key_Return);
  ASSERT_TRUE(f->cmbDebe->isVisible());
  f->cmbDebe->lineEdit()->clear();
  QTest::keyClick(f->cmbDebe->lineEdit(), Qt::Key_F10);
  EXPECT_FALSE(f->cmbDebe->isVisible());
  EXPECT_EQ(Celda(0, 3), QString());
  EXPECT_EQ(Celda(0, 5), QString());
  EXPECT_EQ(Celda(0, 7), QString());
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5503});
}
