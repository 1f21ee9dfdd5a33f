// The three batch jobs on realistic loads, each beside the floor of only decoding and
// encoding the same PNGs, so that the cost of the work itself shows as a ratio.
#include "batch/converter.h"
#include "batch/fusioner.h"
#include "batch/savemasssystem.h"
#include "document/character.h"
#include "formats/pngwriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QImageReader>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

QTemporaryDir& root()
{
    static QTemporaryDir dir;
    return dir;
}

// Pixels of some variety, so that PNG compression has real work as in real sheets.
QImage patterned(QSize size, int seed)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int cell = (x / 16 + y / 16 + seed) % 7;
            line[x] = cell == 0 ? 19u : qRgba((x * 3 + seed) & 255, (y * 5) & 255, cell * 36, 255);
        }
    }
    return image;
}

QImage read(const QString& path)
{
    QImageReader reader(path);
    return reader.read();
}

QStringList filesIn(const QString& folder)
{
    QStringList paths;
    for (const QString& name : QDir(folder).entryList(QDir::Files, QDir::Name))
        paths.append(folder + QLatin1Char('/') + name);
    return paths;
}

// Decodes every source and encodes every image into folder: the floor of a job.
void decodeAndEncode(const QStringList& sources, const QList<QImage>& outputs,
                     const QString& folder)
{
    for (const QString& source : sources)
        benchmark::DoNotOptimize(read(source));
    for (int i = 0; i < outputs.size(); ++i)
        PngWriter::save(outputs.at(i), folder + QStringLiteral("/%1.png").arg(i));
}

const QString& xpFolder()
{
    static const QString folder = [] {
        const QString path = root().path() + QStringLiteral("/xp");
        QDir().mkpath(path);
        for (int i = 0; i < 200; ++i)
            PngWriter::save(patterned(QSize(128, 192), i),
                            path + QStringLiteral("/xp%1.png").arg(i));
        return path;
    }();
    return folder;
}

void BM_ConvertXPToVX200(benchmark::State& state)
{
    const QString folder = xpFolder();
    for (auto _ : state) {
        Converter converter({folder}, false, 3, nullptr, 0);
        converter.run();
    }
}

void BM_ConvertXPToVX200Floor(benchmark::State& state)
{
    const QString folder = xpFolder();
    Converter converter({folder}, false, 3, nullptr, 0);
    converter.run();
    QList<QImage> outputs;
    for (const QString& path : filesIn(folder + QStringLiteral("/VX_CONVERSIONS")))
        outputs.append(read(path));
    const QString target = root().path() + QStringLiteral("/xp-floor");
    QDir().mkpath(target);
    for (auto _ : state)
        decodeAndEncode(filesIn(folder), outputs, target);
}

const QStringList& tilesets()
{
    static const QStringList paths = [] {
        QStringList list;
        const QString folder = root().path() + QStringLiteral("/tilesets");
        QDir().mkpath(folder);
        for (int i = 0; i < 20; ++i) {
            list.append(folder + QStringLiteral("/t%1.png").arg(i));
            PngWriter::save(patterned(QSize(256, 1024), i), list.last());
        }
        return list;
    }();
    return paths;
}

void BM_Merge20Tilesets(benchmark::State& state)
{
    const QString target = root().path() + QStringLiteral("/merged.png");
    for (auto _ : state) {
        Fusioner fusioner(tilesets(), target, nullptr);
        fusioner.run();
    }
}

void BM_Merge20TilesetsFloor(benchmark::State& state)
{
    const QString target = root().path() + QStringLiteral("/merged.png");
    Fusioner fusioner(tilesets(), target, nullptr);
    fusioner.run();
    const QList<QImage> outputs{read(target)};
    for (auto _ : state)
        decodeAndEncode(tilesets(), outputs, root().path());
}

Character twentyElements()
{
    Character character(Character::VX, QSize(96, 128));
    for (int e = 0; e < 20; ++e) {
        QImage sheet(96, 128, QImage::Format_ARGB32);
        sheet.fill(uint(19));
        const QImage pattern = patterned(QSize(20, 24), e);
        for (int c = 0; c < 12; ++c) {
            for (int y = 0; y < 24; ++y) {
                for (int x = 0; x < 20; ++x)
                    sheet.setPixel(c % 3 * 32 + 6 + x / 2 + e % 4, c / 3 * 32 + 4 + y,
                                   pattern.pixel(x, y));
            }
        }
        character.addElement(sheet, "El\xe9ment " + QByteArray::number(e), e);
    }
    return character;
}

QList<int> allTwenty()
{
    QList<int> elements;
    for (int e = 0; e < 20; ++e)
        elements.append(e);
    return elements;
}

void BM_SaveMass20Elements72Hues(benchmark::State& state)
{
    Character character = twentyElements();
    const QString folder = root().path() + QStringLiteral("/hues");
    for (auto _ : state) {
        SaveMassSystem worker(&character, allTwenty(), folder, QStringLiteral("p"), 5, false,
                              nullptr);
        worker.run();
    }
}

void BM_SaveMass20Elements72HuesFloor(benchmark::State& state)
{
    Character character = twentyElements();
    const QString folder = root().path() + QStringLiteral("/hues");
    SaveMassSystem worker(&character, allTwenty(), folder, QStringLiteral("p"), 5, false, nullptr);
    worker.run();
    QList<QImage> outputs;
    for (const QString& path : worker.plannedFiles())
        outputs.append(read(path));
    const QString target = root().path() + QStringLiteral("/hues-floor");
    QDir().mkpath(target);
    for (auto _ : state)
        decodeAndEncode({}, outputs, target);
}

} // namespace

BENCHMARK(BM_ConvertXPToVX200)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_ConvertXPToVX200Floor)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_Merge20Tilesets)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_Merge20TilesetsFloor)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_SaveMass20Elements72Hues)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SaveMass20Elements72HuesFloor)->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
