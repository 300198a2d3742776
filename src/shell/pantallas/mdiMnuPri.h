#pragma once

#include <QMainWindow>
#include <QString>
#include <functional>
#include <memory>

class BarraPantalla;
class EtiquetaRecortada;
class Conexion;
class QAction;
class QDialog;
class QLabel;

// The frame of the running program: the menus, the toolbar "AYU"/"SAL" and the status
// bar. Every screen is shown modally from a menu item; leaving asks and ends the run.
class mdiMnuPri : public QMainWindow {
public:
  // Makes the screen of a menu item, as a child of the frame.
  using FabricaPantalla = std::function<std::unique_ptr<QDialog>(QWidget *padre)>;

  explicit mdiMnuPri(QWidget *padre = nullptr);

  // The load event: caption, the user marked as in use, the company's name, and the two
  // checks of the session.
  void Cargar();
  // Marks the user as in use and shows the user's name in panel 4.
  void MostrarUsuario();
  // After a company switch: the company's name in panel 1 and, above 0, the register
  // in panel 6.
  void MostrarEmpresa(int caja);
  // The question of leaving; on Yes the user is marked as free. Answers true to cancel.
  bool ConfirmarSalida();

  // Gives a menu item (by name, "mnuGenPolizas") its screen: the item is enabled and
  // shows the screen modally. Items without a screen stay disabled. An unknown name
  // is fatal.
  void Registrar(const QString &menu, FabricaPantalla fabrica);

  // A menu item by name; nullptr when there is none.
  QAction *Menu(const QString &nombre) const;
  // A panel of the status bar, by number from 1 to 6.
  QLabel *Panel(int numero) const;

  BarraPantalla *tlbDatos;

protected:
  void closeEvent(QCloseEvent *evento) override;
  bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
  // The first menu opened, for the keyboard to go on with the arrows.
  void AbrirBarraMenus();
  void MostrarNombreEmpresa(Conexion &con);
  bool HayOtrasVentanas() const;
  EtiquetaRecortada *paneles_[6];
  bool altSolo_ = false; // Alt pressed, and no other key since
};
