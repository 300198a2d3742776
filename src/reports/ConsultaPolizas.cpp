#include "reports/ConsultaPolizas.h"

#include "config/Reglas.h"
#include "reports/Lienzo.h"
#include "shell/Dialecto.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

#include <QFile>
#include <QTime>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

QString Monto(Dinero d) { return d.Formato(u"#,##0.00"); }
QString Dia(const QDate &d) { return d.toString(u"dd/MM/yyyy"_s); }

// The rows of the concept table that stand for several operations: each row of the
// statement gives its own operation, with one code for all.
struct FuenteOperaciones {
  const char *sql;
  const char *codigo;
};

} // namespace

QString FechaEncabezado(const QDate &fecha) {
  static const char *const kMeses[] = {"ene", "feb", "mar", "abr", "may", "jun",
                                       "jul", "ago", "sep", "oct", "nov", "dic"};
  return u"%1/%2/%3"_s.arg(fecha.day(), 2, 10, QLatin1Char('0'))
      .arg(QLatin1String(kMeses[fecha.month() - 1]))
      .arg(fecha.year());
}

EncabezadoEmpresa LeerEncabezadoEmpresa(Conexion &con) {
  EncabezadoEmpresa e;
  Registros r = con.Abrir(u"SELECT * FROM tblEmpresa;"_s);
  if (r.Vacio())
    return e;
  e.nombre = r.Campo(u"NOM_EMP"_s).Texto();
  e.direccion = r.Campo(u"DIR1_EMP"_s).Texto();
  e.rfc = r.Campo(u"RFC1_EMP"_s).Texto();
  e.telefonos = r.Campo(u"TEL1_EMP"_s).Texto() + u" "_s + r.Campo(u"TEL2_EMP"_s).Texto();
  return e;
}

QList<ConceptoMovimiento> CargarConceptos(Conexion &con) {
  QList<ConceptoMovimiento> tabla;
  const auto porOperacion = [&](const char *sql, const char *codigo) {
    for (Registros r = con.Abrir(QLatin1String(sql)); !r.Fin(); r.Siguiente())
      tabla.append({static_cast<int>(r.Campo(u"COD_OPER"_s).Entero()), QLatin1String(codigo),
                    r.Campo(u"DES_OPER"_s).Texto()});
  };
  const auto deCatalogo = [&](int operacion) {
    const CatalogoConceptos *c = CatalogoDeConceptos(operacion);
    for (Registros r = con.Abrir(ListaDeConceptos(*c)); !r.Fin(); r.Siguiente())
      tabla.append({operacion, r.Campo(QLatin1String(c->codigo)).Texto(),
                    r.Campo(QLatin1String(c->descripcion)).Texto()});
  };
  porOperacion("SELECT COD_OPER,DES_OPER FROM tblCatOperaciones WHERE COD_OPER IN(1,2) ", "NVEN");
  for (int operacion : {3, 4, 5, 6, 7})
    deCatalogo(operacion);
  porOperacion("SELECT COD_OPER,DES_OPER FROM tblCatOperaciones WHERE COD_OPER IN(8,9) ", "DCLI");
  for (int operacion : {10, 11})
    deCatalogo(operacion);
  porOperacion("SELECT COD_OPER,DES_OPER FROM tblCatOperaciones WHERE COD_OPER IN(12,13,14,15) ",
               "RECP");
  porOperacion("SELECT COD_OPER,DES_OPER FROM tblCatOperaciones WHERE COD_OPER IN(16,17,18) ",
               "DEVO");
  for (int operacion : {20, 21, 22, 23, 24, 25})
    deCatalogo(operacion);
  porOperacion("SELECT COD_OPER,DES_OPER FROM tblCatOperaciones WHERE COD_OPER IN(27,28,29) ",
               "CHQE");
  for (Registros r = con.Abrir(u"SELECT DES_OPER FROM tblCatOperaciones WHERE COD_OPER=29 "_s);
       !r.Fin(); r.Siguiente())
    tabla.append({29, u"IFIS"_s, r.Campo(u"DES_OPER"_s).Texto()});
  deCatalogo(30);
  return tabla;
}

QString DescripcionConcepto(const QList<ConceptoMovimiento> &tabla, int operacion,
                            const QString &concepto) {
  for (const ConceptoMovimiento &c : tabla)
    if (c.operacion == operacion && c.concepto == concepto)
      return c.descripcion;
  return {};
}

ReporteConsulta::ReporteConsulta(Conexion &con, Lienzo &lienzo, EncabezadoEmpresa empresa,
                                 QList<ConceptoMovimiento> conceptos, QString carpetaTemporal,
                                 QDate hoy)
    : con_(con), lienzo_(lienzo), empresa_(std::move(empresa)), conceptos_(std::move(conceptos)),
      carpeta_(std::move(carpetaTemporal)), hoy_(hoy) {}

void ReporteConsulta::ArmarFiltros(const OpcionesConsulta &opciones) {
  op_ = opciones;
  renglon_ = 0;
  columnaOrden_.clear();
  etiquetaGrupo_.clear();
  filtroFolio_.clear();
  filtro_.clear();
  filtroTipo_.clear();
  filtroEstado_.clear();
  const QString &m = op_.modulo;
  const QString &o = op_.operacion;
  if (!op_.folio.isEmpty())
    filtroFolio_ = u"tblPolizasEnc.FOL_POLIZA='"_s + Escapar(op_.folio) + u"'"_s;
  // The module counts only without an operation and a folio; a folio turns it off.
  const QString tabla = op_.relacion ? u"tblPolizasEnc"_s : u"tblMovimxPoliza"_s;
  const QString modulo = op_.relacion ? u"tblCatOperaciones"_s : u"tblMovimxPoliza"_s;
  if (!m.isEmpty() && o.isEmpty() && filtroFolio_.isEmpty())
    filtro_ = u" AND "_s + modulo + u".MODULO="_s + m + u" "_s;
  else if (!o.isEmpty() && filtroFolio_.isEmpty())
    filtro_ = u" AND "_s + tabla + u".COD_OPER="_s + o + u" "_s;
  else if (!filtroFolio_.isEmpty() && o.isEmpty())
    filtro_ = u" AND "_s + filtroFolio_;
  else if (!filtroFolio_.isEmpty())
    filtro_ = u" AND "_s + tabla + u".COD_OPER="_s + o + u" AND "_s + filtroFolio_;
  if (op_.relacion) {
    const char *const columnas[] = {"tblPolizasEnc.TIP_POLIZA", "tblPolizasEnc.FEC_POLIZA",
                                    "tblPolizasEnc.CONCEP_POL"};
    const char *const etiquetas[] = {"Tipo: ", "Fecha: ", "Concepto: "};
    columnaOrden_ = QLatin1String(columnas[op_.orden]);
    etiquetaGrupo_ = QLatin1String(etiquetas[op_.orden]);
  } else {
    filtroEstado_ =
        op_.contabilizados ? u"tblPolizasEnc.ESTATUS = 1"_s : u"tblPolizasEnc.ESTATUS = 0"_s;
    if (op_.orden == 1) {
      columnaOrden_ = u"tblMovimxPoliza.FECHA_MOV"_s;
      etiquetaGrupo_ = u"Fecha: "_s;
    } else if (op_.orden == 2) {
      columnaOrden_ = u"tblMovimxPoliza.COD_OPER, tblMovimxPoliza.CONCEPTO"_s;
      etiquetaGrupo_ = u"Concepto: "_s;
    }
    filtro_ += u" AND "_s + filtroEstado_;
  }
  if (!op_.tipo.isEmpty())
    filtroTipo_ = u" AND tblPolizasEnc.TIP_POLIZA='"_s + Escapar(op_.tipo) + u"' "_s;
}

QString ReporteConsulta::ArchivoPagina(int pagina) const {
  return carpeta_ + u"/"_s + idReporte_ + u"_"_s + QString::number(pagina) + u".emf"_s;
}

void ReporteConsulta::GenerarReporte() {
  lienzo_.IniciarPagina();
  pagina_ = 1;
  idReporte_ = QTime::currentTime().toString(u"hhmmss"_s) + u"0"_s;
  if (op_.relacion) {
    EncabezadoRelacion();
    if (op_.detallado)
      RelacionDetallada();
    else
      RelacionResumida();
  } else {
    EncabezadoMovimientos();
    ReporteMovimientos();
  }
  lienzo_.TerminarPagina();
  lienzo_.GuardarPagina(ArchivoPagina(pagina_));

  // Now that their count is known, the pages are numbered on top of what they hold.
  lienzo_.IniciarPagina();
  lienzo_.Estado() = EstadoDibujo{8, false, false, true, 0};
  for (int i = 1; i <= pagina_; ++i) {
    lienzo_.CargarPagina(ArchivoPagina(i));
    lienzo_.DibujarTexto(7000, 720, u"Página  : %1 / %2"_s.arg(i).arg(pagina_));
    QFile::remove(ArchivoPagina(i));
    if (i < pagina_)
      lienzo_.NuevaPagina();
  }
  lienzo_.TerminarPagina();
}

void ReporteConsulta::Letra(int tamano, bool negrita, bool azul) {
  EstadoDibujo &e = lienzo_.Estado();
  e.tamano = tamano;
  e.negrita = negrita;
  e.azul = azul;
}

void ReporteConsulta::EncabezadoPagina(const QString &titulo) {
  const int y = renglon_;
  lienzo_.GuardarEstado();
  lienzo_.Estado() = EstadoDibujo{8, false, false, true, 0};
  lienzo_.DibujarTexto(0, y, u"Empresa   :"_s + empresa_.nombre);
  lienzo_.DibujarTexto(0, y + 240, u"Dirección :"_s + empresa_.direccion);
  lienzo_.DibujarTexto(0, y + 480, u"R.F.C.    :"_s + empresa_.rfc);
  lienzo_.DibujarTexto(0, y + 720, u"Teléfonos :"_s + empresa_.telefonos);
  lienzo_.Recuadro(6900, y + 240, 2500, 200);
  lienzo_.DibujarTexto(7000, y, u"Reporte :"_s + titulo);
  lienzo_.DibujarTexto(7000, y + 480, u"Fecha   :"_s + FechaEncabezado(hoy_));
  lienzo_.Linea(0, y + 960, Lienzo::kAncho, y + 960);
  lienzo_.Linea(0, y + 1000, Lienzo::kAncho, y + 1000);
  lienzo_.RestaurarEstado();
  renglon_ = 1100;
}

void ReporteConsulta::SaltoPagina(int tipo) {
  renglon_ = 0;
  lienzo_.TerminarPagina();
  lienzo_.GuardarPagina(ArchivoPagina(pagina_));
  ++pagina_;
  if (avance)
    avance(pagina_);
  lienzo_.IniciarPagina();
  // Both reports get the journal list's headers on the pages that follow.
  if (tipo == 1 || tipo == 2)
    EncabezadoRelacion();
}

void ReporteConsulta::Avanzar(int alto, int tipo) {
  renglon_ += alto;
  if (renglon_ > Lienzo::kFinPagina) {
    SaltoPagina(tipo);
    lienzo_.Estado().tamano = 7;
  }
}

void ReporteConsulta::EncabezadoRelacion() {
  EncabezadoPagina(u"Relación de Pólizas"_s);
  lienzo_.GuardarEstado();
  Letra(10, true, true);
  lienzo_.DibujarTexto(0, renglon_, u"Fecha"_s);
  lienzo_.DibujarTexto(1600, renglon_, u"Folio"_s);
  lienzo_.DibujarTexto(2600, renglon_, u"Diario"_s);
  lienzo_.DibujarTexto(3900, renglon_, u"Concepto"_s);
  if (op_.detallado) {
    renglon_ += 250;
    lienzo_.DibujarTexto(3900, renglon_, u"Cuenta"_s);
    lienzo_.DibujarTexto(7500, renglon_, u"Debe"_s);
    lienzo_.DibujarTexto(9300, renglon_, u"Haber"_s);
  } else {
    lienzo_.DibujarTexto(6800, renglon_, u"Total Debe"_s);
    lienzo_.DibujarTexto(8600, renglon_, u"Total Haber"_s);
  }
  renglon_ += 250;
  lienzo_.Linea(0, renglon_, Lienzo::kAncho, renglon_);
  renglon_ += 300;
  lienzo_.RestaurarEstado();
}

QString ReporteConsulta::SentenciaRelacion(bool detallada) const {
  const Dialecto &d = con_.Dialecto();
  const QString periodo = u" WHERE FEC_POLIZA BETWEEN "_s + d.FechaSQL(op_.del) + u" AND "_s +
                          d.FechaSQL(op_.al) + filtroTipo_ + filtro_;
  if (!detallada)
    return u"SELECT tblPolizasEnc.FEC_POLIZA, tblPolizasEnc.FOL_POLIZA, tblPolizasEnc.TIP_POLIZA, "
           "tblPolizasEnc.COD_OPER, tblPolizasEnc.CONCEP_POL, tblPolizasEnc.SUM_DEBE, "
           "tblPolizasEnc.SUM_HABER, tblCatOperaciones.DES_OPER FROM tblPolizasEnc INNER JOIN "
           "tblCatOperaciones ON tblPolizasEnc.COD_OPER=tblCatOperaciones.COD_OPER"_s +
           periodo + u" ORDER BY "_s + columnaOrden_ + u",tblPolizasEnc.FOL_POLIZA"_s;
  // The lines join on the folio alone, and a line reaches its rubro by either account.
  return u"SELECT tblPolizasEnc.FEC_POLIZA, tblPolizasEnc.FOL_POLIZA, tblPolizasEnc.TIP_POLIZA, "
         "tblPolizasEnc.COD_OPER, tblPolizasEnc.CONCEP_POL, tblPolizasEnc.SUM_DEBE, "
         "tblPolizasEnc.SUM_HABER, tblPolizasRen.CUENTA_DEBE, tblPolizasRen.CUENTA_HABER, "
         "tblPolizasRen.IMP_DEBE, tblPolizasRen.IMP_HABER, tblCatOperaciones.DES_OPER, "
         "tblCatRubros.DES_RUBRO FROM ((tblPolizasEnc INNER JOIN tblPolizasRen ON "
         "tblPolizasEnc.FOL_POLIZA=tblPolizasRen.FOL_POLIZA) INNER JOIN tblCatRubros ON "
         "(tblCatRubros.CUENTA_RUBRO=tblPolizasRen.CUENTA_HABER) OR "
         "(tblCatRubros.CUENTA_RUBRO=tblPolizasRen.CUENTA_DEBE)) INNER JOIN tblCatOperaciones ON "
         "tblPolizasEnc.COD_OPER=tblCatOperaciones.COD_OPER"_s +
         periodo + u" ORDER BY "_s + columnaOrden_ + u" ,tblPolizasEnc.FOL_POLIZA"_s;
}

void ReporteConsulta::CerrarGrupo(Dinero &debe, Dinero &haber, Dinero &totalDebe,
                                  Dinero &totalHaber) {
  renglon_ += 250;
  lienzo_.Estado().negrita = true;
  lienzo_.Estado().alineacion = 2;
  lienzo_.Linea(6500, renglon_, Lienzo::kAncho, renglon_);
  lienzo_.DibujarTexto(8000, renglon_, u"TOTAL "_s + Monto(debe));
  lienzo_.DibujarTexto(9900, renglon_, Monto(haber));
  totalDebe += debe;
  totalHaber += haber;
  debe = haber = Dinero();
  Letra(7, false, false);
  lienzo_.Estado().alineacion = 0;
  renglon_ += 250;
}

void ReporteConsulta::FilaPoliza(const QDate &fecha, const QString &tipo, const QString &folio,
                                 const QString &concepto, Dinero debe, Dinero haber) {
  // The type's column shows the filter's text, not the entry's own type.
  lienzo_.DibujarTexto(0, renglon_, Dia(fecha));
  lienzo_.DibujarTexto(2600, renglon_, op_.textoTipo);
  lienzo_.DibujarTexto(3900, renglon_, concepto.left(32));
  lienzo_.Estado().alineacion = 2;
  lienzo_.DibujarTexto(2200, renglon_, tipo + folio);
  lienzo_.DibujarTexto(8000, renglon_, Monto(debe));
  lienzo_.DibujarTexto(9900, renglon_, Monto(haber));
  lienzo_.Estado().alineacion = 0;
}

namespace {

// What makes a group of the journal list: its value (and, by concept, its operation).
struct Grupo {
  QString valor;
  QString operacion;
  bool operator!=(const Grupo &o) const { return valor != o.valor || operacion != o.operacion; }
};

Grupo GrupoDe(const Registros &r, int orden) {
  switch (orden) {
  case 0:
    return {r.Campo(u"TIP_POLIZA"_s).Texto(), {}};
  case 1:
    return {Dia(r.Campo(u"FEC_POLIZA"_s).Fecha()), {}};
  default:
    return {r.Campo(u"CONCEP_POL"_s).Texto(), r.Campo(u"COD_OPER"_s).Texto()};
  }
}

} // namespace

void ReporteConsulta::Relacion(bool detallada) {
  Letra(7, false, false);
  Dinero grupoDebe, grupoHaber, totalDebe, totalHaber;
  std::optional<Grupo> anterior;
  QString folioAnterior;
  bool primera = true;
  for (Registros r = con_.Abrir(SentenciaRelacion(detallada)); !r.Fin(); r.Siguiente()) {
    const Grupo grupo = GrupoDe(r, op_.orden);
    const QString folio = r.Campo(u"FOL_POLIZA"_s).Texto();
    if (anterior && grupo != *anterior)
      CerrarGrupo(grupoDebe, grupoHaber, totalDebe, totalHaber);
    if (!anterior || grupo != *anterior) {
      Letra(9, true, true);
      // By type the group shows the filter's text, whatever the entries' own type.
      const QString valor = op_.orden == 0 ? op_.textoTipo : grupo.valor;
      lienzo_.DibujarTexto(0, renglon_, etiquetaGrupo_ + valor);
      Letra(7, false, false);
      renglon_ += 250;
    }
    anterior = grupo;
    // In the detailed list an entry comes on as many rows as it has lines: its own row
    // only on the first, and its sums counted there.
    if (!detallada || primera || folio != folioAnterior) {
      const Dinero debe = r.Campo(u"SUM_DEBE"_s).ComoDinero();
      const Dinero haber = r.Campo(u"SUM_HABER"_s).ComoDinero();
      FilaPoliza(r.Campo(u"FEC_POLIZA"_s).Fecha(), r.Campo(u"TIP_POLIZA"_s).Texto(), folio,
                 r.Campo(u"CONCEP_POL"_s).Texto(), debe, haber);
      grupoDebe += debe;
      grupoHaber += haber;
      Avanzar(200, 1);
    }
    primera = false;
    folioAnterior = folio;
    if (detallada) {
      const QString cuentaDebe = r.Campo(u"CUENTA_DEBE"_s).Texto();
      const QString cuenta = cuentaDebe.isEmpty() ? r.Campo(u"CUENTA_HABER"_s).Texto() : cuentaDebe;
      lienzo_.DibujarTexto(3900, renglon_, cuenta + u" "_s + r.Campo(u"DES_RUBRO"_s).Texto());
      const Dinero debe = r.Campo(u"IMP_DEBE"_s).ComoDinero();
      const Dinero haber = r.Campo(u"IMP_HABER"_s).ComoDinero();
      lienzo_.Estado().alineacion = 2;
      if (!debe.EsCero())
        lienzo_.DibujarTexto(8000, renglon_, Monto(debe));
      if (!haber.EsCero())
        lienzo_.DibujarTexto(9900, renglon_, Monto(haber));
      lienzo_.Estado().alineacion = 0;
      Avanzar(200, 1);
    }
  }
  if (!anterior)
    return; // with no rows, the headers alone
  CerrarGrupo(grupoDebe, grupoHaber, totalDebe, totalHaber);
  renglon_ += 200;
  // The group's close left the alignment on the left: the global totals are drawn so.
  Letra(9, true, true);
  lienzo_.DibujarTexto(8000, renglon_, u"TOTAL GLOBAL: "_s + Monto(totalDebe));
  lienzo_.DibujarTexto(9900, renglon_, Monto(totalHaber));
  Letra(7, false, false);
  lienzo_.Estado().alineacion = 0;
  renglon_ += 250;
}

void ReporteConsulta::EncabezadoMovimientos() {
  EncabezadoPagina(op_.contabilizados ? u"Movimientos Contabilizados"_s
                                      : u"Movimientos no Contabilizados"_s);
  lienzo_.GuardarEstado();
  Letra(9, true, true);
  const std::pair<int, const char16_t *> titulos[] = {
      {0, u"Fecha Mov"}, {1200, u"Folio"},        {2100, u"Operación"},   {4100, u"Concepto"},
      {6300, u"Frec"},   {7600, u"Folio Póliza"}, {9200, u"Fecha Póliza"}};
  for (const auto &[x, titulo] : titulos)
    lienzo_.DibujarTexto(x, renglon_, QString::fromUtf16(titulo));
  renglon_ += 250;
  lienzo_.Linea(0, renglon_, Lienzo::kAncho, renglon_);
  renglon_ += 300;
  lienzo_.RestaurarEstado();
}

void ReporteConsulta::ReporteMovimientos() {
  const Dialecto &d = con_.Dialecto();
  const QString sql =
      u"SELECT tblMovimxPoliza.FOLIO_MOV, tblMovimxPoliza.CONCEPTO, tblMovimxPoliza.MODULO, "
      "tblMovimxPoliza.FREC, tblMovimxPoliza.FECHA_CON, tblMovimxPoliza.FECHA_MOV, "
      "tblMovimxPoliza.COD_OPER,tblMovimxPoliza.FOLIO_POLIZA,tblPolizasEnc.FOL_POLIZA, "
      "tblCatOperaciones.DES_OPER, tblPolizasEnc.TIP_POLIZA FROM (tblMovimxPoliza INNER JOIN "
      "tblPolizasEnc ON tblMovimxPoliza.FOLIO_POLIZA=tblPolizasEnc.FOL_POLIZA) INNER JOIN "
      "tblCatOperaciones ON tblMovimxPoliza.COD_OPER=tblCatOperaciones.COD_OPER  WHERE "
      "tblMovimxPoliza.FECHA_MOV BETWEEN "_s +
      d.FechaSQL(op_.del) + u" AND "_s + d.FechaSQL(op_.al) + filtroTipo_ + filtro_ +
      u" ORDER BY "_s + columnaOrden_ + u",tblMovimxPoliza.FOLIO_MOV"_s;
  Letra(7, false, false);
  bool primera = true;
  QString operacionAnterior, conceptoAnterior;
  QDate fechaAnterior;
  for (Registros r = con_.Abrir(sql); !r.Fin(); r.Siguiente()) {
    const QString operacion = r.Campo(u"COD_OPER"_s).Texto();
    const QString concepto = r.Campo(u"CONCEPTO"_s).Texto();
    const QDate fecha = r.Campo(u"FECHA_MOV"_s).Fecha();
    const QString desOper = r.Campo(u"DES_OPER"_s).Texto();
    const QString descripcion = DescripcionConcepto(conceptos_, operacion.toInt(), concepto);
    if (op_.orden == 2 &&
        (primera || operacion != operacionAnterior || concepto != conceptoAnterior)) {
      Letra(9, true, true);
      lienzo_.DibujarTexto(0, renglon_, u"Operación: "_s + desOper.left(20));
      lienzo_.DibujarTexto(4100, renglon_, etiquetaGrupo_ + descripcion);
      Letra(7, false, false);
      renglon_ += 250;
    } else if (op_.orden == 1 && (primera || fecha != fechaAnterior)) {
      Letra(9, true, true);
      lienzo_.DibujarTexto(0, renglon_, etiquetaGrupo_ + Dia(fecha));
      Letra(7, false, false);
      renglon_ += 250;
    }
    lienzo_.DibujarTexto(0, renglon_, Dia(fecha));
    lienzo_.DibujarTexto(1200, renglon_, r.Campo(u"FOLIO_MOV"_s).Texto());
    lienzo_.DibujarTexto(2100, renglon_, desOper.left(20));
    lienzo_.DibujarTexto(4100, renglon_, descripcion.left(22));
    const qint64 frec = r.Campo(u"FREC"_s).Entero();
    if (frec == 1 || frec == 2)
      lienzo_.DibujarTexto(6300, renglon_,
                           frec == 1 ? u"Póliza por Documento"_s : u"Póliza por Día"_s);
    lienzo_.Estado().alineacion = 2;
    lienzo_.DibujarTexto(8900, renglon_,
                         r.Campo(u"TIP_POLIZA"_s).Texto() + r.Campo(u"FOLIO_POLIZA"_s).Texto());
    lienzo_.DibujarTexto(10500, renglon_, Dia(r.Campo(u"FECHA_CON"_s).Fecha()));
    lienzo_.Estado().alineacion = 0;
    primera = false;
    operacionAnterior = operacion;
    conceptoAnterior = concepto;
    fechaAnterior = fecha;
    Avanzar(200, 2);
  }
}
