#include "canvas/qtslbox.h"

#include "document/character.h"
#include "imaging/hslshift.h"

#include <QCheckBox>
#include <QLabel>
#include <QSpinBox>

QTSLBox::QTSLBox(QLayer* layer, QLayerList* list, QWidget* parent)
    : QViewBox(layer, list, "Changement de coloration", parent)
{
    setWindowTitle(QStringLiteral("Coloration"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/cerclechrom.png")));
    const SliderRow hue = addSliderRow(0, QStringLiteral("Teinte"), -180, 180, 0, QString());
    const SliderRow saturation =
        addSliderRow(1, QStringLiteral("Saturation"), -100, 100, 0, QString());
    const SliderRow luminosity =
        addSliderRow(2, QStringLiteral("Luminosité"), -100, 100, 0, QString());
    for (const SliderRow& row : {hue, saturation, luminosity})
        row.label->setFixedWidth(75);
    m_hueBox = hue.spinBox;
    m_saturationBox = saturation.spinBox;
    m_luminosityBox = luminosity.spinBox;
    optionBox()->setText(QStringLiteral("Redéfinir"));
    optionBox()->setToolTip(QStringLiteral("Assigne une même teinte"));
}

void QTSLBox::applyRetouch()
{
    const HslShift shift{float(m_hueBox->value()), float(m_saturationBox->value()),
                         float(m_luminosityBox->value())};
    character()->shiftCharacterHsl(shift, optionBox()->isChecked(), true);
}
