#include "journal/Bitacora.h"

#include "journal/Corrida.h"
#include "journal/Polizas.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/Sesion.h"

#include <QFileInfo>

namespace {

constexpr int kLargoLinea = 255;

QString Fecha(const QDate &d) { return d.toString(QStringLiteral("dd/MM/yyyy")); }

QString Izquierda(const QString &t, int ancho) { return t.left(ancho).leftJustified(ancho); }

QString TipoPolizaColumna(const QString &tipo, const QDate &fecha) {
  if (tipo == QLatin1String("I"))
    return QStringLiteral("INGRESOS");
  if (tipo == QLatin1String("E"))
    return QStringLiteral("EGRESOS ");
  if (tipo == QLatin1String("D"))
    return QStringLiteral("DIARIO  ");
  if (tipo == QLatin1String("O"))
    return QStringLiteral("ORDEN   ");
  // Any other type repeats the date of the entry in the column.
  return Izquierda(Fecha(fecha), 8);
}

QString Encabezado() {
  return QStringLiteral("NO.       FECHA       DOCUMENTO") + QString(33, QLatin1Char(' ')) +
         QStringLiteral("CONCEPTO") + QString(24, QLatin1Char(' ')) +
         QStringLiteral("FOLIO         FECHA POL   TIPO POL  RUBRO") +
         QString(7, QLatin1Char(' ')) + QStringLiteral("CUENTA") + QString(25, QLatin1Char(' ')) +
         QStringLiteral("IMPORTE  TIPO");
}

} // namespace

QString Bitacora::NombreBitacora(int numEmp, const QDate &fechaDefinida) {
  return gRutaApp + QStringLiteral("\\TEMP\\ResumenPol") + QString::number(numEmp) +
         QLatin1Char('_') + fechaDefinida.toString(QStringLiteral("ddMMyyyy")) +
         QStringLiteral(".txt");
}

bool Bitacora::ValidarBitacora(const QString &ruta) {
  if (ruta.isEmpty()) {
    CatalogoMensajes::Mostrar(5512, {}, IconoMensaje::Advertencia);
    return false;
  }
  if (!QFileInfo::exists(RutaNativa(ruta)))
    return true;
  const RespuestaMensaje r = CatalogoMensajes::Caja(
      CatalogoMensajes::Texto(5510) + QLatin1Char('\n') + CatalogoMensajes::Texto(5511),
      CatalogoMensajes::Texto(5500), IconoMensaje::Pregunta, BotonesMensaje::SiNo, 5510);
  return r == RespuestaMensaje::Si;
}

void Bitacora::AbrirBitacora(Conexion &con, const OpcionesGeneracion &opciones) {
  QString nomEmp;
  {
    Registros r = con.Abrir(QStringLiteral("SELECT NOM_EMP FROM tblEmpresa;"));
    if (!r.Vacio())
      nomEmp = r.Campo(QStringLiteral("NOM_EMP")).Texto();
  }
  const QString ruta = RutaNativa(opciones.Resumen);
  QStringList anteriores;
  {
    QFile viejo(ruta);
    if (viejo.open(QIODevice::ReadOnly)) {
      QString texto = DecodificarWindows1252(viejo.readAll());
      texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
      anteriores = texto.split(QLatin1Char('\n'));
      if (!anteriores.isEmpty() && anteriores.last().isEmpty())
        anteriores.removeLast();
    }
  }
  archivo_ = std::make_unique<QFile>(ruta);
  if (!archivo_->open(QIODevice::WriteOnly | QIODevice::Truncate)) {
    archivo_.reset();
    return;
  }
  for (const QString &linea : anteriores)
    EscribirLinea(linea.left(kLargoLinea));
  if (!anteriores.isEmpty())
    EscribirLinea(QString(kLargoLinea, QLatin1Char('-')));
  const QDateTime ahora = Ahora();
  EscribirLinea(QString());
  EscribirLinea(QStringLiteral("Resumen del Proceso de Generación de Pólizas"));
  EscribirLinea(QString());
  EscribirLinea(QStringLiteral("Empresa:     ") + nomEmp);
  EscribirLinea(QStringLiteral("Fecha y Hora de Inicio:") + Fecha(ahora.date()) +
                QStringLiteral("   ") +
                QLocale::c().toString(ahora.time(), QStringLiteral("hh:mm:ss AP")));
  EscribirLinea(QStringLiteral("Usuario:     ") + gCodUsu);
  EscribirLinea(QString());
  EscribirLinea(QStringLiteral("Para este proceso el usuario eligió las siguientes opciones:"));
  EscribirLinea(QString());
  EscribirLinea(QStringLiteral("Período :"));
  EscribirLinea(QStringLiteral("Fecha Inicial:    ") + Fecha(opciones.Del));
  EscribirLinea(QStringLiteral("Fecha Final:      ") + Fecha(opciones.Al));
  EscribirLinea(QString());
  EscribirLinea(opciones.DefinirFecha ? QStringLiteral("Fecha = ") + Fecha(opciones.FechaDefinida)
                                      : QStringLiteral("Fecha = Fecha del Movimiento"));
  EscribirLinea(opciones.Actualizar ? QStringLiteral("Actualizar Pólizas = Sí")
                                    : QStringLiteral("Actualizar Pólizas = No"));
  EscribirLinea(QString());
}

void Bitacora::EscribirLinea(const QString &linea) {
  if (!archivo_)
    return;
  if (archivo_->write(CodificarWindows1252(linea) + "\r\n") < 0) {
    // The folder vanished or the disk is full: the run goes on without its log.
    archivo_.reset();
  }
}

void Bitacora::EscribirPoliza(Conexion &con, const QString &folio, const ConceptoRegla &regla) {
  Registros enc = con.Abrir(
      QStringLiteral("SELECT * FROM tblPolizasEnc WHERE FOL_POLIZA='%1' AND TIP_POLIZA='%2'")
          .arg(folio, regla.TipPoliza));
  if (enc.Vacio()) {
    EscribirLinea(QStringLiteral("1") +
                  QStringLiteral(" NO SE GENERARON RENGLONES PARA LA PÓLIZA: ") + folio);
  } else {
    const QDate fechaPol = enc.Campo(QStringLiteral("FEC_POLIZA")).Fecha();
    const QString tipo = enc.Campo(QStringLiteral("TIP_POLIZA")).Texto();
    EscribirLinea(Encabezado());
    Registros ren = con.Abrir(
        QStringLiteral("SELECT * FROM tblPolizasRen WHERE FOL_POLIZA='%1' AND TIP_POLIZA='%2'")
            .arg(folio, regla.TipPoliza));
    QString fechaMov;
    for (int numero = 1; !ren.Fin(); ren.Siguiente(), ++numero) {
      {
        Registros mov = con.Abrir(QStringLiteral("SELECT FECHA_MOV FROM tblMovimxPoliza WHERE "
                                                 "FOLIO_POLIZA='%1' AND COD_OPER=%2 ORDER BY "
                                                 "FECHA_MOV DESC;")
                                      .arg(folio)
                                      .arg(regla.CodOper));
        if (!mov.Vacio())
          fechaMov = Fecha(mov.Campo(QStringLiteral("FECHA_MOV")).Fecha());
      }
      const bool cargo = !ren.Campo(QStringLiteral("RUBRO_DEBE")).Texto().isEmpty();
      const QString lado = cargo ? QStringLiteral("DEBE") : QStringLiteral("HABER");
      const QString importe =
          ren.Campo(QStringLiteral("IMP_") + lado).ComoDinero().Formato(u"###0.00").left(16);
      const QStringList columnas = {
          Izquierda(fechaMov, 10),
          Izquierda(regla.DesOperacion, 40),
          Izquierda(regla.DesConcepto, 30),
          Izquierda(regla.TipPoliza + folio, 12),
          Izquierda(Fecha(fechaPol), 10),
          TipoPolizaColumna(tipo, fechaPol),
          Izquierda(ren.Campo(QStringLiteral("RUBRO_") + lado).Texto(), 10),
          Izquierda(ren.Campo(QStringLiteral("CUENTA_") + lado).Texto(), 20),
          importe.rightJustified(16),
          cargo ? QStringLiteral("CARGO") : QStringLiteral("ABONO"),
      };
      EscribirLinea(Izquierda(QString::number(numero), 10) + columnas.join(QStringLiteral("  ")));
    }
    EscribirLinea(QString());
  }
  EscribirLinea(QString());
}

void Bitacora::CerrarBitacora() {
  if (archivo_)
    archivo_->close();
  archivo_.reset();
}
