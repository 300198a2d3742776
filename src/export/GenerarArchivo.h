#pragma once

#include "export/FormatoArchivo.h"

#include <QByteArray>
#include <QDate>
#include <QHash>
#include <QString>
#include <QVariant>
#include <functional>
#include <optional>
#include <vector>

class Conexion;
class Registros;

// What the export takes from its screen.
struct DatosGenerarArchivo {
  QDate fechaIni;    // dtpFechaIni
  QDate fechaFin;    // dtpFechaFin
  QString tipo;      // selected code of cmbFolios; "" for all journal types
  QString operacion; // selected code of cmbOperaciones; "" for all operations
  QString concepto;  // selected code of cmbConceptos; "" for all concepts
  QString archivo;   // the name the file dialog gave
  // Within the run, a lookup already answered (the package's type number, a line's
  // reference) is answered again from memory: nothing the run reads is written meanwhile.
  // Off, every line asks the database, as the statements were always sent.
  bool memoria = true;
};

// How a run ended.
struct ResultadoArchivo {
  qint64 lineas = 0;     // lines in the file, each ended by CR LF
  bool completo = false; // false when a failure or the user stopped the run
  QString falla;         // the failure message shown, when there was one
  bool detenida = false; // the user stopped it: no file is left
};

// Told after every journal line, with the lines written so far and the entries they
// belong to; false stops the run and removes the file.
using AvanceArchivo = std::function<bool(qint64 lineas, qint64 polizas)>;

// A failure under the run's trap: the runtime's number and description. It stops the
// run; the file keeps what was written.
struct FallaArchivo {
  int numero;
  QString descripcion;
};

// The question before writing, which names the file. False when the file exists and
// the answer is No: the screen then asks for another name. The answer doesn't count
// for a file that doesn't exist.
bool ConfirmarArchivo(const QString &archivo);

// Writes the journal lines of the period and filters into the file by the format
// (read by CargarFormato), shows message 5526, or 5527 when the trap stops the run.
ResultadoArchivo GenerarArchivo(Conexion &con, FormatoArchivo &formato,
                                const DatosGenerarArchivo &datos, const AvanceArchivo &avance = {});

// What the lines of one run share: the places of the selection's columns, found at the
// first line, and the fields that a line takes from its entry. Every line of an entry
// carries the same ones, so each is built again only when a value it comes from changes.
struct RenglonEnCurso {
  struct Recordado {
    QVariant valor, valor2; // the values of the row it was built from
    QByteArray campo;       // the finished field, in the file's code page
    QString dato;           // the value as plain text, where the line needs it
    bool hecho = false;
  };
  std::vector<qsizetype> columnas; // empty until the first line
  std::vector<QString> nombres;    // their names, for a failure's message
  // The type keeps its text as read, and with the memory its field too.
  Recordado folio, fecha, tipo, concepto, suma;
  // The run's answers to its lookups, by statement text; null when the memory is off.
  std::optional<QHash<QString, QString>> respuestas;
  // Without the memory, the type's field by the package's number, asked for on every line.
  Recordado numeroTipo;
  // The reference's field, asked for again at a new folio with the memory: the lines of
  // one entry ask the same, and needn't even spell the statement again.
  Recordado referencia;
  // The account's finished field by the account: a period names few accounts many times.
  QHash<QString, QByteArray> cuentas;
  // The format's enclosure and separator, and its debit and credit marks as finished
  // fields, in the file's code page.
  QByteArray encierro, separador, marcaDebe, marcaHaber;
  QByteArray importe; // a user row's amount field
  qint64 polizas = 0; // entries begun so far: the folio changed from the line before
  // The last key written stands for this line too: its folio, date and type are the
  // line before's.
  bool claveVigente = false;
};

// Appends the current journal line of the selection to the block, in the file's code
// page: one or more lines of the file, without the last line end. Throws FallaArchivo,
// leaving in the block what it had appended by then.
void ArmarRenglon(Conexion &con, FormatoArchivo &formato, const Registros &rs,
                  RenglonEnCurso &enCurso, QByteArray &bloque);

// A field fitted to its width when the format has fixed widths.
QString AjustarCampo(const FormatoArchivo &formato, bool esImporte, QString valor, int longitud,
                     int alineacion);
// A finished field: enclosure, value, enclosure, separator.
QString InsSeparador(const FormatoArchivo &formato, const QString &valor);
// The account by the levels of the mask. Throws FallaArchivo when nothing is left of it.
QString FormatearCuenta(const FormatoArchivo &formato, const QString &cuenta);
// The date by MascaraFecha.
QString FormatearFecha(const FormatoArchivo &formato, const QDate &fecha);
// What stands in the type field: the journal type, or for the package its number
// ("?" when tblFolios doesn't know the type).
QString ObtenerTipoPoliza(Conexion &con, const FormatoArchivo &formato, const QString &tipo,
                          QHash<QString, QString> *respuestas = nullptr);
// The package's reference of a line: the first document of the folio's number, or "?".
QString ObtenerReferencia(Conexion &con, const QString &folio,
                          QHash<QString, QString> *respuestas = nullptr);

// The source of the concept filter for an operation: the SELECT with its ORDER BY, the
// code and the description columns. None for an operation without a catalogue.
struct FuenteConceptos {
  QString consulta;
  QString codigo;
  QString descripcion;
};
std::optional<FuenteConceptos> ConsultaConceptos(const QString &operacion);
