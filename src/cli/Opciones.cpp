#include "cli/Opciones.h"

#include "cli/Progreso.h"
#include "shell/CargaEmpresa.h"
#include "shell/CatalogoMensajes.h"
#include "shell/Encriptacion.h"
#include "shell/Entrada.h"
#include "shell/ErrorFatal.h"
#include "shell/Plataforma.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"
#include "shell/Sesion.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QJsonArray>
#include <QRegularExpression>

namespace cli {
namespace {

const OpcionCli *Buscar(const ComandoCli &comando, QStringView nombre) {
  for (const OpcionCli &o : comando.opciones)
    if (o.nombre == nombre)
      return &o;
  return nullptr;
}

QString Guiones(const QString &nombre) { return QStringLiteral("--") + nombre; }

// What a value of each kind must look like, for the messages.
QString Espera(Valor valor) {
  switch (valor) {
  case Valor::Entero:
    return QStringLiteral("un número entero");
  case Valor::Enteros:
    return QStringLiteral("números enteros separados por comas");
  case Valor::Fecha:
    return QStringLiteral("una fecha AAAA-MM-DD");
  case Valor::Mes:
    return QStringLiteral("un mes AAAA-MM");
  case Valor::TipoPoliza:
    return QStringLiteral("un tipo de póliza (I, E, D, O o S)");
  default:
    return {};
  }
}

bool EsEntero(const QString &texto) {
  static const QRegularExpression entero(QStringLiteral("^-?[0-9]{1,9}$"));
  return entero.match(texto).hasMatch();
}

bool ValorValido(Valor valor, const QString &texto) {
  switch (valor) {
  case Valor::Entero:
    return EsEntero(texto);
  case Valor::Enteros: {
    const QStringList partes = texto.split(QLatin1Char(','));
    return std::all_of(partes.begin(), partes.end(),
                       [](const QString &p) { return EsEntero(p.trimmed()); });
  }
  case Valor::Fecha:
    return texto.size() == 10 && QDate::fromString(texto, QStringLiteral("yyyy-MM-dd")).isValid();
  case Valor::Mes:
    return texto.size() == 7 &&
           QDate::fromString(texto + QStringLiteral("-01"), QStringLiteral("yyyy-MM-dd")).isValid();
  case Valor::TipoPoliza:
    return texto.size() == 1 && QStringLiteral("IEDOS").contains(texto[0]);
  default:
    return true;
  }
}

// "--nombre MUESTRA", or "--nombre" for a switch.
QString UsoDeOpcion(const OpcionCli &o) {
  return o.valor == Valor::Ninguno ? Guiones(o.nombre)
                                   : Guiones(o.nombre) + QLatin1Char(' ') + o.muestra;
}

// The option in the synopsis: in brackets when it may be left out.
QString LineaDeOpcion(const OpcionCli &o) {
  return o.requerida ? UsoDeOpcion(o) : QLatin1Char('[') + UsoDeOpcion(o) + QLatin1Char(']');
}

} // namespace

QString ComandoCli::Sinopsis() const {
  QString linea = QStringLiteral("Uso: escribano-cli [--ruta CARPETA] ") + nombre;
  // The options that don't fit go on under the first one.
  const QString sangria(linea.size(), QLatin1Char(' '));
  QString texto;
  for (const OpcionCli &o : opciones) {
    const QString pieza = LineaDeOpcion(o);
    if (linea.size() + 1 + pieza.size() > 80 && linea != sangria) {
      texto += linea + QLatin1Char('\n');
      linea = sangria;
    }
    linea += QLatin1Char(' ') + pieza;
  }
  return texto + linea + QLatin1Char('\n');
}

QString ComandoCli::Ayuda() const {
  QString texto = Sinopsis() + QLatin1Char('\n') + descripcion;
  if (!opciones.isEmpty())
    texto += QStringLiteral("\nOpciones:\n");
  for (const OpcionCli &o : opciones) {
    texto += QStringLiteral("  ") + UsoDeOpcion(o).leftJustified(21) + QLatin1Char(' ') + o.ayuda +
             QLatin1Char('\n');
  }
  return texto;
}

QList<int> Leidas::Enteros(const QString &nombre) const {
  QList<int> numeros;
  if (Hay(nombre))
    for (const QString &parte : Texto(nombre).split(QLatin1Char(',')))
      numeros.append(parte.trimmed().toInt());
  return numeros;
}

QDate Leidas::Fecha(const QString &nombre) const {
  return Hay(nombre) ? QDate::fromString(Texto(nombre), QStringLiteral("yyyy-MM-dd")) : QDate();
}

QDate Leidas::Mes(const QString &nombre) const {
  return Hay(nombre) ? QDate::fromString(Texto(nombre) + QStringLiteral("-01"),
                                         QStringLiteral("yyyy-MM-dd"))
                     : QDate();
}

bool Leidas::Leer(const ComandoCli &comando, const QStringList &args, QString &error) {
  valores_.clear();
  // First in the order given: an option the command doesn't know, or one whose value is
  // missing (Qt's parser would take the option after it as its value).
  for (qsizetype i = 0; i < args.size(); ++i) {
    const QString &arg = args[i];
    if (arg == QStringLiteral("-") || !arg.startsWith(QLatin1Char('-')))
      continue;
    const QString nombre =
        arg.mid(arg.startsWith(QStringLiteral("--")) ? 2 : 1).section(QLatin1Char('='), 0, 0);
    const OpcionCli *o = arg.startsWith(QStringLiteral("--")) ? Buscar(comando, nombre) : nullptr;
    if (!o) {
      error = QStringLiteral("La opción %1 no existe en %2.")
                  .arg(arg.section(QLatin1Char('='), 0, 0),
                       comando.nombre.isEmpty() ? QStringLiteral("escribano-cli")
                                                : QStringLiteral("el comando ") + comando.nombre);
      return false;
    }
    if (o->valor == Valor::Ninguno) {
      if (arg.contains(QLatin1Char('='))) {
        error = QStringLiteral("La opción %1 no lleva valor: «%2».")
                    .arg(Guiones(nombre), arg.section(QLatin1Char('='), 1));
        return false;
      }
      continue;
    }
    if (arg.contains(QLatin1Char('=')) && !arg.section(QLatin1Char('='), 1).isEmpty())
      continue;
    if (arg.contains(QLatin1Char('=')) || i + 1 >= args.size() || args[i + 1].isEmpty() ||
        (args[i + 1].startsWith(QLatin1Char('-')) && args[i + 1] != QStringLiteral("-") &&
         !EsEntero(args[i + 1]))) {
      error =
          QStringLiteral("A la opción %1 le falta su valor (%2).").arg(Guiones(nombre), o->muestra);
      return false;
    }
    ++i;
  }

  QCommandLineParser parser;
  parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  for (const OpcionCli &o : comando.opciones) {
    QCommandLineOption opcion(o.nombre, o.ayuda);
    if (o.valor != Valor::Ninguno)
      opcion.setValueName(o.muestra);
    parser.addOption(opcion);
  }
  if (!parser.parse(QStringList{QStringLiteral("escribano-cli")} + args)) {
    error = parser.errorText();
    return false;
  }
  if (!parser.positionalArguments().isEmpty()) {
    error = QStringLiteral("Sobra el argumento «%1»: %2 no lo espera.")
                .arg(parser.positionalArguments().first(),
                     comando.nombre.isEmpty() ? QStringLiteral("escribano-cli")
                                              : QStringLiteral("el comando ") + comando.nombre);
    return false;
  }
  const QStringList dadas = parser.optionNames();
  for (const OpcionCli &o : comando.opciones) {
    if (dadas.count(o.nombre) > 1) {
      error = QStringLiteral("La opción %1 se dio más de una vez.").arg(Guiones(o.nombre));
      return false;
    }
    if (!parser.isSet(o.nombre)) {
      if (o.requerida && o.valor != Valor::Clave) {
        error = o.valor == Valor::Ninguno
                    ? QStringLiteral("Falta la opción %1.").arg(Guiones(o.nombre))
                    : QStringLiteral("Falta la opción %1 %2.").arg(Guiones(o.nombre), o.muestra);
        return false;
      }
      continue;
    }
    QString valor = o.valor == Valor::Ninguno ? QString() : parser.value(o.nombre);
    if (o.valor == Valor::TipoPoliza)
      valor = valor.toUpper();
    if (!ValorValido(o.valor, valor)) {
      error = QStringLiteral("La opción %1 espera %2: «%3».")
                  .arg(Guiones(o.nombre), Espera(o.valor), valor);
      return false;
    }
    valores_.insert(o.nombre, valor);
  }
  return true;
}

QString VariableDeClave(const QString &opcion) {
  return QStringLiteral("ESCRIBANO_") +
         opcion.toUpper().replace(QLatin1Char('-'), QLatin1Char('_'));
}

bool Leidas::LeerClaves(const ComandoCli &comando, QString &error) {
  for (const OpcionCli &o : comando.opciones) {
    if (o.valor != Valor::Clave)
      continue;
    if (Texto(o.nombre) == QStringLiteral("-") && Hay(o.nombre)) {
      bool leida = false;
      const QString clave =
          LeerLineaSinEco(QStringLiteral("Contraseña (%1): ").arg(Guiones(o.nombre)), &leida);
      if (!leida) {
        error = QStringLiteral("La opción %1 - espera la contraseña en la entrada estándar, "
                               "y la entrada terminó sin ella.")
                    .arg(Guiones(o.nombre));
        return false;
      }
      valores_.insert(o.nombre, clave);
      continue;
    }
    if (Hay(o.nombre))
      continue;
    const QString variable = VariableDeClave(o.nombre);
    if (qEnvironmentVariableIsSet(variable.toLatin1().constData())) {
      valores_.insert(o.nombre, qEnvironmentVariable(variable.toLatin1().constData()));
    } else if (o.requerida) {
      error = QStringLiteral("Falta la opción %1 %2 (o la variable %3).")
                  .arg(Guiones(o.nombre), o.muestra, variable);
      return false;
    }
  }
  return true;
}

RespuestaMensaje PresentadorCli::Presentar(const Mensaje &mensaje) {
  const bool pregunta =
      mensaje.botones == BotonesMensaje::SiNo || mensaje.botones == BotonesMensaje::SiNoCancelar;
  const QString texto = pregunta ? mensaje.texto.trimmed() + QStringLiteral(" Sí.") : mensaje.texto;
  if (ctx_.linea)
    ctx_.linea->Borrar();
  if (ctx_.json) {
    QJsonArray mensajes = ctx_.objeto.value(QStringLiteral("mensajes")).toArray();
    mensajes.append(texto);
    ctx_.objeto.insert(QStringLiteral("mensajes"), mensajes);
  }
  if (!(ctx_.json && mensaje.icono == IconoMensaje::Informacion)) {
    QTextStream &destino = (mensaje.icono == IconoMensaje::Informacion) ? ctx_.out : ctx_.err;
    destino << texto << "\n";
    destino.flush();
  }
  return pregunta ? RespuestaMensaje::Si : RespuestaMensaje::Aceptar;
}

SesionCli AbrirEmpresa(const Leidas &opciones) {
  const QString general = UnirRuta(gRutaApp, QStringLiteral("nimbar.mdb"));
  if (!QFileInfo::exists(RutaNativa(general)))
    throw ErrorFatal(CatalogoMensajes::Texto(300) + QLatin1Char('\n') + RutaNativa(general));
  ServicioConexion servicio;
  SesionCli sesion;
  sesion.general = servicio.AbrirConexionGeneral(gConexionGeneral);
  const bool nombrada = opciones.Hay(QStringLiteral("empresa"));
  gNumEmp = nombrada ? opciones.Entero(QStringLiteral("empresa"))
                     : static_cast<int>(Val(ServicioUtil::LeerIni(
                           QStringLiteral("VARIOS"), QStringLiteral("EMPRESA"), RutaNimbarIni())));
  // Without a company named, or with one that is gone, the first of the list is taken.
  const QString lista = SentenciaEmpresas(QStringLiteral("NUM_EMP"));
  if (!nombrada) {
    Registros r = sesion.general->Abrir(lista);
    bool hallada = false;
    for (; !r.Fin() && !hallada; r.Siguiente())
      hallada = r.Campo(QStringLiteral("NUM_EMP")).Entero() == gNumEmp;
    if (!hallada) {
      Registros primera = sesion.general->Abrir(lista);
      if (primera.Vacio())
        throw ErrorFatal(CatalogoMensajes::Texto(302));
      gNumEmp = static_cast<int>(primera.Campo(QStringLiteral("NUM_EMP")).Entero());
    }
  }
  Registros r = sesion.general->Abrir(
      QStringLiteral("SELECT MOTORDEDATOS,CONEXION FROM tblEmpresas WHERE NUM_EMP=%1;")
          .arg(gNumEmp));
  if (r.Vacio())
    throw ErrorFatal(QStringLiteral("No existe la empresa %1 en Nimbar.mdb.").arg(gNumEmp));
  servicio.Motor = static_cast<int>(r.Campo(QStringLiteral("MOTORDEDATOS")).Numero());
  gMotor = servicio.Motor;
  gConexion = r.Campo(QStringLiteral("CONEXION")).Texto();
  if (gMotor == motor::kSqlServer)
    gConexion = DesencriptarConexion(gConexion);
  sesion.empresa = servicio.AbrirConexion(gConexion);
  return sesion;
}

int IniciarSesion(const Leidas &opciones, SesionCli &sesion, bool ensayo) {
  sesion = AbrirEmpresa(opciones);
  if (ensayo)
    sesion.empresa->IniciarEnsayo();
  const ResultadoEntrada r =
      AceptarEntrada(*sesion.general, *sesion.empresa, opciones.Texto(QStringLiteral("usuario")),
                     opciones.Texto(QStringLiteral("clave")));
  return r == ResultadoEntrada::Aceptada ? kSalidaBien : kSalidaEntrada;
}

OpcionCli OpcionEmpresa(bool requerida) {
  return {QStringLiteral("empresa"), Valor::Entero, QStringLiteral("N"),
          requerida ? QStringLiteral("número de la empresa")
                    : QStringLiteral("número de la empresa; si no, la última usada"),
          requerida};
}

QList<OpcionCli> OpcionesEntrada() {
  return {{QStringLiteral("usuario"), Valor::Texto, QStringLiteral("U"),
           QStringLiteral("clave del usuario"), true},
          {QStringLiteral("clave"), Valor::Clave, QStringLiteral("P"),
           QStringLiteral("contraseña («-»: la lee de la entrada)"), true}};
}

QList<OpcionCli> OpcionesPeriodo() {
  return {{QStringLiteral("del"), Valor::Fecha, QStringLiteral("AAAA-MM-DD"),
           QStringLiteral("primer día del período"), true},
          {QStringLiteral("al"), Valor::Fecha, QStringLiteral("AAAA-MM-DD"),
           QStringLiteral("último día del período"), true}};
}

OpcionCli OpcionJson() {
  return {QStringLiteral("json"),
          Valor::Ninguno,
          {},
          QStringLiteral("en lugar del texto, un objeto JSON (UTF-8)"),
          false};
}

QList<OpcionCli> OpcionesProgreso() {
  return {{QStringLiteral("progreso"),
           Valor::Ninguno,
           {},
           QStringLiteral("el avance también fuera de una terminal"),
           false},
          {QStringLiteral("sin-progreso"),
           Valor::Ninguno,
           {},
           QStringLiteral("no muestra el avance"),
           false}};
}

} // namespace cli
