#pragma once

#include "layermanager/layers/operations/LayerOutcome.h"

#include <QSet>

#include <span>

class OdDbDatabase;
class OdDbLayerTableRecord;

/// What keeps a layer in its drawing.
enum class LayerKeeper {
    None,
    EveryDrawing, ///< it is layer 0 or Defpoints
    Current,
    Objects, ///< entities of any block, their vertices and attributes, viewports, block frames
    ExternalReference,
    Setting, ///< a variable of the drawing names it
};

/// Tells what keeps the layers of a drawing, as the drawing was when this was made.
class LayerKeepers
{
public:
    explicit LayerKeepers(const OdDbDatabase& database);

    LayerKeeper of(const OdDbLayerTableRecord& layer) const;
    /// The reason as part of a sentence: "objects lie on it".
    static QString text(LayerKeeper keeper);

private:
    OdDbObjectId m_zero;
    OdDbObjectId m_current;
    QSet<OdDbObjectId> m_named;
};

/// Erases the layers that nothing keeps, with the records that hang on them, in one undo record.
/// Entries of viewports, groups and layer states for them end with the next save; undoing brings
/// all back. The message tells once that layers were refused.
LayerOutcome deleteLayers(OdDbDatabase& database, std::span<const OdDbObjectId> layers);
