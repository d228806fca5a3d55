#pragma once

#include <QString>

/// The text of a resource string: from the language resource made current, else the default.
QString KsResString(int id, const QString& defaultText);

/// Handle of a loaded language resource; 0 is none.
using KsResourceHandle = int;

/// Loads the language resource of the module that contains `instance`: the string table
/// "<module>_<language>.json" (object of id to text) beside it. Without one the handle is valid and every
/// text is its default.
KsResourceHandle KsLoadAppLangResourceDLL(void* instance);

/// The handle that KsResString reads; setting it returns the one before.
KsResourceHandle KsSetResourceHandle(KsResourceHandle handle);
KsResourceHandle KsGetResourceHandle();

/// Makes a resource current for a scope.
class KsResourceScope
{
public:
    explicit KsResourceScope(KsResourceHandle handle)
        : m_previous(KsSetResourceHandle(handle))
    {
    }
    ~KsResourceScope() { KsSetResourceHandle(m_previous); }
    KsResourceScope(const KsResourceScope&) = delete;
    KsResourceScope& operator=(const KsResourceScope&) = delete;

private:
    KsResourceHandle m_previous;
};
