#pragma once

class OdDbDatabase;
class OdLyLayerGroup;

/// Adds the layers that are new since the layers were last reviewed, in the order of the layer
/// table; false where there are none. Left out are layer 0, layers with "*" in their names and, in
/// evaluation mode 1, those of external references.
bool CollectUnreconciledLayers(OdDbDatabase& database, OdLyLayerGroup& group, int evaluationMode);

/// Makes, renews or removes the drawing's filter of unreconciled layers, as the host's LAYEREVAL
/// and LAYEREVALCTL ask for. It lives for the session only. True when the filter tree changed.
bool updateUnreconciledFilter(OdDbDatabase& database);
