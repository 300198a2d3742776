#pragma once

#include <atomic>
#include <cstdint>
#include <thread>

namespace banco {

// A TCP forwarder of the benchmark's own between the ODBC driver and the database
// server: it listens on a loopback port, opens a connection to the server for each one it
// takes, and passes the bytes both ways, each one half the added latency later. It counts
// the round trips: every time the client speaks again after the server answered.
class Relevo {
public:
  // Starts forwarding to the server's loopback port; ErrorFatal when it can't listen.
  Relevo(std::uint16_t puertoServidor, int latenciaMs);
  ~Relevo();
  Relevo(const Relevo &) = delete;
  Relevo &operator=(const Relevo &) = delete;

  std::uint16_t Puerto() const { return puerto_; }
  int LatenciaMs() const { return latenciaMs_; }
  // Round trips of every connection since the relay started.
  std::int64_t IdasYVueltas() const { return idas_.load(); }

private:
  void Correr();

  std::uint16_t puertoServidor_;
  int latenciaMs_;
  int escucha_ = -1;
  int despertar_[2] = {-1, -1}; // a pipe whose write end wakes the loop to stop
  std::uint16_t puerto_ = 0;
  std::atomic<std::int64_t> idas_{0};
  std::thread hilo_;
};

} // namespace banco
