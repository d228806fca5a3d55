#include "host/canvas/CanvasContents.h"
#include "host/canvas/support/CanvasFixture.h"
#include "host/canvas/tools/CanvasHostView.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"

#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

/// The left button points, and the canvas shows what was pointed at.
class CanvasPointing : public CanvasFixture
{
    Q_OBJECT

    static CanvasDrawing plan()
    {
        return CanvasDrawing()
            .layer("Walls", 3)
            .block("DOOR", 0, 0,
                   "LINE 8=0 10=0 20=0 11=20 21=0\nARC 8=0 10=0 20=0 40=20 50=0 51=90")
            .add("LINE 5=A1 8=Walls 10=-60 20=-30 11=60 21=-30\n"
                 "CIRCLE 5=A2 8=0 10=-40 20=20 40=15\n"
                 "INSERT 5=A3 8=Walls 2=DOOR 10=0 20=0\n"
                 "TEXT 5=A4 8=0 10=30 20=30 40=10 1=Hall\n"
                 "SOLID 5=A5 8=0 10=-20 20=40 11=0 21=40 12=-20 22=55 13=0 23=55");
    }
    void prepare() override
    {
        CanvasFixture::prepare();
        show(plan());
        canvas().show();
        QVERIFY(QTest::qWaitForWindowExposed(&canvas()));
        look({0, 0}, 4);
        canvas().completeNow();
    }
    QPoint pixel(Vec2 point) { return canvas().view().toWindow(point).toPoint(); }
    void moveTo(Vec2 point, Qt::MouseButtons buttons = Qt::NoButton)
    {
        const QPointF at = pixel(point);
        QMouseEvent move(QEvent::MouseMove, at, canvas().mapToGlobal(at), Qt::NoButton, buttons,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas(), &move);
    }
    void press(Vec2 point, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mousePress(&canvas(), Qt::LeftButton, modifiers, pixel(point));
    }
    void release(Vec2 point, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseRelease(&canvas(), Qt::LeftButton, modifiers, pixel(point));
    }
    void click(Vec2 point, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        press(point, modifiers);
        release(point, modifiers);
    }
    std::vector<quint32> slotsOf(std::initializer_list<quint64> entities)
    {
        std::vector<quint32> found;
        for (const quint64 handle : entities)
            found.push_back(byHandle(handle).slot());
        return found;
    }
    static void ask(CCanvas& canvas, HostQuestion::Wants wants, std::optional<QPointF> from = {})
    {
        HostQuestion question(QStringLiteral("?"));
        question.wants = wants;
        question.from = from;
        canvas.setQuestion(&question);
    }

private slots:
    void aClickOnAnEntityPicksItAndShiftTakesItAway()
    {
        QSignalSpy picked(&canvas(), &CCanvas::entityPicked);
        click({10, -30});
        click({10, 0}, Qt::ShiftModifier);
        QCOMPARE(picked.count(), 2);
        QCOMPARE(picked[0][0].value<Vec2>(), (Vec2{10, -30}));
        QCOMPARE(picked[0][1].toBool(), false);
        QCOMPARE(picked[1][1].toBool(), true);
    }

    void aDragFromNothingIsARectangle()
    {
        QSignalSpy boxes(&canvas(), &CCanvas::boxPicked);
        press({-70, -50});
        moveTo({0, 0}, Qt::LeftButton);
        release({20, 10});
        press({50, 50});
        moveTo({0, 0}, Qt::LeftButton);
        release({-20, 20});
        QCOMPARE(boxes.count(), 2);
        const Box2 window = boxes[0][0].value<Box2>();
        QCOMPARE(window.minX, -70.0);
        QCOMPARE(window.maxY, 10.0);
        QCOMPARE(boxes[0][1].toBool(), false); // from left to right: a window
        QCOMPARE(boxes[1][1].toBool(), true);
    }

    void twoClicksAreARectangleTooAndTheViewMayMoveBetween()
    {
        QSignalSpy boxes(&canvas(), &CCanvas::boxPicked);
        click({-70, -50});
        QCOMPARE(boxes.count(), 0);
        look({10, 0}, 8);
        click({10, -35}); // on an entity, but a corner is wanted
        QCOMPARE(boxes.count(), 1);
        QCOMPARE(boxes[0][0].value<Box2>().minX, -70.0);
        QCOMPARE(boxes[0][0].value<Box2>().maxX, 10.0);
    }

    void aRectangleCanBeGivenUp()
    {
        QSignalSpy boxes(&canvas(), &CCanvas::boxPicked);
        click({-70, -50});
        QVERIFY(canvas().cancelRectangle());
        QVERIFY(!canvas().cancelRectangle());
        click({10, -30});
        QCOMPARE(boxes.count(), 0);
    }

    void aQuestionForAPointIsAnsweredAnywhere()
    {
        QSignalSpy points(&canvas(), &CCanvas::pointPicked);
        ask(canvas(), HostQuestion::Wants::Point);
        click({10, -30});
        QCOMPARE(points.count(), 1);
        QCOMPARE(points[0][0].value<Vec2>(), (Vec2{10, -30}));
    }

    void aQuestionForTextTakesNoClicks()
    {
        QSignalSpy points(&canvas(), &CCanvas::pointPicked);
        QSignalSpy picked(&canvas(), &CCanvas::entityPicked);
        QSignalSpy boxes(&canvas(), &CCanvas::boxPicked);
        ask(canvas(), HostQuestion::Wants::Text);
        click({10, -30});
        click({-70, -50});
        click({70, 50});
        QCOMPARE(points.count() + picked.count() + boxes.count(), 0);
    }

    void theCursorIsABoxWhereObjectsAreWantedAndACrossWhereAPointIs()
    {
        canvas().setDatabase(nullptr);
        const auto litAt = [this](int dx) {
            moveTo({0, 0});
            const QImage seen = canvas().grab().toImage();
            return seen.pixel(400 + dx, 300) != seen.pixel(10, 10);
        };
        QVERIFY(!litAt(1) && litAt(30));
        ask(canvas(), HostQuestion::Wants::Point);
        QVERIFY(litAt(1) && litAt(30));
        ask(canvas(), HostQuestion::Wants::Objects);
        QVERIFY(!litAt(1) && !litAt(30));
        QVERIFY(litAt(qRound(canvas().pickReach() * canvas().view().scale())));
        canvas().setQuestion(nullptr);
        QVERIFY(!litAt(1) && litAt(30));
    }

    void aLineRunsFromTheBasePointToTheCursor()
    {
        canvas().setDatabase(nullptr);
        show(CanvasDrawing());
        ask(canvas(), HostQuestion::Wants::Point, QPointF(-50, 50));
        moveTo({50, 50});
        canvas().completeNow();
        const QImage seen = canvas().grab().toImage();
        int lit = 0;
        for (int x = pixel({-50, 50}).x(); x < pixel({30, 50}).x(); ++x)
            lit += seen.pixel(x, pixel({0, 50}).y()) != seen.pixel(5, 5) ? 1 : 0;
        QVERIFY(lit > 100 && lit < 320); // dashed
    }

    void selectedEntitiesGlowAndOthersDoNot()
    {
        const QImage before = picture().image();
        canvas().setSelected(slotsOf({0xA1, 0xA3}));
        const QImage after = picture().image();
        const auto differsNear = [&](Vec2 point) {
            const QPoint at = pixel(point);
            for (int dy = -3; dy <= 3; ++dy) {
                for (int dx = -3; dx <= 3; ++dx) {
                    if (before.pixel(at + QPoint(dx, dy)) != after.pixel(at + QPoint(dx, dy)))
                        return true;
                }
            }
            return false;
        };
        QVERIFY(differsNear({-30, -30}));
        QVERIFY(differsNear({10, 0}));
        QVERIFY(differsNear({20 * std::cos(0.5), 20 * std::sin(0.5)}));
        QVERIFY(!differsNear({-25, 20}));
        canvas().setSelected({});
        QCOMPARE(picture().image(), before);
    }

    void theGlowFollowsTheViewAndTheLayers()
    {
        canvas().setSelected(slotsOf({0xA1}));
        look({0, -30}, 8);
        const int lit = picture().litCount();
        changeLayer("Walls", [](auto& layer) { layer.setIsOff(true); });
        QVERIFY(picture().litCount() < lit / 4);
    }

    void whatAViewportCutsOffIsNeitherPickedNorDoesItGlow()
    {
        // The line runs through a circle of 50 across, the outline of a viewport 120 wide.
        show(CanvasDrawing()
                 .layer("Hidden", 3, 1)
                 .add("LINE 5=A1 8=0 10=-300 20=0 11=300 21=0\n"
                      "VIEWPORT 5=C1 67=1 8=Hidden 10=0 20=0 40=200 41=150 68=1 69=1 12=0 22=0 "
                      "36=1 45=150\n"
                      "VIEWPORT 5=C2 67=1 8=Hidden 10=0 20=0 40=120 41=60 68=2 69=2 12=0 22=0 "
                      "36=1 45=120 90=65536 340=E1\n"
                      "CIRCLE 5=E1 67=1 8=Hidden 10=0 20=0 40=25"));
        database().setTILEMODE(false);
        database().setActiveViewport(byHandle(0xC2));
        canvas().completeNow();
        look({0, 0}, 4);
        QSignalSpy picked(&canvas(), &CCanvas::entityPicked);
        click({40, 0});
        QVERIFY(canvas().cancelRectangle());
        click({20, 0});
        QCOMPARE(picked.count(), 1);
        QCOMPARE(picked[0][0].value<Vec2>(), (Vec2{40, 0})); // twice as far out in the model
        const QImage before = seen();
        canvas().setSelected(slotsOf({0xA1}));
        const QImage after = seen();
        QVERIFY(before.pixel(pixel({20, 0})) != after.pixel(pixel({20, 0})));
        QVERIFY(before.pixel(pixel({40, 0})) == after.pixel(pixel({40, 0})));
    }

    void zoomPreviousGoesBackThroughTheViews()
    {
        CanvasHostView view(canvas());
        const ViewTransform first = canvas().view();
        view.centreOn({10, 20}, 50);
        QCOMPARE(view.height(), 50.0);
        QCOMPARE(view.centre(), (Vec2{10, 20}));
        view.showBox(Box2::of({0, 0}, {40, 10}));
        QCOMPARE(view.height(), 30.0); // 40 across in a window of 4 to 3
        QVERIFY(view.showPrevious());
        QCOMPARE(view.height(), 50.0);
        QVERIFY(view.showPrevious());
        QCOMPARE(canvas().view(), first);
    }

    void turnsOfTheWheelAreOneStepBack()
    {
        CanvasHostView view(canvas());
        const ViewTransform first = canvas().view();
        for (int i = 0; i < 5; ++i) {
            QWheelEvent event({200, 100}, canvas().mapToGlobal(QPointF(200, 100)), {}, {0, 120},
                              Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&canvas(), &event);
        }
        QVERIFY(canvas().view() != first);
        QVERIFY(view.showPrevious());
        QCOMPARE(canvas().view(), first);
    }

    void touchpadsZoomByPixelsAndByPinchingAndPanWithShift()
    {
        const double scale = canvas().view().scale();
        const auto scroll = [this](QPoint pixels, Qt::KeyboardModifiers modifiers) {
            QWheelEvent event({400, 300}, canvas().mapToGlobal(QPointF(400, 300)), pixels, {},
                              Qt::NoButton, modifiers, Qt::ScrollUpdate, false);
            QCoreApplication::sendEvent(&canvas(), &event);
        };
        scroll({0, 30}, Qt::NoModifier);
        QVERIFY(canvas().view().scale() > scale && canvas().view().scale() < 1.25 * scale);
        look({0, 0}, 4);
        scroll({40, 20}, Qt::ShiftModifier);
        QCOMPARE(canvas().view().centre(), (Vec2{-10, 5}));
        QCOMPARE(canvas().view().scale(), 4.0);
        QNativeGestureEvent pinch(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(),
                                  2, {400, 300}, {400, 300}, {400, 300}, 0.5, {});
        QCoreApplication::sendEvent(&canvas(), &pinch);
        QCOMPARE(canvas().view().scale(), 6.0);
    }

    void draggingByCommandMovesTheDrawing()
    {
        CanvasHostView view(canvas());
        view.setDragging(true);
        press({0, 0});
        moveTo({10, 0}, Qt::LeftButton);
        release({10, 0});
        QCOMPARE(canvas().view().centre(), (Vec2{-10, 0}));
        view.setDragging(false);
        QSignalSpy picked(&canvas(), &CCanvas::entityPicked);
        click({10, -30});
        QCOMPARE(picked.count(), 1);
    }

    void picturesOfRectanglesAndGlow_data()
    {
        QTest::addColumn<GoldenLook::Theme>("theme");
        QTest::newRow("light") << GoldenLook::Theme::Light;
        QTest::newRow("dark") << GoldenLook::Theme::Dark;
    }
    void picturesOfRectanglesAndGlow()
    {
        QFETCH(GoldenLook::Theme, theme);
        const GoldenLook golden(theme);
        canvas().setPalette(GoldenLook::palette(theme));
        canvas().resize(600, 400);
        look({0, 10}, 4);
        const auto name = [&](const char* what) {
            return QStringLiteral("canvas_%1_%2")
                .arg(QLatin1String(what), GoldenLook::suffix(theme));
        };
        canvas().setSelected(slotsOf({0xA1, 0xA3, 0xA4, 0xA5}));
        QVERIFY(goldenImage(seen(), name("glow")));
        canvas().setSelected({});
        click({-65, -35});
        moveTo({25, 25});
        QVERIFY(goldenImage(seen(), name("window")));
        QVERIFY(canvas().cancelRectangle());
        click({25, 25});
        moveTo({-65, -35});
        QVERIFY(goldenImage(seen(), name("crossing")));
    }

private:
    QImage seen()
    {
        canvas().completeNow();
        return canvas().grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
};

QTEST_MAIN(CanvasPointing)
#include "test_canvas_pointing.moc"
