#include "host/canvas/support/CanvasFixture.h"

#include <QTest>

/// Texts stand where their justification puts them, as high as they say.
class CanvasTexts : public CanvasFixture
{
    Q_OBJECT

    static constexpr double kTolerance = 0.6; ///< units: smooth edges spread over a pixel or two

    static bool isNear(double a, double b) { return std::abs(a - b) <= kTolerance; }
    Box2 boxOf(const char* entities)
    {
        show(CanvasDrawing().add(entities));
        return picture().litBox();
    }

private slots:
    void heightIsThatOfACapital()
    {
        const Box2 box = boxOf("TEXT 8=0 10=0 20=0 40=20 1=HH");
        QVERIFY(isNear(box.minY, 0) && isNear(box.maxY, 20));
        QVERIFY(box.minX >= 0 && box.minX < 5);
        QVERIFY(box.maxX > 20);
    }

    void widthFactorStretches()
    {
        const Box2 narrow = boxOf("TEXT 8=0 10=0 20=0 40=20 1=HH");
        const Box2 wide = boxOf("TEXT 8=0 10=0 20=0 40=20 41=2 1=HH");
        QVERIFY(isNear(wide.maxX, 2 * narrow.maxX));
        QVERIFY(isNear(wide.maxY, narrow.maxY));
    }

    void rotationTurnsAboutTheInsertionPoint()
    {
        const Box2 box = boxOf("TEXT 8=0 10=0 20=0 40=20 50=90 1=HH");
        QVERIFY(isNear(box.maxX, 0) && isNear(box.minX, -20));
        QVERIFY(box.minY >= 0);
    }

    void obliqueTextLeans()
    {
        show(CanvasDrawing().add("TEXT 8=0 10=0 20=0 40=40 51=45 1=I"));
        const CanvasPicture seen = picture();
        const Box2 box = seen.litBox();
        QVERIFY(box.width() > 35);
        QVERIFY(seen.isLit({box.minX + 1, 1}) && !seen.isLit({box.minX + 1, 38}));
    }

    void backwardAndUpsideDownTextIsMirrored()
    {
        QVERIFY(boxOf("TEXT 8=0 10=0 20=0 40=20 71=2 1=HH").maxX <= kTolerance);
        const Box2 upsideDown = boxOf("TEXT 8=0 10=0 20=0 40=20 71=4 1=HH");
        QVERIFY(isNear(upsideDown.maxY, 0) && isNear(upsideDown.minY, -20));
    }

    void justificationPlacesTheSecondPoint_data()
    {
        QTest::addColumn<QByteArray>("codes");
        QTest::addColumn<double>("centreX");
        QTest::addColumn<double>("bottom");
        QTest::newRow("centre") << QByteArray("72=1 73=0") << 30.0 << 10.0;
        QTest::newRow("middle") << QByteArray("72=4 73=0") << 30.0 << 0.0;
        QTest::newRow("middle centre") << QByteArray("72=1 73=2") << 30.0 << 0.0;
        QTest::newRow("top centre") << QByteArray("72=1 73=3") << 30.0 << -10.0;
    }
    void justificationPlacesTheSecondPoint()
    {
        QFETCH(QByteArray, codes);
        QFETCH(double, centreX);
        QFETCH(double, bottom);
        const Box2 box = boxOf("TEXT 8=0 10=-90 20=-70 11=30 21=10 40=20 1=HH " + codes);
        QVERIFY2(isNear(box.centre().x, centreX), qPrintable(QString::number(box.centre().x)));
        QVERIFY2(isNear(box.minY, bottom), qPrintable(QString::number(box.minY)));
    }

    void rightJustifiedTextEndsAtItsPoint()
    {
        const Box2 box = boxOf("TEXT 8=0 10=-90 20=-70 11=30 21=10 40=20 72=2 1=HH");
        QVERIFY(box.maxX <= 30 + kTolerance && box.maxX > 26);
        QVERIFY(isNear(box.minY, 10));
    }

    void fitTextFillsTheSpanAtItsHeight()
    {
        const Box2 box = boxOf("TEXT 8=0 10=-60 20=0 11=60 21=0 40=20 72=5 1=HH");
        QVERIFY(box.minX > -60 && box.minX < -50);
        QVERIFY(box.maxX < 60 && box.maxX > 50);
        QVERIFY(isNear(box.maxY, 20));
    }

    void alignedTextKeepsItsProportions()
    {
        const Box2 small = boxOf("TEXT 8=0 10=-20 20=0 11=20 21=0 40=99 72=3 1=HH");
        const Box2 large = boxOf("TEXT 8=0 10=-40 20=0 11=40 21=0 40=99 72=3 1=HH");
        QVERIFY(isNear(large.height(), 2 * small.height()));
    }

    void percentCodesAreResolved()
    {
        const Box2 plain = boxOf("TEXT 8=0 10=0 20=0 40=20 1=HH");
        const Box2 underlined = boxOf("TEXT 8=0 10=0 20=0 40=20 1=%%uHH%%u");
        QVERIFY(isNear(plain.maxX, underlined.maxX));
    }

    void multilineTextHangsFromItsAttachment()
    {
        const Box2 top = boxOf("MTEXT 8=0 10=0 20=0 40=20 41=0 71=1 1=HH\\PHH");
        QVERIFY(isNear(top.maxY, 0));
        QVERIFY2(isNear(top.minY, -20 - 20 * 5 / 3.0), qPrintable(QString::number(top.minY)));
        const Box2 middle = boxOf("MTEXT 8=0 10=0 20=0 40=20 41=0 71=5 1=HH\\PHH");
        QVERIFY(isNear(middle.centre().x, 0) && isNear(middle.centre().y, 0));
        const Box2 right = boxOf("MTEXT 8=0 10=0 20=0 40=20 41=0 71=3 1=HH\\PHH");
        QVERIFY(right.maxX <= kTolerance);
    }

    void multilineTextWrapsAtItsWidth()
    {
        const Box2 loose = boxOf("MTEXT 8=0 10=-90 20=70 40=10 41=0 71=1 1=HHH~HHH~HHH");
        const Box2 tight = boxOf("MTEXT 8=0 10=-90 20=70 40=10 41=40 71=1 1=HHH~HHH~HHH");
        QVERIFY(loose.height() < 12);
        QVERIFY2(isNear(tight.height(), 10 + 2 * 10 * 5 / 3.0),
                 qPrintable(QString::number(tight.height())));
        QVERIFY(tight.width() < loose.width() / 2);
    }

    void multilineTextFollowsItsDirection()
    {
        const Box2 box = boxOf("MTEXT 8=0 10=0 20=0 40=20 41=0 71=1 11=0 21=1 31=0 1=HH");
        QVERIFY(isNear(box.minX, 0) && isNear(box.maxX, 20));
    }

    void longTextInChunksIsOneText()
    {
        const Box2 whole = boxOf("MTEXT 8=0 10=-90 20=0 40=10 41=0 71=1 1=HHHH");
        const Box2 chunks = boxOf("MTEXT 8=0 10=-90 20=0 40=10 41=0 71=1 3=HH 1=HH");
        QVERIFY(isNear(whole.maxX, chunks.maxX));
    }

    void embeddedObjectsDoNotOverrideTheText()
    {
        const Box2 plain = boxOf("MTEXT 8=0 10=0 20=0 40=20 41=0 71=1 1=HH");
        const Box2 newer =
            boxOf("MTEXT 8=0 10=0 20=0 40=20 41=0 71=1 1=HH 101=Embedded 70=1 10=1 20=0 "
                  "11=50 21=50 40=3 41=4 71=9");
        QVERIFY(isNear(plain.minX, newer.minX) && isNear(plain.maxX, newer.maxX));
        QVERIFY(isNear(plain.maxY, newer.maxY));
    }

    void textTooSmallToReadIsALine()
    {
        show(CanvasDrawing().add("TEXT 8=0 10=0 20=0 40=0.3 1=HHHHHHHHHHHHHHHHHHHHHHHHHHHHHHH"));
        const CanvasPicture seen = picture();
        QVERIFY(seen.isLit({4, 0.1}));
        QVERIFY(seen.litBox().height() <= 0.3);
    }

    void linesTooSmallToReadAreStrokesOneBelowTheOther()
    {
        show(CanvasDrawing().add(
            "MTEXT 8=0 10=0 20=0 40=0.4 41=0 71=1 44=3 1=HHHHHHHHHH\\PHHHHHHHHHH\\PHHHHHHHHHH"));
        const CanvasPicture seen = picture();
        for (const double y : {-0.2, -2.2, -4.2})
            QVERIFY(seen.isLit({2, y}));
        QVERIFY(!seen.isLit({2, -1.2}) && !seen.isLit({2, -3.2}) && !seen.isLit({2, -5.5}));
    }

    void blankTextsDoNotCountForExtents()
    {
        show(CanvasDrawing().add("TEXT 8=0 10=5000 20=0 40=20 1=~~\n"
                                 "MTEXT 8=0 10=0 20=5000 40=20 41=0 71=1 1=\\P~\n"
                                 "LINE 8=0 10=0 20=0 11=10 21=0"));
        canvas().zoomExtents();
        QVERIFY(canvas().view().scale() > 10);
        QCOMPARE(canvas().undrawnSummary(), QString());
    }

    void textInvisibleByItsLayerDoesNotCountForExtents()
    {
        show(CanvasDrawing()
                 .layer("Far", 7, 1)
                 .add("TEXT 8=Far 10=5000 20=0 40=20 1=HH\n"
                      "LINE 8=0 10=0 20=0 11=10 21=0"));
        canvas().zoomExtents();
        QVERIFY(canvas().view().scale() > 10);
    }
};

QTEST_MAIN(CanvasTexts)
#include "test_canvas_texts.moc"
