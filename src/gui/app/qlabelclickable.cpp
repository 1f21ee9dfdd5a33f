#include "app/qlabelclickable.h"

#include <QMouseEvent>

QLabelClickable::QLabelClickable(QWidget* parent) : QLabel(parent) {}

QLabelClickable::QLabelClickable(const QString& text, QWidget* parent) : QLabel(text, parent) {}

void QLabelClickable::mousePressEvent(QMouseEvent* event)
{
    emit clicked(event);
    QLabel::mousePressEvent(event);
}
