#pragma once

#include <QString>

#include <variant>

class CommandState;
class HostDocument;
class HostFrontEnd;
class OdDbDatabase;

/// A point, in drawing units.
struct SysvarPoint
{
    double x = 0;
    double y = 0;
    double z = 0;
    bool operator==(const SysvarPoint&) const = default;
};

/// A system variable's value.
using SysvarValue = std::variant<int, double, QString, SysvarPoint>;

/// The kinds of values, in the order of SysvarValue.
enum class SysvarType : quint8 { Integer, Real, Text, Point };

/// Where the value of a system variable is kept.
enum class SysvarPlace : quint8 {
    Drawing, ///< in the drawing: undoable, saved with it
    User, ///< in the user's settings
    Session, ///< nowhere: what the program does at the moment
};

struct SysvarDefinition;

/// What system variables are computed from. Pointers may be null.
struct SysvarContext
{
    HostDocument* document = nullptr;
    const CommandState* commands = nullptr;
    HostFrontEnd* frontEnd = nullptr;

    /// The current drawing; raises OdError with NoDatabase when none is open.
    OdDbDatabase& drawing() const;
};

/// One row of the table of system variables. User variables are integers that are read from and
/// written to the settings. The others have `get`, and `set` unless they are read-only. `set`
/// raises OdError with a sentence when the value is refused; the range was checked before.
struct SysvarDefinition
{
    using Get = SysvarValue (*)(const SysvarContext&, const SysvarDefinition&);
    using Set = void (*)(const SysvarContext&, const SysvarDefinition&, const SysvarValue&);

    const char* name;
    SysvarPlace place = SysvarPlace::User;
    SysvarType type = SysvarType::Integer;
    double minimum = 0; ///< of integers; reals lie above it
    double maximum = 1;
    double fallback = 0; ///< what a drawing without the variable has, and a user without settings
    Get get = nullptr;
    Set set = nullptr;
    const char* meaning; ///< to be translated in the context "Host"
    int code = 0; ///< group code of a variable in the drawing's header, "$" in front of its name
    const char* text = ""; ///< `fallback` of texts

    bool isReadOnly() const { return place != SysvarPlace::User && !set; }
    /// Whether a number is in the range; what is no number is not.
    bool isInRange(double value) const
    {
        const bool isAbove = type == SysvarType::Real ? value > minimum : value >= minimum;
        return isAbove && value <= maximum;
    }
};
