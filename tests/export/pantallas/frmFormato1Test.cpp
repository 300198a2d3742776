#include "export/pantallas/frmFormato1.h"
#include "Capturas.h"
#include "db/DatosDemo.h"
#include "db/EmpresaDemo.h"
#include "export/ApoyoExportacion.h"
#include "export/PasosFormato.h"
#include "export/pantallas/frmGenerarArchivo.h"
#include "journal/FixtureGeneracion.h"
#include "pantallas/PantallaBarra.h"
#include "shell/Sesion.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <gtest/gtest.h>

using namespace exportacion;

namespace {

QStringList Textos(const QListWidget *lista) {
  QStringList textos;
  for (int i = 0; i < lista->count(); ++i)
    textos << lista->item(i)->text();
  return textos;
}

const QStringList kSeis =
    L({"Folio", "Fecha", "Tipo de póliza", "Cuenta", "Concepto", "Importe Debe/Haber"});

// The format screen over the export's company, shown as the active window.
class PantallaFormato : public Exportacion {
protected:
  std::unique_ptr<frmFormato1> Abrir() {
    auto f = std::make_unique<frmFormato1>();
    f->show();
    QApplication::setActiveWindow(f.get());
    emp->grabadora.sentencias.clear();
    emp->mensajes.mostrados.clear();
    return f;
  }
  // A key typed where the focus is.
  static void Tecla(frmFormato1 &f, Qt::Key tecla, Qt::KeyboardModifiers mod = Qt::NoModifier) {
    QWidget *foco = QApplication::focusWidget();
    QTest::keyClick(foco ? foco : &f, tecla, mod);
  }
  static void Escribir(const QString &texto) {
    QTest::keyClicks(QApplication::focusWidget(), texto);
  }
  // Tab until the control has the focus: it must be reached by keys.
  static void IrA(frmFormato1 &f, QWidget *control) {
    for (int i = 0; i < 40 && QApplication::focusWidget() != control; ++i)
      Tecla(f, Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), control) << control->objectName().toStdString();
  }
  static void Siguiente(frmFormato1 &f) { Tecla(f, Qt::Key_Right, Qt::AltModifier); }
  static void Anterior(frmFormato1 &f) { Tecla(f, Qt::Key_Left, Qt::AltModifier); }
  // Chooses a field of a list by the arrows and presses the button beside it.
  static void Mover(frmFormato1 &f, QListWidget *lista, const QString &campo, QPushButton *boton) {
    IrA(f, lista);
    const int fila = Textos(lista).indexOf(campo);
    ASSERT_GE(fila, 0) << campo.toStdString();
    Tecla(f, Qt::Key_Home);
    for (int i = 0; i < fila; ++i)
      Tecla(f, Qt::Key_Down);
    ASSERT_EQ(lista->currentItem()->text(), campo);
    EXPECT_TRUE(lista->currentItem()->isSelected());
    IrA(f, boton);
    Tecla(f, Qt::Key_Space);
  }
  // The texts of the messages shown, in order.
  QStringList Avisos() const { return emp->mensajes.Textos(); }
  bool Activo(frmFormato1 &f, const char *clave) {
    return f.tlbCatalogo->Accion(QLatin1String(clave))->isEnabled();
  }
};

// ------------------------------------------------------------------ the walk by keys

// The fields of the sample layout: two rows, quoted and comma separated, fixed widths.
const QStringList kVistaPrevia = [] {
  const QString r =
      QStringLiteral("\"FOLIO------\",\"DD/MM/AAAA\",\"T\",\"999999999.99\",\"999999999.99\"");
  const QString d =
      QStringLiteral("\"0000.000.000--\",\"CONCEPTO----------------------\",\"D\",\"99999999.99\"");
  const QString h =
      QStringLiteral("\"0000.000.000--\",\"CONCEPTO----------------------\",\"H\",\"99999999.99\"");
  return QStringList{r, d, d, h, r, h, d, r, h, d, d, h};
}();

// A field fitted as the sample layout fits it: cut to its width, blanks behind.
QString Izquierda(const QString &valor, int ancho) {
  return valor.left(ancho) +
         QString(std::max<qsizetype>(ancho - valor.size(), 0), QLatin1Char(' '));
}

// An amount as the layout writes it: "#,##0.00" to the right of its width, cut on the
// right when it doesn't fit.
QString Importe(const QString &decimal, int ancho) {
  // Ten-thousandths to cents, half away from zero.
  const qint64 diezmilesimos = Dinero::DeTexto(decimal).Diezmilesimos();
  const qint64 centavos = (std::abs(diezmilesimos) + 50) / 100;
  QString enteros = QString::number(centavos / 100);
  for (qsizetype i = enteros.size() - 3; i > 0; i -= 3)
    enteros.insert(i, QLatin1Char(','));
  const QString texto = (diezmilesimos < 0 ? QStringLiteral("-") : QString()) + enteros +
                        QLatin1Char('.') +
                        QStringLiteral("%1").arg(centavos % 100, 2, 10, QLatin1Char('0'));
  if (texto.size() >= ancho)
    return texto.left(ancho);
  return QString(ancho - texto.size(), QLatin1Char(' ')) + texto;
}

// An account by the mask 4-3-3-0 with zeros on the left, its levels joined by ".".
QString Cuenta(const QString &cuenta) {
  const QStringList partes = cuenta.split(QLatin1Char('-'));
  const int digitos[] = {4, 3, 3};
  QStringList niveles;
  for (int i = 0; i < 3 && i < partes.size() && !partes[i].isEmpty(); ++i)
    niveles << partes[i].left(digitos[i]).rightJustified(digitos[i], QLatin1Char('0'));
  return niveles.join(QLatin1Char('.'));
}

// The file that the sample layout describes for the journal stored, built line by line
// from the selection's rows: a head row when the entry changes, a detail row a line.
QByteArray ArchivoEsperado(Conexion &con, QDate del, QDate al) {
  Registros rs = con.Abrir(
      QStringLiteral("SELECT tblPolizasRen.FOL_POLIZA, FEC_POLIZA, tblPolizasEnc.TIP_POLIZA, "
                     "CONCEP_POL, CUENTA_DEBE, CUENTA_HABER, IMP_DEBE, IMP_HABER, SUM_DEBE, "
                     "SUM_HABER FROM tblPolizasEnc INNER JOIN tblPolizasRen ON "
                     "tblPolizasEnc.FOL_POLIZA = tblPolizasRen.FOL_POLIZA WHERE FEC_POLIZA "
                     "BETWEEN %1 AND %2 ORDER BY tblPolizasEnc.TIP_POLIZA, COD_OPER, "
                     "tblPolizasRen.FOL_POLIZA")
          .arg(ServicioUtil::FechaSQL(del, con.Motor()), ServicioUtil::FechaSQL(al, con.Motor())));
  const auto campo = [&](const char *c) { return rs.Campo(QLatin1String(c)); };
  QString texto, anterior;
  for (; !rs.Fin(); rs.Siguiente()) {
    const QString folio = campo("FOL_POLIZA").Texto();
    const QDate fecha = campo("FEC_POLIZA").Fecha();
    const QString tipo = campo("TIP_POLIZA").Texto();
    const QString clave = folio + fecha.toString(Qt::ISODate) + tipo;
    if (clave != anterior) {
      texto +=
          QStringLiteral("\"%1\",\"%2\",\"%3\",\"%4\",\"%5\"\r\n")
              .arg(Izquierda(folio, 11), fecha.toString(QStringLiteral("dd/MM/yyyy")), tipo.left(1),
                   Importe(campo("SUM_DEBE").Texto(), 12), Importe(campo("SUM_HABER").Texto(), 12));
      anterior = clave;
    }
    const bool debe = campo("IMP_DEBE").ComoDinero() > Dinero();
    const QString lado = debe ? QStringLiteral("DEBE") : QStringLiteral("HABER");
    texto += QStringLiteral("\"%1\",\"%2\",\"%3\",\"%4\"\r\n")
                 .arg(Izquierda(Cuenta(rs.Campo(QStringLiteral("CUENTA_") + lado).Texto()), 14),
                      Izquierda(campo("CONCEP_POL").Texto(), 30),
                      debe ? QStringLiteral("D") : QStringLiteral("H"),
                      Importe(rs.Campo(QStringLiteral("IMP_") + lado).Texto(), 12));
  }
  return CodificarWindows1252(texto);
}

} // namespace

TEST_P(PantallaFormato, AWalkThroughTheSixStepsByKeysSavesALayoutThatTheExportWrites) {
  auto f = Abrir();
  GuardarCaptura(f.get(), QStringLiteral("frmFormato1_paso1"));
  EXPECT_EQ(QApplication::focusWidget(), f->optFormatoUsuario);
  Siguiente(*f);
  ASSERT_EQ(f->Paso(), 2);

  // Two rows: the head carries folio, date, type and the entry's sum; the detail the
  // account, the concept and the amount.
  EXPECT_EQ(QApplication::focusWidget(), f->chkDosRenglones);
  Tecla(*f, Qt::Key_Space);
  ASSERT_TRUE(f->chkDosRenglones->isChecked());
  EXPECT_EQ(Textos(f->lstUno[0]),
            L({"Folio", "Fecha", "Tipo de póliza", "Concepto", "Suma Debe/Haber"}));
  for (const char *c : {"Folio", "Fecha", "Tipo de póliza", "Suma Debe/Haber"})
    Mover(*f, f->lstUno[0], QString::fromUtf8(c), f->cmdOpcion[0]);
  for (const char *c : {"Cuenta", "Concepto", "Importe Debe/Haber"})
    Mover(*f, f->lstUno[1], QString::fromUtf8(c), f->cmdOpcion[2]);
  EXPECT_EQ(Textos(f->lstDos[0]), L({"Folio", "Fecha", "Tipo de póliza", "Suma Debe/Haber"}));
  EXPECT_EQ(Textos(f->lstDos[1]), L({"Cuenta", "Concepto", "Importe Debe/Haber"}));
  GuardarCaptura(f.get(), QStringLiteral("frmFormato1_paso2"));
  Siguiente(*f);
  ASSERT_EQ(f->Paso(), 3);

  // Marks D and H.
  IrA(*f, f->optIncluirCar[0]);
  Tecla(*f, Qt::Key_Space);
  EXPECT_TRUE(f->optIncluirCar[0]->isChecked());
  GuardarCaptura(f.get(), QStringLiteral("frmFormato1_paso3"));
  Siguiente(*f);
  ASSERT_EQ(f->Paso(), 4);

  // The account by 4-3-3-0 with "." between levels and zeros; the date as it reads.
  EXPECT_EQ(QApplication::focusWidget(), f->optFormatoCuenta[0]);
  Tecla(*f, Qt::Key_Down);
  Tecla(*f, Qt::Key_Down);
  Tecla(*f, Qt::Key_Space);
  EXPECT_TRUE(f->optFormatoCuenta[2]->isChecked());
  IrA(*f, f->txtIncluirOtroSep);
  Escribir(QStringLiteral("."));
  for (int i = 0; i < 3; ++i) {
    IrA(*f, f->txtFormato[i]);
    Escribir(QString::number(i == 0 ? 4 : 3));
  }
  IrA(*f, f->chkIncluirCeros);
  Tecla(*f, Qt::Key_Space);
  IrA(*f, f->optFormatoFecha[0]);
  Tecla(*f, Qt::Key_Space);
  GuardarCaptura(f.get(), QStringLiteral("frmFormato1_paso4"));
  Siguiente(*f);
  ASSERT_EQ(f->Paso(), 5) << Avisos().join(QLatin1Char('|')).toStdString();

  // Fixed widths, amounts to the right; comma with quotes.
  EXPECT_EQ(QApplication::focusWidget(), f->chkLongFija);
  Tecla(*f, Qt::Key_Space);
  const char *anchos[] = {"11", "10", "1", "30", "14", "12", "12"};
  const char *alineaciones[] = {"I", "D", "I", "I", "I", "D", "D"};
  for (int i = 0; i < 7; ++i) {
    IrA(*f, f->txtLongitud[i]);
    Escribir(QLatin1String(anchos[i]));
    IrA(*f, f->cmbAlineacion[i]);
    Escribir(QLatin1String(alineaciones[i]));
  }
  IrA(*f, f->optSepararDatos[0]);
  Tecla(*f, Qt::Key_Down);
  Tecla(*f, Qt::Key_Space);
  EXPECT_TRUE(f->optSepararDatos[1]->isChecked());
  GuardarCaptura(f.get(), QStringLiteral("frmFormato1_paso5"));
  Siguiente(*f);
  ASSERT_EQ(f->Paso(), 6) << Avisos().join(QLatin1Char('|')).toStdString();
  EXPECT_EQ(f->txtVistaPrevia->toPlainText(), kVistaPrevia.join(QLatin1Char('\n')));
  GuardarCaptura(f.get(), QStringLiteral("frmFormato1_paso6"));
  EXPECT_TRUE(Avisos().isEmpty()) << Avisos().join(QLatin1Char('|')).toStdString();

  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(Avisos(), L({"Formato grabado con éxito"}));
  EXPECT_EQ(f->Paso(), 6);
  EXPECT_TRUE(f->isVisible());
  f->close();

  // The demo month, posted, then exported on the export screen by the layout just saved.
  demo::LlenarIdentidad(*con, QStringLiteral("x"));
  demo::LlenarCatalogos(*con);
  const QDate mes(2026, 10, 1);
  demo::LlenarDocumentos(*con, mes);
  gCodUsu = QStringLiteral("ADMIN");
  gNumEmp = 1;
  OpcionesGeneracion opciones;
  opciones.Del = mes;
  opciones.Al = mes.addMonths(1).addDays(-1);
  opciones.FechaDefinida = opciones.Al;
  opciones.Resumen = UnirRuta(emp->Ruta(), QStringLiteral("mes.txt"));
  Conexion::InstalarGrabadora(nullptr);
  emp->mensajes.mostrados.clear();
  ASSERT_TRUE(CorrerGeneracion(*emp, opciones).hubo)
      << Avisos().join(QLatin1Char('|')).toStdString();
  frmGenerarArchivo g;
  g.cdgArchivo = [this](QWidget *, const QString &, const QString &) { return archivo; };
  g.show();
  QApplication::setActiveWindow(&g);
  g.dtpFechaIni->setDate(opciones.Del);
  g.dtpFechaFin->setDate(opciones.Al);
  g.dtpFechaIni->setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F10);
  QByteArray escrito = LeerArchivo(archivo);
  QByteArray esperado = ArchivoEsperado(*con, opciones.Del, opciones.Al);
  EXPECT_GT(esperado.count('\n'), 300);
  // A server hands the lines of one folio in an order of its own each time.
  if (GetParam() != "sqlite") {
    escrito = RenglonesEnOrden(escrito);
    esperado = RenglonesEnOrden(esperado);
  }
  EXPECT_EQ(DecodificarWindows1252(escrito).split(QStringLiteral("\r\n")),
            DecodificarWindows1252(esperado).split(QStringLiteral("\r\n")));
  EXPECT_EQ(escrito, esperado);
}

// ------------------------------------------------------------------ load and steps

TEST_P(PantallaFormato, WithoutAFormatTheScreenOpensAtStepOneOfferingTheSixFields) {
  auto f = Abrir();
  EXPECT_EQ(f->windowTitle(), QStringLiteral("DEFINIR FORMATO"));
  const QStringList titulos =
      L({"Definir Tipo de Formato", "Definir Renglones", "Formatos Debe / Haber",
         "Formato de la Cuenta", "Formato del archivo", "Vista previa del archivo"});
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(f->frmFormato[i]->title(), titulos[i]);
    EXPECT_EQ(f->frmFormato[i]->isVisible(), i == 0) << i;
  }
  QStringList botones;
  for (QAction *a : f->tlbCatalogo->actions())
    botones << a->objectName() + QLatin1Char('=') + a->text() + QLatin1Char('|') + a->toolTip();
  EXPECT_EQ(botones, L({"GRB=F10|Grabar", "FLI=|Anterior", "FLD=|Siguiente", "SAL=Esc|Ayuda",
                        "AYU=F1|Salir"}));
  EXPECT_FALSE(Activo(*f, "FLI"));
  EXPECT_TRUE(Activo(*f, "FLD"));
  EXPECT_FALSE(Activo(*f, "GRB"));
  EXPECT_TRUE(f->optFormatoUsuario->isChecked());
  EXPECT_FALSE(f->optContpaq->isChecked());
  EXPECT_EQ(f->optContpaq->text(), QStringLiteral("Formato ContPAQ ®"));
  for (int r = 0; r < 2; ++r) {
    EXPECT_EQ(Textos(f->lstUno[r]), kSeis);
    EXPECT_EQ(f->lstDos[r]->count(), 0);
  }
  EXPECT_FALSE(f->fmeDatos[0]->isEnabled());
  EXPECT_EQ(f->fmeDatos[0]->title(), QStringLiteral("Renglón 2"));
  EXPECT_EQ(f->fmeDatos[1]->title(), QStringLiteral("Renglón 1"));
  // No separator, style, account option or date chosen yet.
  for (QRadioButton *o : f->findChildren<QRadioButton *>())
    EXPECT_EQ(o->isChecked(), o == f->optFormatoUsuario) << o->objectName().toStdString();
  for (QLineEdit *t : f->txtFormato)
    EXPECT_EQ(t->text(), QStringLiteral("0"));
  for (QComboBox *c : f->cmbAlineacion) {
    ASSERT_EQ(c->count(), 2);
    EXPECT_EQ(c->itemText(0), QStringLiteral("Derecha"));
    EXPECT_EQ(c->itemText(1), QStringLiteral("Izquierda"));
    EXPECT_EQ(c->currentIndex(), -1);
  }
  EXPECT_EQ(f->txtVistaPrevia->toPlainText(), VistaPreviaInicial());
  EXPECT_TRUE(f->txtVistaPrevia->isReadOnly());
  EXPECT_TRUE(QFontInfo(f->txtVistaPrevia->font()).fixedPitch());
  EXPECT_EQ(emp->Contar(QStringLiteral("tblParametrosForm")), 0);
  EXPECT_TRUE(Avisos().isEmpty());
}

TEST_P(PantallaFormato, AStepIsLeftOnlyWhenItPassesAndGoingBackChecksNothing) {
  auto f = Abrir();
  Siguiente(*f);
  ASSERT_EQ(f->Paso(), 2);
  EXPECT_TRUE(f->frmFormato[1]->isVisible());
  EXPECT_FALSE(f->frmFormato[0]->isVisible());
  Siguiente(*f);
  EXPECT_EQ(f->Paso(), 2);
  ASSERT_EQ(emp->mensajes.mostrados.size(), 1u);
  const Mensaje &m = emp->mensajes.mostrados[0];
  EXPECT_EQ(m.texto, QStringLiteral("Agregue datos en el renglón 1"));
  EXPECT_EQ(m.titulo, QStringLiteral("Información"));
  EXPECT_EQ(m.icono, IconoMensaje::Informacion);
  Anterior(*f);
  EXPECT_EQ(f->Paso(), 1);
  EXPECT_EQ(emp->mensajes.mostrados.size(), 1u);
  // There is no step before the first, whoever asks.
  f->PasoAnterior();
  EXPECT_EQ(f->Paso(), 1);
  EXPECT_TRUE(f->frmFormato[0]->isVisible());
  // The toolbar's arrows do the same as the keys.
  f->tlbCatalogo->Accion(QStringLiteral("FLD"))->trigger();
  EXPECT_EQ(f->Paso(), 2);
}

TEST_P(PantallaFormato, EachStepSetsTheToolbarAndOnlyThePreviewSaves) {
  InsertarFormato(*con, FormatoUsuario());
  auto f = Abrir();
  EXPECT_FALSE(f->optContpaq->isChecked());
  for (int paso = 2; paso <= 6; ++paso) {
    Tecla(*f, Qt::Key_F10); // nothing while "GRB" is off
    Siguiente(*f);
    ASSERT_EQ(f->Paso(), paso) << Avisos().join(QLatin1Char('|')).toStdString();
    EXPECT_TRUE(Activo(*f, "FLI"));
    EXPECT_EQ(Activo(*f, "FLD"), paso < 6);
    EXPECT_EQ(Activo(*f, "GRB"), paso == 6);
  }
  EXPECT_TRUE(Avisos().isEmpty());
  EXPECT_TRUE(emp->grabadora.sentencias.isEmpty());
  EXPECT_EQ(f->txtVistaPrevia->toPlainText(),
            QStringList(12, QStringLiteral("FOLIO,DD/MM/AAAA,T,0000-000-000,CONCEPTO,D,9.99"))
                .join(QLatin1Char('\n')));
  Siguiente(*f); // no step after the last
  EXPECT_EQ(f->Paso(), 6);
  Anterior(*f);
  EXPECT_EQ(f->Paso(), 5);
  EXPECT_TRUE(Activo(*f, "FLD"));
  EXPECT_FALSE(Activo(*f, "GRB"));
}

TEST_P(PantallaFormato, SavingKeepsTheStepAndTheScreenAndClosingKeepsWhatWasSaved) {
  InsertarFormato(*con, FormatoUsuario());
  auto f = Abrir();
  for (int i = 0; i < 5; ++i)
    Siguiente(*f);
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(Avisos(), L({"Formato grabado con éxito"}));
  EXPECT_EQ(f->Paso(), 6);
  EXPECT_TRUE(f->isVisible());
  // An unsaved change is lost on closing.
  Anterior(*f);
  f->optSepararDatos[3]->click();
  Tecla(*f, Qt::Key_Escape);
  EXPECT_FALSE(f->isVisible());
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT SEP_DAT FROM tblParametrosForm")),
            QStringLiteral(","));
}

// ------------------------------------------------------------------ the package

TEST_P(PantallaFormato, ThePackageIsSavedFromStepOneAndAFirstSaveInsertsOnlyItsKind) {
  auto f = Abrir();
  f->optFormatoUsuario->setFocus();
  Tecla(*f, Qt::Key_Down);
  ASSERT_TRUE(f->optContpaq->isChecked());
  EXPECT_FALSE(Activo(*f, "FLI"));
  EXPECT_FALSE(Activo(*f, "FLD"));
  EXPECT_TRUE(Activo(*f, "GRB"));
  Siguiente(*f);
  EXPECT_EQ(f->Paso(), 1);
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(emp->grabadora.sentencias, L({"SELECT NO_REN FROM tblParametrosForm;",
                                          "INSERT INTO tblParametrosForm (NO_REN) VALUES (0);"}));
  EXPECT_EQ(Avisos(), L({"Formato grabado con éxito"}));
  // Back to the user's format: the steps again, no saving from here.
  Tecla(*f, Qt::Key_Up);
  ASSERT_TRUE(f->optFormatoUsuario->isChecked());
  EXPECT_FALSE(Activo(*f, "FLI"));
  EXPECT_TRUE(Activo(*f, "FLD"));
  EXPECT_FALSE(Activo(*f, "GRB"));
}

TEST_P(PantallaFormato, ThePackageOverAUserFormatLeavesTheScreensOtherChoicesUnsaved) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("LON_FIJA")] = QStringLiteral("1");
  for (const char *a :
       {"LON_FOL", "LON_FEC", "LON_TIP", "LON_CTA", "LON_CON", "LON_DEB", "LON_HAB"})
    c[QLatin1String(a)] = QStringLiteral("9");
  for (const char *a : {"AL_FOL", "AL_FEC", "AL_TIP", "AL_CTA", "AL_CON", "AL_DEB", "AL_HAB"})
    c[QLatin1String(a)] = QStringLiteral("2");
  InsertarFormato(*con, c);
  auto f = Abrir();
  f->optContpaq->click();
  Tecla(*f, Qt::Key_F10);
  ASSERT_EQ(emp->grabadora.sentencias.size(), 2);
  EXPECT_EQ(emp->grabadora.sentencias[1],
            QStringLiteral(
                "UPDATE tblParametrosForm SET NO_REN=0,REN_FOL=0,REN2_FOL=0,REN_FEC=0,REN2_FEC=0,"
                "REN_TIP=0,REN2_TIP=0,REN_CTA=0,REN2_CTA=0,REN_CON=0,REN2_CON=0,REN_IMP=0,"
                "REN2_IMP=0,DEB_HAB=0,CHAR_UNO='',CHAR_DOS='',CERO_IZQ=0,FORM_CTA='',CHAR_SEP='',"
                "F_FECHA='',LON_FIJA=0,SEP_DAT='',SEP_COM=0,LON_FOL=0,AL_FOL=0,LON_FEC=0,AL_FEC=0,"
                "LON_TIP=0,AL_TIP=0,LON_CON=0,AL_CON=0,LON_CTA=0,AL_CTA=0,LON_DEB=0,AL_DEB=2,"
                "LON_HAB=9,AL_HAB=2;"));
  f->close();
  // Opened again, the screen shows the package, and saving is open from step 1.
  auto g = Abrir();
  EXPECT_TRUE(g->optContpaq->isChecked());
  EXPECT_FALSE(Activo(*g, "FLD"));
  EXPECT_TRUE(Activo(*g, "GRB"));
}

// ------------------------------------------------------------------ the rows

TEST_P(PantallaFormato, TheArrowsMoveTheChosenFieldToTheEndOfTheOtherList) {
  auto f = Abrir();
  Siguiente(*f);
  EXPECT_TRUE(f->cmdOpcion[0]->isEnabled());
  const auto mover = [&](int lista, const QString &campo, int boton) {
    QListWidget *l = boton % 2 == 0 ? f->lstUno[lista] : f->lstDos[lista];
    l->setCurrentRow(static_cast<int>(Textos(l).indexOf(campo)));
    QTest::mouseClick(f->cmdOpcion[boton], Qt::LeftButton);
  };
  // A field that is current but not chosen stays where it is.
  f->lstUno[0]->setCurrentRow(0);
  f->lstUno[0]->clearSelection();
  f->cmdOpcion[0]->click();
  EXPECT_EQ(f->lstDos[0]->count(), 0);
  mover(0, QStringLiteral("Concepto"), 0);
  mover(0, QStringLiteral("Folio"), 0);
  EXPECT_EQ(Textos(f->lstDos[0]), L({"Concepto", "Folio"}));
  EXPECT_EQ(Textos(f->lstUno[0]), L({"Fecha", "Tipo de póliza", "Cuenta", "Importe Debe/Haber"}));
  EXPECT_TRUE(f->cmdOpcion[1]->isEnabled());
  mover(0, QStringLiteral("Concepto"), 1);
  EXPECT_EQ(Textos(f->lstDos[0]), L({"Folio"}));
  EXPECT_EQ(Textos(f->lstUno[0]).last(), QStringLiteral("Concepto"));
  mover(0, QStringLiteral("Folio"), 1);
  EXPECT_FALSE(f->cmdOpcion[1]->isEnabled());
  for (int i = 0; i < 6; ++i)
    mover(0, Textos(f->lstUno[0]).first(), 0);
  EXPECT_FALSE(f->cmdOpcion[0]->isEnabled());
  EXPECT_EQ(Textos(f->lstDos[0]),
            L({"Fecha", "Tipo de póliza", "Cuenta", "Importe Debe/Haber", "Concepto", "Folio"}));
  // The order of the chosen list is the order of the row.
  const ControlesFormato c = f->Controles();
  EXPECT_EQ(PosicionCampo(c, 1, QStringLiteral("Fecha")), 1);
  EXPECT_EQ(PosicionCampo(c, 1, QStringLiteral("Folio")), 6);
  // A double click moves a field as its button does.
  QListWidget *l = f->lstDos[0];
  const QRect zona = l->visualItemRect(l->item(0));
  QTest::mouseClick(l->viewport(), Qt::LeftButton, {}, zona.center());
  QTest::mouseDClick(l->viewport(), Qt::LeftButton, {}, zona.center());
  EXPECT_EQ(Textos(f->lstUno[0]), L({"Fecha"}));
  EXPECT_TRUE(f->cmdOpcion[0]->isEnabled());
}

TEST_P(PantallaFormato, TwoRowsTakeTheAccountOutOfRowOneAndItsPlacesCloseUp) {
  auto f = Abrir();
  Siguiente(*f);
  for (const char *campo : {"Folio", "Cuenta", "Fecha", "Importe Debe/Haber"}) {
    f->lstUno[0]->setCurrentRow(
        static_cast<int>(Textos(f->lstUno[0]).indexOf(QString::fromUtf8(campo))));
    f->cmdOpcion[0]->click();
  }
  EXPECT_EQ(PosicionCampo(f->Controles(), 1, QStringLiteral("Fecha")), 3);
  EXPECT_FALSE(f->lstUno[1]->isEnabled());
  f->chkDosRenglones->click();
  EXPECT_EQ(Textos(f->lstDos[0]), L({"Folio", "Fecha", "Suma Debe/Haber"}));
  EXPECT_EQ(Textos(f->lstUno[0]), L({"Tipo de póliza", "Concepto"}));
  const ControlesFormato c = f->Controles();
  EXPECT_EQ(PosicionCampo(c, 1, QStringLiteral("Fecha")), 2);
  EXPECT_EQ(PosicionCampo(c, 1, QStringLiteral("Importe Debe/Haber")), 3);
  EXPECT_TRUE(f->fmeDatos[0]->isEnabled());
  EXPECT_TRUE(f->lstUno[1]->isEnabled());
  EXPECT_TRUE(f->cmdOpcion[2]->isEnabled());
  EXPECT_FALSE(f->cmdOpcion[3]->isEnabled());
  // Back to one row: the account is offered again and the amount is the line's.
  f->chkDosRenglones->click();
  EXPECT_EQ(Textos(f->lstDos[0]), L({"Folio", "Fecha", "Importe Debe/Haber"}));
  EXPECT_EQ(Textos(f->lstUno[0]), L({"Tipo de póliza", "Concepto", "Cuenta"}));
  EXPECT_FALSE(f->fmeDatos[0]->isEnabled());
  EXPECT_FALSE(f->cmdOpcion[2]->isEnabled());
  EXPECT_FALSE(f->cmdOpcion[3]->isEnabled());
}

TEST_P(PantallaFormato, TheSameFieldMayStandInBothRowsAndRowTwoIsRequired) {
  auto f = Abrir();
  Siguiente(*f);
  f->chkDosRenglones->click();
  f->lstUno[0]->setCurrentRow(0);
  f->cmdOpcion[0]->click();
  Siguiente(*f);
  EXPECT_EQ(Avisos(), L({"Agregue datos en el renglón 2"}));
  EXPECT_EQ(f->Paso(), 2);
  f->lstUno[1]->setCurrentRow(0);
  f->cmdOpcion[2]->click();
  EXPECT_EQ(Textos(f->lstDos[0]), L({"Folio"}));
  EXPECT_EQ(Textos(f->lstDos[1]), L({"Folio"}));
  Siguiente(*f);
  EXPECT_EQ(f->Paso(), 3);
  const ControlesFormato c = f->Controles();
  EXPECT_EQ(PosicionCampo(c, 1, QStringLiteral("Folio")), 1);
  EXPECT_EQ(PosicionCampo(c, 2, QStringLiteral("Folio")), 1);
}

TEST_P(PantallaFormato, AReadTwoRowFormatLeavesTheListButtonsAsTheEmptyListsLeftThem) {
  Columnas c = FormatoUsuario();
  c[QStringLiteral("NO_REN")] = QStringLiteral("2");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("0");
  c[QStringLiteral("REN_CON")] = QStringLiteral("4");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("5");
  c[QStringLiteral("REN2_CTA")] = QStringLiteral("1");
  c[QStringLiteral("REN2_IMP")] = QStringLiteral("2");
  InsertarFormato(*con, c);
  auto f = Abrir();
  EXPECT_TRUE(f->chkDosRenglones->isChecked());
  EXPECT_EQ(Textos(f->lstDos[0]),
            L({"Folio", "Fecha", "Tipo de póliza", "Concepto", "Suma Debe/Haber"}));
  EXPECT_EQ(f->lstUno[0]->count(), 0);
  EXPECT_EQ(Textos(f->lstDos[1]), L({"Cuenta", "Importe Debe/Haber"}));
  EXPECT_EQ(Textos(f->lstUno[1]), L({"Folio", "Fecha", "Tipo de póliza", "Concepto"}));
  // "Dos renglones" was set while the lists were empty, and nothing refreshed them after.
  EXPECT_FALSE(f->cmdOpcion[0]->isEnabled());
  EXPECT_TRUE(f->cmdOpcion[1]->isEnabled());
  EXPECT_FALSE(f->cmdOpcion[2]->isEnabled());
  EXPECT_FALSE(f->cmdOpcion[3]->isEnabled());
  EXPECT_TRUE(f->lstUno[1]->isEnabled());
}

// ------------------------------------------------------------------ debit, credit, widths

TEST_P(PantallaFormato, SeparateColumnsOverOtherCharactersSaveStyleZeroAndKeepTheCharacters) {
  InsertarFormato(*con, FormatoUsuario());
  auto f = Abrir();
  f->optIncluirCar[3]->click();
  EXPECT_TRUE(f->txtOtroCar[0]->isEnabled());
  f->txtOtroCar[0]->setText(QStringLiteral("c"));
  f->txtOtroCar[1]->setText(QStringLiteral("a"));
  f->chkImportesColSep->click();
  for (QRadioButton *o : f->optIncluirCar)
    EXPECT_FALSE(o->isEnabled());
  EXPECT_FALSE(f->txtOtroCar[0]->isEnabled());
  for (int i = 0; i < 5; ++i)
    Siguiente(*f);
  ASSERT_EQ(f->Paso(), 6) << Avisos().join(QLatin1Char('|')).toStdString();
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT DEB_HAB FROM tblParametrosForm")),
            QStringLiteral("0"));
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT CHAR_UNO FROM tblParametrosForm")),
            QStringLiteral("c"));
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT CHAR_DOS FROM tblParametrosForm")),
            QStringLiteral("a"));
  f->chkImportesColSep->click();
  EXPECT_TRUE(f->optIncluirCar[0]->isEnabled());
  EXPECT_TRUE(f->txtOtroCar[1]->isEnabled());
}

TEST_P(PantallaFormato, AWidthLeftEmptyPassesWithoutFixedWidthAndIsSavedAsZero) {
  InsertarFormato(*con, FormatoUsuario());
  auto f = Abrir();
  EXPECT_FALSE(f->chkLongFija->isChecked());
  EXPECT_EQ(f->txtLongitud[0]->text(), QString());
  for (int i = 0; i < 5; ++i)
    Siguiente(*f);
  ASSERT_EQ(f->Paso(), 6) << Avisos().join(QLatin1Char('|')).toStdString();
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT LON_FOL FROM tblParametrosForm")),
            QStringLiteral("0"));
  // With fixed widths the same box stops step 5.
  Anterior(*f);
  f->chkLongFija->click();
  Siguiente(*f);
  EXPECT_EQ(f->Paso(), 5);
  EXPECT_EQ(Avisos().last(), QStringLiteral("Especifique la longitud y/o alineación del Folio"));
}

TEST_P(PantallaFormato, ATwoDigitWidthIsSavedAndReadBack) {
  InsertarFormato(*con, FormatoUsuario());
  auto f = Abrir();
  f->chkLongFija->click();
  for (int i = 0; i < 7; ++i) {
    f->txtLongitud[i]->setText(QString::number(90 + i));
    f->cmbAlineacion[i]->setCurrentIndex(i % 2);
  }
  for (int i = 0; i < 5; ++i)
    Siguiente(*f);
  Tecla(*f, Qt::Key_F10);
  f->close();
  auto g = Abrir();
  EXPECT_TRUE(g->chkLongFija->isChecked());
  EXPECT_TRUE(g->txtLongitud[6]->isEnabled());
  for (int i = 0; i < 7; ++i) {
    EXPECT_EQ(g->txtLongitud[i]->text(), QString::number(90 + i));
    EXPECT_EQ(g->cmbAlineacion[i]->currentIndex(), i % 2);
  }
}

// ------------------------------------------------------------------ account and date

TEST_P(PantallaFormato, AZeroLevelBetweenLevelsAndEighteenDigitsAreRefused) {
  InsertarFormato(*con, FormatoUsuario());
  auto f = Abrir();
  for (int i = 0; i < 3; ++i)
    Siguiente(*f);
  ASSERT_EQ(f->Paso(), 4);
  const auto mascara = [&](const char *a, const char *b, const char *c, const char *d) {
    const char *niveles[] = {a, b, c, d};
    for (int i = 0; i < 4; ++i)
      f->txtFormato[i]->setText(QLatin1String(niveles[i]));
    emp->mensajes.mostrados.clear();
    Siguiente(*f);
  };
  mascara("4", "0", "3", "0");
  EXPECT_EQ(Avisos(),
            L({"Formato incorrecto: no puede especificar 0 dígitos en niveles intermedios"}));
  mascara("9", "9", "0", "0");
  EXPECT_EQ(
      Avisos(),
      L({"El formato de cuenta no puede exceder los 20 caracteres (incluyendo separadores)"}));
  mascara("0", "0", "0", "0");
  EXPECT_EQ(Avisos(), L({"El formato de cuenta no puede tener 0 dígitos"}));
  EXPECT_EQ(f->Paso(), 4);
  mascara("9", "8", "0", "0");
  EXPECT_TRUE(Avisos().isEmpty());
  EXPECT_EQ(f->Paso(), 5);
}

TEST_P(PantallaFormato, TheOptionsEnableTheirBoxes) {
  auto f = Abrir();
  EXPECT_TRUE(f->txtFormato[0]->isEnabled());
  EXPECT_FALSE(f->txtIncluirOtroSep->isEnabled());
  EXPECT_FALSE(f->txtOtroSep->isEnabled());
  EXPECT_FALSE(f->txtOtroCar[0]->isEnabled());
  EXPECT_FALSE(f->fmeLongitudFija->isEnabled());
  f->optFormatoCuenta[0]->click();
  EXPECT_FALSE(f->Label11->isEnabled());
  for (QLineEdit *t : f->txtFormato)
    EXPECT_FALSE(t->isEnabled());
  f->optFormatoCuenta[2]->click();
  EXPECT_TRUE(f->Label11->isEnabled());
  EXPECT_TRUE(f->txtFormato[3]->isEnabled());
  EXPECT_TRUE(f->txtIncluirOtroSep->isEnabled());
  f->optFormatoCuenta[1]->click();
  EXPECT_FALSE(f->txtIncluirOtroSep->isEnabled());
  f->optSepararDatos[4]->click();
  EXPECT_TRUE(f->txtOtroSep->isEnabled());
  f->optSepararDatos[2]->click();
  EXPECT_FALSE(f->txtOtroSep->isEnabled());
  f->optIncluirCar[3]->click();
  EXPECT_TRUE(f->txtOtroCar[1]->isEnabled());
  f->optIncluirCar[0]->click();
  EXPECT_FALSE(f->txtOtroCar[1]->isEnabled());
  f->chkLongFija->click();
  EXPECT_TRUE(f->fmeLongitudFija->isEnabled());
  for (QLabel *l : f->lblLongFija)
    EXPECT_TRUE(l->isEnabled());
  EXPECT_TRUE(f->cmbAlineacion[6]->isEnabled());
  f->chkLongFija->click();
  EXPECT_FALSE(f->txtLongitud[0]->isEnabled());
  EXPECT_FALSE(f->cmbAlineacion[0]->isEnabled());
}

TEST_P(PantallaFormato, TheSmallBoxesTakeTheirLengthAndTheNumberBoxesOnlyDigits) {
  InsertarFormato(*con, FormatoUsuario());
  auto f = Abrir();
  f->chkLongFija->click();
  f->optSepararDatos[4]->click();
  f->optFormatoCuenta[2]->click();
  f->optIncluirCar[3]->click();
  f->txtOtroCar[0]->setText(QStringLiteral("q"));
  f->txtOtroCar[1]->setText(QStringLiteral("z"));
  for (int i = 0; i < 3; ++i)
    Siguiente(*f);
  ASSERT_EQ(f->Paso(), 4);
  // A level's box: its text chosen on entry, one digit, nothing but digits.
  IrA(*f, f->txtFormato[1]);
  EXPECT_EQ(f->txtFormato[1]->selectedText(), QStringLiteral("3"));
  Escribir(QStringLiteral("a-7"));
  EXPECT_EQ(f->txtFormato[1]->text(), QStringLiteral("7"));
  Escribir(QStringLiteral("8"));
  EXPECT_EQ(f->txtFormato[1]->text(), QStringLiteral("7"));
  Tecla(*f, Qt::Key_Backspace);
  EXPECT_EQ(f->txtFormato[1]->text(), QString());
  // Left empty, it takes "0".
  Tecla(*f, Qt::Key_Tab);
  EXPECT_EQ(f->txtFormato[1]->text(), QStringLiteral("0"));
  IrA(*f, f->txtIncluirOtroSep);
  Escribir(QStringLiteral("./"));
  EXPECT_EQ(f->txtIncluirOtroSep->text(), QStringLiteral("."));
  Siguiente(*f); // 4-0-3-0 now
  EXPECT_EQ(f->Paso(), 4);
  f->txtFormato[1]->setText(QStringLiteral("3"));
  Anterior(*f);
  IrA(*f, f->txtOtroCar[0]);
  Escribir(QStringLiteral("xy"));
  EXPECT_EQ(f->txtOtroCar[0]->text(), QStringLiteral("x"));
  Siguiente(*f);
  Siguiente(*f);
  ASSERT_EQ(f->Paso(), 5) << Avisos().join(QLatin1Char('|')).toStdString();
  IrA(*f, f->txtLongitud[3]);
  Escribir(QStringLiteral("1x2.3"));
  EXPECT_EQ(f->txtLongitud[3]->text(), QStringLiteral("12"));
  IrA(*f, f->txtOtroSep);
  Escribir(QStringLiteral(";;"));
  EXPECT_EQ(f->txtOtroSep->text(), QStringLiteral(";"));
  // A box entered by the mouse has its text chosen as well.
  QTest::mouseClick(f->txtLongitud[3], Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(f->txtLongitud[3]->selectedText(), QStringLiteral("12"));
}

// ------------------------------------------------------------------ separators

TEST_P(PantallaFormato, TheBlankSeparatorSavedComesBackAsAnotherSeparatorWithAnUnderscore) {
  InsertarFormato(*con, FormatoUsuario());
  auto f = Abrir();
  f->optSepararDatos[0]->click();
  for (int i = 0; i < 5; ++i)
    Siguiente(*f);
  // The preview shows a blank.
  EXPECT_TRUE(f->txtVistaPrevia->toPlainText().startsWith(QStringLiteral("FOLIO DD/MM/AAAA T ")));
  Tecla(*f, Qt::Key_F10);
  f->close();
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT SEP_DAT FROM tblParametrosForm")),
            QStringLiteral("_"));
  auto g = Abrir();
  EXPECT_TRUE(g->optSepararDatos[4]->isChecked());
  EXPECT_EQ(g->txtOtroSep->text(), QStringLiteral("_"));
  EXPECT_TRUE(g->txtOtroSep->isEnabled());
}

TEST_P(PantallaFormato, AnApostropheTypedAsSeparatorOrMarkPassesAndIsSavedAsTyped) {
  InsertarFormato(*con, FormatoUsuario());
  auto f = Abrir();
  f->optIncluirCar[3]->click();
  f->optSepararDatos[4]->click();
  Siguiente(*f);
  Siguiente(*f);
  IrA(*f, f->txtOtroCar[0]);
  Escribir(QStringLiteral("'"));
  IrA(*f, f->txtOtroCar[1]);
  Escribir(QStringLiteral("\""));
  Siguiente(*f);
  Siguiente(*f);
  ASSERT_EQ(f->Paso(), 5) << Avisos().join(QLatin1Char('|')).toStdString();
  IrA(*f, f->txtOtroSep);
  Escribir(QStringLiteral("'"));
  EXPECT_EQ(f->txtOtroSep->text(), QStringLiteral("'"));
  Siguiente(*f);
  ASSERT_EQ(f->Paso(), 6) << Avisos().join(QLatin1Char('|')).toStdString();
  EXPECT_TRUE(f->txtVistaPrevia->toPlainText().startsWith(
      QStringLiteral("FOLIO'DD/MM/AAAA'T'0000-000-000'CONCEPTO'''9.99\n")));
  Tecla(*f, Qt::Key_F10);
  EXPECT_EQ(Avisos(), L({"Formato grabado con éxito"}));
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT SEP_DAT FROM tblParametrosForm")),
            QStringLiteral("'"));
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT CHAR_UNO FROM tblParametrosForm")),
            QStringLiteral("'"));
  EXPECT_EQ(emp->Valor(QStringLiteral("SELECT CHAR_DOS FROM tblParametrosForm")),
            QStringLiteral("\""));
}

INSTANTIATE_TEST_SUITE_P(Motores, PantallaFormato, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);
