#include "journal/Corrida.h"

#include "config/Reglas.h"
#include "journal/Polizas.h"

using namespace Qt::Literals::StringLiterals;

QString TextoFijo(const QString &texto, int ancho) {
  return texto.left(ancho).leftJustified(ancho, QLatin1Char(' '));
}

QString TextoDeCampo(const QString &texto, int largo, const char *campo) {
  if (texto.size() > largo)
    throw ErrorFatal(u"El valor «%1» no cabe en el campo %2, de %3 caracteres."_s.arg(
        texto, QLatin1String(campo), QString::number(largo)));
  return texto;
}

OperacionFuente &Corrida::Operacion(int codOper) {
  if (codOper < 0 || codOper > kMaxOperacion)
    throw ErrorFatal(
        u"Subíndice fuera del intervalo: la operación %1 no tiene lugar en la tabla de fuentes "
        "(0 a %2)."_s.arg(QString::number(codOper), QString::number(kMaxOperacion)));
  return Operaciones[static_cast<std::size_t>(codOper)];
}

ConceptoRegla &Corrida::Concepto() {
  if (ConceptoActual < 0 || ConceptoActual > kMaxConceptos)
    throw ErrorFatal(u"Subíndice fuera del intervalo: no hay regla %1 en la corrida."_s.arg(
        QString::number(ConceptoActual)));
  return Conceptos[static_cast<std::size_t>(ConceptoActual)];
}

OperacionFuente &Corrida::OperacionActual() { return Operacion(Concepto().CodOper); }

RenglonRegla &Corrida::Regla(int renglon) {
  if (renglon < 0 || renglon > kMaxReglas)
    throw ErrorFatal(u"Subíndice fuera del intervalo: una regla no tiene renglón %1."_s.arg(
        QString::number(renglon)));
  return Reglas[static_cast<std::size_t>(renglon)];
}

bool Corrida::PorDia() { return Concepto().Frec == frec::kPorDia; }

void Corrida::LimpiarConceptos() {
  for (int i = 0; i <= NumConceptos && i <= kMaxConceptos; ++i)
    Conceptos[static_cast<std::size_t>(i)] = ConceptoRegla{};
  NumConceptos = 0;
}

void Corrida::AgregarConcepto(const ConceptoRegla &concepto) {
  if (NumConceptos >= kMaxConceptos)
    throw ErrorFatal(u"La corrida admite a lo más %1 reglas: la regla %2 (operación %3, "
                     "concepto «%4») no cabe."_s.arg(
                         QString::number(kMaxConceptos), QString::number(NumConceptos + 1),
                         QString::number(concepto.CodOper), concepto.Concepto));
  ++NumConceptos;
  Conceptos[static_cast<std::size_t>(NumConceptos)] = concepto;
}

void Corrida::LimpiarReglas() {
  Reglas.fill(RenglonRegla{});
  NumReglas = 0;
}

void Corrida::AgregarRegla(const RenglonRegla &renglon) {
  if (NumReglas >= kMaxReglas)
    throw ErrorFatal(u"Una regla admite a lo más %1 renglones: el renglón %2 (dato %3) de la "
                     "regla %4 no cabe."_s.arg(
                         QString::number(kMaxReglas), QString::number(NumReglas + 1),
                         QString::number(renglon.CodDato), QString::number(Concepto().CodPol)));
  ++NumReglas;
  Reglas[static_cast<std::size_t>(NumReglas)] = renglon;
}

void CargarReglas(Corrida &corrida) {
  corrida.LimpiarReglas();
  for (const RubroOperacion &fila : RubrosDeRegla(*corrida.Conexion, corrida.Concepto().CodPol)) {
    RenglonRegla nuevo;
    nuevo.CodDato = fila.COD_DATO;
    nuevo.CuentaDebe = fila.CUENTA_DEBE;
    nuevo.CuentaHaber = fila.CUENTA_HABER;
    nuevo.RubroDebe = fila.RUBRO_DEBE;
    nuevo.RubroHaber = fila.RUBRO_HABER;
    nuevo.TieneDebe = !fila.RUBRO_DEBE.isEmpty();
    nuevo.TieneHaber = !fila.RUBRO_HABER.isEmpty();
    // The row takes its place before its datum is read, so the 101st stops the run
    // before asking for it.
    corrida.AgregarRegla(nuevo);
    if (std::optional<DatoOperacion> dato = LeerDato(*corrida.Conexion, fila.COD_DATO)) {
      RenglonRegla &r = corrida.Regla(corrida.NumReglas);
      r.DesDato = dato->DES_DATO;
      r.CampoEstBd = dato->CAMPO_ESTBD;
    }
  }
}
