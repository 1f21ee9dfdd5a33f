// Composition, canvas rendering and history memory of the character model.
// Run on a Release build: build-release/bench/bench_model
#include "document/character.h"
#include "document/history.h"
#include "document/historystep.h"

#include <QGuiApplication>
#include <QRandomGenerator>

#include <benchmark/benchmark.h>

#include <fstream>
#include <unistd.h>

namespace {

// The hardest case for the blend: every pixel transparent, opaque or see-through at
// random (45 %, 48 % and 7 %), in many colours.
QImage spriteSheet(QSize size, quint32 seed)
{
    QRandomGenerator random(seed);
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const quint32 roll = random.bounded(100u);
            const int alpha = roll < 45 ? 0 : roll < 93 ? 255 : int(random.bounded(1u, 255u));
            line[x] = qRgba(int(random.bounded(256u)), (x * 3 + y) & 255, (y * 5) & 255, alpha);
        }
    }
    return image;
}

// A sheet as sprites are drawn: in each cell an opaque figure with a see-through
// edge, on a transparent ground.
QImage figureSheet(QSize size, quint32 seed)
{
    QImage image(size, QImage::Format_ARGB32);
    const int cw = size.width() / 4;
    const int ch = size.height() / 4;
    for (int y = 0; y < size.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const double u = (x % cw - cw / 2.0) / (cw * 0.4);
            const double v = (y % ch - ch / 2.0) / (ch * 0.45);
            const double r = u * u + v * v;
            const int alpha = r < 0.9 ? 255 : r < 1.0 ? int(255 * (1.0 - r) * 10) : 0;
            line[x] = qRgba(int((x * seed) & 255), (y * 7) & 255, int(seed * 13) & 255, alpha);
        }
    }
    return image;
}

Character makeCharacter(QSize sheet, int elements, bool figures = false)
{
    Character character(Character::XP, sheet);
    for (int e = 0; e < elements; ++e) {
        QImage image = figures ? figureSheet(sheet, quint32(e + 1)) : spriteSheet(sheet, quint32(e + 1));
        // Opaque corners keep every cell's box whole, so elements fill their cells.
        const QSize cell = character.cellSize();
        for (int c = 0; c < 16; ++c) {
            const QPoint corner = character.cellCorner(c);
            image.setPixel(corner, 0xff000000);
            image.setPixel(corner + QPoint(cell.width() - 1, cell.height() - 1), 0xff000000);
        }
        character.addElement(image, "e" + QByteArray::number(e), e);
    }
    return character;
}

// The pixels the elements really hold: their trimmed cell images.
double elementPixels(const Character& character)
{
    double pixels = 0;
    for (const QList<QImage>& cells : character.cellImages()) {
        for (const QImage& cell : cells)
            pixels += double(cell.width()) * cell.height();
    }
    return pixels;
}

long residentKiB()
{
    std::ifstream statm("/proc/self/statm");
    long pages = 0;
    long resident = 0;
    statm >> pages >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

void BM_Render30Elements(benchmark::State& state)
{
    Character character = makeCharacter(QSize(256, 384), 30);
    character.setZoom(4);
    character.setShowGrid(true);
    character.setSelectedCells({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
    for (auto _ : state)
        benchmark::DoNotOptimize(character.render());
}
BENCHMARK(BM_Render30Elements)->Unit(benchmark::kMillisecond);

// The composition alone of the same character, to tell it from zoom and marks.
void BM_Compose30Elements(benchmark::State& state)
{
    const Character character = makeCharacter(QSize(256, 384), 30);
    for (auto _ : state)
        benchmark::DoNotOptimize(character.compose());
}
BENCHMARK(BM_Compose30Elements)->Unit(benchmark::kMillisecond);

void BM_Compose255Elements(benchmark::State& state)
{
    const Character character = makeCharacter(QSize(512, 512), 255);
    for (auto _ : state)
        benchmark::DoNotOptimize(character.compose());
    // Printed in seconds with an SI prefix: "1.5n" is 1.5 ns per element pixel.
    state.counters["s_per_element_pixel"] =
        benchmark::Counter(elementPixels(character), benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
}
BENCHMARK(BM_Compose255Elements)->Unit(benchmark::kMillisecond)->Iterations(5);

// The same with sprite-like figures instead of noise: what drawn sheets cost.
void BM_Compose255Figures(benchmark::State& state)
{
    const Character character = makeCharacter(QSize(512, 512), 255, true);
    for (auto _ : state)
        benchmark::DoNotOptimize(character.compose());
    state.counters["s_per_element_pixel"] =
        benchmark::Counter(elementPixels(character), benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
}
BENCHMARK(BM_Compose255Figures)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_History271Steps(benchmark::State& state)
{
    for (auto _ : state) {
        Character character = makeCharacter(QSize(512, 512), 255);
        History history;
        history.push(HistoryStep::capture(character), "Etat d'origine");
        const long before = residentKiB();
        const QSize cell = character.cellSize();
        for (int step = 1; step < History::DefaultMaxSteps; ++step) {
            const int e = step % character.elementCount();
            const int c = step % 16;
            QImage image = character.cellImage(e, c);
            image.setPixel(0, 0, qRgba(step & 255, 0, 0, 255)); // detaches one cell
            character.setCellImage(e, c, image);
            history.push(HistoryStep::capture(character), "Pinceau");
        }
        const long after = residentKiB();
        const double steps = History::DefaultMaxSteps - 1;
        const double cellKiB = cell.width() * cell.height() * 4 / 1024.0;
        state.counters["rss_before_KiB"] = double(before);
        state.counters["rss_after_KiB"] = double(after);
        state.counters["KiB_per_step"] = (after - before) / steps;
        state.counters["target_KiB_per_step"] = cellKiB + 8;
    }
}
BENCHMARK(BM_History271Steps)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
