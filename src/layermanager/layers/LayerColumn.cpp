#include "layermanager/layers/LayerColumn.h"

using enum LayerColumn;
using Kind = LayerCellKind;

QString LayerColumnInfo::headerText() const
{
    return KsResString(header);
}

const std::array<LayerColumnInfo, kLayerColumnCount>& layerColumns()
{
    static constexpr std::array<LayerColumnInfo, kLayerColumnCount> columns = {{
        // clang-format off
        { Status,       {84783, QT_TRANSLATE_NOOP3("KsResString", "Status", "84783")},        114,  50, false, Kind::StatusIcon },
        { Name,         {84772, QT_TRANSLATE_NOOP3("KsResString", "Layer Name", "84772")},    102, 100, false, Kind::Text },
        { On,           {84773, QT_TRANSLATE_NOOP3("KsResString", "On", "84773")},            105,  50, false, Kind::Flag },
        { Freeze,       {84774, QT_TRANSLATE_NOOP3("KsResString", "Freeze", "84774")},        107,  50, false, Kind::Flag },
        { Locked,       {84775, QT_TRANSLATE_NOOP3("KsResString", "Locked", "84775")},        106,  50, false, Kind::Flag },
        { Color,        {84776, QT_TRANSLATE_NOOP3("KsResString", "Color", "84776")},         103,  50, false, Kind::Color },
        { Linetype,     {84777, QT_TRANSLATE_NOOP3("KsResString", "Linetype", "84777")},      104,  50, false, Kind::Text },
        { Lineweight,   {84778, QT_TRANSLATE_NOOP3("KsResString", "Lineweight", "84778")},    108,  50, false, Kind::Lineweight },
        { PlotStyle,    {84779, QT_TRANSLATE_NOOP3("KsResString", "Plot Style", "84779")},    109,  50, false, Kind::Text },
        { Plot,         {84780, QT_TRANSLATE_NOOP3("KsResString", "Plot", "84780")},          110,  50, false, Kind::Flag },
        { NewVpFreeze,  {84781, QT_TRANSLATE_NOOP3("KsResString", "New VPFreeze", "84781")},  112,  50, false, Kind::Flag },
        { Description,  {84784, QT_TRANSLATE_NOOP3("KsResString", "Description", "84784")},   113,  50, false, Kind::Text },
        { VpFreeze,     {84785, QT_TRANSLATE_NOOP3("KsResString", "VP Freeze", "84785")},     111,  50, true,  Kind::Flag },
        { VpColor,      {84786, QT_TRANSLATE_NOOP3("KsResString", "VP Color", "84786")},      115,  50, true,  Kind::Color },
        { VpLinetype,   {84787, QT_TRANSLATE_NOOP3("KsResString", "VP LineType", "84787")},   116,  50, true,  Kind::Text },
        { VpLineweight, {84788, QT_TRANSLATE_NOOP3("KsResString", "VP LineWeight", "84788")}, 117,  50, true,  Kind::Lineweight },
        { VpPlotStyle,  {84789, QT_TRANSLATE_NOOP3("KsResString", "VP PlotStyle", "84789")},  118,  50, true,  Kind::Text },
        // clang-format on
    }};
    return columns;
}
