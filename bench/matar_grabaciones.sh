#!/usr/bin/env bash
# Whole or nothing under the harshest failure: a workstation killed with SIGKILL at random
# moments while it posts a thousand entries. The posting child is restarted after each kill
# until the store holds the thousand; then every entry is checked for all its lines and its
# balance. It prints the number of partial entries, which must be 0.
#
#   bench/matar_grabaciones.sh [CARPETA_DE_COMPILACION [ASIENTOS]]
#
# The store is SQLite in a scratch folder; with SALDEVA_BENCH_PG set to a PostgreSQL
# description ("Host=…;Port=…;User ID=…;Database=…") it is that database instead.
set -euo pipefail
raiz=$(cd "$(dirname "$0")/.." && pwd)
compilacion=${1:-$raiz/build}
total=${2:-1000}
grabador=$compilacion/bench/grabador
. "$raiz/bench/almacen_grabador.sh"

asientos=0
muertes=0
ronda=0
while [ "$asientos" -lt "$total" ]; do
  ronda=$((ronda + 1))
  "$grabador" grabar "$carpeta" $((total - asientos)) "$ronda" > /dev/null 2>&1 &
  hijo=$!
  # Somewhere between the start-up and a few dozen saves in.
  sleep "0.$(printf '%03d' $((RANDOM % 40)))"
  if kill -KILL "$hijo" 2>/dev/null; then muertes=$((muertes + 1)); fi
  wait "$hijo" 2>/dev/null || true
  read -r _ asientos _ parciales < <("$grabador" contar "$carpeta")
done

read -r _ asientos _ parciales < <("$grabador" contar "$carpeta")
echo "Asientos grabados: $asientos"
echo "Procesos matados con SIGKILL: $muertes"
echo "Asientos parciales: $parciales"
[ "$parciales" -eq 0 ]
