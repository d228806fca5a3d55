#include "io/dwg/groups/RecordGroups.h"
#include "io/dwg/records/SheetRecords.h"
#include "io/dwg/records/TableRecords.h"
#include "io/records/LayerFlag.h"

namespace {

void linetype(const GroupContext& context)
{
    constexpr int kAlignment = 'A';
    GroupSink& out = context.out;
    const TableRecords::Linetype linetype = TableRecords::linetype(context.record);
    context.record.reference(); // block of the external reference
    out.mark(100, "AcDbLinetypeTableRecord");
    out.text(2, linetype.head.name);
    out.text(3, linetype.description);
    out.integer(72, kAlignment);
    out.integer(73, static_cast<qint64>(linetype.dashes.size()));
    out.real(40, linetype.length);
    for (const TableRecords::Linetype::Dash& dash : linetype.dashes) {
        out.real(49, dash.length);
        out.integer(74, dash.flags);
        const quint64 style = context.record.reference();
        if (dash.flags == 0)
            continue;
        out.integer(75, dash.shape);
        out.handle(340, style);
        out.real(46, dash.scale);
        out.real(50, dash.angle);
        out.real(44, dash.offset[0]);
        out.real(45, dash.offset[1]);
    }
}

void style(const GroupContext& context)
{
    constexpr double kRadiansToDegrees = 57.29577951308232;
    constexpr int kShape = 1;
    constexpr int kVertical = 4;
    BitReader& data = context.record.data;
    GroupSink& out = context.out;
    out.mark(100, "AcDbTextStyleTableRecord");
    out.text(2, TableRecords::name(context.record).name);
    const int shape = data.bit() ? kShape : 0;
    out.integer(70, shape | (data.bit() ? kVertical : 0));
    out.real(40, data.bitDouble());
    out.real(41, data.bitDouble());
    out.real(50, data.bitDouble() * kRadiansToDegrees);
    out.integer(71, data.rawChar());
    out.real(42, data.bitDouble());
    out.text(3, context.record.text());
    out.text(4, context.record.text());
}

void layout(const GroupContext& context)
{
    GroupSink& out = context.out;
    const SheetRecords::Layout layout = SheetRecords::layout(context.record);
    out.mark(100, "AcDbPlotSettings");
    out.text(1, layout.pageSetup);
    out.text(2, layout.printer);
    out.text(4, layout.paperName);
    for (int side = 0; side < 4; ++side)
        out.real(40 + side, layout.margins[side]);
    out.real(44, layout.paper[0]);
    out.real(45, layout.paper[1]);
    out.real(46, layout.origin[0]);
    out.real(47, layout.origin[1]);
    out.real(48, layout.window[0]);
    out.real(49, layout.window[1]);
    out.real(140, layout.window[2]);
    out.real(141, layout.window[3]);
    out.real(142, layout.scale[0]);
    out.real(143, layout.scale[1]);
    out.integer(70, layout.plotFlags);
    out.integer(72, layout.paperUnits);
    out.integer(73, layout.rotation);
    out.integer(74, layout.plotType);
    out.text(7, layout.styleSheet);
    out.integer(75, layout.standardScale);
    out.real(147, layout.scaleFactor);
    out.mark(100, "AcDbLayout");
    out.text(1, layout.name);
    out.integer(70, layout.flags);
    out.integer(71, layout.tabOrder);
    out.real(10, layout.limits[0]);
    out.real(20, layout.limits[1]);
    out.real(11, layout.limits[2]);
    out.real(21, layout.limits[3]);
    out.handle(330, layout.block);
    if (layout.lastActiveViewport != 0)
        out.handle(331, layout.lastActiveViewport);
}

void layer(const GroupContext& context)
{
    GroupSink& out = context.out;
    const TableRecords::Layer layer = TableRecords::layer(context.record);
    out.mark(100, "AcDbLayerTableRecord");
    out.text(2, layer.head.name);
    out.integer(70,
                (layer.frozen ? LayerFlag::kFrozen : 0)
                    | (layer.frozenInNewViewports ? LayerFlag::kFrozenInNewViewports : 0)
                    | (layer.locked ? LayerFlag::kLocked : 0)
                    | (layer.head.dependent ? LayerFlag::kDependent : 0));
    const int index = layer.color.colorIndex();
    out.integer(62, layer.off ? -index : index);
    if (layer.color.colorMethod() == OdCmColor::kByColor)
        out.integer(420, layer.color.color() & 0xFFFFFF);
    out.name(6, layer.linetype);
    out.integer(290, layer.plottable ? 1 : 0);
    out.integer(370, layer.lineWeight);
}

struct Entry
{
    const char* name;
    void (*append)(const GroupContext&);
};
constexpr Entry kEntries[] = {
    {"LTYPE", linetype},
    {"STYLE", style},
    {"LAYOUT", layout},
    {"LAYER", layer},
};

} // namespace

void RecordGroups::object(const GroupContext& context, QByteArrayView name)
{
    for (const Entry& entry : kEntries) {
        if (name == entry.name)
            return entry.append(context);
    }
}
