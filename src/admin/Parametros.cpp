#include "admin/Parametros.h"

#include "db/Esquema.h"
#include "shell/CargaEmpresa.h"
#include "shell/CatalogoMensajes.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

namespace parametros {

namespace {

int N(bool valor) { return valor ? 1 : 0; }

// The columns of the row as the family's template creates it, in the order of its insert.
const char *const kColumnasRenglon =
    "COD_SUCU,FACT_MOSTRA,FACT_POREMP,NOTA_FACTURA,CAMP_REDN,CAD_ACT,DIAS_CAD,HORAS_CAD,"
    "LIM_RENVTA,PROM_TOLERA,MOD_FECPED,CP_RESTPRES,LDV_CLIENTE,LDA,LDC_TIPODOC,LDC_MONEDA,"
    "LDC_SUCURSAL,LDC_PRESUP,TC_SERVICIO,TC_IDSITIO,TC_KEY,TC_EMPRESA,TA_ACT,TA_AGR,TA_IMPTO,"
    "TA_GRUPO,TA_CADENA,TA_TIENDA,TA_URL,TA_FTP,CFD_FACT,CONX_CXC,BD_CXC,CONX_AC,BD_AC,CONX_DP,"
    "BD_DP,TC_URL,FE_DESCTO,FE_ORIGEN,FE_DESCUND,CP_PREVIO,CP_RECPREV,LOT_SAL,FE_LOT,FE_CAD,"
    "PRECIO_BASE,PRECIO_DECIMAL,PRECIO_TRUNCAR,REP_NOMEMP,REP_NOMCOM,PV_PRINTREG,PV_COSTOREP,"
    "FE_FOLIONUM,FE_RUTAXML,FE_VENCERT,FE_WEBSERVURL,FE_EMPRESA,FE_DOMINIO,FE_USUARIO,"
    "FE_CONTRASENA,FE_EMAILPV,FE_MENSAJE,ACT_PRECOM,PREXLISTA,UND_PRECOM,ACT_CIN,CONX_CIN,"
    "OBLIGA_BASC,FE_LLAVE,FE_CERTIFICADO,FE_ZONAHORA,FE_PAC,FE_LLAVEPWD,FE_PFX,CNX_TVE,IMPTO_SER,"
    "FF_MESERO,FF_NUMPERS,FE_CANCELASAT,FF_SINMESERO,FF_ORDENTOT,TVE_CODPROV,ME_CODPROV,"
    "CP_PLAZOBACK,PV_LOTCAD,REM_CODPROV,INV_SUCPPAL,FE_VERSION,FE_ACTUAL,FE_ACTIEPS";

const esquema::Tabla &TablaParametros() {
  for (const esquema::Tabla &t : esquema::TablasEmpresa())
    if (QLatin1String(t.nombre) == QLatin1String("tblParametrosGenerales"))
      return t;
  throw std::logic_error("tblParametrosGenerales no está en el esquema");
}

// The literal of a column left at its default: the empty text, or 0.
QString PorOmision(const char *columna) {
  for (const esquema::Columna &c : TablaParametros().columnas)
    if (QLatin1String(c.nombre) == QLatin1String(columna))
      return c.tipo == TipoDato::Texto ? QStringLiteral("''") : QStringLiteral("0");
  return QStringLiteral("0");
}

QString Q(const QString &valor) { return QLatin1Char('\'') + Escapar(valor) + QLatin1Char('\''); }

} // namespace

Parametros CargarParametros(Conexion &con) {
  Parametros p;
  {
    Registros rs = con.Abrir(QStringLiteral("SELECT * FROM tblParametrosGenerales;"));
    if (!rs.Vacio()) {
      const auto n = [&](const char *c) {
        return static_cast<int>(rs.Campo(QLatin1String(c)).Numero());
      };
      const auto b = [&](const char *c) { return rs.Campo(QLatin1String(c)).Numero() != 0; };
      p.limiteRenglones = n("LIM_RENVTA");
      p.toleranciaPromo = n("PROM_TOLERA");
      p.modificarFechaPedidos = b("MOD_FECPED");
      p.campanaRedondeo = n("CAMP_REDN");
      p.clienteEnVentas = b("LDV_CLIENTE");
      p.imprimirRegimen = b("PV_PRINTREG");
      p.costoReposicion = b("PV_COSTOREP");
      p.precioBase = n("PRECIO_BASE");
      p.precioTruncar = n("PRECIO_TRUNCAR");
      p.precioDecimales = n("PRECIO_DECIMAL");
      p.meseroUnico = b("FF_MESERO");
      p.sinNumeroPersonas = b("FF_NUMPERS");
      p.comandasSinMesero = b("FF_SINMESERO");
      p.ordenTotal = b("FF_ORDENTOT");
      p.facturarMostrador = b("FACT_MOSTRA");
      p.notaYFactura = b("NOTA_FACTURA");
      p.folioPorEmpresa = b("FACT_POREMP");
      p.descuentoCfdi = b("FE_DESCTO");
      p.unidadCfdi = b("FE_DESCUND");
      p.folioNumericoCfdi = b("FE_FOLIONUM");
      p.activoIeps = b("FE_ACTIEPS");
      p.cancelacionSat = b("FE_CANCELASAT");
      p.alertaCaducidad = b("CAD_ACT");
      p.diasCaducidad = n("DIAS_CAD");
      p.minutosCaducidad = n("HORAS_CAD");
      p.leerDocumentosAlmacen = b("LDA");
      p.loteEnVenta = b("PV_LOTCAD");
      p.inventarioSucursalPrincipal = b("INV_SUCPPAL");
      p.documentoCompras = {b("LDC_TIPODOC"), b("LDC_PRESUP"), b("LDC_MONEDA"), b("LDC_SUCURSAL")};
      p.restringirPresupuesto = b("CP_RESTPRES");
      p.previoCompra = n("CP_PREVIO");
      p.recepcionSinPrevio = b("CP_RECPREV");
      p.diasBackorder = n("CP_PLAZOBACK");
      p.actualizarPrecios = n("ACT_PRECOM");
      p.unidadPrecios = n("UND_PRECOM");
    }
  }
  Registros rs = con.Abrir(QStringLiteral("SELECT * FROM tblParamPropinas;"));
  if (!rs.Vacio()) {
    p.incluirPropina = rs.Campo(QStringLiteral("INCLUIR_TIPS")).Numero() != 0;
    p.porcentajePropina = rs.Campo(QStringLiteral("PORCENT_TIPS")).EsNulo()
                              ? Dinero()
                              : rs.Campo(QStringLiteral("PORCENT_TIPS")).ComoDinero();
    p.propinaDesde = rs.Campo(QStringLiteral("LIMINF_TIPS")).EsNulo()
                         ? Dinero()
                         : rs.Campo(QStringLiteral("LIMINF_TIPS")).ComoDinero();
  }
  return p;
}

void AsegurarRenglon(Conexion &con, const Empresa &empresa) {
  const QString servicio = ServicioUtil::LeerIni(QStringLiteral("TVWSMULTI"),
                                                 QStringLiteral("DIRECCION"), RutaNimbarIni());
  if (!con.Abrir(QStringLiteral("SELECT * FROM tblParametrosGenerales;")).Vacio())
    return;
  const QHash<QString, QString> propios = {
      {QStringLiteral("COD_SUCU"), Q(gCodSucu)},
      {QStringLiteral("TA_URL"), Q(servicio)},
      {QStringLiteral("CONX_CXC"), Q(empresa.conexion)},
      {QStringLiteral("BD_CXC"), Q(empresa.baseDatos)},
      {QStringLiteral("FE_DESCTO"), QStringLiteral("1")},
      {QStringLiteral("PRECIO_DECIMAL"), QStringLiteral("4")},
      {QStringLiteral("PV_PRINTREG"), QStringLiteral("1")},
      {QStringLiteral("FE_VENCERT"), ServicioUtil::FechaSQL(Hoy(), con.Motor())},
      {QStringLiteral("FE_VERSION"), QStringLiteral("33")},
      {QStringLiteral("FE_ACTUAL"), QStringLiteral("1")},
      {QStringLiteral("FE_ACTIEPS"), QStringLiteral("1")},
  };
  QStringList valores;
  for (const QString &columna : QString::fromLatin1(kColumnasRenglon).split(QLatin1Char(',')))
    valores << propios.value(columna, PorOmision(columna.toLatin1().constData()));
  con.Ejecutar(QStringLiteral("INSERT INTO tblParametrosGenerales (%1) VALUES (%2);")
                   .arg(QLatin1String(kColumnasRenglon), valores.join(QLatin1Char(','))));
  // From 2018 on the family invoices in version 3.3 only.
  if (Hoy() >= QDate(2018, 1, 1))
    CambiarVersionCFDI(con);
}

void GrabarVentas(Conexion &con, const Parametros &p) {
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET LIM_RENVTA=%1,PROM_TOLERA=%2,"
                              "MOD_FECPED=%3,CAMP_REDN=%4,LDV_CLIENTE=%5,PV_PRINTREG=%6,"
                              "PV_COSTOREP=%7;")
                   .arg(p.limiteRenglones)
                   .arg(p.toleranciaPromo)
                   .arg(N(p.modificarFechaPedidos))
                   .arg(p.campanaRedondeo > 0 ? p.campanaRedondeo : 1)
                   .arg(N(p.clienteEnVentas))
                   .arg(N(p.imprimirRegimen))
                   .arg(N(p.costoReposicion)));
  GrabarPrecios(con, p);
  GrabarRestaurante(con, p);
}

void GrabarPrecios(Conexion &con, const Parametros &p) {
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET PRECIO_BASE=%1,PRECIO_DECIMAL=%2,"
                              "PRECIO_TRUNCAR=%3;")
                   .arg(p.precioBase)
                   .arg(p.precioDecimales)
                   .arg(p.precioTruncar));
}

void GrabarRestaurante(Conexion &con, const Parametros &p) {
  // The complete order is the modules' own choice: it is always saved off.
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FF_MESERO=%1,FF_NUMPERS=%2,"
                              "FF_SINMESERO=%3,FF_ORDENTOT=0;")
                   .arg(N(p.meseroUnico))
                   .arg(N(p.sinNumeroPersonas))
                   .arg(N(p.comandasSinMesero)));
  const QString incluir = QString::number(N(p.incluirPropina));
  if (!con.Abrir(QStringLiteral("SELECT * FROM tblParamPropinas;")).Vacio())
    con.Ejecutar(QStringLiteral("UPDATE tblParamPropinas SET INCLUIR_TIPS=%1,PORCENT_TIPS=%2,"
                                "LIMINF_TIPS=%3;")
                     .arg(incluir, p.porcentajePropina.Texto(), p.propinaDesde.Texto()));
  else
    con.Ejecutar(QStringLiteral("INSERT INTO tblParamPropinas (INCLUIR_TIPS,PORCENT_TIPS,"
                                "LIMINF_TIPS) VALUES (%1,%2,%3);")
                     .arg(incluir, p.porcentajePropina.Texto(), p.propinaDesde.Texto()));
}

void GrabarFacturacion(Conexion &con, const Parametros &p) {
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET FACT_MOSTRA=%1,NOTA_FACTURA=%2,"
                              "FACT_POREMP=%3,FE_DESCTO=%4,FE_DESCUND=%5,FE_FOLIONUM=%6,"
                              "FE_CANCELASAT=%7,FE_ACTIEPS=%8;")
                   .arg(N(p.facturarMostrador))
                   .arg(N(p.notaYFactura))
                   .arg(N(p.folioPorEmpresa))
                   .arg(N(p.descuentoCfdi))
                   .arg(N(p.unidadCfdi))
                   .arg(N(p.folioNumericoCfdi))
                   .arg(N(p.cancelacionSat))
                   .arg(N(p.activoIeps)));
}

void GrabarAlmacen(Conexion &con, const Parametros &p) {
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET CAD_ACT=%1,DIAS_CAD=%2,"
                              "HORAS_CAD=%3,LDA=%4,PV_LOTCAD=%5,INV_SUCPPAL=%6;")
                   .arg(N(p.alertaCaducidad))
                   .arg(p.diasCaducidad)
                   .arg(p.minutosCaducidad)
                   .arg(N(p.leerDocumentosAlmacen))
                   .arg(N(p.loteEnVenta))
                   .arg(N(p.inventarioSucursalPrincipal)));
}

void GrabarCompras(Conexion &con, const Parametros &p) {
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET CP_RESTPRES=%1,LDC_TIPODOC=%2,"
                              "LDC_MONEDA=%3,LDC_SUCURSAL=%4,LDC_PRESUP=%5,ACT_PRECOM=%6,"
                              "UND_PRECOM=%7,CP_PREVIO=%8,CP_RECPREV=%9,")
                   .arg(N(p.restringirPresupuesto))
                   .arg(N(p.documentoCompras[0]))
                   .arg(N(p.documentoCompras[2]))
                   .arg(N(p.documentoCompras[3]))
                   .arg(N(p.documentoCompras[1]))
                   .arg(p.actualizarPrecios)
                   .arg(p.unidadPrecios)
                   .arg(p.previoCompra)
                   .arg(N(p.recepcionSinPrevio)) +
               QStringLiteral("CP_PLAZOBACK=%1;").arg(p.diasBackorder));
  // The purchasing module names its document and its status by the choice.
  const bool previo = p.previoCompra == 1;
  con.Ejecutar(
      QStringLiteral("UPDATE tblPlantillaMenus SET TITULO_OPCION='%1' WHERE (ORDEN_MENU=34) "
                     "AND (NOMBRE_OPCION='mnuComRem') AND (MODULO_EDICION=20);")
          .arg(Escapar(previo ? QStringLiteral("Previo de Compra") : QStringLiteral("Remisión"))));
  con.Ejecutar(
      QStringLiteral("UPDATE tblComEstatus SET DES_ESTATUS='%1' WHERE (COD_ESTATUS=7);")
          .arg(Escapar(previo ? QStringLiteral("PREVIO DE COMPRA") : QStringLiteral("REMISION"))));
}

void GrabarParametros(Conexion &con, const Empresa &empresa, const Parametros &p) {
  AsegurarRenglon(con, empresa);
  GrabarVentas(con, p);
  GrabarFacturacion(con, p);
  GrabarAlmacen(con, p);
  GrabarCompras(con, p);
  CatalogoMensajes::MostrarTexto(QStringLiteral("Parámetros guardados"));
}

bool PrevioPermitido(Conexion &con) {
  Registros rs = con.Abrir(QStringLiteral(
      "SELECT COUNT(COD1_ART)AS TOTALARTICULOS FROM tblCatArticulos WHERE ART_CAD<>0;"));
  if (rs.Campo(QStringLiteral("TOTALARTICULOS")).Entero() == 0)
    return true;
  CatalogoMensajes::MostrarTexto(
      QStringLiteral(
          "No es posible manejar previos de compras si hay artículos con caducidad.\n\n"
          "Revisa la configuración de compras o desactiva la caducidad a los artículos."),
      IconoMensaje::Advertencia);
  return false;
}

} // namespace parametros
