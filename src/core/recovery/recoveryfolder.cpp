#include "recovery/recoveryfolder.h"

#include "formats/safefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>
#include <unistd.h>
#endif

namespace {

// The largest index worth reading; ours are a few hundred bytes.
constexpr qint64 MaximumIndexSize = 64 * 1024;

qint64 ownerOf(const QString& fileName)
{
    bool ok = false;
    const qint64 pid = fileName.section(u'-', 0, 0).toLongLong(&ok);
    return ok ? pid : 0;
}

QByteArray processName(qint64 pid)
{
    QFile file(QStringLiteral("/proc/%1/comm").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll().trimmed();
}

// A killed process stays a zombie until its parent reaps it: it answers kill() but
// runs no more.
bool isZombie(qint64 pid)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray stat = file.read(4096);
    const qsizetype end = stat.lastIndexOf(')');
    return end >= 0 && stat.mid(end + 2, 1) == "Z";
}

} // namespace

QString RecoveryFolder::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/recovery");
}

QString RecoveryFolder::indexName(qint64 pid, int document)
{
    return QStringLiteral("%1-%2.json").arg(pid).arg(document);
}

QString RecoveryFolder::copyName(qint64 pid, int document, int sequence)
{
    return QStringLiteral("%1-%2-%3.zk").arg(pid).arg(document).arg(sequence);
}

bool RecoveryFolder::isRunning(qint64 pid)
{
    if (pid <= 0)
        return false;
#ifdef Q_OS_UNIX
    if (pid != qint64(pid_t(pid)))
        return false;
    if ((::kill(pid_t(pid), 0) != 0 && errno != EPERM) || isZombie(pid))
        return false;
    const QByteArray name = processName(pid);
    // Without /proc the number alone must do.
    return name.isEmpty() || name == processName(::getpid());
#else
    return true;
#endif
}

QList<RecoveryEntry> RecoveryFolder::abandoned(const QString& folder)
{
    QList<RecoveryEntry> entries;
    QSet<QString> named;
    const QDir dir(folder);
    const QFileInfoList indexes =
        dir.entryInfoList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
    for (const QFileInfo& info : indexes) {
        const qint64 owner = ownerOf(info.fileName());
        if (owner > 0 && isRunning(owner))
            continue;
        RecoveryEntry entry;
        QFile file(info.filePath());
        bool read = info.size() <= MaximumIndexSize && SafeFile::openForReading(file) &&
                    RecoveryEntry::fromJson(file.read(MaximumIndexSize), info.filePath(), &entry);
        if (read && isRunning(entry.pid))
            continue;
        if (read && !SafeFile::isRegularFile(entry.copyPath)) {
            // The copy went away (removed by hand): nothing to offer.
            QFile::remove(info.filePath());
            continue;
        }
        if (!read) {
            entry = RecoveryEntry();
            entry.indexPath = info.filePath();
            entry.title = info.completeBaseName();
            entry.copied = info.lastModified();
            entry.errorText = info.filePath() +
                              QStringLiteral(" est endommagé.<br />Il est impossible de l'ouvrir.");
        }
        named.insert(QFileInfo(entry.copyPath).fileName());
        entries.append(entry);
    }
    // Copies no index names, left by a program that died between writing a new copy and
    // its index: the index still names the older, whole copy.
    const QFileInfoList copies = dir.entryInfoList({QStringLiteral("*.zk")}, QDir::Files);
    for (const QFileInfo& info : copies) {
        const qint64 owner = ownerOf(info.fileName());
        if (!named.contains(info.fileName()) && owner > 0 && !isRunning(owner))
            QFile::remove(info.filePath());
    }
    std::stable_sort(
        entries.begin(), entries.end(),
        [](const RecoveryEntry& a, const RecoveryEntry& b) { return a.copied < b.copied; });
    return entries;
}

void RecoveryFolder::remove(const RecoveryEntry& entry)
{
    // The index goes first: a copy without its index is swept by the next scan, an
    // index without its copy would be offered for nothing.
    if (!entry.indexPath.isEmpty())
        QFile::remove(entry.indexPath);
    if (!entry.copyPath.isEmpty())
        QFile::remove(entry.copyPath);
}
