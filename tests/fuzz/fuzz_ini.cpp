#include "Apoyo.h"
#include "shell/ServicioUtil.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

// Any bytes as an ini file: read a few keys, then write one and read it back.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *datos, size_t largo) {
  static const QString ruta = QDir::temp()
                                  .filePath(QStringLiteral("escribano-fuzz-%1.ini"))
                                  .arg(QCoreApplication::applicationPid());
  {
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
      return 0;
    f.write(reinterpret_cast<const char *>(datos), static_cast<qint64>(largo));
  }
  for (const char *seccion : {"VARIOS", "ODBC", "", "["})
    for (const char *clave : {"EMPRESA", "SQLSERVER", "", "="})
      ServicioUtil::LeerIni(QString::fromLatin1(seccion), QString::fromLatin1(clave), ruta);
  // Whatever the file held, a key written is the key read.
  if (ServicioUtil::EscribirIni(QStringLiteral("ESCRIBANO"), QStringLiteral("PRUEBA"),
                                QStringLiteral("valor 1"), ruta))
    EXIGIR(ServicioUtil::LeerIni(QStringLiteral("ESCRIBANO"), QStringLiteral("PRUEBA"), ruta) ==
           QStringLiteral("valor 1"));
  return 0;
}
