#pragma once

#include "canvas/qviewbox.h"

// Changes the hue, saturation and luminosity of the selected pictures; "Redéfinir"
// gives them all the one hue chosen instead of turning each hue by it.
class QTSLBox : public QViewBox
{
    Q_OBJECT

public:
    QTSLBox(QLayer* layer, QLayerList* list, QWidget* parent = nullptr);

protected:
    void applyRetouch() override;

private:
    QSpinBox* m_hueBox;
    QSpinBox* m_saturationBox;
    QSpinBox* m_luminosityBox;
};
