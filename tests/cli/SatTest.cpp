#include "Apoyo.h"
#include "ApoyoCli.h"
#include "db/DatosDemo.h"
#include "db/EmpresaDemo.h"
#include "export/ApoyoSat.h"
#include "shell/Rutas.h"
#include "shell/Sesion.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <map>

#include <gtest/gtest.h>

namespace {

// The demo month posted by the command line, and the SAT's files of it.
class SatCli : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    LlenarMesDemo(*con, QDate(2026, 10, 1));
    const SalidaCli g =
        Correr({QStringLiteral("generar")},
               {QStringLiteral("--del"), QStringLiteral("2026-10-01"), QStringLiteral("--al"),
                QStringLiteral("2026-10-31"), QStringLiteral("--bitacora"),
                emp->Ruta() + QStringLiteral("/bitacora.txt"), QStringLiteral("--sin-progreso")});
    ASSERT_EQ(g.codigo, 0) << g.err.toStdString();
  }
  // The command's words, the session's options, then the command's own.
  SalidaCli Correr(const QStringList &comando, const QStringList &opciones) {
    return CorrerCli(QStringList{QStringLiteral("--ruta"), emp->Ruta()} + comando +
                     QStringList{QStringLiteral("--empresa"), QStringLiteral("1"),
                                 QStringLiteral("--usuario"), QStringLiteral("ADMIN"),
                                 QStringLiteral("--clave"), QStringLiteral("clave")} +
                     opciones);
  }
  SalidaCli Polizas(const QStringList &extra, const char *mes = "2026-10") {
    return Correr({QStringLiteral("sat"), QStringLiteral("polizas")},
                  QStringList{QStringLiteral("--mes"), QLatin1String(mes)} + extra);
  }
  SalidaCli Catalogo(const QStringList &extra = {}) {
    return Correr({QStringLiteral("sat"), QStringLiteral("catalogo")},
                  QStringList{QStringLiteral("--mes"), QStringLiteral("2026-10")} + extra);
  }
  QString Export() const { return RutaNativa(UnirRuta(emp->Ruta(), QStringLiteral("Export"))); }
  QString EnExport(const char *nombre) const {
    return QDir::toNativeSeparators(Export() + QLatin1Char('/') + QLatin1String(nombre));
  }
  bool ExportVacio() const { return QDir(Export()).isEmpty(); }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

struct Sumas {
  int lineas = 0;
  Dinero debe, haber;
};

} // namespace

TEST_P(SatCli, TheDemoMonthsEntriesValidateAndSumAsTheStoredLines) {
  const SalidaCli s = Polizas({QStringLiteral("--solicitud"), QStringLiteral("fc"),
                               QStringLiteral("--orden"), QStringLiteral("XYZ0000123/26")});
  ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
  const QString archivo = EnExport("FDL180314AB1202610PL.xml");
  EXPECT_TRUE(s.out.contains(QStringLiteral("  Archivo:        ") + archivo + QLatin1Char('\n')));
  EXPECT_EQ(satprueba::Validar(archivo, QStringLiteral("PolizasPeriodo_1_3.xsd")), QString());

  // Every stored line, each rounded to cents as the file carries it, by entry.
  std::map<QString, Sumas> guardadas;
  for (Registros r = con->Abrir(QStringLiteral(
           "SELECT tblPolizasRen.TIP_POLIZA,tblPolizasRen.FOL_POLIZA,IMP_DEBE,IMP_HABER FROM "
           "tblPolizasRen INNER JOIN tblPolizasEnc ON tblPolizasEnc.FOL_POLIZA="
           "tblPolizasRen.FOL_POLIZA AND tblPolizasEnc.TIP_POLIZA=tblPolizasRen.TIP_POLIZA"));
       !r.Fin(); r.Siguiente()) {
    Sumas &s = guardadas[r.Campo(0).Texto() + QLatin1Char('-') + r.Campo(1).Texto()];
    ++s.lineas;
    s.debe += Dinero::DeTexto(r.Campo(2).ComoDinero().Formato(u"###0.00"));
    s.haber += Dinero::DeTexto(r.Campo(3).ComoDinero().Formato(u"###0.00"));
  }
  const std::vector<satprueba::PolizaLeida> leidas = satprueba::LeerPolizas(archivo);
  ASSERT_EQ(leidas.size(), guardadas.size());
  EXPECT_GT(leidas.size(), 300u);
  Dinero debe, haber;
  for (const satprueba::PolizaLeida &p : leidas) {
    const auto g = guardadas.find(p.clave);
    ASSERT_NE(g, guardadas.end()) << p.clave.toStdString();
    EXPECT_EQ(p.transacciones, g->second.lineas) << p.clave.toStdString();
    EXPECT_EQ(p.debe, g->second.debe) << p.clave.toStdString();
    EXPECT_EQ(p.haber, g->second.haber) << p.clave.toStdString();
    EXPECT_TRUE(p.fecha.startsWith(QStringLiteral("2026-10-")));
    debe += p.debe;
    haber += p.haber;
  }
  EXPECT_EQ(debe, haber);
  EXPECT_TRUE(s.out.contains(QStringLiteral("  Pólizas:        %1\n").arg(leidas.size())));
}

TEST_P(SatCli, TheDemoChartValidatesWithEveryRubro) {
  const SalidaCli s = Catalogo({QStringLiteral("--json")});
  ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
  const QJsonObject o = QJsonDocument::fromJson(s.out.toUtf8()).object();
  const QString archivo = o.value(QStringLiteral("archivo")).toString();
  EXPECT_EQ(archivo, EnExport("FDL180314AB1202610CT.xml"));
  EXPECT_EQ(o.value(QStringLiteral("cuentas")).toInt(),
            emp->Contar(QStringLiteral("tblCatRubros")));
  EXPECT_EQ(satprueba::Validar(archivo, QStringLiteral("CatalogoCuentas_1_3.xsd")), QString());
}

TEST_P(SatCli, ARubroWithoutACodeStopsTheChartAndIsNamed) {
  con->Ejecutar(QStringLiteral("DELETE FROM tblRubrosSAT WHERE COD_RUBRO='6-01-03'"));
  const SalidaCli s = Catalogo();
  EXPECT_EQ(s.codigo, 8);
  EXPECT_EQ(s.err, QStringLiteral("No se escribió el archivo del SAT:\n  La cuenta 6103-000-000 "
                                  "(6-01-03 GAS) no tiene código agrupador del SAT (CodAgrup).\n"));
  EXPECT_TRUE(ExportVacio());
}

TEST_P(SatCli, BadInputIsRefusedNamingTheFieldAndNoFileIsWritten) {
  const auto rechazo = [&](const QStringList &extra, int codigo, const char *campo) {
    const SalidaCli s = Polizas(extra);
    EXPECT_EQ(s.codigo, codigo) << campo;
    EXPECT_TRUE(s.err.contains(QStringLiteral("(%1)").arg(QLatin1String(campo))))
        << campo << ": " << s.err.toStdString();
  };
  const QString solicitud = QStringLiteral("--solicitud");
  rechazo(
      {solicitud, QStringLiteral("ZZ"), QStringLiteral("--orden"), QStringLiteral("ABC1234567/26")},
      1, "TipoSolicitud");
  rechazo(
      {solicitud, QStringLiteral("AF"), QStringLiteral("--orden"), QStringLiteral("ABC1234567")}, 1,
      "NumOrden");
  rechazo({solicitud, QStringLiteral("AF")}, 1, "NumOrden");
  rechazo({solicitud, QStringLiteral("DE"), QStringLiteral("--tramite"),
           QStringLiteral("D1234567890123")},
          1, "NumTramite");
  rechazo(
      {solicitud, QStringLiteral("CO"), QStringLiteral("--orden"), QStringLiteral("ABC1234567/26")},
      1, "NumOrden");

  con->Ejecutar(QStringLiteral("UPDATE tblEmpresa SET RFC3_EMP='' WHERE COD_EMPRESA=1"));
  rechazo({solicitud, QStringLiteral("DE"), QStringLiteral("--tramite"),
           QStringLiteral("DE123456789012")},
          8, "RFC");
  con->Ejecutar(QStringLiteral("UPDATE tblEmpresa SET RFC3_EMP='AB1' WHERE COD_EMPRESA=1"));
  const SalidaCli vacio = Polizas({solicitud, QStringLiteral("DE"), QStringLiteral("--tramite"),
                                   QStringLiteral("DE123456789012")},
                                  "2026-11");
  EXPECT_EQ(vacio.codigo, 8);
  EXPECT_EQ(vacio.err, QStringLiteral("No se escribió el archivo del SAT:\n  El mes 11/2026 no "
                                      "tiene pólizas con movimientos (Mes).\n"));
  EXPECT_TRUE(ExportVacio());
}

INSTANTIATE_TEST_SUITE_P(Motores, SatCli, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
