#include "shell/ServicioConexion.h"

#include "shell/ErrorFatal.h"
#include "shell/Plataforma.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlRecord>
#include <QStringBuilder>
#include <QThread>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <optional>

namespace {
Grabadora *gGrabadora = nullptr;
// The one-column result by which a block tells that its writes went through.
constexpr char kMarcaHecho[] = "ESCRITURAS_HECHAS";
// Milliseconds that a statement on the embedded engine waits for another writer.
constexpr int kEsperaOcupada = 30000;
std::atomic<int> gSiguienteNombre{0};

// Faults on purpose, for the tests of what a killed or slow run leaves: the process is
// killed before its Nth write (ESCRIBANO_PRUEBA_CORTE=N), each write waits
// (ESCRIBANO_PRUEBA_PAUSA=milliseconds), or a run that takes a lock holds it that long
// before going on (ESCRIBANO_PRUEBA_PAUSA_CANDADO=milliseconds), writing nothing
// meanwhile. None is set in ordinary use.
struct FallaProvocada {
  int corte = qEnvironmentVariableIntValue("ESCRIBANO_PRUEBA_CORTE");
  int pausa = qEnvironmentVariableIntValue("ESCRIBANO_PRUEBA_PAUSA");
  int pausaCandado = qEnvironmentVariableIntValue("ESCRIBANO_PRUEBA_PAUSA_CANDADO");
  int escrituras = 0;
  void AntesDeEscribir() {
    ++escrituras;
    if (corte > 0 && escrituras >= corte)
      MatarProceso();
    if (pausa > 0)
      QThread::msleep(static_cast<unsigned long>(pausa));
  }
  void CandadoTomado() const {
    if (pausaCandado > 0)
      QThread::msleep(static_cast<unsigned long>(pausaCandado));
  }
};
FallaProvocada &Falla() {
  static FallaProvocada f;
  return f;
}

QString TextoError(const QSqlError &e) {
  QString t = e.text().trimmed();
  return t.isEmpty() ? QStringLiteral("error desconocido") : t;
}

// Value of a key in a "Clave=valor; Clave=valor" text, trimmed; case-insensitive keys.
QString ParteConexion(const QString &conexion, const QString &clave) {
  const QStringList partes = conexion.split(QLatin1Char(';'));
  for (const QString &parte : partes) {
    const qsizetype igual = parte.indexOf(QLatin1Char('='));
    if (igual < 0)
      continue;
    if (parte.left(igual).trimmed().compare(clave, Qt::CaseInsensitive) == 0)
      return parte.mid(igual + 1).trimmed();
  }
  return {};
}

// Money from a double of the database. The double goes through its shortest decimal
// text (Dinero::DeDouble); when it is within a billion and ten-thousandths give it
// exactly, that text has at most four decimals and names the same ten-thousandths, so
// they are taken without the text.
Dinero DineroDeDouble(double valor) {
  if (std::fabs(valor) < 1e9) {
    const qint64 diezmilesimos = std::llround(valor * 10000.0);
    if (static_cast<double>(diezmilesimos) / 10000.0 == valor)
      return Dinero::DeDiezmilesimos(diezmilesimos);
  }
  return Dinero::DeDouble(valor);
}

// Digits of a date written "yyyy-MM-dd", as every engine hands a date in text; an
// invalid QDate for any other text.
QDate FechaIso(QStringView t) {
  if (t.size() < 10 || t[4] != u'-' || t[7] != u'-')
    return {};
  int partes[3] = {0, 0, 0};
  const qsizetype inicio[3] = {0, 5, 8};
  const qsizetype largo[3] = {4, 2, 2};
  for (int p = 0; p < 3; ++p) {
    for (qsizetype i = inicio[p]; i < inicio[p] + largo[p]; ++i) {
      const char16_t c = t[i].unicode();
      if (c < u'0' || c > u'9')
        return {};
      partes[p] = partes[p] * 10 + (c - u'0');
    }
  }
  return QDate(partes[0], partes[1], partes[2]);
}

// The lock file beside an embedded database. A lock left by a process that no longer
// runs on this machine is stale and taken over; a live one is never, however old.
class CandadoArchivo : public Candado {
public:
  explicit CandadoArchivo(const QString &ruta) : Candado(ruta), archivo_(ruta) {
    archivo_.setStaleLockTime(0);
  }
  bool Tomar() { return archivo_.tryLock(0); }

private:
  QLockFile archivo_;
};

// A lock the server keeps for the session: it goes with the connection.
class CandadoServidor : public Candado {
public:
  CandadoServidor(QString nombre, QSqlDatabase base, QString soltar)
      : Candado(std::move(nombre)), base_(std::move(base)), soltar_(std::move(soltar)) {}
  ~CandadoServidor() override {
    if (!base_.isOpen())
      return;
    if (odbc::EsOdbc(base_)) {
      odbc::Cursor::Ejecutar(base_, soltar_, nullptr);
    } else {
      QSqlQuery q(base_);
      q.exec(soltar_);
    }
  }

private:
  QSqlDatabase base_;
  QString soltar_;
};

// The first bytes of a database file: SQLite's own, or the Jet and ACE signatures.
QByteArray Cabecera(const QString &ruta) {
  QFile f(ruta);
  if (!f.open(QIODevice::ReadOnly))
    return {};
  return f.read(20);
}
bool EsArchivoSqlite(const QString &ruta) { return Cabecera(ruta).startsWith("SQLite format 3"); }
bool EsArchivoJet(const QString &ruta) {
  const QByteArray c = Cabecera(ruta).mid(4);
  return c.startsWith("Standard Jet DB") || c.startsWith("Standard ACE DB");
}
} // namespace

// ---------------------------------------------------------------- Valor

QString Valor::Texto() const { return Texto(v_); }

QString Valor::Texto(const QVariant &v) {
  // A text first: most values are, and a Null one is an empty text already.
  if (v.typeId() == QMetaType::QString)
    return *static_cast<const QString *>(v.constData());
  if (v.isNull())
    return QString();
  if (v.typeId() == QMetaType::Double)
    return DineroDeDouble(v.toDouble()).Texto();
  if (v.typeId() == QMetaType::QDate)
    return v.toDate().toString(QStringLiteral("yyyy-MM-dd"));
  if (v.typeId() == QMetaType::QTime)
    return v.toTime().toString(QStringLiteral("HH:mm:ss"));
  return v.toString();
}

qint64 Valor::Entero() const {
  if (v_.isNull())
    throw ErrorFatal(QStringLiteral("Uso no válido de Null en el campo %1.").arg(campo_));
  const QString t = Texto().trimmed();
  bool ok = false;
  qint64 n = t.toLongLong(&ok);
  if (ok)
    return n;
  Dinero d = Dinero::DeTexto(t, &ok);
  if (!ok)
    throw ErrorFatal(
        QStringLiteral("No coinciden los tipos: el campo %1 vale «%2».").arg(campo_, t));
  // A whole number from a decimal value rounds half to even, as the family's code does.
  qint64 v = d.Diezmilesimos();
  qint64 q = v / 10000;
  qint64 r = v % 10000;
  if (2 * std::llabs(r) > 10000 || (2 * std::llabs(r) == 10000 && q % 2 != 0))
    q += v < 0 ? -1 : 1;
  return q;
}

Dinero Valor::ComoDinero() const { return ComoDinero(v_, campo_); }

Dinero Valor::ComoDinero(const QVariant &v, const QString &campo) {
  if (v.isNull())
    throw ErrorFatal(QStringLiteral("Uso no válido de Null en el campo %1.").arg(campo));
  if (v.typeId() == QMetaType::Double)
    return DineroDeDouble(*static_cast<const double *>(v.constData()));
  // A whole number, as the embedded engine hands an amount without cents, within what
  // ten-thousandths can hold.
  constexpr qlonglong kMaximo = std::numeric_limits<qint64>::max() / 10000;
  if (v.typeId() == QMetaType::LongLong) {
    const qlonglong n = *static_cast<const qlonglong *>(v.constData());
    if (n > -kMaximo && n < kMaximo)
      return Dinero::DeDiezmilesimos(n * 10000);
  }
  bool ok = false;
  Dinero d = Dinero::DeTexto(v.toString(), &ok);
  if (!ok)
    throw ErrorFatal(
        QStringLiteral("No coinciden los tipos: el campo %1 vale «%2».").arg(campo, v.toString()));
  return d;
}

QDate Valor::Fecha() const {
  if (v_.isNull())
    return {};
  if (v_.typeId() == QMetaType::QDate)
    return v_.toDate();
  if (v_.typeId() == QMetaType::QDateTime)
    return v_.toDateTime().date();
  const QString t = v_.toString().trimmed();
  // The common text first, by hand: Qt's parser of formats costs more than the query.
  QDate d = FechaIso(t);
  if (!d.isValid())
    d = QDate::fromString(t.left(10), QStringLiteral("yyyy-MM-dd"));
  if (!d.isValid())
    d = QDate::fromString(t.left(8), QStringLiteral("yyyyMMdd"));
  return d;
}

double Valor::Numero() const {
  if (v_.isNull())
    return 0.0;
  if (v_.typeId() == QMetaType::Double || v_.typeId() == QMetaType::Int ||
      v_.typeId() == QMetaType::LongLong)
    return v_.toDouble();
  return Val(v_.toString());
}

// ---------------------------------------------------------------- Registros

Registros::Registros(std::unique_ptr<odbc::Cursor> cursor, QString sentencia)
    : c_(std::move(cursor)), sentencia_(std::move(sentencia)) {
  nombres_ = c_->Nombres();
  Siguiente();
  vacio_ = fin_;
}

Registros::Registros(std::shared_ptr<QSqlQuery> consulta, QString sentencia)
    : q_(std::move(consulta)), sentencia_(std::move(sentencia)), conNombres_(false) {
  Siguiente();
  vacio_ = fin_;
}

Registros::Registros(std::shared_ptr<const Leidas> leidas, QString sentencia)
    : leidas_(std::move(leidas)), sentencia_(std::move(sentencia)) {
  nombres_ = leidas_->nombres;
  fin_ = vacio_ = leidas_->filas.empty();
}

Registros::~Registros() {
  // A statement that its connection keeps goes on living: it is finished here. Any other
  // goes with its query.
  if (q_ && q_.use_count() > 1)
    q_->finish();
}

void Registros::Siguiente() {
  if (leidas_) {
    fin_ = fin_ || ++filaLeida_ >= leidas_->filas.size();
    return;
  }
  if (c_ ? c_->Siguiente() : q_->next()) {
    fin_ = false;
    if (c_)
      LeerFila();
  } else {
    fin_ = true;
    if (c_)
      fila_.clear();
  }
}

const QStringList &Registros::Nombres() const {
  // Read for every record set: a table built again under its name may bring other
  // columns to a statement kept compiled.
  if (!conNombres_) {
    const QSqlRecord r = q_->record();
    for (int i = 0; i < r.count(); ++i)
      nombres_ << r.fieldName(i);
    conNombres_ = true;
  }
  return nombres_;
}

void Registros::LeerFila() {
  // Read in column order: some ODBC drivers hand a forward-only row out only that way.
  // Qt's query keeps its row itself, and gives a column when it is asked for.
  fila_.resize(nombres_.size());
  for (int i = 0; i < nombres_.size(); ++i)
    fila_[static_cast<std::size_t>(i)] = c_->Valor(i);
}

bool Registros::TieneCampo(const QString &nombre) const {
  return Nombres().contains(nombre, Qt::CaseInsensitive);
}

qsizetype Registros::Indice(const QString &nombre) const {
  // Names are asked as the statement wrote them: an exact match first, then without
  // regard to case.
  const QStringList &nombres = Nombres();
  qsizetype i = nombres.indexOf(nombre);
  for (qsizetype j = 0; i < 0 && j < nombres.size(); ++j)
    if (nombres[j].compare(nombre, Qt::CaseInsensitive) == 0)
      i = j;
  if (i < 0)
    throw ErrorFatal(QStringLiteral("El campo %1 no existe en el resultado.").arg(nombre),
                     sentencia_);
  return i;
}

// Past the last row, or a row read before or straight through ODBC.
QVariant Registros::VarianteFueraDeQt(qsizetype indice) const {
  if (fin_)
    throw ErrorFatal(
        QStringLiteral("No hay registro actual para leer %1.").arg(Nombres().value(indice)),
        sentencia_);
  if (leidas_)
    return leidas_->filas[filaLeida_][static_cast<std::size_t>(indice)];
  return fila_[static_cast<std::size_t>(indice)]; // straight through ODBC
}

Valor Registros::Campo(qsizetype indice) const {
  return Valor(Variante(indice), Nombres()[indice]);
}

Valor Registros::Campo(const QString &nombre) const { return Campo(Indice(nombre)); }

// ---------------------------------------------------------------- Conexion

Conexion::Conexion(QString nombreQt, int motor, QString texto)
    : nombre_(std::move(nombreQt)), motor_(motor), dialecto_(motor), texto_(std::move(texto)) {}

Conexion::~Conexion() {
  if (enTransaccion_) {
    try {
      DeshacerTransaccion();
    } catch (const ErrorFatal &) {
      // The connection goes anyway: the engine undoes what was never confirmed.
    }
  }
  compiladas_.clear();
  base_ = QSqlDatabase(); // Qt removes a connection only when no handle is left
  {
    QSqlDatabase db = QSqlDatabase::database(nombre_, false);
    if (db.isOpen())
      db.close();
  }
  QSqlDatabase::removeDatabase(nombre_);
}

void Conexion::InstalarGrabadora(Grabadora *g) { gGrabadora = g; }

bool Conexion::EnLote() { return qEnvironmentVariableIntValue(kVariableUnaAUna) != 1; }

void Conexion::CerrarAlTerminar(Fase fase) noexcept {
  adelantadas_.clear();
  try {
    if (fase == Fase::Transacciones) {
      ensayo_ = false; // a rehearsal ends undone as well
      DeshacerTransaccion();
    }
  } catch (const ErrorFatal &) {
    enTransaccion_ = false; // the engine undoes what was never confirmed
  }
  if (fase == Fase::Conexiones && base_.isValid() && base_.isOpen())
    base_.close();
}

QSqlDatabase &Conexion::Base() {
  if (!base_.isValid()) {
    base_ = QSqlDatabase::database(nombre_, false);
    guardaCompiladas_ = base_.driverName() == QStringLiteral("QSQLITE");
    odbc_ = odbc::EsOdbc(base_);
  }
  return base_;
}

void Conexion::Transaccion(Paso paso) {
  adelantadas_.clear();
  QSqlDatabase &db = Base();
  // The embedded engine takes the write lock when the entry begins (IMMEDIATE), so a
  // writer that comes later waits at the start rather than failing half way; SQL Server
  // goes through its driver's own transactions.
  const QString inicio = dialecto_.IniciarTransaccion();
  const QString texto = paso == Paso::Iniciar     ? inicio
                        : paso == Paso::Confirmar ? QStringLiteral("COMMIT")
                                                  : QStringLiteral("ROLLBACK");
  QSqlError error;
  if (!inicio.isEmpty() && Odbc()) {
    QString falla;
    if (!odbc::Cursor::Ejecutar(db, texto, &falla))
      throw ErrorFatal(QStringLiteral("Error en la transacción: %1").arg(falla), texto);
    return;
  }
  if (!inicio.isEmpty()) {
    QSqlQuery q(db);
    if (!q.exec(texto))
      error = q.lastError();
  } else {
    const bool ok = paso == Paso::Iniciar     ? db.transaction()
                    : paso == Paso::Confirmar ? db.commit()
                                              : db.rollback();
    if (!ok)
      error = db.lastError();
  }
  if (error.isValid())
    throw ErrorFatal(QStringLiteral("Error en la transacción: %1").arg(TextoError(error)),
                     texto.isEmpty() ? QStringLiteral("BEGIN TRANSACTION") : texto);
}

bool Conexion::TransaccionViva() {
  if (!enTransaccion_)
    return false;
  const QString pregunta = dialecto_.TransaccionEnCurso();
  if (pregunta.isEmpty()) {
    // The embedded engine refuses a transaction inside another: a BEGIN that goes through
    // found none, and the one it began is given back.
    QSqlQuery q(Base());
    if (!q.exec(QStringLiteral("BEGIN")))
      return true;
    q.exec(QStringLiteral("ROLLBACK"));
    return false;
  }
  const std::unique_ptr<Registros> r = AbrirSinGrabar(pregunta, nullptr);
  return r && !r->Vacio() && r->Variante(0).toLongLong() != 0;
}

std::unique_ptr<Candado> Conexion::TomarCandado(const QString &trabajo, QString *nombre) {
  QSqlDatabase &db = Base();
  if (guardaCompiladas_) {
    const QString ruta =
        db.databaseName() + QStringLiteral(".") + trabajo + QStringLiteral(".lock");
    auto candado = std::make_unique<CandadoArchivo>(ruta);
    if (nombre)
      *nombre = ruta;
    if (!candado->Tomar())
      return nullptr;
    Falla().CandadoTomado();
    return candado;
  }
  const QString sql = dialecto_.TomarCandado(trabajo);
  const QString soltar = dialecto_.SoltarCandado(trabajo);
  QString error;
  QString n;
  bool tomado = false;
  {
    const std::unique_ptr<Registros> r = AbrirSinGrabar(sql, &error);
    if (!r || r->Vacio())
      throw ErrorFatal(
          QStringLiteral("No fue posible pedir el candado de %1 a la base de datos: %2")
              .arg(trabajo, error),
          sql);
    n = r->Campo(QStringLiteral("NOMBRE")).Texto();
    tomado = r->Campo(QStringLiteral("TOMADO")).Entero() == 1;
  }
  if (nombre)
    *nombre = n;
  if (!tomado)
    return nullptr;
  Falla().CandadoTomado();
  return std::make_unique<CandadoServidor>(n, db, soltar);
}

void Conexion::IniciarTransaccion() {
  if (enTransaccion_)
    return;
  Transaccion(Paso::Iniciar);
  enTransaccion_ = true;
}

void Conexion::ConfirmarTransaccion() {
  if (!enTransaccion_ || ensayo_)
    return;
  enTransaccion_ = false;
  Transaccion(Paso::Confirmar);
}

void Conexion::DeshacerTransaccion() {
  if (!enTransaccion_ || ensayo_)
    return;
  enTransaccion_ = false;
  Transaccion(Paso::Deshacer);
}

void Conexion::IniciarEnsayo() {
  ConfirmarTransaccion();
  IniciarTransaccion();
  ensayo_ = true;
}

void Conexion::TerminarEnsayo() {
  if (!ensayo_)
    return;
  ensayo_ = false;
  DeshacerTransaccion();
}

void Conexion::Grabar(const QString &sql) const {
  if (gGrabadora)
    gGrabadora->sentencias << sql;
}

QSqlQuery Conexion::Preparar(const QString &sql) {
  Grabar(sql);
  QSqlQuery q(Base());
  q.setForwardOnly(true);
  q.setNumericalPrecisionPolicy(QSql::HighPrecision);
  return q;
}

namespace {

// A statement as a piece of another: without its ";", which a block puts back and a
// query inside a query can't have.
QStringView Pieza(const QString &sql) {
  QStringView pieza = QStringView(sql).trimmed();
  if (pieza.endsWith(u';'))
    pieza.chop(1);
  return pieza;
}

} // namespace

bool Conexion::Bloques() {
  if (!dialecto_.EsMySql() || !Odbc())
    return false;
  if (!bloques_) {
    const std::unique_ptr<Registros> r =
        AbrirSinGrabar(QStringLiteral("SELECT VERSION()"), nullptr);
    bloques_ =
        r && !r->Vacio() &&
        Valor::Texto(r->Variante(0)).contains(QStringLiteral("MariaDB"), Qt::CaseInsensitive);
  }
  return *bloques_;
}

std::optional<QString> Conexion::Sentencias(const std::vector<Escritura> &escrituras) {
  QString texto;
  const auto ultima = [](const QString &sql, bool intentar) -> QString {
    return intentar
               ? QStringLiteral(" BEGIN DECLARE CONTINUE HANDLER FOR SQLEXCEPTION BEGIN END; ") %
                     Pieza(sql) % QStringLiteral("; END;")
               : QStringLiteral(" ") % Pieza(sql) % QStringLiteral(";");
  };
  for (const Escritura &e : escrituras) {
    if (Pieza(e.sql).isEmpty() || (!e.consulta.isEmpty() && Pieza(e.otra).isEmpty()))
      return std::nullopt;
    if (e.consulta.isEmpty()) {
      texto += ultima(e.sql, e.intentar);
      continue;
    }
    texto += QStringLiteral(" IF EXISTS (") % Pieza(e.consulta) % QStringLiteral(") THEN ") %
             Pieza(e.sql) % QStringLiteral("; ELSE") % ultima(e.otra, e.intentar) %
             QStringLiteral(" END IF;");
  }
  return texto;
}

Conexion::Tramo Conexion::EnviarTramo(bool inicia, const QStringList &condiciones,
                                      const std::vector<Escritura> &escrituras, bool confirma,
                                      const QStringList &lecturas) {
  // A rehearsal confirms nothing: its transaction is undone whole at its end.
  if (inicia == enTransaccion_ || (confirma && ensayo_) || !EnBloques())
    return Tramo::NoEnviado;
  const std::optional<QString> sentencias = Sentencias(escrituras);
  if (!sentencias)
    return Tramo::NoEnviado;
  QString bloque = QStringLiteral("BEGIN NOT ATOMIC");
  if (inicia) {
    // A failure anywhere leaves the transaction to be undone whole.
    bloque += QStringLiteral(" START TRANSACTION;");
    if (!condiciones.isEmpty())
      bloque += QStringLiteral(" IF NOT COALESCE((") % condiciones.join(QStringLiteral(") AND (")) %
                QStringLiteral("), FALSE) THEN SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT = "
                               "'condiciones de la escritura'; END IF;");
    bloque += *sentencias;
    if (confirma)
      bloque += QStringLiteral(" COMMIT;");
  } else {
    // A failure anywhere undoes the block's writes and leaves the transaction standing.
    bloque += QStringLiteral(" BEGIN DECLARE EXIT HANDLER FOR SQLEXCEPTION BEGIN ROLLBACK TO "
                             "SAVEPOINT escrituras; RESIGNAL; END; SAVEPOINT escrituras;") %
              *sentencias % (confirma ? QStringLiteral(" COMMIT;") : QString()) %
              QStringLiteral(" END;");
  }
  // The mark tells the writes done from a failure before them; the reads come after it.
  bloque += QStringLiteral(" SELECT 1 AS ") % QLatin1String(kMarcaHecho) % QStringLiteral(";");
  for (const QString &lectura : lecturas)
    bloque += QStringLiteral(" ") % Pieza(lectura) % QStringLiteral(";");
  bloque += QStringLiteral(" END");

  Falla().AntesDeEscribir();
  adelantadas_.clear();
  Grabar(bloque);
  QString error;
  std::unique_ptr<odbc::Cursor> c = odbc::Cursor::Ejecutar(base_, bloque, &error);
  bool hecho = false;
  for (bool hay = c != nullptr; hay; hay = c->SiguienteResultado(&error)) {
    hecho = c->Nombres() == QStringList{QLatin1String(kMarcaHecho)};
    if (hecho)
      break;
  }
  if (!hecho) {
    c.reset();
    if (inicia) {
      enTransaccion_ = true;
      DeshacerTransaccion();
      return Tramo::Fallido;
    }
    if (!TransaccionViva())
      throw FallaDeSentencia(bloque, error);
    return Tramo::Fallido;
  }
  enTransaccion_ = !confirma;
  // Each read's rows wait for a query of its text; one that failed is asked alone.
  try {
    for (const QString &lectura : lecturas) {
      if (!c->SiguienteResultado(nullptr))
        break;
      auto leidas = std::make_shared<Registros::Leidas>();
      leidas->nombres = c->Nombres();
      while (c->Siguiente()) {
        std::vector<QVariant> fila;
        for (int i = 0; i < leidas->nombres.size(); ++i)
          fila.push_back(c->Valor(i));
        leidas->filas.push_back(std::move(fila));
      }
      adelantadas_.insert(lectura, std::move(leidas));
    }
  } catch (const ErrorFatal &) {
    // The rows of that read are asked again alone.
  }
  return Tramo::Hecho;
}

bool Conexion::ConfirmarEnUnBloque(const QStringList &condiciones,
                                   const std::vector<Escritura> &escrituras,
                                   const QStringList &lecturas) {
  return EnviarTramo(true, condiciones, escrituras, true, lecturas) == Tramo::Hecho;
}

bool Conexion::IniciarEnUnBloque(const QStringList &condiciones,
                                 const std::vector<Escritura> &escrituras) {
  return EnviarTramo(true, condiciones, escrituras, false, {}) == Tramo::Hecho;
}

void Conexion::ConfirmarConEscrituras(const std::vector<Escritura> &escrituras,
                                      const QStringList &lecturas) {
  switch (EnviarTramo(false, {}, escrituras, true, lecturas)) {
  case Tramo::Hecho:
    return;
  case Tramo::Fallido:
    // Refused as a block: each write by itself, and the one refused fails as it always did.
    for (const Escritura &e : escrituras)
      EjecutarUnaAUna(e);
    break;
  case Tramo::NoEnviado:
    EjecutarEscrituras(escrituras);
    break;
  }
  ConfirmarTransaccion();
}

bool Conexion::IntentarSinPerderTransaccion(const QString &sql) {
  QString error;
  if (IntentarEjecutar(sql, nullptr, &error))
    return true;
  if (!TransaccionViva())
    throw FallaDeSentencia(sql, error);
  return false;
}

void Conexion::EjecutarEscrituras(const std::vector<Escritura> &escrituras) {
  if (escrituras.size() > 1 && EnviarTramo(false, {}, escrituras, false, {}) == Tramo::Hecho)
    return;
  for (const Escritura &e : escrituras)
    EjecutarUnaAUna(e);
}

void Conexion::EjecutarUnaAUna(const Escritura &e) {
  const QString *ultima = &e.sql;
  if (!e.consulta.isEmpty()) {
    const bool hay = !Abrir(e.consulta).Vacio();
    if (hay) {
      Ejecutar(e.sql);
      return;
    }
    ultima = &e.otra;
  }
  if (e.intentar) {
    IntentarEjecutar(*ultima);
    return;
  }
  if (e.porPartes.isEmpty()) {
    Ejecutar(*ultima);
    return;
  }
  if (IntentarSinPerderTransaccion(*ultima))
    return;
  for (const QString &parte : e.porPartes)
    Ejecutar(parte);
}

ErrorFatal Conexion::FallaDeSentencia(const QString &sql, const QString &error) {
  return ErrorFatal(QStringLiteral("Error al ejecutar la sentencia: %1").arg(error), sql);
}

int Conexion::Ejecutar(const QString &sql) {
  int afectados = 0;
  QString error;
  if (!IntentarEjecutar(sql, &afectados, &error))
    throw FallaDeSentencia(sql, error);
  return afectados;
}

bool Conexion::IntentarEjecutar(const QString &sql, int *afectados, QString *error) {
  Falla().AntesDeEscribir();
  adelantadas_.clear();
  if (Odbc()) {
    Grabar(sql);
    return odbc::Cursor::Ejecutar(base_, sql, error, afectados) != nullptr;
  }
  QSqlQuery q = Preparar(sql);
  const bool ok = q.exec(sql);
  if (afectados)
    *afectados = ok ? q.numRowsAffected() : 0;
  if (!ok && error)
    *error = TextoError(q.lastError());
  return ok;
}

std::shared_ptr<QSqlQuery> Conexion::Consultar(const QString &sql) {
  // Few texts come back, and those soon: the lookups of each line of an export, the
  // earlier postings of each line of an entry.
  constexpr std::size_t kCompiladas = 16;
  for (auto it = compiladas_.begin(); it != compiladas_.end(); ++it) {
    // A record set still open on the statement keeps it to itself.
    if (it->sql.size() != sql.size() || it->consulta.use_count() > 1 || it->sql != sql)
      continue;
    if (gGrabadora)
      gGrabadora->sentencias << sql;
    std::shared_ptr<QSqlQuery> q = it->consulta;
    if (q->exec())
      std::rotate(it, it + 1, compiladas_.end());
    else
      compiladas_.erase(it);
    return q;
  }
  auto q = std::make_shared<QSqlQuery>(Preparar(sql));
  if (q->exec(sql) && guardaCompiladas_ && q->isSelect()) {
    if (compiladas_.size() == kCompiladas)
      compiladas_.erase(compiladas_.begin());
    compiladas_.push_back({sql, q});
  }
  return q;
}

Registros Conexion::Abrir(const QString &sql) {
  QString error;
  std::unique_ptr<Registros> r = IntentarAbrir(sql, &error);
  if (!r)
    throw ErrorFatal(QStringLiteral("Error al leer la consulta: %1").arg(error), sql);
  return std::move(*r);
}

std::unique_ptr<Registros> Conexion::AbrirSinGrabar(const QString &sql, QString *error) {
  if (Odbc()) {
    std::unique_ptr<odbc::Cursor> c = odbc::Cursor::Ejecutar(base_, sql, error);
    return c ? std::make_unique<Registros>(std::move(c), sql) : nullptr;
  }
  auto q = std::make_shared<QSqlQuery>(base_);
  q->setForwardOnly(true);
  q->setNumericalPrecisionPolicy(QSql::HighPrecision);
  if (!q->exec(sql)) {
    if (error)
      *error = TextoError(q->lastError());
    return nullptr;
  }
  return std::make_unique<Registros>(std::move(q), sql);
}

std::unique_ptr<Registros> Conexion::IntentarAbrir(const QString &sql, QString *error) {
  const bool recordar = SeRecuerda(sql);
  if (recordar) {
    const auto hallada = lecturas_.constFind(sql);
    if (hallada != lecturas_.constEnd())
      return std::make_unique<Registros>(*hallada, sql);
  }
  if (!adelantadas_.isEmpty()) {
    // They answer the reads that follow their block; any other read forgets those left.
    const auto adelantada = adelantadas_.constFind(sql);
    if (adelantada == adelantadas_.constEnd()) {
      adelantadas_.clear();
    } else {
      auto r = std::make_unique<Registros>(*adelantada, sql);
      adelantadas_.erase(adelantada);
      return r;
    }
  }
  if (!previstas_.isEmpty()) {
    const auto prevista = previstas_.constFind(sql);
    if (prevista != previstas_.constEnd()) {
      auto r = std::make_unique<Registros>(*prevista, sql);
      previstas_.erase(prevista);
      return r;
    }
  }
  if (previsor_ && !recordar) {
    if (std::unique_ptr<Registros> r = AbrirConPrevistas(sql))
      return r;
  }
  std::unique_ptr<Registros> r = AbrirDirecto(sql, error);
  if (!r || !recordar)
    return r;
  std::shared_ptr<const Registros::Leidas> leidas = Leer(*r);
  lecturas_.insert(sql, leidas);
  return std::make_unique<Registros>(std::move(leidas), sql);
}

std::unique_ptr<Registros> Conexion::AbrirDirecto(const QString &sql, QString *error) {
  std::unique_ptr<Registros> r;
  if (Odbc()) {
    Grabar(sql);
    r = AbrirSinGrabar(sql, error);
  } else {
    std::shared_ptr<QSqlQuery> q = Consultar(sql);
    if (!q->isActive()) {
      if (error)
        *error = TextoError(q->lastError());
      return nullptr;
    }
    r = std::make_unique<Registros>(std::move(q), sql);
  }
  return r;
}

namespace {

// A query that stands as a value or a table inside another: without its ";", and with no
// second statement, grouping, order or union of its own. Nothing for any other.
std::optional<QStringView> CuerpoSencillo(const QString &sql) {
  const QStringView cuerpo = Pieza(sql);
  if (cuerpo.contains(u';'))
    return std::nullopt;
  for (const char16_t *clausula : {u" GROUP BY ", u" ORDER BY ", u" UNION ", u" HAVING "})
    if (cuerpo.contains(QStringView(clausula), Qt::CaseInsensitive))
      return std::nullopt;
  return cuerpo;
}

// A query of one total: "SELECT SUM(<expression>) AS <name> FROM ..." with no grouping,
// order, union or second statement. Gives its name and the query without its ";", which
// stands as a value inside another query.
struct TotalUnico {
  QString nombre;
  QString cuerpo;
};
std::optional<TotalUnico> ComoTotalUnico(const QString &sql) {
  static const QString inicio = QStringLiteral("SELECT SUM(");
  if (!sql.startsWith(inicio))
    return std::nullopt;
  const std::optional<QStringView> sencillo = CuerpoSencillo(sql);
  if (!sencillo)
    return std::nullopt;
  const QStringView cuerpo = *sencillo;
  // The parenthesis that closes the SUM, then " AS <name> FROM ".
  qsizetype i = inicio.size();
  for (int abiertos = 1; i < cuerpo.size() && abiertos > 0; ++i) {
    if (cuerpo[i] == u'(')
      ++abiertos;
    else if (cuerpo[i] == u')')
      --abiertos;
  }
  static const QRegularExpression nombre(QStringLiteral("^\\s*AS\\s+(\\w+)\\s+FROM\\s"),
                                         QRegularExpression::CaseInsensitiveOption);
  const QRegularExpressionMatch m = nombre.match(cuerpo.sliced(i).toString());
  if (!m.hasMatch())
    return std::nullopt;
  return TotalUnico{m.captured(1), cuerpo.toString()};
}

} // namespace

void Conexion::Prever(Previsor previsor) {
  previsor_ = std::move(previsor);
  if (!previsor_)
    previstas_.clear();
}

std::optional<Conexion::Lecturas> Conexion::AbrirJuntas(const QStringList &consultas) {
  // Each query goes as a table of its own behind its place among them.
  QString lote;
  for (qsizetype i = 0; i < consultas.size(); ++i) {
    const std::optional<QStringView> cuerpo = CuerpoSencillo(consultas[i]);
    if (!cuerpo)
      return std::nullopt;
    lote += (i == 0 ? QStringLiteral("SELECT 0 AS ORDEN_LOTE, q.* FROM (")
                    : QStringLiteral(" UNION ALL SELECT ") % QString::number(i) %
                          QStringLiteral(", q.* FROM (")) %
            *cuerpo % QStringLiteral(") q");
  }
  std::vector<std::shared_ptr<Registros::Leidas>> leidas;
  try {
    std::unique_ptr<Registros> r = AbrirDirecto(lote, nullptr);
    if (!r)
      return std::nullopt;
    const QStringList nombres = r->Campos().mid(1);
    for (qsizetype i = 0; i < consultas.size(); ++i) {
      leidas.push_back(std::make_shared<Registros::Leidas>());
      leidas.back()->nombres = nombres;
    }
    for (; !r->Fin(); r->Siguiente()) {
      const qint64 cual = r->Variante(0).toLongLong();
      if (cual < 0 || cual >= consultas.size())
        return std::nullopt;
      std::vector<QVariant> fila;
      for (qsizetype c = 1; c <= nombres.size(); ++c)
        fila.push_back(r->Variante(c));
      leidas[static_cast<std::size_t>(cual)]->filas.push_back(std::move(fila));
    }
  } catch (const ErrorFatal &) {
    return std::nullopt;
  }
  return Lecturas(leidas.begin(), leidas.end());
}

std::unique_ptr<Registros> Conexion::AbrirConPrevistas(const QString &sql) {
  const std::optional<TotalUnico> total = ComoTotalUnico(sql);
  if (!total)
    return nullptr;
  std::vector<std::pair<QString, TotalUnico>> otras;
  for (const QString &otra : previsor_(sql)) {
    if (otra == sql || previstas_.contains(otra))
      continue;
    if (std::optional<TotalUnico> t = ComoTotalUnico(otra))
      otras.emplace_back(otra, std::move(*t));
  }
  if (otras.empty())
    return nullptr;
  QString lote = QStringLiteral("SELECT (") % total->cuerpo % QStringLiteral(") AS T0");
  for (std::size_t i = 0; i < otras.size(); ++i)
    lote += QStringLiteral(", (") % otras[i].second.cuerpo % QStringLiteral(") AS T") %
            QString::number(i + 1);
  const auto fila = [](const QString &nombre, QVariant valor) {
    auto leidas = std::make_shared<Registros::Leidas>();
    leidas->nombres = {nombre};
    leidas->filas.push_back({std::move(valor)});
    return leidas;
  };
  try {
    std::unique_ptr<Registros> r = AbrirDirecto(lote, nullptr);
    if (!r || r->Vacio())
      return nullptr;
    for (std::size_t i = 0; i < otras.size(); ++i)
      previstas_.insert(otras[i].first,
                        fila(otras[i].second.nombre, r->Variante(static_cast<qsizetype>(i + 1))));
    return std::make_unique<Registros>(fila(total->nombre, r->Variante(0)), sql);
  } catch (const ErrorFatal &) {
    return nullptr;
  }
}

std::shared_ptr<const Registros::Leidas> Conexion::Leer(Registros &r) {
  auto leidas = std::make_shared<Registros::Leidas>();
  leidas->nombres = r.Campos();
  for (; !r.Fin(); r.Siguiente()) {
    std::vector<QVariant> fila;
    fila.reserve(static_cast<std::size_t>(leidas->nombres.size()));
    for (qsizetype i = 0; i < leidas->nombres.size(); ++i)
      fila.push_back(r.Campo(i).Variante());
    leidas->filas.push_back(std::move(fila));
  }
  return leidas;
}

void Conexion::RecordarLecturas(const QStringList &tablas) {
  tablasRecordadas_.clear();
  for (const QString &t : tablas)
    tablasRecordadas_ << t.toLower();
  lecturas_.clear();
}

void Conexion::OlvidarLecturas() {
  tablasRecordadas_.clear();
  lecturas_.clear();
}

bool Conexion::SeRecuerda(const QString &sql) const {
  if (tablasRecordadas_.isEmpty() ||
      !QStringView(sql).trimmed().startsWith(u"SELECT", Qt::CaseInsensitive))
    return false;
  // Only a plain query is remembered: names without brackets or quotes, no INTO, and after
  // each FROM a clause of bare names and joins, without a list of tables, a parenthesis or
  // a subquery. Every table it names is one the memory answers for.
  static const QRegularExpression rara(QStringLiteral("[\"`\\[]|\\bINTO\\b|STRAIGHT_JOIN"),
                                       QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression desde(
      QStringLiteral("\\bFROM\\b(.*?)(\\bWHERE\\b|\\bORDER\\b|\\bGROUP\\b|\\bHAVING\\b|;|$)"),
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
  static const QRegularExpression tabla(QStringLiteral("(?:^|\\bJOIN)\\s+([A-Za-z_][A-Za-z0-9_]*)"),
                                        QRegularExpression::CaseInsensitiveOption);
  if (rara.match(sql).hasMatch())
    return false;
  bool alguna = false;
  for (auto m = desde.globalMatch(sql); m.hasNext();) {
    const QString clausula = m.next().captured(1);
    if (clausula.contains(QLatin1Char(',')) || clausula.contains(QLatin1Char('(')) ||
        clausula.contains(QLatin1Char(')')))
      return false;
    for (auto t = tabla.globalMatch(clausula); t.hasNext();) {
      if (!tablasRecordadas_.contains(t.next().captured(1).toLower()))
        return false;
      alguna = true;
    }
  }
  return alguna;
}

// ---------------------------------------------------------------- ServicioConexion

DestinoConexion ServicioConexion::Traducir(const QString &conexion, const QString &rutaBase,
                                           const QString &odbcSqlServer) {
  const QString t = conexion.trimmed();
  DestinoConexion d;
  if (t.startsWith(QStringLiteral("SQLite="), Qt::CaseInsensitive)) {
    QString ruta = t.mid(7).trimmed();
    if (QFileInfo(QString(ruta).replace(QLatin1Char('\\'), QLatin1Char('/'))).isRelative())
      ruta = UnirRuta(rutaBase, ruta);
    d.driver = QStringLiteral("QSQLITE");
    d.baseDeDatos = RutaNativa(ruta);
    d.motor = motor::kSqlite;
    return d;
  }
  if (t.startsWith(QStringLiteral("DSN="), Qt::CaseInsensitive)) {
    // Qt's ODBC driver puts "DSN=" before a text that names no driver or server itself.
    QString cadena = t.mid(4);
    while (cadena.endsWith(QLatin1Char(';')))
      cadena.chop(1); // the MariaDB driver refuses a trailing semicolon
    d.driver = QStringLiteral("QODBC");
    d.baseDeDatos = cadena;
    d.motor = motor::kMySql;
    return d;
  }
  const QString proveedor = ParteConexion(t, QStringLiteral("Provider"));
  if (proveedor.startsWith(QStringLiteral("SQLOLEDB"), Qt::CaseInsensitive)) {
    QString servidor = ParteConexion(t, QStringLiteral("Data Source"));
    if (servidor.endsWith(QLatin1Char('\\')))
      servidor.chop(1); // an empty instance still carries its backslash
    QString cadena = QStringLiteral("Driver={%1};Server=%2;Database=%3")
                         .arg(odbcSqlServer.isEmpty() ? QStringLiteral("FreeTDS") : odbcSqlServer,
                              servidor, ParteConexion(t, QStringLiteral("Initial Catalog")));
    if (ParteConexion(t, QStringLiteral("Integrated Security")).isEmpty())
      cadena += QStringLiteral(";UID=%1;PWD=%2")
                    .arg(ParteConexion(t, QStringLiteral("User ID")),
                         ParteConexion(t, QStringLiteral("Password")));
    else
      cadena += QStringLiteral(";Trusted_Connection=Yes");
    d.driver = QStringLiteral("QODBC");
    d.baseDeDatos = cadena;
    d.motor = motor::kSqlServer;
    return d;
  }
  if (proveedor.startsWith(QStringLiteral("Microsoft.Jet.OLEDB"), Qt::CaseInsensitive)) {
    const QString ruta = RutaNativa(ParteConexion(t, QStringLiteral("Data Source")));
    if (QFileInfo::exists(ruta) && !EsArchivoSqlite(ruta) && !EsArchivoJet(ruta))
      throw ErrorFatal(
          QStringLiteral("El archivo %1 no es una base de datos: está vacío o dañado.").arg(ruta));
    if (EsArchivoSqlite(ruta) || !QFileInfo::exists(ruta)) {
      d.driver = QStringLiteral("QSQLITE");
      d.baseDeDatos = ruta;
    } else {
      d.driver = QStringLiteral("QODBC");
      d.baseDeDatos = QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};DBQ=") + ruta;
    }
    return d;
  }
  throw ErrorFatal(
      QStringLiteral("El texto de conexión no tiene una forma conocida: «%1».").arg(conexion));
}

void ServicioConexion::AjustarSqlite(const QSqlDatabase &db) {
  QSqlQuery q(db);
  // Readers don't wait for the writer, and a commit doesn't wait for the disk.
  q.exec(QStringLiteral("PRAGMA journal_mode=WAL"));
  q.exec(QStringLiteral("PRAGMA synchronous=NORMAL"));
}

ConexionPtr ServicioConexion::Abrir(const DestinoConexion &destino, const QString &texto) {
  if (destino.driver == QStringLiteral("QSQLITE") && !QFileInfo::exists(destino.baseDeDatos))
    throw ErrorFatal(QStringLiteral("No existe la base de datos %1.").arg(destino.baseDeDatos));
  const QString nombre = QStringLiteral("escribano_%1").arg(gSiguienteNombre.fetch_add(1));
  auto con = std::make_unique<Conexion>(nombre, destino.motor, texto);
  QSqlDatabase db = QSqlDatabase::addDatabase(destino.driver, nombre);
  db.setDatabaseName(destino.baseDeDatos);
  const bool sqlite = destino.driver == QStringLiteral("QSQLITE");
  // A database busy with another workstation's entry is waited for, not failed at once.
  if (sqlite)
    db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(kEsperaOcupada));
  if (!db.open())
    throw ErrorFatal(
        QStringLiteral("No fue posible abrir la conexión: %1").arg(TextoError(db.lastError())));
  if (sqlite)
    AjustarSqlite(db);
  const QString ajuste = con->Dialecto().AjusteSesion();
  if (!ajuste.isEmpty() && odbc::EsOdbc(db))
    odbc::Cursor::Ejecutar(db, ajuste, nullptr);
  return con;
}

ConexionPtr ServicioConexion::AbrirConexion(const QString &conexion) const {
  const QString driverSql =
      ServicioUtil::LeerIni(QStringLiteral("ODBC"), QStringLiteral("SQLSERVER"), RutaNimbarIni());
  DestinoConexion d = Traducir(conexion, gRutaApp, driverSql);
  if (d.motor == 0)
    d.motor = Motor;
  return Abrir(d, conexion);
}

ConexionPtr ServicioConexion::AbrirConexionSesion() {
  ServicioConexion servicio;
  servicio.Motor = gMotor;
  return servicio.AbrirConexion(gConexion);
}

ConexionPtr ServicioConexion::AbrirConexionGeneral(const QString &conexion) const {
  return Abrir(Traducir(conexion, gRutaApp, {}), conexion);
}

ConexionPtr ServicioConexion::AbrirConexionRuta(const QString &ruta) const {
  const QString texto =
      ConexionGeneral(ruta).replace(QStringLiteral("Nimbar.mdb"), QStringLiteral("Referencia.mdb"));
  return Abrir(Traducir(texto, ruta, {}), texto);
}

ConexionPtr ServicioConexion::AbrirSqlite(const QString &ruta, bool crear, int motor) {
  DestinoConexion d{QStringLiteral("QSQLITE"), RutaNativa(ruta), motor};
  if (crear && !QFileInfo::exists(d.baseDeDatos)) {
    QFile f(d.baseDeDatos);
    if (!f.open(QIODevice::WriteOnly))
      throw ErrorFatal(QStringLiteral("No fue posible crear el archivo %1: %2")
                           .arg(d.baseDeDatos, f.errorString()));
  }
  return Abrir(d, QStringLiteral("SQLite=") + ruta);
}
