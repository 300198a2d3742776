#!/usr/bin/env bash
# Installs what is missing, builds the program and its manual, creates the demo
# installation (demo/ or the folder given, with the manual in Ayuda/) and runs the main job
# on it: the month's journal entries, their export for CONTPAQ and in a user layout of two
# rows, the detailed journal list as PDF, and a summary.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
destino="${1:-$raiz/demo}"
"$raiz/scripts/instalar.sh"
"$raiz/scripts/compilar.sh" >/dev/null
cli="$raiz/build/escribano-cli"
del=$(date -d "$(date +%Y-%m-01) -1 month" +%F)
al=$(date -d "$(date +%Y-%m-01) -1 day" +%F)
# The password goes in the environment, not on the command line where any user of the
# machine could read it.
export ESCRIBANO_CLAVE=demo
sesion=(--usuario ADMIN)

echo "== Manual del usuario (capturas de las pantallas y Ayuda/TV_PVManual.pdf)"
cmake --build "$raiz/build" --target manual | tail -n 1
echo
echo "== Empresa de demostración"
"$cli" --ruta "$destino" demo --reconstruir
# F1 opens the manual of the installation: the one just built replaces an older one.
cp "$raiz/build/Ayuda/TV_PVManual.pdf" "$raiz/build/Ayuda/TV_PVManual.paginas" "$destino/Ayuda/"
echo
echo "== Sesión de la empresa 1"
"$cli" --ruta "$destino" resumen --empresa 1
for empresa in 1 2; do
  echo
  echo "== Generación de pólizas, empresa $empresa, del $del al $al"
  "$cli" --ruta "$destino" generar --empresa "$empresa" "${sesion[@]}" --del "$del" --al "$al" \
    --agregar
done
echo
echo "== Primera póliza de la empresa 1"
"$cli" --ruta "$destino" poliza --empresa 1
for par in "1 Polizas_CONTPAQ.txt" "2 Polizas_DosRenglones.txt"; do
  set -- $par
  echo
  echo "== Exportación de la empresa $1 a Export/$2"
  "$cli" --ruta "$destino" exportar --empresa "$1" "${sesion[@]}" --del "$del" --al "$al" \
    --archivo "$destino/Export/$2"
  echo "-- primeras líneas:"
  head -n 4 "$destino/Export/$2" | iconv -f WINDOWS-1252 -t UTF-8 | tr -d '\r'
done
echo
echo "== Relación detallada de pólizas de la empresa 1 en $destino/polizas.pdf"
"$cli" --ruta "$destino" reporte --empresa 1 "${sesion[@]}" --del "$del" --al "$al" --detallado \
  --pdf "$destino/polizas.pdf"
echo
echo "== Tablas de pólizas de la empresa 1"
"$cli" --ruta "$destino" resumen --empresa 1 | sed -n '/Tablas de pólizas/,$p' | tail -n +2
