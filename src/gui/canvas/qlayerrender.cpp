#include "canvas/qlayerrender.h"

#include "app/prompts.h"
#include "document/character.h"
#include "settings/settings.h"

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int MinimumPeriod = 50;
constexpr int MaximumPeriod = 60000;

// The width of the four cells shown: a VX sheet has three columns.
int rowWidth(const Character& character)
{
    const int width = character.sheetSize().width();
    return character.kind() == Character::XP ? width : width * 4 / 3;
}

} // namespace

QLayerRender::QLayerRender(QWidget* parent) : QLabel(parent), m_timer(new QTimer(this))
{
    qint32 period = m_period;
    qint32 background = qint32(m_backgroundColor.rgba());
    Settings settings;
    settings.get(QStringLiteral("periode"), period);
    settings.get(QStringLiteral("backgroundColor"), background);
    // A period edited by hand beyond the dialog's range would stall or race the panel.
    m_period = std::clamp(int(period), MinimumPeriod, MaximumPeriod);
    m_backgroundColor = QColor::fromRgba(QRgb(background));
    // Hovering the button changes its picture.
    setMouseTracking(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);

    m_menu = new QMenu(QStringLiteral("Actions"), this);
    QAction* properties = m_menu->addAction(QIcon(QStringLiteral(":/icon/book.png")),
                                            QStringLiteral("Modifier les propriétés"));
    connect(properties, &QAction::triggered, this, &QLayerRender::showProperty);

    connect(m_timer, &QTimer::timeout, this, &QLayerRender::refresh);
    m_timer->start(m_period);
    refresh();
}

void QLayerRender::setCharacter(Character* character, QObject* owner)
{
    m_character = character;
    m_owner = owner;
    m_hasOwner = owner != nullptr;
}

const Character* QLayerRender::shown() const
{
    if (m_hasOwner && !m_owner)
        return nullptr;
    return m_character;
}

bool QLayerRender::isPlaying() const
{
    return m_timer->isActive();
}

QSize QLayerRender::sizeHint() const
{
    const Character* character = shown();
    if (!character)
        return QLabel::sizeHint();
    return QSize(rowWidth(*character) + ButtonSize, int(character->sheetSize().height() * 0.25));
}

QRect QLayerRender::buttonRect() const
{
    return QRect(m_picture.width() - ButtonSize, 0, ButtonSize, m_picture.height());
}

void QLayerRender::refresh()
{
    const Character* character = shown();
    if (!character)
        return;
    const std::array<QImage, 4> rows = character->composeRows(m_step);
    m_step = (m_step + 1) % 4;
    const QSize cell = character->cellSize();
    const int w = rowWidth(*character);
    const int sheetHeight = character->sheetSize().height();
    const int height = std::max(sheetHeight / 4, ButtonSize);
    const bool rebuilt = cell != m_lastCellSize;
    if (rebuilt) {
        const QSize size(w + ButtonSize, height);
        setMinimumSize(size);
        resize(size);
        setFixedSize(size);
        m_picture = QPixmap(size);
        // A new pixmap holds whatever memory it was given.
        m_picture.fill(Qt::transparent);
    }
    {
        QPainter painter(&m_picture);
        painter.fillRect(QRect(QPoint(0, 0), QPoint(w - 1, height - 1)), m_backgroundColor);
        // A cell lower than the button is centred on the button's height.
        const int y = std::max(int(22.5 - sheetHeight * 0.125), 0);
        for (int i = 0; i < 4; ++i)
            painter.drawImage(i * w / 4, y, rows[size_t(i)]);
    }
    if (rebuilt) {
        drawButton();
        m_lastCellSize = cell;
    } else {
        setPixmap(m_picture);
    }
}

void QLayerRender::drawButton()
{
    if (m_picture.isNull())
        return;
    QString icon;
    if (isPlaying())
        icon = m_hovered ? QStringLiteral(":/icon/pause_hover.png")
                         : QStringLiteral(":/icon/pause.png");
    else
        icon = m_hovered ? QStringLiteral(":/icon/lecture_hover.png")
                         : QStringLiteral(":/icon/lecture.png");
    const QRect button = buttonRect();
    QPainter painter(&m_picture);
    painter.fillRect(button, Qt::white);
    painter.drawPixmap(button.left(), 0, QPixmap(icon));
    painter.end();
    setPixmap(m_picture);
}

void QLayerRender::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && buttonRect().contains(event->position().toPoint())) {
        if (isPlaying())
            m_timer->stop();
        else
            m_timer->start(m_period);
        drawButton();
    } else if (event->button() == Qt::RightButton) {
        m_menu->popup(event->globalPosition().toPoint());
    }
}

void QLayerRender::mouseDoubleClickEvent(QMouseEvent* event)
{
    mouseReleaseEvent(event);
}

void QLayerRender::mouseMoveEvent(QMouseEvent* event)
{
    m_hovered = buttonRect().contains(event->position().toPoint());
    if (m_hovered != m_wasHovered) {
        drawButton();
        m_wasHovered = m_hovered;
    }
}

void QLayerRender::leaveEvent(QEvent*)
{
    m_hovered = false;
    if (m_wasHovered) {
        drawButton();
        m_wasHovered = false;
    }
}

// The dialog opens without a loop of its own, so the preview keeps playing behind it.
void QLayerRender::showProperty()
{
    delete m_propertyDialog;
    m_propertyDialog = new QDialog(this);
    m_propertyDialog->setWindowTitle(QStringLiteral("Propriétés du rendu"));
    m_propertyDialog->setWindowIcon(QIcon(QStringLiteral(":/icon/book.png")));
    m_chosenColor = m_backgroundColor;

    m_periodBox = new QSpinBox(m_propertyDialog);
    m_periodBox->setSuffix(QStringLiteral(" ms"));
    m_periodBox->setRange(MinimumPeriod, MaximumPeriod);
    m_periodBox->setValue(m_period);
    m_stopBox = new QCheckBox(QStringLiteral("Stopper le rendu"), m_propertyDialog);
    m_stopBox->setChecked(!isPlaying());
    QPushButton* colour =
        new QPushButton(QIcon(QStringLiteral(":/icon/cerclechrom.png")),
                        QStringLiteral("Changer la couleur d'arrière plan"), m_propertyDialog);
    QPushButton* accept = new QPushButton(QIcon(QStringLiteral(":/icon/ok.png")),
                                          QStringLiteral("Valider"), m_propertyDialog);
    QPushButton* cancel = new QPushButton(QIcon(QStringLiteral(":/icon/remove.png")),
                                          QStringLiteral("Annuler"), m_propertyDialog);
    accept->setDefault(true);

    QGridLayout* layout = new QGridLayout(m_propertyDialog);
    layout->addWidget(
        new QLabel(QStringLiteral("Temps entre deux mouvements (1000 ms = 1 s)"), m_propertyDialog),
        0, 0);
    layout->addWidget(m_periodBox, 0, 1);
    layout->addWidget(m_stopBox, 1, 0, 1, 2);
    layout->addWidget(colour, 2, 0, 1, 2);
    QHBoxLayout* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(accept);
    buttons->addWidget(cancel);
    layout->addLayout(buttons, 3, 0, 1, 2);

    connect(colour, &QPushButton::clicked, this, &QLayerRender::changeColor);
    connect(accept, &QPushButton::clicked, this, &QLayerRender::changeProperty);
    connect(cancel, &QPushButton::clicked, m_propertyDialog, &QDialog::close);
    m_propertyDialog->open();
}

void QLayerRender::changeColor()
{
    const std::optional<QColor> colour = Prompts::instance()->colour(
        m_propertyDialog ? static_cast<QWidget*>(m_propertyDialog) : this,
        QStringLiteral("Choisir une couleur"), m_chosenColor);
    if (colour)
        m_chosenColor = *colour;
}

void QLayerRender::changeProperty()
{
    if (!m_propertyDialog)
        return;
    m_period = m_periodBox->value();
    m_backgroundColor = m_chosenColor;
    if (!m_stopBox->isChecked())
        m_timer->start(m_period);
    else
        m_timer->stop();
    m_propertyDialog->close();
    drawButton();
    Settings settings;
    settings.set(QStringLiteral("Render"), QStringLiteral("periode"), qint32(m_period));
    settings.set(QStringLiteral("Render"), QStringLiteral("backgroundColor"),
                 qint32(m_backgroundColor.rgba()));
}
