#pragma once

#include "journal/Bitacora.h"
#include "journal/OpcionesGeneracion.h"
#include "shell/ServicioConexion.h"

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <utility>
#include <vector>

struct Corrida;
struct Documento;
class ArbolOperaciones;

// How far a run has got: the rule in work of how many, and documents done of it.
struct AvanceGeneracion {
  int regla = 0;
  int reglas = 0;
  int documento = 0;
  int documentos = 0;
  int polizas = 0; // entries written so far in the run
  QString descripcion;
};

// What the run tells its caller at the end.
struct ResultadoGeneracion {
  bool corrio = false;          // false when nothing was checked, the log was refused or the
                                // company's generation was taken by another run
  QString candado;              // the lock another run holds, when that was why; empty otherwise
  bool hubo = false;            // an entry was written (message 108), else 5508
  int polizas = 0;              // entries written or redone in this run
  QString bitacora;             // the log file used
  bool bitacoraEscrita = false; // false when it could not be opened: the run went on without
  bool detenida = false;        // stopped by the user between two entries
};

// The tables a run reads and never writes: the chart, the bank accounts, the rules, their
// data and operations, the taxes and the company. Within a run their lookups are
// answered once (OpcionesGeneracion::Memoria).
const QStringList &TablasDeLectura();

// The generation run: turns the documents of a period into journal entries by the
// rules of the checked operations. It works on the run's state (Corrida) with the
// options the screen gives, and writes the log as it goes.
class Generador {
public:
  Generador(Corrida &corrida, const OpcionesGeneracion &opciones);

  // Called after each document or day, and at the start of each rule.
  std::function<void(const AvanceGeneracion &)> avance;
  // Asked between two entries: true stops the run there. What was written stays whole,
  // the log tells where the run stopped, and a later run posts the rest.
  std::function<bool()> detener;

  // The whole run: rules of the checked operations, log, every rule, end message.
  ResultadoGeneracion GenerarPolizas(const ArbolOperaciones &arbol);
  // Gathers the rules of the checked operations into Conceptos.
  void LeerConceptos(const ArbolOperaciones &arbol);
  // One rule: its documents, then posting by its frequency.
  void ProcesarConcepto(int n);

  bool PostearPorDocumento(int n);
  bool PostearPorDia(int n);

  // A posted entry is taken up again: its earlier date and amounts carried, its old lines
  // deleted as the first write of the entry in work. Gives its folio.
  QString RehacerPoliza(const Documento &doc);
  // The next folio of the rule's journal type; empty when the type has no row.
  QString SiguienteFolio(int concepto);
  // Header, then lines, log row and, by document, record and log of the entry. The
  // date may change to the defined date. Returns the folio, empty on failure.
  QString GrabarPoliza(QDateTime &fecha);
  // The entry's writes after its header and counter, added to its step in their order: its
  // lines, its log row and, by document, the document's record and stamp.
  void GrabarResto(const QString &folio, const QDateTime &fecha,
                   std::vector<Conexion::Escritura> &pasos);
  // Each of those writes.
  void GrabarRenglones(const QString &folio, std::vector<Conexion::Escritura> &pasos);
  void GrabarBitacora(const QString &folio, const QDateTime &fecha,
                      std::vector<Conexion::Escritura> &pasos);
  void GrabarMovimiento(const QString &folio, const QDateTime &fecha,
                        std::vector<Conexion::Escritura> &pasos);

  Bitacora &Log() { return bitacora_; }
  // The entries written or redone by this run, as journal type and folio, in their order.
  const std::vector<std::pair<QString, QString>> &Escritas() const { return escritas_; }

private:
  QString Fecha(const QDateTime &f) const;
  // Sends the writes of the day's documents gathered so far, and forgets them.
  void EscribirDelDia(std::vector<Conexion::Escritura> &pasos);
  // The same, then the day confirmed; `folio`, the day's entry when it has one.
  void ConfirmarDia(std::vector<Conexion::Escritura> &pasos, const QString &folio);
  void Avisar(int documento);
  // Asks `detener` once the entry in work is written; remembers a yes.
  bool Detenida();

  Corrida &c_;
  OpcionesGeneracion op_;
  Bitacora bitacora_;
  AvanceGeneracion estado_;
  int polizas_ = 0;
  std::vector<std::pair<QString, QString>> escritas_;
  // The folio this run last wrote to the counter of each journal type.
  QHash<QString, QString> contadores_;
  bool detenida_ = false;
};

// What a run is told when another holds the company's generation.
QString MensajeGeneracionEnCurso(const QString &candado);

// The whole number that tblMovimxPoliza keeps of a folio: 0 for an empty one; beyond a
// 32-bit integer the conversion fails and ends the process.
int FolioComoNumero(const QString &folio);
