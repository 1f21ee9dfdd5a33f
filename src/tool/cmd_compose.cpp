// zenkora-tool compose: a character or element file flattened to the PNG sheet that
// the editor exports.
#include "document/character.h"
#include "formats/elementfile.h"
#include "formats/pngwriter.h"
#include "toolcommand.h"

#include <QFileInfo>

#include <optional>

namespace {

// An element file becomes a character as when the editor opens it: its second stack
// on top of its first.
std::optional<Character> loadAny(const QString& path, QString* error)
{
    if (QFileInfo(path).suffix().compare(QLatin1String("elzk"), Qt::CaseInsensitive) == 0) {
        const std::optional<ElementFile::Pair> pair = ElementFile::load(path, error);
        if (!pair)
            return std::nullopt;
        return ElementFile::merged(*pair);
    }
    Character character;
    if (!character.loadCharacter(path)) {
        *error = character.errorText();
        return std::nullopt;
    }
    return character;
}

int runCompose(const QStringList& arguments)
{
    if (arguments.size() != 2) {
        printError(QStringLiteral("zenkora-tool compose: a file and an output path expected\n"
                                  "Usage: zenkora-tool compose FILE OUT.png\n"));
        return 2;
    }
    QString error;
    const std::optional<Character> character = loadAny(arguments.at(0), &error);
    if (!character || !PngWriter::save(character->compose(), arguments.at(1), &error)) {
        printError(plainMessage(error) + QLatin1Char('\n'));
        return 1;
    }
    return 0;
}

const ToolCommand
    command("compose", "compose FILE OUT.png",
            "  Writes the composed sheet of a character file (.zk) or an element file (.elzk,\n"
            "  its two stacks merged as the editor opens it) to OUT.png, byte for byte as the\n"
            "  editor's PNG export: hidden elements left out, transparent pixels kept raw.\n",
            &runCompose);

} // namespace
