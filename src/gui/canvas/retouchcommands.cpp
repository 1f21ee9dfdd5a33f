#include "canvas/retouchcommands.h"

#include "canvas/elementcommands.h"
#include "canvas/qlayer.h"
#include "canvas/qresizebox.h"
#include "canvas/qrotatebox.h"
#include "canvas/qtslbox.h"

void RetouchCommands::finishRetouch(QLayer* layer, const QByteArray& label)
{
    ElementCommands::finishChange(layer, m_list, label);
}

void RetouchCommands::flip(QLayer* layer, bool horizontal, bool vertical)
{
    if (!layer)
        return;
    layer->character()->flipSelection(horizontal, vertical);
    finishRetouch(layer, horizontal ? "Retournement horizontal" : "Retournement vertical");
}

void RetouchCommands::rotateQuarter(QLayer* layer, bool clockwise)
{
    if (!layer)
        return;
    layer->character()->rotateSelection(clockwise ? 90.0 : -90.0, false, false);
    finishRetouch(layer, clockwise ? "Rotation de 90\xb0" : "Rotation de -90\xb0");
}

// The box is the canvas's child, so that it cannot outlive the document it changes.
void RetouchCommands::open(QViewBox* box)
{
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void RetouchCommands::openResizeBox(QLayer* layer)
{
    if (layer)
        open(new QResizeBox(layer, m_list, layer));
}

void RetouchCommands::openRotateBox(QLayer* layer)
{
    if (layer)
        open(new QRotateBox(layer, m_list, layer));
}

void RetouchCommands::openColorationBox(QLayer* layer)
{
    if (layer)
        open(new QTSLBox(layer, m_list, layer));
}
