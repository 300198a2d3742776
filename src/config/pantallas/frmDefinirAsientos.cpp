#include "config/pantallas/frmDefinirAsientos.h"

#include "pantallas/PantallaBarra.h"
#include "pantallas/PantallaCombos.h"
#include "pantallas/Pantallas.h"
#include "shell/CatalogoMensajes.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

const QString kTitulo = QStringLiteral("Definir Asientos");

// Keys that may begin the search of a rubro: digits, "b" to "y", "A" to "Y", the accented
// letters and eñes, "/" and "-". The a, z and Z are left out; they are typed after.
bool IniciaBusqueda(QChar c) {
  const ushort u = c.unicode();
  static const ushort acentos[] = {193, 201, 205, 209, 211, 218, 225, 233, 237, 241, 243, 250};
  return c.isDigit() || (u >= 'b' && u <= 'y') || (u >= 'A' && u <= 'Y') || u == '/' || u == '-' ||
         std::find(std::begin(acentos), std::end(acentos), u) != std::end(acentos);
}

bool Pregunta(int mensaje) {
  return CatalogoMensajes::Caja(CatalogoMensajes::Texto(mensaje), kTitulo, IconoMensaje::Pregunta,
                                BotonesMensaje::SiNo, mensaje) == RespuestaMensaje::Si;
}

} // namespace

frmDefinirAsientos::frmDefinirAsientos(QWidget *padre) : QDialog(padre) {
  PrepararVentana(this, QStringLiteral("frmDefinirAsientos"), QStringLiteral("DEFINIR ASIENTOS"));
  // Any button first hides the floating lists; the tips of "SAL" and "AYU" stand crossed.
  tlbCatalogo = new BarraPantalla(
      this, {{QStringLiteral("NVO"), QStringLiteral("F2"), QStringLiteral("Limpiar pantalla"),
              [this] {
                OcultarCombos();
                IniciarDefinicion();
              }},
             {QStringLiteral("GRB"), QStringLiteral("F10"), QStringLiteral("Grabar"),
              [this] {
                OcultarCombos();
                GrabarDefinicion();
              }},
             {QStringLiteral("BOR"), QStringLiteral("F3"), QStringLiteral("Borrar"),
              [this] {
                OcultarCombos();
                BorrarDefinicion();
              }},
             {QStringLiteral("SAL"), QStringLiteral("Esc"), QStringLiteral("Ayuda"),
              [this] {
                OcultarCombos();
                close();
              }},
             {QStringLiteral("AYU"), QStringLiteral("F1"), QStringLiteral("Salir"), [this] {
                OcultarCombos();
                AbrirAyuda(this);
              }}});

  const auto lista = [this](const char *nombre) {
    auto *c = new ComboLista(this);
    c->setObjectName(QLatin1String(nombre));
    c->setMinimumWidth(260);
    return c;
  };
  cmbModulos = lista("cmbModulos");
  cmbOperaciones = lista("cmbOperaciones");
  cmbConceptos = lista("cmbConceptos");
  cmbFolios = lista("cmbFolios");
  cmbFrecuencia = new QComboBox(this);
  cmbFrecuencia->setObjectName(QStringLiteral("cmbFrecuencia"));
  const auto etiqueta = [this](const char *nombre) {
    auto *l = new QLabel(this);
    l->setObjectName(QLatin1String(nombre));
    l->setStyleSheet(QStringLiteral("color: rgb(0, 0, 160); font-weight: bold;"));
    return l;
  };
  lblDesOperacion = etiqueta("lblDesOperacion");
  lblTipo = etiqueta("lblTipo");
  lblFrecuencia = etiqueta("lblFrecuencia");

  flxDisplay = new QTableWidget(this);
  flxDisplay->setObjectName(QStringLiteral("flxDisplay"));
  flxDisplay->setEditTriggers(QAbstractItemView::NoEditTriggers);
  flxDisplay->setSelectionMode(QAbstractItemView::SingleSelection);
  flxDisplay->verticalHeader()->hide();
  for (QComboBox **combo : {&cmbDebe, &cmbHaber}) {
    *combo = new QComboBox(flxDisplay->viewport());
    (*combo)->setEditable(true);
    (*combo)->setInsertPolicy(QComboBox::NoInsert);
    (*combo)->setCompleter(nullptr); // what is typed stays as typed until Enter searches
    (*combo)->hide();
    (*combo)->installEventFilter(this);
    (*combo)->lineEdit()->installEventFilter(this);
  }
  cmbDebe->setObjectName(QStringLiteral("cmbDebe"));
  cmbHaber->setObjectName(QStringLiteral("cmbHaber"));
  connect(cmbDebe, &QComboBox::activated, this, [this] { ElegirRubro(5, cmbDebe); });
  connect(cmbHaber, &QComboBox::activated, this, [this] { ElegirRubro(6, cmbHaber); });
  for (QScrollBar *barra : {flxDisplay->verticalScrollBar(), flxDisplay->horizontalScrollBar()})
    connect(barra, &QScrollBar::valueChanged, this, [this] { OcultarCombos(); });
  flxDisplay->installEventFilter(this);
  flxDisplay->viewport()->installEventFilter(this);

  auto *capa = new QGridLayout;
  const std::pair<const char *, QWidget *> filas[] = {{"Módulo", cmbModulos},
                                                      {"Operación", cmbOperaciones},
                                                      {"Concepto", cmbConceptos},
                                                      {"Folio", cmbFolios},
                                                      {"Frecuencia", cmbFrecuencia}};
  int fila = 0;
  for (const auto &[leyenda, control] : filas) {
    capa->addWidget(new QLabel(QString::fromUtf8(leyenda), this), fila, 0);
    capa->addWidget(control, fila++, 1);
  }
  auto *estado = new QVBoxLayout;
  estado->addWidget(lblDesOperacion);
  estado->addWidget(lblTipo);
  estado->addWidget(lblFrecuencia);
  estado->addStretch(1);
  capa->addLayout(estado, 0, 2, fila, 1);
  capa->setColumnStretch(1, 1);
  auto *raiz = new QVBoxLayout(this);
  raiz->setMenuBar(tlbCatalogo);
  raiz->addLayout(capa);
  raiz->addWidget(flxDisplay, 1);
  resize(820, 560);
  new RechazoApostrofe(this);
  // The Delete key, anywhere on the screen, is the key 46 typed in the grid.
  new VistaPreviaTeclas(this, [this](QWidget *, QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_Delete)
      return false;
    TeclaGrilla(46, {});
    return true;
  });

  cmbModulos->AlCambiar([this] { CargarOperaciones(); });
  cmbOperaciones->AlCambiar([this] {
    CargarConceptos();
    CargarFrecuencias();
    CargarDatos();
    CargarDefinicion();
  });
  cmbConceptos->AlCambiar([this] {
    CargarDatos();
    CargarDefinicion();
  });

  conexion_ = ServicioConexion::AbrirConexionSesion();
  IniciarDefinicion();
}

frmDefinirAsientos::~frmDefinirAsientos() = default;

int frmDefinirAsientos::Modulo() const { return cmbModulos->Clave().toInt(); }
int frmDefinirAsientos::Operacion() const { return cmbOperaciones->Clave().toInt(); }

QString frmDefinirAsientos::Texto(int renglon, int columna) const {
  const QTableWidgetItem *item = flxDisplay->item(renglon, columna);
  return item ? item->text() : QString();
}

void frmDefinirAsientos::Celda(int renglon, int columna, const QString &texto) {
  if (QTableWidgetItem *item = flxDisplay->item(renglon, columna))
    item->setText(texto);
  else
    flxDisplay->setItem(renglon, columna, new QTableWidgetItem(texto));
}

void frmDefinirAsientos::OcultarCombos() {
  // A list put away (by a button, by a scroll) is left as if the focus had gone from it.
  for (QComboBox *combo : {cmbDebe, cmbHaber})
    if (combo->isVisible())
      DejarCombo(combo);
}

void frmDefinirAsientos::IniciarDefinicion() {
  cmbConceptos->setEnabled(true);
  for (ComboLista *c : {cmbModulos, cmbOperaciones, cmbConceptos, cmbFolios})
    c->Limpiar();
  flxDisplay->setRowCount(0);
  flxDisplay->setColumnCount(10);
  flxDisplay->setHorizontalHeaderLabels(
      {QString(), QStringLiteral("Dato"), QStringLiteral("Concepto"), QStringLiteral("Rubro Debe"),
       QStringLiteral("Rubro Haber"), QStringLiteral("CuentaRubroDebe"),
       QStringLiteral("CuentaRubroHaber"), QStringLiteral("CodRubroDebe"),
       QStringLiteral("CodRubroHaber"), QStringLiteral("CodDato")});
  for (int c : {2, 5, 6, 7, 8, 9})
    flxDisplay->setColumnHidden(c, true);
  flxDisplay->setColumnWidth(0, 8);
  flxDisplay->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  flxDisplay->setColumnWidth(3, 220);
  flxDisplay->setColumnWidth(4, 220);
  cmbModulos->Cargar(*conexion_,
                     QStringLiteral("SELECT COD_MODUL, DES_MODUL FROM tblModulos WHERE COD_MODUL < "
                                    "10 ORDER BY COD_MODUL"),
                     QStringLiteral("COD_MODUL"), QStringLiteral("DES_MODUL"));
  cmbFolios->Cargar(*conexion_,
                    QStringLiteral("SELECT COD_FOLIO, DES_FOLIO FROM tblFolios ORDER BY COD_FOLIO"),
                    QStringLiteral("COD_FOLIO"), QStringLiteral("DES_FOLIO"));
  CargarFrecuencias();
  CargarDefinicion();
}

void frmDefinirAsientos::CargarOperaciones() {
  cmbOperaciones->Limpiar();
  cmbOperaciones->Cargar(*conexion_,
                         QStringLiteral("SELECT COD_OPER, DES_OPER FROM tblCatOperaciones WHERE "
                                        "MODULO=%1 ORDER BY COD_OPER")
                             .arg(cmbModulos->Clave()),
                         QStringLiteral("COD_OPER"), QStringLiteral("DES_OPER"));
}

void frmDefinirAsientos::CargarConceptos() {
  cmbConceptos->Limpiar();
  if (const CatalogoConceptos *c = CatalogoDeConceptos(Operacion()))
    cmbConceptos->Cargar(*conexion_, ListaDeConceptos(*c), QLatin1String(c->codigo),
                         QLatin1String(c->descripcion));
}

void frmDefinirAsientos::CargarFrecuencias() {
  cmbFrecuencia->clear();
  cmbFrecuencia->addItem(QStringLiteral("Póliza por Documento"));
  if (Operacion() != 23 && Modulo() != 8)
    cmbFrecuencia->addItem(QStringLiteral("Póliza por Día"));
  cmbFrecuencia->setCurrentIndex(0);
}

void frmDefinirAsientos::CargarDatos() {
  flxDisplay->setRowCount(0);
  const int elegida = Operacion();
  int o = elegida;
  if (o >= 12 && o <= 15)
    o = 12;
  else if (o >= 16 && o <= 18)
    o = 16;
  else if (o >= 24 && o <= 28)
    o = 24;
  // The codes of these three ranges can't take a rubro through this screen.
  Registros r = conexion_->Abrir(
      QStringLiteral("SELECT COD_DATO,DES_DATO FROM tblDatosxOperacion WHERE COD_OPER=%1 AND "
                     "(COD_DATO<117 OR COD_DATO>126) AND (COD_DATO<131 OR COD_DATO>132) AND "
                     "(COD_DATO<176 OR COD_DATO>197) ORDER BY COD_DATO")
          .arg(o));
  for (; !r.Fin(); r.Siguiente()) {
    const int fila = flxDisplay->rowCount();
    flxDisplay->insertRow(fila);
    for (int c = 0; c < 10; ++c)
      flxDisplay->setItem(fila, c, new QTableWidgetItem);
    Celda(fila, 1, r.Campo(QStringLiteral("DES_DATO")).Texto());
    Celda(fila, 2,
          cmbConceptos->Texto().isEmpty() ? cmbOperaciones->Texto() : cmbConceptos->Texto());
    Celda(fila, 9, r.Campo(QStringLiteral("COD_DATO")).Texto());
    cmbConceptos->setEnabled(!cmbConceptos->Texto().isEmpty());
    // Operations 26, 27 and 28 have one datum: the first of those stored under 24.
    if (elegida > 25 && elegida < 29)
      break;
  }
}

void frmDefinirAsientos::CargarDefinicion() {
  const std::optional<ReglaPosteo> regla =
      LeerRegla(*conexion_, Modulo(), Operacion(), cmbConceptos->Clave());
  if (!regla) {
    MostrarEstado(false);
    return;
  }
  for (int i = 0; i < cmbFolios->Conteo(); ++i) {
    cmbFolios->FijarPosicion(i);
    if (cmbFolios->Clave() == regla->TIP_POLIZA)
      break;
  }
  CargarFrecuencias();
  cmbFrecuencia->setCurrentIndex(regla->FREC - 1);
  for (const RubroOperacion &fila : RubrosDeDefinicion(*conexion_, regla->COD_POL)) {
    if (conexion_
            ->Abrir(QStringLiteral("SELECT COD_DATO FROM tblDatosxOperacion WHERE COD_DATO=%1 ")
                        .arg(fila.COD_DATO))
            .Vacio())
      continue;
    for (int r = 0; r < flxDisplay->rowCount(); ++r) {
      if (Texto(r, 9) != QString::number(fila.COD_DATO))
        continue;
      Celda(r, 2, fila.TXT_CONC);
      for (const auto &[rubro, columna] :
           {std::pair{fila.RUBRO_DEBE, 3}, std::pair{fila.RUBRO_HABER, 4}}) {
        if (rubro.isEmpty())
          continue;
        if (const std::optional<QString> des = DescripcionDeRubro(*conexion_, rubro)) {
          Celda(r, columna, *des);
          Celda(r, columna + 4, rubro);
        }
      }
      Celda(r, 5, fila.CUENTA_DEBE);
      Celda(r, 6, fila.CUENTA_HABER);
    }
  }
  MostrarEstado(true);
}

void frmDefinirAsientos::MostrarEstado(bool visible) {
  lblDesOperacion->setText(cmbOperaciones->Texto());
  lblTipo->setText(QStringLiteral("Tipo: ") + cmbFolios->Texto());
  lblFrecuencia->setText(QStringLiteral("Frecuencia: ") + cmbFrecuencia->currentText());
  for (QLabel *l : {lblDesOperacion, lblTipo, lblFrecuencia})
    l->setVisible(visible);
}

void frmDefinirAsientos::TeclaGrilla(int tecla, const QString &texto) {
  const int renglon = flxDisplay->currentRow();
  const int columna = flxDisplay->currentColumn();
  if (renglon < 0)
    return;
  if (tecla == 46) {
    // Column 3 clears the debit; every other column the credit.
    const int lado = columna == 3 ? 3 : 4;
    for (int c : {lado, lado + 2, lado + 4})
      Celda(renglon, c, {});
    return;
  }
  if (columna != 3 && columna != 4)
    return;
  QComboBox *combo = columna == 3 ? cmbDebe : cmbHaber;
  if (columna == 3) {
    renglonDebe_ = renglon;
    columnaDebe_ = columna;
  } else {
    renglonHaber_ = renglon;
    columnaHaber_ = columna;
  }
  combo->setGeometry(flxDisplay->visualRect(flxDisplay->model()->index(renglon, columna)));
  combo->show();
  combo->setEditText(Texto(renglon, columna));
  combo->setFocus();
  CargarRubros(combo);
  combo->setEditText(Texto(renglon, columna));
  if (tecla != 13 && tecla != 8 && tecla != 39 && texto.size() == 1 && IniciaBusqueda(texto[0])) {
    combo->setEditText(texto);
    combo->lineEdit()->end(false);
  }
}

void frmDefinirAsientos::CargarRubros(QComboBox *combo) {
  if (combo->count() > 0)
    return;
  rubrosLista_ = RubrosSeleccionables(*conexion_);
  for (const RubroCatalogo &r : rubrosLista_)
    combo->addItem(r.DES_RUBRO);
}

void frmDefinirAsientos::ElegirRubro(int columna, QComboBox *combo) {
  // A choice in the list that shows; the list hidden by leaving it chooses nothing.
  if (!combo->isVisible() || combo->currentText().isEmpty())
    return;
  const int renglon = flxDisplay->currentRow();
  // The cell takes the debit list's text, whichever list was clicked: the credit list puts
  // its own when it loses the focus.
  Celda(renglon, flxDisplay->currentColumn(), cmbDebe->currentText());
  const int posicion = combo->currentIndex();
  if (posicion >= 0 && posicion < static_cast<int>(rubrosLista_.size())) {
    Celda(renglon, columna, rubrosLista_[static_cast<std::size_t>(posicion)].CUENTA_RUBRO);
    Celda(renglon, columna + 2, rubrosLista_[static_cast<std::size_t>(posicion)].COD_RUBRO);
  }
}

void frmDefinirAsientos::BuscarRubro(int columna, QComboBox *combo) {
  const std::optional<RubroCatalogo> r = BuscarRubroSeleccionable(*conexion_, combo->currentText());
  if (!r) {
    CatalogoMensajes::Mostrar(5507, {}, IconoMensaje::Informacion);
    combo->setFocus();
    return;
  }
  const int renglon = flxDisplay->currentRow();
  combo->setEditText(r->DES_RUBRO);
  Celda(renglon, flxDisplay->currentColumn(), r->DES_RUBRO);
  Celda(renglon, columna, r->CUENTA_RUBRO);
  Celda(renglon, columna + 2, r->COD_RUBRO);
  flxDisplay->setFocus();
}

void frmDefinirAsientos::DejarCombo(QComboBox *combo) {
  const bool debe = combo == cmbDebe;
  const int renglon = debe ? renglonDebe_ : renglonHaber_;
  const int columna = debe ? columnaDebe_ : columnaHaber_;
  if (renglon >= 0 && renglon < flxDisplay->rowCount()) {
    const int cuenta = debe ? 5 : 6;
    const int codigo = debe ? 7 : 8;
    Celda(renglon, columna, combo->currentText());
    if (Texto(renglon, columna).isEmpty()) {
      Celda(renglon, cuenta, {});
      Celda(renglon, codigo, {});
    }
    // A text never resolved to a rubro doesn't stay.
    if (Texto(renglon, codigo).isEmpty() && !Texto(renglon, columna).isEmpty())
      Celda(renglon, columna, {});
    if (!Texto(renglon, codigo).isEmpty())
      RefrescarRubro(renglon, codigo);
  }
  combo->hide();
}

void frmDefinirAsientos::RefrescarRubro(int renglon, int columna) {
  const QString codigo = Texto(renglon, columna);
  if (codigo.isEmpty())
    return;
  if (const std::optional<RubroCatalogo> r = RubroSeleccionable(*conexion_, codigo))
    Celda(renglon, columna - 4, r->DES_RUBRO);
}

bool frmDefinirAsientos::ValidarDefinicion() {
  bool debe = false;
  bool haber = false;
  for (int r = 0; r < flxDisplay->rowCount(); ++r) {
    debe = debe || !Texto(r, 3).isEmpty();
    haber = haber || !Texto(r, 4).isEmpty();
  }
  const int mensaje = !debe && !haber ? 5502 : !debe ? 5503 : !haber ? 5504 : 0;
  if (mensaje != 0)
    CatalogoMensajes::Mostrar(mensaje, {}, IconoMensaje::Informacion);
  return mensaje == 0;
}

void frmDefinirAsientos::GrabarDefinicion() {
  if (!ValidarDefinicion())
    return;
  const QString folio = cmbFolios->Clave();
  ReglaPosteo regla;
  regla.MODULO = Modulo();
  regla.COD_OPER = Operacion();
  regla.CONCEPTO = cmbConceptos->Clave();
  regla.TIP_POLIZA = folio;
  regla.FREC = cmbFrecuencia->currentIndex() + 1;
  regla.DIARIO = DiarioDeFolio(*conexion_, folio);
  const std::optional<int> existente =
      BuscarRegla(*conexion_, regla.MODULO, regla.COD_OPER, regla.CONCEPTO);
  bool grabar = false;
  if (!existente) {
    grabar = Pregunta(5506);
    if (grabar)
      regla.COD_POL = CrearRegla(*conexion_, regla);
  } else {
    regla.COD_POL = *existente;
    grabar = Pregunta(5505);
    if (grabar) {
      BorrarRubrosDeRegla(*conexion_, regla.COD_POL);
      ActualizarRegla(*conexion_, regla);
    }
  }
  if (grabar) {
    const QString textoRegla =
        cmbConceptos->Texto().isEmpty() ? cmbOperaciones->Texto() : cmbConceptos->Texto();
    for (int r = 0; r < flxDisplay->rowCount(); ++r) {
      if (Texto(r, 3).isEmpty() && Texto(r, 4).isEmpty())
        continue;
      RubroOperacion fila;
      fila.COD_DATO = Texto(r, 9).toInt();
      fila.CUENTA_DEBE = Texto(r, 5);
      fila.CUENTA_HABER = Texto(r, 6);
      fila.COD_POL = regla.COD_POL;
      fila.COD_DIARIO = folio;
      // A new rule names each row by its own text; a rule saved again, by the screen's.
      fila.TXT_CONC = (existente ? textoRegla : Texto(r, 2)).left(30);
      fila.RUBRO_DEBE = Texto(r, 7);
      fila.RUBRO_HABER = Texto(r, 8);
      fila.COD_OPER = regla.COD_OPER;
      InsertarRubroDeRegla(*conexion_, fila);
    }
  }
  MostrarEstado(true);
}

void frmDefinirAsientos::BorrarDefinicion() {
  const std::optional<int> regla =
      BuscarRegla(*conexion_, Modulo(), Operacion(), cmbConceptos->Clave());
  if (!regla || !Pregunta(5501))
    return;
  BorrarRegla(*conexion_, *regla);
  MostrarEstado(false);
}

bool frmDefinirAsientos::eventFilter(QObject *objeto, QEvent *evento) {
  if (objeto == flxDisplay && evento->type() == QEvent::KeyPress) {
    auto *tecla = static_cast<QKeyEvent *>(evento);
    const bool enter = tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter;
    if (enter || (!tecla->text().isEmpty() && tecla->text()[0].isPrint()) ||
        tecla->key() == Qt::Key_Backspace) {
      TeclaGrilla(enter                               ? 13
                  : tecla->key() == Qt::Key_Backspace ? 8
                                                      : tecla->text()[0].unicode(),
                  tecla->text());
      return true;
    }
    return false;
  }
  if (objeto == flxDisplay->viewport() && evento->type() == QEvent::MouseButtonDblClick) {
    const QModelIndex celda =
        flxDisplay->indexAt(static_cast<QMouseEvent *>(evento)->position().toPoint());
    if (celda.isValid()) {
      flxDisplay->setCurrentCell(celda.row(), celda.column());
      TeclaGrilla(13, {}); // a double click counts as Enter
    }
    return true;
  }
  // The floating lists: Enter searches (or closes an empty one), leaving resolves the cell.
  for (QComboBox *combo : {cmbDebe, cmbHaber}) {
    if (objeto != combo && objeto != combo->lineEdit())
      continue;
    if (evento->type() == QEvent::KeyPress) {
      const int tecla = static_cast<QKeyEvent *>(evento)->key();
      if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
        if (combo->currentText().isEmpty()) {
          combo->hide();
          flxDisplay->setFocus();
        } else {
          BuscarRubro(combo == cmbDebe ? 5 : 6, combo);
        }
        return true;
      }
    } else if (evento->type() == QEvent::FocusOut && combo->isVisible() &&
               static_cast<QFocusEvent *>(evento)->reason() != Qt::PopupFocusReason &&
               // A message box or another window over the screen doesn't take the list away.
               static_cast<QFocusEvent *>(evento)->reason() != Qt::ActiveWindowFocusReason &&
               !combo->isAncestorOf(QApplication::focusWidget())) {
      DejarCombo(combo);
    }
  }
  return QDialog::eventFilter(objeto, evento);
}
