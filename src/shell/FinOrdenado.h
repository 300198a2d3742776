#pragma once

#include <functional>

// What a fatal error leaves open is closed in order before the process ends: every open
// transaction undone, every open file flushed and closed, then every connection closed.
// Connections and the run's log stand here while they are open.
class Cerrable {
public:
  enum class Fase { Transacciones, Archivos, Conexiones };
  // Does what the phase asks of this object, if anything; never throws.
  virtual void CerrarAlTerminar(Fase fase) noexcept = 0;

protected:
  Cerrable();
  ~Cerrable();
  Cerrable(const Cerrable &) = delete;
  Cerrable &operator=(const Cerrable &) = delete;
};

// Closes what is open, phase by phase, then ends the process with the code.
[[noreturn]] void TerminarProceso(int codigo);
// How the process ends after the closing: std::exit, unless a test puts its own (which
// must not return).
void InstalarSalida(std::function<void(int)> salida);
