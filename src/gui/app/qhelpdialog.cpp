#include "app/qhelpdialog.h"

#include "app/helppages.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QSplitter>
#include <QStandardItemModel>
#include <QTextBrowser>
#include <QTreeView>

namespace {

const int PageRole = Qt::UserRole + 1;

bool isWebLink(const QUrl& url)
{
    return !url.isRelative() && !url.isLocalFile();
}

} // namespace

QHelpDialog::QHelpDialog(const QString& url, const QString& base, QWidget* parent)
    : QWidget(parent, Qt::Window), m_base(base.isEmpty() ? HelpPages::locateBase() : base),
      m_model(new QStandardItemModel(this)), m_tree(new QTreeView), m_browser(new QTextBrowser)
{
    setWindowTitle(QStringLiteral("Manuel d'aide version 1.0.0"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/ZK.png")));
    buildTree();
    m_tree->setModel(m_model);
    m_tree->header()->hide();
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // A click opens or closes a folder; a double click would do it twice.
    m_tree->setExpandsOnDoubleClick(false);
    connect(m_tree, &QTreeView::clicked, this, &QHelpDialog::loadFromItem);

    // Links are followed here, so that a missing page and a web address are handled
    // as the manual wants rather than as the browser widget does on its own.
    m_browser->setOpenLinks(false);
    connect(m_browser, &QTextBrowser::anchorClicked, this, &QHelpDialog::followLink);

    QSplitter* splitter = new QSplitter(this);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_browser);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({250, 650});
    QHBoxLayout* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(splitter);
    resize(900, 640);
    load(url);
}

void QHelpDialog::buildTree()
{
    const QIcon folderIcon(QStringLiteral(":/icon/helpdir.png"));
    const QIcon pageIcon(QStringLiteral(":/icon/helpfile.png"));
    const auto pageItem = [&](const QString& title) {
        QStandardItem* item = new QStandardItem(pageIcon, title);
        const QString page = HelpPages::pageOf(title);
        item->setData(page, PageRole);
        m_itemsByFile.insert(QFileInfo(page).fileName(), item);
        return item;
    };
    for (const HelpPages::Chapter& chapter : HelpPages::tree()) {
        if (chapter.children.isEmpty()) {
            m_model->appendRow(pageItem(chapter.title));
            continue;
        }
        QStandardItem* folder = new QStandardItem(folderIcon, chapter.title);
        for (const QString& child : chapter.children)
            folder->appendRow(pageItem(child));
        m_model->appendRow(folder);
    }
}

void QHelpDialog::load(const QString& url)
{
    display(HelpPages::urlOf(m_base, url));
}

void QHelpDialog::loadFromItem(const QModelIndex& item)
{
    const QString page = item.data(PageRole).toString();
    if (page.isEmpty()) {
        m_tree->setExpanded(item, !m_tree->isExpanded(item));
        return;
    }
    load(page);
}

// The browser widget leaves itself empty on a missing file, with only a warning on
// the error stream: the reader is told instead.
void QHelpDialog::display(const QUrl& url)
{
    m_current = url;
    const QString file = url.toLocalFile();
    if (!QFileInfo(file).isFile()) {
        m_browser->setHtml(QStringLiteral("<h2>Page introuvable</h2><p>") +
                           QFileInfo(file).fileName().toHtmlEscaped() + QStringLiteral("</p>"));
    } else {
        m_browser->setSource(url);
    }
    selectChapterOf(url);
}

void QHelpDialog::followLink(const QUrl& link)
{
    if (isWebLink(link)) {
        QDesktopServices::openUrl(link);
        return;
    }
    display(m_current.resolved(link));
}

void QHelpDialog::selectChapterOf(const QUrl& url)
{
    QStandardItem* item = m_itemsByFile.value(QFileInfo(url.toLocalFile()).fileName());
    if (!item)
        return;
    const QModelIndex index = item->index();
    if (index.parent().isValid())
        m_tree->expand(index.parent());
    m_tree->setCurrentIndex(index);
    m_tree->scrollTo(index);
}
