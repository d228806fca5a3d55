// Layer states by number of layers: saving, comparing, restoring, editing; and lists of many
// states.

#include "bench/support/GeneratedDrawing.h"
#include "bench/support/LayerCounts.h"
#include "database/states/LayerStateMask.h"
#include "database/states/LayerStates.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "io/las/LasReader.h"
#include "io/las/LasWriter.h"

#include <benchmark/benchmark.h>

namespace {

constexpr qint64 kEntities = 10000;

/// A drawing whose layers are all open already, with one state of them as they are.
struct Drawing
{
    explicit Drawing(const benchmark::State& state)
        : database(
            readDrawing(generated_drawing::path(static_cast<int>(state.range(0)), kEntities)))
    {
        states.add(name, {});
        database->endUndoRecord();
    }

    /// Changes every layer, inside the open undo record.
    void changeAll()
    {
        for (const OdDbObjectId id : database->layerTable().records()) {
            const auto layer = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
            layer->setIsOff(!layer->isOff());
            layer->setIsLocked(!layer->isLocked());
            layer->setColor(OdCmColor::fromRgb(1, 2, 3));
            layer->setLineWeight(211);
        }
    }

    std::unique_ptr<OdDbDatabase> database;
    LayerStates states{*database};
    const QString name = QStringLiteral("Plan");
};

void save(benchmark::State& state)
{
    Drawing drawing(state);
    for (auto _ : state) {
        drawing.database->startUndoRecord();
        drawing.states.save(drawing.name, LayerStateMask::kAll);
    }
}
BENCHMARK(save)->Apply(byLayerCount);

/// Every layer matches, so that none can be told different early.
void compare(benchmark::State& state)
{
    Drawing drawing(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(drawing.states.list().front().sameAsDrawing);
}
BENCHMARK(compare)->Apply(byLayerCount);

void restoreUnchanged(benchmark::State& state)
{
    Drawing drawing(state);
    for (auto _ : state)
        drawing.states.restore(drawing.name, {LayerStateMask::kAll, true, false});
}
BENCHMARK(restoreUnchanged)->Apply(byLayerCount);

/// Every layer differs from the state.
void restore(benchmark::State& state)
{
    Drawing drawing(state);
    for (auto _ : state) {
        state.PauseTiming();
        drawing.database->startUndoRecord();
        drawing.changeAll();
        drawing.database->startUndoRecord();
        state.ResumeTiming();
        drawing.states.restore(drawing.name, {LayerStateMask::kAll, true, false});
        state.PauseTiming();
        drawing.database->undo();
        drawing.database->undo();
        state.ResumeTiming();
    }
}
BENCHMARK(restore)->Apply(byLayerCount);

void readAndWriteEntries(benchmark::State& state)
{
    Drawing drawing(state);
    for (auto _ : state) {
        auto layers = drawing.states.layers(drawing.name);
        layers.front().flags ^= LayerInfoInLS::kLocked;
        drawing.database->startUndoRecord();
        drawing.states.setLayers(drawing.name, layers);
    }
}
BENCHMARK(readAndWriteEntries)->Apply(byLayerCount);

void exportAndReadFile(benchmark::State& state)
{
    Drawing drawing(state);
    for (auto _ : state) {
        const QByteArray bytes = LasWriter::bytes({drawing.states.exported(drawing.name)});
        benchmark::DoNotOptimize(LasReader::read(bytes, drawing.name).size());
    }
}
BENCHMARK(exportAndReadFile)->Apply(byLayerCount);

/// (layers, states), all of them the same as the drawing.
void listMany(benchmark::State& state)
{
    Drawing drawing(state);
    for (int i = 1; i < state.range(1); ++i)
        drawing.states.add(QString::number(i), {});
    for (auto _ : state)
        benchmark::DoNotOptimize(drawing.states.list().size());
}
BENCHMARK(listMany)
    ->Args({1000, 10})
    ->Args({1000, 100})
    ->Args({1000, 1000})
    ->Args({10000, 100})
    ->Unit(benchmark::kMillisecond);

} // namespace
