#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

class Conexion;

// Version of the program, compared with the company's tblVersion at login.
inline constexpr const char *kVersionPrograma = "8.7";
// The same as tblVersion stores it: major * 100 + minor * 10.
inline constexpr int kVersionNumero = 870;

// Session values: global, each with one writer or a small set of them, alive for the run.
extern QString gRutaApp; // folder of the executable (or ESCRIBANO_RUTA), no trailing separator
extern QString gConexionGeneral; // connection text of Nimbar.mdb
extern int gEdicion;             // business type: 1 merchandise, other values fast food
extern QString gRutaAyuda;       // the manual
extern int gModulo;              // always 13 in this program
extern int gModoEmpresa;         // company screen: 0 normal, 10 repair, 99 first company
extern int gEmpresaParametros;   // the company whose parameters the parameters screen edits
extern int gNumEmp;
extern QString gNomEmp, gNomCom;
extern QString gConexion; // connection of the open company, password in plain
extern int gMotor;
extern QString gNombreBD;
extern QString gCodSucu;
extern QString gConxCxC, gBdCxC;
extern int gMotorCxC;
extern QString gConxDP;
extern QString gCodUsu;
extern QString gPassUsu;
extern QString gMercancia;
extern QString gRutaDirectorio;   // folder exchanged with the folder picker
extern QString gRutaBusqueda;     // folder of the catalogue search (DIRCONSULTAS)
extern QString gCodigoEncontrado; // the code the catalogue search returned
extern bool gVersionOk;

// What the company load keeps for the printed headers of the family, by column name.
struct DatosEmpresa {
  QString DESCRIP1, DESCRIP2, DESCRIP3;
  QString RFC1_EMP, RFC2_EMP, RFC3_EMP;
  QString Telefono, Direccion, CiudadEstado;
  QString DireccionExpedicion, LugarExpedicion;
  QString CONX_CONSULTORIO, BD_CONSULTORIO, CONX_AC, BD_AC, BD_DP;
  bool CAD_ACT = false;
  int DIAS_CAD = 0, HORAS_CAD = 0, TC_Servicio = 0;
  QString TC_EMPRESA, TC_IDSITIO, TC_key;
};
extern DatosEmpresa gEmpresa;

// Credentials of the electronic services, filled by CargarServicios.
struct ServiciosElectronicos {
  int Caja = 0;
  QString TVE_USUARIO, TVE_PASSWORD;
  QString TA_ACT, TA_AGR, TA_IMPTO, TA_GRUPO, TA_CADENA, TA_TIENDA, TA_URL, TA_FTP;
  QString CNX_TVE, TVE_CODPROV, IMPTO_SER, REM_CODPROV;
  QString USU_COM, PAS_SUC;
  QString TA_CLAVEPV, TA_EQUIPO, TA_USUARIO, TA_PASSWORD, TA_USUARIO2, TA_PASSWORD2;
  QString USUARIO_REM, COMERCIO_REM, CORRESP_REM;
};
extern ServiciosElectronicos gServicios;

// The machine's clock; tests may fix it.
QDate Hoy();
QDateTime Ahora();
void FijarReloj(const QDateTime &momento); // an invalid value returns to the real clock

// Paths of the two ini files beside the executable.
QString RutaNimbarIni();
QString RutaReportIni();

// Clears every session value (a new run, or a test).
void LimpiarSesion();

// Fills gRutaApp, gConexionGeneral and gEdicion. rutaEjecutable is the folder of the
// executable; ESCRIBANO_RUTA, when set, names another.
void IniciarRutas(const QString &rutaEjecutable);
// Connection text of the general database under a folder, to the letter.
QString ConexionGeneral(const QString &rutaApp);
// Copies the six configuration files of the invoicing services from Temp over those of
// the program's folder; stops at the first one that fails.
bool CopiarConfiguraciones();
void IniciarAyuda();

// Whether a module's configuration file still is of the old version.
bool ConfiguracionAntigua(int modulo);

// The register number of this workstation; a workstation without one answers 0.
int CodigoDeCajaEnRegistro();

// Configuration file of a module of the family, by module number; empty for a
// number that is none of the six.
QString ArchivoConfiguracion(int modulo);
