#pragma once

#include "imaging/gradientdata.h"

#include <QImage>
#include <QLinearGradient>
#include <QList>
#include <QWidget>

// The strip of colour stops above the gradient editor's preview: the gradient over a
// checker from x = 5 over 400 pixels, and one cursor per stop below it. A click away
// from the cursors adds a stop in the new-stop colour; a cursor is dragged along the
// strip. Stops stay in order of creation, not sorted.
class QGradientCreator : public QWidget
{
    Q_OBJECT

public:
    static constexpr uint None = ~0u;

    explicit QGradientCreator(const QColor& newColor, QWidget* parent = nullptr);

    const QList<GradientData>& stops() const { return m_stops; }
    uint selected() const { return m_selected; }
    // The toolkit's gradient, made of the stops that it accepts.
    const QLinearGradient& gradient() const { return m_gradient; }
    // While false, the next setPos() is not applied: the editor clears it before it
    // sets the position box from code, so that the value does not come back as an edit.
    void setPositionEnabled(bool enabled) { m_positionEnabled = enabled; }
    bool positionEnabled() const { return m_positionEnabled; }

signals:
    void changeIndex(const GradientData& gd);
    void changeGradient(const QList<GradientData>& gd);

public slots:
    void setGradientData(const GradientData& gd);
    void setGradient(const QList<GradientData>& gd);
    void destroy();
    void destroyAll();
    void setPos(int npos);
    void setColor(const QColor& ncolor);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void rebuild();
    // After the selection went: tells the editor there is no stop in hand.
    void announceNone();
    // The cursor's left edge: positions outside the strip are drawn at its ends.
    static double cursorLeft(double pos);
    void drawCursor(QPainter& painter, const GradientData& stop, bool selected) const;

    QList<GradientData> m_stops;
    QLinearGradient m_gradient;
    QImage m_background;
    QImage m_cursor;
    QImage m_cursorSelected;
    QColor m_newColor;
    uint m_selected = None;
    bool m_dragging = false;
    bool m_positionEnabled = true;
};
