#pragma once

class CLayerStateUtility;
class OdDbDatabase;

/// Opens the undo record for one action of the layer-state dialogs.
void beginLayerStateStep(OdDbDatabase& database);

/// The result of an operation of the service. The dialogs do not ask for it, so that what went
/// wrong is told in the command history.
bool tellStateResult(bool done, const CLayerStateUtility& service);
