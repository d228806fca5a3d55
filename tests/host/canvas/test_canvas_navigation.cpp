#include "host/canvas/support/CanvasFixture.h"

#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

/// Mouse and keyboard move the view as they do everywhere.
class CanvasNavigation : public CanvasFixture
{
    Q_OBJECT

    void prepare() override
    {
        CanvasFixture::prepare();
        show(CanvasDrawing().add("LINE 8=0 10=-50 20=-20 11=60 21=40"));
        canvas().show();
        QVERIFY(QTest::qWaitForWindowExposed(&canvas()));
        look({0, 0}, 4);
    }
    void wheel(QPointF at, int delta)
    {
        QWheelEvent event(at, canvas().mapToGlobal(at), {}, QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&canvas(), &event);
    }
    void drag(Qt::MouseButton button, QPoint from, QPoint to)
    {
        QTest::mousePress(&canvas(), button, Qt::NoModifier, from);
        QMouseEvent move(QEvent::MouseMove, to, canvas().mapToGlobal(to), button, button,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas(), &move);
        QTest::mouseRelease(&canvas(), button, Qt::NoModifier, to);
    }
    static bool isNear(Vec2 a, Vec2 b) { return (a - b).length() < 1e-9; }

private slots:
    void wheelZoomsAboutTheCursor()
    {
        const Vec2 before = canvas().view().toWorld(QPointF(200, 100));
        wheel({200, 100}, 120);
        QVERIFY(canvas().view().scale() > 4);
        QVERIFY(isNear(canvas().view().toWorld(QPointF(200, 100)), before));
        wheel({200, 100}, -120);
        QVERIFY(std::abs(canvas().view().scale() - 4) < 1e-9);
    }

    void middleDragPans()
    {
        const Vec2 grabbed = canvas().view().toWorld(QPointF(400, 300));
        drag(Qt::MiddleButton, {400, 300}, {450, 280});
        QVERIFY(isNear(canvas().view().toWorld(QPointF(450, 280)), grabbed));
        QCOMPARE(canvas().view().scale(), 4.0);
    }

    void leftDragPansWhileSpaceIsHeld()
    {
        drag(Qt::LeftButton, {400, 300}, {450, 280});
        QVERIFY(isNear(canvas().view().centre(), {0, 0}));
        QTest::keyPress(&canvas(), Qt::Key_Space);
        drag(Qt::LeftButton, {400, 300}, {440, 300});
        QTest::keyRelease(&canvas(), Qt::Key_Space);
        QVERIFY(isNear(canvas().view().centre(), {-10, 0}));
    }

    void middleDoubleClickShowsEverything()
    {
        look({500, 500}, 1);
        QTest::mouseDClick(&canvas(), Qt::MiddleButton, Qt::NoModifier, {10, 10});
        QVERIFY(isNear(canvas().view().centre(), {5, 10}));
        QVERIFY(picture().isLit({60, 40}));
    }

    void keysPanAndZoom()
    {
        QTest::keyClick(&canvas(), Qt::Key_Right);
        QVERIFY(canvas().view().centre().x > 0);
        QTest::keyClick(&canvas(), Qt::Key_Left);
        QTest::keyClick(&canvas(), Qt::Key_Up);
        QVERIFY(canvas().view().centre().y > 0);
        QTest::keyClick(&canvas(), Qt::Key_Down);
        QVERIFY(isNear(canvas().view().centre(), {0, 0}));
        QTest::keyClick(&canvas(), Qt::Key_Plus, Qt::ControlModifier);
        QVERIFY(canvas().view().scale() > 4);
        QTest::keyClick(&canvas(), Qt::Key_Minus, Qt::ControlModifier);
        QVERIFY(std::abs(canvas().view().scale() - 4) < 1e-9);
        QTest::keyClick(&canvas(), Qt::Key_Home);
        QVERIFY(isNear(canvas().view().centre(), {5, 10}));
    }

    void otherKeysAreLeftToOthers()
    {
        QKeyEvent letter(QEvent::KeyPress, Qt::Key_L, Qt::NoModifier, QStringLiteral("l"));
        QCoreApplication::sendEvent(&canvas(), &letter);
        QVERIFY(!letter.isAccepted());
    }

    void cursorPositionIsToldInDrawingUnits()
    {
        QSignalSpy moved(&canvas(), &CCanvas::cursorMoved);
        QTest::mouseMove(&canvas(), {440, 280});
        QMouseEvent move(QEvent::MouseMove, QPointF(440, 280),
                         canvas().mapToGlobal(QPointF(440, 280)), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas(), &move);
        QVERIFY(!moved.isEmpty());
        QCOMPARE(moved.last().first().toPointF(), QPointF(10, 5));
    }

    void crosshairFollowsTheCursorAndLeavesWithIt()
    {
        canvas().setDatabase(nullptr);
        QVERIFY(picture().isEmpty());
        QMouseEvent move(QEvent::MouseMove, QPointF(300, 200),
                         canvas().mapToGlobal(QPointF(300, 200)), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas(), &move);
        const QImage seen = canvas().grab().toImage();
        QVERIFY(seen.pixel(320, 200) != seen.pixel(700, 500));
        QCOMPARE(seen.pixel(300, 200), seen.pixel(700, 500)); // the box in the middle is open
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&canvas(), &leave);
        QVERIFY(picture().isEmpty());
    }

    void resizingKeepsTheCentreAndTheScale()
    {
        canvas().resize(500, 400);
        QCOMPARE(canvas().view().scale(), 4.0);
        QVERIFY(isNear(canvas().view().toWorld(QPointF(250, 200)), {0, 0}));
        QVERIFY(picture().isLit({0, 80.0 / 11}));
    }

    void resizingKeepsEverythingInSightUntilTheViewIsMoved()
    {
        canvas().zoomExtents();
        canvas().resize(400, 300);
        QVERIFY(picture().isLit({-50, -20}) && picture().isLit({60, 40}));
        QTest::keyClick(&canvas(), Qt::Key_Right);
        const double scale = canvas().view().scale();
        canvas().resize(800, 600);
        QCOMPARE(canvas().view().scale(), scale);
    }

    void oldPicturesStandInWhileTheViewMoves()
    {
        picture();
        ViewTransform view = canvas().view();
        view.pan({40, 0});
        canvas().setView(view);
        QVERIFY(canvas().grab().toImage().size() == QSize(800, 600));
        QVERIFY(picture().isLit({60, 40}));
    }

    void aJumpFarAwayLeavesTheOldPictureBehind()
    {
        picture();
        look({1e14, -1e14}, 4);
        canvas().grab();
        look({0, 0}, 4);
        QVERIFY(picture().isLit({60, 40}));
    }

    void smoothPicturesHaveShades()
    {
        canvas().completeNow(false);
        QSet<QRgb> plain;
        QSet<QRgb> smooth;
        const auto collect = [&](QSet<QRgb>& colours) {
            const QImage image = canvas().grab().toImage();
            for (int x = 0; x < image.width(); ++x)
                colours.insert(image.pixel(x, 300));
        };
        collect(plain);
        canvas().completeNow(true);
        collect(smooth);
        QCOMPARE(plain.size(), 2);
        QVERIFY(smooth.size() > 2);
    }

    void smoothPictureComesByItselfWhenNothingHappens()
    {
        picture();
        QTRY_VERIFY_WITH_TIMEOUT(canvas().isSmooth(), 5000);
    }
};

QTEST_MAIN(CanvasNavigation)
#include "test_canvas_navigation.moc"
