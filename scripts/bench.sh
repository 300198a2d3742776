#!/usr/bin/env bash
# Installs what is missing, builds the benchmark in release mode (into build-bench/, or the
# folder in ESCRIBANO_BUILD) and runs it: generation and export on SQLite at 2,000, 8,000
# and 32,000 documents, and on a private MariaDB server at 2,000 and 8,000 (a statement
# costs ten times as much there; 32,000 would take the run well past ten minutes), reached
# through the benchmark's relay as it is and with 1 ms added to every round trip, as over
# a LAN or a VPN. At 1 ms every statement of today's runs costs its trip: that part takes
# the longest. Any argument goes to the benchmark (escribano-bench --ayuda).
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
build="${ESCRIBANO_BUILD:-$raiz/build-bench}"
inicio=$SECONDS

"$raiz/scripts/instalar.sh"
cmake -S "$raiz" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
# Two jobs at most: the machine is shared.
cmake --build "$build" --target escribano-bench -j2

source "$raiz/scripts/mariadb.sh"
trap detener_mariadb EXIT
set -euo pipefail

"$build/escribano-bench" --documentos 2000,8000,32000 --documentos-mariadb 2000,8000 \
  --latencia-ms 0,1 "$@"
echo "Duración total: $((SECONDS - inicio)) s" >&2
