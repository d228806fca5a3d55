#include "bench/support/GeneratedDrawing.h"
#include "database/OdDbLayerTable.h"
#include "database/OdDbLayerTableRecord.h"
#include "host/canvas/CCanvas.h"
#include "host/canvas/scene/Scene.h"
#include "host/canvas/scene/SceneBuilder.h"
#include "io/DrawingFile.h"

#include <QApplication>

#include <benchmark/benchmark.h>

// The drawing canvas: reading geometry, whole pictures, and what a click on a layer costs.

namespace {

constexpr int kLayers = 1000;
constexpr QSize kWindow(1600, 1000);

/// Fonts and widgets need an application; it stays to the end of the program.
void needApplication()
{
    static int argc = 1;
    static char name[] = "canvas";
    static char* argv[] = {name, nullptr};
    static const bool isOffscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QApplication application(argc, argv);
    benchmark::DoNotOptimize(isOffscreen);
}

/// One drawing at a time, since the largest ones take much memory.
OdDbDatabase& drawing(qint64 entities)
{
    static qint64 loaded = -1;
    static std::unique_ptr<OdDbDatabase> database;
    if (loaded != entities) {
        database.reset();
        database = readDrawing(generated_drawing::path(kLayers, entities));
        database->setTILEMODE(true);
        loaded = entities;
    }
    return *database;
}

/// A canvas that shows the whole drawing, picture complete.
std::unique_ptr<CCanvas> completeCanvas(qint64 entities)
{
    needApplication();
    auto canvas = std::make_unique<CCanvas>();
    canvas->resize(kWindow);
    canvas->setDatabase(&drawing(entities));
    canvas->completeNow();
    return canvas;
}

void sizes(benchmark::internal::Benchmark* bench)
{
    bench->Arg(10'000)->Arg(200'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

void readGeometry(benchmark::State& state)
{
    OdDbDatabase& database = drawing(state.range(0));
    for (auto _ : state) {
        Scene scene(database.getLayerZeroId().slot());
        SceneBuilder builder(database, scene);
        builder.require(database.getModelSpaceId());
        builder.step(QDeadlineTimer(QDeadlineTimer::Forever));
        benchmark::DoNotOptimize(scene.blockCount());
    }
}

/// Everything in sight, after a small move.
void paintAll(benchmark::State& state)
{
    const auto canvas = completeCanvas(state.range(0));
    ViewTransform view = canvas->view();
    double step = 1;
    for (auto _ : state) {
        view.pan({step, 0});
        step = -step;
        canvas->setView(view);
        canvas->completeNow();
    }
}

/// The smooth picture that follows when nothing happens; it is painted in slices.
void paintSmooth(benchmark::State& state)
{
    const auto canvas = completeCanvas(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        ViewTransform view = canvas->view();
        view.pan({1, 0});
        canvas->setView(view);
        canvas->completeNow();
        state.ResumeTiming();
        canvas->completeNow(true);
    }
}

/// A hundredth of the drawing's width in sight.
void paintCloseUp(benchmark::State& state)
{
    const auto canvas = completeCanvas(state.range(0));
    ViewTransform view = canvas->view();
    view.zoomAbout(QPointF(kWindow.width() / 2.0, kWindow.height() / 2.0), 100);
    double step = 1;
    for (auto _ : state) {
        view.pan({step, 0});
        step = -step;
        canvas->setView(view);
        canvas->completeNow();
    }
}

/// From the change of a layer to the complete picture.
void toggleLayer(benchmark::State& state)
{
    OdDbDatabase& database = drawing(state.range(0));
    const auto canvas = completeCanvas(state.range(0));
    const OdDbObjectId id = database.layerTable().records().at(kLayers / 2);
    for (auto _ : state) {
        database.startUndoRecord();
        {
            const auto layer = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
            layer->setIsOff(!layer->isOff());
        }
        canvas->completeNow();
    }
}

/// From switching all layers to the complete picture.
void toggleAllLayers(benchmark::State& state)
{
    OdDbDatabase& database = drawing(state.range(0));
    const auto canvas = completeCanvas(state.range(0));
    for (auto _ : state) {
        database.startUndoRecord();
        for (const OdDbObjectId id : database.layerTable().records()) {
            const auto layer = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
            layer->setIsFrozen(!layer->isFrozen());
        }
        canvas->completeNow();
    }
}

} // namespace

// By size first, so that each drawing is read once.
BENCHMARK(readGeometry)->Apply(sizes);
BENCHMARK(paintAll)->Apply(sizes);
BENCHMARK(paintSmooth)->Apply(sizes);
BENCHMARK(paintCloseUp)->Apply(sizes);
BENCHMARK(toggleLayer)->Apply(sizes);
BENCHMARK(toggleAllLayers)->Apply(sizes);
