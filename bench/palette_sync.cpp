// What an open palette adds to changes of all layers that somebody else makes, by number of layers.

#include "bench/support/BenchDocuments.h"
#include "bench/support/GeneratedDrawing.h"
#include "bench/support/LayerCounts.h"
#include "bench/support/WidgetBenchmarks.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "layermanager/filters/tree/FilterEdits.h"
#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "sdk/CKestPreferenceManager.h"

#include <QApplication>
#include <QTimer>

#include <benchmark/benchmark.h>

namespace {

constexpr qint64 kEntities = 10000;

enum class Palette {
    None,
    ShowsAll,
    ShowsThawed, ///< by a filter that every change meets
};

/// A drawing with a palette of 1200 x 800 beside it, or without.
class Shown
{
public:
    Shown(const benchmark::State& state, Palette palette)
        : m_documents(
            readDrawing(generated_drawing::path(static_cast<int>(state.range(0)), kEntities)))
    {
        CKestPreferenceManager::s_Layer_FilterViolationPrompt = false;
        if (palette == Palette::None)
            return;
        const auto thawed = odrxCreate<OdLyLayerFilter>(QStringLiteral("Thawed"));
        thawed->setFilterExpression(QStringLiteral("FROZEN==\"False\" "));
        FilterTreeEdit edit(database());
        edit.root()->addNested(thawed);
        if (palette == Palette::ShowsThawed)
            edit.setCurrent(thawed);
        edit.write();
        m_view = std::make_unique<CLayerPaneView>();
        m_view->initialUpdate();
        m_view->BindToCurrentDatabase();
        m_view->resize(1200, 800);
        m_view->show();
        comeToRest();
    }

    OdDbDatabase& database() const { return *m_documents.database(); }

    /// What happens once control is back in the event loop, and the timers of the grid have run
    /// out: all that the palette does after a burst.
    void comeToRest()
    {
        QCoreApplication::processEvents();
        if (!m_view)
            return;
        for (const int id : {CLayerListCtrl::kErasureTimer, CLayerListCtrl::kRefreshTimer}) {
            auto* timer = m_view->findChild<QTimer*>(QStringLiteral("timer_%1").arg(id));
            if (!timer->isActive())
                continue;
            timer->stop();
            QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
        }
        m_view->grid()->viewport()->repaint();
    }

private:
    BenchDocuments m_documents;
    std::unique_ptr<CLayerPaneView> m_view;
};

OdDbLayerTableRecordPtr opened(OdDbObjectId layer)
{
    return layer.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
}

/// Freezes all layers but one, as one command, and undoes it.
void freezeAllAndUndo(benchmark::State& state, Palette palette)
{
    Shown shown(state, palette);
    const auto layers = shown.database().layerTable().records();
    for (auto _ : state) {
        shown.database().startUndoRecord();
        for (std::size_t i = 1; i < layers.size(); ++i)
            opened(layers[i])->setIsFrozen(true);
        shown.database().endUndoRecord();
        shown.comeToRest();
        shown.database().undo();
        shown.comeToRest();
    }
}
BENCHMARK_CAPTURE(freezeAllAndUndo, withoutPalette, Palette::None)->Apply(byLayerCount);
BENCHMARK_CAPTURE(freezeAllAndUndo, allListed, Palette::ShowsAll)->Apply(byLayerCount);
BENCHMARK_CAPTURE(freezeAllAndUndo, filtered, Palette::ShowsThawed)->Apply(byLayerCount);

/// Erases every second layer one by one, and undoes it.
void eraseHalfAndUndo(benchmark::State& state, Palette palette)
{
    Shown shown(state, palette);
    const auto layers = shown.database().layerTable().records();
    for (auto _ : state) {
        shown.database().startUndoRecord();
        for (std::size_t i = 1; i < layers.size(); i += 2)
            opened(layers[i])->erase();
        shown.database().endUndoRecord();
        shown.comeToRest();
        shown.database().undo();
        shown.comeToRest();
    }
}
BENCHMARK_CAPTURE(eraseHalfAndUndo, withoutPalette, Palette::None)->Apply(byLayerCount);
BENCHMARK_CAPTURE(eraseHalfAndUndo, allListed, Palette::ShowsAll)->Apply(byLayerCount);
BENCHMARK_CAPTURE(eraseHalfAndUndo, filtered, Palette::ShowsThawed)->Apply(byLayerCount);

/// Makes as many layers as there are, and undoes it.
void addAndUndo(benchmark::State& state, Palette palette)
{
    Shown shown(state, palette);
    OdDbLayerTable& table = shown.database().layerTable();
    for (auto _ : state) {
        shown.database().startUndoRecord();
        for (int i = 0; i < state.range(0); ++i)
            table.add(QStringLiteral("Another %1").arg(i));
        shown.database().endUndoRecord();
        shown.comeToRest();
        shown.database().undo();
        shown.comeToRest();
    }
}
BENCHMARK_CAPTURE(addAndUndo, withoutPalette, Palette::None)->Apply(byLayerCount)->Iterations(2);
BENCHMARK_CAPTURE(addAndUndo, allListed, Palette::ShowsAll)->Apply(byLayerCount)->Iterations(2);
BENCHMARK_CAPTURE(addAndUndo, filtered, Palette::ShowsThawed)->Apply(byLayerCount)->Iterations(2);

/// One refresh of the palette after a burst: for so long the window does not answer.
void refreshAfterBurst(benchmark::State& state)
{
    Shown shown(state, Palette::ShowsThawed);
    const auto layers = shown.database().layerTable().records();
    bool frozen = false;
    for (auto _ : state) {
        state.PauseTiming();
        frozen = !frozen;
        for (std::size_t i = 1; i < layers.size(); ++i)
            opened(layers[i])->setIsFrozen(frozen);
        state.ResumeTiming();
        shown.comeToRest();
    }
}
BENCHMARK(refreshAfterBurst)->Apply(byLayerCount);

} // namespace

int main(int argc, char** argv)
{
    return runWidgetBenchmarks(argc, argv);
}
