#pragma once

#include "shell/Dinero.h"

#include <QDateTime>
#include <QString>

class Conexion;
struct Corrida;

// Where the documents of an operation live: one element of the run's Operaciones,
// indexed by COD_OPER.
struct OperacionFuente {
  QString TablaEnc;      // header table
  QString TablaRen;      // line table, or empty
  QString CampoClave;    // key column of a document in TablaEnc
  QString CampoFecha;    // date column
  QString CampoConcepto; // column that holds a rule's CONCEPTO, or empty
  QString Filtro;        // condition that selects the operation's documents
  // Filtro with the concept of the rule in work; set by LeerDocumentos, and it may
  // gain a trailing " AND" from the value routines.
  QString FiltroConcepto;
};

// A document of the rule in work: a row of the run's Documentos.
struct Documento {
  static constexpr int kLargoFolioDoc = 17;
  static constexpr int kLargoFolioPoliza = 11;

  QString FOLIO_DOC; // the key of the document
  QDateTime FECHA_DOCTO;
  bool ESTA_CONTAB = false;           // tblMovimxPoliza has the document
  QString FOLIO_POLIZA;               // the entry that holds it, when ESTA_CONTAB
  QDateTime FECHA_CONTAB;             // FECHA_CON of that record, else the document's date
  int FRECU_CONTAB = 0;               // FREC of that record, else 0
  Dinero SUMADEBE_ANT, SUMAHABER_ANT; // the totals of that entry, else 0
  bool CONTABILIZADO = false;         // went into an entry in this run
};

// Fills Operaciones for the codes 1 to 30 and reads the first three taxes.
void CargarOperaciones(Corrida &corrida);

// The catalogue of concepts of an operation (1 to 5), 0 for one without a catalogue.
int CatalogoDeOperacion(int codOper);
// The fixed text of an operation whose journal entries don't take their text from a
// catalogue; empty for the others.
QString TextoFijoDeOperacion(int codOper);
// The text of a concept in a catalogue, cut to 30 characters; empty when the concept
// isn't found or the catalogue is none of the five.
QString DescripcionConcepto(Conexion &con, int catalogo, const QString &concepto);
// DesConcepto of a rule, in its field of 30 characters: from the catalogue when the
// operation's GENERA_CON is true, else the operation's fixed text.
QString DescripcionRegla(Conexion &con, int codOper, bool generaCon, const QString &concepto);

// The documents of the rule ConceptoActual in the period, with what was posted of
// them before; sets FiltroConcepto of the rule's operation. Leaves Documentos at its end.
void LeerDocumentos(Corrida &corrida);
// Declares Documentos anew, empty.
void CrearDocumentos(Corrida &corrida);
// Finds in tblMovimxPoliza and tblPolizasEnc what was posted of each document.
void BuscarPosteos(Corrida &corrida);
