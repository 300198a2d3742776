#include "Apoyo.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <gtest/gtest.h>

TEST(TraducirConexion, SqliteRelativePathsHangFromTheProgramFolder) {
  const DestinoConexion d = ServicioConexion::Traducir(QStringLiteral("SQLite=Empresas\\Demo.db"),
                                                       QStringLiteral("/x/y"), {});
  EXPECT_EQ(d.driver, QStringLiteral("QSQLITE"));
  EXPECT_EQ(d.baseDeDatos, QStringLiteral("/x/y/Empresas/Demo.db"));
  EXPECT_EQ(d.motor, 5);
}

TEST(TraducirConexion, DsnGoesToOdbcWithoutTrailingSemicolon) {
  const DestinoConexion d =
      ServicioConexion::Traducir(QStringLiteral("DSN=Tienda;"), QStringLiteral("/x"), {});
  EXPECT_EQ(d.driver, QStringLiteral("QODBC"));
  EXPECT_EQ(d.baseDeDatos, QStringLiteral("Tienda")); // QODBC adds "DSN=" itself
  EXPECT_EQ(d.motor, 4);
}

TEST(TraducirConexion, SqlServerGoesThroughTheDriverNamedInTheIni) {
  const DestinoConexion d = ServicioConexion::Traducir(
      QStringLiteral("Provider=SQLOLEDB.1; Password=s3; Persist Security Info=True; User ID=sa; "
                     "Initial Catalog=Tienda; Data Source=SRV\\SQLEXPRESS"),
      QStringLiteral("/x"), QStringLiteral("ODBC Driver 18 for SQL Server"));
  EXPECT_EQ(d.baseDeDatos,
            QStringLiteral("Driver={ODBC Driver 18 for SQL "
                           "Server};Server=SRV\\SQLEXPRESS;Database=Tienda;UID=sa;PWD=s3"));
  EXPECT_EQ(d.motor, 3);
  const DestinoConexion i = ServicioConexion::Traducir(
      QStringLiteral("Provider=SQLOLEDB.1; Integrated Security=SSPI; Persist Security Info=False; "
                     "Initial Catalog=Tienda; Data Source=SRV\\"),
      QStringLiteral("/x"), {});
  EXPECT_EQ(i.baseDeDatos,
            QStringLiteral("Driver={FreeTDS};Server=SRV;Database=Tienda;Trusted_Connection=Yes"));
}

TEST(TraducirConexion, TheGeneralDatabaseTextKeepsItsFormAndOpensAsSqlite) {
  EXPECT_EQ(ConexionGeneral(QStringLiteral("C:\\Tolvane")),
            QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\Tolvane\\Nimbar.mdb;"
                           "Persist Security Info=False;Jet OLEDB:Database Password="));
  const DestinoConexion d =
      ServicioConexion::Traducir(ConexionGeneral(QStringLiteral("/no/hay")), {}, {});
  EXPECT_EQ(d.driver, QStringLiteral("QSQLITE"));
  EXPECT_EQ(d.baseDeDatos, QStringLiteral("/no/hay/Nimbar.mdb"));
}

TEST(TraducirConexion, ATextOfNoKnownFormIsAClearFatalError) {
  try {
    ServicioConexion::Traducir(QStringLiteral("Servidor=Algo"), {}, {});
    FAIL();
  } catch (const ErrorFatal &e) {
    EXPECT_TRUE(e.Mensaje().contains(QStringLiteral("no tiene una forma conocida")));
  }
}

TEST(AbrirConexion, AMissingSqliteFileIsNotCreated) {
  EmpresaPrueba emp;
  ServicioConexion s;
  EXPECT_THROW(s.AbrirConexion(QStringLiteral("SQLite=NoExiste.db")), ErrorFatal);
  EXPECT_FALSE(QFileInfo::exists(emp.Ruta() + QStringLiteral("/NoExiste.db")));
}

TEST(AbrirConexion, TheReferenceDatabaseOpensUnderTheFolderGiven) {
  EmpresaPrueba emp;
  ServicioConexion s;
  ConexionPtr ref = s.AbrirConexionRuta(gRutaApp);
  Registros r = ref->Abrir(QStringLiteral("SELECT VER FROM tblVersion;"));
  ASSERT_FALSE(r.Vacio());
  EXPECT_EQ(r.Campo(QStringLiteral("VER")).Texto(), QStringLiteral("870"));
}

class Conexiones : public testing::TestWithParam<std::string> {};

TEST_P(Conexiones, TheRecorderKeepsEveryStatementInOrder) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  emp.grabadora.sentencias.clear();
  con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM) "
                               "VALUES ('D','DIARIO','5',3)"));
  con->Abrir(QStringLiteral("SELECT * FROM tblFolios WHERE COD_FOLIO='D';"));
  con->IntentarEjecutar(QStringLiteral("UPDATE tblNoExiste SET A=1"));
  EXPECT_EQ(emp.grabadora.sentencias,
            QStringList({QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,"
                                        "COD_NUM) VALUES ('D','DIARIO','5',3)"),
                         QStringLiteral("SELECT * FROM tblFolios WHERE COD_FOLIO='D';"),
                         QStringLiteral("UPDATE tblNoExiste SET A=1")}));
}

TEST_P(Conexiones, RecordSetsAreForwardOnlyWithBofEofAndNullAsEmptyText) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  Registros vacio = con->Abrir(QStringLiteral("SELECT * FROM tblFolios;"));
  EXPECT_TRUE(vacio.Vacio());
  EXPECT_TRUE(vacio.Fin());
  con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,FOL_FOLIOS) VALUES ('E','12')"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,FOL_FOLIOS) VALUES ('I','7')"));
  Registros r = con->Abrir(QStringLiteral("SELECT * FROM tblFolios ORDER BY COD_FOLIO;"));
  EXPECT_FALSE(r.Vacio());
  EXPECT_EQ(r.Campo(QStringLiteral("cod_folio")).Texto(), QStringLiteral("E"));
  EXPECT_TRUE(r.Campo(QStringLiteral("DES_FOLIO")).EsNulo());
  EXPECT_EQ(r.Campo(QStringLiteral("DES_FOLIO")).Texto(), QString());
  EXPECT_THROW(r.Campo(QStringLiteral("COD_NUM")).Entero(), ErrorFatal);
  EXPECT_EQ(r.Campo(QStringLiteral("FOL_FOLIOS")).Entero(), 12);
  EXPECT_THROW(r.Campo(QStringLiteral("NO_HAY")), ErrorFatal);
  r.Siguiente();
  EXPECT_EQ(r.Campo(QStringLiteral("COD_FOLIO")).Texto(), QStringLiteral("I"));
  r.Siguiente();
  EXPECT_TRUE(r.Fin());
  EXPECT_FALSE(r.Vacio());
}

TEST_P(Conexiones, AFailedStatementEndsTheProcessWithTheStatement) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  try {
    con->Ejecutar(QStringLiteral("UPDATE tblNoExiste SET A=1"));
    FAIL();
  } catch (const ErrorFatal &e) {
    EXPECT_EQ(e.Sentencia(), QStringLiteral("UPDATE tblNoExiste SET A=1"));
  }
  int afectados = -1;
  QString error;
  EXPECT_FALSE(
      con->IntentarEjecutar(QStringLiteral("UPDATE tblNoExiste SET A=1"), &afectados, &error));
  EXPECT_EQ(afectados, 0);
  EXPECT_FALSE(error.isEmpty());
}

TEST_P(Conexiones, AnApostropheThatReachesTheStatementBreaksIt) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  const QString pegado = QStringLiteral("D'Angelo");
  EXPECT_FALSE(con->IntentarEjecutar(
      QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO) VALUES ('X','%1')").arg(pegado)));
  EXPECT_EQ(emp.Contar(QStringLiteral("tblFolios")), 0);
}

TEST_P(Conexiones, TheDateLiteralComparesWithStoredDates) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  const int m = con->Motor();
  const QDate d(2024, 2, 29);
  con->Ejecutar(QStringLiteral("INSERT INTO tblMovimxPoliza (FOLIO_MOV,CONCEPTO,MODULO,FECHA_CON,"
                               "FECHA_MOV,COD_OPER) VALUES ('A','',1,%1,%2,1)")
                    .arg(ServicioUtil::FechaSQL(d, m), ServicioUtil::FechaSQL(d.addDays(1), m)));
  auto contar = [&](const QString &donde) {
    Registros r =
        con->Abrir(QStringLiteral("SELECT COUNT(*) AS N FROM tblMovimxPoliza WHERE ") + donde);
    return r.Campo(QStringLiteral("N")).Entero();
  };
  EXPECT_EQ(contar(QStringLiteral("FECHA_CON=") + ServicioUtil::FechaSQL(d, m)), 1);
  EXPECT_EQ(contar(QStringLiteral("FECHA_CON BETWEEN %1 AND %2")
                       .arg(ServicioUtil::FechaSQL(QDate(2024, 2, 1), m),
                            ServicioUtil::FechaSQL(QDate(2024, 2, 29), m))),
            1);
  EXPECT_EQ(contar(QStringLiteral("FECHA_MOV BETWEEN %1 AND %2")
                       .arg(ServicioUtil::FechaSQL(QDate(2024, 2, 1), m),
                            ServicioUtil::FechaSQL(QDate(2024, 2, 29), m))),
            0);
  EXPECT_EQ(contar(QStringLiteral("FECHA_CON<") + ServicioUtil::FechaSQL(d, m)), 0);
  Registros r = con->Abrir(QStringLiteral("SELECT FECHA_CON FROM tblMovimxPoliza;"));
  EXPECT_EQ(r.Campo(QStringLiteral("FECHA_CON")).Fecha(), d);
}

TEST_P(Conexiones, TheTimeLiteralIsStoredAsTheTimeOfDay) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  const QDateTime ahora(QDate(2024, 3, 1), QTime(14, 5, 9));
  con->Ejecutar(QStringLiteral("INSERT INTO tblBitacoraPolizas (MODULO,COD_OPER,COD_CONCEP,"
                               "FOL_POLIZA,HR_GENERA) VALUES (1,1,'','1',%1)")
                    .arg(ServicioUtil::FechaHoraSQL(ahora, con->Motor())));
  Registros r = con->Abrir(QStringLiteral("SELECT HR_GENERA FROM tblBitacoraPolizas;"));
  EXPECT_TRUE(r.Campo(QStringLiteral("HR_GENERA")).Texto().startsWith(QStringLiteral("14:05:09")));
}

TEST_P(Conexiones, MoneyComesBackExact) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  con->Ejecutar(QStringLiteral("INSERT INTO tblPolizasRen (FOL_POLIZA,TIP_POLIZA,COD_DATO,IMP_DEBE,"
                               "IMP_HABER) VALUES ('1','D',1,1234567.8901,-0.0001)"));
  Registros r = con->Abrir(QStringLiteral("SELECT IMP_DEBE,IMP_HABER,SUM(IMP_DEBE) AS S FROM "
                                          "tblPolizasRen GROUP BY IMP_DEBE,IMP_HABER;"));
  EXPECT_EQ(r.Campo(QStringLiteral("IMP_DEBE")).ComoDinero().Diezmilesimos(), 12345678901LL);
  EXPECT_EQ(r.Campo(QStringLiteral("IMP_HABER")).ComoDinero().Diezmilesimos(), -1);
  EXPECT_EQ(r.Campo(QStringLiteral("S")).ComoDinero().Diezmilesimos(), 12345678901LL);
}

TEST_P(Conexiones, AFieldFoundOnceIsReadByItsPlaceOnEveryRow) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,FOL_FOLIOS) VALUES ('E','12')"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,FOL_FOLIOS) VALUES ('I','7')"));
  Registros r = con->Abrir(QStringLiteral("SELECT FOL_FOLIOS,COD_FOLIO FROM tblFolios ORDER BY "
                                          "COD_FOLIO;"));
  const qsizetype codigo = r.Indice(QStringLiteral("cod_folio"));
  EXPECT_EQ(codigo, 1);
  EXPECT_EQ(r.Campo(codigo).Texto(), QStringLiteral("E"));
  r.Siguiente();
  EXPECT_EQ(r.Campo(codigo).Texto(), QStringLiteral("I"));
  r.Siguiente();
  EXPECT_THROW(r.Campo(codigo), ErrorFatal);
  EXPECT_THROW(r.Indice(QStringLiteral("NO_HAY")), ErrorFatal);
}

TEST_P(Conexiones, AQuerySentAgainReadsWhatWasWrittenMeanwhile) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  const QString contar = QStringLiteral("SELECT COUNT(*) AS N FROM tblFolios");
  emp.grabadora.sentencias.clear();
  for (int esperado = 0; esperado < 3; ++esperado) {
    EXPECT_EQ(con->Abrir(contar).Campo(QStringLiteral("N")).Entero(), esperado);
    con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO) VALUES ('F%1')").arg(esperado));
  }
  // Every time the query goes to the database and to the recorder.
  EXPECT_EQ(emp.grabadora.sentencias.count(contar), 3);
}

TEST_P(Conexiones, TwoRecordSetsOfOneTextKeepEachItsOwnRow) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO) VALUES ('E')"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO) VALUES ('I')"));
  const QString todos = QStringLiteral("SELECT COD_FOLIO FROM tblFolios ORDER BY COD_FOLIO");
  con->Abrir(todos); // leaves its statement free again
  Registros primero = con->Abrir(todos);
  primero.Siguiente();
  Registros segundo = con->Abrir(todos);
  EXPECT_EQ(primero.Campo(QStringLiteral("COD_FOLIO")).Texto(), QStringLiteral("I"));
  EXPECT_EQ(segundo.Campo(QStringLiteral("COD_FOLIO")).Texto(), QStringLiteral("E"));
  segundo.Siguiente();
  segundo.Siguiente();
  EXPECT_TRUE(segundo.Fin());
  EXPECT_EQ(primero.Campo(QStringLiteral("COD_FOLIO")).Texto(), QStringLiteral("I"));
}

TEST_P(Conexiones, ARecordSetLeftHalfReadHoldsNoOlderViewOfTheData) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr lectora = emp.Abrir();
  ConexionPtr escritora = emp.Abrir();
  escritora->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO) VALUES ('E')"));
  escritora->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO) VALUES ('I')"));
  {
    Registros r = lectora->Abrir(QStringLiteral("SELECT COD_FOLIO FROM tblFolios"));
    EXPECT_FALSE(r.Fin());
  }
  escritora->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO) VALUES ('D')"));
  EXPECT_EQ(lectora->Abrir(QStringLiteral("SELECT COUNT(*) AS N FROM tblFolios"))
                .Campo(QStringLiteral("N"))
                .Entero(),
            3);
}

TEST_P(Conexiones, ATableBuiltAgainUnderItsNameIsReadWithItsNewColumns) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  const QString todo = QStringLiteral("SELECT * FROM tblPrueba");
  con->Ejecutar(QStringLiteral("CREATE TABLE tblPrueba (A INTEGER)"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblPrueba (A) VALUES (1)"));
  EXPECT_EQ(con->Abrir(todo).Campos(), QStringList{QStringLiteral("A")});
  con->Ejecutar(QStringLiteral("DROP TABLE tblPrueba"));
  EXPECT_THROW(con->Abrir(todo), ErrorFatal);
  con->Ejecutar(QStringLiteral("CREATE TABLE tblPrueba (B INTEGER, C INTEGER)"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblPrueba (B,C) VALUES (2,3)"));
  {
    Registros r = con->Abrir(todo);
    EXPECT_EQ(r.Campos(), QStringList({QStringLiteral("B"), QStringLiteral("C")}));
    EXPECT_EQ(r.Campo(QStringLiteral("C")).Entero(), 3);
  }
  con->Ejecutar(QStringLiteral("DROP TABLE tblPrueba"));
  con->Ejecutar(QStringLiteral("CREATE TABLE tblPrueba (D INTEGER)"));
  EXPECT_EQ(con->Abrir(todo).Campos(), QStringList{QStringLiteral("D")});
  con->Ejecutar(QStringLiteral("DROP TABLE tblPrueba"));
}

TEST_P(Conexiones, TheMemoryOfReadsAnswersOnlyForTheTablesNamedAndOnlyWhileItLasts) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  con->Ejecutar(QStringLiteral("INSERT INTO tblCatRubros (COD_RUBRO,DES_RUBRO,CUENTA_RUBRO) "
                               "VALUES ('1-01','CAJA','1101'),('4-01','VENTAS','4101')"));
  con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,FOL_FOLIOS) VALUES ('I','7')"));
  con->RecordarLecturas({QStringLiteral("tblCatRubros")});
  const QString rubros = QStringLiteral("SELECT COD_RUBRO,CUENTA_RUBRO FROM tblCatRubros ORDER BY "
                                        "COD_RUBRO;");
  const QString ninguno =
      QStringLiteral("SELECT CUENTA_RUBRO FROM tblCatRubros WHERE COD_RUBRO='9';");
  const QString folios = QStringLiteral("SELECT FOL_FOLIOS FROM tblFolios WHERE COD_FOLIO='I';");
  const QString lista =
      QStringLiteral("SELECT COD_RUBRO FROM tblCatRubros, tblFolios WHERE COD_FOLIO='I';");
  const QString junta = QStringLiteral(
      "SELECT COD_RUBRO FROM tblCatRubros INNER JOIN tblFolios ON COD_RUBRO=COD_FOLIO;");
  emp.grabadora.sentencias.clear();
  for (int vez = 0; vez < 2; ++vez) {
    Registros r = con->Abrir(rubros);
    ASSERT_FALSE(r.Vacio());
    EXPECT_EQ(r.Campo(QStringLiteral("cod_rubro")).Texto(), QStringLiteral("1-01"));
    r.Siguiente();
    EXPECT_EQ(r.Campo(1).Texto(), QStringLiteral("4101"));
    r.Siguiente();
    EXPECT_TRUE(r.Fin());
    EXPECT_TRUE(con->Abrir(ninguno).Vacio());
    con->Abrir(folios);
    con->Abrir(lista);
    con->Abrir(junta);
    // A table the run writes is asked every time: what it reads now is what it finds.
    con->Ejecutar(QStringLiteral("UPDATE tblFolios SET FOL_FOLIOS='8' WHERE COD_FOLIO='I';"));
  }
  EXPECT_EQ(con->Abrir(folios).Campo(0).Texto(), QStringLiteral("8"));
  const QString actualizar =
      QStringLiteral("UPDATE tblFolios SET FOL_FOLIOS='8' WHERE COD_FOLIO='I';");
  EXPECT_EQ(emp.grabadora.sentencias,
            QStringList({rubros, ninguno, folios, lista, junta, actualizar, folios, lista, junta,
                         actualizar, folios}));
  // Only a plain query of the tables named is remembered: not one whose tables hide in
  // parentheses, behind an alias in a list, or in a subquery.
  const QStringList otras = {
      QStringLiteral("SELECT COD_RUBRO FROM (tblCatRubros INNER JOIN tblFolios ON "
                     "COD_RUBRO=COD_FOLIO);"),
      QStringLiteral("SELECT COD_RUBRO FROM tblCatRubros r , tblFolios f;"),
      QStringLiteral("SELECT COD_RUBRO FROM tblCatRubros WHERE COD_RUBRO IN (SELECT COD_FOLIO "
                     "FROM tblFolios);"),
      QStringLiteral("SELECT COD_RUBRO FROM `tblCatRubros`;")};
  emp.grabadora.sentencias.clear();
  for (int vez = 0; vez < 2; ++vez)
    for (const QString &sql : otras)
      con->Abrir(sql);
  EXPECT_EQ(emp.grabadora.sentencias, otras + otras);
  // Once the memory is off, every query goes to the database again.
  con->OlvidarLecturas();
  emp.grabadora.sentencias.clear();
  con->Abrir(rubros);
  EXPECT_EQ(emp.grabadora.sentencias, QStringList{rubros});
}

TEST_P(Conexiones, ForeseenTotalsGoInOneStatementAndEachIsGivenOnceToItsOwnText) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  con->Ejecutar(QStringLiteral("INSERT INTO tblGastosEnc (FOL_MOV,IMP_MOV) VALUES ('A',10.5),"
                               "('B',2.25),('B',1),('C',NULL)"));
  const auto total = [](const char *folio) {
    return QStringLiteral("SELECT SUM(IMP_MOV) AS TOTAL FROM tblGastosEnc WHERE FOL_MOV='%1';")
        .arg(QLatin1String(folio));
  };
  // Each total asks for the ones after it, and for a query that is no single total.
  const QString lista = QStringLiteral("SELECT IMP_MOV FROM tblGastosEnc WHERE FOL_MOV='B'");
  con->Prever([&](const QString &sql) {
    if (sql == total("A"))
      return QStringList{total("B"), lista, total("C"), total("D")};
    return QStringList{};
  });
  emp.grabadora.sentencias.clear();
  const auto leer = [&](const QString &sql) {
    Registros r = con->Abrir(sql);
    EXPECT_EQ(r.Campos(), QStringList{QStringLiteral("TOTAL")});
    const Valor v = r.Campo(QStringLiteral("total"));
    r.Siguiente();
    EXPECT_TRUE(r.Fin());
    return v.EsNulo() ? QStringLiteral("NULL") : v.ComoDinero().Texto();
  };
  EXPECT_EQ(leer(total("A")), QStringLiteral("10.5"));
  EXPECT_EQ(leer(total("B")), QStringLiteral("3.25"));
  EXPECT_EQ(leer(total("C")), QStringLiteral("NULL"));
  EXPECT_EQ(leer(total("D")), QStringLiteral("NULL"));
  ASSERT_EQ(emp.grabadora.sentencias.size(), 1);
  EXPECT_EQ(emp.grabadora.sentencias[0],
            QStringLiteral("SELECT (%1) AS T0, (%2) AS T1, (%3) AS T2, (%4) AS T3")
                .arg(total("A").chopped(1), total("B").chopped(1), total("C").chopped(1),
                     total("D").chopped(1)));
  // An answer is given once: asked again, the total goes to the database, alone.
  EXPECT_EQ(leer(total("B")), QStringLiteral("3.25"));
  EXPECT_EQ(emp.grabadora.sentencias.mid(1), QStringList{total("B")});
  // Without the foreseer the answers waiting go.
  con->Prever([&](const QString &) { return QStringList{total("B"), total("C")}; });
  con->Abrir(total("A"));
  con->Prever({});
  emp.grabadora.sentencias.clear();
  con->Abrir(total("B"));
  EXPECT_EQ(emp.grabadora.sentencias, QStringList{total("B")});
}

TEST_P(Conexiones, AForeseenStatementThatFailsLeavesTheQueryToFailAlone) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  const QString buena = QStringLiteral("SELECT SUM(IMP_MOV) AS TOTAL FROM tblGastosEnc");
  const QString mala = QStringLiteral("SELECT SUM(NO_HAY) AS TOTAL FROM tblGastosEnc");
  // A total that fails takes the others with it: each is asked alone.
  con->Prever([&](const QString &sql) { return sql == buena ? QStringList{mala} : QStringList{}; });
  emp.grabadora.sentencias.clear();
  EXPECT_TRUE(con->Abrir(buena).Campo(0).EsNulo());
  EXPECT_THROW(con->Abrir(mala), ErrorFatal);
  ASSERT_EQ(emp.grabadora.sentencias.size(), 3);
  EXPECT_TRUE(emp.grabadora.sentencias[0].startsWith(QStringLiteral("SELECT (")));
  EXPECT_EQ(emp.grabadora.sentencias.mid(1), (QStringList{buena, mala}));
  // Grouped, ordered or joined by a union, a query is no single total and is never joined.
  int preguntas = 0;
  con->Prever([&](const QString &) {
    ++preguntas;
    return QStringList{buena};
  });
  for (const QString &sql :
       {QStringLiteral("SELECT SUM(IMP_MOV) AS TOTAL FROM tblGastosEnc GROUP BY FOL_MOV"),
        QStringLiteral("SELECT SUM(IMP_MOV) AS TOTAL FROM tblGastosEnc ORDER BY 1"),
        QStringLiteral("SELECT SUM(IMP_MOV) AS TOTAL FROM tblGastosEnc UNION SELECT 1"),
        QStringLiteral("SELECT SUM(IMP_MOV), COUNT(*) AS N FROM tblGastosEnc"),
        QStringLiteral("SELECT COUNT(*) AS N FROM tblGastosEnc")})
    con->Abrir(sql);
  EXPECT_EQ(preguntas, 0);
  con->Prever({});
}

TEST_P(Conexiones, RowsOfShortColumnsAndOfALongOneComeBackWhole) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  const Dialecto &d = con->Dialecto();
  // Short columns come a block of rows at a time, numbers and dates in ASCII and texts in
  // UTF-16; with a memo among them, a row at a time.
  con->Ejecutar(QStringLiteral("CREATE TABLE tblPrueba (N %1, T %2, M %3, I %4, F %5)")
                    .arg(d.TipoColumna(TipoDato::Entero, 0), d.TipoColumna(TipoDato::Texto, 20),
                         d.TipoColumna(TipoDato::Memo, 0), d.TipoColumna(TipoDato::Dinero, 0),
                         d.TipoColumna(TipoDato::Fecha, 0)));
  const QDate dia(2026, 1, 1);
  const QString largo = QString(3000, QLatin1Char('x')) + QStringLiteral("ñ");
  con->IniciarTransaccion();
  for (int n = 0; n < 700; ++n)
    con->Ejecutar(QStringLiteral("INSERT INTO tblPrueba (N,T,M,I,F) VALUES (%1,'%2','%3',%4,%5)")
                      .arg(n)
                      .arg(n % 7 == 0 ? QStringLiteral("año ñandú áéíóú ü") : QString::number(n),
                           n == 350 ? largo : QStringLiteral("m"), QStringLiteral("-%1.25").arg(n),
                           d.FechaSQL(dia.addDays(n))));
  con->ConfirmarTransaccion();
  for (const char *columnas : {"N,T,I,F", "N,T,I,F,M"}) {
    Registros r = con->Abrir(
        QStringLiteral("SELECT %1 FROM tblPrueba ORDER BY N").arg(QLatin1String(columnas)));
    int n = 0;
    for (; !r.Fin(); r.Siguiente(), ++n) {
      ASSERT_EQ(r.Campo(0).Entero(), n);
      EXPECT_EQ(r.Campo(1).Texto(),
                n % 7 == 0 ? QStringLiteral("año ñandú áéíóú ü") : QString::number(n));
      EXPECT_EQ(r.Campo(2).ComoDinero(), Dinero::DeTexto(QStringLiteral("-%1.25").arg(n)));
      EXPECT_EQ(r.Campo(3).Fecha(), dia.addDays(n));
      if (r.Campos().size() == 5) {
        EXPECT_EQ(r.Campo(4).Texto(), n == 350 ? largo : QStringLiteral("m"));
      }
    }
    EXPECT_EQ(n, 700);
  }
  con->Ejecutar(QStringLiteral("DROP TABLE tblPrueba"));
}

TEST_P(Conexiones, ATransactionUndoneBehindTheConnectionsBackIsNoLongerAlive) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  EXPECT_FALSE(con->TransaccionViva());
  con->IniciarTransaccion();
  con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,FOL_FOLIOS) VALUES ('I','1')"));
  EXPECT_FALSE(con->IntentarEjecutar(QStringLiteral("INSERT INTO tblNoHay (A) VALUES (1)")));
  // A failed statement leaves the transaction standing, and asking doesn't change it.
  EXPECT_TRUE(con->TransaccionViva());
  EXPECT_TRUE(con->TransaccionViva());
  ASSERT_TRUE(con->IntentarEjecutar(QStringLiteral("ROLLBACK")));
  EXPECT_FALSE(con->TransaccionViva());
  // As a fatal end leaves it: the undoing finds nothing to undo.
  con->CerrarAlTerminar(Cerrable::Fase::Transacciones);
  EXPECT_FALSE(con->EnTransaccion());
  EXPECT_EQ(emp.Contar(QStringLiteral("tblFolios")), 0);
}

namespace {
Conexion::Escritura Folio(const char *codigo, const char *folio) {
  return Conexion::Escritura::Sola(
      QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,FOL_FOLIOS) VALUES ('%1','%2')")
          .arg(QLatin1String(codigo), QLatin1String(folio)));
}
} // namespace

TEST_P(Conexiones, AWholeTransactionGoesInOneBlockOnlyWhenItsConditionsHold) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  ConexionPtr otra = emp.Abrir();
  const QString leer = QStringLiteral("SELECT FOL_FOLIOS FROM tblFolios WHERE COD_FOLIO='I';");
  const QString vacia = QStringLiteral("NOT EXISTS (SELECT * FROM tblFolios)");
  emp.grabadora.sentencias.clear();
  const bool enviado = con->ConfirmarEnUnBloque({vacia}, {Folio("I", "1")}, {leer});
  if (emp.Motor() != 4) {
    // Only a server that runs blocks takes one: nothing was sent.
    EXPECT_FALSE(enviado);
    EXPECT_TRUE(emp.grabadora.sentencias.isEmpty());
    EXPECT_EQ(emp.Contar(QStringLiteral("tblFolios")), 0);
    return;
  }
  EXPECT_TRUE(enviado);
  EXPECT_FALSE(con->EnTransaccion());
  ASSERT_EQ(emp.grabadora.sentencias.size(), 1);
  EXPECT_TRUE(emp.grabadora.sentencias[0].startsWith(
      QStringLiteral("BEGIN NOT ATOMIC START TRANSACTION; IF NOT COALESCE((%1), FALSE) THEN ")
          .arg(vacia)));
  // The read came with the block, and is given once.
  EXPECT_EQ(con->Abrir(leer).Campo(0).Texto(), QStringLiteral("1"));
  EXPECT_EQ(emp.grabadora.sentencias.size(), 1);
  EXPECT_EQ(con->Abrir(leer).Campo(0).Texto(), QStringLiteral("1"));
  EXPECT_EQ(emp.grabadora.sentencias.mid(1), QStringList{leer});
  // Confirmed: another connection sees it.
  EXPECT_EQ(otra->Abrir(QStringLiteral("SELECT COUNT(*) AS N FROM tblFolios")).Campo(0).Entero(),
            1);
  // A read that came with a block is forgotten at the next write.
  ASSERT_TRUE(con->ConfirmarEnUnBloque({}, {Folio("E", "1")}, {leer}));
  con->Ejecutar(QStringLiteral("UPDATE tblFolios SET FOL_FOLIOS='2' WHERE COD_FOLIO='I'"));
  EXPECT_EQ(con->Abrir(leer).Campo(0).Texto(), QStringLiteral("2"));
  // A condition that fails, or a write refused, leaves nothing and no transaction open.
  EXPECT_FALSE(con->ConfirmarEnUnBloque({vacia}, {Folio("D", "1")}, {}));
  EXPECT_FALSE(con->EnTransaccion());
  EXPECT_FALSE(con->ConfirmarEnUnBloque({},
                                        {Folio("D", "1"), Conexion::Escritura::Sola(QStringLiteral(
                                                              "INSERT INTO tblNoHay VALUES (1)"))},
                                        {}));
  EXPECT_FALSE(con->EnTransaccion());
  EXPECT_EQ(emp.Contar(QStringLiteral("tblFolios")), 2);
}

TEST_P(Conexiones, ReadsThatComeWithABlockAreReadWholeAndOneThatFailsIsAskedAlone) {
  EmpresaPrueba emp(GetParam());
  if (emp.Motor() != 4)
    GTEST_SKIP() << "only MariaDB runs blocks of statements";
  ConexionPtr con = emp.Abrir();
  const Dialecto &d = con->Dialecto();
  con->Ejecutar(QStringLiteral("CREATE TABLE tblNotas (N %1, M %2)")
                    .arg(d.TipoColumna(TipoDato::Entero, 0), d.TipoColumna(TipoDato::Memo, 0)));
  const QString largo = QString(3000, QLatin1Char('x')) + QStringLiteral("ñ");
  // A memo, read a row at a time, then short columns read in blocks; then a read that fails
  // and one after it.
  const QString notas = QStringLiteral("SELECT M, N FROM tblNotas;");
  const QString folios = QStringLiteral("SELECT COD_FOLIO, FOL_FOLIOS FROM tblFolios;");
  const QString mala = QStringLiteral("SELECT NO_HAY FROM tblFolios;");
  const QString despues = QStringLiteral("SELECT COUNT(*) AS N FROM tblFolios;");
  ASSERT_TRUE(con->ConfirmarEnUnBloque(
      {},
      {Conexion::Escritura::Sola(
           QStringLiteral("INSERT INTO tblNotas (N,M) VALUES (1,'%1')").arg(largo)),
       Folio("I", "7")},
      {notas, folios, mala, despues}));
  emp.grabadora.sentencias.clear();
  {
    Registros r = con->Abrir(notas);
    EXPECT_EQ(r.Campo(QStringLiteral("M")).Texto(), largo);
    EXPECT_EQ(r.Campo(QStringLiteral("N")).Entero(), 1);
    Registros f = con->Abrir(folios);
    EXPECT_EQ(f.Campo(QStringLiteral("COD_FOLIO")).Texto(), QStringLiteral("I"));
    EXPECT_EQ(f.Campo(QStringLiteral("FOL_FOLIOS")).Texto(), QStringLiteral("7"));
  }
  EXPECT_TRUE(emp.grabadora.sentencias.isEmpty());
  EXPECT_THROW(con->Abrir(mala), ErrorFatal);
  EXPECT_EQ(con->Abrir(despues).Campo(0).Entero(), 1);
  EXPECT_EQ(emp.grabadora.sentencias, (QStringList{mala, despues}));
  con->Ejecutar(QStringLiteral("DROP TABLE tblNotas"));
}

TEST_P(Conexiones, ATransactionBegunInOneBlockEndsWithItsLastWritesInAnother) {
  EmpresaPrueba emp(GetParam());
  ConexionPtr con = emp.Abrir();
  ConexionPtr otra = emp.Abrir();
  const auto vistos = [&] {
    return otra->Abrir(QStringLiteral("SELECT COUNT(*) AS N FROM tblFolios")).Campo(0).Entero();
  };
  const bool iniciada = con->IniciarEnUnBloque({}, {Folio("I", "1")});
  EXPECT_EQ(iniciada, emp.Motor() == 4);
  if (!iniciada)
    con->IniciarTransaccion();
  EXPECT_TRUE(con->EnTransaccion());
  if (iniciada) {
    EXPECT_EQ(vistos(), 0);
  }
  emp.grabadora.sentencias.clear();
  con->ConfirmarConEscrituras({Folio("E", "2"), Folio("D", "3")}, {});
  EXPECT_FALSE(con->EnTransaccion());
  // One block where the server runs them; elsewhere each write, then the confirmation.
  EXPECT_EQ(emp.grabadora.sentencias.size(), iniciada ? 1 : 2);
  EXPECT_EQ(vistos(), iniciada ? 3 : 2);
  // A write refused: the others of its block go too, and then one at a time the refused one
  // ends the process, the transaction still open.
  con->IniciarTransaccion();
  con->Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,FOL_FOLIOS) VALUES ('O','4')"));
  emp.grabadora.sentencias.clear();
  const QString mala = QStringLiteral("INSERT INTO tblNoHay VALUES (1)");
  try {
    con->ConfirmarConEscrituras({Folio("S", "5"), Conexion::Escritura::Sola(mala)}, {});
    ADD_FAILURE() << "the refused write went through";
  } catch (const ErrorFatal &e) {
    EXPECT_EQ(e.Sentencia(), mala);
  }
  EXPECT_TRUE(con->EnTransaccion());
  // The block refused is not sent again: its writes go one at a time at once.
  EXPECT_EQ(emp.grabadora.sentencias.size(), iniciada ? 3 : 2);
  EXPECT_EQ(emp.grabadora.sentencias.last(), mala);
  con->DeshacerTransaccion();
  EXPECT_EQ(vistos(), iniciada ? 3 : 2);
}

INSTANTIATE_TEST_SUITE_P(Motores, Conexiones, testing::ValuesIn(MotoresDePrueba()), NombreMotor);

TEST(FechaSQL, EachEngineHasItsLiteral) {
  const QDate d(2024, 1, 31);
  EXPECT_EQ(ServicioUtil::FechaSQL(d, 3), QStringLiteral("'20240131'"));
  EXPECT_EQ(ServicioUtil::FechaSQL(d, 4), QStringLiteral("'2024-01-31'"));
  EXPECT_EQ(ServicioUtil::FechaSQL(d, 5), QStringLiteral("'2024-01-31'"));
  const QDateTime t(d, QTime(9, 3, 7));
  EXPECT_EQ(ServicioUtil::FechaHoraSQL(t, 3), QStringLiteral("'09:03:07'"));
  EXPECT_EQ(ServicioUtil::FechaHoraSQL(t, 4), QStringLiteral("'09:03:07'"));
  EXPECT_EQ(ServicioUtil::FuncionLargo(4), QStringLiteral("LENGTH"));
  EXPECT_EQ(ServicioUtil::FuncionLargo(3), QStringLiteral("LEN"));
}
