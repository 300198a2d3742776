#include "config/pantallas/frmCatalogo.h"
#include "Apoyo.h"
#include "Capturas.h"
#include "export/ContabilidadElectronica.h"
#include "pantallas/PantallaBarra.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// A chart with parents of the system and some company rubros under them.
class Catalogo : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    Sql("INSERT INTO tblCatRubros (COD_RUBRO,DES_RUBRO,ACUM_RUBRO,TIPOCTA_RUBRO,EDOFIN_RUBRO,"
        "NATURAL_RUBRO,CLASIF_RUBRO,ULTIMO_RUBRO,CUENTA_RUBRO,SUB_RUBRO) VALUES "
        "('1','ACTIVO','','D','BG','D','S','N','1000',0),"
        "('1-01-01','CAJA','1','D','BG','D','S','N','1100',1),"
        "('1-01-01-01','CAJA GENERAL','1-01-01','D','BG','D','E','S','1101',0),"
        "('1-01-01-04','CAJA CHICA','1-01-01','D','BG','D','E','N','1104',0),"
        "('1-01-01-04-01','FONDO','1-01-01-04','D','BG','D','E','S','110401',0),"
        "('1-01-02','BANCOS','1','D','BG','D','S','N','1200',1),"
        "('1-01-02-01','BANAMEX','1-01-02','D','BG','D','E','S','1201',0),"
        "('2-01','PROVEEDORES','2','A','BG','A','S','N','2100',1),"
        "('2-01-99','VARIOS','2-01','A','BG','A','E','S','2199',0),"
        "('6-01','GASTOS','6','D','ER','D','S','S','6100',1)");
    Sql("INSERT INTO tblCatCtasBancos (NUM_CUENTA,COD_RUBRO) VALUES ('0123','1-01-02-01')");
    f = std::make_unique<frmCatalogo>();
    f->show();
    QApplication::setActiveWindow(f.get());
    emp->grabadora.sentencias.clear();
  }
  void Sql(const char *sql) { con->Ejecutar(QString::fromUtf8(sql)); }
  // The rubro's SAT row, "code|nature", or empty.
  QString Sat(const char *rubro) {
    Registros r = con->Abrir(
        QStringLiteral("SELECT COD_AGRUP,NATURALEZA FROM tblRubrosSAT WHERE COD_RUBRO='%1'")
            .arg(QLatin1String(rubro)));
    return r.Vacio() ? QString() : r.Campo(0).Texto() + QLatin1Char('|') + r.Campo(1).Texto();
  }
  void Elegir(const char *padre) {
    f->cmbRubros->setCurrentIndex(f->cmbRubros->findText(QLatin1String(padre)));
  }
  QString Fila(const char *codigo) {
    Registros r = con->Abrir(QStringLiteral("SELECT DES_RUBRO,ACUM_RUBRO,CLASIF_RUBRO,"
                                            "ULTIMO_RUBRO,CUENTA_RUBRO FROM tblCatRubros WHERE "
                                            "COD_RUBRO='%1'")
                                 .arg(QLatin1String(codigo)));
    if (r.Vacio())
      return {};
    QStringList c;
    for (const char *campo :
         {"DES_RUBRO", "ACUM_RUBRO", "CLASIF_RUBRO", "ULTIMO_RUBRO", "CUENTA_RUBRO"})
      c << r.Campo(QLatin1String(campo)).Texto();
    return c.join(u'|');
  }
  void Escribir(const char *descripcion, const char *cuenta) {
    f->txtDesRubro->setText(QString::fromUtf8(descripcion));
    f->txtNumCuenta->setText(QLatin1String(cuenta));
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  std::unique_ptr<frmCatalogo> f;
};

} // namespace

TEST_P(Catalogo, TheParentsListedAndAGapNotFilled) {
  QStringList padres;
  for (int i = 0; i < f->cmbRubros->count(); ++i)
    padres << f->cmbRubros->itemText(i);
  EXPECT_EQ(padres, (QStringList{QStringLiteral("1-01-01"), QStringLiteral("1-01-02"),
                                 QStringLiteral("2-01"), QStringLiteral("6-01")}));
  EXPECT_EQ(f->cmbRubros->currentIndex(), -1);
  Elegir("1-01-01");
  // Children 01 and 04 give 05; the grandchild under 04 doesn't count.
  EXPECT_EQ(f->lblRubroEmp->text(), QStringLiteral("1-01-01-05"));
  EXPECT_EQ(f->lblDesRubroSist->text(), QStringLiteral("CAJA"));
  EXPECT_EQ(f->lblEdoFinanciero->text(), QStringLiteral("BG"));
  Elegir("6-01");
  EXPECT_EQ(f->lblRubroEmp->text(), QStringLiteral("6-01-01"));
  GuardarCaptura(f.get(), QStringLiteral("frmCatalogo"));
}

TEST_P(Catalogo, AfterNinetyNineComesOneHundredAndAgainOneHundredWhichUpdates) {
  Elegir("2-01");
  EXPECT_EQ(f->lblRubroEmp->text(), QStringLiteral("2-01-100"));
  Escribir("ACREEDORES", "2200");
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f->txtNumCuenta, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5521});
  EXPECT_EQ(Fila("2-01-100"), QStringLiteral("ACREEDORES|2-01|E|S|2200"));
  EXPECT_EQ(Fila("2-01"), QStringLiteral("PROVEEDORES|2|S|N|2100"));
  // The three-digit child doesn't count: the next code is 100 again, and saving updates.
  EXPECT_EQ(f->lblRubroEmp->text(), QStringLiteral("2-01-100"));
  Escribir("OTROS ACREEDORES", "2300");
  emp->mensajes.mostrados.clear();
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f->txtNumCuenta, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{154});
  EXPECT_EQ(Fila("2-01-100"), QStringLiteral("OTROS ACREEDORES|2-01|E|S|2300"));
}

TEST_P(Catalogo, NoToTheNewRubroLeavesTheTables) {
  Elegir("6-01");
  Escribir("PAPELERIA", "6101");
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  QTest::keyClick(f->txtNumCuenta, Qt::Key_F10);
  EXPECT_EQ(Fila("6-01-01"), QString());
  EXPECT_EQ(Fila("6-01"), QStringLiteral("GASTOS|6|S|S|6100"));
}

TEST_P(Catalogo, WithoutAParentSavingStopsAtItsWarning) {
  EXPECT_EQ(f->lblRubroEmp->text(), QString());
  Escribir("ALGO", "1");
  QTest::keyClick(f->txtNumCuenta, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5520});
  EXPECT_EQ(emp->mensajes.mostrados[0].icono, IconoMensaje::Advertencia);
}

TEST_P(Catalogo, ASystemRubroOutsideTheListShowsByItsCodeAndCanBeChanged) {
  f->busqueda = [](QWidget *, Conexion &, const QString &catalogo) {
    EXPECT_EQ(catalogo, QStringLiteral("RUBROS"));
    return QStringLiteral("1");
  };
  QTest::keyClick(f->txtDesRubro, Qt::Key_F6);
  EXPECT_EQ(f->cmbRubros->currentText(), QStringLiteral("1"));
  EXPECT_EQ(f->lblRubroEmp->text(), QString());
  EXPECT_EQ(f->txtDesRubro->text(), QStringLiteral("ACTIVO"));
  Escribir("ACTIVO TOTAL", "1000");
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f->txtNumCuenta, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{154});
  EXPECT_EQ(Fila("1"), QStringLiteral("ACTIVO TOTAL||S|N|1000"));
}

TEST_P(Catalogo, DeletingTheOnlyChildGivesTheParentItsLastLevelBack) {
  Elegir("6-01");
  Escribir("PAPELERIA", "6101");
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f->txtNumCuenta, Qt::Key_F10);
  EXPECT_EQ(Fila("6-01"), QStringLiteral("GASTOS|6|S|N|6100"));
  f->busqueda = [](QWidget *, Conexion &, const QString &) { return QStringLiteral("6-01-01"); };
  QTest::keyClick(f->txtDesRubro, Qt::Key_F6);
  EXPECT_EQ(f->lblRubroEmp->text(), QStringLiteral("6-01-01"));
  emp->mensajes.mostrados.clear();
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f->txtNumCuenta, Qt::Key_F3);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5519});
  EXPECT_EQ(Fila("6-01-01"), QString());
  EXPECT_EQ(Fila("6-01"), QStringLiteral("GASTOS|6|S|S|6100"));
  EXPECT_EQ(f->lblRubroEmp->text(), QStringLiteral("6-01-01"));
}

TEST_P(Catalogo, TheGuardsComeInTheirOrder) {
  // Nothing shown: 5515.
  QTest::keyClick(f->txtNumCuenta, Qt::Key_F3);
  // A bank's rubro, refused before its children are looked at.
  f->busqueda = [](QWidget *, Conexion &, const QString &) { return QStringLiteral("1-01-02-01"); };
  QTest::keyClick(f->txtDesRubro, Qt::Key_F6);
  QTest::keyClick(f->txtNumCuenta, Qt::Key_F3);
  // A company rubro with a child: 5516 before 5517.
  f->busqueda = [](QWidget *, Conexion &, const QString &) { return QStringLiteral("1-01-01-04"); };
  QTest::keyClick(f->txtDesRubro, Qt::Key_F6);
  QTest::keyClick(f->txtNumCuenta, Qt::Key_F3);
  // A rubro a rule uses: 5518.
  Sql("INSERT INTO tblRubrosxOperacion (COD_POL,COD_DATO,RUBRO_DEBE,RUBRO_HABER) VALUES "
      "(1,1,'1-01-01-01','')");
  f->busqueda = [](QWidget *, Conexion &, const QString &) { return QStringLiteral("1-01-01-01"); };
  QTest::keyClick(f->txtDesRubro, Qt::Key_F6);
  QTest::keyClick(f->txtNumCuenta, Qt::Key_F3);
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{5515, 5528, 5516, 5518}));
  EXPECT_EQ(Fila("1-01-02-01"), QStringLiteral("BANAMEX|1-01-02|E|S|1201"));
}

TEST_P(Catalogo, TypingInTheListIsSwallowedAndTheAccountTakesDigitsAndDashes) {
  f->cmbRubros->setFocus();
  QTest::keyClicks(f->cmbRubros, QStringLiteral("xyz"));
  EXPECT_EQ(f->cmbRubros->currentIndex(), -1);
  f->txtNumCuenta->setFocus();
  QTest::keyClicks(f->txtNumCuenta, QStringLiteral("11a0-0b1"));
  EXPECT_EQ(f->txtNumCuenta->text(), QStringLiteral("110-01"));
  // Enter on the list prepares the new child and goes to the description.
  f->cmbRubros->setCurrentIndex(0);
  f->cmbRubros->setFocus();
  QTest::keyClick(f->cmbRubros, Qt::Key_Return);
  EXPECT_TRUE(f->txtDesRubro->hasFocus());
  QTest::keyClick(f->txtDesRubro, Qt::Key_Return);
  EXPECT_TRUE(f->txtNumCuenta->hasFocus());
}

INSTANTIATE_TEST_SUITE_P(Motores, Catalogo, testing::ValuesIn(MotoresDePrueba()), NombreMotor);

TEST_P(Catalogo, ARubroShownFromOutsideTheListCantBeTypedOverAndTheListStays) {
  f->busqueda = [](QWidget *, Conexion &, const QString &) { return QStringLiteral("1"); };
  QTest::keyClick(f->txtDesRubro, Qt::Key_F6);
  ASSERT_EQ(f->cmbRubros->currentText(), QStringLiteral("1"));
  f->cmbRubros->setFocus();
  QTest::keyClicks(f->cmbRubros->lineEdit(), QStringLiteral("99"));
  EXPECT_EQ(f->cmbRubros->currentText(), QStringLiteral("1"));
  // Enter prepares a new child of what the list shows: "1" is no parent, so the list is
  // emptied, and with no descendants under the emptied text the code is "1" and "-01".
  QTest::keyClick(f->cmbRubros->lineEdit(), Qt::Key_Return);
  EXPECT_EQ(f->cmbRubros->count(), 4);
  EXPECT_EQ(f->cmbRubros->currentText(), QString());
  EXPECT_EQ(f->lblRubroEmp->text(), QStringLiteral("1-01"));
  EXPECT_TRUE(f->txtDesRubro->hasFocus());
  // F2 leaves a plain list again, nothing chosen.
  QTest::keyClick(f->txtDesRubro, Qt::Key_F2);
  EXPECT_FALSE(f->cmbRubros->isEditable());
  EXPECT_EQ(f->cmbRubros->currentIndex(), -1);
}

TEST_P(Catalogo, AnAccountWithOtherCharactersCanStillBeCorrected) {
  Sql("UPDATE tblCatRubros SET CUENTA_RUBRO='1.101' WHERE COD_RUBRO='1-01-01-01'");
  f->busqueda = [](QWidget *, Conexion &, const QString &) { return QStringLiteral("1-01-01-01"); };
  QTest::keyClick(f->txtDesRubro, Qt::Key_F6);
  f->txtNumCuenta->setFocus();
  f->txtNumCuenta->end(false);
  QTest::keyClick(f->txtNumCuenta, Qt::Key_Backspace);
  QTest::keyClicks(f->txtNumCuenta, QStringLiteral("x2"));
  EXPECT_EQ(f->txtNumCuenta->text(), QStringLiteral("1.102"));
}

TEST_P(Catalogo, ANewChildStartsWithItsParentsSatCodeAndNatureAndKeepsWhatIsTyped) {
  Sql("INSERT INTO tblRubrosSAT (COD_RUBRO,COD_AGRUP,NATURALEZA) VALUES ('2-01','201','A')");
  Elegir("2-01");
  EXPECT_EQ(f->txtCodAgrup->text(), QStringLiteral("201"));
  EXPECT_EQ(f->cmbNaturSat->currentText(), QStringLiteral("A - Acreedora"));
  Escribir("ACREEDORES", "2200");
  // Enter walks the account, the code and the nature; the code takes digits and its point.
  f->txtNumCuenta->setFocus();
  QTest::keyClick(f->txtNumCuenta, Qt::Key_Return);
  ASSERT_TRUE(f->txtCodAgrup->hasFocus());
  QTest::keyClicks(f->txtCodAgrup, QStringLiteral(".x0'6"));
  EXPECT_EQ(f->txtCodAgrup->text(), QStringLiteral("201.06"));
  QTest::keyClick(f->txtCodAgrup, Qt::Key_Return);
  EXPECT_TRUE(f->cmbNaturSat->hasFocus());
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f->cmbNaturSat, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5521});
  EXPECT_EQ(Sat("2-01-100"), QStringLiteral("201.06|A"));
  // The next new child starts again from the parent.
  EXPECT_EQ(f->txtCodAgrup->text(), QStringLiteral("201"));

  // Shown by the search, changed, and gone with the rubro.
  f->busqueda = [](QWidget *, Conexion &, const QString &) { return QStringLiteral("2-01-100"); };
  QTest::keyClick(f->txtDesRubro, Qt::Key_F6);
  EXPECT_EQ(f->txtCodAgrup->text(), QStringLiteral("201.06"));
  f->txtCodAgrup->setText(QStringLiteral("205.06"));
  f->cmbNaturSat->setCurrentIndex(1);
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f->txtDesRubro, Qt::Key_F10);
  EXPECT_EQ(Sat("2-01-100"), QStringLiteral("205.06|D"));
  QTest::keyClick(f->txtDesRubro, Qt::Key_F6);
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f->txtDesRubro, Qt::Key_F3);
  EXPECT_EQ(Fila("2-01-100"), QString());
  EXPECT_EQ(Sat("2-01-100"), QString());
}

TEST_P(Catalogo, ACodeOutOfTheSatsFormIsRefusedBeforeAnythingIsWritten) {
  Elegir("6-01");
  Escribir("PAPELERIA", "6101");
  f->txtCodAgrup->setText(QStringLiteral("60.1"));
  QTest::keyClick(f->txtDesRubro, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5529});
  EXPECT_EQ(Fila("6-01-01"), QString());
  EXPECT_EQ(Sat("6-01-01"), QString());
}

TEST_P(Catalogo, ASystemRubrosCodeSavedOnTheScreenGoesToTheSatsChart) {
  f->busqueda = [](QWidget *, Conexion &, const QString &) { return QStringLiteral("1"); };
  QTest::keyClick(f->txtDesRubro, Qt::Key_F6);
  // No SAT row yet: the code is empty and the nature the rubro's.
  EXPECT_EQ(f->txtCodAgrup->text(), QString());
  EXPECT_EQ(f->cmbNaturSat->currentText(), QStringLiteral("La del rubro"));
  f->txtCodAgrup->setText(QStringLiteral("100"));
  f->cmbNaturSat->setCurrentIndex(1);
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  QTest::keyClick(f->txtDesRubro, Qt::Key_F10);
  EXPECT_EQ(Sat("1"), QStringLiteral("100|D"));
  Sql("INSERT INTO tblEmpresa (COD_EMPRESA,RFC1_EMP,RFC2_EMP,RFC3_EMP) VALUES "
      "(1,'FDL','180314','AB1')");
  const sat::ResultadoSat r = sat::EscribirCatalogo(*con, QDate(2026, 10, 1));
  EXPECT_TRUE(r.faltas.contains(QStringLiteral("La cuenta 1100 (1-01-01 CAJA) no tiene código "
                                               "agrupador del SAT (CodAgrup).")));
  for (const QString &falta : r.faltas)
    EXPECT_FALSE(falta.contains(QStringLiteral("(1 ACTIVO)"))) << falta.toStdString();
}

TEST_P(Catalogo, ACompanyMadeBeforeTheSatTableGetsItWhenTheScreenOpens) {
  f.reset();
  Sql("DROP TABLE tblRubrosSAT");
  f = std::make_unique<frmCatalogo>();
  EXPECT_TRUE(f->txtCodAgrup->isEnabled());
  EXPECT_EQ(emp->Contar(QStringLiteral("tblRubrosSAT")), 0);
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}
