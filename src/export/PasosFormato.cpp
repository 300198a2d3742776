#include "export/PasosFormato.h"

#include "shell/ServicioUtil.h"

#include <algorithm>

namespace {

// The boxes of widths and alignments, as the message of a missing one names them.
constexpr const char *kCamposLongitud[] = {"del Folio",        "de la Fecha",  "del Tipo de póliza",
                                           "del Concepto",     "de la Cuenta", "del Importe Debe",
                                           "del Importe Haber"};

int Numero(const QString &texto) { return static_cast<int>(Val(texto)); }

// A finished row loses its last character: the last separator.
QString SinUltimo(const QString &renglon) { return renglon.left(renglon.size() - 1); }

// The sample fields of the preview, each enclosed and followed by the separator.
struct Muestras {
  QString folio, fecha, tipo, concepto, cuenta;
  QString debe, haber; // the amount of a debit line and of a credit line
  QString suma;        // the entry's two totals
};

Muestras ArmarMuestras(const ControlesFormato &c) {
  // The blank option shows a blank here; what it saves is "_".
  QString separador;
  switch (c.optSepararDatos) {
  case 0:
    separador = QStringLiteral(" ");
    break;
  case 1:
  case 2:
    separador = QStringLiteral(",");
    break;
  case 4:
    separador = c.txtOtroSep;
    break;
  default:
    break;
  }
  const QString comillas = c.optSepararDatos == 1 ? QStringLiteral("\"") : QString();
  const auto campo = [&](const QString &texto) { return comillas + texto + comillas + separador; };
  const auto muestra = [&](const QString &valor, int indice) {
    return campo(CampoMuestra(c, valor, indice));
  };

  Muestras m;
  m.folio = muestra(QStringLiteral("FOLIO"), 0);
  m.fecha = muestra(CaptionFecha(c.optFormatoFecha), 1);
  m.tipo = muestra(QStringLiteral("T"), 2);
  m.concepto = muestra(QStringLiteral("CONCEPTO"), 3);
  m.cuenta = muestra(CuentaMuestra(c), 4);
  const QString nueves = QStringLiteral("9.99");
  m.suma = muestra(nueves, 5) + muestra(nueves, 6);
  if (c.chkImportesColSep == 1) {
    m.debe = m.suma;
    m.haber = m.suma;
  } else if (c.optIncluirCar >= 0) {
    static const char *const kMarcas[][2] = {{"D", "H"}, {"C", "A"}, {"1", "2"}};
    const QString marcaDebe =
        c.optIncluirCar == 3 ? c.txtOtroCar[0] : QLatin1String(kMarcas[c.optIncluirCar][0]);
    const QString marcaHaber =
        c.optIncluirCar == 3 ? c.txtOtroCar[1] : QLatin1String(kMarcas[c.optIncluirCar][1]);
    m.debe = campo(marcaDebe) + muestra(QStringLiteral("+9.99"), 5);
    m.haber = campo(marcaHaber) + muestra(QStringLiteral("+9.99"), 6);
  }
  return m;
}

// A row: each field in the slot of its place in the chosen list, joined up to the first
// empty slot, without its last character.
QString Renglon(const ControlesFormato &c, int renglon, const Muestras &m, const QString &importe) {
  const std::pair<int, const QString *> campos[] = {
      {campo::kFolio, &m.folio},   {campo::kFecha, &m.fecha},       {campo::kTipo, &m.tipo},
      {campo::kCuenta, &m.cuenta}, {campo::kConcepto, &m.concepto}, {campo::kImporte, &importe}};
  std::array<QString, 6> lugares;
  for (const auto &[cual, texto] : campos) {
    const int posicion = PosicionCampo(c, renglon, EtiquetaCampo(cual));
    if (posicion > 0)
      lugares[posicion - 1] = *texto;
  }
  QString unido;
  for (const QString &lugar : lugares) {
    if (lugar.isEmpty())
      break;
    unido += lugar;
  }
  return SinUltimo(unido);
}

} // namespace

bool ValidarPaso(const ControlesFormato &c, int paso, QString &mensaje) {
  mensaje.clear();
  switch (paso) {
  case 1:
    return true;
  case 2:
    if (c.lstDos[0].isEmpty())
      mensaje = QStringLiteral("Agregue datos en el renglón 1");
    else if (c.chkDosRenglones == 1 && c.lstDos[1].isEmpty())
      mensaje = QStringLiteral("Agregue datos en el renglón 2");
    break;
  case 3:
    if (c.chkImportesColSep == 0 && c.optIncluirCar < 0)
      mensaje = QStringLiteral("Seleccione un formato Debe / Haber");
    else if (c.chkImportesColSep == 0 && c.optIncluirCar == 3 &&
             (c.txtOtroCar[0].isEmpty() || c.txtOtroCar[1].isEmpty()))
      mensaje = QStringLiteral("Especifique un valor para otros caracteres");
    break;
  case 4: {
    if (c.optFormatoCuenta == 2 && c.txtIncluirOtroSep.isEmpty()) {
      mensaje = QStringLiteral("Especifique el separador de la cuenta");
      break;
    }
    if (c.optFormatoFecha < 0) {
      mensaje = QStringLiteral("Especifique un formato de fecha");
      break;
    }
    if (c.optFormatoCuenta == 0)
      return true;
    int digitos = 0;
    for (const QString &nivel : c.txtFormato)
      digitos += Numero(nivel);
    // Twenty characters: seventeen digits and the three separators.
    if (NivelesIntermedios(c.txtFormato))
      mensaje = QStringLiteral(
          "Formato incorrecto: no puede especificar 0 dígitos en niveles intermedios");
    else if (digitos > 17)
      mensaje = QStringLiteral(
          "El formato de cuenta no puede exceder los 20 caracteres (incluyendo separadores)");
    else if (digitos == 0)
      mensaje = QStringLiteral("El formato de cuenta no puede tener 0 dígitos");
    break;
  }
  case 5:
    if (c.optSepararDatos == 4 && c.txtOtroSep.isEmpty()) {
      mensaje = QStringLiteral("Especifique el separador del archivo");
      break;
    }
    if (c.chkLongFija == 1) {
      // A width of "0" passes: the field is then written empty.
      for (int i = 0; i < 7; ++i) {
        if (c.txtLongitud[i].isEmpty() || c.cmbAlineacion[i] < 0) {
          mensaje = QStringLiteral("Especifique la longitud y/o alineación ") +
                    QString::fromUtf8(kCamposLongitud[i]);
          break;
        }
      }
    }
    break;
  default:
    return false;
  }
  return mensaje.isEmpty();
}

bool NivelesIntermedios(const std::array<QString, 4> &txtFormato) {
  bool huboCero = false;
  for (const QString &nivel : txtFormato) {
    if (Numero(nivel) == 0)
      huboCero = true;
    else if (huboCero)
      return true;
  }
  return false;
}

QString CampoMuestra(const ControlesFormato &c, const QString &valor, int indice) {
  QString v = valor;
  if (c.chkLongFija != 1) {
    if (v.startsWith(QLatin1Char('+')))
      v.remove(0, 1);
    return v;
  }
  int longitud = Numero(c.txtLongitud[indice]);
  int alineacion = c.cmbAlineacion[indice] + 1;
  QChar relleno = QLatin1Char('-');
  // An amount stands to the right, filled with nines; its "+" takes one from the width.
  if (v.endsWith(QLatin1String("9.99"))) {
    relleno = QLatin1Char('9');
    alineacion = 1;
    if (v.startsWith(QLatin1Char('+'))) {
      v.remove(0, 1);
      --longitud;
    }
  }
  if (v.size() > longitud)
    return v.left(std::max(longitud, 0));
  const QString resto(longitud - v.size(), relleno);
  return alineacion == 1 ? resto + v : v + resto;
}

QString CuentaMuestra(const ControlesFormato &c) {
  if (c.optFormatoCuenta == 0)
    return QStringLiteral("0000-000-000");
  // With no option chosen the levels are saved with the dash, as by "Incluir separador".
  const QString separador = c.optFormatoCuenta == 2 ? c.txtIncluirOtroSep : QStringLiteral("-");
  QString cuenta;
  int nivelesCero = 0;
  for (const QString &nivel : c.txtFormato) {
    if (nivel == QLatin1String("0"))
      ++nivelesCero;
    else
      cuenta += QString(std::max(Numero(nivel), 0), QLatin1Char('0'));
    cuenta += separador;
  }
  // Each level of 0 left a separator behind the last level with digits.
  return cuenta.left(std::max<qsizetype>(cuenta.size() - nivelesCero - 1, 0));
}

QString ArmarVistaPrevia(const ControlesFormato &c) {
  const Muestras m = ArmarMuestras(c);
  const bool dos = c.chkDosRenglones == 1;
  const QString encabezado = Renglon(c, 1, m, dos ? m.suma : m.debe);
  QStringList lineas;
  if (!dos) {
    for (int i = 0; i < 12; ++i)
      lineas << encabezado;
    return lineas.join(QLatin1Char('\n'));
  }
  const QString debe = Renglon(c, 2, m, m.debe);
  const QString haber = Renglon(c, 2, m, m.haber);
  // Head rows among debit and credit lines, as entries of a few lines each come.
  for (const QChar cual : QStringLiteral("RDDHRHDRHDDH"))
    lineas << (cual == QLatin1Char('R') ? encabezado : cual == QLatin1Char('D') ? debe : haber);
  return lineas.join(QLatin1Char('\n'));
}

QString VistaPreviaInicial() {
  return QStringLiteral(
      "\"FOLIO----\",\"AAAMMMDD\",\"T\",\"CONCEPTO---------------------------------\"\n"
      "\"0000-000-00\",\"D\",\"999999999.99\"\n"
      "\"0000-000-00\",\"H\",\"999999999.99\"");
}
