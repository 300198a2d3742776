#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test with CTest: on SQLite, and on a
# private MariaDB server through ODBC.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
"$raiz/scripts/instalar.sh"
"$raiz/scripts/compilar.sh"

source "$raiz/scripts/mariadb.sh"
trap detener_mariadb EXIT
set -euo pipefail

export QT_QPA_PLATFORM=offscreen
# The screens' tests leave a picture of each screen here for a person to look at.
export ESCRIBANO_CAPTURAS="$raiz/build/screens"
mkdir -p "$ESCRIBANO_CAPTURAS"
cd "$raiz/build"
# One test at a time: the MariaDB tests share one database.
ctest --output-on-failure --timeout 300
