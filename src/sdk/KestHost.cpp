#include "sdk/KestHost.h"

#include "sdk/IKestIOManager.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/IKestSysvarManager.h"
#include "sdk/KsApDocManager.h"
#include "sdk/commands/CKsUndoRedoCommandHistory.h"

namespace {

KestHost s_host;

void refreshView()
{
    if (IKestServicesManager* services = getServicesManagerInterface())
        services->refreshView();
}

} // namespace

void ksSetHost(const KestHost& host)
{
    s_host = host;
}

const KestHost& ksHost()
{
    return s_host;
}

IKestSysvarManager* getSysvarManagerInterface()
{
    return s_host.sysvars;
}

IKestIOManager* getIOManagerInterface()
{
    return s_host.io;
}

IKestServicesManager* getServicesManagerInterface()
{
    return s_host.services;
}

KsApDocManager* ksDocManagerPtr()
{
    return s_host.documents;
}

CKsUndoRedoCommandHistory* ksUndoRedoHistory()
{
    const bool hasDocument = s_host.documents && s_host.documents->curDocument();
    return hasDocument ? s_host.undoHistory : nullptr;
}

void ksedRegen()
{
    refreshView();
}

void ksedRegenAll()
{
    // The host draws one view per document, so all of them is that one.
    refreshView();
}
