#!/usr/bin/env bash
# Starts or stops a throwaway PostgreSQL 15 cluster on loopback, in a folder of its own,
# run by an unprivileged user. Used by the test command; nothing here touches a system cluster.
#
#   pg-throwaway.sh start DIR   -> prints "PORT" on success
#   pg-throwaway.sh stop DIR
#   pg-throwaway.sh crash DIR   immediate shutdown (as a server that dies), then started again
#                               on the same port
#
# The test cluster trades durability for speed (no fsync, commits not waited for). With
# SALDEVA_PG_DURADERO=1 it keeps PostgreSQL's defaults instead, so that an immediate shutdown
# loses no committed transaction: the benchmark of a server that goes away needs that.
set -euo pipefail

action=${1:?start|stop}
dir=${2:?folder}
bin=$(ls -d /usr/lib/postgresql/15/bin 2>/dev/null || true)
[ -n "$bin" ] || { echo "PostgreSQL 15 no está instalado" >&2; exit 1; }

# PostgreSQL refuses to run as root: use the packaged 'postgres' account then.
as_owner() {
  if [ "$(id -u)" -eq 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi
}

case "$action" in
start)
  mkdir -p "$dir"
  [ "$(id -u)" -eq 0 ] && chown postgres "$dir"
  port=$(( 20000 + RANDOM % 20000 ))
  while (exec 3<>/dev/tcp/127.0.0.1/$port) 2>/dev/null; do port=$((port + 1)); done
  as_owner "$bin/initdb" -D "$dir/data" -U saldeva --auth=trust --no-locale -E UTF8 >"$dir/initdb.log" 2>&1
  opciones="-h 127.0.0.1 -p $port -k $dir -c max_connections=200"
  [ "${SALDEVA_PG_DURADERO:-}" = 1 ] ||
    opciones="$opciones -c fsync=off -c synchronous_commit=off -c full_page_writes=off"
  echo "$opciones" > "$dir/opciones"
  as_owner "$bin/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w -t 60 -o "$opciones" start >/dev/null
  echo "$port"
  ;;
crash)
  as_owner "$bin/pg_ctl" -D "$dir/data" -m immediate -w stop >/dev/null 2>&1 || true
  sleep "${SALDEVA_PG_PAUSA:-1}"
  as_owner "$bin/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w -t 60 -o "$(cat "$dir/opciones")" \
    start >/dev/null
  ;;
stop)
  as_owner "$bin/pg_ctl" -D "$dir/data" -m fast -w stop >/dev/null 2>&1 || true
  ;;
*) echo "uso: $0 start|stop|crash DIR" >&2; exit 2 ;;
esac
