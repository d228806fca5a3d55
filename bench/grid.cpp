// The layer grid by number of layers: filling, sorting, painting, following changes.

#include "bench/support/BenchDocuments.h"
#include "bench/support/GeneratedDrawing.h"
#include "bench/support/WidgetBenchmarks.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"

#include <QApplication>
#include <QScrollBar>

#include <benchmark/benchmark.h>

namespace {

constexpr qint64 kEntities = 10000;

std::unique_ptr<OdDbDatabase> drawing(const benchmark::State& state)
{
    return readDrawing(generated_drawing::path(static_cast<int>(state.range(0)), kEntities));
}

/// A grid of 1200 x 800 with all columns wide enough to show their texts.
struct Shown
{
    explicit Shown(const benchmark::State& state)
        : documents(drawing(state))
    {
        grid.resize(1200, 800);
        grid.show();
        grid.fill(documents.database());
        grid.setColumnWidth(static_cast<int>(LayerColumn::Name), 200);
        for (const LayerColumn column : {LayerColumn::Color, LayerColumn::Linetype,
                                         LayerColumn::Lineweight, LayerColumn::PlotStyle})
            grid.setColumnWidth(static_cast<int>(column), 110);
        QCoreApplication::processEvents();
        grid.viewport()->repaint();
    }

    BenchDocuments documents;
    CLayerListCtrl grid;
};

void sizes(benchmark::internal::Benchmark* b)
{
    b->Arg(100)->Arg(2000)->Arg(20000)->Arg(100000)->Unit(benchmark::kMillisecond);
}

/// The drawing is new to the grid, and nobody asked for the order of its names yet.
void firstFillAndFrame(benchmark::State& state)
{
    Shown shown(state);
    for (auto _ : state) {
        state.PauseTiming();
        const BenchDocuments fresh(drawing(state));
        state.ResumeTiming();
        shown.grid.fill(fresh.database());
        shown.grid.viewport()->repaint();
        state.PauseTiming();
        shown.grid.unbind();
        state.ResumeTiming();
    }
}
BENCHMARK(firstFillAndFrame)->Apply(sizes);

void fillAndFrame(benchmark::State& state)
{
    Shown shown(state);
    for (auto _ : state) {
        shown.grid.fill(shown.documents.database());
        shown.grid.viewport()->repaint();
    }
}
BENCHMARK(fillAndFrame)->Apply(sizes);

void fillFromListAndFrame(benchmark::State& state)
{
    Shown shown(state);
    const auto layers = shown.documents.database()->layerTable().records();
    for (auto _ : state) {
        shown.grid.fillFromList(layers);
        shown.grid.viewport()->repaint();
    }
}
BENCHMARK(fillFromListAndFrame)->Apply(sizes);

void sortBy(benchmark::State& state, LayerColumn column)
{
    Shown shown(state);
    for (auto _ : state)
        shown.grid.columnClicked(static_cast<int>(column));
}
BENCHMARK_CAPTURE(sortBy, name, LayerColumn::Name)->Apply(sizes);
BENCHMARK_CAPTURE(sortBy, freeze, LayerColumn::Freeze)->Apply(sizes);
BENCHMARK_CAPTURE(sortBy, color, LayerColumn::Color)->Apply(sizes);
BENCHMARK_CAPTURE(sortBy, linetype, LayerColumn::Linetype)->Apply(sizes);
BENCHMARK_CAPTURE(sortBy, plotStyle, LayerColumn::PlotStyle)->Apply(sizes);
BENCHMARK_CAPTURE(sortBy, description, LayerColumn::Description)->Apply(sizes);

void sortAllSelected(benchmark::State& state)
{
    Shown shown(state);
    shown.grid.chooseRange(0, shown.grid.displayedCount() - 2);
    for (auto _ : state)
        shown.grid.columnClicked(static_cast<int>(LayerColumn::Name));
}
BENCHMARK(sortAllSelected)->Apply(sizes);

void frame(benchmark::State& state)
{
    Shown shown(state);
    for (auto _ : state)
        shown.grid.viewport()->repaint();
}
BENCHMARK(frame)->Apply(sizes);

/// Every frame shows rows that the one before did not.
void scrolledFrame(benchmark::State& state)
{
    Shown shown(state);
    QScrollBar* bar = shown.grid.verticalScrollBar();
    for (auto _ : state) {
        const int next = bar->value() + bar->pageStep();
        bar->setValue(next > bar->maximum() ? 0 : next);
        shown.grid.viewport()->repaint();
    }
}
BENCHMARK(scrolledFrame)->Apply(sizes);

/// A command that changes every layer: one notification and one row update each, and one frame.
void changeEveryLayer(benchmark::State& state)
{
    Shown shown(state);
    const auto layers = shown.documents.database()->layerTable().records();
    bool locked = false;
    for (auto _ : state) {
        locked = !locked;
        for (const OdDbObjectId layer : layers)
            layer.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsLocked(locked);
        shown.grid.viewport()->repaint();
        state.PauseTiming();
        shown.documents.database()->undo();
        shown.documents.database()->redo();
        state.ResumeTiming();
    }
}
BENCHMARK(changeEveryLayer)->Apply(sizes);

} // namespace

int main(int argc, char** argv)
{
    return runWidgetBenchmarks(argc, argv);
}
