#include "StateDialogFixture.h"
#include "database/states/LayerStateDictionary.h"
#include "database/tables/OdDbLayerTable.h"
#include "io/DrawingFile.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layer_states/CEdLayStateDlg.h"
#include "layermanager/layer_states/CLSImportPromptDlg.h"
#include "layermanager/layer_states/CLayStateImportDlg.h"
#include "layermanager/layer_states/CLayStateMgrAddDlg.h"
#include "layermanager/layer_states/CNewLayStateDlg.h"
#include "layermanager/layer_states/LayerStateDialogs.h"
#include "layermanager/layer_states/parts/CEdLayStateListCtrl.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListView>

using namespace StateControl;
using layer_drawing::write;

namespace {

/// Prompts that do something before they answer yes.
class MeddlingPrompts : public Prompts
{
public:
    explicit MeddlingPrompts(std::function<void()> act)
        : m_act(std::move(act))
        , m_before(Prompts::install(this))
    { }
    ~MeddlingPrompts() override { Prompts::install(m_before); }
    void message(QWidget*, const QString&, Icon) override { m_act(); }
    bool confirm(QWidget*, const QString&) override
    {
        ++asked;
        m_act();
        return true;
    }
    int ask(QWidget*, const TaskQuestion&) override { return kCancelled; }
    int asked = 0;

private:
    std::function<void()> m_act;
    Prompts* m_before;
};

} // namespace

/// Drawings, states and parents that go while a dialog of layer states is open.
class TestLayerStateDialogsInterrupted : public StateDialogFixture
{
    Q_OBJECT

private slots:
    void theManagerClosesWithItsDrawing();
    void theManagerClosesWhenAnotherDrawingBecomesCurrent();
    void theDrawingMayCloseUnderEveryDialog();
    void theDrawingMayCloseDuringAQuestion();
    void theParentMayGoWhileDialogsAreOpen();
    void layersThatWentMeanwhileAreNotAdded();
    void statesThatAreGoneAreToldAndHarmNothing();
    void anUndoUnderTheManagerIsSurvived();
    void statesOfExternalReferencesAreListedAndLeftAlone();
    void thousandsOfStatesAreListedInTimeThatGrowsWithThem();
};

void TestLayerStateDialogsInterrupted::theManagerClosesWithItsDrawing()
{
    addState("A");
    openManager();
    host().close(db());
    QVERIFY(!isManagerOpen());
    manager().accept();
    manager().reject();
}

void TestLayerStateDialogsInterrupted::theManagerClosesWhenAnotherDrawingBecomesCurrent()
{
    addState("A");
    OdDbDatabase& first = db();
    openManager();
    host().open(layer_drawing::make({{"Walls"}}), QStringLiteral("Other"));
    QVERIFY(!isManagerOpen());
    host().setCurrent(first);
    openManager();
    QCOMPARE(states().rowCount(), 1);
    host().setCurrent(first);
    QVERIFY(isManagerOpen());
}

void TestLayerStateDialogsInterrupted::theDrawingMayCloseUnderEveryDialog()
{
    const auto closeDrawing = [this](QDialog& dialog) {
        host().close(db());
        QVERIFY(!dialog.isVisible());
    };
    addState("A");
    openManager();
    inNext<CNewLayStateDlg>([&](CNewLayStateDlg& dialog) { closeDrawing(dialog); });
    press(kNew);
    QVERIFY(!isManagerOpen());

    openLayers({"Walls"});
    addState("A");
    openManager();
    inNext<CEdLayStateDlg>([&](CEdLayStateDlg& dialog) {
        CEdLayStateListCtrl& list = dialog.list();
        closeDrawing(dialog);
        list.removeChosen();
        dialog.accept();
    });
    press(kEdit);
    QVERIFY(!isManagerOpen());

    openLayers({"Walls"});
    addState("A");
    QVERIFY(service().UpdateLayerStateInfo(QStringLiteral("A"), {}));
    openManager();
    inNext<CEdLayStateDlg>([&](CEdLayStateDlg& dialog) {
        inNext<CLayStateMgrAddDlg>([&](CLayStateMgrAddDlg& names) { closeDrawing(names); });
        press(dialog, CEdLayStateDlg::kAdd);
        QVERIFY(!dialog.isVisible());
    });
    press(kEdit);
    QVERIFY(!isManagerOpen());

    openLayers({"Walls"});
    addState("A");
    const QString drawing = path("a.dxf");
    writeDrawing(db(), drawing);
    openManager();
    host().pickedFile = drawing;
    inNext<CLayStateImportDlg>([&](CLayStateImportDlg& dialog) { closeDrawing(dialog); });
    press(kImport);
    QVERIFY(!isManagerOpen());

    openLayers({"Walls"});
    addState("A");
    QVERIFY(service().ExportLayState(QStringLiteral("A"), path("a.las")));
    QVERIFY(service().DeleteLayerState(QStringLiteral("A")));
    openManager();
    host().pickedFile = path("a.las");
    inNext<CLSImportPromptDlg>([&](CLSImportPromptDlg& dialog) { closeDrawing(dialog); });
    press(kImport);
    QVERIFY(!isManagerOpen());
}

void TestLayerStateDialogsInterrupted::theDrawingMayCloseDuringAQuestion()
{
    addState("A");
    addState("B");
    openManager();
    clickRow(1, Qt::ShiftModifier);
    {
        MeddlingPrompts prompts([this] { host().close(db()); });
        press(kDelete);
        QCOMPARE(prompts.asked, 1);
    }
    QVERIFY(!isManagerOpen());

    openLayers({"Walls"});
    addState("A");
    openManager();
    {
        MeddlingPrompts prompts([this] { host().close(db()); });
        press(kSave);
        QCOMPARE(prompts.asked, 1);
    }
    QVERIFY(!isManagerOpen());

    openLayers({"Walls"});
    addState("A");
    CNewLayStateDlg dialog({{QStringLiteral("A"), QString()}});
    dialog.show();
    qobject_cast<QComboBox*>(controlById(&dialog, 1010))->setEditText(QStringLiteral("a"));
    MeddlingPrompts prompts([this] { host().close(db()); });
    dialog.accept();
    QCOMPARE(prompts.asked, 1);
    QVERIFY(!dialog.isVisible());
}

void TestLayerStateDialogsInterrupted::theParentMayGoWhileDialogsAreOpen()
{
    addState("A");
    auto parent = std::make_unique<QWidget>();
    parent->show();
    const QPointer<QWidget> gone(parent.get());
    inNext<CLayerStateManDlg>([&](CLayerStateManDlg& dialog) {
        inNext<CEdLayStateDlg>([&](CEdLayStateDlg&) { parent.reset(); });
        press(dialog, kEdit);
    });
    openLayerStateManager(parent.get());
    QVERIFY(!gone);

    parent = std::make_unique<QWidget>();
    parent->show();
    inNext<CLayerStateManDlg>([&](CLayerStateManDlg& dialog) {
        MeddlingPrompts prompts([&] { parent.reset(); });
        press(dialog, kDelete);
        QCOMPARE(prompts.asked, 1);
    });
    openLayerStateManager(parent.get());
    QVERIFY(!parent);
    QCOMPARE(stateNames(), QStringList{QStringLiteral("A")});
}

void TestLayerStateDialogsInterrupted::layersThatWentMeanwhileAreNotAdded()
{
    openLayers({"Walls", "Roof"});
    addState("A");
    QVERIFY(service().UpdateLayerStateInfo(QStringLiteral("A"), {}));
    openManager();
    inNext<CEdLayStateDlg>([&](CEdLayStateDlg& dialog) {
        inNext<CLayStateMgrAddDlg>([&](CLayStateMgrAddDlg& names) {
            write(db(), "Roof")->erase(true);
            names.findChild<QListView*>()->selectAll();
            press(names, CLayStateMgrAddDlg::kOk);
        });
        press(dialog, CEdLayStateDlg::kAdd);
        QCOMPARE(dialog.list().layerModel().rowCount(), 2);
        QCOMPARE(host().printed.size(), 1);
        press(dialog, CEdLayStateDlg::kOk);
    });
    press(kEdit);
    QCOMPARE(row(0), QStringLiteral("A|Model|Yes|"));
    QCOMPARE(db().audit(), QStringList());
}

void TestLayerStateDialogsInterrupted::statesThatAreGoneAreToldAndHarmNothing()
{
    addState("A");
    addState("B");
    openManager();
    QVERIFY(service().DeleteLayerState(QStringLiteral("A")));
    QVERIFY(service().RenameLayerState(QStringLiteral("B"), QStringLiteral("C")));
    host().printed.clear();
    clickRow(0);
    QCOMPARE(host().printed.size(), 1);
    QVERIFY(host().printed.first().contains(QStringLiteral("\"A\"")));
    prompts().willConfirm(true);
    press(kSave);
    inNext<CEdLayStateDlg>([](CEdLayStateDlg& dialog) {
        QCOMPARE(dialog.list().layerModel().rowCount(), 0);
        press(dialog, CEdLayStateDlg::kOk);
    });
    press(kEdit);
    host().pickedFile = path("gone.las");
    press(kExport);
    QVERIFY(!QFile::exists(path("gone.las")));
    prompts().willConfirm(true);
    press(kDelete);
    QCOMPARE(stateNames(), QStringList{QStringLiteral("C")});
    QCOMPARE(states().names(), QStringList{QStringLiteral("B")});
    clickRow(0);
    press(kRestore);
    QVERIFY(!isManagerOpen());
    QCOMPARE(db().audit(), QStringList());
}

void TestLayerStateDialogsInterrupted::anUndoUnderTheManagerIsSurvived()
{
    db().startUndoRecord();
    addState("A");
    openManager();
    QVERIFY(db().undo());
    press(kRestore);
    QVERIFY(!isManagerOpen());
    QCOMPARE(stateNames(), QStringList());
    QVERIFY(!host().printed.isEmpty());
}

void TestLayerStateDialogsInterrupted::statesOfExternalReferencesAreListedAndLeftAlone()
{
    addState("Own");
    LayerStateDictionary(db()).open(OdDb::kForWrite)->setAt(QStringLiteral("ref__plan"), {});
    openManager();
    QCOMPARE(states().names(), (QStringList{QStringLiteral("Own"), QStringLiteral("ref__plan")}));
    QCOMPARE(row(1), QStringLiteral("ref__plan|Model|No|"));
    clickRow(1);
    host().printed.clear();
    prompts().willConfirm(true);
    press(kSave);
    QCOMPARE(host().printed.size(), 1);
    press(kHideExternal);
    press(kClose);
    openManager();
    QCOMPARE(states().names(), QStringList{QStringLiteral("Own")});
}

void TestLayerStateDialogsInterrupted::thousandsOfStatesAreListedInTimeThatGrowsWithThem()
{
    const auto elapsed = [this](int count) {
        openLayers({"Walls"});
        CLayerStateUtility states = service();
        for (int i = 0; i < count; ++i)
            states.AddNewLayStateToDB(QStringLiteral("State %1").arg(i), QStringLiteral("text"));
        QElapsedTimer timer;
        timer.start();
        openManager();
        const qint64 opened = timer.restart();
        manager().list().selectAll();
        const qint64 selected = timer.restart();
        std::vector<int> rows;
        for (int row = 0; row < count; row += 2)
            rows.push_back(row);
        this->states().removeAll(rows);
        const qint64 removed = timer.elapsed();
        qInfo("%d states: opened in %lld ms, selected in %lld ms, every second one removed in "
              "%lld ms",
              count, opened, selected, removed);
        return opened + selected + removed;
    };
    elapsed(100);
    const qint64 few = elapsed(1'000);
    const qint64 many = elapsed(8'000);
    QCOMPARE(states().rowCount(), 4'000);
    QVERIFY2(many < 8 * std::max<qint64>(few, 30) * 3,
             "eight times as many, some eight times as long");
}

QTEST_MAIN(TestLayerStateDialogsInterrupted)
#include "test_layer_state_dialogs_interrupted.moc"
