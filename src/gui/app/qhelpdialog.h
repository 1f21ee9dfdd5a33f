#pragma once

#include <QHash>
#include <QUrl>
#include <QWidget>

class QModelIndex;
class QStandardItem;
class QStandardItemModel;
class QTextBrowser;
class QTreeView;

// The manual: the tree of chapters beside the page on show. Pages are files under
// "help/"; links between them open here, web links in the desktop's browser.
class QHelpDialog : public QWidget
{
    Q_OBJECT

public:
    // url names a page as the program does ("help/introduction.html"); base is the
    // folder that holds "help/".
    explicit QHelpDialog(const QString& url, const QString& base = QString(),
                         QWidget* parent = nullptr);

    void load(const QString& url);
    QTextBrowser* browser() const { return m_browser; }
    QTreeView* treeView() const { return m_tree; }
    // The page on show, with its fragment.
    QUrl currentUrl() const { return m_current; }

public slots:
    void loadFromItem(const QModelIndex& item);

private:
    void buildTree();
    void display(const QUrl& url);
    void followLink(const QUrl& link);
    void selectChapterOf(const QUrl& url);

    QString m_base;
    QStandardItemModel* m_model = nullptr;
    QTreeView* m_tree = nullptr;
    QTextBrowser* m_browser = nullptr;
    QHash<QString, QStandardItem*> m_itemsByFile;
    QUrl m_current;
};
