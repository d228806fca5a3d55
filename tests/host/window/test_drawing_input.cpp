#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "host/canvas/CCanvas.h"
#include "host/canvas/CanvasContents.h"
#include "host/support/WindowFixture.h"
#include "host/window/commandline/CCommandEdit.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/views/CCanvasMenu.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"
#include "io/DrawingFile.h"
#include "support/drawings/SharedDrawings.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>

/// Mouse and keyboard over a drawing in the window: selecting, erasing, drawing, viewports.
class TestDrawingInput : public WindowFixture
{
    Q_OBJECT

private:
    /// Lines at heights 0, 10 and 20, the highest on a locked layer; handles 42 to 44.
    void openPlan()
    {
        open(TestDrawing()
                 .add({.name = "Wall"})
                 .add({.name = "Locked", .flags = 4})
                 .addEntity("LINE", "Wall", "100=AcDbLine 10=0 20=0 11=100 21=0")
                 .addEntity("LINE", "Wall", "100=AcDbLine 10=0 20=10 11=100 21=10")
                 .addEntity("LINE", "Locked", "100=AcDbLine 10=0 20=20 11=100 21=20"));
        typeLine("MODEL");
        showAll();
    }
    void showAll()
    {
        canvas().completeNow();
        canvas().zoomExtents();
        canvas().completeNow();
    }
    CCanvas& canvas() const { return window->drawings().currentView()->canvas(); }
    CCommandLine& line() const { return window->commandLine(); }
    QPoint pixel(Vec2 point) const
    {
        return canvas().view().toWindow(canvas().userMap().map(point)).toPoint();
    }
    void click(Vec2 point, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(&canvas(), Qt::LeftButton, modifiers, pixel(point));
    }
    void drag(Vec2 from, Vec2 to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mousePress(&canvas(), Qt::LeftButton, modifiers, pixel(from));
        const QPointF at = pixel(to);
        QMouseEvent move(QEvent::MouseMove, at, canvas().mapToGlobal(at), Qt::NoButton,
                         Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(&canvas(), &move);
        QTest::mouseRelease(&canvas(), Qt::LeftButton, modifiers, pixel(to));
    }
    QString selected() const
    {
        QStringList handles;
        for (const OdDbObjectId id : current()->selection().entities())
            handles << QString::number(id.getHandle().value(), 16);
        return handles.join(QLatin1Char(' '));
    }
    bool isErased(quint64 handle) const
    {
        return current()->database()->getOdDbObjectId(OdDbHandle(handle)).isErased();
    }
    QString statusSelected() const
    {
        return window->findChild<QLabel*>(QStringLiteral("statusSelected"))->text();
    }
    /// Runs a command and does one thing after the other, each while something is asked.
    void runAnd(const char* command, std::initializer_list<std::function<void()>> steps)
    {
        std::vector<std::function<void()>> waiting(steps);
        QTimer next;
        next.setInterval(0);
        std::size_t step = 0;
        connect(&next, &QTimer::timeout, this, [&] {
            if (step >= waiting.size()) {
                next.stop();
                line().answer(std::nullopt);
                return;
            }
            if (line().isAsking())
                waiting[step++]();
        });
        next.start();
        window->runCommand(QString::fromUtf8(command));
        QCOMPARE(step, waiting.size());
        next.stop();
        settle();
    }
    std::function<void()> typed(const char* text)
    {
        return [this, text] { typeLine(text); };
    }

private slots:
    void clicksSelectAndShiftTakesAway();
    void clicksAddOrReplaceAsPickaddSays();
    void nothingIsPickedBeforeACommandWithoutPickfirst();
    void rectanglesSelectWithoutACommand();
    void escapeGivesUpARectangleThenTheSelection();
    void theWholeDrawingIsSelectedWithoutLockedLayers();
    void deleteErasesTheSelectionAndUndoBringsItBack();
    void theStatusBarCountsWhatIsSelected();
    void aQuestionForObjectsIsAnsweredByTheMouse();
    void aShiftClickTakesAnObjectOutOfAnAnswer();
    void linesAreDrawnWithTheMouse();
    void whatIsTypedOverTheDrawingGoesToTheCommandLine();
    void enterOverTheDrawingRepeatsTheLatestCommand();
    void zoomPreviousGoesBackToTheViewBefore();
    void aDoubleClickEntersAViewportAndAnotherOneLeavesIt();
    void pointsInAViewportAreThoseOfModelSpace();
    void theMenuOffersWhatCanBeDone();
    void theMenuAnswersAQuestion();
    void aRealDrawingIsSelectedErasedAndRestored();
};

void TestDrawingInput::clicksSelectAndShiftTakesAway()
{
    openPlan();
    click({50, 0});
    QCOMPARE(selected(), QStringLiteral("42"));
    click({50, 20});
    click({50, 0});
    QCOMPARE(selected(), QStringLiteral("42 44"));
    click({50, 0}, Qt::ShiftModifier);
    QCOMPARE(selected(), QStringLiteral("44"));
    QVERIFY(!window->isWindowModified());
}

void TestDrawingInput::clicksAddOrReplaceAsPickaddSays()
{
    openPlan();
    typeLine("PICKADD 0");
    click({50, 0});
    click({50, 10});
    QCOMPARE(selected(), QStringLiteral("43"));
    typeLine("PICKADD 1");
    click({50, 0});
    QCOMPARE(selected(), QStringLiteral("43 42"));
}

void TestDrawingInput::nothingIsPickedBeforeACommandWithoutPickfirst()
{
    openPlan();
    typeLine("PICKFIRST 0");
    click({50, 0});
    drag({-2, -2}, {102, 12});
    QCOMPARE(selected(), QString());
    runAnd("SELECT", {[this] { click({50, 0}); }, typed("")});
    QCOMPARE(selected(), QStringLiteral("42"));
}

void TestDrawingInput::rectanglesSelectWithoutACommand()
{
    openPlan();
    drag({-2, -2}, {102, 12});
    QCOMPARE(selected(), QStringLiteral("42 43"));
    drag({52, 15}, {48, 5}, Qt::ShiftModifier);
    QCOMPARE(selected(), QStringLiteral("42"));
    drag({52, 25}, {48, 5});
    QCOMPARE(selected(), QStringLiteral("42 43 44"));
}

void TestDrawingInput::escapeGivesUpARectangleThenTheSelection()
{
    openPlan();
    click({50, 0});
    click({50, 5}); // the corner of a rectangle
    QTest::keyClick(&canvas(), Qt::Key_Escape);
    QCOMPARE(selected(), QStringLiteral("42"));
    QTest::keyClick(&line().edit(), Qt::Key_Escape);
    QCOMPARE(selected(), QString());
    click({50, 10});
    QCOMPARE(selected(), QStringLiteral("43"));
}

void TestDrawingInput::theWholeDrawingIsSelectedWithoutLockedLayers()
{
    openPlan();
    canvas().setFocus();
    QTest::keyClick(&canvas(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("42 43"));
    QTest::keyClick(&canvas(), Qt::Key_Escape);
    QTest::keyClick(&line().edit(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("42 43"));
}

void TestDrawingInput::deleteErasesTheSelectionAndUndoBringsItBack()
{
    openPlan();
    click({50, 0});
    click({50, 20});
    QTest::keyClick(&canvas(), Qt::Key_Delete);
    settle();
    QVERIFY(isErased(0x42));
    QVERIFY(!isErased(0x44));
    QVERIFY(history().contains(QStringLiteral("1 was on a locked layer.")));
    QCOMPARE(selected(), QString());
    typeLine("U");
    QVERIFY(!isErased(0x42));
    click({50, 0});
    QTest::keyClick(&line().edit(), Qt::Key_Delete);
    QVERIFY(isErased(0x42));
    QTest::keyClick(&canvas(), Qt::Key_Delete); // nothing is selected: nothing is asked
    QVERIFY(!line().isAsking());
}

void TestDrawingInput::theStatusBarCountsWhatIsSelected()
{
    openPlan();
    click({50, 0});
    click({50, 20});
    QCOMPARE(statusSelected(), QStringLiteral("2 selected"));
    current()->database()->startUndoRecord();
    current()->database()->eraseTree(current()->database()->getOdDbObjectId(OdDbHandle(0x42)));
    settle();
    QCOMPARE(statusSelected(), QStringLiteral("1 selected"));
    QTest::keyClick(&canvas(), Qt::Key_Escape);
    QCOMPARE(statusSelected(), QString());
}

void TestDrawingInput::aQuestionForObjectsIsAnsweredByTheMouse()
{
    openPlan();
    runAnd("ERASE", {[this] { click({50, 0}); }, [this] { drag({52, 15}, {48, 5}); }, typed("")});
    QVERIFY(isErased(0x42) && isErased(0x43) && !isErased(0x44));
    QVERIFY(history().contains(QStringLiteral("1 found, 2 total")));
    QVERIFY(history().contains(QStringLiteral("Select objects: Crossing 48")));
    QVERIFY(history().contains(QStringLiteral("2 erased.")));
}

void TestDrawingInput::aShiftClickTakesAnObjectOutOfAnAnswer()
{
    openPlan();
    runAnd("ERASE", {typed("All"), [this] { click({50, 10}, Qt::ShiftModifier); }, typed("")});
    QVERIFY(isErased(0x42) && !isErased(0x43));
}

void TestDrawingInput::linesAreDrawnWithTheMouse()
{
    openPlan();
    runAnd("LINE",
           {[this] {
                click({10, 5});
            },
            [this] {
                click({20, 5});
            },
            typed("@0,3"), typed("c")});
    const auto contents = [this] { return current()->selection().entities().size(); };
    showAll();
    drag({24, 12}, {6, 4}); // touches the triangle and the line below
    QCOMPARE(contents(), std::size_t(4));
    typeLine("U");
    settle();
    QCOMPARE(contents(), std::size_t(1));
}

void TestDrawingInput::whatIsTypedOverTheDrawingGoesToTheCommandLine()
{
    openPlan();
    canvas().setFocus();
    QTest::keyClick(&canvas(), Qt::Key_Minus);
    QCOMPARE(line().edit().text(), QStringLiteral("-"));
    QVERIFY(line().edit().hasFocus());
    click({50, 0}); // a click does not take what is typed away
    QCOMPARE(line().edit().text(), QStringLiteral("-"));
}

void TestDrawingInput::enterOverTheDrawingRepeatsTheLatestCommand()
{
    openPlan();
    typeLine("LAYERS");
    canvas().setFocus();
    QTest::keyClick(&canvas(), Qt::Key_Return);
    QCOMPARE(history().count(QStringLiteral("Command: LAYERS")), 2);
}

void TestDrawingInput::zoomPreviousGoesBackToTheViewBefore()
{
    openPlan();
    const ViewTransform before = canvas().view();
    typeLine("ZOOM W 0,0 10,10");
    QVERIFY(canvas().view() != before);
    QCOMPARE(canvas().view().centre(), (Vec2{5, 5}));
    typeLine("PAN 5,0 \"\"");
    QCOMPARE(canvas().view().centre(), (Vec2{0, 5}));
    typeLine("ZOOM P");
    typeLine("ZOOM P");
    QCOMPARE(canvas().view(), before);
}

void TestDrawingInput::aDoubleClickEntersAViewportAndAnotherOneLeavesIt()
{
    open(TestDrawing().addLine("0").addViewport(50, 50).addViewport(150, 50));
    typeLine("LAYOUT Set Layout1");
    typeLine("PSPACE");
    showAll();
    const auto doubleClick = [this](Vec2 point) {
        QTest::mouseDClick(&canvas(), Qt::LeftButton, Qt::NoModifier,
                           canvas().view().toWindow(point).toPoint());
        settle();
    };
    QVERIFY(canvas().contents().activeViewportFrame().isEmpty());
    doubleClick({150, 50});
    QCOMPARE(variable("CVPORT"), QStringLiteral("3"));
    QCOMPARE(canvas().contents().activeViewportFrame().centre(), (Vec2{150, 50}));
    doubleClick({50, 50});
    QCOMPARE(variable("CVPORT"), QStringLiteral("2"));
    doubleClick({100, 90});
    QCOMPARE(variable("CVPORT"), QStringLiteral("1"));
}

void TestDrawingInput::pointsInAViewportAreThoseOfModelSpace()
{
    open(TestDrawing()
             .addEntity("LINE", "0", "100=AcDbLine 10=90 20=100 11=110 21=100")
             .addEntity("LINE", "0", "100=AcDbLine 10=90 20=120 11=110 21=120")
             .addViewport(50, 50));
    typeLine("LAYOUT Set Layout1");
    typeLine("MSPACE");
    showAll();
    // The viewport shows 30 units of model space about (100, 100) on 60 units of the sheet.
    const QPointF middle = canvas().view().toWindow({50, 50});
    QMouseEvent move(QEvent::MouseMove, middle, canvas().mapToGlobal(middle), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&canvas(), &move);
    QVERIFY(window->findChild<QLabel*>(QStringLiteral("statusPosition"))
                ->text()
                .startsWith(QStringLiteral("100.0000, 100.0000")));
    QTest::mouseClick(&canvas(), Qt::LeftButton, Qt::NoModifier,
                      canvas().view().toWindow({40, 50}).toPoint());
    QCOMPARE(selected(), QStringLiteral("40"));
    // The other line would be above the viewport, which cuts it off.
    QTest::mouseClick(&canvas(), Qt::LeftButton, Qt::NoModifier,
                      canvas().view().toWindow({50, 90}).toPoint());
    QCOMPARE(selected(), QStringLiteral("40"));
    runAnd("CIRCLE", {[this] { click({100, 105}); }, typed("2")});
    QTest::keyClick(&canvas(), Qt::Key_Escape);
    showAll();
    click({102, 105});
    QCOMPARE(current()->selection().size(), std::size_t(1));
    QTest::keyClick(&canvas(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(current()->selection().size(), std::size_t(3));
}

void TestDrawingInput::theMenuOffersWhatCanBeDone()
{
    openPlan();
    click({50, 0});
    QStringList texts;
    QTimer::singleShot(0, this, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        for (const QAction* entry : menu ? menu->actions() : QList<QAction*>()) {
            if (!entry->isSeparator() && entry->isEnabled())
                texts << entry->text().remove(QLatin1Char('&'));
            if (entry->text() == QStringLiteral("De&select"))
                const_cast<QAction*>(entry)->trigger();
        }
        if (menu)
            menu->close();
    });
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, {100, 100},
                             canvas().mapToGlobal(QPoint(100, 100)));
    QCoreApplication::sendEvent(&canvas(), &wanted);
    QCOMPARE(texts.join(QLatin1Char(',')),
             QStringLiteral("Repeat MODEL,Pan,Zoom Extents,Zoom Previous,Select All,"
                            "Deselect,Erase"));
    QCOMPARE(selected(), QString());
}

void TestDrawingInput::theMenuAnswersAQuestion()
{
    openPlan();
    const auto choose = [this](const char* text) {
        QTimer::singleShot(0, this, [text] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            for (QAction* entry : menu->actions()) {
                if (entry->text() == QLatin1String(text))
                    entry->trigger();
            }
            menu->close();
        });
        QContextMenuEvent wanted(QContextMenuEvent::Mouse, {100, 100},
                                 canvas().mapToGlobal(QPoint(100, 100)));
        QCoreApplication::sendEvent(&canvas(), &wanted);
    };
    runAnd("ERASE", {[&] { choose("ALL"); }, [&] { choose("&Enter"); }});
    QVERIFY(isErased(0x42) && isErased(0x43) && !isErased(0x44));
}

void TestDrawingInput::aRealDrawingIsSelectedErasedAndRestored()
{
    KEST_QTEST_NEEDS_DRAWINGS();
    window->runCommand(QStringLiteral("OPEN \"%1\"")
                           .arg(SharedDrawings::file(
                               QStringLiteral("egghunters+dxf-viewer-examples__dxf_4.dxf"))));
    typeLine("MODEL");
    showAll();
    QTest::keyClick(&canvas(), Qt::Key_A, Qt::ControlModifier);
    const std::size_t all = current()->selection().size();
    QVERIFY(all > 100);
    QTest::keyClick(&canvas(), Qt::Key_Delete);
    QVERIFY(current()->selection().isEmpty());
    QTest::keyClick(&canvas(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(current()->selection().size(), std::size_t(0));
    typeLine("U");
    QTest::keyClick(&canvas(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(current()->selection().size(), all);
    QVERIFY(current()->database()->audit().isEmpty());
    QVERIFY(!window->isWindowModified());
}

QTEST_MAIN(TestDrawingInput)
#include "test_drawing_input.moc"
