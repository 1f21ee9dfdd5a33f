// zenkora-tool info: what a .zk, .elzk or .zkd file holds, as JSON for scripts.
#include "document/character.h"
#include "formats/characterfile.h"
#include "formats/elementfile.h"
#include "formats/gradientfile.h"
#include "formats/palettefile.h"
#include "toolcommand.h"

#include <QFileInfo>
#include <QLocale>

namespace {

using Members = QList<std::pair<const char*, QString>>;

QString quoted(const QString& text)
{
    QString out = QStringLiteral("\"");
    for (const QChar ch : text) {
        if (ch == QLatin1Char('"') || ch == QLatin1Char('\\'))
            out += QLatin1Char('\\') + ch;
        else if (ch.unicode() < 0x20)
            out += QStringLiteral("\\u%1").arg(ch.unicode(), 4, 16, QLatin1Char('0'));
        else
            out += ch;
    }
    return out + QLatin1Char('"');
}

// Model strings are Latin-1 bytes; scripts get them as text.
QString quoted(const QByteArray& latin1)
{
    return quoted(QString::fromLatin1(latin1));
}

QString boolean(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString number(int value)
{
    return QString::number(value);
}

QString object(const Members& members, const QString& indent)
{
    QStringList lines;
    for (const auto& [key, value] : members)
        lines.append(indent + QStringLiteral("    \"%1\": ").arg(QLatin1String(key)) + value);
    return QStringLiteral("{\n") + lines.join(QStringLiteral(",\n")) + QLatin1Char('\n') + indent +
           QLatin1Char('}');
}

QString array(const QStringList& items, const QString& indent)
{
    if (items.isEmpty())
        return QStringLiteral("[]");
    QStringList lines;
    for (const QString& item : items)
        lines.append(indent + QStringLiteral("    ") + item);
    return QStringLiteral("[\n") + lines.join(QStringLiteral(",\n")) + QLatin1Char('\n') + indent +
           QLatin1Char(']');
}

QString cells(const Character& character, int e, const QString& indent)
{
    QStringList items;
    for (int c = 0; c < character.cellCount(); ++c) {
        const QPoint p = character.cellPosition(e, c);
        const QImage& image = character.cellImage(e, c);
        items.append(QStringLiteral("{\"x\": %1, \"y\": %2, \"width\": %3, \"height\": %4}")
                         .arg(p.x())
                         .arg(p.y())
                         .arg(image.width())
                         .arg(image.height()));
    }
    return array(items, indent);
}

// The elements of the given characters, one after the other.
QString elements(const QList<const Character*>& stacks)
{
    const QString indent = QStringLiteral("        ");
    QStringList items;
    for (const Character* stack : stacks) {
        for (int e = 0; e < stack->elementCount(); ++e) {
            items.append(object({{"name", quoted(stack->elementName(e))},
                                 {"source", quoted(stack->elementSource(e))},
                                 {"visible", boolean(stack->isVisible(e))},
                                 {"cells", cells(*stack, e, indent + QStringLiteral("    "))}},
                                indent));
        }
    }
    return array(items, QStringLiteral("    "));
}

int characterInfo(const QString& path)
{
    Character character;
    quint8 version = 0;
    if (!character.loadCharacter(path, &version)) {
        printError(plainMessage(character.errorText()) + QLatin1Char('\n'));
        return 1;
    }
    Members members = {{"format", number(version)},
                       {"kind", number(character.kind())},
                       {"width", number(character.sheetSize().width())},
                       {"height", number(character.sheetSize().height())}};
    if (version == 1) {
        members.append({"fillPixel", number(character.fillPixel())});
    } else {
        members.append({"showGrid", boolean(character.showGrid())});
        members.append({"overflowCells", boolean(character.overflowCells())});
        members.append({"selectionOnly", boolean(character.selectionOnly())});
        members.append(
            {"zoom", QString::number(character.zoom(), 'g', QLocale::FloatingPointShortest)});
    }
    members.append({"elements", elements({&character})});
    printOut(object(members, QString()) + QLatin1Char('\n'));
    return 0;
}

int elementInfo(const QString& path)
{
    QString error;
    const std::optional<ElementFile::Pair> pair = ElementFile::load(path, &error);
    if (!pair) {
        printError(plainMessage(error) + QLatin1Char('\n'));
        return 1;
    }
    const Character& first = pair->first;
    const Members members = {{"format", quoted(QStringLiteral("elzk"))},
                             {"kind", number(first.kind())},
                             {"width", number(first.sheetSize().width())},
                             {"height", number(first.sheetSize().height())},
                             {"first", number(first.elementCount())},
                             {"elements", elements({&pair->first, &pair->second})}};
    printOut(object(members, QString()) + QLatin1Char('\n'));
    return 0;
}

QString stops(const QList<GradientData>& stops)
{
    QStringList items;
    for (const GradientData& stop : stops) {
        const QString colour =
            QStringLiteral("%1").arg(stop.color.rgba(), 8, 16, QLatin1Char('0')).toUpper();
        items.append(
            QStringLiteral("{\"position\": %1, \"color\": \"#%2\"}")
                .arg(QString::number(stop.pos, 'g', QLocale::FloatingPointShortest), colour));
    }
    return array(items, QStringLiteral("    "));
}

// A damaged gradient still shows what was read before the damage, as the editor keeps
// it; the reader's message goes to stderr.
int gradientInfo(const QString& path)
{
    const GradientFile::Reading reading = GradientFile::load(path);
    const GradientRecord& record = reading.record;
    Members members;
    if (reading.reached >= GradientFile::Version)
        members.append({"version", number(reading.version)});
    if (reading.reached >= GradientFile::Type)
        members.append({"type", number(record.type)});
    if (reading.reached >= GradientFile::Spread)
        members.append({"spread", number(record.spread)});
    if (reading.reached >= GradientFile::Handles) {
        QStringList handles;
        for (const QPointF& point : record.handles())
            handles.append(
                QStringLiteral("{\"x\": %1, \"y\": %2}").arg(int(point.x())).arg(int(point.y())));
        members.append({"handles", array(handles, QStringLiteral("    "))});
        members.append({"stops", stops(record.stops)});
    }
    if (!members.isEmpty())
        printOut(object(members, QString()) + QLatin1Char('\n'));
    if (!reading.ok()) {
        printError(plainMessage(reading.errorText) + QLatin1Char('\n'));
        return 1;
    }
    return 0;
}

QString nullable(int value)
{
    return value < 0 ? QStringLiteral("null") : number(value);
}

// A damaged palette still shows the colours read before the damage, as the editor
// keeps them, beside the reader's message.
int paletteInfo(const QString& path)
{
    PaletteFile::Contents contents;
    QString error;
    const bool read = PaletteFile::load(path, 0xffff, contents, &error);
    QStringList colours;
    for (const QColor& colour : std::as_const(contents.colours))
        colours.append(quoted(QStringLiteral("#%1").arg(colour.rgba(), 8, 16, QLatin1Char('0')).toUpper()));
    const Members members = {{"version", nullable(contents.version)},
                             {"count", nullable(contents.count)},
                             {"colours", array(colours, QStringLiteral("    "))}};
    printOut(object(members, QString()) + QLatin1Char('\n'));
    if (!read) {
        printError(plainMessage(error) + QLatin1Char('\n'));
        return 1;
    }
    return 0;
}

int runInfo(const QStringList& arguments)
{
    if (arguments.size() != 1) {
        printError(QStringLiteral("zenkora-tool info: one file expected\n"
                                  "Usage: zenkora-tool info FILE\n"));
        return 2;
    }
    const QString& path = arguments.first();
    const QString suffix = QFileInfo(path).suffix();
    if (suffix.compare(QLatin1String("elzk"), Qt::CaseInsensitive) == 0)
        return elementInfo(path);
    if (suffix.compare(QLatin1String("zkd"), Qt::CaseInsensitive) == 0)
        return gradientInfo(path);
    if (suffix.compare(QLatin1String("zkp"), Qt::CaseInsensitive) == 0)
        return paletteInfo(path);
    return characterInfo(path);
}

const ToolCommand command(
    "info", "info FILE",
    "  Prints what a character file (.zk), an element file (.elzk), a palette (.zkp) or a\n"
    "  gradient file (.zkd) holds, as JSON.\n"
    "  A .zk gives {\"format\": 0 or 1, \"kind\", \"width\", \"height\", then \"fillPixel\"\n"
    "  (format 1) or \"showGrid\", \"overflowCells\", \"selectionOnly\", \"zoom\" (format 0),\n"
    "  and \"elements\"}. A .elzk gives {\"format\": \"elzk\", \"kind\", \"width\", \"height\",\n"
    "  \"first\" (the size of the first stack), \"elements\"} with both stacks in file order.\n"
    "  Each element is {\"name\", \"source\", \"visible\", \"cells\": [{\"x\", \"y\", \"width\",\n"
    "  \"height\"}]}: a cell's position relative to its corner and its image's size.\n"
    "  Kind 0 is RPG Maker XP, 1 RPG Maker VX. A .zkp gives {\"version\", \"count\",\n"
    "  \"colours\": [\"#AARRGGBB\", ...]} in index order; for a damaged palette it gives the\n"
    "  colours read before the damage (null for a field not reached) and exits with 1.\n"
    "  A .zkd gives {\"version\", \"type\" (0 linear, 1 radial, 2 conical), \"spread\"\n"
    "  (0 pad, 1 reflect, 2 repeat), \"handles\": [{\"x\", \"y\"}] (start and end; centre,\n"
    "  radius point and focal point; centre and angle point), \"stops\": [{\"position\",\n"
    "  \"color\": \"#AARRGGBB\"}]}. A damaged .zkd prints what was read before the damage,\n"
    "  then fails. Files are told apart by their extension.\n",
    &runInfo);

} // namespace
