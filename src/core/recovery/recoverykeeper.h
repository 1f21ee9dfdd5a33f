#pragma once

#include "document/character.h"
#include "recovery/recoveryentry.h"

#include <QFuture>
#include <QHash>
#include <QObject>
#include <QString>

#include <functional>

class QTimer;

// What a document gives for its recovery copy, taken when the copy is due.
struct RecoverySource
{
    Character character;
    QString originalPath;
    QString title;
};

// Keeps a recovery copy of every document that differs from its saved state, so that
// a crash, a killed session or a power cut loses at most the last half minute. A copy
// is due a fixed delay after the first change that follows the last one; it is written
// on a worker thread from a copy of the character (its images are shared, not copied),
// while the user goes on working. Saving, discarding and closing remove the copy.
class RecoveryKeeper : public QObject
{
    Q_OBJECT

public:
    static constexpr int Delay = 30000;

    explicit RecoveryKeeper(const QString& folder, QObject* parent = nullptr);
    // Waits for the copies under way, then removes every copy of this instance: a
    // normal exit leaves nothing to recover.
    ~RecoveryKeeper() override;

    QString folder() const { return m_folder; }
    // A new document; source is asked for its state each time a copy is due.
    int track(std::function<RecoverySource()> source);
    // The document closed: its copy goes, and it is forgotten.
    void untrack(int document);
    // The document changed: a copy becomes due after Delay, unless one already is.
    void changed(int document);
    // The document was saved or its changes discarded: no copy is due and the old one
    // goes.
    void discard(int document);

    bool isPending(int document) const;
    int pendingInterval(int document) const;
    // The entry of the document's last written copy; empty when it has none.
    RecoveryEntry entry(int document) const;
    // Waits for every copy under way and handles its end.
    void waitForCopies();

public slots:
    // The delay ran out: the copy starts now.
    void copyDue(int document);

signals:
    // A copy could not be written; said once until a copy succeeds again.
    void copyFailed(const QString& message);
    void copyWritten(int document);

private:
    struct Document
    {
        std::function<RecoverySource()> source;
        QTimer* timer = nullptr;
        RecoveryEntry entry;
        int sequence = 0;
        bool writing = false;
        // A copy fell due while the previous one was still being written.
        bool dueAgain = false;
        bool closed = false;
        // Counts discards, so that a copy that ends after one is thrown away.
        int generation = 0;
    };
    struct Job
    {
        int document = 0;
        RecoveryEntry entry;
        int generation = 0;
        QFuture<QString> future;
    };

    void finish(int job);
    void removeFiles(Document& document);

    QString m_folder;
    qint64 m_pid = 0;
    int m_nextDocument = 1;
    int m_nextJob = 1;
    bool m_failureShown = false;
    QHash<int, Document> m_documents;
    QHash<int, Job> m_jobs;
};
