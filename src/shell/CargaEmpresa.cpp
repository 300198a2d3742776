#include "shell/CargaEmpresa.h"

#include "shell/CatalogoMensajes.h"
#include "shell/Encriptacion.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

namespace {

// "<a>", then each non-empty part with its separator.
QString Domicilio(const Registros &r, const char *calle, const char *ext, const char *inte,
                  const char *col, const char *cp) {
  QString d = r.Campo(QLatin1String(calle)).Texto();
  const QString e = r.Campo(QLatin1String(ext)).Texto();
  const QString i = r.Campo(QLatin1String(inte)).Texto();
  const QString c = r.Campo(QLatin1String(col)).Texto();
  const QString p = r.Campo(QLatin1String(cp)).Texto();
  if (!e.isEmpty())
    d += QLatin1Char(' ') + e;
  if (!i.isEmpty())
    d += QStringLiteral(" - ") + i;
  if (!c.isEmpty())
    d += QLatin1Char(' ') + c;
  if (!p.isEmpty())
    d += QStringLiteral(" CP ") + p;
  return d;
}

QString CiudadEstado(Conexion &con, const QString &codCd, const QString &codEdo) {
  QString ciudad;
  if (!codCd.isEmpty()) {
    Registros r = con.Abrir(
        QStringLiteral("SELECT DES_CID FROM tblCiudad WHERE COD_CID='%1';").arg(Escapar(codCd)));
    if (!r.Vacio())
      ciudad = r.Campo(QStringLiteral("DES_CID")).Texto();
  }
  if (!codEdo.isEmpty()) {
    Registros r = con.Abrir(
        QStringLiteral("SELECT DES_EST FROM tblEstado WHERE COD_EST='%1';").arg(Escapar(codEdo)));
    if (!r.Vacio()) {
      const QString estado = r.Campo(QStringLiteral("DES_EST")).Texto();
      ciudad = ciudad.isEmpty() ? estado : ciudad + QStringLiteral(", ") + estado;
    }
  }
  return ciudad;
}

} // namespace

void CargarEmpresa(Conexion &conexionGeneral, Conexion &conexionEmpresa, int numEmp) {
  {
    Registros r = conexionGeneral.Abrir(
        QStringLiteral("SELECT * FROM tblEmpresas WHERE NUM_EMP=%1;").arg(numEmp));
    if (!r.Vacio()) {
      gNumEmp = static_cast<int>(r.Campo(QStringLiteral("NUM_EMP")).Entero());
      gNomCom = r.Campo(QStringLiteral("NOM_COM")).Texto();
      gNomEmp = r.Campo(QStringLiteral("NOM_EMP")).Texto();
      gConexion = r.Campo(QStringLiteral("CONEXION")).Texto();
      gMotor = static_cast<int>(r.Campo(QStringLiteral("MOTORDEDATOS")).Numero());
      gNombreBD = r.Campo(QStringLiteral("NOMBREBASEDATOS")).Texto();
      gEmpresa.CONX_CONSULTORIO = r.Campo(QStringLiteral("CONX_CONSULTORIO")).Texto();
      gEmpresa.BD_CONSULTORIO = r.Campo(QStringLiteral("BD_CONSULTORIO")).Texto();
      gEmpresa.CONX_AC = r.Campo(QStringLiteral("CONX_AC")).Texto();
      gEmpresa.BD_AC = r.Campo(QStringLiteral("BD_AC")).Texto();
      gConxDP = r.Campo(QStringLiteral("CONX_DP")).Texto();
      gEmpresa.BD_DP = r.Campo(QStringLiteral("BD_DP")).Texto();
    }
  }
  {
    Registros r =
        conexionEmpresa.Abrir(QStringLiteral("SELECT * FROM tblEmpresa WHERE COD_EMPRESA=1;"));
    if (!r.Vacio()) {
      // The company database has the last word on names.
      gNomCom = r.Campo(QStringLiteral("NOM_COM")).Texto();
      gNomEmp = r.Campo(QStringLiteral("NOM_EMP")).Texto();
      gEmpresa.DESCRIP1 = r.Campo(QStringLiteral("DESCRIP1")).Texto();
      gEmpresa.DESCRIP2 = r.Campo(QStringLiteral("DESCRIP2")).Texto();
      gEmpresa.DESCRIP3 = r.Campo(QStringLiteral("DESCRIP3")).Texto();
      gEmpresa.RFC1_EMP = r.Campo(QStringLiteral("RFC1_EMP")).Texto();
      gEmpresa.RFC2_EMP = r.Campo(QStringLiteral("RFC2_EMP")).Texto();
      gEmpresa.RFC3_EMP = r.Campo(QStringLiteral("RFC3_EMP")).Texto();
      gEmpresa.Telefono = r.Campo(QStringLiteral("TEL1_EMP")).Texto();
      const QString tel2 = r.Campo(QStringLiteral("TEL2_EMP")).Texto();
      if (!tel2.isEmpty())
        gEmpresa.Telefono += QStringLiteral(", ") + tel2;
      gEmpresa.Direccion = Domicilio(r, "DIR1_EMP", "EXT_EMP", "INT_EMP", "COL_EMP", "CP_EMP");
      const QString codCd = r.Campo(QStringLiteral("COD_CD")).Texto();
      const QString codEdo = r.Campo(QStringLiteral("COD_EDO")).Texto();
      gEmpresa.CiudadEstado = CiudadEstado(conexionEmpresa, codCd, codEdo);
    }
  }
  conexionEmpresa.Ejecutar(
      QStringLiteral("UPDATE tblParametrosGenerales SET CONX_CXC='%1',BD_CXC='%2';")
          .arg(Escapar(gConexion), Escapar(gNombreBD)));
  if (Hoy() >= QDate(2018, 1, 1)) {
    Registros r = conexionEmpresa.Abrir(
        QStringLiteral("SELECT FE_VERSION,FE_ACTUAL FROM tblParametrosGenerales;"));
    if (!r.Vacio()) {
      const double version = r.Campo(QStringLiteral("FE_VERSION")).Numero();
      const double actual = r.Campo(QStringLiteral("FE_ACTUAL")).Numero();
      if (version != 33 || actual != 1)
        CambiarVersionCFDI(conexionEmpresa);
    }
  }
  {
    Registros r = conexionEmpresa.Abrir(
        QStringLiteral("SELECT * FROM tblLugarExpedicion WHERE COD_EMPRESA=1;"));
    if (!r.Vacio()) {
      gEmpresa.DireccionExpedicion =
          Domicilio(r, "CALLE_EXP", "EXT_EXP", "INT_EXP", "COL_EXP", "CP_EXP");
      gEmpresa.LugarExpedicion =
          CiudadEstado(conexionEmpresa, r.Campo(QStringLiteral("CD_EXP")).Texto(),
                       r.Campo(QStringLiteral("EDO_EXP")).Texto());
    } else {
      gEmpresa.DireccionExpedicion = gEmpresa.Direccion;
      gEmpresa.LugarExpedicion = gEmpresa.CiudadEstado;
    }
  }
  {
    Registros r = conexionEmpresa.Abrir(QStringLiteral("SELECT * FROM tblParametrosGenerales;"));
    if (!r.Vacio()) {
      gConxCxC = CadenaConexionUsuario(r.Campo(QStringLiteral("CONX_CXC")).Texto());
      gBdCxC = r.Campo(QStringLiteral("BD_CXC")).Texto();
      gMotorCxC = gMotor;
      gEmpresa.CAD_ACT = r.Campo(QStringLiteral("CAD_ACT")).Numero() > 0;
      gEmpresa.DIAS_CAD = static_cast<int>(r.Campo(QStringLiteral("DIAS_CAD")).Numero()) & 0xFF;
      gEmpresa.HORAS_CAD = static_cast<int>(r.Campo(QStringLiteral("HORAS_CAD")).Numero()) & 0xFF;
      gEmpresa.TC_Servicio =
          static_cast<int>(r.Campo(QStringLiteral("TC_Servicio")).Numero()) & 0xFF;
      gEmpresa.TC_EMPRESA = r.Campo(QStringLiteral("TC_EMPRESA")).Texto();
      gEmpresa.TC_IDSITIO = r.Campo(QStringLiteral("TC_IDSITIO")).Texto();
      gEmpresa.TC_key = r.Campo(QStringLiteral("TC_key")).Texto();
    }
  }
  {
    Registros r = conexionEmpresa.Abrir(
        QStringLiteral("SELECT COD_SUCU FROM tblSucursales WHERE ES_PRINCIPAL IN (1,-1);"));
    gCodSucu = r.Vacio() ? QStringLiteral("TV1") : r.Campo(QStringLiteral("COD_SUCU")).Texto();
  }
  if (gMotor == motor::kSqlServer)
    gConexion = DesencriptarConexion(gConexion);
  if (gMotorCxC == motor::kSqlServer)
    gConxCxC = DesencriptarConexion(gConxCxC);
  CargarServicios(0);
}

bool CambiarVersionCFDI(Conexion &conexionEmpresa) {
  const bool copiado = CopiarConfiguraciones();
  const bool actualizado = conexionEmpresa.IntentarEjecutar(
      QStringLiteral("UPDATE tblParametrosGenerales SET FE_VERSION=33,FE_ACTUAL=1;"));
  CatalogoMensajes::MostrarTexto(QStringLiteral(
      "La configuración de CFDI fue modificada. Es necesario reiniciar los módulos de Tolvane."));
  if (!copiado)
    CatalogoMensajes::MostrarTexto(
        QStringLiteral("No es posible modificar la versión. No se encontraron archivos de "
                       "configuración en carpeta TEMP. Contacta a tu distribuidor."),
        IconoMensaje::Advertencia);
  if (!actualizado) {
    CatalogoMensajes::MostrarTexto(QStringLiteral("Reintente el cambio de versión de CFDI. Se "
                                                  "perdió conexión con la base de datos."),
                                   IconoMensaje::Advertencia);
    return false;
  }
  return true;
}

void VerificarConfiguracionCFDI(Conexion &conexionEmpresa, int modulo) {
  Registros r = conexionEmpresa.Abrir(
      QStringLiteral("SELECT FE_VERSION,FE_ACTUAL FROM tblParametrosGenerales;"));
  if (r.Vacio())
    return;
  const bool pendiente = r.Campo(QStringLiteral("FE_VERSION")).Numero() == 33 &&
                         r.Campo(QStringLiteral("FE_ACTUAL")).Numero() != 0;
  if (!pendiente || !ConfiguracionAntigua(modulo))
    return;
  if (CopiarConfiguraciones())
    CatalogoMensajes::MostrarTexto(QStringLiteral(
        "La configuración de CFDI fue modificada. Es necesario reiniciar el sistema."));
  else
    CatalogoMensajes::MostrarTexto(QStringLiteral("No se encontraron archivos de configuración "
                                                  "en carpeta TEMP. Contacta a tu distribuidor."),
                                   IconoMensaje::Advertencia);
}

void VerificarClavesDuplicadas(Conexion &conexionEmpresa) {
  Registros usuarios =
      conexionEmpresa.Abrir(QStringLiteral("SELECT * FROM tblUsuarios ORDER BY COD_USU;"));
  while (!usuarios.Fin()) {
    const QString cod = usuarios.Campo(QStringLiteral("COD_USU")).Texto();
    const QString a1 = usuarios.Campo(QStringLiteral("PASS1_USU")).Texto();
    const QString a2 = usuarios.Campo(QStringLiteral("PASS2_USU")).Texto();
    Registros otros = conexionEmpresa.Abrir(
        QStringLiteral("SELECT * FROM tblUsuarios WHERE COD_USU<>'%1' ORDER BY COD_USU;")
            .arg(Escapar(cod)));
    while (!otros.Fin()) {
      const QString b1 = otros.Campo(QStringLiteral("PASS1_USU")).Texto();
      const QString b2 = otros.Campo(QStringLiteral("PASS2_USU")).Texto();
      if (a1 == b1 || a1 == b2 || a2 == b1 || a2 == b2) {
        CatalogoMensajes::Mostrar(422, {}, IconoMensaje::Advertencia);
        return;
      }
      otros.Siguiente();
    }
    usuarios.Siguiente();
  }
  conexionEmpresa.Ejecutar(QStringLiteral("DELETE FROM tblComEstatus WHERE COD_ESTATUS=0;"));
}

void CargarServicios(int caja) {
  if (caja == 0)
    caja = CodigoDeCajaEnRegistro();
  gServicios = {};
  gServicios.Caja = caja;
  auto claro = [](const QString &guardado) {
    return guardado.isEmpty() ? guardado : Desencriptar(guardado);
  };
  ConexionPtr con = ServicioConexion::AbrirConexionSesion();
  {
    Registros r = con->Abrir(QStringLiteral("SELECT * FROM tblServiciosElec;"));
    if (!r.Vacio()) {
      gServicios.TVE_USUARIO = r.Campo(QStringLiteral("TVE_USUARIO")).Texto();
      gServicios.TVE_PASSWORD = claro(r.Campo(QStringLiteral("TVE_PASSWORD")).Texto());
    }
  }
  {
    Registros r = con->Abrir(QStringLiteral("SELECT * FROM tblParametrosGenerales;"));
    if (!r.Vacio()) {
      auto t = [&r](const char *c) { return r.Campo(QLatin1String(c)).Texto(); };
      gServicios.TA_ACT = t("TA_ACT");
      gServicios.TA_AGR = t("TA_AGR");
      gServicios.TA_IMPTO = t("TA_IMPTO");
      gServicios.TA_GRUPO = t("TA_GRUPO");
      gServicios.TA_CADENA = t("TA_CADENA");
      gServicios.TA_TIENDA = t("TA_TIENDA");
      gServicios.TA_URL = t("TA_URL");
      gServicios.TA_FTP = t("TA_FTP");
      gServicios.CNX_TVE = t("CNX_TVE");
      gServicios.TVE_CODPROV = t("TVE_CODPROV");
      gServicios.IMPTO_SER = t("IMPTO_SER");
      gServicios.REM_CODPROV = t("REM_CODPROV");
    }
  }
  if (Val(gServicios.CNX_TVE) != 0) {
    const QString sql =
        Val(gServicios.TVE_CODPROV) == 1
            ? QStringLiteral("SELECT USUARIO_SER AS USU_COM,PASWD_SER AS PAS_SUC FROM tblCajas "
                             "WHERE COD_CAJ=%1;")
                  .arg(caja)
            : QStringLiteral("SELECT COMERCIO AS USU_COM,SUCURSAL AS PAS_SUC FROM tblCajasTVE "
                             "WHERE COD_CAJA=%1;")
                  .arg(caja);
    Registros r = con->Abrir(sql);
    if (!r.Vacio()) {
      gServicios.USU_COM = r.Campo(QStringLiteral("USU_COM")).Texto();
      gServicios.PAS_SUC = claro(r.Campo(QStringLiteral("PAS_SUC")).Texto());
    }
  }
  {
    Registros r =
        con->Abrir(QStringLiteral("SELECT TA_CLAVEPV,TA_EQUIPO,TA_USUARIO,TA_PASSWORD,TA_USUARIO2,"
                                  "TA_PASSWORD2 FROM tblCajas WHERE COD_CAJ=%1;")
                       .arg(caja));
    if (!r.Vacio()) {
      gServicios.TA_CLAVEPV = r.Campo(QStringLiteral("TA_CLAVEPV")).Texto();
      gServicios.TA_EQUIPO = r.Campo(QStringLiteral("TA_EQUIPO")).Texto();
      gServicios.TA_USUARIO = r.Campo(QStringLiteral("TA_USUARIO")).Texto();
      gServicios.TA_PASSWORD = claro(r.Campo(QStringLiteral("TA_PASSWORD")).Texto());
      gServicios.TA_USUARIO2 = r.Campo(QStringLiteral("TA_USUARIO2")).Texto();
      gServicios.TA_PASSWORD2 = claro(r.Campo(QStringLiteral("TA_PASSWORD2")).Texto());
    }
  }
  if (Val(gServicios.REM_CODPROV) == 1) {
    Registros r =
        con->Abrir(QStringLiteral("SELECT * FROM tblCajasRemesas WHERE COD_CAJA=%1;").arg(caja));
    if (!r.Vacio()) {
      gServicios.USUARIO_REM = r.Campo(QStringLiteral("USUARIO_REM")).Texto();
      gServicios.COMERCIO_REM = r.Campo(QStringLiteral("COMERCIO_REM")).Texto();
      gServicios.CORRESP_REM = r.Campo(QStringLiteral("CORRESP_REM")).Texto();
    }
  }
}
