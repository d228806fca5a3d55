#include "sdk/KestSharedGlobals.h"

#include "sdk/KestHost.h"
#include "sdk/texts/KsResString.h"

namespace {

bool s_underPropertyUpdate = false;

}

void KestSharedGlobals::SetUnderPropertyUpdate(bool under)
{
    s_underPropertyUpdate = under;
}

bool KestSharedGlobals::IsUnderPropertyUpdate()
{
    return s_underPropertyUpdate;
}

int KestSharedGlobals::GetKestResourceInstance(bool activate)
{
    // The host's own texts lie beside its program file.
    static const KsResourceHandle hostResource = KsLoadAppLangResourceDLL(nullptr);
    if (activate)
        KsSetResourceHandle(hostResource);
    return hostResource;
}

QWidget* KestSharedGlobals::GetCMainWindow()
{
    return ksHost().mainWindow;
}
