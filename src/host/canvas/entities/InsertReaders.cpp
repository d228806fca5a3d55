#include "database/store/ObjectStore.h"
#include "host/canvas/entities/EntityReaders.h"
#include "host/canvas/entities/scope/BlockSource.h"

namespace {

quint32 countOf(const EntityFields& fields, int code)
{
    return static_cast<quint32>(std::clamp(fields.integer(code, 1), 1, 32767));
}

} // namespace

bool readInsert(EntityScope& scope)
{
    const EntityFields& fields = scope.fields;
    BlockInstance instance;
    instance.block = scope.source.blockByName(fields.text(2));
    if (instance.block == kNoIndex)
        return false;
    if (scope.source.isMissingReference(instance.block)) {
        scope.list.countUndrawn(QByteArrayLiteral("XREF"));
        return true;
    }
    const Ocs ocs = fields.ocs();
    const double angle = fields.radians(50);
    const Vec2 along{std::cos(angle), std::sin(angle)};
    instance.placement.ax = ocs.planVector(along * fields.real(41, 1));
    instance.placement.ay = ocs.planVector(along.left() * fields.real(42, 1));
    instance.placement.t = ocs.toWorld(fields.point(10)).plan();
    instance.columns = countOf(fields, 70);
    instance.rows = countOf(fields, 71);
    instance.columnStep = ocs.planVector(along * fields.real(44));
    instance.rowStep = ocs.planVector(along.left() * fields.real(45));
    scope.sink.instance(instance);
    const bool isSane = !scope.sink.hasRejected();
    readAttributes(scope, scope.sink.style());
    return isSane;
}

bool readTable(EntityScope& scope)
{
    // Cells are a block, as in a reference; scales and angles mean other things here.
    const EntityFields& fields = scope.fields;
    BlockInstance instance;
    instance.block = scope.source.blockByName(fields.text(2));
    if (instance.block == kNoIndex)
        return false;
    const Vec2 direction = fields.has(11) ? fields.point(11).plan() : Vec2{1, 0};
    const double length = direction.length();
    instance.placement.ax = length > 0 ? direction * (1 / length) : Vec2{1, 0};
    instance.placement.ay = instance.placement.ax.left();
    instance.placement.t = fields.point(10).plan();
    scope.sink.instance(instance);
    return true;
}

bool readDimension(EntityScope& scope)
{
    // The picture of a dimension is a block that stands in world coordinates already.
    BlockInstance instance;
    instance.block = scope.source.blockByName(scope.fields.text(2));
    if (instance.block == kNoIndex)
        return false;
    instance.placement = Affine2::translation(scope.source.basePoint(instance.block));
    scope.sink.instance(instance);
    return true;
}
