#include "FixtureGeneracion.h"
#include "db/DatosDemo.h"
#include "db/EmpresaDemo.h"
#include "export/FormatoArchivo.h"
#include "export/GenerarArchivo.h"

#include <gtest/gtest.h>

namespace {

// The demo month on a company whose every text holds an apostrophe ("V'2610…", "R'NTA…"):
// posted by document and by day, exported for the package and in a user layout.
class Apostrofos : public testing::TestWithParam<std::string> {
protected:
  static inline const QDate kMes{2026, 10, 1};

  struct Cifras {
    qint64 polizas = 0, renglones = 0, movimientos = 0;
    QString debe;
  };

  void Llenar(bool marcar) {
    emp.reset();
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    demo::MarcarTextos(marcar);
    demo::LlenarIdentidad(*con, QStringLiteral("x"));
    demo::LlenarCatalogos(*con);
    demo::LlenarDocumentos(*con, kMes);
    demo::MarcarTextos(false);
    gCodUsu = QStringLiteral("ADMIN");
    gNumEmp = 1;
    Conexion::InstalarGrabadora(nullptr);
    opciones.Del = kMes;
    opciones.Al = kMes.addMonths(1).addDays(-1);
    opciones.FechaDefinida = opciones.Al;
    opciones.Resumen = emp->Ruta() + QStringLiteral("/mes.txt");
  }
  QString Uno(const char *sql) { return emp->Valor(QString::fromUtf8(sql)); }
  Cifras Generar() {
    const ResultadoGeneracion r = CorrerGeneracion(*emp, opciones);
    EXPECT_TRUE(r.hubo);
    Cifras c;
    c.polizas = Uno("SELECT COUNT(*) FROM tblPolizasEnc").toLongLong();
    c.renglones = Uno("SELECT COUNT(*) FROM tblPolizasRen").toLongLong();
    c.movimientos = Uno("SELECT COUNT(*) FROM tblMovimxPoliza").toLongLong();
    Registros s = con->Abrir(QStringLiteral("SELECT SUM(IMP_DEBE) AS D FROM tblPolizasRen"));
    c.debe = s.Campo(QStringLiteral("D")).ComoDinero().Texto();
    return c;
  }
  QByteArray Exportar(demo::FormatoDemo tipo, const QString &nombre) {
    demo::LlenarFormato(*con, tipo);
    FormatoArchivo formato;
    EXPECT_TRUE(CargarFormato(*con, formato));
    DatosGenerarArchivo datos;
    datos.fechaIni = opciones.Del;
    datos.fechaFin = opciones.Al;
    datos.archivo = emp->Ruta() + QLatin1Char('/') + nombre;
    const ResultadoArchivo r = GenerarArchivo(*con, formato, datos);
    EXPECT_TRUE(r.completo) << r.falla.toStdString();
    return LeerArchivo(datos.archivo);
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  OpcionesGeneracion opciones;
};

} // namespace

TEST_P(Apostrofos, EveryTextWithAnApostropheIsPostedAndExportedIntact) {
  Llenar(false);
  const Cifras sin = Generar();
  con.reset();
  Llenar(true);
  const Cifras con_ = Generar();
  // The same month gives the same entries, lines, records and amounts.
  EXPECT_EQ(con_.polizas, sin.polizas);
  EXPECT_EQ(con_.renglones, sin.renglones);
  EXPECT_EQ(con_.movimientos, sin.movimientos);
  EXPECT_EQ(con_.debe, sin.debe);
  EXPECT_GT(Uno("SELECT COUNT(*) FROM tblMovimxPoliza WHERE FREC=1").toInt(), 0);
  EXPECT_GT(Uno("SELECT COUNT(*) FROM tblMovimxPoliza WHERE FREC=2").toInt(), 0);
  // Stored as they read, apostrophe and all.
  EXPECT_EQ(Uno("SELECT COUNT(*) FROM tblPolizasEnc WHERE CONCEP_POL='R''NTA DEL LOCAL "
                "D''ANGELO'"),
            QStringLiteral("1"));
  EXPECT_EQ(Uno("SELECT COUNT(*) FROM tblMovimxPoliza WHERE FOLIO_MOV NOT LIKE '%''%'"),
            QStringLiteral("0"));
  EXPECT_EQ(Uno("SELECT COUNT(*) FROM tblBitacoraPolizas WHERE COD_CONCEP='RENT'"),
            QStringLiteral("1"));
  // Every posted expense is stamped for the sibling modules.
  EXPECT_EQ(Uno("SELECT COUNT(*) FROM tblGastosEnc WHERE CONTAB=1"),
            Uno("SELECT COUNT(DISTINCT FOLIO_MOV) FROM tblMovimxPoliza WHERE COD_OPER=22"));
  EXPECT_TRUE(DecodificarWindows1252(LeerArchivo(opciones.Resumen))
                  .contains(QStringLiteral("R'NTA DEL LOCAL D'ANGELO")));

  const QByteArray contpaq = Exportar(demo::FormatoDemo::Contpaq, QStringLiteral("contpaq.txt"));
  EXPECT_TRUE(contpaq.contains("R'NTA DEL LOCAL D'ANGELO"));
  const QByteArray usuario =
      Exportar(demo::FormatoDemo::DosRenglones, QStringLiteral("usuario.txt"));
  EXPECT_TRUE(usuario.contains("R'NTA DEL LOCAL D'ANGELO"));
  // By concept: the export's own filter quotes the text it is given.
  DatosGenerarArchivo datos;
  datos.fechaIni = opciones.Del;
  datos.fechaFin = opciones.Al;
  datos.concepto = QStringLiteral("R'NTA DEL LOCAL D'ANGELO");
  datos.archivo = emp->Ruta() + QStringLiteral("/renta.txt");
  FormatoArchivo formato;
  ASSERT_TRUE(CargarFormato(*con, formato));
  const ResultadoArchivo r = GenerarArchivo(*con, formato, datos);
  ASSERT_TRUE(r.completo) << r.falla.toStdString();
  EXPECT_GT(r.lineas, 0);
}

INSTANTIATE_TEST_SUITE_P(Motores, Apostrofos, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
