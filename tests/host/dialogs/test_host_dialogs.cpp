#include "database/drawing/OdDbDatabase.h"
#include "database/store/HeaderVariables.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/values/OdCmColor.h"
#include "host/dialogs/HostPrompts.h"
#include "host/help/CHelpPage.h"
#include "host/help/CHelpViewer.h"
#include "host/help/HelpTopics.h"
#include "host/support/WindowFixture.h"
#include "host/window/WindowActions.h"
#include "host/window/commandline/CCommandEdit.h"
#include "host/window/commandline/CCommandLine.h"
#include "io/DrawingFile.h"
#include "sdk/IKestIOManager.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/KestStatus.h"
#include "sdk/LocalSearch.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QTest>
#include <QTimer>

/// The pick dialogs as plug-ins ask for them.
class TestHostDialogs : public WindowFixture
{
    Q_OBJECT

private:
    IKestServicesManager& services() const { return *getServicesManagerInterface(); }
    OdDbDatabase& drawing() const { return *current()->database(); }
    OdDbObjectId linetype(const char* name) const
    {
        return drawing().table(OdDbTableKind::Linetype).getAt(QString::fromUtf8(name));
    }
    CHelpViewer* viewer() const { return window->findChild<CHelpViewer*>(); }
    QString helpPage() const { return viewer() ? viewer()->page().source().fileName() : QString(); }
    /// The prompts of the fixture answer file questions in their own way.
    void useRecordedFiles() { recorded = std::make_unique<RecordingPrompts>(); }
    void finish() override
    {
        recorded.reset();
        WindowFixture::finish();
    }
    std::unique_ptr<RecordingPrompts> recorded;

private slots:
    void answerThePickedColour();
    void leaveTheColourWhenCancelled();
    void askForALinetypeOfTheDrawing();
    void addALoadedLinetypeUndoably();
    void joinTheUndoRecordThatIsOpen();
    void writeALoadedLinetypeToTheFile();
    void refuseLinetypesThatCannotBeAdded();
    void askForALineweightInTheUsersUnit();
    void offerThePlotStylesOfTheDrawing();
    void sayWhenColoursDecideAboutPlotStyles();
    void answerAnErrorWithoutADrawing();
    void answerAnErrorWithoutAWindow();
    void pickFilesByAListOfFilters();
    void addTheExtensionAndAskBeforeOverwriting();
    void startFileDialogsInTheFolderUsedLast();
    void openTheHelpOnTheirTopics();
    void openTheHelpOnWhatHasTheFocus();
    void openTheHelpFromItsMenu();
    void openTheHelpOverThemselvesByF1();
};

void TestHostDialogs::answerThePickedColour()
{
    prompts->willPickColour(ColourValue{ColourValue::Kind::TrueColour, 0, 0xFF7F00, {}});
    OdCmColor color = OdCmColor::fromIndex(3);
    KestPickRequest request;
    request.title = QStringLiteral("Color of A-DOOR");
    request.offersByLayer = true;
    QCOMPARE(services().pickColor(request, color), kest::kNormal);
    QCOMPARE(color, OdCmColor::fromRgb(255, 127, 0));
    const ColourQuestion& asked = prompts->colourQuestions.first();
    QCOMPARE(asked.title, request.title);
    QCOMPARE(asked.start.index, 3);
    QVERIFY(asked.offersByLayer && !asked.offersByBlock);
}

void TestHostDialogs::leaveTheColourWhenCancelled()
{
    prompts->willPickColour(std::nullopt);
    OdCmColor color = OdCmColor::fromIndex(3);
    QCOMPARE(services().pickColor({}, color), kest::kCancel);
    QCOMPARE(color, OdCmColor::fromIndex(3));
}

void TestHostDialogs::askForALinetypeOfTheDrawing()
{
    open(TestDrawing().add({.name = "Wall"}));
    OdDbObjectId id = linetype("Continuous");
    prompts->willPickLinetype(QStringLiteral("continuous"));
    QCOMPARE(services().pickLinetype({}, id), kest::kNormal);
    QCOMPARE(id, linetype("Continuous"));
    const LinetypeQuestion& asked = prompts->linetypeQuestions.first();
    QCOMPARE(asked.current, QStringLiteral("Continuous"));
    QStringList names;
    for (const LinetypeItem& item : asked.linetypes)
        names << item.name;
    QCOMPARE(names, QStringList{QStringLiteral("Continuous")});
    prompts->willPickLinetype(std::nullopt);
    QCOMPARE(services().pickLinetype({}, id), kest::kCancel);
    prompts->willPickLinetype(QStringLiteral("gone"));
    QCOMPARE(services().pickLinetype({}, id), kest::kError);
    QCOMPARE(id, linetype("Continuous"));
}

void TestHostDialogs::addALoadedLinetypeUndoably()
{
    open(TestDrawing());
    prompts->willPickLinetype(std::nullopt);
    OdDbObjectId id;
    services().pickLinetype({}, id);
    const auto load = prompts->linetypeQuestions.first().load;
    QCOMPARE(load({QStringLiteral("CHAIN"), QStringLiteral("Chain"), {24, -3, 0, -3}}), QString());
    QVERIFY(!linetype("chain").isNull());
    {
        const auto record = linetype("CHAIN").openObject<OdDbLinetypeTableRecord>();
        QCOMPARE(record->comments(), QStringLiteral("Chain"));
        QCOMPARE(record->dashes(), (std::vector<double>{24, -3, 0, -3}));
    }
    QVERIFY(current()->undo());
    QVERIFY(linetype("CHAIN").isNull());
    QVERIFY(current()->redo());
    QVERIFY(!linetype("CHAIN").isNull());
    QCOMPARE(drawing().audit(), QStringList());
}

void TestHostDialogs::joinTheUndoRecordThatIsOpen()
{
    open(TestDrawing().add({.name = "Wall"}));
    prompts->willPickLinetype(std::nullopt);
    OdDbObjectId id;
    services().pickLinetype({}, id);
    drawing().startUndoRecord();
    prompts->linetypeQuestions.first().load({QStringLiteral("CHAIN"), {}, {24, -3}});
    prompts->linetypeQuestions.first().load({QStringLiteral("HIDDEN"), {}, {5, -2.5}});
    QVERIFY(drawing().isUndoRecordOpen());
    drawing().endUndoRecord();
    QVERIFY(drawing().undo());
    QVERIFY(linetype("CHAIN").isNull() && linetype("HIDDEN").isNull());
    QVERIFY(!drawing().hasUndo());
}

void TestHostDialogs::writeALoadedLinetypeToTheFile()
{
    open(TestDrawing());
    prompts->willPickLinetype(std::nullopt);
    OdDbObjectId id;
    services().pickLinetype({}, id);
    prompts->linetypeQuestions.first().load(
        {QStringLiteral("CHAIN"), QStringLiteral("Chain"), {24, -3, 0, -3}});
    typeLine("SAVE");
    const auto saved = readDrawing(path("plan.dxf"));
    const OdDbObjectId there = saved->table(OdDbTableKind::Linetype).getAt(QStringLiteral("CHAIN"));
    const auto record = there.openObject<OdDbLinetypeTableRecord>();
    QVERIFY(record);
    QCOMPARE(record->dashes(), (std::vector<double>{24, -3, 0, -3}));
}

void TestHostDialogs::refuseLinetypesThatCannotBeAdded()
{
    open(TestDrawing());
    prompts->willPickLinetype(std::nullopt);
    OdDbObjectId id;
    services().pickLinetype({}, id);
    const auto load = prompts->linetypeQuestions.first().load;
    QCOMPARE(load({QStringLiteral("a|b"), {}, {1, -1}}),
             QStringLiteral("\"a|b\" cannot be the name of a linetype."));
    QVERIFY(!load({QString(), {}, {1, -1}}).isEmpty());
    QVERIFY(!load({QString(256, QLatin1Char('x')), {}, {1, -1}}).isEmpty());
    QCOMPARE(load({QStringLiteral("CONTINUOUS"), {}, {1, -1}}),
             QStringLiteral("There is a \"CONTINUOUS\" already."));
    QVERIFY(!current()->isModified());
    typeLine("CLOSE");
    QCOMPARE(load({QStringLiteral("CHAIN"), {}, {1, -1}}), QStringLiteral("No drawing is open."));
}

void TestHostDialogs::askForALineweightInTheUsersUnit()
{
    prompts->willPickLineweight(50);
    int weight = 25;
    QCOMPARE(services().pickLineweight({}, weight), kest::kNormal);
    QCOMPARE(weight, 50);
    QCOMPARE(prompts->lineweightQuestions.last().current, 25);
    QVERIFY(prompts->lineweightQuestions.last().inMillimetres);
    typeLine("LWUNITS 0");
    prompts->willPickLineweight(std::nullopt);
    QCOMPARE(services().pickLineweight({}, weight), kest::kCancel);
    QCOMPARE(weight, 50);
    QVERIFY(!prompts->lineweightQuestions.last().inMillimetres);
}

void TestHostDialogs::offerThePlotStylesOfTheDrawing()
{
    open(TestDrawing());
    drawing().setHeaderVariable(QStringLiteral("$PSTYLEMODE"), 290, QStringLiteral("0"));
    prompts->willPickPlotStyle(QStringLiteral("Normal"));
    QString name = QStringLiteral("Grey");
    QCOMPARE(services().pickPlotStyle({}, name), kest::kNormal);
    QCOMPARE(name, QStringLiteral("Normal"));
    const PlotStyleQuestion& asked = prompts->plotStyleQuestions.first();
    QCOMPARE(asked.current, QStringLiteral("Grey"));
    QCOMPARE(asked.names, QStringList{QStringLiteral("Normal")});
    QVERIFY(asked.whyFixed.isEmpty());
}

void TestHostDialogs::sayWhenColoursDecideAboutPlotStyles()
{
    open(TestDrawing());
    drawing().setHeaderVariable(QStringLiteral("$PSTYLEMODE"), 290, QStringLiteral("1"));
    prompts->willPickPlotStyle(std::nullopt);
    QString name = QStringLiteral("Color_7");
    QCOMPARE(services().pickPlotStyle({}, name), kest::kCancel);
    QVERIFY(prompts->plotStyleQuestions.first().whyFixed.contains(QStringLiteral("colors")));
}

void TestHostDialogs::answerAnErrorWithoutADrawing()
{
    OdDbObjectId id;
    QString name;
    QCOMPARE(services().pickLinetype({}, id), kest::kError);
    QCOMPARE(services().pickPlotStyle({}, name), kest::kError);
    QVERIFY(prompts->asked().isEmpty());
}

void TestHostDialogs::answerAnErrorWithoutAWindow()
{
    core->setDialogs(nullptr);
    OdCmColor color;
    int weight = 0;
    int filter = -1;
    QString path;
    QCOMPARE(services().pickColor({}, color), kest::kError);
    QCOMPARE(services().pickLineweight({}, weight), kest::kError);
    QCOMPARE(getIOManagerInterface()->selectFile({}, path, filter), kest::kError);
    services().showHelp(704);
    QVERIFY(!viewer());
}

void TestHostDialogs::pickFilesByAListOfFilters()
{
    useRecordedFiles();
    KestFileRequest request;
    request.title = QStringLiteral("Import Layer State");
    request.filters =
        QStringLiteral("Drawing|dwg,Standards|dws,Drawing Template|dwt,Layer state files|las");
    QString file;
    int filter = 3;
    recorded->willOpenFile(path("all.las"), 2);
    QCOMPARE(getIOManagerInterface()->selectFile(request, file, filter), kest::kNormal);
    QCOMPARE(file, path("all.las"));
    QCOMPARE(filter, 2);
    QCOMPARE(recorded->fileQuestions.first().filterIndex, 3);
    QVERIFY(recorded->fileQuestions.first().filter.endsWith(
        QStringLiteral(";;Layer state files (*.las *.LAS)")));
    filter = 17;
    recorded->willOpenFile(QString());
    QCOMPARE(getIOManagerInterface()->selectFile(request, file, filter), kest::kCancel);
    QCOMPARE(recorded->fileQuestions.last().filterIndex, -1);
    QCOMPARE(file, path("all.las"));
    QCOMPARE(filter, 17);
}

void TestHostDialogs::addTheExtensionAndAskBeforeOverwriting()
{
    useRecordedFiles();
    KestFileRequest request;
    request.title = QStringLiteral("Export Layer State");
    request.filters = QStringLiteral("Layer State file(*.las)|las");
    request.toSave = true;
    QString file;
    int filter = -1;
    recorded->willSaveFile(path("new"), 0);
    QCOMPARE(getIOManagerInterface()->selectFile(request, file, filter), kest::kNormal);
    QCOMPARE(file, path("new.las"));
    QCOMPARE(filter, 0);

    QFile there(path("old.las"));
    QVERIFY(there.open(QIODevice::WriteOnly));
    there.close();
    recorded->willSaveFile(path("old"), 0);
    recorded->willConfirm(false);
    recorded->willSaveFile(path("other.las"), 0);
    QCOMPARE(getIOManagerInterface()->selectFile(request, file, filter), kest::kNormal);
    QCOMPARE(file, path("other.las"));
    QVERIFY(recorded->texts().contains(path("old.las")
                                       + QStringLiteral(" exists already. Overwrite it?")));
    recorded->willSaveFile(path("old"), 0);
    recorded->willConfirm(true);
    QCOMPARE(getIOManagerInterface()->selectFile(request, file, filter), kest::kNormal);
    QCOMPARE(file, path("old.las"));
}

void TestHostDialogs::startFileDialogsInTheFolderUsedLast()
{
    // The real dialogs, over the real settings.
    HostPrompts real(core->settings());
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("states")));
    QFile state(path("states/all.las"));
    QVERIFY(state.open(QIODevice::WriteOnly));
    state.close();
    KestFileRequest request;
    request.title = QStringLiteral("Import Layer State");
    request.filters = QStringLiteral("Layer state files|las");
    const auto inDialog = [this](auto work) {
        QTimer::singleShot(0, this, [work] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            work(*dialog);
        });
    };
    QString file;
    int filter = -1;
    request.start = path("states");
    inDialog([this](QFileDialog& dialog) {
        dialog.selectFile(path("states/all.las"));
        static_cast<QDialog&>(dialog).accept();
    });
    QCOMPARE(getIOManagerInterface()->selectFile(request, file, filter), kest::kNormal);
    QCOMPARE(file, path("states/all.las"));
    QCOMPARE(filter, 0);
    request.start.clear();
    inDialog([this](QFileDialog& dialog) {
        QCOMPARE(dialog.directory().absolutePath(), path("states"));
        dialog.reject();
    });
    QCOMPARE(getIOManagerInterface()->selectFile(request, file, filter), kest::kCancel);
}

void TestHostDialogs::openTheHelpOnTheirTopics()
{
    LocalSearch::CommandRefHelp(704);
    QCOMPARE(helpPage(), QStringLiteral("property-filters.md"));
    QVERIFY(viewer()->isVisible());
    QVERIFY(!viewer()->isModal());
    const CHelpViewer* first = viewer();
    LocalSearch::CommandRefHelp(706);
    QCOMPARE(helpPage(), QStringLiteral("layer-states.md"));
    LocalSearch::CommandRefHelp(-5);
    QCOMPARE(helpPage(), QStringLiteral("index.md"));
    QCOMPARE(viewer(), first);
}

void TestHostDialogs::openTheHelpOnWhatHasTheFocus()
{
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    window->commandLine().edit().setFocus();
    QTest::keyClick(&window->commandLine().edit(), Qt::Key_F1);
    QCOMPARE(helpPage(), QStringLiteral("command-line.md"));
}

void TestHostDialogs::openTheHelpFromItsMenu()
{
    action(WindowAction::HelpPalette).trigger();
    QCOMPARE(helpPage(), QStringLiteral("palette.md"));
    action(WindowAction::HelpCommandLine).trigger();
    QCOMPARE(helpPage(), QStringLiteral("command-line.md"));
    action(WindowAction::HelpContents).trigger();
    QCOMPARE(helpPage(), QStringLiteral("index.md"));
}

void TestHostDialogs::openTheHelpOverThemselvesByF1()
{
    HostPrompts real(core->settings());
    QTimer::singleShot(0, this, [this] {
        QWidget* dialog = QApplication::activeModalWidget();
        QVERIFY(dialog);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_F1);
        QCOMPARE(helpPage(), QStringLiteral("lineweights.md"));
        QCOMPARE(viewer()->parentWidget(), dialog);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Down);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    });
    int weight = 25;
    QCOMPARE(services().pickLineweight({}, weight), kest::kNormal);
    QCOMPARE(weight, 30);
    QCOMPARE(viewer()->parentWidget(), window.get());
    QVERIFY(viewer()->isVisible());
}

QTEST_MAIN(TestHostDialogs)
#include "test_host_dialogs.moc"
