#include "batch/sheetpalette.h"

#include "batch/sheetcopier.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QtGlobal>

#include <algorithm>

namespace {

constexpr QRgb Key = SheetCopier::KeyColour;
constexpr QRgb Lookalike = SheetCopier::KeyLookalike;
constexpr int PaletteSize = 256;

QRgb opaque(QRgb pixel)
{
    return pixel | 0xff000000;
}

// The colours other than the key, in order of first appearance, stopping one past the
// room the palette has for them.
QList<QRgb> otherColours(const QImage& sheet)
{
    QList<QRgb> colours;
    QHash<QRgb, bool> seen;
    for (int y = 0; y < sheet.height(); ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(sheet.constScanLine(y));
        for (int x = 0; x < sheet.width(); ++x) {
            const QRgb pixel = opaque(line[x]);
            if (pixel == Key || seen.contains(pixel))
                continue;
            seen.insert(pixel, true);
            colours.append(pixel);
            if (colours.size() >= PaletteSize)
                return colours;
        }
    }
    return colours;
}

// Every pixel through index(x, y, pixel), into an image carrying table.
template <typename IndexOf>
QImage paletted(const QImage& sheet, const QList<QRgb>& table, IndexOf index)
{
    QImage result(sheet.size(), QImage::Format_Indexed8);
    result.setColorTable(table);
    for (int y = 0; y < sheet.height(); ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(sheet.constScanLine(y));
        uchar* out = result.scanLine(y);
        for (int x = 0; x < sheet.width(); ++x)
            out[x] = uchar(index(x, y, opaque(line[x])));
    }
    return result;
}

QImage exactTable(const QImage& sheet, const QList<QRgb>& others)
{
    QList<QRgb> table{Key};
    QHash<QRgb, int> indexOf;
    for (QRgb colour : others) {
        indexOf.insert(colour, int(table.size()));
        table.append(colour);
    }
    return paletted(sheet, table,
                    [&](int, int, QRgb pixel) { return pixel == Key ? 0 : indexOf.value(pixel); });
}

int squaredDistance(QRgb a, QRgb b)
{
    const int r = qRed(a) - qRed(b);
    const int g = qGreen(a) - qGreen(b);
    const int bl = qBlue(a) - qBlue(b);
    return r * r + g * g + bl * bl;
}

// The nearest entry of table past index 0, the key, which only key pixels may take.
int nearestOther(const QList<QRgb>& table, QRgb pixel)
{
    int best = 1;
    for (int i = 2; i < table.size(); ++i) {
        if (squaredDistance(table.at(i), pixel) < squaredDistance(table.at(best), pixel))
            best = i;
    }
    return best;
}

// A colour of the sheet and how many pixels hold it.
struct Weighted
{
    QRgb colour;
    qint64 count;
};

int channel(QRgb colour, int c);

// The middle of the smallest box that holds some colours: the colour nearest to the
// farthest of them, so that pixel art loses no shade by more than it must.
QRgb middleOf(const QList<Weighted>& colours, qsizetype from, qsizetype to)
{
    int low[3] = {255, 255, 255};
    int high[3] = {0, 0, 0};
    for (qsizetype i = from; i < to; ++i) {
        for (int c = 0; c < 3; ++c) {
            low[c] = qMin(low[c], channel(colours.at(i).colour, c));
            high[c] = qMax(high[c], channel(colours.at(i).colour, c));
        }
    }
    return qRgb((low[0] + high[0] + 1) / 2, (low[1] + high[1] + 1) / 2, (low[2] + high[2] + 1) / 2);
}

int channel(QRgb colour, int c)
{
    return c == 0 ? qRed(colour) : c == 1 ? qGreen(colour) : qBlue(colour);
}

// A box of the median cut: a run of the colour list, with its widest channel.
struct Box
{
    qsizetype from;
    qsizetype to;
    int widest = 0;
    int range = 0;
};

void measure(const QList<Weighted>& colours, Box& box)
{
    box.range = -1;
    for (int c = 0; c < 3; ++c) {
        int low = 255, high = 0;
        for (qsizetype i = box.from; i < box.to; ++i) {
            low = qMin(low, channel(colours.at(i).colour, c));
            high = qMax(high, channel(colours.at(i).colour, c));
        }
        if (high - low > box.range) {
            box.range = high - low;
            box.widest = c;
        }
    }
}

// At most count colours chosen from the sheet's own: a median cut, splitting the box of
// the widest spread in two halves of that spread until there are count boxes, each
// giving its middle.
QList<QRgb> chooseColours(QList<Weighted> colours, int count)
{
    QList<Box> boxes{Box{0, colours.size()}};
    measure(colours, boxes.first());
    while (boxes.size() < count) {
        int widest = -1;
        for (int i = 0; i < boxes.size(); ++i) {
            if (boxes.at(i).to - boxes.at(i).from > 1 &&
                (widest < 0 || boxes.at(i).range > boxes.at(widest).range))
                widest = i;
        }
        if (widest < 0)
            break;
        Box& box = boxes[widest];
        const int c = box.widest;
        std::sort(colours.begin() + box.from, colours.begin() + box.to,
                  [c](const Weighted& a, const Weighted& b) {
                      return channel(a.colour, c) < channel(b.colour, c);
                  });
        // Cut at the middle of the spread: no colour then lies further from its box's
        // middle than half the widest spread left.
        const int middle = channel(colours.at(box.from).colour, c) + box.range / 2;
        qsizetype cut = box.from + 1;
        while (cut < box.to - 1 && channel(colours.at(cut).colour, c) <= middle)
            ++cut;
        Box upper{cut, box.to};
        box.to = cut;
        measure(colours, box);
        measure(colours, upper);
        boxes.append(upper);
    }
    QList<QRgb> table;
    for (const Box& box : boxes)
        table.append(middleOf(colours, box.from, box.to));
    // Only key pixels may take the key's colour: a mean that falls on it moves by one
    // step of blue, as the converter moves an opaque pixel of that colour.
    for (QRgb& colour : table) {
        if (colour == Key)
            colour = Lookalike;
    }
    return table;
}

// The key at index 0, the other colours reduced to at most 255 picked from the sheet,
// each pixel taking the nearest, without dithering.
QImage quantised(const QImage& sheet)
{
    QHash<QRgb, qint64> histogram;
    for (int y = 0; y < sheet.height(); ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(sheet.constScanLine(y));
        for (int x = 0; x < sheet.width(); ++x) {
            const QRgb pixel = opaque(line[x]);
            if (pixel != Key)
                ++histogram[pixel];
        }
    }
    QList<Weighted> colours;
    colours.reserve(histogram.size());
    for (auto it = histogram.cbegin(); it != histogram.cend(); ++it)
        colours.append(Weighted{it.key(), it.value()});
    // The hash's order isn't stable between runs: the same sheet must give the same file.
    std::sort(colours.begin(), colours.end(),
              [](const Weighted& a, const Weighted& b) { return a.colour < b.colour; });

    QList<QRgb> table{Key};
    table.append(chooseColours(colours, PaletteSize - 1));
    QHash<QRgb, int> indexOf;
    for (const Weighted& w : colours)
        indexOf.insert(w.colour, nearestOther(table, w.colour));
    return paletted(sheet, table,
                    [&](int, int, QRgb pixel) { return pixel == Key ? 0 : indexOf.value(pixel); });
}

} // namespace

QImage SheetPalette::indexed(const QImage& sheet)
{
    if (sheet.isNull())
        return QImage();
    const QImage source =
        sheet.format() == QImage::Format_RGB32 || sheet.format() == QImage::Format_ARGB32
            ? sheet
            : sheet.convertToFormat(QImage::Format_ARGB32);
    const QList<QRgb> others = otherColours(source);
    if (others.size() < PaletteSize)
        return exactTable(source, others);
    return quantised(source);
}
