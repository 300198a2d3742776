#pragma once

#include "shell/Dinero.h"

#include <QDateTime>
#include <QString>

// What the run keeps of the source modules: where an operation's documents live, and
// each document of the rule in work.

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
