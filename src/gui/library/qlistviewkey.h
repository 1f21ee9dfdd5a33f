#pragma once

#include <QListView>

// The list of the library browsers. It tells when the keyboard moves the current item,
// so that the preview follows the arrows as it follows clicks, and it keeps Return and
// Enter for itself: a plain list view activates the item and then passes the key on to
// the dialog, whose default button would add the element a second time.
class QListViewKey : public QListView
{
    Q_OBJECT

public:
    using QListView::QListView;

signals:
    void selectedByKey(const QModelIndex& current);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
