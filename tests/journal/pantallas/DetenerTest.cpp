#include "Apoyo.h"
#include "db/DatosDemo.h"
#include "db/EmpresaDemo.h"
#include "journal/DiarioPrueba.h"
#include "journal/FixtureGeneracion.h"
#include "journal/pantallas/frmGenerarPolizas.h"
#include "pantallas/PantallaBarra.h"
#include "shell/Sesion.h"

#include <QApplication>
#include <QDateEdit>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

const QDate kMes(2026, 10, 1);

// The demo's month of documents in a company of its own, posted from the screen.
class Detener : public testing::TestWithParam<std::string> {
protected:
  std::unique_ptr<EmpresaPrueba> Empresa() {
    auto emp = std::make_unique<EmpresaPrueba>(GetParam());
    ConexionPtr con = emp->AbrirComoAdmin(QStringLiteral("x"));
    demo::LlenarCatalogos(*con);
    demo::LlenarDocumentos(*con, kMes);
    return emp;
  }

  // A run of the screen over the month with every operation checked; `detener` is asked
  // while the run shows its progress and presses "Detener" when it answers true.
  static void CorrerPantalla(EmpresaPrueba &emp, const QString &bitacora,
                             const std::function<bool(const QProgressBar &)> &detener) {
    frmGenerarPolizas f;
    f.show();
    QApplication::setActiveWindow(&f);
    for (int i = 0; i < f.tvwOperaciones->topLevelItemCount(); ++i)
      f.tvwOperaciones->topLevelItem(i)->setCheckState(0, Qt::Checked);
    f.dtpFecha[0]->setDate(kMes);
    f.dtpFecha[1]->setDate(kMes.addMonths(1).addDays(-1));
    f.txtResumen->setText(bitacora);
    emp.mensajes.respuestas = {RespuestaMensaje::Aceptar, RespuestaMensaje::No};
    QTimer vigia;
    QObject::connect(&vigia, &QTimer::timeout, [&] {
      if (f.cmdDetener->isVisible() && f.cmdDetener->isEnabled() && detener(*f.prgAvance))
        QTest::mouseClick(f.cmdDetener, Qt::LeftButton);
    });
    vigia.start(0);
    QTest::keyClick(f.tvwOperaciones, Qt::Key_F10);
  }
};

} // namespace

TEST_P(Detener, ARunStoppedMidwayKeepsWholeEntriesAndTheNextRunPostsTheRest) {
  // What one run without a stop leaves.
  QStringList referencia;
  {
    auto emp = Empresa();
    OpcionesGeneracion op;
    op.Del = kMes;
    op.Al = kMes.addMonths(1).addDays(-1);
    op.FechaDefinida = Hoy();
    op.Resumen = emp->Ruta() + QStringLiteral("/referencia.txt");
    ASSERT_TRUE(CorrerGeneracion(*emp, op).corrio);
    referencia = diario::SinFolios(*emp->Abrir());
  }
  ASSERT_GT(referencia.size(), 20);

  auto emp = Empresa();
  ConexionPtr con = emp->Abrir();
  const QString bitacora = emp->Ruta() + QStringLiteral("/detenida.txt");
  // Pressed once a third of the run is done.
  CorrerPantalla(*emp, bitacora, [](const QProgressBar &barra) {
    return barra.maximum() > 0 && barra.value() * 3 >= barra.maximum();
  });
  const std::vector<int> ids = emp->mensajes.Ids();
  ASSERT_EQ(ids.size(), 2u);
  EXPECT_EQ(ids[1], 5509); // the log is offered as after any run
  EXPECT_TRUE(emp->mensajes.mostrados[0].texto.startsWith(
      QStringLiteral("Generación detenida: se grabaron ")))
      << emp->mensajes.mostrados[0].texto.toStdString();
  const qsizetype escritas =
      diario::Filas(*con, QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc")).first().toInt();
  const qsizetype todas = std::count_if(referencia.begin(), referencia.end(), [](const QString &l) {
    return l.startsWith(QStringLiteral("póliza "));
  });
  EXPECT_GT(escritas, 0);
  EXPECT_LT(escritas, todas);
  diario::RevisarIntegridad(*con);
  const QString log = DecodificarWindows1252(LeerArchivo(bitacora));
  EXPECT_TRUE(log.contains(QStringLiteral("Corrida detenida por el usuario en la regla ")))
      << log.toStdString();

  // The next run, left alone, posts the rest.
  emp->mensajes.mostrados.clear();
  CorrerPantalla(*emp, emp->Ruta() + QStringLiteral("/resto.txt"),
                 [](const QProgressBar &) { return false; });
  EXPECT_EQ(emp->mensajes.Ids(), (std::vector<int>{108, 5509}));
  diario::RevisarIntegridad(*con);
  EXPECT_EQ(diario::SinFolios(*con), referencia);
}

INSTANTIATE_TEST_SUITE_P(Motores, Detener, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
