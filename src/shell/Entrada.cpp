#include "shell/Entrada.h"

#include "shell/CargaEmpresa.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Encriptacion.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

namespace {

constexpr int kLargoEncriptado = 11;

void AvisoVersion(const QString &primera) {
  CatalogoMensajes::Caja(primera + QStringLiteral("\nRevisar versiones actuales en Sistema - "
                                                  "Información."),
                         QStringLiteral("Sistema"), IconoMensaje::Advertencia);
}

} // namespace

ResultadoEntrada AceptarEntrada(Conexion &conexionGeneral, Conexion &conexionEmpresa,
                                const QString &codigo, const QString &clave) {
  const QString cod = codigo.toUpper();
  QString pass2;
  QString nuevo1, nuevo2;
  {
    Registros r = conexionEmpresa.Abrir(
        QStringLiteral("SELECT COD_USU,ESTATUS,PASS1_USU,PASS2_USU FROM tblUsuarios WHERE "
                       "COD_USU='%1';")
            .arg(Escapar(cod)));
    if (r.Vacio()) {
      CatalogoMensajes::Mostrar(410, {}, IconoMensaje::Informacion,
                                BotonesMensaje::AceptarCancelar);
      return ResultadoEntrada::UsuarioDesconocido;
    }
    if (r.Campo(QStringLiteral("ESTATUS")).Numero() == 9) {
      CatalogoMensajes::Mostrar(400, {}, IconoMensaje::Informacion);
      return ResultadoEntrada::UsuarioBloqueado;
    }
    QString pass1 = r.Campo(QStringLiteral("PASS1_USU")).Texto();
    pass2 = r.Campo(QStringLiteral("PASS2_USU")).Texto();
    if (pass1.size() < kLargoEncriptado) {
      nuevo1 = Encriptar(pass1);
      nuevo2 = pass2.size() < kLargoEncriptado ? Encriptar(pass2) : pass2;
    } else {
      pass1 = Desencriptar(pass1);
    }
    if (clave != pass1) {
      CatalogoMensajes::Mostrar(409, {}, IconoMensaje::Informacion,
                                BotonesMensaje::AceptarCancelar);
      return ResultadoEntrada::ClaveIncorrecta;
    }
  }
  {
    Registros r =
        conexionEmpresa.Abrir(QStringLiteral("SELECT MAX(VER) AS VERSIONMAX FROM tblVersion;"));
    if (!r.Vacio()) {
      const Valor maxima = r.Campo(QStringLiteral("VERSIONMAX"));
      if (maxima.EsNulo()) {
        AvisoVersion(QStringLiteral("La versión de la empresa es desconocida."));
      } else {
        gVersionOk = true;
        const QString ver = maxima.Texto().left(2);
        const QString sys = QString::number(kVersionNumero / 10);
        if (ver != sys) {
          AvisoVersion(QStringLiteral("La versión de la empresa es distinta a la del sistema."));
          if (Val(ver) < Val(sys))
            gVersionOk = false;
        }
        if (Val(ver) >= 60) {
          if (!nuevo1.isEmpty() && !nuevo2.isEmpty())
            conexionEmpresa.Ejecutar(QStringLiteral("UPDATE tblUsuarios SET PASS1_USU='%1',"
                                                    "PASS2_USU='%2' WHERE COD_USU='%3';")
                                         .arg(Escapar(nuevo1), Escapar(nuevo2), Escapar(cod)));
          MigrarClaves(conexionEmpresa, cod);
        }
      }
    }
  }
  CargarEmpresa(conexionGeneral, conexionEmpresa, gNumEmp);
  gCodUsu = cod;
  gPassUsu = clave;
  gMercancia = ServicioUtil::LeerIni(QStringLiteral("FAST FOOD"), QStringLiteral("MERCANCIA"),
                                     RutaNimbarIni());
  return ResultadoEntrada::Aceptada;
}

void MigrarClaves(Conexion &conexionEmpresa, const QString &codUsu) {
  Registros r = conexionEmpresa.Abrir(
      QStringLiteral("SELECT COD_USU,PASS1_USU,PASS2_USU FROM tblUsuarios WHERE COD_USU<>'%1'")
          .arg(Escapar(codUsu)));
  for (; !r.Fin(); r.Siguiente()) {
    const QString cod = r.Campo(QStringLiteral("COD_USU")).Texto();
    const QString p1 = r.Campo(QStringLiteral("PASS1_USU")).Texto();
    const QString p2 = r.Campo(QStringLiteral("PASS2_USU")).Texto();
    if (p1.size() <= 10)
      conexionEmpresa.Ejecutar(
          QStringLiteral("UPDATE tblUsuarios SET PASS1_USU='%1' WHERE COD_USU='%2';")
              .arg(Escapar(Encriptar(p1)), Escapar(cod)));
    if (p2.size() <= 10)
      conexionEmpresa.Ejecutar(
          QStringLiteral("UPDATE tblUsuarios SET PASS2_USU='%1' WHERE COD_USU='%2';")
              .arg(Escapar(Encriptar(p2)), Escapar(cod)));
  }
}

QString SentenciaEmpresas(const QString &columnas, const QString &fin) {
  return QStringLiteral("SELECT ") + columnas +
         QStringLiteral(
             " FROM tblEmpresas WHERE CONEXION<>'' AND MOTORDEDATOS<>2 ORDER BY NUM_EMP") +
         fin;
}
