#include "library/qaddlibrarycharacter.h"

#include "app/prompts.h"
#include "formats/filenames.h"
#include "formats/pngwriter.h"
#include "library/libraryfolder.h"
#include "library/librarypath.h"
#include "library/qkeycolourpanel.h"
#include "library/qlibrarybrowser.h"
#include "library/qlistviewkey.h"

#include <QFileInfo>
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

QAddLibraryCharacter::QAddLibraryCharacter(const QStringList& files, QWidget* parent)
    : QWidget(parent, Qt::Window), m_panel(new QKeyColourPanel(files, this)),
      m_browser(new QLibraryBrowser(LibraryPath::resolve(LibraryPath::current()),
                                    LibraryFolder::root(), this)),
      m_name(new QLineEdit(this)), m_message(new QLabel(this)),
      m_category(
          button(QStringLiteral("add_folder.png"), QStringLiteral("Ajouter une catégorie"), this)),
      m_valid(button(QStringLiteral("ok.png"), QStringLiteral("Valider"), this))
{
    setWindowIcon(QIcon(QStringLiteral(":/icon/ZK.png")));
    QPushButton* cancel = button(QStringLiteral("remove.png"), QStringLiteral("Annuler"), this);
    QVBoxLayout* right = new QVBoxLayout;
    right->addWidget(
        new QLabel(QStringLiteral("<strong>Choisir la catégorie de l'élément</strong>"), this));
    right->addWidget(m_browser, 1);
    right->addWidget(new QLabel(QStringLiteral("Nom de l'élément"), this));
    right->addWidget(m_name);
    right->addWidget(m_message);
    QHBoxLayout* panes = new QHBoxLayout;
    panes->addWidget(m_panel, 1);
    panes->addLayout(right, 1);
    QHBoxLayout* buttons = new QHBoxLayout;
    buttons->addWidget(m_browser->backButton());
    buttons->addWidget(m_category);
    buttons->addStretch();
    buttons->addWidget(m_valid);
    buttons->addWidget(cancel);
    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->addLayout(panes, 1);
    layout->addLayout(buttons);

    QListViewKey* list = m_browser->list();
    connect(list, &QListViewKey::activated, this,
            qOverload<const QModelIndex&>(&QAddLibraryCharacter::validModelIndex));
    connect(list, &QListViewKey::clicked, this, &QAddLibraryCharacter::showElementName);
    connect(list, &QListViewKey::selectedByKey, this, &QAddLibraryCharacter::showElementName);
    connect(m_browser, &QLibraryBrowser::folderChanged, this, &QAddLibraryCharacter::folderChanged);
    connect(m_name, &QLineEdit::textChanged, this, &QAddLibraryCharacter::changeValid);
    connect(m_category, &QPushButton::clicked, this, &QAddLibraryCharacter::makeADir);
    connect(m_valid, &QPushButton::clicked, this,
            qOverload<>(&QAddLibraryCharacter::validModelIndex));
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);

    m_category->setEnabled(false);
    m_valid->setEnabled(false);
    if (m_panel->showFrom(0))
        showImage();
    changeValid(m_name->text());
    resize(760, 520);
}

bool QAddLibraryCharacter::hasImage() const
{
    return m_panel->fileIndex() < m_panel->count();
}

// The window's title counts from the start of the chosen list, unreadable files
// included; the name starts as the file's, selected to be typed over.
void QAddLibraryCharacter::showImage()
{
    setWindowTitle(QStringLiteral("Ajouter un élément à la bibliothèque ") + m_panel->counter());
    m_name->setText(fileNameOf(m_panel->currentFile()));
    m_name->selectAll();
}

void QAddLibraryCharacter::validModelIndex(const QModelIndex& modelIndex)
{
    if (m_browser->isFolder(modelIndex))
        m_browser->enter(modelIndex);
    else
        showElementName(modelIndex);
}

// A click on an element names the new one after it, so that replacing it needs no
// typing.
void QAddLibraryCharacter::showElementName(const QModelIndex& modelIndex)
{
    if (modelIndex.isValid() && !m_browser->isFolder(modelIndex))
        m_name->setText(m_browser->nameOf(modelIndex));
}

void QAddLibraryCharacter::folderChanged()
{
    m_category->setEnabled(m_browser->backButton()->isEnabled());
    changeValid(m_name->text());
}

void QAddLibraryCharacter::validModelIndex()
{
    const QString name = withExtension(m_name->text(), QStringLiteral("png"));
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
    if (!PngWriter::save(m_panel->converted(), path)) {
        Prompts::instance()->critical(this, QStringLiteral("Erreur"),
                                      QStringLiteral("Impossible de créer l'élément : ") + name +
                                          QLatin1Char('.'));
        return;
    }
    m_browser->reload();
    if (!m_panel->showFrom(m_panel->fileIndex() + 1)) {
        close();
        return;
    }
    showImage();
}

void QAddLibraryCharacter::backElement()
{
    m_browser->backElement();
}

QNewCategoryDialog* QAddLibraryCharacter::makeADir()
{
    return m_browser->makeADir();
}

void QAddLibraryCharacter::changeValid(const QString& str)
{
    // A name of blanks is empty for the user too.
    QString message;
    if (str.trimmed().isEmpty())
        message = QStringLiteral("<font color=\"#FF0000\">Le nom ne doit pas être vide.</font>");
    else if (!isValidFileName(str))
        message = QStringLiteral("<font color=\"#FF0000\">Le nom ne doit pas contenir les "
                                 "caractères : \\ / : * ? \" &lt; > |.</font>");
    else if (m_browser->currentDir() == LibraryFolder::root())
        message = QStringLiteral("<font color=\"#FF0000\">Choisissez un type d'élément.</font>");
    m_valid->setEnabled(message.isEmpty());
    if (message.isEmpty())
        message =
            QStringLiteral("<font color=\"#009900\">Choisissez une catégorie et validez.</font>");
    m_message->setText(message);
}

void QAddLibraryCharacter::updateColor(const QColor& rgb, int type)
{
    m_panel->updateColor(rgb, type);
}

void QAddLibraryCharacter::updateZoom(int index)
{
    m_panel->updateZoom(index);
}

void QAddLibraryCharacter::updateInfo()
{
    m_browser->updateInfo();
}
