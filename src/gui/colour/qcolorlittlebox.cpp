#include "colour/qcolorlittlebox.h"

#include "imaging/classichsv.h"
#include "imaging/imagechecks.h"

#include <QMouseEvent>
#include <QPainter>

QColorLittleBox::QColorLittleBox(const QColor* colour, bool showAlpha, QWidget* parent)
    : QWidget(parent), m_colour(colour), m_showAlpha(showAlpha)
{
    setFixedSize(50, 20);
    fillChecker(m_background, size(), 5, true, Qt::white, Qt::gray);
}

void QColorLittleBox::setShownColor(const QColor* colour)
{
    m_colour = colour;
    update();
}

void QColorLittleBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(0, 0, m_background);
    if (!m_colour)
        return;
    QColor colour = ClassicHsv::toRgb(*m_colour);
    if (!m_showAlpha)
        colour.setAlpha(255);
    painter.fillRect(1, 1, width() - 2, height() - 2, colour);
}

void QColorLittleBox::mousePressEvent(QMouseEvent* event)
{
    emit clicked(event);
    QWidget::mousePressEvent(event);
}
