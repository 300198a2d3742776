#include "admin/pantallas/frmUtiParametros.h"

#include "admin/Servicios.h"
#include "db/Esquema.h"
#include "pantallas/EditorFecha.h"
#include "pantallas/EditorFlotante.h"
#include "pantallas/PantallaCombos.h"
#include "pantallas/Pantallas.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Encriptacion.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <functional>

namespace {

QCheckBox *Casilla(QWidget *padre, const char *nombre, const QString &texto) {
  auto *c = new QCheckBox(texto, padre);
  c->setObjectName(QLatin1String(nombre));
  return c;
}

QLineEdit *Numero(QWidget *padre, const char *nombre, bool decimales = false) {
  auto *t = new QLineEdit(padre);
  t->setObjectName(QLatin1String(nombre));
  // Digits, and one point where the value has decimals.
  t->setValidator(new QRegularExpressionValidator(
      QRegularExpression(decimales ? QStringLiteral("[0-9,]*\\.?[0-9]*")
                                   : QStringLiteral("[0-9]*")),
      t));
  t->setMaximumWidth(120);
  return t;
}

QLineEdit *Texto(QWidget *padre, const char *nombre) {
  auto *t = new QLineEdit(padre);
  t->setObjectName(QLatin1String(nombre));
  return t;
}

QPushButton *Boton(QWidget *padre, const QString &nombre, const QString &texto) {
  auto *b = new QPushButton(texto, padre);
  b->setObjectName(nombre);
  b->setAutoDefault(false);
  return b;
}

QRadioButton *Opcion(QWidget *padre, const QString &nombre, const QString &texto) {
  auto *o = new QRadioButton(texto, padre);
  o->setObjectName(nombre);
  return o;
}

QComboBox *Lista(QWidget *padre, const char *nombre, const QStringList &textos) {
  auto *c = new QComboBox(padre);
  c->setObjectName(QLatin1String(nombre));
  c->addItems(textos);
  return c;
}

// An amount as the boxes show it, "#,##0.00".
QString Monto(const Dinero &d) { return d.Formato(u"#,##0.00"); }

Dinero DeCaja(const QLineEdit *t) {
  QString texto = t->text();
  texto.remove(QLatin1Char(','));
  return texto.isEmpty() ? Dinero() : Dinero::DeTexto(texto);
}

int Entero(const QLineEdit *t) { return t->text().toInt(); }

void Elegir(ComboLista *lista, const QString &clave) {
  const int fila = lista->findData(clave);
  lista->FijarPosicion(fila);
}

QString PedirEnDisco(QWidget *padre, const QString &titulo, const QString &filtro) {
  return PedirArchivo(padre, titulo, filtro, gRutaApp, false);
}

QString PedirCarpeta(QWidget *padre) {
  return QFileDialog::getExistingDirectory(padre, QStringLiteral("Ruta archivos XML"), gRutaApp,
                                           QFileDialog::DontUseNativeDialog);
}

} // namespace

frmUtiParametros::frmUtiParametros(QWidget *padre)
    : QDialog(padre), cdgArchivo(&PedirEnDisco), cdgCarpeta(&PedirCarpeta) {
  RelojArena reloj;
  PrepararVentana(this, QStringLiteral("frmUtiParametros"),
                  QStringLiteral("PARÁMETROS DE LA EMPRESA"));
  lblEmpresa = new QLabel(this);
  lblEmpresa->setObjectName(QStringLiteral("lblEmpresa"));
  fmeDatos = new QTabWidget(this);
  fmeDatos->setObjectName(QStringLiteral("fmeDatos"));

  // ================================================================ PARÁMETROS
  fmeParametros = new QTabWidget(fmeDatos);
  fmeParametros->setObjectName(QStringLiteral("fmeParametros"));
  const QString grabar[] = {QStringLiteral("Grabar parámetros de Ventas"),
                            QStringLiteral("Grabar parámetros de Facturación"),
                            QStringLiteral("Grabar parámetros de Almacén"),
                            QStringLiteral("Grabar parámetros de Compras")};
  std::array<QVBoxLayout *, 4> capas{};
  for (int i = 0; i < 4; ++i) {
    auto *pagina = new QWidget(fmeParametros);
    capas[i] = new QVBoxLayout(pagina);
    cmdParametros[i] = Boton(pagina, QStringLiteral("cmdParametros_%1").arg(i), grabar[i]);
    connect(cmdParametros[i], &QPushButton::clicked, this, [this] { GrabarParametros(); });
    fmeParametros->addTab(pagina,
                          QStringList{QStringLiteral("&Ventas"), QStringLiteral("&Facturación"),
                                      QStringLiteral("&Almacén"), QStringLiteral("Co&mpras")}[i]);
  }
  // Sales.
  {
    QWidget *p = fmeParametros->widget(0);
    chkLim = Casilla(p, "chkLim", QStringLiteral("Límite en renglones de venta"));
    txtLimite = Numero(p, "txtLimite");
    chkTolera = Casilla(p, "chkTolera", QStringLiteral("Tolerancia para aplicar promociones"));
    txtToleraPromo = Numero(p, "txtToleraPromo");
    chkFecPed = Casilla(p, "chkFecPed", QStringLiteral("Modificar Fecha de Pedidos"));
    cmbCampRedondeo = new ComboLista(p);
    cmbCampRedondeo->setObjectName(QStringLiteral("cmbCampRedondeo"));
    chkLeerDocCliente =
        Casilla(p, "chkLeerDocCliente", QStringLiteral("Agregar CLIENTE en documentos de Ventas"));
    chkImpRegimen = Casilla(p, "chkImpRegimen",
                            QStringLiteral("Imprimir Régimen de la empresa en Nota de venta"));
    chkCostoRepo = Casilla(p, "chkCostoRepo", QStringLiteral("Costo de Reposición en Ventas"));
    cmbPrecioBase = Lista(
        p, "cmbPrecioBase",
        {QStringLiteral("Precio Antes de Impuestos"), QStringLiteral("Precio con Impuestos")});
    cmbPrecioTrunca =
        Lista(p, "cmbPrecioTrunca", {QStringLiteral("Redondear"), QStringLiteral("Truncar")});
    cmbPrecioDecimal = Lista(p, "cmbPrecioDecimal",
                             {QStringLiteral("0 decimales"), QStringLiteral("1 decimal"),
                              QStringLiteral("2 decimales"), QStringLiteral("3 decimales"),
                              QStringLiteral("4 decimales")});
    // Before the stored values: the first, first and last entries.
    cmbPrecioDecimal->setCurrentIndex(4);
    chkMeseroUnico = Casilla(p, "chkMeseroUnico", QStringLiteral("Mesero único por mesa"));
    chkPersonas = Casilla(p, "chkPersonas", QStringLiteral("No solicitar número de personas"));
    chkSinMesero = Casilla(p, "chkSinMesero", QStringLiteral("Comandas sin mesero"));
    chkOrdenTotal = Casilla(p, "chkOrdenTotal", QStringLiteral("Mostrar orden completa"));
    chkPropinas = Casilla(p, "chkPropinas", QStringLiteral("Incluir propina"));
    txtPorcPropina = Numero(p, "txtPorcPropina", true);
    txtDesde = Numero(p, "txtDesde", true);
    chkAvisoVen =
        Casilla(p, "chkAvisoVen", QStringLiteral("Enviar aviso de cancelación de ticket"));
    auto *forma = new QGridLayout;
    int f = 0;
    forma->addWidget(chkLim, f, 0);
    forma->addWidget(txtLimite, f++, 1);
    forma->addWidget(chkTolera, f, 0);
    auto *minutos = new QHBoxLayout;
    minutos->addWidget(txtToleraPromo);
    minutos->addWidget(new QLabel(QStringLiteral("minutos"), p));
    forma->addLayout(minutos, f++, 1);
    forma->addWidget(chkFecPed, f++, 0, 1, 2);
    forma->addWidget(new QLabel(QStringLiteral("Campaña de Redondeo Vigente "), p), f, 0);
    forma->addWidget(cmbCampRedondeo, f++, 1);
    for (QCheckBox *c : {chkLeerDocCliente, chkImpRegimen, chkCostoRepo})
      forma->addWidget(c, f++, 0, 1, 2);
    forma->addWidget(new QLabel(QStringLiteral("En base a"), p), f, 0);
    auto *precios = new QHBoxLayout;
    precios->addWidget(cmbPrecioBase);
    precios->addWidget(cmbPrecioTrunca);
    precios->addWidget(cmbPrecioDecimal);
    forma->addLayout(precios, f++, 1);
    for (QCheckBox *c : {chkMeseroUnico, chkPersonas, chkSinMesero, chkOrdenTotal})
      forma->addWidget(c, f++, 0, 1, 2);
    forma->addWidget(chkPropinas, f, 0);
    auto *propinas = new QHBoxLayout;
    propinas->addWidget(txtPorcPropina);
    propinas->addWidget(new QLabel(QStringLiteral("% desde"), p));
    propinas->addWidget(txtDesde);
    forma->addLayout(propinas, f++, 1);
    forma->addWidget(chkAvisoVen, f++, 0, 1, 2);
    capas[0]->addLayout(forma);
    connect(chkLim, &QCheckBox::clicked, this, [this](bool si) {
      if (!si)
        txtLimite->setText(QStringLiteral("0"));
    });
    connect(chkTolera, &QCheckBox::clicked, this, [this](bool si) {
      txtToleraPromo->setText(si ? QStringLiteral("5") : QStringLiteral("0"));
    });
  }
  // Invoicing.
  {
    QWidget *p = fmeParametros->widget(1);
    chkFacMos = Casilla(p, "chkFacMos", QStringLiteral("Facturar en Mostrador"));
    chkNotaFactura =
        Casilla(p, "chkNotaFactura", QStringLiteral("Imprimir Nota de Venta y Factura"));
    chkFacPorEmp = Casilla(p, "chkFacPorEmp", QStringLiteral("Folio de Factura por empresa"));
    chkDescuentoFE = Casilla(p, "chkDescuentoFE", QStringLiteral("Desglose de Descuento en CFDI"));
    chkUnidadFE =
        Casilla(p, "chkUnidadFE", QStringLiteral("Enviar la descripción de la unidad en CFDI"));
    chkFolioNumFE =
        Casilla(p, "chkFolioNumFE",
                QStringLiteral("Utilizar únicamente parte numérica del folio de Factura en CFDI"));
    chkActivoIEPS =
        Casilla(p, "chkActivoIEPS",
                QStringLiteral("Default activo para desglosar IEPS en facturación de tickets"));
    chkConfiguraFE = Casilla(p, "chkConfiguraFE", QStringLiteral("Facturación Electrónica"));
    chkConfiguraFE->setEnabled(false); // the stamping account switches it on
    lblNotaFacMos = new QLabel(
        QStringLiteral("NOTA:  Si activas la facturación electrónica y manejas formas de pago que "
                       "requieran los cuatro dígitos para la cuenta de pago, captúralos al cobrar "
                       "en el mostrador."),
        p);
    lblNotaFacMos->setObjectName(QStringLiteral("lblNotaFacMos"));
    lblNotaFacMos->setWordWrap(true);
    lblNotaFacMos->hide();
    for (QWidget *w : std::initializer_list<QWidget *>{
             chkFacMos, lblNotaFacMos, chkNotaFactura, chkFacPorEmp, chkDescuentoFE, chkUnidadFE,
             chkFolioNumFE, chkActivoIEPS, chkConfiguraFE})
      capas[1]->addWidget(w);
    connect(chkFacMos, &QCheckBox::toggled, lblNotaFacMos, &QWidget::setVisible);
  }
  // Warehouse.
  {
    QWidget *p = fmeParametros->widget(2);
    chkCaducidad = Casilla(p, "chkCaducidad", QStringLiteral("Activar"));
    txtDiasCad = Numero(p, "txtDiasCad");
    txtHorasCad = Numero(p, "txtHorasCad");
    chkLeerDocAlm = Casilla(p, "chkLeerDocAlm", QStringLiteral("Leer documentos en ALMACÉN"));
    chkLoteEnPV = Casilla(p, "chkLoteEnPV", QStringLiteral("Solicitar lote en punto de venta"));
    chkInvSucur = Casilla(p, "chkInvSucur", QStringLiteral("Sólo la sucursal principal"));
    auto *caducidad = new QGroupBox(QStringLiteral("Alerta de Caducidad"), p);
    auto *c = new QHBoxLayout(caducidad);
    c->addWidget(chkCaducidad);
    c->addWidget(new QLabel(QStringLiteral("Cada"), caducidad));
    c->addWidget(txtDiasCad);
    c->addWidget(new QLabel(QStringLiteral("Días"), caducidad));
    c->addWidget(txtHorasCad);
    c->addWidget(new QLabel(QStringLiteral("Minutos"), caducidad));
    auto *ciclico = new QGroupBox(QStringLiteral("Inventario Cíclico"), p);
    (new QVBoxLayout(ciclico))->addWidget(chkInvSucur);
    capas[2]->addWidget(caducidad);
    capas[2]->addWidget(chkLeerDocAlm);
    capas[2]->addWidget(chkLoteEnPV);
    capas[2]->addWidget(ciclico);
    // An empty box is a 0 once it is left.
    for (QLineEdit *t : {txtDiasCad, txtHorasCad})
      connect(t, &QLineEdit::editingFinished, t, [t] {
        if (t->text().isEmpty())
          t->setText(QStringLiteral("0"));
      });
  }
  // Purchasing.
  {
    QWidget *p = fmeParametros->widget(3);
    const char *docs[] = {"Tipo de documento", "Concepto de Presupuesto", "Moneda", "Sucursal"};
    auto *leer = new QGroupBox(QStringLiteral("Leer en documentos"), p);
    auto *capaLeer = new QVBoxLayout(leer);
    for (int i = 0; i < 4; ++i) {
      chkDocCP[i] = new QCheckBox(QString::fromUtf8(docs[i]), leer);
      chkDocCP[i]->setObjectName(QStringLiteral("chkDocCP_%1").arg(i));
      capaLeer->addWidget(chkDocCP[i]);
    }
    chkResPres = Casilla(p, "chkResPres", QStringLiteral("Restringir presupuesto en Compras"));
    auto *documento = new QGroupBox(p);
    optRemPrev[0] = Opcion(documento, QStringLiteral("optRemPrev_0"), QStringLiteral("Remisión"));
    optRemPrev[1] =
        Opcion(documento, QStringLiteral("optRemPrev_1"), QStringLiteral("Previo de Compra"));
    chkSinPrevio = Casilla(documento, "chkSinPrevio",
                           QStringLiteral("Permitir capturar recepción sin previo de compra"));
    auto *capaDoc = new QVBoxLayout(documento);
    capaDoc->addWidget(optRemPrev[0]);
    capaDoc->addWidget(optRemPrev[1]);
    capaDoc->addWidget(chkSinPrevio);
    chkBckOrder = Casilla(p, "chkBckOrder", QStringLiteral("Días para guardar backorder"));
    txtDiasBO = Numero(p, "txtDiasBO");
    chkActPreciosRecp =
        Casilla(p, "chkActPreciosRecp", QStringLiteral("Actualizar precios desde Recepción"));
    auto *base = new QGroupBox(QStringLiteral("Base:"), p);
    optBase[0] = Opcion(base, QStringLiteral("optBase_0"), QStringLiteral("Precio"));
    optBase[1] = Opcion(base, QStringLiteral("optBase_1"), QStringLiteral("Costo"));
    auto *capaBase = new QHBoxLayout(base);
    capaBase->addWidget(optBase[0]);
    capaBase->addWidget(optBase[1]);
    auto *unidades = new QGroupBox(p);
    optUnidadBase[0] =
        Opcion(unidades, QStringLiteral("optUnidadBase_0"), QStringLiteral("Unidad de compra"));
    optUnidadBase[1] =
        Opcion(unidades, QStringLiteral("optUnidadBase_1"), QStringLiteral("Todas las unidades"));
    auto *capaUnd = new QHBoxLayout(unidades);
    capaUnd->addWidget(optUnidadBase[0]);
    capaUnd->addWidget(optUnidadBase[1]);
    auto *backorder = new QHBoxLayout;
    backorder->addWidget(chkBckOrder);
    backorder->addWidget(txtDiasBO);
    for (QWidget *w : std::initializer_list<QWidget *>{leer, chkResPres, documento})
      capas[3]->addWidget(w);
    capas[3]->addLayout(backorder);
    for (QWidget *w : std::initializer_list<QWidget *>{chkActPreciosRecp, base, unidades})
      capas[3]->addWidget(w);
    connect(optRemPrev[1], &QRadioButton::clicked, this, [this] { ElegirPrevio(1); });
    connect(optRemPrev[0], &QRadioButton::clicked, this, [this] { ElegirPrevio(0); });
  }
  for (int i = 0; i < 4; ++i) {
    capas[i]->addStretch(1);
    capas[i]->addWidget(cmdParametros[i], 0, Qt::AlignRight);
  }
  fmeDatos->addTab(fmeParametros, QStringLiteral("&PARÁMETROS"));

  // ================================================================ SERVICIOS ELECTRÓNICOS
  fmeServicios = new QStackedWidget(fmeDatos);
  fmeServicios->setObjectName(QStringLiteral("fmeServicios"));
  {
    fmeTVE = new QGroupBox(QStringLiteral("Portal de Servicios"), fmeServicios);
    fmeTVE->setObjectName(QStringLiteral("fmeTVE"));
    txtUsuarioTVE = Texto(fmeTVE, "txtUsuarioTVE");
    txtPaswTVE = Texto(fmeTVE, "txtPaswTVE");
    txtPaswTVE->setEchoMode(QLineEdit::Password);
    chkVerPwd = Casilla(fmeTVE, "chkVerPwd", QStringLiteral("Mostrar"));
    cmdTVE[0] = Boton(fmeTVE, QStringLiteral("cmdTVE_0"), QStringLiteral("Grabar"));
    cmdTVE[0]->setToolTip(QStringLiteral("Grabar Usuario de Portal de Servicios Electrónicos"));
    cmdTVE[1] = Boton(fmeTVE, QStringLiteral("cmdTVE_1"), QStringLiteral("Continuar"));
    auto *forma = new QFormLayout(fmeTVE);
    forma->addRow(QStringLiteral("Usuario Portal de Servicios:"), txtUsuarioTVE);
    auto *clave = new QHBoxLayout;
    clave->addWidget(txtPaswTVE);
    clave->addWidget(chkVerPwd);
    forma->addRow(QStringLiteral("Contraseña Portal de Servicios:"), clave);
    auto *botones = new QHBoxLayout;
    botones->addWidget(cmdTVE[0]);
    botones->addWidget(cmdTVE[1]);
    forma->addRow(botones);
    fmeServicios->addWidget(fmeTVE);
    connect(chkVerPwd, &QCheckBox::toggled, this, [this](bool ver) {
      txtPaswTVE->setEchoMode(ver ? QLineEdit::Normal : QLineEdit::Password);
    });
    connect(cmdTVE[0], &QPushButton::clicked, this, [this] {
      servicios::GrabarPortal(*conexion_, {txtUsuarioTVE->text(), txtPaswTVE->text()});
    });
    connect(cmdTVE[1], &QPushButton::clicked, this, [this] { fmeServicios->setCurrentIndex(1); });
  }
  {
    auto *s = new QWidget(fmeServicios);
    const QString tips[] = {QStringLiteral("Grabar parámetros de tiempo aire"),
                            QStringLiteral("Grabar parámetros de pago de servicios electrónicos"),
                            QStringLiteral("Grabar parámetro de pago con tarjeta en línea"),
                            QStringLiteral("Grabar parámetro de fidelización"),
                            QStringLiteral("Grabar parámetro de remesas")};
    for (int i = 0; i < 5; ++i) {
      cmdElectronicos[i] =
          Boton(s, QStringLiteral("cmdElectronicos_%1").arg(i), QStringLiteral("Grabar"));
      cmdElectronicos[i]->setToolTip(tips[i]);
    }
    // The bank card, its promotions and terminals.
    chkTC = Casilla(s, "chkTC", QStringLiteral("Pago con Tarjeta Bancaria en Línea"));
    cmbProveedorTC = new ComboLista(s);
    cmbProveedorTC->setObjectName(QStringLiteral("cmbProveedorTC"));
    cmdActivarPromo =
        Boton(s, QStringLiteral("cmdActivarPromo"), QStringLiteral("Activar Promociones"));
    cmdAgregarTerminal =
        Boton(s, QStringLiteral("cmdAgregarTerminal"), QStringLiteral("Agregar Terminal"));
    fmePromociones = new QGroupBox(QStringLiteral("Promociones"), s);
    fmePromociones->setObjectName(QStringLiteral("fmePromociones"));
    flxPromos = new QTableWidget(fmePromociones);
    flxPromos->setObjectName(QStringLiteral("flxPromos"));
    flxPromos->setColumnCount(4);
    flxPromos->setHorizontalHeaderLabels({QStringLiteral("Clave"), QStringLiteral("Promoción"),
                                          QStringLiteral("Estatus"), QStringLiteral("Mínimo")});
    flxPromos->setEditTriggers(QAbstractItemView::NoEditTriggers);
    flxPromos->verticalHeader()->hide();
    flxPromos->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    // The minimum is typed in the floating box; the status is chosen from its list.
    editorPromos = new EditorFlotante(flxPromos, [](int columna, int *longitud) {
      if (columna != 3)
        return -1;
      *longitud = 12;
      return 1;
    });
    cmbEstatus = Lista(flxPromos->viewport(), "cmbEstatus",
                       {QStringLiteral("Desactivar"), QStringLiteral("Activar")});
    cmbEstatus->hide();
    cmdPromo[0] =
        Boton(fmePromociones, QStringLiteral("cmdPromo_0"), QStringLiteral("Grabar promociones"));
    cmdPromo[1] = Boton(fmePromociones, QStringLiteral("cmdPromo_1"), QStringLiteral("Salir"));
    auto *capaPromo = new QVBoxLayout(fmePromociones);
    capaPromo->addWidget(flxPromos);
    auto *botonesPromo = new QHBoxLayout;
    botonesPromo->addStretch(1);
    botonesPromo->addWidget(cmdPromo[0]);
    botonesPromo->addWidget(cmdPromo[1]);
    capaPromo->addLayout(botonesPromo);
    fmePromociones->hide();
    fmeTerminales = new QGroupBox(QStringLiteral("Terminales"), s);
    fmeTerminales->setObjectName(QStringLiteral("fmeTerminales"));
    txtNumTerminal = Texto(fmeTerminales, "txtNumTerminal");
    txtIdClienteTC = Texto(fmeTerminales, "txtIdClienteTC");
    tvwPromociones = new QTreeWidget(fmeTerminales);
    tvwPromociones->setObjectName(QStringLiteral("tvwPromociones"));
    tvwPromociones->setHeaderLabel(QStringLiteral("Promociones"));
    tvwPromociones->setRootIsDecorated(false);
    cmdTerminal[0] =
        Boton(fmeTerminales, QStringLiteral("cmdTerminal_0"), QStringLiteral("Agregar Terminal"));
    cmdTerminal[1] =
        Boton(fmeTerminales, QStringLiteral("cmdTerminal_1"), QStringLiteral("Eliminar Terminal"));
    cmdTerminal[2] = Boton(fmeTerminales, QStringLiteral("cmdTerminal_2"), QStringLiteral("Salir"));
    auto *capaTerm = new QFormLayout(fmeTerminales);
    capaTerm->addRow(QStringLiteral("Número de Terminal"), txtNumTerminal);
    capaTerm->addRow(QStringLiteral("Id del Cliente"), txtIdClienteTC);
    capaTerm->addRow(tvwPromociones);
    auto *botonesTerm = new QHBoxLayout;
    for (QPushButton *b : cmdTerminal)
      botonesTerm->addWidget(b);
    capaTerm->addRow(botonesTerm);
    fmeTerminales->hide();
    // Airtime, payment of services, remittances and loyalty.
    chkTA = Casilla(s, "chkTA", QStringLiteral("Tiempo Aire Electrónico"));
    optTAE[0] = Opcion(s, QStringLiteral("optTAE_0"), QStringLiteral(" Venta en México"));
    optTAE[1] = Opcion(s, QStringLiteral("optTAE_1"), QStringLiteral(" Venta en USA"));
    optTAE[0]->setChecked(true);
    cmbAgrupaTA = new ComboLista(s);
    cmbAgrupaTA->setObjectName(QStringLiteral("cmbAgrupaTA"));
    cmbImpuestoTA = new ComboLista(s);
    cmbImpuestoTA->setObjectName(QStringLiteral("cmbImpuestoTA"));
    chkPagoServ = Casilla(s, "chkPagoServ", QStringLiteral("Pago de Servicios Electrónicos"));
    cmbProvTVE = new ComboLista(s);
    cmbProvTVE->setObjectName(QStringLiteral("cmbProvTVE"));
    cmbImpuestoSE = new ComboLista(s);
    cmbImpuestoSE->setObjectName(QStringLiteral("cmbImpuestoSE"));
    chkRemesas = Casilla(s, "chkRemesas", QStringLiteral("Remesas"));
    chkFideliza = Casilla(s, "chkFideliza", QStringLiteral("Fidelización en línea"));
    txtToken = Texto(s, "txtToken");
    auto *g = new QGridLayout(s);
    int f = 0;
    g->addWidget(chkTC, f, 0);
    g->addWidget(cmbProveedorTC, f, 1);
    auto *tarjeta = new QHBoxLayout;
    tarjeta->addWidget(cmdActivarPromo);
    tarjeta->addWidget(cmdAgregarTerminal);
    g->addLayout(tarjeta, f, 2);
    g->addWidget(cmdElectronicos[2], f++, 3);
    g->addWidget(fmePromociones, f++, 0, 1, 4);
    g->addWidget(fmeTerminales, f++, 0, 1, 4);
    g->addWidget(chkTA, f, 0);
    auto *venta = new QHBoxLayout;
    venta->addWidget(optTAE[0]);
    venta->addWidget(optTAE[1]);
    g->addLayout(venta, f, 1);
    auto *ta = new QFormLayout;
    ta->addRow(QStringLiteral("Agrupación"), cmbAgrupaTA);
    ta->addRow(QStringLiteral("Impuesto"), cmbImpuestoTA);
    g->addLayout(ta, f, 2);
    g->addWidget(cmdElectronicos[0], f++, 3);
    g->addWidget(chkPagoServ, f, 0);
    auto *se = new QFormLayout;
    se->addRow(QStringLiteral("Proveedor"), cmbProvTVE);
    se->addRow(QStringLiteral("Impuesto"), cmbImpuestoSE);
    g->addLayout(se, f, 1, 1, 2);
    g->addWidget(cmdElectronicos[1], f++, 3);
    g->addWidget(chkRemesas, f, 0);
    g->addWidget(cmdElectronicos[4], f++, 3);
    g->addWidget(chkFideliza, f, 0);
    auto *token = new QFormLayout;
    token->addRow(QStringLiteral("Identificador con LOMARTA (token)"), txtToken);
    g->addLayout(token, f, 1, 1, 2);
    g->addWidget(cmdElectronicos[3], f++, 3);
    g->setRowStretch(f, 1);
    g->setColumnStretch(2, 1);
    fmeServicios->addWidget(s);

    // A company without its row of parameters gets it before any service is saved.
    const auto guardar = [this](QPushButton *boton, std::function<void()> accion) {
      connect(boton, &QPushButton::clicked, this, [this, accion] {
        parametros::AsegurarRenglon(*conexion_, empresa_);
        accion();
      });
    };
    guardar(cmdElectronicos[0], [this] { GrabarTiempoAire(); });
    guardar(cmdElectronicos[1], [this] {
      servicios::GrabarPagoServicios(*conexion_, chkPagoServ->isChecked(),
                                     cmbProvTVE->Clave().toInt(), cmbImpuestoSE->Clave().toInt());
    });
    guardar(cmdElectronicos[2], [this] { GrabarTarjeta(); });
    guardar(cmdElectronicos[3],
            [this] { servicios::GrabarFidelizacion(*conexion_, chkFideliza->isChecked()); });
    guardar(cmdElectronicos[4],
            [this] { servicios::GrabarRemesas(*conexion_, chkRemesas->isChecked()); });
    connect(chkTC, &QCheckBox::toggled, this, [this](bool si) {
      cmdActivarPromo->setEnabled(si);
      cmdAgregarTerminal->setEnabled(si);
    });
    connect(chkTA, &QCheckBox::clicked, this, [this](bool si) {
      if (si && cmbAgrupaTA->count() == 0) {
        CatalogoMensajes::MostrarTexto(QStringLiteral("No hay agrupaciones disponibles"),
                                       IconoMensaje::Advertencia);
        chkTA->setChecked(false);
      }
    });
    connect(cmdActivarPromo, &QPushButton::clicked, this, [this] {
      CargarPromociones();
      fmePromociones->show();
    });
    connect(cmdPromo[0], &QPushButton::clicked, this, [this] { GrabarPromociones(); });
    connect(cmdPromo[1], &QPushButton::clicked, fmePromociones, &QWidget::hide);
    connect(flxPromos, &QTableWidget::cellDoubleClicked, this, [this](int fila, int columna) {
      if (columna != 2)
        return;
      cmbEstatus->setGeometry(flxPromos->visualItemRect(flxPromos->item(fila, 2)));
      cmbEstatus->setCurrentIndex(flxPromos->item(fila, 2)->text() == QLatin1String("Activar") ? 1
                                                                                               : 0);
      cmbEstatus->show();
      cmbEstatus->setFocus();
    });
    connect(cmbEstatus, &QComboBox::activated, this, [this](int indice) {
      const int fila = flxPromos->currentRow();
      if (fila >= 0) {
        flxPromos->item(fila, 2)->setText(cmbEstatus->itemText(indice));
        // A promotion switched off asks for no minimum.
        if (indice == 0)
          flxPromos->item(fila, 3)->setText(Monto(Dinero()));
      }
      cmbEstatus->hide();
      flxPromos->setFocus();
    });
    connect(cmdAgregarTerminal, &QPushButton::clicked, this, [this] {
      tvwPromociones->clear();
      for (const servicios::Promocion &p : servicios::PromocionesActivas(*conexion_)) {
        auto *nodo = new QTreeWidgetItem(tvwPromociones, {p.descripcion});
        nodo->setData(0, Qt::UserRole, QStringLiteral("P%1").arg(p.codigo));
        nodo->setCheckState(0, Qt::Unchecked);
      }
      fmeTerminales->show();
      txtNumTerminal->setFocus();
    });
    connect(txtNumTerminal, &QLineEdit::editingFinished, this, [this] { LeerTerminal(); });
    connect(cmdTerminal[0], &QPushButton::clicked, this, [this] { AgregarTerminal(); });
    connect(cmdTerminal[1], &QPushButton::clicked, this, [this] { EliminarTerminal(); });
    connect(cmdTerminal[2], &QPushButton::clicked, fmeTerminales, &QWidget::hide);
  }
  fmeDatos->addTab(fmeServicios, QStringLiteral("&SERVICIOS ELECTRÓNICOS"));

  // ================================================================ CFDIs
  fmeCfdis = new QTabWidget(fmeDatos);
  fmeCfdis->setObjectName(QStringLiteral("fmeCfdis"));
  {
    auto *z = new QWidget(fmeCfdis);
    cmbZonaHoraria = Lista(z, "cmbZonaHoraria", cfdi::ZonasHorarias());
    cmbZonaHoraria->setCurrentIndex(-1);
    chkZonaHoraria = Casilla(z, "chkZonaHoraria",
                             QStringLiteral("Cambiar la hora automáticamente según el horario de "
                                            "verano."));
    picZonaHoraria = new QLabel(z);
    picZonaHoraria->setObjectName(QStringLiteral("picZonaHoraria"));
    picZonaHoraria->setFixedSize(480, 60);
    cmdSortTempNeg = Boton(z, QStringLiteral("cmdSortTempNeg"), QStringLiteral("<"));
    cmdSortTempPos = Boton(z, QStringLiteral("cmdSortTempPos"), QStringLiteral(">"));
    cmdParamFE[1] =
        Boton(z, QStringLiteral("cmdParamFE_1"), QStringLiteral("Grabar Zona horaria de CFDI"));
    auto *capa = new QVBoxLayout(z);
    capa->addWidget(cmbZonaHoraria);
    capa->addWidget(chkZonaHoraria);
    auto *mapa = new QHBoxLayout;
    mapa->addWidget(cmdSortTempNeg);
    mapa->addWidget(picZonaHoraria);
    mapa->addWidget(cmdSortTempPos);
    mapa->addStretch(1);
    capa->addLayout(mapa);
    capa->addStretch(1);
    capa->addWidget(cmdParamFE[1], 0, Qt::AlignRight);
    fmeCfdis->addTab(z, QStringLiteral("&Zona Horaria"));
    connect(cmbZonaHoraria, &QComboBox::currentIndexChanged, this, [this](int i) {
      if (i >= 0)
        MoverMapa(cfdi::HorasDeZona(cmbZonaHoraria->itemText(i)));
    });
    connect(cmdSortTempNeg, &QPushButton::clicked, this, [this] { MoverMapa(horasMapa_ - 1); });
    connect(cmdSortTempPos, &QPushButton::clicked, this, [this] { MoverMapa(horasMapa_ + 1); });
    connect(cmdParamFE[1], &QPushButton::clicked, this, [this] { GrabarZona(); });
  }
  {
    auto *c = new QWidget(fmeCfdis);
    auto *cuenta = new QGroupBox(QStringLiteral("Cuenta de timbrado"), c);
    for (int i = 0; i < 5; ++i) {
      txtFactElectronica[i] = new QLineEdit(cuenta);
      txtFactElectronica[i]->setObjectName(QStringLiteral("txtFactElectronica_%1").arg(i));
      txtFactElectronica[i]->setVisible(i >= 3);
    }
    txtFactElectronica[4]->setEchoMode(QLineEdit::Password);
    txtSerieFE = Texto(cuenta, "txtSerieFE");
    cmdTest = Boton(cuenta, QStringLiteral("cmdTest"), QStringLiteral("Activa Cuenta"));
    auto *formaCuenta = new QFormLayout(cuenta);
    formaCuenta->addRow(QStringLiteral("Serie"), txtSerieFE);
    formaCuenta->addRow(QStringLiteral("Usuario"), txtFactElectronica[3]);
    formaCuenta->addRow(QStringLiteral("Contraseña"), txtFactElectronica[4]);
    formaCuenta->addRow(cmdTest);
    auto *datos = new QGroupBox(QStringLiteral("Datos del SAT"), c);
    lblKey = new QLabel(datos);
    lblKey->setObjectName(QStringLiteral("lblKey"));
    lblCer = new QLabel(datos);
    lblCer->setObjectName(QStringLiteral("lblCer"));
    cmdKey = Boton(datos, QStringLiteral("cmdKey"), QStringLiteral("..."));
    cmdCer = Boton(datos, QStringLiteral("cmdCer"), QStringLiteral("..."));
    txtKeyPwd = Texto(datos, "txtKeyPwd");
    txtKeyPwd->setEchoMode(QLineEdit::Password);
    chkKeyPwd = Casilla(datos, "chkKeyPwd", QStringLiteral("Mostrar contraseña."));
    cmdValidarInfoSAT =
        Boton(datos, QStringLiteral("cmdValidarInfoSAT"), QStringLiteral("Validar"));
    lblDatosCertificado = new QLabel(datos);
    lblDatosCertificado->setObjectName(QStringLiteral("lblDatosCertificado"));
    lblDatosCertificado->setWordWrap(true);
    auto *formaDatos = new QGridLayout(datos);
    formaDatos->addWidget(new QLabel(QStringLiteral("Datos Llave Privada"), datos), 0, 0);
    formaDatos->addWidget(lblKey, 0, 1);
    formaDatos->addWidget(cmdKey, 0, 2);
    formaDatos->addWidget(new QLabel(QStringLiteral("Datos del Certificado"), datos), 1, 0);
    formaDatos->addWidget(lblCer, 1, 1);
    formaDatos->addWidget(cmdCer, 1, 2);
    formaDatos->addWidget(new QLabel(QStringLiteral("Contraseña de la Llave Privada"), datos), 2,
                          0);
    formaDatos->addWidget(txtKeyPwd, 2, 1);
    formaDatos->addWidget(chkKeyPwd, 2, 2);
    formaDatos->addWidget(lblDatosCertificado, 3, 0, 1, 2);
    formaDatos->addWidget(cmdValidarInfoSAT, 3, 2);
    formaDatos->setColumnStretch(1, 1);
    fmeCfdiConfi = new QGroupBox(QStringLiteral("Configuración"), c);
    fmeCfdiConfi->setObjectName(QStringLiteral("fmeCfdiConfi_1"));
    txtRutaXML = Texto(fmeCfdiConfi, "txtRutaXML");
    cmdRutaXML = Boton(fmeCfdiConfi, QStringLiteral("cmdRutaXML"), QStringLiteral("..."));
    dtpFEVenc = CampoFecha(fmeCfdiConfi, QStringLiteral("dtpFEVenc"));
    chkFEVer = Casilla(fmeCfdiConfi, "chkFEVer", QStringLiteral("Activar CFDI 3.3"));
    cmdParamFE[0] = Boton(fmeCfdiConfi, QStringLiteral("cmdParamFE_0"),
                          QStringLiteral("Grabar configuración de CFDI"));
    auto *formaConfi = new QFormLayout(fmeCfdiConfi);
    auto *ruta = new QHBoxLayout;
    ruta->addWidget(txtRutaXML);
    ruta->addWidget(cmdRutaXML);
    formaConfi->addRow(QStringLiteral("Ruta archivos XML"), ruta);
    formaConfi->addRow(QStringLiteral("Fecha de Vencimiento del Certificado"), dtpFEVenc);
    formaConfi->addRow(chkFEVer);
    formaConfi->addRow(cmdParamFE[0]);
    auto *capa = new QVBoxLayout(c);
    capa->addWidget(cuenta);
    capa->addWidget(datos);
    capa->addWidget(fmeCfdiConfi);
    capa->addStretch(1);
    fmeCfdis->addTab(c, QStringLiteral("Configuración"));

    const auto elegir = [this](QLabel *etiqueta, const QString &titulo, const QString &filtro) {
      const QString archivo = cdgArchivo(this, titulo, filtro);
      if (archivo.isEmpty())
        return;
      QFile prueba(archivo);
      if (!prueba.open(QIODevice::ReadOnly)) {
        CatalogoMensajes::MostrarTexto(
            QStringLiteral("No se pudo leer el archivo %1.").arg(archivo),
            IconoMensaje::Advertencia);
        return;
      }
      etiqueta->setText(archivo);
      MarcarCambio();
    };
    connect(cmdCer, &QPushButton::clicked, this, [this, elegir] {
      elegir(lblCer, QStringLiteral("Certificado"), QStringLiteral("Certificado (*.cer)"));
    });
    connect(cmdKey, &QPushButton::clicked, this, [this, elegir] {
      elegir(lblKey, QStringLiteral("Llave privada"), QStringLiteral("Llave privada (*.key)"));
    });
    connect(txtKeyPwd, &QLineEdit::textEdited, this, [this] { MarcarCambio(); });
    connect(chkKeyPwd, &QCheckBox::toggled, this, [this](bool ver) {
      txtKeyPwd->setEchoMode(ver ? QLineEdit::Normal : QLineEdit::Password);
    });
    connect(cmdRutaXML, &QPushButton::clicked, this, [this] {
      const QString carpeta = cdgCarpeta(this);
      if (!carpeta.isEmpty())
        txtRutaXML->setText(QDir::toNativeSeparators(carpeta));
    });
    connect(cmdValidarInfoSAT, &QPushButton::clicked, this, [this] { ValidarInfoSat(); });
    connect(cmdParamFE[0], &QPushButton::clicked, this, [this] { GrabarConfiguracionCfdi(); });
    connect(cmdTest, &QPushButton::clicked, this, [this] { GrabarCuentaFE(); });
  }
  fmeDatos->addTab(fmeCfdis, QStringLiteral("&CFDIs"));

  auto *raiz = new QVBoxLayout(this);
  raiz->addWidget(lblEmpresa);
  raiz->addWidget(fmeDatos);
  resize(900, 640);
  new EnterSiguiente(this, {QStringLiteral("flxPromos")});

  // A tab shown gives the focus to its first field.
  const auto primero = [](QWidget *pagina) {
    for (QWidget *w : pagina->findChildren<QWidget *>())
      if ((w->focusPolicy() & Qt::TabFocus) && w->isEnabled() && w->isVisibleTo(pagina)) {
        w->setFocus(Qt::TabFocusReason);
        return;
      }
  };
  // A box takes no more than its column holds.
  const std::pair<QLineEdit *, const char *> columnas[] = {{txtSerieFE, "FE_WEBSERVURL"},
                                                           {txtFactElectronica[3], "FE_USUARIO"},
                                                           {txtRutaXML, "FE_RUTAXML"}};
  for (const auto &[caja, columna] : columnas)
    caja->setMaxLength(esquema::Largo("tblParametrosGenerales", columna));
  txtUsuarioTVE->setMaxLength(esquema::Largo("tblServiciosElec", "TVE_USUARIO"));
  txtNumTerminal->setMaxLength(esquema::Largo("tblTcTerminales", "NUM_TERMINAL"));
  txtIdClienteTC->setMaxLength(esquema::Largo("tblTcTerminales", "ID_CLIENTE"));

  connect(fmeDatos, &QTabWidget::currentChanged, this, [this, primero](int i) {
    // Entering the services shows the portal first.
    if (i == 1)
      fmeServicios->setCurrentIndex(0);
    primero(fmeDatos->widget(i));
  });
  connect(fmeParametros, &QTabWidget::currentChanged, this,
          [this, primero](int i) { primero(fmeParametros->widget(i)); });
  connect(fmeCfdis, &QTabWidget::currentChanged, this,
          [this, primero](int i) { primero(fmeCfdis->widget(i)); });

  // ---------------------------------------------------------------- the opening
  {
    ServicioConexion servicio;
    ConexionPtr general = servicio.AbrirConexionGeneral(gConexionGeneral);
    Registros rs = general->Abrir(QStringLiteral("SELECT CONEXION,MOTORDEDATOS,NOMBREBASEDATOS,"
                                                 "CONX_DP FROM tblEmpresas WHERE NUM_EMP=%1;")
                                      .arg(gEmpresaParametros));
    if (rs.Vacio())
      throw ErrorFatal(QStringLiteral("La empresa %1 no está registrada.").arg(gEmpresaParametros));
    const int motorDatos = static_cast<int>(rs.Campo(QStringLiteral("MOTORDEDATOS")).Numero());
    empresa_ = {rs.Campo(QStringLiteral("CONEXION")).Texto(),
                rs.Campo(QStringLiteral("NOMBREBASEDATOS")).Texto()};
    servicio.Motor = motorDatos;
    conexion_ = servicio.AbrirConexion(motorDatos == motor::kSqlServer
                                           ? DesencriptarConexion(empresa_.conexion)
                                           : empresa_.conexion);
  }
  Conexion &con = *conexion_;
  {
    Registros rs =
        con.Abrir(QStringLiteral("SELECT NOM_EMP,NOM_COM FROM tblEmpresa WHERE COD_EMPRESA=1;"));
    if (!rs.Vacio())
      lblEmpresa->setText(rs.Campo(QStringLiteral("NOM_EMP")).Texto() + QStringLiteral(" - ") +
                          rs.Campo(QStringLiteral("NOM_COM")).Texto());
  }
  cmbCampRedondeo->Cargar(con,
                          QStringLiteral("SELECT COD_CAMP,NOM_CAMP FROM tblCampRedondeo ORDER BY "
                                         "COD_CAMP"),
                          QStringLiteral("COD_CAMP"), QStringLiteral("NOM_CAMP"));
  cmbProveedorTC->Cargar(con, QStringLiteral("SELECT * FROM tblProveedoresTC ORDER BY COD_PROVTC"),
                         QStringLiteral("COD_PROVTC"), QStringLiteral("DES_PROVTC"));
  for (ComboLista *c : {cmbImpuestoTA, cmbImpuestoSE})
    c->Cargar(con, QStringLiteral("SELECT * FROM tblImpuestos ORDER BY COD_IMP"),
              QStringLiteral("COD_IMP"), QStringLiteral("DES_IMP"));
  cmbProvTVE->Cargar(con, QStringLiteral("SELECT * FROM tblProveedoresSE ORDER BY COD_PROVSE"),
                     QStringLiteral("COD_PROVSE"), QStringLiteral("DES_PROVSE"));
  servicios::PrepararFidelizacion(con);
  CargarParametros();
  fmeDatos->setCurrentIndex(0);
  fmeParametros->setCurrentIndex(0);
}

frmUtiParametros::~frmUtiParametros() = default;

void frmUtiParametros::CargarParametros() {
  Conexion &con = *conexion_;
  const parametros::Parametros p = parametros::CargarParametros(con);
  cancelacionSat_ = p.cancelacionSat;
  chkLim->setChecked(p.limiteRenglones != 0);
  txtLimite->setText(QString::number(p.limiteRenglones));
  chkTolera->setChecked(p.toleranciaPromo != 0);
  txtToleraPromo->setText(QString::number(p.toleranciaPromo));
  chkFecPed->setChecked(p.modificarFechaPedidos);
  Elegir(cmbCampRedondeo, QString::number(p.campanaRedondeo));
  chkLeerDocCliente->setChecked(p.clienteEnVentas);
  chkImpRegimen->setChecked(p.imprimirRegimen);
  chkCostoRepo->setChecked(p.costoReposicion);
  cmbPrecioBase->setCurrentIndex(p.precioBase);
  cmbPrecioTrunca->setCurrentIndex(p.precioTruncar);
  cmbPrecioDecimal->setCurrentIndex(p.precioDecimales);
  chkMeseroUnico->setChecked(p.meseroUnico);
  chkPersonas->setChecked(p.sinNumeroPersonas);
  chkSinMesero->setChecked(p.comandasSinMesero);
  chkOrdenTotal->setChecked(p.ordenTotal);
  chkPropinas->setChecked(p.incluirPropina);
  txtPorcPropina->setText(Monto(p.porcentajePropina));
  txtDesde->setText(Monto(p.propinaDesde));
  chkFacMos->setChecked(p.facturarMostrador);
  chkNotaFactura->setChecked(p.notaYFactura);
  chkFacPorEmp->setChecked(p.folioPorEmpresa);
  chkDescuentoFE->setChecked(p.descuentoCfdi);
  chkUnidadFE->setChecked(p.unidadCfdi);
  chkFolioNumFE->setChecked(p.folioNumericoCfdi);
  chkActivoIEPS->setChecked(p.activoIeps);
  chkCaducidad->setChecked(p.alertaCaducidad);
  txtDiasCad->setText(QString::number(p.diasCaducidad));
  txtHorasCad->setText(QString::number(p.minutosCaducidad));
  chkLeerDocAlm->setChecked(p.leerDocumentosAlmacen);
  chkLoteEnPV->setChecked(p.loteEnVenta);
  chkInvSucur->setChecked(p.inventarioSucursalPrincipal);
  for (int i = 0; i < 4; ++i)
    chkDocCP[i]->setChecked(p.documentoCompras[i]);
  chkResPres->setChecked(p.restringirPresupuesto);
  optRemPrev[p.previoCompra == 1 ? 1 : 0]->setChecked(true);
  chkSinPrevio->setVisible(p.previoCompra == 1);
  chkSinPrevio->setChecked(p.recepcionSinPrevio);
  chkBckOrder->setChecked(p.diasBackorder != 0);
  txtDiasBO->setText(QString::number(p.diasBackorder));
  chkActPreciosRecp->setChecked(p.actualizarPrecios != 0);
  optBase[p.actualizarPrecios == 2 ? 1 : 0]->setChecked(true);
  optUnidadBase[p.unidadPrecios == 2 ? 1 : 0]->setChecked(true);

  // Electronic services.
  const servicios::Portal portal = servicios::CargarPortal(con);
  txtUsuarioTVE->setText(portal.usuario);
  txtPaswTVE->setText(portal.contrasena);
  Registros rs = con.Abrir(QStringLiteral("SELECT * FROM tblParametrosGenerales;"));
  const auto n = [&](const char *c) {
    return rs.Vacio() ? 0 : static_cast<int>(rs.Campo(QLatin1String(c)).Numero());
  };
  const auto t = [&](const char *c) {
    return rs.Vacio() ? QString() : rs.Campo(QLatin1String(c)).Texto();
  };
  chkTC->setChecked(n("TC_SERVICIO") != 0);
  cmdActivarPromo->setEnabled(chkTC->isChecked());
  cmdAgregarTerminal->setEnabled(chkTC->isChecked());
  Elegir(cmbProveedorTC, QString::number(n("TC_SERVICIO")));
  chkTA->setChecked(n("TA_ACT") != 0);
  optTAE[n("TA_CADENA") == 1 ? 1 : 0]->setChecked(true);
  cmbAgrupaTA->Limpiar();
  for (const auto &[codigo, descripcion] : servicios::AgrupacionesDisponibles(con, n("TA_AGR")))
    cmbAgrupaTA->addItem(descripcion, QString::number(codigo));
  Elegir(cmbAgrupaTA, QString::number(n("TA_AGR")));
  if (cmbAgrupaTA->currentIndex() < 0 && cmbAgrupaTA->count() > 0)
    cmbAgrupaTA->FijarPosicion(0);
  Elegir(cmbImpuestoTA, QString::number(n("TA_IMPTO")));
  chkPagoServ->setChecked(t("CNX_TVE") == QLatin1String("TVE_DEFINIDO"));
  Elegir(cmbProvTVE, QString::number(n("TVE_CODPROV")));
  Elegir(cmbImpuestoSE, QString::number(n("IMPTO_SER")));
  chkRemesas->setChecked(n("REM_CODPROV") != 0);
  chkFideliza->setChecked(servicios::CargarFidelizacion(con));

  // Electronic invoicing.
  const cfdi::DatosSat sat = cfdi::CargarCertificados(con);
  cmbZonaHoraria->setCurrentIndex(static_cast<int>(cfdi::ZonasHorarias().indexOf(sat.zona)));
  DibujarMapa();
  txtKeyPwd->setText(sat.clave);
  lblKey->setText(sat.llave);
  lblCer->setText(sat.certificado);
  txtRutaXML->setText(t("FE_RUTAXML"));
  if (!rs.Vacio() && !rs.Campo(QStringLiteral("FE_VENCERT")).EsNulo())
    dtpFEVenc->setDate(rs.Campo(QStringLiteral("FE_VENCERT")).Fecha());
  chkConfiguraFE->setChecked(n("CFD_FACT") != 0);
  cmdTest->setVisible(n("CFD_FACT") == 0);
  txtFactElectronica[3]->setText(t("FE_USUARIO"));
  txtSerieFE->setText(t("FE_WEBSERVURL"));
  chkFEVer->setChecked(n("FE_VERSION") == 33);
  // A company changed over to 3.3 stays there; from 2018 the box can't go back.
  chkFEVer->setEnabled(!(n("FE_ACTUAL") != 0 && Hoy() >= QDate(2018, 1, 1)));
  cambioSinValidar_ = false;
}

parametros::Parametros frmUtiParametros::Parametros() const {
  parametros::Parametros p;
  p.limiteRenglones = chkLim->isChecked() ? Entero(txtLimite) : 0;
  p.toleranciaPromo = chkTolera->isChecked() ? Entero(txtToleraPromo) : 0;
  p.modificarFechaPedidos = chkFecPed->isChecked();
  p.campanaRedondeo = cmbCampRedondeo->Clave().isEmpty() ? 1 : cmbCampRedondeo->Clave().toInt();
  p.clienteEnVentas = chkLeerDocCliente->isChecked();
  p.imprimirRegimen = chkImpRegimen->isChecked();
  p.costoReposicion = chkCostoRepo->isChecked();
  p.precioBase = std::max(cmbPrecioBase->currentIndex(), 0);
  p.precioTruncar = std::max(cmbPrecioTrunca->currentIndex(), 0);
  p.precioDecimales = cmbPrecioDecimal->currentIndex() < 0 ? 4 : cmbPrecioDecimal->currentIndex();
  p.meseroUnico = chkMeseroUnico->isChecked();
  p.sinNumeroPersonas = chkPersonas->isChecked();
  p.comandasSinMesero = chkSinMesero->isChecked();
  p.ordenTotal = chkOrdenTotal->isChecked();
  p.incluirPropina = chkPropinas->isChecked();
  p.porcentajePropina = DeCaja(txtPorcPropina);
  p.propinaDesde = DeCaja(txtDesde);
  p.facturarMostrador = chkFacMos->isChecked();
  p.notaYFactura = chkNotaFactura->isChecked();
  p.folioPorEmpresa = chkFacPorEmp->isChecked();
  p.descuentoCfdi = chkDescuentoFE->isChecked();
  p.unidadCfdi = chkUnidadFE->isChecked();
  p.folioNumericoCfdi = chkFolioNumFE->isChecked();
  p.activoIeps = chkActivoIEPS->isChecked();
  p.cancelacionSat = cancelacionSat_;
  p.alertaCaducidad = chkCaducidad->isChecked();
  p.diasCaducidad = Entero(txtDiasCad);
  p.minutosCaducidad = Entero(txtHorasCad);
  p.leerDocumentosAlmacen = chkLeerDocAlm->isChecked();
  p.loteEnVenta = chkLoteEnPV->isChecked();
  p.inventarioSucursalPrincipal = chkInvSucur->isChecked();
  for (int i = 0; i < 4; ++i)
    p.documentoCompras[i] = chkDocCP[i]->isChecked();
  p.restringirPresupuesto = chkResPres->isChecked();
  p.previoCompra = optRemPrev[1]->isChecked() ? 1 : 0;
  p.recepcionSinPrevio = chkSinPrevio->isChecked();
  p.diasBackorder = chkBckOrder->isChecked() ? Entero(txtDiasBO) : 0;
  p.actualizarPrecios = chkActPreciosRecp->isChecked() ? (optBase[1]->isChecked() ? 2 : 1) : 0;
  p.unidadPrecios = optUnidadBase[1]->isChecked() ? 2 : 1;
  return p;
}

void frmUtiParametros::GrabarParametros() {
  parametros::GrabarParametros(*conexion_, empresa_, Parametros());
}

void frmUtiParametros::ElegirPrevio(int opcion) {
  if (opcion == 0) {
    chkSinPrevio->hide();
    chkSinPrevio->setChecked(false);
    return;
  }
  if (parametros::PrevioPermitido(*conexion_)) {
    chkSinPrevio->show();
    return;
  }
  optRemPrev[0]->setChecked(true);
  chkSinPrevio->hide();
}

// ---------------------------------------------------------------- the services

void frmUtiParametros::GrabarTarjeta() {
  servicios::Tarjeta t;
  t.activo = chkTC->isChecked();
  t.proveedor = t.activo ? cmbProveedorTC->Clave().toInt() : 0;
  // The provider's own data: its site and its key.
  if (t.proveedor > 0) {
    Registros rs = conexion_->Abrir(
        QStringLiteral("SELECT * FROM tblProveedoresTC WHERE COD_PROVTC=%1").arg(t.proveedor));
    if (!rs.Vacio()) {
      t.sitio = rs.Campo(QStringLiteral("SITIO_PROVTC")).Texto();
      t.llave = rs.Campo(QStringLiteral("RESP_PROVTC")).Texto();
    }
    // The company is known at the provider by its RFC.
    Registros empresa = conexion_->Abrir(
        QStringLiteral("SELECT RFC1_EMP,RFC2_EMP,RFC3_EMP FROM tblEmpresa WHERE COD_EMPRESA=1;"));
    if (!empresa.Vacio())
      t.empresa = empresa.Campo(QStringLiteral("RFC1_EMP")).Texto() +
                  empresa.Campo(QStringLiteral("RFC2_EMP")).Texto() +
                  empresa.Campo(QStringLiteral("RFC3_EMP")).Texto();
  }
  servicios::GrabarTarjeta(*conexion_, t);
  cmdActivarPromo->setEnabled(t.activo);
  cmdAgregarTerminal->setEnabled(t.activo);
  if (!t.activo) {
    fmePromociones->hide();
    fmeTerminales->hide();
  }
}

void frmUtiParametros::CargarPromociones() {
  flxPromos->setRowCount(0);
  for (const servicios::Promocion &p : servicios::CargarPromociones(*conexion_)) {
    const int fila = flxPromos->rowCount();
    flxPromos->insertRow(fila);
    const QString valores[] = {QString::number(p.codigo), p.descripcion,
                               p.activa ? QStringLiteral("Activar") : QStringLiteral("Desactivar"),
                               Monto(p.minimo)};
    for (int c = 0; c < 4; ++c)
      flxPromos->setItem(fila, c, new QTableWidgetItem(valores[c]));
  }
}

void frmUtiParametros::GrabarPromociones() {
  std::vector<servicios::Promocion> promociones;
  for (int fila = 0; fila < flxPromos->rowCount(); ++fila) {
    servicios::Promocion p;
    p.codigo = flxPromos->item(fila, 0)->text().toInt();
    p.activa = flxPromos->item(fila, 2)->text() == QLatin1String("Activar");
    QString minimo = flxPromos->item(fila, 3)->text();
    minimo.remove(QLatin1Char(','));
    p.minimo = minimo.isEmpty() ? Dinero() : Dinero::DeTexto(minimo);
    promociones.push_back(p);
  }
  servicios::GrabarPromociones(*conexion_, promociones);
}

void frmUtiParametros::LeerTerminal() {
  std::vector<servicios::Promocion> nodos;
  for (int i = 0; i < tvwPromociones->topLevelItemCount(); ++i) {
    servicios::Promocion p;
    p.codigo = tvwPromociones->topLevelItem(i)->data(0, Qt::UserRole).toString().mid(1).toInt();
    nodos.push_back(p);
  }
  const servicios::Terminal t = servicios::LeerTerminal(*conexion_, txtNumTerminal->text(), nodos);
  if (t.existe)
    txtIdClienteTC->setText(t.idCliente);
  for (int i = 0; i < tvwPromociones->topLevelItemCount(); ++i) {
    const bool marcada =
        std::find(t.promociones.begin(), t.promociones.end(),
                  nodos[static_cast<std::size_t>(i)].codigo) != t.promociones.end();
    tvwPromociones->topLevelItem(i)->setCheckState(0, marcada ? Qt::Checked : Qt::Unchecked);
  }
}

void frmUtiParametros::AgregarTerminal() {
  if (txtNumTerminal->text().trimmed().isEmpty())
    return;
  std::vector<int> promociones;
  for (int i = 0; i < tvwPromociones->topLevelItemCount(); ++i) {
    QTreeWidgetItem *nodo = tvwPromociones->topLevelItem(i);
    if (nodo->checkState(0) == Qt::Checked)
      promociones.push_back(nodo->data(0, Qt::UserRole).toString().mid(1).toInt());
  }
  const int proveedor = cmbProveedorTC->Clave().toInt();
  // Moneris asks for the customer's identifier.
  servicios::AgregarTerminal(*conexion_, txtNumTerminal->text().trimmed(), proveedor,
                             proveedor == 4, txtIdClienteTC->text().trimmed(), promociones);
}

void frmUtiParametros::EliminarTerminal() {
  if (!txtNumTerminal->text().trimmed().isEmpty())
    servicios::EliminarTerminal(*conexion_, txtNumTerminal->text().trimmed());
}

void frmUtiParametros::GrabarTiempoAire() {
  servicios::TiempoAire t;
  t.activo = chkTA->isChecked();
  t.agrupacion = cmbAgrupaTA->Clave().toInt();
  t.impuesto = cmbImpuestoTA->Clave().toInt();
  t.usa = optTAE[1]->isChecked();
  if (t.activo && t.agrupacion == 0) {
    CatalogoMensajes::MostrarTexto(QStringLiteral("No hay agrupaciones disponibles"),
                                   IconoMensaje::Advertencia);
    return;
  }
  servicios::GrabarTiempoAire(*conexion_, t);
}

// ---------------------------------------------------------------- electronic invoicing

cfdi::DatosSat frmUtiParametros::DatosSat() const {
  return {cmbZonaHoraria->currentText(), txtKeyPwd->text(), lblKey->text(), lblCer->text()};
}

void frmUtiParametros::MarcarCambio() { cambioSinValidar_ = true; }

void frmUtiParametros::ValidarInfoSat() {
  sat::Validacion v;
  const bool guardado = cfdi::ValidarInfoSat(*conexion_, DatosSat(), Hoy(), &v);
  if (v.certificado.vence.isValid()) {
    lblDatosCertificado->setText(
        QStringLiteral("%1\nRFC: %2   Número: %3   Vence: %4 %5")
            .arg(v.certificado.titular, v.certificado.rfc, v.certificado.serie,
                 v.certificado.vence.toString(QStringLiteral("dd/MM/yyyy")), v.aviso));
    // The expiry is the certificate's own: it isn't typed.
    dtpFEVenc->setDate(v.certificado.vence);
  }
  if (!guardado)
    return;
  cambioSinValidar_ = false;
  fmeCfdiConfi->show();
  cmdValidarInfoSAT->setText(QStringLiteral("Actualizar"));
}

void frmUtiParametros::GrabarConfiguracionCfdi() {
  cfdi::GrabarConfiguracionCfdi(*conexion_, empresa_, DatosSat(), cambioSinValidar_,
                                txtRutaXML->text(), dtpFEVenc->date(), chkFEVer->isChecked(),
                                Hoy());
}

void frmUtiParametros::GrabarZona() {
  if (cmbZonaHoraria->currentIndex() < 0) {
    CatalogoMensajes::MostrarTexto(
        QStringLiteral("Debe especificar la Zona Horaria para poder guardar la información."),
        IconoMensaje::Advertencia);
    return;
  }
  cfdi::GrabarZona(*conexion_, empresa_, cmbZonaHoraria->currentText());
}

void frmUtiParametros::GrabarCuentaFE() {
  if (!cfdi::GrabarCuentaFE(*conexion_, txtSerieFE->text(), txtFactElectronica[3]->text(),
                            txtFactElectronica[4]->text(), chkFEVer->isChecked(), Hoy()))
    return;
  chkConfiguraFE->setChecked(true);
  cmdTest->hide();
}

// The map slides a step at a time to the zone's offset.
void frmUtiParametros::MoverMapa(int horas) {
  const int destino = std::clamp(horas, -12, 12);
  while (horasMapa_ != destino) {
    horasMapa_ += destino > horasMapa_ ? 1 : -1;
    DibujarMapa();
  }
  DibujarMapa();
}

void frmUtiParametros::DibujarMapa() {
  QPixmap lienzo(picZonaHoraria->size());
  lienzo.fill(QColor(210, 230, 245));
  QPainter p(&lienzo);
  const int paso = lienzo.width() / 12;
  // A strip of offsets centred on the one shown, Mexico's zones (-8 to -5) marked.
  for (int i = -6; i <= 6; ++i) {
    const int horas = horasMapa_ + i;
    const int x = lienzo.width() / 2 + i * paso - paso / 2;
    const bool mexico = horas >= -8 && horas <= -5;
    p.fillRect(x + 1, 8, paso - 2, 28,
               horas == horasMapa_ ? QColor(60, 120, 200)
               : mexico            ? QColor(150, 190, 230)
                                   : QColor(235, 240, 245));
    p.drawText(QRect(x, 38, paso, 18), Qt::AlignCenter,
               QStringLiteral("%1").arg(horas > 0 ? QStringLiteral("+%1").arg(horas)
                                                  : QString::number(horas)));
  }
  picZonaHoraria->setPixmap(lienzo);
}
