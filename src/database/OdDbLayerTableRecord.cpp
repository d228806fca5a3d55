#include "database/OdDbLayerTableRecord.h"

#include "database/HeaderVariables.h"
#include "database/ObjectStore.h"
#include "database/OdDbDatabase.h"
#include "database/OdDbDictionary.h"
#include "database/OdDbLayerTable.h"

void OdDbLayerTableRecord::setName(const QString& name)
{
    requireWriteEnabled();
    if (name == m_state.name)
        return;
    OdDbLayerTable& layers = database()->layerTable();
    if (name.isEmpty())
        throw OdError(OdResult::InvalidKey, QStringLiteral("A layer needs a name."));
    if (objectId() == database()->getLayerZeroId() || isDependent())
        throw OdError(OdResult::NotApplicable,
                      QStringLiteral("Layer \"%1\" cannot be renamed.").arg(m_state.name));
    const OdDbObjectId taken = layers.getAt(name);
    if (!taken.isNull() && taken != objectId())
        throw OdError(OdResult::DuplicateKey,
                      QStringLiteral("There is a layer \"%1\" already.").arg(name));
    assertWriteEnabled();
    m_state.name = name;
    layers.recordRenamed(objectId().slot(), name);
}

void OdDbLayerTableRecord::imageSwapped()
{
    database()->layerTable().recordRenamed(objectId().slot(), m_state.name);
}

const LayerOverride* OdDbLayerTableRecord::overrideIn(OdDbObjectId viewport) const
{
    if (viewport.isNull() || m_state.overrides.empty())
        return nullptr;
    const auto it = m_state.overrides.find(viewport.slot());
    return it == m_state.overrides.end() ? nullptr : &it->second;
}

OdCmColor OdDbLayerTableRecord::color(OdDbObjectId viewport) const
{
    const LayerOverride* there = overrideIn(viewport);
    return there && there->color ? *there->color : m_state.color;
}

OdDbObjectId OdDbLayerTableRecord::linetypeObjectId(OdDbObjectId viewport) const
{
    const LayerOverride* there = overrideIn(viewport);
    return there && there->linetype ? *there->linetype : m_state.linetype;
}

qint16 OdDbLayerTableRecord::lineWeight(OdDbObjectId viewport) const
{
    const LayerOverride* there = overrideIn(viewport);
    return there && there->lineWeight ? *there->lineWeight : m_state.lineWeight;
}

QString OdDbLayerTableRecord::plotStyleName(OdDbObjectId viewport) const
{
    // 1: styles go by colour; 0: by name. Drawings without the variable are colour-dependent.
    if (database()->header().intValue(QStringLiteral("$PSTYLEMODE"), 1) != 0)
        return QStringLiteral("Color_%1").arg(color(viewport).colorIndex());
    const LayerOverride* there = overrideIn(viewport);
    const OdDbObjectId style = there && there->plotStyle ? *there->plotStyle : m_state.plotStyle;
    const auto roots = database()->getNamedObjectsDictionaryId().openObject<OdDbDictionary>();
    const auto styles = roots
        ? roots->getAt(QStringLiteral("ACAD_PLOTSTYLENAME")).openObject<OdDbDictionary>()
        : nullptr;
    return styles && !style.isNull() ? styles->nameAt(style) : QString();
}

bool OdDbLayerTableRecord::isInUse() const
{
    return database()->store().has(objectId().slot(), ObjectStore::kInUse);
}

bool OdDbLayerTableRecord::hasOverrides(OdDbObjectId viewport) const
{
    const LayerOverride* there = overrideIn(viewport);
    return there && *there != LayerOverride();
}
