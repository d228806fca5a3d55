#include "GridFixture.h"
#include "layermanager/LayerDrawing.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>

#include <stdexcept>

using layer_drawing::write;
using enum LayerColumn;

class TestLayerGridColumns : public GridFixture
{
    Q_OBJECT

private slots:
    void keepsARecordPerColumn();
    void refusesColumnsThatDoNotExist();
    void hidesTheViewportColumnsInModelSpace();
    void bringsViewportColumnsBackAtTheirWidths();
    void keepsWidthsThroughFills();
    void leavesItsWidthsToTheNextGrid();
    void passesOverKeptWidthsThatMakeNoSense();
    void stretchesTheDescription();
    void fitsAColumnToItsContents();
    void explainsCellsThatAreTooNarrow();

    void sortsByAClickedHeader();
    void sortsByAnotherHeaderFromTheTop();
    void keepsTheOrderThroughFills();
    void keepsTheSelectionWhenItSorts();
    void marksTheSortedColumn();

private:
    int width(LayerColumn column) const { return grid().columnWidth(static_cast<int>(column)); }
    const ListCtrlColumnData& column(LayerColumn column) const
    {
        return grid().columnData(static_cast<int>(column));
    }
    static constexpr LayerColumn kViewportColumns[] = {VpFreeze, VpColor, VpLinetype, VpLineweight,
                                                       VpPlotStyle};
};

// Columns

void TestLayerGridColumns::keepsARecordPerColumn()
{
    for (const LayerColumnInfo& info : layerColumns()) {
        const ListCtrlColumnData& data = column(info.column);
        QCOMPARE(data.identifier, info.identifier);
        QCOMPARE(data.header, info.headerText());
        QCOMPARE(data.width, info.width);
        QCOMPARE(data.subItem, static_cast<int>(info.column));
        QCOMPARE(data.displayOrder, info.layoutsOnly ? -1 : data.subItem);
        QCOMPARE(data.shown, !info.layoutsOnly);
        if (info.column != Description)
            QCOMPARE(width(info.column), info.layoutsOnly ? 0 : info.width);
    }
}

void TestLayerGridColumns::refusesColumnsThatDoNotExist()
{
    for (const int number : {-1, 17}) {
        QVERIFY_EXCEPTION_THROWN(grid().columnData(number), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(grid().showGridColumn(number), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(grid().hideGridColumn(number), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(grid().columnClicked(number), std::invalid_argument);
    }
}

void TestLayerGridColumns::hidesTheViewportColumnsInModelSpace()
{
    for (const LayerColumn number : kViewportColumns)
        QCOMPARE(width(number), 0);
    QCOMPARE(width(NewVpFreeze), 50);
    db().setCTAB(QStringLiteral("Sheet A"));
    for (const LayerColumn number : kViewportColumns) {
        QCOMPARE(width(number), 50);
        QVERIFY(column(number).shown);
        QCOMPARE(column(number).displayOrder, static_cast<int>(number));
    }
    QCOMPARE(width(NewVpFreeze), 50);
    QCOMPARE(cell("Walls", VpColor), QStringLiteral("white"));
}

void TestLayerGridColumns::bringsViewportColumnsBackAtTheirWidths()
{
    db().setTILEMODE(false);
    grid().setColumnWidth(static_cast<int>(VpColor), 83);
    grid().setColumnWidth(static_cast<int>(VpPlotStyle), 61);
    db().setTILEMODE(true);
    QCOMPARE(width(VpColor), 0);
    QCOMPARE(column(VpColor).width, 83);
    QCOMPARE(column(VpColor).displayOrder, -1);
    QVERIFY(!column(VpColor).shown);
    grid().fill(&db());
    QCOMPARE(width(VpColor), 0);
    db().setTILEMODE(false);
    QCOMPARE(width(VpColor), 83);
    QCOMPARE(width(VpPlotStyle), 61);
    QCOMPARE(width(VpFreeze), 50);
}

void TestLayerGridColumns::keepsWidthsThroughFills()
{
    grid().setColumnWidth(static_cast<int>(Name), 177);
    grid().fill(&db());
    QCOMPARE(width(Name), 177);
    openLayers({"Other"});
    QCOMPARE(width(Name), 177);
    QCOMPARE(column(Name).width, 177);
}

void TestLayerGridColumns::leavesItsWidthsToTheNextGrid()
{
    const QString key = QStringLiteral("Test/Widths");
    {
        CLayerListCtrl first;
        first.keepWidthsAs(key);
        QVERIFY(first.fill(&db()));
        first.horizontalHeader()->resizeSection(static_cast<int>(Name), 333);
    }
    CLayerListCtrl second;
    second.keepWidthsAs(key);
    QVERIFY(second.fill(&db()));
    QCOMPARE(second.columnWidth(static_cast<int>(Name)), 333);
    QCOMPARE(second.columnData(static_cast<int>(Color)).width, column(Color).width);
    // A grid that was never filled has nothing to say.
    const QByteArray kept = host().userStates.value(key);
    {
        CLayerListCtrl empty;
        empty.keepWidthsAs(key);
    }
    QCOMPARE(host().userStates.value(key), kept);
}

void TestLayerGridColumns::passesOverKeptWidthsThatMakeNoSense()
{
    const QString key = QStringLiteral("Test/Widths");
    const QByteArray name = QByteArray::number(column(Name).identifier);
    for (const QByteArray& kept : {QByteArray(":"), QByteArray("x:y 99:50 ") + name, name + ":-3",
                                   name + ":0", name + ":99999999999", QByteArray(5000, ':')})
    {
        host().userStates.insert(key, kept);
        CLayerListCtrl grid;
        grid.keepWidthsAs(key);
        QVERIFY(grid.fill(&db()));
        QCOMPARE(grid.columnWidth(static_cast<int>(Name)), column(Name).width);
    }
}

void TestLayerGridColumns::stretchesTheDescription()
{
    QVERIFY(width(Description) > 50);
    QCOMPARE(grid().horizontalHeader()->length(), grid().viewport()->width());
    const int before = width(Description);
    grid().setColumnWidth(static_cast<int>(Name), width(Name) + 40);
    QCOMPARE(width(Description), before - 40);
    grid().resize(300, 300);
    QCOMPARE(width(Description), 50);
    QCOMPARE(column(Description).width, 50);
}

void TestLayerGridColumns::fitsAColumnToItsContents()
{
    openLayers({"A layer with a name of some length"});
    write(db(), "A layer with a name of some length")->setLineWeight(100);
    grid().resizeColumnToContents(static_cast<int>(Name));
    QVERIFY(width(Name) > grid().fontMetrics().horizontalAdvance(
                QStringLiteral("A layer with a name of some length")));
    QCOMPARE(column(Name).width, width(Name));
    grid().resizeColumnToContents(static_cast<int>(Lineweight));
    QVERIFY(width(Lineweight) > 50);
    grid().resizeColumnToContents(static_cast<int>(On));
    QVERIFY(width(On) < 50);
}

void TestLayerGridColumns::explainsCellsThatAreTooNarrow()
{
    const auto pointAt = [this](LayerColumn number) {
        const QModelIndex index = grid().model()->index(row("Walls"), static_cast<int>(number));
        const QPoint point = grid().visualRect(index).center();
        QHelpEvent event(QEvent::ToolTip, point, grid().viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(grid().viewport(), &event);
    };
    pointAt(Linetype);
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), QStringLiteral("Continuous"));
    pointAt(Name);
    QTRY_VERIFY(!QToolTip::isVisible());
    const QString text =
        QStringLiteral("<b>no</b> mark-up, %1").arg(QString(300, QLatin1Char('x')));
    write(db(), "Walls")->setDescription(text);
    pointAt(Description);
    QCOMPARE(QToolTip::text(), text.toHtmlEscaped());
    pointAt(Locked);
    QCOMPARE(QToolTip::text(), QStringLiteral("Unlocked"));
    grid().setColumnWidth(static_cast<int>(Linetype), 200);
    pointAt(Linetype);
    QTRY_VERIFY(!QToolTip::isVisible());
    QCOMPARE(
        grid().model()->headerData(static_cast<int>(NewVpFreeze), Qt::Horizontal, Qt::ToolTipRole),
        QVariant(QStringLiteral("New VPFreeze")));
}

// Sorting

void TestLayerGridColumns::sortsByAClickedHeader()
{
    clickHeader(Name);
    QCOMPARE(rows(), QStringLiteral("Walls Roof Doors Beams 0"));
    clickHeader(Name);
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
}

void TestLayerGridColumns::sortsByAnotherHeaderFromTheTop()
{
    write(db(), "Doors")->setIsLocked(true);
    clickHeader(Name);
    clickHeader(Locked);
    QCOMPARE(rows(), QStringLiteral("0 Beams Roof Walls Doors"));
    clickHeader(Locked);
    QCOMPARE(rows(), QStringLiteral("Doors 0 Beams Roof Walls"));
    clickHeader(Name);
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
}

void TestLayerGridColumns::keepsTheOrderThroughFills()
{
    clickHeader(Name);
    grid().fillFromList({layer("Beams"), layer("Walls"), layer("Doors")});
    QCOMPARE(rows(), QStringLiteral("Walls Doors Beams"));
    grid().fill(&db());
    QCOMPARE(rows(), QStringLiteral("Walls Roof Doors Beams 0"));
}

void TestLayerGridColumns::keepsTheSelectionWhenItSorts()
{
    grid().chooseRows({row("Beams"), row("Walls")});
    grid().focusCell(row("Beams"), 3);
    clickHeader(Name);
    QCOMPARE(chosen(), QStringLiteral("Walls Beams"));
    QCOMPARE(grid().currentIndex().row(), row("Beams"));
}

void TestLayerGridColumns::marksTheSortedColumn()
{
    const QHeaderView* header = grid().horizontalHeader();
    QVERIFY(header->isSortIndicatorShown());
    QCOMPARE(header->sortIndicatorSection(), 1);
    QCOMPARE(header->sortIndicatorOrder(), Qt::AscendingOrder);
    clickHeader(Locked);
    QCOMPARE(header->sortIndicatorSection(), 4);
    QCOMPARE(header->sortIndicatorOrder(), Qt::AscendingOrder);
    clickHeader(Locked);
    QCOMPARE(header->sortIndicatorOrder(), Qt::DescendingOrder);
}

QTEST_MAIN(TestLayerGridColumns)
#include "test_layer_grid_columns.moc"
