#pragma once

#include <QList>
#include <QPointer>
#include <QString>

class MainWindow;
class QLayer;
class Settings;

// What happens when the program closes: the colours and the list of documents to
// reopen are stored, and every modified document is asked about, one at a time, or
// all saved at once.
class QuitSequence
{
public:
    explicit QuitSequence(MainWindow& window);
    // False when the user cancelled, or a save failed or was cancelled: the program
    // stays open, and the documents already closed stay closed.
    bool run();

private:
    enum Outcome
    {
        Done,
        LeftEarly,
        Cancelled
    };

    Outcome closeModifiedDocuments(Settings& settings);
    Outcome saveAll();
    int ask(QLayer* layer);
    bool save(QLayer* layer);
    void close(QLayer* layer);
    void addPath(const QLayer* layer);

    MainWindow& m_window;
    QList<QPointer<QLayer>> m_documents;
    QString m_opened;
    int m_modified = 0;
};
