#include "bench/support/GeneratedDrawing.h"
#include "host/canvas/CCanvas.h"
#include "host/canvas/CanvasContents.h"
#include "host/canvas/picking/EntityPicker.h"
#include "io/DrawingFile.h"

#include <QApplication>
#include <QPainter>

#include <benchmark/benchmark.h>

// Pointing at a drawing: a click, rectangles over everything and over a part, and the glow of what
// is selected.

namespace {

constexpr int kLayers = 1000;
constexpr QSize kWindow(1600, 1000);

/// Fonts and widgets need an application; it stays to the end of the program.
void needApplication()
{
    static int argc = 1;
    static char name[] = "picking";
    static char* argv[] = {name, nullptr};
    static const bool isOffscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QApplication application(argc, argv);
    benchmark::DoNotOptimize(isOffscreen);
}

/// A canvas that shows the whole drawing; one at a time, since the largest ones take much memory.
CCanvas& canvasOf(qint64 entities)
{
    static qint64 loaded = -1;
    static std::unique_ptr<OdDbDatabase> database;
    static std::unique_ptr<CCanvas> canvas;
    if (loaded != entities) {
        needApplication();
        canvas.reset();
        database = readDrawing(generated_drawing::path(kLayers, entities));
        database->setTILEMODE(true);
        canvas = std::make_unique<CCanvas>();
        canvas->resize(kWindow);
        canvas->setDatabase(database.get());
        canvas->completeNow();
        loaded = entities;
    }
    return *canvas;
}

Box2 middlePart(const Box2& all, double share)
{
    const Vec2 half{all.width() * share / 2, all.height() * share / 2};
    return Box2::of(all.centre() - half, all.centre() + half);
}

void sizes(benchmark::internal::Benchmark* bench)
{
    bench->Arg(10'000)->Arg(200'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

/// Clicks all over the drawing, the pick box as large as on the screen.
void click(benchmark::State& state)
{
    CCanvas& canvas = canvasOf(state.range(0));
    const PickScene picks = canvas.contents().pickScene();
    const Box2 all = canvas.contents().extents();
    int step = 0;
    std::size_t hits = 0;
    for (auto _ : state) {
        const double share = 0.05 + 0.9 * (step++ % 97) / 97.0;
        const Vec2 at{all.minX + all.width() * share, all.minY + all.height() * (1 - share)};
        hits += EntityPicker(picks).nearest(at, canvas.pickReach()).has_value() ? 1 : 0;
    }
    benchmark::DoNotOptimize(hits);
}

template <std::vector<quint32> (EntityPicker::*find)(const Box2&) const>
void rectangle(benchmark::State& state, double share)
{
    CCanvas& canvas = canvasOf(state.range(0));
    const PickScene picks = canvas.contents().pickScene();
    const Box2 box = middlePart(canvas.contents().extents(), share);
    std::size_t found = 0;
    for (auto _ : state)
        found = (EntityPicker(picks).*find)(box).size();
    state.counters["found"] = static_cast<double>(found);
}

void windowOverAll(benchmark::State& state)
{
    rectangle<&EntityPicker::inside>(state, 1.01);
}
void windowOverATenth(benchmark::State& state)
{
    rectangle<&EntityPicker::inside>(state, 0.1);
}
void crossingOverAll(benchmark::State& state)
{
    rectangle<&EntityPicker::touched>(state, 1.01);
}
void crossingOverATenth(benchmark::State& state)
{
    rectangle<&EntityPicker::touched>(state, 0.1);
}

/// Everything selected, after a small move of the view: the glow alone.
void glowOfAll(benchmark::State& state)
{
    CCanvas& canvas = canvasOf(state.range(0));
    const PickScene picks = canvas.contents().pickScene();
    const Box2 box = canvas.contents().extents().grown(1);
    SelectionGlow glow;
    glow.setSelected(EntityPicker(picks).touched(box));
    QImage picture(kWindow, QImage::Format_RGB32);
    QPainter painter(&picture);
    ViewTransform view = canvas.view();
    double step = 1;
    for (auto _ : state) {
        view.pan({step, 0});
        step = -step;
        glow.paint(painter, picks, view, 1, false);
    }
}

} // namespace

BENCHMARK(click)->Apply(sizes);
BENCHMARK(windowOverAll)->Apply(sizes);
BENCHMARK(windowOverATenth)->Apply(sizes);
BENCHMARK(crossingOverAll)->Apply(sizes);
BENCHMARK(crossingOverATenth)->Apply(sizes);
BENCHMARK(glowOfAll)->Apply(sizes);
