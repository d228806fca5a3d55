#include "layermanager/resources/LayerFlagIcons.h"

#include <algorithm>

namespace {

struct FlagIcons
{
    LayerColumn column;
    LayerIcon yes;
    LayerIcon no;
};
constexpr FlagIcons kFlagIcons[] = {
    {LayerColumn::On, LayerIcon::On, LayerIcon::Off},
    {LayerColumn::Freeze, LayerIcon::Frozen, LayerIcon::Thawed},
    {LayerColumn::Locked, LayerIcon::Locked, LayerIcon::Unlocked},
    {LayerColumn::Plot, LayerIcon::Plot, LayerIcon::NoPlot},
    {LayerColumn::NewVpFreeze, LayerIcon::NewViewportFrozen, LayerIcon::NewViewportThawed},
    {LayerColumn::VpFreeze, LayerIcon::ViewportFrozen, LayerIcon::ViewportThawed},
};

template <class Matches>
std::optional<LayerIcon> iconWhere(const Matches& matches, bool yes)
{
    const auto* found = std::ranges::find_if(kFlagIcons, matches);
    if (found == std::end(kFlagIcons))
        return std::nullopt;
    return yes ? found->yes : found->no;
}

} // namespace

std::optional<LayerIcon> layerFlagIcon(LayerColumn column, bool yes)
{
    return iconWhere([&](const FlagIcons& icons) { return icons.column == column; }, yes);
}

std::optional<LayerIcon> layerFlagIcon(int identifier, bool yes)
{
    return iconWhere(
        [&](const FlagIcons& icons) {
            return layerColumnInfo(icons.column).identifier == identifier;
        },
        yes);
}
