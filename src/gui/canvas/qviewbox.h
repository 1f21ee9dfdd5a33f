#pragma once

#include <QByteArray>
#include <QDialog>
#include <QPointer>

class Character;
class QCheckBox;
class QGridLayout;
class QHBoxLayout;
class QLayer;
class QLabel;
class QLayerList;
class QPushButton;
class QSlider;
class QSpinBox;

// The base of the retouch boxes: a window-modal dialog that changes the selected
// pictures of one document with a live preview on its canvas. It takes the model's
// snapshot when it opens; every preview replays the retouch from that snapshot, so
// that moving a control never adds up, and leaving the box either keeps the last
// values under one history step or puts the model back as it was.
class QViewBox : public QDialog
{
    Q_OBJECT

public:
    // The box works on layer's character and, when validated, redraws list's thumbnails.
    // label names the history step of a validation.
    QViewBox(QLayer* layer, QLayerList* list, const QByteArray& label, QWidget* parent = nullptr);

    QCheckBox* apercuBox() const { return m_apercuBox; }
    QCheckBox* optionBox() const { return m_optionBox; }
    QPushButton* validButton() const { return m_validButton; }
    QPushButton* cancelButton() const { return m_cancelButton; }
    bool isDone() const { return m_done; }

public slots:
    void changeApercu(bool new_apercu);
    void cancelModif();
    virtual void updateApercu();
    virtual void validModif();
    // Escape comes here without a close event, and the frame's close button through
    // the close event: either way an open box puts the model back.
    void reject() override;

protected:
    // Runs the retouch with the controls' values, as a preview from the snapshot.
    virtual void applyRetouch() = 0;

    Character* character() const { return m_character; }
    // The subclass's controls go in this grid, above the check boxes and buttons.
    QGridLayout* controls() const { return m_controls; }
    // A further check box beside "Apercu" and the option.
    void addCheckBox(QCheckBox* box);
    // A row of the grid: a label, then a horizontal slider and a spin box wired both
    // ways so that they show one value, the spin box driving the preview.
    struct SliderRow
    {
        QLabel* label;
        QSlider* slider;
        QSpinBox* spinBox;
    };
    SliderRow addSliderRow(int row, const QString& label, int minimum, int maximum, int value,
                           const QString& suffix);

private:
    void restoreAndLeave();

    QPointer<QLayer> m_layer;
    Character* m_character;
    QPointer<QLayerList> m_layerList;
    QByteArray m_label;
    bool m_done = false;
    QCheckBox* m_apercuBox;
    QCheckBox* m_optionBox;
    QPushButton* m_validButton;
    QPushButton* m_cancelButton;
    QGridLayout* m_controls;
    QHBoxLayout* m_checkBoxes;
};
