#include "journal/Documentos.h"

#include "config/Reglas.h"
#include "journal/Corrida.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QStringBuilder>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

QString N(qint64 v) { return QString::number(v); }

struct FuenteLiteral {
  int cod;
  const char16_t *enc, *ren, *clave, *fecha, *concepto, *filtro;
};

// The sources of the operations, to the letter. Code 19 has none: its rule fails on
// its first query.
constexpr FuenteLiteral kFuentes[] = {
    {1, u"tblGralVentas", u"tblRenVentas", u"REF_DOC", u"FEC_DOC", u"",
     u"(CREDITO = 0 AND STS_DOC <> 4) AND"},
    {2, u"tblGralVentas", u"tblRenVentas", u"REF_DOC", u"FEC_DOC", u"",
     u"(CREDITO = 1 AND STS_DOC <> 4) AND"},
    {3, u"tblAuxCaja", u"", u"REF_DOC", u"FEC_DOC", u"CON_CEP", u"(COD_CON='IEFE') AND"},
    {4, u"tblAuxCaja", u"", u"REF_DOC", u"FEC_DOC", u"CON_CEP", u"(COD_CON='RCAJ') AND"},
    {5, u"tblAuxCaja", u"", u"REF_DOC", u"FEC_DOC", u"CON_CEP", u"(COD_CON='PSER') AND"},
    {6, u"tblEncCargosAbonos", u"tblRenCargosAbonos", u"FOL_DOC", u"FEC_DOC", u"COD_CON",
     u"(tblEncCargosAbonos.COD_STS <> 2) AND (tblEncCargosAbonos.CON_GRL='ACLI') AND "
     u"(tblEncCargosAbonos.CON_CEP NOT IN('NVEN','DCLI')) AND"},
    {7, u"tblEncCargosAbonos", u"tblRenCargosAbonos", u"FOL_DOC", u"FEC_DOC", u"COD_CON",
     u"(tblEncCargosAbonos.COD_STS <> 2) AND (tblEncCargosAbonos.CON_GRL='CCLI') AND "
     u"(tblEncCargosAbonos.CON_CEP NOT IN('NVEN','DCLI')) AND"},
    {8, u"tblEncDevolucion", u"tblRenDevolucion", u"FOL_DEV", u"FEC_DEV", u"COD_CON",
     u"(TIP_DEV = 0 AND COD_STS <> 4) AND"},
    {9, u"tblEncDevolucion", u"tblRenDevolucion", u"FOL_DEV", u"FEC_DEV", u"COD_CON",
     u"(TIP_DEV = 1 AND COD_STS <> 4) AND"},
    {10, u"tblGralAlmacen", u"tblRenAlmacen", u"REF_MOV", u"FEC_MOV", u"CON_CEP",
     u"(COD_STS = 1 AND tblGralAlmacen.CON_GRL='EALM') AND"},
    {11, u"tblGralAlmacen", u"tblRenAlmacen", u"REF_MOV", u"FEC_MOV", u"CON_CEP",
     u"(COD_STS = 1 AND tblGralAlmacen.CON_GRL='SALM') AND"},
    {12, u"tblComprasEnc", u"tblComprasRen", u"FOL_DOC", u"FEC_DOC", u"",
     u"(COD_TIP = 1 AND COD_ESTATUS = 1)"},
    {13, u"tblComprasEnc", u"tblComprasRen", u"FOL_DOC", u"FEC_DOC", u"",
     u"(COD_TIP = 2 AND COD_ESTATUS = 1)"},
    {14, u"tblComprasEnc", u"tblComprasRen", u"FOL_DOC", u"FEC_DOC", u"",
     u"(COD_TIP = 3 AND COD_ESTATUS = 1)"},
    {15, u"tblComprasEnc", u"tblComprasRen", u"FOL_DOC", u"FEC_DOC", u"",
     u"(COD_TIP = 4 AND COD_ESTATUS = 1)"},
    {16, u"tblDevolucionEnc", u"tblDevolucionRen", u"FOL_DEV", u"FEC_DEV", u"",
     u"(COD_TIP = 1 AND COD_ESTATUS = 1)"},
    {17, u"tblDevolucionEnc", u"tblDevolucionRen", u"FOL_DEV", u"FEC_DEV", u"",
     u"(COD_TIP = 2 AND COD_ESTATUS = 1)"},
    {18, u"tblDevolucionEnc", u"tblDevolucionRen", u"FOL_DEV", u"FEC_DEV", u"",
     u"(COD_TIP = 3 AND COD_ESTATUS = 1)"},
    {19, u"", u"", u"", u"", u"", u""},
    {20, u"tblCxPEnc", u"tblCxPRen", u"FOL_DOC", u"FEC_DOC", u"CON_CEP",
     u"(tblCxPEnc.CON_GRL='ACXP' AND tblCxPEnc.COD_STS <> 2 AND tblCxPEnc.CON_CEP NOT "
     u"IN('DEVO','RECP')) AND"},
    {21, u"tblCxPEnc", u"tblCxPRen", u"FOL_DOC", u"FEC_DOC", u"CON_CEP",
     u"(tblCxPEnc.CON_GRL='CCXP' AND tblCxPEnc.COD_STS <> 2 AND tblCxPEnc.CON_CEP <> 'RECP') "
     u"AND"},
    {22, u"tblGastosEnc", u"tblGastosRen", u"FOL_MOV", u"FEC_MOV", u"CON_CEP",
     u"(COD_ESTATUS <> 2) AND"},
    {23, u"tblReposicionCaja", u"tblReposicionCajaMov", u"FOL_CHEQUE", u"FEC_DOC", u"",
     u"(COD_STS <> 2)"},
    {24, u"tblIngreEgre", u"", u"FOL_MOV", u"FEC_MOV", u"CON_CEP",
     u"(COD_ESTATUS <> 2) AND (CON_GRL='INGR') AND"},
    {25, u"tblIngreEgre", u"", u"FOL_MOV", u"FEC_MOV", u"CON_CEP",
     u"(COD_ESTATUS <> 2) AND (CON_GRL='EGRE') AND (CON_CEP<>'CHQE') AND"},
    {26, u"tblIngreEgre", u"", u"FOL_MOV", u"FEC_MOV", u"CON_CEP",
     u"(COD_ESTATUS <> 2) AND (CON_CEP='CHQE') AND (TIPO_APN=2) AND"},
    {27, u"tblIngreEgre", u"", u"FOL_MOV", u"FEC_MOV", u"CON_CEP",
     u"(COD_ESTATUS <> 2) AND (CON_CEP='CHQE') AND (TIPO_APN=1) AND"},
    {28, u"tblIngreEgre", u"", u"FOL_MOV", u"FEC_MOV", u"CON_CEP",
     u"(COD_ESTATUS <> 2) AND (CON_CEP='CHQE') AND (TIPO_APN=0) AND"},
    {29, u"tblGralAlmacen", u"tblRenAlmacen", u"REF_MOV", u"FEC_MOV", u"CON_CEP",
     u"(COD_STS <> 2 AND tblGralAlmacen.CON_CEP='IFIS') AND"},
    {30, u"tblGastosEnc", u"tblGastosRen", u"FOL_MOV", u"FEC_MOV", u"COD_CON",
     u"(COD_ESTATUS <> 2) AND"},
};

QString T(const char16_t *texto) { return QString::fromUtf16(texto); }

// A date as the record set holds it: a date column may carry a time of day, which a
// posting by day compares as a later moment.
QDateTime FechaHora(const Valor &valor) {
  const QVariant &v = valor.Variante();
  if (v.isNull())
    return {};
  if (v.typeId() == QMetaType::QDateTime)
    return v.toDateTime();
  const QString texto = v.toString().trimmed();
  if (v.typeId() != QMetaType::QDate && texto.size() > 10) {
    QString iso = texto;
    iso[10] = QLatin1Char('T');
    const QDateTime conHora = QDateTime::fromString(iso, Qt::ISODate);
    if (conHora.isValid())
      return conHora;
  }
  const QDate fecha = valor.Fecha();
  return fecha.isValid() ? QDateTime(fecha, QTime(0, 0)) : QDateTime();
}

} // namespace

void CargarOperaciones(Corrida &corrida) {
  Registros r = corrida.Conexion->Abrir(
      u"SELECT COD_IMP FROM tblImpuestos WHERE COD_IMP<>0 ORDER BY COD_IMP;"_s);
  int *impuestos[] = {&corrida.ImpuestoUno, &corrida.ImpuestoDos, &corrida.ImpuestoTres};
  // With fewer rows the other taxes keep what they had; rows beyond the third are ignored.
  for (int n = 0; n < 3 && !r.Fin(); ++n, r.Siguiente())
    *impuestos[n] = static_cast<int>(r.Campo(u"COD_IMP"_s).Entero());

  for (const FuenteLiteral &f : kFuentes) {
    OperacionFuente &op = corrida.Operacion(f.cod);
    op.TablaEnc = T(f.enc);
    op.TablaRen = T(f.ren);
    op.CampoClave = T(f.clave);
    op.CampoFecha = T(f.fecha);
    op.CampoConcepto = T(f.concepto);
    op.Filtro = T(f.filtro);
  }
}

QString TextoFijoDeOperacion(int codOper) {
  // The words without an accent stand so beside the accented ones.
  switch (codOper) {
  case 1:
    return u"VENTA DE CONTADO"_s;
  case 2:
    return u"VENTA A CRÉDITO"_s;
  case 8:
    return u"DEVOLUCIÓN DE CLIENTE (GENERAR ANTICIPO)"_s;
  case 9:
    return u"DEVOLUCIÓN DE CLIENTE (REGRESO EFECTIVO)"_s;
  case 12:
    return u"RECEPCION DE MERCANCIA"_s;
  case 13:
    return u"RECEPCION DE MATERIALES"_s;
  case 14:
    return u"RECEPCION DE CONSUMIBLES"_s;
  case 15:
    return u"RECEPCION DE SERVICIOS"_s;
  case 16:
    return u"DEVOLUCION DE MERCANCIA"_s;
  case 17:
    return u"DEVOLUCION DE MATERIALES"_s;
  case 18:
    return u"DEVOLUCION DE CONSUMIBLES"_s;
  case 26:
    return u"CHEQUE A PROVEEDOR"_s;
  case 27:
    return u"CHEQUE A ACREEDOR"_s;
  case 28:
    return u"OTROS CHEQUES"_s;
  case 29:
    return u"INVENTARIO FÍSICO"_s;
  default:
    return {};
  }
}

QString DescripcionConcepto(Conexion &con, int codOper, const QString &concepto) {
  // The charges of purchases (19) have a list of concepts but no description in an entry.
  const CatalogoConceptos *c = codOper == 19 ? nullptr : CatalogoDeConceptos(codOper);
  if (!c)
    return {};
  const QLatin1String descripcion(c->descripcion);
  const QString columna =
      descripcion == "DES_CON"_L1 ? QString(descripcion) : u"("_s + descripcion + u") AS DES_CON"_s;
  Registros r =
      con.Abrir(u"SELECT "_s + columna + u" FROM "_s + QLatin1String(c->tabla) + u" WHERE "_s +
                QLatin1String(c->codigo) + u"='"_s + Escapar(concepto) + u"'"_s);
  if (r.Vacio())
    return {};
  return r.Campo(u"DES_CON"_s).Texto().left(30);
}

QString DescripcionRegla(Conexion &con, int codOper, bool generaCon, const QString &concepto) {
  const QString texto =
      generaCon ? DescripcionConcepto(con, codOper, concepto) : TextoFijoDeOperacion(codOper);
  return TextoFijo(texto, 30);
}

void CrearDocumentos(Corrida &corrida) { corrida.Documentos.Crear(); }

void LeerDocumentos(Corrida &corrida) {
  CrearDocumentos(corrida);
  const ConceptoRegla &regla = corrida.Concepto();
  OperacionFuente &op = corrida.Operacion(regla.CodOper);
  const QString &enc = op.TablaEnc;
  const QString &ren = op.TablaRen;
  const QString &clave = op.CampoClave;
  const QString &fecha = op.CampoFecha;
  QString filtro = op.Filtro;
  if (!regla.Concepto.isEmpty() && !op.CampoConcepto.isEmpty())
    filtro += u" ("_s + enc + u"."_s + op.CampoConcepto + u" = '"_s + Escapar(regla.Concepto) +
              u"') AND"_s;

  QString sql = u"SELECT DISTINCT ("_s + enc + u"."_s + fecha + u") AS FECHADOC,("_s + enc +
                u"."_s + clave + u") AS FOLIODOC FROM "_s + enc;
  // A document without lines isn't listed, except in the two tables that aren't joined.
  if (enc != u"tblEncCargosAbonos"_s && enc != u"tblCxPEnc"_s && !ren.isEmpty()) {
    if (regla.CodOper == 23)
      sql += u" INNER JOIN "_s + ren + u" ON "_s + enc + u".FOL_DOC = "_s + ren + u".FOL_DOC"_s;
    else
      sql += u" INNER JOIN "_s + ren + u" ON "_s + enc + u"."_s + clave + u" = "_s + ren + u"."_s +
             clave;
  }
  sql += u" WHERE "_s + filtro;
  // The filters of 12 to 18 and 23 don't end in AND.
  const bool sinAnd = (regla.CodOper >= 12 && regla.CodOper <= 18) || regla.CodOper == 23;
  sql += sinAnd ? u" AND ("_s : u" ("_s;
  sql += enc + u"."_s + fecha + u" BETWEEN "_s +
         corrida.Conexion->Dialecto().FechaSQL(corrida.FechaInicial) + u" AND "_s +
         corrida.Conexion->Dialecto().FechaSQL(corrida.FechaFinal) + u") ORDER BY "_s + enc +
         u"."_s + fecha + u","_s + enc + u"."_s + clave + u";"_s;
  op.FiltroConcepto = filtro;

  Registros r = corrida.Conexion->Abrir(sql);
  for (; !r.Fin(); r.Siguiente()) {
    Documento d;
    d.FOLIO_DOC =
        TextoDeCampo(r.Campo(u"FOLIODOC"_s).Texto(), Documento::kLargoFolioDoc, "FOLIO_DOC");
    d.FECHA_DOCTO = FechaHora(r.Campo(u"FECHADOC"_s));
    d.FECHA_CONTAB = d.FECHA_DOCTO;
    corrida.Documentos.Agregar(d);
  }
  BuscarPosteos(corrida);
}

namespace {

// The rows of many queries read before: each under its text.
using Leidas = QHash<QString, std::shared_ptr<const Registros::Leidas>>;

// Reads the queries a few hundred a statement (the embedded engine joins five hundred at
// most), each under its text; the ones of a statement that fails, and a query alone, are
// left to be asked by themselves.
void LeerJuntas(Conexion &con, QStringList consultas, Leidas &leidas) {
  constexpr qsizetype kConsultasPorSentencia = 400;
  consultas.removeDuplicates();
  if (consultas.size() < 2)
    return;
  for (qsizetype desde = 0; desde < consultas.size(); desde += kConsultasPorSentencia) {
    const QStringList estas = consultas.mid(desde, kConsultasPorSentencia);
    const std::optional<Conexion::Lecturas> juntas = con.AbrirJuntas(estas);
    if (!juntas)
      continue;
    for (qsizetype i = 0; i < estas.size(); ++i)
      leidas.insert(estas[i], (*juntas)[static_cast<std::size_t>(i)]);
  }
}

} // namespace

void BuscarPosteos(Corrida &corrida) {
  const ConceptoRegla &regla = corrida.Concepto();
  Conexion &con = *corrida.Conexion;
  ConjuntoMemoria<Documento> &docs = corrida.Documentos;
  const auto movimiento = [&](const Documento &d) -> QString {
    return u"SELECT * FROM tblMovimxPoliza WHERE FOLIO_MOV='"_s % Escapar(d.FOLIO_DOC) %
           u"' AND COD_OPER="_s % N(regla.CodOper) % u" AND CONCEPTO='"_s %
           Escapar(regla.Concepto) % u"';"_s;
  };
  // The entry is looked for under the journal type of the rule as it stands today.
  const auto poliza = [&](const QString &folio) -> QString {
    return u"SELECT * FROM tblPolizasEnc WHERE FOL_POLIZA='"_s % Escapar(folio) %
           u"' AND TIP_POLIZA='"_s % Escapar(regla.TipPoliza) % u"';"_s;
  };
  // Nothing is written while the documents are looked for: in batches the records of all
  // of them are read first, then the entries of the posted ones.
  Leidas leidas;
  if (Conexion::EnLote()) {
    QStringList movimientos;
    for (const Documento &d : docs.Filas())
      movimientos << movimiento(d);
    LeerJuntas(con, movimientos, leidas);
    QStringList polizas;
    for (const QString &m : movimientos) {
      const auto leida = leidas.constFind(m);
      if (leida != leidas.constEnd() && !(*leida)->filas.empty())
        polizas << poliza(Registros(*leida, m).Campo(u"FOLIO_POLIZA"_s).Texto());
    }
    LeerJuntas(con, polizas, leidas);
  }
  const auto abrir = [&](const QString &sql) {
    const auto leida = leidas.constFind(sql);
    return leida != leidas.constEnd() ? Registros(*leida, sql) : con.Abrir(sql);
  };
  for (docs.Primero(); !docs.Fin(); docs.Siguiente()) {
    Documento &d = docs.Actual();
    {
      // The module isn't asked; of several rows the first is used.
      Registros m = abrir(movimiento(d));
      if (m.Vacio())
        continue;
      d.ESTA_CONTAB = true;
      d.FOLIO_POLIZA = TextoDeCampo(m.Campo(u"FOLIO_POLIZA"_s).Texto(),
                                    Documento::kLargoFolioPoliza, "FOLIO_POLIZA");
      d.FECHA_CONTAB = FechaHora(m.Campo(u"FECHA_CON"_s));
      d.FRECU_CONTAB = static_cast<int>(m.Campo(u"FREC"_s).Entero());
    }
    Registros p = abrir(poliza(d.FOLIO_POLIZA));
    if (!p.Vacio()) {
      d.SUMADEBE_ANT = p.Campo(u"SUM_DEBE"_s).ComoDinero();
      d.SUMAHABER_ANT = p.Campo(u"SUM_HABER"_s).ComoDinero();
    }
  }
}
