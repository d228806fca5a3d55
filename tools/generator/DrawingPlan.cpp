#include "generator/DrawingPlan.h"

#include <algorithm>

const char* versionName(DrawingVersion version)
{
    switch (version) {
    case DrawingVersion::V2000:
        return "AC1015";
    case DrawingVersion::V2004:
        return "AC1018";
    case DrawingVersion::V2013:
        return "AC1027";
    case DrawingVersion::V2018:
        break;
    }
    return "AC1032";
}

DrawingPlan::DrawingPlan(const DrawingOptions& options)
    : m_options(options)
{
    m_options.layers = std::max(m_options.layers, 2);
    m_options.entities = std::max<std::int64_t>(m_options.entities, 0);
    m_options.blocks = std::max(m_options.blocks, 1);
    m_options.layouts = std::max(m_options.layouts, 1);

    const std::array<std::int64_t, RangeCount> counts{
        kLinetypes,
        kAppIds,
        kVariables,
        m_options.layers,
        blockRecords(),
        blockRecords(),
        blockRecords(),
        spaces(),
        std::int64_t{m_options.layouts} * kSheetEntities,
        std::int64_t{m_options.blocks} * kBlockEntities,
        m_options.entities,
    };
    m_seed = fixture(Fixture::Count);
    for (std::size_t range = 0; range < RangeCount; ++range) {
        m_first[range] = m_seed;
        m_seed += static_cast<std::uint64_t>(counts[range]);
    }
}

std::string DrawingPlan::blockName(int record) const
{
    if (record == 0)
        return "*Model_Space";
    // The sheet that was current last has the bare name, the others are numbered from 0.
    if (record == 1)
        return "*Paper_Space";
    if (record < spaces())
        return "*Paper_Space" + std::to_string(record - 2);

    static constexpr std::array kKinds{"DOOR",   "WINDOW", "COLUMN", "DESK", "CHAIR", "LAMP",
                                       "OUTLET", "VALVE",  "BASIN",  "TREE", "MARK",  "TAG"};
    const auto block = static_cast<std::size_t>(record - spaces());
    return std::string(kKinds[block % kKinds.size()]) + "-" + std::to_string(block + 1);
}

std::string DrawingPlan::layoutName(int space) const
{
    return space == 0 ? "Model" : "Sheet " + std::to_string(space);
}
