#include "host/canvas/scene/SheetPaper.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/values/GroupCursor.h"
#include "host/canvas/entities/scope/EntityFields.h"

#include <array>

namespace {

// Plot settings of a layout; lengths in millimetres.
enum SheetGroup {
    kLeftMargin = 40,
    kBottomMargin = 41,
    kRightMargin = 42,
    kTopMargin = 43,
    kWidth = 44,
    kHeight = 45,
    kOriginX = 46,
    kOriginY = 47,
    kUnit = 72,
    kRotation = 73,
    kPaperUnits = 142,
    kDrawingUnits = 143,
};
constexpr double kMillimetresPerInch = 25.4;
constexpr int kInches = 0;

double unitsPerMillimetre(const EntityFields& fields)
{
    const double paperUnits = fields.real(kPaperUnits, 1);
    const double scale = paperUnits > 0 ? fields.real(kDrawingUnits, 1) / paperUnits : 1;
    return scale / (fields.integer(kUnit, 1) == kInches ? kMillimetresPerInch : 1.0);
}

/// The layout's groups; false where it has none in a file.
bool readLayout(EntityFields& fields, const OdDbDatabase& database, OdDbObjectId layout)
{
    const std::unique_ptr<GroupCursor> cursor = database.makeCursor();
    if (!cursor || layout.isNull())
        return false;
    fields.read(*cursor, layout.slot(), false);
    return true;
}

} // namespace

double sheetUnitsPerMillimetre(const OdDbDatabase& database, OdDbObjectId layout)
{
    EntityFields fields;
    const double units = readLayout(fields, database, layout) ? unitsPerMillimetre(fields) : 1;
    return units > 0 && units <= kLargestCoordinate ? units : 1;
}

bool scalesLinetypesBySheet(const OdDbDatabase& database, OdDbObjectId layout, bool fallback)
{
    enum { kSubclass = 100, kFlags = 70, kBySheet = 1 };
    const std::unique_ptr<GroupCursor> cursor = database.makeCursor();
    if (!cursor || layout.isNull())
        return fallback;
    // The plot settings have flags of their own, before those of the layout.
    bool isLayout = false;
    cursor->open(layout.slot());
    while (cursor->next()) {
        if (cursor->code() == kSubclass)
            isLayout = cursor->bytes().trimmed() == "AcDbLayout";
        else if (isLayout && cursor->code() == kFlags)
            return (cursor->integer() & kBySheet) != 0;
    }
    return fallback;
}

Box2 sheetPaper(const OdDbDatabase& database, OdDbObjectId layout)
{
    EntityFields fields;
    if (!readLayout(fields, database, layout))
        return {};
    double width = fields.real(kWidth);
    double height = fields.real(kHeight);
    if (!(width > 0 && height > 0))
        return {};
    // The plot may be turned on the paper by quarters: what is left of it then was below before.
    const std::array<double, 4> margins{fields.real(kLeftMargin), fields.real(kBottomMargin),
                                        fields.real(kRightMargin), fields.real(kTopMargin)};
    const auto quarters = static_cast<std::size_t>(fields.integer(kRotation)) % 4;
    const double left = margins[quarters];
    const double bottom = margins[(quarters + 1) % 4];
    if (quarters % 2 == 1)
        std::swap(width, height);
    const double unit = unitsPerMillimetre(fields);
    const Vec2 corner = Vec2{-left - fields.real(kOriginX), -bottom - fields.real(kOriginY)} * unit;
    const Box2 paper = Box2::of(corner, corner + Vec2{width, height} * unit);
    const bool isSound = isSane({paper.minX, paper.minY}) && isSane({paper.maxX, paper.maxY});
    return isSound ? paper : Box2{};
}
