// zenkora-tool resave: a character file written again, in either version of the format.
#include "document/character.h"
#include "toolcommand.h"

namespace {

int usageError(const QString& problem)
{
    printError(QStringLiteral("zenkora-tool resave: ") + problem +
               QStringLiteral("\nUsage: zenkora-tool resave IN.zk OUT.zk [--format 0|1]\n"));
    return 2;
}

int runResave(const QStringList& arguments)
{
    QStringList paths;
    QString format;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("--format") && i + 1 < arguments.size())
            format = arguments.at(++i);
        else if (argument.startsWith(QLatin1String("--format=")))
            format = argument.mid(9);
        else if (argument.startsWith(QLatin1String("--")))
            return usageError(QStringLiteral("unknown option ") + argument);
        else
            paths.append(argument);
    }
    if (paths.size() != 2)
        return usageError(QStringLiteral("an input and an output file expected"));
    if (!format.isEmpty() && format != QLatin1String("0") && format != QLatin1String("1"))
        return usageError(QStringLiteral("the format is 0 or 1"));

    Character character;
    quint8 version = 1;
    if (!character.loadCharacter(paths.at(0), &version) ||
        !character.saveCharacter(paths.at(1),
                                 format.isEmpty() ? version : quint8(format.toInt()))) {
        printError(plainMessage(character.errorText()) + QLatin1Char('\n'));
        return 1;
    }
    return 0;
}

const ToolCommand
    command("resave", "resave IN.zk OUT.zk [--format 0|1]",
            "  Reads a character file and writes it again, in format 1 (the current one) or 0\n"
            "  (the old one that the editor still writes as \"Fichier Zenkora Beta\"); without\n"
            "  --format, in the format it was read in. Format 1 keeps the fill pixel and drops\n"
            "  the zoom and the view flags; format 0 keeps those and drops the fill pixel.\n",
            &runResave);

} // namespace
