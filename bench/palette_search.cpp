// The palette's search by number of layers: from a key press to the repainted grid.

#include "bench/support/BenchDocuments.h"
#include "bench/support/GeneratedDrawing.h"
#include "bench/support/LayerCounts.h"
#include "bench/support/WidgetBenchmarks.h"
#include "database/tables/OdDbLayerTable.h"
#include "io/DrawingFile.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/pane/CLayerSearchBox.h"

#include <QApplication>
#include <QKeyEvent>

#include <benchmark/benchmark.h>

namespace {

constexpr qint64 kEntities = 10000;

/// The palette over a drawing, with the focus in the search box.
struct Shown
{
    explicit Shown(const benchmark::State& state)
        : documents(
            readDrawing(generated_drawing::path(static_cast<int>(state.range(0)), kEntities)))
    {
        view.resize(1200, 800);
        view.initialUpdate();
        view.show();
        view.BindToCurrentDatabase();
        view.activateWindow();
        view.searchBox()->setFocus();
        QCoreApplication::processEvents();
        view.grid()->viewport()->repaint();
    }

    void press(Qt::Key key, const QString& text)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(view.searchBox(), &event);
        QCoreApplication::processEvents();
        view.grid()->viewport()->repaint();
    }
    void type(char character) { press(Qt::Key_A, QString(QLatin1Char(character))); }
    void erase() { press(Qt::Key_Backspace, {}); }
    /// Types a pattern in place of what stands there.
    void become(const char* pattern)
    {
        view.searchBox()->setText(QLatin1String(pattern));
        view.ApplySearch();
        view.searchBox()->setCursorPosition(0);
    }

    BenchDocuments documents;
    CLayerPaneView view;
};

/// A key that leaves about a tenth of the layers: "*" becomes "*1".
void keyThatNarrows(benchmark::State& state)
{
    Shown shown(state);
    for (auto _ : state) {
        state.PauseTiming();
        shown.become("*");
        shown.view.searchBox()->end(false);
        state.ResumeTiming();
        shown.type('1');
    }
    state.counters["listed"] = shown.view.grid()->displayedCount();
}
BENCHMARK(keyThatNarrows)->Apply(byLayerCount);

/// A key that leaves nearly all: "*" becomes "*?".
void keyThatKeepsAll(benchmark::State& state)
{
    Shown shown(state);
    for (auto _ : state) {
        state.PauseTiming();
        shown.become("*1");
        shown.view.searchBox()->setText(QStringLiteral("*"));
        shown.view.searchBox()->end(false);
        state.ResumeTiming();
        shown.type('?');
    }
    state.counters["listed"] = shown.view.grid()->displayedCount();
}
BENCHMARK(keyThatKeepsAll)->Apply(byLayerCount);

/// Backspace brings all layers back: "*1" becomes "*".
void keyThatWidens(benchmark::State& state)
{
    Shown shown(state);
    for (auto _ : state) {
        state.PauseTiming();
        shown.become("*1");
        shown.view.searchBox()->end(false);
        state.ResumeTiming();
        shown.erase();
    }
    state.counters["listed"] = shown.view.grid()->displayedCount();
}
BENCHMARK(keyThatWidens)->Apply(byLayerCount);

/// The whole text is deleted at once.
void clearingTheBox(benchmark::State& state)
{
    Shown shown(state);
    for (auto _ : state) {
        state.PauseTiming();
        shown.become("*a*1*");
        shown.view.searchBox()->selectAll();
        state.ResumeTiming();
        shown.erase();
    }
    state.counters["listed"] = shown.view.grid()->displayedCount();
}
BENCHMARK(clearingTheBox)->Apply(byLayerCount);

/// "Invert filter" is switched on and off while a pattern is in force.
void invert(benchmark::State& state)
{
    Shown shown(state);
    shown.become("*");
    for (auto _ : state) {
        shown.view.setInverted(!shown.view.isInverted());
        QCoreApplication::processEvents();
        shown.view.grid()->viewport()->repaint();
    }
}
BENCHMARK(invert)->Apply(byLayerCount);

/// The first key after somebody else changed a layer: names and order are read anew.
void keyAfterAChange(benchmark::State& state)
{
    Shown shown(state);
    for (auto _ : state) {
        state.PauseTiming();
        shown.become("*");
        shown.view.searchBox()->end(false);
        shown.view.layerChanged({});
        state.ResumeTiming();
        shown.type('1');
    }
}
BENCHMARK(keyAfterAChange)->Apply(byLayerCount);

/// Filtering alone, without the grid.
void filterAlone(benchmark::State& state, const char* pattern)
{
    const BenchDocuments documents(
        readDrawing(generated_drawing::path(static_cast<int>(state.range(0)), kEntities)));
    const OdDbDatabase& database = *documents.database();
    LayerSearch search;
    search.read(database, {}, LayerCellContext::of(database));
    search.setFilter(database.layerTable().records(), {});
    const QString text = QLatin1String(pattern);
    for (auto _ : state)
        benchmark::DoNotOptimize(search.matching(text, false));
}
BENCHMARK_CAPTURE(filterAlone, everything, "*")->Apply(byLayerCount);
BENCHMARK_CAPTURE(filterAlone, beginning, "a*")->Apply(byLayerCount);
BENCHMARK_CAPTURE(filterAlone, within, "*wal*")->Apply(byLayerCount);
BENCHMARK_CAPTURE(filterAlone, end, "*1")->Apply(byLayerCount);

/// Reading names and order.
void readNames(benchmark::State& state)
{
    const BenchDocuments documents(
        readDrawing(generated_drawing::path(static_cast<int>(state.range(0)), kEntities)));
    const OdDbDatabase& database = *documents.database();
    LayerSearch search;
    for (auto _ : state) {
        search.forget();
        search.read(database, {}, LayerCellContext::of(database));
    }
}
BENCHMARK(readNames)->Apply(byLayerCount);

} // namespace

int main(int argc, char** argv)
{
    return runWidgetBenchmarks(argc, argv);
}
