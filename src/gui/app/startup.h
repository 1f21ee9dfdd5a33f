#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class MainWindow;
class QTranslator;

// What the program opens when it starts: the files named on its command line, or,
// when it was started with no argument at all, the documents that were open when it
// was last closed.
class Startup
{
public:
    enum Kind
    {
        CharacterFile,
        ImageFile,
        ElementFile
    };

    struct Opening
    {
        Kind kind;
        QString path;
        bool reportErrors;
        bool operator==(const Opening& other) const
        {
            return kind == other.kind && path == other.path && reportErrors == other.reportErrors;
        }
    };

    // arguments holds the program's name first, as argv does. opened is the setting
    // of that name: paths each followed by "|".
    static QList<Opening> openings(const QStringList& arguments, const QString& opened);
    // Loads the toolkit's French catalogue into translator and installs it, whatever
    // the system's language: the program's own texts are French.
    static bool installCatalogue(QTranslator& translator);
    // Opens them in the window, in order; each opener reports its own failures.
    static void open(MainWindow& window, const QList<Opening>& openings);
};
