// Reading and writing DWG drawings: made ones of each version, and the largest that are at hand, in
// the folder of real drawings. Throughput is that of the file.

#include "bench/support/MadeDwg.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbLayout.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/canvas/scene/Scene.h"
#include "host/canvas/scene/SceneBuilder.h"
#include "io/DrawingFile.h"
#include "support/drawings/SharedDrawings.h"

#include <QApplication>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>

namespace {

using Job = void (*)(benchmark::State& state, const QString& path);

void countBytes(benchmark::State& state, const QString& path)
{
    state.SetBytesProcessed(state.iterations() * QFileInfo(path).size());
    state.counters["file_MB"] = static_cast<double>(QFileInfo(path).size()) / 1e6;
}

void open(benchmark::State& state, const QString& path)
{
    for (auto _ : state) {
        auto drawing = readDrawing(path);
        benchmark::DoNotOptimize(drawing->layerTable().count());
        state.PauseTiming();
        drawing.reset();
        state.ResumeTiming();
    }
    countBytes(state, path);
}

/// What `layerman list` and the palette need: each layer with its properties.
void openAndListLayers(benchmark::State& state, const QString& path)
{
    std::size_t frozen = 0;
    for (auto _ : state) {
        const auto drawing = readDrawing(path);
        for (const OdDbObjectId id : drawing->layerTable().records())
            frozen += id.safeOpenObject<OdDbLayerTableRecord>()->isFrozen() ? 1 : 0;
        drawing->layerTable().generateUsageData();
    }
    benchmark::DoNotOptimize(frozen);
    countBytes(state, path);
}

/// Opened, and all that can be drawn in all of its spaces read into shapes.
void openWithGeometry(benchmark::State& state, const QString& path)
{
    for (auto _ : state) {
        const auto drawing = readDrawing(path);
        Scene scene(drawing->getLayerZeroId().slot());
        SceneBuilder builder(*drawing, scene);
        builder.require(drawing->getModelSpaceId());
        for (const OdDbObjectId id : drawing->layouts())
            builder.require(id.safeOpenObject<OdDbLayout>()->getBlockTableRecordId());
        builder.step(QDeadlineTimer(QDeadlineTimer::Forever));
        benchmark::DoNotOptimize(scene.blockCount());
    }
    countBytes(state, path);
}

/// One layer is switched off; written, read back from the disk and compared.
void saveLightlyEdited(benchmark::State& state, const QString& path)
{
    const QTemporaryDir folder;
    const auto drawing = readDrawing(path);
    drawing->startUndoRecord();
    const auto zero =
        drawing->getLayerZeroId().safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    zero->setIsOff(!zero->isOff());
    for (auto _ : state) {
        try {
            (void)writeDrawing(*drawing, folder.filePath(QFileInfo(path).fileName()));
        } catch (const OdError& error) {
            state.SkipWithError(qPrintable(error.description()));
            break;
        }
    }
    countBytes(state, path);
}

constexpr std::pair<const char*, Job> kJobs[] = {
    {"open", open},
    {"openAndListLayers", openAndListLayers},
    {"openWithGeometry", openWithGeometry},
    {"saveLightlyEdited", saveLightlyEdited},
};

void add(const std::string& name, const QString& path)
{
    for (const auto& job : kJobs)
        benchmark::RegisterBenchmark(
            (std::string(job.first) + "/" + name).c_str(),
            [run = job.second, path](benchmark::State& state) { run(state, path); })
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
}

void addMade(const QString& folder)
{
    for (const DrawingVersion version : MadeDrawing::kVersions) {
        const std::string name = "AC" + std::to_string(static_cast<int>(version));
        const QString path =
            folder + QLatin1Char('/') + QString::fromStdString(name) + QLatin1String(".dwg");
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            throw OdError_FileAccess(OdResult::CantWriteFile, path);
        file.write(made_dwg::bytes(version, 1000, 200'000));
        add(name, path);
    }
}

void addReal()
{
    QFileInfoList files;
    for (const QString& path : SharedDrawings::files({QStringLiteral("*.dwg")}))
        files << QFileInfo(path);
    std::sort(files.begin(), files.end(),
              [](const QFileInfo& a, const QFileInfo& b) { return a.size() > b.size(); });
    int left = 6;
    for (const QFileInfo& file : std::as_const(files)) {
        try {
            (void)readDrawing(file.filePath());
        } catch (const OdError&) {
            continue; // not one that can be read
        }
        add(file.fileName().toStdString(), file.filePath());
        if (--left == 0)
            return;
    }
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    addMade(folder.path());
    if (SharedDrawings::available())
        addReal();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
