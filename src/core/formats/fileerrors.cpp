#include "formats/fileerrors.h"

#include <QFileInfo>

static QString withPath(const QString& prefix, const QString& path)
{
    return prefix + path + QLatin1Char('.');
}

QString FileErrors::openForReading(const QString& path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isReadable())
        return withPath(QStringLiteral("Vous n'avez pas la permission de lire ce fichier :<br />"),
                        path);
    return withPath(QStringLiteral("Ce fichier n'a pas pu s'ouvrir :<br />"), path);
}

QString FileErrors::openForWriting(const QString& path)
{
    // An existing file is written in place when its folder refuses new files, so only
    // the file's own permission counts then; a new file needs a writable folder.
    const QFileInfo info(path);
    const QFileInfo folder(info.absolutePath());
    const bool refused =
        info.exists() ? !info.isWritable() : folder.exists() && !folder.isWritable();
    if (refused)
        return withPath(
            QStringLiteral("Vous n'avez pas la permission d'écrire dans ce fichier :<br />"), path);
    return withPath(QStringLiteral("Ce fichier n'a pas pu s'ouvrir :<br />"), path);
}

QString FileErrors::writeFailed(const QString& path)
{
    return withPath(QStringLiteral("Impossible d'enregistrer le fichier :<br />"), path);
}
