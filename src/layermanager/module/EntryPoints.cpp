// What the host looks up by name when it loads the module.

#include "layermanager/module/LayerManagerModule.h"

#include <QtGlobal>

extern "C" {

Q_DECL_EXPORT OdRxModule* odrxCreateModuleObject(void* instance)
{
    return LayerManagerModule::getOrCreate(instance);
}

/// Version of the interface that the module was built for.
Q_DECL_EXPORT void odrxGetAPIVersion(quint32* major, quint32* minor, quint32* majorBuild,
                                     quint32* minorBuild)
{
    *major = 3;
    *minor = 9;
    *majorBuild = 1;
    *minorBuild = 0;
}
}
