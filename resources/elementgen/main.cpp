// zenkora-elementgen: draws the starter element library that ships with the program.
// The PNG files it writes are committed under elements/, so that a build needs no
// generation step; run it (target zenkora-elements) after changing a drawing.
//
//   zenkora-elementgen [--elements DIR] [--strips DIR]
//
// --elements writes DIR/XP/<category>/<name>.png and DIR/VX/..., --strips writes one
// walk strip per kind for review.
#include "sheet.h"

#include "document/character.h"
#include "formats/pngwriter.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>

namespace {

const char* kindFolder(int kind)
{
    return kind == Character::VX ? "VX" : "XP";
}

bool save(const QImage& image, const QString& path)
{
    QString error;
    if (!QDir().mkpath(QFileInfo(path).path()) || !PngWriter::save(image, path, &error)) {
        std::fprintf(stderr, "zenkora-elementgen: cannot write %s\n", qPrintable(path));
        return false;
    }
    return true;
}

bool writeElements(const QString& folder)
{
    for (int kind : {Character::XP, Character::VX}) {
        for (const ElementDesign& design : catalogue()) {
            const QString path =
                QStringLiteral("%1/%2/%3/%4.png")
                    .arg(folder, QLatin1String(kindFolder(kind)),
                         QString::fromUtf8(design.category), QString::fromUtf8(design.name));
            if (!save(Sheet::sheet(design, kind), path))
                return false;
        }
    }
    return true;
}

bool writeStrips(const QString& folder)
{
    const std::vector<Sheet::Outfit> outfits = Sheet::reviewOutfits();
    for (int kind : {Character::XP, Character::VX}) {
        const QString path =
            QStringLiteral("%1/walk-%2.png").arg(folder, QLatin1String(kindFolder(kind)));
        if (!save(Sheet::walkStrip(kind, outfits), path))
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    QString elements;
    QString strips;
    for (int i = 0; i + 1 < args.size(); i += 2) {
        if (args.at(i) == QLatin1String("--elements"))
            elements = args.at(i + 1);
        else if (args.at(i) == QLatin1String("--strips"))
            strips = args.at(i + 1);
    }
    if (args.isEmpty() || args.size() % 2 != 0 || (elements.isEmpty() && strips.isEmpty())) {
        std::fprintf(stderr, "usage: zenkora-elementgen [--elements DIR] [--strips DIR]\n");
        return 2;
    }
    if (!elements.isEmpty() && !writeElements(elements))
        return 1;
    if (!strips.isEmpty() && !writeStrips(strips))
        return 1;
    return 0;
}
