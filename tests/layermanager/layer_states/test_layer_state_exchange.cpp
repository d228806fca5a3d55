#include "StateDialogFixture.h"
#include "database/states/LayerStateDictionary.h"
#include "io/DrawingFile.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layer_states/CLSImportPromptDlg.h"
#include "layermanager/layer_states/CLayStateImportDlg.h"
#include "support/drawings/DwgCopy.h"
#include "support/drawings/SharedDrawings.h"

#include <QFileInfo>
#include <QLabel>
#include <QTableView>

using namespace StateControl;
using layer_drawing::read;
using layer_drawing::write;

/// Import and export of the layer-state manager.
class TestLayerStateExchange : public StateDialogFixture
{
    Q_OBJECT

private slots:
    void exportAsksForAFileAndWritesIt();
    void aFailedExportIsTold();
    void aNewStateIsImportedAndRestoredOnRequest();
    void theRestoreCanBeDeclined();
    void anImportOfAnExistingStateAsksAndReplaces();
    void declinedReplacementLeavesTheState();
    void theExtensionCountsInAnyCase();
    void otherFilesAreDrawingsAndARefusalIsTold();
    void nonsenseInALayerStateFileChangesNothing();
    void theNextImportStartsAtTheLastLayerStateFile();
    void tickedStatesOfADrawingAreCopied();
    void statesComeFromDwgDrawingsTemplatesAndStandards();
    void anExistingStateIsAskedAboutForEachRow();
    void aStateInOtherCaseIsNotAskedAboutAndStays();
    void aStateThatCameMeanwhileIsReplaced();
    void aStateThatCannotBeHadReplacesNothing();
    void aStateIsTheSameAfterEveryWay();

private:
    QString exportFrom(const char* state, const char* file);
    QString drawingWith(const QList<const char*>& states, const char* file) const;
    static void tick(CLayStateImportDlg& dialog, int row);
    void importFile(const QString& file)
    {
        host().pickedFile = file;
        press(kImport);
    }
};

QString TestLayerStateExchange::exportFrom(const char* state, const char* file)
{
    CLayerStateUtility states = service();
    const QString target = path(file);
    if (!states.ExportLayState(QString::fromUtf8(state), target))
        reportTestFailure(states.lastError());
    return target;
}

/// Layers Walls (red) and Attic, and these states of them.
QString TestLayerStateExchange::drawingWith(const QList<const char*>& states,
                                            const char* file) const
{
    const auto drawing = layer_drawing::make({{"Walls", 0, 1}, {"Attic", 0, 3}});
    CLayerStateUtility service(drawing.get());
    for (const char* state : states) {
        if (!service.AddNewLayStateToDB(QString::fromUtf8(state), QStringLiteral("from a file")))
            reportTestFailure(service.lastError());
    }
    const QString target = path(file);
    writeDrawing(*drawing, target);
    return target;
}

void TestLayerStateExchange::tick(CLayStateImportDlg& dialog, int row)
{
    auto* list = qobject_cast<QTableView*>(controlById(&dialog, CLayStateImportDlg::kList));
    list->setFocus();
    list->setCurrentIndex(list->model()->index(row, 0));
    QTest::keyClick(list, Qt::Key_Space);
    QVERIFY(dialog.states().isTicked(row));
}

void TestLayerStateExchange::exportAsksForAFileAndWritesIt()
{
    addState("A");
    openManager();
    press(kExport); // cancelled
    host().pickedFile = path("a.las");
    press(kExport);
    QCOMPARE(host().fileRequests.size(), 2U);
    const KestFileRequest& request = host().fileRequests.back();
    QCOMPARE(request.title, QStringLiteral("Export Layer State"));
    QCOMPARE(request.filters, QStringLiteral("Layer State file(*.las)|las"));
    QCOMPARE(request.start, QString());
    QVERIFY(request.toSave);
    QCOMPARE(host().fileFilters, (QList<int>{-1, -1}));
    QVERIFY(writtenFile(path("a.las")).contains("LAYERSTATEDICTIONARY"));
    QCOMPARE(host().historyNames, QStringList());
}

void TestLayerStateExchange::aFailedExportIsTold()
{
    addState("A");
    openManager();
    host().pickedFile = path("no such folder/a.las");
    press(kExport);
    QCOMPARE(host().printed.size(), 1);
    QVERIFY(host().printed.first().contains(QStringLiteral("a.las")));
    QVERIFY(isManagerOpen());
}

void TestLayerStateExchange::aNewStateIsImportedAndRestoredOnRequest()
{
    write(db(), "Walls")->setIsOff(true);
    addState("Plan");
    const QString file = exportFrom("Plan", "plan.las");
    openLayers({"Walls", "Doors"});
    openManager();
    inNext<CLSImportPromptDlg>([](CLSImportPromptDlg& dialog) {
        const auto* text = qobject_cast<QLabel*>(controlById(&dialog, CLSImportPromptDlg::kText));
        QVERIFY(text->text().contains(QStringLiteral("'Plan'")));
        press(dialog, CLSImportPromptDlg::kRestore);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QVERIFY(dialog.isToRestore());
    });
    importFile(file);
    QVERIFY(!isManagerOpen());
    QCOMPARE(manager().QDialog::result(), int(QDialog::Accepted));
    QVERIFY(read(db(), "Walls")->isOff());
    QVERIFY2(read(db(), "Roof"), "layers that were missing are made");
    QCOMPARE(row(0), QStringLiteral("Plan|Model|Yes|"));
    QCOMPARE(host().viewRefreshes, 1);
    QVERIFY2(db().undo(), "the restore");
    QVERIFY(!read(db(), "Walls")->isOff());
    QVERIFY2(db().undo(), "the import");
    QCOMPARE(stateNames(), QStringList());
}

void TestLayerStateExchange::theRestoreCanBeDeclined()
{
    write(db(), "Walls")->setIsOff(true);
    addState("Plan");
    const QString file = exportFrom("Plan", "plan.las");
    openLayers({"Walls", "Doors", "Roof"});
    openManager();
    inNext<CLSImportPromptDlg>(
        [](CLSImportPromptDlg& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    importFile(file);
    QVERIFY(isManagerOpen());
    QVERIFY(!read(db(), "Walls")->isOff());
    QCOMPARE(row(0), QStringLiteral("Plan|Model|No|"));
    QCOMPARE(chosen(), QList<int>{0});
    // The button does later what the question offered.
    QCOMPARE(shownMask(), storedMask("Plan") & 0x3FF);
    press(kRestore);
    QVERIFY(read(db(), "Walls")->isOff());
}

void TestLayerStateExchange::anImportOfAnExistingStateAsksAndReplaces()
{
    addState("Plan", "in the file");
    const QString file = exportFrom("Plan", "plan.las");
    QVERIFY(service().SetLayStateDesc(QStringLiteral("Plan"), QStringLiteral("in the drawing")));
    openManager();
    QCOMPARE(row(0), QStringLiteral("Plan|Model|Yes|in the drawing"));
    prompts().willConfirm(true);
    importFile(file);
    QCOMPARE(prompts().texts(), QStringList{QStringLiteral("Replace Existing Layer State Plan ?")});
    QCOMPARE(prompts().asked().first().caption, manager().windowTitle());
    QCOMPARE(row(0), QStringLiteral("Plan|Model|Yes|in the file"));
    QVERIFY2(isManagerOpen() && !QApplication::activeModalWidget(), "no prompt follows");
    QCOMPARE(stateNames().size(), 1);
    QVERIFY2(db().undo(), "both in one step");
    std::vector<layStateEntry> entries;
    QVERIFY(service().GetDBLayStateIDs(entries));
    QCOMPARE(entries.at(0).description, QStringLiteral("in the drawing"));
}

void TestLayerStateExchange::declinedReplacementLeavesTheState()
{
    addState("Plan", "in the file");
    const QString file = exportFrom("Plan", "plan.las");
    QVERIFY(service().SetLayStateDesc(QStringLiteral("Plan"), QStringLiteral("in the drawing")));
    openManager();
    press(kClearAll);
    const quint64 before = db().editStamp();
    prompts().willConfirm(false);
    importFile(file);
    QCOMPARE(db().editStamp(), before);
    QCOMPARE(row(0), QStringLiteral("Plan|Model|Yes|in the drawing"));
    QVERIFY2(box(kColor)->isChecked(), "all options were checked before the file was read");
}

void TestLayerStateExchange::theExtensionCountsInAnyCase()
{
    addState("Plan");
    const QString file = exportFrom("Plan", "plan.LaS");
    openManager();
    prompts().willConfirm(false);
    importFile(file);
    QCOMPARE(prompts().texts(), QStringList{QStringLiteral("Replace Existing Layer State Plan ?")});
}

void TestLayerStateExchange::otherFilesAreDrawingsAndARefusalIsTold()
{
    addState("Plan");
    openManager();
    const quint64 before = db().editStamp();
    for (const char* name : {"plan.dwg", "plan.las2", "plan"}) {
        writeFile(path(name), writtenFile(exportFrom("Plan", "plan.las")));
        host().printed.clear();
        importFile(path(name));
        QCOMPARE(host().printed.size(), 1);
        QVERIFY(!QApplication::activeModalWidget());
    }
    QCOMPARE(db().editStamp(), before);
    QCOMPARE(states().rowCount(), 1);
}

void TestLayerStateExchange::nonsenseInALayerStateFileChangesNothing()
{
    addState("Plan");
    const QByteArray good = writtenFile(exportFrom("Plan", "plan.las"));
    openLayers({"Walls"});
    openManager();
    const quint64 before = db().editStamp();
    const QList<QByteArray> files{
        QByteArray(),
        QByteArray(1, '\0'),
        "LAYERSTATEDICTIONARY",
        good.left(good.size() / 2).left(30),
        QByteArray("  0\r\nLAYERSTATEDICTIONARY\r\n  0\r\nLAYERSTATE\r\n"),
        QByteArray(100'000, '\xff')};
    for (const QByteArray& bytes : files) {
        writeFile(path("bad.las"), bytes);
        host().printed.clear();
        importFile(path("bad.las"));
        QCOMPARE(host().printed.size(), 1);
        QVERIFY(host().printed.first().contains(QStringLiteral("bad.las")));
    }
    importFile(path("absent.las"));
    importFile(folder().path() + QStringLiteral("/.las"));
    QCOMPARE(db().editStamp(), before);
    QCOMPARE(states().rowCount(), 0);
}

void TestLayerStateExchange::theNextImportStartsAtTheLastLayerStateFile()
{
    addState("Plan");
    const QString file = exportFrom("Plan", "plan.las");
    const QString drawing = drawingWith({"Other"}, "other.dxf");
    openManager();
    const auto importDrawing = [&] {
        inNext<CLayStateImportDlg>([](CLayStateImportDlg& dialog) { dialog.reject(); });
        importFile(drawing);
    };
    importDrawing();
    importDrawing();
    prompts().willConfirm(false);
    importFile(file);
    importDrawing();
    importDrawing();
    QCOMPARE(host().fileFilters, (QList<int>{-1, -1, -1, 3, 3}));
    QStringList starts;
    for (const KestFileRequest& request : host().fileRequests) {
        starts.append(request.start);
        QCOMPARE(request.title, QStringLiteral("Import Layer State"));
        QVERIFY(!request.toSave);
        QVERIFY(request.filters.startsWith(QStringLiteral(
            "Drawing|dwg,Standards|dws,Drawing Template|dwt,Layer state files|las,")));
    }
    const QString place = QFileInfo(file).path();
    QCOMPARE(starts, (QStringList{QString(), QString(), QString(), place, place}));
}

void TestLayerStateExchange::tickedStatesOfADrawingAreCopied()
{
    addState("Here");
    openManager();
    inNext<CLayStateImportDlg>([](CLayStateImportDlg& dialog) {
        QCOMPARE(dialog.states().rowCount(), 3);
        QCOMPARE(dialog.states().index(1, 0).data().toString(), QStringLiteral("Two"));
        QCOMPARE(dialog.states().index(1, 1).data().toString(), QStringLiteral("Model"));
        QCOMPARE(dialog.states().index(1, 2).data().toString(), QStringLiteral("Yes"));
        for (int row = 0; row < 3; ++row)
            QVERIFY(!dialog.states().isTicked(row));
        tick(dialog, 1);
        tick(dialog, 2);
        press(dialog, CLayStateImportDlg::kOk);
    });
    importFile(drawingWith({"One", "Two", "Three"}, "three.dxf"));
    QCOMPARE(states().names(),
             (QStringList{QStringLiteral("Here"), QStringLiteral("Two"), QStringLiteral("Three")}));
    QCOMPARE(row(1), QStringLiteral("Two|Model|No|from a file"));
    QVERIFY2(!layer_drawing::id(db(), "Attic").isNull(), "its layer came along");
    QVERIFY2(db().undo(), "all in one step");
    QCOMPARE(stateNames(), QStringList{QStringLiteral("Here")});
}

void TestLayerStateExchange::statesComeFromDwgDrawingsTemplatesAndStandards()
{
    KEST_QTEST_NEEDS_DRAWINGS();
    const char* const drawings[] = {DwgCopy::kVersion2000, DwgCopy::kVersion2004,
                                    DwgCopy::kVersion2018};
    const char* const files[] = {"plan.dwg", "house.dws", "office.DWT"};
    openManager();
    for (int i = 0; i < 3; ++i) {
        const QString file = DwgCopy::make(drawings[i], path(files[i]));
        const QString state = QStringLiteral("Of ") + QLatin1String(files[i]);
        const auto source = readDrawing(file);
        source->layerTable().add(QStringLiteral("Walls %1").arg(i));
        QVERIFY(CLayerStateUtility(source.get()).AddNewLayStateToDB(state, QString()));
        writeDrawing(*source, file);
        inNext<CLayStateImportDlg>([&](CLayStateImportDlg& dialog) {
            tick(dialog, static_cast<int>(dialog.states().rowCount()) - 1);
            press(dialog, CLayStateImportDlg::kOk);
        });
        importFile(file);
        QVERIFY(states().rowOf(state) >= 0);
    }
    QCOMPARE(host().printed, QStringList());
    QVERIFY2(!layer_drawing::id(db(), "Walls 2").isNull(), "its layers came along");
}

void TestLayerStateExchange::anExistingStateIsAskedAboutForEachRow()
{
    addState("One", "old");
    addState("Two", "old");
    openManager();
    prompts().willConfirm(false);
    prompts().willConfirm(true);
    inNext<CLayStateImportDlg>([](CLayStateImportDlg& dialog) {
        for (int row = 0; row < 3; ++row)
            tick(dialog, row);
        press(dialog, CLayStateImportDlg::kOk);
    });
    importFile(drawingWith({"One", "Two", "Three"}, "three.dxf"));
    QCOMPARE(prompts().texts(),
             (QStringList{
                 QStringLiteral("Layer State 'One' already exists. Do you want to replace it?"),
                 QStringLiteral("Layer State 'Two' already exists. Do you want to replace it?")}));
    QStringList rows;
    for (int i = 0; i < states().rowCount(); ++i)
        rows.append(states().entry(i).name + QLatin1Char(' ') + states().entry(i).description);
    rows.sort();
    QCOMPARE(rows,
             (QStringList{QStringLiteral("One old"), QStringLiteral("Three from a file"),
                          QStringLiteral("Two from a file")}));
}

void TestLayerStateExchange::aStateInOtherCaseIsNotAskedAboutAndStays()
{
    addState("PLAN", "old");
    openManager();
    inNext<CLayStateImportDlg>([](CLayStateImportDlg& dialog) {
        tick(dialog, 0);
        press(dialog, CLayStateImportDlg::kOk);
    });
    importFile(drawingWith({"Plan"}, "plan.dxf"));
    QCOMPARE(prompts().texts(), QStringList());
    QCOMPARE(row(0), QStringLiteral("PLAN|Model|Yes|old"));
    QCOMPARE(states().rowCount(), 1);
    QCOMPARE(host().printed.size(), 1);
}

void TestLayerStateExchange::aStateThatCameMeanwhileIsReplaced()
{
    openManager();
    inNext<CLayStateImportDlg>([this](CLayStateImportDlg& dialog) {
        addState("Plan", "of a script");
        tick(dialog, 0);
        press(dialog, CLayStateImportDlg::kOk);
    });
    importFile(drawingWith({"Plan"}, "plan.dxf"));
    QCOMPARE(prompts().texts(), QStringList());
    QCOMPARE(host().printed, QStringList());
    QCOMPARE(row(0), QStringLiteral("Plan|Model|No|from a file"));
    QCOMPARE(states().rowCount(), 1);
}

void TestLayerStateExchange::aStateThatCannotBeHadReplacesNothing()
{
    // In the other drawing the state belongs to an external reference and is but a name.
    auto source = layer_drawing::make({{"Walls"}});
    QVERIFY(CLayerStateUtility(source.get()).AddNewLayStateToDB(QStringLiteral("Own"), {}));
    LayerStateDictionary(*source).open(OdDb::kForWrite)->setAt(QStringLiteral("ref__plan"), {});
    addState("ref__plan", "mine");
    CLayStateImportDlg dialog(std::move(source), {QStringLiteral("ref__plan")});
    dialog.show();
    QCOMPARE(dialog.states().rowOf(QStringLiteral("ref__plan")), 1);
    tick(dialog, 1);
    prompts().willConfirm(true);
    press(dialog, CLayStateImportDlg::kOk);
    QCOMPARE(stateNames(), QStringList{QStringLiteral("ref__plan")});
    QCOMPARE(host().printed.size(), 1);
    QCOMPARE(host().historyNames, QStringList());
}

void TestLayerStateExchange::aStateIsTheSameAfterEveryWay()
{
    write(db(), "Walls")->setColor(OdCmColor::fromRgb(10, 200, 30));
    write(db(), "Doors")->setIsOff(true);
    write(db(), "Doors")->setLineWeight(50);
    write(db(), "Roof")->setIsPlottable(false);
    addState("Way/1", "in \"words\"", 0x3FF);
    const auto looks = [](const OdDbDatabase& drawing) {
        QStringList all;
        for (const char* name : {"Walls", "Doors", "Roof"}) {
            const auto layer = read(drawing, name);
            all.append(QStringLiteral("%1 %2 %3 %4")
                           .arg(layer->color().color(), 0, 16)
                           .arg(layer->isOff())
                           .arg(layer->lineWeight())
                           .arg(layer->isPlottable()));
        }
        return all;
    };
    const QStringList wanted = looks(db());
    const QString las = exportFrom("Way/1", "way.las");
    const QString saved = path("saved.dxf");
    writeDrawing(db(), saved);

    const auto restoreFirst = [&] {
        openManager();
        QCOMPARE(row(0).section(QLatin1Char('|'), 0, 1), QStringLiteral("Way/1|Model"));
        QCOMPARE(row(0).section(QLatin1Char('|'), 3), QStringLiteral("in \"words\""));
        QCOMPARE(shownMask(), 0x3FF);
        press(kRestore);
        QCOMPARE(looks(db()), wanted);
    };
    // Saved and opened again; the layers changed meanwhile.
    openDrawing(readDrawing(saved));
    for (const char* name : {"Walls", "Doors", "Roof"}) {
        write(db(), name)->setColor(OdCmColor::fromIndex(7));
        write(db(), name)->setIsOff(false);
        write(db(), name)->setLineWeight(0);
        write(db(), name)->setIsPlottable(true);
    }
    restoreFirst();
    // Into another drawing, by a file and from the saved drawing.
    openLayers({"Roof", "Doors", "Walls"});
    openManager();
    inNext<CLSImportPromptDlg>([](CLSImportPromptDlg& dialog) { dialog.reject(); });
    importFile(las);
    restoreFirst();
    openLayers({"Roof", "Doors"});
    openManager();
    inNext<CLayStateImportDlg>([](CLayStateImportDlg& dialog) {
        tick(dialog, 0);
        press(dialog, CLayStateImportDlg::kOk);
    });
    importFile(saved);
    restoreFirst();
}

QTEST_MAIN(TestLayerStateExchange)
#include "test_layer_state_exchange.moc"
