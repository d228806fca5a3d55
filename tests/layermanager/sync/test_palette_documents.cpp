#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/support/WindowFixture.h"
#include "host/window/WindowActions.h"
#include "host/window/WindowSession.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/views/CDrawingTabs.h"
#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/module/LayerModuleState.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "sdk/KestSharedGlobals.h"
#include "toolkit/CXTPDockingPaneManager.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

namespace {
constexpr int kLayerPane = 1000;
} // namespace

/// The palette in the program's window, over drawings that come, change and go.
class TestPaletteDocuments : public WindowFixture
{
    Q_OBJECT

private slots:
    void followsTheDrawingThatIsSwitchedTo();
    void bindsNothingAnewForTheDrawingItShows();
    void closesWithTheLastDrawingAndComesBackWithTheNext();
    void comesBackPinnedAfterItWasHiddenToTheSide();
    void staysClosedWhereTheUserClosedIt();
    void staysOpenWhileOtherDrawingsAre();
    void unchecksInvertFilterWithEveryDrawing();
    void guardsTheHostsPanelsWhileItBinds();
    void showsWhatTheLayerCommandDoes();
    void showsWhatAScriptDoes();
    void letsLettersReachTheGrid();

private:
    void openPlans()
    {
        m_one = TestDrawing()
                    .add({.name = "Wall"})
                    .add({.name = "Door"})
                    .writeTo(folder->path(), QStringLiteral("one.dxf"));
        m_two =
            TestDrawing().add({.name = "Roof"}).writeTo(folder->path(), QStringLiteral("two.dxf"));
        window->resize(1500, 900);
        WindowSession(*core, *window).start({m_one, m_two});
        settle();
    }
    CLayerPaneView& view() const { return *LayerModuleState::s_pLayerPaneView; }
    CLayerListCtrl& grid() const { return *view().grid(); }
    void showDrawing(const QString& file)
    {
        core->documents().setCurrent(*core->documents().findByFile(file));
        settle();
    }
    QString rows() const
    {
        QStringList names;
        for (int row = 0; row < grid().model()->rowCount(); ++row)
            names << grid().model()->index(row, 1).data().toString();
        return names.join(QLatin1Char(' '));
    }
    QString status() const
    {
        return view().findChild<QLabel*>(QStringLiteral("statusLine"))->text();
    }
    bool isOpen() const { return !window->panes().IsPaneClosed(kLayerPane); }
    /// Lets the timer that follows a burst of changes run out.
    void fireRefresh()
    {
        settle();
        auto* timer = grid().findChild<QTimer*>(QStringLiteral("timer_100"));
        QVERIFY(timer->isActive());
        timer->stop();
        QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
        settle();
    }

    QString m_one;
    QString m_two;
};

void TestPaletteDocuments::followsTheDrawingThatIsSwitchedTo()
{
    openPlans();
    QCOMPARE(rows(), QStringLiteral("0 Roof"));
    for (int round = 0; round < 2; ++round) {
        showDrawing(m_one);
        QCOMPARE(rows(), QStringLiteral("0 Door Wall"));
        QCOMPARE(view().database(), current()->database());
        QCOMPARE(status(), QStringLiteral(" All : 3 layers displayed of 3 total layers"));
        showDrawing(m_two);
        QCOMPARE(rows(), QStringLiteral("0 Roof"));
        QCOMPARE(grid().database(), current()->database());
    }
    // What happens to the drawing in the background does not show.
    core->documents().findByFile(m_one)->database()->layerTable().add(QStringLiteral("Hidden"));
    QCOMPARE(rows(), QStringLiteral("0 Roof"));
    action(WindowAction::NextDrawing).trigger();
    settle();
    QCOMPARE(rows(), QStringLiteral("0 Door Hidden Wall"));
}

void TestPaletteDocuments::bindsNothingAnewForTheDrawingItShows()
{
    openPlans();
    QSignalSpy listed(grid().model(), &QAbstractItemModel::modelReset);
    QSignalSpy tree(view().tree()->model(), &QAbstractItemModel::modelReset);
    showDrawing(m_two);
    view().BindToCurrentDatabase();
    QVERIFY(listed.isEmpty() && tree.isEmpty());
    showDrawing(m_one);
    QCOMPARE(listed.isEmpty(), false);
}

void TestPaletteDocuments::closesWithTheLastDrawingAndComesBackWithTheNext()
{
    openPlans();
    window->runCommand(QStringLiteral("CLOSE"));
    settle();
    QVERIFY(isOpen());
    QCOMPARE(rows(), QStringLiteral("0 Door Wall"));
    window->runCommand(QStringLiteral("CLOSE"));
    settle();
    QVERIFY(!isOpen());
    QVERIFY(!view().database());
    QCOMPARE(variable("LAYERMANAGERSTATE"), QStringLiteral("1"));
    window->runCommand(QStringLiteral("NEW"));
    settle();
    QVERIFY(isOpen());
    QCOMPARE(rows(), QStringLiteral("0"));
    QCOMPARE(window->panes().FindPane(kLayerPane)->GetPaneState(), xtpPaneDocked);
}

void TestPaletteDocuments::comesBackPinnedAfterItWasHiddenToTheSide()
{
    openPlans();
    showDrawing(m_one);
    CXTPDockingPane* pane = window->panes().FindPane(kLayerPane);
    window->panes().ToggleAutoHide(pane);
    settle();
    QCOMPARE(pane->GetPaneState(), xtpPaneHidden);
    window->runCommand(QStringLiteral("CLOSE"));
    window->runCommand(QStringLiteral("CLOSE"));
    settle();
    QVERIFY(!isOpen());
    open(TestDrawing().add({.name = "Next"}), QStringLiteral("next.dxf"));
    QVERIFY(isOpen());
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
    QCOMPARE(rows(), QStringLiteral("0 Next"));
}

void TestPaletteDocuments::staysClosedWhereTheUserClosedIt()
{
    openPlans();
    window->runCommand(QStringLiteral("LAYERCLOSE"));
    settle();
    QVERIFY(!isOpen());
    QCOMPARE(variable("LAYERMANAGERSTATE"), QStringLiteral("0"));
    window->runCommand(QStringLiteral("CLOSE"));
    window->runCommand(QStringLiteral("CLOSE"));
    window->runCommand(QStringLiteral("NEW"));
    settle();
    QVERIFY(!isOpen());
    // It follows unseen, and shows the right drawing when it is opened.
    window->runCommand(QStringLiteral("LAYER"));
    settle();
    QVERIFY(isOpen());
    QCOMPARE(rows(), QStringLiteral("0"));
}

void TestPaletteDocuments::staysOpenWhileOtherDrawingsAre()
{
    openPlans();
    // One in the background goes.
    core->documents().close(*core->documents().findByFile(m_one));
    settle();
    QVERIFY(isOpen());
    QCOMPARE(rows(), QStringLiteral("0 Roof"));
}

void TestPaletteDocuments::unchecksInvertFilterWithEveryDrawing()
{
    openPlans();
    QCheckBox* box = view().invertBox();
    QTest::mouseClick(box, Qt::LeftButton, {}, {10, box->height() / 2});
    QVERIFY(box->isChecked() && view().isInverted());
    QCOMPARE(rows(), QString());
    showDrawing(m_one);
    QVERIFY(!box->isChecked() && !view().isInverted());
    QCOMPARE(rows(), QStringLiteral("0 Door Wall"));
}

void TestPaletteDocuments::guardsTheHostsPanelsWhileItBinds()
{
    openPlans();
    bool guarded = false;
    connect(grid().model(), &QAbstractItemModel::modelReset, this,
            [&] { guarded = KestSharedGlobals::IsUnderPropertyUpdate(); });
    showDrawing(m_one);
    QVERIFY(guarded);
    QVERIFY(!KestSharedGlobals::IsUnderPropertyUpdate());
}

void TestPaletteDocuments::showsWhatTheLayerCommandDoes()
{
    openPlans();
    showDrawing(m_one);
    typeLine("-LAYER New Stairs Freeze Door Color 1 Wall \"\"");
    QCOMPARE(grid().displayedCount(), 4);
    fireRefresh();
    const auto cell = [this](const char* layer, LayerColumn column) {
        const int row = grid().findRow(view().database()->layerTable().getAt(QLatin1String(layer)));
        return grid().model()->index(row, int(column)).data(Qt::AccessibleTextRole).toString();
    };
    QVERIFY(cell("Door", LayerColumn::Freeze).contains(QStringLiteral("rozen")));
    QVERIFY(cell("Wall", LayerColumn::Color).contains(QStringLiteral("red")));
    QCOMPARE(status(), QStringLiteral(" All : 4 layers displayed of 4 total layers"));
    typeLine("U");
    QCOMPARE(rows(), QStringLiteral("0 Door Wall"));
    QCOMPARE(status(), QStringLiteral(" All : 3 layers displayed of 3 total layers"));
    typeLine("REDO");
    fireRefresh();
    QCOMPARE(rows(), QStringLiteral("0 Door Stairs Wall"));
    typeLine("CLAYER Stairs");
    const auto* line = view().findChild<QLineEdit*>(QStringLiteral("currentLayer"));
    QCOMPARE(line->text(), QStringLiteral("Current Layer: Stairs"));
}

void TestPaletteDocuments::showsWhatAScriptDoes()
{
    openPlans();
    showDrawing(m_one);
    for (const QString& text :
         {QStringLiteral("-LAYER New S1,S2,S3 \"\""), QStringLiteral("-LAYER DELete Door \"\""),
          QStringLiteral("-LAYER Rename Wall Brick \"\"")})
        core->queue().append(text);
    window->runCommand(QStringLiteral("REGEN")); // what was queued follows
    settle();
    QCOMPARE(rows(), QStringLiteral("0 Brick S1 S2 S3"));
    fireRefresh();
    QCOMPARE(status(), QStringLiteral(" All : 5 layers displayed of 5 total layers"));
    for (int i = 0; i < 3; ++i)
        typeLine("U");
    fireRefresh();
    QCOMPARE(rows(), QStringLiteral("0 Door Wall"));
}

void TestPaletteDocuments::letsLettersReachTheGrid()
{
    openPlans();
    showDrawing(m_one);
    grid().setFocus();
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("wa"));
    QCOMPARE(grid().currentIndex().siblingAtColumn(1).data().toString(), QStringLiteral("Wall"));
    QVERIFY(grid().hasFocus());
}

QTEST_MAIN(TestPaletteDocuments)
#include "test_palette_documents.moc"
