#pragma once

class CKsUndoRedoCommandHistory;
class IKestIOManager;
class IKestServicesManager;
class IKestSysvarManager;
class KsApDocManager;
class QWidget;
struct KestSelectionRequest;
struct KestSelectionSet;

/// What a host hands to the SDK; set once at start, cleared before it ends. Members may be null.
struct KestHost
{
    IKestSysvarManager* sysvars = nullptr;
    IKestIOManager* io = nullptr;
    IKestServicesManager* services = nullptr;
    KsApDocManager* documents = nullptr;
    CKsUndoRedoCommandHistory* undoHistory = nullptr;
    QWidget* mainWindow = nullptr;
    /// Answers KestSSGet().
    int (*selectEntities)(const KestSelectionRequest& request,
                          KestSelectionSet& selection) = nullptr;
};

void ksSetHost(const KestHost& host);
const KestHost& ksHost();
