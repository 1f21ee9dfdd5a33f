#pragma once

#include "library/elementgroup.h"

#include <QPointer>
#include <QWidget>

class QElementViewer;
class QLabel;
class QLayerListELZK;
class QLibraryBrowser;
class QLineEdit;
class QNewCategoryDialog;
class QPushButton;

// The window that makes a group element: simple elements, brought in with their key
// colours, stacked around the placeholder of the element the group will wrap, then
// written as a .elzk file into a category of the kind's library.
class QELZKCreator : public QWidget
{
    Q_OBJECT

public:
    explicit QELZKCreator(int kind, QWidget* parent = nullptr);

    ElementGroup& group() { return m_group; }
    QLayerListELZK* list() const { return m_list; }
    QLibraryBrowser* browser() const { return m_browser; }
    QLineEdit* nameEdit() const { return m_name; }
    QLabel* messageLabel() const { return m_message; }
    QPushButton* validButton() const { return m_valid; }
    QPushButton* categoryButton() const { return m_category; }
    // The key colour dialog while it is open, or null.
    QElementViewer* viewer() const;

public slots:
    void validModelIndex(const QModelIndex& modelIndex);
    void validModelIndex();
    void backElement();
    QNewCategoryDialog* makeADir();
    void changeValid(const QString& str);
    void updateInformation(int index);
    void addSingleElement();
    void updateInfo();

private:
    void addViewed();
    void showElementName(const QModelIndex& modelIndex);
    void folderChanged();

    ElementGroup m_group;
    QList<ElementGroup::Record> m_viewed;
    QLayerListELZK* m_list;
    QLibraryBrowser* m_browser;
    QLineEdit* m_name;
    QLabel* m_message;
    QPushButton* m_category;
    QPushButton* m_valid;
    QPointer<QElementViewer> m_viewer;
};
