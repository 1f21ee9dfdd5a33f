#include "app/documentcommands.h"

#include "app/mainwindow.h"
#include "app/prompts.h"
#include "app/qnewcharacter.h"
#include "app/recoverycommands.h"
#include "app/viewcommands.h"
#include "canvas/qlayer.h"
#include "canvas/qscrolllayer.h"
#include "formats/elementfile.h"
#include "formats/filenames.h"
#include "formats/safefile.h"
#include "settings/recentfiles.h"
#include "settings/settings.h"

#include <QAction>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>

DocumentCommands::DocumentCommands(MainWindow& window) : m_window(window) {}

void DocumentCommands::newCharacter(int kind)
{
    QNewCharacter* dialog = new QNewCharacter(kind, QString(), false, nullptr, 0, 0, &m_window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QNewCharacter::validNewChar, &m_window, &MainWindow::addCharacter);
    dialog->open();
}

QLayer* DocumentCommands::activeLayer() const
{
    QMdiSubWindow* window = m_window.mdiArea()->currentSubWindow();
    if (!window)
        return nullptr;
    QScrollLayer* scroll = qobject_cast<QScrollLayer*>(window->widget());
    return scroll ? scroll->layer() : nullptr;
}

QList<QLayer*> DocumentCommands::layers() const
{
    QList<QLayer*> result;
    for (QMdiSubWindow* window : m_window.mdiArea()->subWindowList(QMdiArea::CreationOrder)) {
        if (QScrollLayer* scroll = qobject_cast<QScrollLayer*>(window->widget()))
            result.append(scroll->layer());
    }
    return result;
}

QLayer* DocumentCommands::addDocument(const Character& character, const QString& title)
{
    QLayer* layer = new QLayer(title, character.sheetSize(), character.kind(), m_window.mdiArea());
    *layer->character() = character;
    layer->setToolState(m_window.toolState());
    layer->setLayerList(m_window.layerList());
    QObject::connect(layer, &QLayer::colourPicked, &m_window, &MainWindow::setPrimaryColor);
    QScrollLayer* scroll = new QScrollLayer(layer);
    QMdiSubWindow* window = m_window.mdiArea()->addSubWindow(scroll);
    window->setWindowTitle(title);
    window->setWindowIcon(QIcon(QStringLiteral(":/icon/Save.png")));
    // No minimum size: a sheet taller than the area scrolls instead of being cut.
    // The sub-window's Close also claims Ctrl+W, which belongs to the grid here.
    for (QAction* systemAction : window->systemMenu()->actions()) {
        if (systemAction->shortcuts().contains(QKeySequence(Qt::CTRL | Qt::Key_W)))
            systemAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F4));
    }
    window->show();
    m_window.mdiArea()->setActiveSubWindow(window);
    layer->resizeToSheet();
    layer->recordStep("Etat d'origine");
    layer->setModified(false);
    m_window.recoveryCommands()->watch(layer);
    m_window.refreshPanels(layer->character(), layer);
    m_window.viewCommands()->writeZoom(layer->character());
    return layer;
}

void DocumentCommands::addCharacter(const QString& str, int largeur, int hauteur, int type)
{
    addDocument(Character(type, QSize(largeur, hauteur)), str);
}

void DocumentCommands::openZKFile()
{
    Settings settings;
    QString folder = QDir::homePath();
    settings.get(QStringLiteral("pathLoadZKFile"), folder);
    QString filter;
    const QStringList files = Prompts::instance()->openFileNames(
        &m_window, QStringLiteral("Ouvrir un fichier"), folder,
        QStringLiteral("Fichier Zenkora (*.zk);;Elément Zenkora (*.elzk);;Image (*.png)"), &filter);
    if (files.isEmpty())
        return;
    const QString directory = directoryOf(files.first());
    if (!directory.contains(QLatin1Char('?'))) {
        settings.set(QStringLiteral("Path"), QStringLiteral("pathLoadZKFile"), directory);
        settings.save();
    }
    // The chosen filter decides how the files are read, not their extensions.
    for (const QString& file : files) {
        if (filter == QStringLiteral("Fichier Zenkora (*.zk)"))
            openCharacterFile(file, true);
        else if (filter == QLayer::ImageFilter)
            openImageFile(file);
        else
            openElementFile(file);
    }
}

void DocumentCommands::openDocument(const Character& character, const QString& path)
{
    addDocument(character, baseNameOf(path));
    addRecentFile(path);
    updateRecentMenu();
}

void DocumentCommands::openCharacterFile(const QString& path, bool reportErrors)
{
    Character character;
    quint8 version = 1;
    if (!character.loadCharacter(path, &version)) {
        if (reportErrors) {
            Prompts::instance()->critical(&m_window, QStringLiteral("Erreur"),
                                          QStringLiteral("Erreur : ") + character.errorText());
        }
        return;
    }
    QLayer* layer = addDocument(character, baseNameOf(path));
    layer->setFileVersion(version);
    layer->setFilePath(path);
    addRecentFile(path);
    updateRecentMenu();
}

void DocumentCommands::openElementFile(const QString& path)
{
    QString error;
    const std::optional<ElementFile::Pair> pair = ElementFile::load(path, &error);
    if (!pair) {
        Prompts::instance()->critical(
            &m_window, QStringLiteral("Erreur"),
            error.isEmpty() ? QStringLiteral("Impossible d'ouvrir : ") + path : error);
        return;
    }
    openDocument(ElementFile::merged(*pair), path);
}

void DocumentCommands::openImageFile(const QString& path)
{
    const QString failure = QStringLiteral("Impossible d'ouvrir : ") + path;
    const QImage image = SafeFile::readImage(path);
    if (image.isNull()) {
        Prompts::instance()->critical(&m_window, QStringLiteral("Erreur"), failure);
        return;
    }
    const int kind = Prompts::instance()->elementType(&m_window);
    if (kind < 0)
        return;
    Character character(kind, image.size());
    if (!character.addElement(path)) {
        Prompts::instance()->critical(&m_window, QStringLiteral("Erreur"), failure);
        return;
    }
    openDocument(character, path);
}

void DocumentCommands::openRecent(const QString& path)
{
    if (hasExtension(path, QStringLiteral("zk")))
        openCharacterFile(path, true);
    else if (hasExtension(path, QStringLiteral("png")))
        openImageFile(path);
    else
        openElementFile(path);
}

void DocumentCommands::addRecentFile(const QString& path)
{
    RecentFiles::add(path);
}

void DocumentCommands::updateRecentMenu()
{
    QMenu* menu = m_window.recentMenu();
    for (QAction* old : menu->actions()) {
        menu->removeAction(old);
        old->deleteLater();
    }
    const QStringList entries = RecentFiles::newestFirst();
    for (const QString& entry : entries) {
        QAction* recent = menu->addAction(fileNameOf(entry));
        const QString tip = QStringLiteral("Ouvre le fichier : ") + entry;
        recent->setStatusTip(tip);
        recent->setToolTip(tip);
        recent->setData(entry);
        QObject::connect(recent, &QAction::triggered, &m_window, &MainWindow::openRecent);
    }
    if (entries.isEmpty()) {
        QAction* none = menu->addAction(QStringLiteral("Aucun"));
        none->setData(QStringLiteral("?NoRecent?"));
        none->setEnabled(false);
    }
}

namespace {

QString defaultCharacterPath()
{
    return QStringLiteral("default.zk");
}

} // namespace

void DocumentCommands::openDefault()
{
    Character character;
    if (!character.loadCharacter(defaultCharacterPath())) {
        Prompts::instance()->defaultCharacter(
            &m_window, [this] { m_window.showHelp_Create_Character(); },
            [this] { assignAsDefault(); });
        return;
    }
    // A document based on the default is new work: it starts marked as modified.
    QLayer* layer = addDocument(character, QStringLiteral("Sans titre"));
    layer->setModified(true);
}

void DocumentCommands::assignAsDefault()
{
    if (QLayer* layer = activeLayer())
        layer->character()->saveCharacter(defaultCharacterPath(), 1);
}

QMdiSubWindow* DocumentCommands::windowOf(const QLayer* layer) const
{
    for (QMdiSubWindow* window : m_window.mdiArea()->subWindowList()) {
        QScrollLayer* scroll = qobject_cast<QScrollLayer*>(window->widget());
        if (scroll && scroll->layer() == layer)
            return window;
    }
    return nullptr;
}

void DocumentCommands::warnSaveFailed(const QString& title)
{
    Prompts::instance()->critical(&m_window, title,
                                  QStringLiteral("Impossible de sauvegarder le fichier."));
}

void DocumentCommands::save()
{
    QLayer* layer = activeLayer();
    if (layer && layer->saveDocument() == 0)
        warnSaveFailed(QStringLiteral("Sauvegarde"));
}

void DocumentCommands::saveAs()
{
    QLayer* layer = activeLayer();
    if (layer && layer->saveDocumentAs() == 0)
        warnSaveFailed(QStringLiteral("Sauvegarde"));
}

void DocumentCommands::saveAll()
{
    for (QMdiSubWindow* window : m_window.mdiArea()->subWindowList(QMdiArea::CreationOrder)) {
        m_window.mdiArea()->setActiveSubWindow(window);
        QLayer* layer = activeLayer();
        if (layer && layer->saveDocument() == 0)
            warnSaveFailed(QStringLiteral("Sauvegarde"));
    }
}
