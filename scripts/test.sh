#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test with CTest: on SQLite, and on a
# private MariaDB server through ODBC.
#   --sanitizar  builds into build-san/ with AddressSanitizer and UndefinedBehaviorSanitizer
#                and runs the whole suite there.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
sanitizar=0
for opcion in "$@"; do
  case "$opcion" in
    --sanitizar) sanitizar=1 ;;
    *) echo "Opción desconocida: $opcion (se admite --sanitizar)" >&2; exit 1 ;;
  esac
done
"$raiz/scripts/instalar.sh"
build="$raiz/build"
if [ "$sanitizar" -eq 1 ]; then
  build="$raiz/build-san"
  export ESCRIBANO_BUILD="$build" ESCRIBANO_CMAKE="-DESCRIBANO_SANITIZAR=ON -DESCRIBANO_BENCH=OFF"
  # Leaks are not counted: Qt's plugins and the ODBC drivers keep what they load until exit.
  export ASAN_OPTIONS="detect_leaks=0:abort_on_error=1:strict_string_checks=1"
  export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
fi
"$raiz/scripts/compilar.sh"

source "$raiz/scripts/mariadb.sh"
trap detener_mariadb EXIT
set -euo pipefail

export QT_QPA_PLATFORM=offscreen
# The screens' tests leave a picture of each screen here for a person to look at.
export ESCRIBANO_CAPTURAS="$build/screens"
mkdir -p "$ESCRIBANO_CAPTURAS"
cd "$build"
# One test at a time: the MariaDB tests share one database.
ctest --output-on-failure --timeout 300
