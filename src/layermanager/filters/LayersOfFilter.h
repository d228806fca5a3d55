#pragma once

#include "layermanager/filters/LayerFilterRow.h"

class OdDbDatabase;
class OdLyLayerFilter;

using LayerIds = std::vector<OdDbObjectId>;

/// The layers that a filter shows and, where asked for, the drawing's other layers, both in the
/// order of the layer table. Both lists are replaced. An expression without criteria shows none.
void GetLayersOfFilter(OdDbDatabase& database, const OdLyLayerFilter& filter, LayerIds& inLayers,
                       LayerIds* otherLayers = nullptr);

/// The same for rows: a layer is in when it passes at least one of them.
void getLayersOfRows(OdDbDatabase& database, const LayerFilterRows& rows, LayerIds& inLayers,
                     LayerIds* otherLayers = nullptr);
