#include "Apoyo.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioUtil.h"

#include <QDir>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <thread>

TEST(Fallas, ADateOutsideTheEngineRangeEndsWithAMessageThatSaysSo) {
  try {
    ServicioUtil::FechaSQL(QDate(1752, 12, 31), motor::kSqlServer);
    FAIL() << "no error";
  } catch (const ErrorFatal &e) {
    EXPECT_EQ(e.Mensaje(), QStringLiteral("La fecha 31/12/1752 está fuera del intervalo que "
                                          "admite la base de datos (01/01/1753 a 31/12/9999)."));
  }
  EXPECT_THROW(ServicioUtil::FechaSQL(QDate(999, 12, 31), motor::kMySql), ErrorFatal);
  EXPECT_THROW(ServicioUtil::FechaSQL(QDateTime(QDate(10000, 1, 1), QTime(1, 2)), motor::kSqlite),
               ErrorFatal);
  EXPECT_EQ(ServicioUtil::FechaSQL(QDate(1753, 1, 1), motor::kSqlServer),
            QStringLiteral("'17530101'"));
  EXPECT_EQ(ServicioUtil::FechaSQL(QDate(1000, 1, 1), motor::kMySql),
            QStringLiteral("'1000-01-01'"));
  EXPECT_EQ(ServicioUtil::FechaSQL(QDate(), motor::kMySql), QStringLiteral("''"));
}

TEST(Fallas, PasswordsAreHiddenInEveryFatalMessageAndStatement) {
  const ErrorFatal e(QStringLiteral("No abre: Provider=SQLOLEDB.1; Password=abc d; User ID=sa"),
                     QStringLiteral("UPDATE tblParametrosGenerales SET CONX_CXC='DRIVER=x;PWD=zz9;"
                                    "UID=u',BD_CXC='b';"));
  EXPECT_EQ(e.Mensaje(), QStringLiteral("No abre: Provider=SQLOLEDB.1; Password=****; User ID=sa"));
  EXPECT_EQ(e.Sentencia(), QStringLiteral("UPDATE tblParametrosGenerales SET "
                                          "CONX_CXC='DRIVER=x;PWD=****;UID=u',BD_CXC='b';"));
  // The general database's text ends at its empty password: nothing to hide.
  EXPECT_EQ(OcultarClaves(QStringLiteral("Jet OLEDB:Database Password=")),
            QStringLiteral("Jet OLEDB:Database Password="));
}

TEST(Fallas, IniFilesWithBinaryBytesNoLastLineEndOrAHugeLineAreReadWithoutHarm) {
  QTemporaryDir dir;
  const QString ini = dir.filePath(QStringLiteral("Nimbar.ini"));
  static const char kInicio[] = "\x00\x01\xff\xfe\r\n[VARIOS]\r\nBASURA=\x00\x02\x03\r\n";
  QByteArray bytes(kInicio, sizeof kInicio - 1);
  bytes += "LARGA=" + QByteArray(100000, 'a') + "\r\n";
  bytes += "EMPRESA=3";
  EscribirArchivo(ini, bytes);
  EXPECT_EQ(ServicioUtil::LeerIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"), ini),
            QStringLiteral("3"));
  EXPECT_EQ(ServicioUtil::LeerIni(QStringLiteral("VARIOS"), QStringLiteral("LARGA"), ini).size(),
            100000);
  EXPECT_EQ(ServicioUtil::LeerIni(QStringLiteral("OTRA"), QStringLiteral("EMPRESA"), ini),
            QString());
  // Writing a key keeps every other byte of the file where it was.
  ASSERT_TRUE(ServicioUtil::EscribirIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"),
                                        QStringLiteral("4"), ini));
  EXPECT_EQ(ServicioUtil::LeerIni(QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"), ini),
            QStringLiteral("4"));
  EXPECT_EQ(ServicioUtil::LeerIni(QStringLiteral("VARIOS"), QStringLiteral("LARGA"), ini).size(),
            100000);
}

TEST(Fallas, TheEmbeddedEngineWaitsForAnotherWriterInsteadOfFailing) {
  QTemporaryDir dir;
  const QString ruta = dir.filePath(QStringLiteral("e.db"));
  {
    ConexionPtr c = ServicioConexion::AbrirSqlite(ruta, true, motor::kSqlite);
    c->Ejecutar(QStringLiteral("CREATE TABLE t (n INTEGER)"));
  }
  // Another workstation holds the database for half a second.
  std::atomic<bool> tomado{false};
  std::thread otra([&] {
    ConexionPtr c = ServicioConexion::AbrirSqlite(ruta, false, motor::kSqlite);
    c->IniciarTransaccion();
    c->Ejecutar(QStringLiteral("INSERT INTO t VALUES (1)"));
    tomado = true;
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    c->ConfirmarTransaccion();
  });
  while (!tomado)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  ConexionPtr c = ServicioConexion::AbrirSqlite(ruta, false, motor::kSqlite);
  c->Ejecutar(QStringLiteral("INSERT INTO t VALUES (2)")); // waits, then goes through
  otra.join();
  Registros r = c->Abrir(QStringLiteral("SELECT COUNT(*) AS N FROM t"));
  EXPECT_EQ(r.Campo(QStringLiteral("N")).Entero(), 2);
}
