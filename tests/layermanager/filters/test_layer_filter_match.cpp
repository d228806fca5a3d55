#include "../LayerDrawing.h"
#include "database/objects/OdDbEntity.h"
#include "layermanager/filters/LayerFilterMatch.h"
#include "support/FakeHost.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

using Row = LayerFilterRow;
using SetRow = std::function<void(Row&)>;
using layer_drawing::id;
using layer_drawing::read;
using layer_drawing::write;

/// Layer "Plain" as new layers are; "Odd" with each property another way. A line lies on "Plain",
/// nothing on "Odd". The first floating viewport freezes "Plain" and overrides all looks of "Odd".
class MatchingLayer : public testing::Test
{
protected:
    MatchingLayer()
        : m_database(m_host.open(layer_drawing::make({{"Plain"}, {"Odd", 4 + 2, -3}})))
        , m_viewport(m_database.getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport)))
    {
        const auto odd = write(m_database, "Odd");
        odd->setIsFrozen(true);
        odd->setIsPlottable(false);
        odd->setDescription(QStringLiteral("Some Words"));
        odd->setLinetypeObjectId(linetype("DASHED"));
        odd->setLineWeight(25);
        odd->setColor(OdCmColor::fromIndex(5), m_viewport);
        odd->setLinetypeObjectId(linetype("Continuous"), m_viewport);
        odd->setLineWeight(50, m_viewport);
        m_database.layerTable().generateUsageData();
    }

    OdDbObjectId linetype(const char* name) const
    {
        return m_database.table(OdDbTableKind::Linetype).getAt(QString::fromLatin1(name));
    }
    void enterViewport()
    {
        m_database.setCTAB(QStringLiteral("Sheet A"));
        m_database.setActiveViewport(m_viewport);
    }
    bool passes(const char* layer, const SetRow& set) const
    {
        Row row;
        set(row);
        return LayerMatchesRow(m_database, row, read(m_database, layer));
    }
    /// Whether the row lets "Plain" through, "Odd" not.
    testing::AssertionResult isPlain(const SetRow& set) const { return shows(set, true, false); }
    testing::AssertionResult isOdd(const SetRow& set) const { return shows(set, false, true); }
    testing::AssertionResult isBoth(const SetRow& set) const { return shows(set, true, true); }
    testing::AssertionResult isNone(const SetRow& set) const { return shows(set, false, false); }

    FakeHost m_host;
    OdDbDatabase& m_database;
    OdDbObjectId m_viewport;

private:
    testing::AssertionResult shows(const SetRow& set, bool plain, bool odd) const
    {
        const bool plainPasses = passes("Plain", set);
        const bool oddPasses = passes("Odd", set);
        if (plainPasses == plain && oddPasses == odd)
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "Plain " << (plainPasses ? "passes" : "fails")
                                           << ", Odd " << (oddPasses ? "passes" : "fails");
    }
};

TEST_F(MatchingLayer, PassesARowThatSetsNothing)
{
    EXPECT_TRUE(isBoth([](Row&) {}));
}

TEST_F(MatchingLayer, PassesByUseAndOverrides)
{
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nUsed = 1; }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nUsed = 2; }));
    EXPECT_TRUE(isNone([](Row& r) { r.m_nUsed = 3; }));
    EXPECT_TRUE(isNone([](Row& r) { r.m_nUsed = 4; })) << "model space knows no overrides";
    enterViewport();
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nUsed = 1; }));
    EXPECT_TRUE(isNone([](Row& r) { r.m_nUsed = 2; }));
    EXPECT_TRUE(isNone([](Row& r) { r.m_nUsed = 3; }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nUsed = 4; }));
    write(m_database, "Plain")->setLineWeight(100, m_viewport);
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nUsed = 3; }));
}

TEST_F(MatchingLayer, PassesByItsFlags)
{
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nOn = 1; }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nOn = 2; }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nFrozen = 1; }));
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nFrozen = 2; }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nLocked = 1; }));
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nLocked = 2; }));
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nPlottable = 1; }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nPlottable = 2; }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nNewVpFrozen = 1; }));
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nNewVpFrozen = 2; }));
}

TEST_F(MatchingLayer, PassesInModelSpaceWhateverIsFrozenInViewports)
{
    EXPECT_TRUE(isBoth([](Row& r) { r.m_nVpFrozen = 1; }));
    EXPECT_TRUE(isBoth([](Row& r) { r.m_nVpFrozen = 2; }));
}

TEST_F(MatchingLayer, PassesByWhatIsFrozenInTheCurrentViewport)
{
    enterViewport();
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nVpFrozen = 1; }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nVpFrozen = 2; }));
    m_database.setActiveViewport(
        m_database.getOdDbObjectId(OdDbHandle(DrawingText::kSecondViewport)));
    EXPECT_TRUE(isNone([](Row& r) { r.m_nVpFrozen = 1; }));
    EXPECT_TRUE(isBoth([](Row& r) { r.m_nVpFrozen = 2; }));
    m_database.setCTAB(QStringLiteral("Sheet B"));
    EXPECT_TRUE(isBoth([](Row& r) { r.m_nVpFrozen = 1; })) << "a sheet without any viewport";
}

TEST_F(MatchingLayer, PassesByItsColor)
{
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nColor = 7; }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nColor = 3; }));
    EXPECT_TRUE(isNone([](Row& r) { r.m_nColor = 0; }));
    enterViewport();
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nColor = 3; })) << "its own one in a viewport too";
    write(m_database, "Plain")->setColor(OdCmColor::fromRgb(255, 0, 0));
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nColor = 1; })) << "a true color by its nearest index";
}

TEST_F(MatchingLayer, OfATrueColorPassesByTheNearestIndexAlone)
{
    const OdCmColor colors[] = {
        OdCmColor::fromRgb(0, 0, 0),     OdCmColor::fromRgb(255, 255, 255),
        OdCmColor::fromRgb(1, 2, 3),     OdCmColor::fromRgb(128, 128, 128),
        OdCmColor::fromRgb(255, 127, 0), OdCmColor::fromRgb(90, 200, 17, QStringLiteral("B$C")),
        OdCmColor::fromIndex(0),         OdCmColor::fromIndex(256),
    };
    for (const OdCmColor& color : colors) {
        write(m_database, "Plain")->setColor(color);
        for (int index = -1; index <= 257; ++index) {
            EXPECT_EQ(passes("Plain", [&](Row& r) { r.m_nColor = index; }),
                      color.colorIndex() == index)
                << color.colorNameForDisplay().toStdString() << ' ' << index;
        }
    }
}

TEST_F(MatchingLayer, PassesByItsColorInTheViewport)
{
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nVpColor = 3; })) << "in model space by its own";
    EXPECT_TRUE(isNone([](Row& r) { r.m_nVpColor = 5; }));
    enterViewport();
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nVpColor = 5; }));
    EXPECT_TRUE(isNone([](Row& r) { r.m_nVpColor = 3; }));
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nVpColor = 7; })) << "without an override by its own";
}

TEST_F(MatchingLayer, PassesByItsNameInAnyCase)
{
    EXPECT_TRUE(isPlain([](Row& r) { r.m_strName = QStringLiteral("PLAIN"); }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_strName = QStringLiteral("o*"); }));
    EXPECT_TRUE(isPlain([](Row& r) { r.m_strName = QStringLiteral("~*D*"); }));
    EXPECT_TRUE(isBoth([](Row& r) { r.m_strName = QStringLiteral("odd,pl*"); }));
    EXPECT_TRUE(isNone([](Row& r) { r.m_strName = QStringLiteral("Plai"); }));
}

TEST_F(MatchingLayer, PassesByItsWholeDescriptionOnly)
{
    EXPECT_TRUE(isOdd([](Row& r) { r.m_strDesc = QStringLiteral("Some Words"); }));
    for (const char* other : {"some words", "Some", "Some*", "Some Words "})
        EXPECT_TRUE(isNone([&](Row& r) { r.m_strDesc = QString::fromLatin1(other); })) << other;
}

TEST_F(MatchingLayer, PassesByItsLinetype)
{
    EXPECT_TRUE(isPlain([&](Row& r) { r.m_idLinetype = linetype("Continuous"); }));
    EXPECT_TRUE(isOdd([&](Row& r) { r.m_idLinetype = linetype("DASHED"); }));
    EXPECT_TRUE(isOdd([&](Row& r) { r.m_idVpLinetype = linetype("DASHED"); }));
    enterViewport();
    EXPECT_TRUE(isOdd([&](Row& r) { r.m_idLinetype = linetype("DASHED"); }));
    EXPECT_TRUE(isNone([&](Row& r) { r.m_idVpLinetype = linetype("DASHED"); }));
    EXPECT_TRUE(isBoth([&](Row& r) { r.m_idVpLinetype = linetype("Continuous"); }));
}

TEST_F(MatchingLayer, PassesByItsLineweight)
{
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nLineweight = -3; }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nLineweight = 25; }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nVpLineweight = 25; }));
    enterViewport();
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nLineweight = 25; }));
    EXPECT_TRUE(isNone([](Row& r) { r.m_nVpLineweight = 25; }));
    EXPECT_TRUE(isOdd([](Row& r) { r.m_nVpLineweight = 50; }));
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nVpLineweight = -3; }));
    EXPECT_TRUE(isNone([](Row& r) { r.m_nLineweight = 65561; })) << "25 in sixteen bits";
}

TEST_F(MatchingLayer, PassesOnlyWhenAllCriteriaAreMet)
{
    const auto all = [&](Row& r) {
        r.m_nUsed = 4;
        r.m_nOn = 2;
        r.m_nFrozen = r.m_nLocked = r.m_nNewVpFrozen = 1;
        r.m_nPlottable = r.m_nVpFrozen = 2;
        r.m_nColor = 3;
        r.m_nVpColor = 5;
        r.m_strName = QStringLiteral("odd");
        r.m_strDesc = QStringLiteral("Some Words");
        r.m_idLinetype = linetype("DASHED");
        r.m_idVpLinetype = linetype("Continuous");
        r.m_nLineweight = 25;
        r.m_nVpLineweight = 50;
    };
    const SetRow oneWrong[] = {
        [](Row& r) { r.m_nUsed = 2; },
        [](Row& r) { r.m_nOn = 1; },
        [](Row& r) { r.m_nFrozen = 2; },
        [](Row& r) { r.m_nLocked = 2; },
        [](Row& r) { r.m_nPlottable = 1; },
        [](Row& r) { r.m_nNewVpFrozen = 2; },
        [](Row& r) { r.m_nVpFrozen = 1; },
        [](Row& r) { r.m_nColor = 4; },
        [](Row& r) { r.m_nVpColor = 3; },
        [](Row& r) { r.m_strName = QStringLiteral("od"); },
        [](Row& r) { r.m_strDesc = QStringLiteral("Some"); },
        [&](Row& r) { r.m_idLinetype = linetype("ByLayer"); },
        [&](Row& r) { r.m_idVpLinetype = linetype("ByLayer"); },
        [](Row& r) { r.m_nLineweight = -3; },
        [](Row& r) { r.m_nVpLineweight = 25; },
    };
    enterViewport();
    EXPECT_TRUE(isOdd(all));
    for (std::size_t i = 0; i < std::size(oneWrong); ++i) {
        EXPECT_TRUE(isNone([&](Row& r) {
            all(r);
            oneWrong[i](r);
        })) << "criterion "
            << i;
    }
}

/// Hears when records are closed after a change.
class Modifications : public OdDbDatabaseReactor
{
public:
    void objectModified(const OdDbDatabase*, const OdDbObject*) override { ++count; }
    int count = 0;
};

TEST_F(MatchingLayer, IsClosedOnEachPath)
{
    Modifications heard;
    m_database.addReactor(&heard);
    int expected = 0;
    for (const bool passing : {true, false}) {
        Row row;
        row.m_strName = passing ? QStringLiteral("*") : QStringLiteral("x");
        auto layer = write(m_database, "Plain");
        layer->setIsLocked(passing);
        const OdDbLayerTableRecord* record = layer.get();
        EXPECT_EQ(LayerMatchesRow(m_database, row, std::move(layer)), passing);
        EXPECT_EQ(heard.count, ++expected) << "the last use has ended";
        EXPECT_FALSE(record->isWriteEnabled());
    }
    m_database.removeReactor(&heard);
    write(m_database, "Plain")->setIsOff(true);
    EXPECT_TRUE(read(m_database, "Plain")->isOff());
}

TEST_F(MatchingLayer, LeavesTheViewportClosed)
{
    enterViewport();
    EXPECT_TRUE(isPlain([](Row& r) { r.m_nVpFrozen = 1; }));
    Modifications heard;
    m_database.addReactor(&heard);
    m_viewport.safeOpenObject<OdDbViewport>(OdDb::kForWrite)->thawAllLayersInViewport();
    EXPECT_EQ(heard.count, 1);
    m_database.removeReactor(&heard);
}

TEST_F(MatchingLayer, ThatIsNoneFails)
{
    EXPECT_FALSE(LayerMatchesRow(m_database, {}, nullptr));
}

TEST_F(MatchingLayer, GivesTheSameThroughAMatcherForMany)
{
    enterViewport();
    Row row;
    row.m_nVpFrozen = 2;
    row.m_strName = QStringLiteral("*d*");
    const LayerRowMatcher matcher(m_database, row);
    for (const OdDbObjectId layer : m_database.layerTable().records()) {
        EXPECT_EQ(matcher.matches(*layer.safeOpenObject<OdDbLayerTableRecord>()),
                  layer == id(m_database, "Odd"));
    }
}

} // namespace
