#include <QtGlobal>

class OdRxModule;

// A library whose module cannot be made.
extern "C" void odrxGetAPIVersion(quint32* major, quint32* majorMinor, quint32* minor,
                                  quint32* build)
{
    *major = 3;
    *majorMinor = 9;
    *minor = 1;
    *build = 0;
}

extern "C" OdRxModule* odrxCreateModuleObject(void*)
{
    return nullptr;
}
