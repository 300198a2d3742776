#!/usr/bin/env bash
# Builds the libFuzzer targets with clang (AddressSanitizer and UndefinedBehaviorSanitizer
# on) into build-fuzz/ and runs each for SEGUNDOS (60 by default), on the corpus kept in
# tests/fuzz/corpus/ and what earlier runs found in build-fuzz/corpus/. An input that
# breaks a target is left in build-fuzz/hallazgos/ and the script ends with status 1.
#   scripts/fuzz.sh [SEGUNDOS] [OBJETIVO...]
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
segundos="${1:-60}"
shift || true
objetivos=("$@")
[ ${#objetivos[@]} -gt 0 ] || objetivos=(ini conexion formato 1252 dinero)

"$raiz/scripts/instalar.sh"
faltan=()
for p in clang-14 libclang-rt-14-dev; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || faltan+=("$p")
done
if [ ${#faltan[@]} -gt 0 ]; then
  sudo_=""
  [ "$(id -u)" -ne 0 ] && sudo_="sudo"
  $sudo_ apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo_ apt-get install -y -qq --no-install-recommends \
    "${faltan[@]}" >/dev/null
fi

build="$raiz/build-fuzz"
cmake -S "$raiz" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_C_COMPILER=clang-14 -DCMAKE_CXX_COMPILER=clang++-14 \
  -DESCRIBANO_FUZZ=ON -DESCRIBANO_TESTS=OFF -DESCRIBANO_BENCH=OFF >/dev/null
cmake --build "$build" --target "${objetivos[@]/#/fuzz_}"

export ASAN_OPTIONS="detect_leaks=0:abort_on_error=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
fallas=0
for o in "${objetivos[@]}"; do
  mkdir -p "$build/corpus/$o" "$build/hallazgos/$o"
  echo "== fuzz_$o durante $segundos s"
  if ! "$build/fuzz_$o" "$build/corpus/$o" "$raiz/tests/fuzz/corpus/$o" \
      -max_total_time="$segundos" -print_final_stats=1 -max_len=4096 \
      -artifact_prefix="$build/hallazgos/$o/" 2>"$build/fuzz_$o.log"; then
    echo "   hallazgo: $(ls "$build/hallazgos/$o" | head -n 1) (registro en $build/fuzz_$o.log)"
    fallas=$((fallas + 1))
  fi
  grep -E '^stat::number_of_executed_units|^stat::new_units_added' "$build/fuzz_$o.log" | sed 's/^/   /'
done
exit $((fallas > 0))
