#include "derechosmenu.h"

#include "data/almacen/sql.h"
#include "data/entidades/menus.h"
#include "data/entidades/menususuarios.h"
#include "data/global.h"

#include <QHash>

namespace {

const QString kRaiz = QStringLiteral("000000000000");
const QString kOculto = QStringLiteral("V");

// How many characters of a code name its place: three per level used. A code's trailing "000"
// groups are levels it does not use; a code of zeros alone would use none.
qsizetype prefijo(const QString& clave) {
    int libres = 0;
    while (libres < 4 && clave.right(3 * (libres + 1)).toLongLong() == 0) ++libres;
    return 3 * (4 - libres);
}

}  // namespace

void DerechosMenu::leerMenu(Conexion& conexion) {
    nodos_.clear();
    items_.clear();
    QHash<QString, qsizetype> posicion;
    Recordset filas = Menus::GetList(conexion, QStringLiteral("activo <> 0"),
                                     QStringLiteral("item_menu, item_padre"));
    for (; !filas.eof(); filas.moveNext()) {
        Nodo n{NzTexto(filas.value("item_menu")), NzTexto(filas.value("item_padre")),
               NzTexto(filas.value("descripcion")), NzTexto(filas.value("formulario"))};
        if (n.padre != kRaiz) {
            const auto padre = posicion.constFind(n.padre);
            if (padre == posicion.constEnd()) continue;
            nodos_[*padre].hijos = true;
        }
        posicion.insert(n.item, nodos_.size());
        items_ << n.item;
        nodos_ << std::move(n);
    }
    restricciones_ = QStringList(items_.size(), QString());
}

QString DerechosMenu::restriccionesDe(const QString& item) const {
    return restricciones_.value(items_.indexOf(item));
}

void DerechosMenu::cargar(Conexion& conexion, const QString& usuario, const QString& empresa,
                          const QString& delegacion) {
    restricciones_ = QStringList(items_.size(), QString());
    Recordset filas = MenusUsuarios::GetList(
        conexion,
        QStringLiteral("codigo_usuario = ") + sqlTexto(usuario) +
            QStringLiteral(" AND codigo_empresa = ") + sqlTexto(empresa) +
            QStringLiteral(" AND codigo_delegacion = ") + sqlTexto(delegacion),
        {});
    for (; !filas.eof(); filas.moveNext()) {
        const qsizetype i = items_.indexOf(NzTexto(filas.value("item_menu")));
        if (i >= 0) restricciones_[i] = NzTexto(filas.value("restricciones"));
    }
}

QString DerechosMenu::textoDe(const std::array<bool, 5>& casillas) {
    if (casillas[0]) return kOculto;
    QString texto;
    const char letras[] = "VIEBL";
    for (size_t i = 1; i < casillas.size(); ++i)
        if (casillas[i]) texto += QLatin1Char(letras[i]);
    return texto;
}

bool DerechosMenu::EsAscendiente(const QString& a, const QString& b) {
    const qsizetype n = prefijo(a);
    return a.left(n) == b.left(n);
}

bool DerechosMenu::TieneVisibles(const QString& clave) const {
    const qsizetype n = prefijo(clave);
    const QString rama = clave.left(n);
    for (qsizetype i = items_.indexOf(clave) + 1; i < items_.size(); ++i)
        if (items_[i].left(n) == rama && restricciones_[i] != kOculto) return true;
    return false;
}

QList<DerechosMenu::Cambio> DerechosMenu::validar(const QString& seleccionado,
                                                  const QString& texto) {
    QList<Cambio> cambios;
    const qsizetype s = items_.indexOf(seleccionado);
    if (s < 0) return cambios;
    const auto reescribir = [&](qsizetype i, const QString& nuevo) {
        const Cambio c{items_[i], nuevo};
        if (cambios.isEmpty() || cambios.last() != c) cambios << c;
        restricciones_[i] = nuevo;
    };
    for (qsizetype i = 0; i < items_.size(); ++i) {
        // Lifting every denial of an item lifts those of its folders: a visible item needs
        // its whole way up visible.
        if (texto.isEmpty() && EsAscendiente(items_[i], seleccionado)) reescribir(i, {});
        if (!EsAscendiente(seleccionado, items_[i])) continue;
        // Buttons belong to forms, so their letters go to the leaves only; hiding and lifting
        // take the folders too.
        if (!texto.isEmpty() && texto != kOculto && nodos_[i].hijos) continue;
        reescribir(i, texto);
    }
    // Upwards, nearest first, so that a folder sees what its inner folders have just become:
    // a folder of the same top-level branch with nothing visible left takes the new text.
    for (qsizetype i = s - 1; i >= 0; --i)
        if (nodos_[i].hijos && items_[i].left(3) == seleccionado.left(3) &&
            !TieneVisibles(items_[i]))
            reescribir(i, texto);
    return cambios;
}

void DerechosMenu::guardar(Conexion& conexion, const QString& usuario, const QString& empresa,
                           const QString& delegacion, const QString& seleccionado,
                           const QString& texto, const QString& ultimo_usuario) {
    const QStringList antes = restricciones_;
    try {
        const QList<Cambio> cambios = validar(seleccionado, texto);
        Transaccion t(conexion, conexion.enTransaccion());
        for (const Cambio& c : cambios) {
            MenusUsuarios::Delete(conexion, usuario, empresa, delegacion, c.item);
            if (!c.restricciones.isEmpty())
                MenusUsuarios::Insert(conexion, usuario, empresa, delegacion, c.item,
                                      c.restricciones, ultimo_usuario);
        }
        t.commit();
    } catch (...) {
        restricciones_ = antes;
        throw;
    }
}
