#pragma once

#include "journal/Documento.h"
#include "shell/Dinero.h"

#include <QDateTime>
#include <QString>

class Conexion;
struct Corrida;

// Fills Operaciones for the codes 1 to 30 and reads the first three taxes.
void CargarOperaciones(Corrida &corrida);

// The fixed text of an operation whose journal entries don't take their text from a
// catalogue; empty for the others.
QString TextoFijoDeOperacion(int codOper);
// The text of a concept in its operation's catalogue, cut to 30 characters; empty when
// the concept isn't found or the operation's entries take no text from a catalogue.
QString DescripcionConcepto(Conexion &con, int codOper, const QString &concepto);
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
