#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "io/dxf/patch/RecordPatcher.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/read/LayerGroups.h"
#include "io/dxf/text/DxfVersion.h"
#include "io/records/LayerFlag.h"
#include "io/records/LayerXData.h"

#include <QCoreApplication>

#include <algorithm>
#include <optional>

namespace {

/// Order in which other CAD programs write the groups of a layer.
const std::vector<int>& groupOrder()
{
    static const std::vector<int> order = {2, 70, 62, 420, 430, 6, 290, 370, 390, 347, 348};
    return order;
}

QString tr(const char* text)
{
    return QCoreApplication::translate("LayerPatch", text);
}

/// A group to be there with that value (encoded for the file), or not at all.
struct Wanted
{
    int code;
    std::optional<QByteArray> value;
};
using Wish = std::vector<Wanted>;

/// One property: which groups it becomes and since which version there are such.
struct Property
{
    const char* name; ///< in sentences, with its article
    DrawingVersion since;
    bool (*differs)(const LayerState&, const LayerState&);
    void (*want)(const DxfObjectSource&, const LayerState& layer, Wish&);
};

QByteArray flagsOf(const LayerState& layer, qint64 old)
{
    const auto put = [&](int bit, bool on) { old = on ? old | bit : old & ~qint64(bit); };
    put(LayerFlag::kFrozen, layer.frozen);
    put(LayerFlag::kFrozenInNewViewports, layer.frozenInNewViewports);
    put(LayerFlag::kLocked, layer.locked);
    return QByteArray::number(old);
}

constexpr qint64 kMostIndex = 32767; ///< that the group can hold

QByteArray colourOf(const LayerState& layer, int index)
{
    return QByteArray::number(layer.off ? -index : index);
}

QByteArray handleOf(OdDbObjectId id)
{
    return id.getHandle().ascii().toLatin1();
}

void wantTrueColour(const DxfObjectSource& source, const LayerState& layer, Wish& wish)
{
    const bool isTrue = layer.color.colorMethod() == OdCmColor::kByColor;
    wish.push_back({420,
                    isTrue ? std::optional(QByteArray::number(layer.color.color() & 0xFFFFFFu))
                           : std::nullopt});
    wish.push_back({430,
                    layer.color.bookName().isEmpty()
                        ? std::nullopt
                        : std::optional(source.text().encode(layer.color.bookName()))});
}

bool isTrueOrBook(const OdCmColor& colour)
{
    return colour.colorMethod() == OdCmColor::kByColor || !colour.bookName().isEmpty();
}

constexpr Property kProperties[] = {
    {QT_TRANSLATE_NOOP("LayerPatch", "the true color"), DrawingVersion::V2004,
     [](const LayerState& a, const LayerState& b) {
         return a.color != b.color && (isTrueOrBook(a.color) || isTrueOrBook(b.color));
     },
     wantTrueColour},
    {QT_TRANSLATE_NOOP("LayerPatch", "the linetype"), DrawingVersion::R12,
     [](const LayerState& a, const LayerState& b) { return a.linetype != b.linetype; },
     [](const DxfObjectSource& source, const LayerState& layer, Wish& wish) {
         const auto linetype = layer.linetype.openObject<OdDbLinetypeTableRecord>();
         wish.push_back(
             {6, linetype ? source.text().encode(linetype->getName()) : QByteArray("CONTINUOUS")});
     }},
    {QT_TRANSLATE_NOOP("LayerPatch", "the plot switch"), DrawingVersion::V2000,
     [](const LayerState& a, const LayerState& b) { return a.plottable != b.plottable; },
     [](const DxfObjectSource&, const LayerState& layer, Wish& wish) {
         wish.push_back({290, QByteArray(layer.plottable ? "1" : "0")});
     }},
    {QT_TRANSLATE_NOOP("LayerPatch", "the lineweight"), DrawingVersion::V2000,
     [](const LayerState& a, const LayerState& b) { return a.lineWeight != b.lineWeight; },
     [](const DxfObjectSource&, const LayerState& layer, Wish& wish) {
         wish.push_back({370, QByteArray::number(layer.lineWeight)});
     }},
    {QT_TRANSLATE_NOOP("LayerPatch", "the plot style"), DrawingVersion::V2000,
     [](const LayerState& a, const LayerState& b) { return a.plotStyle != b.plotStyle; },
     [](const DxfObjectSource&, const LayerState& layer, Wish& wish) {
         wish.push_back(
             {390,
              layer.plotStyle.isNull() ? std::nullopt : std::optional(handleOf(layer.plotStyle))});
     }},
};

void tellNotKept(const Property& property, const LayerState& layer, QStringList& notKept)
{
    notKept.append(tr("The drawing's version cannot hold %1 of layer \"%2\".")
                       .arg(tr(property.name), layer.name));
}

void wantColour(const LayerState& before, const LayerState& after, const QByteArrayView old,
                Wish& wish)
{
    const bool recoloured = before.color != after.color;
    if (!recoloured && before.off == after.off)
        return;
    // An unchanged colour keeps the index as written, which need not be the nearest one.
    qint64 index = after.color.colorIndex();
    if (const auto written = NumberText::integer(old).value_or(0); !recoloured && written != 0)
        index = std::clamp<qint64>(std::abs(written), 1, kMostIndex);
    wish.push_back({62, colourOf(after, static_cast<int>(index))});
}

Wish differences(const RecordPatcher& record, const DxfObjectSource& source,
                 const LayerState& before, const LayerState& after, QStringList& notKept)
{
    const auto old = [&](int code) {
        const RecordPatcher::Span* span = record.find(code);
        return span ? record.bytes(*span) : QByteArray();
    };
    Wish wish;
    if (before.name != after.name)
        wish.push_back({2, source.encodedName(after.name)});
    if (before.frozen != after.frozen || before.locked != after.locked
        || before.frozenInNewViewports != after.frozenInNewViewports)
        wish.push_back({70, flagsOf(after, NumberText::integer(old(70)).value_or(0))});
    wantColour(before, after, old(62), wish);
    for (const Property& property : kProperties) {
        if (!property.differs(before, after))
            continue;
        Wish groups;
        property.want(source, after, groups);
        if (source.version() < property.since) {
            // A file may hold a group before its time: then it must not contradict the layer.
            const auto isMissing = [&](const Wanted& group) { return !record.find(group.code); };
            if (std::any_of(groups.begin(), groups.end(),
                            [&](const Wanted& group) { return group.value && isMissing(group); }))
                tellNotKept(property, after, notKept);
            std::erase_if(groups, isMissing);
        }
        wish.insert(wish.end(), groups.begin(), groups.end());
    }
    return wish;
}

// Extended data

QByteArray encodedValue(const LayerXData::Property& property, const DxfObjectSource& source,
                        const LayerState& layer)
{
    return source.text().encode(QString::fromUtf8(property.value(layer)));
}

void appendApplication(const LayerXData::Property& property, const DxfObjectSource& source,
                       const LayerState& layer, const GroupSpelling& spelling, QByteArray& out)
{
    spelling.append(out, 1001, property.application);
    for (int i = 1; i < property.number; ++i)
        spelling.append(out, property.code, "");
    spelling.append(out, property.code, encodedValue(property, source, layer));
}

void patchApplication(RecordPatcher& record, const LayerXData::Property& property,
                      const DxfObjectSource& source, const LayerState& after)
{
    bool inside = false;
    bool found = false;
    int values = 0;
    quint64 end = 0;
    for (const RecordPatcher::Span& span : record.spans()) {
        if (span.code == 1001) {
            inside = !found && LayerXData::isSame(record.bytes(span), property.application);
            found = found || inside;
        }
        if (!inside)
            continue;
        end = span.end;
        if (span.code == property.code && ++values == property.number)
            return record.setValue(span, encodedValue(property, source, after));
    }
    QByteArray groups;
    if (!found)
        appendApplication(property, source, after, record.spelling(), groups);
    for (; found && values < property.number; ++values)
        record.spelling().append(
            groups, property.code,
            values + 1 == property.number ? encodedValue(property, source, after) : QByteArray());
    record.insert(found ? end : record.end(), groups);
}

} // namespace

void LayerGroups::patch(RecordPatcher& record, const DxfObjectSource& source,
                        const LayerState& before, const LayerState& after, QStringList& notKept)
{
    for (const Wanted& wanted : differences(record, source, before, after, notKept))
        record.want(wanted.code, wanted.value ? &*wanted.value : nullptr, groupOrder());
    for (const LayerXData::Property& property : LayerXData::kProperties) {
        if (property.differs(before, after))
            patchApplication(record, property, source, after);
    }
}

QByteArray LayerGroups::spelled(const DxfObjectSource& source, const LayerState& layer,
                                QStringList& notKept)
{
    const GroupSpelling spelling = source.spelling();
    Wish wish = {{2, source.encodedName(layer.name)},
                 {70, flagsOf(layer, 0)},
                 {62, colourOf(layer, layer.color.colorIndex())}};
    const LayerState plain;
    for (const Property& property : kProperties) {
        if (source.version() >= property.since)
            property.want(source, layer, wish);
        else if (property.differs(plain, layer))
            tellNotKept(property, layer, notKept);
    }
    for (const auto& [code, value] : source.layerZeroExtras())
        wish.push_back({code, value});
    QByteArray groups;
    for (const Wanted& wanted : wish) {
        const bool isDefault = wanted.code == 290 && layer.plottable;
        if (wanted.value && !isDefault)
            spelling.append(groups, wanted.code, *wanted.value);
    }
    for (const LayerXData::Property& property : LayerXData::kProperties) {
        if (property.isNeeded(layer))
            appendApplication(property, source, layer, spelling, groups);
    }
    return groups;
}

QList<QByteArray> LayerGroups::applications(const LayerState& before, const LayerState& after)
{
    QList<QByteArray> names;
    for (const LayerXData::Property& property : LayerXData::kProperties) {
        if (property.differs(before, after) && property.isNeeded(after))
            names.append(property.application);
    }
    return names;
}
