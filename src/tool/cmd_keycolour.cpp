// zenkora-tool keycolour: an image's key colours made transparent, as the window that
// adds images to the library writes them.
#include "toolcommand.h"

#include "formats/pngwriter.h"
#include "formats/safefile.h"
#include "imaging/keycolours.h"

#include <QColor>
#include <QImage>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr const char* Synopsis = "keycolour IN OUT [--transparent RRGGBB] [--translucent RRGGBB]";

int usageError(const QString& problem)
{
    printError(QStringLiteral("zenkora-tool keycolour: ") + problem +
               QStringLiteral("\nUsage: zenkora-tool ") + QString::fromUtf8(Synopsis) +
               QLatin1Char('\n'));
    return 2;
}

// Six hexadecimal digits, an optional "#" before them; the colour is opaque, as one
// picked on the picture is. An invalid colour when the text is not one.
QColor parseColour(QString text)
{
    if (text.startsWith(QLatin1Char('#')))
        text.remove(0, 1);
    static const QRegularExpression digits(QStringLiteral("^[0-9A-Fa-f]{6}$"));
    if (!digits.match(text).hasMatch())
        return QColor();
    return QColor::fromRgb(QRgb(0xff000000u | text.toUInt(nullptr, 16)));
}

int runKeyColour(const QStringList& arguments)
{
    QStringList paths;
    QColor colours[2] = {Qt::transparent, Qt::transparent};
    const QString options[2] = {QStringLiteral("--transparent"), QStringLiteral("--translucent")};
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        const int option = int(std::find(options, options + 2, argument) - options);
        if (option < 2) {
            if (i + 1 >= arguments.size())
                return usageError(argument + QStringLiteral(" needs a colour"));
            colours[option] = parseColour(arguments.at(++i));
            if (!colours[option].isValid())
                return usageError(QStringLiteral("a colour is six hexadecimal digits, RRGGBB"));
        } else if (argument.startsWith(QLatin1String("--"))) {
            return usageError(QStringLiteral("unknown option ") + argument);
        } else {
            paths.append(argument);
        }
    }
    if (paths.size() != 2)
        return usageError(QStringLiteral("an image to read and a file to write expected"));
    const QImage image = SafeFile::readImage(paths.at(0));
    if (image.isNull()) {
        printError(QStringLiteral("zenkora-tool keycolour: Impossible d'ouvrir ") + paths.at(0) +
                   QLatin1Char('\n'));
        return 1;
    }
    QString error;
    if (!PngWriter::save(applyKeyColours(image, colours[0], colours[1]), paths.at(1), &error)) {
        printError(QStringLiteral("zenkora-tool keycolour: ") + plainMessage(error) +
                   QLatin1Char('\n'));
        return 1;
    }
    return 0;
}

const ToolCommand
    command("keycolour", Synopsis,
            "  Writes IN again as OUT, a 32-bit PNG, with its key colours made transparent, as\n"
            "  \"Ajouter un élément à la bibliothèque\" does with the colours picked on the\n"
            "  image. Every pixel of the --transparent colour (alpha included: the colour is\n"
            "  opaque) becomes fully transparent; every pixel whose red, green and blue are\n"
            "  those of the --translucent colour keeps them at alpha 128, whatever its own\n"
            "  alpha. Without either colour the image is written as it is.\n",
            &runKeyColour);

} // namespace
