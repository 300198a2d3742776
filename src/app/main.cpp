#include "admin/pantallas/frmUtiCrearEmpresa.h"
#include "admin/pantallas/frmUtiEmpresas.h"
#include "config/pantallas/frmCatalogo.h"
#include "config/pantallas/frmDefinirAsientos.h"
#include "config/pantallas/frmDiarios.h"
#include "export/pantallas/frmFormato1.h"
#include "export/pantallas/frmGenerarArchivo.h"
#include "journal/pantallas/frmEliminarPolizas.h"
#include "journal/pantallas/frmGenerarPolizas.h"
#include "pantallas/PantallaDialogo.h"
#include "pantallas/Pantallas.h"
#include "reports/pantallas/frmConsultaPolizas.h"
#include "shell/CatalogoMensajes.h"
#include "shell/ErrorFatal.h"
#include "shell/FinOrdenado.h"
#include "shell/Sesion.h"
#include "shell/pantallas/frmEntrada.h"
#include "shell/pantallas/mdiMnuPri.h"

#include <QApplication>
#include <cstdlib>
#include <memory>

namespace {

constexpr int kSalidaFatal = 2;

// A failure that ends the process: shown with the statement that failed; then the entry
// in work is undone, the log and files are closed, the connections too, and the process
// ends. What was confirmed before stays written.
[[noreturn]] void Terminar(const ErrorFatal &error) {
  CatalogoMensajes::Caja(error.TextoCompleto(), CatalogoMensajes::Texto(100),
                         IconoMensaje::Critico);
  TerminarProceso(kSalidaFatal);
}

// The screens that the menu items show.
void RegistrarPantallas(mdiMnuPri &principal) {
  principal.Registrar(QStringLiteral("mnuAbrirEmpresa"), [&principal](QWidget *padre) {
    auto pantalla = std::make_unique<frmUtiEmpresas>(padre);
    pantalla->alCambiarEmpresa = [&principal] {
      principal.MostrarUsuario();
      principal.MostrarEmpresa(0);
    };
    return pantalla;
  });
  principal.Registrar(QStringLiteral("mnuGenPolizas"),
                      [](QWidget *padre) { return std::make_unique<frmGenerarPolizas>(padre); });
  principal.Registrar(QStringLiteral("mnuGenArchPolizas"),
                      [](QWidget *padre) { return std::make_unique<frmGenerarArchivo>(padre); });
  principal.Registrar(QStringLiteral("mnuDefAsientos"),
                      [](QWidget *padre) { return std::make_unique<frmDefinirAsientos>(padre); });
  principal.Registrar(QStringLiteral("mnuDefFormato"),
                      [](QWidget *padre) { return std::make_unique<frmFormato1>(padre); });
  principal.Registrar(QStringLiteral("mnuCatalogo"),
                      [](QWidget *padre) { return std::make_unique<frmCatalogo>(padre); });
  principal.Registrar(QStringLiteral("mnuDiarios"),
                      [](QWidget *padre) { return std::make_unique<frmDiarios>(padre); });
  principal.Registrar(QStringLiteral("mnuConsPolizas"),
                      [](QWidget *padre) { return std::make_unique<frmConsultaPolizas>(padre); });
  principal.Registrar(QStringLiteral("mnuEliPolizas"),
                      [](QWidget *padre) { return std::make_unique<frmEliminarPolizas>(padre); });
}

// Failures inside the event handlers of the screens reach the application here.
class Aplicacion : public QApplication {
public:
  using QApplication::QApplication;
  bool notify(QObject *receptor, QEvent *evento) override {
    try {
      return QApplication::notify(receptor, evento);
    } catch (const ErrorFatal &error) {
      Terminar(error);
    }
  }
};

} // namespace

int main(int argc, char **argv) {
  Aplicacion app(argc, argv);
  QApplication::setApplicationName(CatalogoMensajes::Texto(100));
  QApplication::setApplicationVersion(QLatin1String(kVersionPrograma));
  PrepararIdioma();
  PresentadorDialogo presentador;
  CatalogoMensajes::Instalar(&presentador);
  try {
    IniciarRutas(QCoreApplication::applicationDirPath());
    {
      frmEntrada entrada;
      entrada.crearEmpresa = [](QWidget *padre) {
        frmUtiCrearEmpresa crear(padre);
        crear.exec();
      };
      if (!entrada.Cargar())
        return EXIT_FAILURE;
      if (entrada.exec() != QDialog::Accepted)
        return EXIT_SUCCESS;
    }
    mdiMnuPri principal;
    RegistrarPantallas(principal);
    {
      RelojArena reloj;
      IniciarAyuda();
      principal.Cargar();
      principal.showMaximized();
    }
    return app.exec();
  } catch (const ErrorFatal &error) {
    Terminar(error);
  }
}
