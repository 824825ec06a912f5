#!/usr/bin/env bash
# Starts or stops a throwaway PostgreSQL 15 cluster on loopback, in a folder of its own,
# run by an unprivileged user. Used by the test command; nothing here touches a system cluster.
#
#   pg-throwaway.sh start DIR   -> prints "PORT" on success
#   pg-throwaway.sh stop DIR
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
  as_owner "$bin/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w -t 60 \
    -o "-h 127.0.0.1 -p $port -k $dir -c fsync=off -c synchronous_commit=off -c full_page_writes=off -c max_connections=200" start >/dev/null
  echo "$port"
  ;;
stop)
  as_owner "$bin/pg_ctl" -D "$dir/data" -m fast -w stop >/dev/null 2>&1 || true
  ;;
*) echo "uso: $0 start|stop DIR" >&2; exit 2 ;;
esac
