# Sourced by the workstation benchmarks: with $grabador set, makes a scratch program folder
# in $carpeta (removed on exit) whose main store is SQLite, or the PostgreSQL database that
# SALDEVA_BENCH_PG describes, and prepares the company there.
[ -x "$grabador" ] || { echo "falta $grabador: compile primero" >&2; exit 2; }
carpeta=$(mktemp -d)
trap 'rm -rf "$carpeta"' EXIT
mkdir -p "$carpeta/Dades"
if [ -n "${SALDEVA_BENCH_PG:-}" ]; then
  printf 'Provider=PostgreSQL;%s' "$SALDEVA_BENCH_PG" > "$carpeta/Saldeva.udl"
else
  printf 'Provider=SQLite;Data Source=Dades/Saldeva.db' > "$carpeta/Saldeva.udl"
fi
"$grabador" preparar "$carpeta"
