#include "journal/Arbol.h"

#include "shell/ServicioConexion.h"

#include <algorithm>

void ArbolOperaciones::CargarArbol(Conexion &con) {
  nodos_.clear();
  Registros r = con.Abrir(QStringLiteral(
      "SELECT DISTINCT COD_MODUL,DES_MODUL,tblCatOperaciones.COD_OPER,DES_OPER,CONCEPTO FROM "
      "((tblModulos INNER JOIN tblCatOperaciones ON "
      "tblModulos.COD_MODUL=tblCatOperaciones.MODULO) INNER JOIN tblOperacionxConcep ON "
      "tblCatOperaciones.COD_OPER=tblOperacionxConcep.COD_OPER) INNER JOIN tblRubrosxOperacion "
      "ON tblOperacionxConcep.COD_POL=tblRubrosxOperacion.COD_POL  WHERE (COD_MODUL<10) ORDER BY "
      "COD_MODUL,tblCatOperaciones.COD_OPER;"));
  int moduloActual = -1;
  int operacionActual = -1;
  int indiceModulo = -1;
  for (; !r.Fin(); r.Siguiente()) {
    const int modulo = static_cast<int>(r.Campo(QStringLiteral("COD_MODUL")).Entero());
    const int oper = static_cast<int>(r.Campo(QStringLiteral("COD_OPER")).Entero());
    if (modulo != moduloActual || indiceModulo < 0) {
      NodoArbol m;
      m.codigo = modulo;
      m.clave = QStringLiteral("M%1").arg(modulo);
      m.texto = r.Campo(QStringLiteral("DES_MODUL")).Texto();
      nodos_.push_back(m);
      indiceModulo = static_cast<int>(nodos_.size()) - 1;
      moduloActual = modulo;
      operacionActual = -1;
    }
    if (oper != operacionActual) {
      NodoArbol o;
      o.codigo = oper;
      o.clave = QStringLiteral("O%1").arg(oper);
      o.texto = r.Campo(QStringLiteral("DES_OPER")).Texto();
      o.padre = indiceModulo;
      nodos_.push_back(o);
      operacionActual = oper;
    }
  }
}

void ArbolOperaciones::Marcar(int indice, bool marcado) {
  if (indice < 0 || indice >= static_cast<int>(nodos_.size()))
    return;
  NodoArbol &nodo = nodos_[indice];
  nodo.marcado = marcado;
  if (nodo.EsModulo()) {
    if (marcado)
      nodo.expandido = true;
    for (NodoArbol &n : nodos_) {
      if (n.padre == indice)
        n.marcado = marcado;
    }
    return;
  }
  NodoArbol &modulo = nodos_[nodo.padre];
  if (marcado) {
    modulo.marcado = true;
    return;
  }
  modulo.marcado = std::any_of(nodos_.begin(), nodos_.end(), [&](const NodoArbol &n) {
    return n.padre == nodo.padre && n.marcado;
  });
}

bool ArbolOperaciones::MarcarOperaciones(const std::vector<int> &codigos) {
  bool todas = true;
  for (int codigo : codigos) {
    bool hallada = false;
    for (int i = 0; i < static_cast<int>(nodos_.size()); ++i) {
      if (!nodos_[i].EsModulo() && nodos_[i].codigo == codigo) {
        Marcar(i, true);
        hallada = true;
      }
    }
    todas = todas && hallada;
  }
  return todas;
}

void ArbolOperaciones::MarcarTodo() {
  for (int i = 0; i < static_cast<int>(nodos_.size()); ++i) {
    if (nodos_[i].EsModulo())
      Marcar(i, true);
  }
}

bool ArbolOperaciones::HayMarcados() const {
  return std::any_of(nodos_.begin(), nodos_.end(), [](const NodoArbol &n) { return n.marcado; });
}
