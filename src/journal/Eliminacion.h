#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>

class Conexion;
class Dialecto;

// What the deletion takes from its screen: the period and the three narrowings, each an
// empty code for none.
struct FiltroEliminacion {
  QDate del;
  QDate al;
  QString tipo;      // journal type (tblFolios)
  QString operacion; // operation code, a number
  QString concepto;  // compared with CONCEP_POL, which holds a description
};

// The narrowing text: "AND TIP_POLIZA='<type>'" (no blank before it), then
// " AND COD_OPER=<operation>", then " AND CONCEP_POL='<concept>'".
QString TextoAcotado(const FiltroEliminacion &filtro);
// "SELECT FOL_POLIZA FROM tblPolizasEnc WHERE FEC_POLIZA BETWEEN <del> AND <al> <narrowing>".
QString SentenciaFoliosAEliminar(const Dialecto &dialecto, const FiltroEliminacion &filtro);

// The folios the selection finds, in the order the database gives them (a folio under two
// journal types comes twice).
QStringList FoliosAEliminar(Conexion &con, const FiltroEliminacion &filtro);

// Deletes each folio's header, then its lines, by the folio alone: every journal type
// that holds it loses it, whatever its date. The two deletes of one folio go together,
// so an end in between never leaves lines without their header. `avance` is told after
// each folio. Returns how many folios were deleted.
int EliminarFolios(Conexion &con, const QStringList &folios,
                   const std::function<void(int hechos, int total)> &avance = {});

// The screen's "BOR": question 5513 (Accept and Cancel); on Accept, the selection and its
// deletion, then message 5514, shown even when nothing matched. Returns the folios
// deleted, -1 when the question was not accepted.
int EliminarPolizas(Conexion &con, const FiltroEliminacion &filtro);
