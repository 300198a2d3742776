#include "reports/pantallas/frmConsultaPolizas.h"
#include "Apoyo.h"
#include "Capturas.h"
#include "journal/Polizas.h"
#include "pantallas/Apostrofos.h"
#include "pantallas/PantallaCombos.h"
#include "reports/Lienzo.h"
#include "shell/Rutas.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QDateEdit>
#include <QDir>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class PantallaConsulta : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    FijarReloj(QDateTime(QDate(2026, 11, 20), QTime(9, 30)));
    con->Ejecutar(QStringLiteral("INSERT INTO tblModulos (COD_MODUL,DES_MODUL) VALUES "
                                 "(1,'VENTAS'),(6,'GASTOS')"));
    con->Ejecutar(
        QStringLiteral("INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,"
                       "GENERA_CON) VALUES (1,'VENTAS DE CONTADO',1,0),(22,'GASTOS',6,1)"));
    con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM) "
                                 "VALUES ('D','DIARIO','1',1)"));
    Poliza p;
    p.FOL_POLIZA = QStringLiteral("00000000001");
    p.TIP_POLIZA = QStringLiteral("D");
    p.FEC_POLIZA = p.FEC_ANTERIOR = QDate(2026, 11, 20);
    p.COD_OPER = 22;
    p.CONCEP_POL = QStringLiteral("RENTA");
    InsertarPoliza(*con, p, {});
    emp->grabadora.sentencias.clear();
  }
  std::unique_ptr<frmConsultaPolizas> Abrir() {
    auto f = std::make_unique<frmConsultaPolizas>();
    f->mostrar = [this](QWidget *, const LienzoPintor &d) { paginas.push_back(d.TotalPaginas()); };
    f->show();
    QApplication::setActiveWindow(f.get());
    return f;
  }
  static void Elegir(ComboDatos *combo, int fila) {
    combo->setFocus();
    while (combo->currentIndex() < fila)
      QTest::keyClick(combo, Qt::Key_Down);
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  std::vector<int> paginas;
};

} // namespace

TEST_P(PantallaConsulta, TheLoadReadsTheCompanyTheConceptsTheModulesAndTheTypes) {
  auto f = Abrir();
  EXPECT_EQ(f->windowTitle(), QStringLiteral("CONSULTA DE PÓLIZAS"));
  EXPECT_EQ(f->dtpFechaIni->date(), QDate(2026, 11, 20));
  const QStringList &s = emp->grabadora.sentencias;
  ASSERT_GE(s.size(), 4);
  EXPECT_EQ(s.first(), QStringLiteral("SELECT * FROM tblEmpresa;"));
  EXPECT_EQ(s.at(1), QStringLiteral("SELECT COD_OPER,DES_OPER FROM tblCatOperaciones WHERE "
                                    "COD_OPER IN(1,2) "));
  EXPECT_EQ(s.at(s.size() - 2), QStringLiteral("SELECT COD_MODUL,DES_MODUL FROM tblModulos WHERE "
                                               "COD_MODUL<10 ORDER BY COD_MODUL"));
  EXPECT_EQ(s.last(),
            QStringLiteral("SELECT COD_FOLIO, DES_FOLIO FROM tblFolios ORDER BY COD_FOLIO"));
  EXPECT_TRUE(f->OptRelacionPolizas->isChecked());
  EXPECT_TRUE(f->FmeTipo->isEnabled());
  EXPECT_FALSE(f->FmeEstatus->isEnabled());
  GuardarCaptura(f.get(), QStringLiteral("frmConsultaPolizas"));
}

TEST_P(PantallaConsulta, TheMovementReportTakesTheStateAndTheDateOrder) {
  auto f = Abrir();
  QTest::mouseClick(f->OptMovimientosContabilizados, Qt::LeftButton);
  EXPECT_FALSE(f->FmeTipo->isEnabled());
  EXPECT_TRUE(f->FmeEstatus->isEnabled());
  EXPECT_FALSE(f->optOrden[0]->isEnabled());
  EXPECT_TRUE(f->optOrden[1]->isChecked());
  QTest::mouseClick(f->OptRelacionPolizas, Qt::LeftButton);
  EXPECT_TRUE(f->FmeTipo->isEnabled());
  EXPECT_TRUE(f->optOrden[0]->isEnabled());
}

TEST_P(PantallaConsulta, AModuleLoadsItsOperationsAndATypeOrADateEmptiesTheFolio) {
  auto f = Abrir();
  emp->grabadora.sentencias.clear();
  Elegir(f->cmbModulos, 2);
  EXPECT_EQ(emp->grabadora.sentencias.last(),
            QStringLiteral("SELECT COD_OPER, DES_OPER FROM tblCatOperaciones WHERE MODULO=6 ORDER "
                           "BY COD_OPER"));
  EXPECT_EQ(f->cmbOperaciones->count(), 2);
  f->txtFolios->setText(QStringLiteral("00000000001"));
  Elegir(f->cmbTipos, 1);
  EXPECT_EQ(f->txtFolios->text(), QString());
  f->txtFolios->setText(QStringLiteral("00000000001"));
  f->dtpFechaFin->setDate(QDate(2026, 11, 21));
  EXPECT_EQ(f->txtFolios->text(), QString());
  // The folio list, read when the user goes to it.
  emp->grabadora.sentencias.clear();
  f->cmbFolios->setFocus();
  EXPECT_TRUE(emp->grabadora.sentencias.last().startsWith(
      QStringLiteral("SELECT FOL_POLIZA FROM tblPolizasEnc WHERE FEC_POLIZA BETWEEN ")));
  EXPECT_TRUE(emp->grabadora.sentencias.last().endsWith(
      QStringLiteral(" AND TIP_POLIZA='D' ORDER BY FOL_POLIZA")));
}

TEST_P(PantallaConsulta, FTenDrawsTheReportAndShowsItLeavingNoPageFiles) {
  auto f = Abrir();
  QTest::keyClick(f->dtpFechaIni, Qt::Key_F10);
  EXPECT_EQ(paginas, std::vector<int>{1});
  EXPECT_TRUE(QDir(RutaNativa(UnirRuta(gRutaApp, QStringLiteral("TEMP"))))
                  .entryList({QStringLiteral("*.emf")}, QDir::Files)
                  .isEmpty());
  IntentarApostrofos(f.get());
}

INSTANTIATE_TEST_SUITE_P(Motores, PantallaConsulta, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);
