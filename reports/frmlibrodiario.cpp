#include "frmlibrodiario.h"

#include "data/mensajes.h"
#include "forms/msgbox.h"
#include "librodiario.h"

namespace {
using C = CampoInforme::Clase;
using L = CampoInforme::Limite;
const QList<CampoInforme> kCampos{
    {6, QStringLiteral("Delegación:"), C::Delegacion,
     QStringLiteral("DELEGACIONES.codigo_delegacion"), 24},
    {0, QStringLiteral("Diario:"), C::Texto, QStringLiteral("DIARIOS.codigo_diario"), 24},
    {3, QStringLiteral("Tipo documento:"), C::Texto, QStringLiteral("DOCUMENTOS.codigo_documento")},
    {4,
     QStringLiteral("Documentos:"),
     C::Texto,
     {},
     12,
     false,
     L::Desde,
     QStringLiteral("Documento")},
    {5, QString(), C::Texto, {}, 12, true, L::Hasta},
    {1, QStringLiteral("Fecha:"), C::Fecha, {}, 12, false, L::Desde},
    {2, QString(), C::Fecha, {}, 12, true, L::Hasta},
};
}  // namespace

frmLibroDiario::frmLibroDiario()
    : FormularioInforme(QStringLiteral("frmLibroDiario"), QStringLiteral("Libro Diario"), kCampos) {
    tamanoInicial(520, 260);
}

void frmLibroDiario::ejecutar() {
    CriteriosLibroDiario c;
    c.delegaciones = texto(6);
    c.diarios = texto(0);
    c.tipoDocumento = texto(3);
    c.documentoDesde = texto(4);
    c.documentoHasta = texto(5);
    c.fechaDesde = texto(1);
    c.fechaHasta = texto(2);
    const qint64 lineas =
        llenarLibroDiario(criterioLibroDiario(c), [this](qint64 h, qint64 t) { avanzar(h, t); });
    if (lineas == 0) {
        MsgBox(MensajeError(9000), Icono::Critico);
        return;
    }
    imprimirTabla(QStringLiteral("LibroDiario.rpt"), QStringLiteral("Libro Diario"),
                  formulasLibroDiario(c), consultaLibroDiario());
}
