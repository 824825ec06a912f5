#!/usr/bin/env bash
# The year end of the session's year of a program folder's store (company B, year 2026),
# through the runner, timed, and checked with sqlite3 beside the program: after the
# regularisation every account of groups 6 and 7 is at zero and the result account has grown
# by income minus expenses; after the closing every account of groups 1 to 5 is at zero in the
# year and the next year's opening entry holds exactly the balances the closing cancelled;
# after the reversal every account's balance and count of lines, over all dates, is what it was
# before the year end. The store ends as it began, but for the next year the closing made.
#
#   cierre.sh INFORME CARPETA
set -euo pipefail
informe=$1 dir=$2
db="$dir/Dades/Saldeva.db"
q() { sqlite3 -separator ' ' "$db" "$1"; }
fallo() { echo "FALLO: $*"; exit 1; }

read -r desde hasta < <(q "SELECT fecha_inicial, fecha_final FROM Ejercicios
                           WHERE codigo_empresa = 'B' AND ejercicio = 2026")
# Balances in cents, account by account, of the year's lines whose account lies in [$1, $2).
saldos() {
  q "SELECT cuenta, CAST(ROUND(SUM(debe - haber) * 100) AS INTEGER) AS s FROM Apuntes
     WHERE codigo_empresa = 'B' AND fecha_apunte BETWEEN '$desde' AND '$hasta'
       AND cuenta >= '$1' AND cuenta < '$2' GROUP BY cuenta HAVING s <> 0 ORDER BY cuenta"
}
todas() {
  q "SELECT cuenta, CAST(ROUND(SUM(debe - haber) * 100) AS INTEGER) AS s, COUNT(*) FROM Apuntes
     WHERE codigo_empresa = 'B' GROUP BY cuenta ORDER BY cuenta"
}
suma() { awk '{s += $2} END {printf "%.0f", s}'; }

antes=$(todas)
resultado=$(saldos 6 8 | suma)
r129=$(saldos 129 12A | suma)
"$informe" "$dir" regularizar --cuenta 129 --tiempos
[ -z "$(saldos 6 8)" ] || fallo "quedan saldos en los grupos 6 y 7"
despues129=$(saldos 129 12A | suma)
echo "Resultado: 129 pasa de $r129 a $despues129 céntimos; grupos 6 y 7 sumaban $resultado"
[ $((despues129 - r129)) -eq "$resultado" ] || fallo "la 129 no recibe ingresos menos gastos"

balance=$(saldos 1 6)
"$informe" "$dir" cerrar --tiempos
[ -z "$(saldos 1 6)" ] || fallo "quedan saldos en los grupos 1 a 5"
apertura=$(q "SELECT cuenta, CAST(ROUND((debe - haber) * 100) AS INTEGER) FROM Apuntes
              WHERE codigo_empresa = 'B' AND codigo_documento = 'APER2027'
                AND numero_documento = '0000000000' AND fecha_apunte = '20270101'
              ORDER BY cuenta")
[ "$apertura" = "$balance" ] || fallo "la apertura no reproduce los saldos del cierre"
echo "Apertura: $(wc -l <<<"$apertura") cuentas, iguales a los saldos cerrados"
[ "$(q "SELECT fecha_inicial || fecha_final || regularizado || cerrado FROM Ejercicios
        WHERE codigo_empresa = 'B' AND ejercicio = 2027")" = "2027010120271231NN" ] ||
  fallo "el ejercicio 2027 no se ha creado con sus fechas"

"$informe" "$dir" invertir --tiempos
[ "$(todas)" = "$antes" ] || fallo "los saldos después de invertir no son los de antes"
[ "$(q "SELECT regularizado || cerrado FROM Ejercicios
        WHERE codigo_empresa = 'B' AND ejercicio = 2026")" = "NN" ] || fallo "marcas"
echo "Correcto"
