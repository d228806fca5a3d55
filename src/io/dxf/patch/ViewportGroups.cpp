#include "io/dxf/patch/ViewportGroups.h"

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/dxf/patch/RecordPatcher.h"
#include "io/dxf/read/DxfObjectSource.h"

#include <algorithm>
#include <set>

namespace {

constexpr int kFrozenSince2004 = 331;
constexpr int kFrozen2000 = 341;
constexpr int kViewportId = 69;
constexpr int kTwist = 72; ///< other CAD programs put the list behind this group
constexpr int kName = 1003;
constexpr int kBrace = 1002;

std::set<quint32> slotsOf(const OdDbObjectIdArray& ids)
{
    std::set<quint32> found;
    for (const OdDbObjectId id : ids)
        found.insert(id.slot());
    return found;
}

bool patchHandles(RecordPatcher& record, const DxfObjectSource& source,
                  const std::set<quint32>& before, const OdDbObjectIdArray& after)
{
    const std::set<quint32> kept = slotsOf(after);
    int code = source.version() == DrawingVersion::V2000 ? kFrozen2000 : kFrozenSince2004;
    quint64 at = 0;
    for (const RecordPatcher::Span& span : record.spans()) {
        if (!span.own)
            continue;
        if (span.code == kFrozenSince2004 || span.code == kFrozen2000) {
            code = span.code;
            const auto handle = NumberText::handle(record.bytes(span)).value_or(0);
            const OdDbObjectId layer = source.database().getOdDbObjectId(OdDbHandle(handle));
            if (before.contains(layer.slot()) && !kept.contains(layer.slot()))
                record.remove(span);
            at = span.end;
        }
    }
    if (at == 0) {
        const auto* behind = record.find(kTwist);
        behind = behind ? behind : record.find(kViewportId);
        at = behind ? behind->end : record.lastOwn() ? record.lastOwn()->end : record.begin();
    }
    QByteArray groups;
    for (const OdDbObjectId layer : after) {
        if (!before.contains(layer.slot()))
            record.spelling().append(groups, code, layer.getHandle().ascii().toLatin1());
    }
    if (!groups.isEmpty())
        record.insert(at, groups);
    return true;
}

/// Names stand inside the second pair of braces.
bool patchNames(RecordPatcher& record, const DxfObjectSource& source,
                const std::set<quint32>& before, const OdDbObjectIdArray& after)
{
    const std::set<quint32> kept = slotsOf(after);
    int braces = 0;
    quint64 at = 0;
    for (const RecordPatcher::Span& span : record.spans()) {
        if (span.code == kBrace) {
            const bool opens = record.bytes(span).trimmed() == "{";
            if (!opens && braces == 2)
                at = span.begin;
            braces += opens ? 1 : -1;
        } else if (span.code == kName && braces == 2) {
            const OdDbObjectId layer = source.layerOfFile(record.bytes(span));
            if (before.contains(layer.slot()) && !kept.contains(layer.slot()))
                record.remove(span);
        }
    }
    QByteArray groups;
    for (const OdDbObjectId id : after) {
        const auto layer = id.openObject<OdDbLayerTableRecord>();
        if (layer && !before.contains(id.slot()))
            record.spelling().append(groups, kName, source.encodedName(layer->getName()));
    }
    if (groups.isEmpty())
        return true;
    if (at == 0)
        return false;
    record.insert(at, groups);
    return true;
}

} // namespace

bool ViewportGroups::patch(RecordPatcher& record, const DxfObjectSource& source,
                           const OdDbObjectIdArray& before, const OdDbObjectIdArray& after)
{
    return source.version() >= DrawingVersion::V2000
        ? patchHandles(record, source, slotsOf(before), after)
        : patchNames(record, source, slotsOf(before), after);
}
