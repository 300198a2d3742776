#include "cli/ComandoExportar.h"

#include "export/FormatoArchivo.h"
#include "export/GenerarArchivo.h"
#include "shell/Rutas.h"

#include <QDate>
#include <QFileInfo>

namespace cli {

const char *const kUsoExportar =
    "  exportar --empresa N --usuario U --clave P --del AAAA-MM-DD --al AAAA-MM-DD\n"
    "           --archivo RUTA [--tipo T] [--operacion N] [--concepto C]\n"
    "      Escribe en RUTA las pólizas del periodo con el formato de archivo de la\n"
    "      empresa, filtradas por tipo de póliza, operación y concepto. Termina con 4\n"
    "      si la empresa no tiene formato y con 5 si el archivo no se pudo escribir.\n";

namespace {

bool EsEntero(const QString &texto) {
  bool ok = false;
  texto.toInt(&ok);
  return ok;
}

// What is wrong with the options, or the empty text.
QString RevisarOpciones(const QStringList &opciones, DatosGenerarArchivo &datos) {
  const QString empresa = Opcion(opciones, QStringLiteral("--empresa"));
  if (empresa.isEmpty())
    return QStringLiteral("Falta la opción --empresa con el número de la empresa.");
  if (!EsEntero(empresa))
    return QStringLiteral("El número de empresa no es válido: «%1».").arg(empresa);
  if (Opcion(opciones, QStringLiteral("--usuario")).isEmpty())
    return QStringLiteral("Falta la opción --usuario con la clave del usuario.");
  if (!opciones.contains(QStringLiteral("--clave")))
    return QStringLiteral("Falta la opción --clave con la contraseña del usuario.");
  QString error;
  if (!FechaOpcion(opciones, QStringLiteral("--del"), true, datos.fechaIni, error) ||
      !FechaOpcion(opciones, QStringLiteral("--al"), true, datos.fechaFin, error))
    return error;
  datos.archivo = Opcion(opciones, QStringLiteral("--archivo"));
  if (datos.archivo.isEmpty())
    return QStringLiteral("Falta la opción --archivo con la ruta del archivo a generar.");
  datos.tipo = Opcion(opciones, QStringLiteral("--tipo"));
  datos.operacion = Opcion(opciones, QStringLiteral("--operacion"));
  datos.concepto = Opcion(opciones, QStringLiteral("--concepto"));
  if (!datos.operacion.isEmpty() && !EsEntero(datos.operacion))
    return QStringLiteral("La operación debe ser un número: «%1».").arg(datos.operacion);
  // The filters go into the statement between apostrophes, as the screen's do; the
  // screen refuses the apostrophe as it is typed.
  for (const QString &filtro : {datos.tipo, datos.concepto})
    if (filtro.contains(QLatin1Char('\'')))
      return QStringLiteral("Los filtros no pueden llevar apóstrofos: «%1».").arg(filtro);
  return {};
}

} // namespace

int Exportar(const Argumentos &a, QTextStream &out) {
  DatosGenerarArchivo datos;
  const QString error = RevisarOpciones(a.opciones, datos);
  if (!error.isEmpty()) {
    out << error << "\n\nUso:\n" << kUsoExportar;
    return kSalidaUso;
  }
  SesionCli sesion;
  const int entrada = IniciarSesion(a.opciones, sesion);
  if (entrada != kSalidaBien)
    return entrada;
  FormatoArchivo formato;
  if (!CargarFormato(*sesion.empresa, formato))
    return kSalidaSinFormato;
  const ResultadoArchivo resultado = GenerarArchivo(*sesion.empresa, formato, datos);
  if (!resultado.completo)
    return kSalidaArchivo;
  out << "  Archivo: " << QFileInfo(RutaNativa(datos.archivo)).absoluteFilePath() << "\n";
  out << "  Líneas:  " << resultado.lineas << "\n";
  return kSalidaBien;
}

} // namespace cli
