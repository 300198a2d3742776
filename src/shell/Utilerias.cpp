#include "shell/Utilerias.h"

#include "shell/Sesion.h"

#include <array>

QString FolioHora() {
  return Ahora().time().toString(QStringLiteral("HHmmss")) + QString::number(gNumEmp);
}

int CaracterValido(int codigo) {
  if (codigo < 34 || codigo > 124)
    return -1;
  constexpr std::array<int, 9> kRechazados = {34, 42, 47, 58, 60, 62, 63, 92, 124};
  for (int r : kRechazados) {
    if (codigo == r)
      return 0;
  }
  return -1;
}

int NombreValido(const QString &texto) {
  if (texto.isEmpty())
    return 0;
  for (QChar c : texto) {
    if (CaracterValido(c.unicode()) == 0)
      return 0;
  }
  return -1;
}
