#include "app/startup.h"

#include "app/mainwindow.h"

#include <QCoreApplication>
#include <QTranslator>
#include <QFileInfo>

static bool hasSuffix(const QString& path, const char* suffix)
{
    return QFileInfo(path).suffix().compare(QLatin1String(suffix), Qt::CaseInsensitive) == 0;
}

QList<Startup::Opening> Startup::openings(const QStringList& arguments, const QString& opened)
{
    QList<Opening> result;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString& path = arguments.at(i);
        if (hasSuffix(path, "zk"))
            result.append({CharacterFile, path, true});
        else if (hasSuffix(path, "png"))
            result.append({ImageFile, path, true});
        else if (hasSuffix(path, "elzk"))
            result.append({ElementFile, path, true});
    }
    // Only a start without any argument reopens the last documents, whatever the
    // arguments were worth: a skipped argument also suppresses the reopening. Those
    // files go to the character reader whatever their extension, and quietly.
    if (arguments.size() == 1) {
        for (const QString& path : opened.split(QLatin1Char('|'), Qt::SkipEmptyParts))
            result.append({CharacterFile, path, false});
    }
    return result;
}

void Startup::open(MainWindow& window, const QList<Opening>& openings)
{
    for (const Opening& opening : openings) {
        switch (opening.kind) {
        case CharacterFile:
            window.openCharacterFile(opening.path, opening.reportErrors);
            break;
        case ImageFile:
            window.openImageFile(opening.path);
            break;
        case ElementFile:
            window.openElementFile(opening.path);
            break;
        }
    }
}

bool Startup::installCatalogue(QTranslator& translator)
{
    if (!translator.load(QStringLiteral(":/translations/fr")))
        return false;
    return QCoreApplication::installTranslator(&translator);
}
