#include "export/FormatoArchivo.h"

#include "shell/CatalogoMensajes.h"
#include "shell/ErrorFatal.h"
#include "shell/ServicioConexion.h"
#include "shell/ServicioUtil.h"

#include <memory>
#include <utility>
#include <vector>

namespace {

// The captions of the date options, which F_FECHA stores, and the masks the writer applies.
struct FormatoFecha {
  const char *caption;
  const char *mascara;
};
constexpr FormatoFecha kFormatosFecha[] = {{"DD/MM/AAAA", "DD/MM/YYYY"},
                                           {"AAAA/MM/DD", "YYYY/MM/DD"},
                                           {"AAAAMMDD", "YYYYMMDD"},
                                           {"DDMMAAAA", "DDMMYYYY"}};

// The most digits a level of the account mask can have: the mask's own twenty characters.
constexpr int kDigitosMaximos = 20;

// The account mask as levels: pieces between "-", at most four, up to the first empty one.
std::array<int, 4> NivelesDeMascara(const QString &mascara) {
  std::array<int, 4> niveles{};
  qsizetype inicio = 0;
  for (int i = 0; i < 4; ++i) {
    qsizetype fin = mascara.indexOf(QLatin1Char('-'), inicio);
    if (fin < 0)
      fin = mascara.size();
    const QString pieza = mascara.mid(inicio, fin - inicio);
    if (pieza.isEmpty())
      break;
    bool ok = false;
    niveles[i] = pieza.trimmed().toInt(&ok);
    if (!ok)
      throw ErrorFatal(QStringLiteral("No coinciden los tipos: el nivel «%1» del formato de "
                                      "cuenta «%2» no es un número.")
                           .arg(pieza, mascara));
    // An account has no level wider than the mask's twenty characters: a wider one would
    // have every line of the file padded out for ever.
    if (niveles[i] > kDigitosMaximos)
      throw ErrorFatal(QStringLiteral("El formato de cuenta «%1» pide un nivel de %2 dígitos; "
                                      "ninguno puede pasar de %3.")
                           .arg(mascara)
                           .arg(niveles[i])
                           .arg(kDigitosMaximos));
    inicio = fin + 1;
  }
  return niveles;
}

int Entero(const Registros &rs, const char *columna) {
  return static_cast<int>(rs.Campo(QLatin1String(columna)).Entero());
}

// Row 1 or 2 of the screen from the positions of the row: a position above 0 places the
// label, 0 offers it; the chosen list takes the places in order up to the first gap.
void LeerRenglon(const Registros &rs, const std::array<const char *, 6> &columnas,
                 const std::array<QString, 6> &etiquetas, QStringList &disponibles,
                 QStringList &elegidos) {
  std::array<QString, 6> lugares;
  for (int i = 0; i < 6; ++i) {
    if (etiquetas[i].isEmpty())
      continue;
    const int posicion = static_cast<int>(rs.Campo(QLatin1String(columnas[i])).Numero());
    if (posicion > 6)
      throw ErrorFatal(QStringLiteral("La posición %1 de %2 en tblParametrosForm está fuera "
                                      "del renglón, que tiene seis lugares.")
                           .arg(posicion)
                           .arg(QLatin1String(columnas[i])));
    if (posicion > 0)
      lugares[posicion - 1] = etiquetas[i];
    else if (posicion == 0)
      disponibles << etiquetas[i];
  }
  for (const QString &lugar : lugares) {
    if (lugar.isEmpty())
      break;
    elegidos << lugar;
  }
}

} // namespace

QString EtiquetaCampo(int c) {
  switch (c) {
  case campo::kFolio:
    return QStringLiteral("Folio");
  case campo::kFecha:
    return QStringLiteral("Fecha");
  case campo::kTipo:
    return QStringLiteral("Tipo de póliza");
  case campo::kCuenta:
    return QStringLiteral("Cuenta");
  case campo::kConcepto:
    return QStringLiteral("Concepto");
  case campo::kImporte:
    return QStringLiteral("Importe Debe/Haber");
  case campo::kSuma:
    return QStringLiteral("Suma Debe/Haber");
  default:
    return {};
  }
}

bool CargarFormato(Conexion &con, FormatoArchivo &f) {
  f.FormatoLeido = true;
  Registros rs = con.Abrir(QStringLiteral(
      "SELECT NO_REN,SEP_COM,SEP_DAT,DEB_HAB,CHAR_UNO,CHAR_DOS,REN_FOL,REN_FEC,REN_TIP,REN_CTA,"
      "REN_CON,REN_IMP,REN2_FOL,REN2_FEC,REN2_TIP,REN2_CTA,REN2_CON,REN2_IMP,F_FECHA,LON_FIJA,"
      "LON_FOL, LON_FEC, LON_TIP,LON_CTA,LON_CON,LON_DEB,LON_HAB,AL_FOL,AL_FEC, AL_TIP,AL_CTA,"
      "AL_CON,AL_DEB,AL_HAB,FORM_CTA,CHAR_SEP,CERO_IZQ FROM tblParametrosForm;"));
  if (rs.Vacio()) {
    CatalogoMensajes::Mostrar(5522, {}, IconoMensaje::Advertencia);
    return false;
  }
  f.NumRenglones = Entero(rs, "NO_REN");
  if (f.NumRenglones == 0) {
    ValoresPaquete(f);
    return true;
  }
  f.EsPaquete = false;
  if (rs.Campo(QStringLiteral("SEP_COM")).Logico())
    f.Encierro = QStringLiteral("\"");
  f.Separador = rs.Campo(QStringLiteral("SEP_DAT")).Texto();

  // A style that is Null or unknown leaves both marks empty.
  const Valor debHab = rs.Campo(QStringLiteral("DEB_HAB"));
  switch (debHab.EsNulo() ? -1 : debHab.Entero()) {
  case 0:
    f.ColumnasSeparadas = true;
    break;
  case 1:
    f.MarcaDebe = QStringLiteral("D");
    f.MarcaHaber = QStringLiteral("H");
    break;
  case 2:
    f.MarcaDebe = QStringLiteral("C");
    f.MarcaHaber = QStringLiteral("A");
    break;
  case 3:
    f.MarcaDebe = QStringLiteral("1");
    f.MarcaHaber = QStringLiteral("2");
    break;
  case 4:
    f.MarcaDebe = rs.Campo(QStringLiteral("CHAR_UNO")).Texto();
    f.MarcaHaber = rs.Campo(QStringLiteral("CHAR_DOS")).Texto();
    break;
  default:
    break;
  }

  f.Renglon1 = {Entero(rs, "REN_FOL"), Entero(rs, "REN_FEC"), Entero(rs, "REN_TIP"),
                Entero(rs, "REN_CTA"), Entero(rs, "REN_CON"), Entero(rs, "REN_IMP")};
  f.Renglon2 = {Entero(rs, "REN2_FOL"), Entero(rs, "REN2_FEC"), Entero(rs, "REN2_TIP"),
                Entero(rs, "REN2_CTA"), Entero(rs, "REN2_CON"), Entero(rs, "REN2_IMP")};

  const QString fFecha = rs.Campo(QStringLiteral("F_FECHA")).Texto();
  for (const FormatoFecha &ff : kFormatosFecha)
    if (fFecha == QString::fromUtf8(ff.caption))
      f.MascaraFecha = QString::fromUtf8(ff.mascara);

  f.LongitudFija = Entero(rs, "LON_FIJA") != 0;
  f.LongFolio = Entero(rs, "LON_FOL");
  f.LongFecha = Entero(rs, "LON_FEC");
  f.LongTipo = Entero(rs, "LON_TIP");
  f.LongCuenta = Entero(rs, "LON_CTA");
  f.LongConcepto = Entero(rs, "LON_CON");
  f.LongDebe = Entero(rs, "LON_DEB");
  f.LongHaber = Entero(rs, "LON_HAB");
  f.AlFolio = Entero(rs, "AL_FOL");
  f.AlFecha = Entero(rs, "AL_FEC");
  f.AlTipo = Entero(rs, "AL_TIP");
  f.AlCuenta = Entero(rs, "AL_CTA");
  f.AlConcepto = Entero(rs, "AL_CON");
  f.AlDebe = Entero(rs, "AL_DEB");
  f.AlHaber = Entero(rs, "AL_HAB");

  const QString formCta = rs.Campo(QStringLiteral("FORM_CTA")).Texto();
  f.Niveles = NivelesDeMascara(formCta.isEmpty() ? QStringLiteral("4-3-3") : formCta);
  // A Null or empty separator of levels is the dash.
  f.SeparadorCuenta = rs.Campo(QStringLiteral("CHAR_SEP")).Texto();
  if (f.SeparadorCuenta.isEmpty())
    f.SeparadorCuenta = QStringLiteral("-");
  f.CerosIzquierda = Entero(rs, "CERO_IZQ") != 0;
  return true;
}

void ValoresPaquete(FormatoArchivo &f) {
  f.EsPaquete = true;
  f.Separador = QStringLiteral(" ");
  f.Encierro.clear();
  f.ColumnasSeparadas = false;
  f.MarcaDebe = QStringLiteral("1");
  f.MarcaHaber = QStringLiteral("2");
  f.Renglon1 = {1, 1, 1, 2, 1, 2};
  f.MascaraFecha = QStringLiteral("YYYYMMDD");
  f.LongitudFija = true;
  f.LongFolio = 8;
  f.LongFecha = 8;
  f.LongTipo = 1;
  f.LongCuenta = 20;
  f.LongConcepto = 100;
  f.LongDebe = 16;
  f.LongHaber = 16;
  f.AlFolio = 2;
  f.AlFecha = 2;
  f.AlTipo = 2;
  f.AlCuenta = 2;
  f.AlConcepto = 2;
  f.AlDebe = 1;
  f.AlHaber = 1;
  f.Niveles = {7, 0, 0, 0};
  // No separator between levels: the package's account loses its last digit by it.
  f.SeparadorCuenta.clear();
  f.CerosIzquierda = true;
}

void LeerFormato(Conexion &con, ControlesFormato &c) {
  Registros rs = con.Abrir(QStringLiteral(
      "SELECT NO_REN, SEP_COM, SEP_DAT, DEB_HAB, CHAR_UNO, CHAR_DOS, REN_FOL, REN_FEC, REN_TIP, "
      "REN_CTA, REN_CON, REN_IMP, REN2_FOL, REN2_FEC, REN2_TIP, REN2_CTA, REN2_CON, REN2_IMP, "
      "F_FECHA, LON_FIJA, LON_FOL, LON_FEC, LON_TIP, LON_CTA, LON_CON, LON_DEB, LON_HAB, AL_FOL, "
      "AL_FEC, AL_TIP, AL_CTA, AL_CON, AL_DEB, AL_HAB, FORM_CTA, CHAR_SEP, CERO_IZQ  FROM "
      "tblParametrosForm;"));
  if (rs.Vacio()) {
    for (QStringList &lista : c.lstUno)
      for (int i = campo::kFolio; i <= campo::kImporte; ++i)
        lista << EtiquetaCampo(i);
    return;
  }

  const int noRen = Entero(rs, "NO_REN");
  c.optContpaq = noRen == 0;
  if (noRen != 0)
    c.chkDosRenglones = noRen == 1 ? 0 : 1;

  const QString sepDat = rs.Campo(QStringLiteral("SEP_DAT")).Texto();
  if (sepDat == QLatin1String(" ")) {
    c.optSepararDatos = 0;
  } else if (sepDat == QLatin1String(",")) {
    c.optSepararDatos = rs.Campo(QStringLiteral("SEP_COM")).Logico() ? 1 : 2;
  } else if (sepDat.isEmpty()) {
    c.optSepararDatos = 3;
  } else {
    // The blank option saves "_", so it comes back here as another separator.
    c.optSepararDatos = 4;
    c.txtOtroSep = sepDat;
  }

  const Valor debHab = rs.Campo(QStringLiteral("DEB_HAB"));
  switch (debHab.EsNulo() ? -1 : debHab.Entero()) {
  case 0:
    c.chkImportesColSep = 1;
    break;
  case 1:
  case 2:
  case 3:
    c.optIncluirCar = static_cast<int>(debHab.Entero()) - 1;
    break;
  case 4:
    c.optIncluirCar = 3;
    c.txtOtroCar[0] = rs.Campo(QStringLiteral("CHAR_UNO")).Texto();
    c.txtOtroCar[1] = rs.Campo(QStringLiteral("CHAR_DOS")).Texto();
    break;
  default:
    break;
  }

  // A two-row format never offers the account in row 1, and its amount there is the sum.
  const bool dos = c.chkDosRenglones != 0;
  LeerRenglon(rs, {"REN_FOL", "REN_FEC", "REN_TIP", "REN_CTA", "REN_CON", "REN_IMP"},
              {EtiquetaCampo(campo::kFolio), EtiquetaCampo(campo::kFecha),
               EtiquetaCampo(campo::kTipo), dos ? QString() : EtiquetaCampo(campo::kCuenta),
               EtiquetaCampo(campo::kConcepto),
               EtiquetaCampo(dos ? campo::kSuma : campo::kImporte)},
              c.lstUno[0], c.lstDos[0]);
  LeerRenglon(rs, {"REN2_FOL", "REN2_FEC", "REN2_TIP", "REN2_CTA", "REN2_CON", "REN2_IMP"},
              {EtiquetaCampo(campo::kFolio), EtiquetaCampo(campo::kFecha),
               EtiquetaCampo(campo::kTipo), EtiquetaCampo(campo::kCuenta),
               EtiquetaCampo(campo::kConcepto), EtiquetaCampo(campo::kImporte)},
              c.lstUno[1], c.lstDos[1]);

  const QString fFecha = rs.Campo(QStringLiteral("F_FECHA")).Texto();
  for (int i = 0; i < 4; ++i)
    if (fFecha == QString::fromUtf8(kFormatosFecha[i].caption))
      c.optFormatoFecha = i;

  if (rs.Campo(QStringLiteral("LON_FIJA")).Logico()) {
    c.chkLongFija = 1;
    const char *longitudes[] = {"LON_FOL", "LON_FEC", "LON_TIP", "LON_CON",
                                "LON_CTA", "LON_DEB", "LON_HAB"};
    const char *alineaciones[] = {"AL_FOL", "AL_FEC", "AL_TIP", "AL_CON",
                                  "AL_CTA", "AL_DEB", "AL_HAB"};
    for (int i = 0; i < 7; ++i) {
      c.txtLongitud[i] = rs.Campo(QLatin1String(longitudes[i])).Texto();
      c.cmbAlineacion[i] = static_cast<int>(rs.Campo(QLatin1String(alineaciones[i])).Numero()) - 1;
    }
  }

  const QString formCta = rs.Campo(QStringLiteral("FORM_CTA")).Texto();
  if (formCta.isEmpty()) {
    c.optFormatoCuenta = 0;
  } else {
    const Valor charSep = rs.Campo(QStringLiteral("CHAR_SEP"));
    if (!charSep.EsNulo()) {
      if (charSep.Texto().isEmpty()) {
        c.optFormatoCuenta = 1;
      } else {
        c.optFormatoCuenta = 2;
        c.txtIncluirOtroSep = charSep.Texto();
      }
    }
    // One character a level: the screen never saves a level of two digits.
    c.txtFormato[0] = QString::number(static_cast<int>(Val(formCta.left(1))));
    qsizetype guion = 0;
    for (int i = 1; i < 4; ++i) {
      guion = formCta.indexOf(QLatin1Char('-'), guion);
      if (guion < 0)
        break;
      ++guion;
      c.txtFormato[i] = QString::number(static_cast<int>(Val(formCta.mid(guion, 1))));
    }
  }

  if (rs.Campo(QStringLiteral("CERO_IZQ")).Logico())
    c.chkIncluirCeros = 1;
}

QString CaptionFecha(int indice) {
  return indice >= 0 && indice < 4 ? QString::fromUtf8(kFormatosFecha[indice].caption) : QString();
}

int PosicionCampo(const ControlesFormato &c, int renglon, const QString &etiqueta) {
  const QStringList &elegidos = c.lstDos[renglon == 1 ? 0 : 1];
  for (qsizetype i = 0; i < elegidos.size(); ++i) {
    const bool suma = renglon == 1 && etiqueta == EtiquetaCampo(campo::kImporte) &&
                      elegidos[i] == EtiquetaCampo(campo::kSuma);
    if (elegidos[i] == etiqueta || suma)
      return static_cast<int>(i) + 1;
  }
  return 0;
}

void MostrarInformacion(const QString &texto) {
  CatalogoMensajes::Caja(texto, QStringLiteral("Información"), IconoMensaje::Informacion);
}

void GrabarFormato(Conexion &con, const ControlesFormato &c) {
  const auto numero = [](int n) { return QString::number(n); };
  const auto texto = [](const QString &t) {
    return QLatin1Char('\'') + Escapar(t) + QLatin1Char('\'');
  };
  const bool fija = c.chkLongFija == 1;
  // Widths and alignments in the order of the boxes: folio, date, type, concept, account,
  // debit, credit.
  std::array<QString, 7> lon, al;
  for (int i = 0; i < 7; ++i) {
    lon[i] = numero(fija ? static_cast<int>(Val(c.txtLongitud[i])) : 0);
    al[i] = numero(fija ? c.cmbAlineacion[i] + 1 : 0);
  }

  QString error;
  std::unique_ptr<Registros> rs =
      con.IntentarAbrir(QStringLiteral("SELECT NO_REN FROM tblParametrosForm;"), &error);
  bool grabado = rs != nullptr;
  if (grabado && rs->Vacio() && c.optContpaq) {
    // The other columns keep what the template gives them.
    grabado = con.IntentarEjecutar(QStringLiteral("INSERT INTO tblParametrosForm (NO_REN) VALUES "
                                                  "(0);"),
                                   nullptr, &error);
  } else if (grabado && !rs->Vacio() && c.optContpaq) {
    // AL_DEB, LON_HAB and AL_HAB keep the screen's values; nothing reads them in this format.
    grabado = con.IntentarEjecutar(
        QStringLiteral(
            "UPDATE tblParametrosForm SET NO_REN=0,REN_FOL=0,REN2_FOL=0,REN_FEC=0,REN2_FEC=0,"
            "REN_TIP=0,REN2_TIP=0,REN_CTA=0,REN2_CTA=0,REN_CON=0,REN2_CON=0,REN_IMP=0,REN2_IMP=0,"
            "DEB_HAB=0,CHAR_UNO='',CHAR_DOS='',CERO_IZQ=0,FORM_CTA='',CHAR_SEP='',F_FECHA='',"
            "LON_FIJA=0,SEP_DAT='',SEP_COM=0,LON_FOL=0,AL_FOL=0,LON_FEC=0,AL_FEC=0,LON_TIP=0,"
            "AL_TIP=0,LON_CON=0,AL_CON=0,LON_CTA=0,AL_CTA=0,LON_DEB=0,AL_DEB=%1,LON_HAB=%2,"
            "AL_HAB=%3;")
            .arg(al[5], lon[6], al[6]),
        nullptr, &error);
  } else if (grabado) {
    const auto posicion = [&](int renglon, int cual) {
      return numero(PosicionCampo(c, renglon, EtiquetaCampo(cual)));
    };
    const bool otrosCaracteres = c.optIncluirCar == 3;
    QString sepDat;
    switch (c.optSepararDatos) {
    case 0:
      sepDat = QStringLiteral("_"); // the blank option has always saved an underscore
      break;
    case 1:
    case 2:
      sepDat = QStringLiteral(",");
      break;
    case 4:
      sepDat = c.txtOtroSep;
      break;
    default:
      break;
    }
    // Column and value, in the order of the statements.
    const std::vector<std::pair<const char *, QString>> valores = {
        {"NO_REN", numero(c.chkDosRenglones == 0 ? 1 : 2)},
        {"REN_FOL", posicion(1, campo::kFolio)},
        {"REN_FEC", posicion(1, campo::kFecha)},
        {"REN_TIP", posicion(1, campo::kTipo)},
        {"REN_CTA", posicion(1, campo::kCuenta)},
        {"REN_CON", posicion(1, campo::kConcepto)},
        {"REN_IMP", posicion(1, campo::kImporte)},
        {"REN2_FOL", posicion(2, campo::kFolio)},
        {"REN2_FEC", posicion(2, campo::kFecha)},
        {"REN2_TIP", posicion(2, campo::kTipo)},
        {"REN2_CTA", posicion(2, campo::kCuenta)},
        {"REN2_CON", posicion(2, campo::kConcepto)},
        {"REN2_IMP", posicion(2, campo::kImporte)},
        {"DEB_HAB",
         numero(c.chkImportesColSep == 1 ? 0 : (c.optIncluirCar >= 0 ? c.optIncluirCar + 1 : 0))},
        {"CHAR_UNO", texto(otrosCaracteres ? c.txtOtroCar[0] : QString())},
        {"CHAR_DOS", texto(otrosCaracteres ? c.txtOtroCar[1] : QString())},
        {"CERO_IZQ", numero(c.chkIncluirCeros)},
        {"FORM_CTA",
         texto(c.optFormatoCuenta == 0
                   ? QString()
                   : c.txtFormato[0] + QLatin1Char('-') + c.txtFormato[1] + QLatin1Char('-') +
                         c.txtFormato[2] + QLatin1Char('-') + c.txtFormato[3])},
        {"CHAR_SEP", texto(c.optFormatoCuenta == 2 ? c.txtIncluirOtroSep : QString())},
        {"F_FECHA", texto(CaptionFecha(c.optFormatoFecha))},
        {"LON_FIJA", numero(c.chkLongFija)},
        {"SEP_DAT", texto(sepDat)},
        {"SEP_COM", numero(c.optSepararDatos == 1 ? -1 : 0)},
        {"LON_FOL", lon[0]},
        {"AL_FOL", al[0]},
        {"LON_FEC", lon[1]},
        {"AL_FEC", al[1]},
        {"LON_TIP", lon[2]},
        {"AL_TIP", al[2]},
        {"LON_CON", lon[3]},
        {"AL_CON", al[3]},
        {"LON_CTA", lon[4]},
        {"AL_CTA", al[4]},
        {"LON_DEB", lon[5]},
        {"AL_DEB", al[5]},
        {"LON_HAB", lon[6]},
        {"AL_HAB", al[6]},
    };
    QString sql;
    if (rs->Vacio()) {
      QStringList columnas, datos;
      for (const auto &[columna, valor] : valores) {
        columnas << QLatin1String(columna);
        datos << valor;
      }
      sql = QStringLiteral("INSERT INTO tblParametrosForm (%1) VALUES (%2);")
                .arg(columnas.join(QLatin1Char(',')), datos.join(QLatin1Char(',')));
    } else {
      // The update names the positions of both rows field by field.
      static constexpr int kOrdenUpdate[] = {0, 1, 7, 2, 8, 3, 9, 4, 10, 5, 11, 6, 12};
      QStringList asignaciones;
      for (int i : kOrdenUpdate)
        asignaciones << QLatin1String(valores[i].first) + QLatin1Char('=') + valores[i].second;
      for (std::size_t i = 13; i < valores.size(); ++i)
        asignaciones << QLatin1String(valores[i].first) + QLatin1Char('=') + valores[i].second;
      sql = QStringLiteral("UPDATE tblParametrosForm SET %1;")
                .arg(asignaciones.join(QLatin1Char(',')));
    }
    grabado = con.IntentarEjecutar(sql, nullptr, &error);
  }
  if (!grabado) {
    MostrarInformacion(QStringLiteral("Ocurrió un error al grabar el formato: %1 %2")
                           .arg(kErrorSentencia)
                           .arg(error));
    return;
  }
  MostrarInformacion(QStringLiteral("Formato grabado con éxito"));
}
