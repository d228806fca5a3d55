#include "database/states/LayerStates.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/states/LayerSnapshot.h"
#include "database/states/LayerStateComparison.h"
#include "database/states/LayerStateDictionary.h"
#include "database/states/LayerStateExchange.h"
#include "database/states/LayerStateMask.h"
#include "database/states/stored/LayerStateHead.h"
#include "database/states/stored/StoredLayerReader.h"
#include "database/states/stored/StoredLayerWriter.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"

#include <QCoreApplication>

using enum LayerStateMask::Bit;

std::vector<LayerStateSummary> LayerStates::list(bool withExternal) const
{
    std::vector<LayerStateSummary> found;
    const auto states = LayerStateDictionary(m_drawing).open();
    if (!states)
        return found;
    const DrawingLayers layers(m_drawing);
    LayerStateComparison comparison(layers);
    for (const DictionaryEntry& entry : states->entries()) {
        const auto record = entry.value.openObject<OdDbXrecord>();
        if (!record) {
            if (withExternal && entry.value.isNull()
                && LayerStateDictionary::isExternalName(entry.key))
                found.push_back({entry.key, {}, false, false, true});
            continue;
        }
        const LayerStateHead head = LayerStateHead::read(record->groups());
        if (!LayerStateDictionary::isInternal(entry.key, head.mask))
            found.push_back({entry.key, head.description, head.inLayout,
                             comparison.matches(record->groups(), head.mask), false});
    }
    return found;
}

bool LayerStates::has(const QString& name) const
{
    return LayerStateDictionary(m_drawing).has(name);
}

QString LayerStates::currentLayerName() const
{
    const auto layer = m_drawing.getCLAYER().openObject<OdDbLayerTableRecord>();
    return layer ? layer->getName() : QString();
}

void LayerStates::appendLayersNow(GroupList& groups, const GroupList& before) const
{
    const DrawingLayers layers(m_drawing);
    std::vector<bool> isWritten(m_drawing.store().size(), false);
    StoredLayerReader reader(before);
    for (StoredLayer was; reader.next(was);) {
        const auto layer = layers.layer(was).openObject<OdDbLayerTableRecord>();
        if (!layer || isWritten[layer->objectId().slot()])
            continue;
        isWritten[layer->objectId().slot()] = true;
        appendStoredLayer(groups, layers.settings(*layer, was));
    }
    const std::vector<OdDbObjectId> records = m_drawing.layerTable().records();
    // Backwards, as most programs list them.
    for (std::size_t i = records.size(); i-- > 0;) {
        if (!isWritten[records[i].slot()])
            appendStoredLayer(groups,
                              layers.settings(*records[i].safeOpenObject<OdDbLayerTableRecord>()));
    }
}

void LayerStates::add(const QString& name, const QString& description)
{
    const auto record = LayerStateDictionary(m_drawing).create(name);
    GroupList groups;
    LayerStateHead{kAll, description, !m_drawing.getTILEMODE(), currentLayerName()}.append(groups);
    appendLayersNow(groups);
    record->setGroups(groups);
}

void LayerStates::save(const QString& name, int mask)
{
    const auto record = LayerStateDictionary(m_drawing).state(name, OdDb::kForWrite);
    const int before = LayerStateHead::read(record->groups()).mask;
    const auto number = [](int value) { return QByteArray::number(value); };
    GroupList groups = LayerStateHead::groupsOf(record->groups());
    groups =
        LayerStateHead::with(groups, StateGroup::kMask, number((before & ~kAll) | (mask & kAll)));
    groups = LayerStateHead::with(groups, StateGroup::kInLayout,
                                  number(m_drawing.getTILEMODE() ? 0 : 1));
    groups = LayerStateHead::with(groups, StateGroup::kCurrentLayer, currentLayerName().toUtf8());
    appendLayersNow(groups, record->groups());
    record->setGroups(groups);
}

void LayerStates::restore(const QString& name, const LayerStateRestore::Options& options)
{
    // A copy: the record may be changed by a listener while layers change.
    const GroupList groups = LayerStateDictionary(m_drawing).state(name)->groups();
    LayerStateRestore(m_drawing, options).run(groups);
    markLastRestored(name);
}

void LayerStates::markLastRestored(const QString& name)
{
    const auto states = LayerStateDictionary(m_drawing).open();
    const OdDbObjectId restored = states->getAt(name);
    for (const DictionaryEntry& entry : states->entries()) {
        GroupList groups;
        if (const auto record = entry.value.openObject<OdDbXrecord>())
            groups = record->groups();
        else
            continue;
        const int before = LayerStateHead::read(groups).mask;
        const int after =
            entry.value == restored ? before | kLastRestored : before & ~kLastRestored;
        if (after != before)
            entry.value.safeOpenObject<OdDbXrecord>(OdDb::kForWrite)
                ->setGroups(
                    LayerStateHead::with(groups, StateGroup::kMask, QByteArray::number(after)));
    }
}

void LayerStates::rename(const QString& name, const QString& newName)
{
    LayerStateDictionary(m_drawing).rename(name, newName);
}

void LayerStates::remove(const QString& name)
{
    LayerStateDictionary(m_drawing).remove(name);
}

int LayerStates::restoreMask(const QString& name) const
{
    return LayerStateHead::read(LayerStateDictionary(m_drawing).state(name)->groups()).mask & kAll;
}

QString LayerStates::description(const QString& name) const
{
    return LayerStateHead::read(LayerStateDictionary(m_drawing).state(name)->groups()).description;
}

void LayerStates::setDescription(const QString& name, const QString& description)
{
    const auto record = LayerStateDictionary(m_drawing).state(name, OdDb::kForWrite);
    record->setGroups(
        LayerStateHead::with(record->groups(), StateGroup::kDescription, description.toUtf8()));
}

std::vector<LayerInfoInLS> LayerStates::layers(const QString& name) const
{
    const auto record = LayerStateDictionary(m_drawing).state(name);
    return LayerSnapshot::read(record->groups(), DrawingLayers(m_drawing)).layers;
}

void LayerStates::setLayers(const QString& name, const std::vector<LayerInfoInLS>& layers)
{
    const auto record = LayerStateDictionary(m_drawing).state(name, OdDb::kForWrite);
    GroupList groups = LayerStateHead::groupsOf(record->groups());
    for (const LayerInfoInLS& layer : layers)
        appendStoredLayer(groups, layer);
    record->setGroups(groups);
}

LayerInfoInLS LayerStates::layerNow(const QString& layerName) const
{
    const auto layer = m_drawing.layerTable().getAt(layerName).openObject<OdDbLayerTableRecord>();
    if (!layer)
        throw OdError(OdResult::KeyNotFound,
                      QCoreApplication::translate("LayerStates", "The drawing has no layer \"%1\".")
                          .arg(layerName));
    LayerInfoInLS info = DrawingLayers(m_drawing).settings(*layer);
    info.name = layer->getName();
    return info;
}

bool LayerStates::matchesDrawing(const std::vector<LayerInfoInLS>& layers, int mask) const
{
    GroupList groups;
    for (const LayerInfoInLS& layer : layers)
        appendStoredLayer(groups, layer);
    const DrawingLayers drawing(m_drawing);
    return LayerStateComparison(drawing).matches(groups, mask);
}

PortableLayerState LayerStates::exported(const QString& name) const
{
    const auto record = LayerStateDictionary(m_drawing).state(name);
    // The name as the drawing spells it.
    const QString spelled = LayerStateDictionary(m_drawing).open()->nameAt(record->objectId());
    return LayerStateExchange(m_drawing).exported(spelled, record->groups());
}

void LayerStates::take(const PortableLayerState& state)
{
    const auto record = LayerStateDictionary(m_drawing).create(state.name);
    record->setGroups(LayerStateExchange(m_drawing).imported(state));
}
