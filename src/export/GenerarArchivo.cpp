#include "export/GenerarArchivo.h"

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
#include <algorithm>
#include <array>

namespace {

const QString kFinLinea = QStringLiteral("\r\n");

// A column that the line needs; Null stops the run as it stops the family's code.
Valor NoNulo(const Registros &rs, const QString &columna) {
  Valor v = rs.Campo(columna);
  if (v.EsNulo())
    throw FallaArchivo{94, QStringLiteral("Uso no válido de Null")};
  return v;
}

QString Monto(Dinero importe) { return importe.Formato(u"#,##0.00"); }

// Debit and credit each in a column of their own, as one field.
QString DosColumnas(const FormatoArchivo &f, Dinero debe, Dinero haber) {
  return InsSeparador(f, AjustarCampo(f, true, Monto(debe), f.LongDebe, f.AlDebe) + f.Encierro +
                             f.Separador + f.Encierro +
                             AjustarCampo(f, true, Monto(haber), f.LongHaber, f.AlHaber));
}

// A user row: each field in the slot of its position, a later field over an earlier one;
// the slots joined up to the first empty one.
QString ArmarUsuario(const std::array<int, 6> &posiciones, const std::array<QString, 6> &campos) {
  std::array<QString, 6> lugares;
  for (int i = 0; i < 6; ++i) {
    if (posiciones[i] > 6)
      throw FallaArchivo{9, QStringLiteral("Subíndice fuera del intervalo")};
    if (posiciones[i] > 0)
      lugares[posiciones[i] - 1] = campos[i];
  }
  QString renglon;
  for (const QString &lugar : lugares) {
    if (lugar.isEmpty())
      break;
    renglon += lugar;
  }
  return renglon;
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
    filtros += QStringLiteral(" AND tblPolizasEnc.TIP_POLIZA='%1'").arg(d.tipo);
  if (!d.operacion.isEmpty())
    filtros += QStringLiteral(" AND COD_OPER=%1").arg(d.operacion);
  if (!d.concepto.isEmpty())
    filtros += QStringLiteral(" AND CONCEP_POL='%1'").arg(d.concepto);
  // The join goes by the folio alone: entries of two types under one folio meet here.
  Registros rs = con.Abrir(
      QStringLiteral("SELECT tblPolizasRen.FOL_POLIZA, FEC_POLIZA, tblPolizasEnc.TIP_POLIZA, "
                     "CONCEP_POL, CUENTA_DEBE, CUENTA_HABER, IMP_DEBE, IMP_HABER, SUM_DEBE, "
                     "SUM_HABER, COD_OPER FROM tblPolizasEnc INNER JOIN tblPolizasRen ON "
                     "tblPolizasEnc.FOL_POLIZA = tblPolizasRen.FOL_POLIZA WHERE FEC_POLIZA "
                     "BETWEEN %1 AND %2%3 ORDER BY tblPolizasEnc.TIP_POLIZA, COD_OPER, "
                     "tblPolizasRen.FOL_POLIZA")
          .arg(ServicioUtil::FechaSQL(d.fechaIni, con.Motor()),
               ServicioUtil::FechaSQL(d.fechaFin, con.Motor()), filtros));

  // Lines go to the file in blocks, each block in one write: a write for every line costs
  // more than building the line. The count is of lines that reached the file, and a line
  // that fails to build first sends the block in hand, so the file keeps every line before
  // it.
  QByteArray bloque;
  qint64 lineasBloque = 0;
  const auto vaciar = [&] {
    const bool escrito = bloque.isEmpty() || archivo.write(bloque) == bloque.size();
    if (escrito)
      resultado.lineas += lineasBloque;
    bloque.clear();
    lineasBloque = 0;
    return escrito;
  };
  for (; !rs.Fin(); rs.Siguiente()) {
    try {
      const QByteArray bytes = CodificarWindows1252(ArmarRenglon(con, f, rs) + kFinLinea);
      bloque += bytes;
      lineasBloque += bytes.count("\r\n");
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
    if (avance)
      avance(resultado.lineas + lineasBloque);
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
  qsizetype largo = valor.size();
  // Without fixed widths every field loses a leading "+", text fields as well.
  if (!f.LongitudFija) {
    if (valor.startsWith(QLatin1Char('+')))
      valor.remove(0, 1);
    return valor;
  }
  // Amounts always stand to the right, whatever their alignment says.
  if (esImporte) {
    alineacion = 1;
    if (valor.startsWith(QLatin1Char('+'))) {
      valor.remove(0, 1);
      --largo;
      --longitud;
    }
  }
  if (largo > longitud)
    return valor.left(std::max(longitud, 0));
  const QString blancos(longitud - largo, QLatin1Char(' '));
  return alineacion == 1 ? blancos + valor : valor + blancos;
}

QString CerosFaltantes(const FormatoArchivo &f, int nivel, QStringView parte) {
  if (parte.size() < f.Niveles[nivel] && f.CerosIzquierda)
    return QString(f.Niveles[nivel] - parte.size(), QLatin1Char('0'));
  return {};
}

QString FormatearCuenta(const FormatoArchivo &f, const QString &cuenta) {
  // The levels of the account: pieces between "-", at most four, up to the first empty one.
  std::array<QStringView, 4> partes;
  int cuantas = 0;
  qsizetype inicio = 0;
  while (cuantas < 4 && inicio <= cuenta.size()) {
    qsizetype fin = cuenta.indexOf(QLatin1Char('-'), inicio);
    if (fin < 0)
      fin = cuenta.size();
    const QStringView pieza = QStringView(cuenta).sliced(inicio, fin - inicio);
    if (pieza.isEmpty())
      break;
    partes[static_cast<std::size_t>(cuantas++)] = pieza;
    inicio = fin + 1;
  }
  QString resultado;
  for (int i = 0; i < cuantas; ++i) {
    const QStringView parte = partes[static_cast<std::size_t>(i)];
    if (f.Niveles[i] != 0)
      resultado += CerosFaltantes(f, i, parte) % parte.left(f.Niveles[i]) % f.SeparadorCuenta;
  }
  if (resultado.isEmpty())
    throw FallaArchivo{5, QStringLiteral("Llamada a procedimiento o argumento no válidos")};
  // The last separator goes; with no separator (the package) the last digit goes instead.
  resultado.chop(1);
  return resultado;
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

QString ObtenerTipoPoliza(Conexion &con, const FormatoArchivo &f, const QString &tipo) {
  if (!f.EsPaquete)
    return tipo;
  Registros rs =
      con.Abrir(QStringLiteral("SELECT COD_NUM FROM tblFolios WHERE COD_FOLIO = '%1'").arg(tipo));
  return rs.Vacio() ? QStringLiteral("?") : rs.Campo(QStringLiteral("COD_NUM")).Texto();
}

QString ObtenerReferencia(Conexion &con, const QString &folio) {
  // By the folio's number alone: the type and the concept of the entry play no part.
  Registros rs =
      con.Abrir(QStringLiteral("SELECT FOLIO_MOV FROM tblMovimxPoliza WHERE FOLIO_POL = ") %
                NumeroDeFolio(folio));
  return rs.Vacio() ? QStringLiteral("?") : rs.Campo(QStringLiteral("FOLIO_MOV")).Texto();
}

QString ArmarRenglon(Conexion &con, FormatoArchivo &f, const Registros &rs) {
  const QString folio = NoNulo(rs, QStringLiteral("FOL_POLIZA")).Texto();
  const Valor fecha = NoNulo(rs, QStringLiteral("FEC_POLIZA"));
  const QString tipo = NoNulo(rs, QStringLiteral("TIP_POLIZA")).Texto();
  const QString clave = folio + fecha.Texto() + tipo;

  const QString campoFolio = InsSeparador(f, AjustarCampo(f, false, folio, f.LongFolio, f.AlFolio));
  const QString campoFecha = InsSeparador(
      f, AjustarCampo(f, false, FormatearFecha(f, fecha.Fecha()), f.LongFecha, f.AlFecha));
  const QString campoTipo = InsSeparador(
      f, AjustarCampo(f, false, ObtenerTipoPoliza(con, f, tipo), f.LongTipo, f.AlTipo));
  const QString campoConcepto =
      InsSeparador(f, AjustarCampo(f, false, NoNulo(rs, QStringLiteral("CONCEP_POL")).Texto(),
                                   f.LongConcepto, f.AlConcepto));

  // A line is a debit when its debit amount is above 0; any other line, one of 0 included,
  // is a credit and takes the credit account.
  const Dinero debe = NoNulo(rs, QStringLiteral("IMP_DEBE")).ComoDinero();
  const bool esDebe = debe > Dinero();
  const QString campoCuenta = InsSeparador(
      f, AjustarCampo(f, false,
                      FormatearCuenta(f, NoNulo(rs, esDebe ? QStringLiteral("CUENTA_DEBE")
                                                           : QStringLiteral("CUENTA_HABER"))
                                             .Texto()),
                      f.LongCuenta, f.AlCuenta));

  QString campoImporte;
  if (f.ColumnasSeparadas) {
    campoImporte = DosColumnas(f, debe, NoNulo(rs, QStringLiteral("IMP_HABER")).ComoDinero());
  } else if (esDebe) {
    campoImporte = InsSeparador(f, f.MarcaDebe) +
                   InsSeparador(f, AjustarCampo(f, true, Monto(debe), f.LongDebe, f.AlDebe));
  } else {
    const Dinero haber = NoNulo(rs, QStringLiteral("IMP_HABER")).ComoDinero();
    campoImporte = InsSeparador(f, f.MarcaHaber) +
                   InsSeparador(f, AjustarCampo(f, true, Monto(haber), f.LongHaber, f.AlHaber));
  }
  // The sums go in two columns in every style.
  const Dinero sumaDebe = NoNulo(rs, QStringLiteral("SUM_DEBE")).ComoDinero();
  const Dinero sumaHaber = NoNulo(rs, QStringLiteral("SUM_HABER")).ComoDinero();

  // The first row is written only when the entry changes, or on every line of a one-row
  // format: it is put together only then.
  const bool conRenglon1 = clave != f.ClaveAnterior || f.NumRenglones == 1;
  QString renglon1, renglon2;
  if (f.EsPaquete) {
    // The P and N records, then the M record; the sums aren't written.
    if (conRenglon1)
      renglon1 = QStringLiteral("P ") % campoFecha % campoTipo % campoFolio % QStringLiteral("0 ") %
                 QStringLiteral("000 ") % campoConcepto % QStringLiteral("0 ") %
                 QStringLiteral("0 ") % kFinLinea % QStringLiteral("N    ");
    renglon2 = QStringLiteral("M ") % campoCuenta %
               InsSeparador(f, AjustarCampo(f, false, ObtenerReferencia(con, folio), 10, 1)) %
               campoImporte % QStringLiteral("000 ") % QStringLiteral("0.00 ") %
               QStringView(campoConcepto).left(30);
  } else {
    // Row 1 carries the sums when there is a detail row to carry the amounts.
    if (conRenglon1)
      renglon1 = ArmarUsuario(
          f.Renglon1, {campoFolio, campoFecha, campoTipo, campoCuenta, campoConcepto,
                       f.NumRenglones == 1 ? campoImporte : DosColumnas(f, sumaDebe, sumaHaber)});
    if (f.NumRenglones == 2)
      renglon2 = ArmarUsuario(f.Renglon2, {campoFolio, campoFecha, campoTipo, campoCuenta,
                                           campoConcepto, campoImporte});
  }
  // Each row loses its last character: the last separator, or without one the last
  // character of the last field.
  if (!renglon1.isEmpty())
    renglon1.chop(1);
  if (!renglon2.isEmpty())
    renglon2.chop(1);

  QString texto;
  if (conRenglon1) {
    texto = renglon1;
    if (!renglon2.isEmpty())
      texto += kFinLinea;
  }
  texto += renglon2;
  f.ClaveAnterior = clave;
  return texto;
}

std::optional<FuenteConceptos> ConsultaConceptos(const QString &operacion) {
  const auto fuente = [](const char *select, const char *orden, const char *codigo,
                         const char *descripcion) {
    return FuenteConceptos{QLatin1String(select) + QLatin1String(orden), QLatin1String(codigo),
                           QLatin1String(descripcion)};
  };
  // The operation is compared as text, as the combo hands it.
  const int op = operacion == QString::number(operacion.toInt()) ? operacion.toInt() : -1;
  switch (op) {
  case 3:
    return fuente("SELECT COD_CIE, DES_CIE FROM tblConceptoIE WHERE COD_CON = 'IEFE'",
                  " ORDER BY COD_CIE", "COD_CIE", "DES_CIE");
  case 4:
    return fuente("SELECT COD_CIE, DES_CIE FROM tblConceptoIE WHERE COD_CON = 'RCAJ'",
                  " ORDER BY COD_CIE", "COD_CIE", "DES_CIE");
  case 5:
    return fuente("SELECT COD_SER, DES_SER FROM tblServicios WHERE 1=1", " ORDER BY COD_SER",
                  "COD_SER", "DES_SER");
  case 6:
    return fuente("SELECT COD_CON, DES_CON FROM tblConceptos WHERE TIP_MOV = 'ACLI'",
                  " ORDER BY COD_CON", "COD_CON", "DES_CON");
  case 7:
    return fuente("SELECT COD_CON, DES_CON FROM tblConceptos WHERE TIP_MOV = 'CCLI'",
                  " ORDER BY COD_CON", "COD_CON", "DES_CON");
  case 10:
    return fuente("SELECT COD_CON, DES_CON FROM tblConceptos WHERE TIP_MOV = 'EALM'",
                  " ORDER BY COD_CON", "COD_CON", "DES_CON");
  case 11:
    return fuente("SELECT COD_CON, DES_CON FROM tblConceptos WHERE TIP_MOV = 'SALM'",
                  " ORDER BY COD_CON", "COD_CON", "DES_CON");
  case 19:
    return fuente("SELECT COD_CAR, DES_CAR FROM tblCargosEnCompras WHERE 1=1", " ORDER BY COD_CAR",
                  "COD_CAR", "DES_CAR");
  case 20:
    return fuente("SELECT COD_CON, DES_CON FROM tblConceptosCom WHERE COD_FOL = 'ACXP'",
                  " ORDER BY COD_CON", "COD_CON", "DES_CON");
  case 21:
    return fuente("SELECT COD_CON, DES_CON FROM tblConceptosCom WHERE COD_FOL = 'CCXP'",
                  " ORDER BY COD_CON", "COD_CON", "DES_CON");
  case 22:
  case 23:
    return fuente("SELECT COD_CON, DES_CON FROM tblConceptosGyT WHERE COD_FOL = 'GTOS'",
                  " ORDER BY COD_CON", "COD_CON", "DES_CON");
  case 24:
    return fuente("SELECT COD_CON, DES_CON FROM tblConceptosGyT WHERE COD_FOL = 'INGR'",
                  " ORDER BY COD_CON", "COD_CON", "DES_CON");
  case 25:
    return fuente("SELECT COD_CON, DES_CON FROM tblConceptosGyT WHERE COD_FOL = 'EGRE' AND  "
                  "COD_CON <> 'CHQE'",
                  " ORDER BY COD_CON", "COD_CON", "DES_CON");
  default:
    return std::nullopt;
  }
}
