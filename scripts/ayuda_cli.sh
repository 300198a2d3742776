#!/usr/bin/env bash
# Rewrites the README's list of commands from the program's own help (a test compares them):
# the general help and each command's, between the two markers.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
cli="${1:-$raiz/build/escribano-cli}"
bloque=$(mktemp)
{
  echo '```'
  echo '$ escribano-cli --ayuda'
  "$cli" --ayuda
  # A command's name ends where two blanks begin: some names have two words.
  "$cli" --ayuda | sed -n '/^Comandos:/,/^$/p' | sed -nE 's/^  ([^ ].*[^ ]) {2,}.*/\1/p' |
    while IFS= read -r comando; do
      echo
      echo "\$ escribano-cli $comando --ayuda"
      # shellcheck disable=SC2086 # the words of the name are the command's words
      "$cli" $comando --ayuda
    done
  echo '```'
} >"$bloque"
python3 - "$raiz/README.md" "$bloque" <<'PY'
import sys
readme, bloque = sys.argv[1], open(sys.argv[2], encoding='utf-8').read()
texto = open(readme, encoding='utf-8').read()
inicio, fin = '<!-- comandos: escribano-cli --ayuda -->\n', '<!-- fin de los comandos -->'
a, b = texto.index(inicio) + len(inicio), texto.index(fin)
open(readme, 'w', encoding='utf-8').write(texto[:a] + bloque + texto[b:])
PY
rm -f "$bloque"
