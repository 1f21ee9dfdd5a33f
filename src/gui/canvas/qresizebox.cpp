#include "canvas/qresizebox.h"

#include "document/character.h"

#include <QCheckBox>
#include <QSlider>
#include <QSpinBox>

QResizeBox::QResizeBox(QLayer* layer, QLayerList* list, QWidget* parent)
    : QViewBox(layer, list, "Redimension", parent),
      m_recenterBox(new QCheckBox(QStringLiteral("Recentrer"), this))
{
    setWindowTitle(QStringLiteral("Redimension"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/redimension.png")));
    const SliderRow width =
        addSliderRow(0, QStringLiteral("Largeur"), 25, 200, 100, QStringLiteral(" %"));
    const SliderRow height =
        addSliderRow(1, QStringLiteral("Hauteur"), 25, 200, 100, QStringLiteral(" %"));
    width.slider->setFixedWidth(200);
    height.slider->setFixedWidth(200);
    m_widthBox = width.spinBox;
    m_heightBox = height.spinBox;
    optionBox()->setText(QStringLiteral("Lissage"));
    m_recenterBox->setObjectName(QStringLiteral("Recentrer"));
    m_recenterBox->setChecked(true);
    addCheckBox(m_recenterBox);
}

void QResizeBox::applyRetouch()
{
    character()->resizeSelection(m_widthBox->value() / 100.0, m_heightBox->value() / 100.0,
                                 m_recenterBox->isChecked(), optionBox()->isChecked(), true);
}
