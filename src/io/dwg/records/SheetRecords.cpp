#include "io/dwg/records/SheetRecords.h"

#include "base/NumberText.h"
#include "io/dwg/records/FreeRecords.h"

namespace {

template <std::size_t N>
void rawPoint(BitReader& data, double (&values)[N])
{
    for (double& value : values)
        value = data.rawDouble();
}

template <std::size_t N>
void reals(BitReader& data, double (&values)[N])
{
    for (double& value : values)
        value = data.bitDouble();
}

void viewOf(DwgRecord& record, SheetRecords::Viewport& viewport)
{
    BitReader& data = record.data;
    record.point(viewport.target);
    record.point(viewport.direction);
    viewport.twist = data.bitDouble();
    viewport.viewHeight = data.bitDouble();
    viewport.lens = data.bitDouble();
    viewport.frontClip = data.bitDouble();
    viewport.backClip = data.bitDouble();
    viewport.snapAngle = data.bitDouble();
    rawPoint(data, viewport.viewCenter);
    rawPoint(data, viewport.snapBase);
    rawPoint(data, viewport.snapSpacing);
    rawPoint(data, viewport.gridSpacing);
    viewport.circleZoom = data.bitShort();
}

void plotSettings(DwgRecord& record, SheetRecords::Layout& layout)
{
    BitReader& data = record.data;
    layout.pageSetup = record.text();
    layout.printer = record.text();
    layout.plotFlags = data.bitShort();
    reals(data, layout.margins);
    reals(data, layout.paper);
    layout.paperName = record.text();
    reals(data, layout.origin);
    layout.paperUnits = data.bitShort();
    layout.rotation = data.bitShort();
    layout.plotType = data.bitShort();
    reals(data, layout.window);
    if (!record.since(DrawingVersion::V2004))
        record.text(); // name of the view that is plotted
    reals(data, layout.scale);
    layout.styleSheet = record.text();
    layout.standardScale = data.bitShort();
    layout.scaleFactor = data.bitDouble();
    data.bitDouble();
    data.bitDouble();
    if (record.since(DrawingVersion::V2004)) {
        for (int i = 0; i < 3; ++i)
            data.bitShort(); // how shaded views are plotted
        record.reference(); // the view that is plotted
    }
    if (record.since(DrawingVersion::V2007))
        record.reference(); // its visual style
}

} // namespace

SheetRecords::Viewport SheetRecords::viewport(DwgRecord& record)
{
    Viewport viewport;
    BitReader& data = record.data;
    record.point(viewport.center);
    viewport.width = data.bitDouble();
    viewport.height = data.bitDouble();
    if (!record.since(DrawingVersion::V2000))
        return viewport;
    viewOf(record, viewport);
    if (record.since(DrawingVersion::V2007))
        data.bitShort(); // grid lines between main ones
    viewport.frozenCountAt.begin = data.position();
    const quint32 frozen = record.count(8);
    viewport.frozenCountAt.end = data.position();
    viewport.flags = static_cast<quint32>(data.bitLong());
    viewport.styleSheet = record.text();
    viewport.renderMode = data.rawChar();
    viewport.frozenAt.begin = record.handles.position();
    for (quint32 i = 0; i < frozen && !record.hasFailed(); ++i)
        viewport.frozenLayers.push_back(record.reference());
    viewport.frozenAt.end = record.handles.position();
    viewport.clipEntity = record.reference();
    return viewport;
}

std::vector<quint64> SheetRecords::frozenInXData(DwgRecord& record, const DwgHead& head)
{
    const auto handleText = [](quint64 handle) { return QString::number(handle, 16); };
    std::vector<quint64> layers;
    int braces = 0;
    for (const GroupList::Group& group : FreeRecords::xData(record, head, handleText)) {
        if (group.code == 1002)
            braces += group.value == "{" ? 1 : -1;
        else if (group.code == 1003 && braces == 2)
            layers.push_back(NumberText::handle(group.value).value_or(0));
    }
    return layers;
}

SheetRecords::Layout SheetRecords::layout(DwgRecord& record)
{
    Layout layout;
    BitReader& data = record.data;
    double point[3];
    plotSettings(record, layout);
    layout.name = record.text();
    layout.tabOrder = data.bitLong();
    layout.flags = data.bitShort();
    record.point(point); // origin of the coordinate system
    rawPoint(data, layout.limits);
    record.point(point); // insertion base
    record.point(point); // axes
    record.point(point);
    data.bitDouble(); // elevation
    data.bitShort(); // which orthographic view
    record.point(point); // extents
    record.point(point);
    layout.countAt.begin = data.position();
    const quint32 viewports = record.since(DrawingVersion::V2004) ? record.count(8) : 0;
    layout.countAt.end = data.position();
    layout.block = record.reference();
    layout.lastActiveAt.begin = record.handles.position();
    layout.lastActiveViewport = record.reference();
    layout.lastActiveAt.end = record.handles.position();
    record.reference(); // base coordinate system
    record.reference(); // named coordinate system
    layout.viewportsAt.begin = record.handles.position();
    for (quint32 i = 0; i < viewports && !record.hasFailed(); ++i)
        layout.viewports.push_back(record.reference());
    layout.viewportsAt.end = record.handles.position();
    return layout;
}
