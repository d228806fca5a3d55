#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/write/DwgWriter.h"
#include "io/dwg/write/KeptBits.h"
#include "io/records/LayerXData.h"

#include <algorithm>

namespace {

bool isSame(const QString& a, const QString& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

/// The groups with the layer's value where it belongs; other groups stay.
GroupList withValue(const LayerXData::Property& property, const GroupList& groups,
                    const LayerState& layer)
{
    GroupList result;
    int values = 0;
    for (const GroupList::Group& group : groups) {
        const bool isValue = group.code == property.code && ++values == property.number;
        if (isValue)
            result.append(group.code, property.value(layer));
        else
            result.append(group);
    }
    while (++values < property.number)
        result.append(property.code, QByteArrayView(""));
    if (values == property.number)
        result.append(property.code, property.value(layer));
    return result;
}

} // namespace

std::vector<DwgWriter::XData> DwgWriter::divided(const GroupList& groups)
{
    std::vector<XData> blocks;
    for (const GroupList::Group& group : groups) {
        if (group.code == 1001)
            blocks.push_back({QString::fromUtf8(group.value), {}});
        else if (!blocks.empty())
            blocks.back().groups.append(group);
    }
    return blocks;
}

std::vector<std::pair<quint64, QByteArray>>
DwgWriter::newXData(quint64 record, const std::vector<XData>& blocks, quint64 taken)
{
    std::vector<std::pair<quint64, QByteArray>> spelled;
    for (const XData& block : blocks) {
        BitWriter own;
        const bool isSpelled = Spelling::xData(m_source.format(), block.groups, handleOf(), own);
        if (isSpelled && taken + own.size() / 8 <= Spelling::kMostXData) {
            taken += own.size() / 8;
            spelled.emplace_back(application(block.application), own.bytes());
        } else {
            tellXDataNotKept(record, block.application);
        }
    }
    return spelled;
}

void DwgWriter::tellXDataNotKept(quint64 record, const QString& application)
{
    m_meant->shortOfXData.insert(record);
    tellNotKept(tr("Extended data of the application \"%1\" hold more than DWG drawings can.")
                    .arg(application));
}

void DwgWriter::setXData(DwgRecord& record, const DwgHead& head, std::vector<XData> wanted,
                         RecordPatch& patch)
{
    const auto nameOf = [this](quint64 handle) { return m_source.plainNameOf(handle); };
    const auto spell = [this](const GroupList& groups, BitWriter& out) {
        return Spelling::xData(m_source.format(), groups, handleOf(), out);
    };
    const auto find = [&](const FreeRecords::XDataBlock& block) {
        const QString name = nameOf(block.application);
        return std::find_if(wanted.begin(), wanted.end(), [&](const XData& candidate) {
            return isSame(candidate.application, name);
        });
    };
    const std::vector<FreeRecords::XDataBlock> blocks =
        FreeRecords::xDataBlocks(record, head, nameOf);
    quint64 taken = 0; // bytes, at first of what stays as it is
    for (const FreeRecords::XDataBlock& block : blocks) {
        const auto now = find(block);
        if (now != wanted.end() && now->groups == block.own.groups)
            taken += (block.at.end - block.at.begin) / 8;
    }
    BitWriter bits;
    for (const FreeRecords::XDataBlock& block : blocks) {
        const auto now = find(block);
        if (now == wanted.end())
            continue;
        BitWriter own;
        const bool changes = !(now->groups == block.own.groups);
        const bool fits = changes
            && KeptBits::groups(record.body(), block.own, now->groups, spell, own)
            && taken + own.size() / 8 <= Spelling::kMostXData;
        taken += fits ? own.size() / 8 : 0;
        if (fits && own.size() > 0) {
            bits.bitShort(static_cast<qint16>(own.size() / 8));
            bits.append(record.body(), block.applicationAt.begin, block.applicationAt.end);
            bits.append(own);
        } else if (!fits) {
            bits.append(record.body(), block.at.begin, block.at.end);
            if (changes)
                tellXDataNotKept(head.handle, now->application);
        }
        wanted.erase(now);
    }
    bits.append(NewDwgRecords::spelledXData(newXData(head.handle, wanted, taken)));
    patch.replace(RecordPatch::Stream::Data, head.xData, bits);
}

void DwgWriter::editLayerXData(DwgRecord& record, const DwgHead& head, const LayerState& before,
                               const LayerState& after, RecordPatch& patch)
{
    std::vector<XData> blocks = divided(FreeRecords::xData(
        record, head, [this](quint64 handle) { return m_source.plainNameOf(handle); }));
    bool differs = false;
    for (const LayerXData::Property& property : LayerXData::kProperties) {
        if (!property.differs(before, after))
            continue;
        differs = true;
        const QString application = QLatin1String(property.application);
        auto own = std::find_if(blocks.begin(), blocks.end(), [&](const XData& block) {
            return isSame(block.application, application);
        });
        if (own == blocks.end())
            own = blocks.insert(own, {application, {}});
        own->groups = withValue(property, own->groups, after);
    }
    if (differs)
        setXData(record, head, blocks, patch);
}

std::vector<std::pair<quint64, QByteArray>> DwgWriter::layerXData(quint64 record,
                                                                  const LayerState& layer)
{
    std::vector<XData> blocks;
    for (const LayerXData::Property& property : LayerXData::kProperties) {
        if (property.isNeeded(layer))
            blocks.push_back({QLatin1String(property.application), withValue(property, {}, layer)});
    }
    return newXData(record, blocks);
}

quint64 DwgWriter::application(const QString& name)
{
    const OdDbSymbolTable& table = m_database.table(OdDbTableKind::RegApp);
    if (const OdDbObjectId known = table.getAt(name); !known.isNull())
        return known.getHandle().value();
    quint64& handle = m_applications[name];
    if (handle == 0) {
        handle = m_source.handleOfMade(table.objectId().slot(), name);
        m_meant->applications[handle] = name;
        put(ObjectStore::kNone, handle,
            m_newRecords.application({handle, table.objectId().getHandle().value()}, name));
        m_addedToTables[OdDbTableKind::RegApp].push_back(handle);
    }
    return handle;
}
