#include "host/canvas/scene/DrawingLines.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/HeaderVariables.h"
#include "host/canvas/geometry/Vec2.h"
#include "host/canvas/scene/SheetPaper.h"

namespace {

/// A layout has a flag of its own; the header's variable, which is that of the sheet current when
/// the file was written, wins once somebody sets it.
bool followsSheet(const OdDbDatabase& database, OdDbObjectId layout)
{
    const HeaderVariables::Variable* variable =
        database.header().find(QStringLiteral("$PSLTSCALE"));
    const bool byHeader = !variable || variable->value.trimmed().toInt() != 0;
    const bool wasSet = variable && variable->value != variable->loadedValue;
    return wasSet ? byHeader : scalesLinetypesBySheet(database, layout, byHeader);
}

} // namespace

DrawingLines DrawingLines::of(const OdDbDatabase& database, OdDbObjectId layout)
{
    const HeaderVariables& header = database.header();
    DrawingLines lines;
    const double scale =
        header.value(QStringLiteral("$LTSCALE"), QStringLiteral("1")).trimmed().toDouble();
    if (scale > 0 && scale <= kLargestCoordinate)
        lines.own.patternScale = scale;
    lines.own.showsWeights = header.intValue(QStringLiteral("$LWDISPLAY"), 0) != 0;
    if (!layout.isNull()) {
        lines.own.paperUnits = sheetUnitsPerMillimetre(database, layout);
        lines.isScaledBySheet = followsSheet(database, layout);
    }
    return lines;
}

bool DrawingLines::dependOn(const QString& variable)
{
    constexpr const char* kNames[] = {"LTSCALE", "PSLTSCALE", "LWDISPLAY"};
    const QString bare = variable.startsWith(u'$') ? variable.mid(1) : variable;
    return std::any_of(std::begin(kNames), std::end(kNames),
                       [&](const char* name) { return bare == QLatin1String(name); });
}
