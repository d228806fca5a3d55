#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/support/HostFixture.h"
#include "sdk/KestHost.h"

namespace {
/// Writes down what it is told, as "call name".
class Diary : public KsApDocManagerReactor
{
public:
    explicit Diary(KsApDocManager& documents)
        : m_documents(documents)
    {
        m_documents.addReactor(this);
    }
    ~Diary() override { m_documents.removeReactor(this); }

    void documentCreateStarted(KsApDocument* d) override { note("createStarted", d->fileName()); }
    void documentCreated(KsApDocument* d) override { note("created", d->fileName()); }
    void documentToBeCurrent(KsApDocument* d) override { note("toBeCurrent", d->fileName()); }
    void documentBecameCurrent(KsApDocument* d) override { note("becameCurrent", d->fileName()); }
    void docInstanceToBeDeactivated(KsApDocument* d) override
    {
        note("deactivated", d->fileName());
    }
    void documentToBeDestroyed(KsApDocument* d) override { note("toBeDestroyed", d->fileName()); }
    void documentDestroyed(const QString& name) override { note("destroyed", name); }

    std::vector<std::string> lines;

private:
    void note(const char* call, const QString& name)
    {
        const KsApDocument* current = m_documents.curDocument();
        lines.push_back(std::string(call) + ' ' + name.toStdString() + " of "
                        + std::to_string(m_documents.documentCount()) + " current "
                        + (current ? current->fileName().toStdString() : "none")
                        + (m_documents.isBusy() ? " busy" : ""));
    }

    KsApDocManager& m_documents;
};

using Lines = std::vector<std::string>;
} // namespace

class Documents : public HostFixture
{ };

TEST_F(Documents, TheHostIsWhatModulesSee)
{
    EXPECT_EQ(&core.documents(), ksDocManagerPtr());
    EXPECT_EQ(nullptr, ksDocManagerPtr()->curDocument());
}

TEST_F(Documents, AFirstDrawingIsAnnouncedCreatedAndMadeCurrentInOrder)
{
    Diary diary(core.documents());
    core.files().createNew();
    EXPECT_EQ((Lines{"createStarted Drawing1 of 1 current none",
                     "created Drawing1 of 1 current none", "toBeCurrent Drawing1 of 1 current none",
                     "becameCurrent Drawing1 of 1 current Drawing1"}),
              diary.lines);
}

TEST_F(Documents, ClosingTellsBeforeAndAfterAndTheNextDrawingBecomesCurrent)
{
    core.files().createNew();
    HostDocument& second = core.files().createNew();
    Diary diary(core.documents());
    core.documents().close(second);
    EXPECT_EQ(
        (Lines{"deactivated Drawing2 of 2 current Drawing2",
               "toBeDestroyed Drawing2 of 2 current Drawing2",
               "destroyed Drawing2 of 1 current none", "toBeCurrent Drawing1 of 1 current none",
               "becameCurrent Drawing1 of 1 current Drawing1"}),
        diary.lines);
}

TEST_F(Documents, ClosingADrawingThatIsNotCurrentLeavesTheCurrentOne)
{
    HostDocument& first = core.files().createNew();
    HostDocument& second = core.files().createNew();
    core.documents().close(first);
    EXPECT_EQ(&second, core.documents().curDocument());
    EXPECT_EQ(1, core.documents().documentCount());
}

TEST_F(Documents, AfterTheLastOneThereIsNoCurrentDrawing)
{
    core.documents().close(core.files().createNew());
    EXPECT_EQ(nullptr, core.documents().curDocument());
    EXPECT_EQ(0, core.documents().documentCount());
}

TEST_F(Documents, MakingTheCurrentDrawingCurrentTellsNobody)
{
    HostDocument& only = core.files().createNew();
    Diary diary(core.documents());
    core.documents().setCurrent(only);
    EXPECT_TRUE(diary.lines.empty());
}

TEST_F(Documents, AReactorMayLeaveWhileItIsTold)
{
    struct Leaver : KsApDocManagerReactor
    {
        explicit Leaver(KsApDocManager& m)
            : manager(m)
        { }
        void documentCreated(KsApDocument*) override
        {
            ++told;
            manager.removeReactor(this);
        }
        KsApDocManager& manager;
        int told = 0;
    };
    Leaver leaver(core.documents());
    core.documents().addReactor(&leaver);
    Diary diary(core.documents());
    core.files().createNew();
    core.files().createNew();
    EXPECT_EQ(1, leaver.told);
    EXPECT_EQ(8u, diary.lines.size());
}

TEST_F(Documents, ShuttingDownClosesThemWhileTheHostIsBusy)
{
    core.files().createNew();
    Diary diary(core.documents());
    core.shutDown();
    ASSERT_EQ(3u, diary.lines.size());
    EXPECT_EQ("toBeDestroyed Drawing1 of 1 current Drawing1 busy", diary.lines[1]);
}

TEST_F(Documents, MarksBelongToOneDocument)
{
    HostDocument& first = core.files().createNew();
    HostDocument& second = core.files().createNew();
    first.setMark(QStringLiteral("filters checked"));
    EXPECT_TRUE(first.hasMark(QStringLiteral("filters checked")));
    EXPECT_FALSE(second.hasMark(QStringLiteral("filters checked")));
}

TEST_F(Documents, ADrawingIsModifiedWhileItDiffersFromItsFile)
{
    HostDocument& document = open(TestDrawing().add({.name = "Wall"}));
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ("", run("CLAYER Wall"));
    EXPECT_TRUE(document.isModified());
    EXPECT_EQ("", run("U"));
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ("", run("REDO"));
    EXPECT_TRUE(document.isModified());
    EXPECT_EQ("", run("SAVE"));
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ("", run("U"));
    EXPECT_TRUE(document.isModified());
}

TEST_F(Documents, ANewDrawingIsSoundAndHasLayerZeroAndASheet)
{
    const OdDbDatabase& drawing = *core.files().createNew().database();
    EXPECT_EQ(QStringList(), drawing.audit());
    EXPECT_EQ(1, drawing.layerTable().count());
    EXPECT_EQ(2u, drawing.layouts().size());
    EXPECT_FALSE(drawing.getLayerZeroId().isNull());
}

TEST_F(Documents, OpeningTakesThePlaceOfAnUntouchedNewDrawing)
{
    core.files().createNew();
    HostDocument& opened = open(TestDrawing());
    EXPECT_EQ(1, core.documents().documentCount());
    EXPECT_EQ(&opened, core.documents().curDocument());
}

TEST_F(Documents, OpeningLeavesANewDrawingThatWasEdited)
{
    core.files().createNew();
    EXPECT_EQ("", run("LWDISPLAY 1"));
    open(TestDrawing());
    EXPECT_EQ(2, core.documents().documentCount());
}

TEST_F(Documents, AFileIsOpenOnce)
{
    HostDocument& first = open(TestDrawing());
    core.files().createNew();
    HostDocument& again = core.files().open(path("./plan.dxf"));
    EXPECT_EQ(&first, &again);
    EXPECT_EQ(&first, core.documents().curDocument());
    EXPECT_EQ(2, core.documents().documentCount());
}

TEST_F(Documents, AnOpenThatFailsLeavesEverythingAsItWas)
{
    HostDocument& document = open(TestDrawing());
    QFile broken(path("broken.dxf"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("  0\nSECTION\n  2\nHEADER\n");
    broken.close();
    Diary diary(core.documents());
    EXPECT_THROW(core.files().open(broken.fileName()), OdError);
    EXPECT_THROW(core.files().open(path("absent.dxf")), OdError);
    EXPECT_TRUE(diary.lines.empty());
    EXPECT_EQ(&document, core.documents().curDocument());
    EXPECT_FALSE(core.documents().isBusy());
}

TEST_F(Documents, TheApplicationContextIsOutsideOfTheRunningCommand)
{
    core.commandState().push(QStringLiteral("LAYER"));
    int during = -1;
    core.documents().executeInApplicationContext(
        [&] { EXPECT_EQ(5100, core.sysvars().getInt(QStringLiteral("CMDACTIVE"), during)); });
    EXPECT_EQ(0, during);
    EXPECT_EQ(QStringList{QStringLiteral("LAYER")}, core.commandState().names());
    EXPECT_THROW(core.documents().executeInApplicationContext([] { throw OdError_InvalidIndex(); }),
                 OdError);
    EXPECT_EQ(QStringList{QStringLiteral("LAYER")}, core.commandState().names());
    core.commandState().pop();
}
