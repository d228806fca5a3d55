#include "database/states/stored/LayerStateHead.h"

#include "base/NumberText.h"
#include "database/states/stored/StoredLayerReader.h"

namespace {

qint64 integer(QByteArrayView text)
{
    return NumberText::integer(text).value_or(0);
}

} // namespace

LayerStateHead LayerStateHead::read(const GroupList& groups)
{
    LayerStateHead head;
    const auto end = StoredLayerReader(groups).headEnd();
    for (auto it = groups.begin(); it != end; ++it) {
        const GroupList::Group group = *it;
        switch (group.code) {
        case StateGroup::kMask:
            head.mask = static_cast<int>(integer(group.value));
            break;
        case StateGroup::kDescription:
            head.description = QString::fromUtf8(group.value);
            break;
        case StateGroup::kInLayout:
            head.inLayout = integer(group.value) != 0;
            break;
        case StateGroup::kCurrentLayer:
            head.currentLayer = QString::fromUtf8(group.value);
            break;
        default:
            break;
        }
    }
    return head;
}

void LayerStateHead::append(GroupList& groups) const
{
    groups.append(StateGroup::kMask, qint64(mask));
    groups.append(StateGroup::kDescription, description.toUtf8());
    groups.append(StateGroup::kInLayout, qint64(inLayout ? 1 : 0));
    groups.append(StateGroup::kCurrentLayer, currentLayer.toUtf8());
}

GroupList LayerStateHead::with(const GroupList& groups, int code, QByteArrayView value)
{
    GroupList changed;
    bool written = false;
    const auto end = StoredLayerReader(groups).headEnd();
    auto it = groups.begin();
    for (; it != end; ++it) {
        const GroupList::Group group = *it;
        if (group.code != code)
            changed.append(group);
        else if (!std::exchange(written, true))
            changed.append(code, value);
    }
    if (!written)
        changed.append(code, value);
    for (; it != groups.end(); ++it)
        changed.append(*it);
    return changed;
}

GroupList LayerStateHead::groupsOf(const GroupList& groups)
{
    GroupList head;
    const auto end = StoredLayerReader(groups).headEnd();
    for (auto it = groups.begin(); it != end; ++it)
        head.append(*it);
    return head;
}
