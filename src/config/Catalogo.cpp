#include "config/Catalogo.h"

#include "db/ConstructorBD.h"
#include "export/ContabilidadElectronica.h"
#include "shell/CatalogoMensajes.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

using namespace Qt::Literals::StringLiterals;

namespace {

bool HayFila(Conexion &con, const QString &sql) { return !con.Abrir(sql).Vacio(); }

bool Advertir(int mensaje) {
  CatalogoMensajes::Mostrar(mensaje, {}, IconoMensaje::Advertencia);
  return false;
}

bool Preguntar(int mensaje) {
  return CatalogoMensajes::Mostrar(mensaje, {}, IconoMensaje::Pregunta, BotonesMensaje::SiNo) ==
         RespuestaMensaje::Si;
}

void Actualizar(Conexion &con, const RubroEnPantalla &r, const QString &codigo) {
  con.Ejecutar(u"UPDATE tblCatRubros SET DES_RUBRO='"_s + Escapar(r.descripcion) +
               u"',CUENTA_RUBRO='"_s + Escapar(r.cuenta) + u"' WHERE COD_RUBRO='"_s +
               Escapar(codigo) + u"';"_s);
}

} // namespace

QStringList PadresDeRubros(Conexion &con) {
  QStringList padres;
  for (Registros r = con.Abrir(u"SELECT COD_RUBRO FROM tblCatRubros WHERE CLASIF_RUBRO='S' AND "
                               "SUB_RUBRO<>0 ORDER BY COD_RUBRO"_s);
       !r.Fin(); r.Siguiente())
    padres << r.Campo(u"COD_RUBRO"_s).Texto();
  return padres;
}

void PrepararRubroNuevo(Conexion &con, RubroEnPantalla &r) {
  r.descripcion.clear();
  r.edoFinanciero.clear();
  r.naturaleza.clear();
  r.cuenta.clear();
  r.rubroEmp.clear();
  const QString p = r.padre;
  {
    Registros fila = con.Abrir(u"SELECT TIPOCTA_RUBRO, EDOFIN_RUBRO, NATURAL_RUBRO, DES_RUBRO "
                               "FROM tblCatRubros WHERE COD_RUBRO='"_s +
                               Escapar(p) + u"' AND CLASIF_RUBRO='S' AND SUB_RUBRO <> 0"_s);
    if (fila.Vacio()) {
      r.padre.clear();
      r.desPadre.clear();
    } else {
      r.edoFinanciero = fila.Campo(u"EDOFIN_RUBRO"_s).Texto();
      r.naturaleza = fila.Campo(u"NATURAL_RUBRO"_s).Texto();
      r.desPadre = fila.Campo(u"DES_RUBRO"_s).Texto();
      r.tipoCuentaPadre = fila.Campo(u"TIPOCTA_RUBRO"_s).Texto();
    }
  }
  // The descendants of what the list holds now; only children count (P and three more
  // characters), and the next takes the greatest plus one: gaps aren't filled.
  Registros hijos = con.Abrir(u"SELECT COD_RUBRO FROM tblCatRubros WHERE (COD_RUBRO LIKE '"_s +
                              Escapar(r.padre) + u"-%') "_s);
  if (hijos.Vacio()) {
    if (!p.isEmpty())
      r.rubroEmp = p + u"-01"_s;
    return;
  }
  int mayor = 0;
  for (; !hijos.Fin(); hijos.Siguiente()) {
    const QString codigo = hijos.Campo(u"COD_RUBRO"_s).Texto();
    if (codigo.size() == p.size() + 3)
      mayor = std::max(mayor, codigo.right(2).toInt());
  }
  r.rubroEmp = p + u"-"_s + QString::number(mayor + 1).rightJustified(2, u'0');
}

std::optional<RubroLeido> LeerRubro(Conexion &con, const QString &codigo) {
  Registros r = con.Abrir(u"SELECT DES_RUBRO, EDOFIN_RUBRO, NATURAL_RUBRO, CUENTA_RUBRO, "
                          "CLASIF_RUBRO FROM tblCatRubros WHERE COD_RUBRO='"_s +
                          Escapar(codigo) + u"'"_s);
  if (r.Vacio())
    return std::nullopt;
  return RubroLeido{r.Campo(u"DES_RUBRO"_s).Texto(), r.Campo(u"EDOFIN_RUBRO"_s).Texto(),
                    r.Campo(u"NATURAL_RUBRO"_s).Texto(), r.Campo(u"CUENTA_RUBRO"_s).Texto(),
                    r.Campo(u"CLASIF_RUBRO"_s).Texto()};
}

bool GrabarRubro(Conexion &con, RubroEnPantalla &r) {
  // Only the parent is trimmed: a description of blanks passes.
  if (r.padre.trimmed().isEmpty() || r.edoFinanciero.isEmpty() || r.descripcion.isEmpty() ||
      r.cuenta.isEmpty())
    return Advertir(5520);
  const QString e = r.rubroEmp.trimmed();
  const QString padre = r.padre.trimmed();
  if (e.isEmpty()) {
    // A rubro of the system is shown: only its description and account change.
    if (!HayFila(con, u"SELECT COD_RUBRO FROM tblCatRubros WHERE COD_RUBRO='"_s + Escapar(padre) +
                          u"'"_s) ||
        !Preguntar(154))
      return false;
    Actualizar(con, r, padre);
  } else if (!HayFila(con, u"SELECT COD_RUBRO FROM tblCatRubros WHERE COD_RUBRO='"_s + Escapar(e) +
                               u"'"_s)) {
    if (!Preguntar(5521))
      return false;
    con.Ejecutar(u"INSERT INTO tblCatRubros (COD_RUBRO, DES_RUBRO, ACUM_RUBRO, TIPOCTA_RUBRO, "
                 "EDOFIN_RUBRO, NATURAL_RUBRO, CLASIF_RUBRO, ULTIMO_RUBRO, CUENTA_RUBRO, "
                 "SUB_RUBRO) VALUES ('"_s +
                 Escapar(e) + u"','"_s + Escapar(r.descripcion) + u"','"_s + Escapar(padre) +
                 u"','"_s + Escapar(r.tipoCuentaPadre) + u"','"_s + Escapar(r.edoFinanciero) +
                 u"','"_s + Escapar(r.naturaleza) + u"','E','S', '"_s + Escapar(r.cuenta) +
                 u"',0);"_s);
    con.Ejecutar(u"UPDATE tblCatRubros SET ULTIMO_RUBRO='N' WHERE COD_RUBRO='"_s +
                 Escapar(r.padre) + u"';"_s);
  } else {
    if (!Preguntar(154))
      return false;
    Actualizar(con, r, e);
  }
  PrepararRubroNuevo(con, r);
  return true;
}

bool BorrarRubro(Conexion &con, RubroEnPantalla &r, const std::function<void()> &trasSi) {
  const QString e = r.rubroEmp.trimmed();
  if (e.isEmpty())
    return Advertir(5515);
  // Bank accounts hang only from the banks' rubro.
  if (r.padre == u"1-01-02"_s &&
      HayFila(con,
              u"SELECT COD_RUBRO FROM tblCatCtasBancos WHERE COD_RUBRO='"_s + Escapar(e) + u"'"_s))
    return Advertir(5528);
  if (HayFila(con,
              u"SELECT COD_RUBRO FROM tblCatRubros WHERE ACUM_RUBRO='"_s + Escapar(e) + u"'"_s))
    return Advertir(5516);
  if (!HayFila(con, u"SELECT COD_RUBRO FROM tblCatRubros WHERE COD_RUBRO='"_s + Escapar(e) +
                        u"' AND CLASIF_RUBRO='E' AND ULTIMO_RUBRO='S'"_s))
    return Advertir(5517);
  if (HayFila(con, u"SELECT RUBRO_DEBE FROM tblRubrosxOperacion WHERE RUBRO_DEBE='"_s + Escapar(e) +
                       u"' OR RUBRO_HABER='"_s + Escapar(e) + u"'"_s))
    return Advertir(5518);
  if (!Preguntar(5519))
    return false;
  if (trasSi)
    trasSi();
  con.Ejecutar(u"DELETE FROM tblCatRubros WHERE COD_RUBRO='"_s + Escapar(e) + u"';"_s);
  if (!HayFila(con, u"SELECT COD_RUBRO FROM tblCatRubros WHERE ACUM_RUBRO='"_s + Escapar(r.padre) +
                        u"'"_s))
    con.Ejecutar(u"UPDATE tblCatRubros SET ULTIMO_RUBRO='S' WHERE COD_RUBRO='"_s +
                 Escapar(r.padre.trimmed()) + u"';"_s);
  PrepararRubroNuevo(con, r);
  return true;
}

bool AsegurarDatosSat(Conexion &con) {
  QString error;
  if (constructor::AsegurarTabla(con, "tblRubrosSAT", &error))
    return true;
  CatalogoMensajes::MostrarTexto(error, IconoMensaje::Critico);
  return false;
}

DatosSat LeerDatosSat(Conexion &con, const QString &rubro) {
  Registros r = con.Abrir(u"SELECT COD_AGRUP,NATURALEZA FROM tblRubrosSAT WHERE COD_RUBRO='"_s +
                          Escapar(rubro.trimmed()) + u"'"_s);
  if (r.Vacio())
    return {};
  return {r.Campo(u"COD_AGRUP"_s).Texto().trimmed(), r.Campo(u"NATURALEZA"_s).Texto().trimmed()};
}

DatosSat DatosSatNuevo(Conexion &con, const RubroEnPantalla &r) {
  DatosSat d;
  if (r.padre.isEmpty())
    return d;
  d.codigo = LeerDatosSat(con, r.padre).codigo;
  d.naturaleza = sat::LetraNaturaleza(r.naturaleza);
  return d;
}

bool ValidarDatosSat(const DatosSat &d) {
  if (d.codigo.isEmpty() || sat::CodigoAgrupadorValido(d.codigo))
    return true;
  return Advertir(5529);
}

void GrabarDatosSat(Conexion &con, const QString &rubro, const DatosSat &d) {
  // The row is replaced whole or not at all.
  con.IniciarTransaccion();
  BorrarDatosSat(con, rubro);
  if (!d.codigo.isEmpty() || !d.naturaleza.isEmpty())
    con.Ejecutar(u"INSERT INTO tblRubrosSAT (COD_RUBRO,COD_AGRUP,NATURALEZA) VALUES ('"_s +
                 Escapar(rubro.trimmed()) + u"','"_s + Escapar(d.codigo) + u"','"_s +
                 Escapar(d.naturaleza) + u"');"_s);
  con.ConfirmarTransaccion();
}

void BorrarDatosSat(Conexion &con, const QString &rubro) {
  con.Ejecutar(u"DELETE FROM tblRubrosSAT WHERE COD_RUBRO='"_s + Escapar(rubro.trimmed()) +
               u"';"_s);
}
