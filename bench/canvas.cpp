#include "bench/support/GeneratedDrawing.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/values/GroupList.h"
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

/// The picture after a small move, again and again.
void paintRepeatedly(benchmark::State& state, CCanvas& canvas)
{
    ViewTransform view = canvas.view();
    double step = 1;
    for (auto _ : state) {
        view.pan({step, 0});
        step = -step;
        canvas.setView(view);
        canvas.completeNow();
    }
}

/// Everything in sight.
void paintAll(benchmark::State& state)
{
    const auto canvas = completeCanvas(state.range(0));
    paintRepeatedly(state, *canvas);
}

/// A linetype whose dashes and gaps can be told apart while everything is in sight.
OdDbObjectId dashedLinetype(OdDbDatabase& database)
{
    const QString name = QStringLiteral("BENCH");
    OdDbSymbolTable& table = database.table(OdDbTableKind::Linetype);
    if (table.has(name))
        return table.getAt(name);
    auto record = std::make_unique<OdDbLinetypeTableRecord>();
    record->stateForLoading().name = name;
    record->stateForLoading().dashes = {600, -300};
    return table.addRecord(std::move(record));
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
    canvas->setView(view);
    paintRepeatedly(state, *canvas);
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

/// From thawing all layers to the complete picture.
void thawAllLayers(benchmark::State& state)
{
    OdDbDatabase& database = drawing(state.range(0));
    const auto canvas = completeCanvas(state.range(0));
    const auto freeze = [&](bool frozen) {
        database.startUndoRecord();
        for (const OdDbObjectId id : database.layerTable().records())
            id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsFrozen(frozen);
        canvas->completeNow();
    };
    for (auto _ : state) {
        state.PauseTiming();
        freeze(true);
        state.ResumeTiming();
        freeze(false);
    }
}

/// A whole picture whose layers all have a linetype with gaps that show.
void paintDashed(benchmark::State& state)
{
    OdDbDatabase& database = drawing(state.range(0));
    const auto canvas = completeCanvas(state.range(0));
    database.startUndoRecord();
    const OdDbObjectId dashed = dashedLinetype(database);
    for (const OdDbObjectId id : database.layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setLinetypeObjectId(dashed);
    paintRepeatedly(state, *canvas);
    database.undo();
}

/// A whole picture whose lines all have a weight of half a millimetre.
void paintWeights(benchmark::State& state)
{
    OdDbDatabase& database = drawing(state.range(0));
    const auto canvas = completeCanvas(state.range(0));
    database.startUndoRecord();
    database.setHeaderVariable(QStringLiteral("$LWDISPLAY"), 290, QStringLiteral("1"));
    for (const OdDbObjectId id : database.layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setLineWeight(50);
    paintRepeatedly(state, *canvas);
    database.undo();
}

/// From the making of an entity to the complete picture.
void addEntity(benchmark::State& state)
{
    OdDbDatabase& database = drawing(state.range(0));
    const auto canvas = completeCanvas(state.range(0));
    const GroupList groups{{100, "AcDbLine"}, {10, "0"},  {20, "0"}, {30, "0"},
                           {11, "100"},       {21, "50"}, {31, "0"}};
    for (auto _ : state) {
        database.addEntity("LINE", groups, database.getModelSpaceId(), database.getLayerZeroId());
        canvas->completeNow();
    }
    while (database.undo()) {
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
BENCHMARK(thawAllLayers)->Apply(sizes);
BENCHMARK(paintDashed)->Apply(sizes);
BENCHMARK(paintWeights)->Apply(sizes);
BENCHMARK(addEntity)->Apply(sizes);
