#include "host/sysvars/SysvarTable.h"

#include "host/sysvars/DrawingVariables.h"
#include "host/sysvars/SessionVariables.h"

#include <QHash>

namespace {
using Place = SysvarPlace;
constexpr bool kText = true;
constexpr bool kInteger = false;

// name, place, kind, minimum, maximum, default, get, set, meaning
const SysvarDefinition kTable[] = {
    {"CLAYER", Place::Drawing, kText, 0, 0, 0, drawing_variables::clayer,
     drawing_variables::setClayer, QT_TRANSLATE_NOOP("Host", "Current layer")},
    {"CMDACTIVE", Place::Session, kInteger, 0, 7, 0, session_variables::cmdactive, nullptr,
     QT_TRANSLATE_NOOP("Host", "1 a command runs, 2 a transparent one, 4 a script; as a sum")},
    {"CMDNAMES", Place::Session, kText, 0, 0, 0, session_variables::cmdnames, nullptr,
     QT_TRANSLATE_NOOP("Host", "Names of the running commands")},
    {"CTAB", Place::Drawing, kText, 0, 0, 0, drawing_variables::ctab, drawing_variables::setCtab,
     QT_TRANSLATE_NOOP("Host", "Current layout")},
    {"CVPORT", Place::Drawing, kInteger, 1, 32767, 2, drawing_variables::cvport,
     drawing_variables::setCvport, QT_TRANSLATE_NOOP("Host", "Number of the current viewport")},
    {"DBMOD", Place::Session, kInteger, 0, 1, 0, session_variables::dbmod, nullptr,
     QT_TRANSLATE_NOOP("Host", "1 while the drawing has unsaved changes")},
    {"DWGNAME", Place::Session, kText, 0, 0, 0, session_variables::dwgname, nullptr,
     QT_TRANSLATE_NOOP("Host", "File name of the drawing")},
    {"DWGPREFIX", Place::Session, kText, 0, 0, 0, session_variables::dwgprefix, nullptr,
     QT_TRANSLATE_NOOP("Host", "Folder of the drawing")},
    {"FILEDIA", Place::User, kInteger, 0, 1, 1, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "1 to ask for files in dialogs, 0 on the command line")},
    {"ISAVEBAK", Place::User, kInteger, 0, 1, 1, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "1 to keep the file as it was before its first save, as NAME~")},
    {"LAYERDLGMODE", Place::User, kInteger, 0, 1, 1, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "1 when the layer command opens the palette")},
    {"LAYEREVAL", Place::Drawing, kInteger, 0, 2, 0, drawing_variables::layereval,
     drawing_variables::setLayereval,
     QT_TRANSLATE_NOOP("Host", "New layers are evaluated: 0 never, 1 in references, 2 everywhere")},
    {"LAYEREVALCTL", Place::User, kInteger, 0, 1, 1, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "0 switches the evaluation of new layers off in all drawings")},
    {"LAYERFILTERALERT", Place::User, kInteger, 0, 3, 2, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "What to do about more layer filters than layers")},
    {"LAYERMANAGERSTATE", Place::User, kInteger, 0, 1, 1, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "1 while the layer palette should be open")},
    {"LAYERNOTIFY", Place::Drawing, kInteger, 0, 63, 0, drawing_variables::layernotify,
     drawing_variables::setLayernotify,
     QT_TRANSLATE_NOOP("Host", "When to tell about new layers, as a sum")},
    {"LAYLOCKFADECTL", Place::User, kInteger, -90, 90, 50, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "Per cent by which locked layers fade; negative: not now")},
    {"LWDEFAULT", Place::User, kInteger, 0, 211, 25, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "Default lineweight, in hundredths of a millimetre")},
    {"LWDISPLAY", Place::Drawing, kInteger, 0, 1, 0, drawing_variables::lwdisplay,
     drawing_variables::setLwdisplay, QT_TRANSLATE_NOOP("Host", "1 to show lineweights")},
    {"LWUNITS", Place::User, kInteger, 0, 1, 1, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "Unit of lineweights: 0 inches, 1 millimetres")},
    {"PSTYLEMODE", Place::Drawing, kInteger, 0, 1, 1, drawing_variables::pstylemode, nullptr,
     QT_TRANSLATE_NOOP("Host", "Plot styles: 0 named, 1 by colour")},
    {"SESSIONRESTORE", Place::User, kInteger, 0, 1, 1, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "1 to start with the drawings that were open last")},
    {"SHOWLAYERUSAGE", Place::User, kInteger, 0, 1, 1, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "1 to show which layers are in use")},
    {"TILEMODE", Place::Drawing, kInteger, 0, 1, 1, drawing_variables::tilemode,
     drawing_variables::setTilemode, QT_TRANSLATE_NOOP("Host", "1 in model space, 0 in a layout")},
    {"UNDOCTL", Place::Session, kInteger, 0, 15, 5, session_variables::undoctl, nullptr,
     QT_TRANSLATE_NOOP("Host",
                       "1 undo is on, 4 commands are grouped, 8 a group is open; as a sum")},
    {"VISRETAIN", Place::Drawing, kInteger, 0, 1, 1, drawing_variables::visretain,
     drawing_variables::setVisretain,
     QT_TRANSLATE_NOOP("Host", "1 to keep what was changed on layers of references")},
    {"VPLAYEROVERRIDES", Place::Drawing, kInteger, 0, 1, 0, drawing_variables::vplayeroverrides,
     nullptr, QT_TRANSLATE_NOOP("Host", "1 when the current viewport overrides layer properties")},
    {"WNDLMDI", Place::User, kInteger, 0, 3, 1, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "Arrangement of drawing windows; 0 is one window only")},
};
} // namespace

std::span<const SysvarDefinition> sysvarTable()
{
    return kTable;
}

const SysvarDefinition* findSysvar(const QString& name)
{
    static const QHash<QString, const SysvarDefinition*> index = [] {
        QHash<QString, const SysvarDefinition*> built;
        for (const SysvarDefinition& row : kTable)
            built.insert(QLatin1String(row.name), &row);
        return built;
    }();
    return index.value(name.toUpper(), nullptr);
}
