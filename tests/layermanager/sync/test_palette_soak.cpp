#include "SyncFixture.h"
#include "layermanager/filters/LayersOfFilter.h"
#include "layermanager/filters/MatchWildcard.h"
#include "layermanager/filters/tree/FilterCommands.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"
#include "layermanager/layers/operations/LayerCommandTable.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/pane/CLayerSearchBox.h"
#include "sdk/KestStatus.h"
#include "support/RandomPrompts.h"

#include <QLineEdit>
#include <QTest>

#include <algorithm>
#include <array>
#include <random>

namespace {

constexpr int kOperations = 10000;
constexpr int kBatch = 25;
constexpr int kDrawings = 3;
constexpr unsigned kAudits = 8; // one batch in so many is audited

constexpr std::array kGridCommands = {kSetCurrentLayer, kNewLayer,        kRenameLayer,
                                      kDeleteLayers,    kReconcileLayers, kIsolateLayers,
                                      kClearSelection,  kInvertSelection, kNewLayerVpFrozen,
                                      kDescribeLayer,   kToolbarNewLayer, kSelectAllButCurrent,
                                      kDoNothing};
constexpr std::array kTreeCommands = {40072, 40074, 40076, 40077, 40079, 40080,
                                      40086, 40093, 40095, 40097, 40024};
constexpr std::array kPatterns = {"", "", "*", "~", "a*", "*1", "L#*", "~*2*", "[a-m]*", "0"};
constexpr std::array kExpressions = {"LOCKED==\"True\" ", "FROZEN==\"False\" ", "NAME==\"a*\" ",
                                     "COLOR==\"1\" OR OFF==\"True\" ", "USED==\"True\" "};
constexpr std::array kNames = {"a", "b", "L1", "M", "x y", "*mine"};

} // namespace

/// Thousands of things done at random in the palette and beside it, in several drawings: at rest
/// the palette always shows what the drawing holds.
class TestPaletteSoak : public SyncFixture
{
    Q_OBJECT

private slots:
    void showsWhatTheDrawingHoldsWhateverHappens_data();
    void showsWhatTheDrawingHoldsWhateverHappens();

private:
    unsigned roll(unsigned sides) { return static_cast<unsigned>(m_random() % sides); }
    template <class List>
    auto pick(const List& list)
    {
        return list[m_random() % list.size()];
    }
    OdDbObjectId anyLayer() { return pick(drawing().layerTable().records()); }
    QString anyName() { return QString::fromLatin1(pick(kNames)) + QString::number(roll(40)); }
    void openOne();
    void usePalette();
    void changeLayer(OdDbObjectId id);
    void changeDrawing();
    void changeFilters();
    void changeDocuments();
    void passTime();
    void compare();

    std::mt19937 m_random;
    int m_done = 0;
};

void TestPaletteSoak::openOne()
{
    open({"a1", "a2", "b1", "L1", "L22", "M", "*SYSTEM"});
    addProperty("Locked", kExpressions[0]);
    addProperty("Thawed", kExpressions[1]);
    addGroup("G", {"a1", "M"});
}

void TestPaletteSoak::usePalette()
{
    switch (roll(9)) {
    case 0:
    case 1:
        return grid().command(pick(kGridCommands));
    case 2:
        return tree().command(pick(kTreeCommands));
    case 3: {
        const int count = grid().model()->rowCount();
        if (count > 0)
            grid().chooseRange(static_cast<int>(roll(unsigned(count))),
                               static_cast<int>(roll(unsigned(count))));
        return;
    }
    case 4: {
        QModelIndex index = tree().model()->index(0, 0);
        for (int depth = 0; depth < 3 && tree().model()->rowCount(index) > 0 && roll(3) > 0;
             ++depth)
            index = tree().model()->index(
                static_cast<int>(roll(unsigned(tree().model()->rowCount(index)))), 0, index);
        return tree().setCurrentIndex(index);
    }
    case 5:
        view()->searchBox()->setText(QString::fromLatin1(pick(kPatterns)));
        return view()->ApplySearch();
    case 6:
        return view()->setInverted(roll(3) == 0);
    case 7:
        if (QLineEdit* editor = grid().editor()) {
            QTest::keyClicks(editor, anyName());
            QTest::keyClick(editor, roll(3) == 0 ? Qt::Key_Escape : Qt::Key_Return);
        }
        return;
    default:
        return grid().columnClicked(static_cast<int>(roll(kLayerColumnCount)));
    }
}

void TestPaletteSoak::changeLayer(OdDbObjectId id)
{
    const auto layer = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    switch (roll(7)) {
    case 0:
        return layer->setIsLocked(roll(2) == 0);
    case 1:
        return layer->setIsOff(roll(2) == 0);
    case 2:
        if (id != drawing().getCLAYER())
            layer->setIsFrozen(roll(2) == 0);
        return;
    case 3:
        return layer->setColor(OdCmColor::fromIndex(int(roll(3)) + 1));
    case 4: {
        const QString name = anyName();
        if (id != drawing().getLayerZeroId() && !drawing().layerTable().has(name))
            layer->setName(name);
        return;
    }
    case 5:
        return layer->setDescription(anyName());
    default:
        return layer->setIsReconciled(roll(2) == 0);
    }
}

void TestPaletteSoak::changeDrawing()
{
    OdDbDatabase& database = drawing();
    if (roll(3) == 0)
        roll(2) == 0 ? database.startUndoRecord() : database.endUndoRecord();
    switch (roll(9)) {
    case 0:
        database.undo();
        return;
    case 1:
        database.redo();
        return;
    case 2: {
        const auto layer = anyLayer();
        database.layerTable().generateUsageData();
        const bool isUsed = database.layerTable().useCount(layer.slot()) > 0;
        if (!isUsed && layer != database.getCLAYER() && layer != database.getLayerZeroId())
            database.eraseTree(layer);
        return;
    }
    case 3: {
        const QString name = anyName();
        if (!database.layerTable().has(name))
            database.layerTable().add(name);
        return;
    }
    case 4:
        if (const auto layer = anyLayer(); !layer_drawing::name(layer).contains(QLatin1Char('*')))
            database.setCLAYER(layer);
        return;
    case 5:
        // A burst.
        for (const OdDbObjectId layer : database.layerTable().records())
            changeLayer(layer);
        return;
    case 6:
        return database.setTILEMODE(roll(2) == 0);
    default:
        return changeLayer(anyLayer());
    }
}

void TestPaletteSoak::changeFilters()
{
    FilterTreeEdit edit(drawing());
    auto filters = filtersOfTree(edit.root());
    const OdLyLayerFilterPtr filter = pick(filters);
    if (filter->isIdFilter() && roll(2) == 0) {
        static_cast<OdLyLayerGroup&>(*filter).addLayerId(anyLayer());
        return edit.write();
    }
    if (filters.size() < 8)
        addProperty(qPrintable(QStringLiteral("P%1").arg(roll(1000))), pick(kExpressions));
    else if (filter->allowDelete() && filter->parent()->removeNested(filter))
        edit.write();
}

void TestPaletteSoak::changeDocuments()
{
    if (ksDocManagerPtr()->documentCount() < kDrawings)
        return openOne();
    if (roll(4) == 0 && &drawing() != &db())
        return host().close(drawing());
    roll(2) == 0 ? host().setCurrent(db()) : openOne();
    if (ksDocManagerPtr()->documentCount() > kDrawings && &drawing() != &db())
        host().close(drawing());
}

void TestPaletteSoak::passTime()
{
    settle();
    fire(roll(2) == 0 ? CLayerListCtrl::kRefreshTimer : CLayerListCtrl::kErasureTimer);
}

/// At rest the list is what the drawing, the selected filter and the search say.
void TestPaletteSoak::compare()
{
    grid().discardInPlaceEditor();
    // A notice waits for as long as a label is edited.
    if (QLineEdit* label = labelEditor())
        QTest::keyClick(label, Qt::Key_Escape);
    quiesce();
    QCOMPARE(view()->database(), &drawing());
    QCOMPARE(grid().database(), &drawing());
    LayerIds in;
    LayerIds other;
    const FilterTreeEdit edit(drawing());
    const OdLyLayerFilterPtr filter = edit.find(tree().selectedNode()->key);
    QVERIFY(filter);
    QCOMPARE(edit.current()->name(), filter->name());
    GetLayersOfFilter(drawing(), *filter, in, &other);
    const QString text = view()->searchBox()->text();
    const QString pattern =
        text.isEmpty() || text == QLatin1String("~") ? QStringLiteral("*") : text.toUpper();
    QStringList expected;
    for (const OdDbObjectId layer : view()->isInverted() ? other : in) {
        const QString name = layer_drawing::name(layer);
        const QString upper = name.toUpper();
        if (!name.contains(QLatin1Char('*')) && MatchWildcard(&upper, &pattern) == kest::kNormal)
            expected.append(name);
    }
    QStringList shown = listed();
    expected.sort();
    shown.sort();
    if (shown != expected)
        qInfo("after %d operations, filter \"%s\"%s, search \"%s\"", m_done,
              qPrintable(filter->name()), view()->isInverted() ? " inverted" : "",
              qPrintable(text));
    QCOMPARE(shown.join(QLatin1Char('|')), expected.join(QLatin1Char('|')));
    QCOMPARE(grid().displayedCount(), static_cast<int>(expected.size()));
    QCOMPARE(grid().model()->rowCount(), grid().displayedCount());
    QCOMPARE(statusText(),
             QStringLiteral(" %1 : %2 layers displayed of %3 total layers")
                 .arg(tree().selectedName())
                 .arg(expected.size())
                 .arg(drawing().layerTable().count()));
    QVERIFY(grid().currentLayer() == drawing().getCLAYER());
    if (roll(kAudits) == 0)
        QCOMPARE(drawing().audit().join(QLatin1Char(' ')), QString());
}

void TestPaletteSoak::showsWhatTheDrawingHoldsWhateverHappens_data()
{
    QTest::addColumn<uint>("seed");
    QTest::addColumn<int>("evaluation");
    QTest::newRow("layers are not evaluated") << 1U << 0;
    QTest::newRow("layers are evaluated") << 2U << 1;
}

void TestPaletteSoak::showsWhatTheDrawingHoldsWhateverHappens()
{
    QFETCH(uint, seed);
    QFETCH(int, evaluation);
    m_random.seed(seed);
    m_done = 0;
    const RandomPrompts answers([this](unsigned sides) { return roll(sides); });
    host().ints[QStringLiteral("LAYEREVAL")] = evaluation;
    host().ints[QStringLiteral("LAYEREVALCTL")] = evaluation;
    run("_LAYER");
    openOne();
    while (m_done < kOperations / 2) {
        for (int i = 0; i < kBatch; ++i, ++m_done) {
            const unsigned what = roll(40);
            if (what < 16)
                usePalette();
            else if (what < 33)
                changeDrawing();
            else if (what < 35)
                changeFilters();
            else if (what < 39)
                passTime();
            else
                changeDocuments();
        }
        compare();
        if (QTest::currentTestFailed())
            return;
    }
}

QTEST_MAIN(TestPaletteSoak)
#include "test_palette_soak.moc"
