#include "Apoyo.h"
#include "Capturas.h"
#include "config/pantallas/frmDefinirAsientos.h"
#include "db/DatosDemo.h"
#include "db/EmpresaDemo.h"
#include "journal/DiarioPrueba.h"
#include "journal/FixtureGeneracion.h"
#include "pantallas/PantallaCombos.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QDate kMes(2026, 10, 1);

class DefinirYGenerar : public testing::TestWithParam<std::string> {};

} // namespace

// A rule written on the screen for the cash sales, whose demo rule is removed first, and
// the month posted: every cash sale gives the entry the rule describes.
TEST_P(DefinirYGenerar, TheRuleDefinedOnTheScreenIsWhatTheRunPosts) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.AbrirComoAdmin(QStringLiteral("x"));
  demo::LlenarCatalogos(*con);
  demo::LlenarDocumentos(*con, kMes);
  con->Ejecutar(QStringLiteral("DELETE FROM tblRubrosxOperacion WHERE COD_POL IN (SELECT COD_POL "
                               "FROM tblOperacionxConcep WHERE COD_OPER=1)"));
  con->Ejecutar(QStringLiteral("DELETE FROM tblOperacionxConcep WHERE COD_OPER=1"));
  const QStringList rubros = diario::Filas(
      *con, QStringLiteral("SELECT COD_RUBRO,CUENTA_RUBRO FROM tblCatRubros WHERE "
                           "ULTIMO_RUBRO='S' AND CUENTA_RUBRO<>'' ORDER BY COD_RUBRO"));
  ASSERT_GE(rubros.size(), 2);
  const QString debe = rubros.first().section(u'|', 0, 0);
  const QString cuentaDebe = rubros.first().section(u'|', 1, 1);
  const QString haber = rubros.last().section(u'|', 0, 0);
  const QString cuentaHaber = rubros.last().section(u'|', 1, 1);

  frmDefinirAsientos f;
  f.show();
  QApplication::setActiveWindow(&f);
  ASSERT_EQ(f.cmbOperaciones->Clave(), QStringLiteral("1"));
  const int ingresos = f.cmbFolios->findText(QStringLiteral("INGRESOS"), Qt::MatchContains);
  ASSERT_GE(ingresos, 0);
  f.cmbFolios->setFocus();
  while (f.cmbFolios->currentIndex() < ingresos)
    QTest::keyClick(f.cmbFolios, Qt::Key_Down);
  while (f.cmbFolios->currentIndex() > ingresos)
    QTest::keyClick(f.cmbFolios, Qt::Key_Up);
  const QString tipo = f.cmbFolios->Clave();
  // The sale's amount (the first datum) to the debit of one rubro and the credit of another.
  for (const auto &[columna, codigo] : {std::pair{3, debe}, std::pair{4, haber}}) {
    f.flxDisplay->setFocus();
    f.flxDisplay->setCurrentCell(0, columna);
    QTest::keyClicks(f.flxDisplay, codigo.left(1));
    QComboBox *combo = columna == 3 ? f.cmbDebe : f.cmbHaber;
    if (columna == 4)
      GuardarCaptura(&f, QStringLiteral("frmDefinirAsientos_lista"));
    QTest::keyClicks(combo->lineEdit(), codigo.mid(1));
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
  }
  emp.mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f.flxDisplay, Qt::Key_F10);
  ASSERT_EQ(emp.mensajes.Ids(), std::vector<int>{5506});

  OpcionesGeneracion op;
  op.Del = kMes;
  op.Al = kMes.addMonths(1).addDays(-1);
  op.FechaDefinida = Hoy();
  op.Resumen = emp.Ruta() + QStringLiteral("/corrida.txt");
  emp.mensajes.respuestas = {RespuestaMensaje::Aceptar};
  ASSERT_TRUE(CorrerGeneracion(emp, op).corrio);

  const QStringList polizas = diario::Filas(
      *con, QStringLiteral("SELECT TIP_POLIZA,FOL_POLIZA FROM tblPolizasEnc WHERE COD_OPER=1"));
  const int ventas =
      diario::Filas(*con, QStringLiteral("SELECT COUNT(DISTINCT REF_DOC) FROM tblGralVentas WHERE "
                                         "CREDITO=0 AND STS_DOC<>4"))
          .first()
          .toInt();
  EXPECT_GT(ventas, 0);
  EXPECT_EQ(polizas.size(), ventas);
  for (const QString &p : polizas) {
    EXPECT_EQ(p.section(u'|', 0, 0), tipo);
    const QStringList lineas = diario::Filas(
        *con, QStringLiteral("SELECT RUBRO_DEBE,RUBRO_HABER,CUENTA_DEBE,CUENTA_HABER,IMP_DEBE,"
                             "IMP_HABER FROM tblPolizasRen WHERE TIP_POLIZA='%1' AND "
                             "FOL_POLIZA='%2' ORDER BY COD_DATO,RUBRO_HABER")
                  .arg(p.section(u'|', 0, 0), p.section(u'|', 1, 1)));
    ASSERT_EQ(lineas.size(), 2) << p.toStdString();
    const QStringList cargo = lineas[0].split(u'|');
    const QStringList abono = lineas[1].split(u'|');
    EXPECT_EQ(cargo[0], debe);
    EXPECT_EQ(cargo[2], cuentaDebe);
    EXPECT_EQ(abono[1], haber);
    EXPECT_EQ(abono[3], cuentaHaber);
    EXPECT_EQ(cargo[4], abono[5]) << "the entry balances";
    EXPECT_NE(cargo[4], QStringLiteral("0"));
  }
}

INSTANTIATE_TEST_SUITE_P(Motores, DefinirYGenerar, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);
