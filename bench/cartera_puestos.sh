#!/usr/bin/env bash
# Several workstations collecting the same pending due items at once. Invoice posters open the
# items first; then PUESTOS collectors start together, each selecting the pending items,
# marking a few from the top of the list and saving the collection with their closing, while
# half as many posters keep invoicing beside them. A collector that loses an item to another
# has its whole entry refused and selects again. At the end every item must have been closed
# at most once, by one whole entry that the journal and the portfolio agree on.
#
#   bench/cartera_puestos.sh [CARPETA_DE_COMPILACION [PUESTOS [FACTURAS]]]
#
# FACTURAS is what each poster of the first round posts (250 by default). The store is SQLite
# in a scratch folder; with SALDEVA_BENCH_PG set to a PostgreSQL description
# ("Host=…;Port=…;User ID=…;Database=…") it is that database instead, which must be empty.
set -euo pipefail
raiz=$(cd "$(dirname "$0")/.." && pwd)
compilacion=${1:-$raiz/build}
puestos=${2:-4}
facturas=${3:-250}
grabador=$compilacion/bench/grabador
. "$raiz/bench/almacen_grabador.sh"

fallidos=0
esperar() {  # waits for the given processes, counting those that fail
  for p in "$@"; do wait "$p" || fallidos=$((fallidos + 1)); done
}

inicio=$(date +%s.%N)
hijos=()
for i in $(seq "$puestos"); do
  "$grabador" facturar "$carpeta" "$facturas" "$i" > "$carpeta/facturas-$i.txt" &
  hijos+=($!)
done
esperar "${hijos[@]}"
medio=$(date +%s.%N)

hijos=()
for i in $(seq "$puestos"); do
  "$grabador" cobrar "$carpeta" 1000000 "$((100 + i))" > "$carpeta/cobros-$i.txt" &
  hijos+=($!)
done
for i in $(seq $((puestos / 2))); do
  "$grabador" facturar "$carpeta" $((facturas / 4)) "$((200 + i))" > "$carpeta/facturas-b$i.txt" &
  hijos+=($!)
done
esperar "${hijos[@]}"
fin=$(date +%s.%N)

{ read -r _ asientos _ parciales; read -r _ vencimientos _ cerrados _ dobles _ incoherentes; } \
  < <("$grabador" contar "$carpeta")
facturadas=$(cat "$carpeta"/facturas-*.txt | wc -l)
read -r cobros rechazos < <(awk '$1 == "cobros" { c += $2; r += $6 } END { print c + 0, r + 0 }' \
  "$carpeta"/cobros-*.txt)

echo "Puestos: $puestos cobrando a la vez (y $((puestos / 2)) facturando a su lado)"
echo "Asientos grabados: $asientos ($facturadas facturas, $cobros cobros)"
echo "Vencimientos: $vencimientos, cerrados $cerrados"
echo "Cobros rechazados por un vencimiento ya cerrado: $rechazos"
echo "Vencimientos cerrados más de una vez: $dobles"
echo "Asientos parciales: $parciales"
echo "Desacuerdos entre cartera y diario: $incoherentes"
echo "Procesos fallidos: $fallidos"
awk -v a="$inicio" -v m="$medio" -v f="$fin" \
  'BEGIN { printf "Tiempo: %.1f s (facturas %.1f s, cobros %.1f s)\n", f - a, m - a, f - m }'
[ "$dobles" -eq 0 ] && [ "$parciales" -eq 0 ] && [ "$incoherentes" -eq 0 ] && [ "$fallidos" -eq 0 ]
