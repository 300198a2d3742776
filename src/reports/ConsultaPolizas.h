#pragma once

#include "shell/Dinero.h"

#include <QDate>
#include <QList>
#include <QString>
#include <functional>

class Conexion;
class Lienzo;

// What the inquiry screen gives its reports: the report chosen and its filters, as the
// controls hold them.
struct OpcionesConsulta {
  bool relacion = true;       // OptRelacionPolizas; else the movement report
  bool detallado = false;     // optDetallado (the journal list's form)
  bool contabilizados = true; // optContabilizados (the movement report's state)
  QDate del;                  // dtpFechaIni
  QDate al;                   // dtpFechaFin
  QString modulo;             // code of cmbModulos, "" for none
  QString operacion;          // code of cmbOperaciones
  QString tipo;               // code of cmbTipos
  QString textoTipo;          // the text cmbTipos shows
  QString folio;              // txtFolios
  int orden = 0;              // optOrden: 0 type, 1 date, 2 concept
};

// The company's header data, read when the screen loads: "SELECT * FROM tblEmpresa;".
struct EncabezadoEmpresa {
  QString nombre = QStringLiteral("NO ENCONTRADA");
  QString direccion;
  QString rfc;
  QString telefonos;
};
EncabezadoEmpresa LeerEncabezadoEmpresa(Conexion &con);

// A row of the concept table of the movement report: operation, concept code, text.
struct ConceptoMovimiento {
  int operacion = 0;
  QString concepto;
  QString descripcion;
};
// The concept table, read once when the screen loads, in the order of its sources.
QList<ConceptoMovimiento> CargarConceptos(Conexion &con);
// The first row of the table for the operation and concept; "" when none.
QString DescripcionConcepto(const QList<ConceptoMovimiento> &tabla, int operacion,
                            const QString &concepto);

// The reports of the inquiry screen, drawn on a canvas: the journal list (summary or
// detailed) and the movement report. Each page is kept as a file in the Temp folder while
// the report is drawn, and the pages are numbered when their count is known.
class ReporteConsulta {
public:
  ReporteConsulta(Conexion &con, Lienzo &lienzo, EncabezadoEmpresa empresa,
                  QList<ConceptoMovimiento> conceptos, QString carpetaTemporal, QDate hoy);

  // The filters of the options, then the whole report.
  void ArmarFiltros(const OpcionesConsulta &opciones);
  void GenerarReporte();

  // Told each time a page is full and the next begins, with the page begun.
  std::function<void(int pagina)> avance;

  // The texts the filters came to (for tests and the statement).
  QString ColumnaOrden() const { return columnaOrden_; }
  QString Filtro() const { return filtro_; }
  QString FiltroTipo() const { return filtroTipo_; }
  int Paginas() const { return pagina_; }

private:
  void EncabezadoPagina(const QString &titulo);
  void SaltoPagina(int tipo);
  void EncabezadoRelacion();
  void RelacionResumida() { Relacion(false); }
  void RelacionDetallada() { Relacion(true); }
  // Both forms of the journal list: the detailed one adds each entry's lines under it.
  void Relacion(bool detallada);
  void EncabezadoMovimientos();
  void ReporteMovimientos();
  // Size, bold and colour at once; alignment as it was.
  void Letra(int tamano, bool negrita, bool azul);
  void CerrarGrupo(Dinero &debe, Dinero &haber, Dinero &totalDebe, Dinero &totalHaber);
  void FilaPoliza(const QDate &fecha, const QString &tipo, const QString &folio,
                  const QString &concepto, Dinero debe, Dinero haber);
  void Avanzar(int alto, int tipo);
  QString ArchivoPagina(int pagina) const;
  QString SentenciaRelacion(bool detallada) const;

  Conexion &con_;
  Lienzo &lienzo_;
  EncabezadoEmpresa empresa_;
  QList<ConceptoMovimiento> conceptos_;
  QString carpeta_;
  QDate hoy_;
  OpcionesConsulta op_;
  QString columnaOrden_, etiquetaGrupo_, filtroFolio_, filtro_, filtroTipo_, filtroEstado_;
  int pagina_ = 0;
  int renglon_ = 0;
  QString idReporte_;
};

// The date of the page header: "dd/mmm/yyyy" with the month's Spanish abbreviation.
QString FechaEncabezado(const QDate &fecha);
