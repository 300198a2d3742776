#pragma once

#include <QString>
#include <unordered_map>
#include <utility>
#include <vector>

struct Grabadora;
struct sqlite3;

// The floor under a run: the same statement texts, in the same order, through the same
// driver, with nothing of the program around them.
namespace banco {

// The statements of a run, kept end to end in one text. The recorder's list is emptied
// into it as the run goes (after every document, or every journal line of an export):
// hundreds of thousands of texts, each alive in an allocation of its own, slow down the
// allocator that the engine and the driver share, and with it the very run being
// measured, by a fifth at 32,000 documents.
class Sentencias {
public:
  void Tomar(Grabadora &grabadora);
  qsizetype Cuenta() const { return static_cast<qsizetype>(partes_.size()); }
  QString Sentencia(qsizetype i) const;

  // The rows that the run read of each statement, when they are known.
  void FijarFilas(std::vector<qint64> filas) { filas_ = std::move(filas); }
  bool HayFilas() const { return !filas_.empty(); }
  qint64 Filas(qsizetype i) const { return filas_[static_cast<std::size_t>(i)]; }

private:
  QString texto_;
  std::vector<std::pair<qsizetype, qsizetype>> partes_; // where each one starts, its length
  std::vector<qint64> filas_;
};

// Counts, on the embedded engine, the rows that each statement of the program's
// connection gives, while it is alive: the rows that the program read, since a record
// set fetches a row only when it moves to it. It follows the one connection open when it
// is made; on other engines it counts nothing.
class RastreoFilas {
public:
  RastreoFilas();
  ~RastreoFilas();
  RastreoFilas(const RastreoFilas &) = delete;
  RastreoFilas &operator=(const RastreoFilas &) = delete;

  // The count of each statement, in the order in which they began; empty when nothing
  // was followed.
  const std::vector<qint64> &Filas() const { return filas_; }

private:
  static int Anotar(unsigned tipo, void *contexto, void *sentencia, void *);
  sqlite3 *base_ = nullptr;
  std::vector<qint64> filas_;
  std::unordered_map<void *, std::size_t> enCurso_; // statement of the engine, its place
};

struct Repeticion {
  double segundos = 0;
  qint64 rechazadas = 0; // statements the database refused, as it refused them in the run
};

// Sends the texts to the company database of the session (gConexion) on a connection of
// its own, opened as the program opens its connections: each text in a forward-only
// query with the program's numeric precision, reading every column of the rows that the
// run read of it, or of all its rows where those aren't known.
Repeticion Repetir(const Sentencias &sentencias);

} // namespace banco
