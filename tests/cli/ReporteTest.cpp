#include "Apoyo.h"
#include "ApoyoCli.h"
#include "db/EmpresaDemo.h"
#include "reports/ConsultaPolizas.h"
#include "reports/Lienzo.h"
#include "shell/Rutas.h"
#include "shell/Sesion.h"

#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

// The demo month posted, and its reports drawn by the program itself.
class CliReporte : public testing::Test {
protected:
  void SetUp() override {
    CatalogoMensajes::Instalar(&mensajes);
    ASSERT_EQ(CorrerCli({QStringLiteral("--ruta"), dir.path(), QStringLiteral("demo"),
                         QStringLiteral("--clave"), QStringLiteral("abc")})
                  .codigo,
              0);
    ASSERT_EQ(
        CorrerCli(QStringList{QStringLiteral("--ruta"), dir.path(), QStringLiteral("generar")} +
                  Entrada() + Periodo())
            .codigo,
        0);
  }
  void TearDown() override {
    CatalogoMensajes::Instalar(nullptr);
    qunsetenv("ESCRIBANO_RUTA");
  }
  static QStringList Entrada() {
    return {QStringLiteral("--empresa"), QStringLiteral("1"),       QStringLiteral("--usuario"),
            QStringLiteral("ADMIN"),     QStringLiteral("--clave"), QStringLiteral("abc")};
  }
  static QStringList Periodo() {
    const QDate mes = demo::MesDemo();
    return {QStringLiteral("--del"), mes.toString(Qt::ISODate), QStringLiteral("--al"),
            mes.addMonths(1).addDays(-1).toString(Qt::ISODate)};
  }
  struct Salida {
    int codigo;
    QString out, err;
  };
  Salida Reporte(const QStringList &args) {
    QProcess p;
    p.start(QStringLiteral(ESCRIBANO_CLI),
            QStringList{QStringLiteral("--ruta"), dir.path(), QStringLiteral("reporte")} +
                Entrada() + Periodo() + args);
    EXPECT_TRUE(p.waitForFinished(120000));
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
  }
  static int PaginasPdf(const QString &archivo) {
    QProcess p;
    p.start(QStringLiteral("pdfinfo"), {archivo});
    p.waitForFinished(60000);
    for (const QString &linea : QString::fromUtf8(p.readAllStandardOutput()).split(u'\n'))
      if (linea.startsWith(QStringLiteral("Pages:")))
        return linea.mid(6).trimmed().toInt();
    return -1;
  }

  QTemporaryDir dir;
  PresentadorGrabador mensajes;
};

} // namespace

TEST_F(CliReporte, TheTraceIsWhatTheScreensRunDrawsAndThePdfHasItsPages) {
  const QString trazo = dir.filePath(QStringLiteral("polizas.txt"));
  const QString pdf = dir.filePath(QStringLiteral("polizas.pdf"));
  const Salida s = Reporte({QStringLiteral("--detallado"), QStringLiteral("--trazo"), trazo,
                            QStringLiteral("--pdf"), pdf});
  ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
  EXPECT_EQ(s.err, QString());
  const QStringList lineas = QString::fromUtf8(LeerArchivo(trazo)).split(u'\n', Qt::SkipEmptyParts);
  const int paginas = lineas.last().section(u'\t', 0, 0).toInt();
  EXPECT_GT(paginas, 1);
  EXPECT_TRUE(s.out.endsWith(QStringLiteral("Páginas: %1\n").arg(paginas))) << s.out.toStdString();
  EXPECT_EQ(PaginasPdf(pdf), paginas);
  // Forced, the progress line tells the pages drawn and is erased at the end.
  const Salida p = Reporte({QStringLiteral("--detallado"), QStringLiteral("--trazo"), trazo,
                            QStringLiteral("--progreso")});
  ASSERT_EQ(p.codigo, 0);
  EXPECT_TRUE(p.err.contains(QStringLiteral("Páginas dibujadas 2"))) << p.err.toStdString();
  EXPECT_TRUE(p.err.endsWith(QStringLiteral("\r\x1b[K")));
  // The same report drawn here on the recording canvas, as the screen draws it.
  qputenv("ESCRIBANO_RUTA", dir.path().toLocal8Bit());
  IniciarRutas(QStringLiteral("/nada"));
  ConexionPtr con = ServicioConexion().AbrirConexion(
      QStringLiteral("SQLite=") + dir.filePath(QStringLiteral("Empresas/Demo.db")));
  OpcionesConsulta op;
  op.detallado = true;
  op.del = demo::MesDemo();
  op.al = op.del.addMonths(1).addDays(-1);
  LienzoGrabador lienzo;
  ReporteConsulta reporte(*con, lienzo, LeerEncabezadoEmpresa(*con), {}, dir.path(), Hoy());
  reporte.ArmarFiltros(op);
  reporte.GenerarReporte();
  EXPECT_EQ(lienzo.Traza(), lineas);
  // The PDF to pictures, to be looked at.
  const QString capturas = qEnvironmentVariable("ESCRIBANO_CAPTURAS");
  if (!capturas.isEmpty()) {
    QDir().mkpath(capturas);
    QProcess::execute(QStringLiteral("pdftoppm"),
                      {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("60"),
                       QStringLiteral("-l"), QStringLiteral("2"), pdf,
                       QDir(capturas).filePath(QStringLiteral("polizas"))});
  }
}

TEST_F(CliReporte, TheScreensRulesHoldOnTheCommandLine) {
  const std::pair<QStringList, const char *> casos[] = {
      {{}, "Dé una de --resumido, --detallado o --movimientos.\n"},
      {{QStringLiteral("--resumido"), QStringLiteral("--detallado"), QStringLiteral("--pdf"),
        QStringLiteral("x.pdf")},
       "Dé una de --resumido, --detallado o --movimientos.\n"},
      {{QStringLiteral("--movimientos"), QStringLiteral("--orden"), QStringLiteral("tipo"),
        QStringLiteral("--pdf"), QStringLiteral("x.pdf")},
       "El reporte de movimientos no se ordena por tipo.\n"},
      {{QStringLiteral("--resumido"), QStringLiteral("--no-contabilizados"),
        QStringLiteral("--pdf"), QStringLiteral("x.pdf")},
       "La opción --no-contabilizados va con --movimientos.\n"},
      {{QStringLiteral("--resumido"), QStringLiteral("--orden"), QStringLiteral("folio"),
        QStringLiteral("--pdf"), QStringLiteral("x.pdf")},
       "La opción --orden espera tipo, fecha o concepto: «folio».\n"},
      {{QStringLiteral("--resumido")}, "Dé --pdf RUTA, --trazo RUTA o ambas.\n"},
  };
  for (const auto &[args, mensaje] : casos) {
    const Salida s = Reporte(args);
    EXPECT_EQ(s.codigo, 1) << mensaje;
    EXPECT_EQ(s.err, QString::fromUtf8(mensaje));
  }
  // The movement report defaults to the date's order.
  const QString trazo = dir.filePath(QStringLiteral("mov.txt"));
  const Salida m = Reporte({QStringLiteral("--movimientos"), QStringLiteral("--trazo"), trazo});
  ASSERT_EQ(m.codigo, 0) << m.err.toStdString();
  EXPECT_TRUE(QString::fromUtf8(LeerArchivo(trazo)).contains(QStringLiteral("\tFecha: ")));
}
