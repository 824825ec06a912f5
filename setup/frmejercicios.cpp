#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/ejercicios.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/mantenimiento.h"
#include "forms/msgbox.h"
#include "formularios_empresa.h"

#include <QCheckBox>
#include <QDate>
#include <QLineEdit>
#include <cmath>

namespace {

using namespace mantenimiento;

QString comprobarEjercicio(const QString& texto) {
    return formato::IsNumeric(texto) ? QString() : MensajeError(9999);
}

QString comprobarFecha(const QString& texto) {
    return formato::leerFecha(texto) ? QString() : MensajeError(1004);
}

Campo campoFecha(const char* etiqueta, const char* columna, bool obligatorio) {
    return {.etiqueta = QString::fromUtf8(etiqueta),
            .columna = QString::fromLatin1(columna),
            .tipo = Tipo::Fecha,
            .obligatorio = obligatorio,
            .ancho = 10,
            .comprobar = comprobarFecha};
}

// The typed year for a comparison, or 0 when it is no year at all; a save reads it with
// leerEntero16, so that a year beyond 16 bits stops it with "Desbordamiento".
int anio(const QString& texto) {
    const auto n = formato::leerNumero(texto);
    return n && std::fabs(*n) <= 32767 ? int(std::nearbyint(*n)) : 0;
}

Declaracion declaracionEjercicios() {
    Declaracion d;
    d.nombre = QStringLiteral("frmEjercicios");
    d.titulo = QStringLiteral("Ejercicios");
    d.sufijo = QStringLiteral("Ejercicios");
    d.tabla = QStringLiteral("Ejercicios");
    d.alcance = Alcance::Empresa;
    d.orden = QStringLiteral("codigo_empresa, ejercicio");
    d.campos = {
        {.etiqueta = QStringLiteral("E&jercicio:"),
         .columna = QStringLiteral("ejercicio"),
         .tipo = Tipo::Numero,
         .obligatorio = true,
         .ancho = 6,
         .comprobar = comprobarEjercicio},
        campoFecha("Fecha &inicial:", "fecha_inicial", true),
        campoFecha("Fecha &final:", "fecha_final", true),
        campoFecha("Inicio &bloqueo:", "inicio_bloqueo", false),
        campoFecha("Final b&loqueo:", "final_bloqueo", false),
    };
    // One box for both flags: whatever this form saves leaves them equal.
    d.marcas = {{.etiqueta = QStringLiteral("&Cerrado:"), .columna = QStringLiteral("cerrado")}};
    d.columnas = {
        {QStringLiteral("Ejercicio"), QStringLiteral("ejercicio"), 70, Tipo::Numero},
        {QStringLiteral("Fecha inicial"), QStringLiteral("fecha_inicial"), 90, Tipo::Fecha},
        {QStringLiteral("Fecha final"), QStringLiteral("fecha_final"), 90, Tipo::Fecha},
        {QStringLiteral("Inicio bloqueo"), QStringLiteral("inicio_bloqueo"), 90, Tipo::Fecha},
        {QStringLiteral("Final bloqueo"), QStringLiteral("final_bloqueo"), 90, Tipo::Fecha},
        {QStringLiteral("Cerrado"), QStringLiteral("cerrado"), 60},
    };
    d.mensajeExiste = 1031;
    d.mensajeFalta = 1032;
    // A missing year on delete says that it exists: the message is the one of insert.
    d.mensajeBorrarFalta = 1031;
    d.pregunta = [](const QString& codigo) {
        return QStringLiteral("¿Desea eliminar el ejercicio ") + codigo +
               QStringLiteral("? (Los datos relacionados con el ejercicio se eliminarán)");
    };
    d.insertar = [](const QStringList& v) {
        Ejercicios::Insert(*sesion_conexion, sesion_empresa, leerEntero16(v[0]), v[1], v[2], v[3],
                           v[4], v[5], v[5], sesion_usuario, false);
    };
    d.actualizar = [](const QStringList& v) {
        Ejercicios::Update(*sesion_conexion, sesion_empresa, leerEntero16(v[0]), v[1], v[2], v[3],
                           v[4], v[5], v[5], sesion_usuario);
        // The session's dates follow the active year's fields, read as stored dates: they stay
        // unreadable until the next login, which reads them again from the store.
        if (anio(v[0]) == sesion_ejercicio) {
            sesion_fecha_inicial = Auxiliar::dDate(v[1]);
            sesion_fecha_final = Auxiliar::dDate(v[2]);
            sesion_inicio_bloqueo = Auxiliar::dDate(v[3]);
            sesion_final_bloqueo = Auxiliar::dDate(v[4]);
        }
    };
    // The year's row goes for the whole company; its entries only for the session's branch.
    d.borrar = [](const QString& codigo) {
        Ejercicios::Delete(*sesion_conexion, sesion_empresa, sesion_delegacion,
                           leerEntero16(codigo), false);
    };
    d.listar = [](const QString& condicion, const QString& orden) {
        return Ejercicios::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

class FrmEjercicios : public FormularioMantenimiento {
public:
    FrmEjercicios() : FormularioMantenimiento(declaracionEjercicios()) {}

    // A clean form proposes the calendar year.
    void LimpiarCampos() override {
        FormularioMantenimiento::LimpiarCampos();
        ponerTexto(0, QString::number(QDate::currentDate().year()));
    }

    bool validarDatos() override {
        if (!FormularioMantenimiento::validarDatos()) return false;
        if (!solapa()) return true;
        MsgBox(MensajeError(1033), Icono::Critico);
        txt(1)->setFocus();
        return false;
    }

protected:
    bool puedeBorrar(const QString& codigo) override {
        if (anio(codigo) != sesion_ejercicio) return true;
        MsgBox(MensajeError(1030), Icono::Critico);
        return false;
    }

private:
    // Whether either end of the typed range falls inside another year of the company. A range
    // that wholly contains another year has neither end inside it and passes.
    bool solapa() const {
        const QString desde = Auxiliar::sDate(txt(1)->text());
        const QString hasta = Auxiliar::sDate(txt(2)->text());
        Recordset anios = Ejercicios::GetList(
            *sesion_conexion, QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa),
            QString());
        for (; !anios.eof(); anios.moveNext()) {
            const QString p = NzTexto(anios[QStringLiteral("fecha_inicial")]);
            const QString q = NzTexto(anios[QStringLiteral("fecha_final")]);
            const bool dentro = (desde >= p && desde <= q) || (hasta >= p && hasta <= q);
            if (dentro && anios[QStringLiteral("ejercicio")].toInt() != anio(txt(0)->text()))
                return true;
        }
        return false;
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmEjercicios() {
    auto* f = new FrmEjercicios;
    f->LimpiarCampos();
    return f;
}
