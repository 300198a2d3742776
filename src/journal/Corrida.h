#pragma once

#include "journal/Documento.h"
#include "journal/Renglones.h"
#include "shell/Dinero.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioConexion.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <array>
#include <vector>

// The state of a generation run: what the run's screen keeps in its own fields, held
// here so that the engine works without the screen. The screen (or the command line)
// owns one Corrida for as long as it is loaded; every routine of the run takes it.

// A text in a field of fixed width: cut at the width, or filled with blanks up to it.
QString TextoFijo(const QString &texto, int ancho);

// A text for a field of an in-memory set with a length: a longer text doesn't fit and
// ends the process, as the set refuses it.
QString TextoDeCampo(const QString &texto, int largo, const char *campo);

// An in-memory record set with a client cursor: rows are added at the end, and the
// cursor is moved by hand. A fresh set has no rows and stands at its end.
template <typename Fila> class ConjuntoMemoria {
public:
  // Drops every row: the set is declared anew.
  void Crear() {
    filas_.clear();
    pos_ = 0;
  }
  // Adds a row at the end and stands on it.
  Fila &Agregar(Fila fila) {
    filas_.push_back(std::move(fila));
    pos_ = filas_.size() - 1;
    return filas_.back();
  }
  // BOF and EOF together: no rows.
  bool Vacio() const { return filas_.empty(); }
  // EOF: the cursor is past the last row.
  bool Fin() const { return pos_ >= filas_.size(); }
  // The cursor on a row: what a routine that works on "the row in hand" asks first.
  bool HayActual() const { return !Fin(); }
  void Primero() { pos_ = 0; }
  void Siguiente() {
    if (Fin())
      throw ErrorFatal(QStringLiteral("No hay registro actual: el conjunto está en su fin."));
    ++pos_;
  }
  Fila &Actual() {
    if (Fin())
      throw ErrorFatal(QStringLiteral("No hay registro actual: el conjunto está en su fin."));
    return filas_[pos_];
  }
  int Cuenta() const { return static_cast<int>(filas_.size()); }
  const std::vector<Fila> &Filas() const { return filas_; }
  // The place of the cursor among Filas(): Cuenta() at the end.
  std::size_t Posicion() const { return pos_; }

private:
  std::vector<Fila> filas_;
  std::size_t pos_ = 0;
};

// A rule of the run, as the run gathers it from the checked operations.
struct ConceptoRegla {
  int Modulo = 0;
  QString DesModulo;
  int CodOper = 0;
  QString DesOperacion; // 40 characters fixed: TextoFijo(caption, 40)
  bool GeneraCon = false;
  int CodPol = 0;
  QString Concepto;
  QString DesConcepto; // 30 characters fixed (DescripcionRegla)
  QString TipPoliza;
  int Frec = 0;
};

// A row of the rule in work.
struct RenglonRegla {
  int CodDato = 0;
  QString CuentaDebe, CuentaHaber;
  QString RubroDebe, RubroHaber;
  QString DesDato;
  int CampoEstBd = 0;
  bool TieneDebe = false;  // RubroDebe has a length above 0
  bool TieneHaber = false; // RubroHaber has a length above 0
};

struct Corrida {
  static constexpr int kMaxOperacion = 200;
  static constexpr int kMaxConceptos = 200;
  static constexpr int kMaxReglas = 100;

  // The company database, open while the run's screen is loaded.
  ConexionPtr Conexion;
  // The reference database with the data dictionary: opened by CampoDeDato at its
  // first need and kept for the rest of the run; the run drops it when it ends.
  ConexionPtr Referencia;
  // The run remembers the lookups of the tables it never writes (OpcionesGeneracion).
  bool MemoriaLecturas = false;

  // The rule in work (index into Conceptos) and the number of rules of the run.
  int ConceptoActual = 0;
  int NumConceptos = 0;
  bool HuboPolizas = false;

  // Sources of documents by COD_OPER; codes 1 to 30 are filled (CargarOperaciones).
  std::array<OperacionFuente, kMaxOperacion + 1> Operaciones;
  // The rules of the run, from index 1.
  std::array<ConceptoRegla, kMaxConceptos + 1> Conceptos;
  // The rows of the rule in work, from index 1, and how many there are.
  std::array<RenglonRegla, kMaxReglas + 1> Reglas;
  int NumReglas = 0;

  // Documents of the rule in work (LeerDocumentos) and lines of the entry in work.
  ConjuntoMemoria<Documento> Documentos;
  ConjuntoMemoria<RenglonEnTrabajo> Renglones;

  QDateTime FechaAnterior;  // FECHA_CONTAB of a document already posted
  QString FolioDocumento;   // folio of the document in work (the day's first, by day)
  QDateTime FechaDocumento; // date of the document in work
  Dinero ImporteAntDebe, ImporteAntHaber;
  Dinero SumaDebe, SumaHaber;
  // The first three COD_IMP of tblImpuestos; 0 while there are fewer.
  int ImpuestoUno = 0, ImpuestoDos = 0, ImpuestoTres = 0;
  // The period of the run.
  QDate FechaInicial, FechaFinal;

  // The source of an operation; a code outside the table ends the process.
  OperacionFuente &Operacion(int codOper);
  // The rule in work, and the source of its operation.
  ConceptoRegla &Concepto();
  OperacionFuente &OperacionActual();
  // A row of the rule in work, from 1 to NumReglas.
  RenglonRegla &Regla(int renglon);
  // Posting by day: the key of the amounts is a date literal, not a folio.
  bool PorDia();

  // Clears the rules of the run; the count starts again from 0.
  void LimpiarConceptos();
  // Adds a rule; the 201st ends the process.
  void AgregarConcepto(const ConceptoRegla &concepto);
  // Clears the rows of the rule in work.
  void LimpiarReglas();
  // Adds a row to the rule in work; the 101st ends the process.
  void AgregarRegla(const RenglonRegla &renglon);
};

// Loads the rows of the rule in work, in the order of their creation, each with the
// description and dictionary field of its datum (0 for a datum without a row).
void CargarReglas(Corrida &corrida);
