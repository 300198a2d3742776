#pragma once

#include <QComboBox>
#include <QString>
#include <functional>

class Conexion;

// A list that loads itself from a SELECT: each row gives a key and a text, by column
// name, and the list shows the texts. Loading leaves the first row chosen and raises
// the change event, so that the screens' chains of dependent lists start by themselves;
// a load that brings no rows chooses nothing and raises nothing. The event is raised
// again each time the user chooses a row. Clearing is silent. Enabled is the widget's own.
class ComboLista : public QComboBox {
public:
  explicit ComboLista(QWidget *padre = nullptr);

  void Cargar(Conexion &con, const QString &sql, const QString &campoClave,
              const QString &campoTexto);
  void Limpiar();
  // Key and text of the chosen row; the empty text when none is chosen.
  QString Clave() const;
  QString Texto() const;
  int Conteo() const { return count(); }
  // Index of the chosen row from 0, -1 for none. Choosing by position raises no event.
  int Posicion() const { return currentIndex(); }
  void FijarPosicion(int posicion) { setCurrentIndex(posicion); }
  void AlCambiar(std::function<void()> manejador) { alCambiar_ = std::move(manejador); }

private:
  void Cambio();
  std::function<void()> alCambiar_;
};

// A filter list loaded from a SELECT with a code and a description column. The list
// shows both; the box shows the description. Its first row is the empty one, chosen by
// loading and by clearing, which stands for "no filter": code and text are then empty.
// Loading and the user's choices raise the change event; clearing doesn't. The code and
// the description may be the same column.
class ComboDatos : public QComboBox {
public:
  explicit ComboDatos(QWidget *padre = nullptr);

  void Cargar(Conexion &con, const QString &sql, const QString &campoCodigo,
              const QString &campoDescripcion);
  void Limpiar();
  QString Codigo() const;
  QString Texto() const;
  void AlCambiar(std::function<void()> manejador) { alCambiar_ = std::move(manejador); }

private:
  void Cambio();
  std::function<void()> alCambiar_;
};

// The journal types and the operations of the whole catalogue, as filter lists, the way
// the export and deletion screens load them at their opening.
void CargarTiposYOperaciones(Conexion &con, ComboDatos *tipos, ComboDatos *operaciones);
