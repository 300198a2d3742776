#include "FixtureGeneracion.h"

#include "journal/Bitacora.h"
#include "shell/Rutas.h"

namespace {
QString Linea(const QString &t) { return t + QStringLiteral("\r\n"); }
} // namespace

TEST(Bitacora, TheDefaultNameCarriesTheCompanyAndTheDefinedDate) {
  gRutaApp = QStringLiteral("C:\\Tolvane");
  EXPECT_EQ(Bitacora::NombreBitacora(3, QDate(2024, 3, 5)),
            QStringLiteral("C:\\Tolvane\\TEMP\\ResumenPol3_05032024.txt"));
}

TEST_P(Generacion, TheLogOfARunHasTheHeadTheRuleLineAndTheTableOfEachEntry) {
  Gasto("G-1", d3(), "1500.255");
  Correr();
  const QString esperado =
      Linea({}) + Linea(QStringLiteral("Resumen del Proceso de Generación de Pólizas")) +
      Linea({}) + Linea(QStringLiteral("Empresa:     La Fonda de Doña Lupe S.A. de C.V.")) +
      Linea(QStringLiteral("Fecha y Hora de Inicio:05/11/2024   02:05:09 PM")) +
      Linea(QStringLiteral("Usuario:     ADMIN")) + Linea({}) +
      Linea(QStringLiteral("Para este proceso el usuario eligió las siguientes opciones:")) +
      Linea({}) + Linea(QStringLiteral("Período :")) +
      Linea(QStringLiteral("Fecha Inicial:    01/10/2024")) +
      Linea(QStringLiteral("Fecha Final:      31/10/2024")) + Linea({}) +
      Linea(QStringLiteral("Fecha = Fecha del Movimiento")) +
      Linea(QStringLiteral("Actualizar Pólizas = No")) + Linea({}) +
      Linea(QStringLiteral("GASTOS").leftJustified(40) + QLatin1Char(' ') +
            QStringLiteral("RENTA DEL LOCAL").leftJustified(30)) +
      Linea(QStringLiteral("NO.       FECHA       DOCUMENTO") + QString(33, QLatin1Char(' ')) +
            QStringLiteral("CONCEPTO") + QString(24, QLatin1Char(' ')) +
            QStringLiteral("FOLIO         FECHA POL   TIPO POL  RUBRO       CUENTA") +
            QString(25, QLatin1Char(' ')) + QStringLiteral("IMPORTE  TIPO")) +
      Linea(QStringLiteral("1         03/10/2024  ") + QStringLiteral("GASTOS").leftJustified(40) +
            QStringLiteral("  ") + QStringLiteral("RENTA DEL LOCAL").leftJustified(30) +
            QStringLiteral("  E00000000001  03/10/2024  EGRESOS   6-01        ") +
            QStringLiteral("6100-000").leftJustified(20) + QStringLiteral("  ") +
            QStringLiteral("1500.26").rightJustified(16) + QStringLiteral("  CARGO")) +
      Linea(QStringLiteral("2         03/10/2024  ") + QStringLiteral("GASTOS").leftJustified(40) +
            QStringLiteral("  ") + QStringLiteral("RENTA DEL LOCAL").leftJustified(30) +
            QStringLiteral("  E00000000001  03/10/2024  EGRESOS   2-01        ") +
            QStringLiteral("2100-000").leftJustified(20) + QStringLiteral("  ") +
            QStringLiteral("1500.26").rightJustified(16) + QStringLiteral("  ABONO")) +
      Linea({}) + Linea({});
  EXPECT_EQ(LeerArchivo(opciones.Resumen), CodificarWindows1252(esperado));
}

TEST_P(Generacion, ASecondRunOnTheSameLogKeepsTheOldTextAboveTheDashes) {
  EscribirArchivo(opciones.Resumen, "PRIMERA LINEA\r\nSEGUNDA\r\n");
  opciones.DefinirFecha = true;
  opciones.Actualizar = true;
  Correr();
  const QString t = Bitacora();
  EXPECT_TRUE(
      t.startsWith(QStringLiteral("PRIMERA LINEA\r\nSEGUNDA\r\n") + QString(255, QLatin1Char('-')) +
                   QStringLiteral("\r\n\r\nResumen del Proceso de Generación de Pólizas\r\n")))
      << t.left(400).toStdString();
  EXPECT_TRUE(t.contains(QStringLiteral("\r\nFecha = 05/11/2024\r\nActualizar Pólizas = Sí\r\n")));
}

TEST_P(Generacion, AnEntryWhoseFolioCameBackEmptyIsLoggedWithoutLines) {
  Corrida corrida;
  corrida.Conexion = emp->Abrir();
  ConceptoRegla regla;
  regla.TipPoliza = QStringLiteral("E");
  ::Bitacora log;
  log.AbrirBitacora(*corrida.Conexion, opciones);
  log.EscribirPoliza(*corrida.Conexion, QString(), regla);
  log.CerrarBitacora();
  EXPECT_TRUE(Bitacora().endsWith(
      QStringLiteral("\r\n1 NO SE GENERARON RENGLONES PARA LA PÓLIZA: \r\n\r\n")));
}

TEST_P(Generacion, ALogInAFolderThatDoesntExistLeavesTheRunWithoutLog) {
  Gasto("G-1", d3(), "10");
  opciones.Resumen = emp->Ruta() + QStringLiteral("/no/existe/bitacora.txt");
  EXPECT_TRUE(Correr().hubo);
  EXPECT_FALSE(QFileInfo::exists(opciones.Resumen));
  EXPECT_EQ(Filas("SELECT COUNT(*) FROM tblPolizasEnc"), QStringList{QStringLiteral("1")});
}
