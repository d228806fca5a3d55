#include "layermanager/layers/operations/NewLayer.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "layermanager/layers/FilledText.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/LayerTexts.h"
#include "layermanager/layers/LayerUndoRecord.h"
#include "layermanager/layers/operations/LayerActions.h"
#include "layermanager/layers/operations/LayerEdits.h"

namespace {

bool areNewLayersEvaluated()
{
    return readHostInt(QStringLiteral("LAYEREVALCTL")).value_or(0) != 0
        && readHostInt(QStringLiteral("LAYEREVAL")).value_or(0) != 0;
}

/// The state of a layer made like another one. It belongs to the drawing, whatever the other does,
/// and nobody has reviewed it yet.
LayerState stateLike(const OdDbDatabase& database, const OdDbLayerTableRecord& other,
                     const QString& name)
{
    LayerState state = other.state();
    state.name = name;
    state.dependent = false;
    state.reconciled.reset();
    const auto leavesWithReference = [](OdDbObjectId id) {
        const auto linetype = id.openObject<OdDbLinetypeTableRecord>();
        return !linetype || linetype->isDependent();
    };
    if (leavesWithReference(state.linetype))
        state.linetype = database.getLinetypeContinuousId();
    for (auto& [viewport, there] : state.overrides) {
        if (there.linetype && leavesWithReference(*there.linetype))
            there.linetype.reset();
    }
    std::erase_if(state.overrides,
                  [](const auto& entry) { return entry.second == LayerOverride(); });
    return state;
}

LayerState newState(const OdDbDatabase& database, NewLayerKind kind, OdDbObjectId like)
{
    const QString name = newLayerName(database);
    const auto other = like.openObject<OdDbLayerTableRecord>();
    LayerState state =
        other ? stateLike(database, *other, name) : database.layerTable().newLayerState(name);
    if (kind != NewLayerKind::Plain)
        state.frozenInNewViewports = true;
    return state;
}

} // namespace

QString newLayerName(const OdDbDatabase& database)
{
    QString pattern = KsResString(layerTexts(), 84791);
    if (!pattern.contains(QLatin1String("%d")))
        pattern += QLatin1String("%d"); // a translation without it would give one name only
    int number = 1;
    QString name;
    do {
        name = filledText(pattern, {QString::number(number++)});
    } while (database.layerTable().has(name));
    return name;
}

LayerOutcome makeNewLayer(OdDbDatabase& database, NewLayerKind kind, OdDbObjectId like,
                          const NewLayerListener& tell)
{
    LayerOutcome outcome;
    try {
        const LayerState state = newState(database, kind, like);
        beginLayerUndoRecord(database);
        const OdDbObjectId made = database.layerTable().add(state);
        outcome.changed = {made};
        if (areNewLayersEvaluated())
            markLayersReconciled(database, outcome.changed, false);
        if (tell)
            tell(made);
        if (kind == NewLayerKind::FrozenInAllViewports)
            freezeInAllViewports(database, outcome.changed, true, LayerUndo::Joins);
    } catch (const OdError& error) {
        outcome.message = error.description();
    }
    return outcome;
}
