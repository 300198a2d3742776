#include "Relevo.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace {

sockaddr_in Bucle(std::uint16_t puerto) {
  sockaddr_in dir{};
  dir.sin_family = AF_INET;
  dir.sin_port = htons(puerto);
  dir.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return dir;
}

// A server that answers each message with the same bytes, on a loopback port, for one
// connection.
class Eco {
public:
  Eco() {
    escucha_ = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in dir = Bucle(0);
    socklen_t largo = sizeof dir;
    ::bind(escucha_, reinterpret_cast<sockaddr *>(&dir), sizeof dir);
    ::listen(escucha_, 1);
    ::getsockname(escucha_, reinterpret_cast<sockaddr *>(&dir), &largo);
    puerto_ = ntohs(dir.sin_port);
    hilo_ = std::thread([this] {
      const int c = ::accept(escucha_, nullptr, nullptr);
      char buffer[256];
      for (ssize_t n; c >= 0 && (n = ::read(c, buffer, sizeof buffer)) > 0;)
        if (::write(c, buffer, static_cast<std::size_t>(n)) != n)
          break;
      if (c >= 0)
        ::close(c);
    });
  }
  ~Eco() {
    hilo_.join();
    ::close(escucha_);
  }
  std::uint16_t Puerto() const { return puerto_; }

private:
  int escucha_ = -1;
  std::uint16_t puerto_ = 0;
  std::thread hilo_;
};

int Conectar(std::uint16_t puerto) {
  const int s = ::socket(AF_INET, SOCK_STREAM, 0);
  const sockaddr_in dir = Bucle(puerto);
  if (::connect(s, reinterpret_cast<const sockaddr *>(&dir), sizeof dir) != 0) {
    ::close(s);
    return -1;
  }
  return s;
}

// Sends a message and reads the answer of as many bytes.
std::string Preguntar(int s, const std::string &mensaje) {
  if (::write(s, mensaje.data(), mensaje.size()) != static_cast<ssize_t>(mensaje.size()))
    return {};
  std::string respuesta;
  char buffer[256];
  while (respuesta.size() < mensaje.size()) {
    const ssize_t n = ::read(s, buffer, sizeof buffer);
    if (n <= 0)
      break;
    respuesta.append(buffer, static_cast<std::size_t>(n));
  }
  return respuesta;
}

} // namespace

TEST(Relevo, PassesTheBytesBothWaysAndCountsEachQuestionAndItsAnswerAsOneTrip) {
  Eco eco;
  banco::Relevo relevo(eco.Puerto(), 0);
  const int s = Conectar(relevo.Puerto());
  ASSERT_GE(s, 0);
  EXPECT_EQ(Preguntar(s, "SELECT 1"), "SELECT 1");
  EXPECT_EQ(Preguntar(s, "SELECT 2"), "SELECT 2");
  EXPECT_EQ(Preguntar(s, "SELECT 3"), "SELECT 3");
  EXPECT_EQ(relevo.IdasYVueltas(), 3);
  // A long message goes whole, in one trip or more: the server may answer its first part
  // while the rest is still on its way.
  EXPECT_EQ(Preguntar(s, std::string(100000, 'x')), std::string(100000, 'x'));
  EXPECT_GE(relevo.IdasYVueltas(), 4);
  ::close(s);
}

TEST(Relevo, AddedLatencyKeepsTheBytesAndTheirOrder) {
  Eco eco;
  banco::Relevo relevo(eco.Puerto(), 4);
  EXPECT_EQ(relevo.LatenciaMs(), 4);
  const int s = Conectar(relevo.Puerto());
  ASSERT_GE(s, 0);
  for (int i = 0; i < 5; ++i) {
    const std::string mensaje = "mensaje " + std::to_string(i);
    EXPECT_EQ(Preguntar(s, mensaje), mensaje);
  }
  EXPECT_EQ(relevo.IdasYVueltas(), 5);
  ::close(s);
}

TEST(Relevo, WithoutTheServerTheConnectionIsClosedAndNothingIsCounted) {
  // A port that was just free: nothing listens on it.
  std::uint16_t libre = 0;
  {
    const int s = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in dir = Bucle(0);
    socklen_t largo = sizeof dir;
    ::bind(s, reinterpret_cast<sockaddr *>(&dir), sizeof dir);
    ::getsockname(s, reinterpret_cast<sockaddr *>(&dir), &largo);
    libre = ntohs(dir.sin_port);
    ::close(s);
  }
  banco::Relevo relevo(libre, 0);
  const int s = Conectar(relevo.Puerto());
  ASSERT_GE(s, 0);
  char c = 0;
  EXPECT_EQ(::read(s, &c, 1), 0);
  EXPECT_EQ(relevo.IdasYVueltas(), 0);
  ::close(s);
}
