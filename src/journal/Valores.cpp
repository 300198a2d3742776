#include "journal/Valores.h"

#include "config/Reglas.h"
#include "journal/Corrida.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;

namespace {

QString N(qint64 v) { return QString::number(v); }

// TOTDAT goes to money through its text with "0" in front: a NULL becomes 0, and a
// negative total gives a text that is no number, which ends the process.
Dinero TotalConCero(const Registros &r, const QString &sql) {
  const QString texto = u"0"_s + r.Campo(u"TOTDAT"_s).Texto();
  bool ok = false;
  const Dinero total = Dinero::DeTexto(texto, &ok);
  if (!ok)
    throw ErrorFatal(u"No coinciden los tipos: el total «%1» no es una cantidad."_s.arg(texto),
                     sql);
  return total;
}

// An amount through the format "#,##0.00" and back: two decimals, half away from zero,
// unlike Round2.
Dinero PorFormato(Dinero importe) {
  return Dinero::DeTexto(importe.Formato(u"#,##0.00").remove(QLatin1Char(',')));
}

// The lines of the article routines: one for each row of SUMA, in article order, until
// a NULL SUMA. The work pair isn't cleared between rows.
Dinero LineasPorArticulo(Corrida &corrida, int renglon, const QString &sql) {
  const RenglonRegla &regla = corrida.Regla(renglon);
  ParImportes par;
  Dinero resultado;
  Registros r = corrida.Conexion->Abrir(sql);
  for (; !r.Fin(); r.Siguiente()) {
    const Valor suma = r.Campo(u"SUMA"_s);
    if (suma.EsNulo())
      break;
    const Dinero importe = PorFormato(suma.ComoDinero());
    if (regla.TieneDebe)
      par.Debe = importe;
    if (regla.TieneHaber)
      par.Haber = importe;
    AgregarRenglon(corrida, importe, renglon, par);
    resultado += importe;
  }
  return resultado;
}

// One side of a line: the rule's rubro and account, or, for a bank rubro of a treasury
// rule, the rubro of the document's bank account. A bank account that isn't found
// leaves the rubro unset.
void LadoDelRenglon(Corrida &corrida, const QString &rubroRegla, const QString &cuentaRegla,
                    const char *campoRubro, const char *campoCuenta, QString &rubro,
                    QString &cuenta) {
  const QString r = rubroRegla.trimmed();
  if (r.left(7) != u"1-01-02"_s || corrida.Concepto().Modulo != 8) {
    rubro = TextoDeCampo(r, RenglonEnTrabajo::kLargoRubro, campoRubro);
    cuenta = TextoDeCampo(cuentaRegla.trimmed(), RenglonEnTrabajo::kLargoCuenta, campoCuenta);
    return;
  }
  Conexion &con = *corrida.Conexion;
  QString numCta;
  {
    Registros m = con.Abrir(u"SELECT NUM_CTA FROM tblIngreEgre WHERE FOL_MOV='"_s +
                            Escapar(corrida.FolioDocumento) + u"';"_s);
    numCta = m.Campo(u"NUM_CTA"_s).Texto();
  }
  if (std::optional<QString> codRubro = RubroDeCuentaBancaria(con, numCta))
    rubro = TextoDeCampo(*codRubro, RenglonEnTrabajo::kLargoRubro, campoRubro);
  if (std::optional<QString> cuentaRubro = CuentaDeRubro(con, rubro))
    cuenta = TextoDeCampo(*cuentaRubro, RenglonEnTrabajo::kLargoCuenta, campoCuenta);
}

} // namespace

bool EsDatoCuadre(int codDato) {
  return (codDato >= 98 && codDato <= 108) || codDato == 133 || codDato == 40 || codDato == 71 ||
         codDato == 76 || codDato == 204;
}

void CrearRenglones(Corrida &corrida) { corrida.Renglones.Crear(); }

CampoTabla CampoDeDato(Corrida &corrida, int campoEstBd) {
  // One connection to the dictionary serves the whole run.
  if (!corrida.Referencia) {
    corrida.Referencia = ServicioConexion().AbrirConexionRuta(gRutaApp);
    // The dictionary isn't written by anyone while the run lasts.
    if (corrida.MemoriaLecturas)
      corrida.Referencia->RecordarLecturas({u"tblCamposTabla"_s, u"tblTablas"_s});
  }
  Registros r = corrida.Referencia->Abrir(
      u"SELECT (tblCamposTabla.Nombre) AS NOM_CAMPO,(tblTablas.Nombre) AS NOM_TABLA FROM "
      "tblCamposTabla INNER JOIN tblTablas ON tblCamposTabla.Tabla=tblTablas.Numero WHERE "
      "tblCamposTabla.Numero="_s +
      N(campoEstBd) + u";"_s);
  if (r.Vacio())
    return {};
  return {r.Campo(u"NOM_TABLA"_s).Texto(), r.Campo(u"NOM_CAMPO"_s).Texto()};
}

Dinero ValorDeCampo(Corrida &corrida, int renglon, const QString &clave) {
  const CampoTabla campo = CampoDeDato(corrida, corrida.Regla(renglon).CampoEstBd);
  OperacionFuente &op = corrida.OperacionActual();
  // The filter of the operation itself gains the AND, and keeps it for the rest.
  if (!op.FiltroConcepto.right(4).contains(u"AND"_s))
    op.FiltroConcepto += u" AND"_s;
  const QString suma = u"SELECT SUM("_s + campo.Tabla + u"."_s + campo.Campo +
                       u") AS TOTAL FROM "_s + campo.Tabla + u" WHERE "_s + op.FiltroConcepto;
  const QString sql = corrida.PorDia()
                          ? suma + u" "_s + op.CampoFecha + u" = "_s + clave + u";"_s
                          : suma + u" "_s + op.CampoClave + u" ='"_s + Escapar(clave) + u"';"_s;
  Registros r = corrida.Conexion->Abrir(sql);
  if (r.Vacio())
    return {};
  const Valor total = r.Campo(u"TOTAL"_s);
  if (total.EsNulo())
    throw ErrorFatal(
        u"Uso no válido de Null: el total de %1.%2 no tiene valor."_s.arg(campo.Tabla, campo.Campo),
        sql);
  return total.ComoDinero();
}

Dinero ResolverDato(Corrida &corrida, int renglon, const QString &clave) {
  const ConceptoRegla &regla = corrida.Concepto();
  const OperacionFuente &fuente = corrida.Operacion(regla.CodOper);
  const int op = regla.CodOper;
  const int dato = corrida.Regla(renglon).CodDato;
  const QString &concepto = regla.Concepto;

  QString K;
  if (corrida.PorDia())
    K = u" "_s % fuente.TablaEnc % u"."_s % fuente.CampoFecha % u"="_s % clave;
  else if (dato == 97 || dato == 129 || dato == 130)
    K = u" "_s % fuente.CampoClave % u"='"_s % Escapar(clave) % u"'"_s;
  else
    K = u" "_s % fuente.TablaEnc % u"."_s % fuente.CampoClave % u"='"_s % Escapar(clave) % u"'"_s;
  QString F = fuente.FiltroConcepto;
  if (!QStringView(F).right(5).contains(u"AND"))
    F += u" AND"_s;

  // A balancing datum means the same in every operation.
  if (EsDatoCuadre(dato))
    return {};
  // The filter and the key close most statements: joined once.
  const QString FK = F % K;

  QString sql;
  switch (op) {
  case 1:
  case 2:
    switch (dato) {
    case 1:
    case 4:
      sql = u"SELECT SUM(SUB_DOC+IMPTO_INT) AS TOTDAT FROM tblGralVentas WHERE "_s + FK;
      break;
    case 80:
    case 81:
    case 82:
    case 83:
    case 84:
    case 85:
    case 86:
    case 90:
    case 91:
    case 92:
    case 93:
    case 94:
    case 95:
    case 96:
      return ImpuestosVenta(corrida, dato, clave);
    case 97:
      sql =
          u"SELECT SUM(IMP_MBA) AS TOTDAT FROM tblAuxCaja WHERE (COD_FRP<>5 AND COD_FRP<>6) AND "_s +
          FK;
      break;
    case 109:
    case 110:
      sql = u"SELECT SUM(CAN_ART*COS_VEN*TIP_CAM) AS TOTDAT FROM tblRenVentas INNER JOIN "
            "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE "_s +
            FK;
      break;
    case 117:
    case 119:
      return VentaPorArticulo(corrida, renglon, clave, u"PCIO_VEN"_s);
    case 118:
    case 120:
      return VentaPorArticulo(corrida, renglon, clave, u"COS_VEN * TIP_CAM"_s);
    case 129:
    case 130:
      // No filter here: only the key.
      if (corrida.PorDia())
        sql = u"SELECT SUM(COS_PEPS*TIP_CAM) AS TOTDAT FROM tblRenVentas INNER JOIN "
              "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE"_s +
              K;
      else
        sql = u"SELECT SUM(COS_PEPS*TIP_CAM) AS TOTDAT FROM tblRenVentas WHERE"_s + K;
      break;
    case 131:
    case 132:
      return CostoPepsPorArticulo(corrida, renglon, clave);
    }
    break;

  case 6:
  case 7:
  case 8:
  case 9:
    switch (dato) {
    case 12:
    case 15:
      sql = u"SELECT SUM(IMP_DOC - IVA_DOC) AS TOTDAT FROM tblEncCargosAbonos WHERE "_s + FK;
      break;
    case 127:
    case 128:
      sql = u"SELECT SUM(CAN_DEV * COS_ART) AS TOTDAT FROM tblRenDevolucion INNER JOIN "
            "tblEncDevolucion ON tblRenDevolucion.FOL_DEV=tblEncDevolucion.FOL_DEV WHERE "_s +
            FK;
      break;
    }
    break;

  case 10:
  case 11:
    switch (dato) {
    case 22:
    case 23:
      sql = u"SELECT SUM(COS_TOT * TIP_CAM) AS TOTDAT,SUM(COS_TOT) AS TOTDOS FROM tblGralAlmacen "
            "WHERE CON_CEP='"_s +
            Escapar(concepto) + u"' AND "_s + FK;
      break;
    case 111:
    case 113:
      sql = u"SELECT SUM((COS_TOT * TIP_CAM)-COS_TOT) AS TOTDAT FROM tblGralAlmacen WHERE "
            "CON_CEP='"_s +
            Escapar(concepto) + u"' AND "_s + FK;
      break;
    case 121:
    case 123:
      return AlmacenPorArticulo(corrida, renglon, true, clave);
    case 122:
    case 124:
      return AlmacenPorArticulo(corrida, renglon, false, clave);
    }
    break;

  case 12:
  case 13:
  case 14:
  case 15:
  case 16:
  case 17:
  case 18: {
    // Receipts and returns share one table of cases: each statement reads its own
    // table, whichever operation the rule has.
    static const QString kCompras[] = {u"IMP_DOC"_s,   u"DES_DOC"_s,     u"SUB_DOC"_s,
                                       u"IVA_DOC"_s,   u"CARGO_TOTAL"_s, u"CARGO_IMPTO"_s,
                                       u"RETEN_TOT"_s, u"TOT_DOC"_s,     u"TOT_PROV"_s};
    static const QString kDevoluciones[] = {u"SUB_DEV"_s, u"IVA_DEV"_s, u"TOT_DEV"_s};
    const QString juntaCompras = u" AS TOTDAT FROM tblComprasRen INNER JOIN tblComprasEnc ON "
                                 "tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC WHERE "_s;
    QString inicio;
    if (dato >= 134 && dato <= 142) {
      const QString &c = kCompras[dato - 134];
      inicio = u"SELECT SUM("_s + c + u" * TIP_CAM)AS TOTDAT FROM tblComprasEnc WHERE "_s;
    } else if (dato >= 147 && dato <= 155) {
      const QString &c = kCompras[dato - 147];
      inicio = u"SELECT SUM(("_s + c + u" * TIP_CAM) - "_s + c +
               u")AS TOTDAT FROM tblComprasEnc WHERE "_s;
    } else if (dato >= 163 && dato <= 165) {
      const QString &c = kDevoluciones[dato - 163];
      inicio = u"SELECT SUM("_s + c + u" * TIP_CAM)AS TOTDAT FROM tblDevolucionEnc WHERE "_s;
    } else if (dato >= 166 && dato <= 168) {
      const QString &c = kDevoluciones[dato - 166];
      inicio = u"SELECT SUM(("_s + c + u" * TIP_CAM) - "_s + c +
               u")AS TOTDAT FROM tblDevolucionEnc WHERE "_s;
    } else {
      switch (dato) {
      case 176:
        inicio = u"SELECT COD1_ART,SUM(CAN_ART * COS_UNI) AS TOTDAT FROM tblComprasRen WHERE "_s;
        break;
      case 177:
      case 181:
      case 185:
        return CompraPorArticulo(corrida, dato, clave, renglon);
      case 178:
        inicio = u"SELECT COD1_ART,SUM(CAN_ART * COS_COM) AS TOTDAT FROM tblComprasRen WHERE "_s;
        break;
      case 179:
        inicio = u"SELECT COD1_ART,SUM(IMP_ARANCEL) AS TOTDAT FROM tblComprasRen WHERE "_s;
        break;
      case 180:
        inicio = u"SELECT COD1_ART,SUM(CAN_ART * COS_UNI * TIP_CAM)"_s + juntaCompras;
        break;
      case 182:
        inicio = u"SELECT COD1_ART,SUM(CAN_ART * COS_COM * TIP_CAM)"_s + juntaCompras;
        break;
      case 183:
        inicio = u"SELECT COD1_ART,SUM(IMP_ARANCEL * TIP_CAM)"_s + juntaCompras;
        break;
      case 184:
        inicio = u"SELECT COD1_ART,SUM((CAN_ART * COS_UNI * TIP_CAM) - (CAN_ART * COS_UNI))"_s +
                 juntaCompras;
        break;
      case 186:
        inicio = u"SELECT COD1_ART,SUM((CAN_ART * COS_COM * TIP_CAM) - (CAN_ART * COS_COM))"_s +
                 juntaCompras;
        break;
      case 187:
        inicio = u"SELECT COD1_ART,SUM((IMP_ARANCEL * TIP_CAM) - IMP_ARANCEL)"_s + juntaCompras;
        break;
      case 188:
        inicio = u"SELECT COD1_ART,SUM(CAN_ART * COS_UNI) AS TOTDAT FROM tblDevolucionRen WHERE "_s;
        break;
      case 189:
        inicio = u"SELECT COD1_ART,SUM(IMP1_IMP) AS TOTDAT FROM tblDevolucionRen WHERE "_s;
        break;
      case 190:
        inicio = u"SELECT COD1_ART,SUM(IMP2_IMP) AS TOTDAT FROM tblDevolucionRen WHERE "_s;
        break;
      case 191:
        inicio = u"SELECT COD1_ART,SUM(CAN_ART * COS_UNI * TIP_CAM) AS TOTDAT FROM "
                 "tblDevolucionRen WHERE "_s;
        break;
      case 192:
        inicio = u"SELECT COD1_ART,SUM(IMP1_IMP * TIP_CAM) AS TOTDAT FROM tblDevolucionRen "
                 "WHERE "_s;
        break;
      case 193:
        inicio = u"SELECT COD1_ART,SUM(IMP2_IMP * TIP_CAM) AS TOTDAT FROM tblDevolucionRen "
                 "WHERE "_s;
        break;
      case 194:
        inicio = u"SELECT SUM((CAN_ART * COS_UNI * TIP_CAM) - (CAN_ART * COS_UNI)) AS TOTDAT "
                 "FROM tblDevolucionRen WHERE "_s;
        break;
      case 195:
        inicio = u"SELECT SUM((IMP1_IMP * TIP_CAM) - IMP1_IMP) AS TOTDAT FROM tblDevolucionRen "
                 "WHERE "_s;
        break;
      case 196:
        inicio = u"SELECT SUM((IMP2_IMP * TIP_CAM) - IMP2_IMP) AS TOTDAT FROM tblDevolucionRen "
                 "WHERE "_s;
        break;
      }
    }
    if (!inicio.isEmpty())
      sql = inicio + FK;
    break;
  }

  case 20:
  case 21:
    // Every datum of these operations reads the same amount.
    sql = u"SELECT SUM(IMP_DOC - IVA_DOC) AS TOTDAT FROM tblCxPEnc WHERE (tblCxPEnc.CON_CEP='"_s +
          Escapar(concepto) + u"') AND "_s + FK;
    break;

  case 22:
  case 30:
    switch (dato) {
    case 68:
      sql = u"SELECT SUM(IMP_MOV - IVA_MOV + RET_TOT + RET_ISRTOT) AS TOTDAT FROM tblGastosEnc "
            "WHERE tblGastosEnc.CON_CEP='"_s +
            Escapar(concepto) + u"' AND "_s + FK;
      break;
    case 198:
      sql = u"SELECT SUM(IMP_MOV - IVA_MOV + RET_TOT + RET_ISRTOT) AS TOTDAT FROM tblGastosEnc "
            "WHERE "_s +
            FK;
      break;
    }
    break;

  case 23: {
    QString suma, condicion;
    switch (dato) {
    case 72:
      suma = u"SUM((IMP_MOV)+(IMP_MOV*IMPTO_MOV/100)-(IMP_MOV*POR_RETE/100)-(IMP_MOV*RET_ISR/"
             "100)) AS TOTDAT "_s;
      condicion = u"CON_MOV='"_s;
      break;
    case 73:
      suma = u"SUM(IMP_MOV) AS TOTDAT "_s;
      condicion = u"tblReposicionCajaMov.CON_MOV='"_s;
      break;
    case 74:
      suma = u"SUM(IMP_MOV * POR_RETE / 100) AS TOTDAT  "_s;
      condicion = u"tblReposicionCajaMov.CON_MOV='"_s;
      break;
    case 75:
      suma = u"SUM(IMP_MOV * IMPTO_MOV / 100) AS TOTDAT  "_s;
      condicion = u"tblReposicionCajaMov.CON_MOV='"_s;
      break;
    case 206:
      suma = u"SUM(IMP_MOV * RET_ISR / 100) AS TOTDAT  "_s;
      condicion = u"tblReposicionCajaMov.CON_MOV='"_s;
      break;
    }
    if (!suma.isEmpty())
      sql = u"SELECT "_s + suma +
            u"FROM tblReposicionCajaMov INNER JOIN tblReposicionCaja ON "
            "tblReposicionCajaMov.FOL_DOC=tblReposicionCaja.FOL_DOC WHERE "_s +
            condicion + concepto + u"' AND "_s + FK;
    break;
  }

  case 24:
  case 25: {
    const QString C = fuente.CampoConcepto + u"='"_s + Escapar(concepto) + u"' AND "_s;
    if (dato == 202)
      sql = u"SELECT SUM(IMP_MOV * TIP_CAM) AS TOTDAT FROM tblIngreEgre WHERE "_s + C + FK;
    else if (dato == 203)
      sql = u"SELECT SUM((IMP_MOV * TIP_CAM) - IMP_MOV) AS TOTDAT FROM tblIngreEgre WHERE "_s + C +
            FK;
    break;
  }

  case 26:
  case 27:
  case 28:
    // The operation's own filter stands here, without the concept. The statement of 203
    // lacks its FROM and is refused by the database; the datum fails so on purpose.
    if (dato == 202)
      sql =
          u"SELECT SUM(IMP_MOV * TIP_CAM) AS TOTDAT FROM tblIngreEgre WHERE "_s + fuente.Filtro + K;
    else if (dato == 203)
      sql = u"SELECT SUM((IMP_MOV * TIP_CAM) - IMP_MOV) AS TOTDAT tblIngreEgre WHERE "_s +
            fuente.Filtro + K;
    break;
  }

  // A pair of operation and datum without a case is worth 0, with no query and no word.
  if (sql.isEmpty())
    return {};
  Registros r = corrida.Conexion->Abrir(sql);
  if (r.Vacio())
    return {};
  return TotalConCero(r, sql);
}

Dinero ImpuestosVenta(Corrida &corrida, int dato, const QString &clave) {
  const QString J = u" INNER JOIN tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC"_s;
  const OperacionFuente &op = corrida.OperacionActual();
  // The two decades do the same: 90 to 96 as 80 to 86.
  const int caso = dato >= 90 ? dato - 10 : dato;
  const int impuestos[] = {corrida.ImpuestoUno, corrida.ImpuestoDos, corrida.ImpuestoTres};
  Dinero total;
  // The base without tax (80) looks at the first slot only.
  const int ranuras = caso == 80 ? 1 : 2;
  for (int n = 1; n <= ranuras; ++n) {
    QString sql;
    if (caso == 80)
      sql = u"SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas"_s + J +
            u" WHERE COD1_IMP=0"_s;
    else if (caso <= 83)
      sql = u"SELECT SUM(CAN_ART * PCIO_VEN) AS SUMA FROM tblRenVentas"_s + J + u" WHERE COD"_s +
            N(n) + u"_IMP="_s + N(impuestos[caso - 81]);
    else
      sql = u"SELECT SUM(IMP"_s + N(n) + u"_REG) AS SUMA FROM tblRenVentas"_s + J +
            u" WHERE COD"_s + N(n) + u"_IMP="_s + N(impuestos[caso - 84]);
    sql += u" AND "_s + op.Filtro;
    sql += corrida.PorDia() ? u" FEC_DOC = "_s + clave
                            : u" tblRenVentas.REF_DOC='"_s + Escapar(clave) + u"'"_s;
    // A base on the second slot counts only where that slot really taxed it.
    if (caso >= 81 && caso <= 83 && n == 2)
      sql += u" AND IMP2_REG>0"_s;

    Registros r = corrida.Conexion->Abrir(sql);
    for (; !r.Fin(); r.Siguiente()) {
      const Valor suma = r.Campo(u"SUMA"_s);
      if (suma.EsNulo())
        break;
      total += PorFormato(suma.ComoDinero());
    }
  }
  return total;
}

Dinero VentaPorArticulo(Corrida &corrida, int renglon, const QString &clave,
                        const QString &expresion) {
  const QString sql = corrida.PorDia()
                          ? u"SELECT COD1_ART,SUM(CAN_ART * "_s + expresion +
                                u") AS SUMA FROM tblRenVentas INNER JOIN tblGralVentas ON "
                                "tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE FEC_DOC="_s +
                                clave + u" GROUP BY COD1_ART ORDER BY COD1_ART;"_s
                          : u"SELECT COD1_ART,SUM(CAN_ART * "_s + expresion +
                                u") AS SUMA FROM tblRenVentas WHERE REF_DOC='"_s + Escapar(clave) +
                                u"' GROUP BY COD1_ART ORDER BY COD1_ART;"_s;
  return LineasPorArticulo(corrida, renglon, sql);
}

Dinero CostoPepsPorArticulo(Corrida &corrida, int renglon, const QString &clave) {
  const QString sql =
      corrida.PorDia()
          ? u"SELECT COD1_ART,SUM(COS_PEPS*TIP_CAM) AS SUMA FROM tblRenVentas INNER JOIN "
            "tblGralVentas ON tblRenVentas.REF_DOC=tblGralVentas.REF_DOC WHERE "_s +
                corrida.OperacionActual().Filtro + u" FEC_DOC="_s + clave +
                u" GROUP BY COD1_ART ORDER BY COD1_ART;"_s
          : u"SELECT COD1_ART,SUM(COS_PEPS*TIP_CAM) AS SUMA FROM tblRenVentas WHERE REF_DOC='"_s +
                Escapar(clave) + u"' GROUP BY COD1_ART ORDER BY COD1_ART;"_s;
  return LineasPorArticulo(corrida, renglon, sql);
}

Dinero AlmacenPorArticulo(Corrida &corrida, int renglon, bool conTipoCambio, const QString &clave) {
  const QString suma = conTipoCambio ? u"SUM(CAN_REN * COS_UNI * TIP_CAM) AS SUMA"_s
                                     : u"SUM(CAN_REN * COS_UNI) AS SUMA"_s;
  const QString sql =
      corrida.PorDia()
          ? u"SELECT COD1_ART,"_s + suma +
                u" FROM tblRenAlmacen INNER JOIN tblGralAlmacen ON "
                "tblRenAlmacen.REF_MOV=tblGralAlmacen.REF_MOV WHERE FEC_MOV="_s +
                clave + u" AND "_s + corrida.OperacionActual().Filtro + u" CON_CEP='"_s +
                Escapar(corrida.Concepto().Concepto) + u"' GROUP BY COD1_ART ORDER BY COD1_ART;"_s
          : u"SELECT COD1_ART,"_s + suma + u" FROM tblRenAlmacen WHERE REF_MOV='"_s +
                Escapar(clave) + u"' GROUP BY COD1_ART ORDER BY COD1_ART;"_s;
  return LineasPorArticulo(corrida, renglon, sql);
}

Dinero CompraPorArticulo(Corrida &corrida, int dato, const QString &clave, int renglon) {
  const OperacionFuente &op = corrida.OperacionActual();
  const QString condicion = corrida.PorDia() ? op.CampoFecha + u"="_s + clave
                                             : op.CampoClave + u"='"_s + Escapar(clave) + u"'"_s;
  // The filter and the condition meet without a blank between them.
  const QString sql = u"SELECT COD1_ART,CAN_ART,COS_UNI,TIP_CAM,DESCUENTO1,DESCUENTO2,DESCUENTO3,"
                      "DESCUENTO4,DESCUENTO5,DESCUENTO6 FROM tblComprasRen INNER JOIN "
                      "tblComprasEnc ON tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC WHERE "_s +
                      op.Filtro + condicion + u" ORDER BY COD1_ART;"_s;
  std::vector<LineaCompra> lineas;
  {
    Registros r = corrida.Conexion->Abrir(sql);
    for (; !r.Fin(); r.Siguiente()) {
      LineaCompra l;
      l.COD1_ART = r.Campo(u"COD1_ART"_s).Texto();
      l.CAN_ART = r.Campo(u"CAN_ART"_s).ComoDinero();
      l.COS_UNI = r.Campo(u"COS_UNI"_s).ComoDinero();
      l.TIP_CAM = r.Campo(u"TIP_CAM"_s).ComoDinero();
      for (int k = 0; k < 6; ++k)
        l.DESCUENTO[static_cast<std::size_t>(k)] = r.Campo(u"DESCUENTO"_s + N(k + 1)).ComoDinero();
      lineas.push_back(l);
    }
  }
  return AcumularCompras(corrida, dato, renglon, lineas);
}

Dinero AcumularCompras(Corrida &corrida, int dato, int renglon,
                       const std::vector<LineaCompra> &lineas) {
  const RenglonRegla &regla = corrida.Regla(renglon);
  ParImportes par;
  Dinero parcial, total;
  for (std::size_t k = 0; k < lineas.size(); ++k) {
    const LineaCompra &l = lineas[k];
    Dinero x = CostoConDescuentos(l.CAN_ART, l.COS_UNI, l.DESCUENTO);
    if (dato == 181)
      x = x * l.TIP_CAM;
    else if (dato == 185)
      x = x * l.TIP_CAM - x;
    parcial = Round2(parcial + x);
    // The running subtotal is added on every row, not once for each article.
    total += parcial;
    if (k + 1 == lineas.size() || lineas[k + 1].COD1_ART != l.COD1_ART) {
      if (regla.TieneDebe)
        par.Debe = parcial;
      if (regla.TieneHaber)
        par.Haber = parcial;
      AgregarRenglon(corrida, parcial, renglon, par);
      parcial = Dinero();
    }
  }
  return total;
}

Dinero CostoConDescuentos(Dinero cantidad, Dinero /*costo*/,
                          const std::array<Dinero, 6> & /*descuentos*/) {
  // The chain of discounts on the cost never reached the result of the family's routine:
  // a purchase line is worth its quantity squared.
  return cantidad * cantidad;
}

void AgregarRenglon(Corrida &corrida, Dinero importe, int renglon, const ParImportes &par) {
  // An amount of 0 is the only reason for a line to be left out.
  if (importe.EsCero())
    return;
  const RenglonRegla &regla = corrida.Regla(renglon);
  RenglonEnTrabajo fila;
  fila.COD_DATO = regla.CodDato;
  if (regla.TieneDebe)
    LadoDelRenglon(corrida, regla.RubroDebe, regla.CuentaDebe, "RUBRO_DEBE", "CUENTA_DEBE",
                   fila.RUBRO_DEBE, fila.CUENTA_DEBE);
  if (regla.TieneHaber)
    LadoDelRenglon(corrida, regla.RubroHaber, regla.CuentaHaber, "RUBRO_HABER", "CUENTA_HABER",
                   fila.RUBRO_HABER, fila.CUENTA_HABER);
  fila.IMP_DEBE = Round2(par.Debe);
  fila.IMP_HABER = Round2(par.Haber);
  corrida.Renglones.Agregar(fila);
}

void CuadrarPoliza(Corrida &corrida, int n, ParImportes &par) {
  for (int i = 1; i <= n; ++i) {
    if (!EsDatoCuadre(corrida.Regla(i).CodDato))
      continue;
    // Both sums grow by the difference, so a second balancing row meets it again.
    const Dinero dif = corrida.SumaDebe - corrida.SumaHaber;
    par.Debe = Round2(dif);
    par.Haber = Round2(dif);
    AgregarRenglon(corrida, dif, i, par);
    corrida.SumaDebe = Round2(corrida.SumaDebe + par.Debe);
    corrida.SumaHaber = Round2(corrida.SumaHaber + par.Haber);
  }
}

bool VerificarBancos(Corrida &corrida, int n) {
  Conexion &con = *corrida.Conexion;
  for (int i = 1; i <= n; ++i) {
    const RenglonRegla &regla = corrida.Regla(i);
    if (!regla.RubroDebe.trimmed().startsWith(u"1-01-02"_s) &&
        !regla.RubroHaber.trimmed().startsWith(u"1-01-02"_s))
      continue;
    std::vector<QString> cuentas;
    {
      Registros r =
          con.Abrir(u"SELECT DISTINCT NUM_CTA FROM tblIngreEgre WHERE FEC_MOV BETWEEN "_s +
                    corrida.Conexion->Dialecto().FechaSQL(corrida.FechaInicial) + u" AND "_s +
                    corrida.Conexion->Dialecto().FechaSQL(corrida.FechaFinal) + u";"_s);
      for (; !r.Fin(); r.Siguiente())
        cuentas.push_back(r.Campo(u"NUM_CTA"_s).Texto());
    }
    // An account without a row in tblCatCtasBancos doesn't count.
    for (const QString &cuenta : cuentas) {
      const std::optional<QString> rubro = RubroDeCuentaBancaria(con, cuenta);
      if (rubro && (*rubro == u"0"_s || rubro->isEmpty()))
        return true;
    }
  }
  return false;
}
