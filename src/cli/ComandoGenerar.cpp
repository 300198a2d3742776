#include "cli/ComandoGenerar.h"

#include "journal/Arbol.h"
#include "journal/Corrida.h"
#include "journal/Documentos.h"
#include "journal/Generacion.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Plataforma.h"
#include "shell/Rutas.h"
#include "shell/Sesion.h"

#include <QFileInfo>

namespace cli {

int Generar(const Argumentos &a, QTextStream &out, QTextStream &err) {
  const QStringList &o = a.opciones;
  OpcionesGeneracion op;
  QString error;
  if (!FechaOpcion(o, QStringLiteral("--del"), true, op.Del, error) ||
      !FechaOpcion(o, QStringLiteral("--al"), true, op.Al, error) ||
      !FechaOpcion(o, QStringLiteral("--fecha"), false, op.FechaDefinida, error)) {
    err << error << "\n";
    return kSalidaUso;
  }
  if (op.Al < op.Del)
    op.Al = op.Del; // the last date snaps to the first, as on the screen
  std::vector<int> operaciones;
  const QString lista = Opcion(o, QStringLiteral("--operaciones"));
  for (const QString &parte : lista.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
    bool ok = false;
    operaciones.push_back(parte.trimmed().toInt(&ok));
    if (!ok) {
      err << "La operación «" << parte << "» no es un número.\n";
      return kSalidaUso;
    }
  }

  SesionCli sesion;
  const int entrada = IniciarSesion(o, sesion);
  if (entrada != kSalidaBien)
    return entrada;

  op.DefinirFecha = op.FechaDefinida.isValid();
  if (!op.DefinirFecha)
    op.FechaDefinida = Hoy();
  op.Actualizar = Bandera(o, QStringLiteral("--actualizar"));
  op.Resumen = Opcion(o, QStringLiteral("--bitacora"));
  if (op.Resumen.isEmpty())
    op.Resumen = Bitacora::NombreBitacora(gNumEmp, op.FechaDefinida);
  if (QFileInfo::exists(RutaNativa(op.Resumen)) && !Bandera(o, QStringLiteral("--agregar"))) {
    err << CatalogoMensajes::Texto(5510) << " " << op.Resumen
        << "\nUse --agregar para añadir la corrida al final del archivo.\n";
    return kSalidaBitacoraExiste;
  }

  Corrida corrida;
  corrida.Conexion = std::move(sesion.empresa);
  CargarOperaciones(corrida);
  ArbolOperaciones arbol;
  arbol.CargarArbol(*corrida.Conexion);
  if (operaciones.empty()) {
    arbol.MarcarTodo();
  } else if (!arbol.MarcarOperaciones(operaciones)) {
    err << "Alguna de las operaciones " << lista
        << " no tiene reglas de pólizas con renglones; se generan las demás.\n";
  }

  Generador generador(corrida, op);
  if (ErrorEsTerminal()) {
    generador.avance = [&err](const AvanceGeneracion &av) {
      err << "\rRegla " << av.regla << " de " << av.reglas << ": " << av.descripcion.left(40)
          << "  documentos " << av.documento << "/" << av.documentos << "\x1b[K";
      err.flush();
    };
  }
  const ResultadoGeneracion r = generador.GenerarPolizas(arbol);
  if (ErrorEsTerminal())
    err << "\r\x1b[K";
  if (!r.candado.isEmpty())
    return kSalidaGeneracionEnCurso;
  if (!r.corrio) {
    out << "No hay operaciones marcadas con reglas de pólizas: no se generó nada.\n";
    return kSalidaBien;
  }
  out << "Bitácora: " << QFileInfo(RutaNativa(r.bitacora)).absoluteFilePath() << "\n";
  out << "Pólizas grabadas: " << r.polizas << "\n";
  return kSalidaBien;
}

} // namespace cli
