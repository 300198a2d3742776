#include "pantallas/frmBuscar.h"
#include "Apoyo.h"
#include "Capturas.h"

#include <QApplication>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

TEST(Buscar, TheRubrosNarrowAsOneTypesAndEnterReturnsTheCodeChosen) {
  EmpresaPrueba emp("sqlite");
  ConexionPtr con = emp.Abrir();
  con->Ejecutar(QStringLiteral("INSERT INTO tblCatRubros (COD_RUBRO,DES_RUBRO,CUENTA_RUBRO) "
                               "VALUES ('1-01','CAJA','1100'),('1-02','BANCOS','1200'),"
                               "('6-01','RENTA DEL LOCAL','6100')"));
  frmBuscar b(*con, QStringLiteral("RUBROS"));
  b.show();
  QApplication::setActiveWindow(&b);
  b.txtFiltro->setFocus();
  EXPECT_EQ(b.grdResultados->model()->rowCount(), 3);
  QTest::keyClicks(b.txtFiltro, QStringLiteral("ban"));
  EXPECT_EQ(b.grdResultados->model()->rowCount(), 1);
  GuardarCaptura(&b, QStringLiteral("frmBuscar"));
  QTest::keyClick(b.txtFiltro, Qt::Key_Return);
  EXPECT_EQ(b.Codigo(), QStringLiteral("1-02"));
  EXPECT_EQ(b.result(), QDialog::Accepted);
  // By the account as well, and the arrows move through what is left.
  frmBuscar otra(*con, QStringLiteral("RUBROS"));
  otra.show();
  QTest::keyClicks(otra.txtFiltro, QStringLiteral("00"));
  QTest::keyClick(otra.txtFiltro, Qt::Key_Down);
  QTest::keyClick(otra.txtFiltro, Qt::Key_Down);
  QTest::keyClick(otra.txtFiltro, Qt::Key_Return);
  EXPECT_EQ(otra.Codigo(), QStringLiteral("6-01"));
}
