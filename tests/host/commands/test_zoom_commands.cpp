#include "host/application/HostView.h"
#include "host/support/HostFixture.h"

namespace {
/// A view 100 high about (50, 50) that notes what is shown.
class NotedView : public HostView
{
public:
    double pickReach() const override { return 1; }
    double height() const override { return 100; }
    Vec2 centre() const override { return {50, 50}; }
    void showBox(const Box2& box) override
    {
        note("box %1,%2 %3,%4", {box.minX, box.minY, box.maxX, box.maxY});
    }
    void showAll(double factor) override { note("all %1", {factor}); }
    void centreOn(Vec2 centre, double height) override
    {
        note("centre %1,%2 height %3", {centre.x, centre.y, height});
    }
    bool showPrevious() override
    {
        note("previous", {});
        return hasPrevious;
    }
    void setDragging(bool on) override { note(on ? "drag" : "stop", {}); }

    bool hasPrevious = true;
    std::string shown;

private:
    void note(const char* pattern, std::initializer_list<double> values)
    {
        QString text = QString::fromLatin1(pattern);
        for (const double value : values)
            text = text.arg(value);
        shown += (shown.empty() ? "" : "; ") + text.toStdString();
    }
};
} // namespace

class ZoomCommands : public HostFixture
{
protected:
    ZoomCommands()
    {
        open(TestDrawing().addLine("0").addViewport(50, 50).addViewport(150, 50));
        frontEnd.shownView = &view;
    }
    /// What a line shows, or its complaint.
    std::string shownBy(const char* line)
    {
        view.shown.clear();
        const std::string complaint = run(line);
        return complaint.empty() ? view.shown : complaint;
    }
    std::string cvport() { return core.sysvars().text(QStringLiteral("CVPORT")).toStdString(); }

    NotedView view;
};

TEST_F(ZoomCommands, ZoomShowsAWindowACentreOrAFactor)
{
    EXPECT_EQ("box 0,0 10,20", shownBy("ZOOM Window 10,0 0,20"));
    EXPECT_EQ("box 0,0 10,20", shownBy("ZOOM 0,0 10,20"));
    EXPECT_EQ("box 0,0 10,20", shownBy("zoom w 0,0 @10,20"));
    EXPECT_EQ("centre 5,6 height 20", shownBy("ZOOM Center 5,6 20"));
    EXPECT_EQ("centre 5,6 height 50", shownBy("ZOOM C 5,6 2x"));
    EXPECT_EQ("centre 5,6 height 100", shownBy("ZOOM C 5,6"));
    EXPECT_EQ("centre 50,50 height 200", shownBy("ZOOM 0.5x"));
    EXPECT_EQ("all 3", shownBy("ZOOM 3"));
    EXPECT_EQ("all 3", shownBy("ZOOM Scale 3"));
    EXPECT_EQ("previous", shownBy("ZOOM P"));
    view.hasPrevious = false;
    EXPECT_EQ("There is no view before this one.", shownBy("ZOOM P"));
}

TEST_F(ZoomCommands, ZoomAllAndExtentsShowEverything)
{
    EXPECT_EQ("", run("ZOOM"));
    EXPECT_EQ("", run("ZOOM A"));
    EXPECT_EQ("", run("ZOOM Extents"));
    EXPECT_EQ(std::vector<std::string>(3, "zoom extents"), frontEnd.calls);
}

TEST_F(ZoomCommands, WhatZoomCannotDoIsASentence)
{
    EXPECT_EQ("\"2xp\" would change the scale of a viewport, which kest cannot do. Use 2 or 2x.",
              shownBy("ZOOM 2xp"));
    EXPECT_EQ("ZOOM knows All, Center, Extents, Previous, Scale, Window, factors and points; \"0\" "
              "is not known.",
              shownBy("ZOOM 0"));
    EXPECT_EQ("A factor above 0 is needed, such as 2 or 0.5x; \"-1\" is none.",
              shownBy("ZOOM S -1"));
    EXPECT_EQ("\"Opposite corner:\" is asked, and the line holds no answer.", shownBy("ZOOM 0,0"));
}

TEST_F(ZoomCommands, PanMovesByADisplacementOrFromPointToPoint)
{
    EXPECT_EQ("centre 40,50 height 100", shownBy("PAN 10,0"));
    EXPECT_EQ("centre 50,45 height 100", shownBy("PAN 10,0 10,5"));
}

TEST_F(ZoomCommands, PanDragsUntilEnter)
{
    frontEnd.interactive = true;
    frontEnd.answers = {QString(), QString()};
    EXPECT_EQ("drag; stop", shownBy("PAN"));
    frontEnd.answers = {QStringLiteral("Drag"), std::nullopt};
    view.shown.clear();
    EXPECT_EQ("*Cancel*", run("PAN"));
    EXPECT_EQ("drag; stop", view.shown);
}

TEST_F(ZoomCommands, ScriptsWithoutAViewReadTheAnswersOnly)
{
    frontEnd.shownView = nullptr;
    EXPECT_EQ("", run("ZOOM C 5,6 20"));
    EXPECT_EQ("", run("ZOOM P"));
    EXPECT_EQ("", run("PAN 1,1"));
    EXPECT_NE("", run("ZOOM frob"));
}

TEST_F(ZoomCommands, MspaceEntersAViewportAndPspaceLeavesIt)
{
    EXPECT_EQ("Viewports are worked in on a sheet; this is model space.", run("MSPACE"));
    EXPECT_EQ("", run("LAYOUT Set Layout1"));
    EXPECT_EQ("", run("PSPACE"));
    EXPECT_EQ("1", cvport());
    EXPECT_EQ("", run("MSPACE"));
    EXPECT_EQ("2", cvport());
    EXPECT_EQ("", run("MSPACE 150,50"));
    EXPECT_EQ("3", cvport());
    EXPECT_EQ("There is no viewport at 300,0.", run("MSPACE 300,0"));
    EXPECT_EQ("", run("PSPACE"));
    EXPECT_EQ("1", cvport());
}

TEST_F(ZoomCommands, MspaceNeedsAViewport)
{
    open(TestDrawing(), QStringLiteral("bare.dxf"));
    EXPECT_EQ("", run("LAYOUT Set Layout1"));
    EXPECT_EQ("The sheet has no viewport that is on and looks straight down.", run("MSPACE"));
}

TEST_F(ZoomCommands, InAViewportPointsAreThoseOfModelSpace)
{
    EXPECT_EQ("", run("LAYOUT Set Layout1"));
    EXPECT_EQ("", run("MSPACE"));
    frontEnd.shownView = nullptr;
    EXPECT_EQ("", run("SELECT 50,25")); // the middle of the line, in model space
    EXPECT_EQ(1u, core.documents().curDocument()->selection().size());
    EXPECT_EQ("", run("PSPACE"));
    EXPECT_EQ("", run("SELECT 20,30")); // the left edge of the first viewport
    EXPECT_EQ(1u, core.documents().curDocument()->selection().size());
}
