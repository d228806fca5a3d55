#include "layermanager/layers/LayerColumn.h"

#include "sdk/KsResString.h"

using enum LayerColumn;
using Kind = LayerCellKind;

QString LayerColumnInfo::headerText() const
{
    return KsResString(headerId, QString(header));
}

const std::array<LayerColumnInfo, kLayerColumnCount>& layerColumns()
{
    static constexpr std::array<LayerColumnInfo, kLayerColumnCount> columns = {{
        // clang-format off
        { Status,       84783, QLatin1String("Status"),        114,  50, false, Kind::StatusIcon },
        { Name,         84772, QLatin1String("Layer Name"),    102, 100, false, Kind::Text },
        { On,           84773, QLatin1String("On"),            105,  50, false, Kind::Flag },
        { Freeze,       84774, QLatin1String("Freeze"),        107,  50, false, Kind::Flag },
        { Locked,       84775, QLatin1String("Locked"),        106,  50, false, Kind::Flag },
        { Color,        84776, QLatin1String("Color"),         103,  50, false, Kind::Color },
        { Linetype,     84777, QLatin1String("Linetype"),      104,  50, false, Kind::Text },
        { Lineweight,   84778, QLatin1String("Lineweight"),    108,  50, false, Kind::Lineweight },
        { PlotStyle,    84779, QLatin1String("Plot Style"),    109,  50, false, Kind::Text },
        { Plot,         84780, QLatin1String("Plot"),          110,  50, false, Kind::Flag },
        { NewVpFreeze,  84781, QLatin1String("New VPFreeze"),  112,  50, false, Kind::Flag },
        { Description,  84784, QLatin1String("Description"),   113,  50, false, Kind::Text },
        { VpFreeze,     84785, QLatin1String("VP Freeze"),     111,  50, true,  Kind::Flag },
        { VpColor,      84786, QLatin1String("VP Color"),      115,  50, true,  Kind::Color },
        { VpLinetype,   84787, QLatin1String("VP LineType"),   116,  50, true,  Kind::Text },
        { VpLineweight, 84788, QLatin1String("VP LineWeight"), 117,  50, true,  Kind::Lineweight },
        { VpPlotStyle,  84789, QLatin1String("VP PlotStyle"),  118,  50, true,  Kind::Text },
        // clang-format on
    }};
    return columns;
}
