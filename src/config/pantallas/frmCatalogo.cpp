#include "config/pantallas/frmCatalogo.h"

#include "pantallas/PantallaBarra.h"
#include "pantallas/Pantallas.h"
#include "pantallas/frmBuscar.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>

frmCatalogo::frmCatalogo(QWidget *padre) : QDialog(padre), busqueda(&frmBuscar::Buscar) {
  PrepararVentana(this, QStringLiteral("frmCatalogo"), QStringLiteral("CATÁLOGO"));
  // The tips of "SAL" and "AYU" stand crossed over, as on the family's other catalogues.
  tlbCatalogo = new BarraPantalla(
      this, {{QStringLiteral("NVO"), QStringLiteral("F2"), QStringLiteral("Limpiar pantalla"),
              [this] {
                cmbRubros->setEditable(false);
                cmbRubros->setCurrentIndex(-1);
                PrepararRubroNuevo();
                cmbRubros->setFocus();
              }},
             {QStringLiteral("BUS"), QStringLiteral("F6"), QStringLiteral("Buscar Rubro"),
              [this] { Buscar(); }},
             {QStringLiteral("GRB"), QStringLiteral("F10"), QStringLiteral("Grabar Rubro"),
              [this] { GrabarRubro(); }},
             {QStringLiteral("BOR"), QStringLiteral("F3"), QStringLiteral("Borrar Rubro"),
              [this] { BorrarRubro(); }},
             {QStringLiteral("SAL"), QStringLiteral("Esc"), QStringLiteral("Ayuda")},
             {QStringLiteral("AYU"), QStringLiteral("F1"), QStringLiteral("Salir")}});

  cmbRubros = new QComboBox(this);
  cmbRubros->setObjectName(QStringLiteral("cmbRubros"));
  const auto etiqueta = [this](const char *nombre) {
    auto *l = new QLabel(this);
    l->setObjectName(QLatin1String(nombre));
    l->setMinimumWidth(120);
    return l;
  };
  lblDesRubroSist = etiqueta("lblDesRubroSist");
  lblRubroEmp = etiqueta("lblRubroEmp");
  lblEdoFinanciero = etiqueta("lblEdoFinanciero");
  lblNaturaleza = etiqueta("lblNaturaleza");
  txtDesRubro = new QLineEdit(this);
  txtDesRubro->setObjectName(QStringLiteral("txtDesRubro"));
  txtNumCuenta = new QLineEdit(this);
  txtNumCuenta->setObjectName(QStringLiteral("txtNumCuenta"));
  txtCodAgrup = new QLineEdit(this);
  txtCodAgrup->setObjectName(QStringLiteral("txtCodAgrup"));
  txtCodAgrup->setMaxLength(6); // "102.01"
  txtCodAgrup->setPlaceholderText(QStringLiteral("102.01"));
  cmbNaturSat = new QComboBox(this);
  cmbNaturSat->setObjectName(QStringLiteral("cmbNaturSat"));
  // Without a nature of its own the rubro's stands in the SAT's chart.
  cmbNaturSat->addItem(QStringLiteral("La del rubro"), QString());
  cmbNaturSat->addItem(QStringLiteral("D - Deudora"), QStringLiteral("D"));
  cmbNaturSat->addItem(QStringLiteral("A - Acreedora"), QStringLiteral("A"));

  auto *capa = new QGridLayout;
  const std::pair<const char *, QWidget *> filas[] = {
      {"Rubro del Sistema", cmbRubros},     {"", lblDesRubroSist},
      {"Rubro de la empresa", lblRubroEmp}, {"Descripción", txtDesRubro},
      {"Número de Cuenta", txtNumCuenta},   {"Edo. Financiero", lblEdoFinanciero},
      {"Naturaleza", lblNaturaleza},        {"Código agrupador SAT", txtCodAgrup},
      {"Naturaleza SAT", cmbNaturSat}};
  int fila = 0;
  for (const auto &[leyenda, control] : filas) {
    capa->addWidget(new QLabel(QString::fromUtf8(leyenda), this), fila, 0);
    capa->addWidget(control, fila++, 1);
  }
  capa->setColumnStretch(1, 1);
  auto *raiz = new QVBoxLayout(this);
  raiz->setMenuBar(tlbCatalogo);
  raiz->addLayout(capa);
  raiz->addStretch(1);
  resize(560, 380);

  new RechazoApostrofe(this);
  cmbRubros->installEventFilter(this);
  txtDesRubro->installEventFilter(this);
  txtNumCuenta->installEventFilter(this);
  txtCodAgrup->installEventFilter(this);

  conexion_ = ServicioConexion::AbrirConexionSesion();
  hayDatosSat_ = AsegurarDatosSat(*conexion_);
  txtCodAgrup->setEnabled(hayDatosSat_);
  cmbNaturSat->setEnabled(hayDatosSat_);
  cmbRubros->addItems(PadresDeRubros(*conexion_));
  cmbRubros->setCurrentIndex(-1); // nothing chosen at the opening
  connect(cmbRubros, &QComboBox::currentIndexChanged, this, [this](int indice) {
    if (indice >= 0)
      PrepararRubroNuevo();
  });
}

frmCatalogo::~frmCatalogo() = default;

RubroEnPantalla frmCatalogo::Leer() const {
  RubroEnPantalla r;
  r.padre = cmbRubros->currentText();
  r.desPadre = lblDesRubroSist->text();
  r.rubroEmp = lblRubroEmp->text();
  r.descripcion = txtDesRubro->text();
  r.cuenta = txtNumCuenta->text();
  r.edoFinanciero = lblEdoFinanciero->text();
  r.naturaleza = lblNaturaleza->text();
  r.tipoCuentaPadre = tipoCuentaPadre_;
  return r;
}

void frmCatalogo::Mostrar(const RubroEnPantalla &r) {
  if (r.padre.isEmpty())
    cmbRubros->setCurrentIndex(-1);
  lblDesRubroSist->setText(r.desPadre);
  lblRubroEmp->setText(r.rubroEmp);
  txtDesRubro->setText(r.descripcion);
  txtNumCuenta->setText(r.cuenta);
  lblEdoFinanciero->setText(r.edoFinanciero);
  lblNaturaleza->setText(r.naturaleza);
  tipoCuentaPadre_ = r.tipoCuentaPadre;
  if (hayDatosSat_)
    MostrarSat(DatosSatNuevo(*conexion_, r));
}

DatosSat frmCatalogo::LeerSat() const {
  return {txtCodAgrup->text().trimmed(), cmbNaturSat->currentData().toString()};
}

void frmCatalogo::MostrarSat(const DatosSat &d) {
  txtCodAgrup->setText(d.codigo);
  cmbNaturSat->setCurrentIndex(std::max(0, cmbNaturSat->findData(d.naturaleza)));
}

void frmCatalogo::PrepararRubroNuevo() {
  // A choice from the list ends the showing of a rubro outside it.
  if (cmbRubros->isEditable() && cmbRubros->currentIndex() >= 0 &&
      cmbRubros->currentText() == cmbRubros->itemText(cmbRubros->currentIndex()))
    cmbRubros->setEditable(false);
  RubroEnPantalla r = Leer();
  ::PrepararRubroNuevo(*conexion_, r);
  Mostrar(r);
}

void frmCatalogo::Recorrer(const QString &codigo) {
  for (int i = 0; i < cmbRubros->count() && cmbRubros->currentText() != codigo; ++i)
    cmbRubros->setCurrentIndex(i);
}

void frmCatalogo::MostrarRubro(const QString &codigo) {
  const std::optional<RubroLeido> leido = LeerRubro(*conexion_, codigo);
  if (!leido)
    return;
  if (leido->CLASIF_RUBRO == QStringLiteral("S")) {
    Recorrer(codigo);
    // A rubro of the system outside the list of parents still shows, by its code.
    if (cmbRubros->currentText() != codigo) {
      // Shown in a box that can't be typed into; the list itself stays as it was read.
      cmbRubros->setEditable(true);
      cmbRubros->setInsertPolicy(QComboBox::NoInsert);
      cmbRubros->lineEdit()->setReadOnly(true);
      cmbRubros->lineEdit()->installEventFilter(this);
      cmbRubros->setEditText(codigo);
    }
    lblDesRubroSist->setText(leido->DES_RUBRO);
    lblRubroEmp->clear();
  } else {
    Recorrer(codigo.left(codigo.size() - 3));
    lblRubroEmp->setText(codigo);
  }
  txtDesRubro->setText(leido->DES_RUBRO);
  lblEdoFinanciero->setText(leido->EDOFIN_RUBRO);
  lblNaturaleza->setText(leido->NATURAL_RUBRO);
  txtNumCuenta->setText(leido->CUENTA_RUBRO);
  if (hayDatosSat_)
    MostrarSat(LeerDatosSat(*conexion_, codigo));
}

void frmCatalogo::GrabarRubro() {
  const DatosSat sat = LeerSat();
  if (hayDatosSat_ && !ValidarDatosSat(sat))
    return;
  RubroEnPantalla r = Leer();
  // The rubro saved: the company's one shown, or else the one of the system.
  const QString codigo = r.rubroEmp.trimmed().isEmpty() ? r.padre.trimmed() : r.rubroEmp.trimmed();
  if (::GrabarRubro(*conexion_, r)) {
    if (hayDatosSat_)
      GrabarDatosSat(*conexion_, codigo, sat);
    cmbRubros->setEditable(false);
    Mostrar(r);
  }
}

void frmCatalogo::BorrarRubro() {
  RubroEnPantalla r = Leer();
  const QString codigo = r.rubroEmp.trimmed();
  bool borrado = false;
  {
    std::optional<RelojArena> reloj;
    borrado = ::BorrarRubro(*conexion_, r, [&reloj] { reloj.emplace(); });
  }
  if (!borrado)
    return;
  if (hayDatosSat_)
    BorrarDatosSat(*conexion_, codigo);
  Mostrar(r);
}

void frmCatalogo::Buscar() {
  gRutaBusqueda = ServicioUtil::LeerIni(QStringLiteral("VARIOS"), QStringLiteral("DIRCONSULTAS"),
                                        RutaNimbarIni());
  gCodigoEncontrado = busqueda(this, *conexion_, QStringLiteral("RUBROS"));
  if (!gCodigoEncontrado.isEmpty())
    MostrarRubro(gCodigoEncontrado);
}

bool frmCatalogo::eventFilter(QObject *objeto, QEvent *evento) {
  if (evento->type() != QEvent::KeyPress)
    return QDialog::eventFilter(objeto, evento);
  auto *tecla = static_cast<QKeyEvent *>(evento);
  const bool enter = tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter;
  if (objeto == cmbRubros || (cmbRubros->isEditable() && objeto == cmbRubros->lineEdit())) {
    if (enter) {
      PrepararRubroNuevo();
      txtDesRubro->setFocus();
      return true;
    }
    // Typing into the list is swallowed: only choosing counts.
    return !tecla->text().isEmpty() && tecla->text()[0].isPrint();
  }
  if (objeto == txtDesRubro && enter) {
    txtNumCuenta->setFocus();
    return true;
  }
  if (objeto == txtNumCuenta && enter) {
    txtCodAgrup->setFocus();
    return true;
  }
  if (objeto == txtCodAgrup && enter) {
    cmbNaturSat->setFocus();
    return true;
  }
  // The grouping code takes digits and its point.
  if (objeto == txtCodAgrup && !tecla->text().isEmpty() && tecla->text()[0].isPrint() &&
      !(tecla->text()[0].isDigit() || tecla->text()[0] == QLatin1Char('.')))
    return true;
  // The account takes digits and "-" as they are typed; every other key that types is
  // dropped (Backspace and the moving keys type nothing and pass).
  if (objeto == txtNumCuenta && !tecla->text().isEmpty() && tecla->text()[0].isPrint() &&
      !(tecla->text()[0].isDigit() || tecla->text()[0] == QLatin1Char('-')))
    return true;
  return QDialog::eventFilter(objeto, evento);
}
