#!/usr/bin/env bash
# The benchmark of the books: a year of N journal lines written through the entity classes
# (and as a ledger journal), then the statement of all accounts, the journal book, the trial
# balance of every level, the balance sheet and the profit and loss account as the forms run
# them, and `ledger register` and `ledger balance` over the same postings, side by side.
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

echo "== Balance de sumas y saldos de todos los niveles (tabla temporal, primera página, CSV)"
"$build/bench/informe" "$carpeta" sumas --niveles 1,2,3,4,5,6,7,8 --tiempos \
  --csv "$carpeta/sumas.csv" --png-primera "$carpeta/sumas-1.png"
medir "sumas, todos los niveles (proceso)" "$build/bench/informe" "$carpeta" sumas \
  --niveles 1,2,3,4,5,6,7,8

echo "== ledger balance sobre los mismos apuntes"
medir "ledger balance" ledger -f "$carpeta/diario.ledger" balance

echo "== Balance de situación y cuenta de pérdidas y ganancias (tabla temporal, primera página)"
"$build/bench/informe" "$carpeta" situacion --tiempos --texto "$carpeta/situacion.txt" \
  --png-primera "$carpeta/situacion-1.png"
grep -F "TOTAL" "$carpeta/situacion.txt"
"$build/bench/informe" "$carpeta" pyg --tiempos --texto "$carpeta/pyg.txt" \
  --png-primera "$carpeta/pyg-1.png" | grep -v "^[AB]"
grep -F "RESULTADO DEL EJERCICIO" "$carpeta/pyg.txt"
