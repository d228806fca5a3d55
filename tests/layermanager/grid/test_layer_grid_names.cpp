#include "GridFixture.h"
#include "layermanager/LayerDrawing.h"

#include <QSignalSpy>

using layer_drawing::read;
using layer_drawing::write;
using enum LayerColumn;

/// Names and descriptions edited in the cells.
class TestLayerGridNames : public GridFixture
{
    Q_OBJECT

private slots:
    void areEditedByAClickOnASelectedRow_data();
    void areEditedByAClickOnASelectedRow();
    void areOnlySelectedByAClickOnAnotherRow_data();
    void areOnlySelectedByAClickOnAnotherRow();
    void areOnlySelectedWithControlAndShift();
    void keepTheOtherSelectedRows();
    void ofLayerZeroAndReferencesAreNotEdited();
    void areWrittenInOneUndoRecord();
    void areWrittenByAClickElsewhere();
    void tellWhenTheCurrentLayerGotAnother();
    void keepTheirRowWhileTheyAreWritten();
    void stayWithoutAnythingTyped();
    void stayOnEscape();
    void stayAsAnotherGaveThemMeanwhile();
    void refuseThirteenCharacters_data();
    void refuseThirteenCharacters();
    void refuseACharacterOnceHoweverTheEditEnds();
    void haveLessThan255Characters();
    void areRefusedWhereAnotherLayerHasThem();
    void mayChangeTheirCase();
    void ofLayersErasedMeanwhileAreForgotten();
    void areGuardedWhileTheLayerCommandRuns();

    void describeEveryLayerInAnyCharacters();
    void keepADescriptionWhereNothingIsTyped();

private:
    QString description(const char* name) const { return read(db(), name)->description(); }

    static QString characterRefusal()
    {
        return QStringLiteral("The following characters are not valid in Layer "
                              "Names:\n<>/\":;?*|,=`\\");
    }
};

void TestLayerGridNames::areEditedByAClickOnASelectedRow_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("name") << static_cast<int>(Name);
    QTest::newRow("description") << static_cast<int>(Description);
}

void TestLayerGridNames::areEditedByAClickOnASelectedRow()
{
    QFETCH(int, column);
    write(db(), "Walls")->setDescription(QStringLiteral("of brick"));
    choose({"Walls"});
    click("Walls", static_cast<LayerColumn>(column));
    QVERIFY(editor());
    QVERIFY(editor()->hasFocus());
    QCOMPARE(editor()->text(),
             column == static_cast<int>(Name) ? QStringLiteral("Walls")
                                              : QStringLiteral("of brick"));
    QCOMPARE(editor()->selectedText(), editor()->text());
    QCOMPARE(chosen(), QStringLiteral("Walls"));
    QCOMPARE(grid().currentIndex(), grid().model()->index(row("Walls"), column));
}

void TestLayerGridNames::areOnlySelectedByAClickOnAnotherRow_data()
{
    areEditedByAClickOnASelectedRow_data();
}

void TestLayerGridNames::areOnlySelectedByAClickOnAnotherRow()
{
    QFETCH(int, column);
    choose({"Roof", "Doors"});
    click("Walls", static_cast<LayerColumn>(column));
    QVERIFY(!editor());
    QCOMPARE(chosen(), QStringLiteral("Walls"));
}

void TestLayerGridNames::areOnlySelectedWithControlAndShift()
{
    choose({"Walls"});
    click("Walls", Name, Qt::ControlModifier);
    click("Walls", Name, Qt::ShiftModifier);
    click("Walls", Description, Qt::ShiftModifier);
    QVERIFY(!editor());
}

void TestLayerGridNames::keepTheOtherSelectedRows()
{
    choose({"Roof", "Walls"});
    click("Walls", Name);
    QVERIFY(editor());
    QCOMPARE(chosen(), QStringLiteral("Roof Walls"));
    enter(QStringLiteral("Mauern"));
    QCOMPARE(chosen(), QStringLiteral("Roof Mauern"));
}

void TestLayerGridNames::ofLayerZeroAndReferencesAreNotEdited()
{
    openDrawing(layer_drawing::make({{"Site|Trees", 16 | 32}}));
    for (const char* name : {"0", "Site|Trees"}) {
        choose({name});
        prompts().willCloseMessage();
        click(name, Name);
        QCOMPARE(prompts().texts().last(),
                 QStringLiteral("The selected layer cannot be renamed.\n\n The following layers "
                                "cannot be renamed: \n 1. Layer 0 \n 2. Xref-dependent Layers"));
        QVERIFY(!editor());
    }
    QVERIFY(!db().hasUndo());
}

void TestLayerGridNames::areWrittenInOneUndoRecord()
{
    QSignalSpy told(&grid(), &CLayerListCtrl::layersChanged);
    choose({"Walls"});
    click("Walls", Name);
    enter(QStringLiteral("Mauern"));
    QVERIFY(!editor());
    QVERIFY(grid().hasFocus());
    QVERIFY(!layer("Mauern").isNull());
    QCOMPARE(cell("Mauern", Name), QStringLiteral("Mauern"));
    QCOMPARE(host().historyNames, QStringList{QStringLiteral("_LAYER")});
    QCOMPARE(told.size(), 1);
    QVERIFY(db().undo());
    QVERIFY(!layer("Walls").isNull());
    QVERIFY(!db().hasUndo());
}

void TestLayerGridNames::areWrittenByAClickElsewhere()
{
    choose({"Walls"});
    click("Walls", Name);
    QTest::keyClicks(editor(), QStringLiteral("Mauern"));
    click("Roof", Locked);
    QVERIFY(!editor());
    QVERIFY(!layer("Mauern").isNull());
    QVERIFY(read(db(), "Roof")->isLocked());
    QVERIFY(db().undo());
    QVERIFY(db().undo());
    QVERIFY(!db().hasUndo());
}

void TestLayerGridNames::tellWhenTheCurrentLayerGotAnother()
{
    db().setCLAYER(layer("Walls"));
    QSignalSpy told(&grid(), &CLayerListCtrl::currentLayerChanged);
    click("Walls", Name);
    enter(QStringLiteral("Mauern"));
    QCOMPARE(told.size(), 1);
}

void TestLayerGridNames::keepTheirRowWhileTheyAreWritten()
{
    QSignalSpy removed(grid().model(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy filled(grid().model(), &QAbstractItemModel::modelReset);
    QSignalSpy stale(&grid(), &CLayerListCtrl::listStale);
    const int before = row("Walls");
    choose({"Walls"});
    click("Walls", Name);
    enter(QStringLiteral("Another"));
    QCOMPARE(row("Another"), before);
    QVERIFY(flushRefresh());
    QVERIFY(removed.isEmpty());
    QVERIFY(filled.isEmpty());
    QVERIFY(stale.isEmpty());
}

void TestLayerGridNames::stayWithoutAnythingTyped()
{
    choose({"Walls"});
    click("Walls", Name);
    enter(QString());
    QVERIFY(editor() == nullptr);
    // The same name again is no change either.
    click("Walls", Name);
    enter(QStringLiteral("Walls"));
    QVERIFY(!layer("Walls").isNull());
    QVERIFY(!db().hasUndo());
    QVERIFY(host().historyNames.isEmpty());
}

void TestLayerGridNames::stayOnEscape()
{
    choose({"Walls"});
    click("Walls", Name);
    QTest::keyClicks(editor(), QStringLiteral("a*b"));
    QTest::keyClick(editor(), Qt::Key_Escape);
    QVERIFY(!editor());
    QVERIFY(!layer("Walls").isNull());
    QVERIFY(!db().hasUndo());
    QVERIFY(prompts().asked().isEmpty());
}

void TestLayerGridNames::stayAsAnotherGaveThemMeanwhile()
{
    const OdDbObjectId roof = layer("Roof");
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        const QString name = QStringLiteral("Key%1").arg(key);
        QVERIFY(grid().openInPlaceEditor(grid().findRow(roof), static_cast<int>(Name)));
        roof.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setName(name);
        QTest::keyClick(editor(), key);
        QVERIFY(!editor());
        QCOMPARE(roof.safeOpenObject<OdDbLayerTableRecord>()->getName(), name);
    }
}

void TestLayerGridNames::refuseThirteenCharacters_data()
{
    QTest::addColumn<QString>("character");
    QTest::addColumn<bool>("refused");
    for (const QChar c : QStringLiteral("<>/\":;?*|,=`\\"))
        QTest::newRow(qPrintable(QString(c))) << QString(c) << true;
    for (const QChar c : QStringLiteral("'[](){}.-_$#@!%^&+~ "))
        QTest::newRow(qPrintable(QString(c))) << QString(c) << false;
}

void TestLayerGridNames::refuseThirteenCharacters()
{
    QFETCH(QString, character);
    QFETCH(bool, refused);
    const QString name = QLatin1Char('a') + character + QLatin1Char('b');
    if (refused)
        prompts().willCloseMessage();
    choose({"Walls"});
    click("Walls", Name);
    enter(name);
    QCOMPARE(layer(qPrintable(name)).isNull(), refused);
    QCOMPARE(layer("Walls").isNull(), !refused);
    QCOMPARE(editor() != nullptr, refused);
    QCOMPARE(db().hasUndo(), !refused);
    if (!refused)
        return;
    QCOMPARE(prompts().texts(), QStringList{characterRefusal()});
    QCOMPARE(cell("Walls", Name), QStringLiteral("Walls"));
    // The text is there to be corrected, or given up.
    QVERIFY(editor()->hasFocus());
    QCOMPARE(editor()->text(), name);
    QTest::keyClick(editor(), Qt::Key_Escape);
    QVERIFY(!editor());
}

void TestLayerGridNames::refuseACharacterOnceHoweverTheEditEnds()
{
    choose({"Walls"});
    click("Walls", Name);
    editor()->setText(QStringLiteral("a=b"));
    prompts().willCloseMessage();
    click("Roof", Locked);
    QCOMPARE(prompts().texts(), QStringList{characterRefusal()});
    QVERIFY(editor());
    QVERIFY(editor()->hasFocus());
    QVERIFY(!read(db(), "Roof")->isLocked());
    enter(QStringLiteral("ab"));
    QVERIFY(!layer("ab").isNull());
}

void TestLayerGridNames::haveLessThan255Characters()
{
    const QString longest(254, QLatin1Char('n'));
    choose({"Walls"});
    click("Walls", Name);
    prompts().willCloseMessage();
    editor()->setText(longest + QLatin1Char('n'));
    QTest::keyClick(editor(), Qt::Key_Return);
    QCOMPARE(prompts().texts(),
             QStringList{QStringLiteral("The name cannot be longer than 255 characters")});
    QVERIFY(!editor());
    QCOMPARE(cell("Walls", Name), QStringLiteral("Walls"));
    QVERIFY(!db().hasUndo());
    click("Walls", Name);
    editor()->setText(longest);
    QTest::keyClick(editor(), Qt::Key_Return);
    QVERIFY(!layer(qPrintable(longest)).isNull());
}

void TestLayerGridNames::areRefusedWhereAnotherLayerHasThem()
{
    choose({"Walls"});
    click("Walls", Name);
    prompts().willCloseMessage();
    enter(QStringLiteral("ROOF"));
    QVERIFY(prompts().texts().first().contains(QStringLiteral("ROOF")));
    QVERIFY(!editor());
    QCOMPARE(cell("Walls", Name), QStringLiteral("Walls"));
    QVERIFY(!db().hasUndo());
    QVERIFY(host().historyNames.isEmpty());
}

void TestLayerGridNames::mayChangeTheirCase()
{
    choose({"Walls"});
    click("Walls", Name);
    enter(QStringLiteral("WALLS"));
    QCOMPARE(cell("Walls", Name), QStringLiteral("WALLS"));
}

void TestLayerGridNames::ofLayersErasedMeanwhileAreForgotten()
{
    choose({"Walls"});
    click("Walls", Name);
    QTest::keyClicks(editor(), QStringLiteral("Mauern"));
    write(db(), "Walls")->erase();
    QVERIFY(!editor());
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof"));
    QVERIFY(layer("Mauern").isNull());
}

void TestLayerGridNames::areGuardedWhileTheLayerCommandRuns()
{
    choose({"Walls"});
    click("Walls", Name);
    QTest::keyClicks(editor(), QStringLiteral("Mauern"));
    host().strings[QStringLiteral("CMDNAMES")] = QStringLiteral("-layer");
    prompts().willCloseMessage();
    QTest::keyClick(editor(), Qt::Key_Return);
    prompts().willCloseMessage();
    press(Qt::Key_F2);
    QCOMPARE(
        prompts().texts(),
        QStringList(2, QStringLiteral("Unable to modify layers while another command is active.")));
    QVERIFY(!editor());
    QVERIFY(!layer("Walls").isNull());
}

// Descriptions

void TestLayerGridNames::describeEveryLayerInAnyCharacters()
{
    choose({"0"});
    click("0", Description);
    enter(QStringLiteral("1/2\" <of> all"));
    QVERIFY(!editor());
    QCOMPARE(description("0"), QStringLiteral("1/2\" <of> all"));
    QCOMPARE(cell("0", Description), QStringLiteral("1/2\" <of> all"));
    QVERIFY(db().undo());
    QCOMPARE(description("0"), QString());
    QVERIFY(!db().hasUndo());
}

void TestLayerGridNames::keepADescriptionWhereNothingIsTyped()
{
    write(db(), "Walls")->setDescription(QStringLiteral("of brick"));
    choose({"Walls"});
    click("Walls", Description);
    QTest::keyClick(editor(), Qt::Key_Delete);
    QTest::keyClick(editor(), Qt::Key_Return);
    QCOMPARE(description("Walls"), QStringLiteral("of brick"));
    QVERIFY(host().historyNames.isEmpty());
}

QTEST_MAIN(TestLayerGridNames)
#include "test_layer_grid_names.moc"
