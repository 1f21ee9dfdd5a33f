#pragma once

#include "app/qcombowidget.h"

#include <QImage>

// The question asked for each image or group element dropped on the window while a
// document is open: add it to that document, open it on its own, skip it, or stop
// the whole drop. Closing the dialog by its frame or Escape stops the drop too.
class QDropWidget : public QComboWidget
{
    Q_OBJECT

public:
    enum Action
    {
        Add = 0,
        Open = 1,
        Skip = 2,
        Cancel = 3
    };

    // A PNG file shows a preview of itself beside the question.
    explicit QDropWidget(const QString& path, QWidget* parent = nullptr);

    int action() const { return m_action; }

    // The picture fitted in 192 by 192, its ratio kept, by nearest pixel; a smaller one
    // is shown as it is.
    static QImage preview(const QImage& image);

public slots:
    void addAction();
    void openAction();
    void skipAction();
    void cancelAction();

private:
    void choose(Action action);

    int m_action = Cancel;
};
