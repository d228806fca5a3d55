#include "database/store/ObjectStore.h"
#include "host/commands/selection/SelectEntities.h"
#include "host/support/HostFixture.h"
#include "sdk/KestSSGet.h"
#include "sdk/KestStatus.h"
#include "sdk/commands/OdEdCommandStack.h"
#include "support/drawings/SharedDrawings.h"

#include <functional>

namespace {
/// A module's command that selects.
class SelectingCommand : public OdEdCommand
{
public:
    SelectingCommand(int flags, std::function<void()> function)
        : m_flags(flags)
        , m_function(std::move(function))
    { }
    QString groupName() const override { return QStringLiteral("TEST"); }
    QString globalName() const override { return QStringLiteral("_PICK"); }
    QString localName() const override { return QStringLiteral("PICK"); }
    void execute(OdEdCommandContext*) override { m_function(); }
    int flags() const override { return m_flags; }
    void undefine(bool) override { }

private:
    int m_flags;
    std::function<void()> m_function;
};
} // namespace

/// Three parallel lines, a circle above them and a text, on layers Wall, Door and Locked.
class SelectionCommands : public HostFixture
{
protected:
    SelectionCommands()
    {
        open(TestDrawing()
                 .add({.name = "Wall"})
                 .add({.name = "Door"})
                 .add({.name = "Locked", .flags = 4})
                 .addEntity("LINE", "Wall", "100=AcDbLine 10=0 20=0 11=100 21=0")
                 .addEntity("LINE", "Door", "100=AcDbLine 10=0 20=10 11=100 21=10")
                 .addEntity("LINE", "Locked", "100=AcDbLine 10=0 20=20 11=100 21=20")
                 .addEntity("CIRCLE", "Wall", "100=AcDbCircle 10=50 20=50 40=10")
                 .addEntity("TEXT", "Door", "100=AcDbText 10=0 20=80 40=5 1=Hall"));
    }
    ~SelectionCommands() override { odedRegCmds()->removeGroup(QStringLiteral("TEST")); }

    OdDbDatabase& drawing() { return *core.documents().curDocument()->database(); }
    DrawingSelection& selection() { return core.documents().curDocument()->selection(); }
    /// Handles of entities: 43 to 45 the lines from below, 46 the circle, 47 the text.
    static std::string handles(const std::vector<OdDbObjectId>& entities)
    {
        QStringList texts;
        for (const OdDbObjectId id : entities)
            texts << QString::number(id.getHandle().value(), 16);
        return texts.join(QLatin1Char(' ')).toStdString();
    }
    std::string selected() { return handles(selection().entities()); }
    /// What is left of the five.
    std::string left()
    {
        std::vector<OdDbObjectId> entities;
        for (quint64 handle = 0x43; handle <= 0x47; ++handle) {
            const OdDbObjectId id = drawing().getOdDbObjectId(OdDbHandle(handle));
            if (!id.isErased())
                entities.push_back(id);
        }
        return handles(entities);
    }
    /// Answers as a person gives them, then Enter.
    void answer(std::initializer_list<const char*> texts)
    {
        frontEnd.interactive = true;
        for (const char* text : texts)
            frontEnd.answers.push_back(QString::fromUtf8(text));
        frontEnd.answers.push_back(QString());
    }
    std::string printed() { return frontEnd.printed.join(QLatin1Char('|')).toStdString(); }

    /// Runs a module's command that asks like that; the answer's status.
    int ask(KestSelectionRequest request, const char* line = "PICK", int flags = OdEd::kUsePickSet)
    {
        int status = 0;
        odedRegCmds()->removeGroup(QStringLiteral("TEST"));
        odedRegCmds()->addCommand(
            odrxCreate<SelectingCommand>(flags, [&] { status = KestSSGet(request, found); }));
        failure = run(line);
        return status;
    }
    static KestSelectionRequest common()
    {
        KestSelectionRequest request;
        request.switches.fill(true);
        return request;
    }
    static void turnOff(KestSelectionRequest& request, KestSelectionSwitch which)
    {
        request.switches[static_cast<std::size_t>(which)] = false;
    }

    KestSelectionSet found;
    std::string failure;
};

TEST_F(SelectionCommands, AScriptSelectsByWordsAndPoints)
{
    EXPECT_EQ("", run("SELECT All"));
    EXPECT_EQ("43 44 45 46 47", selected());
    EXPECT_EQ("", run("SELECT 20,0"));
    EXPECT_EQ("43", selected());
    EXPECT_EQ("", run("SELECT Window -5,-5 105,15"));
    EXPECT_EQ("43 44", selected());
    EXPECT_EQ("", run("SELECT crossing 90,5 95,25"));
    EXPECT_EQ("44 45", selected());
    EXPECT_EQ("", run("SELECT Layer Wall"));
    EXPECT_EQ("43 46", selected());
    EXPECT_EQ("", run("SELECT Last"));
    EXPECT_EQ("47", selected());
    EXPECT_EQ("", run("SELECT Previous All Remove Layer door Add 1,80 \"\""));
    EXPECT_EQ("43 45 46 47", selected());
    EXPECT_EQ("", run("SELECT 20,0 20,10 Undo"));
    EXPECT_EQ("43", selected());
    EXPECT_EQ("", run("SELECT 20,35"));
    EXPECT_EQ("", selected());
    EXPECT_EQ("", printed()); // scripts stay silent about what went well
}

TEST_F(SelectionCommands, WhatAScriptCannotMeanIsASentence)
{
    EXPECT_EQ("Objects are to be selected, and the line names none.", run("SELECT"));
    EXPECT_EQ("There is no layer \"Roof\".", run("SELECT Layer Roof"));
    EXPECT_EQ("\"Opposite corner:\" is asked, and the line holds no answer.",
              run("SELECT Window 1,1"));
    EXPECT_EQ("A point is needed; \"x\" is none.", run("SELECT Window x"));
    EXPECT_EQ(
        "A point or one of Window, Crossing, ALL, Last, LAyer, Previous, Remove, Add, Undo is "
        "needed; \"frob\" is neither.",
        run("SELECT frob"));
    EXPECT_EQ("", selected());
}

TEST_F(SelectionCommands, EraseTakesWhatWasSelectedAndUndoBringsItBack)
{
    EXPECT_EQ("", run("ERASE 20,0 50,60"));
    EXPECT_EQ("44 45 47", left());
    EXPECT_EQ("", run("U"));
    EXPECT_EQ("43 44 45 46 47", left());
    EXPECT_EQ("", selected());
    EXPECT_TRUE(drawing().audit().isEmpty());
}

TEST_F(SelectionCommands, EraseRefusesWhatIsOnALockedLayer)
{
    EXPECT_EQ("", run("ERASE All"));
    EXPECT_EQ("45", left());
    EXPECT_EQ("1 was on a locked layer.", printed());
}

TEST_F(SelectionCommands, EraseUsesWhatWasSelectedBefore)
{
    frontEnd.interactive = true;
    EXPECT_EQ("", run("SELECT Layer Door \"\""));
    frontEnd.printed.clear();
    EXPECT_EQ("", run("ERASE"));
    EXPECT_EQ("43 45 46", left());
    EXPECT_EQ("2 found|2 erased.", printed());
    EXPECT_TRUE(frontEnd.prompts.isEmpty());
}

TEST_F(SelectionCommands, APersonIsAskedUntilEnterAndToldHowMany)
{
    answer({"20,0", "20,0", "Layer Wall", "20,20", "nonsense", "Remove", "20,0"});
    EXPECT_EQ("", run("SELECT"));
    EXPECT_EQ("46 45", selected());
    EXPECT_EQ(
        "1 found|1 found (1 duplicate), 1 total|2 found (1 duplicate), 2 total|1 found, 3 total|"
        "A point or one of Window, Crossing, ALL, Last, LAyer, Previous, Remove, Add, Undo is "
        "needed; \"nonsense\" is neither.|1 found, 1 removed, 2 total",
        printed());
    EXPECT_EQ("Select objects:", frontEnd.prompts.first().toStdString());
    EXPECT_EQ("Remove objects:", frontEnd.prompts.last().toStdString());
}

TEST_F(SelectionCommands, APointWithNothingThereBeginsARectangle)
{
    answer({"-5,-5", "105,12", "110,30", "95,15"});
    EXPECT_EQ("", run("SELECT"));
    EXPECT_EQ("43 44 45", selected());
    EXPECT_EQ("Opposite corner:", frontEnd.prompts.at(1).toStdString());
}

TEST_F(SelectionCommands, CancellingLeavesNothingSelected)
{
    frontEnd.interactive = true;
    frontEnd.answers = {QStringLiteral("20,0"), std::nullopt};
    EXPECT_EQ("*Cancel*", run("ERASE"));
    EXPECT_EQ("", selected());
    EXPECT_EQ("43 44 45 46 47", left());
}

TEST_F(SelectionCommands, AModuleGetsWhatWasSelected)
{
    EXPECT_EQ(kest::kNormal, ask(common(), "PICK Window -5,-5 105,15"));
    EXPECT_EQ("43 44", handles(found.entities));
    EXPECT_EQ("", failure);
    EXPECT_EQ("", selected()); // it is the module's now
    EXPECT_EQ(kest::kNormal, ask(common(), "PICK Previous"));
    EXPECT_EQ("43 44", handles(found.entities));
}

TEST_F(SelectionCommands, AModuleIsToldThatNothingWasSelectedOrThatNobodyCanBeAsked)
{
    EXPECT_EQ(kest::kNone, ask(common(), "PICK 20,35"));
    EXPECT_EQ("", failure);
    EXPECT_EQ(kest::kNone, ask(common(), "PICK \"\""));
    EXPECT_EQ(kest::kError, ask(common()));
    EXPECT_EQ("Objects are to be selected, and the line names none.", failure);
    EXPECT_EQ(kest::kError, ask(common(), "PICK Layer Roof"));
    EXPECT_EQ("There is no layer \"Roof\".", failure);
    frontEnd.interactive = true;
    EXPECT_EQ(kest::kCancel, ask(common()));
    EXPECT_TRUE(found.entities.empty());
}

TEST_F(SelectionCommands, AModuleChoosesTypes)
{
    KestSelectionRequest request = common();
    request.filter = QStringList{QStringLiteral("CIRCLE"), QStringLiteral("text")};
    answer({"All"});
    EXPECT_EQ(kest::kNormal, ask(request));
    EXPECT_EQ("46 47", handles(found.entities));
    EXPECT_EQ("5 found|3 were of other types.", printed());
}

TEST_F(SelectionCommands, AModuleUsesTheSelectionBeforeOnlyWhereItsCommandKeepsIt)
{
    EXPECT_EQ("", run("SELECT 20,0"));
    EXPECT_EQ(kest::kError, ask(common(), "PICK", 0));
    EXPECT_EQ("", run("SELECT 20,0"));
    EXPECT_EQ(kest::kNormal, ask(common()));
    EXPECT_EQ("43", handles(found.entities));
    KestSelectionRequest request = common();
    turnOff(request, KestSelectionSwitch::PickSet);
    EXPECT_EQ("", run("SELECT 20,0"));
    EXPECT_EQ(kest::kNormal, ask(request, "PICK 20,10"));
    EXPECT_EQ("44", handles(found.entities));
}

TEST_F(SelectionCommands, AModuleMayTakeOneEntityOnlyAndLearnsHow)
{
    KestSelectionRequest request = common();
    turnOff(request, KestSelectionSwitch::Many);
    bool isByKeyword = true;
    request.outFlag = &isByKeyword;
    answer({"20,10", "20,0"});
    EXPECT_EQ(kest::kNormal, ask(request));
    EXPECT_EQ("44", handles(found.entities));
    EXPECT_FALSE(isByKeyword);
    frontEnd.answers.clear();
    answer({"Last"});
    EXPECT_EQ(kest::kNormal, ask(request));
    EXPECT_EQ("47", handles(found.entities));
    EXPECT_TRUE(isByKeyword);
}

TEST_F(SelectionCommands, SwitchesTurnKeywordsLockedLayersCountsAndMemoryOff)
{
    KestSelectionRequest request = common();
    turnOff(request, KestSelectionSwitch::Keywords);
    EXPECT_EQ(kest::kError, ask(request, "PICK All"));

    request = common();
    turnOff(request, KestSelectionSwitch::Locked);
    turnOff(request, KestSelectionSwitch::Remember);
    EXPECT_EQ("", run("SELECT 20,0"));
    EXPECT_EQ(kest::kNormal, ask(request, "PICK All", 0));
    EXPECT_EQ("43 44 46 47", handles(found.entities));
    EXPECT_EQ(kest::kNormal, ask(common(), "PICK Previous"));
    EXPECT_EQ("43", handles(found.entities));

    request = common();
    turnOff(request, KestSelectionSwitch::Counts);
    turnOff(request, KestSelectionSwitch::Rectangles);
    frontEnd.printed.clear();
    answer({"20,35", "20,0"});
    EXPECT_EQ(kest::kNormal, ask(request));
    EXPECT_EQ("43", handles(found.entities));
    EXPECT_EQ("", printed());
}

TEST_F(SelectionCommands, AModuleMayPickAtAPointWithoutAsking)
{
    KestSelectionRequest request = common();
    request.point = QPointF(20, 10);
    EXPECT_EQ(kest::kNormal, ask(request));
    EXPECT_EQ("44", handles(found.entities));
    request.point = QPointF(20, 35);
    EXPECT_EQ(kest::kNone, ask(request));
    request.point = QPointF(20, 10);
    request.filter = QStringList{QStringLiteral("CIRCLE")};
    EXPECT_EQ(kest::kNone, ask(request));
}

TEST_F(SelectionCommands, ModulesHaveNothingToSelectFromWithoutADrawing)
{
    run("CLOSE No");
    KestSelectionSet none;
    EXPECT_EQ(kest::kError, KestSSGet(common(), none));
}

TEST_F(SelectionCommands, ErasedEntitiesDropOutOfTheSelection)
{
    EXPECT_EQ("", run("SELECT All"));
    drawing().startUndoRecord();
    drawing().eraseTree(drawing().getOdDbObjectId(OdDbHandle(0x44)));
    drawing().endUndoRecord();
    EXPECT_EQ("43 45 46 47", selected());
    EXPECT_TRUE(drawing().undo());
    EXPECT_EQ("43 45 46 47", selected());
}

TEST_F(SelectionCommands, AScriptErasesPartOfARealDrawingAndBringsItBack)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    core.files().open(
        SharedDrawings::file(QStringLiteral("egghunters+dxf-viewer-examples__dxf_4.dxf")));
    EXPECT_EQ("", run("MODEL"));
    EXPECT_EQ("", run("SELECT All"));
    const std::size_t all = selection().size();
    const Box2 box = core.documents().curDocument()->picks().contents().extents();
    const Vec2 middle = box.centre();
    const auto erase = QStringLiteral("ERASE Crossing %1,%2 %3,%4")
                           .arg(box.minX, 0, 'g', 17)
                           .arg(box.minY, 0, 'g', 17)
                           .arg(middle.x, 0, 'g', 17)
                           .arg(middle.y, 0, 'g', 17);
    EXPECT_EQ("", run(erase.toUtf8().constData()));
    EXPECT_EQ("", run("SELECT All"));
    EXPECT_LT(selection().size(), all);
    EXPECT_GT(selection().size(), 0u);
    EXPECT_EQ("", run("U"));
    EXPECT_EQ("", run("SELECT All"));
    EXPECT_EQ(all, selection().size());
    EXPECT_TRUE(drawing().audit().isEmpty());
}

TEST_F(SelectionCommands, AnotherSpaceEndsTheSelection)
{
    EXPECT_EQ("", run("SELECT All"));
    EXPECT_EQ("", run("LAYOUT Set Layout1"));
    EXPECT_EQ("", selected());
}
