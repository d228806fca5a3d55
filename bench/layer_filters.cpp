// Filters of layers by number of layers: rows of criteria, property filters, groups, layers in use;
// and reading expressions by number of rows.

#include "bench/support/GeneratedDrawing.h"
#include "bench/support/LayerCounts.h"
#include "database/filters/OdLyLayerFilter.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "layermanager/filters/FilterExpression.h"
#include "layermanager/filters/LayersOfFilter.h"

#include <benchmark/benchmark.h>

namespace {

constexpr qint64 kEntities = 10000;

/// A drawing whose layers are all open already, as the grid has them.
struct Drawing
{
    explicit Drawing(const benchmark::State& state)
        : database(
            readDrawing(generated_drawing::path(static_cast<int>(state.range(0)), kEntities)))
        , layers(database->layerTable().records())
    {
        for (const OdDbObjectId layer : layers)
            layer.safeOpenObject<OdDbLayerTableRecord>();
        database->layerTable().generateUsageData();
    }

    /// Evaluates the filter again and again, both lists.
    void measure(benchmark::State& state, const OdLyLayerFilter& filter)
    {
        LayerIds in;
        LayerIds others;
        for (auto _ : state)
            GetLayersOfFilter(*database, filter, in, &others);
        state.counters["in"] = static_cast<double>(in.size());
    }
    void measureExpression(benchmark::State& state, const char* expression)
    {
        const auto filter = odrxCreate<OdLyLayerFilter>(QStringLiteral("Filter"));
        filter->setFilterExpression(QString::fromLatin1(expression));
        measure(state, *filter);
    }

    std::unique_ptr<OdDbDatabase> database;
    LayerIds layers;
};

void oneFlag(benchmark::State& state)
{
    Drawing(state).measureExpression(state, "OFF==\"False\" ");
}
BENCHMARK(oneFlag)->Apply(byLayerCount);

void oneName(benchmark::State& state)
{
    Drawing(state).measureExpression(state, "NAME==\"*5*\" ");
}
BENCHMARK(oneName)->Apply(byLayerCount);

/// A fifth of the layers has a true color.
void oneColor(benchmark::State& state)
{
    Drawing(state).measureExpression(state, "COLOR==\"7\" ");
}
BENCHMARK(oneColor)->Apply(byLayerCount);

/// Criteria that most layers pass, so that each is asked.
void fiveCriteria(benchmark::State& state)
{
    Drawing(state).measureExpression(state,
                                     "NAME==\"*\"  AND OFF==\"False\"  AND FROZEN==\"False\"  AND "
                                     "LOCKED==\"False\"  AND PLOTTABLE==\"True\" ");
}
BENCHMARK(fiveCriteria)->Apply(byLayerCount);

/// A name pattern, a color, a linetype and a lineweight among them.
void fiveLooks(benchmark::State& state)
{
    Drawing(state).measureExpression(
        state,
        "USED==\"True\" AND VPOVERRIDES==\"False\" AND NAME==\"*-*\"  AND COLOR==\"7\"  AND "
        "LINETYPE==\"Continuous\"  AND LINEWEIGHT==\"Default\" ");
}
BENCHMARK(fiveLooks)->Apply(byLayerCount);

void tenRows(benchmark::State& state)
{
    QByteArray rows;
    for (int digit = 0; digit < 10; ++digit)
        rows += (digit == 0 ? "" : " OR ") + QByteArray("NAME==\"*") + QByteArray::number(digit)
            + "7\"  AND OFF==\"False\" ";
    Drawing(state).measureExpression(state, rows.constData());
}
BENCHMARK(tenRows)->Apply(byLayerCount);

/// Every second layer.
void group(benchmark::State& state)
{
    Drawing drawing(state);
    const auto half = odrxCreate<OdLyLayerGroup>(QStringLiteral("Group"));
    for (std::size_t i = 0; i < drawing.layers.size(); i += 2)
        half->addLayerId(drawing.layers[i]);
    drawing.measure(state, *half);
}
BENCHMARK(group)->Apply(byLayerCount);

void used(benchmark::State& state)
{
    Drawing(state).measure(state, *odrxCreate<OdLyLayerFilter>(QStringLiteral("All used layers")));
}
BENCHMARK(used)->Apply(byLayerCount);

void all(benchmark::State& state)
{
    Drawing(state).measure(state, *odrxCreate<OdLyLayerFilter>(QStringLiteral("All")));
}
BENCHMARK(all)->Apply(byLayerCount);

/// By number of rows, six criteria each.
void parse(benchmark::State& state)
{
    const auto database = readDrawing(generated_drawing::path(100, 0));
    const QString row =
        QStringLiteral("USED==\"True\" AND VPOVERRIDES==\"False\" AND NAME==\"A-*\"  "
                       "AND OFF==\"False\"  AND COLOR==\"7\"  AND "
                       "LINETYPE==\"Continuous\"  AND LINEWEIGHT==\"Default\" ");
    QStringList rows;
    for (int i = 0; i < state.range(0); ++i)
        rows.append(row);
    const QString expression = rows.join(QStringLiteral(" OR "));
    for (auto _ : state) {
        LayerFilterRows parsed;
        ParseFilterExpression(*database, expression, parsed);
        if (parsed.size() != std::size_t(state.range(0)))
            state.SkipWithError("rows are missing");
    }
}
BENCHMARK(parse)->Arg(1)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);

} // namespace
