#include "empresa_prueba.h"

#include "almacen_prueba.h"

#include "data/entidades/delegaciones.h"
#include "data/entidades/empresas.h"
#include "data/entidades/usuarios.h"
#include "data/entidades/usuariosdelegaciones.h"
#include "data/global.h"
#include "forms/formularios.h"
#include "forms/mantenimiento.h"
#include "gui_prueba.h"

#include <QApplication>
#include <QDate>
#include <QLineEdit>
#include <QtTest>

#include <QStringList>

void crearEmpresaPrueba() {
    Conexion& c = *sesion_conexion;
    Empresas::Insert(c, "EMP", "B12345674", "Empresa de prueba", "", "", "", "", "", "", "", "", 8,
                     "PRUEBA", false);
    Delegaciones::Insert(c, "EMP", "SUR", "Delegación sur", "", "", "", "", "", "", "", "",
                         "PRUEBA", false);
    crearUsuario("ANA", "CLAVE", {"EMP"});
}

void crearUsuario(const QString& codigo, const QString& contrasena,
                  const QStringList& delegaciones) {
    Usuarios::Insert(*sesion_conexion, "", "", codigo, contrasena, "PRUEBA", false);
    for (const QString& d : delegaciones)
        UsuariosDelegaciones::Update(*sesion_conexion, codigo, "EMP", d, -1, "PRUEBA");
}

void sesionEmp() {
    sesion_usuario = "ANA";
    sesion_empresa = sesion_delegacion = "EMP";
    sesion_ejercicio = QDate::currentDate().year();
    sesion_digitos = 8;
}

FormularioMantenimiento* abrirMantenimiento(const QString& nombre) {
    auto* f = qobject_cast<FormularioMantenimiento*>(formularios::abrir(nombre));
    if (f) activar(f->ventana());
    return f;
}

void comprobarSalida(FormularioMantenimiento* f, int indice, const QString& texto,
                     const QString& mensaje) {
    Buzon buzon;
    teclear(f->txt(indice), texto);
    QCOMPARE(buzon.textos, mensaje.isEmpty() ? QStringList() : QStringList(mensaje));
    if (mensaje.isEmpty()) {
        QTRY_VERIFY(QApplication::focusWidget() != f->txt(indice));
    } else {
        QCOMPARE(buzon.iconos.value(0), Icono::Critico);
        QTRY_COMPARE(QApplication::focusWidget(), f->txt(indice));
    }
}

void comprobarRechazo(QKeySequence tecla, const QString& tabla, const QString& mensaje) {
    const int antes = filas(tabla);
    Buzon buzon;
    buzon.respuestas << Respuesta::Si;
    pulsar(tecla);
    QCOMPARE(buzon.textos, QStringList(mensaje));
    QCOMPARE(filas(tabla), antes);
}

void rellenar(FormularioMantenimiento* f, const QStringList& campos) {
    for (const QString& c : campos) {
        const qsizetype igual = c.indexOf(u'=');
        teclear(f->txt(c.left(igual).toInt()), c.mid(igual + 1));
    }
}
