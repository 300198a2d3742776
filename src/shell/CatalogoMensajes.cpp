#include "shell/CatalogoMensajes.h"

#include <QTextStream>

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace {

struct Entrada {
  int id;
  const char *texto; // UTF-8
};

// Our stand-in for the family's catalogue. The ids are the family's; the wording is ours.
// A text that the caller completes (a file name, a path) ends where the addition begins.
constexpr Entrada kCatalogo[] = {
    // title of most message boxes
    {100, "Escribano"},
    // journal run: it posted entries
    {108, "El proceso terminó correctamente."},
    // print preview: Esc asks before closing
    {129, "¿Desea cerrar la vista previa?"},
    // print preview: page saved; its number and path follow
    {130, "Página grabada:"},
    // rubros: saving over a rubro that exists
    {154, "El registro ya existe. ¿Desea modificarlo?"},
    // login: the general database is missing; its path follows
    {300, "No se encontró la base de datos general."},
    // main window: leaving while other windows are open
    {301, "Hay otras ventanas abiertas. Ciérrelas antes de salir del sistema."},
    // login: no company exists and none was created; the program ends
    {302, "No hay empresas registradas. El sistema se cerrará."},
    // main window: confirm leaving
    {303, "¿Desea salir del sistema?"},
    // company list: confirm deleting a company
    {357, "¿Desea eliminar la empresa seleccionada?"},
    // company editing: MySQL database name missing
    {358, "Falta el nombre de la base de datos."},
    // company editing: MySQL data source missing
    {359, "Falta el origen de datos (DSN) de la conexión."},
    // company editing: the structure check failed
    {360, "Falló la verificación de la estructura de la base de datos. La empresa no se guardó."},
    // company editing: principal branch code or name missing
    {361, "Falta el código o la descripción de la sucursal principal."},
    // company editing: company name missing
    {362, "Falta el nombre de la empresa."},
    // company list: no companies to open; the creation screen follows
    {364, "No hay empresas registradas. Capture los datos de una empresa nueva."},
    // company list: the open company can't be deleted
    {365, "No se puede eliminar la empresa que está abierta."},
    // company editing: connection failed, or not proved before saving
    {369, "No fue posible establecer la conexión con la base de datos. Verifique los datos de la "
          "conexión."},
    // company editing: connection test succeeded
    {370, "La conexión con la base de datos se estableció correctamente."},
    // login: barred user
    {400, "El acceso de este usuario está bloqueado. Consulte al administrador del sistema."},
    // company switch: the user doesn't exist in the chosen company
    {403, "El usuario no está registrado en la empresa seleccionada."},
    // login: wrong password
    {409, "La contraseña es incorrecta."},
    // login: unknown user
    {410, "El usuario no existe."},
    // main window load: two users share a password
    {422, "Hay usuarios con la misma contraseña. Cada usuario debe tener una contraseña distinta."},
    // journal log: title of the question about an existing file
    {5500, "Bitácora de pólizas"},
    // posting rules: confirm deleting the rule
    {5501, "¿Desea eliminar la definición del asiento?"},
    // posting rules: neither debit nor credit in the grid
    {5502, "No se ha asignado ningún rubro al debe ni al haber."},
    // posting rules: no debit
    {5503, "No se ha asignado ningún rubro al debe."},
    // posting rules: no credit
    {5504, "No se ha asignado ningún rubro al haber."},
    // posting rules: the rule exists; replace it?
    {5505, "La definición del asiento ya existe. ¿Desea reemplazarla?"},
    // posting rules: the rule is new; add it?
    {5506, "La definición del asiento no existe. ¿Desea agregarla?"},
    // posting rules: no rubro of the last level matches what was typed
    {5507, "No se encontró un rubro de último nivel que coincida con lo escrito."},
    // journal run: nothing was posted
    {5508, "No se generó ninguna póliza."},
    // journal run: offer to open the log
    {5509, "¿Desea ver la bitácora del proceso?"},
    // journal log: the file exists (followed by 5511)
    {5510, "El archivo de bitácora ya existe."},
    // journal log: append to the existing file?
    {5511, "¿Desea agregar la información al final del archivo?"},
    // journal log: file name missing
    {5512, "Es necesario indicar el nombre del archivo de bitácora."},
    // entry deletion: confirm
    {5513, "Se eliminarán las pólizas del periodo que cumplan con los criterios seleccionados. "
           "¿Desea continuar?"},
    // entry deletion: done, even when nothing matched
    {5514, "El proceso de eliminación de pólizas terminó."},
    // rubros: deleting with no company rubro shown
    {5515, "No hay un rubro de la empresa seleccionado para eliminar."},
    // rubros: the rubro has children
    {5516, "El rubro tiene subrubros. No se puede eliminar."},
    // rubros: not a company rubro of the last level
    {5517, "Solo se pueden eliminar rubros de la empresa del último nivel."},
    // rubros: a posting rule uses the rubro
    {5518, "El rubro se usa en la definición de asientos. No se puede eliminar."},
    // rubros: confirm deletion
    {5519, "¿Desea eliminar el rubro?"},
    // rubros: parent, statement, description or account missing
    {5520, "Faltan datos: el rubro padre, el estado financiero, la descripción o la cuenta."},
    // rubros: saving a new rubro
    {5521, "El rubro es nuevo. ¿Desea agregarlo?"},
    // export: no file format defined
    {5522, "No se ha configurado el formato del archivo de pólizas."},
    // export: opens the question; the file name follows
    {5524, "Se generará el archivo"},
    // export: closes the question before writing the file
    {5525, "Si el archivo ya existe, se reemplazará su contenido. ¿Desea continuar?"},
    // export: file written
    {5526, "El archivo se generó correctamente."},
    // export: write failure; file name and cause follow
    {5527, "Ocurrió un error al generar el archivo"},
    // rubros: a bank account uses the rubro
    {5528, "El rubro está asignado a una cuenta bancaria. No se puede eliminar."},
    // rubros: the SAT's grouping code isn't of its form
    {5529, "El código agrupador del SAT lleva tres cifras y, para una subcuenta, un punto y "
           "dos cifras más (por ejemplo 102 o 102.01)."},
};

constexpr bool EstaOrdenado() {
  for (std::size_t i = 1; i < std::size(kCatalogo); ++i)
    if (kCatalogo[i - 1].id >= kCatalogo[i].id)
      return false;
  return true;
}
static_assert(EstaOrdenado(), "the catalogue must be sorted by id, without repeats");

const Entrada *Buscar(int id) {
  const auto fin = std::end(kCatalogo);
  const auto it = std::lower_bound(std::begin(kCatalogo), fin, id,
                                   [](const Entrada &e, int valor) { return e.id < valor; });
  return it != fin && it->id == id ? it : nullptr;
}

PresentadorMensajes *gPresentador = nullptr;

bool EsPregunta(BotonesMensaje botones) {
  return botones == BotonesMensaje::SiNo || botones == BotonesMensaje::SiNoCancelar;
}

RespuestaMensaje RespuestaPorOmision(BotonesMensaje botones) {
  return EsPregunta(botones) ? RespuestaMensaje::Si : RespuestaMensaje::Aceptar;
}

} // namespace

QString CatalogoMensajes::Texto(int id) {
  if (const Entrada *e = Buscar(id))
    return QString::fromUtf8(e->texto);
  return QStringLiteral("Mensaje %1").arg(id);
}

bool CatalogoMensajes::Existe(int id) { return Buscar(id) != nullptr; }

std::vector<int> CatalogoMensajes::Ids() {
  std::vector<int> ids;
  ids.reserve(std::size(kCatalogo));
  for (const Entrada &e : kCatalogo)
    ids.push_back(e.id);
  return ids;
}

RespuestaMensaje CatalogoMensajes::Mostrar(int id, const QString &detalle, IconoMensaje icono,
                                           BotonesMensaje botones) {
  QString texto = Texto(id);
  if (!detalle.isEmpty())
    texto += QLatin1Char('\n') + detalle;
  return Caja(texto, Texto(100), icono, botones, id);
}

RespuestaMensaje CatalogoMensajes::MostrarTexto(const QString &texto, IconoMensaje icono,
                                                BotonesMensaje botones) {
  return Caja(texto, Texto(100), icono, botones, 0);
}

RespuestaMensaje CatalogoMensajes::Caja(const QString &texto, const QString &titulo,
                                        IconoMensaje icono, BotonesMensaje botones, int id,
                                        bool noPorOmision) {
  Mensaje mensaje;
  mensaje.id = id;
  mensaje.noPorOmision = noPorOmision;
  mensaje.titulo = titulo;
  mensaje.texto = texto;
  mensaje.icono = icono;
  mensaje.botones = botones;
  return Presentador()->Presentar(mensaje);
}

void CatalogoMensajes::Instalar(PresentadorMensajes *presentador) { gPresentador = presentador; }

bool CatalogoMensajes::HayPresentadorInstalado() { return gPresentador != nullptr; }

PresentadorMensajes *CatalogoMensajes::Presentador() {
  static PresentadorConsola consola;
  return gPresentador ? gPresentador : &consola;
}

RespuestaMensaje PresentadorConsola::Presentar(const Mensaje &mensaje) {
  QTextStream err(stderr);
  err.setEncoding(QStringConverter::Utf8);
  err << mensaje.titulo << ": " << mensaje.texto << '\n';
  err.flush();
  return RespuestaPorOmision(mensaje.botones);
}

RespuestaMensaje PresentadorGrabador::Presentar(const Mensaje &mensaje) {
  mostrados.push_back(mensaje);
  if (respuestas.empty())
    return RespuestaPorOmision(mensaje.botones);
  const RespuestaMensaje respuesta = respuestas.front();
  respuestas.erase(respuestas.begin());
  return respuesta;
}

QStringList PresentadorGrabador::Textos() const {
  QStringList textos;
  for (const Mensaje &m : mostrados)
    textos << m.texto;
  return textos;
}

std::vector<int> PresentadorGrabador::Ids() const {
  std::vector<int> ids;
  ids.reserve(mostrados.size());
  for (const Mensaje &m : mostrados)
    ids.push_back(m.id);
  return ids;
}
