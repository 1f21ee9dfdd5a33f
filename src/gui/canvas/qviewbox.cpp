#include "canvas/qviewbox.h"

#include "canvas/elementcommands.h"
#include "canvas/qlayer.h"
#include "canvas/qlayerlist.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

QViewBox::QViewBox(QLayer* layer, QLayerList* list, const QByteArray& label, QWidget* parent)
    : QDialog(parent), m_layer(layer), m_character(layer->character()), m_layerList(list),
      m_label(label), m_apercuBox(new QCheckBox(QStringLiteral("Apercu"), this)),
      m_optionBox(new QCheckBox(this)),
      m_validButton(
          new QPushButton(QIcon(QStringLiteral(":/icon/ok.png")), QStringLiteral("Valider"), this)),
      m_cancelButton(new QPushButton(QIcon(QStringLiteral(":/icon/remove.png")),
                                     QStringLiteral("Annuler"), this)),
      m_controls(new QGridLayout), m_checkBoxes(new QHBoxLayout)
{
    m_character->beginPreview();
    m_apercuBox->setChecked(true);

    QVBoxLayout* layout = new QVBoxLayout(this);
    // The box keeps the size its controls ask for.
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(m_controls);
    m_checkBoxes->addWidget(m_apercuBox);
    m_checkBoxes->addWidget(m_optionBox);
    m_checkBoxes->addStretch();
    layout->addLayout(m_checkBoxes);
    QHBoxLayout* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_validButton);
    buttons->addWidget(m_cancelButton);
    layout->addLayout(buttons);

    connect(m_validButton, &QPushButton::clicked, this, &QViewBox::validModif);
    connect(m_cancelButton, &QPushButton::clicked, this, &QViewBox::cancelModif);
    connect(m_apercuBox, &QCheckBox::toggled, this, &QViewBox::changeApercu);
    connect(m_optionBox, &QCheckBox::toggled, this, &QViewBox::updateApercu);
}

void QViewBox::addCheckBox(QCheckBox* box)
{
    m_checkBoxes->insertWidget(m_checkBoxes->count() - 1, box);
    connect(box, &QCheckBox::toggled, this, &QViewBox::updateApercu);
}

QViewBox::SliderRow QViewBox::addSliderRow(int row, const QString& label, int minimum, int maximum,
                                           int value, const QString& suffix)
{
    SliderRow controls{new QLabel(label, this), new QSlider(Qt::Horizontal, this),
                       new QSpinBox(this)};
    controls.slider->setRange(minimum, maximum);
    controls.slider->setValue(value);
    controls.spinBox->setRange(minimum, maximum);
    controls.spinBox->setValue(value);
    controls.spinBox->setSuffix(suffix);
    controls.slider->setObjectName(label);
    controls.spinBox->setObjectName(label);
    m_controls->addWidget(controls.label, row, 0);
    m_controls->addWidget(controls.slider, row, 1);
    m_controls->addWidget(controls.spinBox, row, 2);
    connect(controls.slider, &QSlider::valueChanged, controls.spinBox, &QSpinBox::setValue);
    connect(controls.spinBox, &QSpinBox::valueChanged, controls.slider, &QSlider::setValue);
    connect(controls.spinBox, &QSpinBox::valueChanged, this, &QViewBox::updateApercu);
    // The keys move the first slider as soon as the box opens.
    if (!focusWidget())
        controls.slider->setFocus();
    return controls;
}

void QViewBox::changeApercu(bool new_apercu)
{
    if (new_apercu) {
        updateApercu();
        return;
    }
    m_character->cancelPreview();
    if (m_layer)
        m_layer->refresh();
}

void QViewBox::updateApercu()
{
    if (m_done || !m_apercuBox->isChecked() || !m_layer)
        return;
    applyRetouch();
    m_layer->refresh();
}

// The values are applied from the snapshot whether or not they were being previewed.
void QViewBox::validModif()
{
    if (m_done || !m_layer)
        return;
    applyRetouch();
    ElementCommands::finishChange(m_layer, m_layerList, m_label);
    m_character->endPreview();
    m_done = true;
    accept();
}

void QViewBox::cancelModif()
{
    reject();
}

void QViewBox::reject()
{
    if (!m_done)
        restoreAndLeave();
    QDialog::reject();
}

void QViewBox::restoreAndLeave()
{
    m_done = true;
    if (!m_layer)
        return;
    m_character->cancelPreview();
    m_character->endPreview();
    m_layer->refresh();
}
