#pragma once

#include "shell/Dialecto.h"
#include "shell/Dinero.h"
#include "shell/ErrorFatal.h"
#include "shell/FinOrdenado.h"
#include "shell/Odbc.h"

#include <QDate>
#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

// One value read from a record set, with the conversions the family's code uses.
class Valor {
public:
  Valor() = default;
  Valor(QVariant v, QString campo) : v_(std::move(v)), campo_(std::move(campo)) {}

  bool EsNulo() const { return v_.isNull(); }
  // The value joined with an empty text: Null gives "".
  QString Texto() const;
  // Whole number; Null or a text that is no number is a failed conversion (fatal).
  qint64 Entero() const;
  // Money; Null or a text that is no number is a failed conversion (fatal).
  Dinero ComoDinero() const;
  // Date; Null or an invalid date gives an invalid QDate.
  QDate Fecha() const;
  // The numeric value of the text (Val): Null and non-numbers give 0.
  double Numero() const;
  // A flag: any non-zero number is true.
  bool Logico() const { return Numero() != 0.0; }
  const QVariant &Variante() const { return v_; }

  // The same conversions on a bare value, for a loop that reads many rows without naming
  // each value: the field's name only goes into a failure's message.
  static QString Texto(const QVariant &v);
  static Dinero ComoDinero(const QVariant &v, const QString &campo);

private:
  QVariant v_;
  QString campo_;
};

// A forward-only, read-only record set. Fresh from the query it stands on the
// first row; EOF after the last one. Vacio() is BOF and EOF together.
class Registros {
public:
  // Stands on a query that has run, through Qt or straight through ODBC.
  Registros(std::shared_ptr<QSqlQuery> consulta, QString sentencia);
  Registros(std::unique_ptr<odbc::Cursor> cursor, QString sentencia);
  // The rows of a query read before, with the names of their columns.
  struct Leidas {
    QStringList nombres;
    std::vector<std::vector<QVariant>> filas;
  };
  Registros(std::shared_ptr<const Leidas> leidas, QString sentencia);
  // A query that its connection keeps compiled is left finished: it holds no read open.
  ~Registros();
  Registros(Registros &&) noexcept = default;
  // Not assigned: the record set it would replace must finish its statement first.
  Registros &operator=(Registros &&) = delete;
  bool Vacio() const { return vacio_; }
  bool Fin() const { return fin_; }
  void Siguiente();
  // A field of the current row by name, without regard to case; an unknown name is fatal.
  Valor Campo(const QString &nombre) const;
  // The place of a field among the columns, found as Campo finds it; a loop over many
  // rows finds it once and reads each row by it.
  qsizetype Indice(const QString &nombre) const;
  Valor Campo(qsizetype indice) const;
  // The bare value of a field by its place, for a loop that only compares it with the
  // row before. Qt's query gives its row at once; the rest goes the long way.
  QVariant Variante(qsizetype indice) const {
    if (q_ && !fin_)
      return q_->value(static_cast<int>(indice));
    return VarianteFueraDeQt(indice);
  }
  bool TieneCampo(const QString &nombre) const;
  QStringList Campos() const { return Nombres(); }

private:
  void LeerFila();
  const QStringList &Nombres() const;
  QVariant VarianteFueraDeQt(qsizetype indice) const;
  std::shared_ptr<QSqlQuery> q_;
  std::unique_ptr<odbc::Cursor> c_;
  std::shared_ptr<const Leidas> leidas_;
  std::size_t filaLeida_ = 0;
  QString sentencia_;
  // Qt's query gives its columns' names when they are first asked for: a lookup read by
  // the place of its one column never needs them.
  mutable QStringList nombres_;
  mutable bool conNombres_ = true;
  std::vector<QVariant> fila_;
  bool vacio_ = true;
  bool fin_ = true;
};

class Conexion;

// An exclusive lock on one kind of work in one company database, seen by every
// workstation: a lock file beside the database on the embedded engine, GET_LOCK on
// MySQL and MariaDB, sp_getapplock on SQL Server. It is held until it is destroyed, or
// until its connection or its process ends, however they end.
class Candado {
public:
  virtual ~Candado() = default;
  // The lock's name, as a message names it.
  const QString &Nombre() const { return nombre_; }

protected:
  explicit Candado(QString nombre) : nombre_(std::move(nombre)) {}

private:
  QString nombre_;
};

// The switch that sends every statement by itself: "1" in the environment.
inline constexpr char kVariableUnaAUna[] = "ESCRIBANO_SENTENCIAS_UNA_A_UNA";

// Keeps every statement text sent through any connection, in order, while installed.
struct Grabadora {
  QStringList sentencias;
};

// A connection to one database, private to the routine or screen that opened it.
class Conexion final : public Cerrable {
public:
  Conexion(QString nombreQt, int motor, QString texto);
  ~Conexion();
  Conexion(const Conexion &) = delete;
  Conexion &operator=(const Conexion &) = delete;

  // The engine: 3 SQL Server, 4 MySQL, 5 SQLite, 0 the general or reference database.
  int Motor() const { return motor_; }
  // Every difference of the engine's SQL: date literals, length, locks, DDL.
  const ::Dialecto &Dialecto() const { return dialecto_; }
  const QString &Texto() const { return texto_; }

  // Runs a statement that returns no rows; a failure ends the process. Gives the
  // number of rows it reports as affected.
  int Ejecutar(const QString &sql);
  // One write of a step of a run. Alone it is `sql`. With a `consulta`, `sql` runs when the
  // query finds a row and `otra` when it finds none. With `intentar`, a failure of the
  // statement that would run last (`otra`, or `sql` without a query) is dropped. With
  // `porPartes`, a failure of `sql` inside a transaction that still stands runs those
  // statements one at a time instead, each failure fatal.
  struct Escritura {
    QString sql;
    QString consulta;
    QString otra;
    bool intentar = false;
    QStringList porPartes;
    static Escritura Sola(QString sql) {
      Escritura e;
      e.sql = std::move(sql);
      return e;
    }
    static Escritura SegunHaya(QString consulta, QString siHay, QString siNo) {
      Escritura e;
      e.consulta = std::move(consulta);
      e.sql = std::move(siHay);
      e.otra = std::move(siNo);
      return e;
    }
  };
  // The writes of a step, in order. On a server that runs a block of statements as one
  // (MariaDB), inside a transaction and in batches, they go in one block whose writes stand
  // or fall together; a block that fails with the transaction standing goes again a
  // statement at a time, and whatever fails then fails as it always did. Elsewhere they go
  // a statement at a time.
  void EjecutarEscrituras(const std::vector<Escritura> &escrituras);
  // Whether the run is in batches on a server that runs blocks of statements (MariaDB,
  // which is asked once).
  bool EnBloques() { return EnLote() && Bloques(); }
  // A transaction, or its beginning or its end, in one exchange, on a server that runs
  // blocks (MariaDB) and in batches; false when nothing was sent. Reads sent with a
  // confirmation are read after it: their rows wait for a query of the same text, each
  // given once, until the next write, transaction or other read, and a read that failed in
  // the block is asked alone when it comes.
  // The whole transaction, with no transaction open: it begins, the writes go when every
  // condition (an SQL truth) holds, and it is confirmed. True when it was; false when a
  // condition failed or the server refused anything, and then nothing of it stands, no
  // transaction is open, and the caller goes the long way.
  bool ConfirmarEnUnBloque(const QStringList &condiciones, const std::vector<Escritura> &escrituras,
                           const QStringList &lecturas);
  // The same, the transaction left open after the writes.
  bool IniciarEnUnBloque(const QStringList &condiciones, const std::vector<Escritura> &escrituras);
  // The last writes of the transaction in course, then its confirmation: together where
  // the server runs blocks, otherwise as EjecutarEscrituras and ConfirmarTransaccion, the
  // reads left to be asked when they come.
  void ConfirmarConEscrituras(const std::vector<Escritura> &escrituras,
                              const QStringList &lecturas);
  // The end of the process that Ejecutar raises for a statement that failed so.
  static ErrorFatal FallaDeSentencia(const QString &sql, const QString &error);
  // The same under a local handler: false on failure, the error text in *error.
  bool IntentarEjecutar(const QString &sql, int *afectados = nullptr, QString *error = nullptr);
  // Opens a forward-only record set; a failure ends the process.
  Registros Abrir(const QString &sql);
  // The same under a local handler: no value on failure.
  std::unique_ptr<Registros> IntentarAbrir(const QString &sql, QString *error = nullptr);

  // The writes of one journal entry stand or fall together: between Iniciar and
  // Confirmar nothing is seen by others, and a run that dies in between leaves nothing of
  // the entry. Iniciar on an open transaction does nothing; Confirmar and Deshacer
  // without one do nothing. A connection closed with a transaction open undoes it.
  void IniciarTransaccion();
  void ConfirmarTransaccion();
  void DeshacerTransaccion();
  bool EnTransaccion() const { return enTransaccion_; }
  // After a statement failed inside a transaction: whether the database still holds the
  // transaction, or undid all of it with the statement.
  bool TransaccionViva();
  // A rehearsal: all that the connection writes from here on is undone by TerminarEnsayo,
  // and the transactions begun and confirmed inside it do neither.
  void IniciarEnsayo();
  void TerminarEnsayo();
  // At a fatal end: the entry in work undone, then the connection closed.
  void CerrarAlTerminar(Fase fase) noexcept override;

  // The memory of reads of one run: while it is on, a query that reads only the tables
  // named (ones the run never writes) and whose text was answered before is answered
  // again from memory, without the database; the memory goes when it is turned off.
  void RecordarLecturas(const QStringList &tablas);
  void OlvidarLecturas();

  // Answers given ahead. While a foreseer is set, a query of one total (a single SUM, with
  // no grouping, order or union) not answered yet goes to the database together with the
  // queries the foreseer expects next, as one statement of one row; each expected answer
  // waits for a query of its very text and is given to it once. When that statement fails,
  // the query goes again alone and fails as it would have. The foreseer names only queries
  // of tables nobody writes meanwhile. Without a foreseer the waiting answers go.
  using Previsor = std::function<QStringList(const QString &sql)>;
  void Prever(Previsor previsor);
  // Queries of the same columns asked in one statement, each one's rows apart and in the
  // order its query alone gives them; nothing when the statement fails, and each is then
  // asked alone. A query with an order of its own, a grouping or a union isn't joined.
  using Lecturas = std::vector<std::shared_ptr<const Registros::Leidas>>;
  std::optional<Lecturas> AbrirJuntas(const QStringList &consultas);

  // Takes the lock of a kind of work (for instance "generacion") on this company without
  // waiting: null when another connection holds it, with its name in *nombre.
  std::unique_ptr<Candado> TomarCandado(const QString &trabajo, QString *nombre);

  // The recorder in use by every connection, or none.
  static void InstalarGrabadora(Grabadora *g);
  // True when a run may ask in one statement what it would otherwise ask one document or
  // one folio at a time, and write many rows with one statement: the rows it leaves are the
  // same either way. ESCRIBANO_SENTENCIAS_UNA_A_UNA=1 sends every statement by itself, as
  // the runs always did, for the tests that compare both ways and for the benchmark.
  static bool EnLote();

private:
  void Grabar(const QString &sql) const;
  QSqlQuery Preparar(const QString &sql);
  // The rows of every row the record set has left, for the memory of reads.
  static std::shared_ptr<const Registros::Leidas> Leer(Registros &r);
  // True when the connection goes through ODBC: its statements go straight to the driver.
  bool Odbc() {
    Base();
    return odbc_;
  }
  // A record set without the recorder: the connection's own questions (its lock).
  std::unique_ptr<Registros> AbrirSinGrabar(const QString &sql, QString *error);
  QSqlDatabase &Base();
  enum class Paso { Iniciar, Confirmar, Deshacer };
  void Transaccion(Paso paso);
  // Runs a query that gives rows. On the embedded engine the compiled statement is kept
  // under its text and run again when the same text comes back: the query still goes to
  // the database every time, only its compilation is spared. The query holds the error
  // when it fails.
  std::shared_ptr<QSqlQuery> Consultar(const QString &sql);
  struct Compilada {
    QString sql;
    std::shared_ptr<QSqlQuery> consulta;
  };
  std::vector<Compilada> compiladas_; // the most recently used last
  // The memory of reads: the tables it may answer for (lower case), and its answers.
  QStringList tablasRecordadas_;
  QHash<QString, std::shared_ptr<const Registros::Leidas>> lecturas_;
  bool SeRecuerda(const QString &sql) const;
  // The query of sql and of what the foreseer expects after it, in one statement: null
  // when sql is no single total, nothing is expected, or the statement fails.
  std::unique_ptr<Registros> AbrirConPrevistas(const QString &sql);
  std::unique_ptr<Registros> AbrirDirecto(const QString &sql, QString *error);
  // Whether the server runs blocks of statements: asked of it once.
  bool Bloques();
  // The statements of a block that run the writes in order, or nothing when a write has
  // no statement to run.
  static std::optional<QString> Sentencias(const std::vector<Escritura> &escrituras);
  // One block on a server that runs them: the transaction begun (`inicia`, with none open;
  // it goes on only when the conditions hold) or the one in course carried on, the writes,
  // the confirmation (`confirma`), then the reads. When it fails: begun by it, the
  // transaction is undone; carried on, the block's writes are undone and the transaction
  // stands, or the failure is fatal when it took the transaction with it.
  enum class Tramo { NoEnviado, Fallido, Hecho };
  Tramo EnviarTramo(bool inicia, const QStringList &condiciones,
                    const std::vector<Escritura> &escrituras, bool confirma,
                    const QStringList &lecturas);
  void EjecutarUnaAUna(const Escritura &e);
  // A statement whose refusal is survived while the transaction stands: false then, so the
  // caller goes another way; a refusal that took the transaction with it is fatal.
  bool IntentarSinPerderTransaccion(const QString &sql);
  std::optional<bool> bloques_;
  // The rows of the reads that came with a block, under their queries' texts.
  QHash<QString, std::shared_ptr<const Registros::Leidas>> adelantadas_;
  Previsor previsor_;
  QHash<QString, std::shared_ptr<const Registros::Leidas>> previstas_;
  bool guardaCompiladas_ = false;
  bool enTransaccion_ = false;
  bool ensayo_ = false;
  bool odbc_ = false;
  QString nombre_;
  int motor_;
  ::Dialecto dialecto_;
  QString texto_;
  // The handle of the Qt connection, taken at the first statement: finding it by name
  // again for every statement takes the lock of Qt's registry of connections.
  QSqlDatabase base_;
};

using ConexionPtr = std::unique_ptr<Conexion>;

// While it lives, every statement goes by itself (ESCRIBANO_SENTENCIAS_UNA_A_UNA=1), as
// the runs always sent them: for a test that compares that way with the batches, and for
// the benchmark's replay of the statements the runs prescribe.
// One inside another leaves the switch as the outer one set it.
class SentenciasUnaAUna {
public:
  SentenciasUnaAUna()
      : habia_(qEnvironmentVariableIsSet(kVariableUnaAUna)), antes_(qgetenv(kVariableUnaAUna)) {
    qputenv(kVariableUnaAUna, "1");
  }
  ~SentenciasUnaAUna() {
    if (habia_)
      qputenv(kVariableUnaAUna, antes_);
    else
      qunsetenv(kVariableUnaAUna);
  }
  SentenciasUnaAUna(const SentenciasUnaAUna &) = delete;
  SentenciasUnaAUna &operator=(const SentenciasUnaAUna &) = delete;

private:
  bool habia_;
  QByteArray antes_;
};

// How a stored connection text is reached through Qt.
struct DestinoConexion {
  QString driver;      // QSQLITE or QODBC
  QString baseDeDatos; // file path or ODBC connection string
  int motor = 0;
};

class ServicioConexion {
public:
  // Engine of the company about to be opened (MOTORDEDATOS), set before AbrirConexion.
  int Motor = 0;

  // Opens a company connection on a stored connection text (password in plain).
  ConexionPtr AbrirConexion(const QString &conexion) const;
  // A new connection to the company the session has open: gConexion on gMotor.
  static ConexionPtr AbrirConexionSesion();
  void CerrarConexion(ConexionPtr &conexion) const { conexion.reset(); }
  // Opens the general database on gConexionGeneral.
  ConexionPtr AbrirConexionGeneral(const QString &conexion) const;
  // Opens the reference database Referencia.mdb under the given folder.
  ConexionPtr AbrirConexionRuta(const QString &ruta) const;

  // The Qt driver and database of a stored text; fatal for a text of no known form.
  // rutaBase resolves relative SQLite paths; odbcSqlServer names the SQL Server driver.
  static DestinoConexion Traducir(const QString &conexion, const QString &rutaBase,
                                  const QString &odbcSqlServer);
  // The settings with which every file of the embedded engine is opened.
  static void AjustarSqlite(const QSqlDatabase &db);
  // Opens a SQLite file, creating it when crear is true.
  static ConexionPtr AbrirSqlite(const QString &ruta, bool crear, int motor);

private:
  static ConexionPtr Abrir(const DestinoConexion &destino, const QString &texto);
};
