#include "library/qelzkcreator.h"

#include "app/prompts.h"
#include "canvas/qlayerlistelzk.h"
#include "formats/elementfile.h"
#include "formats/filenames.h"
#include "library/librarycommands.h"
#include "library/libraryfolder.h"
#include "library/librarypath.h"
#include "library/qelementviewer.h"
#include "library/qlibrarybrowser.h"
#include "library/qlistviewkey.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QPushButton* button(const QString& icon, const QString& text, QWidget* parent)
{
    return new QPushButton(QIcon(QStringLiteral(":/icon/") + icon), text, parent);
}

} // namespace

QELZKCreator::QELZKCreator(int kind, QWidget* parent)
    : QWidget(parent, Qt::Window), m_group(kind), m_list(new QLayerListELZK(&m_group, this)),
      m_browser(new QLibraryBrowser(LibraryPath::resolve(LibraryPath::current()),
                                    LibraryFolder::ofKind(kind), this)),
      m_name(new QLineEdit(this)), m_message(new QLabel(this)),
      m_category(
          button(QStringLiteral("add_folder.png"), QStringLiteral("Ajouter une catégorie"), this)),
      m_valid(button(QStringLiteral("ok.png"), QStringLiteral("Valider"), this))
{
    setWindowTitle(kind == Character::VX
                       ? QStringLiteral("Ajouter un Elément Zenkora VX à la bibliothèque")
                       : QStringLiteral("Ajouter un Elément Zenkora XP à la bibliothèque"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/ZK.png")));
    m_list->setNbreVertical(6);
    QPushButton* addSimple =
        button(QStringLiteral("add_qt.png"), QStringLiteral("Ajouter des éléments simples"), this);
    QPushButton* cancel = button(QStringLiteral("remove.png"), QStringLiteral("Annuler"), this);

    QGridLayout* panes = new QGridLayout;
    panes->addWidget(
        new QLabel(QStringLiteral("<strong>Position relative des éléments</strong>"), this), 0, 0);
    panes->addWidget(m_list, 1, 0, 4, 1);
    panes->addWidget(addSimple, 5, 0);
    panes->addWidget(
        new QLabel(QStringLiteral("<strong>Choisir la catégorie de l'élément</strong>"), this), 0,
        1);
    panes->addWidget(m_browser, 1, 1);
    panes->addWidget(new QLabel(QStringLiteral("Nom de l'élément"), this), 2, 1);
    panes->addWidget(m_name, 3, 1);
    panes->addWidget(m_message, 4, 1);
    panes->setColumnStretch(1, 1);
    panes->setRowStretch(1, 1);
    QHBoxLayout* buttons = new QHBoxLayout;
    buttons->addWidget(m_browser->backButton());
    buttons->addWidget(m_category);
    buttons->addStretch();
    buttons->addWidget(m_valid);
    buttons->addWidget(cancel);
    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->addLayout(panes, 1);
    layout->addLayout(buttons);

    m_valid->setDefault(true);
    QListViewKey* view = m_browser->list();
    connect(view, &QListViewKey::activated, this,
            qOverload<const QModelIndex&>(&QELZKCreator::validModelIndex));
    connect(view, &QListViewKey::clicked, this, &QELZKCreator::showElementName);
    connect(view, &QListViewKey::selectedByKey, this, &QELZKCreator::showElementName);
    connect(m_browser, &QLibraryBrowser::folderChanged, this, &QELZKCreator::folderChanged);
    connect(m_list, &QLayerListELZK::deleteElement, this, &QELZKCreator::updateInformation);
    connect(m_name, &QLineEdit::textChanged, this, &QELZKCreator::changeValid);
    connect(addSimple, &QPushButton::clicked, this, &QELZKCreator::addSingleElement);
    connect(m_category, &QPushButton::clicked, this, &QELZKCreator::makeADir);
    connect(m_valid, &QPushButton::clicked, this, qOverload<>(&QELZKCreator::validModelIndex));
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
    folderChanged();
    resize(620, 520);
}

QElementViewer* QELZKCreator::viewer() const
{
    return m_viewer;
}

void QELZKCreator::validModelIndex(const QModelIndex& modelIndex)
{
    if (m_browser->isFolder(modelIndex))
        m_browser->enter(modelIndex);
    else
        showElementName(modelIndex);
}

void QELZKCreator::showElementName(const QModelIndex& modelIndex)
{
    if (modelIndex.isValid() && !m_browser->isFolder(modelIndex))
        m_name->setText(m_browser->nameOf(modelIndex));
}

// A group belongs in its kind's tree: the climb stops at the kind's folder.
void QELZKCreator::folderChanged()
{
    m_browser->backButton()->setEnabled(m_browser->currentDir() !=
                                        LibraryFolder::ofKind(m_group.kind()));
    changeValid(m_name->text());
}

void QELZKCreator::backElement()
{
    if (m_browser->backButton()->isEnabled())
        m_browser->backElement();
}

void QELZKCreator::validModelIndex()
{
    const QString name = withExtension(m_name->text(), QStringLiteral("elzk"));
    m_name->setText(name);
    const QString path = m_browser->folderPath() + name;
    if (QFileInfo::exists(path)) {
        Prompts::Message question;
        question.icon = QMessageBox::Question;
        question.title = QStringLiteral("Zenkora");
        question.text = name + QStringLiteral(" existe déjà. Voulez-vous le remplacer ?");
        question.buttons = QMessageBox::Yes | QMessageBox::No;
        if (Prompts::instance()->message(this, question).button != QMessageBox::Yes)
            return;
    }
    QString error;
    if (!m_group.write(path, &error)) {
        Prompts::instance()->critical(this, QStringLiteral("Erreur"), error);
        return;
    }
    m_browser->reload();
    close();
}

QNewCategoryDialog* QELZKCreator::makeADir()
{
    return m_browser->makeADir();
}

void QELZKCreator::changeValid(const QString& str)
{
    QString message;
    if (m_group.simpleCount() < 2)
        message = QStringLiteral("<font color=\"#FF0000\">L'élément doit être composé d'au moins 2 "
                                 "éléments simples.</font>");
    else if (m_group.simpleCount() > ElementFile::MaximumCount)
        message = QStringLiteral("<font color=\"#FF0000\">L'élément ne peut pas contenir plus de "
                                 "127 éléments simples.</font>");
    else if (str.trimmed().isEmpty())
        message = QStringLiteral("<font color=\"#FF0000\">Le nom ne doit pas être vide.</font>");
    else if (!isValidFileName(str))
        message = QStringLiteral("<font color=\"#FF0000\">Le nom ne doit pas contenir les "
                                 "caractères : \\ / : * ? \" &lt; > |.</font>");
    m_valid->setEnabled(message.isEmpty());
    if (message.isEmpty())
        message =
            QStringLiteral("<font color=\"#009900\">Choisissez une catégorie et validez.</font>");
    m_message->setText(message);
}

void QELZKCreator::updateInformation(int index)
{
    m_group.removeRecord(index);
    m_list->updateThumbnails();
    m_list->update();
    changeValid(m_name->text());
}

// The key colour dialog is modal without a loop of its own: the images it validated
// join the stack when it closes, by "Valider" on the last one or by "Annuler".
void QELZKCreator::addSingleElement()
{
    if (m_viewer)
        return;
    const QStringList files =
        LibraryCommands::chooseElementImages(this, QStringLiteral("Ouvrir des éléments simples"));
    if (files.isEmpty())
        return;
    m_viewed.clear();
    QElementViewer* viewer = new QElementViewer(files, &m_viewed, this);
    if (!viewer->hasImage()) {
        delete viewer;
        return;
    }
    m_viewer = viewer;
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->setWindowModality(Qt::ApplicationModal);
    connect(viewer, &QDialog::finished, this, &QELZKCreator::addViewed);
    viewer->open();
}

void QELZKCreator::addViewed()
{
    // The dialog goes later, with the event loop; it is done with now.
    m_viewer = nullptr;
    for (const ElementGroup::Record& record : std::as_const(m_viewed))
        m_group.add(record);
    m_viewed.clear();
    m_list->updateThumbnails();
    m_list->update();
    changeValid(m_name->text());
}

void QELZKCreator::updateInfo()
{
    m_browser->updateInfo();
}
