#include "../LayerDrawing.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "database/objects/OdDbLayout.h"
#include "layermanager/filters/FilterExpression.h"
#include "layermanager/filters/LayersOfFilter.h"
#include "support/FakeHost.h"
#include "support/drawings/SharedDrawings.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

namespace {

/// Filters that other programs made.
class FiltersOfDrawings : public testing::Test
{
protected:
    void SetUp() override { KEST_GTEST_NEEDS_DRAWINGS(); }

    using Visit = std::function<void(OdDbDatabase&, const OdLyLayerFilter&)>;

    static void visitTree(OdDbDatabase& drawing, const OdLyLayerFilter& filter, const Visit& visit)
    {
        SCOPED_TRACE(qPrintable(filter.name()));
        visit(drawing, filter);
        for (const OdLyLayerFilterPtr& nested : filter.getNestedFilters())
            visitTree(drawing, *nested, visit);
    }

    /// Each filter of each drawing, first as the drawing was saved, then in each of its sheets.
    void visitAll(const Visit& visit)
    {
        SharedDrawings::eachReadable([&](const QString& path, std::unique_ptr<OdDbDatabase> read) {
            SCOPED_TRACE(qPrintable(path));
            OdDbDatabase& drawing = m_host.open(std::move(read), path);
            OdLyLayerFilterPtr root;
            OdLyLayerFilterPtr current;
            odlyGetLayerFilterManager(&drawing)->getFilters(root, current);
            visitTree(drawing, *root, visit);
            for (const OdDbObjectId layout : drawing.layouts()) {
                drawing.setCTAB(layout.safeOpenObject<OdDbLayout>()->getLayoutName());
                visitTree(drawing, *root, visit);
            }
            m_host.close(drawing);
        });
    }

    FakeHost m_host;
};

TEST_F(FiltersOfDrawings, DivideTheLayersOfTheTableInItsOrder)
{
    int filters = 0;
    visitAll([&](OdDbDatabase& drawing, const OdLyLayerFilter& filter) {
        LayerIds in;
        LayerIds others;
        GetLayersOfFilter(drawing, filter, in, &others);
        const auto byPlace = [&](OdDbObjectId a, OdDbObjectId b) {
            return drawing.layerTable().positionOf(a.slot())
                < drawing.layerTable().positionOf(b.slot());
        };
        EXPECT_TRUE(std::is_sorted(in.begin(), in.end(), byPlace));
        EXPECT_TRUE(std::is_sorted(others.begin(), others.end(), byPlace));
        LayerIds both;
        std::merge(in.begin(), in.end(), others.begin(), others.end(), std::back_inserter(both),
                   byPlace);
        EXPECT_EQ(both, drawing.layerTable().records()) << "each layer once";
        ++filters;
    });
    EXPECT_GT(filters, 100);
}

TEST_F(FiltersOfDrawings, ThatCanBeEditedShowTheSameAfterTheirTextWasWrittenAnew)
{
    int expressions = 0;
    visitAll([&](OdDbDatabase& drawing, const OdLyLayerFilter& filter) {
        if (!filter.isEditable() || filter.filterExpression().isEmpty())
            return;
        LayerFilterRows rows;
        ParseFilterExpression(drawing, filter.filterExpression(), rows);
        EXPECT_FALSE(rows.empty()) << qPrintable(filter.filterExpression());
        LayerFilterRows grid = rows;
        grid.emplace_back();
        QStringList texts;
        QString expression;
        BuildFilterExpression(grid, texts, expression);
        LayerFilterRows again;
        ParseFilterExpression(drawing, expression, again);
        EXPECT_EQ(again, rows) << qPrintable(expression);
        ++expressions;
    });
    EXPECT_GT(expressions, 0);
}

} // namespace
