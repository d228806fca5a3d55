// The live preview of the property filter dialog by number of layers: from the edit of one cell to
// the repainted list.

#include "bench/support/BenchDocuments.h"
#include "bench/support/GeneratedDrawing.h"
#include "bench/support/LayerCounts.h"
#include "bench/support/WidgetBenchmarks.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "io/DrawingFile.h"
#include "layermanager/filter_editor/CDlgLayPropFilter.h"
#include "layermanager/filter_editor/CLayPropFilterEdListCtrl.h"
#include "layermanager/filter_editor/CLayerPreviewList.h"

#include <QApplication>

namespace {

constexpr qint64 kEntities = 10000;
constexpr int kNameColumn = 2;
constexpr int kOnColumn = 3;

/// The dialog over a drawing, on a new filter.
struct Shown
{
    explicit Shown(const benchmark::State& state)
        : documents(
            readDrawing(generated_drawing::path(static_cast<int>(state.range(0)), kEntities)))
    {
        OdLyLayerFilterPtr current;
        odlyGetLayerFilterManager(documents.database())->getFilters(root, current);
        dialog = std::make_unique<CDlgLayPropFilter>(
            *documents.database(), root,
            odrxCreate<OdLyLayerFilter>(QStringLiteral("Properties Filter1")), LayerIds(), false);
        dialog->resize(1200, 900);
        dialog->show();
        QCoreApplication::processEvents();
        table = dialog->findChild<CLayPropFilterEdListCtrl*>();
        preview = dialog->findChild<CLayerPreviewList*>();
    }

    void repaint() const
    {
        table->viewport()->repaint();
        preview->viewport()->repaint();
    }

    BenchDocuments documents;
    OdLyLayerFilterPtr root;
    std::unique_ptr<CDlgLayPropFilter> dialog;
    CLayPropFilterEdListCtrl* table = nullptr;
    CLayerPreviewList* preview = nullptr;
};

/// All or nearly all layers pass before and after.
void editThatKeepsMost(benchmark::State& state)
{
    const Shown shown(state);
    qint32 value = 0;
    shown.table->SetCellValue(0, kNameColumn, 0, QStringLiteral("*"), OdDbObjectId());
    for (auto _ : state) {
        value = value == 1 ? 0 : 1;
        shown.table->SetCellValue(0, kOnColumn, value, QString(), OdDbObjectId());
        shown.repaint();
    }
    state.counters["shown"] = shown.preview->displayedCount();
}
BENCHMARK(editThatKeepsMost)->Apply(byLayerCount);

/// A pattern that few layers fit, and another.
void editThatKeepsFew(benchmark::State& state)
{
    const Shown shown(state);
    bool other = false;
    for (auto _ : state) {
        other = !other;
        shown.table->SetCellValue(0, kNameColumn, 0,
                                  other ? QStringLiteral("*7*9") : QStringLiteral("*9*7"),
                                  OdDbObjectId());
        shown.repaint();
    }
    state.counters["shown"] = shown.preview->displayedCount();
}
BENCHMARK(editThatKeepsFew)->Apply(byLayerCount);

} // namespace

int main(int argc, char** argv)
{
    return runWidgetBenchmarks(argc, argv);
}
