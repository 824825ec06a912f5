#!/usr/bin/env bash
# Installs what is missing, builds, and runs the whole test suite: every store test against
# SQLite and against a throwaway PostgreSQL 15 started here on loopback and stopped at the end.
set -euo pipefail
cd "$(dirname "$0")/.."
raiz=$(pwd)
scripts/deps.sh test
scripts/build.sh

pgdir=$(mktemp -d /tmp/saldeva-pg.XXXXXX)
chmod 755 "$pgdir"
parar() { "$raiz/scripts/pg-throwaway.sh" stop "$pgdir" || true; rm -rf "$pgdir"; }
trap parar EXIT
port=$(scripts/pg-throwaway.sh start "$pgdir")
echo "PostgreSQL de pruebas en 127.0.0.1:$port"

export SALDEVA_TEST_PG="Host=127.0.0.1;Port=$port;User ID=saldeva"
export SALDEVA_TEST_PG_OBLIGATORIO=1
export QT_QPA_PLATFORM=offscreen
cd build
ctest -j 2 --output-on-failure --timeout 600 "$@"
