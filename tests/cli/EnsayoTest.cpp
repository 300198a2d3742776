#include "Apoyo.h"
#include "ApoyoCli.h"
#include "cli/ComandoPoliza.h"
#include "db/DatosDemo.h"
#include "db/EmpresaDemo.h"
#include "journal/DiarioPrueba.h"
#include "shell/Sesion.h"

#include <QFileInfo>

#include <algorithm>
#include <gtest/gtest.h>

namespace {

// The demo month in the test company, posted by the command line with and without a
// rehearsal.
class Ensayo : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    LlenarMesDemo(*con, kMes);
  }
  SalidaCli Generar(QStringList extra) {
    return CorrerCli(
        QStringList{QStringLiteral("--ruta"), emp->Ruta(), QStringLiteral("generar"),
                    QStringLiteral("--empresa"), QStringLiteral("1"), QStringLiteral("--usuario"),
                    QStringLiteral("ADMIN"), QStringLiteral("--clave"), QStringLiteral("clave"),
                    QStringLiteral("--del"), QStringLiteral("2026-10-01"), QStringLiteral("--al"),
                    QStringLiteral("2026-10-31"), QStringLiteral("--bitacora"),
                    emp->Ruta() + QStringLiteral("/bitacora.txt"), QStringLiteral("--agregar"),
                    QStringLiteral("--sin-progreso")} +
        extra);
  }
  QStringList Base() { return diario::TodasLasTablas(*con); }
  // The entries of a listing, each with its lines in an order of their own, the entries
  // by their head.
  static QStringList Polizas(const QString &listado) {
    QStringList bloques;
    for (const QString &bloque : listado.split(QStringLiteral("\n\n"))) {
      if (!bloque.startsWith(QStringLiteral("Póliza ")))
        continue;
      QStringList lineas = bloque.split(QLatin1Char('\n'));
      std::sort(lineas.begin() + 2, lineas.end());
      bloques << lineas.join(QLatin1Char('\n'));
    }
    bloques.sort();
    return bloques;
  }
  // The listing of the entries the company holds of the given folios.
  QString Listado(const QStringList &cabezas) {
    QString texto;
    QTextStream out(&texto);
    for (const QString &cabeza : cabezas) {
      // "Póliza I00000000001 (…": the type and the folio.
      const QString clave = cabeza.section(QLatin1Char(' '), 1, 1);
      cli::EscribirPoliza(out, *con, clave.left(1), clave.mid(1));
      out << "\n";
    }
    out.flush();
    return texto;
  }

  static inline const QDate kMes{2026, 10, 1};
  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

} // namespace

TEST_P(Ensayo, ARehearsalShowsWhatTheRunWritesAndLeavesTheDatabaseAsItWas) {
  const QStringList antes = Base();
  const SalidaCli ensayo = Generar({QStringLiteral("--ensayo")});
  ASSERT_EQ(ensayo.codigo, 0) << ensayo.err.toStdString();
  EXPECT_EQ(Base(), antes);
  EXPECT_FALSE(QFileInfo::exists(emp->Ruta() + QStringLiteral("/bitacora.txt")));
  const QStringList previstas = Polizas(ensayo.out);
  ASSERT_GT(previstas.size(), 100);
  EXPECT_TRUE(ensayo.out.contains(
      QStringLiteral("Ensayo: se grabarían %1 pólizas; no se grabó nada.").arg(previstas.size())));
  // The log is shown, not written.
  EXPECT_TRUE(ensayo.out.contains(QStringLiteral("Resumen del Proceso de Generación de Pólizas")));

  const SalidaCli real = Generar({});
  ASSERT_EQ(real.codigo, 0) << real.err.toStdString();
  QStringList cabezas;
  for (const QString &b : previstas)
    cabezas << b.section(QLatin1Char('\n'), 0, 0);
  EXPECT_EQ(Polizas(Listado(cabezas)), previstas);
  EXPECT_EQ(emp->Contar(QStringLiteral("tblPolizasEnc")), previstas.size());

  // Redoing the posted month: the rehearsal shows the entries redone, as the run then does.
  const QStringList posteada = Base();
  const SalidaCli rehecho = Generar({QStringLiteral("--ensayo"), QStringLiteral("--actualizar")});
  ASSERT_EQ(rehecho.codigo, 0) << rehecho.err.toStdString();
  EXPECT_EQ(Base(), posteada);
  const QStringList rehechas = Polizas(rehecho.out);
  ASSERT_FALSE(rehechas.isEmpty());
  ASSERT_EQ(Generar({QStringLiteral("--actualizar")}).codigo, 0);
  QStringList otras;
  for (const QString &b : rehechas)
    otras << b.section(QLatin1Char('\n'), 0, 0);
  EXPECT_EQ(Polizas(Listado(otras)), rehechas);
}

INSTANTIATE_TEST_SUITE_P(Motores, Ensayo, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
