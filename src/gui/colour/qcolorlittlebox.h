#pragma once

#include <QImage>
#include <QWidget>

class QColor;
class QMouseEvent;

// A swatch of 50 by 20 pixels showing a colour that belongs to someone else, over a
// checker so that transparency shows.
class QColorLittleBox : public QWidget
{
    Q_OBJECT

public:
    QColorLittleBox(const QColor* colour, bool showAlpha, QWidget* parent = nullptr);

    void setShownColor(const QColor* colour);

signals:
    // The event lives only for the time of the emission: read it, do not keep it.
    void clicked(QMouseEvent* event);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const QColor* m_colour;
    QImage m_background;
    bool m_showAlpha;
};
