#include "app/quitsequence.h"

#include "app/closequestion.h"
#include "app/mainwindow.h"
#include "app/prompts.h"
#include "canvas/qlayer.h"
#include "settings/settings.h"

#include <QMdiArea>
#include <QMdiSubWindow>

QuitSequence::QuitSequence(MainWindow& window) : m_window(window)
{
    for (QLayer* layer : window.layers())
        m_documents.append(layer);
}

bool QuitSequence::run()
{
    Settings settings;
    settings.set(QStringLiteral("Color"), QStringLiteral("primary"),
                 qint32(m_window.primaryColor().rgba()));
    settings.set(QStringLiteral("Color"), QStringLiteral("secondary"),
                 qint32(m_window.secondaryColor().rgba()));
    for (QLayer* layer : std::as_const(m_documents)) {
        if (layer->isModified())
            ++m_modified;
        layer->setAskOnClose(false);
    }
    Outcome outcome = Done;
    if (m_modified == 0) {
        for (QLayer* layer : std::as_const(m_documents))
            addPath(layer);
        m_window.mdiArea()->closeAllSubWindows();
    } else {
        outcome = closeModifiedDocuments(settings);
    }
    if (outcome == Cancelled) {
        // The colours are written all the same; the list to reopen is not.
        for (const QPointer<QLayer>& layer : std::as_const(m_documents)) {
            if (layer)
                layer->setAskOnClose(true);
        }
        return false;
    }
    if (outcome == Done)
        settings.set(QStringLiteral("Path"), QStringLiteral("opened"), m_opened);
    return true;
}

// Clean documents are only remembered and stay open; modified ones are asked about in
// order, with "Enregistrer tout" offered while more than one is left.
QuitSequence::Outcome QuitSequence::closeModifiedDocuments(Settings& settings)
{
    for (const QPointer<QLayer>& layer : std::as_const(m_documents)) {
        if (!layer->isModified()) {
            addPath(layer);
            continue;
        }
        const bool last = m_modified == 1;
        const int answer = ask(layer);
        if (answer == QMessageBox::SaveAll)
            return saveAll();
        if (answer != QMessageBox::Save && answer != QMessageBox::Discard)
            return Cancelled;
        if (answer == QMessageBox::Save && !save(layer))
            return Cancelled;
        addPath(layer);
        if (last) {
            // With one modified document the program leaves here: the documents behind
            // it are not remembered for the next start.
            settings.set(QStringLiteral("Path"), QStringLiteral("opened"), m_opened);
            close(layer);
            return LeftEarly;
        }
        close(layer);
        --m_modified;
    }
    return Done;
}

QuitSequence::Outcome QuitSequence::saveAll()
{
    m_opened.clear();
    for (const QPointer<QLayer>& layer : std::as_const(m_documents)) {
        if (!layer || !m_window.windowOf(layer))
            continue;
        m_window.mdiArea()->setActiveSubWindow(m_window.windowOf(layer));
        if (layer->isModified() && !save(layer))
            return Cancelled;
        addPath(layer);
        close(layer);
    }
    return Done;
}

int QuitSequence::ask(QLayer* layer)
{
    m_window.mdiArea()->setActiveSubWindow(m_window.windowOf(layer));
    const QString name = layer->filePath().isEmpty() ? layer->title() : layer->filePath();
    return Prompts::instance()->closeWithChanges(
        &m_window, name, CloseQuestion::thumbnail(*layer->character()), m_modified > 1);
}

// False when the save failed (the user is told) or was cancelled.
bool QuitSequence::save(QLayer* layer)
{
    const int saved = layer->saveDocument();
    if (saved == 0) {
        Prompts::instance()->critical(&m_window, QStringLiteral("Fermeture"),
                                      QStringLiteral("Impossible de sauvegarder le fichier."));
    }
    return saved == 1;
}

void QuitSequence::close(QLayer* layer)
{
    if (QMdiSubWindow* window = m_window.windowOf(layer)) {
        m_window.mdiArea()->setActiveSubWindow(window);
        window->close();
    }
}

void QuitSequence::addPath(const QLayer* layer)
{
    if (!layer->filePath().isEmpty())
        m_opened += layer->filePath() + QLatin1Char('|');
}
