#include "colour/qgradientrender.h"

#include "imaging/gradientbrushes.h"
#include "imaging/imagechecks.h"

#include <QLineF>
#include <QMouseEvent>
#include <QPainter>

QGradientRender::QGradientRender(QWidget* parent)
    : QWidget(parent), m_pointR(QStringLiteral(":/icon/pointR.png")),
      m_pointV(QStringLiteral(":/icon/pointV.png")), m_pointB(QStringLiteral(":/icon/pointB.png"))
{
    setFixedSize(200, 200);
    fillChecker(m_background, size(), 5, false, Qt::white, Qt::gray);
    rebuild();
}

void QGradientRender::rebuild()
{
    m_brush = makePreviewBrush(m_record);
}

void QGradientRender::setRecord(const GradientRecord& record)
{
    m_record = record;
    m_dragged = nullptr;
    m_dragging = false;
    rebuild();
    update();
}

QList<QPoint> QGradientRender::handles() const
{
    QList<QPoint> points;
    for (const QPointF& point : m_record.handles())
        points.append(QPoint(int(point.x()), int(point.y())));
    return points;
}

void QGradientRender::setHandles(const QList<QPoint>& points)
{
    QList<QPointF> handles;
    for (const QPoint& point : points)
        handles.append(point);
    m_record.setHandles(handles);
    rebuild();
    update();
}

QList<QPointF> QGradientRender::unitHandles() const
{
    QList<QPointF> points;
    for (const QPointF& point : m_record.handles())
        points.append(point / 199.0);
    return points;
}

QBrush QGradientRender::unitBrush() const
{
    return makeGradientBrush(m_record, QSize(1, 1));
}

void QGradientRender::setGradientData(const QList<GradientData>& gData)
{
    m_record.stops = gData;
    rebuild();
    update();
}

void QGradientRender::reset()
{
    m_record.resetPoints();
    rebuild();
    update();
}

void QGradientRender::join()
{
    m_record.radialFocal = m_record.radialCenter;
    rebuild();
    update();
}

void QGradientRender::setGradientType(int type)
{
    m_record.type = quint8(type);
    m_dragged = nullptr;
    m_dragging = false;
    rebuild();
    update();
}

void QGradientRender::setSpreadType(int type)
{
    m_record.spread = quint8(type);
    rebuild();
    update();
}

void QGradientRender::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(0, 0, m_background);
    if (!m_record.paintsNothing())
        painter.fillRect(rect(), m_brush);
    const QImage* pictures[] = {&m_pointR, &m_pointV, &m_pointB};
    const QList<QPointF> points = m_record.handles();
    for (int i = 0; i < points.size(); ++i) {
        const QImage& picture = *pictures[i];
        painter.drawImage(QPointF(points.at(i).x() - picture.width() / 2,
                                  points.at(i).y() - picture.height() / 2),
                          picture);
    }
}

void QGradientRender::mousePressEvent(QMouseEvent* event)
{
    // The handles drawn last are tried first, so the one on top is taken.
    const QPointF press = event->position();
    const double reach = m_pointR.width() / 2.0;
    for (int i = GradientRecord::handleCount(m_record.type) - 1; i >= 0; --i) {
        QPointF* point = m_record.handle(i);
        if (QLineF(press, *point).length() <= reach) {
            m_dragged = point;
            m_dragging = true;
            return;
        }
    }
}

void QGradientRender::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragging || !m_dragged)
        return;
    const QPoint position = event->position().toPoint();
    const auto clamp = [](int value) { return value < 0 ? 0 : value >= 200 ? 199 : value; };
    *m_dragged = QPointF(clamp(position.x()), clamp(position.y()));
    rebuild();
    update();
}

void QGradientRender::mouseReleaseEvent(QMouseEvent*)
{
    m_dragging = false;
    m_dragged = nullptr;
}
