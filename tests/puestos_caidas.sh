#!/usr/bin/env bash
# A few workstations posting at once on a PostgreSQL server of their own that dies once in the
# middle of the run and comes back: no workstation fails, no number is handed out twice or
# skipped, no entry is partial, no due item is closed twice, every invoice keeps its register
# rows.
#
#   puestos_caidas.sh CARPETA_DE_COMPILACION
set -euo pipefail
raiz=$(cd "$(dirname "$0")/.." && pwd)
pgdir=$(mktemp -d)
chmod 755 "$pgdir"
trap '"$raiz/scripts/pg-throwaway.sh" stop "$pgdir"; rm -rf "$pgdir"' EXIT
port=$(SALDEVA_PG_DURADERO=1 "$raiz/scripts/pg-throwaway.sh" start "$pgdir")
/usr/lib/postgresql/15/bin/createdb -h 127.0.0.1 -p "$port" -U saldeva puestos
estado=0
salida=$(SALDEVA_BENCH_PG="Host=127.0.0.1;Port=$port;User ID=saldeva;Database=puestos" \
  SALDEVA_BENCH_PGDIR="$pgdir" CAIDAS=1 ESPERA=1 "$raiz/bench/puestos.sh" "$1" 3 250 2>&1) ||
  estado=$?
echo "$salida"
[ "$estado" -eq 0 ] || exit "$estado"
# The server must really have died while the workstations were at work.
grep -q "^Caídas del servidor: 1; esperas de los puestos: [1-9]" <<< "$salida"
