#include "library/librarypath.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

QString elementsIn(const QString& folder)
{
    return QDir(folder).filePath(QStringLiteral("elements"));
}

} // namespace

bool LibraryPath::holdsLibrary(const QString& folder)
{
    const QDir dir(folder);
    return QFileInfo(dir.filePath(QStringLiteral("elements/XP"))).isDir() &&
           QFileInfo(dir.filePath(QStringLiteral("elements/VX"))).isDir();
}

QString LibraryPath::resolve(const Folders& folders)
{
    const bool inWorking = holdsLibrary(folders.working);
    const QString root = inWorking ? folders.working : folders.application;
    const QString base = inWorking ? QString() : folders.application + QLatin1Char('/');
    const QString library = elementsIn(root);
    // With no library at all, the folder it would be made in decides.
    const QString probe = QFileInfo(library).isDir() ? library : root;
    if (folders.writable(probe))
        return base;
    const QString userBase = folders.data + QLatin1Char('/');
    if (QFileInfo(elementsIn(folders.data)).isDir())
        return userBase;
    if (!QFileInfo(library).isDir() || !seed(library, folders.data))
        return base;
    return userBase;
}

// Copies the library into a folder beside the user's library, and renames that folder
// into place only when every file is there: a copy interrupted by a crash or a full
// disk leaves the partial folder, which the next start throws away and redoes.
bool LibraryPath::seed(const QString& library, const QString& data)
{
    QDir dataDir(data);
    const QString partial = dataDir.filePath(partialName());
    QDir(partial).removeRecursively();
    if (!dataDir.mkpath(QStringLiteral(".")) || !copyTree(library, partial) ||
        !dataDir.rename(partialName(), QStringLiteral("elements"))) {
        QDir(partial).removeRecursively();
        return false;
    }
    return true;
}

bool LibraryPath::copyTree(const QString& from, const QString& to)
{
    if (!QDir().mkpath(to))
        return false;
    const QFileInfoList entries =
        QDir(from).entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
    for (const QFileInfo& entry : entries) {
        const QString target = QDir(to).filePath(entry.fileName());
        // Links are not followed: a library is plain files and folders.
        if (entry.isSymLink())
            continue;
        const bool copied = entry.isDir() ? copyTree(entry.filePath(), target)
                                          : QFile::copy(entry.filePath(), target);
        if (!copied)
            return false;
    }
    return true;
}

LibraryPath::Folders LibraryPath::current()
{
    Folders folders;
    folders.working = QDir::currentPath();
    folders.application = QCoreApplication::applicationDirPath();
    folders.data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    folders.writable = [](const QString& folder) { return QFileInfo(folder).isWritable(); };
    return folders;
}
