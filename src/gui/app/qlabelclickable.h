#pragma once

#include <QLabel>

class QMouseEvent;

// A label that reports presses: the gradient preview of the toolbar and the pictures
// of the quick guide react to a click without being buttons.
class QLabelClickable : public QLabel
{
    Q_OBJECT

public:
    explicit QLabelClickable(QWidget* parent = nullptr);
    explicit QLabelClickable(const QString& text, QWidget* parent = nullptr);

signals:
    // The event lives only for the time of the emission: read it, do not keep it.
    void clicked(QMouseEvent* event);

protected:
    void mousePressEvent(QMouseEvent* event) override;
};
