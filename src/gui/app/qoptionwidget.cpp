#include "app/qoptionwidget.h"

#include <QEnterEvent>
#include <QLabel>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {
// Air around the contents so that the lit frame never touches the icon or the texts.
constexpr int VerticalPadding = 4;
constexpr int RightPadding = 10;
constexpr int IconMargin = 4;
constexpr qreal CornerRadius = 6.0;

QColor highlightTone(const QPalette& palette, int alpha)
{
    QColor colour = palette.color(QPalette::Highlight);
    colour.setAlpha(alpha);
    return colour;
}
} // namespace

QOptionWidget::QOptionWidget(QWidget* parent) : QWidget(parent)
{
    setUp();
}

QOptionWidget::QOptionWidget(const QPixmap& icon, QWidget* parent) : QWidget(parent), m_icon(icon)
{
    setUp();
}

QOptionWidget::QOptionWidget(const QPixmap& icon, const QString& caption, QWidget* parent)
    : QWidget(parent), m_icon(icon), m_caption(caption)
{
    setUp();
}

QOptionWidget::QOptionWidget(const QPixmap& icon, const QString& caption, const QString& text,
                             QWidget* parent)
    : QWidget(parent), m_icon(icon), m_caption(caption), m_text(text)
{
    setUp();
}

QOptionWidget::~QOptionWidget() = default;

void QOptionWidget::setUp()
{
    // The labels are never shown: they only lay out and render the rich texts into
    // the state pixmaps. They have no parent, as rendering a child would lay out this
    // row again from inside its own resize; they take its font and palette instead.
    m_captionLabel = std::make_unique<QLabel>(m_caption);
    m_textLabel = std::make_unique<QLabel>(m_text);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
    rebuild();
}

QPixmap QOptionWidget::shownIcon() const
{
    if (!m_scaled || m_icon.isNull())
        return m_icon;
    return m_icon.scaled(m_pixmapSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

int QOptionWidget::leftPartWidth() const
{
    return m_pixmapMargin ? shownIcon().width() + 2 * IconMargin : m_leftMargin;
}

QSize QOptionWidget::textPartSize() const
{
    QSize size;
    for (const QLabel* label : {m_captionLabel.get(), m_textLabel.get()}) {
        if (label->text().isEmpty())
            continue;
        const QSize hint = label->sizeHint();
        size.setWidth(std::max(size.width(), hint.width()));
        size.setHeight(size.height() + hint.height());
    }
    return size.expandedTo(QSize(0, 0));
}

QSize QOptionWidget::sizeHint() const
{
    const QSize texts = textPartSize();
    const int height = std::max(texts.height(), shownIcon().height()) + 2 * VerticalPadding;
    return QSize(leftPartWidth() + texts.width() + RightPadding, height);
}

void QOptionWidget::setIcon(const QPixmap& icon)
{
    m_icon = icon;
    rebuild();
}

void QOptionWidget::setCaption(const QString& caption)
{
    m_caption = caption;
    m_captionLabel->setText(caption);
    rebuild();
}

void QOptionWidget::setText(const QString& text)
{
    m_text = text;
    m_textLabel->setText(text);
    rebuild();
}

void QOptionWidget::setPixmapSize(QSize pixmapSize)
{
    m_pixmapSize = pixmapSize;
    rebuild();
}

void QOptionWidget::setScaled(bool scaled)
{
    m_scaled = scaled;
    rebuild();
}

void QOptionWidget::setPixmapMargin(bool pixmapMargin)
{
    m_pixmapMargin = pixmapMargin;
    rebuild();
}

void QOptionWidget::setLeftMargin(int leftMargin)
{
    m_leftMargin = leftMargin;
    rebuild();
}

void QOptionWidget::setDrawGradientBeforeText(bool drawGradientBeforeText)
{
    m_drawGradientBeforeText = drawGradientBeforeText;
    rebuild();
}

void QOptionWidget::rebuild()
{
    if (!m_captionLabel)
        return;
    for (QLabel* label : {m_captionLabel.get(), m_textLabel.get()}) {
        label->setFont(font());
        label->setPalette(palette());
    }
    updateGeometry();
    // Before a layout has placed the row its size means nothing: use the natural one.
    // Once placed, the row may be wider than its texts, and the frame spans it all.
    QSize size = sizeHint();
    if (testAttribute(Qt::WA_Resized))
        size = size.expandedTo(this->size());
    for (State state : {Rest, Hovered, Pressed})
        m_pixmaps[state] = renderState(state, size);
    update();
}

QPixmap QOptionWidget::renderState(State state, QSize size) const
{
    const qreal ratio = devicePixelRatioF();
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const bool lit = state != Rest;
    if (lit && m_drawGradientBeforeText)
        paintHighlight(&painter, size, state == Pressed);
    paintContents(&painter, size);
    if (lit && !m_drawGradientBeforeText)
        paintHighlight(&painter, size, state == Pressed);
    return pixmap;
}

void QOptionWidget::paintHighlight(QPainter* painter, QSize size, bool reversed) const
{
    const QRectF frame = QRectF(QPointF(0, 0), QSizeF(size)).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath path;
    path.addRoundedRect(frame, CornerRadius, CornerRadius);
    const qreal middle = size.height() / 2.0;
    const QPalette tones = palette();

    // A glassy look: a pale upper half over a denser lower half, both faint enough
    // that the black texts keep their contrast. Pressing turns it upside down.
    QLinearGradient upper(0, 0, 0, middle);
    upper.setColorAt(0.0, highlightTone(tones, 22));
    upper.setColorAt(1.0, highlightTone(tones, 42));
    QLinearGradient lower(0, middle, 0, size.height());
    lower.setColorAt(0.0, highlightTone(tones, 62));
    lower.setColorAt(1.0, highlightTone(tones, 34));

    painter->save();
    painter->setClipPath(path);
    if (reversed) {
        painter->translate(0, size.height());
        painter->scale(1, -1);
    }
    painter->fillRect(QRectF(0, 0, size.width(), middle), upper);
    painter->fillRect(QRectF(0, middle, size.width(), size.height() - middle), lower);
    painter->restore();

    painter->setPen(QPen(highlightTone(tones, 150), 1.0));
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(path);
}

void QOptionWidget::paintContents(QPainter* painter, QSize size) const
{
    const QPixmap icon = shownIcon();
    if (!icon.isNull()) {
        const int x = m_pixmapMargin ? IconMargin : std::max(0, (m_leftMargin - icon.width()) / 2);
        painter->drawPixmap(x, (size.height() - icon.height()) / 2, icon);
    }
    // Only the labels' own drawing: their window background would hide the frame.
    const QSize texts = textPartSize();
    QPoint at(leftPartWidth(), (size.height() - texts.height()) / 2);
    for (QLabel* label : {m_captionLabel.get(), m_textLabel.get()}) {
        if (label->text().isEmpty())
            continue;
        label->resize(label->sizeHint());
        label->render(painter, at, QRegion(), QWidget::DrawChildren);
        at.ry() += label->height();
    }
}

void QOptionWidget::setState(State state)
{
    m_state = state;
    update();
}

void QOptionWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_pixmaps[m_state]);
}

void QOptionWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_pixmaps[Rest].deviceIndependentSize().toSize() != size())
        rebuild();
}

void QOptionWidget::enterEvent(QEnterEvent* event)
{
    QWidget::enterEvent(event);
    setState(Hovered);
    emit hovered();
}

void QOptionWidget::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    setState(Rest);
    emit left();
}

void QOptionWidget::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    setState(Pressed);
    emit clicked();
}

void QOptionWidget::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    setState(Hovered);
    emit release();
}

void QOptionWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::PaletteChange:
    case QEvent::FontChange:
    case QEvent::StyleChange:
        rebuild();
        break;
    default:
        break;
    }
}
