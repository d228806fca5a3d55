#include "database/filters/OdLyLayerFilterManager.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/OdRxModule.h"
#include "host/support/HostFixture.h"
#include "layermanager/filters/tree/GroupLayers.h"
#include "layermanager/module/GroupFilterPickReceiver.h"
#include "layermanager/module/LayerModuleState.h"

extern "C" OdRxModule* odrxCreateModuleObject(void* instance);

namespace {

/// Fills group "G", as the filter tree would.
class Filler : public GroupFilterPickReceiver
{
public:
    void entitiesPicked(OdDbDatabase& database, const KestSelectionSet& selection,
                        bool answer) override
    {
        FillGroupFromSelection(database, {QStringLiteral("G")}, selection, answer ? 1 : 0);
    }
};

} // namespace

/// The pick of a group filter's layers in a host without a window: the strings that the filter tree
/// queues, and the answers behind them.
class GroupPickQueue : public HostFixture
{
protected:
    GroupPickQueue()
    {
        m_module->addRef();
        m_module->initApp();
        database = open(TestDrawing()
                            .add({.name = "Wall"})
                            .add({.name = "Door"})
                            .add({.name = "Roof"})
                            .addEntity("LINE", "Wall", "100=AcDbLine 10=0 20=0 11=100 21=0")
                            .addEntity("LINE", "Door", "100=AcDbLine 10=0 20=20 11=100 21=20"))
                       .database();
        OdLyLayerFilterPtr root;
        OdLyLayerFilterPtr current;
        const auto manager = odlyGetLayerFilterManager(database);
        manager->getFilters(root, current);
        const auto group = odrxCreate<OdLyLayerGroup>(QStringLiteral("G"));
        group->addLayerId(database->layerTable().getAt(QStringLiteral("Roof")));
        root->addNested(group);
        manager->setFilters(root, group);
    }
    ~GroupPickQueue() override
    {
        m_module->uninitApp();
        m_module->release();
    }

    /// Arms the pick and runs the strings.
    void runQueued(std::initializer_list<const char*> strings)
    {
        LayerModuleState::s_bGroupFilterPickPending = true;
        LayerModuleState::s_groupFilterReceiver = &m_filler;
        for (const char* text : strings)
            core.queue().append(QString::fromUtf8(text));
        core.commands().drainQueue();
    }
    QStringList layersOfGroup() const
    {
        OdLyLayerFilterPtr root;
        OdLyLayerFilterPtr current;
        odlyGetLayerFilterManager(database)->getFilters(root, current);
        QStringList names;
        for (const OdDbObjectId layer : static_cast<OdLyLayerGroup&>(*current).layerIds())
            names << layer.safeOpenObject<OdDbLayerTableRecord>()->getName();
        return names;
    }

    OdDbDatabase* database = nullptr;

private:
    Filler m_filler;
    OdRxModule* m_module = odrxCreateModuleObject(reinterpret_cast<void*>(&odrxCreateModuleObject));
};

TEST_F(GroupPickQueue, AddsTheLayersOfWhatTheStringsSelect)
{
    runQueued({"^C^C^C^P", "__ZTR_LAYER_GROUP_FILTER", "1", "^P", "LAyer", "Door", "ALL", "\n"});
    EXPECT_EQ(layersOfGroup().join(QLatin1Char(' ')).toStdString(), "Roof Door Wall");
    EXPECT_TRUE(core.queue().isEmpty());
}

TEST_F(GroupPickQueue, ReplacesTheLayersInTheOtherMode)
{
    runQueued({"^C^C^C^P", "__ZTR_LAYER_GROUP_FILTER", "0", "^P", "LAyer", "Wall", "\n"});
    EXPECT_EQ(layersOfGroup().join(QLatin1Char(' ')).toStdString(), "Wall");
}
