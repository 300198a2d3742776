#!/usr/bin/env bash
# Installs what is missing, builds, creates the demo installation (demo/ or the folder
# given) and runs the main job on it.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
destino="${1:-$raiz/demo}"
"$raiz/scripts/instalar.sh"
"$raiz/scripts/compilar.sh" >/dev/null
cli="$raiz/build/escribano-cli"

echo "== Empresa de demostración"
"$cli" --ruta "$destino" demo --reconstruir --clave demo
echo
echo "== Sesión de la empresa"
"$cli" --ruta "$destino" resumen --empresa 1
