#pragma once

#include "Apoyo.h"
#include "journal/Arbol.h"
#include "journal/Corrida.h"
#include "journal/DiarioPrueba.h"
#include "journal/Documentos.h"
#include "journal/Generacion.h"
#include "journal/Polizas.h"
#include "shell/Rutas.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>
#include <optional>

// The run's state as the screen loads it: its connection, the operations, and the tree
// with every operation checked.
inline void CargarCorrida(const EmpresaPrueba &emp, Corrida &corrida, ArbolOperaciones &arbol) {
  corrida.Conexion = emp.Abrir();
  CargarOperaciones(corrida);
  arbol.CargarArbol(*corrida.Conexion);
  arbol.MarcarTodo();
}

// A whole run over every operation of the tree, as the screen runs it with all checked.
inline ResultadoGeneracion CorrerGeneracion(const EmpresaPrueba &emp,
                                            const OpcionesGeneracion &opciones) {
  Corrida corrida;
  ArbolOperaciones arbol;
  CargarCorrida(emp, corrida, arbol);
  Generador g(corrida, opciones);
  return g.GenerarPolizas(arbol);
}

// A company with one expense rule (operation 22, concept RENT, journal type E): datum 68
// on the debit of 6-01 and the balancing datum 71 on the credit of 2-01. Expenses are
// added with Gasto(); Correr() runs the generation over October 2024 by default.
class Generacion : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->AbrirComoAdmin(QStringLiteral("x"));
    FijarReloj(QDateTime(QDate(2024, 11, 5), QTime(14, 5, 9)));
    Ejecutar("INSERT INTO tblModulos (COD_MODUL,DES_MODUL) VALUES (6,'GASTOS')");
    Ejecutar("INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,GENERA_CON) VALUES "
             "(22,'GASTOS',6,1)");
    Ejecutar("INSERT INTO tblConceptosGyT (COD_CON,DES_CON) VALUES ('RENT','RENTA DEL LOCAL')");
    Ejecutar("INSERT INTO tblDatosxOperacion (COD_DATO,DES_DATO,COD_OPER,CAMPO_ESTBD) VALUES "
             "(68,'IMPORTE DEL GASTO',22,0)");
    Ejecutar("INSERT INTO tblDatosxOperacion (COD_DATO,DES_DATO,COD_OPER,CAMPO_ESTBD) VALUES "
             "(71,'CUADRE',22,0)");
    for (const char *tipo : {"I", "E", "D"})
      Ejecutar(QStringLiteral("INSERT INTO tblFolios (COD_FOLIO,DES_FOLIO,FOL_FOLIOS,COD_NUM) "
                              "VALUES ('%1','%1','0',1)")
                   .arg(QLatin1String(tipo)));
    Regla(frec::kPorDocumento);
    opciones.Del = QDate(2024, 10, 1);
    opciones.Al = QDate(2024, 10, 31);
    opciones.FechaDefinida = QDate(2024, 11, 5);
    opciones.Resumen = emp->Ruta() + QStringLiteral("/bitacora.txt");
  }
  void TearDown() override { FijarReloj({}); }

  void Ejecutar(const QString &sql) { con->Ejecutar(sql); }
  void Ejecutar(const char *sql) { con->Ejecutar(QString::fromUtf8(sql)); }

  // The rule of expenses RENT with its two rows, under the given frequency and type.
  void Regla(int frecuencia, const QString &tipo = QStringLiteral("E")) {
    Ejecutar("DELETE FROM tblOperacionxConcep");
    Ejecutar("DELETE FROM tblRubrosxOperacion");
    Ejecutar(
        QStringLiteral("INSERT INTO tblOperacionxConcep (COD_POL,COD_OPER,MODULO,CONCEPTO,"
                       "TIP_POLIZA,STS_POLIZA,FREC,DIARIO) VALUES (1,22,6,'RENT','%1','D',%2,1)")
            .arg(tipo)
            .arg(frecuencia));
    Ejecutar("INSERT INTO tblRubrosxOperacion (COD_POL,COD_DATO,RUBRO_DEBE,CUENTA_DEBE,"
             "RUBRO_HABER,CUENTA_HABER) VALUES (1,68,'6-01','6100-000','','')");
    Ejecutar("INSERT INTO tblRubrosxOperacion (COD_POL,COD_DATO,RUBRO_DEBE,CUENTA_DEBE,"
             "RUBRO_HABER,CUENTA_HABER) VALUES (1,71,'','','2-01','2100-000')");
  }

  void Gasto(const char *folio, QDate fecha, const char *importe, int estatus = 1) {
    Ejecutar(QStringLiteral("INSERT INTO tblGastosEnc (FOL_MOV,FEC_MOV,CON_CEP,COD_CON,COD_ESTATUS,"
                            "IMP_MOV,IVA_MOV,RET_TOT,RET_ISRTOT,CONTAB) VALUES "
                            "('%1',%2,'RENT','RENT',%3,%4,0,0,0,0)")
                 .arg(QLatin1String(folio), ServicioUtil::FechaSQL(fecha, emp->Motor()))
                 .arg(estatus)
                 .arg(QLatin1String(importe)));
    // Only a document with lines is listed.
    Ejecutar(QStringLiteral("INSERT INTO tblGastosRen (FOL_MOV) VALUES ('%1')")
                 .arg(QLatin1String(folio)));
  }

  // The run as the screen runs it. Before it, the same run with every statement by itself,
  // in a rehearsal that leaves nothing: both ways leave the same tables, log, messages and
  // result, or fail with the same message.
  ResultadoGeneracion Correr() {
    emp->mensajes.mostrados.clear();
    // The log of the rehearsal goes where the run's goes, and what stood there before is
    // put back after it.
    const bool habia = QFileInfo::exists(opciones.Resumen);
    const QByteArray antes = habia ? LeerArchivo(opciones.Resumen) : QByteArray();
    QByteArray bitacora;
    // The statements the test records are the run's, not the rehearsal's.
    const QStringList grabadas = emp->grabadora.sentencias;
    std::optional<ResultadoGeneracion> ensayado;
    QStringList tablas;
    QString falla;
    {
      const SentenciasUnaAUna guarda;
      Corrida corrida;
      ArbolOperaciones arbol;
      CargarCorrida(*emp, corrida, arbol);
      corrida.Conexion->IniciarEnsayo();
      try {
        ensayado = Generador(corrida, opciones).GenerarPolizas(arbol);
        tablas = diario::TodasLasTablas(*corrida.Conexion);
      } catch (const ErrorFatal &e) {
        falla = e.TextoCompleto();
      }
      corrida.Conexion->TerminarEnsayo();
      if (QFileInfo::exists(opciones.Resumen))
        bitacora = LeerArchivo(opciones.Resumen);
      if (habia)
        EscribirArchivo(opciones.Resumen, antes);
      else
        QFile::remove(opciones.Resumen);
    }
    emp->grabadora.sentencias = grabadas;
    const std::vector<int> mensajes = emp->mensajes.Ids();
    emp->mensajes.mostrados.clear();
    try {
      const ResultadoGeneracion r = CorrerGeneracion(*emp, opciones);
      EXPECT_TRUE(ensayado.has_value()) << falla.toStdString();
      if (ensayado) {
        EXPECT_EQ(r.hubo, ensayado->hubo);
        EXPECT_EQ(r.polizas, ensayado->polizas);
        EXPECT_EQ(r.corrio, ensayado->corrio);
        EXPECT_EQ(r.detenida, ensayado->detenida);
      }
      EXPECT_EQ(diario::TodasLasTablas(*con), tablas);
      EXPECT_EQ(emp->mensajes.Ids(), mensajes);
      EXPECT_EQ(QFileInfo::exists(opciones.Resumen) ? LeerArchivo(opciones.Resumen) : QByteArray(),
                bitacora);
      return r;
    } catch (const ErrorFatal &e) {
      EXPECT_EQ(e.TextoCompleto(), falla);
      throw;
    }
  }

  // Three rent documents, on the 3rd and twice on the 10th, posted by the run: the folios
  // of the entries of rent, in order.
  QStringList TresRentas() {
    Gasto("G-1", d3(), "100");
    Gasto("G-2", d10(), "200");
    Gasto("G-3", d10(), "300");
    Correr();
    return Filas(QStringLiteral(
        "SELECT FOL_POLIZA FROM tblPolizasEnc WHERE COD_OPER=22 ORDER BY FOL_POLIZA"));
  }

  // Rows of a query, each as its columns joined by "|".
  QStringList Filas(const QString &sql) {
    QStringList filas;
    Registros r = con->Abrir(sql);
    for (; !r.Fin(); r.Siguiente()) {
      QStringList c;
      for (const QString &campo : r.Campos()) {
        const Valor v = r.Campo(campo);
        const bool dinero =
            campo.startsWith(QStringLiteral("IMP")) || campo.startsWith(QStringLiteral("SUM"));
        if (v.EsNulo())
          c << QStringLiteral("NULL");
        else if (dinero)
          c << v.ComoDinero().Texto(); // the same text on every engine
        else if (v.Variante().typeId() == QMetaType::QDate)
          c << v.Fecha().toString(Qt::ISODate);
        else
          c << v.Texto();
      }
      filas << c.join(QLatin1Char('|'));
    }
    return filas;
  }
  QStringList Filas(const char *sql) { return Filas(QString::fromUtf8(sql)); }
  QString Bitacora() { return DecodificarWindows1252(LeerArchivo(opciones.Resumen)); }

  static QDate d3() { return QDate(2024, 10, 3); }
  static QDate d10() { return QDate(2024, 10, 10); }

  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
  OpcionesGeneracion opciones;
};
