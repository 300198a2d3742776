#include "journal/Eliminacion.h"

#include "shell/CatalogoMensajes.h"
#include "shell/Dialecto.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

using namespace Qt::Literals::StringLiterals;

QString TextoAcotado(const FiltroEliminacion &f) {
  QString texto;
  // The journal type's piece begins without a blank; the statement has one before it.
  if (!f.tipo.isEmpty())
    texto += u"AND TIP_POLIZA='"_s + Escapar(f.tipo) + u"'"_s;
  if (!f.operacion.isEmpty())
    texto += u" AND COD_OPER="_s + f.operacion;
  if (!f.concepto.isEmpty())
    texto += u" AND CONCEP_POL='"_s + Escapar(f.concepto) + u"'"_s;
  return texto;
}

QString SentenciaFoliosAEliminar(const Dialecto &dialecto, const FiltroEliminacion &f) {
  return u"SELECT FOL_POLIZA FROM tblPolizasEnc WHERE FEC_POLIZA BETWEEN "_s +
         dialecto.FechaSQL(f.del) + u" AND "_s + dialecto.FechaSQL(f.al) + u" "_s + TextoAcotado(f);
}

QStringList FoliosAEliminar(Conexion &con, const FiltroEliminacion &filtro) {
  QStringList folios;
  Registros r = con.Abrir(SentenciaFoliosAEliminar(con.Dialecto(), filtro));
  for (; !r.Fin(); r.Siguiente())
    folios << r.Campo(u"FOL_POLIZA"_s).Texto();
  return folios;
}

int EliminarFolios(Conexion &con, const QStringList &folios,
                   const std::function<void(int, int)> &avance) {
  int hechos = 0;
  for (const QString &folio : folios) {
    const QString encabezado =
        u"DELETE FROM tblPolizasEnc WHERE FOL_POLIZA='"_s + Escapar(folio) + u"';"_s;
    const QString renglones =
        u"DELETE FROM tblPolizasRen WHERE FOL_POLIZA='"_s + Escapar(folio) + u"';"_s;
    // An entry goes whole, in one exchange where the server takes blocks.
    if (!con.ConfirmarEnUnBloque(
            {}, {Conexion::Escritura::Sola(encabezado), Conexion::Escritura::Sola(renglones)},
            {})) {
      con.IniciarTransaccion();
      con.Ejecutar(encabezado);
      con.Ejecutar(renglones);
      con.ConfirmarTransaccion();
    }
    ++hechos;
    if (avance)
      avance(hechos, static_cast<int>(folios.size()));
  }
  return hechos;
}

int EliminarPolizas(Conexion &con, const FiltroEliminacion &filtro) {
  if (CatalogoMensajes::Caja(CatalogoMensajes::Texto(5513), CatalogoMensajes::Texto(100),
                             IconoMensaje::Advertencia, BotonesMensaje::AceptarCancelar,
                             5513) != RespuestaMensaje::Aceptar)
    return -1;
  const int eliminados = EliminarFolios(con, FoliosAEliminar(con, filtro));
  CatalogoMensajes::Mostrar(5514, {}, IconoMensaje::Informacion);
  return eliminados;
}
