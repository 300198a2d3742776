#include "db/Esquema.h"
#include "Apoyo.h"
#include "db/ConstructorBD.h"

#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace {

void SinRepetidos(const std::vector<esquema::Tabla> &tablas, QSet<QString> &indices) {
  QSet<QString> nombres;
  for (const esquema::Tabla &t : tablas) {
    const QString tabla = QLatin1String(t.nombre);
    EXPECT_FALSE(nombres.contains(tabla.toLower())) << t.nombre;
    nombres.insert(tabla.toLower());
    QSet<QString> columnas;
    for (const esquema::Columna &c : t.columnas) {
      const QString col = QString::fromUtf8(c.nombre).toLower();
      EXPECT_FALSE(columnas.contains(col)) << t.nombre << "." << c.nombre;
      columnas.insert(col);
    }
    for (const esquema::Indice &i : t.indices) {
      EXPECT_FALSE(indices.contains(QLatin1String(i.nombre))) << i.nombre;
      indices.insert(QLatin1String(i.nombre));
      for (const char *c : i.columnas)
        EXPECT_TRUE(columnas.contains(QString::fromUtf8(c).toLower())) << i.nombre << " " << c;
    }
  }
}

const esquema::Tabla *Buscar(const char *nombre) {
  for (const esquema::Tabla &t : esquema::TablasEmpresa())
    if (qstrcmp(t.nombre, nombre) == 0)
      return &t;
  return nullptr;
}

bool TieneColumna(const char *tabla, const char *columna) {
  const esquema::Tabla *t = Buscar(tabla);
  if (!t)
    return false;
  for (const esquema::Columna &c : t->columnas)
    if (qstrcmp(c.nombre, columna) == 0)
      return true;
  return false;
}

} // namespace

TEST(Esquema, NamesAreUniqueAndIndexesNameRealColumns) {
  QSet<QString> indices;
  SinRepetidos(esquema::TablasEmpresa(), indices);
  QSet<QString> general, referencia;
  SinRepetidos(esquema::TablasGeneral(), general);
  SinRepetidos(esquema::TablasReferencia(), referencia);
}

TEST(Esquema, CarriesTheColumnsThatTheStatementsName) {
  EXPECT_TRUE(TieneColumna("tblAuxCaja", "CREDITO"));
  EXPECT_TRUE(TieneColumna("tblAuxCaja", "STS_DOC"));
  EXPECT_TRUE(TieneColumna("tblCxPEnc", "COD_CON"));
  EXPECT_TRUE(TieneColumna("tblCxPEnc", "CON_CEP"));
  EXPECT_TRUE(TieneColumna("tblRubrosxOperacion", "ORDEN_CREA"));
  for (const char *t : {"tblGralVentas", "tblAuxCaja", "tblEncCargosAbonos", "tblEncDevolucion",
                        "tblGralAlmacen", "tblComprasEnc", "tblDevolucionEnc", "tblCxPEnc",
                        "tblGastosEnc", "tblReposicionCaja", "tblIngreEgre"})
    EXPECT_TRUE(TieneColumna(t, "CONTAB")) << t;
}

TEST(Esquema, TheJournalLookupsHaveIndexes) {
  auto indexada = [](const char *tabla, const char *primera) {
    for (const esquema::Indice &i : Buscar(tabla)->indices)
      if (!i.columnas.empty() && qstrcmp(i.columnas.front(), primera) == 0)
        return true;
    return false;
  };
  EXPECT_TRUE(indexada("tblMovimxPoliza", "FOLIO_MOV"));
  EXPECT_TRUE(indexada("tblPolizasEnc", "FOL_POLIZA"));
  EXPECT_TRUE(indexada("tblPolizasRen", "FOL_POLIZA"));
}

TEST(ConstructorBD, EachEngineGetsItsOwnDialect) {
  esquema::Tabla t{"tblPrueba",
                   {{"ORDEN_CREA", esquema::Tipo::Contador},
                    {"NOMBRE", esquema::Tipo::Texto, 30},
                    {"IMPORTE", esquema::Tipo::Dinero},
                    {"NOTA", esquema::Tipo::Memo}},
                   {{"IX_tblPrueba_1", {"NOMBRE"}}}};
  EXPECT_EQ(
      constructor::SentenciasDDL({t}, 4),
      QStringList({QStringLiteral("CREATE TABLE `tblPrueba` (`ORDEN_CREA` INT NOT NULL "
                                  "AUTO_INCREMENT PRIMARY KEY, `NOMBRE` VARCHAR(30), "
                                  "`IMPORTE` DECIMAL(19,4), `NOTA` TEXT) ENGINE=InnoDB "
                                  "DEFAULT CHARSET=utf8mb4"),
                   QStringLiteral("CREATE INDEX `IX_tblPrueba_1` ON `tblPrueba` (`NOMBRE`)")}));
  EXPECT_EQ(constructor::CrearTabla(t, 3),
            QStringLiteral("CREATE TABLE [tblPrueba] ([ORDEN_CREA] INT IDENTITY(1,1) NOT NULL "
                           "PRIMARY KEY, [NOMBRE] VARCHAR(30), [IMPORTE] DECIMAL(19,4), [NOTA] "
                           "VARCHAR(MAX))"));
  EXPECT_EQ(constructor::CrearTabla(t, 5),
            QStringLiteral("CREATE TABLE \"tblPrueba\" (\"ORDEN_CREA\" INTEGER PRIMARY KEY "
                           "AUTOINCREMENT, \"NOMBRE\" VARCHAR(30), \"IMPORTE\" DECIMAL(19,4), "
                           "\"NOTA\" TEXT)"));
}

TEST(Esquema, TheLengthOfATextColumnAndNoneForTheRest) {
  EXPECT_EQ(esquema::Largo("tblParametrosGenerales", "FE_USUARIO"), 50);
  EXPECT_EQ(esquema::Largo("tblTcTerminales", "NUM_TERMINAL"), 20);
  EXPECT_EQ(esquema::Largo("tblParametrosGenerales", "FE_VERSION"), 0);
  EXPECT_EQ(esquema::Largo("tblNoExiste", "X"), 0);
}

class EsquemaEnMotor : public testing::TestWithParam<std::string> {};

TEST_P(EsquemaEnMotor, EveryTableIsThereAndOrdenCreaGrowsWithEachInsertion) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  for (const esquema::Tabla &t : esquema::TablasEmpresa())
    EXPECT_NE(emp.Valor(QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1String(t.nombre))),
              QStringLiteral("<sin filas>"));
  for (int dato : {7, 3, 5})
    con->Ejecutar(QStringLiteral("INSERT INTO tblRubrosxOperacion (COD_POL,COD_DATO) VALUES (1,%1)")
                      .arg(dato));
  Registros r = con->Abrir(
      QStringLiteral("SELECT * FROM tblRubrosxOperacion WHERE COD_POL=1 ORDER BY ORDEN_CREA;"));
  QStringList datos;
  for (; !r.Fin(); r.Siguiente())
    datos << r.Campo(QStringLiteral("COD_DATO")).Texto();
  EXPECT_EQ(datos, QStringList({QStringLiteral("7"), QStringLiteral("3"), QStringLiteral("5")}));
}

TEST_P(EsquemaEnMotor, TheStructureCheckAddsWhatIsMissingAndChangesNothingElse) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  // A table of an older version without two columns, and a table that isn't there.
  con->Ejecutar(QStringLiteral("DROP TABLE tblCiudad"));
  con->Ejecutar(
      QStringLiteral("CREATE TABLE tblCiudad (COD_CID VARCHAR(10), DES_CID VARCHAR(50))"));
  con->Ejecutar(
      QStringLiteral("INSERT INTO tblCiudad (COD_CID,DES_CID) VALUES ('GDL','Guadalajara')"));
  con->Ejecutar(QStringLiteral("DROP TABLE tblPais"));
  QString error;
  emp.grabadora.sentencias.clear();
  ASSERT_TRUE(constructor::RevisarEstructura(*con, esquema::TablasEmpresa(), &error))
      << error.toStdString();
  const QStringList cambios =
      emp.grabadora.sentencias.filter(QRegularExpression(QStringLiteral("^(ALTER|CREATE)")));
  // Three columns added; the table made with its index.
  EXPECT_EQ(cambios.size(), 5) << cambios.join(QLatin1Char('\n')).toStdString();
  EXPECT_EQ(cambios.filter(QStringLiteral("tblPais")).size(), 2);
  EXPECT_EQ(cambios.filter(QStringLiteral("ALTER TABLE")).size(), 3);
  EXPECT_EQ(emp.Valor(QStringLiteral("SELECT DES_CID FROM tblCiudad WHERE COD_CID='GDL'")),
            QStringLiteral("Guadalajara"));
  con->Ejecutar(QStringLiteral("UPDATE tblCiudad SET NOM_CID='GUADALAJARA',MUN_CID='039'"));
  // A second check finds nothing to do.
  emp.grabadora.sentencias.clear();
  ASSERT_TRUE(constructor::RevisarEstructura(*con, esquema::TablasEmpresa(), &error));
  EXPECT_TRUE(emp.grabadora.sentencias.filter(QRegularExpression(QStringLiteral("^(ALTER|CREATE)")))
                  .isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Motores, EsquemaEnMotor, testing::ValuesIn(MotoresDePrueba()),
                         NombreMotor);
