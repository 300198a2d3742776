#pragma once

#include "journal/OpcionesGeneracion.h"
#include "shell/FinOrdenado.h"

#include <QFile>
#include <QString>
#include <QStringList>
#include <memory>

class Conexion;
struct ConceptoRegla;

// The text log of a run (the "bitácora"): the head with the options chosen, a line for
// each rule, the messages of posting, and each entry as a table of its lines. It
// accumulates: a run on an existing file keeps the old text above a line of dashes.
// Windows-1252 with CR LF.
// What the user is told when the log can't be written.
QString MensajeBitacoraNoEscrita(const QString &ruta, const QString &error);

class Bitacora final : public Cerrable {
public:
  Bitacora() = default;
  // At a fatal end the lines written so far reach the file, and it is closed.
  void CerrarAlTerminar(Fase fase) noexcept override {
    if (fase == Fase::Archivos)
      CerrarBitacora();
  }

  // gRutaApp + "\TEMP\ResumenPol" + company + "_" + DDMMYYYY of the defined date + ".txt".
  static QString NombreBitacora(int numEmp, const QDate &fechaDefinida);
  // Whether the run may use the file: a name is needed (message 5512), and an existing
  // file is used only when the user answers Yes to adding to it (5500, 5510, 5511).
  static bool ValidarBitacora(const QString &ruta);

  // Keeps the old text, empties the file and writes the head. A file that can't be
  // written leaves the run without a log.
  // A file that can't be written leaves the run without a log, and the user told so.
  void AbrirBitacora(Conexion &con, const OpcionesGeneracion &opciones);
  void EscribirLinea(const QString &linea);
  // The table of an entry of the rule: heading and one line for each of its lines.
  void EscribirPoliza(Conexion &con, const QString &folio, const ConceptoRegla &regla);
  // What EscribirPoliza reads of the entry, in its order: header, lines, last document date.
  static QStringList LecturasDePoliza(const QString &folio, const ConceptoRegla &regla);
  void CerrarBitacora();
  bool Abierta() const { return archivo_ != nullptr; }

private:
  std::unique_ptr<QFile> archivo_;
};
