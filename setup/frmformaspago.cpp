#include "data/entidades/formaspago.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/mantenimiento.h"
#include "forms/msgbox.h"
#include "formularios_empresa.h"
#include "habituales.h"

#include <QLineEdit>

namespace {

using namespace mantenimiento;

// Fields: code, description, then days and percentage of each of the four due dates.
Declaracion declaracionFormasPago() {
    Declaracion d;
    d.nombre = QStringLiteral("frmFormasPago");
    d.titulo = QStringLiteral("Formas de Pago");
    d.sufijo = QStringLiteral("FormasPago");
    d.tabla = QStringLiteral("FormasPagos");
    d.alcance = Alcance::Empresa;
    d.orden = QStringLiteral("codigo_empresa, codigo_pago");
    d.campos = {
        {.etiqueta = QStringLiteral("&Código:"),
         .columna = QStringLiteral("codigo_pago"),
         .obligatorio = true,
         .ancho = 10},
        {.etiqueta = QStringLiteral("&Descripción:"),
         .columna = QStringLiteral("descripcion"),
         .obligatorio = true},
    };
    const char* const ordinales[] = {"&1er. vto a", "&2do. vto a", "&3er. vto a", "&4to. vto a"};
    for (int n = 1; n <= 4; ++n) {
        d.campos.append({.etiqueta = QString::fromUtf8(ordinales[n - 1]),
                         .columna = QStringLiteral("vto%1").arg(n),
                         .ancho = 5,
                         .unidad = QStringLiteral("días"),
                         .filtra = false});
        d.campos.append({.etiqueta = QStringLiteral("Porcentaje"),
                         .columna = QStringLiteral("pct%1").arg(n),
                         .tipo = Tipo::Numero,
                         .ancho = 8,
                         .unidad = QStringLiteral("%"),
                         .filtra = false});
    }
    d.filas = {{0}, {1}, {2, 3}, {4, 5}, {6, 7}, {8, 9}};
    d.columnas = {{QStringLiteral("Código"), QStringLiteral("codigo_pago"), 90},
                  {QStringLiteral("Descripción"), QStringLiteral("descripcion"), 300}};
    d.mensajeExiste = 1013;
    d.mensajeFalta = 1014;
    d.pregunta = [](const QString& codigo) {
        return QStringLiteral("¿Desea eliminar la forma de pago ") + codigo + u'?';
    };
    const auto escribir = [](auto operacion) {
        return [operacion](const QStringList& v) {
            operacion(*sesion_conexion, sesion_empresa, v[0], v[1], v[2], leerDouble(v[3]), v[4],
                      leerDouble(v[5]), v[6], leerDouble(v[7]), v[8], leerDouble(v[9]),
                      sesion_usuario);
        };
    };
    d.insertar = escribir(&FormasPago::Insert);
    d.actualizar = escribir(&FormasPago::Update);
    d.borrar = [](const QString& codigo) {
        FormasPago::Delete(*sesion_conexion, sesion_empresa, codigo);
    };
    d.listar = [](const QString& condicion, const QString& orden) {
        return FormasPago::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

class FrmFormasPago : public FormularioMantenimiento {
public:
    FrmFormasPago() : FormularioMantenimiento(declaracionFormasPago()) {
        habituales::OfrecerEn(this, habituales::Tabla::FormasPago);
        tamanoInicial(600, 460);
    }

    // The due dates must share out exactly the whole amount: the percentages are added as
    // floating point and their sum compared with 100 without rounding. The days are not
    // judged. The first due date is required; a percentage needs its days and days their
    // percentage.
    bool validarDatos() override {
        double total = 0;
        for (int i = 0; i < 10; ++i) {
            const bool vacio = txt(i)->text().isEmpty();
            if (i <= 3 && vacio) return rechazar(i, 1000);
            if ((i == 4 || i == 6 || i == 8) && !vacio && txt(i + 1)->text().isEmpty())
                return rechazar(i + 1, 1008);
            if (i % 2 == 0 || i < 3 || vacio) continue;
            if (txt(i - 1)->text().isEmpty()) {
                // The focus goes on to the next due date's days; after the fourth percentage
                // there is no such field, and the save ends there.
                if (i == 9) {
                    MsgBox(MensajeError(1009), Icono::Critico);
                    MostrarError(Error(errores::kElementoDeMatriz,
                                       QStringLiteral("No existe el elemento 10 de la matriz de "
                                                      "controles")));
                    return false;
                }
                return rechazar(i + 1, 1009);
            }
            bool leido = false;
            Protegido([&] {
                total += leerDouble(txt(i)->text());
                leido = true;
            });
            if (!leido) return false;
        }
        if (total != 100.0) {
            MsgBox(MensajeError(1010), Icono::Critico);
            return false;
        }
        for (int i = 2; i < 10; ++i)
            if (txt(i)->text().isEmpty()) ponerTexto(i, QStringLiteral("0"));
        return true;
    }

protected:
    QString clave(const QStringList& fila) const override {
        return QStringLiteral("K") + fila.value(0).trimmed();
    }

private:
    bool rechazar(int foco, int mensaje) {
        txt(foco)->setFocus();
        MsgBox(MensajeError(mensaje), Icono::Critico);
        return false;
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmFormasPago() {
    return new FrmFormasPago;
}
