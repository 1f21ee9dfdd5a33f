#pragma once

#include "imaging/gradientrecord.h"

#include <QColor>

// The drawing tool state that the main window owns and every canvas reads through a
// pointer, so that a change of tool reaches all open documents at once.
struct ToolState
{
    enum Tool : quint8
    {
        Select = 0,
        Move = 1,
        Pipette = 2,
        Pen = 3,
        Circle = 4,
        Rectangle = 5,
        Rubber = 6,
        Line = 7
    };

    quint8 tool = Select;
    qint8 rubberMode = 0;   // 0 brush ("Pinceau"), 1 selection ("Sélection")
    int penWidth = 1;
    int penShape = 0;       // 0 "Carré", 1 "Circulaire"
    int paintMode = 0;      // 0 "Couleur unie", 1 "Dégradé"
    int drawMode = 1;       // 0 outline, 1 filled, 2 filled with outline
    int zoneOfEffect = 0;   // 0 targeted cell, 1 selected cells, 2 all cells
    // The paint colours, edited by the colour box, which points at them.
    QColor primary = QColor(Qt::black);
    QColor secondary = QColor(Qt::white);
    // The drawing gradient, edited by the gradient editor.
    GradientRecord gradient;
};
