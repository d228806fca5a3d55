#include "FilterEditorFixture.h"
#include "layermanager/filter_editor/FilterCellDelegate.h"

#include <QAbstractItemView>

/// Every value that a cell can be given, by mouse or keyboard, and the text that comes of it.
class TestFilterTableValues : public FilterEditorFixture
{
    Q_OBJECT

private slots:
    void aValueOfAListBecomesItsExpression_data();
    void aValueOfAListBecomesItsExpression();
    void aListHasABlankItemAndOneWithAPictureForEachValue_data();
    void aListHasABlankItemAndOneWithAPictureForEachValue();
    void aListIsFilledAnewAndStartsAtTheValueOfItsCell();
    void aColorIsPickedFromWhiteAndKeptByItsIndex();
    void aTrueColorIsKeptByTheNearestIndex();
    void aLinetypeIsPickedFromContinuous();
    void aLineweightIsPicked();
    void viewportValuesArePickedAlike();
    void aCancelledPickChangesNothing_data();
    void aCancelledPickChangesNothing();
    void linesAreAsThickAsTheirLineweights();
};

void TestFilterTableValues::aValueOfAListBecomesItsExpression_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("text");
    const auto add = [](int column, std::initializer_list<const char*> texts) {
        int item = 0;
        for (const char* text : texts) {
            ++item;
            QTest::addRow("%d, %d", column, item) << column << item << QString::fromUtf8(text);
        }
    };
    add(kStatus,
        {"USED==\"True\" AND VPOVERRIDES==\"False\"", "USED==\"False\" AND VPOVERRIDES==\"False\"",
         "USED==\"True\" AND VPOVERRIDES==\"True\"", "USED==\"False\" AND VPOVERRIDES==\"True\""});
    add(kOn, {"OFF==\"False\" ", "OFF==\"True\" "});
    add(kFreeze, {"FROZEN==\"True\" ", "FROZEN==\"False\" "});
    add(kLocked, {"LOCKED==\"True\" ", "LOCKED==\"False\" "});
    add(kPlot, {"PLOTTABLE==\"True\" ", "PLOTTABLE==\"False\" "});
    add(kNewVpFreeze, {"NEWVPFROZEN==\"True\" ", "NEWVPFROZEN==\"False\" "});
    add(kVpFreeze, {"VPFROZEN==\"True\" ", "VPFROZEN==\"False\" "});
}

void TestFilterTableValues::aValueOfAListBecomesItsExpression()
{
    QFETCH(int, column);
    QFETCH(int, item);
    QFETCH(QString, text);
    enterViewport();
    showNew();
    dialog().resize(1400, 700);
    choose(0, column, item);
    QCOMPARE(lines(), 2);
    QCOMPARE(table().rowsModel().number(index(0, column)), item);
    QCOMPARE(expression(), text);
    const QString saved = expression();
    closeDialog();
    showExisting("Again", saved.toUtf8().constData());
    QCOMPARE(table().rowsModel().number(index(0, column)), item);
}

void TestFilterTableValues::aListHasABlankItemAndOneWithAPictureForEachValue_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("status") << int(kStatus)
                            << QStringList{QString(), QStringLiteral("in use"),
                                           QStringLiteral("not in use"),
                                           QStringLiteral("in use, with viewport overrides"),
                                           QStringLiteral("not in use, with viewport overrides")};
    QTest::newRow("on") << int(kOn)
                        << QStringList{QString(), QStringLiteral("on"), QStringLiteral("off")};
    QTest::newRow("locked") << int(
        kLocked) << QStringList{QString(), QStringLiteral("locked"), QStringLiteral("unlocked")};
}

void TestFilterTableValues::aListHasABlankItemAndOneWithAPictureForEachValue()
{
    QFETCH(int, column);
    QFETCH(QStringList, texts);
    showNew();
    click(0, column);
    QStringList shown;
    QList<QImage> pictures;
    for (int i = 0; i < combo().count(); ++i) {
        shown << combo().itemText(i);
        QCOMPARE(combo().itemIcon(i).isNull(), i == 0);
        const QImage picture = combo().itemIcon(i).pixmap(16).toImage();
        QVERIFY(!pictures.contains(picture));
        pictures << picture;
    }
    QCOMPARE(shown, texts);
    QCOMPARE(combo().itemData(0, Qt::AccessibleTextRole).toString(), QStringLiteral("not set"));
    combo().hidePopup();
    settle();
}

void TestFilterTableValues::aListIsFilledAnewAndStartsAtTheValueOfItsCell()
{
    showNew();
    choose(0, kStatus, 2);
    click(0, kStatus);
    QCOMPARE(combo().currentIndex(), 2);
    QTest::keyClick(combo().view(), Qt::Key_Escape);
    settle();
    click(0, kOn);
    QCOMPARE(combo().count(), 3);
    QCOMPARE(combo().currentIndex(), 0);
    QTest::keyClick(combo().view(), Qt::Key_Escape);
    settle();
}

void TestFilterTableValues::aColorIsPickedFromWhiteAndKeptByItsIndex()
{
    showNew();
    host().pickedColor = OdCmColor::fromIndex(5);
    click(0, kColor);
    QCOMPARE(host().pickStarts, QStringList(OdCmColor::fromIndex(7).colorNameForDisplay()));
    QCOMPARE(QColor(OdCmColor::fromIndex(7).rgb(true)), QColor(Qt::white));
    QCOMPARE(table().rowsModel().line(0).m_nColor, 5);
    QCOMPARE(expression(), QStringLiteral("COLOR==\"5\" "));
    QCOMPARE(previewed(), QStringLiteral("S-Beams"));
}

void TestFilterTableValues::aTrueColorIsKeptByTheNearestIndex()
{
    showNew();
    host().pickedColor = OdCmColor::fromRgb(254, 1, 1);
    click(0, kColor);
    QCOMPARE(expression(), QStringLiteral("COLOR==\"1\" "));
}

void TestFilterTableValues::aLinetypeIsPickedFromContinuous()
{
    showNew();
    host().pickedLinetype = QStringLiteral("DASHED");
    click(0, kLinetype);
    QCOMPARE(host().pickStarts, QStringList(QStringLiteral("Continuous")));
    QCOMPARE(expression(), QStringLiteral("LINETYPE==\"DASHED\" "));
    QCOMPARE(cell(0, kLinetype), QStringLiteral("DASHED"));
}

void TestFilterTableValues::aLineweightIsPicked()
{
    showNew();
    host().pickedLineweight = 25;
    click(0, kLineweight);
    QCOMPARE(host().pickStarts, QStringList(QStringLiteral("-3")));
    QCOMPARE(expression(), QStringLiteral("LINEWEIGHT==\"0.25 mm\" "));
    host().pickedLineweight = 50;
    click(0, kLineweight);
    QCOMPARE(host().pickStarts.last(), QStringLiteral("25"));
    QCOMPARE(expression(), QStringLiteral("LINEWEIGHT==\"0.50 mm\" "));
}

void TestFilterTableValues::viewportValuesArePickedAlike()
{
    enterViewport();
    showNew();
    dialog().resize(1400, 700);
    host().pickedColor = OdCmColor::fromIndex(2);
    host().pickedLinetype = QStringLiteral("DASHED");
    host().pickedLineweight = 13;
    click(0, kVpColor);
    click(0, kVpLinetype);
    click(0, kVpLineweight);
    QCOMPARE(expression(),
             QStringLiteral("VPCOLOR==\"2\"  AND VPLINETYPE==\"DASHED\"  AND "
                            "VPLINEWEIGHT==\"0.13 mm\" "));
}

void TestFilterTableValues::aCancelledPickChangesNothing_data()
{
    QTest::addColumn<int>("column");
    for (const int column : {kColor, kLinetype, kLineweight})
        QTest::addRow("%d", column) << column;
}

void TestFilterTableValues::aCancelledPickChangesNothing()
{
    QFETCH(int, column);
    showNew();
    click(0, column);
    QCOMPARE(host().pickRequests.size(), std::size_t(1));
    QCOMPARE(host().pickRequests.front().parent, static_cast<QWidget*>(&dialog()));
    QCOMPARE(lines(), 1);
    QCOMPARE(expression(), QString());
}

void TestFilterTableValues::linesAreAsThickAsTheirLineweights()
{
    QCOMPARE(filterLineThickness(25, 96, 1), 24.0);
    QCOMPARE(filterLineThickness(254, 100, 0), 10.0);
    QCOMPARE(filterLineThickness(1, 96, 0), 1.0);
    QCOMPARE(filterLineThickness(-3, 96, 1), 1.0);
}

QTEST_MAIN(TestFilterTableValues)
#include "test_filter_table_values.moc"
