#include "prueba_formularios.h"

#include "forms/formulario.h"
#include "forms/formularios.h"
#include "gui_prueba.h"

#include <QtTest>

void PruebaFormularios::initTestCase() {
    CREAR_ALMACEN(almacen);
    silenciarAvisosDePlataforma();
    registrar_();
}

void PruebaFormularios::init() {
    almacen->nuevo();
    if (preparar_) preparar_();
}

void PruebaFormularios::cleanup() {
    for (Formulario* f : formularios::abiertos()) delete f->ventana();
}
