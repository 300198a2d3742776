#include "Apoyo.h"
#include "db/EmpresaDemo.h"
#include "shell/Rutas.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

// The program itself, as a user or a scheduled job runs it: passwords from standard input
// or the environment, and the progress line on a terminal (a pseudo-terminal opened by
// `script`).
class Terminal : public testing::Test {
protected:
  struct Salida {
    int codigo = -1;
    QString out, err;
  };

  void SetUp() override {
    ASSERT_TRUE(dir.isValid());
    // The demo's password read from standard input as well.
    const Salida d =
        Correr({QStringLiteral("demo"), QStringLiteral("--clave"), QStringLiteral("-")},
               QByteArray(kClave) + "\n");
    ASSERT_EQ(d.codigo, 0) << d.err.toStdString();
    Anotar(d);
  }
  void TearDown() override {
    // No password anywhere: not in any output, nor in any file the runs left.
    for (const QString &texto : salidas)
      EXPECT_FALSE(texto.contains(QLatin1String(kClave))) << texto.toStdString();
    for (QDirIterator it(dir.path(), QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
      const QString ruta = it.next();
      const QByteArray bytes = LeerArchivo(ruta);
      EXPECT_FALSE(bytes.contains(kClave)) << ruta.toStdString();
      EXPECT_FALSE(DecodificarWindows1252(bytes).contains(QLatin1String(kClave)))
          << ruta.toStdString();
    }
  }

  static QProcessEnvironment Ambiente(const char *clave = nullptr) {
    QProcessEnvironment a = QProcessEnvironment::systemEnvironment();
    a.remove(QStringLiteral("ESCRIBANO_CLAVE"));
    if (clave)
      a.insert(QStringLiteral("ESCRIBANO_CLAVE"), QLatin1String(clave));
    return a;
  }
  Salida Correr(const QStringList &args, const QByteArray &entrada = {},
                const QProcessEnvironment &ambiente = Ambiente()) {
    QProcess p;
    p.setProcessEnvironment(ambiente);
    p.start(QStringLiteral(ESCRIBANO_CLI),
            QStringList{QStringLiteral("--ruta"), dir.path()} + args);
    p.write(entrada);
    p.closeWriteChannel();
    EXPECT_TRUE(p.waitForFinished(120000));
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
  }
  void Anotar(const Salida &s) { salidas << s.out << s.err; }
  static QStringList Generar(const QString &bitacora) {
    const QDate mes = demo::MesDemo();
    return {QStringLiteral("generar"),
            QStringLiteral("--usuario"),
            QStringLiteral("ADMIN"),
            QStringLiteral("--del"),
            mes.toString(Qt::ISODate),
            QStringLiteral("--al"),
            mes.addMonths(1).addDays(-1).toString(Qt::ISODate),
            QStringLiteral("--bitacora"),
            bitacora};
  }

  static constexpr const char *kClave = "Zq8otraClave";
  QTemporaryDir dir;
  QStringList salidas;
};

} // namespace

TEST_F(Terminal, ThePasswordComesFromStandardInputOrTheEnvironment) {
  const QString bitacora = dir.filePath(QStringLiteral("entrada.txt"));
  Salida s = Correr(Generar(bitacora) << QStringLiteral("--clave") << QStringLiteral("-"),
                    QByteArray(kClave) + "\n");
  Anotar(s);
  ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
  EXPECT_TRUE(s.out.contains(QStringLiteral("Pólizas grabadas: "))) << s.out.toStdString();
  EXPECT_EQ(s.err, QString()); // a pipe is no terminal: no progress line
  Anotar({0, DecodificarWindows1252(LeerArchivo(bitacora)), {}});

  s = Correr(Generar(dir.filePath(QStringLiteral("ambiente.txt"))), {}, Ambiente(kClave));
  Anotar(s);
  EXPECT_EQ(s.codigo, 0) << s.err.toStdString();

  // A wrong one, by either way, is refused as at the login.
  s = Correr(Generar(dir.filePath(QStringLiteral("mala1.txt")))
                 << QStringLiteral("--clave") << QStringLiteral("-"),
             "mala\n");
  Anotar(s);
  EXPECT_EQ(s.codigo, 3);
  s = Correr(Generar(dir.filePath(QStringLiteral("mala2.txt"))), {}, Ambiente("mala"));
  Anotar(s);
  EXPECT_EQ(s.codigo, 3);

  // Without any, the option is missing; with "-" and nothing to read, so is the password.
  s = Correr(Generar(dir.filePath(QStringLiteral("sin.txt"))));
  Anotar(s);
  EXPECT_EQ(s.codigo, 1);
  EXPECT_TRUE(s.err.startsWith(
      QStringLiteral("Falta la opción --clave P (o la variable ESCRIBANO_CLAVE).\n")));
  s = Correr(Generar(dir.filePath(QStringLiteral("vacia.txt")))
             << QStringLiteral("--clave") << QStringLiteral("-"));
  Anotar(s);
  EXPECT_EQ(s.codigo, 1);
  EXPECT_TRUE(s.err.startsWith(QStringLiteral("La opción --clave - espera la contraseña")));
}

TEST_F(Terminal, UnderJsonTheMessagesGoIntoTheObject) {
  const Salida s =
      Correr(Generar(dir.filePath(QStringLiteral("json.txt"))) << QStringLiteral("--json"), {},
             Ambiente(kClave));
  Anotar(s);
  ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
  QJsonParseError error;
  const QJsonObject o = QJsonDocument::fromJson(s.out.toUtf8(), &error).object();
  ASSERT_EQ(error.error, QJsonParseError::NoError) << s.out.toStdString();
  EXPECT_EQ(o.value(QStringLiteral("mensajes")).toArray(),
            QJsonArray{CatalogoMensajes::Texto(108)});
  EXPECT_GT(o.value(QStringLiteral("polizasGrabadas")).toInt(), 0);
}

TEST_F(Terminal, OnATerminalAProgressLineIsDrawnAndErasedAndElsewhereNothingChanges) {
  // Standard error to a file: the output of a run is its text alone.
  const QString bitacora = dir.filePath(QStringLiteral("archivo.txt"));
  QProcess p;
  p.setProcessEnvironment(Ambiente(kClave));
  p.setStandardErrorFile(dir.filePath(QStringLiteral("errores.txt")));
  p.start(QStringLiteral(ESCRIBANO_CLI),
          QStringList{QStringLiteral("--ruta"), dir.path()} + Generar(bitacora));
  ASSERT_TRUE(p.waitForFinished(120000));
  const QString out = QString::fromUtf8(p.readAllStandardOutput());
  Anotar({p.exitCode(), out, {}});
  ASSERT_EQ(p.exitCode(), 0);
  const QString grabadas = out.section(QStringLiteral("Pólizas grabadas: "), 1).trimmed();
  EXPECT_EQ(out, CatalogoMensajes::Texto(108) + QStringLiteral("\nBitácora: ") + bitacora +
                     QStringLiteral("\nPólizas grabadas: ") + grabadas + QLatin1Char('\n'));
  EXPECT_GT(grabadas.toInt(), 0);
  EXPECT_EQ(LeerArchivo(dir.filePath(QStringLiteral("errores.txt"))), QByteArray());

  // Under a pseudo-terminal, the same run redone: the line comes, and goes at the end.
  QStringList args =
      QStringList{QStringLiteral(ESCRIBANO_CLI), QStringLiteral("--ruta"), dir.path()} +
      Generar(dir.filePath(QStringLiteral("terminal.txt"))) +
      QStringList{QStringLiteral("--actualizar")};
  for (QString &a : args)
    a = QLatin1Char('\'') + a + QLatin1Char('\'');
  QProcess script;
  script.setProcessEnvironment(Ambiente(kClave));
  script.start(QStringLiteral("script"),
               {QStringLiteral("-q"), QStringLiteral("-e"), QStringLiteral("-c"),
                args.join(QLatin1Char(' ')), QStringLiteral("/dev/null")});
  ASSERT_TRUE(script.waitForFinished(120000));
  const QString terminal = QString::fromUtf8(script.readAllStandardOutput());
  Anotar({script.exitCode(), terminal, {}});
  ASSERT_EQ(script.exitCode(), 0) << terminal.toStdString();
  const QString borrar = QStringLiteral("\r\x1b[K");
  ASSERT_TRUE(terminal.contains(borrar + QStringLiteral("Regla 1 de "))) << terminal.toStdString();
  EXPECT_TRUE(terminal.contains(QStringLiteral(" · pólizas ")));
  // The last thing drawn before the summary is the erasing of the line.
  const qsizetype ultimaRegla = terminal.lastIndexOf(QStringLiteral("Regla "));
  const qsizetype borrado = terminal.lastIndexOf(borrar);
  EXPECT_GT(borrado, ultimaRegla);
  EXPECT_TRUE(terminal.mid(borrado + borrar.size()).contains(QStringLiteral("Bitácora: ")))
      << terminal.toStdString();
  EXPECT_FALSE(terminal.mid(borrado + borrar.size()).contains(QStringLiteral("Regla ")));

  // --progreso draws it on a pipe too; --sin-progreso keeps it off a terminal.
  const Salida forzada =
      Correr(Generar(dir.filePath(QStringLiteral("forzada.txt")))
                 << QStringLiteral("--actualizar") << QStringLiteral("--progreso"),
             {}, Ambiente(kClave));
  Anotar(forzada);
  EXPECT_TRUE(forzada.err.startsWith(borrar + QStringLiteral("Regla 1 de ")))
      << forzada.err.toStdString();
  EXPECT_TRUE(forzada.err.endsWith(borrar));
  args.append(QStringLiteral("--sin-progreso"));
  args.replace(args.indexOf(QStringLiteral("'") + dir.filePath(QStringLiteral("terminal.txt")) +
                            QStringLiteral("'")),
               QStringLiteral("'") + dir.filePath(QStringLiteral("apagada.txt")) +
                   QStringLiteral("'"));
  script.start(QStringLiteral("script"),
               {QStringLiteral("-q"), QStringLiteral("-e"), QStringLiteral("-c"),
                args.join(QLatin1Char(' ')), QStringLiteral("/dev/null")});
  ASSERT_TRUE(script.waitForFinished(120000));
  const QString apagada = QString::fromUtf8(script.readAllStandardOutput());
  Anotar({script.exitCode(), apagada, {}});
  EXPECT_FALSE(apagada.contains(QStringLiteral("\x1b"))) << apagada.toStdString();
}
