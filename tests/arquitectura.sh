#!/usr/bin/env bash
# The layers keep to their places: only data/ speaks to the stores (no Qt SQL class, no
# knowledge of the provider anywhere else), data/ knows nothing of widgets, and forms/ (what
# all forms share) knows no particular subsystem's form; the company's set-up knows nothing of
# the session's windows; the portfolio and the reports know no other subsystem but the shared
# forms and data, posting knows only the portfolio besides them, and the year end only the
# reports (whose journal table shows its entries).
set -u
cd "$(dirname "$0")/.."
fallos=0
fuera=$(grep -rlE 'QSql(Query|Database|Error|Record)|Proveedor::|almacen/dialecto\.h' \
          --include='*.cpp' --include='*.h' app forms session setup portfolio posting reports yearend bench tools 2>/dev/null)
if [ -n "$fuera" ]; then echo "Acceso al almacén fuera de data/:"; echo "$fuera"; fallos=1; fi
widgets=$(grep -rlE '#include <Q(Widget|Dialog|MessageBox|Application|MainWindow)' data 2>/dev/null)
if [ -n "$widgets" ]; then echo "Widgets dentro de data/:"; echo "$widgets"; fallos=1; fi
arriba=$(grep -rlE '#include "(session|setup|posting|portfolio|reports|yearend)/' forms 2>/dev/null)
if [ -n "$arriba" ]; then echo "forms/ depende de un subsistema de encima:"; echo "$arriba"; fallos=1; fi
lado=$(grep -rlE '#include "(session|posting|portfolio|reports|yearend)/' setup 2>/dev/null)
if [ -n "$lado" ]; then echo "setup/ depende de otro subsistema:"; echo "$lado"; fallos=1; fi
cartera=$(grep -rlE '#include "(session|setup|posting|reports|yearend)/' portfolio 2>/dev/null)
if [ -n "$cartera" ]; then echo "portfolio/ depende de otro subsistema:"; echo "$cartera"; fallos=1; fi
asientos=$(grep -rlE '#include "(session|setup|reports|yearend)/' posting 2>/dev/null)
if [ -n "$asientos" ]; then echo "posting/ depende de otro subsistema:"; echo "$asientos"; fallos=1; fi
informes=$(grep -rlE '#include "(session|setup|posting|portfolio|yearend)/' reports 2>/dev/null)
if [ -n "$informes" ]; then echo "reports/ depende de otro subsistema:"; echo "$informes"; fallos=1; fi
cierre=$(grep -rlE '#include "(session|setup|posting|portfolio)/' yearend 2>/dev/null)
if [ -n "$cierre" ]; then echo "yearend/ depende de otro subsistema que los informes:"; echo "$cierre"; fallos=1; fi
[ $fallos -eq 0 ] && echo "1 passed, 0 failed"
exit $fallos
