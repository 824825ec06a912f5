#!/usr/bin/env bash
# The benchmark of the books: a year of N journal lines written through the entity classes
# (and as a ledger journal), then the statement of all accounts and the journal book as the
# forms run them, and `ledger register` over the same postings, side by side.
#
#   bench/comparar.sh [LINEAS [CARPETA [BUILD]]]     defaults: 1000000 /tmp/saldeva-bench build
#
# An existing CARPETA with a store is used as it is (delete it to generate again).
set -euo pipefail
cd "$(dirname "$0")/.."
lineas=${1:-1000000}
carpeta=${2:-/tmp/saldeva-bench}
build=${3:-build}
scripts/deps.sh bench
[ -x "$build/bench/informe" ] || scripts/build.sh

medir() {  # label, command...: seconds and peak memory of a whole process
  local etiqueta=$1; shift
  /usr/bin/time -f "%e %M" -o /tmp/saldeva-bench-tiempo "$@" >/dev/null
  read -r s kb </tmp/saldeva-bench-tiempo
  printf "%-34s %9.2f s %8.0f MB\n" "$etiqueta" "$s" "$((kb / 1024))"
}

echo "== Máquina"
echo "$(nproc) núcleos, $(awk '/MemTotal/ {printf "%.0f GiB", $2/1048576}' /proc/meminfo)," \
     "$(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2 | sed 's/^ *//')"

if [ ! -f "$carpeta/Dades/Saldeva.db" ] && [ ! -f "$carpeta/Saldeva.udl" ]; then
  echo "== Generación de $lineas líneas"
  "$build/bench/generador" "$carpeta" "$lineas" --ledger "$carpeta/diario.ledger"
fi

echo "== Extracto de todas las cuentas (tabla temporal, primera página, CSV, PDF)"
"$build/bench/informe" "$carpeta" extracto --tiempos --csv "$carpeta/extracto.csv" \
  --pdf "$carpeta/extracto.pdf" --png-primera "$carpeta/extracto-1.png"
medir "extracto + CSV (proceso entero)" "$build/bench/informe" "$carpeta" extracto \
  --csv "$carpeta/extracto.csv"

echo "== Libro Diario (tabla temporal, primera página, PDF)"
"$build/bench/informe" "$carpeta" diario --tiempos --pdf "$carpeta/diario.pdf" \
  --png-primera "$carpeta/diario-1.png"

echo "== ledger register sobre los mismos apuntes"
medir "ledger register" ledger -f "$carpeta/diario.ledger" register
