#include "recovery/recoverykeeper.h"

#include "formats/characterfile.h"
#include "formats/safefile.h"
#include "recovery/recoveryfolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFutureWatcher>
#include <QSaveFile>
#include <QTimer>
#include <QtConcurrent/QtConcurrentRun>

namespace {

QString writeFile(const QString& path, const std::function<bool(QIODevice*)>& body)
{
    QSaveFile file(path);
    if (!SafeFile::openForWriting(file))
        return file.errorString();
    if (!body(&file) || !SafeFile::commit(file))
        return file.errorString().isEmpty() ? QStringLiteral("écriture interrompue")
                                            : file.errorString();
    return QString();
}

// Runs on a worker: the copy first, then its index, each written whole then renamed.
// Killed between the two, the older index still names the older, whole copy.
QString writeCopy(Character character, const RecoveryEntry& entry, const QString& folder)
{
    if (!QDir().mkpath(folder))
        return QStringLiteral("le dossier %1 ne peut pas être créé")
            .arg(QDir::toNativeSeparators(folder));
    QString error = writeFile(entry.copyPath, [&character](QIODevice* device) {
        return CharacterFile::write(character, device, 1);
    });
    if (error.isEmpty())
        error = writeFile(entry.indexPath, [&entry](QIODevice* device) {
            const QByteArray json = entry.toJson();
            return device->write(json) == json.size();
        });
    if (!error.isEmpty())
        QFile::remove(entry.copyPath);
    return error;
}

} // namespace

RecoveryKeeper::RecoveryKeeper(const QString& folder, QObject* parent)
    : QObject(parent), m_folder(folder), m_pid(QCoreApplication::applicationPid())
{}

RecoveryKeeper::~RecoveryKeeper()
{
    waitForCopies();
    for (Document& document : m_documents)
        removeFiles(document);
}

int RecoveryKeeper::track(std::function<RecoverySource()> source)
{
    const int id = m_nextDocument++;
    Document& document = m_documents[id];
    document.source = std::move(source);
    document.timer = new QTimer(this);
    document.timer->setSingleShot(true);
    document.timer->setInterval(Delay);
    connect(document.timer, &QTimer::timeout, this, [this, id] { copyDue(id); });
    return id;
}

void RecoveryKeeper::untrack(int document)
{
    auto it = m_documents.find(document);
    if (it == m_documents.end())
        return;
    delete it->timer;
    removeFiles(*it);
    if (it->writing) {
        // The copy under way is removed when it ends.
        it->closed = true;
        it->timer = nullptr;
        return;
    }
    m_documents.erase(it);
}

void RecoveryKeeper::changed(int document)
{
    auto it = m_documents.find(document);
    if (it == m_documents.end() || it->closed || it->timer->isActive())
        return;
    it->timer->start();
}

void RecoveryKeeper::discard(int document)
{
    auto it = m_documents.find(document);
    if (it == m_documents.end() || it->closed)
        return;
    it->timer->stop();
    it->dueAgain = false;
    ++it->generation;
    removeFiles(*it);
}

bool RecoveryKeeper::isPending(int document) const
{
    const auto it = m_documents.constFind(document);
    return it != m_documents.constEnd() && it->timer && it->timer->isActive();
}

int RecoveryKeeper::pendingInterval(int document) const
{
    return isPending(document) ? m_documents.value(document).timer->interval() : 0;
}

RecoveryEntry RecoveryKeeper::entry(int document) const
{
    return m_documents.value(document).entry;
}

void RecoveryKeeper::copyDue(int document)
{
    auto it = m_documents.find(document);
    if (it == m_documents.end() || it->closed)
        return;
    it->timer->stop();
    it->dueAgain = false;
    if (it->writing) {
        it->dueAgain = true;
        return;
    }
    const RecoverySource source = it->source();
    RecoveryEntry entry;
    const QDir dir(m_folder);
    entry.indexPath = dir.filePath(RecoveryFolder::indexName(m_pid, document));
    entry.copyPath = dir.filePath(RecoveryFolder::copyName(m_pid, document, ++it->sequence));
    entry.originalPath = source.originalPath;
    entry.title = source.title;
    entry.kind = source.character.kind();
    entry.copied = QDateTime::currentDateTime();
    entry.pid = m_pid;
    it->writing = true;

    const int job = m_nextJob++;
    m_jobs.insert(job, {document, entry, it->generation,
                        QtConcurrent::run(writeCopy, source.character, entry, m_folder)});
    auto* watcher = new QFutureWatcher<QString>(this);
    connect(watcher, &QFutureWatcher<QString>::finished, this, [this, watcher, job] {
        watcher->deleteLater();
        finish(job);
    });
    watcher->setFuture(m_jobs.value(job).future);
}

void RecoveryKeeper::waitForCopies()
{
    while (!m_jobs.isEmpty()) {
        const int job = m_jobs.constBegin().key();
        m_jobs.value(job).future.waitForFinished();
        finish(job);
    }
}

void RecoveryKeeper::finish(int jobId)
{
    if (!m_jobs.contains(jobId))
        return;
    const Job job = m_jobs.take(jobId);
    const QString error = job.future.result();
    auto it = m_documents.find(job.document);
    if (it == m_documents.end())
        return;
    it->writing = false;
    if (it->closed || it->generation != job.generation) {
        // Closed, saved or discarded while the copy was written: it is stale already.
        if (error.isEmpty())
            RecoveryFolder::remove(job.entry);
        if (it->closed)
            m_documents.erase(it);
        else if (it->dueAgain)
            copyDue(job.document);
        return;
    }
    if (!error.isEmpty()) {
        // The next change tries again; the status bar hears of it once.
        if (!m_failureShown)
            emit copyFailed(QStringLiteral("Copie de secours impossible : ") + error);
        m_failureShown = true;
        return;
    }
    m_failureShown = false;
    // The new index now names the new copy: the older copy can go.
    if (!it->entry.copyPath.isEmpty() && it->entry.copyPath != job.entry.copyPath)
        QFile::remove(it->entry.copyPath);
    it->entry = job.entry;
    const bool dueAgain = it->dueAgain;
    emit copyWritten(job.document);
    if (dueAgain)
        copyDue(job.document);
}

void RecoveryKeeper::removeFiles(Document& document)
{
    RecoveryFolder::remove(document.entry);
    document.entry = RecoveryEntry();
}
