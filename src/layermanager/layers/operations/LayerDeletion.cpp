#include "layermanager/layers/operations/LayerDeletion.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/layers/LayerTexts.h"
#include "layermanager/layers/operations/UndoRecordOnDemand.h"

#include <QCoreApplication>

namespace {

constexpr const char* kReasons[] = {
    "",
    QT_TRANSLATE_NOOP("LayerDeletion", "every drawing has it"),
    QT_TRANSLATE_NOOP("LayerDeletion", "it is current"),
    QT_TRANSLATE_NOOP("LayerDeletion", "objects lie on it"),
    QT_TRANSLATE_NOOP("LayerDeletion", "it belongs to an external reference"),
    QT_TRANSLATE_NOOP("LayerDeletion", "a setting of the drawing names it"),
};

bool isDefpoints(const QString& name)
{
    return name.compare(QLatin1String("Defpoints"), Qt::CaseInsensitive) == 0;
}

QString messageText()
{
    return KsResString(layerTexts(), 84515);
}

} // namespace

LayerKeepers::LayerKeepers(const OdDbDatabase& database)
    : m_zero(database.getLayerZeroId())
    , m_current(database.getCLAYER())
{
    database.layerTable().generateUsageData();
    const auto variables = database.namedObject({QStringLiteral("AcDbVariableDictionary")})
                               .openObject<OdDbDictionary>();
    if (!variables)
        return;
    // "HPLAYER", "DIMLAYER" and their like: the layer on which other programs put new objects.
    for (const DictionaryEntry& entry : variables->entries()) {
        const auto variable = entry.key.endsWith(QLatin1String("LAYER"), Qt::CaseInsensitive)
            ? entry.value.openObject<OdDbDictionaryVar>()
            : nullptr;
        if (variable)
            m_named.insert(database.layerTable().getAt(variable->value()));
    }
}

LayerKeeper LayerKeepers::of(const OdDbLayerTableRecord& layer) const
{
    if (layer.objectId() == m_zero || isDefpoints(layer.getName()))
        return LayerKeeper::EveryDrawing;
    if (layer.objectId() == m_current)
        return LayerKeeper::Current;
    if (layer.isDependent())
        return LayerKeeper::ExternalReference;
    if (layer.isInUse())
        return LayerKeeper::Objects;
    return m_named.contains(layer.objectId()) ? LayerKeeper::Setting : LayerKeeper::None;
}

QString LayerKeepers::text(LayerKeeper keeper)
{
    return QCoreApplication::translate("LayerDeletion", kReasons[static_cast<int>(keeper)]);
}

LayerOutcome deleteLayers(OdDbDatabase& database, std::span<const OdDbObjectId> layers)
{
    LayerOutcome outcome;
    UndoRecordOnDemand record(database);
    const LayerKeepers keepers(database);
    for (const OdDbObjectId id : layers) {
        try {
            const auto layer = id.openObject<OdDbLayerTableRecord>();
            const LayerKeeper keeper = layer ? keepers.of(*layer) : LayerKeeper::None;
            if (keeper != LayerKeeper::None) {
                outcome.refuse(id, LayerKeepers::text(keeper));
            } else if (layer) {
                record.begin();
                database.eraseTree(id);
                outcome.changed.push_back(id);
            }
        } catch (const OdError& error) {
            outcome.refuse(id, error.description());
        }
    }
    if (!outcome.refused.empty())
        outcome.message = messageText();
    return outcome;
}
