#include "batch/sheetnames.h"

#include "formats/filenames.h"

#include <QDir>

#include <algorithm>

bool SheetNames::hasDollarMark(const QString& path)
{
    return fileNameOf(path).left(2).contains(QLatin1Char('$'));
}

QString SheetNames::outputFolderName(unsigned char direction)
{
    switch (direction) {
    case From2003ToXP:
    case FromVXToXP:
        return QStringLiteral("XP_CONVERSIONS");
    case From2003ToVX:
    case FromXPToVX:
        return QStringLiteral("VX_CONVERSIONS");
    case FromXPTo2003:
    case FromVXTo2003:
        return QStringLiteral("2K3_CONVERSIONS");
    default:
        return QString();
    }
}

QString SheetNames::outputFolderOf(const QString& source, unsigned char direction)
{
    return directoryOf(source) + QLatin1Char('/') + outputFolderName(direction);
}

bool SheetNames::isSingleVX(const QString& path, unsigned char characterCount)
{
    return characterCount == 1 || (characterCount == 0 && hasDollarMark(path));
}

QString SheetNames::singleOutput(const QString& source, unsigned char direction)
{
    // VX marks its single characters with "$"; XP has no such mark.
    const bool toVX = direction == From2003ToVX || direction == FromXPToVX;
    return outputFolderOf(source, direction) + QLatin1Char('/') +
           (toVX ? QStringLiteral("$") : QString()) + baseNameOf(source) + QStringLiteral(".png");
}

QString SheetNames::unmarkedOutput(const QString& source, unsigned char direction)
{
    return outputFolderOf(source, direction) + QLatin1Char('/') + baseNameOf(source) +
           QStringLiteral(".png");
}

QStringList SheetNames::eightOutputs(const QString& source, unsigned char direction)
{
    const QString stem = outputFolderOf(source, direction) + QLatin1Char('/') + baseNameOf(source);
    QStringList names;
    for (int k = 1; k <= 8; ++k)
        names.append(stem + QLatin1Char('_') + QString::number(k) + QStringLiteral(".png"));
    return names;
}

QString SheetNames::sheetOutput(const QString& source)
{
    return outputFolderOf(source, FromXPTo2003) + QLatin1Char('/') + fileNameOf(source);
}

QStringList SheetNames::sources(const QStringList& paths, bool fileMode)
{
    if (fileMode)
        return paths;
    if (paths.isEmpty())
        return {};
    const QString folder = paths.first();
    const QStringList entries =
        QDir(folder).entryList({QStringLiteral("*.png"), QStringLiteral("*.gif")}, QDir::Files,
                               QDir::Name | QDir::IgnoreCase);
    QStringList result;
    for (const QString& entry : entries)
        result.append(folder + QLatin1Char('/') + entry);
    return result;
}
