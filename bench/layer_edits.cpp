// Edits of many layers at once in a large drawing: usage, renaming, freezing and taking it back.

#include "bench/support/GeneratedDrawing.h"
#include "database/OdDbDatabase.h"
#include "database/OdDbLayerTable.h"
#include "database/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"

#include <benchmark/benchmark.h>

namespace {

constexpr qint64 kEntities = 1'000'000;

std::unique_ptr<OdDbDatabase> drawing(int layers)
{
    return readDrawing(generated_drawing::path(layers, kEntities));
}

/// By number of layers; 1,000,000 entities.
void sizes(benchmark::internal::Benchmark* b)
{
    b->Arg(2000)->Arg(20000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

/// Measures an edit of a drawing that was just read: nobody opened its layers before.
template <class Edit>
void measureFresh(benchmark::State& state, Edit edit)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto database = drawing(static_cast<int>(state.range(0)));
        const auto layers = database->layerTable().records();
        state.ResumeTiming();
        edit(*database, layers);
        state.PauseTiming();
        database.reset();
        state.ResumeTiming();
    }
}

void rename(const std::vector<OdDbObjectId>& layers)
{
    for (std::size_t i = 1; i <= 2000 && i < layers.size(); ++i)
        layers[i]
            .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
            ->setName(QStringLiteral("Renamed %1").arg(i));
}

void usage(benchmark::State& state)
{
    measureFresh(state, [](OdDbDatabase& database, const auto&) {
        database.layerTable().generateUsageData();
    });
}
BENCHMARK(usage)->Apply(sizes)->Iterations(3);

/// 2,000 layers get new names, in one undo record.
void rename2000(benchmark::State& state)
{
    measureFresh(state, [](OdDbDatabase& database, const auto& layers) {
        database.startUndoRecord();
        rename(layers);
    });
}
BENCHMARK(rename2000)->Apply(sizes)->Iterations(3);

/// All layers, in one undo record.
void freeze(benchmark::State& state)
{
    measureFresh(state, [](OdDbDatabase& database, const auto& layers) {
        database.startUndoRecord();
        for (const OdDbObjectId id : layers)
            id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsFrozen(true);
    });
}
BENCHMARK(freeze)->Apply(sizes)->Iterations(3);

void undoOfFreeze(benchmark::State& state)
{
    auto database = drawing(static_cast<int>(state.range(0)));
    const auto layers = database->layerTable().records();
    for (auto _ : state) {
        state.PauseTiming();
        database->startUndoRecord();
        for (const OdDbObjectId id : layers) {
            const auto layer = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
            layer->setIsFrozen(!layer->isFrozen());
        }
        state.ResumeTiming();
        database->undo();
    }
}
BENCHMARK(undoOfFreeze)->Apply(sizes)->Iterations(5);

/// The bytes of a save after 2,000 layers were renamed: every entity on them names its layer.
void saveRenamed(benchmark::State& state)
{
    auto database = drawing(static_cast<int>(state.range(0)));
    rename(database->layerTable().records());
    for (auto _ : state)
        benchmark::DoNotOptimize(drawingBytes(*database).size());
}
BENCHMARK(saveRenamed)->Apply(sizes)->Iterations(3);

} // namespace
