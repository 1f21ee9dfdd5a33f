#include "library/qaddcharacterelementbox.h"

#include "app/prompts.h"
#include "canvas/elementcommands.h"
#include "canvas/qlayer.h"
#include "canvas/qlayerlist.h"
#include "canvas/qscrolllayer.h"
#include "formats/filenames.h"
#include "library/elementadder.h"
#include "library/librarypath.h"
#include "library/librarypreview.h"
#include "library/qlibrarybrowser.h"
#include "library/qlistviewkey.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

QLayer* layerOf(QMdiSubWindow* window)
{
    QScrollLayer* scroll = window ? qobject_cast<QScrollLayer*>(window->widget()) : nullptr;
    return scroll ? scroll->layer() : nullptr;
}

QPushButton* button(const QString& icon, const QString& text, QWidget* parent)
{
    return new QPushButton(QIcon(QStringLiteral(":/icon/") + icon), text, parent);
}

} // namespace

QAddCharacterElementBox::QAddCharacterElementBox(QMdiArea* mdiArea, QLayerList* list,
                                                 QWidget* parent)
    : QDialog(parent), m_preview(new QLabel), m_previewArea(new QScrollArea(this)),
      m_valid(button(QStringLiteral("ok.png"), QStringLiteral("Valider"), this)),
      m_drawingLayer(button(QStringLiteral("add_dessin.png"),
                            QStringLiteral("Ajouter un calque de dessin"), this)),
      m_convert(new QCheckBox(this)),
      m_closeAfterAdding(
          new QCheckBox(QStringLiteral("Fermer la fenêtre une fois l'élément ajouté."), this)),
      m_list(list), m_mdiArea(mdiArea)
{
    setWindowTitle(QStringLiteral("Ajouter des éléments"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/Add.png")));
    followDocument(mdiArea->currentSubWindow());
    const int kind = m_layer ? m_layer->kind() : Character::XP;
    m_browser = new QLibraryBrowser(LibraryPath::resolve(LibraryPath::current()),
                                    LibraryFolder::ofKind(kind), this);
    m_convert->setText(kind == Character::VX
                           ? QStringLiteral("Convertir l'élément de XP vers VX.")
                           : QStringLiteral("Convertir l'élément de VX vers XP."));
    m_closeAfterAdding->setChecked(true);

    m_preview->setMinimumSize(160, 224);
    m_preview->setAlignment(Qt::AlignCenter);
    m_preview->setPixmap(LibraryPreview::none());
    m_previewArea->setWidget(m_preview);
    m_previewArea->setAlignment(Qt::AlignCenter);
    m_previewArea->setMinimumSize(280, 300);

    QPushButton* cancel = button(QStringLiteral("remove.png"), QStringLiteral("Annuler"), this);
    QVBoxLayout* left = new QVBoxLayout;
    left->addWidget(m_browser);
    left->addWidget(m_browser->backButton());
    QHBoxLayout* panes = new QHBoxLayout;
    panes->addLayout(left, 1);
    panes->addWidget(m_previewArea, 1);
    QHBoxLayout* buttons = new QHBoxLayout;
    buttons->addWidget(m_drawingLayer);
    buttons->addStretch();
    buttons->addWidget(m_valid);
    buttons->addWidget(cancel);
    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->addLayout(panes);
    layout->addWidget(m_convert);
    layout->addWidget(m_closeAfterAdding);
    layout->addLayout(buttons);

    m_valid->setDefault(true);
    m_valid->setEnabled(false);
    QListViewKey* view = m_browser->list();
    connect(view, &QListViewKey::clicked, this, &QAddCharacterElementBox::showElement);
    connect(view, &QListViewKey::selectedByKey, this, &QAddCharacterElementBox::showElement);
    connect(view, &QListViewKey::activated, this,
            qOverload<const QModelIndex&>(&QAddCharacterElementBox::validModelIndex));
    connect(m_valid, &QPushButton::clicked, this,
            qOverload<>(&QAddCharacterElementBox::validModelIndex));
    connect(m_drawingLayer, &QPushButton::clicked, this, &QAddCharacterElementBox::addDessinLayer);
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);
    connect(m_mdiArea, &QMdiArea::subWindowActivated, this,
            &QAddCharacterElementBox::updateActiveWindow);
    // A new folder holds no chosen file yet: "Valider" would enter the folder that
    // stayed current in the list once more.
    connect(m_browser, &QLibraryBrowser::folderChanged, this,
            [this] { m_valid->setEnabled(false); });
    resize(640, 480);
}

void QAddCharacterElementBox::followDocument(QMdiSubWindow* window)
{
    m_layer = layerOf(window);
    m_noDocument = m_layer.isNull();
}

// The area reports no active window while another top-level window, this box among
// them, has the focus; the document stays the current one then, and only closing the
// last document leaves the box without one.
void QAddCharacterElementBox::updateActiveWindow(QMdiSubWindow* window)
{
    followDocument(window ? window : m_mdiArea->currentSubWindow());
}

void QAddCharacterElementBox::showElement(const QModelIndex& modelIndex)
{
    if (!modelIndex.isValid())
        return;
    m_valid->setEnabled(true);
    const QPixmap preview = LibraryPreview::of(m_browser->pathOf(modelIndex));
    m_preview->setPixmap(preview);
    m_preview->resize(preview.size().expandedTo(m_preview->minimumSize()));
}

void QAddCharacterElementBox::validModelIndex()
{
    validModelIndex(m_browser->list()->currentIndex());
}

void QAddCharacterElementBox::validModelIndex(const QModelIndex& modelIndex)
{
    if (!modelIndex.isValid())
        return;
    if (m_browser->isFolder(modelIndex)) {
        m_browser->enter(modelIndex);
        return;
    }
    QLayer* target = layer();
    if (!target) {
        Prompts::instance()->information(
            this, QStringLiteral("Information"),
            QStringLiteral(
                "Vous devez d'abord créer un nouveau character ou un ouvrir un existant."));
        return;
    }
    Character& character = *target->character();
    if (character.elementCount() >= Character::MaxElements) {
        refuseFull();
        return;
    }
    const QString path = m_browser->pathOf(modelIndex);
    QString error;
    ElementAdder::Result result;
    if (hasExtension(path, QStringLiteral("elzk"))) {
        result = ElementAdder::addGroup(character, path, &error);
    } else {
        result = ElementAdder::addImage(character, path, m_convert->isChecked());
        error = QStringLiteral("Impossible d'ouvrir : ") + path;
    }
    if (result == ElementAdder::Full) {
        refuseFull();
        return;
    }
    if (result == ElementAdder::Unreadable) {
        Prompts::instance()->critical(this, QStringLiteral("Erreur"), error);
        return;
    }
    finish(QByteArray("Ajout de ") + m_browser->nameOf(modelIndex).toLatin1());
}

void QAddCharacterElementBox::backElement()
{
    m_browser->backElement();
}

// The document is looked for first: after the last document closed there is no
// character left to count.
void QAddCharacterElementBox::addDessinLayer()
{
    QLayer* target = layer();
    if (!target) {
        Prompts::instance()->information(
            this, QStringLiteral("Information"),
            QStringLiteral(
                "Vous devez d'abord créer un nouveau character ou en ouvrir un existant."));
        return;
    }
    if (ElementAdder::addDrawingLayer(*target->character()) == ElementAdder::Full) {
        refuseFull();
        return;
    }
    finish("Ajout d'un calque de dessin");
}

void QAddCharacterElementBox::updateInfo()
{
    m_browser->updateInfo();
}

void QAddCharacterElementBox::refuseFull()
{
    Prompts::instance()->critical(this, QStringLiteral("Erreur"),
                                  QStringLiteral("Impossible de créer plus de 255 éléments !"));
}

void QAddCharacterElementBox::finish(const QByteArray& label)
{
    QLayer* target = layer();
    ElementCommands* commands = m_list ? m_list->commands() : nullptr;
    if (commands) {
        commands->finish(target, label);
    } else {
        target->recordStep(label);
        target->refresh();
    }
    if (m_closeAfterAdding->isChecked())
        close();
}
