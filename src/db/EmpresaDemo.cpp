#include "db/EmpresaDemo.h"

#include "db/ConstructorBD.h"
#include "db/DatosDemo.h"
#include "db/Esquema.h"
#include "shell/Ayuda.h"
#include "shell/Encriptacion.h"
#include "shell/ErrorFatal.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

namespace demo {
namespace {

const char *const kCarpetas[] = {"Reportes", "Export", "Consultas", "Plantillas",
                                 "Temp",     "Ayuda",  "Imagenes",  "Empresas"};

QString ClaveGenerada() {
  // Letters and digits that read unambiguously; ten characters keep it plain text.
  static const char kSimbolos[] = "ABCDEFGHJKLMNPQRSTUVWXYZ23456789";
  QString clave;
  for (int i = 0; i < 8; ++i)
    clave += QLatin1Char(kSimbolos[QRandomGenerator::global()->bounded(32)]);
  return clave;
}

void Borrar(const QString &ruta) {
  for (const char *sufijo : {"", "-wal", "-shm", "-journal"}) {
    const QString r = ruta + QLatin1String(sufijo);
    if (QFileInfo::exists(r) && !QFile::remove(r))
      throw ErrorFatal(QStringLiteral("No fue posible borrar %1.").arg(r));
  }
}

} // namespace

QDate MesDemo() {
  const QDate hoy = Hoy();
  return QDate(hoy.year(), hoy.month(), 1).addMonths(-1);
}

void CrearBaseEmpresaSqlite(const QString &rutaArchivo) {
  ConexionPtr con = ServicioConexion::AbrirSqlite(rutaArchivo, true, motor::kSqlite);
  constructor::CrearTablas(*con, esquema::TablasEmpresa());
}

void CrearBaseGeneral(const QString &rutaArchivo) {
  ConexionPtr con = ServicioConexion::AbrirSqlite(rutaArchivo, true, 0);
  constructor::CrearTablas(*con, esquema::TablasGeneral());
}

void CrearBaseReferencia(const QString &rutaArchivo) {
  ConexionPtr con = ServicioConexion::AbrirSqlite(rutaArchivo, true, 0);
  constructor::CrearTablas(*con, esquema::TablasReferencia());
  con->Ejecutar(
      QStringLiteral("INSERT INTO tblVersion (VER,CXC_CENTRAL) VALUES (%1,0)").arg(kVersionNumero));
  // The data dictionary: tables and the fields a rule's datum may name directly.
  con->Ejecutar(QStringLiteral("INSERT INTO tblTablas (Numero,Nombre) VALUES (1,'tblGralVentas')"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblTablas (Numero,Nombre) VALUES (2,'tblGastosEnc')"));
  con->Ejecutar(
      QStringLiteral("INSERT INTO tblCamposTabla (Numero,Nombre,Tabla) VALUES (1,'SUB_DOC',1)"));
  con->Ejecutar(
      QStringLiteral("INSERT INTO tblCamposTabla (Numero,Nombre,Tabla) VALUES (2,'IMP_MOV',2)"));
  con->Ejecutar(
      QStringLiteral("INSERT INTO tblCamposTabla (Numero,Nombre,Tabla) VALUES (3,'IVA_MOV',2)"));
}

void LlenarIdentidad(Conexion &con, const QString &claveAdmin) {
  con.Ejecutar(QStringLiteral(
      "INSERT INTO tblEmpresa (COD_EMPRESA,NOM_EMP,NOM_COM,DESCRIP1,DESCRIP2,DESCRIP3,RFC1_EMP,"
      "RFC2_EMP,RFC3_EMP,TEL1_EMP,TEL2_EMP,DIR1_EMP,EXT_EMP,INT_EMP,COL_EMP,CP_EMP,COD_CD,"
      "COD_EDO) VALUES (1,'La Fonda de Doña Lupe S.A. de C.V.','La Fonda de Doña Lupe',"
      "'Restaurante y abarrotes','Comida corrida y tienda','Régimen general','FDL','180314',"
      "'AB1','33 3615 2040','33 3615 2041','Av. Hidalgo','1450','B','Centro','44100','GDL',"
      "'JAL')"));
  con.Ejecutar(
      QStringLiteral("INSERT INTO tblCiudad (COD_CID,DES_CID) VALUES ('GDL','Guadalajara')"));
  con.Ejecutar(QStringLiteral("INSERT INTO tblEstado (COD_EST,DES_EST) VALUES ('JAL','Jalisco')"));
  con.Ejecutar(
      QStringLiteral("INSERT INTO tblSucursales (COD_SUCU,ES_PRINCIPAL) VALUES ('MATRIZ',1)"));
  con.Ejecutar(QStringLiteral(
      "INSERT INTO tblParametrosGenerales (CONX_CXC,BD_CXC,FE_VERSION,FE_ACTUAL,CAD_ACT,DIAS_CAD,"
      "HORAS_CAD,TC_Servicio,TC_EMPRESA,TC_IDSITIO,TC_key) VALUES ('*','',33,1,0,0,0,0,'','','')"));
  con.Ejecutar(QStringLiteral("INSERT INTO tblUsuarios (COD_USU,NOM_USU,TIP_USU,PASS1_USU,"
                              "PASS2_USU,ESTATUS) VALUES ('ADMIN','Administrador',1,'%1','',0)")
                   .arg(Escapar(Encriptar(claveAdmin))));
  con.Ejecutar(
      QStringLiteral("INSERT INTO tblVersion (VER,CXC_CENTRAL) VALUES (%1,0)").arg(kVersionNumero));
}

ResultadoDemo CrearDemo(const OpcionesDemo &opciones) {
  const QString raiz = opciones.ruta;
  if (!QDir().mkpath(RutaNativa(raiz)))
    throw ErrorFatal(QStringLiteral("No fue posible crear la carpeta %1.").arg(raiz));
  const QString general = RutaNativa(UnirRuta(raiz, QStringLiteral("Nimbar.mdb")));
  const QString referencia = RutaNativa(UnirRuta(raiz, QStringLiteral("Referencia.mdb")));
  const QString relativaEmpresa = QStringLiteral("Empresas\\Demo.db");
  const QString relativaSegunda = QStringLiteral("Empresas\\DemoDosRenglones.db");
  const QString empresa = RutaNativa(UnirRuta(raiz, relativaEmpresa));
  const QString segunda = RutaNativa(UnirRuta(raiz, relativaSegunda));
  if (QFileInfo::exists(general) && !opciones.reconstruir)
    throw ErrorFatal(QStringLiteral("La carpeta %1 ya tiene una instalación (Nimbar.mdb). Use "
                                    "--reconstruir para crear la demostración de nuevo.")
                         .arg(raiz));
  for (const char *carpeta : kCarpetas)
    QDir().mkpath(RutaNativa(UnirRuta(raiz, QLatin1String(carpeta))));
  ayuda::InstalarManual(QCoreApplication::applicationDirPath(), raiz);
  const QStringList archivos = {general, referencia, empresa, segunda};
  for (const QString &archivo : archivos)
    Borrar(archivo);

  ResultadoDemo resultado;
  resultado.clave = opciones.clave.isEmpty() ? ClaveGenerada() : opciones.clave;
  resultado.conexion = QStringLiteral("SQLite=") + relativaEmpresa;
  resultado.rutaEmpresa = empresa;
  try {
    // The same company twice: the second exports its entries in a layout of two rows.
    for (const auto &[archivo, formato] : {std::pair{empresa, FormatoDemo::Contpaq},
                                           std::pair{segunda, FormatoDemo::DosRenglones}}) {
      CrearBaseEmpresaSqlite(archivo);
      ConexionPtr con = ServicioConexion::AbrirSqlite(archivo, false, motor::kSqlite);
      LlenarIdentidad(*con, resultado.clave);
      LlenarCatalogos(*con);
      LlenarDocumentos(*con, MesDemo());
      LlenarFormato(*con, formato);
    }
    CrearBaseReferencia(referencia);
    // The general database goes last: its presence marks a finished installation.
    CrearBaseGeneral(general);
    ConexionPtr con = ServicioConexion::AbrirSqlite(general, false, 0);
    const QString alta = QStringLiteral(
        "INSERT INTO tblEmpresas (NUM_EMP,NOM_EMP,NOM_COM,CONEXION,MOTORDEDATOS,NOMBREBASEDATOS,"
        "CONX_CONSULTORIO,BD_CONSULTORIO,CONX_AC,BD_AC,CONX_DP,BD_DP) VALUES (%1,'%2','%2','%3',%4,"
        "'%5','','','','','','')");
    con->Ejecutar(alta.arg(1)
                      .arg(QStringLiteral("La Fonda de Doña Lupe"), Escapar(resultado.conexion))
                      .arg(motor::kSqlite)
                      .arg(QStringLiteral("Demo")));
    con->Ejecutar(alta.arg(2)
                      .arg(QStringLiteral("La Fonda de Doña Lupe (dos renglones)"),
                           Escapar(QStringLiteral("SQLite=") + relativaSegunda))
                      .arg(motor::kSqlite)
                      .arg(QStringLiteral("DemoDosRenglones")));
  } catch (...) {
    for (const QString &archivo : archivos) {
      try {
        Borrar(archivo);
      } catch (const ErrorFatal &) {
        // The first failure is the one worth reporting.
      }
    }
    throw;
  }
  const QString ini = UnirRuta(raiz, QStringLiteral("Nimbar.ini"));
  ServicioUtil::EscribirIni(QStringLiteral("VARIOS"), QStringLiteral("EDICION"),
                            QStringLiteral("2"), ini);
  ServicioUtil::EscribirIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"),
                            QStringLiteral("1"), ini);
  ServicioUtil::EscribirIni(QStringLiteral("FAST FOOD"), QStringLiteral("MERCANCIA"),
                            QStringLiteral("N"), ini);
  ServicioUtil::EscribirIni(QStringLiteral("ODBC"), QStringLiteral("SQLSERVER"),
                            QStringLiteral("FreeTDS"), ini);
  return resultado;
}

} // namespace demo
