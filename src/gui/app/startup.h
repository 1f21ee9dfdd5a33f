#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class MainWindow;
class QTranslator;
class Settings;

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
    // What follows the window's showing: the documents of the command line (or of
    // the last run) open, then, on the first run only, the welcome, the donation box
    // and the offer of help, one after the other, and settings notes that they were
    // shown. settings is the one object of the whole run, an image of the file taken
    // before the documents opened.
    static void run(MainWindow& window, Settings& settings, const QStringList& arguments);
};
