#include "Apoyo.h"
#include "ApoyoCli.h"
#include "cli/Comandos.h"
#include "db/EmpresaDemo.h"
#include "journal/DiarioPrueba.h"
#include "shell/ServicioConexion.h"

#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>
#include <map>

namespace {

// A demo installation made once for the suite: every case runs on it, and the ones that
// must change nothing compare every file of it, byte for byte.
class Opciones : public testing::Test {
protected:
  static void SetUpTestSuite() {
    dir = new QTemporaryDir;
    qunsetenv("ESCRIBANO_CLAVE");
    ASSERT_EQ(CorrerCli({QStringLiteral("--ruta"), dir->path(), QStringLiteral("demo"),
                         QStringLiteral("--clave"), QLatin1String(kClave)})
                  .codigo,
              0);
  }
  static void TearDownTestSuite() {
    delete dir;
    qunsetenv("ESCRIBANO_RUTA");
  }
  void SetUp() override { CatalogoMensajes::Instalar(&mensajes); }
  void TearDown() override { CatalogoMensajes::Instalar(nullptr); }

  static SalidaCli Correr(QStringList args) {
    return CorrerCli(QStringList{QStringLiteral("--ruta"), dir->path()} + args);
  }
  // Every file of the installation with its bytes.
  static std::map<QString, QByteArray> Archivos() {
    std::map<QString, QByteArray> archivos;
    for (QDirIterator it(dir->path(), QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
      const QString ruta = it.next();
      archivos[ruta] = LeerArchivo(ruta);
    }
    return archivos;
  }
  static QStringList Periodo() {
    const QDate mes = demo::MesDemo();
    return {QStringLiteral("--del"), mes.toString(Qt::ISODate), QStringLiteral("--al"),
            mes.addMonths(1).addDays(-1).toString(Qt::ISODate)};
  }
  static QStringList Entrada() {
    return {QStringLiteral("--empresa"), QStringLiteral("1"),       QStringLiteral("--usuario"),
            QStringLiteral("ADMIN"),     QStringLiteral("--clave"), QLatin1String(kClave)};
  }
  static QString Uso(const QString &comando) {
    for (const cli::ComandoCli &c : cli::TodosLosComandos())
      if (c.nombre == comando)
        return QStringLiteral("\n\n") + c.Sinopsis() +
               QStringLiteral("Más detalle: escribano-cli %1 --ayuda\n").arg(comando);
    return {};
  }

  static constexpr const char *kClave = "Zq7secreto";
  static inline QTemporaryDir *dir = nullptr;
  PresentadorGrabador mensajes;
};

struct CasoMalo {
  const char *comando;
  QStringList opciones;
  const char *mensaje;
};

} // namespace

TEST_F(Opciones, EveryWrongCommandLineExitsOneNamingTheOptionAndChangesNothing) {
  const QStringList gen = QStringList{QStringLiteral("generar")} + Entrada() + Periodo();
  const QStringList exp =
      QStringList{QStringLiteral("exportar")} + Entrada() + Periodo() +
      QStringList{QStringLiteral("--archivo"), dir->filePath(QStringLiteral("x.txt"))};
  const auto L = [](std::initializer_list<const char *> partes) {
    QStringList l;
    for (const char *p : partes)
      l << QString::fromUtf8(p);
    return l;
  };
  const QStringList eli = QStringList{QStringLiteral("eliminar")} + Entrada() + Periodo();
  const QStringList rep = QStringList{QStringLiteral("reporte")} + Entrada() + Periodo();
  const CasoMalo casos[] = {
      {"reporte", rep + L({"--png", "x"}), "La opción --png no existe en el comando reporte."},
      {"reporte", rep + L({"--pdf"}), "A la opción --pdf le falta su valor (RUTA)."},
      {"reporte", rep + L({"--detallado", "--detallado"}),
       "La opción --detallado se dio más de una vez."},
      {"reporte", rep + L({"--modulo", "ventas"}),
       "La opción --modulo espera un número entero: «ventas»."},
      {"reporte", rep + L({"todo"}), "Sobra el argumento «todo»: el comando reporte no lo espera."},
      {"eliminar", eli + L({"--todo"}), "La opción --todo no existe en el comando eliminar."},
      {"eliminar", eli + L({"--concepto"}), "A la opción --concepto le falta su valor (C)."},
      {"eliminar", eli + L({"--si", "--si"}), "La opción --si se dio más de una vez."},
      {"eliminar", eli + L({"--operacion", "x"}),
       "La opción --operacion espera un número entero: «x»."},
      {"eliminar", eli + L({"ya"}), "Sobra el argumento «ya»: el comando eliminar no lo espera."},
      // Unknown options and typos.
      {"generar", gen + L({"--ensaya"}), "La opción --ensaya no existe en el comando generar."},
      {"generar", gen + L({"--actualisar"}),
       "La opción --actualisar no existe en el comando generar."},
      {"exportar", exp + L({"-x"}), "La opción -x no existe en el comando exportar."},
      {"poliza", L({"poliza", "--foli", "1"}), "La opción --foli no existe en el comando poliza."},
      {"resumen", L({"resumen", "--json=si"}), "La opción --json no lleva valor: «si»."},
      {"demo", L({"demo", "--reconstruye"}),
       "La opción --reconstruye no existe en el comando demo."},
      // A value missing.
      {"generar", gen + L({"--fecha"}), "A la opción --fecha le falta su valor (AAAA-MM-DD)."},
      {"generar", gen + L({"--bitacora", "--agregar"}),
       "A la opción --bitacora le falta su valor (RUTA)."},
      {"exportar", exp + L({"--tipo"}), "A la opción --tipo le falta su valor (T)."},
      {"poliza", L({"poliza", "--folio"}), "A la opción --folio le falta su valor (F)."},
      {"resumen", L({"resumen", "--empresa"}), "A la opción --empresa le falta su valor (N)."},
      {"demo", L({"demo", "--clave"}), "A la opción --clave le falta su valor (P)."},
      // An option twice.
      {"generar", gen + L({"--actualizar", "--actualizar"}),
       "La opción --actualizar se dio más de una vez."},
      {"exportar", exp + L({"--tipo", "D", "--tipo", "I"}),
       "La opción --tipo se dio más de una vez."},
      {"poliza", L({"poliza", "--folio", "1", "--folio", "2"}),
       "La opción --folio se dio más de una vez."},
      {"resumen", L({"resumen", "--empresa", "1", "--empresa", "1"}),
       "La opción --empresa se dio más de una vez."},
      {"demo", L({"demo", "--reconstruir", "--reconstruir"}),
       "La opción --reconstruir se dio más de una vez."},
      // A value of the wrong kind.
      {"resumen", L({"resumen", "--empresa", "abc"}),
       "La opción --empresa espera un número entero: «abc»."},
      {"generar", gen + L({"--fecha", "2026-02-30"}),
       "La opción --fecha espera una fecha AAAA-MM-DD: «2026-02-30»."},
      {"generar", gen + L({"--operaciones", "1,x"}),
       "La opción --operaciones espera números enteros separados por comas: «1,x»."},
      {"exportar", exp + L({"--operacion", "2.5"}),
       "La opción --operacion espera un número entero: «2.5»."},
      {"poliza", L({"poliza", "--tipo", "X"}),
       "La opción --tipo espera un tipo de póliza (I, E, D, O o S): «X»."},
      // A stray word.
      {"generar", gen + L({"extra"}),
       "Sobra el argumento «extra»: el comando generar no lo espera."},
      {"exportar", exp + L({"otra"}),
       "Sobra el argumento «otra»: el comando exportar no lo espera."},
      {"poliza", L({"poliza", "12"}), "Sobra el argumento «12»: el comando poliza no lo espera."},
      {"resumen", L({"resumen", "1"}), "Sobra el argumento «1»: el comando resumen no lo espera."},
      {"demo", L({"demo", "ya"}), "Sobra el argumento «ya»: el comando demo no lo espera."},
      // Both ways of the progress line.
      {"generar", gen + L({"--progreso", "--sin-progreso"}),
       "Las opciones --progreso y --sin-progreso se excluyen."},
  };
  const std::map<QString, QByteArray> antes = Archivos();
  for (const CasoMalo &c : casos) {
    const SalidaCli s = Correr(c.opciones);
    EXPECT_EQ(s.codigo, 1) << c.mensaje;
    EXPECT_EQ(s.err, QString::fromUtf8(c.mensaje) + Uso(QLatin1String(c.comando)));
    EXPECT_EQ(s.out, QString()) << c.mensaje;
  }
  EXPECT_TRUE(mensajes.mostrados.empty());
  EXPECT_TRUE(Archivos() == antes);
}

TEST_F(Opciones, EmpresaAbcIsAUsageErrorNotAMissingCompany) {
  const SalidaCli t =
      Correr({QStringLiteral("poliza"), QStringLiteral("--empresa"), QStringLiteral("abc")});
  EXPECT_EQ(t.codigo, 1);
  EXPECT_EQ(t.err, QStringLiteral("La opción --empresa espera un número entero: «abc».") +
                       Uso(QStringLiteral("poliza")));
}

TEST_F(Opciones, AnUnknownCommandOrGlobalOptionShowsTheProgramsHelp) {
  const SalidaCli a = Correr({QStringLiteral("volar")});
  EXPECT_EQ(a.codigo, 1);
  EXPECT_EQ(a.err, QStringLiteral("El comando «volar» no existe.\n\n") + cli::AyudaGeneral());
  const SalidaCli b = CorrerCli({QStringLiteral("--nada"), QStringLiteral("resumen")});
  EXPECT_EQ(b.codigo, 1);
  EXPECT_EQ(b.err, QStringLiteral("La opción --nada no existe en escribano-cli.\n\n") +
                       cli::AyudaGeneral());
  const SalidaCli c = CorrerCli({});
  EXPECT_EQ(c.codigo, 1);
  EXPECT_EQ(c.err, QStringLiteral("Falta el comando.\n\n") + cli::AyudaGeneral());
}

TEST_F(Opciones, EachCommandHasItsHelpAndTheProgramItsVersion) {
  for (const cli::ComandoCli &c : cli::TodosLosComandos()) {
    const SalidaCli s = Correr({c.nombre, QStringLiteral("--ayuda")});
    EXPECT_EQ(s.codigo, 0);
    EXPECT_EQ(s.out, c.Ayuda());
    for (const cli::OpcionCli &o : c.opciones)
      EXPECT_TRUE(s.out.contains(QStringLiteral("--") + o.nombre)) << o.nombre.toStdString();
  }
  const SalidaCli g = CorrerCli({QStringLiteral("--ayuda")});
  EXPECT_EQ(g.codigo, 0);
  EXPECT_EQ(g.out, cli::AyudaGeneral());
  // Every line of every help fits a terminal of 80 columns.
  QString todas = cli::AyudaGeneral();
  for (const cli::ComandoCli &c : cli::TodosLosComandos())
    todas += c.Ayuda();
  for (const QString &linea : todas.split(QLatin1Char('\n')))
    EXPECT_LE(linea.size(), 80) << linea.toStdString();
  // The help of a command asked either way; --version alone.
  const auto &comandos = cli::TodosLosComandos();
  const auto poliza = std::find_if(comandos.begin(), comandos.end(), [](const cli::ComandoCli &c) {
    return c.nombre == QLatin1String("poliza");
  });
  ASSERT_NE(poliza, comandos.end());
  EXPECT_EQ(CorrerCli({QStringLiteral("--ayuda"), QStringLiteral("poliza")}).out, poliza->Ayuda());
  const SalidaCli sobra = CorrerCli({QStringLiteral("--version"), QStringLiteral("extra")});
  EXPECT_EQ(sobra.codigo, 1);
  EXPECT_EQ(sobra.err, QStringLiteral("Sobra el argumento «extra»: --version va sola.\n"));
  const SalidaCli ruta = Correr({QStringLiteral("resumen"), QStringLiteral("--ruta"), dir->path()});
  EXPECT_EQ(ruta.codigo, 1);
  EXPECT_TRUE(ruta.err.startsWith(QStringLiteral(
      "La opción --ruta va antes del comando: escribano-cli --ruta CARPETA resumen")));
  const SalidaCli v = CorrerCli({QStringLiteral("--version")});
  EXPECT_EQ(v.codigo, 0);
  EXPECT_EQ(v.out, QStringLiteral("escribano-cli " ESCRIBANO_VERSION "\n"));
}

TEST_F(Opciones, TheReadmeListsTheCommandsAsTheProgramDeclaresThem) {
  QString esperado = QStringLiteral("```\n$ escribano-cli --ayuda\n") + cli::AyudaGeneral();
  for (const cli::ComandoCli &c : cli::TodosLosComandos())
    esperado += QStringLiteral("\n$ escribano-cli %1 --ayuda\n").arg(c.nombre) + c.Ayuda();
  esperado += QStringLiteral("```\n");
  const QString readme =
      QString::fromUtf8(LeerArchivo(QStringLiteral(ESCRIBANO_RAIZ) + QStringLiteral("/README.md")));
  const QString inicio = QStringLiteral("<!-- comandos: escribano-cli --ayuda -->\n");
  const QString fin = QStringLiteral("<!-- fin de los comandos -->");
  const qsizetype a = readme.indexOf(inicio);
  const qsizetype b = readme.indexOf(fin);
  ASSERT_GE(a, 0);
  ASSERT_GT(b, a);
  EXPECT_EQ(readme.mid(a + inicio.size(), b - a - inicio.size()), esperado)
      << "scripts/ayuda_cli.sh rehace la lista del README";
}

TEST_F(Opciones, JsonAgreesWithTheTables) {
  const SalidaCli g =
      Correr(QStringList{QStringLiteral("generar"), QStringLiteral("--json"),
                         QStringLiteral("--bitacora"), dir->filePath(QStringLiteral("json.txt"))} +
             Entrada() + Periodo());
  ASSERT_EQ(g.codigo, 0) << g.err.toStdString();
  QJsonParseError error;
  const QJsonObject gen = QJsonDocument::fromJson(g.out.toUtf8(), &error).object();
  ASSERT_EQ(error.error, QJsonParseError::NoError) << g.out.toStdString();
  ServicioConexion sc;
  qputenv("ESCRIBANO_RUTA", dir->path().toLocal8Bit());
  ConexionPtr con = sc.AbrirConexion(QStringLiteral("SQLite=") +
                                     dir->filePath(QStringLiteral("Empresas/Demo.db")));
  const int polizas =
      diario::Filas(*con, QStringLiteral("SELECT COUNT(*) FROM tblPolizasEnc")).first().toInt();
  EXPECT_GT(polizas, 0);
  EXPECT_EQ(gen.value(QStringLiteral("comando")).toString(), QStringLiteral("generar"));
  EXPECT_EQ(gen.value(QStringLiteral("salida")).toInt(), 0);
  EXPECT_EQ(gen.value(QStringLiteral("polizasGrabadas")).toInt(), polizas);
  EXPECT_EQ(mensajes.Ids(), std::vector<int>{108});
  EXPECT_TRUE(
      gen.value(QStringLiteral("bitacora")).toString().endsWith(QStringLiteral("json.txt")));

  // Each entry as the tables hold it.
  const QString primera =
      diario::Filas(*con, QStringLiteral("SELECT TIP_POLIZA,FOL_POLIZA FROM tblPolizasEnc ORDER BY "
                                         "FEC_POLIZA,TIP_POLIZA,FOL_POLIZA"))
          .first();
  const QString tipo = primera.section(QLatin1Char('|'), 0, 0);
  const QString folio = primera.section(QLatin1Char('|'), 1, 1);
  const SalidaCli p = Correr({QStringLiteral("poliza"), QStringLiteral("--json")});
  ASSERT_EQ(p.codigo, 0);
  const QJsonObject poliza =
      QJsonDocument::fromJson(p.out.toUtf8()).object().value(QStringLiteral("poliza")).toObject();
  EXPECT_EQ(poliza.value(QStringLiteral("tipo")).toString(), tipo);
  EXPECT_EQ(poliza.value(QStringLiteral("folio")).toString(), folio);
  const QStringList renglones = diario::Filas(
      *con, QStringLiteral("SELECT IMP_DEBE,IMP_HABER FROM tblPolizasRen WHERE TIP_POLIZA='%1' AND "
                           "FOL_POLIZA='%2'")
                .arg(tipo, folio));
  const QJsonArray lineas = poliza.value(QStringLiteral("renglones")).toArray();
  ASSERT_EQ(lineas.size(), renglones.size());
  Dinero debe, haber;
  for (const QJsonValue &l : lineas) {
    debe += Dinero::DeTexto(l.toObject().value(QStringLiteral("cargo")).toString());
    haber += Dinero::DeTexto(l.toObject().value(QStringLiteral("abono")).toString());
  }
  const QStringList sumas = diario::Filas(
      *con, QStringLiteral("SELECT SUM_DEBE,SUM_HABER FROM tblPolizasEnc WHERE TIP_POLIZA='%1' AND "
                           "FOL_POLIZA='%2'")
                .arg(tipo, folio));
  const QJsonObject s = poliza.value(QStringLiteral("sumas")).toObject();
  EXPECT_EQ(s.value(QStringLiteral("cargo")).toString(), debe.Texto());
  EXPECT_EQ(s.value(QStringLiteral("abono")).toString(), haber.Texto());
  EXPECT_EQ(QStringLiteral("%1|%2").arg(debe.Texto(), haber.Texto()), sumas.first());

  const SalidaCli r = Correr({QStringLiteral("resumen"), QStringLiteral("--json")});
  ASSERT_EQ(r.codigo, 0);
  const QJsonObject tablas =
      QJsonDocument::fromJson(r.out.toUtf8()).object().value(QStringLiteral("tablas")).toObject();
  for (const char *tabla :
       {"tblPolizasEnc", "tblPolizasRen", "tblMovimxPoliza", "tblBitacoraPolizas"})
    EXPECT_EQ(
        tablas.value(QLatin1String(tabla)).toInteger(),
        diario::Filas(*con, QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1String(tabla)))
            .first()
            .toLongLong())
        << tabla;

  const QString archivo = dir->filePath(QStringLiteral("json_export.txt"));
  const SalidaCli e = Correr(QStringList{QStringLiteral("exportar"), QStringLiteral("--json"),
                                         QStringLiteral("--archivo"), archivo} +
                             Entrada() + Periodo());
  ASSERT_EQ(e.codigo, 0) << e.err.toStdString();
  const QJsonObject exportacion = QJsonDocument::fromJson(e.out.toUtf8()).object();
  EXPECT_EQ(exportacion.value(QStringLiteral("lineas")).toInteger(),
            LeerArchivo(archivo).count("\r\n"));
  EXPECT_GT(exportacion.value(QStringLiteral("lineas")).toInteger(), 0);
}

TEST(Leidas, EachKindOfValueIsCheckedAndRead) {
  cli::ComandoCli c;
  c.nombre = QStringLiteral("prueba");
  c.opciones = {{QStringLiteral("mes"), cli::Valor::Mes, QStringLiteral("AAAA-MM"), {}, false},
                {QStringLiteral("dia"), cli::Valor::Fecha, QStringLiteral("AAAA-MM-DD"), {}, false},
                {QStringLiteral("n"), cli::Valor::Entero, QStringLiteral("N"), {}, false},
                {QStringLiteral("lista"), cli::Valor::Enteros, QStringLiteral("1,2"), {}, false},
                {QStringLiteral("tipo"), cli::Valor::TipoPoliza, QStringLiteral("T"), {}, false},
                {QStringLiteral("si"), cli::Valor::Ninguno, {}, {}, false}};
  cli::Leidas o;
  QString error;
  ASSERT_TRUE(o.Leer(c,
                     {QStringLiteral("--mes=2026-02"), QStringLiteral("--dia"),
                      QStringLiteral("2024-02-29"), QStringLiteral("--n"), QStringLiteral("-3"),
                      QStringLiteral("--lista"), QStringLiteral("1, 24"), QStringLiteral("--tipo"),
                      QStringLiteral("E"), QStringLiteral("--si")},
                     error))
      << error.toStdString();
  EXPECT_EQ(o.Mes(QStringLiteral("mes")), QDate(2026, 2, 1));
  EXPECT_EQ(o.Fecha(QStringLiteral("dia")), QDate(2024, 2, 29));
  EXPECT_EQ(o.Entero(QStringLiteral("n")), -3);
  EXPECT_EQ(o.Enteros(QStringLiteral("lista")), (QList<int>{1, 24}));
  EXPECT_EQ(o.Texto(QStringLiteral("tipo")), QStringLiteral("E"));
  EXPECT_TRUE(o.Hay(QStringLiteral("si")));
  const std::pair<QStringList, const char *> malos[] = {
      {{QStringLiteral("--mes"), QStringLiteral("2026-13")},
       "La opción --mes espera un mes AAAA-MM: «2026-13»."},
      {{QStringLiteral("--mes"), QStringLiteral("2026-1")},
       "La opción --mes espera un mes AAAA-MM: «2026-1»."},
      {{QStringLiteral("--dia"), QStringLiteral("2023-02-29")},
       "La opción --dia espera una fecha AAAA-MM-DD: «2023-02-29»."},
      {{QStringLiteral("--dia"), QStringLiteral("2024-2-9")},
       "La opción --dia espera una fecha AAAA-MM-DD: «2024-2-9»."},
      {{QStringLiteral("--n"), QStringLiteral("99999999999")},
       "La opción --n espera un número entero: «99999999999»."},
      {{QStringLiteral("--lista"), QStringLiteral("1,,2")},
       "La opción --lista espera números enteros separados por comas: «1,,2»."},
      {{QStringLiteral("--tipo"), QStringLiteral("EE")},
       "La opción --tipo espera un tipo de póliza (I, E, D, O o S): «EE»."},
  };
  for (const auto &[args, mensaje] : malos) {
    EXPECT_FALSE(o.Leer(c, args, error)) << mensaje;
    EXPECT_EQ(error, QString::fromUtf8(mensaje));
  }
}
