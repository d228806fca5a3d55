#pragma once

#include "io/dwg/records/DwgRecord.h"

#include <vector>

/// Records of layouts and of the viewports on them, each read behind its head.
namespace SheetRecords {

struct Viewport
{
    static constexpr quint32 kOff = 0x20000; ///< in `flags`

    double center[3] = {0, 0, 0};
    double width = 0;
    double height = 0;
    // Since version 2000; before, extended data have them.
    double target[3] = {0, 0, 0};
    double direction[3] = {0, 0, 1};
    double twist = 0;
    double viewHeight = 0;
    double lens = 0;
    double frontClip = 0;
    double backClip = 0;
    double snapAngle = 0;
    double viewCenter[2] = {0, 0};
    double snapBase[2] = {0, 0};
    double snapSpacing[2] = {0, 0};
    double gridSpacing[2] = {0, 0};
    int circleZoom = 0;
    quint32 flags = 0;
    QString styleSheet;
    int renderMode = 0;
    std::vector<quint64> frozenLayers;
    BitSpan frozenCountAt;
    BitSpan frozenAt;
    quint64 clipEntity = 0;
};
Viewport viewport(DwgRecord& record);
/// Layers frozen in a viewport up to R14: they stand in its extended data, inside the second pair
/// of braces.
std::vector<quint64> frozenInXData(DwgRecord& record, const DwgHead& head);

struct Layout
{
    QString pageSetup;
    QString printer;
    int plotFlags = 0;
    double margins[4] = {0, 0, 0, 0}; ///< left, bottom, right, top, in millimetres
    double paper[2] = {0, 0}; ///< in millimetres
    QString paperName;
    double origin[2] = {0, 0};
    int paperUnits = 0;
    int rotation = 0;
    int plotType = 0;
    double window[4] = {0, 0, 0, 0};
    double scale[2] = {1, 1};
    QString styleSheet;
    int standardScale = 0;
    double scaleFactor = 1;
    QString name;
    int tabOrder = 0;
    int flags = 0;
    double limits[4] = {0, 0, 0, 0};
    quint64 block = 0;
    quint64 lastActiveViewport = 0;
    BitSpan lastActiveAt; ///< the reference to it
    std::vector<quint64> viewports; ///< since version 2004
    BitSpan countAt; ///< of their number
    BitSpan viewportsAt;
};
Layout layout(DwgRecord& record);

} // namespace SheetRecords
