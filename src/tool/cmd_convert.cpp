// zenkora-tool convert: the sheet converter on the command line.
#include "toolcommand.h"

#include "batch/conversionplanner.h"
#include "batch/converter.h"
#include "batch/sheetnames.h"
#include "formats/filenames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

namespace {

struct ConvertOptions
{
    int direction = -1;
    int count = 0;
    bool dryRun = false;
    bool overwrite = false;
    QStringList paths;
};

int usageError(const QString& text)
{
    printError(QStringLiteral("zenkora-tool convert: ") + text +
               QStringLiteral("\nSee zenkora-tool convert --help.\n"));
    return 2;
}

// Reads a whole number from 0 to highest; -1 when it is none.
int smallNumber(const QString& text, int highest)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    return ok && value >= 0 && value <= highest ? value : -1;
}

// Returns an error text, empty when the arguments are well formed.
QString parse(const QStringList& arguments, ConvertOptions& options)
{
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("--dry-run")) {
            options.dryRun = true;
        } else if (argument == QLatin1String("--overwrite")) {
            options.overwrite = true;
        } else if (argument == QLatin1String("--direction") ||
                   argument == QLatin1String("--count")) {
            const bool isDirection = argument == QLatin1String("--direction");
            // 6 is no direction but the code that resets the sheet under way.
            const int value = smallNumber(arguments.value(++i), isDirection ? 5 : 2);
            if (value < 0)
                return argument + QStringLiteral(" wants a number from 0 to ") +
                       (isDirection ? QStringLiteral("5") : QStringLiteral("2"));
            (isDirection ? options.direction : options.count) = value;
        } else if (argument.startsWith(QLatin1String("--"))) {
            return QStringLiteral("unknown option ") + argument;
        } else {
            options.paths.append(QDir::cleanPath(QFileInfo(argument).absoluteFilePath()));
        }
    }
    if (options.direction < 0)
        return QStringLiteral("--direction is required");
    if (options.paths.isEmpty())
        return QStringLiteral("no file or folder given");
    return QString();
}

// One folder alone is folder mode; otherwise files of one folder.
QString checkPaths(const QStringList& paths, bool* fileMode)
{
    *fileMode = !(paths.size() == 1 && QFileInfo(paths.first()).isDir());
    if (!*fileMode)
        return QString();
    const QString folder = directoryOf(paths.first());
    for (const QString& path : paths) {
        if (QFileInfo(path).isDir())
            return QStringLiteral("a folder must be given alone: ") + path;
        if (directoryOf(path) != folder)
            return QStringLiteral("the files must be in one folder");
    }
    return QString();
}

void listFiles(const QString& heading, const QStringList& files)
{
    QString text = heading;
    for (const QString& file : files)
        text += QStringLiteral("  ") + file + QLatin1Char('\n');
    printError(text);
}

int runConversion(const ConvertOptions& options, bool fileMode)
{
    const bool showProgress = isatty(STDERR_FILENO);
    Converter converter(options.paths, fileMode, uchar(options.direction), nullptr,
                        uchar(options.count));
    QString fatal;
    QString outputFolder;
    QObject::connect(&converter, &Converter::changeProgress, [&](uint value, const QString& info) {
        if (showProgress)
            printError(QStringLiteral("\r\x1b[K%1 % %2").arg(value, 3).arg(info));
    });
    QObject::connect(&converter, &Converter::fatalError,
                     [&](const QString& info) { fatal = info; });
    QObject::connect(&converter, &Converter::finishThread,
                     [&](const QStringList&, const QString& folder) { outputFolder = folder; });
    // The tool has nothing else to do meanwhile: the thread body runs right here, and
    // the signals arrive as direct calls.
    converter.run();
    if (showProgress)
        printError(QStringLiteral("\r\x1b[K"));
    if (!fatal.isEmpty()) {
        printError(fatal + QLatin1Char('\n'));
        return 1;
    }
    printOut(outputFolder + QLatin1Char('\n'));
    for (const QString& path : converter.failedFiles())
        printError(QStringLiteral("cannot open: ") + path + QLatin1Char('\n'));
    for (const QString& path : converter.failedWrites())
        printError(QStringLiteral("cannot write: ") + path + QLatin1Char('\n'));
    return converter.failedFiles().isEmpty() && converter.failedWrites().isEmpty() ? 0 : 1;
}

// Says what a run would do, and fails where it would fail.
int dryRun(const ConvertOptions& options, bool fileMode, const QStringList& planned,
           const QStringList& existing, const QStringList& unreadable)
{
    const QString first = options.paths.first();
    if (!QFileInfo(fileMode ? directoryOf(first) : first).isDir()) {
        printError(QStringLiteral("Impossible d'ouvrir le dossier : ") + first + QLatin1Char('\n'));
        return 1;
    }
    for (const QString& name : planned)
        printOut(name + QLatin1Char('\n'));
    if (!existing.isEmpty())
        listFiles(QStringLiteral("These files would be replaced:\n"), existing);
    for (const QString& path : unreadable)
        printError(QStringLiteral("cannot open: ") + path + QLatin1Char('\n'));
    return unreadable.isEmpty() ? 0 : 1;
}

int runConvert(const QStringList& arguments)
{
    ConvertOptions options;
    QString error = parse(arguments, options);
    bool fileMode = true;
    if (error.isEmpty())
        error = checkPaths(options.paths, &fileMode);
    if (!error.isEmpty())
        return usageError(error);
    // Only the conversions from VX look at the number of characters a file holds.
    if (options.direction != SheetNames::FromVXTo2003 &&
        options.direction != SheetNames::FromVXToXP)
        options.count = 0;

    QStringList unreadable;
    const QStringList planned = ConversionPlanner::plannedFiles(
        options.paths, fileMode, uchar(options.direction), uchar(options.count), &unreadable);
    QStringList existing;
    for (const QString& name : planned) {
        if (QFile::exists(name))
            existing.append(name);
    }
    if (options.dryRun)
        return dryRun(options, fileMode, planned, existing, unreadable);
    if (!existing.isEmpty() && !options.overwrite) {
        listFiles(QStringLiteral("zenkora-tool convert: these files exist and would be replaced; "
                                 "nothing was written (give --overwrite to replace them):\n"),
                  existing);
        return 1;
    }
    return runConversion(options, fileMode);
}

const ToolCommand
    command("convert", "convert --direction N [--count 0|1|2] [--dry-run] [--overwrite] PATH...",
            "  Converts character sheets between RPG Maker 2003, XP and VX, into a folder\n"
            "  XP_CONVERSIONS, VX_CONVERSIONS or 2K3_CONVERSIONS beside the sources.\n"
            "  N: 0 2003 to XP, 1 2003 to VX, 2 XP to 2003, 3 XP to VX, 4 VX to 2003, 5 VX to XP.\n"
            "  PATH: one folder (its PNG and GIF files, by name), or files of one folder.\n"
            "  --count: for directions 4 and 5, characters in each file: 0 one when a \"$\"\n"
            "  stands in the first two letters of the name, else eight (default); 1 one; 2 eight.\n"
            "  --dry-run prints the files that would be written and writes nothing.\n"
            "  Existing files are replaced only with --overwrite. Prints the output folder;\n"
            "  files that can't be opened (\"cannot open: PATH\") or written (\"cannot write:\n"
            "  PATH\") go to stderr and give exit status 1.\n",
            &runConvert);

} // namespace
