#include "host/canvas/scene/SheetPaper.h"

#include "database/GroupCursor.h"
#include "database/OdDbDatabase.h"
#include "host/canvas/entities/EntityFields.h"

#include <array>

namespace {

// Plot settings of a layout; lengths in millimetres.
enum GroupCode {
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

} // namespace

Box2 sheetPaper(const OdDbDatabase& database, OdDbObjectId layout)
{
    const std::unique_ptr<GroupCursor> cursor = database.makeCursor();
    if (!cursor || layout.isNull())
        return {};
    EntityFields fields;
    fields.read(*cursor, layout.slot(), false);
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
    const double paperUnits = fields.real(kPaperUnits, 1);
    const double scale = paperUnits > 0 ? fields.real(kDrawingUnits, 1) / paperUnits : 1;
    const double unit = scale / (fields.integer(kUnit, 1) == kInches ? kMillimetresPerInch : 1.0);
    const Vec2 corner = Vec2{-left - fields.real(kOriginX), -bottom - fields.real(kOriginY)} * unit;
    const Box2 paper = Box2::of(corner, corner + Vec2{width, height} * unit);
    const bool isSound = isSane({paper.minX, paper.minY}) && isSane({paper.maxX, paper.maxY});
    return isSound ? paper : Box2{};
}
