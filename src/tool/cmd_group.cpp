// zenkora-tool group: a group element made from sheets, as the group element window
// writes it.
#include "toolcommand.h"

#include "document/character.h"
#include "formats/elementfile.h"
#include "formats/safefile.h"
#include "imaging/keycolours.h"

#include <QColor>
#include <QImage>

namespace {

constexpr const char* Synopsis = "group OUT.elzk --kind xp|vx --below N SHEET...";

int usageError(const QString& problem)
{
    printError(QStringLiteral("zenkora-tool group: ") + problem +
               QStringLiteral("\nUsage: zenkora-tool ") + QString::fromUtf8(Synopsis) +
               QLatin1Char('\n'));
    return 2;
}

struct Options
{
    QStringList paths;
    QString kind;
    QString below;
};

// Returns an empty text, or what is wrong with the arguments.
QString parse(const QStringList& arguments, Options& options)
{
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("--kind") && i + 1 < arguments.size())
            options.kind = arguments.at(++i);
        else if (argument == QLatin1String("--below") && i + 1 < arguments.size())
            options.below = arguments.at(++i);
        else if (argument.startsWith(QLatin1String("--")))
            return QStringLiteral("unknown option ") + argument;
        else
            options.paths.append(argument);
    }
    if (options.kind != QLatin1String("xp") && options.kind != QLatin1String("vx"))
        return QStringLiteral("--kind is xp or vx");
    // The window asks for two simple elements at least.
    if (options.paths.size() < 3)
        return QStringLiteral("the file to write and at least two sheets expected");
    bool number = false;
    const int below = options.below.toInt(&number);
    if (!number || below < 0 || below > options.paths.size() - 1)
        return QStringLiteral("--below is a number from 0 to the number of sheets");
    return QString();
}

int runGroup(const QStringList& arguments)
{
    Options options;
    const QString problem = parse(arguments, options);
    if (!problem.isEmpty())
        return usageError(problem);
    const QString target = options.paths.takeFirst();
    QList<QImage> sheets;
    for (const QString& path : std::as_const(options.paths)) {
        const QImage image = SafeFile::readImage(path);
        if (image.isNull()) {
            printError(QStringLiteral("zenkora-tool group: Impossible d'ouvrir ") + path +
                       QLatin1Char('\n'));
            return 1;
        }
        // What the window keeps of an image on which no key colour was picked.
        sheets.append(applyKeyColours(image, Qt::transparent, Qt::transparent));
    }
    const int kind = options.kind == QLatin1String("vx") ? Character::VX : Character::XP;
    QString error;
    if (!ElementFile::write(target, sheets, options.below.toInt(), kind, &error)) {
        printError(QStringLiteral("zenkora-tool group: ") + plainMessage(error) +
                   QLatin1Char('\n'));
        return 1;
    }
    return 0;
}

const ToolCommand
    command("group", Synopsis,
            "  Writes a group element (.elzk) of the sheets, in the order given from the\n"
            "  bottom of the stack up, as \"Ajouter un Elément Zenkora XP/VX à la\n"
            "  bibliothèque\" writes it: the first N sheets go beneath the element the group\n"
            "  wraps when it is added to a character, the others above it. Sheets of other\n"
            "  sizes are centred on the cells of the largest. A group holds two sheets at\n"
            "  least and 127 at most. Run keycolour first on sheets with a coloured ground.\n",
            &runGroup);

} // namespace
