#pragma once

#include "library/libraryfolder.h"

#include <QWidget>

class QLabel;
class QListViewKey;
class QNewCategoryDialog;
class QPushButton;
class QStandardItemModel;

// The folder browser of the library dialogs: the list of one folder's categories and
// elements, the label naming the folder, and the "Précédent" button, which the dialog
// lays out where it wants. The list is filled at once from the disk on every change of
// folder, so what it shows is what the folder holds now.
class QLibraryBrowser : public QWidget
{
    Q_OBJECT

public:
    QLibraryBrowser(const QString& baseDir, const QString& currentDir, QWidget* parent = nullptr);

    const QString& baseDir() const { return m_baseDir; }
    const QString& currentDir() const { return m_folder.currentDir(); }
    // The folder shown, base included.
    QString folderPath() const { return m_baseDir + m_folder.currentDir(); }

    QListViewKey* list() const { return m_list; }
    QLabel* folderLabel() const { return m_label; }
    QPushButton* backButton() const { return m_back; }
    QStandardItemModel* model() const { return m_model; }

    bool isFolder(const QModelIndex& index) const;
    // The entry's name, and its path with the base and the current folder before it.
    QString nameOf(const QModelIndex& index) const;
    QString pathOf(const QModelIndex& index) const { return folderPath() + nameOf(index); }
    // Enters the folder the index names.
    void enter(const QModelIndex& index);

signals:
    void folderChanged();

public slots:
    void backElement();
    // Opens the dialog that makes a category here.
    QNewCategoryDialog* makeADir();
    // The folder label, short when the full one would not fit the dialog.
    void updateInfo();
    void reload();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void changeFolder();

    QString m_baseDir;
    LibraryFolder m_folder;
    QStandardItemModel* m_model;
    QListViewKey* m_list;
    QLabel* m_label;
    QPushButton* m_back;
};
