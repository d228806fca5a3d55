#include "LayerDrawing.h"
#include "layermanager/layers/LayerListModel.h"
#include "support/FakeHost.h"
#include "support/GuardedTest.h"

#include <QAbstractItemModelTester>
#include <QItemSelectionModel>
#include <QSignalSpy>
#include <QTest>

using layer_drawing::id;
using layer_drawing::write;
using enum LayerColumn;

class TestLayerListModel : public GuardedTest
{
    Q_OBJECT

private slots:
    void keepsTheRulesOfModelsThroughEveryChange();
    void readsCellsWhenAsked();
    void keepsTheTextsOfAnErasedLayersRow();
    void hasNoViewportTextsInModelSpace();
    void showsViewportValuesInALayout();
    void saysStatesInWords();
    void givesTheHeadersOfTheColumns();
    void refreshesOnlyRowsWhoseLayerOpens();
    void takesTheSelectionAlongWhenItReorders();
    void countsNewLayersAsUnusedUntilTheNextFullRefresh();

protected:
    void prepare() override
    {
        m_host = std::make_unique<FakeHost>();
        m_database = &m_host->open(layer_drawing::make({{"Walls"}, {"Doors"}, {"Roof"}}));
    }
    void finish() override { m_host.reset(); }

private:
    void list(LayerListModel& model) const
    {
        model.setContext(LayerCellContext::of(*m_database));
        model.reset(m_database->layerTable().records(), {});
    }
    static QString text(const LayerListModel& model, int row, LayerColumn column,
                        int role = Qt::DisplayRole)
    {
        return model.index(row, static_cast<int>(column)).data(role).toString();
    }
    OdDbObjectId firstViewport() const
    {
        return m_database->getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport));
    }

    std::unique_ptr<FakeHost> m_host;
    OdDbDatabase* m_database = nullptr;
};

void TestLayerListModel::keepsTheRulesOfModelsThroughEveryChange()
{
    LayerListModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    list(model);
    QCOMPARE(model.rowCount(), 4);
    QCOMPARE(model.columnCount(), 17);
    model.removeLayer(1);
    model.insertLayer(id(*m_database, "Doors"), 3);
    model.insertLayer(id(*m_database, "Doors"), 0);
    model.reorder({Name, false});
    model.refreshAll();
    QVERIFY(model.refreshRow(0, id(*m_database, "Walls")));
    model.reset({}, {});
    QCOMPARE(model.rowCount(), 0);
    model.refreshAll();
}

void TestLayerListModel::readsCellsWhenAsked()
{
    LayerListModel model;
    list(model);
    QCOMPARE(text(model, 3, Name), QStringLiteral("Walls"));
    write(*m_database, "Walls")->setDescription(QStringLiteral("north side"));
    write(*m_database, "Walls")->setColor(OdCmColor::fromIndex(3));
    write(*m_database, "Walls")->setLineWeight(50);
    QCOMPARE(text(model, 3, Description), QStringLiteral("north side"));
    QCOMPARE(text(model, 3, Color), QStringLiteral("green"));
    QCOMPARE(text(model, 3, Lineweight), QStringLiteral("0.50 mm"));
    QCOMPARE(text(model, 3, Linetype), QStringLiteral("Continuous"));
    QCOMPARE(text(model, 3, PlotStyle), QStringLiteral("Color_3"));
    QCOMPARE(text(model, 3, Plot), QStringLiteral("Plotted"));
    QCOMPARE(text(model, 3, On), QString());
    QVERIFY(!model.index(9, 0).isValid());
}

void TestLayerListModel::keepsTheTextsOfAnErasedLayersRow()
{
    LayerListModel model;
    list(model);
    write(*m_database, "Walls")->erase();
    QCOMPARE(text(model, 3, Name), QStringLiteral("Walls"));
    QVERIFY(!model.refreshRow(3, model.layerId(3)));
}

void TestLayerListModel::hasNoViewportTextsInModelSpace()
{
    LayerListModel model;
    list(model);
    for (const LayerColumn column : {VpFreeze, VpColor, VpLinetype, VpLineweight, VpPlotStyle}) {
        QCOMPARE(text(model, 3, column), QString());
        QCOMPARE(text(model, 3, column, Qt::ToolTipRole), QString());
    }
}

void TestLayerListModel::showsViewportValuesInALayout()
{
    m_database->setCTAB(QStringLiteral("Sheet A"));
    m_database->setActiveViewport(firstViewport());
    LayerListModel model;
    list(model);
    QCOMPARE(text(model, 3, VpColor), QStringLiteral("white"));
    QCOMPARE(text(model, 3, VpLinetype), QStringLiteral("Continuous"));
    QCOMPARE(text(model, 3, VpLineweight), QStringLiteral("Default"));
    QCOMPARE(text(model, 3, VpPlotStyle), QStringLiteral("Color_7"));
    // The drawing's first layer beside 0 is frozen in that viewport.
    QCOMPARE(text(model, 3, VpFreeze, Qt::ToolTipRole),
             QStringLiteral("Frozen in the active viewport"));
    QCOMPARE(text(model, 1, VpFreeze, Qt::ToolTipRole),
             QStringLiteral("Thawed in the active viewport"));
}

void TestLayerListModel::saysStatesInWords()
{
    LayerListModel model;
    list(model);
    write(*m_database, "Doors")->setIsOff(true);
    write(*m_database, "Doors")->setIsFrozen(true);
    const int doors = model.rowOf(id(*m_database, "Doors"));
    QCOMPARE(text(model, doors, On, Qt::AccessibleTextRole), QStringLiteral("On: no"));
    QCOMPARE(text(model, doors, Freeze, Qt::AccessibleTextRole), QStringLiteral("Frozen: yes"));
    QCOMPARE(text(model, doors, Locked, Qt::ToolTipRole), QStringLiteral("Unlocked"));
    QCOMPARE(text(model, doors, Name, Qt::ToolTipRole), QStringLiteral("Doors"));
    QCOMPARE(text(model, 0, Status, Qt::ToolTipRole), QStringLiteral("Current layer"));
}

void TestLayerListModel::givesTheHeadersOfTheColumns()
{
    const LayerListModel model;
    for (int i = 0; i < kLayerColumnCount; ++i) {
        const QString expected = layerColumns()[static_cast<std::size_t>(i)].headerText();
        QCOMPARE(model.headerData(i, Qt::Horizontal, Qt::DisplayRole).toString(), expected);
        QCOMPARE(model.headerData(i, Qt::Horizontal, Qt::ToolTipRole).toString(), expected);
    }
    QVERIFY(!model.headerData(17, Qt::Horizontal, Qt::DisplayRole).isValid());
}

void TestLayerListModel::refreshesOnlyRowsWhoseLayerOpens()
{
    LayerListModel model;
    list(model);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QVERIFY(model.refreshRow(2, model.layerId(2)));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed[0][0].toModelIndex(), model.index(2, 0));
    QCOMPARE(changed[0][1].toModelIndex(), model.index(2, 16));
    QVERIFY(!model.refreshRow(2, OdDbObjectId()));
    QVERIFY(!model.refreshRow(-1, model.layerId(2)));
    QVERIFY(!model.refreshRow(4, model.layerId(2)));
    QCOMPARE(changed.size(), 1);
}

void TestLayerListModel::takesTheSelectionAlongWhenItReorders()
{
    LayerListModel model;
    list(model);
    QItemSelectionModel selection(&model);
    selection.select(QItemSelection(model.index(0, 0), model.index(0, 16)),
                     QItemSelectionModel::Select);
    selection.select(QItemSelection(model.index(2, 0), model.index(2, 16)),
                     QItemSelectionModel::Select);
    selection.setCurrentIndex(model.index(2, 4), QItemSelectionModel::NoUpdate);
    model.reorder({Name, false});
    QCOMPARE(selection.selectedRows().size(), 2);
    QVERIFY(selection.isRowSelected(3));
    QVERIFY(selection.isRowSelected(1));
    QCOMPARE(selection.currentIndex(), model.index(1, 4));
}

void TestLayerListModel::countsNewLayersAsUnusedUntilTheNextFullRefresh()
{
    m_host->ints[QStringLiteral("SHOWLAYERUSAGE")] = 1;
    m_database->layerTable().generateUsageData();
    LayerListModel model;
    list(model);
    const OdDbObjectId walls = id(*m_database, "Walls");
    const auto status = [&] { return model.status(*walls.openObject<OdDbLayerTableRecord>()); };
    QCOMPARE(status(), LayerStatus::InUse);
    model.markAsNew(walls);
    QCOMPARE(status(), LayerStatus::NotInUse);
    model.refreshAll();
    QCOMPARE(status(), LayerStatus::InUse);
}

QTEST_MAIN(TestLayerListModel)
#include "test_layer_list_model.moc"
