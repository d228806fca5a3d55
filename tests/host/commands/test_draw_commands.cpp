#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/values/GroupCursor.h"
#include "host/support/HostFixture.h"
#include "sdk/IKestIOManager.h"
#include "sdk/KestStatus.h"

/// Lines, circles and texts from the command line.
class DrawCommands : public HostFixture
{
protected:
    DrawCommands() { open(TestDrawing().add({.name = "Wall"}).addViewport(50, 50)); }

    OdDbDatabase& drawing() { return *core.documents().curDocument()->database(); }
    /// "LINE Wall 10=0 20=0 ..." of every entity there is in a space.
    std::string entities(OdDbObjectId space)
    {
        const ObjectStore& store = drawing().store();
        const auto cursor = drawing().makeCursor();
        std::string all;
        for (quint32 slot = 0; slot < store.size(); ++slot) {
            const bool isThere = store.has(slot, ObjectStore::kEntity)
                && !store.has(slot, ObjectStore::kErased) && store.owner(slot) == space.slot()
                && store.typeName(slot) != "VIEWPORT";
            if (!isThere)
                continue;
            all += (all.empty() ? "" : "; ") + store.typeName(slot).toStdString();
            cursor->open(slot);
            while (cursor->next()) {
                const int code = cursor->code();
                if (code == 8)
                    all += ' ' + cursor->text().toStdString();
                else if (code == 1 || (code >= 10 && code < 60 && code != 30 && code != 31))
                    all += ' ' + std::to_string(code) + '=' + cursor->text().toStdString();
            }
        }
        return all;
    }
    std::string model() { return entities(drawing().getModelSpaceId()); }
};

TEST_F(DrawCommands, LineDrawsFromPointToPointOnTheCurrentLayer)
{
    EXPECT_EQ("", run("CLAYER Wall"));
    EXPECT_EQ("", run("LINE 0,0 10,0 @0,5"));
    EXPECT_EQ("LINE Wall 10=0 20=0 11=10 21=0; LINE Wall 10=10 20=0 11=10 21=5", model());
    EXPECT_TRUE(drawing().audit().isEmpty());
}

TEST_F(DrawCommands, LineClosesAndTakesBack)
{
    EXPECT_EQ("", run("LINE 0,0 10,0 99,99 Undo 10,5 Close"));
    EXPECT_EQ("LINE 0 10=0 20=0 11=10 21=0; LINE 0 10=10 20=0 11=10 21=5; "
              "LINE 0 10=10 20=5 11=0 21=0",
              model());
    EXPECT_EQ("", run("U"));
    EXPECT_EQ("", model()); // one command, one step
    EXPECT_EQ("A point is needed, such as 10,20 or @5,0 or @5<90; \"Close\" is none.",
              run("LINE 0,0 10,0 Close"));
}

TEST_F(DrawCommands, CircleTakesARadiusADiameterOrPoints)
{
    EXPECT_EQ("", run("CIRCLE 5,5 2.5"));
    EXPECT_EQ("", run("CIRCLE 5,5 D 3"));
    EXPECT_EQ("", run("CIRCLE 5,5 8,9"));
    EXPECT_EQ("", run("CIRCLE 2P 0,0 10,0"));
    EXPECT_EQ("", run("CIRCLE 3P 0,0 10,0 10,10"));
    EXPECT_EQ("CIRCLE 0 10=5 20=5 40=2.5; CIRCLE 0 10=5 20=5 40=1.5; CIRCLE 0 10=5 20=5 40=5; "
              "CIRCLE 0 10=5 20=0 40=5; CIRCLE 0 10=5 20=5 40=7.0710678118654755",
              model());
}

TEST_F(DrawCommands, ARadiusToAPointWithThreeDigitsBehindTheCommaIsNoNumber)
{
    EXPECT_EQ("", run("CIRCLE 10,100 10,200"));
    EXPECT_EQ("CIRCLE 0 10=10 20=100 40=100", model());
}

TEST_F(DrawCommands, CirclesThatCannotBeAreRefused)
{
    EXPECT_EQ("A length above 0 is needed; \"0\" is none.", run("CIRCLE 5,5 0"));
    EXPECT_EQ("No circle runs through three points in one line.", run("CIRCLE 3P 0,0 1,1 2,2"));
    EXPECT_EQ("The ends of a diameter are two different points.", run("CIRCLE 2P 1,1 1,1"));
    EXPECT_EQ("", model());
}

TEST_F(DrawCommands, TextHasAPlaceAHeightAndAnAngle)
{
    EXPECT_EQ("", run("TEXT 1,2 3.5 45 \"Living room; south\""));
    EXPECT_EQ("", run("TEXT 1,2 \"\" \"\" Hall"));
    EXPECT_EQ("TEXT 0 10=1 20=2 40=3.5 1=Living room; south 50=45; TEXT 0 10=1 20=2 40=2.5 1=Hall",
              model());
}

TEST_F(DrawCommands, APersonIsAskedAgainAfterAnAnswerThatIsNone)
{
    frontEnd.interactive = true;
    frontEnd.answers = {QStringLiteral("here"), QStringLiteral("0,0"), QStringLiteral("@5<0"),
                        QString()};
    EXPECT_EQ("", run("LINE"));
    EXPECT_EQ("LINE 0 10=0 20=0 11=5 21=0", model());
    EXPECT_EQ("A point is needed, such as 10,20 or @5,0 or @5<90; \"here\" is none.",
              frontEnd.printed.join(QLatin1Char('|')).toStdString());
}

TEST_F(DrawCommands, WhatIsDrawnStaysWhenLineIsCancelled)
{
    frontEnd.interactive = true;
    frontEnd.answers = {QStringLiteral("0,0"), QStringLiteral("5,0"), std::nullopt};
    EXPECT_EQ("*Cancel*", run("LINE"));
    EXPECT_EQ("LINE 0 10=0 20=0 11=5 21=0", model());
}

TEST_F(DrawCommands, TheSheetOrTheViewportWorkedInGetsThem)
{
    EXPECT_EQ("", run("LAYOUT Set Layout1"));
    EXPECT_EQ("", run("PSPACE"));
    EXPECT_EQ("", run("LINE 0,0 1,1"));
    EXPECT_EQ("", model());
    EXPECT_EQ("LINE 0 10=0 20=0 11=1 21=1", entities(drawing().getPaperSpaceId()));
    EXPECT_EQ("", run("MSPACE"));
    EXPECT_EQ("", run("CIRCLE 0,0 1"));
    EXPECT_EQ("CIRCLE 0 10=0 20=0 40=1", model());
}

TEST_F(DrawCommands, DrawnEntitiesAreFoundAtOnce)
{
    EXPECT_EQ("", run("LINE 0,0 10,0"));
    EXPECT_EQ("", run("ERASE 5,0"));
    EXPECT_EQ("", model());
    EXPECT_EQ("", run("LINE 0,0 10,0"));
    EXPECT_EQ("", run("CIRCLE 50,50 5"));
    EXPECT_EQ("", run("ERASE Last"));
    EXPECT_EQ("LINE 0 10=0 20=0 11=10 21=0", model());
}

TEST_F(DrawCommands, ModulesAskForPointsToo)
{
    KestPoint point;
    const KestPoint from{10, 10, 0};
    core.documents().sendStringToExecute(QStringLiteral("@5,5"));
    EXPECT_EQ(kest::kNormal, getIOManagerInterface()->getPoint(QStringLiteral("p"), point, &from));
    EXPECT_EQ(15, point.x);
    EXPECT_EQ(15, point.y);
    core.documents().sendStringToExecute(QStringLiteral("there"));
    EXPECT_EQ(kest::kError, getIOManagerInterface()->getPoint(QStringLiteral("p"), point));
    frontEnd.interactive = true;
    frontEnd.answers = {QStringLiteral("there"), QStringLiteral("1,2,3")};
    EXPECT_EQ(kest::kNormal, getIOManagerInterface()->getPoint(QStringLiteral("p"), point));
    EXPECT_EQ(3, point.z);
    frontEnd.answers = {QString()};
    EXPECT_EQ(kest::kNone, getIOManagerInterface()->getPoint(QStringLiteral("p"), point));
    EXPECT_EQ(kest::kCancel, getIOManagerInterface()->getPoint(QStringLiteral("p"), point));
}

TEST_F(DrawCommands, NewEntitiesHaveTheColorLinetypeAndLineweightThatTheDrawingSays)
{
    EXPECT_EQ("", run("LINE 0,0 1,1"));
    for (const char* line :
         {"CECOLOR red", "CELTYPE ByBlock", "CELWEIGHT 35", "CELTSCALE 2.5", "LINE 0,0 2,2"})
        EXPECT_EQ("", run(line)) << line;
    std::string said;
    const ObjectStore& store = drawing().store();
    const auto cursor = drawing().makeCursor();
    for (quint32 slot = 0; slot < store.size(); ++slot) {
        if (store.typeName(slot) != "LINE")
            continue;
        said += "LINE";
        cursor->open(slot);
        while (cursor->next()) {
            const int code = cursor->code();
            if (code == 6 || code == 48 || code == 62 || code == 370)
                said += ' ' + std::to_string(code) + '=' + cursor->text().toStdString();
        }
        said += ';';
    }
    EXPECT_EQ("LINE;LINE 6=ByBlock 62=1 370=35 48=2.5;", said);
    EXPECT_TRUE(drawing().audit().isEmpty());
}

TEST_F(DrawCommands, TextIsAsHighAsTextsizeSaysUnlessAskedOtherwise)
{
    EXPECT_EQ("", run("TEXTSIZE 7"));
    EXPECT_EQ("", run("TEXT 0,0 \"\" 0 Hall"));
    EXPECT_EQ("", run("TEXT 0,9 3 0 Roof"));
    const std::string drawn = model();
    EXPECT_NE(std::string::npos, drawn.find(" 40=7 ")) << drawn;
    EXPECT_NE(std::string::npos, drawn.find(" 40=3 ")) << drawn;
}
