#include "io/dwg/groups/EntityDecoders.h"
#include "io/dwg/groups/RecordGroups.h"
#include "io/dwg/records/DwgTypes.h"

#include <array>

namespace {

struct FixedEntry
{
    quint16 type;
    EntityDecoder decode;
};
constexpr FixedEntry kFixed[] = {
    {DwgType::Line, decodeLine},
    {DwgType::Circle, decodeCircle},
    {DwgType::Arc, decodeArc},
    {DwgType::Point, decodePoint},
};

constexpr std::size_t kFixedTypes = 0x53;
constexpr auto kByType = [] {
    std::array<EntityDecoder, kFixedTypes> decoders{};
    for (const FixedEntry& entry : kFixed)
        decoders[entry.type] = entry.decode;
    return decoders;
}();

struct NamedEntry
{
    const char* name;
    EntityDecoder decode;
};
/// Types that some versions have as classes.
constexpr std::array<NamedEntry, 0> kNamed = {};

} // namespace

void RecordGroups::entity(const GroupContext& context, QByteArrayView name)
{
    const quint16 type = context.record.type();
    if (type < kByType.size()) {
        if (kByType[type])
            kByType[type](context);
        return;
    }
    for (const NamedEntry& entry : kNamed) {
        if (name == entry.name)
            return entry.decode(context);
    }
}
