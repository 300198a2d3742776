#include "cli/ComandoGenerar.h"

#include "cli/ComandoPoliza.h"
#include "cli/Progreso.h"
#include "journal/Arbol.h"
#include "journal/Corrida.h"
#include "journal/Documentos.h"
#include "journal/Generacion.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Rutas.h"
#include "shell/Sesion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

namespace cli {
namespace {

int Generar(const Leidas &o, Contexto &ctx) {
  OpcionesGeneracion op;
  op.Del = o.Fecha(QStringLiteral("del"));
  op.Al = o.Fecha(QStringLiteral("al"));
  if (op.Al < op.Del)
    op.Al = op.Del; // the last date snaps to the first, as on the screen
  const QList<int> operaciones = o.Enteros(QStringLiteral("operaciones"));

  // A rehearsal writes its log where it can show it, and nothing of its own stays.
  const bool ensayo = o.Hay(QStringLiteral("ensayo"));
  SesionCli sesion;
  const int entrada = IniciarSesion(o, sesion, ensayo);
  if (entrada != kSalidaBien)
    return entrada;

  op.FechaDefinida = o.Fecha(QStringLiteral("fecha"));
  op.DefinirFecha = op.FechaDefinida.isValid();
  if (!op.DefinirFecha)
    op.FechaDefinida = Hoy();
  op.Actualizar = o.Hay(QStringLiteral("actualizar"));
  QTemporaryDir temporal;
  op.Resumen = ensayo ? QDir(temporal.path()).filePath(QStringLiteral("ensayo.txt"))
                      : o.Texto(QStringLiteral("bitacora"));
  if (op.Resumen.isEmpty())
    op.Resumen = Bitacora::NombreBitacora(gNumEmp, op.FechaDefinida);
  if (!ensayo && QFileInfo::exists(RutaNativa(op.Resumen)) && !o.Hay(QStringLiteral("agregar"))) {
    ctx.err << CatalogoMensajes::Texto(5510) << " " << RutaNativa(op.Resumen)
            << "\nUse --agregar para añadir la corrida al final del archivo.\n";
    return kSalidaBitacoraExiste;
  }

  Corrida corrida;
  corrida.Conexion = std::move(sesion.empresa);
  CargarOperaciones(corrida);
  ArbolOperaciones arbol;
  arbol.CargarArbol(*corrida.Conexion);
  if (operaciones.isEmpty()) {
    arbol.MarcarTodo();
  } else if (!arbol.MarcarOperaciones({operaciones.begin(), operaciones.end()})) {
    ctx.err << "Alguna de las operaciones " << o.Texto(QStringLiteral("operaciones"))
            << " no tiene reglas de pólizas con renglones; se generan las demás.\n";
  }

  Generador generador(corrida, op);
  LineaAvance linea(ctx.err, ctx.progreso);
  ctx.linea = &linea;
  generador.avance = [&linea](const AvanceGeneracion &av) {
    linea.Mostrar(QStringLiteral("Regla %1 de %2 · documentos %3 de %4 · pólizas %5")
                      .arg(av.regla)
                      .arg(av.reglas)
                      .arg(av.documento)
                      .arg(av.documentos)
                      .arg(av.polizas));
  };
  const ResultadoGeneracion r = generador.GenerarPolizas(arbol);
  linea.Borrar();
  ctx.linea = nullptr;
  if (!r.candado.isEmpty())
    return kSalidaGeneracionEnCurso;
  if (ensayo) {
    // The entries as the run would write them, read before all is undone.
    QJsonArray polizas;
    for (const auto &[tipo, folio] : generador.Escritas()) {
      if (ctx.json) {
        polizas.append(
            QJsonObject{{QStringLiteral("tipo"), tipo}, {QStringLiteral("folio"), folio}});
        continue;
      }
      EscribirPoliza(ctx.out, *corrida.Conexion, tipo, folio);
      ctx.out << "\n";
    }
    corrida.Conexion->TerminarEnsayo();
    QFile archivo(RutaNativa(op.Resumen));
    const QString bitacora =
        archivo.open(QIODevice::ReadOnly) ? DecodificarWindows1252(archivo.readAll()) : QString();
    if (ctx.json) {
      ctx.objeto.insert(QStringLiteral("ensayo"), true);
      ctx.objeto.insert(QStringLiteral("polizas"), polizas);
      ctx.objeto.insert(QStringLiteral("bitacora"), bitacora);
      return kSalidaBien;
    }
    ctx.out << bitacora;
    ctx.out << "Ensayo: se grabarían " << r.polizas << " pólizas; no se grabó nada.\n";
    return kSalidaBien;
  }
  // A log that couldn't be written was told about already, and isn't named as if it were.
  const QString bitacora =
      r.corrio && r.bitacoraEscrita
          ? QDir::toNativeSeparators(QFileInfo(RutaNativa(r.bitacora)).absoluteFilePath())
          : QString();
  if (ctx.json) {
    ctx.objeto.insert(QStringLiteral("empresa"), gNumEmp);
    ctx.objeto.insert(QStringLiteral("del"), op.Del.toString(Qt::ISODate));
    ctx.objeto.insert(QStringLiteral("al"), op.Al.toString(Qt::ISODate));
    ctx.objeto.insert(QStringLiteral("bitacora"), bitacora);
    ctx.objeto.insert(QStringLiteral("polizasGrabadas"), r.polizas);
    return kSalidaBien;
  }
  if (!r.corrio) {
    ctx.out << "No hay operaciones marcadas con reglas de pólizas: no se generó nada.\n";
    return kSalidaBien;
  }
  if (!bitacora.isEmpty())
    ctx.out << "Bitácora: " << bitacora << "\n";
  ctx.out << "Pólizas grabadas: " << r.polizas << "\n";
  return kSalidaBien;
}

} // namespace

ComandoCli ComandoGenerar() {
  ComandoCli c;
  c.nombre = QStringLiteral("generar");
  c.resumen = QStringLiteral("Genera las pólizas de un período, como la pantalla Generar Pólizas.");
  c.descripcion = QStringLiteral(
      "Genera las pólizas del período con las reglas de la empresa. Sin --operaciones\n"
      "toma todas las operaciones que tienen reglas. Escribe la bitácora de la corrida\n"
      "(TEMP\\ResumenPol<N>_<ddmmaaaa>.txt, o la de --bitacora) y termina con 6 si ya\n"
      "existe y no se dio --agregar, con 7 si otra generación de la empresa está en\n"
      "curso. Con --ensayo muestra cada póliza que grabaría (los folios que tomaría)\n"
      "y la bitácora, y deja la base de datos como estaba.\n");
  c.opciones = {OpcionEmpresa(false)};
  c.opciones += OpcionesEntrada();
  c.opciones += OpcionesPeriodo();
  c.opciones +=
      QList<OpcionCli>{{QStringLiteral("operaciones"), Valor::Enteros, QStringLiteral("1,2,24"),
                        QStringLiteral("sólo estas operaciones"), false},
                       {QStringLiteral("actualizar"),
                        Valor::Ninguno,
                        {},
                        QStringLiteral("rehace las pólizas ya contabilizadas"),
                        false},
                       {QStringLiteral("fecha"), Valor::Fecha, QStringLiteral("AAAA-MM-DD"),
                        QStringLiteral("pone esta fecha a todas las pólizas"), false},
                       {QStringLiteral("bitacora"), Valor::Texto, QStringLiteral("RUTA"),
                        QStringLiteral("archivo de la bitácora"), false},
                       {QStringLiteral("ensayo"),
                        Valor::Ninguno,
                        {},
                        QStringLiteral("muestra lo que se grabaría, sin grabar nada"),
                        false},
                       {QStringLiteral("agregar"),
                        Valor::Ninguno,
                        {},
                        QStringLiteral("añade la corrida al final de una bitácora existente"),
                        false},
                       OpcionJson()};
  c.opciones += OpcionesProgreso();
  c.correr = Generar;
  return c;
}

} // namespace cli
