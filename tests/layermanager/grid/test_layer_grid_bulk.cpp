#include "GridFixture.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/operations/LayerCommandTable.h"

#include <QSignalSpy>

using layer_drawing::read;
using enum LayerColumn;

namespace {

/// Counts the paint events of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget& widget)
        : m_widget(widget)
    {
        widget.installEventFilter(this);
    }
    /// The paint events so far, once everything that is posted was handled, and what that posted.
    int settled()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
        return m_count;
    }
    void restart()
    {
        settled();
        m_count = 0;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == &m_widget && event->type() == QEvent::Paint)
            ++m_count;
        return false;
    }

private:
    QWidget& m_widget;
    int m_count = 0;
};

} // namespace

/// Edits of twenty thousand selected rows.
class TestLayerGridBulk : public GridFixture
{
    Q_OBJECT

private slots:
    void areOneUndoRecordAndOneRepaint_data();
    void areOneUndoRecordAndOneRepaint();
    void eraseLayersWithOneChangeOfTheList();
    void selectRowsWithOneRepaint();

private:
    static constexpr int kLayers = 20000;
    /// Shows a drawing of "L00001" to "L20000" beside layer 0, without objects on them.
    void openLayers()
    {
        auto drawing = layer_drawing::make({});
        OdDbLayerTable& table = drawing->layerTable();
        for (int i = 1; i <= kLayers; ++i)
            table.add(table.newLayerState(QStringLiteral("L%1").arg(i, 5, 10, QLatin1Char('0'))));
        drawing->endUndoRecord();
        openDrawing(std::move(drawing));
    }
    int countOf(LayerColumn column, const QString& text) const
    {
        int count = 0;
        for (int row = 0; row < grid().model()->rowCount(); ++row) {
            const QModelIndex index = grid().model()->index(row, static_cast<int>(column));
            count += index.data(Qt::ToolTipRole).toString() == text ? 1 : 0;
        }
        return count;
    }
};

void TestLayerGridBulk::areOneUndoRecordAndOneRepaint_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("after");
    QTest::newRow("lock") << static_cast<int>(Locked) << "Locked";
    QTest::newRow("color") << static_cast<int>(Color) << "red";
    QTest::newRow("viewport freeze")
        << static_cast<int>(VpFreeze) << "Frozen in the active viewport";
    QTest::newRow("viewport color") << static_cast<int>(VpColor) << "red";
}

void TestLayerGridBulk::areOneUndoRecordAndOneRepaint()
{
    QFETCH(int, column);
    QFETCH(QString, after);
    openLayers();
    grid().resize(1600, 400);
    enterViewport();
    const auto edited = static_cast<LayerColumn>(column);
    host().pickedColor = OdCmColor::fromIndex(1);
    const int before = countOf(edited, after);
    grid().selectAll();
    db().endUndoRecord();
    PaintCounter paints(*grid().viewport());
    paints.restart();
    click("L00002", edited);
    QCOMPARE(paints.settled(), 1);
    QCOMPARE(countOf(edited, after), kLayers + 1);
    QCOMPARE(host().historyNames.size(), 1);
    QCOMPARE(grid().chosenRowCount(), kLayers + 1);
    QVERIFY(db().undo());
    QCOMPARE(countOf(edited, after), before);
}

void TestLayerGridBulk::eraseLayersWithOneChangeOfTheList()
{
    openLayers();
    QCOMPARE(grid().displayedCount(), kLayers + 1);
    db().endUndoRecord();
    grid().command(kSelectAllButCurrent);
    QSignalSpy listed(&grid(), &CLayerListCtrl::listChanged);
    PaintCounter paints(*grid().viewport());
    paints.restart();
    grid().command(kDeleteLayers);
    // The second one is for the room that the scroll bar leaves.
    QVERIFY(paints.settled() <= 2);
    QCOMPARE(grid().displayedCount(), 1);
    QCOMPARE(listed.size(), 1);
    QVERIFY(db().undo());
    QCOMPARE(db().layerTable().count(), kLayers + 1);
}

void TestLayerGridBulk::selectRowsWithOneRepaint()
{
    openLayers();
    PaintCounter paints(*grid().viewport());
    paints.restart();
    grid().command(kSelectAllButCurrent);
    QCOMPARE(paints.settled(), 1);
    QCOMPARE(grid().chosenRowCount(), kLayers);
}

QTEST_MAIN(TestLayerGridBulk)
#include "test_layer_grid_bulk.moc"
