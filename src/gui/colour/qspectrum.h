#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

// The colour wheel: hue round the circle, saturation from the centre out, value and
// alpha full. A press or a drag picks the colour under the mouse, or the rim's colour
// in the corners.
class QSpectrum : public QWidget
{
    Q_OBJECT

public:
    explicit QSpectrum(int size, QWidget* parent = nullptr);

    QColor color() const { return m_color; }
    // The wheel's colour at a point of the widget, the corners taking the rim's.
    QColor colorAt(QPoint point) const;
    // Where the marker of a colour lies.
    QPoint markerOf(const QColor& colour) const;

public slots:
    void setColor(const QColor& new_color);

signals:
    void changeColor(const QColor& colour);
    // Kept for the wheel's callers; the wheel never emits it.
    void changeSecondaryColor(const QColor& colour);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void buildImage();
    void pick(QPoint point);

    QColor m_color;
    QImage m_image;
    int m_size;
};
