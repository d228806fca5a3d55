#include "database/states/LayerStateExchange.h"

#include "base/NameCharacters.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/states/DrawingLayers.h"
#include "database/states/LayerStateMask.h"
#include "database/states/SavedSettings.h"
#include "database/states/stored/LayerStateHead.h"
#include "database/states/stored/StoredLayerReader.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/values/GroupCursor.h"

#include <set>

namespace {

/// Handles, binary chunks and structure belong to their drawing.
bool isPortable(int code)
{
    return code > 0 && code != 5 && code < 480 && !(code >= 100 && code <= 105)
        && !(code >= 310 && code <= 369) && !(code >= 390 && code <= 399);
}

QByteArray handleText(OdDbObjectId id)
{
    return QByteArray::number(id.getHandle().value(), 16).toUpper();
}

/// Letters and shapes in a linetype come from text styles and shape files of its own drawing.
bool hasShapes(const OdDbDatabase& drawing, OdDbObjectId linetype)
{
    constexpr int kDashKind = 74;
    const std::unique_ptr<GroupCursor> groups = drawing.makeCursor();
    if (!groups || linetype.slot() >= drawing.store().fileRecords())
        return false;
    for (groups->open(linetype.slot()); groups->next();) {
        if (groups->code() == kDashKind && groups->integer() != 0)
            return true;
    }
    return false;
}

void exportLayer(const StoredLayer& saved, const DrawingLayers& layers, GroupList& groups)
{
    const auto layer = layers.layer(saved).openObject<OdDbLayerTableRecord>();
    const QByteArray name = layer ? layer->getName().toUtf8() : saved.layerName.toByteArray();
    if (name.isEmpty())
        return;
    groups.append(StateGroup::kLayerName, name);
    auto it = saved.begin;
    for (++it; it != saved.end; ++it) {
        const GroupList::Group group = *it;
        if (group.code == StateGroup::kLinetypeHandle) {
            const auto linetype = layers.linetype(saved).openObject<OdDbLinetypeTableRecord>();
            if (linetype)
                groups.append(StateGroup::kLinetypeName, linetype->getName().toUtf8());
        } else if (group.code == StateGroup::kPlotStyle) {
            groups.append(StateGroup::kPlotStyleInFile, group.value);
        } else if (isPortable(group.code)) {
            groups.append(group);
        }
    }
}

} // namespace

PortableLayerState LayerStateExchange::exported(const QString& name, const GroupList& state) const
{
    PortableLayerState portable{name, {}};
    LayerStateHead head = LayerStateHead::read(state);
    head.mask &= ~LayerStateMask::kLastRestored;
    head.append(portable.groups);
    StoredLayerReader reader(state);
    for (auto it = state.begin(); it != reader.headEnd(); ++it) {
        const int code = (*it).code;
        if (isPortable(code) && code != StateGroup::kMask && code != StateGroup::kDescription
            && code != StateGroup::kInLayout && code != StateGroup::kCurrentLayer)
            portable.groups.append(*it);
    }
    const DrawingLayers layers(m_drawing);
    std::set<OdDbObjectId> linetypes;
    for (StoredLayer saved; reader.next(saved);) {
        exportLayer(saved, layers, portable.groups);
        const OdDbObjectId id = layers.linetype(saved);
        if (id.isNull() || !linetypes.insert(id).second || hasShapes(m_drawing, id))
            continue;
        const auto linetype = id.openObject<OdDbLinetypeTableRecord>();
        if (!linetype->isDependent())
            portable.linetypes.push_back(linetype->state());
    }
    return portable;
}

GroupList LayerStateExchange::imported(const PortableLayerState& state)
{
    for (const LinetypeState& linetype : state.linetypes)
        addLinetype(linetype);
    GroupList groups;
    StoredLayerReader reader(state.groups);
    for (auto it = state.groups.begin(); it != reader.headEnd(); ++it) {
        if (isPortable((*it).code))
            groups.append(*it);
    }
    const DrawingLayers drawing(m_drawing);
    for (StoredLayer saved; reader.next(saved);) {
        bool made = false;
        const OdDbObjectId id = layerFor(saved, made);
        GroupList own;
        if (id.isNull())
            own.append(StateGroup::kLayerName, saved.layerName);
        else
            own.append(StateGroup::kLayerHandle, handleText(id));
        appendValues(saved, own);
        if (made) {
            StoredLayer converted;
            StoredLayerReader(own).next(converted);
            SavedSettings::apply(converted, LayerStateMask::kAll, drawing,
                                 *id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite));
        }
        for (const GroupList::Group group : own)
            groups.append(group);
    }
    return groups;
}

void LayerStateExchange::appendValues(const StoredLayer& saved, GroupList& groups)
{
    auto it = saved.begin;
    for (++it; it != saved.end; ++it) {
        const GroupList::Group group = *it;
        if (group.code == StateGroup::kLinetypeName)
            groups.append(StateGroup::kLinetypeHandle,
                          handleText(linetypeFor(group.value.toByteArray())));
        else if (group.code == StateGroup::kPlotStyleInFile)
            groups.append(StateGroup::kPlotStyle, group.value);
        else if (isPortable(group.code))
            groups.append(group);
    }
}

OdDbObjectId LayerStateExchange::layerFor(const StoredLayer& saved, bool& made)
{
    const QString name = QString::fromUtf8(saved.layerName);
    const OdDbObjectId present = m_drawing.layerTable().getAt(name);
    made = present.isNull() && name_characters::canNameRecord(name);
    return made ? m_drawing.layerTable().add(name) : present;
}

OdDbObjectId LayerStateExchange::linetypeFor(const QByteArray& name)
{
    const auto known = m_linetypes.constFind(name);
    if (known != m_linetypes.constEnd())
        return *known;
    const QString text = QString::fromUtf8(name);
    OdDbObjectId id = m_drawing.table(OdDbTableKind::Linetype).getAt(text);
    if (id.isNull())
        id = m_drawing.getLinetypeContinuousId();
    m_linetypes.insert(name, id);
    return id;
}

void LayerStateExchange::addLinetype(const LinetypeState& linetype)
{
    OdDbSymbolTable& table = m_drawing.table(OdDbTableKind::Linetype);
    if (!name_characters::canNameRecord(linetype.name) || table.has(linetype.name))
        return;
    auto record = std::make_unique<OdDbLinetypeTableRecord>();
    record->stateForLoading() = linetype;
    // The table has the record before the listeners hear of it.
    table.appendRecord(m_drawing.store().size(), NameIndex::fold(linetype.name));
    m_drawing.addObject(std::move(record), RecordType::Ltype, table.objectId());
}
