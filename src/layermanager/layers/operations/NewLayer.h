#pragma once

#include "layermanager/layers/operations/LayerOutcome.h"

#include <functional>

class OdDbDatabase;

enum class NewLayerKind {
    Plain,
    FrozenInNewViewports, ///< by its flag only
    FrozenInAllViewports, ///< by its flag and, while a layout is current, in every viewport
};

/// Called with the new layer once it is in the table, before it is frozen in viewports.
using NewLayerListener = std::function<void(OdDbObjectId)>;

/// The first of "Layer1", "Layer2", ... that no layer has.
QString newLayerName(const OdDbDatabase& database);

/// Makes a layer in one undo record, with all properties of another one, or with those of a new
/// layer where `like` is null. While new layers are evaluated it waits to be reviewed. The changed
/// layer is the new one; where the drawing refuses it, the message tells why.
LayerOutcome makeNewLayer(OdDbDatabase& database, NewLayerKind kind, OdDbObjectId like = {},
                          const NewLayerListener& tell = {});
