#include "journal/Bitacora.h"

#include "journal/Corrida.h"
#include "journal/Polizas.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QFileInfo>
#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLargoLinea = 255;

QString DosDigitos(int n) {
  return QString(QLatin1Char(static_cast<char>('0' + n / 10))) +
         QLatin1Char(static_cast<char>('0' + n % 10));
}

// "DD/MM/YYYY", by hand for the years of four digits: the log writes a date on every
// line of every entry, and the general formatting of dates costs more than the line.
QString Fecha(const QDate &d) {
  if (!d.isValid() || d.year() < 1000 || d.year() > 9999)
    return d.toString(QStringLiteral("dd/MM/yyyy"));
  return DosDigitos(d.day()) + QLatin1Char('/') + DosDigitos(d.month()) + QLatin1Char('/') +
         QString::number(d.year());
}

QString Izquierda(const QString &t, int ancho) { return t.left(ancho).leftJustified(ancho); }

// Appends a column of fixed width: the text cut at the width, or filled with blanks.
void Columna(QString &linea, QStringView texto, qsizetype ancho) {
  const QStringView parte = texto.left(ancho);
  linea += parte;
  linea.resize(linea.size() + ancho - parte.size(), QLatin1Char(' '));
}

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

QString MensajeBitacoraNoEscrita(const QString &ruta, const QString &error) {
  return QStringLiteral("No fue posible escribir la bitácora %1 (%2). Las pólizas se generan sin "
                        "bitácora.")
      .arg(ruta, error);
}

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
    CatalogoMensajes::MostrarTexto(MensajeBitacoraNoEscrita(ruta, archivo_->errorString()),
                                   IconoMensaje::Advertencia);
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

QStringList Bitacora::LecturasDePoliza(const QString &folio, const ConceptoRegla &regla) {
  return {u"SELECT * FROM tblPolizasEnc WHERE FOL_POLIZA='"_s % Escapar(folio) %
              u"' AND TIP_POLIZA='"_s % Escapar(regla.TipPoliza) % u"'"_s,
          u"SELECT * FROM tblPolizasRen WHERE FOL_POLIZA='"_s % Escapar(folio) %
              u"' AND TIP_POLIZA='"_s % Escapar(regla.TipPoliza) % u"'"_s,
          u"SELECT FECHA_MOV FROM tblMovimxPoliza WHERE FOLIO_POLIZA='"_s % Escapar(folio) %
              u"' AND COD_OPER="_s % QString::number(regla.CodOper) %
              u" ORDER BY FECHA_MOV DESC;"_s};
}

void Bitacora::EscribirPoliza(Conexion &con, const QString &folio, const ConceptoRegla &regla) {
  const QStringList lecturas = LecturasDePoliza(folio, regla);
  Registros enc = con.Abrir(lecturas[0]);
  if (enc.Vacio()) {
    EscribirLinea(QStringLiteral("1") +
                  QStringLiteral(" NO SE GENERARON RENGLONES PARA LA PÓLIZA: ") + folio);
  } else {
    const QDate fechaPol = enc.Campo(QStringLiteral("FEC_POLIZA")).Fecha();
    const QString tipo = enc.Campo(QStringLiteral("TIP_POLIZA")).Texto();
    EscribirLinea(Encabezado());
    Registros ren = con.Abrir(lecturas[1]);
    // The same question for every line of the entry: the text is made once.
    const QString &ultimaFecha = lecturas[2];
    // The columns that every line of the entry repeats, each behind its two blanks.
    const QLatin1String separador("  ");
    QString comunes;
    comunes += separador;
    Columna(comunes, regla.DesOperacion, 40);
    comunes += separador;
    Columna(comunes, regla.DesConcepto, 30);
    comunes += separador;
    Columna(comunes, QString(regla.TipPoliza + folio), 12);
    comunes += separador;
    Columna(comunes, Fecha(fechaPol), 10);
    comunes += separador;
    comunes += TipoPolizaColumna(tipo, fechaPol);
    QString fechaMov;
    // Every line asks it again, with nothing written in between: in batches the first
    // line's answer is every line's.
    const bool unaVez = Conexion::EnLote();
    for (int numero = 1; !ren.Fin(); ren.Siguiente(), ++numero) {
      if (numero == 1 || !unaVez) {
        Registros mov = con.Abrir(ultimaFecha);
        if (!mov.Vacio())
          fechaMov = Fecha(mov.Campo(QStringLiteral("FECHA_MOV")).Fecha());
      }
      const bool cargo = !ren.Campo(QStringLiteral("RUBRO_DEBE")).Texto().isEmpty();
      const QString importe =
          ren.Campo(cargo ? QStringLiteral("IMP_DEBE") : QStringLiteral("IMP_HABER"))
              .ComoDinero()
              .Formato(u"###0.00")
              .left(16);
      QString linea;
      linea.reserve(comunes.size() + 112);
      Columna(linea, QString::number(numero), 10);
      Columna(linea, fechaMov, 10);
      linea += comunes;
      linea += separador;
      Columna(
          linea,
          ren.Campo(cargo ? QStringLiteral("RUBRO_DEBE") : QStringLiteral("RUBRO_HABER")).Texto(),
          10);
      linea += separador;
      Columna(
          linea,
          ren.Campo(cargo ? QStringLiteral("CUENTA_DEBE") : QStringLiteral("CUENTA_HABER")).Texto(),
          20);
      linea += separador;
      linea.resize(linea.size() + 16 - importe.size(), QLatin1Char(' '));
      linea += importe;
      linea += separador;
      linea += cargo ? QLatin1String("CARGO") : QLatin1String("ABONO");
      EscribirLinea(linea);
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
