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
};
