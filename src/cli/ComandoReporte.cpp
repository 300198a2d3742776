#include "cli/ComandoReporte.h"

#include "cli/ComandoExportar.h"
#include "cli/Progreso.h"

#include "reports/ConsultaPolizas.h"
#include "reports/Lienzo.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace cli {
namespace {

int Reporte(const Leidas &o, Contexto &ctx) {
  const auto uso = [&](const QString &motivo) {
    ctx.err << motivo << "\n";
    return kSalidaUso;
  };
  OpcionesConsulta op;
  const int formas = int(o.Hay(QStringLiteral("resumido"))) +
                     int(o.Hay(QStringLiteral("detallado"))) +
                     int(o.Hay(QStringLiteral("movimientos")));
  if (formas != 1)
    return uso(QStringLiteral("Dé una de --resumido, --detallado o --movimientos."));
  op.relacion = !o.Hay(QStringLiteral("movimientos"));
  op.detallado = o.Hay(QStringLiteral("detallado"));
  op.contabilizados = !o.Hay(QStringLiteral("no-contabilizados"));
  if (op.relacion && !op.contabilizados)
    return uso(QStringLiteral("La opción --no-contabilizados va con --movimientos."));
  // The screen's default order: by type for the journal list, by date for movements,
  // where the type can't be chosen.
  const QString orden = o.Hay(QStringLiteral("orden"))
                            ? o.Texto(QStringLiteral("orden"))
                            : (op.relacion ? QStringLiteral("tipo") : QStringLiteral("fecha"));
  op.orden =
      QStringList{QStringLiteral("tipo"), QStringLiteral("fecha"), QStringLiteral("concepto")}
          .indexOf(orden);
  if (op.orden < 0)
    return uso(QStringLiteral("La opción --orden espera tipo, fecha o concepto: «%1».").arg(orden));
  if (!op.relacion && op.orden == 0)
    return uso(QStringLiteral("El reporte de movimientos no se ordena por tipo."));
  if (!o.Hay(QStringLiteral("pdf")) && !o.Hay(QStringLiteral("trazo")))
    return uso(QStringLiteral("Dé --pdf RUTA, --trazo RUTA o ambas."));
  op.del = o.Fecha(QStringLiteral("del"));
  op.al = o.Fecha(QStringLiteral("al"));
  op.tipo = o.Texto(QStringLiteral("tipo"));
  op.modulo = o.Texto(QStringLiteral("modulo"));
  op.operacion = o.Texto(QStringLiteral("operacion"));
  op.folio = o.Texto(QStringLiteral("folio"));

  SesionCli sesion;
  const int entrada = IniciarSesion(o, sesion);
  if (entrada != kSalidaBien)
    return entrada;
  Conexion &con = *sesion.empresa;
  // What the screen's list of types would show for the type chosen.
  if (!op.tipo.isEmpty()) {
    Registros r = con.Abrir(QStringLiteral("SELECT DES_FOLIO FROM tblFolios WHERE COD_FOLIO='%1'")
                                .arg(Escapar(op.tipo)));
    if (!r.Vacio())
      op.textoTipo = r.Campo(QStringLiteral("DES_FOLIO")).Texto();
  }
  const EncabezadoEmpresa empresa = LeerEncabezadoEmpresa(con);
  const QList<ConceptoMovimiento> conceptos =
      op.relacion ? QList<ConceptoMovimiento>() : CargarConceptos(con);
  const QString temporal = RutaNativa(UnirRuta(gRutaApp, QStringLiteral("TEMP")));
  QDir().mkpath(temporal);

  // Each output draws the report once on its own canvas.
  LineaAvance linea(ctx.err, ctx.progreso);
  ctx.linea = &linea;
  int paginas = 0;
  const auto dibujar = [&](Lienzo &lienzo) {
    ReporteConsulta reporte(con, lienzo, empresa, conceptos, temporal, Hoy());
    reporte.avance = [&linea](int pagina) {
      linea.Mostrar(QStringLiteral("Páginas dibujadas %1").arg(pagina));
    };
    reporte.ArmarFiltros(op);
    reporte.GenerarReporte();
    paginas = reporte.Paginas();
  };
  if (o.Hay(QStringLiteral("trazo"))) {
    LienzoGrabador grabador;
    dibujar(grabador);
    QSaveFile archivo(RutaNativa(o.Texto(QStringLiteral("trazo"))));
    const QByteArray texto = grabador.Traza().join(QLatin1Char('\n')).toUtf8() + "\n";
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(texto) != texto.size() ||
        !archivo.commit()) {
      linea.Borrar();
      ctx.err << "No se pudo escribir el archivo " << archivo.fileName() << ": "
              << archivo.errorString() << "\n";
      return kSalidaArchivo;
    }
    linea.Borrar();
    ctx.out << "Trazo: "
            << QDir::toNativeSeparators(QFileInfo(archivo.fileName()).absoluteFilePath()) << "\n";
  }
  if (o.Hay(QStringLiteral("pdf"))) {
    LienzoPintor pintor;
    dibujar(pintor);
    const QString archivo = RutaNativa(o.Texto(QStringLiteral("pdf")));
    const QString falla = GuardarPdf(pintor, archivo);
    linea.Borrar();
    if (!falla.isEmpty()) {
      ctx.err << falla << "\n";
      return kSalidaArchivo;
    }
    ctx.out << "PDF: " << QDir::toNativeSeparators(QFileInfo(archivo).absoluteFilePath()) << "\n";
  }
  ctx.linea = nullptr;
  ctx.out << "Páginas: " << paginas << "\n";
  return kSalidaBien;
}

} // namespace

ComandoCli ComandoReporte() {
  ComandoCli c;
  c.nombre = QStringLiteral("reporte");
  c.resumen = QStringLiteral("Escribe la relación de pólizas o los movimientos en PDF o trazo.");
  c.descripcion = QStringLiteral(
      "Dibuja el reporte de la pantalla Consultar Pólizas: la relación de pólizas\n"
      "(--resumido o --detallado) o los movimientos contabilizados (--movimientos).\n"
      "--pdf escribe las páginas como las recibiría la impresora; --trazo, las mismas\n"
      "páginas como texto, una línea por cada llamada de dibujo, para compararlas.\n"
      "Termina con 5 si un archivo no se pudo escribir.\n");
  c.opciones = {OpcionEmpresa(true)};
  c.opciones += OpcionesEntrada();
  c.opciones += OpcionesPeriodo();
  c.opciones += QList<OpcionCli>{
      {QStringLiteral("resumido"), Valor::Ninguno, {}, QStringLiteral("relación resumida"), false},
      {QStringLiteral("detallado"),
       Valor::Ninguno,
       {},
       QStringLiteral("relación con los renglones de cada póliza"),
       false},
      {QStringLiteral("movimientos"),
       Valor::Ninguno,
       {},
       QStringLiteral("movimientos contabilizados"),
       false},
      {QStringLiteral("no-contabilizados"),
       Valor::Ninguno,
       {},
       QStringLiteral("con --movimientos, los no contabilizados"),
       false},
      {QStringLiteral("orden"), Valor::Texto, QStringLiteral("tipo|fecha|concepto"),
       QStringLiteral("orden y grupos"), false},
      {QStringLiteral("tipo"), Valor::TipoPoliza, QStringLiteral("T"),
       QStringLiteral("sólo pólizas de este tipo (I, E, D, O, S)"), false},
      {QStringLiteral("modulo"), Valor::Entero, QStringLiteral("M"),
       QStringLiteral("sólo operaciones de este módulo"), false},
      {QStringLiteral("operacion"), Valor::Entero, QStringLiteral("N"),
       QStringLiteral("sólo esta operación"), false},
      {QStringLiteral("folio"), Valor::Texto, QStringLiteral("F"),
       QStringLiteral("sólo este folio (00000000012)"), false},
      {QStringLiteral("pdf"), Valor::Texto, QStringLiteral("RUTA"), QStringLiteral("el PDF"),
       false},
      {QStringLiteral("trazo"), Valor::Texto, QStringLiteral("RUTA"),
       QStringLiteral("las llamadas de dibujo, en texto"), false}};
  c.opciones += OpcionesProgreso();
  c.correr = Reporte;
  return c;
}

} // namespace cli
