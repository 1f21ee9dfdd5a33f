#include "library/librarycommands.h"

#include "app/mainwindow.h"
#include "app/prompts.h"
#include "canvas/elementcommands.h"
#include "canvas/qlayer.h"
#include "canvas/qlayerlist.h"
#include "library/qaddcharacterelementbox.h"

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
