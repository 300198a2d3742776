#include "export/pantallas/frmFormato1.h"

#include "export/PasosFormato.h"
#include "pantallas/PantallaBarra.h"
#include "pantallas/Pantallas.h"
#include "shell/Sesion.h"

#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace {

QGroupBox *Marco(QWidget *padre, const QString &nombre, const QString &titulo) {
  auto *g = new QGroupBox(titulo, padre);
  g->setObjectName(nombre);
  return g;
}

QRadioButton *BotonOpcion(QWidget *padre, QButtonGroup *grupo, const QString &nombre, int indice,
                          const QString &texto) {
  auto *o = new QRadioButton(texto, padre);
  o->setObjectName(QStringLiteral("%1_%2").arg(nombre).arg(indice));
  grupo->addButton(o, indice);
  return o;
}

// A box of one or two characters: a digit of the account mask, a width, a mark or a
// separator.
QLineEdit *Caja(QWidget *padre, const QString &nombre, int largo) {
  auto *t = new QLineEdit(padre);
  t->setObjectName(nombre);
  t->setMaxLength(largo);
  t->setFixedWidth(t->fontMetrics().horizontalAdvance(QStringLiteral("00")) * largo / 2 +
                   t->fontMetrics().horizontalAdvance(QStringLiteral("0000")));
  return t;
}

QListWidget *Lista(QWidget *padre, const QString &nombre) {
  auto *l = new QListWidget(padre);
  l->setObjectName(nombre);
  l->setSelectionMode(QAbstractItemView::SingleSelection);
  l->setMinimumWidth(l->fontMetrics().horizontalAdvance(QStringLiteral("Importe Debe/Haber")) +
                     l->fontMetrics().horizontalAdvance(QStringLiteral("MMMM")));
  return l;
}

QStringList Textos(const QListWidget *lista) {
  QStringList textos;
  for (int i = 0; i < lista->count(); ++i)
    textos << lista->item(i)->text();
  return textos;
}

QString Texto(const QListWidget *lista, int fila) {
  return fila < lista->count() ? lista->item(fila)->text() : QString();
}

void Seleccionar(QButtonGroup *grupo, int indice) {
  if (QAbstractButton *b = grupo->button(indice))
    b->setChecked(true);
}

} // namespace

frmFormato1::frmFormato1(QWidget *padre) : QDialog(padre) {
  PrepararVentana(this, QStringLiteral("frmFormato1"), QStringLiteral("DEFINIR FORMATO"));

  // The tips of "SAL" and "AYU" stand crossed over, as on the family's other catalogues.
  tlbCatalogo = new BarraPantalla(
      this,
      {{QStringLiteral("GRB"), QStringLiteral("F10"), QStringLiteral("Grabar"),
        [this] { GrabarFormato(); }},
       {QStringLiteral("FLI"), QString(), QStringLiteral("Anterior"), [this] { PasoAnterior(); }},
       {QStringLiteral("FLD"), QString(), QStringLiteral("Siguiente"), [this] { PasoSiguiente(); }},
       {QStringLiteral("SAL"), QStringLiteral("Esc"), QStringLiteral("Ayuda")},
       {QStringLiteral("AYU"), QStringLiteral("F1"), QStringLiteral("Salir")}});

  pasos_ = new QStackedWidget(this);
  const QString titulos[] = {
      QStringLiteral("Definir Tipo de Formato"), QStringLiteral("Definir Renglones"),
      QStringLiteral("Formatos Debe / Haber"),   QStringLiteral("Formato de la Cuenta"),
      QStringLiteral("Formato del archivo"),     QStringLiteral("Vista previa del archivo")};
  for (int i = 0; i < 6; ++i) {
    frmFormato[i] = Marco(pasos_, QStringLiteral("frmFormato_%1").arg(i), titulos[i]);
    pasos_->addWidget(frmFormato[i]);
  }

  // Step 1: the kind of format.
  {
    QGroupBox *f = frmFormato[0];
    grpTipo_ = new QButtonGroup(this);
    optFormatoUsuario = new QRadioButton(QStringLiteral("Formato definido por el usuario"), f);
    optFormatoUsuario->setObjectName(QStringLiteral("optFormatoUsuario_3"));
    optContpaq = new QRadioButton(QStringLiteral("Formato ContPAQ ®"), f);
    optContpaq->setObjectName(QStringLiteral("optContpaq_2"));
    grpTipo_->addButton(optFormatoUsuario);
    grpTipo_->addButton(optContpaq);
    optFormatoUsuario->setChecked(true);
    auto *capa = new QVBoxLayout(f);
    capa->addWidget(optFormatoUsuario);
    capa->addWidget(optContpaq);
    capa->addStretch(1);
  }

  // Step 2: the fields of each row, picked from those on offer in their order.
  {
    QGroupBox *f = frmFormato[1];
    chkDosRenglones = new QCheckBox(QStringLiteral("Dos renglones"), f);
    chkDosRenglones->setObjectName(QStringLiteral("chkDosRenglones"));
    fmeDatos[1] = Marco(f, QStringLiteral("fmeDatos_1"), QStringLiteral("Renglón 1"));
    fmeDatos[0] = Marco(f, QStringLiteral("fmeDatos_0"), QStringLiteral("Renglón 2"));
    for (int r = 0; r < 2; ++r) {
      QGroupBox *marco = fmeDatos[r == 0 ? 1 : 0];
      lstUno[r] = Lista(marco, QStringLiteral("lstUno_%1").arg(r));
      lstDos[r] = Lista(marco, QStringLiteral("lstDos_%1").arg(r));
      auto *botones = new QVBoxLayout;
      for (int i = 2 * r; i < 2 * r + 2; ++i) {
        cmdOpcion[i] =
            new QPushButton(i % 2 == 0 ? QStringLiteral(">") : QStringLiteral("<"), marco);
        cmdOpcion[i]->setObjectName(QStringLiteral("cmdOpcion_%1").arg(i));
        // Enter in a list doesn't press a button of the dialog.
        cmdOpcion[i]->setAutoDefault(false);
        connect(cmdOpcion[i], &QPushButton::clicked, this, [this, i] { Opcion(i); });
        botones->addWidget(cmdOpcion[i]);
      }
      botones->addStretch(1);
      // A double click moves the field as its button does.
      connect(lstUno[r], &QListWidget::itemDoubleClicked, this, [this, r] {
        if (cmdOpcion[2 * r]->isEnabled())
          Opcion(2 * r);
      });
      connect(lstDos[r], &QListWidget::itemDoubleClicked, this, [this, r] {
        if (cmdOpcion[2 * r + 1]->isEnabled())
          Opcion(2 * r + 1);
      });
      auto *capa = new QHBoxLayout(marco);
      capa->addWidget(lstUno[r]);
      capa->addLayout(botones);
      capa->addWidget(lstDos[r]);
    }
    auto *capa = new QGridLayout(f);
    capa->addWidget(chkDosRenglones, 0, 0, 1, 2);
    capa->addWidget(fmeDatos[1], 1, 0);
    capa->addWidget(fmeDatos[0], 1, 1);
    connect(chkDosRenglones, &QCheckBox::toggled, this, [this](bool dos) { ActivarRenglon2(dos); });
  }

  // Step 3: debit and credit.
  {
    QGroupBox *f = frmFormato[2];
    chkImportesColSep = new QCheckBox(QStringLiteral("Importes en columnas separadas"), f);
    chkImportesColSep->setObjectName(QStringLiteral("chkImportesColSep"));
    grpIncluirCar_ = new QButtonGroup(this);
    const QString textos[] = {
        QStringLiteral("Incluir caracteres D / H"), QStringLiteral("Incluir caracteres C / A"),
        QStringLiteral("Incluir caracteres 1 / 2"), QStringLiteral("Otros caracteres")};
    auto *capa = new QGridLayout(f);
    capa->addWidget(chkImportesColSep, 0, 0, 1, 3);
    for (int i = 0; i < 4; ++i) {
      optIncluirCar[i] =
          BotonOpcion(f, grpIncluirCar_, QStringLiteral("optIncluirCar"), i, textos[i]);
      capa->addWidget(optIncluirCar[i], i + 1, 0);
    }
    for (int i = 0; i < 2; ++i) {
      txtOtroCar[i] = Caja(f, QStringLiteral("txtOtroCar_%1").arg(i), 1);
      capa->addWidget(txtOtroCar[i], 4, i + 1);
    }
    capa->setColumnStretch(3, 1);
    capa->setRowStretch(5, 1);
    connect(chkImportesColSep, &QCheckBox::toggled, this, [this] { ReglasImportes(); });
    connect(grpIncluirCar_, &QButtonGroup::idToggled, this, [this] { ReglasImportes(); });
  }

  // Step 4: the account and the date.
  {
    QGroupBox *f = frmFormato[3];
    grpFormatoCuenta_ = new QButtonGroup(this);
    const QString textos[] = {QStringLiteral("Igual"), QStringLiteral("Incluir separador   "),
                              QStringLiteral("Incluir otro separador")};
    auto *capa = new QGridLayout(f);
    for (int i = 0; i < 3; ++i) {
      optFormatoCuenta[i] =
          BotonOpcion(f, grpFormatoCuenta_, QStringLiteral("optFormatoCuenta"), i, textos[i]);
      capa->addWidget(optFormatoCuenta[i], i, 0);
    }
    txtIncluirOtroSep = Caja(f, QStringLiteral("txtIncluirOtroSep"), 1);
    capa->addWidget(txtIncluirOtroSep, 2, 1, Qt::AlignLeft);
    Label11 = new QLabel(QStringLiteral("Formato:"), f);
    Label11->setObjectName(QStringLiteral("Label11"));
    auto *niveles = new QHBoxLayout;
    niveles->addWidget(Label11);
    for (int i = 0; i < 4; ++i) {
      txtFormato[i] = Caja(f, QStringLiteral("txtFormato_%1").arg(i), 1);
      txtFormato[i]->setText(QStringLiteral("0"));
      niveles->addWidget(txtFormato[i]);
    }
    niveles->addStretch(1);
    capa->addLayout(niveles, 3, 0, 1, 3);
    chkIncluirCeros = new QCheckBox(QStringLiteral("Incluir ceros a la izquierda"), f);
    chkIncluirCeros->setObjectName(QStringLiteral("chkIncluirCeros"));
    capa->addWidget(chkIncluirCeros, 4, 0, 1, 3);
    frmFormatoFecha = Marco(f, QStringLiteral("frmFormatoFecha"), QStringLiteral("Formato Fecha"));
    grpFormatoFecha_ = new QButtonGroup(this);
    auto *fechas = new QVBoxLayout(frmFormatoFecha);
    for (int i = 0; i < 4; ++i) {
      optFormatoFecha[i] = BotonOpcion(frmFormatoFecha, grpFormatoFecha_,
                                       QStringLiteral("optFormatoFecha"), i, CaptionFecha(i));
      fechas->addWidget(optFormatoFecha[i]);
    }
    capa->addWidget(frmFormatoFecha, 0, 3, 5, 1);
    capa->setColumnStretch(2, 1);
    capa->setRowStretch(5, 1);
    connect(grpFormatoCuenta_, &QButtonGroup::idToggled, this, [this] { ReglasCuenta(); });
  }

  // Step 5: widths, alignments and separators.
  {
    QGroupBox *f = frmFormato[4];
    chkLongFija = new QCheckBox(QStringLiteral("Longitud fija"), f);
    chkLongFija->setObjectName(QStringLiteral("chkLongFija"));
    fmeLongitudFija = Marco(f, QStringLiteral("fmeLongitudFija"), QString());
    const QString etiquetas[] = {QStringLiteral("Folio"),          QStringLiteral("Fecha"),
                                 QStringLiteral("Tipo de póliza"), QStringLiteral("Concepto"),
                                 QStringLiteral("Cuenta"),         QStringLiteral("Importe Debe"),
                                 QStringLiteral("Importe Haber"),  QStringLiteral("Longitud"),
                                 QStringLiteral("Alineación")};
    for (int i = 0; i < 9; ++i) {
      lblLongFija[i] = new QLabel(etiquetas[i], fmeLongitudFija);
      lblLongFija[i]->setObjectName(QStringLiteral("lblLongFija_%1").arg(i));
    }
    auto *anchos = new QGridLayout(fmeLongitudFija);
    anchos->addWidget(lblLongFija[7], 0, 1);
    anchos->addWidget(lblLongFija[8], 0, 2);
    for (int i = 0; i < 7; ++i) {
      txtLongitud[i] = Caja(fmeLongitudFija, QStringLiteral("txtLongitud_%1").arg(i), 2);
      cmbAlineacion[i] = new QComboBox(fmeLongitudFija);
      cmbAlineacion[i]->setObjectName(QStringLiteral("cmbAlineacion_%1").arg(i));
      cmbAlineacion[i]->addItems({QStringLiteral("Derecha"), QStringLiteral("Izquierda")});
      cmbAlineacion[i]->setCurrentIndex(-1);
      anchos->addWidget(lblLongFija[i], i + 1, 0);
      anchos->addWidget(txtLongitud[i], i + 1, 1);
      anchos->addWidget(cmbAlineacion[i], i + 1, 2);
    }
    grpSepararDatos_ = new QButtonGroup(this);
    const QString separadores[] = {QStringLiteral("Separar los datos con un espacio"),
                                   QStringLiteral("Separar con coma(,) usando comillas"),
                                   QStringLiteral("Separar con coma(,) sin usar comillas"),
                                   QStringLiteral("Sin separador"),
                                   QStringLiteral("Otro separador")};
    auto *datos = new QGridLayout;
    for (int i = 0; i < 5; ++i) {
      optSepararDatos[i] =
          BotonOpcion(f, grpSepararDatos_, QStringLiteral("optSepararDatos"), i, separadores[i]);
      datos->addWidget(optSepararDatos[i], i, 0);
    }
    txtOtroSep = Caja(f, QStringLiteral("txtOtroSep"), 1);
    datos->addWidget(txtOtroSep, 4, 1, Qt::AlignLeft);
    datos->setColumnStretch(2, 1);
    datos->setRowStretch(5, 1);
    auto *capa = new QGridLayout(f);
    capa->addWidget(chkLongFija, 0, 0);
    capa->addWidget(fmeLongitudFija, 1, 0);
    capa->addLayout(datos, 1, 1);
    capa->setColumnStretch(1, 1);
    connect(chkLongFija, &QCheckBox::toggled, this, [this] { ReglasLongitud(); });
    connect(grpSepararDatos_, &QButtonGroup::idToggled, this, [this] { ReglasSeparador(); });
  }

  // Step 6: the preview, in a font of fixed pitch so that widths line up.
  {
    QGroupBox *f = frmFormato[5];
    txtVistaPrevia = new QPlainTextEdit(f);
    txtVistaPrevia->setObjectName(QStringLiteral("txtVistaPrevia"));
    txtVistaPrevia->setReadOnly(true);
    txtVistaPrevia->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtVistaPrevia->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    txtVistaPrevia->setPlainText(VistaPreviaInicial());
    auto *capa = new QVBoxLayout(f);
    capa->addWidget(txtVistaPrevia);
  }

  // The boxes of digits take nothing else; every small box shows its text chosen when
  // it gets the focus.
  const auto digitos = QRegularExpression(QStringLiteral("[0-9]*"));
  for (QLineEdit *t : txtFormato)
    t->setValidator(new QRegularExpressionValidator(digitos, t));
  for (QLineEdit *t : txtLongitud)
    t->setValidator(new QRegularExpressionValidator(digitos, t));
  for (QLineEdit *t : findChildren<QLineEdit *>())
    t->installEventFilter(this);
  for (QListWidget *l : {lstUno[0], lstDos[0], lstUno[1], lstDos[1]})
    l->installEventFilter(this);

  auto *raiz = new QVBoxLayout(this);
  raiz->setMenuBar(tlbCatalogo);
  raiz->addWidget(pasos_);

  connect(optContpaq, &QRadioButton::toggled, this, [this](bool activo) {
    // The package's layout needs no further step: it is saved from here.
    if (!activo)
      return;
    tlbCatalogo->Accion(QStringLiteral("FLI"))->setEnabled(false);
    tlbCatalogo->Accion(QStringLiteral("FLD"))->setEnabled(false);
    tlbCatalogo->Accion(QStringLiteral("GRB"))->setEnabled(true);
  });
  connect(optFormatoUsuario, &QRadioButton::toggled, this, [this](bool activo) {
    if (!activo)
      return;
    tlbCatalogo->Accion(QStringLiteral("FLI"))->setEnabled(false);
    tlbCatalogo->Accion(QStringLiteral("FLD"))->setEnabled(true);
    tlbCatalogo->Accion(QStringLiteral("GRB"))->setEnabled(false);
  });

  // Row 2 waits for "Dos renglones"; the other rules start from the empty options.
  fmeDatos[0]->setEnabled(false);
  lstUno[1]->setEnabled(false);
  lstDos[1]->setEnabled(false);
  ReglasImportes();
  ReglasCuenta();
  ReglasSeparador();
  ReglasLongitud();

  EstadoBotones();
  conexion_ = ServicioConexion::AbrirConexionSesion();
  LeerFormato();
  MostrarPaso(1);
}

frmFormato1::~frmFormato1() = default;

void frmFormato1::LeerFormato() {
  ControlesFormato c;
  ::LeerFormato(*conexion_, c);
  // As the format is shown each option reacts as if clicked: the two-row box first,
  // while the lists are still empty.
  if (c.optContpaq)
    optContpaq->setChecked(true);
  chkDosRenglones->setChecked(c.chkDosRenglones == 1);
  Seleccionar(grpSepararDatos_, c.optSepararDatos);
  txtOtroSep->setText(c.txtOtroSep);
  chkImportesColSep->setChecked(c.chkImportesColSep == 1);
  Seleccionar(grpIncluirCar_, c.optIncluirCar);
  txtOtroCar[0]->setText(c.txtOtroCar[0]);
  txtOtroCar[1]->setText(c.txtOtroCar[1]);
  for (int r = 0; r < 2; ++r) {
    lstUno[r]->addItems(c.lstUno[r]);
    lstDos[r]->addItems(c.lstDos[r]);
  }
  Seleccionar(grpFormatoFecha_, c.optFormatoFecha);
  chkLongFija->setChecked(c.chkLongFija == 1);
  for (int i = 0; i < 7; ++i) {
    txtLongitud[i]->setText(c.txtLongitud[i]);
    cmbAlineacion[i]->setCurrentIndex(c.cmbAlineacion[i]);
  }
  Seleccionar(grpFormatoCuenta_, c.optFormatoCuenta);
  txtIncluirOtroSep->setText(c.txtIncluirOtroSep);
  for (int i = 0; i < 4; ++i)
    txtFormato[i]->setText(c.txtFormato[i]);
  chkIncluirCeros->setChecked(c.chkIncluirCeros == 1);
}

ControlesFormato frmFormato1::Controles() const {
  ControlesFormato c;
  c.optContpaq = optContpaq->isChecked();
  c.chkDosRenglones = chkDosRenglones->isChecked() ? 1 : 0;
  for (int r = 0; r < 2; ++r) {
    c.lstUno[r] = Textos(lstUno[r]);
    c.lstDos[r] = Textos(lstDos[r]);
  }
  c.chkImportesColSep = chkImportesColSep->isChecked() ? 1 : 0;
  c.optIncluirCar = grpIncluirCar_->checkedId();
  c.txtOtroCar = {txtOtroCar[0]->text(), txtOtroCar[1]->text()};
  c.optFormatoCuenta = grpFormatoCuenta_->checkedId();
  c.txtIncluirOtroSep = txtIncluirOtroSep->text();
  for (int i = 0; i < 4; ++i)
    c.txtFormato[i] = txtFormato[i]->text();
  c.chkIncluirCeros = chkIncluirCeros->isChecked() ? 1 : 0;
  c.optFormatoFecha = grpFormatoFecha_->checkedId();
  c.chkLongFija = chkLongFija->isChecked() ? 1 : 0;
  for (int i = 0; i < 7; ++i) {
    c.txtLongitud[i] = txtLongitud[i]->text();
    c.cmbAlineacion[i] = cmbAlineacion[i]->currentIndex();
  }
  c.optSepararDatos = grpSepararDatos_->checkedId();
  c.txtOtroSep = txtOtroSep->text();
  return c;
}

void frmFormato1::GrabarFormato() { ::GrabarFormato(*conexion_, Controles()); }

bool frmFormato1::ValidarPaso(int paso) {
  QString mensaje;
  if (::ValidarPaso(Controles(), paso, mensaje))
    return true;
  if (!mensaje.isEmpty())
    MostrarInformacion(mensaje);
  return false;
}

void frmFormato1::PasoSiguiente() {
  if (paso_ >= 6 || !ValidarPaso(paso_))
    return;
  MostrarPaso(paso_ + 1);
  EstadoBotones();
}

void frmFormato1::PasoAnterior() {
  if (paso_ <= 1)
    return;
  MostrarPaso(paso_ - 1);
  EstadoBotones();
}

void frmFormato1::MostrarPaso(int paso) {
  paso_ = paso;
  pasos_->setCurrentIndex(paso - 1);
  // The focus goes to the step's first control that takes it: in a group of options,
  // the one chosen.
  for (QWidget *w : frmFormato[paso - 1]->findChildren<QWidget *>()) {
    auto *opcion = qobject_cast<QRadioButton *>(w);
    if (opcion && !opcion->isChecked() && opcion->group() && opcion->group()->checkedButton())
      continue;
    if ((w->focusPolicy() & Qt::TabFocus) && w->isEnabled() &&
        w->isVisibleTo(frmFormato[paso - 1])) {
      w->setFocus(Qt::TabFocusReason);
      break;
    }
  }
}

void frmFormato1::EstadoBotones() {
  if (paso_ == 6)
    txtVistaPrevia->setPlainText(ArmarVistaPrevia(Controles()));
  tlbCatalogo->Accion(QStringLiteral("FLI"))->setEnabled(paso_ > 1);
  tlbCatalogo->Accion(QStringLiteral("FLD"))->setEnabled(paso_ < 6);
  tlbCatalogo->Accion(QStringLiteral("GRB"))->setEnabled(paso_ == 6);
}

void frmFormato1::Opcion(int i) {
  const int r = i / 2;
  const bool agregar = i % 2 == 0;
  QListWidget *desde = agregar ? lstUno[r] : lstDos[r];
  QListWidget *hacia = agregar ? lstDos[r] : lstUno[r];
  QListWidgetItem *elegido = desde->currentItem();
  if (elegido && elegido->isSelected()) {
    // The field goes to the end of the other list; the one below it is chosen next.
    const int fila = desde->row(elegido);
    hacia->addItem(elegido->text());
    delete desde->takeItem(fila);
    if (desde->count() == 0)
      cmdOpcion[i]->setEnabled(false);
    else
      desde->setCurrentRow(std::min(fila, desde->count() - 1));
  }
  if (hacia->count() > 0)
    cmdOpcion[agregar ? i + 1 : i - 1]->setEnabled(true);
}

void frmFormato1::ActivarRenglon2(bool dos) {
  fmeDatos[0]->setEnabled(dos);
  lstUno[1]->setEnabled(dos);
  lstDos[1]->setEnabled(dos);
  const QString cuenta = EtiquetaCampo(campo::kCuenta);
  const QString importe = EtiquetaCampo(campo::kImporte);
  const QString suma = EtiquetaCampo(campo::kSuma);
  // Row 1 of two is the head of the entry: no account, and the entry's sum for amount.
  const auto cambiar = [this](int i, const QString &de, const QString &a) {
    for (QListWidget *lista : {lstUno[0], lstDos[0]}) {
      if (Texto(lista, i) == de) {
        lista->item(i)->setText(a);
        return;
      }
    }
  };
  if (dos) {
    for (int i = 0; i < 6; ++i) {
      if (Texto(lstUno[0], i) == cuenta)
        delete lstUno[0]->takeItem(i);
      else if (Texto(lstDos[0], i) == cuenta)
        delete lstDos[0]->takeItem(i);
      cambiar(i, importe, suma);
    }
    cmdOpcion[2]->setEnabled(lstUno[1]->count() > 0);
    cmdOpcion[3]->setEnabled(lstDos[1]->count() > 0);
  } else {
    lstUno[0]->addItem(cuenta);
    for (int i = 0; i < 6; ++i)
      cambiar(i, suma, importe);
    cmdOpcion[2]->setEnabled(false);
    cmdOpcion[3]->setEnabled(false);
  }
  if (lstDos[0]->count() > 0)
    cmdOpcion[1]->setEnabled(true);
  cmdOpcion[0]->setEnabled(lstUno[0]->count() > 0);
}

void frmFormato1::ReglasImportes() {
  const bool marcas = !chkImportesColSep->isChecked();
  for (QRadioButton *o : optIncluirCar)
    o->setEnabled(marcas);
  for (QLineEdit *t : txtOtroCar)
    t->setEnabled(marcas && optIncluirCar[3]->isChecked());
}

void frmFormato1::ReglasCuenta() {
  const bool niveles = !optFormatoCuenta[0]->isChecked();
  Label11->setEnabled(niveles);
  for (QLineEdit *t : txtFormato)
    t->setEnabled(niveles);
  txtIncluirOtroSep->setEnabled(optFormatoCuenta[2]->isChecked());
}

void frmFormato1::ReglasSeparador() { txtOtroSep->setEnabled(optSepararDatos[4]->isChecked()); }

void frmFormato1::ReglasLongitud() {
  const bool fija = chkLongFija->isChecked();
  fmeLongitudFija->setEnabled(fija);
  for (QLabel *l : lblLongFija)
    l->setEnabled(fija);
  for (QLineEdit *t : txtLongitud)
    t->setEnabled(fija);
  for (QComboBox *c : cmbAlineacion)
    c->setEnabled(fija);
}

bool frmFormato1::eventFilter(QObject *objeto, QEvent *evento) {
  // A list entered by the keys shows its current field chosen: the arrows' buttons move
  // the field chosen, and the user sees which.
  if (auto *lista = qobject_cast<QListWidget *>(objeto);
      lista && evento->type() == QEvent::FocusIn) {
    if (lista->selectedItems().isEmpty() && lista->count() > 0)
      lista->setCurrentRow(lista->currentRow() < 0 ? 0 : lista->currentRow());
    return QDialog::eventFilter(objeto, evento);
  }
  auto *caja = qobject_cast<QLineEdit *>(objeto);
  if (!caja)
    return QDialog::eventFilter(objeto, evento);
  const bool esNivel = std::find(txtFormato.begin(), txtFormato.end(), caja) != txtFormato.end();
  const bool soloDigitos =
      esNivel || std::find(txtLongitud.begin(), txtLongitud.end(), caja) != txtLongitud.end();
  switch (evento->type()) {
  case QEvent::FocusIn:
    // After the click that brought the focus, which would place the cursor.
    QTimer::singleShot(0, caja, &QLineEdit::selectAll);
    break;
  case QEvent::FocusOut:
    if (esNivel && caja->text().isEmpty())
      caja->setText(QStringLiteral("0"));
    break;
  case QEvent::KeyPress: {
    const QString texto = static_cast<QKeyEvent *>(evento)->text();
    if (soloDigitos && !texto.isEmpty() && texto[0].isPrint() &&
        (texto[0] < QLatin1Char('0') || texto[0] > QLatin1Char('9'))) {
      QApplication::beep();
      return true;
    }
    break;
  }
  default:
    break;
  }
  return QDialog::eventFilter(objeto, evento);
}
