#include "StateDialogFixture.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layer_states/CNewLayStateDlg.h"
#include "layermanager/layer_states/LayerStateDialogs.h"

#include <QComboBox>
#include <QLineEdit>

#include <algorithm>

using Dlg = CNewLayStateDlg;

class TestNewLayerState : public StateDialogFixture
{
    Q_OBJECT

private slots:
    void existingNamesAreOfferedInOrderWithTheirDescriptions();
    void choosingANameBringsItsDescription();
    void okNeedsANameOnceItWasTyped();
    void aTypedNameIsNotCompletedToAnExistingOne();
    void theDescriptionHasAtMost250Characters();
    void aNameInOtherCaseReplacesTheDescription();
    void anyCharacterMayStandInAName();
    void cancelWritesNothing();
    void helpOpensItsTopic();
    void theCommandOfThePaletteOpensIt();
    void withoutADrawingNothingOpens();

private:
    static QComboBox& names(QWidget& dialog)
    {
        return *qobject_cast<QComboBox*>(controlById(&dialog, Dlg::kName));
    }
    static QLineEdit& description(QWidget& dialog)
    {
        return *qobject_cast<QLineEdit*>(controlById(&dialog, Dlg::kDescription));
    }
    std::unique_ptr<Dlg> open(const ExistingStates& existing = {}) const
    {
        auto dialog = std::make_unique<Dlg>(existing);
        dialog->show();
        dialog->activateWindow();
        if (!QTest::qWaitForWindowActive(dialog.get()))
            reportTestFailure(QStringLiteral("The dialog does not become active."));
        return dialog;
    }
};

void TestNewLayerState::existingNamesAreOfferedInOrderWithTheirDescriptions()
{
    const auto dialog = open({{QStringLiteral("b"), QStringLiteral("of b")},
                              {QStringLiteral("A"), QString()},
                              {QStringLiteral("c"), QStringLiteral("of c")}});
    const QComboBox& combo = names(*dialog);
    QCOMPARE(combo.count(), 3);
    QCOMPARE(combo.itemText(0), QStringLiteral("b"));
    QCOMPARE(combo.itemText(1), QStringLiteral("A"));
    QCOMPARE(combo.itemData(2).toString(), QStringLiteral("of c"));
    QCOMPARE(combo.maxVisibleItems(), 4);
    QCOMPARE(combo.currentText(), QString());
    QVERIFY2(controlById(dialog.get(), Dlg::kOk)->isEnabled(), "until a name is typed");
    QCOMPARE(combo.accessibleDescription(),
             QStringLiteral("Specifies a name for the new layer state to be saved."));
}

void TestNewLayerState::choosingANameBringsItsDescription()
{
    const auto dialog = open({{QStringLiteral("A"), QStringLiteral("of A")},
                              {QStringLiteral("B"), QStringLiteral("of B")}});
    QTest::keyClicks(&description(*dialog), QStringLiteral("typed"));
    QTest::keyClick(&names(*dialog), Qt::Key_Down);
    QCOMPARE(names(*dialog).currentText(), QStringLiteral("A"));
    QCOMPARE(description(*dialog).text(), QStringLiteral("of A"));
    QTest::keyClick(&names(*dialog), Qt::Key_Down);
    QCOMPARE(description(*dialog).text(), QStringLiteral("of B"));
}

void TestNewLayerState::okNeedsANameOnceItWasTyped()
{
    const auto dialog = open();
    const QWidget* ok = controlById(dialog.get(), Dlg::kOk);
    QTest::keyClicks(names(*dialog).lineEdit(), QStringLiteral("  "));
    QVERIFY(!ok->isEnabled());
    QTest::keyClicks(names(*dialog).lineEdit(), QStringLiteral("x"));
    QVERIFY(ok->isEnabled());
    QTest::keyClick(names(*dialog).lineEdit(), Qt::Key_Backspace);
    QVERIFY(!ok->isEnabled());
    QTest::keyClick(dialog.get(), Qt::Key_Return);
    QVERIFY(dialog->isVisible());
}

void TestNewLayerState::aTypedNameIsNotCompletedToAnExistingOne()
{
    const auto dialog = open({{QStringLiteral("Planning"), QString()}});
    QTest::keyClicks(names(*dialog).lineEdit(), QStringLiteral("Plan"));
    QTest::keyClick(dialog.get(), Qt::Key_Return);
    QCOMPARE(dialog->outcome(), Dlg::Outcome::Added);
    QCOMPARE(stateNames(), QStringList{QStringLiteral("Plan")});
}

void TestNewLayerState::theDescriptionHasAtMost250Characters()
{
    const auto dialog = open();
    names(*dialog).lineEdit()->setText(QStringLiteral("A"));
    QTest::keyClicks(&description(*dialog), QString(260, QLatin1Char('d')));
    press(*dialog, Dlg::kOk);
    std::vector<layStateEntry> entries;
    QVERIFY(service().GetDBLayStateIDs(entries));
    QCOMPARE(entries.at(0).description, QString(250, QLatin1Char('d')));
}

void TestNewLayerState::aNameInOtherCaseReplacesTheDescription()
{
    addState("Plan", "old", 0x005);
    const auto dialog = open({{QStringLiteral("Plan"), QStringLiteral("old")}});
    QTest::keyClicks(names(*dialog).lineEdit(), QStringLiteral(" pLAN"));
    QTest::keyClicks(&description(*dialog), QStringLiteral("new"));
    prompts().willConfirm(true);
    press(*dialog, Dlg::kOk);
    QCOMPARE(dialog->outcome(), Dlg::Outcome::Replaced);
    QCOMPARE(dialog->name(), QStringLiteral("pLAN"));
    QCOMPARE(stateNames(), QStringList{QStringLiteral("Plan")});
    QCOMPARE(storedMask("Plan"), 0x005);
    QCOMPARE(host().historyNames, QStringList{QStringLiteral("_LAYERSTATE")});
}

void TestNewLayerState::anyCharacterMayStandInAName()
{
    const QString name = QString::fromUtf8("<>/\\\":;?*|,=`' \u00e4\u4e2d\U0001F600%s")
        + QString(2000, QLatin1Char('n'));
    const auto dialog = open();
    names(*dialog).lineEdit()->setText(name);
    press(*dialog, Dlg::kOk);
    QCOMPARE(stateNames(), QStringList{name});
    QVERIFY(db().undo());
    QCOMPARE(stateNames(), QStringList());
}

void TestNewLayerState::cancelWritesNothing()
{
    const auto dialog = open();
    QTest::keyClicks(names(*dialog).lineEdit(), QStringLiteral("A"));
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(stateNames(), QStringList());
    QCOMPARE(host().historyNames, QStringList());
}

void TestNewLayerState::helpOpensItsTopic()
{
    const auto dialog = open();
    press(*dialog, Dlg::kHelp);
    QCOMPARE(host().helpTopics, QList<int>{706});
    QCOMPARE(dialog->property("helpTopic").toInt(), 706);
}

void TestNewLayerState::theCommandOfThePaletteOpensIt()
{
    addState("Old", "text");
    inNext<Dlg>([](Dlg& dialog) {
        QCOMPARE(names(dialog).itemText(0), QStringLiteral("Old"));
        QCOMPARE(names(dialog).itemData(0).toString(), QStringLiteral("text"));
        QTest::keyClicks(names(dialog).lineEdit(), QStringLiteral("Fresh"));
        press(dialog, Dlg::kOk);
    });
    openNewLayerState(nullptr);
    QCOMPARE(stateNames(), (QStringList{QStringLiteral("Old"), QStringLiteral("Fresh")}));
    inNext<CLayerStateManDlg>([](CLayerStateManDlg& dialog) {
        QCOMPARE(dialog.list().states().rowCount(), 2);
        dialog.reject();
    });
    openLayerStateManager(nullptr);
}

void TestNewLayerState::withoutADrawingNothingOpens()
{
    host().close(db());
    openNewLayerState(nullptr);
    openLayerStateManager(nullptr);
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(TestNewLayerState)
#include "test_new_layer_state.moc"
