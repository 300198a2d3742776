#pragma once

#include <QString>
#include <exception>
#include <string>

// A failure that ends the process: the message and the statement that failed.
// What was written before it stays written; there are no transactions to undo.
class ErrorFatal : public std::exception {
public:
  explicit ErrorFatal(QString mensaje, QString sentencia = {})
      : mensaje_(std::move(mensaje)), sentencia_(std::move(sentencia)),
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
