#include "StateDialogFixture.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layer_states/CNewLayStateDlg.h"

#include <QComboBox>
#include <QLineEdit>

using namespace StateControl;
using layer_drawing::write;

/// The buttons beside the list of states.
class TestLayerStateCommands : public StateDialogFixture
{
    Q_OBJECT

private slots:
    void newAppendsARowAndSelectsIt();
    void newInAnEmptyDrawingChecksTheBoxes();
    void newWithAnExistingNameReplacesTheDescriptionOnly();
    void declinedReplacementChangesNothing();
    void okWithAnEmptyNameAppendsAnEmptyRow();
    void saveAsksFirst();
    void renameWorksInPlace();
    void theEditKeyRenamesFromAnyColumn();
    void escapeKeepsTheName();
    void anyNameIsPassedOnAsItIs();
    void aRefusedNameIsShownAllTheSameAndTold();
    void deletionAsksForEachState();

private:
    void rename(const QString& text, Qt::Key end = Qt::Key_Return);
    static void enterName(CNewLayStateDlg& dialog, const QString& name, const QString& text);
};

void TestLayerStateCommands::enterName(CNewLayStateDlg& dialog, const QString& name,
                                       const QString& text)
{
    auto* combo = qobject_cast<QComboBox*>(controlById(&dialog, CNewLayStateDlg::kName));
    QTest::keyClicks(combo->lineEdit(), name);
    QTest::keyClicks(controlById(&dialog, CNewLayStateDlg::kDescription), text);
    QTest::keyClick(&dialog, Qt::Key_Return);
}

void TestLayerStateCommands::newAppendsARowAndSelectsIt()
{
    addState("A", "", 0x004);
    addState("B");
    openManager();
    clickRow(1, Qt::ControlModifier);
    clickRow(0);
    inNext<CNewLayStateDlg>([](CNewLayStateDlg& dialog) {
        enterName(dialog, QStringLiteral("  New / one "), QStringLiteral("text"));
    });
    press(kNew);
    QCOMPARE(row(2), QStringLiteral("New / one|Model|Yes|text"));
    QCOMPARE(chosen(), QList<int>{2});
    QCOMPARE(manager().focusWidget(), &manager().list());
    QCOMPARE(manager().restoreMask() & kInModel, kInModel);
    QCOMPARE(stateNames().last(), QStringLiteral("New / one"));
    QVERIFY(isEnabled(kSave));
    QVERIFY(db().undo());
    QCOMPARE(stateNames().size(), 2);
}

void TestLayerStateCommands::newInAnEmptyDrawingChecksTheBoxes()
{
    enterSheet();
    openManager();
    inNext<CNewLayStateDlg>(
        [](CNewLayStateDlg& dialog) { enterName(dialog, QStringLiteral("First"), QString()); });
    press(kNew);
    QCOMPARE(row(0), QStringLiteral("First|Layout|Yes|"));
    QCOMPARE(shownMask(), kInLayout);
}

void TestLayerStateCommands::newWithAnExistingNameReplacesTheDescriptionOnly()
{
    addState("Plan", "old");
    addState("Other");
    write(db(), "Walls")->setIsOff(true);
    openManager();
    clickRow(1);
    prompts().willConfirm(true);
    inNext<CNewLayStateDlg>([](CNewLayStateDlg& dialog) {
        enterName(dialog, QStringLiteral("PLAN"), QStringLiteral("new"));
    });
    press(kNew);
    QCOMPARE(prompts().asked().last().text, QStringLiteral("Do you want to replace the state?"));
    QCOMPARE(prompts().asked().last().caption, QStringLiteral("Check LayState"));
    QCOMPARE(row(0), QStringLiteral("Plan|Model|No|new"));
    QCOMPARE(chosen(), QList<int>{0});
    QCOMPARE(states().rowCount(), 2);
    std::vector<layStateEntry> entries;
    QVERIFY(service().GetDBLayStateIDs(entries));
    QCOMPARE(entries[0].description, QStringLiteral("new"));
    QVERIFY2(!entries[0].sameAsDrawing, "the settings in the state stay as they were");
}

void TestLayerStateCommands::declinedReplacementChangesNothing()
{
    addState("Plan", "old");
    addState("Other");
    openManager();
    clickRow(1);
    prompts().willConfirm(false);
    inNext<CNewLayStateDlg>([](CNewLayStateDlg& dialog) {
        enterName(dialog, QStringLiteral("plan"), QStringLiteral("new"));
    });
    press(kNew);
    QCOMPARE(row(0), QStringLiteral("Plan|Model|Yes|old"));
    QCOMPARE(chosen(), QList<int>{1});
    QCOMPARE(states().rowCount(), 2);
}

void TestLayerStateCommands::okWithAnEmptyNameAppendsAnEmptyRow()
{
    openManager();
    inNext<CNewLayStateDlg>([](CNewLayStateDlg& dialog) { press(dialog, CNewLayStateDlg::kOk); });
    press(kNew);
    QCOMPARE(row(0), QStringLiteral("|Model|Yes|"));
    QCOMPARE(stateNames(), QStringList());
}

void TestLayerStateCommands::saveAsksFirst()
{
    addState("A");
    write(db(), "Walls")->setIsOff(true);
    openManager();
    QCOMPARE(row(0), QStringLiteral("A|Model|No|"));
    prompts().willConfirm(false);
    press(kSave);
    QCOMPARE(row(0), QStringLiteral("A|Model|No|"));
    press(kColor);
    prompts().willConfirm(true);
    press(kSave);
    QCOMPARE(prompts().texts().last(), QStringLiteral("OverWrite Selected Layer State?"));
    QCOMPARE(row(0), QStringLiteral("A|Model|Yes|"));
    QCOMPARE(storedMask("A"), 0x7FF & ~0x020);
    QVERIFY(isManagerOpen());
    QVERIFY(db().undo());
    QCOMPARE(storedMask("A"), 0x7FF);
}

void TestLayerStateCommands::rename(const QString& text, Qt::Key end)
{
    press(kRename);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(editor && manager().list().isAncestorOf(editor));
    // Test keys are ASCII and few: long and foreign texts come as by pasting.
    editor->setText(text);
    QTest::keyClick(editor, end);
    QCoreApplication::processEvents();
}

void TestLayerStateCommands::renameWorksInPlace()
{
    addState("A", "kept");
    openManager();
    rename(QStringLiteral("Better"));
    QVERIFY2(isManagerOpen(), "Enter ends the edit only");
    QCOMPARE(row(0), QStringLiteral("Better|Model|Yes|kept"));
    QCOMPARE(stateNames(), QStringList{QStringLiteral("Better")});
    QVERIFY(db().undo());
    QCOMPARE(stateNames(), QStringList{QStringLiteral("A")});
}

void TestLayerStateCommands::theEditKeyRenamesFromAnyColumn()
{
    addState("A", "text");
    openManager();
    QTreeView& list = manager().list();
    QTest::mouseClick(
        list.viewport(), Qt::LeftButton, {},
        list.visualRect(states().index(0, LayerStateListModel::Description)).center());
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_F2);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(editor);
    QCOMPARE(editor->text(), QStringLiteral("A"));
    editor->setText(QStringLiteral("Better"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(stateNames(), QStringList{QStringLiteral("Better")});
    QCOMPARE(row(0), QStringLiteral("Better|Model|Yes|text"));
}

void TestLayerStateCommands::escapeKeepsTheName()
{
    addState("A");
    openManager();
    rename(QStringLiteral("Better"), Qt::Key_Escape);
    QVERIFY(isManagerOpen());
    QCOMPARE(row(0), QStringLiteral("A|Model|Yes|"));
    QCOMPARE(stateNames(), QStringList{QStringLiteral("A")});
    QCOMPARE(host().historyNames, QStringList());
}

void TestLayerStateCommands::anyNameIsPassedOnAsItIs()
{
    addState("A");
    openManager();
    for (const QString& name :
         {QStringLiteral("a/b<c>*|?"), QString(3000, QLatin1Char('x')), QStringLiteral("%s %1 &"),
          QString::fromUtf8("\u4e2d\u6587 \U0001F600")})
    {
        rename(name);
        QCOMPARE(stateNames(), QStringList{name});
        QCOMPARE(states().entry(0).name, name);
    }
    prompts().willConfirm(true);
    press(kDelete);
    QCOMPARE(stateNames(), QStringList());
}

void TestLayerStateCommands::aRefusedNameIsShownAllTheSameAndTold()
{
    addState("A");
    addState("B");
    openManager();
    rename(QStringLiteral("b"));
    QCOMPARE(states().names(), (QStringList{QStringLiteral("b"), QStringLiteral("B")}));
    QCOMPARE(stateNames(), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(host().printed.size(), 1);
    QVERIFY(host().printed.first().contains(QStringLiteral("\"b\"")));
}

void TestLayerStateCommands::deletionAsksForEachState()
{
    for (const char* name : {"A", "B", "C", "D"})
        addState(name);
    openManager();
    clickRow(2, Qt::ShiftModifier);
    prompts().willConfirm(true);
    prompts().willConfirm(false);
    prompts().willConfirm(true);
    press(kDelete);
    QCOMPARE(
        prompts().texts(),
        (QStringList{QStringLiteral("Are you sure you want to  permanently delete the LS A ?"),
                     QStringLiteral("Are you sure you want to  permanently delete the LS B ?"),
                     QStringLiteral("Are you sure you want to  permanently delete the LS C ?")}));
    QCOMPARE(states().names(), (QStringList{QStringLiteral("B"), QStringLiteral("D")}));
    QCOMPARE(stateNames(), (QStringList{QStringLiteral("B"), QStringLiteral("D")}));
    QVERIFY(db().undo());
    QCOMPARE(stateNames().size(), 4);
    QVERIFY2(prompts().asked().first().caption.isEmpty(), "the default caption");
}

QTEST_MAIN(TestLayerStateCommands)
#include "test_layer_state_commands.moc"
