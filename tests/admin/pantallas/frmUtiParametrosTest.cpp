#include "admin/pantallas/frmUtiParametros.h"
#include "Apoyo.h"
#include "Capturas.h"
#include "admin/ApoyoParametros.h"
#include "admin/ParSat.h"
#include "admin/pantallas/frmUtiEmpresas.h"
#include "db/EmpresaDemo.h"
#include "journal/DiarioPrueba.h"
#include "pantallas/PantallaCombos.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <gtest/gtest.h>

using diario::Filas;

namespace {

// The parameters of the test company, opened as the company list opens them.
class PantallaParametros : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    demo::LlenarIdentidad(*con, QStringLiteral("clave"));
    con->Ejecutar(QStringLiteral("DELETE FROM tblParametrosGenerales"));
    gCodUsu = QStringLiteral("ADMIN");
    gCodSucu = QStringLiteral("MATRIZ");
    gNumEmp = 1;
    gEmpresaParametros = 1;
    FijarReloj(QDateTime(QDate(2026, 11, 20), QTime(10, 0)));
  }
  void TearDown() override { FijarReloj({}); }
  std::unique_ptr<frmUtiParametros> Abrir() {
    auto f = std::make_unique<frmUtiParametros>();
    f->show();
    QApplication::setActiveWindow(f.get());
    emp->mensajes.mostrados.clear();
    emp->grabadora.sentencias.clear();
    return f;
  }
  QString Valor(const char *columna) const { return ValorParametro(*emp, columna); }
  QStringList Avisos() const { return emp->mensajes.Textos(); }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

} // namespace

// ------------------------------------------------------------------ PARÁMETROS

TEST_P(PantallaParametros, TheScreenOpensOnSalesWithThePriceListsAtTheirDefaults) {
  auto f = Abrir();
  EXPECT_EQ(f->windowTitle(), QStringLiteral("PARÁMETROS DE LA EMPRESA"));
  EXPECT_EQ(f->lblEmpresa->text(),
            QStringLiteral("La Fonda de Doña Lupe S.A. de C.V. - La Fonda de Doña Lupe"));
  EXPECT_EQ(f->fmeDatos->currentIndex(), 0);
  EXPECT_EQ(f->fmeDatos->tabText(1), QStringLiteral("&SERVICIOS ELECTRÓNICOS"));
  EXPECT_EQ(f->fmeParametros->tabText(3), QStringLiteral("Co&mpras"));
  EXPECT_EQ(f->cmbPrecioBase->currentIndex(), 0);
  EXPECT_EQ(f->cmbPrecioTrunca->currentIndex(), 0);
  EXPECT_EQ(f->cmbPrecioDecimal->currentText(), QStringLiteral("4 decimales"));
  EXPECT_EQ(emp->Contar(QStringLiteral("tblParametrosGenerales")), 0);
  // Ticking the tolerance proposes 5 minutes; unticking the limit empties it to 0.
  f->chkTolera->click();
  EXPECT_EQ(f->txtToleraPromo->text(), QStringLiteral("5"));
  f->chkLim->click();
  f->txtLimite->setText(QStringLiteral("40"));
  f->chkLim->click();
  EXPECT_EQ(f->txtLimite->text(), QStringLiteral("0"));
  const char *capturas[] = {"ventas", "facturacion", "almacen", "compras"};
  for (int i = 0; i < 4; ++i) {
    f->fmeParametros->setCurrentIndex(i);
    GuardarCaptura(f.get(), QStringLiteral("frmUtiParametros_") + QLatin1String(capturas[i]));
  }
}

TEST_P(PantallaParametros, AnyOfTheFourButtonsSavesTheFourTabsAndTheFirstMakesTheRow) {
  auto f = Abrir();
  f->chkOrdenTotal->setChecked(true);
  f->chkFacMos->setChecked(true);
  f->chkCaducidad->setChecked(true);
  f->txtDiasCad->setText(QStringLiteral("7"));
  f->chkDocCP[3]->setChecked(true);
  f->fmeParametros->setCurrentIndex(2);
  QTest::mouseClick(f->cmdParametros[2], Qt::LeftButton);
  EXPECT_EQ(Avisos().last(), QStringLiteral("Parámetros guardados"));
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT PRECIO_DECIMAL,FF_ORDENTOT,FACT_MOSTRA,CAD_ACT,"
                                       "DIAS_CAD,LDC_SUCURSAL,FE_VERSION FROM "
                                       "tblParametrosGenerales")),
            L({"4|0|1|1|7|1|33"}));
  // Opened again, the complete order shows as stored: off.
  f->close();
  auto g = Abrir();
  EXPECT_FALSE(g->chkOrdenTotal->isChecked());
  g->cmbPrecioDecimal->setCurrentIndex(2);
  g->cmdParametros[0]->click();
  g->close();
  auto h = Abrir();
  EXPECT_EQ(h->cmbPrecioDecimal->currentText(), QStringLiteral("2 decimales"));
}

TEST_P(PantallaParametros, ThePurchasePreviewIsRefusedWhileAnArticleExpires) {
  con->Ejecutar(
      QStringLiteral("INSERT INTO tblCatArticulos (COD1_ART,ART_CAD) VALUES ('LECHE',1)"));
  auto f = Abrir();
  f->fmeParametros->setCurrentIndex(3);
  f->optRemPrev[1]->click();
  EXPECT_TRUE(f->optRemPrev[0]->isChecked());
  EXPECT_FALSE(f->chkSinPrevio->isVisible());
  EXPECT_TRUE(Avisos().last().startsWith(
      QStringLiteral("No es posible manejar previos de compras si hay artículos con caducidad.")));
  con->Ejecutar(QStringLiteral("UPDATE tblCatArticulos SET ART_CAD=0"));
  f->optRemPrev[1]->click();
  EXPECT_TRUE(f->optRemPrev[1]->isChecked());
  EXPECT_TRUE(f->chkSinPrevio->isVisible());
}

// ------------------------------------------------------------------ services

TEST_P(PantallaParametros, TheServicesOpenOnThePortalAndTerminalsGoWithTheCard) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblProveedoresTC (COD_PROVTC,DES_PROVTC,SITIO_PROVTC) "
                               "VALUES (2,'ProsePago®','sitio2')"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblTcPromociones (COD_TCPROMO,DES_TCPROMO,ACTIVA_PROMO,"
                               "MIN_TCPROMO,NUM_PARCIAL) VALUES (1,'3 MESES',1,500,3)"));
  auto f = Abrir();
  f->fmeDatos->setCurrentIndex(1);
  EXPECT_EQ(f->fmeServicios->currentWidget(), f->fmeTVE);
  GuardarCaptura(f.get(), QStringLiteral("frmUtiParametros_portal"));
  f->cmdTVE[1]->click();
  EXPECT_EQ(f->fmeServicios->currentIndex(), 1);
  EXPECT_FALSE(f->cmdAgregarTerminal->isEnabled());
  f->chkTC->click();
  f->cmbProveedorTC->FijarPosicion(f->cmbProveedorTC->findData(QStringLiteral("2")));
  f->cmdElectronicos[2]->click();
  EXPECT_EQ(Valor("TC_SERVICIO"), QStringLiteral("2"));
  EXPECT_EQ(Valor("TC_IDSITIO"), QStringLiteral("sitio2"));
  f->cmdAgregarTerminal->click();
  ASSERT_EQ(f->tvwPromociones->topLevelItemCount(), 1);
  // A number longer than its column doesn't fit in the box.
  QTest::keyClicks(f->txtNumTerminal, QStringLiteral("1234567890123456789012345"));
  EXPECT_EQ(f->txtNumTerminal->text().size(), 20);
  f->txtNumTerminal->setText(QStringLiteral("T-1"));
  f->tvwPromociones->topLevelItem(0)->setCheckState(0, Qt::Checked);
  f->cmdTerminal[0]->click();
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_TERMINAL,NUM_TERMINAL FROM tblTcTerminales")),
            L({"1|T-1"}));
  EXPECT_EQ(emp->Contar(QStringLiteral("tblTcTerminalPromo")), 1);
  GuardarCaptura(f.get(), QStringLiteral("frmUtiParametros_servicios"));
  // Switching the card off takes the terminals away without a question.
  emp->mensajes.mostrados.clear();
  f->chkTC->click();
  f->cmdElectronicos[2]->click();
  EXPECT_EQ(emp->Contar(QStringLiteral("tblTcTerminales")), 0);
  EXPECT_EQ(Avisos(), L({"Parámetros de tarjeta de crédito actualizados"}));
  EXPECT_FALSE(f->cmdAgregarTerminal->isEnabled());
}

TEST_P(PantallaParametros, AirtimeWithoutGroupingsCantBeTickedAndWithOneSavesTwiceTheSame) {
  auto f = Abrir();
  f->fmeDatos->setCurrentIndex(1);
  f->cmdTVE[1]->click();
  f->chkTA->click();
  EXPECT_FALSE(f->chkTA->isChecked());
  EXPECT_EQ(Avisos().last(), QStringLiteral("No hay agrupaciones disponibles"));
  f->close();
  con->Ejecutar(
      QStringLiteral("INSERT INTO tblCatAgrupacionArt (COD_AGR,COD_GPO,DES_AGR,BLOQ_CAMBIO) "
                     "VALUES (9,4,'TIEMPO AIRE',0)"));
  auto g = Abrir();
  g->chkTA->click();
  ASSERT_TRUE(g->chkTA->isChecked());
  g->cmdElectronicos[0]->click();
  const QStringList codigos =
      Filas(*con, QStringLiteral("SELECT COD1_ART FROM tblCatArticulos ORDER BY COD1_ART"));
  g->cmdElectronicos[0]->click();
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD1_ART FROM tblCatArticulos ORDER BY COD1_ART")),
            codigos);
  EXPECT_EQ(codigos.size(), 40);
  EXPECT_EQ(Valor("TA_AGR"), QStringLiteral("9"));
}

// ------------------------------------------------------------------ CFDIs

TEST_P(PantallaParametros, TheTaxDataAreValidatedBeforeTheConfigurationIsSaved) {
  auto f = Abrir();
  f->fmeDatos->setCurrentIndex(2);
  f->cdgArchivo = [](QWidget *, const QString &, const QString &filtro) {
    return ParesSat().filePath(filtro.contains(QStringLiteral(".cer")) ? QStringLiteral("a.cer")
                                                                       : QStringLiteral("a.key"));
  };
  // The zone alone needs no validation.
  f->cmbZonaHoraria->setCurrentIndex(6);
  EXPECT_EQ(f->HorasDelMapa(), -6);
  f->cmdParamFE[1]->click();
  EXPECT_EQ(Valor("FE_ZONAHORA"), cfdi::ZonasHorarias()[6]);
  GuardarCaptura(f.get(), QStringLiteral("frmUtiParametros_zona"));
  f->fmeCfdis->setCurrentIndex(1);
  f->cmdCer->click();
  f->cmdKey->click();
  QTest::keyClicks(f->txtKeyPwd, QStringLiteral("clave123"));
  // A change not validated stops the configuration.
  emp->mensajes.mostrados.clear();
  f->cmdParamFE[0]->click();
  EXPECT_EQ(Avisos(), L({"Debe validar la información modificada del SAT para poder guardar la "
                         "información."}));
  f->cmdValidarInfoSAT->click();
  EXPECT_EQ(Avisos().last(),
            QStringLiteral("La información fue validada y guardada correctamente"));
  EXPECT_EQ(f->cmdValidarInfoSAT->text(), QStringLiteral("Actualizar"));
  EXPECT_TRUE(f->lblDatosCertificado->text().contains(QStringLiteral("FDL180314AB1")));
  // The expiry comes from the certificate.
  EXPECT_LE(std::abs(QDate::currentDate().addDays(365).daysTo(f->dtpFEVenc->date())), 1);
  GuardarCaptura(f.get(), QStringLiteral("frmUtiParametros_configuracion"));
  // After 2018 the version is 33 even with the box off.
  f->chkFEVer->setChecked(false);
  f->cmdParamFE[0]->click();
  EXPECT_EQ(Avisos().last(), QStringLiteral("Parámetros guardados"));
  EXPECT_EQ(Valor("FE_VERSION"), QStringLiteral("33"));
  EXPECT_EQ(Valor("FE_LLAVE"), ParesSat().filePath(QStringLiteral("a.key")));
}

TEST_P(PantallaParametros, APromotionSwitchedOffInTheGridLeavesTheTerminalsTree) {
  con->Ejecutar(QStringLiteral("INSERT INTO tblParametrosGenerales (TC_SERVICIO) VALUES (2)"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblTcPromociones (COD_TCPROMO,DES_TCPROMO,ACTIVA_PROMO,"
                               "MIN_TCPROMO,NUM_PARCIAL) VALUES (1,'3 MESES',1,500,3),"
                               "(2,'6 MESES',1,900,6)"));
  con->Ejecutar(
      QStringLiteral("INSERT INTO tblTcTerminalPromo (COD_TERMINAL,COD_TCPROMO) VALUES (1,2)"));
  auto f = Abrir();
  f->fmeDatos->setCurrentIndex(1);
  f->cmdTVE[1]->click();
  ASSERT_TRUE(f->cmdActivarPromo->isEnabled());
  f->cmdActivarPromo->click();
  ASSERT_EQ(f->flxPromos->rowCount(), 2);
  EXPECT_EQ(f->flxPromos->item(1, 3)->text(), QStringLiteral("900.00"));
  // The status is chosen from its list over the cell; switched off, the minimum goes to 0.
  f->flxPromos->setCurrentCell(1, 2);
  Q_EMIT f->flxPromos->cellDoubleClicked(1, 2);
  EXPECT_TRUE(f->cmbEstatus->isVisible());
  f->cmbEstatus->setCurrentIndex(0);
  Q_EMIT f->cmbEstatus->activated(0);
  EXPECT_EQ(f->flxPromos->item(1, 2)->text(), QStringLiteral("Desactivar"));
  EXPECT_EQ(f->flxPromos->item(1, 3)->text(), QStringLiteral("0.00"));
  f->cmdPromo[0]->click();
  EXPECT_EQ(Filas(*con, QStringLiteral("SELECT COD_TCPROMO,ACTIVA_PROMO FROM tblTcPromociones "
                                       "ORDER BY COD_TCPROMO")),
            L({"1|1", "2|0"}));
  f->cmdAgregarTerminal->click();
  ASSERT_EQ(f->tvwPromociones->topLevelItemCount(), 1);
  EXPECT_EQ(f->tvwPromociones->topLevelItem(0)->text(0), QStringLiteral("3 MESES"));
  EXPECT_EQ(emp->Contar(QStringLiteral("tblTcTerminalPromo")), 1);
}

TEST_P(PantallaParametros, TheAccountWithoutItsPasswordDoesNothingAfterTheQuestion) {
  auto f = Abrir();
  f->fmeDatos->setCurrentIndex(2);
  f->fmeCfdis->setCurrentIndex(1);
  f->txtSerieFE->setText(QStringLiteral("A"));
  f->txtFactElectronica[3]->setText(QStringLiteral("timbrado"));
  f->cmdTest->click();
  EXPECT_EQ(Avisos(), L({"¿Todos los datos fiscales de la empresa son correctos?"}));
  EXPECT_FALSE(f->chkConfiguraFE->isChecked());
  EXPECT_TRUE(f->cmdTest->isVisible());
  f->txtFactElectronica[4]->setText(QStringLiteral("s3cr3t"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblParametrosGenerales (CFD_FACT) VALUES (0)"));
  f->cmdTest->click();
  EXPECT_TRUE(f->chkConfiguraFE->isChecked());
  EXPECT_FALSE(f->cmdTest->isVisible());
  EXPECT_EQ(Valor("CFD_FACT"), QStringLiteral("1"));
}

TEST_P(PantallaParametros, FFourOfTheCompanyListOpensTheParameters) {
  gVersionOk = false;
  frmUtiEmpresas lista;
  lista.show();
  QApplication::setActiveWindow(&lista);
  lista.flxEmpresas->setFocus();
  bool visto = false;
  QTimer::singleShot(0, [&] {
    auto *p = dynamic_cast<frmUtiParametros *>(QApplication::activeModalWidget());
    visto = p != nullptr;
    if (p)
      p->close();
  });
  EXPECT_TRUE(lista.cmdFunciones[1]->isEnabled());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4);
  EXPECT_TRUE(visto);
  EXPECT_EQ(gEmpresaParametros, 1);
  EXPECT_EQ(gNumEmp, 1);
}

INSTANTIATE_TEST_SUITE_P(Motores, PantallaParametros, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);
