#pragma once

#include "shell/Dinero.h"

#include <QString>
#include <array>

// What the value routines work with: the lines of the entry in work and their pieces.

// A line of the entry in work: a row of the run's Renglones. A row with both rubros
// is stored as two lines; one with neither is never stored.
struct RenglonEnTrabajo {
  static constexpr int kLargoRubro = 10;
  static constexpr int kLargoCuenta = 20;

  qint64 COD_DATO = 0;
  QString RUBRO_DEBE, RUBRO_HABER;
  QString CUENTA_DEBE, CUENTA_HABER;
  Dinero IMP_DEBE, IMP_HABER;
};

// The work pair of a line: what goes to the debit and what to the credit.
struct ParImportes {
  Dinero Debe, Haber;
};

// The table and column that a dictionary number names (empty when it names none).
struct CampoTabla {
  QString Tabla, Campo;
};

// A purchase line as CompraPorArticulo reads it, every amount converted to money.
struct LineaCompra {
  QString COD1_ART;
  Dinero CAN_ART, COS_UNI, TIP_CAM;
  std::array<Dinero, 6> DESCUENTO;
};
