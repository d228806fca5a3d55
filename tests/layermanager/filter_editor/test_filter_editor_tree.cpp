#include "../filters/tree/FilterTreeFixture.h"
#include "layermanager/filter_editor/CDlgLayPropFilter.h"
#include "layermanager/filter_editor/CLayPropFilterEdCombo.h"
#include "layermanager/filter_editor/CLayPropFilterEdListCtrl.h"
#include "layermanager/filter_editor/CLayerPreviewList.h"
#include "toolkit/ControlRegistry.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QPointer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>

/// The dialog as the filter tree opens it, and what becomes of the drawing.
class TestFilterEditorTree : public FilterTreeFixture
{
    Q_OBJECT

private slots:
    void makesAFilterAndSelectsIt_data();
    void makesAFilterAndSelectsIt();
    void makesANestedFilterWithTheLayersOfItsParent();
    void editsAFilterInOneUndoStep();
    void cancellingLeavesTheDrawingAsItWas_data();
    void cancellingLeavesTheDrawingAsItWas();
    void keepsTheLinesThatNobodyChanged();
    void offersNoEditOfAFilterThatRowsCannotSay();
    void aRenameKeepsTheConditionsThatAScriptWroteMeanwhile();
    void tellsOfAFilterThatWasDeletedMeanwhile();
    void tellsOfAParentThatWasDeletedMeanwhile();
    void aMenuThatOutlivesItsTableDoesNothing();
    void closesWithItsDrawingWhileAPickerIsOpen();
    void filtersListTheSameLayersInTheCompanion_data();
    void filtersListTheSameLayersInTheCompanion();

private:
    using Step = std::function<void(CDlgLayPropFilter&)>;
    /// Runs a command of the tree, and does something in the dialog that it opens.
    void inDialog(int command, const Step& step);
    static CLayPropFilterEdListCtrl& table(const CDlgLayPropFilter& dialog)
    {
        return *qobject_cast<CLayPropFilterEdListCtrl*>(
            controlById(&dialog, CDlgLayPropFilter::kDefinition));
    }
    static QLineEdit& name(const CDlgLayPropFilter& dialog)
    {
        return *qobject_cast<QLineEdit*>(controlById(&dialog, CDlgLayPropFilter::kName));
    }
    static void clickCell(CDlgLayPropFilter& dialog, int row, int column);
    static void type(CDlgLayPropFilter& dialog, int row, int column, const char* text);
    static void choose(CDlgLayPropFilter& dialog, int row, int column, int item);
    static void press(CDlgLayPropFilter& dialog, int id);
    QStringList companionList(const QString& filter);

    static constexpr int kNameColumn = 2;
    static constexpr int kOnColumn = 3;
    static constexpr int kFreezeColumn = 4;
};

void TestFilterEditorTree::inDialog(int command, const Step& step)
{
    bool came = false;
    QTimer::singleShot(0, this, [&] {
        auto* dialog = qobject_cast<CDlgLayPropFilter*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        came = true;
        const QPointer<CDlgLayPropFilter> open(dialog);
        step(*dialog);
        if (open && open->isVisible())
            open->reject();
    });
    tree().command(command);
    QVERIFY(came);
    settle();
}

void TestFilterEditorTree::clickCell(CDlgLayPropFilter& dialog, int row, int column)
{
    CLayPropFilterEdListCtrl& grid = table(dialog);
    const QRect place = grid.visualRect(grid.model()->index(row, column));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place.center());
    QCoreApplication::processEvents();
}

void TestFilterEditorTree::type(CDlgLayPropFilter& dialog, int row, int column, const char* text)
{
    clickCell(dialog, row, column);
    QLineEdit* editor = table(dialog).findChild<QLineEdit*>(QStringLiteral("inPlaceEdit"));
    QVERIFY(editor);
    editor->selectAll();
    QTest::keyClicks(editor, QString::fromUtf8(text));
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
}

void TestFilterEditorTree::choose(CDlgLayPropFilter& dialog, int row, int column, int item)
{
    clickCell(dialog, row, column);
    auto* list = table(dialog).findChild<CLayPropFilterEdCombo*>()->view();
    QTest::keyClick(list, Qt::Key_Home);
    for (int i = 0; i < item; ++i)
        QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    QCoreApplication::processEvents();
}

void TestFilterEditorTree::press(CDlgLayPropFilter& dialog, int id)
{
    QTest::mouseClick(controlById(&dialog, id), Qt::LeftButton);
}

void TestFilterEditorTree::makesAFilterAndSelectsIt_data()
{
    QTest::addColumn<int>("command");
    QTest::newRow("menu") << 40091;
    QTest::newRow("toolbar") << 40025;
}

void TestFilterEditorTree::makesAFilterAndSelectsIt()
{
    QFETCH(int, command);
    run("_LAYER");
    click("All");
    const auto stamp = db().editStamp();
    inDialog(command, [&](CDlgLayPropFilter& dialog) {
        QCOMPARE(name(dialog).text(), QStringLiteral("Properties Filter1"));
        type(dialog, 0, kNameColumn, "W*");
        QCOMPARE(db().editStamp(), stamp); // nothing reaches the drawing before OK
        name(dialog).setText(QStringLiteral("Wände"));
        press(dialog, CDlgLayPropFilter::kOk);
    });
    QCOMPARE(tree().selectedName(), QStringLiteral("Wände"));
    QCOMPARE(currentFilter(), QStringLiteral("Wände"));
    QCOMPARE(listed(), QStringList(QStringLiteral("Walls")));
    QVERIFY(db().undo());
    settle();
    QCOMPARE(db().editStamp(), stamp);
    QCOMPARE(shown().size(), 2);
}

void TestFilterEditorTree::makesANestedFilterWithTheLayersOfItsParent()
{
    run("_LAYER");
    addProperty("W", "NAME==\"W*\" ");
    click("W");
    inDialog(40091, [&](CDlgLayPropFilter& dialog) {
        auto* preview = dialog.findChild<CLayerPreviewList*>();
        QCOMPARE(layer_drawing::names(preview->layerModel().layers()),
                 QStringList(QStringLiteral("Walls")));
        choose(dialog, 0, kOnColumn, 1);
        press(dialog, CDlgLayPropFilter::kOk);
    });
    QCOMPARE(shown().last(), QStringLiteral("..Properties Filter1"));
}

void TestFilterEditorTree::editsAFilterInOneUndoStep()
{
    run("_LAYER");
    addProperty("P", "NAME==\"W*\" ");
    click("P");
    const auto stamp = db().editStamp();
    inDialog(40098, [&](CDlgLayPropFilter& dialog) {
        type(dialog, 0, kNameColumn, "D*");
        choose(dialog, 1, kFreezeColumn, 1);
        name(dialog).setText(QStringLiteral("Doors or frozen"));
        press(dialog, CDlgLayPropFilter::kOk);
    });
    QCOMPARE(tree().selectedName(), QStringLiteral("Doors or frozen"));
    QCOMPARE(listed(), QStringList(QStringLiteral("Doors")));
    QVERIFY(db().undo());
    settle();
    QCOMPARE(db().editStamp(), stamp);
    QCOMPARE(tree().selectedName(), QStringLiteral("P"));
    QCOMPARE(listed(), QStringList(QStringLiteral("Walls")));
}

void TestFilterEditorTree::cancellingLeavesTheDrawingAsItWas_data()
{
    QTest::addColumn<int>("command");
    for (const int command : {40091, 40025, 40098})
        QTest::addRow("%d", command) << command;
}

void TestFilterEditorTree::cancellingLeavesTheDrawingAsItWas()
{
    QFETCH(int, command);
    run("_LAYER");
    addProperty("P", "NAME==\"W*\" ");
    click("P");
    const auto stamp = db().editStamp();
    const QByteArray saved = drawingBytes(db());
    host().historyNames.clear();
    inDialog(command, [&](CDlgLayPropFilter& dialog) {
        type(dialog, 0, kNameColumn, "D*");
        press(dialog, CDlgLayPropFilter::kCancel);
    });
    QCOMPARE(db().editStamp(), stamp);
    QCOMPARE(host().historyNames, QStringList());
    QVERIFY(drawingBytes(db()) == saved);
    QCOMPARE(FilterTreeEdit(db()).find(key("P"))->filterExpression(),
             QStringLiteral("NAME==\"W*\" "));
    QCOMPARE(listed(), QStringList(QStringLiteral("Walls")));
    QCOMPARE(shown().size(), 3);
}

void TestFilterEditorTree::keepsTheLinesThatNobodyChanged()
{
    run("_LAYER");
    addProperty("P",
                "USED==\"True\" AND VPOVERRIDES==\"False\"DESC==\"x\"  OR NAME==\"W*\"  AND "
                "LINETYPE==\"DASHED\"  AND LINEWEIGHT==\"Default\"  OR COLOR==\"1\" ");
    click("P");
    inDialog(40098, [&](CDlgLayPropFilter& dialog) {
        choose(dialog, 2, kOnColumn, 2);
        press(dialog, CDlgLayPropFilter::kOk);
    });
    QCOMPARE(FilterTreeEdit(db()).find(key("P"))->filterExpression(),
             QStringLiteral("USED==\"True\" AND VPOVERRIDES==\"False\"DESC==\"x\"  OR "
                            "NAME==\"W*\"  AND LINETYPE==\"DASHED\"  AND LINEWEIGHT==\"Default\"  "
                            "OR OFF==\"True\"  AND COLOR==\"1\" "));
}

void TestFilterEditorTree::offersNoEditOfAFilterThatRowsCannotSay()
{
    run("_LAYER");
    addProperty("Foreign", "NAME==\"W*\" AND PLOTSTYLE==\"x\"");
    click("Foreign");
    tree().command(40098);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(FilterTreeEdit(db()).find(key("Foreign"))->storedExpression(),
             QStringLiteral("NAME==\"W*\" AND PLOTSTYLE==\"x\""));
}

void TestFilterEditorTree::aRenameKeepsTheConditionsThatAScriptWroteMeanwhile()
{
    run("_LAYER");
    addProperty("P", "NAME==\"W*\" ");
    click("P");
    const QString written = QStringLiteral("NAME==\"D*\" ");
    inDialog(40098, [&](CDlgLayPropFilter& dialog) {
        changeFilter(db(), key("P"), QStringLiteral("P"), written);
        name(dialog).setText(QStringLiteral("Q"));
        press(dialog, CDlgLayPropFilter::kOk);
    });
    QCOMPARE(FilterTreeEdit(db()).find(key("Q"))->filterExpression(), written);
}

void TestFilterEditorTree::tellsOfAFilterThatWasDeletedMeanwhile()
{
    run("_LAYER");
    addProperty("P", "NAME==\"W*\" ");
    click("P");
    prompts().willCloseMessage();
    inDialog(40098, [&](CDlgLayPropFilter& dialog) {
        type(dialog, 0, kNameColumn, "D*");
        deleteFilter(db(), key("P"));
        press(dialog, CDlgLayPropFilter::kOk);
    });
    QVERIFY(!FilterTreeEdit(db()).find(key("P")));
    QCOMPARE(shown().size(), 2);
    QCOMPARE(prompts().texts(),
             QStringList(QStringLiteral(
                 "The filter \"P\" was not changed: it is no longer in the drawing.")));
}

void TestFilterEditorTree::tellsOfAParentThatWasDeletedMeanwhile()
{
    run("_LAYER");
    addProperty("P %1", "NAME==\"W*\" ");
    click("P %1");
    prompts().willCloseMessage();
    inDialog(40091, [&](CDlgLayPropFilter& dialog) {
        deleteFilter(db(), key("P %1"));
        name(dialog).setText(QStringLiteral("Below"));
        press(dialog, CDlgLayPropFilter::kOk);
    });
    QCOMPARE(shown().size(), 2);
    QCOMPARE(prompts().texts(),
             QStringList(QStringLiteral("The filter \"Below\" was not made: \"P %1\", which it was "
                                        "to stand below, is no longer in the drawing.")));
}

void TestFilterEditorTree::aMenuThatOutlivesItsTableDoesNothing()
{
    CLayPropFilterEdListCtrl* grid = new CLayPropFilterEdListCtrl;
    LayerFilterRow row;
    row.m_nOn = 1;
    grid->Initialise(db(), {row});
    grid->focusCell(0, kOnColumn);
    grid->show();
    bool came = false;
    QTimer::singleShot(0, this, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        came = true;
        delete grid;
        menu->setActiveAction(menu->actions().constFirst());
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QPointer<CLayPropFilterEdListCtrl> target(grid);
    QApplication::sendEvent(grid, &event);
    QVERIFY(came);
    QVERIFY(!target);
}

/// A host whose color dialog loses its drawing while it is open, and still answers.
class ClosingServices : public IKestServicesManager
{
public:
    ClosingServices(FakeHost& host, const OdDbDatabase& database)
        : m_host(host)
        , m_database(database)
        , m_parts(host.parts())
    {
        KestHost parts = m_parts;
        parts.services = this;
        ksSetHost(parts);
    }
    ~ClosingServices() override { ksSetHost(m_parts); }
    QString lineWeightText(int weight) const override
    {
        return m_parts.services->lineWeightText(weight);
    }
    QByteArray userState(const QString& key) const override
    {
        return m_parts.services->userState(key);
    }
    void setUserState(const QString& key, const QByteArray& state) override
    {
        m_parts.services->setUserState(key, state);
    }
    void refreshView() override { m_parts.services->refreshView(); }
    int pickColor(const KestPickRequest&, OdCmColor& color) override
    {
        ++picks;
        color = OdCmColor::fromIndex(1);
        m_host.close(m_database);
        return kest::kNormal;
    }
    int pickLinetype(const KestPickRequest&, OdDbObjectId&) override { return kest::kError; }
    int pickLineweight(const KestPickRequest&, int&) override { return kest::kError; }
    int pickPlotStyle(const KestPickRequest&, QString&) override { return kest::kError; }
    void showHelp(int) override { }

    int picks = 0;

private:
    FakeHost& m_host;
    const OdDbDatabase& m_database;
    KestHost m_parts;
};

void TestFilterEditorTree::closesWithItsDrawingWhileAPickerIsOpen()
{
    run("_LAYER");
    ClosingServices closing(host(), db());
    constexpr int kColorColumn = 6;
    inDialog(40025, [&](CDlgLayPropFilter& dialog) { clickCell(dialog, 0, kColorColumn); });
    QCOMPARE(closing.picks, 1);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(shown(), QStringList());
}

QStringList TestFilterEditorTree::companionList(const QString& filter)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("drawing.dxf"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return {QStringLiteral("no file")};
    file.write(drawingBytes(db()));
    file.close();
    QProcess companion;
    companion.start(QStringLiteral(LAYERMAN_PROGRAM),
                    {QStringLiteral("list"), path, QStringLiteral("--columns=name"),
                     QStringLiteral("--format=csv"), QStringLiteral("--filter"), filter});
    if (!companion.waitForFinished() || companion.exitCode() != 0)
        return {QString::fromUtf8(companion.readAllStandardError())};
    QStringList lines = QString::fromUtf8(companion.readAllStandardOutput())
                            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    lines.removeFirst(); // the header
    return lines;
}

void TestFilterEditorTree::filtersListTheSameLayersInTheCompanion_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("pattern") << 0;
    QTest::newRow("flags on two lines") << 1;
    QTest::newRow("color and lineweight") << 2;
    QTest::newRow("linetype and usage") << 3;
}

void TestFilterEditorTree::filtersListTheSameLayersInTheCompanion()
{
    QFETCH(int, which);
    run("_LAYER");
    layer_drawing::write(db(), "Walls")->setIsFrozen(true);
    layer_drawing::write(db(), "Doors")->setColor(OdCmColor::fromIndex(1));
    layer_drawing::write(db(), "Doors")->setLineWeight(25);
    layer_drawing::write(db(), "Doors")
        ->setLinetypeObjectId(db().table(OdDbTableKind::Linetype).getAt(QStringLiteral("DASHED")));
    click("All");
    host().pickedColor = OdCmColor::fromIndex(1);
    host().pickedLineweight = 25;
    host().pickedLinetype = QStringLiteral("DASHED");
    inDialog(40025, [&](CDlgLayPropFilter& dialog) {
        switch (which) {
        case 0:
            type(dialog, 0, kNameColumn, "~D*");
            break;
        case 1:
            choose(dialog, 0, kFreezeColumn, 1);
            choose(dialog, 1, kOnColumn, 1);
            choose(dialog, 1, kFreezeColumn, 2);
            break;
        case 2:
            clickCell(dialog, 0, 6);
            clickCell(dialog, 0, 8);
            break;
        default:
            clickCell(dialog, 0, 7);
            choose(dialog, 0, 1, 2);
            break;
        }
        name(dialog).setText(QStringLiteral("Made here"));
        press(dialog, CDlgLayPropFilter::kOk);
    });
    const QStringList layers = listed();
    QVERIFY(!layers.isEmpty());
    QCOMPARE(companionList(QStringLiteral("Made here")), layers);
}

QTEST_MAIN(TestFilterEditorTree)
#include "test_filter_editor_tree.moc"
