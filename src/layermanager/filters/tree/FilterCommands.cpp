#include "layermanager/filters/tree/FilterCommands.h"

#include "layermanager/filters/FilterTexts.h"

#include <QCoreApplication>

using enum FilterNodeKind;

namespace {

constexpr FilterCommand kCommands[] = {
    {kTurnOn, FilterMenu::Visibility, QT_TRANSLATE_NOOP("FilterTree", "&On"), nullptr, false},
    {kTurnOff, FilterMenu::Visibility, QT_TRANSLATE_NOOP("FilterTree", "O&ff"), nullptr, false},
    {kThaw, FilterMenu::Visibility, QT_TRANSLATE_NOOP("FilterTree", "&Thawed"), nullptr, true},
    {kFreeze, FilterMenu::Visibility, QT_TRANSLATE_NOOP("FilterTree", "F&rozen"), nullptr, false},
    {kLock, FilterMenu::Lock, QT_TRANSLATE_NOOP("FilterTree", "&Lock"), nullptr, false},
    {kUnlock, FilterMenu::Lock, QT_TRANSLATE_NOOP("FilterTree", "&Unlock"), nullptr, false},
    {kFreezeInViewport, FilterMenu::Viewport, QT_TRANSLATE_NOOP("FilterTree", "&Freeze"), nullptr,
     false},
    {kThawInViewport, FilterMenu::Viewport, QT_TRANSLATE_NOOP("FilterTree", "&Thaw"), nullptr,
     false},
    {kFreezeOthers, FilterMenu::Top, QT_TRANSLATE_NOOP("FilterTree", "&Isolate (Freeze Others)"),
     nullptr, false},
    {kThawOthersInViewport, FilterMenu::Top,
     QT_TRANSLATE_NOOP("FilterTree", "Thaw Ot&hers in Viewport"), nullptr, false},
    {kNewPropertyFilter, FilterMenu::Top,
     QT_TRANSLATE_NOOP("FilterTree", "New &Properties Filter..."), nullptr, true},
    {kNewGroupFilter, FilterMenu::Top, QT_TRANSLATE_NOOP("FilterTree", "New &Group Filter"),
     nullptr, false},
    {kConvertToGroup, FilterMenu::Top, QT_TRANSLATE_NOOP("FilterTree", "&Convert to Group Filter"),
     nullptr, true},
    {kRenameFilter, FilterMenu::Top, QT_TRANSLATE_NOOP("FilterTree", "&Rename"), "F2", false},
    {kDeleteFilter, FilterMenu::Top, QT_TRANSLATE_NOOP("FilterTree", "&Delete"), "Del", false},
    {kEditPropertyFilter, FilterMenu::Top, QT_TRANSLATE_NOOP("FilterTree", "&Edit..."), nullptr,
     true},
    {kAddFromDrawing, FilterMenu::SelectLayers, QT_TRANSLATE_NOOP("FilterTree", "&Add"), nullptr,
     true},
    {kReplaceFromDrawing, FilterMenu::SelectLayers, QT_TRANSLATE_NOOP("FilterTree", "&Replace"),
     nullptr, false},
};

FilterCommandState enabledIf(bool enabled)
{
    return enabled ? FilterCommandState::Enabled : FilterCommandState::Disabled;
}

FilterCommandState offeredIf(bool offered)
{
    return offered ? FilterCommandState::Enabled : FilterCommandState::Removed;
}

/// A filter that the drawing keeps.
bool isOwn(FilterNodeKind kind)
{
    return kind == Property || kind == Group;
}

} // namespace

std::span<const FilterCommand> filterCommands()
{
    return kCommands;
}

QString filterCommandText(const FilterCommand& command)
{
    return QCoreApplication::translate("FilterTree", command.text);
}

QString filterMenuText(FilterMenu menu)
{
    switch (menu) {
    case FilterMenu::Top:
        return {};
    case FilterMenu::Visibility:
        return QCoreApplication::translate("FilterTree", "&Visibility");
    case FilterMenu::Lock:
        return QCoreApplication::translate("FilterTree", "&Lock");
    case FilterMenu::Viewport:
        return KsResString(filterTexts(), 40116);
    case FilterMenu::SelectLayers:
        return KsResString(filterTexts(), 40117);
    }
    return {};
}

FilterCommandState filterCommandState(int id, const FilterNode& node, bool modelSpace)
{
    const FilterNodeKind kind = node.kind;
    switch (id) {
    case kThawOthersInViewport:
    case kFreezeInViewport:
    case kThawInViewport:
        return enabledIf(!modelSpace);
    case kNewPropertyFilter:
        return enabledIf(kind == All || isOwn(kind));
    case kNewGroupFilter:
        return enabledIf(kind == All || kind == Group);
    case kConvertToGroup:
        return enabledIf(kind == Property);
    case kRenameFilter:
        return enabledIf(isOwn(kind) && !node.key.name.isEmpty());
    case kDeleteFilter:
        return enabledIf(isOwn(kind));
    case kEditPropertyFilter:
        return kind == Property ? enabledIf(node.isEditable) : FilterCommandState::Removed;
    case kAddFromDrawing:
    case kReplaceFromDrawing:
        return offeredIf(kind == Group);
    default:
        return FilterCommandState::Enabled;
    }
}
