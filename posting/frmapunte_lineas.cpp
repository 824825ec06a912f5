// The fields of the entry form, the header and main line, and the counterpart tab with the
// line list.
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/apuntes.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/barra.h"
#include "forms/campos.h"
#include "forms/estado.h"
#include "forms/lista.h"
#include "forms/msgbox.h"
#include "frmapunte.h"
#include "grabacion.h"
#include "validacion.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QToolBar>

void frmApunte::alFoco(int i) {
    Boton(toolbar_, claves::lupa)->setEnabled(!txt_[i]->property("Tag").toString().isEmpty());
    if (i == 54) ContrapartidaAutomatica();
    // A counterpart line's concept is the entry's unless the user writes another; it arrives
    // selected, so that typing replaces it.
    if (i == 57 && txt_[57]->text().isEmpty()) ponerTexto(57, txt_[8]->text());
}

bool frmApunte::comprobar(int i) {
    QString texto = txt_[i]->text();
    // A number drawn for this entry and no longer in its field goes back to its series before
    // anything else is drawn: another "0" then receives it again.
    if (i == 2 && tomado_ && texto.toUpper() != tomado_->texto) devolverNumero();
    const bool sacarNumero = i == 2 && texto == u"0";
    int codigo = 0;
    QString descripcion;
    const bool hecho = Protegido([&] {
        if (i <= 8)
            codigo =
                validacion::ValidarCabecera(i, texto, txt_[1]->text(), documento_, &descripcion);
        else if (i >= RejillaIva::kPrimero && i <= RejillaIva::kUltimo)
            codigo = rejilla_.ValidarImpuestos(i, texto);
        else if (i >= 49 && i <= 51)
            codigo = validacion::ValidarVencimiento(i, texto);
        else if (i >= 54 && i <= 56)
            codigo = validacion::ValidarContrapartida(i, texto, &descripcion);
    });
    if (texto != txt_[i]->text()) ponerTexto(i, texto);
    if (!hecho) return false;
    if (sacarNumero) anotarNumero(texto);
    if (i == 54) des54_->setText(codigo == 0 ? descripcion : QString());
    if (codigo != 0) {
        MsgBox(MensajeError(codigo), Icono::Critico);
        return false;
    }
    if ((i == 0 || i == 5) && !texto.isEmpty()) (i == 0 ? des0_ : des5_)->setText(descripcion);
    if (i == 1 && tomado_ && texto != tomado_->documento) cambiarDocumentoDelNumero(texto);
    return true;
}

void frmApunte::alSalir(int i) {
    if (i == 1) {
        Protegido([this] { leerDocumento(); });
    } else if (i == 2 && !txt_[1]->text().isEmpty() && !txt_[2]->text().isEmpty()) {
        Protegido([this] { CargarAsiento(); });
    } else if ((i == 5 || i == 6) && !txt_[5]->text().isEmpty() && !txt_[6]->text().isEmpty()) {
        Protegido([this] { PrepararIvaCartera(); });
    } else if (RejillaIva::fila(i) > 0 && pestana() == 2) {
        seguirRejilla(i);
    }
}

// --- The tax grid ----------------------------------------------------------------------------

void frmApunte::leerRejilla() {
    for (int i = RejillaIva::kPrimero; i <= RejillaIva::kUltimo; ++i)
        rejilla_.ponerTxt(i, txt_[i]->text());
}

void frmApunte::mostrarRejilla() {
    for (int i = RejillaIva::kPrimero; i <= RejillaIva::kUltimo; ++i)
        if (txt_[i]->text() != rejilla_.txt(i)) ponerTexto(i, rejilla_.txt(i));
}

// The grid's field being typed in was never left when a tab is clicked: it is checked and its
// figures follow, as when it is left.
bool frmApunte::revisarImpuestos() {
    const int i = campoEnFoco();
    if (RejillaIva::fila(i) == 0) return true;
    if (!comprobar(i)) {
        txt_[i]->setFocus();
        return false;
    }
    return seguirRejilla(i);
}

// What follows on the grid from leaving field i, computed on the texts of the screen.
bool frmApunte::seguirRejilla(int i) {
    leerRejilla();
    const bool hecho = Protegido([&] { rejilla_.alSalir(i); });
    mostrarRejilla();
    return hecho;
}

// On leaving the account or the amount of the main line: the third party's counterpart for
// the last tab, a fresh split of the amount for the tax tab and fresh due dates for the
// portfolio tab, whatever they held. An account of no third party proposes no due dates.
void frmApunte::PrepararIvaCartera() {
    if (!Paginas[2] && !Paginas[3]) return;
    const std::optional<TerceroCuenta> tercero = catalogo_.tercero(txt_[5]->text());
    if (tercero) CtaContrapartida = tercero->contrapartida;
    if (Paginas[2]) {
        rejilla_.Proponer(tercero, txt_[6]->text());
        mostrarRejilla();
    }
    if (Paginas[3] && tercero) ProponerVencimientos(tercero);
}

// A refusal keeps the user on the tax tab with the reason.
bool frmApunte::GenerarLineasIva() {
    leerRejilla();
    const bool hecho = Protegido([this] {
        rejilla_.GenerarLineasIva(lineas_, txt_[3]->text(), txt_[8]->text(), documento_.partida);
    });
    TotalesAsiento();
    return hecho;
}

void frmApunte::leerDocumento() {
    const std::optional<DocumentoApunte> d = CargarDocumento(txt_[1]->text());
    if (!d) {
        Paginas[2] = Paginas[3] = Paginas[4] = false;
        return;
    }
    documento_ = *d;
    Paginas = d->paginas();
    // A document without VAT leaves no VAT behind from the one typed before it.
    if (!Paginas[2]) {
        rejilla_.limpiar();
        mostrarRejilla();
        for (const char* tipo : {"IVA", "RE", "IRPF"})
            lineas_.BorrarLineasTipo(QLatin1StringView(tipo));
        TotalesAsiento();
    }
}

void frmApunte::GenerarPartida() {
    lineas_.BorrarLineasTipo(QStringLiteral("P"));
    const double importe = formato::leerNumero(txt_[6]->text()).value_or(0);
    const bool debe = documento_.partida == u"D";
    lineas_.AnadirLinea(0, txt_[3]->text(), txt_[5]->text(), debe ? importe : 0, debe ? 0 : importe,
                        txt_[8]->text(), QStringLiteral("P"));
    TotalesAsiento();
}

void frmApunte::CargarAsiento() {
    AsientoLeido a = LeerAsiento(*sesion_conexion, txt_[1]->text(), txt_[2]->text());
    if (!a.encontrado) return;
    if (!a.cabecera.documento.isEmpty()) {
        const QString empresa = QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa);
        ponerTexto(0, a.cabecera.diario);
        des0_->setText(NzTexto(Auxiliar::vBuscarCampo(
            QStringLiteral("Diarios"), QStringLiteral("descripcion"),
            empresa + QStringLiteral(" AND codigo_diario = ") + sqlTexto(a.cabecera.diario))));
        ponerTexto(3, a.cabecera.fecha);
        ponerTexto(4, a.cabecera.fechaDocumento);
        ponerTexto(5, a.cuenta);
        des5_->setText(NzTexto(Auxiliar::vBuscarCampo(
            QStringLiteral("Cuentas"), QStringLiteral("descripcion"),
            empresa + QStringLiteral(" AND cuenta = ") + sqlTexto(a.cuenta))));
        ponerTexto(6, textoPantalla(documento_.partida == u"D" ? a.debe : a.haber));
        ponerTexto(7, a.cabecera.referencia);
        ponerTexto(8, a.concepto);
    }
    lineas_ = a.lineas;
    TotalesAsiento();
    rejilla_.limpiar();
    rejilla_.Cargar(*sesion_conexion, sesion_empresa, sesion_delegacion, txt_[1]->text(),
                    txt_[2]->text(), lineas_);
    mostrarRejilla();
    alta_.limpiar();
    if (documento_.cartera == u"A")
        alta_.Cargar(*sesion_conexion, sesion_empresa, sesion_delegacion, txt_[1]->text(),
                     txt_[2]->text());
    mostrarAlta();
    gestion_.limpiar();
    mostrarGestion();
    // Shown, not edited: the tabs can be walked, the entry left or deleted. A number just
    // drawn that turns out to be a stored entry's is that entry's: it does not go back.
    tomado_.reset();
    mostrando_ = true;
    activarMarcos(false);
    Boton(toolbar_, claves::insertar)->setEnabled(false);
    tabs_->setFocus();
}

// --- The counterpart tab and the line list ---------------------------------------------------

void frmApunte::anadirContrapartida() {
    // The fields are checked again: a click on the button does not wait for a refused field.
    for (int i = 54; i <= 56; ++i)
        if (!comprobar(i)) {
            txt_[i]->setFocus();
            return;
        }
    const QString cuenta = txt_[54]->text();
    const std::optional<double> debe = formato::leerNumero(txt_[55]->text());
    const std::optional<double> haber = formato::leerNumero(txt_[56]->text());
    // A zero or incomplete line is dropped without a word; a debit wins over a credit.
    if (!cuenta.isEmpty() && (debe || haber) && (debe.value_or(0) != 0 || haber.value_or(0) != 0)) {
        const double d = debe.value_or(0);
        Protegido([&] {
            lineas_.AnadirLinea(0, txt_[3]->text(), cuenta, d, d == 0 ? haber.value_or(0) : 0,
                                txt_[57]->text(), QStringLiteral("CP"));
        });
        TotalesAsiento();
    }
    for (int i = 54; i <= 57; ++i) ponerTexto(i, QString());
    des54_->clear();
    txt_[54]->setFocus();
}

void frmApunte::ContrapartidaAutomatica() {
    const double saldo = lineas_.saldo();
    if (saldo == 0 || tabs_->tabText(tabs_->currentIndex()) != QStringLiteral("Contrapartida") ||
        CtaContrapartida.isEmpty())
        return;
    // The line takes the balance itself, not its text: the entry then balances exactly.
    const double debe = saldo <= 0 ? -saldo : 0, haber = saldo <= 0 ? 0 : saldo;
    ponerTexto(54, CtaContrapartida);
    ponerTexto(saldo <= 0 ? 55 : 56, textoPantalla(saldo <= 0 ? debe : haber));
    ponerTexto(57, txt_[8]->text());
    const QString cuenta = CtaContrapartida;
    CtaContrapartida.clear();  // once per reading of the third party
    Protegido([&] {
        lineas_.AnadirLinea(0, txt_[3]->text(), cuenta, debe, haber, txt_[8]->text(),
                            QStringLiteral("CP"));
    });
    TotalesAsiento();
    for (int i = 54; i <= 57; ++i) ponerTexto(i, QString());
    des54_->clear();
}

void frmApunte::alActivarLinea(QTreeWidgetItem* fila) {
    const QString tipo = fila->text(6);
    if (tipo == u"P") {
        bajarHasta(1);
    } else if (tipo == u"IVA" || tipo == u"RE" || tipo == u"IRPF") {
        bajarHasta(2);
    } else if (tipo == u"GC") {
        bajarHasta(3);
    } else if (tipo == u"CP" && !mostrando_) {
        // A counterpart line goes back to the fields, to be corrected and added again.
        const LineaApunte l = lineas_.quitar(fila->text(0).toInt());
        ponerTexto(54, l.cuenta);
        ponerTexto(55, textoPantalla(l.debe));
        ponerTexto(56, textoPantalla(l.haber));
        ponerTexto(57, l.concepto);
        QString cuenta = l.cuenta, descripcion;
        Protegido([&] { validacion::ValidarContrapartida(54, cuenta, &descripcion); });
        des54_->setText(descripcion);
        TotalesAsiento();
        txt_[54]->setFocus();
    }
}

void frmApunte::TotalesAsiento() {
    lista_->limpiar();
    for (const LineaApunte& l : lineas_.lineas()) {
        QTreeWidgetItem* fila =
            lista_->agregar(LineasAsiento::clave(l.numero),
                            {LineasAsiento::textoNumero(l.numero), l.fecha, l.cuenta,
                             textoPantalla(l.debe), textoPantalla(l.haber), l.concepto, l.tipo});
        fila->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
        fila->setTextAlignment(4, Qt::AlignRight | Qt::AlignVCenter);
    }
    ponerTexto(58, textoPantalla(lineas_.debe()));
    ponerTexto(59, textoPantalla(lineas_.haber()));
    ponerTexto(60, textoPantalla(lineas_.saldo()));
}

// --- Storing and deleting --------------------------------------------------------------------

void frmApunte::GrabarAsiento() {
    const int codigo = validacion::ValidarAsiento(txt_[3]->text(), lineas_.saldo());
    if (codigo != 0) {
        MsgBox(MensajeError(codigo), Icono::Critico);
        return;
    }
    const CabeceraAsiento cabecera{txt_[0]->text(), txt_[1]->text(), txt_[2]->text(),
                                   txt_[3]->text(), txt_[4]->text(), txt_[7]->text()};
    // Whole or nothing: a failure leaves the store as it was and the entry on the screen.
    leerRejilla();
    const QString cuenta = txt_[5]->text();
    int grabadas = 0;
    if (!Protegido([&] {
            grabadas = ::GrabarAsiento(
                *sesion_conexion, cabecera, lineas_, sesion_usuario, [&](Conexion& c) {
                    rejilla_.InsertarRegistros(c, sesion_empresa, sesion_delegacion,
                                               cabecera.documento, cabecera.numero, cuenta,
                                               sesion_usuario);
                    if (documento_.cartera == u"A")
                        alta_.InsertarCartera(c, sesion_empresa, sesion_delegacion,
                                              cabecera.documento, cabecera.numero,
                                              catalogo_.tercero(cuenta), sesion_usuario);
                    else if (documento_.cartera == u"C" || documento_.cartera == u"P")
                        gestion_.CerrarEfectos(c, sesion_empresa, sesion_delegacion, cabecera.fecha,
                                               cabecera.documento, cabecera.numero, sesion_usuario);
                });
        }))
        return;
    tomado_.reset();  // the number is the stored entry's for good
    estado::mostrar(QStringLiteral("Asiento %1 grabado, %2")
                        .arg(cabecera.numero, grabadas == 1
                                                  ? QStringLiteral("1 línea")
                                                  : QStringLiteral("%1 líneas").arg(grabadas)));
    LimpiarPantalla();
}

void frmApunte::BorrarAsiento() {
    // A number typed and not yet left is read as leaving it would (capitals, the entry shown);
    // a "0" is not turned into a number of the series only to be asked about.
    const int enFoco = campoEnFoco();
    if (enFoco >= 0 && enFoco <= 8 && !mostrando_ && txt_[enFoco]->text() != u"0") {
        if (!comprobar(enFoco)) return;
        alSalir(enFoco);
    }
    const QString documento = txt_[1]->text(), numero = txt_[2]->text();
    if (documento.isEmpty() || numero.isEmpty()) return;
    if (MsgBox(QStringLiteral("¿Desea eliminar el asiento ") + documento + u'/' + numero +
                   QStringLiteral("? (Los datos relacionados con el asiento también se "
                                  "eliminarán)"),
               Icono::Pregunta) != Respuesta::Si)
        return;
    if (Protegido([&] {
            Apuntes::Delete(*sesion_conexion, sesion_empresa, sesion_delegacion, documento, numero,
                            0, false);
        }))
        descartarTrabajo();  // a new entry's number, never stored, goes back
}
