#pragma once

#include <QByteArray>

class QLayer;
class QLayerList;
class QViewBox;

// The retouches of the selected pictures as the window's menu asks for them: flips
// and quarter turns at once, resize, free rotation and colouring through their boxes.
// Every command takes the canvas it works on and does nothing without one.
class RetouchCommands
{
public:
    void setList(QLayerList* list) { m_list = list; }

    void flip(QLayer* layer, bool horizontal, bool vertical);
    void rotateQuarter(QLayer* layer, bool clockwise);

    // The boxes open window-modal over the canvas and go when they close.
    void openResizeBox(QLayer* layer);
    void openRotateBox(QLayer* layer);
    void openColorationBox(QLayer* layer);

private:
    void finishRetouch(QLayer* layer, const QByteArray& label);
    static void open(QViewBox* box);

    QLayerList* m_list = nullptr;
};
