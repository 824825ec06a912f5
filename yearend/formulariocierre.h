#pragma once

#include "reports/forminforme.h"

class QCheckBox;

// What the three year-end forms share: a report form whose toolbar runs the operation with
// insertar (F2) instead of printing, and that shows the entries it posted through LibroDiario
// and a report file of their own.
class FormularioCierre : public FormularioInforme {
    Q_OBJECT
public:
    // `desactivadas`: the keys that stay off besides those no report form uses.
    FormularioCierre(const QString& nombre, const QString& titulo,
                     const QList<CampoInforme>& campos, const QStringList& desactivadas);

    QCheckBox* chkVerAsiento() const { return chkVerAsiento_; }

protected:
    // The check box below the fields, "Ver asiento generado" and its kind.
    void anadirVerAsiento(const QString& texto);
    // The company's entries of the criterion in LibroDiario, printed with `archivo`; 9000 when
    // there are none.
    void verAsientos(const QString& criterio, const QString& archivo, const QString& titulo);
    // The criterion of a year-end entry of the company: its branch is the company's code.
    static QString criterioAsiento(const QStringList& documentos);

private:
    QCheckBox* chkVerAsiento_ = nullptr;
};
