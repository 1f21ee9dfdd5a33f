#include "library/qlibrarybrowser.h"

#include "library/qlistviewkey.h"
#include "library/qnewcategorydialog.h"

#include <QFileIconProvider>
#include <QLabel>
#include <QPushButton>
#include <QStandardItemModel>
#include <QVBoxLayout>

namespace {

constexpr int FolderRole = Qt::UserRole + 1;

} // namespace

QLibraryBrowser::QLibraryBrowser(const QString& baseDir, const QString& currentDir, QWidget* parent)
    : QWidget(parent), m_baseDir(baseDir), m_folder(currentDir),
      m_model(new QStandardItemModel(this)), m_list(new QListViewKey(this)),
      m_label(new QLabel(this)),
      m_back(new QPushButton(QIcon(QStringLiteral(":/icon/previous.png")),
                             QStringLiteral("Précédent"), this))
{
    m_list->setModel(m_model);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list);
    layout->addWidget(m_label);
    connect(m_back, &QPushButton::clicked, this, &QLibraryBrowser::backElement);
    changeFolder();
}

bool QLibraryBrowser::isFolder(const QModelIndex& index) const
{
    return index.isValid() && index.data(FolderRole).toBool();
}

QString QLibraryBrowser::nameOf(const QModelIndex& index) const
{
    return index.isValid() ? index.data(Qt::DisplayRole).toString() : QString();
}

void QLibraryBrowser::enter(const QModelIndex& index)
{
    if (!isFolder(index))
        return;
    m_folder.enter(nameOf(index));
    changeFolder();
}

void QLibraryBrowser::backElement()
{
    m_folder.up();
    changeFolder();
}

void QLibraryBrowser::changeFolder()
{
    m_back->setEnabled(!m_folder.isRoot());
    reload();
    updateInfo();
    emit folderChanged();
}

void QLibraryBrowser::reload()
{
    const QFileIconProvider icons;
    m_model->clear();
    for (const QFileInfo& entry : LibraryFolder::entries(folderPath())) {
        QStandardItem* item = new QStandardItem(icons.icon(entry), entry.fileName());
        item->setData(entry.isDir(), FolderRole);
        m_model->appendRow(item);
    }
}

void QLibraryBrowser::updateInfo()
{
    const QString text = m_folder.labelText();
    const bool fits = m_label->fontMetrics().horizontalAdvance(text) <= window()->width() - 30;
    m_label->setText(fits ? text : m_folder.shortLabelText());
    m_label->setToolTip(folderPath());
}

void QLibraryBrowser::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    updateInfo();
}

QNewCategoryDialog* QLibraryBrowser::makeADir()
{
    QNewCategoryDialog* dialog = new QNewCategoryDialog(folderPath(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QNewCategoryDialog::folderMade, this, &QLibraryBrowser::reload);
    dialog->open();
    return dialog;
}
