#include "library/qlistviewkey.h"

#include <QKeyEvent>

void QListViewKey::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (currentIndex().isValid())
            emit activated(currentIndex());
        event->accept();
        return;
    }
    const QModelIndex before = currentIndex();
    QListView::keyPressEvent(event);
    if (currentIndex() != before)
        emit selectedByKey(currentIndex());
}
