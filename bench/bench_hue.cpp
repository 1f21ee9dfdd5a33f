// One step of the hue preview over a whole character: what runs at each move of the
// hue slider. Run on a Release build: build-colour-release/bench/bench_hue
#include "document/character.h"
#include "imaging/hslshift.h"

#include <QRandomGenerator>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <set>

namespace {

constexpr int Elements = 30;
const QSize Sheet(256, 384);

// A cell-sized picture in many colours: a gradient between three random colours with
// noise on every channel, and a few transparent holes inside. The corners stay opaque
// so that trimming keeps every cell whole.
void paintCell(QImage& sheet, QRect cell, QRandomGenerator& random)
{
    int corner[3][3];
    for (auto& colour : corner) {
        for (int& channel : colour)
            channel = int(random.bounded(256u));
    }
    for (int y = 0; y < cell.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(sheet.scanLine(cell.y() + y)) + cell.x();
        for (int x = 0; x < cell.width(); ++x) {
            int value[3];
            for (int k = 0; k < 3; ++k) {
                const int noise = int(random.bounded(9u)) - 4;
                const int v = corner[0][k] +
                              (corner[1][k] - corner[0][k]) * x / (cell.width() - 1) +
                              (corner[2][k] - corner[0][k]) * y / (cell.height() - 1) + noise;
                value[k] = std::clamp(v, 0, 255);
            }
            const bool edge = x == 0 || y == 0 || x == cell.width() - 1 || y == cell.height() - 1;
            const bool hole = !edge && random.bounded(100u) < 8;
            line[x] = hole ? 19u : qRgba(value[0], value[1], value[2], 255);
        }
    }
}

Character makeCharacter()
{
    Character character(Character::XP, Sheet);
    QRandomGenerator random(2024);
    for (int e = 0; e < Elements; ++e) {
        QImage image(Sheet, QImage::Format_ARGB32);
        for (int c = 0; c < 16; ++c)
            paintCell(image, QRect(character.cellCorner(c), character.cellSize()), random);
        character.addElement(image, "e" + QByteArray::number(e), e);
    }
    return character;
}

void describe(benchmark::State& state, const Character& character)
{
    double colours = 0;
    int images = 0;
    for (const QList<QImage>& cells : character.cellImages()) {
        for (const QImage& image : cells) {
            std::set<QRgb> distinct;
            for (int y = 0; y < image.height(); ++y) {
                const QRgb* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
                distinct.insert(line, line + image.width());
            }
            colours += double(distinct.size());
            ++images;
        }
    }
    state.counters["images"] = images;
    state.counters["coloursPerImage"] = colours / std::max(images, 1);
    const QSize size = character.cellImage(0, 0).size();
    state.counters["imageWidth"] = size.width();
    state.counters["imageHeight"] = size.height();
}

// Dragging the slider: every step a new whole-degree hue, all around the circle.
void BM_HuePreviewSweep(benchmark::State& state)
{
    Character character = makeCharacter();
    describe(state, character);
    character.beginPreview();
    int hue = -180;
    for (auto _ : state) {
        character.shiftCharacterHsl(HslShift{float(hue), 0, 0}, false, true);
        hue = hue == 180 ? -180 : hue + 1;
    }
    benchmark::DoNotOptimize(character.cellImage(0, 0).constBits());
}
BENCHMARK(BM_HuePreviewSweep)->Unit(benchmark::kMillisecond);

// One hue again and again. With 0 and 120 degrees many channels come out on exact
// integers, and those pixels go to the exact long double arithmetic.
void BM_HuePreviewAt(benchmark::State& state)
{
    Character character = makeCharacter();
    character.beginPreview();
    const HslShift shift{float(state.range(0)), 0, 0};
    for (auto _ : state)
        character.shiftCharacterHsl(shift, false, true);
    benchmark::DoNotOptimize(character.cellImage(0, 0).constBits());
}
BENCHMARK(BM_HuePreviewAt)->Arg(37)->Arg(120)->Arg(0)->Unit(benchmark::kMillisecond);

// A saturation and luminosity preview, for comparison.
void BM_SaturationPreview(benchmark::State& state)
{
    Character character = makeCharacter();
    character.beginPreview();
    for (auto _ : state)
        character.shiftCharacterHsl(HslShift{0, 35, -20}, false, true);
    benchmark::DoNotOptimize(character.cellImage(0, 0).constBits());
}
BENCHMARK(BM_SaturationPreview)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
