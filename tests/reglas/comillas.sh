#!/usr/bin/env bash
# Every value that a statement places between apostrophes goes through Escapar, the one
# routine that doubles the apostrophe. This finds the places where a piece of statement
# text that opens a quoted value ('"_s, '" or '%N') is followed by anything else.
set -uo pipefail
raiz="${1:-$(cd "$(dirname "$0")/../.." && pwd)}"
fallas=0
while IFS= read -r -d '' archivo; do
  # One line per file, blanks folded, so that a value on the next line is seen too.
  texto=$(tr '\n' ' ' <"$archivo" | tr -s ' ')
  # Joined pieces: '"_s % valor, '"_s + valor, '" + valor.
  malos=$(grep -oP "'\"(_s)? ?[%+] ?(?!Escapar\()[^ ]{1,40}" <<<"$texto")
  # Patterns filled by arg(): the arguments of a pattern with '%N' escape their texts.
  patrones=$(grep -oP "'%[0-9]'(?:(?!\.arg\().){0,400}?\.arg\([^;]*" <<<"$texto" | grep -v 'Escapar(')
  # An apostrophe character joined to a value: QLatin1Char('\'') + valor. Dates and times,
  # which are digits, go as they are.
  unidos=$(grep -oP "QLatin1Char\('\\\\''\) ?\+ ?(?!Escapar\(|fecha\.|momento\.|hora )[^ ]{1,40}" <<<"$texto")
  malos=$(printf '%s\n%s' "$malos" "$unidos" | sed '/^$/d')
  if [ -n "$malos" ]; then
    echo "$archivo: valor entre apóstrofos sin Escapar:"
    sed 's/^/    /' <<<"$malos"
    fallas=$((fallas + 1))
  fi
  if [ -n "$patrones" ]; then
    echo "$archivo: patrón '%N' cuyos argumentos no pasan por Escapar:"
    cut -c1-160 <<<"$patrones" | sed 's/^/    /'
    fallas=$((fallas + 1))
  fi
done < <(find "$raiz/src" -name '*.cpp' -print0)
if [ "$fallas" -gt 0 ]; then
  echo "$fallas archivos con valores sin escapar"
  exit 1
fi
echo "Todos los valores entre apóstrofos pasan por Escapar."
