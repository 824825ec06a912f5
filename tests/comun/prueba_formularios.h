#pragma once

#include "almacen_prueba.h"

#include <QObject>
#include <functional>
#include <memory>

// The frame of a test that drives forms over a store of its own: once, the store (or a skip
// without its server), the platform's warnings silenced and the forms registered; before each
// test, a fresh store prepared with its data; after each, every form left open closed.
class PruebaFormularios : public QObject {
    Q_OBJECT
public:
    PruebaFormularios(std::function<void()> registrar, std::function<void()> preparar)
        : registrar_(std::move(registrar)), preparar_(std::move(preparar)) {}

protected:
    std::unique_ptr<AlmacenPrueba> almacen;

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { almacen.reset(); }

private:
    std::function<void()> registrar_, preparar_;
};
