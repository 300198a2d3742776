#pragma once

// Fixtures of the export tests: the format row, journal entries and a run into a file.

#include "Apoyo.h"
#include "export/FormatoArchivo.h"
#include "export/GenerarArchivo.h"
#include "journal/Polizas.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"

#include <QDir>
#include <algorithm>
#include <map>

namespace exportacion {

inline Dinero D(const char *texto) { return Dinero::DeTexto(QString::fromLatin1(texto)); }

// Columns of tblParametrosForm as SQL literals.
using Columnas = std::map<QString, QString>;

// A user format of one row with every column as the screen saves it: folio, date, type,
// account, concept and amount in this order, marks D / H, comma without quotes, no
// fixed width, "DD/MM/AAAA", mask 4-3-3-0 with zeros.
inline Columnas FormatoUsuario() {
  Columnas c;
  const char *ceros[] = {"REN2_FOL", "REN2_FEC", "REN2_TIP", "REN2_CTA", "REN2_CON", "REN2_IMP",
                         "LON_FOL",  "LON_FEC",  "LON_TIP",  "LON_CTA",  "LON_CON",  "LON_DEB",
                         "LON_HAB",  "AL_FOL",   "AL_FEC",   "AL_TIP",   "AL_CTA",   "AL_CON",
                         "AL_DEB",   "AL_HAB",   "SEP_COM",  "LON_FIJA"};
  for (const char *columna : ceros)
    c[QLatin1String(columna)] = QStringLiteral("0");
  c[QStringLiteral("NO_REN")] = QStringLiteral("1");
  c[QStringLiteral("REN_FOL")] = QStringLiteral("1");
  c[QStringLiteral("REN_FEC")] = QStringLiteral("2");
  c[QStringLiteral("REN_TIP")] = QStringLiteral("3");
  c[QStringLiteral("REN_CTA")] = QStringLiteral("4");
  c[QStringLiteral("REN_CON")] = QStringLiteral("5");
  c[QStringLiteral("REN_IMP")] = QStringLiteral("6");
  c[QStringLiteral("SEP_DAT")] = QStringLiteral("','");
  c[QStringLiteral("DEB_HAB")] = QStringLiteral("1");
  c[QStringLiteral("CHAR_UNO")] = QStringLiteral("''");
  c[QStringLiteral("CHAR_DOS")] = QStringLiteral("''");
  c[QStringLiteral("F_FECHA")] = QStringLiteral("'DD/MM/AAAA'");
  c[QStringLiteral("FORM_CTA")] = QStringLiteral("'4-3-3-0'");
  c[QStringLiteral("CHAR_SEP")] = QStringLiteral("''");
  c[QStringLiteral("CERO_IZQ")] = QStringLiteral("1");
  return c;
}

// Inserts the format row with the columns given; the others stay Null.
inline void InsertarFormato(Conexion &con, const Columnas &c) {
  QStringList nombres, valores;
  for (const auto &[nombre, valor] : c) {
    nombres << nombre;
    valores << valor;
  }
  con.Ejecutar(QStringLiteral("INSERT INTO tblParametrosForm (%1) VALUES (%2)")
                   .arg(nombres.join(QLatin1Char(',')), valores.join(QLatin1Char(','))));
}

inline Poliza Encabezado(const char *folio, const char *tipo, const char *concepto,
                         const char *sumas, QDate fecha = QDate(2026, 11, 15), int codOper = 22) {
  Poliza p;
  p.FOL_POLIZA = QLatin1String(folio);
  p.FEC_POLIZA = fecha;
  p.TIP_POLIZA = QLatin1String(tipo);
  p.COD_OPER = codOper;
  p.CONCEP_POL = QString::fromUtf8(concepto);
  p.FEC_ANTERIOR = fecha;
  p.SUM_DEBE = D(sumas);
  p.SUM_HABER = D(sumas);
  return p;
}

inline RenglonPoliza Cargo(const char *cuenta, const char *importe) {
  RenglonPoliza r;
  r.COD_DATO = 1;
  r.RUBRO_DEBE = QStringLiteral("1-01");
  r.CUENTA_DEBE = QLatin1String(cuenta);
  r.IMP_DEBE = D(importe);
  return r;
}

inline RenglonPoliza Abono(const char *cuenta, const char *importe) {
  RenglonPoliza r;
  r.COD_DATO = 2;
  r.RUBRO_HABER = QStringLiteral("2-01");
  r.CUENTA_HABER = QLatin1String(cuenta);
  r.IMP_HABER = D(importe);
  return r;
}

// The entry of the samples: folio 12 of type D, 15/11/2026, "Pago de luz", a debit to
// 110-001-000 and a credit to 210-001-000 of 1,250.00.
inline void PolizaDeMuestra(Conexion &con) {
  InsertarPoliza(con, Encabezado("00000000012", "D", "Pago de luz", "1250"),
                 {Cargo("110-001-000", "1250"), Abono("210-001-000", "1250")});
}

// The lines of a journal entry have no stored order, and each engine hands them out in
// its own: the file with its lines from the given one on put in order of their bytes, so
// that it compares with a sample whose lines stand in that order.
inline QByteArray RenglonesEnOrden(const QByteArray &bytes, int desde = 0) {
  QList<QByteArray> lineas = bytes.split('\n');
  const QByteArray ultima = lineas.takeLast(); // what follows the last line end
  std::sort(lineas.begin() + std::min<qsizetype>(desde, lineas.size()), lineas.end());
  return lineas.join('\n') + (lineas.isEmpty() ? QByteArray() : QByteArray("\n")) + ultima;
}

// A company database, a file in a temporary folder and the period of the samples.
class Exportacion : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    archivo = UnirRuta(emp->Ruta(), QStringLiteral("polizas.txt"));
    datos.fechaIni = QDate(2026, 11, 1);
    datos.fechaFin = QDate(2026, 11, 30);
    datos.archivo = archivo;
  }
  // Reads the format and writes the file; gives the bytes of the file.
  QByteArray Escribir() {
    FormatoArchivo formato;
    if (!CargarFormato(*con, formato))
      return "<sin formato>";
    emp->grabadora.sentencias.clear();
    resultado = GenerarArchivo(*con, formato, datos);
    return LeerArchivo(archivo);
  }
  // The ids of the messages shown.
  std::vector<int> Mensajes() const { return emp->mensajes.Ids(); }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  QString archivo;
  DatosGenerarArchivo datos;
  ResultadoArchivo resultado;
};

} // namespace exportacion
