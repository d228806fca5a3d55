#include "SyncFixture.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/CLayer_Filter_ViolationPromptDlg.h"
#include "toolkit/ControlRegistry.h"

#include <QApplication>
#include <QCheckBox>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

/// The notice that a layer no longer agrees with the filter: when it comes, and how often.
class TestPaletteNotice : public SyncFixture
{
    Q_OBJECT

private slots:
    void comesOnceForABurst();
    void comesForANewLayerThatIsNotListed_data();
    void comesForANewLayerThatIsNotListed();
    void staysAwayWhereTheMembershipIsTheSame();
    void staysAwayWhereTheUserListsOtherLayersMeanwhile_data();
    void staysAwayWhereTheUserListsOtherLayersMeanwhile();
    void staysAwayWhereTheUserWantsNone();
    void isSwitchedOffInItself();
    void neverComesWithinANotification();
    void waitsUntilNoCommandRuns();
    void staysAwayWhileThePaletteIsClosed();
    void standsTheEndOfTheDrawingWhileItIsOpen();

private:
    void showOpenOnes()
    {
        show({"A", "B", "C"});
        addProperty("Open", "LOCKED==\"False\" ");
        click("Open");
        quiesce();
    }
    /// What is done while a notice is open; it is closed then.
    void whileOpen(const std::function<void(QDialog&)>& action)
    {
        m_seen = 0;
        QTimer::singleShot(0, this, [this, action] {
            auto* notice =
                qobject_cast<CLayer_Filter_ViolationPromptDlg*>(QApplication::activeModalWidget());
            QVERIFY(notice);
            ++m_seen;
            action(*notice);
            notice->accept();
        });
    }
    int m_seen = 0;
};

void TestPaletteNotice::comesOnceForABurst()
{
    showOpenOnes();
    wantNotices(true);
    QSignalSpy violated(&grid(), &CLayerListCtrl::filterViolated);
    for (const char* layer : {"A", "B", "C"})
        write(layer)->setIsLocked(true);
    whileOpen([this](QDialog&) { QCOMPARE(rows(), QStringLiteral("0")); });
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(m_seen, 1);
    QCOMPARE(violated.size(), 1);
    quiesce();
    QCOMPARE(violated.size(), 1);
    // Coming into the list is told as well.
    write("A")->setIsLocked(false);
    whileOpen([](QDialog&) {});
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(m_seen, 1);
    QCOMPARE(rows(), QStringLiteral("0 A"));
}

void TestPaletteNotice::comesForANewLayerThatIsNotListed_data()
{
    QTest::addColumn<bool>("inverted");
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<QByteArray>("layer");
    QTest::addColumn<int>("notices");
    QTest::newRow("fails the filter") << false << QByteArray() << QByteArray("Door") << 1;
    QTest::newRow("passes the filter") << false << QByteArray() << QByteArray("Wall") << 0;
    QTest::newRow("fails the inverted filter") << true << QByteArray() << QByteArray("Wall") << 1;
    QTest::newRow("passes the inverted one") << true << QByteArray() << QByteArray("Door") << 0;
    QTest::newRow("fails the search") << false << QByteArray("*x") << QByteArray("Wall") << 1;
    QTest::newRow("passes both") << false << QByteArray("*X") << QByteArray("Wallx") << 0;
    QTest::newRow("a tilde is everything") << false << QByteArray("~") << QByteArray("Wall") << 0;
    QTest::newRow("belongs to a program") << false << QByteArray() << QByteArray("*Door") << 0;
}

void TestPaletteNotice::comesForANewLayerThatIsNotListed()
{
    QFETCH(bool, inverted);
    QFETCH(QByteArray, pattern);
    QFETCH(QByteArray, layer);
    QFETCH(int, notices);
    show({"A"});
    addProperty("Walls", "NAME==\"w*\" ");
    click("Walls");
    view()->setInverted(inverted);
    search(pattern.constData());
    quiesce();
    QSignalSpy violated(&grid(), &CLayerListCtrl::filterViolated);
    const OdDbObjectId made = drawing().layerTable().add(QString::fromUtf8(layer));
    QCOMPARE(grid().findRow(made) >= 0, notices == 0 && layer != "*Door");
    quiesce();
    QCOMPARE(violated.size(), notices);
}

void TestPaletteNotice::staysAwayWhereTheMembershipIsTheSame()
{
    showOpenOnes();
    QSignalSpy violated(&grid(), &CLayerListCtrl::filterViolated);
    write("A")->setIsFrozen(true);
    write("B")->setIsLocked(true);
    write("B")->setIsLocked(false);
    drawing().layerTable().add(QStringLiteral("D"));
    write("D")->erase();
    drawing().layerTable().add(QStringLiteral("E"));
    write("E")->setIsLocked(true);
    write("E")->setIsLocked(false);
    write("C")->erase();
    drawing().undo();
    quiesce();
    QVERIFY(violated.isEmpty());
    // Erased and brought back, a layer did not change.
    QCOMPARE(grid().findRow(id("C")) >= 0, true);
}

void TestPaletteNotice::staysAwayWhereTheUserListsOtherLayersMeanwhile_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("another filter") << 0;
    QTest::newRow("a search") << 1;
    QTest::newRow("the inverted filter") << 2;
    QTest::newRow("another filter by undo") << 3;
}

void TestPaletteNotice::staysAwayWhereTheUserListsOtherLayersMeanwhile()
{
    QFETCH(int, way);
    show({"A", "B", "C"});
    addProperty("Bs", "NAME==\"b*\" ");
    if (way == 3) {
        click("Bs");
        quiesce();
        drawing().endUndoRecord();
    }
    click("All");
    quiesce();
    drawing().endUndoRecord();
    QSignalSpy violated(&grid(), &CLayerListCtrl::filterViolated);
    write("A")->setIsLocked(true);
    drawing().endUndoRecord();
    QVERIFY(timer(CLayerListCtrl::kRefreshTimer)->isActive());
    if (way == 0) {
        click("Bs");
    } else if (way == 1) {
        search("b");
    } else if (way == 2) {
        view()->setInverted(true);
    } else {
        drawing().undo();
        drawing().undo();
        settle();
        QCOMPARE(tree().selectedName(), QStringLiteral("Bs"));
    }
    quiesce();
    QVERIFY(!rows().contains(QLatin1Char('A')));
    QCOMPARE(violated.size(), 0);
}

void TestPaletteNotice::staysAwayWhereTheUserWantsNone()
{
    showOpenOnes();
    write("A")->setIsLocked(true);
    bool wasOpen = false;
    QTimer::singleShot(0, this, [&] { wasOpen = QApplication::activeModalWidget() != nullptr; });
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    settle();
    QVERIFY(!wasOpen);
    QCOMPARE(rows(), QStringLiteral("0 B C"));
}

void TestPaletteNotice::isSwitchedOffInItself()
{
    showOpenOnes();
    wantNotices(true);
    write("A")->setIsLocked(true);
    whileOpen([](QDialog& notice) {
        auto* box = qobject_cast<QCheckBox*>(
            controlById(&notice, CLayer_Filter_ViolationPromptDlg::kShowAgain));
        QVERIFY(box && box->isChecked());
        box->click();
    });
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(m_seen, 1);
    write("B")->setIsLocked(true);
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(rows(), QStringLiteral("0 C"));
}

void TestPaletteNotice::neverComesWithinANotification()
{
    showOpenOnes();
    QSignalSpy violated(&grid(), &CLayerListCtrl::filterViolated);
    for (int i = 0; i < 100; ++i)
        write("A")->setIsLocked(i % 2 == 0);
    write("B")->setIsLocked(true);
    settle();
    QVERIFY(violated.isEmpty());
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(violated.size(), 1);
}

void TestPaletteNotice::waitsUntilNoCommandRuns()
{
    showOpenOnes();
    QSignalSpy violated(&grid(), &CLayerListCtrl::filterViolated);
    host().ints[QStringLiteral("CMDACTIVE")] = 1;
    write("A")->setIsLocked(true);
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(rows(), QStringLiteral("0 B C"));
    QVERIFY(violated.isEmpty());
    host().ints[QStringLiteral("CMDACTIVE")] = 0;
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(violated.size(), 1);
    QVERIFY(!fire(CLayerListCtrl::kRefreshTimer));
}

void TestPaletteNotice::staysAwayWhileThePaletteIsClosed()
{
    showOpenOnes();
    QSignalSpy violated(&grid(), &CLayerListCtrl::filterViolated);
    run("_LAYERCLOSE");
    write("A")->setIsLocked(true);
    quiesce();
    QVERIFY(violated.isEmpty());
    QCOMPARE(rows(), QStringLiteral("0 B C"));
}

void TestPaletteNotice::standsTheEndOfTheDrawingWhileItIsOpen()
{
    showOpenOnes();
    wantNotices(true);
    OdDbDatabase& ending = drawing();
    write("A")->setIsLocked(true);
    whileOpen([&](QDialog&) { host().close(ending); });
    QVERIFY(fire(CLayerListCtrl::kRefreshTimer));
    QCOMPARE(m_seen, 1);
    QCOMPARE(grid().database(), &db());
    quiesce();
    QCOMPARE(rows(), QStringLiteral("0 Doors Walls"));
}

QTEST_MAIN(TestPaletteNotice)
#include "test_palette_notice.moc"
