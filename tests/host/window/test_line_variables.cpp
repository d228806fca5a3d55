#include "host/canvas/CCanvas.h"
#include "host/canvas/CanvasContents.h"
#include "host/support/WindowFixture.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/IKestSysvarManager.h"
#include "sdk/KestStatus.h"

#include <QTest>

/// The user's variables about lines reach every drawing that is shown, and modules have the views
/// painted again without anything being read.
class TestLineVariables : public WindowFixture
{
    Q_OBJECT

    const CanvasContents& contents(int tab)
    {
        return window->drawings().views().at(tab)->canvas().contents();
    }

private slots:
    void commandsReachAllDrawings()
    {
        open(TestDrawing(), QStringLiteral("one.dxf"));
        open(TestDrawing(), QStringLiteral("two.dxf"));
        QCOMPARE(contents(0).lockedFade(), 50);
        QCOMPARE(contents(0).defaultWeight(), 25);
        typeLine("LAYLOCKFADECTL -20");
        typeLine("LWDEFAULT 50");
        for (const int tab : {0, 1}) {
            QCOMPARE(contents(tab).lockedFade(), -20);
            QCOMPARE(contents(tab).defaultWeight(), 50);
        }
    }

    void modulesReachThemByPaintingAgain()
    {
        open(TestDrawing());
        window->drawings().currentView()->canvas().completeNow();
        const int builds = contents(0).geometryBuilds();
        QCOMPARE(getSysvarManagerInterface()->setInt(QStringLiteral("LAYLOCKFADECTL"), 75),
                 kest::kNormal);
        ksedRegenAll();
        QCOMPARE(contents(0).lockedFade(), 75);
        ksedRegen();
        QVERIFY(!contents(0).isReading());
        QCOMPARE(contents(0).geometryBuilds(), builds);
    }
};

QTEST_MAIN(TestLineVariables)
#include "test_line_variables.moc"
