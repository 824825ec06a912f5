#!/usr/bin/env bash
# Installs, from Debian's packages, what building Saldeva needs and is missing.
#   deps.sh        what the program needs to build and run
#   deps.sh test   also the PostgreSQL server that the test suite starts for itself, and
#                  pdftotext and unzip, which read the reports' PDF and XLSX files back, and
#                  sqlite3, which checks a year end's balances beside the program
#   deps.sh bench  also ledger-cli and GNU time, which the benchmark runs beside Saldeva
set -euo pipefail

paquetes=(cmake ninja-build g++ qt6-base-dev libqt6sql6-sqlite libqt6sql6-psql libgl-dev fonts-dejavu-core libxlsxwriter-dev qt6-translations-l10n libsodium-dev)
[ "${1:-}" = "test" ] && paquetes+=(postgresql-15 poppler-utils unzip sqlite3)
[ "${1:-}" = "bench" ] && paquetes+=(ledger time)

faltan=()
for p in "${paquetes[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || faltan+=("$p")
done
[ ${#faltan[@]} -eq 0 ] && exit 0

echo "Instalando: ${faltan[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${faltan[@]}" >/dev/null
