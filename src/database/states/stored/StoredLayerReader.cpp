#include "database/states/stored/StoredLayerReader.h"

#include "base/NumberText.h"

#include <limits>

namespace {

/// 32 bits of a number, whether it was written with a sign or without; nothing beyond.
std::optional<quint32> bits(QByteArrayView text)
{
    const auto number = NumberText::integer(text);
    if (!number || *number < std::numeric_limits<qint32>::min()
        || *number > std::numeric_limits<quint32>::max())
        return std::nullopt;
    return static_cast<quint32>(*number);
}

std::optional<qint32> number(QByteArrayView text)
{
    const auto value = bits(text);
    return value ? std::optional<qint32>(static_cast<qint32>(*value)) : std::nullopt;
}

void take(StoredLayer& layer, const GroupList::Group& group)
{
    switch (group.code) {
    case StateGroup::kLayerHandle:
        layer.layerHandle = NumberText::handle(group.value).value_or(0);
        break;
    case StateGroup::kLayerName:
        layer.layerName = group.value;
        break;
    case StateGroup::kFlags:
        layer.flags = bits(group.value);
        break;
    case StateGroup::kColorIndex:
        layer.colorIndex = number(group.value);
        break;
    case StateGroup::kLineWeight:
        layer.lineWeight = number(group.value);
        break;
    case StateGroup::kLinetypeHandle:
        layer.linetypeHandle = NumberText::handle(group.value).value_or(0);
        break;
    case StateGroup::kLinetypeName:
        layer.linetypeName = group.value;
        break;
    case StateGroup::kPlotStyle:
    case StateGroup::kPlotStyleInFile:
        layer.plotStyle = group.value;
        break;
    case StateGroup::kTransparency:
        layer.transparency = bits(group.value);
        break;
    case StateGroup::kPackedColor:
        layer.packedColor = bits(group.value);
        break;
    case StateGroup::kBookName:
        layer.bookName = group.value;
        break;
    default:
        break;
    }
}

} // namespace

StoredLayerReader::StoredLayerReader(const GroupList& groups)
    : m_at(groups.begin())
    , m_end(groups.end())
{
    while (m_at != m_end && !StateGroup::beginsLayer((*m_at).code))
        ++m_at;
    m_headEnd = m_at;
}

bool StoredLayerReader::next(StoredLayer& layer)
{
    if (m_at == m_end)
        return false;
    layer = {};
    layer.begin = m_at;
    do {
        take(layer, *m_at);
        ++m_at;
    } while (m_at != m_end && !StateGroup::beginsLayer((*m_at).code));
    layer.end = m_at;
    return true;
}
