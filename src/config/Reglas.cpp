#include "config/Reglas.h"

#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

QString N(qint64 v) { return QString::number(v); }

RubroCatalogo LeerRubroCatalogo(const Registros &r) {
  return {r.Campo(u"COD_RUBRO"_s).Texto(), r.Campo(u"DES_RUBRO"_s).Texto(),
          r.Campo(u"CUENTA_RUBRO"_s).Texto()};
}

std::optional<RubroCatalogo> PrimerRubro(Conexion &con, const QString &sql) {
  Registros r = con.Abrir(sql);
  if (r.Vacio())
    return std::nullopt;
  return LeerRubroCatalogo(r);
}

std::vector<RubroOperacion> LeerRubrosOperacion(Registros &r, int codPol) {
  std::vector<RubroOperacion> filas;
  for (; !r.Fin(); r.Siguiente()) {
    RubroOperacion f;
    f.COD_DATO = static_cast<int>(r.Campo(u"COD_DATO"_s).Entero());
    f.COD_POL = codPol;
    f.TXT_CONC = r.Campo(u"TXT_CONC"_s).Texto();
    f.RUBRO_DEBE = r.Campo(u"RUBRO_DEBE"_s).Texto();
    f.RUBRO_HABER = r.Campo(u"RUBRO_HABER"_s).Texto();
    f.CUENTA_DEBE = r.Campo(u"CUENTA_DEBE"_s).Texto();
    f.CUENTA_HABER = r.Campo(u"CUENTA_HABER"_s).Texto();
    filas.push_back(f);
  }
  return filas;
}

constexpr std::pair<int, CatalogoConceptos> kCatalogos[] = {
    {3, {"tblConceptoIE", "COD_CIE", "DES_CIE", "COD_CON = 'IEFE'"}},
    {4, {"tblConceptoIE", "COD_CIE", "DES_CIE", "COD_CON = 'RCAJ'"}},
    {5, {"tblServicios", "COD_SER", "DES_SER", ""}},
    {6, {"tblConceptos", "COD_CON", "DES_CON", "TIP_MOV = 'ACLI'"}},
    {7, {"tblConceptos", "COD_CON", "DES_CON", "TIP_MOV = 'CCLI'"}},
    {10, {"tblConceptos", "COD_CON", "DES_CON", "TIP_MOV = 'EALM'"}},
    {11, {"tblConceptos", "COD_CON", "DES_CON", "TIP_MOV = 'SALM'"}},
    {19, {"tblCargosEnCompras", "COD_CAR", "DES_CAR", ""}},
    {20, {"tblConceptosCom", "COD_CON", "DES_CON", "COD_FOL = 'ACXP'"}},
    {21, {"tblConceptosCom", "COD_CON", "DES_CON", "COD_FOL = 'CCXP'"}},
    {22, {"tblConceptosGyT", "COD_CON", "DES_CON", "COD_FOL = 'GTOS'"}},
    {23, {"tblConceptosGyT", "COD_CON", "DES_CON", "COD_FOL = 'GTOS'"}},
    {24, {"tblConceptosGyT", "COD_CON", "DES_CON", "COD_FOL = 'INGR'"}},
    // Two blanks after AND, as the other modules write it.
    {25, {"tblConceptosGyT", "COD_CON", "DES_CON", "COD_FOL = 'EGRE' AND  COD_CON <> 'CHQE'"}},
    {30, {"tblConceptosGyT", "COD_CON", "DES_CON", "COD_FOL = 'AACR'"}},
};

} // namespace

const CatalogoConceptos *CatalogoDeConceptos(int codOper) {
  for (const auto &[oper, catalogo] : kCatalogos)
    if (oper == codOper)
      return &catalogo;
  return nullptr;
}

QString ListaDeConceptos(const CatalogoConceptos &c, const char *todas) {
  const QLatin1String filtro(*c.filtro ? c.filtro : todas);
  return u"SELECT "_s + QLatin1String(c.codigo) + u", "_s + QLatin1String(c.descripcion) +
         u" FROM "_s + QLatin1String(c.tabla) +
         (filtro.isEmpty() ? QString() : u" WHERE "_s + filtro) + u" ORDER BY "_s +
         QLatin1String(c.codigo);
}

// ------------------------------------------------------------------ rules

int SiguienteCodPol(Conexion &con) {
  Registros r = con.Abrir(u"SELECT MAX(COD_POL) AS CODMAX FROM tblOperacionxConcep "_s);
  if (r.Vacio() || r.Campo(u"CODMAX"_s).EsNulo())
    return 1;
  return static_cast<int>(r.Campo(u"CODMAX"_s).Entero()) + 1;
}

std::optional<int> BuscarRegla(Conexion &con, int modulo, int codOper, const QString &concepto) {
  Registros r = con.Abrir(u"SELECT COD_POL FROM tblOperacionxConcep WHERE MODULO="_s + N(modulo) +
                          u" AND COD_OPER="_s + N(codOper) + u" AND CONCEPTO='"_s +
                          Escapar(concepto) + u"'"_s);
  if (r.Vacio())
    return std::nullopt;
  return static_cast<int>(r.Campo(u"COD_POL"_s).Entero());
}

std::optional<ReglaPosteo> LeerRegla(Conexion &con, int modulo, int codOper,
                                     const QString &concepto) {
  Registros r = con.Abrir(
      u"SELECT COD_POL, TIP_POLIZA, FREC FROM tblOperacionxConcep WHERE MODULO="_s + N(modulo) +
      u" AND COD_OPER="_s + N(codOper) + u" AND CONCEPTO='"_s + Escapar(concepto) + u"'"_s);
  if (r.Vacio())
    return std::nullopt;
  ReglaPosteo regla;
  regla.COD_POL = static_cast<int>(r.Campo(u"COD_POL"_s).Entero());
  regla.COD_OPER = codOper;
  regla.MODULO = modulo;
  regla.CONCEPTO = concepto;
  regla.TIP_POLIZA = r.Campo(u"TIP_POLIZA"_s).Texto();
  regla.FREC = static_cast<int>(r.Campo(u"FREC"_s).Entero());
  return regla;
}

int CrearRegla(Conexion &con, const ReglaPosteo &regla) {
  const int codPol = SiguienteCodPol(con);
  con.Ejecutar(u"INSERT INTO tblOperacionxConcep (COD_POL, COD_OPER, MODULO, CONCEPTO, "
               "TIP_POLIZA, STS_POLIZA, FREC, DIARIO) VALUES ("_s +
               N(codPol) + u","_s + N(regla.COD_OPER) + u","_s + N(regla.MODULO) + u",'"_s +
               Escapar(regla.CONCEPTO) + u"','"_s + Escapar(regla.TIP_POLIZA) + u"','D',"_s +
               N(regla.FREC) + u", "_s + N(regla.DIARIO) + u");"_s);
  return codPol;
}

void ActualizarRegla(Conexion &con, const ReglaPosteo &regla) {
  con.Ejecutar(u"UPDATE tblOperacionxConcep SET TIP_POLIZA='"_s + Escapar(regla.TIP_POLIZA) +
               u"', STS_POLIZA='D', FREC="_s + N(regla.FREC) + u", DIARIO="_s + N(regla.DIARIO) +
               u" WHERE COD_POL="_s + N(regla.COD_POL) + u";"_s);
}

void BorrarRegla(Conexion &con, int codPol) {
  con.Ejecutar(u"DELETE FROM tblOperacionxConcep WHERE COD_POL="_s + N(codPol) + u";"_s);
  BorrarRubrosDeRegla(con, codPol);
}

void BorrarRubrosDeRegla(Conexion &con, int codPol) {
  con.Ejecutar(u"DELETE FROM tblRubrosxOperacion WHERE COD_POL="_s + N(codPol) + u";"_s);
}

void InsertarRubroDeRegla(Conexion &con, const RubroOperacion &fila) {
  con.Ejecutar(u"INSERT INTO tblRubrosxOperacion (COD_DATO, CUENTA_DEBE, CUENTA_HABER, COD_POL, "
               "PORCENTAJE, TIPO_MOV, CONC_MOV, SUPR_CERO, COD_REF, TXT_REF, COD_DIARIO, "
               "TXT_DIARIO, COD_CONC, TXT_CONC, SEG_NEG, NUM_SEG, RUBRO_DEBE, RUBRO_HABER, "
               "COD_OPER) VALUES ("_s +
               N(fila.COD_DATO) + u",'"_s + Escapar(fila.CUENTA_DEBE) + u"','"_s +
               Escapar(fila.CUENTA_HABER) + u"',"_s + N(fila.COD_POL) + u",0,0,0,0,0,'','"_s +
               Escapar(fila.COD_DIARIO) + u"','',0,'"_s + Escapar(fila.TXT_CONC.left(30)) +
               u"',0,0,'"_s + Escapar(fila.RUBRO_DEBE) + u"','"_s + Escapar(fila.RUBRO_HABER) +
               u"',"_s + N(fila.COD_OPER) + u" );"_s);
}

std::vector<RubroOperacion> RubrosDeDefinicion(Conexion &con, int codPol) {
  Registros r = con.Abrir(u"SELECT COD_DATO, TXT_CONC, RUBRO_DEBE, RUBRO_HABER, CUENTA_DEBE, "
                          "CUENTA_HABER FROM tblRubrosxOperacion WHERE COD_POL="_s +
                          N(codPol));
  return LeerRubrosOperacion(r, codPol);
}

std::vector<ReglaPosteo> ReglasDeOperacion(Conexion &con, int codOper) {
  Registros r = con.Abrir(u"SELECT * FROM tblOperacionxConcep WHERE COD_OPER="_s + N(codOper) +
                          u" ORDER BY COD_OPER,CONCEPTO;"_s);
  std::vector<ReglaPosteo> reglas;
  for (; !r.Fin(); r.Siguiente()) {
    // The rule's own MODULO isn't read: the run takes the module of the tree's node.
    ReglaPosteo regla;
    regla.COD_POL = static_cast<int>(r.Campo(u"COD_POL"_s).Entero());
    regla.COD_OPER = codOper;
    regla.CONCEPTO = r.Campo(u"CONCEPTO"_s).Texto();
    regla.TIP_POLIZA = r.Campo(u"TIP_POLIZA"_s).Texto();
    regla.FREC = static_cast<int>(r.Campo(u"FREC"_s).Entero());
    reglas.push_back(regla);
  }
  return reglas;
}

bool GeneraConcepto(Conexion &con, int codOper) {
  Registros r = con.Abrir(u"SELECT GENERA_CON FROM tblCatOperaciones WHERE COD_OPER="_s +
                          N(codOper) + u";"_s);
  return r.Campo(u"GENERA_CON"_s).Logico();
}

std::vector<RubroOperacion> RubrosDeRegla(Conexion &con, int codPol) {
  Registros r = con.Abrir(u"SELECT * FROM tblRubrosxOperacion WHERE COD_POL="_s + N(codPol) +
                          u" ORDER BY ORDEN_CREA;"_s);
  return LeerRubrosOperacion(r, codPol);
}

std::optional<DatoOperacion> LeerDato(Conexion &con, int codDato) {
  Registros r = con.Abrir(u"SELECT DES_DATO,CAMPO_ESTBD FROM tblDatosxOperacion WHERE COD_DATO="_s +
                          N(codDato) + u";"_s);
  if (r.Vacio())
    return std::nullopt;
  return DatoOperacion{r.Campo(u"DES_DATO"_s).Texto(),
                       static_cast<int>(r.Campo(u"CAMPO_ESTBD"_s).Entero())};
}

// ------------------------------------------------------------------ rubros

std::optional<QString> CuentaDeRubro(Conexion &con, const QString &codRubro) {
  Registros r = con.Abrir(u"SELECT CUENTA_RUBRO FROM tblCatRubros WHERE COD_RUBRO='"_s +
                          Escapar(codRubro) + u"';"_s);
  if (r.Vacio())
    return std::nullopt;
  return r.Campo(u"CUENTA_RUBRO"_s).Texto();
}

std::optional<QString> DescripcionDeRubro(Conexion &con, const QString &codRubro) {
  Registros r = con.Abrir(u"SELECT DES_RUBRO FROM tblCatRubros WHERE COD_RUBRO='"_s +
                          Escapar(codRubro) + u"'"_s);
  if (r.Vacio())
    return std::nullopt;
  return r.Campo(u"DES_RUBRO"_s).Texto();
}

std::vector<RubroCatalogo> RubrosSeleccionables(Conexion &con) {
  Registros r = con.Abrir(u"SELECT COD_RUBRO,DES_RUBRO, CUENTA_RUBRO FROM tblCatRubros WHERE "
                          "ULTIMO_RUBRO='S' ORDER BY DES_RUBRO"_s);
  std::vector<RubroCatalogo> rubros;
  for (; !r.Fin(); r.Siguiente())
    rubros.push_back(LeerRubroCatalogo(r));
  return rubros;
}

std::optional<RubroCatalogo> RubroSeleccionable(Conexion &con, const QString &codRubro) {
  return PrimerRubro(con, u"SELECT COD_RUBRO, DES_RUBRO,CUENTA_RUBRO FROM tblCatRubros WHERE "
                          "COD_RUBRO='"_s +
                              Escapar(codRubro) + u"'  AND ULTIMO_RUBRO='S'"_s);
}

std::optional<RubroCatalogo> BuscarRubroSeleccionable(Conexion &con, const QString &texto) {
  if (std::optional<RubroCatalogo> r = RubroSeleccionable(con, texto))
    return r;
  if (std::optional<RubroCatalogo> r =
          PrimerRubro(con, u"SELECT COD_RUBRO, DES_RUBRO, CUENTA_RUBRO FROM tblCatRubros WHERE "
                           "CUENTA_RUBRO='"_s +
                               Escapar(texto) + u"'  AND ULTIMO_RUBRO='S'"_s))
    return r;
  return PrimerRubro(con, u"SELECT COD_RUBRO, DES_RUBRO, CUENTA_RUBRO FROM tblCatRubros WHERE "
                          "DES_RUBRO LIKE '"_s +
                              Escapar(texto) + u"%'  AND ULTIMO_RUBRO='S'"_s);
}

// ------------------------------------------------------------------ journal types

std::vector<TipoPoliza> LeerTiposPoliza(Conexion &con) {
  Registros r = con.Abrir(u"SELECT COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM FROM tblFolios;"_s);
  std::vector<TipoPoliza> tipos;
  for (; !r.Fin(); r.Siguiente())
    tipos.push_back({r.Campo(u"COD_FOLIO"_s).Texto(), r.Campo(u"DES_FOLIO"_s).Texto(),
                     r.Campo(u"FOL_FOLIOS"_s).Texto(), r.Campo(u"COD_NUM"_s).Texto()});
  return tipos;
}

int DiarioDeFolio(Conexion &con, const QString &codFolio) {
  Registros r =
      con.Abrir(u"SELECT COD_NUM FROM tblFolios WHERE COD_FOLIO='"_s + Escapar(codFolio) + u"'"_s);
  if (r.Vacio())
    return 0;
  return static_cast<int>(r.Campo(u"COD_NUM"_s).Entero());
}

bool GrabarTipoPoliza(Conexion &con, const QString &codFolio, const QString &folFolios,
                      const QString &codNum) {
  Registros r = con.Abrir(u"SELECT COD_FOLIO FROM tblFolios WHERE COD_FOLIO='"_s +
                          Escapar(codFolio) + u"';"_s);
  if (r.Vacio())
    return false;
  // COD_NUM goes in bare: an empty code breaks the statement.
  con.Ejecutar(u"UPDATE tblFolios SET FOL_FOLIOS='"_s + Escapar(folFolios) + u"',COD_NUM="_s +
               codNum + u" WHERE (COD_FOLIO='"_s + Escapar(codFolio) + u"');"_s);
  return true;
}

// ------------------------------------------------------------------ bank accounts

std::optional<QString> RubroDeCuentaBancaria(Conexion &con, const QString &numCuenta) {
  Registros r = con.Abrir(u"SELECT COD_RUBRO FROM tblCatCtasBancos WHERE NUM_CUENTA='"_s +
                          Escapar(numCuenta) + u"';"_s);
  if (r.Vacio())
    return std::nullopt;
  return r.Campo(u"COD_RUBRO"_s).Texto();
}

bool RubroTieneCuentaBancaria(Conexion &con, const QString &codRubro) {
  Registros r = con.Abrir(u"SELECT COD_RUBRO FROM tblCatCtasBancos WHERE COD_RUBRO='"_s +
                          Escapar(codRubro) + u"'"_s);
  return !r.Vacio();
}
