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

namespace {

const QString kFinLinea = QStringLiteral("\r\n");

QString Monto(Dinero importe) { return importe.Formato(u"#,##0.00"); }

// Blanks that fit a field: up to a width of 256 they are taken from one text without a
// copy, so that a fitted field is built in one piece.
QString Blancos(qsizetype cuantos) {
  static constexpr std::array<char16_t, 256> kEspacios = [] {
    std::array<char16_t, 256> espacios{};
    espacios.fill(u' ');
    return espacios;
  }();
  if (cuantos <= static_cast<qsizetype>(kEspacios.size()))
    return QString::fromRawData(reinterpret_cast<const QChar *>(kEspacios.data()), cuantos);
  return QString(cuantos, QLatin1Char(' '));
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

// InsSeparador of AjustarCampo, built in one piece.
QString CampoListo(const FormatoArchivo &f, bool esImporte, QStringView valor, int longitud,
                   int alineacion) {
  const Ajuste a = Ajustar(f, esImporte, valor, longitud, alineacion);
  return f.Encierro % Blancos(a.antes) % a.valor % Blancos(a.despues) % f.Encierro % f.Separador;
}

// Debit and credit each in a column of their own, as one field.
QString DosColumnas(const FormatoArchivo &f, Dinero debe, Dinero haber) {
  // The inner separator between the two columns stands between two enclosures: each
  // column is a finished field of its own.
  return CampoListo(f, true, Monto(debe), f.LongDebe, f.AlDebe) +
         CampoListo(f, true, Monto(haber), f.LongHaber, f.AlHaber);
}

// A user row: each field in the slot of its position, a later field over an earlier one;
// the slots joined up to the first empty one.
QString ArmarUsuario(const std::array<int, 6> &posiciones,
                     const std::array<const QString *, 6> &campos) {
  std::array<const QString *, 6> lugares{};
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
  QString renglon;
  renglon.reserve(largo);
  for (std::size_t i = 0; i < llenos; ++i)
    renglon += *lugares[i];
  return renglon;
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

// The same value to the letter, so that a field built from one stands for the other.
bool MismoValor(const QVariant &a, const QVariant &b) {
  if (a.metaType() != b.metaType() || a.isNull() != b.isNull())
    return false;
  if (a.isNull())
    return true;
  if (a.metaType() == QMetaType::fromType<QString>())
    return *static_cast<const QString *>(a.constData()) ==
           *static_cast<const QString *>(b.constData());
  if (a.metaType() == QMetaType::fromType<double>())
    return a.toDouble() == b.toDouble();
  return a == b;
}

// The field of the entry for the values of this row: the one in hand when they are the
// values it was built from; else built again.
template <typename Construir>
const RenglonEnCurso::Recordado &Recordar(RenglonEnCurso::Recordado &r, const QVariant &valor,
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

// The line ends inside a text, which a concept may bring as well as the rows.
qsizetype FinesDeLinea(QStringView texto) {
  qsizetype fines = 0;
  for (qsizetype i = texto.indexOf(u'\r'); i >= 0 && i + 1 < texto.size();
       i = texto.indexOf(u'\r', i + 1))
    fines += texto[i + 1] == u'\n' ? 1 : 0;
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
  // The join goes by the folio alone: entries of two types under one folio meet here.
  Registros rs = con.Abrir(
      QStringLiteral("SELECT tblPolizasRen.FOL_POLIZA, FEC_POLIZA, tblPolizasEnc.TIP_POLIZA, "
                     "CONCEP_POL, CUENTA_DEBE, CUENTA_HABER, IMP_DEBE, IMP_HABER, SUM_DEBE, "
                     "SUM_HABER, COD_OPER FROM tblPolizasEnc INNER JOIN tblPolizasRen ON "
                     "tblPolizasEnc.FOL_POLIZA = tblPolizasRen.FOL_POLIZA WHERE FEC_POLIZA "
                     "BETWEEN %1 AND %2%3 ORDER BY tblPolizasEnc.TIP_POLIZA, COD_OPER, "
                     "tblPolizasRen.FOL_POLIZA")
          .arg(con.Dialecto().FechaSQL(d.fechaIni), con.Dialecto().FechaSQL(d.fechaFin), filtros));

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
  if (d.memoria)
    enCurso.respuestas.emplace();
  qint64 polizas = 0;
  QString folio;
  const qsizetype columnaFolio = rs.Fin() ? -1 : rs.Indice(QStringLiteral("FOL_POLIZA"));
  for (; !rs.Fin(); rs.Siguiente()) {
    if (avance) {
      const QString actual = rs.Campo(columnaFolio).Texto();
      if (polizas == 0 || actual != folio) {
        ++polizas;
        folio = actual;
      }
    }
    try {
      const QString texto = ArmarRenglon(con, f, rs, enCurso);
      AnexarWindows1252(bloque, texto);
      bloque += "\r\n";
      lineasBloque += 1 + FinesDeLinea(texto);
      if (bloque.size() >= kTamanoBloque && !vaciar())
        throw kFallaEscritura;
    } catch (const FallaArchivo &falla) {
      vaciar();
      return fallar(falla);
    } catch (const ErrorFatal &e) {
      // The queries of the package's fields fail under the trap as well.
      vaciar();
      return fallar({kErrorSentencia, e.Mensaje()});
    }
    if (avance && !avance(resultado.lineas + lineasBloque, polizas)) {
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
  return Blancos(a.antes) % a.valor % Blancos(a.despues);
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
QString Consultar(Conexion &con, const QString &sql, const QString &campo,
                  QHash<QString, QString> *respuestas) {
  if (respuestas) {
    const auto hallada = respuestas->constFind(sql);
    if (hallada != respuestas->constEnd())
      return *hallada;
  }
  Registros rs = con.Abrir(sql);
  const QString valor = rs.Vacio() ? QStringLiteral("?") : rs.Campo(campo).Texto();
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
      QStringLiteral("COD_NUM"), respuestas);
}

QString ObtenerReferencia(Conexion &con, const QString &folio,
                          QHash<QString, QString> *respuestas) {
  // By the folio's number alone: the type and the concept of the entry play no part.
  return Consultar(con,
                   QStringLiteral("SELECT FOLIO_MOV FROM tblMovimxPoliza WHERE FOLIO_POL = ") %
                       NumeroDeFolio(folio),
                   QStringLiteral("FOLIO_MOV"), respuestas);
}

namespace {

// What a lookup gives a line: with the run's memory, asked again only when the value it
// is asked for changes; without it, asked on every line.
template <typename Preguntar>
QString UnaVez(QHash<QString, QString> *respuestas, RenglonEnCurso::Recordado &recordado,
               const QVariant &valor, Preguntar &&preguntar) {
  if (!respuestas)
    return preguntar(nullptr);
  return Recordar(recordado, valor, {},
                  [&](RenglonEnCurso::Recordado &r) { r.texto = preguntar(respuestas); })
      .texto;
}

} // namespace

QString ArmarRenglon(Conexion &con, FormatoArchivo &f, const Registros &rs, RenglonEnCurso &e) {
  if (e.columnas.empty()) {
    std::vector<qsizetype> columnas;
    for (const char *nombre : kNombresSeleccion)
      columnas.push_back(rs.Indice(QLatin1String(nombre)));
    e.columnas = std::move(columnas);
  }
  // A column that the line needs; Null stops the run as it stops the family's code.
  const auto noNulo = [&](ColumnaSeleccion columna) {
    Valor v = rs.Campo(e.columnas[columna]);
    if (v.EsNulo())
      throw FallaArchivo{94, QStringLiteral("Uso no válido de Null")};
    return v;
  };
  const Valor folio = noNulo(kFolPoliza);
  const Valor fecha = noNulo(kFecPoliza);
  const Valor tipo = noNulo(kTipPoliza);
  const QString &textoFolio =
      Recordar(e.folio, folio.Variante(), {}, [&](RenglonEnCurso::Recordado &r) {
        r.dato = folio.Texto();
        r.texto = CampoListo(f, false, r.dato, f.LongFolio, f.AlFolio);
      }).dato;
  const QString &campoFolio = e.folio.texto;
  const RenglonEnCurso::Recordado &campoFecha =
      Recordar(e.fecha, fecha.Variante(), {}, [&](RenglonEnCurso::Recordado &r) {
        r.dato = fecha.Texto();
        r.texto = CampoListo(f, false, FormatearFecha(f, fecha.Fecha()), f.LongFecha, f.AlFecha);
      });
  const QString textoTipo = tipo.Texto();
  // The package's number of the type is asked for on every line (once per run with memory).
  QHash<QString, QString> *respuestas = e.respuestas ? &*e.respuestas : nullptr;
  const QString tipoPoliza =
      UnaVez(respuestas, e.numeroTipo, tipo.Variante(), [&](QHash<QString, QString> *memoria) {
        return ObtenerTipoPoliza(con, f, textoTipo, memoria);
      });
  const QString &campoTipo = Recordar(e.tipo, tipoPoliza, {}, [&](RenglonEnCurso::Recordado &r) {
                               r.texto = CampoListo(f, false, tipoPoliza, f.LongTipo, f.AlTipo);
                             }).texto;
  const Valor concepto = noNulo(kConcepPol);
  const QString &campoConcepto =
      Recordar(e.concepto, concepto.Variante(), {}, [&](RenglonEnCurso::Recordado &r) {
        r.texto = CampoListo(f, false, concepto.Texto(), f.LongConcepto, f.AlConcepto);
      }).texto;

  // A line is a debit when its debit amount is above 0; any other line, one of 0 included,
  // is a credit and takes the credit account.
  const Dinero debe = noNulo(kImpDebe).ComoDinero();
  const bool esDebe = debe > Dinero();
  const QString cuenta = noNulo(esDebe ? kCuentaDebe : kCuentaHaber).Texto();
  auto hecha = e.cuentas.constFind(cuenta);
  if (hecha == e.cuentas.constEnd()) {
    TextoCorto formateada;
    hecha = e.cuentas.insert(cuenta, CampoListo(f, false, CuentaFormateada(f, cuenta, formateada),
                                                f.LongCuenta, f.AlCuenta));
  }
  const QString &campoCuenta = *hecha;

  QString campoImporte;
  if (f.ColumnasSeparadas) {
    campoImporte = DosColumnas(f, debe, noNulo(kImpHaber).ComoDinero());
  } else if (esDebe) {
    campoImporte = f.Encierro % f.MarcaDebe % f.Encierro % f.Separador %
                   CampoListo(f, true, Monto(debe), f.LongDebe, f.AlDebe);
  } else {
    const Dinero haber = noNulo(kImpHaber).ComoDinero();
    campoImporte = f.Encierro % f.MarcaHaber % f.Encierro % f.Separador %
                   CampoListo(f, true, Monto(haber), f.LongHaber, f.AlHaber);
  }
  // The sums go in two columns in every style; the package's has none, but a sum that is
  // no amount stops its run too. The lines of an entry carry the same ones.
  const Valor valorSumaDebe = noNulo(kSumDebe);
  const Valor valorSumaHaber = noNulo(kSumHaber);
  const QString &campoSumas = Recordar(e.suma, valorSumaDebe.Variante(), valorSumaHaber.Variante(),
                                       [&](RenglonEnCurso::Recordado &r) {
                                         const Dinero sumaDebe = valorSumaDebe.ComoDinero();
                                         const Dinero sumaHaber = valorSumaHaber.ComoDinero();
                                         if (!f.EsPaquete)
                                           r.texto = DosColumnas(f, sumaDebe, sumaHaber);
                                       })
                                  .texto;

  // The first row is written only when the entry changes, or on every line of a one-row
  // format: it is put together only then.
  const bool mismaPoliza = EsClave(f.ClaveAnterior, textoFolio, campoFecha.dato, textoTipo);
  const bool conRenglon1 = !mismaPoliza || f.NumRenglones == 1;
  QString renglon1, renglon2;
  if (f.EsPaquete) {
    // The P and N records, then the M record; the sums aren't written.
    if (conRenglon1)
      renglon1 = QStringLiteral("P ") % campoFecha.texto % campoTipo % campoFolio %
                 QStringLiteral("0 ") % QStringLiteral("000 ") % campoConcepto %
                 QStringLiteral("0 ") % QStringLiteral("0 ") % kFinLinea % QStringLiteral("N    ");
    const QString campoReferencia =
        UnaVez(respuestas, e.referencia, folio.Variante(), [&](QHash<QString, QString> *memoria) {
          return CampoListo(f, false, ObtenerReferencia(con, textoFolio, memoria), 10, 1);
        });
    renglon2 = QStringLiteral("M ") % campoCuenta % campoReferencia % campoImporte %
               QStringLiteral("000 ") % QStringLiteral("0.00 ") %
               QStringView(campoConcepto).left(30);
  } else {
    // Row 1 carries the sums when there is a detail row to carry the amounts.
    if (conRenglon1) {
      const QString *importe = &campoImporte;
      if (f.NumRenglones != 1)
        importe = &campoSumas;
      renglon1 = ArmarUsuario(f.Renglon1, {&campoFolio, &campoFecha.texto, &campoTipo, &campoCuenta,
                                           &campoConcepto, importe});
    }
    if (f.NumRenglones == 2)
      renglon2 = ArmarUsuario(f.Renglon2, {&campoFolio, &campoFecha.texto, &campoTipo, &campoCuenta,
                                           &campoConcepto, &campoImporte});
  }
  // Each row loses its last character: the last separator, or without one the last
  // character of the last field.
  if (!renglon1.isEmpty())
    renglon1.chop(1);
  if (!renglon2.isEmpty())
    renglon2.chop(1);
  if (!mismaPoliza)
    f.ClaveAnterior = textoFolio % campoFecha.dato % textoTipo;

  if (!conRenglon1)
    return renglon2;
  if (renglon2.isEmpty())
    return renglon1;
  return renglon1 % kFinLinea % renglon2;
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
