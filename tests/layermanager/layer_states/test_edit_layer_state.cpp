#include "StateDialogFixture.h"
#include "database/states/LayerStateDictionary.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layer_states/CEdLayStateDlg.h"
#include "layermanager/layer_states/CLayStateMgrAddDlg.h"
#include "layermanager/layer_states/parts/CEdLayStateListCtrl.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QListView>

#include <algorithm>

using layer_drawing::id;
using layer_drawing::write;
using Dlg = CEdLayStateDlg;
using enum StateLayerColumn;

class TestEditLayerState : public StateDialogFixture
{
    Q_OBJECT

private slots:
    void theTenColumnsHaveTitlesAndIdentifiers();
    void rowsShowTheSavedSettings();
    void aClickOnAFlagTogglesIt_data();
    void aClickOnAFlagTogglesIt();
    void theCurrentLayerIsNotFrozen();
    void withoutACurrentLayerFreezeDoesNothing();
    void namesAndPlotStylesAreNotChanged();
    void valuesComeFromTheHostsDialogs();
    void aCancelledHostDialogLeavesTheRecord();
    void spaceClicksTheCellAndShiftOnlySelects();
    void layersAreAddedAsTheyAre();
    void withAllLayersInTheStateNothingIsOffered();
    void aLayerInOtherCaseIsOffered();
    void removalGoesByPositionPastHiddenRecords();
    void severalLayersAreRemovedAtOnce();
    void okWritesTheStateAndTellsWhetherItIsTheDrawing();
    void cancelWritesNothing();
    void aLayerErasedMeanwhileLosesItsRow();
    void oddValuesOfOtherProgramsAreShownAndKept();
    void helpAndHintsAreThere();
    void aStateOfTenThousandLayersIsEditedWithoutDelay();

private:
    std::unique_ptr<Dlg> m_dialog;

    void finish() override
    {
        m_dialog.reset();
        StateDialogFixture::finish();
    }
    CEdLayStateListCtrl& open(const char* state)
    {
        m_dialog = std::make_unique<Dlg>(QString::fromUtf8(state));
        m_dialog->show();
        m_dialog->activateWindow();
        if (!QTest::qWaitForWindowActive(m_dialog.get()))
            reportTestFailure(QStringLiteral("The dialog does not become active."));
        return m_dialog->list();
    }
    CEdLayStateListCtrl& list() const { return m_dialog->list(); }
    int rowOf(const char* layer) const
    {
        for (int row = 0; row < list().layerModel().rowCount(); ++row) {
            if (list().layerModel().layer(row).name == QString::fromUtf8(layer))
                return row;
        }
        return -1;
    }
    const LayerInfoInLS& record(const char* layer) const
    {
        return list().layerModel().layer(rowOf(layer));
    }
    QString cell(const char* layer, StateLayerColumn column) const
    {
        return list().model()->index(rowOf(layer), int(column)).data().toString();
    }
    void click(const char* layer, StateLayerColumn column, Qt::KeyboardModifiers modifiers = {})
    {
        const QModelIndex index = list().model()->index(rowOf(layer), int(column));
        list().scrollTo(index);
        QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers,
                          list().visualRect(index).center());
    }
    QStringList names() const
    {
        QStringList all;
        for (const LayerInfoInLS& layer : list().layers())
            all.append(layer.name);
        return all;
    }
    QStringList storedNames(const char* state) const
    {
        std::vector<LayerInfoInLS> layers;
        service().SetLayersInLS(QString::fromUtf8(state), layers);
        QStringList all;
        for (const LayerInfoInLS& layer : layers)
            all.append(layer.name);
        return all;
    }
    void removeFromState(const char* state, const QStringList& layerNames) const
    {
        CLayerStateUtility states = service();
        std::vector<LayerInfoInLS> layers;
        QVERIFY(states.SetLayersInLS(QString::fromUtf8(state), layers));
        std::erase_if(layers,
                      [&](const LayerInfoInLS& layer) { return layerNames.contains(layer.name); });
        QVERIFY(states.UpdateLayerStateInfo(QString::fromUtf8(state), layers));
    }
};

void TestEditLayerState::theTenColumnsHaveTitlesAndIdentifiers()
{
    addState("A");
    open("A");
    QStringList columns;
    for (const ListCtrlColumnData& column : list().columnRecords()) {
        columns.append(column.header + QLatin1Char(' ') + QString::number(column.identifier));
        QVERIFY(column.width >= (column.subItem == 0 ? 100 : 50));
        QCOMPARE(list().columnWidth(column.subItem), column.width);
        QVERIFY(column.width >= list().horizontalHeader()->sectionSizeHint(column.subItem));
    }
    QCOMPARE(columns.join(QLatin1Char('|')),
             QStringLiteral("Layer Name 102|On 105|Freeze 107|Locked 106|Color 103|Linetype 104|"
                            "Lineweight 108|Plot Style 109|Plot 110|New VPFreeze 112"));
    QVERIFY(m_dialog->windowTitle().endsWith(QStringLiteral(": A")));
}

void TestEditLayerState::rowsShowTheSavedSettings()
{
    write(db(), "Doors")->setColor(OdCmColor::fromIndex(1));
    write(db(), "Doors")->setLineWeight(25);
    write(db(), "Doors")
        ->setLinetypeObjectId(db().table(OdDbTableKind::Linetype).getAt(QStringLiteral("DASHED")));
    addState("A");
    write(db(), "Doors")->setColor(OdCmColor::fromIndex(3));
    write(db(), "Walls")->setName(QStringLiteral("Walls now"));
    open("A");
    QCOMPARE(cell("Doors", Color), QStringLiteral("red"));
    QCOMPARE(cell("Doors", Linetype).toUpper(), QStringLiteral("DASHED"));
    QCOMPARE(cell("Doors", Lineweight), QStringLiteral("0.25 mm"));
    QVERIFY(rowOf("Walls now") >= 0);
    QCOMPARE(names().size(), 4);
}

void TestEditLayerState::aClickOnAFlagTogglesIt_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<quint32>("flag");
    QTest::newRow("on") << int(On) << 0x01U;
    QTest::newRow("freeze") << int(Freeze) << 0x02U;
    QTest::newRow("locked") << int(Locked) << 0x04U;
    QTest::newRow("plot") << int(Plot) << 0x08U;
    QTest::newRow("new viewport") << int(NewVpFreeze) << 0x10U;
}

void TestEditLayerState::aClickOnAFlagTogglesIt()
{
    QFETCH(int, column);
    QFETCH(quint32, flag);
    addState("A");
    open("A");
    const quint32 before = record("Doors").flags;
    const quint32 other = record("Roof").flags;
    click("Doors", StateLayerColumn(column));
    QCOMPARE(record("Doors").flags, before ^ flag);
    click("Doors", StateLayerColumn(column));
    QCOMPARE(record("Doors").flags, before);
    QCOMPARE(record("Roof").flags, other);
    QVERIFY(list().isRowChosen(rowOf("Doors")));
}

void TestEditLayerState::theCurrentLayerIsNotFrozen()
{
    addState("A");
    db().setCLAYER(id(db(), "Walls"));
    open("A");
    const quint32 before = record("Walls").flags;
    prompts().willCloseMessage();
    click("Walls", Freeze);
    QCOMPARE(prompts().asked().last().text, QStringLiteral("Cannot freeze the current layer"));
    QCOMPARE(prompts().asked().last().caption, QStringLiteral("layer State Manager"));
    QCOMPARE(record("Walls").flags, before);
}

void TestEditLayerState::withoutACurrentLayerFreezeDoesNothing()
{
    addState("A");
    open("A");
    host().unreadable.insert(QStringLiteral("CLAYER"));
    const quint32 before = record("Doors").flags;
    click("Doors", Freeze);
    QCOMPARE(record("Doors").flags, before);
}

void TestEditLayerState::namesAndPlotStylesAreNotChanged()
{
    addState("A");
    open("A");
    click("Doors", Name);
    click("Doors", PlotStyle);
    QVERIFY(host().pickRequests.empty());
    QCOMPARE(list().editor(), nullptr);
    QVERIFY(list().isRowChosen(rowOf("Doors")));
}

void TestEditLayerState::valuesComeFromTheHostsDialogs()
{
    addState("A");
    open("A");
    host().pickedColor = OdCmColor::fromIndex(5);
    host().pickedLinetype = QStringLiteral("DASHED");
    host().pickedLineweight = 70;
    click("Doors", Color);
    click("Doors", Linetype);
    click("Doors", Lineweight);
    QCOMPARE(host().pickStarts.size(), 3);
    QCOMPARE(record("Doors").color, 5);
    QCOMPARE(cell("Doors", Color), QStringLiteral("blue"));
    QCOMPARE(cell("Doors", Linetype).toUpper(), QStringLiteral("DASHED"));
    QCOMPARE(record("Doors").lineWeight, 70);
    press(*m_dialog, Dlg::kOk);
    CLayerStateUtility states = service();
    QVERIFY(states.RestoreLayState(QStringLiteral("A"), 0x7FF, 0));
    QCOMPARE(layer_drawing::read(db(), "Doors")->color().colorIndex(), 5);
    QCOMPARE(int(layer_drawing::read(db(), "Doors")->lineWeight()), 70);
}

void TestEditLayerState::aCancelledHostDialogLeavesTheRecord()
{
    write(db(), "Doors")->setColor(OdCmColor::fromIndex(30));
    addState("A");
    open("A");
    for (const StateLayerColumn column : {Color, Linetype, Lineweight})
        click("Doors", column);
    QCOMPARE(host().pickStarts.size(), 3);
    QCOMPARE(record("Doors").color, 30);
    QCOMPARE(cell("Doors", Linetype).toUpper(), QStringLiteral("CONTINUOUS"));
    press(*m_dialog, Dlg::kOk);
    QVERIFY(m_dialog->isSameAsDrawing());
}

void TestEditLayerState::spaceClicksTheCellAndShiftOnlySelects()
{
    addState("A");
    open("A");
    list().focusCell(rowOf("Doors"), int(Locked));
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Space);
    QVERIFY(record("Doors").has(LayerInfoInLS::kLocked));
    QVERIFY2(m_dialog->isVisible(), "the key is not for the default button");
    list().chooseForMenu(0);
    const quint32 before = record("Roof").flags;
    click("Roof", On, Qt::ShiftModifier);
    QCOMPARE(record("Roof").flags, before);
    QVERIFY(list().chosenRowCount() >= 1);
}

void TestEditLayerState::layersAreAddedAsTheyAre()
{
    addState("A");
    removeFromState("A", {QStringLiteral("Walls"), QStringLiteral("Roof")});
    write(db(), "Roof")->setColor(OdCmColor::fromIndex(4));
    open("A");
    QCOMPARE(rowOf("Roof"), -1);
    inNext<CLayStateMgrAddDlg>([](CLayStateMgrAddDlg& dialog) {
        auto* names = qobject_cast<QListView*>(controlById(&dialog, 1015));
        QCOMPARE(names->model()->rowCount(), 2);
        names->setFocus();
        QTest::mouseClick(names->viewport(), Qt::LeftButton, {},
                          names->visualRect(names->model()->index(1, 0)).center());
        QTest::mouseClick(names->viewport(), Qt::LeftButton, Qt::ControlModifier,
                          names->visualRect(names->model()->index(0, 0)).center());
        press(dialog, CLayStateMgrAddDlg::kOk);
        QCOMPARE(dialog.chosen(), (QStringList{QStringLiteral("Walls"), QStringLiteral("Roof")}));
    });
    press(*m_dialog, Dlg::kAdd);
    QCOMPARE(names().mid(2), (QStringList{QStringLiteral("Walls"), QStringLiteral("Roof")}));
    QCOMPARE(record("Roof").color, 4);
    press(*m_dialog, Dlg::kOk);
    QCOMPARE(storedNames("A"), names());
    QVERIFY(m_dialog->isSameAsDrawing());
}

void TestEditLayerState::withAllLayersInTheStateNothingIsOffered()
{
    addState("A");
    open("A");
    press(*m_dialog, Dlg::kAdd);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(names().size(), 4);
}

void TestEditLayerState::aLayerInOtherCaseIsOffered()
{
    addState("A");
    open("A");
    // The name shown is the one at the time the rows were read.
    write(db(), "Roof")->setName(QStringLiteral("ROOF"));
    QCOMPARE(list().missingLayers(), QStringList{QStringLiteral("ROOF")});
}

void TestEditLayerState::removalGoesByPositionPastHiddenRecords()
{
    openLayers({"Walls", "*Hidden", "Doors", "Roof"});
    addState("A");
    open("A");
    const QStringList all = names();
    const int hidden = static_cast<int>(all.indexOf(QStringLiteral("*Hidden")));
    QVERIFY(hidden >= 0);
    QCOMPARE(list().layerModel().rowCount(), 4);
    QCOMPARE(rowOf("*Hidden"), -1);
    // The row that follows the hidden record stands at that record's position.
    list().chooseOnly(hidden);
    const QString shown = list().layerModel().layer(hidden).name;
    QCOMPARE(shown, all[hidden + 1]);
    press(*m_dialog, Dlg::kRemove);
    QStringList expected = all;
    expected.removeAt(hidden);
    QCOMPARE(names(), expected);
    QVERIFY2(names().contains(shown), "another record went than the row showed");
}

void TestEditLayerState::severalLayersAreRemovedAtOnce()
{
    addState("A");
    open("A");
    const QStringList all = names();
    list().chooseRows({0, 2, 3});
    press(*m_dialog, Dlg::kRemove);
    QCOMPARE(names(), QStringList{all[1]});
    press(*m_dialog, Dlg::kRemove);
    QCOMPARE(names().size(), 1);
    press(*m_dialog, Dlg::kOk);
    QCOMPARE(storedNames("A"), QStringList{all[1]});
    QVERIFY2(!m_dialog->isSameAsDrawing(), "layers of the drawing are missing from it");
}

void TestEditLayerState::okWritesTheStateAndTellsWhetherItIsTheDrawing()
{
    addState("A");
    openManager();
    const auto lockAndClose = [](Dlg& dialog) {
        CEdLayStateListCtrl& layers = dialog.list();
        const QModelIndex cell = layers.model()->index(0, int(Locked));
        QTest::mouseClick(layers.viewport(), Qt::LeftButton, {}, layers.visualRect(cell).center());
        press(dialog, Dlg::kOk);
    };
    inNext<Dlg>(lockAndClose);
    press(StateControl::kEdit);
    QCOMPARE(row(0), QStringLiteral("A|Model|No|"));
    inNext<Dlg>(lockAndClose);
    press(StateControl::kEdit);
    QCOMPARE(row(0), QStringLiteral("A|Model|Yes|"));
    QCOMPARE(host().historyNames.size(), 2);
    QVERIFY(db().undo());
    std::vector<LayerInfoInLS> layers;
    QVERIFY(service().SetLayersInLS(QStringLiteral("A"), layers));
    QVERIFY(layers[0].has(LayerInfoInLS::kLocked));
}

void TestEditLayerState::cancelWritesNothing()
{
    addState("A");
    open("A");
    const quint64 before = db().editStamp();
    click("Doors", Locked);
    list().chooseOnly(0);
    press(*m_dialog, Dlg::kRemove);
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(db().editStamp(), before);
    QVERIFY(!m_dialog->isSameAsDrawing());
}

void TestEditLayerState::aLayerErasedMeanwhileLosesItsRow()
{
    addState("A");
    open("A");
    write(db(), "Roof")->erase(true);
    list().viewport()->repaint();
    list().chooseOnly(rowOf("Doors"));
    press(*m_dialog, Dlg::kRemove);
    QCOMPARE(rowOf("Roof"), -1);
    QCOMPARE(list().layerModel().rowCount(), 2);
    press(*m_dialog, Dlg::kOk);
    QVERIFY(!m_dialog->isVisible());
}

void TestEditLayerState::oddValuesOfOtherProgramsAreShownAndKept()
{
    addState("A");
    const QByteArray walls =
        QByteArray::number(id(db(), "Walls").getHandle().value(), 16).toUpper();
    const auto record = [this] {
        return LayerStateDictionary(db()).state(QStringLiteral("A"), OdDb::kForWrite);
    };
    const GroupList groups{{91, "-1"},          {70, "5"},      {330, walls},
                           {90, "2147483647"},  {62, "-7"},     {370, "-32769"},
                           {331, walls},        {93, "0"},      {1, "a & b"},
                           {330, "FFFFFFFFFF"}, {90, "9"},      {8, "Doors"},
                           {62, "2147483647"},  {6, "no such"}, {92, "-1"},
                           {300, "no dollar"},  {440, "-1"},    {309, "unknown"}};
    record()->setGroups(groups);
    open("A");
    QCOMPARE(list().layerModel().rowCount(), 2);
    QCOMPARE(cell("Walls", Linetype), QString());
    QCOMPARE(cell("Walls", PlotStyle), QStringLiteral("a & b"));
    QVERIFY(!list().grab().isNull());
    press(*m_dialog, Dlg::kOk);
    QVERIFY(record()->groups() == groups);

    open("A");
    click("Doors", Locked);
    press(*m_dialog, Dlg::kOk);
    GroupList edited;
    for (const GroupList::Group group : groups)
        edited.append(group);
    edited.append(90, "12"); // locked and plotted; on, as it was taken to be
    QVERIFY(record()->groups() == edited);
    QCOMPARE(db().audit(), QStringList());
}

void TestEditLayerState::helpAndHintsAreThere()
{
    addState("A");
    open("A");
    press(*m_dialog, Dlg::kHelp);
    QCOMPARE(host().helpTopics, QList<int>{706});
    QCOMPARE(m_dialog->property("helpTopic").toInt(), 706);
    QCOMPARE(controlById(m_dialog.get(), Dlg::kAdd)->accessibleDescription(),
             QStringLiteral("Add layer to layer state"));
    QCOMPARE(controlById(m_dialog.get(), Dlg::kRemove)->accessibleDescription(),
             QStringLiteral("Remove layer from layer state"));
}

void TestEditLayerState::aStateOfTenThousandLayersIsEditedWithoutDelay()
{
    openDrawing(layer_drawing::numbered(10'000));
    addState("A");
    std::vector<LayerInfoInLS> none;
    QVERIFY(service().UpdateLayerStateInfo(QStringLiteral("A"), none));
    open("A");
    QElapsedTimer timer;
    timer.start();
    inNext<CLayStateMgrAddDlg>([](CLayStateMgrAddDlg& dialog) {
        auto* names = qobject_cast<QListView*>(controlById(&dialog, 1015));
        names->selectAll();
        press(dialog, CLayStateMgrAddDlg::kOk);
    });
    press(*m_dialog, Dlg::kAdd);
    QCOMPARE(list().layerModel().rowCount(), 10'001);
    list().chooseRange(0, 9'999);
    press(*m_dialog, Dlg::kRemove);
    QCOMPARE(list().layerModel().rowCount(), 1);
    qInfo("10,000 layers added and removed in %lld ms", timer.elapsed());
    QVERIFY2(timer.elapsed() < 5000, "it takes some 200 ms");
}

QTEST_MAIN(TestEditLayerState)
#include "test_edit_layer_state.moc"
