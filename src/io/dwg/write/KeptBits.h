#pragma once

#include "io/dwg/bits/BitWriter.h"
#include "io/dwg/records/FreeRecords.h"

#include <functional>
#include <vector>

/// Parts of a record after an edit: what stays keeps its bits, whatever is known of them; only what
/// is new is spelled.
namespace KeptBits {

/// Spells groups one behind the other; false where one has no form.
using Spell = std::function<bool(const GroupList& groups, BitWriter& out)>;

/// The groups `after` in the place of those that were read, with what stood behind these. False
/// where one of them cannot be spelled.
bool groups(QByteArrayView body, const FreeRecords::Items& before, const GroupList& after,
            const Spell& spell, BitWriter& out);

struct References
{
    BitWriter bits;
    std::vector<quint64> handles; ///< as they are now
};
/// The list of references at `at`, with the handles `wanted`. New ones are of that kind; those of
/// which `isUnknown` says that nothing is known stay where they are.
References references(DwgRecord& record, BitSpan at, const std::vector<quint64>& wanted,
                      DwgReference kind, const std::function<bool(quint64)>& isUnknown = nullptr);

/// The entries `wanted` with those that are not among `before` where the order of their keys, in
/// lower case, has them: other programs search by it.
std::vector<KeyedHandle> inKeyOrder(const std::vector<KeyedHandle>& wanted,
                                    const std::vector<KeyedHandle>& before);

/// Keys and references of a dictionary with the entries `wanted`. One with handle 0 keeps its
/// reference.
struct Entries
{
    BitWriter keys;
    BitWriter references;
    std::vector<KeyedHandle> entries; ///< as they are now
};
Entries entries(const DwgRecord& record, const DwgFormat& format,
                const FreeRecords::Dictionary& before, const std::vector<KeyedHandle>& wanted);

} // namespace KeptBits
