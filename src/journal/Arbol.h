#pragma once

#include <QString>
#include <vector>

class Conexion;

// A node of the tree of modules and operations that a run is chosen from: a module
// keyed "M<code>" or an operation keyed "O<code>" under the last module.
struct NodoArbol {
  QString clave;
  QString texto;
  int codigo = 0;
  int padre = -1; // index of the module of an operation; -1 for a module
  bool marcado = false;
  bool expandido = false;
  bool EsModulo() const { return padre < 0; }
};

// The tree with its check rules, apart from any widget.
class ArbolOperaciones {
public:
  // Runs the tree's query: only an operation with a rule that has rows is offered.
  void CargarArbol(Conexion &con);

  const std::vector<NodoArbol> &Nodos() const { return nodos_; }
  // Checking a module expands it and checks its operations; unchecking unchecks
  // them. Checking an operation checks its module; unchecking one leaves the module
  // checked only while another of its operations is.
  void Marcar(int indice, bool marcado);
  // Checks the operations of these codes (and so their modules); false when a code
  // isn't in the tree.
  bool MarcarOperaciones(const std::vector<int> &codigos);
  void MarcarTodo();
  bool HayMarcados() const;

private:
  std::vector<NodoArbol> nodos_;
};
