#include "database/store/ObjectStore.h"
#include "host/canvas/entities/EntityReaders.h"
#include "host/canvas/entities/scope/BlockSource.h"
#include "host/canvas/text/PlainText.h"
#include "host/canvas/text/TextExtent.h"

namespace {

using Horizontal = TextSpec::Horizontal;
using Vertical = TextSpec::Vertical;

enum Justify { kLeft, kCentre, kRight, kAligned, kMiddle, kFit };
enum Generation { kBackwards = 2, kUpsideDown = 4 };
constexpr int kInvisibleAttribute = 1;

struct Setting
{
    Horizontal horizontal = Horizontal::Left;
    Vertical vertical = Vertical::Baseline;
};

Setting settingOf(int justify, int vertical)
{
    constexpr Vertical kVertical[] = {Vertical::Baseline, Vertical::Bottom, Vertical::Middle,
                                      Vertical::Top};
    const Vertical given = vertical >= 0 && vertical < 4 ? kVertical[vertical] : Vertical::Baseline;
    switch (justify) {
    case kCentre:
        return {Horizontal::Centre, given};
    case kRight:
        return {Horizontal::Right, given};
    case kAligned:
        return {Horizontal::Aligned, Vertical::Baseline};
    case kMiddle:
        return {Horizontal::Centre, Vertical::Middle};
    case kFit:
        return {Horizontal::Fit, Vertical::Baseline};
    default:
        return {Horizontal::Left, given};
    }
}

/// `verticalCode`: group of the vertical justification, which attributes keep elsewhere.
bool readSingleLine(EntityScope& scope, int verticalCode, const QString& text, quint32 gate)
{
    // Blanks show nothing, but would count for the extents.
    if (text.trimmed().isEmpty())
        return true;
    const EntityFields& fields = scope.fields;
    const double height = fields.real(40);
    if (!(height > 0))
        return false;
    const Setting setting = settingOf(fields.integer(72), fields.integer(verticalCode));
    const bool between =
        setting.horizontal == Horizontal::Fit || setting.horizontal == Horizontal::Aligned;
    const bool isDefault =
        setting.horizontal == Horizontal::Left && setting.vertical == Vertical::Baseline;
    const Vec3 first = fields.point(10);
    const Vec3 second = fields.has(11) ? fields.point(11) : first;
    const Vec3 at = isDefault || between ? first : second;

    double angle = fields.radians(50);
    TextSpec spec{plainSingleLine(text), scope.source.fontFamily(fields.text(7)),
                  setting.horizontal, setting.vertical};
    if (between) {
        const Vec2 run = (second - first).plan();
        angle = std::atan2(run.y, run.x);
        spec.width = run.length() / height;
    }
    const double factor = between ? 1 : fields.real(41, 1);
    const double slant = std::tan(fields.radians(51));
    const int generation = fields.integer(71);
    Vec2 along = Vec2{std::cos(angle), std::sin(angle)} * height;
    Vec2 up = along.left();
    up = up + along * slant;
    along = along * factor;
    if ((generation & kBackwards) != 0)
        along = -along;
    if ((generation & kUpsideDown) != 0)
        up = -up;

    const Ocs ocs = fields.ocs();
    TextItem item;
    item.gate = gate;
    item.position = ocs.toWorld(at).plan();
    item.along = ocs.planVector(along);
    item.up = ocs.planVector(up);
    const Box2 extent = estimatedExtent(spec);
    item.shape = scope.texts.intern(spec, extent);
    scope.sink.text(item, extent);
    return true;
}

Setting attachment(int point)
{
    constexpr Horizontal kAcross[] = {Horizontal::Left, Horizontal::Centre, Horizontal::Right};
    constexpr Vertical kDown[] = {Vertical::Top, Vertical::Middle, Vertical::Bottom};
    const int index = point >= 1 && point <= 9 ? point - 1 : 0;
    return {kAcross[index % 3], kDown[index / 3]};
}

} // namespace

bool readText(EntityScope& scope)
{
    return readSingleLine(scope, 73, scope.fields.text(1), kNoIndex);
}

bool readAttributeDefinition(EntityScope& scope)
{
    constexpr int kConstant = 2;
    const int flags = scope.fields.integer(70);
    if ((flags & kInvisibleAttribute) != 0)
        return true;
    // In a reference the attribute itself stands in place of its definition, except a constant one.
    const bool isConstant = (flags & kConstant) != 0;
    if (!isConstant && !scope.space.isLayout)
        return true;
    return readSingleLine(scope, 74, scope.fields.text(isConstant ? 1 : 2), kNoIndex);
}

void readAttributes(EntityScope& scope, Style insertStyle)
{
    const quint32 end = scope.subEntitiesEnd();
    for (quint32 slot = scope.slot + 1; slot < end; ++slot) {
        if (scope.store.type(slot) != RecordType::Attrib
            || scope.store.has(slot, ObjectStore::kErased)) {
            continue;
        }
        scope.fields.read(scope.cursor, slot, true);
        const bool isHidden =
            scope.fields.integer(60) == 1 || (scope.fields.integer(70) & kInvisibleAttribute) != 0;
        if (isHidden)
            continue;
        scope.sink.begin(scope.source.styleOf(slot, scope.fields), scope.slot);
        readSingleLine(scope, 74, scope.fields.text(1), insertStyle.layer);
    }
}

bool readMText(EntityScope& scope)
{
    const EntityFields& fields = scope.fields;
    const double height = fields.real(40);
    if (!(height > 0))
        return false;
    QString coded;
    for (const EntityFields::Text& part : fields.texts()) {
        if (part.code == 3 || part.code == 1)
            coded += part.value;
    }
    const QString plain = plainMultiLine(coded);
    if (plain.trimmed().isEmpty())
        return true;
    const Setting setting = attachment(fields.integer(71, 1));
    TextSpec spec{plain, scope.source.fontFamily(fields.text(7)), setting.horizontal,
                  setting.vertical};
    spec.width = fields.real(41) / height;
    spec.lineStep = 5.0 / 3 * fields.real(44, 1);

    const Ocs ocs = fields.ocs();
    TextItem item;
    // The direction, where given, is a world one and wins over the angle.
    const double angle = fields.radians(50);
    Vec2 along = ocs.planVector({std::cos(angle), std::sin(angle)});
    if (fields.has(11)) {
        const Vec2 direction = fields.point(11).plan();
        if (direction.length() > 0)
            along = direction * (1 / direction.length());
    }
    const bool isMirrored = ocs.az.z < 0;
    item.along = along * height;
    item.up = isMirrored ? -item.along.left() : item.along.left();
    item.position = fields.point(10).plan();
    const Box2 extent = estimatedExtent(spec);
    item.shape = scope.texts.intern(spec, extent);
    scope.sink.text(item, extent);
    return true;
}
