#pragma once

#include <QScrollArea>

class QLayer;

// The scroll area that holds one canvas inside its sub-window, centred. Closing it
// closes the canvas first, and is refused when the canvas refuses.
class QScrollLayer : public QScrollArea
{
    Q_OBJECT

public:
    explicit QScrollLayer(QLayer* layer, QWidget* parent = nullptr);
    QLayer* layer() const { return m_layer; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QLayer* m_layer;
};
