#include "EmpresaSintetica.h"
#include "FixtureGeneracion.h"
#include "export/FormatoArchivo.h"
#include "export/GenerarArchivo.h"
#include "journal/DiarioPrueba.h"

#include <QFile>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

// The benchmark's synthetic company, small: its generation by document and by day and
// both exports, each run with the memory of reads and without it; the exports also with
// their statements one at a time and in batches.
class Sintetica : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->AbrirComoAdmin(QStringLiteral("x"));
    banco::LlenarEmpresa(*con, {400, 5, 4});
    Conexion::InstalarGrabadora(nullptr); // thousands of statements: not worth keeping
    FijarReloj(QDateTime(banco::InicioPeriodo().addMonths(1), QTime(8, 0)));
  }
  void TearDown() override { FijarReloj({}); }

  // A generation of the operations the benchmark posts at one frequency, in a rehearsal
  // that leaves nothing when asked; the tables it leaves, and its log.
  std::pair<QStringList, QByteArray> Generar(int frec, bool memoria, bool ensayo) {
    Corrida corrida;
    ArbolOperaciones arbol;
    corrida.Conexion = emp->Abrir();
    Conexion &c = *corrida.Conexion;
    if (ensayo)
      c.IniciarEnsayo();
    // The rules at the frequency, as the benchmark sets them: by day the sales leave out
    // the datum that only a document has.
    c.Ejecutar(QStringLiteral("UPDATE tblOperacionxConcep SET FREC=%1").arg(frec));
    if (frec == 2)
      c.Ejecutar(
          QStringLiteral("DELETE FROM tblRubrosxOperacion WHERE COD_OPER=1 AND COD_DATO=97"));
    CargarOperaciones(corrida);
    arbol.CargarArbol(c);
    EXPECT_TRUE(arbol.MarcarOperaciones({1, 2, 12, 22, 24}));
    OpcionesGeneracion o;
    o.Del = banco::InicioPeriodo();
    o.Al = o.Del.addDays(4);
    o.FechaDefinida = o.Del;
    o.Memoria = memoria;
    o.Resumen = emp->Ruta() + QStringLiteral("/g%1%2.txt").arg(frec).arg(memoria);
    EXPECT_TRUE(Generador(corrida, o).GenerarPolizas(arbol).hubo);
    const QStringList tablas = diario::TodasLasTablas(c);
    if (ensayo)
      c.TerminarEnsayo();
    return {tablas, LeerArchivo(o.Resumen)};
  }
  QByteArray Exportar(bool memoria) {
    FormatoArchivo formato;
    EXPECT_TRUE(CargarFormato(*con, formato));
    DatosGenerarArchivo datos;
    datos.fechaIni = banco::InicioPeriodo();
    datos.fechaFin = datos.fechaIni.addDays(4);
    datos.memoria = memoria;
    datos.archivo = emp->Ruta() + QStringLiteral("/e%1.txt").arg(memoria);
    EXPECT_TRUE(GenerarArchivo(*con, formato, datos).completo);
    return LeerArchivo(datos.archivo);
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

// A server may hand the lines of one folio in any order: the same lines, and on the
// embedded engine the same bytes.
void Iguales(const QByteArray &a, const QByteArray &b, const std::string &motor) {
  if (motor == "sqlite") {
    EXPECT_EQ(a, b);
    return;
  }
  QList<QByteArray> la = a.split('\n'), lb = b.split('\n');
  std::sort(la.begin(), la.end());
  std::sort(lb.begin(), lb.end());
  EXPECT_EQ(la, lb);
}

} // namespace

TEST_P(Sintetica, TheMemoryOfEachRunChangesNoRowAndNoByte) {
  // By day: without the memory in a rehearsal, then with it, from the same company.
  const auto porDiaSin = Generar(2, false, true);
  const auto porDiaCon = Generar(2, true, true);
  EXPECT_EQ(porDiaCon.first, porDiaSin.first);
  EXPECT_EQ(porDiaCon.second, porDiaSin.second);
  EXPECT_GT(porDiaCon.first.size(), 200);
  // By document, the second for real: the exports read its entries.
  const auto porDocumentoSin = Generar(1, false, true);
  const auto porDocumentoCon = Generar(1, true, false);
  EXPECT_EQ(porDocumentoCon.first, porDocumentoSin.first);
  EXPECT_EQ(porDocumentoCon.second, porDocumentoSin.second);
  for (const banco::Formato formato : {banco::Formato::Contpaq, banco::Formato::DosRenglones}) {
    banco::FijarFormato(*con, formato);
    QByteArray sin;
    {
      const SentenciasUnaAUna unaAUna;
      sin = Exportar(false);
      ASSERT_GT(sin.size(), 10000);
      Iguales(Exportar(true), sin, GetParam());
    }
    Iguales(Exportar(true), sin, GetParam());
  }
}

TEST_P(Sintetica, EachGenerationInBatchesLeavesWhatItLeavesOneStatementAtATime) {
  for (const int frec : {2, 1}) {
    // Each run's log starts anew: a log kept from the run before would carry its text.
    const QString bitacora = emp->Ruta() + QStringLiteral("/g%1%2.txt").arg(frec).arg(true);
    std::pair<QStringList, QByteArray> unaAUna;
    {
      const SentenciasUnaAUna guarda;
      unaAUna = Generar(frec, true, true);
    }
    QFile::remove(bitacora);
    const auto enLote = Generar(frec, true, true);
    EXPECT_EQ(enLote.first, unaAUna.first);
    EXPECT_EQ(enLote.second, unaAUna.second);
    EXPECT_GT(enLote.first.size(), 200);
  }
}

INSTANTIATE_TEST_SUITE_P(Motores, Sintetica, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
