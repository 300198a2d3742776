#include "journal/pantallas/frmEliminarPolizas.h"
#include "Apoyo.h"
#include "Capturas.h"
#include "journal/DiarioPrueba.h"
#include "journal/Polizas.h"
#include "pantallas/Apostrofos.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/PantallaCombos.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QDateEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// The deletion screen over a company with two entries of November 2026 and a catalogue
// of expense concepts.
class PantallaEliminar : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    FijarReloj(QDateTime(QDate(2026, 11, 20), QTime(9, 30)));
    con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM) "
                                 "VALUES ('D','DIARIO','2',1),('E','EGRESOS','0',2)"));
    con->Ejecutar(QStringLiteral("INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,"
                                 "GENERA_CON) VALUES (1,'VENTAS DE CONTADO',1,0),(22,'GASTOS',6,1),"
                                 "(30,'ANTICIPOS A ACREEDORES',6,1)"));
    con->Ejecutar(QStringLiteral("INSERT INTO tblConceptosGyT (COD_CON,DES_CON,COD_FOL) VALUES "
                                 "('RENT','RENTA DEL LOCAL','GTOS')"));
    for (const char *folio : {"00000000001", "00000000002"}) {
      Poliza p;
      p.FOL_POLIZA = QLatin1String(folio);
      p.TIP_POLIZA = QStringLiteral("D");
      p.FEC_POLIZA = p.FEC_ANTERIOR = QDate(2026, 11, 20);
      p.COD_OPER = 22;
      p.CONCEP_POL = QStringLiteral("RENTA DEL LOCAL");
      RenglonPoliza r;
      r.RUBRO_DEBE = QStringLiteral("6-01");
      r.CUENTA_DEBE = QStringLiteral("6100");
      r.IMP_DEBE = Dinero::DeEntero(10);
      InsertarPoliza(*con, p, {r});
    }
    emp->grabadora.sentencias.clear();
  }
  std::unique_ptr<frmEliminarPolizas> Abrir() {
    auto f = std::make_unique<frmEliminarPolizas>();
    f->show();
    QApplication::setActiveWindow(f.get());
    f->cmbFolios->setFocus();
    return f;
  }
  // Chooses a row of a list by the arrow keys, as the user does.
  static void Elegir(ComboDatos *combo, const QString &texto) {
    const int fila = combo->findText(texto, Qt::MatchContains);
    combo->setFocus();
    while (combo->currentIndex() < fila)
      QTest::keyClick(combo, Qt::Key_Down);
    while (combo->currentIndex() > fila)
      QTest::keyClick(combo, Qt::Key_Up);
  }
  int Polizas() {
    return diario::Filas(*con, QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc"))
        .first()
        .toInt();
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

} // namespace

TEST_P(PantallaEliminar, TheLoadSetsTodayAndListsTypesAndOperations) {
  auto f = Abrir();
  EXPECT_EQ(f->windowTitle(), QStringLiteral("ELIMINAR PÓLIZAS"));
  EXPECT_EQ(f->dtpFechaIni->date(), QDate(2026, 11, 20));
  EXPECT_EQ(f->dtpFechaFin->date(), QDate(2026, 11, 20));
  EXPECT_EQ(
      emp->grabadora.sentencias,
      (QStringList{
          QStringLiteral("SELECT COD_FOLIO, DES_FOLIO FROM tblFolios ORDER BY COD_FOLIO"),
          QStringLiteral("SELECT COD_OPER, DES_OPER FROM tblCatOperaciones  ORDER BY COD_OPER")}));
  EXPECT_EQ(f->cmbConceptos->count(), 1); // the empty row only
  GuardarCaptura(f.get(), QStringLiteral("frmEliminarPolizas"));
}

TEST_P(PantallaEliminar, AnOperationLoadsItsConceptsAndOneWithoutACatalogueEmptiesThem) {
  auto f = Abrir();
  emp->grabadora.sentencias.clear();
  Elegir(f->cmbOperaciones, QStringLiteral("GASTOS"));
  EXPECT_EQ(emp->grabadora.sentencias,
            QStringList{QStringLiteral("SELECT COD_CON, DES_CON FROM tblConceptosGyT WHERE "
                                       "COD_FOL = 'GTOS' ORDER BY COD_CON")});
  EXPECT_EQ(f->cmbConceptos->count(), 2);
  // Operation 30 has a catalogue elsewhere, none on this screen.
  emp->grabadora.sentencias.clear();
  Elegir(f->cmbOperaciones, QStringLiteral("ANTICIPOS"));
  EXPECT_TRUE(emp->grabadora.sentencias.isEmpty());
  EXPECT_EQ(f->cmbConceptos->Codigo(), QString());
  EXPECT_EQ(f->cmbConceptos->Texto(), QString());
}

TEST_P(PantallaEliminar, FThreeAsksThenDeletesThePeriodsEntriesAndSaysDone) {
  auto f = Abrir();
  emp->mensajes.respuestas = {RespuestaMensaje::Aceptar};
  QTest::keyClick(f->cmbFolios, Qt::Key_F3);
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{5513, 5514}));
  EXPECT_EQ(Polizas(), 0);
  // Cancelled, nothing happens.
  emp->mensajes.mostrados.clear();
  emp->mensajes.respuestas = {RespuestaMensaje::Cancelar};
  QTest::keyClick(f->cmbFolios, Qt::Key_F3);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5513});
}

TEST_P(PantallaEliminar, EscapeLeavesAndTheApostropheIsRefused) {
  auto f = Abrir();
  IntentarApostrofos(f.get());
  EXPECT_EQ(Polizas(), 2);
  QTest::keyClick(f->cmbFolios, Qt::Key_Escape);
  EXPECT_FALSE(f->isVisible());
}

INSTANTIATE_TEST_SUITE_P(Motores, PantallaEliminar, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);
