#include "database/store/ObjectStore.h"
#include "database/values/GroupCursor.h"
#include "host/canvas/entities/EntityReaders.h"

#include <numbers>

namespace {

constexpr int kViewportOff = 0x20000;
constexpr int kClippedByEntity = 0x10000;
constexpr double kStraightDown = 1e-6;

bool looksStraightDown(Vec3 direction)
{
    return direction.z > 0 && std::abs(direction.x) < kStraightDown * direction.z
        && std::abs(direction.y) < kStraightDown * direction.z;
}

struct View
{
    Vec3 target;
    Vec3 direction{0, 0, 1};
    double twist = 0; ///< degrees
    double height = 0;
    Vec2 centre; ///< relative to the target, in the turned picture
};

View viewOf(const EntityFields& fields)
{
    return {fields.point(17),
            {fields.real(16), fields.real(26), fields.real(36, 1)},
            fields.real(51),
            fields.real(45),
            fields.point(12).plan()};
}

/// The view of old drawings, which keep it in the extended data of application ACAD, by position.
View viewFromExtendedData(GroupCursor& cursor, quint32 slot)
{
    std::array<double, 10> numbers{};
    std::size_t count = 0;
    cursor.open(slot);
    while (cursor.next() && count < numbers.size()) {
        const int code = cursor.code();
        const bool isPoint = code == 1010 || code == 1020 || code == 1030;
        if (isPoint || code == 1040)
            numbers[count++] = cursor.real();
    }
    return {{numbers[0], numbers[1], numbers[2]},
            {numbers[3], numbers[4], numbers[5]},
            numbers[6],
            numbers[7],
            {numbers[8], numbers[9]}};
}

/// Handle of the entity that outlines the viewport, 0 without one.
quint64 clipEntity(GroupCursor& cursor, quint32 slot)
{
    constexpr int kOutline = 340;
    cursor.open(slot);
    while (cursor.next() && cursor.code() < 1000) {
        if (cursor.code() == kOutline)
            return cursor.handle();
    }
    return 0;
}

} // namespace

bool readViewport(EntityScope& scope)
{
    const EntityFields& fields = scope.fields;
    SheetViewport viewport;
    viewport.slot = scope.slot;
    viewport.centre = fields.point(10).plan();
    viewport.width = fields.real(40);
    viewport.height = fields.real(41);
    viewport.isOff =
        fields.has(90) ? (fields.integer(90) & kViewportOff) != 0 : fields.integer(68) == 0;
    const View view =
        fields.has(45) ? viewOf(fields) : viewFromExtendedData(scope.cursor, scope.slot);
    viewport.viewHeight = view.height;
    viewport.twist = std::fmod(view.twist, 360) * std::numbers::pi / 180;
    viewport.viewCentre = view.target.plan() + view.centre.turned(-viewport.twist);
    viewport.isPlan = looksStraightDown(view.direction);
    const bool isSheet = scope.slot == scope.space.overallViewport;
    if (isSheet)
        return true;
    if (!viewport.isUsable())
        return false;
    if ((fields.integer(90) & kClippedByEntity) != 0)
        viewport.clipEntity = clipEntity(scope.cursor, scope.slot);
    scope.list.addViewport(viewport);
    // The outline shows itself, in place of the frame.
    if (scope.store.find(viewport.clipEntity) != ObjectStore::kNone)
        return viewport.isPlan;
    const Box2 frame = viewport.frame();
    const std::array<Vec2, 4> corners{Vec2{frame.minX, frame.minY}, Vec2{frame.maxX, frame.minY},
                                      Vec2{frame.maxX, frame.maxY}, Vec2{frame.minX, frame.maxY}};
    scope.sink.polyline(corners, true);
    return viewport.isPlan;
}
