#include "sdk/CKestPreferenceManager.h"
#include "sdk/CSECommonUtil.h"
#include "sdk/IKestIOManager.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/IKestSysvarManager.h"
#include "sdk/KestHost.h"
#include "sdk/KestSSGet.h"
#include "sdk/KestSharedGlobals.h"
#include "sdk/KestStatus.h"
#include "sdk/KsApDocManager.h"
#include "sdk/LocalSearch.h"
#include "sdk/commands/CKsUndoRedoCommandHistory.h"

#include <gtest/gtest.h>

namespace {

class SilentSysvars : public IKestSysvarManager
{
public:
    int getInt(const QString& name, int& value) const override
    {
        if (!tooltips || name != QStringLiteral("TOOLTIPS"))
            return kest::kError;
        value = *tooltips;
        return kest::kNormal;
    }
    int setInt(const QString&, int) override { return kest::kError; }
    int getReal(const QString&, double&) const override { return kest::kError; }
    int setReal(const QString&, double) override { return kest::kError; }
    int getString(const QString&, QString&) const override { return kest::kError; }
    int setString(const QString&, const QString&) override { return kest::kError; }
    int getId(const QString&, OdDbObjectId&) const override { return kest::kError; }
    int setId(const QString&, OdDbObjectId) override { return kest::kError; }
    std::optional<int> tooltips; ///< the one variable there may be
};

class SilentIO : public IKestIOManager
{
public:
    void print(const QString&) override { }
    int getInt(const QString&, int&) override { return kest::kCancel; }
    int getString(const QString&, QString&) override { return kest::kCancel; }
    int getKeyword(const QString&, const QStringList&, int&) override { return kest::kError; }
    int openDrawing(const QString&, std::unique_ptr<OdDbDatabase>&, QString&) override
    {
        return kest::kError;
    }
    int selectFile(const KestFileRequest&, QString&, int&) override { return kest::kCancel; }
    int getPoint(const QString&, KestPoint&, const KestPoint*) override { return kest::kNone; }
};

class CountingServices : public IKestServicesManager
{
public:
    QString lineWeightText(int) const override { return {}; }
    QByteArray userState(const QString&) const override { return {}; }
    void setUserState(const QString&, const QByteArray&) override { }
    void refreshView() override { ++refreshes; }
    int pickColor(const KestPickRequest&, OdCmColor&) override { return kest::kCancel; }
    int pickLinetype(const KestPickRequest&, OdDbObjectId&) override { return kest::kCancel; }
    int pickLineweight(const KestPickRequest&, int&) override { return kest::kCancel; }
    int pickPlotStyle(const KestPickRequest&, QString&) override { return kest::kCancel; }
    void showHelp(int topic) override { topics.push_back(topic); }
    int refreshes = 0;
    std::vector<int> topics;
};

class PlainDocument : public KsApDocument
{
public:
    OdDbDatabase* database() const override { return nullptr; }
    QString fileName() const override { return {}; }
    bool hasMark(const QString&) const override { return false; }
    void setMark(const QString&) override { }
};

class OneDocument : public KsApDocManager
{
public:
    KsApDocument* curDocument() const override { return current; }
    int documentCount() const override { return current ? 1 : 0; }
    bool isBusy() const override { return false; }
    void executeInApplicationContext(const std::function<void()>& callback) override { callback(); }
    void sendStringToExecute(const QString&) override { }
    void addReactor(KsApDocManagerReactor*) override { }
    void removeReactor(KsApDocManagerReactor*) override { }
    KsApDocument* current = nullptr;
};

class PlainHistory : public CKsUndoRedoCommandHistory
{
public:
    void AddCommand(const QString&) override { }
};

/// A host for the duration of a test.
class HostInterfaces : public testing::Test
{
protected:
    void SetUp() override
    {
        KestHost host;
        host.sysvars = &sysvars;
        host.io = &io;
        host.services = &services;
        host.documents = &documents;
        host.undoHistory = &history;
        ksSetHost(host);
    }
    void TearDown() override { ksSetHost({}); }

    SilentSysvars sysvars;
    SilentIO io;
    CountingServices services;
    PlainDocument document;
    OneDocument documents;
    PlainHistory history;
};

} // namespace

TEST(HostInterfacesWithoutAHost, AreAllNull)
{
    EXPECT_EQ(getSysvarManagerInterface(), nullptr);
    EXPECT_EQ(getIOManagerInterface(), nullptr);
    EXPECT_EQ(getServicesManagerInterface(), nullptr);
    EXPECT_EQ(ksDocManagerPtr(), nullptr);
    EXPECT_EQ(ksUndoRedoHistory(), nullptr);
    EXPECT_EQ(KestSharedGlobals::GetCMainWindow(), nullptr);
}

TEST(HostInterfacesWithoutAHost, MakeRegenerationHarmless)
{
    ksedRegen();
    ksedRegenAll();
    EXPECT_EQ(ksHost().services, nullptr);
}

TEST_F(HostInterfaces, AreWhatTheHostHandedOver)
{
    EXPECT_EQ(getSysvarManagerInterface(), &sysvars);
    EXPECT_EQ(getIOManagerInterface(), &io);
    EXPECT_EQ(getServicesManagerInterface(), &services);
    EXPECT_EQ(ksDocManagerPtr(), &documents);
}

TEST_F(HostInterfaces, GiveTheUndoHistoryOnlyWhileADocumentIsCurrent)
{
    EXPECT_EQ(ksUndoRedoHistory(), nullptr);
    documents.current = &document;
    EXPECT_EQ(ksUndoRedoHistory(), &history);
}

TEST_F(HostInterfaces, RefreshTheViewOnRegeneration)
{
    ksedRegen();
    EXPECT_EQ(services.refreshes, 1);
    ksedRegenAll();
    EXPECT_EQ(services.refreshes, 2);
}

TEST_F(HostInterfaces, OpenTheHelpAtATopic)
{
    LocalSearch::CommandRefHelp(704);
    LocalSearch::CommandRefHelp(706);
    EXPECT_EQ(services.topics, (std::vector<int>{704, 706}));
    ksSetHost({});
    LocalSearch::CommandRefHelp(704);
    EXPECT_EQ(services.topics.size(), 2u);
}

TEST_F(HostInterfaces, TellWhetherTooltipsAreWanted)
{
    EXPECT_EQ(CSECommonUtil::GetToolTipsSysVar(), 1);
    sysvars.tooltips = 0;
    EXPECT_EQ(CSECommonUtil::GetToolTipsSysVar(), 0);
    sysvars.tooltips = 1;
    EXPECT_EQ(CSECommonUtil::GetToolTipsSysVar(), 1);
    ksSetHost({});
    EXPECT_EQ(CSECommonUtil::GetToolTipsSysVar(), 1);
}

TEST(Selection, IsAnErrorWhereNoHostCanAsk)
{
    KestSelectionSet selection;
    selection.entities.resize(1);
    EXPECT_EQ(KestSSGet({}, selection), kest::kError);
    EXPECT_TRUE(selection.entities.empty());
}

TEST_F(HostInterfaces, HandTheRequestForASelectionToTheHost)
{
    KestHost host = ksHost();
    host.selectEntities = [](const KestSelectionRequest& asked, KestSelectionSet& chosen) {
        chosen.entities.resize(size_t(asked.prompt.size()));
        return kest::kNormal;
    };
    ksSetHost(host);
    KestSelectionRequest request;
    request.prompt = QStringLiteral("Pick");
    KestSelectionSet selection;
    selection.entities.resize(9);
    EXPECT_EQ(KestSSGet(request, selection), kest::kNormal);
    EXPECT_EQ(selection.entities.size(), 4u);
}

TEST(SharedGlobals, RememberThePropertyUpdateGuard)
{
    EXPECT_FALSE(KestSharedGlobals::IsUnderPropertyUpdate());
    KestSharedGlobals::SetUnderPropertyUpdate(true);
    EXPECT_TRUE(KestSharedGlobals::IsUnderPropertyUpdate());
    KestSharedGlobals::SetUnderPropertyUpdate(false);
    EXPECT_FALSE(KestSharedGlobals::IsUnderPropertyUpdate());
}

TEST(Preferences, StartWithTheHostsDefaults)
{
    EXPECT_EQ(&CKestPreferenceManager::instance(), &CKestPreferenceManager::instance());
    EXPECT_FALSE(CKestPreferenceManager::instance().CombineLayerPropPreference);
    EXPECT_TRUE(CKestPreferenceManager::s_Layer_FilterViolationPrompt);
    EXPECT_FALSE(CKestPreferenceManager::s_bApplyLayerFiltertoLayerToolbar);
    EXPECT_FALSE(CKestPreferenceManager::s_bNotifyPresentLayer);
    EXPECT_EQ(CKestPreferenceManager::instance().m_iDontListinXref, 0);
    EXPECT_EQ(CKestPreferenceManager::instance().m_iOffNotfoundLayer, 0);
}
