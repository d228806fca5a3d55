#include "database/filters/OdLyLayerFilterManager.h"
#include "database/tables/OdDbLayerTable.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"
#include "support/drawings/SharedDrawings.h"

#include <gtest/gtest.h>

namespace {

/// The tree in one line: names, nested ones in parentheses.
QString shown(const OdLyLayerFilter& filter)
{
    QStringList nested;
    for (const OdLyLayerFilterPtr& child : filter.getNestedFilters())
        nested.append(shown(*child));
    return nested.isEmpty()
        ? filter.name()
        : QStringLiteral("%1(%2)").arg(filter.name(), nested.join(QLatin1Char(' ')));
}

QByteArray xrecord(const QByteArray& handle, const QByteArray& dictionary,
                   std::initializer_list<QByteArray> data)
{
    QByteArray text = DrawingText::groups({"0", "XRECORD", "5", handle});
    if (!dictionary.isEmpty())
        text += DrawingText::groups({"102", "{ACAD_XDICTIONARY", "360", dictionary, "102", "}"});
    return text + DrawingText::groups({"330", "71", "100", "AcDbXrecord", "280", "1"})
        + DrawingText::groups(data);
}

QByteArray dictionary(const QByteArray& handle, std::initializer_list<QByteArray> entries)
{
    return DrawingText::groups(
               {"0", "DICTIONARY", "5", handle, "330", "0", "100", "AcDbDictionary", "281", "1"})
        + DrawingText::groups(entries);
}

QByteArray drawing(const QByteArray& objects)
{
    QByteArray bytes = DrawingText::withLayers({{"Walls"}, {"Doors"}});
    bytes.replace("2\nLAYER\n5\n2\n", "2\nLAYER\n5\n2\n102\n{ACAD_XDICTIONARY\n360\n70\n102\n}\n");
    bytes.replace("0\nENDSEC\n0\nEOF", objects + "0\nENDSEC\n0\nEOF");
    return bytes;
}

TEST(LayerFilters, ComeUpWithNamesNestingExpressionsAndMembers)
{
    const auto database = readDrawing(
        drawing(
            dictionary("70", {"3", "aclydictionary", "360", "71"})
            + dictionary(
                "71", {"3", "*A1", "350", "72", "3", "*A2", "350", "76", "3", "*A3", "350", "77"})
            + xrecord("72", "73",
                      {"1", "AcLyLayerGroup", "90", "1", "300", "Shell", "330", "31", "330", "FFF"})
            + dictionary("73", {"3", "ACLYDICTIONARY", "360", "74"})
            + dictionary("74", {"3", "*A1", "350", "75"})
            + xrecord("75", {},
                      {"1", "AcLyLayerGroup", "90", "1", "300", "Inner", "330", "31", "330", "32"})
            + xrecord("76", {},
                      {"290", "1", "1", "AcLyLayerFilter", "90", "1", "300", "Red", "301",
                       "COLOR==\"1\""})
            + xrecord("77", {}, {"1", "SomeOtherClass", "300", "Unknown"})),
        QStringLiteral("filters.dxf"));
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(database.get())->getFilters(root, current);
    EXPECT_EQ(shown(*root), QStringLiteral("All(All used layers Shell(Inner) Red)"));
    EXPECT_EQ(current->name(), QStringLiteral("Red"));
    EXPECT_EQ(current->filterExpression(), QStringLiteral("COLOR==\"1\""));
    const auto& shell = static_cast<const OdLyLayerGroup&>(*root->getNestedFilters()[1]);
    ASSERT_EQ(shell.layerIds().size(), 1u) << "a layer that is gone is left out";
    EXPECT_EQ(shell.layerIds().front(), database->layerTable().getAt(QStringLiteral("Walls")));
}

TEST(LayerFilters, ADrawingWithoutAnyHasTheFixedOnes)
{
    const auto database =
        readDrawing(DrawingText::withLayers({{"Walls"}}), QStringLiteral("none.dxf"));
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(database.get())->getFilters(root, current);
    EXPECT_EQ(shown(*root), QStringLiteral("All(All used layers)"));
    EXPECT_EQ(current, root);
    EXPECT_FALSE(odlyGetLayerFilterManager(nullptr));
}

TEST(LayerFilters, DictionariesThatContainThemselvesEnd)
{
    const auto database =
        readDrawing(drawing(dictionary("70", {"3", "ACLYDICTIONARY", "360", "71"})
                            + dictionary("71", {"3", "*A1", "350", "72"})
                            + xrecord("72", "70", {"1", "AcLyLayerFilter", "300", "Ouroboros"})),
                    QStringLiteral("circle.dxf"));
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(database.get())->getFilters(root, current);
    EXPECT_EQ(shown(*root), QStringLiteral("All(All used layers Ouroboros(Ouroboros))"));
}

TEST(LayerFilters, OfRealDrawingsNestAsDeepAsTheyWereSaved)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const auto database =
        readDrawing(SharedDrawings::file(QStringLiteral("zamtmn+zcad__ltypeerror.dxf")));
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(database.get())->getFilters(root, current);
    const auto depth = [](const auto& self, const OdLyLayerFilter& filter) -> int {
        int deepest = 0;
        for (const OdLyLayerFilterPtr& child : filter.getNestedFilters())
            deepest = std::max(deepest, self(self, *child));
        return deepest + 1;
    };
    EXPECT_EQ(depth(depth, *root), 9) << "the root and eight levels of groups";
}

} // namespace
