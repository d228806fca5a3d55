#include "database/tables/LayerNameReferences.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbXrecord.h"
#include "database/tables/OdDbLayerTable.h"

namespace {

/// Groups of a layer state: the layer that was current; what opens the entry of a layer.
enum StateGroup { kCurrentLayer = 302, kLayerByHandle = 330, kLayerByName = 8 };

bool isSame(QByteArrayView stored, const QString& name)
{
    return QString::fromUtf8(stored).compare(name, Qt::CaseInsensitive) == 0;
}

struct StateHead
{
    bool namesLayer = false; ///< as the current one
    bool entriesByName = false;
};

/// Looks at the groups before the first layer's, and at what opens that.
StateHead headOf(const GroupList& groups, const QString& name)
{
    StateHead head;
    for (const GroupList::Group& group : groups) {
        if (group.code == kCurrentLayer)
            head.namesLayer = isSame(group.value, name);
        if (group.code == kLayerByHandle || group.code == kLayerByName) {
            head.entriesByName = group.code == kLayerByName;
            break;
        }
    }
    return head;
}

/// Entries by name become entries by handle, which no later renaming concerns.
GroupList renamedState(const OdDbLayerTable& layers, const GroupList& groups,
                       const QString& oldName, const QString& newName)
{
    GroupList changed;
    for (const GroupList::Group& group : groups) {
        const OdDbObjectId layer = group.code == kLayerByName
            ? layers.getAt(QString::fromUtf8(group.value))
            : OdDbObjectId();
        if (!layer.isNull())
            changed.append(kLayerByHandle, layer.getHandle().ascii().toLatin1());
        else if (group.code == kCurrentLayer && isSame(group.value, oldName))
            changed.append(kCurrentLayer, newName.toUtf8());
        else
            changed.append(group);
    }
    return changed;
}

void renameInStates(OdDbDatabase& database, const QString& oldName, const QString& newName)
{
    const auto extension =
        database.extensionDictionary(database.getLayerTableId()).openObject<OdDbDictionary>();
    const auto states = extension
        ? extension->getAt(QStringLiteral("ACAD_LAYERSTATES")).openObject<OdDbDictionary>()
        : nullptr;
    if (!states)
        return;
    for (const DictionaryEntry& entry : states->entries()) {
        const auto state = entry.value.openObject<OdDbXrecord>();
        if (!state)
            continue;
        const StateHead head = headOf(state->groups(), oldName);
        if (head.namesLayer || head.entriesByName)
            entry.value.safeOpenObject<OdDbXrecord>(OdDb::kForWrite)
                ->setGroups(renamedState(database.layerTable(), state->groups(), oldName, newName));
    }
}

void renameInVariables(OdDbDatabase& database, const QString& oldName, const QString& newName)
{
    const auto variables = database.namedObject({QStringLiteral("AcDbVariableDictionary")})
                               .openObject<OdDbDictionary>();
    if (!variables)
        return;
    // "HPLAYER", "DIMLAYER" and their like.
    for (const DictionaryEntry& entry : variables->entries()) {
        if (!entry.key.endsWith(QLatin1String("LAYER"), Qt::CaseInsensitive))
            continue;
        const auto variable = entry.value.openObject<OdDbDictionaryVar>();
        if (variable && variable->value().compare(oldName, Qt::CaseInsensitive) == 0)
            entry.value.safeOpenObject<OdDbDictionaryVar>(OdDb::kForWrite)->setValue(newName);
    }
}

} // namespace

void LayerNameReferences::renamed(OdDbDatabase& database, const QString& oldName,
                                  const QString& newName)
{
    renameInStates(database, oldName, newName);
    renameInVariables(database, oldName, newName);
}
