#pragma once

#include <QColor>
#include <QDialog>

#include <array>

class QColorLittleBox;
class QColorPalette;
class QColorSlide;
class QComboBox;
class QGridLayout;
class QKeyEvent;
class QLineEdit;
class QPushButton;
class QSpectrum;
class QSpinBox;

// The program's colour chooser, in two forms. The panel, docked in the main window,
// edits a primary and a secondary colour that belong to the caller, so that the paint
// tools read them directly; the dialog (getColor) asks for one colour. Both gather
// the wheel, the channel sliders with their spin boxes, a hexadecimal field and the
// palette. The wheel, the colour sliders and the hexadecimal field change red, green
// and blue only: the active colour keeps its alpha, which has its own controls.
class QColorBox : public QDialog
{
    Q_OBJECT

public:
    enum Form
    {
        Panel,
        Dialog
    };
    // The order of the sliders and their spin boxes.
    enum Channel
    {
        Red,
        Green,
        Blue,
        Hue,
        Saturation,
        Value,
        Alpha
    };

    QColorBox(QColor* primary, QColor* secondary, Form form, QWidget* parent = nullptr);

    // The dialog form, modal, with a fixed size: the colour chosen, or initial with
    // *ok false when the user cancels.
    static QColor getColor(const QColor& initial, QWidget* parent, const QString& title,
                           bool* ok = nullptr);

    // The active colour and the other one, with their alpha when withAlpha holds.
    QColor activeColor() const;
    QColor otherColor() const;

    QSpectrum* spectrum() const { return m_spectrum; }
    QColorSlide* slide(Channel channel) const { return m_slides[size_t(channel)]; }
    QSpinBox* spinBox(Channel channel) const { return m_spins[size_t(channel)]; }
    QLineEdit* hexaEdit() const { return m_hexaEdit; }
    QComboBox* colorIndex() const { return m_colorIndex; }
    QPushButton* addButton() const { return m_addButton; }
    QColorPalette* palette() const { return m_palette; }
    QColorLittleBox* primaryBox() const { return m_primaryBox; }
    QColorLittleBox* secondaryBox() const { return m_secondaryBox; }

public slots:
    // Shows new_color on every control. forcing 0 or 1 names the colour that takes the
    // new red, green and blue (keeping its alpha); -1 names the active one. keepAlpha
    // leaves the alpha controls on their value; toHexa rewrites the hexadecimal field.
    void updateColor(const QColor& new_color, bool keepAlpha = false, int forcing = -1,
                     bool toHexa = true);
    void changeAlpha(int new_alpha, int forcing = -1);
    void changeIndex(int new_index);
    void toPrimary();
    void toSecondary();
    void addedColor();
    void setAdd(bool b);
    // The active colour takes new_color wholly, alpha included.
    void setColor(const QColor& new_color);
    // 2 and 3 are the primary and the secondary colour: the one matching the active
    // index is shown on the controls; the other case, and any other type, only sets
    // the colour.
    void setColor(const QColor& new_color, int color_type);
    void loadPalette();
    void invertColor();
    void changeAlphaLabel(int new_alpha, int forcing = -1);
    void hexa2rgb();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildControls();
    QGridLayout* channelGrid(const QList<std::pair<QString, Channel>>& rows);
    QWidget* panelSwatches();
    QWidget* dialogButtons();
    // Whether forcing (or the active index, for -1) names the primary or the secondary.
    QColor* target(int forcing) const;
    // Every change of a colour ends here: the swatches repaint, and a palette in add
    // mode will store the active colour as it now is.
    void colourChanged();

    QColor* m_primary;
    QColor* m_secondary;
    Form m_form;
    bool m_withAlpha = true;
    QLineEdit* m_hexaEdit = nullptr;
    QComboBox* m_colorIndex = nullptr;
    QPushButton* m_addButton = nullptr;
    std::array<QSpinBox*, 7> m_spins{};
    std::array<QColorSlide*, 7> m_slides{};
    QSpectrum* m_spectrum = nullptr;
    QColorPalette* m_palette = nullptr;
    QColorLittleBox* m_primaryBox = nullptr;
    QColorLittleBox* m_secondaryBox = nullptr;
};
