#include "shell/FinOrdenado.h"
#include "FixtureGeneracion.h"

#include <gtest/gtest.h>

namespace {

struct Salida {
  int codigo;
};

// A fatal error in the middle of a run, as the windowed program meets it: the screen's run
// (its connection with the entry in work) outlives the handler that failed.
TEST_P(Generacion, AFatalEndUndoesTheEntryInWorkAndLeavesTheLogAtTheLastEntryWritten) {
  // The second entry's folio is beyond a whole number: its record fails after its header
  // was written.
  Ejecutar("UPDATE tblFolios SET FOL_FOLIOS='2147483646' WHERE COD_FOLIO='E'");
  Gasto("G-1", d3(), "100");
  Gasto("G-2", d10(), "200");
  Corrida corrida;
  ArbolOperaciones arbol;
  CargarCorrida(*emp, corrida, arbol);
  try {
    Generador(corrida, opciones).GenerarPolizas(arbol);
    FAIL() << "the run did not fail";
  } catch (const ErrorFatal &) {
  }
  // The run's own connection still sees the entry in work.
  EXPECT_EQ(corrida.Conexion
                ->Abrir(QStringLiteral(
                    "SELECT COUNT(*) AS N FROM tblPolizasEnc WHERE FOL_POLIZA='02147483648'"))
                .Campo(QStringLiteral("N"))
                .Entero(),
            1);

  InstalarSalida([](int codigo) { throw Salida{codigo}; });
  try {
    TerminarProceso(2);
  } catch (const Salida &s) {
    EXPECT_EQ(s.codigo, 2);
  }
  InstalarSalida(nullptr);
  // Every connection of the process was closed: the tables are read anew.
  con = emp->Abrir();
  // Nothing of the run holds the tables: another station writes at once.
  Ejecutar("UPDATE tblFolios SET FOL_FOLIOS=FOL_FOLIOS WHERE COD_FOLIO='E'");

  // The first entry stands whole; of the second nothing.
  EXPECT_EQ(Filas("SELECT FOL_POLIZA FROM tblPolizasEnc"), L({"02147483647"}));
  EXPECT_EQ(Filas("SELECT DISTINCT FOL_POLIZA FROM tblPolizasRen"), L({"02147483647"}));
  EXPECT_EQ(Filas("SELECT FOLIO_MOV FROM tblMovimxPoliza"), L({"G-1"}));
  EXPECT_EQ(Filas("SELECT FOL_FOLIOS FROM tblFolios WHERE COD_FOLIO='E'"), L({"02147483647"}));
  // The log ends with the first entry: the second was never written there.
  const QString log = Bitacora();
  EXPECT_TRUE(log.contains(QStringLiteral("02147483647")));
  EXPECT_FALSE(log.contains(QStringLiteral("02147483648")));
  // And the run's connection is closed.
  EXPECT_FALSE(corrida.Conexion->EnTransaccion());
}

} // namespace
