#include "LayerDrawing.h"
#include "PaletteFixture.h"
#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layers/operations/LayerCommandTable.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "sdk/CKestPreferenceManager.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"

#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSignalSpy>
#include <QTest>

using layer_drawing::id;
using layer_drawing::write;

class TestLayerPalette : public PaletteFixture
{
    Q_OBJECT

private slots:
    void tellsHowManyLayersItDisplays();
    void countsHiddenLayersInTheTotal();
    void countsLayersThatAreMadeAndDeletedInTheGrid();
    void takesReconciledLayersOffTheirFilterOnly();
    void bindsToEachDrawingThatBecomesCurrent();
    void bindsToANewDrawing();
    void doesNotRebindToTheDrawingItShows();
    void closesWithTheLastDrawing();
    void comesBackWithTheNextDrawing();
    void comesBackPinnedIfItWasHiddenToTheSide();
    void staysClosedIfTheUserClosedIt();
    void staysOpenWhenOneOfSeveralDrawingsCloses();
    void standsAsideWhileTheHostIsBusy();
    void followsWhileClosed();
    void refillsOnceABurstOfChangesIsOver();
    void opensTheUndoRecordOfAnEdit();
    void editsTheDrawingItShows();
    void looksLikeItsGoldenImages_data();
    void looksLikeItsGoldenImages();

private:
    QStringList listed() const { return layer_drawing::names(grid().layerModel().layers()); }
};

void TestLayerPalette::tellsHowManyLayersItDisplays()
{
    run("_LAYER");
    QCOMPARE(statusText(), QStringLiteral(" All : 3 layers displayed of 3 total layers"));
    write(db(), "Doors")->erase();
    QCOMPARE(statusText(), QStringLiteral(" All : 2 layers displayed of 2 total layers"));
    grid().fillFromList({id(db(), "Walls")});
    QCOMPARE(statusText(), QStringLiteral(" All : 1 layers displayed of 2 total layers"));
}

void TestLayerPalette::countsHiddenLayersInTheTotal()
{
    open({"*SYSTEM", "A"});
    run("_LAYER");
    QCOMPARE(statusText(), QStringLiteral(" All : 2 layers displayed of 3 total layers"));
}

void TestLayerPalette::countsLayersThatAreMadeAndDeletedInTheGrid()
{
    run("_LAYER");
    grid().command(kNewLayer);
    QCOMPARE(statusText(), QStringLiteral(" All : 4 layers displayed of 4 total layers"));
    QCOMPARE(listed().last(), QStringLiteral("Layer1"));
    QVERIFY(grid().editor());
    // What the palette does once the changes are over leaves the edit alone.
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
    QVERIFY(grid().editor());
    QTest::keyClicks(window().focusWidget(), QStringLiteral("Stairs"));
    QTest::keyClick(window().focusWidget(), Qt::Key_Return);
    QCOMPARE(listed(),
             QStringList({QStringLiteral("0"), QStringLiteral("Doors"), QStringLiteral("Stairs"),
                          QStringLiteral("Walls")}));
    grid().command(kDeleteLayers);
    QCOMPARE(statusText(), QStringLiteral(" All : 3 layers displayed of 3 total layers"));
}

void TestLayerPalette::takesReconciledLayersOffTheirFilterOnly()
{
    for (const OdDbObjectId layer : db().layerTable().records())
        layer.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsReconciled(true);
    for (const char* name : {"Doors", "Walls"})
        write(db(), name)->setIsReconciled(false);
    host().ints[QStringLiteral("LAYEREVAL")] = 1;
    host().ints[QStringLiteral("LAYEREVALCTL")] = 1;
    run("_LAYER");
    const auto reconcile = [this](const char* name) {
        grid().chooseOnly(grid().findRow(id(db(), name)));
        grid().command(kReconcileLayers);
    };
    const auto all = [this] { tree().setCurrentIndex(tree().model()->index(0, 0)); };
    const QModelIndexList found =
        tree().model()->match(tree().model()->index(0, 0), Qt::DisplayRole,
                              QStringLiteral("UnReconciled New Layers"), 1, Qt::MatchRecursive);
    QCOMPARE(found.size(), 1);
    tree().setCurrentIndex(found.first());
    QCOMPARE(listed(), QStringList({QStringLiteral("Doors"), QStringLiteral("Walls")}));
    reconcile("Walls");
    QCOMPARE(listed(), QStringList{QStringLiteral("Doors")});
    QCOMPARE(statusText(),
             QStringLiteral(" UnReconciled New Layers : 1 layers displayed of 3 total layers"));
    // Another filter goes on showing the layer.
    all();
    reconcile("Doors");
    QCOMPARE(listed().size(), 3);
    QCOMPARE(statusText(), QStringLiteral(" All : 3 layers displayed of 3 total layers"));
}

void TestLayerPalette::bindsToEachDrawingThatBecomesCurrent()
{
    run("_LAYER");
    OdDbDatabase& second = open({"Roof"});
    QCOMPARE(view()->database(), &second);
    QCOMPARE(listed(), (QStringList{QStringLiteral("0"), QStringLiteral("Roof")}));
    host().setCurrent(db());
    QCOMPARE(view()->database(), &db());
    QCOMPARE(listed().size(), 3);
    QCOMPARE(grid().database(), &db());
    host().setCurrent(second);
    QCOMPARE(listed().size(), 2);
}

void TestLayerPalette::bindsToANewDrawing()
{
    run("_LAYER");
    open({"A", "B", "C"});
    QCOMPARE(statusText(), QStringLiteral(" All : 4 layers displayed of 4 total layers"));
}

void TestLayerPalette::doesNotRebindToTheDrawingItShows()
{
    run("_LAYER");
    QSignalSpy filled(grid().model(), &QAbstractItemModel::modelReset);
    view()->BindToCurrentDatabase();
    QVERIFY(filled.isEmpty());
}

void TestLayerPalette::closesWithTheLastDrawing()
{
    run("_LAYER");
    host().close(db());
    QVERIFY(pane()->IsClosed());
    QCOMPARE(state(), 1);
    QVERIFY(!view()->database());
    QVERIFY(listed().isEmpty());
    QCOMPARE(statusText(), QString());
}

void TestLayerPalette::comesBackWithTheNextDrawing()
{
    run("_LAYER");
    host().close(db());
    open({"Next"});
    QVERIFY(!pane()->IsClosed());
    QCOMPARE(pane()->GetPaneState(), xtpPaneDocked);
    QCOMPARE(listed().last(), QStringLiteral("Next"));
}

void TestLayerPalette::comesBackPinnedIfItWasHiddenToTheSide()
{
    run("_LAYER");
    manager().ToggleAutoHide(pane());
    host().close(db());
    QVERIFY(pane()->IsClosed());
    open({"Next"});
    QVERIFY(!pane()->IsClosed());
    QCOMPARE(pane()->GetPaneState(), xtpPaneDocked);
}

void TestLayerPalette::staysClosedIfTheUserClosedIt()
{
    run("_LAYER");
    run("_LAYERCLOSE");
    host().close(db());
    open({"Next"});
    QVERIFY(pane()->IsClosed());
}

void TestLayerPalette::staysOpenWhenOneOfSeveralDrawingsCloses()
{
    run("_LAYER");
    OdDbDatabase& second = open({"Roof"});
    host().close(second);
    QVERIFY(!pane()->IsClosed());
    QCOMPARE(view()->database(), &db());
    QCOMPARE(listed().size(), 3);
}

void TestLayerPalette::standsAsideWhileTheHostIsBusy()
{
    run("_LAYER");
    host().setBusy(true);
    host().close(db());
    QVERIFY(!pane()->IsClosed());
    host().setBusy(false);
}

void TestLayerPalette::followsWhileClosed()
{
    run("_LAYER");
    run("_LAYERCLOSE");
    OdDbDatabase& second = open({"Roof"});
    QCOMPARE(view()->database(), &second);
    QVERIFY(pane()->IsClosed());
}

void TestLayerPalette::refillsOnceABurstOfChangesIsOver()
{
    run("_LAYER");
    write(db(), "Doors")->erase();
    QCOMPARE(grid().displayedCount(), 2);
    QSignalSpy filled(grid().model(), &QAbstractItemModel::modelReset);
    db().undo();
    QCOMPARE(grid().displayedCount(), 2);
    QVERIFY(filled.wait(5000));
    QCOMPARE(listed(),
             (QStringList{QStringLiteral("0"), QStringLiteral("Doors"), QStringLiteral("Walls")}));
    QCOMPARE(filled.size(), 1);
}

void TestLayerPalette::opensTheUndoRecordOfAnEdit()
{
    const QScopedValueRollback<bool> combine(
        CKestPreferenceManager::instance().CombineLayerPropPreference, false);
    run("_LAYER");
    view()->BeginLayerUndoRecord(db());
    QVERIFY(db().isUndoRecordOpen());
    QCOMPARE(host().historyNames, QStringList{QStringLiteral("_LAYER")});
}

void TestLayerPalette::editsTheDrawingItShows()
{
    run("_LAYER");
    const int row = grid().findRow(id(db(), "Walls"));
    const QModelIndex cell = grid().model()->index(row, static_cast<int>(LayerColumn::Locked));
    grid().scrollTo(cell);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, grid().visualRect(cell).center());
    QVERIFY(layer_drawing::read(db(), "Walls")->isLocked());
    QCOMPARE(host().viewRefreshes, 1);
    QVERIFY(grid().hasFocus());
}

void TestLayerPalette::looksLikeItsGoldenImages_data()
{
    QTest::addColumn<int>("theme");
    for (const auto theme : {GoldenLook::Theme::Light, GoldenLook::Theme::Dark})
        QTest::newRow(qPrintable(GoldenLook::suffix(theme))) << static_cast<int>(theme);
}

void TestLayerPalette::looksLikeItsGoldenImages()
{
    QFETCH(int, theme);
    const GoldenLook look(static_cast<GoldenLook::Theme>(theme));
    QCoreApplication::processEvents(); // the window takes the palette over
    window().resize(1000, 420);
    elsewhere().hide();
    write(db(), "Doors")->setColor(OdCmColor::fromIndex(4));
    run("_LAYER");
    QVERIFY(goldenImage(&window(),
                        QStringLiteral("layer_palette_%1")
                            .arg(GoldenLook::suffix(static_cast<GoldenLook::Theme>(theme)))));
}

QTEST_MAIN(TestLayerPalette)
#include "test_layer_palette.moc"
