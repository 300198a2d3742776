#include "cli/ComandoExportar.h"

#include "cli/Progreso.h"
#include "export/FormatoArchivo.h"
#include "export/GenerarArchivo.h"
#include "shell/Rutas.h"

#include <QDate>
#include <QDir>
#include <QFileInfo>

namespace cli {
namespace {

int Exportar(const Leidas &o, Contexto &ctx) {
  DatosGenerarArchivo datos;
  datos.fechaIni = o.Fecha(QStringLiteral("del"));
  datos.fechaFin = o.Fecha(QStringLiteral("al"));
  datos.archivo = o.Texto(QStringLiteral("archivo"));
  datos.tipo = o.Texto(QStringLiteral("tipo"));
  datos.operacion = o.Texto(QStringLiteral("operacion"));
  datos.concepto = o.Texto(QStringLiteral("concepto"));
  if (datos.archivo == QStringLiteral("-")) {
    ctx.err << "La opción --archivo espera la ruta de un archivo: el resultado no va a la "
               "salida estándar.\n";
    return kSalidaUso;
  }
  // The screen refuses the apostrophe as it is typed; so does its command.
  if (datos.concepto.contains(QLatin1Char('\''))) {
    ctx.err << "La opción --concepto no puede llevar apóstrofos: «" << datos.concepto << "».\n";
    return kSalidaUso;
  }
  SesionCli sesion;
  const int entrada = IniciarSesion(o, sesion);
  if (entrada != kSalidaBien)
    return entrada;
  FormatoArchivo formato;
  if (!CargarFormato(*sesion.empresa, formato))
    return kSalidaSinFormato;
  LineaAvance linea(ctx.err, ctx.progreso);
  ctx.linea = &linea;
  const ResultadoArchivo resultado =
      GenerarArchivo(*sesion.empresa, formato, datos, [&linea](qint64 lineas, qint64 polizas) {
        linea.Mostrar(QStringLiteral("Pólizas %1 · líneas escritas %2").arg(polizas).arg(lineas));
        return true;
      });
  linea.Borrar();
  ctx.linea = nullptr;
  if (!resultado.completo)
    return kSalidaArchivo;
  const QString archivo =
      QDir::toNativeSeparators(QFileInfo(RutaNativa(datos.archivo)).absoluteFilePath());
  if (ctx.json) {
    ctx.objeto.insert(QStringLiteral("archivo"), archivo);
    ctx.objeto.insert(QStringLiteral("lineas"), resultado.lineas);
    return kSalidaBien;
  }
  ctx.out << "  Archivo: " << archivo << "\n";
  ctx.out << "  Líneas:  " << resultado.lineas << "\n";
  return kSalidaBien;
}

} // namespace

ComandoCli ComandoExportar() {
  ComandoCli c;
  c.nombre = QStringLiteral("exportar");
  c.resumen = QStringLiteral("Exporta las pólizas de un período al formato de la empresa.");
  c.descripcion = QStringLiteral(
      "Escribe en RUTA las pólizas del período con el formato de archivo de la empresa\n"
      "(CONTPAQ o el del usuario), filtradas por tipo de póliza, operación y concepto.\n"
      "Termina con 4 si la empresa no tiene formato y con 5 si el archivo no se pudo\n"
      "escribir completo.\n");
  c.opciones = {OpcionEmpresa(true)};
  c.opciones += OpcionesEntrada();
  c.opciones += OpcionesPeriodo();
  c.opciones +=
      QList<OpcionCli>{{QStringLiteral("archivo"), Valor::Texto, QStringLiteral("RUTA"),
                        QStringLiteral("archivo a escribir"), true},
                       {QStringLiteral("tipo"), Valor::TipoPoliza, QStringLiteral("T"),
                        QStringLiteral("sólo pólizas de este tipo (I, E, D, O, S)"), false},
                       {QStringLiteral("operacion"), Valor::Entero, QStringLiteral("N"),
                        QStringLiteral("sólo pólizas de esta operación"), false},
                       {QStringLiteral("concepto"), Valor::Texto, QStringLiteral("C"),
                        QStringLiteral("sólo pólizas de este concepto"), false},
                       OpcionJson()};
  c.opciones += OpcionesProgreso();
  c.correr = Exportar;
  return c;
}

} // namespace cli
