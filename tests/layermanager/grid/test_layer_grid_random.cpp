#include "GridFixture.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/operations/LayerCommandTable.h"
#include "support/RandomPrompts.h"

#include <array>
#include <random>

using layer_drawing::write;

namespace {

constexpr std::array kKeys = {Qt::Key_F2,    Qt::Key_Delete, Qt::Key_Return, Qt::Key_Escape,
                              Qt::Key_Space, Qt::Key_Down,   Qt::Key_Up,     Qt::Key_Right,
                              Qt::Key_Left,  Qt::Key_Home,   Qt::Key_End,    Qt::Key_Tab};
constexpr std::array kModifiers = {Qt::NoModifier, Qt::NoModifier, Qt::NoModifier,
                                   Qt::ControlModifier, Qt::ShiftModifier};
constexpr std::array kTexts = {"a", "B", "Roof", "/", "layer1", "x y", "1", "?", "0"};

} // namespace

/// Whatever is clicked and typed in whatever order, rows and drawing agree, and all of it is
/// undone.
class TestLayerGridRandom : public GridFixture
{
    Q_OBJECT

private slots:
    void standsAnythingThatIsClickedAndTyped_data();
    void standsAnythingThatIsClickedAndTyped();

private:
    template <class List>
    auto pick(const List& list)
    {
        return list[m_random() % list.size()];
    }
    QPoint anyPlace()
    {
        const QSize size = grid().viewport()->size();
        return {static_cast<int>(m_random() % static_cast<unsigned>(size.width())),
                static_cast<int>(m_random() % 160)};
    }
    OdDbObjectId anyLayer()
    {
        const auto layers = db().layerTable().records();
        return pick(layers);
    }
    void act();
    void meddle();
    void verify();

    std::mt19937 m_random;
};

void TestLayerGridRandom::act()
{
    QWidget* keys = editor() ? static_cast<QWidget*>(editor()) : &grid();
    switch (m_random() % 8) {
    case 0:
    case 1:
        return QTest::mouseClick(grid().viewport(), Qt::LeftButton, pick(kModifiers), anyPlace());
    case 2:
        return QTest::mouseDClick(grid().viewport(), Qt::LeftButton, pick(kModifiers), anyPlace());
    case 3:
        return QTest::keyClick(keys, pick(kKeys), pick(kModifiers));
    case 4:
        if (editor())
            QTest::keyClicks(editor(), QString::fromLatin1(pick(kTexts)));
        return;
    case 5:
    case 6:
        return grid().command(
            kFirstLayerCommand
            + static_cast<int>(m_random() % (kLastLayerCommand - kFirstLayerCommand + 1)));
    default:
        return meddle();
    }
}

/// What others do meanwhile.
void TestLayerGridRandom::meddle()
{
    switch (m_random() % 9) {
    case 0:
        if (db().hasUndo())
            db().undo();
        return;
    case 1:
        if (db().hasRedo())
            db().redo();
        return;
    case 2:
        return db().setTILEMODE(m_random() % 2 == 0);
    case 3:
        host().pickedColor = OdCmColor::fromIndex(static_cast<int>(m_random() % 255) + 1);
        host().pickedLinetype = QStringLiteral("DASHED");
        host().pickedLineweight = 25;
        return;
    case 4:
        return grid().columnClicked(static_cast<int>(m_random() % kLayerColumnCount));
    case 5:
        if (const OdDbObjectId layer = anyLayer(); layer != db().getCLAYER())
            layer.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsOff(true);
        return;
    case 6:
        host().strings[QStringLiteral("CMDNAMES")] =
            m_random() % 4 == 0 ? QStringLiteral("-LAYER") : QString();
        return;
    case 7:
        flushRefresh();
        return QCoreApplication::processEvents();
    default:
        m_random() % 2 == 0 ? grid().fill(&db()) : grid().fillFromList({anyLayer(), anyLayer()});
    }
}

void TestLayerGridRandom::verify()
{
    const auto& layers = grid().layerModel().layers();
    QCOMPARE(grid().displayedCount(), static_cast<int>(layers.size()));
    for (const int row : grid().chosenRows())
        QVERIFY(row >= 0 && row < static_cast<int>(layers.size()));
    if (editor())
        QVERIFY(grid().viewport()->rect().intersects(editor()->geometry()));
    QCOMPARE(db().audit(), decltype(db().audit())());
}

void TestLayerGridRandom::standsAnythingThatIsClickedAndTyped_data()
{
    QTest::addColumn<uint>("seed");
    for (const uint seed : {1U, 2U, 3U, 4U, 5U})
        QTest::addRow("%u", seed) << seed;
}

void TestLayerGridRandom::standsAnythingThatIsClickedAndTyped()
{
    QFETCH(uint, seed);
    m_random.seed(seed);
    RandomPrompts answers(
        [this](unsigned sides) { return static_cast<unsigned>(m_random() % sides); });
    grid().resize(1500, 220);
    enterViewport();
    db().endUndoRecord();
    const QStringList names = layer_drawing::names(db().layerTable().records());
    for (int i = 0; i < 1500; ++i) {
        act();
        verify();
        if (QTest::currentTestFailed())
            return;
    }
    QVERIFY(answers.messages() > 0);
    QVERIFY(host().historyNames.size() > 50);
    while (db().hasUndo())
        QVERIFY(db().undo());
    QCOMPARE(layer_drawing::names(db().layerTable().records()), names);
}

QTEST_MAIN(TestLayerGridRandom)
#include "test_layer_grid_random.moc"
