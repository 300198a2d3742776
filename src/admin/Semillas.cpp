#include "admin/Semillas.h"

#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QDir>
#include <QFileInfo>
#include <utility>
#include <vector>

namespace semillas {

namespace {

bool Falta(Conexion &con, const QString &sql) { return con.Abrir(sql).Vacio(); }

// Ways of payment: code, description, the middle columns as they go, the SAT's name and key.
struct FormaPago {
  int codigo;
  const char *descripcion;
  const char *medio;
  const char *satMpago;
  const char *claveSat;
};
constexpr FormaPago kFormasPago[] = {
    {1, "EFECTIVO", "1,0,0,1,0,0,1,1,'',0,0,0", "Efectivo", "01"},
    {2, "CHEQUE BANCARIO", "4,1,1,0,0,0,0,0,'',0,0,0", "Cheque nominativo", "02"},
    {3, "CHEQUE GOBIERNO", "4,0,1,1,0,0,0,0,'',0,0,0", "Cheque nominativo", "02"},
    {4, "TARJETA DE CREDITO", "2,1,1,0,0,0,0,0,'',0,0,0", "Tarjeta de crédito", "04"},
    {5, "CREDITO", "0,1,0,0,0,0,0,0,'',0,0,0", "Por definir", "99"},
    {6, "TARJETA DE LA TIENDA", "3,0,1,0,0,0,0,0,'',0,0,0", "Por definir", "99"},
};

void InsertarFormaPago(Conexion &con, const FormaPago &f) {
  con.Ejecutar(QStringLiteral("INSERT INTO tblFormasPago (COD_FRP,DES_FRP,COD_PAG,AUT_FRP,REF_FRP,"
                              "ACP_CAM,MAX_CAN,CAR_FRP,DENOM,FRP_APAR,RUTA,CAR_MAX,APLICA_PROMO,"
                              "SERV_ME,SAT_MPAGO,CLAVE_SAT) VALUES (%1,'%2',%3,'%4','%5');")
                   .arg(f.codigo)
                   .arg(Escapar(QString::fromUtf8(f.descripcion)), QLatin1String(f.medio),
                        Escapar(QString::fromUtf8(f.satMpago)),
                        Escapar(QLatin1String(f.claveSat))));
}

struct TipoImpuesto {
  int codigo;
  const char *descripcion;
  const char *clave;
};
constexpr TipoImpuesto kTiposImpuesto[] = {{0, "EXENTO", ""},
                                           {1, "IVA", "002"},
                                           {2, "IEPS", "003"},
                                           {3, "IMPUESTO LOCAL", ""},
                                           {4, "ISR", "001"}};

void InsertarTipoImpuesto(Conexion &con, const TipoImpuesto &t) {
  con.Ejecutar(
      QStringLiteral(
          "INSERT INTO tblTipoImpuesto (COD_TIPO,DES_TIPO,CLAVE_CFDI) VALUES (%1,'%2','%3');")
          .arg(t.codigo)
          .arg(Escapar(QLatin1String(t.descripcion)), Escapar(QLatin1String(t.clave))));
}

constexpr const char *kPermisos[] = {
    "PV_CAMBIARPRECIO", "PV_LIMPIARSALIR",   "PV_CANCELARVEN",    "PV_DESCUENTO",
    "PV_REIMPRIMIR",    "PV_BORRARESPERA",   "PV_FORMASPAGO",     "PV_AUTORIZARCXC",
    "PV_AUTORIZARALM",  "FF_PWCOMANDAS",     "CP_TRASPRESUP",     "CP_AUTORIZAREQS",
    "CP_AUTORIZAOCOM",  "CP_AUTORIZAREMS",   "CP_AUTORIZARECP",   "CP_SURTIRREQS",
    "CP_AUTORIZARCXP",  "GT_AUTORIZARGTOS",  "GT_AUTORIZARTESOR", "GT_CANCELARCONCIL",
    "GT_REABRIRCONCIL", "PV_BORRARMODULO",   "CP_BORRARMODULO",   "GT_BORRARMODULO",
    "PV_BLOQUEARAPAR",  "FF_MOVSMESACUENTA", "CP_COMPLEMENTO"};

// The item that stands for the day's sales to the public on a global invoice.
const QString kArticuloGlobal = QStringLiteral("TV_CFDI33_GLOBAL_SAT");

struct ProveedorTarjeta {
  int codigo;
  const char *nombre;
  const char *sitio;
};
// Moneris answers on its test host until the company is given its own.
constexpr ProveedorTarjeta kProveedoresTarjeta[] = {{1, "MerchantWARE®", ""},
                                                    {2, "ProsePago®", ""},
                                                    {3, "SmartPayment®", ""},
                                                    {4, "Moneris®", "esqa.moneris.com"}};

// The profile with no permissions at all, under the next free number.
void SembrarPerfilHost(Conexion &con) {
  int perfil = 0;
  {
    Registros rs =
        con.Abrir(QStringLiteral("SELECT COD_PERFIL FROM tblPerfiles WHERE DES_PERFIL='HOST';"));
    if (!rs.Vacio())
      perfil = static_cast<int>(rs.Campo(QStringLiteral("COD_PERFIL")).Entero());
  }
  if (perfil == 0) {
    Registros rs =
        con.Abrir(QStringLiteral("SELECT MAX(COD_PERFIL) AS MAXPERFIL FROM tblPerfiles;"));
    // No profile yet: the first number.
    perfil = static_cast<int>(rs.Campo(QStringLiteral("MAXPERFIL")).Numero()) + 1;
    con.Ejecutar(
        QStringLiteral("INSERT INTO tblPerfiles (COD_PERFIL,DES_PERFIL) VALUES (%1,'HOST');")
            .arg(perfil));
  }
  if (Falta(con, QStringLiteral("SELECT COD_PERFIL FROM tblPerfilPermisos WHERE COD_PERFIL=%1;")
                     .arg(perfil))) {
    QStringList columnas{QStringLiteral("COD_PERFIL")}, valores{QString::number(perfil)};
    for (const char *p : kPermisos) {
      columnas << QLatin1String(p);
      valores << QStringLiteral("0");
    }
    con.Ejecutar(QStringLiteral("INSERT INTO tblPerfilPermisos (%1) VALUES (%2);")
                     .arg(columnas.join(QLatin1Char(',')), valores.join(QLatin1Char(','))));
  }
}

void SembrarArticuloGlobal(Conexion &con) {
  if (Falta(con, QStringLiteral("SELECT COD1_ART FROM tblCatArticulos WHERE COD1_ART='%1';")
                     .arg(Escapar(kArticuloGlobal)))) {
    const QString hoy = ServicioUtil::FechaSQL(Hoy(), con.Motor());
    con.Ejecutar(
        QStringLiteral(
            "INSERT INTO tblCatArticulos (COD1_ART,DES1_ART,DES2_ART,COD_MON,PTO_MAR,COD_IMP,"
            "IMP2_ART,EXI_ACT,ARCHIVO,ART_PAQ,FEC_UCO,FEC_VEN,FEC_ING,FEC_UCP,COD_TIPO,"
            "ES_SERVICIO,COD_AIM,REST_PTOS,COD_EMPRESA,VTA_SOLOBASE,ART_CAD,UND_CFDI,EQV_IMP1,"
            "EQV_IMP2,CVE_CFDI) VALUES ('%1','VENTA GLOBAL','VENTA GLOBAL',1,0,0,0,0,'',0,%2,%2,%2,"
            "%2,0,0,0,0,1,0,0,1,0,0,'01010101');")
            .arg(Escapar(kArticuloGlobal), hoy));
  }
  if (Falta(con, QStringLiteral("SELECT COD1_ART FROM tblGpoArticulos WHERE COD1_ART='%1';")
                     .arg(Escapar(kArticuloGlobal)))) {
    // Each grouping of items places it under its first value; a grouping without values
    // has nowhere to place it.
    std::vector<qint64> grupos;
    for (Registros rs =
             con.Abrir(QStringLiteral("SELECT COD_GPO FROM tblAgrupacionArt ORDER BY COD_GPO;"));
         !rs.Fin(); rs.Siguiente())
      grupos.push_back(rs.Campo(QStringLiteral("COD_GPO")).Entero());
    for (const qint64 grupo : grupos) {
      Registros rs = con.Abrir(
          QStringLiteral(
              "SELECT COD_AGR FROM tblCatAgrupacionArt WHERE COD_GPO=%1 ORDER BY COD_AGR;")
              .arg(grupo));
      if (rs.Vacio())
        continue;
      const qint64 agrupacion = rs.Campo(QStringLiteral("COD_AGR")).Entero();
      con.Ejecutar(QStringLiteral("INSERT INTO tblGpoArticulos (COD1_ART,COD_GPO,COD_AGR) VALUES "
                                  "('%1',%2,%3);")
                       .arg(Escapar(kArticuloGlobal))
                       .arg(grupo)
                       .arg(agrupacion));
    }
  }
  if (Falta(con, QStringLiteral("SELECT COD1_ART FROM tblUndCosPreArt WHERE COD1_ART='%1';")
                     .arg(Escapar(kArticuloGlobal))))
    con.Ejecutar(QStringLiteral(
        "INSERT INTO tblUndCosPreArt (COD_UND,COD1_ART,EQV_UND,PRE_UND,PRE_IVA,CVE_OFR,COS_PRO,"
        "COS_REP,COS_UCO,IMPTO_IMP,COD_BARRAS,PCIO_PUNTOS) VALUES "
        "('ACT','TV_CFDI33_GLOBAL_SAT',1,0,0,'',0,0,0,0,'',0)"));
}

// The images of a table moved under the program's Imagenes folder, by their file's name.
void MoverImagenes(Conexion &con, const QString &tabla, const QString &clave,
                   const QString &columna) {
  const QString carpeta = RutaNativa(UnirRuta(gRutaApp, QStringLiteral("Imagenes")));
  std::vector<std::pair<QString, QString>> cambios;
  for (Registros rs =
           con.Abrir(QStringLiteral("SELECT %1,%2 FROM %3 WHERE (%4(%2)>0);")
                         .arg(clave, columna, tabla, ServicioUtil::FuncionLargo(con.Motor())));
       !rs.Fin(); rs.Siguiente()) {
    // A path written on either platform: its separators are the program's.
    const QString ruta = rs.Campo(columna).Texto();
    const QString nativa = RutaNativa(QString(ruta).replace(QLatin1Char('\\'), QLatin1Char('/')));
    const QFileInfo archivo(nativa);
    if (QDir::cleanPath(archivo.path()).compare(QDir::cleanPath(carpeta), Qt::CaseInsensitive) == 0)
      continue;
    cambios.emplace_back(rs.Campo(clave).Texto(),
                         RutaNativa(UnirRuta(carpeta, archivo.fileName())));
  }
  for (const auto &[codigo, ruta] : cambios)
    con.Ejecutar(QStringLiteral("UPDATE %1 SET %2='%3' WHERE %4='%5';")
                     .arg(tabla, columna, Escapar(ruta), clave, Escapar(codigo)));
}

} // namespace

void SembrarCatalogos(Conexion &con, int motor) {
  // The original string of an invoice outgrows a TEXT column on MySQL.
  if (motor == motor::kMySql)
    con.Ejecutar(
        QStringLiteral("ALTER TABLE tblFacturaElectronica MODIFY CADENA_ORIGINAL MEDIUMTEXT;"));

  if (Falta(con, QStringLiteral("SELECT COD_FRP FROM tblFormasPago;"))) {
    for (const FormaPago &f : kFormasPago)
      InsertarFormaPago(con, f);
  }
  if (Falta(con, QStringLiteral("SELECT COD_FRP FROM tblFormasPago WHERE COD_FRP=1;")))
    InsertarFormaPago(con, kFormasPago[0]);
  // Keys of one digit, as older versions stored them, take their leading zero.
  for (const char *clave : {"01", "02", "04"})
    con.Ejecutar(QStringLiteral("UPDATE tblFormasPago SET CLAVE_SAT='%1' WHERE (CLAVE_SAT='%2');")
                     .arg(Escapar(QLatin1String(clave)), Escapar(QLatin1String(clave).mid(1))));

  if (Falta(con, QStringLiteral("SELECT COD_TIPO FROM tblTipoImpuesto;"))) {
    for (const TipoImpuesto &t : kTiposImpuesto)
      InsertarTipoImpuesto(con, t);
  }
  for (const int tipo : {0, 3}) {
    if (Falta(con,
              QStringLiteral("SELECT COD_TIPO FROM tblTipoImpuesto WHERE COD_TIPO=%1;").arg(tipo)))
      InsertarTipoImpuesto(con, kTiposImpuesto[tipo]);
  }
  // The CFDI keys of the taxes, where they are missing or old; a key already right is
  // left untouched.
  const std::pair<int, const char *> claves[] = {{1, "002"}, {2, "003"}, {4, "001"}};
  con.Ejecutar(
      QStringLiteral("UPDATE tblTipoImpuesto SET CLAVE_CFDI='' WHERE (CLAVE_CFDI IS NULL);"));
  for (const auto &[tipo, clave] : claves)
    con.Ejecutar(QStringLiteral("UPDATE tblTipoImpuesto SET CLAVE_CFDI='%1' WHERE (COD_TIPO=%2 AND "
                                "CLAVE_CFDI<>'%1');")
                     .arg(Escapar(QLatin1String(clave)))
                     .arg(tipo));
  if (Falta(con, QStringLiteral("SELECT COD_IMP FROM tblImpuestos WHERE COD_IMP=0;")))
    con.Ejecutar(QStringLiteral(
        "INSERT INTO tblImpuestos (COD_IMP,DES_IMP,POR_IMP,GRAVA_IMP,INTEGRA_IMP,TIPO_IMP,"
        "IMPTE_IMP,EN_IMPORTE,CLAVE_CFDI) VALUES (0,'EXENTO',0,0,0,0,0,0,'');"));
  con.Ejecutar(QStringLiteral("UPDATE tblImpuestos SET CLAVE_CFDI='' WHERE (CLAVE_CFDI IS NULL);"));
  for (const auto &[tipo, clave] : claves)
    con.Ejecutar(QStringLiteral("UPDATE tblImpuestos SET CLAVE_CFDI='%1' WHERE (TIPO_IMP=%2 AND "
                                "CLAVE_CFDI<>'%1');")
                     .arg(Escapar(QLatin1String(clave)))
                     .arg(tipo));

  SembrarPerfilHost(con);
  SembrarArticuloGlobal(con);

  if (Falta(con, QStringLiteral("SELECT * FROM tblProveedoresSE WHERE COD_PROVSE=1;")))
    con.Ejecutar(QStringLiteral(
        "INSERT INTO tblProveedoresSE (COD_PROVSE,DES_PROVSE) VALUES (1,'Multicom®');"));
  con.Ejecutar(QStringLiteral(
      "UPDATE tblParametrosGenerales SET TVE_CODPROV=0 WHERE (TVE_CODPROV IS NULL);"));
  {
    Registros rs =
        con.Abrir(QStringLiteral("SELECT CNX_TVE,TVE_CODPROV FROM tblParametrosGenerales;"));
    const bool definido =
        !rs.Vacio() && !rs.Campo(QStringLiteral("CNX_TVE")).EsNulo() &&
        rs.Campo(QStringLiteral("CNX_TVE")).Texto() == QLatin1String("TVE_DEFINIDO") &&
        rs.Campo(QStringLiteral("TVE_CODPROV")).Numero() == 0;
    if (definido)
      con.Ejecutar(QStringLiteral("UPDATE tblParametrosGenerales SET TVE_CODPROV=1;"));
  }
  for (const ProveedorTarjeta &p : kProveedoresTarjeta) {
    if (Falta(con, QStringLiteral("SELECT COD_PROVTC FROM tblProveedoresTC WHERE COD_PROVTC=%1;")
                       .arg(p.codigo)))
      con.Ejecutar(
          QStringLiteral("INSERT INTO tblProveedoresTC (COD_PROVTC,DES_PROVTC,SITIO_PROVTC,"
                         "RESP_PROVTC) VALUES (%1,'%2','%3','');")
              .arg(p.codigo)
              .arg(Escapar(QString::fromUtf8(p.nombre)), Escapar(QLatin1String(p.sitio))));
  }

  if (Falta(con, QStringLiteral("SELECT COD_GPO FROM tblGruposPVEnc;")))
    for (const int grupo : {1, 2})
      con.Ejecutar(QStringLiteral("INSERT INTO tblGruposPVEnc (COD_GPO,DES_GPO,ORD_GPO,IMP_GPO,"
                                  "COD_CARTA) VALUES (%1,'GRUPO %1',%1,0,1);")
                       .arg(grupo));
}

void SembrarRegimen(Conexion &con) {
  if (!Falta(con, QStringLiteral("SELECT * FROM tblRegimenEmpresa;")))
    return;
  con.Ejecutar(QStringLiteral(
      "INSERT INTO tblRegimenEmpresa (COD_REGIMEN,DES_REGIMEN,ACTIVO,CFDI_REGIMEN) VALUES "
      "(1,'GENERAL DE LEY PERSONAS MORALES',1,'601');"));
  con.Ejecutar(QStringLiteral(
      "INSERT INTO tblRegimenEmpresa (COD_REGIMEN,DES_REGIMEN,ACTIVO,CFDI_REGIMEN) VALUES "
      "(2,'PERSONAS FÍSICAS CON ACTIVIDADES EMPRESARIALES Y PROFESIONALES',0,'612');"));
}

void SembrarRegion(Conexion &con, const Region &r) {
  MoverImagenes(con, QStringLiteral("tblCatArticulos"), QStringLiteral("COD1_ART"),
                QStringLiteral("ARCHIVO"));
  MoverImagenes(con, QStringLiteral("tblBancos"), QStringLiteral("COD_BANCO"),
                QStringLiteral("IMAGEN_BANCO"));
  con.Ejecutar(
      QStringLiteral("UPDATE tblCatClientes SET COD_CID='%1',COD_EST='%2' WHERE COD_CLI='PUBLIC';")
          .arg(Escapar(r.ciudad), Escapar(r.estado)));
  if (Falta(con, QStringLiteral("SELECT COD_CID FROM tblCiudad WHERE COD_CID='%1';")
                     .arg(Escapar(r.ciudad))))
    con.Ejecutar(QStringLiteral("INSERT INTO tblCiudad (COD_CID,DES_CID,NOM_CID,COD_AREA,MUN_CID) "
                                "VALUES ('%1','%2','%2','','');")
                     .arg(Escapar(r.ciudad), Escapar(r.textoCiudad)));
  if (Falta(con, QStringLiteral("SELECT COD_EST FROM tblEstado WHERE COD_EST='%1';")
                     .arg(Escapar(r.estado))))
    con.Ejecutar(QStringLiteral("INSERT INTO tblEstado (COD_EST,DES_EST,NOM_EST,NUM_EST) VALUES "
                                "('%1','%2','%2','');")
                     .arg(Escapar(r.estado), Escapar(r.textoEstado)));
  if (Falta(
          con,
          QStringLiteral("SELECT COD_PAIS FROM tblPais WHERE COD_PAIS='%1';").arg(Escapar(r.pais))))
    con.Ejecutar(QStringLiteral("INSERT INTO tblPais (COD_PAIS,DES_PAIS,NOM_PAIS) VALUES "
                                "('%1','%2','%2');")
                     .arg(Escapar(r.pais), Escapar(r.textoPais)));
  // An old database still names the column by the company; once renamed, the statement
  // fails and that is all.
  if (con.Motor() == motor::kMySql)
    con.IntentarEjecutar(QStringLiteral(
        "ALTER TABLE tblConfiguracionImpresion CHANGE Nombre_Compañia Nombre_Empresa smallint(6)"));
}

} // namespace semillas
