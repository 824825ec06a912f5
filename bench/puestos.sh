#!/usr/bin/env bash
# Many workstations posting at once on one store: PUESTOS processes, each a day's mix of
# ASIENTOS operations (invoices with VAT and withholding rows and due items on the shared
# series, collections closing shared due items, plain entries, deletions of their own entries),
# all through the entry form's saving code. Afterwards the store is counted: nothing may be
# missing, doubled or skipped.
#
#   bench/puestos.sh [CARPETA_DE_COMPILACION [PUESTOS [ASIENTOS]]]
#
# The store is SQLite in a scratch folder; with SALDEVA_BENCH_PG set to a PostgreSQL description
# ("Host=…;Port=…;User ID=…;Database=…") it is that database instead, which must be empty. With
# SALDEVA_BENCH_PGDIR naming the folder of a throwaway cluster (scripts/pg-throwaway.sh, started
# with SALDEVA_PG_DURADERO=1) the server is also shut down at random moments of the run
# (immediate shutdown, as a server that dies) and started again, CAIDAS times (3 by default),
# each after a pause of 0.5 to 3.5 s (or of ESPERA seconds).
set -euo pipefail
raiz=$(cd "$(dirname "$0")/.." && pwd)
compilacion=${1:-$raiz/build}
puestos=${2:-8}
asientos=${3:-1000}
caidas=${CAIDAS:-3}
grabador=$compilacion/bench/grabador
. "$raiz/bench/almacen_grabador.sh"

inicio=$(date +%s.%N)
hijos=()
for i in $(seq "$puestos"); do
  "$grabador" puesto "$carpeta" "$asientos" "$i" > "$carpeta/puesto-$i.txt" 2> "$carpeta/puesto-$i.err" &
  hijos+=($!)
done

reinicios=0
if [ -n "${SALDEVA_BENCH_PGDIR:-}" ]; then
  # While the workstations run, the server dies now and then.
  for _ in $(seq "$caidas"); do
    sleep "${ESPERA:-$(awk -v r=$RANDOM 'BEGIN { printf "%.2f", 0.5 + r % 300 / 100 }')}"
    vivos=0
    for p in "${hijos[@]}"; do kill -0 "$p" 2>/dev/null && vivos=1; done
    [ "$vivos" = 1 ] || break
    "$raiz/scripts/pg-throwaway.sh" crash "$SALDEVA_BENCH_PGDIR"
    reinicios=$((reinicios + 1))
  done
fi

fallidos=0
for p in "${hijos[@]}"; do wait "$p" || fallidos=$((fallidos + 1)); done
fin=$(date +%s.%N)

# Numbers left out on purpose: entries deleted, and collections abandoned whose number could
# not go back to its series.
grep -h '^[-~]' "$carpeta"/puesto-*.txt | cut -c2- > "$carpeta/borrados.txt" || true
duplicados=$(grep -h '^+' "$carpeta"/puesto-*.txt | sort | uniq -d | wc -l)
{
  read -r _ entradas _ parciales
  read -r _ vencimientos _ cerrados _ dobles _ incoherentes
  read -r _ saltados _ sinregistro _ huerfanos
} < <("$grabador" contar "$carpeta" "$carpeta/borrados.txt")
read -r facturas cobros sueltos borrados rechazos esperas descartados < <(awk '$1 == "puesto" {
  f += $3; c += $5; s += $7; b += $9; r += $11; k += $13; d += $15 }
  END { print f+0, c+0, s+0, b+0, r+0, k+0, d+0 }' \
  "$carpeta"/puesto-*.txt)

echo "Puestos: $puestos, $asientos operaciones cada uno"
echo "Asientos en el diario: $entradas ($facturas facturas, $cobros cobros, $sueltos sueltos; $borrados borrados)"
echo "Vencimientos: $vencimientos, cerrados $cerrados; cobros rechazados por un vencimiento ya cerrado: $rechazos"
[ -n "${SALDEVA_BENCH_PGDIR:-}" ] && echo "Caídas del servidor: $reinicios; esperas de los puestos: $esperas"
echo "Números repetidos: $duplicados"
echo "Números saltados: $saltados"
echo "Números de cobros abandonados que ya no podían volver a su serie: $descartados"
echo "Asientos sin alguna línea: $parciales"
echo "Facturas sin alguno de sus registros: $sinregistro"
echo "Vencimientos cerrados dos veces: $dobles"
echo "Desacuerdos entre cartera y diario: $incoherentes"
echo "Registros sin su línea: $huerfanos"
echo "Procesos fallidos: $fallidos"
[ "$fallidos" -eq 0 ] || cat "$carpeta"/puesto-*.err >&2
awk -v a="$inicio" -v f="$fin" -v n="$((facturas + cobros + sueltos + borrados))" \
  'BEGIN { printf "Tiempo: %.1f s (%.0f operaciones por segundo)\n", f - a, n / (f - a) }'
[ "$duplicados" -eq 0 ] && [ "$saltados" -eq 0 ] && [ "$parciales" -eq 0 ] && [ "$sinregistro" -eq 0 ] &&
  [ "$dobles" -eq 0 ] && [ "$incoherentes" -eq 0 ] && [ "$huerfanos" -eq 0 ] && [ "$fallidos" -eq 0 ]
