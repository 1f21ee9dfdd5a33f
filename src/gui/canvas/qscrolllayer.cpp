#include "canvas/qscrolllayer.h"

#include "canvas/qlayer.h"

#include <QCloseEvent>

QScrollLayer::QScrollLayer(QLayer* layer, QWidget* parent) : QScrollArea(parent), m_layer(layer)
{
    setAlignment(Qt::AlignCenter);
    setWidget(layer);
}

void QScrollLayer::closeEvent(QCloseEvent* event)
{
    if (m_layer->close())
        event->accept();
    else
        event->ignore();
}
