#pragma once

#include "canvas/qviewbox.h"

// Turns the selected pictures by a whole number of degrees, -180 to 180, clockwise.
class QRotateBox : public QViewBox
{
    Q_OBJECT

public:
    QRotateBox(QLayer* layer, QLayerList* list, QWidget* parent = nullptr);

protected:
    void applyRetouch() override;

private:
    QSpinBox* m_angleBox;
};
