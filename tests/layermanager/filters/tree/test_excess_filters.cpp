#include "FilterDrawing.h"
#include "layermanager/filters/tree/ExcessFilters.h"

#include <gtest/gtest.h>

namespace {

/// Layer "0" counts among them.
QList<DrawingText::Layer> layers(int count)
{
    QList<DrawingText::Layer> made;
    for (int i = 1; i < count; ++i)
        made.append({"L" + QByteArray::number(i)});
    return made;
}

void addFilters(FilterDrawing& drawing, int count)
{
    FilterKey parent = FilterDrawing::all();
    for (int i = 0; i < count; ++i) {
        const QByteArray name = "Filter " + QByteArray::number(i);
        const FilterKey made = drawing.group(name.constData(), {}, parent);
        if (i == 0)
            parent = made; // nested ones count too
    }
}

bool asks(int filterCount, int layerCount)
{
    FilterDrawing drawing(layers(layerCount));
    addFilters(drawing, filterCount);
    return hasExcessFilters(*drawing);
}

} // namespace

TEST(ExcessFilters, AreTenOrMoreAndAsManyAsLayers)
{
    EXPECT_FALSE(asks(9, 3));
    EXPECT_TRUE(asks(10, 10));
    EXPECT_FALSE(asks(10, 11));
    EXPECT_TRUE(asks(11, 3));
}

TEST(ExcessFilters, DoNotCountTheFixedOnes)
{
    FilterDrawing drawing(layers(2));
    addFilters(drawing, 9);
    EXPECT_EQ(drawing.tree().size(), 11) << "with All and All used layers";
    EXPECT_FALSE(hasExcessFilters(*drawing));
}

TEST(ExcessFilters, AreDeletedInOneStepAndComeBackByUndo)
{
    FilterDrawing drawing(layers(3));
    addFilters(drawing, 12);
    setCurrentFilter(*drawing, FilterDrawing::key("Filter 5"));
    drawing.host.historyNames.clear();
    const QStringList before = drawing.tree();
    deleteAllFilters(*drawing);
    EXPECT_EQ(drawing.tree(), texts({"All", ".All used layers"}));
    EXPECT_EQ(drawing.current(), QStringLiteral("All"));
    EXPECT_EQ(drawing.host.historyNames.size(), 1);
    EXPECT_TRUE(drawing->undo());
    EXPECT_EQ(drawing.tree(), before);
    EXPECT_EQ(drawing.current(), QStringLiteral("Filter 5"));
}
