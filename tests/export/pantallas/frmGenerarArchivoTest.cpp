#include "export/pantallas/frmGenerarArchivo.h"
#include "Capturas.h"
#include "export/ApoyoExportacion.h"
#include "export/ApoyoSat.h"
#include "pantallas/Apostrofos.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/PantallaCombos.h"
#include "pantallas/Pantallas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QAction>
#include <QApplication>
#include <QDateEdit>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <gtest/gtest.h>

using namespace exportacion;

// Readable dates in test failures.
void PrintTo(const QDate &fecha, std::ostream *os) {
  *os << fecha.toString(Qt::ISODate).toStdString();
}

namespace {

const QString kFolios =
    QStringLiteral("SELECT COD_FOLIO, DES_FOLIO FROM tblFolios ORDER BY COD_FOLIO");
const QString kOperaciones =
    QStringLiteral("SELECT COD_OPER, DES_OPER FROM tblCatOperaciones  ORDER BY COD_OPER");
const QString kGastos = QStringLiteral(
    "SELECT COD_CON, DES_CON FROM tblConceptosGyT WHERE COD_FOL = 'GTOS' ORDER BY COD_CON");

// The two lines of the sample entry in the fixture's format of one row.
const QByteArray kMuestra("00000000012,15/11/2026,D,0110-001-000,Pago de luz,D,1,250.00\r\n"
                          "00000000012,15/11/2026,D,0210-001-000,Pago de luz,H,1,250.00\r\n");

// The export's company with three journal types, three operations (one with a catalogue
// of concepts), and the clock on 20 November 2026.
class PantallaArchivo : public Exportacion {
protected:
  void SetUp() override {
    Exportacion::SetUp();
    FijarReloj(QDateTime(QDate(2026, 11, 20), QTime(9, 30)));
    con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM) "
                                 "VALUES ('D','DIARIO','0',1),('E','EGRESOS','0',2),"
                                 "('I','INGRESOS','0',3)"));
    con->Ejecutar(QStringLiteral("INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,"
                                 "GENERA_CON) VALUES (1,'VENTAS DE CONTADO',1,0),"
                                 "(2,'VENTAS A CRÉDITO',1,0),(22,'GASTOS',6,1)"));
    con->Ejecutar(QStringLiteral("INSERT INTO tblConceptosGyT (COD_CON,DES_CON,COD_FOL) VALUES "
                                 "('RENT','RENTA DEL LOCAL','GTOS'),('LUZ','LUZ','GTOS'),"
                                 "('BANC','DEPÓSITO','INGR')"));
    InstalarAbridor([this](const QUrl &u) { abiertas.push_back(u); });
  }
  void TearDown() override { InstalarAbridor({}); }

  // The screen loaded and shown as the active window, its save dialog answering the
  // names given in turn (then the empty text), over the period of the sample entry.
  std::unique_ptr<frmGenerarArchivo> Abrir(QStringList nombres = {}) {
    auto f = std::make_unique<frmGenerarArchivo>();
    nombresDialogo = std::move(nombres);
    f->cdgArchivo = [this](QWidget *, const QString &titulo, const QString &filtro) {
      pedidos << titulo + QLatin1Char('|') + filtro;
      return nombresDialogo.isEmpty() ? QString() : nombresDialogo.takeFirst();
    };
    f->show();
    QApplication::setActiveWindow(f.get());
    f->dtpFechaIni->setDate(QDate(2026, 11, 1));
    f->dtpFechaFin->setDate(QDate(2026, 11, 30));
    f->dtpFechaIni->setFocus();
    emp->grabadora.sentencias.clear();
    emp->mensajes.mostrados.clear();
    return f;
  }
  static void Tecla(frmGenerarArchivo &f, Qt::Key tecla) {
    QWidget *foco = QApplication::focusWidget();
    QTest::keyClick(foco ? foco : &f, tecla);
  }
  // Chooses a row of a list by the arrow keys, as the user does.
  static void Elegir(ComboDatos *combo, int fila) {
    combo->setFocus();
    while (combo->currentIndex() < fila)
      QTest::keyClick(combo, Qt::Key_Down);
    while (combo->currentIndex() > fila)
      QTest::keyClick(combo, Qt::Key_Up);
  }
  QString Otro() const { return UnirRuta(emp->Ruta(), QStringLiteral("otro.txt")); }

  QStringList nombresDialogo;
  QStringList pedidos; // title and filter of each time the dialog was shown
  std::vector<QUrl> abiertas;
};

const QString kPedido =
    QStringLiteral("Escriba el nombre del archivo a ser generado:|Archivos de Texto (*.txt)");

QString Pregunta(const QString &archivo) {
  return CatalogoMensajes::Texto(5524) + QLatin1Char(' ') + archivo + QStringLiteral("\n\n") +
         CatalogoMensajes::Texto(5525) + QStringLiteral("\n\n");
}

} // namespace

// ------------------------------------------------------------------ load and filters

TEST_P(PantallaArchivo, TheLoadSetsTodayAndListsTypesAndOperationsWithNoConcepts) {
  emp->grabadora.sentencias.clear();
  frmGenerarArchivo f;
  EXPECT_EQ(emp->grabadora.sentencias, (QStringList{kFolios, kOperaciones}));
  EXPECT_EQ(f.windowTitle(), QStringLiteral("GENERAR ARCHIVO DE PÓLIZAS"));
  EXPECT_EQ(f.dtpFechaIni->date(), QDate(2026, 11, 20));
  EXPECT_EQ(f.dtpFechaFin->date(), QDate(2026, 11, 20));
  ASSERT_EQ(f.cmbFolios->count(), 4);
  EXPECT_EQ(f.cmbFolios->itemText(1), QStringLiteral("DIARIO"));
  EXPECT_EQ(f.cmbFolios->Codigo(), QString());
  ASSERT_EQ(f.cmbOperaciones->count(), 4);
  EXPECT_EQ(f.cmbOperaciones->itemText(3), QStringLiteral("GASTOS"));
  EXPECT_EQ(f.cmbOperaciones->Codigo(), QString());
  EXPECT_EQ(f.cmbConceptos->count(), 1);
  EXPECT_EQ(f.cmbConceptos->Codigo(), QString());
  QStringList botones;
  for (QAction *a : f.tlbCatalogo->actions())
    botones << a->objectName() + QLatin1Char('=') + a->text() + QLatin1Char('|') + a->toolTip();
  EXPECT_EQ(botones,
            (QStringList{QStringLiteral("GRB=F10|Generar Archivo"), QStringLiteral("SAL=Esc|Salir"),
                         QStringLiteral("AYU=F1|Ayuda")}));
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

TEST_P(PantallaArchivo, ChoosingAnOperationLoadsItsConcepts) {
  auto f = Abrir();
  Elegir(f->cmbOperaciones, 3);
  EXPECT_EQ(f->cmbOperaciones->Codigo(), QStringLiteral("22"));
  EXPECT_EQ(emp->grabadora.sentencias, QStringList{kGastos});
  ASSERT_EQ(f->cmbConceptos->count(), 3);
  EXPECT_EQ(f->cmbConceptos->model()->index(1, 0).data().toString(), QStringLiteral("LUZ"));
  EXPECT_EQ(f->cmbConceptos->itemText(2), QStringLiteral("RENTA DEL LOCAL"));
  EXPECT_EQ(f->cmbConceptos->Codigo(), QString());
  Elegir(f->cmbConceptos, 2);
  EXPECT_EQ(f->cmbConceptos->Codigo(), QStringLiteral("RENT"));
  EXPECT_EQ(f->cmbConceptos->Texto(), QStringLiteral("RENTA DEL LOCAL"));
  GuardarCaptura(f.get(), QStringLiteral("frmGenerarArchivo"));
}

TEST_P(PantallaArchivo, AnOperationWithoutACatalogueEmptiesTheConcepts) {
  auto f = Abrir();
  Elegir(f->cmbOperaciones, 3);
  Elegir(f->cmbConceptos, 2);
  emp->grabadora.sentencias.clear();
  Elegir(f->cmbOperaciones, 1);
  EXPECT_EQ(f->cmbOperaciones->Codigo(), QStringLiteral("1"));
  EXPECT_TRUE(emp->grabadora.sentencias.isEmpty());
  EXPECT_EQ(f->cmbConceptos->count(), 1);
  EXPECT_EQ(f->cmbConceptos->Codigo(), QString());
  EXPECT_EQ(f->cmbConceptos->Texto(), QString());
}

// ------------------------------------------------------------------ the run

TEST_P(PantallaArchivo, FTenAsksTheNameAndTheQuestionThenWritesTheFile) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  auto f = Abrir({archivo});
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(pedidos, QStringList{kPedido});
  EXPECT_EQ(RenglonesEnOrden(LeerArchivo(archivo)), kMuestra);
  ASSERT_EQ(Mensajes(), (std::vector<int>{5524, 5526}));
  const Mensaje &pregunta = emp->mensajes.mostrados[0];
  EXPECT_EQ(pregunta.texto, Pregunta(archivo));
  EXPECT_EQ(pregunta.titulo, CatalogoMensajes::Texto(100));
  EXPECT_EQ(pregunta.icono, IconoMensaje::Pregunta);
  EXPECT_EQ(pregunta.botones, BotonesMensaje::SiNo);
  EXPECT_TRUE(f->isVisible());
  EXPECT_TRUE(f->tlbCatalogo->isEnabled());
  EXPECT_FALSE(f->prgAvance->isVisible());
  EXPECT_EQ(f->lblAvance->text(), QStringLiteral("Pólizas: 1   Líneas escritas: 2"));
}

TEST_P(PantallaArchivo, TheToolbarButtonWritesTheFileAsWell) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  auto f = Abrir({archivo});
  f->tlbCatalogo->Accion(QStringLiteral("GRB"))->trigger();
  EXPECT_EQ(RenglonesEnOrden(LeerArchivo(archivo)), kMuestra);
  EXPECT_EQ(Mensajes(), (std::vector<int>{5524, 5526}));
}

TEST_P(PantallaArchivo, TheChosenFiltersGoIntoTheSelection) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  auto f = Abrir({archivo});
  Elegir(f->cmbFolios, 1);
  Elegir(f->cmbOperaciones, 3);
  Elegir(f->cmbConceptos, 1);
  emp->grabadora.sentencias.clear();
  Tecla(*f, Qt::Key_F10);
  ASSERT_GE(emp->grabadora.sentencias.size(), 2);
  EXPECT_EQ(emp->grabadora.sentencias[1],
            QStringLiteral("SELECT tblPolizasRen.FOL_POLIZA, FEC_POLIZA, tblPolizasEnc.TIP_POLIZA, "
                           "CONCEP_POL, CUENTA_DEBE, CUENTA_HABER, IMP_DEBE, IMP_HABER, SUM_DEBE, "
                           "SUM_HABER, COD_OPER FROM tblPolizasEnc INNER JOIN tblPolizasRen ON "
                           "tblPolizasEnc.FOL_POLIZA = tblPolizasRen.FOL_POLIZA WHERE FEC_POLIZA "
                           "BETWEEN %1 AND %2 AND tblPolizasEnc.TIP_POLIZA='D' AND COD_OPER=22 "
                           "AND CONCEP_POL='LUZ' ORDER BY tblPolizasEnc.TIP_POLIZA, COD_OPER, "
                           "tblPolizasRen.FOL_POLIZA")
                .arg(ServicioUtil::FechaSQL(QDate(2026, 11, 1), emp->Motor()),
                     ServicioUtil::FechaSQL(QDate(2026, 11, 30), emp->Motor())));
  // The concept filter meets the entry's description, never a code: nothing is written.
  EXPECT_EQ(LeerArchivo(archivo), QByteArray());
  EXPECT_EQ(Mensajes(), (std::vector<int>{5524, 5526}));
}

TEST_P(PantallaArchivo, AFirstDateAfterTheLastGivesAnEmptyFile) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  auto f = Abrir({archivo});
  f->dtpFechaIni->setDate(QDate(2026, 11, 16));
  f->dtpFechaFin->setDate(QDate(2026, 11, 14));
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(f->dtpFechaFin->date(), QDate(2026, 11, 14));
  EXPECT_TRUE(QFile::exists(RutaNativa(archivo)));
  EXPECT_EQ(LeerArchivo(archivo), QByteArray());
  EXPECT_EQ(Mensajes(), (std::vector<int>{5524, 5526}));
}

TEST_P(PantallaArchivo, NoForAnExistingFileAsksForAnotherNameAndCancellingStops) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  EscribirArchivo(archivo, "contenido anterior\r\n");
  auto f = Abrir({archivo});
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(pedidos, (QStringList{kPedido, kPedido}));
  EXPECT_EQ(Mensajes(), std::vector<int>{5524});
  EXPECT_EQ(LeerArchivo(archivo), QByteArray("contenido anterior\r\n"));
}

TEST_P(PantallaArchivo, NoForAnExistingFileThenAnotherNameWritesThatOne) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  EscribirArchivo(archivo, "contenido anterior\r\n");
  auto f = Abrir({archivo, Otro()});
  emp->mensajes.respuestas = {RespuestaMensaje::No, RespuestaMensaje::Si};
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(pedidos, (QStringList{kPedido, kPedido}));
  ASSERT_EQ(Mensajes(), (std::vector<int>{5524, 5524, 5526}));
  EXPECT_EQ(emp->mensajes.mostrados[1].texto, Pregunta(Otro()));
  EXPECT_EQ(LeerArchivo(archivo), QByteArray("contenido anterior\r\n"));
  EXPECT_EQ(RenglonesEnOrden(LeerArchivo(Otro())), kMuestra);
}

TEST_P(PantallaArchivo, YesForAnExistingFileReplacesIt) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  EscribirArchivo(archivo, "contenido anterior que era más largo que el nuevo\r\n");
  auto f = Abrir({archivo});
  emp->mensajes.respuestas = {RespuestaMensaje::Si};
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(RenglonesEnOrden(LeerArchivo(archivo)), kMuestra);
}

TEST_P(PantallaArchivo, NoForAFileThatDoesntExistStillWritesIt) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  auto f = Abrir({archivo});
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(pedidos, QStringList{kPedido});
  EXPECT_EQ(RenglonesEnOrden(LeerArchivo(archivo)), kMuestra);
  EXPECT_EQ(Mensajes(), (std::vector<int>{5524, 5526}));
}

TEST_P(PantallaArchivo, CancellingTheDialogDoesNothing) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  auto f = Abrir();
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(pedidos, QStringList{kPedido});
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
  EXPECT_FALSE(QFile::exists(RutaNativa(archivo)));
  EXPECT_TRUE(f->isVisible());
}

TEST_P(PantallaArchivo, WithoutAFormatTheScreenSays5522AndCloses) {
  PolizaDeMuestra(*con);
  auto f = Abrir({archivo});
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(Mensajes(), std::vector<int>{5522});
  EXPECT_TRUE(pedidos.isEmpty());
  EXPECT_FALSE(f->isVisible());
  EXPECT_EQ(f->result(), QDialog::Rejected);
  EXPECT_FALSE(QFile::exists(RutaNativa(archivo)));
}

TEST_P(PantallaArchivo, AFileThatCantBeWrittenGives5527AndTheScreenStays) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  const QString malo = UnirRuta(emp->Ruta(), QStringLiteral("no_existe\\polizas.txt"));
  auto f = Abrir({malo});
  Tecla(*f, Qt::Key_F10);
  ASSERT_EQ(Mensajes(), (std::vector<int>{5524, 5527}));
  const Mensaje &falla = emp->mensajes.mostrados[1];
  EXPECT_EQ(falla.texto, CatalogoMensajes::Texto(5527) + QLatin1Char(' ') + malo +
                             QStringLiteral("\nNo se encontró la ruta de acceso"));
  EXPECT_EQ(falla.titulo, QStringLiteral("Error 76"));
  EXPECT_TRUE(f->isVisible());
  EXPECT_TRUE(f->tlbCatalogo->isEnabled());
  EXPECT_FALSE(f->prgAvance->isVisible());
}

TEST_P(PantallaArchivo, TheFormatIsReadOnceWhileTheScreenIsOpen) {
  InsertarFormato(*con, FormatoUsuario());
  PolizaDeMuestra(*con);
  auto f = Abrir({archivo, Otro()});
  Tecla(*f, Qt::Key_F10);
  con->Ejecutar(QStringLiteral("UPDATE tblParametrosForm SET SEP_DAT=';'"));
  emp->grabadora.sentencias.clear();
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(RenglonesEnOrden(LeerArchivo(Otro())), kMuestra);
  ASSERT_EQ(emp->grabadora.sentencias.size(), 1);
  EXPECT_TRUE(emp->grabadora.sentencias[0].startsWith(QStringLiteral("SELECT tblPolizasRen.")));
}

// ------------------------------------------------------------------ keys

TEST_P(PantallaArchivo, EnterMovesOnFromTheDatesAndTheLists) {
  auto f = Abrir();
  Tecla(*f, Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), f->dtpFechaFin);
  Tecla(*f, Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), f->cmbFolios);
  Tecla(*f, Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), f->cmbOperaciones);
  Tecla(*f, Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), f->cmbConceptos);
  EXPECT_EQ(f->dtpFechaIni->date(), QDate(2026, 11, 1));
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

TEST_P(PantallaArchivo, EscapeClosesTheScreen) {
  auto f = Abrir();
  Tecla(*f, Qt::Key_Escape);
  EXPECT_FALSE(f->isVisible());
  EXPECT_TRUE(pedidos.isEmpty());
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
}

INSTANTIATE_TEST_SUITE_P(Motores, PantallaArchivo, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);

TEST_P(PantallaArchivo, TheApostropheIsRefusedHoweverItComesAndReachesNoStatement) {
  auto f = Abrir();
  IntentarApostrofos(f.get());
  for (const QString &s : emp->grabadora.sentencias)
    EXPECT_FALSE(s.contains(QStringLiteral("BRIEN"))) << s.toStdString();
}

TEST_P(PantallaArchivo, TheFileIsNamedInTheExportFolderOfReportIni) {
  const QString exportar = emp->Ruta() + QStringLiteral("/Salidas");
  QDir().mkpath(exportar);
  auto f = std::make_unique<frmGenerarArchivo>();
  QString carpeta;
  const auto mirar = [&carpeta] {
    auto *dialogo = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
    ASSERT_NE(dialogo, nullptr);
    carpeta = dialogo->directory().absolutePath();
    dialogo->reject();
  };
  // Without the key: the program's Export folder.
  QDir().mkpath(emp->Ruta() + QStringLiteral("/Export"));
  QTimer::singleShot(0, mirar);
  EXPECT_EQ(f->cdgArchivo(f.get(), QStringLiteral("t"), QStringLiteral("*.txt")), QString());
  EXPECT_EQ(carpeta, QDir(emp->Ruta() + QStringLiteral("/Export")).absolutePath());
  ServicioUtil::EscribirIni(QStringLiteral("Config"), QStringLiteral("ExportDir"), exportar,
                            RutaReportIni());
  QTimer::singleShot(0, mirar);
  f->cdgArchivo(f.get(), QStringLiteral("t"), QStringLiteral("*.txt"));
  EXPECT_EQ(carpeta, QDir(exportar).absolutePath());
}

// ------------------------------------------------------------------ the SAT's XML

namespace {

// The sample entry with its rubros in the chart and the company's RFC.
void DatosSat(Conexion &con) {
  PolizaDeMuestra(con);
  con.Ejecutar(
      QStringLiteral("INSERT INTO tblCatRubros (COD_RUBRO,DES_RUBRO,CUENTA_RUBRO) VALUES "
                     "('1-01','CAJA','110-001-000'),('2-01','PROVEEDORES','210-001-000')"));
  con.Ejecutar(QStringLiteral("INSERT INTO tblEmpresa (COD_EMPRESA,RFC1_EMP,RFC2_EMP,RFC3_EMP) "
                              "VALUES (1,'FDL','180314','AB1')"));
}

} // namespace

TEST_P(PantallaArchivo, TheSatsChoiceTakesTheWholeMonthAndWritesItsFileByItsName) {
  DatosSat(*con);
  auto f = Abrir({archivo});
  f->dtpFechaIni->setDate(QDate(2026, 11, 15));
  EXPECT_FALSE(f->grpSat->isEnabled());
  f->optSat->setFocus();
  QTest::keyClick(f->optSat, Qt::Key_Space);
  ASSERT_TRUE(f->optSat->isChecked());
  EXPECT_EQ(f->dtpFechaIni->date(), QDate(2026, 11, 1));
  EXPECT_EQ(f->dtpFechaFin->date(), QDate(2026, 11, 30));
  EXPECT_FALSE(f->grpFiltros->isEnabled());
  EXPECT_TRUE(f->grpSat->isEnabled());
  EXPECT_EQ(f->lblNumero->text(), QStringLiteral("Número de orden"));
  f->cmbSolicitud->setCurrentIndex(2);
  EXPECT_EQ(f->lblNumero->text(), QStringLiteral("Número de trámite"));
  f->txtNumero->setFocus();
  QTest::keyClicks(f->txtNumero, QStringLiteral("de123456789012"));
  GuardarCaptura(f.get(), QStringLiteral("frmGenerarArchivo_sat"));
  Tecla(*f, Qt::Key_F10);

  // No name is asked: the SAT's name, in the export folder.
  EXPECT_TRUE(pedidos.isEmpty());
  const QString xml = RutaNativa(emp->Ruta() + QStringLiteral("/Export/FDL180314AB1202611PL.xml"));
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].texto,
            QStringLiteral("Se escribió el archivo del SAT:\n%1\n\nPólizas: 1   Transacciones: 2")
                .arg(QDir::toNativeSeparators(xml)));
  EXPECT_EQ(satprueba::Validar(xml, QStringLiteral("PolizasPeriodo_1_3.xsd")), QString());
  EXPECT_TRUE(QString::fromUtf8(LeerArchivo(xml))
                  .contains(QStringLiteral("TipoSolicitud=\"DE\" NumTramite=\"DE123456789012\"")));
  const std::vector<satprueba::PolizaLeida> leidas = satprueba::LeerPolizas(xml);
  ASSERT_EQ(leidas.size(), 1u);
  EXPECT_EQ(leidas[0].clave, QStringLiteral("D-00000000012"));
  EXPECT_EQ(leidas[0].debe, D("1250"));
  EXPECT_EQ(leidas[0].haber, D("1250"));

  // Again: the file exists, and No leaves it as it was.
  QFile(xml).resize(0);
  emp->mensajes.mostrados.clear();
  emp->mensajes.respuestas = {RespuestaMensaje::No};
  Tecla(*f, Qt::Key_F10);
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  EXPECT_EQ(emp->mensajes.mostrados[0].icono, IconoMensaje::Pregunta);
  EXPECT_EQ(LeerArchivo(xml), QByteArray());
}

TEST_P(PantallaArchivo, TheSatsFileRefusesAWrongNumberAndAPeriodThatIsNoMonth) {
  DatosSat(*con);
  auto f = Abrir();
  f->optSat->setChecked(true);
  // F10 shows one message and writes nothing: its text.
  const auto rechazo = [&] {
    emp->mensajes.mostrados.clear();
    Tecla(*f, Qt::Key_F10);
    EXPECT_EQ(emp->mensajes.mostrados.size(), 1u);
    EXPECT_EQ(emp->mensajes.mostrados.back().icono, IconoMensaje::Advertencia);
    EXPECT_TRUE(QDir(emp->Ruta() + QStringLiteral("/Export")).isEmpty());
    return emp->mensajes.mostrados.empty() ? QString() : emp->mensajes.mostrados.back().texto;
  };
  f->txtNumero->setText(QStringLiteral("ABC123"));
  EXPECT_TRUE(rechazo().contains(QStringLiteral("(NumOrden)")));
  EXPECT_TRUE(f->txtNumero->hasFocus());

  f->txtNumero->setText(QStringLiteral("ABC1234567/26"));
  f->dtpFechaFin->setDate(QDate(2026, 11, 29));
  EXPECT_EQ(rechazo(), QStringLiteral("El XML del SAT es de un mes completo: ponga del primer al "
                                      "último día del mes."));

  // A month without entries: the engine's fault, named by its field.
  f->dtpFechaIni->setDate(QDate(2026, 10, 1));
  f->dtpFechaFin->setDate(QDate(2026, 10, 31));
  EXPECT_EQ(rechazo(), QStringLiteral("No se escribió el archivo del SAT:\n\nEl mes 10/2026 no "
                                      "tiene pólizas con movimientos (Mes)."));
  // Back to the company's format: the filters again.
  f->optFormato->setChecked(true);
  EXPECT_TRUE(f->grpFiltros->isEnabled());
  EXPECT_FALSE(f->grpSat->isEnabled());
}
