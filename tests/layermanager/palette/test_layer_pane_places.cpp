#include "PaneFixture.h"

#include <QLabel>
#include <QSplitter>
#include <QTest>

class TestLayerPanePlaces : public PaneFixture
{
    Q_OBJECT

private slots:
    void theControlsStandWhereTheyBelong();
    void hidingTheTreePutsTheListAtTheLeftEdge();
    void showingTheTreePutsTheListSevenPixelsRightOfIt();
    void theTreeKeepsItsWidthWhenThePaletteGrows();
    void theMiddleToolbarFollowsTheSplitter();
    void toolbarsNeverOverlapOnANarrowPalette();
    void theSearchKeepsItsWidths();
    void largeFontsAreNotClipped();
    void aHiddenTreeStaysHiddenInAnotherDrawing();

private:
    QRect list() const { return placeOf(part("layerList")); }
    QRect treePlace() const { return placeOf(&tree()); }
    QRect bar(int id) const { return placeOf(view()->toolbar(id)); }
    void drag(int by);
};

/// Drags the splitter's handle.
void TestLayerPanePlaces::drag(int by)
{
    auto* splitter = part<QSplitter>("layerSplitter");
    QWidget* handle = splitter->handle(1);
    const QPoint start = handle->rect().center();
    QTest::mousePress(handle, Qt::LeftButton, {}, start);
    QTest::mouseMove(handle, start + QPoint(by, 0));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, start);
}

void TestLayerPanePlaces::theControlsStandWhereTheyBelong()
{
    const QRect client = view()->rect();
    const QRect line = placeOf(part("currentLayer"));
    const QRect searchBox = placeOf(&box());
    const QRect button = placeOf(control(kSearchButton));
    QCOMPARE(line.topLeft(), QPoint(0, 0));
    QCOMPARE(searchBox.left(), line.right() + 1);
    QCOMPARE(button.left(), searchBox.right() + 1);
    QCOMPARE(button.right(), client.right());
    QVERIFY(line.height() == button.height() && searchBox.height() == button.height());
    for (const int id : {117, 110, 116})
        QCOMPARE(bar(id).top(), button.bottom() + 1);
    QCOMPARE(bar(117).left(), 0);
    QCOMPARE(bar(116).right(), client.right());
    const QRect status = placeOf(control(65535));
    QCOMPARE(status, QRect(0, client.height() - 25, client.width(), 25));
    const QRect splitter = placeOf(part("layerSplitter"));
    QCOMPARE(splitter.top(), bar(117).bottom() + 1);
    QCOMPARE(splitter.bottom() + 1, status.top());
    QCOMPARE(treePlace(), QRect(0, splitter.top(), 170, splitter.height() - 52));
    QCOMPARE(placeOf(&invert()), QRect(0, treePlace().bottom() + 1, 170, 20));
    QCOMPARE(list(), QRect(177, splitter.top(), client.width() - 177, splitter.height()));
    QCOMPARE(bar(110).left(), list().left());
}

void TestLayerPanePlaces::hidingTheTreePutsTheListAtTheLeftEdge()
{
    view()->ShowFilterTree(false);
    QVERIFY(!tree().isVisible() && !invert().isVisible());
    QCOMPARE(list().left(), 0);
    QCOMPARE(list().width(), view()->width());
    QCOMPARE(bar(110).left(), bar(117).right() + 1 + 10);
}

void TestLayerPanePlaces::showingTheTreePutsTheListSevenPixelsRightOfIt()
{
    view()->ShowFilterTree(false);
    view()->ShowFilterTree(true);
    QVERIFY(tree().isVisible() && invert().isVisible());
    QCOMPARE(treePlace().left(), 0);
    QCOMPARE(list().left(), treePlace().right() + 1 + 7);
    QCOMPARE(list().right(), view()->rect().right());
    QCOMPARE(treePlace().width(), 170);
}

void TestLayerPanePlaces::theTreeKeepsItsWidthWhenThePaletteGrows()
{
    const int before = view()->width();
    drag(40);
    QCOMPARE(treePlace().width(), 210);
    window().resize(window().width() - 200, window().height() - 100);
    settle();
    QVERIFY(view()->width() != before || view()->height() < 700);
    QCOMPARE(treePlace().width(), 210);
    QCOMPARE(list().right(), view()->rect().right());
}

void TestLayerPanePlaces::theMiddleToolbarFollowsTheSplitter()
{
    drag(60);
    QCOMPARE(list().left(), 237);
    QCOMPARE(bar(110).left(), 237);
    QCOMPARE(placeOf(&invert()).width(), 230);
    // No narrower than the box under the tree, which is shown whole.
    drag(-1000);
    QCOMPARE(invert().width(), std::max(60, invert().sizeHint().width()));
    QCOMPARE(bar(110).left(), std::max(list().left(), bar(117).right() + 1 + 10));
}

void TestLayerPanePlaces::toolbarsNeverOverlapOnANarrowPalette()
{
    for (int width = 355; width <= 700; width += 23) {
        view()->resize(width, 300);
        QVERIFY2(bar(110).left() >= bar(117).right() + 1 + 10, qPrintable(QString::number(width)));
        QVERIFY2(bar(116).left() > bar(110).right(), qPrintable(QString::number(width)));
        QVERIFY2(bar(110).width() >= view()->toolbar(110)->sizeHint().width(),
                 qPrintable(QString::number(width)));
    }
}

void TestLayerPanePlaces::theSearchKeepsItsWidths()
{
    const int boxWidth = box().width();
    const int buttonWidth = control(kSearchButton)->width();
    for (const int width : {355, 500, 1200}) {
        view()->resize(width, 300);
        QCOMPARE(box().width(), boxWidth);
        QCOMPARE(control(kSearchButton)->width(), buttonWidth);
        QCOMPARE(part("currentLayer")->width(), width - boxWidth - buttonWidth);
    }
}

void TestLayerPanePlaces::largeFontsAreNotClipped()
{
    QFont large = view()->font();
    large.setPointSize(28);
    view()->setFont(large);
    settle();
    QVERIFY(control(65535)->height() >= control(65535)->fontMetrics().height());
    QVERIFY(control(65535)->height() > 25);
    QVERIFY(invert().height() >= invert().sizeHint().height());
    QVERIFY(invert().height() > 20);
    QVERIFY(invert().width() >= invert().sizeHint().width());
    QVERIFY(invert().width() > 170);
    QCOMPARE(treePlace().width(), invert().width());
    QCOMPARE(list().left(), treePlace().right() + 1 + 7);
    QVERIFY(box().height() >= box().sizeHint().height());
    QVERIFY(part("currentLayer")->height() >= box().sizeHint().height());
    const QRect splitter = placeOf(part("layerSplitter"));
    QVERIFY(placeOf(&invert()).bottom() <= splitter.bottom());
    QCOMPARE(splitter.bottom() + 1, placeOf(control(65535)).top());
}

void TestLayerPanePlaces::aHiddenTreeStaysHiddenInAnotherDrawing()
{
    view()->ShowFilterTree(false);
    open({"Other"});
    QVERIFY(!tree().isVisible());
    QCOMPARE(listed(), texts({"0", "Other"}));
}

QTEST_MAIN(TestLayerPanePlaces)
#include "test_layer_pane_places.moc"
