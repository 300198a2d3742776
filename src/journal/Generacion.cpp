#include "journal/Generacion.h"

#include "config/Reglas.h"
#include "journal/Arbol.h"
#include "journal/Corrida.h"
#include "journal/Documentos.h"
#include "journal/Polizas.h"
#include "journal/Valores.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Dialecto.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QStringBuilder>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

// A folio taken by another station is tried again this many times before the counter
// is moved on, and given up after the second limit.
constexpr int kIntentosMismoFolio = 40;
constexpr int kIntentosMaximos = 70;
// An insertion that keeps failing on a free folio would loop for ever; after this many
// failures the run ends instead, leaving the counter as it was.
constexpr int kFallasInsercion = 1000;
// The records and stamps of a hundred documents of a day go in one block.
constexpr std::size_t kEscriturasPorLote = 200;

} // namespace

QString MensajeGeneracionEnCurso(const QString &candado) {
  return QStringLiteral("Otra generación de pólizas de esta empresa está en curso (candado %1). "
                        "Espere a que termine e intente de nuevo; no se grabó nada.")
      .arg(candado);
}

int FolioComoNumero(const QString &folio) {
  if (folio.isEmpty())
    return 0;
  bool ok = false;
  const qint64 n = folio.toLongLong(&ok);
  if (!ok || n > std::numeric_limits<int>::max())
    throw ErrorFatal(
        QStringLiteral("Desbordamiento: el folio %1 no cabe en un número entero.").arg(folio));
  return static_cast<int>(n);
}

Generador::Generador(Corrida &corrida, const OpcionesGeneracion &opciones)
    : c_(corrida), op_(opciones) {}

QString Generador::Fecha(const QDateTime &f) const { return c_.Conexion->Dialecto().FechaSQL(f); }

bool Generador::Detenida() {
  if (!detenida_ && detener && detener())
    detenida_ = true;
  return detenida_;
}

void Generador::Avisar(int documento) {
  estado_.documento = documento;
  estado_.documentos = c_.Documentos.Cuenta();
  estado_.polizas = polizas_;
  if (avance)
    avance(estado_);
}

// ------------------------------------------------------------------ the run

void Generador::LeerConceptos(const ArbolOperaciones &arbol) {
  c_.LimpiarConceptos();
  int modulo = 0;
  QString desModulo;
  for (const NodoArbol &nodo : arbol.Nodos()) {
    if (!nodo.marcado)
      continue;
    if (nodo.EsModulo()) {
      modulo = nodo.codigo;
      desModulo = nodo.texto;
      continue;
    }
    for (const ReglaPosteo &regla : ReglasDeOperacion(*c_.Conexion, nodo.codigo)) {
      ConceptoRegla concepto;
      concepto.Modulo = modulo;
      concepto.DesModulo = desModulo;
      concepto.CodOper = nodo.codigo;
      concepto.DesOperacion = TextoFijo(nodo.texto, 40);
      concepto.GeneraCon = GeneraConcepto(*c_.Conexion, nodo.codigo);
      concepto.CodPol = regla.COD_POL;
      concepto.Concepto = regla.CONCEPTO;
      concepto.DesConcepto =
          DescripcionRegla(*c_.Conexion, nodo.codigo, concepto.GeneraCon, regla.CONCEPTO);
      concepto.TipPoliza = regla.TIP_POLIZA;
      concepto.Frec = regla.FREC;
      c_.AgregarConcepto(concepto);
    }
  }
}

const QStringList &TablasDeLectura() {
  static const QStringList tablas = {
      QStringLiteral("tblCatRubros"),        QStringLiteral("tblCatCtasBancos"),
      QStringLiteral("tblDatosxOperacion"),  QStringLiteral("tblCatOperaciones"),
      QStringLiteral("tblRubrosxOperacion"), QStringLiteral("tblImpuestos"),
      QStringLiteral("tblEmpresa")};
  return tablas;
}

namespace {

// The run's memory of reads, for as long as the run lasts, however it ends.
class MemoriaDeLecturas {
public:
  MemoriaDeLecturas(Corrida &corrida, bool activa) : c_(corrida) {
    c_.MemoriaLecturas = activa;
    if (activa)
      c_.Conexion->RecordarLecturas(TablasDeLectura());
  }
  // The dictionary's connection goes with the run, its memory with it, however the run
  // ends: the next one opens it again.
  ~MemoriaDeLecturas() {
    c_.MemoriaLecturas = false;
    c_.Conexion->OlvidarLecturas();
    c_.Referencia.reset();
  }
  MemoriaDeLecturas(const MemoriaDeLecturas &) = delete;
  MemoriaDeLecturas &operator=(const MemoriaDeLecturas &) = delete;

private:
  Corrida &c_;
};

} // namespace

ResultadoGeneracion Generador::GenerarPolizas(const ArbolOperaciones &arbol) {
  const MemoriaDeLecturas memoria(c_, op_.Memoria);
  ResultadoGeneracion resultado;
  c_.FechaInicial = op_.Del;
  c_.FechaFinal = op_.Al;
  LeerConceptos(arbol);
  if (c_.NumConceptos == 0)
    return resultado;
  // One run at a time in a company, from this workstation or another: a second one
  // would take the same documents and post them twice.
  QString candado;
  const std::unique_ptr<Candado> exclusivo =
      c_.Conexion->TomarCandado(QStringLiteral("generacion"), &candado);
  if (!exclusivo) {
    resultado.candado = candado;
    CatalogoMensajes::MostrarTexto(MensajeGeneracionEnCurso(candado), IconoMensaje::Advertencia);
    return resultado;
  }
  if (!Bitacora::ValidarBitacora(op_.Resumen))
    return resultado;
  resultado.corrio = true;
  resultado.bitacora = op_.Resumen;
  c_.HuboPolizas = false;
  polizas_ = 0;
  detenida_ = false;
  bitacora_.AbrirBitacora(*c_.Conexion, op_);
  resultado.bitacoraEscrita = bitacora_.Abierta();
  estado_.reglas = c_.NumConceptos;
  for (int i = 1; i <= c_.NumConceptos && !Detenida(); ++i) {
    c_.ConceptoActual = i;
    CargarReglas(c_);
    const ConceptoRegla &regla = c_.Concepto();
    estado_.regla = i;
    estado_.descripcion =
        regla.DesOperacion.trimmed() + QLatin1Char(' ') + regla.DesConcepto.trimmed();
    Avisar(0);
    bitacora_.EscribirLinea(regla.DesOperacion + QLatin1Char(' ') + regla.DesConcepto);
    if (regla.CodOper >= 24 && regla.CodOper <= 28 && VerificarBancos(c_, c_.NumReglas))
      continue;
    ProcesarConcepto(c_.NumReglas);
  }
  if (detenida_)
    bitacora_.EscribirLinea(
        QStringLiteral("Corrida detenida por el usuario en la regla %1 de %2, tras el "
                       "documento %3 de %4; una nueva corrida contabiliza lo que falta.")
            .arg(QString::number(estado_.regla), QString::number(c_.NumConceptos),
                 QString::number(estado_.documento), QString::number(estado_.documentos)));
  bitacora_.CerrarBitacora();
  resultado.hubo = c_.HuboPolizas;
  resultado.polizas = polizas_;
  resultado.detenida = detenida_;
  if (detenida_)
    CatalogoMensajes::MostrarTexto(
        QStringLiteral("Generación detenida: se grabaron %1 pólizas completas. Una nueva "
                       "corrida contabiliza los documentos que faltan.")
            .arg(polizas_),
        IconoMensaje::Advertencia);
  else if (c_.HuboPolizas)
    CatalogoMensajes::Mostrar(108, {}, IconoMensaje::Informacion);
  else
    CatalogoMensajes::Mostrar(5508, {}, IconoMensaje::Advertencia);
  return resultado;
}

namespace {

// The totals that the documents after the one in work will ask for, foreseen while a rule
// posts: the same query with the key of each of the next documents, or of each of the next
// days, in place of the key in work. A query of a table the run writes (the journal, the
// folios, the stamp) is never foreseen. A foreseen query that is never asked costs a
// little work; one that comes out otherwise simply isn't matched.
class PrevisionDeTotales {
public:
  PrevisionDeTotales(Corrida &corrida, const OpcionesGeneracion &opciones)
      : c_(corrida), op_(opciones) {
    if (Conexion::EnLote())
      c_.Conexion->Prever([this](const QString &sql) { return Prever(sql); });
  }
  ~PrevisionDeTotales() { c_.Conexion->Prever({}); }
  PrevisionDeTotales(const PrevisionDeTotales &) = delete;
  PrevisionDeTotales &operator=(const PrevisionDeTotales &) = delete;

private:
  static constexpr int kPrevistas = 100;

  QStringList Prever(const QString &sql) const {
    static const char16_t *const escritas[] = {u"tblPolizasEnc",   u"tblPolizasRen",
                                               u"tblMovimxPoliza", u"tblBitacoraPolizas",
                                               u"tblFolios",       u"CONTAB"};
    for (const char16_t *tabla : escritas)
      if (sql.contains(QStringView(tabla), Qt::CaseInsensitive))
        return {};
    if (!c_.Documentos.HayActual())
      return {};
    const Dialecto &dialecto = c_.Conexion->Dialecto();
    const bool porDia = c_.PorDia();
    const auto clave = [&](const Documento &d) {
      return porDia ? dialecto.FechaSQL(d.FECHA_DOCTO) : u"'"_s % Escapar(d.FOLIO_DOC) % u"'"_s;
    };
    const std::vector<Documento> &documentos = c_.Documentos.Filas();
    const std::size_t actual = c_.Documentos.Posicion();
    const QString enTrabajo = porDia ? dialecto.FechaSQL(c_.FechaDocumento)
                                     : u"'"_s % Escapar(c_.FolioDocumento) % u"'"_s;
    const qsizetype donde = sql.lastIndexOf(enTrabajo);
    if (donde < 0)
      return {};
    const QStringView antes = QStringView(sql).left(donde);
    const QStringView despues = QStringView(sql).sliced(donde + enTrabajo.size());
    QStringList previstas;
    QDateTime ultimoDia = c_.FechaDocumento;
    for (std::size_t i = actual + 1; i < documentos.size() && previstas.size() < kPrevistas; ++i) {
      const Documento &d = documentos[i];
      if (porDia) {
        // Days come in order: the first document of each later day.
        if (d.FECHA_DOCTO <= ultimoDia)
          continue;
        ultimoDia = d.FECHA_DOCTO;
      } else if (d.ESTA_CONTAB && !op_.Actualizar) {
        continue; // posted before and left alone: it asks nothing
      }
      previstas << antes % clave(d) % despues;
    }
    return previstas;
  }

  Corrida &c_;
  const OpcionesGeneracion &op_;
};

} // namespace

void Generador::ProcesarConcepto(int n) {
  LeerDocumentos(c_);
  const PrevisionDeTotales prevision(c_, op_);
  bool hubo = false;
  switch (c_.Concepto().Frec) {
  case frec::kPorDocumento:
    hubo = PostearPorDocumento(n);
    break;
  case frec::kPorDia:
    hubo = PostearPorDia(n);
    break;
  default:
    break;
  }
  if (!c_.HuboPolizas)
    c_.HuboPolizas = hubo;
}

// ------------------------------------------------------------------ posting

bool Generador::PostearPorDocumento(int n) {
  const ConceptoRegla &regla = c_.Concepto();
  QString folio; // an entry being redone; kept from document to document
  bool hubo = false;
  int hechos = 0;
  if (!c_.Documentos.Vacio())
    c_.Documentos.Primero();
  for (; !c_.Documentos.Fin() && !Detenida(); c_.Documentos.Siguiente()) {
    Documento &doc = c_.Documentos.Actual();
    Avisar(++hechos);
    c_.ImporteAntDebe = Dinero();
    c_.ImporteAntHaber = Dinero();
    CrearRenglones(c_);
    if (doc.ESTA_CONTAB) {
      if (doc.FRECU_CONTAB != frec::kPorDocumento) {
        bitacora_.EscribirLinea(doc.FOLIO_DOC +
                                QStringLiteral(" ya está contabilizado en la póliza ") +
                                regla.TipPoliza + folio + QStringLiteral(" y la frecuencia"));
        bitacora_.EscribirLinea(QStringLiteral(
            "no coincide. Cancele o elimine la póliza anterior para poder procesar."));
        continue;
      }
      if (!op_.Actualizar)
        continue;
      folio = RehacerPoliza(doc);
      bitacora_.EscribirLinea(regla.TipPoliza + folio +
                              QStringLiteral(" ya estaba contabilizada. Se actualizó"));
    }
    c_.FolioDocumento = doc.FOLIO_DOC;
    c_.FechaDocumento = doc.FECHA_DOCTO;
    c_.SumaDebe = Dinero();
    c_.SumaHaber = Dinero();
    ParImportes par;
    for (int i = 1; i <= n; ++i) {
      const RenglonRegla &r = c_.Regla(i);
      const Dinero importe = r.CampoEstBd > 0 ? ValorDeCampo(c_, i, c_.FolioDocumento)
                                              : ResolverDato(c_, i, c_.FolioDocumento);
      par.Debe = r.TieneDebe ? Round2(importe) : Dinero();
      par.Haber = r.TieneHaber ? Round2(importe) : Dinero();
      // The amount goes unrounded: a line of 0 stands for an amount below half a cent.
      AgregarRenglon(c_, importe, i, par);
      c_.SumaDebe = Round2(c_.SumaDebe + par.Debe);
      c_.SumaHaber = Round2(c_.SumaHaber + par.Haber);
    }
    CuadrarPoliza(c_, n, par);
    doc.CONTABILIZADO = true;
    GrabarPoliza(c_.FechaDocumento); // a defined date replaces the document's here
    hubo = true;
  }
  return hubo;
}

bool Generador::PostearPorDia(int n) {
  const ConceptoRegla &regla = c_.Concepto();
  QDateTime fechaActual = QDateTime(op_.Del.addDays(-1), QTime(0, 0));
  QString literal;
  QString folio;
  bool hayPoliza = false;
  int hechos = 0;
  std::vector<Conexion::Escritura> delDia; // the records of the day's documents not yet sent
  if (!c_.Documentos.Vacio())
    c_.Documentos.Primero();
  while (!c_.Documentos.Fin()) {
    Documento &doc = c_.Documentos.Actual();
    Avisar(++hechos);
    c_.FolioDocumento = doc.FOLIO_DOC;
    c_.FechaDocumento = doc.FECHA_DOCTO;
    bool publicar = false;
    if (doc.FECHA_DOCTO > fechaActual) {
      // A new day: the first document decides for all of it. The day before is
      // confirmed whole, its entry and the records of all its documents, before its log.
      ConfirmarDia(delDia, hayPoliza ? folio : QString());
      if (hayPoliza)
        bitacora_.EscribirPoliza(*c_.Conexion, folio, regla);
      // The day before is whole: a stop asked for during it takes effect here.
      if (Detenida()) {
        estado_.documento = hechos - 1;
        return hayPoliza;
      }
      CrearRenglones(c_);
      c_.SumaDebe = Dinero();
      c_.SumaHaber = Dinero();
      // The earlier amounts aren't reset: a redo carries them into the following days.
      fechaActual = doc.FECHA_DOCTO;
      literal = Fecha(fechaActual);
      if (!doc.ESTA_CONTAB) {
        publicar = true;
      } else if (doc.FRECU_CONTAB == frec::kPorDia && op_.Actualizar) {
        folio = RehacerPoliza(doc);
        bitacora_.EscribirLinea(folio + QStringLiteral(" ya estaba contabilizada. Se actualizó"));
        publicar = true;
      } else if (doc.FRECU_CONTAB == frec::kPorDia) {
        // Skip the day: on to the first document of a later day.
        while (!c_.Documentos.Fin() && c_.Documentos.Actual().FECHA_DOCTO <= fechaActual)
          c_.Documentos.Siguiente();
        if (c_.Documentos.Fin())
          return false; // without the last entry's log, whatever was posted before
                        // (the day before was confirmed when this one began)
        continue;
      } else {
        folio = doc.FOLIO_POLIZA;
        bitacora_.EscribirLinea(doc.FOLIO_DOC +
                                QStringLiteral(" ya está contabilizado en la póliza ") + folio +
                                QStringLiteral(" y la frecuencia"));
        bitacora_.EscribirLinea(QStringLiteral("no coincide. No se incluyó en la póliza diaria."));
        c_.Documentos.Siguiente();
        continue;
      }
    }
    if (publicar) {
      ParImportes par;
      for (int i = 1; i <= n; ++i) {
        const RenglonRegla &r = c_.Regla(i);
        Dinero importe =
            r.CampoEstBd > 0 ? ValorDeCampo(c_, i, literal) : ResolverDato(c_, i, literal);
        importe = Round2(importe); // by day the amount is rounded before anything else
        par.Debe = r.TieneDebe ? importe : Dinero();
        par.Haber = r.TieneHaber ? importe : Dinero();
        AgregarRenglon(c_, importe, i, par);
        if (r.TieneDebe)
          c_.SumaDebe = Round2(c_.SumaDebe + importe);
        if (r.TieneHaber)
          c_.SumaHaber = Round2(c_.SumaHaber + importe);
      }
      CuadrarPoliza(c_, n, par);
      folio = GrabarPoliza(c_.FechaDocumento);
      hayPoliza = true;
    }
    // Tie the document to the day's entry.
    Documento &actual = c_.Documentos.Actual();
    actual.CONTABILIZADO = true;
    if (hayPoliza) {
      GrabarMovimiento(
          folio, op_.DefinirFecha ? QDateTime(op_.FechaDefinida, QTime(0, 0)) : c_.FechaDocumento,
          delDia);
      // The documents of a day ask nothing until the next day begins: in batches their
      // records go together, a hundred documents at most, and before the day is confirmed.
      if (!Conexion::EnLote() || delDia.size() >= kEscriturasPorLote)
        EscribirDelDia(delDia);
    }
    c_.Documentos.Siguiente();
  }
  ConfirmarDia(delDia, hayPoliza ? folio : QString());
  if (hayPoliza)
    bitacora_.EscribirPoliza(*c_.Conexion, folio, regla);
  return hayPoliza;
}

// ------------------------------------------------------------------ persistence

void Generador::EscribirDelDia(std::vector<Conexion::Escritura> &pasos) {
  c_.Conexion->EjecutarEscrituras(pasos);
  pasos.clear();
}

void Generador::ConfirmarDia(std::vector<Conexion::Escritura> &pasos, const QString &folio) {
  // With the confirmation go the reads of the day's log, where the server takes them.
  c_.Conexion->ConfirmarConEscrituras(
      pasos, folio.isEmpty() ? QStringList() : Bitacora::LecturasDePoliza(folio, c_.Concepto()));
  pasos.clear();
}

QString Generador::RehacerPoliza(const Documento &doc) {
  c_.FechaAnterior = doc.FECHA_CONTAB;
  c_.ImporteAntDebe = Round2(doc.SUMADEBE_ANT);
  c_.ImporteAntHaber = Round2(doc.SUMAHABER_ANT);
  // The entry's writes begin with its old lines going; GrabarPoliza, or the end of the
  // day, confirms them with the rest.
  c_.Conexion->IniciarTransaccion();
  c_.Conexion->Ejecutar(
      QStringLiteral("DELETE FROM tblPolizasRen WHERE FOL_POLIZA='%1' AND TIP_POLIZA='%2';")
          .arg(Escapar(doc.FOLIO_POLIZA), Escapar(c_.Concepto().TipPoliza)));
  return doc.FOLIO_POLIZA;
}

QString Generador::SiguienteFolio(int concepto) {
  const QString tipo = c_.Conceptos[static_cast<std::size_t>(concepto)].TipPoliza;
  const QString sql = u"SELECT * FROM tblFolios WHERE COD_FOLIO='"_s % Escapar(tipo) % u"';"_s;
  Registros r = c_.Conexion->Abrir(sql);
  if (r.Vacio())
    return {};
  const QString actual = r.Campo(QStringLiteral("FOL_FOLIOS")).Texto().trimmed();
  bool ok = false;
  const qint64 numero = actual.isEmpty() ? 0 : actual.toLongLong(&ok);
  if (!actual.isEmpty() && !ok)
    throw ErrorFatal(QStringLiteral("No coinciden los tipos: el folio «%1» del tipo %2 no es un "
                                    "número.")
                         .arg(actual, tipo),
                     sql);
  return FormatoFolio(numero + 1);
}

QString Generador::GrabarPoliza(QDateTime &fecha) {
  const ConceptoRegla &regla = c_.Concepto();
  Conexion &con = *c_.Conexion;
  if (op_.DefinirFecha)
    fecha = QDateTime(op_.FechaDefinida, QTime(0, 0));
  const Documento &doc = c_.Documentos.Actual();
  const auto existe = [&regla](const QString &folio) -> QString {
    return u"SELECT FOL_POLIZA FROM tblPolizasEnc WHERE FOL_POLIZA='"_s % Escapar(folio) %
           u"' AND TIP_POLIZA='"_s % Escapar(regla.TipPoliza) % u"';"_s;
  };
  const auto guardarFolio = [&regla](const QString &folio) -> QString {
    return u"UPDATE tblFolios SET FOL_FOLIOS='"_s % Escapar(folio) % u"' WHERE COD_FOLIO='"_s %
           Escapar(regla.TipPoliza) % u"';"_s;
  };
  Poliza p;
  p.FEC_POLIZA = fecha.date();
  p.TIP_POLIZA = regla.TipPoliza;
  p.COD_OPER = regla.CodOper;
  p.IMPANT_DEBE = c_.ImporteAntDebe;
  p.IMPANT_HABER = c_.ImporteAntHaber;
  p.SUM_DEBE = c_.SumaDebe;
  p.SUM_HABER = c_.SumaHaber;
  const bool porDocumento = regla.Frec == frec::kPorDocumento;
  const auto contador = contadores_.constFind(regla.TipPoliza);
  const QString contadorIdentico =
      contador == contadores_.constEnd() || doc.ESTA_CONTAB || con.EnTransaccion() ||
              contador->toLongLong() >= std::numeric_limits<int>::max() || !con.EnBloques()
          ? QString()
          : con.Dialecto().TextoIdentico(
                u"FOL_FOLIOS"_s,
                {u"'"_s % Escapar(*contador) % u"'"_s,
                 u"'"_s % Escapar(QString::number(contador->toLongLong())) % u"'"_s});
  if (!contadorIdentico.isEmpty()) {
    // The run wrote the counter last: the folio that follows is known before it is read.
    // The entry goes in one exchange when the counter still holds it (as text, or as the
    // number a folio is read as) and the folio is free; otherwise it goes the long way,
    // reading the counter. By day the transaction stays open for the day's documents. A
    // folio beyond a whole number goes the long way too: its records end the run, but
    // only once the counter is read.
    const QString folio = FormatoFolio(contador->toLongLong() + 1);
    p.FEC_ANTERIOR = fecha.date();
    p.FOL_POLIZA = folio;
    p.CONCEP_POL = regla.DesConcepto.trimmed();
    p.ESTATUS = 1;
    const QString deTipo =
        u"SELECT * FROM tblFolios WHERE COD_FOLIO='"_s % Escapar(regla.TipPoliza) % u"'"_s;
    const QStringList condiciones = {u"EXISTS ("_s % deTipo % u")"_s,
                                     u"NOT EXISTS ("_s % deTipo %
                                         u" AND (FOL_FOLIOS IS NULL OR NOT "_s % contadorIdentico %
                                         u"))"_s,
                                     u"NOT EXISTS ("_s % existe(folio).chopped(1) % u")"_s};
    std::vector<Conexion::Escritura> pasos;
    pasos.push_back(Conexion::Escritura::Sola(SentenciaInsertarPoliza(p, con.Dialecto())));
    pasos.push_back(Conexion::Escritura::Sola(guardarFolio(folio)));
    GrabarResto(folio, fecha, pasos);
    const bool grabada =
        porDocumento
            ? con.ConfirmarEnUnBloque(condiciones, pasos, Bitacora::LecturasDePoliza(folio, regla))
            : con.IniciarEnUnBloque(condiciones, pasos);
    if (grabada) {
      ++polizas_;
      escritas_.emplace_back(regla.TipPoliza, folio);
      contadores_.insert(regla.TipPoliza, folio);
      if (porDocumento)
        bitacora_.EscribirPoliza(con, folio, regla);
      return folio;
    }
  }
  QString folio;
  // By document the entry is confirmed here; by day, with the last document of its day.
  con.IniciarTransaccion();
  if (!doc.ESTA_CONTAB) {
    contadores_.remove(regla.TipPoliza);
    p.FEC_ANTERIOR = fecha.date();
    folio = SiguienteFolio(c_.ConceptoActual);
    int afectados = 0;
    int fallas = 0;
    for (int intentos = 1; afectados == 0; ++intentos) {
      const bool libre = con.Abrir(existe(folio)).Vacio();
      if (libre) {
        p.FOL_POLIZA = folio;
        p.CONCEP_POL = regla.DesConcepto.trimmed();
        p.ESTATUS = 1;
        const QString sql = SentenciaInsertarPoliza(p, con.Dialecto());
        if (!con.IntentarEjecutar(sql, &afectados) && ++fallas >= kFallasInsercion)
          throw ErrorFatal(QStringLiteral("La póliza %1%2 no pudo insertarse después de %3 "
                                          "intentos; el consecutivo de folios no se tocó.")
                               .arg(regla.TipPoliza, folio)
                               .arg(kFallasInsercion),
                           sql);
        continue;
      }
      // Taken: give the station that holds the counter time to finish, then go on
      // one number a try.
      if (intentos <= kIntentosMismoFolio)
        continue;
      con.Ejecutar(guardarFolio(folio));
      folio = SiguienteFolio(c_.ConceptoActual);
      if (intentos > kIntentosMaximos) {
        bitacora_.EscribirLinea(
            QStringLiteral("No fue posible agregar póliza de tipo ") +
            NombreTipoPoliza(regla.TipPoliza) +
            QStringLiteral(" debido a un problema en el consecutivo de folios"));
        if (porDocumento)
          con.ConfirmarTransaccion(); // the counter stays where the tries left it
        return {};
      }
    }
  }
  // The rest of the entry's writes go together: on a server that runs blocks, in one.
  std::vector<Conexion::Escritura> pasos;
  if (!doc.ESTA_CONTAB) {
    pasos.push_back(Conexion::Escritura::Sola(guardarFolio(folio)));
  } else {
    folio = doc.FOLIO_POLIZA;
    p.FEC_ANTERIOR = c_.FechaAnterior.date();
    // The entry vanished while its document still names it: it is made again.
    Poliza nueva = p;
    nueva.FOL_POLIZA = folio;
    nueva.CONCEP_POL = regla.DesConcepto.trimmed();
    nueva.ESTATUS = -1;
    pasos.push_back(Conexion::Escritura::SegunHaya(
        existe(folio),
        QStringLiteral("UPDATE tblPolizasEnc SET FEC_POLIZA=%1,FEC_ANTERIOR=%2,"
                       "IMPANT_DEBE=%3,IMPANT_HABER=%4,SUM_DEBE=%5,SUM_HABER=%6 WHERE "
                       "FOL_POLIZA='%7' AND TIP_POLIZA='%8';")
            .arg(con.Dialecto().FechaSQL(p.FEC_POLIZA), con.Dialecto().FechaSQL(p.FEC_ANTERIOR),
                 p.IMPANT_DEBE.Texto(), p.IMPANT_HABER.Texto(), p.SUM_DEBE.Texto(),
                 p.SUM_HABER.Texto(), Escapar(folio), Escapar(regla.TipPoliza)),
        SentenciaInsertarPoliza(nueva, con.Dialecto())));
  }
  ++polizas_;
  escritas_.emplace_back(regla.TipPoliza, folio);
  GrabarResto(folio, fecha, pasos);
  con.EjecutarEscrituras(pasos);
  if (!doc.ESTA_CONTAB)
    contadores_.insert(regla.TipPoliza, folio);
  if (porDocumento) {
    con.ConfirmarTransaccion();
    bitacora_.EscribirPoliza(con, folio, regla);
  }
  return folio;
}

void Generador::GrabarResto(const QString &folio, const QDateTime &fecha,
                            std::vector<Conexion::Escritura> &pasos) {
  GrabarRenglones(folio, pasos);
  GrabarBitacora(folio, fecha, pasos);
  if (c_.Concepto().Frec == frec::kPorDocumento)
    GrabarMovimiento(folio, fecha, pasos);
}

void Generador::GrabarRenglones(const QString &folio, std::vector<Conexion::Escritura> &pasos) {
  const QString tipo = c_.Concepto().TipPoliza;
  QStringList valores;
  for (const RenglonEnTrabajo &r : c_.Renglones.Filas()) {
    if (!r.RUBRO_DEBE.isEmpty())
      valores << ValoresRenglonDebe(folio, tipo, static_cast<int>(r.COD_DATO), r.RUBRO_DEBE,
                                    r.CUENTA_DEBE, r.IMP_DEBE);
    if (!r.RUBRO_HABER.isEmpty())
      valores << ValoresRenglonHaber(folio, tipo, static_cast<int>(r.COD_DATO), r.RUBRO_HABER,
                                     r.CUENTA_HABER, r.IMP_HABER);
  }
  // In batches the lines go a few hundred a statement (SQL Server takes a thousand rows at
  // most). A statement refused inside a transaction still standing goes again a line at a
  // time, and the line refused stops the run as it always did; one that took the whole
  // transaction with it stops the run at once.
  const qsizetype porSentencia = Conexion::EnLote() ? 500 : 1;
  for (qsizetype desde = 0; desde < valores.size(); desde += porSentencia) {
    const QStringList estos = valores.mid(desde, porSentencia);
    Conexion::Escritura paso = Conexion::Escritura::Sola(SentenciaRenglones(estos));
    if (estos.size() > 1)
      for (const QString &v : estos)
        paso.porPartes << SentenciaRenglones({v});
    pasos.push_back(std::move(paso));
  }
}

void Generador::GrabarBitacora(const QString &folio, const QDateTime &fecha,
                               std::vector<Conexion::Escritura> &pasos) {
  const ConceptoRegla &regla = c_.Concepto();
  Conexion &con = *c_.Conexion;
  const QString modulo = QString::number(regla.Modulo);
  const QString oper = QString::number(regla.CodOper);
  const QString donde = u"MODULO="_s % modulo % u" AND COD_OPER="_s % oper %
                        u" AND COD_CONCEP='"_s % Escapar(regla.Concepto) % u"' AND FOL_POLIZA='"_s %
                        Escapar(folio) % u"';"_s;
  const QString hoy = con.Dialecto().FechaSQL(Hoy());
  const QString ahora = con.Dialecto().FechaHoraSQL(Ahora());
  // The row is updated when there is one; the log table is no reason to stop, so a failed
  // insertion is dropped.
  Conexion::Escritura paso;
  paso.consulta = u"SELECT COD_OPER FROM tblBitacoraPolizas WHERE "_s % donde;
  paso.sql = u"UPDATE tblBitacoraPolizas SET FEC_MOVIM="_s % Fecha(fecha) % u",FEC_GENERA="_s %
             hoy % u",HR_GENERA="_s % ahora % u",SUMA_DEBE="_s % c_.SumaDebe.Texto() %
             u",SUMA_HABER="_s % c_.SumaHaber.Texto() % u",USU_ACTUALIZO='"_s % Escapar(gCodUsu) %
             u"' WHERE "_s % donde;
  paso.otra = u"INSERT INTO tblBitacoraPolizas (MODULO,COD_OPER,COD_CONCEP,FEC_MOVIM,FOL_POLIZA,"
              "TIP_POLIZA,FEC_GENERA,HR_GENERA,SUMA_DEBE,SUMA_HABER,USU_GENERA,USU_ACTUALIZO,"
              "IMPRESA,ESTATUS) VALUES ("_s %
              modulo % u","_s % oper % u",'"_s % Escapar(regla.Concepto) % u"',"_s % Fecha(fecha) %
              u",'"_s % Escapar(folio) % u"','"_s % Escapar(regla.TipPoliza) % u"',"_s % hoy %
              u","_s % ahora % u","_s % c_.SumaDebe.Texto() % u","_s % c_.SumaHaber.Texto() %
              u",'"_s % Escapar(gCodUsu) % u"','', 0, 0)"_s;
  paso.intentar = true;
  pasos.push_back(std::move(paso));
}

void Generador::GrabarMovimiento(const QString &folio, const QDateTime &fecha,
                                 std::vector<Conexion::Escritura> &pasos) {
  if (!c_.Documentos.HayActual())
    return;
  const Documento &d = c_.Documentos.Actual();
  if (!d.CONTABILIZADO)
    return;
  const ConceptoRegla &regla = c_.Concepto();
  const QString doc = d.FOLIO_DOC;
  const QString fmov = Fecha(d.FECHA_DOCTO);
  const QString fcon = Fecha(fecha);
  const QString modulo = QString::number(regla.Modulo);
  const QString oper = QString::number(regla.CodOper);
  const QString frecuencia = QString::number(regla.Frec);
  const QString donde = u"FOLIO_MOV='"_s % Escapar(doc) % u"' AND CONCEPTO='"_s %
                        Escapar(regla.Concepto) % u"' AND MODULO="_s % modulo %
                        u" AND FECHA_MOV="_s % fmov % u" AND COD_OPER="_s % oper % u";"_s;
  pasos.push_back(Conexion::Escritura::SegunHaya(
      u"SELECT * FROM tblMovimxPoliza WHERE FOLIO_POLIZA='"_s % Escapar(folio) % u"' AND "_s %
          donde,
      u"UPDATE tblMovimxPoliza SET FOLIO_POLIZA='"_s % Escapar(folio) % u"',FREC="_s % frecuencia %
          u",FECHA_CON="_s % fcon % u" WHERE "_s % donde,
      u"INSERT INTO tblMovimxPoliza (FOLIO_MOV,CONCEPTO,MODULO,FOLIO_POL,FOLIO_POLIZA,"
      "FREC,FECHA_CON,FECHA_MOV,COD_OPER) VALUES ('"_s %
          Escapar(doc) % u"','"_s % Escapar(regla.Concepto) % u"',"_s % modulo % u","_s %
          QString::number(FolioComoNumero(folio)) % u",'"_s % Escapar(folio) % u"',"_s %
          frecuencia % u","_s % fcon % u","_s % fmov % u","_s % oper % u")"_s));
  // The stamp for the sibling modules.
  const OperacionFuente &fuente = c_.OperacionActual();
  QString f = fuente.FiltroConcepto;
  if (!f.right(5).contains(QStringLiteral("AND")))
    f += QStringLiteral(" AND");
  QString sello;
  switch (regla.CodOper) {
  case 6:
  case 7:
  case 20:
  case 21:
  case 10:
  case 11: {
    const QString columna =
        regla.CodOper >= 10 && regla.CodOper <= 11 ? u"CON_CEP"_s : u"COD_CON"_s;
    sello = u"UPDATE "_s % fuente.TablaEnc % u" SET CONTAB=1 WHERE "_s % f % u" ("_s % columna %
            u"='"_s % Escapar(regla.Concepto) % u"') AND "_s % fuente.CampoClave % u"='"_s %
            Escapar(doc) % u"'"_s;
    break;
  }
  case 19:
    break; // no statement: the empty text is sent and refused
  default:
    sello = u"UPDATE "_s % fuente.TablaEnc % u" SET CONTAB=1 WHERE "_s % f % u" "_s %
            fuente.CampoClave % u"='"_s % Escapar(doc) % u"'"_s;
    break;
  }
  pasos.push_back(Conexion::Escritura::Sola(sello));
}
