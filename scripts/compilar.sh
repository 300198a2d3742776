#!/usr/bin/env bash
# Configures and builds into build/ (or the folder in ESCRIBANO_BUILD) with Ninja.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
build="${ESCRIBANO_BUILD:-$raiz/build}"
tipo="${ESCRIBANO_TIPO:-RelWithDebInfo}"
# shellcheck disable=SC2086
cmake -S "$raiz" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE="$tipo" ${ESCRIBANO_CMAKE:-} >/dev/null
cmake --build "$build"
