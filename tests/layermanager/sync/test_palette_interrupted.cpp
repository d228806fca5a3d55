#include "SyncFixture.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"
#include "layermanager/layers/operations/LayerCommandTable.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "sdk/KestSharedGlobals.h"
#include "sdk/commands/OdEdCommandStack.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

namespace {

/// Something happens while a question or a message stands.
class WhileAsked : public Prompts
{
public:
    explicit WhileAsked(std::function<void()> action)
        : m_action(std::move(action))
        , m_before(install(this))
    { }
    ~WhileAsked() override { install(m_before); }
    WhileAsked(const WhileAsked&) = delete;
    WhileAsked& operator=(const WhileAsked&) = delete;

    void message(QWidget*, const QString&, Icon) override { act(); }
    bool confirm(QWidget*, const QString&) override { return false; }
    int ask(QWidget*, const TaskQuestion&) override
    {
        act();
        return kCancelled;
    }
    int asked = 0;

private:
    void act()
    {
        if (++asked == 1)
            m_action();
    }
    std::function<void()> m_action;
    Prompts* m_before;
};

} // namespace

/// The palette when drawings, or it itself, go while the user is asked or types.
class TestPaletteInterrupted : public SyncFixture
{
    Q_OBJECT

private slots:
    void keepsToItsDrawingWhileAQuestionHoldsUpAnother();
    void guardsTheHostsPanelsThroughAQuestion();
    void mayGoWhileAQuestionHoldsUpADrawing();
    void mayGoWhileItIsMade();
    void mayGoWhileARefusalIsShown_data();
    void mayGoWhileARefusalIsShown();
    void appliesNoMenuToAnotherDrawing();
    void putsTheNoticeOffWhileACellOrALabelIsEdited();
    void goesBackToARefusedTextInsteadOfSearching();

private:
    /// So many filters that the user is asked about them.
    static void addManyFilters(OdDbDatabase& database)
    {
        FilterTreeEdit edit(database);
        for (int i = 0; i < 12; ++i)
            edit.root()->addNested(odrxCreate<OdLyLayerFilter>(QStringLiteral("P%1").arg(i)));
        edit.write();
    }
    void startRenaming(const char* layer)
    {
        grid().chooseForMenu(grid().findRow(id(layer)));
        grid().command(kRenameLayer);
        QVERIFY(grid().editor());
    }
    /// A change of the listed layers that the user is to be told of once no command runs.
    void violateUntold(const char* layer)
    {
        host().ints[QStringLiteral("CMDACTIVE")] = 1;
        write(layer)->setIsLocked(true);
        QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
        host().ints[QStringLiteral("CMDACTIVE")] = 0;
    }
};

void TestPaletteInterrupted::keepsToItsDrawingWhileAQuestionHoldsUpAnother()
{
    addManyFilters(db());
    show({"A", "B"});
    addProperty("Open", "LOCKED==\"False\" ");
    click("Open");
    quiesce();
    OdDbDatabase& first = drawing();
    write("A")->setIsLocked(true);
    write("B")->erase();
    const OdDbDatabase* followed = nullptr;
    int left = -1;
    const WhileAsked question([&] {
        fire(CLayerListCtrl::kErasureTimer);
        followed = grid().database();
        host().close(first);
        left = grid().model()->rowCount();
    });
    host().setCurrent(db());
    QCOMPARE(question.asked, 1);
    QCOMPARE(followed, &first);
    QCOMPARE(left, 0);
    QCOMPARE(grid().database(), &db());
    QCOMPARE(rows(), QStringLiteral("0 Doors Walls"));
}

void TestPaletteInterrupted::guardsTheHostsPanelsThroughAQuestion()
{
    addManyFilters(db());
    show({"A"});
    bool guarded = false;
    const WhileAsked question([&] {
        open({"B"});
        guarded = KestSharedGlobals::IsUnderPropertyUpdate();
    });
    host().setCurrent(db());
    QCOMPARE(question.asked, 1);
    QVERIFY(guarded);
    QVERIFY(!KestSharedGlobals::IsUnderPropertyUpdate());
    QCOMPARE(rows(), QStringLiteral("0 B"));
}

void TestPaletteInterrupted::mayGoWhileAQuestionHoldsUpADrawing()
{
    addManyFilters(db());
    show({"A"});
    const WhileAsked question([this] { unload(); });
    host().setCurrent(db());
    QCOMPARE(question.asked, 1);
    QVERIFY(!view());
}

void TestPaletteInterrupted::mayGoWhileItIsMade()
{
    addManyFilters(db());
    const OdEdCommandPtr command = odedRegCmds()->lookup(QStringLiteral("_LAYER"));
    const WhileAsked question([this] { unload(); });
    OdDbCommandContext context(&db());
    command->execute(&context);
    QCOMPARE(question.asked, 1);
    QVERIFY(!view());
}

void TestPaletteInterrupted::mayGoWhileARefusalIsShown_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("by a click") << true;
    QTest::newRow("by a key") << false;
}

void TestPaletteInterrupted::mayGoWhileARefusalIsShown()
{
    QFETCH(bool, byMouse);
    show({"A"});
    grid().chooseForMenu(grid().findRow(id("0")));
    grid().focusCell(0, static_cast<int>(LayerColumn::Freeze));
    grid().setFocus();
    const QPoint cell = grid().visualRect(grid().currentIndex()).center();
    const WhileAsked refusal([this] { unload(); });
    if (byMouse)
        QTest::mousePress(grid().viewport(), Qt::LeftButton, {}, cell);
    else
        QTest::keyPress(&grid(), Qt::Key_Space);
    QCOMPARE(refusal.asked, 1);
    QVERIFY(!view());
}

void TestPaletteInterrupted::appliesNoMenuToAnotherDrawing()
{
    show({"A"});
    grid().chooseForMenu(grid().findRow(id("A")));
    const std::unique_ptr<QMenu> menu = grid().contextMenu();
    QAction* wanted = nullptr;
    for (QAction* action : menu->findChildren<QAction*>()) {
        if (action->data().toInt() == kSelectAllButCurrent)
            wanted = action;
    }
    QVERIFY(wanted && wanted->isEnabled());
    host().setCurrent(db());
    grid().chooseForMenu(grid().findRow(id("Doors")));
    wanted->trigger();
    QCOMPARE(chosen(), QStringLiteral("Doors"));
    unload();
    wanted->trigger();
    QVERIFY(!view());
}

void TestPaletteInterrupted::putsTheNoticeOffWhileACellOrALabelIsEdited()
{
    show({"A", "B", "C"});
    addProperty("Open", "LOCKED==\"False\" ");
    click("Open");
    quiesce();
    QSignalSpy violated(&grid(), &CLayerListCtrl::filterViolated);
    violateUntold("A");
    startRenaming("C");
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QVERIFY(violated.isEmpty() && grid().editor());
    QTest::keyClick(grid().editor(), Qt::Key_Escape);
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(violated.size(), 1);

    violateUntold("B");
    tree().setFocus();
    QTest::keyClick(&tree(), Qt::Key_F2);
    QVERIFY(labelEditor());
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(violated.size(), 1);
    QVERIFY(labelEditor());
    QTest::keyClick(labelEditor(), Qt::Key_Escape);
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(violated.size(), 2);
}

void TestPaletteInterrupted::goesBackToARefusedTextInsteadOfSearching()
{
    show({"A", "Z"});
    startRenaming("A");
    QTest::keyClicks(grid().editor(), QStringLiteral("x<y"));
    prompts().willCloseMessage();
    grid().setFocus();
    QVERIFY(grid().editor() && !grid().editor()->hasFocus());
    QTest::keyClicks(&grid(), QStringLiteral("z"));
    QCOMPARE(chosen(), QStringLiteral("A"));
    QVERIFY(grid().editor() && grid().editor()->hasFocus());
    QTest::keyClick(grid().editor(), Qt::Key_Escape);
    QVERIFY(!grid().editor());
}

QTEST_MAIN(TestPaletteInterrupted)
#include "test_palette_interrupted.moc"
