// Edits of many layers at once in a large drawing: usage, renaming, freezing and taking it back,
// and the operations of the palette with its grid attached.

#include "bench/support/BenchDocuments.h"
#include "bench/support/GeneratedDrawing.h"
#include "bench/support/WidgetBenchmarks.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/layers/operations/LayerActions.h"
#include "layermanager/layers/operations/LayerDeletion.h"
#include "layermanager/layers/operations/LayerOperations.h"
#include "layermanager/layers/operations/NewLayer.h"

#include <QApplication>

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

// Operations of the palette

/// A layout of the drawing is current and all layers are selected in a grid that shows them. Few
/// layers have entities.
struct Palette
{
    explicit Palette(const benchmark::State& state)
        : documents(readDrawing(generated_drawing::path(static_cast<int>(state.range(0)), 1000)))
        , layers(database().layerTable().records())
    {
        database().setTILEMODE(false);
        grid.resize(1200, 800);
        grid.show();
        grid.fill(&database());
        grid.chooseRange(0, grid.displayedCount() - 1);
        repaint();
    }
    OdDbDatabase& database() const { return *documents.database(); }
    /// What comes after an operation: one repaint, however many rows changed.
    void repaint()
    {
        QCoreApplication::processEvents();
        grid.viewport()->repaint();
    }

    BenchDocuments documents;
    std::vector<OdDbObjectId> layers;
    CLayerListCtrl grid;
};

void selections(benchmark::internal::Benchmark* b)
{
    b->Arg(2000)->Arg(20000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

/// Measures an operation with the repaint behind it; what it did is taken back each time.
template <class Operation>
void measureOperation(benchmark::State& state, Operation operation)
{
    Palette palette(state);
    std::size_t changed = 0;
    for (auto _ : state) {
        changed = operation(palette.database(), palette.layers).changed.size();
        palette.repaint();
        state.PauseTiming();
        palette.database().endUndoRecord();
        palette.database().undo();
        palette.repaint();
        state.ResumeTiming();
    }
    state.counters["changed"] = static_cast<double>(changed);
}

using Layers = std::vector<OdDbObjectId>;

/// A click on the cell of one of many selected rows.
void giveSelected(benchmark::State& state, LayerColumn column)
{
    measureOperation(state, [column](OdDbDatabase& database, const Layers& layers) {
        return toggleLayerFlag(database, column, layers.back(), layers);
    });
}
BENCHMARK_CAPTURE(giveSelected, locked, LayerColumn::Locked)->Apply(selections);
BENCHMARK_CAPTURE(giveSelected, freeze, LayerColumn::Freeze)->Apply(selections);
BENCHMARK_CAPTURE(giveSelected, viewportFreeze, LayerColumn::VpFreeze)->Apply(selections);

void giveSelectedViewportColor(benchmark::State& state)
{
    measureOperation(state, [](OdDbDatabase& database, const Layers& layers) {
        return giveLayers(database, LayerColumn::VpColor, OdCmColor::fromRgb(1, 2, 3),
                          layers.back(), layers);
    });
}
BENCHMARK(giveSelectedViewportColor)->Apply(selections);

void isolateSelected(benchmark::State& state)
{
    measureOperation(state, [](OdDbDatabase& database, const Layers& layers) {
        return isolateLayers(database, {layers.data(), 2}, layers);
    });
}
BENCHMARK(isolateSelected)->Apply(selections);

/// Of a drawing that no grid shows: the operation alone.
void deleteAll(benchmark::State& state)
{
    const auto database =
        readDrawing(generated_drawing::path(static_cast<int>(state.range(0)), 1000));
    const Layers layers = database->layerTable().records();
    std::size_t changed = 0;
    for (auto _ : state) {
        changed = deleteLayers(*database, layers).changed.size();
        state.PauseTiming();
        database->endUndoRecord();
        database->undo();
        state.ResumeTiming();
    }
    state.counters["changed"] = static_cast<double>(changed);
}
BENCHMARK(deleteAll)->Apply(selections);

void undoOfDeleteAll(benchmark::State& state)
{
    Palette palette(state);
    for (auto _ : state) {
        state.PauseTiming();
        deleteLayers(palette.database(), palette.layers);
        palette.database().endUndoRecord();
        palette.repaint();
        state.ResumeTiming();
        palette.database().undo();
        palette.repaint();
    }
}
BENCHMARK(undoOfDeleteAll)->Apply(selections)->Iterations(2);

void freezeSelectedInAllViewports(benchmark::State& state)
{
    measureOperation(state, [](OdDbDatabase& database, const Layers& layers) {
        return freezeInAllViewports(database, layers, true);
    });
}
BENCHMARK(freezeSelectedInAllViewports)->Apply(selections);

void newLayerFrozenInAllViewports(benchmark::State& state)
{
    measureOperation(state, [](OdDbDatabase& database, const Layers& layers) {
        return makeNewLayer(database, NewLayerKind::FrozenInAllViewports, layers.front());
    });
}
BENCHMARK(newLayerFrozenInAllViewports)->Apply(selections);

} // namespace

int main(int argc, char** argv)
{
    return runWidgetBenchmarks(argc, argv);
}
