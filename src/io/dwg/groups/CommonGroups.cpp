#include "io/dwg/groups/RecordGroups.h"

namespace {

constexpr const char* kByBlock = "ByBlock";
constexpr const char* kContinuous = "Continuous";

enum LinetypeKind : quint8 { kByLayer, kByBlockKind, kContinuousKind, kNamed };

void color(const GroupContext& context)
{
    const quint64 book = context.entity.bookColor;
    const OdCmColor color = book == 0 ? context.entity.color : context.names.bookColor(book);
    switch (color.colorMethod()) {
    case OdCmColor::kByLayer:
        break;
    case OdCmColor::kByBlock:
        context.out.integer(62, 0);
        break;
    default:
        context.out.integer(62, color.colorIndex());
        if (color.colorMethod() == OdCmColor::kByColor)
            context.out.integer(420, color.color() & 0xFFFFFF);
        if (!color.bookName().isEmpty())
            context.out.text(430, color.bookName());
    }
}

} // namespace

void RecordGroups::common(const GroupContext& context)
{
    constexpr qint16 kByLayerWeight = -1;
    const DwgEntityHead& entity = context.entity;
    GroupSink& out = context.out;
    out.mark(100, "AcDbEntity");
    if (entity.space == DwgEntityHead::Space::Paper)
        out.integer(67, 1);
    out.name(8, entity.layer);
    if (entity.linetypeKind == kByBlockKind)
        out.mark(6, kByBlock);
    else if (entity.linetypeKind == kContinuousKind)
        out.mark(6, kContinuous);
    else if (entity.linetypeKind == kNamed)
        out.name(6, entity.linetype);
    color(context);
    if (entity.lineWeight != kByLayerWeight)
        out.integer(370, entity.lineWeight);
    if (entity.linetypeScale != 1.0)
        out.real(48, entity.linetypeScale);
    if (entity.invisible)
        out.integer(60, 1);
    if (entity.transparency != 0)
        out.integer(440, entity.transparency);
}
