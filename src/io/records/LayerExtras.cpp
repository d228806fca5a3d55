#include "io/records/LayerExtras.h"

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/ObjectStore.h"
#include "io/records/RecordSource.h"

#include <algorithm>
#include <array>
#include <set>

namespace {

enum ExtraGroup { kGroupMark = 102, kReconciled = 290, kViewport = 335, kBookName = 430 };

const QString& reconciledKey()
{
    static const QString key = QStringLiteral("ADSK_XREC_LAYER_RECONCILED");
    return key;
}
const QString& roundTripKey()
{
    static const QString key = QStringLiteral("ACAD_XREC_ROUNDTRIP");
    return key;
}

qint64 number(const GroupList::Group& group)
{
    return NumberText::integer(group.value).value_or(0);
}

OdDbObjectId reference(const OdDbDatabase& database, const GroupList::Group& group)
{
    return database.getOdDbObjectId(OdDbHandle(NumberText::handle(group.value).value_or(0)));
}

void appendHandle(GroupList& groups, int code, OdDbObjectId id)
{
    groups.append(code, id.getHandle().ascii().toLatin1());
}

/// An override record: its key, the mark that opens a viewport's block, the group of the value.
struct OverrideForm
{
    const char* key;
    const char* mark;
    int valueCode;
    void (*set)(const OdDbDatabase&, const GroupList::Group&, LayerOverride&);
    bool (*differs)(const LayerOverride&, const LayerOverride&);
    bool (*has)(const LayerOverride&);
    void (*append)(const LayerOverride&, GroupList&);
};

/// The layout of plot style overrides follows the others; no drawing of another program was seen
/// with one.
constexpr std::array<OverrideForm, 5> kOverrideForms = {{
    {"ADSK_XREC_LAYER_COLOR_OVR", "{ADSK_LYR_COLOR_OVERRIDE", 420,
     [](const OdDbDatabase&, const GroupList::Group& group, LayerOverride& there) {
         // Written as a signed or as an unsigned number.
         const auto colour =
             OdCmColor::fromPacked(static_cast<quint32>(number(group) & 0xFFFFFFFF));
         if (!colour.isByLayer())
             there.color = colour;
     },
     [](const LayerOverride& a, const LayerOverride& b) { return a.color != b.color; },
     [](const LayerOverride& there) { return there.color.has_value(); },
     [](const LayerOverride& there, GroupList& groups) {
         groups.append(420, qint64(static_cast<qint32>(there.color->color())));
         if (!there.color->bookName().isEmpty())
             groups.append(kBookName, there.color->bookName().toUtf8());
     }},
    {"ADSK_XREC_LAYER_LINETYPE_OVR", "{ADSK_LYR_LINETYPE_OVERRIDE", 343,
     [](const OdDbDatabase& database, const GroupList::Group& group, LayerOverride& there) {
         if (const OdDbObjectId linetype = reference(database, group); !linetype.isNull())
             there.linetype = linetype;
     },
     [](const LayerOverride& a, const LayerOverride& b) { return a.linetype != b.linetype; },
     [](const LayerOverride& there) { return there.linetype.has_value(); },
     [](const LayerOverride& there, GroupList& groups) {
         appendHandle(groups, 343, *there.linetype);
     }},
    {"ADSK_XREC_LAYER_LINEWT_OVR", "{ADSK_LYR_LINEWT_OVERRIDE", 91,
     [](const OdDbDatabase&, const GroupList::Group& group, LayerOverride& there) {
         there.lineWeight = static_cast<qint16>(number(group));
     },
     [](const LayerOverride& a, const LayerOverride& b) { return a.lineWeight != b.lineWeight; },
     [](const LayerOverride& there) { return there.lineWeight.has_value(); },
     [](const LayerOverride& there, GroupList& groups) {
         groups.append(91, qint64(*there.lineWeight));
     }},
    {"ADSK_XREC_LAYER_ALPHA_OVR", "{ADSK_LYR_ALPHA_OVERRIDE", 440,
     [](const OdDbDatabase&, const GroupList::Group& group, LayerOverride& there) {
         there.transparency = static_cast<quint32>(number(group));
     },
     [](const LayerOverride& a, const LayerOverride& b) {
         return a.transparency != b.transparency;
     },
     [](const LayerOverride& there) { return there.transparency.has_value(); },
     [](const LayerOverride& there, GroupList& groups) {
         groups.append(440, qint64(*there.transparency));
     }},
    {"ADSK_XREC_LAYER_PLOTSTYLE_OVR", "{ADSK_LYR_PLOTSTYLE_OVERRIDE", 343,
     [](const OdDbDatabase& database, const GroupList::Group& group, LayerOverride& there) {
         if (const OdDbObjectId style = reference(database, group); !style.isNull())
             there.plotStyle = style;
     },
     [](const LayerOverride& a, const LayerOverride& b) { return a.plotStyle != b.plotStyle; },
     [](const LayerOverride& there) { return there.plotStyle.has_value(); },
     [](const LayerOverride& there, GroupList& groups) {
         appendHandle(groups, 343, *there.plotStyle);
     }},
}};

LayerOverride overrideOf(const LayerState& layer, quint32 viewport)
{
    const auto it = layer.overrides.find(viewport);
    return it == layer.overrides.end() ? LayerOverride() : it->second;
}

/// The viewport's value in place of the block's.
void appendBlock(const GroupList& block, const OverrideForm& form, const LayerOverride& there,
                 GroupList& out)
{
    bool written = false;
    for (const GroupList::Group& group : block) {
        const bool closes = group.code == kGroupMark && !group.value.startsWith('{');
        if ((group.code == form.valueCode || closes) && !std::exchange(written, true))
            form.append(there, out);
        if (group.code != form.valueCode && group.code != kBookName)
            out.append(group);
    }
}

GroupList withOverrides(const OdDbDatabase& database, const OverrideForm& form,
                        const GroupList& old, const LayerState& before, const LayerState& after)
{
    GroupList result;
    GroupList block;
    std::set<quint32> seen;
    quint32 viewport = OdDbObjectId::kNoSlot;
    for (const GroupList::Group& group : old) {
        const bool opens = group.code == kGroupMark && group.value.startsWith('{');
        if (block.isEmpty() && !opens) {
            result.append(group);
            continue;
        }
        if (opens)
            viewport = OdDbObjectId::kNoSlot;
        block.append(group);
        if (group.code == kViewport)
            viewport = reference(database, group).slot();
        if (group.code != kGroupMark || opens)
            continue;
        const LayerOverride now = overrideOf(after, viewport);
        const bool same = !form.differs(overrideOf(before, viewport), now);
        if (same) {
            for (const GroupList::Group& kept : block)
                result.append(kept);
        } else if (form.has(now)) {
            appendBlock(block, form, now, result);
        }
        if (viewport != OdDbObjectId::kNoSlot)
            seen.insert(viewport);
        block.clear();
    }
    for (const GroupList::Group& kept : block) // not closed
        result.append(kept);
    for (const auto& [slot, there] : after.overrides) {
        if (!form.has(there) || seen.contains(slot))
            continue;
        result.append(kGroupMark, form.mark);
        appendHandle(result, kViewport, database.idOfSlot(slot));
        form.append(there, result);
        result.append(kGroupMark, "}");
    }
    return result;
}

bool overridesDiffer(const OverrideForm& form, const LayerState& before, const LayerState& after)
{
    const auto anyDiffers = [&](const LayerState& from, const LayerState& to) {
        return std::any_of(from.overrides.begin(), from.overrides.end(), [&](const auto& entry) {
            return form.differs(entry.second, overrideOf(to, entry.first));
        });
    };
    return anyDiffers(before, after) || anyDiffers(after, before);
}

GroupList withReconciled(const GroupList& old, const std::optional<bool>& reconciled)
{
    GroupList result;
    if (!reconciled)
        return result;
    bool found = false;
    for (const GroupList::Group& group : old) {
        if (group.code == kReconciled) {
            result.append(kReconciled, qint64(*reconciled));
            found = true;
        } else {
            result.append(group);
        }
    }
    if (!found)
        result.append(kReconciled, qint64(*reconciled));
    return result;
}

/// Without the kept values that an edit made stale.
GroupList withoutStale(const GroupList& old, const LayerState& before, const LayerState& after)
{
    QList<QByteArrayView> stale;
    if (before.color != after.color)
        stale << "COLORACI"
              << "COLORTRUE"
              << "COLORNAME";
    if (before.lineWeight != after.lineWeight)
        stale << "LINEWEIGHT";
    if (before.plottable != after.plottable)
        stale << "PLOTBIT";
    if (before.plotStyle != after.plotStyle)
        stale << "PLOTSTYLENAMESTR";
    if (before.name != after.name)
        stale << "EXTNAMES";
    GroupList result;
    bool drops = false;
    for (const GroupList::Group& group : old) {
        if (group.code == kGroupMark)
            drops = stale.contains(group.value);
        if (!drops)
            result.append(group);
    }
    return result;
}

} // namespace

void LayerExtras::read(const OdDbDatabase& database, const QString& key, const GroupList& groups,
                       LayerState& layer)
{
    if (key.compare(reconciledKey(), Qt::CaseInsensitive) == 0) {
        for (const GroupList::Group& group : groups) {
            if (group.code == kReconciled)
                layer.reconciled = number(group) != 0;
        }
        return;
    }
    for (const OverrideForm& form : kOverrideForms) {
        if (key.compare(QLatin1String(form.key), Qt::CaseInsensitive) != 0)
            continue;
        quint32 viewport = OdDbObjectId::kNoSlot;
        for (const GroupList::Group& group : groups) {
            if (group.code == kGroupMark) {
                viewport = OdDbObjectId::kNoSlot;
            } else if (group.code == kViewport) { // none: the viewport was erased
                const OdDbObjectId id = reference(database, group);
                const bool isViewport =
                    !id.isNull() && database.store().type(id.slot()) == RecordType::Viewport;
                viewport = isViewport ? id.slot() : OdDbObjectId::kNoSlot;
            } else if (viewport != OdDbObjectId::kNoSlot) {
                LayerOverride& there = layer.overrides[viewport];
                if (group.code == form.valueCode)
                    form.set(database, group, there);
                else if (group.code == kBookName && there.color)
                    there.color = there.color->withBookName(QString::fromUtf8(group.value));
            }
        }
    }
    std::erase_if(layer.overrides,
                  [](const auto& entry) { return entry.second == LayerOverride(); });
}

std::vector<LayerExtras::Change> LayerExtras::changes(const RecordSource& source,
                                                      OdDbObjectId layer, const LayerState& before,
                                                      const LayerState& after)
{
    const OdDbDatabase& database = source.database();
    const auto dictionary = database.extensionDictionary(layer).openObject<OdDbDictionary>();
    std::vector<Change> found;
    const auto edit = [&](const QString& key, auto edited) {
        const OdDbObjectId record = dictionary ? dictionary->getAt(key) : OdDbObjectId();
        const bool inFile = !record.isNull() && record.slot() < database.store().fileRecords();
        Change change{key, inFile ? record.slot() : OdDbObjectId::kNoSlot, {}, {}};
        if (inFile)
            change.before = source.readXrecord(record.slot()).groups;
        change.after = edited(change.before);
        if (!(change.before == change.after))
            found.push_back(std::move(change));
    };
    for (const OverrideForm& form : kOverrideForms) {
        if (overridesDiffer(form, before, after))
            edit(QLatin1String(form.key), [&](const GroupList& old) {
                return withOverrides(database, form, old, before, after);
            });
    }
    if (before.reconciled != after.reconciled)
        edit(reconciledKey(),
             [&](const GroupList& old) { return withReconciled(old, after.reconciled); });
    edit(roundTripKey(), [&](const GroupList& old) { return withoutStale(old, before, after); });
    return found;
}
