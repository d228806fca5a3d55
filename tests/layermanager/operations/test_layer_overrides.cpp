#include "OperationDrawing.h"
#include "layermanager/layers/operations/LayerOverrides.h"

#include <gtest/gtest.h>

using enum OverrideScope;

namespace {

constexpr quint64 kViewports[] = {0xA1, 0xA2, 0xA3, 0xB1, 0xB2, 0xB3};

/// Three layers with overrides of everything in all viewports; A2 is active.
class LayerOverrides : public testing::Test
{
protected:
    LayerOverrides()
    {
        for (const char* layer : {"Line", "Unused", "x|Far"}) {
            for (const quint64 viewport : kViewports)
                m_drawing.override_(layer, viewport);
        }
        m_drawing.enterSheet();
    }
    LayerOutcome remove(OverrideScope scope)
    {
        return removeLayerOverrides(*m_drawing, scope, m_layers);
    }
    bool have(OverrideScope scope) const { return haveLayerOverrides(*m_drawing, scope, m_layers); }
    /// The viewports where a layer has properties of its own, transparency apart.
    std::vector<quint64> withProperties(const char* layer) const
    {
        return viewportsWhere(layer, [](const LayerOverride& there) {
            return there.color && there.linetype && there.lineWeight && there.plotStyle;
        });
    }
    std::vector<quint64> withAnything(const char* layer) const
    {
        return viewportsWhere(layer, [](const LayerOverride&) { return true; });
    }

    OperationDrawing m_drawing;
    std::vector<OdDbObjectId> m_layers = m_drawing.ids({"Line", "x|Far", "Spare"});

private:
    template <class Test>
    std::vector<quint64> viewportsWhere(const char* layer, const Test& test) const
    {
        std::vector<quint64> found;
        for (const quint64 viewport : kViewports) {
            const auto opened = m_drawing.layer(layer);
            const LayerOverride* there = opened->overrideIn(m_drawing.viewport(viewport));
            if (there && test(*there))
                found.push_back(viewport);
        }
        return found;
    }
};

using Viewports = std::vector<quint64>;
const Viewports kAll(std::begin(kViewports), std::end(kViewports));

} // namespace

TEST_F(LayerOverrides, GoFromTheActiveViewportWithAllThatDiffers)
{
    EXPECT_TRUE(have(ActiveViewport));
    EXPECT_EQ(changedNames(m_drawing.changing([&] { return remove(ActiveViewport); })),
              texts({"Line", "x|Far"}));
    for (const char* layer : {"Line", "x|Far"})
        EXPECT_EQ(withAnything(layer), (Viewports{0xA1, 0xA3, 0xB1, 0xB2, 0xB3})) << layer;
    EXPECT_EQ(withAnything("Unused"), kAll);
    EXPECT_FALSE(have(ActiveViewport));
    m_drawing.idle([&] { return remove(ActiveViewport); });
}

TEST_F(LayerOverrides, GoFromAllViewportsInModelSpaceToo)
{
    m_drawing->setTILEMODE(true);
    EXPECT_TRUE(have(AllViewports));
    m_drawing.changing([&] { return remove(AllViewports); });
    EXPECT_FALSE(m_drawing.layer("Line")->hasAnyOverrides());
    EXPECT_EQ(withAnything("Unused"), kAll);
    EXPECT_FALSE(have(AllViewports));
    m_drawing.idle([&] { return remove(AllViewports); });
}

TEST_F(LayerOverrides, GoAsPropertiesFromTheActiveViewportAndLeaveTheTransparency)
{
    m_drawing.changing([&] { return remove(PropertiesInActiveViewport); });
    EXPECT_EQ(withProperties("Line"), (Viewports{0xA1, 0xA3, 0xB1, 0xB2, 0xB3}));
    EXPECT_EQ(withAnything("Line"), kAll);
    const auto layer = m_drawing.layer("Line");
    const LayerOverride* there = layer->overrideIn(m_drawing.viewport(0xA2));
    ASSERT_TRUE(there);
    LayerOverride kept;
    kept.transparency = OdDbLayerTableRecord::transparencyFromPercent(50);
    EXPECT_EQ(*there, kept);
    EXPECT_FALSE(have(PropertiesInActiveViewport));
    EXPECT_TRUE(have(ActiveViewport));
    m_drawing.idle([&] { return remove(PropertiesInActiveViewport); });
}

TEST_F(LayerOverrides, GoAsPropertiesFromTheViewportThatIsActiveInEachLayout)
{
    m_drawing.changing([&] { return remove(PropertiesInEachLayout); });
    EXPECT_EQ(withProperties("Line"), (Viewports{0xA1, 0xA3, 0xB1, 0xB3}));
    EXPECT_EQ(withProperties("Unused"), kAll);
    EXPECT_FALSE(have(PropertiesInEachLayout));
    m_drawing->setCTAB(QStringLiteral("Sheet B"));
    EXPECT_EQ(m_drawing->activeViewportId(), m_drawing.viewport(0xB2))
        << "the one that switching to the layout makes active";
}

TEST_F(LayerOverrides, StayInViewportsWhileModelSpaceIsCurrent)
{
    m_drawing->setTILEMODE(true);
    for (const OverrideScope scope : {ActiveViewport, PropertiesInActiveViewport}) {
        EXPECT_FALSE(have(scope));
        m_drawing.idle([&] { return remove(scope); });
    }
}

TEST_F(LayerOverrides, OfLayersThatAreGoneAreLeftAlone)
{
    m_drawing.edited("x|Far")->erase();
    m_layers.push_back({});
    EXPECT_EQ(changedNames(m_drawing.changing([&] { return remove(AllViewports); })),
              texts({"Line"}));
}
