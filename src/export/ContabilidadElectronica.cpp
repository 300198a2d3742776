#include "export/ContabilidadElectronica.h"

#include "db/ConstructorBD.h"
#include "journal/Polizas.h"
#include "shell/Dinero.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/Sesion.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSaveFile>
#include <QXmlStreamWriter>
#include <algorithm>
#include <tuple>
#include <vector>

namespace sat {
namespace {

const QString kNsPolizas =
    QStringLiteral("http://www.sat.gob.mx/esquemas/ContabilidadE/1_3/PolizasPeriodo");
const QString kNsCatalogo =
    QStringLiteral("http://www.sat.gob.mx/esquemas/ContabilidadE/1_3/CatalogoCuentas");
const QString kNsXsi = QStringLiteral("http://www.w3.org/2001/XMLSchema-instance");

bool Cumple(const QString &texto, const QString &patron) {
  return QRegularExpression(QRegularExpression::anchoredPattern(patron)).match(texto).hasMatch();
}

bool RfcValido(const QString &rfc) {
  return rfc.size() >= 12 && rfc.size() <= 13 &&
         Cumple(rfc, QStringLiteral(
                         "[A-ZÑ&]{3,4}[0-9]{2}[0-1][0-9][0-3][0-9][A-Z0-9]?[A-Z0-9]?[0-9A-Z]?"));
}

// The SAT takes no empty text and no text longer than its field.
QString Recortar(const QString &texto, int largo) { return texto.simplified().left(largo); }

QString Importe(Dinero d) { return d.Formato(u"###0.00"); }

// The file's path: the one given, or the SAT's name under Export.
QString Destino(const QString &archivo, const QString &rfc, const QDate &mes, const QString &tipo) {
  if (!archivo.isEmpty())
    return RutaNativa(archivo);
  return RutaNativa(
      UnirRuta(UnirRuta(gRutaApp, QStringLiteral("Export")), NombreArchivo(rfc, mes, tipo)));
}

// Writes the whole document or nothing; a fault names the file.
bool Guardar(const QString &ruta, const QByteArray &xml, QStringList &faltas) {
  QDir().mkpath(QFileInfo(ruta).absolutePath());
  QSaveFile archivo(ruta);
  if (archivo.open(QIODevice::WriteOnly) && archivo.write(xml) == xml.size() && archivo.commit())
    return true;
  faltas << QStringLiteral("No fue posible escribir el archivo %1: %2.")
                .arg(QDir::toNativeSeparators(ruta), archivo.errorString());
  return false;
}

void Raiz(QXmlStreamWriter &xml, const QString &prefijo, const QString &ns, const QString &raiz,
          const QString &esquema) {
  xml.setAutoFormatting(true);
  xml.writeStartDocument();
  xml.writeNamespace(ns, prefijo);
  xml.writeNamespace(kNsXsi, QStringLiteral("xsi"));
  xml.writeStartElement(ns, raiz);
  xml.writeAttribute(kNsXsi, QStringLiteral("schemaLocation"),
                     ns + QLatin1Char(' ') + ns + QLatin1Char('/') + esquema);
  xml.writeAttribute(QStringLiteral("Version"), QStringLiteral("1.3"));
}

struct Rubro {
  QString descripcion, cuenta, padre, naturaleza;
};

QHash<QString, Rubro> LeerRubros(Conexion &con) {
  QHash<QString, Rubro> rubros;
  for (Registros r = con.Abrir(QStringLiteral("SELECT COD_RUBRO,DES_RUBRO,ACUM_RUBRO,"
                                              "NATURAL_RUBRO,CUENTA_RUBRO FROM tblCatRubros;"));
       !r.Fin(); r.Siguiente())
    rubros.insert(r.Campo(0).Texto().trimmed(),
                  {r.Campo(1).Texto().trimmed(), r.Campo(4).Texto().trimmed(),
                   r.Campo(2).Texto().trimmed(), r.Campo(3).Texto().trimmed()});
  return rubros;
}

// The account the SAT knows a rubro by: its account in the package, or its code.
QString NumeroCuenta(const QString &codigo, const Rubro &rubro) {
  return rubro.cuenta.isEmpty() ? codigo : rubro.cuenta;
}

struct Linea {
  bool cargo = false;
  QString rubro;
  Dinero debe, haber;
};

} // namespace

namespace {

// The company's RFC, which every file carries; its fault, when it has one, joins the rest.
QString RfcRevisado(Conexion &con, QStringList &faltas) {
  const QString rfc = RfcEmpresa(con);
  if (const QString falta = FaltaRfc(rfc); !falta.isEmpty())
    faltas << falta;
  return rfc;
}

} // namespace

QString RfcEmpresa(Conexion &con) {
  Registros r = con.Abrir(
      QStringLiteral("SELECT RFC1_EMP,RFC2_EMP,RFC3_EMP FROM tblEmpresa WHERE COD_EMPRESA=1;"));
  if (r.Vacio())
    return {};
  QString rfc = r.Campo(0).Texto() + r.Campo(1).Texto() + r.Campo(2).Texto();
  rfc.remove(QRegularExpression(QStringLiteral("[\\s-]")));
  return rfc.toUpper();
}

QString NombreArchivo(const QString &rfc, const QDate &mes, const QString &tipo) {
  return rfc + mes.toString(QStringLiteral("yyyyMM")) + tipo + QStringLiteral(".xml");
}

QStringList FaltasMes(const QDate &mes) {
  if (!mes.isValid())
    return {QStringLiteral("Falta el mes del archivo (Mes).")};
  if (mes.year() < 2015 || mes.year() > 2099)
    return {QStringLiteral("El SAT recibe los años 2015 a 2099; el mes pedido es de %1 (Anio).")
                .arg(mes.year())};
  return {};
}

QString FaltaRfc(const QString &rfc) {
  if (rfc.isEmpty())
    return QStringLiteral("Falta el RFC de la empresa (RFC). Escríbalo en los datos de la "
                          "empresa.");
  if (RfcValido(rfc))
    return {};
  return QStringLiteral("El RFC de la empresa «%1» no tiene la forma que pide el SAT: tres o "
                        "cuatro letras, la fecha en seis cifras y la homoclave (RFC). "
                        "Corríjalo en los datos de la empresa.")
      .arg(rfc);
}

bool LlevaOrden(const QString &tipoSolicitud) {
  return tipoSolicitud == QStringLiteral("AF") || tipoSolicitud == QStringLiteral("FC");
}

QString LetraNaturaleza(const QString &naturaleza) {
  const QString letra = naturaleza.trimmed().left(1).toUpper();
  return letra == QStringLiteral("D") || letra == QStringLiteral("A") ? letra : QString();
}

QString EncabezadoFaltas() { return QStringLiteral("No se escribió el archivo del SAT:"); }

bool CodigoAgrupadorValido(const QString &codigo) {
  return Cumple(codigo, QStringLiteral("[0-9]{3}(\\.[0-9]{2})?"));
}

QStringList FaltasPeticion(const PeticionPolizas &p) {
  QStringList faltas = FaltasMes(p.mes);
  const QString &tipo = p.tipoSolicitud;
  const bool auditoria = LlevaOrden(tipo);
  const bool tramite = tipo == QStringLiteral("DE") || tipo == QStringLiteral("CO");
  if (!auditoria && !tramite) {
    faltas << QStringLiteral("El tipo de solicitud «%1» no es del SAT: AF o FC (acto de "
                             "fiscalización, fiscalización compulsa), DE o CO (devolución, "
                             "compensación) (TipoSolicitud).")
                  .arg(tipo);
    return faltas;
  }
  if (auditoria) {
    if (!p.numTramite.isEmpty())
      faltas << QStringLiteral("Una solicitud %1 lleva número de orden, no de trámite "
                               "(NumTramite).")
                    .arg(tipo);
    if (!Cumple(p.numOrden, QStringLiteral("[A-Z]{3}[0-9]{7}/[0-9]{2}")))
      faltas << QStringLiteral("El número de orden «%1» no tiene la forma del SAT: tres letras, "
                               "siete cifras, una diagonal y dos cifras, como ABC1234567/26 "
                               "(NumOrden).")
                    .arg(p.numOrden);
  } else {
    if (!p.numOrden.isEmpty())
      faltas << QStringLiteral("Una solicitud %1 lleva número de trámite, no de orden "
                               "(NumOrden).")
                    .arg(tipo);
    if (!Cumple(p.numTramite, QStringLiteral("[A-Z]{2}[0-9]{12}")))
      faltas << QStringLiteral("El número de trámite «%1» no tiene la forma del SAT: dos letras "
                               "y doce cifras, como DE123456789012 (NumTramite).")
                    .arg(p.numTramite);
  }
  return faltas;
}

ResultadoSat EscribirPolizas(Conexion &con, const PeticionPolizas &p) {
  ResultadoSat res;
  res.faltas = FaltasPeticion(p);
  const QString rfc = RfcRevisado(con, res.faltas);
  if (!res.faltas.isEmpty())
    return res;

  const QDate ini(p.mes.year(), p.mes.month(), 1);
  const QDate fin = ini.addMonths(1).addDays(-1);
  const QString periodo = QStringLiteral("FEC_POLIZA BETWEEN %1 AND %2")
                              .arg(con.Dialecto().FechaSQL(ini), con.Dialecto().FechaSQL(fin));
  const QHash<QString, Rubro> rubros = LeerRubros(con);

  // The lines of the month's entries in one reading, by entry.
  QHash<QString, std::vector<Linea>> lineas;
  for (Registros r = con.Abrir(
           QStringLiteral("SELECT tblPolizasRen.TIP_POLIZA,tblPolizasRen.FOL_POLIZA,RUBRO_DEBE,"
                          "RUBRO_HABER,CUENTA_DEBE,CUENTA_HABER,IMP_DEBE,IMP_HABER FROM "
                          "tblPolizasRen INNER JOIN tblPolizasEnc ON tblPolizasEnc.FOL_POLIZA="
                          "tblPolizasRen.FOL_POLIZA AND tblPolizasEnc.TIP_POLIZA="
                          "tblPolizasRen.TIP_POLIZA WHERE %1;")
               .arg(periodo));
       !r.Fin(); r.Siguiente()) {
    const bool cargo = !r.Campo(2).Texto().isEmpty();
    Linea l;
    l.cargo = cargo;
    l.rubro = r.Campo(cargo ? 2 : 3).Texto().trimmed();
    // Cents as the journal rounds them.
    (cargo ? l.debe : l.haber) = Round2(r.Campo(cargo ? 6 : 7).ComoDinero());
    lineas[r.Campo(0).Texto() + QLatin1Char('-') + r.Campo(1).Texto()].push_back(l);
  }
  // The lines of an entry have no order of their own: debits first, then by rubro and
  // amount, the same on every engine.
  for (std::vector<Linea> &suyas : lineas)
    std::stable_sort(suyas.begin(), suyas.end(), [](const Linea &a, const Linea &b) {
      return std::tuple(!a.cargo, a.rubro, a.debe + a.haber) <
             std::tuple(!b.cargo, b.rubro, b.debe + b.haber);
    });

  QByteArray salida;
  QXmlStreamWriter xml(&salida);
  Raiz(xml, QStringLiteral("PLZ"), kNsPolizas, QStringLiteral("Polizas"),
       QStringLiteral("PolizasPeriodo_1_3.xsd"));
  xml.writeAttribute(QStringLiteral("RFC"), rfc);
  xml.writeAttribute(QStringLiteral("Mes"), ini.toString(QStringLiteral("MM")));
  xml.writeAttribute(QStringLiteral("Anio"), QString::number(ini.year()));
  xml.writeAttribute(QStringLiteral("TipoSolicitud"), p.tipoSolicitud);
  if (!p.numOrden.isEmpty())
    xml.writeAttribute(QStringLiteral("NumOrden"), p.numOrden);
  if (!p.numTramite.isEmpty())
    xml.writeAttribute(QStringLiteral("NumTramite"), p.numTramite);

  for (Registros r = con.Abrir(QStringLiteral("SELECT TIP_POLIZA,FOL_POLIZA,FEC_POLIZA,CONCEP_POL "
                                              "FROM tblPolizasEnc WHERE %1 ORDER BY FEC_POLIZA,"
                                              "TIP_POLIZA,FOL_POLIZA;")
                                   .arg(periodo));
       !r.Fin(); r.Siguiente()) {
    const QString tipo = r.Campo(0).Texto();
    const QString folio = r.Campo(1).Texto();
    const QString clave = tipo + QLatin1Char('-') + folio;
    const auto suyas = lineas.constFind(clave);
    if (suyas == lineas.constEnd()) {
      ++res.sinMovimiento;
      continue;
    }
    QString concepto = Recortar(r.Campo(3).Texto(), 300);
    if (concepto.isEmpty())
      concepto = QStringLiteral("Póliza %1").arg(clave);
    xml.writeStartElement(kNsPolizas, QStringLiteral("Poliza"));
    xml.writeAttribute(QStringLiteral("NumUnIdenPol"), clave);
    xml.writeAttribute(QStringLiteral("Fecha"), r.Campo(2).Fecha().toString(Qt::ISODate));
    xml.writeAttribute(QStringLiteral("Concepto"), concepto);
    Dinero debe, haber;
    for (const Linea &l : *suyas) {
      // The account as the chart of accounts of the same month names it.
      const auto rubro = rubros.constFind(l.rubro);
      QString descripcion;
      QString cuenta = l.rubro;
      if (rubro != rubros.constEnd()) {
        descripcion = Recortar(rubro->descripcion, 100);
        cuenta = NumeroCuenta(l.rubro, *rubro);
      }
      if (descripcion.isEmpty())
        res.faltas << QStringLiteral("La póliza %1 tiene un renglón del rubro «%2», que no está "
                                     "en el catálogo o no tiene descripción (DesCta).")
                          .arg(clave, l.rubro);
      debe += l.debe;
      haber += l.haber;
      xml.writeEmptyElement(kNsPolizas, QStringLiteral("Transaccion"));
      xml.writeAttribute(QStringLiteral("NumCta"), Recortar(cuenta, 100));
      xml.writeAttribute(QStringLiteral("DesCta"), descripcion);
      xml.writeAttribute(QStringLiteral("Concepto"), concepto.left(200));
      xml.writeAttribute(QStringLiteral("Debe"), Importe(l.debe));
      xml.writeAttribute(QStringLiteral("Haber"), Importe(l.haber));
      ++res.transacciones;
    }
    if (debe != haber)
      res.faltas << QStringLiteral("La póliza %1 no cuadra: sus cargos suman %2 y sus abonos %3 "
                                   "(Debe, Haber).")
                        .arg(clave, debe.Formato(u"#,##0.00"), haber.Formato(u"#,##0.00"));
    xml.writeEndElement();
    ++res.elementos;
  }
  xml.writeEndDocument();

  if (res.elementos == 0)
    res.faltas << QStringLiteral("El mes %1 no tiene pólizas con movimientos (Mes).")
                      .arg(ini.toString(QStringLiteral("MM/yyyy")));
  if (!res.faltas.isEmpty())
    return res;
  const QString ruta = Destino(p.archivo, rfc, ini, QStringLiteral("PL"));
  if (Guardar(ruta, salida, res.faltas))
    res.archivo = ruta;
  return res;
}

ResultadoSat EscribirCatalogo(Conexion &con, const QDate &mes, const QString &archivo) {
  ResultadoSat res;
  res.faltas = FaltasMes(mes);
  const QString rfc = RfcRevisado(con, res.faltas);
  if (!res.faltas.isEmpty())
    return res;

  QString error;
  if (!constructor::AsegurarTabla(con, "tblRubrosSAT", &error)) {
    res.faltas << QStringLiteral("No fue posible crear la tabla de códigos del SAT "
                                 "(tblRubrosSAT): %1")
                      .arg(error);
    return res;
  }
  const QHash<QString, Rubro> rubros = LeerRubros(con);
  struct Sat {
    QString codigo, naturaleza;
  };
  QHash<QString, Sat> sat;
  for (Registros r =
           con.Abrir(QStringLiteral("SELECT COD_RUBRO,COD_AGRUP,NATURALEZA FROM tblRubrosSAT;"));
       !r.Fin(); r.Siguiente())
    sat.insert(r.Campo(0).Texto().trimmed(),
               {r.Campo(1).Texto().trimmed(), r.Campo(2).Texto().trimmed().toUpper()});

  QStringList codigos = rubros.keys();
  codigos.sort();
  QByteArray salida;
  QXmlStreamWriter xml(&salida);
  Raiz(xml, QStringLiteral("catalogocuentas"), kNsCatalogo, QStringLiteral("Catalogo"),
       QStringLiteral("CatalogoCuentas_1_3.xsd"));
  xml.writeAttribute(QStringLiteral("RFC"), rfc);
  xml.writeAttribute(QStringLiteral("Mes"), mes.toString(QStringLiteral("MM")));
  xml.writeAttribute(QStringLiteral("Anio"), QString::number(mes.year()));
  QHash<QString, QString> cuentas; // each account once: the rubro that has it
  for (const QString &codigo : codigos) {
    const Rubro rubro = rubros.value(codigo);
    const QString cuenta = NumeroCuenta(codigo, rubro);
    const QString nombre = QStringLiteral("%1 (%2 %3)").arg(cuenta, codigo, rubro.descripcion);
    const Sat propio = sat.value(codigo);
    if (propio.codigo.isEmpty())
      res.faltas << QStringLiteral("La cuenta %1 no tiene código agrupador del SAT (CodAgrup).")
                        .arg(nombre);
    else if (!CodigoAgrupadorValido(propio.codigo))
      res.faltas << QStringLiteral("El código agrupador «%1» de la cuenta %2 no tiene la forma "
                                   "del SAT: tres cifras, y para una subcuenta un punto y dos "
                                   "cifras más (CodAgrup).")
                        .arg(propio.codigo, nombre);
    if (const QString otro = cuentas.value(cuenta); !otro.isEmpty())
      res.faltas << QStringLiteral("Los rubros %1 y %2 tienen la misma cuenta %3: el SAT pide "
                                   "un número de cuenta para cada una (NumCta).")
                        .arg(otro, codigo, cuenta);
    cuentas.insert(cuenta, codigo);
    // The rubro's own nature stands when the SAT's row has none.
    QString naturaleza = LetraNaturaleza(propio.naturaleza);
    if (naturaleza.isEmpty())
      naturaleza = LetraNaturaleza(rubro.naturaleza);
    if (naturaleza.isEmpty())
      res.faltas << QStringLiteral("La cuenta %1 no tiene naturaleza deudora ni acreedora "
                                   "(Natur).")
                        .arg(nombre);
    if (rubro.descripcion.isEmpty())
      res.faltas << QStringLiteral("La cuenta %1 no tiene descripción (Desc).").arg(nombre);

    // The level counts the parents up to the first section. A parent missing from the
    // chart, or a chain that comes back to a rubro it passed, can't be told to the SAT.
    int nivel = 1;
    QStringList vistos{codigo};
    for (QString padre = rubro.padre; !padre.isEmpty(); padre = rubros.value(padre).padre) {
      if (!rubros.contains(padre)) {
        res.faltas << QStringLiteral("La cuenta %1 acumula en el rubro «%2», que no está en el "
                                     "catálogo (SubCtaDe).")
                          .arg(nombre, padre);
        break;
      }
      if (vistos.contains(padre)) {
        res.faltas << QStringLiteral("La cuenta %1 acumula en una cadena de rubros que vuelve "
                                     "sobre sí misma: %2 (SubCtaDe).")
                          .arg(nombre, (vistos << padre).join(QStringLiteral(" → ")));
        break;
      }
      vistos << padre;
      ++nivel;
    }
    xml.writeEmptyElement(kNsCatalogo, QStringLiteral("Ctas"));
    xml.writeAttribute(QStringLiteral("CodAgrup"), propio.codigo);
    xml.writeAttribute(QStringLiteral("NumCta"), Recortar(cuenta, 100));
    xml.writeAttribute(QStringLiteral("Desc"), Recortar(rubro.descripcion, 400));
    if (nivel > 1)
      xml.writeAttribute(QStringLiteral("SubCtaDe"),
                         Recortar(NumeroCuenta(rubro.padre, rubros.value(rubro.padre)), 100));
    xml.writeAttribute(QStringLiteral("Nivel"), QString::number(nivel));
    xml.writeAttribute(QStringLiteral("Natur"), naturaleza);
    ++res.elementos;
  }
  xml.writeEndDocument();
  if (res.elementos == 0)
    res.faltas << QStringLiteral("La empresa no tiene cuentas en su catálogo de rubros (Ctas).");
  if (!res.faltas.isEmpty())
    return res;
  const QString ruta = Destino(archivo, rfc, mes, QStringLiteral("CT"));
  if (Guardar(ruta, salida, res.faltas))
    res.archivo = ruta;
  return res;
}

} // namespace sat
