#pragma once

#include <QString>

#include <span>

/// A resource string in the table of the part of a program that uses it. Its default text stands in
/// QT_TRANSLATE_NOOP3("KsResString", text, id in quotes), where the catalogues' tools find it.
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

/// The text of a resource string: from the language resource made current, else from any that is
/// loaded, else the default.
QString KsResString(const KsResText& text);
/// That of a table with this id. Raises std::out_of_range for an id it does not have.
QString KsResString(std::span<const KsResText> table, int id);
/// The same for a default text that stands elsewhere, in the comment of the id.
QString KsResString(int id, const QString& defaultText);

/// Handle of a loaded language resource; 0 is none.
using KsResourceHandle = int;

/// Loads the language resource of the module that contains the address `instance` (null: of the
/// program): the catalogue "<module>_<language>.qm" beside it, else among the installed ones. The
/// language is that of the default locale; "de_AT" is tried before "de". All texts of the module
/// are then in that language, those under tr() too. Without such a file the handle is valid and
/// every text is its default; so it is with a file that cannot be read, which is logged. Loading
/// the same catalogue again gives the same handle; another language takes the place of the one
/// before.
KsResourceHandle KsLoadAppLangResourceDLL(void* instance);
/// The same with a catalogue named by its path, for the module or program of that name.
KsResourceHandle KsLoadLanguageCatalogue(const QString& module, const QString& path);

/// The handle that KsResString reads first; setting it returns the one before.
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
