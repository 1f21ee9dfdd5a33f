#pragma once

#include "canvas/qviewbox.h"

// Resizes the selected pictures by a percentage of their own size, 25 to 200 on each
// side, around their middle when "Recentrer" is ticked.
class QResizeBox : public QViewBox
{
    Q_OBJECT

public:
    QResizeBox(QLayer* layer, QLayerList* list, QWidget* parent = nullptr);

protected:
    void applyRetouch() override;

private:
    QSpinBox* m_widthBox;
    QSpinBox* m_heightBox;
    QCheckBox* m_recenterBox;
};
