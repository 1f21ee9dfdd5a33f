#include "library/librarycommands.h"

#include "app/mainwindow.h"
#include "app/prompts.h"
#include "canvas/elementcommands.h"
#include "canvas/qlayer.h"
#include "canvas/qlayerlist.h"
#include "formats/filenames.h"
#include "library/qaddcharacterelementbox.h"
#include "library/qaddlibrarycharacter.h"
#include "library/qelzkcreator.h"
#include "settings/settings.h"

#include <QDir>
#include <QMdiArea>

LibraryCommands::LibraryCommands(MainWindow& window) : m_window(window) {}

// The box is the window's child and would go with it, but it would do so after the
// window's own members it talks to: it goes first.
LibraryCommands::~LibraryCommands()
{
    delete m_addBox;
}

QAddCharacterElementBox* LibraryCommands::addBox() const
{
    return m_addBox;
}

void LibraryCommands::openAddBox()
{
    if (m_window.mdiArea()->subWindowList().isEmpty())
        return;
    if (!m_addBox) {
        m_addBox = new QAddCharacterElementBox(m_window.mdiArea(), m_window.layerList(), &m_window);
        m_addBox->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_addBox->show();
    m_addBox->raise();
    m_addBox->activateWindow();
}

void LibraryCommands::restoreElements()
{
    QLayer* layer = m_window.activeLayer();
    if (!layer)
        return;
    Character* character = layer->character();
    const bool restored = character->restoreElements([this](const QString& question) {
        Prompts::Message box;
        box.icon = QMessageBox::Question;
        box.title = QStringLiteral("Restauration");
        box.text = question;
        box.buttons = QMessageBox::Yes | QMessageBox::No;
        return Prompts::instance()->message(&m_window, box).button == QMessageBox::Yes;
    });
    if (ElementCommands* commands = m_window.layerList()->commands())
        commands->finish(layer, "Restauration des \xe9l\xe9ments");
    if (restored)
        return;
    // The first part of the text is the model's own sentence; the paths follow.
    QStringList lines;
    const QStringList failures = character->errorText().split(QLatin1Char('|')).mid(1);
    for (const QString& path : failures)
        lines.append(QStringLiteral("- ") + path);
    Prompts::Message box;
    box.icon = QMessageBox::Warning;
    box.title = QStringLiteral("Fichiers non ouverts");
    box.text = QStringLiteral("Liste des fichiers qui n'ont pas été ouverts :\n");
    box.detailedText = lines.join(QLatin1Char('\n'));
    Prompts::instance()->message(&m_window, box);
}

QStringList LibraryCommands::chooseElementImages(QWidget* parent, const QString& title)
{
    Settings settings;
    QString folder = QDir::homePath();
    settings.get(QStringLiteral("pathLoadSingleElement"), folder);
    const QStringList files = Prompts::instance()->openFileNames(
        parent, title, folder, QStringLiteral("Images (*.png)"), nullptr);
    if (files.isEmpty())
        return files;
    const QString directory = directoryOf(files.first());
    if (!directory.contains(QLatin1Char('?'))) {
        settings.set(QStringLiteral("Path"), QStringLiteral("pathLoadSingleElement"), directory);
        settings.save();
    }
    return files;
}

// The windows are the main window's children, so that they go with it, but they are
// windows of their own and live until they are closed.
void LibraryCommands::addElementLibrary()
{
    const int type =
        Prompts::instance()->item(&m_window, QStringLiteral("Type d'élément"),
                                  QStringLiteral("Quel est le type de l'élément à rajouter ?"),
                                  {QStringLiteral("Elément normal (image PNG)"),
                                   QStringLiteral("Elément Zenkora XP (fichier ELZK)"),
                                   QStringLiteral("Elément Zenkora VX (fichier ELZK)")});
    QWidget* window = nullptr;
    if (type == 0) {
        const QStringList files =
            chooseElementImages(&m_window, QStringLiteral("Chercher un élément"));
        if (files.isEmpty())
            return;
        QAddLibraryCharacter* adder = new QAddLibraryCharacter(files, &m_window);
        if (!adder->hasImage()) {
            delete adder;
            return;
        }
        window = adder;
    } else if (type == 1 || type == 2) {
        window = new QELZKCreator(type == 1 ? Character::XP : Character::VX, &m_window);
    } else {
        return;
    }
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
}
