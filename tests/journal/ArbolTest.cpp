#include "journal/Arbol.h"
#include "Apoyo.h"

#include <gtest/gtest.h>

namespace {

// Two modules; operations 1 and 2 of sales with rules that have rows, operation 3 with
// a rule without rows, and purchases with two rules (two concepts) of operation 12.
class Arbol : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    emp = std::make_unique<EmpresaPrueba>(GetParam());
    con = emp->Abrir();
    con->Ejecutar(
        QStringLiteral("INSERT INTO tblModulos (COD_MODUL,DES_MODUL) VALUES (1,'VENTAS')"));
    con->Ejecutar(
        QStringLiteral("INSERT INTO tblModulos (COD_MODUL,DES_MODUL) VALUES (4,'COMPRAS')"));
    con->Ejecutar(
        QStringLiteral("INSERT INTO tblModulos (COD_MODUL,DES_MODUL) VALUES (12,'OTRO')"));
    Operacion(1, "VENTAS DE CONTADO", 1);
    Operacion(2, "VENTAS A CRÉDITO", 1);
    Operacion(3, "INGRESOS DE EFECTIVO", 1);
    Operacion(12, "COMPRAS", 4);
    Operacion(40, "FUERA DE LOS MÓDULOS", 12);
    Regla(1, 2, "", true);
    Regla(2, 1, "", true);
    Regla(3, 3, "IEFE", false);
    Regla(4, 12, "A", true);
    Regla(5, 12, "B", true);
    Regla(6, 40, "", true);
  }
  void Operacion(int cod, const char *des, int modulo) {
    con->Ejecutar(QStringLiteral("INSERT INTO tblCatOperaciones (COD_OPER,DES_OPER,MODULO,"
                                 "GENERA_CON) VALUES (%1,'%2',%3,0)")
                      .arg(cod)
                      .arg(QString::fromUtf8(des))
                      .arg(modulo));
  }
  void Regla(int codPol, int oper, const char *concepto, bool conRenglones) {
    con->Ejecutar(QStringLiteral("INSERT INTO tblOperacionxConcep (COD_POL,COD_OPER,MODULO,"
                                 "CONCEPTO,TIP_POLIZA,FREC) VALUES (%1,%2,1,'%3','I',1)")
                      .arg(codPol)
                      .arg(oper)
                      .arg(QLatin1String(concepto)));
    if (conRenglones)
      con->Ejecutar(
          QStringLiteral("INSERT INTO tblRubrosxOperacion (COD_POL,COD_DATO) VALUES (%1,1)")
              .arg(codPol));
  }
  std::unique_ptr<EmpresaPrueba> emp;
  ConexionPtr con;
};

QStringList Claves(const ArbolOperaciones &a) {
  QStringList c;
  for (const NodoArbol &n : a.Nodos())
    c << n.clave + (n.marcado ? QStringLiteral("*") : QString());
  return c;
}

} // namespace

TEST_P(Arbol, OffersOnlyOperationsWithARuleThatHasRowsUnderModulesBelowTen) {
  ArbolOperaciones a;
  a.CargarArbol(*con);
  EXPECT_EQ(Claves(a),
            QStringList({QStringLiteral("M1"), QStringLiteral("O1"), QStringLiteral("O2"),
                         QStringLiteral("M4"), QStringLiteral("O12")}));
  EXPECT_EQ(a.Nodos()[2].texto, QStringLiteral("VENTAS A CRÉDITO"));
  EXPECT_EQ(a.Nodos()[4].padre, 3);
  EXPECT_FALSE(a.HayMarcados());
}

TEST_P(Arbol, CheckingAModuleExpandsItAndChecksItsOperations) {
  ArbolOperaciones a;
  a.CargarArbol(*con);
  a.Marcar(0, true);
  EXPECT_TRUE(a.Nodos()[0].expandido);
  EXPECT_EQ(Claves(a),
            QStringList({QStringLiteral("M1*"), QStringLiteral("O1*"), QStringLiteral("O2*"),
                         QStringLiteral("M4"), QStringLiteral("O12")}));
  a.Marcar(0, false);
  EXPECT_FALSE(a.HayMarcados());
}

TEST_P(Arbol, AnOperationChecksItsModuleWhichStaysWhileAnotherIsChecked) {
  ArbolOperaciones a;
  a.CargarArbol(*con);
  a.Marcar(1, true);
  a.Marcar(2, true);
  EXPECT_TRUE(a.Nodos()[0].marcado);
  a.Marcar(1, false);
  EXPECT_TRUE(a.Nodos()[0].marcado);
  a.Marcar(2, false);
  EXPECT_FALSE(a.Nodos()[0].marcado);
}

TEST_P(Arbol, OperationsAreCheckedByCode) {
  ArbolOperaciones a;
  a.CargarArbol(*con);
  EXPECT_TRUE(a.MarcarOperaciones({12}));
  EXPECT_EQ(Claves(a),
            QStringList({QStringLiteral("M1"), QStringLiteral("O1"), QStringLiteral("O2"),
                         QStringLiteral("M4*"), QStringLiteral("O12*")}));
  EXPECT_FALSE(a.MarcarOperaciones({3}));
  a.MarcarTodo();
  EXPECT_EQ(Claves(a).join(QLatin1Char(',')), QStringLiteral("M1*,O1*,O2*,M4*,O12*"));
}

INSTANTIATE_TEST_SUITE_P(Motores, Arbol, testing::ValuesIn(MotoresDePrueba()), NombreMotor);
