// The benchmark of generation and export: builds synthetic companies of several sizes,
// runs the generation (all rules by document, then all by day) and the export of the
// period (the accounting package's layout and a user layout of two rows) on each
// engine, and compares each run with the replay of its own statements.

#include "EmpresaSintetica.h"
#include "Relevo.h"
#include "Repeticion.h"
#include "journal/Documentos.h"

#include "db/ConstructorBD.h"
#include "db/EmpresaDemo.h"
#include "db/Esquema.h"
#include "export/FormatoArchivo.h"
#include "export/GenerarArchivo.h"
#include "journal/Arbol.h"
#include "journal/Corrida.h"
#include "journal/Generacion.h"
#include "shell/CatalogoMensajes.h"
#include "shell/ErrorFatal.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

const char *const kUso =
    "Uso: escribano-bench [--documentos N[,N...]] [--documentos-mariadb N[,N...]]\n"
    "                     [--dias D] [--renglones R] [--motores sqlite,mariadb]\n"
    "                     [--archivos CARPETA] [--pruebas P[,P...]] [--memoria si|no]\n"
    "                     [--latencia-ms L[,L...]]\n"
    "  --documentos  tamaños de la empresa sintética (2000,8000,32000)\n"
    "  --documentos-mariadb  tamaños sobre MariaDB, donde cada sentencia cuesta diez veces\n"
    "                más (los de --documentos)\n"
    "  --dias        días del periodo sobre los que se reparten los documentos (30)\n"
    "  --renglones   renglones de cada venta y de cada recepción (12)\n"
    "  --motores     sqlite siempre; mariadb con el servidor de scripts/mariadb.sh, cuyo\n"
    "                origen de datos da ESCRIBANO_PRUEBA_DSN (los dos si está definido)\n"
    "  --archivos    copia ahí cada archivo exportado, para comparar dos compilaciones\n"
    "  --memoria     no: las generaciones y las exportaciones preguntan cada consulta a la\n"
    "                base, sin la memoria de la corrida (si)\n"
    "  --latencia-ms milisegundos que un relevo propio añade a cada ida y vuelta entre el\n"
    "                controlador y MariaDB, mitad en cada sentido; MariaDB se mide con\n"
    "                cada una (0). El relevo cuenta las idas y vueltas\n"
    "  --pruebas     las que se miden, de generacion_documento, exportacion_contpaq,\n"
    "                exportacion_usuario y generacion_dia (todas); las exportaciones leen\n"
    "                las pólizas de la generación por documento, que corre siempre antes\n";

const QStringList kPruebas = {u"generacion_documento"_s, u"exportacion_contpaq"_s,
                              u"exportacion_usuario"_s, u"generacion_dia"_s};

// The operations that the benchmark posts, each with its rules of the demo company.
const std::vector<int> kOperaciones = {1, 2, 12, 22, 24};

struct Opciones {
  std::vector<int> tamanos = {2000, 8000, 32000};
  std::vector<int> tamanosMariaDb; // empty: the same as tamanos
  int dias = 30;
  int renglones = 12;
  QStringList motores;
  QString archivos;    // where the exported files are kept, or empty
  bool memoria = true; // the runs answer repeated read-only lookups from their memory
  QStringList pruebas = kPruebas;
  std::vector<int> latencias = {0}; // milliseconds added to a round trip to MariaDB
};

// Reads the options; the text of what is wrong, or empty.
QString LeerOpciones(const QStringList &args, Opciones &o) {
  const auto entero = [](const QString &texto, int minimo, int maximo, int &valor) {
    bool ok = false;
    valor = texto.toInt(&ok);
    return ok && valor >= minimo && valor <= maximo;
  };
  for (int i = 1; i < args.size(); ++i) {
    const QString &opcion = args[i];
    if (i + 1 >= args.size())
      return u"Falta el valor de la opción %1."_s.arg(opcion);
    const QString valor = args[++i];
    if (opcion == u"--documentos"_s || opcion == u"--documentos-mariadb"_s) {
      std::vector<int> &tamanos = opcion == u"--documentos"_s ? o.tamanos : o.tamanosMariaDb;
      tamanos.clear();
      for (const QString &parte : valor.split(u',')) {
        int n = 0;
        if (!entero(parte, 20, 1000000, n))
          return u"Cada tamaño debe ser un número de documentos entre 20 y 1000000: «%1»."_s.arg(
              parte);
        tamanos.push_back(n);
      }
    } else if (opcion == u"--latencia-ms"_s) {
      o.latencias.clear();
      for (const QString &parte : valor.split(u',')) {
        int n = 0;
        if (!entero(parte, 0, 100, n))
          return u"Cada latencia debe ser un número de milisegundos entre 0 y 100: «%1»."_s.arg(
              parte);
        o.latencias.push_back(n);
      }
    } else if (opcion == u"--dias"_s) {
      if (!entero(valor, 1, 366, o.dias))
        return u"Los días deben ser un número entre 1 y 366: «%1»."_s.arg(valor);
    } else if (opcion == u"--renglones"_s) {
      if (!entero(valor, 1, 100, o.renglones))
        return u"Los renglones deben ser un número entre 1 y 100: «%1»."_s.arg(valor);
    } else if (opcion == u"--memoria"_s) {
      if (valor != u"si"_s && valor != u"no"_s)
        return u"La memoria es si o no: «%1»."_s.arg(valor);
      o.memoria = valor == u"si"_s;
    } else if (opcion == u"--archivos"_s) {
      if (!QDir().mkpath(valor))
        return u"No fue posible crear la carpeta «%1»."_s.arg(valor);
      o.archivos = valor;
    } else if (opcion == u"--pruebas"_s) {
      o.pruebas = valor.split(u',');
      for (const QString &p : o.pruebas)
        if (!kPruebas.contains(p))
          return u"Prueba desconocida «%1»: las pruebas son %2."_s.arg(p, kPruebas.join(u", "_s));
    } else if (opcion == u"--motores"_s) {
      o.motores = valor.split(u',');
      for (const QString &m : o.motores)
        if (m != u"sqlite"_s && m != u"mariadb"_s)
          return u"Motor desconocido «%1»: los motores son sqlite y mariadb."_s.arg(m);
    } else {
      return u"Opción desconocida: %1."_s.arg(opcion);
    }
  }
  const QString dsn = qEnvironmentVariable("ESCRIBANO_PRUEBA_DSN");
  if (o.motores.isEmpty()) {
    o.motores << u"sqlite"_s;
    if (!dsn.isEmpty())
      o.motores << u"mariadb"_s;
  }
  if (o.tamanosMariaDb.empty())
    o.tamanosMariaDb = o.tamanos;
  if (o.motores.contains(u"mariadb"_s) &&
      (dsn.isEmpty() || qEnvironmentVariableIntValue("ESCRIBANO_PRUEBA_PUERTO") <= 0))
    return u"Para medir sobre MariaDB hace falta su servidor: ejecute «source "
           "scripts/mariadb.sh», que define ESCRIBANO_PRUEBA_DSN y ESCRIBANO_PRUEBA_PUERTO."_s;
  return {};
}

// One line of the table.
struct Medida {
  QString motor;
  int documentos = 0;
  QString prueba;
  double segundos = 0;
  qint64 sentencias = 0;
  double repeticion = 0;
  qint64 resultado = 0; // entries written, or lines of the file
  qint64 enviadas = 0;  // statements that the measured run sent
  qint64 idas = -1;     // its round trips to the server, counted by the relay
  double Razon() const { return segundos / repeticion; }
  double MicrosPorDocumento() const { return segundos * 1e6 / documentos; }
};

QString CargaDelEquipo() {
  QFile f(u"/proc/loadavg"_s);
  if (!f.open(QIODevice::ReadOnly))
    return u"desconocida"_s;
  return QString::fromLatin1(f.readAll()).section(u' ', 0, 2);
}

// The installation of the benchmark: a folder with the program's folders and the
// company of one engine, rebuilt for each size, and its untouched state, to which every
// run and every replay returns first.
class Banco {
public:
  Banco(const QString &motor, const Opciones &opciones, int latencia = 0)
      : motor_(motor), opciones_(opciones) {
    if (!dir_.isValid())
      throw ErrorFatal(u"No fue posible crear la carpeta temporal del banco de pruebas."_s);
    LimpiarSesion();
    qunsetenv("ESCRIBANO_RUTA");
    IniciarRutas(dir_.path());
    for (const char *carpeta : {"Temp", "Export"})
      QDir().mkpath(RutaNativa(UnirRuta(gRutaApp, QLatin1String(carpeta))));
    gNumEmp = 1;
    gCodUsu = u"ADMIN"_s;
    if (motor == u"mariadb"_s) {
      // The runs and their replays reach the server through the relay; the company is
      // built and set back straight.
      gMotor = motor::kMySql;
      directa_ = u"DSN="_s + qEnvironmentVariable("ESCRIBANO_PRUEBA_DSN");
      relevo_ = std::make_unique<banco::Relevo>(
          static_cast<std::uint16_t>(qEnvironmentVariableIntValue("ESCRIBANO_PRUEBA_PUERTO")),
          latencia);
      gConexion = directa_ + u";Port=%1"_s.arg(relevo_->Puerto());
      if (latencia > 0)
        motor_ = u"%1+%2ms"_s.arg(motor).arg(latencia);
    } else {
      gMotor = motor::kSqlite;
      gConexion = u"SQLite=Empresa.db"_s;
      directa_ = gConexion;
    }
    CatalogoMensajes::Instalar(&mensajes_);
  }
  ~Banco() { CatalogoMensajes::Instalar(nullptr); }

  // A company of the size, with nothing posted.
  void Construir(int documentos) {
    documentos_ = documentos;
    const banco::Tamano tamano{documentos, opciones_.dias, opciones_.renglones};
    if (gMotor == motor::kSqlite) {
      BorrarSqlite(Plantilla());
      demo::CrearBaseEmpresaSqlite(Plantilla());
      ConexionPtr con = ServicioConexion::AbrirSqlite(Plantilla(), false, motor::kSqlite);
      banco::LlenarEmpresa(*con, tamano);
      return;
    }
    ConexionPtr con = AbrirDirecta();
    constructor::BorrarTablas(*con, esquema::TablasEmpresa());
    constructor::CrearTablas(*con, esquema::TablasEmpresa());
    banco::LlenarEmpresa(*con, tamano);
  }

  // Generation of the period with every rule of the operations at one frequency; without
  // repetir it only leaves the entries for the exports. The database goes back to the
  // company as built before every run and every replay, so a short generation is run
  // again, and so is its replay, and the fastest of each counts. The replay is of the
  // statements the run prescribes, recorded in a run of their own: each one by itself and
  // every lookup asked, as a run without the memory and without batches sends them, so
  // that the ratio shows what both save. Every measured run leaves the rows of that one.
  Medida Generar(int frec, bool repetir = true) {
    Medida m = Nueva(frec == 1 ? u"generacion_documento"_s : u"generacion_dia"_s);
    banco::Sentencias sentencias;
    QString huella;
    if (repetir) {
      const SentenciasUnaAUna unaAUna;
      Restablecer(frec);
      CorrerGeneracion(frec, m, sentencias, false);
      huella = Huella();
    }
    double total = 0;
    for (int vez = 0; vez == 0 || (repetir && vez < kVecesCortas && total < kSegundosCortos);
         ++vez) {
      Restablecer(frec);
      banco::Sentencias estas;
      const double segundos = CorrerGeneracion(frec, m, estas, opciones_.memoria);
      total += segundos;
      m.segundos = vez == 0 ? segundos : std::min(m.segundos, segundos);
      if (repetir && Huella() != huella)
        throw ErrorFatal(u"La corrida de %1 no dejó las mismas filas que sus sentencias una a "
                         "una: %2 contra %3."_s.arg(m.prueba, Huella(), huella));
    }
    if (!repetir)
      return m;
    Repetir(
        m, sentencias, kVecesCortas, 1, [&] { Restablecer(frec); },
        [&] {
          if (Huella() != huella)
            throw ErrorFatal(u"La repetición de %1 no dejó las mismas filas que la corrida: "
                             "%2 contra %3."_s.arg(m.prueba, Huella(), huella));
        });
    return m;
  }

  // Export of the period's entries, as the last generation left them. An export leaves
  // the database as it found it, so a short one is run again, and so is its replay, and
  // the fastest of each counts: at a few tens of milliseconds a single pause of the
  // machine would otherwise decide the ratio.
  Medida Exportar(banco::Formato formato) {
    Medida m = Nueva(formato == banco::Formato::Contpaq ? u"exportacion_contpaq"_s
                                                        : u"exportacion_usuario"_s);
    banco::FijarFormato(*AbrirDirecta(), formato);
    // The replay is of the statements the export prescribes, every lookup of every line:
    // those of a run without the memory and without batches, so that the ratio shows what
    // both save.
    banco::Sentencias sentencias;
    {
      const SentenciasUnaAUna unaAUna;
      CorrerExportacion(m, sentencias, false);
    }
    double total = 0;
    const int minimo = VecesExportacion();
    for (int vez = 0; vez < minimo || (vez < kVecesCortas && total < kSegundosCortos); ++vez) {
      banco::Sentencias estas;
      const double segundos = CorrerExportacion(m, estas, opciones_.memoria);
      total += segundos;
      m.segundos = vez == 0 ? segundos : std::min(m.segundos, segundos);
    }
    Repetir(m, sentencias, kVecesCortas, minimo);
    return m;
  }

private:
  // A test shorter than this is measured again, up to so many times.
  static constexpr double kSegundosCortos = 1.0;
  static constexpr int kVecesCortas = 5;
  // On the embedded engine an export and its replay, which change nothing, are measured
  // at least five times whatever their length: one pass of a second or more is at the
  // mercy of the machine. On the server a replay of every lookup takes minutes.
  int VecesExportacion() const { return motor_ == u"sqlite"_s ? 5 : 1; }

  // One run of the generation on the database as it stands; gives its seconds, and the
  // statements it sent.
  double CorrerGeneracion(int frec, Medida &m, banco::Sentencias &sentencias, bool memoria) {
    Grabadora grabadora;
    Corrida corrida;
    corrida.Conexion = Abrir();
    CargarOperaciones(corrida);
    ArbolOperaciones arbol;
    arbol.CargarArbol(*corrida.Conexion);
    if (!arbol.MarcarOperaciones(kOperaciones))
      throw ErrorFatal(u"La empresa sintética no tiene reglas para todas las operaciones."_s);
    OpcionesGeneracion op;
    op.Del = banco::InicioPeriodo();
    op.Al = FinPeriodo();
    op.FechaDefinida = op.Del;
    op.Resumen = UnirRuta(gRutaApp, u"Temp\\Resumen%1_%2.txt"_s.arg(frec).arg(++corridas_));
    op.Memoria = memoria;
    Generador generador(corrida, op);
    generador.avance = [&](const AvanceGeneracion &) { sentencias.Tomar(grabadora); };
    mensajes_.mostrados.clear();
    banco::RastreoFilas rastreo;
    QElapsedTimer reloj;
    Conexion::InstalarGrabadora(&grabadora);
    const qint64 idas = Idas();
    reloj.start();
    const ResultadoGeneracion r = generador.GenerarPolizas(arbol);
    sentencias.Tomar(grabadora);
    const double segundos = Segundos(reloj);
    Conexion::InstalarGrabadora(nullptr);
    Contar(m, sentencias, idas);
    AnotarFilas(sentencias, rastreo);
    if (mensajes_.Ids() != std::vector<int>{108})
      throw ErrorFatal(u"La generación de %1 no terminó con el mensaje 108."_s.arg(m.prueba));
    m.resultado = r.polizas;
    return segundos;
  }

  // One run of an export into its file; gives its seconds, and the statements it sent.
  double CorrerExportacion(Medida &m, banco::Sentencias &sentencias, bool memoria) {
    Grabadora grabadora;
    ConexionPtr con = Abrir();
    banco::RastreoFilas rastreo;
    DatosGenerarArchivo datos;
    datos.fechaIni = banco::InicioPeriodo();
    datos.fechaFin = FinPeriodo();
    datos.archivo = UnirRuta(gRutaApp, u"Export\\%1.txt"_s.arg(m.prueba));
    datos.memoria = memoria;
    FormatoArchivo f;
    mensajes_.mostrados.clear();
    QElapsedTimer reloj;
    Conexion::InstalarGrabadora(&grabadora);
    const qint64 idas = Idas();
    reloj.start();
    const bool hayFormato = CargarFormato(*con, f);
    const ResultadoArchivo r = hayFormato ? GenerarArchivo(*con, f, datos,
                                                           [&](qint64, qint64) {
                                                             sentencias.Tomar(grabadora);
                                                             return true;
                                                           })
                                          : ResultadoArchivo{};
    sentencias.Tomar(grabadora);
    const double segundos = Segundos(reloj);
    Conexion::InstalarGrabadora(nullptr);
    Contar(m, sentencias, idas);
    AnotarFilas(sentencias, rastreo);
    if (!r.completo)
      throw ErrorFatal(u"La exportación %1 no terminó: %2"_s.arg(m.prueba, r.falla));
    m.resultado = r.lineas;
    if (!opciones_.archivos.isEmpty())
      Conservar(datos.archivo, m);
    return segundos;
  }

  // The statements and round trips of the measured run: those of its last pass, which
  // are those of every one.
  void Contar(Medida &m, const banco::Sentencias &sentencias, qint64 idasAntes) const {
    m.enviadas = sentencias.Cuenta();
    m.idas = relevo_ ? Idas() - idasAntes : -1;
  }

  static double Segundos(const QElapsedTimer &reloj) {
    return static_cast<double>(reloj.nsecsElapsed()) / 1e9;
  }
  QDate FinPeriodo() const { return banco::InicioPeriodo().addDays(opciones_.dias - 1); }
  QString Plantilla() const { return UnirRuta(gRutaApp, u"Plantilla.db"_s); }

  Medida Nueva(const QString &prueba) const {
    Medida m;
    m.motor = motor_;
    m.documentos = documentos_;
    m.prueba = prueba;
    return m;
  }

  // A connection as the runs have it, through the relay on the server.
  ConexionPtr Abrir() const {
    ServicioConexion s;
    s.Motor = gMotor;
    return s.AbrirConexion(gConexion);
  }
  ConexionPtr AbrirDirecta() const {
    ServicioConexion s;
    s.Motor = gMotor;
    return s.AbrirConexion(directa_);
  }
  qint64 Idas() const { return relevo_ ? relevo_->IdasYVueltas() : -1; }

  void Conservar(const QString &archivo, const Medida &m) const {
    const QString copia =
        QDir(opciones_.archivos)
            .filePath(u"%1_%2_%3.txt"_s.arg(m.motor).arg(m.documentos).arg(m.prueba));
    QFile::remove(copia);
    if (!QFile::copy(RutaNativa(archivo), copia))
      throw ErrorFatal(u"No fue posible copiar %1 a %2."_s.arg(archivo, copia));
  }

  static void BorrarSqlite(const QString &ruta) {
    for (const char *sufijo : {"", "-wal", "-shm"})
      QFile::remove(RutaNativa(ruta + QLatin1String(sufijo)));
  }

  // The company as it was built, with every rule at the frequency. By day the cash
  // sale's row of datum 97 is left out: its key names the column without the table,
  // which a posting by day can't take.
  void Restablecer(int frec) {
    if (gMotor == motor::kSqlite) {
      const QString empresa = UnirRuta(gRutaApp, u"Empresa.db"_s);
      BorrarSqlite(empresa);
      if (!QFile::copy(RutaNativa(Plantilla()), RutaNativa(empresa)))
        throw ErrorFatal(u"No fue posible copiar la empresa sintética a %1."_s.arg(empresa));
    }
    ConexionPtr con = AbrirDirecta();
    if (gMotor != motor::kSqlite) {
      for (const char *tabla :
           {"tblPolizasEnc", "tblPolizasRen", "tblMovimxPoliza", "tblBitacoraPolizas"})
        con->Ejecutar(u"TRUNCATE TABLE %1"_s.arg(QLatin1String(tabla)));
      con->Ejecutar(u"UPDATE tblFolios SET FOL_FOLIOS='0'"_s);
      for (const char *tabla : {"tblGralVentas", "tblComprasEnc", "tblGastosEnc", "tblIngreEgre"})
        con->Ejecutar(u"UPDATE %1 SET CONTAB=0"_s.arg(QLatin1String(tabla)));
    }
    con->Ejecutar(u"UPDATE tblOperacionxConcep SET FREC=%1"_s.arg(frec));
    if (frec == 2)
      con->Ejecutar(u"DELETE FROM tblRubrosxOperacion WHERE COD_OPER=1 AND COD_DATO=97"_s);
  }

  // What a run leaves in the journal tables, to tell that a replay did the same work.
  QString Huella() const {
    ConexionPtr con = AbrirDirecta();
    Registros r = con->Abrir(
        u"SELECT COUNT(*) AS N,SUM(IMP_DEBE) AS D,SUM(IMP_HABER) AS H FROM tblPolizasRen"_s);
    QString huella = r.Campo(u"N"_s).Texto() + u"/"_s + r.Campo(u"D"_s).ComoDinero().Texto() +
                     u"/"_s + r.Campo(u"H"_s).ComoDinero().Texto();
    for (const char *tabla : {"tblPolizasEnc", "tblMovimxPoliza", "tblBitacoraPolizas"}) {
      Registros c = con->Abrir(u"SELECT COUNT(*) AS N FROM %1"_s.arg(QLatin1String(tabla)));
      huella += u"/"_s + c.Campo(u"N"_s).Texto();
    }
    return huella;
  }

  // The rows that the run read of each statement, for the replay to read as many. The
  // count of statements that the engine began must be that of the recorder: a statement
  // sent to another connection would put every count out of place.
  static void AnotarFilas(banco::Sentencias &sentencias, const banco::RastreoFilas &rastreo) {
    if (rastreo.Filas().empty())
      return;
    if (static_cast<qsizetype>(rastreo.Filas().size()) != sentencias.Cuenta())
      throw ErrorFatal(
          u"El motor comenzó %1 sentencias y la grabadora tiene %2."_s.arg(rastreo.Filas().size())
              .arg(sentencias.Cuenta()));
    sentencias.FijarFilas(rastreo.Filas());
  }

  // The replay of a run's statements, after antes and before despues, at least minimo
  // times; one that is short is run again, up to veces times, and its fastest counts.
  static void Repetir(Medida &m, const banco::Sentencias &sentencias, int veces = 1, int minimo = 1,
                      const std::function<void()> &antes = {},
                      const std::function<void()> &despues = {}) {
    m.sentencias = sentencias.Cuenta();
    double total = 0;
    for (int vez = 0; vez < minimo || (vez < veces && total < kSegundosCortos); ++vez) {
      if (antes)
        antes();
      const banco::Repeticion r = banco::Repetir(sentencias);
      if (r.rechazadas > 0)
        throw ErrorFatal(u"La repetición de %1 tuvo %2 sentencias rechazadas."_s.arg(m.prueba).arg(
            r.rechazadas));
      if (despues)
        despues();
      total += r.segundos;
      m.repeticion = vez == 0 ? r.segundos : std::min(m.repeticion, r.segundos);
    }
  }

  QString motor_;
  QString directa_; // the connection that builds the company and sets it back
  std::unique_ptr<banco::Relevo> relevo_;
  Opciones opciones_;
  QTemporaryDir dir_;
  PresentadorGrabador mensajes_;
  int documentos_ = 0;
  int corridas_ = 0;
};

QString Columna(const QString &texto, int ancho) { return texto.leftJustified(ancho); }
QString Numero(double valor, int decimales, int ancho) {
  return QString::number(valor, 'f', decimales).rightJustified(ancho);
}

void ImprimirEncabezado(QTextStream &out) {
  out << Columna(u"motor"_s, 12) << Columna(u"docs"_s, 7) << Columna(u"prueba"_s, 22)
      << u"segundos"_s.rightJustified(9) << u"docs/s"_s.rightJustified(9)
      << u"sentencias"_s.rightJustified(11) << u"sent/doc"_s.rightJustified(9)
      << u"idas/doc"_s.rightJustified(9) << u"repeticion_s"_s.rightJustified(13)
      << u"razon"_s.rightJustified(7) << u"us/doc"_s.rightJustified(8)
      << u"resultado"_s.rightJustified(10) << "\n";
}

void Imprimir(QTextStream &out, const Medida &m) {
  out << Columna(m.motor, 12) << Columna(QString::number(m.documentos), 7) << Columna(m.prueba, 22)
      << Numero(m.segundos, 3, 9) << Numero(m.documentos / m.segundos, 0, 9)
      << QString::number(m.sentencias).rightJustified(11)
      << Numero(static_cast<double>(m.enviadas) / m.documentos, 2, 9)
      << (m.idas < 0 ? u"-"_s.rightJustified(9)
                     : Numero(static_cast<double>(m.idas) / m.documentos, 2, 9))
      << Numero(m.repeticion, 3, 13) << Numero(m.Razon(), 3, 7)
      << Numero(m.MicrosPorDocumento(), 1, 8) << QString::number(m.resultado).rightJustified(10)
      << Qt::endl;
}

// The time per document of each test at each size; its change from the smallest size to
// the largest, and the spread between the extremes. A time that grows with the size points
// at a scan; one that shrinks is a cost of each day or rule spread over more documents.
void ImprimirCrecimiento(QTextStream &out, const std::vector<Medida> &medidas) {
  std::map<std::pair<QString, QString>, std::vector<const Medida *>> series;
  for (const Medida &m : medidas)
    series[{m.motor, m.prueba}].push_back(&m);
  out << "\nCrecimiento: microsegundos por documento en cada tamaño\n";
  for (const auto &[clave, serie] : series) {
    out << Columna(clave.first, 12) << Columna(clave.second, 22);
    double minimo = serie.front()->MicrosPorDocumento(), maximo = minimo;
    for (const Medida *m : serie) {
      out << u"  %1: %2"_s.arg(m->documentos).arg(m->MicrosPorDocumento(), 0, 'f', 1);
      minimo = std::min(minimo, m->MicrosPorDocumento());
      maximo = std::max(maximo, m->MicrosPorDocumento());
    }
    const double cambio =
        serie.back()->MicrosPorDocumento() / serie.front()->MicrosPorDocumento() - 1;
    out << u"   cambio %1 %, dispersion %2 %"_s.arg(cambio * 100, 0, 'f', 1)
               .arg((maximo / minimo - 1) * 100, 0, 'f', 1)
        << "\n";
  }
}

} // namespace

int main(int argc, char *argv[]) {
  QCoreApplication app(argc, argv);
  QTextStream out(stdout);
  QTextStream err(stderr);
  Opciones opciones;
  const QStringList args = QCoreApplication::arguments();
  if (args.contains(u"--ayuda"_s)) {
    out << kUso;
    return 0;
  }
  const QString error = LeerOpciones(args, opciones);
  if (!error.isEmpty()) {
    err << error << "\n\n" << kUso;
    return 2;
  }
  try {
    out << "Carga del equipo al empezar: " << CargaDelEquipo() << "\n";
    out << "Periodo de " << opciones.dias << " días, " << opciones.renglones
        << " renglones por venta y por recepción; operaciones 1, 2, 12, 22 y 24\n";
    out << "De cada 20 documentos: 11 ventas de contado, 3 a crédito, 2 recepciones, 2 gastos "
           "y 2 depósitos\n";
    out << "repeticion_s: las sentencias que la corrida prescribe (una a una, cada consulta "
           "preguntada) por el mismo controlador; lee en SQLite las filas que leyeron, en "
           "MariaDB todas\n";
    out << "razon: segundos / repeticion_s; resultado: pólizas grabadas, o líneas del archivo\n";
    out << "sent/doc: sentencias de la corrida por documento; idas/doc: idas y vueltas al "
           "servidor por documento, contadas por el relevo (mariadb+Lms: L ms más en cada una)\n\n";
    ImprimirEncabezado(out);
    std::vector<Medida> medidas;
    std::vector<std::pair<QString, int>> mediciones;
    for (const QString &motor : opciones.motores)
      for (int latencia : motor == u"mariadb"_s ? opciones.latencias : std::vector<int>{0})
        mediciones.emplace_back(motor, latencia);
    for (const auto &[motor, latencia] : mediciones) {
      Banco banco(motor, opciones, latencia);
      for (int documentos : motor == u"mariadb"_s ? opciones.tamanosMariaDb : opciones.tamanos) {
        banco.Construir(documentos);
        const bool porDocumento = opciones.pruebas.contains(u"generacion_documento"_s);
        const bool contpaq = opciones.pruebas.contains(u"exportacion_contpaq"_s);
        const bool usuario = opciones.pruebas.contains(u"exportacion_usuario"_s);
        const auto anotar = [&](const Medida &m) {
          Imprimir(out, m);
          medidas.push_back(m);
        };
        // The exports read the entries of the generation by document.
        if (porDocumento || contpaq || usuario) {
          const Medida m = banco.Generar(1, porDocumento);
          if (porDocumento)
            anotar(m);
        }
        if (contpaq)
          anotar(banco.Exportar(banco::Formato::Contpaq));
        if (usuario)
          anotar(banco.Exportar(banco::Formato::DosRenglones));
        if (opciones.pruebas.contains(u"generacion_dia"_s))
          anotar(banco.Generar(2));
      }
    }
    if (opciones.tamanos.size() > 1 || opciones.tamanosMariaDb.size() > 1)
      ImprimirCrecimiento(out, medidas);
    double razon = 0;
    for (const Medida &m : medidas)
      razon = std::max(razon, m.Razon());
    out << "\nCarga del equipo al terminar: " << CargaDelEquipo() << "\n";
    out << u"overhead_ratio_max=%1"_s.arg(razon, 0, 'f', 3) << Qt::endl;
  } catch (const ErrorFatal &e) {
    err << e.TextoCompleto() << "\n";
    return 1;
  }
  return 0;
}
