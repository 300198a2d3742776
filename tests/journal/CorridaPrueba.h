#pragma once

// A generation run over the test company, for the tests of the journal engine: the
// company's connection open, the table of sources loaded, a period, and a rule in work
// that a test fills in a line or two.

#include "Apoyo.h"
#include "journal/Corrida.h"
#include "journal/Documentos.h"
#include "shell/ErrorFatal.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>
#include <gtest/gtest.h>

inline Dinero D(const char *texto) { return Dinero::DeTexto(QString::fromLatin1(texto)); }

class CorridaPrueba {
public:
  explicit CorridaPrueba(const std::string &motor = "sqlite") : emp(motor) {
    c.Conexion = emp.Abrir();
    CargarOperaciones(c);
    c.FechaInicial = QDate(2024, 3, 1);
    c.FechaFinal = QDate(2024, 3, 31);
    Olvidar();
  }

  // Puts a rule in work: index 1 of the run's rules.
  ConceptoRegla &Regla(int codOper, const QString &concepto = {}, int frec = 1, int modulo = 1,
                       const QString &tipo = QStringLiteral("D"), int codPol = 1) {
    ConceptoRegla r;
    r.Modulo = modulo;
    r.CodOper = codOper;
    r.CodPol = codPol;
    r.Concepto = concepto;
    r.TipPoliza = tipo;
    r.Frec = frec;
    c.LimpiarConceptos();
    c.AgregarConcepto(r);
    c.ConceptoActual = 1;
    c.LimpiarReglas();
    return c.Concepto();
  }

  // Adds a row to the rule in work and gives its index.
  int Renglon(int dato, const QString &rubroDebe, const QString &rubroHaber, int campoEstBd = 0) {
    RenglonRegla r;
    r.CodDato = dato;
    r.RubroDebe = rubroDebe;
    r.RubroHaber = rubroHaber;
    r.CuentaDebe = rubroDebe.isEmpty() ? QString() : QStringLiteral("C") + rubroDebe;
    r.CuentaHaber = rubroHaber.isEmpty() ? QString() : QStringLiteral("C") + rubroHaber;
    r.TieneDebe = !rubroDebe.isEmpty();
    r.TieneHaber = !rubroHaber.isEmpty();
    r.CampoEstBd = campoEstBd;
    c.AgregarRegla(r);
    return c.NumReglas;
  }

  void Sql(const QString &sql) { c.Conexion->Ejecutar(sql); }
  // Forgets the statements sent so far.
  void Olvidar() { emp.grabadora.sentencias.clear(); }
  const QStringList &Sentencias() const { return emp.grabadora.sentencias; }

  EmpresaPrueba emp;
  Corrida c;
};

// Runs an action that must end the process, and gives the failure.
inline ErrorFatal Fatal(const std::function<void()> &accion) {
  try {
    accion();
  } catch (const ErrorFatal &e) {
    return e;
  }
  ADD_FAILURE() << "the action was expected to end the process";
  return ErrorFatal(QString());
}
