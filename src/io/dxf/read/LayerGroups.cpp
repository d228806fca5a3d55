#include "io/dxf/read/LayerGroups.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/values/GroupCursor.h"
#include "io/records/LayerFlag.h"
#include "io/records/LayerXData.h"

namespace {

void setColour(LayerState& layer, qint64 index)
{
    constexpr qint64 kWhite = 7;
    layer.off = index < 0;
    // By-block, by-layer and what is no index say nothing on a layer.
    const bool isIndex = index != 0 && index > -256 && index < 256;
    const auto colour = static_cast<int>(isIndex ? std::abs(index) : kWhite);
    // A true colour, where there is one, has the last word.
    if (layer.color.colorMethod() != OdCmColor::kByColor)
        layer.color = OdCmColor::fromIndex(colour).withBookName(layer.color.bookName());
}

} // namespace

void LayerGroups::Reader::take(const GroupCursor& group)
{
    const int code = group.code();
    if (code >= 1000)
        return takeExtendedData(group);
    if (code == 102) {
        m_inGroup = group.bytes().trimmed().startsWith('{');
        return;
    }
    if (m_inGroup || code < 0 || m_taken.test(static_cast<std::size_t>(code)))
        return;
    m_taken.set(static_cast<std::size_t>(code));
    takeOwn(group);
}

void LayerGroups::Reader::takeOwn(const GroupCursor& group)
{
    LayerState& layer = m_layer;
    switch (group.code()) {
    case 2:
        layer.name = group.text();
        break;
    case 70: {
        const auto flags = group.integer();
        layer.frozen = (flags & LayerFlag::kFrozen) != 0;
        layer.frozenInNewViewports = (flags & LayerFlag::kFrozenInNewViewports) != 0;
        layer.locked = (flags & LayerFlag::kLocked) != 0;
        layer.dependent = (flags & LayerFlag::kDependent) != 0;
        break;
    }
    case 62:
        setColour(layer, group.integer());
        break;
    case 420: {
        const auto rgb = static_cast<quint32>(group.integer());
        layer.color = OdCmColor::fromRgb(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF,
                                         layer.color.bookName());
        break;
    }
    case 430:
        layer.color = layer.color.withBookName(group.text());
        break;
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
        break;
    }
}

void LayerGroups::Reader::takeExtendedData(const GroupCursor& group)
{
    if (group.code() == 1001)
        m_xData.startApplication(group.bytes());
    else if (const LayerXData::Property* found = m_xData.next(group.code()))
        found->take(group.code() == 1000 ? group.text() : QString(), group.integer(), m_layer);
}
