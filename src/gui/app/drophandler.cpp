#include "app/drophandler.h"

#include "app/mainwindow.h"
#include "app/prompts.h"
#include "app/qdropwidget.h"
#include "canvas/elementcommands.h"
#include "canvas/qlayer.h"
#include "formats/filenames.h"
#include "library/elementadder.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

DropHandler::DropHandler(MainWindow& window) : m_window(window) {}

void DropHandler::dragEnter(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat(QStringLiteral("text/uri-list")))
        event->acceptProposedAction();
    else
        event->ignore();
}

void DropHandler::drop(QDropEvent* event)
{
    const QStringList paths = localPaths(event->mimeData());
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        &m_window, [this, paths] { handle(paths); }, Qt::QueuedConnection);
}

QStringList DropHandler::localPaths(const QMimeData* data)
{
    QStringList paths;
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    return paths;
}

// Whether a document was open is settled once for the whole drop: files dropped on an
// empty window all open, rather than the first opening and the next being asked about.
void DropHandler::handle(const QStringList& paths)
{
    const bool ask = m_window.activeLayer() != nullptr;
    for (const QString& path : paths) {
        if (handleFile(path, ask) == Stop)
            return;
    }
}

DropHandler::Outcome DropHandler::handleFile(const QString& path, bool ask)
{
    const bool image = hasExtension(path, QStringLiteral("png"));
    const bool group = hasExtension(path, QStringLiteral("elzk"));
    if (!image && !group) {
        // The character reader reports anything it cannot read, whatever it is.
        m_window.openCharacterFile(path, true);
        return Next;
    }
    QLayer* layer = m_window.activeLayer();
    const int action =
        ask && layer ? Prompts::instance()->dropAction(&m_window, path) : int(QDropWidget::Open);
    switch (action) {
    case QDropWidget::Add:
        add(layer, path);
        return Next;
    case QDropWidget::Open:
        if (image)
            m_window.openImageFile(path);
        else
            m_window.openElementFile(path);
        return Next;
    case QDropWidget::Skip:
        return Next;
    default:
        return Stop;
    }
}

// As the library box adds a file: within the 255 elements, a group counted whole and
// wrapped around the selected element, new names for what comes in.
void DropHandler::add(QLayer* layer, const QString& path)
{
    Character& character = *layer->character();
    QString error;
    ElementAdder::Result result;
    if (hasExtension(path, QStringLiteral("elzk"))) {
        result = ElementAdder::addGroup(character, path, &error);
    } else {
        result = ElementAdder::addImage(character, path, false);
    }
    if (result == ElementAdder::Full) {
        Prompts::instance()->critical(&m_window, QStringLiteral("Erreur"),
                                      QStringLiteral("Impossible de créer plus de 255 éléments !"));
        return;
    }
    if (result == ElementAdder::Unreadable) {
        Prompts::instance()->critical(
            &m_window, QStringLiteral("Erreur"),
            error.isEmpty() ? QStringLiteral("Impossible d'ouvrir : ") + path : error);
        return;
    }
    ElementCommands::finishChange(layer, m_window.layerList(),
                                  QByteArray("Ajout de ") + path.toLatin1());
}
