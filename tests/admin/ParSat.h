#pragma once

// Key pairs of the SAT's kind for the tests, made by the openssl command.

#include "Apoyo.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// In carpeta: pair A as the SAT hands it (a.key, PKCS#8 DER with the password "clave123";
// a.cer, DER, with the RFC in the holder's unique identifier and a serial of twenty ASCII
// digits), the same pair in PEM (a.pem, a_pem.cer), pair B (b.key, b.pem), and vacio.cer,
// an empty file. A failure of the openssl command fails the test.
inline void CrearParesSat(const QString &carpeta) {
  const auto openssl = [&](const QStringList &args) {
    QProcess p;
    p.setWorkingDirectory(carpeta);
    p.start(QStringLiteral("openssl"), args);
    ASSERT_TRUE(p.waitForFinished(60000));
    ASSERT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
  };
  for (const char *par : {"a", "b"}) {
    const QString pem = QLatin1String(par) + QStringLiteral(".pem");
    openssl({QStringLiteral("genrsa"), QStringLiteral("-out"), pem, QStringLiteral("2048")});
    openssl({QStringLiteral("pkcs8"), QStringLiteral("-topk8"), QStringLiteral("-in"), pem,
             QStringLiteral("-outform"), QStringLiteral("DER"), QStringLiteral("-v2"),
             QStringLiteral("des3"), QStringLiteral("-passout"), QStringLiteral("pass:clave123"),
             QStringLiteral("-out"), QLatin1String(par) + QStringLiteral(".key")});
  }
  openssl({QStringLiteral("req"), QStringLiteral("-new"), QStringLiteral("-x509"),
           QStringLiteral("-utf8"), QStringLiteral("-key"), QStringLiteral("a.pem"),
           QStringLiteral("-days"), QStringLiteral("365"), QStringLiteral("-set_serial"),
           QStringLiteral("0x3330303031303030303030333030303233373038"), QStringLiteral("-subj"),
           QStringLiteral("/CN=LA FONDA DE DOÑA LUPE/name=LA FONDA DE DOÑA LUPE SA DE "
                          "CV/x500UniqueIdentifier=FDL180314AB1 \\/ XAXX010101HDFXXX00"),
           QStringLiteral("-outform"), QStringLiteral("DER"), QStringLiteral("-out"),
           QStringLiteral("a.cer")});
  openssl({QStringLiteral("x509"), QStringLiteral("-inform"), QStringLiteral("DER"),
           QStringLiteral("-in"), QStringLiteral("a.cer"), QStringLiteral("-out"),
           QStringLiteral("a_pem.cer")});
  EscribirArchivo(QDir(carpeta).filePath(QStringLiteral("vacio.cer")), {});
}

// The pairs, made once in a run, in a folder that lasts until the run ends.
inline const QTemporaryDir &ParesSat() {
  static QTemporaryDir dir;
  static const bool hechos = [] {
    CrearParesSat(dir.path());
    return true;
  }();
  static_cast<void>(hechos);
  return dir;
}
