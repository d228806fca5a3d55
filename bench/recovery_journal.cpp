// Keeping unsaved edits: (layers, entities) of a generated ASCII DXF, all layers locked. The window
// waits for this, some seconds after an edit.

#include "bench/support/GeneratedDrawing.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingCodec.h"
#include "io/DrawingFile.h"
#include "io/files/AtomicFile.h"
#include "io/files/RecoveryJournal.h"

#include <QTemporaryDir>

#include <array>
#include <benchmark/benchmark.h>

namespace {

void sizes(benchmark::internal::Benchmark* b)
{
    b->Args({100, 10000})->Args({2000, 1000000})->Args({20000, 1000000})->Args({100000, 1000000});
    b->Unit(benchmark::kMillisecond)->UseRealTime();
}

std::unique_ptr<OdDbDatabase> lockedDrawing(const benchmark::State& state)
{
    auto database =
        readDrawing(generated_drawing::path(static_cast<int>(state.range(0)), state.range(1)));
    database->startUndoRecord();
    for (const OdDbObjectId id : database->layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsLocked(true);
    return database;
}

FileLayout layoutOf(const OdDbDatabase& database)
{
    return FileLayout::of(DrawingSource::of(database).image(), {});
}

/// Once per drawing: the sum over its file.
void sumOfTheFile(benchmark::State& state)
{
    const auto database = lockedDrawing(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(layoutOf(*database).hash);
    const auto bytes = static_cast<int64_t>(DrawingSource::of(*database).image().size());
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * bytes);
}
BENCHMARK(sumOfTheFile)->Apply(sizes);

/// Each time the edits have settled.
void writeJournal(benchmark::State& state)
{
    const auto database = lockedDrawing(state);
    const FileLayout layout = layoutOf(*database);
    const QTemporaryDir folder;
    for (auto _ : state) {
        const QByteArray bytes = RecoveryJournal::of(*database, layout).toBytes();
        AtomicFile file(folder.filePath(QStringLiteral("kept.journal")));
        file.write(std::array{QByteArrayView(bytes)});
        file.commit();
        state.counters["journal_kB"] = static_cast<double>(bytes.size()) / 1e3;
    }
}
BENCHMARK(writeJournal)->Apply(sizes);

} // namespace
