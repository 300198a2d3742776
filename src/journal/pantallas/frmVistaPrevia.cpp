#include "journal/pantallas/frmVistaPrevia.h"

#include "pantallas/Pantallas.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QString Monto(const Dinero &d) { return d.Formato(u"#,##0.00"); }

} // namespace

frmVistaPrevia::frmVistaPrevia(const std::vector<PolizaPrevista> &polizas, QWidget *padre)
    : QDialog(padre) {
  PrepararVentana(this, QStringLiteral("frmVistaPrevia"),
                  QStringLiteral("VISTA PREVIA DE PÓLIZAS"));
  tvwPolizas = new QTreeWidget(this);
  tvwPolizas->setObjectName(QStringLiteral("tvwPolizas"));
  tvwPolizas->setHeaderLabels({QStringLiteral("Póliza / Rubro"), QStringLiteral("Fecha / Cuenta"),
                               QStringLiteral("Concepto"), QStringLiteral("Cargo"),
                               QStringLiteral("Abono")});
  tvwPolizas->header()->setSectionResizeMode(2, QHeaderView::Stretch);
  Dinero debeTotal, haberTotal;
  int descuadradas = 0;
  for (const PolizaPrevista &p : polizas) {
    Dinero debe, haber;
    for (const RenglonPoliza &r : p.renglones) {
      debe += r.IMP_DEBE;
      haber += r.IMP_HABER;
    }
    debeTotal += debe;
    haberTotal += haber;
    auto *poliza =
        new QTreeWidgetItem(tvwPolizas, {p.poliza.TIP_POLIZA + p.poliza.FOL_POLIZA,
                                         p.poliza.FEC_POLIZA.toString(QStringLiteral("dd/MM/yyyy")),
                                         p.poliza.CONCEP_POL, Monto(debe), Monto(haber)});
    for (const RenglonPoliza &r : p.renglones) {
      const bool cargo = r.EsCargo();
      new QTreeWidgetItem(poliza, {cargo ? r.RUBRO_DEBE : r.RUBRO_HABER,
                                   cargo ? r.CUENTA_DEBE : r.CUENTA_HABER, QString(),
                                   cargo ? Monto(r.IMP_DEBE) : QString(),
                                   cargo ? QString() : Monto(r.IMP_HABER)});
    }
    for (int c = 3; c < 5; ++c)
      poliza->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
    if (debe != haber) {
      ++descuadradas;
      poliza->setText(2, p.poliza.CONCEP_POL +
                             QStringLiteral("  (diferencia %1)").arg(Monto(debe - haber)));
      for (int c = 0; c < 5; ++c)
        poliza->setForeground(c, Qt::red);
    }
  }
  tvwPolizas->resizeColumnToContents(0);
  tvwPolizas->resizeColumnToContents(1);
  lblTotales =
      new QLabel(QStringLiteral("Pólizas: %1   Cargos: %2   Abonos: %3%4")
                     .arg(QString::number(polizas.size()), Monto(debeTotal), Monto(haberTotal),
                          descuadradas > 0 ? QStringLiteral("   Descuadradas: %1").arg(descuadradas)
                                           : QString()),
                 this);
  lblTotales->setObjectName(QStringLiteral("lblTotales"));
  cmdContabilizar = new QPushButton(QStringLiteral("Contabilizar"), this);
  cmdContabilizar->setObjectName(QStringLiteral("cmdContabilizar"));
  cmdCerrar = new QPushButton(QStringLiteral("Cerrar"), this);
  cmdCerrar->setObjectName(QStringLiteral("cmdCerrar"));
  cmdContabilizar->setEnabled(!polizas.empty());
  auto *botones = new QHBoxLayout;
  botones->addWidget(lblTotales, 1);
  botones->addWidget(cmdContabilizar);
  botones->addWidget(cmdCerrar);
  auto *raiz = new QVBoxLayout(this);
  raiz->addWidget(tvwPolizas);
  raiz->addLayout(botones);
  resize(900, 560);
  connect(cmdContabilizar, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdCerrar, &QPushButton::clicked, this, &QDialog::reject);
}
