// Commands of the filter tree by number of layers, with the grid that follows them.

#include "bench/support/BenchDocuments.h"
#include "bench/support/GeneratedDrawing.h"
#include "bench/support/LayerCounts.h"
#include "bench/support/WidgetBenchmarks.h"
#include "database/tables/OdDbLayerTable.h"
#include "io/DrawingFile.h"
#include "layermanager/filters/tree/FilterCommands.h"
#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace {

constexpr qint64 kEntities = 10000;

/// Tree and grid over a drawing, the root filter selected.
struct Shown
{
    explicit Shown(const benchmark::State& state)
        : documents(
            readDrawing(generated_drawing::path(static_cast<int>(state.range(0)), kEntities)))
    {
        grid.resize(1200, 800);
        grid.show();
        grid.fill(documents.database());
        tree.show();
        tree.bind(documents.database());
        QObject::connect(&tree, &CLayerTreeVw::layersChanged, &grid,
                         &CLayerListCtrl::refreshAllRows);
        QCoreApplication::processEvents();
    }

    BenchDocuments documents;
    CLayerListCtrl grid;
    CLayerTreeVw tree;
};

/// One command and what follows from it until the views are painted; each time all layers change.
void lockAndUnlockAll(benchmark::State& state)
{
    Shown shown(state);
    bool lock = true;
    for (auto _ : state) {
        shown.tree.command(lock ? kLock : kUnlock);
        QCoreApplication::processEvents();
        shown.grid.viewport()->repaint();
        lock = !lock;
    }
}
BENCHMARK(lockAndUnlockAll)->Apply(byLayerCount);

void undoOfLockingAll(benchmark::State& state)
{
    Shown shown(state);
    shown.tree.command(kLock);
    bool locked = true;
    for (auto _ : state) {
        locked ? shown.documents.database()->undo() : shown.documents.database()->redo();
        QCoreApplication::processEvents();
        shown.grid.viewport()->repaint();
        locked = !locked;
    }
}
BENCHMARK(undoOfLockingAll)->Apply(byLayerCount);

} // namespace

int main(int argc, char** argv)
{
    return runWidgetBenchmarks(argc, argv);
}
