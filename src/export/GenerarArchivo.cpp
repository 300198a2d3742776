#include "export/GenerarArchivo.h"

#include "config/Reglas.h"

#include "shell/CatalogoMensajes.h"
#include "shell/Dinero.h"
#include "shell/ErrorFatal.h"
#include "shell/Rutas.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringBuilder>
#include <QVarLengthArray>
#include <algorithm>
#include <array>
#include <cstring>

namespace {

// An amount as the file writes it, in the caller's buffer.
QStringView Monto(Dinero importe, Dinero::Cifras &buffer) {
  return importe.Formato(u"#,##0.00", buffer);
}

// A value fitted to its width: the blanks before it, what is left of it, the blanks
// behind it.
struct Ajuste {
  qsizetype antes = 0;
  QStringView valor;
  qsizetype despues = 0;
};

Ajuste Ajustar(const FormatoArchivo &f, bool esImporte, QStringView valor, int longitud,
               int alineacion) {
  // Without fixed widths every field loses a leading "+", text fields as well.
  if (!f.LongitudFija)
    return {0, valor.startsWith(u'+') ? valor.sliced(1) : valor, 0};
  // Amounts always stand to the right, whatever their alignment says; a "+" before one
  // takes one from its width.
  if (esImporte) {
    alineacion = 1;
    if (valor.startsWith(u'+')) {
      valor = valor.sliced(1);
      --longitud;
    }
  }
  if (valor.size() > longitud)
    return {0, valor.left(std::max(longitud, 0)), 0};
  const qsizetype blancos = longitud - valor.size();
  return alineacion == 1 ? Ajuste{blancos, valor, 0} : Ajuste{0, valor, blancos};
}

// A field fitted to its width and finished (enclosure, value, enclosure, separator),
// appended in the file's code page.
void AnexarCampo(QByteArray &bytes, const RenglonEnCurso &e, const FormatoArchivo &f,
                 bool esImporte, QStringView valor, int longitud, int alineacion) {
  const Ajuste a = Ajustar(f, esImporte, valor, longitud, alineacion);
  const auto copiar = [](char *destino, const QByteArray &parte) {
    return std::copy(parte.cbegin(), parte.cend(), destino);
  };
  // Sized once and filled in place: a line builds one of these for its amount.
  const qsizetype inicio = bytes.size();
  bytes.resize(inicio + 2 * e.encierro.size() + a.antes + a.valor.size() + a.despues +
               e.separador.size());
  char *destino = copiar(bytes.data() + inicio, e.encierro);
  destino = std::fill_n(destino, a.antes, ' ');
  destino = EscribirWindows1252(destino, a.valor);
  destino = std::fill_n(destino, a.despues, ' ');
  copiar(copiar(destino, e.encierro), e.separador);
}

// Pieces written behind the bytes, sized once: a line is put together from a handful.
void Juntar(QByteArray &bytes, std::initializer_list<QByteArrayView> partes) {
  qsizetype largo = 0;
  for (QByteArrayView parte : partes)
    largo += parte.size();
  const qsizetype inicio = bytes.size();
  bytes.resize(inicio + largo);
  char *destino = bytes.data() + inicio;
  for (QByteArrayView parte : partes)
    destino = std::copy(parte.begin(), parte.end(), destino);
}

QByteArray Campo(const RenglonEnCurso &e, const FormatoArchivo &f, bool esImporte,
                 QStringView valor, int longitud, int alineacion) {
  QByteArray campo;
  AnexarCampo(campo, e, f, esImporte, valor, longitud, alineacion);
  return campo;
}

// Debit and credit each in a column of their own, as one field.
void AnexarDosColumnas(QByteArray &bytes, const RenglonEnCurso &e, const FormatoArchivo &f,
                       Dinero debe, Dinero haber) {
  // The inner separator between the two columns stands between two enclosures: each
  // column is a finished field of its own.
  Dinero::Cifras cifras;
  AnexarCampo(bytes, e, f, true, Monto(debe, cifras), f.LongDebe, f.AlDebe);
  AnexarCampo(bytes, e, f, true, Monto(haber, cifras), f.LongHaber, f.AlHaber);
}

// A user row: each field in the slot of its position, a later field over an earlier one;
// the slots joined up to the first empty one. The row loses its last character: the
// last separator, or without one the last character of the last field.
void AnexarUsuario(QByteArray &bytes, const std::array<int, 6> &posiciones,
                   const std::array<const QByteArray *, 6> &campos) {
  std::array<const QByteArray *, 6> lugares{};
  for (std::size_t i = 0; i < 6; ++i) {
    if (posiciones[i] > 6)
      throw FallaArchivo{9, QStringLiteral("Subíndice fuera del intervalo")};
    if (posiciones[i] > 0)
      lugares[static_cast<std::size_t>(posiciones[i] - 1)] = campos[i];
  }
  std::size_t llenos = 0;
  qsizetype largo = 0;
  for (; llenos < 6 && lugares[llenos] && !lugares[llenos]->isEmpty(); ++llenos)
    largo += lugares[llenos]->size();
  // Copied at once, less the last character.
  qsizetype falta = std::max<qsizetype>(largo - 1, 0);
  const qsizetype inicio = bytes.size();
  bytes.resize(inicio + falta);
  char *destino = bytes.data() + inicio;
  for (std::size_t i = 0; i < llenos && falta > 0; ++i) {
    const qsizetype parte = std::min(falta, lugares[i]->size());
    std::memcpy(destino, lugares[i]->constData(), static_cast<std::size_t>(parte));
    destino += parte;
    falta -= parte;
  }
}

// The columns of the selection that a line reads, in the order of the statement.
enum ColumnaSeleccion {
  kFolPoliza,
  kFecPoliza,
  kTipPoliza,
  kConcepPol,
  kCuentaDebe,
  kCuentaHaber,
  kImpDebe,
  kImpHaber,
  kSumDebe,
  kSumHaber,
  kColumnasSeleccion
};
constexpr std::array<const char *, kColumnasSeleccion> kNombresSeleccion = {
    "FOL_POLIZA",   "FEC_POLIZA", "TIP_POLIZA", "CONCEP_POL", "CUENTA_DEBE",
    "CUENTA_HABER", "IMP_DEBE",   "IMP_HABER",  "SUM_DEBE",   "SUM_HABER"};

// The same value to the letter, so that a field built from one stands for the other. A
// line's values are never Null: a Null stops the run before it is compared.
bool MismoValor(const QVariant &a, const QVariant &b) {
  const QMetaType tipo = a.metaType();
  if (tipo != b.metaType())
    return false;
  // The common types of a column compared at once, without QVariant's general path.
  if (tipo == QMetaType::fromType<QString>())
    return *static_cast<const QString *>(a.constData()) ==
           *static_cast<const QString *>(b.constData());
  if (tipo == QMetaType::fromType<double>())
    return *static_cast<const double *>(a.constData()) ==
           *static_cast<const double *>(b.constData());
  if (tipo == QMetaType::fromType<qlonglong>())
    return *static_cast<const qlonglong *>(a.constData()) ==
           *static_cast<const qlonglong *>(b.constData());
  return a == b;
}

// The field of the entry for the values of this row: the one in hand when they are the
// values it was built from; else built again.
template <typename Construir>
RenglonEnCurso::Recordado &Recordar(RenglonEnCurso::Recordado &r, const QVariant &valor,
                                    Construir &&construir) {
  if (!r.hecho || !MismoValor(r.valor, valor)) {
    r.hecho = false;
    construir(r);
    r.valor = valor;
    r.hecho = true;
  }
  return r;
}
template <typename Construir>
RenglonEnCurso::Recordado &Recordar(RenglonEnCurso::Recordado &r, const QVariant &valor,
                                    const QVariant &valor2, Construir &&construir) {
  if (!r.hecho || !MismoValor(r.valor, valor) || !MismoValor(r.valor2, valor2)) {
    r.hecho = false;
    construir(r);
    r.valor = valor;
    r.valor2 = valor2;
    r.hecho = true;
  }
  return r;
}

// Whether a key is the three texts joined, without joining them.
bool EsClave(QStringView clave, QStringView a, QStringView b, QStringView c) {
  return clave.size() == a.size() + b.size() + c.size() && clave.startsWith(a) &&
         clave.sliced(a.size(), b.size()) == b && clave.endsWith(c);
}

// The line ends inside a line's bytes, which a concept may bring as well as the rows.
qsizetype FinesDeLinea(QByteArrayView bytes) {
  qsizetype fines = 0;
  const char *const fin = bytes.data() + bytes.size();
  for (const char *cr = bytes.data(); cr < fin; ++cr) {
    cr = static_cast<const char *>(std::memchr(cr, '\r', static_cast<std::size_t>(fin - cr)));
    if (!cr || cr + 1 == fin)
      break;
    fines += cr[1] == '\n' ? 1 : 0;
  }
  return fines;
}

// Why the file can't be opened, in the runtime's terms.
FallaArchivo FallaApertura(const QString &ruta) {
  if (!QFileInfo(ruta).absoluteDir().exists())
    return {76, QStringLiteral("No se encontró la ruta de acceso")};
  return {75, QStringLiteral("Error de acceso a la ruta o al archivo")};
}

const FallaArchivo kFallaEscritura{57, QStringLiteral("Error de E/S en el dispositivo")};

constexpr qsizetype kTamanoBloque = 64 * 1024;

// A number filled with zeros on the left up to a width; a line's date is three of them,
// and the general formatting of arg() costs more than the rest of the date.
QString ConCeros(int valor, int ancho) {
  if (valor < 0)
    return QStringLiteral("%1").arg(valor, ancho, 10, QLatin1Char('0'));
  QString texto = QString::number(valor);
  if (texto.size() < ancho)
    texto.prepend(QString(ancho - texto.size(), QLatin1Char('0')));
  return texto;
}

// The number of a folio as the package's reference asks for it: its numeric value
// written with up to 15 significant digits. A folio of digits alone, as generation writes
// them, is read here without going through a double.
QString NumeroDeFolio(const QString &folio) {
  if (folio.isEmpty() || folio.size() > 15)
    return QString::number(Val(folio), 'g', 15);
  qint64 numero = 0;
  for (QChar c : folio) {
    if (c < u'0' || c > u'9')
      return QString::number(Val(folio), 'g', 15);
    numero = numero * 10 + (c.unicode() - u'0');
  }
  return QString::number(numero);
}

QString SentenciaReferencia(const QString &numero) {
  return QStringLiteral("SELECT FOLIO_MOV FROM tblMovimxPoliza WHERE FOLIO_POL = ") % numero;
}

// The references of the run's entries asked for in a few statements, not one a folio: the
// folios of the period first, then the movements of a thousand folio numbers at a time.
// Each answer goes into the run's memory under the statement of its one folio. A number
// gets the first row the database gives for it, as that statement would: the rows come in
// the order of the table or of its index by folio number, and either keeps the rows of one
// number in the order they were written. A folio that is no plain number, or a statement
// that fails, is left to the statement of its folio, which fails as it always did.
void AdelantarReferencias(Conexion &con, const QString &condicion,
                          QHash<QString, QString> &respuestas) {
  constexpr qsizetype kNumerosPorSentencia = 1000;
  std::vector<qint64> numeros;
  try {
    std::unique_ptr<Registros> folios = con.IntentarAbrir(
        QStringLiteral("SELECT DISTINCT FOL_POLIZA FROM tblPolizasEnc WHERE ") % condicion);
    if (!folios)
      return;
    for (; !folios->Fin(); folios->Siguiente()) {
      const QString numero = NumeroDeFolio(Valor::Texto(folios->Variante(0)));
      bool esNumero = !numero.isEmpty() && numero.size() <= 15;
      for (QChar c : numero)
        esNumero = esNumero && c >= u'0' && c <= u'9';
      if (esNumero)
        numeros.push_back(numero.toLongLong());
    }
  } catch (const ErrorFatal &) {
    return;
  }
  std::sort(numeros.begin(), numeros.end());
  numeros.erase(std::unique(numeros.begin(), numeros.end()), numeros.end());

  QHash<QString, QString> halladas;
  for (std::size_t desde = 0; desde < numeros.size(); desde += kNumerosPorSentencia) {
    const std::size_t hasta =
        std::min(numeros.size(), desde + static_cast<std::size_t>(kNumerosPorSentencia));
    QString lista;
    for (std::size_t i = desde; i < hasta; ++i)
      lista += (i == desde ? QString() : QStringLiteral(",")) + QString::number(numeros[i]);
    QHash<qint64, QString> primeras;
    try {
      std::unique_ptr<Registros> movimientos = con.IntentarAbrir(
          QStringLiteral("SELECT FOLIO_POL, FOLIO_MOV FROM tblMovimxPoliza WHERE FOLIO_POL IN (") %
          lista % QStringLiteral(")"));
      if (!movimientos)
        return;
      for (; !movimientos->Fin(); movimientos->Siguiente()) {
        const qint64 numero = movimientos->Variante(0).toLongLong();
        if (!primeras.contains(numero))
          primeras.insert(numero, Valor::Texto(movimientos->Variante(1)));
      }
    } catch (const ErrorFatal &) {
      return;
    }
    for (std::size_t i = desde; i < hasta; ++i) {
      const QString numero = QString::number(numeros[i]);
      const auto primera = primeras.constFind(numeros[i]);
      respuestas.insert(SentenciaReferencia(numero),
                        primera == primeras.constEnd() ? QStringLiteral("?") : *primera);
    }
  }
}

} // namespace

bool ConfirmarArchivo(const QString &archivo) {
  const RespuestaMensaje respuesta = CatalogoMensajes::Caja(
      CatalogoMensajes::Texto(5524) + QLatin1Char(' ') + archivo + QStringLiteral("\n\n") +
          CatalogoMensajes::Texto(5525) + QStringLiteral("\n\n"),
      CatalogoMensajes::Texto(100), IconoMensaje::Pregunta, BotonesMensaje::SiNo, 5524);
  return !(QFileInfo::exists(RutaNativa(archivo)) && respuesta == RespuestaMensaje::No);
}

ResultadoArchivo GenerarArchivo(Conexion &con, FormatoArchivo &f, const DatosGenerarArchivo &d,
                                const AvanceArchivo &avance) {
  ResultadoArchivo resultado;
  f.ClaveAnterior.clear();

  // The trap: the failure is shown, the file closed with what it got, and the run ends.
  QFile archivo(RutaNativa(d.archivo));
  const auto fallar = [&](const FallaArchivo &falla) {
    resultado.falla = CatalogoMensajes::Texto(5527) + QLatin1Char(' ') + d.archivo +
                      QLatin1Char('\n') + falla.descripcion;
    CatalogoMensajes::Caja(resultado.falla, QStringLiteral("Error %1").arg(falla.numero),
                           IconoMensaje::Advertencia, BotonesMensaje::Aceptar, 5527);
    archivo.close();
    return resultado;
  };
  // Unbuffered: every block is in the file once written, and a failing write shows at once.
  if (!archivo.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
    return fallar(FallaApertura(archivo.fileName()));

  QString filtros;
  if (!d.tipo.isEmpty())
    filtros += QStringLiteral(" AND tblPolizasEnc.TIP_POLIZA='%1'").arg(Escapar(d.tipo));
  if (!d.operacion.isEmpty())
    filtros += QStringLiteral(" AND COD_OPER=%1").arg(d.operacion);
  if (!d.concepto.isEmpty())
    filtros += QStringLiteral(" AND CONCEP_POL='%1'").arg(Escapar(d.concepto));
  const QString condicion =
      QStringLiteral("FEC_POLIZA BETWEEN %1 AND %2%3")
          .arg(con.Dialecto().FechaSQL(d.fechaIni), con.Dialecto().FechaSQL(d.fechaFin), filtros);
  // The join goes by the folio alone: entries of two types under one folio meet here.
  Registros rs = con.Abrir(
      QStringLiteral("SELECT tblPolizasRen.FOL_POLIZA, FEC_POLIZA, tblPolizasEnc.TIP_POLIZA, "
                     "CONCEP_POL, CUENTA_DEBE, CUENTA_HABER, IMP_DEBE, IMP_HABER, SUM_DEBE, "
                     "SUM_HABER, COD_OPER FROM tblPolizasEnc INNER JOIN tblPolizasRen ON "
                     "tblPolizasEnc.FOL_POLIZA = tblPolizasRen.FOL_POLIZA WHERE ") %
      condicion %
      QStringLiteral(" ORDER BY tblPolizasEnc.TIP_POLIZA, COD_OPER, tblPolizasRen.FOL_POLIZA"));

  // Lines go to the file in blocks, each block in one write: a write for every line costs
  // more than building the line. The count is of lines that reached the file, and a line
  // that fails to build first sends the block in hand, so the file keeps every line before
  // it.
  QByteArray bloque;
  bloque.reserve(kTamanoBloque + 1024);
  qint64 lineasBloque = 0;
  const auto vaciar = [&] {
    const bool escrito = bloque.isEmpty() || archivo.write(bloque) == bloque.size();
    if (escrito)
      resultado.lineas += lineasBloque;
    bloque.resize(0);
    lineasBloque = 0;
    return escrito;
  };
  RenglonEnCurso enCurso;
  if (d.memoria) {
    enCurso.respuestas.emplace();
    if (f.EsPaquete && !rs.Fin() && Conexion::EnLote())
      AdelantarReferencias(con, condicion, *enCurso.respuestas);
  }
  for (; !rs.Fin(); rs.Siguiente()) {
    const qsizetype inicio = bloque.size();
    try {
      ArmarRenglon(con, f, rs, enCurso, bloque);
      lineasBloque += 1 + FinesDeLinea(QByteArrayView(bloque).sliced(inicio));
      Juntar(bloque, {"\r\n"});
      if (bloque.size() >= kTamanoBloque && !vaciar())
        throw kFallaEscritura;
    } catch (const FallaArchivo &falla) {
      bloque.truncate(inicio);
      vaciar();
      return fallar(falla);
    } catch (const ErrorFatal &e) {
      // The queries of the package's fields fail under the trap as well.
      bloque.truncate(inicio);
      vaciar();
      return fallar({kErrorSentencia, e.Mensaje()});
    }
    if (avance && !avance(resultado.lineas + lineasBloque, enCurso.polizas)) {
      // Stopped by the user: what was written goes, and no file is left.
      archivo.close();
      archivo.remove();
      resultado.lineas = 0;
      resultado.detenida = true;
      CatalogoMensajes::MostrarTexto(
          QStringLiteral("Exportación detenida: no se escribió el archivo %1.").arg(d.archivo),
          IconoMensaje::Advertencia);
      return resultado;
    }
  }
  if (!vaciar())
    return fallar(kFallaEscritura);
  archivo.close();
  if (archivo.error() != QFileDevice::NoError)
    return fallar(kFallaEscritura);

  CatalogoMensajes::Mostrar(5526, {}, IconoMensaje::Informacion);
  resultado.completo = true;
  return resultado;
}

QString InsSeparador(const FormatoArchivo &f, const QString &valor) {
  return f.Encierro % valor % f.Encierro % f.Separador;
}

QString AjustarCampo(const FormatoArchivo &f, bool esImporte, QString valor, int longitud,
                     int alineacion) {
  const Ajuste a = Ajustar(f, esImporte, valor, longitud, alineacion);
  if (a.antes == 0 && a.despues == 0 && a.valor.size() == valor.size())
    return valor;
  return QString(a.antes, QLatin1Char(' ')) % a.valor % QString(a.despues, QLatin1Char(' '));
}

namespace {

// The account by the levels of the mask, in a buffer of the caller: a line fits it into
// its field at once.
using TextoCorto = QVarLengthArray<QChar, 64>;
QStringView CuentaFormateada(const FormatoArchivo &f, QStringView cuenta, TextoCorto &salida) {
  // The levels of the account: pieces between "-", at most four, up to the first empty
  // one. Each level that the mask keeps takes its digits, with the zeros it lacks on the
  // left when the format asks for them, and the separator behind it.
  salida.clear();
  qsizetype inicio = 0;
  for (std::size_t nivel = 0; nivel < 4 && inicio <= cuenta.size(); ++nivel) {
    qsizetype fin = cuenta.indexOf(u'-', inicio);
    if (fin < 0)
      fin = cuenta.size();
    const QStringView parte = cuenta.sliced(inicio, fin - inicio);
    if (parte.isEmpty())
      break;
    inicio = fin + 1;
    const int digitos = f.Niveles[nivel];
    if (digitos == 0)
      continue;
    for (qsizetype cero = parte.size(); f.CerosIzquierda && cero < digitos; ++cero)
      salida.append(u'0');
    const QStringView digitosParte = parte.left(digitos);
    salida.append(digitosParte.data(), digitosParte.size());
    salida.append(f.SeparadorCuenta.constData(), f.SeparadorCuenta.size());
  }
  if (salida.isEmpty())
    throw FallaArchivo{5, QStringLiteral("Llamada a procedimiento o argumento no válidos")};
  // The last separator goes; with no separator (the package) the last digit goes instead.
  return QStringView(salida.constData(), salida.size() - 1);
}

} // namespace

QString FormatearCuenta(const FormatoArchivo &f, const QString &cuenta) {
  TextoCorto salida;
  return CuentaFormateada(f, cuenta, salida).toString();
}

QString FormatearFecha(const FormatoArchivo &f, const QDate &fecha) {
  if (!fecha.isValid())
    return {};
  const QString dd = ConCeros(fecha.day(), 2);
  const QString mm = ConCeros(fecha.month(), 2);
  const QString aaaa = ConCeros(fecha.year(), 4);
  // Without a mask the date goes in the short form of the family's machines.
  if (f.MascaraFecha.isEmpty())
    return dd % QLatin1Char('/') % mm % QLatin1Char('/') % aaaa;
  // The year, the month and the day stand where the mask names them: one pass over the
  // mask does what replacing each of the three in turn would do, as their letters differ.
  const QStringView mascara = f.MascaraFecha;
  QString texto;
  texto.reserve(mascara.size());
  for (qsizetype i = 0; i < mascara.size();) {
    const QStringView resto = mascara.sliced(i);
    if (resto.startsWith(u"YYYY")) {
      texto += aaaa;
      i += 4;
    } else if (resto.startsWith(u"MM")) {
      texto += mm;
      i += 2;
    } else if (resto.startsWith(u"DD")) {
      texto += dd;
      i += 2;
    } else {
      texto += mascara[i++];
    }
  }
  return texto;
}

namespace {

// The first row's value of a one-column lookup, "?" without rows; from the run's memory
// when the same statement was answered before.
QString Consultar(Conexion &con, const QString &sql, QHash<QString, QString> *respuestas) {
  if (respuestas) {
    const auto hallada = respuestas->constFind(sql);
    if (hallada != respuestas->constEnd())
      return *hallada;
  }
  Registros rs = con.Abrir(sql);
  // The statement's one column, by its place.
  const QString valor = rs.Vacio() ? QStringLiteral("?") : Valor::Texto(rs.Variante(0));
  if (respuestas)
    respuestas->insert(sql, valor);
  return valor;
}

} // namespace

QString ObtenerTipoPoliza(Conexion &con, const FormatoArchivo &f, const QString &tipo,
                          QHash<QString, QString> *respuestas) {
  if (!f.EsPaquete)
    return tipo;
  return Consultar(
      con,
      QStringLiteral("SELECT COD_NUM FROM tblFolios WHERE COD_FOLIO = '%1'").arg(Escapar(tipo)),
      respuestas);
}

QString ObtenerReferencia(Conexion &con, const QString &folio,
                          QHash<QString, QString> *respuestas) {
  // By the folio's number alone: the type and the concept of the entry play no part.
  return Consultar(con, SentenciaReferencia(NumeroDeFolio(folio)), respuestas);
}

void ArmarRenglon(Conexion &con, FormatoArchivo &f, const Registros &rs, RenglonEnCurso &e,
                  QByteArray &bloque) {
  if (e.columnas.empty()) {
    std::vector<qsizetype> columnas;
    for (const char *nombre : kNombresSeleccion)
      columnas.push_back(rs.Indice(QLatin1String(nombre)));
    e.columnas = std::move(columnas);
    const QStringList nombres = rs.Campos();
    for (qsizetype columna : e.columnas)
      e.nombres.push_back(nombres.value(columna));
    e.encierro = CodificarWindows1252(f.Encierro);
    e.separador = CodificarWindows1252(f.Separador);
    for (auto [marca, campo] :
         {std::pair{&f.MarcaDebe, &e.marcaDebe}, {&f.MarcaHaber, &e.marcaHaber}})
      *campo = e.encierro + CodificarWindows1252(*marca) + e.encierro + e.separador;
  }
  // A column that the line needs; Null stops the run as it stops the family's code. The
  // entry's columns are only compared with the line before, and read as values when they
  // change.
  const auto variante = [&](ColumnaSeleccion columna) {
    QVariant v = rs.Variante(e.columnas[columna]);
    if (v.isNull())
      throw FallaArchivo{94, QStringLiteral("Uso no válido de Null")};
    return v;
  };
  const auto importe = [&](ColumnaSeleccion columna) {
    return Valor::ComoDinero(variante(columna), e.nombres[columna]);
  };
  const QVariant folio = variante(kFolPoliza);
  const QVariant fecha = variante(kFecPoliza);
  const QVariant tipo = variante(kTipPoliza);
  const RenglonEnCurso::Recordado &campoFolio =
      Recordar(e.folio, folio, [&](RenglonEnCurso::Recordado &r) {
        QString texto = Valor::Texto(folio);
        if (e.polizas == 0 || texto != r.dato)
          ++e.polizas;
        e.claveVigente = false;
        e.referencia.hecho = false;
        r.dato = std::move(texto);
        r.campo = Campo(e, f, false, r.dato, f.LongFolio, f.AlFolio);
      });
  const QString &textoFolio = campoFolio.dato;
  const RenglonEnCurso::Recordado &campoFecha =
      Recordar(e.fecha, fecha, [&](RenglonEnCurso::Recordado &r) {
        const Valor v(fecha, e.nombres[kFecPoliza]);
        e.claveVigente = false;
        r.dato = v.Texto();
        r.campo = Campo(e, f, false, FormatearFecha(f, v.Fecha()), f.LongFecha, f.AlFecha);
      });
  // The type's field. The package's number of the type is asked for on every line; with
  // the memory, only when the type changes.
  QHash<QString, QString> *respuestas = e.respuestas ? &*e.respuestas : nullptr;
  const QByteArray *campoTipo = nullptr;
  const auto leerTipo = [&](RenglonEnCurso::Recordado &r) {
    r.dato = Valor::Texto(tipo);
    e.claveVigente = false;
  };
  if (respuestas) {
    campoTipo = &Recordar(e.tipo, tipo, [&](RenglonEnCurso::Recordado &r) {
                   leerTipo(r);
                   r.campo = Campo(e, f, false, ObtenerTipoPoliza(con, f, r.dato, respuestas),
                                   f.LongTipo, f.AlTipo);
                 }).campo;
  } else {
    Recordar(e.tipo, tipo, leerTipo);
    const QString numero = ObtenerTipoPoliza(con, f, e.tipo.dato, nullptr);
    campoTipo = &Recordar(e.numeroTipo, numero, [&](RenglonEnCurso::Recordado &r) {
                   r.campo = Campo(e, f, false, numero, f.LongTipo, f.AlTipo);
                 }).campo;
  }
  const QString &textoTipo = e.tipo.dato;
  const QVariant concepto = variante(kConcepPol);
  const QByteArray &campoConcepto =
      Recordar(e.concepto, concepto, [&](RenglonEnCurso::Recordado &r) {
        r.campo = Campo(e, f, false, Valor::Texto(concepto), f.LongConcepto, f.AlConcepto);
      }).campo;

  // A line is a debit when its debit amount is above 0; any other line, one of 0 included,
  // is a credit and takes the credit account.
  const Dinero debe = importe(kImpDebe);
  const bool esDebe = debe > Dinero();
  const QString cuenta = Valor::Texto(variante(esDebe ? kCuentaDebe : kCuentaHaber));
  auto hecha = e.cuentas.constFind(cuenta);
  if (hecha == e.cuentas.constEnd()) {
    TextoCorto formateada;
    hecha = e.cuentas.insert(cuenta, Campo(e, f, false, CuentaFormateada(f, cuenta, formateada),
                                           f.LongCuenta, f.AlCuenta));
  }
  const QByteArray &campoCuenta = *hecha;

  // The amount's field: the package's goes straight into its record, a user row's into a
  // buffer that every line reuses.
  const Dinero haber = f.ColumnasSeparadas || !esDebe ? importe(kImpHaber) : Dinero();
  const auto anexarImporte = [&](QByteArray &destino) {
    Dinero::Cifras cifras;
    if (f.ColumnasSeparadas) {
      AnexarDosColumnas(destino, e, f, debe, haber);
    } else if (esDebe) {
      Juntar(destino, {e.marcaDebe});
      AnexarCampo(destino, e, f, true, Monto(debe, cifras), f.LongDebe, f.AlDebe);
    } else {
      Juntar(destino, {e.marcaHaber});
      AnexarCampo(destino, e, f, true, Monto(haber, cifras), f.LongHaber, f.AlHaber);
    }
  };
  QByteArray &campoImporte = e.importe;
  if (!f.EsPaquete) {
    campoImporte.resize(0);
    anexarImporte(campoImporte);
  }
  // The sums go in two columns in every style; the package's has none, but a sum that is
  // no amount stops its run too. The lines of an entry carry the same ones.
  const QVariant sumaDebe = variante(kSumDebe);
  const QVariant sumaHaber = variante(kSumHaber);
  const QByteArray &campoSumas =
      Recordar(e.suma, sumaDebe, sumaHaber, [&](RenglonEnCurso::Recordado &r) {
        const Dinero debeEntrada = Valor::ComoDinero(sumaDebe, e.nombres[kSumDebe]);
        const Dinero haberEntrada = Valor::ComoDinero(sumaHaber, e.nombres[kSumHaber]);
        r.campo.clear();
        if (!f.EsPaquete)
          AnexarDosColumnas(r.campo, e, f, debeEntrada, haberEntrada);
      }).campo;

  // The first row is written only when the entry changes (the key is the line before's
  // when none of its three fields was built again), or on every line of a one-row format.
  // Each row loses its last character: the last separator, or without one the last
  // character of the last field.
  const bool mismaPoliza =
      e.claveVigente || EsClave(f.ClaveAnterior, textoFolio, campoFecha.dato, textoTipo);
  const bool conRenglon1 = !mismaPoliza || f.NumRenglones == 1;
  if (f.EsPaquete) {
    // The P and N records, then the M record; the sums aren't written.
    if (conRenglon1)
      Juntar(bloque, {"P ", campoFecha.campo, *campoTipo, campoFolio.campo, "0 000 ", campoConcepto,
                      "0 0 \r\nN   \r\n"});
    // The reference is asked for on every line; with the memory, again only for a new
    // folio.
    if (!respuestas || !e.referencia.hecho) {
      e.referencia.campo =
          Campo(e, f, false, ObtenerReferencia(con, textoFolio, respuestas), 10, 1);
      e.referencia.hecho = true;
    }
    Juntar(bloque, {"M ", campoCuenta, e.referencia.campo});
    anexarImporte(bloque);
    // The concept's first 30 characters close the record, less its last character.
    const qsizetype concepto30 = std::min<qsizetype>(campoConcepto.size(), 30);
    Juntar(bloque, {"000 0.00 ", QByteArrayView(campoConcepto).first(concepto30)});
    bloque.chop(1);
  } else {
    // Row 1 carries the sums when there is a detail row to carry the amounts.
    if (conRenglon1)
      AnexarUsuario(bloque, f.Renglon1,
                    {&campoFolio.campo, &campoFecha.campo, campoTipo, &campoCuenta, &campoConcepto,
                     f.NumRenglones != 1 ? &campoSumas : &campoImporte});
    if (f.NumRenglones == 2) {
      // Row 2 goes on a line of its own, when it has anything.
      const qsizetype fin1 = bloque.size();
      if (conRenglon1)
        Juntar(bloque, {"\r\n"});
      const qsizetype inicio2 = bloque.size();
      AnexarUsuario(bloque, f.Renglon2,
                    {&campoFolio.campo, &campoFecha.campo, campoTipo, &campoCuenta, &campoConcepto,
                     &campoImporte});
      if (conRenglon1 && bloque.size() == inicio2)
        bloque.truncate(fin1);
    }
  }
  if (!mismaPoliza)
    f.ClaveAnterior = textoFolio % campoFecha.dato % textoTipo;
  e.claveVigente = true;
}

std::optional<FuenteConceptos> ConsultaConceptos(const QString &operacion) {
  // The operation is compared as text, as the combo hands it. Operation 30 has no list on
  // the export screen.
  const int op = operacion == QString::number(operacion.toInt()) ? operacion.toInt() : -1;
  const CatalogoConceptos *c = op == 30 ? nullptr : CatalogoDeConceptos(op);
  if (!c)
    return std::nullopt;
  return FuenteConceptos{ListaDeConceptos(*c, "1=1"), QLatin1String(c->codigo),
                         QLatin1String(c->descripcion)};
}
