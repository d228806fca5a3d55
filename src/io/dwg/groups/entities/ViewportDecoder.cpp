#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"
#include "io/dwg/records/SheetRecords.h"

void decodeViewport(const GroupContext& context)
{
    DwgRecord& record = context.record;
    GroupSink& out = context.out;
    const SheetRecords::Viewport viewport = SheetRecords::viewport(record);
    const bool isOff = (viewport.flags & SheetRecords::Viewport::kOff) != 0;
    const int number = context.names.viewportNumber(context.head.handle);
    out.mark(100, "AcDbViewport");
    out.point(10, viewport.center);
    out.real(40, viewport.width);
    out.real(41, viewport.height);
    out.integer(68, isOff ? 0 : number);
    out.integer(69, number);
    if (!record.since(DrawingVersion::V2000))
        return;
    out.point(12, viewport.viewCenter);
    out.point(13, viewport.snapBase);
    out.point(14, viewport.snapSpacing);
    out.point(15, viewport.gridSpacing);
    out.point(16, viewport.direction);
    out.point(17, viewport.target);
    out.real(42, viewport.lens);
    out.real(43, viewport.frontClip);
    out.real(44, viewport.backClip);
    out.real(45, viewport.viewHeight);
    out.real(50, viewport.snapAngle * Carry::kRadiansToDegrees);
    out.real(51, viewport.twist * Carry::kRadiansToDegrees);
    out.integer(72, viewport.circleZoom);
    for (const quint64 layer : viewport.frozenLayers)
        out.handle(331, layer);
    out.integer(90, viewport.flags);
    if (viewport.clipEntity != 0)
        out.handle(340, viewport.clipEntity);
    out.text(1, viewport.styleSheet);
    out.integer(281, viewport.renderMode);
}
