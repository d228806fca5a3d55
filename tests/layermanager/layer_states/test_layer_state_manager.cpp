#include "StateDialogFixture.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "sdk/CKestPreferenceManager.h"

#include <QHeaderView>
#include <QLabel>
#include <QPaintEvent>
#include <QPushButton>
#include <QSet>

using namespace StateControl;
using layer_drawing::read;
using layer_drawing::write;

class TestLayerStateManager : public StateDialogFixture
{
    Q_OBJECT

private slots:
    void withoutStatesItOpensExpandedWithAnEmptyList();
    void statesAreListedWithTheFirstOneSelectedAndItsMaskShown();
    void theFourColumnsHaveTheirTitles();
    void severalSelectedStatesLeaveOnlyDeletionAndTheGeneralOptions();
    void aClickBesideTheRowsLeavesNothingSelected();
    void theKeyboardSelectsLikeTheMouse();
    void theRightButtonSelectsLikeTheLeftOne();
    void aLongDescriptionHasTheRoomThatIsLeft();
    void inModelSpaceTheViewportBoxIsDisabled();
    void inALayoutOnAndFrozenAreDisabled();
    void overridesAreOfferedInALayoutWithItsSheetActiveOnly();
    void aClickOnABoxChangesTheMask_data();
    void aClickOnABoxChangesTheMask();
    void disabledBoxesAreCheckedByAStoredMaskAndNotCleared();
    void theTransparencyBitOfAStoredMaskIsKept();
    void restoreRestoresAndSavesWithTheSameMask();
    void restoreTurnsOffLayersThatTheStateLacks();
    void restoreAsOverridesHeedsTheBoxAtOnce();
    void aRestoreIsOneUndoStepAndRepaintsOnce();
    void restoreWithoutASelectionDoesNothing();
    void closingStoresThePreferencesAndTakesNothingBack();
    void theBoxForExternalReferencesFiltersNothingAtOnce();
    void theDialogEndsBesideTheButtonsAsItIsExpanded();
    void everyControlHasItsHelpText();
    void mnemonicsAreUniqueAndNamesAccessible();
    void helpOpensItsTopic();
};

void TestLayerStateManager::withoutStatesItOpensExpandedWithAnEmptyList()
{
    openManager();
    QCOMPARE(states().rowCount(), 0);
    QVERIFY(manager().isExpanded());
    QVERIFY(controlById(&manager(), kLess)->isVisible());
    QVERIFY(!controlById(&manager(), kMore)->isVisible());
    for (const int id : {1, 3, 4, 1013, 1014, 1015, 1016, 1018, 1020, 1021})
        QVERIFY2(!isEnabled(id), qPrintable(QString::number(id)));
    for (int id = 1024; id <= 1033; ++id)
        QVERIFY2(!isEnabled(id), qPrintable(QString::number(id)));
    for (const int id : {2, 1011, 1012, 1017, 1019})
        QVERIFY2(isEnabled(id), qPrintable(QString::number(id)));
}

void TestLayerStateManager::statesAreListedWithTheFirstOneSelectedAndItsMaskShown()
{
    addState("Plan", "as built", 0x025);
    enterSheet();
    addState("Sheet");
    db().setTILEMODE(true);
    write(db(), "Walls")->setIsOff(true);
    addState("Third", "walls off");
    openManager();
    QCOMPARE(states().rowCount(), 3);
    QCOMPARE(row(0), QStringLiteral("Plan|Model|No|as built"));
    QCOMPARE(row(1), QStringLiteral("Sheet|Layout|No|"));
    QCOMPARE(row(2), QStringLiteral("Third|Model|Yes|walls off"));
    QCOMPARE(chosen(), QList<int>{0});
    QCOMPARE(shownMask(), 0x025);
    QCOMPARE(manager().restoreMask(), 0x025);
}

void TestLayerStateManager::theFourColumnsHaveTheirTitles()
{
    openManager();
    QStringList titles;
    for (int column = 0; column < states().columnCount(); ++column)
        titles.append(states().headerData(column, Qt::Horizontal).toString());
    QCOMPARE(titles.join(QLatin1Char('|')), QStringLiteral("Name|Space|Same As Dwg|Description"));
    const QHeaderView* header = manager().list().header();
    const QList<int> least{50, 50, 80, 100};
    for (int column = 0; column < 4; ++column) {
        QVERIFY(header->sectionSize(column) >= least[column]);
        QVERIFY(header->sectionSize(column) >= header->sectionSizeHint(column));
    }
}

void TestLayerStateManager::severalSelectedStatesLeaveOnlyDeletionAndTheGeneralOptions()
{
    for (const char* name : {"A", "B", "C"})
        addState(name);
    openManager();
    clickRow(1, Qt::ControlModifier);
    QCOMPARE(chosen(), (QList<int>{0, 1}));
    for (const int id : {1, 3, 4, 1013, 1014, 1015, 1018, 1024, 1025, 1026, 1033})
        QVERIFY2(!isEnabled(id), qPrintable(QString::number(id)));
    for (const int id : {1016, 1020, 1021})
        QVERIFY2(isEnabled(id), qPrintable(QString::number(id)));
    clickRow(2);
    QCOMPARE(chosen(), QList<int>{2});
    QVERIFY(isEnabled(kSave));
    QVERIFY(!isEnabled(kAsOverrides));
    QCOMPARE(shownMask(), kAllBoxes);
}

void TestLayerStateManager::aClickBesideTheRowsLeavesNothingSelected()
{
    addState("A");
    openManager();
    QWidget* viewport = manager().list().viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, viewport->rect().bottomRight() - QPoint(5, 5));
    QCOMPARE(chosen(), QList<int>());
    QVERIFY(!isEnabled(kRestore));
    QVERIFY(!isEnabled(kDelete));
    QVERIFY(!isEnabled(kTurnOffOthers));
}

void TestLayerStateManager::theKeyboardSelectsLikeTheMouse()
{
    addState("A", "", 0x001);
    addState("B", "", 0x020);
    openManager();
    manager().list().setFocus();
    QTest::keyClick(&manager().list(), Qt::Key_Down);
    QCOMPARE(shownMask(), 0x020);
    QTest::keyClick(&manager().list(), Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(chosen(), (QList<int>{0, 1}));
    QVERIFY(!isEnabled(kSave));
    QTest::keyClick(&manager().list(), Qt::Key_Down);
    QCOMPARE(chosen(), QList<int>{1});
    QCOMPARE(shownMask(), 0x020);
    QVERIFY(isEnabled(kSave));
}

void TestLayerStateManager::theRightButtonSelectsLikeTheLeftOne()
{
    addState("A", "", 0x001);
    addState("B", "", 0x020);
    openManager();
    QTreeView& list = manager().list();
    QTest::mouseClick(list.viewport(), Qt::RightButton, {},
                      list.visualRect(states().index(1, 0)).center());
    QCOMPARE(chosen(), QList<int>{1});
    QCOMPARE(shownMask(), 0x020);
    press(kRestore);
    QCOMPARE(storedMask("B"), 0x020);
    QCOMPARE(storedMask("A"), 0x001);
}

void TestLayerStateManager::aLongDescriptionHasTheRoomThatIsLeft()
{
    addState("A", QByteArray(500, 'x').constData());
    openManager();
    const QHeaderView* header = manager().list().header();
    QCOMPARE(header->sectionViewportPosition(3) + header->sectionSize(3),
             manager().list().viewport()->width());
}

void TestLayerStateManager::inModelSpaceTheViewportBoxIsDisabled()
{
    addState("A");
    openManager();
    QVERIFY(!isEnabled(kViewportFrozen));
    QVERIFY(isEnabled(kOn));
    QVERIFY(isEnabled(kFrozen));
    press(kClearAll);
    press(kSelectAll);
    QCOMPARE(manager().restoreMask() & kInModel, kInModel);
}

void TestLayerStateManager::inALayoutOnAndFrozenAreDisabled()
{
    addState("A", "", 0x004);
    enterSheet();
    openManager();
    QVERIFY(isEnabled(kViewportFrozen));
    QVERIFY(!isEnabled(kOn));
    QVERIFY(!isEnabled(kFrozen));
    press(kSelectAll);
    QCOMPARE(shownMask(), kInLayout);
    QCOMPARE(manager().restoreMask(), kInLayout);
    press(kClearAll);
    QCOMPARE(manager().restoreMask(), 0);
}

void TestLayerStateManager::overridesAreOfferedInALayoutWithItsSheetActiveOnly()
{
    addState("A");
    host().ints[QStringLiteral("CVPORT")] = 1;
    openManager();
    QVERIFY2(!isEnabled(kAsOverrides), "model space");
    enterSheet();
    openManager();
    QVERIFY(isEnabled(kAsOverrides));
    enterSheet(true);
    openManager();
    QVERIFY2(!isEnabled(kAsOverrides), "CVPORT 2");
    host().unreadable.insert(QStringLiteral("CVPORT"));
    openManager();
    QVERIFY2(!isEnabled(kAsOverrides), "not readable");
}

void TestLayerStateManager::aClickOnABoxChangesTheMask_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("bit");
    const QList<QPair<int, int>> table{{1024, 0x001}, {1025, 0x002}, {1027, 0x004},
                                       {1028, 0x008}, {1029, 0x020}, {1030, 0x040},
                                       {1031, 0x080}, {1032, 0x100}, {1033, 0x010}};
    for (const auto& [id, bit] : table)
        QTest::newRow(qPrintable(QString::number(id))) << id << bit;
}

void TestLayerStateManager::aClickOnABoxChangesTheMask()
{
    QFETCH(int, id);
    QFETCH(int, bit);
    addState("A", "", kAllBoxes);
    openManager();
    QCOMPARE(manager().restoreMask(), kAllBoxes);
    press(id);
    QCOMPARE(manager().restoreMask(), kAllBoxes & ~bit);
    press(id);
    QCOMPARE(manager().restoreMask(), kAllBoxes);
}

void TestLayerStateManager::disabledBoxesAreCheckedByAStoredMaskAndNotCleared()
{
    addState("A", "", 0x203);
    addState("B", "", 0x004);
    openManager();
    QVERIFY(box(kViewportFrozen)->isChecked());
    QCOMPARE(manager().restoreMask(), 0x203);
    clickRow(1);
    QVERIFY2(box(kViewportFrozen)->isChecked(), "it is disabled and stays as it was");
    QVERIFY(!box(kOn)->isChecked());
    QCOMPARE(manager().restoreMask(), 0x004);
    press(kClearAll);
    QCOMPARE(manager().restoreMask(), 0x200);
}

void TestLayerStateManager::theTransparencyBitOfAStoredMaskIsKept()
{
    addState("A");
    openManager();
    QCOMPARE(manager().restoreMask(), 0x7FF);
    press(kClearAll);
    QCOMPARE(manager().restoreMask() & 0x400, 0x400);
    press(kRestore);
    QCOMPARE(storedMask("A") & 0x400, 0x400);
}

void TestLayerStateManager::restoreRestoresAndSavesWithTheSameMask()
{
    write(db(), "Walls")->setColor(OdCmColor::fromIndex(1));
    addState("A");
    write(db(), "Walls")->setColor(OdCmColor::fromIndex(3));
    write(db(), "Doors")->setIsLocked(true);
    openManager();
    press(kLocked);
    press(kRestore);
    QVERIFY(!isManagerOpen());
    QCOMPARE(manager().QDialog::result(), int(QDialog::Accepted));
    QCOMPARE(read(db(), "Walls")->color().colorIndex(), 1);
    QVERIFY2(read(db(), "Doors")->isLocked(), "the mask leaves locks alone");
    QCOMPARE(storedMask("A"), 0x7FF & ~0x004);
    std::vector<LayerInfoInLS> layers;
    QVERIFY(service().SetLayersInLS(QStringLiteral("A"), layers));
    const auto doors = std::find_if(layers.begin(), layers.end(), [](const LayerInfoInLS& layer) {
        return layer.name == QStringLiteral("Doors");
    });
    QVERIFY(doors != layers.end());
    QVERIFY2(doors->has(LayerInfoInLS::kLocked), "it was saved again as the layers are now");
}

void TestLayerStateManager::restoreTurnsOffLayersThatTheStateLacks()
{
    addState("A");
    std::vector<LayerInfoInLS> layers;
    CLayerStateUtility states = service();
    QVERIFY(states.SetLayersInLS(QStringLiteral("A"), layers));
    std::erase_if(layers,
                  [](const LayerInfoInLS& layer) { return layer.name == QStringLiteral("Roof"); });
    QVERIFY(states.UpdateLayerStateInfo(QStringLiteral("A"), layers));
    openManager();
    press(kTurnOffOthers);
    press(kRestore);
    QVERIFY(read(db(), "Roof")->isOff());
    QVERIFY(!read(db(), "Walls")->isOff());
    QCOMPARE(CKestPreferenceManager::instance().m_iOffNotfoundLayer, 1);
}

void TestLayerStateManager::restoreAsOverridesHeedsTheBoxAtOnce()
{
    write(db(), "Walls")->setColor(OdCmColor::fromIndex(1));
    addState("A");
    write(db(), "Walls")->setColor(OdCmColor::fromIndex(3));
    enterSheet();
    openManager();
    press(kAsOverrides);
    press(kRestore);
    QCOMPARE(read(db(), "Walls")->color().colorIndex(), 3);
    QCOMPARE(read(db(), "Walls")->color(db().activeViewportId()).colorIndex(), 1);
    QCOMPARE(CKestPreferenceManager::instance().m_iOffNotfoundLayer, 2);
}

namespace {

/// Counts the paint events of a widget.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

} // namespace

void TestLayerStateManager::aRestoreIsOneUndoStepAndRepaintsOnce()
{
    QList<QByteArray> names;
    for (int i = 0; i < 200; ++i)
        names.append("L" + QByteArray::number(i));
    openLayers(names);
    addState("A");
    db().startUndoRecord();
    for (const OdDbObjectId id : db().layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsLocked(true);
    const quint64 before = db().editStamp();
    CLayerListCtrl grid;
    grid.resize(600, 300);
    grid.fill(&db());
    grid.show();
    openManager();
    QCoreApplication::processEvents();
    host().viewRefreshes = 0;
    host().historyNames.clear();
    PaintCount paints(*grid.viewport());
    press(kRestore);
    QCOMPARE(paints.count, 0);
    QVERIFY(QTest::qWaitFor([&] { return paints.count > 0; }));
    QCOMPARE(paints.count, 1);
    QCOMPARE(host().viewRefreshes, 1);
    QVERIFY(!read(db(), "L7")->isLocked());
    QCOMPARE(host().historyNames, QStringList{QStringLiteral("_LAYERSTATE")});
    QVERIFY(db().undo());
    QVERIFY(read(db(), "L7")->isLocked());
    QCOMPARE(db().editStamp(), before);
}

void TestLayerStateManager::restoreWithoutASelectionDoesNothing()
{
    addState("A");
    openManager();
    manager().list().clearSelection();
    const quint64 before = db().editStamp();
    manager().accept();
    QVERIFY(isManagerOpen());
    QCOMPARE(db().editStamp(), before);
    QCOMPARE(host().historyNames, QStringList());
}

void TestLayerStateManager::closingStoresThePreferencesAndTakesNothingBack()
{
    CKestPreferenceManager& preferences = CKestPreferenceManager::instance();
    preferences.m_iDontListinXref = 1;
    preferences.m_iOffNotfoundLayer = 3;
    addState("A");
    openManager();
    QVERIFY(box(kHideExternal)->isChecked());
    QVERIFY(box(kTurnOffOthers)->isChecked());
    QVERIFY(box(kAsOverrides)->isChecked());
    prompts().willConfirm(true);
    press(kDelete);
    press(kHideExternal);
    box(kTurnOffOthers)->setChecked(false);
    QCOMPARE(preferences.m_iDontListinXref, 1);
    QTest::keyClick(&manager(), Qt::Key_Escape);
    QVERIFY(!isManagerOpen());
    QCOMPARE(preferences.m_iDontListinXref, 0);
    QCOMPARE(preferences.m_iOffNotfoundLayer, 2);
    QCOMPARE(stateNames(), QStringList());
}

void TestLayerStateManager::theBoxForExternalReferencesFiltersNothingAtOnce()
{
    addState("A");
    openManager();
    press(kHideExternal);
    QVERIFY(box(kHideExternal)->isChecked());
    QCOMPARE(states().rowCount(), 1);
    press(kClose);
    QCOMPARE(CKestPreferenceManager::instance().m_iDontListinXref, 1);
}

void TestLayerStateManager::theDialogEndsBesideTheButtonsAsItIsExpanded()
{
    addState("A");
    openManager();
    const auto rightEdge = [this](int id) {
        const QWidget* button = controlById(&manager(), id);
        return button->mapTo(&manager(), QPoint(button->width(), 0)).x();
    };
    const QRect wide = manager().geometry();
    QCOMPARE(manager().width(), rightEdge(kLess) + 6);
    press(kLess);
    QVERIFY(!manager().isExpanded());
    QCoreApplication::processEvents();
    QCOMPARE(manager().width(), rightEdge(kNew) + 6);
    QCOMPARE(manager().geometry().topLeft(), wide.topLeft());
    QCOMPARE(manager().height(), wide.height());
    QVERIFY(!controlById(&manager(), kLess)->isVisible());
    QVERIFY(!controlById(&manager(), kOn)->isVisible());
    press(kMore);
    QVERIFY(manager().isExpanded());
    QCoreApplication::processEvents();
    QCOMPARE(manager().geometry(), wide);
    QVERIFY(!controlById(&manager(), kMore)->isVisible());
}

void TestLayerStateManager::everyControlHasItsHelpText()
{
    openManager();
    const QList<int> ids{1010, 1012, 1014, 1013, 1015, 1016, 1017, 1018,
                         1019, 1020, 1021, 1,    1022, 3,    4,    1035};
    for (const int id : ids)
        QVERIFY2(!controlById(&manager(), id)->accessibleDescription().isEmpty(),
                 qPrintable(QString::number(id)));
    QCOMPARE(controlById(&manager(), kSave)->accessibleDescription(),
             QStringLiteral("Saves the selected named layer state."));
    QCOMPARE(controlById(&manager(), kTurnOffOthers)->accessibleDescription(),
             QStringLiteral("When a layer state is restored, turns off new layers for which "
                            "settings were not saved so that the drawing looks the same way it "
                            "did when the named layer state was saved."));
}

void TestLayerStateManager::mnemonicsAreUniqueAndNamesAccessible()
{
    openManager();
    QSet<QChar> seen;
    const auto note = [&seen](const QString& label) {
        const qsizetype mark = label.indexOf(QLatin1Char('&'));
        if (mark < 0)
            return true;
        const QChar key = label[mark + 1].toUpper();
        const bool isNew = !seen.contains(key);
        seen.insert(key);
        return isNew;
    };
    for (const auto* button : manager().findChildren<QAbstractButton*>()) {
        QVERIFY2(note(button->text()), qPrintable(button->text()));
        if (controlId(&manager(), button) >= 0)
            QVERIFY2(!button->accessibleName().isEmpty(), qPrintable(button->objectName()));
    }
    for (const auto* label : manager().findChildren<QLabel*>()) {
        QVERIFY2(note(label->text()), qPrintable(label->text()));
        QCOMPARE(label->buddy(), &manager().list());
    }
    QVERIFY(seen.size() > 15);
}

void TestLayerStateManager::helpOpensItsTopic()
{
    openManager();
    press(kHelp);
    QCOMPARE(host().helpTopics, QList<int>{706});
    QCOMPARE(manager().property("helpTopic").toInt(), 706);
}

QTEST_MAIN(TestLayerStateManager)
#include "test_layer_state_manager.moc"
