#include <QtGlobal>

// A library that tells its version and makes no module.
extern "C" void odrxGetAPIVersion(quint32* major, quint32* majorMinor, quint32* minor,
                                  quint32* build)
{
    *major = 3;
    *majorMinor = 9;
    *minor = 1;
    *build = 0;
}
