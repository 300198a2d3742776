#include "shell/FinOrdenado.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {
std::vector<Cerrable *> &Abiertos() {
  static std::vector<Cerrable *> abiertos;
  return abiertos;
}
std::function<void(int)> &Salida() {
  static std::function<void(int)> salida;
  return salida;
}
} // namespace

Cerrable::Cerrable() { Abiertos().push_back(this); }

Cerrable::~Cerrable() { std::erase(Abiertos(), this); }

void InstalarSalida(std::function<void(int)> salida) { Salida() = std::move(salida); }

void TerminarProceso(int codigo) {
  for (Cerrable::Fase fase :
       {Cerrable::Fase::Transacciones, Cerrable::Fase::Archivos, Cerrable::Fase::Conexiones})
    for (Cerrable *c : Abiertos())
      c->CerrarAlTerminar(fase);
  if (Salida())
    Salida()(codigo);
  std::exit(codigo);
}
