#include "journal/pantallas/frmGenerarPolizas.h"
#include "Capturas.h"
#include "journal/FixtureGeneracion.h"
#include "journal/pantallas/frmVistaPrevia.h"
#include "pantallas/Apostrofos.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/Pantallas.h"
#include "shell/ErrorFatal.h"
#include "shell/Rutas.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDateEdit>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QUrl>
#include <gtest/gtest.h>

// Readable dates in test failures.
void PrintTo(const QDate &fecha, std::ostream *os) {
  *os << fecha.toString(Qt::ISODate).toStdString();
}

namespace {

const char *kEnc = "SELECT FOL_POLIZA,FEC_POLIZA,TIP_POLIZA,COD_OPER,CONCEP_POL,FEC_ANTERIOR,"
                   "IMPANT_DEBE,IMPANT_HABER,SUM_DEBE,SUM_HABER,ESTATUS FROM tblPolizasEnc ORDER "
                   "BY FOL_POLIZA";
const char *kRen =
    "SELECT FOL_POLIZA,TIP_POLIZA,COD_DATO,RUBRO_DEBE,RUBRO_HABER,CUENTA_DEBE,"
    "CUENTA_HABER,IMP_DEBE,IMP_HABER FROM tblPolizasRen ORDER BY FOL_POLIZA,COD_DATO";

const QString kArbol = QStringLiteral(
    "SELECT DISTINCT COD_MODUL,DES_MODUL,tblCatOperaciones.COD_OPER,DES_OPER,CONCEPTO FROM "
    "((tblModulos INNER JOIN tblCatOperaciones ON "
    "tblModulos.COD_MODUL=tblCatOperaciones.MODULO) INNER JOIN tblOperacionxConcep ON "
    "tblCatOperaciones.COD_OPER=tblOperacionxConcep.COD_OPER) INNER JOIN tblRubrosxOperacion "
    "ON tblOperacionxConcep.COD_POL=tblRubrosxOperacion.COD_POL  WHERE (COD_MODUL<10) ORDER BY "
    "COD_MODUL,tblCatOperaciones.COD_OPER;");
const QString kImpuestos =
    QStringLiteral("SELECT COD_IMP FROM tblImpuestos WHERE COD_IMP<>0 ORDER BY COD_IMP;");

// The tree's nodes, in the order of its query.
constexpr int kVentas = 0, kContado = 1, kCredito = 2, kGastos = 3, kGasto = 4;

// The company of the run's tests (one expense rule, operation 22 under module 6 GASTOS)
// with sales, module 1, offering two operations more; the log folder beside the program.
class PantallaGeneracion : public Generacion {
protected:
  void SetUp() override {
    Generacion::SetUp();
    Ejecutar("INSERT INTO tblModulos (COD_MODUL,DES_MODUL) VALUES (1,'VENTAS')");
    Ejecutar("INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,GENERA_CON) VALUES "
             "(1,'VENTAS DE CONTADO',1,0)");
    Ejecutar("INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,GENERA_CON) VALUES "
             "(2,'VENTAS A CRÉDITO',1,0)");
    for (int oper : {1, 2}) {
      Ejecutar(QStringLiteral("INSERT INTO tblOperacionxConcep (COD_POL,COD_OPER,MODULO,CONCEPTO,"
                              "TIP_POLIZA,STS_POLIZA,FREC,DIARIO) VALUES (%1,%2,1,'','I','D',1,1)")
                   .arg(oper + 1)
                   .arg(oper));
      Ejecutar(QStringLiteral("INSERT INTO tblRubrosxOperacion (COD_POL,COD_DATO,RUBRO_DEBE,"
                              "CUENTA_DEBE,RUBRO_HABER,CUENTA_HABER) VALUES (%1,1,'1-01',"
                              "'1100-000','','')")
                   .arg(oper + 1));
    }
    QDir(emp->Ruta()).mkdir(QStringLiteral("TEMP"));
    InstalarAbridor([this](const QUrl &u) { abiertas.push_back(u); });
  }
  void TearDown() override {
    InstalarAbridor({});
    Generacion::TearDown();
  }

  // The screen loaded and shown as the active window; statements and messages afresh.
  // Its file dialog only counts the times it is shown, and cancels.
  std::unique_ptr<frmGenerarPolizas> Abrir() {
    auto f = std::make_unique<frmGenerarPolizas>();
    f->cdgBuscar = [this](QWidget *, const QString &, const QString &) {
      ++dialogos;
      return QString();
    };
    f->show();
    QApplication::setActiveWindow(f.get());
    f->tvwOperaciones->setFocus();
    emp->grabadora.sentencias.clear();
    emp->mensajes.mostrados.clear();
    return f;
  }

  // A click on the check box of a node of the tree, where the user clicks it.
  static void ClicCasilla(frmGenerarPolizas &f, int nodo) {
    QTreeWidget *t = f.tvwOperaciones;
    QTreeWidgetItem *item = NodoEn(f, nodo);
    QStyleOptionViewItem op;
    op.initFrom(t);
    op.rect = t->visualItemRect(item);
    op.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    op.text = item->text(0);
    op.checkState = item->checkState(0);
    const QRect casilla = t->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &op, t);
    QTest::mouseClick(t->viewport(), Qt::LeftButton, {}, casilla.center());
  }
  static QTreeWidgetItem *NodoEn(frmGenerarPolizas &f, int nodo) {
    QTreeWidgetItemIterator it(f.tvwOperaciones);
    for (int i = 0; i < nodo; ++i)
      ++it;
    return *it;
  }
  // Each node as its caption, with "*" when checked and "+" when expanded.
  static QStringList Marcas(frmGenerarPolizas &f) {
    QStringList m;
    for (QTreeWidgetItemIterator it(f.tvwOperaciones); *it; ++it)
      m << (*it)->text(0) +
               ((*it)->checkState(0) == Qt::Checked ? QStringLiteral("*") : QString()) +
               ((*it)->isExpanded() ? QStringLiteral("+") : QString());
    return m;
  }
  // A key typed where the focus is.
  static void Tecla(frmGenerarPolizas &f, Qt::Key tecla) {
    QWidget *foco = QApplication::focusWidget();
    QTest::keyClick(foco ? foco : &f, tecla);
  }
  // The period of the fixture's expenses.
  static void Octubre(frmGenerarPolizas &f) {
    f.dtpFecha[0]->setDate(QDate(2024, 10, 1));
    f.dtpFecha[1]->setDate(QDate(2024, 10, 31));
  }
  QString NombrePorOmision(const char *fecha) const {
    return RutaNativa(emp->Ruta() + QStringLiteral("\\TEMP\\ResumenPol1_") + QLatin1String(fecha) +
                      QStringLiteral(".txt"));
  }
  QString Leer(const QString &ruta) { return DecodificarWindows1252(LeerArchivo(ruta)); }

  std::vector<QUrl> abiertas; // what was handed to the desktop
  int dialogos = 0;
};

} // namespace

// ------------------------------------------------------------------ load

TEST_P(PantallaGeneracion, TheLoadSetsTodayReadsTheSourcesNamesTheLogAndFillsTheTree) {
  emp->grabadora.sentencias.clear();
  frmGenerarPolizas f;
  EXPECT_EQ(emp->grabadora.sentencias, (QStringList{kImpuestos, kArbol}));
  EXPECT_EQ(f.windowTitle(), QStringLiteral("GENERAR PÓLIZAS"));
  for (QDateEdit *d : f.dtpFecha)
    EXPECT_EQ(d->date(), QDate(2024, 11, 5));
  EXPECT_EQ(f.txtResumen->text(), NombrePorOmision("05112024"));
  EXPECT_EQ(Marcas(f), L({"VENTAS", "VENTAS DE CONTADO", "VENTAS A CRÉDITO", "GASTOS", "GASTOS"}));
  EXPECT_EQ(NodoEn(f, kGasto)->parent(), NodoEn(f, kGastos));
  EXPECT_EQ(f.chkActualizar->text(), QStringLiteral("Actualizar Pólizas"));
  EXPECT_FALSE(f.chkActualizar->isChecked());
  EXPECT_EQ(f.optFechaPol[0]->text(), QStringLiteral("Fecha del Movimiento"));
  EXPECT_EQ(f.optFechaPol[1]->text(), QStringLiteral("Definir Fecha "));
  EXPECT_TRUE(f.optFechaPol[0]->isChecked());
  EXPECT_FALSE(f.dtpFecha[2]->isEnabled());
  EXPECT_EQ(f.cmdBusca->text(), QStringLiteral("Buscar Bitácora"));
  QStringList botones;
  for (QAction *a : f.tlbCatalogo->actions())
    botones << a->objectName() + QLatin1Char('=') + a->text();
  EXPECT_EQ(botones, L({"GRB=F10", "VPR=F5", "AYU=F1", "SAL=Esc"}));
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

// ------------------------------------------------------------------ the tree

TEST_P(PantallaGeneracion, CheckingAModuleExpandsItAndChecksItsOperations) {
  auto f = Abrir();
  ClicCasilla(*f, kVentas);
  EXPECT_EQ(Marcas(*f),
            L({"VENTAS*+", "VENTAS DE CONTADO*", "VENTAS A CRÉDITO*", "GASTOS", "GASTOS"}));
  GuardarCaptura(f.get(), QStringLiteral("frmGenerarPolizas"));
}

TEST_P(PantallaGeneracion, UncheckingAModuleUnchecksItsOperations) {
  auto f = Abrir();
  ClicCasilla(*f, kVentas);
  ClicCasilla(*f, kVentas);
  EXPECT_EQ(Marcas(*f),
            L({"VENTAS+", "VENTAS DE CONTADO", "VENTAS A CRÉDITO", "GASTOS", "GASTOS"}));
}

TEST_P(PantallaGeneracion, CheckingAnOperationChecksItsModule) {
  auto f = Abrir();
  NodoEn(*f, kVentas)->setExpanded(true);
  ClicCasilla(*f, kCredito);
  EXPECT_EQ(Marcas(*f),
            L({"VENTAS*+", "VENTAS DE CONTADO", "VENTAS A CRÉDITO*", "GASTOS", "GASTOS"}));
}

TEST_P(PantallaGeneracion, UncheckingAnOperationLeavesTheModuleCheckedWhileAnotherIs) {
  auto f = Abrir();
  ClicCasilla(*f, kVentas);
  ClicCasilla(*f, kContado);
  EXPECT_EQ(Marcas(*f),
            L({"VENTAS*+", "VENTAS DE CONTADO", "VENTAS A CRÉDITO*", "GASTOS", "GASTOS"}));
  ClicCasilla(*f, kCredito);
  EXPECT_EQ(Marcas(*f),
            L({"VENTAS+", "VENTAS DE CONTADO", "VENTAS A CRÉDITO", "GASTOS", "GASTOS"}));
}

TEST_P(PantallaGeneracion, TheSpaceKeyChecksANodeByTheSameRules) {
  auto f = Abrir();
  f->tvwOperaciones->setCurrentItem(NodoEn(*f, kGastos));
  QTest::keyClick(f->tvwOperaciones, Qt::Key_Space);
  EXPECT_EQ(Marcas(*f),
            L({"VENTAS", "VENTAS DE CONTADO", "VENTAS A CRÉDITO", "GASTOS*+", "GASTOS*"}));
}

// ------------------------------------------------------------------ dates

TEST_P(PantallaGeneracion, TheLastDateSetBeforeTheFirstSnapsToIt) {
  auto f = Abrir();
  f->dtpFecha[0]->setDate(QDate(2024, 10, 10));
  f->dtpFecha[1]->setDate(QDate(2024, 10, 12));
  f->dtpFecha[1]->setFocus();
  for (int i = 0; i < 4; ++i)
    Tecla(*f, Qt::Key_Down); // the day: 11, 10, then 9 and 9 again, each snapping back
  EXPECT_EQ(f->dtpFecha[1]->date(), QDate(2024, 10, 10));
  EXPECT_EQ(f->dtpFecha[0]->date(), QDate(2024, 10, 10));
}

TEST_P(PantallaGeneracion, SettingTheFirstDateAfterTheLastPullsTheLastAlong) {
  auto f = Abrir();
  f->dtpFecha[0]->setDate(QDate(2024, 10, 10));
  f->dtpFecha[1]->setDate(QDate(2024, 10, 12));
  f->dtpFecha[0]->setFocus();
  for (int i = 0; i < 5; ++i)
    Tecla(*f, Qt::Key_Up);
  EXPECT_EQ(f->dtpFecha[0]->date(), QDate(2024, 10, 15));
  EXPECT_EQ(f->dtpFecha[1]->date(), QDate(2024, 10, 15));
}

TEST_P(PantallaGeneracion, OnlyDefinirFechaEnablesTheDefinedDate) {
  auto f = Abrir();
  QTest::mouseClick(f->optFechaPol[1], Qt::LeftButton);
  EXPECT_TRUE(f->optFechaPol[1]->isChecked());
  EXPECT_TRUE(f->dtpFecha[2]->isEnabled());
  QTest::mouseClick(f->optFechaPol[0], Qt::LeftButton);
  EXPECT_FALSE(f->dtpFecha[2]->isEnabled());
}

TEST_P(PantallaGeneracion, ChangingTheDefinedDateRefreshesTheLogNameOverAHandPickedOne) {
  auto f = Abrir();
  f->txtResumen->setFocus();
  f->txtResumen->selectAll();
  QTest::keyClicks(f->txtResumen, QStringLiteral("mi_bitacora.bit"));
  EXPECT_EQ(f->txtResumen->text(), QStringLiteral("mi_bitacora.bit"));
  QTest::mouseClick(f->optFechaPol[1], Qt::LeftButton);
  f->dtpFecha[2]->setFocus();
  Tecla(*f, Qt::Key_Up);
  EXPECT_EQ(f->dtpFecha[2]->date(), QDate(2024, 11, 6));
  EXPECT_EQ(f->txtResumen->text(), NombrePorOmision("06112024"));
}

TEST_P(PantallaGeneracion, TheDefaultNameOfCompanyThreeOnTheFifthOfMarch) {
  gNumEmp = 3;
  auto f = Abrir();
  f->dtpFecha[2]->setDate(QDate(2024, 3, 5));
  EXPECT_TRUE(
      f->txtResumen->text().endsWith(RutaNativa(QStringLiteral("\\ResumenPol3_05032024.txt"))));
}

TEST_P(PantallaGeneracion, TheFirstOrLastDateLeavesAHandPickedLogName) {
  auto f = Abrir();
  f->txtResumen->setText(QStringLiteral("mi_bitacora.bit"));
  f->dtpFecha[0]->setDate(QDate(2024, 12, 1));
  EXPECT_EQ(f->dtpFecha[1]->date(), QDate(2024, 12, 1));
  EXPECT_EQ(f->txtResumen->text(), QStringLiteral("mi_bitacora.bit"));
}

// ------------------------------------------------------------------ the log's name

TEST_P(PantallaGeneracion, BuscarBitacoraOffersLogFilesAndPutsTheChosenNameInTheField) {
  auto f = Abrir();
  QStringList pedidos;
  f->cdgBuscar = [&](QWidget *padre, const QString &titulo, const QString &filtro) {
    EXPECT_EQ(padre, f.get());
    pedidos << titulo + QLatin1Char('|') + filtro;
    return QStringLiteral("/datos/corridas/octubre.bit");
  };
  QTest::mouseClick(f->cmdBusca, Qt::LeftButton);
  EXPECT_EQ(pedidos, L({"Buscar Bitácora|Todos los archivos de bitácora (*.bit)"}));
  EXPECT_EQ(f->txtResumen->text(), QStringLiteral("/datos/corridas/octubre.bit"));
}

TEST_P(PantallaGeneracion, CancellingTheDialogChangesNothing) {
  auto f = Abrir();
  QTest::mouseClick(f->cmdBusca, Qt::LeftButton);
  EXPECT_EQ(dialogos, 1);
  EXPECT_EQ(f->txtResumen->text(), NombrePorOmision("05112024"));
}

TEST_P(PantallaGeneracion, TheApostropheIsRefusedInTheLogName) {
  auto f = Abrir();
  f->txtResumen->setFocus();
  f->txtResumen->selectAll();
  QTest::keyClicks(f->txtResumen, QStringLiteral("D'Angelo.bit"));
  EXPECT_EQ(f->txtResumen->text(), QStringLiteral("DAngelo.bit"));
}

// ------------------------------------------------------------------ keys

TEST_P(PantallaGeneracion, EnterMovesOnFromTheTreeTheDatesAndTheLogName) {
  auto f = Abrir();
  Tecla(*f, Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), f->dtpFecha[0]);
  Tecla(*f, Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), f->dtpFecha[1]);
  Tecla(*f, Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), f->chkActualizar);
  Tecla(*f, Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), f->optFechaPol[0]);
  EXPECT_EQ(f->dtpFecha[0]->date(), QDate(2024, 11, 5));
  EXPECT_EQ(dialogos, 0);
  f->txtResumen->setFocus();
  Tecla(*f, Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), f->cmdBusca);
}

TEST_P(PantallaGeneracion, EnterOnBuscarBitacoraPressesIt) {
  auto f = Abrir();
  f->cmdBusca->setFocus();
  Tecla(*f, Qt::Key_Return);
  EXPECT_EQ(dialogos, 1);
  EXPECT_EQ(QApplication::focusWidget(), f->cmdBusca);
}

TEST_P(PantallaGeneracion, EscapeClosesTheScreen) {
  auto f = Abrir();
  Tecla(*f, Qt::Key_Escape);
  EXPECT_FALSE(f->isVisible());
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

// ------------------------------------------------------------------ the run

TEST_P(PantallaGeneracion, FTenWithNothingCheckedDoesNothingAndShowsNothing) {
  Gasto("G-1", d3(), "800");
  auto f = Abrir();
  Octubre(*f);
  Tecla(*f, Qt::Key_F10);
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
  EXPECT_EQ(emp->Contar(QStringLiteral("tblPolizasEnc")), 0);
  EXPECT_FALSE(QFileInfo::exists(RutaNativa(f->txtResumen->text())));
  EXPECT_TRUE(abiertas.empty());
  EXPECT_TRUE(f->tlbCatalogo->isEnabled());
}

TEST_P(PantallaGeneracion, AnEmptyLogNameStopsTheRunWithMessage5512) {
  Gasto("G-1", d3(), "800");
  auto f = Abrir();
  Octubre(*f);
  ClicCasilla(*f, kGastos);
  f->txtResumen->clear();
  f->tvwOperaciones->setFocus();
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5512});
  EXPECT_EQ(emp->Contar(QStringLiteral("tblPolizasEnc")), 0);
  EXPECT_EQ(QApplication::focusWidget(), f->txtResumen);
  EXPECT_EQ(f->txtResumen->text(), QString());
  EXPECT_TRUE(f->tlbCatalogo->isEnabled());
}

TEST_P(PantallaGeneracion, AnExistingLogRefusedStopsTheRunWithTheFocusOnItsName) {
  Gasto("G-1", d3(), "800");
  auto f = Abrir();
  Octubre(*f);
  EscribirArchivo(f->txtResumen->text(), "corrida anterior\r\n");
  ClicCasilla(*f, kGastos);
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5510});
  EXPECT_EQ(emp->Contar(QStringLiteral("tblPolizasEnc")), 0);
  EXPECT_EQ(QApplication::focusWidget(), f->txtResumen);
  EXPECT_EQ(LeerArchivo(f->txtResumen->text()), QByteArray("corrida anterior\r\n"));
}

TEST_P(PantallaGeneracion, ARunByFTenPostsTheEntriesAndOffersTheLogAnsweringNo) {
  Gasto("G-1", d3(), "800");
  auto f = Abrir();
  Octubre(*f);
  ClicCasilla(*f, kGastos);
  const QString bitacora = emp->Ruta() + QStringLiteral("/octubre.bit");
  f->txtResumen->setText(bitacora);
  emp->mensajes.respuestas = {RespuestaMensaje::Aceptar, RespuestaMensaje::No};
  Tecla(*f, Qt::Key_F10);
  // The sources are read again and the log's name is the default one once more.
  EXPECT_EQ(emp->grabadora.sentencias.last(), kImpuestos);
  EXPECT_EQ(f->txtResumen->text(), NombrePorOmision("05112024"));
  EXPECT_EQ(Filas(kEnc),
            L({"00000000001|2024-10-03|E|22|RENTA DEL LOCAL|2024-10-03|0|0|1600|800|1"}));
  EXPECT_EQ(Filas(kRen), L({"00000000001|E|68|6-01||6100-000||800|0",
                            "00000000001|E|71||2-01||2100-000|0|800"}));
  ASSERT_EQ(emp->mensajes.Ids(), (std::vector<int>{108, 5509}));
  const Mensaje &pregunta = emp->mensajes.mostrados[1];
  EXPECT_EQ(pregunta.texto, CatalogoMensajes::Texto(5509));
  EXPECT_EQ(pregunta.titulo, CatalogoMensajes::Texto(100));
  EXPECT_EQ(pregunta.icono, IconoMensaje::Pregunta);
  EXPECT_EQ(pregunta.botones, BotonesMensaje::SiNo);
  EXPECT_TRUE(abiertas.empty());
  EXPECT_TRUE(Leer(bitacora).contains(
      QStringLiteral("\r\nResumen del Proceso de Generación de Pólizas\r\n")));
  EXPECT_TRUE(f->tlbCatalogo->isEnabled());
  // The bar followed the run to its end, and is put away with it.
  EXPECT_FALSE(f->prgAvance->isVisible());
  EXPECT_EQ(f->prgAvance->maximum(), 100);
  EXPECT_EQ(f->prgAvance->value(), 100);
  EXPECT_EQ(f->lblAvance->text(),
            QStringLiteral("Regla 1 de 1: GASTOS RENTA DEL LOCAL   Documento 1 de 1"));
}

TEST_P(PantallaGeneracion, ARunWhileAnotherHoldsTheCompanySaysSoAndTheScreenStaysOpen) {
  Gasto("G-1", d3(), "800");
  // Another workstation is generating in the same company.
  ConexionPtr otra = emp->Abrir();
  QString candado;
  const std::unique_ptr<Candado> tomado =
      otra->TomarCandado(QStringLiteral("generacion"), &candado);
  ASSERT_TRUE(tomado);
  auto f = Abrir();
  Octubre(*f);
  ClicCasilla(*f, kGastos);
  f->txtResumen->setText(emp->Ruta() + QStringLiteral("/octubre.bit"));
  Tecla(*f, Qt::Key_F10);
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].texto, MensajeGeneracionEnCurso(candado));
  EXPECT_EQ(emp->mensajes.mostrados[0].icono, IconoMensaje::Advertencia);
  EXPECT_TRUE(Filas(kEnc).isEmpty());
  EXPECT_FALSE(QFileInfo::exists(emp->Ruta() + QStringLiteral("/octubre.bit")));
  EXPECT_TRUE(f->tlbCatalogo->isEnabled());
  EXPECT_EQ(QApplication::focusWidget(), f->txtResumen);
}

TEST_P(PantallaGeneracion, AnsweringYesHandsTheLogToTheDesktop) {
  Gasto("G-1", d3(), "800");
  auto f = Abrir();
  Octubre(*f);
  ClicCasilla(*f, kGastos);
  const QString bitacora = f->txtResumen->text();
  emp->mensajes.respuestas = {RespuestaMensaje::Aceptar, RespuestaMensaje::Si};
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{108, 5509}));
  ASSERT_EQ(abiertas.size(), 1u);
  EXPECT_EQ(abiertas[0], QUrl::fromLocalFile(RutaNativa(bitacora)));
  EXPECT_EQ(abiertas[0].toLocalFile(),
            emp->Ruta() + QStringLiteral("/TEMP/ResumenPol1_05112024.txt"));
  EXPECT_TRUE(QFileInfo::exists(abiertas[0].toLocalFile()));
}

TEST_P(PantallaGeneracion, TheRunFollowsTheOptionsOfTheScreen) {
  Gasto("G-1", d3(), "800");
  auto f = Abrir();
  Octubre(*f);
  ClicCasilla(*f, kGastos);
  QTest::mouseClick(f->optFechaPol[1], Qt::LeftButton);
  f->dtpFecha[2]->setDate(QDate(2024, 10, 20));
  QTest::mouseClick(f->chkActualizar, Qt::LeftButton, {},
                    QPoint(6, f->chkActualizar->height() / 2));
  EXPECT_TRUE(f->chkActualizar->isChecked());
  const QString bitacora = f->txtResumen->text();
  EXPECT_EQ(bitacora, NombrePorOmision("20102024"));
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(Filas(kEnc),
            L({"00000000001|2024-10-20|E|22|RENTA DEL LOCAL|2024-10-20|0|0|1600|800|1"}));
  EXPECT_TRUE(Leer(bitacora).contains(QStringLiteral(
      "Fecha Inicial:    01/10/2024\r\nFecha Final:      31/10/2024\r\n\r\nFecha = 20/10/2024\r\n"
      "Actualizar Pólizas = Sí\r\n")))
      << Leer(bitacora).toStdString();
}

TEST_P(PantallaGeneracion, ASecondRunWithoutChangesPostsNothingAndSays5508) {
  Gasto("G-1", d3(), "800");
  auto f = Abrir();
  Octubre(*f);
  ClicCasilla(*f, kGastos);
  Tecla(*f, Qt::Key_F10);
  const QStringList antes = Filas(kEnc) + Filas(kRen);
  emp->mensajes.mostrados.clear();
  emp->mensajes.respuestas = {RespuestaMensaje::Si, RespuestaMensaje::Aceptar,
                              RespuestaMensaje::No};
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{5510, 5508, 5509}));
  EXPECT_EQ(Filas(kEnc) + Filas(kRen), antes);
  // The checks stay as the user left them.
  EXPECT_EQ(Marcas(*f),
            L({"VENTAS", "VENTAS DE CONTADO", "VENTAS A CRÉDITO", "GASTOS*+", "GASTOS*"}));
}

TEST_P(PantallaGeneracion, AFailureDuringTheRunEndsItWithWhatWasWritten) {
  Gasto("G-1", d3(), "800");
  // A rule of 101 rows goes beyond the run's table of rows.
  for (int i = 0; i < 99; ++i)
    Ejecutar("INSERT INTO tblRubrosxOperacion (COD_POL,COD_DATO,RUBRO_DEBE,CUENTA_DEBE,"
             "RUBRO_HABER,CUENTA_HABER) VALUES (1,68,'6-01','6100-000','','')");
  auto f = Abrir();
  Octubre(*f);
  ClicCasilla(*f, kGastos);
  const QString bitacora = f->txtResumen->text();
  EXPECT_THROW(f->tlbCatalogo->Pulsar(QStringLiteral("GRB")), ErrorFatal);
  EXPECT_EQ(emp->Contar(QStringLiteral("tblPolizasEnc")), 0);
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
  // The log's head was written before the rule was read.
  EXPECT_TRUE(Leer(bitacora).contains(QStringLiteral("Actualizar Pólizas = No\r\n")));
}

// ------------------------------------------------------------------ the preview

TEST_P(PantallaGeneracion, FFiveShowsWhatTheRunWouldPostAndWritesNothing) {
  Gasto("G-1", d3(), "800");
  Gasto("G-2", d10(), "150.50");
  auto f = Abrir();
  Octubre(*f);
  ClicCasilla(*f, kGastos);
  const QStringList antes = Filas("SELECT COD_FOLIO,FOL_FOLIOS FROM tblFolios ORDER BY COD_FOLIO");
  QStringList vistas;
  QString totales;
  // The preview comes after the rehearsed run, which lets events through as it goes: the
  // window is looked for until it is there.
  const auto revisar = [&](bool contabilizar) {
    QTimer espera;
    QObject::connect(&espera, &QTimer::timeout, [&, contabilizar] {
      auto *v = dynamic_cast<frmVistaPrevia *>(QApplication::activeModalWidget());
      if (!v)
        return;
      espera.stop();
      vistas.clear();
      for (int i = 0; i < v->tvwPolizas->topLevelItemCount(); ++i) {
        QTreeWidgetItem *p = v->tvwPolizas->topLevelItem(i);
        vistas << p->text(0) + QLatin1Char('|') + p->text(3) + QLatin1Char('|') + p->text(4) +
                      QLatin1Char('|') + QString::number(p->childCount());
      }
      totales = v->lblTotales->text();
      GuardarCaptura(v, QStringLiteral("frmVistaPrevia"));
      (contabilizar ? v->cmdContabilizar : v->cmdCerrar)->click();
    });
    espera.start(10);
    Tecla(*f, Qt::Key_F5);
  };
  revisar(false);
  EXPECT_EQ(vistas, L({"E00000000001|800.00|800.00|2", "E00000000002|150.50|150.50|2"}));
  // Nothing was posted: the run's "posted" message isn't shown.
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{});
  EXPECT_EQ(totales, QStringLiteral("Pólizas: 2   Cargos: 950.50   Abonos: 950.50"));
  // Nothing was written: no entry, no document stamped, no folio taken, no log.
  EXPECT_EQ(emp->Contar(QStringLiteral("tblPolizasEnc")), 0);
  EXPECT_EQ(Filas("SELECT FOL_MOV FROM tblGastosEnc WHERE CONTAB<>0"), QStringList());
  EXPECT_EQ(Filas("SELECT COD_FOLIO,FOL_FOLIOS FROM tblFolios ORDER BY COD_FOLIO"), antes);
  EXPECT_FALSE(QFileInfo::exists(RutaNativa(f->txtResumen->text())));
  // "Contabilizar" posts what was shown.
  revisar(true);
  EXPECT_EQ(Filas("SELECT TIP_POLIZA,FOL_POLIZA FROM tblPolizasEnc ORDER BY FOL_POLIZA"),
            L({"E|00000000001", "E|00000000002"}));
  EXPECT_EQ(Filas("SELECT FOL_MOV FROM tblGastosEnc WHERE CONTAB<>0 ORDER BY FOL_MOV"),
            L({"G-1", "G-2"}));
}

TEST(VistaPrevia, AnUnbalancedEntryStandsInRedWithItsDifference) {
  PolizaPrevista p;
  p.poliza.TIP_POLIZA = QStringLiteral("D");
  p.poliza.FOL_POLIZA = QStringLiteral("00000000007");
  p.poliza.CONCEP_POL = QStringLiteral("AJUSTE");
  RenglonPoliza cargo;
  cargo.RUBRO_DEBE = QStringLiteral("1-01");
  cargo.IMP_DEBE = Dinero::DeEntero(100);
  RenglonPoliza abono;
  abono.RUBRO_HABER = QStringLiteral("2-01");
  abono.IMP_HABER = Dinero::DeEntero(90);
  p.renglones = {cargo, abono};
  frmVistaPrevia v({p});
  QTreeWidgetItem *poliza = v.tvwPolizas->topLevelItem(0);
  EXPECT_EQ(poliza->text(2), QStringLiteral("AJUSTE  (diferencia 10.00)"));
  EXPECT_EQ(poliza->foreground(0).color(), QColor(Qt::red));
  EXPECT_EQ(v.lblTotales->text(),
            QStringLiteral("Pólizas: 1   Cargos: 100.00   Abonos: 90.00   Descuadradas: 1"));
  // With nothing to post, there is nothing to confirm.
  frmVistaPrevia vacia({});
  EXPECT_FALSE(vacia.cmdContabilizar->isEnabled());
}

INSTANTIATE_TEST_SUITE_P(Motores, PantallaGeneracion, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);

TEST_P(PantallaGeneracion, TheApostropheIsRefusedHoweverItComesAndReachesNoStatement) {
  auto f = Abrir();
  EXPECT_GE(IntentarApostrofos(f.get()), 1);
  for (const QString &s : emp->grabadora.sentencias)
    EXPECT_FALSE(s.contains(QStringLiteral("BRIEN"))) << s.toStdString();
}

TEST_P(PantallaGeneracion, APeriodWithoutDocumentsTakesTheBarToItsEnd) {
  auto f = Abrir();
  f->dtpFecha[0]->setDate(QDate(2024, 9, 1));
  f->dtpFecha[1]->setDate(QDate(2024, 9, 30));
  ClicCasilla(*f, kGastos);
  emp->mensajes.respuestas = {RespuestaMensaje::Aceptar, RespuestaMensaje::No};
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{5508, 5509}));
  EXPECT_EQ(f->prgAvance->value(), f->prgAvance->maximum());
  EXPECT_EQ(f->lblAvance->text(),
            QStringLiteral("Regla 1 de 1: GASTOS RENTA DEL LOCAL   sin documentos"));
}
