#pragma once

#include <QDate>
#include <QString>

// What a run needs of its screen: the period, the defined date and its option,
// "Actualizar Pólizas" and the log file.
struct OpcionesGeneracion {
  QDate Del;                 // dtpFecha(0)
  QDate Al;                  // dtpFecha(1)
  QDate FechaDefinida;       // dtpFecha(2)
  bool DefinirFecha = false; // optFechaPol(1) chosen; otherwise the date of the movement
  bool Actualizar = false;   // chkActualizar
  QString Resumen;           // txtResumen, the path of the log
  // Within the run, a lookup of a table the run never writes (the chart, the bank
  // accounts, the rules and their data) is answered once. Off, every lookup is asked
  // of the database, as the statements were always sent.
  bool Memoria = true;
};
