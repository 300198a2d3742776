#pragma once

#include "db/Esquema.h"
#include "journal/Polizas.h"
#include "shell/ServicioConexion.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <map>

// The journal of a company read back for comparison: two runs that should leave the same
// entries are compared by these, folio numbers aside.
namespace diario {

// An entry of two lines, a debit and a credit of the same amount, as the run writes it.
struct Asiento {
  QString folio, tipo;
  QDate fecha;
  int operacion = 0;
  QString concepto;
  QString rubroDebe, cuentaDebe, rubroHaber, cuentaHaber;
  Dinero importe;
};
inline void InsertarAsiento(Conexion &con, const Asiento &a) {
  Poliza p;
  p.FOL_POLIZA = a.folio;
  p.TIP_POLIZA = a.tipo;
  p.FEC_POLIZA = p.FEC_ANTERIOR = a.fecha;
  p.COD_OPER = a.operacion;
  p.CONCEP_POL = a.concepto;
  p.SUM_DEBE = p.SUM_HABER = a.importe;
  RenglonPoliza cargo, abono;
  cargo.RUBRO_DEBE = a.rubroDebe;
  cargo.CUENTA_DEBE = a.cuentaDebe;
  cargo.IMP_DEBE = a.importe;
  abono.RUBRO_HABER = a.rubroHaber;
  abono.CUENTA_HABER = a.cuentaHaber;
  abono.IMP_HABER = a.importe;
  InsertarPoliza(con, p, {cargo, abono});
}

// The rows of a statement, each as its columns joined by "|"; amounts by their exact text.
inline QStringList Filas(Conexion &con, const QString &sql) {
  QStringList filas;
  Registros r = con.Abrir(sql);
  for (; !r.Fin(); r.Siguiente()) {
    QStringList c;
    for (qsizetype i = 0; i < r.Campos().size(); ++i) {
      const Valor v = r.Campo(i);
      c << (v.Variante().typeId() == QMetaType::Double ? v.ComoDinero().Texto() : v.Texto());
    }
    filas << c.join(QLatin1Char('|'));
  }
  return filas;
}

// Every table of the company, each name followed by its rows in an order of their own:
// two databases that hold the same rows give the same list.
inline QStringList TodasLasTablas(Conexion &con) {
  QStringList todo;
  for (const esquema::Tabla &t : esquema::TablasEmpresa()) {
    QStringList filas = Filas(con, QStringLiteral("SELECT * FROM %1").arg(QLatin1String(t.nombre)));
    filas.sort();
    todo << QLatin1String(t.nombre) << filas;
  }
  return todo;
}

// The journal as a bookkeeper compares it, folio numbers aside: each entry with its
// lines, and each posted document with the entry it went to.
inline QStringList SinFolios(Conexion &con) {
  std::map<QString, QString> entradas; // type and folio -> the entry without its folio
  for (const QString &e :
       Filas(con,
             QStringLiteral(
                 "SELECT TIP_POLIZA,FOL_POLIZA,FEC_POLIZA,COD_OPER,CONCEP_POL,SUM_DEBE,SUM_HABER,"
                 "ESTATUS FROM tblPolizasEnc"))) {
    const QStringList c = e.split(QLatin1Char('|'));
    QStringList lineas =
        Filas(con, QStringLiteral("SELECT COD_DATO,RUBRO_DEBE,RUBRO_HABER,CUENTA_DEBE,CUENTA_HABER,"
                                  "IMP_DEBE,IMP_HABER FROM tblPolizasRen WHERE TIP_POLIZA='%1' AND "
                                  "FOL_POLIZA='%2'")
                       .arg(c[0], c[1]));
    lineas.sort();
    entradas[c[0] + c[1]] = QStringList(c.mid(2)).join(QLatin1Char('|')) + QStringLiteral(" [") +
                            lineas.join(QStringLiteral("; ")) + QLatin1Char(']');
  }
  QStringList diario;
  for (const QString &m : Filas(
           con, QStringLiteral(
                    "SELECT FOLIO_MOV,CONCEPTO,COD_OPER,FREC,FOLIO_POLIZA FROM tblMovimxPoliza"))) {
    const QStringList c = m.split(QLatin1Char('|'));
    // The record names the folio; the operation's rule names the type.
    QString entrada;
    for (const auto &[clave, texto] : entradas)
      if (clave.mid(1) == c[4] && texto.section(QLatin1Char('|'), 1, 1) == c[2])
        entrada = texto;
    diario << QStringList(c.mid(0, 4)).join(QLatin1Char('|')) + QStringLiteral(" -> ") + entrada;
  }
  for (const auto &[clave, texto] : entradas)
    diario << QStringLiteral("póliza ") + clave.left(1) + QLatin1Char(' ') + texto;
  diario.sort();
  return diario;
}

// What a run leaves must hold whatever stopped the one before it.
inline void RevisarIntegridad(Conexion &con) {
  EXPECT_TRUE(Filas(con, QStringLiteral("SELECT TIP_POLIZA,FOL_POLIZA FROM tblPolizasEnc e WHERE "
                                        "NOT EXISTS (SELECT 1 FROM tblPolizasRen r WHERE "
                                        "r.TIP_POLIZA=e.TIP_POLIZA AND r.FOL_POLIZA=e.FOL_POLIZA)"))
                  .isEmpty());
  EXPECT_TRUE(
      Filas(con,
            QStringLiteral("SELECT TIP_POLIZA,FOL_POLIZA FROM tblPolizasRen GROUP BY "
                           "TIP_POLIZA,FOL_POLIZA HAVING ABS(SUM(IMP_DEBE)-SUM(IMP_HABER))>0.005"))
          .isEmpty());
  EXPECT_TRUE(Filas(con, QStringLiteral("SELECT FOLIO_MOV,CONCEPTO,COD_OPER FROM tblMovimxPoliza "
                                        "GROUP BY FOLIO_MOV,CONCEPTO,COD_OPER HAVING COUNT(*)>1"))
                  .isEmpty());
}

} // namespace diario
