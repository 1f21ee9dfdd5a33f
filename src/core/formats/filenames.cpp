#include "formats/filenames.h"

static qsizetype lastSeparator(const QString& path)
{
    return qMax(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
}

QString directoryOf(const QString& path)
{
    const qsizetype separator = lastSeparator(path);
    return separator < 0 ? QString() : path.left(separator);
}

QString fileNameOf(const QString& path)
{
    return path.mid(lastSeparator(path) + 1);
}

QString baseNameOf(const QString& path)
{
    const QString name = fileNameOf(path);
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? name : name.left(dot);
}

QString extensionOf(const QString& path)
{
    const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? path : path.mid(dot + 1);
}

bool hasExtension(const QString& path, const QString& extension)
{
    return extensionOf(path).compare(extension, Qt::CaseInsensitive) == 0;
}

QString withExtension(const QString& path, const QString& extension)
{
    return hasExtension(path, extension) ? path : path + QLatin1Char('.') + extension;
}

bool isValidFileName(const QString& name)
{
    static const QString refused = QStringLiteral("\\/*|<>:?\"");
    for (const QChar character : name) {
        if (refused.contains(character))
            return false;
    }
    return true;
}
