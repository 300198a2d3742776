#include "cli/ComandoEliminar.h"

#include "cli/Progreso.h"
#include "journal/Eliminacion.h"
#include "shell/CatalogoMensajes.h"

#include <QJsonArray>
#include <QJsonObject>

namespace cli {
namespace {

int Eliminar(const Leidas &o, Contexto &ctx) {
  FiltroEliminacion filtro;
  filtro.del = o.Fecha(QStringLiteral("del"));
  filtro.al = o.Fecha(QStringLiteral("al"));
  filtro.tipo = o.Texto(QStringLiteral("tipo"));
  filtro.operacion = o.Texto(QStringLiteral("operacion"));
  filtro.concepto = o.Texto(QStringLiteral("concepto"));
  SesionCli sesion;
  const int entrada = IniciarSesion(o, sesion);
  if (entrada != kSalidaBien)
    return entrada;
  Conexion &con = *sesion.empresa;
  const QStringList folios = FoliosAEliminar(con, filtro);
  const bool borrar = o.Hay(QStringLiteral("si"));
  int eliminados = 0;
  if (borrar) {
    // --si is the answer to the screen's question: the deletion goes as the screen's does.
    LineaAvance linea(ctx.err, ctx.progreso);
    ctx.linea = &linea;
    eliminados = EliminarFolios(con, folios, [&linea](int hechos, int total) {
      linea.Mostrar(QStringLiteral("Pólizas eliminadas %1 de %2").arg(hechos).arg(total));
    });
    linea.Borrar();
    ctx.linea = nullptr;
    CatalogoMensajes::Mostrar(5514, {}, IconoMensaje::Informacion);
  }
  if (ctx.json) {
    ctx.objeto.insert(QStringLiteral("folios"), QJsonArray::fromStringList(folios));
    ctx.objeto.insert(QStringLiteral("eliminadas"), eliminados);
    return kSalidaBien;
  }
  if (!borrar) {
    ctx.out << "Folios que se eliminarían (" << folios.size() << "):\n";
    for (const QString &folio : folios)
      ctx.out << "  " << folio << "\n";
    ctx.out << "Nada se eliminó: agregue --si para eliminarlos.\n";
    return kSalidaBien;
  }
  ctx.out << "Pólizas eliminadas: " << eliminados << "\n";
  return kSalidaBien;
}

} // namespace

ComandoCli ComandoEliminar() {
  ComandoCli c;
  c.nombre = QStringLiteral("eliminar");
  c.resumen = QStringLiteral("Elimina las pólizas de un período (sin --si sólo las lista).");
  c.descripcion = QStringLiteral(
      "Busca las pólizas del período, acotadas por tipo, operación y concepto (el\n"
      "concepto se compara con el de la póliza). Sin --si sólo muestra sus folios; con\n"
      "--si las elimina por folio: un folio que está en dos tipos de póliza se va de\n"
      "ambos. Los folios eliminados no se vuelven a usar y sus documentos siguen\n"
      "contabilizados.\n");
  c.opciones = {OpcionEmpresa(true)};
  c.opciones += OpcionesEntrada();
  c.opciones += OpcionesPeriodo();
  c.opciones +=
      QList<OpcionCli>{{QStringLiteral("tipo"), Valor::TipoPoliza, QStringLiteral("T"),
                        QStringLiteral("sólo pólizas de este tipo (I, E, D, O, S)"), false},
                       {QStringLiteral("operacion"), Valor::Entero, QStringLiteral("N"),
                        QStringLiteral("sólo pólizas de esta operación"), false},
                       {QStringLiteral("concepto"), Valor::Texto, QStringLiteral("C"),
                        QStringLiteral("sólo pólizas de este concepto"), false},
                       {QStringLiteral("si"),
                        Valor::Ninguno,
                        {},
                        QStringLiteral("elimina lo que se encontró"),
                        false},
                       OpcionJson()};
  c.opciones += OpcionesProgreso();
  c.correr = Eliminar;
  return c;
}

} // namespace cli
