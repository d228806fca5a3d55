#include "SurfaceFixture.h"
#include "layermanager/layers/LayerColumn.h"

#include <QAccessible>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace {

/// Roles of what users act on; such a thing needs a name, or nobody who cannot see it knows it.
bool isInteractive(QAccessible::Role role)
{
    switch (role) {
    case QAccessible::PushButton:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::MenuItem:
    case QAccessible::List:
    case QAccessible::Table:
    case QAccessible::Tree:
    case QAccessible::PageTab:
    case QAccessible::Slider:
    case QAccessible::SpinBox:
    case QAccessible::ButtonMenu:
    case QAccessible::ButtonDropDown:
        return true;
    default:
        return false;
    }
}

QString describe(const QAccessibleInterface& item)
{
    const QObject* object = item.object();
    return QStringLiteral("role %1, %2 \"%3\"")
        .arg(int(item.role()))
        .arg(object ? QString::fromLatin1(object->metaObject()->className())
                    : QStringLiteral("part"),
             object ? object->objectName() : QString());
}

struct Walk
{
    int looked = 0;
    QStringList nameless;

    void into(QAccessibleInterface* item)
    {
        if (!item || !item->isValid() || item->state().invisible)
            return;
        ++looked;
        // The button that empties a field is Qt's own, as is the corner of a table; the field of a
        // combo box is told with that.
        const QObject* object = item->object();
        const bool isOfQt = object
            && (object->inherits("QLineEditIconButton") || object->inherits("QTableCornerButton")
                || (object->parent() && object->parent()->inherits("QComboBox")));
        const bool acts = isInteractive(item->role()) || item->state().focusable;
        if (acts && !isOfQt && item->text(QAccessible::Name).trimmed().isEmpty()
            && item->role() != QAccessible::Cell)
            nameless.append(describe(*item));
        // Cells are looked at by their model.
        if (item->tableInterface())
            return;
        for (int i = 0; i < item->childCount(); ++i)
            into(item->child(i));
    }
};

} // namespace

class TestAccessibleSurfaces : public SurfaceFixture
{
    Q_OBJECT

private slots:
    void nameEveryControl_data() { addSurfaces(); }
    void nameEveryControl();
    void theSearchFindsANamelessControl();
    void sayWhatIconCellsShow();
};

void TestAccessibleSurfaces::nameEveryControl()
{
    QFETCH(const int, surface);
    openPalette(QString());
    Walk walk;
    walk.into(QAccessible::queryAccessibleInterface(&show(surface)));
    QVERIFY(walk.looked > 2);
    QVERIFY2(walk.nameless.isEmpty(), qPrintable(walk.nameless.join(QLatin1Char('\n'))));
}

void TestAccessibleSurfaces::theSearchFindsANamelessControl()
{
    QWidget window;
    new QToolButton(&window);
    window.show();
    Walk walk;
    walk.into(QAccessible::queryAccessibleInterface(&window));
    QCOMPARE(walk.nameless.size(), 1);
}

void TestAccessibleSurfaces::sayWhatIconCellsShow()
{
    openPalette(QString());
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&grid());
    QVERIFY(table && table->tableInterface());
    int icons = 0;
    int position = 0;
    for (int column = 0; column < kLayerColumnCount; ++column) {
        if (grid().isColumnHidden(column))
            continue;
        const LayerColumnInfo& info = layerColumns()[static_cast<std::size_t>(column)];
        QAccessibleInterface* cell = table->tableInterface()->cellAt(0, position);
        if (!cell || cell->text(QAccessible::Name).isEmpty())
            cell = table->tableInterface()->cellAt(0, column);
        ++position;
        if (info.kind != LayerCellKind::StatusIcon && info.kind != LayerCellKind::Flag)
            continue;
        ++icons;
        QVERIFY(cell);
        const QString spoken = cell->text(QAccessible::Name);
        QVERIFY2(!spoken.isEmpty(), qPrintable(info.headerText()));
        if (info.kind == LayerCellKind::Flag)
            QVERIFY2(spoken.contains(QLatin1String(": yes"))
                         || spoken.contains(QLatin1String(": no")),
                     qPrintable(spoken));
    }
    QCOMPARE(icons, 6);
}

QTEST_MAIN(TestAccessibleSurfaces)
#include "test_accessible_surfaces.moc"
