#include "cli/ComandoSat.h"

#include "export/ContabilidadElectronica.h"

#include <QDir>
#include <functional>

namespace cli {
namespace {

// A request the SAT wouldn't take, refused before the company is opened.
int Rechazar(Contexto &ctx, const QStringList &faltas, const ComandoCli &comando) {
  ctx.err << faltas.join(QLatin1Char('\n')) << "\n\n" << comando.Sinopsis();
  return kSalidaUso;
}

enum class Archivo { Polizas, Catalogo };

// Opens the company, writes the file, and tells the file and its counts, or the faults,
// each on a line of its own.
int Escribir(const Leidas &o, Contexto &ctx, Archivo tipo,
             const std::function<sat::ResultadoSat(Conexion &)> &escribir) {
  SesionCli sesion;
  const int entrada = IniciarSesion(o, sesion);
  if (entrada != kSalidaBien)
    return entrada;
  const sat::ResultadoSat r = escribir(*sesion.empresa);
  if (!r.Escrito()) {
    ctx.err << sat::EncabezadoFaltas() << "\n";
    for (const QString &falta : r.faltas)
      ctx.err << "  " << falta << "\n";
    return kSalidaSat;
  }
  const QString archivo = QDir::toNativeSeparators(r.archivo);
  const bool polizas = tipo == Archivo::Polizas;
  if (ctx.json) {
    ctx.objeto.insert(QStringLiteral("archivo"), archivo);
    ctx.objeto.insert(polizas ? QStringLiteral("polizas") : QStringLiteral("cuentas"), r.elementos);
    if (polizas) {
      ctx.objeto.insert(QStringLiteral("transacciones"), r.transacciones);
      ctx.objeto.insert(QStringLiteral("sinMovimiento"), r.sinMovimiento);
    }
    return kSalidaBien;
  }
  ctx.out << "  Archivo:        " << archivo << "\n";
  if (!polizas) {
    ctx.out << "  Cuentas:        " << r.elementos << "\n";
    return kSalidaBien;
  }
  ctx.out << "  Pólizas:        " << r.elementos << "\n";
  ctx.out << "  Transacciones:  " << r.transacciones << "\n";
  if (r.sinMovimiento > 0)
    ctx.out << "  Sin movimiento: " << r.sinMovimiento << " (no van en el archivo)\n";
  return kSalidaBien;
}

int Polizas(const Leidas &o, Contexto &ctx) {
  sat::PeticionPolizas p;
  p.mes = o.Mes(QStringLiteral("mes"));
  p.tipoSolicitud = o.Texto(QStringLiteral("solicitud")).toUpper();
  p.numOrden = o.Texto(QStringLiteral("orden")).toUpper();
  p.numTramite = o.Texto(QStringLiteral("tramite")).toUpper();
  p.archivo = o.Texto(QStringLiteral("archivo"));
  if (const QStringList faltas = sat::FaltasPeticion(p); !faltas.isEmpty())
    return Rechazar(ctx, faltas, ComandoSatPolizas());
  return Escribir(o, ctx, Archivo::Polizas,
                  [&p](Conexion &con) { return sat::EscribirPolizas(con, p); });
}

int Catalogo(const Leidas &o, Contexto &ctx) {
  const QDate mes = o.Mes(QStringLiteral("mes"));
  if (const QStringList faltas = sat::FaltasMes(mes); !faltas.isEmpty())
    return Rechazar(ctx, faltas, ComandoSatCatalogo());
  return Escribir(o, ctx, Archivo::Catalogo, [&](Conexion &con) {
    return sat::EscribirCatalogo(con, mes, o.Texto(QStringLiteral("archivo")));
  });
}

OpcionCli OpcionMes() {
  return {QStringLiteral("mes"), Valor::Mes, QStringLiteral("AAAA-MM"),
          QStringLiteral("el mes que se informa"), true};
}

OpcionCli OpcionArchivo() {
  return {QStringLiteral("archivo"), Valor::Texto, QStringLiteral("RUTA"),
          QStringLiteral("archivo a escribir (si no, el nombre del SAT en Export)"), false};
}

} // namespace

ComandoCli ComandoSatPolizas() {
  ComandoCli c;
  c.nombre = QStringLiteral("sat polizas");
  c.resumen = QStringLiteral("Escribe las pólizas de un mes en el XML del SAT.");
  c.descripcion = QStringLiteral(
      "Escribe las pólizas del mes con sus renglones en la estructura «PolizasPeriodo»\n"
      "1.3 del SAT. Una solicitud AF o FC (acto de fiscalización, fiscalización\n"
      "compulsa) lleva --orden; una DE o CO (devolución, compensación) lleva --tramite.\n"
      "El archivo se llama como lo pide el SAT (RFC, año, mes y PL.xml) y queda en la\n"
      "carpeta Export del programa si no se da --archivo. Termina con 1 si la solicitud\n"
      "o su número o el año no son los del SAT, y con 8, sin escribir nada, si un dato\n"
      "de la empresa falta o no sirve (el RFC, un mes sin pólizas); el mensaje nombra\n"
      "el campo.\n");
  c.opciones = {OpcionEmpresa(true)};
  c.opciones += OpcionesEntrada();
  c.opciones +=
      QList<OpcionCli>{OpcionMes(),
                       {QStringLiteral("solicitud"), Valor::Texto, QStringLiteral("TIPO"),
                        QStringLiteral("AF, FC, DE o CO: el tipo de solicitud del SAT"), true},
                       {QStringLiteral("orden"), Valor::Texto, QStringLiteral("NUMERO"),
                        QStringLiteral("número de orden (AF, FC), como ABC1234567/26"), false},
                       {QStringLiteral("tramite"), Valor::Texto, QStringLiteral("NUMERO"),
                        QStringLiteral("número de trámite (DE, CO), como DE123456789012"), false},
                       OpcionArchivo(),
                       OpcionJson()};
  c.correr = Polizas;
  return c;
}

ComandoCli ComandoSatCatalogo() {
  ComandoCli c;
  c.nombre = QStringLiteral("sat catalogo");
  c.resumen = QStringLiteral("Escribe el catálogo de cuentas en el XML del SAT.");
  c.descripcion = QStringLiteral(
      "Escribe el catálogo de rubros en la estructura «CatalogoCuentas» 1.3 del SAT,\n"
      "con el código agrupador y la naturaleza que cada rubro tiene en el catálogo.\n"
      "El archivo se llama como lo pide el SAT (RFC, año, mes y CT.xml). Si alguna\n"
      "cuenta no tiene código agrupador, las nombra y termina con 8 sin escribir nada.\n");
  c.opciones = {OpcionEmpresa(true)};
  c.opciones += OpcionesEntrada();
  c.opciones += QList<OpcionCli>{OpcionMes(), OpcionArchivo(), OpcionJson()};
  c.correr = Catalogo;
  return c;
}

} // namespace cli
