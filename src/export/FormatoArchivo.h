#pragma once

#include <QString>
#include <QStringList>
#include <array>

class Conexion;

// The number that the runtime gives a statement that the database refuses.
constexpr int kErrorSentencia = -2147217900;

// Places of the six fields in Renglon1 and Renglon2, and of their labels.
namespace campo {
constexpr int kFolio = 0;
constexpr int kFecha = 1;
constexpr int kTipo = 2;
constexpr int kCuenta = 3;
constexpr int kConcepto = 4;
constexpr int kImporte = 5;
constexpr int kSuma = 6; // label only: the amount of the head row of a two-row format
} // namespace campo

// The seven labels of the format screen, by the places above: "Folio", "Fecha",
// "Tipo de póliza", "Cuenta", "Concepto", "Importe Debe/Haber", "Suma Debe/Haber".
// The lists of the screen hold these texts, and the positions are found by them.
QString EtiquetaCampo(int campo);

// The caption of the date option of that index, which F_FECHA stores: "DD/MM/AAAA",
// "AAAA/MM/DD", "AAAAMMDD", "DDMMAAAA"; the empty text for no option.
QString CaptionFecha(int indice);

// The working form of the single row of tblParametrosForm, kept by the export screen
// for as long as it stays open.
struct FormatoArchivo {
  QString Separador;              // written behind every field
  QString Encierro;               // the double quote, or ""
  bool ColumnasSeparadas = false; // debit and credit each in a column of their own
  QString MarcaDebe, MarcaHaber;
  std::array<int, 6> Renglon1{}; // positions of folio, date, type, account, concept, amount
  std::array<int, 6> Renglon2{};
  QString MascaraFecha; // "DD/MM/YYYY", "YYYY/MM/DD", "YYYYMMDD", "DDMMYYYY" or ""
  bool LongitudFija = false;
  int LongFolio = 0, LongFecha = 0, LongTipo = 0, LongCuenta = 0, LongConcepto = 0, LongDebe = 0,
      LongHaber = 0;
  int AlFolio = 0, AlFecha = 0, AlTipo = 0, AlCuenta = 0, AlConcepto = 0, AlDebe = 0,
      AlHaber = 0;              // 1 right (blanks on the left), anything else left
  std::array<int, 4> Niveles{}; // digits of each account level; 0 for a level not in the mask
  QString SeparadorCuenta;
  bool CerosIzquierda = false;
  QString ClaveAnterior; // folio, date and type of the last journal line written
  bool EsPaquete = false;
  bool FormatoLeido = false;
  int NumRenglones = 0; // NO_REN: 0 the accounting package, 1 one row, 2 head and detail
};

// Reads tblParametrosForm into the working form. Without a row it shows message 5522
// and returns false; the export screen then closes.
bool CargarFormato(Conexion &con, FormatoArchivo &formato);

// The fixed layout of the accounting package, whatever the rest of the row holds.
void ValoresPaquete(FormatoArchivo &formato);

// The controls of the format screen that the row maps to, as the screen holds them.
// Option arrays are the index of the selected member, -1 when none is; check boxes
// hold their value, 0 or 1.
struct ControlesFormato {
  bool optContpaq = false; // optContpaq(2); false is optFormatoUsuario(3), the default
  int chkDosRenglones = 0;
  std::array<QStringList, 2> lstUno; // fields offered for row 1 and row 2
  std::array<QStringList, 2> lstDos; // fields chosen, in their order in the row
  int chkImportesColSep = 0;
  int optIncluirCar = -1; // 0 "D / H", 1 "C / A", 2 "1 / 2", 3 "Otros caracteres"
  std::array<QString, 2> txtOtroCar;
  int optFormatoCuenta = -1; // 0 "Igual", 1 "Incluir separador", 2 "Incluir otro separador"
  QString txtIncluirOtroSep;
  std::array<QString, 4> txtFormato{QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0"),
                                    QStringLiteral("0")};
  int chkIncluirCeros = 0;
  int optFormatoFecha = -1; // 0 "DD/MM/AAAA", 1 "AAAA/MM/DD", 2 "AAAAMMDD", 3 "DDMMAAAA"
  int chkLongFija = 0;
  // Boxes 0 folio, 1 date, 2 type, 3 concept, 4 account, 5 debit, 6 credit.
  std::array<QString, 7> txtLongitud;
  std::array<int, 7> cmbAlineacion{-1, -1, -1, -1, -1, -1, -1}; // 0 "Derecha", 1 "Izquierda"
  int optSepararDatos = -1; // 0 blank, 1 comma with quotes, 2 comma, 3 none, 4 other
  QString txtOtroSep;
};

// Shows the row on the screen's controls; without a row only the lists of fields on
// offer are filled.
void LeerFormato(Conexion &con, ControlesFormato &controles);

// Saves the screen into the row: inserted the first time, updated afterwards. Tells
// the outcome in the screen's information box.
void GrabarFormato(Conexion &con, const ControlesFormato &controles);

// The 1-based place of a label among the fields chosen for a row (1 or 2), 0 when it
// isn't there. The amount of row 1 is found under either of its two labels.
int PosicionCampo(const ControlesFormato &controles, int renglon, const QString &etiqueta);

// The format screen's message box: information icon, title "Información".
void MostrarInformacion(const QString &texto);
