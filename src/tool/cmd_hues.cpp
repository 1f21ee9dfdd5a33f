// zenkora-tool hues: saving a character in many hues on the command line.
#include "toolcommand.h"

#include "batch/masssaveplan.h"
#include "batch/savemasssystem.h"
#include "document/character.h"
#include "formats/elementfile.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <memory>

#include <unistd.h>

namespace {

struct HuesOptions
{
    QString file;
    QString folder;
    QString prefix;
    int step = 20; // the dialog's own start value
    bool redefine = false;
    bool overwrite = false;
    bool grouped = false;
    QString elements;
};

int usageError(const QString& text)
{
    printError(QStringLiteral("zenkora-tool hues: ") + text +
               QStringLiteral("\nSee zenkora-tool hues --help.\n"));
    return 2;
}

QString parse(const QStringList& arguments, HuesOptions& options)
{
    bool hasElements = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("--redefine")) {
            options.redefine = true;
        } else if (argument == QLatin1String("--overwrite")) {
            options.overwrite = true;
        } else if (argument == QLatin1String("--grouped")) {
            options.grouped = true;
        } else if (argument == QLatin1String("--out") || argument == QLatin1String("--prefix") ||
                   argument == QLatin1String("--step") || argument == QLatin1String("--elements")) {
            if (i + 1 >= arguments.size())
                return argument + QStringLiteral(" wants a value");
            const QString value = arguments.at(++i);
            if (argument == QLatin1String("--out")) {
                options.folder = value;
            } else if (argument == QLatin1String("--prefix")) {
                options.prefix = value;
            } else if (argument == QLatin1String("--elements")) {
                options.elements = value;
                hasElements = true;
            } else {
                bool ok = false;
                options.step = value.toInt(&ok);
                // The dialog's spin box keeps the step between these bounds.
                if (!ok || options.step < 5 || options.step > 120)
                    return QStringLiteral("--step wants degrees from 5 to 120");
            }
        } else if (argument.startsWith(QLatin1String("--"))) {
            return QStringLiteral("unknown option ") + argument;
        } else if (options.file.isEmpty()) {
            options.file = argument;
        } else {
            return QStringLiteral("one file only");
        }
    }
    if (options.file.isEmpty())
        return QStringLiteral("no file given");
    if (options.folder.isEmpty())
        return QStringLiteral("--out is required");
    if (!hasElements)
        return QStringLiteral("--elements is required");
    return QString();
}

// The character of a .zk file, or of an .elzk file with its two stacks merged.
bool loadCharacter(const QString& path, Character& character)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    QString error;
    if (suffix == QLatin1String("zk")) {
        if (character.loadCharacter(path))
            return true;
        error = character.errorText();
    } else {
        const std::optional<ElementFile::Pair> pair = ElementFile::load(path, &error);
        if (pair) {
            character = ElementFile::merged(*pair);
            return true;
        }
    }
    printError(plainMessage(error) + QLatin1Char('\n'));
    return false;
}

// Element indexes, each once and inside the character; an error text otherwise.
QString parseElements(const QString& text, int count, QList<int>& elements)
{
    for (const QString& part : text.split(QLatin1Char(','))) {
        bool ok = false;
        const int e = part.trimmed().toInt(&ok);
        if (!ok || e < 0 || e >= count)
            return QStringLiteral("no element %1: the character has %2 (0 to %3)")
                .arg(part)
                .arg(count)
                .arg(count - 1);
        if (elements.contains(e))
            return QStringLiteral("element %1 is given twice").arg(e);
        elements.append(e);
    }
    return QString();
}

int saveHues(Character& character, const HuesOptions& options, const QList<int>& elements)
{
    const uint step = uint(options.step);
    MassSavePlan::Grouping grouping;
    if (options.grouped) {
        MassSavePlan::tagSources(character);
        grouping = MassSavePlan::grouping(character, elements);
    }
    const QList<MassSavePlan::Entry> entries =
        options.grouped ? MassSavePlan::groupedEntries(character, grouping.simpleElements,
                                                       grouping.groupElements)
                        : MassSavePlan::plainEntries(elements);
    QSet<QString> planned;
    QStringList existing;
    for (const QString& name : MassSavePlan::fileNames(entries, options.prefix, step)) {
        const QString path = options.folder + QLatin1Char('/') + name;
        if (!planned.contains(path) && QFile::exists(path))
            existing.append(path);
        planned.insert(path);
    }
    if (!existing.isEmpty() && !options.overwrite) {
        QString text = QStringLiteral("zenkora-tool hues: these files exist and would be "
                                      "replaced; nothing was written (give --overwrite to "
                                      "replace them):\n");
        for (const QString& path : existing)
            text += QStringLiteral("  ") + path + QLatin1Char('\n');
        printError(text);
        return 1;
    }

    const bool showProgress = isatty(STDERR_FILENO);
    std::unique_ptr<SaveMassSystem> worker =
        options.grouped
            ? std::make_unique<SaveMassSystem>(&character, grouping.simpleElements,
                                               grouping.groupElements, options.folder,
                                               options.prefix, step, options.redefine, nullptr)
            : std::make_unique<SaveMassSystem>(&character, elements, options.folder, options.prefix,
                                               step, options.redefine, nullptr);
    QObject::connect(
        worker.get(), &SaveMassSystem::changeProgess, [&](uchar percent, const QString& info) {
            if (showProgress)
                printError(QStringLiteral("\r\x1b[K%1 % %2").arg(percent, 3).arg(info));
        });
    // Nothing else to do meanwhile: the thread body runs here, signals as direct calls.
    worker->run();
    if (showProgress)
        printError(QStringLiteral("\r\x1b[K"));

    for (const QString& path : worker->failedWrites())
        printError(QStringLiteral("cannot write: ") + path + QLatin1Char('\n'));
    printOut(QString::number(planned.size() - worker->failedWrites().size()) + QLatin1Char('\n'));
    return worker->failedWrites().isEmpty() ? 0 : 1;
}

int runHues(const QStringList& arguments)
{
    HuesOptions options;
    const QString error = parse(arguments, options);
    if (!error.isEmpty())
        return usageError(error);
    const QString suffix = QFileInfo(options.file).suffix().toLower();
    if (suffix != QLatin1String("zk") && suffix != QLatin1String("elzk"))
        return usageError(QStringLiteral("the file must be a .zk or an .elzk"));
    Character character;
    if (!loadCharacter(options.file, character))
        return 1;
    QList<int> elements;
    const QString elementError =
        parseElements(options.elements, character.elementCount(), elements);
    if (!elementError.isEmpty())
        return usageError(elementError);
    // As in the dialog, whose copy of the character has no element selected.
    character.clearElementSelection();
    return saveHues(character, options, elements);
}

const ToolCommand
    command("hues",
            "hues FILE --out DIR [--prefix P] [--step DEG] [--redefine] [--overwrite] "
            "(--elements I,J,... | --grouped --elements I,J,...)",
            "  Saves the character of FILE (.zk, or .elzk with its two stacks merged) many\n"
            "  times, turning the hue of each chosen element by DEG degrees (5 to 120,\n"
            "  default 20) from one file to the next: PREFIX + element + \"_\" + degrees +\n"
            "  \".png\" in DIR. --elements takes element indexes. With --grouped, elements of\n"
            "  one element file group turn together, named after the group's last element.\n"
            "  --redefine sets the hue instead of turning it. Existing files are replaced\n"
            "  only with --overwrite. Prints the number of files written; files that can't\n"
            "  be written go to stderr (\"cannot write: PATH\") and give exit status 1.\n",
            &runHues);

} // namespace
