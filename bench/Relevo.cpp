#include "Relevo.h"

#include "shell/ErrorFatal.h"

#include <QString>
#include <arpa/inet.h>
#include <cerrno>
#include <chrono>
#include <deque>
#include <fcntl.h>
#include <list>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace banco {
namespace {

using Reloj = std::chrono::steady_clock;

// Bytes read at one moment, to be passed on when their latency has gone by.
struct Trozo {
  Reloj::time_point listo;
  std::string bytes;
};

// One way of a connection: what waits out its latency, and what is due but not yet
// taken by the other end.
struct Sentido {
  std::deque<Trozo> espera;
  std::string salida;
  bool cerrado = false; // the end it comes from has closed
  bool Vacio() const { return espera.empty() && salida.empty(); }
};

// A connection of the driver and the one the relay opened to the server for it.
struct Par {
  int cliente = -1;
  int servidor = -1;
  Sentido subida;        // client to server
  Sentido bajada;        // server to client
  bool respondio = true; // the server spoke last: the client's next bytes begin a trip
};

// The pairs open, closed with the loop however it ends.
struct Pares : std::list<Par> {
  Pares() = default;
  Pares(const Pares &) = delete;
  Pares &operator=(const Pares &) = delete;
  ~Pares() {
    for (Par &p : *this) {
      ::close(p.cliente);
      ::close(p.servidor);
    }
  }
};

void SinEspera(int fd) {
  fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) | O_NONBLOCK);
  const int uno = 1;
  setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &uno, sizeof uno);
}

sockaddr_in Bucle(std::uint16_t puerto) {
  sockaddr_in dir{};
  dir.sin_family = AF_INET;
  dir.sin_port = htons(puerto);
  dir.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return dir;
}

// Passes on what is due; false when the other end is gone.
bool Escribir(int fd, Sentido &s) {
  while (!s.salida.empty()) {
    const ssize_t n = ::write(fd, s.salida.data(), s.salida.size());
    if (n < 0)
      return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
    s.salida.erase(0, static_cast<std::size_t>(n));
  }
  return true;
}

void Liberar(Sentido &s, Reloj::time_point ahora) {
  while (!s.espera.empty() && s.espera.front().listo <= ahora) {
    s.salida += s.espera.front().bytes;
    s.espera.pop_front();
  }
}

// Reads what an end has; false when it closed or failed.
bool Leer(int fd, Sentido &s, Reloj::time_point listo) {
  char buffer[65536];
  for (;;) {
    const ssize_t n = ::read(fd, buffer, sizeof buffer);
    if (n > 0) {
      s.espera.push_back({listo, std::string(buffer, static_cast<std::size_t>(n))});
      continue;
    }
    if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR))
      return true;
    return false;
  }
}

} // namespace

Relevo::Relevo(std::uint16_t puertoServidor, int latenciaMs)
    : puertoServidor_(puertoServidor), latenciaMs_(latenciaMs) {
  escucha_ = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in dir = Bucle(0);
  socklen_t largo = sizeof dir;
  if (escucha_ < 0 || ::bind(escucha_, reinterpret_cast<sockaddr *>(&dir), sizeof dir) != 0 ||
      ::listen(escucha_, 16) != 0 ||
      ::getsockname(escucha_, reinterpret_cast<sockaddr *>(&dir), &largo) != 0 ||
      ::pipe(despertar_) != 0) {
    if (escucha_ >= 0)
      ::close(escucha_);
    throw ErrorFatal(QStringLiteral("El relevo de la red no pudo escuchar en un puerto local."));
  }
  puerto_ = ntohs(dir.sin_port);
  hilo_ = std::thread([this] { Correr(); });
}

Relevo::~Relevo() {
  const char fin = 0;
  while (::write(despertar_[1], &fin, 1) < 0 && errno == EINTR) {
  }
  hilo_.join();
  ::close(despertar_[0]);
  ::close(despertar_[1]);
  ::close(escucha_);
}

void Relevo::Correr() {
  const auto medio = std::chrono::microseconds(latenciaMs_ * 500);
  Pares pares;
  std::vector<pollfd> vigilados;
  std::vector<Par *> dueno; // the pair of each watched descriptor after the first two
  for (;;) {
    const Reloj::time_point ahora = Reloj::now();
    // What is due goes out at once; the next moment something is due bounds the wait.
    Reloj::time_point proximo = Reloj::time_point::max();
    for (Par &p : pares) {
      Liberar(p.subida, ahora);
      Liberar(p.bajada, ahora);
      if (!Escribir(p.servidor, p.subida))
        p.subida.cerrado = p.bajada.cerrado = true;
      if (!Escribir(p.cliente, p.bajada))
        p.subida.cerrado = p.bajada.cerrado = true;
      for (const Sentido *s : {&p.subida, &p.bajada})
        if (!s->espera.empty())
          proximo = std::min(proximo, s->espera.front().listo);
    }
    // A pair goes when one end has closed and what it said has been passed on.
    for (auto it = pares.begin(); it != pares.end();) {
      const bool terminado =
          (it->subida.cerrado && it->subida.Vacio()) || (it->bajada.cerrado && it->bajada.Vacio());
      if (!terminado) {
        ++it;
        continue;
      }
      ::close(it->cliente);
      ::close(it->servidor);
      it = pares.erase(it);
    }

    vigilados.assign({{despertar_[0], POLLIN, 0}, {escucha_, POLLIN, 0}});
    dueno.clear();
    for (Par &p : pares) {
      const short cliente = static_cast<short>((p.subida.cerrado ? 0 : POLLIN) |
                                               (p.bajada.salida.empty() ? 0 : POLLOUT));
      const short servidor = static_cast<short>((p.bajada.cerrado ? 0 : POLLIN) |
                                                (p.subida.salida.empty() ? 0 : POLLOUT));
      vigilados.push_back({p.cliente, cliente, 0});
      vigilados.push_back({p.servidor, servidor, 0});
      dueno.push_back(&p);
    }
    timespec espera{};
    timespec *limite = nullptr;
    if (proximo != Reloj::time_point::max()) {
      const auto falta =
          std::max(std::chrono::nanoseconds(0), std::chrono::nanoseconds(proximo - Reloj::now()));
      espera.tv_sec = static_cast<time_t>(falta.count() / 1000000000);
      espera.tv_nsec = static_cast<long>(falta.count() % 1000000000);
      limite = &espera;
    }
    if (::ppoll(vigilados.data(), vigilados.size(), limite, nullptr) < 0 && errno != EINTR)
      return;
    if (vigilados[0].revents != 0)
      return;
    if (vigilados[1].revents & POLLIN) {
      const int cliente = ::accept(escucha_, nullptr, nullptr);
      const int servidor = cliente < 0 ? -1 : ::socket(AF_INET, SOCK_STREAM, 0);
      const sockaddr_in dir = Bucle(puertoServidor_);
      if (servidor >= 0 &&
          ::connect(servidor, reinterpret_cast<const sockaddr *>(&dir), sizeof dir) == 0) {
        SinEspera(cliente);
        SinEspera(servidor);
        pares.push_back({});
        pares.back().cliente = cliente;
        pares.back().servidor = servidor;
      } else {
        // No server: the driver sees its connection closed and reports it.
        if (servidor >= 0)
          ::close(servidor);
        if (cliente >= 0)
          ::close(cliente);
      }
    }
    const Reloj::time_point leido = Reloj::now();
    for (std::size_t i = 0; i < dueno.size(); ++i) {
      Par &p = *dueno[i];
      const pollfd &cliente = vigilados[2 + 2 * i];
      const pollfd &servidor = vigilados[3 + 2 * i];
      if (cliente.revents & (POLLIN | POLLHUP | POLLERR)) {
        const std::size_t antes = p.subida.espera.size();
        p.subida.cerrado = !Leer(p.cliente, p.subida, leido + medio) || p.subida.cerrado;
        if (p.subida.espera.size() > antes && p.respondio) {
          ++idas_;
          p.respondio = false;
        }
      }
      if (servidor.revents & (POLLIN | POLLHUP | POLLERR)) {
        const std::size_t antes = p.bajada.espera.size();
        p.bajada.cerrado = !Leer(p.servidor, p.bajada, leido + medio) || p.bajada.cerrado;
        if (p.bajada.espera.size() > antes)
          p.respondio = true;
      }
    }
  }
}

} // namespace banco
