#include "app/startup.h"

#include "app/mainwindow.h"
#include "app/recoverycommands.h"
#include "settings/settings.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTranslator>

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

// The save writes the whole of the older image: a recent file added meanwhile by the
// opening of a command-line document is lost on the first run, as it always was.
void Startup::run(MainWindow& window, Settings& settings, const QStringList& arguments)
{
    // Before the last documents come back: a recovered one may be one of them.
    window.recoveryCommands()->offerAbandoned();
    QString opened;
    settings.get(QStringLiteral("opened"), opened);
    open(window, openings(arguments, opened));

    bool showWelcome = true;
    settings.get(QStringLiteral("showWelcome"), showWelcome);
    if (!showWelcome)
        return;
    window.welcome();
    window.donation();
    window.doYouNeedHelp();
    settings.set(QStringLiteral("showAgain"), QStringLiteral("showWelcome"), false);
    settings.save();
}
