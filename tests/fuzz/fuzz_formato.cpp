#include "Apoyo.h"
#include "db/ConstructorBD.h"
#include "export/FormatoArchivo.h"
#include "export/GenerarArchivo.h"
#include "shell/CatalogoMensajes.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <cstring>

namespace {

// Messages are answered and forgotten: the reader shows 5522 for a missing row.
class Callado : public PresentadorMensajes {
public:
  RespuestaMensaje Presentar(const Mensaje &) override { return RespuestaMensaje::Aceptar; }
};

Conexion &Base() {
  static Callado callado;
  static ConexionPtr con = [] {
    CatalogoMensajes::Instalar(&callado);
    const QString ruta = QDir::temp()
                             .filePath(QStringLiteral("escribano-fuzz-%1.db"))
                             .arg(QCoreApplication::applicationPid());
    QFile::remove(ruta);
    ConexionPtr c = ServicioConexion::AbrirSqlite(ruta, true, motor::kSqlite);
    for (const esquema::Tabla &t : esquema::TablasEmpresa())
      if (std::strcmp(t.nombre, "tblParametrosForm") == 0)
        c->Ejecutar(constructor::CrearTabla(t, motor::kSqlite));
    return c;
  }();
  return *con;
}

const char *const kColumnas[] = {
    "NO_REN",   "SEP_COM",  "SEP_DAT",  "DEB_HAB",  "CHAR_UNO", "CHAR_DOS", "REN_FOL",  "REN_FEC",
    "REN_TIP",  "REN_CTA",  "REN_CON",  "REN_IMP",  "REN2_FOL", "REN2_FEC", "REN2_TIP", "REN2_CTA",
    "REN2_CON", "REN2_IMP", "F_FECHA",  "LON_FIJA", "LON_FOL",  "LON_FEC",  "LON_TIP",  "LON_CTA",
    "LON_CON",  "LON_DEB",  "LON_HAB",  "AL_FOL",   "AL_FEC",   "AL_TIP",   "AL_CTA",   "AL_CON",
    "AL_DEB",   "AL_HAB",   "FORM_CTA", "CHAR_SEP", "CERO_IZQ"};

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
  static QCoreApplication app(*argc, *argv); // the SQL drivers are plugins of the application
  return 0;
}

// Any row of tblParametrosForm (fields of the input split by 0x1F; a number goes bare,
// anything else as text): read as the export reads it, then used on a line.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *datos, size_t largo) {
  Conexion &con = Base();
  const QStringList campos = Texto(datos, largo).split(QChar(0x1F));
  QStringList nombres, valores;
  for (qsizetype i = 0; i < campos.size() && i < qsizetype(std::size(kColumnas)); ++i) {
    bool numero = false;
    const qlonglong n = campos[i].toLongLong(&numero);
    nombres << QString::fromLatin1(kColumnas[i]);
    valores << (numero ? QString::number(n)
                       : QLatin1Char('\'') + Escapar(campos[i]) + QLatin1Char('\''));
  }
  con.Ejecutar(QStringLiteral("DELETE FROM tblParametrosForm"));
  if (!nombres.isEmpty())
    con.Ejecutar(QStringLiteral("INSERT INTO tblParametrosForm (%1) VALUES (%2)")
                     .arg(nombres.join(QLatin1Char(',')), valores.join(QLatin1Char(','))));
  FormatoArchivo f;
  try {
    if (!CargarFormato(con, f))
      return 0;
  } catch (const ErrorFatal &) {
    return 0; // a text where a number goes: the run ends with a message
  }
  try {
    FormatearCuenta(f, QStringLiteral("1101-001-002"));
    FormatearCuenta(f, QString());
  } catch (const FallaArchivo &) {
  }
  FormatearFecha(f, QDate(2026, 10, 31));
  InsSeparador(
      f, AjustarCampo(f, false, QStringLiteral("VENTA D'ANGELO"), f.LongConcepto, f.AlConcepto));
  InsSeparador(f, AjustarCampo(f, true, QStringLiteral("-1234.56"), f.LongDebe, f.AlDebe));
  return 0;
}
