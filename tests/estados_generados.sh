#!/usr/bin/env bash
# The company's statements on a generated year of trade (the benchmark's generator, a small
# year): the balance sheet's two sides are equal in both columns, and the profit and loss
# account's result of the year is income minus expenses, that is, minus the balance of
# groups 6 and 7 of the session's branch, as the trial balance gives them.
#
#   estados_generados.sh GENERADOR INFORME [LINEAS]
set -euo pipefail
generador=$1 informe=$2 lineas=${3:-20000}
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
"$generador" "$dir" "$lineas" >/dev/null

# The amounts of the first printed line that begins with the text, as numbers.
importes() {  # fichero texto
  grep -F -m1 -- "$2" "$1" | awk -F ' · ' '{for (i = 2; i <= NF; i++) printf "%s ", $i}' |
    tr -d '.' | tr ',' '.'
}

"$informe" "$dir" situacion --texto "$dir/situacion.txt" >/dev/null
activo=$(importes "$dir/situacion.txt" "TOTAL ACTIVO (A + B)")
pasivo=$(importes "$dir/situacion.txt" "TOTAL PATRIMONIO NETO Y PASIVO (A + B + C)")
echo "Total activo: $activo / total patrimonio neto y pasivo: $pasivo"
[ -n "$activo" ] && [ "$activo" = "$pasivo" ] || { echo "FALLO: los dos lados difieren"; exit 1; }

"$informe" "$dir" pyg --texto "$dir/pyg.txt" >/dev/null
# A loss prints in parentheses.
resultado=$(importes "$dir/pyg.txt" "D) RESULTADO DEL EJERCICIO" | awk '{print $1}')
[[ $resultado == \(* ]] && resultado="-${resultado//[()]/}"

# Groups 6 and 7 of branch B over the year: the trial balance at level 1.
"$informe" "$dir" sumas --niveles 1 --delegaciones B --csv "$dir/sumas.csv" >/dev/null
grupos=$(awk -F ';' 'NR > 1 && ($1 == "6" || $1 == "7") {
                       for (i = 4; i <= 6; i++) gsub(",", ".", $i); s += $4 + $5 - $6}
                     END {printf "%.2f", -s}' <(sed 's/\r$//; 1s/^\xEF\xBB\xBF//' "$dir/sumas.csv"))
echo "Resultado del ejercicio: $resultado / ingresos menos gastos: $grupos"
awk -v a="$resultado" -v b="$grupos" 'BEGIN {exit !(a + 0 == b + 0 && a != "")}' ||
  { echo "FALLO: el resultado no es ingresos menos gastos"; exit 1; }
echo "Correcto"
