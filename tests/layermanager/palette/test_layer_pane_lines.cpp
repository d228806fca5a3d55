#include "PaneFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>

class TestLayerPaneLines : public PaneFixture
{
    Q_OBJECT

private slots:
    void theStatusSaysAllWithoutASelectedNode();
    void theTotalCountsEveryLayerWhateverFilterAndSearch();
    void theStatusHasTheFontOfTheCurrentLayersLine();
    void aStatusThatDoesNotFitEndsInAnEllipsis();
    void aNameWithLineEndsStaysInTheStatusLine();
    void aDescriptionOfAnyLengthIsShown();
    void theLineShowsTheNameAloneWithoutADescription();
    void theLineShowsTheDescriptionBehindTheName();
    void theLineFollowsTheCurrentLayer();
    void theLineFollowsARename();
    void theLineFollowsALayerThatIsNotListed();
    void theLineFollowsTheDrawing();
    void theLineIsForReadingOnly();
    void bothAreEmptyWithoutADrawing();
};

void TestLayerPaneLines::theStatusSaysAllWithoutASelectedNode()
{
    click("All used layers");
    QVERIFY(statusText().startsWith(QStringLiteral(" All used layers : ")));
    tree().setCurrentIndex({});
    view()->UpdateStatusLine();
    QVERIFY(statusText().startsWith(QStringLiteral(" All : ")));
}

void TestLayerPaneLines::theTotalCountsEveryLayerWhateverFilterAndSearch()
{
    QCOMPARE(statusText(), QStringLiteral(" All : 5 layers displayed of 5 total layers"));
    search("w");
    QCOMPARE(statusText(), QStringLiteral(" All : 2 layers displayed of 5 total layers"));
    addGroup("Group", {"Walls", "Roof"});
    click("Group");
    QCOMPARE(statusText(), QStringLiteral(" Group : 1 layers displayed of 5 total layers"));
    // So does one that goes without being listed.
    layer("Doors")->erase();
    settle();
    QCOMPARE(statusText(), QStringLiteral(" Group : 1 layers displayed of 4 total layers"));
}

void TestLayerPaneLines::theStatusHasTheFontOfTheCurrentLayersLine()
{
    QFont font = view()->font();
    font.setPointSize(font.pointSize() + 7);
    part<QLineEdit>("currentLayer")->setFont(font);
    view()->UpdateStatusLine();
    QCOMPARE(part<QLabel>("statusLine")->font(), font);
}

void TestLayerPaneLines::aStatusThatDoesNotFitEndsInAnEllipsis()
{
    const QString whole = statusText();
    auto* line = part<QLabel>("statusLine");
    QCOMPARE(line->toolTip(), QString());
    QCOMPARE(line->accessibleDescription(), whole.trimmed());
    view()->setParent(nullptr);
    view()->resize(120, 300);
    view()->show();
    QVERIFY(statusText().endsWith(QChar(0x2026)));
    QVERIFY(line->sizeHint().width() <= line->width());
    QVERIFY(line->toolTip().contains(whole.trimmed()));
    QCOMPARE(line->accessibleDescription(), whole.trimmed());
    QTest::keyClicks(&box(), QStringLiteral("w*"));
    QVERIFY(line->toolTip().contains(QStringLiteral("2 layers displayed of 5 total layers")));
    view()->resize(900, 300);
    QCOMPARE(statusText(), QStringLiteral(" All : 2 layers displayed of 5 total layers"));
    QCOMPARE(line->toolTip(), QString());
    view()->hide();
    view()->setParent(&window());
}

void TestLayerPaneLines::aNameWithLineEndsStaysInTheStatusLine()
{
    addGroup("A\nB\t%1 &C<b>", {"Walls"});
    click("A\nB\t%1 &C<b>");
    QCOMPARE(statusText(), QStringLiteral(" A B %1 &C<b> : 1 layers displayed of 5 total layers"));
    const auto* line = part<QLabel>("statusLine");
    QVERIFY(line->sizeHint().height() <= line->height());
}

void TestLayerPaneLines::aDescriptionOfAnyLengthIsShown()
{
    layer("0")->setDescription(QString(100000, QLatin1Char('x')) + QStringLiteral("<b>"));
    QVERIFY(currentLine().startsWith(QStringLiteral("Current Layer: 0: xxx")));
    const QString toolTip = part("currentLayer")->toolTip();
    QVERIFY(toolTip.contains(QStringLiteral("xxx")));
    QVERIFY(toolTip.size() < 3000);
}

void TestLayerPaneLines::theLineShowsTheNameAloneWithoutADescription()
{
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: 0"));
}

void TestLayerPaneLines::theLineShowsTheDescriptionBehindTheName()
{
    layer("0")->setDescription(QStringLiteral("For blocks"));
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: 0: For blocks"));
    QVERIFY(part("currentLayer")->toolTip().contains(QStringLiteral("For blocks")));
    layer("0")->setDescription(QString());
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: 0"));
}

void TestLayerPaneLines::theLineFollowsTheCurrentLayer()
{
    OdDbDatabase& d = *view()->database();
    d.setCLAYER(layer_drawing::id(d, "Walls"));
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: Walls"));
    choose({"Roof"});
    clickTool(40003);
    QCOMPARE(d.getCLAYER(), layer_drawing::id(d, "Roof"));
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: Roof"));
    d.undo();
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: Walls"));
}

void TestLayerPaneLines::theLineFollowsARename()
{
    OdDbDatabase& d = *view()->database();
    d.setCLAYER(layer_drawing::id(d, "Walls"));
    layer("Walls")->setName(QStringLiteral("Brick"));
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: Brick"));
}

void TestLayerPaneLines::theLineFollowsALayerThatIsNotListed()
{
    search("w");
    QVERIFY(!listed().contains(QStringLiteral("0")));
    layer("0")->setDescription(QStringLiteral("Hidden"));
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: 0: Hidden"));
    OdDbDatabase& d = *view()->database();
    d.setCLAYER(layer_drawing::id(d, "Doors"));
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: Doors"));
}

void TestLayerPaneLines::theLineFollowsTheDrawing()
{
    OdDbDatabase& first = *view()->database();
    first.setCLAYER(layer_drawing::id(first, "Walls"));
    open({"Other"});
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: 0"));
    host().setCurrent(first);
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: Walls"));
}

void TestLayerPaneLines::theLineIsForReadingOnly()
{
    auto* line = part<QLineEdit>("currentLayer");
    QVERIFY(line->isEnabled());
    QVERIFY(line->isReadOnly());
    QTest::mouseClick(line, Qt::LeftButton);
    QTest::keyClicks(line, QStringLiteral("abc"));
    QCOMPARE(currentLine(), QStringLiteral("Current Layer: 0"));
}

void TestLayerPaneLines::bothAreEmptyWithoutADrawing()
{
    host().close(*view()->database());
    host().close(db());
    QVERIFY(!view()->database());
    QCOMPARE(statusText(), QString());
    QCOMPARE(currentLine(), QString());
    for (const char* name : {"statusLine", "currentLayer"}) {
        QCOMPARE(part(name)->toolTip(), QString());
        QCOMPARE(part(name)->accessibleDescription(), QString());
    }
}

QTEST_MAIN(TestLayerPaneLines)
#include "test_layer_pane_lines.moc"
