#pragma once

#include "imaging/gradientrecord.h"

#include <QBrush>
#include <QImage>
#include <QWidget>

// The 200 by 200 preview of the gradient editor: the gradient over a checker, with
// the points of the active type as handles the user drags. It keeps the points of all
// three types, so that switching the type back and forth loses nothing.
class QGradientRender : public QWidget
{
    Q_OBJECT

public:
    explicit QGradientRender(QWidget* parent = nullptr);

    // Type, spread, stops and all seven points.
    const GradientRecord& record() const { return m_record; }
    void setRecord(const GradientRecord& record);
    // The active type's points, cut towards zero, as the file keeps them.
    QList<QPoint> handles() const;
    void setHandles(const QList<QPoint>& points);
    // The active type's points divided by 199.0, the preview's far edge.
    QList<QPointF> unitHandles() const;
    // The active gradient fitted to the unit square, ready to be scaled onto a patch.
    QBrush unitBrush() const;
    // The brush the preview paints with, in its own coordinates.
    const QBrush& brush() const { return m_brush; }

public slots:
    void setGradientData(const QList<GradientData>& gData);
    void reset();
    // Brings the focal point onto the centre.
    void join();
    void setGradientType(int type);
    void setSpreadType(int type);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void rebuild();

    GradientRecord m_record;
    QBrush m_brush;
    QImage m_background;
    QImage m_pointR;
    QImage m_pointV;
    QImage m_pointB;
    QPointF* m_dragged = nullptr;
    bool m_dragging = false;
};
