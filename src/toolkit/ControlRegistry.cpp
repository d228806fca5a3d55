#include "toolkit/ControlRegistry.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

namespace {

/// The registry of one owner: a child of it, so that it ends with it.
class ControlTable : public QObject
{
public:
    explicit ControlTable(QWidget* owner)
        : QObject(owner)
    { }
    static ControlTable* of(const QWidget* owner)
    {
        for (QObject* child : owner->children()) {
            if (auto* table = dynamic_cast<ControlTable*>(child))
                return table;
        }
        return nullptr;
    }

    QHash<int, QPointer<QWidget>> controls;
};

} // namespace

void registerControl(QWidget* owner, int id, QWidget* control)
{
    ControlTable* table = ControlTable::of(owner);
    if (!table)
        table = new ControlTable(owner);
    if (control->objectName().isEmpty())
        control->setObjectName(QStringLiteral("control_%1").arg(id));
    table->controls.insert(id, control);
}

QWidget* controlById(const QWidget* owner, int id)
{
    const ControlTable* table = ControlTable::of(owner);
    return table ? table->controls.value(id).data() : nullptr;
}

int controlId(const QWidget* owner, const QWidget* control)
{
    const ControlTable* table = ControlTable::of(owner);
    if (!table || !control)
        return -1;
    for (auto it = table->controls.cbegin(); it != table->controls.cend(); ++it) {
        if (it.value() == control)
            return it.key();
    }
    return -1;
}
