#include "batch/conversionplanner.h"
#include "formats/safefile.h"

#include "batch/sheetnames.h"
#include "formats/filenames.h"

#include <QDir>
#include <QFile>
#include <QSet>

SheetState ConversionPlanner::s_sheet;

QString ConversionPlanner::predictNames(const QString& path, uchar direction, uchar characterCount)
{
    if (direction == SheetNames::Reset) {
        s_sheet.reset();
        return QString();
    }
    // Reading the whole picture, not only its header: a file the converter fails to
    // decode must not take a block of the sheet here either.
    const QImage image = SafeFile::readImage(path);
    if (image.isNull())
        return errorAnswer();
    switch (direction) {
    case SheetNames::From2003ToXP:
        if (image.width() != 72)
            return SheetNames::eightOutputs(path, direction).join(QLatin1Char('|')) +
                   QLatin1Char('|');
        return SheetNames::singleOutput(path, direction);
    case SheetNames::From2003ToVX:
        return image.width() == 72 ? SheetNames::singleOutput(path, direction)
                                   : SheetNames::unmarkedOutput(path, direction);
    case SheetNames::FromXPTo2003:
        return predictTo2003(path, direction, true);
    case SheetNames::FromXPToVX:
        return SheetNames::singleOutput(path, direction);
    case SheetNames::FromVXTo2003:
        return predictTo2003(path, direction, SheetNames::isSingleVX(path, characterCount));
    case SheetNames::FromVXToXP:
        if (!SheetNames::isSingleVX(path, characterCount))
            return SheetNames::eightOutputs(path, direction).join(QLatin1Char('|')) +
                   QLatin1Char('|');
        return SheetNames::singleOutput(path, direction);
    default:
        return QString();
    }
}

QString ConversionPlanner::predictTo2003(const QString& path, uchar direction, bool single)
{
    s_sheet.restartUnlessGoingOn(direction);
    if (!single)
        return SheetNames::sheetOutput(path);
    QString name;
    if (s_sheet.startsNewSheet()) {
        s_sheet.lastSheetPath = SheetNames::sheetOutput(path);
        name = s_sheet.lastSheetPath;
    }
    s_sheet.lastDirection = direction;
    ++s_sheet.slot;
    return name;
}

QStringList ConversionPlanner::plannedFiles(const QStringList& paths, bool fileMode,
                                            uchar direction, uchar characterCount,
                                            QStringList* unreadable)
{
    QStringList names;
    QSet<QString> seen;
    for (const QString& path : SheetNames::sources(paths, fileMode)) {
        const QString answer = predictNames(path, direction, characterCount);
        if (answer == errorAnswer()) {
            if (unreadable)
                unreadable->append(path);
            continue;
        }
        for (const QString& name : answer.split(QLatin1Char('|'), Qt::SkipEmptyParts)) {
            if (!seen.contains(name)) {
                seen.insert(name);
                names.append(name);
            }
        }
    }
    predictNames(QString(), SheetNames::Reset, 0);
    return names;
}

QStringList ConversionPlanner::replacedFiles(const QStringList& paths, bool fileMode,
                                             uchar direction, uchar characterCount)
{
    const QString first = paths.value(0);
    const QString working = fileMode ? directoryOf(first) : first;
    const QString output = working + QLatin1Char('/') + SheetNames::outputFolderName(direction);
    if (working.isEmpty() || !QDir(output).exists())
        return {};
    QStringList replaced;
    for (const QString& name : plannedFiles(paths, fileMode, direction, characterCount)) {
        if (QFile::exists(name))
            replaced.append(name);
    }
    return replaced;
}
