#include "layermanager/PaletteFixture.h"
#include "layermanager/layer_states/CLayerStateManDlg.h"
#include "layermanager/layer_states/CNewLayStateDlg.h"
#include "layermanager/layer_states/parts/CLayerStateListCtrl.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "sdk/CLayerStateUtility.h"
#include "support/TestFailure.h"
#include "toolkit/ControlRegistry.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QTimer>

/// The commands of the palette that open the dialogs of layer states.
class TestLayerStateEntries : public PaletteFixture
{
    Q_OBJECT

private slots:
    void paneAndListOpenTheManager_data();
    void paneAndListOpenTheManager();
    void theListsMenuAsksForANewState();

private:
    template <class Dialog>
    void inNext(std::function<void(Dialog&)> act)
    {
        m_seen = 0;
        QTimer::singleShot(0, this, [this, act = std::move(act)] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return reportTestFailure(QStringLiteral("The dialog is not open."));
            ++m_seen;
            act(*dialog);
        });
    }
    int m_seen = 0;
};

void TestLayerStateEntries::paneAndListOpenTheManager_data()
{
    QTest::addColumn<bool>("fromPane");
    QTest::newRow("toolbar of the pane") << true;
    QTest::newRow("menu of the list") << false;
}

void TestLayerStateEntries::paneAndListOpenTheManager()
{
    run("_LAYER");
    QVERIFY(CLayerStateUtility(&db()).AddNewLayStateToDB(QStringLiteral("A"), {}));
    inNext<CLayerStateManDlg>([this](CLayerStateManDlg& dialog) {
        QCOMPARE(dialog.list().states().names(), QStringList{QStringLiteral("A")});
        QCOMPARE(dialog.parentWidget(), view());
        dialog.reject();
    });
    QFETCH(bool, fromPane);
    if (fromPane)
        view()->command(40026);
    else
        grid().command(40081);
    QCOMPARE(m_seen, 1);
}

void TestLayerStateEntries::theListsMenuAsksForANewState()
{
    run("_LAYER");
    inNext<CNewLayStateDlg>([](CNewLayStateDlg& dialog) {
        auto* name = qobject_cast<QComboBox*>(controlById(&dialog, CNewLayStateDlg::kName));
        name->setEditText(QStringLiteral("Fresh"));
        dialog.accept();
    });
    grid().command(40078);
    QCOMPARE(m_seen, 1);
    std::vector<layStateEntry> states;
    QVERIFY(CLayerStateUtility(&db()).GetDBLayStateIDs(states));
    QCOMPARE(states.size(), 1U);
    QCOMPARE(states[0].name, QStringLiteral("Fresh"));
}

QTEST_MAIN(TestLayerStateEntries)
#include "test_layer_state_entries.moc"
