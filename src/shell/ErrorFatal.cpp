#include "shell/ErrorFatal.h"

#include <QRegularExpression>

QString OcultarClaves(const QString &texto) {
  if (!texto.contains(QStringLiteral("pw"), Qt::CaseInsensitive) &&
      !texto.contains(QStringLiteral("password"), Qt::CaseInsensitive))
    return texto;
  static const QRegularExpression clave(
      QStringLiteral("\\b(password|pwd)(\\s*=\\s*)[^;'\"\\s][^;'\"]*"),
      QRegularExpression::CaseInsensitiveOption);
  QString oculto = texto;
  return oculto.replace(clave, QStringLiteral("\\1\\2****"));
}
