#!/usr/bin/env bash
# Installs what is missing, builds, and starts Saldeva on the embedded SQLite store.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
scripts/build.sh
exec build/Saldeva/saldeva "$@"
