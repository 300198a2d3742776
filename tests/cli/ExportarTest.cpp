#include "Apoyo.h"
#include "cli/ComandoExportar.h"
#include "cli/Comandos.h"
#include "db/EmpresaDemo.h"
#include "export/ApoyoExportacion.h"
#include "export/FormatoArchivo.h"
#include "journal/DiarioPrueba.h"
#include "journal/Polizas.h"
#include "shell/Rutas.h"

#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

class Exportar : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    demo::LlenarIdentidad(*con, QStringLiteral("clave"));
    archivo = UnirRuta(emp->Ruta(), QStringLiteral("polizas.txt"));
  }
  void Formato() {
    con->Ejecutar(QStringLiteral(
        "INSERT INTO tblParametrosForm (NO_REN,SEP_COM,SEP_DAT,DEB_HAB,CHAR_UNO,CHAR_DOS,REN_FOL,"
        "REN_FEC,REN_TIP,REN_CTA,REN_CON,REN_IMP,REN2_FOL,REN2_FEC,REN2_TIP,REN2_CTA,REN2_CON,"
        "REN2_IMP,F_FECHA,LON_FIJA,LON_FOL,LON_FEC,LON_TIP,LON_CTA,LON_CON,LON_DEB,LON_HAB,"
        "AL_FOL,AL_FEC,AL_TIP,AL_CTA,AL_CON,AL_DEB,AL_HAB,FORM_CTA,CHAR_SEP,CERO_IZQ) VALUES "
        "(1,0,',',1,'','',1,0,2,3,0,4,0,0,0,0,0,0,'DD/MM/AAAA',0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,"
        "'4-3-3-0','',1)"));
  }
  void Poliza(const char *folio, const char *tipo, int codOper) {
    diario::InsertarAsiento(*con, {QLatin1String(folio), QLatin1String(tipo), QDate(2026, 11, 15),
                                   codOper, QStringLiteral("Pago de luz"), QStringLiteral("1-01"),
                                   QStringLiteral("110-001-000"), QStringLiteral("2-01"),
                                   QStringLiteral("210-001-000"), Dinero::DeEntero(1250)});
  }
  int Correr(QStringList opciones) {
    salida.clear();
    errores.clear();
    QTextStream out(&salida), err(&errores);
    const int codigo = cli::Ejecutar(
        QStringList{QStringLiteral("--ruta"), emp->Ruta(), QStringLiteral("exportar")} + opciones,
        QStringLiteral("/nada"), out, err);
    out.flush();
    err.flush();
    return codigo;
  }
  QStringList Opciones() const {
    return {QStringLiteral("--empresa"),  QStringLiteral("1"),          QStringLiteral("--usuario"),
            QStringLiteral("ADMIN"),      QStringLiteral("--clave"),    QStringLiteral("clave"),
            QStringLiteral("--del"),      QStringLiteral("2026-11-01"), QStringLiteral("--al"),
            QStringLiteral("2026-11-30"), QStringLiteral("--archivo"),  archivo};
  }
  // The options with one of them changed, or removed when the value is null.
  QStringList Con(const char *opcion, const QString &valor) const {
    QStringList o = Opciones();
    const qsizetype i = o.indexOf(QLatin1String(opcion));
    if (valor.isNull())
      o.remove(i, 2);
    else
      o[i + 1] = valor;
    return o;
  }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  QString archivo;
  QString salida, errores;
};

} // namespace

TEST_P(Exportar, ASuccessfulRunTellsTheFileAndItsLinesAndExitsZero) {
  Formato();
  Poliza("00000000012", "D", 22);
  ASSERT_EQ(Correr(Opciones()), cli::kSalidaBien) << salida.toStdString();
  EXPECT_EQ(exportacion::RenglonesEnOrden(LeerArchivo(archivo)),
            QByteArray("00000000012,D,0110-001-000,D,1,250.00\r\n"
                       "00000000012,D,0210-001-000,H,1,250.00\r\n"));
  EXPECT_EQ(salida, QStringLiteral("  Archivo: ") +
                        QFileInfo(RutaNativa(archivo)).absoluteFilePath() +
                        QStringLiteral("\n  Líneas:  2\n"));
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5526});
}

TEST_P(Exportar, TheFiltersReachTheSelection) {
  Formato();
  Poliza("00000000012", "D", 22);
  Poliza("00000000013", "D", 23);
  Poliza("00000000014", "I", 22);
  QStringList o = Opciones();
  o << QStringLiteral("--tipo") << QStringLiteral("D") << QStringLiteral("--operacion")
    << QStringLiteral("23") << QStringLiteral("--concepto") << QStringLiteral("Pago de luz");
  ASSERT_EQ(Correr(o), cli::kSalidaBien) << salida.toStdString();
  EXPECT_EQ(exportacion::RenglonesEnOrden(LeerArchivo(archivo)),
            QByteArray("00000000013,D,0110-001-000,D,1,250.00\r\n"
                       "00000000013,D,0210-001-000,H,1,250.00\r\n"));
}

TEST_P(Exportar, AWrongPasswordExitsThree) {
  Formato();
  EXPECT_EQ(Correr(Con("--clave", QStringLiteral("otra"))), cli::kSalidaEntrada);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{409});
  EXPECT_EQ(salida, QString());
  EXPECT_FALSE(QFileInfo::exists(RutaNativa(archivo)));
}

TEST_P(Exportar, ACompanyWithoutFormatExitsFour) {
  EXPECT_EQ(Correr(Opciones()), cli::kSalidaSinFormato);
  EXPECT_EQ(emp->mensajes.Ids(), std::vector<int>{5522});
  EXPECT_EQ(salida, QString());
  EXPECT_FALSE(QFileInfo::exists(RutaNativa(archivo)));
}

TEST_P(Exportar, AFileThatCantBeWrittenExitsFiveNamingIt) {
  Formato();
  Poliza("00000000012", "D", 22);
  const QString mala = UnirRuta(emp->Ruta(), QStringLiteral("no_existe\\polizas.txt"));
  EXPECT_EQ(Correr(Con("--archivo", mala)), cli::kSalidaArchivo);
  ASSERT_EQ(emp->mensajes.Ids(), std::vector<int>{5527});
  EXPECT_EQ(emp->mensajes.mostrados[0].texto,
            CatalogoMensajes::Texto(5527) + QStringLiteral(" ") + mala +
                QStringLiteral("\nNo se encontró la ruta de acceso"));
  EXPECT_EQ(salida, QString());
}

TEST_P(Exportar, BadDatesAndMissingOptionsExitOneWithTheUsage) {
  qunsetenv("ESCRIBANO_CLAVE");
  const std::pair<QStringList, const char *> casos[] = {
      {Con("--del", QStringLiteral("2026-02-30")),
       "La opción --del espera una fecha AAAA-MM-DD: «2026-02-30»."},
      {Con("--al", QStringLiteral("30/11/2026")),
       "La opción --al espera una fecha AAAA-MM-DD: «30/11/2026»."},
      {Con("--del", QString()), "Falta la opción --del AAAA-MM-DD."},
      {Con("--archivo", QString()), "Falta la opción --archivo RUTA."},
      {Con("--empresa", QString()), "Falta la opción --empresa N."},
      {Con("--empresa", QStringLiteral("uno")),
       "La opción --empresa espera un número entero: «uno»."},
      {Con("--usuario", QString()), "Falta la opción --usuario U."},
      {Con("--clave", QString()), "Falta la opción --clave P (o la variable ESCRIBANO_CLAVE)."},
      {Opciones() << QStringLiteral("--operacion") << QStringLiteral("x"),
       "La opción --operacion espera un número entero: «x»."},
      {Opciones() << QStringLiteral("--tipo") << QStringLiteral("X"),
       "La opción --tipo espera un tipo de póliza (I, E, D, O o S): «X»."},
  };
  emp->grabadora.sentencias.clear();
  const QString uso = QStringLiteral("\n\n") + cli::ComandoExportar().Sinopsis() +
                      QStringLiteral("Más detalle: escribano-cli exportar --ayuda\n");
  for (const auto &[opciones, mensaje] : casos) {
    EXPECT_EQ(Correr(opciones), cli::kSalidaUso) << mensaje;
    EXPECT_EQ(errores, QString::fromUtf8(mensaje) + uso);
    EXPECT_EQ(salida, QString());
  }
  EXPECT_TRUE(emp->grabadora.sentencias.isEmpty());
  EXPECT_TRUE(emp->mensajes.mostrados.empty());
  EXPECT_FALSE(QFileInfo::exists(RutaNativa(archivo)));
}

TEST_P(Exportar, AFormatSavedAsTheScreenSavesItIsTheOneTheNextRunWrites) {
  Poliza("00000000012", "D", 22);
  // Two rows: folio and sum at the head, account and amount in each line; ";" between.
  ControlesFormato c;
  c.chkDosRenglones = 1;
  c.lstDos[0] = {QStringLiteral("Folio"), QStringLiteral("Suma Debe/Haber")};
  c.lstDos[1] = {QStringLiteral("Cuenta"), QStringLiteral("Importe Debe/Haber")};
  c.chkImportesColSep = 1;
  c.optFormatoCuenta = 0;
  c.optFormatoFecha = 0;
  c.optSepararDatos = 4;
  c.txtOtroSep = QStringLiteral(";");
  GrabarFormato(*con, c);
  ASSERT_EQ(Correr(Opciones()), cli::kSalidaBien) << salida.toStdString();
  EXPECT_EQ(exportacion::RenglonesEnOrden(LeerArchivo(archivo), 1),
            QByteArray("00000000012;1,250.00;1,250.00\r\n"
                       "110-001-000;1,250.00;0.00\r\n"
                       "210-001-000;0.00;1,250.00\r\n"));
  // Saved again as the package's layout, the next run writes that one.
  c.optContpaq = true;
  GrabarFormato(*con, c);
  ASSERT_EQ(Correr(Opciones()), cli::kSalidaBien) << salida.toStdString();
  EXPECT_TRUE(LeerArchivo(archivo).startsWith("P 20261115")) << LeerArchivo(archivo).toStdString();
}

INSTANTIATE_TEST_SUITE_P(Motores, Exportar, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
