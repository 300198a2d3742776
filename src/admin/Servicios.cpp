#include "admin/Servicios.h"

#include "shell/CatalogoMensajes.h"
#include "shell/Encriptacion.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <functional>

namespace servicios {

namespace {

// Outside services, given at installation: the test host of the card provider Moneris and
// the loyalty web service.
const QString kSitioMoneris = QStringLiteral("esqa.moneris.com");
const QString kUrlPuntos = QStringLiteral("https://puntos.lomarta.mx/servicio");
// What TA_FTP holds while airtime is on: the operators' service of the family.
const QString kFtpTiempoAire = QStringLiteral("TAE");

QString Q(const QString &valor) { return QLatin1Char('\'') + Escapar(valor) + QLatin1Char('\''); }
QString N(qint64 valor) { return QString::number(valor); }

bool Falta(Conexion &con, const QString &sql) { return con.Abrir(sql).Vacio(); }

QString ServicioPuntoDeVenta() {
  return ServicioUtil::LeerIni(QStringLiteral("TVWSMULTI"), QStringLiteral("DIRECCION"),
                               RutaNimbarIni());
}

// An article of a service: its data, its grouping, one unit and one price of list 1.
struct Articulo {
  QString clave, descripcion, unidad, cveCfdi;
  int impuesto = 0, agrupacion = 0, grupo = 0;
  Dinero precio;
};

void CrearArticulo(Conexion &con, const Articulo &a) {
  const QString k = Q(a.clave);
  if (Falta(con, QStringLiteral("SELECT COD1_ART FROM tblCatArticulos WHERE COD1_ART=%1;").arg(k)))
    con.Ejecutar(QStringLiteral("INSERT INTO tblCatArticulos (COD1_ART,DES1_ART,DES2_ART,COD_IMP,"
                                "COD_TIPO,ES_SERVICIO,REST_PTOS,VTA_SOLOBASE,ART_CAD,COD_MON,"
                                "CVE_CFDI) VALUES (%1,%2,%2,%3,0,1,1,1,0,1,%4);")
                     .arg(k, Q(a.descripcion), N(a.impuesto), Q(a.cveCfdi)));
  else
    con.Ejecutar(QStringLiteral("UPDATE tblCatArticulos SET DES1_ART=%2,DES2_ART=%2,COD_IMP=%3,"
                                "COD_TIPO=0,ES_SERVICIO=1,REST_PTOS=1,VTA_SOLOBASE=1,ART_CAD=0,"
                                "COD_MON=1,CVE_CFDI=%4 WHERE COD1_ART=%1;")
                     .arg(k, Q(a.descripcion), N(a.impuesto), Q(a.cveCfdi)));
  con.Ejecutar(QStringLiteral("DELETE FROM tblArtNoEncontrado WHERE COD_ART=%1;").arg(k));
  con.Ejecutar(
      QStringLiteral("DELETE FROM tblCodArticuloExtra WHERE COD_ART=%1 OR CODART_EXTRA=%1;")
          .arg(k));
  con.Ejecutar(QStringLiteral("DELETE FROM tblGpoArticulos WHERE COD1_ART=%1;").arg(k));
  con.Ejecutar(
      QStringLiteral("INSERT INTO tblGpoArticulos (COD1_ART,COD_GPO,COD_AGR) VALUES (%1,%2,%3);")
          .arg(k, N(a.grupo), N(a.agrupacion)));
  for (const char *tabla : {"tblUndCosPreArt", "tblPrecios", "tblPrecVolum"})
    con.Ejecutar(QStringLiteral("DELETE FROM %1 WHERE COD1_ART=%2;").arg(QLatin1String(tabla), k));
  // The price with its tax, to the cent: the rate is a percentage, both in ten-thousandths.
  qint64 tasa = 0;
  {
    Registros rs = con.Abrir(
        QStringLiteral("SELECT POR_IMP FROM tblImpuestos WHERE COD_IMP=%1").arg(a.impuesto));
    if (!rs.Vacio() && !rs.Campo(QStringLiteral("POR_IMP")).EsNulo())
      tasa = rs.Campo(QStringLiteral("POR_IMP")).ComoDinero().Diezmilesimos();
  }
  const qint64 base = a.precio.Diezmilesimos();
  const Dinero conImpuesto =
      Dinero::DeDiezmilesimos(base + (base * tasa + 50000000) / 100000000 * 100);
  con.Ejecutar(QStringLiteral("INSERT INTO tblUndCosPreArt (COD_UND,COD1_ART,EQV_UND,PRE_UND,"
                              "PRE_IVA,CVE_OFR,COS_PRO,COS_REP,COS_UCO,IMPTO_IMP,COD_BARRAS,"
                              "PCIO_PUNTOS) VALUES (%1,%2,1,%3,%4,'',0,0,0,0,'',0);")
                   .arg(Q(a.unidad), k, a.precio.Texto(), conImpuesto.Texto()));
  con.Ejecutar(
      QStringLiteral("INSERT INTO tblPrecios (COD1_ART,COD_UND,NUM_LISTA,PRE_LISTA,PRE_IVA) "
                     "VALUES (%1,%2,1,%3,%4);")
          .arg(k, Q(a.unidad), a.precio.Texto(), conImpuesto.Texto()));
}

// A group or grouping found by its description, or made with the next code.
int AsegurarCodigo(Conexion &con, const QString &buscar, const QString &maximo,
                   const std::function<void(int)> &insertar) {
  {
    Registros rs = con.Abrir(buscar);
    if (!rs.Vacio())
      return static_cast<int>(rs.Campo(rs.Campos().first()).Entero());
  }
  Registros rs = con.Abrir(maximo);
  const int codigo = static_cast<int>(rs.Campo(QStringLiteral("ULTIMO_GPO")).Numero()) + 1;
  insertar(codigo);
  return codigo;
}

} // namespace

// ---------------------------------------------------------------- the portal

Portal CargarPortal(Conexion &con) {
  Portal p;
  Registros rs = con.Abrir(QStringLiteral("SELECT * FROM tblServiciosElec;"));
  if (!rs.Vacio()) {
    p.usuario = rs.Campo(QStringLiteral("TVE_USUARIO")).Texto();
    const QString clave = rs.Campo(QStringLiteral("TVE_PASSWORD")).Texto();
    p.contrasena = clave.isEmpty() ? QString() : Desencriptar(clave);
  }
  return p;
}

void GrabarPortal(Conexion &con, const Portal &p) {
  if (p.usuario.isEmpty() || p.contrasena.isEmpty()) {
    con.Ejecutar(QStringLiteral("DELETE FROM tblServiciosElec;"));
    return;
  }
  const QString clave = Q(Encriptar(p.contrasena));
  if (!Falta(con, QStringLiteral("SELECT * FROM tblServiciosElec;")))
    con.Ejecutar(QStringLiteral("UPDATE tblServiciosElec SET TVE_USUARIO=%1,TVE_PASSWORD=%2;")
                     .arg(Q(p.usuario), clave));
  else
    con.Ejecutar(QStringLiteral("INSERT INTO tblServiciosElec (TVE_USUARIO,TVE_PASSWORD) VALUES "
                                "(%1,%2);")
                     .arg(Q(p.usuario), clave));
}

// ---------------------------------------------------------------- the bank card

void GrabarTarjeta(Conexion &con, const Tarjeta &t) {
  if (!t.activo || t.proveedor == 0) {
    con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET TC_SERVICIO=0,TC_IDSITIO='',"
                                "TC_KEY='',TC_EMPRESA='',TC_URL='';"));
    con.Ejecutar(QStringLiteral("DELETE FROM tblTcTerminales;"));
    con.Ejecutar(QStringLiteral("DELETE FROM tblTcTerminalCaja;"));
    con.Ejecutar(QStringLiteral("DELETE FROM tblTcTerminalPromo;"));
  } else if (t.proveedor == 3) {
    con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET TC_SERVICIO=%1,TC_IDSITIO=%2,"
                                "TC_KEY='',TC_EMPRESA='',TC_URL='';")
                     .arg(N(t.proveedor), Q(t.sitio)));
  } else if (t.proveedor == 4) {
    QString sitio;
    {
      Registros rs = con.Abrir(
          QStringLiteral("SELECT SITIO_PROVTC FROM tblProveedoresTC WHERE COD_PROVTC=4;"));
      if (!rs.Vacio())
        sitio = rs.Campo(QStringLiteral("SITIO_PROVTC")).Texto();
    }
    if (sitio.isEmpty())
      sitio = kSitioMoneris;
    con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET TC_SERVICIO=%1,TC_IDSITIO=%2,"
                                "TC_EMPRESA=%3, TC_KEY=%4,TC_URL='';")
                     .arg(N(t.proveedor), Q(sitio), Q(t.empresa), Q(t.llave)));
  } else {
    con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET TC_SERVICIO=%1,TC_IDSITIO=%2,"
                                "TC_KEY=%3,TC_EMPRESA=%4,TC_URL='';")
                     .arg(N(t.proveedor), Q(t.sitio), Q(t.llave), Q(t.empresa)));
  }
  CatalogoMensajes::MostrarTexto(QStringLiteral("Parámetros de tarjeta de crédito actualizados"));
}

std::vector<Promocion> CargarPromociones(Conexion &con) {
  std::vector<Promocion> promociones;
  for (Registros rs = con.Abrir(QStringLiteral("SELECT COD_TCPROMO,DES_TCPROMO,ACTIVA_PROMO,"
                                               "MIN_TCPROMO,NUM_PARCIAL FROM tblTcPromociones "
                                               "ORDER BY NUM_PARCIAL;"));
       !rs.Fin(); rs.Siguiente()) {
    Promocion p;
    p.codigo = static_cast<int>(rs.Campo(QStringLiteral("COD_TCPROMO")).Entero());
    p.descripcion = rs.Campo(QStringLiteral("DES_TCPROMO")).Texto();
    p.activa = rs.Campo(QStringLiteral("ACTIVA_PROMO")).Numero() != 0;
    p.minimo = rs.Campo(QStringLiteral("MIN_TCPROMO")).EsNulo()
                   ? Dinero()
                   : rs.Campo(QStringLiteral("MIN_TCPROMO")).ComoDinero();
    p.parciales = static_cast<int>(rs.Campo(QStringLiteral("NUM_PARCIAL")).Numero());
    promociones.push_back(p);
  }
  return promociones;
}

void GrabarPromociones(Conexion &con, const std::vector<Promocion> &promociones) {
  for (const Promocion &p : promociones)
    con.Ejecutar(
        QStringLiteral("UPDATE tblTcPromociones SET ACTIVA_PROMO=%1, MIN_TCPROMO=%2 "
                       "WHERE COD_TCPROMO =%3")
            .arg(N(p.activa ? 1 : 0), (p.activa ? p.minimo : Dinero()).Texto(), N(p.codigo)));
}

std::vector<Promocion> PromocionesActivas(Conexion &con) {
  std::vector<Promocion> activas;
  for (Registros rs = con.Abrir(QStringLiteral("SELECT COD_TCPROMO,DES_TCPROMO FROM "
                                               "tblTcPromociones WHERE ACTIVA_PROMO<>0;"));
       !rs.Fin(); rs.Siguiente()) {
    Promocion p;
    p.codigo = static_cast<int>(rs.Campo(QStringLiteral("COD_TCPROMO")).Entero());
    p.descripcion = rs.Campo(QStringLiteral("DES_TCPROMO")).Texto();
    p.activa = true;
    activas.push_back(p);
  }
  return activas;
}

Terminal LeerTerminal(Conexion &con, const QString &numero, const std::vector<Promocion> &activas) {
  Terminal t;
  {
    Registros rs = con.Abrir(
        QStringLiteral("SELECT NUM_TERMINAL,ID_CLIENTE FROM tblTcTerminales WHERE NUM_TERMINAL=%1;")
            .arg(Q(numero)));
    t.existe = !rs.Vacio();
    if (t.existe)
      t.idCliente = rs.Campo(QStringLiteral("ID_CLIENTE")).Texto();
  }
  for (const Promocion &p : activas) {
    if (!Falta(con, QStringLiteral("SELECT tblTcTerminalPromo.COD_TCPROMO FROM tblTcTerminalPromo "
                                   "INNER JOIN tblTcTerminales ON tblTcTerminalPromo.COD_TERMINAL="
                                   "tblTcTerminales.COD_TERMINAL WHERE "
                                   "tblTcTerminales.NUM_TERMINAL=%1 AND "
                                   "tblTcTerminalPromo.COD_TCPROMO=%2;")
                        .arg(Q(numero), N(p.codigo))))
      t.promociones.push_back(p.codigo);
  }
  return t;
}

bool AgregarTerminal(Conexion &con, const QString &numero, int proveedor, bool conIdCliente,
                     const QString &idCliente, const std::vector<int> &promociones) {
  qint64 codigo = 0;
  {
    Registros rs =
        con.Abrir(QStringLiteral("SELECT COD_TERMINAL FROM tblTcTerminales WHERE NUM_TERMINAL=%1;")
                      .arg(Q(numero)));
    if (!rs.Vacio())
      codigo = rs.Campo(QStringLiteral("COD_TERMINAL")).Entero();
  }
  if (codigo != 0) {
    if (CatalogoMensajes::MostrarTexto(
            QStringLiteral("La terminal ya existe. ¿Deseas actualizar sus promociones vigentes?"),
            IconoMensaje::Pregunta, BotonesMensaje::SiNo) != RespuestaMensaje::Si)
      return false;
    con.Ejecutar(QStringLiteral("UPDATE tblTcTerminales SET ID_CLIENTE=%1 WHERE NUM_TERMINAL=%2;")
                     .arg(Q(conIdCliente ? idCliente : QString()), Q(numero)));
  } else {
    Registros rs =
        con.Abrir(QStringLiteral("SELECT MAX(COD_TERMINAL) AS MAX_TERM FROM tblTcTerminales;"));
    codigo = static_cast<qint64>(rs.Campo(QStringLiteral("MAX_TERM")).Numero()) + 1;
    con.Ejecutar(QStringLiteral("INSERT INTO tblTcTerminales (COD_TERMINAL,NUM_TERMINAL,COD_PROVTC,"
                                "FOLIO_TERMINAL,ID_CLIENTE) VALUES (%1,%2,%3,"
                                "'00000000000000000000',%4);")
                     .arg(N(codigo), Q(numero), N(proveedor), Q(idCliente)));
  }
  con.Ejecutar(QStringLiteral("DELETE FROM tblTcTerminalPromo WHERE COD_TERMINAL=%1;").arg(codigo));
  for (const int promocion : promociones)
    con.Ejecutar(QStringLiteral("INSERT INTO tblTcTerminalPromo (COD_TERMINAL,COD_TCPROMO) VALUES "
                                "(%1,%2)")
                     .arg(codigo)
                     .arg(promocion));
  return true;
}

bool EliminarTerminal(Conexion &con, const QString &numero) {
  if (CatalogoMensajes::MostrarTexto(QStringLiteral("¿Deseas eliminar la terminal seleccionada?"),
                                     IconoMensaje::Pregunta,
                                     BotonesMensaje::SiNo) != RespuestaMensaje::Si)
    return false;
  qint64 codigo = 0;
  {
    Registros rs =
        con.Abrir(QStringLiteral("SELECT COD_TERMINAL FROM tblTcTerminales WHERE NUM_TERMINAL=%1;")
                      .arg(Q(numero)));
    if (rs.Vacio())
      return false;
    codigo = rs.Campo(QStringLiteral("COD_TERMINAL")).Entero();
  }
  for (const char *tabla : {"tblTcTerminales", "tblTcTerminalCaja", "tblTcTerminalPromo"})
    con.Ejecutar(QStringLiteral("DELETE FROM %1 WHERE COD_TERMINAL=%2;")
                     .arg(QLatin1String(tabla))
                     .arg(codigo));
  return true;
}

// ---------------------------------------------------------------- airtime

std::vector<MontoTA> MontosTiempoAire() {
  struct Operador {
    int empresa;
    char letra;
    std::vector<int> montos;
  };
  static const Operador operadores[] = {
      {1, 'M', {10, 20, 30, 50, 60, 100, 120, 150, 200, 300, 500}},
      {2, 'I', {50, 100, 150, 200, 300, 500, 750, 1000}},
      {3, 'A', {20, 30, 50, 100, 200, 300, 500}},
      {4, 'U', {50, 100, 150, 200, 300, 500, 750, 1000}},
      {5, 'N', {30, 50, 100, 200, 300, 500}}};
  std::vector<MontoTA> montos;
  for (const Operador &o : operadores)
    for (const int monto : o.montos)
      montos.push_back(
          {o.empresa, monto,
           QLatin1Char(o.letra) + QString::number(monto).rightJustified(3, QLatin1Char('0'))});
  return montos;
}

void GrabarTiempoAire(Conexion &con, const TiempoAire &t) {
  const QString direccion = Q(ServicioPuntoDeVenta());
  if (!t.activo) {
    con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET TA_ACT=0,TA_AGR=0,TA_IMPTO=0,"
                                "TA_GRUPO=0,TA_CADENA=0,TA_TIENDA=0,TA_URL=%1,TA_FTP='';")
                     .arg(direccion));
    CatalogoMensajes::MostrarTexto(QStringLiteral("Tiempo Aire desactivado"));
    return;
  }
  // The operators, with their pictures in the program's Imagenes folder.
  if (Falta(con, QStringLiteral("SELECT * FROM tblEmpresasTA;"))) {
    const std::pair<const char *, const char *> operadores[] = {
        {"MOVISTAR", "movistar.jpg"}, {"IUSACELL", "iusacell.jpg"}, {"TELCEL", "telcel.gif"},
        {"UNEFON", "unefon.jpg"},     {"NEXTEL", "nextel.jpg"},     {"VIRGIN", "virgin.jpg"}};
    int codigo = 1;
    for (const auto &[nombre, imagen] : operadores)
      con.Ejecutar(QStringLiteral("INSERT INTO tblEmpresasTA (COD_EMPRESA,NOM_EMPRESA,"
                                  "IMAGEN_EMPRESA) VALUES (%1,%2,%3);")
                       .arg(N(codigo++), Q(QLatin1String(nombre)),
                            Q(RutaNativa(UnirRuta(UnirRuta(gRutaApp, QStringLiteral("Imagenes")),
                                                  QLatin1String(imagen))))));
  }
  con.Ejecutar(QStringLiteral("DELETE FROM tblMontosTA;"));
  for (const MontoTA &m : MontosTiempoAire()) {
    if (Falta(con, QStringLiteral("SELECT * FROM tblMontosTA WHERE COD_EMPRESA=%1 AND CLAVE_TA=%2;")
                       .arg(N(m.empresa), Q(m.clave))))
      con.Ejecutar(QStringLiteral("INSERT INTO tblMontosTA (COD_EMPRESA,MONTO_TA,CLAVE_TA) VALUES "
                                  "(%1,%2,%3);")
                       .arg(N(m.empresa), N(m.monto), Q(m.clave)));
  }
  // The articles of the amounts, in the grouping chosen.
  int grupo = 0;
  {
    Registros rs =
        con.Abrir(QStringLiteral("SELECT COD_GPO FROM tblCatAgrupacionArt WHERE COD_AGR=%1;")
                      .arg(t.agrupacion));
    if (!rs.Vacio())
      grupo = static_cast<int>(rs.Campo(QStringLiteral("COD_GPO")).Entero());
  }
  con.Ejecutar(QStringLiteral("DELETE FROM tblGpoArticulos WHERE COD_AGR=%1;").arg(t.agrupacion));
  con.Ejecutar(QStringLiteral("DELETE FROM tblAgrPrecios WHERE COD_AGR=%1;").arg(t.agrupacion));
  std::vector<Articulo> articulos;
  for (Registros rs = con.Abrir(QStringLiteral(
           "SELECT CLAVE_TA,MONTO_TA,NOM_EMPRESA FROM tblMontosTA INNER JOIN tblEmpresasTA ON "
           "tblMontosTA.COD_EMPRESA=tblEmpresasTA.COD_EMPRESA ORDER BY "
           "tblEmpresasTA.COD_EMPRESA,CLAVE_TA;"));
       !rs.Fin(); rs.Siguiente()) {
    const Dinero monto = rs.Campo(QStringLiteral("MONTO_TA")).ComoDinero();
    Articulo a;
    a.clave = rs.Campo(QStringLiteral("CLAVE_TA")).Texto();
    a.descripcion = QStringLiteral("RECARGA %1 %2")
                        .arg(rs.Campo(QStringLiteral("NOM_EMPRESA")).Texto(), monto.Texto());
    a.unidad = QStringLiteral("PZA");
    a.cveCfdi = QStringLiteral("83111603");
    a.impuesto = t.impuesto;
    a.agrupacion = t.agrupacion;
    a.grupo = grupo;
    a.precio = monto;
    articulos.push_back(a);
  }
  for (const Articulo &a : articulos)
    CrearArticulo(con, a);
  con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET TA_ACT=1,TA_AGR=%1,TA_IMPTO=%2,"
                              "TA_GRUPO=%3,TA_CADENA=%4,TA_TIENDA=0,TA_URL=%5,TA_FTP=%6;")
                   .arg(N(t.agrupacion), N(t.impuesto), N(grupo), N(t.usa ? 1 : 0), direccion,
                        Q(kFtpTiempoAire)));
  CatalogoMensajes::MostrarTexto(QStringLiteral("Parámetros de tiempo aire actualizados"));
}

std::vector<std::pair<int, QString>> AgrupacionesDisponibles(Conexion &con, int almacenada) {
  QString condicion = QStringLiteral("WHERE (tblGpoArticulos.COD_AGR IS NULL) AND (BLOQ_CAMBIO=0)");
  if (almacenada > 0)
    condicion = QStringLiteral("WHERE ((tblGpoArticulos.COD_AGR IS NULL) AND (BLOQ_CAMBIO=0)) OR "
                               "(tblGpoArticulos.COD_AGR=%1)")
                    .arg(almacenada);
  std::vector<std::pair<int, QString>> lista;
  for (Registros rs = con.Abrir(
           QStringLiteral("SELECT DISTINCT tblCatAgrupacionArt.COD_AGR, (tblGpoArticulos.COD_AGR) "
                          "AS AGRUPACION, DES_AGR FROM tblCatAgrupacionArt LEFT JOIN "
                          "tblGpoArticulos ON tblCatAgrupacionArt.COD_AGR=tblGpoArticulos.COD_AGR "
                          "%1 ORDER BY tblCatAgrupacionArt.DES_AGR,tblCatAgrupacionArt.COD_AGR;")
               .arg(condicion));
       !rs.Fin(); rs.Siguiente())
    lista.emplace_back(static_cast<int>(rs.Campo(QStringLiteral("COD_AGR")).Entero()),
                       rs.Campo(QStringLiteral("DES_AGR")).Texto());
  return lista;
}

// ---------------------------------------------------------------- the rest

void GrabarPagoServicios(Conexion &con, bool activo, int proveedor, int impuesto) {
  if (!activo) {
    con.Ejecutar(
        QStringLiteral("UPDATE tblParametrosGenerales SET CNX_TVE='',IMPTO_SER=0,TVE_CODPROV=0;"));
    CatalogoMensajes::MostrarTexto(
        QStringLiteral("Ha sido desactivado el pago de servicios electrónicos"));
    return;
  }
  if (proveedor == 0) {
    CatalogoMensajes::Caja(QStringLiteral("Es necesario elegir proveedor del servicio"),
                           QStringLiteral("Parámetros"), IconoMensaje::Advertencia);
    return;
  }
  con.Ejecutar(
      QStringLiteral("UPDATE tblParametrosGenerales SET CNX_TVE='TVE_DEFINIDO',IMPTO_SER=%1,"
                     "TVE_CODPROV=%2;")
          .arg(N(impuesto), N(proveedor)));
  CatalogoMensajes::MostrarTexto(
      QStringLiteral("Los parámetros de pago de servicios han sido actualizados"));
  // The commission charged for the payment is an article of its own group and grouping.
  const int grupo = AsegurarCodigo(
      con, QStringLiteral("SELECT COD_GPO FROM tblAgrupacionArt WHERE DES_GPO='GRUPO COMISIONES';"),
      QStringLiteral("SELECT MAX(COD_GPO) AS ULTIMO_GPO FROM tblAgrupacionArt;"), [&](int codigo) {
        con.Ejecutar(QStringLiteral("INSERT INTO tblAgrupacionArt (COD_GPO,DES_GPO) VALUES (%1,"
                                    "'GRUPO COMISIONES');")
                         .arg(codigo));
      });
  const int agrupacion = AsegurarCodigo(
      con,
      QStringLiteral(
          "SELECT COD_AGR FROM tblCatAgrupacionArt WHERE DES_AGR='AGRUPACIÓN COMISIONES';"),
      QStringLiteral("SELECT MAX(COD_AGR) AS ULTIMO_GPO FROM tblCatAgrupacionArt;"),
      [&](int codigo) {
        con.Ejecutar(QStringLiteral("INSERT INTO tblCatAgrupacionArt (COD_AGR,COD_GPO,DES_AGR,"
                                    "META_VTA,BLOQ_CAMBIO,BLOQ_PCIO) VALUES (%1,%2,"
                                    "'AGRUPACIÓN COMISIONES',0,0,0);")
                         .arg(codigo)
                         .arg(grupo));
      });
  Articulo a;
  a.clave = QStringLiteral("TVECOMISION");
  a.descripcion = QStringLiteral("COMISIÓN POR PAGO DE SERVICIOS");
  a.unidad = QStringLiteral("ACT");
  a.cveCfdi = QStringLiteral("01010101");
  a.impuesto = impuesto;
  a.agrupacion = agrupacion;
  a.grupo = grupo;
  CrearArticulo(con, a);
}

void GrabarRemesas(Conexion &con, bool activo) {
  con.Ejecutar(
      QStringLiteral("UPDATE tblParametrosGenerales SET REM_CODPROV=%1;").arg(activo ? 1 : 0));
  CatalogoMensajes::MostrarTexto(activo ? QStringLiteral("Cobro de remesas activado")
                                        : QStringLiteral("Cobro de remesas desactivado"));
}

void PrepararFidelizacion(Conexion &con) {
  if (Falta(con, QStringLiteral("SELECT * FROM tblParamPuntos;")))
    con.Ejecutar(QStringLiteral(
        "INSERT INTO tblParamPuntos (PTO_ACTIVO,EN_LINEA,URL_PUNTOS) VALUES (0,0,'');"));
  {
    Registros rs = con.Abrir(QStringLiteral("SELECT ACTIVO FROM tblPuntos;"));
    if (!rs.Vacio() && rs.Campo(QStringLiteral("ACTIVO")).Numero() != 0)
      con.Ejecutar(QStringLiteral("UPDATE tblParamPuntos SET PTO_ACTIVO=1;"));
  }
  con.Ejecutar(QStringLiteral("UPDATE tblParamPuntos SET URL_PUNTOS=%1 WHERE (URL_PUNTOS IS NULL) "
                              "OR (URL_PUNTOS='');")
                   .arg(Q(kUrlPuntos)));
}

bool CargarFidelizacion(Conexion &con) {
  Registros rs = con.Abrir(QStringLiteral("SELECT EN_LINEA FROM tblParamPuntos;"));
  const bool activo = !rs.Vacio() && rs.Campo(QStringLiteral("EN_LINEA")).Numero() != 0;
  if (!activo)
    con.Ejecutar(QStringLiteral("UPDATE tblPuntos SET TOKEN_LOMARTA='',PROMO_LOMARTA=0;"));
  return activo;
}

void GrabarFidelizacion(Conexion &con, bool activo) {
  QString direccion;
  bool hayRenglon = false;
  {
    Registros rs = con.Abrir(QStringLiteral("SELECT URL_PUNTOS FROM tblParamPuntos;"));
    hayRenglon = !rs.Vacio();
    if (hayRenglon)
      direccion = rs.Campo(QStringLiteral("URL_PUNTOS")).Texto();
  }
  if (!activo) {
    con.Ejecutar(direccion.isEmpty()
                     ? QStringLiteral("UPDATE tblParamPuntos SET EN_LINEA=0,URL_PUNTOS='';")
                     : QStringLiteral("UPDATE tblParamPuntos SET EN_LINEA=0;"));
    CatalogoMensajes::MostrarTexto(QStringLiteral("Desactivada Fidelización en línea"));
    return;
  }
  if (direccion.isEmpty())
    direccion = kUrlPuntos;
  if (hayRenglon)
    con.Ejecutar(QStringLiteral("UPDATE tblParamPuntos SET PTO_ACTIVO=1,EN_LINEA=1,URL_PUNTOS=%1;")
                     .arg(Q(direccion)));
  else
    con.Ejecutar(
        QStringLiteral("INSERT INTO tblParamPuntos (PTO_ACTIVO,EN_LINEA,URL_PUNTOS) VALUES "
                       "(1,1,%1);")
            .arg(Q(direccion)));
  CatalogoMensajes::MostrarTexto(QStringLiteral("Activada Fidelización en línea"));
}

} // namespace servicios
