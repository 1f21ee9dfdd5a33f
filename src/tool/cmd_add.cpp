// zenkora-tool add: library elements stacked on a character without the editor, each
// added exactly as the editor's element box adds it.
#include "document/character.h"
#include "formats/filenames.h"
#include "library/elementadder.h"
#include "toolcommand.h"

namespace {

constexpr const char* Synopsis =
    "add CHARACTER.zk ELEMENT... [--new xp|vx] [--convert] [--format 0|1]";

int usageError(const QString& problem)
{
    printError(QStringLiteral("zenkora-tool add: ") + problem +
               QStringLiteral("\nUsage: zenkora-tool ") + QString::fromUtf8(Synopsis) +
               QLatin1Char('\n'));
    return 2;
}

struct Options
{
    QStringList paths;
    QString kind;
    QString format;
    bool convert = false;
};

// Returns an empty text, or what is wrong with the arguments.
QString parse(const QStringList& arguments, Options& options)
{
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("--convert"))
            options.convert = true;
        else if (argument == QLatin1String("--new") && i + 1 < arguments.size())
            options.kind = arguments.at(++i);
        else if (argument.startsWith(QLatin1String("--new=")))
            options.kind = argument.mid(6);
        else if (argument == QLatin1String("--format") && i + 1 < arguments.size())
            options.format = arguments.at(++i);
        else if (argument.startsWith(QLatin1String("--format=")))
            options.format = argument.mid(9);
        else if (argument.startsWith(QLatin1String("--")))
            return QStringLiteral("unknown option ") + argument;
        else
            options.paths.append(argument);
    }
    if (options.paths.size() < 2)
        return QStringLiteral("a character file and at least one element expected");
    if (!options.kind.isEmpty() && options.kind != QLatin1String("xp") &&
        options.kind != QLatin1String("vx"))
        return QStringLiteral("the kind of --new is xp or vx");
    if (!options.format.isEmpty() && options.format != QLatin1String("0") &&
        options.format != QLatin1String("1"))
        return QStringLiteral("the format is 0 or 1");
    return QString();
}

int failure(const QString& message)
{
    printError(QStringLiteral("zenkora-tool add: ") + plainMessage(message) + QLatin1Char('\n'));
    return 1;
}

// A group goes around the topmost element, as in the editor with no single element
// selected.
ElementAdder::Result add(Character& character, const QString& path, bool convert, QString* error)
{
    if (hasExtension(path, QStringLiteral("elzk")))
        return ElementAdder::addGroup(character, path, error);
    *error = QStringLiteral("Impossible d'ouvrir : ") + path;
    return ElementAdder::addImage(character, path, convert);
}

int runAdd(const QStringList& arguments)
{
    Options options;
    const QString problem = parse(arguments, options);
    if (!problem.isEmpty())
        return usageError(problem);

    const QString target = options.paths.takeFirst();
    Character character;
    quint8 version = 1;
    if (options.kind.isEmpty()) {
        if (!character.loadCharacter(target, &version))
            return failure(character.errorText());
    } else {
        character =
            Character(options.kind == QLatin1String("vx") ? Character::VX : Character::XP, QSize());
    }
    // Nothing is written unless every element went in.
    for (const QString& path : options.paths) {
        QString error;
        switch (add(character, path, options.convert, &error)) {
        case ElementAdder::Added:
            break;
        case ElementAdder::Full:
            return failure(path + QStringLiteral(": Impossible de créer plus de 255 éléments !"));
        case ElementAdder::Unreadable:
            return failure(error);
        }
    }
    if (!options.format.isEmpty())
        version = quint8(options.format.toInt());
    if (!character.saveCharacter(target, version))
        return failure(character.errorText());
    return 0;
}

const ToolCommand
    command("add", Synopsis,
            "  Stacks elements on a character, each as the editor's \"Ajouter des éléments\" box\n"
            "  adds it. A PNG sheet is cut into cells and goes on top, named \"Elément N\"; with\n"
            "  --convert it is taken as made for the other engine (VX for an XP character, XP\n"
            "  for a VX one) and converted. A group element (.elzk) wraps the topmost element:\n"
            "  its first stack beneath it, its second above it. A character holds at most 255\n"
            "  elements. With --new the character is made anew, of the kind's default sheet,\n"
            "  replacing the file; otherwise the file is read and added to. --format picks the\n"
            "  version written (default: 1 for a new file, else the version read). Nothing is\n"
            "  written when an element cannot be added.\n",
            &runAdd);

} // namespace
