#include "formularios_empresa.h"

#include "forms/formularios.h"
#include "forms/mantenimiento.h"

void registrarFormulariosEmpresa() {
    const struct {
        const char* nombre;
        FormularioMantenimiento* (*fabrica)();
    } formas[] = {
        {"frmEmpresas", nuevoFrmEmpresas},
        {"frmDelegaciones", nuevoFrmDelegaciones},
        {"frmEjercicios", nuevoFrmEjercicios},
        {"frmNumeracion", nuevoFrmNumeracion},
        {"frmCuentas", nuevoFrmCuentas},
        {"frmDocumentos", nuevoFrmDocumentos},
        {"frmDiarios", nuevoFrmDiarios},
        {"frmImpuestos", nuevoFrmImpuestos},
        {"frmIrpf", nuevoFrmIrpf},
        {"frmFormasPago", nuevoFrmFormasPago},
        {"frmPersonal", nuevoFrmPersonal},
        {"frmAcrdeu", nuevoFrmAcrdeu},
    };
    for (const auto& f : formas)
        formularios::registrar(QString::fromLatin1(f.nombre), [fabrica = f.fabrica] {
            return static_cast<Formulario*>(fabrica());
        });
}
