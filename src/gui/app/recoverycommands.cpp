#include "app/recoverycommands.h"

#include "app/closequestion.h"
#include "app/mainwindow.h"
#include "app/prompts.h"
#include "canvas/qlayer.h"
#include "recovery/recoveryfolder.h"
#include "recovery/recoverykeeper.h"

#include <QFileInfo>
#include <QPointer>
#include <QStatusBar>

RecoveryCommands::RecoveryCommands(MainWindow& window, const QString& folder)
    : m_window(window), m_keeper(std::make_unique<RecoveryKeeper>(folder))
{
    // The status bar, never a box: the user goes on working, and the next change tries
    // again.
    QObject::connect(
        m_keeper.get(), &RecoveryKeeper::copyFailed, &m_window,
        [this](const QString& message) { m_window.statusBar()->showMessage(message); });
}

RecoveryCommands::~RecoveryCommands() = default;

void RecoveryCommands::watch(QLayer* layer)
{
    QPointer<QLayer> guarded(layer);
    const int document = m_keeper->track([guarded] {
        if (!guarded)
            return RecoverySource();
        // Whole, so that a start from another folder finds the file again.
        const QString path = guarded->filePath();
        return RecoverySource{*guarded->character(),
                              path.isEmpty() ? path : QFileInfo(path).absoluteFilePath(),
                              guarded->title()};
    });
    m_documents.insert(layer, document);
    RecoveryKeeper* keeper = m_keeper.get();
    // Connected through the keeper, so that the documents closed after it at exit do
    // not reach it.
    QObject::connect(layer, &QLayer::documentMarked, keeper, [keeper, document](bool modified) {
        if (modified)
            keeper->changed(document);
        else
            keeper->discard(document);
    });
    QObject::connect(layer, &QObject::destroyed, keeper, [this, keeper, layer, document] {
        keeper->untrack(document);
        m_documents.remove(layer);
    });
    if (layer->isModified())
        keeper->changed(document);
}

void RecoveryCommands::offerAbandoned()
{
    const QList<RecoveryEntry> entries = RecoveryFolder::abandoned(m_keeper->folder());
    if (entries.isEmpty())
        return;
    QList<RecoveryOffer> offers;
    QList<Character> characters;
    for (const RecoveryEntry& entry : entries) {
        RecoveryOffer offer;
        offer.entry = entry;
        Character character;
        if (!entry.errorText.isEmpty())
            offer.errorText = entry.errorText;
        else if (!character.loadCharacter(entry.copyPath))
            offer.errorText = character.errorText();
        else
            offer.thumbnail = CloseQuestion::thumbnail(character);
        const QFileInfo original(entry.originalPath);
        offer.originalNewer = !entry.originalPath.isEmpty() && original.exists() &&
                              original.lastModified() > entry.copied;
        offers.append(offer);
        characters.append(character);
    }
    const QList<RecoveryOffer::Choice> choices = Prompts::instance()->recovery(&m_window, offers);
    for (qsizetype i = 0; i < offers.size() && i < choices.size(); ++i) {
        const RecoveryEntry& entry = offers.at(i).entry;
        if (choices.at(i) == RecoveryOffer::Delete) {
            RecoveryFolder::remove(entry);
        } else if (choices.at(i) == RecoveryOffer::Recover && offers.at(i).errorText.isEmpty()) {
            QLayer* layer = m_window.addDocument(characters.at(i), entry.title);
            // Ctrl+S writes where the user expects, and the document stays unsaved
            // until then, however far back it is undone.
            layer->setFilePath(entry.originalPath);
            layer->history()->forgetSavedState();
            layer->setModified(true);
            // This instance's own copy replaces the old one before the old one goes.
            const int document = m_documents.value(layer);
            m_keeper->copyDue(document);
            m_keeper->waitForCopies();
            if (!m_keeper->entry(document).copyPath.isEmpty())
                RecoveryFolder::remove(entry);
        }
    }
}
