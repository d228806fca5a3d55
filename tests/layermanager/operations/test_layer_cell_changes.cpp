#include "OperationDrawing.h"
#include "database/objects/OdDbEntity.h"
#include "layermanager/layers/operations/LayerOperations.h"

#include <gtest/gtest.h>

using enum LayerColumn;

namespace {

constexpr LayerColumn kChanging[] = {On,         Freeze,     Locked,       Color,       Linetype,
                                     Lineweight, PlotStyle,  Plot,         NewVpFreeze, VpFreeze,
                                     VpColor,    VpLinetype, VpLineweight, VpPlotStyle};

constexpr const char* kKinds[] = {"0",      "Defpoints", "Current", "Frozen",  "Locked",
                                  "Off",    "x|Far",     "Line",    "InBlock", "Attribute",
                                  "Border", "Framed",    "Unused"};

class CellChanges : public testing::Test
{
protected:
    CellChanges() { m_drawing.enterSheet(); }

    /// A value that the layer does not have: of flags the other one.
    LayerValue other(const char* layer, LayerColumn column) const
    {
        switch (column) {
        case Color:
            return OdCmColor::fromIndex(6);
        case VpColor:
            return OdCmColor::fromIndex(2);
        case Linetype:
            return m_drawing.linetype("DASHED");
        case VpLinetype: // the layers have got dashes before
            return m_drawing.linetype("Continuous");
        case Lineweight:
            return qint16(70);
        case VpLineweight:
            return qint16(15);
        case PlotStyle:
            return QStringLiteral("Thin");
        case VpPlotStyle:
            return QStringLiteral("Normal");
        default:
            return !std::get<bool>(value(layer, column));
        }
    }
    LayerValue value(const char* layer, LayerColumn column) const
    {
        return layerCellValue(*m_drawing, m_drawing.id(layer), column).value();
    }
    LayerOutcome give(LayerColumn column, const LayerValue& given, const char* clicked,
                      std::initializer_list<const char*> others = {})
    {
        return giveLayers(*m_drawing, column, given, m_drawing.id(clicked), m_drawing.ids(others));
    }

    OperationDrawing m_drawing;
};

} // namespace

TEST_F(CellChanges, GiveEveryKindOfLayerEveryValueExceptThatTheCurrentOneIsNotFrozen)
{
    for (const LayerColumn column : kChanging) {
        for (const char* kind : kKinds) {
            SCOPED_TRACE(testing::Message() << kind << ", column " << static_cast<int>(column));
            const LayerValue given = other(kind, column);
            const auto change = [&] { return give(column, given, kind); };
            if (column == Freeze && QByteArray(kind) == "Current") {
                const LayerOutcome outcome = m_drawing.idle(change);
                EXPECT_EQ(outcome.message.toStdString(),
                          "Cannot freeze current layer. Specify a different layer");
                EXPECT_EQ(refusedNames(outcome), texts({"Current"}));
                continue;
            }
            const LayerOutcome outcome = m_drawing.changing(change);
            EXPECT_EQ(changedNames(outcome), texts({kind}));
            EXPECT_EQ(outcome.message, QString());
            EXPECT_EQ(value(kind, column), given);
            m_drawing.idle(change);
        }
    }
}

TEST_F(CellChanges, ThawTheCurrentLayerThatADrawingHasFrozen)
{
    m_drawing->setCLAYER(m_drawing.id("Frozen"));
    m_drawing.changing([&] { return give(Freeze, false, "Frozen"); });
    EXPECT_FALSE(m_drawing.layer("Frozen")->isFrozen());
}

TEST_F(CellChanges, FreezeTheCurrentLayerWhereWhichOneThatIsCannotBeRead)
{
    m_drawing.host.unreadable.insert(QStringLiteral("CLAYER"));
    m_drawing.changing([&] { return give(Freeze, true, "Current"); });
}

TEST_F(CellChanges, GiveTheOtherLayersWhatTheClickedOneGotExceptPlotAndPlotStyles)
{
    for (const LayerColumn column : kChanging) {
        SCOPED_TRACE(static_cast<int>(column));
        const LayerValue given = other("Line", column);
        const LayerValue spare = value("Spare", column);
        const LayerOutcome outcome = m_drawing.changing([&] {
            return give(column, given, "Line", {"Unused", "Line", "Spare"});
        });
        const bool staysAlone = column == Plot || column == PlotStyle || column == VpPlotStyle;
        EXPECT_EQ(changedNames(outcome),
                  staysAlone ? texts({"Line"}) : texts({"Line", "Unused", "Spare"}));
        EXPECT_EQ(value("Line", column), given);
        EXPECT_EQ(value("Spare", column), staysAlone ? spare : given);
    }
}

TEST_F(CellChanges, GiveLayersThatDifferFromEachOtherTheSameFlagAndEachItsOwnPlotFlag)
{
    m_drawing.edited("Spare")->setIsLocked(true);
    m_drawing.edited("Spare")->setIsPlottable(false);
    const auto others = m_drawing.ids({"Unused", "Spare"});
    const auto toggle = [&](LayerColumn column) {
        return m_drawing.changing(
            [&] { return toggleLayerFlag(*m_drawing, column, m_drawing.id("Line"), others); });
    };
    EXPECT_EQ(changedNames(toggle(Locked)), texts({"Line", "Unused"}));
    EXPECT_TRUE(m_drawing.layer("Spare")->isLocked());
    EXPECT_EQ(changedNames(toggle(Locked)), texts({"Line", "Unused", "Spare"}));
    EXPECT_FALSE(m_drawing.layer("Spare")->isLocked());
    EXPECT_EQ(changedNames(toggle(Plot)), texts({"Line"}));
    EXPECT_FALSE(m_drawing.layer("Line")->isPlottable());
    EXPECT_TRUE(m_drawing.layer("Unused")->isPlottable());
    EXPECT_FALSE(m_drawing.layer("Spare")->isPlottable());
}

TEST_F(CellChanges, ChangeTheOthersThoughTheClickedLayerHasTheValueAlready)
{
    const LayerOutcome outcome =
        m_drawing.changing([&] { return give(Locked, true, "Locked", {"Unused"}); });
    EXPECT_EQ(changedNames(outcome), texts({"Unused"}));
}

TEST_F(CellChanges, NeverFreezeTheCurrentLayerAlongAndSayWhichWasSpared)
{
    const LayerOutcome outcome = m_drawing.changing([&] {
        return give(Freeze, true, "Line", {"Current", "Unused"});
    });
    EXPECT_EQ(changedNames(outcome), texts({"Line", "Unused"}));
    EXPECT_EQ(refusedNames(outcome), texts({"Current"}));
    EXPECT_EQ(outcome.message, QString()) << "nobody clicked it";
    EXPECT_EQ(
        changedNames(m_drawing.changing([&] { return give(VpFreeze, true, "Line", {"Current"}); })),
        texts({"Line", "Current"}))
        << "in a viewport it may be frozen";
}

TEST_F(CellChanges, OfViewportsStayInTheActiveOne)
{
    m_drawing.changing([&] { return give(VpFreeze, true, "Line", {"Unused"}); });
    m_drawing.changing([&] { return give(VpColor, OdCmColor::fromIndex(6), "Line", {"Unused"}); });
    for (const char* layer : {"Line", "Unused"}) {
        EXPECT_TRUE(m_drawing.isFrozenIn(0xA2, layer));
        EXPECT_FALSE(m_drawing.isFrozenIn(0xA3, layer));
        EXPECT_TRUE(m_drawing.layer(layer)->hasOverrides(m_drawing.viewport(0xA2)));
        EXPECT_FALSE(m_drawing.layer(layer)->hasOverrides(m_drawing.viewport(0xA3)));
        EXPECT_EQ(m_drawing.layer(layer)->color(), OdCmColor::fromIndex(7));
    }
}

TEST_F(CellChanges, ThawAllLayersWhereTheClickedOneWasFrozenInTheViewport)
{
    give(VpFreeze, true, "Line", {"Unused"});
    const auto toggle = [&] {
        return toggleLayerFlag(*m_drawing, VpFreeze, m_drawing.id("Line"),
                               m_drawing.ids({"Spare", "Unused"}));
    };
    EXPECT_EQ(changedNames(m_drawing.changing(toggle)), texts({"Line", "Unused"}));
    EXPECT_EQ(changedNames(m_drawing.changing(toggle)), texts({"Line", "Spare", "Unused"}));
}

TEST_F(CellChanges, OfViewportsAreNotMadeInModelSpace)
{
    m_drawing->setTILEMODE(true);
    for (const LayerColumn column : {VpFreeze, VpColor, VpLinetype, VpLineweight, VpPlotStyle}) {
        EXPECT_EQ(layerCellValue(*m_drawing, m_drawing.id("Line"), column), std::nullopt);
        m_drawing.idle([&] { return give(column, other("Line", Color), "Line", {"Unused"}); });
    }
}

TEST_F(CellChanges, TellWhatTheDrawingRefusesTheClickedLayerAndLeaveTheOthers)
{
    const auto stamp = m_drawing->editStamp();
    const LayerOutcome style = give(PlotStyle, QStringLiteral("Bold"), "Line", {"Unused"});
    EXPECT_EQ(style.message.toStdString(), "The drawing has no plot style \"Bold\".");
    const LayerOutcome linetype = give(Linetype, m_drawing.id("Line"), "Line", {"Unused"});
    EXPECT_EQ(linetype.message.toStdString(), "A layer takes a linetype of its drawing only.");
    for (const LayerOutcome& outcome : {style, linetype}) {
        EXPECT_TRUE(outcome.isEmpty());
        EXPECT_EQ(refusedNames(outcome), texts({"Line"}));
    }
    EXPECT_EQ(m_drawing->editStamp(), stamp);
}

TEST_F(CellChanges, PassOverLayersThatAreGone)
{
    const OdDbObjectId gone = m_drawing.id("Spare");
    m_drawing.edited("Spare")->erase();
    for (const LayerColumn column : {Locked, VpFreeze}) {
        const std::vector<OdDbObjectId> others = {gone, OdDbObjectId(), m_drawing.id("Unused")};
        EXPECT_EQ(changedNames(m_drawing.changing([&] {
                      return giveLayers(*m_drawing, column, true, m_drawing.id("Line"), others);
                  })),
                  texts({"Line", "Unused"}));
        m_drawing.idle(
            [&] { return giveLayers(*m_drawing, column, true, gone, m_drawing.ids({"Border"})); });
    }
}

TEST_F(CellChanges, TakeNoValueOfAnotherKindThanTheColumn)
{
    m_drawing.idle([&] { return give(Color, true, "Line", {"Unused"}); });
    m_drawing.idle([&] { return give(On, OdCmColor::fromIndex(1), "Line", {"Unused"}); });
    m_drawing.idle([&] { return give(Description, QStringLiteral("a"), "Line", {"Unused"}); });
}

TEST_F(CellChanges, GiveManyLayersAValueWithoutAClickedOne)
{
    const auto all = m_drawing.ids({"Line", "Current", "Frozen", "Unused"});
    const LayerOutcome outcome =
        m_drawing.changing([&] { return giveEachLayer(*m_drawing, Freeze, true, all); });
    EXPECT_EQ(changedNames(outcome), texts({"Line", "Unused"}));
    EXPECT_EQ(refusedNames(outcome), texts({"Current"}));
    m_drawing.changing([&] { return giveEachLayer(*m_drawing, VpFreeze, true, all); });
    EXPECT_TRUE(m_drawing.isFrozenIn(0xA2, "Current"));
}
