#include "shell/ServicioUtil.h"

#include "shell/Dialecto.h"
#include "shell/Rutas.h"

#include <QFile>
#include <QSaveFile>
#include <QStringList>

namespace {

struct ArchivoIni {
  QStringList lineas;
  QString fin = QStringLiteral("\r\n");
};

ArchivoIni Cargar(const QString &ruta) {
  ArchivoIni ini;
  QFile f(RutaNativa(ruta));
  if (!f.open(QIODevice::ReadOnly))
    return ini;
  QByteArray bytes = f.readAll();
  QString texto;
  if (bytes.startsWith("\xEF\xBB\xBF"))
    texto = QString::fromUtf8(bytes.mid(3));
  else
    texto = DecodificarWindows1252(bytes);
  if (!texto.contains(QLatin1Char('\r')) && texto.contains(QLatin1Char('\n')))
    ini.fin = QStringLiteral("\n");
  texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  texto.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  ini.lineas = texto.split(QLatin1Char('\n'));
  if (!ini.lineas.isEmpty() && ini.lineas.last().isEmpty())
    ini.lineas.removeLast();
  return ini;
}

// The name of a section header line, or a null text when the line is none.
QString Seccion(const QString &linea) {
  const QString t = linea.trimmed();
  if (!t.startsWith(QLatin1Char('[')))
    return {};
  const qsizetype cierre = t.indexOf(QLatin1Char(']'));
  QString nombre = (cierre < 0 ? t.mid(1) : t.mid(1, cierre - 1)).trimmed();
  return nombre.isNull() ? QStringLiteral("") : nombre;
}

// Key name of a line; the whole trimmed line when it has no equals sign.
QString Clave(const QString &linea) {
  const qsizetype igual = linea.indexOf(QLatin1Char('='));
  return (igual < 0 ? linea : linea.left(igual)).trimmed();
}

// Index of the header of the first section of that name, or -1.
qsizetype BuscarSeccion(const QStringList &lineas, const QString &seccion) {
  for (qsizetype i = 0; i < lineas.size(); ++i) {
    const QString s = Seccion(lineas[i]);
    if (!s.isNull() && s.compare(seccion.trimmed(), Qt::CaseInsensitive) == 0)
      return i;
  }
  return -1;
}

} // namespace

QString ServicioUtil::LeerIni(const QString &seccion, const QString &clave,
                              const QString &archivo) {
  const ArchivoIni ini = Cargar(archivo);
  const qsizetype inicio = BuscarSeccion(ini.lineas, seccion);
  if (inicio < 0)
    return {};
  for (qsizetype i = inicio + 1; i < ini.lineas.size(); ++i) {
    const QString &linea = ini.lineas[i];
    if (!Seccion(linea).isNull())
      break;
    const qsizetype igual = linea.indexOf(QLatin1Char('='));
    if (igual < 0)
      continue;
    if (Clave(linea).compare(clave.trimmed(), Qt::CaseInsensitive) != 0)
      continue;
    QString valor = linea.mid(igual + 1).trimmed();
    if (valor.size() >= 2 &&
        ((valor.startsWith(QLatin1Char('"')) && valor.endsWith(QLatin1Char('"'))) ||
         (valor.startsWith(QLatin1Char('\'')) && valor.endsWith(QLatin1Char('\'')))))
      valor = valor.mid(1, valor.size() - 2);
    return valor;
  }
  return {};
}

bool ServicioUtil::EscribirIni(const QString &seccion, const QString &clave, const QString &valor,
                               const QString &archivo) {
  ArchivoIni ini = Cargar(archivo);
  const QString nueva = clave.trimmed() + QLatin1Char('=') + valor;
  const qsizetype inicio = BuscarSeccion(ini.lineas, seccion);
  if (inicio < 0) {
    ini.lineas << QLatin1Char('[') + seccion.trimmed() + QLatin1Char(']') << nueva;
  } else {
    qsizetype ultima = inicio; // last non-blank line of the section
    qsizetype encontrada = -1;
    for (qsizetype i = inicio + 1; i < ini.lineas.size(); ++i) {
      const QString &linea = ini.lineas[i];
      if (!Seccion(linea).isNull())
        break;
      if (!linea.trimmed().isEmpty())
        ultima = i;
      if (linea.contains(QLatin1Char('=')) &&
          Clave(linea).compare(clave.trimmed(), Qt::CaseInsensitive) == 0) {
        encontrada = i;
        break;
      }
    }
    if (encontrada >= 0)
      ini.lineas[encontrada] = nueva;
    else
      ini.lineas.insert(ultima + 1, nueva);
  }
  QSaveFile f(RutaNativa(archivo));
  if (!f.open(QIODevice::WriteOnly))
    return false;
  f.write(CodificarWindows1252(ini.lineas.join(ini.fin) + ini.fin));
  return f.commit();
}

QString ServicioUtil::FechaSQL(const QDate &fecha, int motor) {
  return Dialecto(motor).FechaSQL(fecha);
}

QString ServicioUtil::FechaSQL(const QDateTime &momento, int motor) {
  return Dialecto(motor).FechaSQL(momento);
}

QString ServicioUtil::FechaHoraSQL(const QDateTime &fecha, int motor) {
  return Dialecto(motor).FechaHoraSQL(fecha);
}

QString ServicioUtil::FuncionLargo(int motor) { return Dialecto(motor).FuncionLargo(); }

double Val(const QString &texto) {
  QString limpio;
  for (QChar c : texto) {
    if (c != QLatin1Char(' ') && c != QLatin1Char('\t'))
      limpio += c;
  }
  qsizetype i = 0;
  if (i < limpio.size() && (limpio[i] == u'-' || limpio[i] == u'+'))
    ++i;
  bool punto = false;
  qsizetype fin = i;
  for (; fin < limpio.size(); ++fin) {
    if (limpio[fin].isDigit())
      continue;
    if (limpio[fin] == u'.' && !punto) {
      punto = true;
      continue;
    }
    break;
  }
  bool ok = false;
  const double v = limpio.left(fin).toDouble(&ok);
  return ok ? v : 0.0;
}

QString Escapar(const QString &valor) {
  if (!valor.contains(QLatin1Char('\'')) && !valor.contains(QChar(0)))
    return valor;
  QString doble = valor;
  // A NUL ends the text of a statement for every engine's driver, and no text column
  // keeps one: it is dropped.
  doble.remove(QChar(0));
  return doble.replace(QLatin1Char('\''), QStringLiteral("''"));
}
