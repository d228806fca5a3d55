// Reading and writing drawings: (layers, entities) of a generated DXF, text or binary; throughput
// is that of the file.

#include "bench/support/GeneratedDrawing.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#ifdef __linux__
#include <sys/resource.h>
#endif

namespace {

void sizes(benchmark::internal::Benchmark* b)
{
    b->Args({100, 10000})->Args({2000, 200000})->Args({20000, 200000});
    b->Args({100, 1000000})->Args({2000, 1000000})->Args({20000, 1000000})->Args({100000, 1000000});
    b->Unit(benchmark::kMillisecond)->UseRealTime();
}

QString drawing(const benchmark::State& state, bool binary = false)
{
    return generated_drawing::path(static_cast<int>(state.range(0)), state.range(1), binary);
}

void countBytes(benchmark::State& state, const QString& path)
{
    state.SetBytesProcessed(state.iterations() * QFileInfo(path).size());
    state.counters["file_MB"] = static_cast<double>(QFileInfo(path).size()) / 1e6;
}

void loadFrom(benchmark::State& state, const QString& path)
{
    for (auto _ : state) {
        std::unique_ptr<OdDbDatabase> database = readDrawing(path);
        benchmark::DoNotOptimize(database->layerTable().count());
        state.PauseTiming();
        database.reset();
        state.ResumeTiming();
    }
    countBytes(state, path);
#ifdef __linux__
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["peak_MB"] = static_cast<double>(usage.ru_maxrss) * 1024 / 1e6;
#endif
}

void load(benchmark::State& state)
{
    loadFrom(state, drawing(state));
}
BENCHMARK(load)->Apply(sizes);

void loadBinary(benchmark::State& state)
{
    loadFrom(state, drawing(state, true));
}
BENCHMARK(loadBinary)->Apply(sizes);

void saveTo(benchmark::State& state, const QString& path)
{
    const QTemporaryDir folder;
    const auto database = readDrawing(path);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            writeDrawing(*database, folder.filePath(QStringLiteral("saved.dxf"))).bytes);
    countBytes(state, path);
}

void saveUnedited(benchmark::State& state)
{
    saveTo(state, drawing(state));
}
BENCHMARK(saveUnedited)->Apply(sizes);

void saveUneditedBinary(benchmark::State& state)
{
    saveTo(state, drawing(state, true));
}
BENCHMARK(saveUneditedBinary)->Apply(sizes);

/// Every second layer is frozen; the edit itself is not timed.
void saveHalfFrozenTo(benchmark::State& state, const QString& path)
{
    const QTemporaryDir folder;
    const auto database = readDrawing(path);
    database->startUndoRecord();
    bool odd = false;
    for (const OdDbObjectId id : database->layerTable().records()) {
        if (std::exchange(odd, !odd) && id != database->getCLAYER())
            id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsFrozen(true);
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(
            writeDrawing(*database, folder.filePath(QStringLiteral("saved.dxf"))).bytes);
    countBytes(state, path);
}

void saveHalfFrozen(benchmark::State& state)
{
    saveHalfFrozenTo(state, drawing(state));
}
BENCHMARK(saveHalfFrozen)->Apply(sizes);

void saveHalfFrozenBinary(benchmark::State& state)
{
    saveHalfFrozenTo(state, drawing(state, true));
}
BENCHMARK(saveHalfFrozenBinary)->Apply(sizes);

/// What a save costs without the disk: the pieces of the edited drawing joined in memory.
void bytesAllLocked(benchmark::State& state)
{
    const QString path = drawing(state);
    const auto database = readDrawing(path);
    database->startUndoRecord();
    for (const OdDbObjectId id : database->layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsLocked(true);
    for (auto _ : state)
        benchmark::DoNotOptimize(drawingBytes(*database).size());
    countBytes(state, path);
}
BENCHMARK(bytesAllLocked)->Apply(sizes);

void freezeAll(benchmark::State& state)
{
    const auto database = readDrawing(drawing(state));
    const std::vector<OdDbObjectId> layers = database->layerTable().records();
    for (auto _ : state) {
        database->startUndoRecord();
        for (const OdDbObjectId id : layers)
            id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsFrozen(true);
        database->undo();
    }
}
BENCHMARK(freezeAll)->Args({20000, 10000})->Args({100000, 10000})->Unit(benchmark::kMillisecond);

} // namespace
