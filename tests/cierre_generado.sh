#!/usr/bin/env bash
# The year end of a generated year of trade (the benchmark's generator), checked account by
# account with sqlite3 by the benchmark's own script.
#
#   cierre_generado.sh GENERADOR INFORME [LINEAS]
set -euo pipefail
generador=$1 informe=$2 lineas=${3:-20000}
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
"$generador" "$dir" "$lineas" >/dev/null
"$(dirname "$0")/../bench/cierre.sh" "$informe" "$dir"
