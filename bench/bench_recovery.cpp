// Recovery copies: what the interface thread pays to start one (the hand-off) and
// what the worker then takes to write it, for the largest character the file holds.
// Run on a Release build: build-release/bench/bench_recovery
#include "document/character.h"
#include "recovery/recoverykeeper.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>

namespace {

// The interface thread's own processor time, which other programs on a busy machine do
// not inflate.
double threadMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

Character bigCharacter()
{
    Character character(Character::XP, QSize(512, 512));
    for (int e = 0; e < Character::MaxElements; ++e) {
        QImage sheet(512, 512, QImage::Format_ARGB32);
        for (int y = 0; y < 512; ++y) {
            QRgb* line = reinterpret_cast<QRgb*>(sheet.scanLine(y));
            for (int x = 0; x < 512; ++x)
                line[x] = ((x / 8 + y / 8 + e) % 3) ? qRgba(e, x & 255, y & 255, 255) : 0;
        }
        character.addElement(sheet, "Element", 0);
    }
    return character;
}

void recoveryCopy(benchmark::State& state)
{
    const Character character = bigCharacter();
    QTemporaryDir dir;
    RecoveryKeeper keeper(dir.path());
    const int document = keeper.track([&character] {
        return RecoverySource{character, QString(), QStringLiteral("big")};
    });
    double handOff = 0;
    double whole = 0;
    double handOffCpu = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        const double cpuStart = threadMilliseconds();
        keeper.copyDue(document);
        handOffCpu += threadMilliseconds() - cpuStart;
        const auto started = std::chrono::steady_clock::now();
        keeper.waitForCopies();
        const auto end = std::chrono::steady_clock::now();
        handOff += std::chrono::duration<double, std::milli>(started - start).count();
        whole += std::chrono::duration<double, std::milli>(end - start).count();
    }
    state.counters["handoff_ms"] = handOff / double(state.iterations());
    state.counters["handoff_cpu_ms"] = handOffCpu / double(state.iterations());
    state.counters["copy_ms"] = whole / double(state.iterations());
}
BENCHMARK(recoveryCopy)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
