#include "colour/qcolorbox.h"

#include "app/prompts.h"
#include "app/qlabelclickable.h"
#include "colour/qcolorlittlebox.h"
#include "colour/qcolorpalette.h"
#include "colour/qcolorslide.h"
#include "colour/qspectrum.h"
#include "formats/filenames.h"
#include "imaging/classichsv.h"
#include "settings/datafolder.h"
#include "settings/settings.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

constexpr int SlideTypes[7] = {QColorSlide::Red,  QColorSlide::Green,      QColorSlide::Blue,
                               QColorSlide::Hue,  QColorSlide::Saturation, QColorSlide::Value,
                               QColorSlide::Alpha};

QColor withAlphaOf(const QColor& rgb, int alpha)
{
    return QColor(rgb.red(), rgb.green(), rgb.blue(), alpha);
}

} // namespace

QColorBox::QColorBox(QColor* primary, QColor* secondary, Form form, QWidget* parent)
    : QDialog(parent), m_primary(primary), m_secondary(secondary), m_form(form)
{
    // The panel lives in a dock, not in a window of its own.
    if (form == Panel)
        setWindowFlags(Qt::Widget);
    buildControls();
    updateColor(*m_primary, false, -1, true);
    changeAlpha(m_primary->alpha(), -1);
}

void QColorBox::buildControls()
{
    m_spectrum = new QSpectrum(200, this);
    for (int i = 0; i < 7; ++i) {
        m_slides[size_t(i)] = new QColorSlide(SlideTypes[i], this);
        m_spins[size_t(i)] = new QSpinBox(this);
        m_spins[size_t(i)]->setRange(0, i == Hue ? 360 : 255);
    }
    m_hexaEdit = new QLineEdit(this);
    m_hexaEdit->setMaxLength(6);
    m_hexaEdit->setFixedWidth(60);
    m_colorIndex = new QComboBox(this);
    m_colorIndex->addItem(QStringLiteral("Couleur primaire"));
    m_colorIndex->addItem(QStringLiteral("Couleur secondaire"));
    m_addButton = new QPushButton(QIcon(QStringLiteral(":/icon/addToPalette.png")),
                                  QStringLiteral("Ajouter la couleur"), this);
    m_addButton->setCheckable(true);
    m_addButton->setToolTip(QStringLiteral("Ajoute la couleur active à la palette"));
    m_palette = new QColorPalette(10, 10, 20, 6, this);

    QVBoxLayout* channels = new QVBoxLayout;
    const auto group = [&](const QString& title, QGridLayout* grid) {
        QGroupBox* box = new QGroupBox(title, this);
        box->setLayout(grid);
        channels->addWidget(box);
    };
    group(QStringLiteral("Rouge Vert Bleu"), channelGrid({{QStringLiteral("R"), Red},
                                                          {QStringLiteral("V"), Green},
                                                          {QStringLiteral("B"), Blue}}));
    group(QStringLiteral("Teinte Saturation Valeur"),
          channelGrid({{QStringLiteral("T"), Hue},
                       {QStringLiteral("S"), Saturation},
                       {QStringLiteral("V"), Value}}));
    group(QStringLiteral("Transparence"), channelGrid({{QString(), Alpha}}));
    channels->addStretch();

    QHBoxLayout* top = new QHBoxLayout;
    top->addWidget(m_spectrum, 0, Qt::AlignTop);
    top->addLayout(channels);

    QHBoxLayout* hexa = new QHBoxLayout;
    hexa->addWidget(new QLabel(QStringLiteral("#"), this));
    hexa->addWidget(m_hexaEdit);
    hexa->addStretch();

    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    if (m_form == Panel) {
        hexa->addWidget(new QLabel(QStringLiteral("Couleur active"), this));
        hexa->addWidget(m_colorIndex);
        layout->addLayout(hexa);
        layout->addWidget(panelSwatches());
    } else {
        m_colorIndex->hide();
        m_primaryBox = new QColorLittleBox(m_primary, true, this);
        hexa->addWidget(new QLabel(QStringLiteral("Couleur actuelle"), this));
        hexa->addWidget(m_primaryBox);
        layout->addLayout(hexa);
        layout->addWidget(m_addButton, 0, Qt::AlignLeft);
    }
    layout->addWidget(m_palette, 0, Qt::AlignHCenter);
    if (m_form == Panel)
        layout->addStretch();
    else
        layout->addWidget(dialogButtons());

    for (int i = 0; i < 6; ++i) {
        connect(m_slides[size_t(i)], &QColorSlide::changeColor, this,
                [this](const QColor& colour) { updateColor(colour, true, -1, true); });
        connect(m_spins[size_t(i)], &QSpinBox::valueChanged, m_slides[size_t(i)],
                &QColorSlide::setValue);
    }
    connect(m_spectrum, &QSpectrum::changeColor, this,
            [this](const QColor& colour) { updateColor(colour, true, -1, true); });
    connect(m_spins[Alpha], &QSpinBox::valueChanged, this,
            [this](int alpha) { changeAlphaLabel(alpha); });
    connect(m_slides[Alpha], &QColorSlide::changeValue, this,
            [this](int alpha) { changeAlpha(alpha); });
    connect(m_colorIndex, &QComboBox::currentIndexChanged, this, &QColorBox::changeIndex);
    connect(m_palette, &QColorPalette::changeColor, this,
            qOverload<const QColor&>(&QColorBox::setColor));
    connect(m_palette, &QColorPalette::added, this, &QColorBox::addedColor);
    connect(m_addButton, &QPushButton::toggled, this, &QColorBox::setAdd);
    connect(m_hexaEdit, &QLineEdit::textEdited, this, &QColorBox::hexa2rgb);
}

QGridLayout* QColorBox::channelGrid(const QList<std::pair<QString, Channel>>& rows)
{
    QGridLayout* grid = new QGridLayout;
    grid->setContentsMargins(4, 2, 4, 2);
    grid->setVerticalSpacing(2);
    int row = 0;
    for (const auto& [letter, channel] : rows) {
        if (!letter.isEmpty())
            grid->addWidget(new QLabel(letter, this), row, 0);
        grid->addWidget(m_slides[size_t(channel)], row, 1);
        grid->addWidget(m_spins[size_t(channel)], row, 2);
        ++row;
    }
    return grid;
}

// The panel's two swatches with the exchange between them, the add button and the
// palette menu.
QWidget* QColorBox::panelSwatches()
{
    QWidget* row = new QWidget(this);
    QHBoxLayout* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_primaryBox = new QColorLittleBox(m_primary, true, row);
    m_secondaryBox = new QColorLittleBox(m_secondary, true, row);
    QLabelClickable* inversion = new QLabelClickable(row);
    inversion->setPixmap(QPixmap(QStringLiteral(":/icon/inversion.png")));
    layout->addWidget(m_primaryBox);
    layout->addWidget(inversion);
    layout->addWidget(m_secondaryBox);
    layout->addStretch();
    layout->addWidget(m_addButton);

    QPushButton* paletteButton = new QPushButton(QStringLiteral("Palette"), row);
    QMenu* menu = new QMenu(paletteButton);
    QAction* save = menu->addAction(QStringLiteral("Enregistrer la palette actuelle"));
    QAction* open = menu->addAction(QStringLiteral("Ouvrir une palette"));
    menu->addSeparator();
    QAction* restore = menu->addAction(QStringLiteral("Restaurer la palette par défaut"));
    paletteButton->setMenu(menu);
    layout->addWidget(paletteButton);

    connect(save, &QAction::triggered, m_palette, &QColorPalette::save);
    connect(restore, &QAction::triggered, m_palette, [this] { m_palette->load(); });
    connect(open, &QAction::triggered, this, &QColorBox::loadPalette);
    connect(inversion, &QLabelClickable::clicked, this, &QColorBox::invertColor);
    connect(m_primaryBox, &QColorLittleBox::clicked, this, &QColorBox::toPrimary);
    connect(m_secondaryBox, &QColorLittleBox::clicked, this, &QColorBox::toSecondary);
    return row;
}

QWidget* QColorBox::dialogButtons()
{
    QWidget* row = new QWidget(this);
    QHBoxLayout* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    QPushButton* accept =
        new QPushButton(QIcon(QStringLiteral(":/icon/ok.png")), QStringLiteral("Valider"), row);
    QPushButton* cancel =
        new QPushButton(QIcon(QStringLiteral(":/icon/remove.png")), QStringLiteral("Annuler"), row);
    accept->setDefault(true);
    layout->addStretch();
    layout->addWidget(accept);
    layout->addWidget(cancel);
    connect(accept, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    return row;
}

QColor QColorBox::getColor(const QColor& initial, QWidget* parent, const QString& title, bool* ok)
{
    QColor chosen = ClassicHsv::toRgb(initial);
    QColor unused = chosen;
    QColorBox box(&chosen, &unused, Dialog, parent);
    box.setWindowTitle(title);
    box.setWindowIcon(QIcon(QStringLiteral(":/icon/ZK.png")));
    box.setFixedSize(box.sizeHint());
    const bool accepted = box.exec() == QDialog::Accepted;
    if (ok)
        *ok = accepted;
    return accepted ? box.activeColor() : initial;
}

// The panel is a dialog in name only: Escape must not hide it in its dock, nor Enter
// press one of its buttons.
void QColorBox::keyPressEvent(QKeyEvent* event)
{
    if (m_form == Panel)
        QWidget::keyPressEvent(event);
    else
        QDialog::keyPressEvent(event);
}

QColor QColorBox::activeColor() const
{
    const QColor& colour = m_colorIndex->currentIndex() == 1 ? *m_secondary : *m_primary;
    return m_withAlpha ? colour : withAlphaOf(colour, 255);
}

QColor QColorBox::otherColor() const
{
    const QColor& colour = m_colorIndex->currentIndex() == 1 ? *m_primary : *m_secondary;
    return m_withAlpha ? colour : withAlphaOf(colour, 255);
}

QColor* QColorBox::target(int forcing) const
{
    if (forcing == 0 || (forcing == -1 && m_colorIndex->currentIndex() == 0))
        return m_primary;
    if (forcing == 1 || (forcing == -1 && m_colorIndex->currentIndex() == 1))
        return m_secondary;
    return nullptr;
}

void QColorBox::colourChanged()
{
    if (m_primaryBox)
        m_primaryBox->update();
    if (m_secondaryBox)
        m_secondaryBox->update();
    if (m_addButton->isChecked())
        m_palette->setAdd(true, activeColor());
}

void QColorBox::updateColor(const QColor& new_color, bool keepAlpha, int forcing, bool toHexa)
{
    m_spectrum->setColor(new_color);
    const QColor rgb = ClassicHsv::toRgb(new_color);
    const ClassicHsv::Components hsv = ClassicHsv::of(new_color);
    const int values[6] = {rgb.red(), rgb.green(), rgb.blue(), hsv.hue, hsv.saturation, hsv.value};
    for (size_t i = 0; i < 6; ++i) {
        // The slider is quiet while its spin box follows, so that the box's change
        // does not come back as a change of colour.
        m_slides[i]->setColor(new_color);
        m_slides[i]->setEmitting(false);
        m_spins[i]->setValue(values[i]);
        m_slides[i]->setEmitting(true);
    }
    if (toHexa) {
        m_hexaEdit->setText(QStringLiteral("%1%2%3")
                                .arg(rgb.red(), 2, 16, QLatin1Char('0'))
                                .arg(rgb.green(), 2, 16, QLatin1Char('0'))
                                .arg(rgb.blue(), 2, 16, QLatin1Char('0')));
    }
    if (!keepAlpha) {
        m_slides[Alpha]->setColor(new_color, true);
        const QSignalBlocker quiet(m_spins[Alpha]);
        m_spins[Alpha]->setValue(rgb.alpha());
    } else {
        m_slides[Alpha]->setColor(new_color);
    }
    if (QColor* colour = target(forcing))
        *colour = withAlphaOf(rgb, colour->alpha());
    colourChanged();
}

void QColorBox::changeAlpha(int new_alpha, int forcing)
{
    {
        const QSignalBlocker quiet(m_spins[Alpha]);
        m_spins[Alpha]->setValue(new_alpha);
    }
    if (QColor* colour = target(forcing))
        colour->setAlpha(new_alpha);
    colourChanged();
}

void QColorBox::changeAlphaLabel(int new_alpha, int forcing)
{
    m_slides[Alpha]->setEmitting(false);
    m_slides[Alpha]->setValue(new_alpha);
    m_slides[Alpha]->setEmitting(true);
    if (QColor* colour = target(forcing))
        colour->setAlpha(new_alpha);
    colourChanged();
}

void QColorBox::changeIndex(int new_index)
{
    const QColor colour = new_index == 1 ? *m_secondary : *m_primary;
    updateColor(colour, false, -1, true);
    changeAlpha(colour.alpha(), -1);
}

void QColorBox::toPrimary()
{
    m_colorIndex->setCurrentIndex(0);
}

void QColorBox::toSecondary()
{
    m_colorIndex->setCurrentIndex(1);
}

void QColorBox::addedColor()
{
    m_addButton->setChecked(false);
}

void QColorBox::setAdd(bool b)
{
    m_palette->setAdd(b, activeColor());
}

void QColorBox::setColor(const QColor& new_color)
{
    const QColor rgb = ClassicHsv::toRgb(new_color);
    *target(-1) = rgb;
    updateColor(rgb, false, -1, true);
    changeAlpha(rgb.alpha(), -1);
}

void QColorBox::setColor(const QColor& new_color, int color_type)
{
    const int index = m_colorIndex->currentIndex();
    if ((color_type == 2 && index == 0) || (color_type == 3 && index == 1)) {
        setColor(new_color);
        return;
    }
    QColor* colour = color_type == 2 ? m_secondary : m_primary;
    *colour = ClassicHsv::toRgb(new_color);
    colourChanged();
}

// Exchanges the two colours, alpha included; the controls then show the active one.
void QColorBox::invertColor()
{
    std::swap(*m_primary, *m_secondary);
    const int active = m_colorIndex->currentIndex();
    const QColor shown = active == 1 ? *m_secondary : *m_primary;
    updateColor(shown, false, active, true);
    changeAlpha(shown.alpha(), active);
}

void QColorBox::loadPalette()
{
    Settings settings;
    QString folder = DataFolder::locate(QStringLiteral("palette"));
    settings.get(QStringLiteral("pathLoadPalette"), folder);
    const QString path = Prompts::instance()->openFileName(
        this, QStringLiteral("Ouvrir une palette"), folder, QColorPalette::fileFilter());
    if (path.isEmpty())
        return;
    const QString directory = directoryOf(path);
    if (!directory.contains(QLatin1Char('?')))
        settings.set(QStringLiteral("Path"), QStringLiteral("pathLoadPalette"), directory);
    settings.set(QStringLiteral("Color"), QStringLiteral("palette"), path);
    if (!m_palette->load(path))
        Prompts::instance()->critical(this, QStringLiteral("Erreur"), m_palette->getErrorMessage());
}

// The field is read from its last character to its first, digits counted from the
// right: blue takes the first two, green the next two, red every one after, so that a
// seventh digit and any further one keep overwriting red. Other characters are passed
// over; channels without digits stay 0.
void QColorBox::hexa2rgb()
{
    const QString text = m_hexaEdit->text().toUpper();
    int channels[3] = {0, 0, 0}; // red, green, blue
    int previous = 0;
    int n = 0;
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
        const char16_t c = text.at(i).unicode();
        int digit = 0;
        if (c >= u'0' && c <= u'9')
            digit = c - u'0';
        else if (c >= u'A' && c <= u'F')
            digit = c - u'A' + 10;
        else
            continue;
        int& channel = channels[n < 2 ? 2 : n < 4 ? 1 : 0];
        channel = n % 2 == 0 ? digit : previous + 16 * digit;
        previous = digit;
        ++n;
    }
    if (n == 0)
        return;
    updateColor(QColor(channels[0], channels[1], channels[2]), true, -1, false);
}
