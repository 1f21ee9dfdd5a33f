// Writes the seed corpus of the fuzz targets with the program's own writers: a few
// small characters in both versions, two element files, three palettes and gradients
// of each type.
#include "document/character.h"
#include "formats/characterfile.h"
#include "formats/elementfile.h"
#include "formats/gradientfile.h"
#include "formats/palettefile.h"
#include "imaging/defaultpalette.h"

#include <QDir>
#include <QImage>

#include <cstdio>

namespace {

QImage sheet(QSize size, QRgb colour)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(uint(19));
    for (int y = 1; y < size.height(); y += 5) {
        for (int x = 2; x < size.width(); x += 7)
            image.setPixel(x, y, colour);
    }
    return image;
}

Character character(int kind, QSize size)
{
    Character result(kind, size);
    result.addElement(sheet(size, 0xff336699), "El\xe9ment 1", 0);
    result.addElement(sheet(QSize(size.width() / 2, size.height() / 2), 0x80ff0000), "Voile", 1);
    result.setElementSource(1, "elements/XP/voile.png");
    result.setVisible(1, false);
    result.setCellPosition(0, 2, QPoint(-3, 4));
    result.addDrawingLayer(2);
    return result;
}

bool writeGradients(const QString& dir)
{
    GradientRecord linear;
    GradientRecord radial;
    radial.type = GradientRecord::Radial;
    radial.spread = 1;
    radial.stops.insert(1, GradientData{0.5, QColor(200, 100, 50, 128)});
    GradientRecord conical;
    conical.type = GradientRecord::Conical;
    conical.spread = 2;
    conical.stops = {{-0.0125, QColor(Qt::red)}, {0.5, QColor(Qt::green)}, {0.5, QColor(Qt::blue)}};
    GradientRecord empty;
    empty.stops.clear();
    return GradientFile::save(linear, dir + QStringLiteral("/zkd/linear.zkd")) &&
           GradientFile::save(radial, dir + QStringLiteral("/zkd/radial.zkd")) &&
           GradientFile::save(conical, dir + QStringLiteral("/zkd/conical.zkd")) &&
           GradientFile::save(empty, dir + QStringLiteral("/zkd/empty.zkd"));
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: fuzz_seeds DIR\n");
        return 2;
    }
    const QString dir = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(dir + QStringLiteral("/zk"));
    QDir().mkpath(dir + QStringLiteral("/elzk"));
    QDir().mkpath(dir + QStringLiteral("/zkd"));
    QDir().mkpath(dir + QStringLiteral("/zkp"));
    Character xp = character(Character::XP, QSize(16, 24));
    Character vx = character(Character::VX, QSize(12, 16));
    Character empty(Character::VX, QSize(0, 0));
    bool ok = xp.saveCharacter(dir + QStringLiteral("/zk/xp1.zk"), 1) &&
              xp.saveCharacter(dir + QStringLiteral("/zk/xp0.zk"), 0) &&
              vx.saveCharacter(dir + QStringLiteral("/zk/vx1.zk"), 1) &&
              vx.saveCharacter(dir + QStringLiteral("/zk/vx0.zk"), 0) &&
              empty.saveCharacter(dir + QStringLiteral("/zk/empty1.zk"), 1) &&
              empty.saveCharacter(dir + QStringLiteral("/zk/empty0.zk"), 0);
    ok = ok &&
         ElementFile::write(dir + QStringLiteral("/elzk/xp.elzk"),
                            {sheet(QSize(16, 24), 0xff00ff00), sheet(QSize(8, 12), 0xff0000ff)}, 1,
                            Character::XP) &&
         ElementFile::write(dir + QStringLiteral("/elzk/vx.elzk"),
                            {sheet(QSize(12, 16), 0xffffffff)}, 0, Character::VX);
    ok = ok && writeGradients(dir);
    const QList<QColor> palette = DefaultPalette::colours(20, 6);
    ok = ok && PaletteFile::save(palette, dir + QStringLiteral("/zkp/default.zkp")) &&
         PaletteFile::save(palette.mid(0, 3), dir + QStringLiteral("/zkp/three.zkp")) &&
         PaletteFile::save({}, dir + QStringLiteral("/zkp/empty.zkp"));
    return ok ? 0 : 1;
}
