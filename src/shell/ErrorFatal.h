#pragma once

#include <QString>
#include <exception>
#include <string>

// A text with the value of every "Password=" and "Pwd=" in it (any case) replaced by
// asterisks: what a message, a log or the terminal may show of a connection text.
QString OcultarClaves(const QString &texto);

// A failure that ends the process: the message and the statement that failed, with any
// password in them hidden. What was written before it stays written; the entry in work
// is undone when its connection closes.
class ErrorFatal : public std::exception {
public:
  explicit ErrorFatal(QString mensaje, QString sentencia = {})
      : mensaje_(OcultarClaves(mensaje)), sentencia_(OcultarClaves(sentencia)),
        utf8_(mensaje_.toStdString()) {}

  const QString &Mensaje() const { return mensaje_; }
  const QString &Sentencia() const { return sentencia_; }
  // Message and, when there is one, the statement on a line of its own.
  QString TextoCompleto() const {
    return sentencia_.isEmpty() ? mensaje_ : mensaje_ + QStringLiteral("\n") + sentencia_;
  }
  const char *what() const noexcept override { return utf8_.c_str(); }

private:
  QString mensaje_;
  QString sentencia_;
  std::string utf8_;
};
