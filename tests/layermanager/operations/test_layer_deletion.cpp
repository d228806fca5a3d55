#include "OperationDrawing.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "database/objects/OdDbEntity.h"
#include "database/states/LayerStates.h"
#include "layermanager/layers/operations/LayerDeletion.h"
#include "support/drawings/EditedDrawing.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* kMessage =
    "The Following Layers Cannot be deleted.\n .Layer 0 and Defpoints\n .current layer \n .Layers "
    "containing objects \n .xref-dependent layers";

/// A drawing without the value of its next free handle.
QByteArray withoutSeed(QByteArray text)
{
    const QByteArray seed = QByteArray::fromStdString(EditedDrawing::variable(text, "$HANDSEED"));
    return text.replace("\n5\n" + seed + '\n', "\n5\n\n");
}

class LayerDeletion : public testing::Test
{
protected:
    LayerOutcome erase(std::initializer_list<const char*> layers)
    {
        return deleteLayers(*m_drawing, m_drawing.ids(layers));
    }
    LayerKeeper keeper(const char* layer) const
    {
        return LayerKeepers(*m_drawing).of(*m_drawing.layer(layer));
    }

    OperationDrawing m_drawing;
};

} // namespace

TEST_F(LayerDeletion, IsRefusedForEveryKindOfLayerThatSomethingKeeps)
{
    const struct
    {
        const char* layer;
        LayerKeeper keeper;
        const char* why;
    } kinds[] = {
        {"0", LayerKeeper::EveryDrawing, "every drawing has it"},
        {"Defpoints", LayerKeeper::EveryDrawing, "every drawing has it"},
        {"Current", LayerKeeper::Current, "it is current"},
        {"x|Far", LayerKeeper::ExternalReference, "it belongs to an external reference"},
        {"Line", LayerKeeper::Objects, "objects lie on it"},
        {"InBlock", LayerKeeper::Objects, "objects lie on it"},
        {"Attribute", LayerKeeper::Objects, "objects lie on it"},
        {"Border", LayerKeeper::Objects, "objects lie on it"},
        {"Framed", LayerKeeper::Objects, "objects lie on it"},
    };
    for (const auto& kind : kinds) {
        SCOPED_TRACE(kind.layer);
        EXPECT_EQ(keeper(kind.layer), kind.keeper);
        const LayerOutcome outcome = m_drawing.idle([&] { return erase({kind.layer}); });
        ASSERT_EQ(outcome.refused.size(), 1u);
        EXPECT_EQ(outcome.refused.front().why.toStdString(), kind.why);
        EXPECT_EQ(outcome.message.toStdString(), kMessage);
    }
}

TEST_F(LayerDeletion, TakesLayersThatNothingKeepsWhateverTheirFlags)
{
    for (const char* layer : {"Frozen", "Locked", "Off", "Unused"}) {
        SCOPED_TRACE(layer);
        EXPECT_EQ(keeper(layer), LayerKeeper::None);
        const LayerOutcome outcome = m_drawing.changing([&] { return erase({layer}); });
        EXPECT_TRUE(outcome.refused.empty());
        EXPECT_EQ(outcome.message, QString());
        EXPECT_FALSE(m_drawing->layerTable().has(QString::fromLatin1(layer)));
    }
}

TEST_F(LayerDeletion, OfTheCurrentAndAnUnusedLayerErasesTheUnusedOneAndSaysOnceWhatStays)
{
    const LayerOutcome outcome = m_drawing.changing([&] {
        return erase({"Current", "Unused", "Line", "Unused"});
    });
    EXPECT_EQ(changedNames(outcome), texts({"Unused"}));
    EXPECT_EQ(refusedNames(outcome), texts({"Current", "Line"}));
    EXPECT_EQ(outcome.message.toStdString(), kMessage);
    EXPECT_FALSE(m_drawing->layerTable().has(QStringLiteral("Unused")));
}

TEST_F(LayerDeletion, IsRefusedForALayerThatASettingOfTheDrawingNames)
{
    m_drawing->setDictionaryVariable(QStringLiteral("HPLAYER"), QStringLiteral("UNUSED"));
    m_drawing->setDictionaryVariable(QStringLiteral("DIMLAYER"), QStringLiteral("use current"));
    const LayerOutcome outcome = m_drawing.idle([&] { return erase({"Unused"}); });
    EXPECT_EQ(outcome.refused.front().why.toStdString(), "a setting of the drawing names it");
    m_drawing->setDictionaryVariable(QStringLiteral("HPLAYER"), QStringLiteral("."));
    m_drawing.changing([&] { return erase({"Unused"}); });
}

TEST_F(LayerDeletion, FollowsObjectsThatCameOrWent)
{
    const auto line = m_drawing->getOdDbObjectId(OdDbHandle(0x200));
    line.safeOpenObject<OdDbEntity>(OdDb::kForWrite)->setLayer(m_drawing.id("Unused"));
    EXPECT_EQ(keeper("Unused"), LayerKeeper::Objects);
    EXPECT_EQ(keeper("Line"), LayerKeeper::None);
    line.safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
    m_drawing.changing([&] { return erase({"Unused", "Line"}); });
}

TEST_F(LayerDeletion, LeavesNothingBehindThatNamesTheLayer)
{
    const QByteArray handle = m_drawing.id("Unused").getHandle().ascii().toLatin1();
    m_drawing.override_("Unused", 0xA2);
    m_drawing.edited("Unused")->setIsReconciled(true);
    const OdDbObjectIdArray frozen = m_drawing.ids({"Unused"});
    m_drawing.viewport(0xA3)
        .safeOpenObject<OdDbViewport>(OdDb::kForWrite)
        ->freezeLayersInViewport(frozen);
    const auto manager = odlyGetLayerFilterManager(&*m_drawing);
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    manager->getFilters(root, current);
    const auto group = odrxCreate<OdLyLayerGroup>(QStringLiteral("Group"));
    for (const OdDbObjectId layer : m_drawing.ids({"Unused", "Line"}))
        group->addLayerId(layer);
    root->addNested(group);
    manager->setFilters(root, current);
    LayerStates(*m_drawing).add(QStringLiteral("State"), {});

    const QByteArray entry = "330\n" + handle + "\n";
    const QByteArray before = drawingBytes(*m_drawing);
    ASSERT_GT(before.count(entry), 2) << "a group, a state and what hangs on the layer";
    ASSERT_TRUE(before.contains("331\n" + handle + "\n"));
    m_drawing.changing([&] { return erase({"Unused"}); });
    const QByteArray after = drawingBytes(*m_drawing);
    for (const char* code : {"5\n", "330\n", "331\n", "335\n", "350\n", "360\n"})
        EXPECT_FALSE(after.contains('\n' + QByteArray(code) + handle + '\n')) << code;
    EXPECT_EQ(EditedDrawing::count(after, "LAYER"), EditedDrawing::count(before, "LAYER") - 1);

    // The same with a drawing that has all that in its file.
    const EditedDrawing again(before);
    const OdDbObjectId layer = again->layerTable().getAt(QStringLiteral("Unused"));
    EXPECT_EQ(deleteLayers(*again, {&layer, 1}).changed.size(), 1u);
    EXPECT_TRUE(withoutSeed(again.saved()) == withoutSeed(after));
    again->undo();
    EXPECT_TRUE(again.saved() == before);
}

TEST_F(LayerDeletion, PassesOverWhatIsNoLayerOrGone)
{
    const std::vector<OdDbObjectId> odd = {OdDbObjectId(), m_drawing.viewport(0xA2),
                                           m_drawing.id("Spare")};
    m_drawing.edited("Spare")->erase();
    EXPECT_TRUE(m_drawing.idle([&] { return deleteLayers(*m_drawing, odd); }).refused.empty());
}
