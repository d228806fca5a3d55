#pragma once

#include <QString>

#include <span>

/// The text of a resource string: from the language resource made current, else the default.
QString KsResString(int id, const QString& defaultText);

/// A resource string in the table of the part of a program that uses it. The text stands in
/// QT_TRANSLATE_NOOP3("KsResString", text, id in quotes), where catalogues find it.
struct KsResText
{
    struct Source
    {
        const char* text; ///< UTF-8
        const char* comment; ///< the id
    };
    int id;
    Source source;
};

/// The text of a resource string of a table. Raises std::out_of_range for an id it does not have.
QString KsResString(std::span<const KsResText> table, int id);

/// Handle of a loaded language resource; 0 is none.
using KsResourceHandle = int;

/// Loads the language resource of the module that contains the address `instance` (null: of the
/// program): the string table "<module>_<language>.json" beside it, an object of id to text. The
/// language is that of the default locale; "de_AT" is tried before "de". Without such a file the
/// handle is valid and every text is its default; so it is with a file that cannot be read, which
/// is logged. Loading the same table again gives the same handle.
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
    { }
    ~KsResourceScope() { KsSetResourceHandle(m_previous); }
    KsResourceScope(const KsResourceScope&) = delete;
    KsResourceScope& operator=(const KsResourceScope&) = delete;

private:
    KsResourceHandle m_previous;
};
