#include "empresa_prueba.h"

#include "data/entidades/delegaciones.h"
#include "data/entidades/empresas.h"
#include "data/entidades/usuarios.h"
#include "data/entidades/usuariosdelegaciones.h"
#include "data/global.h"

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
