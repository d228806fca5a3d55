#pragma once

#include <QString>

#include <variant>

class CommandState;
class HostDocument;
class OdDbDatabase;

/// A system variable's value.
using SysvarValue = std::variant<int, QString>;

/// Where the value of a system variable is kept.
enum class SysvarPlace : quint8 {
    Drawing, ///< in the drawing: undoable, saved with it
    User, ///< in the user's settings
    Session, ///< nowhere: what the program does at the moment
};

/// What system variables are computed from. Pointers may be null.
struct SysvarContext
{
    HostDocument* document = nullptr;
    const CommandState* commands = nullptr;

    /// The current drawing; raises OdError with NoDatabase when none is open.
    OdDbDatabase& drawing() const;
};

/// One row of the table of system variables. Integers have a range; `isText` ones do not.
/// User variables are read from and written to the settings; the others have `get`, and `set`
/// unless they are read-only. `set` raises OdError with a sentence when the value is refused.
struct SysvarDefinition
{
    using Get = SysvarValue (*)(const SysvarContext&);
    using Set = void (*)(const SysvarContext&, const SysvarValue&);

    const char* name;
    SysvarPlace place;
    bool isText;
    int minimum;
    int maximum;
    int fallback;
    Get get;
    Set set;
    const char* meaning; ///< to be translated in the context "Host"

    bool isReadOnly() const { return place != SysvarPlace::User && !set; }
};
