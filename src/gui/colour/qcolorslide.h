#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

// One channel of a colour as a bar of 73 by 15 pixels with a cursor below it. The bar
// runs from x 3 to 69; a press or a drag there sets the channel in proportion.
class QColorSlide : public QWidget
{
    Q_OBJECT

public:
    enum Type
    {
        Alpha = 0,
        Red = 4,
        Green = 5,
        Blue = 6,
        Hue = 7,
        Saturation = 8,
        Value = 9
    };

    explicit QColorSlide(int type, QWidget* parent = nullptr);

    int type() const { return m_type; }
    QColor color() const { return m_color; }
    double position() const { return m_position; }
    // While off, setValue changes the colour without a signal: the colour box switches
    // it off while it sets the spin boxes from a colour.
    void setEmitting(bool emitting) { m_emitting = emitting; }
    // The largest value of the channel: 360 for the hue, 255 for the others.
    int range() const { return m_type == Hue ? 360 : 255; }

public slots:
    // Without alpha the slider keeps its own.
    void setColor(const QColor& new_color, bool alpha = false);
    void setValue(int value);

signals:
    void changeColor(const QColor& colour);
    void changeValue(int value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void apply(double v, bool emitting);
    double positionOf(const QColor& colour) const;
    void paintGradient(QPainter& painter) const;

    int m_type;
    QColor m_color;
    double m_position = 0;
    bool m_emitting = true;
    QImage m_hueBar;
    QImage m_checker;
    QImage m_cursor;
};
