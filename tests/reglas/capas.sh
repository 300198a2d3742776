#!/usr/bin/env bash
# Libraries link only downward, and so do includes: the engine (every folder but the
# screens) includes no screen and no drawing, the command line no screen, the screen kit no subsystem's
# screen; only app/ knows every screen. A file never includes from a parent folder ("../"),
# and no two modules include each other.
set -uo pipefail
raiz="${1:-$(cd "$(dirname "$0")/../.." && pwd)}"
src="$raiz/src"
fallas=""
for archivo in $(cd "$src" && find . -name '*.cpp' -o -name '*.h' | sed 's|^\./||' | sort); do
  includes=$(grep -oE '^#include "[^"]+"' "$src/$archivo" | sed 's/#include "//; s/"$//')
  for inc in $includes; do
    mal=""
    case "$inc" in ../*) mal="sube de carpeta" ;; esac
    pantalla=0
    case "$inc" in pantallas/* | */pantallas/*) pantalla=1 ;; esac
    case "$archivo" in
      app/*) ;;
      pantallas/*) case "$inc" in */pantallas/*) mal="el kit no conoce las pantallas" ;; esac ;;
      */pantallas/*) ;;
      *) [ "$pantalla" -eq 1 ] && mal="el motor no incluye pantallas" ;;
    esac
    [ -n "$mal" ] && fallas+="  src/$archivo: $inc ($mal)"$'\n'
  done
done
# Qt's headers follow the libraries: the engine includes neither Gui nor Widgets, the
# drawing of reports, the command line and the manual no Widgets.
qt="$(find /usr/include -maxdepth 3 -type d -name QtWidgets -print -quit)"
qt="${qt%/QtWidgets}"
if [ -z "$qt" ]; then
  echo "No se encontraron los encabezados de Qt"
  exit 1
fi
for archivo in $(cd "$src" && find . -name '*.cpp' -o -name '*.h' | sed 's|^\./||' | sort); do
  case "$archivo" in
    app/* | pantallas/* | */pantallas/*) continue ;;
    reports/* | cli/* | manual/*) prohibidas=(QtWidgets QtPrintSupport) ;;
    *) prohibidas=(QtGui QtWidgets QtPrintSupport) ;;
  esac
  for inc in $(grep -oE '^#include <Q[A-Za-z]+>' "$src/$archivo" | sed 's/#include <//; s/>$//'); do
    for modulo in "${prohibidas[@]}"; do
      [ -e "$qt/$modulo/$inc" ] && fallas+="  src/$archivo: <$inc> ($modulo no es de esta capa)"$'\n'
    done
  done
done
# No two modules (a .h with its .cpp) include each other.
declare -A usa
for archivo in $(cd "$src" && find . -name '*.cpp' -o -name '*.h' | sed 's|^\./||'); do
  modulo="${archivo%.*}"
  for inc in $(grep -oE '^#include "[^"]+\.h"' "$src/$archivo" | sed 's/#include "//; s/\.h"$//'); do
    [ "$inc" = "$modulo" ] || usa["$modulo>$inc"]=1
  done
done
for par in "${!usa[@]}"; do
  a="${par%%>*}"
  b="${par#*>}"
  [[ "$a" < "$b" ]] && [ -n "${usa[$b>$a]:-}" ] && fallas+="  src/$a y src/$b se incluyen uno al otro"$'\n'
done
if [ -n "$fallas" ]; then
  echo "Includes que suben de capa:"
  printf '%s' "$fallas"
  exit 1
fi
echo "Las capas sólo incluyen hacia abajo, y ningún módulo incluye a otro que lo incluya."
