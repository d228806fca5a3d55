#include "SyncFixture.h"

#include <QTest>

class TestTypeAhead : public SyncFixture
{
    Q_OBJECT

private slots:
    void findsTheNextNameThatBeginsWithWhatIsTyped();
    void beginsAnewOnceTheTimeIsOver();
    void keepsItsTimeFromTheFirstCharacterOn();
    void takesLettersAndDigitsOnly();
    void goesOnFromTheTopAndEndsAtTheFocusedRow();
    void leavesTheSelectionWhereNothingIsFound();
    void scrollsToWhatItFinds();

private:
    void type(const char* text) { QTest::keyClicks(&grid(), QString::fromUtf8(text)); }
    void focus(const char* layer)
    {
        grid().chooseForMenu(grid().findRow(id(layer)));
        grid().setFocus();
    }
    QString focused() const { return grid().currentIndex().siblingAtColumn(1).data().toString(); }
};

void TestTypeAhead::findsTheNextNameThatBeginsWithWhatIsTyped()
{
    show({"Axis", "walls", "Water", "WINDOWS", "Wax"});
    focus("Axis");
    type("wa");
    // "w" led to "walls"; "wa" looks from the row after it.
    QCOMPARE(chosen(), QStringLiteral("Water"));
    QCOMPARE(focused(), QStringLiteral("Water"));
    type("x");
    QCOMPARE(chosen(), QStringLiteral("Wax"));
}

void TestTypeAhead::beginsAnewOnceTheTimeIsOver()
{
    show({"Axis", "Walls", "Water"});
    focus("0");
    type("w");
    QCOMPARE(chosen(), QStringLiteral("Walls"));
    QCOMPARE(timer(CLayerListCtrl::kTypeAheadTimer)->interval(), 500);
    QVERIFY(fire(CLayerListCtrl::kTypeAheadTimer));
    QVERIFY(!fire(CLayerListCtrl::kTypeAheadTimer));
    type("a");
    QCOMPARE(chosen(), QStringLiteral("Axis"));
}

void TestTypeAhead::keepsItsTimeFromTheFirstCharacterOn()
{
    show({"Walls", "Water"});
    focus("0");
    type("w");
    QVERIFY(!restarts(CLayerListCtrl::kTypeAheadTimer, [this] { type("a"); }));
    QVERIFY(fire(CLayerListCtrl::kTypeAheadTimer));
    type("w");
    QVERIFY(timer(CLayerListCtrl::kTypeAheadTimer)->isActive());
}

void TestTypeAhead::takesLettersAndDigitsOnly()
{
    show({"2 nd floor", "2nd floor", "_hidden", "\xC3\x84nderung", "a.b"});
    focus("0");
    type("_");
    type("\xC3\x84");
    QCOMPARE(chosen(), QStringLiteral("0"));
    QVERIFY(!timer(CLayerListCtrl::kTypeAheadTimer)->isActive());
    // What it has no use for does not end the word either.
    type("2.N");
    QCOMPARE(chosen(), QStringLiteral("2nd floor"));
    QVERIFY(fire(CLayerListCtrl::kTypeAheadTimer));
    QTest::keyClick(&grid(), Qt::Key_A, Qt::AltModifier);
    QCOMPARE(chosen(), QStringLiteral("2nd floor"));
}

void TestTypeAhead::goesOnFromTheTopAndEndsAtTheFocusedRow()
{
    show({"Axis", "Doors", "Walls"});
    focus("Walls");
    type("d");
    QCOMPARE(chosen(), QStringLiteral("Doors"));
    QVERIFY(fire(CLayerListCtrl::kTypeAheadTimer));
    grid().chooseRows({0, 1, 2});
    type("d");
    QCOMPARE(chosen(), QStringLiteral("Doors"));
}

void TestTypeAhead::leavesTheSelectionWhereNothingIsFound()
{
    show({"Axis", "Doors"});
    focus("Axis");
    type("zz");
    QCOMPARE(chosen(), QStringLiteral("Axis"));
    search("nothing*");
    QCOMPARE(rows(), QString());
    grid().setFocus();
    type("a");
    QCOMPARE(chosen(), QString());
}

void TestTypeAhead::scrollsToWhatItFinds()
{
    QList<QByteArray> layers{"Zone"};
    for (int i = 0; i < 200; ++i)
        layers.append("L" + QByteArray::number(i));
    show(layers);
    focus("0");
    type("z");
    const QRect place = grid().visualRect(grid().currentIndex());
    QVERIFY(grid().viewport()->rect().contains(place.center()));
    QCOMPARE(focused(), QStringLiteral("Zone"));
}

QTEST_MAIN(TestTypeAhead)
#include "test_type_ahead.moc"
