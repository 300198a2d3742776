#include "shell/Ayuda.h"
#include "Apoyo.h"
#include "admin/pantallas/frmUtiCrearEmpresa.h"
#include "admin/pantallas/frmUtiEmpresas.h"
#include "admin/pantallas/frmUtiParametros.h"
#include "config/pantallas/frmCatalogo.h"
#include "config/pantallas/frmDefinirAsientos.h"
#include "config/pantallas/frmDiarios.h"
#include "db/DatosDemo.h"
#include "export/pantallas/frmFormato1.h"
#include "export/pantallas/frmGenerarArchivo.h"
#include "journal/pantallas/frmEliminarPolizas.h"
#include "journal/pantallas/frmGenerarPolizas.h"
#include "journal/pantallas/frmVistaPrevia.h"
#include "pantallas/Pantallas.h"
#include "pantallas/frmBuscar.h"
#include "pantallas/frmDirectorios.h"
#include "pantallas/frmTeclado.h"
#include "reports/Lienzo.h"
#include "reports/pantallas/frmConsultaPolizas.h"
#include "reports/pantallas/frmPreview.h"
#include "shell/Rutas.h"
#include "shell/Sesion.h"
#include "shell/pantallas/frmEntrada.h"
#include "shell/pantallas/mdiMnuPri.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <functional>
#include <gtest/gtest.h>
#include <set>

namespace {

// The demo company's catalogues, ADMIN's session, and a manual whose chapters begin on
// pages of their own: chapter "NN-…" on page 10 + NN.
class Ayuda : public testing::Test {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>();
    con = emp->AbrirComoAdmin(QStringLiteral("clave"));
    demo::LlenarCatalogos(*con);
    gVersionOk = true;
    gEmpresaParametros = 1; // the company whose parameters the company list opens
    IniciarAyuda();
    manual = RutaNativa(gRutaAyuda);
    QDir().mkpath(QFileInfo(manual).path());
    EscribirArchivo(manual, "%PDF-1.4");
    QList<ayuda::PaginaCapitulo> indice;
    for (const ayuda::PantallaCapitulo &p : ayuda::Pantallas()) {
      const QString capitulo = QLatin1String(p.capitulo);
      indice.append({capitulo, capitulo, 10 + capitulo.left(2).toInt()});
    }
    ASSERT_TRUE(ayuda::EscribirIndice(manual, indice));
    InstalarAbridor([this](const QUrl &u) { abiertas.push_back(u); });
  }
  void TearDown() override { InstalarAbridor({}); }

  // F1 on the screen, from the control that has the focus.
  QUrl F1(QWidget *pantalla) {
    pantalla->show();
    QApplication::setActiveWindow(pantalla);
    abiertas.clear();
    QWidget *foco = QApplication::focusWidget();
    QTest::keyClick(foco && pantalla->isAncestorOf(foco) ? foco : pantalla, Qt::Key_F1);
    pantalla->hide();
    return abiertas.size() == 1 ? abiertas[0] : QUrl();
  }
  QUrl Esperada(const QString &pantalla) const {
    QUrl u = QUrl::fromLocalFile(manual);
    u.setFragment(QStringLiteral("page=%1").arg(10 + ayuda::CapituloDe(pantalla).left(2).toInt()));
    return u;
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  QString manual;
  std::vector<QUrl> abiertas;
};

} // namespace

TEST_F(Ayuda, FOneOnEveryScreenOpensTheManualAtItsChapter) {
  LienzoPintor paginas;
  const std::vector<std::pair<const char *, std::function<QWidget *()>>> pantallas = {
      {"frmEntrada", [] { return new frmEntrada; }},
      {"mdiMnuPri", [] { return new mdiMnuPri; }},
      {"frmTeclado", [] { return new frmTeclado; }},
      {"frmBuscar", [this] { return new frmBuscar(*con, QStringLiteral("RUBROS")); }},
      {"frmDirectorios", [] { return new frmDirectorios; }},
      {"frmCatalogo", [] { return new frmCatalogo; }},
      {"frmDiarios", [] { return new frmDiarios; }},
      {"frmDefinirAsientos", [] { return new frmDefinirAsientos; }},
      {"frmGenerarPolizas", [] { return new frmGenerarPolizas; }},
      {"frmVistaPrevia", [] { return new frmVistaPrevia({}); }},
      {"frmEliminarPolizas", [] { return new frmEliminarPolizas; }},
      {"frmGenerarArchivo", [] { return new frmGenerarArchivo; }},
      {"frmFormato1", [] { return new frmFormato1; }},
      {"frmConsultaPolizas", [] { return new frmConsultaPolizas; }},
      {"frmPreview", [&paginas] { return new frmPreview(paginas); }},
      {"frmUtiEmpresas", [] { return new frmUtiEmpresas; }},
      {"frmUtiCrearEmpresa", [] { return new frmUtiCrearEmpresa; }},
      {"frmUtiParametros", [] { return new frmUtiParametros; }},
  };
  std::set<QString> vistas;
  for (const auto &[nombre, crear] : pantallas) {
    SCOPED_TRACE(nombre);
    std::unique_ptr<QWidget> pantalla(crear());
    ASSERT_EQ(pantalla->objectName(), QLatin1String(nombre));
    EXPECT_EQ(F1(pantalla.get()), Esperada(QLatin1String(nombre))) << nombre;
    vistas.insert(QLatin1String(nombre));
  }
  // Every screen of the table was tried, but the administrator's dialog (its own test).
  for (const ayuda::PantallaCapitulo &p : ayuda::Pantallas())
    EXPECT_TRUE(vistas.count(QLatin1String(p.pantalla)) ||
                QLatin1String(p.pantalla) == QLatin1String("frmAdministrador"))
        << p.pantalla;
}

TEST_F(Ayuda, WithoutTheIndexTheManualOpensAtItsBeginning) {
  QFile::remove(ayuda::RutaIndice(manual));
  frmCatalogo f;
  EXPECT_EQ(F1(&f), QUrl::fromLocalFile(manual));
}

TEST_F(Ayuda, AMissingManualIsNamedByThePathLookedFor) {
  QFile::remove(manual);
  frmDiarios f;
  EXPECT_EQ(F1(&f), QUrl());
  EXPECT_EQ(emp->mensajes.Textos(),
            QStringList{QStringLiteral("No se encontró el manual del usuario en %1.")
                            .arg(QDir::toNativeSeparators(manual))});
}

TEST(InstalarManual, AFreshInstallationGetsTheProgramsManualAndItsIndex) {
  QTemporaryDir programa, instalacion;
  QDir(programa.path()).mkdir(QStringLiteral("Ayuda"));
  const QString origen = programa.filePath(QStringLiteral("Ayuda/TV_PVManual.pdf"));
  EscribirArchivo(origen, "%PDF manual");
  ASSERT_TRUE(ayuda::EscribirIndice(
      origen, {{QStringLiteral("04-generacion"), QStringLiteral("Generación de pólizas"), 27}}));
  ASSERT_TRUE(ayuda::InstalarManual(programa.path(), instalacion.path()));
  const QString destino = instalacion.filePath(QStringLiteral("Ayuda/TV_PVManual.pdf"));
  EXPECT_EQ(LeerArchivo(destino), "%PDF manual");
  ASSERT_EQ(ayuda::LeerIndice(destino).size(), 1);
  EXPECT_EQ(ayuda::LeerIndice(destino)[0].pagina, 27);
  // One that has its manual keeps it.
  EscribirArchivo(destino, "%PDF propio");
  EXPECT_FALSE(ayuda::InstalarManual(programa.path(), instalacion.path()));
  EXPECT_EQ(LeerArchivo(destino), "%PDF propio");
}
