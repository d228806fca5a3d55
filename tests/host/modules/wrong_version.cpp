#include <QtGlobal>

#include <cstdlib>

class OdRxModule;

// A module for another version of the interface; making it would be a mistake.
extern "C" void odrxGetAPIVersion(quint32* major, quint32* majorMinor, quint32* minor,
                                  quint32* build)
{
    *major = 3;
    *majorMinor = 9;
    *minor = 0;
    *build = 7;
}

extern "C" OdRxModule* odrxCreateModuleObject(void*)
{
    std::abort();
}
