// Layer states.

#include "FeatureTour.h"
#include "TourDialogs.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/layer_states/core/LayerStateControls.h"
#include "layermanager/layer_states/core/StateLayerListModel.h"
#include "toolkit/ControlRegistry.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QTableView>
#include <QTest>

namespace {

QAbstractItemView& stateList(const QDialog& manager)
{
    auto* list = qobject_cast<QAbstractItemView*>(controlById(&manager, StateControl::kList));
    if (!list)
        qFatal("The layer-state manager has no list.");
    return *list;
}

/// "Name|Space|Same As Dwg|Description" of each row.
QStringList states(const QDialog& manager)
{
    const QAbstractItemModel& model = *stateList(manager).model();
    QStringList lines;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells.append(model.index(row, column).data().toString());
        lines.append(cells.join(QLatin1Char('|')));
    }
    return lines;
}

void clickRow(QAbstractItemView& list, const char* name, int column)
{
    const QAbstractItemModel& model = *list.model();
    for (int row = 0; row < model.rowCount(); ++row) {
        if (model.index(row, 0).data().toString() != QLatin1String(name))
            continue;
        const QModelIndex cell = model.index(row, column);
        list.scrollTo(cell);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(cell).center());
        return;
    }
    QFAIL(qPrintable(QStringLiteral("There is no row %1.").arg(QLatin1String(name))));
}

bool isFrozen(const OdDbLayerTableRecord& layer)
{
    return layer.isFrozen();
}

bool isLocked(const OdDbLayerTableRecord& layer)
{
    return layer.isLocked();
}

bool isOff(const OdDbLayerTableRecord& layer)
{
    return layer.isOff();
}

const QString kDescription = QStringLiteral("Power and light in orange, no furniture");

} // namespace

void FeatureTour::inManagerOn(const char* state, const std::function<void(QDialog&)>& steps)
{
    tour_dialogs::inDialog([this] { palette().clickTool("Layer States Manager"); },
                           [&](QDialog& manager) {
                               QCOMPARE(manager.windowTitle(),
                                        QStringLiteral("Layer States Manager"));
                               if (*state)
                                   clickRow(stateList(manager), state, 0);
                               steps(manager);
                           });
    m_tour->settle();
}

void FeatureTour::savesALayerStateAndRestoresIt()
{
    inManagerOn("", [this](QDialog& manager) {
        QCOMPARE(states(manager),
                 (QStringList{QStringLiteral("Architecture|Model|No|Floor plan without services"),
                              QStringLiteral("Services|Model|No|Electrical, mechanical, plumbing "
                                             "and fire")}));
        tour_dialogs::inDialog(
            [&manager] { tour_dialogs::press(manager, QStringLiteral("New...")); },
            [this](QDialog& dialog) {
                QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Electrical plan"));
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                QTest::keyClicks(QApplication::focusWidget(), kDescription);
                QVERIFY(m_tour->looksLike("state_new"));
                tour_dialogs::press(dialog, QStringLiteral("OK"));
            });
        QVERIFY(
            states(manager).contains(QStringLiteral("Electrical plan|Model|Yes|") + kDescription));
        tour_dialogs::press(manager, QStringLiteral("Close"));
    });
    noteStep("Undo LAYERSTATE");
    const QStringList frozen = layersThat(isFrozen);
    const QStringList locked = layersThat(isLocked);

    // Then everything is to be seen for a while.
    palette().onFilterMenu("All", [this](QMenu& menu) {
        const QStringList thawed{QStringLiteral("Visibility"), QStringLiteral("Thawed")};
        tour_dialogs::pointAt(menu, thawed);
        QVERIFY(m_tour->looksLike("filter_menu"));
        tour_dialogs::choose(menu, thawed);
    });
    noteStep("Undo LAYER");
    palette().chooseOnFilter("All", {QStringLiteral("Lock"), QStringLiteral("Unlock")});
    noteStep("Undo LAYER");
    QCOMPARE(layersThat(isFrozen) + layersThat(isLocked), QStringList());

    inManagerOn("Electrical plan", [this](QDialog& manager) {
        QVERIFY(
            states(manager).contains(QStringLiteral("Electrical plan|Model|No|") + kDescription));
        QVERIFY(m_tour->looksLike("states"));
        tour_dialogs::press(manager, QStringLiteral("Restore"));
    });
    noteStep("Undo LAYERSTATE");
    QCOMPARE(layersThat(isFrozen), frozen);
    QCOMPARE(layersThat(isLocked), locked);
}

void FeatureTour::editsALayerState()
{
    QVERIFY(!layersThat(isOff).contains(QStringLiteral("M-RADI")));
    inManagerOn("Electrical plan", [this](QDialog& manager) {
        tour_dialogs::inDialog(
            [&manager] { tour_dialogs::press(manager, QStringLiteral("Edit...")); },
            [this](QDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), QStringLiteral("Edit Layer State: Electrical plan"));
                clickRow(*dialog.findChild<QTableView*>(), "M-RADI",
                         static_cast<int>(StateLayerColumn::On));
                QVERIFY(m_tour->looksLike("state_edit"));
                tour_dialogs::press(dialog, QStringLiteral("OK"));
            });
        noteStep("Undo LAYERSTATE");
        QVERIFY(
            states(manager).contains(QStringLiteral("Electrical plan|Model|No|") + kDescription));
        tour_dialogs::press(manager, QStringLiteral("Restore"));
    });
    noteStep("Undo LAYERSTATE");
    QVERIFY(layersThat(isOff).contains(QStringLiteral("M-RADI")));
}
