#include "io/dxf/LayerGroups.h"

#include "base/NumberText.h"
#include "database/GroupCursor.h"
#include "database/OdDbDatabase.h"

#include <array>

namespace {

enum LayerFlag : int { kFrozen = 1, kFrozenInNewViewports = 2, kLocked = 4, kDependent = 16 };

constexpr const char* kDescriptionApplication = "ACAECLAYERSTANDARD";
constexpr const char* kTransparencyApplication = "ACCMTRANSPARENCY";

void setColour(LayerState& layer, int index)
{
    layer.off = index < 0;
    // A true colour, where there is one, has the last word.
    if (layer.color.colorMethod() != OdCmColor::kByColor)
        layer.color = OdCmColor::fromIndex(std::abs(index));
}

/// An override record: which block it holds, which group carries the value.
struct OverrideForm
{
    const char* key;
    int valueCode;
    void (*set)(const OdDbDatabase&, const GroupList::Group&, LayerOverride&);
};

qint64 number(const GroupList::Group& group)
{
    return NumberText::integer(group.value).value_or(0);
}

OdDbObjectId reference(const OdDbDatabase& database, const GroupList::Group& group)
{
    return database.getOdDbObjectId(OdDbHandle(NumberText::handle(group.value).value_or(0)));
}

constexpr std::array<OverrideForm, 4> kOverrideForms = {{
    {"ADSK_XREC_LAYER_COLOR_OVR", 420,
     [](const OdDbDatabase&, const GroupList::Group& group, LayerOverride& there) {
         // Written as a signed or as an unsigned number.
         const auto colour =
             OdCmColor::fromPacked(static_cast<quint32>(number(group) & 0xFFFFFFFF));
         if (!colour.isByLayer())
             there.color = colour;
     }},
    {"ADSK_XREC_LAYER_LINETYPE_OVR", 343,
     [](const OdDbDatabase& database, const GroupList::Group& group, LayerOverride& there) {
         if (const OdDbObjectId linetype = reference(database, group); !linetype.isNull())
             there.linetype = linetype;
     }},
    {"ADSK_XREC_LAYER_LINEWT_OVR", 91,
     [](const OdDbDatabase&, const GroupList::Group& group, LayerOverride& there) {
         there.lineWeight = static_cast<qint16>(number(group));
     }},
    {"ADSK_XREC_LAYER_ALPHA_OVR", 440,
     [](const OdDbDatabase&, const GroupList::Group& group, LayerOverride& there) {
         there.transparency = static_cast<quint32>(number(group));
     }},
}};

} // namespace

void LayerGroups::Reader::take(const GroupCursor& group)
{
    LayerState& layer = m_layer;
    switch (group.code()) {
    case 2:
        layer.name = group.text();
        break;
    case 70: {
        const auto flags = group.integer();
        layer.frozen = (flags & kFrozen) != 0;
        layer.frozenInNewViewports = (flags & kFrozenInNewViewports) != 0;
        layer.locked = (flags & kLocked) != 0;
        layer.dependent = (flags & kDependent) != 0;
        break;
    }
    case 62:
        setColour(layer, static_cast<int>(group.integer()));
        break;
    case 420: {
        const auto rgb = static_cast<quint32>(group.integer());
        layer.color = OdCmColor::fromRgb(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF,
                                         layer.color.bookName());
        break;
    }
    case 430: {
        const quint32 rgb = layer.color.color();
        layer.color =
            OdCmColor::fromRgb(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF, group.text());
        break;
    }
    case 6:
        if (const OdDbObjectId linetype =
                m_database.table(OdDbTableKind::Linetype).getAt(group.text());
            !linetype.isNull())
            layer.linetype = linetype;
        break;
    case 290:
        layer.plottable = group.integer() != 0;
        break;
    case 370:
        layer.lineWeight = static_cast<qint16>(group.integer());
        break;
    case 390:
        layer.plotStyle = m_database.getOdDbObjectId(OdDbHandle(group.handle()));
        break;
    default:
        if (group.code() >= 1000)
            takeExtendedData(group);
        break;
    }
}

void LayerGroups::Reader::takeExtendedData(const GroupCursor& group)
{
    if (group.code() == 1001) {
        m_application = group.bytes().trimmed().toByteArray().toUpper();
        m_strings = 0;
    } else if (group.code() == 1000 && m_application == kDescriptionApplication) {
        // The first string is of unknown use and empty everywhere; the second is the description.
        if (++m_strings == 2)
            m_layer.description = group.text();
    } else if (group.code() == 1071 && m_application == kTransparencyApplication) {
        m_layer.transparency = static_cast<quint32>(group.integer());
    }
}

void LayerGroups::readExtra(const OdDbDatabase& database, const QString& key,
                            const GroupList& groups, LayerState& layer)
{
    if (key.compare(QLatin1String("ADSK_XREC_LAYER_RECONCILED"), Qt::CaseInsensitive) == 0) {
        for (const GroupList::Group& group : groups) {
            if (group.code == 290)
                layer.reconciled = number(group) != 0;
        }
        return;
    }
    for (const OverrideForm& form : kOverrideForms) {
        if (key.compare(QLatin1String(form.key), Qt::CaseInsensitive) != 0)
            continue;
        quint32 viewport = OdDbObjectId::kNoSlot;
        for (const GroupList::Group& group : groups) {
            if (group.code == 335)
                viewport = reference(database, group).slot(); // none: the viewport was erased
            else if (group.code == form.valueCode && viewport != OdDbObjectId::kNoSlot)
                form.set(database, group, layer.overrides[viewport]);
        }
    }
}
