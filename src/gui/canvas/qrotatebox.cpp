#include "canvas/qrotatebox.h"

#include "document/character.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>

QRotateBox::QRotateBox(QLayer* layer, QLayerList* list, QWidget* parent)
    : QViewBox(layer, list, "Rotation", parent)
{
    setWindowTitle(QStringLiteral("Rotation"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/rotation.png")));
    controls()->addWidget(
        new QLabel(QStringLiteral("Choisissez l'angle de rotation (sens horaire)"), this), 0, 0, 1,
        3);
    const SliderRow angle =
        addSliderRow(1, QStringLiteral("Angle"), -180, 180, 0, QStringLiteral("°"));
    angle.slider->setFixedWidth(200);
    m_angleBox = angle.spinBox;
    optionBox()->setText(QStringLiteral("Lissage"));
}

void QRotateBox::applyRetouch()
{
    character()->rotateSelection(double(m_angleBox->value()), optionBox()->isChecked(), true);
}
