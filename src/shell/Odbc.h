#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <vector>

class QSqlDatabase;

// Statements sent straight to an ODBC connection that Qt opened. Qt 6.4 hands the driver
// the length of a statement with its terminating NUL counted in; the MariaDB driver (3.1)
// then reads past the copy it makes of the text, and now and then the heap is damaged.
// Here the text goes as a terminated string, which that driver measures right, and the
// rows come back through the same handle.
namespace odbc {

// A statement run on the connection: its result's columns and rows, read forward only.
class Cursor {
public:
  ~Cursor();
  Cursor(const Cursor &) = delete;
  Cursor &operator=(const Cursor &) = delete;

  // Runs the text; null on failure with the driver's words in *error. For a statement
  // that gives no rows, *afectados takes the rows it touched.
  static std::unique_ptr<Cursor> Ejecutar(const QSqlDatabase &base, const QString &sql,
                                          QString *error, int *afectados = nullptr);

  // On to the next result of a text of several statements, its rows from the first: false
  // after the last one, or on a failure, with the driver's words in *error.
  bool SiguienteResultado(QString *error);

  bool DaFilas() const { return !nombres_.isEmpty(); }
  const QStringList &Nombres() const { return nombres_; }
  // The next row; false after the last one. A failure to read is fatal.
  bool Siguiente();
  // A column of the row in hand, read in column order: Null, a number, a date or a text,
  // as Qt's driver gives them.
  QVariant Valor(int columna);

private:
  explicit Cursor(void *sentencia) : h_(sentencia) {}
  // Reads the columns of the result in hand and binds them; gives how many there are.
  short Describir();
  // Binds every column to a buffer of rows, so that a fetch brings a block of them; false
  // when a column is too long to bind (a memo), and the rows then come one at a time.
  bool Enlazar(const std::vector<unsigned long long> &tamanos);
  QVariant ConTipo(int columna, const QString &texto) const;
  void *h_;
  QString sql_;
  QStringList nombres_;
  std::vector<short> tipos_;
  // The bound block: each column's texts (anchos_ bytes a row, terminated: in ASCII for a
  // number or a date, in UTF-16 otherwise) and lengths, the rows the last fetch brought and
  // the one in hand.
  std::vector<std::vector<char>> textos_;
  std::vector<std::vector<long long>> largos_;
  std::vector<std::size_t> anchos_;
  std::vector<bool> enAscii_;
  unsigned long long obtenidas_ = 0;
  std::size_t fila_ = 0;
  bool enBloque_ = false;
};

// Whether a connection goes through ODBC, and so through here.
bool EsOdbc(const QSqlDatabase &base);

} // namespace odbc
