#pragma once

#include <QString>

class QTreeWidget;
class QWidget;

// Window positions and list column widths in Saldeva.ini, one section per form. Values are
// kept in twips (15 to a pixel), so that the file reads as the system has always written it.
namespace geometria {

constexpr int kTwipsPorPixel = 15;

// Left, Top, Width, Height of the window (the frame of an MDI child), its current values as
// the defaults.
void restaurar(QWidget* ventana, const QString& seccion);
// Nothing is written for a minimised window.
void guardar(const QWidget* ventana, const QString& seccion);

// The width of each column under prefijo plus its number as two digits, from 01.
void restaurarColumnas(QTreeWidget* lista, const QString& seccion,
                       const QString& prefijo = QStringLiteral("Grid_C"));
void guardarColumnas(const QTreeWidget* lista, const QString& seccion,
                     const QString& prefijo = QStringLiteral("Grid_C"));

}  // namespace geometria
