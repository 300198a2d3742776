#pragma once

#include "shell/Dinero.h"

#include <QFile>
#include <QProcess>
#include <QXmlStreamReader>
#include <vector>

// The SAT's files as the tests read them: validated by the repository's schemas and
// read back entry by entry.
namespace satprueba {

// xmllint's verdict on a file against one of the schemas of src/export/sat: the empty
// text when the file validates, the complaint otherwise.
inline QString Validar(const QString &archivo, const QString &esquema) {
  QProcess xmllint;
  xmllint.setProcessChannelMode(QProcess::MergedChannels);
  xmllint.start(QStringLiteral("xmllint"),
                {QStringLiteral("--noout"), QStringLiteral("--schema"),
                 QStringLiteral(ESCRIBANO_RAIZ "/src/export/sat/") + esquema, archivo});
  if (!xmllint.waitForFinished(60000))
    return QStringLiteral("xmllint no terminó");
  const QString salida = QString::fromUtf8(xmllint.readAll());
  return xmllint.exitCode() == 0 ? QString() : salida;
}

// An entry of a "pólizas del periodo" file, with its lines summed.
struct PolizaLeida {
  QString clave, fecha, concepto;
  int transacciones = 0;
  Dinero debe, haber;
};

inline std::vector<PolizaLeida> LeerPolizas(const QString &archivo) {
  std::vector<PolizaLeida> polizas;
  QFile f(archivo);
  if (!f.open(QIODevice::ReadOnly))
    return polizas;
  QXmlStreamReader xml(&f);
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement)
      continue;
    const auto a = xml.attributes();
    if (xml.name() == QLatin1String("Poliza")) {
      PolizaLeida p;
      p.clave = a.value(QLatin1String("NumUnIdenPol")).toString();
      p.fecha = a.value(QLatin1String("Fecha")).toString();
      p.concepto = a.value(QLatin1String("Concepto")).toString();
      polizas.push_back(p);
    } else if (xml.name() == QLatin1String("Transaccion") && !polizas.empty()) {
      PolizaLeida &p = polizas.back();
      ++p.transacciones;
      p.debe += Dinero::DeTexto(a.value(QLatin1String("Debe")));
      p.haber += Dinero::DeTexto(a.value(QLatin1String("Haber")));
    }
  }
  return polizas;
}

} // namespace satprueba
