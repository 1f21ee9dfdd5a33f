#pragma once

#include <QStringList>

class MainWindow;
class QDragEnterEvent;
class QDropEvent;
class QLayer;
class QMimeData;

// Files dropped on the main window. A character file opens. An image or a group
// element opens as a document of its own when no document was open at the drop;
// otherwise the user says, file by file, whether to add it to the active document, to
// open it, to skip it or to stop there.
class DropHandler
{
public:
    explicit DropHandler(MainWindow& window);

    void dragEnter(QDragEnterEvent* event);
    // Takes the dropped files and handles them once the event is over: the file
    // manager waits for the drop event to end, and would wait for every answer.
    void drop(QDropEvent* event);
    void handle(const QStringList& paths);

    // The local files among the data's URLs, in order; other URLs are left out.
    static QStringList localPaths(const QMimeData* data);

private:
    enum Outcome
    {
        Next,
        Stop
    };

    Outcome handleFile(const QString& path, bool ask);
    void add(QLayer* layer, const QString& path);

    MainWindow& m_window;
};
