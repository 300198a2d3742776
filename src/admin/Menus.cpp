#include "admin/Menus.h"

#include "shell/Encriptacion.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

#include <set>
#include <tuple>

namespace menus {

namespace {

// The menus of each edition, with the profiles that have each item. Two levels: a parent
// always stands before its branches.
const std::vector<ItemPlantilla> kPlantillas = {
    // Edition 10.
    {10, 1, "mnuFile", "Archivo", 0, "2345"},
    {10, 2, "mnuFileOpe", "Abrir empresa", 1, "23"},
    {10, 3, "mnuFileImp", "Configurar impresora", 1, "23"},
    {10, 4, "mnuFileExi", "Salir", 1, "2345"},
    {10, 10, "mnuCat", "Catálogos", 0, "23"},
    {10, 11, "mnuCatArt", "Artículos", 10, "23"},
    {10, 12, "mnuCatCli", "Clientes", 10, "23"},
    {10, 13, "mnuCatFrp", "Formas de Pago", 10, "2"},
    {10, 14, "mnuCatImp", "Impuestos", 10, "2"},
    {10, 15, "mnuCatDep", "Departamentos", 10, "2"},
    {10, 16, "mnuCatVen", "Vendedores", 10, "2"},
    {10, 17, "mnuCatPro", "Promociones", 10, "2"},
    {10, 18, "mnuPVPrecios", "Precios", 10, "23"},
    {10, 19, "mnuCatUnd", "Unidades", 10, "2"},
    {10, 20, "mnuPV", "Punto de Venta", 0, "2345"},
    {10, 21, "mnuPtoVen", "Punto de Venta", 20, "2345"},
    {10, 22, "mnuPVCorX", "Corte X", 20, "2345"},
    {10, 23, "mnuPVCorZ", "Corte Z", 20, "23"},
    {10, 24, "mnuPVRet", "Retiro de Efectivo", 20, "2345"},
    {10, 25, "mnuPVFon", "Fondo de Caja", 20, "2345"},
    {10, 26, "mnuPVDev", "Devoluciones", 20, "23"},
    {10, 27, "mnuPVCan", "Cancelación de Ventas", 20, "23"},
    {10, 28, "mnuPVReimp", "Reimpresión de Tickets", 20, "234"},
    {10, 29, "mnuPVApa", "Apartados", 20, "23"},
    {10, 30, "mnuPVEsp", "Ventas en Espera", 20, "2345"},
    {10, 31, "mnuPVFac", "Facturación", 20, "23"},
    {10, 32, "mnuPVFacGlo", "Factura Global", 20, "2"},
    {10, 33, "mnuPVNot", "Notas de Crédito", 20, "2"},
    {10, 34, "mnuPVTie", "Tiempo Aire", 20, "2"},
    {10, 35, "mnuPVSer", "Pago de Servicios", 20, "2"},
    {10, 36, "mnuPVCot", "Cotizaciones", 20, "2"},
    {10, 37, "mnuPVPed", "Pedidos", 20, "2"},
    {10, 40, "mnuCar", "Cartera", 0, "23"},
    {10, 41, "mnuCarPag", "Recepción de Pagos", 40, "23"},
    {10, 42, "mnuCarCar", "Cargos", 40, "2"},
    {10, 43, "mnuCarAbo", "Abonos", 40, "2"},
    {10, 44, "mnuCarEdo", "Estados de Cuenta", 40, "23"},
    {10, 45, "mnuCarAnt", "Antigüedad de Saldos", 40, "2"},
    {10, 46, "mnuCarCre", "Límites de Crédito", 40, "2"},
    {10, 50, "mnuInv", "Inventario", 0, "2"},
    {10, 51, "mnuInvEnt", "Entradas", 50, "2"},
    {10, 52, "mnuInvSal", "Salidas", 50, "2"},
    {10, 53, "mnuInvTra", "Traspasos", 50, "2"},
    {10, 54, "mnuInvFis", "Inventario Físico", 50, "2"},
    {10, 55, "mnuInvAju", "Ajustes", 50, "2"},
    {10, 56, "mnuInvKar", "Kárdex", 50, "2"},
    {10, 57, "mnuInvExi", "Existencias", 50, "2"},
    {10, 60, "mnuRep", "Reportes", 0, "23"},
    {10, 61, "mnuRepVen", "Ventas del Día", 60, "23"},
    {10, 62, "mnuRepVenPer", "Ventas por Período", 60, "23"},
    {10, 63, "mnuRepVenArt", "Ventas por Artículo", 60, "2"},
    {10, 64, "mnuRepVenDep", "Ventas por Departamento", 60, "2"},
    {10, 65, "mnuRepVenVen", "Ventas por Vendedor", 60, "2"},
    {10, 66, "mnuRepCor", "Cortes de Caja", 60, "23"},
    {10, 67, "mnuRepFrp", "Formas de Pago", 60, "2"},
    {10, 68, "mnuRepUti", "Utilidad", 60, "2"},
    {10, 69, "mnuRepImp", "Impuestos", 60, "2"},
    {10, 70, "mnuRepCan", "Cancelaciones", 60, "2"},
    {10, 71, "mnuRepDev", "Devoluciones", 60, "2"},
    {10, 80, "mnuSis", "Sistema", 0, "2"},
    {10, 81, "mnuSisConfig", "Configuración", 80, "2"},
    {10, 82, "mnuSisUsu", "Usuarios", 80, "2"},
    {10, 83, "mnuSisPer", "Perfiles", 80, "2"},
    {10, 84, "mnuSisRes", "Respaldo", 80, "2"},
    {10, 85, "mnuSisBit", "Bitácora", 80, "2"},
    {10, 90, "mnuAyuda", "?", 0, "2345"},
    {10, 91, "mnuAyudaManualDeUsuario", "Manual de Usuario", 90, "2345"},
    {10, 92, "mnuAyudaCreditos", "Créditos", 90, "2345"},
    // Edition 11.
    {11, 1, "mnuFile", "Archivo", 0, "2345"},
    {11, 2, "mnuFileOpe", "Abrir empresa", 1, "23"},
    {11, 3, "mnuFileImp", "Configurar impresora", 1, "23"},
    {11, 4, "mnuFileExi", "Salir", 1, "2345"},
    {11, 10, "mnuCat", "Catálogos", 0, "23"},
    {11, 11, "mnuCatPla", "Platillos", 10, "23"},
    {11, 12, "mnuCatGpo", "Grupos del Menú", 10, "2"},
    {11, 13, "mnuCatMod", "Modificadores", 10, "2"},
    {11, 14, "mnuCatMes", "Mesas", 10, "2"},
    {11, 15, "mnuCatSec", "Secciones", 10, "2"},
    {11, 16, "mnuCatMer", "Meseros", 10, "2"},
    {11, 17, "mnuCatFrp", "Formas de Pago", 10, "2"},
    {11, 18, "mnuPVPrecios", "Precios", 10, "23"},
    {11, 19, "mnuCatRec", "Recetas", 10, "2"},
    {11, 20, "mnuPV", "Punto de Venta", 0, "2345"},
    {11, 21, "mnuPtoVen", "Punto de Venta", 20, "2345"},
    {11, 22, "mnuFFCom", "Comandas", 20, "2345"},
    {11, 23, "mnuFFMes", "Mapa de Mesas", 20, "2345"},
    {11, 24, "mnuFFDom", "Servicio a Domicilio", 20, "23"},
    {11, 25, "mnuFFLle", "Para Llevar", 20, "2345"},
    {11, 26, "mnuPVCorX", "Corte X", 20, "2345"},
    {11, 27, "mnuPVCorZ", "Corte Z", 20, "23"},
    {11, 28, "mnuPVRet", "Retiro de Efectivo", 20, "2"},
    {11, 29, "mnuPVFon", "Fondo de Caja", 20, "2345"},
    {11, 30, "mnuFFCan", "Cancelación de Comandas", 20, "23"},
    {11, 31, "mnuFFReimp", "Reimpresión de Cuentas", 20, "234"},
    {11, 32, "mnuFFDiv", "División de Cuentas", 20, "23"},
    {11, 33, "mnuFFPro", "Propinas", 20, "2"},
    {11, 34, "mnuPVFac", "Facturación", 20, "23"},
    {11, 35, "mnuPVFacGlo", "Factura Global", 20, "2"},
    {11, 36, "mnuFFCoc", "Monitor de Cocina", 20, "2"},
    {11, 37, "mnuFFCor", "Cortesías", 20, "2"},
    {11, 40, "mnuCar", "Cartera", 0, "23"},
    {11, 41, "mnuCarPag", "Recepción de Pagos", 40, "23"},
    {11, 42, "mnuCarEdo", "Estados de Cuenta", 40, "2"},
    {11, 43, "mnuCarAnt", "Antigüedad de Saldos", 40, "2"},
    {11, 50, "mnuInv", "Inventario", 0, "2"},
    {11, 51, "mnuInvEnt", "Entradas", 50, "2"},
    {11, 52, "mnuInvSal", "Salidas", 50, "2"},
    {11, 53, "mnuInvFis", "Inventario Físico", 50, "2"},
    {11, 54, "mnuInvAju", "Ajustes", 50, "2"},
    {11, 55, "mnuInvKar", "Kárdex", 50, "2"},
    {11, 56, "mnuInvExi", "Existencias", 50, "2"},
    {11, 57, "mnuInvPro", "Producción", 50, "2"},
    {11, 60, "mnuRep", "Reportes", 0, "23"},
    {11, 61, "mnuRepVen", "Ventas del Día", 60, "23"},
    {11, 62, "mnuRepVenPer", "Ventas por Período", 60, "2"},
    {11, 63, "mnuRepVenPla", "Ventas por Platillo", 60, "2"},
    {11, 64, "mnuRepVenMer", "Ventas por Mesero", 60, "2"},
    {11, 65, "mnuRepCor", "Cortes de Caja", 60, "23"},
    {11, 66, "mnuRepFrp", "Formas de Pago", 60, "2"},
    {11, 67, "mnuRepPro", "Propinas", 60, "23"},
    {11, 68, "mnuRepCan", "Cancelaciones", 60, "2"},
    {11, 69, "mnuRepCos", "Costo de Platillos", 60, "2"},
    {11, 70, "mnuRepMes", "Ocupación de Mesas", 60, "2"},
    {11, 80, "mnuSis", "Sistema", 0, "2"},
    {11, 81, "mnuSisConfig", "Configuración", 80, "2"},
    {11, 82, "mnuSisUsu", "Usuarios", 80, "2"},
    {11, 83, "mnuSisPer", "Perfiles", 80, "2"},
    {11, 84, "mnuSisRes", "Respaldo", 80, "2"},
    {11, 85, "mnuSisBit", "Bitácora", 80, "2"},
    {11, 86, "mnuSisImpCoc", "Impresoras de Cocina", 80, "2"},
    {11, 87, "mnuSisTer", "Terminales", 80, "2"},
    {11, 90, "mnuAyuda", "?", 0, "2345"},
    {11, 91, "mnuAyudaManualDeUsuario", "Manual de Usuario", 90, "2345"},
    {11, 92, "mnuAyudaCreditos", "Créditos", 90, "2345"},
    // Edition 20.
    {20, 1, "mnuFile", "Archivo", 0, "23"},
    {20, 2, "mnuFileOpe", "Abrir empresa", 1, "3"},
    {20, 3, "mnuFileImp", "Configurar impresora", 1, "3"},
    {20, 4, "mnuFileExi", "Salir", 1, "23"},
    {20, 10, "mnuCat", "Catálogos", 0, "23"},
    {20, 11, "mnuCatPrv", "Proveedores", 10, "3"},
    {20, 12, "mnuCatArt", "Artículos", 10, "23"},
    {20, 13, "mnuCatCom", "Compradores", 10, "3"},
    {20, 14, "mnuCatCon", "Conceptos", 10, "3"},
    {20, 15, "mnuCatCar", "Cargos en Compras", 10, "3"},
    {20, 20, "mnuPresupuestos", "Presupuestos", 0, "23"},
    {20, 21, "mnuPreRegistro", "Registro", 20, "23"},
    {20, 22, "mnuPreAut", "Autorización", 20, "3"},
    {20, 23, "mnuPreTra", "Traspasos", 20, "3"},
    {20, 30, "mnuReq", "Requisiciones", 0, "23"},
    {20, 31, "mnuReqReg", "Registro", 30, "23"},
    {20, 32, "mnuReqAut", "Autorización", 30, "3"},
    {20, 33, "mnuReqSur", "Surtido", 30, "3"},
    {20, 40, "mnuOCom", "Órdenes de Compra", 0, "3"},
    {20, 41, "mnuOComReg", "Registro", 40, "3"},
    {20, 42, "mnuOComAut", "Autorización", 40, "3"},
    {20, 43, "mnuOComCan", "Cancelación", 40, "3"},
    {20, 50, "mnuRec", "Recepciones", 0, "3"},
    {20, 51, "mnuRecReg", "Registro", 50, "3"},
    {20, 52, "mnuRecAut", "Autorización", 50, "3"},
    {20, 53, "mnuRecDev", "Devoluciones", 50, "3"},
    {20, 60, "mnuCxp", "Cuentas por Pagar", 0, "3"},
    {20, 61, "mnuCxpCar", "Cargos", 60, "3"},
    {20, 62, "mnuCxpAbo", "Abonos", 60, "3"},
    {20, 63, "mnuCxpAut", "Autorización de Pagos", 60, "3"},
    {20, 64, "mnuCxpEdo", "Estados de Cuenta", 60, "3"},
    {20, 70, "mnuRep", "Reportes", 0, "23"},
    {20, 71, "mnuRepCom", "Compras por Período", 70, "23"},
    {20, 72, "mnuRepPrv", "Compras por Proveedor", 70, "3"},
    {20, 73, "mnuRepPen", "Órdenes Pendientes", 70, "3"},
    {20, 74, "mnuRepSal", "Saldos de Proveedores", 70, "3"},
    {20, 75, "mnuRepPre", "Ejercicio del Presupuesto", 70, "23"},
    {20, 90, "mnuAyuda", "?", 0, "23"},
    {20, 91, "mnuAyudaManualDeUsuario", "Manual de Usuario", 90, "23"},
    {20, 92, "mnuAyudaCreditos", "Créditos", 90, "23"},
    // Edition 30.
    {30, 1, "mnuFile", "Archivo", 0, "23"},
    {30, 2, "mnuFileOpe", "Abrir empresa", 1, "2"},
    {30, 3, "mnuFileImp", "Configurar impresora", 1, "2"},
    {30, 4, "mnuFileExi", "Salir", 1, "23"},
    {30, 10, "mnuGas", "Gastos", 0, "23"},
    {30, 11, "mnuGasReg", "Registro", 10, "23"},
    {30, 12, "mnuGasAut", "Autorización", 10, "2"},
    {30, 13, "mnuGasCan", "Cancelación", 10, "2"},
    {30, 14, "mnuGasCon", "Conceptos de Gasto", 10, "2"},
    {30, 20, "mnuTes", "Tesorería", 0, "23"},
    {30, 21, "mnuTesIng", "Ingresos", 20, "23"},
    {30, 22, "mnuTesEgr", "Egresos", 20, "23"},
    {30, 23, "mnuTesChq", "Cheques", 20, "23"},
    {30, 24, "mnuTesTra", "Traspasos entre Cuentas", 20, "2"},
    {30, 25, "mnuTesAut", "Autorización de Movimientos", 20, "2"},
    {30, 26, "mnuTesCta", "Cuentas Bancarias", 20, "2"},
    {30, 30, "mnuCon", "Conciliación", 0, "2"},
    {30, 31, "mnuConReg", "Conciliar", 30, "2"},
    {30, 32, "mnuConCan", "Cancelar Conciliación", 30, "2"},
    {30, 33, "mnuConRea", "Reabrir Conciliación", 30, "2"},
    {30, 40, "mnuRep", "Reportes", 0, "23"},
    {30, 41, "mnuRepGas", "Gastos por Período", 40, "23"},
    {30, 42, "mnuRepGasCon", "Gastos por Concepto", 40, "2"},
    {30, 43, "mnuRepFlu", "Flujo de Efectivo", 40, "2"},
    {30, 44, "mnuRepSal", "Saldos Bancarios", 40, "2"},
    {30, 45, "mnuRepMov", "Movimientos Bancarios", 40, "23"},
    {30, 46, "mnuRepChq", "Cheques Emitidos", 40, "2"},
    {30, 80, "mnuSis", "Sistema", 0, "2"},
    {30, 81, "mnuSisConfig", "Configuración", 80, "2"},
    {30, 82, "mnuSisUsu", "Usuarios", 80, "2"},
    {30, 90, "mnuAyuda", "?", 0, "23"},
    {30, 91, "mnuAyudaManualDeUsuario", "Manual de Usuario", 90, "23"},
    {30, 92, "mnuAyudaCreditos", "Créditos", 90, "23"},
    // Edition 40.
    {40, 1, "mnuFile", "Archivo", 0, "234"},
    {40, 3, "mnuFileExi", "Salir", 1, "234"},
    {40, 10, "mnuLiq", "Liquidaciones", 0, "234"},
    {40, 11, "mnuLiqSal", "Registro de Carga", 10, "234"},
    {40, 12, "mnuLiqDev", "Devoluciones de Ruta", 10, "234"},
    {40, 13, "mnuLiqCob", "Cobranza de Ruta", 10, "234"},
    {40, 14, "mnuLiqCie", "Cierre de Liquidación", 10, "23"},
    {40, 15, "mnuLiqCan", "Cancelación", 10, "3"},
    {40, 20, "mnuRut", "Rutas", 0, "3"},
    {40, 21, "mnuRutCat", "Catálogo de Rutas", 20, "3"},
    {40, 22, "mnuRutVen", "Vendedores de Ruta", 20, "3"},
    {40, 23, "mnuRutCli", "Clientes por Ruta", 20, "3"},
    {40, 30, "mnuRep", "Reportes", 0, "23"},
    {40, 31, "mnuRepLiq", "Liquidaciones", 30, "23"},
    {40, 32, "mnuRepCar", "Cargas por Ruta", 30, "3"},
    {40, 33, "mnuRepCob", "Cobranza", 30, "3"},
    {40, 90, "mnuAyuda", "?", 0, "234"},
    {40, 91, "mnuAyudaManualDeUsuario", "Manual de Usuario", 90, "234"},
    {40, 92, "mnuAyudaCreditos", "Créditos", 90, "234"},
    // Edition 50.
    {50, 1, "mnuFile", "Archivo", 0, "2345"},
    {50, 2, "mnuFileExi", "Salir", 1, "2345"},
    {50, 10, "mnuOperacion", "Operación", 0, "2345"},
    {50, 11, "mnuOperacionPedidos", "Pedidos", 10, "2345"},
    {50, 12, "mnuOperacionSurtido", "Surtido", 10, "24"},
    {50, 13, "mnuOperacionEntrega", "Entregas", 10, "34"},
    {50, 90, "mnuAyuda", "?", 0, "23"},
    {50, 91, "mnuAyudaManualDeUsuario", "Manual de Usuario", 90, "23"},
    {50, 92, "mnuAyudaCreditos", "Créditos", 90, "23"},
    // Edition 60.
    {60, 1, "mnuArchivo", "Archivo", 0, "23"},
    {60, 2, "mnuArchivoSalir", "Salir", 1, "23"},
    {60, 90, "mnuAyuda", "?", 0, "23"},
    {60, 91, "mnuAyudaManualDeUsuario", "Manual de Usuario", 90, "23"},
    {60, 92, "mnuAyudaCreditos", "Créditos", 90, "23"},
};

struct Edicion {
  int numero;
  const char *tabla;
};
constexpr Edicion kEdiciones[] = {{10, "tblMenusPV"}, {11, "tblMenusFF"}, {20, "tblMenusCP"},
                                  {30, "tblMenusGT"}, {40, "tblMenusVR"}, {50, "tblMenusED"},
                                  {60, "tblMenusCA"}};

const QString kInsertarPlantilla = QStringLiteral(
    "INSERT INTO tblPlantillaMenus (COD_PERFIL,ORDEN_MENU,NOMBRE_OPCION,TITULO_OPCION,ES_RAMA_DE,"
    "MODULO_EDICION) VALUES ");

// The editions a user may have: purchasing and expenses below profile 4, edition 60 below 2.
bool Corresponde(int edicion, int perfil) {
  if (edicion == 20 || edicion == 30)
    return perfil < 4;
  if (edicion == 60)
    return perfil < 2;
  return true;
}

} // namespace

const std::vector<ItemPlantilla> &Plantillas() { return kPlantillas; }

const std::vector<int> &Ediciones() {
  static const std::vector<int> ediciones = [] {
    std::vector<int> v;
    for (const Edicion &e : kEdiciones)
      v.push_back(e.numero);
    return v;
  }();
  return ediciones;
}

QString TablaMenus(int edicion) {
  for (const Edicion &e : kEdiciones)
    if (e.numero == edicion)
      return QLatin1String(e.tabla);
  return {};
}

bool SembrarPlantillas(Conexion &con, QString *error) {
  // What the company holds already is left; only the missing rows go in.
  std::set<std::tuple<qint64, qint64, qint64>> presentes;
  std::unique_ptr<Registros> rs = con.IntentarAbrir(
      QStringLiteral("SELECT COD_PERFIL,MODULO_EDICION,ORDEN_MENU FROM tblPlantillaMenus;"), error);
  if (!rs)
    return false;
  for (; !rs->Fin(); rs->Siguiente())
    presentes.emplace(rs->Campo(QStringLiteral("COD_PERFIL")).Entero(),
                      rs->Campo(QStringLiteral("MODULO_EDICION")).Entero(),
                      rs->Campo(QStringLiteral("ORDEN_MENU")).Entero());
  rs.reset();
  for (const char perfil : {'2', '3', '4', '5'}) {
    const int numero = perfil - '0';
    for (const ItemPlantilla &i : kPlantillas) {
      if (!QByteArray(i.perfiles).contains(perfil) || presentes.count({numero, i.edicion, i.orden}))
        continue;
      // One pass of arg(): a text that holds "%1" stays as it is.
      if (!con.IntentarEjecutar(kInsertarPlantilla +
                                    QStringLiteral("(%1,%2,'%3','%4',%5,%6);")
                                        .arg(QString::number(numero), QString::number(i.orden),
                                             Escapar(QLatin1String(i.nombre)),
                                             Escapar(QString::fromUtf8(i.titulo)),
                                             QString::number(i.rama), QString::number(i.edicion)),
                                nullptr, error))
        return false;
    }
  }
  return true;
}

bool GenerarMenus(Conexion &con, const Estado &estado, QString *error) {
  const QString linea = QStringLiteral("Generando menú...");
  struct Usuario {
    QString codigo, nombre;
    int perfil;
  };
  std::vector<Usuario> usuarios;
  {
    std::unique_ptr<Registros> rs =
        con.IntentarAbrir(QStringLiteral("SELECT * FROM tblUsuarios ORDER BY COD_USU;"), error);
    if (!rs)
      return false;
    for (; !rs->Fin(); rs->Siguiente())
      usuarios.push_back({rs->Campo(QStringLiteral("COD_USU")).Texto(),
                          rs->Campo(QStringLiteral("NOM_USU")).Texto(),
                          static_cast<int>(rs->Campo(QStringLiteral("TIP_USU")).Numero())});
  }
  for (const Usuario &u : usuarios) {
    if (estado)
      estado(linea, u.nombre);
    for (const Edicion &e : kEdiciones) {
      if (!Corresponde(e.numero, u.perfil))
        continue;
      const QString tabla = QLatin1String(e.tabla);
      // A user who has any item of an edition keeps those menus as they are.
      std::unique_ptr<Registros> tiene =
          con.IntentarAbrir(QStringLiteral("SELECT COD_USUARIO FROM %1 WHERE COD_USUARIO='%2';")
                                .arg(tabla, Escapar(u.codigo)),
                            error);
      if (!tiene)
        return false;
      if (!tiene->Vacio())
        continue;
      tiene.reset();
      const auto plantilla = [&](int perfil) {
        return con.IntentarAbrir(QStringLiteral("SELECT * FROM tblPlantillaMenus WHERE "
                                                "COD_PERFIL=%1 AND MODULO_EDICION=%2 ORDER BY "
                                                "ORDEN_MENU;")
                                     .arg(perfil)
                                     .arg(e.numero),
                                 error);
      };
      std::unique_ptr<Registros> rs = plantilla(u.perfil);
      if (!rs)
        return false;
      // The administrator's template is made from the base the first time it is wanted.
      const bool deBase = rs->Vacio() && u.perfil == 1;
      if (deBase) {
        rs = plantilla(0);
        if (!rs)
          return false;
      }
      struct Renglon {
        qint64 orden, rama;
        QString nombre, titulo;
      };
      std::vector<Renglon> renglones;
      for (; !rs->Fin(); rs->Siguiente())
        renglones.push_back({rs->Campo(QStringLiteral("ORDEN_MENU")).Entero(),
                             rs->Campo(QStringLiteral("ES_RAMA_DE")).Entero(),
                             rs->Campo(QStringLiteral("NOMBRE_OPCION")).Texto(),
                             rs->Campo(QStringLiteral("TITULO_OPCION")).Texto()});
      rs.reset();
      for (const Renglon &r : renglones) {
        if (deBase && !con.IntentarEjecutar(
                          kInsertarPlantilla + QStringLiteral("(1,%1,'%2','%3',%4,%5);")
                                                   .arg(QString::number(r.orden), Escapar(r.nombre),
                                                        Escapar(r.titulo), QString::number(r.rama),
                                                        QString::number(e.numero)),
                          nullptr, error))
          return false;
        if (!con.IntentarEjecutar(
                QStringLiteral(
                    "INSERT INTO %1 (COD_USUARIO,ORDEN_MENU,NOMBRE_OPCION) VALUES ('%2',%3,'%4');")
                    .arg(tabla, Escapar(u.codigo), QString::number(r.orden), Escapar(r.nombre)),
                nullptr, error))
          return false;
      }
    }
  }
  return true;
}

void EncriptarClaves(Conexion &con) {
  struct Claves {
    QString usuario, primera, segunda;
  };
  std::vector<Claves> usuarios;
  for (Registros rs = con.Abrir(
           QStringLiteral("SELECT COD_USU,PASS1_USU,PASS2_USU FROM tblUsuarios ORDER BY COD_USU;"));
       !rs.Fin(); rs.Siguiente())
    usuarios.push_back({rs.Campo(QStringLiteral("COD_USU")).Texto(),
                        rs.Campo(QStringLiteral("PASS1_USU")).Texto(),
                        rs.Campo(QStringLiteral("PASS2_USU")).Texto()});
  // A scrambled password is eleven characters or more; a shorter one is still plain.
  for (const Claves &u : usuarios) {
    const std::pair<const char *, const QString *> columnas[] = {{"PASS1_USU", &u.primera},
                                                                 {"PASS2_USU", &u.segunda}};
    for (const auto &[columna, valor] : columnas) {
      if (valor->size() >= 11)
        continue;
      const QString cifrada = Encriptar(*valor);
      if (cifrada.isEmpty())
        continue;
      con.Ejecutar(QStringLiteral("UPDATE tblUsuarios SET %1='%2' WHERE COD_USU='%3';")
                       .arg(QLatin1String(columna), Escapar(cifrada), Escapar(u.usuario)));
    }
  }
}

Regla ReglaOpcion(Conexion &con, int modulo, const QString &usuario, const QString &opcion) {
  if (opcion == QLatin1String("mnuPVPrecios") || opcion == QLatin1String("mnuSisConfig"))
    return Regla::Dejar;
  const QString tabla =
      modulo == 10 || modulo == 11 || modulo == 20 || modulo == 30 ? TablaMenus(modulo) : QString();
  if (tabla.isEmpty())
    return Regla::Dejar;
  Registros rs =
      con.Abrir(QStringLiteral("SELECT * FROM %1 WHERE NOMBRE_OPCION='%2' AND COD_USUARIO='%3';")
                    .arg(tabla, Escapar(opcion), Escapar(usuario)));
  return rs.Vacio() ? Regla::Ocultar : Regla::Mostrar;
}

Acceso RevisarDerechos(Conexion &con, int modulo, const QString &usuario, const QString &opcion) {
  Registros rs = con.Abrir(
      QStringLiteral("SELECT TIP_USU FROM tblUsuarios WHERE COD_USU='%1';").arg(Escapar(usuario)));
  if (rs.Vacio())
    return {};
  const bool administrador = rs.Campo(QStringLiteral("TIP_USU")).Numero() == 1;
  if (administrador || ReglaOpcion(con, modulo, usuario, opcion) != Regla::Ocultar)
    return {true, usuario};
  return {};
}

} // namespace menus
